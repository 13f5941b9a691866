// The host's answer to each event of the run console: the engine moves (and
// so the projector), and the console is called back as the protocol says.
#include "OperatorKeys.h"
#include "RunController.h"
#include "RunEngine.h"
#include "RunTestHost.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "TraceLog.h"

#include "foundations/SSRibbon.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/ctlRun.h"

#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {
const QString Finish = QStringLiteral("&Finish this Service Item");
const QString MoveForward = QStringLiteral("Move Forward >>");
} // namespace

class tst_RunController : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutAConsoleEscBlacksOutAndTheHostAsksBeforeTheEnd();

    void runStartTurnsTheProjectorOnAndShowsTheFirstItem();
    void showNextClickedMovesThePartAndCallsSIPartChanged();
    void showNextClickedOnTheLastPartCallsAtEndOfSI();
    void showNextClickedAtTheEndOfAnItemShowsTheNextItem();
    void itemOfOneStepIsAtItsEndAtOnce();
    void showNextClickedPastTheLastItemShowsTheEndSlide();
    void showPreviousClickedStepsBackThroughPartsAndItems();
    void showServiceSIJumpsToTheClickedItem();
    void showServiceSIOfTheRootChangesNothing();
    void showVerseJumpsToTheClickedPart();
    void showSIPutsUpThePropAndForwardStepsItsParts();
    void showPropVerseJumpsWithinTheProp();
    void propWaitsOnItsLastPartUntilItIsEnded();
    void endRunDuringAPropEndsOnlyTheProp();
    void endRunOutsideAPropEndsTheRun();
    void canUnloadDuringAPropEndsThePropAndThenTheRun();
    void clickOnTheServiceDuringAPropGoesBackIntoTheService();
    void turnOffAndOnProjectorBlackOutAndTheBoxFollows();
    void increaseAndDecreaseSizeChangeTheProjectedFont();
    void operatorKeysPressTheConsoleButtons();
    void singleItemRunStepsTheItemAndAGalleryItemTakesItsPlace();
    void pictureWithADisplayTimeGoesOnByItself();
    void pressBeforeThePicturesTimeStopsTheClock();
    void consoleFollowsAsTheTestHostWouldHaveIt();

private:
    void Start();
    // A double click on an item of the console's gallery puts it up as a prop.
    void StartProp(qint32 lngSIID) { emit console->ctlServiceItemGallery1->SIDblClicked(lngSIID); }
    void ClickNode(qint32 intIndex);
    void ClickPart(VBTreeWidget* list, int intRow);
    QString Where() const {
        return QStringLiteral("%1.%2").arg(engine->CurrentItem()).arg(engine->CurrentPart());
    }
    static QList<qint32> BoldRows(const VBTreeWidget* tree) {
        QList<qint32> bold;
        for (qint32 i = 1; i <= tree->Count(); ++i)
            if (tree->Nodes(i).Bold())
                bold << i;
        return bold;
    }
    static QString TraceText() {
        QFile file(TraceLog::Instance().FilePath());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<ctlRun> console;
    std::unique_ptr<RunEngine> engine;
    std::unique_ptr<RunController> controller;
    qint32 song = 0, prayer = 0, hymn = 0, notice = 0, propSong = 0, service = 0;
};

void tst_RunController::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY2(db->IsValid(), qPrintable(db->LastError()));
    platform = std::make_unique<ScriptedPlatform>();
    song = db->AddSong(QStringLiteral("Be Thou My Vision"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")},
                        {QStringLiteral("Chorus"), QStringLiteral("High King of heaven"), true},
                        {QStringLiteral("Verse 2"), QStringLiteral("Be thou my wisdom")}});
    prayer = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"),
                                QStringLiteral("Almighty God"));
    hymn = db->AddSong(QStringLiteral("Abide with Me"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Abide with me")},
                        {QStringLiteral("Verse 2"), QStringLiteral("Swift to its close")}});
    notice = db->AddServiceItem(TestDatabase::Announcement, QStringLiteral("Notices"),
                                QStringLiteral("Tea after the service"));
    propSong =
        db->AddSong(QStringLiteral("Shine, Jesus, Shine"),
                    {{QStringLiteral("Verse 1"), QStringLiteral("Lord, the light")},
                     {QStringLiteral("Chorus"), QStringLiteral("Shine, Jesus, shine"), true}});
    service = db->AddService(QStringLiteral("Morning"),
                             {{song}, {prayer}, TestDatabase::Blank(), {hymn}});
    QVERIFY(service > 0);
    QVERIFY(db->AddServicePropBag(service, {notice, propSong}));
    console = std::make_unique<ctlRun>();
    console->resize(900, 700);
    console->show();
    QVERIFY(QTest::qWaitForWindowExposed(console.get()));
    engine = std::make_unique<RunEngine>();
    controller = std::make_unique<RunController>(*engine, console.get());
}

void tst_RunController::cleanup() {
    controller.reset();
    engine.reset();
    console.reset();
    platform.reset();
    db.reset();
}

// What a run session does: the engine loads, the console is told, the
// controller says what is on.
void tst_RunController::Start() {
    QString err;
    QVERIFY(engine->LoadService(service, err));
    console->setRunningService(service);
    controller->RunStarted();
}

void tst_RunController::ClickNode(qint32 intIndex) {
    QTreeWidgetItem* node = console->tvwRun->Nodes(intIndex).Item();
    QVERIFY(node);
    QTest::mouseClick(console->tvwRun->viewport(), Qt::LeftButton, {},
                      console->tvwRun->visualItemRect(node).center());
}

void tst_RunController::ClickPart(VBTreeWidget* list, int intRow) {
    QTreeWidgetItem* row = list->topLevelItem(intRow - 1);
    QVERIFY(row);
    list->setCurrentItem(row);
    emit list->itemClicked(row, 0);
}

void tst_RunController::runStartTurnsTheProjectorOnAndShowsTheFirstItem() {
    Start();
    QVERIFY(console->chkProjectorOn->isChecked());
    QVERIFY(!engine->IsBlackedOut());
    QCOMPARE(Where(), QStringLiteral("0.0"));
    QCOMPARE(BoldRows(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Be thou my vision"));
    QCOMPARE(console->cmdForward->toolTip(), MoveForward);
}

void tst_RunController::showNextClickedMovesThePartAndCallsSIPartChanged() {
    Start();
    console->cmdForward->click();
    QCOMPARE(Where(), QStringLiteral("0.1"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("High King of heaven"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->lvwSIContent->currentItem(), console->lvwSIContent->topLevelItem(1));
    QCOMPARE(console->cmdForward->toolTip(), MoveForward);
}

void tst_RunController::showNextClickedOnTheLastPartCallsAtEndOfSI() {
    Start();
    console->cmdForward->click();
    console->cmdForward->click();
    QCOMPARE(Where(), QStringLiteral("0.2"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({3}));
    QCOMPARE(console->cmdForward->toolTip(), Finish);
}

void tst_RunController::showNextClickedAtTheEndOfAnItemShowsTheNextItem() {
    Start();
    for (int i = 0; i < 3; ++i)
        console->cmdForward->click();
    QCOMPARE(Where(), QStringLiteral("1.0"));
    QCOMPARE(BoldRows(console->tvwRun), QList<qint32>({3}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    QVERIFY(console->lvwSIContent->isHidden());
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Almighty God"));
}

void tst_RunController::itemOfOneStepIsAtItsEndAtOnce() {
    Start();
    QVERIFY(engine->JumpToItem(0));
    for (int i = 0; i < 3; ++i)
        console->cmdForward->click();
    QCOMPARE(engine->PartCount(), 1);
    QCOMPARE(console->cmdForward->toolTip(), Finish);
    console->cmdForward->click(); // the Blank item
    QCOMPARE(engine->CurrentSlide().kind, Slide::Kind::Blank);
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Blank"));
    QCOMPARE(console->cmdForward->toolTip(), Finish);
}

void tst_RunController::showNextClickedPastTheLastItemShowsTheEndSlide() {
    Start();
    ClickNode(5);
    QCOMPARE(Where(), QStringLiteral("3.0"));
    console->cmdForward->click();
    QCOMPARE(console->cmdForward->toolTip(), Finish);
    console->cmdForward->click();
    QVERIFY(engine->AtEndOfService());
    QCOMPARE(engine->CurrentSlide().kind, Slide::Kind::End);
    QCOMPARE(BoldRows(console->tvwRun), QList<qint32>({5}));
    console->cmdForward->click(); // nothing further
    QVERIFY(engine->AtEndOfService());
    console->cmdBack->click();
    QCOMPARE(Where(), QStringLiteral("3.1"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->cmdForward->toolTip(), Finish);
}

void tst_RunController::showPreviousClickedStepsBackThroughPartsAndItems() {
    Start();
    console->cmdForward->click();
    console->cmdForward->click();
    console->cmdBack->click();
    QCOMPARE(Where(), QStringLiteral("0.1"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->cmdForward->toolTip(), MoveForward);
    ClickNode(3);
    console->cmdBack->click();
    QCOMPARE(Where(), QStringLiteral("0.0"));
    QCOMPARE(BoldRows(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({1}));
    console->cmdBack->click(); // at the very start nothing moves
    QCOMPARE(Where(), QStringLiteral("0.0"));
}

void tst_RunController::showServiceSIJumpsToTheClickedItem() {
    Start();
    ClickNode(5);
    QCOMPARE(Where(), QStringLiteral("3.0"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Abide with me"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Abide with Me"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({1}));
}

void tst_RunController::showServiceSIOfTheRootChangesNothing() {
    Start();
    console->cmdForward->click();
    ClickNode(1);
    QCOMPARE(Where(), QStringLiteral("0.1"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("High King of heaven"));
}

void tst_RunController::showVerseJumpsToTheClickedPart() {
    Start();
    ClickPart(console->lvwSIContent, 3);
    QCOMPARE(Where(), QStringLiteral("0.2"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Be thou my wisdom"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({3}));
    QCOMPARE(console->cmdForward->toolTip(), Finish);
}

void tst_RunController::showSIPutsUpThePropAndForwardStepsItsParts() {
    Start();
    StartProp(propSong);
    QVERIFY(engine->IsPropRunning());
    QCOMPARE(engine->PropServiceItemID(), propSong);
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Lord, the light"));
    QVERIFY(console->fraPropDetails->isVisible());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    console->cmdForward->click();
    QCOMPARE(engine->CurrentPart(), 1);
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Shine, Jesus, shine"));
    QCOMPARE(BoldRows(console->lvwPropSIContent), QList<qint32>({2}));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({1}));
    QCOMPARE(console->cmdForward->toolTip(), Finish);
    QCOMPARE(Where(), QStringLiteral("0.1")); // the service's item keeps its place
}

void tst_RunController::showPropVerseJumpsWithinTheProp() {
    Start();
    StartProp(propSong);
    ClickPart(console->lvwPropSIContent, 2);
    QCOMPARE(engine->CurrentPart(), 1);
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Shine, Jesus, shine"));
    QVERIFY(engine->IsPropRunning());
}

void tst_RunController::propWaitsOnItsLastPartUntilItIsEnded() {
    Start();
    StartProp(notice);
    QCOMPARE(engine->PropServiceItemID(), notice);
    QTRY_COMPARE(console->cmdForward->toolTip(), Finish);
    console->cmdForward->click();
    QVERIFY(engine->IsPropRunning());
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Tea after the service"));
}

void tst_RunController::endRunDuringAPropEndsOnlyTheProp() {
    Start();
    console->cmdForward->click();
    QSignalSpy endRequested(controller.get(), &RunController::RunEndRequested);
    StartProp(notice);
    console->cmdEnd->click();
    QVERIFY(!engine->IsPropRunning());
    QCOMPARE(endRequested.count(), 0);
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(Where(), QStringLiteral("0.1"));
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("High King of heaven"));
    // The labels of the service's item come back.
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({2}));
}

void tst_RunController::endRunOutsideAPropEndsTheRun() {
    Start();
    QSignalSpy endRequested(controller.get(), &RunController::RunEndRequested);
    platform->QueueAnswer(vbYes);
    console->cmdEnd->click();
    QCOMPARE(endRequested.count(), 1);
}

void tst_RunController::canUnloadDuringAPropEndsThePropAndThenTheRun() {
    Start();
    QSignalSpy endRequested(controller.get(), &RunController::RunEndRequested);
    StartProp(notice);
    platform->QueueAnswer(vbYes);
    QVERIFY(controller->ConfirmEnd());
    QVERIFY(!engine->IsPropRunning());
    QCOMPARE(endRequested.count(), 1);
}

void tst_RunController::clickOnTheServiceDuringAPropGoesBackIntoTheService() {
    Start();
    StartProp(propSong);
    ClickNode(5);
    QVERIFY(!engine->IsPropRunning());
    QCOMPARE(Where(), QStringLiteral("3.0"));
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Abide with Me"));
}

void tst_RunController::turnOffAndOnProjectorBlackOutAndTheBoxFollows() {
    Start();
    console->chkProjectorOn->click();
    QVERIFY(engine->IsBlackedOut());
    QVERIFY(!console->chkProjectorOn->isChecked());
    console->chkProjectorOn->click();
    QVERIFY(!engine->IsBlackedOut());
    QVERIFY(console->chkProjectorOn->isChecked());
}

void tst_RunController::increaseAndDecreaseSizeChangeTheProjectedFont() {
    Start();
    const qsizetype before = TraceText().size();
    console->cmdMagnify->setValue(true);
    QCOMPARE(engine->SizeStep(), 1);
    console->cmdMakeSmaller->setValue(true);
    console->cmdMakeSmaller->setValue(true);
    QCOMPARE(engine->SizeStep(), -1);
    const QString lines = TraceText().mid(before);
    QCOMPARE(lines.count(QStringLiteral("ctlRun:JustIncreasedSize @")), 1);
    QCOMPARE(lines.count(QStringLiteral("ctlRun:JustDecreasedSize @")), 2);
}

void tst_RunController::operatorKeysPressTheConsoleButtons() {
    Start();
    QSignalSpy next(console.get(), &ctlRun::ShowNextClicked);
    QSignalSpy endRequested(controller.get(), &RunController::RunEndRequested);
    controller->OperatorAction(OperatorKeys::Action::Forward);
    QCOMPARE(next.count(), 1);
    QCOMPARE(BoldRows(console->lvwSIContent), QList<qint32>({2}));
    controller->OperatorAction(OperatorKeys::Action::Back);
    QCOMPARE(Where(), QStringLiteral("0.0"));
    controller->OperatorAction(OperatorKeys::Action::BlackOut);
    QVERIFY(engine->IsBlackedOut());
    QVERIFY(!console->chkProjectorOn->isChecked());
    controller->OperatorAction(OperatorKeys::Action::BlackOut);
    QVERIFY(!engine->IsBlackedOut());
    controller->OperatorAction(OperatorKeys::Action::End);
    QVERIFY(engine->IsBlackedOut());
    QCOMPARE(endRequested.count(), 0);
    platform->QueueAnswer(vbYes);
    controller->OperatorAction(OperatorKeys::Action::End);
    QCOMPARE(endRequested.count(), 1);
}

void tst_RunController::singleItemRunStepsTheItemAndAGalleryItemTakesItsPlace() {
    QString err;
    QVERIFY(engine->LoadItem(song, err));
    console->ShowSIAsRunning(song, false);
    controller->RunStarted();
    QCOMPARE(console->lblMainCaption->text(),
             QStringLiteral("Running Service item: Be Thou My Vision"));
    console->cmdForward->click();
    console->cmdForward->click();
    QCOMPARE(engine->CurrentPart(), 2);
    QCOMPARE(console->cmdForward->toolTip(), Finish);
    console->cmdForward->click();
    QCOMPARE(engine->CurrentPart(), 2);
    emit console->ctlServiceItemGallery1->SIDblClicked(prayer);
    QVERIFY(!engine->IsPropRunning());
    QCOMPARE(engine->ItemServiceItemID(0), prayer);
    QCOMPARE(engine->CurrentSlide().Words(), QStringLiteral("Almighty God"));
    QTRY_COMPARE(console->cmdForward->toolTip(), Finish);
}

void tst_RunController::pictureWithADisplayTimeGoesOnByItself() {
    const QString file = db->WriteContentFile(QStringLiteral("sunrise.png"));
    const qint32 picture = db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Sunrise"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET SecondsToRun = 5, "
                                    "ServiceItemFilename = ? WHERE ServiceItemID = ?"),
                     {file, picture}));
    service = db->AddService(QStringLiteral("Dawn"), {{picture}, {prayer}});
    Start();
    QCOMPARE(engine->CurrentSlide().kind, Slide::Kind::Picture);
    QVERIFY(controller->tmrAutoAdvance->isActive());
    QCOMPARE(controller->tmrAutoAdvance->interval(), 5000);
    console->chkProjectorOn->click(); // blacking out leaves the clock running
    QVERIFY(controller->tmrAutoAdvance->isActive());
    controller->tmrAutoAdvance_Timer();
    QCOMPARE(Where(), QStringLiteral("1.0"));
    QCOMPARE(BoldRows(console->tvwRun), QList<qint32>({3}));
    QVERIFY(!controller->tmrAutoAdvance->isActive());
}

void tst_RunController::pressBeforeThePicturesTimeStopsTheClock() {
    const qint32 picture = db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Sunrise"));
    QVERIFY(
        db->Exec(QStringLiteral("UPDATE ServiceItems SET SecondsToRun = 5 WHERE ServiceItemID = ?"),
                 {picture}));
    service = db->AddService(QStringLiteral("Dawn"), {{picture}, {prayer}, {song}});
    Start();
    QVERIFY(controller->tmrAutoAdvance->isActive());
    console->cmdForward->click();
    QCOMPARE(Where(), QStringLiteral("1.0"));
    QVERIFY(!controller->tmrAutoAdvance->isActive());
    controller->tmrAutoAdvance_Timer(); // a late tick moves nothing
    QCOMPARE(Where(), QStringLiteral("1.0"));
}

// The same presses on two consoles, one answered by the test host of the
// console's own suites and one by the real controller, leave both consoles
// alike at every step.
void tst_RunController::consoleFollowsAsTheTestHostWouldHaveIt() {
    ctlRun other;
    other.resize(900, 700);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    RunTestHost testHost(&other);
    Start();
    QVERIFY(testHost.LoadService(service));
    auto boldList = [](const QList<qint32>& list) {
        QStringList texts;
        for (qint32 n : list)
            texts << QString::number(n);
        return texts.join(QLatin1Char(','));
    };
    auto compare = [&](const QString& step) {
        const QString mine =
            QStringLiteral("%1|%2|%3")
                .arg(boldList(BoldRows(console->tvwRun)), boldList(BoldRows(console->lvwSIContent)),
                     console->cmdForward->toolTip());
        const QString theirs =
            QStringLiteral("%1|%2|%3")
                .arg(boldList(BoldRows(other.tvwRun)), boldList(BoldRows(other.lvwSIContent)),
                     other.cmdForward->toolTip());
        QVERIFY2(mine == theirs,
                 qPrintable(step + QStringLiteral(": ") + mine + QStringLiteral(" / ") + theirs));
        QCOMPARE(console->lblSIDescription->text(), other.lblSIDescription->text());
    };
    compare(QStringLiteral("start"));
    for (int i = 0; i < 6; ++i) {
        console->cmdForward->click();
        other.cmdForward->click();
        compare(QStringLiteral("forward %1").arg(i + 1));
    }
    for (int i = 0; i < 3; ++i) {
        console->cmdBack->click();
        other.cmdBack->click();
        compare(QStringLiteral("back %1").arg(i + 1));
    }
}

void tst_RunController::withoutAConsoleEscBlacksOutAndTheHostAsksBeforeTheEnd() {
    RunController alone(*engine, nullptr);
    QSignalSpy endRequested(&alone, &RunController::RunEndRequested);
    QString err;
    QVERIFY(engine->LoadService(service, err));
    alone.OperatorAction(OperatorKeys::Action::End);
    QVERIFY(engine->IsBlackedOut());
    QCOMPARE(platform->BoxCount(), 0);
    platform->QueueAnswer(vbNo);
    alone.OperatorAction(OperatorKeys::Action::End);
    QCOMPARE(endRequested.count(), 0);
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Do you want to stop running this item?"));
    QCOMPARE(platform->LastBox().Buttons, vbYesNo | vbQuestion | vbDefaultButton2);
    platform->QueueAnswer(vbYes);
    alone.OperatorAction(OperatorKeys::Action::End);
    QCOMPARE(endRequested.count(), 1);
}

QTEST_MAIN(tst_RunController)
#include "tst_RunController.moc"
