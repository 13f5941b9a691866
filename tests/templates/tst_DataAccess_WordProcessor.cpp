// The data library's word processor answers: finding LibreOffice Writer,
// noticing it running, and creating and opening template documents through
// the Platform's shell execute.
#include "DataAccess.h"
#include "FakeWriter.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "templates/TemplateDocuments.h"

#include <QFile>
#include <QTest>

class tst_DataAccess_WordProcessor : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();

    void writerIsInstalledWhenSofficeIsOnThePath();
    void writerIsNotInstalledWithoutIt();
    void writerRunsWhileASofficeOfThisUserRuns();
    void aHeadlessConverterIsNoRunningWriter();
    void newTemplateWritesTheStartingDocumentAndOpensIt();
    void newTemplateWithoutOpeningLaunchesNothing();
    void newTemplateWithoutWriterCreatesNothing();
    void openTemplateOfAMissingTemplateSaysSo();
    void openTemplateOfAMovedDocumentSaysSoAndChangesNothing();
    void openTemplateWithoutWriterSaysSo();
    void aFailedLaunchIsReported();
    void openingAnInBuiltTemplateCopiesItsShippedDocumentFirst();
    void anInBuiltTemplateWhoseCopyWasDeletedIsCopiedAgain();
    void aServiceItemTemplateWithoutDocumentStartsFromTheSongSheet();
    void theFieldListIsWrittenAndOpenedInWriter();
    void withoutWriterTheFieldListSaysSoAndOpensNothing();

private:
    QString FileOf(qint32 lngID) const;
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    std::unique_ptr<FakeWriter> m_writer;
};

void tst_DataAccess_WordProcessor::initTestCase() {
    TemplateDocuments::RouteThroughPlatform();
}

void tst_DataAccess_WordProcessor::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
    m_writer = std::make_unique<FakeWriter>();
    QVERIFY(m_writer->IsValid());
}

void tst_DataAccess_WordProcessor::cleanup() {
    m_writer.reset();
    m_platform.reset();
    m_db.reset();
}

QString tst_DataAccess_WordProcessor::FileOf(qint32 lngID) const {
    return m_db
        ->Scalar(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE TemplateID = ?"),
                 {lngID})
        .toString();
}

void tst_DataAccess_WordProcessor::writerIsInstalledWhenSofficeIsOnThePath() {
    bool blnInstalled = false;
    DataAccess::Instance().IsWriterInstalled(blnInstalled);
    QVERIFY(blnInstalled);
}

void tst_DataAccess_WordProcessor::writerIsNotInstalledWithoutIt() {
    m_writer.reset();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    bool blnInstalled = true;
    DataAccess::Instance().IsWriterInstalled(blnInstalled);
    qputenv("PATH", oldPath);
    QVERIFY(!blnInstalled);
}

void tst_DataAccess_WordProcessor::writerRunsWhileASofficeOfThisUserRuns() {
    bool blnRunning = true;
    DataAccess::Instance().IsWordRunning(blnRunning);
    QVERIFY(!blnRunning);
    {
        RunningWriter running;
        QVERIFY(running.IsRunning());
        QTRY_VERIFY((DataAccess::Instance().IsWordRunning(blnRunning), blnRunning));
    }
    DataAccess::Instance().IsWordRunning(blnRunning);
    QVERIFY(!blnRunning);
}

void tst_DataAccess_WordProcessor::aHeadlessConverterIsNoRunningWriter() {
    RunningWriter converter({QStringLiteral("-env:UserInstallation=file:///tmp/profile"),
                             QStringLiteral("--headless")});
    QVERIFY(converter.IsRunning());
    RunningWriter writer;
    QVERIFY(writer.IsRunning());
    bool blnRunning = false;
    QTRY_VERIFY((DataAccess::Instance().IsWordRunning(blnRunning), blnRunning));
    writer.Stop();
    DataAccess::Instance().IsWordRunning(blnRunning);
    QVERIFY(!blnRunning);
}

void tst_DataAccess_WordProcessor::newTemplateWritesTheStartingDocumentAndOpensIt() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET ChurchName = 'St Mary & All Saints'")));
    QString strError;
    qint32 lngID = 0;
    DataAccess::Instance().NewTemplate(true, strError, lngID);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    QVERIFY(lngID > 0);
    const QString strFile = FileOf(lngID);
    QVERIFY(strFile.startsWith(m_db->Folder() + QStringLiteral("/Templates/")));
    QFile file(strFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString strXml = QString::fromUtf8(file.readAll());
    QVERIFY(strXml.contains(QStringLiteral("St Mary &amp; All Saints")));
    QVERIFY(strXml.contains(QStringLiteral("text:name=\"ServiceName\"")));
    QVERIFY(strXml.contains(
        QStringLiteral("office:mimetype=\"application/vnd.oasis.opendocument.text\"")));
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    QCOMPARE(m_platform->ShellCalls().first().File, m_writer->Program());
    QCOMPARE(m_platform->ShellCalls().first().Params, QStringLiteral("\"%1\"").arg(strFile));
}

void tst_DataAccess_WordProcessor::newTemplateWithoutOpeningLaunchesNothing() {
    QString strError;
    qint32 lngID = 0;
    DataAccess::Instance().NewTemplate(false, strError, lngID);
    QVERIFY(strError.isEmpty());
    QVERIFY(QFile::exists(FileOf(lngID)));
    QCOMPARE(m_platform->ShellCalls().size(), 0);
}

void tst_DataAccess_WordProcessor::newTemplateWithoutWriterCreatesNothing() {
    m_writer.reset();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    QString strError;
    qint32 lngID = -1;
    DataAccess::Instance().NewTemplate(true, strError, lngID);
    qputenv("PATH", oldPath);
    QVERIFY(strError.contains(QStringLiteral("LibreOffice Writer cannot be found")));
    QCOMPARE(lngID, 0);
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 0);
    QVERIFY(!QFile::exists(m_db->Folder() + QStringLiteral("/Templates")));
}

void tst_DataAccess_WordProcessor::openTemplateOfAMissingTemplateSaysSo() {
    QString strError;
    DataAccess::Instance().OpenTemplate(999, strError);
    QVERIFY(strError.contains(QStringLiteral("999")));
    QCOMPARE(m_platform->ShellCalls().size(), 0);
}

void tst_DataAccess_WordProcessor::openTemplateOfAMovedDocumentSaysSoAndChangesNothing() {
    const qint32 lngID = m_db->AddTemplate(QStringLiteral("Sheet"), true);
    const QString strGone = m_db->Folder() + QStringLiteral("/moved.fott");
    QVERIFY(
        m_db->Exec(QStringLiteral("UPDATE Templates SET TemplateFilename = ? WHERE TemplateID = ?"),
                   {strGone, lngID}));
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    QVERIFY(strError.contains(QStringLiteral("cannot be found")));
    QVERIFY(strError.contains(strGone));
    QCOMPARE(FileOf(lngID), strGone);
    QCOMPARE(m_platform->ShellCalls().size(), 0);
}

void tst_DataAccess_WordProcessor::openTemplateWithoutWriterSaysSo() {
    const qint32 lngID = m_db->AddTemplate(QStringLiteral("Sheet"), true);
    m_writer.reset();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    qputenv("PATH", oldPath);
    QVERIFY(strError.contains(QStringLiteral("LibreOffice Writer cannot be found")));
    QVERIFY(FileOf(lngID).isEmpty());
}

void tst_DataAccess_WordProcessor::aFailedLaunchIsReported() {
    const qint32 lngID = m_db->AddTemplate(QStringLiteral("Sheet"), true);
    m_platform->SetShellResult(31);
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    QVERIFY(strError.contains(QStringLiteral("could not be started")));
    QCOMPARE(m_platform->ShellCalls().size(), 1);
}

void tst_DataAccess_WordProcessor::openingAnInBuiltTemplateCopiesItsShippedDocumentFirst() {
    TestDatabase db(TestDatabase::WithInBuiltTemplates);
    QVERIFY(db.Exec(QStringLiteral("UPDATE Options SET ChurchName = 'Grace Chapel'")));
    const qint32 lngID =
        db.Scalar(QStringLiteral("SELECT TemplateID FROM Templates WHERE TemplateFilename = "
                                 "'ServiceSheet.fodt'"))
            .toInt();
    QVERIFY(lngID > 0);
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    const QString strCopy = db.Folder() + QStringLiteral("/Templates/ServiceSheet.fodt");
    QFile file(strCopy);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("office:string-value=\"Grace Chapel\""));
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    QCOMPARE(m_platform->ShellCalls().first().Params, QStringLiteral("\"%1\"").arg(strCopy));
    QCOMPARE(db.Scalar(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE TemplateID = "
                                      "?"),
                       {lngID})
                 .toString(),
             QStringLiteral("ServiceSheet.fodt"));
}

void tst_DataAccess_WordProcessor::anInBuiltTemplateWhoseCopyWasDeletedIsCopiedAgain() {
    TestDatabase db(TestDatabase::WithInBuiltTemplates);
    const qint32 lngID =
        db.Scalar(QStringLiteral("SELECT TemplateID FROM Templates WHERE TemplateFilename = "
                                 "'SongSheet.fodt'"))
            .toInt();
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    const QString strCopy = db.Folder() + QStringLiteral("/Templates/SongSheet.fodt");
    QVERIFY(QFile::remove(strCopy));
    DataAccess::Instance().OpenTemplate(lngID, strError);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    QVERIFY(QFile::exists(strCopy));
    QCOMPARE(m_platform->ShellCalls().size(), 2);
}

void tst_DataAccess_WordProcessor::aServiceItemTemplateWithoutDocumentStartsFromTheSongSheet() {
    const qint32 lngID = m_db->AddTemplate(QStringLiteral("Hymn words"), false);
    QString strError;
    DataAccess::Instance().OpenTemplate(lngID, strError);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    QFile file(FileOf(lngID));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray xml = file.readAll();
    QVERIFY(xml.contains("text:name=\"ItemWords\""));
    QVERIFY(!xml.contains("text:name=\"RowTitle\""));
}

void tst_DataAccess_WordProcessor::theFieldListIsWrittenAndOpenedInWriter() {
    QString strError;
    DataAccess::Instance().AddBrowserButtonsToWord(strError);
    QVERIFY2(strError.isEmpty(), qPrintable(strError));
    const QString strList = m_db->Folder() + QStringLiteral("/Templates/Template Fields.fodt");
    QFile file(strList);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray xml = file.readAll();
    for (const char* name : {"ServiceName: ", "RowTitle: ", "ItemWords: ", "ChurchName: "})
        QVERIFY2(xml.contains(name), name);
    QVERIFY(xml.contains("Insert &gt; Field &gt; More Fields"));
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    QCOMPARE(m_platform->ShellCalls().first().File, m_writer->Program());
    QCOMPARE(m_platform->ShellCalls().first().Params, QStringLiteral("\"%1\"").arg(strList));
}

void tst_DataAccess_WordProcessor::withoutWriterTheFieldListSaysSoAndOpensNothing() {
    m_writer.reset();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    QString strError;
    DataAccess::Instance().AddBrowserButtonsToWord(strError);
    qputenv("PATH", oldPath);
    QVERIFY(strError.contains(QStringLiteral("LibreOffice Writer cannot be found")));
    QCOMPARE(m_platform->ShellCalls().size(), 0);
}

QTEST_MAIN(tst_DataAccess_WordProcessor)
#include "tst_DataAccess_WordProcessor.moc"
