#pragma once

#include "foundations/ControlFrame.h"
#include "foundations/Unloadable.h"

#include <QString>
#include <QWidget>
#include <memory>

class EditorCycle;
class ListManager;
class MediaPlayer;
class PointList;
class PresentationView;
class QCheckBox;
class QComboBox;
class QFileDialog;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;
class Recordset;
class SSTab;
class VBImageList;
class ctlServiceItemGallery;

// The service item editor: one song, prayer, reading, picture, piece of music,
// presentation or points list, viewed and edited on five tabs (General
// Details, Content, Run Mode Details, Prop Bag, Points List). The host sets
// Items to the item's id and calls ShowProperties; each tab is filled the
// first time it is shown. An edit raises the dirty flag of its tab and enables
// cmdSave; cmdSave, or a Yes to the save question when the host moves away,
// checks and stores every changed tab in one transaction, and SIUpdated tells
// the host that the item's description, source or type may have changed.
// The points of the Points List tab are stored at each change of the outline.
//
// The type of an item rules which tabs are in use and which changes of type
// are allowed: music never changes type, pictures only change to pictures, a
// song cannot become a points list nor the other way round.
class ctlServiceItem : public QWidget, public Unloadable {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ Items WRITE setItems)
    Q_PROPERTY(::ViewMode ViewMode READ GetViewMode WRITE setViewMode)
public:
    explicit ctlServiceItem(QWidget* parent = nullptr);
    ~ctlServiceItem() override;

    // ---- Members offered to the host ----
    // Offers to save changes; always answers True.
    bool CanUnload() override;
    // Always "ServiceItemControl"; the let form sets the caption text.
    QString Description() const;
    void setDescription(const QString& strDescription) { m_strDescription = strDescription; }
    QString Items() const { return m_strItems; }
    void setItems(const QString& strItems) { m_strItems = strItems; }
    ::ViewMode GetViewMode() const { return m_viewMode; }
    void setViewMode(::ViewMode Mode) { m_viewMode = Mode; }
    // Shows the item named by Items. Mode is ignored.
    void ShowProperties(::ViewMode Mode = vmEdit);
    // 1 passed, 2 an error text came back, 3 refused with the message shown.
    qint16 DoChecks(QString& strErrorMessage);
    // Shows the slides of a presentation over objParent (txtFileContent when the
    // user double clicks a presentation's name), converted by LibreOffice
    // Impress; strErrorMessage says why a file cannot be shown.
    void ShowPowerPointFile(const QString& strPowerPointFile, QWidget* objParent,
                            QString& strErrorMessage);

    // ---- State, read by tests and by the host ----
    qint32 ServiceItemID() const { return lngServiceItemID; }
    qint32 ServiceItemTypeID() const { return lngServiceItemTypeID; }
    bool GeneralDirty() const;
    bool ContentDirty() const;
    bool RunDetailsDirty() const;
    bool PropBagDirty() const;
    bool ServiceItemChangedNotify() const;
    bool ContentTextChanged() const { return blnContentTextChanged; }
    bool ShowingProperties() const { return blnShowingProperties; }
    bool GeneralLoaded() const { return blnGeneralLoaded; }
    bool ContentLoaded() const { return blnContentLoaded; }
    bool RunDetailsLoaded() const { return blnRunDetailsLoaded; }
    bool PropBagLoaded() const { return blnPropBagLoaded; }
    bool PointsLoaded() const { return blnPointsLoaded; }
    // Selects the combo entry of a type as the user does (runs the type rule).
    void ChooseServiceItemType(qint32 lngTypeID);

    // ---- Children, by their documented names ----
    QScrollArea* SSScroll1 = nullptr;
    QGroupBox* fraMainCaption = nullptr;
    QLabel* lblMainCaption = nullptr;
    QPushButton* cmdSave = nullptr;
    SSTab* SSTab1 = nullptr;
    VBImageList* imlServiceItems = nullptr;

    // General Details
    QGroupBox* fraGeneralProps = nullptr;
    QComboBox* imgcboServiceItemTypes = nullptr;
    QLabel* Image1 = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLineEdit* txtServiceItemSource = nullptr;
    QLineEdit* txtLocation = nullptr;
    QLineEdit* txtCopyright = nullptr;
    QLabel* lblCaptionSongKey = nullptr;
    QLineEdit* txtSongKey = nullptr;
    QLabel* lblCaptionMelody = nullptr;
    QLineEdit* txtMelody = nullptr;
    QLabel* lblProvider = nullptr;
    QLabel* lblServiceItemDateAdded = nullptr;
    QGroupBox* fraNotes = nullptr;
    QTextEdit* txtNotes = nullptr;
    ListManager* lmgKeywords = nullptr;
    ListManager* lmgResources = nullptr;

    // Content
    SSTab* SSTab2 = nullptr;
    QTextEdit* txtFileContent = nullptr;
    QLabel* imgContent = nullptr;
    QGroupBox* fraListenToMusic = nullptr;
    MediaPlayer* MediaPlayer1 = nullptr;
    QGroupBox* fraOpeningFile = nullptr;
    QLineEdit* txtFilename = nullptr;
    QPushButton* cmdBrowse = nullptr;
    QFileDialog* CommonDialog1 = nullptr;
    QTextEdit* txtContent = nullptr;
    // The slides of the presentation opened by a double click, shown over
    // txtFileContent; nullptr when none is open (ShowPowerPointFile).
    PresentationView* objPowerPoint = nullptr;

    // Run Mode Details
    QGroupBox* fraDisplay = nullptr;
    QCheckBox* chkShowAsPointsList = nullptr;
    QGroupBox* fraAsPointsList = nullptr;
    QRadioButton* optOnePointAtATime = nullptr;
    QRadioButton* optAllPointsByRevealing = nullptr;
    QRadioButton* optAllPointsAtOnce = nullptr;
    QGroupBox* fraSubPoints = nullptr;
    QCheckBox* chkShowSubPointsOneByOne = nullptr;
    QGroupBox* fraNotAsPointsList = nullptr;
    QRadioButton* optShowEntireSI = nullptr;
    QRadioButton* optShowSILineByLine = nullptr;
    QLineEdit* txtNumLinesToShowPerTime = nullptr;
    QRadioButton* optShowAsMuchAsWillFit = nullptr;
    QRadioButton* optVerseByVerse = nullptr;
    QPushButton* cmdRunBreakDownWizard = nullptr;
    QGroupBox* fraChecking = nullptr;
    QGroupBox* fraImages = nullptr;
    QTreeWidget* lvwUsedImages = nullptr;
    QLabel* imgPreview = nullptr;
    QPushButton* cmdNewImage = nullptr;
    QPushButton* cmdDeleteImages = nullptr;
    QLineEdit* txtChangeImageEveryXSeconds = nullptr;
    QRadioButton* optShowImagesWhileRunning = nullptr;
    QRadioButton* optHideImagesWhileRunning = nullptr;
    QGroupBox* fraImageDisplay = nullptr;
    QRadioButton* optShowUntilClick = nullptr;
    QRadioButton* optImageDisplayTime = nullptr;
    QLineEdit* txtImageDisplayMinutes = nullptr;
    QLineEdit* txtImageDisplaySeconds = nullptr;
    QGroupBox* fraMusic = nullptr;
    QLineEdit* txtMusicFile = nullptr;
    QPushButton* cmdBrowseMusicFile = nullptr;
    QPushButton* cmdSelectMusicSI = nullptr;
    QLineEdit* txtMusicPrompt = nullptr;
    QCheckBox* chkHideDetails = nullptr;

    // Prop Bag
    ctlServiceItemGallery* ctlServiceItemGallery1 = nullptr;
    QTreeWidget* lvwPropBag = nullptr;
    QPushButton* cmdMoveOneRight = nullptr;
    QPushButton* cmdMoveOneLeft = nullptr;
    QPushButton* cmdMoveAllLeft = nullptr;
    QLabel* lblSelectedItems = nullptr;

    // Points List
    PointList* PointList1 = nullptr;

    // Tabs of SSTab1, and the dirty flag of each (the Points List has none).
    enum Tab : qint16 {
        TabGeneral = 0,
        TabContent = 1,
        TabRunDetails = 2,
        TabPropBag = 3,
        TabPoints = 4
    };

signals:
    void SIUpdated(qint32 lngServiceItemID);

protected:
    void resizeEvent(QResizeEvent* event) override;
    // A text box of the item that gets the focus selects its whole text.
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void imgcboServiceItemTypes_Click();
    void SSTab1_Click(qint16 PreviousTab);
    void SSTab2_Click(qint16 PreviousTab);
    void cmdSave_Click();
    void txtDescription_Change();
    void txtServiceItemSource_Change();
    void GeneralText_Change();
    void lmgKeywords_BeforeItemAdd(bool& Cancel, QVariant& ItemDataToBeAdded,
                                   const QString& ListToBeAdded);
    void ListManager_Changed(ListManager* lmg);
    void txtContent_Change();
    void txtFilename_Change();
    void cmdBrowse_Click();
    void txtFileContent_DblClick();
    void RunDetail_Change();
    void chkShowAsPointsList_Click();
    void optVerseByVerse_Click();
    // Run Mode Details: text modes, pictures, display time, music
    // (ctlServiceItem_RunDetails*.cpp)
    void optShowSILineByLine_Click();
    void optAllPointsAtOnce_Click();
    void optShowImagesWhileRunning_Click();
    void optHideImagesWhileRunning_Click();
    void cmdNewImage_Click();
    void cmdDeleteImages_Click();
    void lvwUsedImages_ItemClick(QTreeWidgetItem* Item);
    void optShowUntilClick_Click();
    void optImageDisplayTime_Click();
    void txtImageDisplayMinutes_Change();
    void txtImageDisplaySeconds_Change();
    void cmdBrowseMusicFile_Click();
    void cmdSelectMusicSI_Click();
    void cmdRunBreakDownWizard_Click();
    void cmdMoveOneRight_Click();
    void cmdMoveOneLeft_Click();
    void cmdMoveAllLeft_Click();
    void lvwPropBag_Click();
    void ctlServiceItemGallery1_SIClicked();
    void ctlServiceItemGallery1_SIDblClicked();
    void ctlServiceItemGallery1_SIListFilterChanged();
    void PointList1_PointChanged();
    void PointList1_PointRenamed();
    void UserControl_LostFocus();

private:
    // Frame and tabs (ctlServiceItem_Layout.cpp)
    void CreateWidgets();
    QWidget* CreateGeneralTab();
    QWidget* CreateContentTab();
    QWidget* CreateRunDetailsTab();
    QWidget* CreatePropBagTab();
    QWidget* CreatePointsTab();
    void ConnectWidgets();
    void UserControl_Resize();

    // General tab and the type rule (ctlServiceItem_General.cpp)
    void UserControl_Initialize();
    void LoadTypes();
    void LoadAvailableKeywords();
    void LoadGeneralTab();
    bool FillGeneralTab();
    void SetupServiceItemTypeCombo();
    void RestoreServiceItemType();
    void ShowSongFields(bool blnShow);
    void SetTabsForType(qint32 lngTypeID);
    void LoadTab(qint16 intTab);
    qint32 SelectedTypeImage() const;

    // Content sources: what each file shows, choosing, dropping and opening a
    // file, and the presentation (ctlServiceItem_Content*.cpp)
    void ConnectContentSources();
    void ConnectContentDrops();
    void ResetContentBoxes();
    void NameContentFile(const QString& strPath);
    void ShowContentPicture(const QString& strPath);
    void ShowContentMusic(const QString& strPath);
    void ClearContentPicture();
    void SetContentPicture(const QString& strPath, const QSize& szTwips);
    void FitContentPicture();
    void txtContent_OLEDragDrop(const QStringList& Files);
    void txtFilename_OLEDragDrop(const QStringList& Files);
    QString TakeDroppedFile(const QStringList& Files);
    void ClosePowerPoint();
    bool blnOpeningPresentation = false; // ShowPowerPointFile is waiting for LibreOffice
    bool blnClosePresentation = false;   // closed meanwhile: ShowPowerPointFile ends it

    // Prop bag (ctlServiceItem_PropBag.cpp)
    void LoadPropBagTab();
    void SetUpPropBagButtons();

    // Points and the song breakdown (ctlServiceItem_Points.cpp)
    void LoadPoints();
    void SavePoints();
    bool ItemHasVerses();
    void RunBreakdownWizard();

    // Content and run details: fields kept through an edit
    // (ctlServiceItem_Content.cpp, ctlServiceItem_RunDetails.cpp)
    void LoadContent();
    void LoadRunDetails();
    void SaveRunDetails();
    void SetupRunTimeImages(bool blnLoadImagesFromDatabase);
    void ConnectRunDetails();
    void SelectImagesOption(bool blnShow);
    void EnableImageWidgets(bool blnEnable);
    void ClickFirstImage();
    void AddImageEntry(qint32 lngImageID, const QString& strDescription);
    bool AcceptPictureFile(const QString& strFile);
    QString GetOpenName(const QString& strStart);
    void TimeBox_Change(QLineEdit* box, const QString& strWhat);
    void EnableTimeBoxes();
    void SetMusic(const QString& strTag, const QString& strText);
    void ShowStoredMusic(const QVariant& varMusic);
    void PlaceHideDetails(QWidget* below);
    void PlacePointsFrames(bool blnHasPoints);

    // Checks and save (ctlServiceItem_Save.cpp)
    qint16 DoRunDetailsCheck(QString& strErrorMessage);
    void SaveChanges(bool blnChangingToOtherControl);
    bool SaveGeneral(const QString& strPrefix);
    bool SaveContent(const QString& strPrefix);
    bool SavePropBag();
    void CleanControl(bool blnChangingToOtherControl);

    // Shared helpers
    void Changed(qint16 intTab);
    static QString Decoded(const QString& strText);
    QString WhereThisItem() const;

    EditorCycle* m_cycle = nullptr;
    QString m_strDescription;
    QString m_strItems;
    ::ViewMode m_viewMode = vmEdit;
    qint32 lngServiceItemID = 0;
    qint32 lngServiceItemTypeID = 0;
    bool blnShowingProperties = false;
    bool blnContentTextChanged = false;
    bool blnGeneralLoaded = false;
    bool blnContentLoaded = false;
    bool blnRunDetailsLoaded = false;
    bool blnPropBagLoaded = false;
    bool blnPointsLoaded = false;
    bool blnTypesLoaded = false;
    bool blnKeywordsLoaded = false;
    bool blnSettingType = false;
};
