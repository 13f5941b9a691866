#pragma once

// What the service editor's suites share: a small library of items and a
// service using them, and the moves of a user in the editor.

#include "DataAccess.h"
#include "TestDatabase.h"
#include "services/ctlService.h"

#include <QTableWidget>
#include <QTest>

namespace ServiceFixture {

// Three items and a service "Sunday Morning" of grace, a Blank and francis
// (hidden at run time).
struct Library {
    qint32 grace = 0;
    qint32 francis = 0;
    qint32 notices = 0;
    qint32 service = 0;

    bool Seed(TestDatabase& db) {
        grace = db.AddServiceItem(TestDatabase::Song, "Amazing Grace", "Amazing grace");
        francis = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis", "Lord");
        notices = db.AddServiceItem(TestDatabase::Announcement, "Notices", "Coffee after");
        if (grace <= 0 || francis <= 0 || notices <= 0)
            return false;
        service =
            db.AddService("Sunday Morning", {{grace}, TestDatabase::Blank(), {francis, false}});
        return service > 0;
    }
};

// Shows a service on an editor.
inline void Show(ctlService& ctl, qint32 lngServiceID) {
    ctl.setItems(QString::number(lngServiceID));
    ctl.ShowProperties();
}

// The texts of one column of the grid's item rows (rows 1 onward).
inline QStringList Column(const ctlService& ctl, qint32 lngCol) {
    QStringList texts;
    for (int r = 1; r < ctl.fgItemsInService->rowCount(); ++r) {
        const QTableWidgetItem* item = ctl.fgItemsInService->item(r, lngCol);
        texts << (item ? item->text() : QString());
    }
    return texts;
}

// The stored rows of a service: "id:show" in order.
inline QStringList StoredRows(TestDatabase& db, qint32 lngServiceID) {
    QStringList rows;
    const qint32 count = db.Count("ServiceContents", "ServiceID = ?", {lngServiceID});
    for (qint32 i = 0; i < count; ++i) {
        const QString sql = QStringLiteral(
            "SELECT ServiceItemID || ':' || ShowAtRunTime FROM ServiceContents WHERE ServiceID = ? "
            "ORDER BY Position, ServiceContentID LIMIT 1 OFFSET %1");
        rows << db.Scalar(sql.arg(i), {lngServiceID}).toString();
    }
    return rows;
}

} // namespace ServiceFixture
