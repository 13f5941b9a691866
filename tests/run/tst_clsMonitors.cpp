#include "ScriptedPlatform.h"
#include "foundations/VBError.h"
#include "run/clsMonitor.h"
#include "run/clsMonitors.h"

#include <QMetaProperty>
#include <QWidget>
#include <QtTest>
#include <limits>

// Monitor layouts go through the scripted platform: the monitors' rectangles,
// their work areas and handles, and the metrics of the virtual desktop.
class tst_clsMonitors : public QObject {
    Q_OBJECT

private:
    static QRect Primary() { return QRect(0, 0, 1024, 768); }
    static QList<QPoint> AskedPoints(const ScriptedPlatform& platform) {
        QList<QPoint> points;
        for (const ScriptedPlatform::MonitorLookup& lookup : platform.MonitorLookups())
            points << lookup.Rect.topLeft();
        return points;
    }
    static void CompareMonitor(const clsMonitor& m, qint32 lngLeft, qint32 lngTop, qint32 lngWidth,
                               qint32 lngHeight) {
        QCOMPARE(m.Left(), lngLeft);
        QCOMPARE(m.Top(), lngTop);
        QCOMPARE(m.Right(), lngLeft + lngWidth);
        QCOMPARE(m.Bottom(), lngTop + lngHeight);
        QCOMPARE(m.Width(), lngWidth);
        QCOMPARE(m.Height(), lngHeight);
    }

private slots:
    // ---- Layouts ------------------------------------------------------------
    void oneMonitorGivesOneItem();
    void sideBySideSecondIsTheRightOne();
    void secondLeftOfPrimaryComesFirst();
    void secondAbovePrimaryComesFirst();
    void secondAboveAndRightOfPrimaryStillComesFirst();
    void fourMonitorsComeRowsFromTheTopLeftToRight();
    void metricEightyOfZeroGivesTheScreenAsMonitorZero();
    void refreshTwiceDoesNotDoubleItems();
    void refreshDropsMonitorsThatWentAway();
    void keyIsTheHandleAsText();

    // ---- The grid walk ------------------------------------------------------
    void gridSamplesTheMiddleOfEachCellRowsFromTheTop();
    void walkOnNegativeOriginRunsPastTheRightEdgeHarmlessly();
    void walkOnPositiveOriginStopsShortOfTheRightEdge();
    void monitorSmallerThanACellCanBeMissed();
    void eachMonitorIsAddedOnceAtItsFirstCell();
    void aFailureOtherThanAKeyTwiceEndsRefreshQuietly();
    void failingLookUpsGiveOneEmptyMonitorKeyedMinusOne();
    void monitorWhoseInformationFailsIsKeptWithZeros();

    // ---- Metrics ------------------------------------------------------------
    void desktopMetricsComeFromThePlatform();
    void desktopMetricsDefaultWhenMetricEightyIsZero();

    // ---- Look-ups -----------------------------------------------------------
    void xyPointAsksTheOnePixelAreaWithTheFlags();
    void pointInAGapYieldsZeroWithoutDefault();
    void xyPointLookUpFailureGivesMinusOne();
    void monitorInformationCopiesRectangleAndWorkArea();
    void monitorFromWindowAsksForTheWindowsMonitor();
    void monitorFromWindowFailureGivesZero();

    // ---- CenterFormOnMonitor ------------------------------------------------
    void centerFormCentresOnWorkAreaOfReferenceFormsMonitor();
    void centerFormWithoutReferenceTakesPrimaryAtPointOneOne();
    void centerFormTopTakesTwipsPerPixelAcross();
    void centerFormWithoutMonitorCentresOnTheScreen();
    void centerFormWhoseWindowLookUpFailsCentresOnTheScreen();
    void centerFormLeavesFormWhenInformationFails();
    void centerFormWithoutFormDoesNothing();

    // ---- The classes themselves -------------------------------------------------
    void clsMonitorHasItsLongPropertiesInOrder();
    void monitorCollectionFollowsTheRuntimesRules();
};

// ---- Layouts ----------------------------------------------------------------

void tst_clsMonitors::oneMonitorGivesOneItem() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary()});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    const clsMonitor& m = objMonitors.Monitors().Item(1);
    QCOMPARE(m.Handle(), 1);
    CompareMonitor(m, 0, 0, 1024, 768);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::sideBySideSecondIsTheRightOne() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    CompareMonitor(objMonitors.Monitors().Item(1), 0, 0, 1024, 768);
    CompareMonitor(objMonitors.Monitors().Item(2), 1024, 0, 1024, 768);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 2);
}

void tst_clsMonitors::secondLeftOfPrimaryComesFirst() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(-1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    CompareMonitor(objMonitors.Monitors().Item(1), -1024, 0, 1024, 768);
    QCOMPARE(objMonitors.Monitors().Item(1).Handle(), 2);
    CompareMonitor(objMonitors.Monitors().Item(2), 0, 0, 1024, 768);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 1);
}

void tst_clsMonitors::secondAbovePrimaryComesFirst() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(0, -768, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    CompareMonitor(objMonitors.Monitors().Item(1), 0, -768, 1024, 768);
    CompareMonitor(objMonitors.Monitors().Item(2), 0, 0, 1024, 768);
}

void tst_clsMonitors::secondAboveAndRightOfPrimaryStillComesFirst() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, -768, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    QCOMPARE(objMonitors.Monitors().Item(1).Left(), 1024);
    QCOMPARE(objMonitors.Monitors().Item(1).Top(), -768);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 1);
}

void tst_clsMonitors::fourMonitorsComeRowsFromTheTopLeftToRight() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(-1024, 0, 1024, 768), QRect(-1024, -768, 1024, 768),
                          QRect(0, -768, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 4);
    QList<QPoint> corners;
    for (qint32 i = 1; i <= 4; ++i)
        corners << QPoint(objMonitors.Monitors().Item(i).Left(),
                          objMonitors.Monitors().Item(i).Top());
    QCOMPARE(corners, (QList<QPoint>{{-1024, -768}, {0, -768}, {-1024, 0}, {0, 0}}));
}

void tst_clsMonitors::metricEightyOfZeroGivesTheScreenAsMonitorZero() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(0, 0, 800, 600), QRect(800, 0, 1024, 768)});
    platform.SetMetric(80, 0);
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    const clsMonitor& m = objMonitors.Monitors().Item(QStringLiteral("0"));
    QCOMPARE(m.Handle(), 0);
    CompareMonitor(m, 0, 0, 800, 600);
    QCOMPARE(m.WorkLeft(), 0);
    QCOMPARE(m.WorkTop(), 0);
    QCOMPARE(m.WorkRight(), 800);
    QCOMPARE(m.WorkBottom(), 600);
    // No sampling on a machine without multi-monitor support.
    QVERIFY(platform.MonitorLookups().isEmpty());
    QVERIFY(platform.MonitorInfoCalls().isEmpty());
}

void tst_clsMonitors::refreshTwiceDoesNotDoubleItems() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    objMonitors.Refresh();
    objMonitors.Refresh();
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    QCOMPARE(objMonitors.Monitors().Item(1).Left(), 0);
    QCOMPARE(objMonitors.Monitors().Item(2).Left(), 1024);
}

void tst_clsMonitors::refreshDropsMonitorsThatWentAway() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    platform.SetMonitors({Primary()});
    objMonitors.Refresh();
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    QCOMPARE(objMonitors.Monitors().Item(1).Handle(), 1);
}

void tst_clsMonitors::keyIsTheHandleAsText() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1280, 1024)});
    platform.SetMonitorHandles({65537, 131073});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Item(QStringLiteral("65537")).Left(), 0);
    QCOMPARE(objMonitors.Monitors().Item(QStringLiteral("131073")).Width(), 1280);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 131073);
}

// ---- The grid walk ------------------------------------------------------------

void tst_clsMonitors::gridSamplesTheMiddleOfEachCellRowsFromTheTop() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(0, 0, 1280, 960)});
    clsMonitors objMonitors;
    // y from 0 to 960 in steps of 480, x from 0 to 1280 in steps of 640, both
    // bounds included; each sample at the middle of its cell.
    QList<QPoint> expected;
    for (int y : {0, 480, 960})
        for (int x : {0, 640, 1280})
            expected << QPoint(x + 320, y + 240);
    QCOMPARE(AskedPoints(platform), expected);
    for (const ScriptedPlatform::MonitorLookup& lookup : platform.MonitorLookups()) {
        QCOMPARE(lookup.Rect.size(), QSize(1, 1));
        QCOMPARE(lookup.Flags, 0);
    }
    QCOMPARE(objMonitors.Monitors().Count(), 1);
}

void tst_clsMonitors::walkOnNegativeOriginRunsPastTheRightEdgeHarmlessly() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(-1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    // The walk runs from -1024 to the width 2048, so that its last columns lie
    // right of the desktop (which ends at 1024) and meet no monitor.
    QList<qint32> firstRowXs;
    for (const ScriptedPlatform::MonitorLookup& lookup : platform.MonitorLookups())
        if (lookup.Rect.y() == 240) {
            firstRowXs << lookup.Rect.x();
            if (lookup.Rect.x() >= 1024)
                QCOMPARE(lookup.Result, 0);
        }
    QCOMPARE(firstRowXs, (QList<qint32>{-704, -64, 576, 1216, 1856}));
    QCOMPARE(objMonitors.Monitors().Count(), 2);
}

void tst_clsMonitors::walkOnPositiveOriginStopsShortOfTheRightEdge() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(2048, 0, 1024, 768), QRect(3072, 0, 1024, 768)});
    clsMonitors objMonitors;
    // x runs from 2048 up to the width 2048 only: one column, so the monitor on
    // the right is never sampled.
    QCOMPARE(AskedPoints(platform), (QList<QPoint>{{2368, 240}, {2368, 720}}));
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    QCOMPARE(objMonitors.Monitors().Item(1).Left(), 2048);
}

void tst_clsMonitors::monitorSmallerThanACellCanBeMissed() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 300, 200)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    QCOMPARE(objMonitors.Monitors().Item(1).Handle(), 1);
}

void tst_clsMonitors::eachMonitorIsAddedOnceAtItsFirstCell() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(0, 0, 1920, 1080), QRect(1920, 0, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    // Many cells fall on each monitor; each monitor comes once, in the place of
    // the first cell that fell on it.
    qint32 hits = 0;
    for (const ScriptedPlatform::MonitorLookup& lookup : platform.MonitorLookups())
        hits += lookup.Result != 0 ? 1 : 0;
    QVERIFY(hits > 2);
    QCOMPARE(objMonitors.Monitors().Item(1).Handle(), 1);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 2);
    QCOMPARE(platform.BoxCount(), 0);
}

namespace {
// Answers a run-time error for the desktop width when it is read for the
// second row of the walk.
class FailingWidthPlatform : public ScriptedPlatform {
public:
    qint32 GetSystemMetrics(qint32 nIndex) override {
        if (nIndex == 78 && ++m_widthReads == 2)
            throw VBError(VBErr::TypeMismatch);
        return ScriptedPlatform::GetSystemMetrics(nIndex);
    }

private:
    qint32 m_widthReads = 0;
};
} // namespace

void tst_clsMonitors::aFailureOtherThanAKeyTwiceEndsRefreshQuietly() {
    FailingWidthPlatform platform;
    platform.SetMonitors({Primary(), QRect(0, 768, 1024, 768)});
    clsMonitors objMonitors;
    // The first row found the primary; the failure at the second row ended the
    // walk before the monitor below was met. No message.
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    QCOMPARE(objMonitors.Monitors().Item(1).Top(), 0);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::failingLookUpsGiveOneEmptyMonitorKeyedMinusOne() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    platform.SetMonitorLookupError(VBErr::InvalidProcedureCall);
    clsMonitors objMonitors;
    // -1 is not 0, so the walk takes it for a monitor; its information cannot
    // be read, and the key "-1" comes once.
    QCOMPARE(objMonitors.Monitors().Count(), 1);
    const clsMonitor& m = objMonitors.Monitors().Item(QStringLiteral("-1"));
    QCOMPARE(m.Handle(), -1);
    CompareMonitor(m, 0, 0, 0, 0);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::monitorWhoseInformationFailsIsKeptWithZeros() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    platform.SetMonitorInfoFails(true);
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    QCOMPARE(objMonitors.Monitors().Item(2).Handle(), 2);
    CompareMonitor(objMonitors.Monitors().Item(2), 0, 0, 0, 0);
    QCOMPARE(platform.BoxCount(), 0);
}

// ---- Metrics ------------------------------------------------------------------

void tst_clsMonitors::desktopMetricsComeFromThePlatform() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(-1280, -256, 1280, 1024)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.DesktopLeft(), -1280);
    QCOMPARE(objMonitors.DesktopTop(), -256);
    QCOMPARE(objMonitors.DesktopWidth(), 2304);
    QCOMPARE(objMonitors.DesktopHeight(), 1024);
    platform.SetMetric(76, 5);
    platform.SetMetric(79, 7);
    QCOMPARE(objMonitors.DesktopLeft(), 5);
    QCOMPARE(objMonitors.DesktopHeight(), 7);
}

void tst_clsMonitors::desktopMetricsDefaultWhenMetricEightyIsZero() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(0, 0, 800, 600)});
    platform.SetMetric(80, 0);
    platform.SetMetric(76, -1024);
    platform.SetMetric(77, -768);
    platform.SetMetric(78, 4096);
    platform.SetMetric(79, 2048);
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.DesktopLeft(), 0);
    QCOMPARE(objMonitors.DesktopTop(), 0);
    QCOMPARE(objMonitors.DesktopWidth(), 800);
    QCOMPARE(objMonitors.DesktopHeight(), 600);
}

// ---- Look-ups -------------------------------------------------------------------

void tst_clsMonitors::xyPointAsksTheOnePixelAreaWithTheFlags() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    platform.SetMonitorHandles({11, 22});
    clsMonitors objMonitors;
    platform.ClearRecords();
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(1500, 100, 2), 22);
    QCOMPARE(platform.MonitorLookups().size(), 1);
    QCOMPARE(platform.MonitorLookups().first().Rect, QRect(1500, 100, 1, 1));
    QCOMPARE(platform.MonitorLookups().first().Flags, 2);
}

void tst_clsMonitors::pointInAGapYieldsZeroWithoutDefault() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1124, 0, 1024, 768)});
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(1100, 100, MONITOR_DEFAULTTONULL), 0);
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(1100, 100, MONITOR_DEFAULTTOPRIMARY), 1);
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(1100, 100, MONITOR_DEFAULTTONEAREST), 2);
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(1030, 100, MONITOR_DEFAULTTONEAREST), 1);
}

void tst_clsMonitors::xyPointLookUpFailureGivesMinusOne() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary()});
    clsMonitors objMonitors;
    platform.SetMonitorLookupError(VBErr::InvalidProcedureCall);
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(10, 10, 0), -1);
    platform.SetMonitorLookupError(0);
    // Building the area (X, Y) - (X + 1, Y + 1) overflows at the last long.
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(std::numeric_limits<qint32>::max(), 10, 0), -1);
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(10, 10, 0), 1);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::monitorInformationCopiesRectangleAndWorkArea() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)},
                         {QRect(0, 0, 1024, 728), QRect(1064, 10, 984, 738)});
    clsMonitors objMonitors;
    const clsMonitor& m = objMonitors.Monitors().Item(2);
    CompareMonitor(m, 1024, 0, 1024, 768);
    QCOMPARE(m.WorkLeft(), 1064);
    QCOMPARE(m.WorkTop(), 10);
    QCOMPARE(m.WorkRight(), 2048);
    QCOMPARE(m.WorkBottom(), 748);
    QVERIFY(!platform.MonitorInfoCalls().isEmpty());
    for (const ScriptedPlatform::MonitorInfoCall& call : platform.MonitorInfoCalls())
        QCOMPARE(call.Size, 40);
}

void tst_clsMonitors::monitorFromWindowAsksForTheWindowsMonitor() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    platform.SetMonitorHandles({7, 9});
    clsMonitors objMonitors;
    platform.ClearRecords();
    QWidget window;
    window.setGeometry(1200, 100, 300, 200);
    QCOMPARE(objMonitors.GetMonitorFromWindow(&window, MONITOR_DEFAULTTONULL), 9);
    QCOMPARE(platform.MonitorLookups().size(), 1);
    QCOMPARE(platform.MonitorLookups().first().Window, &window);
    QCOMPARE(platform.MonitorLookups().first().Flags, 0);
}

void tst_clsMonitors::monitorFromWindowFailureGivesZero() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary()});
    clsMonitors objMonitors;
    platform.SetMonitorLookupError(VBErr::ObjectNotSet);
    QWidget window;
    QCOMPARE(objMonitors.GetMonitorFromWindow(&window, MONITOR_DEFAULTTOPRIMARY), 0);
    QCOMPARE(platform.BoxCount(), 0);
}

// ---- CenterFormOnMonitor ----------------------------------------------------------

void tst_clsMonitors::centerFormCentresOnWorkAreaOfReferenceFormsMonitor() {
    ScriptedPlatform platform;
    // The second monitor has its task bar on top: the work area is 30 pixels
    // shorter and starts lower, but the offset is the monitor's own top.
    platform.SetMonitors({Primary(), QRect(1024, 0, 1280, 1024)},
                         {QRect(0, 0, 1024, 728), QRect(1024, 30, 1280, 994)});
    clsMonitors objMonitors;
    QWidget reference;
    reference.setGeometry(1500, 200, 300, 300);
    QWidget form;
    form.setGeometry(5, 5, 400, 300);
    const QVariant result = objMonitors.CenterFormOnMonitor(&form, &reference);
    QVERIFY(result.isNull());
    QCOMPARE(form.pos(), QPoint(1024 + (1280 - 400) / 2, (994 - 300) / 2));
    QCOMPARE(form.size(), QSize(400, 300));
    QCOMPARE(platform.MonitorLookups().last().Window, &reference);
    QCOMPARE(platform.MonitorLookups().last().Flags, MONITOR_DEFAULTTOPRIMARY);
}

void tst_clsMonitors::centerFormWithoutReferenceTakesPrimaryAtPointOneOne() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(1024, 0, 1024, 768), QRect(0, 0, 1024, 768)},
                         {QRect(1024, 0, 1024, 728), QRect(0, 0, 1024, 768)});
    clsMonitors objMonitors;
    platform.ClearRecords();
    QWidget form;
    form.setGeometry(5, 5, 400, 300);
    objMonitors.CenterFormOnMonitor(&form);
    QCOMPARE(platform.MonitorLookups().size(), 1);
    QCOMPARE(platform.MonitorLookups().first().Rect, QRect(1, 1, 1, 1));
    QCOMPARE(platform.MonitorLookups().first().Flags, MONITOR_DEFAULTTOPRIMARY);
    // The point (1, 1) lies on the monitor at the origin, which is not the
    // primary here: the form goes there.
    QCOMPARE(form.pos(), QPoint((1024 - 400) / 2, (768 - 300) / 2));
}

void tst_clsMonitors::centerFormTopTakesTwipsPerPixelAcross() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(0, 768, 1024, 768)});
    // Twips per pixel of 15 across and 30 down: the top is offset by the
    // monitor's top in twips across (15 x 768), read back at 30 a pixel.
    platform.SetTwipsPerPixel(15, 30);
    clsMonitors objMonitors;
    QWidget reference;
    reference.setGeometry(100, 900, 200, 200);
    QWidget form;
    form.setGeometry(0, 0, 400, 300);
    objMonitors.CenterFormOnMonitor(&form, &reference);
    const qint32 lngTopTwips = (768 * 30 - 300 * 30) / 2 + 15 * 768;
    QCOMPARE(form.pos(), QPoint((1024 - 400) / 2, lngTopTwips / 30));
    QCOMPARE(form.pos().y(), 618);
    QCOMPARE(form.size(), QSize(400, 300));
}

void tst_clsMonitors::centerFormWithoutMonitorCentresOnTheScreen() {
    ScriptedPlatform platform;
    platform.SetMonitors({});
    platform.SetMetric(0, 800);
    platform.SetMetric(1, 600);
    clsMonitors objMonitors;
    QWidget form;
    form.setGeometry(5, 5, 400, 300);
    objMonitors.CenterFormOnMonitor(&form);
    QCOMPARE(form.pos(), QPoint(200, 150));
    QCOMPARE(form.size(), QSize(400, 300));
}

void tst_clsMonitors::centerFormWhoseWindowLookUpFailsCentresOnTheScreen() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    platform.SetMonitorLookupError(VBErr::InvalidProcedureCall);
    QWidget reference;
    reference.setGeometry(1500, 200, 300, 300);
    QWidget form;
    form.setGeometry(5, 5, 400, 300);
    objMonitors.CenterFormOnMonitor(&form, &reference);
    QCOMPARE(form.pos(), QPoint((1024 - 400) / 2, (768 - 300) / 2));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::centerFormLeavesFormWhenInformationFails() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary(), QRect(1024, 0, 1024, 768)});
    clsMonitors objMonitors;
    platform.SetMonitorInfoFails(true);
    QWidget form;
    form.setGeometry(7, 9, 400, 300);
    QVERIFY(objMonitors.CenterFormOnMonitor(&form).isNull());
    QCOMPARE(form.pos(), QPoint(7, 9));
    // A failing point look-up answers -1, whose information fails as well.
    platform.SetMonitorInfoFails(false);
    platform.SetMonitorLookupError(VBErr::InvalidProcedureCall);
    objMonitors.CenterFormOnMonitor(&form);
    QCOMPARE(form.pos(), QPoint(7, 9));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_clsMonitors::centerFormWithoutFormDoesNothing() {
    ScriptedPlatform platform;
    platform.SetMonitors({Primary()});
    clsMonitors objMonitors;
    QVERIFY(objMonitors.CenterFormOnMonitor(nullptr).isNull());
    QCOMPARE(platform.BoxCount(), 0);
}

// ---- The classes themselves ---------------------------------------------------------

void tst_clsMonitors::clsMonitorHasItsLongPropertiesInOrder() {
    const QMetaObject& meta = clsMonitor::staticMetaObject;
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        QCOMPARE(meta.property(i).metaType(), QMetaType::fromType<qint32>());
        names << QString::fromLatin1(meta.property(i).name());
    }
    QCOMPARE(names, (QStringList{"Handle", "Height", "Width", "Left", "Right", "Top", "Bottom",
                                 "WorkLeft", "WorkRight", "WorkTop", "WorkBottom"}));
    clsMonitor m;
    for (int i = 0; i < names.size(); ++i)
        QVERIFY(meta.property(meta.propertyOffset() + i).writeOnGadget(&m, 100 + i));
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(meta.property(meta.propertyOffset() + i).readOnGadget(&m).toInt(), 100 + i);
    QCOMPARE(m.WorkBottom(), 110);
}

void tst_clsMonitors::monitorCollectionFollowsTheRuntimesRules() {
    clsMonitors::MonitorCollection colMonitors;
    clsMonitor m;
    m.setHandle(5);
    colMonitors.Add(m, QStringLiteral("5"));
    try {
        colMonitors.Add(m, QStringLiteral("5"));
        QFAIL("a key added twice must raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 457);
    }
    try {
        colMonitors.Item(2);
        QFAIL("a position past the end must raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 9);
    }
    try {
        colMonitors.Item(QStringLiteral("6"));
        QFAIL("an unknown key must raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 5);
    }
    QCOMPARE(colMonitors.Count(), 1);
    colMonitors.Remove(1);
    QCOMPARE(colMonitors.Count(), 0);
}

QTEST_MAIN(tst_clsMonitors)
#include "tst_clsMonitors.moc"
