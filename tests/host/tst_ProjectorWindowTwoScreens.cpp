// The projector window on a machine with two screens: full screen on the
// second, the one the console mirrors.
#include "ProjectorWindow.h"
#include "RunEngine.h"
#include "Screenshot.h"
#include "TestDatabase.h"
#include "TwoScreens.h"

#include "foundations/Platform.h"
#include "run/ctlRun.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

class tst_ProjectorWindowTwoScreens : public QObject {
    Q_OBJECT

private slots:
    void theMachineHasTwoScreens() {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QCOMPARE(Platform::Current().MonitorRects().size(), 2);
    }

    void windowGoesFullScreenOnTheSecondScreen() {
        TestDatabase db;
        const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                                QStringLiteral("Almighty God"));
        const qint32 service = db.AddService(QStringLiteral("Morning"), {{prayer}});
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(service, err));
        ProjectorWindow window(engine);
        window.Place();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.Placement().fullScreen);
        QCOMPARE(window.Placement().geometry, QRect(1024, 0, 1920, 1080));
        QTRY_VERIFY(window.isFullScreen());
        QCOMPARE(window.windowHandle()->screen()->name(), QStringLiteral("B"));
        QTRY_COMPARE(window.geometry(), QRect(1024, 0, 1920, 1080));
        QTRY_COMPARE(engine.ScreenSize(), QSize(1920, 1080));
        QVERIFY(Screenshot::IsNotBlank(window.grab().toImage()));
    }

    // The console mirrors the rectangle the window fills.
    void consoleFindsTheMonitorTheWindowFills() {
        TestDatabase db;
        RunEngine engine;
        ProjectorWindow window(engine);
        window.Place();
        ctlRun console;
        const QRect projector = console.ProjectorRect();
        QCOMPARE(projector.width(), window.Placement().geometry.width());
        QCOMPARE(projector.height(), window.Placement().geometry.height());
        QCOMPARE(projector.left(), window.Placement().geometry.left() + 1);
    }
};

CORVANTIS_TWO_SCREEN_TEST_MAIN(tst_ProjectorWindowTwoScreens)

#include "tst_ProjectorWindowTwoScreens.moc"
