// The Services page in the main window: the service gallery beside the service
// editor, a new editor for each service chosen, the question asked before
// another service, another page, a run or the end of the program, the run of
// what was just saved, and a newcomer planning next Sunday from the sample.
#include "DataAccess.h"
#include "EditorSlot.h"
#include "MainWindow.h"
#include "RunSession.h"
#include "SampleDatabase.h"
#include "ScriptedPlatform.h"
#include "ServicesPage.h"
#include "TestDatabase.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceGallery.h"
#include "galleries/ctlServiceItemGallery.h"
#include "services/ctlService.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_ServicesPage : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aServiceChosenInTheGalleryOpensInTheEditorBesideIt();
    void theCaptionFollowsTheEditorsRulesNotTheGallerysWords();
    void eachServiceChosenGetsAnEditorOfItsOwn();
    void anotherServiceAsksFirstAndYesStoresTheChanges();
    void answeringNoDropsTheChangesAndIsAskedOnce();
    void aSaveThatFailsKeepsTheEditorWithItsPlanning();
    void leavingThePageAsksFirst();
    void closingTheWindowAsksFirst();
    void closingStaysOpenWhenTheSaveFails();
    void runThisServiceRunsWhatWasJustSaved();
    void runAsksToSaveFirstAndRunsTheSavedRows();
    void newServiceOpensTheEditorOnTheNewService();
    void aSaveShowsInTheGalleryAtOnce();
    void aNewcomerPlansNextSundayFromTheSampleItems();

private:
    StartUp Start() const {
        StartUp start;
        start.databasePath = DataAccess::Instance().DatabasePath();
        return start;
    }
    void OpenWindow() {
        window = std::make_unique<MainWindow>(Start());
        window->resize(1400, 900);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    ServicesPage* Page() const { return window->pgServices(); }
    ctlService* Editor() const { return window->pgServices()->ServiceEditor(); }
    // Makes every write to Services fail, as a full or locked disk would.
    bool BreakServiceWrites() {
        return db->Exec("CREATE TRIGGER refuse BEFORE UPDATE ON Services "
                        "BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END");
    }
    QString StoredName(qint32 id) const {
        return db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {id}).toString();
    }
    // The user's click on a tab of the editor.
    static void ClickTab(ctlService* editor, int index) {
        QTabBar* bar = editor->SSTab1->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(index).center());
        QCOMPARE(editor->SSTab1->currentIndex(), index);
    }
    static QStringList GalleryTexts(ctlServiceGallery* gallery) {
        QStringList texts;
        for (qint32 i = 1; i <= gallery->tvwServices->Count(); ++i)
            if (gallery->tvwServices->Nodes(i).Key().contains(QStringLiteral(";;Service;")))
                texts << gallery->tvwServices->Nodes(i).Text();
        return texts;
    }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<MainWindow> window;
    qint32 song = 0, prayer = 0, morning = 0, evening = 0;
};

void tst_ServicesPage::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    platform = std::make_unique<ScriptedPlatform>();
    song = db->AddSong(QStringLiteral("Be Thou My Vision"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")}});
    prayer = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"),
                                QStringLiteral("Almighty God"));
    morning = db->AddService(QStringLiteral("Morning Worship"), {{song}, {prayer}});
    evening = db->AddService(QStringLiteral("Evensong"), {{prayer}});
    OpenWindow();
}

void tst_ServicesPage::cleanup() {
    window.reset();
    platform.reset();
    db.reset();
}

void tst_ServicesPage::aServiceChosenInTheGalleryOpensInTheEditorBesideIt() {
    // The page opens on the newest service.
    QVERIFY(Editor());
    QCOMPARE(Editor()->ServiceID(), evening);
    Page()->ctlServiceGallery1->SelectService(morning);
    QVERIFY(Editor());
    QCOMPARE(Editor()->Items(), QString::number(morning));
    QCOMPARE(Editor()->lblMainCaption->text(), QStringLiteral("Morning Worship"));
    QCOMPARE(Editor()->txtServiceName->text(), QStringLiteral("Morning Worship"));
    QVERIFY(Page()->cmdRunService->isEnabled());
    QCOMPARE(Page()->SelectedServiceID(), morning);
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ServicesPage::theCaptionFollowsTheEditorsRulesNotTheGallerysWords() {
    QVERIFY(db->Exec("UPDATE Services SET ServiceName = NULL, ServiceTheme = 'Advent', "
                     "ServiceDateCreated = '2026-11-29 10:00:00' WHERE ServiceID = ?",
                     {morning}));
    Page()->Reload();
    // The gallery calls it "Advent Service"; the editor builds its own caption.
    QVERIFY(GalleryTexts(Page()->ctlServiceGallery1).contains(QStringLiteral("Advent Service")));
    Page()->ctlServiceGallery1->SelectService(morning);
    QVERIFY(Editor());
    QVERIFY2(Editor()->lblMainCaption->text().startsWith(QStringLiteral("Advent ,")),
             qPrintable(Editor()->lblMainCaption->text()));
}

void tst_ServicesPage::eachServiceChosenGetsAnEditorOfItsOwn() {
    Page()->ctlServiceGallery1->SelectService(morning);
    QPointer<ctlService> first = Editor();
    first->SSTab1->setCurrentIndex(1);
    Page()->ctlServiceGallery1->SelectService(evening);
    QVERIFY(Editor() != first.data());
    QCOMPARE(Editor()->ServiceID(), evening);
    QTRY_VERIFY(first.isNull());
    // Back to the first: a new editor again, its grid filled afresh.
    Page()->ctlServiceGallery1->SelectService(morning);
    Editor()->SSTab1->setCurrentIndex(1);
    QCOMPARE(Editor()->fgItemsInService->item(2, ctlService::colSIID)->text(),
             QString::number(prayer));
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ServicesPage::anotherServiceAsksFirstAndYesStoresTheChanges() {
    Page()->ctlServiceGallery1->SelectService(morning);
    Editor()->txtServiceName->setText(QStringLiteral("Morning Praise"));
    platform->QueueAnswer(vbYes);
    Page()->ctlServiceGallery1->SelectService(evening);
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Save Changes?"));
    QCOMPARE(StoredName(morning), QStringLiteral("Morning Praise"));
    QCOMPARE(Editor()->ServiceID(), evening);
}

void tst_ServicesPage::answeringNoDropsTheChangesAndIsAskedOnce() {
    Page()->ctlServiceGallery1->SelectService(morning);
    Editor()->txtServiceName->setFocus();
    Editor()->txtServiceName->setText(QStringLiteral("Not this"));
    platform->QueueAnswer(vbNo);
    // The click goes to the gallery: the focus leaves the editor first.
    Page()->ctlServiceGallery1->tvwServices->setFocus();
    QCOMPARE(platform->BoxCount(), 1);
    Page()->ctlServiceGallery1->SelectService(evening);
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(Editor()->ServiceID(), evening);
    QCOMPARE(StoredName(morning), QStringLiteral("Morning Worship"));
}

void tst_ServicesPage::aSaveThatFailsKeepsTheEditorWithItsPlanning() {
    Page()->ctlServiceGallery1->SelectService(morning);
    QPointer<ctlService> editor = Editor();
    editor->txtServiceName->setText(QStringLiteral("Morning Praise"));
    QVERIFY(BreakServiceWrites());
    platform->QueueAnswer(vbYes);
    platform->QueueAnswer(vbOK); // the save's failure
    Page()->ctlServiceGallery1->SelectService(evening);
    QCOMPARE(platform->BoxCount(), 2);
    QVERIFY2(platform->LastBox().Prompt.contains(QStringLiteral("disk I/O error")),
             qPrintable(platform->LastBox().Prompt));
    QCOMPARE(Editor(), editor.data());
    QCOMPARE(editor->txtServiceName->text(), QStringLiteral("Morning Praise"));
    QVERIFY(editor->cmdApplyChanges->isEnabled());
    QCOMPARE(Page()->SelectedServiceID(), morning);
    QVERIFY(Page()->ctlServiceGallery1->SelectedItemKey().endsWith(
        QStringLiteral(";;Service;%1").arg(morning)));
}

void tst_ServicesPage::leavingThePageAsksFirst() {
    Editor()->txtServiceName->setText(QStringLiteral("Evening Praise"));
    QVERIFY(BreakServiceWrites());
    platform->QueueAnswer(vbYes);
    platform->QueueAnswer(vbOK);
    QVERIFY(!window->ShowPage(QStringLiteral("Templates")));
    QCOMPARE(window->CurrentPage(), Page());
    QVERIFY(db->Exec("DROP TRIGGER refuse"));
    platform->QueueAnswer(vbYes);
    QVERIFY(window->ShowPage(QStringLiteral("Templates")));
    QCOMPARE(StoredName(evening), QStringLiteral("Evening Praise"));
}

void tst_ServicesPage::closingTheWindowAsksFirst() {
    Editor()->SSTab1->setCurrentIndex(1);
    Editor()->cmdAddBlank->click();
    platform->QueueAnswer(vbYes);
    QVERIFY(window->close());
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt,
             QStringLiteral(
                 "The contents of this service has changed, do you want to save the changes"));
    QCOMPARE(db->Count("ServiceContents", "ServiceID = ?", {evening}), 2);
}

void tst_ServicesPage::closingStaysOpenWhenTheSaveFails() {
    Editor()->txtServiceName->setText(QStringLiteral("Evening Praise"));
    QVERIFY(BreakServiceWrites());
    platform->QueueAnswer(vbYes);
    platform->QueueAnswer(vbOK);
    QVERIFY(!window->close());
    QVERIFY(window->isVisible());
    QCOMPARE(Editor()->txtServiceName->text(), QStringLiteral("Evening Praise"));
}

void tst_ServicesPage::runThisServiceRunsWhatWasJustSaved() {
    Page()->ctlServiceGallery1->SelectService(morning);
    ctlService* editor = Editor();
    editor->SSTab1->setCurrentIndex(1);
    // A Blank below the prayer, saved a moment before the run.
    editor->fgItemsInService->setCurrentCell(2, ctlService::colType);
    editor->cmdAddBlank->click();
    editor->cmdApplyChanges->click();
    QCOMPARE(platform->BoxCount(), 0);
    Page()->cmdRunService->click();
    QVERIFY(window->IsRunning());
    RunEngine& engine = window->Session()->Engine();
    QCOMPARE(engine.ServiceID(), morning);
    QCOMPARE(engine.ItemCount(), 3);
    QCOMPARE(engine.ItemServiceItemID(0), song);
    QCOMPARE(engine.ItemServiceItemID(1), prayer);
    QCOMPARE(engine.ItemServiceItemID(2), 1);
    window->EndRun();
}

void tst_ServicesPage::runAsksToSaveFirstAndRunsTheSavedRows() {
    ctlService* editor = Editor();
    editor->SSTab1->setCurrentIndex(1);
    editor->cmdAddBlank->click();
    platform->QueueAnswer(vbYes);
    Page()->cmdRunService->click();
    QCOMPARE(platform->BoxCount(), 1);
    QVERIFY(window->IsRunning());
    RunEngine& engine = window->Session()->Engine();
    QCOMPARE(engine.ServiceID(), evening);
    QCOMPARE(engine.ItemCount(), 2);
    QCOMPARE(engine.ItemServiceItemID(1), 1);
    window->EndRun();
}

void tst_ServicesPage::newServiceOpensTheEditorOnTheNewService() {
    QSignalSpy added(Page()->ctlServiceGallery1, &ctlServiceGallery::NewServiceAdded);
    Page()->cmdNewService->click();
    QCOMPARE(added.count(), 1);
    const qint32 created = added.at(0).at(0).toInt();
    QVERIFY(created != morning && created != evening);
    QVERIFY(Editor());
    QCOMPARE(Editor()->ServiceID(), created);
    QCOMPARE(Editor()->SSTab1->currentIndex(), 0);
    QVERIFY(Editor()->txtServiceName->text().isEmpty());
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ServicesPage::aSaveShowsInTheGalleryAtOnce() {
    Editor()->txtServiceName->setText(QStringLiteral("Compline"));
    Editor()->cmdApplyChanges->click();
    QTRY_VERIFY(GalleryTexts(Page()->ctlServiceGallery1).contains(QStringLiteral("Compline")));
    QVERIFY(!GalleryTexts(Page()->ctlServiceGallery1).contains(QStringLiteral("Evensong")));
    QCOMPARE(Editor()->ServiceID(), evening);
    QVERIFY(Page()->ctlServiceGallery1->SelectedItemKey().endsWith(
        QStringLiteral(";;Service;%1").arg(evening)));
}

// Name, type, five items in order, a Blank, a prop; save; run.
void tst_ServicesPage::aNewcomerPlansNextSundayFromTheSampleItems() {
    window.reset();
    QTemporaryDir dir;
    QString error;
    QVERIFY2(SampleDatabase::Build(dir.path() + "/Sample/Corvantis.pdb", error), qPrintable(error));
    QList<qint32> items;
    QSqlQuery q = DataAccess::Instance().Database().exec(
        "SELECT ServiceItemID FROM ServiceItems WHERE ServiceItemID > 1 AND ServiceItemTypeID "
        "NOT IN (0, 4, 5, 10, 11, 12, 16) ORDER BY ServiceItemID LIMIT 6");
    while (q.next())
        items << q.value(0).toInt();
    QCOMPARE(items.size(), 6);
    const qint32 prop = items.takeLast();
    OpenWindow();

    Page()->cmdNewService->click();
    ctlService* editor = Editor();
    QVERIFY(editor);
    const qint32 planned = editor->ServiceID();
    editor->txtServiceName->setText(QStringLiteral("Sunday 29 November"));
    editor->cboTypes->setEditText(QStringLiteral("Morning Worship"));
    ClickTab(editor, 1);
    QTRY_VERIFY(editor->ItemGalleryLoaded());
    for (qint32 id : items) {
        editor->ctlServiceItemGallery1->SelectServiceItem(id);
        QVERIFY(editor->cmdMoveOneSIToService->isEnabled());
        editor->cmdMoveOneSIToService->click();
    }
    editor->cmdAddBlank->click();
    ClickTab(editor, 2);
    editor->ctlSIPropBag->SelectServiceItem(prop);
    editor->cmdMoveOneRight->click();
    editor->cmdApplyChanges->click();
    QCOMPARE(platform->BoxCount(), 0);

    Page()->cmdRunService->click();
    QVERIFY(window->IsRunning());
    RunEngine& engine = window->Session()->Engine();
    QCOMPARE(engine.ServiceID(), planned);
    QList<qint32> run;
    for (int i = 0; i < engine.ItemCount(); ++i)
        run << engine.ItemServiceItemID(i);
    QCOMPARE(run, items + QList<qint32>{1});
    QSqlQuery props = DataAccess::Instance().Database().exec(
        QStringLiteral("SELECT PropServiceItemID FROM ServicePropBag WHERE ServiceID = %1")
            .arg(planned));
    QVERIFY(props.next());
    QCOMPARE(props.value(0).toInt(), prop);
    window->EndRun();
    window.reset();
    DataAccess::Instance().CloseDatabase();
}

QTEST_MAIN(tst_ServicesPage)
#include "tst_ServicesPage.moc"
