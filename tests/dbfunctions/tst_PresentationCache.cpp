// Presentations converted once to PDF and kept in the data folder: the second
// show runs no LibreOffice, a changed presentation is converted anew, and
// what is not a presentation is refused.
#include "DataAccess.h"
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "TestDatabase.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>

class tst_PresentationCache : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    QTemporaryDir files;
    int starts = 0;

    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(files, strName, bytes);
    }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        starts = 0;
        OfficeConverter::SetStartObserver([this](const QString&, const QStringList&) { ++starts; });
    }
    void cleanup() {
        OfficeConverter::SetStartObserver(nullptr);
        db.reset();
    }

    void thePresentationKindsAreKnownByTheirExtension() {
        for (const char* name : {"a.ppt", "b.PPTX", "c.odp", "d.pps", "e.ppsx"})
            QVERIFY2(PresentationCache::IsPresentation(name), name);
        for (const char* name : {"a.doc", "b.pdf", "c.txt", "pptx", ""})
            QVERIFY2(!PresentationCache::IsPresentation(name), name);
    }

    void theSecondShowRunsNoLibreOffice() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(3));
        const QString strTalk = write("talk.pptx", "PK slides");
        QString error;
        const QString strFirst = PresentationCache::PdfFor(strTalk, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(starts, 1);
        QVERIFY(strFirst.startsWith(PresentationCache::CacheFolder() + "/"));
        QVERIFY(PresentationCache::CacheFolder().startsWith(db->Folder()));
        QCOMPARE(PresentationCache::PdfFor(strTalk, error), strFirst);
        QCOMPARE(starts, 1);
        QCOMPARE(office.Runs(), 1);
        QCOMPARE(PresentationCache::FindPdf(strTalk), strFirst);
    }

    void aChangedPresentationIsConvertedAgainAndItsOldPdfRemoved() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
        const QString strTalk = write("talk.odp", "first");
        QString error;
        const QString strOld = PresentationCache::PdfFor(strTalk, error);
        write("talk.odp", "second, longer");
        QVERIFY(PresentationCache::FindPdf(strTalk).isEmpty());
        const QString strNew = PresentationCache::PdfFor(strTalk, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(starts, 2);
        QVERIFY(strNew != strOld);
        QVERIFY(!QFileInfo::exists(strOld));
        QVERIFY(QFileInfo::exists(strNew));
    }

    void twoPresentationsKeepTheirOwnPdfs() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
        QString error;
        const QString strA = PresentationCache::PdfFor(write("a/talk.ppt", "a"), error);
        const QString strB = PresentationCache::PdfFor(write("b/talk.ppt", "b"), error);
        QVERIFY(strA != strB);
        QVERIFY(QFileInfo::exists(strA));
        QVERIFY(QFileInfo::exists(strB));
    }

    void aFileThatIsNoPresentationIsRefused() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
        QString error;
        QVERIFY(PresentationCache::PdfFor(write("notes.docx", "PK"), error).isEmpty());
        QVERIFY2(error.contains("notes.docx is not a presentation"), qPrintable(error));
        QCOMPARE(starts, 0);
    }

    void aMissingOrEmptyPresentationGivesAnError() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
        QString error;
        QVERIFY(PresentationCache::PdfFor(files.filePath("gone.pptx"), error).isEmpty());
        QVERIFY2(error.contains("cannot be found"), qPrintable(error));
        QVERIFY(PresentationCache::PdfFor(write("empty.pptx", QByteArray()), error).isEmpty());
        QVERIFY2(error.contains("is empty"), qPrintable(error));
        QCOMPARE(starts, 0);
    }

    void aFailedConversionKeepsNothing() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        QString error;
        const QString strTalk = write("damaged.pptx", "PK broken");
        QVERIFY(PresentationCache::PdfFor(strTalk, error).isEmpty());
        QVERIFY2(error.contains("could not convert damaged.pptx"), qPrintable(error));
        QVERIFY(PresentationCache::FindPdf(strTalk).isEmpty());
        QCOMPARE(QDir(PresentationCache::CacheFolder())
                     .entryList(QDir::Files | QDir::NoDotAndDotDot)
                     .size(),
                 0);
    }

    void aRealPresentationBecomesAPdfOfItsSlides() {
        if (OfficeConverter::OfficeProgram().isEmpty())
            QSKIP("LibreOffice is not installed here; scripts/ensure-deps.sh installs it");
        if (QStandardPaths::findExecutable("pdfinfo").isEmpty())
            QSKIP("pdfinfo (poppler-utils) is not installed; scripts/ensure-deps.sh installs it");
        OfficeConverter converter;
        QString strPptx, error;
        QVERIFY2(converter.Convert(write("slides.fodp", TestDocuments::FlatPresentation(3)), "pptx",
                                   strPptx, error),
                 qPrintable(error));
        const QString strTalk = files.filePath(QString::fromUtf8("Predigt für Sonntag.pptx"));
        QVERIFY(QFile::copy(strPptx, strTalk));
        starts = 0;
        const QString strPdf = PresentationCache::PdfFor(strTalk, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(starts, 1);
        QProcess info;
        info.start("pdfinfo", {strPdf});
        QVERIFY(info.waitForFinished(30000));
        QVERIFY2(info.readAll().contains("Pages:           3"), "three slides, three pages");
        QCOMPARE(PresentationCache::PdfFor(strTalk, error), strPdf);
        QCOMPARE(starts, 1);
    }
};

QTEST_MAIN(tst_PresentationCache)
#include "tst_PresentationCache.moc"
