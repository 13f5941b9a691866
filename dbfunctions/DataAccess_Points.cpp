#include "DataAccess.h"

#include "DataAccessCore.h"

// Points of a points-list item, and the system default for showing them.

using P = DataAccessPrivate;

void DataAccess::GetPoints(const QString& strWhereClause, qint16, QString& strErrorMessage,
                           std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM ServiceItemPoints p")
                       .arg(P::Columns("p", "ServiceItemPoints",
                                       {"PointKey", "ParentPointKey", "PointText", "PointNotes",
                                        "ServiceItemID", "Position", "ServiceItemPointID"})),
                   {{"ServiceItemPoints", "p"}}, strWhereClause,
                   QStringLiteral("ORDER BY p.ServiceItemID, p.Position, p.ServiceItemPointID"),
                   strErrorMessage, "GetPoints", rs);
}

void DataAccess::SavePoint(qint32 lngServiceItemID, const QString& strPointText, qint32 lngPosition,
                           const QString& strPointKey, const QString& strParentPointKey,
                           const QString& strPointNotes, QString& strErrorMessage,
                           qint32& lngNewPointID) {
    strErrorMessage.clear();
    lngNewPointID = 0;
    WriteScope scope(strErrorMessage, "SavePoint");
    if (!scope.Ok())
        return;
    qint32 position = lngPosition;
    if (position <= 0)
        position =
            P::NextPosition(QStringLiteral("ServiceItemPoints"), QStringLiteral("ServiceItemID"),
                            lngServiceItemID, strErrorMessage, "SavePoint");
    else
        P::Exec(QStringLiteral("UPDATE ServiceItemPoints SET Position = Position + 1 WHERE "
                               "ServiceItemID = ? AND Position >= ?"),
                {lngServiceItemID, position}, strErrorMessage, "SavePoint");
    if (!strErrorMessage.isEmpty())
        return;
    if (!P::Exec(QStringLiteral("INSERT INTO ServiceItemPoints (ServiceItemID, Position, PointKey, "
                                "ParentPointKey, PointText, PointNotes) VALUES (?, ?, ?, ?, ?, ?)"),
                 {lngServiceItemID, position, strPointKey,
                  strParentPointKey.isNull() ? QString(QLatin1String("")) : strParentPointKey,
                  strPointText, P::EmptyToNull(strPointNotes)},
                 strErrorMessage, "SavePoint"))
        return;
    lngNewPointID = P::LastInsertId();
    scope.Commit();
}

void DataAccess::SavePoint(qint32 lngServiceItemID, const QString& strPointText, qint32 lngPosition,
                           const QString& strPointKey, const QString& strParentPointKey,
                           const QString& strPointNotes, QString& strErrorMessage) {
    qint32 ignored = 0;
    SavePoint(lngServiceItemID, strPointText, lngPosition, strPointKey, strParentPointKey,
              strPointNotes, strErrorMessage, ignored);
}

void DataAccess::DeleteServiceItemPoints(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceItemPoints WHERE ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "DeleteServiceItemPoints");
}

void DataAccess::GetDefaultPointsDisplay(bool& blnRevealSubPoints, QString& strErrorMessage,
                                         qint16& intPointsMode) {
    strErrorMessage.clear();
    blnRevealSubPoints = false;
    intPointsMode = 5;
    std::unique_ptr<Recordset> rs;
    GetOptions(strErrorMessage, rs);
    if (!rs || rs->RecordCount() == 0)
        return;
    blnRevealSubPoints = rs->Fields("ShowSubPointsOneByOne").toBool();
    const int mode = rs->Fields("PointDisplayMode").toInt();
    intPointsMode = static_cast<qint16>(mode >= 4 && mode <= 6 ? mode : 5);
}
