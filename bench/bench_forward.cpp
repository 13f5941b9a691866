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

#include "DataAccess.h"
#include "ProjectorWindow.h"
#include "RunLook.h"
#include "RunSession.h"
#include "ScriptedPlatform.h"
#include "Settings.h"
#include "TestDatabase.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cstdio>
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

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int runs = argc > 1 ? qMax(1, QByteArray(argv[1]).toInt()) : 7;
    TestDatabase db;
    if (!db.IsValid()) {
        std::fprintf(stderr, "cannot create the database: %s\n", qPrintable(db.LastError()));
        return 1;
    }
    qputenv("CORVANTIS_INI_DIR", db.Folder().toUtf8());
    ScriptedPlatform platform;
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
    for (int i = 0; i < runs * 3; ++i)
        read = std::min(read, TimeReadLook());
    std::printf("%-30s %9s %9.2f\n", "paint the slide alone", "", paint);
    std::printf("%-30s %9s %9.2f\n", "read the look (options)", "", read);
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
    return 0;
}
