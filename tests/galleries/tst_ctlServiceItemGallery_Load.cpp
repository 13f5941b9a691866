// The service item gallery: widgets, node keys, loading the tree and the list,
// grouping, item texts, the limit and the status words, sorting, folders, drag
// source, stored properties and the resize rule.

#include "tst_ctlServiceItemGallery_Fixture.h"

#include "foundations/Twips.h"
#include "foundations/VBImageList.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QRegularExpression>

#include "DataAccess.h"
#include "foundations/VBRuntime.h"
#include <QMenu>
#include <QMimeData>

class tst_ctlServiceItemGallery_Load : public QObject {
    Q_OBJECT

private slots:
    // Widgets and identity
    void describesItselfAndCanAlwaysUnload();
    void childWidgetsCarryTheirNamesAndCaptions();
    void listHasFiveColumnsInOrder();
    void imageListHoldsTypePicturesAndTwoFolders();
    void constructionLoadsNothing();

    // Keys and texts
    void treeLoadBuildsRootGroupsAndItemsWithTheirKeys();
    void blankItemIsNeverShown_data();
    void blankItemIsNeverShown();
    void itemUnderThreeKeywordsShowsThreeTimesAndCountsThree();
    void itemWithoutKeywordStandsInNoKeywordGroup();
    void itemWithoutSourceStandsInNoSourceGroup();
    void providerGroupingUsesTheProviderText();
    void descriptionWithMarkerIsShownDecoded();
    void contentOfFifteenCharactersIsShownWhole();
    void contentOfSixteenCharactersIsCut();
    void itemWithoutDescriptionOrContentShowsTypeFromSource();

    // Empty results
    void emptyDatabaseGivesEmptyTreeWithoutRootAndNoEvent();
    void filterMatchingNothingLeavesViewEmptyAndStatusAsItWas();
    void criterionWithoutPropertyClearsTreeAndStops();

    // Limit and status words
    void limitIsReadFromSettingsWithDefaultOfHundred();
    void limitKeepsFirstRowsNewestFirstAndSaysLast();
    void limitCanLeaveLastGroupWithoutChild();
    void statusStartsWithAllAfterNaturalEnd();
    void statusStartsWithBareCountUnderFilter();
    void statusWithLastStaysAfterLimitedLoad();
    void showAllSwitchInPanelTwoLiftsAndRestoresLimit();
    void clickOnPanelOneDoesNothing();
    void listModeDoesNotUpdateStatusBar();
    void moreThan32767RowsOverflow();

    // List
    void listLoadFillsKeysTextsSubItemsAndTags();
    void listLoadUnderMainFilterReportsNoIds();
    void treeLoadUnderMainFilterReportsIds();
    void loadWithPanelOpenAndNoFilterReportsAll();
    void columnClickSortsWithoutReversing();

    // Views, selection after load
    void switchingToListAndBackReloads();
    void changingGroupingReloads();
    void keyToSelectIsSelectedAndClicked();
    void keyToSelectThatNoLongerExistsIsIgnored();

    // Sorting, folders, drag
    void allLevelsAreSortedByText();
    void fewerThanTwentyNodesOpensEveryFolder();
    void twentyNodesOrMoreOpensOnlyTheRoot();
    void expandAndCollapseSwitchFolderPictures();
    void dragOfItemCarriesWholeKeyAsText();
    void dragOfFolderCarriesNothing();

    // Properties and layout
    void storedPropertiesDefaultToTrueAndAreWritable();
    void showToolbarFalseMovesViewsToTheTop();
    void smallerSizeIsRaisedToMinimum();
    void viewsTakeFullWidthAndHeightLessGap();
    void loadWritesTraceLine();
    void sampleDatabaseLoadsInEveryGroupingAndView();
};

void tst_ctlServiceItemGallery_Load::describesItselfAndCanAlwaysUnload() {
    GalleryFixture f;
    QCOMPARE(f.gallery->Description(), QString("ServiceItemGalleryControl"));
    QCOMPARE(f.gallery->property("Description").toString(), QString("ServiceItemGalleryControl"));
    QVERIFY(f.gallery->CanUnload());
    f.gallery->ReleaseListViewFilter();
    QVERIFY(f.Trace().contains("QVLTCONTROLS:ctlServiceItemGallery:ReleaseListViewFilter @ "));
}

void tst_ctlServiceItemGallery_Load::childWidgetsCarryTheirNamesAndCaptions() {
    GalleryFixture f;
    ctlServiceItemGallery* g = f.gallery.get();
    const QStringList names = {"tvwServiceItems",
                               "lvwServiceItems",
                               "fraShowAs",
                               "optShowAsTree",
                               "optShowAsList",
                               "cboGroupByProperty",
                               "cmdShowHideFilter",
                               "txtQuickFilter",
                               "Label1",
                               "Label2",
                               "optQuickFilter",
                               "optShortList",
                               "fraFilter",
                               "Timer1",
                               "cboProperty",
                               "cboOperator",
                               "txtCriterion",
                               "fraSelectShortList",
                               "cmdGetShortList",
                               "lblCaptionShortListDescription",
                               "lblShortListDescription",
                               "lblCaptionShortListCreatedBy",
                               "lblShortListCreatedBy",
                               "lblCaptionShortListCreatedDate",
                               "lblShortListCreatedDate",
                               "lblFilterState",
                               "Toolbar2",
                               "StatusBar1",
                               "mnuRightCLick",
                               "mnuRightClickType"};
    for (const QString& name : names)
        QVERIFY2(g->findChild<QObject*>(name), qPrintable(name));
    QCOMPARE(g->fraShowAs->title(), QString("Show As"));
    QCOMPARE(g->optShowAsTree->text(), QString("A Tree Grouped By"));
    QVERIFY(g->optShowAsTree->isChecked());
    QCOMPARE(g->optShowAsList->text(), QString("A List"));
    QCOMPARE(g->cmdShowHideFilter->text(), QString("&Show Display Properties"));
    QCOMPARE(g->Label1->text(), QString("Quick Filter:"));
    QCOMPARE(g->Label2->text(), QString("Not available when using main filter"));
    QCOMPARE(g->optQuickFilter->text(), QString("Use Quick Filter"));
    QVERIFY(g->optQuickFilter->isChecked());
    QCOMPARE(g->optShortList->text(), QString("Use a Short-List"));
    QCOMPARE(g->fraFilter->title(), QString("Filter Service Items Where:"));
    QCOMPARE(g->fraSelectShortList->title(), QString("ShortList"));
    QCOMPARE(g->cmdGetShortList->text(), QString("Select a Short-List"));
    QCOMPARE(g->lblFilterState->text(), QString("(Filter is Inactive)"));
    QStringList groups;
    for (int i = 0; i < g->cboGroupByProperty->count(); ++i)
        groups << g->cboGroupByProperty->itemText(i);
    QCOMPARE(groups, QStringList({"Type", "Keyword", "Source", "Provider"}));
    QCOMPARE(g->cboGroupByProperty->currentText(), QString("Type"));
    QStringList properties;
    for (int i = 0; i < g->cboProperty->count(); ++i)
        properties << g->cboProperty->itemText(i);
    QCOMPARE(properties,
             QStringList({"Content", "Description", "Type", "Source", "Provider", "Keywords"}));
    QStringList operators;
    for (int i = 0; i < g->cboOperator->count(); ++i)
        operators << g->cboOperator->itemText(i);
    QCOMPARE(operators, QStringList({"Contains", "Starts with", "Ends with", "Does not contain"}));
    QCOMPARE(g->cboProperty->currentText(), QString());
    QCOMPARE(g->cboOperator->currentText(), QString());
    QCOMPARE(g->Timer1->interval(), 1000);
    QVERIFY(g->Timer1->isSingleShot());
    QVERIFY(!g->Timer1->isActive());
    QCOMPARE(g->findChild<QLabel*>("Panel1"), g->StatusBar1->Panels(1));
    QVERIFY(g->findChild<QLabel*>("Panel2"));
}

void tst_ctlServiceItemGallery_Load::listHasFiveColumnsInOrder() {
    GalleryFixture f;
    QTreeWidgetItem* head = f.List()->headerItem();
    QCOMPARE(f.List()->columnCount(), 5);
    QCOMPARE(head->text(0), QString("Type"));
    QCOMPARE(head->text(1), QString("Description"));
    QCOMPARE(head->text(2), QString("Source"));
    QCOMPARE(head->text(3), QString("Provider"));
    QCOMPARE(head->text(4), QString("Date Added"));
    QCOMPARE(f.List()->columnWidth(0), Twips::ToPixels(1940));
    QCOMPARE(f.List()->columnWidth(1), Twips::ToPixels(2540));
    QCOMPARE(f.List()->selectionMode(), QAbstractItemView::ExtendedSelection);
}

void tst_ctlServiceItemGallery_Load::imageListHoldsTypePicturesAndTwoFolders() {
    GalleryFixture f;
    QCOMPARE(f.gallery->imlServiceItems->Count(), 21);
    QCOMPARE(f.gallery->imlServiceItems->Key(20), QString("imgFolderClosed"));
    QCOMPARE(f.gallery->imlServiceItems->Key(21), QString("imgFolderOpen"));
    QCOMPARE(f.gallery->imlServiceItems->Key(17), QString());
}

void tst_ctlServiceItemGallery_Load::constructionLoadsNothing() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Evening prayer") > 0);
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(f.List()->Count(), 0);
    QVERIFY(!f.Trace().contains(":ctlServiceItemGallery:ShowServiceItems @"));
}

void tst_ctlServiceItemGallery_Load::treeLoadBuildsRootGroupsAndItemsWithTheirKeys() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Evening prayer");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServiceItems();

    const VBNode root = f.Tree()->Nodes(QString("Root"));
    QCOMPARE(root.Text(), QString("Service Items"));
    QCOMPARE(root.Image().toString(), QString("imgFolderOpen"));
    QVERIFY(root.Parent().IsNothing());

    const VBNode group = f.Tree()->Nodes(QString("Type;1"));
    QCOMPARE(group.Text(), QString("Prayer"));
    QCOMPARE(group.Parent().Key(), QString("Root"));
    QCOMPARE(group.Tag().toString(), QString("Type"));

    const QString key = QString("Type;1;;SI;%1").arg(a);
    const VBNode item = f.Tree()->Nodes(key);
    QCOMPARE(item.Text(), QString("Evening prayer"));
    QCOMPARE(item.Parent().Key(), QString("Type;1"));
    QCOMPARE(item.Image().toInt(), 1);
    QCOMPARE(item.Tag().toString(), QString("1"));
    QVERIFY(f.Tree()->KeyExists(QString("Type;2;;SI;%1").arg(b)));
    QCOMPARE(f.Tree()->Count(), 5);
}

void tst_ctlServiceItemGallery_Load::blankItemIsNeverShown_data() {
    QTest::addColumn<QString>("groupBy");
    QTest::addColumn<bool>("list");
    for (const char* g : {"Type", "Keyword", "Source", "Provider"})
        QTest::newRow(g) << QString(g) << false;
    QTest::newRow("list") << QString("Type") << true;
}

void tst_ctlServiceItemGallery_Load::blankItemIsNeverShown() {
    QFETCH(QString, groupBy);
    QFETCH(bool, list);
    GalleryFixture f;
    QVERIFY(f.db.AddKeywords(1, {"Empty"}));
    QVERIFY(f.Item(TestDatabase::Prayer, "Evening prayer") > 0);
    f.gallery->cboGroupByProperty->setCurrentText(groupBy);
    f.gallery->optShowAsList->setChecked(list);
    f.gallery->ShowServiceItems();
    VBTreeWidget* view = list ? f.List() : f.Tree();
    QVERIFY(view->Count() > 0);
    for (const QString& key : GalleryFixture::Keys(view)) {
        QVERIFY2(!key.endsWith(";;SI;1"), qPrintable(key));
        QVERIFY2(key != "SI;1", qPrintable(key));
    }
}

void tst_ctlServiceItemGallery_Load::itemUnderThreeKeywordsShowsThreeTimesAndCountsThree() {
    GalleryFixture f(2);
    const qint32 id = f.Item(TestDatabase::Song, "Be thou my vision");
    QVERIFY(f.db.AddKeywords(id, {"Vision", "Light", "Guidance"}));
    f.gallery->cboGroupByProperty->setCurrentText("Keyword");
    f.gallery->ShowServiceItems();
    // The limit of 2 stops the third leaf: each keyword counts.
    QCOMPARE(f.ItemKeys().size(), 2);
    QCOMPARE(f.Panel(1), QString("Last 2 Service Items displayed"));

    GalleryFixture g;
    const qint32 id2 = g.Item(TestDatabase::Song, "Be thou my vision");
    QVERIFY(g.db.AddKeywords(id2, {"Vision", "Light", "Guidance"}));
    g.gallery->cboGroupByProperty->setCurrentText("Keyword");
    g.gallery->ShowServiceItems();
    QCOMPARE(g.ItemKeys().size(), 3);
    for (const QString& key : g.ItemKeys()) {
        QVERIFY(key.startsWith("Keyword;"));
        QVERIFY(key.endsWith(QString(";;SI;%1").arg(id2)));
    }
    QCOMPARE(g.Panel(1), QString("All 3 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::itemWithoutKeywordStandsInNoKeywordGroup() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "Evening prayer");
    f.gallery->cboGroupByProperty->setCurrentText("Keyword");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Keyword;0")).Text(), QString("No Keyword"));
    QCOMPARE(f.Tree()->Nodes(QString("Keyword;0")).Tag().toString(), QString("Keyword"));
    QVERIFY(f.Tree()->KeyExists(QString("Keyword;0;;SI;%1").arg(id)));
    QCOMPARE(f.Tree()->Nodes(QString("Keyword;0;;SI;%1").arg(id)).Tag().toString(), QString("0"));
}

void tst_ctlServiceItemGallery_Load::itemWithoutSourceStandsInNoSourceGroup() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Evening prayer");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 23", QVariant(), "Book of Psalms");
    f.gallery->cboGroupByProperty->setCurrentText("Source");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Source;0")).Text(), QString("No Source"));
    QVERIFY(f.Tree()->KeyExists(QString("Source;0;;SI;%1").arg(a)));
    QCOMPARE(f.Tree()->Nodes(QString("Source;Book of Psalms")).Text(), QString("Book of Psalms"));
    QVERIFY(f.Tree()->KeyExists(QString("Source;Book of Psalms;;SI;%1").arg(b)));
}

void tst_ctlServiceItemGallery_Load::providerGroupingUsesTheProviderText() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Evening prayer", QVariant(), QVariant(), "CCLI");
    f.gallery->cboGroupByProperty->setCurrentText("Provider");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Provider;CCLI")).Text(), QString("CCLI"));
    QCOMPARE(f.Tree()->Nodes(QString("Provider;CCLI")).Tag().toString(), QString("Provider"));
    QVERIFY(f.Tree()->KeyExists(QString("Provider;CCLI;;SI;%1").arg(a)));
}

void tst_ctlServiceItemGallery_Load::descriptionWithMarkerIsShownDecoded() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "St Patrick@@s prayer");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Type;1;;SI;%1").arg(id)).Text(),
             QString("St Patrick's prayer"));
    f.gallery->optShowAsList->setChecked(true);
    QCOMPARE(f.List()->Nodes(QString("SI;%1").arg(id)).SubItems(1), QString("St Patrick's prayer"));
}

void tst_ctlServiceItemGallery_Load::contentOfFifteenCharactersIsShownWhole() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, QVariant(), "123456789012345");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Type;2;;SI;%1").arg(id)).Text(), QString("123456789012345"));
}

void tst_ctlServiceItemGallery_Load::contentOfSixteenCharactersIsCut() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, QVariant(), "1234567890123456");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Type;2;;SI;%1").arg(id)).Text(), QString("123456789012345"));
}

void tst_ctlServiceItemGallery_Load::itemWithoutDescriptionOrContentShowsTypeFromSource() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, QVariant(), QVariant(), "Luke 2");
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Type;2;;SI;%1").arg(id)).Text(),
             QString("Reading from Luke 2"));
}

void tst_ctlServiceItemGallery_Load::emptyDatabaseGivesEmptyTreeWithoutRootAndNoEvent() {
    GalleryFixture f;
    QVERIFY(f.db.Exec("DELETE FROM ServiceItems"));
    f.gallery->cmdShowHideFilter->click(); // panel open: a load would report its rows
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    QString strErrorMessage;
    f.gallery->ShowServiceItems(QString(), strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(f.Tree()->Count(), 0);
    QVERIFY(!f.Tree()->KeyExists("Root"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(clicked.count(), 0);
}

void tst_ctlServiceItemGallery_Load::filterMatchingNothingLeavesViewEmptyAndStatusAsItWas() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Evening prayer") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Panel(1), QString("All 1 Service Items displayed"));
    f.gallery->txtQuickFilter->setText("nothing like this");
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(f.Panel(1), QString("All 1 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::criterionWithoutPropertyClearsTreeAndStops() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Evening prayer") > 0);
    f.gallery->ShowServiceItems();
    QVERIFY(f.Tree()->Count() > 0);
    f.gallery->cmdShowHideFilter->click();
    f.gallery->Timer1->stop();
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    {
        const QSignalBlocker block(f.gallery->txtCriterion);
        f.gallery->txtCriterion->setText("prayer");
    }
    QString strErrorMessage;
    f.gallery->ShowServiceItems(QString(), strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(clicked.count(), 0);
}

void tst_ctlServiceItemGallery_Load::limitIsReadFromSettingsWithDefaultOfHundred() {
    GalleryFixture f;
    for (int i = 0; i < 101; ++i)
        QVERIFY(f.Item(TestDatabase::Prayer, QString("Prayer %1").arg(i)) > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.ItemKeys().size(), 100);
    QCOMPARE(f.Panel(1), QString("Last 100 Service Items displayed"));

    GalleryFixture g(7);
    for (int i = 0; i < 9; ++i)
        QVERIFY(g.Item(TestDatabase::Prayer, QString("Prayer %1").arg(i)) > 0);
    g.gallery->ShowServiceItems();
    QCOMPARE(g.ItemKeys().size(), 7);
    QCOMPARE(g.Panel(1), QString("Last 7 Service Items displayed"));
    QCOMPARE(g.Panel(2), QString("Show All"));
}

void tst_ctlServiceItemGallery_Load::limitKeepsFirstRowsNewestFirstAndSaysLast() {
    GalleryFixture f(2);
    const qint32 oldest = f.Item(TestDatabase::Prayer, "Oldest");
    const qint32 middle = f.Item(TestDatabase::Prayer, "Middle");
    const qint32 newest = f.Item(TestDatabase::Prayer, "Newest");
    f.gallery->ShowServiceItems();
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(newest)));
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(middle)));
    QVERIFY(!f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(oldest)));
}

void tst_ctlServiceItemGallery_Load::limitCanLeaveLastGroupWithoutChild() {
    GalleryFixture f(1);
    QVERIFY(f.Item(TestDatabase::Reading, "Older reading") > 0);
    const qint32 newer = f.Item(TestDatabase::Prayer, "Newer prayer");
    f.gallery->ShowServiceItems();
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(newer)));
    // The group of the row that met the limit was made before the limit was tested.
    QVERIFY(f.Tree()->KeyExists("Type;2"));
    QCOMPARE(f.Tree()->Nodes(QString("Type;2")).Children(), 0);
    QCOMPARE(f.Panel(1), QString("Last 1 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::statusStartsWithAllAfterNaturalEnd() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "One") > 0);
    QVERIFY(f.Item(TestDatabase::Reading, "Two") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Panel(1), QString("All 2 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::statusStartsWithBareCountUnderFilter() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Morning prayer") > 0);
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm") > 0);
    f.gallery->txtQuickFilter->setText("morning");
    QCOMPARE(f.Panel(1), QString("1 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::statusWithLastStaysAfterLimitedLoad() {
    GalleryFixture f(1);
    QVERIFY(f.Item(TestDatabase::Prayer, "One") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Two") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Panel(1), QString("Last 1 Service Items displayed"));
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Panel(1), QString("Last 1 Service Items displayed"));
    QCOMPARE(f.Panel(2), QString("Show All"));
}

void tst_ctlServiceItemGallery_Load::showAllSwitchInPanelTwoLiftsAndRestoresLimit() {
    GalleryFixture f(1);
    QVERIFY(f.Item(TestDatabase::Prayer, "One") > 0);
    const qint32 two = f.Item(TestDatabase::Prayer, "Two");
    f.gallery->ShowServiceItems();
    const QString key = QString("Type;1;;SI;%1").arg(two);
    f.Tree()->Nodes(key).setSelected(true);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);

    QTest::mouseClick(f.gallery->StatusBar1->Panels(2), Qt::LeftButton);
    QCOMPARE(f.Panel(2), QString("Show Last 1 only"));
    QCOMPARE(f.ItemKeys().size(), 2);
    QCOMPARE(f.Panel(1), QString("All 2 Service Items displayed"));
    // The reload selects the node that was selected.
    QVERIFY(f.Tree()->Nodes(key).Selected());
    QCOMPARE(clicked.count(), 1);

    QTest::mouseClick(f.gallery->StatusBar1->Panels(2), Qt::LeftButton);
    QCOMPARE(f.Panel(2), QString("Show All"));
    QCOMPARE(f.ItemKeys().size(), 1);
    QCOMPARE(f.Panel(1), QString("Last 1 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::clickOnPanelOneDoesNothing() {
    GalleryFixture f(1);
    QVERIFY(f.Item(TestDatabase::Prayer, "One") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Two") > 0);
    f.gallery->ShowServiceItems();
    QTest::mouseClick(f.gallery->StatusBar1->Panels(1), Qt::LeftButton);
    QCOMPARE(f.Panel(2), QString("Show All"));
    QCOMPARE(f.ItemKeys().size(), 1);
}

void tst_ctlServiceItemGallery_Load::listModeDoesNotUpdateStatusBar() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "One") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Panel(1), QString("All 1 Service Items displayed"));
    QVERIFY(f.Item(TestDatabase::Prayer, "Two") > 0);
    f.gallery->optShowAsList->setChecked(true);
    QCOMPARE(f.List()->topLevelItemCount(), 2);
    QCOMPARE(f.Panel(1), QString("All 1 Service Items displayed"));
}

void tst_ctlServiceItemGallery_Load::moreThan32767RowsOverflow() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::PointsOnly, "Many points");
    // One row per point: 32768 points make 32768 rows of this item (and one of the Blank item).
    QVERIFY(
        f.db.Exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32768) "
                  "INSERT INTO ServiceItemPoints (ServiceItemID, Position, PointKey, "
                  "ParentPointKey, PointText) SELECT ?, i, 'P' || i, '', 'point' FROM n",
                  {id}));
    QString strErrorMessage;
    f.gallery->ShowServiceItems(QString(), strErrorMessage);
    QCOMPARE(
        strErrorMessage,
        QString(
            "QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems: Error number is 6, Overflow"));
    QVERIFY(f.Trace().contains(
        "ERROR: QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems: Error number is 6, Overflow"));
    QVERIFY(f.Tree()->updatesEnabled());
}

void tst_ctlServiceItemGallery_Load::listLoadFillsKeysTextsSubItemsAndTags() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23", "The Lord is my shepherd",
                             "Book of Psalms", "Public domain");
    QVERIFY(f.db.Exec("UPDATE ServiceItems SET ServiceItemDateCreated = '2003-10-29 19:05:12' "
                      "WHERE ServiceItemID = ?",
                      {id}));
    f.gallery->optShowAsList->setChecked(true);
    QVERIFY(!f.List()->isHidden());
    QVERIFY(f.Tree()->isHidden());
    const VBNode item = f.List()->Nodes(QString("SI;%1").arg(id));
    QCOMPARE(item.Text(), QString("Reading"));
    QCOMPARE(item.SubItems(1), QString("Psalm 23"));
    QCOMPARE(item.SubItems(2), QString("Book of Psalms"));
    QCOMPARE(item.SubItems(3), QString("Public domain"));
    QCOMPARE(item.SubItems(4), VB::CStr(QDateTime(QDate(2003, 10, 29), QTime(19, 5, 12))));
    QCOMPARE(item.Tag().toInt(), 2);
    QCOMPARE(item.Image().toInt(), 2);
}

void tst_ctlServiceItemGallery_Load::listLoadUnderMainFilterReportsNoIds() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Morning prayer") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Evening prayer") > 0);
    f.gallery->optShowAsList->setChecked(true);
    f.gallery->cmdShowHideFilter->click();
    f.gallery->cboProperty->setCurrentText("Description");
    f.gallery->Timer1->stop();
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    {
        const QSignalBlocker block(f.gallery->txtCriterion);
        f.gallery->txtCriterion->setText("prayer");
    }
    f.gallery->ShowServiceItems();
    QCOMPARE(f.List()->topLevelItemCount(), 2);
    QCOMPARE(changed.count(), 1);
    // The list never collects ids: a run of commas, trimmed to nothing.
    QCOMPARE(Args(changed.at(0)), QStringList({"", "Description contains the text 'prayer'",
                                               "ServiceItemDescription LIKE '*prayer*'"}));
}

void tst_ctlServiceItemGallery_Load::treeLoadUnderMainFilterReportsIds() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Morning prayer");
    const qint32 b = f.Item(TestDatabase::Prayer, "Evening prayer");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm") > 0);
    f.gallery->cmdShowHideFilter->click();
    f.gallery->cboProperty->setCurrentText("Description");
    f.gallery->Timer1->stop();
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    {
        const QSignalBlocker block(f.gallery->txtCriterion);
        f.gallery->txtCriterion->setText("prayer");
    }
    f.gallery->ShowServiceItems();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(Args(changed.at(0)),
             QStringList({QString("%1,%2").arg(b).arg(a), "Description contains the text 'prayer'",
                          "ServiceItemDescription LIKE '*prayer*'"}));
}

void tst_ctlServiceItemGallery_Load::loadWithPanelOpenAndNoFilterReportsAll() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Morning prayer") > 0);
    f.gallery->cmdShowHideFilter->click();
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    f.gallery->ShowServiceItems();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(Args(changed.at(0)), QStringList({"All", "", ""}));

    // With the panel closed the load raises nothing.
    f.gallery->cmdShowHideFilter->click();
    changed.clear();
    f.gallery->ShowServiceItems();
    QCOMPARE(changed.count(), 0);
}

void tst_ctlServiceItemGallery_Load::columnClickSortsWithoutReversing() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Bravo") > 0);
    QVERIFY(f.Item(TestDatabase::Reading, "Charlie") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Alpha") > 0);
    f.gallery->optShowAsList->setChecked(true);
    auto column = [&](int c) {
        QStringList texts;
        for (int i = 0; i < f.List()->topLevelItemCount(); ++i)
            texts << f.List()->topLevelItem(i)->text(c);
        return texts;
    };
    // Newest first until a column is clicked.
    QCOMPARE(column(1), QStringList({"Alpha", "Charlie", "Bravo"}));
    QHeaderView* header = f.List()->header();
    const QPoint at(header->sectionViewportPosition(1) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(column(1), QStringList({"Alpha", "Bravo", "Charlie"}));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(column(1), QStringList({"Alpha", "Bravo", "Charlie"}));
    // Sorted stays on: a reload comes sorted by the same column.
    f.gallery->ShowServiceItems();
    QCOMPARE(column(1), QStringList({"Alpha", "Bravo", "Charlie"}));
}

void tst_ctlServiceItemGallery_Load::switchingToListAndBackReloads() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "Morning prayer");
    f.gallery->ShowServiceItems();
    f.gallery->optShowAsList->click();
    QVERIFY(f.Tree()->isHidden());
    QVERIFY(f.List()->KeyExists(QString("SI;%1").arg(id)));
    f.gallery->optShowAsTree->click();
    QVERIFY(f.List()->isHidden());
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(id)));
}

void tst_ctlServiceItemGallery_Load::changingGroupingReloads() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "Morning prayer", QVariant(), "Prayer book");
    f.gallery->ShowServiceItems();
    f.gallery->cboGroupByProperty->setCurrentText("Source");
    QVERIFY(f.Tree()->KeyExists(QString("Source;Prayer book;;SI;%1").arg(id)));
    QVERIFY(!f.Tree()->KeyExists("Type;1"));
}

void tst_ctlServiceItemGallery_Load::keyToSelectIsSelectedAndClicked() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "Morning prayer");
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    const QString key = QString("Type;1;;SI;%1").arg(id);
    f.gallery->ShowServiceItems(key);
    QVERIFY(f.Tree()->Nodes(key).Selected());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(Args(clicked.at(0)),
             QStringList({QString::number(id), "Morning prayer", "", "", "SI"}));
}

void tst_ctlServiceItemGallery_Load::keyToSelectThatNoLongerExistsIsIgnored() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Morning prayer") > 0);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    QString strErrorMessage;
    f.gallery->ShowServiceItems("Type;1;;SI;999", strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(clicked.count(), 0);
    QVERIFY(f.Tree()->SelectedItem().IsNothing());
    QCOMPARE(f.platform.BoxCount(), 0);
}

void tst_ctlServiceItemGallery_Load::allLevelsAreSortedByText() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Zephaniah") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Lord's prayer") > 0);
    QVERIFY(f.Item(TestDatabase::Reading, "Amos") > 0);
    QVERIFY(f.Item(TestDatabase::Announcement, "Notices") > 0);
    f.gallery->ShowServiceItems();
    QTreeWidgetItem* root = f.Tree()->Nodes(QString("Root")).Item();
    QStringList groups;
    for (int i = 0; i < root->childCount(); ++i)
        groups << root->child(i)->text(0);
    QCOMPARE(groups, QStringList({"Announcement", "Prayer", "Reading"}));
    QTreeWidgetItem* reading = f.Tree()->Nodes(QString("Type;2")).Item();
    QCOMPARE(reading->child(0)->text(0), QString("Amos"));
    QCOMPARE(reading->child(1)->text(0), QString("Zephaniah"));
}

void tst_ctlServiceItemGallery_Load::fewerThanTwentyNodesOpensEveryFolder() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Amos") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Lord's prayer") > 0);
    f.gallery->ShowServiceItems();
    QVERIFY(f.Tree()->Nodes(QString("Root")).Expanded());
    QVERIFY(f.Tree()->Nodes(QString("Type;1")).Expanded());
    QVERIFY(f.Tree()->Nodes(QString("Type;2")).Expanded());
}

void tst_ctlServiceItemGallery_Load::twentyNodesOrMoreOpensOnlyTheRoot() {
    GalleryFixture f;
    // Root, two groups and 17 items: 20 nodes.
    for (int i = 0; i < 9; ++i)
        QVERIFY(f.Item(TestDatabase::Reading, QString("Reading %1").arg(i)) > 0);
    for (int i = 0; i < 8; ++i)
        QVERIFY(f.Item(TestDatabase::Prayer, QString("Prayer %1").arg(i)) > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Count(), 20);
    QVERIFY(f.Tree()->Nodes(QString("Root")).Expanded());
    QVERIFY(!f.Tree()->Nodes(QString("Type;1")).Expanded());
    QVERIFY(!f.Tree()->Nodes(QString("Type;2")).Expanded());
}

void tst_ctlServiceItemGallery_Load::expandAndCollapseSwitchFolderPictures() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Amos") > 0);
    f.gallery->ShowServiceItems();
    VBNode group = f.Tree()->Nodes(QString("Type;2"));
    group.setExpanded(false);
    QCOMPARE(group.Image().toString(), QString("imgFolderClosed"));
    group.setExpanded(true);
    QCOMPARE(group.Image().toString(), QString("imgFolderOpen"));
    VBNode root = f.Tree()->Nodes(QString("Root"));
    root.setExpanded(false);
    QCOMPARE(root.Image().toString(), QString("imgFolderClosed"));
}

void tst_ctlServiceItemGallery_Load::dragOfItemCarriesWholeKeyAsText() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Amos");
    f.gallery->ShowServiceItems();
    const QString key = QString("Type;2;;SI;%1").arg(id);
    VBNode node = f.Tree()->Nodes(key);
    node.setSelected(true);
    QVERIFY(f.Tree()->dragEnabled());
    const QModelIndex index = f.Tree()->model()->index(0, 0);
    std::unique_ptr<QMimeData> data(f.Tree()->model()->mimeData({index}));
    QVERIFY(data);
    QVERIFY(data->hasText());
    QCOMPARE(data->text(), key);
}

void tst_ctlServiceItemGallery_Load::dragOfFolderCarriesNothing() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Amos") > 0);
    f.gallery->ShowServiceItems();
    f.Tree()->Nodes(QString("Type;2")).setSelected(true);
    const QModelIndex index = f.Tree()->model()->index(0, 0);
    std::unique_ptr<QMimeData> data(f.Tree()->model()->mimeData({index}));
    QVERIFY(!data);
}

void tst_ctlServiceItemGallery_Load::storedPropertiesDefaultToTrueAndAreWritable() {
    GalleryFixture f;
    QVERIFY(f.gallery->RunSIOnDblClick());
    QVERIFY(f.gallery->ShowToolbar());
    const QMetaObject* meta = f.gallery->metaObject();
    for (const char* name : {"RunSIOnDblClick", "ShowToolbar"}) {
        const QMetaProperty p = meta->property(meta->indexOfProperty(name));
        QVERIFY(p.isValid());
        QVERIFY(p.isStored());
        QVERIFY(p.isWritable());
    }
    QVERIFY(f.gallery->setProperty("RunSIOnDblClick", false));
    QVERIFY(!f.gallery->RunSIOnDblClick());
    QVERIFY(f.gallery->setProperty("ShowToolbar", false));
    QVERIFY(!f.gallery->ShowToolbar());
}

void tst_ctlServiceItemGallery_Load::showToolbarFalseMovesViewsToTheTop() {
    GalleryFixture f;
    QCOMPARE(f.Tree()->y(), Twips::ToPixels(960));
    f.gallery->setShowToolbar(false);
    QCOMPARE(f.Tree()->y(), 0);
    QCOMPARE(f.List()->y(), 0);
    QVERIFY(!f.gallery->Toolbar2->isHidden());
    f.gallery->setShowToolbar(true);
    QCOMPARE(f.Tree()->y(), Twips::ToPixels(960));
}

void tst_ctlServiceItemGallery_Load::smallerSizeIsRaisedToMinimum() {
    GalleryFixture f;
    f.gallery->resize(20, 20);
    QTRY_VERIFY(f.gallery->width() >= Twips::ToPixels(2100));
    QVERIFY(f.gallery->height() >= Twips::ToPixels(3200));
}

void tst_ctlServiceItemGallery_Load::viewsTakeFullWidthAndHeightLessGap() {
    GalleryFixture f;
    f.gallery->resize(450, 600);
    QCOMPARE(f.Tree()->width(), 450);
    const int top = Twips::ToPixels(960);
    QCOMPARE(f.Tree()->y(), top);
    QCOMPARE(f.Tree()->height(), Twips::ToPixels(Twips::FromPixels(600) - 960 - 220));
    QCOMPARE(f.gallery->Toolbar2->width(), Twips::ToPixels(Twips::FromPixels(450) - 40));
    QCOMPARE(f.gallery->fraFilter->width(), f.gallery->Toolbar2->width());
    QCOMPARE(f.gallery->fraShowAs->width(), f.gallery->Toolbar2->width());
    QCOMPARE(f.gallery->txtQuickFilter->geometry().right() + 1, 450);
}

void tst_ctlServiceItemGallery_Load::loadWritesTraceLine() {
    GalleryFixture f;
    f.gallery->ShowServiceItems("Root");
    QVERIFY(f.Trace().contains(
        QRegularExpression("QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems @ [^\\n]*: "
                           "strNodeKeyToSelect = Root, strErrorMessage = , ")));
}

void tst_ctlServiceItemGallery_Load::sampleDatabaseLoadsInEveryGroupingAndView() {
    GalleryFixture f;
    QString strErrorMessage;
    DataAccess::Instance().OpenSampleDatabase(strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    for (const char* groupBy : {"Type", "Keyword", "Source", "Provider"}) {
        f.gallery->cboGroupByProperty->setCurrentText(groupBy);
        f.gallery->ShowServiceItems(QString(), strErrorMessage);
        QCOMPARE(strErrorMessage, QString());
        QVERIFY2(!f.ItemKeys().isEmpty(), groupBy);
        QVERIFY(f.Panel(1).endsWith(" Service Items displayed"));
        for (const QString& key : f.ItemKeys())
            QVERIFY2(key.startsWith(QString(groupBy) + ";"), qPrintable(key));
    }
    f.gallery->optShowAsList->setChecked(true);
    QVERIFY(f.List()->topLevelItemCount() > 0);
    f.gallery->txtQuickFilter->setText("a");
    QVERIFY(f.List()->topLevelItemCount() > 0);
    QCOMPARE(f.platform.BoxCount(), 0);
    // The fixture's own database is opened again for its clean-up.
    DataAccess::Instance().OpenDatabase(f.db.Path(), strErrorMessage);
}

QTEST_MAIN(tst_ctlServiceItemGallery_Load)
#include "tst_ctlServiceItemGallery_Load.moc"
