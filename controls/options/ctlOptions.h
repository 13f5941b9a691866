#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QTableWidget;
class Recordset;
class SSTab;
class VBImageList;

// The settings screen. It has no Apply button: every change goes to its store
// the moment it is made, either to the settings file Corvantis.ini (what the
// host needs before it opens the database) or to the one-row options record of
// the database (everything else).
//
// Four tabs on SSTab1, each loaded when it first comes up:
//   0 "General Options"      owner, data path, start-up page, sample mode, tips,
//                            gallery toolbars, prop bags on export; loaded
//                            again every time it comes up
//   1 " Service Building"    per service item type, the defaults a new row of
//                            a service takes (grid with a Yes/No combo
//                            floating over the current cell)
//   2 " Run Mode Details"    how a run looks on the projector: font, colours,
//                            background picture, transitions, points, details
//   3 "Church Properties"    the church's details for printed sheets, and its
//                            logo, copied into the data folder
// Tabs 1 to 3 load once per control instance.
//
// Widget conventions: a value that the widget kept beside its text (the full
// name of the chosen database, the background picture's id or path) is the
// dynamic property "Tag" of the widget. Combo boxes store the item data
// (Qt::UserRole) of their entries. Setting a combo's current index, a check
// box's state or a text box's text by code raises the change handler as a
// user's change does, so loading a tab stores what it shows (as the church
// prompts show).
//
// Failures to store: a settings file or options record that cannot be written
// is reported once per control instance in a plain box (later failures only
// go to the trace log); the screen keeps working and nothing else changes.
class ctlOptions : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description)

public:
    explicit ctlOptions(QWidget* parent = nullptr);
    ~ctlOptions() override;

    // "OptionsControl".
    QString Description() const;
    // True, at once: there is nothing to save.
    bool CanUnload();

    // ---- Frame ----
    QScrollArea* SSScroll1 = nullptr;
    SSTab* SSTab1 = nullptr;

    // ---- Tab 0, general options ----
    QLineEdit* txtOwner = nullptr;
    QLineEdit* txtDataPath = nullptr;
    QPushButton* cmdBrowse = nullptr;
    QComboBox* cboStartupTab = nullptr;
    QGroupBox* fraMakeCopy = nullptr;
    QRadioButton* optCopy = nullptr;
    QRadioButton* optDontCopy = nullptr;
    QCheckBox* chkAlwaysShowToolbars = nullptr;
    QCheckBox* chkIncludePropBagItems = nullptr;
    QPushButton* cmdAddButtonsToNormal = nullptr;
    QPushButton* cmdSampleMode = nullptr;
    QCheckBox* chkShowTipsAtStartUp = nullptr;
    QPushButton* cmdAbout = nullptr;

    // ---- Tab 1, service building ----
    QTableWidget* fgServiceItemTypes = nullptr;
    QComboBox* cboCombo = nullptr;
    VBImageList* imgSITypes = nullptr;

    // ---- Tab 2, run mode details ----
    QLabel* lblBackGround2 = nullptr;
    QLabel* lblRunModeSample = nullptr;
    QPushButton* cmdChangeFont = nullptr;
    QPushButton* cmdChangeBackgroundColor = nullptr;
    QComboBox* cboBackgroundImages = nullptr;
    QPushButton* cmdBrowseBackgroundPicture = nullptr;
    QLabel* imgBackgroundPreview = nullptr;
    QCheckBox* chkUseTransitions = nullptr;
    QComboBox* cboTransition = nullptr;
    QComboBox* cboTransitionSpeed = nullptr;
    QComboBox* cboDisplayPointsMode = nullptr;
    QCheckBox* chkSubPointsOneByOne = nullptr;
    QCheckBox* chkShowDescription = nullptr;
    QCheckBox* chkShowOrigLocation = nullptr;
    QCheckBox* chkShowCopyright = nullptr;
    QCheckBox* chkShowSource = nullptr;
    QCheckBox* chkPlayMusicAutomatically = nullptr;

    // ---- Tab 3, church properties ----
    QLineEdit* txtChurchName = nullptr;
    QLineEdit* txtPastorName = nullptr;
    QLineEdit* txtChurchAddress1 = nullptr;
    QLineEdit* txtChurchAddress2 = nullptr;
    QLineEdit* txtChurchAddress3 = nullptr;
    QLineEdit* txtChurchAddress4 = nullptr;
    QLineEdit* txtChurchPhone = nullptr;
    QLineEdit* txtChurchPhone2 = nullptr;
    QLineEdit* txtChurchEmail = nullptr;
    QLineEdit* txtChurchWebSite = nullptr;
    QLineEdit* txtChurchMissionStatement = nullptr;
    QLineEdit* txtChurchLogoFilename = nullptr;
    QPushButton* cmdBrowseChurchLogo = nullptr;
    QLabel* imgChurchLogo = nullptr;

    // The prompt that stands in a church box while its field is Null; empty for
    // the boxes without one.
    static QString ChurchPrompt(const QString& strBoxName);

signals:
    // Raised by cmdSampleMode and by cmdBrowse (a new data path): the host
    // cannot tell the two apart, and either needs a restart.
    void SampleModeValueChanged();
    // cmdAbout: the host shows its about box.
    void AboutCorvantis();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void SSTab1_Click(qint16 PreviousTab);
    // Tab 0
    void txtOwner_Change();
    void cboStartupTab_Click();
    void chkShowTipsAtStartUp_Click();
    void chkAlwaysShowToolbars_Click();
    void chkIncludePropBagItems_Click();
    void optCopy_Click();
    void optDontCopy_Click();
    void cmdBrowse_Click();
    void cmdSampleMode_Click();
    void cmdAddButtonsToNormal_Click();
    void cmdAbout_Click();
    // Tab 1
    void fgServiceItemTypes_RowColChange();
    void cboCombo_Click();
    // Tab 2
    void cmdChangeFont_Click();
    void cmdChangeBackgroundColor_Click();
    void cboBackgroundImages_Click();
    void cmdBrowseBackgroundPicture_Click();
    void chkUseTransitions_Click();
    void cboTransition_Click();
    void cboTransitionSpeed_Click();
    void cboDisplayPointsMode_Click();
    void chkRunModeOption_Click(QCheckBox* chk, const QString& strField);
    // Tab 3
    void ChurchBox_Change(QLineEdit* txt);
    void txtChurchLogoFilename_Change();
    void cmdBrowseChurchLogo_Click();

private:
    // Construction, one part per tab.
    void CreateWidgets();
    QWidget* CreateGeneralTab();
    QWidget* CreateServiceBuildingTab();
    QWidget* CreateRunModeTab();
    QWidget* CreateChurchTab();
    void ConnectWidgets();
    void ConnectGeneralTab();
    void ConnectServiceBuildingTab();
    void ConnectRunModeTab();
    void ConnectChurchTab();

    void UserControl_Initialize();
    void UserControl_Resize();

    // The loaders of the tabs.
    void LoadGeneralTab(QString& strErrorMessage);
    void LoadServiceBuildingTab();
    void LoadRunModeDetailsTab();
    void LoadPreviewImage();
    void LoadChurchProps();
    void cboBackgroundImages_KeyPress(qint16& KeyAscii);

    // Run-mode helpers.
    QGroupBox* CreateRunModeTextFrame();
    QGroupBox* CreateBackgroundFrame();
    QGroupBox* CreateTransitionsFrame();
    void FillTransitionLists();
    bool FillBackgroundList();
    void ShowStoredBackground(const Recordset& rs);
    void ShowStoredTransition(const Recordset& rs);
    static bool UseTransitionsIsOn(qint32 lngBufferSize);
    void ApplyRunModeLook(const Recordset& rs);
    void SetSampleColours(qint32 lngForeColor, qint32 lngBackColor);
    void FitSamplePanel();
    void ClearBackgroundPreview();
    // Church helpers.
    void ShowChurchLogoMissing();
    QList<QLineEdit*> ChurchBoxes() const;

    // ---- The two stores ----
    // The options record, fetched for one read or change. A failure of the data
    // library is raised as a run-time failure (51) with its text.
    static std::unique_ptr<Recordset> FetchOptions();
    // Changes one field of the options record (fetch, edit, set, update,
    // release). A failure is reported (see the class comment).
    void StoreOption(const QString& strField, const QVariant& varValue);
    // Changes several fields in one edit of the record.
    void StoreOptions(const QList<std::pair<QString, QVariant>>& fields);
    // A key of Corvantis.ini, read as the profile functions read into a buffer
    // of lngBufferSize characters: at most lngBufferSize - 1 of them.
    static QString ReadSetting(const QString& strSection, const QString& strKey,
                               const QString& strDefault, qint32 lngBufferSize);
    // Writes a key of Corvantis.ini; false (and reported) when it cannot be written.
    bool WriteSetting(const QString& strSection, const QString& strKey, const QString& strValue);
    void ReportStoreFailure(const QString& strTitle, const QString& strText);

    bool m_blnGeneralTabLoaded = false; // never set: tab 0 reloads every time
    bool m_blnServiceBuildingTabLoaded = false;
    bool m_blnRunModeTabLoaded = false;
    bool m_blnChurchTabLoaded = false;
    bool m_blnStoreFailureShown = false;
};
