// The main window: its navigation bar and pages, the road from a gallery's
// event to the right side, the menus, and a run from start to end.
#include "DataAccess.h"
#include "EditorSlot.h"
#include "EventPanel.h"
#include "HelpWindow.h"
#include "HostPage.h"
#include "HostText.h"
#include "MainWindow.h"
#include "OptionsPage.h"
#include "ProjectorWindow.h"
#include "RecordList.h"
#include "RunSession.h"
#include "ScriptedPlatform.h"
#include "ServiceItemsPage.h"
#include "ServicesPage.h"
#include "Settings.h"
#include "TemplatesPage.h"
#include "TestDatabase.h"
#include "options/ctlOptions.h"
#include "serviceitem/ctlServiceItem.h"
#include "templates/ctlTemplate.h"
#include "templates/ctlTemplateGallery.h"

#include "foundations/SSRibbon.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceGallery.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/ctlRun.h"
#include "services/ctlService.h"

#include <QAction>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

class tst_MainWindow : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void navigationBarHasTheFiveEntries();
    void startupTabChoosesTheFirstPage();
    void onlyThePageShownFirstIsMadeAndTheOthersWhenFirstShown();
    void windowTitleSaysWhenItIsSampleMode();
    void servicesPageOpensOnTheNewestService();
    void servicesPageListsTheServicesAndShowsTheClickedOne();
    void serviceItemClickedInTheGalleryShowsTheItem();
    void editorSlotAsksBeforeItReplaces();
    void editorThatWillNotGoKeepsThePage();
    void runMenuListsTheServices();
    void runningAServiceShowsTheConsoleAndTheProjector();
    void consoleFollowsEveryStepToTheLastItem();
    void operatorKeysOnTheConsoleDriveTheRun();
    void endOnTheConsoleEndsTheRunAndRecordsTheDelivery();
    void runButtonOfTheServicesPageRunsTheService();
    void serviceWithNothingToShowIsRefusedWithAMessage();
    void runOfOneServiceItemFromTheGallery();
    void aboutBoxNamesCorvantis();
    void closingDuringARunAsksTheConsoleFirst();
    void operatorKeysReachTheRunWhereverTheFocusIsInTheConsole();
    void typingInTheConsolesFilterBoxStaysTyping();
    void escBlacksOutFirstAndTheRunEndsOnlyOnYes();
    void helpMenuOpensEachPageOfTheGuide();
    void f1SentByAControlOpensTheGuide();
    void questionMarkOfTheConsoleOpensTheGuideAtRunning();
    void propertiesButtonOfTheGalleryShowsTheSelectedItem();
    void oneScreenSaysSoAndTheProjectorWindowKeepsItsPlace();
    void pagesWriteWordsAndFourDigitYearsNotFieldNames();
    void templatesPageShowsTheGalleryBesideTheEditor();

private:
    StartUp Start() const {
        StartUp start;
        start.databasePath = db->Path();
        return start;
    }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<MainWindow> window;
    qint32 song = 0, prayer = 0, service = 0, empty = 0;
};

void tst_MainWindow::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    platform = std::make_unique<ScriptedPlatform>();
    song = db->AddSong(QStringLiteral("Be Thou My Vision"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")},
                        {QStringLiteral("Verse 2"), QStringLiteral("Be thou my wisdom")}});
    prayer = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"),
                                QStringLiteral("Almighty God"));
    service = db->AddService(QStringLiteral("Morning Worship"), {{song}, {prayer}});
    empty = db->AddService(QStringLiteral("Nothing yet"));
    window = std::make_unique<MainWindow>(Start());
    window->resize(1100, 700);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void tst_MainWindow::cleanup() {
    window.reset();
    platform.reset();
    db.reset();
}

void tst_MainWindow::navigationBarHasTheFiveEntries() {
    QStringList texts;
    for (QAction* action : window->tbrNavigation->actions())
        texts << action->text();
    QCOMPARE(texts,
             QStringList({"Services", "Service Items", "Templates", "Short-lists", "Options"}));
    QCOMPARE(window->CurrentPage()->Name(), QStringLiteral("Services"));
    window->findChild<QAction*>(QStringLiteral("navServiceItems"))->trigger();
    QCOMPARE(window->CurrentPage()->Name(), QStringLiteral("ServiceItems"));
    QVERIFY(window->findChild<QAction*>(QStringLiteral("navServiceItems"))->isChecked());
}

void tst_MainWindow::startupTabChoosesTheFirstPage() {
    QCOMPARE(MainWindow::PageForStartupTab(QStringLiteral("ServiceItems")),
             QStringLiteral("ServiceItems"));
    QCOMPARE(MainWindow::PageForStartupTab(QStringLiteral("options")), QStringLiteral("Options"));
    QCOMPARE(MainWindow::PageForStartupTab(QStringLiteral("Somewhere")),
             QStringLiteral("Services"));
    QCOMPARE(MainWindow::PageForStartupTab(QString()), QStringLiteral("Services"));
    StartUp start = Start();
    start.startupTab = QStringLiteral("Templates");
    MainWindow other(start);
    QCOMPARE(other.CurrentPage()->Name(), QStringLiteral("Templates"));
}

void tst_MainWindow::onlyThePageShownFirstIsMadeAndTheOthersWhenFirstShown() {
    auto made = [this] {
        QStringList names;
        for (int i = 0; i < window->stkPages->count(); ++i)
            names << window->stkPages->widget(i)->objectName();
        return names;
    };
    QCOMPARE(made(), QStringList({"Services"}));
    QVERIFY(window->ShowPage(QStringLiteral("Options")));
    QCOMPARE(made(), QStringList({"Services", "Options"}));
    HostPage* options = window->CurrentPage();
    QVERIFY(window->ShowPage(QStringLiteral("Services")));
    QVERIFY(window->ShowPage(QStringLiteral("Options")));
    QCOMPARE(window->CurrentPage(), options);
    QCOMPARE(made(), QStringList({"Services", "Options"}));
    // A page asked for by its kind is made too, without being shown.
    QVERIFY(window->pgTemplates());
    QCOMPARE(window->CurrentPage(), options);
    QCOMPARE(made(), QStringList({"Services", "Options", "Templates"}));
    QVERIFY(!window->Page(QStringLiteral("Nowhere")));
    QVERIFY(!window->ShowPage(QStringLiteral("Nowhere")));
}

void tst_MainWindow::windowTitleSaysWhenItIsSampleMode() {
    QCOMPARE(window->windowTitle(), QStringLiteral("Corvantis"));
    StartUp start = Start();
    start.sampleMode = true;
    MainWindow sample(start);
    QVERIFY(sample.windowTitle().contains(QStringLiteral("Sample Mode")));
}

void tst_MainWindow::servicesPageOpensOnTheNewestService() {
    QCOMPARE(window->pgServices()->SelectedServiceID(), empty);
    ctlService* editor = window->pgServices()->ServiceEditor();
    QVERIFY(editor);
    QCOMPARE(editor->lblMainCaption->text(), QStringLiteral("Nothing yet"));
    QVERIFY(window->pgServices()->cmdRunService->isEnabled());
}

void tst_MainWindow::servicesPageListsTheServicesAndShowsTheClickedOne() {
    ctlServiceGallery* gallery = window->pgServices()->ctlServiceGallery1;
    qint32 services = 0;
    for (qint32 i = 1; i <= gallery->tvwServices->Count(); ++i)
        services += gallery->tvwServices->Nodes(i).Key().contains(QStringLiteral(";;Service;"));
    QCOMPARE(services, 2);
    gallery->SelectService(service);
    QCOMPARE(window->pgServices()->SelectedServiceID(), service);
    ctlService* editor = window->pgServices()->ServiceEditor();
    QVERIFY(editor);
    QCOMPARE(editor->lblMainCaption->text(), QStringLiteral("Morning Worship"));
    editor->SSTab1->setCurrentIndex(1);
    QCOMPARE(editor->fgItemsInService->item(1, ctlService::colDescription)->text(),
             QStringLiteral("Be Thou My Vision"));
    QCOMPARE(editor->fgItemsInService->item(2, ctlService::colDescription)->text(),
             QStringLiteral("Collect for Purity"));
    QVERIFY(window->pgServices()->cmdRunService->isEnabled());
}

void tst_MainWindow::serviceItemClickedInTheGalleryShowsTheItem() {
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    ctlServiceItemGallery* gallery = window->pgServiceItems()->ctlServiceItemGallery1;
    emit gallery->SIClicked(QString::number(prayer), QStringLiteral("Collect for Purity"),
                            QString(), QString(), QStringLiteral("SI"));
    auto* editor = window->pgServiceItems()->ServiceItemEditor();
    QVERIFY(editor);
    QCOMPARE(editor->Items(), QString::number(prayer));
    QCOMPARE(editor->lblMainCaption->text(), QStringLiteral("Collect for Purity"));
    QCOMPARE(editor->txtDescription->text(), QStringLiteral("Collect for Purity"));
    QCOMPARE(window->pgServiceItems()->SelectedServiceItemID(), prayer);
    emit gallery->SIClicked(QStringLiteral("Type;1"), QStringLiteral("Prayer"),
                            QStringLiteral("ServiceItemTypeID = 1"),
                            QStringLiteral("Type is Prayer"), QStringLiteral("SIGroup"));
    auto* panel = qobject_cast<EventPanel*>(window->pgServiceItems()->Editor()->Current());
    QVERIFY(panel);
    QCOMPARE(panel->Caption(), QStringLiteral("Prayer"));
    QCOMPARE(panel->Value(QStringLiteral("Filter")), QStringLiteral("Type is Prayer"));
    QCOMPARE(window->pgServiceItems()->SelectedServiceItemID(), 0);
}

void tst_MainWindow::editorSlotAsksBeforeItReplaces() {
    EditorSlot slot;
    int asked = 0;
    bool answer = false;
    auto* first = new QLabel(QStringLiteral("first"));
    QVERIFY(slot.Replace(first, [&] {
        ++asked;
        return answer;
    }));
    QPointer<QLabel> second = new QLabel(QStringLiteral("second"));
    QVERIFY(!slot.Replace(second));
    QCOMPARE(asked, 1);
    QCOMPARE(slot.Current(), first);
    QVERIFY(second.isNull());
    answer = true;
    auto* third = new QLabel(QStringLiteral("third"));
    QVERIFY(slot.Replace(third));
    QCOMPARE(asked, 2);
    QCOMPARE(slot.Current(), third);
}

void tst_MainWindow::editorThatWillNotGoKeepsThePage() {
    window->pgServices()->Editor()->Replace(new QLabel(QStringLiteral("unsaved")),
                                            [] { return false; });
    QVERIFY(!window->ShowPage(QStringLiteral("Templates")));
    QCOMPARE(window->CurrentPage()->Name(), QStringLiteral("Services"));
    window->findChild<QAction*>(QStringLiteral("navTemplates"))->trigger();
    QCOMPARE(window->CurrentPage()->Name(), QStringLiteral("Services"));
    QVERIFY(window->findChild<QAction*>(QStringLiteral("navServices"))->isChecked());
}

void tst_MainWindow::runMenuListsTheServices() {
    emit window->mnuRunService->aboutToShow();
    QStringList names;
    for (QAction* action : window->mnuRunService->actions())
        names << action->objectName() + QLatin1Char('=') + action->text();
    QVERIFY(names.contains(QStringLiteral("mnuRunService%1=Morning Worship").arg(service)));
    QVERIFY(names.contains(QStringLiteral("mnuRunService%1=Nothing yet").arg(empty)));
    window->findChild<QAction*>(QStringLiteral("mnuRunService%1").arg(service))->trigger();
    QVERIFY(window->IsRunning());
}

void tst_MainWindow::runningAServiceShowsTheConsoleAndTheProjector() {
    QVERIFY(window->RunService(service));
    RunSession* session = window->Session();
    QVERIFY(session);
    QCOMPARE(window->stkPages->currentWidget(), session->Console());
    QCOMPARE(session->Console()->lblMainCaption->text(),
             QStringLiteral("Running Service - Morning Worship"));
    QVERIFY(session->Projector()->isVisible());
    QCOMPARE(session->Projector()->windowTitle(), QStringLiteral("CorvantisRunForm"));
    QVERIFY(!window->tbrNavigation->isEnabled());
    QVERIFY(window->mnuEndRun->isEnabled());
    QVERIFY(!window->RunService(service)); // one run at a time
}

void tst_MainWindow::consoleFollowsEveryStepToTheLastItem() {
    QVERIFY(window->RunService(service));
    RunSession* session = window->Session();
    ctlRun* console = session->Console();
    RunEngine& engine = session->Engine();
    QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Be thou my vision"));
    console->cmdForward->click();
    QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Be thou my wisdom"));
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    console->cmdForward->click();
    QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Almighty God"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    console->cmdForward->click();
    QVERIFY(engine.AtEndOfService());
    QVERIFY(window->IsRunning());
}

void tst_MainWindow::operatorKeysOnTheConsoleDriveTheRun() {
    QVERIFY(window->RunService(service));
    RunSession* session = window->Session();
    ctlRun* console = session->Console();
    QTest::keyClick(console->tvwRun, Qt::Key_Space);
    QCOMPARE(session->Engine().CurrentPart(), 1);
    QTest::keyClick(console->tvwRun, Qt::Key_PageUp);
    QCOMPARE(session->Engine().CurrentPart(), 0);
    QTest::keyClick(console->cmdForward, Qt::Key_B);
    QVERIFY(session->Engine().IsBlackedOut());
    QVERIFY(!console->chkProjectorOn->isChecked());
    QTest::keyClick(session->Projector(), Qt::Key_B);
    QVERIFY(!session->Engine().IsBlackedOut());
    QTest::keyClick(session->Projector(), Qt::Key_Right);
    QCOMPARE(session->Engine().CurrentPart(), 1);
    QTest::keyClick(console, Qt::Key_Escape);
    QVERIFY(session->Engine().IsBlackedOut());
    QVERIFY(window->IsRunning());
    platform->QueueAnswer(vbYes);
    QTest::keyClick(console, Qt::Key_Escape);
    QTRY_VERIFY(!window->IsRunning());
}

void tst_MainWindow::endOnTheConsoleEndsTheRunAndRecordsTheDelivery() {
    QVERIFY(db->Exec(QStringLiteral("UPDATE Services SET ServiceDateLastDelivered = NULL")));
    QWidget* before = window->stkPages->currentWidget();
    QVERIFY(window->RunService(service));
    QPointer<ProjectorWindow> projector = window->Session()->Projector();
    platform->QueueAnswer(vbYes);
    window->Session()->Console()->cmdEnd->click();
    QTRY_VERIFY(!window->IsRunning());
    QCOMPARE(window->stkPages->currentWidget(), before);
    QVERIFY(window->tbrNavigation->isEnabled());
    QVERIFY(!window->mnuEndRun->isEnabled());
    QTRY_VERIFY(projector.isNull() || !projector->isVisible());
    const QString stored =
        db->Scalar(
              QStringLiteral("SELECT ServiceDateLastDelivered FROM Services WHERE ServiceID = ?"),
              {service})
            .toString();
    QVERIFY2(stored.startsWith(QDate::currentDate().toString(Qt::ISODate)), qPrintable(stored));
    QVERIFY(db->Scalar(QStringLiteral(
                           "SELECT ServiceDateLastDelivered FROM Services WHERE ServiceID = ?"),
                       {empty})
                .isNull());
}

void tst_MainWindow::runButtonOfTheServicesPageRunsTheService() {
    window->pgServices()->SelectService(service);
    window->pgServices()->cmdRunService->click();
    QVERIFY(window->IsRunning());
    QCOMPARE(window->Session()->Engine().ServiceID(), service);
}

void tst_MainWindow::serviceWithNothingToShowIsRefusedWithAMessage() {
    platform->QueueAnswer(vbOK);
    QVERIFY(!window->RunService(empty));
    QVERIFY(!window->IsRunning());
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(
        platform->LastBox().Prompt,
        QStringLiteral("The run could not start: This service has nothing to show at run time."));
    QCOMPARE(platform->LastBox().Buttons, vbExclamation);
}

void tst_MainWindow::runOfOneServiceItemFromTheGallery() {
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    emit window->pgServiceItems()->ctlServiceItemGallery1->ToolBarButtonClicked(
        QStringLiteral("btnRun"), song);
    QVERIFY(window->IsRunning());
    RunSession* session = window->Session();
    QVERIFY(!session->Engine().IsServiceRun());
    QCOMPARE(session->Console()->lblMainCaption->text(),
             QStringLiteral("Running Service item: Be Thou My Vision"));
    platform->QueueAnswer(vbYes);
    session->Console()->cmdEnd->click();
    QTRY_VERIFY(!window->IsRunning());
    QCOMPARE(window->CurrentPage()->Name(), QStringLiteral("ServiceItems"));
}

void tst_MainWindow::aboutBoxNamesCorvantis() {
    platform->QueueAnswer(vbOK);
    window->findChild<QAction*>(QStringLiteral("mnuHelpAbout"))->trigger();
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Title, QStringLiteral("About Corvantis"));
    QVERIFY(platform->LastBox().Prompt.startsWith(QStringLiteral("Corvantis ")));
    QVERIFY(platform->LastBox().Prompt.contains(db->Path()));
    QCOMPARE(platform->LastBox().Buttons, vbInformation);
}

void tst_MainWindow::closingDuringARunAsksTheConsoleFirst() {
    QVERIFY(window->RunService(service));
    platform->QueueAnswer(vbNo);
    QVERIFY(!window->close());
    QVERIFY(window->IsRunning());
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Do you want to stop running this item?"));
    platform->QueueAnswer(vbYes);
    QVERIFY(window->close());
    QTRY_VERIFY(!window->IsRunning());
}

void tst_MainWindow::operatorKeysReachTheRunWhereverTheFocusIsInTheConsole() {
    QVERIFY(window->RunService(service));
    RunSession* session = window->Session();
    ctlRun* console = session->Console();
    console->tvwRun->setFocus();
    QTest::keyClick(console->tvwRun, Qt::Key_Right);
    QCOMPARE(session->Engine().CurrentPart(), 1);
    QTest::keyClick(console->tvwRun, Qt::Key_Left);
    QCOMPARE(session->Engine().CurrentPart(), 0);
    // A list made inside the console after the run began takes no arrows either.
    auto* later = new QTreeWidget(console);
    later->addTopLevelItems({new QTreeWidgetItem({"a"}), new QTreeWidgetItem({"b"})});
    later->show();
    later->setFocus();
    QTest::keyClick(later, Qt::Key_Right);
    QCOMPARE(session->Engine().CurrentPart(), 1);
    QTest::keyClick(later, Qt::Key_PageUp);
    QCOMPARE(session->Engine().CurrentPart(), 0);
}

void tst_MainWindow::typingInTheConsolesFilterBoxStaysTyping() {
    QVERIFY(window->RunService(service));
    RunSession* session = window->Session();
    auto* filter = new QLineEdit(session->Console());
    filter->show();
    filter->setFocus();
    QTest::keyClicks(filter, QStringLiteral("b c"));
    QTest::keyClick(filter, Qt::Key_Left);
    QCOMPARE(filter->text(), QStringLiteral("b c"));
    QVERIFY(!session->Engine().IsBlackedOut());
    QCOMPARE(session->Engine().CurrentPart(), 0);
}

void tst_MainWindow::escBlacksOutFirstAndTheRunEndsOnlyOnYes() {
    QVERIFY(window->RunService(service));
    ctlRun* console = window->Session()->Console();
    QTest::keyClick(console->cmdForward, Qt::Key_Escape);
    QVERIFY(window->IsRunning());
    QVERIFY(window->Session()->Engine().IsBlackedOut());
    QCOMPARE(platform->BoxCount(), 0);
    platform->QueueAnswer(vbNo);
    QTest::keyClick(console->cmdForward, Qt::Key_Escape);
    QVERIFY(window->IsRunning());
    QCOMPARE(platform->LastBox().Prompt, QStringLiteral("Do you want to stop running this item?"));
    platform->QueueAnswer(vbNo);
    console->cmdEnd->click();
    QVERIFY(window->IsRunning());
    QCOMPARE(platform->BoxCount(), 2);
    platform->QueueAnswer(vbYes);
    console->cmdEnd->click();
    QTRY_VERIFY(!window->IsRunning());
    QCOMPARE(platform->BoxCount(), 3);
}

void tst_MainWindow::helpMenuOpensEachPageOfTheGuide() {
    const QList<QPair<QString, QString>> entries = {
        // F1's entry opens the page of what the user is doing: planning here.
        {QStringLiteral("mnuHelpContents"), QStringLiteral("planning.html")},
        {QStringLiteral("mnuHelpPlanning"), QStringLiteral("planning.html")},
        {QStringLiteral("mnuHelpRunning"), QStringLiteral("running.html")},
        {QStringLiteral("mnuHelpKeys"), QStringLiteral("keys.html")}};
    QCOMPARE(window->findChild<QAction*>(QStringLiteral("mnuHelpContents"))->shortcut(),
             QKeySequence(Qt::Key_F1));
    for (const auto& entry : entries) {
        window->findChild<QAction*>(entry.first)->trigger();
        QVERIFY(window->Help());
        QVERIFY(window->Help()->isVisible());
        QCOMPARE(window->Help()->windowTitle(), QStringLiteral("Corvantis Help"));
        QCOMPARE(window->Help()->CurrentPage(), entry.second);
        QVERIFY2(window->Help()->txtHelp->toPlainText().size() > 200, qPrintable(entry.second));
    }
    QVERIFY(window->Help()->txtHelp->toPlainText().contains(QStringLiteral("Page Down")));
    // Every page links back to the contents, and the contents to every page.
    window->Help()->ShowPage(HelpWindow::ContentsPage());
    const QString contents = window->Help()->txtHelp->toHtml();
    for (const QString& page : HelpWindow::Pages().mid(1))
        QVERIFY2(contents.contains(page), qPrintable(page));
}

void tst_MainWindow::f1SentByAControlOpensTheGuide() {
    VBTreeWidget* tree = window->pgServices()->ctlServiceGallery1->tvwServices;
    tree->setFocus();
    // What a control's SendKeys("{F1}") does: an F1 key stroke to the focus.
    QCoreApplication::postEvent(tree, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
    QTRY_VERIFY(window->Help() && window->Help()->isVisible());
    QCOMPARE(window->Help()->CurrentPage(), QStringLiteral("planning.html"));
}

void tst_MainWindow::questionMarkOfTheConsoleOpensTheGuideAtRunning() {
    QVERIFY(window->RunService(service));
    window->Session()->Console()->cmdShowProperties->setValue(true);
    QVERIFY(window->Help() && window->Help()->isVisible());
    QCOMPARE(window->Help()->CurrentPage(), QStringLiteral("running.html"));
    QVERIFY(window->IsRunning());
}

void tst_MainWindow::propertiesButtonOfTheGalleryShowsTheSelectedItem() {
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    auto* gallery = window->pgServiceItems()->ctlServiceItemGallery1;
    emit gallery->SIClicked(QString::number(prayer), QStringLiteral("Collect for Purity"),
                            QString(), QString(), QStringLiteral("SI"));
    QVERIFY(window->pgServiceItems()->ServiceItemEditor());
    QVERIFY(
        window->pgServiceItems()->Editor()->Replace(new QLabel(QStringLiteral("something else"))));
    QVERIFY(!window->pgServiceItems()->ServiceItemEditor());
    QAction* properties = gallery->findChild<QAction*>(QStringLiteral("btnProperties"));
    QVERIFY(properties);
    properties->setEnabled(true);
    properties->trigger();
    auto* editor = window->pgServiceItems()->ServiceItemEditor();
    QVERIFY(editor);
    QCOMPARE(editor->txtDescription->text(), QStringLiteral("Collect for Purity"));
}

void tst_MainWindow::oneScreenSaysSoAndTheProjectorWindowKeepsItsPlace() {
    QCOMPARE(QGuiApplication::screens().size(), 1);
    Settings::DeletePrivateProfileKey(QStringLiteral("Window"), ProjectorWindow::PlaceKey());
    QVERIFY(window->RunService(service));
    QVERIFY(window->statusBar()->currentMessage().startsWith(
        QStringLiteral("No second screen was found")));
    ProjectorWindow* projector = window->Session()->Projector();
    // Out of the console's way: the bottom right corner of the screen.
    const QRect corner = ProjectorPlacement::OutOfTheWay(window->screen()->availableGeometry());
    QTRY_COMPARE(projector->geometry(), corner);
    QVERIFY(corner.width() < window->screen()->availableGeometry().width() / 2);
    const QRect moved(20, 30, 400, 300);
    projector->setGeometry(moved);
    QTRY_COMPARE(projector->geometry(), moved);
    platform->QueueAnswer(vbYes);
    window->Session()->Console()->cmdEnd->click();
    QTRY_VERIFY(!window->IsRunning());
    QVERIFY(window->statusBar()->currentMessage().isEmpty());
    QVERIFY(window->RunService(service));
    QTRY_COMPARE(window->Session()->Projector()->geometry(), moved);
}

void tst_MainWindow::pagesWriteWordsAndFourDigitYearsNotFieldNames() {
    QCOMPARE(HostText::Date(QDate(2026, 11, 23)).count(QStringLiteral("2026")), 1);
    QVERIFY(!HostText::Date(QDate(2026, 11, 23)).contains(QStringLiteral("202626")));
    QVERIFY(db->Exec(QStringLiteral("UPDATE Services SET ServiceDateLastDelivered = "
                                    "'2025-03-09 00:00:00' WHERE ServiceID = ?"),
                     {service}));
    window->pgServices()->SelectService(service);
    ctlService* editor = window->pgServices()->ServiceEditor();
    QVERIFY(editor);
    QVERIFY(editor->lblDateLastDelivered->text().contains(QStringLiteral("2025")));
    QVERIFY(!editor->lblDateLastDelivered->text().contains(QStringLiteral("202525")));
    // The Options page holds the options control itself, with its own words.
    QVERIFY(window->ShowPage(QStringLiteral("Options")));
    QVERIFY(!window->pgOptions()->findChild<EventPanel*>());
    auto* options = window->pgOptions()->findChild<ctlOptions*>();
    QVERIFY(options);
    QCOMPARE(options->Description(), QStringLiteral("OptionsControl"));
}

void tst_MainWindow::templatesPageShowsTheGalleryBesideTheEditor() {
    const qint32 sheet = db->AddTemplate(QStringLiteral("Order of Service"), true);
    QVERIFY(sheet > 0);
    QVERIFY(window->ShowPage(QStringLiteral("Templates")));
    ctlTemplateGallery* gallery = window->pgTemplates()->galTemplates;
    QStringList headers;
    QTreeWidgetItem* header = gallery->lvwTemplates->headerItem();
    for (int i = 0; i < header->columnCount(); ++i)
        headers << header->text(i);
    QCOMPARE(headers, QStringList({"Type", "Description", "Occasion", "Source", "Created By",
                                   "Created On"}));
    gallery->ShowTemplates();
    const QString key = QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(sheet);
    QVERIFY(gallery->tvwTemplates->KeyExists(key));
    emit gallery->tvwTemplates->itemClicked(gallery->tvwTemplates->Nodes(key).Item(), 0);
    QVERIFY(window->pgTemplates()->Template());
    QCOMPARE(window->pgTemplates()->Template()->lblMainCaption->text(),
             QStringLiteral("Order of Service"));
}

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
