#pragma once

// A stand-in for LibreOffice Writer in the template suites: a folder put at the
// front of PATH holding an executable "soffice" that does nothing, so that the
// data library finds a word processor. Launches go through ScriptedPlatform,
// which records them and runs nothing.
//
// RunningWriter starts a process of this user named soffice (a waiting script),
// which is what the word processor's running test looks for; it is ended when
// the object goes.

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class FakeWriter {
public:
    FakeWriter() : m_oldPath(qgetenv("PATH")) {
        const QString strProgram = m_dir.path() + QStringLiteral("/soffice");
        QFile file(strProgram);
        m_valid = m_dir.isValid() && file.open(QIODevice::WriteOnly) &&
                  file.write("#!/bin/sh\nexit 0\n") > 0;
        file.close();
        m_valid =
            m_valid && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", m_dir.path().toLocal8Bit() + ":" + m_oldPath);
    }
    ~FakeWriter() { qputenv("PATH", m_oldPath); }
    FakeWriter(const FakeWriter&) = delete;
    FakeWriter& operator=(const FakeWriter&) = delete;
    bool IsValid() const { return m_valid; }
    QString Program() const { return m_dir.path() + QStringLiteral("/soffice"); }

private:
    QTemporaryDir m_dir;
    QByteArray m_oldPath;
    bool m_valid = false;
};

class RunningWriter {
public:
    // The process is a shell script named soffice that waits, started with the given
    // arguments, so that a converter's command line can be imitated too.
    explicit RunningWriter(const QStringList& lstArguments = {}) {
        const QString strProgram = m_dir.path() + QStringLiteral("/soffice");
        QFile file(strProgram);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write("#!/bin/sh\nwhile :; do sleep 1; done\n") <= 0)
            return;
        file.close();
        if (!file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            return;
        m_process.start(strProgram, lstArguments);
        m_started = m_process.waitForStarted();
    }
    ~RunningWriter() { Stop(); }
    void Stop() {
        if (m_started) {
            m_process.kill();
            m_process.waitForFinished();
            m_started = false;
        }
    }
    RunningWriter(const RunningWriter&) = delete;
    RunningWriter& operator=(const RunningWriter&) = delete;
    bool IsRunning() const { return m_started; }

private:
    QTemporaryDir m_dir;
    QProcess m_process;
    bool m_started = false;
};
