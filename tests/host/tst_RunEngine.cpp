#include "DataAccess.h"
#include "RunEngine.h"
#include "Screenshot.h"
#include "TestDatabase.h"
#include "TraceFile.h"

#include <QSignalSpy>
#include <QtTest>

// The run engine stepped through services of real databases: at each step
// the slide that the projector shows, and its picture.
class tst_RunEngine : public QObject {
    Q_OBJECT

private:
    struct Service {
        qint32 id = 0;
        qint32 song = 0, prayer = 0, reading = 0, points = 0;
    };

    static bool setRunDetails(TestDatabase& db, qint32 item, int mode, int lines = 2,
                              bool revealSubs = false) {
        return db.Exec(QStringLiteral("UPDATE ServiceItems SET TextViewMode = ?, LinesAtATime = ?, "
                                      "RevealSubPointsOneByOne = ? WHERE ServiceItemID = ?"),
                       {mode, lines, revealSubs ? 1 : 0, item});
    }

    // Song (verse 1, chorus, verse 2, chorus), a hidden prayer, the Blank item,
    // a reading two lines at a time, a points list revealed one by one.
    static Service makeService(TestDatabase& db) {
        Service s;
        s.song =
            db.AddSong(QStringLiteral("Amazing Grace"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace\nhow sweet")},
                        {QStringLiteral("Chorus"), QStringLiteral("My chains are gone"), true},
                        {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers")}},
                       {0, 1, 2, 1});
        s.prayer = db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("Hidden prayer"),
                                     QStringLiteral("Not shown"));
        s.reading = db.AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"),
                                      QStringLiteral("The Lord is my shepherd\nI shall not want\n"
                                                     "He makes me lie down\nin green pastures\n"
                                                     "He leads me"));
        s.points = db.AddServiceItem(TestDatabase::Message, QStringLiteral("Sermon"));
        db.AddPoints(s.points,
                     {{QStringLiteral("P1"), QString(), QStringLiteral("Grace"), QString()},
                      {QStringLiteral("P2"), QString(), QStringLiteral("Peace"), QString()}});
        setRunDetails(db, s.reading, 1, 2);
        setRunDetails(db, s.points, 5);
        s.id = db.AddService(
            QStringLiteral("Sunday Morning"),
            {{s.song}, {s.prayer, false}, TestDatabase::Blank(), {s.reading}, {s.points}});
        return s;
    }

    static QString where(const RunEngine& engine) {
        return QStringLiteral("%1.%2").arg(engine.CurrentItem()).arg(engine.CurrentPart());
    }

    static bool pictureNotBlank(RunEngine& engine) {
        return Screenshot::IsNotBlank(
            engine.Renderer().Render(engine.CurrentSlide(), QSize(640, 480)));
    }

private slots:
    void serviceStepsThroughEveryShownRow() {
        TestDatabase db;
        QVERIFY(db.IsValid());
        const Service s = makeService(db);
        QVERIFY(s.id > 0);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QCOMPARE(err, QString());
        QCOMPARE(engine.ItemCount(), 4);

        struct Expected {
            QString where;
            Slide::Kind kind;
            QString words;
            RunEngine::Step step; // the step that led here
        };
        const QList<Expected> steps = {
            {"0.0", Slide::Kind::Text, "Amazing grace\nhow sweet", RunEngine::Step::Nothing},
            {"0.1", Slide::Kind::Text, "My chains are gone", RunEngine::Step::Part},
            {"0.2", Slide::Kind::Text, "Through many dangers", RunEngine::Step::Part},
            {"0.3", Slide::Kind::Text, "My chains are gone", RunEngine::Step::Part},
            {"1.0", Slide::Kind::Blank, "", RunEngine::Step::Item},
            {"2.0", Slide::Kind::Text, "The Lord is my shepherd\nI shall not want",
             RunEngine::Step::Item},
            {"2.1", Slide::Kind::Text, "He makes me lie down\nin green pastures",
             RunEngine::Step::Part},
            {"2.2", Slide::Kind::Text, "He leads me", RunEngine::Step::Part},
            {"3.0", Slide::Kind::Points, "Grace", RunEngine::Step::Item},
            {"3.1", Slide::Kind::Points, "Grace\nPeace", RunEngine::Step::Part},
        };
        for (int i = 0; i < steps.size(); ++i) {
            const Expected& expected = steps.at(i);
            if (i > 0)
                QCOMPARE(engine.Next(), expected.step);
            QCOMPARE(where(engine), expected.where);
            QCOMPARE(engine.CurrentSlide().kind, expected.kind);
            QCOMPARE(engine.CurrentSlide().Words(), expected.words);
            QCOMPARE(engine.AtEndOfItem(), engine.CurrentPart() == engine.PartCount() - 1);
            if (expected.kind != Slide::Kind::Blank)
                QVERIFY2(pictureNotBlank(engine), qPrintable(expected.where));
        }
        QCOMPARE(engine.CurrentSlide().serviceItemId, s.points);
        QCOMPARE(engine.Next(), RunEngine::Step::ServiceEnded);
        QVERIFY(engine.AtEndOfService());
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::End);
        QCOMPARE(engine.Next(), RunEngine::Step::Nothing);
        QCOMPARE(engine.Previous(), RunEngine::Step::Item);
        QCOMPARE(where(engine), QStringLiteral("3.1"));
    }

    void hiddenRowsAreLeftOut() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QList<qint32> ids;
        for (int i = 0; i < engine.ItemCount(); ++i)
            ids << engine.ItemServiceItemID(i);
        QCOMPARE(ids, QList<qint32>({s.song, 1, s.reading, s.points}));
    }

    void previousGoesToTheStartOfTheItemBefore() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QCOMPARE(engine.Previous(), RunEngine::Step::Nothing);
        QVERIFY(engine.JumpToItem(2));
        QCOMPARE(where(engine), QStringLiteral("2.0"));
        QCOMPARE(engine.Previous(), RunEngine::Step::Item);
        QCOMPARE(where(engine), QStringLiteral("1.0"));
        QCOMPARE(engine.Previous(), RunEngine::Step::Item);
        QCOMPARE(where(engine), QStringLiteral("0.0"));
        QVERIFY(engine.JumpToPart(2));
        QCOMPARE(engine.Previous(), RunEngine::Step::Part);
        QCOMPARE(where(engine), QStringLiteral("0.1"));
    }

    void jumpsStayInsideTheService() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QVERIFY(!engine.JumpToItem(4));
        QVERIFY(!engine.JumpToItem(-1));
        QVERIFY(engine.JumpToPart(2));
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Through many dangers"));
        QVERIFY(!engine.JumpToPart(4));
        QCOMPARE(where(engine), QStringLiteral("0.2"));
    }

    void everyMoveTellsTheProjector() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QSignalSpy changed(&engine, &RunEngine::SlideChanged);
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QCOMPARE(changed.count(), 1);
        engine.Next();
        engine.JumpToItem(3);
        engine.SetBlackedOut(true);
        engine.IncreaseSize();
        QCOMPARE(changed.count(), 5);
        engine.SetBlackedOut(true); // no change, no signal
        QCOMPARE(changed.count(), 5);
    }

    void propRunsAndTheServiceGoesOnWhereItWas() {
        TestDatabase db;
        const Service s = makeService(db);
        const qint32 notice =
            db.AddServiceItem(TestDatabase::Announcement, QStringLiteral("Notice"),
                              QStringLiteral("Tea after the service"));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        engine.Next();
        QVERIFY(engine.StartProp(notice, err));
        QVERIFY(engine.IsPropRunning());
        QCOMPARE(engine.PropServiceItemID(), notice);
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Tea after the service"));
        QVERIFY(engine.AtEndOfItem());
        QCOMPARE(engine.Next(), RunEngine::Step::Nothing); // a prop waits for its end
        QVERIFY(engine.IsPropRunning());
        engine.EndProp();
        QVERIFY(!engine.IsPropRunning());
        QCOMPARE(where(engine), QStringLiteral("0.1"));
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("My chains are gone"));
    }

    void propOfAMissingItemIsRefused() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QVERIFY(!engine.StartProp(9999, err));
        QVERIFY(err.contains(QStringLiteral("9999")));
        QVERIFY(!engine.IsPropRunning());
    }

    void endOfServiceRunRecordsTodayAsLastDelivered() {
        TestDatabase db;
        const Service s = makeService(db);
        QVERIFY(db.Exec(QStringLiteral("UPDATE Services SET ServiceTheme = 'Grace@@s gift', "
                                       "ServiceDateLastDelivered = NULL WHERE ServiceID = ?"),
                        {s.id}));
        RunEngine engine;
        QSignalSpy ended(&engine, &RunEngine::RunEnded);
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        engine.EndRun(err);
        QCOMPARE(err, QString());
        QCOMPARE(ended.count(), 1);
        QVERIFY(!engine.IsRunning());
        const QString stored =
            db.Scalar(QStringLiteral(
                          "SELECT ServiceDateLastDelivered FROM Services WHERE ServiceID = ?"),
                      {s.id})
                .toString();
        QVERIFY2(stored.startsWith(QDate::currentDate().toString(Qt::ISODate)), qPrintable(stored));
        QCOMPARE(db.Scalar(QStringLiteral("SELECT ServiceTheme FROM Services WHERE ServiceID = ?"),
                           {s.id})
                     .toString(),
                 QStringLiteral("Grace@@s gift"));
        QCOMPARE(db.Scalar(QStringLiteral("SELECT ServiceName FROM Services WHERE ServiceID = ?"),
                           {s.id})
                     .toString(),
                 QStringLiteral("Sunday Morning"));
        engine.EndRun(err); // a second end does nothing
        QCOMPARE(ended.count(), 1);
    }

    void singleItemRunStaysOnItsLastPartAndRecordsNothing() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(s.song, err));
        QVERIFY(!engine.IsServiceRun());
        QCOMPARE(engine.ItemCount(), 1);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(engine.Next(), RunEngine::Step::Part);
        QCOMPARE(engine.Next(), RunEngine::Step::Nothing);
        QVERIFY(engine.AtEndOfItem());
        QVERIFY(!engine.AtEndOfService());
        engine.EndRun(err);
        QCOMPARE(err, QString());
        QVERIFY(db.Scalar(QStringLiteral(
                              "SELECT ServiceDateLastDelivered FROM Services WHERE ServiceID = ?"),
                          {s.id})
                    .isNull());
    }

    void missingItemCannotRunByItself() {
        TestDatabase db;
        RunEngine engine;
        QString err;
        QVERIFY(!engine.LoadItem(4242, err));
        QVERIFY(!err.isEmpty());
        QVERIFY(!engine.IsRunning());
    }

    void serviceWithNoRowsShowsTheEndAtOnce() {
        TestDatabase db;
        const qint32 empty = db.AddService(QStringLiteral("Empty"));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(empty, err));
        QCOMPARE(engine.ItemCount(), 0);
        QVERIFY(engine.AtEndOfService());
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::End);
        QCOMPARE(engine.Next(), RunEngine::Step::Nothing);
        QCOMPARE(engine.Previous(), RunEngine::Step::Nothing);
    }

    void blackOutShowsBlackAndComesBack() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        engine.SetBlackedOut(true);
        const QImage black =
            engine.Renderer().Render(engine.CurrentSlide(), QSize(320, 240), engine.IsBlackedOut());
        QVERIFY(!Screenshot::IsNotBlank(black));
        QCOMPARE(QColor(black.pixel(10, 10)), QColor(Qt::black));
        engine.SetBlackedOut(false);
        QVERIFY(pictureNotBlank(engine));
    }

    void sizeButtonsChangeTheProjectedFont() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        const int normal = engine.Renderer().BodyPixelSize(768);
        engine.IncreaseSize();
        QCOMPARE(engine.SizeStep(), 1);
        QVERIFY(engine.Renderer().BodyPixelSize(768) > normal);
        engine.DecreaseSize();
        engine.DecreaseSize();
        QCOMPARE(engine.SizeStep(), -1);
        QVERIFY(engine.Renderer().BodyPixelSize(768) < normal);
        for (int i = 0; i < 20; ++i)
            engine.DecreaseSize();
        QVERIFY(engine.Renderer().BodyPixelSize(768) >= 4);
    }

    void screenfulPagesFitWithoutShrinking() {
        TestDatabase db;
        QStringList lines;
        for (int i = 1; i <= 40; ++i)
            lines << QStringLiteral("Line number %1 of a long reading").arg(i);
        const qint32 reading = db.AddServiceItem(TestDatabase::Reading, QStringLiteral("Long"),
                                                 lines.join(QLatin1Char('\n')));
        setRunDetails(db, reading, 2);
        const qint32 service = db.AddService(QStringLiteral("Readings"), {{reading}});
        RunEngine engine;
        engine.SetScreenSize(QSize(1024, 768));
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QVERIFY(engine.PartCount() > 1);
        QStringList shown;
        for (const Slide& slide : engine.ItemSlides(0)) {
            QCOMPARE(engine.Renderer().FittedPixelSize(slide, QSize(1024, 768)),
                     engine.Renderer().BodyPixelSize(768));
            shown << slide.lines;
        }
        QCOMPARE(shown, lines);
    }

    void sampleServiceRunsFromFirstToLastItem() {
        QString err;
        DataAccess::Instance().OpenSampleDatabase(err);
        QCOMPARE(err, QString());
        const qint32 service = Screenshot::SampleServiceID();
        QVERIFY(service > 0);
        RunEngine engine;
        QVERIFY(engine.LoadService(service, err));
        QVERIFY(engine.ItemCount() > 1);
        int slides = 0;
        for (int i = 0; i < engine.ItemCount(); ++i)
            slides += static_cast<int>(engine.ItemSlides(i).size());
        QList<int> itemsSeen{0};
        int steps = 1;
        for (RunEngine::Step step = RunEngine::Step::Nothing; !engine.AtEndOfService();) {
            const Slide& slide = engine.CurrentSlide();
            if (slide.kind != Slide::Kind::Blank)
                QVERIFY2(pictureNotBlank(engine), qPrintable(where(engine)));
            step = engine.Next();
            QVERIFY(step != RunEngine::Step::Nothing);
            if (step == RunEngine::Step::Item)
                itemsSeen << engine.CurrentItem();
            if (step != RunEngine::Step::ServiceEnded)
                ++steps;
        }
        QCOMPARE(steps, slides);
        QCOMPARE(itemsSeen.size(), engine.ItemCount());
        DataAccess::Instance().CloseDatabase();
    }

    // At every step of a service, and while a prop runs, the slide that the
    // console previews as next is the slide that Forward then shows.
    void nextSlideIsWhatForwardBrings() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        for (int step = 0; step < 20 && !engine.AtEndOfService(); ++step) {
            const Slide* next = engine.NextSlide();
            QVERIFY(next);
            const Slide expected = *next;
            engine.Next();
            QCOMPARE(engine.CurrentSlide().Words(), expected.Words());
            QCOMPARE(engine.CurrentSlide().kind, expected.kind);
        }
        QVERIFY(engine.AtEndOfService());
        QCOMPARE(engine.NextSlide(), nullptr);
        engine.Previous();
        QVERIFY(engine.StartProp(s.song, err));
        QCOMPARE(engine.NextSlide()->Words(), engine.ItemSlides(0).at(1).Words());
        while (engine.Next() == RunEngine::Step::Part) {
        }
        QCOMPARE(engine.NextSlide(), nullptr); // a prop waits on its last part
    }

    // Each item keeps its own place: going back into an item starts it
    // again, and a prop's steps leave the item's part where it was.
    void propStepsLeaveTheItemWhereItWas() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        engine.Next();
        QCOMPARE(where(engine), QStringLiteral("0.1"));
        QVERIFY(engine.StartProp(s.reading, err));
        QCOMPARE(engine.Next(), RunEngine::Step::Part);
        QCOMPARE(engine.CurrentPart(), 1);
        QCOMPARE(engine.Previous(), RunEngine::Step::Part);
        QCOMPARE(engine.Previous(), RunEngine::Step::Nothing);
        engine.EndProp();
        QCOMPARE(where(engine), QStringLiteral("0.1"));
        const RunEngine::SlideId id = engine.CurrentSlideId();
        QCOMPARE(id.item, 0);
        QCOMPARE(id.part, 1);
        QCOMPARE(id.propServiceItemId, 0);
        QVERIFY(!id.atEnd);
    }

    // A service deleted while it runs cannot take its delivery date: the end
    // still ends the run and the failure is written to the trace.
    void failureToRecordTheDeliveryIsTraced() {
        TestDatabase db;
        const Service s = makeService(db);
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(s.id, err));
        QVERIFY(db.Exec(QStringLiteral("DELETE FROM Services WHERE ServiceID = ?"), {s.id}));
        TraceFile trace;
        engine.EndRun();
        QVERIFY(!engine.IsRunning());
        const QStringList errors = trace.NewErrorLines();
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().startsWith(QStringLiteral(
                     "Corvantis:RunEngine:EndRun: the date the service was delivered could not "
                     "be recorded: ")),
                 qPrintable(errors.first()));
        QVERIFY(errors.first().contains(QString::number(s.id)));
    }
};

QTEST_MAIN(tst_RunEngine)
#include "tst_RunEngine.moc"
