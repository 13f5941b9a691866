// ctlServiceItemGallery: what is selected, clicks and double-clicks on nodes and
// list items, the right-button menus, the tree's keys and the drag source.

#include "galleries/ctlServiceItemGallery.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBConstants.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QAction>
#include <QCursor>
#include <QDrag>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

using namespace modQVLTControls;

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");
const QString kItemMark = QStringLiteral(";;SI;");
} // namespace

// ---------------------------------------------------------------- Selection members

QString ctlServiceItemGallery::SelectedItemKey() {
    TraceLine(kClass, QStringLiteral("SelectedItemKey")).Write();
    QString strKey;
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("SelectedItemKey")), [&] {
        const VBNode node = !lvwServiceItems->isHidden() ? lvwServiceItems->SelectedItem()
                                                         : tvwServiceItems->SelectedItem();
        if (node)
            strKey = node.Key();
    });
    return strKey;
}

// The picture number of the selection. A folder's picture is a key, not a number,
// and does not convert: that is reported as a type mismatch.
qint16 ctlServiceItemGallery::SelectedItemImage() {
    TraceLine(kClass, QStringLiteral("SelectedItemImage")).Write();
    qint16 intImage = 0;
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("SelectedItemImage")), [&] {
        const VBNode node = !lvwServiceItems->isHidden() ? lvwServiceItems->SelectedItem()
                                                         : tvwServiceItems->SelectedItem();
        if (node)
            intImage = VB::CInt(node.Image());
    });
    return intImage;
}

QString ctlServiceItemGallery::SelectedItemText() {
    TraceLine(kClass, QStringLiteral("SelectedItemText")).Write();
    QString strText;
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("SelectedItemText")), [&] {
        if (!lvwServiceItems->isHidden()) {
            const VBNode item = lvwServiceItems->SelectedItem();
            if (item)
                strText = item.SubItems(1);
        } else {
            const VBNode node = tvwServiceItems->SelectedItem();
            if (node)
                strText = node.Text();
        }
    });
    return strText;
}

QString ctlServiceItemGallery::SelectedServiceItems() {
    TraceLine(kClass, QStringLiteral("SelectedServiceItems")).Write();
    QString strIDs;
    if (!tvwServiceItems->isHidden()) {
        const VBNode node = tvwServiceItems->SelectedItem();
        if (node && !IsFolderImage(node.Image())) {
            const QString strKey = node.Key();
            strIDs = VB::Mid(strKey, VB::InStrRev(strKey, QStringLiteral(";")) + 1);
        }
    } else if (!lvwServiceItems->isHidden()) {
        for (qint32 i = 1; i <= lvwServiceItems->topLevelItemCount(); ++i) {
            const VBNode item = lvwServiceItems->ListItems(i);
            if (item.Selected()) {
                const QString strKey = item.Key();
                strIDs += QStringLiteral(",") +
                          VB::Mid(strKey, VB::InStrRev(strKey, QStringLiteral(";")) + 1);
            }
        }
        TrimData(strIDs, QStringLiteral(","));
    }
    return strIDs;
}

qint32 ctlServiceItemGallery::SelectedListCount() const {
    return static_cast<qint32>(lvwServiceItems->selectedItems().size());
}

// ---------------------------------------------------------------- Clicks

void ctlServiceItemGallery::SetItemButtons(const QStringList& lstKeys, bool blnEnabled) {
    for (const QString& strKey : lstKeys)
        if (QAction* button = ToolbarButton(strKey))
            button->setEnabled(blnEnabled);
}

void ctlServiceItemGallery::tvwServiceItems_NodeClick(QTreeWidgetItem* Node) {
    const VBNode node(Node);
    TraceLine(kClass, QStringLiteral("tvwServiceItems_NodeClick"))
        .Arg(QStringLiteral("Node"), node ? node.Key() : QString())
        .Write();
    ErrorReport::TryErrorBox(
        ErrorReport::Prefix(kClass, QStringLiteral("tvwServiceItems_NodeClick")),
        [&] { NodeClick(node); });
}

void ctlServiceItemGallery::NodeClick(const VBNode& Node) {
    const QString K = Node.Key();
    const bool blnIsItem = VB::InStr(K, kItemMark) > 0;
    // btnExport is left alone: a group or the root can be exported from the tree.
    SetItemButtons({QStringLiteral("btnRun"), QStringLiteral("btnDelete"),
                    QStringLiteral("btnProperties"), QStringLiteral("btnPrint"),
                    QStringLiteral("btnEdit")},
                   blnIsItem);
    if (blnIsItem) {
        emit SIClicked(VB::Mid(K, VB::InStr(K, kItemMark) + kItemMark.size()), Node.Text(),
                       strWhereClauseInEffect, strFilterInPlainEnglish, QStringLiteral("SI"));
    } else if (K == QLatin1String("Root")) {
        emit SIClicked(QStringLiteral("All"), QStringLiteral("All Service Items"),
                       strWhereClauseInEffect, strFilterInPlainEnglish, QStringLiteral("SIGroup"));
    } else {
        // A group: the ids of its children, from the first child to the last sibling.
        VBNode child = Node.Child();
        const VBNode last = child.LastSibling();
        QString strIDs = GetInstance(child.Key(), QStringLiteral(";"), 5);
        while (!(child == last)) {
            child = child.Next();
            strIDs += QStringLiteral(",") + GetInstance(child.Key(), QStringLiteral(";"), 5);
        }
        emit SIClicked(strIDs,
                       QStringLiteral("Service Items for ") + VB::Text(Node.Tag()) +
                           QStringLiteral(": ") + Node.Text(),
                       strWhereClauseInEffect, strFilterInPlainEnglish, QStringLiteral("SIGroup"));
    }
    if (!txtQuickFilter->isHidden())
        txtQuickFilter->setFocus();
}

void ctlServiceItemGallery::lvwServiceItems_ItemClick(QTreeWidgetItem* Item) {
    const VBNode item(Item);
    TraceLine(kClass, QStringLiteral("lvwServiceItems_ItemClick"))
        .Arg(QStringLiteral("Item"), item ? item.Key() : QString())
        .Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("lvwServiceItems_ItemClick")),
                             [&] { ItemClick(item); });
}

void ctlServiceItemGallery::ItemClick(const VBNode& Item) {
    if (SelectedListCount() < 2) {
        const QString strKey = Item.Key();
        SetItemButtons({QStringLiteral("btnRun"), QStringLiteral("btnDelete"),
                        QStringLiteral("btnProperties"), QStringLiteral("btnPrint"),
                        QStringLiteral("btnExport")},
                       VB::InStr(strKey, QStringLiteral("SI;")) > 0);
        emit SIClicked(VB::Mid(strKey, 4), Item.SubItems(1), strWhereClauseInEffect,
                       strFilterInPlainEnglish, QStringLiteral("SI"));
        if (!txtQuickFilter->isHidden())
            txtQuickFilter->setFocus();
    } else {
        // Several items: only what works on one item is switched off.
        SetItemButtons(
            {QStringLiteral("btnRun"), QStringLiteral("btnProperties"), QStringLiteral("btnPrint")},
            false);
    }
}

// ---------------------------------------------------------------- Double-clicks

// The tree raises the event and never runs the item itself.
void ctlServiceItemGallery::tvwServiceItems_DblClick() {
    ErrorReport::Guard([&] {
        TraceLine(kClass, QStringLiteral("tvwServiceItems_DblClick")).Write();
        const VBNode node = tvwServiceItems->SelectedItem();
        if (!node)
            return;
        const QString strKey = node.Key();
        if (VB::InStr(strKey, kItemMark) > 0)
            emit SIDblClicked(VB::CLng(GetInstance(strKey, QStringLiteral(";"), 5)));
    });
}

// The id to run is read as the last (position of ";" less one) characters of the
// key, which is always two: "SI;1234" runs 34 and a one-digit id does not convert.
// The list's Tag, sent otherwise, is the item's type id.
void ctlServiceItemGallery::lvwServiceItems_DblClick() {
    ErrorReport::Guard([&] {
        TraceLine(kClass, QStringLiteral("lvwServiceItems_DblClick")).Write();
        const VBNode item = lvwServiceItems->SelectedItem();
        if (!item)
            return;
        const QString strKey = item.Key();
        if (VB::Left(strKey, 3) == QLatin1String("SI;") && m_blnRunSIOnDblClick) {
            const qint32 lngID =
                VB::CLng(VB::Right(strKey, VB::InStr(strKey, QStringLiteral(";")) - 1));
            QString strErrorMessage;
            DataAccess::Instance().RunServiceItem(lngID, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                const QString strText =
                    QStringLiteral("lvwServiceItems_DblClick: ") + strErrorMessage;
                TraceLog::Instance().WriteErrorLine(strText);
                Platform::Current().MsgBox(strText);
            }
            return;
        }
        emit SIDblClicked(VB::CLng(item.Tag()));
    });
}

// ---------------------------------------------------------------- Right button

void ctlServiceItemGallery::PopupMenu(QMenu* mnu) {
    mnu->exec(QCursor::pos());
}

// The node under the mouse is selected while its menu is up; afterwards the node
// selected before is selected again (found by its key, as the menu's command may
// have reloaded the tree).
void ctlServiceItemGallery::tvwServiceItems_MouseDown(qint16 Button, qint16 Shift,
                                                      const QPoint& ptAt) {
    Q_UNUSED(Shift);
    if (Button != vbRightButton)
        return;
    QTreeWidgetItem* hit = tvwServiceItems->itemAt(ptAt);
    if (!hit)
        return;
    const VBNode before = tvwServiceItems->SelectedItem();
    const QString strBeforeKey = before ? before.Key() : QString();
    VBNode node(hit);
    tvwServiceItems->setSelectedItem(node);
    const QString strKey = node.Key();
    if (VB::InStr(strKey, kItemMark) > 0) {
        PopupMenu(mnuRightCLick);
    } else if (VB::Left(strKey, 5) == QLatin1String("Type;")) {
        mnuRightClickTypeNew->setText(QStringLiteral("&New ") + node.Text());
        PopupMenu(mnuRightClickType);
    } else {
        mnuRightClickTypeNew->setText(QStringLiteral("&New Service Item"));
        PopupMenu(mnuRightClickType);
    }
    if (strBeforeKey.isEmpty())
        tvwServiceItems->setSelectedItem(VBNode());
    else if (tvwServiceItems->KeyExists(strBeforeKey))
        tvwServiceItems->setSelectedItem(tvwServiceItems->Nodes(strBeforeKey));
}

void ctlServiceItemGallery::lvwServiceItems_MouseUp(qint16 Button, qint16 Shift,
                                                    const QPoint& ptAt) {
    Q_UNUSED(Shift);
    TraceLine(kClass, QStringLiteral("lvwServiceItems_MouseUp"))
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("lvwServiceItems_MouseUp")), [&] {
        if (Button != vbRightButton)
            return;
        QTreeWidgetItem* hit = lvwServiceItems->itemAt(ptAt);
        if (hit && VB::Left(VBNode(hit).Key(), 3) == QLatin1String("SI;"))
            PopupMenu(mnuRightCLick);
    });
}

// ---------------------------------------------------------------- Keys of the tree

void ctlServiceItemGallery::tvwServiceItems_KeyUp(qint16& KeyCode, qint16 Shift) {
    Q_UNUSED(Shift);
    if (KeyCode == 46) { // Delete
        if (!tvwServiceItems->isHidden()) {
            const VBNode node = tvwServiceItems->SelectedItem();
            if (node)
                DeleteServiceItem(VB::CLng(GetInstance(node.Key(), QStringLiteral(";"), 5)));
        } else if (!lvwServiceItems->isHidden()) {
            const VBNode item = lvwServiceItems->SelectedItem();
            if (item)
                DeleteServiceItem(VB::CLng(GetInstance(item.Key(), QStringLiteral(";"), 2)));
        }
    } else if (KeyCode == 116) { // F5
        if (!tvwServiceItems->isHidden()) {
            const VBNode node = tvwServiceItems->SelectedItem();
            RefreshView(node ? static_cast<qint16>(node.Index()) : qint16(0));
        }
    }
}

// ---------------------------------------------------------------- Drag source

// The payload of a drag: the whole key of an item node as text. A folder gives none.
QMimeData* ctlServiceItemGallery::DragData() const {
    const VBNode node = tvwServiceItems->SelectedItem();
    if (!node || IsFolderImage(node.Image()))
        return nullptr;
    auto* data = new QMimeData;
    data->setText(node.Key());
    return data;
}

void ctlServiceItemGallery::tvwServiceItems_OLEStartDrag() {
    QMimeData* data = DragData();
    if (!data)
        return;
    auto* drag = new QDrag(tvwServiceItems);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
}
