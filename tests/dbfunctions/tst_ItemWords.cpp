// The quick filter's condition over the joined service items first narrows the items by their
// words (the table the data library keeps beside the items); the rows must be exactly those of
// the condition alone, after every kind of change to the texts an item's words come from.

#include "DataAccess.h"
#include "Recordset.h"
#include "TestDatabase.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

namespace {

DataAccess& da() {
    return DataAccess::Instance();
}

const char* const kQuickFields[] = {
    "ServiceItemTypes.ServiceItemTypeName",     "ServiceItems.ServiceItemDescription",
    "ServiceItems.ServiceItemContent",          "ServiceItems.ServiceItemNotes",
    "ServiceItems.ServiceItemSource",           "ServiceItems.ServiceItemProvider",
    "ServiceItems.ServiceItemMelody",           "KeyWords.KeywordText",
    "ServiceItems.ServiceItemOriginalLocation", "ServiceItemPoints.PointText"};

// The gallery's quick clause for the text T.
QString QuickClause(const QString& T) {
    QStringList parts;
    for (const char* field : kQuickFields)
        parts << QStringLiteral("%1 Like '*%2*'").arg(QLatin1String(field), T);
    return parts.join(QStringLiteral(" Or "));
}

// Every row of the joined query, as item, keyword and point, in the order they come.
QStringList Rows(const QString& clause) {
    QString error;
    std::unique_ptr<Recordset> rs;
    da().GetServiceItemsJoined(clause, 4, error, rs);
    if (!error.isEmpty() || !rs)
        return {QStringLiteral("error: ") + error};
    QStringList rows;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        rows << QStringLiteral("%1/%2/%3")
                    .arg(rs->Fields(QStringLiteral("ServiceItems.ServiceItemID")).toString(),
                         rs->Fields(QStringLiteral("KeywordText")).toString(),
                         rs->Fields(QStringLiteral("PointText")).toString());
    return rows;
}

// The same condition in a form that is not a plain chain of Like: a last condition that is
// never true keeps the words out of it, so this is what the engine answers without them.
QStringList RowsWithoutWords(const QString& clause) {
    return Rows(clause + QStringLiteral(" Or ServiceItems.ServiceItemID Is Null"));
}

} // namespace

class tst_ItemWords : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> db;
    qint32 hymn = 0, prayer = 0, points = 0;

    // Both answers for the text, compared; also returns the rows.
    QStringList Checked(const QString& T) {
        const QStringList narrowed = Rows(QuickClause(T));
        const QStringList plain = RowsWithoutWords(QuickClause(T));
        if (narrowed != plain)
            qWarning() << "text" << T << "narrowed" << narrowed << "plain" << plain;
        return narrowed == plain ? narrowed : QStringList{QStringLiteral("differs")};
    }

    qint32 ItemsOf(const QStringList& rows) {
        QSet<QString> ids;
        for (const QString& row : rows)
            ids.insert(row.section('/', 0, 0));
        return static_cast<qint32>(ids.size());
    }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        QVERIFY(db->IsValid());
        hymn = db->AddServiceItem(TestDatabase::Song, "Amazing Grace", "How sweet the sound");
        prayer = db->AddServiceItem(TestDatabase::Prayer, "Evening Prayer", "Lighten our ÄRGER",
                                    "said kneeling");
        points = db->AddServiceItem(TestDatabase::PointsOnly, "Sermon outline");
        QVERIFY(hymn > 0 && prayer > 0 && points > 0);
        QVERIFY(db->AddKeywords(hymn, {"Grace", "Classic"}));
        QVERIFY(db->AddPoints(points, {{"P1", "", "Forgiveness", ""}, {"P2", "", "Hope", ""}}));
    }
    void cleanup() { db.reset(); }

    void quickTextFindsTheSameRowsAsTheConditionAlone() {
        QCOMPARE(ItemsOf(Checked("grace")), 1);
        QCOMPARE(ItemsOf(Checked("hope")), 1);
        QCOMPARE(ItemsOf(Checked("zz")), 0);
        QVERIFY(ItemsOf(Checked("e")) >= 3);
        // A keyword row of an item matches on its own keyword only.
        const QStringList classic = Checked("classic");
        QCOMPARE(classic.size(), 1);
        QVERIFY(classic.first().contains("Classic"));
    }

    void lettersOfEveryAlphabetMatchWithoutRegardToCase() {
        QCOMPARE(ItemsOf(Checked("ärger")), 1);
        QCOMPARE(ItemsOf(Checked("ÄRGER")), 1);
    }

    void jetWildcardsInsideTheTextKeepTheirMeaning() {
        QCOMPARE(ItemsOf(Checked("Gr?ce")), 1);
        QCOMPARE(ItemsOf(Checked("[AE]mazing")), 1);
        QCOMPARE(ItemsOf(Checked("P#")), 0);
        // A match that would run over two fields of the words is not a match.
        QCOMPARE(ItemsOf(Checked("Grace*sweet")), 0);
        QCOMPARE(ItemsOf(Checked("Prayer*kneeling")), 0);
    }

    void aChangedDescriptionIsFoundAtOnce() {
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemDescription = 'Be Thou My Vision' "
                         "WHERE ServiceItemID = ?",
                         {hymn}));
        QCOMPARE(ItemsOf(Checked("vision")), 1);
        QCOMPARE(ItemsOf(Checked("amazing")), 0);
    }

    void everyOtherSearchedFieldIsFoundAtOnce() {
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemSource = 'Psalter', "
                         "ServiceItemProvider = 'Choir', ServiceItemMelody = 'New Britain', "
                         "ServiceItemOriginalLocation = 'Olney' WHERE ServiceItemID = ?",
                         {hymn}));
        for (const char* T : {"psalter", "choir", "britain", "olney", "kneeling", "sweet"})
            QCOMPARE(ItemsOf(Checked(T)), 1);
    }

    void aRenamedTypeIsFoundAtOnce() {
        QVERIFY(db->Exec("UPDATE ServiceItemTypes SET ServiceItemTypeName = 'Intercession' "
                         "WHERE ServiceItemTypeID = ?",
                         {qint32(TestDatabase::Prayer)}));
        QCOMPARE(ItemsOf(Checked("intercession")), 1);
    }

    void keywordsLinkedRenamedAndUnlinkedAreFoundAtOnce() {
        QVERIFY(db->AddKeywords(prayer, {"Vespers"}));
        QCOMPARE(ItemsOf(Checked("vespers")), 1);
        QVERIFY(db->Exec("UPDATE KeyWords SET KeywordText = 'Compline' WHERE KeywordText = "
                         "'Vespers'"));
        QCOMPARE(ItemsOf(Checked("compline")), 1);
        QCOMPARE(ItemsOf(Checked("vespers")), 0);
        QVERIFY(db->Exec("DELETE FROM ServiceItemKeywords WHERE ServiceItemID = ?", {prayer}));
        QCOMPARE(ItemsOf(Checked("compline")), 0);
    }

    void pointsAddedChangedAndDeletedAreFoundAtOnce() {
        QVERIFY(db->Exec("UPDATE ServiceItemPoints SET PointText = 'Redemption' WHERE "
                         "PointText = 'Hope'"));
        QCOMPARE(ItemsOf(Checked("redemption")), 1);
        QCOMPARE(ItemsOf(Checked("hope")), 0);
        QVERIFY(db->Exec("DELETE FROM ServiceItemPoints WHERE ServiceItemID = ?", {points}));
        QCOMPARE(ItemsOf(Checked("forgiveness")), 0);
    }

    void aDeletedItemLeavesNoWords() {
        QString error;
        da().DeleteServiceItem(hymn, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(db->Count("ServiceItemWords", "ServiceItemID = ?", {hymn}), 0);
        QCOMPARE(ItemsOf(Checked("grace")), 0);
    }

    void aTextOfFewItemsAmongManyGivesTheirRowsInTheGallerysOrder() {
        // Twenty more items, some with keywords and points, on days that are not the order of
        // their ids: a text that only two of them hold is read through those two items' ids,
        // a text that nearly all hold by the walk through the items in date order. Both give
        // the rows of the condition alone, in the same order.
        QList<qint32> added;
        for (int i = 0; i < 20; ++i) {
            const qint32 id =
                db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect %1").arg(i),
                                   i % 10 == 3 ? "Kyrie eleison" : "Amen");
            QVERIFY(id > 0);
            QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemDateCreated = ? WHERE "
                             "ServiceItemID = ?",
                             {QStringLiteral("2024-01-%1 10:00:00")
                                  .arg(28 - (i * 7) % 20, 2, 10, QLatin1Char('0')),
                              id}));
            added << id;
        }
        QVERIFY(db->AddKeywords(added.at(3), {"Penitence", "kyrie", "Advent"}));
        QVERIFY(db->AddPoints(added.at(13), {{"P1", "", "Lord, have mercy", ""},
                                             {"P2", "", "Christ, have mercy", ""}}));
        const QStringList few = Checked("kyrie");
        QCOMPARE(ItemsOf(few), 2);
        QCOMPARE(few.size(), 3 + 2); // three keywords of one, two points of the other
        // Newest first (the 27th before the 17th), an item's keywords in their text order.
        QCOMPARE(few.first().section('/', 0, 0), QString::number(added.at(3)));
        QCOMPARE(few.at(1).section('/', 1, 1), QStringLiteral("kyrie"));
        QCOMPARE(few.at(3).section('/', 0, 0), QString::number(added.at(13)));
        QVERIFY(ItemsOf(Checked("e")) >= 20);
        QCOMPARE(ItemsOf(Checked("collect 1")), 11); // 1 and 10 to 19
    }

    void otherConditionsAreAnsweredAsBefore() {
        // Not a chain of Like with one text: the words take no part, the rows are the same.
        const QString mixed = "ServiceItems.ServiceItemDescription Like '*grace*' Or "
                              "ServiceItems.ServiceItemDescription Like '*prayer*'";
        QCOMPARE(ItemsOf(Rows(mixed)), 2);
        const QString negated = "ServiceItems.ServiceItemDescription Not Like '*grace*'";
        QCOMPARE(Rows(negated), RowsWithoutWords(negated));
        QCOMPARE(ItemsOf(Rows("ServiceItems.ServiceItemDescription Like 'Amazing*'")), 1);
    }

    void anOlderFileGetsTheWordsOfItsItems() {
        const QString path = db->Path();
        da().CloseDatabase();
        {
            QSqlDatabase raw = QSqlDatabase::addDatabase("QSQLITE", "older");
            raw.setDatabaseName(path);
            QVERIFY(raw.open());
            QSqlQuery q(raw);
            QVERIFY(q.exec("DROP TABLE ServiceItemWords"));
            QVERIFY(q.exec("PRAGMA user_version = 2"));
            raw.close();
        }
        QSqlDatabase::removeDatabase("older");
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(db->Count("ServiceItemWords"), db->Count("ServiceItems"));
        QCOMPARE(ItemsOf(Checked("hope")), 1);
        QCOMPARE(ItemsOf(Checked("classic")), 1);
    }
};

QTEST_MAIN(tst_ItemWords)
#include "tst_ItemWords.moc"
