#include "DataAccess.h"

#include "DataAccessCore.h"
#include "TraceLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <unistd.h>

// The word processor is LibreOffice Writer. A template's document is an OpenDocument text
// template kept in the folder "Templates" beside the database; a new one is written from a
// starting document of our own, in the single-file (flat XML) form that Writer opens and
// saves as it is. Documents are handed to Writer through the launcher, which the controls
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

// Writer's program on the PATH: soffice, else libreoffice; empty when neither is there.
QString WriterProgram() {
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString strPath = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!strPath.isEmpty())
            return strPath;
    }
    return QString();
}

const QString kWriterMissing =
    QStringLiteral("LibreOffice Writer cannot be found on this computer. Install LibreOffice "
                   "Writer (the package libreoffice-writer) to create and edit templates.");

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

QString Escaped(const QString& strText) {
    return strText.toHtmlEscaped();
}

// The church's name and address from the options, for the starting document's header.
QStringList ChurchLines() {
    QString ignored;
    QStringList lines;
    for (const char* column :
         {"ChurchName", "ChurchAddress1", "ChurchAddress2", "ChurchAddress3"}) {
        const QVariant value =
            P::Scalar(QStringLiteral("SELECT %1 FROM Options LIMIT 1").arg(QLatin1String(column)),
                      {}, ignored, "NewTemplate");
        if (!value.isNull() && !value.toString().trimmed().isEmpty())
            lines << value.toString();
    }
    return lines;
}

// The starting document: the church in the header, then the fields a service sheet fills
// (user fields a user can insert again from Insert > Field > More Fields > Variables).
QByteArray StartingDocument(const QStringList& lstChurch) {
    static const char* const fields[] = {"ServiceName", "ServiceTheme", "ServiceDate",
                                         "ServiceRows"};
    QString strDecls;
    QString strBody;
    for (const char* field : fields) {
        const QString strName = QString::fromLatin1(field);
        strDecls += QStringLiteral("<text:user-field-decl office:value-type=\"string\" "
                                   "office:string-value=\"\" text:name=\"%1\"/>")
                        .arg(strName);
        strBody += QStringLiteral("<text:p>%1: <text:user-field-get text:name=\"%1\"/></text:p>")
                       .arg(strName);
    }
    QString strHeader;
    for (const QString& strLine : lstChurch)
        strHeader += QStringLiteral("<text:p>%1</text:p>").arg(Escaped(strLine));
    const QString strDocument =
        QStringLiteral(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<office:document xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
            "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
            "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
            "xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\" "
            "office:version=\"1.3\" "
            "office:mimetype=\"application/vnd.oasis.opendocument.text-template\">"
            "<office:master-styles><style:master-page style:name=\"Standard\">"
            "<style:header>%1</style:header></style:master-page></office:master-styles>"
            "<office:body><office:text><text:user-field-decls>%2</text:user-field-decls>%3"
            "</office:text></office:body></office:document>\n")
            .arg(strHeader, strDecls, strBody);
    return strDocument.toUtf8();
}

QString TemplatesFolder() {
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    return strFolder + QStringLiteral("Templates");
}

// Writes a new starting document into the templates folder; its full name, or empty with
// strErrorMessage set.
QString WriteStartingDocument(QString& strErrorMessage) {
    const QString strFolder = TemplatesFolder();
    if (!QDir().mkpath(strFolder)) {
        P::Fail(strErrorMessage, "NewTemplate",
                QStringLiteral("The folder %1 cannot be created.").arg(strFolder));
        return QString();
    }
    const QString strStamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString strPath;
    for (qint32 n = 1; strPath.isEmpty() || QFileInfo::exists(strPath); ++n)
        strPath = QStringLiteral("%1/Template-%2-%3.fott").arg(strFolder, strStamp).arg(n);
    QFile file(strPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(StartingDocument(ChurchLines())) < 0) {
        P::Fail(strErrorMessage, "NewTemplate",
                QStringLiteral("The template document %1 cannot be written: %2")
                    .arg(strPath, file.errorString()));
        return QString();
    }
    return strPath;
}

bool Launch(const QString& strFile, QString& strErrorMessage, const char* operation) {
    const QString strProgram = WriterProgram();
    if (strProgram.isEmpty()) {
        P::Fail(strErrorMessage, operation, kWriterMissing);
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
    blnInstalled = !WriterProgram().isEmpty();
}

// A Writer of this user runs when a process of this user is named soffice (the starter) or
// soffice.bin (Writer itself).
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
        if ((name == "soffice" || name == "soffice.bin") && OwnerOf(strFolder) == lngUser) {
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
    if (WriterProgram().isEmpty()) {
        P::Fail(strErrorMessage, "NewTemplate", kWriterMissing);
        return;
    }
    const QString strPath = WriteStartingDocument(strErrorMessage);
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

// A template without a document gets a starting document; a document that was deleted or
// moved is reported and nothing changes.
void DataAccess::OpenTemplate(qint32 lngTemplateID, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!P::Ready(strErrorMessage, "OpenTemplate"))
        return;
    const qint32 lngCount = P::Scalar(QStringLiteral("SELECT COUNT(*) FROM Templates WHERE "
                                                     "TemplateID = ?"),
                                      {lngTemplateID}, strErrorMessage, "OpenTemplate")
                                .toInt();
    if (!strErrorMessage.isEmpty())
        return;
    if (lngCount == 0) {
        P::Fail(strErrorMessage, "OpenTemplate",
                QStringLiteral("Template %1 does not exist.").arg(lngTemplateID));
        return;
    }
    if (WriterProgram().isEmpty()) {
        P::Fail(strErrorMessage, "OpenTemplate", kWriterMissing);
        return;
    }
    QString strPath = P::Scalar(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE "
                                               "TemplateID = ?"),
                                {lngTemplateID}, strErrorMessage, "OpenTemplate")
                          .toString();
    if (!strErrorMessage.isEmpty())
        return;
    if (strPath.isEmpty()) {
        strPath = WriteStartingDocument(strErrorMessage);
        if (strPath.isEmpty() ||
            !P::Exec(QStringLiteral("UPDATE Templates SET TemplateFilename = ? WHERE "
                                    "TemplateID = ?"),
                     {strPath, lngTemplateID}, strErrorMessage, "OpenTemplate"))
            return;
    } else if (!QFileInfo(strPath).isFile()) {
        P::Fail(strErrorMessage, "OpenTemplate",
                QStringLiteral("The document of this template cannot be found: %1. It may have "
                               "been moved or deleted.")
                    .arg(strPath));
        return;
    }
    Launch(strPath, strErrorMessage, "OpenTemplate");
}
