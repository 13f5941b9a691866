#include "DataAccess.h"

#include "DataAccessCore.h"

// Service items: the joined query of the galleries, the general, content and run details
// fields, and deleting an item with everything that links to it.

using P = DataAccessPrivate;

// DataAccess_ItemWords.cpp
void NarrowByItemWords(JetWhere::Result& where);

namespace {

const QString kItemsNewestFirst =
    QStringLiteral("si.ServiceItemDateCreated DESC, si.ServiceItemID DESC");

QString ItemColumns() {
    return P::Columns("si", "ServiceItems", P::ColumnsOf(QStringLiteral("ServiceItems")));
}

const char* const kJoinedFrom =
    " FROM ServiceItems si"
    " LEFT JOIN ServiceItemTypes t ON t.ServiceItemTypeID = si.ServiceItemTypeID"
    " LEFT JOIN ServiceItemKeywords sik ON sik.ServiceItemID = si.ServiceItemID"
    " LEFT JOIN KeyWords k ON k.KeywordID = sik.KeywordID"
    " LEFT JOIN ServiceItemPoints p ON p.ServiceItemID = si.ServiceItemID";

} // namespace

void DataAccess::GetServiceItemsJoined(const QString& strWhereClause, qint16,
                                       QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString select =
        QStringLiteral("SELECT %1, %2, %3, %4")
            .arg(ItemColumns(),
                 P::Columns("t", "ServiceItemTypes", {"ServiceItemTypeName", "ServiceItemTypeID"}),
                 P::Columns("k", "KeyWords", {"KeywordID", "KeywordText"}),
                 P::Columns("p", "ServiceItemPoints", {"PointKey", "PointText"})) +
        QLatin1String(kJoinedFrom);
    P::SelectWhere(select,
                   {{"ServiceItems", "si"},
                    {"ServiceItemTypes", "t"},
                    {"KeyWords", "k"},
                    {"ServiceItemKeywords", "sik"},
                    {"ServiceItemPoints", "p"}},
                   strWhereClause,
                   QStringLiteral("ORDER BY %1, k.KeywordText COLLATE JETTEXT, p.Position")
                       .arg(kItemsNewestFirst),
                   strErrorMessage, "GetServiceItemsJoined", rs, NarrowByItemWords);
}

void DataAccess::GetServiceItems(const QString& strWhereClause, qint16, QString& strErrorMessage,
                                 std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(
        QStringLiteral("SELECT %1, %2 FROM ServiceItems si LEFT JOIN ServiceItemTypes "
                       "t ON t.ServiceItemTypeID = si.ServiceItemTypeID")
            .arg(ItemColumns(), P::Columns("t", "ServiceItemTypes", {"ServiceItemTypeName"})),
        {{"ServiceItems", "si"}, {"ServiceItemTypes", "t"}}, strWhereClause,
        QStringLiteral("ORDER BY ") + kItemsNewestFirst, strErrorMessage, "GetServiceItems", rs);
}

void DataAccess::AddServiceItem(const QString& strDescription, const QString& strSource,
                                const QString& strContent, qint32 SIType, QString& strErrorMessage,
                                bool blnApplyDefaults, qint32& lngNewServiceItemID) {
    strErrorMessage.clear();
    lngNewServiceItemID = 0;
    bool reveal = false;
    qint16 pointsMode = 5;
    if (blnApplyDefaults)
        GetDefaultPointsDisplay(reveal, strErrorMessage, pointsMode);
    if (!strErrorMessage.isEmpty())
        return;
    const bool points = SIType == 11;
    if (!P::Exec(QStringLiteral("INSERT INTO ServiceItems (ServiceItemTypeID, "
                                "ServiceItemDescription, ServiceItemSource, ServiceItemContent, "
                                "ServiceItemDateCreated, RevealSubPointsOneByOne, TextViewMode, "
                                "RunAsPointsList) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
                 {SIType, P::EmptyToNull(strDescription), P::EmptyToNull(strSource),
                  P::EmptyToNull(strContent), P::Now(), reveal ? 1 : 0, points ? pointsMode : 0,
                  points ? 1 : 0},
                 strErrorMessage, "AddServiceItem"))
        return;
    lngNewServiceItemID = P::LastInsertId();
}

namespace {

bool UpdateItem(const char* operation, qint32 id, const QString& assignments, QVariantList values,
                QString& strErrorMessage) {
    values << id;
    QSqlQuery q;
    if (!P::Exec(
            QStringLiteral("UPDATE ServiceItems SET %1 WHERE ServiceItemID = ?").arg(assignments),
            values, strErrorMessage, operation, &q))
        return false;
    if (q.numRowsAffected() > 0)
        return true;
    P::Fail(strErrorMessage, operation, QStringLiteral("Service Item %1 does not exist.").arg(id));
    return false;
}

} // namespace

void DataAccess::SaveServiceItemGeneral(qint32 lngTypeID, qint32 lngServiceItemID,
                                        const QString& strDescription, const QString& strSource,
                                        const QString& strNotes, const QString& strSongKey,
                                        const QString& strCopyright, const QString& strLocation,
                                        const QString& strMelody, QString& strErrorMessage,
                                        QVariant&) {
    SaveServiceItemGeneral(lngTypeID, lngServiceItemID, strDescription, strSource, strNotes,
                           strSongKey, strCopyright, strLocation, strMelody, strErrorMessage);
}

void DataAccess::SaveServiceItemGeneral(qint32 lngTypeID, qint32 lngServiceItemID,
                                        const QString& strDescription, const QString& strSource,
                                        const QString& strNotes, const QString& strSongKey,
                                        const QString& strCopyright, const QString& strLocation,
                                        const QString& strMelody, QString& strErrorMessage) {
    strErrorMessage.clear();
    UpdateItem("SaveServiceItemGeneral", lngServiceItemID,
               QStringLiteral("ServiceItemTypeID = ?, ServiceItemDescription = ?, "
                              "ServiceItemSource = ?, ServiceItemNotes = ?, ServiceItemSongKey = "
                              "?, ServiceItemCopyrightDetails = ?, ServiceItemOriginalLocation = "
                              "?, ServiceItemMelody = ?"),
               {lngTypeID, P::EmptyToNull(strDescription), P::EmptyToNull(strSource),
                P::EmptyToNull(strNotes), P::EmptyToNull(strSongKey), P::EmptyToNull(strCopyright),
                P::EmptyToNull(strLocation), P::EmptyToNull(strMelody)},
               strErrorMessage);
}

void DataAccess::SaveServiceItemContent(qint32 lngServiceItemID, qint32 lngTypeID,
                                        const QString& strContent, const QString& strFilename,
                                        QString& strErrorMessage, QVariant&) {
    SaveServiceItemContent(lngServiceItemID, lngTypeID, strContent, strFilename, strErrorMessage);
}

namespace {

// A file directly inside the content folder is stored by its bare name.
QString StoredFileName(const QString& strPath, const QString& contentFolder) {
    const QString path = QString(strPath).replace('\\', '/');
    const qsizetype slash = path.lastIndexOf('/');
    if (slash >= 0 && !contentFolder.isEmpty() &&
        path.left(slash).compare(contentFolder, Qt::CaseSensitive) == 0)
        return path.mid(slash + 1);
    return strPath;
}

QString BareName(const QString& path) {
    const qsizetype slash = qMax(path.lastIndexOf('/'), path.lastIndexOf('\\'));
    return path.mid(slash + 1);
}

} // namespace

void DataAccess::SaveServiceItemContent(qint32 lngServiceItemID, qint32 lngTypeID,
                                        const QString& strContent, const QString& strFilename,
                                        QString& strErrorMessage) {
    strErrorMessage.clear();
    QString folder;
    GetContentFolder(folder);
    const QString stored = StoredFileName(strFilename, folder);
    UpdateItem("SaveServiceItemContent", lngServiceItemID,
               QStringLiteral("ServiceItemTypeID = ?, ServiceItemContent = ?, "
                              "ServiceItemFilename = ?, ServiceItemFileDescription = ?"),
               {lngTypeID, P::EmptyToNull(strContent), P::EmptyToNull(stored),
                P::EmptyToNull(BareName(strFilename))},
               strErrorMessage);
}

void DataAccess::SaveServiceItemRunDetails(
    qint32 lngServiceItemID, bool blnRunAsPointsList, qint32 lngReserved, qint16 intTextViewMode,
    qint16 intSecondsToRun, qint16 intChangeImageEveryXSeconds, qint16 intLinesAtATime,
    const QString& strServiceItemMusic, const QString& strStartMusicPrompt,
    bool blnRevealSubPointsOneByOne, QString& strErrorMessage, bool blnHideSIDetails, QVariant&) {
    SaveServiceItemRunDetails(lngServiceItemID, blnRunAsPointsList, lngReserved, intTextViewMode,
                              intSecondsToRun, intChangeImageEveryXSeconds, intLinesAtATime,
                              strServiceItemMusic, strStartMusicPrompt, blnRevealSubPointsOneByOne,
                              strErrorMessage, blnHideSIDetails);
}

void DataAccess::SaveServiceItemRunDetails(
    qint32 lngServiceItemID, bool blnRunAsPointsList, qint32, qint16 intTextViewMode,
    qint16 intSecondsToRun, qint16 intChangeImageEveryXSeconds, qint16 intLinesAtATime,
    const QString& strServiceItemMusic, const QString& strStartMusicPrompt,
    bool blnRevealSubPointsOneByOne, QString& strErrorMessage, bool blnHideSIDetails) {
    strErrorMessage.clear();
    if (intTextViewMode < 0 || intTextViewMode > 6) {
        P::Fail(strErrorMessage, "SaveServiceItemRunDetails",
                QStringLiteral("The view mode %1 is not one of 0 to 6.").arg(intTextViewMode));
        return;
    }
    UpdateItem("SaveServiceItemRunDetails", lngServiceItemID,
               QStringLiteral("RunAsPointsList = ?, TextViewMode = ?, SecondsToRun = ?, "
                              "ChangeImageEveryXSeconds = ?, LinesAtATime = ?, ServiceItemMusic = "
                              "?, StartMusicPrompt = ?, RevealSubPointsOneByOne = ?, "
                              "HideSIDetails = ?"),
               {blnRunAsPointsList ? 1 : 0, intTextViewMode, intSecondsToRun,
                intChangeImageEveryXSeconds, intLinesAtATime, P::EmptyToNull(strServiceItemMusic),
                P::EmptyToNull(strStartMusicPrompt), blnRevealSubPointsOneByOne ? 1 : 0,
                blnHideSIDetails ? 1 : 0},
               strErrorMessage);
}

void DataAccess::DeleteServiceItem(qint32 lngServiceItemID, const QVariant&,
                                   QString& strErrorMessage, QVariant&) {
    DeleteServiceItem(lngServiceItemID, strErrorMessage);
}

namespace {

// Short lists hold ids as text: take the deleted id out of each.
bool RemoveFromShortLists(qint32 id, QString& strErrorMessage) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT ShortListID, ShortListContent FROM ShortLists"), {},
                   strErrorMessage, "DeleteServiceItem", rs))
        return false;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const QStringList ids = rs->Fields("ShortListContent").toString().split(',');
        QStringList kept;
        for (const QString& each : ids)
            if (each.trimmed() != QString::number(id))
                kept << each;
        if (kept.size() == ids.size())
            continue;
        if (!P::Exec(QStringLiteral("UPDATE ShortLists SET ShortListContent = ? WHERE "
                                    "ShortListID = ?"),
                     {kept.join(','), rs->Fields("ShortListID")}, strErrorMessage,
                     "DeleteServiceItem"))
            return false;
    }
    return true;
}

} // namespace

void DataAccess::DeleteServiceItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (lngServiceItemID == 1) {
        P::Fail(strErrorMessage, "DeleteServiceItem",
                QStringLiteral("The Blank item cannot be deleted."));
        return;
    }
    WriteScope scope(strErrorMessage, "DeleteServiceItem");
    if (!scope.Ok())
        return;
    // Rows of other tables follow by their foreign keys (ON DELETE CASCADE); the links held
    // as text are cleared here.
    const QString id = QString::number(lngServiceItemID);
    if (!P::Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = NULL WHERE "
                                "ServiceItemMusic = ?"),
                 {id}, strErrorMessage, "DeleteServiceItem") ||
        !P::Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = NULL WHERE "
                                "DefaultBackgroundImage = ? OR DefaultBackgroundImage = ?"),
                 {id, lngServiceItemID}, strErrorMessage, "DeleteServiceItem") ||
        !RemoveFromShortLists(lngServiceItemID, strErrorMessage) ||
        !P::Exec(QStringLiteral("DELETE FROM ServiceItems WHERE ServiceItemID = ?"),
                 {lngServiceItemID}, strErrorMessage, "DeleteServiceItem"))
        return;
    scope.Commit();
}

void DataAccess::ServiceItemShown(qint32 lngServiceItemID) {
    QString ignored;
    P::SetState(QStringLiteral("LastShownServiceItemID"), lngServiceItemID, ignored,
                "ServiceItemShown");
}

void DataAccess::RunServiceItem(qint32 lngServiceItemID, QString& strErrorMessage, QVariant&) {
    RunServiceItem(lngServiceItemID, strErrorMessage);
}
