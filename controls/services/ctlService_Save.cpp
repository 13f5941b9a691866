#include "services/ctlService.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"
#include "serviceitems/QVTimeSelector.h"

#include <QComboBox>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QTreeWidget>

// The general tab, the checks before a save and the save of all three tabs.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlService"), QString::fromLatin1(member));
}

// Shows the error text in a plain box.
void Show(const QString& strText) {
    Platform::Current().MsgBox(strText);
}

QString LongDate(const QVariant& varDate) {
    return varDate.isNull() ? QString()
                            : VB::Format(varDate.toDateTime(), QStringLiteral("Long Date"));
}

// Fills a combo once from one field of a recordset, skipping Nulls.
void FillCombo(QComboBox* cbo, Recordset& rs, const QString& strField) {
    cbo->clear();
    if (rs.RecordCount() == 0)
        return;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const QVariant varValue = rs.Fields(strField);
        if (!varValue.isNull())
            cbo->addItem(varValue.toString());
    }
}
} // namespace

bool ctlService::blnGeneralDirty() const {
    return m_cycle->IsDirty(0);
}
bool ctlService::blnContentDirty() const {
    return m_cycle->IsDirty(1);
}
bool ctlService::blnPropBagDirty() const {
    return m_cycle->IsDirty(2);
}

void ctlService::LoadGeneralTab(const Recordset* rsShown) {
    const auto entry = Entry("LoadGeneralTab").Enter();
    entry.FullErrorBox([&] {
        {
            EditorCycle::Loading keep(*m_cycle);
            FillGeneralTab(rsShown);
        }
        m_cycle->Clear(0);
    });
}

void ctlService::FillGeneralTab(const Recordset* rsShown) {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    // The combos hold what the store knew when this instance first filled them.
    if (!blnTypesLoaded) {
        da.GetServiceTypes(QString(), strErrorMessage, rs);
        if (!strErrorMessage.isEmpty())
            return Show(strErrorMessage);
        FillCombo(cboTypes, *rs, QStringLiteral("ServiceType"));
        blnTypesLoaded = true;
    }
    if (!blnThemesLoaded) {
        da.GetServiceThemes(QString(), strErrorMessage, rs);
        if (!strErrorMessage.isEmpty())
            return Show(strErrorMessage);
        FillCombo(cboTheme, *rs, QStringLiteral("ServiceTheme"));
        blnThemesLoaded = true;
    }
    if (!rsShown) {
        da.GetServices(QStringLiteral("Services.ServiceID = ") + QString::number(lngServiceID), 4,
                       strErrorMessage, rs);
        if (!strErrorMessage.isEmpty())
            return Show(strErrorMessage);
        if (!rs || rs->RecordCount() == 0) {
            Platform::Current().MsgBox(QStringLiteral("Service: ") + QString::number(lngServiceID) +
                                           QStringLiteral(" does not exist"),
                                       vbOKOnly, QStringLiteral("System Error"));
            return;
        }
        rsShown = rs.get();
    }
    txtServiceName->setText(VB::Text(rsShown->Fields(QStringLiteral("ServiceName"))));
    cboTypes->setEditText(VB::Text(rsShown->Fields(QStringLiteral("ServiceType"))));
    cboTheme->setEditText(VB::Text(rsShown->Fields(QStringLiteral("ServiceTheme"))));
    lblProvider->setText(VB::Text(rsShown->Fields(QStringLiteral("ServiceProvider"))));
    txtNotes->setPlainText(VB::Text(rsShown->Fields(QStringLiteral("ServiceNotes"))));
    // A Null date leaves the label empty and its tool tip as it was.
    const QVariant varDelivered = rsShown->Fields(QStringLiteral("ServiceDateLastDelivered"));
    lblDateLastDelivered->setText(LongDate(varDelivered));
    if (!varDelivered.isNull())
        lblDateLastDelivered->setToolTip(VB::CStr(varDelivered));
    lblServiceDateCreated->setText(LongDate(rsShown->Fields(QStringLiteral("ServiceDateCreated"))));

    lmgResources->ClearChosenItems();
    std::unique_ptr<Recordset> rsResources;
    da.GetServiceResources(QStringLiteral("ServiceID = ") + QString::number(lngServiceID), 4,
                           strErrorMessage, rsResources);
    if (!strErrorMessage.isEmpty()) {
        const QString strText =
            QStringLiteral("QVLTCONTROLS:ctlService:LoadGeneralTab: ") + strErrorMessage;
        Show(strText);
        TraceLog::Instance().WriteErrorLine(strText);
        return;
    }
    if (rsResources->RecordCount() > 0)
        for (rsResources->MoveFirst(); !rsResources->Eof(); rsResources->MoveNext())
            lmgResources->AddChosenItem(
                VB::Text(rsResources->Fields(QStringLiteral("ResourceName"))), 0, false,
                rsResources->Fields(QStringLiteral("ResourceID")));
    lmgResources->setTag(QString());
    blnGeneralLoaded = true;
}

void ctlService::lmgResources_ItemChanged() {
    lmgResources->setTag(QStringLiteral("Dirty"));
    m_cycle->Changed(0);
}

qint16 ctlService::DoChecks(QString& strErrorMessage) {
    const auto entry = Entry("DoChecks").Enter();
    qint16 intResult = 1;
    strErrorMessage.clear();
    auto refuse = [&](const QString& strMessage, QWidget* focus) {
        Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("Incomplete Entry"));
        focus->setFocus();
        intResult = 2;
    };
    entry.ErrorReturn(strErrorMessage, [&] {
        if (txtServiceName->text().isEmpty() && cboTheme->currentText().isEmpty())
            return refuse(QStringLiteral("You must enter either a name or theme for this service "
                                         "so that it can be identified in the future"),
                          txtServiceName);
        if (cboTypes->currentText().isEmpty())
            return refuse(QStringLiteral("You must enter a type for this service"), cboTypes);
    });
    return intResult;
}

void ctlService::CleanControl(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("CleanControl")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Spelt()
            .Enter();
    entry.ErrorBox(
        [&] { m_blnChangesDeclined = m_cycle->CleanControl(blnChangingToOtherControl) == vbNo; });
}

void ctlService::cmdApplyChanges_Click() {
    const auto entry = Entry("cmdApplyChanges_Click").Enter();
    entry.Guarded([&] {
        HideCellEditors();
        SaveChanges(false);
    });
}

// The three tabs are stored in one transaction: a failure at any step shows
// its message and takes back everything this save wrote, so that the stored
// service stays whole as it was, and the flags stay as they were.
void ctlService::SaveChanges(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("SaveChanges")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Spelt()
            .Enter();
    DataAccess& da = DataAccess::Instance();
    const bool blnWasGeneral = blnGeneralDirty();
    const bool blnWasContent = blnContentDirty();
    const bool blnWasPropBag = blnPropBagDirty();
    const QString strResourcesTag = lmgResources->Tag();
    bool blnStored = false;
    da.BeginTrans();
    const bool blnRan = entry.ErrorBox([&] {
        bool blnEnd = false;
        if (blnGeneralDirty() && (!SaveGeneral(blnEnd) || blnEnd))
            return;
        if (blnContentDirty() && !SaveContents())
            return;
        if (blnPropBagDirty() && !SavePropBag())
            return;
        blnStored = true;
    });
    if (blnRan && blnStored) {
        da.CommitTrans();
        m_cycle->FinishSave(blnChangingToOtherControl);
        emit ServiceStored(lngServiceID);
        return;
    }
    da.Rollback();
    m_cycle->SetDirty(0, blnWasGeneral);
    m_cycle->SetDirty(1, blnWasContent);
    m_cycle->SetDirty(2, blnWasPropBag);
    lmgResources->setTag(strResourcesTag);
}

// False when the save must end with nothing stored; blnEnd when the checks
// refused with the message shown (result 3). A failed check (result 2) keeps
// the flag and lets the other tabs be stored.
bool ctlService::SaveGeneral(bool& blnEnd) {
    QString strErrorMessage;
    const qint16 intResult = DoChecks(strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Show(QStringLiteral("QVLTCONTROLS:ctlService:SaveChanges ") + strErrorMessage);
        return false;
    }
    if (intResult == 3) {
        blnEnd = true;
        return true;
    }
    if (intResult == 2)
        return true;
    DataAccess& da = DataAccess::Instance();
    da.SaveServiceDetails(lngServiceID, txtServiceName->text(), cboTypes->currentText(),
                          cboTheme->currentText(), lblProvider->text(), txtNotes->toPlainText(),
                          QDateTime(), 0, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        const QString strText =
            QStringLiteral("QVLTCONTROLS:ctlService:SaveChanges ") + strErrorMessage;
        TraceLog::Instance().WriteErrorLine(strText);
        Show(strText);
        return false;
    }
    if (lmgResources->Tag() == QLatin1String("Dirty")) {
        QString strIgnored;
        da.DeleteServiceResources(lngServiceID, strIgnored);
        for (qint32 i = 1; i <= lmgResources->ChosenCount(); ++i)
            da.AddServiceResource(lngServiceID, lmgResources->ChosenItemText(i), strIgnored);
        lmgResources->setTag(QString());
    }
    m_cycle->Clear(0);
    return true;
}

bool ctlService::SavePropBag() {
    // A prop bag tab never shown has nothing changed to store.
    if (!lvwPropBag)
        return true;
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    da.DeleteServicePropBag(lngServiceID, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Show(strErrorMessage);
        return false;
    }
    for (int i = 0; i < lvwPropBag->topLevelItemCount(); ++i) {
        const QString strKey = lvwPropBag->topLevelItem(i)->data(0, Qt::UserRole).toString();
        const qint32 lngSIID = VB::CLng(strKey.mid(strKey.lastIndexOf(QLatin1String("SI;")) + 3));
        da.AddServicePropBagItem(lngServiceID, lngSIID, strErrorMessage);
        if (!strErrorMessage.isEmpty()) {
            Show(strErrorMessage);
            return false;
        }
    }
    m_cycle->Clear(2);
    return true;
}
