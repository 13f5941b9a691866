// Benchmark of start-up: the time from starting the program to its main window painted for
// the first time, beside the same time for a bare Qt window, in the same run.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_startup [runs]
//
// Each start is a process of its own (this program again, with "--app", "--bare" or
// "--bare-text"), timed from the moment it is started to the line it writes once its window
// has been painted; its settings, data and trace lie in folders of their own. Four kinds of
// start:
//
//   bare window     QApplication and an empty QMainWindow of the main window's size
//   bare with text  the same window showing one line of text in a label: it loads the fonts,
//                   as every window with words does
//   with sample     Corvantis, the sample database already built (every later start)
//   first start     Corvantis without a settings file or a sample database: it builds the
//                   sample database before the window opens
//
// Every figure is the best of the runs (default 7) in milliseconds: on a shared machine the
// other work only ever adds time. A second table gives the processor time the child had used
// when it had painted (all its threads, the dynamic loader included), which scatters far less
// than the clock on a busy machine. See bench/README.md for the figures of the last run.

#include "HostApp.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 700;

// In a child: writes "painted" once the first paint of a main window has been done, and ends
// the program.
class FirstPaint : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!m_done && event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched)) {
            m_done = true;
            // After the paint event has been handled in full.
            QTimer::singleShot(0, qApp, [] {
                timespec cpu{};
                clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &cpu);
                std::printf("painted %.3f\n",
                            static_cast<double>(cpu.tv_sec) * 1e3 + cpu.tv_nsec / 1e6);
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
        }
        return false;
    }

private:
    bool m_done = false;
};

bool g_watchFirstPaint = false;

// Runs as the application object is made, in the child that is timed.
void InstallFirstPaint() {
    if (g_watchFirstPaint)
        qApp->installEventFilter(new FirstPaint(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(InstallFirstPaint)

int BareWindow(int argc, char** argv, bool blnWithText) {
    QApplication app(argc, argv);
    QMainWindow window;
    if (blnWithText)
        window.setCentralWidget(new QLabel(QStringLiteral("Corvantis")));
    window.resize(kWidth, kHeight);
    window.show();
    return QApplication::exec();
}

struct Times {
    double clock = std::numeric_limits<double>::infinity();
    double cpu = std::numeric_limits<double>::infinity();
};

// Starts this program as a child with one argument in the given folders; the milliseconds
// until it reported its first paint and the processor time it had used then, or infinity.
Times TimeChild(const QString& strMode, const QString& strHome) {
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("HOME", strHome);
    env.insert("XDG_DATA_HOME", strHome + "/data");
    env.insert("XDG_CONFIG_HOME", strHome + "/config");
    env.insert("XDG_CACHE_HOME", strHome + "/cache");
    env.insert("CORVANTIS_INI_DIR", strHome + "/ini");
    env.insert("CORVANTIS_TRACE", strHome + "/Corvantis.trace");
    if (!env.contains("QT_QPA_PLATFORM"))
        env.insert("QT_QPA_PLATFORM", "offscreen");
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    child.start(QCoreApplication::applicationFilePath(), {strMode});
    Times times;
    QByteArray output;
    while (child.waitForReadyRead(20000)) {
        output += child.readAll();
        const qsizetype at = output.indexOf("painted");
        if (at >= 0) {
            times.clock = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            if (output.indexOf('\n', at) < 0 && child.waitForReadyRead(2000))
                output += child.readAll();
            const QByteArray line = output.mid(at + 7).split('\n').value(0).trimmed();
            bool ok = false;
            const double cpu = line.toDouble(&ok);
            if (ok)
                times.cpu = cpu;
            break;
        }
    }
    if (!child.waitForFinished(10000)) {
        child.kill();
        child.waitForFinished();
    }
    return times;
}

double Best(const QList<Times>& values, double Times::*field) {
    double best = std::numeric_limits<double>::infinity();
    for (const Times& t : values)
        best = std::min(best, t.*field);
    return values.isEmpty() ? 0.0 : best;
}

struct Starts {
    QList<Times> bare, bareText, sample, first;
};

double Ratio(double value, double base) {
    return base > 0 ? value / base : 0.0;
}

// Each start beside both bare windows: the empty one and the one showing a line of text.
void PrintTable(const char* title, int runs, const Starts& starts, double Times::*field) {
    std::printf("%s, best of %d runs, milliseconds\n", title, runs);
    std::printf("%-36s %9s %9s %9s\n", "start", "time", "/ bare", "/ text");
    const double b = Best(starts.bare, field);
    const double bt = Best(starts.bareText, field);
    for (const auto& [name, list] :
         {std::pair{"bare Qt window", &starts.bare},
          std::pair{"bare Qt window, one line of text", &starts.bareText},
          std::pair{"Corvantis, sample database in place", &starts.sample},
          std::pair{"Corvantis, first start (builds it)", &starts.first}}) {
        const double t = Best(*list, field);
        std::printf("%-36s %9.1f %9.2f %9.2f\n", name, t, Ratio(t, b), Ratio(t, bt));
    }
}

} // namespace

int main(int argc, char** argv) {
    const QByteArray mode = argc > 1 ? QByteArray(argv[1]) : QByteArray();
    if (mode == "--bare" || mode == "--bare-text" || mode == "--app") {
        g_watchFirstPaint = true;
        if (mode != "--app")
            return BareWindow(1, argv, mode == "--bare-text");
        int appArgc = 1;
        return CorvantisMain(appArgc, argv);
    }
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 7;

    // Every later start uses one home whose sample database the first run builds.
    QTemporaryDir kept;
    TimeChild("--app", kept.path());
    Starts starts;
    for (int r = 0; r < runs; ++r) {
        QTemporaryDir bareHome;
        starts.bare << TimeChild("--bare", bareHome.path());
        QTemporaryDir bareTextHome;
        starts.bareText << TimeChild("--bare-text", bareTextHome.path());
        starts.sample << TimeChild("--app", kept.path());
        QTemporaryDir fresh;
        starts.first << TimeChild("--app", fresh.path());
    }
    bool built = false;
    for (QDirIterator it(kept.path() + "/data", {"Corvantis.pdb"}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext() && !built;)
        built = !it.next().isEmpty();
    PrintTable("start-up to the first painted main window (clock)", runs, starts, &Times::clock);
    PrintTable("processor time of the start when painted", runs, starts, &Times::cpu);
    if (!built)
        std::printf("(no sample database was found after the first start)\n");
    return 0;
}
