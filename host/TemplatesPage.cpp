#include "TemplatesPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "HostText.h"
#include "RecordList.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"

TemplatesPage::TemplatesPage(QWidget* parent) : HostPage(QStringLiteral("Templates"), parent) {
    lvwTemplates = new RecordList(
        QStringLiteral("TemplateID"),
        {{QStringLiteral("TemplateDescription"), QStringLiteral("Description")},
         {QStringLiteral("TemplateOccasion"), QStringLiteral("Occasion")},
         {QStringLiteral("TemplateAuthor"), QStringLiteral("Created By")}},
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
        auto field = [&](const char* name) { return rs->Fields(QLatin1String(name)); };
        rows = {{QStringLiteral("Type"), field("IsServiceTemplate").toBool()
                                             ? QStringLiteral("Service")
                                             : QStringLiteral("Service Item")},
                {QStringLiteral("Occasion"), VB::Text(field("TemplateOccasion"))},
                {QStringLiteral("Created By"), VB::Text(field("TemplateAuthor"))},
                {QStringLiteral("Date Created"), HostText::Value(field("TemplateDateCreated"))},
                {QStringLiteral("Notes"), VB::Text(field("TemplateNotes"))},
                {QString(), field("IsInBuilt").toBool() ? QStringLiteral("In Built")
                                                        : QStringLiteral("User Created")}};
    } else if (!err.isEmpty()) {
        rows.append({QStringLiteral("Error"), err});
    }
    panel->Show(strText, rows);
}
