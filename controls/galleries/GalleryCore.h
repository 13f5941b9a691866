#pragma once

#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryTable.h"

#include <QString>
#include <QStringList>

class QComboBox;
class QGroupBox;
class QInputEvent;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QMouseEvent;
class QPushButton;
class QRadioButton;
class QTimer;
class QWidget;
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

    // ---- The views ----
    void SetViews(VBTreeWidget* tree, VBTreeWidget* list) {
        m_tree = tree;
        m_list = list;
    }
    void SetToolbar(VBToolBar* toolbar) { m_toolbar = toolbar; }
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

private:
    GalleryTable m_table;
    QWidget* m_owner;
    VBTreeWidget* m_tree = nullptr;
    VBTreeWidget* m_list = nullptr;
    VBToolBar* m_toolbar = nullptr;
};
