// The criteria rows of the short-list editor: the lists of fields and
// operators, the editors of each kind, the one join word, the checks of a row,
// what the apply does with the rows, and bad input.
#include "ScriptedPlatform.h"
#include "ShortListFixture.h"
#include "TraceFile.h"
#include "foundations/Twips.h"

#include <QTest>

using namespace ShortListFixture;

class tst_ctlShortList_Criteria : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void fieldsStandInTheirOrderWithTheirKinds();
    void operatorsOfEachKindStandInTheirOrder();
    void aNewRowIsDescriptionContainsWithOneEmptyTextBox();
    void applyingANewRowFindsEveryItemWithADescription();
    void eachKindAndOperatorShowsItsEditors_data();
    void eachKindAndOperatorShowsItsEditors();
    void pickingTheOperatorAgainDiscardsTheValue();
    void rowsStand700TwipsApart();
    void getFieldNameKeepsItsTwoMismatches();

    void isPartOfAServiceTrueAndFalse();
    void isPartOfAServiceWithNoChoiceIsRefusedAndSetToTrue();
    void twoNumberBoxesAreCheckedInOrder_data();
    void twoNumberBoxesAreCheckedInOrder();
    void oneNumberBoxIsChecked_data();
    void oneNumberBoxIsChecked();
    void equalNumbersBetweenAreAcceptedAndFindNothing();
    void datesInTheWrongOrderAreRefused();
    void textIsAlwaysValid();

    void choosingAndWithAnInvalidFirstRowLeavesOneRowAndClearsTheRadio();
    void choosingAndWithAValidFirstRowStartsTheSecondRow();
    void theLastRowsButtonAddsARowAndTheOthersDoNothing();
    void switchingAndToOrChangesEveryCaptionAndJoin();
    void theJoinWordJoinsEveryRowInParentheses();
    void onlyTheLastRowIsCheckedByTheApply();
    void fileNameEqualsHasNoColumnAndTheApplyShowsTheStoresError();
    void newCriteriaStartsOverWithOneRow();

    void anApostropheIsLookedForAndNoErrorIsShown();
    void aDatePickerHoldsOnlyDates();
    void aThousandRowsAreRefusedClearlyBeyondTheMost();
    void aValueOfTenThousandCharactersIsLookedFor();
    void aDeletedKeywordFindsNothingWithoutError();

private:
    std::unique_ptr<TestDatabase> m_db;
    Library m_library;
};

void tst_ctlShortList_Criteria::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_library = Library();
    QVERIFY2(m_library.Seed(*m_db), qPrintable(m_db->LastError()));
}

void tst_ctlShortList_Criteria::cleanup() {
    m_db.reset();
}

namespace {
QStringList Items(QComboBox* cbo) {
    QStringList items;
    for (int i = 0; i < cbo->count(); ++i)
        items << cbo->itemText(i);
    return items;
}
QString Tag(ctlShortList& ctl, qint16 Index) {
    return ctl.cboOperator(Index)->property("Tag").toString();
}
QString Descriptions(TestDatabase& db, const Library& library, const QStringList& keys) {
    QStringList names;
    for (const QString& key : keys)
        names << db.Scalar("SELECT ServiceItemDescription FROM ServiceItems WHERE ServiceItemID "
                           "= ?",
                           {library.ids[key]})
                     .toString();
    names.sort();
    return names.join('|');
}
} // namespace

void tst_ctlShortList_Criteria::fieldsStandInTheirOrderWithTheirKinds() {
    ctlShortList ctl;
    QComboBox cbo;
    ctl.LoadFields(&cbo);
    QCOMPARE(Items(&cbo), QStringList({"Content", "Copyright", "Date Created", "Description",
                                       "FileName", "Is part of a service", "Keywords",
                                       "Last Delivered in a service", "Notes", "Original Location",
                                       "Provider", "Resources", "Run as points list",
                                       "Seconds to run", "Song Key", "Melody", "Source", "Type"}));
    const QList<int> kinds = {3, 3, 2, 3, 3, 0, 3, 2, 3, 3, 3, 3, 0, 1, 3, 3, 3, 3};
    for (int i = 0; i < cbo.count(); ++i)
        QCOMPARE(cbo.itemData(i).toInt(), kinds[i]);
}

void tst_ctlShortList_Criteria::operatorsOfEachKindStandInTheirOrder() {
    ctlShortList ctl;
    QComboBox cbo;
    QString strErrorMessage;
    ctl.LoadOperators(&cbo, 3, strErrorMessage);
    QCOMPARE(Items(&cbo), QStringList({"contains", "does not contain", "does not equal",
                                       "ends with", "equals", "starts with"}));
    ctl.LoadOperators(&cbo, 1, strErrorMessage);
    QCOMPARE(Items(&cbo), QStringList({"does not equal", "equals", "is between", "is greater than",
                                       "is less than", "is not between"}));
    ctl.LoadOperators(&cbo, 2, strErrorMessage);
    QCOMPARE(Items(&cbo), QStringList({"does not equal", "equals", "is after", "is before",
                                       "is between", "is not between", "is empty"}));
    ctl.LoadOperators(&cbo, 0, strErrorMessage);
    QCOMPARE(Items(&cbo), QStringList({"equals"}));
    ctl.LoadOperators(&cbo, 7, strErrorMessage);
    QCOMPARE(cbo.count(), 0);
    QCOMPARE(strErrorMessage, QString());
}

void tst_ctlShortList_Criteria::aNewRowIsDescriptionContainsWithOneEmptyTextBox() {
    ctlShortList ctl;
    ctl.show();
    QCOMPARE(ctl.CriteriaCount(), qint16(1));
    QCOMPARE(ctl.cboFields(0)->currentText(), QString("Description"));
    QCOMPARE(ctl.cboOperator(0)->currentText(), QString("contains"));
    QCOMPARE(Tag(ctl, 0), QString("1Text"));
    QVERIFY(ctl.txtCriterion1(0)->isVisible());
    QVERIFY(ctl.txtCriterion1(0)->text().isEmpty());
    QVERIFY(!ctl.txtCriterion2(0)->isVisible());
    QVERIFY(!ctl.dtpCriterion1(0)->isVisible());
    QVERIFY(!ctl.cboCriterion(0)->isVisible());
    QVERIFY(!ctl.cmdAndOr(0)->isVisible());
    QVERIFY(!ctl.optAnd->isChecked());
    QVERIFY(!ctl.optOr->isChecked());
    QCOMPARE(ctl.fraAvailable->title(),
             QString("Available Service items - Show Service Items where"));
    QCOMPARE(ctl.cmdApplyCriteria->text(), QString("A&pply Criteria to tree"));
    QCOMPARE(ctl.cmdNewCriteria->text(), QString("&New Criteria"));
}

void tst_ctlShortList_Criteria::applyingANewRowFindsEveryItemWithADescription() {
    ScriptedPlatform platform;
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemDescription = NULL WHERE "
                       "ServiceItemID = ?",
                       {m_library.ids["notices"]}));
    ctlShortList ctl;
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ctl.WhereClauseInEffect(), QString("ServiceItemDescription Like '**'"));
    QCOMPARE(ItemTexts(ctl.tvwAvailable).join('|'),
             Descriptions(*m_db, m_library, {"grace", "faithful", "francis"}));
}

void tst_ctlShortList_Criteria::eachKindAndOperatorShowsItsEditors_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("op");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("shown"); // t1 t2 d1 d2 combo and
    QTest::addColumn<QString>("focus");
    QTest::newRow("date between") << "Date Created"
                                  << "is between"
                                  << "2Dates"
                                  << "d1 d2 and"
                                  << "d1";
    QTest::newRow("date not between") << "Date Created"
                                      << "is not between"
                                      << "2Dates"
                                      << "d1 d2 and"
                                      << "d1";
    QTest::newRow("date equals") << "Last Delivered in a service"
                                 << "equals"
                                 << "1Date"
                                 << "d1"
                                 << "d1";
    QTest::newRow("date is empty") << "Date Created"
                                   << "is empty"
                                   << "1Date"
                                   << "d1"
                                   << "d1";
    QTest::newRow("number between") << "Seconds to run"
                                    << "is between"
                                    << "2Texts"
                                    << "t1 t2 and"
                                    << "t1";
    QTest::newRow("number not between") << "Seconds to run"
                                        << "is not between"
                                        << "2Texts"
                                        << "t1 t2 and"
                                        << "t1";
    QTest::newRow("number greater") << "Seconds to run"
                                    << "is greater than"
                                    << "1Text"
                                    << "t1"
                                    << "t1";
    QTest::newRow("boolean") << "Run as points list"
                             << "equals"
                             << "1Combo"
                             << "combo"
                             << "combo";
    QTest::newRow("in a service") << "Is part of a service"
                                  << "equals"
                                  << "1Combo"
                                  << "combo"
                                  << "combo";
    QTest::newRow("text") << "Notes"
                          << "ends with"
                          << "1Text"
                          << "t1"
                          << "t1";
}

void tst_ctlShortList_Criteria::eachKindAndOperatorShowsItsEditors() {
    QFETCH(QString, field);
    QFETCH(QString, op);
    QFETCH(QString, tag);
    QFETCH(QString, shown);
    QFETCH(QString, focus);
    ctlShortList ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    ctl.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&ctl));
    SetRow(ctl, 0, field, op);
    QCOMPARE(Tag(ctl, 0), tag);
    const QStringList on = shown.split(' ');
    const QList<std::pair<QString, QWidget*>> editors = {
        {"t1", ctl.txtCriterion1(0)}, {"t2", ctl.txtCriterion2(0)},   {"d1", ctl.dtpCriterion1(0)},
        {"d2", ctl.dtpCriterion2(0)}, {"combo", ctl.cboCriterion(0)}, {"and", ctl.lblAnd(0)}};
    for (const auto& [name, widget] : editors) {
        QVERIFY2(widget->isVisible() == on.contains(name), qPrintable(name));
        if (name == focus)
            QTRY_VERIFY2(widget->hasFocus(), qPrintable(name));
    }
    // Each time the editors are set up: dates today, True/False with no choice.
    QCOMPARE(ctl.dtpCriterion1(0)->date(), QDate::currentDate());
    QCOMPARE(ctl.dtpCriterion2(0)->date(), QDate::currentDate());
    QCOMPARE(Items(ctl.cboCriterion(0)), QStringList({"True", "False"}));
    QCOMPARE(ctl.cboCriterion(0)->currentIndex(), -1);
}

void tst_ctlShortList_Criteria::pickingTheOperatorAgainDiscardsTheValue() {
    ctlShortList ctl;
    SetRow(ctl, 0, "Seconds to run", "is between", "10", "20");
    ctl.dtpCriterion1(0)->setDate(QDate(2020, 1, 1));
    // The user picks the same operator again from the list.
    const int index = ctl.cboOperator(0)->currentIndex();
    emit ctl.cboOperator(0)->activated(index);
    QCOMPARE(ctl.txtCriterion1(0)->text(), QString());
    QCOMPARE(ctl.txtCriterion2(0)->text(), QString());
    QCOMPARE(ctl.dtpCriterion1(0)->date(), QDate::currentDate());
}

void tst_ctlShortList_Criteria::rowsStand700TwipsApart() {
    ctlShortList ctl;
    ctl.cmdAndOr(0)->click(); // the last row's button adds a row
    ctl.cmdAndOr(1)->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(3));
    for (qint16 i = 1; i < 3; ++i) {
        QCOMPARE(ctl.cboFields(i)->y() - ctl.cboFields(0)->y(), Twips::ToPixels(700 * i));
        QCOMPARE(ctl.txtCriterion1(i)->y(), ctl.dtpCriterion1(i)->y());
        QCOMPARE(ctl.txtCriterion1(i)->y(), ctl.cboCriterion(i)->y());
        QCOMPARE(ctl.lblAnd(i)->y() - ctl.txtCriterion1(i)->y(), Twips::ToPixels(60));
        QCOMPARE(ctl.cboFields(i)->objectName(), QString("cboFields"));
        QCOMPARE(ctl.cboFields(i)->property("Index").toInt(), int(i));
    }
    // The scrolled area grows with the rows.
    QVERIFY(ctl.SSScrollCriteria->widget()->height() >=
            Twips::ToPixels(120 + 2 * 700 + 2 * 1200) - 1);
}

void tst_ctlShortList_Criteria::getFieldNameKeepsItsTwoMismatches() {
    ctlShortList ctl;
    QCOMPARE(ctl.GetFieldName("Type"), QString("ServiceItemTypeName"));
    QCOMPARE(ctl.GetFieldName("Last Delivered in a service"),
             QString("Services.ServiceDateLastDelivered"));
    QCOMPARE(ctl.GetFieldName("FileName"), QString());
    QCOMPARE(ctl.GetFieldName("Resources"), QString());
    QCOMPARE(ctl.GetFieldName("type"), QString()); // exact and case-sensitive
}

void tst_ctlShortList_Criteria::isPartOfAServiceTrueAndFalse() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Is part of a service", "equals");
    SetTrueFalse(ctl, 0, "True");
    QVERIFY(ctl.CriterionIsValid(0));
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ItemTexts(ctl.tvwAvailable).join('|'),
             Descriptions(*m_db, m_library, {"grace", "francis"}));
    SetTrueFalse(ctl, 0, "False");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ItemTexts(ctl.tvwAvailable).join('|'),
             Descriptions(*m_db, m_library, {"faithful", "notices"}));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Criteria::isPartOfAServiceWithNoChoiceIsRefusedAndSetToTrue() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Is part of a service", "equals");
    QCOMPARE(ctl.cboCriterion(0)->currentIndex(), -1);
    platform.QueueAnswer(vbOK);
    QVERIFY(!ctl.CriterionIsValid(0));
    QCOMPARE(platform.LastBox().Prompt, QString("Please set the criterion to True or False."));
    QCOMPARE(platform.LastBox().Title, QString("Invalid Entry"));
    QCOMPARE(platform.LastBox().Buttons, vbOKOnly);
    QCOMPARE(ctl.cboCriterion(0)->currentText(), QString("True"));
    QVERIFY(ctl.CriterionIsValid(0));
}

void tst_ctlShortList_Criteria::twoNumberBoxesAreCheckedInOrder_data() {
    QTest::addColumn<QString>("t1");
    QTest::addColumn<QString>("t2");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("t1After");
    QTest::addColumn<QString>("t2After");
    QTest::newRow("first empty") << ""
                                 << ""
                                 << "The first number box is empty. Please enter a number into it"
                                 << ""
                                 << "";
    QTest::newRow("second empty") << "5"
                                  << ""
                                  << "The second number box is empty. Please enter a number into it"
                                  << "5"
                                  << "";
    QTest::newRow("first not a number")
        << "five"
        << "x"
        << "The contents of the first number box is not a number. Please enter a number into it"
        << ""
        << "x";
    QTest::newRow("second not a number")
        << "5"
        << "ten"
        << "The contents of the second number box is not a number. Please enter a number into "
           "it"
        << "5"
        << "";
    QTest::newRow("first above second")
        << "20"
        << "10"
        << "The value of the first number box must be less than the value of the second one"
        << "20"
        << "10";
}

void tst_ctlShortList_Criteria::twoNumberBoxesAreCheckedInOrder() {
    QFETCH(QString, t1);
    QFETCH(QString, t2);
    QFETCH(QString, message);
    QFETCH(QString, t1After);
    QFETCH(QString, t2After);
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Seconds to run", "is between", t1, t2);
    platform.QueueAnswer(vbOK);
    QVERIFY(!ctl.CriterionIsValid(0));
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, message);
    QCOMPARE(platform.LastBox().Title, QString("Invalid Entry"));
    QCOMPARE(ctl.txtCriterion1(0)->text(), t1After);
    QCOMPARE(ctl.txtCriterion2(0)->text(), t2After);
}

void tst_ctlShortList_Criteria::oneNumberBoxIsChecked_data() {
    QTest::addColumn<QString>("t1");
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << ""
                           << "The number box is empty. Please enter a number into it";
    QTest::newRow("not a number")
        << "many"
        << "The contents of the number box is not a number. Please enter a number into it";
}

void tst_ctlShortList_Criteria::oneNumberBoxIsChecked() {
    QFETCH(QString, t1);
    QFETCH(QString, message);
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Seconds to run", "equals", t1);
    platform.QueueAnswer(vbOK);
    QVERIFY(!ctl.CriterionIsValid(0));
    QCOMPARE(platform.LastBox().Prompt, message);
    QCOMPARE(ctl.txtCriterion1(0)->text(), QString());
    ctl.txtCriterion1(0)->setText("60");
    QVERIFY(ctl.CriterionIsValid(0));
}

void tst_ctlShortList_Criteria::equalNumbersBetweenAreAcceptedAndFindNothing() {
    ScriptedPlatform platform;
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET SecondsToRun = 10 WHERE ServiceItemID = ?",
                       {m_library.ids["notices"]}));
    ctlShortList ctl;
    SetRow(ctl, 0, "Seconds to run", "is between", "10", "10");
    QVERIFY(ctl.CriterionIsValid(0));
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ctl.WhereClauseInEffect(), QString("SecondsToRun > 10 AND SecondsToRun < 10"));
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
}

void tst_ctlShortList_Criteria::datesInTheWrongOrderAreRefused() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Date Created", "is between");
    SetDates(ctl, 0, QDate(2026, 5, 1), QDate(2026, 4, 1));
    platform.QueueAnswer(vbOK);
    QVERIFY(!ctl.CriterionIsValid(0));
    QCOMPARE(platform.LastBox().Prompt,
             QString("The value of the first date box must be less than the value of the second "
                     "date box"));
    SetDates(ctl, 0, QDate(2026, 4, 1), QDate(2026, 4, 1));
    QVERIFY(ctl.CriterionIsValid(0));
    SetRow(ctl, 0, "Date Created", "is after");
    SetDates(ctl, 0, QDate(2026, 5, 1), QDate(2026, 4, 1));
    QVERIFY(ctl.CriterionIsValid(0)); // one date is always valid
}

void tst_ctlShortList_Criteria::textIsAlwaysValid() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    QVERIFY(ctl.CriterionIsValid(0));
    SetRow(ctl, 0, "Keywords", "equals", "");
    QVERIFY(ctl.CriterionIsValid(0));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Criteria::choosingAndWithAnInvalidFirstRowLeavesOneRowAndClearsTheRadio() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, "Seconds to run", "equals", "");
    platform.QueueAnswer(vbOK);
    ctl.optAnd->click();
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(ctl.CriteriaCount(), qint16(1));
    QVERIFY(!ctl.optAnd->isChecked());
    QVERIFY(!ctl.optOr->isChecked());
}

void tst_ctlShortList_Criteria::choosingAndWithAValidFirstRowStartsTheSecondRow() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.optAnd->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(2));
    QVERIFY(ctl.optAnd->isChecked());
    QCOMPARE(ctl.cmdAndOr(1)->text(), QString("and"));
    QCOMPARE(ctl.cboFields(1)->currentText(), QString("Description"));
    // With two rows the radio only changes the word.
    ctl.optOr->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(2));
    QCOMPARE(ctl.cmdAndOr(1)->text(), QString("or"));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Criteria::theLastRowsButtonAddsARowAndTheOthersDoNothing() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.cmdAndOr(0)->click();
    ctl.cmdAndOr(1)->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(3));
    ctl.cmdAndOr(1)->click(); // not the last row
    QCOMPARE(ctl.CriteriaCount(), qint16(3));
    // An invalid last row adds nothing.
    SetRow(ctl, 2, "Seconds to run", "equals", "x");
    platform.QueueAnswer(vbOK);
    ctl.cmdAndOr(2)->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(3));
}

void tst_ctlShortList_Criteria::switchingAndToOrChangesEveryCaptionAndJoin() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.optAnd->click();
    ctl.cmdAndOr(1)->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(3));
    QCOMPARE(ctl.cmdAndOr(1)->text(), QString("and"));
    QCOMPARE(ctl.cmdAndOr(2)->text(), QString("and"));
    SetRow(ctl, 0, "Type", "equals", "Hymn");
    SetRow(ctl, 1, "Seconds to run", "is greater than", "100");
    SetRow(ctl, 2, "Keywords", "equals", "Grace");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ctl.WhereClauseInEffect(),
             QString("(ServiceItemTypeName = 'Hymn') AND (SecondsToRun > 100) AND "
                     "(KeywordText = 'Grace')"));
    QCOMPARE(ItemTexts(ctl.tvwAvailable).join('|'), Descriptions(*m_db, m_library, {"grace"}));

    ctl.optOr->click();
    QCOMPARE(ctl.cmdAndOr(1)->text(), QString("or"));
    QCOMPARE(ctl.cmdAndOr(2)->text(), QString("or"));
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ctl.WhereClauseInEffect(),
             QString("(ServiceItemTypeName = 'Hymn') OR (SecondsToRun > 100) OR "
                     "(KeywordText = 'Grace')"));
    QCOMPARE(ctl.FilterInPlainEnglish(),
             QString("Type equals 'Hymn' or Seconds to run is greater than 100 or Keywords "
                     "equals 'Grace'"));
    QCOMPARE(ItemTexts(ctl.tvwAvailable).join('|'),
             Descriptions(*m_db, m_library, {"grace", "faithful"}));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlShortList_Criteria::theJoinWordJoinsEveryRowInParentheses() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.optOr->click();
    SetRow(ctl, 0, "Type", "equals", "Hymn");
    SetRow(ctl, 1, "Seconds to run", "is greater than", "60");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ctl.WhereClauseInEffect(),
             QString("(ServiceItemTypeName = 'Hymn') OR (SecondsToRun > 60)"));
    QCOMPARE(ctl.FilterInPlainEnglish(),
             QString("Type equals 'Hymn' or Seconds to run is greater than 60"));
}

void tst_ctlShortList_Criteria::onlyTheLastRowIsCheckedByTheApply() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.optAnd->click();
    // The first row was valid when the second was added; now it holds no number.
    SetRow(ctl, 0, "Seconds to run", "is greater than", "lots");
    SetRow(ctl, 1, "Type", "equals", "Hymn");
    platform.QueueAnswer(vbOK); // the store's error, not a check's message
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(
        platform.LastBox().Prompt.startsWith("QVLTCONTROLS:ctlShortList:cmdApplyCriteria_Click: "));
    QVERIFY(!platform.LastBox().Prompt.contains("number box"));
    QCOMPARE(ctl.txtCriterion1(0)->text(), QString("lots"));
}

void tst_ctlShortList_Criteria::fileNameEqualsHasNoColumnAndTheApplyShowsTheStoresError() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    const qint32 before = ctl.tvwAvailable->Count();
    SetRow(ctl, 0, "FileName", "equals", "hymn.doc");
    QString strErrorMessage;
    QVERIFY(ctl.GetCriterionAsWhereClause(0, strErrorMessage).startsWith(" = '"));
    QString strStoreError;
    m_library.Found(" = 'hymn.doc'", strStoreError);
    QVERIFY(!strStoreError.isEmpty());
    platform.QueueAnswer(vbOK);
    TraceFile trace;
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt,
             "QVLTCONTROLS:ctlShortList:cmdApplyCriteria_Click: " + strStoreError);
    QVERIFY(trace.NewErrorLines().contains(platform.LastBox().Prompt));
    QVERIFY(before > 0);
    QCOMPARE(ctl.tvwAvailable->Count(), 0); // as the fill left it
}

void tst_ctlShortList_Criteria::newCriteriaStartsOverWithOneRow() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.optAnd->click();
    ctl.cmdAndOr(1)->click();
    SetRow(ctl, 0, "Type", "equals", "Prayer");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"Prayer of St Francis"}));
    ctl.cmdNewCriteria->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(1));
    QCOMPARE(ctl.cboFields(0)->currentText(), QString("Description"));
    QCOMPARE(ctl.cboOperator(0)->currentText(), QString("contains"));
    QCOMPARE(ctl.txtCriterion1(0)->text(), QString());
    QVERIFY(!ctl.optAnd->isChecked());
    QVERIFY(!ctl.optOr->isChecked());
    QVERIFY(ctl.findChildren<QComboBox*>("cboFields").size() == 1);
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
    QCOMPARE(ctl.WhereClauseInEffect(), QString());
}

void tst_ctlShortList_Criteria::anApostropheIsLookedForAndNoErrorIsShown() {
    ScriptedPlatform platform;
    const qint32 id = m_db->AddServiceItem(TestDatabase::Prayer, "Prayer by Fr O'Brien");
    QVERIFY(id > 0);
    ctlShortList ctl;
    SetRow(ctl, 0, "Description", "contains", "O'Brien");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"Prayer by Fr O'Brien"}));
    QCOMPARE(ctl.FilterInPlainEnglish(), QString("Description contains 'O'Brien'"));
    SetRow(ctl, 0, "Description", "equals", "'");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
}

void tst_ctlShortList_Criteria::aDatePickerHoldsOnlyDates() {
    ScriptedPlatform platform;
    ctlShortList ctl;
    ctl.show();
    SetRow(ctl, 0, "Date Created", "equals");
    QDateEdit* dtp = ctl.dtpCriterion1(0);
    dtp->setFocus();
    QTest::keyClicks(dtp, "31-Feb-abc");
    QVERIFY(dtp->date().isValid());
    dtp->setDate(QDate()); // an invalid date is refused by the picker
    QVERIFY(dtp->date().isValid());
    QVERIFY(ctl.CriterionIsValid(0));
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QVERIFY(ctl.WhereClauseInEffect().contains(QRegularExpression("#\\d\\d-\\w\\w\\w-\\d\\d#")));
}

void tst_ctlShortList_Criteria::aThousandRowsAreRefusedClearlyBeyondTheMost() {
    ScriptedPlatform platform;
    platform.SetDefaultAnswer(vbOK);
    ctlShortList ctl;
    ctl.optAnd->click();
    for (int i = 2; i < 1000; ++i)
        ctl.cmdAndOr(ctl.CriteriaCount() - 1)->click();
    QCOMPARE(ctl.CriteriaCount(), ctlShortList::MaxCriteria);
    QCOMPARE(platform.BoxCount(), 1000 - 2 - (ctlShortList::MaxCriteria - 2));
    QCOMPARE(platform.LastBox().Prompt,
             QString("A Short-List can be narrowed by no more than 50 criteria. Please apply "
                     "these, or start again with New Criteria."));
    QCOMPARE(platform.LastBox().Title, QString("Invalid Entry"));
    // The most rows, each of the widest kind, still make a condition the store reads.
    for (qint16 i = 0; i < ctl.CriteriaCount(); ++i)
        SetRow(ctl, i, "Seconds to run", "is between", "-1", "1000");
    platform.ClearRecords();
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
    ctl.optOr->click();
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable).size(), 4);
    ctl.cmdNewCriteria->click();
    QCOMPARE(ctl.CriteriaCount(), qint16(1));
}

void tst_ctlShortList_Criteria::aValueOfTenThousandCharactersIsLookedFor() {
    ScriptedPlatform platform;
    const QString longText = QString("Alleluia ").repeated(1112).left(10000);
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemNotes = ? WHERE ServiceItemID = ?",
                       {longText, m_library.ids["notices"]}));
    ctlShortList ctl;
    SetRow(ctl, 0, "Notes", "equals", longText);
    QCOMPARE(ctl.txtCriterion1(0)->text().size(), 10000);
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ItemTexts(ctl.tvwAvailable), QStringList({"Notices"}));
}

void tst_ctlShortList_Criteria::aDeletedKeywordFindsNothingWithoutError() {
    ScriptedPlatform platform;
    QVERIFY(m_db->Exec("DELETE FROM ServiceItemKeywords WHERE KeywordID IN (SELECT KeywordID "
                       "FROM KeyWords WHERE KeywordText = 'Christmas')"));
    QVERIFY(m_db->Exec("DELETE FROM KeyWords WHERE KeywordText = 'Christmas'"));
    ctlShortList ctl;
    SetRow(ctl, 0, "Keywords", "equals", "Christmas");
    ctl.cmdApplyCriteria->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ctl.tvwAvailable->Count(), 0);
    QCOMPARE(ctl.lblNumberAvailableSIs->text(), QString("0"));
}

QTEST_MAIN(tst_ctlShortList_Criteria)
#include "tst_ctlShortList_Criteria.moc"
