// The projector window on a machine with two screens: full screen on the
// second, the one the console mirrors.
#include "ProjectorWindow.h"
#include "RunEngine.h"
#include "Screenshot.h"
#include "TestDatabase.h"

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

int main(int argc, char* argv[]) {
    QTemporaryDir dir;
    if (!dir.isValid())
        qFatal("no temporary folder for the screen file");
    const QString file = dir.filePath(QStringLiteral("screens.json"));
    QFile json(file);
    if (!json.open(QIODevice::WriteOnly))
        qFatal("cannot write the screen file");
    json.write(R"({"screens":[)"
               R"({"name":"A","x":0,"y":0,"width":1024,"height":768,"logicalDpi":96,"dpr":1},)"
               R"({"name":"B","x":1024,"y":0,"width":1920,"height":1080,"logicalDpi":96,"dpr":1})"
               R"(]})");
    json.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toLocal8Bit());
    QApplication app(argc, argv);
    tst_ProjectorWindowTwoScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ProjectorWindowTwoScreens.moc"
