// Tab 2 of the options control, " Run Mode Details": the sample text with its
// font and colours, the background picture and its preview, transitions, points
// and the details shown while an item runs; each change in its store at once.
#include "OptionsTestFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

using namespace OptionsTest;

namespace {

const QString FileNotFound =
    QStringLiteral("The picture file you want to view has been moved from its original position");

bool HasPicture(const QLabel* lbl) {
    return !lbl->pixmap().isNull();
}

QColor BackColour(const QWidget* w) {
    return w->palette().color(QPalette::Window);
}

} // namespace

class tst_ctlOptions_RunMode : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The sample text.
    void loadingShowsTheStoredFontAndColoursOnTheSample();
    void fontDialogOpensWithItsFlagsPresetFromTheSampleAndStoresTheFiveFields();
    void cancellingTheFontDialogChangesNothing();
    void backgroundColourDialogColoursBothLabelsAndStoresTheField();
    void colourOfMinusOneFromADialogIsRefusedWithAMessage();
    void storedColourOfMinusOneShowsTheStandardColoursWithAMessage();
    void fontThatIsNotInstalledIsReportedAndTheTabStillLoads();
    void samplePanelGrowsSoThatALargeFontIsSeenWhole();

    // The details and points.
    void detailCheckBoxesShowTheirFields();
    void eachDetailCheckBoxStoresItsField();
    void pointsModeShowsAndStoresItsItemData();

    // The background picture.
    void nullBackgroundSelectsTheFirstEntryAndShowsNoMessage();
    void storedPictureItemIsChosenAndPreviewed();
    void deletedPreviewFileGivesFileNotFoundAndTheTabStillLoads();
    void storedPathIsShownByItsFileNameWithItsPreview();
    void choosingAPictureEntryStoresItsIdAndShowsIt();
    void pathOfExactly255CharactersIsAccepted();
    void pathOf256CharactersIsRefusedAndTheFieldStays();
    void cancellingThePictureDialogChangesNothing();
    void backgroundComboCannotBeTypedIn();

    // Transitions.
    void useTransitionsFalseDisablesBothCombosAndAClickChangesNoField();
    void useTransitionsCheckBoxWritesTheFileAndEnablesTheCombos();
    void cutDisablesTheSpeedAndTheNextEntryEnablesItAtItsFirstEntry();
    void storedCutLoadsWithTheSpeedDisabled();
    void storedTransitionAndSpeedAreChosen();

private:
    void useTransitions(bool blnOn);
    qint32 addPicture(const QString& strDescription, const QString& strFile);

    std::unique_ptr<TestDatabase> m_db;
};

void tst_ctlOptions_RunMode::init() {
    RemoveSettingsFile();
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
}

void tst_ctlOptions_RunMode::cleanup() {
    m_db.reset();
    RemoveSettingsFile();
}

void tst_ctlOptions_RunMode::useTransitions(bool blnOn) {
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("UseTransitions"),
                                        blnOn ? QStringLiteral("True") : QStringLiteral("False"));
}

// A picture item whose file lies in the content folder (written when strFile
// is not empty and real).
qint32 tst_ctlOptions_RunMode::addPicture(const QString& strDescription, const QString& strFile) {
    const qint32 id = m_db->AddServiceItem(TestDatabase::Picture, strDescription);
    if (id > 0 && !strFile.isEmpty())
        m_db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemFilename = ? WHERE "
                                  "ServiceItemID = ?"),
                   {strFile, id});
    return id;
}

// ---------------------------------------------------------------- sample text

void tst_ctlOptions_RunMode::loadingShowsTheStoredFontAndColoursOnTheSample() {
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Options SET RunModeFontName = 'DejaVu Serif', RunModeFontSize = 20, "
                       "RunModeFontBold = 0, RunModeFontItalic = 1, RunModeFontColor = 255, "
                       "RunModeBackColor = 16711680")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    const QFont fnt = options.lblRunModeSample->font();
    QCOMPARE(fnt.family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(fnt.pointSizeF(), 20.0);
    QVERIFY(fnt.italic());
    QVERIFY(!fnt.bold());
    QCOMPARE(options.lblRunModeSample->text(), QStringLiteral("Sample Text"));
    QCOMPARE(options.lblRunModeSample->palette().color(QPalette::WindowText), QColor(Qt::red));
    QCOMPARE(BackColour(options.lblRunModeSample), QColor(Qt::blue));
    QCOMPARE(BackColour(options.lblBackGround2), QColor(Qt::blue));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::
    fontDialogOpensWithItsFlagsPresetFromTheSampleAndStoresTheFiveFields() {
    FontDialogPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QFont chosen(QStringLiteral("DejaVu Serif"));
    chosen.setPointSizeF(28);
    chosen.setBold(true);
    chosen.setItalic(true);
    platform.QueueFont(chosen);
    platform.QueueColor(0x00FF00);
    options.cmdChangeFont->click();

    QCOMPARE(platform.FontFlags, QList<qint32>{196869});
    QCOMPARE(platform.PresetFonts.at(0).family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(platform.PresetFonts.at(0).pointSizeF(), 36.0);
    QCOMPARE(platform.PresetColors.at(0), 0xFFFFFF);

    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontName")).toString(),
             QStringLiteral("DejaVu Serif"));
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontSize")).toDouble(), 28.0);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontBold")).toInt(), 1);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontItalic")).toInt(), 1);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontColor")).toInt(), 0x00FF00);
    QCOMPARE(options.lblRunModeSample->font().family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(options.lblRunModeSample->palette().color(QPalette::WindowText), QColor(Qt::green));
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_RunMode::cancellingTheFontDialogChangesNothing() {
    FontDialogPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    platform.QueueFont(std::nullopt);
    options.cmdChangeFont->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(options.lblRunModeSample->font().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontName")).toString(),
             QStringLiteral("DejaVu Sans"));
    // A cancel in the colour step cancels the font too.
    platform.QueueFont(QFont(QStringLiteral("DejaVu Serif"), 12));
    platform.QueueColor(std::nullopt);
    options.cmdChangeFont->click();
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontName")).toString(),
             QStringLiteral("DejaVu Sans"));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::backgroundColourDialogColoursBothLabelsAndStoresTheField() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    platform.QueueColor(0x800000); // navy, as BGR
    options.cmdChangeBackgroundColor->click();
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeBackColor")).toInt(), 0x800000);
    QCOMPARE(BackColour(options.lblRunModeSample), QColor(0, 0, 0x80));
    QCOMPARE(BackColour(options.lblBackGround2), QColor(0, 0, 0x80));
    QCOMPARE(platform.Dialogs().constLast().Kind, QStringLiteral("Color"));
    // Cancel: nothing changes.
    platform.QueueColor(std::nullopt);
    options.cmdChangeBackgroundColor->click();
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeBackColor")).toInt(), 0x800000);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::colourOfMinusOneFromADialogIsRefusedWithAMessage() {
    FontDialogPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    platform.QueueColor(-1);
    platform.QueueAnswer(vbOK);
    options.cmdChangeBackgroundColor->click();
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Colour not valid"));
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeBackColor")).toInt(), 0);
    QCOMPARE(BackColour(options.lblBackGround2), QColor(Qt::black));

    platform.QueueFont(QFont(QStringLiteral("DejaVu Serif"), 12));
    platform.QueueColor(-1);
    platform.QueueAnswer(vbOK);
    options.cmdChangeFont->click();
    QCOMPARE(platform.BoxCount(), 2);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontColor")).toInt(), 0xFFFFFF);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeFontName")).toString(),
             QStringLiteral("DejaVu Sans"));
}

void tst_ctlOptions_RunMode::storedColourOfMinusOneShowsTheStandardColoursWithAMessage() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET RunModeBackColor = -1")));
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    ShowTab(options, 2);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Colour not valid"));
    QCOMPARE(BackColour(options.lblBackGround2), QColor(Qt::black));
    QCOMPARE(options.lblRunModeSample->palette().color(QPalette::WindowText), QColor(Qt::white));
    // The tab loaded all the same, and nothing was stored over the bad value.
    QCOMPARE(options.cboDisplayPointsMode->currentIndex(), 1);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeBackColor")).toInt(), -1);
}

void tst_ctlOptions_RunMode::fontThatIsNotInstalledIsReportedAndTheTabStillLoads() {
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Options SET RunModeFontName = 'Parish Gothic Not Installed'")));
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    ShowTab(options, 2);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Font not installed"));
    QVERIFY(platform.LastBox().Prompt.contains(QStringLiteral("Parish Gothic Not Installed")));
    QCOMPARE(options.cboDisplayPointsMode->currentIndex(), 1);
    QCOMPARE(options.cboTransition->count(), 8);
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_RunMode::samplePanelGrowsSoThatALargeFontIsSeenWhole() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    const int intDesigned = options.lblBackGround2->minimumWidth();
    QVERIFY(intDesigned >= options.lblRunModeSample->sizeHint().width());
    QFont large(QStringLiteral("DejaVu Sans"));
    large.setPointSizeF(96);
    platform.QueueFont(large);
    platform.QueueColor(0xFFFFFF);
    options.cmdChangeFont->click();
    QVERIFY(options.lblBackGround2->minimumWidth() > intDesigned);
    QVERIFY(options.lblBackGround2->minimumWidth() >= options.lblRunModeSample->sizeHint().width());
    QVERIFY(options.lblBackGround2->minimumHeight() >=
            options.lblRunModeSample->sizeHint().height());
}

// ---------------------------------------------------------------- details, points

void tst_ctlOptions_RunMode::detailCheckBoxesShowTheirFields() {
    QVERIFY(m_db->Exec(QStringLiteral(
        "UPDATE Options SET ShowDescriptionDetailsAtRunTime = 0, ShowSourceAtRunTime = 1, "
        "ShowCopyrightDetailsAtRunTime = 0, ShowLocationDetailsAtRunTime = 1, "
        "AutoPlayMusic = 1, ShowSubPointsOneByOne = 1")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QVERIFY(!options.chkShowDescription->isChecked());
    QVERIFY(options.chkShowSource->isChecked());
    QVERIFY(!options.chkShowCopyright->isChecked());
    QVERIFY(options.chkShowOrigLocation->isChecked());
    QVERIFY(options.chkPlayMusicAutomatically->isChecked());
    QVERIFY(options.chkSubPointsOneByOne->isChecked());
    QCOMPARE(options.chkShowDescription->text(),
             QStringLiteral("Show Description details while running a Service item"));
    QCOMPARE(options.chkPlayMusicAutomatically->text(),
             QStringLiteral("Play music file automatically if it is available"));
}

void tst_ctlOptions_RunMode::eachDetailCheckBoxStoresItsField() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    const QList<std::pair<QCheckBox*, QString>> boxes = {
        {options.chkShowDescription, QStringLiteral("ShowDescriptionDetailsAtRunTime")},
        {options.chkShowOrigLocation, QStringLiteral("ShowLocationDetailsAtRunTime")},
        {options.chkShowCopyright, QStringLiteral("ShowCopyrightDetailsAtRunTime")},
        {options.chkShowSource, QStringLiteral("ShowSourceAtRunTime")},
        {options.chkPlayMusicAutomatically, QStringLiteral("AutoPlayMusic")},
        {options.chkSubPointsOneByOne, QStringLiteral("ShowSubPointsOneByOne")}};
    for (const auto& [chk, field] : boxes) {
        const bool blnWas = chk->isChecked();
        QCOMPARE(Field(*m_db, field).toInt(), blnWas ? 1 : 0);
        chk->click();
        QCOMPARE(Field(*m_db, field).toInt(), blnWas ? 0 : 1);
        chk->click();
        QCOMPARE(Field(*m_db, field).toInt(), blnWas ? 1 : 0);
    }
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_RunMode::pointsModeShowsAndStoresItsItemData() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET PointDisplayMode = 6")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.cboDisplayPointsMode->currentText(),
             QStringLiteral("Show all points at start"));
    QCOMPARE(options.cboDisplayPointsMode->itemText(0),
             QStringLiteral("Only show one point at a time"));
    QCOMPARE(options.cboDisplayPointsMode->itemText(1),
             QStringLiteral("Show all points by revealing them one at a time"));
    options.cboDisplayPointsMode->setCurrentIndex(0);
    QCOMPARE(Field(*m_db, QStringLiteral("PointDisplayMode")).toInt(), 4);
}

// ---------------------------------------------------------------- background

void tst_ctlOptions_RunMode::nullBackgroundSelectsTheFirstEntryAndShowsNoMessage() {
    addPicture(QStringLiteral("Sky"), QString());
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.cboBackgroundImages->currentIndex(), 0);
    QCOMPARE(options.cboBackgroundImages->currentText(), QStringLiteral("(None)"));
    QCOMPARE(options.cboBackgroundImages->count(), 2);
    QVERIFY(!HasPicture(options.imgBackgroundPreview));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::storedPictureItemIsChosenAndPreviewed() {
    QVERIFY(!WritePicture(m_db->ContentFolder() + QStringLiteral("/sky.png")).isEmpty());
    addPicture(QStringLiteral("Hills"), QString());
    const qint32 sky = addPicture(QStringLiteral("Sky"), QStringLiteral("sky.png"));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = ?"), {sky}));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.cboBackgroundImages->currentText(), QStringLiteral("Sky"));
    QCOMPARE(options.cboBackgroundImages->property("Tag").toString(), QString::number(sky));
    QVERIFY(HasPicture(options.imgBackgroundPreview));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::deletedPreviewFileGivesFileNotFoundAndTheTabStillLoads() {
    const qint32 gone = addPicture(QStringLiteral("Gone"), QStringLiteral("deleted.png"));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = ?, "
                                      "PointDisplayMode = 4"),
                       {gone}));
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    ShowTab(options, 2);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, FileNotFound);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("File not found"));
    QVERIFY(!HasPicture(options.imgBackgroundPreview));
    QCOMPARE(options.cboBackgroundImages->currentText(), QStringLiteral("Gone"));
    // The rest of the tab loaded, and the stored value stays.
    QCOMPARE(options.cboDisplayPointsMode->currentIndex(), 0);
    QCOMPARE(options.cboTransition->count(), 8);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toInt(), gone);
    ShowTab(options, 0);
    ShowTab(options, 2);
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ctlOptions_RunMode::storedPathIsShownByItsFileNameWithItsPreview() {
    QTemporaryDir pictures;
    const QString path = WritePicture(pictures.filePath(QStringLiteral("Easter morning.png")));
    QVERIFY(!path.isEmpty());
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = ?"), {path}));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.cboBackgroundImages->property("Tag").toString(), path);
    QCOMPARE(options.cboBackgroundImages->currentText(), QStringLiteral("Easter morning.png"));
    QCOMPARE(options.cboBackgroundImages->currentIndex(), -1);
    QVERIFY(HasPicture(options.imgBackgroundPreview));
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toString(), path);
}

void tst_ctlOptions_RunMode::choosingAPictureEntryStoresItsIdAndShowsIt() {
    QVERIFY(!WritePicture(m_db->ContentFolder() + QStringLiteral("/sky.png")).isEmpty());
    const qint32 sky = addPicture(QStringLiteral("Sky"), QStringLiteral("sky.png"));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    options.cboBackgroundImages->setCurrentIndex(1);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toInt(), sky);
    QVERIFY(HasPicture(options.imgBackgroundPreview));
    options.cboBackgroundImages->setCurrentIndex(0);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toInt(), 0);
    QVERIFY(!HasPicture(options.imgBackgroundPreview));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_RunMode::pathOfExactly255CharactersIsAccepted() {
    QTemporaryDir pictures;
    const QString folder = pictures.path() + QLatin1Char('/');
    const QString name =
        QString(255 - folder.size() - 4, QLatin1Char('p')) + QStringLiteral(".png");
    const QString path = WritePicture(folder + name);
    QCOMPARE(path.size(), 255);
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    platform.QueueOpenFile(path);
    options.cmdBrowseBackgroundPicture->click();
    const ScriptedPlatform::Dialog dialog = platform.Dialogs().constLast();
    QCOMPARE(dialog.Filter, QStringLiteral("Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"));
    QCOMPARE(dialog.Title, QStringLiteral("Select a picture to be the background picture for "
                                          "when you run a Service or Service Item"));
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toString(), path);
    QCOMPARE(options.cboBackgroundImages->property("Tag").toString(), path);
    QCOMPARE(options.cboBackgroundImages->currentText(), name);
    QVERIFY(HasPicture(options.imgBackgroundPreview));
}

void tst_ctlOptions_RunMode::pathOf256CharactersIsRefusedAndTheFieldStays() {
    QVERIFY(!WritePicture(m_db->ContentFolder() + QStringLiteral("/sky.png")).isEmpty());
    const qint32 sky = addPicture(QStringLiteral("Sky"), QStringLiteral("sky.png"));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = ?"), {sky}));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QVERIFY(HasPicture(options.imgBackgroundPreview));
    const QString path =
        QStringLiteral("/pictures/") + QString(242, QLatin1Char('q')) + QStringLiteral(".jpg");
    QCOMPARE(path.size(), 256);
    platform.QueueOpenFile(path);
    platform.QueueAnswer(vbOK);
    options.cmdBrowseBackgroundPicture->click();
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("the path and filename are longer than 255 characters, either rename "
                            "the file to a shorter name or move it to a folder that has a "
                            "shorter path"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Invalid filename"));
    QCOMPARE(options.cboBackgroundImages->property("Tag").toString(), QString());
    QCOMPARE(options.cboBackgroundImages->currentText(), QString());
    QVERIFY(!HasPicture(options.imgBackgroundPreview));
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toInt(), sky);
}

void tst_ctlOptions_RunMode::cancellingThePictureDialogChangesNothing() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    platform.QueueOpenFile(QString());
    options.cmdBrowseBackgroundPicture->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(options.cboBackgroundImages->currentIndex(), 0);
    QCOMPARE(Field(*m_db, QStringLiteral("DefaultBackgroundImage")).toInt(), 0);
}

void tst_ctlOptions_RunMode::backgroundComboCannotBeTypedIn() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    ShowTab(options, 2);
    QLineEdit* edit = options.cboBackgroundImages->lineEdit();
    QVERIFY(edit);
    QTest::keyClicks(edit, QStringLiteral("xyz"));
    QCOMPARE(options.cboBackgroundImages->currentText(), QStringLiteral("(None)"));
}

// ---------------------------------------------------------------- transitions

void tst_ctlOptions_RunMode::useTransitionsFalseDisablesBothCombosAndAClickChangesNoField() {
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Options SET RunModeTransType = 4, RunModeTransSpeed = 2")));
    for (bool blnKeyMissing : {true, false}) {
        if (!blnKeyMissing)
            useTransitions(false);
        ScriptedPlatform platform;
        ctlOptions options;
        ShowTab(options, 2);
        QVERIFY(!options.chkUseTransitions->isChecked());
        QVERIFY(!options.cboTransition->isEnabled());
        QVERIFY(!options.cboTransitionSpeed->isEnabled());
        options.cboTransition->setCurrentIndex(0);
        QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransType")).toInt(), 4);
        QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toInt(), 2);
        QVERIFY(!options.chkUseTransitions->isChecked());
        QVERIFY(!options.cboTransition->isEnabled());
        QCOMPARE(platform.BoxCount(), 0);
    }
}

void tst_ctlOptions_RunMode::useTransitionsCheckBoxWritesTheFileAndEnablesTheCombos() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.chkUseTransitions->text(), QStringLiteral("Use Transitions"));
    options.chkUseTransitions->click();
    QCOMPARE(Option(QStringLiteral("UseTransitions")), QStringLiteral("True"));
    QVERIFY(options.cboTransition->isEnabled());
    QVERIFY(options.cboTransitionSpeed->isEnabled());
    options.chkUseTransitions->click();
    QCOMPARE(Option(QStringLiteral("UseTransitions")), QStringLiteral("False"));
    QVERIFY(!options.cboTransition->isEnabled());
    QVERIFY(!options.cboTransitionSpeed->isEnabled());
}

void tst_ctlOptions_RunMode::cutDisablesTheSpeedAndTheNextEntryEnablesItAtItsFirstEntry() {
    useTransitions(true);
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Options SET RunModeTransType = 2, RunModeTransSpeed = 2")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QVERIFY(options.cboTransitionSpeed->isEnabled());
    const int cut = options.cboTransition->findData(38);
    QVERIFY(cut >= 0);
    options.cboTransition->setCurrentIndex(cut);
    QVERIFY(!options.cboTransitionSpeed->isEnabled());
    QCOMPARE(options.cboTransitionSpeed->currentIndex(), -1);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransType")).toInt(), 38);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toString(), QString());

    const int fade = options.cboTransition->findData(qint32(DataAccess::transFade));
    options.cboTransition->setCurrentIndex(fade);
    QVERIFY(options.cboTransitionSpeed->isEnabled());
    QCOMPARE(options.cboTransitionSpeed->currentIndex(), 0);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransType")).toInt(),
             qint32(DataAccess::transFade));
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toInt(),
             options.cboTransitionSpeed->itemData(0).toInt());
    options.cboTransitionSpeed->setCurrentIndex(2);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toInt(),
             options.cboTransitionSpeed->itemData(2).toInt());
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_RunMode::storedCutLoadsWithTheSpeedDisabled() {
    useTransitions(true);
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET RunModeTransType = 38")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QCOMPARE(options.cboTransition->currentData().toInt(), 38);
    QVERIFY(options.cboTransition->isEnabled());
    QVERIFY(!options.cboTransitionSpeed->isEnabled());
    QCOMPARE(options.cboTransitionSpeed->currentIndex(), -1);
}

void tst_ctlOptions_RunMode::storedTransitionAndSpeedAreChosen() {
    useTransitions(true);
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Options SET RunModeTransType = 4, RunModeTransSpeed = 2")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 2);
    QVERIFY(options.chkUseTransitions->isChecked());
    QCOMPARE(options.cboTransition->currentText(), QStringLiteral("Slide up"));
    QCOMPARE(options.cboTransitionSpeed->currentText(), QStringLiteral("Fast"));
    QVERIFY(options.cboTransitionSpeed->isEnabled());
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransType")).toInt(), 4);
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toInt(), 2);
}

QTEST_MAIN(tst_ctlOptions_RunMode)
#include "tst_ctlOptions_RunMode.moc"
