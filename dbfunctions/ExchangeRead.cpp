#include "Exchange.h"

#include "DataAccessCore.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

// Reading a service item or a service, with all that belongs to it, in the stored form of its
// values (the form an import writes back).

using P = DataAccessPrivate;

namespace Exchange {

namespace {

// Runs a query on the open connection; each row is handed to onRow.
bool Rows(const QString& sql, qint32 id, QString& strError,
          const std::function<void(const QSqlQuery&)>& onRow) {
    QSqlQuery q(P::Db());
    q.setForwardOnly(true);
    if (!q.prepare(sql)) {
        strError = q.lastError().text();
        return false;
    }
    q.addBindValue(id);
    if (!q.exec()) {
        strError = q.lastError().text();
        return false;
    }
    while (q.next())
        onRow(q);
    return true;
}

// Every column of one row but its key, by name.
QVariantMap FieldsOf(const QSqlQuery& q, const QString& strKey) {
    QVariantMap fields;
    const QSqlRecord record = q.record();
    for (int n = 0; n < record.count(); ++n)
        if (record.fieldName(n) != strKey)
            fields.insert(record.fieldName(n), q.value(n).isNull() ? QVariant() : q.value(n));
    return fields;
}

QString Text(const QSqlQuery& q, int n) {
    return q.value(n).isNull() ? QString() : q.value(n).toString();
}

bool ReadParts(qint32 lngID, Item& item, QString& strError) {
    QHash<qint32, int> index;
    if (!Rows(QStringLiteral("SELECT VerseID, VerseName, VerseText, IsChorus FROM Verses WHERE "
                             "ServiceItemID = ? ORDER BY VerseID"),
              lngID, strError, [&](const QSqlQuery& q) {
                  index.insert(q.value(0).toInt(), int(item.Parts.size()));
                  item.Parts.append({Text(q, 1), Text(q, 2), q.value(3).toInt() != 0});
              }))
        return false;
    return Rows(QStringLiteral("SELECT VerseID FROM SongSequence WHERE ServiceItemID = ? ORDER BY "
                               "Position, SongSequenceID"),
                lngID, strError, [&](const QSqlQuery& q) {
                    const int at = index.value(q.value(0).toInt(), -1);
                    if (at >= 0)
                        item.Order.append(at);
                });
}

bool ReadLists(qint32 lngID, Item& item, QString& strError) {
    return Rows(QStringLiteral("SELECT k.KeywordText FROM ServiceItemKeywords sik JOIN KeyWords k "
                               "ON k.KeywordID = sik.KeywordID WHERE sik.ServiceItemID = ? ORDER "
                               "BY k.KeywordText"),
                lngID, strError, [&](const QSqlQuery& q) { item.Keywords << Text(q, 0); }) &&
           Rows(QStringLiteral("SELECT ServiceItemResourceName FROM ServiceItemResources WHERE "
                               "ServiceItemID = ? ORDER BY ServiceItemResourceID"),
                lngID, strError, [&](const QSqlQuery& q) { item.Resources << Text(q, 0); }) &&
           Rows(QStringLiteral("SELECT PointKey, ParentPointKey, PointText, PointNotes FROM "
                               "ServiceItemPoints WHERE ServiceItemID = ? ORDER BY Position, "
                               "ServiceItemPointID"),
                lngID, strError,
                [&](const QSqlQuery& q) {
                    item.Points.append({Text(q, 0), Text(q, 1), Text(q, 2), Text(q, 3)});
                }) &&
           Rows(QStringLiteral("SELECT ImageServiceItemID FROM ServiceItemImages WHERE "
                               "ServiceItemID = ? ORDER BY Position, ServiceItemImageID"),
                lngID, strError, [&](const QSqlQuery& q) { item.Images << q.value(0).toInt(); }) &&
           Rows(QStringLiteral("SELECT PropServiceItemID FROM ServiceItemPropBag WHERE "
                               "ServiceItemID = ? ORDER BY Position, ServiceItemPropBagID"),
                lngID, strError, [&](const QSqlQuery& q) { item.Props << q.value(0).toInt(); });
}

} // namespace

qint32 Item::TypeId() const {
    return Fields.value(QStringLiteral("ServiceItemTypeID")).toInt();
}

QString Item::Title() const {
    return P::ToDisplay(Fields.value(QStringLiteral("ServiceItemDescription")).toString());
}

QString Item::Words() const {
    QStringList texts;
    for (const Part& part : Parts)
        texts << part.Text;
    const QString words = texts.isEmpty()
                              ? Fields.value(QStringLiteral("ServiceItemContent")).toString()
                              : texts.join(QLatin1Char(' '));
    return words.simplified().toCaseFolded();
}

QString Service::Title() const {
    const QString name = P::ToDisplay(Fields.value(QStringLiteral("ServiceName")).toString());
    return name.isEmpty() ? P::ToDisplay(Fields.value(QStringLiteral("ServiceTheme")).toString()) +
                                QStringLiteral(" Service")
                          : name;
}

QString LocalFile(const QString& strStored) {
    if (strStored.trimmed().isEmpty())
        return QString();
    QString path = QString(strStored).replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (!path.contains(QLatin1Char('/'))) {
        QString folder;
        DataAccess::Instance().GetContentFolder(folder);
        path = folder + QLatin1Char('/') + path;
    }
    return QFileInfo(path).isFile() ? path : QString();
}

bool ReadItem(qint32 lngID, Item& item, QString& strError) {
    item = Item();
    item.Id = lngID;
    bool found = false;
    if (!Rows(QStringLiteral("SELECT * FROM ServiceItems WHERE ServiceItemID = ?"), lngID, strError,
              [&](const QSqlQuery& q) {
                  item.Fields = FieldsOf(q, QStringLiteral("ServiceItemID"));
                  found = true;
              }))
        return false;
    if (!found) {
        strError = QStringLiteral("Service Item %1 does not exist.").arg(lngID);
        return false;
    }
    return ReadParts(lngID, item, strError) && ReadLists(lngID, item, strError);
}

bool ReadService(qint32 lngID, Service& service, QString& strError) {
    service = Service();
    service.Id = lngID;
    bool found = false;
    if (!Rows(QStringLiteral("SELECT * FROM Services WHERE ServiceID = ?"), lngID, strError,
              [&](const QSqlQuery& q) {
                  service.Fields = FieldsOf(q, QStringLiteral("ServiceID"));
                  found = true;
              }))
        return false;
    if (!found) {
        strError = QStringLiteral("Service %1 does not exist.").arg(lngID);
        return false;
    }
    return Rows(QStringLiteral("SELECT ServiceItemID, ShowAtRunTime, Length FROM ServiceContents "
                               "WHERE ServiceID = ? ORDER BY Position, ServiceContentID"),
                lngID, strError,
                [&](const QSqlQuery& q) {
                    service.Rows.append({q.value(0).toInt(), q.value(1).toInt() != 0, Text(q, 2)});
                }) &&
           Rows(QStringLiteral("SELECT PropServiceItemID FROM ServicePropBag WHERE ServiceID = ? "
                               "ORDER BY Position, ServicePropBagID"),
                lngID, strError,
                [&](const QSqlQuery& q) { service.Props << q.value(0).toInt(); }) &&
           Rows(QStringLiteral("SELECT ResourceName FROM ServiceResources WHERE ServiceID = ? "
                               "ORDER BY ResourceID"),
                lngID, strError, [&](const QSqlQuery& q) { service.Resources << Text(q, 0); });
}

} // namespace Exchange
