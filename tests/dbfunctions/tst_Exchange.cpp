// Export and import of service items and services: round trips into an empty database, the
// OpenLyrics songs and plain-text songs of other programs, what is already there, and every kind
// of file that is refused, with nothing half-imported and nothing written outside the data folder.

#include "DataAccess.h"
#include "ExchangeSnapshot.h"
#include "OpenLyrics.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "WithoutRootPowers.h"
#include "ZipArchive.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_Exchange : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Round trips
    void serviceItemsComeBackAsTheSameRows();
    void aServiceComesBackWithItsRowsPropBagResourcesAndItems();
    void propsStayBehindWhenTheOptionsSaySo();
    void songsTravelAsOpenLyricsFilesBesideAManifest();
    void importingTheSameFileAgainAddsNothingAndSaysWhatWasThere();
    void newestServiceItemIsWhatCameIn();

    // Files of other programs
    void openLyricsSongWithVerseNamesAndOrder();
    void openLyricsSongWithChordsAndCommentsGivesTheWords();
    void openLyricsSongInSeveralLanguagesKeepsTheFirstLanguage();
    void openLyricsSongWithoutAnOrderIsSungAsWritten();
    void plainTextSongTakesItsTitleFromTheFirstLine();
    void plainTextSavedAsLatin1KeepsItsAccents();

    // Asking and telling
    void importAsksForTheFileAndTellsWhatCameIn();
    void cancelledImportDoesNothing();
    void exportAsksWhereToSaveAndTellsWhereItWent();
    void cancelledExportWritesNothing();

    // Bad input
    void aPictureIsNotImported();
    void aTruncatedArchiveIsNotImported();
    void openLyricsWithBrokenXmlIsNotImported();
    void aFileOfFiftyMegabytesIsNotImported();
    void anEntryClimbingOutOfItsFolderIsRefusedAndNothingIsWritten();
    void aTitleOfTenThousandCharactersIsNotImported();
    void anArchiveWithoutOurManifestIsNotImported();
    void aFailureHalfwayLeavesNoRowsAndNoFiles();
    void exportToAFolderThatCannotBeWrittenSaysSo();
    void exportOfAnItemThatDoesNotExistSaysSo();

private:
    DataAccess& da() { return DataAccess::Instance(); }
    QString File(const QString& name) const { return m_files->filePath(name); }
    QString Write(const QString& name, const QByteArray& bytes) const;
    qint32 ItemCount() { return m_db->Count(QStringLiteral("ServiceItems")); }
    // A database of several kinds of item; answers the ids.
    QList<qint32> AddVarietyOfItems(TestDatabase& db);
    // Imports the file into a new empty database (m_db afterwards).
    void ImportIntoEmptyDatabase(const QString& strFile, QString& strError);

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<QTemporaryDir> m_files;
};

namespace {

const QByteArray kAmazingGrace = R"(<?xml version="1.0" encoding="UTF-8"?>
<song xmlns="http://openlyrics.info/namespace/2009/song" version="0.9" createdIn="OpenLP 2.4"
      modifiedIn="OpenLP 2.4" modifiedDate="2016-01-02T10:00:00">
  <properties>
    <titles><title>Amazing Grace</title></titles>
    <authors><author>John Newton</author></authors>
    <copyright>Public Domain</copyright>
    <key>G</key>
    <verseOrder>v1 c v2 c b</verseOrder>
    <themes><theme>Grace</theme><theme>Salvation</theme></themes>
  </properties>
  <lyrics>
    <verse name="v1">
      <lines>Amazing grace how sweet the sound<br/>That saved a wretch like me</lines>
    </verse>
    <verse name="c">
      <lines>My chains are gone<br/>I've been set free</lines>
    </verse>
    <verse name="v2">
      <lines>'Twas grace that taught my heart to fear<br/>And grace my fears relieved</lines>
    </verse>
    <verse name="b">
      <lines>The earth shall soon dissolve like snow</lines>
    </verse>
  </lyrics>
</song>
)";

} // namespace

void tst_Exchange::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_files = std::make_unique<QTemporaryDir>();
    QVERIFY(m_files->isValid());
}

void tst_Exchange::cleanup() {
    m_db.reset();
    m_files.reset();
}

QString tst_Exchange::Write(const QString& name, const QByteArray& bytes) const {
    QFile file(File(name));
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(bytes);
    return file.fileName();
}

QList<qint32> tst_Exchange::AddVarietyOfItems(TestDatabase& db) {
    const qint32 song =
        db.AddSong(QStringLiteral("Amazing Grace"),
                   {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace\nhow sweet")},
                    {QStringLiteral("Chorus"), QStringLiteral("My chains are gone"), true},
                    {QStringLiteral("Verse 2"), QStringLiteral("'Twas grace")},
                    {QStringLiteral("Response"), QStringLiteral("Amen")}},
                   {0, 1, 2, 1, 3});
    db.Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemSource = 'John Newton; Anon', "
                           "ServiceItemCopyrightDetails = 'Public Domain', ServiceItemSongKey = "
                           "'G', ServiceItemNotes = 'slowly', ServiceItemMelody = 'New Britain', "
                           "TextViewMode = 3 WHERE ServiceItemID = ?"),
            {song});
    db.AddKeywords(song, {QStringLiteral("Grace"), QStringLiteral("God@@s love")});
    const qint32 unbroken =
        db.AddServiceItem(TestDatabase::Song, QStringLiteral("Be Thou My Vision"),
                          QStringLiteral("Be thou my vision\n\nBe thou my wisdom"));
    const qint32 prayer =
        db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("The Lord@@s Prayer"),
                          QStringLiteral("Our Father"), QStringLiteral("kneel"));
    QString error;
    da().AddServiceItemResource(prayer, QStringLiteral("Prayer book"), error);
    const qint32 points = db.AddServiceItem(TestDatabase::PointsOnly, QStringLiteral("Sermon"));
    db.AddPoints(points, {{QStringLiteral("P1"), QString(), QStringLiteral("First"), QString()},
                          {QStringLiteral("P2"), QStringLiteral("P1"), QStringLiteral("Sub"),
                           QStringLiteral("note")}});
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::blue);
    image.save(db.ContentFolder() + QStringLiteral("/sky.png"));
    const qint32 picture = db.AddServiceItem(TestDatabase::Picture, QStringLiteral("Sky"));
    da().SaveServiceItemContent(picture, TestDatabase::Picture, QString(),
                                db.ContentFolder() + QStringLiteral("/sky.png"), error);
    const QString music = db.WriteContentFile(QStringLiteral("organ.wav"), "RIFF-music");
    const qint32 reading = db.AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"),
                                             QStringLiteral("The Lord is my shepherd"));
    da().AddServiceItemImage(reading, picture, error);
    da().SaveServiceItemRunDetails(reading, false, 0, 2, 0, 5, 0, music,
                                   QStringLiteral("Start the organ"), false, error, true);
    const qint32 musicItem = db.AddServiceItem(TestDatabase::Music, QStringLiteral("Prelude"));
    const qint32 creed = db.AddServiceItem(TestDatabase::Creed, QStringLiteral("Creed"),
                                           QStringLiteral("We believe"));
    da().SaveServiceItemRunDetails(creed, false, 0, 0, 0, 0, 0, QString::number(musicItem),
                                   QString(), false, error, false);
    const qint32 prop = db.AddServiceItem(TestDatabase::Announcement, QStringLiteral("Notices"),
                                          QStringLiteral("Tea after"));
    db.AddServiceItemPropBag(song, {prop});
    return {song, unbroken, prayer, points, reading, creed};
}

void tst_Exchange::ImportIntoEmptyDatabase(const QString& strFile, QString& strError) {
    m_db = std::make_unique<TestDatabase>();
    da().ImportFile(strFile, strError);
}

// ---------------------------------------------------------------- Round trips

void tst_Exchange::serviceItemsComeBackAsTheSameRows() {
    QStringList ids;
    for (qint32 id : AddVarietyOfItems(*m_db))
        ids << QString::number(id);
    const QStringList before = ExchangeSnapshot::All();
    QString error;
    da().ExportServiceItemsToFile(ids.join(','), QStringLiteral("Selection"), File("a.cvx"), error);
    QCOMPARE(error, QString());
    ImportIntoEmptyDatabase(File("a.cvx"), error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::All(), before);
    // The files came along into the new content folder.
    QVERIFY(QFileInfo::exists(m_db->ContentFolder() + QStringLiteral("/sky.png")));
    QVERIFY(QFileInfo::exists(m_db->ContentFolder() + QStringLiteral("/organ.wav")));
    QCOMPARE(da().LastImport().ItemsAdded, 9);
}

void tst_Exchange::aServiceComesBackWithItsRowsPropBagResourcesAndItems() {
    const QList<qint32> items = AddVarietyOfItems(*m_db);
    const qint32 service = m_db->AddService(QStringLiteral("Easter Morning"),
                                            {{items[0]},
                                             TestDatabase::Blank(),
                                             {items[2], false, QStringLiteral("5 min")},
                                             {items[4]}});
    m_db->AddServicePropBag(service, {items[3]});
    QString error;
    da().AddServiceResource(service, QStringLiteral("Candles"), error);
    m_db->Exec(QStringLiteral("UPDATE Services SET ServiceTheme = 'He is risen', ServiceNotes = "
                              "'Early' WHERE ServiceID = ?"),
               {service});
    // Only what the service uses travels: the unused items are removed before comparing.
    for (qint32 unused : {items[1], items[5]})
        da().DeleteServiceItem(unused, error);
    m_db->Exec(QStringLiteral("DELETE FROM ServiceItems WHERE ServiceItemDescription = 'Prelude'"));
    const QStringList before = ExchangeSnapshot::All();
    da().ExportServicesToFile(QString::number(service), QStringLiteral("Easter"), File("s.cvx"),
                              error);
    QCOMPARE(error, QString());
    ImportIntoEmptyDatabase(File("s.cvx"), error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::All(), before);
    QCOMPARE(da().LastImport().ServicesAdded, 1);
}

void tst_Exchange::propsStayBehindWhenTheOptionsSaySo() {
    const qint32 song = m_db->AddSong(QStringLiteral("Shine"),
                                      {{QStringLiteral("Verse 1"), QStringLiteral("Shine")}});
    const qint32 prop = m_db->AddServiceItem(TestDatabase::Announcement, QStringLiteral("Notices"));
    m_db->AddServiceItemPropBag(song, {prop});
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET IncludePropsOnImpExp = 0")));
    QString error;
    da().ExportServiceItemsToFile(QString::number(song), QStringLiteral("Shine"), File("p.cvx"),
                                  error);
    QCOMPARE(error, QString());
    ImportIntoEmptyDatabase(File("p.cvx"), error);
    QCOMPARE(error, QString());
    QCOMPARE(m_db->Count(QStringLiteral("ServiceItems"),
                         QStringLiteral("ServiceItemDescription = 'Notices'")),
             0);
    QCOMPARE(m_db->Count(QStringLiteral("ServiceItemPropBag")), 0);
    QCOMPARE(m_db->Count(QStringLiteral("ServiceItems"),
                         QStringLiteral("ServiceItemDescription = 'Shine'")),
             1);
}

void tst_Exchange::songsTravelAsOpenLyricsFilesBesideAManifest() {
    const QList<qint32> items = AddVarietyOfItems(*m_db);
    QString error;
    da().ExportServiceItemsToFile(QStringLiteral("%1,%2").arg(items[0]).arg(items[2]),
                                  QStringLiteral("Two"), File("two.cvx"), error);
    QCOMPARE(error, QString());
    QFile file(File("two.cvx"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<Zip::Entry> entries;
    QVERIFY(Zip::Read(file.readAll(), entries, error));
    QStringList names;
    QByteArray song;
    for (const Zip::Entry& entry : entries) {
        names << entry.Name.section('/', 0, 0);
        if (entry.Name.startsWith(QLatin1String("songs/")))
            song = entry.Data;
    }
    QVERIFY(names.contains(QStringLiteral("manifest.json")));
    QCOMPARE(names.count(QStringLiteral("songs")), 1);
    QVERIFY(names.count(QStringLiteral("items")) >= 2); // the prayer and the song's prop
    OpenLyrics::Song read;
    QVERIFY2(OpenLyrics::Read(song, read, error), qPrintable(error));
    QCOMPARE(read.Title, QStringLiteral("Amazing Grace"));
    QCOMPARE(read.Authors, QStringList({"John Newton", "Anon"}));
    QCOMPARE(read.Copyright, QStringLiteral("Public Domain"));
    QCOMPARE(read.Key, QStringLiteral("G"));
    QCOMPARE(read.Themes, QStringList({"God's love", "Grace"}));
    QCOMPARE(read.VerseOrder, QStringList({"v1", "c", "v2", "c", "o1"}));
    QCOMPARE(read.Verses.at(0).Text, QStringLiteral("Amazing grace\nhow sweet"));
    QVERIFY(song.contains("xmlns=\"http://openlyrics.info/namespace/2009/song\""));
    QVERIFY(song.contains("version=\"0.9\""));
    QVERIFY(song.contains("Amazing grace<br/>how sweet"));
}

void tst_Exchange::importingTheSameFileAgainAddsNothingAndSaysWhatWasThere() {
    const QString file = Write(QStringLiteral("grace.xml"), kAmazingGrace);
    QString error;
    da().ImportFile(file, error);
    QCOMPARE(error, QString());
    QCOMPARE(da().LastImport().ItemsAdded, 1);
    const qint32 count = ItemCount();
    da().ImportFile(file, error);
    QCOMPARE(error, QString());
    QCOMPARE(ItemCount(), count);
    QCOMPARE(da().LastImport().ItemsAdded, 0);
    QCOMPARE(da().LastImport().AlreadyThere, QStringList({"Amazing Grace"}));
}

void tst_Exchange::newestServiceItemIsWhatCameIn() {
    m_db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Before"));
    QString error;
    da().ImportFile(Write(QStringLiteral("grace.xml"), kAmazingGrace), error);
    qint32 newest = 0;
    da().GetNewestServiceItemID(error, newest);
    QCOMPARE(m_db->Scalar(QStringLiteral("SELECT ServiceItemDescription FROM ServiceItems WHERE "
                                         "ServiceItemID = ?"),
                          {newest})
                 .toString(),
             QStringLiteral("Amazing Grace"));
}

// ---------------------------------------------------------------- Files of other programs

void tst_Exchange::openLyricsSongWithVerseNamesAndOrder() {
    QString error;
    da().ImportFile(Write(QStringLiteral("grace.xml"), kAmazingGrace), error);
    QCOMPARE(error, QString());
    const QString id = QString::number(
        m_db->Scalar(QStringLiteral("SELECT max(ServiceItemID) FROM ServiceItems")).toInt());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT ServiceItemTypeID, "
                                                    "ServiceItemDescription, ServiceItemSource, "
                                                    "ServiceItemCopyrightDetails, "
                                                    "ServiceItemSongKey FROM ServiceItems WHERE "
                                                    "ServiceItemID = ") +
                                     id),
             QStringList({"17 | Amazing Grace | John Newton | Public Domain | G"}));
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT VerseName, IsChorus FROM Verses "
                                                    "ORDER BY VerseID")),
             QStringList({"Verse 1 | 0", "Chorus | 1", "Verse 2 | 0", "Bridge | 0"}));
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT v.VerseName FROM SongSequence s JOIN "
                                                    "Verses v ON v.VerseID = s.VerseID ORDER BY "
                                                    "s.Position")),
             QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus", "Bridge"}));
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT VerseText FROM Verses WHERE "
                                                    "VerseName = 'Chorus'")),
             QStringList({"My chains are gone\nI've been set free"}));
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT KeywordText FROM KeyWords ORDER BY 1")),
             QStringList({"Grace", "Salvation"}));
}

void tst_Exchange::openLyricsSongWithChordsAndCommentsGivesTheWords() {
    const QByteArray xml = R"(<?xml version="1.0" encoding="UTF-8"?>
<song xmlns="http://openlyrics.info/namespace/2009/song" version="0.9">
  <properties><titles><title>Be Thou My Vision</title></titles></properties>
  <lyrics>
    <verse name="v1">
      <lines><comment>gently</comment><chord name="D"/>Be thou my <chord name="G"/>vision<br/>
        <chord name="A">O</chord> Lord of my heart</lines>
    </verse>
  </lyrics>
</song>)";
    QString error;
    da().ImportFile(Write(QStringLiteral("vision.xml"), xml), error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT VerseName, VerseText FROM Verses")),
             QStringList({"Verse 1 | Be thou my vision\nO Lord of my heart"}));
}

void tst_Exchange::openLyricsSongInSeveralLanguagesKeepsTheFirstLanguage() {
    const QByteArray xml = R"(<?xml version="1.0" encoding="UTF-8"?>
<song xmlns="http://openlyrics.info/namespace/2009/song" version="0.9">
  <properties>
    <titles><title lang="de">Stille Nacht</title><title lang="en">Silent Night</title></titles>
    <verseOrder>v1 v2</verseOrder>
  </properties>
  <lyrics>
    <verse name="v1" lang="de"><lines>Stille Nacht, heilige Nacht</lines></verse>
    <verse name="v1" lang="en"><lines>Silent night, holy night</lines></verse>
    <verse name="v2" lang="de"><lines>Hirten erst kundgemacht</lines></verse>
    <verse name="v2" lang="en"><lines>Shepherds quake at the sight</lines></verse>
  </lyrics>
</song>)";
    QString error;
    da().ImportFile(Write(QStringLiteral("nacht.xml"), xml), error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT ServiceItemDescription FROM "
                                                    "ServiceItems WHERE ServiceItemID <> 1")),
             QStringList({"Stille Nacht"}));
    QCOMPARE(
        ExchangeSnapshot::Query(QStringLiteral("SELECT VerseText FROM Verses ORDER BY VerseID")),
        QStringList({"Stille Nacht, heilige Nacht", "Hirten erst kundgemacht"}));
}

void tst_Exchange::openLyricsSongWithoutAnOrderIsSungAsWritten() {
    const QByteArray xml = R"(<song xmlns="http://openlyrics.info/namespace/2009/song"
version="0.9"><properties><titles><title>Shine, Jesus, shine</title></titles></properties>
<lyrics><verse name="v1"><lines>Lord, the light</lines></verse>
<verse name="c1"><lines>Shine, Jesus, shine</lines></verse>
<verse name="v2"><lines>Lord, I come</lines></verse></lyrics></song>)";
    QString error;
    da().ImportFile(Write(QStringLiteral("shine.xml"), xml), error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT v.VerseName || ' ' || v.IsChorus FROM "
                                                    "SongSequence s JOIN Verses v ON v.VerseID = "
                                                    "s.VerseID ORDER BY s.Position")),
             QStringList({"Verse 1 0", "Chorus 1 1", "Verse 2 0"}));
    // The title holds an apostrophe's neighbour, a comma; one with an apostrophe is stored with
    // the marker.
    const QByteArray apostrophe = R"(<song xmlns="http://openlyrics.info/namespace/2009/song"
version="0.9"><properties><titles><title>Here I'm Lord</title></titles></properties>
<lyrics><verse name="v1"><lines>Here</lines></verse></lyrics></song>)";
    da().ImportFile(Write(QStringLiteral("here.xml"), apostrophe), error);
    QCOMPARE(m_db->Count(QStringLiteral("ServiceItems"),
                         QStringLiteral("ServiceItemDescription = 'Here I@@m Lord'")),
             1);
}

void tst_Exchange::plainTextSongTakesItsTitleFromTheFirstLine() {
    QString error;
    da().ImportFile(Write(QStringLiteral("song.txt"),
                          "Great Is Thy Faithfulness\r\n\r\nGreat is thy faithfulness\r\nO God my "
                          "Father\r\n\r\nChorus\r\nGreat is thy faithfulness\r\n\r\nSummer and "
                          "winter\r\n"),
                    error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT ServiceItemTypeID, "
                                                    "ServiceItemDescription FROM ServiceItems "
                                                    "WHERE ServiceItemID <> 1")),
             QStringList({"17 | Great Is Thy Faithfulness"}));
    QCOMPARE(
        ExchangeSnapshot::Query(QStringLiteral("SELECT VerseName, IsChorus, VerseText FROM "
                                               "Verses ORDER BY VerseID")),
        QStringList({"Verse 1 | 0 | Great is thy faithfulness\nO God my Father",
                     "Chorus | 1 | Great is thy faithfulness", "Verse 2 | 0 | Summer and winter"}));
    QCOMPARE(m_db->Count(QStringLiteral("SongSequence")), 4);
}

void tst_Exchange::plainTextSavedAsLatin1KeepsItsAccents() {
    QString error;
    da().ImportFile(
        Write(QStringLiteral("noel.txt"),
              QStringLiteral("No\u00ebl\n\nIl est n\u00e9 le divin enfant\n").toLatin1()),
        error);
    QCOMPARE(error, QString());
    QCOMPARE(ExchangeSnapshot::Query(QStringLiteral("SELECT ServiceItemDescription, "
                                                    "ServiceItemContent FROM ServiceItems WHERE "
                                                    "ServiceItemID <> 1")),
             QStringList({QStringLiteral("No\u00ebl | Il est n\u00e9 le divin enfant")}));
}

// ---------------------------------------------------------------- Asking and telling

void tst_Exchange::importAsksForTheFileAndTellsWhatCameIn() {
    ScriptedPlatform platform;
    const QString file = Write(QStringLiteral("grace.xml"), kAmazingGrace);
    platform.QueueOpenFile(file);
    platform.QueueAnswer(vbOK);
    QString error;
    da().ImportFile(QString(), error);
    QCOMPARE(error, QString());
    QCOMPARE(platform.Dialogs().size(), 1);
    QCOMPARE(platform.Dialogs().at(0).Kind, QStringLiteral("Open"));
    QVERIFY(platform.Dialogs().at(0).Filter.contains(QStringLiteral("*.cvx")));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Import"));
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Imported from grace.xml: 1 service item."));
    platform.QueueOpenFile(file);
    platform.QueueAnswer(vbOK);
    da().ImportFile(QString(), error);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("Imported from grace.xml: 0 service items.\n\nAlready there, so not "
                            "imported again: \"Amazing Grace\"."));
}

void tst_Exchange::cancelledImportDoesNothing() {
    ScriptedPlatform platform;
    platform.QueueOpenFile(QString());
    const qint32 count = ItemCount();
    QString error;
    da().ImportFile(QString(), error);
    QCOMPARE(error, QString());
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(ItemCount(), count);
}

void tst_Exchange::exportAsksWhereToSaveAndTellsWhereItWent() {
    ScriptedPlatform platform;
    const qint32 song = m_db->AddSong(QStringLiteral("Abide with Me"),
                                      {{QStringLiteral("Verse 1"), QStringLiteral("Abide")}});
    platform.QueueSaveFile(File("abide.cvx"));
    platform.QueueAnswer(vbOK);
    QString error;
    da().ExportServiceItems(QString::number(song), QStringLiteral("Abide with Me"), error);
    QCOMPARE(error, QString());
    QCOMPARE(platform.Dialogs().at(0).Kind, QStringLiteral("Save"));
    QCOMPARE(platform.Dialogs().at(0).FileName, QStringLiteral("Abide with Me.cvx"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Export"));
    QVERIFY(platform.LastBox().Prompt.contains(File("abide.cvx")));
    QVERIFY(QFileInfo(File("abide.cvx")).size() > 0);
}

void tst_Exchange::cancelledExportWritesNothing() {
    ScriptedPlatform platform;
    platform.QueueSaveFile(QString());
    const qint32 service = m_db->AddService(QStringLiteral("Evening"));
    QString error;
    da().ExportServices(QString::number(service), QStringLiteral("Evening"), error);
    QCOMPARE(error, QString());
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(QDir(m_files->path()).entryList(QDir::Files), QStringList());
}

// ---------------------------------------------------------------- Bad input

void tst_Exchange::aPictureIsNotImported() {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(File("photo.jpg"), "JPG"));
    const qint32 count = ItemCount();
    QString error;
    da().ImportFile(File("photo.jpg"), error);
    QVERIFY2(error.contains(QStringLiteral("photo.jpg is not a file Corvantis can import")),
             qPrintable(error));
    QVERIFY(error.contains(QStringLiteral("Nothing was imported.")));
    QCOMPARE(ItemCount(), count);
}

void tst_Exchange::aTruncatedArchiveIsNotImported() {
    AddVarietyOfItems(*m_db);
    QString error;
    da().ExportServiceItemsToFile(QStringLiteral("2,3,4,5"), QStringLiteral("Some"), File("a.cvx"),
                                  error);
    QFile file(File("a.cvx"));
    QVERIFY(file.resize(file.size() / 2));
    m_db = std::make_unique<TestDatabase>();
    da().ImportFile(File("a.cvx"), error);
    QVERIFY2(error.contains(QStringLiteral("damaged or incomplete")), qPrintable(error));
    QCOMPARE(ItemCount(), 1);
    QCOMPARE(QDir(m_db->ContentFolder()).entryList(QDir::Files), QStringList());
}

void tst_Exchange::openLyricsWithBrokenXmlIsNotImported() {
    QByteArray broken = kAmazingGrace;
    broken.replace("</lines>\n    </verse>\n    <verse name=\"c\">",
                   "</verse>\n    <verse name=\"c\">");
    QString error;
    da().ImportFile(Write(QStringLiteral("broken.xml"), broken), error);
    QVERIFY2(error.contains(QStringLiteral("not well-formed XML")), qPrintable(error));
    QCOMPARE(ItemCount(), 1);
}

void tst_Exchange::aFileOfFiftyMegabytesIsNotImported() {
    QFile file(File("huge.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(kAmazingGrace.left(200));
    QVERIFY(file.resize(50 * 1024 * 1024));
    file.close();
    QString error;
    da().ImportFile(file.fileName(), error);
    QVERIFY2(error.contains(QStringLiteral("huge.xml is too large to import (50.0 MB)")),
             qPrintable(error));
    QCOMPARE(ItemCount(), 1);
}

void tst_Exchange::anEntryClimbingOutOfItsFolderIsRefusedAndNothingIsWritten() {
    // A name of this run's own, so that a file another program left above the folder cannot
    // stand in for one the import wrote.
    const QString name = QStringLiteral("climbed-%1").arg(QCoreApplication::applicationPid());
    const QString climbing = QStringLiteral("../../") + name;
    QSaveFile file(File("climb.cvx"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Zip::Writer zip(&file);
    QVERIFY(zip.Add(QStringLiteral("manifest.json"),
                    R"({"format": "Corvantis export", "version": 1, "items": [
                        {"item": "items/a.json"}]})"));
    QVERIFY(zip.Add(QStringLiteral("items/a.json"),
                    QStringLiteral(R"({"id": 5, "fields": {"ServiceItemTypeID": 5,
                        "ServiceItemDescription": "x"}, "file": "%1"})")
                        .arg(climbing)
                        .toUtf8()));
    QVERIFY(zip.Add(climbing, "climbed"));
    QVERIFY(zip.Finish());
    QVERIFY(file.commit());
    QString error;
    da().ImportFile(File("climb.cvx"), error);
    QVERIFY2(error.contains(QStringLiteral("\"%1\", which would be written outside").arg(climbing)),
             qPrintable(error));
    QCOMPARE(ItemCount(), 1);
    const QDir content(m_db->ContentFolder());
    QVERIFY(!QFileInfo::exists(content.absoluteFilePath(climbing)));
    QVERIFY(!QFileInfo::exists(content.absoluteFilePath(QStringLiteral("../") + name)));
    QCOMPARE(content.entryList(QDir::Files), QStringList());
}

void tst_Exchange::aTitleOfTenThousandCharactersIsNotImported() {
    QByteArray xml = kAmazingGrace;
    xml.replace("<title>Amazing Grace</title>", "<title>" + QByteArray(10000, 'A') + "</title>");
    QString error;
    da().ImportFile(Write(QStringLiteral("long.xml"), xml), error);
    QVERIFY2(error.contains(QStringLiteral("has a title of 10000 characters")), qPrintable(error));
    QCOMPARE(ItemCount(), 1);
}

void tst_Exchange::anArchiveWithoutOurManifestIsNotImported() {
    QSaveFile file(File("other.zip"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Zip::Writer zip(&file);
    QVERIFY(zip.Add(QStringLiteral("readme.txt"), "hello"));
    QVERIFY(zip.Finish());
    QVERIFY(file.commit());
    QString error;
    da().ImportFile(File("other.zip"), error);
    QVERIFY2(error.contains(QStringLiteral("not a Corvantis export")), qPrintable(error));
}

void tst_Exchange::aFailureHalfwayLeavesNoRowsAndNoFiles() {
    // The first item and its file go in; the second names a file the archive does not hold:
    // the first item, its keyword and its file go again.
    QSaveFile file(File("half.cvx"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Zip::Writer zip(&file);
    QVERIFY(zip.Add(QStringLiteral("manifest.json"),
                    R"({"format": "Corvantis export", "version": 1, "items": [
                        {"item": "items/a.json"}, {"item": "items/b.json"}]})"));
    QVERIFY(zip.Add(QStringLiteral("items/a.json"),
                    R"({"id": 5, "fields": {"ServiceItemTypeID": 4,
                        "ServiceItemDescription": "Sky"}, "keywords": ["Heaven"],
                        "file": "files/5/sky.png"})"));
    QVERIFY(zip.Add(QStringLiteral("files/5/sky.png"), "picture"));
    QVERIFY(zip.Add(QStringLiteral("items/b.json"),
                    R"({"id": 6, "fields": {"ServiceItemTypeID": 2,
                        "ServiceItemDescription": "Sheet"}, "file": "files/6/sheet.txt"})"));
    QVERIFY(zip.Finish());
    QVERIFY(file.commit());
    const qint32 keywords = m_db->Count(QStringLiteral("KeyWords"));
    QString error;
    da().ImportFile(File("half.cvx"), error);
    QVERIFY2(error.contains(QStringLiteral("files/6/sheet.txt is named in the export but is not "
                                           "in it")),
             qPrintable(error));
    QVERIFY(error.contains(QStringLiteral("Nothing was imported.")));
    QCOMPARE(ItemCount(), 1);
    QCOMPARE(m_db->Count(QStringLiteral("KeyWords")), keywords);
    QCOMPARE(QDir(m_db->ContentFolder()).entryList(QDir::Files), QStringList());
}

void tst_Exchange::exportToAFolderThatCannotBeWrittenSaysSo() {
    const qint32 song = m_db->AddSong(QStringLiteral("Abide"),
                                      {{QStringLiteral("Verse 1"), QStringLiteral("Abide")}});
    const QString locked = File("locked");
    QVERIFY(QDir().mkpath(locked));
    QVERIFY(QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    QString error;
    {
        WithoutRootPowers volunteer;
        da().ExportServiceItemsToFile(QString::number(song), QStringLiteral("Abide"),
                                      locked + QStringLiteral("/abide.cvx"), error);
    }
    QFile::setPermissions(locked,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY2(error.contains(QStringLiteral("The export cannot be written to")), qPrintable(error));
    QVERIFY(error.contains(QStringLiteral("Choose a folder in which you may save files.")));
    QCOMPARE(QDir(locked).entryList(QDir::Files), QStringList());
}

void tst_Exchange::exportOfAnItemThatDoesNotExistSaysSo() {
    QString error;
    da().ExportServiceItemsToFile(QStringLiteral("999"), QStringLiteral("x"), File("x.cvx"), error);
    QVERIFY2(error.contains(QStringLiteral("Service Item 999 does not exist.")), qPrintable(error));
    QVERIFY(!QFileInfo::exists(File("x.cvx")));
    da().ExportServiceItemsToFile(QStringLiteral("3,abc"), QStringLiteral("x"), File("x.cvx"),
                                  error);
    QVERIFY2(error.contains(QStringLiteral("\"abc\" is not the number of a service item.")),
             qPrintable(error));
}

QTEST_MAIN(tst_Exchange)
#include "tst_Exchange.moc"
