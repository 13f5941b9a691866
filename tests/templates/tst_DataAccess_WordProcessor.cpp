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
    void newTemplateWritesTheStartingDocumentAndOpensIt();
    void newTemplateWithoutOpeningLaunchesNothing();
    void newTemplateWithoutWriterCreatesNothing();
    void openTemplateOfAMissingTemplateSaysSo();
    void openTemplateOfAMovedDocumentSaysSoAndChangesNothing();
    void openTemplateWithoutWriterSaysSo();
    void aFailedLaunchIsReported();

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
    QVERIFY(strXml.contains(QStringLiteral("opendocument.text-template")));
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

QTEST_MAIN(tst_DataAccess_WordProcessor)
#include "tst_DataAccess_WordProcessor.moc"
