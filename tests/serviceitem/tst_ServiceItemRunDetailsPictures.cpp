// The background pictures of an item on the Run Mode Details tab: the list
// filled from the store with the first previewed, the picture dialog, where a
// chosen picture is kept, hiding and removing pictures, and pictures that do
// not exist, are no pictures, or lie in folders with spaces and accents.
#include "tst_ServiceItemRunDetails_Fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTreeWidget>

using namespace ServiceItemFixture;
using namespace RunDetailsFixture;

namespace {
const QString kPictureTitle =
    QStringLiteral("Select a picture to be the default background picture when an event is "
                   "displayed");
} // namespace

class tst_ServiceItemRunDetailsPictures : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void anItemWithThreePicturesShowsThemWithTheFirstPreviewedAndSaveDisabled();
    void anItemWithoutPicturesHasTheirWidgetsOffAndNoInterval();
    void selectingTheShowOptionOnAnItemWithoutPicturesOpensThePictureDialog();
    void aPictureChosenInTheDialogIsListedPreviewedAndStoredBySave();
    void aPictureFromOutsideTheContentFolderIsKeptByItsFullPath();
    void aPictureInsideTheContentFolderIsKeptByItsName();
    void aPictureInASubFolderOfTheContentFolderIsKeptByItsFullPath();
    void aPictureChosenTwiceIsListedOnce();
    void hidingThePicturesEmptiesTheListAndSaveStoresNone();
    void hidingOnAnItemWithoutPicturesRaisesNoFlag();
    void removingAPictureAsksAndOnlyYesRemovesIt();
    void removeWithNoPictureSelectedAsksNothing();
    void clickingAPicturePreviewsIt();
    void aPictureThatDoesNotExistIsRefusedAndNothingIsStored();
    void aFileThatIsNoPictureIsRefusedAndNothingIsStored();
    void aPictureInAFolderWithSpacesAndAccentsIsListedPreviewedAndStored();
    void aStoredPictureWhoseFileIsGonePreviewsAsNothing();

private:
    QString ContentPicture(const QString& strName) {
        return WritePicture(m_db->ContentFolder() + "/" + strName);
    }
    QString OutsidePicture(const QString& strName, Qt::GlobalColor color = Qt::darkBlue) {
        return WritePicture(m_outside.filePath(strName), color);
    }
    qint32 ItemCount() const { return m_db->Count("ServiceItems"); }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    QTemporaryDir m_outside;
    Library m_lib;
};

void tst_ServiceItemRunDetailsPictures::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY(m_lib.Seed(*m_db));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ServiceItemRunDetailsPictures::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ServiceItemRunDetailsPictures::
    anItemWithThreePicturesShowsThemWithTheFirstPreviewedAndSaveDisabled() {
    const qint32 dawn = PictureItem(OutsidePicture("dawn.png"));
    const qint32 lake = PictureItem(OutsidePicture("lake.png"));
    const qint32 hills = PictureItem(OutsidePicture("hills.png"));
    QVERIFY(AttachPictures(m_lib.prayer, {dawn, lake, hills}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ChangeImageEveryXSeconds = 9 WHERE ServiceItemID "
                       "= ?",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    QVERIFY(ctl.optShowImagesWhileRunning->isChecked());
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 3);
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->text(0), QString("dawn"));
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(1)->text(0), QString("lake"));
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(2)->text(0), QString("hills"));
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole).toString(),
             "SI;" + QString::number(dawn));
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt(), dawn);
    QCOMPARE(ctl.lvwUsedImages->currentItem(), ctl.lvwUsedImages->topLevelItem(0));
    QVERIFY(!ctl.imgPreview->pixmap().isNull());
    QCOMPARE(ctl.txtChangeImageEveryXSeconds->text(), QString("9"));
    QVERIFY(ctl.cmdNewImage->isEnabled());
    QVERIFY(ctl.cmdDeleteImages->isEnabled());
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!ctl.RunDetailsDirty());
    QVERIFY(m_platform->Dialogs().isEmpty());
}

void tst_ServiceItemRunDetailsPictures::anItemWithoutPicturesHasTheirWidgetsOffAndNoInterval() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    QVERIFY(ctl.optHideImagesWhileRunning->isChecked());
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QCOMPARE(ctl.txtChangeImageEveryXSeconds->text(), QString("0"));
    QVERIFY(!ctl.cmdNewImage->isEnabled());
    QVERIFY(!ctl.cmdDeleteImages->isEnabled());
    QVERIFY(!ctl.lvwUsedImages->isEnabled());
    QVERIFY(!ctl.txtChangeImageEveryXSeconds->isEnabled());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ServiceItemRunDetailsPictures::
    selectingTheShowOptionOnAnItemWithoutPicturesOpensThePictureDialog() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(QString()); // Cancel
    ctl.optShowImagesWhileRunning->click();
    QCOMPARE(m_platform->Dialogs().size(), 1);
    const ScriptedPlatform::Dialog dialog = m_platform->Dialogs().first();
    QCOMPARE(dialog.Kind, QString("Open"));
    QCOMPARE(dialog.Title, kPictureTitle);
    QCOMPARE(dialog.Filter, QString("Picture Files|*.bmp;*.jpg;.gif;.jpeg"));
    QVERIFY2(Platform::LocalPath(dialog.InitDir).startsWith(m_db->ContentFolder()),
             qPrintable(dialog.InitDir));
    QVERIFY(!dialog.CancelError);
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QVERIFY(ctl.cmdNewImage->isEnabled());
    QVERIFY(!ctl.RunDetailsDirty());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemRunDetailsPictures::
    aPictureChosenInTheDialogIsListedPreviewedAndStoredBySave() {
    const QString strFile = OutsidePicture("window.png");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->text(0), QString("window"));
    QVERIFY(!ctl.imgPreview->pixmap().isNull());
    QVERIFY(ctl.RunDetailsDirty());
    QVERIFY(ctl.cmdSave->isEnabled());
    QCOMPARE(m_db->Count("ServiceItemImages", "ServiceItemID = ?", {m_lib.prayer}), 0);
    ctl.txtChangeImageEveryXSeconds->setText("15");
    ctl.cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    const qint32 picture = ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt();
    QCOMPARE(StoredPictures(*m_db, m_lib.prayer), QList<qint32>({picture}));
    QCOMPARE(Field(*m_db, m_lib.prayer, "ChangeImageEveryXSeconds").toInt(), 15);
    QCOMPARE(Field(*m_db, picture, "ServiceItemTypeID").toInt(), 4);
}

void tst_ServiceItemRunDetailsPictures::aPictureFromOutsideTheContentFolderIsKeptByItsFullPath() {
    const QString strFile = OutsidePicture("outside.png");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    const qint32 picture = ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt();
    QCOMPARE(Field(*m_db, picture, "ServiceItemFilename").toString(), strFile);
}

void tst_ServiceItemRunDetailsPictures::aPictureInsideTheContentFolderIsKeptByItsName() {
    const QString strFile = ContentPicture("inside.png");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    const qint32 picture = ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt();
    QCOMPARE(Field(*m_db, picture, "ServiceItemFilename").toString(), QString("inside.png"));
    QString strError, strFound;
    DataAccess::Instance().GetServiceItemFileName(picture, strError, strFound);
    QCOMPARE(QFileInfo(strFound).canonicalFilePath(), QFileInfo(strFile).canonicalFilePath());
}

void tst_ServiceItemRunDetailsPictures::
    aPictureInASubFolderOfTheContentFolderIsKeptByItsFullPath() {
    const QString strFile = ContentPicture("Easter/lilies.png");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    const qint32 picture = ctl.lvwUsedImages->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt();
    QString strError, strFound;
    DataAccess::Instance().GetServiceItemFileName(picture, strError, strFound);
    QCOMPARE(strFound, strFile);
    QVERIFY(!ctl.imgPreview->pixmap().isNull());
}

void tst_ServiceItemRunDetailsPictures::aPictureChosenTwiceIsListedOnce() {
    const QString strFile = OutsidePicture("twice.png");
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    m_platform->QueueOpenFile(strFile);
    ctl.cmdNewImage->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
    QCOMPARE(m_db->Count("ServiceItems", "ServiceItemFilename = ?", {strFile}), 1);
}

void tst_ServiceItemRunDetailsPictures::hidingThePicturesEmptiesTheListAndSaveStoresNone() {
    const qint32 dawn = PictureItem(OutsidePicture("dawn.png"));
    const qint32 lake = PictureItem(OutsidePicture("lake.png"));
    QVERIFY(AttachPictures(m_lib.prayer, {dawn, lake}));
    const qint32 items = ItemCount();
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optHideImagesWhileRunning->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QVERIFY(ctl.imgPreview->pixmap().isNull());
    QVERIFY(!ctl.cmdNewImage->isEnabled());
    QVERIFY(!ctl.cmdDeleteImages->isEnabled());
    QVERIFY(!ctl.txtChangeImageEveryXSeconds->isEnabled());
    QVERIFY(ctl.RunDetailsDirty());
    ctl.cmdSave->click();
    QCOMPARE(m_db->Count("ServiceItemImages", "ServiceItemID = ?", {m_lib.prayer}), 0);
    // The picture items stay in the library for other items.
    QCOMPARE(ItemCount(), items);
}

void tst_ServiceItemRunDetailsPictures::hidingOnAnItemWithoutPicturesRaisesNoFlag() {
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.optHideImagesWhileRunning->click();
    QVERIFY(!ctl.RunDetailsDirty());
    QVERIFY(!ctl.cmdSave->isEnabled());
}

void tst_ServiceItemRunDetailsPictures::removingAPictureAsksAndOnlyYesRemovesIt() {
    const qint32 dawn = PictureItem(OutsidePicture("dawn.png"));
    const qint32 lake = PictureItem(OutsidePicture("lake.png", Qt::red));
    QVERIFY(AttachPictures(m_lib.prayer, {dawn, lake}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.lvwUsedImages->setCurrentItem(ctl.lvwUsedImages->topLevelItem(0));
    m_platform->QueueAnswer(vbNo);
    ctl.cmdDeleteImages->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Are you sure you want to remove this image as a background image for this "
                     "Service item?"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbDefaultButton2);
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 2);
    QVERIFY(!ctl.RunDetailsDirty());
    m_platform->QueueAnswer(vbCancel);
    ctl.cmdDeleteImages->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 2);
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteImages->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->text(0), QString("lake"));
    QCOMPARE(ctl.lvwUsedImages->currentItem(), ctl.lvwUsedImages->topLevelItem(0));
    QVERIFY(!ctl.imgPreview->pixmap().isNull());
    QVERIFY(ctl.RunDetailsDirty());
    ctl.cmdSave->click();
    QCOMPARE(StoredPictures(*m_db, m_lib.prayer), QList<qint32>({lake}));
    // The last one removed leaves no preview.
    ctl.lvwUsedImages->setCurrentItem(ctl.lvwUsedImages->topLevelItem(0));
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteImages->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QVERIFY(ctl.imgPreview->pixmap().isNull());
}

void tst_ServiceItemRunDetailsPictures::removeWithNoPictureSelectedAsksNothing() {
    QVERIFY(AttachPictures(m_lib.prayer, {PictureItem(OutsidePicture("dawn.png"))}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    ctl.lvwUsedImages->clearSelection();
    ctl.cmdDeleteImages->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
}

void tst_ServiceItemRunDetailsPictures::clickingAPicturePreviewsIt() {
    const qint32 blue = PictureItem(OutsidePicture("blue.png", Qt::blue));
    const qint32 red = PictureItem(OutsidePicture("red.png", Qt::red));
    QVERIFY(AttachPictures(m_lib.prayer, {blue, red}));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    auto centre = [&ctl] {
        const QImage image = ctl.imgPreview->pixmap().toImage();
        return image.pixelColor(image.width() / 2, image.height() / 2);
    };
    QCOMPARE(centre(), QColor(Qt::blue));
    QTreeWidgetItem* second = ctl.lvwUsedImages->topLevelItem(1);
    ctl.lvwUsedImages->scrollToItem(second);
    QTest::mouseClick(ctl.lvwUsedImages->viewport(), Qt::LeftButton, {},
                      ctl.lvwUsedImages->visualItemRect(second).center());
    QCOMPARE(centre(), QColor(Qt::red));
}

void tst_ServiceItemRunDetailsPictures::aPictureThatDoesNotExistIsRefusedAndNothingIsStored() {
    const qint32 items = ItemCount();
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(m_outside.filePath("gone.png"));
    m_platform->QueueAnswer(vbOK);
    ctl.optShowImagesWhileRunning->click();
    QCOMPARE(m_platform->LastBox().Title, QString("Picture not found"));
    QVERIFY(m_platform->LastBox().Prompt.contains("gone.png"));
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QVERIFY(!ctl.RunDetailsDirty());
    QCOMPARE(ItemCount(), items);
    // The editor goes on: a real picture is taken next.
    m_platform->QueueOpenFile(OutsidePicture("real.png"));
    ctl.cmdNewImage->click();
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
}

void tst_ServiceItemRunDetailsPictures::aFileThatIsNoPictureIsRefusedAndNothingIsStored() {
    const QString strText = m_outside.filePath("notes.txt");
    QFile text(strText);
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("Hymn numbers") > 0);
    text.close();
    const qint32 items = ItemCount();
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strText);
    m_platform->QueueAnswer(vbOK);
    ctl.optShowImagesWhileRunning->click();
    QCOMPARE(m_platform->LastBox().Title, QString("Not a picture"));
    QVERIFY(m_platform->LastBox().Prompt.contains("notes.txt"));
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 0);
    QVERIFY(!ctl.RunDetailsDirty());
    QCOMPARE(ItemCount(), items);
}

void tst_ServiceItemRunDetailsPictures::
    aPictureInAFolderWithSpacesAndAccentsIsListedPreviewedAndStored() {
    const QString strFile =
        WritePicture(m_outside.filePath(QString::fromUtf8("Église Saint-Jean/vitrail ä ö.png")));
    QVERIFY(!strFile.isEmpty());
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    m_platform->QueueOpenFile(strFile);
    ctl.optShowImagesWhileRunning->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
    QCOMPARE(ctl.lvwUsedImages->topLevelItem(0)->text(0), QString::fromUtf8("vitrail ä ö"));
    QVERIFY(!ctl.imgPreview->pixmap().isNull());
    ctl.cmdSave->click();
    const QList<qint32> stored = StoredPictures(*m_db, m_lib.prayer);
    QCOMPARE(stored.size(), 1);
    QString strError, strFound;
    DataAccess::Instance().GetServiceItemFileName(stored.first(), strError, strFound);
    QCOMPARE(strFound, strFile);
}

void tst_ServiceItemRunDetailsPictures::aStoredPictureWhoseFileIsGonePreviewsAsNothing() {
    const QString strFile = OutsidePicture("moved.png");
    QVERIFY(AttachPictures(m_lib.prayer, {PictureItem(strFile)}));
    QVERIFY(QFile::remove(strFile));
    ctlServiceItem ctl;
    OpenRunDetails(ctl, m_lib.prayer);
    QCOMPARE(ctl.lvwUsedImages->topLevelItemCount(), 1);
    QVERIFY(ctl.imgPreview->pixmap().isNull());
    QCOMPARE(m_platform->BoxCount(), 0);
}

QTEST_MAIN(tst_ServiceItemRunDetailsPictures)
#include "tst_ServiceItemRunDetailsPictures.moc"
