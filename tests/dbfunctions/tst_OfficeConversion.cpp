// The office converter with a stand-in LibreOffice on the PATH: what it is
// asked, its time limit, stopping it, and what it says when LibreOffice is
// missing or converts nothing.
#include "DataAccess.h"
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "TestDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <memory>

class tst_OfficeConversion : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    QTemporaryDir files;

    QString document(const QString& strName, const QByteArray& bytes = "words") {
        return TestDocuments::WriteIn(files, strName, bytes);
    }

private slots:
    void init() { db = std::make_unique<TestDatabase>(); }
    void cleanup() {
        OfficeConverter::SetDefaultTimeLimit(120000);
        db.reset();
    }

    void convertsWithAPrivateProfileHeadlessIntoItsWorkFolder() {
        FakeOffice office(FakeOffice::Converts, "<p>converted</p>");
        OfficeConverter converter;
        QString output, error;
        QVERIFY2(converter.Convert(document("a.rtf"), "html", output, error), qPrintable(error));
        QVERIFY(error.isEmpty());
        QCOMPARE(office.Runs(), 1);
        const QStringList args = office.Arguments(0);
        QVERIFY(args.contains("--headless"));
        QCOMPARE(args.at(args.indexOf("--convert-to") + 1), QString("html"));
        QCOMPARE(args.first(),
                 "-env:UserInstallation=" +
                     QUrl::fromLocalFile(OfficeConverter::ProfileFolder()).toString());
        QVERIFY(OfficeConverter::ProfileFolder().startsWith(db->Folder()));
        QVERIFY(output.startsWith(converter.WorkFolder()));
        QFile file(output);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("<p>converted</p>"));
    }

    void aPathWithSpacesAndAccentsReachesLibreOfficeAsAPlainName() {
        FakeOffice office(FakeOffice::Converts, "x");
        const QString strFile =
            document(QString::fromUtf8("Lesung für Sonntag/Römer 8 (neu).docx"));
        OfficeConverter converter;
        QString output, error;
        QVERIFY2(converter.Convert(strFile, "html", output, error), qPrintable(error));
        const QString strSource = office.Arguments(0).last();
        QCOMPARE(QFileInfo(strSource).fileName(), QString("source.docx"));
        for (const QChar c : strSource)
            QVERIFY2(c.unicode() < 128 && c != ' ', qPrintable(strSource));
        QVERIFY(QFileInfo::exists(output));
    }

    void aMissingOrEmptyFileIsRefusedWithoutStartingLibreOffice() {
        FakeOffice office(FakeOffice::Converts, "x");
        OfficeConverter converter;
        QString output, error;
        QVERIFY(!converter.Convert(files.filePath("gone.docx"), "html", output, error));
        QVERIFY2(error.contains("cannot be found"), qPrintable(error));
        QVERIFY(!converter.Convert(document("empty.docx", QByteArray()), "html", output, error));
        QVERIFY2(error.contains("is empty"), qPrintable(error));
        QCOMPARE(office.Runs(), 0);
        QVERIFY(output.isEmpty());
    }

    void withoutLibreOfficeTheMessageNamesThePackagesToInstall() {
        FakeOffice office(FakeOffice::Without);
        QVERIFY(OfficeConverter::OfficeProgram().isEmpty());
        OfficeConverter converter;
        QString output, error;
        QVERIFY(!converter.Convert(document("a.docx"), "html", output, error));
        QCOMPARE(error, OfficeConverter::MissingOfficeMessage());
        QVERIFY(error.contains("libreoffice-writer"));
        QVERIFY(error.contains("libreoffice-impress"));
    }

    void aFileLibreOfficeCannotReadGivesAClearError() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        OfficeConverter converter;
        QString output, error;
        QVERIFY(!converter.Convert(document("broken.docx"), "html", output, error));
        QVERIFY2(error.contains("could not convert broken.docx"), qPrintable(error));
        QVERIFY(output.isEmpty());
    }

    void aHangingLibreOfficeIsKilledAtItsTimeLimit() {
        FakeOffice office(FakeOffice::Hangs);
        OfficeConverter converter;
        converter.SetTimeLimit(3000);
        QString output, error;
        QVERIFY(converter.Start(document("long.docx"), "html", error));
        QTRY_VERIFY(QFileInfo::exists(office.HangingPidFile()));
        QVERIFY(!converter.Wait(output, error));
        QVERIFY2(error.contains("took longer than") && error.contains("long.docx"),
                 qPrintable(error));
        QVERIFY(!converter.IsRunning());
        // The sleeping process itself is gone, not only the process Qt started.
        QFile pidFile(office.HangingPidFile());
        QVERIFY(pidFile.open(QIODevice::ReadOnly));
        const QString strPid = QString::fromLatin1(pidFile.readAll().trimmed());
        QVERIFY(!strPid.isEmpty());
        QTRY_VERIFY(!FakeOffice::IsAlive(strPid));
    }

    void theDefaultTimeLimitAppliesToNewConverters() {
        OfficeConverter::SetDefaultTimeLimit(250);
        OfficeConverter converter;
        QCOMPARE(converter.TimeLimit(), 250);
    }

    void aRunningConversionCanBeStopped() {
        FakeOffice office(FakeOffice::Hangs);
        OfficeConverter converter;
        QSignalSpy finished(&converter, &OfficeConverter::Finished);
        QString error;
        QVERIFY(converter.Start(document("talk.pptx"), "pdf", error));
        QVERIFY(converter.IsRunning());
        QTRY_VERIFY(QFileInfo::exists(office.HangingPidFile()));
        QTimer::singleShot(0, &converter, &OfficeConverter::Stop);
        QString output;
        QVERIFY(!converter.Wait(output, error));
        QCOMPARE(error, QString("The conversion of talk.pptx was stopped."));
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished.first().at(0).toBool(), false);
        QVERIFY(!converter.IsRunning());
    }

    void startingAgainStopsTheConversionBefore() {
        FakeOffice office(FakeOffice::Hangs);
        OfficeConverter converter;
        QSignalSpy finished(&converter, &OfficeConverter::Finished);
        QString error;
        QVERIFY(converter.Start(document("one.pptx"), "pdf", error));
        QVERIFY(converter.Start(document("two.pptx"), "pdf", error));
        QCOMPARE(finished.count(), 1);
        converter.Stop();
        QCOMPARE(finished.count(), 2);
    }

    void theStartObserverIsToldOfEveryRun() {
        FakeOffice office(FakeOffice::Converts, "x");
        QStringList programs;
        OfficeConverter::SetStartObserver(
            [&](const QString& strProgram, const QStringList&) { programs << strProgram; });
        OfficeConverter converter;
        QString output, error;
        converter.Convert(document("a.odt"), "html", output, error);
        OfficeConverter::SetStartObserver(nullptr);
        converter.Convert(document("b.odt"), "html", output, error);
        QCOMPARE(programs.size(), 1);
        QVERIFY(programs.first().endsWith("/soffice"));
        QCOMPARE(office.Runs(), 2);
    }
};

QTEST_MAIN(tst_OfficeConversion)
#include "tst_OfficeConversion.moc"
