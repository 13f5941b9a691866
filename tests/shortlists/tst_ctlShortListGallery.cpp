// The short-list gallery: its list, clicks, toolbar, menu, new and delete with
// where the selection lands afterwards.

#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBConstants.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "shortlists/ctlShortList.h"
#include "shortlists/ctlShortListGallery.h"

#include "DataAccess.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_ctlShortListGallery : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theListShowsEveryShortListWithItsColumns();
    void aClickTellsTheHostTheIdAndDescription();
    void theBannerFilterIsBoundToTheList();
    void deletingTheLastListEmptiesTheListAndClicksWithEmptyTexts();
    void deletingTheItemInTheLastPlaceLeavesNothingSelected();
    void deletingAnyOtherItemSelectsTheNextInItsPlace();
    void answeringNoToTheDeleteQuestionKeepsTheList();
    void deleteWithNothingSelectedAsksNothing();
    void aRightClickOnEmptySpaceShowsNoMenu();
    void aRightClickOnAnItemShowsTheMenu();
    void aNewListIsSelectedAndAnnouncedBeforeItHasADescription();
    void theEditorInsistsOnADescriptionForANewList();
    void selectedShortListsJoinsTheIdsWithCommas();
    void aColumnClickSortsByThatColumn();
    void helpSendsF1();

private:
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    std::unique_ptr<ctlShortListGallery> m_gallery;

    // Three lists; the store gives the newest first.
    QList<qint32> ThreeLists();
    void Load() {
        QString strErrorMessage;
        m_gallery->ShowShortLists(0, strErrorMessage);
    }
    QStringList Texts() const {
        QStringList texts;
        for (int i = 0; i < m_gallery->lvwShortLists->topLevelItemCount(); ++i)
            texts << m_gallery->lvwShortLists->topLevelItem(i)->text(0);
        return texts;
    }
    QTreeWidgetItem* Row(int i) const { return m_gallery->lvwShortLists->topLevelItem(i); }
    void ClickRow(int i) {
        VBTreeWidget* list = m_gallery->lvwShortLists;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(Row(i)).center());
    }
    QAction* Button(const QString& key) const { return m_gallery->Toolbar2->Buttons(key); }
};

void tst_ctlShortListGallery::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_platform = std::make_unique<ScriptedPlatform>();
    m_gallery = std::make_unique<ctlShortListGallery>();
    m_gallery->resize(500, 400);
    m_gallery->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_gallery.get()));
}

void tst_ctlShortListGallery::cleanup() {
    m_gallery.reset();
    m_platform.reset();
    m_db.reset();
}

QList<qint32> tst_ctlShortListGallery::ThreeLists() {
    QList<qint32> ids;
    for (const char* name : {"Advent", "Easter", "Harvest"})
        ids << m_db->AddShortList(QString::fromLatin1(name), {});
    return ids;
}

void tst_ctlShortListGallery::theListShowsEveryShortListWithItsColumns() {
    const QList<qint32> ids = ThreeLists();
    Load();
    VBTreeWidget* list = m_gallery->lvwShortLists;
    QCOMPARE(list->topLevelItemCount(), 3);
    QCOMPARE(list->headerItem()->text(0), QString("Description"));
    QCOMPARE(list->headerItem()->text(1), QString("Created Date"));
    QCOMPARE(list->headerItem()->text(2), QString("Created By"));
    const VBNode advent = list->ListItems(QStringLiteral("ShortList;%1").arg(ids[0]));
    QCOMPARE(advent.Text(), QString("Advent"));
    QCOMPARE(advent.Tag().toInt(), ids[0]);
    QCOMPARE(advent.SubItems(2), QString("Tester"));
    QVERIFY(!advent.SubItems(1).isEmpty());
    QCOMPARE(m_gallery->Description(), QString("ShortListGalleryControl"));
}

void tst_ctlShortListGallery::aClickTellsTheHostTheIdAndDescription() {
    const QList<qint32> ids = ThreeLists();
    Load();
    QSignalSpy clicked(m_gallery.get(), &ctlShortListGallery::ShortListClicked);
    const int row = Texts().indexOf("Easter");
    ClickRow(row);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), QString::number(ids[1]));
    QCOMPARE(clicked.at(0).at(1).toString(), QString("Easter"));
    QVERIFY(Button("btnDelete")->isEnabled());
    qint32 lngLast = 0;
    DataAccess::Instance().GetLastShownShortList(lngLast);
    QCOMPARE(lngLast, ids[1]);
}

void tst_ctlShortListGallery::theBannerFilterIsBoundToTheList() {
    ThreeLists();
    Load();
    QCOMPARE(m_gallery->TTLvwBannerFilter1->ListView(), m_gallery->lvwShortLists);
    m_gallery->TTLvwBannerFilter1->setFilterText("east");
    QTRY_COMPARE(m_gallery->TTLvwBannerFilter1->ShownCount(), 1);
    m_gallery->ReleaseListViewFilter();
    QVERIFY(m_gallery->TTLvwBannerFilter1->ListView() == nullptr);
}

void tst_ctlShortListGallery::deletingTheLastListEmptiesTheListAndClicksWithEmptyTexts() {
    const qint32 id = m_db->AddShortList("Advent", {});
    Load();
    ClickRow(0);
    QSignalSpy clicked(m_gallery.get(), &ctlShortListGallery::ShortListClicked);
    m_platform->QueueAnswer(vbYes);
    Button("btnDelete")->trigger();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Are you sure you want to delete this Short-List from your system? This "
                     "command cannot be undone."));
    QCOMPARE(m_platform->LastBox().Title, QString("Confirm Delete"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbQuestion | vbDefaultButton2);
    QCOMPARE(m_gallery->lvwShortLists->topLevelItemCount(), 0);
    QCOMPARE(m_db->Count("ShortLists", QStringLiteral("ShortListID = %1").arg(id)), 0);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), QString());
    QCOMPARE(clicked.at(0).at(1).toString(), QString());
}

void tst_ctlShortListGallery::deletingTheItemInTheLastPlaceLeavesNothingSelected() {
    ThreeLists();
    Load();
    ClickRow(2);
    const QString strGone = Row(2)->text(0);
    QSignalSpy clicked(m_gallery.get(), &ctlShortListGallery::ShortListClicked);
    m_platform->QueueAnswer(vbYes);
    Button("btnDelete")->trigger();
    QCOMPARE(m_gallery->lvwShortLists->topLevelItemCount(), 2);
    QVERIFY(!Texts().contains(strGone));
    QVERIFY(m_gallery->lvwShortLists->selectedItems().isEmpty());
    QCOMPARE(clicked.count(), 0);
}

void tst_ctlShortListGallery::deletingAnyOtherItemSelectsTheNextInItsPlace() {
    ThreeLists();
    Load();
    const QStringList before = Texts();
    ClickRow(0);
    QSignalSpy clicked(m_gallery.get(), &ctlShortListGallery::ShortListClicked);
    m_platform->QueueAnswer(vbYes);
    Button("btnDelete")->trigger();
    QCOMPARE(Texts(), before.mid(1));
    QCOMPARE(m_gallery->SelectedItemText(), before.at(1));
    QVERIFY(Row(0)->isSelected());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(1).toString(), before.at(1));
}

void tst_ctlShortListGallery::answeringNoToTheDeleteQuestionKeepsTheList() {
    ThreeLists();
    Load();
    ClickRow(1);
    m_platform->QueueAnswer(vbNo);
    Button("btnDelete")->trigger();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_gallery->lvwShortLists->topLevelItemCount(), 3);
    QCOMPARE(m_db->Count("ShortLists"), 3);
}

void tst_ctlShortListGallery::deleteWithNothingSelectedAsksNothing() {
    ThreeLists();
    Load();
    QVERIFY(!Button("btnDelete")->isEnabled());
    ClickRow(0);
    QVERIFY(Button("btnDelete")->isEnabled());
    m_gallery->lvwShortLists->clearSelection();
    m_gallery->lvwShortLists->setCurrentItem(nullptr);
    Button("btnDelete")->trigger();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(m_db->Count("ShortLists"), 3);
}

void tst_ctlShortListGallery::aRightClickOnEmptySpaceShowsNoMenu() {
    m_db->AddShortList("Advent", {});
    Load();
    VBTreeWidget* list = m_gallery->lvwShortLists;
    const QPoint empty(10, list->viewport()->height() - 5);
    QVERIFY(list->itemAt(empty) == nullptr);
    QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier, empty);
    QVERIFY(!m_gallery->mnuRightClick->isVisible());
}

void tst_ctlShortListGallery::aRightClickOnAnItemShowsTheMenu() {
    m_db->AddShortList("Advent", {});
    Load();
    VBTreeWidget* list = m_gallery->lvwShortLists;
    QTest::mouseClick(list->viewport(), Qt::RightButton, Qt::NoModifier,
                      list->visualItemRect(Row(0)).center());
    QTRY_VERIFY(m_gallery->mnuRightClick->isVisible());
    QStringList captions;
    for (QAction* a : m_gallery->mnuRightClick->actions())
        captions << a->text();
    QCOMPARE(captions, QStringList({"&New Short-List", "&Open", "&Delete", "&Print"}));
    // The entries do nothing: the list stays as it is.
    m_gallery->mnuSIDelete->trigger();
    m_gallery->mnuRightClick->hide();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(list->topLevelItemCount(), 1);
}

void tst_ctlShortListGallery::aNewListIsSelectedAndAnnouncedBeforeItHasADescription() {
    ThreeLists();
    Load();
    QSignalSpy added(m_gallery.get(), qOverload<qint32>(&ctlShortListGallery::NewShortList));
    QSignalSpy clicked(m_gallery.get(), &ctlShortListGallery::ShortListClicked);
    Button("btnNew")->trigger();
    QCOMPARE(added.count(), 1);
    const qint32 id = added.at(0).at(0).toInt();
    QVERIFY(id > 0);
    QCOMPARE(m_db->Count("ShortLists", QStringLiteral("ShortListID = %1").arg(id)), 1);
    QCOMPARE(m_gallery->lvwShortLists->topLevelItemCount(), 4);
    QCOMPARE(m_gallery->SelectedItemKey(), QStringLiteral("ShortList;%1").arg(id));
    QCOMPARE(m_gallery->SelectedShortLists(), QString::number(id));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), QString::number(id));
    QCOMPARE(clicked.at(0).at(1).toString(), QString());
}

void tst_ctlShortListGallery::theEditorInsistsOnADescriptionForANewList() {
    Load();
    QSignalSpy added(m_gallery.get(), qOverload<qint32>(&ctlShortListGallery::NewShortList));
    m_gallery->NewShortList();
    QCOMPARE(added.count(), 1);
    ctlShortList editor;
    editor.setItems(QString::number(added.at(0).at(0).toInt()));
    editor.ShowProperties();
    QVERIFY(editor.txtDescription->text().isEmpty());
    // Something typed and taken back, the description still empty: the save is refused.
    QTest::keyClicks(editor.txtDescription, "x");
    QTest::keyClick(editor.txtDescription, Qt::Key_Backspace);
    QVERIFY(editor.cmdApplyChanges->isEnabled());
    m_platform->QueueAnswer(vbOK);
    editor.cmdApplyChanges->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You must enter a description for this Short-List"));
}

void tst_ctlShortListGallery::selectedShortListsJoinsTheIdsWithCommas() {
    const QList<qint32> ids = ThreeLists();
    Load();
    for (int i = 0; i < 3; ++i)
        Row(i)->setSelected(true);
    QStringList got = m_gallery->SelectedShortLists().split(',');
    QStringList want;
    for (qint32 id : ids)
        want << QString::number(id);
    got.sort();
    want.sort();
    QCOMPARE(got, want);
}

void tst_ctlShortListGallery::aColumnClickSortsByThatColumn() {
    ThreeLists();
    Load();
    QCOMPARE(Texts(), QStringList({"Harvest", "Easter", "Advent"}));
    m_gallery->lvwShortLists_ColumnClick(0);
    QCOMPARE(Texts(), QStringList({"Advent", "Easter", "Harvest"}));
    // The list stays sorted when it is filled again.
    Load();
    QCOMPARE(Texts(), QStringList({"Advent", "Easter", "Harvest"}));
}

void tst_ctlShortListGallery::helpSendsF1() {
    Button("btnHelp")->trigger();
    QCOMPARE(m_platform->SentKeys(), QStringList({"{F1}"}));
}

QTEST_MAIN(tst_ctlShortListGallery)
#include "tst_ctlShortListGallery.moc"
