#pragma once

#include <QHash>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// Service items and services as they travel in an export file, and their
// reading from and writing into the open database. The file format itself
// (the archive, OpenLyrics, our JSON) is written down in docs/exchange-format.md.
//
// Ids in these values are the ids of the database the values came from; an
// import maps them to the ids it gives the rows it adds.
namespace Exchange {

struct Part {
    QString Name; // "Verse 1"
    QString Text;
    bool IsChorus = false;
};

struct Point {
    QString Key, ParentKey, Text, Notes;
};

struct Item {
    qint32 Id = 0;
    // The columns of ServiceItems (but ServiceItemID) by name, as stored: texts
    // with "@@" for apostrophes, dates as "YYYY-MM-DD HH:MM:SS", Null as an
    // invalid QVariant.
    QVariantMap Fields;
    QStringList Keywords; // stored form
    QStringList Resources;
    QList<Part> Parts;
    QList<int> Order; // indexes into Parts, in the order sung
    QList<Point> Points;
    QList<qint32> Images; // ids of picture items, in order
    QList<qint32> Props;  // ids of the items in its prop bag, in order
    // Files that travel with it: names of archive entries.
    QString ContentFile; // the file of ServiceItemFilename
    QString MusicFile;   // a music file named by path in ServiceItemMusic
    // In the file only as a prop of another item or a service.
    bool OnlyAsProp = false;

    qint32 TypeId() const;
    QString Title() const; // display form of the description
    // The words that make two items the same: the parts, else the content,
    // white space and letter case set aside.
    QString Words() const;
};

struct Row {
    qint32 ItemId = 1;
    bool ShowAtRunTime = true;
    QString Length;
};

struct Service {
    qint32 Id = 0;
    QVariantMap Fields; // the columns of Services but ServiceID
    QList<Row> Rows;
    QList<qint32> Props;
    QStringList Resources;
    QString Title() const;
};

// ---- The open database -----------------------------------------------------
// Reads one item or service with everything that belongs to it. False with
// strError when it does not exist or cannot be read.
bool ReadItem(qint32 lngID, Item& item, QString& strError);
bool ReadService(qint32 lngID, Service& service, QString& strError);
// The file a stored ServiceItemFilename or music path names on this machine
// (a bare name lies in the content folder); empty when there is none.
QString LocalFile(const QString& strStored);

// Adds what an import brings, inside the caller's transaction. Items that are
// already there (the same title and words) are not added again: their ids
// map to the existing item and their titles are listed in AlreadyThere.
class Writer {
public:
    explicit Writer(bool blnIncludeProps);
    // Files are unpacked into the content folder; those written are removed
    // again by Discard when the import does not go through.
    void SetFiles(const QHash<QString, QByteArray>* pFiles) { m_files = pFiles; }
    bool AddItems(const QList<Item>& items, QString& strError);
    bool AddServices(const QList<Service>& services, QString& strError);
    void Discard();

    qint32 ItemsAdded() const { return m_itemsAdded; }
    qint32 ServicesAdded() const { return m_servicesAdded; }
    const QStringList& AlreadyThere() const { return m_alreadyThere; }
    const QStringList& ServicesAlreadyThere() const { return m_servicesAlreadyThere; }

private:
    bool LoadExisting(QString& strError);
    bool AddItem(const Item& item, QString& strError);
    bool AddLinks(const Item& item, QString& strError);
    bool AddService(const Service& service, QString& strError);
    QString Unpack(const QString& strEntry, QString& strError);
    qint32 Mapped(qint32 lngOldID) const;

    bool m_includeProps;
    const QHash<QString, QByteArray>* m_files = nullptr;
    QHash<QString, qint32> m_existing; // title + words -> id
    QSet<QString> m_existingServices;  // name + date created
    QSet<qint32> m_types;
    QSet<QString> m_itemColumns;
    QSet<QString> m_serviceColumns;
    QHash<qint32, qint32> m_ids; // old id -> id here
    QSet<qint32> m_added;        // old ids of the items added (their links are written)
    QStringList m_unpacked;      // files written into the content folder
    qint32 m_itemsAdded = 0;
    qint32 m_servicesAdded = 0;
    QStringList m_alreadyThere;
    QStringList m_servicesAlreadyThere;
};

// ---- JSON ------------------------------------------------------------------
QJsonObject ToJson(const Item& item);
QJsonObject ToJson(const Service& service);
// False with strError for an object that is not one of ours.
bool FromJson(const QJsonObject& object, Item& item, QString& strError);
bool FromJson(const QJsonObject& object, Service& service, QString& strError);

} // namespace Exchange
