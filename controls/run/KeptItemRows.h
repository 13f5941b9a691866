#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include <memory>

class Recordset;

// What the console reads of a service item each time it shows it, kept between showings: the
// item's row (as GetServiceItems gives it), the names of the item types, whether an item has
// parts, and a song's parts in the order they are sung with the first line of each. A picture
// is an item of its own, so without this every press of Forward through pictures would read a
// row and a type name from the database, and every song shown again its sequence and one first
// line per part.
//
// Everything kept is dropped as soon as the database's change stamp (DatabaseChangeStamp)
// differs from the one it was read under: a row written by this program, a commit of another
// connection or another file opened. A change made anywhere therefore shows the next time the
// item is shown. A read that failed is not kept, so it is tried again and fails as it did.
class KeptItemRows {
public:
    // One row of a song's part list.
    struct SongPart {
        QString strName;
        bool blnIsChorus = false;
        QVariant varVerseID;
        QString strFirstLine;
    };
    using SongParts = QList<SongPart>;

    // The row of item lngSIID (no rows when there is no such item); nullptr when the store
    // could not answer, with its text in strErrorMessage.
    std::shared_ptr<const Recordset> Row(qint32 lngSIID, QString& strErrorMessage);
    // The name of item type intTypeID, as GetServiceItemTypeName gives it.
    QString TypeName(qint16 intTypeID, QString& strErrorMessage);
    // Whether item lngSIID has parts, as ServiceItemHasVerses answers it (a failure answers
    // False with its text in strErrorMessage).
    bool HasVerses(qint32 lngSIID, QString& strErrorMessage);
    // The parts of song lngSIID in the order sung (GetSongSequence), each with its first line
    // (GetVerseFirstLine; empty where that read failed); nullptr when the sequence could not be
    // read. A list with a first line that failed is not kept.
    std::shared_ptr<const SongParts> Sequence(qint32 lngSIID);

private:
    void DropWhenChanged();

    QString m_strStamp;
    QHash<qint32, std::shared_ptr<const Recordset>> m_rows;
    QHash<qint16, QString> m_typeNames;
    QHash<qint32, bool> m_hasVerses;
    QHash<qint32, std::shared_ptr<const SongParts>> m_sequences;
};
