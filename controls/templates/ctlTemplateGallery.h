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

// The template gallery: every document template, as a tree grouped by Type,
// Occasion, Created By, Year Created, Month & Year Created or Source, or as a
// flat six-column list. It works from the shared GalleryCore and its own table;
// what it has of its own is here: its loader, its groups' words and the word
// processor rule of btnNew.
//
// Node keys:
//   root      "Root"
//   group     GroupBy;GroupValue                  e.g. "Source;InBuilt", "Occasion;0"
//   template  GroupBy;GroupValue;;Template;id     e.g. "Type;ServiceTemplate;;Template;3"
//   list      Template;id
//
// The group of user-made templates reads "User Template" while their list
// column reads "User Created": two words, both kept.
//
// A click in the list tests the service gallery's word "Service;" and asks
// for a btnProperties this toolbar lacks: open and delete are disabled and the
// click ends in its error box. The tree, double clicks and menus work.
class ctlTemplateGallery : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description STORED false)
    Q_PROPERTY(QString SelectedItemKey READ SelectedItemKey STORED false)
    Q_PROPERTY(qint16 SelectedItemImage READ SelectedItemImage STORED false)
    Q_PROPERTY(QString SelectedItemText READ SelectedItemText STORED false)

public:
    explicit ctlTemplateGallery(QWidget* parent = nullptr);
    ~ctlTemplateGallery() override;

    bool CanUnload();
    // "TemplateGalleryControl".
    QString Description() const;
    // These read the tree only.
    QString SelectedItemKey();
    qint16 SelectedItemImage();
    QString SelectedItemText();
    // The list alone, every template.
    void LoadTemplates();
    void SelectTemplate(qint32 lngTemplate, QString& strErrorMessage);
    void SelectTemplate(qint32 lngTemplate);
    void DeleteATemplate(qint32 lngTemplateID, QString& strErrorMessage);
    void DeleteATemplate(qint32 lngTemplateID);
    // Reloads and selects (and clicks) the node at that position again.
    void RefreshView(qint16 intIndexOfPreviouslySelectedItem = 0);
    // Removes the node WhichTemplate (a key or an index) from the tree.
    void HideTemplate(const QVariant& WhichTemplate);
    // Adds a node under strParentKey.
    void AddService(const QString& strParentKey, const QString& strKey, const QString& strText,
                    const QVariant& intImageID);
    // Loads the view under the filter in effect and selects strNodeKeyToSelect
    // when it exists. A message of the data library is shown and kept in
    // strErrorMessage; the view stays as it was.
    void ShowTemplates(const QString& strNodeKeyToSelect, QString& strErrorMessage);
    void ShowTemplates(const QString& strNodeKeyToSelect = QString());
    void SortTreeview();

    static const GalleryTable& Table();

    // ---- Child widgets (objectName() is the member's name) ----
    VBTreeWidget* tvwTemplates = nullptr;
    VBTreeWidget* lvwTemplates = nullptr;
    VBImageList* ImageList1 = nullptr;
    QGroupBox* fraFilter = nullptr;
    QLineEdit* txtCriterion = nullptr;
    QComboBox* cboOperator = nullptr;
    QComboBox* cboProperty = nullptr;
    QTimer* Timer1 = nullptr;
    QGroupBox* fraShowAs = nullptr;
    QRadioButton* optShowAsTree = nullptr;
    QRadioButton* optShowAsList = nullptr;
    QComboBox* cboGroupByProperty = nullptr;
    QPushButton* cmdShowHideFilter = nullptr;
    QLabel* lblFilterState = nullptr;
    VBToolBar* Toolbar2 = nullptr;
    VBImageList* imlToolBar = nullptr;
    QMenu* mnuRightClick = nullptr;
    QAction* mnuRightCLickNew = nullptr;
    QAction* mnuTemplateOpen = nullptr;
    QAction* mnuTemplateDelete = nullptr;
    QMenu* mnuRightClickType = nullptr;
    QAction* mnuRightClickTypeNew = nullptr;
    QAction* mnuRightClickTypeFind = nullptr;

signals:
    // strType: "Template" for one template, "TemplatesGroup" for a group, the
    // root or the whole after a filter change.
    void TemplateClicked(const QString& strID, const QString& strDescription,
                         const QString& strWhereClauseInEffect,
                         const QString& strFilterInPlainEnglish, const QString& strType);
    void TemplateDblClicked(qint32 TemplateID);
    void NewTemplateAdded(qint32 TemplateID);
    void TemplateListFilterChanged(const QString& TemplatesInList,
                                   const QString& FilterInPlainEnglish,
                                   const QString& WhereClauseInEffect);

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
    void tvwTemplates_NodeClick(QTreeWidgetItem* Node);
    void tvwTemplates_DblClick();
    void tvwTemplates_Expand(QTreeWidgetItem* Node);
    void tvwTemplates_Collapse(QTreeWidgetItem* Node);
    void lvwTemplates_ItemClick(QTreeWidgetItem* Item);
    void lvwTemplates_DblClick();
    void mnuRightCLickNew_Click();
    void mnuRightClickTypeNew_Click();
    void mnuTemplateOpen_Click();
    void mnuTemplateDelete_Click();
    void mnuSIOpen_Click();
    void Toolbar2_ButtonClick(QAction* Button);

private:
    // Construction and layout (_Layout.cpp).
    void CreateWidgets();
    void CreateToolbar();
    void CreateMenus();
    void ConnectWidgets();
    void UserControl_Initialize();
    void UserControl_Resize();
    void PlaceViews(qint32 lngTopTwips);

    // Loading and the filter (_Load.cpp).
    void LoadList(Recordset& rs);
    void LoadTree(Recordset& rs);
    QString ItemText(const Recordset& rs) const;
    static QVariant ItemImage(const Recordset& rs);
    static QString Decoded(const QVariant& varText);
    QString GetFilterAsWhereClause();
    void CheckIfShouldApplyFilter();

    // Selection and commands (_Commands.cpp).
    void NodeClick(const VBNode& Node);
    void tvwTemplates_MouseDown(qint16 Button, const QPoint& ptAt);
    void lvwTemplates_MouseUp(qint16 Button, const QPoint& ptAt);
    void NewFromToolbar();
    void NewFromMenu(const char* member);
    void OpenTemplate(qint32 lngTemplateID, const QString& strPrefix, bool blnDoubleClick);
    // The id of the shown view's selection when it is a template, else 0.
    qint32 SelectedTemplateId() const;
    static MemberEntry Entry(const QString& strMember);

    std::unique_ptr<GalleryCore> m_core;
    QString strWhereClauseInEffect;
    QString strFilterInPlainEnglish;
    bool blnLoaded = false;
    qint32 m_lngViewsTop = 740; // twips: the panel starts closed
};
