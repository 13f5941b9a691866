#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

// A fresh Corvantis.pdb for one test.
//
// The constructor makes a temporary folder, creates Corvantis.pdb in it (schema and seed rows:
// the service item types, the Blank item 1, the options row) and opens it through
// DataAccess::Instance().OpenDatabase, so that every control under test works on it. The
// content folder is the folder "Content" beside it (ContentFolder()). The destructor closes the
// database and removes the folder. Use one per test function (e.g. a member created in init()
// or a local at the top of the test).
//
// The builders write through DataAccess and return the new id; on a failure they return 0 and
// LastError() says why (check with QVERIFY(id > 0)).
//
//   TestDatabase db;
//   const qint32 hymn = db.AddSong("Amazing Grace", {{"Verse 1", "Amazing grace..."},
//                                                   {"Chorus", "Praise him", true}});
//   const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis");
//   const qint32 service = db.AddService("Sunday Morning", {{hymn}, TestDatabase::Blank(),
//                                                          {prayer, false}});
//   QCOMPARE(db.Count("ServiceContents", "ServiceID = ?", {service}), 3);
class TestDatabase {
public:
    // Type ids of the seeded service item types.
    enum TypeId : qint32 {
        NoType = 0,
        Prayer = 1,
        Reading = 2,
        Meditation = 3,
        Picture = 4,
        PictureFromFile = 5,
        Message = 6,
        Children = 7,
        Response = 8,
        Story = 9,
        Music = 10,
        PointsOnly = 11,
        PowerPoint = 12,
        Creed = 13,
        Announcement = 14,
        Miscellaneous = 15,
        ResponsiveReading = 16,
        Song = 17,
    };

    struct SongPart {
        SongPart(const QString& n, const QString& t, bool chorus = false)
            : name(n), text(t), isChorus(chorus) {}
        QString name; // "Verse 1", "Chorus"
        QString text; // the words, lines separated by "\n"
        bool isChorus = false;
    };
    struct Row { // one row of a service's contents: {itemId}, {itemId, false}, Blank()
        Row(qint32 id = 1, bool show = true, const QString& len = QString())
            : serviceItemId(id), showAtRunTime(show), length(len) {}
        qint32 serviceItemId = 1;
        bool showAtRunTime = true;
        QString length;
    };
    struct Point {
        QString key;       // "P1"
        QString parentKey; // "" at the top
        QString text;
        QString notes;
    };

    // A new database holds the two in-built templates; most suites want none, so that their own
    // templates are the only ones and are numbered from 1.
    enum Seeds { WithoutInBuiltTemplates, WithInBuiltTemplates };

    explicit TestDatabase(Seeds seeds = WithoutInBuiltTemplates);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    bool IsValid() const { return m_valid; }
    QString Path() const;          // full name of Corvantis.pdb
    QString Folder() const;        // its folder
    QString ContentFolder() const; // Folder() + "/Content" (exists)
    QString LastError() const { return m_lastError; }

    // A service item of a type with a description (and optional content and notes).
    qint32 AddServiceItem(qint32 typeId, const QString& description,
                          const QString& content = QString(), const QString& notes = QString());
    // A service item of a type whose content is the file strFile (its full path, as stored).
    qint32 AddFileItem(qint32 typeId, const QString& description, const QString& strFile);
    // A song (type 17) with its parts; sequence holds 0-based indexes into parts in sung order
    // (empty: the parts in their order).
    qint32 AddSong(const QString& description, const QList<SongPart>& parts,
                   const QList<int>& sequence = {});
    // The VerseIDs of a song, in the order its parts were given.
    QList<qint32> VerseIds(qint32 songId) const;
    // A service with its rows in order. Blank() is a Blank row (item 1); a row with
    // showAtRunTime false is hidden at run time.
    qint32 AddService(const QString& name, const QList<Row>& rows = {},
                      const QString& type = QStringLiteral("Morning Worship"));
    static Row Blank(bool showAtRunTime = true) { return Row{1, showAtRunTime, QString()}; }
    // Prop bags and resources.
    bool AddServicePropBag(qint32 serviceId, const QList<qint32>& itemIds);
    bool AddServiceItemPropBag(qint32 itemId, const QList<qint32>& itemIds);
    // Keywords of an item (an existing keyword is reused); returns false on failure.
    bool AddKeywords(qint32 itemId, const QStringList& keywords);
    // Points of an item, in list order; also marks the item to run as a points list.
    bool AddPoints(qint32 itemId, const QList<Point>& points);
    qint32 AddShortList(const QString& description, const QList<qint32>& itemIds,
                        const QString& createdBy = QStringLiteral("Tester"));
    qint32 AddTemplate(const QString& description, bool isServiceTemplate,
                       const QString& occasion = QString());
    // Writes a small file into the content folder and returns its full name.
    QString WriteContentFile(const QString& name, const QByteArray& bytes = QByteArray("x"));

    // Direct checks of rows (on DataAccess' own connection, so pending work is seen).
    QVariant Scalar(const QString& sql, const QVariantList& params = {}) const;
    qint32 Count(const QString& table, const QString& condition = QString(),
                 const QVariantList& params = {}) const;
    bool Exec(const QString& sql, const QVariantList& params = {});
    // Runs one statement through a connection of its own, opened and closed around it, as
    // another program would; false (with LastError) when it fails.
    bool ExecElsewhere(const QString& sql, const QVariantList& params = {});

private:
    QTemporaryDir m_dir;
    bool m_valid = false;
    QString m_lastError;
};
