// The list of templates: what it lists for each kind of Items, its entries,
// its message for a bad id, and its headers that do not sort.

#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "serviceitems/ctlTemplates.h"
#include "tst_FlatListFixture.h"

#include <QLabel>
#include <QTest>

using namespace FlatListTest;

class tst_ctlTemplates : public QObject {
    Q_OBJECT
private slots:
    void descriptionAnswersTheControlWord();
    void childWidgetsCarryTheirNames();
    void itemsOfTheFirstTemplateListIt();
    void aRepeatedIdIsListedOnce();
    void emptyItemsListNothing();
    void entriesTellServiceFromServiceItemTemplates();
    void aTemplateWithoutDescriptionIsNamedByAuthorAndDate();
    void aSingleNonNumericIdGivesTheBareErrorWords();
    void allListsTheRowsOfTheWhereClause();
    void aColumnClickDoesNotSort();
    void theBannerFilterWorksOnTheListUntilReleased();
};

void tst_ctlTemplates::descriptionAnswersTheControlWord() {
    TestDatabase db;
    ctlTemplates list;
    list.setDescription("All templates");
    QCOMPARE(list.Description(), QString("TemplatesControl"));
}

void tst_ctlTemplates::childWidgetsCarryTheirNames() {
    TestDatabase db;
    ctlTemplates list;
    QCOMPARE(list.findChild<QLabel*>("lblMainCaption"), list.lblMainCaption);
    QCOMPARE(list.findChild<RKLvwBannerFilter*>("TTLvwBannerFilter1"), list.TTLvwBannerFilter1);
    QCOMPARE(list.findChild<VBTreeWidget*>("lvwTemplates"), list.lvwTemplates);
    QCOMPARE(list.lvwTemplates->headerItem()->text(3), QString("Source"));
}

void tst_ctlTemplates::itemsOfTheFirstTemplateListIt() {
    TestDatabase db;
    QCOMPARE(db.AddTemplate("Morning Worship", true), 1);
    ctlTemplates list;
    list.setItems("1");
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwTemplates), QStringList({"Template;1"}));
}

void tst_ctlTemplates::aRepeatedIdIsListedOnce() {
    TestDatabase db;
    const qint32 id = db.AddTemplate("Morning Worship", true);
    ctlTemplates list;
    list.setItems(QString("%1,%1").arg(id));
    list.ShowProperties();
    QCOMPARE(list.lvwTemplates->topLevelItemCount(), 1);
}

void tst_ctlTemplates::emptyItemsListNothing() {
    TestDatabase db;
    QVERIFY(db.AddTemplate("Morning Worship", true) > 0);
    ctlTemplates list;
    list.setItems("");
    list.ShowProperties();
    QCOMPARE(list.lvwTemplates->topLevelItemCount(), 0);
}

void tst_ctlTemplates::entriesTellServiceFromServiceItemTemplates() {
    TestDatabase db;
    const qint32 service = db.AddTemplate("Morning Worship", true, "Sunday");
    const qint32 item = db.AddTemplate("Song sheet", false);
    QVERIFY(db.Exec("UPDATE Templates SET IsInBuilt = 1, TemplateAuthor = 'Ann' "
                    "WHERE TemplateID = ?",
                    {service}));
    QVERIFY(db.Exec("UPDATE Templates SET IsInBuilt = 0 WHERE TemplateID = ?", {item}));
    ctlTemplates list;
    list.setItems(QString("%1,%2").arg(service).arg(item));
    list.ShowProperties();
    const VBNode first = list.lvwTemplates->ListItems(QString("Template;%1").arg(service));
    QCOMPARE(first.Text(), QString("Service"));
    QCOMPARE(first.Image().toString(), QString("imgServiceTemplate"));
    QCOMPARE(first.SubItems(1), QString("Morning Worship"));
    QCOMPARE(first.SubItems(2), QString("Sunday"));
    QCOMPARE(first.SubItems(3), QString("In Built"));
    QCOMPARE(first.SubItems(4), QString("Ann"));
    const VBNode second = list.lvwTemplates->ListItems(QString("Template;%1").arg(item));
    QCOMPARE(second.Text(), QString("Service Item"));
    QCOMPARE(second.Image().toString(), QString("imgServiceItemTemplate"));
    QCOMPARE(second.SubItems(3), QString("User Created"));
}

void tst_ctlTemplates::aTemplateWithoutDescriptionIsNamedByAuthorAndDate() {
    TestDatabase db;
    const qint32 id = db.AddTemplate("x", true);
    QVERIFY(db.Exec("UPDATE Templates SET TemplateDescription = NULL, TemplateAuthor = 'Ann', "
                    "TemplateDateCreated = '2026-11-21 10:00:00' WHERE TemplateID = ?",
                    {id}));
    ctlTemplates list;
    list.setItems(QString::number(id));
    list.ShowProperties();
    const QString strDate = VB::Format(QDateTime(QDate(2026, 11, 21), QTime(10, 0)), "Medium Date");
    QCOMPARE(list.lvwTemplates->ListItems(1).SubItems(1), QString("Ann on ") + strDate);
}

void tst_ctlTemplates::aSingleNonNumericIdGivesTheBareErrorWords() {
    TestDatabase db;
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ctlTemplates list;
    list.setItems("abc");
    list.ShowProperties();
    QCOMPARE(platform.LastBox().Prompt, QString("Error: Template = "));
    QCOMPARE(platform.LastBox().Title, QString("System Error"));
}

void tst_ctlTemplates::allListsTheRowsOfTheWhereClause() {
    TestDatabase db;
    db.AddTemplate("Morning Worship", true);
    const qint32 b = db.AddTemplate("Song sheet", false);
    ctlTemplates list;
    list.setItems("All");
    list.ShowProperties();
    QCOMPARE(list.lvwTemplates->topLevelItemCount(), 2);
    list.setWhereClauseInEffect(QString("TemplateID = %1").arg(b));
    list.ShowProperties();
    QCOMPARE(Keys(list.lvwTemplates), QStringList({QString("Template;%1").arg(b)}));
}

void tst_ctlTemplates::aColumnClickDoesNotSort() {
    TestDatabase db;
    const qint32 b = db.AddTemplate("Bread", true);
    const qint32 a = db.AddTemplate("Advent", true);
    ctlTemplates list;
    list.setItems(QString("%1,%2").arg(b).arg(a));
    list.ShowProperties();
    ClickHeader(list.lvwTemplates, 1);
    QCOMPARE(Column(list.lvwTemplates, 1), QStringList({"Bread", "Advent"}));
}

void tst_ctlTemplates::theBannerFilterWorksOnTheListUntilReleased() {
    TestDatabase db;
    ctlTemplates list;
    QCOMPARE(list.TTLvwBannerFilter1->ListView(), list.lvwTemplates);
    list.ReleaseListViewFilter();
    QVERIFY(list.TTLvwBannerFilter1->ListView() == nullptr);
}

QTEST_MAIN(tst_ctlTemplates)
#include "tst_ctlTemplates.moc"
