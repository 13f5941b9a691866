// Recordset: finding fields by name (letter case, table prefixes, brackets, unknown names) and
// the values a query gives back (dates in local time, texts that are no dates, Null).

#include "DataAccess.h"
#include "DataAccessCore.h"
#include "Recordset.h"
#include "TestDatabase.h"
#include "TraceLog.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

namespace {

// Two tables with a column of the same name, as the joined queries have them.
Recordset TwoTables() {
    return Recordset({{"ServiceItems", "ServiceItemID"},
                      {"ServiceItems", "ServiceItemTypeID"},
                      {"ServiceItemTypes", "ServiceItemTypeName"},
                      {"ServiceItemTypes", "ServiceItemTypeID"},
                      {QString(), "Extra"}},
                     {{7, 3, "Reading", 4, "x"}, {8, 5, "Story", 6, "y"}});
}

// What a stored date text became before the text was read by hand: the reference the values
// of a query are held to.
QVariant ParsedWithFormat(const QString& text) {
    QDateTime when = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (!when.isValid())
        when = QDateTime::fromString(text, Qt::ISODate);
    return when.isValid() ? QVariant(when) : QVariant(text);
}

// Sets the time zone of the process for the life of the object.
class TimeZoneScope {
public:
    explicit TimeZoneScope(const QByteArray& zone) : m_had(qEnvironmentVariableIsSet("TZ")) {
        m_old = qgetenv("TZ");
        qputenv("TZ", zone);
        tzset();
    }
    ~TimeZoneScope() {
        if (m_had)
            qputenv("TZ", m_old);
        else
            qunsetenv("TZ");
        tzset();
    }

private:
    bool m_had;
    QByteArray m_old;
};

} // namespace

class tst_Recordset : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_traceDir;

    QString TraceText() const {
        QFile file(m_traceDir.path() + "/Recordset.trace");
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    // Writes each text as the creation date of a new item and reads them back through
    // GetServiceItems, oldest item first.
    QVariantList DatesThroughQuery(TestDatabase& db, const QStringList& texts) {
        QList<qint32> ids;
        for (const QString& text : texts) {
            const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "Dated");
            if (id <= 0 || !db.Exec("UPDATE ServiceItems SET ServiceItemDateCreated = ? WHERE "
                                    "ServiceItemID = ?",
                                    {text.isNull() ? QVariant() : QVariant(text), id}))
                return {};
            ids << id;
        }
        QVariantList values;
        for (qint32 id : ids) {
            QString error;
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServiceItems(QStringLiteral("ServiceItemID = %1").arg(id), 4,
                                                   error, rs);
            if (!error.isEmpty() || !rs || rs->RecordCount() != 1)
                return {};
            values << rs->Fields("ServiceItemDateCreated");
        }
        return values;
    }

    qsizetype m_rowsRead = 0;

    // Every value of every row of the statement, read by the data library, is the value Qt's
    // SQLite driver gives (a Null as a plain null value), of the same type.
    void ReadAsTheDriverGivesIt(const QString& sql, const QStringList& names) {
        m_rowsRead = 0;
        QList<QVariantList> expected;
        QSqlQuery reference(DataAccess::Instance().Database());
        QVERIFY(reference.exec(sql));
        while (reference.next()) {
            QVariantList row;
            for (int i = 0; i < names.size(); ++i)
                row << (reference.value(i).isNull() ? QVariant() : reference.value(i));
            expected << row;
        }
        QString error;
        std::unique_ptr<Recordset> rs;
        QVERIFY2(DataAccessPrivate::Select(sql, {}, error, "Mixed", rs), qPrintable(error));
        QCOMPARE(rs->RecordCount(), expected.size());
        for (const QVariantList& row : expected) {
            for (int i = 0; i < names.size(); ++i) {
                const QVariant actual = rs->Fields(names.at(i));
                const QString where = QStringLiteral("row %1, %2").arg(row.first().toInt()).arg(i);
                QVERIFY2(actual.typeId() == row.at(i).typeId(), qPrintable(where));
                QVERIFY2(actual == row.at(i), qPrintable(where));
            }
            rs->MoveNext();
        }
        QVERIFY(rs->Eof());
        m_rowsRead = expected.size();
    }

    static void CompareDates(const QVariantList& values, const QStringList& texts) {
        QCOMPARE(values.size(), texts.size());
        for (qsizetype i = 0; i < texts.size(); ++i) {
            const QVariant expected = ParsedWithFormat(texts.at(i));
            const QVariant actual = values.at(i);
            QVERIFY2(actual.typeId() == expected.typeId(), qPrintable(texts.at(i)));
            QVERIFY2(actual == expected, qPrintable(texts.at(i)));
            if (expected.typeId() == QMetaType::QDateTime) {
                const QDateTime a = actual.toDateTime();
                const QDateTime e = expected.toDateTime();
                QVERIFY2(a.timeSpec() == e.timeSpec(), qPrintable(texts.at(i)));
                QVERIFY2(a.date() == e.date() && a.time() == e.time(), qPrintable(texts.at(i)));
                QVERIFY2(a.offsetFromUtc() == e.offsetFromUtc(), qPrintable(texts.at(i)));
                QVERIFY2(a.toMSecsSinceEpoch() == e.toMSecsSinceEpoch(), qPrintable(texts.at(i)));
            }
        }
    }

private slots:
    void init() {
        qputenv("CORVANTIS_TRACE", (m_traceDir.path() + "/Recordset.trace").toUtf8());
        QFile::remove(m_traceDir.path() + "/Recordset.trace");
    }

    // ---- Finding fields by name ---------------------------------------------------------
    void nameWithoutPrefixFindsTheFirstFieldOfThatName() {
        Recordset rs = TwoTables();
        QCOMPARE(rs.Fields("ServiceItemTypeID").toInt(), 3);
        QCOMPARE(rs.Fields("ServiceItemTypeName").toString(), QString("Reading"));
        QCOMPARE(rs.Fields("Extra").toString(), QString("x"));
    }

    void tablePrefixChoosesBetweenFieldsOfTheSameName() {
        Recordset rs = TwoTables();
        QCOMPARE(rs.Fields("ServiceItems.ServiceItemTypeID").toInt(), 3);
        QCOMPARE(rs.Fields("ServiceItemTypes.ServiceItemTypeID").toInt(), 4);
        rs.MoveNext();
        QCOMPARE(rs.Fields("ServiceItemTypes.ServiceItemTypeID").toInt(), 6);
        QCOMPARE(rs.Fields("ServiceItems.ServiceItemTypeID").toInt(), 5);
    }

    void letterCaseIsIgnoredInTableAndName() {
        Recordset rs = TwoTables();
        QCOMPARE(rs.Fields("serviceitemtypes.SERVICEITEMTYPEID").toInt(), 4);
        QCOMPARE(rs.Fields("SERVICEITEMS.serviceitemtypeid").toInt(), 3);
        QCOMPARE(rs.Fields("sErViCeItEmId").toInt(), 7);
        QVERIFY(rs.HasField("EXTRA"));
    }

    void prefixNamingNoTableOfTheRowStillFindsTheName() {
        Recordset rs = TwoTables();
        QCOMPARE(rs.Fields("Keywords.ServiceItemTypeID").toInt(), 3);
        QCOMPARE(rs.Fields("Nowhere.ServiceItemTypeName").toString(), QString("Reading"));
        QCOMPARE(rs.Fields("ServiceItems.Extra").toString(), QString("x"));
    }

    void bracketsAndSpacesAroundTheNameAreIgnored() {
        Recordset rs = TwoTables();
        QCOMPARE(rs.Fields("[ServiceItemTypeName]").toString(), QString("Reading"));
        QCOMPARE(rs.Fields("ServiceItemTypes.[ServiceItemTypeID]").toInt(), 4);
        QCOMPARE(rs.Fields(" ServiceItemTypes . ServiceItemTypeID ").toInt(), 4);
        QCOMPARE(rs.Fields("  extra ").toString(), QString("x"));
    }

    void fieldOfATableWithoutItsNameIsNotFound() {
        Recordset rs = TwoTables();
        QVERIFY(!rs.Fields("ServiceItemTypes.NoSuchField").isValid());
        QVERIFY(!rs.Fields("ServiceItemTypes").isValid());
        QVERIFY(!rs.Fields("").isValid());
        QVERIFY(!rs.HasField("ServiceItemTypeID.ServiceItems"));
    }

    void lettersBeyondAsciiMatchAsCaseInsensitiveComparisonDoes() {
        const QStringList names = {"Größe", "Straße", "ΟΔΟΣ", "Ärger", "İl", "ǅemal", "𐐀x"};
        const QStringList asked = {"GRÖßE", "größe", "GRÖSSE", "STRASSE", "straße", "οδος",
                                   "οδοσ",  "ΟΔΟς",  "ärger",  "ÄRGER",   "il",     "i̇l",
                                   "ǆemal", "Ǆemal", "𐐨X",     "𐐀X",      "x"};
        QList<Recordset::Column> columns;
        QVariantList row;
        for (const QString& name : names) {
            columns << Recordset::Column{QString(), name};
            row << name;
        }
        Recordset rs(columns, QList<QVariantList>{row});
        for (const QString& spelling : asked) {
            QVariant expected;
            for (const QString& name : names)
                if (name.compare(spelling, Qt::CaseInsensitive) == 0) {
                    expected = name;
                    break;
                }
            QVERIFY2(rs.Fields(spelling) == expected, qPrintable(spelling));
            QVERIFY2(rs.Fields("Nowhere." + spelling) == expected, qPrintable(spelling));
        }
    }

    void unknownNameGivesInvalidValueAndAnErrorLine() {
        Recordset rs = TwoTables();
        QVERIFY(!rs.Fields("NoSuchField").isValid());
        QVERIFY(!rs.Fields("NoSuchField").isValid());
        QCOMPARE(TraceText(), QString("ERROR: QVLTDBFUNCTIONS:Recordset:Fields: Item not found in "
                                      "this collection: NoSuchField\n")
                                  .repeated(2));
    }

    void readingPastTheLastRowGivesInvalidValueAndAnErrorLine() {
        Recordset rs = TwoTables();
        rs.MoveNext();
        rs.MoveNext();
        QVERIFY(rs.Eof());
        QVERIFY(!rs.Fields("Extra").isValid());
        QCOMPARE(TraceText(),
                 QString("ERROR: QVLTDBFUNCTIONS:Recordset:Fields: No current record: Extra\n"));
    }

    void sameNameAskedManyTimesKeepsFollowingTheCurrentRow() {
        Recordset rs = TwoTables();
        QList<qint32> ids;
        QStringList names;
        while (!rs.Eof()) {
            ids << rs.Fields("ServiceItems.ServiceItemID").toInt();
            names << rs.Fields("ServiceItemTypeName").toString();
            QCOMPARE(rs.Fields("serviceitems.serviceitemid").toInt(), ids.last());
            rs.MoveNext();
        }
        QCOMPARE(ids, QList<qint32>({7, 8}));
        QCOMPARE(names, QStringList({"Reading", "Story"}));
    }

    void copiedRecordsetFindsFieldsOnItsOwn() {
        Recordset first = TwoTables();
        QCOMPARE(first.Fields("Extra").toString(), QString("x"));
        Recordset copy = first;
        copy.MoveNext();
        QCOMPARE(copy.Fields("Extra").toString(), QString("y"));
        QCOMPARE(first.Fields("Extra").toString(), QString("x"));
    }

    void conversionOfAColumnRunsOnceForEachValueRead() {
        int calls = 0;
        Recordset::Column doubled{"T", "Number"};
        doubled.convert = [&calls](const QVariant& raw) {
            ++calls;
            return raw.isNull() ? QVariant() : QVariant(raw.toInt() * 2);
        };
        Recordset rs({{"T", "Id"}, doubled}, QVariantList{1, 10, 2, QVariant(), 3, 30});
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.Fields("Id").toInt(), 1);
        QCOMPARE(calls, 0);
        QCOMPARE(rs.Fields("Number").toInt(), 20);
        QCOMPARE(rs.Fields("T.Number").toInt(), 20);
        QCOMPARE(calls, 1);
        rs.MoveNext();
        QVERIFY(rs.Fields("Number").isNull());
        rs.MoveNext();
        rs.MovePrevious();
        QVERIFY(rs.Fields("Number").isNull());
        QCOMPARE(calls, 2);
        rs.MoveLast();
        QCOMPARE(rs.Fields("Id").toInt(), 3);
        QCOMPARE(calls, 2);
    }

    void rowsGivenAsListsReadAsRowsGivenOneAfterTheOther() {
        const QList<Recordset::Column> columns = {{"T", "A"}, {"T", "B"}};
        Recordset lists(columns, QList<QVariantList>{{1, "one"}, {2}, {3, "three"}});
        Recordset flat(columns, QVariantList{1, "one", 2, QVariant(), 3, "three"});
        QCOMPARE(lists.RecordCount(), 3);
        QCOMPARE(flat.RecordCount(), 3);
        while (!lists.Eof()) {
            QCOMPARE(lists.Fields("A"), flat.Fields("A"));
            QCOMPARE(lists.Fields("B"), flat.Fields("B"));
            lists.MoveNext();
            flat.MoveNext();
        }
        QVERIFY(flat.Eof());
    }

    void fieldNamesKeepTheirTablesAndOrder() {
        const Recordset rs = TwoTables();
        QCOMPARE(rs.FieldNames(),
                 QStringList({"ServiceItems.ServiceItemID", "ServiceItems.ServiceItemTypeID",
                              "ServiceItemTypes.ServiceItemTypeName",
                              "ServiceItemTypes.ServiceItemTypeID", "Extra"}));
    }

    void pendingChangeIsReadBackUnderAnySpellingUntilUpdate() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        QString error;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetOptions(error, rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(rs->Edit());
        QVERIFY(rs->SetField("ChurchName", "St Anne"));
        QCOMPARE(rs->Fields("CHURCHNAME").toString(), QString("St Anne"));
        QCOMPARE(rs->Fields("[churchname]").toString(), QString("St Anne"));
        QVERIFY(rs->Update());
        QCOMPARE(rs->Fields("ChurchName").toString(), QString("St Anne"));
    }

    // ---- Values of a query --------------------------------------------------------------
    void storedDatesComeBackInLocalTimeAsBefore() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        const QStringList texts = {"2024-01-05 10:20:30", "1999-12-31 23:59:59",
                                   "2024-02-29 00:00:00", "2024-07-14 12:00:00",
                                   "0100-06-01 12:00:00", "9999-12-31 23:59:59",
                                   "1970-01-01 00:00:00"};
        const QVariantList values = DatesThroughQuery(db, texts);
        CompareDates(values, texts);
        QCOMPARE(values.first().toDateTime().timeSpec(), Qt::LocalTime);
        QCOMPARE(values.first().toDateTime(),
                 QDateTime(QDate(2024, 1, 5), QTime(10, 20, 30), Qt::LocalTime));
    }

    void dateTextsInOtherFormsConvertAsBefore() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        const QStringList texts = {"2024-01-05T10:20:30", "2024-01-05", "2024-01-05 10:20",
                                   "2024-01-05 10:20:30.250", "2024-01-05T10:20:30Z"};
        CompareDates(DatesThroughQuery(db, texts), texts);
    }

    void textsThatAreNoDatesStayTexts() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        const QStringList texts = {"2023-02-29 10:00:00", "2024-13-01 10:00:00",
                                   "2024-01-05 24:00:00", "2024-01-05 10:60:00",
                                   "0000-01-01 00:00:00", " 2024-01-05 10:20:30",
                                   "2024/01/05 10:20:30", "2024-01-05x10:20:30",
                                   "yesterday",           ""};
        const QVariantList values = DatesThroughQuery(db, texts);
        CompareDates(values, texts);
        QCOMPARE(values.at(0).typeId(), QMetaType::QString);
        QCOMPARE(values.at(0).toString(), QString("2023-02-29 10:00:00"));
    }

    void nullDateStaysNullBesideADate() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        const qint32 never = db.AddService("Never held");
        const qint32 held = db.AddService("Held");
        QVERIFY(never > 0 && held > 0);
        QVERIFY(db.Exec("UPDATE Services SET ServiceDateLastDelivered = ? WHERE ServiceID = ?",
                        {"2024-03-10 10:30:00", held}));
        QString error;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetServices(
            QStringLiteral("ServiceID IN (%1, %2)").arg(never).arg(held), 4, error, rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(rs->RecordCount(), 2);
        QHash<qint32, QVariant> delivered;
        while (!rs->Eof()) {
            delivered.insert(rs->Fields("ServiceID").toInt(),
                             rs->Fields("ServiceDateLastDelivered"));
            rs->MoveNext();
        }
        QVERIFY(delivered.value(never).isNull());
        QCOMPARE(delivered.value(held),
                 QVariant(QDateTime(QDate(2024, 3, 10), QTime(10, 30), Qt::LocalTime)));
    }

    void datesAroundSummerTimeChangesConvertAsBefore() {
        QVERIFY(QFile::exists("/usr/share/zoneinfo/Europe/Berlin"));
        TimeZoneScope zone("Europe/Berlin");
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        // The hour that does not exist in spring and the hour that comes twice in autumn.
        const QStringList texts = {"2023-03-26 01:59:59", "2023-03-26 02:00:00",
                                   "2023-03-26 02:30:00", "2023-03-26 03:00:00",
                                   "2023-10-29 01:59:59", "2023-10-29 02:30:00",
                                   "2023-10-29 03:00:00", "2023-07-01 12:00:00"};
        const QVariantList values = DatesThroughQuery(db, texts);
        CompareDates(values, texts);
        QCOMPARE(values.last().toDateTime().offsetFromUtc(), 7200);
    }

    void everyRowComesAsTheDriverGivesIt() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        QVERIFY(db.Exec("CREATE TABLE Mixed (MixedId INTEGER, MixedWhole INTEGER, MixedReal REAL, "
                        "MixedWords TEXT, MixedBytes BLOB, MixedAnything)"));
        const QList<QVariantList> stored = {
            {1, 42, 2.5, "plain", QByteArray("\x01\x00\x02", 3), 7},
            {2, Q_INT64_C(-9223372036854775807), 3.0, QString::fromUtf8("Grüße 𝄞 e\u0301"),
             QByteArray(), "text"},
            {3, QVariant(), -0.125, "", QByteArray(""), 1.5},
            {4, "12abc", QVariant(), QVariant(), QVariant(), QVariant()},
            {5, Q_INT64_C(1) << 40, 1e300, QString(1000, 'x'), QByteArray(3000, 'b'),
             QByteArray("blob")},
            {6, 7.0, 8, "9", "text in a blob column", -0.0}};
        for (const QVariantList& row : stored)
            QVERIFY(db.Exec("INSERT INTO Mixed VALUES (?, ?, ?, ?, ?, ?)", row));
        const QString sql = "SELECT * FROM Mixed ORDER BY MixedId";
        ReadAsTheDriverGivesIt(sql, {"MixedId", "MixedWhole", "MixedReal", "MixedWords",
                                     "MixedBytes", "MixedAnything"});
        QCOMPARE(m_rowsRead, stored.size());
    }

    void repeatedTextsOfFollowingRowsReadAsTheDriverGivesThem() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        QVERIFY(db.Exec("CREATE TABLE Repeats (RepeatId INTEGER, RepeatA TEXT, RepeatB)"));
        const QString accents = QString::fromUtf8("Grüße 𝄞 e\u0301");
        const QList<QVariantList> stored = {{1, "same", "same"},
                                            {2, "same", "same"},
                                            {3, "other", "same"},
                                            {4, "same", 5},
                                            {5, "", QVariant()},
                                            {6, QVariant(), ""},
                                            {7, "", ""},
                                            {8, accents, "samf"},
                                            {9, accents, accents},
                                            {10, "sam", "same"},
                                            {11, "same", "5"},
                                            {12, QString(3000, 'x'), "5"},
                                            {13, QString(3000, 'x'), QString(2999, 'x') + "y"}};
        for (const QVariantList& row : stored)
            QVERIFY(db.Exec("INSERT INTO Repeats VALUES (?, ?, ?)", row));
        ReadAsTheDriverGivesIt("SELECT * FROM Repeats ORDER BY RepeatId",
                               {"RepeatId", "RepeatA", "RepeatB"});
        QCOMPARE(m_rowsRead, stored.size());
    }

    void rowThatCannotBeFetchedGivesTheDriversErrorText() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        // abs() of the smallest integer overflows: the first row comes, the second fails.
        const QString sql = "SELECT abs(x) AS MixedValue FROM (SELECT 1 AS x UNION ALL SELECT "
                            "-9223372036854775807 - 1 UNION ALL SELECT 3)";
        QSqlQuery reference(DataAccess::Instance().Database());
        QVERIFY(reference.exec(sql));
        QVERIFY(reference.next());
        QVERIFY(!reference.next());
        QVERIFY(reference.lastError().isValid());
        QVERIFY(reference.lastError().text().contains("overflow"));
        QString error;
        std::unique_ptr<Recordset> rs;
        QVERIFY(!DataAccessPrivate::Select(sql, {}, error, "Overflow", rs));
        QVERIFY(!rs);
        QCOMPARE(error, "QVLTDBFUNCTIONS:DataAccess:Overflow: " + reference.lastError().text());
        QVERIFY(TraceText().contains("ERROR: " + error));
    }

    void repeatedRowsOfOneItemShareItsDate() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        const qint32 item = db.AddServiceItem(TestDatabase::Message, "Sermon");
        QVERIFY(db.AddKeywords(item, {"Advent", "Hope", "Light"}));
        QVERIFY(db.Exec("UPDATE ServiceItems SET ServiceItemDateCreated = ? WHERE "
                        "ServiceItemID = ?",
                        {"2022-11-27 09:30:00", item}));
        const qint32 other = db.AddServiceItem(TestDatabase::Prayer, "Collect");
        QVERIFY(db.Exec("UPDATE ServiceItems SET ServiceItemDateCreated = ? WHERE "
                        "ServiceItemID = ?",
                        {"2022-11-27 09:30:01", other}));
        QString error;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetServiceItemsJoined(
            QStringLiteral("ServiceItems.ServiceItemID IN (%1, %2)").arg(item).arg(other), 4, error,
            rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(rs->RecordCount(), 4);
        QList<QDateTime> dates;
        QStringList keywords;
        while (!rs->Eof()) {
            dates << rs->Fields("ServiceItemDateCreated").toDateTime();
            keywords << rs->Fields("KeywordText").toString();
            rs->MoveNext();
        }
        const QDateTime sermon(QDate(2022, 11, 27), QTime(9, 30, 0));
        QCOMPARE(dates, QList<QDateTime>({sermon.addSecs(1), sermon, sermon, sermon}));
        QCOMPARE(keywords, QStringList({"", "Advent", "Hope", "Light"}));
    }
};

QTEST_GUILESS_MAIN(tst_Recordset)
#include "tst_Recordset.moc"
