// The options control's frame and its tab 0: the settings file (owner, data
// path, start-up page, sample mode, tips), the two switches of the options
// row, the loading of the tabs, and a settings file that cannot be written.
#include "OptionsTestFixture.h"
#include "TraceFile.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace OptionsTest;

class tst_ctlOptions_General : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Frame.
    void descriptionIsOptionsControlAndItMayAlwaysUnload();
    void tabsCarryTheirCaptionsWithTheLeadingBlanks();
    void comingBackToTheGeneralTabReloadsIt();
    void otherTabsLoadOncePerControlInstance();

    // Loading tab 0.
    void missingSettingsFileGivesTheDefaultsAndLeavesTheFileMissing();
    void storedSettingsAreShown();
    void startupTabValueInNoEntrySelectsNothingAndSaysNothing();
    void freshLoadStoresTrueInTheToolbarFieldAndShowsIt();
    void propBagSwitchShowsItsField();
    void wordButtonIsDisabledWithoutAWordProcessor();

    // Changes.
    void typingInOwnerWritesTheFileOncePerChangeEvent();
    void choosingAStartupPageWritesItsText();
    void tipsCheckBoxWritesTrueAndFalse();
    void toolbarAndPropBagCheckBoxesStoreTheirFields();
    void bothFileCopyOptionsStoreTrueInTheToolbarField();
    void sampleModePressedTwiceReturnsTheKeyAndShowsTheRestartMessageTwice();
    void sampleModeWithoutAKeyIsTurnedOnFirst();
    void browsingForTheDatabaseStoresItsFolderAndAsksForARestart();
    void cancellingTheDatabaseDialogChangesNothingAndSaysNothing();
    void wordButtonShowsTheLibrarysErrorTextInAPlainBox();
    void aboutButtonRaisesAboutCorvantis();

    // Bad input.
    void settingsFileThatCannotBeWrittenIsReportedOnceAndTheScreenGoesOn();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void tst_ctlOptions_General::init() {
    RemoveSettingsFile();
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
}

void tst_ctlOptions_General::cleanup() {
    m_db.reset();
    RemoveSettingsFile();
}

// ---------------------------------------------------------------- frame

void tst_ctlOptions_General::descriptionIsOptionsControlAndItMayAlwaysUnload() {
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.Description(), QStringLiteral("OptionsControl"));
    QCOMPARE(options.property("Description").toString(), QStringLiteral("OptionsControl"));
    QVERIFY(options.CanUnload());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_General::tabsCarryTheirCaptionsWithTheLeadingBlanks() {
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.SSTab1->Tabs(), 4);
    QCOMPARE(options.SSTab1->TabCaption(0), QStringLiteral("General Options"));
    QCOMPARE(options.SSTab1->TabCaption(1), QStringLiteral(" Service Building"));
    QCOMPARE(options.SSTab1->TabCaption(2), QStringLiteral(" Run Mode Details"));
    QCOMPARE(options.SSTab1->TabCaption(3), QStringLiteral("Church Properties"));
    QCOMPARE(options.SSTab1->Tab(), 0);
    QVERIFY(options.findChild<QLineEdit*>(QStringLiteral("txtOwner")));
    QVERIFY(options.findChild<QComboBox*>(QStringLiteral("cboStartupTab")));
}

void tst_ctlOptions_General::comingBackToTheGeneralTabReloadsIt() {
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.txtOwner->text(), QString());
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("Owner"),
                                        QStringLiteral("St Mary's"));
    ShowTab(options, 3);
    QCOMPARE(options.txtOwner->text(), QString());
    TraceFile trace;
    ShowTab(options, 0);
    QCOMPARE(options.txtOwner->text(), QStringLiteral("St Mary's"));
    QVERIFY(trace.HasLineStartingWith(QStringLiteral("QVLTCONTROLS:ctlOptions:SSTab1_Click @ ")));
    QVERIFY(trace.HasLineContaining(QStringLiteral(": PreviousTab = 3, ")));
    QVERIFY(trace.HasLineStartingWith(QStringLiteral("QVLTCONTROLS:ctlOptions:LoadGeneralTab @ ")));
}

void tst_ctlOptions_General::otherTabsLoadOncePerControlInstance() {
    ScriptedPlatform platform;
    auto countLoads = [](const TraceFile& trace, const QString& strMember) {
        qint32 count = 0;
        for (const QString& line : trace.NewLines())
            count += line.startsWith(QStringLiteral("QVLTCONTROLS:ctlOptions:") + strMember +
                                     QStringLiteral(" @ "));
        return count;
    };
    TraceFile trace;
    {
        ctlOptions options;
        for (int round = 0; round < 2; ++round)
            for (qint16 tab : {1, 2, 3, 0})
                ShowTab(options, tab);
        QCOMPARE(countLoads(trace, QStringLiteral("LoadServiceBuildingTab")), 1);
        QCOMPARE(countLoads(trace, QStringLiteral("LoadRunModeDetailsTab")), 1);
        QCOMPARE(countLoads(trace, QStringLiteral("LoadChurchProps")), 1);
        // Once at start, and once for each of the two returns to tab 0.
        QCOMPARE(countLoads(trace, QStringLiteral("LoadGeneralTab")), 3);
    }
    ctlOptions another;
    ShowTab(another, 2);
    QCOMPARE(countLoads(trace, QStringLiteral("LoadRunModeDetailsTab")), 2);
}

// ---------------------------------------------------------------- loading

void tst_ctlOptions_General::missingSettingsFileGivesTheDefaultsAndLeavesTheFileMissing() {
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.txtOwner->text(), QString());
    QCOMPARE(options.txtDataPath->text(), QString());
    QCOMPARE(options.cboStartupTab->currentIndex(), -1);
    QVERIFY(!options.chkShowTipsAtStartUp->isChecked());
    QCOMPARE(options.cmdSampleMode->text(), QStringLiteral("Change to Sample mode"));
    QCOMPARE(platform.BoxCount(), 0);
    QVERIFY(!SettingsFileExists());
}

void tst_ctlOptions_General::storedSettingsAreShown() {
    const QString options_ = QStringLiteral("Options");
    Settings::WritePrivateProfileString(options_, QStringLiteral("Owner"), QStringLiteral("Grace"));
    Settings::WritePrivateProfileString(options_, QStringLiteral("StartupTab"),
                                        QStringLiteral("Templates"));
    Settings::WritePrivateProfileString(options_, QStringLiteral("IsSampleMode"),
                                        QStringLiteral("True"));
    Settings::WritePrivateProfileString(options_, QStringLiteral("ShowTips"),
                                        QStringLiteral("True"));
    Settings::WritePrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"),
                                        QStringLiteral("/srv/church/"));
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.txtOwner->text(), QStringLiteral("Grace"));
    QCOMPARE(options.cboStartupTab->currentText(), QStringLiteral("Templates"));
    QCOMPARE(options.cmdSampleMode->text(), QStringLiteral("Turn off Sample mode"));
    QVERIFY(options.chkShowTipsAtStartUp->isChecked());
    QCOMPARE(options.txtDataPath->text(), QStringLiteral("/srv/church/"));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_General::startupTabValueInNoEntrySelectsNothingAndSaysNothing() {
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("StartupTab"),
                                        QStringLiteral("Gallery"));
    ScriptedPlatform platform;
    ctlOptions options;
    QCOMPARE(options.cboStartupTab->currentIndex(), -1);
    QCOMPARE(options.cboStartupTab->count(), 4);
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(Option(QStringLiteral("StartupTab")), QStringLiteral("Gallery"));
}

void tst_ctlOptions_General::freshLoadStoresTrueInTheToolbarFieldAndShowsIt() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET AlwaysShowGalleryToolbars = 0")));
    ScriptedPlatform platform;
    ctlOptions options;
    QVERIFY(options.optDontCopy->isChecked());
    QVERIFY(!options.optCopy->isChecked());
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 1);
    QVERIFY(options.chkAlwaysShowToolbars->isChecked());
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
}

void tst_ctlOptions_General::propBagSwitchShowsItsField() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET IncludePropsOnImpExp = 0")));
    {
        ScriptedPlatform platform;
        ctlOptions options;
        QVERIFY(!options.chkIncludePropBagItems->isChecked());
    }
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET IncludePropsOnImpExp = 1")));
    ScriptedPlatform platform;
    ctlOptions options;
    QVERIFY(options.chkIncludePropBagItems->isChecked());
}

void tst_ctlOptions_General::wordButtonIsDisabledWithoutAWordProcessor() {
    // No word processor on the search path, whatever this machine has installed.
    QTemporaryDir emptyFolder;
    QVERIFY(emptyFolder.isValid());
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", emptyFolder.path().toLocal8Bit());
    const auto restorePath = qScopeGuard([&] { qputenv("PATH", oldPath); });
    ScriptedPlatform platform;
    ctlOptions options;
    bool blnInstalled = true;
    DataAccess::Instance().IsWriterInstalled(blnInstalled);
    QCOMPARE(options.cmdAddButtonsToNormal->isEnabled(), blnInstalled);
    QVERIFY(!options.cmdAddButtonsToNormal->isEnabled());
    QCOMPARE(options.cmdAddButtonsToNormal->text(),
             QStringLiteral("&Add Corvantis Browser Buttons to Microsoft Word"));
}

// ---------------------------------------------------------------- changes

void tst_ctlOptions_General::typingInOwnerWritesTheFileOncePerChangeEvent() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    TraceFile trace;
    const QString typed = QStringLiteral("Abbey");
    for (qsizetype i = 0; i < typed.size(); ++i) {
        QTest::keyClick(options.txtOwner, typed.at(i).toLatin1());
        QCOMPARE(Option(QStringLiteral("Owner")), typed.left(i + 1));
    }
    qint32 changes = 0;
    for (const QString& line : trace.NewLines())
        changes += line.startsWith(QStringLiteral("QVLTCONTROLS:ctlOptions:txtOwner_Change @ "));
    QCOMPARE(changes, typed.size());
    QTest::keyClick(options.txtOwner, Qt::Key_Backspace);
    QCOMPARE(Option(QStringLiteral("Owner")), QStringLiteral("Abbe"));
}

void tst_ctlOptions_General::choosingAStartupPageWritesItsText() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.cboStartupTab->setCurrentIndex(1);
    QCOMPARE(Option(QStringLiteral("StartupTab")), QStringLiteral("ServiceItems"));
    options.cboStartupTab->setCurrentIndex(2);
    QCOMPARE(Option(QStringLiteral("StartupTab")), QStringLiteral("Options"));
}

void tst_ctlOptions_General::tipsCheckBoxWritesTrueAndFalse() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.chkShowTipsAtStartUp->click();
    QCOMPARE(Option(QStringLiteral("ShowTips")), QStringLiteral("True"));
    options.chkShowTipsAtStartUp->click();
    QCOMPARE(Option(QStringLiteral("ShowTips")), QStringLiteral("False"));
}

void tst_ctlOptions_General::toolbarAndPropBagCheckBoxesStoreTheirFields() {
    ScriptedPlatform platform;
    ctlOptions options;
    QVERIFY(options.chkAlwaysShowToolbars->isChecked());
    options.chkAlwaysShowToolbars->click();
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 0);
    options.chkIncludePropBagItems->click();
    const qint32 lngPropBags = Field(*m_db, QStringLiteral("IncludePropsOnImpExp")).toInt();
    QCOMPARE(lngPropBags, options.chkIncludePropBagItems->isChecked() ? 1 : 0);
    options.chkIncludePropBagItems->click();
    QCOMPARE(Field(*m_db, QStringLiteral("IncludePropsOnImpExp")).toInt(), 1 - lngPropBags);
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
    QVERIFY(!SettingsFileExists());
}

void tst_ctlOptions_General::bothFileCopyOptionsStoreTrueInTheToolbarField() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.chkAlwaysShowToolbars->click();
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 0);
    options.optCopy->click();
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 1);
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Options SET AlwaysShowGalleryToolbars = 0")));
    options.optDontCopy->click();
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 1);
}

void tst_ctlOptions_General::sampleModePressedTwiceReturnsTheKeyAndShowsTheRestartMessageTwice() {
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("IsSampleMode"),
                                        QStringLiteral("False"));
    ScriptedPlatform platform;
    ctlOptions options;
    QSignalSpy changed(&options, &ctlOptions::SampleModeValueChanged);
    platform.QueueAnswer(vbOK);
    options.cmdSampleMode->click();
    QCOMPARE(Option(QStringLiteral("IsSampleMode")), QStringLiteral("True"));
    QCOMPARE(options.cmdSampleMode->text(), QStringLiteral("Turn off Sample mode"));
    platform.QueueAnswer(vbOK);
    options.cmdSampleMode->click();
    QCOMPARE(Option(QStringLiteral("IsSampleMode")), QStringLiteral("False"));
    QCOMPARE(options.cmdSampleMode->text(), QStringLiteral("Change to Sample mode"));
    QCOMPARE(platform.BoxCount(), 2);
    for (const ScriptedPlatform::Box& box : platform.Boxes()) {
        QCOMPARE(box.Prompt,
                 QStringLiteral("You must restart Corvantis for changes to take effect"));
        QCOMPARE(box.Title, QStringLiteral("Restart Corvantis"));
        QCOMPARE(box.Buttons, vbOKOnly);
    }
    QCOMPARE(changed.count(), 2);
}

void tst_ctlOptions_General::sampleModeWithoutAKeyIsTurnedOnFirst() {
    ScriptedPlatform platform;
    ctlOptions options;
    platform.QueueAnswer(vbOK);
    options.cmdSampleMode->click();
    QCOMPARE(Option(QStringLiteral("IsSampleMode")), QStringLiteral("True"));
    QVERIFY(DataAccess::IsSampleMode());
}

void tst_ctlOptions_General::browsingForTheDatabaseStoresItsFolderAndAsksForARestart() {
    ScriptedPlatform platform;
    ctlOptions options;
    QSignalSpy changed(&options, &ctlOptions::SampleModeValueChanged);
    platform.QueueOpenFile(QStringLiteral("/srv/church/data/Corvantis.pdb"));
    platform.QueueAnswer(vbOK);
    options.cmdBrowse->click();
    QCOMPARE(Setting(QStringLiteral("Paths"), QStringLiteral("Data")),
             QStringLiteral("/srv/church/data/"));
    QCOMPARE(options.txtDataPath->text(), QStringLiteral("/srv/church/data/"));
    QCOMPARE(options.txtDataPath->property("Tag").toString(),
             QStringLiteral("/srv/church/data/Corvantis.pdb"));
    const ScriptedPlatform::Dialog dialog = platform.Dialogs().constLast();
    QCOMPARE(dialog.Kind, QStringLiteral("Open"));
    QCOMPARE(dialog.Filter,
             QStringLiteral("Corvantis Database File (Corvantis.pdb)|Corvantis.pdb"));
    QCOMPARE(dialog.Title, QStringLiteral("Select the Corvantis database file"));
    QVERIFY(dialog.CancelError);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("Data path changed. You must restart Corvantis for the change to "
                            "take effect"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Path Changed"));
    QCOMPARE(changed.count(), 1);
}

void tst_ctlOptions_General::cancellingTheDatabaseDialogChangesNothingAndSaysNothing() {
    ScriptedPlatform platform;
    ctlOptions options;
    QSignalSpy changed(&options, &ctlOptions::SampleModeValueChanged);
    platform.QueueOpenFile(QString());
    options.cmdBrowse->click();
    QCOMPARE(platform.BoxCount(), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(options.txtDataPath->text(), QString());
    QVERIFY(!SettingsFileExists());
}

void tst_ctlOptions_General::wordButtonShowsTheLibrarysErrorTextInAPlainBox() {
    // Without Writer on the PATH the data library answers with an error text.
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    const auto restorePath = qScopeGuard([&] { qputenv("PATH", oldPath); });
    ScriptedPlatform platform;
    ctlOptions options;
    QString strExpected;
    DataAccess::Instance().AddBrowserButtonsToWord(strExpected);
    QVERIFY(!strExpected.isEmpty());
    platform.QueueAnswer(vbOK);
    QVERIFY(QMetaObject::invokeMethod(&options, "cmdAddButtonsToNormal_Click"));
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, strExpected);
    QCOMPARE(platform.LastBox().Buttons, vbOKOnly);
    QCOMPARE(platform.LastBox().Title, QString());
}

void tst_ctlOptions_General::aboutButtonRaisesAboutCorvantis() {
    ScriptedPlatform platform;
    ctlOptions options;
    QSignalSpy about(&options, &ctlOptions::AboutCorvantis);
    options.cmdAbout->click();
    QCOMPARE(about.count(), 1);
    QCOMPARE(platform.BoxCount(), 0);
}

// ---------------------------------------------------------------- bad input

void tst_ctlOptions_General::settingsFileThatCannotBeWrittenIsReportedOnceAndTheScreenGoesOn() {
    // A folder in the place of the file: no one, not even an administrator, can
    // write the file there.
    QVERIFY(QDir().mkpath(Settings::IniPath()));
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    platform.QueueAnswer(vbOK);
    QTest::keyClicks(options.txtOwner, QStringLiteral("ab"));
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Settings not saved"));
    QVERIFY(platform.LastBox().Prompt.contains(Settings::IniPath()));
    QVERIFY(platform.LastBox().Prompt.contains(QStringLiteral("Owner")));

    // The sample mode is not changed when its key cannot be written, and no
    // restart is asked for.
    QSignalSpy changed(&options, &ctlOptions::SampleModeValueChanged);
    options.cmdSampleMode->click();
    QCOMPARE(options.cmdSampleMode->text(), QStringLiteral("Change to Sample mode"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(platform.BoxCount(), 1);

    // The options row goes on working.
    options.chkAlwaysShowToolbars->click();
    QCOMPARE(Field(*m_db, QStringLiteral("AlwaysShowGalleryToolbars")).toInt(), 0);
    QCOMPARE(m_db->Count(QStringLiteral("Options")), 1);
    ShowTab(options, 2);
    ShowTab(options, 0);
    QCOMPARE(platform.BoxCount(), 1);
}

QTEST_MAIN(tst_ctlOptions_General)
#include "tst_ctlOptions_General.moc"
