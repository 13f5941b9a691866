#include "ServicesPage.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceGallery.h"
#include "services/ctlService.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

ServicesPage::ServicesPage(QWidget* parent) : HostPage(QStringLiteral("Services"), parent) {
    auto* gallery = new QWidget(this);
    gallery->setObjectName(QStringLiteral("ServiceList"));
    ctlServiceGallery1 = new ctlServiceGallery(gallery);
    ctlServiceGallery1->setObjectName(QStringLiteral("ctlServiceGallery1"));
    cmdNewService = new QPushButton(QStringLiteral("&New Service"), gallery);
    cmdNewService->setObjectName(QStringLiteral("cmdNewService"));
    cmdRunService = new QPushButton(QStringLiteral("&Run this Service"), gallery);
    cmdRunService->setObjectName(QStringLiteral("cmdRunService"));
    cmdRunService->setEnabled(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdNewService);
    buttons->addWidget(cmdRunService);
    auto* layout = new QVBoxLayout(gallery);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(ctlServiceGallery1, 1);
    layout->addLayout(buttons);
    SetGallery(gallery);
    connect(ctlServiceGallery1, &ctlServiceGallery::ServiceClicked, this,
            [this](const QString& id, const QString&, const QString&, const QString&,
                   const QString& type) {
                ErrorReport::Guard([&] { ctlServiceGallery1_ServiceClicked(id, type); });
            });
    connect(ctlServiceGallery1, &ctlServiceGallery::ServiceDblClicked, this,
            [this](qint32 id) { ErrorReport::Guard([&] { SelectService(id); }); });
    connect(ctlServiceGallery1, &ctlServiceGallery::NewServiceAdded, this, [this](qint32 id) {
        ErrorReport::Guard([&] { ctlServiceGallery1_NewServiceAdded(id); });
    });
    connect(cmdNewService, &QPushButton::clicked, this,
            [this] { ErrorReport::Guard([this] { cmdNewService_Click(); }); });
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

qint32 ServicesPage::SelectedServiceID() const {
    if (const ctlService* editor = ServiceEditor())
        return editor->ServiceID();
    return m_selected;
}

ctlService* ServicesPage::ServiceEditor() const {
    return qobject_cast<ctlService*>(Editor()->Current());
}

void ServicesPage::Reload() {
    m_refreshPending = false;
    const qint32 lngSelected = SelectedServiceID();
    ctlServiceGallery1->ShowServices();
    if (lngSelected != 0)
        ctlServiceGallery1->SelectService(lngSelected);
}

void ServicesPage::SelectService(qint32 lngServiceID) {
    Activate();
    ctlServiceGallery1->SelectService(lngServiceID);
}

// A group or the root leaves the editor as it is; a service opens in an editor
// of its own. When the editor in place keeps its place (its save failed), the
// gallery goes back to the service it shows.
void ServicesPage::ctlServiceGallery1_ServiceClicked(const QString& strID, const QString& strType) {
    if (strType != QLatin1String("Service")) {
        m_selected = 0;
        cmdRunService->setEnabled(ServiceEditor() != nullptr);
        return;
    }
    const qint32 lngServiceID = VB::CLng(strID);
    m_selected = lngServiceID;
    const ctlService* open = ServiceEditor();
    if (open && open->ServiceID() == lngServiceID && open->Items() == strID) {
        cmdRunService->setEnabled(true);
        return;
    }
    if (!ShowService(lngServiceID) && open) {
        m_selected = open->ServiceID();
        ctlServiceGallery1->SelectService(m_selected);
    }
    cmdRunService->setEnabled(ServiceEditor() != nullptr);
}

bool ServicesPage::ShowService(qint32 lngServiceID) {
    ctlService* editor = MakeEditor();
    if (!Editor()->Replace(editor, [this] { return EditorMayGo(ServiceEditor()); }))
        return false;
    // The caption follows the editor's own rules: the name, else the theme and
    // the date, never the gallery's words for the node.
    editor->setDescription(QString());
    editor->setItems(QString::number(lngServiceID));
    editor->ShowProperties();
    return true;
}

ctlService* ServicesPage::MakeEditor() {
    auto* editor = new ctlService;
    editor->setObjectName(QStringLiteral("ctlService1"));
    connect(editor, &ctlService::ServiceStored, this,
            [this] { ErrorReport::Guard([this] { ServiceStored(); }); });
    return editor;
}

// The editor's own question (once: an answer No given a moment ago, when the
// focus left the editor, counts). No drops the changes: the editor, should it
// stay (a run), opens again on what is stored. A Yes whose save did not store
// everything keeps the editor and what it holds.
bool ServicesPage::EditorMayGo(ctlService* editor) {
    if (!editor)
        return true;
    EditorCycle* cycle = EditorCycle::Of(editor);
    if (!editor->ChangesDeclined())
        editor->CanUnload();
    if (!cycle || !cycle->IsAnyDirty())
        return true;
    if (!editor->ChangesDeclined())
        return false;
    cycle->ClearAll();
    const qint32 lngServiceID = editor->ServiceID();
    QTimer::singleShot(0, this, [this, lngServiceID] {
        ErrorReport::Guard([&] {
            const ctlService* open = ServiceEditor();
            if (open && open->ServiceID() == lngServiceID)
                ShowService(lngServiceID);
        });
    });
    return true;
}

void ServicesPage::ServiceStored() {
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    QTimer::singleShot(0, this, [this] {
        if (m_refreshPending)
            ErrorReport::Guard([this] { Reload(); });
    });
}

// The editor opens on the new service, on the tab of its name.
void ServicesPage::ctlServiceGallery1_NewServiceAdded(qint32 ServiceID) {
    ctlService* editor = ServiceEditor();
    if (!editor || editor->ServiceID() != ServiceID)
        return;
    editor->SSTab1->setCurrentIndex(0);
    editor->txtServiceName->setFocus();
}

void ServicesPage::cmdNewService_Click() {
    Activate();
    ctlServiceGallery1->NewService();
}

// What runs is what the store holds: the page is asked first, and with it the
// editor, which offers to save what it holds.
void ServicesPage::cmdRunService_Click() {
    const qint32 lngServiceID = SelectedServiceID();
    if (lngServiceID != 0)
        emit RunServiceRequested(lngServiceID);
}
