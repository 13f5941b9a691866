#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QPushButton>
#include <QTreeWidget>

// The Prop Bag tab: the other service items kept at hand while this one runs.
// They are moved from the embedded gallery (left) to lvwPropBag (right); the
// gallery hides what stands in the bag. The tab is filled from the store at
// every visit.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

constexpr int ImageRole = Qt::UserRole + 2;

QString KeyOf(const QTreeWidgetItem* item) {
    return item->data(0, Qt::UserRole).toString();
}
} // namespace

void ctlServiceItem::LoadPropBagTab() {
    const auto entry = Entry("LoadPropBagTab").Enter();
    entry.FullErrorBox([&] {
        const bool blnSaveEnabled = cmdSave->isEnabled();
        lvwPropBag->clear();
        ctlServiceItemGallery1->ShowServiceItems();
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetServiceItemPropBag(QStringLiteral("ServiceItemID = ") +
                                                         QString::number(lngServiceItemID),
                                                     4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (rs && rs->RecordCount() > 0)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                ctlServiceItemGallery1->SelectServiceItem(
                    VB::CLng(rs->Fields(QStringLiteral("PropServiceItemID"))), strErrorMessage);
                if (!strErrorMessage.isEmpty()) {
                    Platform::Current().MsgBox(strErrorMessage);
                    return;
                }
                cmdMoveOneRight_Click();
            }
        m_cycle->Clear(TabPropBag);
        cmdSave->setEnabled(blnSaveEnabled);
    });
}

void ctlServiceItem::cmdMoveOneRight_Click() {
    const auto entry = Entry("cmdMoveOneRight_Click").Enter();
    entry.Guarded([&] {
        const QString strKey = ctlServiceItemGallery1->SelectedItemKey();
        const QString strText = ctlServiceItemGallery1->SelectedItemText();
        const qint16 intImage = ctlServiceItemGallery1->SelectedItemImage();
        auto* item = new QTreeWidgetItem(lvwPropBag, {strText});
        item->setData(0, Qt::UserRole, strKey);
        item->setData(0, ImageRole, intImage);
        item->setIcon(0, imlServiceItems->Icon(static_cast<qint32>(intImage)));
        ctlServiceItemGallery1->HideServiceItem(strKey);
        Changed(TabPropBag);
        SetUpPropBagButtons();
    });
}

void ctlServiceItem::cmdMoveOneLeft_Click() {
    const auto entry = Entry("cmdMoveOneLeft_Click").Enter();
    entry.Guarded([&] {
        QTreeWidgetItem* item = lvwPropBag->currentItem();
        if (!item)
            return;
        const QString strKey = KeyOf(item);
        const qsizetype lngAt = strKey.indexOf(QLatin1String(";;"));
        const QString strParentKey = lngAt < 0 ? QString() : strKey.left(lngAt);
        ctlServiceItemGallery1->AddServiceItem(
            strParentKey, strKey, item->text(0),
            static_cast<qint16>(item->data(0, ImageRole).toInt()));
        delete item;
        Changed(TabPropBag);
        SetUpPropBagButtons();
    });
}

void ctlServiceItem::cmdMoveAllLeft_Click() {
    const auto entry = Entry("cmdMoveAllLeft_Click").Enter();
    entry.Guarded([&] {
        // Each move selects the first entry left, so the loop empties the bag.
        while (lvwPropBag->topLevelItemCount() > 0) {
            const int intBefore = lvwPropBag->topLevelItemCount();
            cmdMoveOneLeft_Click();
            if (lvwPropBag->topLevelItemCount() == intBefore)
                break;
        }
        Changed(TabPropBag);
        SetUpPropBagButtons();
    });
}

void ctlServiceItem::SetUpPropBagButtons() {
    const auto entry = Entry("SetUpPropBagButtons").Enter();
    entry.FullErrorBox([&] {
        const QString strKey = ctlServiceItemGallery1->SelectedItemKey();
        cmdMoveOneRight->setEnabled(!strKey.isEmpty() && strKey.contains(QLatin1String("SI;")));
        cmdMoveAllLeft->setEnabled(lvwPropBag->topLevelItemCount() > 0);
        cmdMoveOneLeft->setEnabled(lvwPropBag->currentItem() != nullptr);
        if (lvwPropBag->topLevelItemCount() > 0) {
            lvwPropBag->setCurrentItem(lvwPropBag->topLevelItem(0));
            cmdMoveOneLeft->setEnabled(true);
        }
    });
}

void ctlServiceItem::lvwPropBag_Click() {
    cmdMoveOneLeft->setEnabled(lvwPropBag->currentItem() != nullptr);
}

void ctlServiceItem::ctlServiceItemGallery1_SIClicked() {
    SetUpPropBagButtons();
}

void ctlServiceItem::ctlServiceItemGallery1_SIDblClicked() {
    cmdMoveOneRight->click();
}

// A refilled gallery shows every item again: those in the bag are hidden anew.
// They are named by id alone, since a filtered view may not hold them at all.
void ctlServiceItem::ctlServiceItemGallery1_SIListFilterChanged() {
    const auto entry = Entry("ctlServiceItemGallery1_SIListFilterChanged").Enter();
    entry.Guarded([&] {
        for (int i = 0; i < lvwPropBag->topLevelItemCount(); ++i) {
            const QString strKey = KeyOf(lvwPropBag->topLevelItem(i));
            const qsizetype lngAt = strKey.indexOf(QLatin1String(";;SI;"));
            if (lngAt >= 0)
                ctlServiceItemGallery1->HideServiceItem(QString(), VB::CLng(strKey.mid(lngAt + 5)));
        }
    });
}
