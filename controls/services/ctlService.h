#pragma once

#include "foundations/ControlFrame.h"
#include "foundations/Unloadable.h"

#include <QPoint>
#include <QString>
#include <QWidget>
#include <utility>

class EditorCycle;
class ListManager;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QTabWidget;
class QTableWidget;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;
class QVTimeSelector;
class Recordset;
class VBImageList;
class ctlServiceItemGallery;

// The service editor: one service of worship on three tabs, "General
// Details" (name, type, theme, notes, resources), "Content" (the ordered rows
// of the service in fgItemsInService, fed from an item gallery) and "Prop
// Bag" (items kept at hand during a run). Each tab is filled the first time
// it is looked at; the content and prop bag tabs are also made then. Changes
// raise a dirty flag per tab (the editor cycle's tabs 0, 1 and 2);
// cmdApplyChanges, or the question asked when the user leaves, stores them in
// one transaction: the whole service is stored, or nothing of it.
//
// The grid keeps everything a save needs in its own cells (see
// ctlService_Grid.cpp for its columns); row 0 is the header and an empty
// service still shows one empty row, row 1.
class ctlService : public QWidget, public Unloadable {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ Items WRITE setItems)
    Q_PROPERTY(::ViewMode ViewMode READ GetViewMode WRITE setViewMode)
public:
    explicit ctlService(QWidget* parent = nullptr);
    ~ctlService() override;

    // ---- The frame ----
    // Offers to save what is pending, then answers true whatever the answer.
    bool CanUnload() override;
    // "ServiceControl"; the let form stores the caption text.
    QString Description() const;
    void setDescription(const QString& strDescription) { m_strDescription = strDescription; }
    QString Items() const { return m_strItems; }
    void setItems(const QString& strItems) { m_strItems = strItems; }
    ::ViewMode GetViewMode() const { return m_viewMode; }
    void setViewMode(::ViewMode Mode) { m_viewMode = Mode; }
    void ShowProperties(::ViewMode Mode = vmEdit);

    // ---- The contents grid ----
    void AddServiceItemToServiceGrid(qint32 lngSIID, bool& blnShowAtRunTime,
                                     QString& strErrorMessage);
    void AddSIsThatArePartOfService(QString& strErrorMessage);
    void RedoNumbering();
    void SortOutNumbering();
    // Row and column of a point in twips of the grid's viewport; -1, -1 for none.
    std::pair<qint32, qint32> GetRowCol(QTableWidget* fg, qint32 X, qint32 Y);
    void SetUpAddingToServiceButtons();

    // The service in use (Items as a number, after ShowProperties).
    qint32 ServiceID() const { return lngServiceID; }
    // The last question about saving was answered No, and nothing changed
    // since: a host that removes the editor need not ask again.
    bool ChangesDeclined() const { return m_blnChangesDeclined; }
    bool GridIdle() const { return blnGridIdle; }
    // The item gallery of the Content tab has been loaded. On screen it loads
    // right after the grid has first been painted (see LoadContent).
    bool ItemGalleryLoaded() const { return m_blnItemGalleryLoaded; }

    // Grid columns.
    enum GridColumn : qint32 {
        colNumber = 0,
        colType = 1,
        colDescription = 2,
        colShowAtRunTime = 3,
        colShowAsPoints = 4,
        colLength = 5,
        colTypeID = 6,
        colSIID = 7,
        colCount = 8
    };

    // Children, by name (objectName is the member name).
    QScrollArea* SSScroll1 = nullptr;
    QGroupBox* fraMainCaption = nullptr;
    QLabel* lblMainCaption = nullptr;
    QPushButton* cmdApplyChanges = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtServiceName = nullptr;
    QComboBox* cboTheme = nullptr;
    QComboBox* cboTypes = nullptr;
    QLabel* lblProvider = nullptr;
    QLabel* lblServiceDateCreated = nullptr;
    QLabel* lblDateLastDelivered = nullptr;
    QGroupBox* fraNotes = nullptr;
    QTextEdit* txtNotes = nullptr;
    ListManager* lmgResources = nullptr;
    // The prop bag tab's children exist once that tab has been shown.
    ctlServiceItemGallery* ctlSIPropBag = nullptr;
    QTreeWidget* lvwPropBag = nullptr;
    QLabel* lblCaptionSelectedItems = nullptr;
    QPushButton* cmdMoveOneRight = nullptr;
    QPushButton* cmdMoveOneLeft = nullptr;
    QPushButton* cmdMoveAllLeft = nullptr;
    // The Content tab's children exist once that tab has been shown or its
    // rows have been asked for.
    QGroupBox* fraServiceContents = nullptr;
    QTableWidget* fgItemsInService = nullptr;
    ctlServiceItemGallery* ctlServiceItemGallery1 = nullptr;
    QPushButton* cmdMoveOneSIToService = nullptr;
    QPushButton* cmdAddBlank = nullptr;
    QPushButton* cmdMoveServiceSIUp = nullptr;
    QPushButton* cmdMoveServiceSIDown = nullptr;
    QPushButton* cmdDeleteSI = nullptr;
    QComboBox* cboYesNo = nullptr;
    QVTimeSelector* QVTimeSelector1 = nullptr;
    QLabel* lblTotalLength = nullptr;
    // Made with the first of the Content and Prop Bag tabs.
    VBImageList* imgSITypes = nullptr;

signals:
    // Raised after a save only behind a guard that nothing sets.
    void ServiceUpdated(qint32& lngServiceID);
    // For the host: raised after every save that stored the service, so that
    // lists showing it can be loaded again. (ServiceUpdated stays behind its
    // guard.)
    void ServiceStored(qint32 lngServiceID);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void SSTab1_Click(int PreviousTab);
    void cmdApplyChanges_Click();
    void lmgResources_ItemChanged();
    void UserControl_LostFocus();
    // Prop bag
    void cmdMoveOneRight_Click();
    void cmdMoveOneLeft_Click();
    void cmdMoveAllLeft_Click();
    void lvwPropBag_Click();
    void lvwPropBag_DblClick();
    void ctlSIPropBag_SIDblClicked();
    void ctlSIPropBag_SIClicked();
    void ctlSIPropBag_SIListFilterChanged();
    // Contents
    void cmdAddBlank_Click();
    void cmdMoveOneSIToService_Click();
    void ctlServiceItemGallery1_SIClicked(const QString& strID, const QString& strDescription,
                                          const QString& strWhereClauseInEffect,
                                          const QString& strFilterInPlainEnglish,
                                          const QString& strType);
    void ctlServiceItemGallery1_SIDblClicked();
    void cmdMoveServiceSIDown_Click();
    void cmdMoveServiceSIUp_Click();
    void cmdDeleteSI_Click();
    void fgItemsInService_EnterCell();
    void fgItemsInService_SelChange();
    void fgItemsInService_RowColChange();
    void fgItemsInService_LeaveCell();
    void fgItemsInService_Scroll();
    void cboYesNo_Click();
    void QVTimeSelector1_Changed();
    void QVTimeSelector1_EnterButtonPressed();
    void QVTimeSelector1_Resized();

private:
    void CreateWidgets();
    QWidget* CreateGeneralTab();
    void CreateContentTab(QWidget* page);
    void CreatePropBagTab(QWidget* page);
    void EnsureContentTab();
    void EnsurePropBagTab();
    void EnsureTypeImages();
    static void ShowMadeChildren(QWidget* page);
    void ConnectWidgets();
    void ConnectContent();
    void ConnectPropBag();
    void UserControl_Resize();

    // General
    // rsShown: the service's row when the caller has just read it, so that it is not read again.
    void LoadGeneralTab(const Recordset* rsShown = nullptr);
    void FillGeneralTab(const Recordset* rsShown);
    qint16 DoChecks(QString& strErrorMessage);
    // Prop bag
    void LoadPropBagTab();
    void SetUpPropBagButtons();
    // Contents
    void LoadContent();
    void ShowItemGallery();
    void LoadItemGallery();
    void MakeControlDirty();
    void HideCellEditors();
    void MoveRow(qint32 lngBy);
    void SelectRow(qint32 lngRow);
    void ClearRow(qint32 lngRow);
    void InsertRow(qint32 lngIndex, const QString& strTabbedCells);
    void SetCellPicture(qint32 lngRow, qint16 intTypeID);
    void PlaceTimeSelector();
    void ShowTotalLength();
    bool RowHoldsItem(qint32 lngRow) const;
    QString Cell(qint32 lngRow, qint32 lngCol) const;
    void SetCell(qint32 lngRow, qint32 lngCol, const QString& strText);
    void ContentDragOver(const QPoint& ptPixels);
    void ContentDrop(const QString& strText);
    // Saving
    void CleanControl(bool blnChangingToOtherControl);
    void SaveChanges(bool blnChangingToOtherControl);
    bool SaveGeneral(bool& blnEnd);
    bool SaveContents();
    bool SavePropBag();

    bool blnGeneralDirty() const;
    bool blnContentDirty() const;
    bool blnPropBagDirty() const;

    EditorCycle* m_cycle = nullptr;
    QString m_strDescription;
    QString m_strItems;
    ::ViewMode m_viewMode = vmEdit;
    qint32 lngServiceID = 0;
    bool blnGeneralLoaded = false;
    bool blnContentLoaded = false;
    bool blnPropBagLoaded = false;
    bool blnShowingProperties = false;
    bool blnGridIdle = true;
    bool blnTypesLoaded = false;
    bool blnThemesLoaded = false;
    // The row of the last drag-over; it lasts across drags.
    qint32 m_lngLastDragRow = -1;
    bool m_blnChangesDeclined = false;
    bool m_blnItemGalleryPending = false;
    bool m_blnItemGalleryLoaded = false;
};
