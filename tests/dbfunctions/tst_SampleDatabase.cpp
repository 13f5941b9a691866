// The sample database a newcomer sees first: real content, complete, consistent.

#include "DataAccess.h"
#include "SampleDatabase.h"

#include <QFile>
#include <QImage>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

class tst_SampleDatabase : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    DataAccess& da() { return DataAccess::Instance(); }
    qint32 count(const QString& sql) {
        QSqlQuery q = da().Database().exec(sql);
        return q.next() ? q.value(0).toInt() : -1;
    }

private slots:
    void initTestCase() {
        QString error;
        QVERIFY2(SampleDatabase::Build(m_dir.path() + "/Sample/Corvantis.pdb", error),
                 qPrintable(error));
        QVERIFY(!QFile::exists(m_dir.path() + "/Sample/Corvantis.pdb.building"));
    }
    void cleanupTestCase() { da().CloseDatabase(); }

    void holdsAtLeastTwentyFiveHymnsWithTheirParts() {
        QVERIFY(count("SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 17") >= 25);
        QCOMPARE(count("SELECT count(*) FROM ServiceItems si WHERE ServiceItemTypeID = 17 AND NOT "
                       "EXISTS (SELECT 1 FROM SongSequence ss WHERE ss.ServiceItemID = "
                       "si.ServiceItemID)"),
                 0);
        QVERIFY(count("SELECT count(*) FROM Verses WHERE IsChorus = 1") >= 4);
        QCOMPARE(count("SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 17 AND "
                       "(ServiceItemSongKey IS NULL OR ServiceItemMelody IS NULL OR "
                       "ServiceItemCopyrightDetails IS NULL)"),
                 0);
    }

    void chorusIsSungAfterEveryVerse() {
        QString error;
        std::unique_ptr<Recordset> items;
        da().GetServiceItems("ServiceItemDescription = 'Blessed Assurance'", 4, error, items);
        QCOMPARE(items->RecordCount(), 1);
        std::unique_ptr<Recordset> rs;
        da().GetSongSequence(items->Fields("ServiceItemID").toInt(), error, rs);
        QStringList names;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            names << rs->Fields("VerseName").toString();
        QCOMPARE(names,
                 (QStringList{"Verse 1", "Chorus", "Verse 2", "Chorus", "Verse 3", "Chorus"}));
    }

    void holdsPrayersReadingsAndAPointsOutline() {
        QVERIFY(count("SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 1") >= 3);
        QVERIFY(count("SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 2") >= 5);
        QVERIFY(count("SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 2 AND "
                      "ServiceItemCopyrightDetails LIKE '%World English Bible%'") >= 5);
        QVERIFY(count("SELECT count(*) FROM ServiceItemPoints") >= 8);
        QVERIFY(count("SELECT count(*) FROM ServiceItemPoints WHERE ParentPointKey <> ''") >= 3);
    }

    void picturesAndMusicAreRealFiles() {
        QString folder;
        da().GetContentFolder(folder);
        QCOMPARE(folder, m_dir.path() + "/Sample/Content");
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItems("ServiceItemTypeID = 4", 4, error, rs);
        QVERIFY(rs->RecordCount() >= 3);
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            QString file;
            da().GetServiceItemFileName(rs->Fields("ServiceItemID").toInt(), error, file);
            QVERIFY2(!QImage(file).isNull(), qPrintable(file));
        }
        da().GetServiceItems("ServiceItemTypeID = 10", 4, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        QString music;
        da().GetServiceItemFileName(rs->Fields("ServiceItemID").toInt(), error, music);
        QFile wav(music);
        QVERIFY(wav.open(QIODevice::ReadOnly));
        QVERIFY(wav.read(4) == "RIFF");
        QVERIFY(wav.size() > 100000);
    }

    void fiveServicesWithBlanksHiddenRowsPropsAndResources() {
        QCOMPARE(count("SELECT count(*) FROM Services"), 5);
        QCOMPARE(count("SELECT count(*) FROM Services s WHERE NOT EXISTS (SELECT 1 FROM "
                       "ServiceContents c WHERE c.ServiceID = s.ServiceID)"),
                 0);
        QVERIFY(count("SELECT count(*) FROM ServiceContents WHERE ServiceItemID = 1") >= 4);
        QVERIFY(count("SELECT count(*) FROM ServiceContents WHERE ShowAtRunTime = 0") >= 2);
        QVERIFY(count("SELECT count(DISTINCT ServiceID) FROM ServicePropBag") >= 4);
        QVERIFY(count("SELECT count(DISTINCT ServiceID) FROM ServiceResources") >= 4);
        QString error, description;
        da().GetServiceDescription(1, error, description);
        QCOMPARE(description, QString("Sunday Morning Worship"));
    }

    void shortListsTemplatesAndKeywords() {
        QCOMPARE(count("SELECT count(*) FROM ShortLists"), 2);
        QCOMPARE(count("SELECT count(*) FROM Templates"), 4);
        QVERIFY(count("SELECT count(*) FROM KeyWords") >= 20);
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetShortListsWhere("ShortListDescription = 'Christmas'", error, rs);
        QCOMPARE(rs->Fields("ShortListContent").toString().split(',').size(), 3);
    }

    void apostrophesAreStoredWithTheMarker() {
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemsJoined("ServiceItemDescription Like '*@@*'", 4, error, rs);
        QVERIFY(rs->RecordCount() >= 2);
        QVERIFY(
            count("SELECT count(*) FROM ServiceItems WHERE ServiceItemDescription LIKE '%''%'") ==
            0);
    }

    // The Services page opens on the newest service and remembers it as shown: the sample
    // remembers that one already, so the first start has nothing to write.
    void newestServiceIsRememberedAsShown() {
        QString error;
        std::unique_ptr<Recordset> services;
        da().GetServices(QString(), 4, error, services);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(services && services->RecordCount() > 0);
        services->MoveFirst();
        const qint32 newest = services->Fields("ServiceID").toInt();
        QCOMPARE(count("SELECT StateValue FROM StoreState WHERE StateKey = 'LastShownServiceID'"),
                 newest);
        const qint32 changes = count("SELECT total_changes()");
        da().ServiceShown(newest);
        QCOMPARE(count("SELECT total_changes()"), changes);
    }

    void builtFileIsFlushedAndItsScratchCompanionsAreGone() {
        const QString base = m_dir.path() + "/Sample/Corvantis.pdb.building";
        for (const char* suffix : {"", "-wal", "-shm"})
            QVERIFY2(!QFile::exists(base + QLatin1String(suffix)), suffix);
        QSqlQuery mode = da().Database().exec("PRAGMA journal_mode");
        QVERIFY(mode.next());
        QCOMPARE(mode.value(0).toString(), QString("wal"));
    }

    void fileIsConsistent() {
        QSqlQuery q = da().Database().exec("PRAGMA foreign_key_check");
        QVERIFY(!q.next());
        QSqlQuery integrity = da().Database().exec("PRAGMA integrity_check");
        QVERIFY(integrity.next());
        QCOMPARE(integrity.value(0).toString(), QString("ok"));
        QVERIFY(count("SELECT count(*) FROM ServiceItems") < 32767);
    }
};

QTEST_GUILESS_MAIN(tst_SampleDatabase)
#include "tst_SampleDatabase.moc"
