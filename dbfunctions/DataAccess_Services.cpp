#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QSqlError>

// Services, their contents, resources and prop bags.

using P = DataAccessPrivate;

namespace {

const QStringList kServiceFields = {
    "ServiceID",       "ServiceName",  "ServiceType",        "ServiceTheme",
    "ServiceProvider", "ServiceNotes", "ServiceDateCreated", "ServiceDateLastDelivered"};

const QString kNewestFirst = QStringLiteral("ORDER BY s.ServiceDateCreated DESC, s.ServiceID DESC");

} // namespace

void DataAccess::GetServices(const QString& strWhereClause, qint16, QString& strErrorMessage,
                             std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM Services s")
                       .arg(P::Columns("s", "Services", kServiceFields)),
                   {{"Services", "s"}}, strWhereClause, kNewestFirst, strErrorMessage,
                   "GetServices", rs);
}

void DataAccess::GetAllServices(const QString& strWhereClause, qint16, QString& strErrorMessage,
                                std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM Services s")
                       .arg(P::Columns("s", "Services", kServiceFields)),
                   {{"Services", "s"}}, strWhereClause, kNewestFirst, strErrorMessage,
                   "GetAllServices", rs);
}

void DataAccess::GetServiceDescription(qint32 lngServiceID, QString& strErrorMessage,
                                       QString& strDescription) {
    strErrorMessage.clear();
    strDescription.clear();
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT ServiceName, ServiceTheme FROM Services WHERE "
                                  "ServiceID = ?"),
                   {lngServiceID}, strErrorMessage, "GetServiceDescription", rs))
        return;
    if (rs->RecordCount() == 0) {
        P::Fail(strErrorMessage, "GetServiceDescription",
                QStringLiteral("Service %1 does not exist.").arg(lngServiceID));
        return;
    }
    // The caption: the name; a service without a name is called after its theme.
    QString name = rs->Fields("ServiceName").toString();
    const QString theme = rs->Fields("ServiceTheme").toString();
    if (name.isEmpty())
        name = theme.isEmpty() ? QStringLiteral("Service %1").arg(lngServiceID)
                               : theme + QStringLiteral(" Service");
    strDescription = P::ToDisplay(name);
}

void DataAccess::AddService(QString& strErrorMessage, qint32& lngNewServiceID) {
    strErrorMessage.clear();
    lngNewServiceID = 0;
    if (P::Exec(QStringLiteral("INSERT INTO Services (ServiceDateCreated) VALUES (?)"), {P::Now()},
                strErrorMessage, "AddService"))
        lngNewServiceID = P::LastInsertId();
}

void DataAccess::SaveServiceDetails(qint32 lngServiceID, const QString& strName,
                                    const QString& strType, const QString& strTheme,
                                    const QString& strProvider, const QString& strNotes,
                                    const QDateTime& dtmDateLastDelivered, qint32,
                                    QString& strErrorMessage) {
    strErrorMessage.clear();
    QVariantList values = {P::EmptyToNull(strName), P::EmptyToNull(strType),
                           P::EmptyToNull(strTheme), P::EmptyToNull(strProvider),
                           P::EmptyToNull(strNotes)};
    QString sql = QStringLiteral("UPDATE Services SET ServiceName = ?, ServiceType = ?, "
                                 "ServiceTheme = ?, ServiceProvider = ?, ServiceNotes = ?");
    if (dtmDateLastDelivered.isValid() && dtmDateLastDelivered.date().year() > 1900) {
        sql += QStringLiteral(", ServiceDateLastDelivered = ?");
        values << dtmDateLastDelivered.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    }
    values << lngServiceID;
    QSqlQuery q;
    if (!P::Exec(sql + QStringLiteral(" WHERE ServiceID = ?"), values, strErrorMessage,
                 "SaveServiceDetails", &q))
        return;
    if (q.numRowsAffected() == 0)
        P::Fail(strErrorMessage, "SaveServiceDetails",
                QStringLiteral("Service %1 does not exist.").arg(lngServiceID));
}

void DataAccess::DeleteService(qint32 lngServiceID, const QVariant&, QString& strErrorMessage,
                               QVariant&) {
    DeleteService(lngServiceID, strErrorMessage);
}

void DataAccess::DeleteService(qint32 lngServiceID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM Services WHERE ServiceID = ?"), {lngServiceID},
            strErrorMessage, "DeleteService");
}

void DataAccess::ServiceShown(qint32 lngServiceID) {
    QString ignored;
    P::SetState(QStringLiteral("LastShownServiceID"), lngServiceID, ignored, "ServiceShown");
}

void DataAccess::GetServiceTypes(const QString& strWhere, QString& strErrorMessage,
                                 std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString notNull = QStringLiteral("ServiceType Is Not Null");
    P::SelectWhere(
        QStringLiteral("SELECT DISTINCT s.ServiceType AS ServiceType FROM Services s"),
        {{"Services", "s"}},
        strWhere.trimmed().isEmpty() ? notNull
                                     : QStringLiteral("(%1) AND %2").arg(strWhere, notNull),
        QStringLiteral("ORDER BY 1 COLLATE JETTEXT"), strErrorMessage, "GetServiceTypes", rs);
}

void DataAccess::GetServiceThemes(const QString& strWhere, QString& strErrorMessage,
                                  std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString notNull = QStringLiteral("ServiceTheme Is Not Null");
    P::SelectWhere(
        QStringLiteral("SELECT DISTINCT s.ServiceTheme AS ServiceTheme FROM Services s"),
        {{"Services", "s"}},
        strWhere.trimmed().isEmpty() ? notNull
                                     : QStringLiteral("(%1) AND %2").arg(strWhere, notNull),
        QStringLiteral("ORDER BY 1 COLLATE JETTEXT"), strErrorMessage, "GetServiceThemes", rs);
}

void DataAccess::GetServiceContents(const QString& strWhereClause, qint16, QString& strErrorMessage,
                                    std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM ServiceContents sc")
                       .arg(P::Columns("sc", "ServiceContents",
                                       {"ServiceContentID", "ServiceID", "Position",
                                        "ServiceItemID", "ShowAtRunTime", "Length"})),
                   {{"ServiceContents", "sc"}}, strWhereClause,
                   QStringLiteral("ORDER BY sc.ServiceID, sc.Position, sc.ServiceContentID"),
                   strErrorMessage, "GetServiceContents", rs);
}

void DataAccess::DeleteServiceContents(qint32 lngServiceID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceContents WHERE ServiceID = ?"), {lngServiceID},
            strErrorMessage, "DeleteServiceContents");
}

void DataAccess::AddServiceContentItem(qint32 lngServiceID, qint32 lngServiceItemID,
                                       bool blnShowAtRunTime, const QString& strLength,
                                       QString& strErrorMessage, qint32& lngNewServiceContentID) {
    strErrorMessage.clear();
    lngNewServiceContentID = 0;
    WriteScope scope(strErrorMessage, "AddServiceContentItem");
    const qint32 position =
        P::NextPosition(QStringLiteral("ServiceContents"), QStringLiteral("ServiceID"),
                        lngServiceID, strErrorMessage, "AddServiceContentItem");
    if (!scope.Ok() || !strErrorMessage.isEmpty())
        return;
    if (!P::Exec(QStringLiteral("INSERT INTO ServiceContents (ServiceID, Position, ServiceItemID, "
                                "ShowAtRunTime, Length) VALUES (?, ?, ?, ?, ?)"),
                 {lngServiceID, position, lngServiceItemID, blnShowAtRunTime ? 1 : 0,
                  P::EmptyToNull(strLength)},
                 strErrorMessage, "AddServiceContentItem"))
        return;
    lngNewServiceContentID = P::LastInsertId();
    scope.Commit();
}

void DataAccess::AddServiceContentItem(qint32 lngServiceID, qint32 lngServiceItemID,
                                       bool blnShowAtRunTime, const QString& strLength,
                                       QString& strErrorMessage) {
    qint32 ignored = 0;
    AddServiceContentItem(lngServiceID, lngServiceItemID, blnShowAtRunTime, strLength,
                          strErrorMessage, ignored);
}

void DataAccess::AddServiceContentItems(qint32 lngServiceID, const QList<ServiceContentRow>& rows,
                                        QString& strErrorMessage) {
    strErrorMessage.clear();
    WriteScope scope(strErrorMessage, "AddServiceContentItems");
    if (!scope.Ok())
        return;
    const QVariant exists = P::Scalar(QStringLiteral("SELECT 1 FROM Services WHERE ServiceID = ?"),
                                      {lngServiceID}, strErrorMessage, "AddServiceContentItems");
    if (!strErrorMessage.isEmpty())
        return;
    if (exists.isNull()) {
        P::Fail(strErrorMessage, "AddServiceContentItems",
                QStringLiteral("Service %1 does not exist.").arg(lngServiceID));
        return;
    }
    qint32 position =
        P::NextPosition(QStringLiteral("ServiceContents"), QStringLiteral("ServiceID"),
                        lngServiceID, strErrorMessage, "AddServiceContentItems");
    if (!strErrorMessage.isEmpty())
        return;
    QSqlQuery q(P::Db());
    if (!q.prepare(
            QStringLiteral("INSERT INTO ServiceContents (ServiceID, Position, ServiceItemID, "
                           "ShowAtRunTime, Length) VALUES (?, ?, ?, ?, ?)"))) {
        P::Fail(strErrorMessage, "AddServiceContentItems", q.lastError().text());
        return;
    }
    for (const ServiceContentRow& row : rows) {
        q.bindValue(0, lngServiceID);
        q.bindValue(1, position++);
        q.bindValue(2, row.lngServiceItemID);
        q.bindValue(3, row.blnShowAtRunTime ? 1 : 0);
        q.bindValue(4, P::EmptyToNull(row.strLength));
        if (!q.exec()) {
            P::Fail(strErrorMessage, "AddServiceContentItems",
                    QStringLiteral("row %1 (service item %2): %3")
                        .arg(position - 1)
                        .arg(row.lngServiceItemID)
                        .arg(q.lastError().text()));
            return;
        }
    }
    q.finish();
    scope.Commit();
}

void DataAccess::GetServiceResources(const QString& strWhereClause, qint16,
                                     QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1 FROM ServiceResources sr")
            .arg(P::Columns("sr", "ServiceResources", {"ResourceName", "ResourceID", "ServiceID"})),
        {{"ServiceResources", "sr"}}, strWhereClause, QStringLiteral("ORDER BY sr.ResourceID"),
        strErrorMessage, "GetServiceResources", rs);
}

void DataAccess::AddServiceResource(qint32 lngServiceID, const QString& strResourceName,
                                    QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("INSERT INTO ServiceResources (ServiceID, ResourceName) VALUES (?, ?)"),
            {lngServiceID, strResourceName}, strErrorMessage, "AddServiceResource");
}

void DataAccess::DeleteServiceResources(qint32 lngServiceID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceResources WHERE ServiceID = ?"), {lngServiceID},
            strErrorMessage, "DeleteServiceResources");
}

void DataAccess::GetServicePropBag(const QString& strWhereClause, qint16, QString& strErrorMessage,
                                   std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1 FROM ServicePropBag pb")
            .arg(P::Columns("pb", "ServicePropBag",
                            {"PropServiceItemID", "ServiceID", "Position", "ServicePropBagID"})),
        {{"ServicePropBag", "pb"}}, strWhereClause,
        QStringLiteral("ORDER BY pb.ServiceID, pb.Position, pb.ServicePropBagID"), strErrorMessage,
        "GetServicePropBag", rs);
}

void DataAccess::DeleteServicePropBag(qint32 lngServiceID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServicePropBag WHERE ServiceID = ?"), {lngServiceID},
            strErrorMessage, "DeleteServicePropBag");
}

void DataAccess::AddServicePropBagItem(qint32 lngServiceID, qint32 lngServiceItemID,
                                       QString& strErrorMessage) {
    strErrorMessage.clear();
    WriteScope scope(strErrorMessage, "AddServicePropBagItem");
    const qint32 position =
        P::NextPosition(QStringLiteral("ServicePropBag"), QStringLiteral("ServiceID"), lngServiceID,
                        strErrorMessage, "AddServicePropBagItem");
    if (!scope.Ok() || !strErrorMessage.isEmpty())
        return;
    if (P::Exec(QStringLiteral("INSERT INTO ServicePropBag (ServiceID, Position, "
                               "PropServiceItemID) VALUES (?, ?, ?)"),
                {lngServiceID, position, lngServiceItemID}, strErrorMessage,
                "AddServicePropBagItem"))
        scope.Commit();
}
