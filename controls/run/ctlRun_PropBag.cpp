// The prop bag: items held at hand, started outside the running order.
#include "run/ctlRun.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QGroupBox>
#include <QPushButton>

namespace {
const QString& PropBagErrorPrefix() {
    static const QString prefix = QStringLiteral("QVLTCONTROLS:ctlRun:AddServicePropBagItems: ");
    return prefix;
}
} // namespace

// Fills lvwProps with the prop bag of service lngService: one row per prop,
// its description as the text, its type's picture, its id as the Tag. A prop
// whose item was deleted is skipped without a word. A look-up that fails is
// written to the error line and ends the fill, with its text left in
// strErrorMessage for the caller.
void ctlRun::AddServicePropBagItems(qint32 lngService, QString& strErrorMessage) {
    TraceLine("ctlRun", "AddServicePropBagItems")
        .Arg(QStringLiteral("lngService"), lngService)
        .Write();
    ErrorReport::TryErrorReturn(
        ErrorReport::Prefix(QStringLiteral("ctlRun"), QStringLiteral("AddServicePropBagItems")),
        strErrorMessage, [&] {
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServicePropBag(
                QStringLiteral("ServiceID = ") + VB::CStr(lngService), 4, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty())
                return;
            lvwProps->Clear();
            if (!rs)
                throw VBError(VBErr::ObjectNotSet);
            if (rs->RecordCount() == 0)
                return;
            rs->MoveLast();
            rs->MoveFirst();
            for (; !rs->Eof(); rs->MoveNext())
                if (!AddServicePropBagItem(
                        VB::CLng(rs->Fields(QStringLiteral("PropServiceItemID"))), strErrorMessage))
                    return;
        });
}

// One row of lvwProps. Answers false when the fill must end.
bool ctlRun::AddServicePropBagItem(qint32 lngPropSIID, QString& strErrorMessage) {
    DataAccess& da = DataAccess::Instance();
    bool blnExists = false;
    da.ServiceItemExists(lngPropSIID, strErrorMessage, blnExists);
    if (!blnExists)
        return true;
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(PropBagErrorPrefix() + strErrorMessage);
        return false;
    }
    QString strDescription;
    da.GetServiceItemDescription(lngPropSIID, strErrorMessage, strDescription);
    if (VB::InStr(strDescription, QStringLiteral("@@")) > 0) {
        const QString strStored = strDescription;
        da.DecodeStoredText(strStored, strErrorMessage, strDescription);
    }
    qint16 intTypeID = 0;
    da.GetServiceItemTypeID(lngPropSIID, strErrorMessage, intTypeID);
    VBNode item = lvwProps->AddItem(QString(), strDescription, QVariant(), intTypeID);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(PropBagErrorPrefix() + strErrorMessage);
        return false;
    }
    item.setTag(lngPropSIID);
    return true;
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
