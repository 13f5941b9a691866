// The presentations of a run are converted in the background from the start
// of the run: the run starts at once, the operator goes on while LibreOffice
// works, a presentation waits on an empty slide with a word on the status
// line, and its slides come up as soon as they are there.
#include "FakeOffice.h"
#include "MainWindow.h"
#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "ProjectorWindow.h"
#include "RunEngine.h"
#include "RunSession.h"
#include "Screenshot.h"
#include "ScriptedPlatform.h"
#include "StartUp.h"
#include "TestDatabase.h"
#include "TraceFile.h"

#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QStatusBar>
#include <QtTest>

#include <memory>

class tst_RunPresentationsAhead : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    QTemporaryDir files;
    int starts = 0;

    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(files, strName, bytes);
    }
    qint32 presentation(const QString& strDescription, const QString& strFile) {
        return db->AddFileItem(TestDatabase::PowerPoint, strDescription, strFile);
    }
    static QString hangingPid(const FakeOffice& office) {
        QFile file(office.HangingPidFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed()
                                              : QString();
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

    void aServiceStartsAndMovesOnWhileItsPresentationIsStillBeingConverted() {
        FakeOffice office(FakeOffice::Hangs);
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Opening prayer", "Amen");
        const qint32 talk = presentation("Mission report", write("report.pptx", "PK report"));
        const qint32 notices = db->AddServiceItem(TestDatabase::Announcement, "Notices", "Tea");
        const qint32 service = db->AddService("Morning", {{prayer}, {talk}, {notices}});
        RunEngine engine;
        engine.SetPreparesSlidesAhead(true);
        QString err;
        QVERIFY2(engine.LoadService(service, err), qPrintable(err));
        // Loaded with the conversion still to come: nothing waited for it.
        QCOMPARE(engine.SlidesBeingPrepared(), 1);
        QTRY_COMPARE(starts, 1);
        QTRY_VERIFY(!hangingPid(office).isEmpty());
        QCOMPARE(engine.SlidesBeingPrepared(), 1);
        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(engine.CurrentItem(), 1);
        QCOMPARE(engine.PartCount(), 1);
        QVERIFY(engine.CurrentSlide().kind != Slide::Kind::PdfPage);
        QVERIFY(engine.CurrentSlide().Words().isEmpty());
        QVERIFY2(engine.SlidesStatus().contains("Mission report"),
                 qPrintable(engine.SlidesStatus()));
        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(engine.CurrentItem(), 2);
        QVERIFY(engine.SlidesStatus().contains("in the background"));
        // The end of the run stops LibreOffice.
        const QString strPid = hangingPid(office);
        engine.EndRun();
        QCOMPARE(engine.SlidesBeingPrepared(), 0);
        QTRY_VERIFY(!FakeOffice::IsAlive(strPid));
        QVERIFY(engine.SlidesStatus().isEmpty());
    }

    void theSlidesComeUpAsSoonAsTheConversionIsDone() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(3));
        const qint32 talk = presentation("Talk", write("new talk.pptx", "PK"));
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Prayer", "Amen");
        const qint32 service = db->AddService("Morning", {{talk}, {prayer}});
        RunEngine engine;
        engine.SetPreparesSlidesAhead(true);
        ProjectorWindow projector(engine);
        projector.resize(640, 480);
        QSignalSpy status(&engine, &RunEngine::SlidesStatusChanged);
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QCOMPARE(engine.PartCount(), 1);
        QVERIFY(engine.CurrentSlide().kind != Slide::Kind::PdfPage);
        const QImage waiting = projector.Picture();
        QTRY_COMPARE(engine.PartCount(), 3);
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::PdfPage);
        QCOMPARE(engine.CurrentSlide().slidePage, 0);
        QVERIFY(Screenshot::IsNotBlank(projector.Picture()));
        QVERIFY(projector.Picture() != waiting);
        QVERIFY(engine.SlidesStatus().isEmpty());
        QVERIFY(!status.isEmpty());
        QVERIFY(status.last().first().toString().isEmpty());
        QCOMPARE(engine.Next(), RunEngine::Step::Part);
        QCOMPARE(engine.CurrentSlide().slidePage, 1);
        QCOMPARE(starts, 1);
        // Kept: the next run has its slides from the start, converting nothing.
        RunEngine again;
        again.SetPreparesSlidesAhead(true);
        QVERIFY(again.LoadService(service, err));
        QCOMPARE(again.PartCount(), 3);
        QCOMPARE(again.SlidesBeingPrepared(), 0);
        QCOMPARE(starts, 1);
    }

    void thePresentationsOfAServiceAreConvertedOneAfterAnother() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
        const qint32 first = presentation("First talk", write("first.odp", "first"));
        const qint32 second = presentation("Second talk", write("second.ppt", "second"));
        const qint32 service = db->AddService("Morning", {{first}, {second}});
        RunEngine engine;
        engine.SetPreparesSlidesAhead(true);
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QCOMPARE(engine.SlidesBeingPrepared(), 2);
        QTRY_COMPARE(engine.SlidesBeingPrepared(), 0);
        QCOMPARE(engine.ItemSlides(0).size(), 2);
        QCOMPARE(engine.ItemSlides(1).size(), 2);
        QCOMPARE(office.Runs(), 2);
    }

    void aPresentationThatCannotBeConvertedStaysEmptyAndTheOperatorIsTold() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        const qint32 talk = presentation("Broken talk", write("broken.pptx", "PK"));
        TraceFile trace;
        RunEngine engine;
        engine.SetPreparesSlidesAhead(true);
        QString err;
        QVERIFY(engine.LoadItem(talk, err));
        QTRY_COMPARE(engine.SlidesBeingPrepared(), 0);
        QCOMPARE(engine.PartCount(), 1);
        QVERIFY(engine.CurrentSlide().Words().isEmpty());
        QVERIFY2(engine.SlidesStatus().contains("\"Broken talk\" cannot be shown"),
                 qPrintable(engine.SlidesStatus()));
        QVERIFY2(trace.HasLineContaining("could not convert broken.pptx"),
                 qPrintable(engine.SlidesStatus()));
    }

    void aPresentationPutUpAsAPropIsPreparedToo() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(4));
        const qint32 prayer = db->AddServiceItem(TestDatabase::Prayer, "Prayer", "Amen");
        const qint32 talk = presentation("Prop talk", write("prop.pptx", "PK"));
        const qint32 service = db->AddService("Morning", {{prayer}});
        RunEngine engine;
        engine.SetPreparesSlidesAhead(true);
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QVERIFY(engine.StartProp(talk, err));
        QCOMPARE(engine.PartCount(), 1);
        QSignalSpy changed(&engine, &RunEngine::SlideChanged);
        QTRY_COMPARE(engine.PartCount(), 4);
        QVERIFY(!changed.isEmpty());
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::PdfPage);
    }

    void theApplicationsRunPreparesSlidesAhead() {
        ScriptedPlatform platform;
        FakeOffice office(FakeOffice::Hangs);
        const qint32 talk = presentation("Talk", write("talk.pptx", "PK"));
        const qint32 service = db->AddService("Morning", {{talk}});
        RunSession session(nullptr);
        QString err;
        QVERIFY2(session.StartService(service, err), qPrintable(err));
        QCOMPARE(session.Engine().SlidesBeingPrepared(), 1);
        QVERIFY(session.Engine().SlidesStatus().contains("\"Talk\""));
        session.End();
        QCOMPARE(session.Engine().SlidesBeingPrepared(), 0);
    }

    void theStatusLineTellsTheOperatorUntilTheSlidesAreThere() {
        ScriptedPlatform platform;
        platform.SetDefaultAnswer(vbYes);
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
        const qint32 talk = presentation("Harvest talk", write("harvest.pptx", "PK"));
        const qint32 service = db->AddService("Harvest", {{talk}});
        StartUp start;
        start.databasePath = db->Path();
        MainWindow window(start);
        window.show();
        QVERIFY(window.RunService(service));
        auto* lblSlidesStatus = window.statusBar()->findChild<QLabel*>("lblSlidesStatus");
        QVERIFY(lblSlidesStatus);
        QVERIFY2(lblSlidesStatus->text().contains("\"Harvest talk\""),
                 qPrintable(lblSlidesStatus->text()));
        QVERIFY(lblSlidesStatus->isVisible());
        QTRY_COMPARE(window.Session()->Engine().PartCount(), 2);
        QVERIFY(lblSlidesStatus->text().isEmpty());
        QVERIFY(!lblSlidesStatus->isVisible());
        window.EndRun();
        QVERIFY(!window.IsRunning());
    }
};

QTEST_MAIN(tst_RunPresentationsAhead)
#include "tst_RunPresentationsAhead.moc"
