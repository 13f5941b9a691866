// The list of service items: what it lists for each kind of Items, its
// messages, the column sort, the banner filter and the commands of its menu.

#include "DataAccess.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "TraceFile.h"
#include "WithoutSheetFolder.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBConstants.h"
#include "foundations/VBTreeWidget.h"
#include "serviceitems/ctlServiceItems.h"
#include "tst_FlatListFixture.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

using namespace FlatListTest;

class tst_ctlServiceItems : public QObject {
    Q_OBJECT

    // Selects the entries of the keys, the first being the current one.
    static void Select(VBTreeWidget* list, const QStringList& keys) {
        list->clearSelection();
        list->setCurrentItem(list->Nodes(keys.first()).Item(), 0, QItemSelectionModel::NoUpdate);
        for (const QString& key : keys)
            list->Nodes(key).Item()->setSelected(true);
    }

private slots:
    void descriptionAnswersTheControlWordNotTheCaption();
    void childWidgetsCarryTheirNames();
    void showPropertiesShowsCaptionAndFilterWords();
    void itemsOfTheBlankItemListNothing();
    void aRepeatedIdIsListedOnce();
    void emptyItemsListNothing();
    void aSingleNonNumericIdGivesTheBareErrorWords();
    void aNonNumericPartOfACommaListIsShownAndTraced();
    void anEntryCarriesTypeKeyPictureAndSubItems();
    void aStoredDescriptionShowsItsApostrophes();
    void allListsTheRowsOfTheWhereClauseWithoutTheBlankItem();
    void allWithABadWhereClauseShowsTheErrorText();
    void columnClickSortsAscendingThenDescending();
    void columnClickFlipsTheOrderAcrossColumns();
    void theBannerFilterWorksOnTheListUntilReleased();
    void theBannerFilterIsRefreshedAfterTheListIsFilled();
    void deleteAnsweredNoEndsInTheRefusedIndexWithoutEvent();
    void deletingOneOfThreeNamesTheEntryThatTookItsPlace();
    void deletingTheLastEntryEndsInTheRefusedIndex();
    void deletingSeveralAsksForThemAllAndRemovesThem();
    void newItemRaisesListChangedWithItsId();
    void doubleClickShowsTheRunRefusal();
    void runShowsTheRunRefusal();
    void printWithoutAWordProcessorSaysSo();
    void exportOfOneItemShowsTheRefusal();
    void printOfOneItemShowsItsSheet();
    void rightButtonOpensTheMenu();
    void canUnloadAnswersTrue();
    void clearOnlyWritesItsTraceLine();
    void theFilterAndTheListTakeTheFullWidthAndTheListTheHeightBelow();
};

void tst_ctlServiceItems::descriptionAnswersTheControlWordNotTheCaption() {
    TestDatabase db;
    ctlServiceItems list;
    list.setDescription("Songs for Easter");
    QCOMPARE(list.Description(), QString("ServiceitemsControl"));
    QCOMPARE(list.property("Description").toString(), QString("ServiceitemsControl"));
}

void tst_ctlServiceItems::childWidgetsCarryTheirNames() {
    TestDatabase db;
    ctlServiceItems list;
    QCOMPARE(list.findChild<QLabel*>("lblMainCaption"), list.lblMainCaption);
    QCOMPARE(list.findChild<QLabel*>("lblFilterDetails"), list.lblFilterDetails);
    QCOMPARE(list.findChild<RKLvwBannerFilter*>("TTLvwBannerFilter1"), list.TTLvwBannerFilter1);
    QCOMPARE(list.findChild<VBTreeWidget*>("lvwServiceItems"), list.lvwServiceItems);
    QCOMPARE(list.findChild<QMenu*>("mnuRightCLick"), list.mnuRightCLick);
    QStringList captions;
    for (QAction* a : list.mnuRightCLick->actions())
        captions << a->objectName() + "=" + a->text();
    QCOMPARE(captions, QStringList({"mnuRightCLickNew=&New Service Item", "mnuSIRun=&Run",
                                    "mnuSIDelete=&Delete", "mnuSIPrint=&Print",
                                    "mnuSISep1=", "mnuSIExport=&Export"}));
    QCOMPARE(list.lvwServiceItems->headerItem()->text(4), QString("Date Added"));
}

void tst_ctlServiceItems::showPropertiesShowsCaptionAndFilterWords() {
    TestDatabase db;
    ctlServiceItems list;
    list.setDescription("Songs for Easter");
    list.setFilterInPlainEnglish("Type is Song");
    list.ShowProperties();
    QCOMPARE(list.lblMainCaption->text(), QString("Songs for Easter"));
    QCOMPARE(list.lblFilterDetails->text(), QString("Filter Details: Type is Song"));
}

void tst_ctlServiceItems::itemsOfTheBlankItemListNothing() {
    TestDatabase db;
    ctlServiceItems list;
    list.setItems("1");
    list.ShowProperties();
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 0);
}

void tst_ctlServiceItems::aRepeatedIdIsListedOnce() {
    TestDatabase db;
    const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis");
    QVERIFY(id > 0);
    ctlServiceItems list;
    list.setProperty("Items", QString("%1,%1").arg(id));
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwServiceItems), QStringList({QString("SI;%1").arg(id)}));
}

void tst_ctlServiceItems::emptyItemsListNothing() {
    TestDatabase db;
    QVERIFY(db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis") > 0);
    ctlServiceItems list;
    list.setItems("");
    list.setWhereClauseInEffect("");
    list.ShowProperties();
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 0);
}

void tst_ctlServiceItems::aSingleNonNumericIdGivesTheBareErrorWords() {
    TestDatabase db;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    TraceFile trace;
    ctlServiceItems list;
    list.setItems("abc");
    list.ShowProperties();
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QString("Error: ServiceItem = "));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
    QVERIFY(trace.NewErrorLines().isEmpty());
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 0);
}

void tst_ctlServiceItems::aNonNumericPartOfACommaListIsShownAndTraced() {
    TestDatabase db;
    const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis");
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    TraceFile trace;
    ctlServiceItems list;
    list.setItems(QString("%1,abc").arg(id));
    list.ShowProperties();
    QCOMPARE(platform.LastBox().Prompt, QString("Error: ServiceItem = abc"));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
    QCOMPARE(
        trace.NewErrorLines(),
        QStringList({"QVLTCONTROLS:ctlServiceItems:ShowProperties: Error: ServiceItem = abc"}));
    QCOMPARE(Keys(list.lvwServiceItems), QStringList({QString("SI;%1").arg(id)}));
}

void tst_ctlServiceItems::anEntryCarriesTypeKeyPictureAndSubItems() {
    TestDatabase db;
    const qint32 id = db.AddServiceItem(TestDatabase::Song, "Amazing Grace");
    QVERIFY(db.Exec("UPDATE ServiceItems SET ServiceItemSource = 'John Newton', "
                    "ServiceItemProvider = NULL WHERE ServiceItemID = ?",
                    {id}));
    ctlServiceItems list;
    list.setItems(QString::number(id));
    list.ShowProperties();
    const VBNode entry = list.lvwServiceItems->ListItems(1);
    QCOMPARE(entry.Key(), QString("SI;%1").arg(id));
    QCOMPARE(entry.Text(), QString("Hymn"));
    QCOMPARE(entry.Image().toInt(), 17);
    QCOMPARE(entry.SubItems(1), QString("Amazing Grace"));
    QCOMPARE(entry.SubItems(2), QString("John Newton"));
    QCOMPARE(entry.SubItems(3), QString());
    QVERIFY(!entry.SubItems(4).isEmpty());
}

void tst_ctlServiceItems::aStoredDescriptionShowsItsApostrophes() {
    TestDatabase db;
    const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "The Lord@@s Prayer");
    QVERIFY(db.Exec("UPDATE ServiceItems SET ServiceItemDescription = 'The Lord@@s Prayer' "
                    "WHERE ServiceItemID = ?",
                    {id}));
    ctlServiceItems list;
    list.setItems(QString::number(id));
    list.ShowProperties();
    QCOMPARE(list.lvwServiceItems->ListItems(1).SubItems(1), QString("The Lord's Prayer"));
}

void tst_ctlServiceItems::allListsTheRowsOfTheWhereClauseWithoutTheBlankItem() {
    TestDatabase db;
    const qint32 song = db.AddServiceItem(TestDatabase::Song, "Amazing Grace");
    const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis");
    // Several keywords give several joined rows of one item.
    QVERIFY(db.AddKeywords(song, {"Grace", "Easter"}));
    ctlServiceItems list;
    list.setItems("All");
    list.setWhereClauseInEffect("");
    list.ShowProperties();
    QStringList keys = Keys(list.lvwServiceItems);
    keys.sort();
    QStringList expected{QString("SI;%1").arg(song), QString("SI;%1").arg(prayer)};
    expected.sort();
    QCOMPARE(keys, expected);

    list.setWhereClauseInEffect(QString("ServiceItems.ServiceItemID = %1").arg(prayer));
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwServiceItems), QStringList({QString("SI;%1").arg(prayer)}));
}

void tst_ctlServiceItems::allWithABadWhereClauseShowsTheErrorText() {
    TestDatabase db;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ctlServiceItems list;
    list.setItems("All");
    list.setWhereClauseInEffect("NoSuchField = 3");
    list.ShowProperties();
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(!platform.LastBox().Prompt.isEmpty());
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 0);
}

void tst_ctlServiceItems::columnClickSortsAscendingThenDescending() {
    TestDatabase db;
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 c = db.AddServiceItem(TestDatabase::Prayer, "Come Thou Fount");
    ctlServiceItems list;
    list.setItems(QString("%1,%2,%3").arg(b).arg(a).arg(c));
    list.ShowProperties();
    ClickHeader(list.lvwServiceItems, 1);
    QCOMPARE(Column(list.lvwServiceItems, 1),
             QStringList({"Abide with Me", "Bread of Heaven", "Come Thou Fount"}));
    ClickHeader(list.lvwServiceItems, 1);
    QCOMPARE(Column(list.lvwServiceItems, 1),
             QStringList({"Come Thou Fount", "Bread of Heaven", "Abide with Me"}));
}

void tst_ctlServiceItems::columnClickFlipsTheOrderAcrossColumns() {
    TestDatabase db;
    const qint32 song = db.AddServiceItem(TestDatabase::Song, "Abide with Me");
    const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, "Come Thou Fount");
    ctlServiceItems list;
    list.setItems(QString("%1,%2").arg(song).arg(prayer));
    list.ShowProperties();
    ClickHeader(list.lvwServiceItems, 0); // ascending by type
    QCOMPARE(Column(list.lvwServiceItems, 0), QStringList({"Hymn", "Prayer"}));
    ClickHeader(list.lvwServiceItems, 1); // descending by description
    QCOMPARE(Column(list.lvwServiceItems, 1), QStringList({"Come Thou Fount", "Abide with Me"}));
    ClickHeader(list.lvwServiceItems, 0); // ascending again
    QCOMPARE(Column(list.lvwServiceItems, 0), QStringList({"Hymn", "Prayer"}));
}

void tst_ctlServiceItems::theBannerFilterWorksOnTheListUntilReleased() {
    TestDatabase db;
    ctlServiceItems list;
    QCOMPARE(list.TTLvwBannerFilter1->ListView(), list.lvwServiceItems);
    QCOMPARE(list.TTLvwBannerFilter1->ItemDescription(), QString("service items"));
    list.ReleaseListViewFilter();
    QVERIFY(list.TTLvwBannerFilter1->ListView() == nullptr);
}

void tst_ctlServiceItems::theBannerFilterIsRefreshedAfterTheListIsFilled() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    ctlServiceItems list;
    list.TTLvwBannerFilter1->setFilterText("abide");
    list.setItems(QString("%1,%2").arg(a).arg(b));
    list.ShowProperties();
    QCOMPARE(list.TTLvwBannerFilter1->TotalCount(), 2);
    QCOMPARE(list.TTLvwBannerFilter1->ShownCount(), 1);
}

void tst_ctlServiceItems::deleteAnsweredNoEndsInTheRefusedIndexWithoutEvent() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    ctlServiceItems list;
    list.setItems(QString("%1,%2").arg(a).arg(b));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbNo);
    platform.QueueAnswer(vbOK);
    QSignalSpy changed(&list, &ctlServiceItems::ServiceItemsListChanged);
    list.mnuSIDelete->trigger();
    QCOMPARE(platform.BoxCount(), 2);
    QCOMPARE(platform.Boxes().at(0).Prompt,
             QString("Are you sure you want to delete this Service Item from your system? This "
                     "command cannot be undone."));
    QCOMPARE(platform.Boxes().at(0).Title, QString("Confirm Delete"));
    QCOMPARE(platform.Boxes().at(0).Buttons, vbYesNoCancel | vbDefaultButton2);
    QVERIFY(platform.LastBox().Prompt.startsWith("Run-time error '35600':"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {a}), 1);
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 2);
}

void tst_ctlServiceItems::deletingOneOfThreeNamesTheEntryThatTookItsPlace() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    const qint32 c = db.AddServiceItem(TestDatabase::Prayer, "Come Thou Fount");
    ctlServiceItems list;
    list.setItems(QString("%1,%2,%3").arg(a).arg(b).arg(c));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(b)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbYes);
    QSignalSpy changed(&list, &ctlServiceItems::ServiceItemsListChanged);
    list.mnuSIDelete->trigger();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), c);
    QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {b}), 0);
    QCOMPARE(Keys(list.lvwServiceItems),
             QStringList({QString("SI;%1").arg(a), QString("SI;%1").arg(c)}));
}

void tst_ctlServiceItems::deletingTheLastEntryEndsInTheRefusedIndex() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    ctlServiceItems list;
    list.setItems(QString("%1,%2").arg(a).arg(b));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(b)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbYes);
    platform.QueueAnswer(vbOK);
    QSignalSpy changed(&list, &ctlServiceItems::ServiceItemsListChanged);
    list.mnuSIDelete->trigger();
    QVERIFY(platform.LastBox().Prompt.startsWith("Run-time error '35600':"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {b}), 0);
    QCOMPARE(Keys(list.lvwServiceItems), QStringList({QString("SI;%1").arg(a)}));
}

void tst_ctlServiceItems::deletingSeveralAsksForThemAllAndRemovesThem() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "Bread of Heaven");
    const qint32 c = db.AddServiceItem(TestDatabase::Prayer, "Come Thou Fount");
    ctlServiceItems list;
    list.setItems(QString("%1,%2,%3").arg(a).arg(b).arg(c));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a), QString("SI;%1").arg(b)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbYes);
    QSignalSpy changed(&list, &ctlServiceItems::ServiceItemsListChanged);
    list.mnuSIDelete->trigger();
    QCOMPARE(platform.Boxes().at(0).Prompt,
             QString("Are you sure you want to delete these Service Items from your system? "
                     "This command cannot be undone."));
    QCOMPARE(db.Count("ServiceItems", "ServiceItemID IN (?, ?)", {a, b}), 0);
    QCOMPARE(Keys(list.lvwServiceItems), QStringList({QString("SI;%1").arg(c)}));
    // The noted place was the first entry's, now held by the one left.
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), c);
}

void tst_ctlServiceItems::newItemRaisesListChangedWithItsId() {
    TestDatabase db;
    ctlServiceItems list;
    QSignalSpy changed(&list, &ctlServiceItems::ServiceItemsListChanged);
    list.mnuRightCLickNew->trigger();
    QCOMPARE(changed.count(), 1);
    const qint32 id = changed.at(0).at(0).toInt();
    QVERIFY(id > 1);
    QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {id}), 1);
}

void tst_ctlServiceItems::doubleClickShowsTheRunRefusal() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    ctlServiceItems list;
    list.setItems(QString::number(a));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    QSignalSpy dbl(&list, &ctlServiceItems::DblClick);
    emit list.lvwServiceItems->itemDoubleClicked(list.lvwServiceItems->topLevelItem(0), 0);
    // Without the application's window to run it in, the data library refuses and says why.
    QVERIFY(platform.LastBox().Prompt.startsWith("lvwServiceItems_DblClick:"));
    QCOMPARE(dbl.count(), 0);
}

void tst_ctlServiceItems::runShowsTheRunRefusal() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    ctlServiceItems list;
    list.setItems(QString::number(a));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a)});
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    list.mnuSIRun->trigger();
    QVERIFY(platform.LastBox().Prompt.startsWith("mnuSIRun_Click:"));
}

void tst_ctlServiceItems::printWithoutAWordProcessorSaysSo() {
    TestDatabase db;
    WithoutSheetFolder cannotPrint;
    bool blnInstalled = true;
    DataAccess::Instance().IsWordInstalled(QString(), QString(), blnInstalled);
    QVERIFY(!blnInstalled);
    ctlServiceItems list;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    list.mnuSIPrint->trigger();
    QCOMPARE(platform.LastBox().Prompt,
             QString("Microsoft Word 97 or later cannot be found on this computer. To avail of "
                     "the reporting features of Corvantis you must install it"));
    QCOMPARE(platform.LastBox().Title, QString("Microsoft Word NOT installed"));
}

void tst_ctlServiceItems::exportOfOneItemShowsTheRefusal() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    ctlServiceItems list;
    list.setItems(QString::number(a));
    list.ShowProperties();
    ScriptedPlatform platform;
    list.mnuSIExport->trigger(); // nothing selected: nothing happens
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(platform.Dialogs().size(), 0);
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a)});
    // A folder that cannot be written: the data library refuses, and the list tells it.
    platform.QueueSaveFile("/dev/null/no-folder/Abide with Me.cvx");
    platform.QueueAnswer(vbOK);
    list.mnuSIExport->trigger();
    QCOMPARE(platform.Dialogs().at(0).FileName, QString("Abide with Me.cvx"));
    QVERIFY(platform.LastBox().Prompt.contains("The export cannot be written to"));
}

void tst_ctlServiceItems::printOfOneItemShowsItsSheet() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me", "Abide with me");
    ctlServiceItems list;
    list.setItems(QString::number(a));
    list.ShowProperties();
    Select(list.lvwServiceItems, {QString("SI;%1").arg(a)});
    ScriptedPlatform platform;
    list.mnuSIPrint->trigger();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(platform.Sheets().size(), 1);
    QCOMPARE(platform.Sheets().at(0).Title, QString("Abide with Me"));
}

void tst_ctlServiceItems::rightButtonOpensTheMenu() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    ctlServiceItems list;
    list.resize(600, 400);
    list.show();
    list.setItems(QString::number(a));
    list.ShowProperties();
    const QPoint at =
        list.lvwServiceItems->visualItemRect(list.lvwServiceItems->topLevelItem(0)).center();
    QTest::mouseClick(list.lvwServiceItems->viewport(), Qt::RightButton, Qt::NoModifier, at);
    QTRY_VERIFY(list.mnuRightCLick->isVisible());
    list.mnuRightCLick->close();
}

void tst_ctlServiceItems::canUnloadAnswersTrue() {
    TestDatabase db;
    ctlServiceItems list;
    QVERIFY(list.CanUnload());
}

void tst_ctlServiceItems::clearOnlyWritesItsTraceLine() {
    TestDatabase db;
    const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "Abide with Me");
    ctlServiceItems list;
    list.setItems(QString::number(a));
    list.ShowProperties();
    TraceFile trace;
    list.Clear();
    QVERIFY(trace.HasLineStartingWith("QVLTCONTROLS:ctlServiceItems:Clear @ "));
    QCOMPARE(list.lvwServiceItems->topLevelItemCount(), 1);
}

void tst_ctlServiceItems::theFilterAndTheListTakeTheFullWidthAndTheListTheHeightBelow() {
    TestDatabase db;
    ctlServiceItems list;
    list.resize(500, 300);
    list.show();
    QTRY_COMPARE(list.lvwServiceItems->width(), 500);
    QCOMPARE(list.TTLvwBannerFilter1->width(), 500);
    QCOMPARE(list.lvwServiceItems->geometry().bottom(), 299);
    QVERIFY(list.lvwServiceItems->y() > list.TTLvwBannerFilter1->y());
    list.resize(640, 480);
    QTRY_COMPARE(list.lvwServiceItems->width(), 640);
    QCOMPARE(list.lvwServiceItems->geometry().bottom(), 479);
}

QTEST_MAIN(tst_ctlServiceItems)
#include "tst_ctlServiceItems.moc"
