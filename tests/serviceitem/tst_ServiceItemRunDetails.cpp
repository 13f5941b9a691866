// How an item runs, on the Run Mode Details tab: the frames each type shows,
// the text modes with the check that a text can run line by line, the display
// time of a picture and the tests of its boxes, and the music that starts
// with the item (a file or a music item).
#include "tst_ServiceItemRunDetails_Fixture.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTextEdit>

using namespace ServiceItemFixture;
using namespace RunDetailsFixture;

class tst_ServiceItemRunDetails : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    // Frames per type
    void aPictureShowsItsMusicWithTheDetailsBoxBelowItAndNoOtherFrame();
    void aTextItemShowsTheDetailsBoxBelowItsPictures();

    // Text modes
    void aSongShowingAScreenfulHidesTheVerseOption();
    void aSongShowingVerseByVerseHidesTheScreenfulOption();
    void aTextOfSentencesCannotRunLineByLineAndRunsWhole();
    void aTextOfLinesRunsLineByLineAndAnEmptyCountBecomesTwo();
    void wordsTypedOnTheContentTabAreTheOnesChecked();
    void theLinesCountIsOpenOnlyWithItsOption();
    void pointsShownAllAtTheStartOfferNoSubPointChoice();

    // Display time
    void sixtyOneSecondsReadOneMinuteAndOneSecond();
    void sixtySecondsReadNoMinutesAndSixtySeconds();
    void noDisplayTimeShowsUntilTheOperatorClicksWithTheBoxesClosed();
    void untilClickClosesTheTimeBoxesAndADisplayTimeOpensThem();
    void lettersInATimeBoxAreRefusedAndTheBoxEmptied();
    void aNegativeTimeIsRefusedAndTheBoxEmptied();
    void aNumberInATimeBoxRaisesTheFlag();
    void aTimeBoxLeftEmptyGetsZero();
    void aTextItemsDisplayTimeIsStoredInSeconds();
    void aDisplayTimeLongerThanTheStoreHoldsIsRefused();

    // Music
    void aMusicFileChosenIsShownByNameAndStoredByPath();
    void cancelInTheMusicDialogKeepsTheMusic();
    void aMusicFileThatDoesNotExistIsRefused();
    void aFileThatIsNoMusicIsRefused();
    void aMusicItemPickedIsShownByDescriptionAndStoredById();
    void cancelInTheMusicPickerClearsTheMusic();
    void storedMusicIsShownByItsItemsDescriptionOrItsFilesName();
    void aPictureShowsItsOwnMusicNotThatOfTheItemBefore();
    void anItemWithoutMusicShowsNoneButKeepsTheValueOfTheItemBefore();

private:
    QString WriteFile(const QString& strName, const QByteArray& bytes = "RIFF") {
        const QString strPath = m_files.filePath(strName);
        QDir().mkpath(QFileInfo(strPath).absolutePath());
        QFile file(strPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return QString();
        return strPath;
    }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    QTemporaryDir m_files;
    Library m_lib;
};

void tst_ServiceItemRunDetails::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY(m_lib.Seed(*m_db));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ServiceItemRunDetails::cleanup() {
    m_platform.reset();
    m_db.reset();
}

// ---------------------------------------------------------------- Frames per type

void tst_ServiceItemRunDetails::aPictureShowsItsMusicWithTheDetailsBoxBelowItAndNoOtherFrame() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.picture);
    QVERIFY(ctl.fraDisplay->isHidden());
    QVERIFY(ctl.fraImages->isHidden());
    QVERIFY(ctl.fraImageDisplay->isHidden());
    QVERIFY(!ctl.fraMusic->isHidden());
    QVERIFY(ctl.optHideImagesWhileRunning->isHidden());
    QVERIFY(ctl.optShowImagesWhileRunning->isHidden());
    auto* layout = qobject_cast<QBoxLayout*>(ctl.chkHideDetails->parentWidget()->layout());
    QVERIFY(layout);
    QCOMPARE(layout->indexOf(ctl.chkHideDetails), layout->indexOf(ctl.fraMusic) + 1);
}

void tst_ServiceItemRunDetails::aTextItemShowsTheDetailsBoxBelowItsPictures() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.picture);
    m_platform->SetDefaultAnswer(vbNo);
    OpenRunDetails(ctl, m_lib.prayer);
    QVERIFY(!ctl.fraDisplay->isHidden());
    QVERIFY(!ctl.fraImages->isHidden());
    QVERIFY(!ctl.fraImageDisplay->isHidden());
    QVERIFY(!ctl.fraMusic->isHidden());
    QVERIFY(ctl.optHideImagesWhileRunning->isChecked());
    auto* layout = qobject_cast<QBoxLayout*>(ctl.chkHideDetails->parentWidget()->layout());
    QCOMPARE(layout->indexOf(ctl.chkHideDetails), layout->indexOf(ctl.fraImages) + 1);
}

// ---------------------------------------------------------------- Text modes

void tst_ServiceItemRunDetails::aSongShowingAScreenfulHidesTheVerseOption() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET TextViewMode = 2 WHERE ServiceItemID = ?",
                       {m_lib.song}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.song);
    QVERIFY(ctl.optShowAsMuchAsWillFit->isChecked());
    QVERIFY(ctl.optVerseByVerse->isHidden());
    QVERIFY(!ctl.optShowAsMuchAsWillFit->isHidden());
}

void tst_ServiceItemRunDetails::aSongShowingVerseByVerseHidesTheScreenfulOption() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET TextViewMode = 3 WHERE ServiceItemID = ?",
                       {m_lib.song}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.song);
    QVERIFY(ctl.optVerseByVerse->isChecked());
    QVERIFY(!ctl.optVerseByVerse->isHidden());
    QVERIFY(ctl.optShowAsMuchAsWillFit->isHidden());
}

void tst_ServiceItemRunDetails::aTextOfSentencesCannotRunLineByLineAndRunsWhole() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemContent = ? WHERE ServiceItemID = ?",
                       {"Lord, make me an instrument of your peace. Where there is hatred, let "
                        "me sow love; where there is injury, pardon; where there is doubt, faith.",
                        m_lib.prayer}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    bool blnCheckingShown = false;
    m_platform->SetDoEventsHook(
        [&] { blnCheckingShown = blnCheckingShown || !ctl.fraChecking->isHidden(); });
    m_platform->QueueAnswer(vbOK);
    ctl.optShowSILineByLine->click();
    QVERIFY(blnCheckingShown);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("The text of this service item cannot be broken into lines. It is made "
                     "\r\nup of sentences and paragraphs. Please select a different option"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Option"));
    QVERIFY(ctl.optShowEntireSI->isChecked());
    QVERIFY(ctl.fraChecking->isHidden());
    QVERIFY(!ctl.txtNumLinesToShowPerTime->isEnabled());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.prayer, "TextViewMode").toInt(), 0);
}

void tst_ServiceItemRunDetails::aTextOfLinesRunsLineByLineAndAnEmptyCountBecomesTwo() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.song);
    ctl.txtNumLinesToShowPerTime->clear();
    ctl.optShowSILineByLine->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.optShowSILineByLine->isChecked());
    QCOMPARE(ctl.txtNumLinesToShowPerTime->text(), QString("2"));
    QVERIFY(ctl.txtNumLinesToShowPerTime->isEnabled());
    QVERIFY(ctl.fraChecking->isHidden());
    QVERIFY(ctl.RunDetailsDirty());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.song, "TextViewMode").toInt(), 1);
    QCOMPARE(Field(*m_db, m_lib.song, "LinesAtATime").toInt(), 2);
}

void tst_ServiceItemRunDetails::wordsTypedOnTheContentTabAreTheOnesChecked() {
    const qint32 litany = m_db->AddServiceItem(TestDatabase::Prayer, "Litany");
    ctlServiceItem ctl;
    Show(ctl, litany);
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    ctl.SSTab2->setTab(1);
    ctl.txtContent->setPlainText("Lord, have mercy\nChrist, have mercy\nLord, have mercy");
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    ctl.optShowSILineByLine->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.optShowSILineByLine->isChecked());
}

void tst_ServiceItemRunDetails::theLinesCountIsOpenOnlyWithItsOption() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.song);
    QVERIFY(ctl.optShowEntireSI->isChecked());
    QVERIFY(!ctl.txtNumLinesToShowPerTime->isEnabled());
    ctl.optShowSILineByLine->click();
    QVERIFY(ctl.txtNumLinesToShowPerTime->isEnabled());
    ctl.optShowEntireSI->click();
    QVERIFY(!ctl.txtNumLinesToShowPerTime->isEnabled());
}

void tst_ServiceItemRunDetails::pointsShownAllAtTheStartOfferNoSubPointChoice() {
    QVERIFY(m_db->AddPoints(m_lib.points, {{"P1", "", "Grace given", ""}}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET TextViewMode = 6 WHERE ServiceItemID = ?",
                       {m_lib.points}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.points);
    QVERIFY(ctl.optAllPointsAtOnce->isChecked());
    QVERIFY(ctl.fraSubPoints->isHidden());
    ctl.optOnePointAtATime->click();
    QVERIFY(!ctl.fraSubPoints->isHidden());
    ctl.optAllPointsByRevealing->click();
    QVERIFY(!ctl.fraSubPoints->isHidden());
    ctl.optAllPointsAtOnce->click();
    QVERIFY(ctl.fraSubPoints->isHidden());
}

// ---------------------------------------------------------------- Display time

void tst_ServiceItemRunDetails::sixtyOneSecondsReadOneMinuteAndOneSecond() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET SecondsToRun = 61 WHERE ServiceItemID = ?",
                       {m_lib.picture}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.picture);
    QVERIFY(ctl.optImageDisplayTime->isChecked());
    QCOMPARE(ctl.txtImageDisplayMinutes->text(), QString("1"));
    QCOMPARE(ctl.txtImageDisplaySeconds->text(), QString("1"));
}

void tst_ServiceItemRunDetails::sixtySecondsReadNoMinutesAndSixtySeconds() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET SecondsToRun = 60 WHERE ServiceItemID = ?",
                       {m_lib.picture}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.picture);
    QVERIFY(ctl.optImageDisplayTime->isChecked());
    QCOMPARE(ctl.txtImageDisplayMinutes->text(), QString("0"));
    QCOMPARE(ctl.txtImageDisplaySeconds->text(), QString("60"));
    QVERIFY(ctl.txtImageDisplaySeconds->isEnabled());
}

void tst_ServiceItemRunDetails::noDisplayTimeShowsUntilTheOperatorClicksWithTheBoxesClosed() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.picture);
    QVERIFY(ctl.optShowUntilClick->isChecked());
    QCOMPARE(ctl.txtImageDisplayMinutes->text(), QString("0"));
    QCOMPARE(ctl.txtImageDisplaySeconds->text(), QString("0"));
    QVERIFY(!ctl.txtImageDisplayMinutes->isEnabled());
    QVERIFY(!ctl.txtImageDisplaySeconds->isEnabled());
}

void tst_ServiceItemRunDetails::untilClickClosesTheTimeBoxesAndADisplayTimeOpensThem() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optShowUntilClick->click();
    QVERIFY(!ctl.txtImageDisplayMinutes->isEnabled());
    QVERIFY(!ctl.txtImageDisplaySeconds->isEnabled());
    ctl.optImageDisplayTime->click();
    QVERIFY(ctl.txtImageDisplayMinutes->isEnabled());
    QVERIFY(ctl.txtImageDisplaySeconds->isEnabled());
}

void tst_ServiceItemRunDetails::lettersInATimeBoxAreRefusedAndTheBoxEmptied() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optImageDisplayTime->click();
    m_platform->QueueAnswer(vbOK);
    QTest::keyClicks(ctl.txtImageDisplayMinutes, "x");
    QCOMPARE(m_platform->LastBox().Prompt, QString("Please enter a number of minutes in this box"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Data Entry"));
    QVERIFY(ctl.txtImageDisplayMinutes->text().isEmpty());
    m_platform->QueueAnswer(vbOK);
    QTest::keyClicks(ctl.txtImageDisplaySeconds, "a");
    QCOMPARE(m_platform->LastBox().Prompt, QString("Please enter a number of seconds in this box"));
    QVERIFY(ctl.txtImageDisplaySeconds->text().isEmpty());
}

void tst_ServiceItemRunDetails::aNegativeTimeIsRefusedAndTheBoxEmptied() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optImageDisplayTime->click();
    for (QLineEdit* box : {ctl.txtImageDisplayMinutes, ctl.txtImageDisplaySeconds}) {
        m_platform->QueueAnswer(vbOK);
        box->setText("-3");
        emit box->textEdited(box->text());
        QVERIFY(box->text().isEmpty());
    }
    QCOMPARE(m_platform->Boxes().at(0).Prompt,
             QString("Please enter a number of minutes greater than zero in this box"));
    QCOMPARE(m_platform->Boxes().at(1).Prompt,
             QString("Please enter a number of seconds greater than zero in this box"));
    QCOMPARE(m_platform->Boxes().at(1).Title, QString("Invalid Data Entry"));
}

void tst_ServiceItemRunDetails::aNumberInATimeBoxRaisesTheFlag() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    QVERIFY(!ctl.cmdSave->isEnabled());
    QTest::keyClicks(ctl.txtImageDisplaySeconds, "5");
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.RunDetailsDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
}

void tst_ServiceItemRunDetails::aTimeBoxLeftEmptyGetsZero() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.txtImageDisplayMinutes->clear();
    emit ctl.txtImageDisplayMinutes->editingFinished();
    QCOMPARE(ctl.txtImageDisplayMinutes->text(), QString("0"));
}

void tst_ServiceItemRunDetails::aTextItemsDisplayTimeIsStoredInSeconds() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optImageDisplayTime->click();
    ctl.txtImageDisplayMinutes->setText("2");
    ctl.txtImageDisplaySeconds->setText("5");
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, m_lib.prayer, "SecondsToRun").toInt(), 125);
}

void tst_ServiceItemRunDetails::aDisplayTimeLongerThanTheStoreHoldsIsRefused() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optImageDisplayTime->click();
    ctl.txtImageDisplayMinutes->setText("600");
    ctl.txtImageDisplaySeconds->setText("0");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("A service item can be displayed for at most 546 minutes"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Entry"));
    QVERIFY(ctl.RunDetailsDirty());
    QCOMPARE(Field(*m_db, m_lib.prayer, "SecondsToRun").toInt(), 0);
    // A shorter time is then stored.
    ctl.txtImageDisplayMinutes->setText("6");
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.prayer, "SecondsToRun").toInt(), 360);
}

// ---------------------------------------------------------------- Music

void tst_ServiceItemRunDetails::aMusicFileChosenIsShownByNameAndStoredByPath() {
    const QString strMusic = WriteFile(QString::fromUtf8("Chœur d'été/prélude en do.mp3"));
    QVERIFY(!strMusic.isEmpty());
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strMusic);
    ctl.cmdBrowseMusicFile->click();
    const ScriptedPlatform::Dialog dialog = m_platform->Dialogs().last();
    QCOMPARE(dialog.Filter, QString("Files (*.mp3;*.wav;*.mid)|*.mp3;*.wav;*.mid"));
    QCOMPARE(dialog.Title, QString("Select a music file"));
    QVERIFY(dialog.CancelError);
    QCOMPARE(ctl.txtMusicFile->text(), QString::fromUtf8("prélude en do.mp3"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), strMusic);
    QVERIFY(ctl.RunDetailsDirty());
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemMusic").toString(), strMusic);
}

void tst_ServiceItemRunDetails::cancelInTheMusicDialogKeepsTheMusic() {
    const QString strMusic = WriteFile("hymn.wav");
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {strMusic, m_lib.prayer}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(QString());
    ctl.cmdBrowseMusicFile->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.txtMusicFile->text(), QString("hymn.wav"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), strMusic);
    QVERIFY(!ctl.RunDetailsDirty());
}

void tst_ServiceItemRunDetails::aMusicFileThatDoesNotExistIsRefused() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(m_files.filePath("gone.mp3"));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdBrowseMusicFile->click();
    QCOMPARE(m_platform->LastBox().Title, QString("File not found"));
    QVERIFY(m_platform->LastBox().Prompt.contains("gone.mp3"));
    QVERIFY(ctl.txtMusicFile->text().isEmpty());
    QVERIFY(!ctl.RunDetailsDirty());
}

void tst_ServiceItemRunDetails::aFileThatIsNoMusicIsRefused() {
    const QString strText = WriteFile("order of service.txt", "Hymn 1");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strText);
    m_platform->QueueAnswer(vbOK);
    ctl.cmdBrowseMusicFile->click();
    QCOMPARE(m_platform->LastBox().Title, QString("Not a music file"));
    QVERIFY(ctl.txtMusicFile->text().isEmpty());
    QVERIFY(!ctl.RunDetailsDirty());
    QVERIFY(Field(*m_db, m_lib.prayer, "ServiceItemMusic").toString().isEmpty());
}

void tst_ServiceItemRunDetails::aMusicItemPickedIsShownByDescriptionAndStoredById() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueServiceItemChoice(m_lib.music);
    ctl.cmdSelectMusicSI->click();
    QCOMPARE(m_platform->ServiceItemOffers().size(), 1);
    QCOMPARE(m_platform->ServiceItemOffers().first().Choices.size(), 1);
    QCOMPARE(m_platform->ServiceItemOffers().first().Choices.first().ServiceItemID, m_lib.music);
    QCOMPARE(ctl.txtMusicFile->text(), QString("Prelude in C"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), QString::number(m_lib.music));
    QVERIFY(ctl.RunDetailsDirty());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemMusic").toString(),
             QString::number(m_lib.music));
}

void tst_ServiceItemRunDetails::cancelInTheMusicPickerClearsTheMusic() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {QString::number(m_lib.music), m_lib.prayer}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    QCOMPARE(ctl.txtMusicFile->text(), QString("Prelude in C"));
    m_platform->QueueServiceItemChoice(0);
    ctl.cmdSelectMusicSI->click();
    QVERIFY(ctl.txtMusicFile->text().isEmpty());
    QVERIFY(ctl.txtMusicFile->property("Tag").toString().isEmpty());
    ctl.cmdSave->click();
    QVERIFY(Field(*m_db, m_lib.prayer, "ServiceItemMusic").toString().isEmpty());
}

void tst_ServiceItemRunDetails::storedMusicIsShownByItsItemsDescriptionOrItsFilesName() {
    const QString strMusic = WriteFile("Postlude/toccata.mid");
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {strMusic, m_lib.notices}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {QString::number(m_lib.music), m_lib.creed}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.notices);
    QCOMPARE(ctl.txtMusicFile->text(), QString("toccata.mid"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), strMusic);
    OpenRunDetails(ctl, m_lib.creed);
    QCOMPARE(ctl.txtMusicFile->text(), QString("Prelude in C"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), QString::number(m_lib.music));
}

void tst_ServiceItemRunDetails::aPictureShowsItsOwnMusicNotThatOfTheItemBefore() {
    const QString strMusic = WriteFile("birdsong.wav");
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {strMusic, m_lib.picture}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {QString::number(m_lib.music), m_lib.creed}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.creed);
    OpenRunDetails(ctl, m_lib.picture);
    QCOMPARE(ctl.txtMusicFile->text(), QString("birdsong.wav"));
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), strMusic);
}

// Kept as the control always worked: the box is emptied, but what it would
// store is still the music of the item shown before.
void tst_ServiceItemRunDetails::anItemWithoutMusicShowsNoneButKeepsTheValueOfTheItemBefore() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                       {QString::number(m_lib.music), m_lib.creed}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.creed);
    OpenRunDetails(ctl, m_lib.notices);
    QVERIFY(ctl.txtMusicFile->text().isEmpty());
    QCOMPARE(ctl.txtMusicFile->property("Tag").toString(), QString::number(m_lib.music));
}

QTEST_MAIN(tst_ServiceItemRunDetails)
#include "tst_ServiceItemRunDetails.moc"
