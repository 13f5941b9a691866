#pragma once

#include <QHash>
#include <QString>

#include <memory>

class Recordset;

// What the console reads of a service item each time it shows it, kept between showings: the
// item's row (as GetServiceItems gives it) and the names of the item types. A picture is an
// item of its own, so without this every press of Forward through pictures would read a row
// and a type name from the database.
//
// Everything kept is dropped as soon as the database's change stamp (DatabaseChangeStamp)
// differs from the one it was read under: a row written by this program, a commit of another
// connection or another file opened. A change made anywhere therefore shows the next time the
// item is shown. A read that failed is not kept, so it is tried again and fails as it did.
class KeptItemRows {
public:
    // The row of item lngSIID (no rows when there is no such item); nullptr when the store
    // could not answer, with its text in strErrorMessage.
    std::shared_ptr<const Recordset> Row(qint32 lngSIID, QString& strErrorMessage);
    // The name of item type intTypeID, as GetServiceItemTypeName gives it.
    QString TypeName(qint16 intTypeID, QString& strErrorMessage);

private:
    void DropWhenChanged();

    QString m_strStamp;
    QHash<qint32, std::shared_ptr<const Recordset>> m_rows;
    QHash<qint16, QString> m_typeNames;
};
