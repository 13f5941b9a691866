#pragma once

#include "foundations/MemberEntry.h"

#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryTable.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <QStringList>
#include <QStyle>
#include <QTimer>

#include <functional>

class QGroupBox;
class QInputEvent;
class QKeyEvent;
class QLabel;
class QMouseEvent;
class QWidget;
class VBImageList;
class VBToolBar;

// The working parts that every gallery shares, told once: the tree and list
// pair and their keys, the group-by load, the display-properties panel with
// Timer1 and the main filter, the state words and colours, what a click on a
// node says, the landing after a delete, and the selection handed to export
// and print. A gallery owns one core, fills it from its GalleryTable, and its
// documented widget members point at the core's widgets.
//
// The core raises no events and shows no windows of its own: the control keeps
// its documented handlers and signals, and asks the core for the words.
class GalleryCore {
public:
    // The key code the galleries give the apostrophe key (it takes back what it
    // typed into the criterion). Kept here alone.
    static constexpr qint16 kApostropheKeyCode = 192;

    GalleryCore(const GalleryTable& table, QWidget* owner);
    const GalleryTable& Table() const { return m_table; }

    // ---- The display-properties panel, made by the core ----
    // cmdShowHideFilter, lblFilterState, fraShowAs with its options and
    // cboGroupByProperty, fraFilter with Timer1, cboProperty, cboOperator and
    // txtCriterion; every widget named as its member.
    void CreatePanel();
    // Makes the panel and points the gallery's documented members of the same
    // names at its widgets, so that every gallery offers them as its own.
    template <class Gallery> void CreatePanelFor(Gallery& gallery) {
        CreatePanel();
        gallery.cmdShowHideFilter = cmdShowHideFilter;
        gallery.lblFilterState = lblFilterState;
        gallery.fraShowAs = fraShowAs;
        gallery.optShowAsTree = optShowAsTree;
        gallery.optShowAsList = optShowAsList;
        gallery.cboGroupByProperty = cboGroupByProperty;
        gallery.fraFilter = fraFilter;
        gallery.Timer1 = Timer1;
        gallery.cboProperty = cboProperty;
        gallery.cboOperator = cboOperator;
        gallery.txtCriterion = txtCriterion;
    }
    QPushButton* cmdShowHideFilter = nullptr;
    QLabel* lblFilterState = nullptr;
    QGroupBox* fraShowAs = nullptr;
    QRadioButton* optShowAsTree = nullptr;
    QRadioButton* optShowAsList = nullptr;
    QComboBox* cboGroupByProperty = nullptr;
    QGroupBox* fraFilter = nullptr;
    QTimer* Timer1 = nullptr;
    QComboBox* cboProperty = nullptr;
    QComboBox* cboOperator = nullptr;
    QLineEdit* txtCriterion = nullptr;
    bool PanelOpen() const;
    // Writes the button's caption for an open or a closed panel.
    void SetPanelOpen(bool blnOpen);
    // Connects the panel's widgets to the owner's handlers of the same names.
    template <class C>
    void ConnectPanel(C* owner, void (C::*optShowAsTree_Click)(), void (C::*optShowAsList_Click)(),
                      void (C::*cboGroupByProperty_Click)(), void (C::*cboProperty_Click)(),
                      void (C::*cboOperator_Click)(), void (C::*cmdShowHideFilter_Click)(),
                      void (C::*txtCriterion_Change)(), void (C::*Timer1_Timer)()) {
        QObject::connect(optShowAsTree, &QRadioButton::toggled, owner, [=](bool blnOn) {
            if (blnOn)
                (owner->*optShowAsTree_Click)();
        });
        QObject::connect(optShowAsList, &QRadioButton::toggled, owner, [=](bool blnOn) {
            if (blnOn)
                (owner->*optShowAsList_Click)();
        });
        QObject::connect(cboGroupByProperty, &QComboBox::currentIndexChanged, owner,
                         cboGroupByProperty_Click);
        QObject::connect(cboProperty, &QComboBox::currentIndexChanged, owner, cboProperty_Click);
        QObject::connect(cboOperator, &QComboBox::currentIndexChanged, owner, cboOperator_Click);
        QObject::connect(cmdShowHideFilter, &QPushButton::clicked, owner, cmdShowHideFilter_Click);
        QObject::connect(txtCriterion, &QLineEdit::textChanged, owner, txtCriterion_Change);
        QObject::connect(Timer1, &QTimer::timeout, owner, Timer1_Timer);
    }
    // A property chosen: the operator defaults to "Contains" (which counts as a
    // click on it), and the criterion gets the focus.
    void PropertyChosen();
    // An operator chosen: with a property, the criterion is selected and focused.
    void OperatorChosen();
    // What a filter check finds: no criterion (the filter is off and the rows
    // load), a whole filter (on, and the rows load), or a criterion without both
    // combos (off, and the tree is cleared). load runs in the first two cases;
    // the answer is whether the gallery raises its click event for the filter.
    bool CheckFilter(QString& strFilterInPlainEnglish, QString& strWhereClauseInEffect,
                     const std::function<void()>& load);

    // ---- Handlers that every gallery has, with the gallery's trace and prefix ----
    // Each writes the trace line of the gallery's member of that name and
    // reports a failure in an error box, as the member itself would.
    void Timer1_Timer(bool blnLoaded, const std::function<void()>& CheckIfShouldApplyFilter);
    void cboProperty_Click(const std::function<void()>& CheckIfShouldApplyFilter);
    void cboOperator_Click(const std::function<void()>& CheckIfShouldApplyFilter);
    void cboGroupByProperty_Click(bool blnLoaded, const std::function<void()>& load);
    QString GetFilterAsWhereClause(QString& strFilterInPlainEnglish,
                                   QString& strWhereClauseInEffect);
    void SortTreeview();

    // ---- The views ----
    void SetViews(VBTreeWidget* tree, VBTreeWidget* list) {
        m_tree = tree;
        m_list = list;
    }
    void SetToolbar(VBToolBar* toolbar) { m_toolbar = toolbar; }
    // One toolbar button: its key, tool tip, picture name in imlToolBar and
    // the standard picture drawn for it.
    struct ToolbarButtonSpec {
        const char* key;
        const char* tip;
        const char* image;
        QStyle::StandardPixmap picture;
    };
    // Makes imlToolBar and Toolbar2 on owner, a button with its picture and
    // tool tip for each spec, pictures only, and takes the toolbar for the
    // button switch.
    void CreateToolbar(QWidget* owner, VBImageList*& imlToolBar, VBToolBar*& Toolbar2,
                       std::initializer_list<ToolbarButtonSpec> buttons);
    bool TreeShown() const { return !m_tree->isHidden(); }
    // The tree unless it is hidden, then the list.
    VBTreeWidget* ShownView() const { return TreeShown() ? m_tree : m_list; }
    // The selected node of ShownView(), or none.
    VBNode ShownSelection() const { return ShownView()->SelectedItem(); }
    // Shows the chosen view, empty, and hides the other.
    void ShowEmptyView(bool blnList);

    // ---- Keys ----
    bool IsItemKey(const QString& strKey) const;
    bool IsListKey(const QString& strKey) const;
    // The id of a key read from its view: the fifth field of a tree key, the
    // second of a list key. A group key has no fifth field; converting that
    // empty text fails as a type mismatch, as the commands expect.
    static QString IdOfKey(const VBTreeWidget* view, const QString& strKey);
    QString IdOf(const VBTreeWidget* view, const QString& strKey) const {
        return IdOfKey(view, strKey);
    }
    // Everything after the item mark of an item key.
    QString ItemId(const QString& strKey) const;
    QString ItemKey(const QString& strGroupKey, qint32 lngID) const;
    QString ListKey(qint32 lngID) const;
    // The ids of a group's children, first to last, joined with ",".
    static QString ChildIds(const VBNode& group);
    // The ids of the selected list items joined with strSeparator.
    QString SelectedListIds(const QString& strSeparator) const;
    qint32 SelectedListCount() const;

    // ---- The group-by load ----
    // Adds "Root" with the table's root text.
    void AddRoot();
    // The group key of a row's value (GroupBy;GroupValue); a Null value is "0".
    static QString GroupKey(const QString& strGroupBy, const QVariant& varValue) {
        return strGroupBy + QStringLiteral(";") + GroupValue(varValue);
    }
    static QString GroupValue(const QVariant& varValue);
    // Adds the group node under "Root" when it is missing: a Null value gives the
    // text "No " + GroupBy, any other the text strText() gives. Its Tag is GroupBy.
    template <class TextOf>
    void EnsureGroup(const QString& strGroupKey, const QString& strGroupBy,
                     const QVariant& varValue, TextOf&& strText) {
        if (!m_tree->KeyExists(strGroupKey))
            AddGroup(strGroupKey, strGroupBy,
                     varValue.isNull() ? QStringLiteral("No ") + strGroupBy : strText());
    }
    void AddGroup(const QString& strGroupKey, const QString& strGroupBy, const QString& strText);
    // Sorts every level that has more than one child, under the redraw lock.
    void SortLevels();
    // Fewer than 20 nodes: every folder open; more: only the root.
    void ExpandAfterLoad();
    static bool IsFolderImage(const QVariant& varImage);

    // ---- The main filter and the state words ----
    // The clause of property, operator and criterion; strWords gets its words.
    QString WhereClause(QString& strWords) const;
    // "(Filter is inactive)" in the normal colour; the filter strings reset.
    void SetFilterStateInactive(QString& strFilterInPlainEnglish, QString& strWhereClauseInEffect);
    // The caption in red.
    void SetFilterStateActive(const QString& strCaption);
    // The apostrophe key (kApostropheKeyCode) takes back what it just typed into
    // the criterion: it would break the clause.
    void TakeBackApostrophe(qint16 KeyCode);
    // The timer runs one full second from the last change.
    void RestartTimer();

    // ---- Clicks ----
    // What a click on a tree node tells the host: id, description and type.
    struct ClickWords {
        QString strID;
        QString strDescription;
        QString strType;
    };
    ClickWords NodeClickWords(const VBNode& Node) const;
    void SetButtons(const QStringList& lstKeys, bool blnEnabled) const;

    // ---- Delete, export ----
    // Where the tree lands after its node is deleted: the previous sibling, else
    // the next sibling; the only item of a group lands on the neighbouring group
    // (the next, else the previous); a lone group or the root on "Root".
    static QString LandingKey(const VBNode& node);
    // Where the selection would go by position: the index of the previous
    // sibling, the next sibling or the parent; in the list the selected item's
    // index when the list holds two or more; else 0.
    qint16 NeighbourPosition() const;
    // The ids and description of the selection for an export: the root every item
    // node shown, an item itself, a group its children, in the list the selected
    // items (one under strSingleListText). False when there is nothing to export.
    bool ExportSelection(QString& strIDs, QString& strDescription,
                         const QString& strSingleListText) const;

    // ---- Input events as the handlers know them ----
    // Delete 46, F5 116, the apostrophe key kApostropheKeyCode, the rest as the
    // platform's key codes.
    static qint16 KeyCodeOf(const QKeyEvent* event);
    static qint16 ShiftOf(const QInputEvent* event);
    static qint16 ButtonOf(const QMouseEvent* event);

    // A failure told to the user and the trace: the error line, then the box.
    static void Report(const QString& strText);
    // A message of the data library, when there is one, reported under strPrefix.
    static void ReportFailure(const QString& strPrefix, const QString& strErrorMessage) {
        if (!strErrorMessage.isEmpty())
            Report(strPrefix + strErrorMessage);
    }
    // What read takes from the selected node of tree, under the member's
    // handler (an error box); the value's default when nothing is selected.
    template <class T, class Read>
    static T SelectedNodeValue(const MemberEntry& entry, const VBTreeWidget* tree, Read read) {
        T value{};
        entry.ErrorBox([&] {
            if (const VBNode node = tree->SelectedItem())
                value = read(node);
        });
        return value;
    }
    // The "Confirm Delete" question (Yes/No/Cancel, No the default); True on Yes.
    static bool ConfirmDelete(const QString& strPrompt);

    // The first node of the shown view whose key names the item lngID; none
    // when the view has no such node (list keys never do).
    VBNode FindItemNode(qint32 lngID) const;
    // Selects a node again after a reload: its click first, then the selection,
    // then it is brought into sight.
    template <class Click> static void Reselect(VBNode node, Click&& click) {
        click(node.Item());
        node.setSelected(true);
        node.EnsureVisible();
    }
    // Selects a node found by code: brought into sight, selected, then clicked.
    template <class Click> static void SelectAndClick(VBNode node, Click&& click) {
        node.EnsureVisible();
        node.setSelected(true);
        click(node.Item());
    }

private:
    GalleryTable m_table;
    QWidget* m_owner;
    VBTreeWidget* m_tree = nullptr;
    VBTreeWidget* m_list = nullptr;
    VBToolBar* m_toolbar = nullptr;
};
