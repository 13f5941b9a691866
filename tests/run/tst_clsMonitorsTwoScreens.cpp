#include "TwoScreens.h"
#include "foundations/Platform.h"
#include "run/clsMonitor.h"
#include "run/clsMonitors.h"

#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

// The monitors of a real Qt desktop: the offscreen platform with two screens,
// A (1024 by 768) at the origin and B (1920 by 1080) to its right. No scripted
// platform: every query goes to Qt's screens.
class tst_clsMonitorsTwoScreens : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void secondScreenIsItemTwo();
    void desktopMetricsSpanBothScreens();
    void windowOnSecondScreenHasItsMonitor();
    void centerFormOnWindowOfSecondScreen();
    void centerFormWithoutReferenceGoesToPrimary();
};

void tst_clsMonitorsTwoScreens::initTestCase() {
    QCOMPARE(QGuiApplication::screens().size(), 2);
    QCOMPARE(QGuiApplication::primaryScreen()->geometry(), QRect(0, 0, 1024, 768));
}

void tst_clsMonitorsTwoScreens::secondScreenIsItemTwo() {
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.Monitors().Count(), 2);
    const clsMonitor& first = objMonitors.Monitors().Item(1);
    QCOMPARE(first.Left(), 0);
    QCOMPARE(first.Width(), 1024);
    QCOMPARE(first.Height(), 768);
    const clsMonitor& second = objMonitors.Monitors().Item(2);
    QCOMPARE(second.Left(), 1024);
    QCOMPARE(second.Top(), 0);
    QCOMPARE(second.Right(), 2944);
    QCOMPARE(second.Bottom(), 1080);
    QCOMPARE(second.Width(), 1920);
    QCOMPARE(second.Height(), 1080);
    QCOMPARE(objMonitors.Monitors().Item(QString::number(second.Handle())).Left(), 1024);
}

void tst_clsMonitorsTwoScreens::desktopMetricsSpanBothScreens() {
    clsMonitors objMonitors;
    QCOMPARE(objMonitors.DesktopLeft(), 0);
    QCOMPARE(objMonitors.DesktopTop(), 0);
    QCOMPARE(objMonitors.DesktopWidth(), 2944);
    QCOMPARE(objMonitors.DesktopHeight(), 1080);
}

void tst_clsMonitorsTwoScreens::windowOnSecondScreenHasItsMonitor() {
    clsMonitors objMonitors;
    QWidget window;
    window.setGeometry(1200, 100, 300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(objMonitors.GetMonitorFromWindow(&window, MONITOR_DEFAULTTONULL),
             objMonitors.Monitors().Item(2).Handle());
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(100, 100, MONITOR_DEFAULTTONULL),
             objMonitors.Monitors().Item(1).Handle());
    QCOMPARE(objMonitors.GetMonitorFromXYPoint(100, 900, MONITOR_DEFAULTTONULL), 0);
}

void tst_clsMonitorsTwoScreens::centerFormOnWindowOfSecondScreen() {
    clsMonitors objMonitors;
    QWidget reference;
    reference.setGeometry(1200, 100, 300, 200);
    reference.show();
    QVERIFY(QTest::qWaitForWindowExposed(&reference));
    QWidget form;
    form.setGeometry(10, 10, 400, 300);
    objMonitors.CenterFormOnMonitor(&form, &reference);
    QCOMPARE(form.pos(), QPoint(1024 + (1920 - 400) / 2, (1080 - 300) / 2));
    QCOMPARE(form.size(), QSize(400, 300));
}

void tst_clsMonitorsTwoScreens::centerFormWithoutReferenceGoesToPrimary() {
    clsMonitors objMonitors;
    QWidget form;
    form.setGeometry(1500, 10, 400, 300);
    objMonitors.CenterFormOnMonitor(&form);
    QCOMPARE(form.pos(), QPoint((1024 - 400) / 2, (768 - 300) / 2));
}

CORVANTIS_TWO_SCREEN_TEST_MAIN(tst_clsMonitorsTwoScreens)

#include "tst_clsMonitorsTwoScreens.moc"
