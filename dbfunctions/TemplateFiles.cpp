#include "TemplateFiles.h"

#include "DataAccess.h"
#include "DataAccessCore.h"
#include "TemplateSheet.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

using P = DataAccessPrivate;

namespace {
QString ShippedResource(const QString& strName) {
    return QStringLiteral(":/dbfunctions/templates/") + strName;
}
} // namespace

namespace TemplateFiles {

QString Folder() {
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    return strFolder + QStringLiteral("Templates");
}

QString WriterProgram() {
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString strPath = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!strPath.isEmpty())
            return strPath;
    }
    return QString();
}

QString WriterMissing() {
    return QStringLiteral("LibreOffice Writer cannot be found on this computer. Install "
                          "LibreOffice Writer (the package libreoffice-writer) to create, edit "
                          "and print templates.");
}

bool IsShipped(const QString& strStored) {
    return !strStored.isEmpty() && !strStored.contains(QLatin1Char('/')) &&
           QFile::exists(ShippedResource(strStored));
}

QByteArray Shipped(const QString& strName) {
    QFile file(ShippedResource(strName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WritePersonalCopy(const QString& strName, const QString& strTarget, QString& strError) {
    QByteArray xml = Shipped(strName);
    TemplateSheet::Sheet sheet;
    if (xml.isEmpty()) {
        strError = QStringLiteral("The template %1 is missing from the program.").arg(strName);
        return false;
    }
    if (!TemplateSheet::ReadChurch(sheet, strError) ||
        !TemplateSheet::FillXml(xml, sheet, true, strError))
        return false;
    if (!QDir().mkpath(QFileInfo(strTarget).absolutePath())) {
        strError = QStringLiteral("The folder %1 cannot be created.")
                       .arg(QFileInfo(strTarget).absolutePath());
        return false;
    }
    QSaveFile file(strTarget);
    if (!file.open(QIODevice::WriteOnly) || file.write(xml) != xml.size() || !file.commit()) {
        strError = QStringLiteral("The template document %1 cannot be written: %2")
                       .arg(strTarget, file.errorString());
        return false;
    }
    return true;
}

QString Resolve(const QString& strStored, QString& strError) {
    if (!IsShipped(strStored))
        return strStored;
    const QString strTarget = Folder() + QLatin1Char('/') + strStored;
    if (QFileInfo(strTarget).isFile() || WritePersonalCopy(strStored, strTarget, strError))
        return strTarget;
    return QString();
}

QString OfTemplate(qint32 lngTemplateID, QString& strError) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE TemplateID = ?"),
                   {lngTemplateID}, strError, "FillTemplate", rs))
        return QString();
    if (rs->RecordCount() == 0) {
        strError = QStringLiteral("Template %1 does not exist.").arg(lngTemplateID);
        return QString();
    }
    rs->MoveFirst();
    const QString strStored = rs->Fields(QStringLiteral("TemplateFilename")).toString();
    if (strStored.isEmpty()) {
        strError = QStringLiteral("Template %1 has no document yet: open it once in Writer to "
                                  "make one.")
                       .arg(lngTemplateID);
        return QString();
    }
    const QString strFile = Resolve(strStored, strError);
    if (strFile.isEmpty())
        return QString();
    if (!QFileInfo(strFile).isFile()) {
        strError = QStringLiteral("The document of this template cannot be found: %1. It may "
                                  "have been moved or deleted.")
                       .arg(strFile);
        return QString();
    }
    return strFile;
}

} // namespace TemplateFiles
