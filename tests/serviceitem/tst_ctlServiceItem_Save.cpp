// The service item editor's checks and save: the uniqueness of a description
// or a source within a type, the run details checks, every changed tab stored
// in one transaction, the update event, the question asked when the user
// leaves, bad input, a store that fails in the middle of a save, and the whole
// road of a new item through every tab.
#include "ServiceItemFixture.h"
#include "TraceFile.h"
#include "foundations/ListManager.h"
#include "foundations/PointList.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTreeWidget>

using namespace ServiceItemFixture;

class tst_ctlServiceItem_Save : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theGeneralTabIsStoredBySave();
    void aSecondItemWithTheSameDescriptionAndTypeIsToldAndSaved();
    void aSecondItemWithTheSameSourceAndNoDescriptionIsRefused();
    void theSameDescriptionUnderAnotherTypeIsNoDuplicate();
    void anEmptyDescriptionAndSourceWithANewTypeIsRefused();
    void anItemWithoutATypeIsRefused();
    void aDescriptionWithAnApostropheIsComparedInItsStoredForm();
    void aDescriptionOfMoreThanSixtyCharactersIsCutAtSixty();
    void onlyRunDetailsChangedRunsNoDuplicateTest();
    void zeroLinesWithTheLinesOptionBringsTheTabForwardAndLeavesTheGeneralPartPending();
    void aZeroDisplayTimeIsRefused();
    void typedContentIsStoredWithTheDescriptionFromItsFirstLine();
    void changedWordsOfABrokenDownSongOfferTheWizardAgain();
    void aYesWhenTheHostAsksRaisesTheUpdateWithZero();
    void aSaveFromTheButtonRaisesTheUpdateWithTheItemsId();
    void aNoWhenTheHostAsksKeepsTheChangesAndStillAnswersTrue();
    void leavingTheControlOffersTheSave();
    void aStoreFailingInTheMiddleOfASaveLeavesNothingHalfSaved();
    void anItemRowThatCannotBeWrittenIsReportedAndNotMarkedSaved();
    void aNewItemTravelsThroughEveryTabAndComesBackWhole();
    void aNewSongIsWrittenBrokenDownFoundAndReadyToRun();

private:
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    Library m_lib;
};

void tst_ctlServiceItem_Save::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ctlServiceItem_Save::cleanup() {
    // A save left pending by a refused check is not carried into the next test.
    DataAccess::Instance().Rollback();
    m_platform.reset();
    m_db.reset();
}

void tst_ctlServiceItem_Save::theGeneralTabIsStoredBySave() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->setText("Prayer for Peace");
    ctl.txtServiceItemSource->setText("Francis");
    ctl.txtLocation->setText("Assisi");
    ctl.txtCopyright->setText("Public domain");
    ctl.txtNotes->setPlainText("Read slowly");
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer for Peace"));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemSource").toString(), QString("Francis"));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemOriginalLocation").toString(),
             QString("Assisi"));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemCopyrightDetails").toString(),
             QString("Public domain"));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemNotes").toString(), QString("Read slowly"));
    QVERIFY(!ctl.GeneralDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!DataAccess::Instance().InTransaction());
}

void tst_ctlServiceItem_Save::aSecondItemWithTheSameDescriptionAndTypeIsToldAndSaved() {
    const qint32 second = m_db->AddServiceItem(TestDatabase::Prayer, "Evening Prayer");
    ctlServiceItem ctl;
    Show(ctl, second);
    ctl.txtDescription->setText("Prayer of St Francis");
    ctl.txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("There is already a different Service Item with this description in your "
                     "Corvantis system. Please enter a different description"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Property"));
    QCOMPARE(Field(*m_db, second, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
    QCOMPARE(Field(*m_db, second, "ServiceItemOriginalLocation").toString(), QString("Chapel"));
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem_Save::aSecondItemWithTheSameSourceAndNoDescriptionIsRefused() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = NULL, "
                       "ServiceItemSource = 'Psalm 23' WHERE ServiceItemID = ?",
                       {m_lib.prayer}));
    const qint32 second = m_db->AddServiceItem(TestDatabase::Prayer, "Evening Prayer");
    ctlServiceItem ctl;
    Show(ctl, second);
    ctl.txtDescription->clear();
    ctl.txtServiceItemSource->setText("Psalm 23");
    ctl.txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("There is already a different Service Item with this source and no "
                     "description in your Corvantis system. Please enter a different source or "
                     "enter a description"));
    DataAccess::Instance().Rollback();
    QCOMPARE(Field(*m_db, second, "ServiceItemDescription").toString(), QString("Evening Prayer"));
    QVERIFY(Field(*m_db, second, "ServiceItemOriginalLocation").isNull());
    QVERIFY(ctl.GeneralDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    QCOMPARE(ctl.txtLocation->text(), QString("Chapel"));
}

void tst_ctlServiceItem_Save::theSameDescriptionUnderAnotherTypeIsNoDuplicate() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Lesson");
    ctlServiceItem ctl;
    Show(ctl, reading);
    ctl.txtDescription->setText("Prayer of St Francis");
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, reading, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
}

void tst_ctlServiceItem_Save::anEmptyDescriptionAndSourceWithANewTypeIsRefused() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->clear();
    ctl.ChooseServiceItemType(2);
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You must enter either a description or a source for this Service Item"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Property"));
    DataAccess::Instance().Rollback();
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemTypeID").toInt(), 1);
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
    QVERIFY(ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem_Save::anItemWithoutATypeIsRefused() {
    const qint32 untyped = m_db->AddServiceItem(TestDatabase::NoType, "Something");
    ctlServiceItem ctl;
    Show(ctl, untyped);
    QCOMPARE(ComboType(ctl), 0);
    ctl.txtLocation->setText("Hall");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You must select a Service item Type for this Service Item"));
    QVERIFY(ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem_Save::aDescriptionWithAnApostropheIsComparedInItsStoredForm() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = 'Saint@@s Prayer' "
                       "WHERE ServiceItemID = ?",
                       {m_lib.prayer}));
    const qint32 second = m_db->AddServiceItem(TestDatabase::Prayer, "Evening Prayer");
    ctlServiceItem ctl;
    Show(ctl, second);
    ctl.txtDescription->setText("Saint's Prayer");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QVERIFY(m_platform->LastBox().Prompt.startsWith("There is already a different Service Item "
                                                    "with this description"));
    // The description shown is decoded.
    Show(ctl, m_lib.prayer);
    QCOMPARE(ctl.txtDescription->text(), QString("Saint's Prayer"));
}

void tst_ctlServiceItem_Save::aDescriptionOfMoreThanSixtyCharactersIsCutAtSixty() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->clear();
    QTest::keyClicks(ctl.txtDescription, QString(61, QLatin1Char('d')));
    QCOMPARE(ctl.txtDescription->text().size(), 60);
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString(60, QLatin1Char('d')));
}

void tst_ctlServiceItem_Save::onlyRunDetailsChangedRunsNoDuplicateTest() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    TraceFile trace;
    ctl.chkHideDetails->click();
    QVERIFY(ctl.RunDetailsDirty());
    QVERIFY(!ctl.GeneralDirty());
    ctl.cmdSave->click();
    QVERIFY(!trace.HasLineContaining("DoChecks"));
    QVERIFY(trace.HasLineContaining("SaveRunDetails"));
    QVERIFY(Field(*m_db, m_lib.prayer, "HideSIDetails").toBool());
    QVERIFY(!ctl.RunDetailsDirty());
}

void tst_ctlServiceItem_Save::
    zeroLinesWithTheLinesOptionBringsTheTabForwardAndLeavesTheGeneralPartPending() {
    // The song's words run as lines, so the lines option is taken.
    ctlServiceItem ctl;
    Show(ctl, m_lib.song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    ctl.optShowSILineByLine->click();
    ctl.txtNumLinesToShowPerTime->setText("0");
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Please enter a valid number of lines to show at a time. This number must "
                     "be greatertha nor equal to 1"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Entry"));
    QCOMPARE(ctl.SSTab1->Tab(), qint16(ctlServiceItem::TabRunDetails));
    QVERIFY(DataAccess::Instance().InTransaction());
    QVERIFY(!ctl.GeneralDirty());
    QVERIFY(ctl.RunDetailsDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    // A correct number then stores both.
    ctl.txtNumLinesToShowPerTime->setText("3");
    ctl.cmdSave->click();
    QVERIFY(!DataAccess::Instance().InTransaction());
    QCOMPARE(Field(*m_db, m_lib.song, "ServiceItemOriginalLocation").toString(), QString("Chapel"));
    QCOMPARE(Field(*m_db, m_lib.song, "TextViewMode").toInt(), 1);
    QCOMPARE(Field(*m_db, m_lib.song, "LinesAtATime").toInt(), 3);
}

void tst_ctlServiceItem_Save::aZeroDisplayTimeIsRefused() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    ctl.optImageDisplayTime->click();
    ctl.txtImageDisplayMinutes->setText("0");
    ctl.txtImageDisplaySeconds->setText("0");
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You cannot display a service item for zero seconds"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Entry"));
}

void tst_ctlServiceItem_Save::typedContentIsStoredWithTheDescriptionFromItsFirstLine() {
    const qint32 item = m_db->AddServiceItem(TestDatabase::Prayer, QString());
    ctlServiceItem ctl;
    Show(ctl, item);
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    QVERIFY(ctl.SSTab2->TabEnabled(1));
    ctl.SSTab2->setTab(1);
    // Pasted words: the description takes their first line.
    ctl.txtContent->setPlainText("Lord of all hopefulness\nLord of all joy");
    QVERIFY(ctl.ContentDirty());
    QVERIFY(ctl.ContentTextChanged());
    QCOMPARE(ctl.txtDescription->text(), QString("Lord of all hopefulness"));
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, item, "ServiceItemContent").toString(),
             QString("Lord of all hopefulness\nLord of all joy"));
    QCOMPARE(Field(*m_db, item, "ServiceItemDescription").toString(),
             QString("Lord of all hopefulness"));
    QVERIFY(!ctl.ContentTextChanged());
}

void tst_ctlServiceItem_Save::changedWordsOfABrokenDownSongOfferTheWizardAgain() {
    const qint32 song = m_db->AddSong("Be Thou My Vision", {{"Verse 1", "Be thou my vision"}});
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemContent = 'Be thou my vision' WHERE "
                       "ServiceItemID = ?",
                       {song}));
    ctlServiceItem ctl;
    Show(ctl, song);
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    ctl.txtContent->setPlainText("Be thou my vision\n\nBe thou my wisdom");
    m_platform->QueueAnswer(vbYes);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown&) { return true; });
    ctl.cmdSave->click();
    QCOMPARE(m_platform->LastBox().Title, QString("Run Song Breakdown Wizard Again"));
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {song}), 2);
    QCOMPARE(ctl.txtContent->toPlainText(), QString("Be thou my vision\n\nBe thou my wisdom"));
}

void tst_ctlServiceItem_Save::aYesWhenTheHostAsksRaisesTheUpdateWithZero() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QSignalSpy updated(&ctl, &ctlServiceItem::SIUpdated);
    ctl.txtDescription->setText("Prayer for Peace");
    m_platform->QueueAnswer(vbYes);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("The contents of this service item has changed, do you want to save the "
                     "changes"));
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.first().first().toInt(), 0);
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer for Peace"));
}

void tst_ctlServiceItem_Save::aSaveFromTheButtonRaisesTheUpdateWithTheItemsId() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QSignalSpy updated(&ctl, &ctlServiceItem::SIUpdated);
    // The first save after a show raises it even for a change of the notes.
    ctl.txtNotes->setPlainText("Slowly");
    ctl.cmdSave->click();
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.first().first().toInt(), m_lib.prayer);
    // A later change of the notes alone does not.
    ctl.txtNotes->setPlainText("Very slowly");
    ctl.cmdSave->click();
    QCOMPARE(updated.count(), 1);
    ctl.txtServiceItemSource->setText("Francis");
    ctl.cmdSave->click();
    QCOMPARE(updated.count(), 2);
}

void tst_ctlServiceItem_Save::aNoWhenTheHostAsksKeepsTheChangesAndStillAnswersTrue() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->setText("Prayer for Peace");
    m_platform->QueueAnswer(vbNo);
    QVERIFY(ctl.CanUnload());
    QVERIFY(ctl.GeneralDirty());
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
    // A refused check does not stop the host either.
    ctl.txtDescription->clear();
    m_platform->QueueAnswer(vbYes);
    m_platform->QueueAnswer(vbOK);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Property"));
}

void tst_ctlServiceItem_Save::leavingTheControlOffersTheSave() {
    QWidget window;
    auto* ctl = new ctlServiceItem(&window);
    auto* other = new QLineEdit(&window);
    other->move(0, 700);
    window.resize(1000, 800);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    Show(*ctl, m_lib.prayer);
    ctl->txtLocation->setFocus();
    QTRY_VERIFY(ctl->txtLocation->hasFocus());
    ctl->txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbYes);
    other->setFocus();
    QTRY_COMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemOriginalLocation").toString(),
             QString("Chapel"));
}

void tst_ctlServiceItem_Save::aStoreFailingInTheMiddleOfASaveLeavesNothingHalfSaved() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->setText("Half stored?");
    QVERIFY(ctl.lmgResources->AddChosenItem("Candle", 0, true));
    // The resources' table goes away: a write after the item's row fails.
    QVERIFY(m_db->Exec("DROP TABLE ServiceItemResources"));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Title, QString("Error"));
    QVERIFY(m_platform->LastBox().Prompt.startsWith(
        "QVLTCONTROLS:ctlServiceItem:SaveChanges : Error number is "));
    QVERIFY(!DataAccess::Instance().InTransaction());
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
    // Nothing typed is lost, and the save can be tried again.
    QCOMPARE(ctl.txtDescription->text(), QString("Half stored?"));
    QVERIFY(ctl.GeneralDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem_Save::anItemRowThatCannotBeWrittenIsReportedAndNotMarkedSaved() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->setText("Never stored");
    QVERIFY(m_db->Exec("CREATE TRIGGER NoWrites BEFORE UPDATE ON ServiceItems BEGIN SELECT "
                       "RAISE(ABORT, 'read only'); END"));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdSave->click();
    QVERIFY(m_platform->LastBox().Prompt.startsWith("QVLTCONTROLS:ctlServiceItem:SaveChanges "));
    QVERIFY(ctl.GeneralDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    DataAccess::Instance().Rollback();
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemDescription").toString(),
             QString("Prayer of St Francis"));
}

void tst_ctlServiceItem_Save::aNewItemTravelsThroughEveryTabAndComesBackWhole() {
    QVERIFY(m_db->AddKeywords(m_lib.notices, {"Peace"}));
    qint32 item = 0;
    QString strError;
    DataAccess::Instance().AddServiceItem(QString(), QString(), QString(), 0, strError, true, item);
    QVERIFY2(item > 0, qPrintable(strError));
    {
        ctlServiceItem ctl;
        Show(ctl, item);
        // General Details
        ctl.ChooseServiceItemType(TestDatabase::Meditation);
        ctl.txtDescription->setText("Stillness");
        ctl.txtServiceItemSource->setText("Psalm 46");
        ctl.txtLocation->setText("Garden");
        ctl.txtCopyright->setText("CCLI 1234");
        ctl.txtNotes->setPlainText("Dim the lights");
        auto* txtNewKeyword = ctl.lmgKeywords->findChild<QLineEdit*>("txtNewItem");
        txtNewKeyword->setText("Peace");
        QTest::keyClick(txtNewKeyword, Qt::Key_Return);
        QVERIFY(ctl.lmgResources->AddChosenItem("Candle", 0, true));
        ctl.cmdSave->click();
        QCOMPARE(m_platform->BoxCount(), 0);
        // Content (shown again: the content tab follows the stored type)
        Show(ctl, item);
        ctl.SSTab1->setTab(ctlServiceItem::TabContent);
        ctl.SSTab2->setTab(1);
        ctl.txtContent->setPlainText("Be still\nand know");
        // Run Mode Details
        ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
        ctl.optShowSILineByLine->click();
        ctl.txtNumLinesToShowPerTime->setText("2");
        ctl.chkHideDetails->click();
        ctl.txtMusicPrompt->setText("Play track 3");
        // Prop Bag
        ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
        ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices);
        ctl.cmdMoveOneRight->click();
        ctl.cmdSave->click();
        QCOMPARE(m_platform->BoxCount(), 0);
        // Points List, stored at once
        ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
        ctl.PointList1->findChild<QPushButton*>("cmdAdd")->click();
        QVERIFY(!ctl.cmdSave->isEnabled());
    }
    QCOMPARE(Field(*m_db, item, "ServiceItemTypeID").toInt(), int(TestDatabase::Meditation));
    QCOMPARE(Field(*m_db, item, "ServiceItemDescription").toString(), QString("Stillness"));
    QCOMPARE(Field(*m_db, item, "ServiceItemSource").toString(), QString("Psalm 46"));
    QCOMPARE(Field(*m_db, item, "ServiceItemOriginalLocation").toString(), QString("Garden"));
    QCOMPARE(Field(*m_db, item, "ServiceItemCopyrightDetails").toString(), QString("CCLI 1234"));
    QCOMPARE(Field(*m_db, item, "ServiceItemNotes").toString(), QString("Dim the lights"));
    QCOMPARE(Field(*m_db, item, "ServiceItemContent").toString(), QString("Be still\nand know"));
    QCOMPARE(Field(*m_db, item, "TextViewMode").toInt(), 1);
    QCOMPARE(Field(*m_db, item, "LinesAtATime").toInt(), 2);
    QVERIFY(Field(*m_db, item, "HideSIDetails").toBool());
    QCOMPARE(Field(*m_db, item, "StartMusicPrompt").toString(), QString("Play track 3"));
    QCOMPARE(m_db->Count("ServiceItemKeywords", "ServiceItemID = ?", {item}), 1);
    QCOMPARE(m_db->Count("ServiceItemResources", "ServiceItemID = ?", {item}), 1);
    QCOMPARE(m_db->Count("ServiceItemPropBag", "ServiceItemID = ? AND PropServiceItemID = ?",
                         {item, m_lib.notices}),
             1);
    QCOMPARE(m_db->Count("ServiceItemPoints", "ServiceItemID = ?", {item}), 1);

    // A new control shows all of it, and a save of one tab keeps the rest.
    ctlServiceItem again;
    Show(again, item);
    QCOMPARE(again.txtDescription->text(), QString("Stillness"));
    QCOMPARE(again.txtServiceItemSource->text(), QString("Psalm 46"));
    QCOMPARE(again.txtLocation->text(), QString("Garden"));
    QCOMPARE(again.txtCopyright->text(), QString("CCLI 1234"));
    QCOMPARE(again.txtNotes->toPlainText(), QString("Dim the lights"));
    QCOMPARE(ComboType(again), int(TestDatabase::Meditation));
    QCOMPARE(again.lmgKeywords->ChosenCount(), 1);
    QCOMPARE(again.lmgKeywords->ChosenItemText(1), QString("Peace"));
    QCOMPARE(again.lmgResources->ChosenItemText(1), QString("Candle"));
    again.SSTab1->setTab(ctlServiceItem::TabContent);
    QCOMPARE(again.txtContent->toPlainText(), QString("Be still\nand know"));
    again.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(again.optShowSILineByLine->isChecked());
    QCOMPARE(again.txtNumLinesToShowPerTime->text(), QString("2"));
    QVERIFY(again.chkHideDetails->isChecked());
    again.SSTab1->setTab(ctlServiceItem::TabPropBag);
    QCOMPARE(again.lvwPropBag->topLevelItemCount(), 1);
    QCOMPARE(again.lvwPropBag->topLevelItem(0)->text(0), QString("Notices"));
    again.SSTab1->setTab(ctlServiceItem::TabPoints);
    QCOMPARE(again.PointList1->Points().Count(), 2);
    again.SSTab1->setTab(ctlServiceItem::TabGeneral);
    again.txtDescription->setText("Stillness and Peace");
    again.cmdSave->click();
    QCOMPARE(Field(*m_db, item, "ServiceItemDescription").toString(),
             QString("Stillness and Peace"));
    QCOMPARE(Field(*m_db, item, "ServiceItemContent").toString(), QString("Be still\nand know"));
    QCOMPARE(m_db->Count("ServiceItemKeywords", "ServiceItemID = ?", {item}), 1);
    QCOMPARE(m_db->Count("ServiceItemResources", "ServiceItemID = ?", {item}), 1);
    QCOMPARE(m_db->Count("ServiceItemPropBag", "ServiceItemID = ?", {item}), 1);
    QCOMPARE(m_db->Count("ServiceItemPoints", "ServiceItemID = ?", {item}), 1);
    QVERIFY(Field(*m_db, item, "HideSIDetails").toBool());
}

void tst_ctlServiceItem_Save::aNewSongIsWrittenBrokenDownFoundAndReadyToRun() {
    qint32 song = 0;
    QString strError;
    DataAccess::Instance().AddServiceItem(QString(), QString(), QString(), TestDatabase::Song,
                                          strError, true, song);
    QVERIFY(song > 0);
    ctlServiceItem ctl;
    Show(ctl, song);
    ctl.txtServiceItemSource->setText("Hymns Old and New 12");
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    ctl.SSTab2->setTab(1);
    ctl.txtContent->setPlainText("Lamb of God\nwho takes away\n\n"
                                 "Chorus\nHave mercy on us\nhave mercy\n\n"
                                 "Lamb of God\nwho bears our sin\n\n"
                                 "Lamb of God\nwho gives us peace");
    QCOMPARE(ctl.txtDescription->text(), QString("Lamb of God"));
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown&) { return true; });
    ctl.cmdRunBreakDownWizard->click();
    const SongBreakdown::Breakdown proposal = m_platform->SongBreakdownOffers().first().Proposal;
    QCOMPARE(proposal.Parts.size(), 4);
    QCOMPARE(proposal.Order.size(), 6); // verse, chorus three times
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {song}), 4);
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ? AND IsChorus = 1", {song}), 1);
    QCOMPARE(m_db->Count("SongSequence", "ServiceItemID = ?", {song}), 6);
    QCOMPARE(Field(*m_db, song, "TextViewMode").toInt(), 3);
    // The quick filter of the gallery finds it.
    ctlServiceItemGallery gallery;
    gallery.ShowServiceItems();
    gallery.SelectServiceItem(song);
    QVERIFY(gallery.SelectedItemKey().endsWith("SI;" + QString::number(song)));
    QCOMPARE(gallery.SelectedItemText(), QString("Lamb of God"));
}

QTEST_MAIN(tst_ctlServiceItem_Save)
#include "tst_ctlServiceItem_Save.moc"
