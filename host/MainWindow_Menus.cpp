#include "MainWindow.h"

#include "DataAccess.h"
#include "HelpWindow.h"
#include "HostPage.h"
#include "RunSession.h"
#include "ServiceItemsPage.h"
#include "ServicesPage.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {

template <class F> void onTriggered(QAction* action, QObject* context, F f) {
    QObject::connect(action, &QAction::triggered, context, [f] { ErrorReport::Guard(f); });
}

QAction* addNamed(QMenu* menu, const QString& name, const QString& text) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    return action;
}

} // namespace

void MainWindow::CreateMenus() {
    CreateFileMenu();
    CreateViewMenu();
    CreateRunMenu();
    CreateHelpMenu();
}

void MainWindow::CreateFileMenu() {
    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuFileImport =
        addNamed(mnuFile, QStringLiteral("mnuFileImport"), QStringLiteral("&Import..."));
    onTriggered(mnuFileImport, this, [this] { ImportFile(); });
    mnuFileExport =
        addNamed(mnuFile, QStringLiteral("mnuFileExport"), QStringLiteral("&Export..."));
    onTriggered(mnuFileExport, this, [this] { ExportSelection(); });
    mnuFile->addSeparator();
    mnuFilePrint = addNamed(mnuFile, QStringLiteral("mnuFilePrint"), QStringLiteral("&Print..."));
    mnuFilePrint->setShortcut(QKeySequence::Print);
    onTriggered(mnuFilePrint, this, [this] { PrintSelection(); });
    mnuFilePrintShortCuts = addNamed(mnuFile, QStringLiteral("mnuFilePrintShortCuts"),
                                     QStringLiteral("Print &Short-cuts..."));
    onTriggered(mnuFilePrintShortCuts, this, [this] { PrintShortCuts(); });
    // The entries name what they work on when the menu opens.
    connect(mnuFile, &QMenu::aboutToShow, this,
            [this] { ErrorReport::Guard([this] { UpdateFileActions(); }); });
    mnuFile->addSeparator();
    QAction* exit = addNamed(mnuFile, QStringLiteral("mnuFileExit"), QStringLiteral("E&xit"));
    exit->setShortcut(QKeySequence::Quit);
    onTriggered(exit, this, [this] { close(); });
}

void MainWindow::CreateViewMenu() {
    mnuView = menuBar()->addMenu(QStringLiteral("&View"));
    mnuView->setObjectName(QStringLiteral("mnuView"));
    for (QAction* navigation : grpNavigation->actions()) {
        QAction* action =
            addNamed(mnuView, QStringLiteral("mnuView") + navigation->objectName().mid(3),
                     navigation->text());
        onTriggered(action, this, [navigation] { navigation->trigger(); });
    }
    // The bar can be hidden from its context menu; here it comes back.
    mnuView->addSeparator();
    mnuViewNavigationBar = tbrNavigation->toggleViewAction();
    mnuViewNavigationBar->setObjectName(QStringLiteral("mnuViewNavigationBar"));
    mnuViewNavigationBar->setText(QStringLiteral("&Navigation Bar"));
    mnuView->addAction(mnuViewNavigationBar);
}

void MainWindow::CreateRunMenu() {
    mnuRun = menuBar()->addMenu(QStringLiteral("&Run"));
    mnuRun->setObjectName(QStringLiteral("mnuRun"));
    mnuRunService = mnuRun->addMenu(QStringLiteral("Run &Service"));
    mnuRunService->setObjectName(QStringLiteral("mnuRunService"));
    connect(mnuRunService, &QMenu::aboutToShow, this,
            [this] { ErrorReport::Guard([this] { mnuRunService_AboutToShow(); }); });
    mnuRunSelectedService = addNamed(mnuRun, QStringLiteral("mnuRunSelectedService"),
                                     QStringLiteral("Run the Selected Ser&vice"));
    mnuRunSelectedService->setShortcut(QKeySequence(Qt::Key_F5));
    onTriggered(mnuRunSelectedService, this, [this] { mnuRunSelectedService_Click(); });
    mnuRunSelectedServiceItem = addNamed(mnuRun, QStringLiteral("mnuRunSelectedServiceItem"),
                                         QStringLiteral("Run the Selected Service &Item"));
    mnuRunSelectedServiceItem->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F5));
    onTriggered(mnuRunSelectedServiceItem, this, [this] { mnuRunSelectedServiceItem_Click(); });
    mnuRun->addSeparator();
    mnuEndRun = addNamed(mnuRun, QStringLiteral("mnuEndRun"), QStringLiteral("&End the Run"));
    onTriggered(mnuEndRun, this, [this] {
        // Yes to the console's question ends the run through its End already.
        if (m_session && m_session->CanUnload())
            EndRun();
    });
    UpdateRunActions();
}

void MainWindow::CreateHelpMenu() {
    mnuHelp = menuBar()->addMenu(QStringLiteral("&Help"));
    mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
    QAction* contents =
        addNamed(mnuHelp, QStringLiteral("mnuHelpContents"), QStringLiteral("Corvantis &Help"));
    contents->setShortcut(QKeySequence::HelpContents);
    onTriggered(contents, this, [this] { ShowHelp(); });
    const QList<QPair<QString, QString>> pages = {
        {QStringLiteral("Planning"), QStringLiteral("&Planning a Service")},
        {QStringLiteral("Running"), QStringLiteral("&Running a Service")},
        {QStringLiteral("Keys"), QStringLiteral("&Keys")}};
    for (const auto& page : pages) {
        const QString file = page.first.toLower() + QStringLiteral(".html");
        onTriggered(addNamed(mnuHelp, QStringLiteral("mnuHelp") + page.first, page.second), this,
                    [this, file] { ShowHelp(file); });
    }
    mnuHelp->addSeparator();
    QAction* about =
        addNamed(mnuHelp, QStringLiteral("mnuHelpAbout"), QStringLiteral("&About Corvantis"));
    onTriggered(about, this, [this] { ShowAbout(); });
}

// The services of the database, one entry each, newest first.
void MainWindow::mnuRunService_AboutToShow() {
    mnuRunService->clear();
    DataAccess& da = DataAccess::Instance();
    QString err;
    std::unique_ptr<Recordset> rs;
    da.GetServices(QString(), 4, err, rs);
    if (!err.isEmpty() || !rs || rs->RecordCount() == 0) {
        mnuRunService->addAction(err.isEmpty() ? QStringLiteral("(no services)") : err)
            ->setEnabled(false);
        return;
    }
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const qint32 id = rs->Fields(QStringLiteral("ServiceID")).toInt();
        QString name = VB::Text(rs->Fields(QStringLiteral("ServiceName")));
        if (name.contains(QStringLiteral("@@")))
            da.DecodeStoredText(VB::Text(rs->Fields(QStringLiteral("ServiceName"))), err, name);
        QAction* action =
            mnuRunService->addAction(name.isEmpty() ? QStringLiteral("(no name)") : name);
        action->setObjectName(QStringLiteral("mnuRunService%1").arg(id));
        action->setEnabled(!IsRunning());
        onTriggered(action, this, [this, id] { RunService(id); });
    }
}

void MainWindow::mnuRunSelectedService_Click() {
    RunService(pgServices()->SelectedServiceID());
}

void MainWindow::mnuRunSelectedServiceItem_Click() {
    RunServiceItem(pgServiceItems()->SelectedServiceItemID());
}

void MainWindow::UpdateRunActions() {
    if (!mnuEndRun)
        return;
    const bool running = IsRunning();
    mnuRunSelectedService->setEnabled(!running);
    mnuRunSelectedServiceItem->setEnabled(!running);
    mnuEndRun->setEnabled(running);
    tbrNavigation->setEnabled(!running);
    mnuView->setEnabled(!running);
}

QString MainWindow::AboutText() {
    return QStringLiteral(
               "Corvantis %1\n\nPlans services of worship and runs them on a projector.\n\n"
               "Database: %2")
        .arg(QCoreApplication::applicationVersion(), DataAccess::Instance().DatabasePath());
}

void MainWindow::ShowHelp(const QString& strPage) {
    QString page = strPage;
    if (page.isEmpty())
        page = IsRunning() ? HelpWindow::RunningPage()
               : CurrentPage() && CurrentPage()->Name() != QLatin1String("Options")
                   ? HelpWindow::PlanningPage()
                   : HelpWindow::ContentsPage();
    if (!m_help)
        m_help = new HelpWindow(this);
    m_help->ShowPage(page);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
        static_cast<QKeyEvent*>(event)->modifiers() != Qt::NoModifier)
        return QMainWindow::eventFilter(watched, event);
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != this)
        return false;
    ErrorReport::Guard([this] { ShowHelp(); });
    return true;
}

void MainWindow::ShowAbout() {
    Platform::Current().MsgBox(AboutText(), vbInformation, QStringLiteral("About Corvantis"));
}
