#include "TemplateFill.h"

#include "TemplateFiles.h"
#include "TraceLog.h"

#include "OfficeConversion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

// A filled sheet is turned into PDF by the same headless LibreOffice run as every other
// conversion (OfficeConverter): a profile folder of Corvantis's own, so that a Writer the user
// has open is not disturbed, a process group of its own, so that a conversion that hangs is
// stopped with everything it started, and the program repainting but taking no input meanwhile.

namespace {
QString Failed(const QString& strError) {
    TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:TemplateFill: ") +
                                        strError);
    return strError;
}

bool MoveInto(const QString& strFrom, const QString& strTo) {
    QFile::remove(strTo);
    return QFile::rename(strFrom, strTo) || (QFile::copy(strFrom, strTo) && QFile::remove(strFrom));
}
} // namespace

namespace TemplateFill {

QString ConvertToPdf(const QString& strDocumentFile, const QString& strPdfFile,
                     qint32 intTimeLimitSeconds) {
    if (TemplateFiles::WriterProgram().isEmpty())
        return Failed(TemplateFiles::WriterMissing());
    if (!QFileInfo(strDocumentFile).isFile())
        return Failed(QStringLiteral("The document %1 cannot be found.").arg(strDocumentFile));
    OfficeConverter converter;
    converter.SetTimeLimit(std::max<qint32>(intTimeLimitSeconds, 1) * 1000);
    QString strMade;
    QString strError;
    if (!converter.Convert(strDocumentFile, QStringLiteral("pdf"), strMade, strError)) {
        if (!converter.StoppedAtTimeLimit())
            return Failed(strError);
        // A Writer stopped mid-way may leave its profile locked or half made: the next
        // conversion makes a new one.
        QDir(OfficeConverter::ProfileFolder()).removeRecursively();
        return Failed(QStringLiteral("LibreOffice Writer did not finish the sheet within %1 "
                                     "seconds and was stopped.")
                          .arg(intTimeLimitSeconds));
    }
    if (!MoveInto(strMade, strPdfFile))
        return Failed(QStringLiteral("The sheet cannot be written to %1.").arg(strPdfFile));
    return QString();
}

} // namespace TemplateFill
