#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

class GalleryCore;
struct GalleryTable;
class MemberEntry;
class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTimer;
class QTreeWidgetItem;
class Recordset;
class VBImageList;
class VBNode;
class VBToolBar;
class VBTreeWidget;

// The service gallery: every planned service, as a tree grouped by Type, Theme,
// Created By, Year Created or Month & Year Created, or as a flat six-column list.
// It works as the service item gallery does, from the same GalleryCore and its
// own table; what it has of its own is written here.
//
// Node keys:
//   root   "Root"
//   group  GroupBy;GroupValue                 e.g. "Type;Evening", "Year Created;2024"
//   item   GroupBy;GroupValue;;Service;id     e.g. "Theme;Easter;;Service;12"
//   list   Service;id                         e.g. "Service;12"
//
// Rows are narrowed by the main filter alone (property, operator and criterion,
// applied one second after the last key). There is no quick filter, no short
// list, no status bar, no item limit, no stored property and no drag source.
//
// A second click on the node clicked last is silent: strLastClickedKey is emptied
// by a filter check, an import and SelectService, so that their click is heard.
class ctlServiceGallery : public QWidget {
    Q_OBJECT
    friend class tst_ctlServiceGallery;
    Q_PROPERTY(QString Description READ Description STORED false)
    Q_PROPERTY(QString SelectedItemKey READ SelectedItemKey STORED false)
    Q_PROPERTY(qint16 SelectedItemImage READ SelectedItemImage STORED false)
    Q_PROPERTY(QString SelectedItemText READ SelectedItemText STORED false)

public:
    explicit ctlServiceGallery(QWidget* parent = nullptr);
    ~ctlServiceGallery() override;

    // ---- Members common to the controls ----
    bool CanUnload();
    // "ServiceGalleryControl".
    QString Description() const;
    void ReleaseListViewFilter();

    // ---- Selection: these read the tree only, also in list view ----
    QString SelectedItemKey();
    qint16 SelectedItemImage();
    QString SelectedItemText();

    // ---- Loading ----
    // Loads the view under the main filter in force and selects (and clicks) the
    // tree node strNodeKeyToSelect when it exists. A message of DataAccess is shown
    // in a box and left in strErrorMessage; the view stays as it was.
    void ShowServices(const QString& strNodeKeyToSelect, QString& strErrorMessage);
    void ShowServices(const QString& strNodeKeyToSelect = QString());
    // A simpler load of the list alone, every service, with columns of its own.
    void LoadServices();
    void SortTreeview();
    // Reloads and selects the node (or list item) at that position again.
    void RefreshView(qint16 intIndexOfPreviouslySelectedItem = 0);

    // ---- Commands ----
    void NewService(QString& strErrorMessage);
    void NewService();
    void SelectService(qint32 lngService, QString& strErrorMessage);
    void SelectService(qint32 lngService);
    void DeleteAService(qint32 lngServiceID, QString& strErrorMessage);
    void DeleteAService(qint32 lngServiceID = 0);
    void DeleteGroupOfServices(const QString& strServices, QString& strErrorMessage);
    void DeleteGroupOfServices(const QString& strServices = QString());
    // Removes the node WhichService from the tree; its parent stays, even empty.
    void HideService(const QVariant& WhichService);
    // Adds a node under strParentKey, which must exist.
    void AddService(const QString& strParentKey, const QString& strKey, const QString& strText,
                    qint16 intImageID);

    // What sets this gallery apart: its words, keys, groups and filter fields.
    static const GalleryTable& Table();

    // ---- Child widgets (objectName() is the member's name) ----
    VBTreeWidget* tvwServices = nullptr;
    VBTreeWidget* lvwServices = nullptr;
    QGroupBox* fraShowAs = nullptr;
    QRadioButton* optShowAsTree = nullptr;
    QRadioButton* optShowAsList = nullptr;
    QComboBox* cboGroupByProperty = nullptr;
    QPushButton* cmdShowHideFilter = nullptr;
    QGroupBox* fraFilter = nullptr;
    QTimer* Timer1 = nullptr;
    QComboBox* cboProperty = nullptr;
    QComboBox* cboOperator = nullptr;
    QLineEdit* txtCriterion = nullptr;
    QLabel* lblFilterState = nullptr;
    VBToolBar* Toolbar2 = nullptr;
    VBImageList* ImageList1 = nullptr;
    VBImageList* imlToolBar = nullptr;
    QMenu* mnuRightClick = nullptr;
    QAction* mnuRightCLickNew = nullptr;
    QAction* mnuServiceRun = nullptr;
    QAction* mnuServiceDelete = nullptr;
    QAction* mnuServicePrint = nullptr;
    QAction* mnuSISep1 = nullptr;
    QAction* mnuSICopy = nullptr;
    QAction* mnuSIExport = nullptr;
    QMenu* mnuRightClickType = nullptr;
    QAction* mnuRightClickTypeNew = nullptr;
    QAction* mnuRightClickTypeFind = nullptr;
    QAction* mnuRightClickExport = nullptr;

signals:
    // strType is "Service" for one service, "ServiceGroup" for a group or the root.
    void ServiceClicked(const QString& strID, const QString& strDescription,
                        const QString& strWhereClauseInEffect,
                        const QString& strFilterInPlainEnglish, const QString& strType);
    void ServiceDblClicked(qint32 ServiceID);
    void NewServiceAdded(qint32 ServiceID);
    void ServiceListFilterChanged(const QString& ServiceItemsInList,
                                  const QString& FilterInPlainEnglish,
                                  const QString& WhereClauseInEffect);
    // Declared for the host's sake; the gallery never raises it.
    void AboutToRunService(qint32 ServiceID);
    // btnOpen: "btnOpen" and the id of the selected service node.
    void ToolBarButtonClicked(const QString& strButtonKey, qint32 lngSelectedService);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void optShowAsTree_Click();
    void optShowAsList_Click();
    void cboGroupByProperty_Click();
    void txtCriterion_Change();
    void Timer1_Timer();
    void cboProperty_Click();
    void cboOperator_Click();
    void cmdShowHideFilter_Click();
    void tvwServices_NodeClick(QTreeWidgetItem* Node);
    void tvwServices_DblClick();
    void tvwServices_Expand(QTreeWidgetItem* Node);
    void tvwServices_Collapse(QTreeWidgetItem* Node);
    void lvwServices_ItemClick(QTreeWidgetItem* Item);
    void lvwServices_DblClick();
    void mnuRightCLickNew_Click();
    void mnuRightClickTypeNew_Click();
    void mnuServiceDelete_Click();
    void mnuServicePrint_Click();
    void mnuSIExport_Click();
    void mnuRightClickExport_Click();
    void Toolbar2_ButtonClick(QAction* Button);

private:
    // Construction and layout (_Layout.cpp).
    void UserControl_Initialize();
    void UserControl_Resize();
    void CreateWidgets();
    void CreateToolbar();
    void CreateMenus();
    void ConnectWidgets();
    void PlaceViews(qint32 lngTopTwips, qint32 lngHeightTwips);

    // Loading and filter (_Load.cpp).
    bool ReadRows(std::unique_ptr<Recordset>& rs, bool& blnNoFilter, QString& strErrorMessage);
    void LoadList(Recordset& rs, QString& strIDs);
    void LoadTree(Recordset& rs, QString& strIDs);
    QVariant GroupValueOf(const Recordset& rs, const QString& strGroupBy) const;
    QString ItemText(const Recordset& rs) const;
    static QString Decoded(const QVariant& varText);
    QString GetFilterAsWhereClause();
    void CheckIfShouldApplyFilter();
    void txtCriterion_KeyUp(qint16& KeyCode, qint16 Shift);

    // Selection and commands (_Commands.cpp).
    void NodeClick(const VBNode& Node);
    void ItemClick(const VBNode& Item);
    void SelectNode(VBNode node);
    void tvwServices_MouseDown(qint16 Button, qint16 Shift, const QPoint& ptAt);
    void lvwServices_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt);
    void PopupMenu(QMenu* mnu);
    void DeleteFromToolbar();
    void DeleteFromMenu();
    void PrintShortCuts();
    void ImportServices();
    void ExportSelection();
    void PrintSelection();
    // The id a print would be of; blnSelected False when the tree has no selection.
    qint32 PrintSelectionId(bool& blnSelected) const;
    QString SelectedTreeId() const;
    static MemberEntry Entry(const QString& strMember);

    std::unique_ptr<GalleryCore> m_core;
    QString strWhereClauseInEffect;
    QString strFilterInPlainEnglish;
    QString strLastClickedKey;
    bool blnLoaded = false;
    qint32 m_lngViewsTop = 740; // twips: the panel starts closed
};
