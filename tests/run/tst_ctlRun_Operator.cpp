// The operator's actions on the run console and the host's answers to them;
// the frame of the console (widgets, initialise, resize, hollow members).
#include "RunConsoleFixture.h"
#include "RunTestHost.h"

#include "foundations/SSRibbon.h"
#include "foundations/SSTab.h"
#include "foundations/VBError.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QtTest>

class tst_ctlRun_Operator : public QObject, protected RunConsoleFixture<> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Navigation.
    void forwardDisablesPumpsRaisesEnablesPumpsAndRefreshes();
    void backDoesTheSameWithShowPreviousClicked();
    void forwardCannotArriveTwiceWhileTheHostWorksButBackStaysLive();
    void forwardIsEnabledAgainWhenTheHostFails();
    void endRaisesEndRunAndRefreshesTheMirror();
    void refreshRefreshesTheMirrorAndFocusesForward();
    void clickOnTheRootRaisesShowServiceSIZeroAndTheRootIsBold();
    void clickOnANodeRaisesItsIndexMinusOneAndBoldsIt();

    // Projector and size.
    void projectorCheckBoxRaisesTurnOnAndTurnOff();
    void projectorTurnedOnSetsTheBoxAndRaisesTurnOnOnceMore();
    void showPropertiesRibbonSpringsBackAndRaisesOnce();
    void magnifyRaisesIncreaseSizeFocusesForwardAndRefreshes();
    void makeSmallerRaisesDecreaseSizeAndPumpsBeforeTheRefresh();
    void ribbonWrittenFalseDoesNothing();
    void keys187And189ActLikeTheSizeButtonsAlsoWithShift();
    void keyReleasedOnAChildReachesTheConsole();
    void otherKeysDoNothing();
    void justIncreasedAndDecreasedSizeOnlyTrace();

    // End of an item, unloading.
    void atEndOfSISetsTheFinishToolTipAndRefreshesTheMirror();
    void canUnloadAnsweredNoLeavesTheRunUntouchedAndRaisesNothing();
    void canUnloadAnsweredYesRaisesEndRunOnce();
    void canUnloadDuringAPropRaisesEndRunTwice();
    void propRunEndedRestoresCaptionsAndKeepsThePropType();

    // Frame.
    void widgetsCarryTheirNamesAndCaptions();
    void hollowMembersKeepNoState();
    void initialiseEmptiesTheTabCaptionAndLeavesTheProjectorRectZero();
    void tabClickLoadsTheGeneralTabAgain();
    void mirrorOfOneMonitorShowsNothing();
    void secondMonitorBesideTheFirstIsTheProjector();
    void secondMonitorBelowTheTopIsGrabbedFromTheTop();
    void showingTheConsoleLoadsTheGallery();
    void resizeWiderThanTheScrollAreaWidensCaptionAndTab();
    void resizeKeepsTheFramesAndListsAboveTheBottom();
    void resizeBelowTheScrollAreaUsesTheScrollAreaHeight();

private:
    // The song, the prayer and a Blank row; false when it could not be made.
    bool LoadMorning();

    qint32 song = 0;
    qint32 prayer = 0;
};

void tst_ctlRun_Operator::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
    song = AddBeThouMyVision();
    prayer = AddCollectForPurity();
}

void tst_ctlRun_Operator::cleanup() {
    StopConsole();
}

bool tst_ctlRun_Operator::LoadMorning() {
    return LoadService({{song}, {prayer}, TestDatabase::Blank()});
}

// ---------------------------------------------------------------- navigation

void tst_ctlRun_Operator::forwardDisablesPumpsRaisesEnablesPumpsAndRefreshes() {
    QVERIFY(LoadMorning());
    const qint32 pumpsBefore = platform->DoEventsCount();
    bool blnEnabledDuringEvent = true;
    qint32 pumpsDuringEvent = -1;
    QStringList linesDuringEvent;
    TraceTail trace;
    connect(console.get(), &ctlRun::ShowNextClicked, this, [&] {
        blnEnabledDuringEvent = console->cmdForward->isEnabled();
        pumpsDuringEvent = platform->DoEventsCount() - pumpsBefore;
        linesDuringEvent = trace.ConsoleLines();
    });

    console->cmdForward->click();

    QVERIFY(!blnEnabledDuringEvent);
    QCOMPARE(pumpsDuringEvent, 1);
    QVERIFY(!linesDuringEvent.contains(MirrorLine));
    QVERIFY(console->cmdForward->isEnabled());
    QCOMPARE(platform->DoEventsCount() - pumpsBefore, 2);
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("cmdForward_Click")), MirrorLine}));
}

void tst_ctlRun_Operator::backDoesTheSameWithShowPreviousClicked() {
    QVERIFY(LoadMorning());
    QSignalSpy next(console.get(), &ctlRun::ShowNextClicked);
    const qint32 pumpsBefore = platform->DoEventsCount();
    bool blnEnabledDuringEvent = true;
    qint32 pumpsDuringEvent = -1;
    TraceTail trace;
    connect(console.get(), &ctlRun::ShowPreviousClicked, this, [&] {
        blnEnabledDuringEvent = console->cmdBack->isEnabled();
        pumpsDuringEvent = platform->DoEventsCount() - pumpsBefore;
    });

    console->cmdBack->click();

    QVERIFY(!blnEnabledDuringEvent);
    QCOMPARE(pumpsDuringEvent, 1);
    QVERIFY(console->cmdBack->isEnabled());
    QCOMPARE(platform->DoEventsCount() - pumpsBefore, 2);
    QCOMPARE(next.count(), 0);
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("cmdBack_Click")), MirrorLine}));
}

void tst_ctlRun_Operator::forwardCannotArriveTwiceWhileTheHostWorksButBackStaysLive() {
    QVERIFY(LoadMorning());
    QSignalSpy next(console.get(), &ctlRun::ShowNextClicked);
    QSignalSpy previous(console.get(), &ctlRun::ShowPreviousClicked);
    bool blnBackEnabled = false;
    connect(console.get(), &ctlRun::ShowNextClicked, this, [&] {
        console->cmdForward->click();
        blnBackEnabled = console->cmdBack->isEnabled();
        console->cmdBack->click();
    });

    console->cmdForward->click();

    QCOMPARE(next.count(), 1);
    QVERIFY(blnBackEnabled);
    QCOMPARE(previous.count(), 1);
}

void tst_ctlRun_Operator::forwardIsEnabledAgainWhenTheHostFails() {
    QVERIFY(LoadMorning());
    connect(console.get(), &ctlRun::ShowNextClicked, this,
            [] { throw VBError(VBErr::TypeMismatch); });
    platform->QueueAnswer(vbOK);

    console->cmdForward->click();

    QVERIFY(console->cmdForward->isEnabled());
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Run-time error '13':\n\nType mismatch"));
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Corvantis"));
}

void tst_ctlRun_Operator::endRaisesEndRunAndRefreshesTheMirror() {
    QVERIFY(LoadMorning());
    QSignalSpy end(console.get(), &ctlRun::EndRun);
    TraceTail trace;
    console->cmdEnd->click();
    QCOMPARE(end.count(), 1);
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("cmdEnd_Click")), MirrorLine}));
}

void tst_ctlRun_Operator::refreshRefreshesTheMirrorAndFocusesForward() {
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    console->cmdBack->setFocus();
    QVERIFY(console->cmdBack->hasFocus());
    TraceTail trace;
    console->cmdRefresh->click();
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("cmdRefresh_Click")), MirrorLine}));
    QVERIFY(console->cmdForward->hasFocus());
}

void tst_ctlRun_Operator::clickOnTheRootRaisesShowServiceSIZeroAndTheRootIsBold() {
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    QSignalSpy jump(console.get(), &ctlRun::ShowServiceSI);
    TraceTail trace;
    QTreeWidgetItem* root = console->tvwRun->Nodes(1).Item();

    QTest::mouseClick(console->tvwRun->viewport(), Qt::LeftButton, {},
                      console->tvwRun->visualItemRect(root).center());

    QCOMPARE(jump.count(), 1);
    QCOMPARE(jump.first().first().value<qint16>(), qint16(0));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({1}));
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("tvwRun_NodeClick")), MirrorLine}));
}

void tst_ctlRun_Operator::clickOnANodeRaisesItsIndexMinusOneAndBoldsIt() {
    RunTestHost host(console.get());
    QVERIFY(host.LoadService(
        db->AddService(QStringLiteral("Morning"), {{song}, {prayer}, TestDatabase::Blank()})));
    QVERIFY(ShowConsole(true));
    QSignalSpy jump(console.get(), &ctlRun::ShowServiceSI);
    QTreeWidgetItem* node = console->tvwRun->Nodes(3).Item();

    QTest::mouseClick(console->tvwRun->viewport(), Qt::LeftButton, {},
                      console->tvwRun->visualItemRect(node).center());

    QCOMPARE(jump.count(), 1);
    QCOMPARE(jump.first().first().value<qint16>(), qint16(2));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({3}));
    // The host answered by showing the item.
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
}

// ---------------------------------------------------------------- projector and size

void tst_ctlRun_Operator::projectorCheckBoxRaisesTurnOnAndTurnOff() {
    QVERIFY(LoadMorning());
    QSignalSpy on(console.get(), &ctlRun::TurnOnProjector);
    QSignalSpy off(console.get(), &ctlRun::TurnOffProjector);
    console->chkProjectorOn->click();
    QCOMPARE(on.count(), 1);
    QCOMPARE(off.count(), 0);
    console->chkProjectorOn->click();
    QCOMPARE(on.count(), 1);
    QCOMPARE(off.count(), 1);
}

void tst_ctlRun_Operator::projectorTurnedOnSetsTheBoxAndRaisesTurnOnOnceMore() {
    QVERIFY(LoadMorning());
    QSignalSpy on(console.get(), &ctlRun::TurnOnProjector);
    QSignalSpy off(console.get(), &ctlRun::TurnOffProjector);
    TraceTail trace;

    console->ProjectorTurnedOn();
    QCOMPARE(console->chkProjectorOn->checkState(), Qt::Checked);
    QCOMPARE(on.count(), 1);
    QVERIFY(trace.StepLines().endsWith(MirrorLine));
    console->ProjectorTurnedOn();
    QCOMPARE(on.count(), 1);

    console->ProjectorTurnedOff();
    QCOMPARE(console->chkProjectorOn->checkState(), Qt::Unchecked);
    QCOMPARE(off.count(), 1);

    // A host answering with the same call ends there.
    RunTestHost host(console.get());
    console->chkProjectorOn->click();
    QVERIFY(host.IsProjectorOn());
    QCOMPARE(host.Events(), QStringList({"TurnOnProjector"}));
    QCOMPARE(console->chkProjectorOn->checkState(), Qt::Checked);
}

void tst_ctlRun_Operator::showPropertiesRibbonSpringsBackAndRaisesOnce() {
    QSignalSpy props(console.get(), &ctlRun::ShowPropButtonClicked);
    TraceTail trace;
    console->cmdShowProperties->click();
    QCOMPARE(props.count(), 1);
    QVERIFY(!console->cmdShowProperties->Value());
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("cmdShowProperties_Click"),
                                                     QStringLiteral("Value = True, ")),
                                             RunLine(QStringLiteral("cmdShowProperties_Click"),
                                                     QStringLiteral("Value = False, "))}));
}

void tst_ctlRun_Operator::magnifyRaisesIncreaseSizeFocusesForwardAndRefreshes() {
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    RunTestHost host(console.get());
    const qint32 pumpsBefore = platform->DoEventsCount();
    TraceTail trace;

    console->cmdMagnify->click();

    QCOMPARE(host.Events(), QStringList({"IncreaseSize"}));
    QCOMPARE(host.SizeSteps(), 1);
    QVERIFY(!console->cmdMagnify->Value());
    QVERIFY(console->cmdForward->hasFocus());
    QCOMPARE(platform->DoEventsCount(), pumpsBefore);
    QCOMPARE(
        trace.StepLines(),
        QStringList({RunLine(QStringLiteral("cmdMagnify_Click"), QStringLiteral("Value = True, ")),
                     RunLine(QStringLiteral("cmdMagnify_Click"), QStringLiteral("Value = False, ")),
                     RunLine(QStringLiteral("JustIncreasedSize")), MirrorLine}));
}

void tst_ctlRun_Operator::makeSmallerRaisesDecreaseSizeAndPumpsBeforeTheRefresh() {
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    RunTestHost host(console.get());
    const qint32 pumpsBefore = platform->DoEventsCount();
    qint32 pumpsAtEvent = -1;
    connect(console.get(), &ctlRun::DecreaseSize, this,
            [&] { pumpsAtEvent = platform->DoEventsCount() - pumpsBefore; });
    TraceTail trace;

    console->cmdMakeSmaller->click();

    QCOMPARE(host.Events(), QStringList({"DecreaseSize"}));
    QCOMPARE(host.SizeSteps(), -1);
    QVERIFY(!console->cmdMakeSmaller->Value());
    QVERIFY(console->cmdForward->hasFocus());
    QCOMPARE(pumpsAtEvent, 0);
    QCOMPARE(platform->DoEventsCount() - pumpsBefore, 1);
    QCOMPARE(
        trace.StepLines(),
        QStringList(
            {RunLine(QStringLiteral("cmdMakeSmaller_Click"), QStringLiteral("Value = True, ")),
             RunLine(QStringLiteral("cmdMakeSmaller_Click"), QStringLiteral("Value = False, ")),
             RunLine(QStringLiteral("JustDecreasedSize")), MirrorLine}));
}

void tst_ctlRun_Operator::ribbonWrittenFalseDoesNothing() {
    QSignalSpy bigger(console.get(), &ctlRun::IncreaseSize);
    QSignalSpy smaller(console.get(), &ctlRun::DecreaseSize);
    QSignalSpy props(console.get(), &ctlRun::ShowPropButtonClicked);
    console->cmdMagnify->setValue(false);
    console->cmdMakeSmaller->setValue(false);
    console->cmdShowProperties->setValue(false);
    QCOMPARE(bigger.count() + smaller.count() + props.count(), 0);
    console->cmdMagnify->setValue(true);
    QCOMPARE(bigger.count(), 1);
    QVERIFY(!console->cmdMagnify->Value());
}

void tst_ctlRun_Operator::keys187And189ActLikeTheSizeButtonsAlsoWithShift() {
    QVERIFY(LoadMorning());
    RunTestHost host(console.get());
    TraceTail trace;

    QTest::keyRelease(console.get(), Qt::Key_Equal);
    QTest::keyRelease(console.get(), Qt::Key_Plus, Qt::ShiftModifier);
    QTest::keyRelease(console.get(), Qt::Key_Minus);
    QTest::keyRelease(console.get(), Qt::Key_Underscore, Qt::ShiftModifier);

    QCOMPARE(host.Events(),
             QStringList({"IncreaseSize", "IncreaseSize", "DecreaseSize", "DecreaseSize"}));
    QCOMPARE(host.SizeSteps(), 0);
    QVERIFY(!console->cmdMagnify->Value());
    QVERIFY(!console->cmdMakeSmaller->Value());
    // The Shift key's own release (16) comes with the keys pressed with it.
    QStringList keys = trace.ConsoleLines().filter(QStringLiteral(":UserControl_KeyUp @"));
    keys.removeIf(
        [](const QString& line) { return line.contains(QStringLiteral("KeyCode = 16,")); });
    QCOMPARE(keys, QStringList({RunLine(QStringLiteral("UserControl_KeyUp"),
                                        QStringLiteral("KeyCode = 187, Shift = 0, ")),
                                RunLine(QStringLiteral("UserControl_KeyUp"),
                                        QStringLiteral("KeyCode = 187, Shift = 1, ")),
                                RunLine(QStringLiteral("UserControl_KeyUp"),
                                        QStringLiteral("KeyCode = 189, Shift = 0, ")),
                                RunLine(QStringLiteral("UserControl_KeyUp"),
                                        QStringLiteral("KeyCode = 189, Shift = 1, "))}));
}

void tst_ctlRun_Operator::keyReleasedOnAChildReachesTheConsole() {
    QVERIFY(LoadMorning());
    QVERIFY(ShowConsole(true));
    console->cmdForward->setFocus();
    QSignalSpy bigger(console.get(), &ctlRun::IncreaseSize);
    QSignalSpy smaller(console.get(), &ctlRun::DecreaseSize);
    QTest::keyRelease(console->cmdForward, Qt::Key_Equal);
    QTest::keyRelease(console->tvwRun, Qt::Key_Minus);
    QCOMPARE(bigger.count(), 1);
    QCOMPARE(smaller.count(), 1);
}

void tst_ctlRun_Operator::otherKeysDoNothing() {
    QVERIFY(LoadMorning());
    RunTestHost host(console.get());
    QTest::keyRelease(console.get(), Qt::Key_A);
    QTest::keyRelease(console.get(), Qt::Key_Plus, Qt::KeypadModifier);
    QTest::keyRelease(console.get(), Qt::Key_Minus, Qt::KeypadModifier);
    QTest::keyRelease(console.get(), Qt::Key_Space);
    QVERIFY(host.Events().isEmpty());
}

void tst_ctlRun_Operator::justIncreasedAndDecreasedSizeOnlyTrace() {
    QVERIFY(LoadMorning());
    const QString type = console->lblSIType->text();
    TraceTail trace;
    console->JustIncreasedSize();
    console->JustDecreasedSize();
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("JustIncreasedSize")),
                                             RunLine(QStringLiteral("JustDecreasedSize"))}));
    QCOMPARE(console->lblSIType->text(), type);
}

// ---------------------------------------------------------------- end of item, unload

void tst_ctlRun_Operator::atEndOfSISetsTheFinishToolTipAndRefreshesTheMirror() {
    QVERIFY(LoadMorning());
    TraceTail trace;
    console->AtEndOfSI();
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    QCOMPARE(console->cmdForward->text(), QStringLiteral("&Forward >>"));
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("AtEndOfSI")), MirrorLine}));
}

void tst_ctlRun_Operator::canUnloadAnsweredNoLeavesTheRunUntouchedAndRaisesNothing() {
    QVERIFY(LoadMorning());
    console->SIPartChanged(2, 2);
    QSignalSpy end(console.get(), &ctlRun::EndRun);
    platform->QueueAnswer(vbNo);

    QVERIFY(!console->CanUnload());

    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Do you want to stop running this item?"));
    QCOMPARE(platform->LastBox().Buttons, vbYesNo);
    QVERIFY(platform->LastBox().Title.isEmpty());
    QCOMPARE(end.count(), 0);
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
}

void tst_ctlRun_Operator::canUnloadAnsweredYesRaisesEndRunOnce() {
    QVERIFY(LoadMorning());
    RunTestHost host(console.get());
    platform->QueueAnswer(vbYes);
    QVERIFY(console->CanUnload());
    QCOMPARE(host.Events(), QStringList({"EndRun"}));
    QVERIFY(host.IsEnded());
}

void tst_ctlRun_Operator::canUnloadDuringAPropRaisesEndRunTwice() {
    QVERIFY(LoadMorning());
    RunTestHost host(console.get());
    console->lvwProps
        ->AddItem(QString(), QStringLiteral("Collect for Purity"), QVariant(),
                  static_cast<int>(TestDatabase::Prayer))
        .setTag(prayer);
    console->lvwProps->setCurrentItem(console->lvwProps->topLevelItem(0));
    emit console->lvwProps->itemDoubleClicked(console->lvwProps->topLevelItem(0), 0);
    QCOMPARE(host.Events(), QStringList({QStringLiteral("ShowSI(%1)").arg(prayer)}));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    host.ClearEvents();
    platform->QueueAnswer(vbYes);

    QVERIFY(console->CanUnload());

    QCOMPARE(host.Events(), QStringList({"EndRun", "EndRun"}));
    QVERIFY(host.IsEnded());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
}

void tst_ctlRun_Operator::propRunEndedRestoresCaptionsAndKeepsThePropType() {
    QVERIFY(LoadMorning());
    console->ShowSIAsRunning(prayer, false);
    const qint32 pumpsBefore = platform->DoEventsCount();
    TraceTail trace;

    console->PropRunEnded();

    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(platform->DoEventsCount() - pumpsBefore, 2);
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("PropRunEnded"))}));
}

// ---------------------------------------------------------------- frame

void tst_ctlRun_Operator::widgetsCarryTheirNamesAndCaptions() {
    const QStringList names = {"SSScroll1",
                               "fraMainCaption",
                               "lblMainCaption",
                               "SSTab1",
                               "fraOverview",
                               "tvwRun",
                               "fraMain",
                               "lblSIType",
                               "lblSIDescription",
                               "lvwSIContent",
                               "fraPropDetails",
                               "lblPropType",
                               "lblPropDescription",
                               "lvwPropSIContent",
                               "MediaPlayer2",
                               "imgMirror",
                               "cmdBack",
                               "cmdForward",
                               "cmdEnd",
                               "cmdRefresh",
                               "cmdMakeSmaller",
                               "cmdMagnify",
                               "cmdShowProperties",
                               "chkProjectorOn",
                               "ssTabExtras",
                               "lvwProps",
                               "ctlServiceItemGallery1"};
    for (const QString& name : names)
        QVERIFY2(console->findChild<QWidget*>(name), qPrintable(name));
    QCOMPARE(console->findChild<QPushButton*>("cmdForward")->text(), QStringLiteral("&Forward >>"));
    QCOMPARE(console->cmdBack->text(), QStringLiteral("<< &Back"));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->cmdRefresh->text(), QStringLiteral("&Refresh"));
    QCOMPARE(console->chkProjectorOn->text(), QStringLiteral("Projector On"));
    QCOMPARE(console->fraOverview->title(), QStringLiteral("Service"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(console->ssTabExtras->count(), 2);
    QCOMPARE(console->ssTabExtras->tabText(0), QStringLiteral("Prop Bag"));
    QCOMPARE(console->ssTabExtras->tabText(1), QStringLiteral("&Other Service Items"));
    QVERIFY(console->cmdMagnify->isCheckable());
    QVERIFY(console->imlVerseChorus->HasKey(QStringLiteral("imgVerse")));
    QVERIFY(console->imlVerseChorus->HasKey(QStringLiteral("imgChorus")));
    QVERIFY(console->imlServiceItems->HasKey(QStringLiteral("imgFolderOpen")));
    QCOMPARE(console->Description(), QStringLiteral("RunControl"));
    QCOMPARE(console->property("Description").toString(), QStringLiteral("RunControl"));
}

void tst_ctlRun_Operator::hollowMembersKeepNoState() {
    QVERIFY(LoadMorning());
    QCOMPARE(console->ServiceSI(), qint16(0));
    console->setRunningServiceItem(song);
    QCOMPARE(console->RunningServiceItem(), 0);
    console->setIsAtEndOfSI(true);
    QVERIFY(!console->IsAtEndOfSI());
    QVERIFY(console->setProperty("IsAtEndOfSI", true));
    QCOMPARE(console->property("IsAtEndOfSI").toBool(), false);
    QCOMPARE(console->property("ServiceSI").toInt(), 0);
    QCOMPARE(console->RunningService(), 0);
}

void tst_ctlRun_Operator::initialiseEmptiesTheTabCaptionAndLeavesTheProjectorRectZero() {
    TraceTail trace;
    ctlRun fresh;
    QCOMPARE(fresh.SSTab1->count(), 1);
    QVERIFY(fresh.SSTab1->tabText(0).isEmpty());
    QCOMPARE(fresh.ProjectorRect(), QRect(0, 0, 0, 0));
    const QStringList lines = trace.ConsoleLines();
    QCOMPARE(lines.value(0), RunLine(QStringLiteral("UserControl_Initialize")));
    QVERIFY(lines.contains(RunLine(QStringLiteral("LoadGeneralTab"))));
    QVERIFY(fresh.lvwSIContent->isHidden());
    QVERIFY(fresh.fraPropDetails->isHidden());
    QVERIFY(fresh.MediaPlayer2->isHidden());
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_Operator::tabClickLoadsTheGeneralTabAgain() {
    TraceTail trace;
    QVERIFY(QMetaObject::invokeMethod(console.get(), "SSTab1_Click", Q_ARG(qint16, 0)));
    QCOMPARE(trace.ConsoleLines(), QStringList({RunLine(QStringLiteral("SSTab1_Click"),
                                                        QStringLiteral("PreviousTab = 0, ")),
                                                RunLine(QStringLiteral("LoadGeneralTab"))}));
}

void tst_ctlRun_Operator::mirrorOfOneMonitorShowsNothing() {
    platform->SetMonitors({QRect(0, 0, 1024, 768)});
    platform->SetDesktop(QPixmap(1024, 768));
    ctlRun single;
    single.RefreshScreenMirror();
    QCOMPARE(single.ProjectorRect(), QRect(0, 0, 0, 0));
    QVERIFY(single.GetOLEScreenSnapshot().isNull());
    QVERIFY(single.imgMirror->pixmap().isNull());
    QVERIFY(platform->Grabs().isEmpty());
}

void tst_ctlRun_Operator::secondMonitorBesideTheFirstIsTheProjector() {
    platform->SetMonitors({QRect(0, 0, 1024, 768), QRect(1024, 0, 1920, 1080)});
    QPixmap desktop(2944, 1080);
    desktop.fill(Qt::darkBlue);
    platform->SetDesktop(desktop);
    ctlRun twoScreens;
    QCOMPARE(twoScreens.ProjectorRect(), QRect(1025, 0, 1920, 1080));

    twoScreens.RefreshScreenMirror();

    QCOMPARE(platform->Grabs(), QList<QRect>({QRect(1025, 0, 1920, 1080)}));
    QCOMPARE(twoScreens.imgMirror->pixmap().size(), QSize(1920, 1080));
}

void tst_ctlRun_Operator::secondMonitorBelowTheTopIsGrabbedFromTheTop() {
    platform->SetMonitors({QRect(0, 0, 1024, 768), QRect(1024, 200, 800, 600)});
    platform->SetDesktop(QPixmap(1824, 800));
    ctlRun twoScreens;
    QCOMPARE(twoScreens.ProjectorRect(), QRect(1025, 0, 800, 600));
    twoScreens.RefreshScreenMirror();
    QCOMPARE(platform->Grabs(), QList<QRect>({QRect(1025, 0, 800, 600)}));
}

void tst_ctlRun_Operator::showingTheConsoleLoadsTheGallery() {
    TraceTail trace;
    QVERIFY(ShowConsole(true));
    QCOMPARE(trace.ConsoleLines().filter(QStringLiteral(":UserControl_Show @")),
             QStringList({RunLine(QStringLiteral("UserControl_Show"))}));
    QTRY_VERIFY(console->ctlServiceItemGallery1->tvwServiceItems->topLevelItemCount() > 0);
    console->hide();
    console->show();
    QCOMPARE(trace.ConsoleLines().filter(QStringLiteral(":UserControl_Show @")).size(), 1);
}

void tst_ctlRun_Operator::resizeWiderThanTheScrollAreaWidensCaptionAndTab() {
    QVERIFY(ShowConsole(true));
    console->resize(Twips::ToPixels(12000), Twips::ToPixels(9000));
    QTRY_COMPARE(console->SSScroll1->geometry(), console->rect());
    QCOMPARE(console->fraMainCaption->width(), console->SSScroll1->width());
    QCOMPARE(console->SSTab1->width(), console->SSScroll1->width());
    // No need to scroll: the tab set reaches the bottom of the client area.
    QCOMPARE(console->SSTab1->y() + console->SSTab1->height(), console->SSScroll1->height());

    console->resize(Twips::ToPixels(8000), Twips::ToPixels(9000));
    QTRY_COMPARE(console->SSScroll1->geometry(), console->rect());
    QCOMPARE(console->SSTab1->width(), Twips::ToPixels(8805));
    // A bar below: 400 less.
    QVERIFY(
        WithinAPixel(TwipsOf(console->SSTab1->height()),
                     TwipsOf(console->SSScroll1->height()) - TwipsOf(console->SSTab1->y()) - 400));
}

void tst_ctlRun_Operator::resizeKeepsTheFramesAndListsAboveTheBottom() {
    QVERIFY(ShowConsole(true));
    console->resize(Twips::ToPixels(12000), Twips::ToPixels(10500));
    QTRY_COMPARE(console->SSScroll1->geometry(), console->rect());
    auto gap = [](QWidget* w, QWidget* container) {
        return TwipsOf(container->height()) - TwipsOf(w->mapTo(container, QPoint(0, 0)).y()) -
               TwipsOf(w->height());
    };
    QVERIFY(WithinAPixel(gap(console->fraOverview, console->SSTab1), 200));
    QVERIFY(WithinAPixel(gap(console->ssTabExtras, console->SSTab1), 200));
    QVERIFY(WithinAPixel(gap(console->tvwRun, console->fraOverview), 100));
    QVERIFY(WithinAPixel(gap(console->lvwProps, console->ssTabExtras), 100));
    QVERIFY(WithinAPixel(gap(console->ctlServiceItemGallery1, console->ssTabExtras), 100));
}

void tst_ctlRun_Operator::resizeBelowTheScrollAreaUsesTheScrollAreaHeight() {
    QVERIFY(ShowConsole(true));
    console->resize(Twips::ToPixels(12000), Twips::ToPixels(4500));
    QTRY_COMPARE(console->SSScroll1->geometry(), console->rect());
    QVERIFY(WithinAPixel(TwipsOf(console->SSTab1->height()),
                         7935 - TwipsOf(console->SSTab1->y()) - 200));
    console->resize(Twips::ToPixels(6000), Twips::ToPixels(4500));
    QTRY_COMPARE(console->SSScroll1->geometry(), console->rect());
    QVERIFY(WithinAPixel(TwipsOf(console->SSTab1->height()),
                         7935 - TwipsOf(console->SSTab1->y()) - 500));
}

QTEST_MAIN(tst_ctlRun_Operator)
#include "tst_ctlRun_Operator.moc"
