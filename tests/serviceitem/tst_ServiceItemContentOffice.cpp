// The Content tab's documents and presentations, which LibreOffice converts:
// a presentation shown as its slides over the text box, a document read into
// it, and what the editor says and keeps when LibreOffice is missing, hangs or
// cannot read a file. Most use a stand-in for LibreOffice; the last few
// convert files that the test makes itself with the real one.
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "ServiceItemFixture.h"
#include "foundations/PresentationView.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>

using namespace ServiceItemFixture;

namespace {
const QString kDoubleClick = QStringLiteral("Please double click this box to open the file that "
                                            "is named below. This operation may take a few "
                                            "moments");

// Whether the words are shown in bold somewhere in the box.
bool ShownBold(const QTextEdit& box, const QString& strWords) {
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().text().contains(strWords))
                return it.fragment().charFormat().fontWeight() >= QFont::Bold;
    return false;
}
} // namespace

class tst_ServiceItemContentOffice : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    // Presentations
    void withoutLibreOfficeAPresentationSaysPowerPointCannotStartAndLeavesTheBox();
    void aPresentationIsShownAsItsSlidesOverTheBox();
    void theSlidesFollowTheSizeOfTheBox();
    void aPresentationShownAgainComesFromTheKeptSlides();
    void showingAnotherItemClosesThePresentation();
    void showingAnotherItemStopsAConversionStillRunning();
    void leavingTheEditorClosesThePresentation();
    void aHangingLibreOfficeIsStoppedAtItsTimeLimitAndTheEditorGoesOn();
    void aPresentationLibreOfficeCannotReadSaysItCannotBeOpened();
    void anEmptyPresentationIsNotGivenToLibreOffice();
    void aPresentationThatHasMovedSaysWhyInTheBox();
    void showPowerPointFileWithoutAParentSaysWhy();

    // Documents
    void aDocumentIsReadIntoTheBoxByADoubleClick();
    void anEmptyDocxSaysWhyAndChangesNothingStored();
    void aDocumentOverTheTimeLimitSaysSoAndTheEditorGoesOn();
    void withoutLibreOfficeADocumentSaysWhatToInstall();

    // With LibreOffice itself
    void aDocxInAFolderWithSpacesAndAccentsIsReadWithItsFormatting();
    void aPptxIsShownSlideBySlide();
    void aCorruptPptxSaysItCannotBeOpened();

private:
    void showContent(ctlServiceItem& ctl, qint32 lngItem) {
        Show(ctl, lngItem);
        ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    }
    bool storeFile(qint32 lngItem, const QString& strStored) {
        return m_db->Exec("UPDATE ServiceItems SET ServiceItemFilename = ?, "
                          "ServiceItemFileDescription = ? WHERE ServiceItemID = ?",
                          {strStored, QFileInfo(strStored).fileName(), lngItem});
    }
    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(m_files, strName, bytes);
    }
    // An item of a type whose file is strPath, shown on its Content tab.
    qint32 itemWithFile(ctlServiceItem& ctl, qint32 lngType, const QString& strPath) {
        const qint32 item = m_db->AddServiceItem(lngType, "With a file");
        if (item == 0 || !storeFile(item, strPath))
            return 0;
        ctl.resize(900, 700);
        ctl.show();
        showContent(ctl, item);
        return item;
    }
    void doubleClick(ctlServiceItem& ctl) {
        QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    }
    static QString slideCount(const ctlServiceItem& ctl) {
        auto* label = ctl.objPowerPoint->findChild<QLabel*>("lblSlideCount");
        return label ? label->text() : QString();
    }
    // A file made from another by the real LibreOffice.
    QString converted(const QString& strSource, const QString& strFormat, const QString& strName) {
        OfficeConverter converter;
        QString strOutput, strError;
        if (!converter.Convert(strSource, strFormat, strOutput, strError)) {
            qWarning() << strError;
            return QString();
        }
        const QString strPath = m_files.filePath(strName);
        QDir().mkpath(QFileInfo(strPath).absolutePath());
        return QFile::copy(strOutput, strPath) ? strPath : QString();
    }
    // A presentation of three slides made by the real LibreOffice (once),
    // copied to strName.
    QString madePptx(const QString& strName) {
        if (m_madePptx.isEmpty())
            m_madePptx = converted(write("made.fodp", TestDocuments::FlatPresentation(3)), "pptx",
                                   "made.pptx");
        const QString strPath = m_files.filePath(strName);
        QDir().mkpath(QFileInfo(strPath).absolutePath());
        return !m_madePptx.isEmpty() && QFile::copy(m_madePptx, strPath) ? strPath : QString();
    }
    void requireLibreOffice() {
        if (OfficeConverter::OfficeProgram().isEmpty())
            QSKIP("LibreOffice is not installed here; scripts/ensure-deps.sh installs it");
    }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    QTemporaryDir m_files;
    Library m_lib;
    QString m_madePptx;
};

void tst_ServiceItemContentOffice::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ServiceItemContentOffice::cleanup() {
    OfficeConverter::SetDefaultTimeLimit(120000);
    m_platform.reset();
    m_db.reset();
}

// ---------------------------------------------------------------- Presentations

void tst_ServiceItemContentOffice::
    withoutLibreOfficeAPresentationSaysPowerPointCannotStartAndLeavesTheBox() {
    FakeOffice office(FakeOffice::Without);
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("mission.ppt", "PK")));
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    m_platform->QueueAnswer(vbOK);
    doubleClick(ctl);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Could not instantiate PowerPoint."));
    QCOMPARE(m_platform->LastBox().Buttons, vbCritical);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(ctl.objPowerPoint == nullptr);
    QVERIFY(ctl.fraOpeningFile->isHidden());
}

void tst_ServiceItemContentOffice::aPresentationIsShownAsItsSlidesOverTheBox() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(3));
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("Mission Talk.pptx", "PK")));
    doubleClick(ctl);
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.objPowerPoint != nullptr);
    QCOMPARE(ctl.objPowerPoint->parentWidget(), ctl.txtFileContent);
    QCOMPARE(ctl.objPowerPoint->geometry(), ctl.txtFileContent->rect());
    QVERIFY(ctl.objPowerPoint->isVisible());
    QCOMPARE(ctl.objPowerPoint->SlideCount(), 3);
    QCOMPARE(slideCount(ctl), QString("Slide 1 of 3"));
    ctl.objPowerPoint->findChild<QPushButton*>("cmdNextSlide")->click();
    QCOMPARE(ctl.objPowerPoint->CurrentSlide(), 2);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(ctl.fraOpeningFile->isHidden());
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContentOffice::theSlidesFollowTheSizeOfTheBox() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("talk.odp", "PK")));
    doubleClick(ctl);
    QVERIFY(ctl.objPowerPoint != nullptr);
    ctl.resize(1100, 820);
    QTRY_COMPARE(ctl.objPowerPoint->geometry(), ctl.txtFileContent->rect());
}

void tst_ServiceItemContentOffice::aPresentationShownAgainComesFromTheKeptSlides() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
    ctlServiceItem ctl;
    const qint32 item =
        itemWithFile(ctl, TestDatabase::PowerPoint, write("Easter talk.pptx", "PK"));
    QVERIFY(item);
    doubleClick(ctl);
    QCOMPARE(office.Runs(), 1);
    showContent(ctl, item);
    QVERIFY(ctl.objPowerPoint == nullptr);
    doubleClick(ctl);
    QCOMPARE(ctl.objPowerPoint->SlideCount(), 2);
    QCOMPARE(office.Runs(), 1);
}

void tst_ServiceItemContentOffice::showingAnotherItemClosesThePresentation() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("talk.pptx", "PK")));
    doubleClick(ctl);
    QVERIFY(ctl.objPowerPoint != nullptr);
    QPointer<PresentationView> view = ctl.objPowerPoint;
    Show(ctl, m_lib.prayer);
    QVERIFY(ctl.objPowerPoint == nullptr);
    QVERIFY(view.isNull());
}

void tst_ServiceItemContentOffice::leavingTheEditorClosesThePresentation() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(2));
    const QString strFile = write("talk.pptx", "PK");
    const qint32 item = m_db->AddServiceItem(TestDatabase::PowerPoint, "Talk");
    QVERIFY(storeFile(item, strFile));
    QWidget window;
    auto* ctl = new ctlServiceItem(&window);
    ctl->setGeometry(0, 0, 900, 700);
    auto* outside = new QLineEdit(&window);
    outside->setGeometry(0, 710, 200, 24);
    window.resize(900, 740);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    showContent(*ctl, item);
    doubleClick(*ctl);
    QVERIFY(ctl->objPowerPoint != nullptr);
    QTRY_VERIFY(ctl->objPowerPoint->hasFocus());
    outside->setFocus();
    QTRY_VERIFY(outside->hasFocus());
    QVERIFY(ctl->objPowerPoint == nullptr);
    QCOMPARE(m_platform->BoxCount(), 0);
}

// The user's input waits while LibreOffice works; the host may show another
// item meanwhile, and that stops the conversion without a word.
void tst_ServiceItemContentOffice::showingAnotherItemStopsAConversionStillRunning() {
    FakeOffice office(FakeOffice::Hangs);
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("long talk.pptx", "PK")));
    QTimer host;
    host.setInterval(20);
    connect(&host, &QTimer::timeout, this, [&] {
        if (ctl.objPowerPoint && ctl.objPowerPoint->IsConverting() &&
            QFile::exists(office.HangingPidFile())) {
            host.stop();
            Show(ctl, m_lib.prayer);
        }
    });
    host.start();
    doubleClick(ctl);
    host.stop();
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.objPowerPoint == nullptr);
    QCOMPARE(ctl.ServiceItemID(), m_lib.prayer);
    QCOMPARE(ctl.txtContent->toPlainText(), QString("Lord, make me an instrument of your peace"));
    QVERIFY(ctl.fraOpeningFile->isHidden());
    QFile pidFile(office.HangingPidFile());
    QVERIFY(pidFile.open(QIODevice::ReadOnly));
    const QString strPid = QString::fromLatin1(pidFile.readAll()).trimmed();
    QTRY_VERIFY(!FakeOffice::IsAlive(strPid));
}

void tst_ServiceItemContentOffice::aHangingLibreOfficeIsStoppedAtItsTimeLimitAndTheEditorGoesOn() {
    FakeOffice office(FakeOffice::Hangs);
    OfficeConverter::SetDefaultTimeLimit(500);
    ctlServiceItem ctl;
    const QString strFile = write("stuck.pptx", "PK");
    const qint32 item = itemWithFile(ctl, TestDatabase::PowerPoint, strFile);
    QVERIFY(item);
    m_platform->QueueAnswer(vbOK);
    doubleClick(ctl);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Could not open the presentation."));
    QCOMPARE(m_platform->LastBox().Buttons, vbCritical);
    QVERIFY(ctl.objPowerPoint == nullptr);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(!ctl.ContentDirty());
    // The editor goes on: an edit and a save work, and the file stays stored.
    ctl.txtDescription->setText("Mission talk");
    QVERIFY(ctl.cmdSave->isEnabled());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, item, "ServiceItemDescription").toString(), QString("Mission talk"));
    QCOMPARE(Field(*m_db, item, "ServiceItemFilename").toString(), strFile);
}

void tst_ServiceItemContentOffice::aPresentationLibreOfficeCannotReadSaysItCannotBeOpened() {
    FakeOffice office(FakeOffice::ConvertsNothing);
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("damaged.pptx", "PK")));
    m_platform->QueueAnswer(vbOK);
    doubleClick(ctl);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Could not open the presentation."));
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(ctl.objPowerPoint == nullptr);
}

void tst_ServiceItemContentOffice::anEmptyPresentationIsNotGivenToLibreOffice() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, write("empty.pptx", QByteArray())));
    m_platform->QueueAnswer(vbOK);
    doubleClick(ctl);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Could not open the presentation."));
    QCOMPARE(office.Runs(), 0);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
}

void tst_ServiceItemContentOffice::aPresentationThatHasMovedSaysWhyInTheBox() {
    FakeOffice office(FakeOffice::Converts, TestDocuments::SlidesPdf(1));
    ctlServiceItem ctl;
    const QString strGone = m_files.filePath("moved/talk.pptx");
    const qint32 item = itemWithFile(ctl, TestDatabase::PowerPoint, strGone);
    QVERIFY(item);
    doubleClick(ctl);
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY2(ctl.txtFileContent->toPlainText().startsWith(
                 "There was an error opening this file. The error description is: "),
             qPrintable(ctl.txtFileContent->toPlainText()));
    QVERIFY(ctl.txtFileContent->toPlainText().contains("cannot be found"));
    QVERIFY(ctl.objPowerPoint == nullptr);
    QCOMPARE(office.Runs(), 0);
    QCOMPARE(Field(*m_db, item, "ServiceItemFilename").toString(), strGone);
}

void tst_ServiceItemContentOffice::showPowerPointFileWithoutAParentSaysWhy() {
    ctlServiceItem ctl;
    QString strError;
    ctl.ShowPowerPointFile(write("talk.pptx", "PK"), nullptr, strError);
    QVERIFY(!strError.isEmpty());
    QVERIFY(ctl.objPowerPoint == nullptr);
}

// ---------------------------------------------------------------- Documents

void tst_ServiceItemContentOffice::aDocumentIsReadIntoTheBoxByADoubleClick() {
    FakeOffice office(FakeOffice::Converts,
                      "<html><body><p>The Lord is my <b>shepherd</b></p></body></html>");
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::Reading, write("Psalm 23.docx", "PK")));
    doubleClick(ctl);
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString("The Lord is my shepherd"));
    QVERIFY(ShownBold(*ctl.txtFileContent, "shepherd"));
    QCOMPARE(office.Runs(), 1);
    QVERIFY(!ctl.ContentDirty());
    QVERIFY(ctl.fraOpeningFile->isHidden());
}

void tst_ServiceItemContentOffice::anEmptyDocxSaysWhyAndChangesNothingStored() {
    FakeOffice office(FakeOffice::Converts, "<html><body>never</body></html>");
    ctlServiceItem ctl;
    const QString strFile = write("empty.docx", QByteArray());
    const qint32 item = itemWithFile(ctl, TestDatabase::Reading, strFile);
    QVERIFY(item);
    doubleClick(ctl);
    QVERIFY2(ctl.txtFileContent->toPlainText().startsWith("There was an error opening this "
                                                          "file."),
             qPrintable(ctl.txtFileContent->toPlainText()));
    QCOMPARE(office.Runs(), 0);
    QVERIFY(!ctl.ContentDirty());
    Show(ctl, m_lib.prayer);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, item, "ServiceItemFilename").toString(), strFile);
}

void tst_ServiceItemContentOffice::aDocumentOverTheTimeLimitSaysSoAndTheEditorGoesOn() {
    FakeOffice office(FakeOffice::Hangs);
    OfficeConverter::SetDefaultTimeLimit(500);
    ctlServiceItem ctl;
    const qint32 item = itemWithFile(ctl, TestDatabase::Reading, write("long.docx", "PK"));
    QVERIFY(item);
    doubleClick(ctl);
    const QString strShown = ctl.txtFileContent->toPlainText();
    QVERIFY2(strShown.startsWith("There was an error opening this file."), qPrintable(strShown));
    QVERIFY2(strShown.contains("took longer than"), qPrintable(strShown));
    QCOMPARE(m_platform->BoxCount(), 0);
    ctl.txtDescription->setText("Long reading");
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, item, "ServiceItemDescription").toString(), QString("Long reading"));
}

void tst_ServiceItemContentOffice::withoutLibreOfficeADocumentSaysWhatToInstall() {
    FakeOffice office(FakeOffice::Without);
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::Reading, write("reading.odt", "PK")));
    doubleClick(ctl);
    QVERIFY2(ctl.txtFileContent->toPlainText().contains("libreoffice-writer"),
             qPrintable(ctl.txtFileContent->toPlainText()));
    QCOMPARE(m_platform->BoxCount(), 0);
}

// ---------------------------------------------------------------- With LibreOffice itself

void tst_ServiceItemContentOffice::aDocxInAFolderWithSpacesAndAccentsIsReadWithItsFormatting() {
    requireLibreOffice();
    const QString strDocx = converted(write("made.rtf", TestDocuments::Rtf()), "docx",
                                      QString::fromUtf8("Lesungen für Ostern/Römer 8 Lesung.docx"));
    QVERIFY(!strDocx.isEmpty());
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::Reading, strDocx));
    QCOMPARE(ctl.txtFilename->text(), QString::fromUtf8("Römer 8 Lesung.docx"));
    doubleClick(ctl);
    QVERIFY2(ctl.txtFileContent->toPlainText().contains(QString::fromUtf8("Café Zürich")),
             qPrintable(ctl.txtFileContent->toPlainText()));
    QVERIFY(ShownBold(*ctl.txtFileContent, "Bold heading"));
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemContentOffice::aPptxIsShownSlideBySlide() {
    requireLibreOffice();
    const QString strPptx = madePptx(QString::fromUtf8("Vorträge/Mission Ü.pptx"));
    QVERIFY(!strPptx.isEmpty());
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint, strPptx));
    doubleClick(ctl);
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.objPowerPoint != nullptr);
    QCOMPARE(ctl.objPowerPoint->SlideCount(), 3);
    QCOMPARE(slideCount(ctl), QString("Slide 1 of 3"));
    ctl.objPowerPoint->findChild<QPushButton*>("cmdLastSlide")->click();
    QCOMPARE(slideCount(ctl), QString("Slide 3 of 3"));
}

void tst_ServiceItemContentOffice::aCorruptPptxSaysItCannotBeOpened() {
    requireLibreOffice();
    const QString strWhole = madePptx("whole.pptx");
    QVERIFY(!strWhole.isEmpty());
    QFile whole(strWhole);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    ctlServiceItem ctl;
    QVERIFY(itemWithFile(ctl, TestDatabase::PowerPoint,
                         write("corrupt.pptx", bytes.left(bytes.size() / 2))));
    m_platform->QueueAnswer(vbOK);
    doubleClick(ctl);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Could not open the presentation."));
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(ctl.objPowerPoint == nullptr);
}

QTEST_MAIN(tst_ServiceItemContentOffice)
#include "tst_ServiceItemContentOffice.moc"
