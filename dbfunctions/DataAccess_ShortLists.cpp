#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QRegularExpression>

// Short lists: saved selections of service items, and the query behind their criteria.

using P = DataAccessPrivate;

namespace {

const QStringList kShortListFields = {"ShortListID",          "ShortListDescription",
                                      "ShortListNotes",       "ShortListCreatedBy",
                                      "ShortListDateCreated", "ShortListContent"};

void SelectShortLists(const QString& strWhereClause, QString& strErrorMessage,
                      const char* operation, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM ShortLists sl")
                       .arg(P::Columns("sl", "ShortLists", kShortListFields)),
                   {{"ShortLists", "sl"}}, strWhereClause,
                   QStringLiteral("ORDER BY sl.ShortListDateCreated DESC, sl.ShortListID DESC"),
                   strErrorMessage, operation, rs);
}

} // namespace

void DataAccess::GetShortLists(const QString& strWhereClause, QString& strErrorMessage,
                               std::unique_ptr<Recordset>& rs) {
    SelectShortLists(strWhereClause, strErrorMessage, "GetShortLists", rs);
}

void DataAccess::GetShortListsWhere(const QString& strWhereClause, QString& strErrorMessage,
                                    std::unique_ptr<Recordset>& rs) {
    SelectShortLists(strWhereClause, strErrorMessage, "GetShortListsWhere", rs);
}

void DataAccess::GetShortListCandidates(const QString& strWhereClause, QString& strErrorMessage,
                                        std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString select =
        QStringLiteral("SELECT %1, %2, %3, %4, %5 FROM ServiceItems si"
                       " LEFT JOIN ServiceItemTypes t ON t.ServiceItemTypeID = si.ServiceItemTypeID"
                       " LEFT JOIN ServiceItemKeywords sik ON sik.ServiceItemID = si.ServiceItemID"
                       " LEFT JOIN KeyWords k ON k.KeywordID = sik.KeywordID"
                       " LEFT JOIN ServiceItemsInUse u ON u.ServiceItemID = si.ServiceItemID"
                       " LEFT JOIN ServiceContents sc ON sc.ServiceItemID = si.ServiceItemID"
                       " LEFT JOIN Services s ON s.ServiceID = sc.ServiceID")
            .arg(P::Columns("si", "ServiceItems", P::ColumnsOf(QStringLiteral("ServiceItems"))),
                 P::Columns("t", "ServiceItemTypes", {"ServiceItemTypeName"}),
                 P::Columns("k", "KeyWords", {"KeywordID", "KeywordText"}),
                 P::Columns("u", "ServiceItemsInUse", {"ServiceItemID"}),
                 P::Columns("s", "Services", {"ServiceID", "ServiceDateLastDelivered"}));
    P::SelectWhere(select,
                   {{"ServiceItems", "si"},
                    {"ServiceItemTypes", "t"},
                    {"KeyWords", "k"},
                    {"ServiceItemKeywords", "sik"},
                    {"ServiceItemsInUse", "u"},
                    {"Services", "s"},
                    {"ServiceContents", "sc"}},
                   strWhereClause,
                   QStringLiteral("ORDER BY t.ServiceItemTypeName COLLATE JETTEXT, "
                                  "si.ServiceItemDescription COLLATE JETTEXT, si.ServiceItemID"),
                   strErrorMessage, "GetShortListCandidates", rs);
}

void DataAccess::SaveShortList(qint32 lngShortListID, const QString& strDescription,
                               const QString& strCreatedBy, const QString& strNotes,
                               const QString& strContent, QString& strErrorMessage, QVariant&) {
    SaveShortList(lngShortListID, strDescription, strCreatedBy, strNotes, strContent,
                  strErrorMessage);
}

void DataAccess::SaveShortList(qint32 lngShortListID, const QString& strDescription,
                               const QString& strCreatedBy, const QString& strNotes,
                               const QString& strContent, QString& strErrorMessage) {
    strErrorMessage.clear();
    static const QRegularExpression ids(QStringLiteral("^\\s*(\\d+\\s*(,\\s*\\d+\\s*)*)?$"));
    if (!ids.match(strContent).hasMatch()) {
        P::Fail(strErrorMessage, "SaveShortList",
                QStringLiteral("The content '%1' is not a list of ids separated by ','.")
                    .arg(strContent));
        return;
    }
    QSqlQuery q;
    if (P::Exec(QStringLiteral("UPDATE ShortLists SET ShortListDescription = ?, "
                               "ShortListCreatedBy = ?, ShortListNotes = ?, ShortListContent = ? "
                               "WHERE ShortListID = ?"),
                {P::EmptyToNull(strDescription), P::EmptyToNull(strCreatedBy),
                 P::EmptyToNull(strNotes), QString(strContent).remove(' '), lngShortListID},
                strErrorMessage, "SaveShortList", &q) &&
        q.numRowsAffected() == 0)
        P::Fail(strErrorMessage, "SaveShortList",
                QStringLiteral("Short-List %1 does not exist.").arg(lngShortListID));
}

void DataAccess::NewShortListRecord(QString& strErrorMessage, qint32& lngNewShortListID) {
    strErrorMessage.clear();
    lngNewShortListID = 0;
    if (P::Exec(QStringLiteral("INSERT INTO ShortLists (ShortListDateCreated, ShortListContent) "
                               "VALUES (?, '')"),
                {P::Now()}, strErrorMessage, "NewShortListRecord"))
        lngNewShortListID = P::LastInsertId();
}

void DataAccess::DeleteShortListRecord(qint32 lngShortListID, const QVariant&,
                                       QString& strErrorMessage, QVariant&) {
    DeleteShortListRecord(lngShortListID, strErrorMessage);
}

void DataAccess::DeleteShortListRecord(qint32 lngShortListID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ShortLists WHERE ShortListID = ?"), {lngShortListID},
            strErrorMessage, "DeleteShortListRecord");
}

void DataAccess::ShortListShown(qint32 lngShortListID) {
    QString ignored;
    P::SetState(QStringLiteral("LastShownShortListID"), lngShortListID, ignored, "ShortListShown");
}

void DataAccess::GetLastShownShortList(qint32& lngShortListID) {
    lngShortListID = 0;
    const QVariant last = P::State(QStringLiteral("LastShownShortListID"));
    if (last.isNull())
        return;
    QString error;
    // A short list deleted since it was shown is no longer the last one shown.
    const QVariant exists =
        P::Scalar(QStringLiteral("SELECT ShortListID FROM ShortLists WHERE ShortListID = ?"),
                  {last.toInt()}, error, "GetLastShownShortList");
    lngShortListID = exists.isNull() ? 0 : exists.toInt();
}
