#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QFile>

// Single facts about one service item: its file, text, description, type, points flag,
// existence, and the two clearing operations.

using P = DataAccessPrivate;

namespace {

// Reads one row of ServiceItems; an error text when the item does not exist.
bool ReadItem(qint32 id, const QString& columns, QString& strErrorMessage, const char* operation,
              std::unique_ptr<Recordset>& rs) {
    if (!P::Select(QStringLiteral("SELECT %1 FROM ServiceItems si LEFT JOIN ServiceItemTypes t "
                                  "ON t.ServiceItemTypeID = si.ServiceItemTypeID WHERE "
                                  "si.ServiceItemID = ?")
                       .arg(columns),
                   {id}, strErrorMessage, operation, rs))
        return false;
    if (rs->RecordCount() > 0)
        return true;
    P::Fail(strErrorMessage, operation, QStringLiteral("Service Item %1 does not exist.").arg(id));
    return false;
}

QString JoinLines(const QString& sql, qint32 id, const QString& separator, QString& strErrorMessage,
                  const char* operation) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(sql, {id}, strErrorMessage, operation, rs))
        return QString();
    QStringList parts;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        parts << rs->Fields("Part").toString();
    return parts.join(separator);
}

} // namespace

void DataAccess::GetServiceItemFileName(qint32 lngServiceItemID, QString& strErrorMessage,
                                        QString& strFileName) {
    strErrorMessage.clear();
    strFileName.clear();
    std::unique_ptr<Recordset> rs;
    if (!ReadItem(lngServiceItemID, QStringLiteral("si.ServiceItemFilename"), strErrorMessage,
                  "GetServiceItemFileName", rs))
        return;
    const QString stored = rs->Fields("ServiceItemFilename").toString();
    if (stored.isEmpty() || stored.contains('/') || stored.contains('\\')) {
        strFileName = stored;
        return;
    }
    QString folder;
    GetContentFolder(folder);
    strFileName = folder + '/' + stored;
}

void DataAccess::GetServiceItemText(qint32 lngServiceItemID, QString& strErrorMessage,
                                    QString& strText) {
    strErrorMessage.clear();
    strText.clear();
    std::unique_ptr<Recordset> rs;
    if (!ReadItem(lngServiceItemID, QStringLiteral("si.ServiceItemContent"), strErrorMessage,
                  "GetServiceItemText", rs))
        return;
    strText = rs->Fields("ServiceItemContent").toString();
    if (strText.isEmpty())
        strText = JoinLines(QStringLiteral("SELECT v.VerseText AS Part FROM SongSequence ss JOIN "
                                           "Verses v ON v.VerseID = ss.VerseID WHERE "
                                           "ss.ServiceItemID = ? ORDER BY ss.Position"),
                            lngServiceItemID, QStringLiteral("\n\n"), strErrorMessage,
                            "GetServiceItemText");
    if (strText.isEmpty())
        strText = JoinLines(QStringLiteral("SELECT PointText AS Part FROM ServiceItemPoints "
                                           "WHERE ServiceItemID = ? ORDER BY Position"),
                            lngServiceItemID, QStringLiteral("\n"), strErrorMessage,
                            "GetServiceItemText");
    if (!strText.isEmpty() || !strErrorMessage.isEmpty())
        return;
    QString file;
    GetServiceItemFileName(lngServiceItemID, strErrorMessage, file);
    if (file.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive)) {
        QFile text(file);
        if (text.open(QIODevice::ReadOnly | QIODevice::Text))
            strText = QString::fromUtf8(text.readAll());
    }
}

void DataAccess::GetServiceItemDescription(qint32 lngServiceItemID, QString& strErrorMessage,
                                           QString& strDescription) {
    strErrorMessage.clear();
    strDescription.clear();
    std::unique_ptr<Recordset> rs;
    if (!ReadItem(lngServiceItemID,
                  QStringLiteral("si.ServiceItemDescription, si.ServiceItemContent, "
                                 "si.ServiceItemSource, t.ServiceItemTypeName"),
                  strErrorMessage, "GetServiceItemDescription", rs))
        return;
    // As the galleries name an item: its description, else the start of its content, else
    // its type and source.
    strDescription = rs->Fields("ServiceItemDescription").toString();
    if (!strDescription.isEmpty())
        return;
    const QString content = rs->Fields("ServiceItemContent").toString();
    if (!content.isEmpty()) {
        strDescription = content.left(15);
        return;
    }
    strDescription = rs->Fields("ServiceItemTypeName").toString() + QStringLiteral(" from ") +
                     rs->Fields("ServiceItemSource").toString();
}

void DataAccess::GetServiceItemTypeID(qint32 lngServiceItemID, QString& strErrorMessage,
                                      qint16& intTypeID) {
    strErrorMessage.clear();
    intTypeID = 0;
    std::unique_ptr<Recordset> rs;
    if (ReadItem(lngServiceItemID, QStringLiteral("si.ServiceItemTypeID"), strErrorMessage,
                 "GetServiceItemTypeID", rs))
        intTypeID = static_cast<qint16>(rs->Fields("ServiceItemTypeID").toInt());
}

void DataAccess::GetServiceItemShowAsPoints(qint32 lngServiceItemID, QString& strErrorMessage,
                                            bool& blnShowAsPoints) {
    strErrorMessage.clear();
    blnShowAsPoints = false;
    std::unique_ptr<Recordset> rs;
    if (ReadItem(lngServiceItemID, QStringLiteral("si.RunAsPointsList"), strErrorMessage,
                 "GetServiceItemShowAsPoints", rs))
        blnShowAsPoints = rs->Fields("RunAsPointsList").toBool();
}

void DataAccess::ServiceItemExists(qint32 lngServiceItemID, QString& strErrorMessage,
                                   bool& blnExists) {
    strErrorMessage.clear();
    blnExists =
        P::Scalar(QStringLiteral("SELECT count(*) FROM ServiceItems WHERE ServiceItemID = ?"),
                  {lngServiceItemID}, strErrorMessage, "ServiceItemExists")
            .toInt() > 0;
}

void DataAccess::GetNewestServiceItemID(QString& strErrorMessage, qint32& lngServiceItemID) {
    strErrorMessage.clear();
    lngServiceItemID = P::Scalar(QStringLiteral("SELECT max(ServiceItemID) FROM ServiceItems"), {},
                                 strErrorMessage, "GetNewestServiceItemID")
                           .toInt();
}

void DataAccess::ClearRunAsPointsList(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("UPDATE ServiceItems SET RunAsPointsList = 0, TextViewMode = CASE WHEN "
                           "TextViewMode BETWEEN 4 AND 6 THEN 0 ELSE TextViewMode END WHERE "
                           "ServiceItemID = ?"),
            {lngServiceItemID}, strErrorMessage, "ClearRunAsPointsList");
}

void DataAccess::ClearServiceItemMusic(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = NULL WHERE ServiceItemID = ?"),
        {lngServiceItemID}, strErrorMessage, "ClearServiceItemMusic");
}
