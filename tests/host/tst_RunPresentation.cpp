// What a run takes from an item besides its words: a presentation runs slide
// by slide from the PDF of its slides, the item's background pictures change
// at its interval, a picture shows for its display time, and the item's music
// is loaded into the console's player when the item comes up.
#include "DataAccess.h"
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "ProjectorWindow.h"
#include "RunController.h"
#include "RunEngine.h"
#include "Screenshot.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "TraceFile.h"
#include "foundations/PdfSlides.h"
#include "run/ctlRun.h"

#include <QImage>
#include <QtTest>

#include <memory>

class tst_RunPresentation : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    QTemporaryDir files;
    int starts = 0;

    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(files, strName, bytes);
    }
    // A presentation item whose file is strFile.
    qint32 presentation(const QString& strDescription, const QString& strFile) {
        return db->AddFileItem(TestDatabase::PowerPoint, strDescription, strFile);
    }
    // A presentation whose slides (intSlides pages) were converted before.
    QString convertedTalk(const QString& strName, int intSlides) {
        const QString strTalk = write(strName, "PK " + strName.toUtf8());
        QString error;
        PresentationCache::Store(
            strTalk, write(strName + ".pdf", TestDocuments::SlidesPdf(intSlides)), error);
        return error.isEmpty() ? strTalk : QString();
    }
    static QString where(const RunEngine& engine) {
        return QStringLiteral("%1.%2").arg(engine.CurrentItem()).arg(engine.CurrentPart());
    }
    QString picture(const QString& strName, Qt::GlobalColor color) {
        QImage image(32, 24, QImage::Format_RGB32);
        image.fill(color);
        const QString strPath = files.filePath(strName);
        image.save(strPath);
        return strPath;
    }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        QVERIFY2(db->IsValid(), qPrintable(db->LastError()));
        starts = 0;
        OfficeConverter::SetStartObserver([this](const QString&, const QStringList&) { ++starts; });
    }
    void cleanup() {
        OfficeConverter::SetStartObserver(nullptr);
        db.reset();
    }

    void aPresentationRunsSlideBySlideLikeTheParts() {
        FakeOffice office(FakeOffice::Without); // the slides were converted before
        const qint32 prayer =
            db->AddServiceItem(TestDatabase::Prayer, "Opening prayer", "Almighty God");
        const qint32 talk = presentation("Mission report", convertedTalk("report.pptx", 3));
        const qint32 notices =
            db->AddServiceItem(TestDatabase::Announcement, "Notices", "Tea after the service");
        const qint32 service = db->AddService("Morning", {{prayer}, {talk}, {notices}});
        RunEngine engine;
        QString err;
        QVERIFY2(engine.LoadService(service, err), qPrintable(err));
        QCOMPARE(engine.ItemSlides(1).size(), 3);
        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(where(engine), QString("1.0"));
        for (int page = 0; page < 3; ++page) {
            const Slide& slide = engine.CurrentSlide();
            QCOMPARE(slide.kind, Slide::Kind::PdfPage);
            QCOMPARE(slide.slidePage, page);
            QCOMPARE(slide.partCount, 3);
            QVERIFY(slide.title.isEmpty());
            QCOMPARE(engine.AtEndOfItem(), page == 2);
            if (page < 2)
                QCOMPARE(engine.Next(), RunEngine::Step::Part);
        }
        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(where(engine), QString("2.0"));
        QCOMPARE(engine.Previous(), RunEngine::Step::Item);
        QCOMPARE(engine.CurrentItem(), 1);
        QCOMPARE(engine.JumpToPart(2), true);
        QCOMPARE(engine.CurrentSlide().slidePage, 2);
        QCOMPARE(engine.Previous(), RunEngine::Step::Part);
        QCOMPARE(engine.CurrentSlide().slidePage, 1);
        QCOMPARE(starts, 0);
    }

    void eachSlideIsRenderedFullScreenFromTheSamePdf() {
        const QString strTalk = convertedTalk("talk.odp", 2);
        const qint32 talk = presentation("Talk", strTalk);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(talk, err));
        const QSize size(800, 600);
        const QImage first = engine.Renderer().Render(engine.CurrentSlide(), size);
        QVERIFY(Screenshot::IsNotBlank(first));
        engine.Next();
        const QImage second = engine.Renderer().Render(engine.CurrentSlide(), size);
        QVERIFY(first != second);
        // The same picture as the page itself, filling the 4:3 screen.
        PdfSlides slides;
        QVERIFY(slides.Open(PresentationCache::FindPdf(strTalk), err));
        QCOMPARE(second, slides.Render(1, size).convertToFormat(second.format()));
    }

    void theProjectorShowsTheSlideAndForwardPagesOn() {
        const qint32 talk = presentation("Talk", convertedTalk("talk.ppt", 2));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(talk, err));
        ProjectorWindow projector(engine);
        projector.resize(640, 480);
        RunController controller(engine, nullptr);
        const QImage first = projector.Picture();
        QVERIFY(Screenshot::IsNotBlank(first));
        controller.OperatorAction(OperatorKeys::Action::Forward);
        QCOMPARE(engine.CurrentSlide().slidePage, 1);
        QVERIFY(projector.Picture() != first);
        controller.OperatorAction(OperatorKeys::Action::Back);
        QCOMPARE(engine.CurrentSlide().slidePage, 0);
    }

    void aPresentationIsConvertedTheFirstTimeItRunsOnly() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(4));
        const qint32 talk = presentation("Talk", write("new talk.pptx", "PK"));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(talk, err));
        QCOMPARE(engine.PartCount(), 4);
        QCOMPARE(starts, 1);
        RunEngine again;
        QVERIFY(again.LoadItem(talk, err));
        QCOMPARE(again.PartCount(), 4);
        QCOMPARE(starts, 1);
    }

    void aPresentationThatCannotBeShownRunsAsOneEmptySlide() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        const qint32 talk = presentation("Broken talk", write("broken.pptx", "PK"));
        TraceFile trace;
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(talk, err));
        QCOMPARE(engine.PartCount(), 1);
        QVERIFY(engine.CurrentSlide().kind != Slide::Kind::PdfPage);
        QVERIFY(engine.CurrentSlide().Words().isEmpty());
        QVERIFY(trace.HasLineContaining("could not convert broken.pptx"));
    }

    // ---- Pictures and music of an item ------------------------------------------------
    void theItemsBackgroundPicturesChangeAtItsInterval() {
        const qint32 reading =
            db->AddServiceItem(TestDatabase::Reading, "Psalm 23", "The Lord is my shepherd");
        DataAccess& da = DataAccess::Instance();
        QString err;
        qint32 red = 0, blue = 0;
        da.AddImageServiceItem(picture("red.png", Qt::red), red);
        da.AddImageServiceItem(picture("blue.png", Qt::blue), blue);
        QVERIFY(red > 0 && blue > 0);
        da.AddServiceItemImage(reading, red, err);
        da.AddServiceItemImage(reading, blue, err);
        QVERIFY(db->Exec("UPDATE ServiceItems SET ChangeImageEveryXSeconds = 7 WHERE "
                         "ServiceItemID = ?",
                         {reading}));
        RunEngine engine;
        QVERIFY(engine.LoadItem(reading, err));
        const Slide& slide = engine.CurrentSlide();
        QCOMPARE(slide.backgrounds,
                 QStringList({files.filePath("red.png"), files.filePath("blue.png")}));
        QCOMPARE(slide.changeBackgroundEverySeconds, 7);
        const QImage first = engine.Renderer().Render(slide, QSize(64, 48), false, 0);
        const QImage next = engine.Renderer().Render(slide, QSize(64, 48), false, 1);
        QVERIFY(first.pixelColor(2, 2).red() > first.pixelColor(2, 2).blue());
        QVERIFY(next.pixelColor(2, 2).blue() > next.pixelColor(2, 2).red());
    }

    void aPictureShowsForItsDisplayTime() {
        const qint32 photo = db->AddServiceItem(TestDatabase::Picture, "Church");
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemFilename = ?, SecondsToRun = 61 "
                         "WHERE ServiceItemID = ?",
                         {picture("church.png", Qt::green), photo}));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(photo, err));
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::Picture);
        QCOMPARE(engine.CurrentSlide().secondsToShow, 61);
    }

    void theItemsMusicIsLoadedWhenTheItemComesUp() {
        ScriptedPlatform platform;
        const QString strMusic = write("prelude.wav", "RIFF");
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Prayer", "Amen");
        const qint32 reading = db->AddServiceItem(TestDatabase::Reading, "Psalm", "Shepherd");
        QVERIFY(db->Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                         {strMusic, reading}));
        const qint32 service = db->AddService("Evening", {{prayer}, {reading}});
        ctlRun console;
        console.resize(900, 700);
        console.show();
        RunEngine engine;
        RunController controller(engine, &console);
        QString err;
        QVERIFY(engine.LoadService(service, err));
        console.setRunningService(service);
        controller.RunStarted();
        QVERIFY(!platform.SoundCalls().contains("Load " + strMusic));
        controller.OperatorAction(OperatorKeys::Action::Forward);
        QCOMPARE(engine.CurrentItem(), 1);
        QVERIFY2(platform.SoundCalls().contains("Load " + strMusic),
                 qPrintable(platform.SoundCalls().join(", ")));
    }
};

QTEST_MAIN(tst_RunPresentation)
#include "tst_RunPresentation.moc"
