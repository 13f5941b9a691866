#include "MainWindow.h"

#include "DataAccess.h"
#include "HostPage.h"
#include "ServiceItemsPage.h"
#include "ServicesPage.h"
#include "foundations/Platform.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QAction>
#include <QPointer>

// The File menu's import, export and printing, and the runner of one item that the data
// library's RunServiceItem calls. Export and printing work on what the page in view has
// selected: the service on the Services page, the service item on the Service Items page.

namespace {

enum class Selection { None, Service, ServiceItem };

const QString kChooseFirst =
    QStringLiteral("Choose a service on the Services page, or a service item on the Service "
                   "Items page, first.");

} // namespace

namespace {
// The window whose runner the data library holds.
QPointer<MainWindow> g_runnerOwner;
} // namespace

void MainWindow::InstallServiceItemRunner() {
    g_runnerOwner = this;
    DataAccess::SetServiceItemRunner([this](qint32 lngServiceItemID, QString& strErrorMessage) {
        return RunServiceItemForLibrary(lngServiceItemID, strErrorMessage);
    });
}

void MainWindow::RemoveServiceItemRunner() {
    if (g_runnerOwner != this)
        return;
    g_runnerOwner = nullptr;
    DataAccess::SetServiceItemRunner(nullptr);
}

bool MainWindow::RunServiceItemForLibrary(qint32 lngServiceItemID, QString& strErrorMessage) {
    if (IsRunning()) {
        strErrorMessage =
            QStringLiteral("A service is running: end the run before running a single item.");
        return false;
    }
    // A run that cannot start says why in its own box.
    RunServiceItem(lngServiceItemID);
    return true;
}

void MainWindow::ReportExchangeFailure(const QString& strTitle, const QString& strErrorMessage) {
    if (!strErrorMessage.isEmpty())
        Platform::Current().MsgBox(strErrorMessage, vbExclamation, strTitle);
}

namespace {

// What the page in view has selected: a service on the Services page, a service item on the
// Service Items page.
Selection SelectionOf(HostPage* page, qint32& lngID) {
    lngID = 0;
    if (auto* services = qobject_cast<ServicesPage*>(page))
        lngID = services->SelectedServiceID();
    else if (auto* items = qobject_cast<ServiceItemsPage*>(page))
        lngID = items->SelectedServiceItemID();
    if (lngID == 0)
        return Selection::None;
    return qobject_cast<ServicesPage*>(page) ? Selection::Service : Selection::ServiceItem;
}

} // namespace

void MainWindow::UpdateFileActions() {
    qint32 lngID = 0;
    const Selection selection = SelectionOf(CurrentPage(), lngID);
    const bool running = IsRunning();
    mnuFileImport->setEnabled(!running);
    mnuFileExport->setEnabled(!running && selection != Selection::None);
    mnuFilePrint->setEnabled(!running && selection != Selection::None);
    mnuFilePrintShortCuts->setEnabled(!running && selection == Selection::Service);
}

void MainWindow::ImportFile() {
    QString strErrorMessage;
    DataAccess& da = DataAccess::Instance();
    da.ImportFile(QString(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        ReportExchangeFailure(QStringLiteral("Import"), strErrorMessage);
        return;
    }
    // What came in shows in the galleries, the newest item selected.
    pgServices()->Reload();
    qint32 lngNewest = 0;
    da.GetNewestServiceItemID(strErrorMessage, lngNewest);
    pgServiceItems()->ctlServiceItemGallery1->ShowServiceItems();
    if (lngNewest != 0)
        pgServiceItems()->ctlServiceItemGallery1->SelectServiceItem(lngNewest);
}

void MainWindow::ExportSelection() {
    qint32 lngID = 0;
    const Selection selection = SelectionOf(CurrentPage(), lngID);
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    QString strDescription;
    if (selection == Selection::Service) {
        da.GetServiceDescription(lngID, strErrorMessage, strDescription);
        da.ExportServices(QString::number(lngID), strDescription, strErrorMessage);
    } else if (selection == Selection::ServiceItem) {
        da.GetServiceItemDescription(lngID, strErrorMessage, strDescription);
        if (strDescription.contains(QLatin1String("@@")))
            da.DecodeStoredText(QString(strDescription), strErrorMessage, strDescription);
        da.ExportServiceItems(QString::number(lngID), strDescription, strErrorMessage);
    } else {
        strErrorMessage = kChooseFirst;
    }
    ReportExchangeFailure(QStringLiteral("Export"), strErrorMessage);
}

void MainWindow::PrintSelection() {
    qint32 lngID = 0;
    const Selection selection = SelectionOf(CurrentPage(), lngID);
    QString strErrorMessage;
    if (selection == Selection::Service)
        DataAccess::Instance().PrintService(lngID, strErrorMessage);
    else if (selection == Selection::ServiceItem)
        DataAccess::Instance().PrintServiceItem(lngID, strErrorMessage);
    else
        strErrorMessage = kChooseFirst;
    ReportExchangeFailure(QStringLiteral("Print"), strErrorMessage);
}

void MainWindow::PrintShortCuts() {
    qint32 lngID = 0;
    QString strErrorMessage;
    if (SelectionOf(CurrentPage(), lngID) == Selection::Service)
        DataAccess::Instance().PrintServiceShortCuts(lngID, strErrorMessage);
    else
        strErrorMessage = QStringLiteral("Choose a service on the Services page first.");
    ReportExchangeFailure(QStringLiteral("Print Short-cuts"), strErrorMessage);
}
