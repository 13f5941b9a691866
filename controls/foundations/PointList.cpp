#include "foundations/PointList.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTextEdit>
#include <QTreeWidget>

namespace {
constexpr int KeyRole = Qt::UserRole;
constexpr int NotesRole = Qt::UserRole + 5;
// The text a point had before the user renamed it in place.
constexpr int StoredTextRole = Qt::UserRole + 6;
constexpr qint32 PointTextTooLong = 513;

// The in-place editor of a point's text takes no more than the longest text
// allowed, so that the user cannot type a text that would be refused.
class PointTextDelegate : public QStyledItemDelegate {
public:
    PointTextDelegate(const qint32& lngMaxLength, QObject* parent)
        : QStyledItemDelegate(parent), m_lngMaxLength(lngMaxLength) {}
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        if (auto* line = qobject_cast<QLineEdit*>(editor); line && m_lngMaxLength > 0)
            line->setMaxLength(m_lngMaxLength);
        return editor;
    }

private:
    const qint32& m_lngMaxLength;
};

QPushButton* makeButton(const QString& strName, const QString& strCaption, const QString& strTip,
                        QWidget* parent) {
    auto* button = new QPushButton(strCaption, parent);
    button->setObjectName(strName);
    button->setToolTip(strTip);
    return button;
}

int rowOf(QTreeWidgetItem* item) {
    QTreeWidgetItem* parent = item->parent();
    return parent ? parent->indexOfChild(item) : item->treeWidget()->indexOfTopLevelItem(item);
}

QTreeWidgetItem* siblingAt(QTreeWidget* tree, QTreeWidgetItem* parent, int intRow) {
    return parent ? parent->child(intRow) : tree->topLevelItem(intRow);
}

int siblingCount(QTreeWidget* tree, QTreeWidgetItem* parent) {
    return parent ? parent->childCount() : tree->topLevelItemCount();
}

QString textOfTooLong() {
    return QStringLiteral("Point text is too long");
}
} // namespace

// ---- Point -------------------------------------------------------------------------------

QTreeWidgetItem* PointList::Point::checked() const {
    if (!m_item)
        throw VBError(VBErr::ObjectNotSet);
    return m_item;
}

QString PointList::Point::Key() const {
    return checked()->data(0, KeyRole).toString();
}

QString PointList::Point::Text() const {
    return checked()->text(0);
}

QVariant PointList::Point::Notes() const {
    return checked()->data(0, NotesRole);
}

PointList::Point PointList::Point::Parent() const {
    return Point(checked()->parent());
}

qint32 PointList::PointCollection::Count() const {
    const auto points = static_cast<qint32>(m_list.m_keys.size());
    return points == 0 ? 0 : points + 1;
}

// ---- The widget ------------------------------------------------------------------------------

PointList::PointList(QWidget* parent) : QWidget(parent) {
    tvwPoints = new QTreeWidget(this);
    tvwPoints->setObjectName(QStringLiteral("tvwPoints"));
    tvwPoints->setHeaderHidden(true);
    tvwPoints->setColumnCount(1);
    tvwPoints->setEditTriggers(QAbstractItemView::DoubleClicked |
                               QAbstractItemView::EditKeyPressed);
    tvwPoints->setItemDelegate(new PointTextDelegate(m_lngMaxLength, tvwPoints));
    lblNotes = new QLabel(tr("Notes:"), this);
    lblNotes->setObjectName(QStringLiteral("lblNotes"));
    txtNotes = new QTextEdit(this);
    txtNotes->setObjectName(QStringLiteral("txtNotes"));
    txtNotes->setAcceptRichText(false);
    txtNotes->setTabChangesFocus(true);
    lblNotes->setBuddy(txtNotes);

    cmdAdd = makeButton(QStringLiteral("cmdAdd"), tr("&Add Point"),
                        tr("Add a point after the selected one (Insert)"), this);
    cmdAddSubPoint = makeButton(QStringLiteral("cmdAddSubPoint"), tr("Add &Sub-point"),
                                tr("Add a sub-point to the selected point (Shift+Insert)"), this);
    cmdDelete = makeButton(QStringLiteral("cmdDelete"), tr("&Delete"),
                           tr("Delete the selected point (Delete)"), this);
    cmdIndent = makeButton(QStringLiteral("cmdIndent"), tr("&Indent"),
                           tr("Make the point a sub-point of the one above (Ctrl+Right)"), this);
    cmdOutdent = makeButton(QStringLiteral("cmdOutdent"), tr("&Outdent"),
                            tr("Move the point out one level (Ctrl+Left)"), this);
    cmdMoveUp = makeButton(QStringLiteral("cmdMoveUp"), tr("Move &Up"),
                           tr("Move the point up (Ctrl+Up)"), this);
    cmdMoveDown = makeButton(QStringLiteral("cmdMoveDown"), tr("Move Do&wn"),
                             tr("Move the point down (Ctrl+Down)"), this);

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button :
         {cmdAdd, cmdAddSubPoint, cmdDelete, cmdIndent, cmdOutdent, cmdMoveUp, cmdMoveDown})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addLayout(buttons, 0, 0);
    grid->addWidget(tvwPoints, 1, 0);
    grid->addWidget(lblNotes, 2, 0);
    grid->addWidget(txtNotes, 3, 0);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(3, 1);

    connect(cmdAdd, &QPushButton::clicked, this, &PointList::cmdAdd_Click);
    connect(cmdAddSubPoint, &QPushButton::clicked, this, &PointList::cmdAddSubPoint_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &PointList::cmdDelete_Click);
    connect(cmdIndent, &QPushButton::clicked, this, &PointList::cmdIndent_Click);
    connect(cmdOutdent, &QPushButton::clicked, this, &PointList::cmdOutdent_Click);
    connect(cmdMoveUp, &QPushButton::clicked, this, &PointList::cmdMoveUp_Click);
    connect(cmdMoveDown, &QPushButton::clicked, this, &PointList::cmdMoveDown_Click);
    connect(tvwPoints, &QTreeWidget::itemChanged, this, &PointList::tvwPoints_ItemChanged);
    connect(tvwPoints, &QTreeWidget::currentItemChanged, this,
            &PointList::tvwPoints_CurrentItemChanged);
    tvwPoints->installEventFilter(this);
    txtNotes->installEventFilter(this);
    SetUpButtons();
}

void PointList::setmaxlengthofpointtext(qint32 lngLength) {
    m_lngMaxLength = lngLength;
}

// ---- Loading by code --------------------------------------------------------------------------

void PointList::Clear() {
    ++m_filling;
    m_notesOf = nullptr;
    tvwPoints->clear();
    txtNotes->clear();
    m_keys.clear();
    m_walk.clear();
    m_walkPos = 0;
    m_lngLastKey = 0;
    --m_filling;
    SetUpButtons();
}

QTreeWidgetItem* PointList::newPoint(const QString& strKey, const QString& strText,
                                     const QVariant& varNotes) {
    auto* item = new QTreeWidgetItem(QStringList(strText));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setData(0, KeyRole, strKey);
    item->setData(0, NotesRole, varNotes);
    item->setData(0, StoredTextRole, strText);
    m_keys.insert(strKey, item);
    return item;
}

QString PointList::newKey() {
    QString strKey;
    do {
        strKey = QStringLiteral("P%1").arg(++m_lngLastKey);
    } while (m_keys.contains(strKey));
    return strKey;
}

void PointList::AddPoint(const QString& PointKey, const QString& ParentPointKey,
                         const QString& PointText, const QVariant& varReserved,
                         const QVariant& PointNotes) {
    Q_UNUSED(varReserved);
    if (!PointKey.isEmpty() && m_keys.contains(PointKey))
        throw VBError(VBErr::KeyNotUnique);
    ++m_filling;
    QTreeWidgetItem* parent = m_keys.value(ParentPointKey);
    QTreeWidgetItem* item =
        newPoint(PointKey.isEmpty() ? newKey() : PointKey, PointText, PointNotes);
    if (parent)
        parent->addChild(item);
    else
        tvwPoints->addTopLevelItem(item);
    --m_filling;
    SetUpButtons();
}

void PointList::Redraw(const QString& strKeyToSelect) {
    tvwPoints->expandAll();
    if (QTreeWidgetItem* item = m_keys.value(strKeyToSelect)) {
        tvwPoints->setCurrentItem(item);
        tvwPoints->scrollToItem(item);
    }
    SetUpButtons();
}

PointList::Point PointList::SelectedPoint() const {
    return Point(tvwPoints->currentItem());
}

PointList::Point PointList::PointByKey(const QString& strKey) const {
    return Point(m_keys.value(strKey));
}

void PointList::collect(QTreeWidgetItem* item, QList<QTreeWidgetItem*>& into) const {
    into.append(item);
    for (int i = 0; i < item->childCount(); ++i)
        collect(item->child(i), into);
}

QList<QTreeWidgetItem*> PointList::inListOrder() const {
    QList<QTreeWidgetItem*> items;
    for (int i = 0; i < tvwPoints->topLevelItemCount(); ++i)
        collect(tvwPoints->topLevelItem(i), items);
    return items;
}

PointList::Point PointList::NextPoint(bool blnFirst) {
    if (blnFirst) {
        m_walk = inListOrder();
        m_walkPos = 0;
    } else {
        ++m_walkPos;
    }
    return Point(m_walkPos < m_walk.size() ? m_walk.at(m_walkPos) : nullptr);
}

void PointList::RenamePoint(const QString& strKey, const QString& strText) {
    QTreeWidgetItem* item = m_keys.value(strKey);
    if (!item)
        throw VBError(VBErr::ElementNotFound);
    if (m_lngMaxLength > 0 && strText.size() > m_lngMaxLength)
        throw VBError(PointTextTooLong, textOfTooLong());
    ++m_filling;
    item->setText(0, strText);
    item->setData(0, StoredTextRole, strText);
    --m_filling;
    emit PointRenamed();
}

// ---- What the user does ---------------------------------------------------------------------

void PointList::addByUser(QTreeWidgetItem* parent, int intRow) {
    ++m_filling;
    QTreeWidgetItem* item = newPoint(newKey(), tr("New Point"), QVariant());
    if (parent) {
        parent->insertChild(intRow, item);
        parent->setExpanded(true);
    } else {
        tvwPoints->insertTopLevelItem(intRow, item);
    }
    --m_filling;
    tvwPoints->setCurrentItem(item);
    SetUpButtons();
    emit PointAdded();
    // The owner may have drawn the outline again; the new point is still the
    // one to name.
    if (tvwPoints->isVisible() && m_keys.value(item->data(0, KeyRole).toString()) == item)
        tvwPoints->editItem(item, 0);
}

void PointList::cmdAdd_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (!current)
            addByUser(nullptr, tvwPoints->topLevelItemCount());
        else
            addByUser(current->parent(), rowOf(current) + 1);
    });
}

void PointList::cmdAddSubPoint_Click() {
    ErrorReport::Guard([&] {
        if (QTreeWidgetItem* current = tvwPoints->currentItem())
            addByUser(current, current->childCount());
    });
}

void PointList::forget(QTreeWidgetItem* item) {
    m_keys.remove(item->data(0, KeyRole).toString());
    for (int i = 0; i < item->childCount(); ++i)
        forget(item->child(i));
}

// A point with sub-points is deleted only after the user agreed, since its
// sub-points go with it.
void PointList::cmdDelete_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (!current)
            return;
        if (current->childCount() > 0 &&
            Platform::Current().MsgBox(tr("Delete this point and its sub-points?"),
                                       vbYesNo | vbQuestion | vbDefaultButton2,
                                       tr("Delete Point")) != vbYes)
            return;
        QTreeWidgetItem* parent = current->parent();
        const int row = rowOf(current);
        const bool blnIsChild = parent != nullptr;
        ++m_filling;
        m_notesOf = nullptr;
        forget(current);
        delete current;
        --m_filling;
        const int count = siblingCount(tvwPoints, parent);
        QTreeWidgetItem* next =
            count > 0 ? siblingAt(tvwPoints, parent, qMin(row, count - 1)) : parent;
        tvwPoints->setCurrentItem(next);
        if (!next)
            txtNotes->clear();
        SetUpButtons();
        emit PointDeleted(blnIsChild);
    });
}

void PointList::moveTo(QTreeWidgetItem* item, QTreeWidgetItem* parent, int intRow) {
    ++m_filling;
    commitNotes(item);
    m_notesOf = nullptr;
    QTreeWidgetItem* oldParent = item->parent();
    if (oldParent)
        oldParent->takeChild(oldParent->indexOfChild(item));
    else
        tvwPoints->takeTopLevelItem(tvwPoints->indexOfTopLevelItem(item));
    if (parent) {
        parent->insertChild(intRow, item);
        parent->setExpanded(true);
    } else {
        tvwPoints->insertTopLevelItem(intRow, item);
    }
    // A point taken out of the tree closes; it and its sub-points are opened again.
    QList<QTreeWidgetItem*> moved;
    collect(item, moved);
    for (QTreeWidgetItem* each : moved)
        each->setExpanded(true);
    --m_filling;
    tvwPoints->setCurrentItem(item);
    SetUpButtons();
    emit PointReOrdered();
}

void PointList::cmdIndent_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (!current || rowOf(current) == 0)
            return;
        QTreeWidgetItem* above = siblingAt(tvwPoints, current->parent(), rowOf(current) - 1);
        moveTo(current, above, above->childCount());
    });
}

// The point becomes the next sibling of its parent; the points after it stay
// with the parent.
void PointList::cmdOutdent_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (!current || !current->parent())
            return;
        QTreeWidgetItem* parent = current->parent();
        moveTo(current, parent->parent(), rowOf(parent) + 1);
    });
}

void PointList::cmdMoveUp_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (current && rowOf(current) > 0)
            moveTo(current, current->parent(), rowOf(current) - 1);
    });
}

void PointList::cmdMoveDown_Click() {
    ErrorReport::Guard([&] {
        QTreeWidgetItem* current = tvwPoints->currentItem();
        if (current && rowOf(current) < siblingCount(tvwPoints, current->parent()) - 1)
            moveTo(current, current->parent(), rowOf(current) + 1);
    });
}

// A point renamed in place: an empty text puts the former one back.
void PointList::tvwPoints_ItemChanged(QTreeWidgetItem* item, int column) {
    if (m_filling > 0 || column != 0)
        return;
    ErrorReport::Guard([&] {
        const QString strOld = item->data(0, StoredTextRole).toString();
        const QString strNew = item->text(0).trimmed();
        ++m_filling;
        if (strNew.isEmpty() || strNew == strOld) {
            item->setText(0, strOld);
            --m_filling;
            return;
        }
        item->setText(0, strNew);
        item->setData(0, StoredTextRole, strNew);
        --m_filling;
        emit PointRenamed();
    });
}

void PointList::commitNotes(QTreeWidgetItem* item) {
    if (!item || item != m_notesOf)
        return;
    const QString strNotes = txtNotes->toPlainText();
    const QVariant varOld = item->data(0, NotesRole);
    if (strNotes == varOld.toString())
        return;
    item->setData(0, NotesRole, strNotes);
    emit PointNotesChanged();
}

void PointList::tvwPoints_CurrentItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous) {
    ErrorReport::Guard([&] {
        if (m_filling == 0)
            commitNotes(previous);
        m_notesOf = current;
        txtNotes->setPlainText(current ? current->data(0, NotesRole).toString() : QString());
        SetUpButtons();
    });
}

void PointList::SetUpButtons() {
    QTreeWidgetItem* current = tvwPoints->currentItem();
    const int row = current ? rowOf(current) : -1;
    cmdAddSubPoint->setEnabled(current != nullptr);
    cmdDelete->setEnabled(current != nullptr);
    cmdIndent->setEnabled(current && row > 0);
    cmdOutdent->setEnabled(current && current->parent());
    cmdMoveUp->setEnabled(current && row > 0);
    cmdMoveDown->setEnabled(current && row < siblingCount(tvwPoints, current->parent()) - 1);
    txtNotes->setEnabled(current != nullptr);
}

// The keys of the outline; leaving the notes box stores what was typed there.
bool PointList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtNotes && event->type() == QEvent::FocusOut) {
        ErrorReport::Guard([&] { commitNotes(m_notesOf); });
        return QWidget::eventFilter(watched, event);
    }
    // Keys typed into a point being renamed go to its editor, not through here.
    if (watched != tvwPoints || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers mods =
        key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (key->key() == Qt::Key_Insert && mods == Qt::NoModifier)
        cmdAdd_Click();
    else if (key->key() == Qt::Key_Insert && mods == Qt::ShiftModifier)
        cmdAddSubPoint_Click();
    else if (key->key() == Qt::Key_Delete && mods == Qt::NoModifier)
        cmdDelete_Click();
    else if (key->key() == Qt::Key_Right && mods == Qt::ControlModifier)
        cmdIndent_Click();
    else if (key->key() == Qt::Key_Left && mods == Qt::ControlModifier)
        cmdOutdent_Click();
    else if (key->key() == Qt::Key_Up && mods == Qt::ControlModifier)
        cmdMoveUp_Click();
    else if (key->key() == Qt::Key_Down && mods == Qt::ControlModifier)
        cmdMoveDown_Click();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}
