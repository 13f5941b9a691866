// The WHERE text and the plain-English words of every field and operator of
// the short-list criteria, each run against a seeded database with the rows it
// must find.
#include "ScriptedPlatform.h"
#include "ShortListFixture.h"

#include <QTest>

using namespace ShortListFixture;

class tst_ShortListCriteriaText : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void everyFieldAndOperatorGivesItsClauseWordsAndRows_data();
    void everyFieldAndOperatorGivesItsClauseWordsAndRows();
    void everyFieldOfTheListIsCovered();

private:
    std::unique_ptr<TestDatabase> m_db;
    Library m_library;
    QSet<QString> m_covered;
};

void tst_ShortListCriteriaText::initTestCase() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_library = Library();
    QVERIFY2(m_library.Seed(*m_db), qPrintable(m_db->LastError()));
}

void tst_ShortListCriteriaText::cleanupTestCase() {
    m_db.reset();
}

void tst_ShortListCriteriaText::everyFieldAndOperatorGivesItsClauseWordsAndRows_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("op");
    QTest::addColumn<QString>("text1");
    QTest::addColumn<QString>("text2");
    QTest::addColumn<QDate>("date1");
    QTest::addColumn<QDate>("date2");
    QTest::addColumn<QString>("trueFalse");
    QTest::addColumn<QString>("clause");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("found");
    QTest::addColumn<bool>("storeRefuses");

    const QDate none;
    const QDate jan10(2026, 1, 10), jan1(2026, 1, 1), jun15(2026, 6, 15), nov20(2026, 11, 20),
        dec25(2025, 12, 25);
    auto text = [&](const char* name, const char* field, const char* op, const char* t1,
                    const char* clause, const char* words, QStringList found) {
        QTest::newRow(name) << field << op << t1 << QString() << none << none << QString() << clause
                            << words << found << false;
    };
    // Text fields, each operator at least once.
    text("Content contains", "Content", "contains", "grace", "ServiceItemContent Like '*grace*'",
         "Content contains 'grace'", {"grace"});
    text("Content starts with", "Content", "starts with", "Lord", "ServiceItemContent Like 'Lord*'",
         "Content starts with 'Lord'", {"francis"});
    text("Copyright does not contain", "Copyright", "does not contain", "Public",
         "ServiceItemCopyrightDetails Not Like '*Public*'", "Copyright does not contain 'Public'",
         {"faithful"});
    text("Description does not equal", "Description", "does not equal", "Notices",
         "ServiceItemDescription <> 'Notices'", "Description does not equal 'Notices'",
         {"faithful", "francis", "grace"});
    text("Description contains nothing", "Description", "contains", "",
         "ServiceItemDescription Like '**'", "Description contains ''",
         {"faithful", "francis", "grace", "notices"});
    text("Keywords equals", "Keywords", "equals", "Christmas", "KeywordText = 'Christmas'",
         "Keywords equals 'Christmas'", {"faithful"});
    text("Notes ends with", "Notes", "ends with", "it", "ServiceItemNotes Like '*it'",
         "Notes ends with 'it'", {"grace"});
    text("Original Location starts with", "Original Location", "starts with", "Ol",
         "ServiceItemOriginalLocation Like 'Ol*'", "Original Location starts with 'Ol'", {"grace"});
    text("Provider equals", "Provider", "equals", "Oxford", "ServiceItemProvider = 'Oxford'",
         "Provider equals 'Oxford'", {"faithful"});
    text("Song Key does not equal", "Song Key", "does not equal", "G", "ServiceItemSongKey <> 'G'",
         "Song Key does not equal 'G'", {"faithful"});
    text("Melody contains", "Melody", "contains", "Brit", "ServiceItemMelody Like '*Brit*'",
         "Melody contains 'Brit'", {"grace"});
    text("Source starts with", "Source", "starts with", "Car", "ServiceItemSource Like 'Car*'",
         "Source starts with 'Car'", {"faithful"});
    text("Type equals", "Type", "equals", "Hymn", "ServiceItemTypeName = 'Hymn'",
         "Type equals 'Hymn'", {"faithful", "grace"});
    // The two rows without a column: the condition starts with its operator and
    // the store refuses it.
    QTest::newRow("FileName equals") << "FileName"
                                     << "equals"
                                     << "x" << QString() << none << none << QString() << " = 'x'"
                                     << "FileName equals 'x'" << QStringList() << true;
    QTest::newRow("Resources contains")
        << "Resources"
        << "contains"
        << "x" << QString() << none << none << QString() << " Like '*x*'"
        << "Resources contains 'x'" << QStringList() << true;

    // Numbers.
    auto number = [&](const char* name, const char* op, const char* t1, const char* t2,
                      const char* clause, const char* words, QStringList found) {
        QTest::newRow(name) << "Seconds to run" << op << t1 << t2 << none << none << QString()
                            << clause << words << found << false;
    };
    number("Seconds does not equal", "does not equal", "60", "", "SecondsToRun <> 60",
           "Seconds to run does not equal 60", {"faithful", "grace", "notices"});
    number("Seconds equals", "equals", "180", "", "SecondsToRun = 180", "Seconds to run equals 180",
           {"grace"});
    number("Seconds is between (exclusive)", "is between", "60", "240",
           "SecondsToRun > 60 AND SecondsToRun < 240", "Seconds to run is between 60 and 240",
           {"grace"});
    number("Seconds is greater than", "is greater than", "60", "", "SecondsToRun > 60",
           "Seconds to run is greater than 60", {"faithful", "grace"});
    number("Seconds is less than", "is less than", "60", "", "SecondsToRun < 60",
           "Seconds to run is less than 60", {"notices"});
    number("Seconds is not between finds nothing", "is not between", "60", "240",
           "SecondsToRun < 60 AND SecondsToRun > 240", "Seconds to run is not between 60 and 240",
           {});

    // Dates.
    auto date = [&](const char* name, const char* field, const char* op, QDate d1, QDate d2,
                    const char* clause, const char* words, QStringList found) {
        QTest::newRow(name) << field << op << QString() << QString() << d1 << d2 << QString()
                            << clause << words << found << false;
    };
    date("Date Created does not equal", "Date Created", "does not equal", jan10, none,
         "ServiceItemDateCreated <> #10-Jan-26#", "Date Created does not equal 10-Jan-26",
         {"faithful", "francis", "notices"});
    date("Date Created equals", "Date Created", "equals", jan10, none,
         "ServiceItemDateCreated = #10-Jan-26#", "Date Created equals 10-Jan-26", {"grace"});
    date("Date Created is after", "Date Created", "is after", jun15, none,
         "ServiceItemDateCreated > #15-Jun-26#", "Date Created is after 15-Jun-26", {"notices"});
    date("Date Created is before", "Date Created", "is before", jan10, none,
         "ServiceItemDateCreated < #10-Jan-26#", "Date Created is before 10-Jan-26", {"francis"});
    date("Date Created is between (exclusive)", "Date Created", "is between", jan1, nov20,
         "ServiceItemDateCreated > #01-Jan-26# AND ServiceItemDateCreated < #20-Nov-26#",
         "Date Created is between 01-Jan-26 and 20-Nov-26", {"faithful", "grace"});
    date("Date Created is not between finds nothing", "Date Created", "is not between", jan1, nov20,
         "ServiceItemDateCreated < #01-Jan-26# AND ServiceItemDateCreated > #20-Nov-26#",
         "Date Created is not between 01-Jan-26 and 20-Nov-26", {});
    date("Date Created is empty", "Date Created", "is empty", jan1, none,
         "ServiceItemDateCreated Is Null", "Date Created is empty", {});
    date("Last Delivered is after", "Last Delivered in a service", "is after", jan1, none,
         "Services.ServiceDateLastDelivered > #01-Jan-26#",
         "Last Delivered in a service is after 01-Jan-26", {"grace"});
    date("Last Delivered equals", "Last Delivered in a service", "equals", dec25, none,
         "Services.ServiceDateLastDelivered = #25-Dec-25#",
         "Last Delivered in a service equals 25-Dec-25", {"francis"});
    date("Last Delivered is empty", "Last Delivered in a service", "is empty", jan1, none,
         "Services.ServiceDateLastDelivered Is Null", "Last Delivered in a service is empty",
         {"faithful", "notices"});

    // True and False.
    auto boolean = [&](const char* name, const char* field, const char* value, const char* clause,
                       const char* words, QStringList found) {
        QTest::newRow(name) << field << "equals" << QString() << QString() << none << none << value
                            << clause << words << found << false;
    };
    boolean("Run as points list True", "Run as points list", "True", "RunAsPointsList = True",
            "Run as points list equals True", {"francis"});
    boolean("Run as points list False", "Run as points list", "False", "RunAsPointsList = False",
            "Run as points list equals False", {"faithful", "grace", "notices"});
    boolean("Is part of a service True", "Is part of a service", "True",
            "ServiceItemsInUse.ServiceItemID Is NOT Null", "Is part of a service equals True",
            {"francis", "grace"});
    boolean("Is part of a service False", "Is part of a service", "False",
            "ServiceItemsInUse.ServiceItemID Is Null", "Is part of a service equals False",
            {"faithful", "notices"});
}

void tst_ShortListCriteriaText::everyFieldAndOperatorGivesItsClauseWordsAndRows() {
    QFETCH(QString, field);
    QFETCH(QString, op);
    QFETCH(QString, text1);
    QFETCH(QString, text2);
    QFETCH(QDate, date1);
    QFETCH(QDate, date2);
    QFETCH(QString, trueFalse);
    QFETCH(QString, clause);
    QFETCH(QString, words);
    QFETCH(QStringList, found);
    QFETCH(bool, storeRefuses);

    ScriptedPlatform platform;
    ctlShortList ctl;
    SetRow(ctl, 0, field, op, text1, text2);
    QCOMPARE(ctl.cboFields(0)->currentText(), field);
    QCOMPARE(ctl.cboOperator(0)->currentText(), op);
    if (date1.isValid())
        SetDates(ctl, 0, date1, date2);
    if (!trueFalse.isEmpty())
        SetTrueFalse(ctl, 0, trueFalse);
    QString strErrorMessage;
    QCOMPARE(ctl.GetCriterionAsWhereClause(0, strErrorMessage), clause);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(ctl.GetCriterionInPlainEnglish(0), words);

    QString strStoreError;
    QCOMPARE(m_library.Found(clause, strStoreError), found);
    QCOMPARE(!strStoreError.isEmpty(), storeRefuses);
    m_covered.insert(field + "|" + op);

    // The same row applied to the tree finds the same items.
    if (!storeRefuses) {
        ctl.cmdApplyCriteria->click();
        QCOMPARE(platform.BoxCount(), 0);
        QStringList shown = ItemTexts(ctl.tvwAvailable);
        QStringList expected;
        for (const QString& key : found)
            expected << m_db->Scalar("SELECT ServiceItemDescription FROM ServiceItems WHERE "
                                     "ServiceItemID = ?",
                                     {m_library.ids[key]})
                            .toString();
        expected.sort();
        QCOMPARE(shown, expected);
        QCOMPARE(ctl.WhereClauseInEffect(), clause);
        QCOMPARE(ctl.FilterInPlainEnglish(), words);
    }
}

// Every operator of every field kind had a row above (the text operators over
// the text fields together).
void tst_ShortListCriteriaText::everyFieldOfTheListIsCovered() {
    QSet<QString> fields;
    QSet<QString> operatorsByKind[4];
    for (const QString& entry : std::as_const(m_covered)) {
        const QString field = entry.section('|', 0, 0);
        fields.insert(field);
        const qint32 index = ShortListCriterion::FieldCaptions().indexOf(field);
        operatorsByKind[ShortListCriterion::FieldKindOf(index)].insert(entry.section('|', 1));
    }
    for (const QString& field : ShortListCriterion::FieldCaptions())
        QVERIFY2(fields.contains(field), qPrintable(field));
    for (qint16 kind = 0; kind <= 3; ++kind)
        for (const QString& op : ShortListCriterion::Operators(kind))
            QVERIFY2(operatorsByKind[kind].contains(op), qPrintable(op));
}

QTEST_MAIN(tst_ShortListCriteriaText)
#include "tst_ShortListCriteriaText.moc"
