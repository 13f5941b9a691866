#include "Exchange.h"

#include "DataAccessCore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSqlQuery>

// Writing what an import brings into the open database, inside the import's transaction.

using P = DataAccessPrivate;

namespace Exchange {

namespace {

const char* const kOperation = "ImportFile";

QString ItemKey(const QString& strTitle, const QString& strWords) {
    return strTitle.simplified().toCaseFolded() + QChar(0x1f) + strWords;
}

QString ServiceKey(const QVariantMap& fields) {
    return fields.value(QStringLiteral("ServiceName")).toString() + QChar(0x1f) +
           fields.value(QStringLiteral("ServiceDateCreated")).toString();
}

bool Insert(const QString& strTable, const QVariantMap& fields, const QSet<QString>& columns,
            QString& strError) {
    QStringList names, marks;
    QVariantList values;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        if (!columns.contains(it.key()))
            continue; // a column this database does not have
        names << it.key();
        marks << QStringLiteral("?");
        values << it.value();
    }
    return P::Exec(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(strTable, names.join(QStringLiteral(", ")), marks.join(QStringLiteral(", "))),
        values, strError, kOperation);
}

QSet<QString> ColumnSet(const QString& strTable) {
    const QStringList columns = P::ColumnsOf(strTable);
    return QSet<QString>(columns.cbegin(), columns.cend());
}

// A name in the folder that no file has, or the file of that name when it holds the same bytes.
QString FreeName(const QDir& folder, const QString& strName, const QByteArray& data,
                 bool& blnSame) {
    const QFileInfo info(strName);
    QString name = info.fileName();
    for (int n = 2;; ++n) {
        QFile existing(folder.filePath(name));
        if (!existing.exists())
            break;
        if (existing.size() == data.size() && existing.open(QIODevice::ReadOnly) &&
            existing.readAll() == data) {
            blnSame = true;
            return name;
        }
        name = info.suffix().isEmpty()
                   ? QStringLiteral("%1 (%2)").arg(info.completeBaseName()).arg(n)
                   : QStringLiteral("%1 (%2).%3")
                         .arg(info.completeBaseName())
                         .arg(n)
                         .arg(info.suffix());
    }
    blnSame = false;
    return name;
}

} // namespace

Writer::Writer(bool blnIncludeProps) : m_includeProps(blnIncludeProps) {}

qint32 Writer::Mapped(qint32 lngOldID) const {
    if (lngOldID == 1)
        return 1; // the Blank item is in every database
    return m_ids.value(lngOldID, 0);
}

bool Writer::LoadExisting(QString& strError) {
    if (!m_itemColumns.isEmpty())
        return true;
    m_itemColumns = ColumnSet(QStringLiteral("ServiceItems"));
    m_serviceColumns = ColumnSet(QStringLiteral("Services"));
    m_itemColumns.remove(QStringLiteral("ServiceItemID"));
    m_serviceColumns.remove(QStringLiteral("ServiceID"));
    QSqlQuery q(P::Db());
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT ServiceItemTypeID FROM ServiceItemTypes"))) {
        strError = QStringLiteral("The types of service item cannot be read.");
        return false;
    }
    while (q.next())
        m_types.insert(q.value(0).toInt());
    // Every item's title and words, the words of a song being its parts.
    QHash<qint32, Item> items;
    q.exec(QStringLiteral("SELECT ServiceItemID, ServiceItemDescription, ServiceItemContent FROM "
                          "ServiceItems WHERE ServiceItemID <> 1"));
    while (q.next()) {
        Item& item = items[q.value(0).toInt()];
        item.Fields.insert(QStringLiteral("ServiceItemDescription"), q.value(1));
        item.Fields.insert(QStringLiteral("ServiceItemContent"), q.value(2));
    }
    q.exec(QStringLiteral("SELECT ServiceItemID, VerseText FROM Verses ORDER BY ServiceItemID, "
                          "VerseID"));
    while (q.next()) {
        auto it = items.find(q.value(0).toInt());
        if (it != items.end())
            it->Parts.append({QString(), q.value(1).toString(), false});
    }
    for (auto it = items.cbegin(); it != items.cend(); ++it)
        m_existing.insert(ItemKey(it->Title(), it->Words()), it.key());
    q.exec(QStringLiteral("SELECT ServiceName, ServiceDateCreated FROM Services"));
    while (q.next())
        m_existingServices.insert(ServiceKey({{QStringLiteral("ServiceName"), q.value(0)},
                                              {QStringLiteral("ServiceDateCreated"), q.value(1)}}));
    return true;
}

QString Writer::Unpack(const QString& strEntry, QString& strError) {
    if (!m_files || !m_files->contains(strEntry)) {
        strError =
            QStringLiteral("The file %1 is named in the export but is not in it.").arg(strEntry);
        return QString();
    }
    QString strFolder;
    DataAccess::Instance().GetContentFolder(strFolder);
    QDir folder(strFolder);
    if (!folder.mkpath(QStringLiteral("."))) {
        strError = QStringLiteral("The content folder %1 cannot be made.").arg(strFolder);
        return QString();
    }
    const QByteArray& data = (*m_files)[strEntry];
    bool blnSame = false;
    const QString name = FreeName(folder, strEntry, data, blnSame);
    if (blnSame)
        return folder.filePath(name);
    QSaveFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        strError = QStringLiteral("The file %1 cannot be written into the content folder %2: %3")
                       .arg(name, strFolder, file.errorString());
        return QString();
    }
    m_unpacked << folder.filePath(name);
    return folder.filePath(name);
}

void Writer::Discard() {
    for (const QString& path : std::as_const(m_unpacked))
        QFile::remove(path);
    m_unpacked.clear();
}

bool Writer::AddItems(const QList<Item>& items, QString& strError) {
    if (!LoadExisting(strError))
        return false;
    for (const Item& item : items)
        if ((m_includeProps || !item.OnlyAsProp) && !AddItem(item, strError))
            return false;
    for (const Item& item : items)
        if (m_added.contains(item.Id) && !AddLinks(item, strError))
            return false;
    return true;
}

bool Writer::AddItem(const Item& item, QString& strError) {
    if (item.Id == 1 || m_ids.contains(item.Id))
        return true;
    const QString key = ItemKey(item.Title(), item.Words());
    const auto existing = m_existing.constFind(key);
    if (existing != m_existing.cend()) {
        m_ids.insert(item.Id, existing.value());
        if (!m_alreadyThere.contains(item.Title()))
            m_alreadyThere << item.Title();
        return true;
    }
    QVariantMap fields = item.Fields;
    if (!m_types.contains(item.TypeId()))
        fields.insert(QStringLiteral("ServiceItemTypeID"), 0);
    if (fields.value(QStringLiteral("ServiceItemDateCreated")).toString().isEmpty())
        fields.insert(QStringLiteral("ServiceItemDateCreated"), P::Now());
    // Music named by id is linked once every item is in.
    const QString music = fields.value(QStringLiteral("ServiceItemMusic")).toString();
    bool numeric = false;
    music.toInt(&numeric);
    if (numeric)
        fields.remove(QStringLiteral("ServiceItemMusic"));
    if (!item.ContentFile.isEmpty()) {
        const QString path = Unpack(item.ContentFile, strError);
        if (path.isEmpty())
            return false;
        fields.insert(QStringLiteral("ServiceItemFilename"), QFileInfo(path).fileName());
    }
    if (!item.MusicFile.isEmpty()) {
        const QString path = Unpack(item.MusicFile, strError);
        if (path.isEmpty())
            return false;
        fields.insert(QStringLiteral("ServiceItemMusic"), path);
    }
    if (!Insert(QStringLiteral("ServiceItems"), fields, m_itemColumns, strError))
        return false;
    const qint32 id = P::LastInsertId();
    m_ids.insert(item.Id, id);
    m_added.insert(item.Id);
    m_existing.insert(key, id);
    ++m_itemsAdded;
    QHash<int, qint32> verseIds;
    for (int n = 0; n < item.Parts.size(); ++n) {
        const Part& part = item.Parts.at(n);
        if (!P::Exec(QStringLiteral("INSERT INTO Verses (ServiceItemID, VerseName, VerseText, "
                                    "IsChorus) VALUES (?, ?, ?, ?)"),
                     {id, part.Name, part.Text, part.IsChorus ? 1 : 0}, strError, kOperation))
            return false;
        verseIds.insert(n, P::LastInsertId());
    }
    qint32 position = 0;
    for (int index : item.Order)
        if (verseIds.contains(index) &&
            !P::Exec(QStringLiteral("INSERT INTO SongSequence (ServiceItemID, Position, VerseID) "
                                    "VALUES (?, ?, ?)"),
                     {id, ++position, verseIds.value(index)}, strError, kOperation))
            return false;
    position = 0;
    for (const Point& point : item.Points)
        if (!P::Exec(QStringLiteral("INSERT INTO ServiceItemPoints (ServiceItemID, Position, "
                                    "PointKey, ParentPointKey, PointText, PointNotes) VALUES (?, "
                                    "?, ?, ?, ?, ?)"),
                     {id, ++position, point.Key, point.ParentKey, point.Text,
                      P::TextOrNull(point.Notes)},
                     strError, kOperation))
            return false;
    for (const QString& resource : item.Resources)
        if (!P::Exec(QStringLiteral("INSERT INTO ServiceItemResources (ServiceItemID, "
                                    "ServiceItemResourceName) VALUES (?, ?)"),
                     {id, resource}, strError, kOperation))
            return false;
    DataAccess& da = DataAccess::Instance();
    for (const QString& keyword : item.Keywords) {
        qint32 keywordId = 0;
        da.AddKeyword(keyword, strError, keywordId);
        if (!strError.isEmpty() ||
            !P::Exec(QStringLiteral("INSERT OR IGNORE INTO ServiceItemKeywords (ServiceItemID, "
                                    "KeywordID) VALUES (?, ?)"),
                     {id, keywordId}, strError, kOperation))
            return false;
    }
    return true;
}

// Background images, the prop bag and music named by id, once every item is in; a link to an
// item that did not travel is dropped.
bool Writer::AddLinks(const Item& item, QString& strError) {
    const qint32 id = m_ids.value(item.Id);
    qint32 position = 0;
    for (qint32 image : item.Images)
        if (Mapped(image) != 0 &&
            !P::Exec(QStringLiteral("INSERT INTO ServiceItemImages (ServiceItemID, Position, "
                                    "ImageServiceItemID) VALUES (?, ?, ?)"),
                     {id, ++position, Mapped(image)}, strError, kOperation))
            return false;
    position = 0;
    if (m_includeProps)
        for (qint32 prop : item.Props)
            if (Mapped(prop) != 0 &&
                !P::Exec(QStringLiteral("INSERT INTO ServiceItemPropBag (ServiceItemID, Position, "
                                        "PropServiceItemID) VALUES (?, ?, ?)"),
                         {id, ++position, Mapped(prop)}, strError, kOperation))
                return false;
    bool numeric = false;
    const qint32 music =
        item.Fields.value(QStringLiteral("ServiceItemMusic")).toString().toInt(&numeric);
    if (numeric && Mapped(music) != 0 &&
        !P::Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE "
                                "ServiceItemID = ?"),
                 {QString::number(Mapped(music)), id}, strError, kOperation))
        return false;
    return true;
}

bool Writer::AddServices(const QList<Service>& services, QString& strError) {
    if (!LoadExisting(strError))
        return false;
    for (const Service& service : services)
        if (!AddService(service, strError))
            return false;
    return true;
}

bool Writer::AddService(const Service& service, QString& strError) {
    const QString key = ServiceKey(service.Fields);
    if (m_existingServices.contains(key)) {
        m_servicesAlreadyThere << service.Title();
        return true;
    }
    QVariantMap fields = service.Fields;
    if (fields.value(QStringLiteral("ServiceDateCreated")).toString().isEmpty())
        fields.insert(QStringLiteral("ServiceDateCreated"), P::Now());
    if (!Insert(QStringLiteral("Services"), fields, m_serviceColumns, strError))
        return false;
    const qint32 id = P::LastInsertId();
    m_existingServices.insert(key);
    ++m_servicesAdded;
    qint32 position = 0;
    for (const Row& row : service.Rows)
        if (Mapped(row.ItemId) != 0 &&
            !P::Exec(QStringLiteral("INSERT INTO ServiceContents (ServiceID, Position, "
                                    "ServiceItemID, ShowAtRunTime, Length) VALUES (?, ?, ?, ?, ?)"),
                     {id, ++position, Mapped(row.ItemId), row.ShowAtRunTime ? 1 : 0,
                      P::TextOrNull(row.Length)},
                     strError, kOperation))
            return false;
    position = 0;
    if (m_includeProps)
        for (qint32 prop : service.Props)
            if (Mapped(prop) != 0 &&
                !P::Exec(QStringLiteral("INSERT INTO ServicePropBag (ServiceID, Position, "
                                        "PropServiceItemID) VALUES (?, ?, ?)"),
                         {id, ++position, Mapped(prop)}, strError, kOperation))
                return false;
    for (const QString& resource : service.Resources)
        if (!P::Exec(QStringLiteral("INSERT INTO ServiceResources (ServiceID, ResourceName) VALUES "
                                    "(?, ?)"),
                     {id, resource}, strError, kOperation))
            return false;
    return true;
}

} // namespace Exchange
