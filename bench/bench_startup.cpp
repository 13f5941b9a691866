// Benchmark of start-up: the time from starting the program to its main window painted for
// the first time, beside the same time for a bare Qt window, in the same run.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_startup [runs]
//
// Each start is a process of its own (this program again, with "--app" or "--bare"), timed
// from the moment it is started to the line it writes once its window has been painted; its
// settings, data and trace lie in folders of their own. Three kinds of start:
//
//   bare window     QApplication and an empty QMainWindow of the main window's size
//   with sample     Corvantis, the sample database already built (every later start)
//   first start     Corvantis without a settings file or a sample database: it builds the
//                   sample database before the window opens
//
// Every figure is the best of the runs (default 7) in milliseconds: on a shared machine the
// other work only ever adds time. See bench/README.md for the figures of the last run.

#include "HostApp.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
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
                std::printf("painted\n");
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

int BareWindow(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.resize(kWidth, kHeight);
    window.show();
    return QApplication::exec();
}

// Starts this program as a child with one argument in the given folders; the milliseconds
// until it reported its first paint, or infinity.
double TimeChild(const QString& strMode, const QString& strHome) {
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
    double ms = std::numeric_limits<double>::infinity();
    while (child.waitForReadyRead(20000)) {
        if (child.readAll().contains("painted")) {
            ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            break;
        }
    }
    if (!child.waitForFinished(10000)) {
        child.kill();
        child.waitForFinished();
    }
    return ms;
}

double Best(const QList<double>& values) {
    return values.isEmpty() ? 0.0 : *std::min_element(values.begin(), values.end());
}

} // namespace

int main(int argc, char** argv) {
    const QByteArray mode = argc > 1 ? QByteArray(argv[1]) : QByteArray();
    if (mode == "--bare" || mode == "--app") {
        g_watchFirstPaint = true;
        if (mode == "--bare")
            return BareWindow(1, argv);
        int appArgc = 1;
        return CorvantisMain(appArgc, argv);
    }
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 7;

    // Every later start uses one home whose sample database the first run builds.
    QTemporaryDir kept;
    TimeChild("--app", kept.path());
    QList<double> bare, sample, first;
    for (int r = 0; r < runs; ++r) {
        QTemporaryDir bareHome;
        bare << TimeChild("--bare", bareHome.path());
        sample << TimeChild("--app", kept.path());
        QTemporaryDir fresh;
        first << TimeChild("--app", fresh.path());
    }
    bool built = false;
    for (QDirIterator it(kept.path() + "/data", {"Corvantis.pdb"}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext() && !built;)
        built = !it.next().isEmpty();
    std::printf("start-up to the first painted main window, best of %d runs, milliseconds\n", runs);
    std::printf("%-36s %9s %9s\n", "start", "time", "/ bare");
    const double b = Best(bare);
    std::printf("%-36s %9.1f %9.2f\n", "bare Qt window", b, 1.0);
    std::printf("%-36s %9.1f %9.2f\n", "Corvantis, sample database in place", Best(sample),
                b > 0 ? Best(sample) / b : 0.0);
    std::printf("%-36s %9.1f %9.2f\n", "Corvantis, first start (builds it)", Best(first),
                b > 0 ? Best(first) / b : 0.0);
    if (!built)
        std::printf("(no sample database was found after the first start)\n");
    return 0;
}
