// Tab 3 of the options control, "Church Properties": the church's details with
// the prompts that become stored values on first look, and the logo copied into
// the data folder.
#include "OptionsTestFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

using namespace OptionsTest;

namespace {

const QString LogoPrompt = QStringLiteral("Select a picture file for your church logo");
const QString MovedLogo =
    QStringLiteral("LoadChurchProps: Logo file was moved from original location");

struct Box {
    const char* Name;
    const char* Field;
    const char* Prompt;
};
const Box Boxes[] = {
    {"txtChurchName", "ChurchName", "Enter church name here"},
    {"txtPastorName", "ChurchPastorName",
     "Enter the name of the pastor as it should appear on church stationery"},
    {"txtChurchAddress1", "ChurchAddress1", "Enter church address in these boxes"},
    {"txtChurchPhone", "ChurchPhone1", "Enter the main church phone number in this box"},
    {"txtChurchPhone2", "ChurchPhone2", "Enter any other church phone number in this box"},
    {"txtChurchEmail", "ChurchEmail", "Enter church email address here"},
    {"txtChurchWebSite", "ChurchWebSite", "Enter church web address here"},
    {"txtChurchMissionStatement", "ChurchMissionStatement", "Enter church mission statement here"},
};

QLineEdit* BoxNamed(const ctlOptions& options, const char* name) {
    return options.findChild<QLineEdit*>(QLatin1String(name));
}

} // namespace

class tst_ctlOptions_Church : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstLookStoresThePromptsOfNullFields();
    void address2OfNullShowsAnEmptyBoxAndNoPrompt();
    void storedValuesAreShownAndTypingStoresEveryChange();
    void gettingFocusSelectsTheWholeText();

    void browsingForALogoCopiesItAndStoresTheCopyAndTheUsersName();
    void storedLogoIsShownWithItsDescription();
    void logoDeletedFromTheDataFolderGivesTheMessageThePromptAndNoPicture();
    void logoOfAnotherExtensionReplacesTheOldNameAndTheOldCopyStays();
    void logoThatIsNotAPictureIsRefusedAndTheLogoInForceStays();
    void storedLogoThatIsNotAPictureIsReportedInTheErrorBox();
    void cancellingTheLogoDialogChangesNothing();

private:
    // Chooses a logo through the browse button.
    void chooseLogo(ScriptedPlatform& platform, ctlOptions& options, const QString& strFile);

    std::unique_ptr<TestDatabase> m_db;
};

void tst_ctlOptions_Church::init() {
    RemoveSettingsFile();
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
}

void tst_ctlOptions_Church::cleanup() {
    m_db.reset();
    RemoveSettingsFile();
}

void tst_ctlOptions_Church::chooseLogo(ScriptedPlatform& platform, ctlOptions& options,
                                       const QString& strFile) {
    platform.QueueOpenFile(strFile);
    options.cmdBrowseChurchLogo->click();
}

// ---------------------------------------------------------------- details

void tst_ctlOptions_Church::firstLookStoresThePromptsOfNullFields() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    for (const Box& box : Boxes) {
        QLineEdit* txt = BoxNamed(options, box.Name);
        QVERIFY2(txt, box.Name);
        QCOMPARE(txt->text(), QString::fromUtf8(box.Prompt));
        QCOMPARE(Field(*m_db, QLatin1String(box.Field)).toString(), QString::fromUtf8(box.Prompt));
        QCOMPARE(ctlOptions::ChurchPrompt(QLatin1String(box.Name)), QString::fromUtf8(box.Prompt));
    }
    QCOMPARE(options.txtChurchLogoFilename->text(), LogoPrompt);
    QCOMPARE(options.txtChurchLogoFilename->toolTip(), QString());
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFileDescription")).toString(), LogoPrompt);
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFilename")).toString(), QString());
    QVERIFY(options.imgChurchLogo->pixmap().isNull());
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);

    // A second control finds the prompts as stored values.
    ctlOptions again;
    ShowTab(again, 3);
    QCOMPARE(again.txtChurchName->text(), QStringLiteral("Enter church name here"));
    QCOMPARE(again.txtChurchLogoFilename->text(), LogoPrompt);
}

void tst_ctlOptions_Church::address2OfNullShowsAnEmptyBoxAndNoPrompt() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    for (QLineEdit* txt :
         {options.txtChurchAddress2, options.txtChurchAddress3, options.txtChurchAddress4}) {
        QCOMPARE(txt->text(), QString());
        QCOMPARE(ctlOptions::ChurchPrompt(txt->objectName()), QString());
    }
    QVERIFY(Field(*m_db, QStringLiteral("ChurchAddress2")).isNull());
    QVERIFY(Field(*m_db, QStringLiteral("ChurchAddress4")).isNull());
}

void tst_ctlOptions_Church::storedValuesAreShownAndTypingStoresEveryChange() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET ChurchName = 'St Mary''s', "
                                      "ChurchAddress2 = 'High Street', ChurchEmail = ''")));
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    ShowTab(options, 3);
    QCOMPARE(options.txtChurchName->text(), QStringLiteral("St Mary's"));
    QCOMPARE(options.txtChurchAddress2->text(), QStringLiteral("High Street"));
    // An empty field is no Null: it shows empty, without its prompt.
    QCOMPARE(options.txtChurchEmail->text(), QString());
    const QString typed = QStringLiteral("office@stmarys.example");
    for (qsizetype i = 0; i < typed.size(); ++i) {
        QTest::keyClick(options.txtChurchEmail, typed.at(i).toLatin1());
        QCOMPARE(Field(*m_db, QStringLiteral("ChurchEmail")).toString(), typed.left(i + 1));
    }
    options.txtChurchAddress3->setText(QStringLiteral("Lower Town"));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchAddress3")).toString(),
             QStringLiteral("Lower Town"));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchName")).toString(), QStringLiteral("St Mary's"));
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_Church::gettingFocusSelectsTheWholeText() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    QVERIFY(QTest::qWaitForWindowActive(&options));
    ShowTab(options, 3);
    options.txtPastorName->setFocus();
    QTRY_COMPARE(options.txtPastorName->selectedText(), options.txtPastorName->text());
    QVERIFY(!options.txtPastorName->text().isEmpty());
    QTest::keyClicks(options.txtPastorName, QStringLiteral("Revd Ann Hale"));
    QCOMPARE(options.txtPastorName->text(), QStringLiteral("Revd Ann Hale"));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchPastorName")).toString(),
             QStringLiteral("Revd Ann Hale"));
}

// ---------------------------------------------------------------- logo

void tst_ctlOptions_Church::browsingForALogoCopiesItAndStoresTheCopyAndTheUsersName() {
    QTemporaryDir pictures;
    const QString logo = WritePicture(pictures.filePath(QStringLiteral("Our Logo.png")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    chooseLogo(platform, options, logo);
    const QString copy = m_db->Folder() + QStringLiteral("/ChurchLogo.png");
    QVERIFY(QFileInfo::exists(copy));
    QCOMPARE(options.txtChurchLogoFilename->text(), QStringLiteral("Our Logo.png"));
    QCOMPARE(options.txtChurchLogoFilename->toolTip(), copy);
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFilename")).toString(), copy);
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFileDescription")).toString(),
             QStringLiteral("Our Logo.png"));
    QVERIFY(!options.imgChurchLogo->pixmap().isNull());
    const ScriptedPlatform::Dialog dialog = platform.Dialogs().constLast();
    QCOMPARE(dialog.Filter, QStringLiteral("Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"));
    QCOMPARE(dialog.Title, QStringLiteral("Select a picture as your church logo"));
    QVERIFY(dialog.CancelError);
    QVERIFY(platform.DoEventsCount() >= 1);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_Church::storedLogoIsShownWithItsDescription() {
    const QString copy = WritePicture(m_db->Folder() + QStringLiteral("/ChurchLogo.bmp"));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET ChurchLogoFilename = ?, "
                                      "ChurchLogoFileDescription = 'crest.bmp'"),
                       {copy}));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    QCOMPARE(options.txtChurchLogoFilename->text(), QStringLiteral("crest.bmp"));
    QCOMPARE(options.txtChurchLogoFilename->toolTip(), copy);
    QVERIFY(!options.imgChurchLogo->pixmap().isNull());
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFilename")).toString(), copy);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_Church::logoDeletedFromTheDataFolderGivesTheMessageThePromptAndNoPicture() {
    const QString copy = WritePicture(m_db->Folder() + QStringLiteral("/ChurchLogo.png"));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET ChurchLogoFilename = ?, "
                                      "ChurchLogoFileDescription = 'crest.png'"),
                       {copy}));
    QVERIFY(QFile::remove(copy));
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    ShowTab(options, 3);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, MovedLogo);
    QCOMPARE(options.txtChurchLogoFilename->text(), LogoPrompt);
    QCOMPARE(options.txtChurchLogoFilename->toolTip(), QString());
    QVERIFY(options.imgChurchLogo->pixmap().isNull());
    // The rest of the tab is there, and it does not load again.
    QCOMPARE(options.txtChurchName->text(), QStringLiteral("Enter church name here"));
    ShowTab(options, 0);
    ShowTab(options, 3);
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ctlOptions_Church::logoOfAnotherExtensionReplacesTheOldNameAndTheOldCopyStays() {
    QTemporaryDir pictures;
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    chooseLogo(platform, options, WritePicture(pictures.filePath(QStringLiteral("crest.png"))));
    chooseLogo(platform, options, WritePicture(pictures.filePath(QStringLiteral("crest2.bmp"))));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFilename")).toString(),
             m_db->Folder() + QStringLiteral("/ChurchLogo.bmp"));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFileDescription")).toString(),
             QStringLiteral("crest2.bmp"));
    QVERIFY(QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.png")));
    QVERIFY(QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.bmp")));
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_Church::logoThatIsNotAPictureIsRefusedAndTheLogoInForceStays() {
    QTemporaryDir pictures;
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    chooseLogo(platform, options, WritePicture(pictures.filePath(QStringLiteral("crest.png"))));
    const QString notes = pictures.filePath(QStringLiteral("notices.gif"));
    QFile file(notes);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Notices for Sunday: the choir meets at nine.\n");
    file.close();
    platform.QueueAnswer(vbOK);
    chooseLogo(platform, options, notes);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Logo not changed"));
    QVERIFY(platform.LastBox().Prompt.contains(QStringLiteral("not a picture")));
    QCOMPARE(options.txtChurchLogoFilename->text(), QStringLiteral("crest.png"));
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFileDescription")).toString(),
             QStringLiteral("crest.png"));
    QVERIFY(!QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.gif")));
    QVERIFY(!options.imgChurchLogo->pixmap().isNull());
}

void tst_ctlOptions_Church::storedLogoThatIsNotAPictureIsReportedInTheErrorBox() {
    const QString copy = m_db->Folder() + QStringLiteral("/ChurchLogo.png");
    QFile file(copy);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("not a picture");
    file.close();
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET ChurchLogoFilename = ?, "
                                      "ChurchLogoFileDescription = 'crest.png'"),
                       {copy}));
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    ShowTab(options, 3);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("LoadChurchProps: Error number is 481, Invalid picture"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Error"));
    QCOMPARE(platform.LastBox().Buttons, vbExclamation);
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_Church::cancellingTheLogoDialogChangesNothing() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 3);
    chooseLogo(platform, options, QString());
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(options.txtChurchLogoFilename->text(), LogoPrompt);
    QCOMPARE(Field(*m_db, QStringLiteral("ChurchLogoFileDescription")).toString(), LogoPrompt);
}

QTEST_MAIN(tst_ctlOptions_Church)
#include "tst_ctlOptions_Church.moc"
