#include "TemplatesPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "RecordList.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"

TemplatesPage::TemplatesPage(QWidget* parent) : HostPage(QStringLiteral("Templates"), parent) {
    lvwTemplates = new RecordList(
        QStringLiteral("TemplateID"),
        {{QStringLiteral("TemplateDescription"), QStringLiteral("Template")},
         {QStringLiteral("TemplateOccasion"), QStringLiteral("Occasion")},
         {QStringLiteral("TemplateAuthor"), QStringLiteral("Author")}},
        [](QString& err, std::unique_ptr<Recordset>& rs) {
            DataAccess::Instance().GetTemplates(QString(), 4, err, rs);
        },
        this);
    lvwTemplates->setObjectName(QStringLiteral("lvwTemplates"));
    SetGallery(lvwTemplates);
    connect(lvwTemplates, &RecordList::RowClicked, this, [this](qint32 id, const QString& text) {
        ErrorReport::Guard([&] { lvwTemplates_RowClicked(id, text); });
    });
}

void TemplatesPage::Load() {
    const QString err = lvwTemplates->Reload();
    if (!err.isEmpty())
        Platform::Current().MsgBox(err, vbExclamation);
}

void TemplatesPage::lvwTemplates_RowClicked(qint32 lngTemplateID, const QString& strText) {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetTemplates(QStringLiteral("TemplateID = %1").arg(lngTemplateID), 4,
                                        err, rs);
    EventPanel::Rows rows;
    if (rs && rs->RecordCount() > 0) {
        rs->MoveFirst();
        for (const char* field : {"TemplateOccasion", "TemplateAuthor", "TemplateNotes",
                                  "TemplateDateCreated", "IsServiceTemplate", "IsInBuilt"})
            rows.append({QString::fromLatin1(field), VB::Text(rs->Fields(QLatin1String(field)))});
    } else if (!err.isEmpty()) {
        rows.append({QStringLiteral("Error"), err});
    }
    panel->Show(strText, rows);
}
