// The Content tab of the service item editor without LibreOffice: the tab per
// type, typed text and a file excluding each other, choosing a file with the
// dialog of the item's type, what each kind of file shows, the description a
// file's name gives, dropping files, and opening a text file by a double
// click.
#include "ServiceItemFixture.h"
#include "foundations/Twips.h"
#include "run/MediaPlayer.h"
#include "serviceitem/ContentFiles.h"

#include <QDir>
#include <QDropEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTextEdit>
#include <QUrl>

using namespace ServiceItemFixture;

namespace {
const QString kDoubleClick = QStringLiteral("Please double click this box to open the file that "
                                            "is named below. This operation may take a few "
                                            "moments");
const QString kClearFileBox = QStringLiteral("Clear Content File Box?");

// Drops files on a widget as a file manager does.
bool DropFiles(QWidget* target, const QStringList& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& strFile : files)
        urls.append(QUrl::fromLocalFile(strFile));
    data.setUrls(urls);
    const QPoint at(target->width() / 2, target->height() / 2);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    return drop.isAccepted();
}

// Writes a picture of w by h pixels, in the format its name says unless one is given.
QString WritePicture(const QString& strPath, int w, int h, const char* format = nullptr) {
    QImage picture(w, h, QImage::Format_RGB32);
    picture.fill(Qt::darkBlue);
    return picture.save(strPath, format) ? strPath : QString();
}
} // namespace

class tst_ServiceItemContent : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    // Filling the tab per type
    void aResponsiveReadingWithAFileInvitesADoubleClickAndWithoutOneTheBrowseButton();
    void aTextItemWithAFileOpensOnTheFileTabAndWithTypedTextOnTheHandTab();
    void picturesAndMusicCannotBeTypedByHand();
    void bothTextBoxesAreResetToArialTenAtEachLoad();
    void aStoredBareFileNameIsTakenFromTheContentFolder();
    void aStoredFullPathIsTakenAsItStands();
    void loadingAStoredFileLeavesTheTabClean();

    // Typed text and a file exclude each other
    void typingWithAFileNamedAndAnsweringNoKeepsBothAndSaveIsUnchanged();
    void typedTextAndAFileKeptTogetherAreBothStored();
    void typingWithAFileNamedAndAnsweringYesClearsTheFile();
    void browsingWithTypedTextAndCancelOnTheQuestionOpensNoDialog();
    void browsingWithTypedTextAndYesClearsTheTextBeforeTheDialog();

    // Choosing a file
    void theBrowseDialogHasTheFilterAndTitleOfTheChosenType_data();
    void theBrowseDialogHasTheFilterAndTitleOfTheChosenType();
    void theBrowseDialogFollowsTheTypeNowChosenNotTheStoredOne();
    void cancelInTheFileDialogChangesNothingAndSaysNothing();
    void aChosenFileIsNamedByItsNameWithItsPathInTagAndToolTip();
    void aChosenFileIsStoredWithItsPathByTheSave();
    void aFileNameOfSixtyCharactersGivesADescriptionOfFiftyThree();
    void aShortFileNameGivesItsNameWithoutExtensionAsDescription();
    void aFileDoesNotReplaceADescriptionAlreadyThere();

    // What each kind of file shows
    void aPictureIsShownFittedToTheTab();
    void aPictureIsFittedAgainWhenTheEditorChangesSize();
    void aMusicFileIsGivenToThePlayer();
    void aMusicFileThatHasMovedSaysSoAndIsNotPlayed();
    void aPictureThatHasMovedSaysSoInItsPlace();
    void aDocumentShowsTheDoubleClickInvitation();
    void aFileOfTheWrongKindForTheTypeIsShownAsWhatItIs();

    // Fitting a picture
    void fitPicture_data();
    void fitPicture();

    // File kinds
    void theThreeExtensionListsStayDifferent();

    // Dropping files
    void droppingOneDocumentOnTheTypedTextNamesIt();
    void droppingTwoFilesIsRefused();
    void droppingAPresentationAGifOrMusicIsRefused_data();
    void droppingAPresentationAGifOrMusicIsRefused();
    void aDroppedTifCountsAsADocument();
    void aPictureDroppedOnTheTypedTextIsNamedAndShown();
    void aSmallPictureDroppedOnTheNameStaysHidden();
    void aLargePictureDroppedOnTheNameIsShownCutToTheTab();
    void draggedTextIsTypedTextAsEver();

    // Opening by a double click
    void aDoubleClickOpensATextFileIntoTheBox();
    void aDoubleClickOnATextFileInAFolderWithSpacesAndAccentsOpensIt();
    void aDoubleClickWithAPictureNamedOpensNothing();
    void aDoubleClickOnAFileThatDoesNotExistSaysWhy();
    void aDoubleClickOnAFileOfNoKnownKindSaysItCannotBeOpened();
    void aDoubleClickChangesNothingStored();

private:
    // Shows the item and its Content tab.
    void showContent(ctlServiceItem& ctl, qint32 lngItem) {
        Show(ctl, lngItem);
        ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    }
    bool storeFile(qint32 lngItem, const QString& strStored, const QString& strName) {
        return m_db->Exec("UPDATE ServiceItems SET ServiceItemFilename = ?, "
                          "ServiceItemFileDescription = ? WHERE ServiceItemID = ?",
                          {strStored, strName, lngItem});
    }
    QString file(const QString& strName, const QByteArray& bytes = "words") {
        const QString strPath = m_files.filePath(strName);
        QDir().mkpath(QFileInfo(strPath).absolutePath());
        QFile f(strPath);
        if (!f.open(QIODevice::WriteOnly))
            return QString();
        f.write(bytes);
        return strPath;
    }
    static QString tag(const ctlServiceItem& ctl) {
        return ctl.txtFilename->property("Tag").toString();
    }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    QTemporaryDir m_files;
    Library m_lib;
};

void tst_ServiceItemContent::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ServiceItemContent::cleanup() {
    m_platform.reset();
    m_db.reset();
}

// ---------------------------------------------------------------- Filling the tab per type

void tst_ServiceItemContent::
    aResponsiveReadingWithAFileInvitesADoubleClickAndWithoutOneTheBrowseButton() {
    const qint32 withFile = m_db->AddServiceItem(TestDatabase::ResponsiveReading, "Psalm 23");
    const qint32 withoutFile = m_db->AddServiceItem(TestDatabase::ResponsiveReading, "Psalm 24");
    QVERIFY(storeFile(withFile, file("psalm23.txt"), "psalm23.txt"));
    ctlServiceItem ctl;
    showContent(ctl, withFile);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QCOMPARE(ctl.SSTab2->Tab(), 0);
    QVERIFY(!ctl.SSTab2->TabEnabled(1));
    QVERIFY(ctl.txtContent->isHidden());
    showContent(ctl, withoutFile);
    QCOMPARE(ctl.txtFileContent->toPlainText(),
             QString("Please click the browse button to select a file that will be your "
                     "responsive reading Service Item"));
    QCOMPARE(ctl.txtFilename->text(), QString());
}

void tst_ServiceItemContent::aTextItemWithAFileOpensOnTheFileTabAndWithTypedTextOnTheHandTab() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    QVERIFY(storeFile(reading, file("romans.txt"), "romans.txt"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QCOMPARE(ctl.SSTab2->Tab(), 0);
    QVERIFY(ctl.SSTab2->TabEnabled(1));
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QCOMPARE(ctl.txtFilename->text(), QString("romans.txt"));
    showContent(ctl, m_lib.prayer);
    QCOMPARE(ctl.SSTab2->Tab(), 1);
    QCOMPARE(ctl.txtContent->toPlainText(), QString("Lord, make me an instrument of your peace"));
    QCOMPARE(ctl.txtFilename->text(), QString());
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString());
}

void tst_ServiceItemContent::picturesAndMusicCannotBeTypedByHand() {
    ctlServiceItem picture;
    showContent(picture, m_lib.picture);
    QVERIFY(!picture.SSTab2->TabEnabled(1));
    QVERIFY(picture.txtFileContent->isHidden());
    QVERIFY(picture.imgContent->isEnabled());
    QVERIFY(picture.fraListenToMusic->isHidden());
    ctlServiceItem music;
    showContent(music, m_lib.music);
    QVERIFY(!music.SSTab2->TabEnabled(1));
    QVERIFY(music.txtFileContent->isHidden());
    QVERIFY(!music.fraListenToMusic->isHidden());
    ctlServiceItem slides;
    showContent(slides, m_lib.slides);
    QVERIFY(!slides.SSTab2->TabEnabled(1));
    QVERIFY(!slides.txtFileContent->isHidden());
    QVERIFY(!slides.imgContent->isEnabled());
}

void tst_ServiceItemContent::bothTextBoxesAreResetToArialTenAtEachLoad() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.prayer);
    for (QTextEdit* box : {ctl.txtContent, ctl.txtFileContent}) {
        const QFont font = box->document()->defaultFont();
        QCOMPARE(font.family(), QString("Arial"));
        QCOMPARE(font.pointSize(), 10);
        QVERIFY(!font.bold() && !font.italic() && !font.underline() && !font.strikeOut());
    }
}

void tst_ServiceItemContent::aStoredBareFileNameIsTakenFromTheContentFolder() {
    const QString strPath = m_db->WriteContentFile("sunrise.bmp");
    QVERIFY(!WritePicture(strPath, 40, 30).isEmpty());
    QVERIFY(storeFile(m_lib.picture, "sunrise.bmp", "sunrise.bmp"));
    ctlServiceItem ctl;
    showContent(ctl, m_lib.picture);
    QCOMPARE(QFileInfo(tag(ctl)).absoluteFilePath(), QFileInfo(strPath).absoluteFilePath());
    QCOMPARE(ctl.txtFilename->toolTip(), tag(ctl));
    QVERIFY(!ctl.imgContent->pixmap().isNull());
}

void tst_ServiceItemContent::aStoredFullPathIsTakenAsItStands() {
    const QString strPath = WritePicture(m_files.filePath("elsewhere.bmp"), 40, 30);
    QVERIFY(storeFile(m_lib.picture, strPath, "elsewhere.bmp"));
    ctlServiceItem ctl;
    showContent(ctl, m_lib.picture);
    QCOMPARE(tag(ctl), strPath);
    QCOMPARE(ctl.txtFilename->text(), QString("elsewhere.bmp"));
    QVERIFY(!ctl.imgContent->pixmap().isNull());
}

void tst_ServiceItemContent::loadingAStoredFileLeavesTheTabClean() {
    QVERIFY(storeFile(m_lib.music, file("prelude.mp3"), "prelude.mp3"));
    ctlServiceItem ctl;
    showContent(ctl, m_lib.music);
    QVERIFY(!ctl.ContentDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

// ---------------------------------------------------------------- Typed text and a file

void tst_ServiceItemContent::typingWithAFileNamedAndAnsweringNoKeepsBothAndSaveIsUnchanged() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    const QString strFile = file("romans.txt");
    QVERIFY(storeFile(reading, strFile, "romans.txt"));
    ctlServiceItem ctl;
    ctl.show();
    showContent(ctl, reading);
    ctl.SSTab2->setTab(1);
    QVERIFY(!ctl.cmdSave->isEnabled());
    m_platform->QueueAnswer(vbNo);
    QTest::keyClick(ctl.txtContent, Qt::Key_W);
    QCOMPARE(m_platform->LastBox().Title, kClearFileBox);
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbQuestion);
    QCOMPARE(ctl.txtContent->toPlainText(), QString("w"));
    QCOMPARE(ctl.txtFilename->text(), QString("romans.txt"));
    QCOMPARE(tag(ctl), strFile);
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::typedTextAndAFileKeptTogetherAreBothStored() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    QVERIFY(storeFile(reading, file("romans.txt"), "romans.txt"));
    ctlServiceItem ctl;
    ctl.show();
    showContent(ctl, reading);
    ctl.SSTab2->setTab(1);
    m_platform->QueueAnswer(vbNo);
    QTest::keyClick(ctl.txtContent, Qt::Key_W);
    // A file dropped on its name asks nothing and marks the tab changed: the
    // save then writes the typed text and the file.
    const QString strDropped = file("romans 8.rtf");
    QVERIFY(DropFiles(ctl.txtFilename, {strDropped}));
    QVERIFY(ctl.ContentDirty());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, reading, "ServiceItemContent").toString(), QString("w"));
    QCOMPARE(Field(*m_db, reading, "ServiceItemFilename").toString(), strDropped);
    QCOMPARE(m_platform->BoxCount(), 1);
}

void tst_ServiceItemContent::typingWithAFileNamedAndAnsweringYesClearsTheFile() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    QVERIFY(storeFile(reading, file("romans.txt"), "romans.txt"));
    ctlServiceItem ctl;
    ctl.show();
    showContent(ctl, reading);
    ctl.SSTab2->setTab(1);
    m_platform->QueueAnswer(vbYes);
    QTest::keyClick(ctl.txtContent, Qt::Key_W);
    QCOMPARE(ctl.txtFilename->text(), QString());
    QCOMPARE(tag(ctl), QString());
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString());
    QVERIFY(ctl.ContentDirty());
    ctl.cmdSave->click();
    QCOMPARE(Field(*m_db, reading, "ServiceItemContent").toString(), QString("w"));
    QVERIFY(Field(*m_db, reading, "ServiceItemFilename").isNull());
}

void tst_ServiceItemContent::browsingWithTypedTextAndCancelOnTheQuestionOpensNoDialog() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbCancel);
    ctl.cmdBrowse->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("There is already some text in the 'Type Content By Hand' box. If you want "
                     "to point to a file then this box must be cleared. Do you want Corvantis to "
                     "clear this box for you"));
    QCOMPARE(m_platform->LastBox().Title, QString("Clear content in 'Type Content By hand Box'?"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel);
    QVERIFY(m_platform->Dialogs().isEmpty());
    QCOMPARE(ctl.txtContent->toPlainText(), QString("Lord, make me an instrument of your peace"));
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::browsingWithTypedTextAndYesClearsTheTextBeforeTheDialog() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.prayer);
    m_platform->QueueAnswer(vbYes);
    const QString strFile = file("francis.txt");
    m_platform->QueueOpenFile(strFile);
    ctl.cmdBrowse->click();
    QCOMPARE(m_platform->Dialogs().size(), 1);
    QCOMPARE(ctl.txtContent->toPlainText(), QString());
    QCOMPARE(tag(ctl), strFile);
    ctl.cmdSave->click();
    QVERIFY(Field(*m_db, m_lib.prayer, "ServiceItemContent").isNull());
    QCOMPARE(Field(*m_db, m_lib.prayer, "ServiceItemFilename").toString(), strFile);
}

// ---------------------------------------------------------------- Choosing a file

void tst_ServiceItemContent::theBrowseDialogHasTheFilterAndTitleOfTheChosenType_data() {
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("title");
    QTest::newRow("picture") << qint32(TestDatabase::Picture)
                             << "Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"
                             << "Select a picture file";
    QTest::newRow("picture from file") << qint32(TestDatabase::PictureFromFile)
                                       << "Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"
                                       << "Select a picture file";
    QTest::newRow("music") << qint32(TestDatabase::Music)
                           << "Music Files (*.mp3;*.wav;*.mid)|*.mp3;*.wav;*.mid"
                           << "Select a music file";
    QTest::newRow("no type")
        << qint32(TestDatabase::NoType)
        << "Files (*.txt;*.rtf;*.bmp;*.jpg;*.gif)|*.txt;*.rtf;*.bmp;*.jpg;*.gif"
        << "Select a file";
    QTest::newRow("presentation") << qint32(TestDatabase::PowerPoint)
                                  << "PowerPoint Presentations (*.ppt)|*.ppt"
                                  << "Select a file";
    QTest::newRow("prayer") << qint32(TestDatabase::Prayer)
                            << "MS Word, PowerPoint & Text Files (*.doc;*.ppt;*.txt;*.rtf)|"
                               "*.doc;*.ppt;*.txt;*.rtf"
                            << "Select a file";
    QTest::newRow("responsive reading")
        << qint32(TestDatabase::ResponsiveReading)
        << "MS Word, PowerPoint & Text Files (*.doc;*.ppt;*.txt;*.rtf)|*.doc;*.ppt;*.txt;*.rtf"
        << "Select a file";
}

void tst_ServiceItemContent::theBrowseDialogHasTheFilterAndTitleOfTheChosenType() {
    QFETCH(qint32, type);
    QFETCH(QString, filter);
    QFETCH(QString, title);
    const qint32 item = m_db->AddServiceItem(type, "An item");
    if (type == TestDatabase::NoType)
        m_platform->SetDefaultAnswer(vbOK); // the editor says the item has no type
    ctlServiceItem ctl;
    showContent(ctl, item);
    m_platform->QueueOpenFile(QString());
    ctl.cmdBrowse->click();
    QCOMPARE(m_platform->Dialogs().size(), 1);
    const ScriptedPlatform::Dialog dialog = m_platform->Dialogs().constFirst();
    QCOMPARE(dialog.Kind, QString("Open"));
    QCOMPARE(dialog.Title, title);
    QCOMPARE(dialog.Filter, filter);
    QCOMPARE(dialog.FileName, QString());
    QVERIFY(dialog.CancelError);
}

void tst_ServiceItemContent::theBrowseDialogFollowsTheTypeNowChosenNotTheStoredOne() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.slides);
    ctl.ChooseServiceItemType(TestDatabase::Prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabContent);
    m_platform->QueueOpenFile(QString());
    ctl.cmdBrowse->click();
    QCOMPARE(m_platform->Dialogs().size(), 1);
    QVERIFY2(m_platform->Dialogs().constFirst().Filter.startsWith("MS Word, PowerPoint & Text "
                                                                  "Files"),
             qPrintable(m_platform->Dialogs().constFirst().Filter));
}

void tst_ServiceItemContent::cancelInTheFileDialogChangesNothingAndSaysNothing() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    const QString strFile = file("romans.txt");
    QVERIFY(storeFile(reading, strFile, "romans.txt"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    m_platform->QueueOpenFile(QString());
    ctl.cmdBrowse->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(tag(ctl), strFile);
    QCOMPARE(ctl.txtFilename->text(), QString("romans.txt"));
    QVERIFY(!ctl.ContentDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ServiceItemContent::aChosenFileIsNamedByItsNameWithItsPathInTagAndToolTip() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    const QString strFile = file("Lesungen/Römer 8.txt");
    m_platform->QueueOpenFile(strFile);
    ctl.cmdBrowse->click();
    QCOMPARE(ctl.txtFilename->text(), QString::fromUtf8("Römer 8.txt"));
    QCOMPARE(tag(ctl), strFile);
    QCOMPARE(ctl.txtFilename->toolTip(), strFile);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(ctl.ContentDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
}

void tst_ServiceItemContent::aChosenFileIsStoredWithItsPathByTheSave() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    const QString strFile = file("romans 8.rtf");
    m_platform->QueueOpenFile(strFile);
    ctl.cmdBrowse->click();
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, reading, "ServiceItemFilename").toString(), strFile);
    QCOMPARE(Field(*m_db, reading, "ServiceItemFileDescription").toString(),
             QString("romans 8.rtf"));
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::aFileNameOfSixtyCharactersGivesADescriptionOfFiftyThree() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, QString());
    ctlServiceItem ctl;
    showContent(ctl, reading);
    const QString strName = QString(56, QLatin1Char('a')) + ".txt";
    QCOMPARE(strName.size(), 60);
    m_platform->QueueOpenFile(file(strName));
    ctl.cmdBrowse->click();
    QCOMPARE(ctl.txtDescription->text(), QString(53, QLatin1Char('a')));
    QVERIFY(ctl.GeneralDirty());
}

void tst_ServiceItemContent::aShortFileNameGivesItsNameWithoutExtensionAsDescription() {
    QCOMPARE(ContentFiles::DescriptionFromFileName("Psalm 23.txt"), QString("Psalm 23"));
    QCOMPARE(ContentFiles::DescriptionFromFileName("a.b"), QString());
    // 55 characters: longer than 53, so cut, but the name without its
    // extension is shorter than that already.
    const QString strName = QString(51, QLatin1Char('b')) + ".mp3";
    QCOMPARE(ContentFiles::DescriptionFromFileName(strName), QString(51, QLatin1Char('b')));
    // The last four characters go whatever they are.
    QCOMPARE(ContentFiles::DescriptionFromFileName("Talk.pptx"), QString("Talk."));
}

void tst_ServiceItemContent::aFileDoesNotReplaceADescriptionAlreadyThere() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    m_platform->QueueOpenFile(file("other.txt"));
    ctl.cmdBrowse->click();
    QCOMPARE(ctl.txtDescription->text(), QString("Romans 8"));
    QVERIFY(!ctl.GeneralDirty());
}

// ---------------------------------------------------------------- What each kind shows

void tst_ServiceItemContent::aPictureIsShownFittedToTheTab() {
    ctlServiceItem ctl;
    ctl.resize(900, 700);
    ctl.show();
    showContent(ctl, m_lib.picture);
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    const QString strPath = WritePicture(m_files.filePath("tall.bmp"), 300, 2000);
    m_platform->QueueOpenFile(strPath);
    ctl.cmdBrowse->click();
    QVERIFY(!ctl.imgContent->isHidden());
    QVERIFY(ctl.imgContent->isEnabled());
    // Fitted to the room of the file page, with the name under the picture.
    const QRect rcRoom = ctl.SSTab2->widget(0)->layout()->contentsRect();
    const QSize szFit = ContentFiles::FitPicture(
        QSize(300 * 15, 2000 * 15),
        QSize(Twips::FromPixels(rcRoom.width()), Twips::FromPixels(rcRoom.height())));
    const QSize szShown(Twips::ToPixels(szFit.width()), Twips::ToPixels(szFit.height()));
    QCOMPARE(ctl.imgContent->pixmap().size(), szShown);
    QTRY_COMPARE(ctl.imgContent->size(), szShown);
    QVERIFY(ctl.txtFilename->y() > ctl.imgContent->geometry().bottom());
    QVERIFY(ctl.txtFilename->geometry().bottom() < ctl.SSTab2->widget(0)->height());
}

void tst_ServiceItemContent::aPictureIsFittedAgainWhenTheEditorChangesSize() {
    ctlServiceItem ctl;
    ctl.resize(900, 700);
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    showContent(ctl, m_lib.picture);
    m_platform->QueueOpenFile(WritePicture(m_files.filePath("wide.bmp"), 2000, 1000));
    ctl.cmdBrowse->click();
    QTRY_VERIFY(ctl.imgContent->pixmap().width() > 0);
    const int intBefore = ctl.imgContent->pixmap().width();
    ctl.resize(1200, 800);
    QTRY_VERIFY(ctl.imgContent->pixmap().width() > intBefore);
    const QSize szShown = ctl.imgContent->pixmap().size();
    QVERIFY2(qAbs(szShown.width() - 2 * szShown.height()) <= 2, "the proportions are kept");
}

void tst_ServiceItemContent::aMusicFileIsGivenToThePlayer() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.music);
    const QString strFile = file("prelude in C.mp3");
    m_platform->QueueOpenFile(strFile);
    ctl.cmdBrowse->click();
    QCOMPARE(ctl.MediaPlayer1->FileName(), strFile);
    QVERIFY(!ctl.fraListenToMusic->isHidden());
    QVERIFY(ctl.txtFileContent->isHidden());
    QVERIFY(m_platform->SoundCalls().contains("Load " + strFile));
    QVERIFY(!ctl.MediaPlayer1->IsPlaying());
}

void tst_ServiceItemContent::aMusicFileThatHasMovedSaysSoAndIsNotPlayed() {
    const QString strGone = m_files.filePath("moved away.mp3");
    QVERIFY(storeFile(m_lib.music, strGone, "moved away.mp3"));
    ctlServiceItem ctl;
    showContent(ctl, m_lib.music);
    QCOMPARE(ctl.MediaPlayer1->FileName(), QString());
    QVERIFY(ctl.fraListenToMusic->title().contains("cannot be found"));
    QVERIFY(ctl.fraListenToMusic->title().contains(strGone));
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(!ctl.ContentDirty());
    QCOMPARE(Field(*m_db, m_lib.music, "ServiceItemFilename").toString(), strGone);
}

void tst_ServiceItemContent::aPictureThatHasMovedSaysSoInItsPlace() {
    QVERIFY(storeFile(m_lib.picture, "gone.bmp", "gone.bmp"));
    ctlServiceItem ctl;
    showContent(ctl, m_lib.picture);
    QVERIFY(ctl.imgContent->pixmap().isNull());
    QVERIFY(!ctl.imgContent->isHidden());
    QVERIFY2(ctl.imgContent->text().contains("cannot be found"),
             qPrintable(ctl.imgContent->text()));
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(!ctl.ContentDirty());
    QCOMPARE(Field(*m_db, m_lib.picture, "ServiceItemFilename").toString(), QString("gone.bmp"));
}

void tst_ServiceItemContent::aDocumentShowsTheDoubleClickInvitation() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.slides);
    m_platform->QueueOpenFile(file("mission.ppt"));
    ctl.cmdBrowse->click();
    QVERIFY(!ctl.txtFileContent->isHidden());
    QVERIFY(!ctl.imgContent->isEnabled());
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
}

void tst_ServiceItemContent::aFileOfTheWrongKindForTheTypeIsShownAsWhatItIs() {
    // The dialog's filter can be overridden by typing a name: a prayer that
    // is given a piece of music shows the player, not an error.
    const qint32 creed = m_db->AddServiceItem(TestDatabase::Creed, "Nicene Creed");
    ctlServiceItem ctl;
    showContent(ctl, creed);
    const QString strFile = file("anthem.mp3");
    m_platform->QueueOpenFile(strFile);
    ctl.cmdBrowse->click();
    QCOMPARE(ctl.MediaPlayer1->FileName(), strFile);
    QVERIFY(ctl.txtFileContent->isHidden());
    QCOMPARE(m_platform->BoxCount(), 0);
}

// ---------------------------------------------------------------- Fitting a picture

void tst_ServiceItemContent::fitPicture_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("tab");
    QTest::addColumn<QSize>("fitted");
    QTest::newRow("fits with room") << QSize(3000, 2000) << QSize(9000, 6000) << QSize(3000, 2000);
    QTest::newRow("too little room below")
        << QSize(3000, 4500) << QSize(9000, 6000) << QSize(3000 * 5000 / 4500, 5000);
    QTest::newRow("square counts as tall")
        << QSize(8000, 8000) << QSize(9000, 6000) << QSize(5000, 5000);
    QTest::newRow("tall, then too wide")
        << QSize(2000, 2500) << QSize(2200, 4000) << QSize(1800, 2500 * 2160 / 2000);
    QTest::newRow("wide") << QSize(12000, 3000) << QSize(9000, 6000) << QSize(8760, 2190);
    QTest::newRow("wide, then too tall")
        << QSize(10000, 9000) << QSize(9000, 6000) << QSize(10000 * 5600 / 9000, 5600);
}

void tst_ServiceItemContent::fitPicture() {
    QFETCH(QSize, picture);
    QFETCH(QSize, tab);
    QFETCH(QSize, fitted);
    QCOMPARE(ContentFiles::FitPicture(picture, tab), fitted);
}

// ---------------------------------------------------------------- File kinds

void tst_ServiceItemContent::theThreeExtensionListsStayDifferent() {
    using namespace ContentFiles;
    // A gif shows as a picture but cannot be dropped.
    QCOMPARE(ShownAs("a.GIF"), Shown::Picture);
    QCOMPARE(DroppedAs("a.gif"), Dropped::Refused);
    // A tif can be dropped as a picture, and then shows as a document that a
    // double click does not open.
    QCOMPARE(DroppedAs("a.tif"), Dropped::Picture);
    QCOMPARE(DroppedAs("a.DIB"), Dropped::Picture);
    QCOMPARE(ShownAs("a.tif"), Shown::Document);
    QCOMPARE(OpenedAs("a.tif"), Opened::Nothing);
    // Presentations and music are chosen, never dropped.
    QCOMPARE(DroppedAs("a.ppt"), Dropped::Refused);
    QCOMPARE(DroppedAs("a.mp3"), Dropped::Refused);
    QCOMPARE(ShownAs("a.mp3"), Shown::Music);
    QCOMPARE(ShownAs("a.MID"), Shown::Music);
    QCOMPARE(OpenedAs("a.ppt"), Opened::Presentation);
    QCOMPARE(OpenedAs("a.pptx"), Opened::Presentation);
    QCOMPARE(OpenedAs("a.odp"), Opened::Presentation);
    // Documents old and new.
    for (const char* name : {"a.txt", "a.doc", "a.RTF", "a.docx", "a.odt"}) {
        QCOMPARE(OpenedAs(name), Opened::RichText);
        QCOMPARE(DroppedAs(name), Dropped::Document);
        QCOMPARE(ShownAs(name), Shown::Document);
    }
    QCOMPARE(OpenedAs("a.jpg"), Opened::Nothing);
    QCOMPARE(ShownAs("a.jpg"), Shown::Picture);
    QCOMPARE(DroppedAs("a.jpg"), Dropped::Picture);
}

// ---------------------------------------------------------------- Dropping files

void tst_ServiceItemContent::droppingOneDocumentOnTheTypedTextNamesIt() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    const QString strFile = file("Römer 8.DOC");
    QVERIFY(DropFiles(ctl.txtContent->viewport(), {strFile}));
    QCOMPARE(tag(ctl), strFile);
    QCOMPARE(ctl.txtFilename->toolTip(), strFile);
    QCOMPARE(ctl.txtFilename->text(), QString::fromUtf8("Römer 8.DOC"));
    QCOMPARE(ctl.txtContent->toPlainText(), QString());
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.ContentDirty());
}

void tst_ServiceItemContent::droppingTwoFilesIsRefused() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    for (QWidget* target : {static_cast<QWidget*>(ctl.txtContent->viewport()),
                            static_cast<QWidget*>(ctl.txtFilename)}) {
        m_platform->QueueAnswer(vbOK);
        QVERIFY(DropFiles(target, {file("one.txt"), file("two.txt")}));
        QCOMPARE(m_platform->LastBox().Prompt,
                 QString("You can only drag one file onto this text box"));
        QCOMPARE(m_platform->LastBox().Title, QString("Invalid Operation"));
        QCOMPARE(tag(ctl), QString());
    }
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::droppingAPresentationAGifOrMusicIsRefused_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("presentation") << "talk.ppt";
    QTest::newRow("gif") << "dove.gif";
    QTest::newRow("music") << "hymn.mp3";
    QTest::newRow("wave") << "bell.WAV";
}

void tst_ServiceItemContent::droppingAPresentationAGifOrMusicIsRefused() {
    QFETCH(QString, name);
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    m_platform->QueueAnswer(vbOK);
    QVERIFY(DropFiles(ctl.txtFilename, {file(name)}));
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Corvantis cannot deal with this type of file. If it is a text file, try "
                     "opening it and copying the text you want to use into the Content text "
                     "box"));
    QCOMPARE(m_platform->LastBox().Title, QString("Unrecognised File Format"));
    QCOMPARE(tag(ctl), QString());
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::aDroppedTifCountsAsADocument() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Romans 8");
    ctlServiceItem ctl;
    showContent(ctl, reading);
    const QString strFile = WritePicture(m_files.filePath("scan.tif"), 20, 20, "BMP");
    QVERIFY(DropFiles(ctl.txtContent->viewport(), {strFile}));
    QCOMPARE(tag(ctl), strFile);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QVERIFY(!ctl.txtFileContent->isHidden());
    QVERIFY(!ctl.imgContent->isEnabled());
}

void tst_ServiceItemContent::aPictureDroppedOnTheTypedTextIsNamedAndShown() {
    ctlServiceItem ctl;
    ctl.resize(900, 700);
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    const qint32 notice = m_db->AddServiceItem(TestDatabase::Announcement, "Harvest");
    showContent(ctl, notice);
    const QString strFile = WritePicture(m_files.filePath("harvest.bmp"), 120, 80);
    QVERIFY(DropFiles(ctl.txtContent->viewport(), {strFile}));
    QCOMPARE(tag(ctl), strFile);
    QCOMPARE(ctl.txtFilename->text(), QString("harvest.bmp"));
    QVERIFY(!ctl.imgContent->isHidden());
    QCOMPARE(ctl.imgContent->pixmap().size(), QSize(120, 80));
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemContent::aSmallPictureDroppedOnTheNameStaysHidden() {
    ctlServiceItem ctl;
    ctl.resize(900, 700);
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    showContent(ctl, m_lib.picture);
    const QString strFile = WritePicture(m_files.filePath("small.bmp"), 60, 40);
    QVERIFY(DropFiles(ctl.txtFilename, {strFile}));
    QCOMPARE(tag(ctl), strFile);
    QVERIFY(ctl.imgContent->isHidden());
    QVERIFY(!ctl.imgContent->pixmap().isNull());
}

void tst_ServiceItemContent::aLargePictureDroppedOnTheNameIsShownCutToTheTab() {
    ctlServiceItem ctl;
    ctl.resize(900, 700);
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    showContent(ctl, m_lib.picture);
    // 500 pixels high: 7500 twips, above 6255.
    const QString strFile = WritePicture(m_files.filePath("large.jpg"), 100, 500);
    QVERIFY(!strFile.isEmpty());
    QVERIFY(DropFiles(ctl.txtFilename, {strFile}));
    QVERIFY(!ctl.imgContent->isHidden());
    QCOMPARE(ctl.imgContent->pixmap().size(),
             QSize(Twips::ToPixels(Twips::FromPixels(ctl.SSTab1->width()) - 200),
                   Twips::ToPixels(6255)));
}

void tst_ServiceItemContent::draggedTextIsTypedTextAsEver() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.notices);
    ctl.SSTab2->setTab(1);
    QMimeData data;
    data.setText("Tea and coffee");
    const QPoint at(5, 5);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ctl.txtContent->viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(tag(ctl), QString());
}

// ---------------------------------------------------------------- Opening by a double click

void tst_ServiceItemContent::aDoubleClickOpensATextFileIntoTheBox() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Psalm 23");
    QVERIFY(storeFile(reading, file("psalm23.txt", "The Lord is my shepherd"), "psalm23.txt"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString("The Lord is my shepherd"));
    QVERIFY(ctl.fraOpeningFile->isHidden());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemContent::aDoubleClickOnATextFileInAFolderWithSpacesAndAccentsOpensIt() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::ResponsiveReading, "Psalm 23");
    const QString strFile =
        file(QString::fromUtf8("Lesungen für Ostern/Psalm 23 (Zürich).txt"), "Der Herr");
    QVERIFY(storeFile(reading, strFile, QFileInfo(strFile).fileName()));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString("Der Herr"));
}

void tst_ServiceItemContent::aDoubleClickWithAPictureNamedOpensNothing() {
    ctlServiceItem ctl;
    showContent(ctl, m_lib.notices);
    ctl.txtFileContent->setPlainText("As it was");
    ctl.txtFilename->setProperty("Tag", m_files.filePath("dove.jpg"));
    ctl.txtFilename->setText("dove.jpg");
    ctl.txtFileContent->setPlainText("As it was");
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    QCOMPARE(ctl.txtFileContent->toPlainText(), QString("As it was"));
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(ctl.fraOpeningFile->isHidden());
}

void tst_ServiceItemContent::aDoubleClickOnAFileThatDoesNotExistSaysWhy() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Psalm 23");
    const QString strGone = m_files.filePath("psalm 151.txt");
    QVERIFY(storeFile(reading, strGone, "psalm 151.txt"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    const QString strShown = ctl.txtFileContent->toPlainText();
    QVERIFY2(strShown.startsWith("There was an error opening this file. The error description "
                                 "is: "),
             qPrintable(strShown));
    QVERIFY2(strShown.contains("cannot be found"), qPrintable(strShown));
    QVERIFY(strShown.endsWith("\n To try again please dible click this box"));
    QCOMPARE(ctl.txtFileContent->document()->blockCount(), 2); // one line break, not two
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(!ctl.ContentDirty());
}

void tst_ServiceItemContent::aDoubleClickOnAFileOfNoKnownKindSaysItCannotBeOpened() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Psalm 23");
    QVERIFY(storeFile(reading, file("psalm23.pdf"), "psalm23.pdf"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QCOMPARE(ctl.txtFileContent->toPlainText(), kDoubleClick);
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    QVERIFY2(ctl.txtFileContent->toPlainText().contains("cannot be opened here"),
             qPrintable(ctl.txtFileContent->toPlainText()));
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemContent::aDoubleClickChangesNothingStored() {
    const qint32 reading = m_db->AddServiceItem(TestDatabase::Reading, "Psalm 23");
    const QString strFile = file("psalm23.txt", "The Lord is my shepherd");
    QVERIFY(storeFile(reading, strFile, "psalm23.txt"));
    ctlServiceItem ctl;
    showContent(ctl, reading);
    QTest::mouseDClick(ctl.txtFileContent->viewport(), Qt::LeftButton);
    QVERIFY(!ctl.ContentDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
    Show(ctl, m_lib.prayer); // no question: nothing changed
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Field(*m_db, reading, "ServiceItemFilename").toString(), strFile);
    QVERIFY(Field(*m_db, reading, "ServiceItemContent").isNull());
}

QTEST_MAIN(tst_ServiceItemContent)
#include "tst_ServiceItemContent.moc"
