#pragma once

#include "run/KeptItemRows.h"
#include "run/MediaPlayer.h"

#include <QList>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QTreeWidgetItem;
class Recordset;
class SSRibbon;
class SSTab;
class VBImageList;
class VBNode;
class VBTreeWidget;
class ctlServiceItemGallery;

// The operator's console while a service runs. It is a passive view with a
// small protocol: every press of the operator goes to the host as an event,
// the host moves the projector and calls back to say what shows now, and the
// console repaints its labels and lists and refreshes the mirror. It stores
// almost nothing: which item runs is the selected node of tvwRun, which part
// runs the selected row of the part list, and a prop runs while
// fraPropDetails is visible.
//
// Item index, in every member and event: the node's 1-based index in tvwRun
// minus 1, so the root is 0 and the first shown item 1; rows hidden at run
// time don't count. Part index: from the host (SIPartChanged) the 1-based row,
// to the host (ShowVerse, ShowPropVerse) the row minus 1.
//
// What the host does back:
//   loaded a service            write RunningService, once, before anything else
//   ran one item by itself      ShowSIAsRunning(id, false), no service loaded
//   moved to another part       SIPartChanged(part from 1, 2)
//   shows the last part         AtEndOfSI
//   moved to another item       ShowServiceSIAsRunning, or write RunningServiceServiceItem
//   ShowSI (a prop started)     nothing for the console; it runs the prop
//   the prop has ended          PropRunEnded
//   TurnOn/OffProjector         ProjectorTurnedOn / ProjectorTurnedOff (which raise
//                               the event once more: the host must tolerate that)
//   EndRun                      ends the run, or ends the prop and calls PropRunEnded
//   Increase/DecreaseSize       JustIncreasedSize / JustDecreasedSize
//
// The projector: ProjectorRect is the second monitor of clsMonitors, found at
// initialise; the mirror imgMirror is a still grab of it, refreshed after the
// operator's actions. The host's projector window carries the title
// "CorvantisRunForm" and is of the class ProjectorWindow.
//
// Failures: RunningService, ShowServiceSIAsRunning, ShowSIAsRunning and
// SIPartChanged have no handler, so a failure inside them (all rows of a
// service hidden, an index beyond the nodes or rows) reaches the caller as a
// VBError. The click handlers run under ErrorReport::Guard.
class ctlRun : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description)
    // Reads 0, always: the id is stored but not returned.
    Q_PROPERTY(qint32 RunningService READ RunningService WRITE setRunningService)
    // Write-only for the host; it reads 0 through the property system.
    Q_PROPERTY(qint16 RunningServiceServiceItem READ RunningServiceServiceItemUnread WRITE
                   setRunningServiceServiceItem)
    Q_PROPERTY(qint16 ServiceSI READ ServiceSI)
    Q_PROPERTY(qint32 RunningServiceItem READ RunningServiceItem WRITE setRunningServiceItem)
    Q_PROPERTY(bool IsAtEndOfSI READ IsAtEndOfSI WRITE setIsAtEndOfSI)

public:
    explicit ctlRun(QWidget* parent = nullptr);
    ~ctlRun() override;

    // ---- Members common to the controls ----
    QString Description() const; // "RunControl"
    // Asks "Do you want to stop running this item?". Yes presses cmdEnd (twice
    // while a prop runs: once for the prop, once for the run) and answers True.
    bool CanUnload();

    // ---- Loading and showing (called by the host) ----
    qint32 RunningService() const { return 0; }
    // Loads the run of service lngServiceID into tvwRun and shows its first
    // item, without raising an event.
    void setRunningService(qint32 lngServiceID);
    // Shows item intServiceSI as current, without part handling.
    void setRunningServiceServiceItem(qint16 intServiceSI);
    // Shows item intServiceSI as current; a part other than 0 is passed on to
    // SIPartChanged when no part list is showing.
    void ShowServiceSIAsRunning(qint16 intServiceSI, qint32 lngNewPartID, qint16 NewPartType);
    // Brings labels, part list and captions in line with service item lngSIID.
    void ShowSIAsRunning(qint32 lngSIID, bool blnIsPartOfActiveService);
    // The host shows part lngPartID (from 1) now; PartType 2 is a part of a song.
    void SIPartChanged(qint32 lngPartID, qint16 PartType);
    void AtEndOfSI();
    void ProjectorTurnedOn();
    void ProjectorTurnedOff();
    void PropRunEnded();
    void JustIncreasedSize();
    void JustDecreasedSize();

    // ---- Mirror and music ----
    // imgMirror shows GetOLEScreenSnapshot. Called after each action of the
    // operator that moves the projector (and by cmdRefresh); there is no timer.
    void RefreshScreenMirror();
    // A still picture of the projector monitor, grabbed by Platform::GrabDesktop:
    // ProjectorRect's width and height from x = its left and y = 0 of the desktop
    // (its top is not used). Empty while ProjectorRect is zeros.
    QPixmap GetOLEScreenSnapshot();
    // Loads the music of item lngSIID into MediaPlayer2 (a music item's own
    // file, or the file or music item named by its ServiceItemMusic) and plays
    // it when the AutoPlayMusic option is on. Shows the item's StartMusicPrompt
    // first, titled "Prompt". Answers
    //   0 loaded, or a music item's file has moved and the user was told
    //   1 the music link named another item, played by a call of its own
    //   2 the item is not there, or the look-up of its file failed
    //   3 a linked file has moved (the link is cleared), or a music item has no file
    // A failure shows the full error box and answers 0.
    qint16 PlayMusic(qint32 lngSIID, QString& strErrorMessage);
    qint16 PlayMusic(qint32 lngSIID);
    // The AutoPlayMusic option. No handler.
    bool ShouldAutoPlayMusic();
    // Left, top, width and height of the projector monitor in desktop pixels;
    // all zeros with one monitor.
    QRect ProjectorRect() const { return m_ProjectorRect; }

    // ---- Hollow members: part of the interface, they keep no state ----
    qint16 ServiceSI() const { return 0; }
    qint32 RunningServiceItem() const { return 0; }
    void setRunningServiceItem(qint32 lngServiceItem) { Q_UNUSED(lngServiceItem); }
    bool IsAtEndOfSI() const { return false; }
    void setIsAtEndOfSI(bool blnValue) { Q_UNUSED(blnValue); }

    // ---- Child widgets (objectName() is the member's name) ----
    QScrollArea* SSScroll1 = nullptr;
    QGroupBox* fraMainCaption = nullptr;
    QLabel* lblMainCaption = nullptr;
    SSTab* SSTab1 = nullptr;
    QGroupBox* fraOverview = nullptr;
    VBTreeWidget* tvwRun = nullptr;
    QGroupBox* fraMain = nullptr;
    QLabel* lblSIType = nullptr;
    QLabel* lblSIDescription = nullptr;
    VBTreeWidget* lvwSIContent = nullptr;
    QGroupBox* fraPropDetails = nullptr;
    QLabel* lblPropType = nullptr;
    QLabel* lblPropDescription = nullptr;
    VBTreeWidget* lvwPropSIContent = nullptr;
    MediaPlayer* MediaPlayer2 = nullptr;
    QLabel* imgMirror = nullptr;
    QPushButton* cmdBack = nullptr;
    QPushButton* cmdForward = nullptr;
    QPushButton* cmdEnd = nullptr;
    QPushButton* cmdRefresh = nullptr;
    SSRibbon* cmdMakeSmaller = nullptr;
    SSRibbon* cmdMagnify = nullptr;
    SSRibbon* cmdShowProperties = nullptr;
    QCheckBox* chkProjectorOn = nullptr;
    SSTab* ssTabExtras = nullptr;
    VBTreeWidget* lvwProps = nullptr;
    ctlServiceItemGallery* ctlServiceItemGallery1 = nullptr;
    VBImageList* imlServiceItems = nullptr;
    VBImageList* imlVerseChorus = nullptr;

signals:
    void ShowNextClicked();
    void ShowPreviousClicked();
    void ShowSI(qint32 lngSIID);
    void ShowService(qint32 lngServiceID); // never raised
    void ShowVerse(qint16 intVerseIndex);
    void ShowPropVerse(qint16 intVerseIndex);
    void ShowChorus(); // never raised
    void IncreaseSize();
    void DecreaseSize();
    void ShowNextSI();     // never raised
    void ShowPreviousSI(); // never raised
    void ShowServiceSI(qint16 intIndex);
    void EndRun();
    void TurnOnProjector();
    void TurnOffProjector();
    void ShowPropButtonClicked();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private slots:
    void cmdForward_Click();
    void cmdBack_Click();
    void cmdEnd_Click();
    void cmdRefresh_Click();
    void tvwRun_NodeClick(QTreeWidgetItem* Node);
    void chkProjectorOn_Click();
    void cmdShowProperties_Click(bool Value);
    void cmdMagnify_Click(bool Value);
    void cmdMakeSmaller_Click(bool Value);
    void SSTab1_Click(qint16 PreviousTab);
    void lvwSIContent_ItemClick(QTreeWidgetItem* Item);
    void lvwPropSIContent_ItemClick(QTreeWidgetItem* Item);
    void lvwProps_DblClick();
    void ctlServiceItemGallery1_SIDblClicked(qint32 SIId);

private:
    friend class tst_ctlRun_SongSequence;
    friend class tst_ctlRun_Mirror;
    friend class tst_ctlRun_TwoScreens;

    // Frame (ctlRun.cpp).
    void UserControl_Initialize();
    void UserControl_Resize();
    void CreateWidgets();
    void CreateMainFrame();
    void CreateExtras();
    void ConnectWidgets();
    void LoadGeneralTab(QString& strErrorMessage);
    qint16 RunningServiceServiceItemUnread() const { return 0; }

    // Loading (ctlRun_Load.cpp).
    void AddRunNode(qint32 lngPosition, qint32 lngServiceItemID);
    // The item's description with the stored apostrophe marker decoded; the
    // look-ups report into strErrorMessage.
    static QString ItemDescription(qint32 lngSIID, QString& strErrorMessage);
    // The row of one service item, as GetServiceItems gives it (nullptr when
    // the store could not answer).
    static std::unique_ptr<Recordset> ServiceItemRow(qint32 lngSIID, QString& strErrorMessage);
    // Raises 91 for a missing recordset; false when it holds no rows, else it
    // stands on its first row, its last visited so that RecordCount is known.
    static bool HasRows(Recordset* rs);
    void ClearBoldNodes();
    void ShowSelectedNodeAsRunning();

    // Showing an item (ctlRun_Showing.cpp).
    bool IsPropRun(bool blnIsPartOfActiveService) const;
    void ShowSILabels(const Recordset& rs, qint32 lngSIID, qint16 intType, bool blnIsPropRun,
                      QString& strDescription);
    void ShowSIFrame(bool blnIsPartOfActiveService, const QString& strDescription);
    bool ShowSIContent(const Recordset& rs, qint32 lngSIID, qint16 intType,
                       bool blnIsPartOfActiveService);
    bool ShowSIMusic(const Recordset& rs, qint32 lngSIID, qint16 intType);
    void ShowSICaptions(bool blnIsPropRun);

    // Operator (ctlRun_Operator.cpp).
    void UserControl_Show();
    // Raises the event of Forward or Back with the button disabled, pumps
    // messages, then refreshes the mirror: one grab per press.
    void NavigationPress(QPushButton* cmd, const std::function<void()>& raise);
    void UserControl_KeyUp(qint16 KeyCode, qint16 Shift);

    // Song sequence (ctlRun_SongSequence.cpp).
    void SetupSong(qint32 lngSIID, bool blnIsPartOfActiveService);
    void FillSongList(VBTreeWidget* lvw, qint32 lngSIID);
    static void MarkPart(VBTreeWidget* lvw, const VBNode& Item);

    // Prop bag (ctlRun_PropBag.cpp).
    void AddServicePropBagItems(qint32 lngService, QString& strErrorMessage);
    bool AddServicePropBagItem(qint32 lngPropSIID, QString& strErrorMessage);

    // Music (ctlRun_Music.cpp).
    qint16 PlayMusicOfItem(qint32 lngSIID, QString& strErrorMessage);
    qint16 PlayMusicOfMusicItem(qint32 lngSIID, QString& strErrorMessage);
    qint16 PlayMusicOfLink(qint32 lngSIID, const QVariant& varMusic, QString& strErrorMessage);
    void TellMusicFileMoved();
    void LoadMusic(const QString& strPath);
    void StopMusic();

    // Mirror, monitors and the projector window (ctlRun_Mirror.cpp).
    void FindProjectorRect();
    // imgMirror takes a new grab.
    void GrabMirror();
    // The host's projector window: the first top-level window whose title
    // starts with "CorvantisRunForm" and whose class name, as
    // metaObject()->className() gives it, is "ProjectorWindow" (the host's
    // host/ProjectorWindow.h); nullptr when there is none. The answer also goes
    // to hWnd. Nothing calls it today: title and class are the contract with
    // the host.
    QWidget* GetProjectorWindowHandle(QWidget*& hWnd);

    // The running service; 0 from creation, set only by setRunningService,
    // never reset. Non-zero means a service run, 0 a run of one item by itself.
    qint32 m_lngRunningServiceID = 0;
    QRect m_ProjectorRect;
    // Tested by SSTab1_Click, never set.
    bool m_blnGeneralTabLoaded = false;
    bool m_blnShown = false;
    // Events of Forward and Back presses running now (nested when the host
    // pumps messages), and whether a mirror refresh was asked for meanwhile.
    qint32 m_intPressEvents = 0;
    bool m_blnMirrorAskedInPress = false;
    // The rows of the items shown, kept while the database does not change.
    KeptItemRows m_itemRows;
    // The items whose music is being looked up, outermost first: a music link
    // that leads back to one of them is a loop.
    QList<qint32> m_lstMusicChain;
};
