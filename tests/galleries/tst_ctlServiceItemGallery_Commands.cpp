// The service item gallery's commands and selection: selection members, clicks,
// double-clicks, right-button menus, keys, the toolbar, deleting, refreshing,
// selecting, new items and the nodes a parent adds or hides.

#include "WithoutSheetFolder.h"
#include "tst_ctlServiceItemGallery_Fixture.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>

class tst_ctlServiceItemGallery_Commands : public QObject {
    Q_OBJECT

    static QString ItemKey(qint32 type, qint32 id) {
        return QString("Type;%1;;SI;%2").arg(type).arg(id);
    }
    static QStringList ItemButtonStates(GalleryFixture& f) {
        QStringList states;
        for (const char* key :
             {"btnRun", "btnDelete", "btnProperties", "btnPrint", "btnEdit", "btnExport"})
            states << QString("%1=%2").arg(key).arg(f.Button(key)->isEnabled());
        return states;
    }

    // Right-clicks at a node or list item; while the menu is up, notes the menu, its
    // first caption and the selection, then runs the named command (or closes it).
    struct MenuSeen {
        QString menu, caption, selected;
    };
    static MenuSeen RightClick(VBTreeWidget* view, const QString& key,
                               const QString& command = QString()) {
        MenuSeen seen;
        QTimer::singleShot(0, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            seen.menu = menu->objectName();
            seen.caption = menu->actions().first()->text();
            const VBNode selected = view->SelectedItem();
            seen.selected = selected ? selected.Key() : QString();
            menu->close();
            for (QAction* a : menu->actions())
                if (!command.isEmpty() && a->objectName() == command)
                    a->trigger();
        });
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        const QPoint at = view->visualItemRect(item).center();
        QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier, at);
        QTest::mouseRelease(view->viewport(), Qt::RightButton, Qt::NoModifier, at);
        return seen;
    }

private slots:
    // Selection members
    void selectionMembersOfTreeItem();
    void selectionMembersWithNothingSelected();
    void selectedItemImageOfFolderIsTypeMismatch();
    void selectionMembersOfListItem();
    void selectedServiceItemsOfTreeItemAndGroup();
    void selectedServiceItemsOfSeveralListItems();

    // Clicks
    void clickOnItemNodeEnablesButtonsAndRaisesItsId();
    void clickOnRootRaisesAll();
    void clickOnGroupRaisesIdsOfItsChildren();
    void clickOnGroupWithoutChildShowsErrorBox();
    void clickGivesQuickFilterTheFocus();
    void clickOnListItemRaisesItsIdAndLeavesEditAlone();
    void twoSelectedListItemsSwitchOffSingleItemButtonsOnly();
    void selectingTwoListItemsAndPressingBtnRunDoesNothing();

    // Double-clicks
    void doubleClickOnTreeItemRaisesItsId();
    void doubleClickOnGroupDoesNothing();
    void doubleClickInListWithId1234RunsId34();
    void doubleClickInListWithId7Fails();
    void doubleClickInListWithoutRunRaisesTypeId();

    // Right button
    void rightClickOnItemNodeSelectsItOnlyWhileMenuIsUp();
    void rightClickOnTypeGroupOffersNewWithTypeName();
    void rightClickOnOtherGroupingOffersNewServiceItem();
    void rightClickOnListItemKeepsSelection();
    void menusCarryTheirCaptions();
    void newFromTypeGroupMenuCreatesItemOfThatType();
    void newFromItemMenuUnderTypeTakesItsType();
    void openFromMenuReportsRunFailure();

    // Keys
    void deleteKeyInTreeAsksAndDeletes();
    void f5RefreshesAndClicksTwice();
    void treeSwallowsKeysOnTheWayDown();

    // Toolbar
    void toolbarButtonsInOrderWithTips();
    void btnHelpSendsF1();
    void btnEditOnMusicFileIsRefused_data();
    void btnEditOnMusicFileIsRefused();
    void btnEditWithoutFileSaysNotAFile();
    void btnEditOpensFileWithSystemProgram();
    void btnRunInTreeRaisesToolBarButtonClicked();
    void btnRunInListDoesNothing();
    void btnRefreshKeepsSelection();
    void btnImportReportsFailureWithPrefix();
    void btnNewInListTakesTypeOfItemOrDoesNothing();

    // Delete
    void btnDeleteOnOneListItemUsesSingleBox();
    void btnDeleteOnTwoListItemsUsesPluralBox();
    void deleteRefusedChangesNothing();
    void deleteLandsOnPreviousSibling();
    void deleteLandsOnNextSiblingWhenFirst();
    void deletingOnlyItemOfGroupLandsOnNextGroup();
    void deletingOnlyItemOfOneGroupTreeLandsOnRoot();
    void deletingOnlyItemOfLastGroupLandsOnPreviousGroup();
    void deleteOfGroupFailsInConversion();
    void deleteMessageOfDataAccessIsShown();
    void deleteServiceItemsGoesOnAfterFailure();

    // Refresh, select, new
    void refreshViewInListSelectsAndClicksAgain();
    void selectServiceItemSelectsAndClicks();
    void selectServiceItemOfFilteredOutItemDoesNothing();
    void selectServiceItemInListDoesNothing();
    void newServiceItemCreatesSelectsAndRaises();

    // Nodes of the parent
    void hideServiceItemRemovesOneNodeAndEmptyGroup();
    void addServiceItemAddsNodeAndMissingGroup();

    // Export and print
    void printWithoutWordProcessorSaysSoEvenWithNothingSelected();
    void exportReportsFailureOfDataAccess();
};

// ---------------------------------------------------------------- Selection members

void tst_ctlServiceItemGallery_Commands::selectionMembersOfTreeItem() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    QCOMPARE(f.gallery->SelectedItemKey(), ItemKey(2, id));
    QCOMPARE(f.gallery->SelectedItemImage(), qint16(2));
    QCOMPARE(f.gallery->SelectedItemText(), QString("Psalm 23"));
    QCOMPARE(f.gallery->property("SelectedItemKey").toString(), ItemKey(2, id));
}

void tst_ctlServiceItemGallery_Commands::selectionMembersWithNothingSelected() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.gallery->SelectedItemKey(), QString());
    QCOMPARE(f.gallery->SelectedItemImage(), qint16(0));
    QCOMPARE(f.gallery->SelectedItemText(), QString());
    QCOMPARE(f.gallery->SelectedServiceItems(), QString());
}

void tst_ctlServiceItemGallery_Commands::selectedItemImageOfFolderIsTypeMismatch() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems("Type;2");
    f.platform.QueueAnswer(vbOK);
    QCOMPARE(f.gallery->SelectedItemImage(), qint16(0));
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("QVLTCONTROLS:ctlServiceItemGallery:SelectedItemImage : Error number is 13, "
                     "Type mismatch"));
    QCOMPARE(f.platform.LastBox().Title, QString("Error"));
}

void tst_ctlServiceItemGallery_Commands::selectionMembersOfListItem() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    QCOMPARE(f.gallery->SelectedItemKey(), QString("SI;%1").arg(id));
    QCOMPARE(f.gallery->SelectedItemImage(), qint16(2));
    QCOMPARE(f.gallery->SelectedItemText(), QString("Psalm 23"));
}

void tst_ctlServiceItemGallery_Commands::selectedServiceItemsOfTreeItemAndGroup() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    QCOMPARE(f.gallery->SelectedServiceItems(), QString::number(id));
    f.gallery->ShowServiceItems("Type;2");
    QCOMPARE(f.gallery->SelectedServiceItems(), QString());
    f.gallery->ShowServiceItems("Root");
    QCOMPARE(f.gallery->SelectedServiceItems(), QString());
}

void tst_ctlServiceItemGallery_Commands::selectedServiceItemsOfSeveralListItems() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 24") > 0);
    const qint32 c = f.Item(TestDatabase::Prayer, "Collect");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(a));
    f.CtrlClickNode(f.List(), QString("SI;%1").arg(c));
    // In the list's order: newest first.
    QCOMPARE(f.gallery->SelectedServiceItems(), QString("%1,%2").arg(c).arg(a));
}

// ---------------------------------------------------------------- Clicks

void tst_ctlServiceItemGallery_Commands::clickOnItemNodeEnablesButtonsAndRaisesItsId() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems("Root");
    QCOMPARE(f.Button("btnRun")->isEnabled(), false);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.ClickNode(f.Tree(), ItemKey(2, id));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(Args(clicked.at(0)), QStringList({QString::number(id), "Psalm 23", "", "", "SI"}));
    QCOMPARE(ItemButtonStates(f), QStringList({"btnRun=1", "btnDelete=1", "btnProperties=1",
                                               "btnPrint=1", "btnEdit=1", "btnExport=1"}));
}

void tst_ctlServiceItemGallery_Commands::clickOnRootRaisesAll() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.ClickNode(f.Tree(), "Root");
    QCOMPARE(Args(clicked.at(0)), QStringList({"All", "All Service Items", "", "", "SIGroup"}));
}

void tst_ctlServiceItemGallery_Commands::clickOnGroupRaisesIdsOfItsChildren() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Bravo");
    const qint32 b = f.Item(TestDatabase::Prayer, "Alpha");
    f.gallery->ShowServiceItems();
    f.Button("btnExport")->setEnabled(false);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.ClickNode(f.Tree(), "Type;1");
    QCOMPARE(Args(clicked.at(0)),
             QStringList({QString("%1,%2").arg(b).arg(a), "Service Items for Type: Prayer", "", "",
                          "SIGroup"}));
    // btnExport is not touched by the tree.
    QCOMPARE(ItemButtonStates(f), QStringList({"btnRun=0", "btnDelete=0", "btnProperties=0",
                                               "btnPrint=0", "btnEdit=0", "btnExport=0"}));
}

void tst_ctlServiceItemGallery_Commands::clickOnGroupWithoutChildShowsErrorBox() {
    GalleryFixture f(1);
    QVERIFY(f.Item(TestDatabase::Reading, "Older") > 0);
    QVERIFY(f.Item(TestDatabase::Prayer, "Newer") > 0);
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Nodes(QString("Type;2")).Children(), 0);
    f.platform.QueueAnswer(vbOK);
    f.ClickNode(f.Tree(), "Type;2");
    QCOMPARE(
        f.platform.LastBox().Prompt,
        QString("QVLTCONTROLS:ctlServiceItemGallery:tvwServiceItems_NodeClick: Error number is "
                "91, Object variable or With block variable not set"));
}

void tst_ctlServiceItemGallery_Commands::clickGivesQuickFilterTheFocus() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems();
    f.gallery->activateWindow();
    QTRY_VERIFY(f.gallery->isActiveWindow());
    f.ClickNode(f.Tree(), ItemKey(2, id));
    QTRY_VERIFY(f.gallery->txtQuickFilter->hasFocus());
}

void tst_ctlServiceItemGallery_Commands::clickOnListItemRaisesItsIdAndLeavesEditAlone() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    for (const char* key :
         {"btnRun", "btnDelete", "btnProperties", "btnPrint", "btnExport", "btnEdit"})
        f.Button(key)->setEnabled(false);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    QCOMPARE(Args(clicked.at(0)), QStringList({QString::number(id), "Psalm 23", "", "", "SI"}));
    QCOMPARE(ItemButtonStates(f), QStringList({"btnRun=1", "btnDelete=1", "btnProperties=1",
                                               "btnPrint=1", "btnEdit=0", "btnExport=1"}));
}

void tst_ctlServiceItemGallery_Commands::twoSelectedListItemsSwitchOffSingleItemButtonsOnly() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 24");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(a));
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.CtrlClickNode(f.List(), QString("SI;%1").arg(b));
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(ItemButtonStates(f), QStringList({"btnRun=0", "btnDelete=1", "btnProperties=0",
                                               "btnPrint=0", "btnEdit=1", "btnExport=1"}));
}

void tst_ctlServiceItemGallery_Commands::selectingTwoListItemsAndPressingBtnRunDoesNothing() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 24");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(a));
    f.CtrlClickNode(f.List(), QString("SI;%1").arg(b));
    QSignalSpy toolbar(f.gallery.get(), &ctlServiceItemGallery::ToolBarButtonClicked);
    f.Button("btnRun")->trigger(); // disabled
    f.Press("btnRun");             // and pressed all the same
    QCOMPARE(toolbar.count(), 0);
    QCOMPARE(f.platform.BoxCount(), 0);
}

// ---------------------------------------------------------------- Double-clicks

void tst_ctlServiceItemGallery_Commands::doubleClickOnTreeItemRaisesItsId() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems();
    QSignalSpy dbl(f.gallery.get(), &ctlServiceItemGallery::SIDblClicked);
    f.DoubleClickNode(f.Tree(), ItemKey(2, id));
    QCOMPARE(dbl.count(), 1);
    QCOMPARE(dbl.at(0).at(0).toInt(), id);
    QCOMPARE(f.platform.BoxCount(), 0);
}

void tst_ctlServiceItemGallery_Commands::doubleClickOnGroupDoesNothing() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems();
    QSignalSpy dbl(f.gallery.get(), &ctlServiceItemGallery::SIDblClicked);
    f.DoubleClickNode(f.Tree(), "Type;2");
    QCOMPARE(dbl.count(), 0);
}

void tst_ctlServiceItemGallery_Commands::doubleClickInListWithId1234RunsId34() {
    GalleryFixture f;
    QVERIFY(f.db.Exec("INSERT INTO ServiceItems (ServiceItemID, ServiceItemTypeID, "
                      "ServiceItemDescription, ServiceItemDateCreated) VALUES (1234, 2, 'Psalm', "
                      "'2020-01-01 10:00:00')"));
    f.gallery->optShowAsList->setChecked(true);
    QSignalSpy dbl(f.gallery.get(), &ctlServiceItemGallery::SIDblClicked);
    // The run of item 34 is asked of the data library, which has no such item and says so.
    f.platform.QueueAnswer(vbOK);
    f.DoubleClickNode(f.List(), "SI;1234");
    QCOMPARE(dbl.count(), 0);
    QCOMPARE(f.platform.BoxCount(), 1);
    QVERIFY(f.platform.LastBox().Prompt.startsWith("lvwServiceItems_DblClick: "));
    QVERIFY(f.Trace().contains("ERROR: lvwServiceItems_DblClick: "));
}

void tst_ctlServiceItemGallery_Commands::doubleClickInListWithId7Fails() {
    GalleryFixture f;
    QVERIFY(f.db.Exec("INSERT INTO ServiceItems (ServiceItemID, ServiceItemTypeID, "
                      "ServiceItemDescription, ServiceItemDateCreated) VALUES (7, 2, 'Psalm', "
                      "'2020-01-01 10:00:00')"));
    f.gallery->optShowAsList->setChecked(true);
    f.platform.QueueAnswer(vbOK);
    f.DoubleClickNode(f.List(), "SI;7");
    // ";7" does not convert to a number.
    QCOMPARE(f.platform.LastBox().Prompt, QString("Run-time error '13':\n\nType mismatch"));
}

void tst_ctlServiceItemGallery_Commands::doubleClickInListWithoutRunRaisesTypeId() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->setRunSIOnDblClick(false);
    f.gallery->optShowAsList->setChecked(true);
    QSignalSpy dbl(f.gallery.get(), &ctlServiceItemGallery::SIDblClicked);
    f.DoubleClickNode(f.List(), QString("SI;%1").arg(id));
    QCOMPARE(dbl.count(), 1);
    QCOMPARE(dbl.at(0).at(0).toInt(), 2); // the type id, not the item's id
}

// ---------------------------------------------------------------- Right button

void tst_ctlServiceItemGallery_Commands::rightClickOnItemNodeSelectsItOnlyWhileMenuIsUp() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 24");
    f.gallery->ShowServiceItems(ItemKey(2, a));
    const MenuSeen seen = RightClick(f.Tree(), ItemKey(2, b));
    QCOMPARE(seen.menu, QString("mnuRightCLick"));
    QCOMPARE(seen.selected, ItemKey(2, b));
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, a));
}

void tst_ctlServiceItemGallery_Commands::rightClickOnTypeGroupOffersNewWithTypeName() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems();
    const MenuSeen seen = RightClick(f.Tree(), "Type;2");
    QCOMPARE(seen.menu, QString("mnuRightClickType"));
    QCOMPARE(seen.caption, QString("&New Reading"));
    QVERIFY(f.Tree()->SelectedItem().IsNothing());
}

void tst_ctlServiceItemGallery_Commands::rightClickOnOtherGroupingOffersNewServiceItem() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23", QVariant(), "Psalms") > 0);
    f.gallery->cboGroupByProperty->setCurrentText("Source");
    f.gallery->ShowServiceItems();
    MenuSeen seen = RightClick(f.Tree(), "Source;Psalms");
    QCOMPARE(seen.menu, QString("mnuRightClickType"));
    QCOMPARE(seen.caption, QString("&New Service Item"));
    seen = RightClick(f.Tree(), "Root");
    QCOMPARE(seen.caption, QString("&New Service Item"));
}

void tst_ctlServiceItemGallery_Commands::rightClickOnListItemKeepsSelection() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 24");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(a));
    const MenuSeen seen = RightClick(f.List(), QString("SI;%1").arg(b));
    QCOMPARE(seen.menu, QString("mnuRightCLick"));
    QCOMPARE(seen.selected, QString("SI;%1").arg(a));
    QCOMPARE(f.List()->SelectedItem().Key(), QString("SI;%1").arg(a));
}

void tst_ctlServiceItemGallery_Commands::menusCarryTheirCaptions() {
    GalleryFixture f;
    QStringList captions;
    QStringList names;
    for (QAction* a : f.gallery->mnuRightCLick->actions()) {
        names << a->objectName();
        captions << (a->isSeparator() ? QString("-") : a->text());
    }
    QCOMPARE(names, QStringList({"mnuRightCLickNew", "mnuSIOpen", "mnuSIDelete", "mnuSIPrint",
                                 "mnuSISep1", "mnuSIExport"}));
    QCOMPARE(captions,
             QStringList({"&New Service Item", "&Run", "&Delete", "&Print", "-", "&Export"}));
    QCOMPARE(f.gallery->mnuRightClickTypeNew->objectName(), QString("mnuRightClickTypeNew"));
    QVERIFY(!f.gallery->mnuRightCLick->isVisible());
}

void tst_ctlServiceItemGallery_Commands::newFromTypeGroupMenuCreatesItemOfThatType() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems();
    QSignalSpy added(f.gallery.get(), &ctlServiceItemGallery::NewServiceItemAdded);
    RightClick(f.Tree(), "Type;2", "mnuRightClickTypeNew");
    QCOMPARE(added.count(), 1);
    const qint32 id = added.at(0).at(0).toInt();
    QCOMPARE(f.db.Scalar("SELECT ServiceItemTypeID FROM ServiceItems WHERE ServiceItemID = ?", {id})
                 .toInt(),
             2);
}

void tst_ctlServiceItemGallery_Commands::newFromItemMenuUnderTypeTakesItsType() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Creed, "Apostles' creed");
    f.gallery->ShowServiceItems(ItemKey(13, id));
    QSignalSpy added(f.gallery.get(), &ctlServiceItemGallery::NewServiceItemAdded);
    RightClick(f.Tree(), ItemKey(13, id), "mnuRightCLickNew");
    QCOMPARE(added.count(), 1);
    const qint32 created = added.at(0).at(0).toInt();
    QCOMPARE(
        f.db.Scalar("SELECT ServiceItemTypeID FROM ServiceItems WHERE ServiceItemID = ?", {created})
            .toInt(),
        13);
    // The new item's node was selected by the command; the menu gives the old node back.
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(13, id));
}

void tst_ctlServiceItemGallery_Commands::openFromMenuReportsRunFailure() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.platform.QueueAnswer(vbOK);
    RightClick(f.Tree(), ItemKey(2, id), "mnuSIOpen");
    QCOMPARE(f.platform.BoxCount(), 1);
    QVERIFY(f.platform.LastBox().Prompt.startsWith("mnuSIOpen_Click: "));
}

// ---------------------------------------------------------------- Keys

void tst_ctlServiceItemGallery_Commands::deleteKeyInTreeAsksAndDeletes() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.platform.QueueAnswer(vbYes);
    QTest::keyClick(f.Tree(), Qt::Key_Delete);
    QCOMPARE(f.platform.LastBox().Title, QString("Confirm Delete"));
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {id}), 0);
    QVERIFY(!f.Tree()->KeyExists(ItemKey(2, id)));
}

void tst_ctlServiceItemGallery_Commands::f5RefreshesAndClicksTwice() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    const qint32 later = f.Item(TestDatabase::Reading, "Psalm 24");
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    QTest::keyClick(f.Tree(), Qt::Key_F5);
    QVERIFY(f.Tree()->KeyExists(ItemKey(2, later)));
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, id));
    QCOMPARE(clicked.count(), 2);
}

void tst_ctlServiceItemGallery_Commands::treeSwallowsKeysOnTheWayDown() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Alpha");
    QVERIFY(f.Item(TestDatabase::Reading, "Beta") > 0);
    f.gallery->ShowServiceItems(ItemKey(2, a));
    QTest::keyClick(f.Tree(), Qt::Key_Down);
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, a));
}

// ---------------------------------------------------------------- Toolbar

void tst_ctlServiceItemGallery_Commands::toolbarButtonsInOrderWithTips() {
    GalleryFixture f;
    const QStringList keys = {"btnNew",   "btnRun",     "btnDelete", "btnEdit",   "btnProperties",
                              "btnPrint", "btnRefresh", "btnExport", "btnImport", "btnHelp"};
    const QStringList tips = {"Create a New Service Item",
                              "Run Selected Service Item",
                              "Delete Selected Service Item",
                              "Edit selected Service Item",
                              "View Properties of Selected Service Item",
                              "Run Print Wizard for Selected Service Item",
                              "Refresh list",
                              "Export Selected Service Item",
                              "Import a Service Item",
                              "Get Help"};
    QCOMPARE(f.gallery->Toolbar2->ButtonCount(), keys.size());
    for (int i = 0; i < keys.size(); ++i) {
        QCOMPARE(f.gallery->Toolbar2->Buttons(i + 1)->objectName(), keys.at(i));
        QCOMPARE(f.gallery->Toolbar2->Buttons(i + 1)->toolTip(), tips.at(i));
    }
    QVERIFY(f.gallery->imlToolBar->HasKey("imgNew"));
    QVERIFY(f.gallery->imlToolBar->HasKey("imgHelp"));
}

void tst_ctlServiceItemGallery_Commands::btnHelpSendsF1() {
    GalleryFixture f;
    f.Button("btnHelp")->trigger();
    QCOMPARE(f.platform.SentKeys(), QStringList({"{F1}"}));
}

void tst_ctlServiceItemGallery_Commands::btnEditOnMusicFileIsRefused_data() {
    QTest::addColumn<QString>("name");
    for (const char* n : {"hymn.mp3", "hymn.MP3", "hymn.Mp3", "bells.wav", "organ.MID"})
        QTest::newRow(n) << QString(n);
}

void tst_ctlServiceItemGallery_Commands::btnEditOnMusicFileIsRefused() {
    QFETCH(QString, name);
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Music, "Organ");
    QVERIFY(f.db.Exec("UPDATE ServiceItems SET ServiceItemFilename = ? WHERE ServiceItemID = ?",
                      {f.db.WriteContentFile(name), id}));
    f.gallery->ShowServiceItems(ItemKey(10, id));
    f.platform.QueueAnswer(vbOK);
    f.Button("btnEdit")->trigger();
    QCOMPARE(f.platform.LastBox().Title, QString("Invalid Selection"));
    QCOMPARE(f.platform.LastBox().Prompt, QString("You cannot edit music files"));
    QVERIFY(f.platform.ShellCalls().isEmpty());
}

void tst_ctlServiceItemGallery_Commands::btnEditWithoutFileSaysNotAFile() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.platform.QueueAnswer(vbOK);
    f.Button("btnEdit")->trigger();
    QCOMPARE(f.platform.LastBox().Title, QString("This Service Item is not a file"));
    QCOMPARE(
        f.platform.LastBox().Prompt,
        QString("The content of this Service Item is not a file. Try clicking on the 'Content' "
                "tab of the Service Item and try to edit the content there"));
    // Nothing selected: the same box.
    f.gallery->ShowServiceItems();
    f.platform.QueueAnswer(vbOK);
    f.Press("btnEdit");
    QCOMPARE(f.platform.BoxCount(), 2);
    QCOMPARE(f.platform.LastBox().Title, QString("This Service Item is not a file"));
}

void tst_ctlServiceItemGallery_Commands::btnEditOpensFileWithSystemProgram() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    const QString file = f.db.WriteContentFile("psalm.txt");
    QVERIFY(f.db.Exec("UPDATE ServiceItems SET ServiceItemFilename = ? WHERE ServiceItemID = ?",
                      {file, id}));
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.Button("btnEdit")->trigger();
    QCOMPARE(f.platform.ShellCalls().size(), 1);
    const ScriptedPlatform::ShellCall call = f.platform.ShellCalls().first();
    QCOMPARE(call.Verb, QString("Open"));
    QCOMPARE(call.File, file);
    QCOMPARE(call.Params, QString());
    QCOMPARE(call.Directory, QString());
    QCOMPARE(call.ShowCmd, 3);
}

void tst_ctlServiceItemGallery_Commands::btnRunInTreeRaisesToolBarButtonClicked() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    QSignalSpy toolbar(f.gallery.get(), &ctlServiceItemGallery::ToolBarButtonClicked);
    f.Button("btnRun")->trigger();
    QCOMPARE(toolbar.count(), 1);
    QCOMPARE(toolbar.at(0).at(0).toString(), QString("btnRun"));
    QCOMPARE(toolbar.at(0).at(1).toInt(), id);
}

void tst_ctlServiceItemGallery_Commands::btnRunInListDoesNothing() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    QSignalSpy toolbar(f.gallery.get(), &ctlServiceItemGallery::ToolBarButtonClicked);
    f.Button("btnRun")->trigger();
    QCOMPARE(toolbar.count(), 0);
}

void tst_ctlServiceItemGallery_Commands::btnRefreshKeepsSelection() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    const qint32 later = f.Item(TestDatabase::Reading, "Psalm 24");
    f.Button("btnRefresh")->trigger();
    QVERIFY(f.Tree()->KeyExists(ItemKey(2, later)));
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, id));
}

void tst_ctlServiceItemGallery_Commands::btnImportReportsFailureWithPrefix() {
    GalleryFixture f;
    QTemporaryDir dir;
    QFile picture(dir.filePath("photo.jpg"));
    QVERIFY(picture.open(QIODevice::WriteOnly));
    picture.write(QByteArray("\xff\xd8\xff\xe0\0\x10JFIF\0", 12));
    picture.close();
    f.platform.QueueOpenFile(picture.fileName());
    f.platform.QueueAnswer(vbOK);
    f.Button("btnImport")->trigger();
    QVERIFY(f.platform.LastBox().Prompt.startsWith(
        "QVLTCONTROLS:ctlServiceItemGallery:Toolbar2_ButtonClick: "));
    QVERIFY(f.Trace().contains("ERROR: QVLTCONTROLS:ctlServiceItemGallery:Toolbar2_ButtonClick: "));
}

void tst_ctlServiceItemGallery_Commands::btnNewInListTakesTypeOfItemOrDoesNothing() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Creed, "Nicene creed");
    f.gallery->optShowAsList->setChecked(true);
    QSignalSpy added(f.gallery.get(), &ctlServiceItemGallery::NewServiceItemAdded);
    f.Button("btnNew")->trigger();
    QCOMPARE(added.count(), 0);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    f.Button("btnNew")->trigger();
    QCOMPARE(added.count(), 1);
    QCOMPARE(f.db.Scalar("SELECT ServiceItemTypeID FROM ServiceItems WHERE ServiceItemID = ?",
                         {added.at(0).at(0)})
                 .toInt(),
             13);
}

// ---------------------------------------------------------------- Delete

void tst_ctlServiceItemGallery_Commands::btnDeleteOnOneListItemUsesSingleBox() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("Are you sure you want to delete this Service Item from your system? This "
                     "command cannot be undone."));
    QCOMPARE(f.platform.LastBox().Buttons, 291);
    QCOMPARE(f.platform.LastBox().Title, QString("Confirm Delete"));
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {id}), 0);
    QVERIFY(!f.List()->KeyExists(QString("SI;%1").arg(id)));
}

void tst_ctlServiceItemGallery_Commands::btnDeleteOnTwoListItemsUsesPluralBox() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 24");
    const qint32 keep = f.Item(TestDatabase::Reading, "Psalm 25");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(a));
    f.CtrlClickNode(f.List(), QString("SI;%1").arg(b));
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("Are you sure you want to delete these Service Items from your system? This "
                     "command cannot be undone."));
    QCOMPARE(f.platform.LastBox().Buttons, 291);
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID IN (?, ?)", {a, b}), 0);
    QVERIFY(f.List()->KeyExists(QString("SI;%1").arg(keep)));
    QCOMPARE(f.List()->topLevelItemCount(), 1);
}

void tst_ctlServiceItemGallery_Commands::deleteRefusedChangesNothing() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.platform.QueueAnswer(vbNo);
    QString strErrorMessage;
    f.gallery->DeleteServiceItem(id, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {id}), 1);
    QVERIFY(f.Tree()->Nodes(ItemKey(2, id)).Selected());
}

void tst_ctlServiceItemGallery_Commands::deleteLandsOnPreviousSibling() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Alpha");
    const qint32 b = f.Item(TestDatabase::Reading, "Beta");
    QVERIFY(f.Item(TestDatabase::Reading, "Gamma") > 0);
    f.gallery->ShowServiceItems(ItemKey(2, b));
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, a));
}

void tst_ctlServiceItemGallery_Commands::deleteLandsOnNextSiblingWhenFirst() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Alpha");
    const qint32 b = f.Item(TestDatabase::Reading, "Beta");
    f.gallery->ShowServiceItems(ItemKey(2, a));
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, b));
}

void tst_ctlServiceItemGallery_Commands::deletingOnlyItemOfGroupLandsOnNextGroup() {
    GalleryFixture f;
    const qint32 prayer = f.Item(TestDatabase::Prayer, "Collect");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm") > 0);
    QVERIFY(f.Item(TestDatabase::Announcement, "Notices") > 0);
    f.gallery->ShowServiceItems(ItemKey(1, prayer));
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    // Groups sort as Announcement, Prayer, Reading: the next group is Reading.
    QCOMPARE(f.Tree()->SelectedItem().Key(), QString("Type;2"));
    QVERIFY(!f.Tree()->KeyExists("Type;1"));
    QCOMPARE(Args(clicked.last()).at(4), QString("SIGroup"));
}

void tst_ctlServiceItemGallery_Commands::deletingOnlyItemOfOneGroupTreeLandsOnRoot() {
    GalleryFixture f;
    const qint32 prayer = f.Item(TestDatabase::Prayer, "Collect");
    f.gallery->ShowServiceItems(ItemKey(1, prayer));
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {prayer}), 0);
    // The Blank item's row still makes the root, which is all that is left.
    QCOMPARE(GalleryFixture::Keys(f.Tree()), QStringList({"Root"}));
    QCOMPARE(f.Tree()->SelectedItem().Key(), QString("Root"));
    QCOMPARE(Args(clicked.last()), QStringList({"All", "All Service Items", "", "", "SIGroup"}));
}

void tst_ctlServiceItemGallery_Commands::deletingOnlyItemOfLastGroupLandsOnPreviousGroup() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Collect") > 0);
    const qint32 reading = f.Item(TestDatabase::Reading, "Psalm");
    QVERIFY(reading > 0);
    f.gallery->ShowServiceItems(ItemKey(2, reading));
    f.platform.QueueAnswer(vbYes);
    f.Button("btnDelete")->trigger();
    // Groups sort as Prayer, Reading: the last group has no next, so the previous.
    QVERIFY(!f.Tree()->KeyExists("Type;2"));
    QCOMPARE(f.Tree()->SelectedItem().Key(), QString("Type;1"));
}

void tst_ctlServiceItemGallery_Commands::deleteOfGroupFailsInConversion() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Prayer, "Collect");
    f.gallery->ShowServiceItems("Type;1");
    f.platform.QueueAnswer(vbOK);
    f.Press("btnDelete");
    QCOMPARE(
        f.platform.LastBox().Prompt,
        QString("QVLTCONTROLS:ctlServiceItemGallery:Toolbar2_ButtonClick : Error number is 13, "
                "Type mismatch"));
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {id}), 1);
}

void tst_ctlServiceItemGallery_Commands::deleteMessageOfDataAccessIsShown() {
    GalleryFixture f;
    f.platform.QueueAnswer(vbYes);
    f.platform.QueueAnswer(vbOK);
    QString strErrorMessage;
    f.gallery->DeleteServiceItem(1, strErrorMessage);
    QVERIFY(!strErrorMessage.isEmpty());
    QCOMPARE(f.platform.BoxCount(), 2);
    QCOMPARE(f.platform.LastBox().Prompt, strErrorMessage);
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = 1"), 1);
}

void tst_ctlServiceItemGallery_Commands::deleteServiceItemsGoesOnAfterFailure() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems();
    f.platform.QueueAnswer(vbYes);
    f.platform.QueueAnswer(vbOK);
    QString strErrorMessage;
    f.gallery->DeleteServiceItems(QString("1;%1").arg(a), strErrorMessage);
    QVERIFY(!strErrorMessage.isEmpty());
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID = ?", {a}), 0);
    QCOMPARE(f.platform.Boxes().at(0).Prompt,
             QString("Are you sure you want to delete these Service Items from your system? This "
                     "command cannot be undone."));
    QCOMPARE(f.platform.LastBox().Prompt, strErrorMessage);
    QVERIFY(f.Trace().contains("ERROR: DeleteServiceItems:" + strErrorMessage));
    // No refresh after a failure: the deleted item's node is still there.
    QVERIFY(f.Tree()->KeyExists(ItemKey(2, a)));
}

// ---------------------------------------------------------------- Refresh, select, new

void tst_ctlServiceItemGallery_Commands::refreshViewInListSelectsAndClicksAgain() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QString("SI;%1").arg(id));
    const qint32 later = f.Item(TestDatabase::Reading, "Psalm 24");
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.gallery->RefreshView();
    QVERIFY(f.List()->KeyExists(QString("SI;%1").arg(later)));
    QVERIFY(f.List()->Nodes(QString("SI;%1").arg(id)).Selected());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(Args(clicked.at(0)), QStringList({QString::number(id), "Psalm 23", "", "", "SI"}));
}

void tst_ctlServiceItemGallery_Commands::selectServiceItemSelectsAndClicks() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    // 12 would also be found inside 123 without the closing comma.
    QVERIFY(f.db.Exec("INSERT INTO ServiceItems (ServiceItemID, ServiceItemTypeID, "
                      "ServiceItemDescription, ServiceItemDateCreated) VALUES (123, 2, 'Other', "
                      "'2030-01-01 10:00:00')"));
    f.gallery->ShowServiceItems();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    QString strErrorMessage;
    f.gallery->SelectServiceItem(a, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(2, a));
    QCOMPARE(clicked.count(), 1);
}

void tst_ctlServiceItemGallery_Commands::selectServiceItemOfFilteredOutItemDoesNothing() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(f.Item(TestDatabase::Prayer, "Collect") > 0);
    f.gallery->txtQuickFilter->setText("Collect");
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.gallery->SelectServiceItem(a);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(f.Tree()->SelectedItem().IsNothing());
    QCOMPARE(f.platform.BoxCount(), 0);
}

void tst_ctlServiceItemGallery_Commands::selectServiceItemInListDoesNothing() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->optShowAsList->setChecked(true);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.gallery->SelectServiceItem(a);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(f.List()->SelectedItem().IsNothing());
}

void tst_ctlServiceItemGallery_Commands::newServiceItemCreatesSelectsAndRaises() {
    GalleryFixture f;
    f.gallery->ShowServiceItems();
    QSignalSpy added(f.gallery.get(), &ctlServiceItemGallery::NewServiceItemAdded);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.gallery->NewServiceItem(TestDatabase::Announcement);
    QCOMPARE(added.count(), 1);
    const qint32 id = added.at(0).at(0).toInt();
    QVERIFY(id > 1);
    QCOMPARE(f.db.Scalar("SELECT ServiceItemTypeID FROM ServiceItems WHERE ServiceItemID = ?", {id})
                 .toInt(),
             14);
    QCOMPARE(f.Tree()->SelectedItem().Key(), ItemKey(14, id));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(Args(clicked.at(0)).at(0), QString::number(id));
}

// ---------------------------------------------------------------- Nodes of the parent

void tst_ctlServiceItemGallery_Commands::hideServiceItemRemovesOneNodeAndEmptyGroup() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 c = f.Item(TestDatabase::Prayer, "Grace");
    f.gallery->ShowServiceItems();
    QVariant which;
    f.gallery->HideServiceItem(which, a);
    QCOMPARE(which.toString(), ItemKey(2, a));
    QVERIFY(!f.Tree()->KeyExists(ItemKey(2, a)));
    QVERIFY(!f.Tree()->KeyExists("Type;2"));
    f.gallery->HideServiceItem(ItemKey(1, b));
    QVERIFY(!f.Tree()->KeyExists(ItemKey(1, b)));
    QVERIFY(f.Tree()->KeyExists("Type;1"));
    QVERIFY(f.Tree()->KeyExists(ItemKey(1, c)));
    QCOMPARE(f.db.Count("ServiceItems", "ServiceItemID IN (?, ?)", {a, b}), 2);
}

void tst_ctlServiceItemGallery_Commands::addServiceItemAddsNodeAndMissingGroup() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    const qint32 b = f.Item(TestDatabase::Prayer, "Collect");
    f.gallery->ShowServiceItems();
    f.gallery->HideServiceItem(QString(), b);
    QVERIFY(!f.Tree()->KeyExists("Type;1"));
    f.gallery->AddServiceItem("Type;1", ItemKey(1, b), "Collect", 1);
    QCOMPARE(f.Tree()->Nodes(QString("Type;1")).Text(), QString("Prayer"));
    QCOMPARE(f.Tree()->Nodes(QString("Type;1")).Tag().toString(), QString("Type"));
    QCOMPARE(f.Tree()->Nodes(ItemKey(1, b)).Parent().Key(), QString("Type;1"));
    QCOMPARE(f.Tree()->Nodes(ItemKey(1, b)).Image().toInt(), 1);
    f.gallery->AddServiceItem("Type;2", "Type;2;;SI;999", "Extra", 2);
    QCOMPARE(f.Tree()->Nodes(QString("Type;2")).Children(), 2);
    QVERIFY(f.Tree()->KeyExists(ItemKey(2, a)));
    QCOMPARE(f.platform.BoxCount(), 0);
}

// ---------------------------------------------------------------- Export and print

void tst_ctlServiceItemGallery_Commands::printWithoutWordProcessorSaysSoEvenWithNothingSelected() {
    GalleryFixture f;
    WithoutSheetFolder cannotPrint;
    f.gallery->ShowServiceItems();
    f.platform.QueueAnswer(vbOK);
    f.Press("btnPrint");
    QCOMPARE(f.platform.LastBox().Title, QString("Microsoft Word NOT installed"));
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("Microsoft Word 97 or later cannot be found on this computer. To avail of the "
                     "reporting features of Corvantis you must install it"));
}

void tst_ctlServiceItemGallery_Commands::exportReportsFailureOfDataAccess() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(ItemKey(2, id));
    f.platform.QueueSaveFile("/dev/null/no-folder/Psalm 23.cvx");
    f.platform.QueueAnswer(vbOK);
    f.Button("btnExport")->trigger();
    QVERIFY(f.platform.LastBox().Prompt.startsWith(
        "QVLTCONTROLS:ctlServiceItemGallery:ExportSelection : "));
}

QTEST_MAIN(tst_ctlServiceItemGallery_Commands)
#include "tst_ctlServiceItemGallery_Commands.moc"
