// The trace log: where lines go, the error prefix, and the size cap with one rotated file.

#include "ChangeStamps.h"
#include "Settings.h"
#include "TraceLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {
QString ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}
} // namespace

class tst_TraceLog : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_saved;
    QString m_savedIniDir;

private slots:
    void init() {
        m_saved = qEnvironmentVariable("CORVANTIS_TRACE");
        m_savedIniDir = qEnvironmentVariable("CORVANTIS_INI_DIR");
        qputenv("CORVANTIS_TRACE", (m_dir.path() + "/Test.trace").toUtf8());
        QFile::remove(m_dir.path() + "/Test.trace");
        QFile::remove(m_dir.path() + "/Test.trace.1");
        TraceLog::Instance().SetMaximumSize(5 * 1024 * 1024);
    }
    void cleanup() {
        qputenv("CORVANTIS_TRACE", m_saved.toUtf8());
        qputenv("CORVANTIS_INI_DIR", m_savedIniDir.toUtf8());
    }

    void traceLineIsWrittenAsItIs() {
        const QString line =
            "QVLTCONTROLS:ctlRun:ShowSIAsRunning @ 29/10/03, 19:05:12: lngSIID = 5, ";
        TraceLog::Instance().WriteTraceLine(line);
        QCOMPARE(ReadFile(m_dir.path() + "/Test.trace"), line + "\n");
    }

    void errorLineGetsTheErrorPrefix() {
        TraceLog::Instance().WriteErrorLine("RunningService: broken");
        QCOMPARE(ReadFile(m_dir.path() + "/Test.trace"),
                 QString("ERROR: RunningService: broken\n"));
    }

    void linesAreAppendedInOrder() {
        TraceLog::Instance().WriteTraceLine("one");
        TraceLog::Instance().WriteErrorLine("two");
        TraceLog::Instance().WriteTraceLine("three");
        QCOMPARE(ReadFile(m_dir.path() + "/Test.trace"), QString("one\nERROR: two\nthree\n"));
    }

    void fileRemovedBetweenLinesIsMadeAgain() {
        const QString path = m_dir.path() + "/Test.trace";
        TraceLog::Instance().WriteTraceLine("before");
        QVERIFY(QFile::remove(path));
        TraceLog::Instance().WriteTraceLine("after");
        QCOMPARE(ReadFile(path), QString("after\n"));
    }

    void fileReplacedUnderTheSameNameGetsTheNextLine() {
        const QString path = m_dir.path() + "/Test.trace";
        TraceLog::Instance().WriteTraceLine("first");
        QVERIFY(QFile::rename(path, path + ".old"));
        QFile replacement(path);
        QVERIFY(replacement.open(QIODevice::WriteOnly));
        replacement.write("new file\n");
        replacement.close();
        TraceLog::Instance().WriteTraceLine("second");
        QCOMPARE(ReadFile(path), QString("new file\nsecond\n"));
        QCOMPARE(ReadFile(path + ".old"), QString("first\n"));
    }

    void emptiedFileTakesTheNextLineAtItsStart() {
        const QString path = m_dir.path() + "/Test.trace";
        TraceLog::Instance().WriteTraceLine("a long line that is emptied away");
        QVERIFY(QFile(path).resize(0));
        TraceLog::Instance().WriteTraceLine("next");
        QCOMPARE(ReadFile(path), QString("next\n"));
    }

    void anotherPathTakesTheLinesFromTheNextOn() {
        const QString first = m_dir.path() + "/Test.trace";
        const QString second = m_dir.path() + "/Other.trace";
        QFile::remove(second);
        TraceLog::Instance().WriteTraceLine("to the first");
        qputenv("CORVANTIS_TRACE", second.toUtf8());
        TraceLog::Instance().WriteTraceLine("to the second");
        qputenv("CORVANTIS_TRACE", first.toUtf8());
        TraceLog::Instance().WriteTraceLine("to the first again");
        QCOMPARE(ReadFile(first), QString("to the first\nto the first again\n"));
        QCOMPARE(ReadFile(second), QString("to the second\n"));
    }

    void fullFileIsRotatedOnceAndANewOneStarted() {
        TraceLog::Instance().SetMaximumSize(100);
        for (int i = 0; i < 30; ++i)
            TraceLog::Instance().WriteTraceLine(QStringLiteral("line %1 of the trace").arg(i));
        const QString current = ReadFile(m_dir.path() + "/Test.trace");
        const QString rotated = ReadFile(m_dir.path() + "/Test.trace.1");
        QVERIFY(current.endsWith("line 29 of the trace\n"));
        QVERIFY(!rotated.isEmpty());
        QVERIFY(QFileInfo(m_dir.path() + "/Test.trace").size() <= 100 + 40);
        QVERIFY(!QFile::exists(m_dir.path() + "/Test.trace.2"));
    }

    void withoutTheVariableTheFileIsInTheDataFolder() {
        qunsetenv("CORVANTIS_TRACE");
        QCOMPARE(TraceLog::Instance().FilePath(), Settings::DataFolder() + "/Corvantis.trace");
    }

    // The data folder is kept between lines; each way the settings file can change still moves
    // the next line: this program's own write, the file rewritten in place by hand, and the
    // file replaced by another program with one of the same size.
    void changedDataFolderSettingMovesTheNextTraceLine() {
        qputenv("CORVANTIS_INI_DIR", m_dir.path().toUtf8());
        qunsetenv("CORVANTIS_TRACE");
        const QString ini = Settings::IniPath();
        const QStringList folders = {m_dir.path() + "/a", m_dir.path() + "/b", m_dir.path() + "/cc",
                                     m_dir.path() + "/dd"};
        for (const QString& folder : folders)
            QVERIFY(QDir().mkpath(folder));
        const auto lineIn = [](const QString& folder) {
            return ReadFile(folder + "/Corvantis.trace");
        };

        QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", folders[0]));
        TraceLog::Instance().WriteTraceLine("first");
        QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", folders[1]));
        TraceLog::Instance().WriteTraceLine("second");
        {
            QFile file(ini);
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(("[Paths]\nData=" + folders[2] + "\n").toUtf8());
        }
        TraceLog::Instance().WriteTraceLine("third");
        {
            QFile file(ini + ".new");
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(("[Paths]\nData=" + folders[3] + "\n").toUtf8());
            file.close();
            QVERIFY(::rename(QFile::encodeName(ini + ".new").constData(),
                             QFile::encodeName(ini).constData()) == 0);
        }
        TraceLog::Instance().WriteTraceLine("fourth");

        QCOMPARE(lineIn(folders[0]), QString("first\n"));
        QCOMPARE(lineIn(folders[1]), QString("second\n"));
        QCOMPARE(lineIn(folders[2]), QString("third\n"));
        QCOMPARE(lineIn(folders[3]), QString("fourth\n"));
    }

    // While one action of the operator is answered the trace file is looked at once: its lines
    // all reach that file, and a file another program removed meanwhile is made again at the
    // first line of the next action.
    void duringOneActionTheLinesGoToTheFileLookedAtFirst() {
        const QString path = m_dir.path() + "/Test.trace";
        {
            const DatabaseStampHeld action;
            TraceLog::Instance().WriteTraceLine("cmdForward_Click");
            TraceLog::Instance().WriteTraceLine("ShowServiceSIAsRunning");
            TraceLog::Instance().WriteTraceLine("ShowSIAsRunning");
        }
        QCOMPARE(ReadFile(path),
                 QString("cmdForward_Click\nShowServiceSIAsRunning\nShowSIAsRunning\n"));
        {
            const DatabaseStampHeld action;
            TraceLog::Instance().WriteTraceLine("first of the action");
            QVERIFY(QFile::remove(path));
        }
        {
            const DatabaseStampHeld next;
            TraceLog::Instance().WriteTraceLine("next action");
        }
        QCOMPARE(ReadFile(path), QString("next action\n"));
    }

    // The settings file, too, is looked at once per action: a data folder set by hand meanwhile
    // moves the trace at the next action, one set by this program at once.
    void dataFolderChangedDuringAnActionMovesTheTraceByWhoChangedIt() {
        qputenv("CORVANTIS_INI_DIR", m_dir.path().toUtf8());
        qunsetenv("CORVANTIS_TRACE");
        const QStringList folders = {m_dir.path() + "/h1", m_dir.path() + "/h2",
                                     m_dir.path() + "/h3"};
        for (const QString& folder : folders)
            QVERIFY(QDir().mkpath(folder));
        QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", folders[0]));
        {
            const DatabaseStampHeld action;
            TraceLog::Instance().WriteTraceLine("one");
            QFile file(Settings::IniPath());
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(("[Paths]\nData=" + folders[1] + "\n").toUtf8());
            file.close();
            TraceLog::Instance().WriteTraceLine("two");
        }
        {
            const DatabaseStampHeld action;
            TraceLog::Instance().WriteTraceLine("three");
            QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", folders[2]));
            TraceLog::Instance().WriteTraceLine("four");
        }
        QCOMPARE(ReadFile(folders[0] + "/Corvantis.trace"), QString("one\ntwo\n"));
        QCOMPARE(ReadFile(folders[1] + "/Corvantis.trace"), QString("three\n"));
        QCOMPARE(ReadFile(folders[2] + "/Corvantis.trace"), QString("four\n"));
    }

    void unwritableFileLosesTheLineAndNothingElse() {
        qputenv("CORVANTIS_TRACE", "/proc/no/such/folder/x.trace");
        TraceLog::Instance().WriteErrorLine("nowhere to go");
        TraceLog::Instance().WriteTraceLine("nor this");
        QVERIFY(true); // reaching here is the point: nothing was thrown
    }
};

QTEST_GUILESS_MAIN(tst_TraceLog)
#include "tst_TraceLog.moc"
