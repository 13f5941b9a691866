#include "ShortListsPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "RecordList.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"

ShortListsPage::ShortListsPage(QWidget* parent) : HostPage(QStringLiteral("ShortLists"), parent) {
    lvwShortLists = new RecordList(
        QStringLiteral("ShortListID"),
        {{QStringLiteral("ShortListDescription"), QStringLiteral("Short-list")},
         {QStringLiteral("ShortListCreatedBy"), QStringLiteral("Created by")},
         {QStringLiteral("ShortListDateCreated"), QStringLiteral("Created")}},
        [](QString& err, std::unique_ptr<Recordset>& rs) {
            DataAccess::Instance().GetShortListsWhere(QString(), err, rs);
        },
        this);
    lvwShortLists->setObjectName(QStringLiteral("lvwShortLists"));
    SetGallery(lvwShortLists);
    connect(lvwShortLists, &RecordList::RowClicked, this, [this](qint32 id, const QString& text) {
        ErrorReport::Guard([&] { lvwShortLists_RowClicked(id, text); });
    });
}

void ShortListsPage::Load() {
    const QString err = lvwShortLists->Reload();
    if (!err.isEmpty())
        Platform::Current().MsgBox(err, vbExclamation);
}

void ShortListsPage::lvwShortLists_RowClicked(qint32 lngShortListID, const QString& strText) {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    DataAccess& da = DataAccess::Instance();
    QString err;
    std::unique_ptr<Recordset> rs;
    da.GetShortListsWhere(QStringLiteral("ShortListID = %1").arg(lngShortListID), err, rs);
    EventPanel::Rows rows;
    if (!rs || rs->RecordCount() == 0) {
        rows.append({QStringLiteral("Error"), err});
        panel->Show(strText, rows);
        return;
    }
    rs->MoveFirst();
    rows.append({QStringLiteral("Notes"), VB::Text(rs->Fields(QStringLiteral("ShortListNotes")))});
    const QStringList ids = VB::Text(rs->Fields(QStringLiteral("ShortListContent")))
                                .split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        QString description;
        da.GetServiceItemDescription(id.trimmed().toInt(), err, description);
        QString shown = description;
        if (description.contains(QStringLiteral("@@")))
            da.DecodeStoredText(description, err, shown);
        rows.append({QStringLiteral("Service item"), shown});
    }
    panel->Show(strText, rows);
}
