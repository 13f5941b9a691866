#pragma once

#include "StartUp.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

class HelpWindow;
class HostPage;
class OptionsPage;
class QAction;
class QActionGroup;
class QDockWidget;
class RunPreview;
class QMenu;
class QStackedWidget;
class QToolBar;
class QLabel;
class RunSession;
class ServiceItemsPage;
class ServicesPage;
class ShortListsPage;
class TemplatesPage;

// The main window of Corvantis: a navigation bar (Services, Service Items,
// Templates, Short-lists, Options), the page of the chosen entry (a gallery on
// the left, the matching editor or list on the right), and the menus File,
// View, Run and Help. While a run goes on the console takes the place of the
// pages and the projector window shows the run.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(const StartUp& startUp, QWidget* parent = nullptr);
    ~MainWindow() override;

    // ---- Pages -----------------------------------------------------------------
    // Shows the page of that name ("Services", "ServiceItems", "Templates",
    // "ShortLists", "Options") once the page in view agreed to be left.
    bool ShowPage(const QString& strName);
    HostPage* CurrentPage() const;
    // The page of that name, made when it is first asked for: only the page
    // shown first is made as the window opens.
    HostPage* Page(const QString& strName);
    // The page that Options/StartupTab names; "Services" when it names none.
    static QString PageForStartupTab(const QString& strStartupTab);

    // ---- Runs (MainWindow_Run.cpp) ---------------------------------------------
    bool RunService(qint32 lngServiceID);
    bool RunServiceItem(qint32 lngServiceItemID);
    RunSession* Session() const;
    bool IsRunning() const;
    // Ends the run in progress, as the console's End does.
    void EndRun();

    // ---- Import, export and printing (MainWindow_Exchange.cpp) --------------------
    // File > Import: asks for a file, imports it and shows what came in.
    void ImportFile();
    // File > Export and Print: the service or service item selected on the page in view.
    void ExportSelection();
    void PrintSelection();
    void PrintShortCuts();

    // ---- Place on the screen (MainWindow_Place.cpp) -------------------------------
    // The size and place the window opens at: where it was last closed, when
    // that still lies on a screen, else a size that fits the console's screen
    // (the primary), centred on it.
    QRect OpeningGeometry() const;
    // Remembers the window's size and place in Corvantis.ini.
    void SaveGeometry() const;
    static QString GeometryKey() { return QStringLiteral("MainWindow"); }

    // ---- Help (MainWindow_Menus.cpp) -------------------------------------------
    void ShowAbout();
    static QString AboutText();
    // Opens the user guide at the page (HelpWindow's names); an empty name
    // chooses the page of what the user is doing: running, or planning.
    void ShowHelp(const QString& strPage = QString());
    HelpWindow* Help() const { return m_help; }

    // The pages by kind, each made on first use.
    ServicesPage* pgServices();
    ServiceItemsPage* pgServiceItems();
    TemplatesPage* pgTemplates();
    ShortListsPage* pgShortLists();
    OptionsPage* pgOptions();
    QToolBar* tbrNavigation;
    QActionGroup* grpNavigation;
    QStackedWidget* stkPages;
    QMenu* mnuFile = nullptr;
    QAction* mnuFileImport = nullptr;
    QAction* mnuFileExport = nullptr;
    QAction* mnuFilePrint = nullptr;
    QAction* mnuFilePrintShortCuts = nullptr;
    QMenu* mnuView = nullptr;
    QMenu* mnuRun = nullptr;
    QMenu* mnuRunService = nullptr;
    QMenu* mnuHelp = nullptr;
    QAction* mnuRunSelectedService = nullptr;
    QAction* mnuRunSelectedServiceItem = nullptr;
    QAction* mnuEndRun = nullptr;
    QAction* mnuViewNavigationBar = nullptr;
    // Beside the console during a run: the picture showing and the next one.
    QDockWidget* dckRunPreview = nullptr;
    RunPreview* ctlRunPreview = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    // F1 sent as a key stroke by a control (the gallery's "?") opens the help.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static const QStringList& PageNames();
    HostPage* CreatePage(const QString& strName);
    // The page of that name when it has been made, else nullptr.
    HostPage* MadePage(const QString& strName) const;
    void CreateNavigation();
    void CreateMenus();
    void CreateFileMenu();
    void CreateViewMenu();
    void CreateRunMenu();
    void CreateHelpMenu();
    void mnuRunService_AboutToShow();
    void mnuRunSelectedService_Click();
    void mnuRunSelectedServiceItem_Click();
    void UpdateRunActions();
    bool StartSession(const std::function<bool(RunSession&, QString&)>& start);
    void Session_Ended();
    void ShowRunPreview(RunSession& session);
    void ShowSlidesStatus(RunSession& session);
    void ShowRunFailure(const QString& strErrorMessage);
    // The galleries and lists run one item through the data library's RunServiceItem, which
    // hands it to the window that opened last; it runs on its own, as Run does.
    void InstallServiceItemRunner();
    void RemoveServiceItemRunner();
    bool RunServiceItemForLibrary(qint32 lngServiceItemID, QString& strErrorMessage);
    void UpdateFileActions();
    void ReportExchangeFailure(const QString& strTitle, const QString& strErrorMessage);

    StartUp m_startUp;
    QList<HostPage*> m_pages; // the pages made so far
    QPointer<RunSession> m_session;
    QWidget* m_pageBeforeRun = nullptr;
    QLabel* lblSlidesStatus = nullptr; // the slides of a run still being prepared
    HelpWindow* m_help = nullptr;
};
