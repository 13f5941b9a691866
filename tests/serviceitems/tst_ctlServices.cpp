// The list of services: what it lists for each kind of Items, its entries,
// its message for a bad id and the column sort.

#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "TraceFile.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBConstants.h"
#include "foundations/VBTreeWidget.h"
#include "serviceitems/ctlServices.h"
#include "tst_FlatListFixture.h"

#include <QLabel>
#include <QTest>

using namespace FlatListTest;

class tst_ctlServices : public QObject {
    Q_OBJECT
private slots:
    void descriptionAnswersTheControlWord();
    void childWidgetsCarryTheirNames();
    void itemsOfTheFirstServiceListIt();
    void aRepeatedIdIsListedOnce();
    void emptyItemsListNothing();
    void anEntryCarriesNameKeyTagAndSubItems();
    void aSingleNonNumericIdGivesTheBareErrorWords();
    void aNonNumericPartOfACommaListIsShownAndTraced();
    void allListsTheRowsOfTheWhereClause();
    void columnClickSortsAscendingThenDescending();
    void theBannerFilterWorksOnTheListUntilReleased();
    void canUnloadAnswersTrue();
};

void tst_ctlServices::descriptionAnswersTheControlWord() {
    TestDatabase db;
    ctlServices list;
    list.setDescription("Easter services");
    QCOMPARE(list.Description(), QString("ServicesControl"));
}

void tst_ctlServices::childWidgetsCarryTheirNames() {
    TestDatabase db;
    ctlServices list;
    QCOMPARE(list.findChild<QLabel*>("lblMainCaption"), list.lblMainCaption);
    QCOMPARE(list.findChild<QLabel*>("lblFilterDetails"), list.lblFilterDetails);
    QCOMPARE(list.findChild<RKLvwBannerFilter*>("TTLvwBannerFilter1"), list.TTLvwBannerFilter1);
    QCOMPARE(list.findChild<VBTreeWidget*>("lvwServices"), list.lvwServices);
    QCOMPARE(list.lvwServices->columnCount(), 6);
    QCOMPARE(list.lvwServices->headerItem()->text(5), QString("Date Last Delivered"));
}

void tst_ctlServices::itemsOfTheFirstServiceListIt() {
    TestDatabase db;
    QCOMPARE(db.AddService("Sunday Morning"), 1);
    ctlServices list;
    list.setItems("1");
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwServices), QStringList({"Service;1"}));
}

void tst_ctlServices::aRepeatedIdIsListedOnce() {
    TestDatabase db;
    const qint32 id = db.AddService("Sunday Morning");
    QVERIFY(id > 0);
    ctlServices list;
    list.setItems(QString("%1,%1").arg(id));
    list.ShowProperties();
    QCOMPARE(list.lvwServices->topLevelItemCount(), 1);
}

void tst_ctlServices::emptyItemsListNothing() {
    TestDatabase db;
    QVERIFY(db.AddService("Sunday Morning") > 0);
    ctlServices list;
    list.setItems("");
    list.ShowProperties();
    QCOMPARE(list.lvwServices->topLevelItemCount(), 0);
}

void tst_ctlServices::anEntryCarriesNameKeyTagAndSubItems() {
    TestDatabase db;
    const qint32 id = db.AddService("Sunday Morning", {}, "Family Worship");
    QVERIFY(db.Exec("UPDATE Services SET ServiceTheme = 'Hope', ServiceProvider = 'Ann', "
                    "ServiceDateLastDelivered = NULL WHERE ServiceID = ?",
                    {id}));
    ctlServices list;
    list.setItems(QString::number(id));
    list.ShowProperties();
    const VBNode entry = list.lvwServices->ListItems(1);
    QCOMPARE(entry.Key(), QString("Service;%1").arg(id));
    QCOMPARE(entry.Tag().toInt(), id);
    QCOMPARE(entry.Text(), QString("Sunday Morning"));
    QCOMPARE(entry.Image().toString(), QString("imgService"));
    QCOMPARE(entry.SubItems(1), QString("Family Worship"));
    QCOMPARE(entry.SubItems(2), QString("Hope"));
    QCOMPARE(entry.SubItems(3), QString("Ann"));
    QVERIFY(!entry.SubItems(4).isEmpty());
    QCOMPARE(entry.SubItems(5), QString());
}

void tst_ctlServices::aSingleNonNumericIdGivesTheBareErrorWords() {
    TestDatabase db;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ctlServices list;
    list.setItems("Easter");
    list.ShowProperties();
    QCOMPARE(platform.LastBox().Prompt, QString("Error: Service = "));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
}

void tst_ctlServices::aNonNumericPartOfACommaListIsShownAndTraced() {
    TestDatabase db;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    TraceFile trace;
    ctlServices list;
    list.setItems("x,");
    platform.QueueAnswer(vbOK);
    list.ShowProperties();
    QCOMPARE(platform.Boxes().at(0).Prompt, QString("Error: Service = x"));
    QCOMPARE(trace.NewErrorLines().value(0),
             QString("QVLTCONTROLS:ctlServices:ShowProperties: Error: Service = x"));
}

void tst_ctlServices::allListsTheRowsOfTheWhereClause() {
    TestDatabase db;
    const qint32 a = db.AddService("Sunday Morning");
    const qint32 b = db.AddService("Sunday Evening");
    ctlServices list;
    list.setItems("All");
    list.setWhereClauseInEffect("");
    list.ShowProperties();
    QCOMPARE(list.lvwServices->topLevelItemCount(), 2);
    list.setWhereClauseInEffect(QString("Services.ServiceID = %1").arg(b));
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwServices), QStringList({QString("Service;%1").arg(b)}));
    Q_UNUSED(a);
}

void tst_ctlServices::columnClickSortsAscendingThenDescending() {
    TestDatabase db;
    db.AddService("Bethlehem");
    db.AddService("Advent");
    db.AddService("Christmas");
    ctlServices list;
    list.setItems("All");
    list.ShowProperties();
    ClickHeader(list.lvwServices, 0);
    QCOMPARE(Column(list.lvwServices, 0), QStringList({"Advent", "Bethlehem", "Christmas"}));
    ClickHeader(list.lvwServices, 0);
    QCOMPARE(Column(list.lvwServices, 0), QStringList({"Christmas", "Bethlehem", "Advent"}));
}

void tst_ctlServices::theBannerFilterWorksOnTheListUntilReleased() {
    TestDatabase db;
    ctlServices list;
    QCOMPARE(list.TTLvwBannerFilter1->ListView(), list.lvwServices);
    list.ReleaseListViewFilter();
    QVERIFY(list.TTLvwBannerFilter1->ListView() == nullptr);
}

void tst_ctlServices::canUnloadAnswersTrue() {
    TestDatabase db;
    ctlServices list;
    QVERIFY(list.CanUnload());
}

QTEST_MAIN(tst_ctlServices)
#include "tst_ctlServices.moc"
