// The service gallery: its keys, groups, list, main filter, clicks, menus,
// toolbar, new, delete, refresh, select, export, print and import.

#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "TraceFile.h"
#include "WithoutSheetFolder.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceGallery.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

namespace {

// A fresh database, the scripted platform and a shown gallery on top of them.
struct ServiceGalleryFixture {
    TestDatabase db;
    ScriptedPlatform platform;
    std::unique_ptr<ctlServiceGallery> gallery;

    ServiceGalleryFixture() {
        gallery = std::make_unique<ctlServiceGallery>();
        gallery->resize(600, 500);
        gallery->show();
        (void)QTest::qWaitForWindowExposed(gallery.get());
    }

    // A service with exactly these fields (a null QVariant stores Null); 0 on failure.
    qint32 Service(const QVariant& name, const QVariant& type, const QVariant& theme = QVariant(),
                   const QVariant& provider = QVariant(),
                   const QVariant& created = QStringLiteral("2024-03-10 10:00:00")) {
        const qint32 id = db.AddService(QStringLiteral("x"));
        if (id == 0)
            return 0;
        const bool ok =
            db.Exec(QStringLiteral("UPDATE Services SET ServiceName = ?, "
                                   "ServiceType = ?, ServiceTheme = ?, "
                                   "ServiceProvider = ?, ServiceDateCreated = ? "
                                   "WHERE ServiceID = ?"),
                    {Null(name), Null(type), Null(theme), Null(provider), Null(created), id});
        return ok ? id : 0;
    }
    static QVariant Null(const QVariant& v) {
        return v.isNull() ? QVariant(QMetaType::fromType<QString>()) : v;
    }

    VBTreeWidget* Tree() const { return gallery->tvwServices; }
    VBTreeWidget* List() const { return gallery->lvwServices; }
    QAction* Button(const QString& key) const { return gallery->Toolbar2->Buttons(key); }
    void ShowAsList() { gallery->optShowAsList->setChecked(true); }
    void GroupBy(const QString& caption) { gallery->cboGroupByProperty->setCurrentText(caption); }

    static QStringList Keys(VBTreeWidget* view) {
        QStringList keys;
        for (qint32 i = 1; i <= view->Count(); ++i)
            keys << view->Nodes(i).Key();
        return keys;
    }
    void ClickNode(VBTreeWidget* view, const QString& key) {
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->visualItemRect(item).center());
    }
    void CtrlClickNode(VBTreeWidget* view, const QString& key) {
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          view->visualItemRect(item).center());
    }
    void Press(const QString& key) { Button(key)->trigger(); }
};

QStringList Args(const QList<QVariant>& emission) {
    QStringList texts;
    for (const QVariant& v : emission)
        texts << v.toString();
    return texts;
}

// Right-clicks at a point of a view's viewport; while the menu is up, notes its
// name and captions and the selection, then closes it or runs the named command.
struct MenuSeen {
    QString menu;
    QStringList captions;
    QString selected;
};
MenuSeen RightClickAt(VBTreeWidget* view, const QPoint& at, const QString& command = QString()) {
    MenuSeen seen;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        seen.menu = menu->objectName();
        for (QAction* a : menu->actions())
            seen.captions << a->text();
        const VBNode selected = view->SelectedItem();
        seen.selected = selected ? selected.Key() : QString();
        menu->close();
        for (QAction* a : menu->actions())
            if (!command.isEmpty() && a->objectName() == command)
                a->trigger();
    });
    QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier, at);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, Qt::NoModifier, at);
    return seen;
}
MenuSeen RightClick(VBTreeWidget* view, const QString& key, const QString& command = QString()) {
    QTreeWidgetItem* item = view->Nodes(key).Item();
    view->scrollToItem(item);
    return RightClickAt(view, view->visualItemRect(item).center(), command);
}

QString Key(const QString& group, qint32 id) {
    return QStringLiteral("%1;;Service;%2").arg(group).arg(id);
}

} // namespace

class tst_ctlServiceGallery : public QObject {
    Q_OBJECT

private slots:
    // Widgets and members
    void childWidgetsCarryTheirNames();
    void combosOfferTheirWordsInOrder();
    void toolbarKeepsTheItemGallerysTips();
    void menusCarryTheirCaptions();
    void descriptionAndCanUnload();
    void listHasSixColumnsOfEqualWidth();

    // Loading and groups
    void treeGroupsByTypeWithServiceKeys();
    void groupsOfThemeAndCreatedByReadTheirFields();
    void yearCreatedGroupsByTheYear();
    void yearCreatedGroupsServiceWithoutDateUnderNoYearCreated();
    void monthAndYearCreatedGroupsByMonthNameAndYear();
    void nullGroupFieldGivesNoGroupBy();
    void serviceWithoutNameShowsThemeInTreeAndEmptyFirstColumnInList();
    void storedApostropheIsDecoded();
    void listRowsCarryKeyTagPictureAndColumns();
    void keyToSelectIsSelectedAndClicked();
    void loadServicesFillsListWithItsOwnColumns();

    // Main filter
    void criterionAppliesAfterTimer1WithFilterWords();
    void filterIdsAreRaisedWhenPanelIsOpen();
    void criterionWithoutPropertyClearsTree();
    void createdByFilterReadsServiceCreatedByAndShowsMessage();
    void apostropheKeyTakesBackWhatItTyped();
    void panelOpensAndClosesAtItsOwnPlaces();

    // Clicks
    void clickOnServiceRaisesItsIdAndEnablesButtons();
    void clickOnRootAndGroupRaiseServiceGroup();
    void secondClickOnSameNodeIsSilentUntilSelectService();
    void filterCheckEmptiesLastClickedKeyAndKeepsItemWords();
    void listClickRaisesTypeAsDescription();
    void twoSelectedListItemsLeaveOnlyDeleteAndExport();
    void doubleClicksRaiseTheId();

    // Right button
    void rightClickOnServiceOffersServiceMenuAndRestoresSelection();
    void rightClickOnGroupOffersTypeMenu();
    void rightClickOverEmptySpaceInTreePopsUpTypeMenu();
    void rightClickOnListItemOffersServiceMenu();

    // Toolbar and menus
    void btnNewAndMenuNewCreateSelectAndRaise();
    void btnOpenRaisesIdFromTreeEvenInListView();
    void btnHelpSendsF1();
    void btnDeleteInTreeAsksAndLandsOnPreviousSibling();
    void btnDeleteInTreeOfFirstChildLandsOnGroup();
    void singleListDeleteThroughToolbarAsksNothingAndLeavesRow();
    void singleListDeleteThroughMenuAsksAndRefreshes();
    void severalListDeletesAskOnceInPlural();
    void menuDeleteInTreeAsksAndKeepsNoLanding();
    void refusedDeleteChangesNothing();
    void btnPrintShortCutsInListEndsInErrorBox();
    void btnPrintShortCutsInTreeShowsTheSheet();
    void btnImportWritesMessageToErrorLineOnly();

    // Refresh, select, hide, add
    void refreshViewReselectsByPosition();
    void selectServiceInListSelectsNothing();
    void hideServiceLeavesEmptyParent();
    void addServiceWithoutParentShowsFullErrorBox();

    // Export and print
    void printInListViewPrintsTreesLastSelection();
    void printWithoutWordProcessorSaysSo();
    void exportReportsDataLibraryMessageWithPrefix();
};

// ---------------------------------------------------------------- Widgets and members

void tst_ctlServiceGallery::childWidgetsCarryTheirNames() {
    ServiceGalleryFixture f;
    for (const char* name :
         {"tvwServices", "lvwServices", "fraShowAs", "optShowAsTree", "optShowAsList",
          "cboGroupByProperty", "cmdShowHideFilter", "fraFilter", "cboProperty", "cboOperator",
          "txtCriterion", "lblFilterState", "Toolbar2", "mnuRightClick", "mnuRightClickType"})
        QVERIFY2(f.gallery->findChild<QObject*>(name), name);
    QVERIFY(f.gallery->findChild<QTimer*>("Timer1"));
    QCOMPARE(f.gallery->Timer1->interval(), 1000);
    QVERIFY(f.gallery->Timer1->isSingleShot());
    // No quick filter, no short list, no status bar.
    QVERIFY(!f.gallery->findChild<QObject*>("txtQuickFilter"));
    QVERIFY(!f.gallery->findChild<QObject*>("optShortList"));
    QVERIFY(!f.gallery->findChild<QObject*>("StatusBar1"));
    QCOMPARE(f.gallery->fraFilter->title(), QString("Filter Services Where:"));
    QCOMPARE(f.gallery->ImageList1->Key(3), QString("imgService"));
    QVERIFY(f.gallery->ImageList1->HasKey("imgFolderClosed"));
    QVERIFY(f.gallery->ImageList1->HasKey("imgFolderOpen"));
}

void tst_ctlServiceGallery::combosOfferTheirWordsInOrder() {
    ServiceGalleryFixture f;
    QStringList groups;
    for (int i = 0; i < f.gallery->cboGroupByProperty->count(); ++i)
        groups << f.gallery->cboGroupByProperty->itemText(i);
    QCOMPARE(groups,
             QStringList({"Type", "Theme", "Created By", "Year Created", "Month & Year Created"}));
    QStringList properties;
    for (int i = 0; i < f.gallery->cboProperty->count(); ++i)
        properties << f.gallery->cboProperty->itemText(i);
    QCOMPARE(properties, QStringList({"Name", "Type", "Theme", "Created By"}));
    QCOMPARE(f.gallery->cboOperator->count(), 4);
}

void tst_ctlServiceGallery::toolbarKeepsTheItemGallerysTips() {
    ServiceGalleryFixture f;
    const QList<QPair<QString, QString>> expected = {
        {"btnNew", "Create a New Service Item"},
        {"btnOpen", "Open Selected Service Item"},
        {"btnDelete", "Delete Selected Service Item"},
        {"btnProperties", "View Properties of Selected Service Item"},
        {"btnPrint", "Run Print Wizard for Selected Service Item"},
        {"btnPrintShortCuts", "Print Short-cuts for this Service"},
        {"btnExport", "Export Selected Service Item"},
        {"btnImport", "Import a Service Item"},
        {"btnHelp", "Get Help"}};
    for (qsizetype i = 0; i < expected.size(); ++i) {
        QAction* button = f.gallery->Toolbar2->Buttons(qint32(i + 1));
        QCOMPARE(button->objectName(), expected.at(i).first);
        QCOMPARE(button->toolTip(), expected.at(i).second);
    }
}

void tst_ctlServiceGallery::menusCarryTheirCaptions() {
    ServiceGalleryFixture f;
    QStringList captions;
    for (QAction* a : f.gallery->mnuRightClick->actions())
        captions << a->objectName() + "=" + a->text();
    QCOMPARE(captions,
             QStringList({"mnuRightCLickNew=&New Service", "mnuServiceRun=&Run",
                          "mnuServiceDelete=&Delete", "mnuServicePrint=&Print",
                          "mnuSISep1=", "mnuSICopy=&Create copy", "mnuSIExport=&Export"}));
    captions.clear();
    for (QAction* a : f.gallery->mnuRightClickType->actions())
        captions << a->objectName() + "=" + a->text();
    QCOMPARE(captions, QStringList({"mnuRightClickTypeNew=&New Service",
                                    "mnuRightClickTypeFind=&Find a Service",
                                    "mnuRightClickExport=&Export Selection"}));
}

void tst_ctlServiceGallery::descriptionAndCanUnload() {
    ServiceGalleryFixture f;
    QCOMPARE(f.gallery->Description(), QString("ServiceGalleryControl"));
    QVERIFY(f.gallery->CanUnload());
}

void tst_ctlServiceGallery::listHasSixColumnsOfEqualWidth() {
    ServiceGalleryFixture f;
    QTreeWidgetItem* header = f.List()->headerItem();
    QStringList captions;
    for (int i = 0; i < header->columnCount(); ++i)
        captions << header->text(i);
    QCOMPARE(captions, QStringList({"Name", "Type", "Theme", "Date Created", "Date last delivered",
                                    "Provider"}));
}

// ---------------------------------------------------------------- Loading and groups

void tst_ctlServiceGallery::treeGroupsByTypeWithServiceKeys() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter Morning", "Festival", "Resurrection");
    const qint32 b = f.Service("Advent 1", "Seasonal", "Waiting");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices();
    QCOMPARE(f.Tree()->Nodes(QString("Root")).Text(), QString("Services"));
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", a)));
    QVERIFY(f.Tree()->KeyExists(Key("Type;Seasonal", b)));
    QCOMPARE(f.Tree()->Nodes(QString("Type;Festival")).Text(), QString("Festival"));
    QCOMPARE(f.Tree()->Nodes(QString("Type;Festival")).Tag().toString(), QString("Type"));
    QCOMPARE(f.Tree()->Nodes(Key("Type;Festival", a)).Text(), QString("Easter Morning"));
    QCOMPARE(f.Tree()->Nodes(Key("Type;Festival", a)).Image().toInt(), 3);
    // Fewer than 20 nodes: every folder is open.
    QVERIFY(f.Tree()->Nodes(QString("Type;Seasonal")).Expanded());
}

void tst_ctlServiceGallery::groupsOfThemeAndCreatedByReadTheirFields() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter Morning", "Festival", "Resurrection", "Rev. Jones");
    QVERIFY(a > 0);
    f.GroupBy("Theme");
    QVERIFY(f.Tree()->KeyExists(Key("Theme;Resurrection", a)));
    // "Created By" groups by the provider.
    f.GroupBy("Created By");
    QVERIFY(f.Tree()->KeyExists(Key("Created By;Rev. Jones", a)));
    QCOMPARE(f.Tree()->Nodes(QString("Created By;Rev. Jones")).Text(), QString("Rev. Jones"));
}

void tst_ctlServiceGallery::yearCreatedGroupsByTheYear() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival", QVariant(), QVariant(), "2023-04-09 09:00:00");
    const qint32 b = f.Service("Advent", "Seasonal", QVariant(), QVariant(), "2024-12-01 09:00:00");
    QVERIFY(a > 0 && b > 0);
    f.GroupBy("Year Created");
    QVERIFY(f.Tree()->KeyExists(Key("Year Created;2023", a)));
    QVERIFY(f.Tree()->KeyExists(Key("Year Created;2024", b)));
    QCOMPARE(f.Tree()->Nodes(QString("Year Created;2024")).Text(), QString("2024"));
}

// The store insists on a creation date; an empty one is a service without a date.
void tst_ctlServiceGallery::yearCreatedGroupsServiceWithoutDateUnderNoYearCreated() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Undated", "Festival", QVariant(), QVariant(), QString(""));
    QVERIFY(a > 0);
    f.GroupBy("Year Created");
    QVERIFY(f.Tree()->KeyExists(Key("Year Created;0", a)));
    QCOMPARE(f.Tree()->Nodes(QString("Year Created;0")).Text(), QString("No Year Created"));
}

void tst_ctlServiceGallery::monthAndYearCreatedGroupsByMonthNameAndYear() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival", QVariant(), QVariant(), "2024-03-31 09:00:00");
    QVERIFY(a > 0);
    f.GroupBy("Month & Year Created");
    QVERIFY(f.Tree()->KeyExists(Key("Month & Year Created;March 2024", a)));
    QCOMPARE(f.Tree()->Nodes(QString("Month & Year Created;March 2024")).Text(),
             QString("March 2024"));
}

void tst_ctlServiceGallery::nullGroupFieldGivesNoGroupBy() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Plain", QVariant(), QVariant());
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QVERIFY(f.Tree()->KeyExists(Key("Type;0", a)));
    QCOMPARE(f.Tree()->Nodes(QString("Type;0")).Text(), QString("No Type"));
    f.GroupBy("Theme");
    QCOMPARE(f.Tree()->Nodes(QString("Theme;0")).Text(), QString("No Theme"));
}

void tst_ctlServiceGallery::serviceWithoutNameShowsThemeInTreeAndEmptyFirstColumnInList() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service(QVariant(), "Festival", "Harvest");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QCOMPARE(f.Tree()->Nodes(Key("Type;Festival", a)).Text(), QString("Harvest Service"));
    f.ShowAsList();
    const VBNode item = f.List()->Nodes(QString("Service;%1").arg(a));
    QVERIFY(item);
    QCOMPARE(item.Text(), QString());
    QCOMPARE(item.SubItems(2), QString("Harvest"));
}

void tst_ctlServiceGallery::storedApostropheIsDecoded() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Mothering Sunday@@s Praise", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QCOMPARE(f.Tree()->Nodes(Key("Type;Festival", a)).Text(), QString("Mothering Sunday's Praise"));
}

void tst_ctlServiceGallery::listRowsCarryKeyTagPictureAndColumns() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival", "Resurrection", "Rev. Jones");
    QVERIFY(a > 0);
    f.ShowAsList();
    const VBNode item = f.List()->Nodes(QString("Service;%1").arg(a));
    QVERIFY(item);
    QCOMPARE(item.Text(), QString("Easter"));
    QCOMPARE(item.SubItems(1), QString("Festival"));
    QCOMPARE(item.SubItems(2), QString("Resurrection"));
    QVERIFY(!item.SubItems(3).isEmpty());
    QCOMPARE(item.SubItems(4), QString());
    QCOMPARE(item.SubItems(5), QString("Rev. Jones"));
    QCOMPARE(item.Tag().toInt(), a);
}

void tst_ctlServiceGallery::keyToSelectIsSelectedAndClicked() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.gallery->ShowServices(Key("Type;Festival", a));
    QCOMPARE(f.Tree()->SelectedItem().Key(), Key("Type;Festival", a));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(Args(clicked.last()).at(0), QString::number(a));
}

void tst_ctlServiceGallery::loadServicesFillsListWithItsOwnColumns() {
    ServiceGalleryFixture f;
    const qint32 a =
        f.Service("Easter", "Festival", "Resurrection", "Rev. Jones", "2024-03-31 09:00:00");
    QVERIFY(a > 0);
    f.gallery->LoadServices();
    const VBNode item = f.List()->Nodes(QString("Service;%1").arg(a));
    QVERIFY(item);
    // Date created first, then last delivered (Null: empty), name, theme, provider.
    QVERIFY2(item.Text().startsWith("31/03/"), qPrintable(item.Text()));
    QCOMPARE(item.SubItems(1), QString());
    QCOMPARE(item.SubItems(2), QString("Easter"));
    QCOMPARE(item.SubItems(3), QString("Resurrection"));
    QCOMPARE(item.SubItems(4), QString("Rev. Jones"));
    QCOMPARE(item.Tag().toInt(), a);
}

// ---------------------------------------------------------------- Main filter

void tst_ctlServiceGallery::criterionAppliesAfterTimer1WithFilterWords() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter Morning", "Festival");
    const qint32 b = f.Service("Advent", "Seasonal");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices();
    f.gallery->cboProperty->setCurrentText("Name");
    QCOMPARE(f.gallery->cboOperator->currentText(), QString("Contains"));
    QSignalSpy timeout(f.gallery->Timer1, &QTimer::timeout);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.gallery->txtCriterion->setText("Easter");
    QVERIFY(f.gallery->Timer1->isActive());
    QVERIFY(timeout.wait(5000));
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", a)));
    QVERIFY(!f.Tree()->KeyExists(Key("Type;Seasonal", b)));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(FILTER ACTIVE)"));
    QCOMPARE(Args(clicked.last()),
             QStringList({"All", "All Service Items", "ServiceName LIKE '*Easter*'",
                          "Name contains the text 'Easter'", "SIGroup"}));
}

void tst_ctlServiceGallery::filterIdsAreRaisedWhenPanelIsOpen() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter Morning", "Festival");
    QVERIFY(a > 0);
    f.gallery->cmdShowHideFilter->click();
    QSignalSpy changed(f.gallery.get(), &ctlServiceGallery::ServiceListFilterChanged);
    f.gallery->ShowServices();
    QCOMPARE(Args(changed.last()), QStringList({"All", "", ""}));
    f.gallery->cboProperty->setCurrentText("Type");
    QSignalSpy timeout(f.gallery->Timer1, &QTimer::timeout);
    f.gallery->txtCriterion->setText("Fest");
    QVERIFY(timeout.wait(5000));
    QCOMPARE(Args(changed.last()), QStringList({QString::number(a), "Type contains the text 'Fest'",
                                                "ServiceType LIKE '*Fest*'"}));
}

void tst_ctlServiceGallery::criterionWithoutPropertyClearsTree() {
    ServiceGalleryFixture f;
    QVERIFY(f.Service("Easter", "Festival") > 0);
    f.gallery->ShowServices();
    QVERIFY(f.Tree()->Count() > 0);
    QSignalSpy timeout(f.gallery->Timer1, &QTimer::timeout);
    f.gallery->txtCriterion->setText("Easter");
    QVERIFY(timeout.wait(5000));
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Filter is inactive)"));
}

// "Created By" filters on a field of its own name, which the store does not
// have: the data library's message is shown and the view stays as it was.
void tst_ctlServiceGallery::createdByFilterReadsServiceCreatedByAndShowsMessage() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    f.gallery->cboProperty->setCurrentText("Created By");
    QSignalSpy timeout(f.gallery->Timer1, &QTimer::timeout);
    f.platform.QueueAnswer(vbOK);
    f.gallery->txtCriterion->setText("Jones");
    QVERIFY(timeout.wait(5000));
    QCOMPARE(f.platform.BoxCount(), 1);
    QVERIFY(f.platform.LastBox().Prompt.contains("ServiceCreatedBy"));
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", a)));
}

void tst_ctlServiceGallery::apostropheKeyTakesBackWhatItTyped() {
    ServiceGalleryFixture f;
    f.gallery->txtCriterion->setFocus();
    QTest::keyClicks(f.gallery->txtCriterion, "ab");
    QTest::keyClick(f.gallery->txtCriterion, Qt::Key_Apostrophe);
    QCOMPARE(f.gallery->txtCriterion->text(), QString("ab"));
}

void tst_ctlServiceGallery::panelOpensAndClosesAtItsOwnPlaces() {
    ServiceGalleryFixture f;
    const int closedTop = f.Tree()->geometry().top();
    f.gallery->cmdShowHideFilter->click();
    QCOMPARE(f.gallery->cmdShowHideFilter->text(), QString("&Hide Display Properties"));
    QVERIFY(f.Tree()->geometry().top() > closedTop);
    f.gallery->cmdShowHideFilter->click();
    QCOMPARE(f.gallery->cmdShowHideFilter->text(), QString("&Show Display Properties"));
    QCOMPARE(f.Tree()->geometry().top(), closedTop);
}

// ---------------------------------------------------------------- Clicks

void tst_ctlServiceGallery::clickOnServiceRaisesItsIdAndEnablesButtons() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.ClickNode(f.Tree(), Key("Type;Festival", a));
    QCOMPARE(Args(clicked.last()), QStringList({QString::number(a), "Easter", "", "", "Service"}));
    for (const char* key :
         {"btnOpen", "btnDelete", "btnProperties", "btnPrint", "btnPrintShortCuts"})
        QVERIFY2(f.Button(key)->isEnabled(), key);
    f.ClickNode(f.Tree(), "Type;Festival");
    QVERIFY(!f.Button("btnOpen")->isEnabled());
    QVERIFY(!f.Button("btnPrintShortCuts")->isEnabled());
}

void tst_ctlServiceGallery::clickOnRootAndGroupRaiseServiceGroup() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    const qint32 b = f.Service("Pentecost", "Festival");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.ClickNode(f.Tree(), "Root");
    QCOMPARE(Args(clicked.last()), QStringList({"All", "All Services", "", "", "ServiceGroup"}));
    f.ClickNode(f.Tree(), "Type;Festival");
    QCOMPARE(Args(clicked.last()),
             QStringList({QString("%1,%2").arg(a).arg(b), "Services for Type: Festival", "", "",
                          "ServiceGroup"}));
}

void tst_ctlServiceGallery::secondClickOnSameNodeIsSilentUntilSelectService() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.ClickNode(f.Tree(), Key("Type;Festival", a));
    QCOMPARE(clicked.count(), 1);
    f.ClickNode(f.Tree(), Key("Type;Festival", a));
    QCOMPARE(clicked.count(), 1);
    f.gallery->SelectService(a);
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(Args(clicked.last()).at(0), QString::number(a));
}

void tst_ctlServiceGallery::filterCheckEmptiesLastClickedKeyAndKeepsItemWords() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.ClickNode(f.Tree(), Key("Type;Festival", a));
    f.gallery->cboOperator->setCurrentText("Starts with");
    QCOMPARE(Args(clicked.last()),
             QStringList({"All", "All Service Items", "", "No Filter", "SIGroup"}));
    const qsizetype before = clicked.count();
    f.ClickNode(f.Tree(), Key("Type;Festival", a));
    QCOMPARE(clicked.count(), before + 1);
}

void tst_ctlServiceGallery::listClickRaisesTypeAsDescription() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.ShowAsList();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    QCOMPARE(Args(clicked.last()),
             QStringList({QString::number(a), "Festival", "", "", "Service"}));
    QVERIFY(f.Button("btnExport")->isEnabled());
    QVERIFY(f.Button("btnPrintShortCuts")->isEnabled());
}

void tst_ctlServiceGallery::twoSelectedListItemsLeaveOnlyDeleteAndExport() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    const qint32 b = f.Service("Advent", "Seasonal");
    QVERIFY(a > 0 && b > 0);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.CtrlClickNode(f.List(), QString("Service;%1").arg(b));
    QCOMPARE(clicked.count(), 0);
    for (const char* key : {"btnOpen", "btnProperties", "btnPrint", "btnPrintShortCuts"})
        QVERIFY2(!f.Button(key)->isEnabled(), key);
    QVERIFY(f.Button("btnDelete")->isEnabled());
    QVERIFY(f.Button("btnExport")->isEnabled());
}

void tst_ctlServiceGallery::doubleClicksRaiseTheId() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    QSignalSpy dbl(f.gallery.get(), &ctlServiceGallery::ServiceDblClicked);
    emit f.Tree()->itemDoubleClicked(f.Tree()->SelectedItem().Item(), 0);
    QCOMPARE(dbl.last().at(0).toInt(), a);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    emit f.List()->itemDoubleClicked(f.List()->SelectedItem().Item(), 0);
    QCOMPARE(dbl.count(), 2);
    QCOMPARE(dbl.last().at(0).toInt(), a);
}

// ---------------------------------------------------------------- Right button

void tst_ctlServiceGallery::rightClickOnServiceOffersServiceMenuAndRestoresSelection() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices("Type;Festival");
    const MenuSeen seen = RightClick(f.Tree(), Key("Type;Festival", a));
    QCOMPARE(seen.menu, QString("mnuRightClick"));
    QCOMPARE(seen.selected, Key("Type;Festival", a));
    QCOMPARE(f.Tree()->SelectedItem().Key(), QString("Type;Festival"));
}

void tst_ctlServiceGallery::rightClickOnGroupOffersTypeMenu() {
    ServiceGalleryFixture f;
    QVERIFY(f.Service("Easter", "Festival") > 0);
    f.gallery->ShowServices();
    const MenuSeen seen = RightClick(f.Tree(), "Type;Festival");
    QCOMPARE(seen.menu, QString("mnuRightClickType"));
    QCOMPARE(seen.captions.first(), QString("&New Service"));
}

void tst_ctlServiceGallery::rightClickOverEmptySpaceInTreePopsUpTypeMenu() {
    ServiceGalleryFixture f;
    QVERIFY(f.Service("Easter", "Festival") > 0);
    f.gallery->ShowServices();
    const QPoint below(5, f.Tree()->viewport()->height() - 3);
    QVERIFY(!f.Tree()->itemAt(below));
    const MenuSeen seen = RightClickAt(f.Tree(), below);
    QCOMPARE(seen.menu, QString("mnuRightClickType"));
    QCOMPARE(seen.captions, QStringList({"&New Service", "&Find a Service", "&Export Selection"}));
}

void tst_ctlServiceGallery::rightClickOnListItemOffersServiceMenu() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.ShowAsList();
    const MenuSeen seen = RightClick(f.List(), QString("Service;%1").arg(a));
    QCOMPARE(seen.menu, QString("mnuRightClick"));
}

// ---------------------------------------------------------------- Toolbar and menus

void tst_ctlServiceGallery::btnNewAndMenuNewCreateSelectAndRaise() {
    ServiceGalleryFixture f;
    QSignalSpy added(f.gallery.get(), &ctlServiceGallery::NewServiceAdded);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.Press("btnNew");
    QCOMPARE(added.count(), 1);
    const qint32 id = added.last().at(0).toInt();
    QVERIFY(id > 0);
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {id}), 1);
    QVERIFY(f.Tree()->SelectedItem().Key().endsWith(QString(";;Service;%1").arg(id)));
    QCOMPARE(Args(clicked.last()).at(0), QString::number(id));
    f.gallery->mnuRightClickTypeNew->trigger();
    QCOMPARE(added.count(), 2);
    f.gallery->mnuRightCLickNew->trigger();
    QCOMPARE(added.count(), 3);
    QCOMPARE(f.db.Count("Services"), 3);
    QCOMPARE(f.platform.BoxCount(), 0);
}

void tst_ctlServiceGallery::btnOpenRaisesIdFromTreeEvenInListView() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    f.ShowAsList();
    QSignalSpy open(f.gallery.get(), &ctlServiceGallery::ToolBarButtonClicked);
    f.Press("btnOpen");
    QCOMPARE(open.count(), 1);
    QCOMPARE(open.last().at(0).toString(), QString("btnOpen"));
    QCOMPARE(open.last().at(1).toInt(), a);
}

void tst_ctlServiceGallery::btnHelpSendsF1() {
    ServiceGalleryFixture f;
    f.Press("btnHelp");
    QCOMPARE(f.platform.SentKeys(), QStringList({"{F1}"}));
}

void tst_ctlServiceGallery::btnDeleteInTreeAsksAndLandsOnPreviousSibling() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Advent", "Festival");
    const qint32 b = f.Service("Easter", "Festival");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices(Key("Type;Festival", b));
    f.platform.QueueAnswer(vbYes);
    f.Press("btnDelete");
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("Are you sure you want to delete this Service from your system? This "
                     "command cannot be undone."));
    QCOMPARE(f.platform.LastBox().Buttons, 291);
    QCOMPARE(f.platform.LastBox().Title, QString("Confirm Delete"));
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {b}), 0);
    QCOMPARE(f.Tree()->SelectedItem().Key(), Key("Type;Festival", a));
}

void tst_ctlServiceGallery::btnDeleteInTreeOfFirstChildLandsOnGroup() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Advent", "Festival");
    const qint32 b = f.Service("Easter", "Festival");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    f.platform.QueueAnswer(vbYes);
    f.Press("btnDelete");
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {a}), 0);
    QCOMPARE(f.Tree()->SelectedItem().Key(), QString("Type;Festival"));
}

void tst_ctlServiceGallery::singleListDeleteThroughToolbarAsksNothingAndLeavesRow() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    f.Press("btnDelete");
    QCOMPARE(f.platform.BoxCount(), 0);
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {a}), 0);
    QVERIFY(f.List()->KeyExists(QString("Service;%1").arg(a)));
    f.gallery->ShowServices();
    QVERIFY(!f.List()->KeyExists(QString("Service;%1").arg(a)));
}

void tst_ctlServiceGallery::singleListDeleteThroughMenuAsksAndRefreshes() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    const qint32 b = f.Service("Advent", "Seasonal");
    QVERIFY(a > 0 && b > 0);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    f.platform.QueueAnswer(vbYes);
    RightClick(f.List(), QString("Service;%1").arg(a), "mnuServiceDelete");
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Title, QString("Confirm Delete"));
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {a}), 0);
    QVERIFY(!f.List()->KeyExists(QString("Service;%1").arg(a)));
    QVERIFY(f.List()->KeyExists(QString("Service;%1").arg(b)));
}

void tst_ctlServiceGallery::severalListDeletesAskOnceInPlural() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    const qint32 b = f.Service("Advent", "Seasonal");
    QVERIFY(a > 0 && b > 0);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    f.CtrlClickNode(f.List(), QString("Service;%1").arg(b));
    f.platform.QueueAnswer(vbYes);
    f.Press("btnDelete");
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Prompt,
             QString("Are you sure you want to delete these Services from your system? This "
                     "command cannot be undone."));
    QCOMPARE(f.db.Count("Services"), 0);
    QCOMPARE(f.List()->topLevelItemCount(), 0);
}

void tst_ctlServiceGallery::menuDeleteInTreeAsksAndKeepsNoLanding() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Advent", "Festival");
    const qint32 b = f.Service("Easter", "Festival");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices(Key("Type;Festival", b));
    f.platform.QueueAnswer(vbYes);
    f.gallery->mnuServiceDelete->trigger();
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {b}), 0);
    QVERIFY(!f.Tree()->KeyExists(Key("Type;Festival", b)));
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", a)));
}

void tst_ctlServiceGallery::refusedDeleteChangesNothing() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    f.platform.QueueAnswer(vbNo);
    f.gallery->mnuServiceDelete->trigger();
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {a}), 1);
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", a)));
}

void tst_ctlServiceGallery::btnPrintShortCutsInListEndsInErrorBox() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    f.platform.QueueAnswer(vbOK);
    f.Press("btnPrintShortCuts");
    QCOMPARE(f.platform.BoxCount(), 1);
    QVERIFY(f.platform.LastBox().Prompt.startsWith(
        "QVLTCONTROLS:ctlServiceGallery:Toolbar2_ButtonClick : Error number is 35600"));
}

void tst_ctlServiceGallery::btnPrintShortCutsInTreeShowsTheSheet() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    f.Press("btnPrintShortCuts");
    QCOMPARE(f.platform.BoxCount(), 0);
    QCOMPARE(f.platform.Sheets().size(), 1);
    QCOMPARE(f.platform.Sheets().at(0).Title, QString("Short-cuts: Easter"));
}

void tst_ctlServiceGallery::btnImportWritesMessageToErrorLineOnly() {
    ServiceGalleryFixture f;
    QTemporaryDir dir;
    QFile picture(dir.filePath("photo.jpg"));
    QVERIFY(picture.open(QIODevice::WriteOnly));
    picture.write(QByteArray("\xff\xd8\xff\xe0\0\x10JFIF\0", 12));
    picture.close();
    f.platform.QueueOpenFile(picture.fileName());
    TraceFile trace;
    f.Press("btnImport");
    QCOMPARE(f.platform.BoxCount(), 0);
    // The data library writes its message, and the gallery writes it again.
    const QStringList lines = trace.NewErrorLines();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(1), lines.at(0));
    QVERIFY(lines.at(1).contains("ImportFile"));
}

// ---------------------------------------------------------------- Refresh, select, hide, add

void tst_ctlServiceGallery::refreshViewReselectsByPosition() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Advent", "Festival");
    const qint32 b = f.Service("Easter", "Festival");
    QVERIFY(a > 0 && b > 0);
    f.gallery->ShowServices();
    const qint32 index = f.Tree()->Nodes(Key("Type;Festival", b)).Index();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    f.gallery->RefreshView(qint16(index));
    QCOMPARE(f.Tree()->SelectedItem().Key(), Key("Type;Festival", b));
    QVERIFY(clicked.count() >= 1);
    QCOMPARE(Args(clicked.last()).at(0), QString::number(b));
}

void tst_ctlServiceGallery::selectServiceInListSelectsNothing() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.ShowAsList();
    QSignalSpy clicked(f.gallery.get(), &ctlServiceGallery::ServiceClicked);
    QString message;
    f.gallery->SelectService(a, message);
    QVERIFY(message.isEmpty());
    QCOMPARE(clicked.count(), 0);
    QVERIFY(f.List()->selectedItems().isEmpty());
}

void tst_ctlServiceGallery::hideServiceLeavesEmptyParent() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    f.gallery->HideService(Key("Type;Festival", a));
    QVERIFY(!f.Tree()->KeyExists(Key("Type;Festival", a)));
    QVERIFY(f.Tree()->KeyExists("Type;Festival"));
    QCOMPARE(f.db.Count("Services", "ServiceID = ?", {a}), 1);
}

void tst_ctlServiceGallery::addServiceWithoutParentShowsFullErrorBox() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices();
    f.gallery->AddService("Type;Festival", Key("Type;Festival", 999), "Guest", 3);
    QVERIFY(f.Tree()->KeyExists(Key("Type;Festival", 999)));
    QCOMPARE(f.platform.BoxCount(), 0);
    f.platform.QueueAnswer(vbOK);
    f.gallery->AddService("Type;Missing", Key("Type;Missing", 998), "Lost", 3);
    QVERIFY(!f.Tree()->KeyExists(Key("Type;Missing", 998)));
    QCOMPARE(f.platform.BoxCount(), 1);
}

// ---------------------------------------------------------------- Export and print

// With the tree hidden the print reads the tree's selection, and of its key the
// second field.
void tst_ctlServiceGallery::printInListViewPrintsTreesLastSelection() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival", QVariant(), QVariant(), "2024-03-31 09:00:00");
    QVERIFY(a > 0);
    f.GroupBy("Year Created");
    f.gallery->ShowServices(Key("Year Created;2024", a));
    bool selected = false;
    QCOMPARE(f.gallery->PrintSelectionId(selected), a);
    QVERIFY(selected);
    f.ShowAsList();
    f.ClickNode(f.List(), QString("Service;%1").arg(a));
    QCOMPARE(f.gallery->PrintSelectionId(selected), 2024);
    QVERIFY(selected);
}

void tst_ctlServiceGallery::printWithoutWordProcessorSaysSo() {
    ServiceGalleryFixture f;
    WithoutSheetFolder cannotPrint;
    f.platform.QueueAnswer(vbOK);
    f.Press("btnPrint");
    QCOMPARE(f.platform.BoxCount(), 1);
    QCOMPARE(f.platform.LastBox().Title, QString("Microsoft Word NOT installed"));
}

void tst_ctlServiceGallery::exportReportsDataLibraryMessageWithPrefix() {
    ServiceGalleryFixture f;
    const qint32 a = f.Service("Easter", "Festival");
    QVERIFY(a > 0);
    f.gallery->ShowServices(Key("Type;Festival", a));
    TraceFile trace;
    f.platform.QueueSaveFile("/dev/null/no-folder/Easter.cvx");
    f.platform.QueueAnswer(vbOK);
    f.Press("btnExport");
    QCOMPARE(f.platform.BoxCount(), 1);
    QVERIFY(
        f.platform.LastBox().Prompt.startsWith("QVLTCONTROLS:ctlServiceGallery:ExportSelection: "));
    QVERIFY(trace.NewErrorLines().contains(f.platform.LastBox().Prompt));
}

QTEST_MAIN(tst_ctlServiceGallery)
#include "tst_ctlServiceGallery.moc"
