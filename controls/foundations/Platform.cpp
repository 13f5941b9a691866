#include "foundations/Platform.h"

#include "foundations/MediaSound.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/modQVLTControls.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QRegion>
#include <QScreen>
#include <QStyle>
#include <QUrl>
#include <QWidget>

namespace {

Platform* g_installed = nullptr;
QPointer<QWidget> g_dialogOwner;

const QString& applicationTitle() {
    static const QString title = QStringLiteral("Corvantis");
    return title;
}

// Dialogs need a QApplication; a console-only process (a tool, a test without
// widgets) gets the default answers instead of a crash.
bool haveWidgets() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

QWidget* dialogParent() {
    return Platform::Current().DialogParent();
}

struct BoxButton {
    QMessageBox::StandardButton button;
    qint32 answer;
};

QList<BoxButton> buttonSet(qint32 intButtons) {
    switch (intButtons & 0x7) {
    case vbOKCancel:
        return {{QMessageBox::Ok, vbOK}, {QMessageBox::Cancel, vbCancel}};
    case vbAbortRetryIgnore:
        return {{QMessageBox::Abort, vbAbort},
                {QMessageBox::Retry, vbRetry},
                {QMessageBox::Ignore, vbIgnore}};
    case vbYesNoCancel:
        return {
            {QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}, {QMessageBox::Cancel, vbCancel}};
    case vbYesNo:
        return {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}};
    case vbRetryCancel:
        return {{QMessageBox::Retry, vbRetry}, {QMessageBox::Cancel, vbCancel}};
    default:
        return {{QMessageBox::Ok, vbOK}};
    }
}

QMessageBox::Icon boxIcon(qint32 intButtons) {
    switch (intButtons & 0x70) {
    case vbCritical:
        return QMessageBox::Critical;
    case vbQuestion:
        return QMessageBox::Question;
    case vbExclamation:
        return QMessageBox::Warning;
    case vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

// "Text files|*.txt;*.rtf|All|*.*" -> "Text files (*.txt *.rtf);;All (*.*)", and
// "Text files (*.txt;*.rtf)|*.txt;*.rtf" -> "Text files (*.txt *.rtf)".
QString qtFilter(const QString& strFilter) {
    const QStringList parts = strFilter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts.at(i + 1);
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // A label that shows its patterns already ("Pictures (*.bmp;*.jpg)") shows them once.
        QString label = parts.at(i);
        const qsizetype lngOpen = label.lastIndexOf(QLatin1Char('('));
        if (label.endsWith(QLatin1Char(')')) && lngOpen > 0)
            label = label.left(lngOpen).trimmed();
        filters << label + QStringLiteral(" (") + patterns.simplified() + QLatin1Char(')');
    }
    if (parts.size() % 2 == 1 && !parts.last().isEmpty())
        filters << parts.last();
    return filters.join(QStringLiteral(";;"));
}

// The desktop's open dialog offers, after the entries it was given, the newer
// formats of the same families (a .pptx beside a .ppt, a .png beside a .jpg),
// which the program reads as well; the list the caller passed is unchanged.
QString withNewerFormats(const QString& strFilter) {
    static const QList<std::pair<QStringList, QStringList>> families = {
        {{"*.doc", "*.txt", "*.rtf"}, {"*.docx", "*.odt"}},
        {{"*.ppt"}, {"*.pptx", "*.odp"}},
        {{"*.bmp", "*.jpg", "*.gif"}, {"*.png", "*.jpeg"}}};
    const QString strLower = strFilter.toLower();
    QStringList newer;
    for (const auto& [older, added] : families)
        for (const QString& pattern : older)
            if (strLower.contains(pattern)) {
                for (const QString& extra : added)
                    if (!newer.contains(extra) && !strLower.contains(extra + ';') &&
                        !strLower.endsWith(extra))
                        newer << extra;
                break;
            }
    if (newer.isEmpty())
        return strFilter;
    return strFilter + QStringLiteral("|Newer formats|") + newer.join(QLatin1Char(';'));
}

// True when the first filter of the list names only picture files, so that
// the open dialog is a picture picker and shows thumbnails.
bool picturesOnly(const QString& strFilter) {
    static const QStringList pictures = {QStringLiteral("bmp"),  QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("gif"),
                                         QStringLiteral("tif"),  QStringLiteral("tiff"),
                                         QStringLiteral("dib"),  QStringLiteral("png")};
    const QStringList parts = strFilter.split(QLatin1Char('|'));
    if (parts.size() < 2)
        return false;
    const QStringList patterns = parts.at(1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& pattern : patterns) {
        const QString extension = pattern.section(QLatin1Char('.'), -1).trimmed().toLower();
        if (!pictures.contains(extension))
            return false;
    }
    return !patterns.isEmpty();
}

QString cancelled(bool blnCancelError) {
    if (blnCancelError)
        throw VBError(VBErr::CancelSelected);
    return QString();
}

QColor colorFromBgr(qint32 lngColor) {
    return QColor(lngColor & 0xFF, (lngColor >> 8) & 0xFF, (lngColor >> 16) & 0xFF);
}

qint32 bgrFromColor(const QColor& color) {
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}

QList<QScreen*> screensPrimaryFirst() {
    QList<QScreen*> screens = QGuiApplication::screens();
    QScreen* primary = QGuiApplication::primaryScreen();
    if (primary && screens.removeOne(primary))
        screens.prepend(primary);
    return screens;
}

QRect virtualDesktop() {
    QRect area;
    for (QScreen* screen : QGuiApplication::screens())
        area = area.united(screen->geometry());
    return area;
}

// The key of a SendKeys name ("F1", "ENTER", ...), or 0.
int namedKey(const QString& strName) {
    const QString name = strName.toUpper();
    if (name.size() >= 2 && name.front() == QLatin1Char('F')) {
        bool ok = false;
        const int n = name.mid(1).toInt(&ok);
        if (ok && n >= 1 && n <= 24)
            return Qt::Key_F1 + n - 1;
    }
    static const QHash<QString, int> keys = {
        {QStringLiteral("ENTER"), Qt::Key_Return}, {QStringLiteral("~"), Qt::Key_Return},
        {QStringLiteral("ESC"), Qt::Key_Escape},   {QStringLiteral("ESCAPE"), Qt::Key_Escape},
        {QStringLiteral("TAB"), Qt::Key_Tab},      {QStringLiteral("BACKSPACE"), Qt::Key_Backspace},
        {QStringLiteral("BS"), Qt::Key_Backspace}, {QStringLiteral("DELETE"), Qt::Key_Delete},
        {QStringLiteral("DEL"), Qt::Key_Delete},   {QStringLiteral("INSERT"), Qt::Key_Insert},
        {QStringLiteral("HOME"), Qt::Key_Home},    {QStringLiteral("END"), Qt::Key_End},
        {QStringLiteral("PGUP"), Qt::Key_PageUp},  {QStringLiteral("PGDN"), Qt::Key_PageDown},
        {QStringLiteral("UP"), Qt::Key_Up},        {QStringLiteral("DOWN"), Qt::Key_Down},
        {QStringLiteral("LEFT"), Qt::Key_Left},    {QStringLiteral("RIGHT"), Qt::Key_Right},
    };
    return keys.value(name, 0);
}

void postKey(QObject* target, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
}

} // namespace

Platform::~Platform() {
    if (g_installed == this)
        g_installed = nullptr;
}

Platform& Platform::Current() {
    static Platform qtPlatform;
    return g_installed ? *g_installed : qtPlatform;
}

void Platform::Install(Platform* pPlatform) {
    g_installed = pPlatform;
}

Platform* Platform::Installed() {
    return g_installed;
}

void Platform::SetDialogOwner(QWidget* pOwner) {
    g_dialogOwner = pOwner;
}

QWidget* Platform::DialogParent() {
    if (!haveWidgets())
        return nullptr;
    if (g_dialogOwner && g_dialogOwner->isVisible())
        return g_dialogOwner->window();
    return QApplication::activeWindow();
}

QString Platform::LocalPath(const QString& strPath) {
    if (strPath.isEmpty() || QFileInfo::exists(strPath) || !strPath.contains(QLatin1Char('\\')))
        return strPath;
    return QString(strPath).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

qint32 Platform::MsgBox(const QString& strPrompt, qint32 intButtons, const QString& strTitle) {
    const QList<BoxButton> set = buttonSet(intButtons);
    if (!haveWidgets())
        return set.front().answer;
    QMessageBox box(boxIcon(intButtons), strTitle.isEmpty() ? applicationTitle() : strTitle,
                    strPrompt, QMessageBox::NoButton, dialogParent());
    QList<QAbstractButton*> buttons;
    for (const BoxButton& b : set)
        buttons << box.addButton(b.button);
    const qsizetype defaultIndex = qMin<qsizetype>((intButtons >> 8) & 0x3, buttons.size() - 1);
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.at(defaultIndex)));
    // Escape answers Cancel where there is one, OK in an OK-only box, and does
    // nothing in a Yes/No or Abort/Retry/Ignore box.
    for (qsizetype i = 0; i < set.size(); ++i)
        if (set.at(i).answer == vbCancel || (set.size() == 1 && set.at(i).answer == vbOK))
            box.setEscapeButton(buttons.at(i));
    box.exec();
    const qsizetype clicked = buttons.indexOf(box.clickedButton());
    if (clicked < 0)
        return set.size() == 1 ? vbOK : vbCancel;
    return set.at(clicked).answer;
}

QString Platform::ShowOpen(const QString& strFilter, const QString& strTitle,
                           const QString& strInitDir, bool blnCancelError) {
    if (!haveWidgets())
        return cancelled(blnCancelError);
    QFileDialog dialog(dialogParent(), strTitle, LocalPath(strInitDir),
                       qtFilter(withNewerFormats(strFilter)));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (picturesOnly(strFilter))
        modQVLTControls::DialogHookProc(&dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return cancelled(blnCancelError);
    return dialog.selectedFiles().constFirst();
}

QString Platform::ShowSave(const QString& strFilter, const QString& strTitle,
                           const QString& strInitDir, const QString& strFileName,
                           bool blnCancelError) {
    if (!haveWidgets())
        return cancelled(blnCancelError);
    QString start = LocalPath(strInitDir);
    if (!strFileName.isEmpty())
        start = start.isEmpty() ? strFileName : QDir(start).filePath(strFileName);
    const QString file =
        QFileDialog::getSaveFileName(dialogParent(), strTitle, start, qtFilter(strFilter));
    return file.isEmpty() ? cancelled(blnCancelError) : file;
}

QFont Platform::ShowFont(const QFont& fntInitial, bool blnCancelError) {
    bool ok = false;
    QFont font = fntInitial;
    if (haveWidgets())
        font = QFontDialog::getFont(&ok, fntInitial, dialogParent());
    if (!ok) {
        cancelled(blnCancelError);
        return fntInitial;
    }
    return font;
}

QFont Platform::ShowFontAndColor(const QFont& fntInitial, qint32& lngColor, qint32 lngFlags,
                                 bool blnCancelError) {
    const QFont font = ShowFont(fntInitial, blnCancelError);
    if ((lngFlags & cdlCFEffects) != 0)
        lngColor = ShowColor(lngColor, blnCancelError);
    return font;
}

qint32 Platform::ShowColor(qint32 lngInitial, bool blnCancelError) {
    QColor color;
    if (haveWidgets())
        color = QColorDialog::getColor(colorFromBgr(lngInitial), dialogParent());
    if (!color.isValid()) {
        cancelled(blnCancelError);
        return lngInitial;
    }
    return bgrFromColor(color);
}

void Platform::DoEvents() {
    QCoreApplication::processEvents();
}

bool Platform::FileExists(const QString& strPath) {
    if (strPath.isEmpty())
        return false;
    const QFileInfo info(LocalPath(strPath));
    return info.exists() && info.isFile();
}

qint32 Platform::ShellExecute(const QString& sVerb, const QString& sFile, const QString& sParams,
                              const QString& sDirectory, qint32 nShowCmd) {
    Q_UNUSED(nShowCmd)
    constexpr qint32 done = 42;
    constexpr qint32 fileNotFound = 2;
    constexpr qint32 noAssociation = 31;

    const QString verb = sVerb.trimmed().toLower();
    if (!verb.isEmpty() && verb != QLatin1String("open") && verb != QLatin1String("edit") &&
        verb != QLatin1String("explore"))
        return noAssociation;

    const QUrl asUrl(sFile);
    if (!asUrl.scheme().isEmpty() && asUrl.scheme().size() > 1 && !asUrl.isLocalFile())
        return QDesktopServices::openUrl(asUrl) ? done : noAssociation;

    const QFileInfo info(LocalPath(sFile));
    if (!info.exists())
        return fileNotFound;
    if (info.isFile() && info.isExecutable()) {
        const bool started = QProcess::startDetached(
            info.absoluteFilePath(), QProcess::splitCommand(sParams), LocalPath(sDirectory));
        return started ? done : fileNotFound;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(info.absoluteFilePath())) ? done
                                                                                   : noAssociation;
}

void Platform::OpenWith(const QString& sFile) {
    if (!haveWidgets())
        return;
    const QString program = QFileDialog::getOpenFileName(
        dialogParent(), QStringLiteral("Open with"), QStringLiteral("/usr/bin"));
    if (program.isEmpty())
        return;
    QProcess::startDetached(program, {LocalPath(sFile)});
}

void Platform::SendKeys(const QString& strKeys) {
    if (!haveWidgets())
        return;
    QObject* target = QApplication::focusWidget();
    if (!target)
        target = QApplication::activeWindow();
    if (!target)
        return;
    // Key names in braces ("{F1}", "{ENTER}"), plain characters, and the
    // prefixes + (Shift), ^ (Ctrl) and % (Alt) for the key that follows.
    Qt::KeyboardModifiers modifiers;
    for (qsizetype i = 0; i < strKeys.size(); ++i) {
        const QChar c = strKeys.at(i);
        if (c == QLatin1Char('+')) {
            modifiers |= Qt::ShiftModifier;
            continue;
        }
        if (c == QLatin1Char('^')) {
            modifiers |= Qt::ControlModifier;
            continue;
        }
        if (c == QLatin1Char('%')) {
            modifiers |= Qt::AltModifier;
            continue;
        }
        if (c == QLatin1Char('{')) {
            const qsizetype close = strKeys.indexOf(QLatin1Char('}'), i + 2);
            if (close < 0)
                return;
            const QString name = strKeys.mid(i + 1, close - i - 1);
            i = close;
            const int key = namedKey(name);
            if (key != 0)
                postKey(target, key, modifiers, QString());
            else if (name.size() == 1)
                postKey(target, name.at(0).toUpper().unicode(), modifiers, name);
        } else if (c == QLatin1Char('~')) {
            postKey(target, Qt::Key_Return, modifiers, QStringLiteral("\r"));
        } else {
            postKey(target, c.toUpper().unicode(), modifiers, QString(c));
        }
        modifiers = Qt::NoModifier;
    }
}

QList<QRect> Platform::MonitorRects() {
    QList<QRect> rects;
    for (QScreen* screen : screensPrimaryFirst())
        rects << screen->geometry();
    return rects;
}

QList<QRect> Platform::MonitorWorkRects() {
    QList<QRect> rects;
    for (QScreen* screen : screensPrimaryFirst())
        rects << screen->availableGeometry();
    return rects;
}

qint32 Platform::MonitorFromPoint(const QPoint& ptPoint) {
    const QList<QRect> rects = MonitorRects();
    for (qsizetype i = 0; i < rects.size(); ++i)
        if (rects.at(i).contains(ptPoint))
            return static_cast<qint32>(i);
    return -1;
}

qint32 Platform::GetSystemMetrics(qint32 nIndex) {
    QScreen* primary = QGuiApplication::primaryScreen();
    const QRect screen = primary ? primary->geometry() : QRect();
    const QRect work = primary ? primary->availableGeometry() : QRect();
    const QRect desktop = virtualDesktop();
    QStyle* style = haveWidgets() ? QApplication::style() : nullptr;
    switch (nIndex) {
    case 0: // SM_CXSCREEN
        return screen.width();
    case 1: // SM_CYSCREEN
        return screen.height();
    case 2: // SM_CXVSCROLL
    case 3: // SM_CYHSCROLL
        return style ? style->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    case 4: // SM_CYCAPTION
        return style ? style->pixelMetric(QStyle::PM_TitleBarHeight) : 0;
    case 16: // SM_CXFULLSCREEN
        return work.width();
    case 17: // SM_CYFULLSCREEN
        return work.height();
    case 76: // SM_XVIRTUALSCREEN
        return desktop.x();
    case 77: // SM_YVIRTUALSCREEN
        return desktop.y();
    case 78: // SM_CXVIRTUALSCREEN
        return desktop.width();
    case 79: // SM_CYVIRTUALSCREEN
        return desktop.height();
    case 80: // SM_CMONITORS
        return static_cast<qint32>(QGuiApplication::screens().size());
    default:
        return 0;
    }
}

namespace {

// On the offscreen platform the grab of any screen draws every window that meets the area, in
// the desktop's coordinates, whichever screen it lies on. An area over several screens or past
// the desktop's edge (the console's mirror of a projector on the right reaches one column past
// it) is therefore one grab of the whole area, made black where no screen lies: one copy of the
// windows' pictures, as for an area within one screen. A null picture when the grab is not a
// plain picture of the area.
QPixmap GrabInDesktopCoordinates(const QRect& rcArea) {
    QScreen* meeting = nullptr;
    QRegion outside(rcArea);
    for (QScreen* screen : QGuiApplication::screens()) {
        if (!meeting && screen->geometry().intersects(rcArea))
            meeting = screen;
        outside -= screen->geometry();
    }
    if (!meeting)
        return QPixmap();
    QPixmap picture =
        meeting->grabWindow(0, rcArea.x(), rcArea.y(), rcArea.width(), rcArea.height());
    if (picture.size() != rcArea.size() || picture.hasAlphaChannel())
        return QPixmap();
    if (!outside.isEmpty()) {
        QPainter painter(&picture);
        for (const QRect& part : outside)
            painter.fillRect(part.translated(-rcArea.topLeft()), Qt::black);
    }
    return picture;
}

} // namespace

QPixmap Platform::GrabDesktop(const QRect& rcArea) {
    if (rcArea.isEmpty())
        return QPixmap();
    // The offscreen platform takes global coordinates, the others coordinates
    // relative to the screen grabbed.
    const bool global = QGuiApplication::platformName() == QLatin1String("offscreen");
    // An area within one screen (the projector's, as the console grabs it) is
    // that screen's grab itself, without a copy into a picture of its own.
    for (QScreen* screen : QGuiApplication::screens()) {
        if (!screen->geometry().contains(rcArea))
            continue;
        const QPoint from =
            global ? rcArea.topLeft() : rcArea.topLeft() - screen->geometry().topLeft();
        const QPixmap grabbed =
            screen->grabWindow(0, from.x(), from.y(), rcArea.width(), rcArea.height());
        if (grabbed.size() == rcArea.size() && !grabbed.hasAlphaChannel())
            return grabbed;
        QPixmap picture(rcArea.size());
        picture.fill(Qt::black);
        if (!grabbed.isNull()) {
            QPainter painter(&picture);
            painter.drawPixmap(QRect(QPoint(0, 0), rcArea.size()), grabbed);
        }
        return picture;
    }
    if (global) {
        QPixmap whole = GrabInDesktopCoordinates(rcArea);
        if (!whole.isNull())
            return whole;
    }
    QPixmap picture(rcArea.size());
    picture.fill(Qt::black);
    QPainter painter(&picture);
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect part = rcArea.intersected(screen->geometry());
        if (part.isEmpty())
            continue;
        const QPoint from = global ? part.topLeft() : part.topLeft() - screen->geometry().topLeft();
        const QPixmap grabbed =
            screen->grabWindow(0, from.x(), from.y(), part.width(), part.height());
        if (!grabbed.isNull())
            painter.drawPixmap(QRect(part.topLeft() - rcArea.topLeft(), part.size()), grabbed);
    }
    painter.end();
    return picture;
}

namespace {

// How far apart two rectangles lie (the square of the gap), 0 when they meet.
qint64 gapSquared(const QRect& a, const QRect& b) {
    const qint64 dx = qMax<qint64>(0, qMax<qint64>(qint64(b.x()) - (qint64(a.x()) + a.width()),
                                                   qint64(a.x()) - (qint64(b.x()) + b.width())));
    const qint64 dy = qMax<qint64>(0, qMax<qint64>(qint64(b.y()) - (qint64(a.y()) + a.height()),
                                                   qint64(a.y()) - (qint64(b.y()) + b.height())));
    return dx * dx + dy * dy;
}

} // namespace

qint32 Platform::MonitorFromRect(const QRect& rcRect, qint32 dwFlags) {
    const QList<QRect> rects = MonitorRects();
    qint32 best = 0;
    qint64 bestArea = 0;
    for (qsizetype i = 0; i < rects.size(); ++i) {
        const QRect part = rects.at(i).intersected(rcRect);
        const qint64 area = part.isEmpty() ? 0 : qint64(part.width()) * part.height();
        if (area > bestArea) {
            bestArea = area;
            best = static_cast<qint32>(i + 1);
        }
    }
    if (best != 0 || rects.isEmpty())
        return best;
    if (dwFlags == MONITOR_DEFAULTTOPRIMARY)
        return 1;
    if (dwFlags != MONITOR_DEFAULTTONEAREST)
        return 0;
    best = 1;
    for (qsizetype i = 1; i < rects.size(); ++i)
        if (gapSquared(rects.at(i), rcRect) < gapSquared(rects.at(best - 1), rcRect))
            best = static_cast<qint32>(i + 1);
    return best;
}

qint32 Platform::MonitorFromWindow(const QWidget* hWnd, qint32 dwFlags) {
    QRect area;
    if (hWnd)
        area = hWnd->isWindow() ? hWnd->frameGeometry()
                                : QRect(hWnd->mapToGlobal(QPoint(0, 0)), hWnd->size());
    return MonitorFromRect(area, dwFlags);
}

bool Platform::GetMonitorInfo(qint32 hMonitor, MonitorInfo& lpmi) {
    if (lpmi.cbSize != MonitorInfo::SizeOfMonitorInfo &&
        lpmi.cbSize != MonitorInfo::SizeOfMonitorInfoEx)
        return false;
    const QList<QRect> rects = MonitorRects();
    if (hMonitor < 1 || hMonitor > rects.size())
        return false;
    const qsizetype i = hMonitor - 1;
    lpmi.rcMonitor = rects.at(i);
    lpmi.rcWork = MonitorWorkRects().value(i, rects.at(i));
    lpmi.dwFlags = i == 0 ? MonitorInfo::MONITORINFOF_PRIMARY : 0;
    if (lpmi.cbSize == MonitorInfo::SizeOfMonitorInfoEx) {
        const QList<QScreen*> screens = screensPrimaryFirst();
        lpmi.szDevice = i < screens.size() ? screens.at(i)->name() : QString();
    }
    return true;
}

qint32 Platform::TwipsPerPixelX() {
    return Twips::PerPixel;
}

qint32 Platform::TwipsPerPixelY() {
    return Twips::PerPixel;
}

std::unique_ptr<MediaSound> Platform::CreateMediaSound() {
    return std::make_unique<QtMediaSound>();
}
