#include "ServicesPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "RecordList.h"
#include "Summaries.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"

#include <QPushButton>
#include <QVBoxLayout>

ServicesPage::ServicesPage(QWidget* parent) : HostPage(QStringLiteral("Services"), parent) {
    auto* gallery = new QWidget(this);
    gallery->setObjectName(QStringLiteral("ServiceList"));
    lvwServices = new RecordList(
        QStringLiteral("ServiceID"),
        {{QStringLiteral("ServiceName"), QStringLiteral("Service")},
         {QStringLiteral("ServiceType"), QStringLiteral("Type")},
         {QStringLiteral("ServiceTheme"), QStringLiteral("Theme")},
         {QStringLiteral("ServiceDateLastDelivered"), QStringLiteral("Last delivered")}},
        [](QString& err, std::unique_ptr<Recordset>& rs) {
            DataAccess::Instance().GetServices(QString(), 4, err, rs);
        },
        gallery);
    lvwServices->setObjectName(QStringLiteral("lvwServices"));
    cmdRunService = new QPushButton(QStringLiteral("&Run this Service"), gallery);
    cmdRunService->setObjectName(QStringLiteral("cmdRunService"));
    cmdRunService->setEnabled(false);
    auto* layout = new QVBoxLayout(gallery);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lvwServices, 1);
    layout->addWidget(cmdRunService);
    SetGallery(gallery);
    connect(lvwServices, &RecordList::RowClicked, this,
            [this](qint32 id) { ErrorReport::Guard([&] { lvwServices_RowClicked(id); }); });
    connect(lvwServices, &RecordList::RowDoubleClicked, this,
            [this](qint32 id) { ErrorReport::Guard([&] { lvwServices_RowClicked(id); }); });
    connect(cmdRunService, &QPushButton::clicked, this,
            [this] { ErrorReport::Guard([this] { cmdRunService_Click(); }); });
}

// The first service is shown at once, so that the page never opens empty.
void ServicesPage::Load() {
    Reload();
    if (lvwServices->topLevelItemCount() > 0)
        SelectService(lvwServices->topLevelItem(0)->data(0, Qt::UserRole).toInt());
}

void ServicesPage::Reload() {
    const qint32 selected = SelectedServiceID();
    const QString err = lvwServices->Reload();
    if (!err.isEmpty())
        Platform::Current().MsgBox(err, vbExclamation);
    if (selected != 0)
        lvwServices->SelectId(selected);
}

qint32 ServicesPage::SelectedServiceID() const {
    return lvwServices->SelectedId();
}

void ServicesPage::SelectService(qint32 lngServiceID) {
    Activate();
    if (lvwServices->SelectId(lngServiceID))
        lvwServices_RowClicked(lngServiceID);
}

void ServicesPage::lvwServices_RowClicked(qint32 lngServiceID) {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    panel->Show(lvwServices->SelectedText(), Summaries::ServiceRows(lngServiceID));
    cmdRunService->setEnabled(lngServiceID != 0);
}

void ServicesPage::cmdRunService_Click() {
    const qint32 id = SelectedServiceID();
    if (id != 0)
        emit RunServiceRequested(id);
}
