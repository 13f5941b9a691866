#include "SampleDatabase.h"

#include "DataAccess.h"
#include "DataAccessCore.h"
#include "SampleContent.h"
#include "SampleMedia.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <unistd.h>

// Builds the sample database through DataAccess itself, so that the sample is made of exactly
// the rows the program writes.

using P = DataAccessPrivate;

namespace {

class Builder {
public:
    Builder(const QString& content, QString& error) : m_content(content), m_error(error) {}

    bool Run() {
        DataAccess::Instance().BeginTrans();
        const bool ok = Options() && Media() && Hymns() && Texts() && Outline() &&
                        ResponsiveReading() && Services() && ShortLists() && Templates() &&
                        Dates() && NewestShown();
        if (ok)
            DataAccess::Instance().CommitTrans();
        else
            DataAccess::Instance().Rollback();
        return ok;
    }

private:
    DataAccess& da() { return DataAccess::Instance(); }
    bool Ok() const { return m_error.isEmpty(); }

    bool Options() {
        std::unique_ptr<Recordset> rs;
        da().GetOptions(m_error, rs);
        if (!Ok() || !rs->Edit())
            return false;
        rs->SetField("ChurchName", "Grace Community Church");
        rs->SetField("ChurchPastorName", "Rev. Anna Lindqvist");
        rs->SetField("ChurchAddress1", "12 Chapel Lane");
        rs->SetField("ChurchAddress2", "Millbrook");
        rs->SetField("ChurchPhone1", "01234 567890");
        rs->SetField("ChurchEmail", "office@gracecommunity.example");
        rs->SetField("ChurchWebSite", "www.gracecommunity.example");
        rs->SetField("ChurchMissionStatement", "Loving God, loving our neighbours.");
        return rs->Update() || Fail(rs->LastError());
    }

    bool Fail(const QString& text) {
        if (m_error.isEmpty())
            m_error = text;
        return false;
    }

    qint32 Picture(const QString& file, const QString& kind, const QString& description) {
        if (!SampleMedia::WritePicture(m_content + '/' + file, kind)) {
            Fail(QStringLiteral("The picture %1 could not be written.").arg(file));
            return 0;
        }
        qint32 id = 0;
        da().AddImageServiceItemInFolder(file, id);
        if (id == 0 || !Exec("UPDATE ServiceItems SET ServiceItemDescription = ?, "
                             "ServiceItemSource = 'Made for the sample database', "
                             "SecondsToRun = 0 WHERE ServiceItemID = ?",
                             {description, id}))
            return 0;
        return id;
    }

    bool Media() {
        m_ids["sunrise"] = Picture("Sunrise.bmp", "sunrise", "Sunrise");
        m_ids["cross"] = Picture("Cross.bmp", "cross", "The Cross");
        m_ids["window"] = Picture("Window.bmp", "window", "Stained Glass Window");
        if (!Ok())
            return false;
        const QString wav = m_content + QStringLiteral("/Old Hundredth.wav");
        if (!SampleMedia::WriteOldHundredth(wav))
            return Fail(QStringLiteral("The music file could not be written."));
        qint32 music = 0;
        da().AddServiceItem("Old Hundredth (organ)", "Genevan Psalter (1551)", QString(), 10,
                            m_error, true, music);
        if (!Ok())
            return false;
        da().SaveServiceItemContent(music, 10, QString(), wav, m_error);
        m_ids["music"] = music;
        return Ok() && SetOption("DefaultBackgroundImage", QString::number(m_ids["window"]));
    }

    bool SetOption(const QString& name, const QVariant& value) {
        std::unique_ptr<Recordset> rs;
        da().GetOptions(m_error, rs);
        return Ok() && rs->Edit() && rs->SetField(name, value) && rs->Update();
    }

    bool Keywords(qint32 item, const QString& list) {
        for (const QString& word : list.split(',', Qt::SkipEmptyParts)) {
            qint32 keyword = 0;
            da().AddKeyword(P::ToStored(word.trimmed()), m_error, keyword);
            if (Ok())
                da().AddServiceItemKeyword(item, keyword, m_error);
            if (!Ok())
                return false;
        }
        return true;
    }

    // A hymn's words as one text, as they are typed: the verses in order with
    // a blank line between them, the chorus once after the first verse.
    static QString Words(const SampleContent::Hymn& hymn) {
        QStringList parts;
        for (qsizetype i = 0; i < hymn.verses.size(); ++i) {
            parts << hymn.verses.at(i);
            if (i == 0 && !hymn.chorus.isEmpty())
                parts << hymn.chorus;
        }
        return parts.join(QStringLiteral("\n\n"));
    }

    bool Hymn(const SampleContent::Hymn& hymn) {
        qint32 id = 0;
        const QString title = P::ToStored(hymn.title);
        da().AddServiceItem(title, hymn.author, QString(), 17, m_error, true, id);
        if (!Ok())
            return false;
        da().SaveServiceItemGeneral(17, id, title, hymn.author, QString(), hymn.key,
                                    QStringLiteral("Public domain"), QString(), hymn.tune, m_error);
        // The whole words stand in the content as well, as the editor keeps
        // a song typed by hand, so that the quick filter finds a song by them.
        if (Ok())
            da().SaveServiceItemContent(id, 17, P::ToStored(Words(hymn)), QString(), m_error);
        QList<qint32> verses;
        for (int i = 0; Ok() && i < hymn.verses.size(); ++i) {
            qint32 verse = 0;
            da().AddVerse(id, QStringLiteral("Verse %1").arg(i + 1), hymn.verses[i], false, m_error,
                          verse);
            verses << verse;
        }
        qint32 chorus = 0;
        if (Ok() && !hymn.chorus.isEmpty())
            da().AddVerse(id, QStringLiteral("Chorus"), hymn.chorus, true, m_error, chorus);
        for (qint32 verse : verses) {
            if (Ok())
                da().AddSongSequenceEntry(id, verse, m_error);
            if (Ok() && chorus)
                da().AddSongSequenceEntry(id, chorus, m_error);
        }
        if (Ok())
            da().SaveServiceItemRunDetails(id, false, 0, 3, 0, 0, 0, QString(), QString(), false,
                                           m_error, false);
        m_ids[hymn.title] = id;
        return Ok() && Keywords(id, hymn.keywords);
    }

    bool Hymns() {
        for (const SampleContent::Hymn& hymn : SampleContent::Hymns())
            if (!Hymn(hymn))
                return false;
        // A background picture and music of their own for two hymns.
        da().AddServiceItemImage(m_ids["Amazing Grace"], m_ids["sunrise"], m_error);
        const qint32 doxology = m_ids["Praise God, from Whom All Blessings Flow (Doxology)"];
        return Ok() && Exec("UPDATE ServiceItems SET ServiceItemMusic = ?, StartMusicPrompt = "
                            "'Organ plays the tune once through' WHERE ServiceItemID = ?",
                            {QString::number(m_ids["music"]), doxology});
    }

    bool Texts() {
        for (const SampleContent::TextItem& text : SampleContent::TextItems()) {
            qint32 id = 0;
            da().AddServiceItem(text.title, text.source, text.content, text.type, m_error, true,
                                id);
            if (!Ok())
                return false;
            da().SaveServiceItemGeneral(text.type, id, text.title, text.source, QString(),
                                        QString(), text.copyright, QString(), QString(), m_error);
            bool lines = false;
            QString ignored;
            da().TextIsLineStructured(text.content, ignored, lines);
            if (Ok())
                da().SaveServiceItemRunDetails(id, false, 0, lines ? 1 : 2, 0, 0, lines ? 4 : 0,
                                               QString(), QString(), false, m_error, false);
            m_ids[P::ToDisplay(text.title)] = id;
            if (!Ok() || !Keywords(id, text.keywords))
                return false;
        }
        return true;
    }

    bool Outline() {
        qint32 id = 0;
        da().AddServiceItem("The Good Shepherd (sermon outline)", "Sermon on Psalm 23 and John 10",
                            QString(), 11, m_error, true, id);
        const QList<QStringList> points = {
            {"P1", "", "The Shepherd knows his sheep", "John 10:14"},
            {"P1a", "P1", "He calls each one by name", ""},
            {"P1b", "P1", "No one is a number to him", ""},
            {"P2", "", "The Shepherd provides", "Psalm 23:1-3"},
            {"P2a", "P2", "Green pastures and still waters", ""},
            {"P2b", "P2", "Rest for the weary", ""},
            {"P3", "", "The Shepherd protects", "Psalm 23:4"},
            {"P3a", "P3", "Through the darkest valley", ""},
            {"P4", "", "The Shepherd gives his life", "John 10:11"},
            {"P5", "", "Following the Shepherd this week", "An invitation"},
        };
        for (const QStringList& point : points)
            if (Ok())
                da().SavePoint(id, point[2], 0, point[0], point[1], point[3], m_error);
        if (Ok())
            da().SaveServiceItemRunDetails(id, true, 0, 5, 0, 0, 0, QString(), QString(), true,
                                           m_error, false);
        if (Ok())
            da().AddServiceItemPropBagItem(id, m_ids["The Lord Is My Shepherd"], m_error);
        if (Ok())
            da().AddServiceItemPropBagItem(id, m_ids["cross"], m_error);
        if (Ok())
            da().AddServiceItemResource(id, "Bible (World English Bible)", m_error);
        m_ids["outline"] = id;
        return Ok() && Keywords(id, "sermon,shepherd,psalm");
    }

    bool ResponsiveReading() {
        const QString file = m_content + QStringLiteral("/Psalm 136 responsive.txt");
        QFile out(file);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Text))
            return Fail(QStringLiteral("The reading file could not be written."));
        out.write("Leader: Give thanks to Yahweh, for he is good,\n"
                  "People: for his loving kindness endures forever.\n"
                  "Leader: Give thanks to the God of gods,\n"
                  "People: for his loving kindness endures forever.\n"
                  "Leader: Give thanks to the Lord of lords,\n"
                  "People: for his loving kindness endures forever.\n"
                  "Leader: To him who alone does great wonders,\n"
                  "People: for his loving kindness endures forever.\n"
                  "All: Give thanks to the God of heaven, for his loving kindness endures "
                  "forever.\n");
        out.close();
        qint32 id = 0;
        da().AddServiceItem("Psalm 136 (responsive, from a file)", "Psalm 136:1-4, 26", QString(),
                            16, m_error, true, id);
        if (Ok())
            da().SaveServiceItemContent(id, 16, QString(), file, m_error);
        if (Ok())
            da().SaveServiceItemRunDetails(id, false, 0, 1, 0, 0, 2, QString(), QString(), false,
                                           m_error, false);
        m_ids["Psalm 136"] = id;
        return Ok() && Keywords(id, "psalm,thanksgiving,responsive");
    }

    struct Row {
        QString item; // name in m_ids; "" is a Blank
        bool show = true;
        QString length;
    };

    bool Service(const QString& name, const QString& type, const QString& theme,
                 const QString& notes, const QList<Row>& rows, const QStringList& props,
                 const QStringList& resources) {
        qint32 id = 0;
        da().AddService(m_error, id);
        if (Ok())
            da().SaveServiceDetails(id, P::ToStored(name), type, theme,
                                    QStringLiteral("Rev. Anna Lindqvist"), notes, QDateTime(), 0,
                                    m_error);
        for (const Row& row : rows) {
            if (Ok() && !row.item.isEmpty() && !m_ids.value(row.item))
                return Fail(QStringLiteral("The sample has no item named %1.").arg(row.item));
            if (Ok())
                da().AddServiceContentItem(id, row.item.isEmpty() ? 1 : m_ids[row.item], row.show,
                                           row.length, m_error);
        }
        for (const QString& prop : props)
            if (Ok())
                da().AddServicePropBagItem(id, m_ids.value(prop), m_error);
        for (const QString& resource : resources)
            if (Ok())
                da().AddServiceResource(id, resource, m_error);
        m_services << id;
        return Ok();
    }

    bool Services() {
        return Service("Sunday Morning Worship", "Morning Worship", "The Good Shepherd",
                       "Communion is on the first Sunday of the month.",
                       {{"Welcome and Notices", true, "00:03:00"},
                        {"", true, ""},
                        {"Holy, Holy, Holy", true, "00:04:00"},
                        {"Collect for Purity", true, "00:01:00"},
                        {"The Lord Is My Shepherd", true, "00:02:00"},
                        {"All Hail the Power of Jesus' Name", true, "00:03:30"},
                        {"outline", true, "00:20:00"},
                        {"", false, ""},
                        {"Offering", false, "00:05:00"},
                        {"The Lord's Prayer", true, "00:01:00"},
                        {"Amazing Grace", true, "00:04:00"},
                        {"The Blessing", true, "00:01:00"},
                        {"", true, ""}},
                       {"cross", "Praise God, from Whom All Blessings Flow (Doxology)"},
                       {"Projector", "Hymn books", "Communion table"}) &&
               Service("Evening Prayer", "Evening Service", "Rest", "A quiet service with candles.",
                       {{"Abide with Me", true, "00:04:00"},
                        {"A Quiet Moment", true, "00:03:00"},
                        {"Prayer of Confession", true, "00:02:00"},
                        {"The Beatitudes", true, "00:02:00"},
                        {"The Lord's Prayer", true, "00:01:00"},
                        {"Nearer, My God, to Thee", true, "00:03:00"},
                        {"The Blessing", true, "00:01:00"}},
                       {"window"}, {"Candles"}) &&
               Service("Easter Sunday", "Festival", "Resurrection", "Flowers from the guild.",
                       {{"Christ the Lord Is Risen Today", true, "00:03:00"},
                        {"He Is Risen", true, "00:02:00"},
                        {"", true, ""},
                        {"Crown Him with Many Crowns", true, "00:04:00"},
                        {"The Apostles' Creed", true, "00:02:00"},
                        {"When I Survey the Wondrous Cross", true, "00:04:00"},
                        {"The Blessing", true, "00:01:00"}},
                       {"sunrise", "Rock of Ages"}, {"Easter garden", "Projector"}) &&
               Service("Harvest Thanksgiving", "Family Service", "Harvest",
                       "Gifts go to the food bank afterwards.",
                       {{"Now Thank We All Our God", true, "00:03:00"},
                        {"Psalm 100 (responsive)", true, "00:02:00"},
                        {"All Creatures of Our God and King", true, "00:04:00"},
                        {"The Good Samaritan", true, "00:05:00"},
                        {"Jesus Loves Me", true, "00:02:00"},
                        {"Psalm 136", true, "00:02:00"},
                        {"Offering", false, "00:05:00"},
                        {"Praise God, from Whom All Blessings Flow (Doxology)", true, "00:01:00"},
                        {"", true, ""}},
                       {"The Lost Sheep (children)"}, {"Harvest table", "Baskets"}) &&
               Service("Carol Service", "Festival", "Christmas", "Mince pies after the service.",
                       {{"Joy to the World", true, "00:03:00"},
                        {"The Birth of Jesus", true, "00:02:00"},
                        {"Silent Night", true, "00:04:00"},
                        {"", false, ""},
                        {"The Blessing", true, "00:01:00"}},
                       {"window"}, {"Candles", "Christmas tree"});
    }

    bool ShortLists() {
        const QList<QPair<QString, QStringList>> lists = {
            {"Hymns of Praise",
             {"Holy, Holy, Holy", "Praise to the Lord, the Almighty", "O Worship the King",
              "Joyful, Joyful, We Adore Thee", "All Hail the Power of Jesus' Name"}},
            {"Christmas", {"Joy to the World", "Silent Night", "The Birth of Jesus"}}};
        for (const auto& list : lists) {
            qint32 id = 0;
            da().NewShortListRecord(m_error, id);
            QStringList content;
            for (const QString& name : list.second)
                content << QString::number(m_ids.value(name));
            if (Ok())
                da().SaveShortList(id, list.first, QStringLiteral("Music Group"),
                                   QStringLiteral("Made for the sample database"),
                                   content.join(','), m_error);
            if (!Ok())
                return false;
        }
        return true;
    }

    bool Templates() {
        struct T {
            const char* description;
            const char* occasion;
            bool service;
        };
        // Besides the two in-built ones that every new database holds.
        const T templates[] = {{"Wedding Order of Service", "Wedding", true},
                               {"Reading Handout", "Bible Study", false}};
        for (const T& t : templates) {
            qint32 id = 0;
            da().AddTemplate(t.description, t.occasion, QStringLiteral("Corvantis"),
                             QStringLiteral("Shipped with Corvantis"), true, t.service, QString(),
                             m_error, id);
            if (!Ok())
                return false;
        }
        return true;
    }

    // Spreads the creation dates over the past year, so that "newest first" means something,
    // and gives the services their last delivery.
    bool Dates() {
        const QDateTime now = QDateTime::currentDateTime();
        const QString form = QStringLiteral("yyyy-MM-dd HH:mm:ss");
        if (!Exec("UPDATE ServiceItems SET ServiceItemDateCreated = ? WHERE ServiceItemID > 1",
                  {now.addDays(-400).toString(form)}))
            return false;
        for (int i = 0; i < m_services.size(); ++i) {
            const QDateTime created = now.addDays(-300 + i * 45);
            const QVariant delivered = i == m_services.size() - 1
                                           ? QVariant()
                                           : QVariant(created.addDays(30).toString(form));
            if (!Exec("UPDATE Services SET ServiceDateCreated = ?, ServiceDateLastDelivered = ? "
                      "WHERE ServiceID = ?",
                      {created.toString(form), delivered, m_services[i]}))
                return false;
        }
        return Exec("UPDATE ServiceItems SET ServiceItemDateCreated = datetime("
                    "ServiceItemDateCreated, '+' || (ServiceItemID * 7) || ' days') "
                    "WHERE ServiceItemID > 1",
                    {});
    }

    // The Services page opens on the newest service and remembers it as shown; the sample
    // remembers it already, so that the first start writes nothing before its window opens.
    bool NewestShown() {
        if (!m_services.isEmpty())
            P::SetState(QStringLiteral("LastShownServiceID"), m_services.last(), m_error,
                        "SampleDatabase");
        return Ok();
    }

    bool Exec(const char* sql, const QVariantList& values) {
        return P::Exec(QLatin1String(sql), values, m_error, "SampleDatabase");
    }

    QString m_content;
    QString& m_error;
    QHash<QString, qint32> m_ids;
    QList<qint32> m_services;
};

void RemoveFile(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
}

// The file that is built is a scratch file until it is complete: a build that stops half-way
// is thrown away and made again. So it is written without waiting for the disk at each step
// (the schema, the rows, the checkpoint), and flushed to the disk once, when it is complete.
// The file is made in write-ahead mode before the data library opens it, so that the schema
// goes in by the same road as the rows.
bool StartScratchFile(const QString& path, QString& error) {
    const QString connection = QStringLiteral("SampleDatabase.scratch");
    bool ok = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        db.setDatabaseName(path);
        QSqlQuery q(db);
        ok = db.open() && q.exec(QStringLiteral("PRAGMA synchronous = OFF")) &&
             q.exec(QStringLiteral("PRAGMA journal_mode = WAL"));
        if (!ok)
            error = QStringLiteral("%1 could not be made: %2")
                        .arg(path, q.lastError().isValid() ? q.lastError().text()
                                                           : db.lastError().text());
        q.finish();
        db.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return ok;
}

bool WriteWithoutWaiting(QString& error) {
    QSqlQuery q(DataAccess::Instance().Database());
    if (q.exec(QStringLiteral("PRAGMA synchronous = OFF")))
        return true;
    error = q.lastError().text();
    return false;
}

bool FlushToDisk(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && ::fsync(file.handle()) == 0;
}

} // namespace

bool SampleDatabase::Build(const QString& strPath, QString& strErrorMessage) {
    strErrorMessage.clear();
    const QString content = QFileInfo(strPath).absolutePath() + QStringLiteral("/Content");
    const QString building = strPath + QStringLiteral(".building");
    QDir().mkpath(content);
    RemoveFile(building);
    DataAccess& da = DataAccess::Instance();
    if (!StartScratchFile(building, strErrorMessage)) {
        RemoveFile(building);
        return false;
    }
    da.OpenDatabase(building, strErrorMessage);
    if (!strErrorMessage.isEmpty() || !WriteWithoutWaiting(strErrorMessage)) {
        da.CloseDatabase();
        RemoveFile(building);
        return false;
    }
    da.SetContentFolder(content);
    Builder builder(content, strErrorMessage);
    const bool built = builder.Run();
    da.CloseDatabase();
    if (!built || !FlushToDisk(building)) {
        if (built)
            P::Fail(strErrorMessage, "SampleDatabase",
                    QStringLiteral("%1 could not be written to the disk.").arg(building));
        RemoveFile(building);
        return false;
    }
    RemoveFile(strPath);
    if (!QFile::rename(building, strPath)) {
        P::Fail(strErrorMessage, "SampleDatabase",
                QStringLiteral("%1 could not be made.").arg(strPath));
        return false;
    }
    da.OpenDatabase(strPath, strErrorMessage);
    da.SetContentFolder(content);
    return strErrorMessage.isEmpty();
}

void DataAccess::OpenSampleDatabase(QString& strErrorMessage) {
    strErrorMessage.clear();
    const QString path = SampleDatabasePath();
    if (!QFileInfo::exists(path)) {
        SampleDatabase::Build(path, strErrorMessage);
        return;
    }
    OpenDatabase(path, strErrorMessage);
    SetContentFolder(QFileInfo(path).absolutePath() + QStringLiteral("/Content"));
}
