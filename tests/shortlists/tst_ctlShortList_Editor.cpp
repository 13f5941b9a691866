// The short-list editor: the two trees and the moves between them, the counts
// and buttons, loading a saved list, its checks and its save through the
// editor cycle.
#include "ScriptedPlatform.h"
#include "ShortListFixture.h"
#include "TraceFile.h"
#include "foundations/EditorCycle.h"
#include "foundations/VBRuntime.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace ShortListFixture;

class tst_ctlShortList_Editor : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theAvailableTreeHoldsEveryItemUnderItsType();
    void nodeTextsFallBackToContentThenTypeAndSource();
    void theBlankNeverStandsInEitherTree();
    void movingTheLastItemOfATypeTakesTheTypeNodeAlong();
    void movingTheLastItemOfAllEmptiesTheSourceTree();
    void theRootWithTheOneItemButtonMovesEverything();
    void aTypeMovesAllItsItemsAndGoesWithTheLast();
    void doubleClickMovesAnItemButNotAGroup();
    void theMoveButtonsFollowTheTrees();
    void countsStandBesideTheTrees();
    void twentyItemsStandOpenAndTwentyOneClosed();
    void applyingCriteriaLeavesTheShortListsItemsOffTheLeft();

    void showPropertiesLoadsTheListClean();
    void showPropertiesRefusesItemsThatAreNoNumber();
    void showPropertiesOfAMissingListSaysSo();
    void aDeletedItemIsDroppedAndGoneAfterTheNextSave();
    void newCriteriaEmptiesTheShortListAndKeepsTheFlag();

    void typingRaisesTheFlagAndEnablesApply();
    void aMoveRaisesTheFlagAndEnablesApply();
    void applyStoresTheSelectionInTreeOrder();
    void aDescriptionIsRequiredAtSave();
    void aNewListsDescriptionMustBeUnique();
    void canUnloadReturnsTrueAlsoWhenTheUserAnswersNo();
    void canUnloadSavesOnYes();
    void leavingTheControlOffersTheSave();
    void noUpdateEventFollowsASave();
    void theHostsSlotFindsTheEditorsQuestion();

private:
    qint32 AddList(const QString& description, const QStringList& keys);
    std::unique_ptr<TestDatabase> m_db;
    Library m_library;
};

void tst_ctlShortList_Editor::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_library = Library();
    QVERIFY2(m_library.Seed(*m_db), qPrintable(m_db->LastError()));
}

void tst_ctlShortList_Editor::cleanup() {
    m_db.reset();
}

qint32 tst_ctlShortList_Editor::AddList(const QString& description, const QStringList& keys) {
    QList<qint32> ids;
    for (const QString& key : keys)
        ids << m_library.ids.value(key, key.toInt());
    return m_db->AddShortList(description, ids, "Anna");
}

namespace {
QString ItemKey(qint32 typeId, qint32 id) {
    return QString("Type;%1;;SI;%2").arg(typeId).arg(id);
}
void Select(VBTreeWidget* tree, const QString& key) {
    tree->setSelectedItem(tree->Nodes(key));
}
QStringList Keys(VBTreeWidget* tree) {
    QStringList keys;
    for (qint32 i = 1; i <= tree->Count(); ++i)
        keys << tree->Nodes(i).Key();
    keys.sort();
    return keys;
}
} // namespace

void tst_ctlShortList_Editor::theAvailableTreeHoldsEveryItemUnderItsType() {
    ctlShortList ctl;
    VBTreeWidget* tvw = ctl.tvwAvailable;
    const VBNode root = tvw->Nodes(QStringLiteral("Root"));
    QCOMPARE(root.Text(), QString("Service Items"));
    QCOMPARE(root.Image().toString(), QString("imgFolderOpen"));
    const VBNode hymns = tvw->Nodes(QStringLiteral("Type;17"));
    QCOMPARE(hymns.Text(), QString("Hymn"));
    QCOMPARE(hymns.Image().toString(), QString("imgFolderClosed"));
    QCOMPARE(hymns.Tag().toString(), QString("Type"));
    QCOMPARE(hymns.Parent().Key(), QString("Root"));
    const VBNode grace = tvw->Nodes(ItemKey(17, m_library.ids["grace"]));
    QCOMPARE(grace.Text(), QString("Amazing Grace"));
    QCOMPARE(grace.Image().toInt(), 17);
    QCOMPARE(grace.Tag().toInt(), 17);
    QCOMPARE(grace.Parent().Key(), QString("Type;17"));
    // Children in text order.
    QCOMPARE(hymns.Child().Text(), QString("Amazing Grace"));
    QCOMPARE(hymns.Child().Next().Text(), QString("O Come All Ye Faithful"));
    // An item with several keywords and services is one node.
    QCOMPARE(ItemTexts(tvw).size(), 4);
    QCOMPARE(ctl.tvwShortList->Count(), 0);
}

void tst_ctlShortList_Editor::nodeTextsFallBackToContentThenTypeAndSource() {
    const qint32 content =
        m_db->AddServiceItem(TestDatabase::Reading, QString(), "In the beginning was the Word");
    const qint32 bare = m_db->AddServiceItem(TestDatabase::Picture, QString());
    QVERIFY(content > 0 && bare > 0);
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemSource = 'Sunrise.bmp' WHERE "
                       "ServiceItemID = ?",
                       {bare}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = 'St Peter@@s' WHERE "
                       "ServiceItemID = ?",
                       {m_library.ids["notices"]}));
    ctlShortList ctl;
    QCOMPARE(ctl.tvwAvailable->Nodes(ItemKey(2, content)).Text(), QString("In the beginnin"));
    QCOMPARE(ctl.tvwAvailable->Nodes(ItemKey(4, bare)).Text(), QString("Picture from Sunrise.bmp"));
    QCOMPARE(ctl.tvwAvailable->Nodes(ItemKey(14, m_library.ids["notices"])).Text(),
             QString("St Peter's"));
}

void tst_ctlShortList_Editor::theBlankNeverStandsInEitherTree() {
    ScriptedPlatform platform;
    const qint32 list = AddList("With Blank", {"1", "grace"});
    ctlShortList ctl;
    for (VBTreeWidget* tvw : {ctl.tvwAvailable, ctl.tvwShortList})
        for (const QString& key : Keys(tvw))
            QVERIFY2(!key.endsWith(";;SI;1"), qPrintable(key));
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.cmdMoveAllRight->click();
    for (VBTreeWidget* tvw : {ctl.tvwAvailable, ctl.tvwShortList})
        for (const QString& key : Keys(tvw))
            QVERIFY2(!key.endsWith(";;SI;1"), qPrintable(key));
    QCOMPARE(ItemTexts(ctl.tvwShortList).size(), 4);
}

void tst_ctlShortList_Editor::movingTheLastItemOfATypeTakesTheTypeNodeAlong() {
    ctlShortList ctl;
    const QString key = ItemKey(1, m_library.ids["francis"]);
    Select(ctl.tvwAvailable, key);
    ctl.cmdMoveOneRight->click();
    QVERIFY(!ctl.tvwAvailable->KeyExists(key));
    QVERIFY(!ctl.tvwAvailable->KeyExists("Type;1"));
    const VBNode type = ctl.tvwShortList->Nodes(QStringLiteral("Type;1"));
    QCOMPARE(type.Text(), QString("Prayer"));
    QCOMPARE(type.Image().toString(), QString("imgFolderClosed"));
    QCOMPARE(type.Tag().toString(), QString("Type"));
    QCOMPARE(type.Parent().Key(), QString("Root"));
    const VBNode item = ctl.tvwShortList->Nodes(key);
    QCOMPARE(item.Text(), QString("Prayer of St Francis"));
    QCOMPARE(item.Image().toInt(), 1);
    QCOMPARE(item.Tag().toInt(), 1);
    QCOMPARE(item.Parent().Key(), QString("Type;1"));
    QVERIFY(ctl.tvwShortList->Nodes(QStringLiteral("Root")).Expanded());

    // And back: the type node returns to the left and leaves the right, with
    // the Root, which is now empty.
    Select(ctl.tvwShortList, key);
    ctl.cmdMoveOneLeft->click();
    QVERIFY(ctl.tvwAvailable->KeyExists("Type;1"));
    QCOMPARE(ctl.tvwShortList->Count(), 0);
}

void tst_ctlShortList_Editor::movingTheLastItemOfAllEmptiesTheSourceTree() {
    ctlShortList ctl;
    ctl.cmdMoveAllRight->click();
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
    QVERIFY(!ctl.tvwAvailable->KeyExists("Root"));
    QVERIFY(!ctl.cmdMoveAllRight->isEnabled());
    QVERIFY(ctl.cmdMoveAllLeft->isEnabled());
    QCOMPARE(ItemTexts(ctl.tvwShortList).size(), 4);
    ctl.cmdMoveAllLeft->click();
    QCOMPARE(ctl.tvwShortList->Count(), 0);
    QVERIFY(!ctl.cmdMoveAllLeft->isEnabled());
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
}

void tst_ctlShortList_Editor::theRootWithTheOneItemButtonMovesEverything() {
    ctlShortList ctl;
    Select(ctl.tvwAvailable, "Root");
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
    QCOMPARE(ItemTexts(ctl.tvwShortList).size(), 4);
    Select(ctl.tvwShortList, "Root");
    ctl.cmdMoveOneLeft->click();
    QCOMPARE(ctl.tvwShortList->Count(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
}

void tst_ctlShortList_Editor::aTypeMovesAllItsItemsAndGoesWithTheLast() {
    ctlShortList ctl;
    Select(ctl.tvwAvailable, "Type;17");
    ctl.cmdMoveOneRight->click();
    QVERIFY(!ctl.tvwAvailable->KeyExists("Type;17"));
    QCOMPARE(ItemTexts(ctl.tvwShortList), QStringList({"Amazing Grace", "O Come All Ye Faithful"}));
    QCOMPARE(ctl.tvwShortList->Nodes(QStringLiteral("Type;17")).Children(), 2);
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"Notices", "Prayer of St Francis"}));
}

void tst_ctlShortList_Editor::doubleClickMovesAnItemButNotAGroup() {
    ctlShortList ctl;
    Select(ctl.tvwAvailable, "Type;17");
    emit ctl.tvwAvailable->itemDoubleClicked(
        ctl.tvwAvailable->Nodes(QStringLiteral("Type;17")).Item(), 0);
    QCOMPARE(ctl.tvwShortList->Count(), 0);
    const QString key = ItemKey(17, m_library.ids["grace"]);
    Select(ctl.tvwAvailable, key);
    emit ctl.tvwAvailable->itemDoubleClicked(ctl.tvwAvailable->Nodes(key).Item(), 0);
    QVERIFY(ctl.tvwShortList->KeyExists(key));
    QVERIFY(!ctl.tvwAvailable->KeyExists(key));
    Select(ctl.tvwShortList, key);
    emit ctl.tvwShortList->itemDoubleClicked(ctl.tvwShortList->Nodes(key).Item(), 0);
    QVERIFY(ctl.tvwAvailable->KeyExists(key));
}

void tst_ctlShortList_Editor::theMoveButtonsFollowTheTrees() {
    ctlShortList ctl;
    QVERIFY(ctl.cmdMoveAllRight->isEnabled());
    QVERIFY(!ctl.cmdMoveAllLeft->isEnabled());
    QVERIFY(!ctl.cmdMoveOneRight->isEnabled());
    QVERIFY(!ctl.cmdMoveOneLeft->isEnabled());
    const QString key = ItemKey(17, m_library.ids["grace"]);
    Select(ctl.tvwAvailable, key);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    QVERIFY(ctl.cmdMoveAllLeft->isEnabled());
    QVERIFY(!ctl.cmdMoveOneLeft->isEnabled());
    Select(ctl.tvwShortList, key);
    QVERIFY(ctl.cmdMoveOneLeft->isEnabled());
}

void tst_ctlShortList_Editor::countsStandBesideTheTrees() {
    ctlShortList ctl;
    QCOMPARE(ctl.lblNumberAvailableSIs->text(), QString("4"));
    QCOMPARE(ctl.lblSIsInShortList->text(), QString("0"));
    Select(ctl.tvwAvailable, "Type;17");
    ctl.cmdMoveOneRight->click();
    QCOMPARE(ctl.lblNumberAvailableSIs->text(), QString("2"));
    QCOMPARE(ctl.lblSIsInShortList->text(), QString("2"));
}

void tst_ctlShortList_Editor::twentyItemsStandOpenAndTwentyOneClosed() {
    for (int i = 1; i <= 16; ++i)
        QVERIFY(m_db->AddServiceItem(TestDatabase::Reading, QString("Reading %1").arg(i)) > 0);
    {
        ctlShortList ctl; // 20 items
        QCOMPARE(ctl.lblNumberAvailableSIs->text(), QString("20"));
        QVERIFY(ctl.tvwAvailable->Nodes(QStringLiteral("Type;2")).Expanded());
        QVERIFY(ctl.tvwAvailable->Nodes(QStringLiteral("Type;17")).Expanded());
    }
    QVERIFY(m_db->AddServiceItem(TestDatabase::Reading, "Reading 17") > 0);
    ctlShortList ctl; // 21 items
    QCOMPARE(ctl.lblNumberAvailableSIs->text(), QString("21"));
    QVERIFY(ctl.tvwAvailable->Nodes(QStringLiteral("Root")).Expanded());
    QVERIFY(!ctl.tvwAvailable->Nodes(QStringLiteral("Type;2")).Expanded());
    QVERIFY(!ctl.tvwAvailable->Nodes(QStringLiteral("Type;17")).Expanded());
    // Moving one across brings the left back to 20: open.
    Select(ctl.tvwAvailable, ItemKey(17, m_library.ids["grace"]));
    ctl.cmdMoveOneRight->click();
    QVERIFY(ctl.tvwAvailable->Nodes(QStringLiteral("Type;2")).Expanded());
}

void tst_ctlShortList_Editor::applyingCriteriaLeavesTheShortListsItemsOffTheLeft() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    const QString key = ItemKey(17, m_library.ids["grace"]);
    Select(ctl.tvwAvailable, key);
    ctl.cmdMoveOneRight->click();
    SetRow(ctl, 0, "Type", "equals", "Hymn");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"O Come All Ye Faithful"}));
    QVERIFY(ctl.tvwShortList->KeyExists(key));
    // A type left without items goes.
    SetRow(ctl, 0, "Description", "equals", "Amazing Grace");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Editor::showPropertiesLoadsTheListClean() {
    const qint32 list = AddList("Advent", {"faithful", "grace"});
    QVERIFY(m_db->Exec("UPDATE ShortLists SET ShortListNotes = 'For December', "
                       "ShortListDateCreated = '2026-11-02 09:00:00' WHERE ShortListID = ?",
                       {list}));
    ctlShortList ctl;
    QSignalSpy updated(&ctl, &ctlShortList::ShortListUpdated);
    ctl.setItems(QString::number(list));
    ctl.ShowProperties(vmEdit);
    QCOMPARE(ctl.txtDescription->text(), QString("Advent"));
    QCOMPARE(ctl.lblMainCaption->text(), QString("Advent Short List"));
    QCOMPARE(ctl.txtNotes->toPlainText(), QString("For December"));
    QCOMPARE(ctl.lblCreatedBy->text(), QString("Anna"));
    QCOMPARE(ctl.lblDateCreated->text(),
             VB::Format(QDateTime(QDate(2026, 11, 2), QTime(9, 0)), "Long Date"));
    QCOMPARE(ItemTexts(ctl.tvwShortList), QStringList({"Amazing Grace", "O Come All Ye Faithful"}));
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"Notices", "Prayer of St Francis"}));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!EditorCycle::Of(&ctl)->IsDirty(0));
    qint32 lngShown = 0;
    DataAccess::Instance().GetLastShownShortList(lngShown);
    QCOMPARE(lngShown, list);
    QCOMPARE(updated.count(), 0);
    QCOMPARE(ctl.Description(), QString("ShortListControl"));
}

void tst_ctlShortList_Editor::showPropertiesRefusesItemsThatAreNoNumber() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.setItems("Advent");
    platform.QueueAnswer(vbOK);
    ctl.ShowProperties();
    QCOMPARE(platform.LastBox().Prompt, QString("Cannot display Short-List: Advent"));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
}

void tst_ctlShortList_Editor::showPropertiesOfAMissingListSaysSo() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.setItems("999");
    platform.QueueAnswer(vbOK);
    ctl.ShowProperties();
    QCOMPARE(platform.LastBox().Prompt, QString("Short-List: 999 does not exist"));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
}

void tst_ctlShortList_Editor::aDeletedItemIsDroppedAndGoneAfterTheNextSave() {
    ScriptedPlatform platform;
    const qint32 gone = m_db->AddServiceItem(TestDatabase::Prayer, "Old prayer");
    QVERIFY(gone > 0);
    const qint32 list = AddList("Lent", {"grace", QString::number(gone), "francis"});
    QVERIFY(m_db->Exec("DELETE FROM ServiceItems WHERE ServiceItemID = ?", {gone}));
    TraceFile trace;
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    QCOMPARE(ItemTexts(ctl.tvwShortList), QStringList({"Amazing Grace", "Prayer of St Francis"}));
    QVERIFY(trace.HasLineContaining(";;SI;" + QString::number(gone) + " does not exists"));
    QVERIFY(trace.HasLineStartingWith("MoveSIToShortList: node "));
    ctl.txtNotes->setPlainText("Gone is gone");
    ctl.cmdApplyChanges->click();
    QCOMPARE(platform.BoxCount(), 0);
    const QString content =
        m_db->Scalar("SELECT ShortListContent FROM ShortLists WHERE ShortListID = ?", {list})
            .toString();
    QCOMPARE(content, QString("%1,%2").arg(m_library.ids["grace"]).arg(m_library.ids["francis"]));
}

void tst_ctlShortList_Editor::newCriteriaEmptiesTheShortListAndKeepsTheFlag() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"faithful", "grace"});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.cmdNewCriteria->click();
    QCOMPARE(ctl.tvwShortList->Count(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
    QVERIFY(!EditorCycle::Of(&ctl)->IsDirty(0)); // clean stays clean
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QCOMPARE(platform.BoxCount(), 0);

    // A list with changes: the flag stays set, and a save stores the empty list.
    ctl.ShowProperties();
    ctl.txtNotes->setPlainText("changed");
    ctl.cmdNewCriteria->click();
    QCOMPARE(ctl.tvwShortList->Count(), 0);
    QVERIFY(EditorCycle::Of(&ctl)->IsDirty(0));
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_db->Scalar("SELECT ShortListContent FROM ShortLists WHERE ShortListID = ?", {list})
                 .toString(),
             QString());
}

void tst_ctlShortList_Editor::typingRaisesTheFlagAndEnablesApply() {
    const qint32 list = AddList("Advent", {"grace"});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.txtDescription->setText("Advent hymns");
    QVERIFY(EditorCycle::Of(&ctl)->IsDirty(0));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    ctl.txtDescription->setText("Advent");
    QVERIFY(EditorCycle::Of(&ctl)->IsDirty(0)); // typing back is still a change
}

void tst_ctlShortList_Editor::aMoveRaisesTheFlagAndEnablesApply() {
    ctlShortList ctl;
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    ctl.cmdMoveAllRight->click();
    QVERIFY(EditorCycle::Of(&ctl)->IsDirty(0));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlShortList_Editor::applyStoresTheSelectionInTreeOrder() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Mixed", {});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.cmdMoveAllRight->click();
    ctl.txtNotes->setPlainText("All of them");
    ctl.cmdApplyChanges->click();
    QCOMPARE(platform.BoxCount(), 0);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!EditorCycle::Of(&ctl)->IsDirty(0));
    // By type name (Announcement, Hymn, Prayer), then by text.
    const QString expected = QString("%1,%2,%3,%4")
                                 .arg(m_library.ids["notices"])
                                 .arg(m_library.ids["grace"])
                                 .arg(m_library.ids["faithful"])
                                 .arg(m_library.ids["francis"]);
    QCOMPARE(m_db->Scalar("SELECT ShortListContent FROM ShortLists WHERE ShortListID = ?", {list})
                 .toString(),
             expected);
    QCOMPARE(m_db->Scalar("SELECT ShortListNotes FROM ShortLists WHERE ShortListID = ?", {list})
                 .toString(),
             QString("All of them"));
    QCOMPARE(m_db->Scalar("SELECT ShortListCreatedBy FROM ShortLists WHERE ShortListID = ?", {list})
                 .toString(),
             QString("Anna"));
}

void tst_ctlShortList_Editor::aDescriptionIsRequiredAtSave() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"grace"});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.txtDescription->clear();
    platform.QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(platform.LastBox().Prompt,
             QString("You must enter a description for this Short-List"));
    QCOMPARE(platform.LastBox().Title, QString("Invalid Property"));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    QVERIFY(EditorCycle::Of(&ctl)->IsDirty(0));
    QCOMPARE(
        m_db->Scalar("SELECT ShortListDescription FROM ShortLists WHERE ShortListID = ?", {list})
            .toString(),
        QString("Advent"));
}

void tst_ctlShortList_Editor::aNewListsDescriptionMustBeUnique() {
    ScriptedPlatform platform;
    QVERIFY(AddList("Advent", {"grace"}) > 0);
    ctlShortList ctl; // never shown a list: its id is 0
    ctl.txtDescription->setText("advent");
    QString strErrorMessage;
    platform.QueueAnswer(vbOK);
    QCOMPARE(ctl.DoChecks(strErrorMessage), qint16(3));
    QCOMPARE(platform.LastBox().Prompt,
             QString("The description that you have entered for this Short-List is not unique. "
                     "Please enter a different one"));
    QCOMPARE(ctl.txtDescription->selectedText(), QString("advent"));
    ctl.txtDescription->setText("O'Brien's favourites");
    QCOMPARE(ctl.DoChecks(strErrorMessage), qint16(1));
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ctlShortList_Editor::canUnloadReturnsTrueAlsoWhenTheUserAnswersNo() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"grace"});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.txtDescription->setText("Advent hymns");
    platform.QueueAnswer(vbNo);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(platform.LastBox().Prompt,
             QString("The contents of this Short-List has changed, do you want to save the "
                     "changes"));
    QCOMPARE(platform.LastBox().Title, QString("Save Changes?"));
    QCOMPARE(platform.LastBox().Buttons, vbYesNo);
    QCOMPARE(
        m_db->Scalar("SELECT ShortListDescription FROM ShortLists WHERE ShortListID = ?", {list})
            .toString(),
        QString("Advent"));
    // The question comes again.
    platform.QueueAnswer(vbNo);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(platform.BoxCount(), 2);
}

void tst_ctlShortList_Editor::canUnloadSavesOnYes() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"grace"});
    ctlShortList ctl;
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.txtDescription->setText("Advent hymns");
    platform.QueueAnswer(vbYes);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(
        m_db->Scalar("SELECT ShortListDescription FROM ShortLists WHERE ShortListID = ?", {list})
            .toString(),
        QString("Advent hymns"));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(ctl.CanUnload()); // nothing left to ask
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ctlShortList_Editor::leavingTheControlOffersTheSave() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"grace"});
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* ctl = new ctlShortList(&window);
    auto* other = new QLineEdit(&window);
    layout->addWidget(ctl);
    layout->addWidget(other);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    ctl->setItems(QString::number(list));
    ctl->ShowProperties();
    ctl->txtNotes->setFocus();
    QTRY_VERIFY(ctl->txtNotes->hasFocus());
    QTest::keyClicks(ctl->txtNotes, "More");
    platform.QueueAnswer(vbYes);
    other->setFocus();
    QTRY_COMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Title, QString("Save Changes?"));
    QCOMPARE(m_db->Scalar("SELECT ShortListNotes FROM ShortLists WHERE ShortListID = ?", {list})
                 .toString(),
             QString("More"));
}

void tst_ctlShortList_Editor::noUpdateEventFollowsASave() {
    ScriptedPlatform platform;
    const qint32 list = AddList("Advent", {"grace"});
    ctlShortList ctl;
    QSignalSpy updated(&ctl, &ctlShortList::ShortListUpdated);
    ctl.setItems(QString::number(list));
    ctl.ShowProperties();
    ctl.txtNotes->setPlainText("x");
    ctl.cmdApplyChanges->click();
    QCOMPARE(updated.count(), 0);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Editor::theHostsSlotFindsTheEditorsQuestion() {
    ctlShortList ctl;
    Unloadable* unloadable = &ctl;
    QVERIFY(unloadable->CanUnload()); // nothing changed: nothing asked
    QVERIFY(EditorCycle::Of(&ctl) != nullptr);
}

QTEST_MAIN(tst_ctlShortList_Editor)
#include "tst_ctlShortList_Editor.moc"
