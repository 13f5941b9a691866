// ctlServiceItemGallery: what is selected, clicks and double-clicks on nodes and
// list items, the right-button menus, the tree's keys and the drag source.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/KeyCodes.h"
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
} // namespace

// ---------------------------------------------------------------- Selection members

QString ctlServiceItemGallery::SelectedItemKey() {
    const auto entry = Entry(QStringLiteral("SelectedItemKey")).Spelt().Enter();
    QString strKey;
    entry.ErrorBox([&] {
        const VBNode node = m_core->ShownSelection();
        if (node)
            strKey = node.Key();
    });
    return strKey;
}

// The picture number of the selection. A folder's picture is a key, not a number,
// and does not convert: that is reported as a type mismatch.
qint16 ctlServiceItemGallery::SelectedItemImage() {
    const auto entry = Entry(QStringLiteral("SelectedItemImage")).Spelt().Enter();
    qint16 intImage = 0;
    entry.ErrorBox([&] {
        const VBNode node = m_core->ShownSelection();
        if (node)
            intImage = VB::CInt(node.Image());
    });
    return intImage;
}

QString ctlServiceItemGallery::SelectedItemText() {
    const auto entry = Entry(QStringLiteral("SelectedItemText")).Spelt().Enter();
    QString strText;
    entry.ErrorBox([&] {
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
    Entry(QStringLiteral("SelectedServiceItems")).Enter();
    QString strIDs;
    if (!tvwServiceItems->isHidden()) {
        const VBNode node = tvwServiceItems->SelectedItem();
        if (node && !GalleryCore::IsFolderImage(node.Image())) {
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

// ---------------------------------------------------------------- Clicks

void ctlServiceItemGallery::tvwServiceItems_NodeClick(QTreeWidgetItem* Node) {
    const VBNode node(Node);
    Entry(QStringLiteral("tvwServiceItems_NodeClick"))
        .Arg(QStringLiteral("Node"), node ? node.Key() : QString())
        .Enter()
        .ErrorBox([&] { NodeClick(node); });
}

void ctlServiceItemGallery::NodeClick(const VBNode& Node) {
    // btnExport is left alone: a group or the root can be exported from the tree.
    m_core->SetButtons({QStringLiteral("btnRun"), QStringLiteral("btnDelete"),
                        QStringLiteral("btnProperties"), QStringLiteral("btnPrint"),
                        QStringLiteral("btnEdit")},
                       m_core->IsItemKey(Node.Key()));
    const GalleryCore::ClickWords words = m_core->NodeClickWords(Node);
    emit SIClicked(words.strID, words.strDescription, strWhereClauseInEffect,
                   strFilterInPlainEnglish, words.strType);
    if (!txtQuickFilter->isHidden())
        txtQuickFilter->setFocus();
}

void ctlServiceItemGallery::lvwServiceItems_ItemClick(QTreeWidgetItem* Item) {
    const VBNode item(Item);
    Entry(QStringLiteral("lvwServiceItems_ItemClick"))
        .Arg(QStringLiteral("Item"), item ? item.Key() : QString())
        .Spelt()
        .Enter()
        .ErrorBox([&] { ItemClick(item); });
}

void ctlServiceItemGallery::ItemClick(const VBNode& Item) {
    if (m_core->SelectedListCount() < 2) {
        const QString strKey = Item.Key();
        m_core->SetButtons({QStringLiteral("btnRun"), QStringLiteral("btnDelete"),
                            QStringLiteral("btnProperties"), QStringLiteral("btnPrint"),
                            QStringLiteral("btnExport")},
                           VB::InStr(strKey, QStringLiteral("SI;")) > 0);
        emit SIClicked(VB::Mid(strKey, 4), Item.SubItems(1), strWhereClauseInEffect,
                       strFilterInPlainEnglish, QStringLiteral("SI"));
        if (!txtQuickFilter->isHidden())
            txtQuickFilter->setFocus();
    } else {
        // Several items: only what works on one item is switched off.
        m_core->SetButtons(
            {QStringLiteral("btnRun"), QStringLiteral("btnProperties"), QStringLiteral("btnPrint")},
            false);
    }
}

// ---------------------------------------------------------------- Double-clicks

// The tree raises the event and never runs the item itself.
void ctlServiceItemGallery::tvwServiceItems_DblClick() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("tvwServiceItems_DblClick")).Enter();
        const VBNode node = tvwServiceItems->SelectedItem();
        if (!node)
            return;
        const QString strKey = node.Key();
        if (m_core->IsItemKey(strKey))
            emit SIDblClicked(VB::CLng(m_core->IdOf(tvwServiceItems, strKey)));
    });
}

// The id to run is read as the last (position of ";" less one) characters of the
// key, which is always two: "SI;1234" runs 34 and a one-digit id does not convert.
// The list's Tag, sent otherwise, is the item's type id.
void ctlServiceItemGallery::lvwServiceItems_DblClick() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("lvwServiceItems_DblClick")).Enter();
        const VBNode item = lvwServiceItems->SelectedItem();
        if (!item)
            return;
        const QString strKey = item.Key();
        if (VB::Left(strKey, 3) == QLatin1String("SI;") && m_blnRunSIOnDblClick) {
            const qint32 lngID =
                VB::CLng(VB::Right(strKey, VB::InStr(strKey, QStringLiteral(";")) - 1));
            QString strErrorMessage;
            DataAccess::Instance().RunServiceItem(lngID, strErrorMessage);
            GalleryCore::ReportFailure(QStringLiteral("lvwServiceItems_DblClick: "),
                                       strErrorMessage);
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
    if (m_core->IsItemKey(strKey)) {
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
    Entry(QStringLiteral("lvwServiceItems_MouseUp"))
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (Button != vbRightButton)
                return;
            QTreeWidgetItem* hit = lvwServiceItems->itemAt(ptAt);
            if (hit && m_core->IsListKey(VBNode(hit).Key()))
                PopupMenu(mnuRightCLick);
        });
}

// ---------------------------------------------------------------- Keys of the tree

void ctlServiceItemGallery::tvwServiceItems_KeyUp(qint16& KeyCode, qint16 Shift) {
    Q_UNUSED(Shift);
    if (KeyCode == KeyCodes::vbKeyDelete) {
        if (m_core->ShownSelection())
            DeleteServiceItem(VB::CLng(SelectedIdOfShownView()));
    } else if (KeyCode == KeyCodes::vbKeyF1 + 4) { // F5
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
    if (!node || GalleryCore::IsFolderImage(node.Image()))
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
