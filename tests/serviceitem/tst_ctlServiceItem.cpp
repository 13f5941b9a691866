// The service item editor's frame and General Details tab: showing an item,
// the caption, the tabs in use per type, the rule of type changes, keywords
// and resources, and the prop bag.
#include "ServiceItemFixture.h"
#include "foundations/ListManager.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTreeWidget>

using namespace ServiceItemFixture;

class tst_ctlServiceItem : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theFiveTabsStandInOrderWithTheirWidgets();
    void descriptionAnswersTheControlsWord();
    void showingAnItemFillsTheGeneralTabCleanWithSaveDisabled();
    void anItemShownOnAnotherTabKeepsTheGeneralFlagWithSaveDisabled();
    void itemsThatAreNoNumberAreRefusedWithTheirValue();
    void anItemThatDoesNotExistSaysSo();
    void anItemWithoutDescriptionOrContentIsCaptionedByTypeAndSource();
    void anItemWithoutDescriptionIsCaptionedByTheStartOfItsContent();
    void aPointsListShownOnTheContentTabMovesToTheFirstTab();
    void aSongHasNoPropBagAndAPresentationNoPoints();
    void songFieldsShowForSongsAndMusicOnly();
    void choosingTheCurrentTypeAgainEnablesSave();
    void musicCanNeitherBeChosenNorLeft();
    void aSongCannotBecomeAPointsListButMayBecomeAText();
    void aPictureMayOnlyBecomeAnotherPicture();
    void presentationToTextLeavesThePointsTabWithdrawnUntilTheNextShow();
    void textToPointsListWithdrawsRunDetailsAndTheNextShowTheContent();
    void typingInTheGeneralTabRaisesItsFlag();
    void aTextBoxThatGetsTheFocusSelectsItsWholeText();
    void keywordsAndResourcesAreShownDecoded();
    void aNewKeywordWithAnApostropheIsStoredThroughTheMarker();
    void aNewKeywordRefusedWithNoLeavesTheChosenListAsItWas();
    void aKnownKeywordIsAddedWithoutAQuestion();
    void aKeywordOfFiftyOneCharactersIsRefused();
    void anyResourceMayBeAddedAndMarksTheListDirty();
    void thePropBagShowsTheStoredPropsHiddenFromTheGallery();
    void goingBackToThePropBagRefillsItFromTheStore();
    void propBagMovesRaiseTheFlagAndAGroupCannotBeMoved();
    void movingAllPropsBackEmptiesTheBag();
    void propsStayOutOfTheGalleryWhenItsViewIsRebuilt();

private:
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    Library m_lib;
};

void tst_ctlServiceItem::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ctlServiceItem::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ctlServiceItem::theFiveTabsStandInOrderWithTheirWidgets() {
    ctlServiceItem ctl;
    QCOMPARE(ctl.SSTab1->count(), 5);
    QCOMPARE(ctl.SSTab1->tabText(0), QString("General Details"));
    QCOMPARE(ctl.SSTab1->tabText(1), QString("Content"));
    QCOMPARE(ctl.SSTab1->tabText(2), QString(" Run Mode Details"));
    QCOMPARE(ctl.SSTab1->tabText(3), QString("Prop Bag"));
    QCOMPARE(ctl.SSTab1->tabText(4), QString("Points List"));
    QCOMPARE(ctl.SSTab2->tabText(0), QString("Use a file as content"));
    QCOMPARE(ctl.SSTab2->tabText(1), QString("Type in content by hand"));
    for (const char* name : {"SSScroll1",
                             "fraMainCaption",
                             "lblMainCaption",
                             "cmdSave",
                             "fraGeneralProps",
                             "imgcboServiceItemTypes",
                             "Image1",
                             "txtDescription",
                             "txtServiceItemSource",
                             "txtLocation",
                             "txtCopyright",
                             "txtSongKey",
                             "txtMelody",
                             "lblProvider",
                             "lblServiceItemDateAdded",
                             "fraNotes",
                             "txtNotes",
                             "lmgKeywords",
                             "lmgResources",
                             "txtFileContent",
                             "imgContent",
                             "fraListenToMusic",
                             "MediaPlayer1",
                             "fraOpeningFile",
                             "txtFilename",
                             "cmdBrowse",
                             "CommonDialog1",
                             "txtContent",
                             "fraDisplay",
                             "chkShowAsPointsList",
                             "fraAsPointsList",
                             "fraSubPoints",
                             "chkShowSubPointsOneByOne",
                             "fraNotAsPointsList",
                             "optShowEntireSI",
                             "optShowSILineByLine",
                             "txtNumLinesToShowPerTime",
                             "optShowAsMuchAsWillFit",
                             "optVerseByVerse",
                             "optOnePointAtATime",
                             "optAllPointsByRevealing",
                             "optAllPointsAtOnce",
                             "cmdRunBreakDownWizard",
                             "fraChecking",
                             "fraImages",
                             "lvwUsedImages",
                             "imgPreview",
                             "cmdNewImage",
                             "cmdDeleteImages",
                             "txtChangeImageEveryXSeconds",
                             "optShowImagesWhileRunning",
                             "optHideImagesWhileRunning",
                             "fraImageDisplay",
                             "optShowUntilClick",
                             "optImageDisplayTime",
                             "txtImageDisplayMinutes",
                             "txtImageDisplaySeconds",
                             "fraMusic",
                             "txtMusicFile",
                             "cmdBrowseMusicFile",
                             "cmdSelectMusicSI",
                             "txtMusicPrompt",
                             "chkHideDetails",
                             "ctlServiceItemGallery1",
                             "lvwPropBag",
                             "cmdMoveOneRight",
                             "cmdMoveOneLeft",
                             "cmdMoveAllLeft",
                             "lblSelectedItems",
                             "PointList1"})
        QVERIFY2(ctl.findChild<QWidget*>(QString::fromLatin1(name)), name);
    QCOMPARE(ctl.txtDescription->maxLength(), 60);
    QCOMPARE(ctl.lmgKeywords->MaxItemLength(), 50);
    QCOMPARE(ctl.lmgResources->MaxItemLength(), 50);
    QVERIFY(!ctl.ctlServiceItemGallery1->RunSIOnDblClick());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem::descriptionAnswersTheControlsWord() {
    ctlServiceItem ctl;
    ctl.setDescription("Something else");
    QCOMPARE(ctl.Description(), QString("ServiceItemControl"));
    QCOMPARE(ctl.property("Description").toString(), QString("ServiceItemControl"));
}

void tst_ctlServiceItem::showingAnItemFillsTheGeneralTabCleanWithSaveDisabled() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemSource = 'Francis', "
                       "ServiceItemOriginalLocation = 'Assisi', ServiceItemCopyrightDetails = "
                       "'Public domain', ServiceItemProvider = 'Anna', ServiceItemNotes = 'Slowly' "
                       "WHERE ServiceItemID = ?",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    QSignalSpy updated(&ctl, &ctlServiceItem::SIUpdated);
    Show(ctl, m_lib.prayer);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Prayer of St Francis"));
    QCOMPARE(ctl.txtDescription->text(), QString("Prayer of St Francis"));
    QCOMPARE(ctl.txtServiceItemSource->text(), QString("Francis"));
    QCOMPARE(ctl.txtLocation->text(), QString("Assisi"));
    QCOMPARE(ctl.txtCopyright->text(), QString("Public domain"));
    QCOMPARE(ctl.lblProvider->text(), QString("Anna"));
    QCOMPARE(ctl.txtNotes->toPlainText(), QString("Slowly"));
    QVERIFY(!ctl.lblServiceItemDateAdded->text().isEmpty());
    QCOMPARE(ComboType(ctl), 1);
    QCOMPARE(ctl.ServiceItemTypeID(), 1);
    QVERIFY(ctl.GeneralLoaded());
    QVERIFY(!ctl.GeneralDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!ctl.ShowingProperties());
    // Showing passes through the type combo, which asks for the update event.
    QVERIFY(ctl.ServiceItemChangedNotify());
    QCOMPARE(updated.count(), 0);
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlServiceItem::anItemShownOnAnotherTabKeepsTheGeneralFlagWithSaveDisabled() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    Show(ctl, m_lib.notices);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.SSTab1->Tab(), qint16(ctlServiceItem::TabPoints));
    QVERIFY(!ctl.GeneralLoaded());
    QVERIFY(ctl.GeneralDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
    // So the next item shown asks first.
    m_platform->QueueAnswer(vbNo);
    Show(ctl, m_lib.prayer);
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
}

void tst_ctlServiceItem::itemsThatAreNoNumberAreRefusedWithTheirValue() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbOK);
    ctl.setItems("abc");
    ctl.ShowProperties();
    QCOMPARE(m_platform->LastBox().Prompt, QString("Cannot display Service Item: abc"));
    QCOMPARE(m_platform->LastBox().Title, QString("System Error"));
    // The previous item's texts stay, and the control still counts as showing.
    QCOMPARE(ctl.txtDescription->text(), QString("Prayer of St Francis"));
    QVERIFY(ctl.ShowingProperties());
}

void tst_ctlServiceItem::anItemThatDoesNotExistSaysSo() {
    ctlServiceItem ctl;
    m_platform->QueueAnswer(vbOK);
    Show(ctl, 9999);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Service Item: 9999 does not exist"));
    QCOMPARE(m_platform->LastBox().Title, QString("System Error"));
}

void tst_ctlServiceItem::anItemWithoutDescriptionOrContentIsCaptionedByTypeAndSource() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = NULL, "
                       "ServiceItemContent = NULL, ServiceItemSource = 'Psalm 23' WHERE "
                       "ServiceItemID = ?",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Prayer from Psalm 23"));
}

void tst_ctlServiceItem::anItemWithoutDescriptionIsCaptionedByTheStartOfItsContent() {
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = NULL WHERE "
                       "ServiceItemID = ?",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Lord, make me a"));
    // A caption set by the host wins.
    ctl.setDescription("From the host");
    ctl.setItems(QString::number(m_lib.notices));
    m_platform->SetDefaultAnswer(vbNo);
    ctl.ShowProperties();
    QCOMPARE(ctl.lblMainCaption->text(), QString("From the host"));
}

void tst_ctlServiceItem::aPointsListShownOnTheContentTabMovesToTheFirstTab() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    QVERIFY(ctl.ContentLoaded());
    m_platform->SetDefaultAnswer(vbNo);
    Show(ctl, m_lib.points);
    QCOMPARE(ctl.SSTab1->Tab(), qint16(ctlServiceItem::TabGeneral));
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabContent));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabPropBag));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabRunDetails));
}

void tst_ctlServiceItem::aSongHasNoPropBagAndAPresentationNoPoints() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.song);
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabPropBag));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabContent));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
    m_platform->SetDefaultAnswer(vbNo);
    Show(ctl, m_lib.slides);
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabPropBag));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabContent));
    Show(ctl, m_lib.prayer);
    for (qint16 t = 0; t < 5; ++t)
        QVERIFY(ctl.SSTab1->TabEnabled(t));
}

void tst_ctlServiceItem::songFieldsShowForSongsAndMusicOnly() {
    ctlServiceItem ctl;
    ctl.show();
    Show(ctl, m_lib.song);
    QVERIFY(ctl.txtMelody->isVisible());
    QVERIFY(ctl.txtSongKey->isVisible());
    m_platform->SetDefaultAnswer(vbNo);
    Show(ctl, m_lib.prayer);
    QVERIFY(!ctl.txtMelody->isVisible());
    QVERIFY(!ctl.txtSongKey->isVisible());
    Show(ctl, m_lib.music);
    QVERIFY(ctl.txtMelody->isVisible());
}

void tst_ctlServiceItem::choosingTheCurrentTypeAgainEnablesSave() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QVERIFY(!ctl.cmdSave->isEnabled());
    ctl.ChooseServiceItemType(1);
    QVERIFY(ctl.cmdSave->isEnabled());
    QVERIFY(ctl.GeneralDirty());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlServiceItem::musicCanNeitherBeChosenNorLeft() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(10);
    QCOMPARE(m_platform->LastBox().Prompt, QString("You cannot change to this Service Item type"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Type Selected"));
    QCOMPARE(ComboType(ctl), 1);
    QCOMPARE(ctl.ServiceItemTypeID(), 1);
    QVERIFY(!ctl.cmdSave->isEnabled());

    Show(ctl, m_lib.music);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(1);
    QCOMPARE(m_platform->LastBox().Prompt, QString("You cannot change to this Service Item type"));
    QCOMPARE(ComboType(ctl), 10);
    QCOMPARE(ctl.ServiceItemTypeID(), 10);
}

void tst_ctlServiceItem::aSongCannotBecomeAPointsListButMayBecomeAText() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.song);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(11);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You cannot change this Service item to this type"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Type Selected"));
    QCOMPARE(ctl.ServiceItemTypeID(), 17);
    QCOMPARE(ComboType(ctl), 17);
    ctl.ChooseServiceItemType(2);
    QCOMPARE(ctl.ServiceItemTypeID(), 2);
    QCOMPARE(ComboType(ctl), 2);
    QVERIFY(ctl.cmdSave->isEnabled());
    QCOMPARE(m_platform->BoxCount(), 1);
    // And a points list cannot become a song.
    m_platform->QueueAnswer(vbNo);
    Show(ctl, m_lib.points);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(17);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You cannot change this Service item to this type"));
    QCOMPARE(ctl.ServiceItemTypeID(), 11);
}

void tst_ctlServiceItem::aPictureMayOnlyBecomeAnotherPicture() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.picture);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(1);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You cannot change this Service item to this type"));
    QCOMPARE(ctl.ServiceItemTypeID(), 4);
    ctl.ChooseServiceItemType(5);
    QCOMPARE(ctl.ServiceItemTypeID(), 5);
    QVERIFY(!ctl.SSTab2->TabEnabled(1));
    // A text cannot become a picture.
    m_platform->QueueAnswer(vbNo);
    Show(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbOK);
    ctl.ChooseServiceItemType(4);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You cannot change this Service item to this type"));
    QCOMPARE(ctl.ServiceItemTypeID(), 1);
}

void tst_ctlServiceItem::presentationToTextLeavesThePointsTabWithdrawnUntilTheNextShow() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.slides);
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
    ctl.ChooseServiceItemType(1);
    QCOMPARE(ctl.ServiceItemTypeID(), 1);
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
    QVERIFY(ctl.SSTab2->TabEnabled(1));
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.slides, "ServiceItemTypeID").toInt(), 1);
    Show(ctl, m_lib.slides);
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabPoints));
}

void tst_ctlServiceItem::textToPointsListWithdrawsRunDetailsAndTheNextShowTheContent() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    Show(ctl, m_lib.prayer);
    QCOMPARE(ctl.SSTab1->Tab(), qint16(ctlServiceItem::TabRunDetails));
    ctl.ChooseServiceItemType(11);
    QCOMPARE(ctl.SSTab1->Tab(), qint16(ctlServiceItem::TabGeneral));
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabRunDetails));
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabContent));
    QVERIFY(!ctl.RunDetailsLoaded());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemTypeID").toInt(), 11);
    Show(ctl, m_lib.prayer);
    QVERIFY(ctl.SSTab1->TabEnabled(ctlServiceItem::TabRunDetails));
    QVERIFY(!ctl.SSTab1->TabEnabled(ctlServiceItem::TabContent));
}

void tst_ctlServiceItem::typingInTheGeneralTabRaisesItsFlag() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QTest::keyClicks(ctl.txtLocation, "Chapel");
    QVERIFY(ctl.GeneralDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    QVERIFY(!ctl.ContentDirty());
    QVERIFY(!ctl.RunDetailsDirty());
    QVERIFY(!ctl.PropBagDirty());
}

void tst_ctlServiceItem::aTextBoxThatGetsTheFocusSelectsItsWholeText() {
    ctlServiceItem ctl;
    ctl.show();
    ctl.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&ctl));
    Show(ctl, m_lib.prayer);
    ctl.txtDescription->deselect();
    ctl.txtServiceItemSource->setFocus();
    ctl.txtDescription->setFocus();
    QTRY_COMPARE(ctl.txtDescription->selectedText(), QString("Prayer of St Francis"));
}

void tst_ctlServiceItem::keywordsAndResourcesAreShownDecoded() {
    QVERIFY(m_db->AddKeywords(m_lib.prayer, {"Peace", "God@@s love"}));
    QVERIFY(m_db->Exec("INSERT INTO ServiceItemResources (ServiceItemID, ServiceItemResourceName) "
                       "VALUES (?, 'Reader@@s lectern')",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QStringList keywords;
    for (qint32 i = 1; i <= ctl.lmgKeywords->ChosenCount(); ++i)
        keywords << ctl.lmgKeywords->ChosenItemText(i);
    keywords.sort();
    QCOMPARE(keywords, QStringList({"God's love", "Peace"}));
    QCOMPARE(ctl.lmgResources->ChosenCount(), 1);
    QCOMPARE(ctl.lmgResources->ChosenItemText(1), QString("Reader's lectern"));
    QVERIFY(!ctl.GeneralDirty());
    QVERIFY(ctl.lmgKeywords->Tag().isEmpty());
}

void tst_ctlServiceItem::aNewKeywordWithAnApostropheIsStoredThroughTheMarker() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbYes);
    QVERIFY(ctl.lmgKeywords->AddChosenItem("Saint's day", 0, true));
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("This is a new keyword. Do you want to add it to the list of availble "
                     "keywords on your system?"));
    QCOMPARE(m_platform->LastBox().Title, QString("Add New Keyword?"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbQuestion);
    QCOMPARE(m_db->Count("KeyWords", "KeywordText = ?", {"Saint@@s day"}), 1);
    QCOMPARE(m_db->Count("KeyWords", "KeywordText = ?", {"Saint's day"}), 0);
    QCOMPARE(ctl.lmgKeywords->Tag(), QString("Dirty"));
    QVERIFY(ctl.GeneralDirty());
    ctl.cmdSave->click();
    QCOMPARE(m_db->Count("ServiceItemKeywords k JOIN KeyWords w ON w.KeywordID = k.KeywordID",
                         "k.ServiceItemID = ? AND w.KeywordText = 'Saint@@s day'", {m_lib.prayer}),
             1);
    QVERIFY(ctl.lmgKeywords->Tag().isEmpty());
}

void tst_ctlServiceItem::aNewKeywordRefusedWithNoLeavesTheChosenListAsItWas() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    const qint32 lngBefore = m_db->Count("KeyWords");
    m_platform->QueueAnswer(vbNo);
    QVERIFY(!ctl.lmgKeywords->AddChosenItem("Pentecost", 0, true));
    QCOMPARE(ctl.lmgKeywords->ChosenCount(), 0);
    QCOMPARE(m_db->Count("KeyWords"), lngBefore);
    QVERIFY(!ctl.GeneralDirty());
    m_platform->QueueAnswer(vbCancel);
    QVERIFY(!ctl.lmgKeywords->AddChosenItem("Pentecost", 0, true));
    QCOMPARE(ctl.lmgKeywords->ChosenCount(), 0);
}

void tst_ctlServiceItem::aKnownKeywordIsAddedWithoutAQuestion() {
    QVERIFY(m_db->AddKeywords(m_lib.notices, {"Peace"}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    auto* txtNewItem = ctl.lmgKeywords->findChild<QLineEdit*>("txtNewItem");
    QVERIFY(txtNewItem);
    txtNewItem->setText("peace");
    QTest::keyClick(txtNewItem, Qt::Key_Return);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lmgKeywords->ChosenCount(), 1);
    ctl.cmdSave->click();
    QCOMPARE(m_db->Count("ServiceItemKeywords", "ServiceItemID = ?", {m_lib.prayer}), 1);
}

void tst_ctlServiceItem::aKeywordOfFiftyOneCharactersIsRefused() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    auto* txtNewItem = ctl.lmgKeywords->findChild<QLineEdit*>("txtNewItem");
    QVERIFY(txtNewItem);
    m_platform->QueueAnswer(vbOK);
    txtNewItem->setText(QString(51, QLatin1Char('k')));
    QTest::keyClick(txtNewItem, Qt::Key_Return);
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Title, QString("Entry Too Long"));
    QCOMPARE(ctl.lmgKeywords->ChosenCount(), 0);
    QVERIFY(!ctl.GeneralDirty());
}

void tst_ctlServiceItem::anyResourceMayBeAddedAndMarksTheListDirty() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    QVERIFY(ctl.lmgResources->AddChosenItem("Candle", 0, true));
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lmgResources->Tag(), QString("Dirty"));
    QVERIFY(ctl.cmdSave->isEnabled());
    ctl.cmdSave->click();
    QCOMPARE(m_db->Scalar("SELECT ServiceItemResourceName FROM ServiceItemResources WHERE "
                          "ServiceItemID = ?",
                          {m_lib.prayer})
                 .toString(),
             QString("Candle"));
}

void tst_ctlServiceItem::thePropBagShowsTheStoredPropsHiddenFromTheGallery() {
    QVERIFY(m_db->AddServiceItemPropBag(m_lib.prayer, {m_lib.notices, m_lib.creed}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    QCOMPARE(ctl.lvwPropBag->topLevelItemCount(), 2);
    QCOMPARE(ctl.lvwPropBag->topLevelItem(0)->text(0), QString("Notices"));
    QVERIFY(!ctl.PropBagDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!ctl.PropBagLoaded());
    QString strError;
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices, strError);
    QVERIFY(ctl.ctlServiceItemGallery1->SelectedItemKey().isEmpty() ||
            !ctl.ctlServiceItemGallery1->SelectedItemKey().endsWith(
                ";SI;" + QString::number(m_lib.notices)));
}

void tst_ctlServiceItem::goingBackToThePropBagRefillsItFromTheStore() {
    QVERIFY(m_db->AddServiceItemPropBag(m_lib.prayer, {m_lib.notices}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.creed);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    QCOMPARE(ctl.lvwPropBag->topLevelItemCount(), 2);
    QVERIFY(ctl.PropBagDirty());
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    QCOMPARE(ctl.lvwPropBag->topLevelItemCount(), 1);
    QVERIFY(!ctl.PropBagDirty());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlServiceItem::propBagMovesRaiseTheFlagAndAGroupCannotBeMoved() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    QVERIFY(!ctl.cmdMoveOneRight->isEnabled());
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.creed);
    ctl.cmdMoveOneRight->click();
    QVERIFY(ctl.PropBagDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    QVERIFY(ctl.cmdMoveAllLeft->isEnabled());
    QVERIFY(ctl.cmdMoveOneLeft->isEnabled());
    ctl.cmdSave->click();
    QCOMPARE(m_db->Count("ServiceItemPropBag", "ServiceItemID = ?", {m_lib.prayer}), 2);
    QCOMPARE(m_db->Scalar("SELECT PropServiceItemID FROM ServiceItemPropBag WHERE ServiceItemID "
                          "= ? ORDER BY Position LIMIT 1",
                          {m_lib.prayer})
                 .toInt(),
             m_lib.notices);
    QVERIFY(!ctl.PropBagDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ctlServiceItem::movingAllPropsBackEmptiesTheBag() {
    QVERIFY(m_db->AddServiceItemPropBag(m_lib.prayer, {m_lib.notices, m_lib.creed}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    QVERIFY(ctl.cmdMoveAllLeft->isEnabled());
    ctl.cmdMoveAllLeft->click();
    QCOMPARE(ctl.lvwPropBag->topLevelItemCount(), 0);
    QVERIFY(!ctl.cmdMoveAllLeft->isEnabled());
    QVERIFY(ctl.PropBagDirty());
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.creed);
    QVERIFY(ctl.ctlServiceItemGallery1->SelectedItemKey().endsWith("SI;" +
                                                                   QString::number(m_lib.creed)));
    ctl.cmdSave->click();
    QCOMPARE(m_db->Count("ServiceItemPropBag", "ServiceItemID = ?", {m_lib.prayer}), 0);
}

void tst_ctlServiceItem::propsStayOutOfTheGalleryWhenItsViewIsRebuilt() {
    QVERIFY(m_db->AddServiceItemPropBag(m_lib.prayer, {m_lib.notices}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabPropBag);
    auto* txtQuickFilter = ctl.ctlServiceItemGallery1->findChild<QLineEdit*>("txtQuickFilter");
    QVERIFY(txtQuickFilter);
    const QString strNotices = ";SI;" + QString::number(m_lib.notices);
    QSignalSpy filtered(ctl.ctlServiceItemGallery1, &ctlServiceItemGallery::SIListFilterChanged);
    // A filter that leaves the prop out, then one that would show it again.
    QTest::keyClicks(txtQuickFilter, "Creed");
    QTRY_VERIFY(filtered.count() >= 1);
    txtQuickFilter->clear();
    QTRY_VERIFY(filtered.count() >= 2);
    QCOMPARE(m_platform->BoxCount(), 0);
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices);
    QVERIFY(!ctl.ctlServiceItemGallery1->SelectedItemKey().endsWith(strNotices));
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.creed);
    QVERIFY(ctl.ctlServiceItemGallery1->SelectedItemKey().endsWith(";SI;" +
                                                                   QString::number(m_lib.creed)));
}

QTEST_MAIN(tst_ctlServiceItem)
#include "tst_ctlServiceItem.moc"
