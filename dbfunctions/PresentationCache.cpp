#include "PresentationCache.h"

#include "DataAccess.h"
#include "OfficeConversion.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace PresentationCache {

namespace {
// The part of a kept PDF's name that comes from the presentation's path alone: all PDFs of
// one presentation start with it, so that older ones can be found and removed.
QString PathPart(const QFileInfo& info) {
    return QString::fromLatin1(
        QCryptographicHash::hash(info.absoluteFilePath().toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(24));
}

void RemoveOlderPdfs(const QFileInfo& info, const QString& strKeep) {
    const QDir folder(CacheFolder());
    const QStringList older =
        folder.entryList({PathPart(info) + QStringLiteral("-*.pdf")}, QDir::Files);
    for (const QString& strName : older)
        if (folder.filePath(strName) != strKeep)
            QFile::remove(folder.filePath(strName));
}
} // namespace

bool IsPresentation(const QString& strFile) {
    static const QStringList extensions = {QStringLiteral("ppt"), QStringLiteral("pptx"),
                                           QStringLiteral("pps"), QStringLiteral("ppsx"),
                                           QStringLiteral("odp")};
    return extensions.contains(QFileInfo(strFile).suffix().toLower());
}

QString NotAPresentationMessage(const QString& strFile) {
    return QStringLiteral("%1 is not a presentation. Corvantis shows PowerPoint (.ppt, .pptx, "
                          ".pps, .ppsx) and OpenDocument (.odp) presentations.")
        .arg(QFileInfo(strFile).fileName());
}

QString CacheFolder() {
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    return strFolder + QStringLiteral("Presentations");
}

QString PdfPathFor(const QString& strFile) {
    const QFileInfo info(strFile);
    if (strFile.isEmpty() || !info.isFile())
        return QString();
    const QString strName = QStringLiteral("%1-%2-%3.pdf")
                                .arg(PathPart(info))
                                .arg(info.size())
                                .arg(info.lastModified().toMSecsSinceEpoch());
    return QDir(CacheFolder()).filePath(strName);
}

QString FindPdf(const QString& strFile) {
    const QString strPdf = PdfPathFor(strFile);
    const QFileInfo pdf(strPdf);
    return !strPdf.isEmpty() && pdf.isFile() && pdf.size() > 0 ? strPdf : QString();
}

bool StartConversion(OfficeConverter& converter, const QString& strFile, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!strFile.isEmpty() && !IsPresentation(strFile)) {
        strErrorMessage = NotAPresentationMessage(strFile);
        return false;
    }
    return converter.Start(strFile, QStringLiteral("pdf"), strErrorMessage);
}

QString Store(const QString& strFile, const QString& strConvertedPdf, QString& strErrorMessage) {
    strErrorMessage.clear();
    const QString strTarget = PdfPathFor(strFile);
    if (strTarget.isEmpty()) {
        strErrorMessage = QStringLiteral("The file %1 cannot be found.").arg(strFile);
        return QString();
    }
    if (!QDir().mkpath(CacheFolder())) {
        strErrorMessage = QStringLiteral("The folder %1 cannot be created.").arg(CacheFolder());
        return QString();
    }
    // Copied beside its place first, so that a half-written PDF is never taken for a whole one.
    const QString strPartial = strTarget + QStringLiteral(".part");
    QFile::remove(strPartial);
    if (!QFile::copy(strConvertedPdf, strPartial)) {
        strErrorMessage =
            QStringLiteral("The converted presentation cannot be kept in %1.").arg(CacheFolder());
        return QString();
    }
    QFile::remove(strTarget);
    if (!QFile::rename(strPartial, strTarget)) {
        QFile::remove(strPartial);
        strErrorMessage =
            QStringLiteral("The converted presentation cannot be kept in %1.").arg(CacheFolder());
        return QString();
    }
    RemoveOlderPdfs(QFileInfo(strFile), strTarget);
    return strTarget;
}

QString PdfFor(const QString& strFile, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!strFile.isEmpty() && !IsPresentation(strFile)) {
        strErrorMessage = NotAPresentationMessage(strFile);
        return QString();
    }
    const QString strKept = FindPdf(strFile);
    if (!strKept.isEmpty())
        return strKept;
    OfficeConverter converter;
    QString strConverted;
    if (!converter.Convert(strFile, QStringLiteral("pdf"), strConverted, strErrorMessage))
        return QString();
    return Store(strFile, strConverted, strErrorMessage);
}

} // namespace PresentationCache
