// DataAccess operations on a fresh database: every read and write, with the rows they leave.

#include "ChangeStamps.h"
#include "DataAccess.h"
#include "TestDatabase.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

class tst_DataAccess : public QObject {
    Q_OBJECT

private:
    DataAccess& da() { return DataAccess::Instance(); }

private slots:
    // ---- Recordset and options -------------------------------------------------------
    void emptyRecordsetAnswersRecordCountZeroWithoutMoving() {
        TestDatabase db;
        QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServices("ServiceID = 999", 4, error, rs);
        QVERIFY(error.isEmpty());
        QVERIFY(rs);
        QCOMPARE(rs->RecordCount(), 0);
        QVERIFY(rs->Eof());
        rs->MoveLast();
        rs->MoveFirst();
        QVERIFY(rs->Eof());
        QCOMPARE(rs->RecordCount(), 0);
    }

    void showingTheServiceShownLastWritesNothingAndAnotherIsRemembered() {
        TestDatabase db;
        const qint32 morning = db.AddService(QStringLiteral("Morning"));
        const qint32 evening = db.AddService(QStringLiteral("Evening"));
        const QString shown = QStringLiteral(
            "SELECT StateValue FROM StoreState WHERE StateKey = 'LastShownServiceID'");
        da().ServiceShown(morning);
        QCOMPARE(db.Scalar(shown).toInt(), morning);
        const qint32 changes = db.Scalar(QStringLiteral("SELECT total_changes()")).toInt();
        da().ServiceShown(morning);
        QCOMPARE(db.Scalar(QStringLiteral("SELECT total_changes()")).toInt(), changes);
        da().ServiceShown(evening);
        QCOMPARE(db.Scalar(QStringLiteral("SELECT total_changes()")).toInt(), changes + 1);
        QCOMPARE(db.Scalar(shown).toInt(), evening);
        QCOMPARE(db.Count(QStringLiteral("StoreState"),
                          QStringLiteral("StateKey = 'LastShownServiceID'")),
                 1);
    }

    void nullFieldComesBackAsNullNotEmptyText() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Grace before meals");
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItems(QStringLiteral("ServiceItemID = %1").arg(item), 4, error, rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(rs->RecordCount(), 1);
        QVERIFY(rs->Fields("ServiceItemNotes").isNull());
        QVERIFY(rs->Fields("ServiceItemMusic").isNull());
        QCOMPARE(rs->Fields("ServiceItemDescription").toString(), QString("Grace before meals"));
    }

    void booleansComeBackAsBoolAndDatesAsDateTime() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Evening collect");
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItems(QStringLiteral("ServiceItemID = %1").arg(item), 4, error, rs);
        QCOMPARE(rs->Fields("HideSIDetails").typeId(), QMetaType::Bool);
        QCOMPARE(rs->Fields("ServiceItemDateCreated").typeId(), QMetaType::QDateTime);
        QVERIFY(rs->Fields("ServiceItemDateCreated").toDateTime().isValid());
    }

    void fieldNamesIgnoreCaseAndAcceptTablePrefix() {
        TestDatabase db;
        const qint32 song = db.AddSong("Hymn", {{"Verse 1", "Line one\nLine two"}});
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetSongSequence(song, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        QCOMPARE(rs->Fields("Verses.VerseID"), rs->Fields("verseid"));
        QCOMPARE(rs->Fields("VERSES.VERSENAME").toString(), QString("Verse 1"));
        QVERIFY(!rs->Fields("NoSuchField").isValid());
    }

    void getOptionsAlwaysYieldsExactlyOneRow() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetOptions(error, rs);
        QVERIFY(error.isEmpty());
        QCOMPARE(rs->RecordCount(), 1);
        QVERIFY(db.Exec("DELETE FROM Options"));
        da().GetOptions(error, rs);
        QVERIFY(error.isEmpty());
        QCOMPARE(rs->RecordCount(), 1);
        QCOMPARE(db.Count("Options"), 1);
    }

    void optionsRowIsChangedInPlaceByEditSetFieldUpdate() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetOptions(error, rs);
        QVERIFY(rs->Edit());
        QVERIFY(rs->SetField("ChurchName", "St Mary"));
        QVERIFY(rs->SetField("AutoPlayMusic", true));
        QVERIFY(rs->SetField("RunModeFontSize", 40.5));
        QVERIFY(rs->Update());
        std::unique_ptr<Recordset> again;
        da().GetOptions(error, again);
        QCOMPARE(again->Fields("ChurchName").toString(), QString("St Mary"));
        QCOMPARE(again->Fields("AutoPlayMusic").toBool(), true);
        QCOMPARE(again->Fields("RunModeFontSize").toDouble(), 40.5);
    }

    void optionsUpdateRefusesAnUnknownField() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetOptions(error, rs);
        QVERIFY(rs->Edit());
        QVERIFY(!rs->SetField("NotAnOption", 1));
        QVERIFY(!rs->LastError().isEmpty());
    }

    void readOnlyRecordsetCannotBeEdited() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemTypes(error, rs);
        QVERIFY(!rs->Edit());
        QVERIFY(!rs->SetField("ServiceItemTypeName", "x"));
    }

    // ---- Seed rows ---------------------------------------------------------------------
    void newDatabaseHoldsTheSeedRows() {
        TestDatabase db;
        for (int id : {0, 4, 5, 10, 11, 12, 16, 17})
            QCOMPARE(db.Count("ServiceItemTypes", "ServiceItemTypeID = ?", {id}), 1);
        QCOMPARE(db.Count("ServiceItemTypes", "ServiceItemTypeID IN (18, 19)"), 0);
        QCOMPARE(
            db.Scalar("SELECT ServiceItemDescription FROM ServiceItems WHERE ServiceItemID = 1")
                .toString(),
            QString("Blank"));
        QCOMPARE(db.Count("Options"), 1);
        QCOMPARE(db.Scalar("PRAGMA journal_mode").toString(), QString("wal"));
        QCOMPARE(db.Scalar("PRAGMA foreign_keys").toInt(), 1);
    }

    void typeNamesComeFromTheVocabulary() {
        TestDatabase db;
        QString error, name;
        const QStringList words = {"Prayer",       "Reading",      "Meditation", "Message",
                                   "Children",     "Response",     "Story",      "Creed",
                                   "Announcement", "Miscellaneous"};
        for (const QString& word : words)
            QCOMPARE(db.Count("ServiceItemTypes",
                              "ServiceItemTypeName = ? AND ServiceItemTypeID "
                              "BETWEEN 1 AND 15",
                              {word}),
                     1);
        da().GetServiceItemTypeName(17, error, name);
        QCOMPARE(name, QString("Hymn"));
    }

    // ---- Services ------------------------------------------------------------------------
    void addServiceThenSaveDetailsStoresTheFields() {
        TestDatabase db;
        QString error;
        qint32 id = 0;
        da().AddService(error, id);
        QVERIFY(id > 0);
        da().SaveServiceDetails(id, "Harvest", "Family", "Thanks", "Pastor", "Notes", QDateTime(),
                                0, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        std::unique_ptr<Recordset> rs;
        da().GetServices(QStringLiteral("Services.ServiceID = %1").arg(id), 4, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        QCOMPARE(rs->Fields("ServiceName").toString(), QString("Harvest"));
        QCOMPARE(rs->Fields("ServiceType").toString(), QString("Family"));
        QVERIFY(rs->Fields("ServiceDateLastDelivered").isNull());
        QVERIFY(rs->Fields("ServiceDateCreated").toDateTime().isValid());
    }

    void saveServiceDetailsOfMissingServiceSaysSo() {
        TestDatabase db;
        QString error;
        da().SaveServiceDetails(4242, "x", "y", "z", "", "", QDateTime(), 0, error);
        QVERIFY(error.contains("4242"));
    }

    void serviceDescriptionIsTheNameOrElseTheTheme() {
        TestDatabase db;
        const qint32 named = db.AddService("Morning Worship");
        QString error, description;
        da().GetServiceDescription(named, error, description);
        QCOMPARE(description, QString("Morning Worship"));
        qint32 unnamed = 0;
        da().AddService(error, unnamed);
        da().SaveServiceDetails(unnamed, "", "Type", "Advent", "", "", QDateTime(), 0, error);
        da().GetServiceDescription(unnamed, error, description);
        QCOMPARE(description, QString("Advent Service"));
        da().GetServiceDescription(999, error, description);
        QVERIFY(!error.isEmpty());
    }

    void serviceDescriptionShowsApostrophes() {
        TestDatabase db;
        const qint32 id = db.AddService("St Mary@@s Day");
        QString error, description;
        da().GetServiceDescription(id, error, description);
        QCOMPARE(description, QString("St Mary's Day"));
    }

    void serviceContentsComeInRowOrderWithBlanksAndHiddenRows() {
        TestDatabase db;
        const qint32 a = db.AddServiceItem(TestDatabase::Prayer, "A");
        const qint32 b = db.AddServiceItem(TestDatabase::Reading, "B");
        const qint32 s =
            db.AddService("S", {{b}, TestDatabase::Blank(), {a, false}, TestDatabase::Blank()});
        QVERIFY2(s > 0, qPrintable(db.LastError()));
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceContents(QStringLiteral("ServiceID =%1").arg(s), 4, error, rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(rs->RecordCount(), 4);
        QList<qint32> ids;
        QList<bool> shown;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            ids << rs->Fields("ServiceItemID").toInt();
            shown << rs->Fields("ShowAtRunTime").toBool();
        }
        QCOMPARE(ids, (QList<qint32>{b, 1, a, 1}));
        QCOMPARE(shown, (QList<bool>{true, true, false, true}));
    }

    void deleteServiceContentsEmptiesTheService() {
        TestDatabase db;
        const qint32 s = db.AddService("S", {TestDatabase::Blank(), TestDatabase::Blank()});
        QString error;
        da().DeleteServiceContents(s, error);
        QCOMPARE(db.Count("ServiceContents", "ServiceID = ?", {s}), 0);
    }

    void serviceResourcesAndPropBagRoundTrip() {
        TestDatabase db;
        const qint32 s = db.AddService("S");
        const qint32 p1 = db.AddServiceItem(TestDatabase::Picture, "P1");
        const qint32 p2 = db.AddServiceItem(TestDatabase::Music, "P2");
        QString error;
        da().AddServiceResource(s, "Projector", error);
        da().AddServiceResource(s, "Candles", error);
        QVERIFY(db.AddServicePropBag(s, {p2, p1}));
        std::unique_ptr<Recordset> rs;
        da().GetServiceResources(QStringLiteral("ServiceID = %1").arg(s), 4, error, rs);
        QCOMPARE(rs->RecordCount(), 2);
        QCOMPARE(rs->Fields("ResourceName").toString(), QString("Projector"));
        QVERIFY(rs->Fields("ResourceID").toInt() > 0);
        da().GetServicePropBag(QStringLiteral("ServiceID = %1").arg(s), 4, error, rs);
        QCOMPARE(rs->RecordCount(), 2);
        QCOMPARE(rs->Fields("PropServiceItemID").toInt(), p2);
        da().DeleteServiceResources(s, error);
        da().DeleteServicePropBag(s, error);
        QCOMPARE(db.Count("ServiceResources"), 0);
        QCOMPARE(db.Count("ServicePropBag"), 0);
    }

    void serviceTypesAndThemesAreDistinct() {
        TestDatabase db;
        db.AddService("A", {}, "Morning");
        db.AddService("B", {}, "Morning");
        db.AddService("C", {}, "Evening");
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceTypes("", error, rs);
        QCOMPARE(rs->RecordCount(), 2);
        da().GetServiceThemes("", error, rs);
        QVERIFY(error.isEmpty());
        QCOMPARE(rs->RecordCount(), 0);
    }

    void deleteServiceRemovesItsRows() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "A");
        const qint32 s = db.AddService("S", {{item}, TestDatabase::Blank()});
        db.AddServicePropBag(s, {item});
        QString error;
        da().DeleteService(s, error);
        QVERIFY(error.isEmpty());
        QCOMPARE(db.Count("Services"), 0);
        QCOMPARE(db.Count("ServiceContents"), 0);
        QCOMPARE(db.Count("ServicePropBag"), 0);
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {item}), 1);
    }

    void servicesComeNewestFirst() {
        TestDatabase db;
        const qint32 older = db.AddService("Older");
        const qint32 newer = db.AddService("Newer");
        db.Exec(
            "UPDATE Services SET ServiceDateCreated = '2020-01-01 10:00:00' WHERE ServiceID = ?",
            {older});
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetAllServices("", 4, error, rs);
        QCOMPARE(rs->Fields("ServiceID").toInt(), newer);
    }

    // ---- Service items -----------------------------------------------------------------
    void addServiceItemOfTypeZeroHasNoTypeYet() {
        TestDatabase db;
        QString error;
        qint32 id = 0;
        da().AddServiceItem("", "", "", 0, error, true, id);
        QVERIFY(id > 1);
        qint16 type = -1;
        da().GetServiceItemTypeID(id, error, type);
        QCOMPARE(type, qint16(0));
    }

    void addServiceItemOfUnknownTypeIsRefused() {
        TestDatabase db;
        QString error;
        qint32 id = 0;
        da().AddServiceItem("x", "", "", 77, error, true, id);
        QVERIFY(!error.isEmpty());
        QCOMPARE(id, 0);
    }

    void pointsItemTakesTheDefaultPointsDisplay() {
        TestDatabase db;
        db.Exec("UPDATE Options SET PointDisplayMode = 6, ShowSubPointsOneByOne = 1");
        const qint32 id = db.AddServiceItem(TestDatabase::PointsOnly, "Outline");
        QCOMPARE(db.Scalar("SELECT TextViewMode FROM ServiceItems WHERE ServiceItemID = ?", {id})
                     .toInt(),
                 6);
        QCOMPARE(
            db.Scalar("SELECT RevealSubPointsOneByOne FROM ServiceItems WHERE ServiceItemID = ?",
                      {id})
                .toInt(),
            1);
        bool reveal = false;
        qint16 mode = 0;
        QString error;
        da().GetDefaultPointsDisplay(reveal, error, mode);
        QVERIFY(reveal);
        QCOMPARE(mode, qint16(6));
    }

    void saveGeneralContentAndRunDetails() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::Song, "Old");
        QString error;
        da().SaveServiceItemGeneral(17, id, "New", "Source", "Notes", "G", "PD", "Here", "Tune",
                                    error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const QString file = db.WriteContentFile("words.txt", "Words of the song");
        da().SaveServiceItemContent(id, 17, "Typed", file, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        da().SaveServiceItemRunDetails(id, true, 0, 4, 10, 5, 2, "7", "Ready?", true, error, true);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        std::unique_ptr<Recordset> rs;
        da().GetServiceItems(QStringLiteral("ServiceItemID = %1").arg(id), 4, error, rs);
        QCOMPARE(rs->Fields("ServiceItemDescription").toString(), QString("New"));
        QCOMPARE(rs->Fields("ServiceItemMelody").toString(), QString("Tune"));
        QCOMPARE(rs->Fields("ServiceItemSongKey").toString(), QString("G"));
        QCOMPARE(rs->Fields("ServiceItemFilename").toString(), QString("words.txt"));
        QCOMPARE(rs->Fields("ServiceItemFileDescription").toString(), QString("words.txt"));
        QCOMPARE(rs->Fields("TextViewMode").toInt(), 4);
        QCOMPARE(rs->Fields("ServiceItemMusic").toString(), QString("7"));
        QCOMPARE(rs->Fields("HideSIDetails").toBool(), true);
        QCOMPARE(rs->Fields("ServiceItemTypeName").toString(), QString("Hymn"));
        QString path;
        da().GetServiceItemFileName(id, error, path);
        QCOMPARE(path, file);
    }

    void fileOutsideContentFolderKeepsItsFullPath() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::Reading, "R");
        QString error, path;
        da().SaveServiceItemContent(id, 2, "", "/somewhere/else/reading.txt", error);
        da().GetServiceItemFileName(id, error, path);
        QCOMPARE(path, QString("/somewhere/else/reading.txt"));
    }

    void saveRunDetailsRefusesAnUnknownViewMode() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "P");
        QString error;
        da().SaveServiceItemRunDetails(id, false, 0, 9, 0, 0, 0, "", "", false, error, false);
        QVERIFY(!error.isEmpty());
    }

    void serviceItemExistsAnswersFalseWithoutErrorForADeletedItem() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::Prayer, "Gone soon");
        QString error;
        bool exists = false;
        da().ServiceItemExists(id, error, exists);
        QVERIFY(exists);
        da().DeleteServiceItem(id, error);
        QVERIFY(error.isEmpty());
        da().ServiceItemExists(id, error, exists);
        QVERIFY(!exists);
        QVERIFY(error.isEmpty());
    }

    void deleteServiceItemRemovesItsLinks() {
        TestDatabase db;
        const qint32 song = db.AddSong("Song", {{"V1", "a"}, {"C", "b", true}}, {0, 1, 0});
        const qint32 picture = db.AddServiceItem(TestDatabase::Picture, "Pic");
        const qint32 music = db.AddServiceItem(TestDatabase::Music, "Tune");
        const qint32 other = db.AddServiceItem(TestDatabase::Prayer, "Other");
        QVERIFY(db.AddKeywords(song, {"praise"}));
        QVERIFY(db.AddPoints(song, {{"P1", "", "Point", ""}}));
        QString error;
        da().AddServiceItemResource(song, "Book", error);
        da().AddServiceItemImage(song, picture, error);
        da().AddServiceItemImage(other, song, error);
        db.AddServiceItemPropBag(song, {picture});
        db.AddServiceItemPropBag(other, {song});
        db.Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?",
                {QString::number(song), other});
        const qint32 service = db.AddService("S", {{song}, {other}});
        db.AddServicePropBag(service, {song});
        const qint32 list = db.AddShortList("L", {other, song});
        Q_UNUSED(music);
        da().DeleteServiceItem(song, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        for (const char* table : {"Verses", "SongSequence", "ServiceItemKeywords",
                                  "ServiceItemPoints", "ServiceItemResources"})
            QCOMPARE(db.Count(table), 0);
        QCOMPARE(db.Count("ServiceItemImages"), 0);
        QCOMPARE(db.Count("ServiceItemPropBag"), 0);
        QCOMPARE(db.Count("ServiceContents"), 1);
        QCOMPARE(db.Count("ServicePropBag"), 0);
        QVERIFY(
            db.Scalar("SELECT ServiceItemMusic FROM ServiceItems WHERE ServiceItemID = ?", {other})
                .isNull());
        QCOMPARE(db.Scalar("SELECT ShortListContent FROM ShortLists WHERE ShortListID = ?", {list})
                     .toString(),
                 QString::number(other));
        QCOMPARE(db.Count("KeyWords"), 1);
    }

    void blankItemCannotBeDeleted() {
        TestDatabase db;
        QString error;
        da().DeleteServiceItem(1, error);
        QVERIFY(!error.isEmpty());
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = 1"), 1);
    }

    void itemDescriptionFallsBackLikeTheGallery() {
        TestDatabase db;
        QString error, text;
        da().GetServiceItemDescription(1, error, text);
        QCOMPARE(text, QString("Blank"));
        const qint32 described = db.AddServiceItem(TestDatabase::Prayer, "It@@s a prayer");
        da().GetServiceItemDescription(described, error, text);
        QCOMPARE(text, QString("It@@s a prayer"));
        const qint32 content =
            db.AddServiceItem(TestDatabase::Prayer, "", "Almighty and most merciful");
        da().GetServiceItemDescription(content, error, text);
        QCOMPARE(text, QString("Almighty and mo"));
        qint32 bare = 0;
        da().AddServiceItem("", "Psalm 23", "", 2, error, true, bare);
        da().GetServiceItemDescription(bare, error, text);
        QCOMPARE(text, QString("Reading from Psalm 23"));
        da().GetServiceItemDescription(99999, error, text);
        QVERIFY(!error.isEmpty());
    }

    void itemTextComesFromContentVersesPointsOrFile() {
        TestDatabase db;
        QString error, text;
        const qint32 typed = db.AddServiceItem(TestDatabase::Prayer, "T", "Typed words");
        da().GetServiceItemText(typed, error, text);
        QCOMPARE(text, QString("Typed words"));
        const qint32 song = db.AddSong("S", {{"V1", "one"}, {"C", "two", true}}, {0, 1, 0});
        da().GetServiceItemText(song, error, text);
        QCOMPARE(text, QString("one\n\ntwo\n\none"));
        const qint32 points = db.AddServiceItem(TestDatabase::PointsOnly, "P");
        db.AddPoints(points, {{"P1", "", "First", ""}, {"P2", "", "Second", ""}});
        da().GetServiceItemText(points, error, text);
        QCOMPARE(text, QString("First\nSecond"));
        const qint32 file = db.AddServiceItem(TestDatabase::ResponsiveReading, "F");
        da().SaveServiceItemContent(file, 16, "", db.WriteContentFile("r.txt", "From a file"),
                                    error);
        da().GetServiceItemText(file, error, text);
        QCOMPARE(text, QString("From a file"));
    }

    void showAsPointsAndClearRunAsPointsList() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::PointsOnly, "P");
        QString error;
        bool points = false;
        da().GetServiceItemShowAsPoints(id, error, points);
        QVERIFY(points);
        da().ClearRunAsPointsList(id, error);
        da().GetServiceItemShowAsPoints(id, error, points);
        QVERIFY(!points);
        QCOMPARE(db.Scalar("SELECT TextViewMode FROM ServiceItems WHERE ServiceItemID = ?", {id})
                     .toInt(),
                 0);
    }

    void clearServiceItemMusicDropsTheLink() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::Picture, "P");
        QString error;
        da().SaveServiceItemRunDetails(id, false, 0, 0, 0, 0, 0, "/music/moved.mp3", "", false,
                                       error, false);
        da().ClearServiceItemMusic(id, error);
        QVERIFY(error.isEmpty());
        QVERIFY(db.Scalar("SELECT ServiceItemMusic FROM ServiceItems WHERE ServiceItemID = ?", {id})
                    .isNull());
    }

    void newestServiceItemIdIsTheLastAdded() {
        TestDatabase db;
        db.AddServiceItem(TestDatabase::Prayer, "A");
        const qint32 b = db.AddServiceItem(TestDatabase::Prayer, "B");
        QString error;
        qint32 newest = 0;
        da().GetNewestServiceItemID(error, newest);
        QCOMPARE(newest, b);
    }

    void joinedRowsAreOnePerItemKeywordAndPointNewestFirst() {
        TestDatabase db;
        const qint32 older = db.AddServiceItem(TestDatabase::Prayer, "Older");
        const qint32 newer = db.AddServiceItem(TestDatabase::Message, "Newer");
        db.Exec("UPDATE ServiceItems SET ServiceItemDateCreated = '2001-01-01 00:00:00' WHERE "
                "ServiceItemID = ?",
                {older});
        db.AddKeywords(newer, {"a", "b"});
        db.AddPoints(newer, {{"P1", "", "x", ""}, {"P2", "", "y", ""}, {"P3", "", "z", ""}});
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemsJoined("ServiceItems.ServiceItemID <> 1", 4, error, rs);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(rs->RecordCount(), 7);
        QCOMPARE(rs->Fields("ServiceItems.ServiceItemID").toInt(), newer);
        QCOMPARE(rs->Fields("ServiceItemTypeName").toString(), QString("Message"));
        QVERIFY(!rs->Fields("Keywords.KeywordID").isNull());
        rs->MoveLast();
        QCOMPARE(rs->Fields("ServiceItems.ServiceItemID").toInt(), older);
        QVERIFY(rs->Fields("Keywords.KeywordID").isNull());
        QVERIFY(rs->Fields("KeywordText").isNull());
        QCOMPARE(rs->Fields("ServiceItemTypes.ServiceItemTypeID").toInt(), 1);
    }

    // ---- Verses ----------------------------------------------------------------------------
    void songSequenceComesInSungOrder() {
        TestDatabase db;
        const qint32 song = db.AddSong("S",
                                       {{"Verse 1", "First line\nSecond"},
                                        {"Chorus", "Refrain", true},
                                        {"Verse 2", "\n  Another start\nmore"}},
                                       {0, 1, 2, 1});
        QString error;
        bool has = false;
        da().ServiceItemHasVerses(song, error, has);
        QVERIFY(has);
        std::unique_ptr<Recordset> rs;
        da().GetSongSequence(song, error, rs);
        QStringList names;
        QList<bool> chorus;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            names << rs->Fields("VerseName").toString();
            chorus << rs->Fields("IsChorus").toBool();
        }
        QCOMPARE(names, (QStringList{"Verse 1", "Chorus", "Verse 2", "Chorus"}));
        QCOMPARE(chorus, (QList<bool>{false, true, false, true}));
        QString first;
        da().GetVerseFirstLine(db.VerseIds(song)[2], error, first);
        QCOMPARE(first, QString("Another start"));
        const qint32 plain = db.AddServiceItem(TestDatabase::Prayer, "P");
        da().ServiceItemHasVerses(plain, error, has);
        QVERIFY(!has);
    }

    void sequenceRefusesAVerseOfAnotherSong() {
        TestDatabase db;
        const qint32 a = db.AddSong("A", {{"V", "a"}});
        const qint32 b = db.AddSong("B", {{"V", "b"}});
        QString error;
        da().AddSongSequenceEntry(b, db.VerseIds(a)[0], error);
        QVERIFY(!error.isEmpty());
    }

    // ---- Points --------------------------------------------------------------------------
    void pointsComeInListOrderAndReplaceWhole() {
        TestDatabase db;
        const qint32 id = db.AddServiceItem(TestDatabase::PointsOnly, "Outline");
        QVERIFY(db.AddPoints(id, {{"K1", "", "One", "note"}, {"K2", "K1", "Two", ""}}));
        QString error;
        da().SavePoint(id, "Zero", 1, "K0", "", "", error);
        std::unique_ptr<Recordset> rs;
        da().GetPoints(QStringLiteral("ServiceItemID = %1").arg(id), 4, error, rs);
        QStringList texts;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            texts << rs->Fields("PointText").toString();
        QCOMPARE(texts, (QStringList{"Zero", "One", "Two"}));
        rs->MoveFirst();
        rs->MoveNext();
        QCOMPARE(rs->Fields("PointNotes").toString(), QString("note"));
        rs->MoveNext();
        QCOMPARE(rs->Fields("ParentPointKey").toString(), QString("K1"));
        rs->MoveFirst();
        QCOMPARE(rs->Fields("ParentPointKey").toString(), QString(""));
        QVERIFY(rs->Fields("PointNotes").isNull());
        da().DeleteServiceItemPoints(id, error);
        QCOMPARE(db.Count("ServiceItemPoints"), 0);
    }

    // ---- Images --------------------------------------------------------------------------
    void imageServiceItemIsFoundOrMadeForAFile() {
        TestDatabase db;
        const QString inFolder = db.WriteContentFile("dove.bmp");
        qint32 first = 0, again = 0, byName = 0, outside = 0;
        da().AddImageServiceItem(inFolder, first);
        QVERIFY(first > 1);
        da().AddImageServiceItem(inFolder, again);
        QCOMPARE(again, first);
        da().AddImageServiceItemInFolder("dove.bmp", byName);
        QCOMPARE(byName, first);
        da().AddImageServiceItem("/elsewhere/lamb.jpg", outside);
        QVERIFY(outside > first);
        QCOMPARE(db.Scalar("SELECT ServiceItemTypeID FROM ServiceItems WHERE ServiceItemID = ?",
                           {outside})
                     .toInt(),
                 4);
        QCOMPARE(db.Scalar("SELECT ServiceItemFilename FROM ServiceItems WHERE ServiceItemID = ?",
                           {first})
                     .toString(),
                 QString("dove.bmp"));
        qint32 none = -1;
        da().AddImageServiceItem("", none);
        QCOMPARE(none, 0);
    }

    void backgroundImagesRoundTripInOrder() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Song, "S");
        const qint32 a = db.AddServiceItem(TestDatabase::Picture, "A");
        const qint32 b = db.AddServiceItem(TestDatabase::Picture, "B");
        QString error;
        da().AddServiceItemImage(item, b, error);
        da().AddServiceItemImage(item, a, error);
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemImages(item, error, rs);
        QCOMPARE(rs->RecordCount(), 2);
        QCOMPARE(rs->Fields("ImageServiceItemID").toInt(), b);
        da().DeleteServiceItemImages(item, error);
        QCOMPARE(db.Count("ServiceItemImages"), 0);
    }

    // ---- Keywords, resources, prop bag ------------------------------------------------
    void keywordsAreSharedAndLinked() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "P");
        QString error;
        qint32 k1 = 0, k2 = 0;
        da().AddKeyword("Praise", error, k1);
        da().AddKeyword("praise", error, k2);
        QCOMPARE(k2, k1);
        da().AddServiceItemKeyword(item, k1, error);
        da().AddServiceItemKeyword(item, k1, error);
        QVERIFY(error.isEmpty());
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemKeywords(QStringLiteral("ServiceItemID = %1").arg(item), 4, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        QCOMPARE(rs->Fields("Keywordtext").toString(), QString("Praise"));
        QCOMPARE(rs->Fields("ServiceItemKeywords.KeywordID").toInt(), k1);
        da().GetKeywords(4, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        da().DeleteServiceItemKeywords(item, error);
        QCOMPARE(db.Count("ServiceItemKeywords"), 0);
        qint32 empty = -1;
        da().AddKeyword("  ", error, empty);
        QVERIFY(!error.isEmpty());
    }

    void itemResourcesAndPropBagRoundTrip() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Message, "M");
        const qint32 prop = db.AddServiceItem(TestDatabase::Picture, "Prop");
        QString error;
        da().AddServiceItemResource(item, "Flip chart", error);
        da().AddServiceItemPropBagItem(item, prop, error);
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemResources(QStringLiteral("ServiceItemID = %1").arg(item), 4, error, rs);
        QCOMPARE(rs->Fields("ServiceItemResourceName").toString(), QString("Flip chart"));
        QVERIFY(rs->Fields("ServiceItemResourceID").toInt() > 0);
        da().GetServiceItemPropBag(QStringLiteral("ServiceItemID = %1").arg(item), 4, error, rs);
        QCOMPARE(rs->Fields("PropServiceItemID").toInt(), prop);
        da().DeleteServiceItemResources(item, error);
        da().DeleteServiceItemPropBag(item, error);
        QCOMPARE(db.Count("ServiceItemResources") + db.Count("ServiceItemPropBag"), 0);
    }

    void propBagRowNeedsAnExistingItem() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Message, "M");
        QString error;
        da().AddServiceItemPropBagItem(item, 5555, error);
        QVERIFY(!error.isEmpty());
        QCOMPARE(db.Count("ServiceItemPropBag"), 0);
    }

    // ---- Types -----------------------------------------------------------------------------
    void typesAndTheirDefaults() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemTypes(error, rs);
        QCOMPARE(rs->RecordCount(), 17);
        da().GetServiceItemTypeDefaults("", 4, error, rs);
        QCOMPARE(rs->RecordCount(), 17);
        QCOMPARE(rs->Fields("ByDefaultShowAtRuntime").typeId(), QMetaType::Bool);
        da().SaveServiceItemTypeDefault(2, "ByDefaultShowAtRuntime", false, error);
        QVERIFY(error.isEmpty());
        bool show = true;
        da().GetDefaultShowAtRunTime(2, error, show);
        QVERIFY(!show);
        da().SaveServiceItemTypeDefault(2, "ServiceItemTypeName", false, error);
        QVERIFY(!error.isEmpty());
        QString name;
        da().GetServiceItemTypeName(99, error, name);
        QVERIFY(!error.isEmpty());
    }

    // ---- Templates --------------------------------------------------------------------
    void templatesSaveShowAndDelete() {
        TestDatabase db;
        QString error;
        qint32 id = 0;
        da().SaveTemplate(0, "Wedding", true, "Wedding", "Me", "Notes", true, error, id);
        QVERIFY(id > 0);
        qint32 same = 0;
        da().SaveTemplate(id, "Wedding sheet", false, "Wedding", "Me", "", false, error, same);
        QCOMPARE(same, id);
        std::unique_ptr<Recordset> rs;
        da().GetTemplates(QStringLiteral("TemplateID  = %1").arg(id), 4, error, rs);
        QCOMPARE(rs->Fields("TemplateDescription").toString(), QString("Wedding sheet"));
        QCOMPARE(rs->Fields("IsInBuilt").toBool(), true);
        QCOMPARE(rs->Fields("IsServiceTemplate").toBool(), false);
        da().GetTemplateOccasions("", error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        da().TemplateShown(id);
        da().DeleteTemplate(id, error);
        QCOMPARE(db.Count("Templates"), 0);
    }

    // ---- Short lists ----------------------------------------------------------------
    void shortListsSaveAndRememberTheLastShown() {
        TestDatabase db;
        QString error;
        qint32 id = 0;
        da().NewShortListRecord(error, id);
        QVERIFY(id > 0);
        da().SaveShortList(id, "Favourites", "Me", "", "3,2,5", error);
        QVERIFY(error.isEmpty());
        std::unique_ptr<Recordset> rs;
        da().GetShortLists(QStringLiteral("ShortListID = %1").arg(id), error, rs);
        QCOMPARE(rs->Fields("ShortListContent").toString(), QString("3,2,5"));
        da().GetShortListsWhere("ShortListDescription = 'favourites'", error, rs);
        QCOMPARE(rs->RecordCount(), 1);
        qint32 last = -1;
        da().GetLastShownShortList(last);
        QCOMPARE(last, 0);
        da().ShortListShown(id);
        da().GetLastShownShortList(last);
        QCOMPARE(last, id);
        da().DeleteShortListRecord(id, error);
        da().GetLastShownShortList(last);
        QCOMPARE(last, 0);
    }

    void shortListContentMustBeIds() {
        TestDatabase db;
        const qint32 id = db.AddShortList("L", {});
        QString error;
        da().SaveShortList(id, "L", "", "", "1; DROP TABLE ShortLists", error);
        QVERIFY(!error.isEmpty());
        QCOMPARE(db.Count("ShortLists"), 1);
    }

    // ---- Folders and text ---------------------------------------------------------------
    void foldersOfTheOpenDatabase() {
        TestDatabase db;
        QString folder;
        da().GetDataFolder(folder);
        QCOMPARE(folder, db.Folder() + '/');
        da().GetContentFolder(folder);
        QCOMPARE(folder, db.ContentFolder());
        da().GetFolderOfPath("/a/b/Corvantis.pdb", folder);
        QCOMPARE(folder, QString("/a/b/"));
        da().GetFolderOfPath("C:\\Data\\Corvantis.pdb", folder);
        QCOMPARE(folder, QString("C:\\Data\\"));
        da().GetFolderOfPath("plain", folder);
        QCOMPARE(folder, QString());
    }

    void decodeStoredTextConvertsBothWays() {
        QString error, result;
        da().DecodeStoredText("It@@s here", error, result);
        QCOMPARE(result, QString("It's here"));
        da().DecodeStoredText("It's here", error, result);
        QCOMPARE(result, QString("It@@s here"));
        da().DecodeStoredText("plain", error, result);
        QCOMPARE(result, QString("plain"));
        QVERIFY(error.isEmpty());
    }

    void textIsLineStructuredTellsVerseFromProse() {
        QString error;
        bool lines = false;
        da().TextIsLineStructured("Amazing grace, how sweet the sound\nThat saved a wretch like "
                                  "me\nI once was lost",
                                  error, lines);
        QVERIFY(lines);
        da().TextIsLineStructured(
            "For God so loved the world, that he gave his one and only Son, that whoever "
            "believes in him should not perish, but have eternal life.",
            error, lines);
        QVERIFY(!lines);
        da().TextIsLineStructured("One line only", error, lines);
        QVERIFY(!lines);
        da().TextIsLineStructured("", error, lines);
        QVERIFY(!lines);
    }

    void errorsGoToTheTraceWithTheLibraryPrefix() {
        TestDatabase db;
        QString error;
        std::unique_ptr<Recordset> rs;
        da().GetServices("NoSuchColumn = 1", 4, error, rs);
        QVERIFY(error.startsWith("QVLTDBFUNCTIONS:DataAccess:GetServices: "));
        QFile trace(qEnvironmentVariable("CORVANTIS_TRACE"));
        QVERIFY(trace.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(trace.readAll()).contains("ERROR: " + error));
    }

    void changeStampStaysUntilARowIsWrittenHereOrElsewhere() {
        TestDatabase db;
        const QString before = DatabaseChangeStamp();
        QVERIFY(!before.isEmpty());
        QCOMPARE(DatabaseChangeStamp(), before);

        db.AddService(QStringLiteral("Morning"));
        const QString afterOwnWrite = DatabaseChangeStamp();
        QVERIFY(afterOwnWrite != before);
        QCOMPARE(DatabaseChangeStamp(), afterOwnWrite);

        QVERIFY(db.ExecElsewhere(QStringLiteral("INSERT INTO Services (ServiceName, "
                                                "ServiceDateCreated) VALUES ('Evening', "
                                                "'2026-01-04')")));
        QVERIFY(DatabaseChangeStamp() != afterOwnWrite);
    }

    // The stamp's statement is kept between reads; closing the database still closes the file
    // (its write-ahead log goes with the last connection) and the file opened again has a new
    // stamp.
    void changeStampReadLeavesTheDatabaseFreeToClose() {
        TestDatabase db;
        const QString open = DatabaseChangeStamp();
        const QString path = db.Path();
        da().CloseDatabase();
        QVERIFY(DatabaseChangeStamp().isEmpty());
        QVERIFY(!QFile::exists(path + QStringLiteral("-wal")));
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const QString reopened = DatabaseChangeStamp();
        QVERIFY(!reopened.isEmpty());
        QVERIFY(reopened != open);
        QCOMPARE(DatabaseChangeStamp(), reopened);
    }

    void heldChangeStampWaitsForTheHoldToShowAnotherConnectionsCommit() {
        TestDatabase db;
        QString first, afterOther, afterOwn;
        {
            const DatabaseStampHeld held;
            first = DatabaseChangeStamp();
            QVERIFY(db.ExecElsewhere(QStringLiteral("INSERT INTO Services (ServiceName, "
                                                    "ServiceDateCreated) VALUES ('Noon', "
                                                    "'2026-01-04')")));
            afterOther = DatabaseChangeStamp();
            db.AddService(QStringLiteral("Morning"));
            afterOwn = DatabaseChangeStamp();
        }
        QCOMPARE(afterOther, first);
        QVERIFY(afterOwn != first);
        // Once the hold has ended, the other connection's commit shows.
        QVERIFY(DatabaseChangeStamp() != afterOwn);
    }
};

QTEST_GUILESS_MAIN(tst_DataAccess)
#include "tst_DataAccess.moc"
