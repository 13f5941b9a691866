#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QFileInfo>

// Background images of an item, and the picture items that stand for picture files.

using P = DataAccessPrivate;

void DataAccess::GetServiceItemImages(qint32 lngServiceItemID, QString& strErrorMessage,
                                      std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::Select(QStringLiteral("SELECT %1 FROM ServiceItemImages i WHERE i.ServiceItemID = ? ORDER "
                             "BY i.Position, i.ServiceItemImageID")
                  .arg(P::Columns(
                      "i", "ServiceItemImages",
                      {"ImageServiceItemID", "ServiceItemID", "Position", "ServiceItemImageID"})),
              {lngServiceItemID}, strErrorMessage, "GetServiceItemImages", rs);
}

void DataAccess::DeleteServiceItemImages(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM ServiceItemImages WHERE ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "DeleteServiceItemImages");
}

void DataAccess::AddServiceItemImage(qint32 lngServiceItemID, qint32 lngImageServiceItemID,
                                     QString& strErrorMessage) {
    strErrorMessage.clear();
    WriteScope scope(strErrorMessage, "AddServiceItemImage");
    const qint32 position =
        P::NextPosition(QStringLiteral("ServiceItemImages"), QStringLiteral("ServiceItemID"),
                        lngServiceItemID, strErrorMessage, "AddServiceItemImage");
    if (scope.Ok() && strErrorMessage.isEmpty() &&
        P::Exec(QStringLiteral("INSERT INTO ServiceItemImages (ServiceItemID, Position, "
                               "ImageServiceItemID) VALUES (?, ?, ?)"),
                {lngServiceItemID, position, lngImageServiceItemID}, strErrorMessage,
                "AddServiceItemImage"))
        scope.Commit();
}

namespace {

// Finds the picture item (type 4 or 5) stored with this file name, or makes a type 4 item
// named after the file. 0 on failure (traced).
qint32 FindOrMakePicture(const QString& stored, const QString& fullPath, const char* operation) {
    QString error;
    if (stored.trimmed().isEmpty()) {
        P::Fail(error, operation, QStringLiteral("No file named."));
        return 0;
    }
    const QVariant found =
        P::Scalar(QStringLiteral("SELECT ServiceItemID FROM ServiceItems WHERE ServiceItemTypeID "
                                 "IN (4, 5) AND (ServiceItemFilename = ? OR ServiceItemFilename = "
                                 "?) ORDER BY ServiceItemID LIMIT 1"),
                  {stored, fullPath}, error, operation);
    if (!error.isEmpty())
        return 0;
    if (!found.isNull())
        return found.toInt();
    const QString name = QFileInfo(fullPath).fileName();
    if (!P::Exec(QStringLiteral("INSERT INTO ServiceItems (ServiceItemTypeID, "
                                "ServiceItemDescription, ServiceItemFilename, "
                                "ServiceItemFileDescription, ServiceItemDateCreated) VALUES (4, "
                                "?, ?, ?, ?)"),
                 {QFileInfo(fullPath).completeBaseName(), stored, name, P::Now()}, error,
                 operation))
        return 0;
    return P::LastInsertId();
}

} // namespace

void DataAccess::AddImageServiceItem(const QString& strFile, qint32& lngServiceItemID) {
    QString folder;
    GetContentFolder(folder);
    const QString path = QString(strFile).replace('\\', '/');
    const QFileInfo info(path);
    // A file that lies in the content folder is kept by its bare name there.
    const QString stored =
        !folder.isEmpty() && info.absolutePath() == folder ? info.fileName() : strFile;
    lngServiceItemID = FindOrMakePicture(stored, path, "AddImageServiceItem");
}

void DataAccess::AddImageServiceItemInFolder(const QString& strFileName, qint32& lngServiceItemID) {
    QString folder;
    GetContentFolder(folder);
    const QString name = QFileInfo(QString(strFileName).replace('\\', '/')).fileName();
    lngServiceItemID = FindOrMakePicture(name, folder + '/' + name, "AddImageServiceItemInFolder");
}
