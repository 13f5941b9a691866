// The presentation view: slides shown from the converted PDF with their count
// and the buttons to page through, the second show from the kept PDF, and the
// boxes and texts when a presentation cannot be shown.
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/PdfSlides.h"
#include "foundations/PresentationView.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <memory>

class tst_PresentationView : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<PresentationView> view;
    QTemporaryDir files;
    int starts = 0;

    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(files, strName, bytes);
    }
    template <typename T> T* child(const char* name) {
        return view->findChild<T*>(QLatin1String(name));
    }
    QString slideCount() { return child<QLabel>("lblSlideCount")->text(); }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        platform = std::make_unique<ScriptedPlatform>();
        view = std::make_unique<PresentationView>();
        view->resize(640, 520);
        view->show();
        starts = 0;
        OfficeConverter::SetStartObserver([this](const QString&, const QStringList&) { ++starts; });
    }
    void cleanup() {
        OfficeConverter::SetStartObserver(nullptr);
        view.reset();
        platform.reset();
        db.reset();
    }

    void thePresentationShowsItsFirstSlideAndTheCount() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(4));
        QString error;
        QVERIFY(view->ShowPowerPointFile(write("talk.pptx", "PK"), error));
        QVERIFY(error.isEmpty());
        QCOMPARE(view->SlideCount(), 4);
        QCOMPARE(view->CurrentSlide(), 1);
        QCOMPARE(slideCount(), QString("Slide 1 of 4"));
        QVERIFY(!child<QLabel>("lblSlide")->pixmap().isNull());
        QCOMPARE(platform->BoxCount(), 0);
    }

    void theButtonsPageThroughTheSlides() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(3));
        QString error;
        QVERIFY(view->ShowPowerPointFile(write("talk.odp", "PK"), error));
        QSignalSpy changed(view.get(), &PresentationView::SlideChanged);
        QVERIFY(!child<QPushButton>("cmdPreviousSlide")->isEnabled());
        QVERIFY(!child<QPushButton>("cmdFirstSlide")->isEnabled());
        child<QPushButton>("cmdNextSlide")->click();
        QCOMPARE(slideCount(), QString("Slide 2 of 3"));
        child<QPushButton>("cmdLastSlide")->click();
        QCOMPARE(view->CurrentSlide(), 3);
        QVERIFY(!child<QPushButton>("cmdNextSlide")->isEnabled());
        QVERIFY(!child<QPushButton>("cmdLastSlide")->isEnabled());
        child<QPushButton>("cmdPreviousSlide")->click();
        QCOMPARE(view->CurrentSlide(), 2);
        child<QPushButton>("cmdFirstSlide")->click();
        QCOMPARE(view->CurrentSlide(), 1);
        QCOMPARE(changed.count(), 4);
        QCOMPARE(changed.last().first().toInt(), 1);
    }

    void theKeysPageThroughTheSlides() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(5));
        QString error;
        QVERIFY(view->ShowPowerPointFile(write("talk.ppt", "PK"), error));
        QTest::keyClick(view.get(), Qt::Key_PageDown);
        QTest::keyClick(view.get(), Qt::Key_Right);
        QCOMPARE(view->CurrentSlide(), 3);
        QTest::keyClick(view.get(), Qt::Key_End);
        QCOMPARE(view->CurrentSlide(), 5);
        QTest::keyClick(view.get(), Qt::Key_Space);
        QCOMPARE(view->CurrentSlide(), 5);
        QTest::keyClick(view.get(), Qt::Key_PageUp);
        QCOMPARE(view->CurrentSlide(), 4);
        QTest::keyClick(view.get(), Qt::Key_Home);
        QCOMPARE(view->CurrentSlide(), 1);
    }

    void theSecondShowComesFromTheKeptPdfWithoutLibreOffice() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
        const QString strTalk = write("talk.pptx", "PK");
        QString error;
        QVERIFY(view->ShowPowerPointFile(strTalk, error));
        QCOMPARE(starts, 1);
        PresentationView second;
        QVERIFY(second.ShowPowerPointFile(strTalk, error));
        QCOMPARE(second.SlideCount(), 2);
        QCOMPARE(starts, 1);
        QCOMPARE(second.PdfFile(), PresentationCache::FindPdf(strTalk));
    }

    void withoutAnOfficeSuiteTheBoxSaysPowerPointCouldNotBeStarted() {
        FakeOffice office(FakeOffice::Without);
        platform->QueueAnswer(vbOK);
        QString error;
        QVERIFY(!view->ShowPowerPointFile(write("talk.pptx", "PK"), error));
        // No error text comes back, so that the editor leaves its own text alone.
        QVERIFY(error.isEmpty());
        QCOMPARE(platform->BoxCount(), 1);
        QCOMPARE(platform->LastBox().Prompt, QString("Could not instantiate PowerPoint."));
        QCOMPARE(platform->LastBox().Buttons, vbCritical);
        QCOMPARE(platform->LastBox().Title, QString());
        QVERIFY(view->StatusText().contains("libreoffice-impress"));
        QCOMPARE(view->SlideCount(), 0);
    }

    void aKeptPdfShowsEvenWithoutAnOfficeSuite() {
        const QString strTalk = write("talk.pptx", "PK");
        const QString strPdf = write("made.pdf", TestDocuments::SlidesPdf(2));
        QString error;
        QVERIFY(!PresentationCache::Store(strTalk, strPdf, error).isEmpty());
        FakeOffice office(FakeOffice::Without);
        QVERIFY(view->ShowPowerPointFile(strTalk, error));
        QCOMPARE(view->SlideCount(), 2);
        QCOMPARE(platform->BoxCount(), 0);
    }

    void aPresentationThatCannotBeOpenedGivesItsBox() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        platform->QueueAnswer(vbOK);
        QString error;
        QVERIFY(!view->ShowPowerPointFile(write("damaged.pptx", "PK"), error));
        QVERIFY(error.isEmpty());
        QCOMPARE(platform->BoxCount(), 1);
        QCOMPARE(platform->LastBox().Prompt, QString("Could not open the presentation."));
        QCOMPARE(platform->LastBox().Buttons, vbCritical);
        QVERIFY(view->StatusText().contains("damaged.pptx"));
    }

    void aMissingFileOrAnotherKindGivesAnErrorTextAndNoBox() {
        FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
        QString error;
        QVERIFY(!view->ShowPowerPointFile(files.filePath("gone.pptx"), error));
        QVERIFY2(error.contains("cannot be found"), qPrintable(error));
        QVERIFY(!view->ShowPowerPointFile(write("notes.doc", "x"), error));
        QVERIFY2(error.contains("is not a presentation"), qPrintable(error));
        QCOMPARE(platform->BoxCount(), 0);
        QCOMPARE(starts, 0);
    }

    void aRunningConversionCanBeStoppedWithoutABox() {
        FakeOffice office(FakeOffice::Hangs);
        QTimer::singleShot(0, view.get(), [this, &office] {
            QTRY_VERIFY(QFileInfo::exists(office.HangingPidFile()));
            QVERIFY(view->IsConverting());
            view->StopConversion();
        });
        QString error;
        QVERIFY(!view->ShowPowerPointFile(write("talk.pptx", "PK"), error));
        QVERIFY(!view->IsConverting());
        QCOMPARE(platform->BoxCount(), 0);
        QVERIFY2(view->StatusText().contains("was stopped"), qPrintable(view->StatusText()));
    }

    void pdfSlidesFitAPageIntoAnArea() {
        const QString strPdf = write("slides.pdf", TestDocuments::SlidesPdf(2));
        PdfSlides slides;
        QString error;
        QVERIFY(slides.Open(strPdf, error));
        QCOMPARE(slides.Count(), 2);
        const QImage page = slides.Render(1, QSize(800, 800));
        QCOMPARE(page.width(), 800); // 4:3 slides are as wide as the area
        QVERIFY(page.height() < 800);
        // White paper with the slide's dark words on it.
        QCOMPARE(page.pixelColor(0, 0), QColor(Qt::white));
        bool dark = false;
        for (int y = 0; y < page.height() && !dark; y += 2)
            for (int x = 0; x < page.width() && !dark; x += 2)
                dark = page.pixelColor(x, y).lightness() < 100;
        QVERIFY(dark);
        QVERIFY(slides.Render(2, QSize(800, 800)).isNull());
        QVERIFY(!slides.Open(write("junk.pdf", "not a pdf"), error));
        QVERIFY(!error.isEmpty());
        QCOMPARE(slides.Count(), 0);
    }
};

QTEST_MAIN(tst_PresentationView)
#include "tst_PresentationView.moc"
