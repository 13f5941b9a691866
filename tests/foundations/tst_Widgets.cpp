// The widget set of the controls: tabs, ribbon buttons, status bar, toolbar,
// standard pictures and the twips conversion, with VB's events and numbers.
#include "foundations/SSRibbon.h"
#include "foundations/SSTab.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"
#include "foundations/VBStatusBar.h"
#include "foundations/VBToolBar.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

namespace {
template <class F> qint32 errorOf(F&& f) {
    try {
        f();
    } catch (const VBError& e) {
        return e.Number;
    }
    return 0;
}

// Three tabs, as the editors have them.
void addTabs(SSTab& tabs) {
    tabs.addTab(new QWidget, QStringLiteral("General Details"));
    tabs.addTab(new QWidget, QStringLiteral("Content"));
    tabs.addTab(new QWidget, QStringLiteral("Prop Bag"));
}
} // namespace

class tst_Widgets : public QObject {
    Q_OBJECT
private slots:
    // SSTab
    void ssTabAddingTabsRaisesNoClick();
    void ssTabSetTabRaisesClickWithPreviousTab();
    void ssTabUserClickRaisesClickWithPreviousTab();
    void ssTabWithdrawnTabCannotBeSelectedByUser();
    void ssTabCaptionsAndBadTabNumber();
    void ssTabTabIsAProperty();
    // SSRibbon
    void ssRibbonValueIsLatchedState();
    void ssRibbonValueWriteRunsClick();
    void ssRibbonWritingSameValueDoesNothing();
    void ssRibbonHandlerSettingValueFalseRunsAgainWithFalse();
    void ssRibbonUserClickRaisesClickWithValue();
    // Status bar
    void statusBarPanelsAreNamedAndNumberedFromOne();
    void statusBarPanelOutOfRangeRaises35600();
    void statusBarPanelClickGivesPanelNumber();
    // Toolbar
    void toolBarButtonsAreKeyedActions();
    void toolBarDuplicateKeyRaises35602();
    void toolBarMissingKeyRaises35601AndBadIndex35600();
    void toolBarButtonClickGivesTheButton();
    void toolBarCheckableButtonLatches();
    // Pictures and twips
    void standardIconsAreSixteenBySixteen();
    void serviceItemImageListIsNumberedByTypeId();
    void verseChorusImageList();
    void twipsConversion();
};

void tst_Widgets::ssTabAddingTabsRaisesNoClick() {
    SSTab tabs;
    QSignalSpy click(&tabs, &SSTab::Click);
    addTabs(tabs);
    QCOMPARE(tabs.Tab(), qint16(0));
    QCOMPARE(tabs.Tabs(), qint16(3));
    QCOMPARE(click.count(), 0);
}

void tst_Widgets::ssTabSetTabRaisesClickWithPreviousTab() {
    SSTab tabs;
    addTabs(tabs);
    QSignalSpy click(&tabs, &SSTab::Click);
    tabs.setTab(2);
    QCOMPARE(tabs.Tab(), qint16(2));
    tabs.setTab(1);
    QCOMPARE(click.count(), 2);
    QCOMPARE(click.at(0).at(0).value<qint16>(), qint16(0));
    QCOMPARE(click.at(1).at(0).value<qint16>(), qint16(2));
    // Writing the current tab is no change.
    tabs.setTab(1);
    QCOMPARE(click.count(), 2);
}

void tst_Widgets::ssTabUserClickRaisesClickWithPreviousTab() {
    SSTab tabs;
    addTabs(tabs);
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    QSignalSpy click(&tabs, &SSTab::Click);
    QTabBar* bar = tabs.tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    QCOMPARE(tabs.Tab(), qint16(1));
    QCOMPARE(click.count(), 1);
    QCOMPARE(click.at(0).at(0).value<qint16>(), qint16(0));
}

void tst_Widgets::ssTabWithdrawnTabCannotBeSelectedByUser() {
    SSTab tabs;
    addTabs(tabs);
    tabs.setTabEnabled(2, false);
    QVERIFY(!tabs.TabEnabled(2));
    QVERIFY(tabs.TabEnabled(1));
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    QSignalSpy click(&tabs, &SSTab::Click);
    QTabBar* bar = tabs.tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
    QCOMPARE(tabs.Tab(), qint16(0));
    QCOMPARE(click.count(), 0);
    tabs.setTabEnabled(2, true);
    QVERIFY(tabs.TabEnabled(2));
}

void tst_Widgets::ssTabCaptionsAndBadTabNumber() {
    SSTab tabs;
    addTabs(tabs);
    QCOMPARE(tabs.TabCaption(1), QStringLiteral("Content"));
    tabs.setTabCaption(0, QString());
    QCOMPARE(tabs.TabCaption(0), QString());
    QCOMPARE(errorOf([&] { tabs.setTab(3); }), 380);
    QCOMPARE(errorOf([&] { tabs.TabCaption(-1); }), 380);
    QCOMPARE(tabs.Tab(), qint16(0));
}

void tst_Widgets::ssTabTabIsAProperty() {
    SSTab tabs;
    addTabs(tabs);
    QSignalSpy click(&tabs, &SSTab::Click);
    QVERIFY(tabs.setProperty("Tab", 2));
    QCOMPARE(tabs.property("Tab").toInt(), 2);
    QCOMPARE(click.count(), 1);
}

void tst_Widgets::ssRibbonValueIsLatchedState() {
    SSRibbon cmdMagnify(QStringLiteral("+"));
    QVERIFY(cmdMagnify.isCheckable());
    QVERIFY(!cmdMagnify.Value());
    cmdMagnify.setChecked(true);
    QVERIFY(cmdMagnify.Value());
}

void tst_Widgets::ssRibbonValueWriteRunsClick() {
    SSRibbon cmdMagnify;
    QSignalSpy click(&cmdMagnify, &SSRibbon::Click);
    QSignalSpy clicked(&cmdMagnify, &QPushButton::clicked);
    cmdMagnify.setValue(true);
    QVERIFY(cmdMagnify.Value());
    QCOMPARE(click.count(), 1);
    QCOMPARE(click.at(0).at(0).toBool(), true);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(cmdMagnify.setProperty("Value", false));
    QCOMPARE(click.count(), 2);
    QCOMPARE(click.at(1).at(0).toBool(), false);
}

void tst_Widgets::ssRibbonWritingSameValueDoesNothing() {
    SSRibbon cmdMagnify;
    QSignalSpy click(&cmdMagnify, &SSRibbon::Click);
    cmdMagnify.setValue(false);
    QCOMPARE(click.count(), 0);
}

void tst_Widgets::ssRibbonHandlerSettingValueFalseRunsAgainWithFalse() {
    // cmdMagnify_Click(Value): only if Value is True: set Value False, then act.
    SSRibbon cmdMagnify;
    QList<bool> values;
    int acted = 0;
    QObject::connect(&cmdMagnify, &SSRibbon::Click, [&](bool Value) {
        values << Value;
        if (Value) {
            cmdMagnify.setValue(false);
            ++acted;
        }
    });
    cmdMagnify.setValue(true);
    QCOMPARE(values, (QList<bool>{true, false}));
    QCOMPARE(acted, 1);
    QVERIFY(!cmdMagnify.Value());
}

void tst_Widgets::ssRibbonUserClickRaisesClickWithValue() {
    SSRibbon cmdShowProperties(QStringLiteral("Properties"));
    cmdShowProperties.show();
    QVERIFY(QTest::qWaitForWindowExposed(&cmdShowProperties));
    QSignalSpy click(&cmdShowProperties, &SSRibbon::Click);
    QTest::mouseClick(&cmdShowProperties, Qt::LeftButton);
    QCOMPARE(click.count(), 1);
    QCOMPARE(click.at(0).at(0).toBool(), true);
    QVERIFY(cmdShowProperties.Value());
}

void tst_Widgets::statusBarPanelsAreNamedAndNumberedFromOne() {
    VBStatusBar StatusBar1;
    StatusBar1.AddPanel(QStringLiteral("All 12 Service Items displayed"));
    StatusBar1.AddPanel(QStringLiteral("Show All"), 1500);
    QCOMPARE(StatusBar1.PanelCount(), 2);
    QCOMPARE(StatusBar1.Panels(1)->text(), QStringLiteral("All 12 Service Items displayed"));
    QCOMPARE(StatusBar1.Panels(2)->objectName(), QStringLiteral("Panel2"));
    QCOMPARE(StatusBar1.findChild<QLabel*>(QStringLiteral("Panel1")), StatusBar1.Panels(1));
    QCOMPARE(StatusBar1.Panels(2)->width(), Twips::ToPixels(1500));
}

void tst_Widgets::statusBarPanelOutOfRangeRaises35600() {
    VBStatusBar StatusBar1;
    StatusBar1.AddPanel();
    QCOMPARE(errorOf([&] { StatusBar1.Panels(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { StatusBar1.Panels(2); }), VBErr::IndexOutOfBounds);
}

void tst_Widgets::statusBarPanelClickGivesPanelNumber() {
    VBStatusBar StatusBar1;
    StatusBar1.AddPanel(QStringLiteral("count"));
    StatusBar1.AddPanel(QStringLiteral("Show All"), 1500);
    StatusBar1.resize(400, 24);
    StatusBar1.show();
    QVERIFY(QTest::qWaitForWindowExposed(&StatusBar1));
    QSignalSpy panelClick(&StatusBar1, &VBStatusBar::PanelClick);
    QTest::mouseClick(StatusBar1.Panels(2), Qt::LeftButton);
    QTest::mouseClick(StatusBar1.Panels(1), Qt::LeftButton);
    QCOMPARE(panelClick.count(), 2);
    QCOMPARE(panelClick.at(0).at(0).toInt(), 2);
    QCOMPARE(panelClick.at(1).at(0).toInt(), 1);
}

void tst_Widgets::toolBarButtonsAreKeyedActions() {
    VBToolBar Toolbar2;
    QAction* btnNew = Toolbar2.AddButton(QStringLiteral("btnNew"), QStringLiteral("New"));
    Toolbar2.AddSeparator();
    QAction* btnRun = Toolbar2.AddButton(QStringLiteral("btnRun"), QStringLiteral("Run"),
                                         QIcon(StandardIcons::ServiceItemType(12)));
    QCOMPARE(btnNew->objectName(), QStringLiteral("btnNew"));
    QCOMPARE(Toolbar2.Buttons(QStringLiteral("btnRun")), btnRun);
    QCOMPARE(Toolbar2.Buttons(1), btnNew);
    QVERIFY(Toolbar2.Buttons(2)->isSeparator());
    QCOMPARE(Toolbar2.Buttons(3), btnRun);
    QCOMPARE(Toolbar2.findChild<QAction*>(QStringLiteral("btnRun")), btnRun);
    QVERIFY(Toolbar2.ButtonExists(QStringLiteral("btnNew")));
    QVERIFY(!Toolbar2.ButtonExists(QStringLiteral("btnHelp")));
}

void tst_Widgets::toolBarDuplicateKeyRaises35602() {
    VBToolBar Toolbar2;
    Toolbar2.AddButton(QStringLiteral("btnNew"));
    QCOMPARE(errorOf([&] { Toolbar2.AddButton(QStringLiteral("btnNew")); }), VBErr::KeyNotUnique);
    QCOMPARE(Toolbar2.ButtonCount(), 1);
}

void tst_Widgets::toolBarMissingKeyRaises35601AndBadIndex35600() {
    VBToolBar Toolbar2;
    Toolbar2.AddButton(QStringLiteral("btnNew"));
    QCOMPARE(errorOf([&] { Toolbar2.Buttons(QStringLiteral("btnDelete")); }),
             VBErr::ElementNotFound);
    QCOMPARE(errorOf([&] { Toolbar2.Buttons(2); }), VBErr::IndexOutOfBounds);
}

void tst_Widgets::toolBarButtonClickGivesTheButton() {
    VBToolBar Toolbar2;
    Toolbar2.AddButton(QStringLiteral("btnNew"), QStringLiteral("New"));
    QAction* btnHelp = Toolbar2.AddButton(QStringLiteral("btnHelp"), QStringLiteral("Help"));
    Toolbar2.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Toolbar2));
    QSignalSpy buttonClick(&Toolbar2, &VBToolBar::ButtonClick);
    QTest::mouseClick(Toolbar2.widgetForAction(btnHelp), Qt::LeftButton);
    QCOMPARE(buttonClick.count(), 1);
    QCOMPARE(buttonClick.at(0).at(0).value<QAction*>()->objectName(), QStringLiteral("btnHelp"));
    Toolbar2.Buttons(QStringLiteral("btnNew"))->trigger();
    QCOMPARE(buttonClick.count(), 2);
    QCOMPARE(buttonClick.at(1).at(0).value<QAction*>()->objectName(), QStringLiteral("btnNew"));
}

void tst_Widgets::toolBarCheckableButtonLatches() {
    VBToolBar Toolbar2;
    QAction* btnTree =
        Toolbar2.AddButton(QStringLiteral("btnTree"), QStringLiteral("Tree"), QIcon(), true);
    QSignalSpy buttonClick(&Toolbar2, &VBToolBar::ButtonClick);
    btnTree->trigger();
    QVERIFY(btnTree->isChecked());
    QCOMPARE(buttonClick.count(), 1);
}

void tst_Widgets::standardIconsAreSixteenBySixteen() {
    for (qint32 id = 0; id <= StandardIcons::LastTypeID; ++id) {
        const QPixmap picture = StandardIcons::ServiceItemType(id);
        QVERIFY2(!picture.isNull(), qPrintable(QStringLiteral("type %1").arg(id)));
        QCOMPARE(picture.size(), QSize(16, 16));
    }
    for (const QPixmap& picture :
         {StandardIcons::FolderOpen(), StandardIcons::FolderClosed(), StandardIcons::Verse(),
          StandardIcons::Chorus(), StandardIcons::ServiceTemplate(),
          StandardIcons::ServiceItemTemplate()})
        QCOMPARE(picture.size(), QSize(16, 16));
    // The picture types share a picture, music differs from song, and an id
    // beyond the known ones falls back to a text page.
    QVERIFY(StandardIcons::ServiceItemType(4).toImage() !=
            StandardIcons::ServiceItemType(10).toImage());
    QVERIFY(StandardIcons::ServiceItemType(10).toImage() !=
            StandardIcons::ServiceItemType(17).toImage());
    QVERIFY(StandardIcons::FolderOpen().toImage() != StandardIcons::FolderClosed().toImage());
    QVERIFY(!StandardIcons::ServiceItemType(42).isNull());
}

void tst_Widgets::serviceItemImageListIsNumberedByTypeId() {
    VBImageList imlServiceItems(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(imlServiceItems);
    QCOMPARE(imlServiceItems.Count(), 21);
    for (qint32 id = 1; id <= 17; ++id)
        QCOMPARE(imlServiceItems.ListImage(id).toImage(),
                 StandardIcons::ServiceItemType(id).toImage());
    QCOMPARE(imlServiceItems.Key(20), QStringLiteral("imgFolderClosed"));
    QCOMPARE(imlServiceItems.Key(21), QStringLiteral("imgFolderOpen"));
    QCOMPARE(imlServiceItems.ListImage(QStringLiteral("imgFolderOpen")).toImage(),
             StandardIcons::FolderOpen().toImage());
    QVERIFY(imlServiceItems.Key(19).isEmpty());
    // Filling again starts over.
    StandardIcons::FillServiceItemImages(imlServiceItems);
    QCOMPARE(imlServiceItems.Count(), 21);
}

void tst_Widgets::verseChorusImageList() {
    VBImageList imlVerseChorus(QStringLiteral("imlVerseChorus"));
    StandardIcons::FillVerseChorusImages(imlVerseChorus);
    QCOMPARE(imlVerseChorus.Count(), 2);
    QCOMPARE(imlVerseChorus.ListImage(QStringLiteral("imgVerse")).toImage(),
             StandardIcons::Verse().toImage());
    QCOMPARE(imlVerseChorus.ListImage(QStringLiteral("imgChorus")).toImage(),
             StandardIcons::Chorus().toImage());
}

void tst_Widgets::twipsConversion() {
    QCOMPARE(Twips::PerPixel, 15);
    QCOMPARE(Twips::ToPixels(1440), 96);
    QCOMPARE(Twips::ToPixels(15), 1);
    QCOMPARE(Twips::ToPixels(8805), 587);
    QCOMPARE(Twips::ToPixels(-150), -10);
    QCOMPARE(Twips::FromPixels(96), 1440);
    QCOMPARE(Twips::ToPixels(150, 300, 1500, 3000), QRect(10, 20, 100, 200));
}

QTEST_MAIN(tst_Widgets)
#include "tst_Widgets.moc"
