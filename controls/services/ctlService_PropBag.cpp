#include "services/ctlService.h"

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

// The prop bag tab: every service item on the left (ctlSIPropBag), the items
// kept at hand during a run on the right (lvwPropBag). An item stands on one
// side only.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlService"), QString::fromLatin1(member));
}
} // namespace

void ctlService::LoadPropBagTab() {
    const auto entry = Entry("LoadPropBagTab").Enter();
    entry.FullErrorBox([&] {
        const bool blnApply = cmdApplyChanges->isEnabled();
        lvwPropBag->clear();
        ctlSIPropBag->ShowServiceItems();
        DataAccess& da = DataAccess::Instance();
        QString strErrorMessage;
        std::unique_ptr<Recordset> rs;
        da.GetServicePropBag(QStringLiteral("ServiceID = ") + QString::number(lngServiceID), 4,
                             strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (rs->RecordCount() > 0) {
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                const qint32 lngSIID = VB::CLng(rs->Fields(QStringLiteral("PropServiceItemID")));
                bool blnExists = false;
                da.ServiceItemExists(lngSIID, strErrorMessage, blnExists);
                // An item deleted since the bag was stored is dropped in silence;
                // the next save of the bag leaves it out of the store.
                if (strErrorMessage.isEmpty() && !blnExists)
                    continue;
                if (strErrorMessage.isEmpty())
                    ctlSIPropBag->SelectServiceItem(lngSIID, strErrorMessage);
                if (!strErrorMessage.isEmpty()) {
                    Platform::Current().MsgBox(strErrorMessage);
                    return;
                }
                cmdMoveOneRight->setEnabled(true);
                cmdMoveOneRight->click();
            }
        }
        m_cycle->Clear(2);
        const bool blnSelected = lvwPropBag->currentItem() != nullptr;
        cmdMoveAllLeft->setEnabled(blnSelected);
        cmdMoveOneLeft->setEnabled(blnSelected);
        cmdMoveOneRight->setEnabled(false);
        cmdApplyChanges->setEnabled(blnApply);
    });
}

void ctlService::cmdMoveOneRight_Click() {
    const auto entry = Entry("cmdMoveOneRight_Click").Enter();
    entry.Guarded([&] {
        PropBagMoves::MoveRight(*ctlSIPropBag, *lvwPropBag, *imgSITypes);
        m_cycle->Changed(2);
        SetUpPropBagButtons();
    });
}

void ctlService::cmdMoveOneLeft_Click() {
    const auto entry = Entry("cmdMoveOneLeft_Click").Enter();
    entry.Guarded([&] {
        if (!PropBagMoves::MoveLeft(*lvwPropBag, *ctlSIPropBag))
            return;
        m_cycle->Changed(2);
        SetUpPropBagButtons();
    });
}

void ctlService::cmdMoveAllLeft_Click() {
    const auto entry = Entry("cmdMoveAllLeft_Click").Enter();
    entry.Guarded([&] {
        while (lvwPropBag->topLevelItemCount() > 0) {
            const int intBefore = lvwPropBag->topLevelItemCount();
            cmdMoveOneLeft_Click();
            if (lvwPropBag->topLevelItemCount() == intBefore)
                break; // nothing selected: the loop would never end
        }
        m_cycle->Changed(2);
        SetUpPropBagButtons();
    });
}

void ctlService::lvwPropBag_Click() {
    cmdMoveOneLeft->setEnabled(lvwPropBag->currentItem() != nullptr);
}

void ctlService::lvwPropBag_DblClick() {
    if (lvwPropBag->currentItem())
        cmdMoveOneLeft->click();
}

void ctlService::ctlSIPropBag_SIDblClicked() {
    if (cmdMoveOneRight->isEnabled())
        cmdMoveOneRight->click();
}

void ctlService::ctlSIPropBag_SIClicked() {
    SetUpPropBagButtons();
}

// The gallery rebuilt its view, so the items in the bag would show again.
void ctlService::ctlSIPropBag_SIListFilterChanged() {
    const auto entry = Entry("ctlSIPropBag_SIListFilterChanged").Enter();
    entry.Guarded([&] { PropBagMoves::HideBagged(*lvwPropBag, *ctlSIPropBag); });
}

void ctlService::SetUpPropBagButtons() {
    const auto entry = Entry("SetUpPropBagButtons").Enter();
    entry.FullErrorBox([&] {
        const QString strKey = ctlSIPropBag->SelectedItemKey();
        cmdMoveOneRight->setEnabled(!strKey.isEmpty() && strKey.contains(QLatin1String(";;SI;")));
        cmdMoveAllLeft->setEnabled(lvwPropBag->topLevelItemCount() > 0);
        cmdMoveOneLeft->setEnabled(lvwPropBag->currentItem() != nullptr);
        if (lvwPropBag->topLevelItemCount() > 0)
            lvwPropBag->setCurrentItem(lvwPropBag->topLevelItem(0));
    });
}
