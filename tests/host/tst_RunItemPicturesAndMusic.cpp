// What a run does with an item's run details: its own background pictures in
// place of the usual one (none when they are hidden), their display time, and
// the music that starts with the item, a file or a music item, as the
// editor's Run Mode Details tab stores them.
#include "DataAccess.h"
#include "ProjectorWindow.h"
#include "RunController.h"
#include "RunEngine.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/SSTab.h"
#include "run/ctlRun.h"
#include "serviceitem/ctlServiceItem.h"

#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

#include <memory>

// A service run from the operator's console, as the main window starts one.
struct ConsoleRun {
    ctlRun console;
    RunEngine engine;
    RunController controller{engine, &console};

    bool Start(qint32 lngServiceID) {
        console.resize(900, 700);
        console.show();
        QString err;
        if (!engine.LoadService(lngServiceID, err))
            return false;
        console.setRunningService(lngServiceID);
        controller.RunStarted();
        return true;
    }
};

class tst_RunItemPicturesAndMusic : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    QTemporaryDir files;

    QString picture(const QString& strName, Qt::GlobalColor color) {
        QImage image(32, 24, QImage::Format_RGB32);
        image.fill(color);
        const QString strPath = files.filePath(strName);
        return image.save(strPath) ? strPath : QString();
    }
    QString sound(const QString& strName) {
        const QString strPath = files.filePath(strName);
        QFile file(strPath);
        return file.open(QIODevice::WriteOnly) && file.write("RIFF") == 4 ? strPath : QString();
    }
    qint32 pictureItem(const QString& strPath) {
        qint32 id = 0;
        DataAccess::Instance().AddImageServiceItem(strPath, id);
        return id;
    }
    void attach(qint32 item, const QList<qint32>& pictures) {
        QString err;
        for (qint32 id : pictures)
            DataAccess::Instance().AddServiceItemImage(item, id, err);
    }
    // The look of a run with a usual background picture.
    RunLook lookWith(const QString& strBackground) {
        RunLook look;
        look.backgroundPicture = strBackground;
        return look;
    }
    // The strongest of red, green and blue in the picture's corner (the
    // background shows there, dimmed under the words).
    static char corner(const QImage& image) {
        const QColor colour = image.pixelColor(1, 1);
        if (colour.red() > colour.green() && colour.red() > colour.blue())
            return 'r';
        return colour.green() > colour.blue() ? 'g' : 'b';
    }
    // Opens an item's Run Mode Details tab on an editor.
    static void openRunDetails(ctlServiceItem& ctl, qint32 item) {
        ctl.setItems(QString::number(item));
        ctl.ShowProperties();
        ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        QVERIFY2(db->IsValid(), qPrintable(db->LastError()));
        platform = std::make_unique<ScriptedPlatform>();
    }
    void cleanup() {
        platform.reset();
        db.reset();
    }

    // ---- Pictures ----------------------------------------------------------------------
    void picturesChosenInTheEditorAreTheItemsBackgroundsAtRunTime() {
        const QString strRed = picture("red.png", Qt::red);
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm 23",
                                                  "The Lord is my shepherd\nI shall not want");
        {
            ctlServiceItem ctl;
            openRunDetails(ctl, reading);
            platform->QueueOpenFile(strRed);
            ctl.optShowImagesWhileRunning->click();
            ctl.txtChangeImageEveryXSeconds->setText("12");
            ctl.cmdSave->click();
            QCOMPARE(platform->BoxCount(), 0);
        }
        RunEngine engine;
        engine.SetLook(lookWith(picture("green.png", Qt::green)));
        QString err;
        QVERIFY2(engine.LoadItem(reading, err), qPrintable(err));
        QCOMPARE(engine.CurrentSlide().backgrounds, QStringList({strRed}));
        QCOMPARE(engine.CurrentSlide().changeBackgroundEverySeconds, 12);
        ProjectorWindow projector(engine);
        projector.resize(320, 240);
        QCOMPARE(corner(projector.Picture()), 'r');
    }

    void picturesHiddenInTheEditorLeaveTheUsualBackground() {
        const QString strGreen = picture("green.png", Qt::green);
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm 23", "Shepherd");
        attach(reading, {pictureItem(picture("red.png", Qt::red))});
        {
            ctlServiceItem ctl;
            openRunDetails(ctl, reading);
            ctl.optHideImagesWhileRunning->click();
            ctl.cmdSave->click();
        }
        RunEngine engine;
        engine.SetLook(lookWith(strGreen));
        QString err;
        QVERIFY(engine.LoadItem(reading, err));
        QCOMPARE(engine.CurrentSlide().backgrounds, QStringList({strGreen}));
        ProjectorWindow projector(engine);
        projector.resize(320, 240);
        QCOMPARE(corner(projector.Picture()), 'g');
    }

    void picturesWithADisplayTimeAreHiddenWhenItIsOverAndShowAgainNextTime() {
        const QString strGreen = picture("green.png", Qt::green);
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm 23", "Shepherd");
        const qint32 notices = db->AddServiceItem(TestDatabase::Announcement, "Notices", "Tea");
        attach(reading, {pictureItem(picture("red.png", Qt::red))});
        QVERIFY(db->Exec("UPDATE ServiceItems SET SecondsToRun = 5 WHERE ServiceItemID = ?",
                         {reading}));
        const qint32 service = db->AddService("Evening", {{reading}, {notices}});
        RunEngine engine;
        engine.SetLook(lookWith(strGreen));
        ProjectorWindow projector(engine);
        projector.resize(320, 240);
        RunController controller(engine, nullptr);
        QString err;
        QVERIFY(engine.LoadService(service, err));
        controller.RunStarted();
        QVERIFY(controller.tmrPictures->isActive());
        QCOMPARE(controller.tmrPictures->interval(), 5000);
        QCOMPARE(corner(projector.Picture()), 'r');
        controller.tmrPictures_Timer();
        QVERIFY(engine.ItemPicturesHidden(0));
        QCOMPARE(engine.CurrentSlide().backgrounds, QStringList({strGreen}));
        QCOMPARE(corner(projector.Picture()), 'g');
        // The next item has no display time; back on the reading, its time runs again.
        controller.OperatorAction(OperatorKeys::Action::Forward);
        QCOMPARE(engine.CurrentItem(), 1);
        QVERIFY(!controller.tmrPictures->isActive());
        controller.OperatorAction(OperatorKeys::Action::Back);
        QCOMPARE(engine.CurrentItem(), 0);
        QVERIFY(!engine.ItemPicturesHidden(0));
        QVERIFY(controller.tmrPictures->isActive());
        QCOMPARE(corner(projector.Picture()), 'r');
    }

    void picturesWithoutADisplayTimeShowAllTheWhile() {
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm 23", "Shepherd");
        attach(reading, {pictureItem(picture("red.png", Qt::red))});
        RunEngine engine;
        RunController controller(engine, nullptr);
        QString err;
        QVERIFY(engine.LoadItem(reading, err));
        controller.RunStarted();
        QCOMPARE(engine.ItemPictureSeconds(0), 0);
        QVERIFY(!controller.tmrPictures->isActive());
    }

    // ---- Music -------------------------------------------------------------------------
    void aMusicItemChosenInTheEditorPlaysItsFileWithItsPromptWhenTheItemComesUp() {
        const QString strWav = sound("prelude.wav");
        const qint32 music = db->AddServiceItem(TestDatabase::Music, "Prelude in C");
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemFilename = ?, StartMusicPrompt = ? "
                         "WHERE ServiceItemID = ?",
                         {strWav, "Put in the second CD", music}));
        QVERIFY(db->Exec("UPDATE Options SET AutoPlayMusic = 1"));
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Prayer", "Amen");
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm", "Shepherd");
        {
            ctlServiceItem ctl;
            openRunDetails(ctl, reading);
            platform->QueueServiceItemChoice(music);
            ctl.cmdSelectMusicSI->click();
            ctl.cmdSave->click();
        }
        const qint32 service = db->AddService("Evening", {{prayer}, {reading}});
        ConsoleRun run;
        QVERIFY(run.Start(service));
        RunEngine& engine = run.engine;
        RunController& controller = run.controller;
        QVERIFY(!platform->SoundCalls().contains("Load " + strWav));
        platform->QueueAnswer(vbOK);
        controller.OperatorAction(OperatorKeys::Action::Forward);
        QCOMPARE(engine.CurrentItem(), 1);
        QCOMPARE(platform->LastBox().Prompt, QString("Put in the second CD"));
        QCOMPARE(platform->LastBox().Title, QString("Prompt"));
        QVERIFY2(platform->SoundCalls().contains("Load " + strWav),
                 qPrintable(platform->SoundCalls().join(", ")));
        QCOMPARE(platform->SoundCalls().last(), QString("Play"));
    }

    void aMusicFileChosenInTheEditorIsLoadedSilentWithoutAutoPlay() {
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm", "Shepherd");
        {
            QDir().mkpath(files.filePath("Chœur"));
            QFile file(files.filePath("Chœur/offertory.mp3"));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("ID3") == 3);
        }
        {
            ctlServiceItem ctl;
            openRunDetails(ctl, reading);
            platform->QueueOpenFile(files.filePath("Chœur/offertory.mp3"));
            ctl.cmdBrowseMusicFile->click();
            ctl.cmdSave->click();
            QCOMPARE(platform->BoxCount(), 0);
        }
        const qint32 service = db->AddService("Evening", {{reading}});
        ConsoleRun run;
        QVERIFY(run.Start(service));
        QVERIFY2(platform->SoundCalls().contains("Load " + files.filePath("Chœur/offertory.mp3")),
                 qPrintable(platform->SoundCalls().join(", ")));
        QVERIFY(!platform->SoundCalls().contains("Play"));
    }

    void aMusicFileThatWasMovedIsToldAndItsLinkCleared() {
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Prayer", "Amen");
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm", "Shepherd");
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                         {files.filePath("moved away.wav"), reading}));
        const qint32 service = db->AddService("Evening", {{prayer}, {reading}});
        ConsoleRun run;
        QVERIFY(run.Start(service));
        RunEngine& engine = run.engine;
        RunController& controller = run.controller;
        platform->QueueAnswer(vbOK);
        controller.OperatorAction(OperatorKeys::Action::Forward);
        QCOMPARE(platform->LastBox().Title, QString("File not found"));
        QVERIFY(db->Scalar("SELECT ServiceItemMusic FROM ServiceItems WHERE ServiceItemID = ?",
                           {reading})
                    .toString()
                    .isEmpty());
        QCOMPARE(engine.CurrentItem(), 1);
    }
};

QTEST_MAIN(tst_RunItemPicturesAndMusic)
#include "tst_RunItemPicturesAndMusic.moc"
