#include "TemplateFill.h"

#include "OdfPackage.h"
#include "TemplateFiles.h"
#include "TemplateSheet.h"
#include "TraceLog.h"

#include <QFileInfo>
#include <QTemporaryDir>

// Filling a template: the values are read first, so that a service or item that does not exist
// is reported before any file is touched; the template itself is only read.

namespace TemplateFill {

namespace {
QString Traced(const QString& strError) {
    if (!strError.isEmpty())
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:TemplateFill: ") +
                                            strError);
    return strError;
}

bool ReadTemplate(const QString& strTemplateFile, OdfPackage& package, QString& strError) {
    if (!QFileInfo(strTemplateFile).isFile()) {
        strError = QStringLiteral("The template document cannot be found: %1. It may have been "
                                  "moved or deleted.")
                       .arg(strTemplateFile);
        return false;
    }
    return package.Read(strTemplateFile, strError);
}
} // namespace

QString FilledExtension(const QString& strTemplateFile, QString& strError) {
    OdfPackage package;
    if (!ReadTemplate(strTemplateFile, package, strError))
        return QString();
    return package.IsFlat() ? QStringLiteral("fodt") : QStringLiteral("odt");
}

QString FillFile(const QString& strTemplateFile, Subject subject, qint32 lngID,
                 const QString& strDocumentFile) {
    QString strError;
    TemplateSheet::Sheet sheet;
    if (!TemplateSheet::Read(subject, lngID, sheet, strError))
        return Traced(strError);
    OdfPackage package;
    if (!ReadTemplate(strTemplateFile, package, strError))
        return Traced(strError);
    for (const QString& strPart : package.XmlParts()) {
        QByteArray xml = package.Part(strPart);
        if (!TemplateSheet::FillXml(xml, sheet, false, strError))
            return Traced(QStringLiteral("The template file %1 cannot be filled: %2")
                              .arg(strTemplateFile, strError));
        package.SetPart(strPart, xml);
    }
    package.Write(strDocumentFile, strError);
    return Traced(strError);
}

QString FileToPdf(const QString& strTemplateFile, Subject subject, qint32 lngID,
                  const QString& strPdfFile, qint32 intTimeLimitSeconds) {
    TraceLog::Instance().WriteTraceLine(
        QStringLiteral("QVLTDBFUNCTIONS:TemplateFill:FileToPdf: strTemplateFile = %1, %2 = %3, "
                       "strPdfFile = %4, ")
            .arg(strTemplateFile, subject == Subject::Service ? QStringLiteral("lngServiceID")
                                                              : QStringLiteral("lngServiceItemID"))
            .arg(lngID)
            .arg(strPdfFile));
    QString strError;
    const QString strExtension = FilledExtension(strTemplateFile, strError);
    if (strExtension.isEmpty())
        return Traced(strError);
    QTemporaryDir work;
    if (!work.isValid())
        return Traced(QStringLiteral("No temporary folder could be made for the sheet."));
    const QString strDocument =
        work.filePath(QFileInfo(strPdfFile).completeBaseName() + QLatin1Char('.') + strExtension);
    strError = FillFile(strTemplateFile, subject, lngID, strDocument);
    if (!strError.isEmpty())
        return strError;
    return ConvertToPdf(strDocument, strPdfFile, intTimeLimitSeconds);
}

QString TemplateToPdf(qint32 lngTemplateID, Subject subject, qint32 lngID,
                      const QString& strPdfFile, qint32 intTimeLimitSeconds) {
    QString strError;
    const QString strFile = TemplateFiles::OfTemplate(lngTemplateID, strError);
    if (strFile.isEmpty())
        return Traced(strError);
    return FileToPdf(strFile, subject, lngID, strPdfFile, intTimeLimitSeconds);
}

QString FieldList() {
    QStringList lines;
    for (const TemplateSheet::Group& group : TemplateSheet::Vocabulary()) {
        lines << QString::fromUtf8(group.title);
        for (const TemplateSheet::Field& field : group.fields)
            lines << QStringLiteral("%1: %2").arg(QLatin1String(field.name),
                                                  QString::fromUtf8(field.meaning));
        lines << QString();
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace TemplateFill
