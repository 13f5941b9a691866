#include "Summaries.h"

#include "DataAccess.h"
#include "HostText.h"
#include "ServiceRows.h"
#include "foundations/VBRuntime.h"

namespace {

QString decoded(const QVariant& value) {
    QString text = VB::Text(value);
    if (text.contains(QStringLiteral("@@"))) {
        QString err, result;
        DataAccess::Instance().DecodeStoredText(text, err, result);
        return result;
    }
    return text;
}

void add(EventPanel::Rows& rows, const QString& name, const QString& value) {
    if (!value.trimmed().isEmpty())
        rows.append({name, value});
}

void addContents(EventPanel::Rows& rows, qint32 lngServiceID) {
    DataAccess& da = DataAccess::Instance();
    QString err;
    std::unique_ptr<Recordset> rs;
    da.GetServiceContents(QStringLiteral("ServiceID = %1").arg(lngServiceID), 4, err, rs);
    if (!err.isEmpty() || !rs)
        return;
    int row = 0;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        QString description;
        da.GetServiceItemDescription(rs->Fields(QStringLiteral("ServiceItemID")).toInt(), err,
                                     description);
        QString text = decoded(description);
        if (!ServiceRows::ShownAtRunTime(*rs))
            text += QStringLiteral("  (not shown at run time)");
        rows.append({QStringLiteral("Item %1").arg(++row), text});
    }
}

} // namespace

namespace Summaries {

EventPanel::Rows ServiceRows(qint32 lngServiceID) {
    EventPanel::Rows rows;
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServices(QStringLiteral("ServiceID = %1").arg(lngServiceID), 4, err,
                                       rs);
    if (!err.isEmpty() || !rs || rs->RecordCount() == 0) {
        rows.append(
            {QStringLiteral("Error"), err.isEmpty() ? QStringLiteral("No such service") : err});
        return rows;
    }
    rs->MoveFirst();
    add(rows, QStringLiteral("Name"), decoded(rs->Fields(QStringLiteral("ServiceName"))));
    add(rows, QStringLiteral("Type"), decoded(rs->Fields(QStringLiteral("ServiceType"))));
    add(rows, QStringLiteral("Theme"), decoded(rs->Fields(QStringLiteral("ServiceTheme"))));
    add(rows, QStringLiteral("Created By"), decoded(rs->Fields(QStringLiteral("ServiceProvider"))));
    add(rows, QStringLiteral("Date Created"),
        HostText::Value(rs->Fields(QStringLiteral("ServiceDateCreated"))));
    add(rows, QStringLiteral("Date Last Delivered"),
        HostText::Value(rs->Fields(QStringLiteral("ServiceDateLastDelivered"))));
    add(rows, QStringLiteral("Notes"), decoded(rs->Fields(QStringLiteral("ServiceNotes"))));
    addContents(rows, lngServiceID);
    return rows;
}

EventPanel::Rows ServiceItemRows(qint32 lngServiceItemID) {
    EventPanel::Rows rows;
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess& da = DataAccess::Instance();
    da.GetServiceItems(QStringLiteral("ServiceItemID = %1").arg(lngServiceItemID), 4, err, rs);
    if (!err.isEmpty() || !rs || rs->RecordCount() == 0) {
        rows.append({QStringLiteral("Error"),
                     err.isEmpty() ? QStringLiteral("No such service item") : err});
        return rows;
    }
    rs->MoveFirst();
    add(rows, QStringLiteral("Description"),
        decoded(rs->Fields(QStringLiteral("ServiceItemDescription"))));
    add(rows, QStringLiteral("Type"), decoded(rs->Fields(QStringLiteral("ServiceItemTypeName"))));
    add(rows, QStringLiteral("Source"), decoded(rs->Fields(QStringLiteral("ServiceItemSource"))));
    add(rows, QStringLiteral("Copyright"),
        decoded(rs->Fields(QStringLiteral("ServiceItemCopyrightDetails"))));
    add(rows, QStringLiteral("File"),
        decoded(rs->Fields(QStringLiteral("ServiceItemFileDescription"))));
    QString text;
    da.GetServiceItemText(lngServiceItemID, err, text);
    add(rows, QStringLiteral("Text"), decoded(text));
    return rows;
}

} // namespace Summaries
