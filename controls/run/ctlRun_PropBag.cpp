// The prop bag: items held at hand, started outside the running order.
#include "run/ctlRun.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QGroupBox>
#include <QPushButton>

// Fills lvwProps with the prop bag of service lngService. The rows of the bag
// are not listed yet: the list is cleared and stays empty, which is what a
// service without props shows, and the run goes on.
void ctlRun::AddServicePropBagItems(qint32 lngService, QString& strErrorMessage) {
    TraceLine("ctlRun", "AddServicePropBagItems")
        .Arg(QStringLiteral("lngService"), lngService)
        .Write();
    Q_UNUSED(strErrorMessage);
    lvwProps->Clear();
}

// The host has ended the prop. Nothing else is restored: lblSIType keeps the
// prop's type until the next item is shown, and the mirror is left alone.
void ctlRun::PropRunEnded() {
    TraceLine("ctlRun", "PropRunEnded").Write();
    fraPropDetails->hide();
    cmdEnd->setText(QStringLiteral("&End"));
    fraMain->setTitle(QStringLiteral("Showing Now"));
    Platform::Current().DoEvents();
    Platform::Current().DoEvents();
}

// The event comes first, so that the projector changes before the console.
void ctlRun::lvwProps_DblClick() {
    ErrorReport::Guard([&] {
        TraceLine("ctlRun", "lvwProps_DblClick").Write();
        const VBNode selected = lvwProps->SelectedItem();
        if (!selected)
            return;
        const qint32 lngSIID = VB::CLng(selected.Tag());
        emit ShowSI(lngSIID);
        ShowSIAsRunning(lngSIID, false);
    });
}

void ctlRun::ctlServiceItemGallery1_SIDblClicked(qint32 SIId) {
    ErrorReport::Guard([&] {
        TraceLine("ctlRun", "ctlServiceItemGallery1_SIDblClicked")
            .Arg(QStringLiteral("SIId"), SIId)
            .Write();
        emit ShowSI(SIId);
        ShowSIAsRunning(SIId, false);
        RefreshScreenMirror();
    });
}
