// The mirror of the projector picture on the run console: where the projector
// is, what is grabbed, who refreshes the mirror and who does not, and how the
// host's projector window is recognised. Monitors and desktop are scripted;
// every grab is counted through ScriptedPlatform::Grabs().
#include "RunConsoleFixture.h"
#include "RunTestHost.h"

#include "foundations/SSRibbon.h"
#include "foundations/VBError.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QtTest>

#include <functional>

// Stands in for the host's projector window (host/ProjectorWindow.h): the
// console looks for a window of this class name.
class ProjectorWindow : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
};

namespace {

// A scripted platform that runs a step of the test at each grab, to see what
// the console had done by then.
class GrabWatchingPlatform : public ScriptedPlatform {
public:
    QPixmap GrabDesktop(const QRect& rcArea) override {
        if (AtGrab)
            AtGrab();
        return ScriptedPlatform::GrabDesktop(rcArea);
    }
    std::function<void()> AtGrab;
};

const QRect MonitorA(0, 0, 1024, 768);
const QRect MonitorB(1024, 0, 1920, 1080);
const QRect GrabOfB(1025, 0, 1920, 1080);

// A desktop of the given monitors: black where there is none, each monitor in
// its colour.
QPixmap Desktop(const QList<QRect>& monitors, const QList<QColor>& colors) {
    QRect area;
    for (const QRect& r : monitors)
        area = area.united(r);
    QPixmap desktop(area.size());
    desktop.fill(Qt::black);
    QPainter painter(&desktop);
    for (qsizetype i = 0; i < monitors.size(); ++i)
        painter.fillRect(monitors.at(i).translated(-area.topLeft()), colors.at(i));
    return desktop;
}

QColor MirrorPixel(const ctlRun& console, int x, int y) {
    return console.imgMirror->pixmap().toImage().pixelColor(x, y);
}

} // namespace

class tst_ctlRun_Mirror : public QObject, protected RunConsoleFixture<GrabWatchingPlatform> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Where the projector is and what is grabbed.
    void secondMonitorBesideTheFirstIsGrabbedFromItsLeftPlusOne();
    void oneMonitorLeavesTheRectangleAtZeroAndTheMirrorEmpty();
    void noMultiMonitorSupportLeavesTheRectangleAtZero();
    void secondMonitorLeftOfTheFirstIsGrabbedFromItsNegativeLeftPlusOne();
    void monitorLevelWithThePrimaryOnItsLeftComesFirstSoThePrimaryIsGrabbed();
    void monitorAboveThePrimaryComesFirstSoThePrimaryIsGrabbed();
    void secondMonitorWhoseTopIsNotZeroIsGrabbedFromTheTopOfTheDesktop();
    void eachRefreshGrabsAFreshPicture();
    void snapshotIsOneGrabAndLeavesTheMirrorAlone();
    void refreshTracesWithItsStrayApostrophe();

    // Who refreshes the mirror.
    void callersOfTheTableRefreshTheMirrorOnce_data();
    void callersOfTheTableRefreshTheMirrorOnce();
    void othersLeaveTheMirrorAlone_data();
    void othersLeaveTheMirrorAlone();
    void navigationRefreshesAfterTheEventWithTheButtonEnabledAgain();
    void pressThatEndsTheItemGrabsOnceAfterItsEvent_data();
    void pressThatEndsTheItemGrabsOnceAfterItsEvent();
    void pressWhoseEventFailsStillTakesTheGrabItAskedFor();
    void endRefreshesAfterTheEvent();
    void refreshGrabsBeforeFocusMovesToForward();
    void magnifyGrabsAfterFocusMovesWithoutPumping();
    void makeSmallerPumpsAfterFocusMovesThenGrabs();
    void treeClickGrabsWithTheClickedNodeAlreadyBold();
    void galleryPropGrabsWithThePropAlreadyShowing();
    void atEndAndProjectorCallsGrabLast();

    // The projector window.
    void projectorWindowIsFoundByItsTitleAndClass();
    void titleMayGoOnAfterTheFirstSixteenCharacters();
    void windowWithTheTitleButAnotherClassIsNotTaken();
    void projectorWindowWithAnotherTitleIsNotTaken();
    void hiddenProjectorWindowIsFoundToo();
    void childWidgetIsNoTopLevelWindow();
    void withoutAProjectorWindowTheAnswerIsNothing();

private:
    // A console made after the monitors were scripted (initialise reads them).
    void MakeConsole(const QList<QRect>& monitors, const QList<QColor>& colors);
    // The service of two items and two props that the mirror's tests run.
    bool LoadMorning();
    // One step of the tables below; false for a step it does not know.
    bool Do(const QString& strStep);

    qint32 song = 0;
    qint32 prayer = 0;
    qint32 propSong = 0;
};

void tst_ctlRun_Mirror::init() {
    QVERIFY2(StartConsole(false), qPrintable(StartError()));
    song = AddBeThouMyVision();
    prayer = AddCollectForPurity();
    propSong = db->AddSong(QStringLiteral("Amazing Grace"),
                           {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace")},
                            {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers")}});
    QVERIFY(song && prayer && propSong);
}

void tst_ctlRun_Mirror::cleanup() {
    StopConsole();
}

void tst_ctlRun_Mirror::MakeConsole(const QList<QRect>& monitors, const QList<QColor>& colors) {
    platform->SetMonitors(monitors);
    platform->SetDesktop(Desktop(monitors, colors));
    console = std::make_unique<ctlRun>();
}

bool tst_ctlRun_Mirror::LoadMorning() {
    return LoadService({{song}, {prayer}}, {propSong, prayer});
}

// ---------------------------------------------------------------- where

void tst_ctlRun_Mirror::secondMonitorBesideTheFirstIsGrabbedFromItsLeftPlusOne() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), GrabOfB);

    console->RefreshScreenMirror();

    QCOMPARE(platform->Grabs(), QList<QRect>({GrabOfB}));
    QCOMPARE(console->imgMirror->pixmap().size(), QSize(1920, 1080));
    QCOMPARE(MirrorPixel(*console, 0, 0), QColor(Qt::red));
    QCOMPARE(MirrorPixel(*console, 1918, 1079), QColor(Qt::red));
    // One pixel past the right edge of the desktop.
    QCOMPARE(MirrorPixel(*console, 1919, 500), QColor(Qt::black));
}

void tst_ctlRun_Mirror::oneMonitorLeavesTheRectangleAtZeroAndTheMirrorEmpty() {
    MakeConsole({MonitorA}, {Qt::blue});
    QCOMPARE(console->ProjectorRect(), QRect(0, 0, 0, 0));
    console->RefreshScreenMirror();
    QVERIFY(console->imgMirror->pixmap().isNull());
    QVERIFY(console->GetOLEScreenSnapshot().isNull());
    QVERIFY(platform->Grabs().isEmpty());
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_Mirror::noMultiMonitorSupportLeavesTheRectangleAtZero() {
    platform->SetMetric(80, 0);
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), QRect(0, 0, 0, 0));
    console->RefreshScreenMirror();
    QVERIFY(console->imgMirror->pixmap().isNull());
}

// Found in the second row of the walk, after the primary: the projector.
void tst_ctlRun_Mirror::secondMonitorLeftOfTheFirstIsGrabbedFromItsNegativeLeftPlusOne() {
    const QRect left(-1280, 300, 1280, 1024);
    MakeConsole({MonitorA, left}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), QRect(-1279, 0, 1280, 1024));

    console->RefreshScreenMirror();

    QCOMPARE(platform->Grabs(), QList<QRect>({QRect(-1279, 0, 1280, 1024)}));
    QCOMPARE(MirrorPixel(*console, 10, 299), QColor(Qt::black));
    QCOMPARE(MirrorPixel(*console, 10, 300), QColor(Qt::red));
    // The last column of the grab lies on the primary.
    QCOMPARE(MirrorPixel(*console, 1279, 100), QColor(Qt::blue));
}

// A monitor to the left whose cells come first in the top row is the first of
// the collection, so the second place, the projector, is the primary.
void tst_ctlRun_Mirror::monitorLevelWithThePrimaryOnItsLeftComesFirstSoThePrimaryIsGrabbed() {
    MakeConsole({MonitorA, QRect(-1280, 0, 1280, 1024)}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), QRect(1, 0, 1024, 768));
    console->RefreshScreenMirror();
    QCOMPARE(platform->Grabs(), QList<QRect>({QRect(1, 0, 1024, 768)}));
    QCOMPARE(MirrorPixel(*console, 500, 500), QColor(Qt::blue));
}

void tst_ctlRun_Mirror::monitorAboveThePrimaryComesFirstSoThePrimaryIsGrabbed() {
    MakeConsole({MonitorA, QRect(0, -768, 1024, 768)}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), QRect(1, 0, 1024, 768));
    console->RefreshScreenMirror();
    QCOMPARE(MirrorPixel(*console, 500, 10), QColor(Qt::blue));
}

void tst_ctlRun_Mirror::secondMonitorWhoseTopIsNotZeroIsGrabbedFromTheTopOfTheDesktop() {
    const QRect lower(1024, 200, 800, 600);
    MakeConsole({MonitorA, lower}, {Qt::blue, Qt::red});
    QCOMPARE(console->ProjectorRect(), QRect(1025, 0, 800, 600));

    console->RefreshScreenMirror();

    QCOMPARE(platform->Grabs(), QList<QRect>({QRect(1025, 0, 800, 600)}));
    QCOMPARE(console->imgMirror->pixmap().size(), QSize(800, 600));
    QCOMPARE(MirrorPixel(*console, 10, 199), QColor(Qt::black));
    QCOMPARE(MirrorPixel(*console, 10, 200), QColor(Qt::red));
    QCOMPARE(MirrorPixel(*console, 10, 599), QColor(Qt::red));
}

void tst_ctlRun_Mirror::eachRefreshGrabsAFreshPicture() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    console->RefreshScreenMirror();
    QCOMPARE(MirrorPixel(*console, 100, 100), QColor(Qt::red));
    platform->SetDesktop(Desktop({MonitorA, MonitorB}, {Qt::blue, Qt::green}));

    console->RefreshScreenMirror();

    QCOMPARE(platform->Grabs().size(), 2);
    QCOMPARE(MirrorPixel(*console, 100, 100), QColor(Qt::green));
}

void tst_ctlRun_Mirror::snapshotIsOneGrabAndLeavesTheMirrorAlone() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    TraceTail trace;
    const QPixmap picture = console->GetOLEScreenSnapshot();
    QCOMPARE(picture.size(), QSize(1920, 1080));
    QCOMPARE(picture.toImage().pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(platform->Grabs(), QList<QRect>({GrabOfB}));
    QVERIFY(console->imgMirror->pixmap().isNull());
    QVERIFY(trace.ConsoleLines().isEmpty());
}

void tst_ctlRun_Mirror::refreshTracesWithItsStrayApostrophe() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    TraceTail trace;
    console->RefreshScreenMirror();
    QCOMPARE(trace.ConsoleLines(), QStringList({MirrorLine}));
    QVERIFY(trace.Lines().first().startsWith(
        QStringLiteral("QVLTCONTROLS:ctlRun:'RefreshScreenMirror @ ")));
}

// ---------------------------------------------------------------- who

bool tst_ctlRun_Mirror::Do(const QString& strStep) {
    if (strStep == QLatin1String("cmdForward_Click"))
        console->cmdForward->click();
    else if (strStep == QLatin1String("cmdBack_Click"))
        console->cmdBack->click();
    else if (strStep == QLatin1String("cmdEnd_Click"))
        console->cmdEnd->click();
    else if (strStep == QLatin1String("cmdRefresh_Click"))
        console->cmdRefresh->click();
    else if (strStep == QLatin1String("cmdMagnify_Click"))
        console->cmdMagnify->setValue(true);
    else if (strStep == QLatin1String("cmdMakeSmaller_Click"))
        console->cmdMakeSmaller->setValue(true);
    else if (strStep == QLatin1String("cmdShowProperties_Click"))
        console->cmdShowProperties->setValue(true);
    else if (strStep == QLatin1String("tvwRun_NodeClick"))
        emit console->tvwRun->itemClicked(console->tvwRun->Nodes(3).Item(), 0);
    else if (strStep == QLatin1String("lvwSIContent_ItemClick"))
        emit console->lvwSIContent->itemClicked(console->lvwSIContent->topLevelItem(1), 0);
    else if (strStep == QLatin1String("ctlServiceItemGallery1_SIDblClicked"))
        emit console->ctlServiceItemGallery1->SIDblClicked(propSong);
    else if (strStep == QLatin1String("AtEndOfSI"))
        console->AtEndOfSI();
    else if (strStep == QLatin1String("ProjectorTurnedOn"))
        console->ProjectorTurnedOn();
    else if (strStep == QLatin1String("ProjectorTurnedOff"))
        console->ProjectorTurnedOff();
    else if (strStep == QLatin1String("chkProjectorOn_Click"))
        console->chkProjectorOn->click();
    else if (strStep == QLatin1String("lvwPropSIContent_ItemClick"))
        emit console->lvwPropSIContent->itemClicked(console->lvwPropSIContent->topLevelItem(1), 0);
    else if (strStep == QLatin1String("lvwProps_DblClick")) {
        console->lvwProps->setCurrentItem(console->lvwProps->topLevelItem(0));
        emit console->lvwProps->itemDoubleClicked(console->lvwProps->topLevelItem(0), 0);
    } else if (strStep == QLatin1String("PropRunEnded"))
        console->PropRunEnded();
    else if (strStep == QLatin1String("SIPartChanged"))
        console->SIPartChanged(2, 2);
    else if (strStep == QLatin1String("ShowSIAsRunning"))
        console->ShowSIAsRunning(prayer, true);
    else if (strStep == QLatin1String("ShowSIAsRunning of a prop"))
        console->ShowSIAsRunning(propSong, false);
    else if (strStep == QLatin1String("ShowServiceSIAsRunning"))
        console->ShowServiceSIAsRunning(2, 0, 0);
    else if (strStep == QLatin1String("RunningServiceServiceItem"))
        console->setRunningServiceServiceItem(2);
    else if (strStep == QLatin1String("RunningService"))
        return LoadMorning();
    else if (strStep == QLatin1String("JustIncreasedSize"))
        console->JustIncreasedSize();
    else if (strStep == QLatin1String("JustDecreasedSize"))
        console->JustDecreasedSize();
    else
        return false;
    return true;
}

void tst_ctlRun_Mirror::callersOfTheTableRefreshTheMirrorOnce_data() {
    QTest::addColumn<QString>("step");
    for (const char* step :
         {"cmdForward_Click", "cmdBack_Click", "cmdEnd_Click", "cmdRefresh_Click",
          "cmdMagnify_Click", "cmdMakeSmaller_Click", "tvwRun_NodeClick", "lvwSIContent_ItemClick",
          "ctlServiceItemGallery1_SIDblClicked", "AtEndOfSI", "ProjectorTurnedOn",
          "ProjectorTurnedOff"})
        QTest::newRow(step) << QString::fromLatin1(step);
}

void tst_ctlRun_Mirror::callersOfTheTableRefreshTheMirrorOnce() {
    QFETCH(QString, step);
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    platform->ClearRecords();

    QVERIFY2(Do(step), qPrintable(QStringLiteral("unknown step ") + step));

    QCOMPARE(platform->Grabs(), QList<QRect>({GrabOfB}));
    QCOMPARE(console->imgMirror->pixmap().size(), QSize(1920, 1080));
}

void tst_ctlRun_Mirror::othersLeaveTheMirrorAlone_data() {
    QTest::addColumn<QString>("step");
    for (const char* step :
         {"lvwPropSIContent_ItemClick", "lvwProps_DblClick", "PropRunEnded", "SIPartChanged",
          "ShowSIAsRunning", "ShowSIAsRunning of a prop", "ShowServiceSIAsRunning",
          "RunningServiceServiceItem", "RunningService", "chkProjectorOn_Click",
          "cmdShowProperties_Click", "JustIncreasedSize", "JustDecreasedSize"})
        QTest::newRow(step) << QString::fromLatin1(step);
}

void tst_ctlRun_Mirror::othersLeaveTheMirrorAlone() {
    QFETCH(QString, step);
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    // A prop runs, so that its part list and the prop's end are there to use.
    console->ShowSIAsRunning(propSong, false);
    platform->ClearRecords();

    QVERIFY2(Do(step), qPrintable(QStringLiteral("unknown step ") + step));

    QVERIFY(platform->Grabs().isEmpty());
    QVERIFY(console->imgMirror->pixmap().isNull());
}

void tst_ctlRun_Mirror::navigationRefreshesAfterTheEventWithTheButtonEnabledAgain() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    qint32 grabsAtEvent = -1;
    connect(console.get(), &ctlRun::ShowPreviousClicked, this,
            [&] { grabsAtEvent = static_cast<qint32>(platform->Grabs().size()); });
    bool blnEnabledAtGrab = false;
    platform->AtGrab = [&] { blnEnabledAtGrab = console->cmdBack->isEnabled(); };

    console->cmdBack->click();

    QCOMPARE(grabsAtEvent, 0);
    QVERIFY(blnEnabledAtGrab);
    QCOMPARE(platform->Grabs().size(), 1);
}

void tst_ctlRun_Mirror::pressThatEndsTheItemGrabsOnceAfterItsEvent_data() {
    QTest::addColumn<bool>("forward");
    QTest::newRow("Forward") << true;
    QTest::newRow("Back") << false;
}

// The host answers the press with AtEndOfSI before the projector shows the
// new picture: the mirror is grabbed once, after the event, and shows the new
// picture. AtEndOfSI still enters the refresh and writes its line.
void tst_ctlRun_Mirror::pressThatEndsTheItemGrabsOnceAfterItsEvent() {
    QFETCH(bool, forward);
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    bool blnEventOver = false;
    const auto answer = [&] {
        console->AtEndOfSI();
        platform->SetDesktop(Desktop({MonitorA, MonitorB}, {Qt::blue, Qt::green}));
        blnEventOver = true;
    };
    if (forward)
        connect(console.get(), &ctlRun::ShowNextClicked, this, answer);
    else
        connect(console.get(), &ctlRun::ShowPreviousClicked, this, answer);
    QList<bool> eventOverAtGrab;
    platform->AtGrab = [&] { eventOverAtGrab << blnEventOver; };
    platform->ClearRecords();
    TraceTail trace;

    (forward ? console->cmdForward : console->cmdBack)->click();

    QCOMPARE(eventOverAtGrab, QList<bool>({true}));
    QCOMPARE(platform->Grabs(), QList<QRect>({GrabOfB}));
    QCOMPARE(MirrorPixel(*console, 10, 10), QColor(Qt::green));
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    QCOMPARE(trace.ConsoleLines()
                 .filter(QRegularExpression("^QVLTCONTROLS:ctlRun:'RefreshScreenMirror @ "))
                 .size(),
             2);
}

// The grab that AtEndOfSI asked for is made even though the press ends in a
// failure before its own.
void tst_ctlRun_Mirror::pressWhoseEventFailsStillTakesTheGrabItAskedFor() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    connect(console.get(), &ctlRun::ShowNextClicked, this, [&] {
        console->AtEndOfSI();
        throw VBError(VBErr::TypeMismatch);
    });
    platform->ClearRecords();
    platform->QueueAnswer(vbOK);

    console->cmdForward->click();

    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->Grabs(), QList<QRect>({GrabOfB}));
    QVERIFY(console->cmdForward->isEnabled());
}

void tst_ctlRun_Mirror::endRefreshesAfterTheEvent() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    qint32 grabsAtEvent = -1;
    connect(console.get(), &ctlRun::EndRun, this,
            [&] { grabsAtEvent = static_cast<qint32>(platform->Grabs().size()); });
    console->cmdEnd->click();
    QCOMPARE(grabsAtEvent, 0);
    QCOMPARE(platform->Grabs().size(), 1);
}

void tst_ctlRun_Mirror::refreshGrabsBeforeFocusMovesToForward() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    console->cmdBack->setFocus();
    QVERIFY(console->cmdBack->hasFocus());
    bool blnForwardHadFocus = true;
    platform->AtGrab = [&] { blnForwardHadFocus = console->cmdForward->hasFocus(); };

    console->cmdRefresh->click();

    QVERIFY(!blnForwardHadFocus);
    QVERIFY(console->cmdForward->hasFocus());
    QCOMPARE(platform->Grabs().size(), 1);
}

void tst_ctlRun_Mirror::magnifyGrabsAfterFocusMovesWithoutPumping() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    console->cmdBack->setFocus();
    const qint32 pumps = platform->DoEventsCount();
    bool blnForwardHadFocus = false;
    qint32 pumpsAtGrab = -1;
    platform->AtGrab = [&] {
        blnForwardHadFocus = console->cmdForward->hasFocus();
        pumpsAtGrab = platform->DoEventsCount();
    };

    console->cmdMagnify->setValue(true);

    QVERIFY(blnForwardHadFocus);
    QCOMPARE(pumpsAtGrab, pumps);
    QCOMPARE(platform->Grabs().size(), 1);
}

void tst_ctlRun_Mirror::makeSmallerPumpsAfterFocusMovesThenGrabs() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    console->cmdBack->setFocus();
    qint32 pumpsAtEvent = -1;
    connect(console.get(), &ctlRun::DecreaseSize, this,
            [&] { pumpsAtEvent = platform->DoEventsCount(); });
    bool blnForwardHadFocus = false;
    qint32 pumpsAtGrab = -1;
    platform->AtGrab = [&] {
        blnForwardHadFocus = console->cmdForward->hasFocus();
        pumpsAtGrab = platform->DoEventsCount();
    };

    console->cmdMakeSmaller->setValue(true);

    QVERIFY(blnForwardHadFocus);
    QCOMPARE(pumpsAtGrab, pumpsAtEvent + 1);
    QCOMPARE(platform->Grabs().size(), 1);
}

void tst_ctlRun_Mirror::treeClickGrabsWithTheClickedNodeAlreadyBold() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QList<qint32> boldAtGrab;
    platform->AtGrab = [&] { boldAtGrab = BoldIndexes(console->tvwRun); };
    emit console->tvwRun->itemClicked(console->tvwRun->Nodes(3).Item(), 0);
    QCOMPARE(boldAtGrab, QList<qint32>({3}));
}

void tst_ctlRun_Mirror::galleryPropGrabsWithThePropAlreadyShowing() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QString strEndAtGrab;
    qint32 grabsAtEvent = -1;
    connect(console.get(), &ctlRun::ShowSI, this,
            [&] { grabsAtEvent = static_cast<qint32>(platform->Grabs().size()); });
    platform->AtGrab = [&] { strEndAtGrab = console->cmdEnd->text(); };
    emit console->ctlServiceItemGallery1->SIDblClicked(propSong);
    QCOMPARE(grabsAtEvent, 0);
    QCOMPARE(strEndAtGrab, QStringLiteral("&End Prop"));
}

void tst_ctlRun_Mirror::atEndAndProjectorCallsGrabLast() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QVERIFY(LoadMorning());
    QString strToolTipAtGrab;
    bool blnCheckedAtGrab = false;
    platform->AtGrab = [&] {
        strToolTipAtGrab = console->cmdForward->toolTip();
        blnCheckedAtGrab = console->chkProjectorOn->isChecked();
    };
    console->AtEndOfSI();
    QCOMPARE(strToolTipAtGrab, QStringLiteral("&Finish this Service Item"));
    console->ProjectorTurnedOn();
    QVERIFY(blnCheckedAtGrab);
    console->ProjectorTurnedOff();
    QVERIFY(!blnCheckedAtGrab);
    QCOMPARE(platform->Grabs().size(), 3);
}

// ---------------------------------------------------------------- projector window

void tst_ctlRun_Mirror::projectorWindowIsFoundByItsTitleAndClass() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QWidget other;
    other.setWindowTitle(QStringLiteral("Corvantis"));
    ProjectorWindow projector;
    projector.setWindowTitle(QStringLiteral("CorvantisRunForm"));
    TraceTail trace;
    QWidget* hWnd = nullptr;

    QCOMPARE(console->GetProjectorWindowHandle(hWnd), &projector);

    QCOMPARE(hWnd, &projector);
    QCOMPARE(trace.ConsoleLines(),
             QStringList({RunLine(QStringLiteral("GetProjectorWindowHandle"))}));
}

void tst_ctlRun_Mirror::titleMayGoOnAfterTheFirstSixteenCharacters() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    ProjectorWindow projector;
    projector.setWindowTitle(QStringLiteral("CorvantisRunForm - Sunday Morning Worship"));
    QWidget* hWnd = nullptr;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), &projector);
}

void tst_ctlRun_Mirror::windowWithTheTitleButAnotherClassIsNotTaken() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QWidget plain;
    plain.setWindowTitle(QStringLiteral("CorvantisRunForm"));
    plain.setObjectName(QStringLiteral("ProjectorWindow"));
    QWidget* hWnd = &plain;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), nullptr);
    QCOMPARE(hWnd, nullptr);
}

void tst_ctlRun_Mirror::projectorWindowWithAnotherTitleIsNotTaken() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    ProjectorWindow projector;
    projector.setWindowTitle(QStringLiteral("Projector"));
    ProjectorWindow shortTitle;
    shortTitle.setWindowTitle(QStringLiteral("CorvantisRunFor"));
    ProjectorWindow lowerCase;
    lowerCase.setWindowTitle(QStringLiteral("corvantisrunform"));
    QWidget* hWnd = nullptr;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), nullptr);
}

void tst_ctlRun_Mirror::hiddenProjectorWindowIsFoundToo() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    ProjectorWindow projector;
    projector.setWindowTitle(QStringLiteral("CorvantisRunForm"));
    projector.show();
    QVERIFY(QTest::qWaitForWindowExposed(&projector));
    projector.hide();
    QWidget* hWnd = nullptr;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), &projector);
}

void tst_ctlRun_Mirror::childWidgetIsNoTopLevelWindow() {
    MakeConsole({MonitorA, MonitorB}, {Qt::blue, Qt::red});
    QWidget form;
    auto* child = new ProjectorWindow(&form);
    child->setWindowTitle(QStringLiteral("CorvantisRunForm"));
    QWidget* hWnd = nullptr;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), nullptr);
}

void tst_ctlRun_Mirror::withoutAProjectorWindowTheAnswerIsNothing() {
    MakeConsole({MonitorA}, {Qt::blue});
    QWidget* hWnd = console.get();
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), nullptr);
    QCOMPARE(hWnd, nullptr);
    QCOMPARE(platform->BoxCount(), 0);
}

QTEST_MAIN(tst_ctlRun_Mirror)
#include "tst_ctlRun_Mirror.moc"
