// The short lists in the application: built and saved on the Short-lists page,
// applied on the Service Items page.

#include "DataAccess.h"
#include "EditorSlot.h"
#include "ScriptedPlatform.h"
#include "ServiceItemsPage.h"
#include "ShortListsPage.h"
#include "TestDatabase.h"
#include "foundations/VBConstants.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "shortlists/ctlShortList.h"
#include "shortlists/ctlShortListGallery.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

class tst_ShortListPages : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theShortListsPageShowsTheGalleryAndEditsTheClickedList();
    void newOnTheShortListsPageOpensTheNewListInTheEditor();
    void theShortListsPageOpensTheListShownLast();
    void christmasSongsNotInAnyServiceAreBuiltSavedAndApplied();
    void theServiceItemsPageCanSwitchAShortListOff();

private:
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    qint32 m_faithful = 0, m_joy = 0, m_herald = 0, m_grace = 0, m_collect = 0;

    static void SetRow(ctlShortList& ctl, qint16 Index, const QString& strField,
                       const QString& strOperator, const QString& strText = QString()) {
        ctl.cboFields(Index)->setCurrentIndex(ctl.cboFields(Index)->findText(strField));
        ctl.cboOperator(Index)->setCurrentIndex(ctl.cboOperator(Index)->findText(strOperator));
        ctl.txtCriterion1(Index)->setText(strText);
    }
    static QStringList ShownItems(ctlServiceItemGallery* gallery) {
        QStringList texts;
        VBTreeWidget* tree = gallery->tvwServiceItems;
        for (qint32 i = 1; i <= tree->Count(); ++i)
            if (tree->Nodes(i).Key().contains(QStringLiteral(";;SI;")))
                texts << tree->Nodes(i).Text();
        texts.sort();
        return texts;
    }
    static QTreeWidgetItem* RowOf(ctlShortListGallery* gallery, const QString& strText) {
        const auto found = gallery->lvwShortLists->findItems(strText, Qt::MatchExactly, 0);
        return found.isEmpty() ? nullptr : found.first();
    }
};

void tst_ShortListPages::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_platform = std::make_unique<ScriptedPlatform>();
    m_faithful = m_db->AddServiceItem(TestDatabase::Song, "O Come All Ye Faithful");
    m_joy = m_db->AddServiceItem(TestDatabase::Song, "Joy to the World");
    m_herald = m_db->AddServiceItem(TestDatabase::Song, "Hark the Herald");
    m_grace = m_db->AddServiceItem(TestDatabase::Song, "Amazing Grace");
    m_collect = m_db->AddServiceItem(TestDatabase::Prayer, "Christmas Collect");
    QVERIFY(m_faithful > 0 && m_joy > 0 && m_herald > 0 && m_grace > 0 && m_collect > 0);
    QVERIFY(m_db->AddKeywords(m_faithful, {"Christmas"}));
    QVERIFY(m_db->AddKeywords(m_joy, {"Christmas"}));
    QVERIFY(m_db->AddKeywords(m_herald, {"Christmas"}));
    QVERIFY(m_db->AddKeywords(m_collect, {"Christmas"}));
    QVERIFY(m_db->AddService("Carol Service", {{m_herald}}) > 0);
}

void tst_ShortListPages::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ShortListPages::theShortListsPageShowsTheGalleryAndEditsTheClickedList() {
    const qint32 advent = m_db->AddShortList("Advent", {m_faithful});
    ShortListsPage page;
    page.resize(1000, 700);
    page.show();
    page.Activate();
    ctlShortListGallery* gallery = page.ctlShortListGallery1;
    QCOMPARE(page.Gallery(), static_cast<QWidget*>(gallery));
    QTreeWidgetItem* row = RowOf(gallery, "Advent");
    QVERIFY(row);
    gallery->lvwShortLists->scrollToItem(row);
    QTest::mouseClick(gallery->lvwShortLists->viewport(), Qt::LeftButton, Qt::NoModifier,
                      gallery->lvwShortLists->visualItemRect(row).center());
    ctlShortList* editor = page.ShortListEditor();
    QVERIFY(editor);
    QCOMPARE(editor->Items(), QString::number(advent));
    QCOMPARE(editor->txtDescription->text(), QString("Advent"));
}

void tst_ShortListPages::newOnTheShortListsPageOpensTheNewListInTheEditor() {
    ShortListsPage page;
    page.Activate();
    QSignalSpy added(page.ctlShortListGallery1,
                     qOverload<qint32>(&ctlShortListGallery::NewShortList));
    page.ctlShortListGallery1->Toolbar2->Buttons("btnNew")->trigger();
    QCOMPARE(added.count(), 1);
    ctlShortList* editor = page.ShortListEditor();
    QVERIFY(editor);
    QCOMPARE(editor->Items(), QString::number(added.at(0).at(0).toInt()));
    QVERIFY(editor->txtDescription->text().isEmpty());
}

void tst_ShortListPages::theShortListsPageOpensTheListShownLast() {
    QVERIFY(m_db->AddShortList("Advent", {m_faithful}) > 0);
    const qint32 easter = m_db->AddShortList("Easter", {m_grace});
    DataAccess::Instance().ShortListShown(easter);
    ShortListsPage page;
    page.Activate();
    QCOMPARE(page.ctlShortListGallery1->SelectedItemText(), QString("Easter"));
    ctlShortList* editor = page.ShortListEditor();
    QVERIFY(editor);
    QCOMPARE(editor->Items(), QString::number(easter));
}

void tst_ShortListPages::christmasSongsNotInAnyServiceAreBuiltSavedAndApplied() {
    // The planner makes a new list on the Short-lists page ...
    ShortListsPage lists;
    lists.resize(1000, 700);
    lists.show();
    lists.Activate();
    QSignalSpy added(lists.ctlShortListGallery1,
                     qOverload<qint32>(&ctlShortListGallery::NewShortList));
    lists.ctlShortListGallery1->Toolbar2->Buttons("btnNew")->trigger();
    QCOMPARE(added.count(), 1);
    const qint32 id = added.at(0).at(0).toInt();
    ctlShortList* editor = lists.ShortListEditor();
    QVERIFY(editor);

    // ... asks for songs with the keyword Christmas that are in no service ...
    editor->txtDescription->setText("Christmas songs not yet sung");
    editor->optAnd->click();
    editor->cmdAndOr(1)->click();
    QCOMPARE(editor->CriteriaCount(), qint16(3));
    SetRow(*editor, 0, "Type", "equals", "Hymn");
    SetRow(*editor, 1, "Keywords", "equals", "Christmas");
    SetRow(*editor, 2, "Is part of a service", "equals");
    editor->cboCriterion(2)->setCurrentIndex(editor->cboCriterion(2)->findText("False"));
    editor->cmdApplyCriteria->click();
    QCOMPARE(m_platform->BoxCount(), 0);

    // ... takes every item found and saves the list.
    editor->cmdMoveAllRight->click();
    editor->cmdApplyChanges->click();
    QStringList content =
        m_db->Scalar("SELECT ShortListContent FROM ShortLists WHERE ShortListID = ?", {id})
            .toString()
            .split(',');
    content.sort();
    QStringList expected{QString::number(m_faithful), QString::number(m_joy)};
    expected.sort();
    QCOMPARE(content, expected);
    QTreeWidgetItem* row = RowOf(lists.ctlShortListGallery1, "Christmas songs not yet sung");
    QVERIFY(row);
    QVERIFY(row->isSelected());

    // On the Service Items page the gallery then shows those two songs alone,
    // through every reload until the list is switched off.
    ServiceItemsPage items;
    items.resize(1000, 700);
    items.show();
    items.Activate();
    ctlServiceItemGallery* gallery = items.ctlServiceItemGallery1;
    QCOMPARE(ShownItems(gallery).size(), 5);
    m_platform->QueueShortListChoice(id);
    gallery->cmdGetShortList->click();
    QCOMPARE(ShownItems(gallery), QStringList({"Joy to the World", "O Come All Ye Faithful"}));
    QCOMPARE(gallery->lblFilterState->text(), QString("(Short-List)"));
    QCOMPARE(gallery->lblShortListDescription->text(), QString("Christmas songs not yet sung"));
    gallery->RefreshView();
    QCOMPARE(ShownItems(gallery), QStringList({"Joy to the World", "O Come All Ye Faithful"}));
}

void tst_ShortListPages::theServiceItemsPageCanSwitchAShortListOff() {
    const qint32 list = m_db->AddShortList("Two songs", {m_faithful, m_grace});
    ServiceItemsPage items;
    items.resize(1000, 700);
    items.show();
    items.ApplyShortList(list);
    ctlServiceItemGallery* gallery = items.ctlServiceItemGallery1;
    QCOMPARE(ShownItems(gallery), QStringList({"Amazing Grace", "O Come All Ye Faithful"}));
    items.ApplyShortList(0);
    QCOMPARE(ShownItems(gallery).size(), 5);
    QCOMPARE(gallery->lblFilterState->text(), QString("(Filter is inactive)"));
}

QTEST_MAIN(tst_ShortListPages)
#include "tst_ShortListPages.moc"
