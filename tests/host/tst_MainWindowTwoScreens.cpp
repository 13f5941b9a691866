// The main window on a machine with two screens: the console's screen (A,
// 1024 x 768, the primary) and the projector's (B). The window fits the
// console's screen and opens there, every box opens over it, and the
// projector window never has one.
#include "MainWindow.h"
#include "ProjectorWindow.h"
#include "RunPreview.h"
#include "RunSession.h"
#include "Screenshot.h"
#include "ScriptedPlatform.h"
#include "Settings.h"
#include "TestDatabase.h"
#include "TwoScreens.h"

#include "foundations/SSRibbon.h"
#include "run/ctlRun.h"

#include <QAction>
#include <QCheckBox>
#include <QDockWidget>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QToolBar>
#include <QWindow>
#include <QtTest>

#include <memory>

class tst_MainWindowTwoScreens : public QObject {
    Q_OBJECT

private slots:
    void init() {
        Settings::DeletePrivateProfileKey(QStringLiteral("Window"), MainWindow::GeometryKey());
        db = std::make_unique<TestDatabase>();
        QVERIFY(db->IsValid());
        platform = std::make_unique<ScriptedPlatform>();
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                                 QStringLiteral("Almighty God"));
        service = db->AddService(QStringLiteral("Morning"), {{prayer}});
    }

    void cleanup() {
        window.reset();
        platform.reset();
        db.reset();
    }

    void windowFitsTheConsolesScreenAndOpensOnIt() {
        Open();
        QScreen* console = QGuiApplication::primaryScreen();
        QCOMPARE(console->name(), QStringLiteral("A"));
        QCOMPARE(window->windowHandle()->screen(), console);
        QVERIFY(console->availableGeometry().contains(window->geometry()));
        QVERIFY2(window->width() <= 1024 && window->height() <= 768,
                 qPrintable(QStringLiteral("%1 x %2").arg(window->width()).arg(window->height())));
        QVERIFY(window->minimumSizeHint().width() <= 1024);
    }

    void windowOpensWhereItWasClosed() {
        Open();
        window->setGeometry(QRect(40, 50, 900, 600));
        platform->SetDefaultAnswer(vbYes);
        QVERIFY(window->close());
        window.reset();
        Open();
        QCOMPARE(window->geometry(), QRect(40, 50, 900, 600));
    }

    void rememberedPlaceOffEveryScreenIsNotUsed() {
        Settings::WritePrivateProfileString(QStringLiteral("Window"), MainWindow::GeometryKey(),
                                            QStringLiteral("5000,5000,900,600"));
        Open();
        QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(window->geometry()));
    }

    void navigationBarHiddenComesBackFromTheViewMenu() {
        Open();
        window->tbrNavigation->toggleViewAction()->trigger();
        QVERIFY(window->tbrNavigation->isHidden());
        QAction* show = window->findChild<QAction*>(QStringLiteral("mnuViewNavigationBar"));
        QVERIFY(show);
        QVERIFY(window->mnuView->actions().contains(show));
        show->trigger();
        QVERIFY(window->tbrNavigation->isVisible());
    }

    // The projector window may be the active window (a click on it); the
    // question of Run > End still opens over the main window, on the
    // console's screen.
    void boxesOpenOverTheMainWindowNotTheProjector() {
        Open();
        QVERIFY(window->RunService(service));
        ProjectorWindow* projector = window->Session()->Projector();
        QTRY_COMPARE(projector->windowHandle()->screen()->name(), QStringLiteral("B"));
        projector->activateWindow();
        platform->QueueAnswer(vbNo);
        window->mnuEndRun->trigger();
        QCOMPARE(platform->BoxCount(), 1);
        QCOMPARE(platform->LastBox().Prompt,
                 QStringLiteral("Do you want to stop running this item?"));
        QCOMPARE(platform->LastBox().Parent.data(), window.get());
        QCOMPARE(platform->LastBox().Parent->screen()->name(), QStringLiteral("A"));
        QVERIFY(window->IsRunning());
    }

    void projectorWindowTakesNoFocus() {
        Open();
        QVERIFY(window->RunService(service));
        ProjectorWindow* projector = window->Session()->Projector();
        QCOMPARE(projector->focusPolicy(), Qt::NoFocus);
        QVERIFY(projector->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
    }

    // The mirror shows the projector's picture from the start, black once
    // blacked out and the slide again once back on: each grab comes after the
    // projector has painted the change.
    void mirrorFollowsEveryChangeOfTheProjector() {
        Open();
        QVERIFY(window->RunService(service));
        ctlRun* console = window->Session()->Console();
        QTRY_VERIFY(Screenshot::IsNotBlank(Mirror(console)));
        console->chkProjectorOn->click();
        QVERIFY(window->Session()->Engine().IsBlackedOut());
        QTRY_VERIFY(!Screenshot::IsNotBlank(Mirror(console)));
        QCOMPARE(Mirror(console).pixel(10, 10), qRgb(0, 0, 0));
        console->chkProjectorOn->click();
        QTRY_VERIFY(Screenshot::IsNotBlank(Mirror(console)));
        const QImage before = Mirror(console);
        console->cmdMagnify->setValue(true);
        QTRY_VERIFY(Mirror(console) != before);
    }

    // A press of Forward on the console grabs the mirror once, after the
    // projector has painted the new part: not again when the projector tells
    // that its picture is on the screen.
    void forwardOnTheConsoleGrabsTheNewPictureOnce() {
        const qint32 song =
            db->AddSong(QStringLiteral("Abide with Me"),
                        {{QStringLiteral("Verse 1"), QStringLiteral("Abide with me")},
                         {QStringLiteral("Verse 2"), QStringLiteral("Swift to its close")},
                         {QStringLiteral("Verse 3"), QStringLiteral("I need thy presence")}});
        const qint32 evening = db->AddService(QStringLiteral("Evening"), {{song}});
        Open();
        QVERIFY(window->RunService(evening));
        ctlRun* console = window->Session()->Console();
        ProjectorWindow* projector = window->Session()->Projector();
        QTRY_VERIFY(Screenshot::IsNotBlank(Mirror(console)));
        QTRY_VERIFY(!projector->IsInTransition());
        const QImage before = Mirror(console);
        QSignalSpy shown(projector, &ProjectorWindow::PictureShown);
        const qsizetype grabs = platform->Grabs().size();
        console->cmdForward->click();
        QCOMPARE(window->Session()->Engine().CurrentPart(), 1);
        QTRY_COMPARE(shown.count(), 1);
        // What the projector's news set in motion has run.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCOMPARE(platform->Grabs().size(), grabs + 1);
        QVERIFY(Mirror(console) != before);
        const QRect area = platform->Grabs().constLast();
        QCOMPARE(Mirror(console), platform->GrabDesktop(area).toImage());
    }

    // Beside the console: the picture showing and the one Forward brings.
    void previewShowsTheCurrentAndTheNextSlide() {
        const qint32 song = db->AddSong(QStringLiteral("Be Thou My Vision"),
                                        {{QStringLiteral("Verse 1"), QStringLiteral("Be thou")},
                                         {QStringLiteral("Verse 2"), QStringLiteral("Riches")}});
        const qint32 two = db->AddService(QStringLiteral("Evening"), {{song}});
        Open();
        QVERIFY(window->RunService(two));
        RunPreview* preview = window->ctlRunPreview;
        QVERIFY(preview);
        QTRY_VERIFY(window->dckRunPreview->isVisible());
        RunEngine& engine = window->Session()->Engine();
        QTRY_COMPARE(Picture(preview->imgShowing), Scaled(engine, engine.CurrentSlide(), preview));
        QCOMPARE(Picture(preview->imgNext), Scaled(engine, engine.ItemSlides(0).at(1), preview));
        QTest::keyClick(window->Session()->Console()->cmdForward, Qt::Key_Space);
        QCOMPARE(engine.CurrentPart(), 1);
        QTRY_COMPARE(Picture(preview->imgShowing), Scaled(engine, engine.CurrentSlide(), preview));
        QCOMPARE(preview->lblNext->text(), QStringLiteral("Next: the end"));
        platform->QueueAnswer(vbYes);
        window->Session()->Console()->cmdEnd->click();
        QTRY_VERIFY(!window->IsRunning());
        QTRY_VERIFY(!window->findChild<QDockWidget*>(QStringLiteral("dckRunPreview")));
    }

private:
    static QImage Mirror(ctlRun* console) { return console->imgMirror->pixmap().toImage(); }
    static QImage Picture(QLabel* label) { return label->pixmap().toImage(); }
    static QImage Scaled(RunEngine& engine, const Slide& slide, RunPreview* preview) {
        return QPixmap::fromImage(engine.Renderer()
                                      .Render(slide, engine.ScreenSize())
                                      .scaled(preview->imgShowing->pixmap().size(),
                                              Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
            .toImage();
    }

    void Open() {
        StartUp start;
        start.databasePath = db->Path();
        window = std::make_unique<MainWindow>(start);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<MainWindow> window;
    qint32 service = 0;
};

CORVANTIS_TWO_SCREEN_TEST_MAIN(tst_MainWindowTwoScreens)

#include "tst_MainWindowTwoScreens.moc"
