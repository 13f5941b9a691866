#include "MainWindow.h"

#include "HostPage.h"
#include "OptionsPage.h"
#include "RunSession.h"
#include "ServiceItemsPage.h"
#include "ServicesPage.h"
#include "ShortListsPage.h"
#include "TemplatesPage.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

MainWindow::MainWindow(const StartUp& startUp, QWidget* parent)
    : QMainWindow(parent), m_startUp(startUp) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(startUp.WindowTitle());
    // Every box and dialog opens over this window, on the console's screen.
    Platform::SetDialogOwner(this);
    InstallServiceItemRunner();
    stkPages = new QStackedWidget(this);
    stkPages->setObjectName(QStringLiteral("stkPages"));
    setCentralWidget(stkPages);
    CreatePages();
    CreateNavigation();
    CreateMenus();
    auto* lblDatabase = new QLabel(startUp.databasePath, this);
    lblDatabase->setObjectName(QStringLiteral("lblDatabase"));
    statusBar()->addPermanentWidget(lblDatabase);
    if (!startUp.DatabaseOpen())
        statusBar()->showMessage(startUp.errorMessage);
    else if (startUp.fellBackToSample)
        statusBar()->showMessage(QStringLiteral("Your database could not be opened; Corvantis "
                                                "shows its sample database instead."));
    else if (startUp.firstStart)
        statusBar()->showMessage(QStringLiteral("Welcome to Corvantis: what you see is a sample "
                                                "church's services and songs, to try things out."));
    ShowPage(PageForStartupTab(startUp.startupTab));
    setGeometry(OpeningGeometry());
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
    RemoveServiceItemRunner();
    qApp->removeEventFilter(this);
    if (m_session)
        m_session->End();
}

void MainWindow::CreatePages() {
    pgServices = new ServicesPage(stkPages);
    pgServiceItems = new ServiceItemsPage(stkPages);
    pgTemplates = new TemplatesPage(stkPages);
    pgShortLists = new ShortListsPage(stkPages);
    pgOptions = new OptionsPage(stkPages);
    m_pages = {pgServices, pgServiceItems, pgTemplates, pgShortLists, pgOptions};
    for (HostPage* page : m_pages) {
        stkPages->addWidget(page);
        connect(page, &HostPage::RunServiceRequested, this,
                [this](qint32 id) { ErrorReport::Guard([&] { RunService(id); }); });
        connect(page, &HostPage::RunServiceItemRequested, this,
                [this](qint32 id) { ErrorReport::Guard([&] { RunServiceItem(id); }); });
    }
    connect(pgOptions, &OptionsPage::AboutCorvantis, this,
            [this] { ErrorReport::Guard([this] { ShowAbout(); }); });
}

void MainWindow::CreateNavigation() {
    tbrNavigation = new QToolBar(QStringLiteral("Navigation"), this);
    tbrNavigation->setObjectName(QStringLiteral("tbrNavigation"));
    tbrNavigation->setMovable(false);
    tbrNavigation->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(Qt::LeftToolBarArea, tbrNavigation);
    grpNavigation = new QActionGroup(this);
    grpNavigation->setExclusive(true);
    const QList<QPair<QString, QString>> entries = {
        {QStringLiteral("Services"), QStringLiteral("Services")},
        {QStringLiteral("ServiceItems"), QStringLiteral("Service Items")},
        {QStringLiteral("Templates"), QStringLiteral("Templates")},
        {QStringLiteral("ShortLists"), QStringLiteral("Short-lists")},
        {QStringLiteral("Options"), QStringLiteral("Options")}};
    int number = 0;
    for (const auto& entry : entries) {
        QAction* action = tbrNavigation->addAction(entry.second);
        action->setObjectName(QStringLiteral("nav") + entry.first);
        action->setCheckable(true);
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + number++)));
        grpNavigation->addAction(action);
        const QString name = entry.first;
        connect(action, &QAction::triggered, this,
                [this, name] { ErrorReport::Guard([&] { ShowPage(name); }); });
    }
}

QString MainWindow::PageForStartupTab(const QString& strStartupTab) {
    const QString tab = strStartupTab.trimmed();
    for (const QString& name :
         {QStringLiteral("Services"), QStringLiteral("ServiceItems"), QStringLiteral("Templates"),
          QStringLiteral("ShortLists"), QStringLiteral("Options")})
        if (tab.compare(name, Qt::CaseInsensitive) == 0)
            return name;
    return QStringLiteral("Services");
}

HostPage* MainWindow::Page(const QString& strName) const {
    for (HostPage* page : m_pages)
        if (page->Name() == strName)
            return page;
    return nullptr;
}

HostPage* MainWindow::CurrentPage() const {
    return qobject_cast<HostPage*>(stkPages->currentWidget());
}

bool MainWindow::ShowPage(const QString& strName) {
    HostPage* page = Page(strName);
    HostPage* current = CurrentPage();
    if (!page || IsRunning())
        return false;
    if (current && current != page && !current->CanUnload()) {
        // Stay where the user is: the navigation bar follows the page in view.
        const QString stay = QStringLiteral("nav") + current->Name();
        if (auto* action = findChild<QAction*>(stay))
            action->setChecked(true);
        return false;
    }
    stkPages->setCurrentWidget(page);
    page->Activate();
    if (auto* action = findChild<QAction*>(QStringLiteral("nav") + strName))
        action->setChecked(true);
    UpdateRunActions();
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    ErrorReport::Guard([&] {
        // The console's question ends the run on Yes (through its End).
        if (m_session && !m_session->CanUnload()) {
            event->ignore();
            return;
        }
        if (m_session)
            m_session->End();
        HostPage* current = CurrentPage();
        if (current && !current->CanUnload()) {
            event->ignore();
            return;
        }
        SaveGeometry();
        event->accept();
    });
}
