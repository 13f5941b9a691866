#include "foundations/VBTreeWidget.h"

#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"

#include <QHeaderView>
#include <algorithm>
#include <functional>
#include <typeinfo>

// ---------------------------------------------------------------- VBNode

VBNode::VBNode(QTreeWidgetItem* item) : m_item(item) {}

QTreeWidgetItem* VBNode::checked() const {
    if (!m_item)
        throw VBError(VBErr::ObjectNotSet);
    return m_item;
}

VBTreeWidget* VBNode::tree() const {
    return VBTreeWidget::TreeOf(checked());
}

QString VBNode::Key() const {
    return checked()->data(0, VBRole::Key).toString();
}

QVariant VBNode::Tag() const {
    return checked()->data(0, VBRole::Tag);
}

void VBNode::setTag(const QVariant& varTag) {
    checked()->setData(0, VBRole::Tag, varTag);
}

QString VBNode::Text() const {
    return checked()->text(0);
}

void VBNode::setText(const QString& strText) {
    checked()->setText(0, strText);
}

qint32 VBNode::Index() const {
    QTreeWidgetItem* item = checked();
    VBTreeWidget* t = tree();
    if (!t)
        return 0;
    if (t->IsListView())
        return t->indexOfTopLevelItem(item) + 1;
    return t->IndexOf(item);
}

bool VBNode::Bold() const {
    return checked()->font(0).bold();
}

void VBNode::setBold(bool blnBold) {
    QFont f = checked()->font(0);
    f.setBold(blnBold);
    m_item->setFont(0, f);
}

bool VBNode::Selected() const {
    return checked()->isSelected();
}

void VBNode::setSelected(bool blnSelected) {
    QTreeWidgetItem* item = checked();
    if (blnSelected && item->treeWidget())
        item->treeWidget()->setCurrentItem(item);
    item->setSelected(blnSelected);
}

bool VBNode::Expanded() const {
    return checked()->isExpanded();
}

void VBNode::setExpanded(bool blnExpanded) {
    checked()->setExpanded(blnExpanded);
}

QVariant VBNode::Image() const {
    return checked()->data(0, VBRole::Image);
}

void VBNode::setImage(const QVariant& varImage) {
    QTreeWidgetItem* item = checked();
    item->setData(0, VBRole::Image, varImage);
    if (VBTreeWidget* t = tree())
        item->setIcon(0, t->IconFor(varImage));
}

QVariant VBNode::ExpandedImage() const {
    return checked()->data(0, VBRole::ExpandedImage);
}

void VBNode::setExpandedImage(const QVariant& varImage) {
    checked()->setData(0, VBRole::ExpandedImage, varImage);
    if (m_item->isExpanded() && tree())
        m_item->setIcon(0, tree()->IconFor(varImage));
}

qint32 VBNode::Children() const {
    return checked()->childCount();
}

VBNode VBNode::Child() const {
    QTreeWidgetItem* item = checked();
    return item->childCount() > 0 ? VBNode(item->child(0)) : VBNode();
}

namespace {
// The siblings of an item: its parent's children, or the top level.
int siblingCount(QTreeWidgetItem* item) {
    if (item->parent())
        return item->parent()->childCount();
    return item->treeWidget() ? item->treeWidget()->topLevelItemCount() : 0;
}
QTreeWidgetItem* sibling(QTreeWidgetItem* item, int index) {
    if (index < 0 || index >= siblingCount(item))
        return nullptr;
    if (item->parent())
        return item->parent()->child(index);
    return item->treeWidget()->topLevelItem(index);
}
int siblingIndex(QTreeWidgetItem* item) {
    if (item->parent())
        return item->parent()->indexOfChild(item);
    return item->treeWidget() ? item->treeWidget()->indexOfTopLevelItem(item) : -1;
}
} // namespace

VBNode VBNode::Next() const {
    QTreeWidgetItem* item = checked(); // before the walk: Nothing raises 91
    return VBNode(sibling(item, siblingIndex(item) + 1));
}

VBNode VBNode::Previous() const {
    QTreeWidgetItem* item = checked();
    return VBNode(sibling(item, siblingIndex(item) - 1));
}

VBNode VBNode::Parent() const {
    return VBNode(checked()->parent());
}

VBNode VBNode::FirstSibling() const {
    return VBNode(sibling(checked(), 0));
}

VBNode VBNode::LastSibling() const {
    QTreeWidgetItem* item = checked();
    return VBNode(sibling(item, siblingCount(item) - 1));
}

VBNode VBNode::Root() const {
    QTreeWidgetItem* item = checked();
    while (item->parent())
        item = item->parent();
    return VBNode(item);
}

void VBNode::EnsureVisible() {
    QTreeWidgetItem* item = checked();
    for (QTreeWidgetItem* p = item->parent(); p; p = p->parent())
        p->setExpanded(true);
    if (item->treeWidget())
        item->treeWidget()->scrollToItem(item);
}

void VBNode::setSorted(bool blnSorted) {
    if (blnSorted)
        VBTreeWidget::SortChildren(checked(), tree());
}

QString VBNode::SubItems(qint32 intIndex) const {
    if (intIndex < 1)
        throw VBError(VBErr::IndexOutOfBounds);
    return checked()->text(intIndex);
}

void VBNode::setSubItems(qint32 intIndex, const QString& strText) {
    if (intIndex < 1)
        throw VBError(VBErr::IndexOutOfBounds);
    checked()->setText(intIndex, strText);
}

bool VBNode::SubItemBold(qint32 intIndex) const {
    return checked()->font(intIndex).bold();
}

void VBNode::setSubItemBold(qint32 intIndex, bool blnBold) {
    QFont f = checked()->font(intIndex);
    f.setBold(blnBold);
    m_item->setFont(intIndex, f);
}

QString VBNode::ToolTipText() const {
    return checked()->toolTip(0);
}

void VBNode::setToolTipText(const QString& strText) {
    checked()->setToolTip(0, strText);
}

// ---------------------------------------------------------------- VBTreeWidget

QHash<QTreeWidgetItem*, VBTreeWidget*> VBTreeWidget::s_detached;

VBTreeWidget* VBTreeWidget::TreeOf(QTreeWidgetItem* item) {
    if (QTreeWidget* view = item->treeWidget())
        return qobject_cast<VBTreeWidget*>(view);
    if (s_detached.isEmpty())
        return nullptr;
    while (item->parent())
        item = item->parent();
    return s_detached.value(item, nullptr);
}

VBTreeWidget::DetachedBuild::DetachedBuild(VBTreeWidget* tree) : m_tree(tree) {
    // Taken out without forgetting their keys: they come back.
    ++m_tree->m_reordering;
    while (m_tree->topLevelItemCount() > 0)
        m_topLevel.append(m_tree->takeTopLevelItem(0));
    --m_tree->m_reordering;
    for (QTreeWidgetItem* item : m_topLevel)
        s_detached.insert(item, m_tree);
}

VBTreeWidget::DetachedBuild::~DetachedBuild() {
    // Nodes added at the top level meanwhile went into the view at once, after these; one
    // removed meanwhile is gone (Remove took it off the list).
    int at = 0;
    for (QTreeWidgetItem* item : m_topLevel)
        if (s_detached.remove(item))
            m_tree->insertTopLevelItem(at++, item);
}

VBTreeWidget::VBTreeWidget(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    connect(model(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &VBTreeWidget::onRowsAboutToBeRemoved);
    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        if (m_reordering == 0) {
            m_keys.clear();
            m_creationOrder.clear();
        }
    });
    connect(this, &QTreeWidget::itemExpanded, this, &VBTreeWidget::onItemExpandedChanged);
    connect(this, &QTreeWidget::itemCollapsed, this, &VBTreeWidget::onItemExpandedChanged);
}

// The model is a child of the widget and is deleted after this class's members
// are gone; its last signals must not reach them.
VBTreeWidget::~VBTreeWidget() {
    disconnect(model(), nullptr, this, nullptr);
    qDeleteAll(m_spare);
}

void VBTreeWidget::forget(QTreeWidgetItem* item) {
    for (int i = 0; i < item->childCount(); ++i)
        forget(item->child(i));
    const QString key = item->data(0, VBRole::Key).toString();
    if (!key.isEmpty() && m_keys.value(key) == item)
        m_keys.remove(key);
    m_creationOrder.removeOne(item);
}

void VBTreeWidget::onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
    if (m_reordering > 0)
        return;
    QTreeWidgetItem* parentItem = parent.isValid() ? itemFromIndex(parent) : nullptr;
    for (int row = first; row <= last; ++row) {
        QTreeWidgetItem* item = parentItem ? parentItem->child(row) : topLevelItem(row);
        if (item)
            forget(item);
    }
}

void VBTreeWidget::onItemExpandedChanged(QTreeWidgetItem* item) {
    const QVariant expanded = item->data(0, VBRole::ExpandedImage);
    if (!expanded.isValid())
        return;
    item->setIcon(0, IconFor(item->isExpanded() ? expanded : item->data(0, VBRole::Image)));
}

QIcon VBTreeWidget::IconFor(const QVariant& varImage) const {
    if (!varImage.isValid() || varImage.isNull() || !m_images)
        return QIcon();
    if (varImage.typeId() == QMetaType::QString && varImage.toString().isEmpty())
        return QIcon();
    return m_images->Icon(varImage);
}

// A new node is filled before it goes into the tree, so that the model
// announces it once instead of once per field.
QTreeWidgetItem* VBTreeWidget::newItem(const QString& strKey, const QString& strText,
                                       const QVariant& varImage) {
    if (!strKey.isEmpty()) {
        if (VB::IsNumeric(strKey))
            throw VBError(VBErr::InvalidKey);
        if (m_keys.contains(strKey))
            throw VBError(VBErr::KeyNotUnique);
    }
    const QIcon icon = IconFor(varImage);
    QTreeWidgetItem* item = takeSpare();
    if (!item)
        item = new QTreeWidgetItem;
    item->setData(0, VBRole::Key, strKey.isEmpty() ? QVariant() : QVariant(strKey));
    item->setData(0, VBRole::Serial, ++m_serial);
    item->setText(0, strText);
    item->setData(0, VBRole::Image, varImage);
    item->setIcon(0, icon);
    return item;
}

void VBTreeWidget::registerItem(QTreeWidgetItem* item) {
    m_creationOrder.append(item);
    const QString key = item->data(0, VBRole::Key).toString();
    if (!key.isEmpty())
        m_keys.insert(key, item);
}

VBNode VBTreeWidget::Add(const QVariant& varRelative, qint32 intRelationship, const QString& strKey,
                         const QString& strText, const QVariant& varImage,
                         const QVariant& varSelectedImage) {
    Q_UNUSED(varSelectedImage);
    const bool noRelative =
        !varRelative.isValid() || varRelative.isNull() ||
        (varRelative.typeId() == QMetaType::QString && varRelative.toString().isEmpty());
    QTreeWidgetItem* relative = noRelative ? nullptr : Nodes(varRelative).Item();
    QTreeWidgetItem* item = newItem(strKey, strText, varImage);
    if (!relative) {
        if (intRelationship == tvwFirst)
            insertTopLevelItem(0, item);
        else
            addTopLevelItem(item);
    } else {
        QTreeWidgetItem* parent = relative->parent();
        const int at = siblingIndex(relative);
        auto insertAt = [&](int index) {
            if (parent)
                parent->insertChild(index, item);
            else
                insertTopLevelItem(index, item);
        };
        switch (intRelationship) {
        case tvwChild:
            relative->addChild(item);
            break;
        case tvwFirst:
            insertAt(0);
            break;
        case tvwNext:
            insertAt(at + 1);
            break;
        case tvwPrevious:
            insertAt(at);
            break;
        default:
            insertAt(siblingCount(relative));
            break;
        }
    }
    registerItem(item);
    return VBNode(item);
}

VBNode VBTreeWidget::Nodes(const QString& strKey) const {
    auto it = m_keys.constFind(strKey);
    if (it == m_keys.constEnd())
        throw VBError(VBErr::ElementNotFound);
    return VBNode(it.value());
}

VBNode VBTreeWidget::Nodes(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > Count())
        throw VBError(VBErr::IndexOutOfBounds);
    return VBNode(m_creationOrder.at(lngIndex - 1));
}

VBNode VBTreeWidget::Nodes(const QVariant& varKeyOrIndex) const {
    if (varKeyOrIndex.typeId() == QMetaType::QString)
        return Nodes(varKeyOrIndex.toString());
    bool ok = false;
    const qint32 index = varKeyOrIndex.toInt(&ok);
    if (!ok)
        throw VBError(VBErr::TypeMismatch);
    return Nodes(index);
}

void VBTreeWidget::Remove(const QVariant& varKeyOrIndex) {
    QTreeWidgetItem* item = Nodes(varKeyOrIndex).Item();
    // Outside the view (a DetachedBuild) no model tells of the removal.
    if (!item->treeWidget()) {
        forget(item);
        s_detached.remove(item);
    }
    delete item;
}

void VBTreeWidget::Clear() {
    const qsizetype keys = m_keys.size();
    // A hidden node would come back hidden: such a tree is cleared the plain way.
    QList<QTreeWidgetItem*> taken;
    if (topLevelItemCount() > 0 && !anyRowHidden(invisibleRootItem())) {
        // Selected nodes are told so by the view; they leave it unselected.
        clearSelection();
        ++m_reordering; // the keys are all forgotten below, not one node at a time
        taken = invisibleRootItem()->takeChildren();
        --m_reordering;
    }
    clear();
    m_keys.clear();
    m_keys.reserve(keys); // the next load is likely as large
    m_creationOrder.clear();
    m_spare.append(taken);
}

bool VBTreeWidget::anyRowHidden(const QTreeWidgetItem* parent) {
    // A node answers at once while none in its view is hidden.
    for (int i = 0; i < parent->childCount(); ++i) {
        const QTreeWidgetItem* child = parent->child(i);
        if (child->isHidden() || (child->childCount() > 0 && anyRowHidden(child)))
            return true;
    }
    return false;
}

QTreeWidgetItem* VBTreeWidget::takeSpare() {
    // Made once, never shown: what every kept node is reset to.
    static const QTreeWidgetItem blank;
    while (!m_spare.isEmpty()) {
        QTreeWidgetItem* item = m_spare.takeLast();
        m_spare.append(item->takeChildren());
        // Only plain nodes are used again; one of another kind (or still marked selected) goes.
        if (typeid(*item) != typeid(QTreeWidgetItem) || item->type() != QTreeWidgetItem::Type ||
            item->isSelected()) {
            delete item;
            continue;
        }
        *item = blank; // texts, data, pictures, fonts and flags of a new node
        return item;
    }
    return nullptr;
}

qint32 VBTreeWidget::IndexOf(const QTreeWidgetItem* item) const {
    return static_cast<qint32>(m_creationOrder.indexOf(const_cast<QTreeWidgetItem*>(item))) + 1;
}

VBNode VBTreeWidget::SelectedItem() const {
    QTreeWidgetItem* item = currentItem();
    if (item && item->isSelected())
        return VBNode(item);
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? VBNode() : VBNode(selected.first());
}

void VBTreeWidget::setSelectedItem(const VBNode& node) {
    if (node.IsNothing()) {
        clearSelection();
        return;
    }
    VBNode(node).setSelected(true);
}

void VBTreeWidget::setSorted(bool blnSorted) {
    if (blnSorted)
        SortChildren(nullptr, this);
}

namespace {
// The order of QString::compare without regard to case, found faster for the usual texts: while
// both texts hold ASCII at the same places, letters are compared in lower case by hand; at the
// first other place the two texts differ, QString::compare decides (the places before it are
// the same, so its answer is the answer for the whole text).
bool TextBefore(const QString& a, const QString& b) {
    const qsizetype length = std::min(a.size(), b.size());
    const auto* x = reinterpret_cast<const char16_t*>(a.constData());
    const auto* y = reinterpret_cast<const char16_t*>(b.constData());
    for (qsizetype i = 0; i < length; ++i) {
        if (x[i] == y[i])
            continue;
        if (x[i] >= 0x80 || y[i] >= 0x80)
            return a.compare(b, Qt::CaseInsensitive) < 0;
        const char16_t lx = x[i] >= u'A' && x[i] <= u'Z' ? x[i] + (u'a' - u'A') : x[i];
        const char16_t ly = y[i] >= u'A' && y[i] <= u'Z' ? y[i] + (u'a' - u'A') : y[i];
        if (lx != ly)
            return lx < ly;
    }
    return a.size() < b.size();
}
} // namespace

void VBTreeWidget::SortChildren(QTreeWidgetItem* parent, VBTreeWidget* tree) {
    if (!tree)
        return;
    // Taking the items out and back would drop their expanded state: keep it.
    QList<QTreeWidgetItem*> expanded;
    std::function<void(QTreeWidgetItem*)> note = [&](QTreeWidgetItem* item) {
        if (item->isExpanded())
            expanded.append(item);
        for (int i = 0; i < item->childCount(); ++i)
            note(item->child(i));
    };
    // Noted while the items are still in the view: a taken item is never
    // expanded.
    if (parent) {
        for (int i = 0; i < parent->childCount(); ++i)
            note(parent->child(i));
    } else {
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            note(tree->topLevelItem(i));
    }
    ++tree->m_reordering;
    QList<QTreeWidgetItem*> items;
    if (parent) {
        items = parent->takeChildren();
    } else {
        while (tree->topLevelItemCount() > 0)
            items.append(tree->takeTopLevelItem(0));
    }
    // Each text is read once, not on every comparison.
    QList<std::pair<QString, QTreeWidgetItem*>> byText;
    byText.reserve(items.size());
    for (QTreeWidgetItem* item : items)
        byText.append({item->text(0), item});
    std::stable_sort(byText.begin(), byText.end(),
                     [](const auto& a, const auto& b) { return TextBefore(a.first, b.first); });
    for (qsizetype i = 0; i < byText.size(); ++i)
        items[i] = byText.at(i).second;
    if (parent)
        parent->addChildren(items);
    else
        tree->addTopLevelItems(items);
    --tree->m_reordering;
    for (QTreeWidgetItem* item : expanded)
        item->setExpanded(true);
}

void VBTreeWidget::SetListView() {
    m_blnListView = true;
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setHeaderHidden(false);
    header()->setStretchLastSection(false);
}

VBNode VBTreeWidget::AddItem(const QString& strKey, const QString& strText, const QVariant& varIcon,
                             const QVariant& varSmallIcon) {
    Q_UNUSED(varIcon);
    QTreeWidgetItem* item = newItem(strKey, strText, varSmallIcon);
    addTopLevelItem(item);
    registerItem(item);
    return VBNode(item);
}

VBNode VBTreeWidget::ListItems(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > topLevelItemCount())
        throw VBError(VBErr::IndexOutOfBounds);
    return VBNode(topLevelItem(lngIndex - 1));
}

qint32 VBTreeWidget::AddColumnHeader(const QString& strKey, const QString& strText,
                                     qint32 lngWidthTwips) {
    if (!strKey.isEmpty() && m_columnKeys.contains(strKey))
        throw VBError(VBErr::KeyNotUnique);
    m_columnKeys.append(strKey);
    const int column = static_cast<int>(m_columnKeys.size()) - 1;
    setColumnCount(column + 1);
    QTreeWidgetItem* head = headerItem();
    head->setText(column, strText);
    setColumnWidth(column, Twips::ToPixels(lngWidthTwips));
    return column + 1;
}

qint32 VBTreeWidget::ColumnHeaderIndex(const QString& strKey) const {
    const qsizetype at = m_columnKeys.indexOf(strKey);
    if (at < 0)
        throw VBError(VBErr::ElementNotFound);
    return static_cast<qint32>(at) + 1;
}

void VBTreeWidget::ClearColumnHeaders() {
    m_columnKeys.clear();
    setColumnCount(1);
    headerItem()->setText(0, QString());
}
