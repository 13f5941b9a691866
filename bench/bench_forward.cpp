// Benchmark of the Forward press on the projector: the time from the key press
// to the new slide fully on the projector window, with each transition of the
// options and with none, beside the bare cost of painting that slide.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_forward [runs]
//
// Every figure is the best of the runs (default 7) in milliseconds: on a shared
// machine the other work only ever adds time. "Fully on the window" is the
// projector's PictureShown, told after the last frame has been painted. See
// bench/README.md for the figures of the last run.
//
// A second table runs a service of songs, points lists and pictures with the
// operator's console beside the projector, on two screens: from the key press
// to the new slide on the projector and the console's mirror grabbed and
// painted, beside the bare cost of painting that slide and grabbing the
// projector's rectangle once.

#include "DataAccess.h"
#include "ProjectorWindow.h"
#include "RunLook.h"
#include "RunSession.h"
#include "ScriptedPlatform.h"
#include "Settings.h"
#include "TestDatabase.h"
#include "foundations/Platform.h"
#include "run/ctlRun.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QPixmap>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

namespace {

const QString kWords = QStringLiteral(
    "Almighty God, to whom all hearts are open, all desires known, and from whom no secrets "
    "are hidden: cleanse the thoughts of our hearts by the inspiration of your Holy Spirit, "
    "that we may perfectly love you, and worthily magnify your holy name");

struct Config {
    const char* name;
    bool use;
    qint32 type;
    qint32 speed;
};

double Ms(qint64 ns) {
    return static_cast<double>(ns) / 1e6;
}

// Sets the transition the run reads at its next slide.
void UseTransition(TestDatabase& db, const Config& config) {
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("UseTransitions"),
                                        config.use ? QStringLiteral("True")
                                                   : QStringLiteral("False"));
    db.Exec(QStringLiteral("UPDATE Options SET RunModeTransType = ?, RunModeTransSpeed = ?"),
            {config.type, config.speed});
}

// One Forward: the key press to the PictureShown of the new slide.
double TimeForward(RunSession& session) {
    ProjectorWindow* projector = session.Projector();
    RunEngine& engine = session.Engine();
    QSignalSpy shown(projector, &ProjectorWindow::PictureShown);
    if (engine.CurrentItem() + 1 >= engine.ItemCount()) {
        engine.JumpToItem(0);
        shown.wait(5000);
        shown.clear();
    }
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(projector, Qt::Key_Right);
    if (shown.isEmpty() && !shown.wait(10000))
        return std::numeric_limits<double>::infinity();
    return Ms(timer.nsecsElapsed());
}

// The slide drawn into a picture of the window's size, nothing else.
double TimePaint(RunSession& session) {
    RunEngine& engine = session.Engine();
    const QSize size = session.Projector()->size();
    QElapsedTimer timer;
    timer.start();
    const QImage image = engine.Renderer().Render(engine.CurrentSlide(), size);
    const double ms = Ms(timer.nsecsElapsed());
    return image.isNull() ? 0.0 : ms;
}

// One read of the look from the options row and the settings file, as the run
// does before each change of slide.
double TimeReadLook() {
    QElapsedTimer timer;
    timer.start();
    QString strErrorMessage;
    const RunLook look = RunLook::FromOptions(strErrorMessage);
    const double ms = Ms(timer.nsecsElapsed());
    return look.fontName.isEmpty() ? 0.0 : ms;
}

// What the run asks before each change of slide: the look kept from the last read, after a
// look at whether the options row or the settings file has changed since.
double TimeKeptLook() {
    QString strErrorMessage;
    RunLook::FromOptionsWhenChanged(strErrorMessage);
    QElapsedTimer timer;
    timer.start();
    const RunLook look = RunLook::FromOptionsWhenChanged(strErrorMessage);
    const double ms = Ms(timer.nsecsElapsed());
    return look.fontName.isEmpty() ? 0.0 : ms;
}

// ---------------------------------------------------------------- With the console

// With BENCH_CPU=1 the console's table gives the processor time of this thread instead of the
// clock: on a machine busy with other work it scatters less and is nearer to what a quiet
// machine's clock would show (the press does all its work on this thread).
qint64 ConsoleNowNs() {
    static const bool cpu = qgetenv("BENCH_CPU") == "1";
    if (cpu) {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
    }
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    return clock.nsecsElapsed();
}

struct KindFigures {
    double forward = std::numeric_limits<double>::infinity();
    double paint = std::numeric_limits<double>::infinity();
    double grab = std::numeric_limits<double>::infinity();
    double bare = std::numeric_limits<double>::infinity(); // paint and grab in one go
};

const char* KindName(Slide::Kind kind) {
    switch (kind) {
    case Slide::Kind::Text:
        return "song (a verse)";
    case Slide::Kind::Points:
        return "points list (a point)";
    case Slide::Kind::Picture:
        return "picture";
    default:
        return nullptr;
    }
}

// A service of songs, points lists and pictures, each three times.
qint32 MixedService(TestDatabase& db) {
    QImage sunrise(1600, 1200, QImage::Format_RGB32);
    sunrise.fill(QColor(200, 120, 40));
    const QString file = db.ContentFolder() + QStringLiteral("/sunrise.png");
    sunrise.save(file);
    QList<TestDatabase::Row> rows;
    for (int i = 0; i < 3; ++i) {
        const qint32 song = db.AddSong(QStringLiteral("Hymn %1").arg(i + 1),
                                       {{QStringLiteral("Verse 1"), kWords.left(120)},
                                        {QStringLiteral("Chorus"), kWords.mid(40, 100), true},
                                        {QStringLiteral("Verse 2"), kWords.right(120)},
                                        {QStringLiteral("Verse 3"), kWords.mid(20, 120)}});
        const qint32 points =
            db.AddServiceItem(TestDatabase::PointsOnly, QStringLiteral("Sermon %1").arg(i + 1));
        db.AddPoints(points, {{"P1", "", "Grace that is greater than our sin", ""},
                              {"P2", "", "Love that will not let us go", ""},
                              {"P3", "", "Hope that does not disappoint", ""},
                              {"P4", "", "Peace that passes understanding", ""}});
        const qint32 picture =
            db.AddServiceItem(TestDatabase::Picture, QStringLiteral("Sunrise %1").arg(i + 1));
        db.Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemFilename = ? WHERE "
                               "ServiceItemID = ?"),
                {file, picture});
        rows << TestDatabase::Row(song) << TestDatabase::Row(points) << TestDatabase::Row(picture);
    }
    return db.AddService(QStringLiteral("Evening"), rows);
}

// Presses Forward through the whole service again and again; each press is timed to the
// console's mirror painted, and the bare cost of its slide taken right after it.
QMap<Slide::Kind, KindFigures> TimeWithConsole(TestDatabase& db, int runs) {
    QMap<Slide::Kind, KindFigures> figures;
    QWidget consoleWindow;
    consoleWindow.resize(1000, 720);
    RunSession session(&consoleWindow);
    QString err;
    if (!session.StartService(MixedService(db), err)) {
        std::fprintf(stderr, "cannot start the mixed run: %s\n", qPrintable(err));
        return figures;
    }
    consoleWindow.show();
    ProjectorWindow* projector = session.Projector();
    RunEngine& engine = session.Engine();
    if (!QTest::qWaitForWindowExposed(&consoleWindow) || !QTest::qWaitForWindowExposed(projector)) {
        std::fprintf(stderr, "the console or the projector did not come up\n");
        return figures;
    }
    QTest::qWait(50); // the first pictures drawn
    for (int r = 0; r < runs; ++r) {
        engine.JumpToItem(0);
        QTest::qWait(20);
        while (!engine.AtEndOfService()) {
            QSignalSpy shown(projector, &ProjectorWindow::PictureShown);
            const qint64 pressed = ConsoleNowNs();
            QTest::keyClick(projector, Qt::Key_Right);
            if (shown.isEmpty() && !shown.wait(5000))
                break;
            // The console's mirror was grabbed as the picture was shown; its painting follows.
            QApplication::processEvents();
            const double forward = Ms(ConsoleNowNs() - pressed);
            const Slide& slide = engine.CurrentSlide();
            if (!KindName(slide.kind))
                continue;
            KindFigures& f = figures[slide.kind];
            f.forward = std::min(f.forward, forward);
            const QRect area = projector->geometry();
            const qint64 start = ConsoleNowNs();
            const QImage image = engine.Renderer().Render(slide, projector->size());
            const qint64 painted = ConsoleNowNs() - start;
            const QPixmap grabbed = Platform::Current().GrabDesktop(area);
            const qint64 done = ConsoleNowNs() - start;
            if (image.isNull() || grabbed.isNull())
                continue;
            f.paint = std::min(f.paint, Ms(painted));
            f.grab = std::min(f.grab, Ms(done - painted));
            f.bare = std::min(f.bare, Ms(done));
        }
    }
    session.End();
    return figures;
}

int PrintWithConsole(TestDatabase& db, int runs) {
    const QMap<Slide::Kind, KindFigures> withConsole = TimeWithConsole(db, runs);
    std::printf("\nwith the console, projector on the second screen, no transition\n");
    std::printf("%-30s %9s %9s %9s %9s %9s\n", "slide", "forward", "paint", "grab", "bare",
                "/ bare");
    for (auto it = withConsole.cbegin(); it != withConsole.cend(); ++it) {
        const KindFigures& f = it.value();
        std::printf("%-30s %9.2f %9.2f %9.2f %9.2f %9.2f\n", KindName(it.key()), f.forward, f.paint,
                    f.grab, f.bare, f.forward / f.bare);
    }
    return withConsole.isEmpty() ? 1 : 0;
}

// Two screens of 1024 x 768 side by side, the console's and the projector's; the offscreen
// platform reads them from a file as the application starts.
void SelectTwoScreens(const QTemporaryDir& dir) {
    const QString file = dir.filePath(QStringLiteral("screens.json"));
    QFile json(file);
    if (!json.open(QIODevice::WriteOnly))
        return;
    json.write(R"({"screens":[)"
               R"({"name":"A","x":0,"y":0,"width":1024,"height":768,"logicalDpi":96,"dpr":1},)"
               R"({"name":"B","x":1024,"y":0,"width":1024,"height":768,"logicalDpi":96,"dpr":1})"
               R"(]})");
    json.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toLocal8Bit());
}

} // namespace

int main(int argc, char** argv) {
    QTemporaryDir screens;
    SelectTwoScreens(screens);
    QApplication app(argc, argv);
    // "--console RUNS" runs only the second table, for a profiler.
    const bool consoleOnly = argc > 1 && QByteArray(argv[1]) == "--console";
    const int runArg = consoleOnly ? 2 : 1;
    const int runs = argc > runArg ? qMax(1, QByteArray(argv[runArg]).toInt()) : 7;
    TestDatabase db;
    if (!db.IsValid()) {
        std::fprintf(stderr, "cannot create the database: %s\n", qPrintable(db.LastError()));
        return 1;
    }
    qputenv("CORVANTIS_INI_DIR", db.Folder().toUtf8());
    ScriptedPlatform platform;
    if (consoleOnly)
        return PrintWithConsole(db, runs);
    QList<TestDatabase::Row> rows;
    for (int i = 0; i < 40; ++i)
        rows << TestDatabase::Row(db.AddServiceItem(
            TestDatabase::Prayer, QStringLiteral("Prayer %1").arg(i + 1), kWords));
    const qint32 service = db.AddService(QStringLiteral("Morning"), rows);
    RunSession session(nullptr);
    QString err;
    if (!session.StartService(service, err)) {
        std::fprintf(stderr, "cannot start the run: %s\n", qPrintable(err));
        return 1;
    }
    session.Projector()->resize(1024, 768);
    if (!QTest::qWaitForWindowExposed(session.Projector()) ||
        !QTest::qWaitFor([&] { return session.Engine().ScreenSize() == QSize(1024, 768); })) {
        std::fprintf(stderr, "the projector window did not come up at 1024 x 768\n");
        return 1;
    }

    const Config configs[] = {
        {"none (switched off)", false, DataAccess::transFade, DataAccess::speedFast},
        {"cut", true, DataAccess::transCut, DataAccess::speedFast},
        {"fade, fast", true, DataAccess::transFade, DataAccess::speedFast},
        {"dissolve through black, fast", true, DataAccess::transDissolveThroughBlack,
         DataAccess::speedFast},
        {"slide left, fast", true, DataAccess::transSlideLeft, DataAccess::speedFast},
        {"slide right, fast", true, DataAccess::transSlideRight, DataAccess::speedFast},
        {"slide up, fast", true, DataAccess::transSlideUp, DataAccess::speedFast},
        {"slide down, fast", true, DataAccess::transSlideDown, DataAccess::speedFast},
        {"wipe, fast", true, DataAccess::transWipe, DataAccess::speedFast},
        {"fade, medium", true, DataAccess::transFade, DataAccess::speedMedium},
        {"fade, slow", true, DataAccess::transFade, DataAccess::speedSlow},
    };

    double paint = std::numeric_limits<double>::infinity();
    for (int i = 0; i < runs * 3; ++i)
        paint = std::min(paint, TimePaint(session));
    std::printf("projector 1024 x 768, best of %d runs, milliseconds\n", runs);
    std::printf("%-30s %9s %9s %9s %9s\n", "transition", "duration", "forward", "over", "/ paint");
    double read = std::numeric_limits<double>::infinity();
    double kept = std::numeric_limits<double>::infinity();
    for (int i = 0; i < runs * 3; ++i) {
        read = std::min(read, TimeReadLook());
        kept = std::min(kept, TimeKeptLook());
    }
    std::printf("%-30s %9s %9.2f\n", "paint the slide alone", "", paint);
    std::printf("%-30s %9s %9.2f\n", "read the look (options)", "", read);
    std::printf("%-30s %9s %9.2f\n", "the look kept (nothing changed)", "", kept);
    for (const Config& config : configs) {
        UseTransition(db, config);
        TimeForward(session); // the first slide after the change reads the new options
        double best = std::numeric_limits<double>::infinity();
        for (int i = 0; i < runs; ++i)
            best = std::min(best, TimeForward(session));
        const bool animates = config.use && config.type != DataAccess::transCut;
        const double duration =
            animates ? DataAccess::TransitionDuration(QVariant(config.speed)) : 0.0;
        std::printf("%-30s %9.0f %9.2f %9.2f %9.2f\n", config.name, duration, best, best - duration,
                    best / paint);
    }
    session.End();

    UseTransition(db, configs[0]);
    return PrintWithConsole(db, runs);
}
