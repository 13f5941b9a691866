#include "LargeDatabase.h"

#include "DataAccess.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

namespace {

const QStringList kWords = {"Grace",    "Glory", "Light",    "Hope",    "Peace",   "Joy",
                            "Shepherd", "River", "Mountain", "Morning", "Evening", "Harvest",
                            "Cross",    "Crown", "Spirit",   "Kingdom", "Mercy",   "Faith"};
const QList<int> kTextTypes = {1, 2, 3, 6, 7, 8, 9, 13, 14, 15, 17};

class Generator {
public:
    Generator(const LargeDatabase::Options& options, QString& error)
        : m_options(options), m_error(error), m_random(options.seed),
          m_db(DataAccess::Instance().Database()) {}

    bool Run() { return Prepare() && Keywords() && Items() && Services() && ShortLists(); }

private:
    bool Exec(QSqlQuery& q) {
        if (q.exec())
            return true;
        m_error = q.lastError().text();
        return false;
    }

    QString Phrase(int words) {
        QStringList parts;
        for (int i = 0; i < words; ++i)
            parts << kWords[m_random.bounded(kWords.size())];
        return parts.join(' ');
    }

    QString Date(int daysAgo) {
        return QDateTime::currentDateTime().addDays(-daysAgo).toString("yyyy-MM-dd HH:mm:ss");
    }

    bool Prepare() {
        m_item = QSqlQuery(m_db);
        m_link = QSqlQuery(m_db);
        m_point = QSqlQuery(m_db);
        return m_item.prepare(
                   "INSERT INTO ServiceItems (ServiceItemTypeID, ServiceItemDescription, "
                   "ServiceItemSource, ServiceItemContent, ServiceItemProvider, "
                   "ServiceItemDateCreated, RunAsPointsList, TextViewMode) VALUES (?, ?, "
                   "?, ?, ?, ?, ?, ?)") &&
               m_link.prepare("INSERT OR IGNORE INTO ServiceItemKeywords (ServiceItemID, "
                              "KeywordID) VALUES (?, ?)") &&
               m_point.prepare("INSERT INTO ServiceItemPoints (ServiceItemID, Position, PointKey, "
                               "ParentPointKey, PointText) VALUES (?, ?, ?, '', ?)");
    }

    bool Keywords() {
        QSqlQuery q(m_db);
        q.prepare("INSERT INTO KeyWords (KeywordText) VALUES (?)");
        for (int i = 0; i < m_options.keywords; ++i) {
            q.bindValue(0, QStringLiteral("%1 %2").arg(kWords[i % kWords.size()]).arg(i + 1));
            if (!Exec(q))
                return false;
            m_keywordIds << q.lastInsertId().toInt();
        }
        return true;
    }

    bool Link(int item) {
        m_link.bindValue(0, item);
        m_link.bindValue(1, m_keywordIds[m_random.bounded(m_keywordIds.size())]);
        return Exec(m_link);
    }

    bool Item(int index) {
        const bool points = m_options.pointsItemEvery > 0 && index % m_options.pointsItemEvery == 0;
        const int type = points ? 11 : kTextTypes[index % kTextTypes.size()];
        const QVariantList values = {type,
                                     QStringLiteral("%1 %2").arg(Phrase(3)).arg(index),
                                     QStringLiteral("Source %1").arg(index % 97),
                                     Phrase(12),
                                     QStringLiteral("Provider %1").arg(index % 13),
                                     Date(m_options.serviceItems - index),
                                     points ? 1 : 0,
                                     points ? 5 : 0};
        for (int i = 0; i < values.size(); ++i)
            m_item.bindValue(i, values[i]);
        if (!Exec(m_item))
            return false;
        const int id = m_item.lastInsertId().toInt();
        m_itemIds << id;
        if (m_keywordIds.isEmpty())
            return true;
        if (!Link(id))
            return false;
        if (m_options.secondKeywordEvery > 0 && index % m_options.secondKeywordEvery == 0 &&
            !Link(id))
            return false;
        for (int p = 1; points && p <= m_options.pointsPerItem; ++p) {
            m_point.bindValue(0, id);
            m_point.bindValue(1, p);
            m_point.bindValue(2, QStringLiteral("P%1").arg(p));
            m_point.bindValue(3, Phrase(5));
            if (!Exec(m_point))
                return false;
        }
        return true;
    }

    bool Items() {
        for (int i = 1; i <= m_options.serviceItems; ++i)
            if (!Item(i))
                return false;
        return true;
    }

    bool Services() {
        QSqlQuery service(m_db), row(m_db);
        service.prepare("INSERT INTO Services (ServiceName, ServiceType, ServiceTheme, "
                        "ServiceDateCreated) VALUES (?, ?, ?, ?)");
        row.prepare("INSERT INTO ServiceContents (ServiceID, Position, ServiceItemID, "
                    "ShowAtRunTime) VALUES (?, ?, ?, ?)");
        for (int s = 1; s <= m_options.services && !m_itemIds.isEmpty(); ++s) {
            service.bindValue(0, QStringLiteral("Service %1").arg(s));
            service.bindValue(1, s % 2 ? "Morning Worship" : "Evening Service");
            service.bindValue(2, Phrase(1));
            service.bindValue(3, Date(m_options.services - s));
            if (!Exec(service))
                return false;
            const int id = service.lastInsertId().toInt();
            for (int r = 1; r <= m_options.rowsPerService; ++r) {
                const bool blank = r % 7 == 0;
                row.bindValue(0, id);
                row.bindValue(1, r);
                row.bindValue(2, blank ? 1 : m_itemIds[m_random.bounded(m_itemIds.size())]);
                row.bindValue(3, r % 11 == 0 ? 0 : 1);
                if (!Exec(row))
                    return false;
            }
        }
        return true;
    }

    bool ShortLists() {
        QSqlQuery q(m_db);
        q.prepare("INSERT INTO ShortLists (ShortListDescription, ShortListDateCreated, "
                  "ShortListCreatedBy, ShortListContent) VALUES (?, ?, 'Generator', ?)");
        for (int l = 1; l <= m_options.shortLists && !m_itemIds.isEmpty(); ++l) {
            QStringList ids;
            for (int i = 0; i < 10; ++i)
                ids << QString::number(m_itemIds[m_random.bounded(m_itemIds.size())]);
            q.bindValue(0, QStringLiteral("Short-List %1").arg(l));
            q.bindValue(1, Date(l));
            q.bindValue(2, ids.join(','));
            if (!Exec(q))
                return false;
        }
        return true;
    }

    const LargeDatabase::Options& m_options;
    QString& m_error;
    QRandomGenerator m_random;
    QSqlDatabase m_db;
    QSqlQuery m_item, m_link, m_point;
    QList<int> m_keywordIds, m_itemIds;
};

} // namespace

bool LargeDatabase::Generate(const QString& strPath, const Options& options,
                             QString& strErrorMessage) {
    strErrorMessage.clear();
    DataAccess& da = DataAccess::Instance();
    da.CloseDatabase();
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(strPath + QLatin1String(suffix));
    da.OpenDatabase(strPath, strErrorMessage);
    if (!strErrorMessage.isEmpty())
        return false;
    da.BeginTrans();
    bool ok = false;
    {
        Generator generator(options, strErrorMessage);
        ok = generator.Run();
    }
    if (ok)
        da.CommitTrans();
    else
        da.Rollback();
    return ok;
}

int LargeDatabase::JoinedRows() {
    QString error;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItemsJoined(QString(), 4, error, rs);
    return rs ? rs->RecordCount() : -1;
}
