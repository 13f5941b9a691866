// The prop bag: items held at hand, started outside the running order.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/Platform.h"
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
    RunMember("AddServicePropBagItems")
        .Arg(QStringLiteral("lngService"), lngService)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServicePropBag(
                QStringLiteral("ServiceID = ") + VB::CStr(lngService), 4, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty())
                return;
            lvwProps->Clear();
            if (!HasRows(rs.get()))
                return;
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
    const QString strDescription = ItemDescription(lngPropSIID, strErrorMessage);
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
    RunMember("PropRunEnded").Enter();
    fraPropDetails->hide();
    cmdEnd->setText(QStringLiteral("&End"));
    fraMain->setTitle(QStringLiteral("Showing Now"));
    Platform::Current().DoEvents();
    Platform::Current().DoEvents();
}

// The event comes first, so that the projector changes before the console.
void ctlRun::lvwProps_DblClick() {
    RunMember("lvwProps_DblClick").Enter().Guarded([&] {
        const VBNode selected = lvwProps->SelectedItem();
        if (!selected)
            return;
        const qint32 lngSIID = VB::CLng(selected.Tag());
        emit ShowSI(lngSIID);
        ShowSIAsRunning(lngSIID, false);
    });
}

void ctlRun::ctlServiceItemGallery1_SIDblClicked(qint32 SIId) {
    RunMember("ctlServiceItemGallery1_SIDblClicked")
        .Arg(QStringLiteral("SIId"), SIId)
        .Enter()
        .Guarded([&] {
            emit ShowSI(SIId);
            ShowSIAsRunning(SIId, false);
            RefreshScreenMirror();
        });
}
