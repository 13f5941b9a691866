#include "TemplateFill.h"

#include "TemplateFiles.h"
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

#include <csignal>
#include <unistd.h>

// Writer converts headless in a profile folder of Corvantis's own: a Writer the user has open
// keeps its own profile and is not disturbed, and the profile is made only once (the first
// conversion takes longer). Writer runs in a process group of its own, so that a conversion that
// hangs is stopped with everything it started. While it runs the program repaints but takes no
// input.

namespace {
QString ProfileFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/Corvantis/writer-profile");
}

QString Failed(const QString& strError) {
    TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:TemplateFill: ") +
                                        strError);
    return strError;
}

// Waits for the process up to the limit; false when it is still running then.
bool WaitFor(QProcess& process, qint32 intTimeLimitSeconds) {
    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    limit.start(std::max<qint32>(intTimeLimitSeconds, 1) * 1000);
    if (process.state() != QProcess::NotRunning)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return process.state() == QProcess::NotRunning;
}

void Stop(QProcess& process) {
    const qint64 pid = process.processId();
    if (pid > 0)
        ::kill(-static_cast<pid_t>(pid), SIGKILL);
    process.kill();
    process.waitForFinished(5000);
}

bool MoveInto(const QString& strFrom, const QString& strTo) {
    QFile::remove(strTo);
    return QFile::rename(strFrom, strTo) || (QFile::copy(strFrom, strTo) && QFile::remove(strFrom));
}
} // namespace

namespace TemplateFill {

QString ConvertToPdf(const QString& strDocumentFile, const QString& strPdfFile,
                     qint32 intTimeLimitSeconds) {
    const QString strProgram = TemplateFiles::WriterProgram();
    if (strProgram.isEmpty())
        return Failed(TemplateFiles::WriterMissing());
    if (!QFileInfo(strDocumentFile).isFile())
        return Failed(QStringLiteral("The document %1 cannot be found.").arg(strDocumentFile));
    QTemporaryDir output;
    if (!output.isValid() || !QDir().mkpath(ProfileFolder()))
        return Failed(QStringLiteral("No folder could be made for converting the sheet."));
    QProcess process;
    process.setProgram(strProgram);
    process.setArguments(
        {QStringLiteral("-env:UserInstallation=") + QUrl::fromLocalFile(ProfileFolder()).toString(),
         QStringLiteral("--headless"), QStringLiteral("--norestore"),
         QStringLiteral("--convert-to"), QStringLiteral("pdf"), QStringLiteral("--outdir"),
         output.path(), strDocumentFile});
    process.setChildProcessModifier([] { ::setpgid(0, 0); });
    process.start();
    if (!process.waitForStarted())
        return Failed(QStringLiteral("LibreOffice Writer could not be started: %1")
                          .arg(process.errorString()));
    if (!WaitFor(process, intTimeLimitSeconds)) {
        Stop(process);
        // A Writer stopped mid-way may leave its profile locked or half made: the next
        // conversion makes a new one.
        QDir(ProfileFolder()).removeRecursively();
        return Failed(QStringLiteral("LibreOffice Writer did not finish the sheet within %1 "
                                     "seconds and was stopped.")
                          .arg(intTimeLimitSeconds));
    }
    const QString strMade =
        output.filePath(QFileInfo(strDocumentFile).completeBaseName() + QStringLiteral(".pdf"));
    if (!QFileInfo(strMade).isFile())
        return Failed(
            QStringLiteral("LibreOffice Writer made no PDF of %1: %2")
                .arg(strDocumentFile,
                     QString::fromLocal8Bit(process.readAllStandardError()).trimmed().right(300)));
    if (!MoveInto(strMade, strPdfFile))
        return Failed(QStringLiteral("The sheet cannot be written to %1.").arg(strPdfFile));
    return QString();
}

} // namespace TemplateFill
