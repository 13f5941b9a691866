// Making sheets from templates: the in-built templates of a new database, the
// filling of their fields and rows for a service or a service item, zipped and
// flat templates, bad templates, and Writer missing, hanging or really
// converting a sheet to PDF.
#include "DataAccess.h"
#include "TemplateFiles.h"
#include "TemplateFill.h"
#include "TestDatabase.h"
#include "TraceFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <zlib.h>

namespace {
using TemplateFill::Subject;

QByteArray ReadAll(const QString& strPath) {
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteAll(const QString& strPath, const QByteArray& data) {
    QFile file(strPath);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size();
}

// A flat template whose body is strBody, with user fields declared for strFields.
QByteArray FlatTemplate(const QString& strBody, const QStringList& lstFields = {}) {
    QString strDecls;
    for (const QString& strName : lstFields)
        strDecls += QStringLiteral("<text:user-field-decl office:value-type=\"string\" "
                                   "office:string-value=\"\" text:name=\"%1\"/>")
                        .arg(strName);
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document "
               "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
               "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
               "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
               "office:version=\"1.3\" "
               "office:mimetype=\"application/vnd.oasis.opendocument.text-template\">"
               "<office:body><office:text><text:user-field-decls>%1</text:user-field-decls>%2"
               "</office:text></office:body></office:document>\n")
        .arg(strDecls, strBody)
        .toUtf8();
}

QString Get(const QString& strName) {
    return QStringLiteral("<text:user-field-get text:name=\"%1\"/>").arg(strName);
}

// A zip package of the given entries, the first stored, the others deflated.
QByteArray Zip(const QList<std::pair<QByteArray, QByteArray>>& entries) {
    QByteArray out;
    QByteArray directory;
    auto put16 = [](QByteArray& b, quint16 v) {
        char c[2];
        qToLittleEndian(v, c);
        b.append(c, 2);
    };
    auto put32 = [](QByteArray& b, quint32 v) {
        char c[4];
        qToLittleEndian(v, c);
        b.append(c, 4);
    };
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QByteArray& name = entries[i].first;
        const QByteArray& plain = entries[i].second;
        const quint32 crc = crc32(0, reinterpret_cast<const Bytef*>(plain.constData()),
                                  static_cast<uInt>(plain.size()));
        QByteArray stored = plain;
        quint16 method = 0;
        if (i > 0) {
            method = 8;
            stored.resize(compressBound(plain.size()) + 64);
            z_stream zs{};
            deflateInit2(&zs, 6, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
            zs.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.constData()));
            zs.avail_in = static_cast<uInt>(plain.size());
            zs.next_out = reinterpret_cast<Bytef*>(stored.data());
            zs.avail_out = static_cast<uInt>(stored.size());
            deflate(&zs, Z_FINISH);
            stored.resize(zs.total_out);
            deflateEnd(&zs);
        }
        const quint32 offset = out.size();
        auto common = [&](QByteArray& b) {
            put16(b, 20);
            put16(b, 0);
            put16(b, method);
            put16(b, 0);
            put16(b, 0);
            put32(b, crc);
            put32(b, stored.size());
            put32(b, plain.size());
            put16(b, name.size());
            put16(b, 0);
        };
        put32(out, 0x04034b50);
        common(out);
        out += name + stored;
        put32(directory, 0x02014b50);
        put16(directory, 20);
        common(directory);
        put16(directory, 0);
        put16(directory, 0);
        put16(directory, 0);
        put32(directory, 0);
        put32(directory, offset);
        directory += name;
    }
    const quint32 at = out.size();
    out += directory;
    put32(out, 0x06054b50);
    put16(out, 0);
    put16(out, 0);
    put16(out, entries.size());
    put16(out, entries.size());
    put32(out, directory.size());
    put32(out, at);
    put16(out, 0);
    return out;
}

// A folder put at the front of PATH holding an executable "soffice" with the given script.
class FakeSoffice {
public:
    explicit FakeSoffice(const QByteArray& script) : m_oldPath(qgetenv("PATH")) {
        QFile file(m_dir.filePath(QStringLiteral("soffice")));
        m_valid = file.open(QIODevice::WriteOnly) && file.write(script) > 0;
        file.close();
        m_valid =
            m_valid && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", m_dir.path().toLocal8Bit() + ":" + m_oldPath);
    }
    ~FakeSoffice() { qputenv("PATH", m_oldPath); }
    bool IsValid() const { return m_valid; }
    QString Folder() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    QByteArray m_oldPath;
    bool m_valid = false;
};
} // namespace

class tst_TemplateFill : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void aNewDatabaseHoldsTheTwoInBuiltTemplates();
    void theShippedServiceSheetIsCopiedWithTheChurchWhenFirstNeeded();
    void anEditedCopyOfAShippedTemplateIsKept();
    void aServiceSheetHoldsTheServiceAndOneTableRowPerServiceRow();
    void aServiceWithoutRowsLeavesNoRowFieldsBehind();
    void aRowFieldOutsideATableRepeatsItsParagraph();
    void aSongSheetHoldsTheWordsLineByLine();
    void aSongWithoutTextTakesItsVersesInTheOrderSung();
    void anUnknownFieldIsLeftAsItStands();
    void aTemplateWithNoFieldsIsFilledAsItStands();
    void aSpaceBetweenTwoFieldsStays();
    void theChurchLogoIsShownOrItsFrameTakenOut();
    void aZippedTemplateIsFilledInsideItsContentAndKeepsItsOtherParts();
    void aDotOttThatIsNotAZipIsRefused();
    void aDamagedZipIsRefused();
    void aDeletedTemplateIsReportedAndNothingStoredChanges();
    void aServiceThatDoesNotExistIsReported();
    void withoutWriterTheSheetSaysWriterCannotBeFound();
    void aHangingWriterIsStoppedAtItsTimeLimit();
    void theFieldListNamesEveryField();
    void theInBuiltServiceSheetBecomesAPdfWithTheServiceAndItsRows();
    void aTemplateSavedByWriterAsAZipBecomesAPdf();

private:
    QString Filled(const QByteArray& templ, Subject subject, qint32 lngID,
                   const QString& strExtension = QStringLiteral("fott"));
    qint32 SampleService();
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_TemplateFill::init() {
    m_db = std::make_unique<TestDatabase>(TestDatabase::WithInBuiltTemplates);
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void tst_TemplateFill::cleanup() {
    m_dir.reset();
    m_db.reset();
}

// Fills a template given as bytes; the filled document's text, or the error text.
QString tst_TemplateFill::Filled(const QByteArray& templ, Subject subject, qint32 lngID,
                                 const QString& strExtension) {
    const QString strTemplate = m_dir->filePath(QStringLiteral("t.") + strExtension);
    const QString strOut = m_dir->filePath(QStringLiteral("out.fodt"));
    if (!WriteAll(strTemplate, templ))
        return QStringLiteral("(template not written)");
    const QString strError = TemplateFill::FillFile(strTemplate, subject, lngID, strOut);
    return strError.isEmpty() ? QString::fromUtf8(ReadAll(strOut)) : strError;
}

qint32 tst_TemplateFill::SampleService() {
    const qint32 hymn = m_db->AddServiceItem(TestDatabase::Song, "Be Thou My Vision");
    const qint32 prayer = m_db->AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis");
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Psalm 23");
    const qint32 service = m_db->AddService(
        "Harvest Thanksgiving", {{hymn, true, "00:04:00"}, {prayer}, {reading}}, "Harvest");
    m_db->Exec("UPDATE Services SET ServiceTheme = 'Sowing and reaping', ServiceDateLastDelivered "
               "= '2026-10-04 10:30:00' WHERE ServiceID = ?",
               {service});
    return service;
}

void tst_TemplateFill::aNewDatabaseHoldsTheTwoInBuiltTemplates() {
    QCOMPARE(m_db->Count("Templates", "IsInBuilt = 1"), 2);
    QCOMPARE(m_db->Scalar("SELECT TemplateFilename FROM Templates WHERE IsServiceTemplate = 1")
                 .toString(),
             QStringLiteral("ServiceSheet.fodt"));
    QCOMPARE(m_db->Scalar("SELECT TemplateFilename FROM Templates WHERE IsServiceTemplate = 0")
                 .toString(),
             QStringLiteral("SongSheet.fodt"));
    QVERIFY(TemplateFiles::IsShipped(QStringLiteral("ServiceSheet.fodt")));
    QVERIFY(TemplateFiles::IsShipped(QStringLiteral("SongSheet.fodt")));
    QVERIFY(!TemplateFiles::IsShipped(m_db->Folder() + QStringLiteral("/ServiceSheet.fodt")));
}

void tst_TemplateFill::theShippedServiceSheetIsCopiedWithTheChurchWhenFirstNeeded() {
    QVERIFY(m_db->Exec("UPDATE Options SET ChurchName = 'St Mary & All Saints'"));
    const QString strCopy = TemplateFiles::Folder() + QStringLiteral("/ServiceSheet.fodt");
    QVERIFY(!QFile::exists(strCopy));
    QString strError;
    QCOMPARE(TemplateFiles::OfTemplate(1, strError), strCopy);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    const QString strXml = QString::fromUtf8(ReadAll(strCopy));
    QVERIFY(strXml.contains(QStringLiteral(
        "office:string-value=\"St Mary &amp; All Saints\" text:name=\"ChurchName\"")));
    QVERIFY(strXml.contains(Get(QStringLiteral("ChurchName"))));
    QCOMPARE(m_db->Scalar("SELECT TemplateFilename FROM Templates WHERE TemplateID = 1").toString(),
             QStringLiteral("ServiceSheet.fodt"));
}

void tst_TemplateFill::anEditedCopyOfAShippedTemplateIsKept() {
    QString strError;
    const QString strCopy = TemplateFiles::OfTemplate(1, strError);
    QVERIFY(WriteAll(strCopy, FlatTemplate(QStringLiteral("<text:p>Edited</text:p>"))));
    QCOMPARE(TemplateFiles::OfTemplate(1, strError), strCopy);
    QVERIFY(ReadAll(strCopy).contains("Edited"));
}

void tst_TemplateFill::aServiceSheetHoldsTheServiceAndOneTableRowPerServiceRow() {
    const qint32 service = SampleService();
    QString strError;
    const QString strTemplate = TemplateFiles::OfTemplate(1, strError);
    const QString strOut = m_dir->filePath(QStringLiteral("sheet.fodt"));
    QCOMPARE(TemplateFill::FillFile(strTemplate, Subject::Service, service, strOut), QString());
    const QString strXml = QString::fromUtf8(ReadAll(strOut));
    QVERIFY(strXml.contains(QStringLiteral(">Harvest Thanksgiving<")));
    QVERIFY(strXml.contains(QStringLiteral(">Sowing and reaping<")));
    QVERIFY(strXml.contains(QStringLiteral("4 October 2026")));
    const qsizetype hymn = strXml.indexOf(QStringLiteral(">Be Thou My Vision<"));
    const qsizetype prayer = strXml.indexOf(QStringLiteral(">Prayer of St Francis<"));
    const qsizetype reading = strXml.indexOf(QStringLiteral(">Psalm 23<"));
    QVERIFY(hymn > 0 && hymn < prayer && prayer < reading);
    QVERIFY(strXml.contains(QStringLiteral(">00:04:00<")));
    QCOMPARE(strXml.count(QStringLiteral("<table:table-row>")), 1 + 3);
    QVERIFY(!strXml.contains(QStringLiteral("text:user-field-get")));
    QVERIFY(strXml.contains(
        QStringLiteral("office:mimetype=\"application/vnd.oasis.opendocument.text\"")));
    QVERIFY(QFile::exists(strTemplate));
    QVERIFY(ReadAll(strTemplate).contains("text:user-field-get text:name=\"RowTitle\""));
}

void tst_TemplateFill::aServiceWithoutRowsLeavesNoRowFieldsBehind() {
    const qint32 service = m_db->AddService("Quiet Evening");
    const QString strRow = QStringLiteral("<table:table-row><table:table-cell><text:p>%1</text:p>"
                                          "</table:table-cell></table:table-row>")
                               .arg(Get("RowTitle"));
    const QString strHeading = QStringLiteral("<table:table-row><table:table-cell><text:p>Title"
                                              "</text:p></table:table-cell></table:table-row>");
    // Beside another row the row goes; alone it stays, empty, for a table needs a row.
    QString strXml = Filled(
        FlatTemplate(QStringLiteral("<table:table>%1%2</table:table>").arg(strHeading, strRow)),
        Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral("<table:table>%1</table:table>").arg(strHeading)),
             qPrintable(strXml));
    strXml = Filled(FlatTemplate(QStringLiteral("<table:table>%1</table:table>").arg(strRow)),
                    Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral("<table:table><table:table-row><table:table-cell>"
                                            "<text:p/></table:table-cell></table:table-row>"
                                            "</table:table>")),
             qPrintable(strXml));
}

void tst_TemplateFill::aRowFieldOutsideATableRepeatsItsParagraph() {
    const qint32 a = m_db->AddServiceItem(TestDatabase::Prayer, "Opening Prayer");
    const qint32 b = m_db->AddServiceItem(TestDatabase::Prayer, "Blessing");
    const qint32 service = m_db->AddService("Evensong", {{a}, {b}});
    const QString strXml = Filled(
        FlatTemplate(
            QStringLiteral("<text:p>%1. %2</text:p>").arg(Get("RowNumber"), Get("RowTitle"))),
        Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral("<text:p>1. Opening Prayer</text:p><text:p>2. "
                                            "Blessing</text:p>")),
             qPrintable(strXml));
}

void tst_TemplateFill::aSongSheetHoldsTheWordsLineByLine() {
    const qint32 item = m_db->AddServiceItem(TestDatabase::Reading, "The Beatitudes",
                                             "Blessed are the poor in spirit\nBlessed are they "
                                             "that mourn",
                                             "Read slowly");
    QString strError;
    const QString strTemplate = TemplateFiles::OfTemplate(2, strError);
    const QString strOut = m_dir->filePath(QStringLiteral("song.fodt"));
    QCOMPARE(TemplateFill::FillFile(strTemplate, Subject::ServiceItem, item, strOut), QString());
    const QString strXml = QString::fromUtf8(ReadAll(strOut));
    QVERIFY(strXml.contains(QStringLiteral(">The Beatitudes<")));
    QVERIFY(strXml.contains(QStringLiteral(
        "Blessed are the poor in spirit<text:line-break/>Blessed are they that mourn")));
    QVERIFY(strXml.contains(QStringLiteral(">Read slowly<")));
}

void tst_TemplateFill::aSongWithoutTextTakesItsVersesInTheOrderSung() {
    const qint32 song = m_db->AddSong(
        "Amazing Grace", {{"Verse 1", "Amazing grace"}, {"Chorus", "Praise him", true}}, {0, 1, 0});
    const QString strXml =
        Filled(FlatTemplate(QStringLiteral("<text:p>%1</text:p>").arg(Get("ItemWords"))),
               Subject::ServiceItem, song);
    QVERIFY2(strXml.contains(QStringLiteral("Amazing grace<text:line-break/><text:line-break/>"
                                            "Praise him<text:line-break/><text:line-break/>"
                                            "Amazing grace")),
             qPrintable(strXml));
}

void tst_TemplateFill::anUnknownFieldIsLeftAsItStands() {
    const qint32 service = m_db->AddService("Harvest");
    const QString strXml = Filled(
        FlatTemplate(QStringLiteral("<text:p>%1 %2</text:p>")
                         .arg(Get("ServiceName"),
                              QStringLiteral("<text:user-field-get "
                                             "text:name=\"Mystery\">kept</text:user-field-get>")),
                     {QStringLiteral("ServiceName"), QStringLiteral("Mystery")}),
        Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral(
                 "Harvest <text:user-field-get text:name=\"Mystery\">kept</text:user-field-get>")),
             qPrintable(strXml));
    QVERIFY(strXml.contains(QStringLiteral("office:string-value=\"\" text:name=\"Mystery\"")));
}

void tst_TemplateFill::aTemplateWithNoFieldsIsFilledAsItStands() {
    const qint32 service = m_db->AddService("Harvest");
    const QString strXml =
        Filled(FlatTemplate(QStringLiteral("<text:p>Welcome to our church</text:p>")),
               Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral("<text:p>Welcome to our church</text:p>")),
             qPrintable(strXml));
}

void tst_TemplateFill::aSpaceBetweenTwoFieldsStays() {
    const qint32 service = m_db->AddService("Harvest");
    QVERIFY(
        m_db->Exec("UPDATE Services SET ServiceTheme = 'Thanks' WHERE ServiceID = ?", {service}));
    const QString strXml = Filled(
        FlatTemplate(
            QStringLiteral("<text:p>%1 %2</text:p>").arg(Get("ServiceName"), Get("ServiceTheme"))),
        Subject::Service, service);
    QVERIFY2(strXml.contains(QStringLiteral("<text:p>Harvest Thanks</text:p>")),
             qPrintable(strXml));
}

void tst_TemplateFill::theChurchLogoIsShownOrItsFrameTakenOut() {
    const qint32 service = m_db->AddService("Harvest");
    const QByteArray templ = FlatTemplate(
        QStringLiteral("<text:p><draw:frame "
                       "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" "
                       "xmlns:xlink=\"http://www.w3.org/1999/xlink\" draw:name=\"ChurchLogo\">"
                       "<draw:image xlink:href=\"old.png\"/></draw:frame>Text</text:p>"));
    QString strXml = Filled(templ, Subject::Service, service);
    QVERIFY2(!strXml.contains(QStringLiteral("draw:frame")), qPrintable(strXml));
    QVERIFY(strXml.contains(QStringLiteral("Text</text:p>")));

    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    QVERIFY(WriteAll(strFolder + QStringLiteral("ChurchLogo.png"), "png"));
    QVERIFY(m_db->Exec("UPDATE Options SET ChurchLogoFilename = '/elsewhere/logo.png'"));
    strXml = Filled(templ, Subject::Service, service);
    QVERIFY2(
        strXml.contains(QStringLiteral("xlink:href=\"file://%1ChurchLogo.png\"").arg(strFolder)),
        qPrintable(strXml));
}

void tst_TemplateFill::aZippedTemplateIsFilledInsideItsContentAndKeepsItsOtherParts() {
    const qint32 service = m_db->AddService("Harvest Thanksgiving");
    const QByteArray picture("\x89PNG not really a picture", 25);
    const QByteArray zip =
        Zip({{"mimetype", "application/vnd.oasis.opendocument.text-template"},
             {"content.xml",
              FlatTemplate(QStringLiteral("<text:p>%1</text:p>").arg(Get("ServiceName")))},
             {"styles.xml",
              FlatTemplate(QStringLiteral("<text:p>Header %1</text:p>").arg(Get("ServiceName")))},
             {"Pictures/logo.png", picture}});
    const QString strTemplate = m_dir->filePath(QStringLiteral("zipped.ott"));
    QVERIFY(WriteAll(strTemplate, zip));
    QString strError;
    QCOMPARE(TemplateFill::FilledExtension(strTemplate, strError), QStringLiteral("odt"));
    const QString strOut = m_dir->filePath(QStringLiteral("zipped.odt"));
    QCOMPARE(TemplateFill::FillFile(strTemplate, Subject::Service, service, strOut), QString());
    // The filled package reads again, with the values in its content and styles.
    QVERIFY(ReadAll(strOut).startsWith("PK\x03\x04"));
    const QString strAgain = m_dir->filePath(QStringLiteral("again.odt"));
    QCOMPARE(TemplateFill::FillFile(strOut, Subject::Service, service, strAgain), QString());
    const QByteArray filled = ReadAll(strAgain);
    QVERIFY(filled.contains("<text:p>Harvest Thanksgiving</text:p>"));
    QVERIFY(filled.contains("<text:p>Header Harvest Thanksgiving</text:p>"));
    QVERIFY(filled.contains("application/vnd.oasis.opendocument.text-template"));
    QCOMPARE(ReadAll(strTemplate), zip);
}

void tst_TemplateFill::aDotOttThatIsNotAZipIsRefused() {
    const qint32 service = m_db->AddService("Harvest");
    const QString strError =
        Filled("This is no template at all", Subject::Service, service, QStringLiteral("ott"));
    QVERIFY2(strError.contains(QStringLiteral("is not an OpenDocument template")),
             qPrintable(strError));
    QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral("out.fodt"))));
}

void tst_TemplateFill::aDamagedZipIsRefused() {
    const qint32 service = m_db->AddService("Harvest");
    const QString strError = Filled(QByteArray("PK\x03\x04 cut short", 15), Subject::Service,
                                    service, QStringLiteral("ott"));
    QVERIFY2(strError.contains(QStringLiteral("damaged")), qPrintable(strError));
}

void tst_TemplateFill::aDeletedTemplateIsReportedAndNothingStoredChanges() {
    const qint32 service = SampleService();
    const qint32 lngID = m_db->AddTemplate("Moved away", true);
    const QString strGone = m_dir->filePath(QStringLiteral("gone.ott"));
    QVERIFY(m_db->Exec("UPDATE Templates SET TemplateFilename = ? WHERE TemplateID = ?",
                       {strGone, lngID}));
    const QString strPdf = m_dir->filePath(QStringLiteral("sheet.pdf"));
    const QString strError = TemplateFill::TemplateToPdf(lngID, Subject::Service, service, strPdf);
    QVERIFY2(strError.contains(QStringLiteral("cannot be found")), qPrintable(strError));
    QVERIFY(strError.contains(strGone));
    QVERIFY(!QFile::exists(strPdf));
    QCOMPARE(m_db->Scalar("SELECT TemplateFilename FROM Templates WHERE TemplateID = ?", {lngID})
                 .toString(),
             strGone);
    QCOMPARE(m_db->Count("Templates"), 3);
    QVERIFY(TemplateFill::TemplateToPdf(999, Subject::Service, service, strPdf)
                .contains(QStringLiteral("999 does not exist")));
}

void tst_TemplateFill::aServiceThatDoesNotExistIsReported() {
    QString strError;
    const QString strTemplate = TemplateFiles::OfTemplate(1, strError);
    const QString strOut = m_dir->filePath(QStringLiteral("out.fodt"));
    QCOMPARE(TemplateFill::FillFile(strTemplate, Subject::Service, 4242, strOut),
             QStringLiteral("Service 4242 does not exist."));
    QCOMPARE(TemplateFill::FillFile(strTemplate, Subject::ServiceItem, 4242, strOut),
             QStringLiteral("Service item 4242 does not exist."));
    QVERIFY(!QFile::exists(strOut));
}

void tst_TemplateFill::withoutWriterTheSheetSaysWriterCannotBeFound() {
    const qint32 service = SampleService();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    const QString strPdf = m_dir->filePath(QStringLiteral("sheet.pdf"));
    TraceFile trace;
    const QString strError = TemplateFill::TemplateToPdf(1, Subject::Service, service, strPdf);
    qputenv("PATH", oldPath);
    QVERIFY(trace.HasLineStartingWith(
        QStringLiteral("QVLTDBFUNCTIONS:TemplateFill:FileToPdf: strTemplateFile = ")));
    QVERIFY(trace.HasLineContaining(QStringLiteral("lngServiceID = %1").arg(service)));
    QVERIFY(trace.NewErrorLines().join('\n').contains(QStringLiteral("cannot be found")));
    QVERIFY2(strError.contains(QStringLiteral("LibreOffice Writer cannot be found")),
             qPrintable(strError));
    QVERIFY(!QFile::exists(strPdf));
}

void tst_TemplateFill::aHangingWriterIsStoppedAtItsTimeLimit() {
    const qint32 service = SampleService();
    const QString strPidFile = m_dir->filePath(QStringLiteral("writer.pid"));
    FakeSoffice writer(
        QStringLiteral("#!/bin/sh\necho $$ > '%1'\nsleep 600\n").arg(strPidFile).toLocal8Bit());
    QVERIFY(writer.IsValid());
    const QString strPdf = m_dir->filePath(QStringLiteral("sheet.pdf"));
    const QString strError = TemplateFill::TemplateToPdf(1, Subject::Service, service, strPdf, 1);
    QVERIFY2(strError.contains(QStringLiteral("did not finish the sheet within 1 seconds")),
             qPrintable(strError));
    QVERIFY(!QFile::exists(strPdf));
    const QByteArray pid = ReadAll(strPidFile).trimmed();
    QVERIFY(!pid.isEmpty());
    // The script and the sleep it started are both gone.
    QTRY_VERIFY(!QFileInfo::exists(QStringLiteral("/proc/") + QString::fromLatin1(pid)));
    const auto groupIsGone = [&] {
        QProcess pgrep;
        pgrep.start(QStringLiteral("pgrep"), {QStringLiteral("-g"), QString::fromLatin1(pid)});
        return pgrep.waitForFinished() && pgrep.readAllStandardOutput().trimmed().isEmpty();
    };
    QTRY_VERIFY(groupIsGone());
}

void tst_TemplateFill::theFieldListNamesEveryField() {
    const QString strList = TemplateFill::FieldList();
    for (const char* name :
         {"ChurchName", "ChurchAddress", "ServiceName", "ServiceTheme", "ServiceDate", "RowNumber",
          "RowTitle", "RowType", "RowLength", "ItemTitle", "ItemWords", "ItemNotes"})
        QVERIFY2(strList.contains(QLatin1String(name) + QStringLiteral(": ")), name);
}

void tst_TemplateFill::theInBuiltServiceSheetBecomesAPdfWithTheServiceAndItsRows() {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty() ||
        QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("LibreOffice Writer (soffice) and pdftotext are needed to make and read the sheet; "
              "scripts/ensure-deps.sh installs them.");
    const qint32 service = SampleService();
    const QString strPdf = m_dir->filePath(QStringLiteral("Harvest.pdf"));
    const QString strError = TemplateFill::TemplateToPdf(1, Subject::Service, service, strPdf, 240);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    QProcess pdftotext;
    pdftotext.start(QStringLiteral("pdftotext"), {strPdf, QStringLiteral("-")});
    QVERIFY(pdftotext.waitForFinished(60000));
    const QString strText = QString::fromUtf8(pdftotext.readAllStandardOutput());
    for (const char* expected :
         {"Harvest Thanksgiving", "Be Thou My Vision", "Prayer of St Francis", "Psalm 23"})
        QVERIFY2(strText.contains(QLatin1String(expected)), qPrintable(strText));
}

// Writer itself saves the in-built sheet as a zipped template, which is then filled.
void tst_TemplateFill::aTemplateSavedByWriterAsAZipBecomesAPdf() {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty() ||
        QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("LibreOffice Writer (soffice) and pdftotext are needed to make and read the sheet; "
              "scripts/ensure-deps.sh installs them.");
    const qint32 service = SampleService();
    QString strError;
    const QString strFlat = TemplateFiles::OfTemplate(1, strError);
    QProcess writer;
    writer.start(QStringLiteral("soffice"),
                 {QStringLiteral("-env:UserInstallation=file://") + m_dir->filePath("profile"),
                  QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                  QStringLiteral("ott"), QStringLiteral("--outdir"), m_dir->path(), strFlat});
    QVERIFY(writer.waitForFinished(240000));
    const QString strZipped = m_dir->filePath(QStringLiteral("ServiceSheet.ott"));
    QVERIFY(ReadAll(strZipped).startsWith("PK\x03\x04"));
    const QString strPdf = m_dir->filePath(QStringLiteral("Zipped.pdf"));
    strError = TemplateFill::FileToPdf(strZipped, Subject::Service, service, strPdf, 240);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    QProcess pdftotext;
    pdftotext.start(QStringLiteral("pdftotext"), {strPdf, QStringLiteral("-")});
    QVERIFY(pdftotext.waitForFinished(60000));
    const QString strText = QString::fromUtf8(pdftotext.readAllStandardOutput());
    for (const char* expected : {"Harvest Thanksgiving", "Be Thou My Vision", "Psalm 23"})
        QVERIFY2(strText.contains(QLatin1String(expected)), qPrintable(strText));
}

QTEST_MAIN(tst_TemplateFill)
#include "tst_TemplateFill.moc"
