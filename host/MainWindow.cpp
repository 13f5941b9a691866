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

const QStringList& MainWindow::PageNames() {
    static const QStringList names = {QStringLiteral("Services"), QStringLiteral("ServiceItems"),
                                      QStringLiteral("Templates"), QStringLiteral("ShortLists"),
                                      QStringLiteral("Options")};
    return names;
}

// A page with its galleries and editors is made the first time it is asked
// for, so that the window opens with only the page it shows.
HostPage* MainWindow::CreatePage(const QString& strName) {
    HostPage* page = nullptr;
    if (strName == QLatin1String("Services"))
        page = new ServicesPage(stkPages);
    else if (strName == QLatin1String("ServiceItems"))
        page = new ServiceItemsPage(stkPages);
    else if (strName == QLatin1String("Templates"))
        page = new TemplatesPage(stkPages);
    else if (strName == QLatin1String("ShortLists"))
        page = new ShortListsPage(stkPages);
    else if (strName == QLatin1String("Options")) {
        auto* options = new OptionsPage(stkPages);
        connect(options, &OptionsPage::AboutCorvantis, this,
                [this] { ErrorReport::Guard([this] { ShowAbout(); }); });
        page = options;
    }
    if (!page)
        return nullptr;
    m_pages << page;
    stkPages->addWidget(page);
    connect(page, &HostPage::RunServiceRequested, this,
            [this](qint32 id) { ErrorReport::Guard([&] { RunService(id); }); });
    connect(page, &HostPage::RunServiceItemRequested, this,
            [this](qint32 id) { ErrorReport::Guard([&] { RunServiceItem(id); }); });
    return page;
}

HostPage* MainWindow::MadePage(const QString& strName) const {
    for (HostPage* page : m_pages)
        if (page->Name() == strName)
            return page;
    return nullptr;
}

ServicesPage* MainWindow::pgServices() {
    return static_cast<ServicesPage*>(Page(QStringLiteral("Services")));
}

ServiceItemsPage* MainWindow::pgServiceItems() {
    return static_cast<ServiceItemsPage*>(Page(QStringLiteral("ServiceItems")));
}

TemplatesPage* MainWindow::pgTemplates() {
    return static_cast<TemplatesPage*>(Page(QStringLiteral("Templates")));
}

ShortListsPage* MainWindow::pgShortLists() {
    return static_cast<ShortListsPage*>(Page(QStringLiteral("ShortLists")));
}

OptionsPage* MainWindow::pgOptions() {
    return static_cast<OptionsPage*>(Page(QStringLiteral("Options")));
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
    for (const QString& name : PageNames())
        if (tab.compare(name, Qt::CaseInsensitive) == 0)
            return name;
    return QStringLiteral("Services");
}

HostPage* MainWindow::Page(const QString& strName) {
    if (HostPage* page = MadePage(strName))
        return page;
    return PageNames().contains(strName) ? CreatePage(strName) : nullptr;
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
