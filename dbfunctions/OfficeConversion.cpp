#include "OfficeConversion.h"

#include "DataAccess.h"
#include "TraceLog.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <signal.h>
#include <unistd.h>

namespace {
qint32& defaultTimeLimit() {
    static qint32 lngLimit = 120000;
    return lngLimit;
}

OfficeConverter::StartObserver& startObserver() {
    static OfficeConverter::StartObserver observer;
    return observer;
}

// The extension LibreOffice gives the converted file: the format up to its filter name.
QString OutputExtension(const QString& strFormat) {
    return strFormat.section(QLatin1Char(':'), 0, 0).trimmed().toLower();
}

void Trace(const QString& strLine) {
    TraceLog::Instance().WriteTraceLine(QStringLiteral("QVLTDBFUNCTIONS:OfficeConverter:") +
                                        strLine);
}
} // namespace

OfficeConverter::OfficeConverter(QObject* parent)
    : QObject(parent), m_timeLimit(defaultTimeLimit()), tmrLimit(new QTimer(this)) {
    tmrLimit->setObjectName(QStringLiteral("tmrLimit"));
    tmrLimit->setSingleShot(true);
    connect(tmrLimit, &QTimer::timeout, this, &OfficeConverter::tmrLimit_Timeout);
}

OfficeConverter::~OfficeConverter() {
    if (m_running) {
        m_stopReason = QStringLiteral("stopped");
        EndProcess();
    }
}

QString OfficeConverter::OfficeProgram() {
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString strPath = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!strPath.isEmpty())
            return strPath;
    }
    return QString();
}

QString OfficeConverter::MissingOfficeMessage() {
    return QStringLiteral(
        "LibreOffice cannot be found on this computer, so documents and presentations cannot "
        "be opened. Install LibreOffice Writer and Impress (the packages libreoffice-writer and "
        "libreoffice-impress) and try again.");
}

QString OfficeConverter::ProfileFolder() {
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    return strFolder + QStringLiteral("OfficeProfile");
}

qint32 OfficeConverter::DefaultTimeLimit() {
    return defaultTimeLimit();
}

void OfficeConverter::SetDefaultTimeLimit(qint32 lngMilliseconds) {
    defaultTimeLimit() = qMax(1, lngMilliseconds);
}

void OfficeConverter::SetStartObserver(StartObserver observer) {
    startObserver() = std::move(observer);
}

bool OfficeConverter::IsRunning() const {
    return m_running;
}

QString OfficeConverter::WorkFolder() const {
    return m_work ? m_work->path() : QString();
}

// A fresh work folder holding the file under the name "source" and its extension, and an
// empty folder "out" for LibreOffice's result.
bool OfficeConverter::PrepareWork(const QString& strFile, QString& strSource,
                                  QString& strErrorMessage) {
    m_work = std::make_unique<QTemporaryDir>(QDir::tempPath() +
                                             QStringLiteral("/corvantis-office-XXXXXX"));
    if (!m_work->isValid() || !QDir(m_work->path()).mkdir(QStringLiteral("out"))) {
        strErrorMessage = QStringLiteral("A work folder for LibreOffice cannot be made in %1.")
                              .arg(QDir::tempPath());
        return false;
    }
    const QFileInfo info(strFile);
    strSource = m_work->filePath(QStringLiteral("source.") + info.suffix().toLower());
    if (!QFile::link(info.absoluteFilePath(), strSource) &&
        !QFile::copy(info.absoluteFilePath(), strSource)) {
        strErrorMessage = QStringLiteral("The file %1 cannot be read.").arg(strFile);
        return false;
    }
    return true;
}

QStringList OfficeConverter::Arguments(const QString& strSource, const QString& strFormat) const {
    return {QStringLiteral("-env:UserInstallation=") +
                QUrl::fromLocalFile(ProfileFolder()).toString(QUrl::FullyEncoded),
            QStringLiteral("--headless"),
            QStringLiteral("--norestore"),
            QStringLiteral("--nolockcheck"),
            QStringLiteral("--convert-to"),
            strFormat,
            QStringLiteral("--outdir"),
            m_work->filePath(QStringLiteral("out")),
            strSource};
}

bool OfficeConverter::Start(const QString& strFile, const QString& strFormat,
                            QString& strErrorMessage) {
    strErrorMessage.clear();
    if (m_running) {
        m_stopReason = QStringLiteral("replaced");
        EndProcess();
    }
    m_lastDone = false;
    m_lastOutput.clear();
    m_lastError.clear();
    m_stopReason.clear();
    m_file = strFile;
    const QFileInfo info(strFile);
    if (strFile.isEmpty() || !info.isFile())
        strErrorMessage = QStringLiteral("The file %1 cannot be found.").arg(strFile);
    else if (info.size() == 0)
        strErrorMessage = QStringLiteral("The file %1 is empty.").arg(strFile);
    const QString strProgram = OfficeProgram();
    if (strErrorMessage.isEmpty() && strProgram.isEmpty())
        strErrorMessage = MissingOfficeMessage();
    QString strSource;
    if (strErrorMessage.isEmpty())
        PrepareWork(strFile, strSource, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        m_lastError = strErrorMessage;
        return false;
    }
    m_outputFile = m_work->filePath(QStringLiteral("out/source.") + OutputExtension(strFormat));
    const QStringList args = Arguments(strSource, strFormat);
    if (startObserver())
        startObserver()(strProgram, args);
    Trace(QStringLiteral("Start: strFile = %1, strFormat = %2").arg(strFile, strFormat));

    m_process = new QProcess(this);
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    // A group of its own, so that Stop ends LibreOffice's helpers with it.
    m_process->setChildProcessModifier([] { ::setsid(); });
    connect(m_process, &QProcess::finished, this, &OfficeConverter::Process_Finished);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart && m_running)
            Report(false, QString(),
                   QStringLiteral("LibreOffice could not be started (%1): %2")
                       .arg(OfficeProgram(), m_process->errorString()));
    });
    m_running = true;
    tmrLimit->start(m_timeLimit);
    m_process->start(strProgram, args);
    return true;
}

void OfficeConverter::Process_Finished() {
    if (!m_running)
        return;
    const QFileInfo output(m_outputFile);
    if (output.isFile() && output.size() > 0) {
        Report(true, m_outputFile, QString());
        return;
    }
    const QString strSaid = QString::fromLocal8Bit(m_process->readAll()).trimmed();
    Trace(QStringLiteral("Failed: strFile = %1, LibreOffice said: %2").arg(m_file, strSaid));
    Report(false, QString(),
           QStringLiteral("LibreOffice could not convert %1. The file may be damaged, or it is "
                          "not a document of this kind.")
               .arg(QFileInfo(m_file).fileName()));
}

void OfficeConverter::tmrLimit_Timeout() {
    if (!m_running)
        return;
    m_stopReason = QStringLiteral("time");
    EndProcess();
}

void OfficeConverter::Stop() {
    if (!m_running)
        return;
    m_stopReason = QStringLiteral("stopped");
    EndProcess();
}

// Ends LibreOffice's whole process group and reports why.
void OfficeConverter::EndProcess() {
    tmrLimit->stop();
    if (m_process) {
        m_process->disconnect(this);
        const qint64 lngPid = m_process->processId();
        if (lngPid > 0)
            ::kill(-static_cast<pid_t>(lngPid), SIGKILL);
        m_process->kill();
        m_process->waitForFinished(5000);
    }
    const QString strName = QFileInfo(m_file).fileName();
    if (m_stopReason == QStringLiteral("time"))
        Report(false, QString(),
               QStringLiteral("LibreOffice took longer than %1 seconds to convert %2 and was "
                              "stopped. The file may be very large, or LibreOffice may have "
                              "stopped responding.")
                   .arg(qMax(1, m_timeLimit / 1000))
                   .arg(strName));
    else
        Report(false, QString(), QStringLiteral("The conversion of %1 was stopped.").arg(strName));
}

void OfficeConverter::Report(bool blnDone, const QString& strOutput, const QString& strError) {
    if (!m_running)
        return;
    m_running = false;
    tmrLimit->stop();
    if (m_process) {
        m_process->disconnect(this);
        m_process->deleteLater();
        m_process = nullptr;
    }
    m_lastDone = blnDone;
    m_lastOutput = strOutput;
    m_lastError = strError;
    if (!blnDone)
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:OfficeConverter: ") +
                                            strError);
    emit Finished(blnDone, strOutput, strError);
}

bool OfficeConverter::Wait(QString& strOutputFile, QString& strErrorMessage) {
    if (m_running) {
        QEventLoop loop;
        connect(this, &OfficeConverter::Finished, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    strOutputFile = m_lastOutput;
    strErrorMessage = m_lastError;
    return m_lastDone;
}

bool OfficeConverter::Convert(const QString& strFile, const QString& strFormat,
                              QString& strOutputFile, QString& strErrorMessage) {
    strOutputFile.clear();
    if (!Start(strFile, strFormat, strErrorMessage))
        return false;
    return Wait(strOutputFile, strErrorMessage);
}
