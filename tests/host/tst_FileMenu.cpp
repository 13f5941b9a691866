// The main window's File menu (import, export, print) and one service item run on its own
// through the data library, as the galleries' double click and menus ask for it.

#include "DataAccess.h"
#include "MainWindow.h"
#include "RunSession.h"
#include "ScriptedPlatform.h"
#include "ServiceItemsPage.h"
#include "ServicesPage.h"
#include "TestDatabase.h"

#include "galleries/ctlServiceGallery.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/ctlRun.h"
#include "serviceitems/ctlServiceItems.h"

#include "foundations/VBTreeWidget.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_FileMenu : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fileMenuOffersImportExportAndPrint();
    void entriesFollowWhatThePageInViewHasSelected();
    void importShowsWhatCameInAndSelectsTheNewestItem();
    void importOfAFileThatIsNotOursSaysWhy();
    void exportOfTheSelectedServiceWritesAnArchive();
    void printOfTheSelectedServiceShowsItsSheet();
    void printShortCutsShowsTheOperatorsSheet();
    void printWithNothingSelectedSaysWhatToChoose();
    void runServiceItemOfTheDataLibraryRunsTheItemOnItsOwn();
    void runServiceItemDuringARunSaysSo();
    void runServiceItemWithoutTheWindowSaysSo();
    void doubleClickInTheFlatListRunsTheItem();

private:
    QAction* Action(const char* name) const {
        return window->findChild<QAction*>(QLatin1String(name));
    }
    void OpenFileMenu() { emit window->mnuFile->aboutToShow(); }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<MainWindow> window;
    QTemporaryDir files;
    qint32 song = 0, service = 0;
};

void tst_FileMenu::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    platform = std::make_unique<ScriptedPlatform>();
    song = db->AddSong(QStringLiteral("Be Thou My Vision"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")}});
    service = db->AddService(QStringLiteral("Morning Worship"), {{song}});
    StartUp start;
    start.databasePath = db->Path();
    window = std::make_unique<MainWindow>(start);
    window->resize(1100, 700);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    window->pgServices()->SelectService(service);
}

void tst_FileMenu::cleanup() {
    window.reset();
    platform.reset();
    db.reset();
}

void tst_FileMenu::fileMenuOffersImportExportAndPrint() {
    QStringList names;
    for (QAction* action : window->mnuFile->actions())
        names << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
    QCOMPARE(names, QStringList({"mnuFileImport", "mnuFileExport", "-", "mnuFilePrint",
                                 "mnuFilePrintShortCuts", "-", "mnuFileExit"}));
    QCOMPARE(Action("mnuFileImport")->text(), QStringLiteral("&Import..."));
    QCOMPARE(Action("mnuFilePrint")->shortcut(), QKeySequence(QKeySequence::Print));
}

void tst_FileMenu::entriesFollowWhatThePageInViewHasSelected() {
    OpenFileMenu();
    QVERIFY(Action("mnuFileExport")->isEnabled());
    QVERIFY(Action("mnuFilePrintShortCuts")->isEnabled());
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    OpenFileMenu();
    QVERIFY(!Action("mnuFilePrintShortCuts")->isEnabled());
    QVERIFY(window->ShowPage(QStringLiteral("Templates")));
    OpenFileMenu();
    QVERIFY(!Action("mnuFileExport")->isEnabled());
    QVERIFY(!Action("mnuFilePrint")->isEnabled());
    QVERIFY(Action("mnuFileImport")->isEnabled());
}

void tst_FileMenu::importShowsWhatCameInAndSelectsTheNewestItem() {
    QFile file(files.filePath(QStringLiteral("abide.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Abide with Me\n\nAbide with me, fast falls the eventide\n");
    file.close();
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    platform->QueueOpenFile(file.fileName());
    platform->QueueAnswer(vbOK);
    Action("mnuFileImport")->trigger();
    QCOMPARE(platform->LastBox().Prompt,
             QStringLiteral("Imported from abide.txt: 1 service item."));
    const qint32 newest =
        db->Scalar(QStringLiteral("SELECT max(ServiceItemID) FROM ServiceItems")).toInt();
    QCOMPARE(window->pgServiceItems()->ctlServiceItemGallery1->SelectedItemText(),
             QStringLiteral("Abide with Me"));
    QCOMPARE(window->pgServiceItems()->SelectedServiceItemID(), newest);
}

void tst_FileMenu::importOfAFileThatIsNotOursSaysWhy() {
    QFile file(files.filePath(QStringLiteral("photo.jpg")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\xff\xd8\xff\xe0\0\x10JFIF\0", 12));
    file.close();
    platform->QueueOpenFile(file.fileName());
    platform->QueueAnswer(vbOK);
    Action("mnuFileImport")->trigger();
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Import"));
    QVERIFY(platform->LastBox().Prompt.contains(
        QStringLiteral("photo.jpg is not a file Corvantis can import")));
    QCOMPARE(platform->LastBox().Buttons, vbExclamation);
}

void tst_FileMenu::exportOfTheSelectedServiceWritesAnArchive() {
    const QString target = files.filePath(QStringLiteral("morning.cvx"));
    platform->QueueSaveFile(target);
    platform->QueueAnswer(vbOK);
    Action("mnuFileExport")->trigger();
    QCOMPARE(platform->Dialogs().last().FileName, QStringLiteral("Morning Worship.cvx"));
    QVERIFY(QFileInfo(target).size() > 0);
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Export"));
}

void tst_FileMenu::printOfTheSelectedServiceShowsItsSheet() {
    Action("mnuFilePrint")->trigger();
    QCOMPARE(platform->BoxCount(), 0);
    QCOMPARE(platform->Sheets().size(), 1);
    QCOMPARE(platform->Sheets().at(0).Title, QStringLiteral("Morning Worship"));
    QVERIFY(window->ShowPage(QStringLiteral("ServiceItems")));
    window->pgServiceItems()->ctlServiceItemGallery1->SelectServiceItem(song);
    Action("mnuFilePrint")->trigger();
    QCOMPARE(platform->Sheets().size(), 2);
    QCOMPARE(platform->Sheets().at(1).Title, QStringLiteral("Be Thou My Vision"));
}

void tst_FileMenu::printShortCutsShowsTheOperatorsSheet() {
    Action("mnuFilePrintShortCuts")->trigger();
    QCOMPARE(platform->Sheets().size(), 1);
    QCOMPARE(platform->Sheets().at(0).Title, QStringLiteral("Short-cuts: Morning Worship"));
}

void tst_FileMenu::printWithNothingSelectedSaysWhatToChoose() {
    QVERIFY(window->ShowPage(QStringLiteral("Templates")));
    platform->QueueAnswer(vbOK);
    Action("mnuFilePrint")->trigger();
    QVERIFY(platform->LastBox().Prompt.startsWith(QStringLiteral("Choose a service")));
    QCOMPARE(platform->Sheets().size(), 0);
}

void tst_FileMenu::runServiceItemOfTheDataLibraryRunsTheItemOnItsOwn() {
    QString error;
    DataAccess::Instance().RunServiceItem(song, error);
    QCOMPARE(error, QString());
    QVERIFY(window->IsRunning());
    QVERIFY(!window->Session()->Engine().IsServiceRun());
    QCOMPARE(window->Session()->Console()->lblMainCaption->text(),
             QStringLiteral("Running Service item: Be Thou My Vision"));
    platform->QueueAnswer(vbYes);
    window->Session()->Console()->cmdEnd->click();
    QTRY_VERIFY(!window->IsRunning());
}

void tst_FileMenu::runServiceItemDuringARunSaysSo() {
    QVERIFY(window->RunService(service));
    QString error;
    DataAccess::Instance().RunServiceItem(song, error);
    QVERIFY2(error.contains(QStringLiteral("end the run before running a single item")),
             qPrintable(error));
    QVERIFY(window->Session()->Engine().IsServiceRun());
    window->EndRun();
    QTRY_VERIFY(!window->IsRunning());
}

void tst_FileMenu::runServiceItemWithoutTheWindowSaysSo() {
    window.reset();
    QString error;
    DataAccess::Instance().RunServiceItem(song, error);
    QVERIFY2(error.contains(QStringLiteral("only be run from the Corvantis window")),
             qPrintable(error));
    DataAccess::Instance().RunServiceItem(999, error);
    QVERIFY2(error.contains(QStringLiteral("Service Item 999 does not exist")), qPrintable(error));
}

void tst_FileMenu::doubleClickInTheFlatListRunsTheItem() {
    ctlServiceItems list;
    list.setItems(QString::number(song));
    list.ShowProperties();
    list.lvwServiceItems->setCurrentItem(list.lvwServiceItems->topLevelItem(0));
    list.lvwServiceItems->topLevelItem(0)->setSelected(true);
    QSignalSpy dblClick(&list, &ctlServiceItems::DblClick);
    emit list.lvwServiceItems->itemDoubleClicked(list.lvwServiceItems->topLevelItem(0), 0);
    QVERIFY(window->IsRunning());
    QCOMPARE(dblClick.count(), 1);
    window->EndRun();
    QTRY_VERIFY(!window->IsRunning());
}

QTEST_MAIN(tst_FileMenu)
#include "tst_FileMenu.moc"
