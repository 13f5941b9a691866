#include "foundations/ListManager.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"

#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
constexpr int ItemDataRole = Qt::UserRole;
constexpr int FlagRole = Qt::UserRole + 1;
// The text an entry had before the user renamed it in place.
constexpr int StoredTextRole = Qt::UserRole + 2;

QListWidgetItem* makeEntry(const QString& strText, qint16 intFlag, const QVariant& varItemData) {
    auto* item = new QListWidgetItem(strText);
    item->setData(ItemDataRole, varItemData);
    item->setData(FlagRole, intFlag);
    item->setData(StoredTextRole, strText);
    return item;
}

QPushButton* makeButton(const QString& strName, const QString& strCaption, QWidget* parent) {
    auto* button = new QPushButton(strCaption, parent);
    button->setObjectName(strName);
    return button;
}
} // namespace

ListManager::ListManager(QWidget* parent) : QWidget(parent) {
    lblCaption = new QLabel(this);
    lblCaption->setObjectName(QStringLiteral("lblCaption"));
    lstAvailable = new QListWidget(this);
    lstAvailable->setObjectName(QStringLiteral("lstAvailable"));
    lstAvailable->setSortingEnabled(true);
    lstChosen = new QListWidget(this);
    lstChosen->setObjectName(QStringLiteral("lstChosen"));
    lstChosen->setEditTriggers(QAbstractItemView::DoubleClicked |
                               QAbstractItemView::EditKeyPressed);
    txtNewItem = new QLineEdit(this);
    txtNewItem->setObjectName(QStringLiteral("txtNewItem"));
    txtNewItem->setPlaceholderText(tr("Type a new entry"));
    cmdAdd = makeButton(QStringLiteral("cmdAdd"), QStringLiteral(">"), this);
    cmdAdd->setToolTip(tr("Choose the selected entry"));
    cmdRemove = makeButton(QStringLiteral("cmdRemove"), QStringLiteral("<"), this);
    cmdRemove->setToolTip(tr("Take the selected entry out"));
    cmdNew = makeButton(QStringLiteral("cmdNew"), tr("&Add"), this);
    cmdNew->setToolTip(tr("Add the typed entry to the chosen list"));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(lblCaption, 0, 0, 1, 3);
    grid->addWidget(lstAvailable, 1, 0, 3, 1);
    grid->addWidget(cmdAdd, 1, 1);
    grid->addWidget(cmdRemove, 2, 1);
    grid->setRowStretch(3, 1);
    grid->addWidget(lstChosen, 1, 2, 3, 1);
    grid->addWidget(txtNewItem, 4, 0, 1, 2);
    grid->addWidget(cmdNew, 4, 2, Qt::AlignLeft);

    connect(cmdAdd, &QPushButton::clicked, this, &ListManager::cmdAdd_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &ListManager::cmdRemove_Click);
    connect(cmdNew, &QPushButton::clicked, this, &ListManager::cmdNew_Click);
    connect(txtNewItem, &QLineEdit::returnPressed, this, &ListManager::cmdNew_Click);
    connect(txtNewItem, &QLineEdit::textChanged, this, &ListManager::SetUpButtons);
    connect(lstAvailable, &QListWidget::itemDoubleClicked, this,
            &ListManager::lstAvailable_DblClick);
    connect(lstChosen, &QListWidget::itemChanged, this, &ListManager::lstChosen_ItemChanged);
    connect(lstAvailable, &QListWidget::itemSelectionChanged, this, &ListManager::SetUpButtons);
    connect(lstChosen, &QListWidget::itemSelectionChanged, this, &ListManager::SetUpButtons);
    lstAvailable->installEventFilter(this);
    lstChosen->installEventFilter(this);
    SetUpButtons();
}

QString ListManager::Caption() const {
    return lblCaption->text();
}

void ListManager::setCaption(const QString& strCaption) {
    lblCaption->setText(strCaption);
}

// ---- The two lists by code -------------------------------------------------------------

void ListManager::ClearAvailableItems() {
    lstAvailable->clear();
    SetUpButtons();
}

void ListManager::AddAvailableItem(const QString& strText, qint16 intFlag,
                                   const QVariant& varItemData) {
    QListWidgetItem* item = makeEntry(strText, intFlag, varItemData);
    lstAvailable->addItem(item);
    item->setHidden(findIn(lstChosen, strText) != nullptr);
    SetUpButtons();
}

void ListManager::ClearChosenItems() {
    const QSignalBlocker blocker(lstChosen);
    lstChosen->clear();
    for (int i = 0; i < lstAvailable->count(); ++i)
        lstAvailable->item(i)->setHidden(false);
    SetUpButtons();
}

bool ListManager::AddChosenItem(const QString& strText, qint16 intFlag, bool blnRaiseEvents,
                                const QVariant& varItemData) {
    return addChosen(strText, intFlag, varItemData, blnRaiseEvents);
}

bool ListManager::ItemIsAvailable(const QString& strText, qint16 intFlag,
                                  QString& strErrorMessage) const {
    strErrorMessage.clear();
    for (int i = 0; i < lstAvailable->count(); ++i) {
        const QListWidgetItem* item = lstAvailable->item(i);
        if (item->text().compare(strText, Qt::CaseInsensitive) == 0 &&
            item->data(FlagRole).toInt() == intFlag)
            return true;
    }
    return false;
}

qint32 ListManager::AvailableCount() const {
    return lstAvailable->count();
}

qint32 ListManager::ChosenCount() const {
    return lstChosen->count();
}

QVariant ListManager::ChosenItemData(qint32 intIndex) const {
    return chosenAt(intIndex)->data(ItemDataRole);
}

QString ListManager::ChosenItemText(qint32 intIndex) const {
    return chosenAt(intIndex)->text();
}

void ListManager::RemoveChosenItem(qint32 intIndex) {
    removeChosen(chosenAt(intIndex));
}

QListWidgetItem* ListManager::chosenAt(qint32 intIndex) const {
    if (intIndex < 1 || intIndex > lstChosen->count())
        throw VBError(VBErr::SubscriptOutOfRange);
    return lstChosen->item(intIndex - 1);
}

QListWidgetItem* ListManager::findIn(const QListWidget* list, const QString& strText) const {
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->text().compare(strText, Qt::CaseInsensitive) == 0)
            return list->item(i);
    }
    return nullptr;
}

void ListManager::showInAvailable(const QString& strText, bool blnShow) {
    for (int i = 0; i < lstAvailable->count(); ++i) {
        QListWidgetItem* item = lstAvailable->item(i);
        if (item->text().compare(strText, Qt::CaseInsensitive) == 0)
            item->setHidden(!blnShow);
    }
}

// ---- Adding and taking out --------------------------------------------------------------

bool ListManager::addChosen(const QString& strText, qint16 intFlag, QVariant varItemData,
                            bool blnRaiseEvents) {
    if (QListWidgetItem* existing = findIn(lstChosen, strText)) {
        lstChosen->setCurrentItem(existing);
        return false;
    }
    if (blnRaiseEvents) {
        bool blnCancel = false;
        emit BeforeItemAdd(blnCancel, varItemData, strText);
        if (blnCancel)
            return false;
    }
    QListWidgetItem* item = makeEntry(strText, intFlag, varItemData);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    {
        const QSignalBlocker blocker(lstChosen);
        lstChosen->addItem(item);
    }
    showInAvailable(strText, false);
    lstChosen->setCurrentItem(item);
    SetUpButtons();
    if (blnRaiseEvents)
        emit ItemAdded(varItemData, strText);
    return true;
}

void ListManager::removeChosen(QListWidgetItem* item) {
    const QVariant varItemData = item->data(ItemDataRole);
    const QString strText = item->text();
    {
        const QSignalBlocker blocker(lstChosen);
        delete lstChosen->takeItem(lstChosen->row(item));
    }
    showInAvailable(strText, true);
    SetUpButtons();
    emit ItemDeleted(varItemData, strText);
}

bool ListManager::tooLong(const QString& strText) const {
    if (m_lngMaxItemLength <= 0 || strText.size() <= m_lngMaxItemLength)
        return false;
    Platform::Current().MsgBox(
        tr("An entry can be at most %1 characters long.").arg(m_lngMaxItemLength),
        vbOKOnly | vbExclamation, tr("Entry Too Long"));
    return true;
}

// ---- What the user does --------------------------------------------------------------------

void ListManager::cmdAdd_Click() {
    ErrorReport::Guard([&] {
        QListWidgetItem* item = lstAvailable->currentItem();
        if (!item || item->isHidden())
            return;
        const int row = lstAvailable->row(item);
        addChosen(item->text(), static_cast<qint16>(item->data(FlagRole).toInt()),
                  item->data(ItemDataRole), true);
        // The next available entry below becomes current, so that Enter moves on.
        for (int i = row; i < lstAvailable->count(); ++i) {
            if (!lstAvailable->item(i)->isHidden()) {
                lstAvailable->setCurrentRow(i);
                break;
            }
        }
    });
}

void ListManager::cmdRemove_Click() {
    ErrorReport::Guard([&] {
        if (QListWidgetItem* item = lstChosen->currentItem())
            removeChosen(item);
    });
}

void ListManager::cmdNew_Click() {
    ErrorReport::Guard([&] {
        const QString strText = txtNewItem->text().trimmed();
        if (strText.isEmpty() || tooLong(strText))
            return;
        qint16 intFlag = 0;
        QVariant varItemData;
        if (const QListWidgetItem* available = findIn(lstAvailable, strText)) {
            intFlag = static_cast<qint16>(available->data(FlagRole).toInt());
            varItemData = available->data(ItemDataRole);
        }
        if (addChosen(strText, intFlag, varItemData, true))
            txtNewItem->clear();
    });
}

void ListManager::lstAvailable_DblClick(QListWidgetItem* item) {
    lstAvailable->setCurrentItem(item);
    cmdAdd_Click();
}

// A chosen entry renamed in place: an empty text, a text too long or one that
// is chosen already puts the former text back.
void ListManager::lstChosen_ItemChanged(QListWidgetItem* item) {
    ErrorReport::Guard([&] {
        const QString strOld = item->data(StoredTextRole).toString();
        const QString strNew = item->text().trimmed();
        if (strNew == strOld)
            return;
        bool blnTaken = false;
        for (int i = 0; i < lstChosen->count(); ++i) {
            const QListWidgetItem* other = lstChosen->item(i);
            blnTaken = blnTaken ||
                       (other != item && other->text().compare(strNew, Qt::CaseInsensitive) == 0);
        }
        if (strNew.isEmpty() || blnTaken || tooLong(strNew)) {
            const QSignalBlocker blocker(lstChosen);
            item->setText(strOld);
            return;
        }
        {
            const QSignalBlocker blocker(lstChosen);
            item->setText(strNew);
            item->setData(StoredTextRole, strNew);
        }
        showInAvailable(strOld, true);
        showInAvailable(strNew, false);
        emit ItemUpdated(item->data(ItemDataRole), strNew);
    });
}

void ListManager::SetUpButtons() {
    const QListWidgetItem* available = lstAvailable->currentItem();
    cmdAdd->setEnabled(available && !available->isHidden());
    cmdRemove->setEnabled(lstChosen->currentItem() != nullptr);
    cmdNew->setEnabled(!txtNewItem->text().trimmed().isEmpty());
}

// Enter on an available entry chooses it; Delete or Backspace on a chosen
// entry takes it out (F2 renames it, as the list does itself). Keys typed
// into an entry being renamed go to its editor, not through here.
bool ListManager::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == lstAvailable && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        cmdAdd_Click();
        return true;
    }
    if (watched == lstChosen && (key == Qt::Key_Delete || key == Qt::Key_Backspace)) {
        cmdRemove_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
