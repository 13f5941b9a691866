#include "run/clsMonitors.h"

#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

#include <QRect>
#include <QWidget>
#include <QtNumeric>

namespace {

// System metrics of the virtual desktop and of the screen.
constexpr qint32 SM_CXSCREEN = 0;
constexpr qint32 SM_CYSCREEN = 1;
constexpr qint32 SM_XVIRTUALSCREEN = 76;
constexpr qint32 SM_YVIRTUALSCREEN = 77;
constexpr qint32 SM_CXVIRTUALSCREEN = 78;
constexpr qint32 SM_CYVIRTUALSCREEN = 79;
constexpr qint32 SM_CMONITORS = 80;

// The grid of Refresh: one sample in the middle of each cell of 640 by 480.
constexpr qint32 GridStepX = 640;
constexpr qint32 GridStepY = 480;

// Long arithmetic: a result outside the range raises 6 "Overflow".
qint32 AddLong(qint32 a, qint32 b) {
    qint32 result = 0;
    if (qAddOverflow(a, b, &result))
        throw VBError(VBErr::Overflow);
    return result;
}

qint32 SubLong(qint32 a, qint32 b) {
    qint32 result = 0;
    if (qSubOverflow(a, b, &result))
        throw VBError(VBErr::Overflow);
    return result;
}

qint32 MulLong(qint32 a, qint32 b) {
    qint32 result = 0;
    if (qMulOverflow(a, b, &result))
        throw VBError(VBErr::Overflow);
    return result;
}

// Whole-number division (\) of longs: the quotient cut toward zero.
qint32 IntDiv(qint32 a, qint32 b) {
    if (b == 0)
        throw VBError(11);
    return a / b;
}

// Twips to pixels at lngTwipsPerPixel, to the nearest pixel.
int ToPixels(qint32 lngTwips, qint32 lngTwipsPerPixel) {
    if (lngTwipsPerPixel <= 0)
        throw VBError(11);
    const qint64 half = lngTwipsPerPixel / 2;
    return static_cast<int>(lngTwips >= 0 ? (lngTwips + half) / lngTwipsPerPixel
                                          : -((-qint64(lngTwips) + half) / lngTwipsPerPixel));
}

Platform& platform() {
    return Platform::Current();
}

} // namespace

// ---- MonitorCollection --------------------------------------------------------

qsizetype clsMonitors::MonitorCollection::position(qint32 Index) const {
    if (Index < 1 || Index > Count())
        throw VBError(VBErr::SubscriptOutOfRange);
    return Index - 1;
}

clsMonitor& clsMonitors::MonitorCollection::Item(qint32 Index) {
    return m_items[position(Index)].Monitor;
}

clsMonitor& clsMonitors::MonitorCollection::Item(const QString& Key) {
    for (Entry& entry : m_items)
        if (entry.Key.compare(Key, Qt::CaseInsensitive) == 0)
            return entry.Monitor;
    throw VBError(VBErr::InvalidProcedureCall);
}

void clsMonitors::MonitorCollection::Add(const clsMonitor& Item, const QString& Key) {
    for (const Entry& entry : m_items)
        if (entry.Key.compare(Key, Qt::CaseInsensitive) == 0)
            throw VBError(VBErr::KeyAlreadyInCollection);
    m_items.append({Key, Item});
}

void clsMonitors::MonitorCollection::Remove(qint32 Index) {
    m_items.removeAt(position(Index));
}

// ---- clsMonitors ----------------------------------------------------------------

clsMonitors::clsMonitors(QObject* parent) : QObject(parent) {
    Refresh();
}

clsMonitors::~clsMonitors() = default;

clsMonitors::MonitorCollection& clsMonitors::Monitors() {
    if (!m_colMonitors)
        m_colMonitors = std::make_unique<MonitorCollection>();
    return *m_colMonitors;
}

qint32 clsMonitors::DesktopLeft() {
    return GetSystemMetrics2(SM_XVIRTUALSCREEN, 0);
}

qint32 clsMonitors::DesktopTop() {
    return GetSystemMetrics2(SM_YVIRTUALSCREEN, 0);
}

qint32 clsMonitors::DesktopWidth() {
    const qint32 lngScreenWidth =
        MulLong(platform().GetSystemMetrics(SM_CXSCREEN), platform().TwipsPerPixelX());
    return GetSystemMetrics2(SM_CXVIRTUALSCREEN,
                             IntDiv(lngScreenWidth, platform().TwipsPerPixelX()));
}

qint32 clsMonitors::DesktopHeight() {
    const qint32 lngScreenHeight =
        MulLong(platform().GetSystemMetrics(SM_CYSCREEN), platform().TwipsPerPixelY());
    return GetSystemMetrics2(SM_CYVIRTUALSCREEN,
                             IntDiv(lngScreenHeight, platform().TwipsPerPixelY()));
}

// A machine without the multi-monitor metrics answers 0 for the number of
// monitors; the class then works from the defaults.
qint32 clsMonitors::GetSystemMetrics2(qint32 lItem, qint32 lDefault) {
    if (platform().GetSystemMetrics(SM_CMONITORS) != 0)
        return platform().GetSystemMetrics(lItem);
    return lDefault;
}

qint32 clsMonitors::GetMonitorFromWindow(const QWidget* hWnd, qint32 dwFlags) {
    try {
        return platform().MonitorFromWindow(hWnd, dwFlags);
    } catch (...) {
        return 0;
    }
}

qint32 clsMonitors::GetMonitorFromXYPoint(qint32 X, qint32 Y, qint32 dwFlags) {
    // The one-pixel area (X, Y) - (X + 1, Y + 1); any failure, in building it
    // or in the look-up, answers -1.
    try {
        const QRect rcPoint(QPoint(X, Y), QPoint(AddLong(X, 1) - 1, AddLong(Y, 1) - 1));
        return platform().MonitorFromRect(rcPoint, dwFlags);
    } catch (...) {
        return -1;
    }
}

// Fills objMonitor from the platform and answers what the platform answered:
// 0 when it knew nothing of the monitor, whose rectangles are then zeros. The
// platform's right and bottom edges lie one past the last pixel.
qint32 clsMonitors::GetMonitorInformation(qint32 hMonitor, clsMonitor& objMonitor) {
    try {
        MonitorInfo MI;
        MI.cbSize = MonitorInfo::SizeOfMonitorInfo;
        const qint32 lngResult = platform().GetMonitorInfo(hMonitor, MI) ? 1 : 0;
        if (lngResult == 0)
            MI = MonitorInfo();
        const QRect& rc = MI.rcMonitor;
        const QRect& rcWork = MI.rcWork;
        objMonitor.setHandle(hMonitor);
        objMonitor.setLeft(rc.x());
        objMonitor.setRight(AddLong(rc.x(), rc.width()));
        objMonitor.setTop(rc.y());
        objMonitor.setBottom(AddLong(rc.y(), rc.height()));
        objMonitor.setWorkLeft(rcWork.x());
        objMonitor.setWorkRight(AddLong(rcWork.x(), rcWork.width()));
        objMonitor.setWorkTop(rcWork.y());
        objMonitor.setWorkBottom(AddLong(rcWork.y(), rcWork.height()));
        objMonitor.setHeight(SubLong(objMonitor.Bottom(), objMonitor.Top()));
        objMonitor.setWidth(SubLong(objMonitor.Right(), objMonitor.Left()));
        return lngResult;
    } catch (...) {
        return 0;
    }
}

void clsMonitors::ClearMonitorsCollection() {
    MonitorCollection& colMonitors = Monitors();
    for (qint32 i = colMonitors.Count(); i >= 1; --i)
        colMonitors.Remove(i);
}

// The one monitor of a machine without multi-monitor support: the screen.
clsMonitor clsMonitors::ScreenMonitor() {
    const qint32 lngTwipsX = platform().TwipsPerPixelX();
    const qint32 lngTwipsY = platform().TwipsPerPixelY();
    const qint32 lngRight =
        IntDiv(MulLong(platform().GetSystemMetrics(SM_CXSCREEN), lngTwipsX), lngTwipsX);
    const qint32 lngBottom =
        IntDiv(MulLong(platform().GetSystemMetrics(SM_CYSCREEN), lngTwipsY), lngTwipsY);
    clsMonitor objMonitor;
    objMonitor.setHandle(0);
    objMonitor.setLeft(0);
    objMonitor.setTop(0);
    objMonitor.setRight(lngRight);
    objMonitor.setBottom(lngBottom);
    objMonitor.setWorkLeft(0);
    objMonitor.setWorkTop(0);
    objMonitor.setWorkRight(lngRight);
    objMonitor.setWorkBottom(lngBottom);
    objMonitor.setWidth(lngRight);
    objMonitor.setHeight(lngBottom);
    return objMonitor;
}

void clsMonitors::Refresh() {
    try {
        m_colMonitors.reset();
        if (platform().GetSystemMetrics(SM_CMONITORS) == 0) {
            ClearMonitorsCollection();
            Monitors().Add(ScreenMonitor(), QStringLiteral("0"));
            return;
        }
        WalkDesktopGrid();
    } catch (...) {
        // Any failure but a key added twice ends the refresh, silently, with
        // the monitors found so far.
    }
}

// The walk runs to DesktopWidth and DesktopHeight, not to the desktop's right
// and bottom edges. Kept so on purpose: with a negative origin it runs past
// those edges, where the samples meet no monitor; with a positive origin it
// stops short by the origin. A monitor smaller than a cell can be missed.
void clsMonitors::WalkDesktopGrid() {
    for (qint32 y = DesktopTop(), lngLastY = DesktopHeight(); y <= lngLastY;
         y = AddLong(y, GridStepY)) {
        for (qint32 x = DesktopLeft(), lngLastX = DesktopWidth(); x <= lngLastX;
             x = AddLong(x, GridStepX)) {
            const qint32 hMonitor = GetMonitorFromXYPoint(
                AddLong(x, GridStepX / 2), AddLong(y, GridStepY / 2), MONITOR_DEFAULTTONULL);
            if (hMonitor != 0)
                AddMonitorAt(hMonitor);
        }
    }
}

// Each monitor is added once, at the first cell that falls on it: the later
// cells meet its key already there (457), and the walk goes on.
void clsMonitors::AddMonitorAt(qint32 hMonitor) {
    clsMonitor objMonitor;
    GetMonitorInformation(hMonitor, objMonitor);
    try {
        Monitors().Add(objMonitor, VB::CStr(hMonitor));
    } catch (const VBError& e) {
        if (e.Number != VBErr::KeyAlreadyInCollection)
            throw;
    }
}

QVariant clsMonitors::CenterFormOnMonitor(QWidget* FormToCenter, const QWidget* ReferenceForm) {
    try {
        if (!FormToCenter)
            throw VBError(VBErr::ObjectNotSet);
        const qint32 hMonitor = ReferenceForm
                                    ? GetMonitorFromWindow(ReferenceForm, MONITOR_DEFAULTTOPRIMARY)
                                    : GetMonitorFromXYPoint(1, 1, MONITOR_DEFAULTTOPRIMARY);
        const qint32 lngTwipsX = platform().TwipsPerPixelX();
        const qint32 lngTwipsY = platform().TwipsPerPixelY();
        const QRect rcForm = FormToCenter->frameGeometry();
        const qint32 lngFormWidth = MulLong(rcForm.width(), lngTwipsX);
        const qint32 lngFormHeight = MulLong(rcForm.height(), lngTwipsY);
        qint32 lngLeft = 0;
        qint32 lngTop = 0;
        if (hMonitor != 0) {
            clsMonitor objMonitor;
            if (GetMonitorInformation(hMonitor, objMonitor) == 0)
                return QVariant();
            const qint32 lngWorkWidth =
                MulLong(SubLong(objMonitor.WorkRight(), objMonitor.WorkLeft()), lngTwipsX);
            const qint32 lngWorkHeight =
                MulLong(SubLong(objMonitor.WorkBottom(), objMonitor.WorkTop()), lngTwipsY);
            // The sizes are those of the work area, the offsets those of the
            // monitor. The top is offset with the twips per pixel across, as the
            // left is; the two are the same on every known display.
            lngLeft = AddLong(IntDiv(SubLong(lngWorkWidth, lngFormWidth), 2),
                              MulLong(lngTwipsX, objMonitor.Left()));
            lngTop = AddLong(IntDiv(SubLong(lngWorkHeight, lngFormHeight), 2),
                             MulLong(lngTwipsX, objMonitor.Top()));
        } else {
            const qint32 lngScreenWidth =
                MulLong(platform().GetSystemMetrics(SM_CXSCREEN), lngTwipsX);
            const qint32 lngScreenHeight =
                MulLong(platform().GetSystemMetrics(SM_CYSCREEN), lngTwipsY);
            lngLeft = IntDiv(SubLong(lngScreenWidth, lngFormWidth), 2);
            lngTop = IntDiv(SubLong(lngScreenHeight, lngFormHeight), 2);
        }
        FormToCenter->move(ToPixels(lngLeft, lngTwipsX), ToPixels(lngTop, lngTwipsY));
    } catch (...) {
        // No report: the form stays where it was.
    }
    return QVariant();
}
