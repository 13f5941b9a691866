#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

class GalleryCore;
struct GalleryTable;
class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMimeData;
class QPushButton;
class QRadioButton;
class QTimer;
class QTreeWidgetItem;
class MemberEntry;
class Recordset;
class VBImageList;
class VBNode;
class VBStatusBar;
class VBToolBar;
class VBTreeWidget;

// The service item gallery: every service item of the database, as a tree grouped
// by Type, Keyword, Source or Provider, or as a flat five-column list. The host
// (or a parent control) calls ShowServiceItems to load it; the gallery owns no
// data and reads every row through DataAccess::GetServiceItemsJoined.
//
// Node keys (read by every neighbour of the gallery):
//   root   "Root"
//   group  GroupBy;GroupValue                 e.g. "Type;7", "Source;0"
//   item   GroupBy;GroupValue;;SI;id          e.g. "Type;7;;SI;1234"
//   list   SI;id                              e.g. "SI;1234"
// A key names an item exactly when it holds ";;SI;"; the item's id is
// everything after the last ";". The tree is a drag source: the payload is the
// whole item key as plain text.
//
// Rows are narrowed by the quick filter (txtQuickFilter, ten fields at once), the
// main filter (property, operator and criterion in the display-properties panel,
// applied one second after the last key) or a short list, in that order of
// priority with the short list first.
//
// Stored properties: RunSIOnDblClick and ShowToolbar (both True by default).
//
// The tree and list, the display-properties panel, the group-by load, the main
// filter and the click words are the shared GalleryCore's, worked from this
// gallery's table (Table()); the widget members point at the core's widgets.
class ctlServiceItemGallery : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description STORED false)
    Q_PROPERTY(bool RunSIOnDblClick READ RunSIOnDblClick WRITE setRunSIOnDblClick STORED true)
    Q_PROPERTY(bool ShowToolbar READ ShowToolbar WRITE setShowToolbar STORED true)
    Q_PROPERTY(QString SelectedServiceItems READ SelectedServiceItems STORED false)
    Q_PROPERTY(QString SelectedItemKey READ SelectedItemKey STORED false)
    Q_PROPERTY(qint16 SelectedItemImage READ SelectedItemImage STORED false)
    Q_PROPERTY(QString SelectedItemText READ SelectedItemText STORED false)

public:
    explicit ctlServiceItemGallery(QWidget* parent = nullptr);
    ~ctlServiceItemGallery() override;

    // ---- Members common to the controls ----
    // Always True: a gallery holds nothing that could be lost.
    bool CanUnload();
    // "ServiceItemGalleryControl".
    QString Description() const;
    // Writes the trace line; there is no filter control to release.
    void ReleaseListViewFilter();

    // ---- Stored properties ----
    // Whether a double-click in the list runs the item (the tree never runs).
    bool RunSIOnDblClick() const { return m_blnRunSIOnDblClick; }
    void setRunSIOnDblClick(bool blnValue);
    // Whether the views leave room for the toolbar; setting it lays the control out again.
    bool ShowToolbar() const { return m_blnShowToolbar; }
    void setShowToolbar(bool blnValue);

    // ---- Selection ----
    // Key of the selected list item (list visible) or node; empty when none.
    QString SelectedItemKey();
    // Picture number of the selected list item or node (0 for a folder picture or none).
    qint16 SelectedItemImage();
    // Description of the selected list item, or text of the selected node; empty when none.
    QString SelectedItemText();
    // Tree: the id of the selected item node, else empty. List: the ids of all selected
    // items joined with ",".
    QString SelectedServiceItems();

    // ---- Loading ----
    // Loads the gallery under the short list, quick filter or main filter in force and
    // selects (and clicks) the node strNodeKeyToSelect when it exists. A message of
    // DataAccess is left in strErrorMessage.
    void ShowServiceItems(const QString& strNodeKeyToSelect, QString& strErrorMessage);
    void ShowServiceItems(const QString& strNodeKeyToSelect = QString());
    // Sorts every level of the tree by text.
    void SortTreeview();
    // Reloads and selects again what was selected.
    void RefreshView(qint16 intIndexOfPreviouslySelectedItem = 0);
    // Shows the short list lngShortListID instead of the normal rows; 0 switches it off.
    void ApplyShortList(qint32 lngShortListID, QString& strErrorMessage);
    void ApplyShortList(qint32 lngShortListID);

    // ---- Commands ----
    // Selects and clicks the tree node of item lngServiceItem (tree view only).
    void SelectServiceItem(qint32 lngServiceItem, QString& strErrorMessage);
    void SelectServiceItem(qint32 lngServiceItem);
    // Asks "Confirm Delete" and deletes one item, or every item of a ";" list.
    void DeleteServiceItem(qint32 lngServiceItemID, QString& strErrorMessage);
    void DeleteServiceItem(qint32 lngServiceItemID = 0);
    void DeleteServiceItems(const QString& strSIs, QString& strErrorMessage);
    void DeleteServiceItems(const QString& strSIs = QString());
    // Removes one node from the tree (not from the database). WhichItem is a node key;
    // with lngSIID not 0 the key of the first node of that item is found and written back.
    void HideServiceItem(QVariant& WhichItem, qint32 lngSIID = 0);
    void HideServiceItem(const QString& strWhichItem, qint32 lngSIID = 0);
    // Adds a node to the tree (not to the database), making its group node when missing.
    void AddServiceItem(const QString& strParentKey, const QString& strKey, const QString& strText,
                        qint16 intImageID);
    // Creates a blank service item of type SIType (0: none), reloads, selects it and
    // raises NewServiceItemAdded.
    void NewServiceItem(qint32 SIType);

    // What sets this gallery apart: its words, keys, groups and filter fields.
    static const GalleryTable& Table();

    // ---- Child widgets (objectName() is the member's name) ----
    VBTreeWidget* tvwServiceItems = nullptr;
    VBTreeWidget* lvwServiceItems = nullptr;
    QGroupBox* fraShowAs = nullptr;
    QRadioButton* optShowAsTree = nullptr;
    QRadioButton* optShowAsList = nullptr;
    QComboBox* cboGroupByProperty = nullptr;
    QPushButton* cmdShowHideFilter = nullptr;
    QLineEdit* txtQuickFilter = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QRadioButton* optQuickFilter = nullptr;
    QRadioButton* optShortList = nullptr;
    QGroupBox* fraFilter = nullptr;
    QTimer* Timer1 = nullptr;
    QComboBox* cboProperty = nullptr;
    QComboBox* cboOperator = nullptr;
    QLineEdit* txtCriterion = nullptr;
    QGroupBox* fraSelectShortList = nullptr;
    QPushButton* cmdGetShortList = nullptr;
    QLabel* lblCaptionShortListDescription = nullptr;
    QLabel* lblShortListDescription = nullptr;
    QLabel* lblCaptionShortListCreatedBy = nullptr;
    QLabel* lblShortListCreatedBy = nullptr;
    QLabel* lblCaptionShortListCreatedDate = nullptr;
    QLabel* lblShortListCreatedDate = nullptr;
    QLabel* lblFilterState = nullptr;
    VBToolBar* Toolbar2 = nullptr;
    VBStatusBar* StatusBar1 = nullptr;
    VBImageList* imlServiceItems = nullptr;
    VBImageList* imlToolBar = nullptr;
    QMenu* mnuRightCLick = nullptr;
    QAction* mnuRightCLickNew = nullptr;
    QAction* mnuSIOpen = nullptr;
    QAction* mnuSIDelete = nullptr;
    QAction* mnuSIPrint = nullptr;
    QAction* mnuSISep1 = nullptr;
    QAction* mnuSIExport = nullptr;
    QMenu* mnuRightClickType = nullptr;
    QAction* mnuRightClickTypeNew = nullptr;

signals:
    // A node or item was clicked (or clicked by code), or the main filter was applied.
    // strType is "SI" for one item, "SIGroup" for a group or the root ("All").
    void SIClicked(const QString& strID, const QString& strDescription,
                   const QString& strWhereClauseInEffect, const QString& strFilterInPlainEnglish,
                   const QString& strType);
    // A double-click in the tree (the item's id) or in the list (the item's type id).
    void SIDblClicked(qint32 SIId);
    void NewServiceItemAdded(qint32 ServiceItemID);
    // The rows changed under a filter; "All", "", "" when no filter is in force.
    void SIListFilterChanged(const QString& SIItemsInList, const QString& FilterInPlainEnglish,
                             const QString& WhereClauseInEffect);
    void ShortListApplied(const QString& SIItemsInList, const QString& FilterInPlainEnglish,
                          const QString& WhereClauseInEffect);
    // Declared for the host's sake; the gallery never raises it.
    void AboutToRunServiceItem(qint32 SIId);
    // btnRun in the tree: "btnRun" and the id of the selected item.
    void ToolBarButtonClicked(const QString& strButtonKey, qint32 lngSelectedServiceItem);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    // Views and loading.
    void optShowAsTree_Click();
    void optShowAsList_Click();
    void cboGroupByProperty_Click();
    void StatusBar1_PanelClick(qint32 intPanel);
    void lvwServiceItems_ColumnClick(int intColumn);
    void tvwServiceItems_Expand(QTreeWidgetItem* Node);
    void tvwServiceItems_Collapse(QTreeWidgetItem* Node);

    // Filters.
    void txtQuickFilter_Change();
    void txtCriterion_Change();
    void Timer1_Timer();
    void cboProperty_Click();
    void cboOperator_Click();
    void cmdShowHideFilter_Click();
    void optQuickFilter_Click();
    void optShortList_Click();
    void cmdGetShortList_Click();

    // Selection and commands.
    void tvwServiceItems_NodeClick(QTreeWidgetItem* Node);
    void tvwServiceItems_DblClick();
    void lvwServiceItems_ItemClick(QTreeWidgetItem* Item);
    void lvwServiceItems_DblClick();
    void mnuRightCLickNew_Click();
    void mnuRightClickTypeNew_Click();
    void mnuSIOpen_Click();
    void mnuSIDelete_Click();
    void mnuSIPrint_Click();
    void mnuSIExport_Click();
    void Toolbar2_ButtonClick(QAction* Button);

private:
    friend class ctlServiceItemGalleryTree;

    // Construction and layout (_Layout.cpp).
    void UserControl_Initialize();
    void UserControl_Terminate();
    void UserControl_Resize();
    void CreateWidgets();
    void CreateToolbar();
    void CreateMenus();
    void ConnectWidgets();
    void PlaceViews(qint32 lngTopTwips, qint32 lngHeightTwips);
    qint32 WidthTwips() const;
    qint32 HeightTwips() const;

    // Loading (_Load.cpp).
    void ShowServiceItemsUnlocked(const QString& strNodeKeyToSelect, QString& strErrorMessage);
    void LoadList(Recordset& rs, qint16& intAdded, QString& strIDs);
    bool LoadTree(Recordset& rs, qint16& intAdded, QString& strIDs);
    QString ItemText(const Recordset& rs) const;
    QString Decoded(const QString& strText) const;
    void AddListItem(const Recordset& rs, qint32 lngID);
    void SetNodeImage(VBNode& node, qint32 lngTypeID);
    void SortListAgain();
    void SortChildrenOf(const QString& strKey);
    void SetStatusPanel(qint32 intPanel, const QString& strText);
    QString StatusPanelText(qint32 intPanel) const;

    // Short list (_ShortList.cpp).
    void ApplyShortListRows(Recordset& rs, const QString& strContent);

    // Filters (_Filters.cpp).
    QString GetFilterAsWhereClause();
    void CheckIfShouldApplyFilter();
    QString QuickFilterClause() const;
    QString QuickFilterWords() const;
    void SetFilterStateInactive();
    void txtQuickFilter_KeyPress(qint16& KeyAscii);
    void txtQuickFilter_GotFocus();
    void txtCriterion_KeyUp(qint16& KeyCode, qint16 Shift);
    void SwitchFilterFrames();
    void BringSelectionIntoSight();

    // Selection and commands (_Selection.cpp, _Commands.cpp).
    void NodeClick(const VBNode& Node);
    void ItemClick(const VBNode& Item);
    void tvwServiceItems_KeyUp(qint16& KeyCode, qint16 Shift);
    void tvwServiceItems_MouseDown(qint16 Button, qint16 Shift, const QPoint& ptAt);
    void lvwServiceItems_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt);
    void tvwServiceItems_OLEStartDrag();
    QMimeData* DragData() const;
    void PopupMenu(QMenu* mnu);
    void NewFromSelection(bool blnListWithoutItemGivesNone);
    void DeleteSelection();
    void EditSelection();
    void ImportServiceItem();
    void ExportSelection();
    void PrintSelection();
    QAction* ToolbarButton(const QString& strKey) const;

    // The prologue of a member: its trace line and failure prefix ("QVLTCONTROLS:
    // ctlServiceItemGallery:" + strMember + ": Error number is "; Spelt() puts a
    // blank before the colon).
    static MemberEntry Entry(const QString& strMember);
    // The id of the selection of the shown view (a tree key's fifth field, a list
    // key's second); empty when nothing is selected.
    QString SelectedIdOfShownView() const;

    // State.
    std::unique_ptr<GalleryCore> m_core;
    qint32 lngShortListID = 0;
    QString strWhereClauseInEffect;
    QString strFilterInPlainEnglish;
    bool blnLoaded = false;
    bool m_blnRunSIOnDblClick = true;
    bool m_blnShowToolbar = true;
    bool blnShowAll = false;
    qint32 lngMaxSIsToShow = 100;
    bool m_blnShown = false;
    bool m_blnQuickFilterBusy = false;
    bool m_blnListSorted = false;
    int m_intListSortKey = 0;
};
