// The music of the run console: PlayMusic's four answers, the prompt, music
// items and music links, moved files, and MediaPlayer2 as the operator sees
// it. The sound is ScriptedPlatform's: silent, and every call recorded.
#include "RunConsoleFixture.h"

#include "foundations/ErrorReport.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <functional>

namespace {

// A scripted platform that notes, at each message box, how many sound calls
// had been made, and can run a step of the test while the box is up.
class PromptPlatform : public ScriptedPlatform {
public:
    qint32 MsgBox(const QString& strPrompt, qint32 intButtons, const QString& strTitle) override {
        SoundCallsAtBox << static_cast<qint32>(SoundCalls().size());
        if (WhileBoxIsUp)
            WhileBoxIsUp();
        return ScriptedPlatform::MsgBox(strPrompt, intButtons, strTitle);
    }

    QList<qint32> SoundCallsAtBox;
    std::function<void()> WhileBoxIsUp;
};

const QString MovedPrompt =
    QStringLiteral("The music file associated with this Service Item has been moved from its "
                   "original position and cannot be played");
const QString MovedLine =
    QStringLiteral("ERROR: QVLTCONTROLS:ctlRun:PlayMusic: The music file you want to listen to "
                   "has been moved from its original position");

QString FullErrorBoxText(qint32 lngNumber, const QString& strDescription) {
    return QStringLiteral("Error number is %1, %2, ERL-0, Source=QVLTCONTROLS: ctlRun: "
                          "PlayMusic:  Please send the error details to ")
               .arg(lngNumber)
               .arg(strDescription) +
           ErrorReport::SupportAddress();
}

} // namespace

class tst_ctlRun_Music : public QObject, protected RunConsoleFixture<PromptPlatform> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // PlayMusic.
    void itemThatIsNotThereAnswersTwoWithItsTexts();
    void promptIsShownTitledPromptBeforeTheMusicIsLoaded();
    void emptyOrNullPromptShowsNoBox();
    void musicItemLoadsItsFileShowsThePlayerAndAnswersZero();
    void musicItemWithoutAFileAnswersThreeWithoutABox();
    void musicItemWhoseFileMovedTellsTheUserClearsItsMusicAndAnswersZero();
    void musicItemWhoseFileCannotBeLookedUpAnswersTwo();
    void linkToAFileLoadsItAndAnswersZero();
    void linkToAMovedFileTellsTheUserClearsTheLinkAndAnswersThree();
    void movedLinkIsNotAskedAboutOnTheNextRun();
    void linkNamingAnotherItemPlaysItsFileShowsItsPromptTooAndAnswersOne();
    void linkNamingAnItemThatIsNotThereAnswersOneWithoutText();
    void linksThatLeadInACircleEndWithOneFullErrorBox();
    void lookUpThatFailsShowsTheFullErrorBox();

    // PlayMusic seen through ShowSIAsRunning.
    void movedFileOfAMusicItemGoesOnToTheCaptionsButAMovedLinkLeavesBeforeThem();

    // The player and the option.
    void withAutoPlayMusicFalseThePlayerIsVisibleAndSilent();
    void withAutoPlayMusicTrueTheMusicPlaysAtOnce();
    void shouldAutoPlayMusicReadsTheOptionEachTime();
    void operatorPlaysAndStopsTheMusicOnThePlayersOwnButtons();
    void nextItemOfTheServiceStopsAndHidesThePlayer();
    void propLeavesTheMusicOfTheRunningItemPlaying();
    void propWithMusicOfItsOwnLoadsItIntoThePlayer();

private:
    bool SetField(qint32 lngSIID, const QString& strField, const QVariant& varValue);
    bool SetAutoPlay(bool blnOn);
    QVariant Music(qint32 lngSIID) const;
    // The one box and error line that say a music file has moved, the music
    // of lngSIID cleared, and nothing played.
    bool ToldTheMusicMovedAndClearedIt(const TraceTail& trace, qint32 lngSIID);

    qint32 reading = 0;
    qint32 prelude = 0;
    QString organFile;
    QString preludeFile;
};

void tst_ctlRun_Music::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
    reading = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"));
    prelude = db->AddServiceItem(TestDatabase::Music, QStringLiteral("Prelude"));
    organFile = db->WriteContentFile(QStringLiteral("organ.wav"));
    preludeFile = db->WriteContentFile(QStringLiteral("prelude.mp3"));
    QVERIFY(reading && prelude && !organFile.isEmpty() && !preludeFile.isEmpty());
    QVERIFY(SetField(prelude, QStringLiteral("ServiceItemFilename"), preludeFile));
    QVERIFY(SetAutoPlay(false));
}

void tst_ctlRun_Music::cleanup() {
    StopConsole();
}

bool tst_ctlRun_Music::SetField(qint32 lngSIID, const QString& strField, const QVariant& varValue) {
    return db->Exec(
        QStringLiteral("UPDATE ServiceItems SET %1 = ? WHERE ServiceItemID = ?").arg(strField),
        {varValue, lngSIID});
}

bool tst_ctlRun_Music::SetAutoPlay(bool blnOn) {
    return db->Exec(QStringLiteral("UPDATE Options SET AutoPlayMusic = ?"), {blnOn ? 1 : 0});
}

QVariant tst_ctlRun_Music::Music(qint32 lngSIID) const {
    return db->Scalar(
        QStringLiteral("SELECT ServiceItemMusic FROM ServiceItems WHERE ServiceItemID = ?"),
        {lngSIID});
}

bool tst_ctlRun_Music::ToldTheMusicMovedAndClearedIt(const TraceTail& trace, qint32 lngSIID) {
    return Holds([&] {
        QCOMPARE(platform->BoxCount(), 1);
        QCOMPARE(platform->LastBox().Prompt, MovedPrompt);
        QCOMPARE(platform->LastBox().Buttons, vbOKOnly);
        QCOMPARE(platform->LastBox().Title, QStringLiteral("File not found"));
        QCOMPARE(trace.ConsoleErrorLines(), QStringList({MovedLine}));
        QVERIFY(Music(lngSIID).isNull());
        QVERIFY(platform->SoundCalls().isEmpty());
    });
}

// ---------------------------------------------------------------- PlayMusic

void tst_ctlRun_Music::itemThatIsNotThereAnswersTwoWithItsTexts() {
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(9999, strErrorMessage), qint16(2));

    QCOMPARE(strErrorMessage, QStringLiteral("QVLTCONTROLS:ctlRun:PlayMusic Service item 9999 "
                                             "not found"));
    QCOMPARE(trace.ConsoleErrorLines(),
             QStringList({QStringLiteral(
                 "ERROR: QVLTCONTROLS:ctlRun:PlayMusic: Service item 9999 not found")}));
    QCOMPARE(trace.ConsoleLines().first(),
             RunLine(QStringLiteral("PlayMusic"),
                     QStringLiteral("lngSIID = 9999, strErrorMessage = , ")));
    QVERIFY(platform->SoundCalls().isEmpty());
    QVERIFY(console->MediaPlayer2->isHidden());
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_Music::promptIsShownTitledPromptBeforeTheMusicIsLoaded() {
    QVERIFY(
        SetField(prelude, QStringLiteral("StartMusicPrompt"), QStringLiteral("Cue the organist")));
    platform->QueueAnswer(vbOK);

    QCOMPARE(console->PlayMusic(prelude), qint16(0));

    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Cue the organist"));
    QCOMPARE(platform->LastBox().Buttons, vbInformation);
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Prompt"));
    QCOMPARE(platform->SoundCallsAtBox, QList<qint32>({0}));
    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Load ") + preludeFile}));
}

void tst_ctlRun_Music::emptyOrNullPromptShowsNoBox() {
    QVERIFY(SetField(prelude, QStringLiteral("StartMusicPrompt"), QString(QLatin1String(""))));
    QCOMPARE(console->PlayMusic(prelude), qint16(0));
    QVERIFY(SetField(prelude, QStringLiteral("StartMusicPrompt"), QVariant()));
    QCOMPARE(console->PlayMusic(prelude), qint16(0));
    QCOMPARE(platform->BoxCount(), 0);
    QCOMPARE(platform->SoundCalls().filter(QStringLiteral("Load ")).size(), 2);
}

void tst_ctlRun_Music::musicItemLoadsItsFileShowsThePlayerAndAnswersZero() {
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(prelude, strErrorMessage), qint16(0));

    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(console->MediaPlayer2->FileName(), preludeFile);
    QVERIFY(!console->MediaPlayer2->isHidden());
    QCOMPARE(console->MediaPlayer2->lblFileName->text(), QStringLiteral("prelude.mp3"));
    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Load ") + preludeFile}));
    QVERIFY(trace.ConsoleErrorLines().isEmpty());
    QCOMPARE(
        trace.ConsoleLines(),
        QStringList({RunLine(QStringLiteral("PlayMusic"),
                             QStringLiteral("lngSIID = %1, strErrorMessage = , ").arg(prelude)),
                     RunLine(QStringLiteral("ShouldAutoPlayMusic"))}));
}

void tst_ctlRun_Music::musicItemWithoutAFileAnswersThreeWithoutABox() {
    QVERIFY(SetField(prelude, QStringLiteral("ServiceItemFilename"), QVariant()));
    QVERIFY(SetField(prelude, QStringLiteral("ServiceItemMusic"), organFile));
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(prelude, strErrorMessage), qint16(3));

    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(trace.ConsoleErrorLines(), QStringList({MovedLine}));
    QCOMPARE(platform->BoxCount(), 0);
    QVERIFY(platform->SoundCalls().isEmpty());
    QCOMPARE(Music(prelude).toString(), organFile);
}

void tst_ctlRun_Music::musicItemWhoseFileMovedTellsTheUserClearsItsMusicAndAnswersZero() {
    QVERIFY(QFile::remove(preludeFile));
    QVERIFY(SetField(prelude, QStringLiteral("ServiceItemMusic"), QStringLiteral("old link")));
    platform->QueueAnswer(vbOK);
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(prelude, strErrorMessage), qint16(0));

    QVERIFY(strErrorMessage.isEmpty());
    QVERIFY(ToldTheMusicMovedAndClearedIt(trace, prelude));
    QVERIFY(console->MediaPlayer2->isHidden());
}

// The database goes away while the operator reads the prompt.
void tst_ctlRun_Music::musicItemWhoseFileCannotBeLookedUpAnswersTwo() {
    QVERIFY(SetField(prelude, QStringLiteral("StartMusicPrompt"), QStringLiteral("Organ")));
    platform->QueueAnswer(vbOK);
    platform->WhileBoxIsUp = [this] {
        QVERIFY(db->Exec(QStringLiteral("ALTER TABLE ServiceItems RENAME TO ServiceItemsMoved")));
    };
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(prelude, strErrorMessage), qint16(2));

    QVERIFY(strErrorMessage.startsWith(QStringLiteral("QVLTDBFUNCTIONS:DataAccess:")));
    QCOMPARE(
        trace.ConsoleErrorLines(),
        QStringList({QStringLiteral("ERROR: QVLTCONTROLS:ctlRun:PlayMusic: ") + strErrorMessage}));
    QCOMPARE(platform->BoxCount(), 1);
    QVERIFY(platform->SoundCalls().isEmpty());
}

void tst_ctlRun_Music::linkToAFileLoadsItAndAnswersZero() {
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), organFile));
    QString strErrorMessage;
    QCOMPARE(console->PlayMusic(reading, strErrorMessage), qint16(0));
    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(console->MediaPlayer2->FileName(), organFile);
    QVERIFY(!console->MediaPlayer2->isHidden());
    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Load ") + organFile}));
    QCOMPARE(Music(reading).toString(), organFile);
}

void tst_ctlRun_Music::linkToAMovedFileTellsTheUserClearsTheLinkAndAnswersThree() {
    const QString strGone = db->ContentFolder() + QStringLiteral("/gone.mp3");
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), strGone));
    platform->QueueAnswer(vbOK);
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(reading, strErrorMessage), qint16(3));

    QVERIFY(strErrorMessage.isEmpty());
    QVERIFY(ToldTheMusicMovedAndClearedIt(trace, reading));
}

void tst_ctlRun_Music::movedLinkIsNotAskedAboutOnTheNextRun() {
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"),
                     db->ContentFolder() + QStringLiteral("/gone.mp3")));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{reading}});
    platform->QueueAnswer(vbOK);
    console->setRunningService(service);
    QCOMPARE(platform->BoxCount(), 1);
    TraceTail trace;

    ctlRun nextRun;
    nextRun.setRunningService(service);

    QCOMPARE(platform->BoxCount(), 1);
    QVERIFY(trace.ConsoleLines().filter(QStringLiteral(":PlayMusic @")).isEmpty());
    QCOMPARE(nextRun.lblSIDescription->text(), QStringLiteral("Psalm 23"));
}

void tst_ctlRun_Music::linkNamingAnotherItemPlaysItsFileShowsItsPromptTooAndAnswersOne() {
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), QString::number(prelude)));
    QVERIFY(SetField(reading, QStringLiteral("StartMusicPrompt"), QStringLiteral("Psalm first")));
    QVERIFY(SetField(prelude, QStringLiteral("StartMusicPrompt"), QStringLiteral("Organ next")));
    platform->QueueAnswer(vbOK);
    platform->QueueAnswer(vbOK);
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(reading, strErrorMessage), qint16(1));

    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(platform->BoxCount(), 2);
    QCOMPARE(platform->Boxes().at(0).Prompt, QStringLiteral("Psalm first"));
    QCOMPARE(platform->Boxes().at(1).Prompt, QStringLiteral("Organ next"));
    QCOMPARE(platform->Boxes().at(1).Title, QStringLiteral("Prompt"));
    QCOMPARE(console->MediaPlayer2->FileName(), preludeFile);
    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Load ") + preludeFile}));
    QCOMPARE(
        trace.ConsoleLines().filter(QStringLiteral(":PlayMusic @")),
        QStringList({RunLine(QStringLiteral("PlayMusic"),
                             QStringLiteral("lngSIID = %1, strErrorMessage = , ").arg(reading)),
                     RunLine(QStringLiteral("PlayMusic"),
                             QStringLiteral("lngSIID = %1, strErrorMessage = , ").arg(prelude))}));
}

void tst_ctlRun_Music::linkNamingAnItemThatIsNotThereAnswersOneWithoutText() {
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), QStringLiteral("9999")));
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(reading, strErrorMessage), qint16(1));

    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(trace.ConsoleErrorLines(),
             QStringList({QStringLiteral(
                 "ERROR: QVLTCONTROLS:ctlRun:PlayMusic: Service item 9999 not found")}));
    QCOMPARE(Music(reading).toString(), QStringLiteral("9999"));
    QCOMPARE(platform->BoxCount(), 0);
}

// Two items whose music links name each other would look each other up for
// ever; the look-up that comes back to an item on the way fails instead.
void tst_ctlRun_Music::linksThatLeadInACircleEndWithOneFullErrorBox() {
    const qint32 psalm100 = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 100"));
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), QString::number(psalm100)));
    QVERIFY(SetField(psalm100, QStringLiteral("ServiceItemMusic"), QString::number(reading)));
    platform->QueueAnswer(vbOK);
    TraceTail trace;
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(reading, strErrorMessage), qint16(1));

    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt,
             FullErrorBoxText(28, QStringLiteral("Out of stack space")));
    QCOMPARE(platform->LastBox().Buttons, vbOKOnly);
    QVERIFY(platform->LastBox().Title.isEmpty());
    QCOMPARE(trace.ConsoleLines().filter(QStringLiteral(":PlayMusic @")).size(), 3);
    QVERIFY(platform->SoundCalls().isEmpty());

    // The console is none the worse for it.
    QVERIFY(SetField(psalm100, QStringLiteral("ServiceItemMusic"), organFile));
    QCOMPARE(console->PlayMusic(reading), qint16(1));
    QCOMPARE(console->MediaPlayer2->FileName(), organFile);
}

void tst_ctlRun_Music::lookUpThatFailsShowsTheFullErrorBox() {
    QVERIFY(db->Exec(QStringLiteral("ALTER TABLE ServiceItems RENAME TO ServiceItemsMoved")));
    platform->QueueAnswer(vbOK);
    QString strErrorMessage;

    QCOMPARE(console->PlayMusic(prelude, strErrorMessage), qint16(0));

    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(
        platform->LastBox().Prompt,
        FullErrorBoxText(91, QStringLiteral("Object variable or With block variable not set")));
    QCOMPARE(platform->LastBox().Buttons, vbOKOnly);
    QVERIFY(strErrorMessage.startsWith(QStringLiteral("QVLTDBFUNCTIONS:DataAccess:")));
    QVERIFY(platform->SoundCalls().isEmpty());
}

// ---------------------------------------------------------------- through ShowSIAsRunning

void tst_ctlRun_Music::movedFileOfAMusicItemGoesOnToTheCaptionsButAMovedLinkLeavesBeforeThem() {
    const qint32 collect =
        db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{collect}}));

    // A music item whose file has moved: told, and the prop shows as a prop.
    QVERIFY(QFile::remove(preludeFile));
    platform->QueueAnswer(vbOK);
    console->ShowSIAsRunning(prelude, false);
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    QCOMPARE(console->fraMain->title(),
             QStringLiteral("This service item is NOT part of the active service"));
    console->PropRunEnded();

    // A link whose file has moved: told, and the console leaves before the
    // captions, which stay those of the main run.
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"),
                     db->ContentFolder() + QStringLiteral("/gone.mp3")));
    platform->QueueAnswer(vbOK);
    console->ShowSIAsRunning(reading, false);
    QCOMPARE(platform->BoxCount(), 2);
    QCOMPARE(platform->LastBox().Prompt, MovedPrompt);
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Reading"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Psalm 23"));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QVERIFY(console->fraPropDetails->isHidden());
}

// ---------------------------------------------------------------- player and option

void tst_ctlRun_Music::withAutoPlayMusicFalseThePlayerIsVisibleAndSilent() {
    QCOMPARE(console->PlayMusic(prelude), qint16(0));
    QVERIFY(!console->MediaPlayer2->isHidden());
    QVERIFY(!console->MediaPlayer2->IsPlaying());
    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Load ") + preludeFile}));
    QVERIFY(console->MediaPlayer2->cmdPlay->isEnabled());
    QVERIFY(!console->MediaPlayer2->cmdStop->isEnabled());
}

void tst_ctlRun_Music::withAutoPlayMusicTrueTheMusicPlaysAtOnce() {
    QVERIFY(SetAutoPlay(true));
    QCOMPARE(console->PlayMusic(prelude), qint16(0));
    QVERIFY(!console->MediaPlayer2->isHidden());
    QVERIFY(console->MediaPlayer2->IsPlaying());
    QCOMPARE(platform->SoundCalls(),
             QStringList({QStringLiteral("Load ") + preludeFile, QStringLiteral("Play")}));
    QVERIFY(!console->MediaPlayer2->cmdPlay->isEnabled());
    QVERIFY(console->MediaPlayer2->cmdStop->isEnabled());
}

void tst_ctlRun_Music::shouldAutoPlayMusicReadsTheOptionEachTime() {
    TraceTail trace;
    QVERIFY(!console->ShouldAutoPlayMusic());
    QVERIFY(SetAutoPlay(true));
    QVERIFY(console->ShouldAutoPlayMusic());
    QCOMPARE(trace.ConsoleLines(), QStringList({RunLine(QStringLiteral("ShouldAutoPlayMusic")),
                                                RunLine(QStringLiteral("ShouldAutoPlayMusic"))}));
}

void tst_ctlRun_Music::operatorPlaysAndStopsTheMusicOnThePlayersOwnButtons() {
    console->PlayMusic(prelude);
    platform->ClearRecords();

    console->MediaPlayer2->cmdPlay->click();
    QVERIFY(console->MediaPlayer2->IsPlaying());
    QVERIFY(console->MediaPlayer2->cmdStop->isEnabled());
    console->MediaPlayer2->cmdStop->click();
    QVERIFY(!console->MediaPlayer2->IsPlaying());
    QVERIFY(console->MediaPlayer2->cmdPlay->isEnabled());

    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Play"), QStringLiteral("Stop")}));
}

void tst_ctlRun_Music::nextItemOfTheServiceStopsAndHidesThePlayer() {
    QVERIFY(SetAutoPlay(true));
    const qint32 collect =
        db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prelude}, {collect}}));
    QVERIFY(console->MediaPlayer2->IsPlaying());
    platform->ClearRecords();

    console->ShowServiceSIAsRunning(2, 0, 0);

    QCOMPARE(platform->SoundCalls(), QStringList({QStringLiteral("Stop")}));
    QVERIFY(!console->MediaPlayer2->IsPlaying());
    QVERIFY(console->MediaPlayer2->isHidden());
}

void tst_ctlRun_Music::propLeavesTheMusicOfTheRunningItemPlaying() {
    QVERIFY(SetAutoPlay(true));
    const qint32 collect =
        db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prelude}}));
    platform->ClearRecords();

    console->ShowSIAsRunning(collect, false);

    QVERIFY(platform->SoundCalls().isEmpty());
    QVERIFY(console->MediaPlayer2->IsPlaying());
    QVERIFY(!console->MediaPlayer2->isHidden());
    QCOMPARE(console->MediaPlayer2->FileName(), preludeFile);
}

// The prop's own music replaces what played: loading stops the file before.
void tst_ctlRun_Music::propWithMusicOfItsOwnLoadsItIntoThePlayer() {
    QVERIFY(SetAutoPlay(true));
    QVERIFY(SetField(reading, QStringLiteral("ServiceItemMusic"), organFile));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prelude}}));
    platform->ClearRecords();

    console->ShowSIAsRunning(reading, false);

    QCOMPARE(platform->SoundCalls(),
             QStringList({QStringLiteral("Load ") + organFile, QStringLiteral("Play")}));
    QCOMPARE(console->MediaPlayer2->FileName(), organFile);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
}

QTEST_MAIN(tst_ctlRun_Music)
#include "tst_ctlRun_Music.moc"
