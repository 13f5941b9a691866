#include "DataAccess.h"

#include "DataAccessCore.h"

// What hangs on a service item besides its content: keywords, resources and the prop bag.

using P = DataAccessPrivate;

void DataAccess::GetKeywords(qint16, QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::Select(QStringLiteral("SELECT %1 FROM KeyWords k ORDER BY k.KeywordText COLLATE JETTEXT")
                  .arg(P::Columns("k", "KeyWords", {"KeywordText", "KeywordID"})),
              {}, strErrorMessage, "GetKeywords", rs);
}

void DataAccess::GetServiceItemKeywords(const QString& strWhereClause, qint16,
                                        QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1, %2 FROM ServiceItemKeywords sik JOIN KeyWords k ON "
                       "k.KeywordID = sik.KeywordID")
            .arg(P::Columns("k", "KeyWords", {"KeywordText"}),
                 P::Columns("sik", "ServiceItemKeywords", {"KeywordID", "ServiceItemID"})),
        {{"ServiceItemKeywords", "sik"}, {"KeyWords", "k"}}, strWhereClause,
        QStringLiteral("ORDER BY k.KeywordText COLLATE JETTEXT"), strErrorMessage,
        "GetServiceItemKeywords", rs);
}

void DataAccess::AddKeyword(const QString& strKeyword, QString& strErrorMessage,
                            qint32& lngKeywordID) {
    strErrorMessage.clear();
    lngKeywordID = 0;
    if (strKeyword.trimmed().isEmpty()) {
        P::Fail(strErrorMessage, "AddKeyword", QStringLiteral("A keyword cannot be empty."));
        return;
    }
    const QVariant existing =
        P::Scalar(QStringLiteral("SELECT KeywordID FROM KeyWords WHERE KeywordText = ? COLLATE "
                                 "JETTEXT ORDER BY KeywordID LIMIT 1"),
                  {strKeyword}, strErrorMessage, "AddKeyword");
    if (!strErrorMessage.isEmpty())
        return;
    if (!existing.isNull()) {
        lngKeywordID = existing.toInt();
        return;
    }
    if (P::Exec(QStringLiteral("INSERT INTO KeyWords (KeywordText) VALUES (?)"), {strKeyword},
                strErrorMessage, "AddKeyword"))
        lngKeywordID = P::LastInsertId();
}

void DataAccess::AddServiceItemKeyword(qint32 lngServiceItemID, qint32 lngKeywordID,
                                       QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("INSERT OR IGNORE INTO ServiceItemKeywords (ServiceItemID, KeywordID) "
                           "VALUES (?, ?)"),
            {lngServiceItemID, lngKeywordID}, strErrorMessage, "AddServiceItemKeyword");
}

void DataAccess::DeleteServiceItemKeywords(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceItemKeywords WHERE ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "DeleteServiceItemKeywords");
}

void DataAccess::GetServiceItemResources(const QString& strWhereClause, qint16,
                                         QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1 FROM ServiceItemResources r")
            .arg(P::Columns("r", "ServiceItemResources",
                            {"ServiceItemResourceName", "ServiceItemResourceID", "ServiceItemID"})),
        {{"ServiceItemResources", "r"}}, strWhereClause,
        QStringLiteral("ORDER BY r.ServiceItemResourceID"), strErrorMessage,
        "GetServiceItemResources", rs);
}

void DataAccess::AddServiceItemResource(qint32 lngServiceItemID, const QString& strResourceName,
                                        QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("INSERT INTO ServiceItemResources (ServiceItemID, "
                           "ServiceItemResourceName) VALUES (?, ?)"),
            {lngServiceItemID, strResourceName}, strErrorMessage, "AddServiceItemResource");
}

void DataAccess::DeleteServiceItemResources(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceItemResources WHERE ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "DeleteServiceItemResources");
}

void DataAccess::GetServiceItemPropBag(const QString& strWhereClause, qint16,
                                       QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1 FROM ServiceItemPropBag pb")
            .arg(P::Columns(
                "pb", "ServiceItemPropBag",
                {"PropServiceItemID", "ServiceItemID", "Position", "ServiceItemPropBagID"})),
        {{"ServiceItemPropBag", "pb"}}, strWhereClause,
        QStringLiteral("ORDER BY pb.ServiceItemID, pb.Position, pb.ServiceItemPropBagID"),
        strErrorMessage, "GetServiceItemPropBag", rs);
}

void DataAccess::DeleteServiceItemPropBag(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceItemPropBag WHERE ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "DeleteServiceItemPropBag");
}

void DataAccess::AddServiceItemPropBagItem(qint32 lngServiceItemID, qint32 lngPropServiceItemID,
                                           QString& strErrorMessage) {
    strErrorMessage.clear();
    WriteScope scope(strErrorMessage, "AddServiceItemPropBagItem");
    const qint32 position =
        P::NextPosition(QStringLiteral("ServiceItemPropBag"), QStringLiteral("ServiceItemID"),
                        lngServiceItemID, strErrorMessage, "AddServiceItemPropBagItem");
    if (scope.Ok() && strErrorMessage.isEmpty() &&
        P::Exec(QStringLiteral("INSERT INTO ServiceItemPropBag (ServiceItemID, Position, "
                               "PropServiceItemID) VALUES (?, ?, ?)"),
                {lngServiceItemID, position, lngPropServiceItemID}, strErrorMessage,
                "AddServiceItemPropBagItem"))
        scope.Commit();
}
