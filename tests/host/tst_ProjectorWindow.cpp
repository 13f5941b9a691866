// The projector window with one screen: a normal window on it, the current
// slide drawn, the operator's keys handed on, and a fresh placement whenever
// a screen comes or goes.
#include "ProjectorWindow.h"
#include "RunEngine.h"
#include "Screenshot.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(OperatorKeys::Action)

class tst_ProjectorWindow : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneScreenGivesANormalWindowTitledCorvantisRunForm();
    void windowShowsTheCurrentSlide();
    void blackOutShowsBlack();
    void operatorKeysAreHandedOn_data();
    void operatorKeysAreHandedOn();
    void otherKeysDoNothing();
    void closingByHandAsksForTheEnd();
    void closeProjectorClosesIt();
    void screenAddedPlacesTheWindowAgain();
    void screenRemovedFallsBackToAWindow();
    void windowSizeIsTheEnginesScreen();

private:
    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<RunEngine> engine;
    std::unique_ptr<ProjectorWindow> window;
};

void tst_ProjectorWindow::init() {
    qRegisterMetaType<OperatorKeys::Action>();
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    platform = std::make_unique<ScriptedPlatform>();
    const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                             QStringLiteral("Almighty God, to whom all hearts"));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{prayer}});
    engine = std::make_unique<RunEngine>();
    QString err;
    QVERIFY(engine->LoadService(service, err));
    window = std::make_unique<ProjectorWindow>(*engine);
}

void tst_ProjectorWindow::cleanup() {
    window.reset();
    engine.reset();
    platform.reset();
    db.reset();
}

void tst_ProjectorWindow::oneScreenGivesANormalWindowTitledCorvantisRunForm() {
    QCOMPARE(QGuiApplication::screens().size(), 1);
    window->Place();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QCOMPARE(window->windowTitle(), QStringLiteral("CorvantisRunForm"));
    QVERIFY(!window->Placement().fullScreen);
    QVERIFY(!window->isFullScreen());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QVERIFY(screen.contains(window->geometry()));
    QVERIFY(window->width() < screen.width());
    QCOMPARE(window->geometry().center(), screen.center());
}

void tst_ProjectorWindow::windowShowsTheCurrentSlide() {
    window->Place();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    const QImage shown = window->grab().toImage();
    QVERIFY(Screenshot::IsNotBlank(shown));
    QCOMPARE(shown.size(), window->size());
    QVERIFY(Screenshot::IsNotBlank(window->Picture()));
}

void tst_ProjectorWindow::blackOutShowsBlack() {
    window->Place();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    engine->SetBlackedOut(true);
    const QImage shown = window->grab().toImage();
    QVERIFY(!Screenshot::IsNotBlank(shown));
    QCOMPARE(QColor(shown.pixel(5, 5)), QColor(Qt::black));
}

void tst_ProjectorWindow::operatorKeysAreHandedOn_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<OperatorKeys::Action>("action");
    QTest::newRow("Space") << int(Qt::Key_Space) << OperatorKeys::Action::Forward;
    QTest::newRow("Right") << int(Qt::Key_Right) << OperatorKeys::Action::Forward;
    QTest::newRow("PageDown") << int(Qt::Key_PageDown) << OperatorKeys::Action::Forward;
    QTest::newRow("Left") << int(Qt::Key_Left) << OperatorKeys::Action::Back;
    QTest::newRow("PageUp") << int(Qt::Key_PageUp) << OperatorKeys::Action::Back;
    QTest::newRow("B") << int(Qt::Key_B) << OperatorKeys::Action::BlackOut;
    QTest::newRow("Esc") << int(Qt::Key_Escape) << OperatorKeys::Action::End;
}

void tst_ProjectorWindow::operatorKeysAreHandedOn() {
    QFETCH(int, key);
    QFETCH(OperatorKeys::Action, action);
    window->Place();
    QSignalSpy pressed(window.get(), &ProjectorWindow::ActionPressed);
    QTest::keyClick(window.get(), static_cast<Qt::Key>(key));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.first().first().value<OperatorKeys::Action>(), action);
}

void tst_ProjectorWindow::otherKeysDoNothing() {
    window->Place();
    QSignalSpy pressed(window.get(), &ProjectorWindow::ActionPressed);
    QTest::keyClick(window.get(), Qt::Key_A);
    QTest::keyClick(window.get(), Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(pressed.count(), 0);
}

void tst_ProjectorWindow::closingByHandAsksForTheEnd() {
    window->Place();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QSignalSpy pressed(window.get(), &ProjectorWindow::ActionPressed);
    window->close();
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.first().first().value<OperatorKeys::Action>(), OperatorKeys::Action::End);
    QVERIFY(window->isVisible());
}

void tst_ProjectorWindow::closeProjectorClosesIt() {
    window->Place();
    QSignalSpy pressed(window.get(), &ProjectorWindow::ActionPressed);
    window->CloseProjector();
    QVERIFY(!window->isVisible());
    QCOMPARE(pressed.count(), 0);
    window->Place(); // a closed projector stays closed
    QVERIFY(!window->isVisible());
}

// The platform reports a second monitor (here both lie on the one screen
// that the machine has); the window goes full screen as soon as Qt says a
// screen came.
void tst_ProjectorWindow::screenAddedPlacesTheWindowAgain() {
    window->Place();
    QVERIFY(!window->Placement().fullScreen);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    platform->SetMonitors({screen, screen});
    emit qApp->screenAdded(QGuiApplication::primaryScreen());
    QTRY_VERIFY(window->Placement().fullScreen);
    QCOMPARE(window->Placement().geometry, screen);
    QTRY_VERIFY(window->isFullScreen());
}

void tst_ProjectorWindow::screenRemovedFallsBackToAWindow() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    platform->SetMonitors({screen, screen});
    window->Place();
    QVERIFY(window->Placement().fullScreen);
    platform->SetMonitors({screen});
    emit qApp->screenRemoved(QGuiApplication::primaryScreen());
    QTRY_VERIFY(!window->Placement().fullScreen);
    QTRY_VERIFY(!window->isFullScreen());
    QVERIFY(window->isVisible());
    QVERIFY(window->width() < screen.width());
}

void tst_ProjectorWindow::windowSizeIsTheEnginesScreen() {
    window->Place();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QCOMPARE(engine->ScreenSize(), window->size());
    window->resize(700, 500);
    QTRY_COMPARE(engine->ScreenSize(), QSize(700, 500));
}

QTEST_MAIN(tst_ProjectorWindow)
#include "tst_ProjectorWindow.moc"
