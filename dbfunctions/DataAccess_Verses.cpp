#include "DataAccess.h"

#include "DataAccessCore.h"
#include "SongBreakdown.h"

// Verses and choruses of a song and the order in which they are sung.

using P = DataAccessPrivate;

void DataAccess::ServiceItemHasVerses(qint32 lngServiceItemID, QString& strErrorMessage,
                                      bool& blnHasVerses) {
    strErrorMessage.clear();
    blnHasVerses = P::Scalar(QStringLiteral("SELECT count(*) FROM Verses WHERE ServiceItemID = ?"),
                             {lngServiceItemID}, strErrorMessage, "ServiceItemHasVerses")
                       .toInt() > 0;
}

void DataAccess::GetSongSequence(qint32 lngServiceItemID, QString& strErrorMessage,
                                 std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::Select(
        QStringLiteral("SELECT %1, %2 FROM SongSequence ss JOIN Verses v ON v.VerseID = "
                       "ss.VerseID WHERE ss.ServiceItemID = ? ORDER BY ss.Position, "
                       "ss.SongSequenceID")
            .arg(P::Columns("v", "Verses", {"IsChorus", "VerseName", "VerseID", "VerseText"}),
                 P::Columns("ss", "SongSequence", {"Position", "SongSequenceID", "ServiceItemID"})),
        {lngServiceItemID}, strErrorMessage, "GetSongSequence", rs);
}

void DataAccess::GetVerseFirstLine(qint32 lngVerseID, QString& strErrorMessage,
                                   QString& strFirstLine) {
    strErrorMessage.clear();
    strFirstLine.clear();
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT VerseText FROM Verses WHERE VerseID = ?"), {lngVerseID},
                   strErrorMessage, "GetVerseFirstLine", rs))
        return;
    if (rs->RecordCount() == 0) {
        P::Fail(strErrorMessage, "GetVerseFirstLine",
                QStringLiteral("Verse %1 does not exist.").arg(lngVerseID));
        return;
    }
    const QStringList lines = rs->Fields("VerseText").toString().split('\n');
    for (const QString& line : lines) {
        if (!line.trimmed().isEmpty()) {
            strFirstLine = line.trimmed();
            return;
        }
    }
}

void DataAccess::RunSongBreakdownWizard(qint32 lngServiceItemID, QString& strErrorMessage,
                                        qint16& intResult) {
    SongBreakdown::Run(lngServiceItemID, strErrorMessage, intResult);
}

void DataAccess::AddVerse(qint32 lngServiceItemID, const QString& strVerseName,
                          const QString& strVerseText, bool blnIsChorus, QString& strErrorMessage,
                          qint32& lngNewVerseID) {
    strErrorMessage.clear();
    lngNewVerseID = 0;
    if (P::Exec(QStringLiteral("INSERT INTO Verses (ServiceItemID, VerseName, VerseText, IsChorus) "
                               "VALUES (?, ?, ?, ?)"),
                {lngServiceItemID, strVerseName, strVerseText, blnIsChorus ? 1 : 0},
                strErrorMessage, "AddVerse"))
        lngNewVerseID = P::LastInsertId();
}

void DataAccess::AddSongSequenceEntry(qint32 lngServiceItemID, qint32 lngVerseID,
                                      QString& strErrorMessage) {
    strErrorMessage.clear();
    const QVariant owner = P::Scalar(QStringLiteral("SELECT ServiceItemID FROM Verses WHERE "
                                                    "VerseID = ?"),
                                     {lngVerseID}, strErrorMessage, "AddSongSequenceEntry");
    if (!strErrorMessage.isEmpty())
        return;
    if (owner.isNull() || owner.toInt() != lngServiceItemID) {
        P::Fail(strErrorMessage, "AddSongSequenceEntry",
                QStringLiteral("Verse %1 is not a part of Service Item %2.")
                    .arg(lngVerseID)
                    .arg(lngServiceItemID));
        return;
    }
    WriteScope scope(strErrorMessage, "AddSongSequenceEntry");
    const qint32 position =
        P::NextPosition(QStringLiteral("SongSequence"), QStringLiteral("ServiceItemID"),
                        lngServiceItemID, strErrorMessage, "AddSongSequenceEntry");
    if (scope.Ok() && strErrorMessage.isEmpty() &&
        P::Exec(QStringLiteral("INSERT INTO SongSequence (ServiceItemID, Position, VerseID) "
                               "VALUES (?, ?, ?)"),
                {lngServiceItemID, position, lngVerseID}, strErrorMessage, "AddSongSequenceEntry"))
        scope.Commit();
}

void DataAccess::DeleteSongBreakdown(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    WriteScope scope(strErrorMessage, "DeleteSongBreakdown");
    if (scope.Ok() &&
        P::Exec(QStringLiteral("DELETE FROM SongSequence WHERE ServiceItemID = ?"),
                {lngServiceItemID}, strErrorMessage, "DeleteSongBreakdown") &&
        P::Exec(QStringLiteral("DELETE FROM Verses WHERE ServiceItemID = ?"), {lngServiceItemID},
                strErrorMessage, "DeleteSongBreakdown"))
        scope.Commit();
}
