#pragma once

#include "DataAccess.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

// The rows of the open database as lines of text in which ids are replaced by what they name (an
// item by its description, a verse by its name), so that two databases that hold the same rows
// under other ids give the same lines. Dates of creation are kept: an import keeps them too.
namespace ExchangeSnapshot {

inline QStringList Query(const QString& sql) {
    QSqlQuery q(DataAccess::Instance().Database());
    QStringList lines;
    if (!q.exec(sql))
        return {QStringLiteral("FAILED: ") + sql};
    while (q.next()) {
        QStringList values;
        for (int n = 0; n < q.record().count(); ++n)
            values << (q.value(n).isNull() ? QStringLiteral("<null>") : q.value(n).toString());
        lines << values.join(QStringLiteral(" | "));
    }
    return lines;
}

// Every column of ServiceItems but its id, ServiceItemMusic as the description of the item it
// names when it names one, and a file path as its file name.
inline QStringList Items() {
    QSqlQuery q(DataAccess::Instance().Database());
    q.exec(QStringLiteral("SELECT * FROM ServiceItems WHERE ServiceItemID <> 1"));
    QStringList lines;
    while (q.next()) {
        QStringList values;
        for (int n = 0; n < q.record().count(); ++n) {
            const QString name = q.record().fieldName(n);
            if (name == QLatin1String("ServiceItemID"))
                continue;
            QString value = q.value(n).isNull() ? QStringLiteral("<null>") : q.value(n).toString();
            if (name == QLatin1String("ServiceItemMusic") && !q.value(n).isNull()) {
                bool numeric = false;
                const int id = value.toInt(&numeric);
                value = numeric ? Query(QStringLiteral("SELECT 'item ' || ServiceItemDescription "
                                                       "FROM ServiceItems WHERE ServiceItemID = %1")
                                            .arg(id))
                                      .value(0)
                                : value.section(QLatin1Char('/'), -1);
            }
            values << name + QLatin1Char('=') + value;
        }
        lines << values.join(QStringLiteral(" | "));
    }
    lines.sort();
    return lines;
}

inline QStringList All() {
    const QString item = QStringLiteral("(SELECT ServiceItemDescription FROM ServiceItems x WHERE "
                                        "x.ServiceItemID = %1)");
    QStringList lines = Items();
    const QList<QPair<QString, QString>> tables = {
        {QStringLiteral("verses"),
         QStringLiteral("SELECT %1, VerseName, VerseText, IsChorus FROM Verses v ORDER BY 1, "
                        "VerseID")
             .arg(item.arg(QStringLiteral("v.ServiceItemID")))},
        {QStringLiteral("sung"), QStringLiteral("SELECT %1, s.Position, v.VerseName FROM "
                                                "SongSequence s JOIN Verses v ON v.VerseID = "
                                                "s.VerseID ORDER BY 1, s.Position")
                                     .arg(item.arg(QStringLiteral("s.ServiceItemID")))},
        {QStringLiteral("keywords"),
         QStringLiteral("SELECT %1, k.KeywordText FROM ServiceItemKeywords sik JOIN KeyWords k ON "
                        "k.KeywordID = sik.KeywordID ORDER BY 1, 2")
             .arg(item.arg(QStringLiteral("sik.ServiceItemID")))},
        {QStringLiteral("resources"),
         QStringLiteral("SELECT %1, ServiceItemResourceName FROM ServiceItemResources r ORDER BY "
                        "1, ServiceItemResourceID")
             .arg(item.arg(QStringLiteral("r.ServiceItemID")))},
        {QStringLiteral("points"),
         QStringLiteral("SELECT %1, Position, PointKey, ParentPointKey, PointText, PointNotes FROM "
                        "ServiceItemPoints p ORDER BY 1, Position")
             .arg(item.arg(QStringLiteral("p.ServiceItemID")))},
        {QStringLiteral("images"),
         QStringLiteral("SELECT %1, Position, %2 FROM ServiceItemImages i ORDER BY 1, Position")
             .arg(item.arg(QStringLiteral("i.ServiceItemID")),
                  item.arg(QStringLiteral("i.ImageServiceItemID")))},
        {QStringLiteral("item props"),
         QStringLiteral("SELECT %1, Position, %2 FROM ServiceItemPropBag b ORDER BY 1, Position")
             .arg(item.arg(QStringLiteral("b.ServiceItemID")),
                  item.arg(QStringLiteral("b.PropServiceItemID")))},
        {QStringLiteral("services"),
         QStringLiteral("SELECT ServiceName, ServiceType, ServiceTheme, ServiceProvider, "
                        "ServiceNotes, ServiceDateCreated, ServiceDateLastDelivered FROM Services "
                        "ORDER BY 1")},
        {QStringLiteral("rows"),
         QStringLiteral("SELECT s.ServiceName, c.Position, %1, c.ShowAtRunTime, c.Length FROM "
                        "ServiceContents c JOIN Services s ON s.ServiceID = c.ServiceID ORDER BY "
                        "1, 2")
             .arg(item.arg(QStringLiteral("c.ServiceItemID")))},
        {QStringLiteral("service props"),
         QStringLiteral("SELECT s.ServiceName, b.Position, %1 FROM ServicePropBag b JOIN Services "
                        "s ON s.ServiceID = b.ServiceID ORDER BY 1, 2")
             .arg(item.arg(QStringLiteral("b.PropServiceItemID")))},
        {QStringLiteral("service resources"),
         QStringLiteral("SELECT s.ServiceName, r.ResourceName FROM ServiceResources r JOIN "
                        "Services s ON s.ServiceID = r.ServiceID ORDER BY 1, ResourceID")}};
    for (const auto& [name, sql] : tables)
        for (const QString& line : Query(sql))
            lines << name + QStringLiteral(": ") + line;
    return lines;
}

} // namespace ExchangeSnapshot
