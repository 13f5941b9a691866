#include "DataAccessCore.h"
#include "JetWhere.h"

#include <QSqlQuery>

#include <QSet>
#include <QStringList>

// The words of every service item in one row: ServiceItemWords holds, for each item, the texts
// of the ten fields that the galleries' quick filter searches (its type's name, description,
// content, notes, source, provider, melody, original location, its keywords and its points),
// one after the other, a line break between two. Triggers mark an item's words to be made
// again (Null) on every write to the tables those texts come from, and the quick filter makes
// the marked ones before it reads them; a marked item that could not be made counts as
// matching. So the words never lack a word an item has; they may hold one it no longer has,
// which only lets an item through that the full condition then turns away.
//
// A condition "F1 Like 'p' Or F2 Like 'p' ..." over those fields can only be true for a row
// whose item's words hold a place that matches 'p': every field is one run of the words. So the
// gallery's query first takes the items whose words match "*p*" (one Like per item, on one text,
// before any join) and tests the full condition on their rows only. The rows that come back are
// exactly those of the condition alone.

namespace {

// The texts of item si, as one value; Null fields add nothing but their line break.
const char* const kWordsOfItem =
    "ifnull((SELECT t.ServiceItemTypeName FROM ServiceItemTypes t"
    " WHERE t.ServiceItemTypeID = si.ServiceItemTypeID), '')"
    " || char(10) || ifnull(si.ServiceItemDescription, '')"
    " || char(10) || ifnull(si.ServiceItemContent, '')"
    " || char(10) || ifnull(si.ServiceItemNotes, '')"
    " || char(10) || ifnull(si.ServiceItemSource, '')"
    " || char(10) || ifnull(si.ServiceItemProvider, '')"
    " || char(10) || ifnull(si.ServiceItemMelody, '')"
    " || char(10) || ifnull(si.ServiceItemOriginalLocation, '')"
    " || char(10) || ifnull((SELECT group_concat(k.KeywordText, char(10))"
    " FROM ServiceItemKeywords sik JOIN KeyWords k ON k.KeywordID = sik.KeywordID"
    " WHERE sik.ServiceItemID = si.ServiceItemID), '')"
    " || char(10) || ifnull((SELECT group_concat(p.PointText, char(10))"
    " FROM ServiceItemPoints p WHERE p.ServiceItemID = si.ServiceItemID), '')";

// Marks the words of the items that the condition on si picks as to be made again (Null): a
// trigger costs the same whatever the item holds, so that writing thousands of points of one
// item stays linear; the words are made when the quick filter next asks (CatchUp). The old
// rows are deleted first rather than replaced: a statement that sets off a trigger imposes its
// own way with a conflict on the trigger's statements (an "INSERT OR IGNORE" of a keyword link
// would keep the old words).
QString MarkToDo(const QString& condition) {
    return QStringLiteral("DELETE FROM ServiceItemWords WHERE ServiceItemID IN (SELECT "
                          "si.ServiceItemID FROM ServiceItems si WHERE %1); "
                          "INSERT INTO ServiceItemWords (ServiceItemID, Words) "
                          "SELECT si.ServiceItemID, NULL FROM ServiceItems si WHERE %1;")
        .arg(condition);
}

// Makes the words that are marked to be made again.
void CatchUp() {
    QSqlQuery q(DataAccessPrivate::Db());
    // A file that cannot be written keeps its marks; a marked item counts as matching.
    q.exec(QStringLiteral("UPDATE ServiceItemWords SET Words = (SELECT %1 FROM ServiceItems si "
                          "WHERE si.ServiceItemID = ServiceItemWords.ServiceItemID) "
                          "WHERE Words IS NULL")
               .arg(QLatin1String(kWordsOfItem)));
}

QString Trigger(const QString& name, const QString& event, const QString& body) {
    return QStringLiteral("CREATE TRIGGER IF NOT EXISTS %1 AFTER %2 BEGIN %3 END")
        .arg(name, event, body);
}

QString ItemsOfKeyword(const QString& id) {
    return QStringLiteral(
               "si.ServiceItemID IN (SELECT ServiceItemID FROM ServiceItemKeywords WHERE "
               "KeywordID = %1)")
        .arg(id);
}

const QString kItemFields =
    QStringLiteral("ServiceItemID, ServiceItemTypeID, ServiceItemDescription, ServiceItemContent, "
                   "ServiceItemNotes, ServiceItemSource, ServiceItemProvider, ServiceItemMelody, "
                   "ServiceItemOriginalLocation");

} // namespace

// The table, its triggers and its rows for the items already stored. Every statement may run
// again on a file that has them.
QStringList ItemWordsSchema() {
    const QString forNew = QStringLiteral("si.ServiceItemID = NEW.ServiceItemID");
    const QString forOld = QStringLiteral("si.ServiceItemID = OLD.ServiceItemID");
    const QString dropOld =
        QStringLiteral("DELETE FROM ServiceItemWords WHERE ServiceItemID = OLD.ServiceItemID;");
    return {
        QStringLiteral("CREATE TABLE IF NOT EXISTS ServiceItemWords ("
                       "ServiceItemID INTEGER PRIMARY KEY, Words TEXT)"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS ServiceItemWordsToDo ON ServiceItemWords "
                       "(ServiceItemID) WHERE Words IS NULL"),
        Trigger(QStringLiteral("ServiceItemWordsItemAdded"),
                QStringLiteral("INSERT ON ServiceItems"), MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsItemChanged"),
                QStringLiteral("UPDATE OF %1 ON ServiceItems").arg(kItemFields),
                dropOld + MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsItemDeleted"),
                QStringLiteral("DELETE ON ServiceItems"), dropOld),
        Trigger(QStringLiteral("ServiceItemWordsTypeAdded"),
                QStringLiteral("INSERT ON ServiceItemTypes"),
                MarkToDo(QStringLiteral("si.ServiceItemTypeID = NEW.ServiceItemTypeID"))),
        Trigger(
            QStringLiteral("ServiceItemWordsTypeChanged"),
            QStringLiteral("UPDATE OF ServiceItemTypeID, ServiceItemTypeName ON ServiceItemTypes"),
            MarkToDo(QStringLiteral(
                "si.ServiceItemTypeID IN (OLD.ServiceItemTypeID, NEW.ServiceItemTypeID)"))),
        Trigger(QStringLiteral("ServiceItemWordsKeywordAdded"),
                QStringLiteral("INSERT ON KeyWords"),
                MarkToDo(ItemsOfKeyword(QStringLiteral("NEW.KeywordID")))),
        Trigger(QStringLiteral("ServiceItemWordsKeywordChanged"),
                QStringLiteral("UPDATE OF KeywordID, KeywordText ON KeyWords"),
                MarkToDo(ItemsOfKeyword(QStringLiteral("OLD.KeywordID"))) +
                    MarkToDo(ItemsOfKeyword(QStringLiteral("NEW.KeywordID")))),
        Trigger(QStringLiteral("ServiceItemWordsLinkAdded"),
                QStringLiteral("INSERT ON ServiceItemKeywords"), MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsLinkChanged"),
                QStringLiteral("UPDATE ON ServiceItemKeywords"),
                MarkToDo(forOld) + MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsLinkDeleted"),
                QStringLiteral("DELETE ON ServiceItemKeywords"), MarkToDo(forOld)),
        Trigger(QStringLiteral("ServiceItemWordsPointAdded"),
                QStringLiteral("INSERT ON ServiceItemPoints"), MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsPointChanged"),
                QStringLiteral("UPDATE OF ServiceItemID, PointText ON ServiceItemPoints"),
                MarkToDo(forOld) + MarkToDo(forNew)),
        Trigger(QStringLiteral("ServiceItemWordsPointDeleted"),
                QStringLiteral("DELETE ON ServiceItemPoints"), MarkToDo(forOld)),
        QStringLiteral("DELETE FROM ServiceItemWords"),
        QStringLiteral("INSERT INTO ServiceItemWords (ServiceItemID, Words) SELECT "
                       "si.ServiceItemID, %1 FROM ServiceItems si")
            .arg(QLatin1String(kWordsOfItem)),
    };
}

// Puts the test of the items' words before a condition of the quick filter's form over the
// fields that the words hold; leaves every other condition as it is.
void NarrowByItemWords(JetWhere::Result& where) {
    static const QSet<QString> kWordFields = {
        QStringLiteral("t.\"ServiceItemTypeName\""),
        QStringLiteral("si.\"ServiceItemDescription\""),
        QStringLiteral("si.\"ServiceItemContent\""),
        QStringLiteral("si.\"ServiceItemNotes\""),
        QStringLiteral("si.\"ServiceItemSource\""),
        QStringLiteral("si.\"ServiceItemProvider\""),
        QStringLiteral("si.\"ServiceItemMelody\""),
        QStringLiteral("si.\"ServiceItemOriginalLocation\""),
        QStringLiteral("k.\"KeywordText\""),
        QStringLiteral("p.\"PointText\""),
    };
    if (!where.ok() || where.likeChainFields.isEmpty())
        return;
    for (const QString& field : where.likeChainFields)
        if (!kWordFields.contains(field))
            return;
    // Any run of the words matching the pattern: stars on both ends (one is enough).
    QString pattern = where.likeChainPattern;
    if (!pattern.startsWith(QLatin1Char('*')))
        pattern.prepend(QLatin1Char('*'));
    if (!pattern.endsWith(QLatin1Char('*')) || pattern.size() == 1)
        pattern.append(QLatin1Char('*'));
    CatchUp();
    QList<qint64> ids;
    qint64 lngScanned = 0;
    if (!DataAccessPrivate::ReadIds(QStringLiteral("SELECT ServiceItemID FROM ServiceItemWords "
                                                   "WHERE Words IS NULL OR jet_like(Words, ?)"),
                                    {pattern}, ids, lngScanned)) {
        // The words cannot be read here: the engine tests them itself, item by item.
        where.sql = QStringLiteral("(+si.ServiceItemID IN (SELECT ServiceItemID FROM "
                                   "ServiceItemWords WHERE Words IS NULL OR jet_like(Words, ?))) "
                                   "AND ") +
                    where.sql;
        where.params.prepend(pattern);
        return;
    }
    // The matching ids go to the statement as one bound value, a JSON array. Few of them (under
    // a quarter of the items): the engine reads those items by their ids and sorts their rows.
    // Many: the unary plus keeps it walking all items in the order of the index that gives the
    // gallery's order, looking each up in the set of ids, so that no sort of all rows is needed.
    const bool blnFew = ids.size() * 4 < lngScanned;
    QString strIds;
    strIds.reserve(ids.size() * 7 + 2);
    strIds += QLatin1Char('[');
    for (qsizetype i = 0; i < ids.size(); ++i) {
        if (i > 0)
            strIds += QLatin1Char(',');
        strIds += QString::number(ids.at(i));
    }
    strIds += QLatin1Char(']');
    where.sql = (blnFew ? QStringLiteral("(si.ServiceItemID IN (SELECT value FROM json_each(?))) "
                                         "AND ")
                        : QStringLiteral("(+si.ServiceItemID IN (SELECT value FROM "
                                         "json_each(?))) AND ")) +
                where.sql;
    where.params.prepend(strIds);
}
