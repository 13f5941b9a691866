#include "DataAccess.h"

#include "DataAccessCore.h"
#include "TemplateFiles.h"
#include "TemplateFill.h"
#include "TraceLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>

#include <unistd.h>

// The word processor is LibreOffice Writer. A template's document is an OpenDocument text
// template kept in the folder "Templates" beside the database; a new one starts as a copy of the
// shipped sheet of its kind, in the single-file (flat XML) form that Writer opens and saves as
// it is. Documents are handed to Writer through the launcher, which the controls
// route through their Platform so that tests record the launch instead of running it.

using P = DataAccessPrivate;

namespace {
DataAccess::DocumentLauncher& Launcher() {
    static DataAccess::DocumentLauncher launcher = [](const QString& strProgram,
                                                      const QString& strFile) {
        return QProcess::startDetached(strProgram, {strFile});
    };
    return launcher;
}

// The owner of a process, from the Uid line of its status; -1 when it cannot be read.
qint64 OwnerOf(const QString& strProcessFolder) {
    QFile status(strProcessFolder + QStringLiteral("/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("Uid:"))
            return line.mid(4).simplified().split(' ').value(0).toLongLong();
    return -1;
}

// True when the process's command line makes it a headless converter or gives it a profile
// folder of its own.
bool IsConverter(const QString& strProcessFolder) {
    QFile cmdline(strProcessFolder + QStringLiteral("/cmdline"));
    if (!cmdline.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& arg : cmdline.readAll().split('\0'))
        if (arg == "--headless" || arg.startsWith("-env:UserInstallation="))
            return true;
    return false;
}

// A new template starts as a copy of the shipped sheet of its kind, with the church filled in;
// its full name, or empty with strErrorMessage set.
QString WriteStartingDocument(bool blnServiceTemplate, QString& strErrorMessage,
                              const char* operation) {
    const QString strFolder = TemplateFiles::Folder();
    const QString strStamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString strPath;
    for (qint32 n = 1; strPath.isEmpty() || QFileInfo::exists(strPath); ++n)
        strPath = QStringLiteral("%1/Template-%2-%3.fodt").arg(strFolder, strStamp).arg(n);
    QString strError;
    if (!TemplateFiles::WritePersonalCopy(blnServiceTemplate ? QStringLiteral("ServiceSheet.fodt")
                                                             : QStringLiteral("SongSheet.fodt"),
                                          strPath, strError)) {
        P::Fail(strErrorMessage, operation, strError);
        return QString();
    }
    return strPath;
}

// The help document of the fields: a short flat text document, written again each time so
// that it always lists what this version knows.
QByteArray FieldsDocument() {
    QString strBody = QStringLiteral(
        "<text:h text:outline-level=\"1\">Fields a Corvantis template may hold</text:h>"
        "<text:p>In a template, choose Insert &gt; Field &gt; More Fields, the tab Variables, the "
        "type User Field, and give one of the names below (the value may stay empty). When a "
        "sheet is made from the template, Corvantis puts the value in place of the field. Put "
        "the fields of a service's rows into one row of a table: that row is repeated for each "
        "row of the service. A picture frame named ChurchLogo shows the church's logo. Fields "
        "with other names are left as they are.</text:p>");
    for (const QString& strLine : TemplateFill::FieldList().split(QLatin1Char('\n'))) {
        if (strLine.isEmpty())
            continue;
        strBody += strLine.contains(QLatin1String(": "))
                       ? QStringLiteral("<text:p>%1</text:p>").arg(strLine.toHtmlEscaped())
                       : QStringLiteral("<text:h text:outline-level=\"2\">%1</text:h>")
                             .arg(strLine.toHtmlEscaped());
    }
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<office:document xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
               "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
               "office:version=\"1.3\" "
               "office:mimetype=\"application/vnd.oasis.opendocument.text\">"
               "<office:body><office:text>%1</office:text></office:body></office:document>\n")
        .arg(strBody)
        .toUtf8();
}

bool Launch(const QString& strFile, QString& strErrorMessage, const char* operation) {
    const QString strProgram = TemplateFiles::WriterProgram();
    if (strProgram.isEmpty()) {
        P::Fail(strErrorMessage, operation, TemplateFiles::WriterMissing());
        return false;
    }
    if (!Launcher()(strProgram, strFile)) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("LibreOffice Writer could not be started for %1.").arg(strFile));
        return false;
    }
    return true;
}
} // namespace

void DataAccess::SetDocumentLauncher(DocumentLauncher launcher) {
    if (launcher)
        Launcher() = std::move(launcher);
}

void DataAccess::IsWriterInstalled(bool& blnInstalled) {
    blnInstalled = !TemplateFiles::WriterProgram().isEmpty();
}

// A Writer of this user runs when a process of this user is named soffice (the starter) or
// soffice.bin (Writer itself), unless it converts documents out of sight: headless, or in a
// profile folder of its own (as sheets and presentations are converted), it is no Writer that
// the user's new template would open in.
void DataAccess::IsWordRunning(bool& blnIsRunning) {
    blnIsRunning = false;
    const qint64 lngUser = static_cast<qint64>(getuid());
    const QDir proc(QStringLiteral("/proc"));
    for (const QString& strEntry : proc.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool blnNumber = false;
        if (strEntry.toLongLong(&blnNumber) <= 0 || !blnNumber)
            continue;
        const QString strFolder = proc.filePath(strEntry);
        QFile comm(strFolder + QStringLiteral("/comm"));
        if (!comm.open(QIODevice::ReadOnly))
            continue;
        const QByteArray name = comm.readAll().trimmed();
        if ((name == "soffice" || name == "soffice.bin") && OwnerOf(strFolder) == lngUser &&
            !IsConverter(strFolder)) {
            blnIsRunning = true;
            return;
        }
    }
}

// Writer is checked first, so that nothing is created that the user could not open.
void DataAccess::NewTemplate(bool blnOpenDocument, QString& strErrorMessage,
                             qint32& lngNewTemplateID) {
    strErrorMessage.clear();
    lngNewTemplateID = 0;
    if (TemplateFiles::WriterProgram().isEmpty()) {
        P::Fail(strErrorMessage, "NewTemplate", TemplateFiles::WriterMissing());
        return;
    }
    const QString strPath = WriteStartingDocument(true, strErrorMessage, "NewTemplate");
    if (strPath.isEmpty())
        return;
    QString strAuthor = qEnvironmentVariable("USER");
    AddTemplate(QString(), QString(), strAuthor, QString(), false, true, strPath, strErrorMessage,
                lngNewTemplateID);
    if (!strErrorMessage.isEmpty()) {
        QFile::remove(strPath);
        return;
    }
    if (blnOpenDocument)
        Launch(strPath, strErrorMessage, "NewTemplate");
}

void DataAccess::OpenTemplate(qint32 lngTemplateID, bool, const QString&, const QVariant&, bool,
                              QString& strErrorMessage, QVariant&) {
    OpenTemplate(lngTemplateID, strErrorMessage);
}

// A template without a document gets a starting document of its kind; a shipped one is copied
// to the templates folder when it is not there yet; a document that was deleted or moved is
// reported and nothing changes.
void DataAccess::OpenTemplate(qint32 lngTemplateID, QString& strErrorMessage) {
    strErrorMessage.clear();
    std::unique_ptr<Recordset> rs;
    if (!P::Ready(strErrorMessage, "OpenTemplate") ||
        !P::Select(QStringLiteral("SELECT TemplateFilename, IsServiceTemplate FROM Templates "
                                  "WHERE TemplateID = ?"),
                   {lngTemplateID}, strErrorMessage, "OpenTemplate", rs))
        return;
    if (rs->RecordCount() == 0) {
        P::Fail(strErrorMessage, "OpenTemplate",
                QStringLiteral("Template %1 does not exist.").arg(lngTemplateID));
        return;
    }
    if (TemplateFiles::WriterProgram().isEmpty()) {
        P::Fail(strErrorMessage, "OpenTemplate", TemplateFiles::WriterMissing());
        return;
    }
    rs->MoveFirst();
    const QString strStored = rs->Fields(QStringLiteral("TemplateFilename")).toString();
    QString strPath;
    if (strStored.isEmpty()) {
        strPath = WriteStartingDocument(rs->Fields(QStringLiteral("IsServiceTemplate")).toBool(),
                                        strErrorMessage, "OpenTemplate");
        if (strPath.isEmpty() ||
            !P::Exec(QStringLiteral("UPDATE Templates SET TemplateFilename = ? WHERE "
                                    "TemplateID = ?"),
                     {strPath, lngTemplateID}, strErrorMessage, "OpenTemplate"))
            return;
    } else {
        QString strError;
        strPath = TemplateFiles::Resolve(strStored, strError);
        if (strPath.isEmpty()) {
            P::Fail(strErrorMessage, "OpenTemplate", strError);
            return;
        }
        if (!QFileInfo(strPath).isFile()) {
            P::Fail(strErrorMessage, "OpenTemplate",
                    QStringLiteral("The document of this template cannot be found: %1. It may "
                                   "have been moved or deleted.")
                        .arg(strPath));
            return;
        }
    }
    Launch(strPath, strErrorMessage, "OpenTemplate");
}

// Writer has no browser buttons to add: instead the user gets a short document listing the
// fields a template may hold, opened in Writer beside the template.
void DataAccess::AddBrowserButtonsToWord(QString& strErrorMessage) {
    strErrorMessage.clear();
    if (TemplateFiles::WriterProgram().isEmpty()) {
        P::Fail(strErrorMessage, "AddBrowserButtonsToWord", TemplateFiles::WriterMissing());
        return;
    }
    const QString strFolder = TemplateFiles::Folder();
    const QString strPath = strFolder + QStringLiteral("/Template Fields.fodt");
    QSaveFile file(strPath);
    const QByteArray document = FieldsDocument();
    if (!QDir().mkpath(strFolder) || !file.open(QIODevice::WriteOnly) ||
        file.write(document) != document.size() || !file.commit()) {
        P::Fail(
            strErrorMessage, "AddBrowserButtonsToWord",
            QStringLiteral("The list of template fields cannot be written to %1.").arg(strPath));
        return;
    }
    Launch(strPath, strErrorMessage, "AddBrowserButtonsToWord");
}
