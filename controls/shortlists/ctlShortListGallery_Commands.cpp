// ctlShortListGallery: loading the list, clicks, the toolbar, new, select and
// delete with where the selection lands afterwards.

#include "shortlists/ctlShortListGallery.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"
#include "galleries/GalleryCore.h"

#include <QAction>

namespace {
const QString kDeletePrompt =
    QStringLiteral("Are you sure you want to delete this Short-List from your system? This "
                   "command cannot be undone.");
const QString kDelete = QStringLiteral("btnDelete");
} // namespace

void ctlShortListGallery::ShowStoreMessage(const QString& strErrorMessage) {
    Platform::Current().MsgBox(strErrorMessage);
}

// ---------------------------------------------------------------- Loading

void ctlShortListGallery::ShowShortLists(qint32 lngShortListToSelect, QString& strErrorMessage) {
    Entry(QStringLiteral("ShowShortLists"))
        .Arg(QStringLiteral("lngShortListToSelect"), lngShortListToSelect)
        .Enter()
        .FullErrorBox([&] {
            lvwShortLists->Clear();
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetShortListsWhere(QString(), strErrorMessage, rs);
            if (!strErrorMessage.isEmpty()) {
                ShowStoreMessage(strErrorMessage);
                return;
            }
            RedrawLock lock(lvwShortLists);
            for (; rs && !rs->Eof(); rs->MoveNext()) {
                const qint32 lngID = VB::CLng(rs->Fields(QStringLiteral("ShortListID")));
                VBNode item = lvwShortLists->AddItem(
                    m_core->ListKey(lngID),
                    VB::Text(rs->Fields(QStringLiteral("ShortListDescription"))), QVariant(),
                    QStringLiteral("imgShortList"));
                item.setSubItems(1, VB::Text(rs->Fields(QStringLiteral("ShortListDateCreated"))));
                item.setSubItems(2, VB::Text(rs->Fields(QStringLiteral("ShortListCreatedBy"))));
                item.setTag(lngID);
                if (lngID == lngShortListToSelect)
                    item.setSelected(true);
            }
            if (m_intSortKey >= 0)
                lvwShortLists->sortItems(m_intSortKey, Qt::AscendingOrder);
        });
}

void ctlShortListGallery::RefreshView(qint16 intIndexOfPreviouslySelectedItem,
                                      QString& strErrorMessage) {
    Entry(QStringLiteral("RefreshView"))
        .Arg(QStringLiteral("intIndexOfPreviouslySelectedItem"), intIndexOfPreviouslySelectedItem)
        .Enter()
        .FullErrorBox([&] {
            ShowShortLists(0, strErrorMessage);
            const qint32 lngCount = lvwShortLists->topLevelItemCount();
            m_core->SetButtons({kDelete}, false);
            if (lngCount == 0) {
                emit ShortListClicked(QString(), QString());
                return;
            }
            // An index past the end names no item: nothing is selected then.
            if (intIndexOfPreviouslySelectedItem > 0 &&
                intIndexOfPreviouslySelectedItem <= lngCount) {
                VBNode item = lvwShortLists->ListItems(intIndexOfPreviouslySelectedItem);
                GalleryCore::Reselect(item, [&](QTreeWidgetItem* Item) { ItemClick(Item); });
            }
        });
}

// ---------------------------------------------------------------- Clicks

void ctlShortListGallery::lvwShortLists_ItemClick(QTreeWidgetItem* Item) {
    Entry(QStringLiteral("lvwShortLists_ItemClick")).Enter().FullErrorBox([&] { ItemClick(Item); });
}

// A click on a list: btnDelete can act on it, the store notes it was shown last,
// and the host is told.
void ctlShortListGallery::ItemClick(const VBNode& Item) {
    if (Item.IsNothing() || !m_core->IsListKey(Item.Key()))
        return;
    m_core->SetButtons({kDelete}, true);
    DataAccess::Instance().ShortListShown(VB::CLng(Item.Tag()));
    emit ShortListClicked(VB::Text(Item.Tag()), Item.Text());
}

// The list is kept sorted by the clicked column from then on.
void ctlShortListGallery::lvwShortLists_ColumnClick(int intColumn) {
    Entry(QStringLiteral("lvwShortLists_ColumnClick")).Enter().FullErrorBox([&] {
        m_intSortKey = intColumn;
        lvwShortLists->sortItems(m_intSortKey, Qt::AscendingOrder);
    });
}

void ctlShortListGallery::Toolbar2_ButtonClick(QAction* Button) {
    Entry(QStringLiteral("Toolbar2_ButtonClick")).Enter().FullErrorBox([&] {
        const QString strKey = Button->objectName();
        if (strKey == QStringLiteral("btnNew"))
            NewShortList();
        else if (strKey == QStringLiteral("btnHelp"))
            Platform::Current().SendKeys(QStringLiteral("{F1}"));
        else if (strKey == kDelete)
            DeleteSelected();
    });
}

void ctlShortListGallery::DeleteSelected() {
    const VBNode item = lvwShortLists->SelectedItem();
    if (item.IsNothing())
        return;
    QString strErrorMessage;
    DeleteShortList(VB::CLng(GalleryCore::IdOfKey(lvwShortLists, item.Key())), strErrorMessage);
}

// ---------------------------------------------------------------- Selection

QString ctlShortListGallery::SelectedShortLists() const {
    return m_core->SelectedListIds(QStringLiteral(","));
}

QString ctlShortListGallery::SelectedItemKey() const {
    return lvwShortLists->SelectedItem().IsNothing() ? QString()
                                                     : lvwShortLists->SelectedItem().Key();
}

QString ctlShortListGallery::SelectedItemText() const {
    return lvwShortLists->SelectedItem().IsNothing() ? QString()
                                                     : lvwShortLists->SelectedItem().Text();
}

void ctlShortListGallery::SelectShortList(qint32 lngShortList, QString& strErrorMessage) {
    Entry(QStringLiteral("SelectShortList"))
        .Arg(QStringLiteral("lngShortList"), lngShortList)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            for (qint32 i = 1; i <= lvwShortLists->topLevelItemCount(); ++i) {
                VBNode item = lvwShortLists->ListItems(i);
                if (VB::CLng(item.Tag()) != lngShortList)
                    continue;
                lvwShortLists->clearSelection();
                item.setSelected(true);
                ItemClick(item);
                return;
            }
        });
}

// ---------------------------------------------------------------- New, delete

// The record comes first, so that the editor opens a list that exists.
void ctlShortListGallery::NewShortList() {
    Entry(QStringLiteral("NewShortList")).Enter().FullErrorBox([&] {
        QString strErrorMessage;
        qint32 lngNewShortListID = 0;
        DataAccess::Instance().NewShortListRecord(strErrorMessage, lngNewShortListID);
        if (!strErrorMessage.isEmpty()) {
            ShowStoreMessage(QStringLiteral("QVLTCONTROLS:ctlShortListGallery:NewShortList: ") +
                             strErrorMessage);
            return;
        }
        ShowShortLists(0, strErrorMessage);
        SelectShortList(lngNewShortListID, strErrorMessage);
        emit NewShortList(lngNewShortListID);
    });
}

void ctlShortListGallery::DeleteShortList(qint32 lngShortListID, QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteShortList"))
        .Arg(QStringLiteral("lngShortListID"), lngShortListID)
        .Enter()
        .FullErrorBox([&] {
            if (!GalleryCore::ConfirmDelete(kDeletePrompt))
                return;
            const VBNode selected = lvwShortLists->SelectedItem();
            qint16 intIndex = 0;
            if (!selected.IsNothing() && lvwShortLists->topLevelItemCount() >= 2)
                intIndex =
                    static_cast<qint16>(lvwShortLists->indexOfTopLevelItem(selected.Item()) + 1);
            DataAccess::Instance().DeleteShortListRecord(lngShortListID, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                ShowStoreMessage(strErrorMessage);
                return;
            }
            RefreshView(intIndex, strErrorMessage);
            TTLvwBannerFilter1->Refresh();
        });
}

void ctlShortListGallery::HideShortList(const QVariant& WhichItem) {
    Entry(QStringLiteral("HideShortList")).Enter().FullErrorBox([&] {
        lvwShortLists->Remove(WhichItem);
    });
}

void ctlShortListGallery::AddShortList(const QString& strKey, const QString& strText) {
    Entry(QStringLiteral("AddShortList"))
        .Arg(QStringLiteral("strKey"), strKey)
        .Arg(QStringLiteral("strText"), strText)
        .Enter()
        .FullErrorBox([&] { lvwShortLists->AddItem(strKey, strText); });
}
