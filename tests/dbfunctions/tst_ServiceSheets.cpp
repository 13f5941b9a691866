// The printed sheets: each is a PDF shown through the platform's print preview; its words are
// read back with pdftotext.

#include "DataAccess.h"
#include "ScriptedPlatform.h"
#include "ServiceSheets.h"
#include "TestDatabase.h"
#include "WithoutRootPowers.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_ServiceSheets : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void printingIsPossibleWhenASheetCanBeWritten();
    void serviceSheetHasTheChurchTheServiceAndItsRows();
    void typeDefaultsDecideWhichRowsAndWordsAreOnTheSheet();
    void promptsOfTheOptionsScreenStayOffTheSheet();
    void itemSheetHasTheTitleTheDetailsAndTheWordsInTheOrderSung();
    void shortCutSheetHasTheKeysAndTheRunOrder();
    void theSheetFileIsRemovedOnceThePreviewCloses();
    void aServiceThatDoesNotExistIsNotPrinted();
    void withoutAFolderForSheetsPrintingSaysSo();
    void aSheetMadeFromATemplateTakesThePlaceOfTheBuiltInOne();

private:
    DataAccess& da() { return DataAccess::Instance(); }
    // The words of the last sheet shown, as pdftotext reads them, white space made single.
    QString LastSheetText();

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    QTemporaryDir m_temp;
    QByteArray m_oldTemp;
    qint32 m_song = 0, m_reading = 0, m_picture = 0, m_service = 0;
};

void tst_ServiceSheets::init() {
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("pdftotext (poppler-utils, installed by scripts/ensure-deps.sh) reads the sheets.");
    m_oldTemp = qgetenv("TMPDIR");
    qputenv("TMPDIR", m_temp.path().toLocal8Bit());
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_platform = std::make_unique<ScriptedPlatform>();
    m_song = m_db->AddSong(QStringLiteral("Amazing Grace"),
                           {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace how sweet")},
                            {QStringLiteral("Chorus"), QStringLiteral("My chains are gone"), true},
                            {QStringLiteral("Verse 2"), QStringLiteral("Twas grace that taught")}},
                           {0, 1, 2, 1});
    m_db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemSource = 'John Newton', "
                              "ServiceItemSongKey = 'G' WHERE ServiceItemID = ?"),
               {m_song});
    m_reading = m_db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"),
                                     QStringLiteral("The Lord is my shepherd"));
    m_picture = m_db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Sunrise picture"));
    const qint32 hidden =
        m_db->AddServiceItem(TestDatabase::Announcement, QStringLiteral("Quiet notices"));
    m_service = m_db->AddService(
        QStringLiteral("Easter Morning"),
        {{m_song}, TestDatabase::Blank(), {m_reading}, {m_picture}, {hidden, false}});
    m_db->Exec(
        QStringLiteral("UPDATE Services SET ServiceTheme = 'He is risen', "
                       "ServiceDateLastDelivered = '2026-04-05 10:00:00' WHERE ServiceID = ?"),
        {m_service});
    m_db->Exec(QStringLiteral("UPDATE Options SET ChurchName = 'St Aidan@@s Church', "
                              "ChurchAddress1 = '1 Hill Road'"));
}

void tst_ServiceSheets::cleanup() {
    m_platform.reset();
    m_db.reset();
    qputenv("TMPDIR", m_oldTemp);
}

QString tst_ServiceSheets::LastSheetText() {
    if (m_platform->Sheets().isEmpty())
        return QStringLiteral("<no sheet>");
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("sheet.pdf")));
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("<cannot write>");
    file.write(m_platform->Sheets().last().Pdf);
    file.close();
    QProcess pdftotext;
    pdftotext.start(QStringLiteral("pdftotext"),
                    {QStringLiteral("-layout"), file.fileName(), QStringLiteral("-")});
    if (!pdftotext.waitForFinished(30000) || pdftotext.exitCode() != 0)
        return QStringLiteral("<pdftotext failed>");
    return QString::fromUtf8(pdftotext.readAllStandardOutput()).simplified();
}

void tst_ServiceSheets::printingIsPossibleWhenASheetCanBeWritten() {
    bool blnInstalled = false;
    da().IsWordInstalled(QString(), QString(), blnInstalled);
    QVERIFY(blnInstalled);
    // A folder for temporary files under a file cannot be made, even by the superuser.
    qputenv("TMPDIR", QByteArray("/dev/null/sheets"));
    da().IsWordInstalled(QString(), QString(), blnInstalled);
    QVERIFY(!blnInstalled);
    // Nor can a volunteer write into a folder that is not theirs.
    QTemporaryDir locked;
    QVERIFY(QFile::setPermissions(locked.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    qputenv("TMPDIR", locked.path().toLocal8Bit());
    {
        WithoutRootPowers volunteer;
        da().IsWordInstalled(QString(), QString(), blnInstalled);
    }
    QFile::setPermissions(locked.path(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY(!blnInstalled);
}

void tst_ServiceSheets::serviceSheetHasTheChurchTheServiceAndItsRows() {
    QString error;
    da().PrintService(m_service, error);
    QCOMPARE(error, QString());
    QCOMPARE(m_platform->Sheets().size(), 1);
    QCOMPARE(m_platform->Sheets().at(0).Title, QStringLiteral("Easter Morning"));
    QVERIFY(m_platform->Sheets().at(0).Pdf.startsWith("%PDF"));
    const QString text = LastSheetText();
    for (const char* expected :
         {"St Aidan's Church", "1 Hill Road", "Easter Morning", "Theme: He is risen",
          "Sunday 5 April 2026", "Amazing Grace", "Psalm 23", "The Lord is my shepherd"})
        QVERIFY2(text.contains(QLatin1String(expected)), qPrintable(expected + (" in: " + text)));
    QVERIFY(text.indexOf(QStringLiteral("Amazing Grace")) <
            text.indexOf(QStringLiteral("Psalm 23")));
    // Hymns leave their words off by default; pictures leave the sheet altogether.
    QVERIFY(!text.contains(QStringLiteral("My chains are gone")));
    QVERIFY(!text.contains(QStringLiteral("Sunrise picture")));
}

void tst_ServiceSheets::typeDefaultsDecideWhichRowsAndWordsAreOnTheSheet() {
    QString error;
    da().SaveServiceItemTypeDefault(
        TestDatabase::Song, QStringLiteral("ByDefaultIncludeContentOnServiceSheet"), true, error);
    da().SaveServiceItemTypeDefault(
        TestDatabase::Picture, QStringLiteral("ByDefaultIncludeTitleOnServiceSheet"), true, error);
    da().SaveServiceItemTypeDefault(TestDatabase::Reading,
                                    QStringLiteral("ByDefaultIncludeContentOnServiceSheet"), false,
                                    error);
    da().PrintService(m_service, error);
    QCOMPARE(error, QString());
    const QString text = LastSheetText();
    // The song's parts as sung: verse, chorus, verse, chorus.
    QCOMPARE(text.count(QStringLiteral("My chains are gone")), 2);
    QVERIFY(text.indexOf(QStringLiteral("Amazing grace how sweet")) <
            text.indexOf(QStringLiteral("Twas grace that taught")));
    QVERIFY(text.contains(QStringLiteral("Sunrise picture")));
    QVERIFY(!text.contains(QStringLiteral("The Lord is my shepherd")));
}

void tst_ServiceSheets::promptsOfTheOptionsScreenStayOffTheSheet() {
    m_db->Exec(QStringLiteral("UPDATE Options SET ChurchName = 'Enter church name here', "
                              "ChurchAddress1 = 'Enter church address in these boxes'"));
    QString error;
    da().PrintService(m_service, error);
    const QString text = LastSheetText();
    QVERIFY(!text.contains(QStringLiteral("Enter church")));
    QVERIFY(text.contains(QStringLiteral("Easter Morning")));
}

void tst_ServiceSheets::itemSheetHasTheTitleTheDetailsAndTheWordsInTheOrderSung() {
    QString error;
    da().PrintServiceItem(m_song, error);
    QCOMPARE(error, QString());
    QCOMPARE(m_platform->Sheets().at(0).Title, QStringLiteral("Amazing Grace"));
    const QString text = LastSheetText();
    for (const char* expected :
         {"Amazing Grace", "Hymn", "Source: John Newton", "Key: G", "Verse 1", "Chorus"})
        QVERIFY2(text.contains(QLatin1String(expected)), qPrintable(expected + (" in: " + text)));
    QCOMPARE(text.count(QStringLiteral("My chains are gone")), 2);
}

void tst_ServiceSheets::shortCutSheetHasTheKeysAndTheRunOrder() {
    m_db->AddServicePropBag(m_service, {m_reading});
    QString error;
    da().PrintServiceShortCuts(m_service, error);
    QCOMPARE(error, QString());
    QCOMPARE(m_platform->Sheets().at(0).Title, QStringLiteral("Short-cuts: Easter Morning"));
    const QString text = LastSheetText();
    for (const char* expected : {
             "Short-cuts: Easter Morning",
             "Space",
             "Right arrow",
             "Page Down",
             "Page Up",
             "Esc",
             "1 Amazing Grace Hymn Verse 1, Chorus, Verse 2, Chorus",
             "2 Blank",
             "3 Psalm 23 Reading",
             "4 Sunrise picture Picture",
             "Props",
         })
        QVERIFY2(text.contains(QLatin1String(expected)), qPrintable(expected + (" in: " + text)));
    // A row that is not shown at run time is not on the operator's sheet.
    QVERIFY(!text.contains(QStringLiteral("Quiet notices")));
}

void tst_ServiceSheets::theSheetFileIsRemovedOnceThePreviewCloses() {
    QString error;
    da().PrintService(m_service, error);
    QCOMPARE(m_platform->Sheets().size(), 1);
    QCOMPARE(QDir(m_temp.path()).entryList({QStringLiteral("Corvantis-sheet-*")}, QDir::Files),
             QStringList());
}

void tst_ServiceSheets::aServiceThatDoesNotExistIsNotPrinted() {
    QString error;
    da().PrintService(999, error);
    QVERIFY2(error.contains(QStringLiteral("Service 999 does not exist.")), qPrintable(error));
    QCOMPARE(m_platform->Sheets().size(), 0);
    da().PrintServiceItem(999, error);
    QVERIFY2(error.contains(QStringLiteral("Service Item 999 does not exist.")), qPrintable(error));
}

void tst_ServiceSheets::withoutAFolderForSheetsPrintingSaysSo() {
    qputenv("TMPDIR", QByteArray("/dev/null/sheets"));
    QString error;
    da().PrintService(m_service, error);
    QVERIFY2(error.contains(QStringLiteral("no folder for temporary files")) &&
                 error.contains(QStringLiteral("/dev/null/sheets")),
             qPrintable(error));
    QCOMPARE(m_platform->Sheets().size(), 0);
}

void tst_ServiceSheets::aSheetMadeFromATemplateTakesThePlaceOfTheBuiltInOne() {
    QList<qint32> asked;
    ServiceSheets::SetTemplateSheetMaker(
        [&](ServiceSheets::Kind kind, qint32 lngID, const QString& strPdfFile, QString&) {
            asked << lngID;
            if (kind != ServiceSheets::Kind::Service)
                return false; // no template: the built-in sheet
            QFile file(strPdfFile);
            return file.open(QIODevice::WriteOnly) && file.write("%PDF-from-template") > 0;
        });
    QString error;
    da().PrintService(m_service, error);
    da().PrintServiceItem(m_song, error);
    ServiceSheets::SetTemplateSheetMaker(nullptr);
    QCOMPARE(asked, QList<qint32>({m_service, m_song}));
    QCOMPARE(m_platform->Sheets().at(0).Pdf, QByteArray("%PDF-from-template"));
    QVERIFY(LastSheetText().contains(QStringLiteral("Amazing Grace")));
}

QTEST_MAIN(tst_ServiceSheets)
#include "tst_ServiceSheets.moc"
