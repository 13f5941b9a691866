#include "ServicesPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "Recordset.h"
#include "Summaries.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceGallery.h"

#include <QPushButton>
#include <QVBoxLayout>

ServicesPage::ServicesPage(QWidget* parent)
    : HostPage(QStringLiteral("Services"), parent), ctlServiceGallery1(nullptr) {
    auto* gallery = new QWidget(this);
    gallery->setObjectName(QStringLiteral("ServiceList"));
    ctlServiceGallery1 = new ctlServiceGallery(gallery);
    ctlServiceGallery1->setObjectName(QStringLiteral("ctlServiceGallery1"));
    cmdRunService = new QPushButton(QStringLiteral("&Run this Service"), gallery);
    cmdRunService->setObjectName(QStringLiteral("cmdRunService"));
    cmdRunService->setEnabled(false);
    auto* layout = new QVBoxLayout(gallery);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(ctlServiceGallery1, 1);
    layout->addWidget(cmdRunService);
    SetGallery(gallery);
    connect(ctlServiceGallery1, &ctlServiceGallery::ServiceClicked, this,
            [this](const QString& id, const QString& text, const QString&, const QString&,
                   const QString& type) {
                ErrorReport::Guard([&] { ctlServiceGallery1_ServiceClicked(id, text, type); });
            });
    connect(ctlServiceGallery1, &ctlServiceGallery::ServiceDblClicked, this,
            [this](qint32 id) { ErrorReport::Guard([&] { SelectService(id); }); });
    connect(cmdRunService, &QPushButton::clicked, this,
            [this] { ErrorReport::Guard([this] { cmdRunService_Click(); }); });
}

// The newest service is shown at once, so that the page never opens empty.
void ServicesPage::Load() {
    ctlServiceGallery1->ShowServices();
    const qint32 lngNewest = NewestServiceID();
    if (lngNewest != 0)
        SelectService(lngNewest);
}

qint32 ServicesPage::NewestServiceID() {
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServices(QString(), 4, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty() || !rs || rs->RecordCount() == 0)
        return 0;
    rs->MoveFirst();
    return VB::CLng(rs->Fields(QStringLiteral("ServiceID")));
}

void ServicesPage::Reload() {
    const qint32 lngSelected = m_selected;
    ctlServiceGallery1->ShowServices();
    if (lngSelected != 0)
        ctlServiceGallery1->SelectService(lngSelected);
}

void ServicesPage::SelectService(qint32 lngServiceID) {
    Activate();
    ctlServiceGallery1->SelectService(lngServiceID);
}

void ServicesPage::ctlServiceGallery1_ServiceClicked(const QString& strID,
                                                     const QString& strDescription,
                                                     const QString& strType) {
    m_selected = strType == QLatin1String("Service") ? strID.toInt() : 0;
    cmdRunService->setEnabled(m_selected != 0);
    if (m_selected != 0)
        ShowService(m_selected, strDescription);
}

void ServicesPage::ShowService(qint32 lngServiceID, const QString& strDescription) {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (panel)
        panel->Show(strDescription, Summaries::ServiceRows(lngServiceID));
}

void ServicesPage::cmdRunService_Click() {
    if (m_selected != 0)
        emit RunServiceRequested(m_selected);
}
