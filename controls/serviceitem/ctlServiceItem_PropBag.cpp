#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "galleries/PropBagMoves.h"
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
        PropBagMoves::MoveRight(*ctlServiceItemGallery1, *lvwPropBag, *imlServiceItems);
        Changed(TabPropBag);
        SetUpPropBagButtons();
    });
}

void ctlServiceItem::cmdMoveOneLeft_Click() {
    const auto entry = Entry("cmdMoveOneLeft_Click").Enter();
    entry.Guarded([&] {
        if (!PropBagMoves::MoveLeft(*lvwPropBag, *ctlServiceItemGallery1))
            return;
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
void ctlServiceItem::ctlServiceItemGallery1_SIListFilterChanged() {
    const auto entry = Entry("ctlServiceItemGallery1_SIListFilterChanged").Enter();
    entry.Guarded([&] { PropBagMoves::HideBagged(*lvwPropBag, *ctlServiceItemGallery1); });
}
