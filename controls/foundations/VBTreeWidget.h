#pragma once

#include "foundations/VBImageList.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QTreeWidget>
#include <QVariant>

class VBImageList;
class VBTreeWidget;

// Relationship of a new node to its relative.
enum VBTreeRelationship { tvwFirst = 0, tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

// Roles of column 0 of a node or list item.
namespace VBRole {
constexpr int Key = Qt::UserRole;
constexpr int Tag = Qt::UserRole + 1;
constexpr int Serial = Qt::UserRole + 2;
constexpr int Image = Qt::UserRole + 3;
constexpr int ExpandedImage = Qt::UserRole + 4;
} // namespace VBRole

// A node of a tree or an item of a list, as the controls see it: Key, Tag,
// Index, Text, Bold, Selected, Expanded and the walk to its relatives. An
// empty VBNode is Nothing: reading or writing through it raises 91, and the
// walk members return Nothing where there is no such relative.
class VBNode {
public:
    VBNode() = default;
    VBNode(QTreeWidgetItem* item);

    bool IsNothing() const { return m_item == nullptr; }
    explicit operator bool() const { return m_item != nullptr; }
    QTreeWidgetItem* Item() const { return m_item; }
    bool operator==(const VBNode& other) const { return m_item == other.m_item; }

    QString Key() const;
    QVariant Tag() const;
    void setTag(const QVariant& varTag);
    QString Text() const;
    void setText(const QString& strText);
    // Position in the tree's order of creation (1-based); for a list item its
    // row (1-based).
    qint32 Index() const;

    bool Bold() const;
    void setBold(bool blnBold);
    bool Selected() const;
    void setSelected(bool blnSelected);
    bool Expanded() const;
    void setExpanded(bool blnExpanded);

    // The key or index of the node's picture in the tree's image list.
    QVariant Image() const;
    void setImage(const QVariant& varImage);
    QVariant ExpandedImage() const;
    void setExpandedImage(const QVariant& varImage);

    qint32 Children() const;
    VBNode Child() const;
    VBNode Next() const;
    VBNode Previous() const;
    VBNode Parent() const;
    VBNode FirstSibling() const;
    VBNode LastSibling() const;
    VBNode Root() const;

    void EnsureVisible();
    // Sorts the children by text, without regard to case.
    void setSorted(bool blnSorted);

    // List items: sub-item n is column n (1-based, as in a report list).
    QString SubItems(qint32 intIndex) const;
    void setSubItems(qint32 intIndex, const QString& strText);
    bool SubItemBold(qint32 intIndex) const;
    void setSubItemBold(qint32 intIndex, bool blnBold);
    QString ToolTipText() const;
    void setToolTipText(const QString& strText);

private:
    QTreeWidgetItem* checked() const;
    VBTreeWidget* tree() const;
    QTreeWidgetItem* m_item = nullptr;
};

// The tree view and the list view of the controls: a QTreeWidget whose nodes
// carry keys. Keys are unique: adding a key that exists raises 35602, a purely
// numeric key 35603 "Invalid key"; fetching a missing key raises 35601, an index
// out of range 35600. Column 0 holds Key in Qt::UserRole and Tag in
// Qt::UserRole + 1.
//
// As a list view (SetListView), it has no root decoration and a column per
// keyed column header; items are added at the end with AddItem.
class VBTreeWidget : public QTreeWidget {
    Q_OBJECT
public:
    explicit VBTreeWidget(QWidget* parent = nullptr);
    // Stops listening to the model before the model is deleted with the widget.
    ~VBTreeWidget() override;

    // Nodes.Add: relative is Null (a top-level node), a key text or a 1-based
    // index.
    VBNode Add(const QVariant& varRelative = QVariant(), qint32 intRelationship = tvwLast,
               const QString& strKey = QString(), const QString& strText = QString(),
               const QVariant& varImage = QVariant(),
               const QVariant& varSelectedImage = QVariant());
    VBNode Nodes(const QString& strKey) const;
    VBNode Nodes(qint32 lngIndex) const;
    VBNode Nodes(const QVariant& varKeyOrIndex) const;
    qint32 Count() const { return static_cast<qint32>(m_creationOrder.size()); }
    void Remove(const QVariant& varKeyOrIndex);
    // Removes every node. The nodes leave the view in one step and are kept to be filled
    // again by the nodes added next, so that a tree of thousands loaded again and again (the
    // galleries on every key of a filter) neither deletes nor makes them one by one; they are
    // deleted with the widget.
    void Clear();
    bool KeyExists(const QString& strKey) const { return m_keys.contains(strKey); }

    // The node in creation order (1-based), or Nothing.
    qint32 IndexOf(const QTreeWidgetItem* item) const;

    VBNode SelectedItem() const;
    void setSelectedItem(const VBNode& node);

    void setImageList(VBImageList* pImages) { m_images = pImages; }
    VBImageList* ImageList() const { return m_images; }
    QIcon IconFor(const QVariant& varImage) const;

    // Sorts the top-level nodes by text, without regard to case.
    void setSorted(bool blnSorted);
    static void SortChildren(QTreeWidgetItem* parent, VBTreeWidget* tree);

    // Builds many nodes at once: while it lives, the tree's top-level nodes stand outside the
    // view, so that every node added under them (and every sort of their children) costs no
    // announcement to the view; at its end they go back in one step each, in their places.
    // Keys, indexes, pictures, sorting and the walk between nodes below the top level work as
    // usual meanwhile; whatever needs the view (expanding, selecting, scrolling, the siblings
    // of a top-level node) waits until the build has ended.
    class DetachedBuild {
    public:
        explicit DetachedBuild(VBTreeWidget* tree);
        ~DetachedBuild();
        DetachedBuild(const DetachedBuild&) = delete;
        DetachedBuild& operator=(const DetachedBuild&) = delete;

    private:
        VBTreeWidget* m_tree;
        QList<QTreeWidgetItem*> m_topLevel;
    };

    // List view.
    void SetListView();
    bool IsListView() const { return m_blnListView; }
    VBNode AddItem(const QString& strKey = QString(), const QString& strText = QString(),
                   const QVariant& varIcon = QVariant(), const QVariant& varSmallIcon = QVariant());
    VBNode ListItems(const QString& strKey) const { return Nodes(strKey); }
    VBNode ListItems(qint32 lngIndex) const;
    // Column headers with keys; a width in twips.
    qint32 AddColumnHeader(const QString& strKey, const QString& strText,
                           qint32 lngWidthTwips = 1440);
    qint32 ColumnHeaderIndex(const QString& strKey) const;
    void ClearColumnHeaders();

private:
    friend class VBNode;
    QTreeWidgetItem* newItem(const QString& strKey, const QString& strText,
                             const QVariant& varImage);
    // A kept node emptied to be used again, or nullptr when none is left.
    QTreeWidgetItem* takeSpare();
    // Whether a node under parent is hidden, at any depth.
    static bool anyRowHidden(const QTreeWidgetItem* parent);
    void registerItem(QTreeWidgetItem* item);
    void forget(QTreeWidgetItem* item);
    void onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
    void onItemExpandedChanged(QTreeWidgetItem* item);
    // The tree of a node, also while a DetachedBuild holds its top-level node outside the view.
    static VBTreeWidget* TreeOf(QTreeWidgetItem* item);

    QHash<QString, QTreeWidgetItem*> m_keys;
    QList<QTreeWidgetItem*> m_creationOrder;
    QStringList m_columnKeys;
    QPointer<VBImageList> m_images;
    qint64 m_serial = 0;
    bool m_blnListView = false;
    int m_reordering = 0;
    // Nodes of earlier loads kept by Clear (each with the children it still holds).
    QList<QTreeWidgetItem*> m_spare;
    // Top-level nodes out of the view during a DetachedBuild, with the tree they belong to.
    static QHash<QTreeWidgetItem*, VBTreeWidget*> s_detached;
};
