#include "TestDatabase.h"

#include "DataAccess.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

TestDatabase::TestDatabase(Seeds seeds) {
    if (!m_dir.isValid()) {
        m_lastError = QStringLiteral("No temporary folder could be made.");
        return;
    }
    QDir().mkpath(ContentFolder());
    QString error;
    DataAccess::Instance().OpenDatabase(Path(), error);
    m_lastError = error;
    m_valid = error.isEmpty();
    if (m_valid)
        DataAccess::Instance().SetContentFolder(ContentFolder());
    if (m_valid && seeds == WithoutInBuiltTemplates)
        m_valid = Exec(QStringLiteral("DELETE FROM Templates")) &&
                  Exec(QStringLiteral("DELETE FROM sqlite_sequence WHERE name = 'Templates'"));
}

TestDatabase::~TestDatabase() {
    if (DataAccess::Instance().DatabasePath() == Path())
        DataAccess::Instance().CloseDatabase();
}

QString TestDatabase::Path() const {
    return m_dir.path() + QStringLiteral("/Corvantis.pdb");
}

QString TestDatabase::Folder() const {
    return m_dir.path();
}

QString TestDatabase::ContentFolder() const {
    return m_dir.path() + QStringLiteral("/Content");
}

qint32 TestDatabase::AddServiceItem(qint32 typeId, const QString& description,
                                    const QString& content, const QString& notes) {
    qint32 id = 0;
    DataAccess& da = DataAccess::Instance();
    da.AddServiceItem(description, QString(), content, typeId, m_lastError, true, id);
    if (id == 0)
        return 0;
    if (!notes.isEmpty() &&
        !Exec(
            QStringLiteral("UPDATE ServiceItems SET ServiceItemNotes = ? WHERE ServiceItemID = ?"),
            {notes, id}))
        return 0;
    return id;
}

qint32 TestDatabase::AddFileItem(qint32 typeId, const QString& description,
                                 const QString& strFile) {
    const qint32 id = AddServiceItem(typeId, description);
    if (id == 0 ||
        !Exec(QStringLiteral(
                  "UPDATE ServiceItems SET ServiceItemFilename = ? WHERE ServiceItemID = ?"),
              {strFile, id}))
        return 0;
    return id;
}

qint32 TestDatabase::AddSong(const QString& description, const QList<SongPart>& parts,
                             const QList<int>& sequence) {
    const qint32 song = AddServiceItem(Song, description);
    if (song == 0)
        return 0;
    DataAccess& da = DataAccess::Instance();
    QList<qint32> verses;
    for (const SongPart& part : parts) {
        qint32 verse = 0;
        da.AddVerse(song, part.name, part.text, part.isChorus, m_lastError, verse);
        if (verse == 0)
            return 0;
        verses << verse;
    }
    QList<int> order = sequence;
    if (order.isEmpty())
        for (int i = 0; i < parts.size(); ++i)
            order << i;
    for (int index : order) {
        if (index < 0 || index >= verses.size()) {
            m_lastError = QStringLiteral("Sequence index %1 names no part.").arg(index);
            return 0;
        }
        da.AddSongSequenceEntry(song, verses[index], m_lastError);
        if (!m_lastError.isEmpty())
            return 0;
    }
    return song;
}

QList<qint32> TestDatabase::VerseIds(qint32 songId) const {
    QList<qint32> ids;
    QSqlQuery q(DataAccess::Instance().Database());
    q.prepare(
        QStringLiteral("SELECT VerseID FROM Verses WHERE ServiceItemID = ? ORDER BY VerseID"));
    q.addBindValue(songId);
    q.exec();
    while (q.next())
        ids << q.value(0).toInt();
    return ids;
}

qint32 TestDatabase::AddService(const QString& name, const QList<Row>& rows, const QString& type) {
    DataAccess& da = DataAccess::Instance();
    qint32 service = 0;
    da.AddService(m_lastError, service);
    if (service == 0)
        return 0;
    da.SaveServiceDetails(service, name, type, QString(), QString(), QString(), QDateTime(), 0,
                          m_lastError);
    if (!m_lastError.isEmpty())
        return 0;
    for (const Row& row : rows) {
        da.AddServiceContentItem(service, row.serviceItemId, row.showAtRunTime, row.length,
                                 m_lastError);
        if (!m_lastError.isEmpty())
            return 0;
    }
    return service;
}

bool TestDatabase::AddServicePropBag(qint32 serviceId, const QList<qint32>& itemIds) {
    for (qint32 item : itemIds) {
        DataAccess::Instance().AddServicePropBagItem(serviceId, item, m_lastError);
        if (!m_lastError.isEmpty())
            return false;
    }
    return true;
}

bool TestDatabase::AddServiceItemPropBag(qint32 itemId, const QList<qint32>& itemIds) {
    for (qint32 item : itemIds) {
        DataAccess::Instance().AddServiceItemPropBagItem(itemId, item, m_lastError);
        if (!m_lastError.isEmpty())
            return false;
    }
    return true;
}

bool TestDatabase::AddKeywords(qint32 itemId, const QStringList& keywords) {
    DataAccess& da = DataAccess::Instance();
    for (const QString& keyword : keywords) {
        qint32 id = 0;
        da.AddKeyword(keyword, m_lastError, id);
        if (id == 0)
            return false;
        da.AddServiceItemKeyword(itemId, id, m_lastError);
        if (!m_lastError.isEmpty())
            return false;
    }
    return true;
}

bool TestDatabase::AddPoints(qint32 itemId, const QList<Point>& points) {
    DataAccess& da = DataAccess::Instance();
    for (const Point& point : points) {
        da.SavePoint(itemId, point.text, 0, point.key, point.parentKey, point.notes, m_lastError);
        if (!m_lastError.isEmpty())
            return false;
    }
    return Exec(
        QStringLiteral("UPDATE ServiceItems SET RunAsPointsList = 1 WHERE ServiceItemID = ?"),
        {itemId});
}

qint32 TestDatabase::AddShortList(const QString& description, const QList<qint32>& itemIds,
                                  const QString& createdBy) {
    DataAccess& da = DataAccess::Instance();
    qint32 id = 0;
    da.NewShortListRecord(m_lastError, id);
    if (id == 0)
        return 0;
    QStringList content;
    for (qint32 item : itemIds)
        content << QString::number(item);
    da.SaveShortList(id, description, createdBy, QString(), content.join(','), m_lastError);
    return m_lastError.isEmpty() ? id : 0;
}

qint32 TestDatabase::AddTemplate(const QString& description, bool isServiceTemplate,
                                 const QString& occasion) {
    qint32 id = 0;
    DataAccess::Instance().AddTemplate(description, occasion, QStringLiteral("Tester"), QString(),
                                       false, isServiceTemplate, QString(), m_lastError, id);
    return id;
}

QString TestDatabase::WriteContentFile(const QString& name, const QByteArray& bytes) {
    const QString path = ContentFolder() + '/' + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        m_lastError = file.errorString();
        return QString();
    }
    file.write(bytes);
    return path;
}

QVariant TestDatabase::Scalar(const QString& sql, const QVariantList& params) const {
    QSqlQuery q(DataAccess::Instance().Database());
    q.prepare(sql);
    for (const QVariant& value : params)
        q.addBindValue(value);
    if (!q.exec() || !q.next())
        return QVariant();
    return q.value(0);
}

qint32 TestDatabase::Count(const QString& table, const QString& condition,
                           const QVariantList& params) const {
    QString sql = QStringLiteral("SELECT count(*) FROM ") + table;
    if (!condition.isEmpty())
        sql += QStringLiteral(" WHERE ") + condition;
    return Scalar(sql, params).toInt();
}

bool TestDatabase::ExecElsewhere(const QString& sql, const QVariantList& params) {
    const QString connection = QStringLiteral("another program");
    bool ok = false;
    {
        QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        other.setDatabaseName(Path());
        if (other.open()) {
            QSqlQuery query(other);
            ok = query.prepare(sql);
            for (const QVariant& param : params)
                query.addBindValue(param);
            ok = ok && query.exec();
            if (!ok)
                m_lastError = query.lastError().text();
            query.finish();
            other.close();
        } else {
            m_lastError = other.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return ok;
}

bool TestDatabase::Exec(const QString& sql, const QVariantList& params) {
    QSqlQuery q(DataAccess::Instance().Database());
    q.prepare(sql);
    for (const QVariant& value : params)
        q.addBindValue(value);
    if (q.exec())
        return true;
    m_lastError = q.lastError().text();
    return false;
}
