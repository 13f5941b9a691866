#include "DataAccess.h"

#include "DataAccessCore.h"

// Service item types and their defaults.

using P = DataAccessPrivate;

namespace {
const QStringList kTypeFields = {"ServiceItemTypeID", "ServiceItemTypeName",
                                 "ByDefaultShowAtRuntime", "ByDefaultIncludeTitleOnServiceSheet",
                                 "ByDefaultIncludeContentOnServiceSheet"};
} // namespace

void DataAccess::GetServiceItemTypes(QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::Select(QStringLiteral("SELECT %1 FROM ServiceItemTypes t WHERE t.ServiceItemTypeID <> 0 "
                             "ORDER BY t.ServiceItemTypeName COLLATE JETTEXT")
                  .arg(P::Columns("t", "ServiceItemTypes", kTypeFields)),
              {}, strErrorMessage, "GetServiceItemTypes", rs);
}

void DataAccess::GetServiceItemTypeDefaults(const QString& strWhereClause, qint16,
                                            QString& strErrorMessage,
                                            std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString real = QStringLiteral("ServiceItemTypeID <> 0");
    P::SelectWhere(QStringLiteral("SELECT %1 FROM ServiceItemTypes t")
                       .arg(P::Columns("t", "ServiceItemTypes", kTypeFields)),
                   {{"ServiceItemTypes", "t"}},
                   strWhereClause.trimmed().isEmpty()
                       ? real
                       : QStringLiteral("(%1) AND %2").arg(strWhereClause, real),
                   QStringLiteral("ORDER BY t.ServiceItemTypeName COLLATE JETTEXT"),
                   strErrorMessage, "GetServiceItemTypeDefaults", rs);
}

void DataAccess::SaveServiceItemTypeDefault(qint32 lngTypeID, const QString& strField,
                                            bool blnValue, QString& strErrorMessage) {
    strErrorMessage.clear();
    QString column;
    for (const QString& allowed : kTypeFields.mid(2))
        if (allowed.compare(strField.trimmed(), Qt::CaseInsensitive) == 0)
            column = allowed;
    if (column.isEmpty()) {
        P::Fail(strErrorMessage, "SaveServiceItemTypeDefault",
                QStringLiteral("'%1' is not a default of a service item type.").arg(strField));
        return;
    }
    QSqlQuery q;
    if (P::Exec(QStringLiteral("UPDATE ServiceItemTypes SET %1 = ? WHERE ServiceItemTypeID = ?")
                    .arg(column),
                {blnValue ? 1 : 0, lngTypeID}, strErrorMessage, "SaveServiceItemTypeDefault", &q) &&
        q.numRowsAffected() == 0)
        P::Fail(strErrorMessage, "SaveServiceItemTypeDefault",
                QStringLiteral("Service item type %1 does not exist.").arg(lngTypeID));
}

void DataAccess::GetDefaultShowAtRunTime(qint16 intServiceItemType, QString& strErrorMessage,
                                         bool& blnShowAtRunTime) {
    strErrorMessage.clear();
    blnShowAtRunTime = true;
    const QVariant value =
        P::Scalar(QStringLiteral("SELECT ByDefaultShowAtRuntime FROM ServiceItemTypes WHERE "
                                 "ServiceItemTypeID = ?"),
                  {intServiceItemType}, strErrorMessage, "GetDefaultShowAtRunTime");
    if (!strErrorMessage.isEmpty())
        return;
    if (value.isNull()) {
        P::Fail(strErrorMessage, "GetDefaultShowAtRunTime",
                QStringLiteral("Service item type %1 does not exist.").arg(intServiceItemType));
        return;
    }
    blnShowAtRunTime = value.toInt() != 0;
}

void DataAccess::GetServiceItemTypeName(qint16 intTypeID, QString& strErrorMessage,
                                        QString& strTypeName) {
    strErrorMessage.clear();
    strTypeName.clear();
    const QVariant value =
        P::Scalar(QStringLiteral("SELECT ServiceItemTypeName FROM ServiceItemTypes WHERE "
                                 "ServiceItemTypeID = ?"),
                  {intTypeID}, strErrorMessage, "GetServiceItemTypeName");
    if (strErrorMessage.isEmpty() && value.isNull())
        P::Fail(strErrorMessage, "GetServiceItemTypeName",
                QStringLiteral("Service item type %1 does not exist.").arg(intTypeID));
    strTypeName = value.toString();
}
