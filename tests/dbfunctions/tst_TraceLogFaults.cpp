// The trace log under faults: a pipe that nobody reads never holds the program, and a full log
// that cannot be rotated stops growing and says so once.

#include "TraceLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>

#include <sys/stat.h>

namespace {
QString ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}
} // namespace

class tst_TraceLogFaults : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_saved;
    qint64 m_savedSize = 0;

private slots:
    void init() {
        m_saved = qEnvironmentVariable("CORVANTIS_TRACE");
        m_savedSize = TraceLog::Instance().MaximumSize();
    }
    void cleanup() {
        qputenv("CORVANTIS_TRACE", m_saved.toUtf8());
        TraceLog::Instance().SetMaximumSize(m_savedSize);
    }

    void pipeWithoutReaderDoesNotHoldTheProgram() {
        const QString pipe = m_dir.path() + "/pipe.trace";
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        qputenv("CORVANTIS_TRACE", pipe.toUtf8());
        // On a thread of its own, so that a write that waited for a reader would fail this
        // test rather than hold the suite.
        auto done = std::make_shared<std::atomic<bool>>(false);
        std::thread([done] {
            TraceLog::Instance().WriteErrorLine("QVLTDBFUNCTIONS:Test: a line nobody reads");
            TraceLog::Instance().WriteTraceLine("QVLTDBFUNCTIONS:Test: another");
            *done = true;
        }).detach();
        QTRY_VERIFY_WITH_TIMEOUT(*done, 20000);
    }

    void fullLogThatCannotBeRotatedStopsGrowingAndSaysSoOnce() {
        const QString path = m_dir.path() + "/full.trace";
        qputenv("CORVANTIS_TRACE", path.toUtf8());
        // A folder in the way of the rotated file: neither removed nor replaced by a rename.
        QVERIFY(QDir().mkpath(path + ".1"));
        QFile blocker(path + ".1/keep");
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        TraceLog::Instance().SetMaximumSize(1000);
        const QString line = QString(49, 'x');
        for (int i = 0; i < 200; ++i)
            TraceLog::Instance().WriteTraceLine(line);
        const QString text = ReadFile(path);
        QCOMPARE(text.count("cannot be renamed to " + path + ".1"), 1);
        QVERIFY2(QFileInfo(path).size() < 1000 + 50 + 300,
                 qPrintable(QString::number(text.size())));
        QVERIFY(text.startsWith(line + "\n"));
        // Once the way is free, the log rotates and takes lines again.
        QVERIFY(QDir(path + ".1").removeRecursively());
        TraceLog::Instance().WriteTraceLine("after");
        QCOMPARE(ReadFile(path), QString("after\n"));
        QVERIFY(ReadFile(path + ".1").contains("cannot be renamed"));
    }
};

QTEST_GUILESS_MAIN(tst_TraceLogFaults)
#include "tst_TraceLogFaults.moc"
