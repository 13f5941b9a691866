#include "shortlists/ctlShortList.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTextEdit>

// Loading one short list, its checks and its save through the editor cycle.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlShortList"), QString::fromLatin1(member));
}

void SystemError(const QString& strMessage) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("System Error"));
}

// The short list of that id, or nullptr with the error text shown.
std::unique_ptr<Recordset> ReadShortList(qint32 lngShortListID) {
    std::unique_ptr<Recordset> rs;
    QString strErrorMessage;
    DataAccess::Instance().GetShortListsWhere(
        QStringLiteral("ShortListID = ") + QString::number(lngShortListID), strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return nullptr;
    }
    return rs;
}
} // namespace

void ctlShortList::ShowProperties(::ViewMode Mode) {
    const auto entry = Entry("ShowProperties")
                           .Arg(QStringLiteral("Mode"), static_cast<qint32>(Mode))
                           .WithPrefix(QStringLiteral(
                               "QVLTCONTROLS:ctlShortList:SHowProperties: Error number is "))
                           .Enter();
    m_viewMode = Mode;
    QScopedValueRollback<bool> loading(blnLoading, true);
    entry.ErrorBox([&] {
        CleanControl(false);
        blnGeneralLoaded = false;
        if (!VB::IsNumeric(m_strItems)) {
            SystemError(QStringLiteral("Cannot display Short-List: ") + m_strItems);
            return;
        }
        lngShortListID = VB::CLng(m_strItems);
        const std::unique_ptr<Recordset> rs = ReadShortList(lngShortListID);
        if (!rs)
            return;
        if (rs->RecordCount() == 0) {
            SystemError(QStringLiteral("Short-List: ") + QString::number(lngShortListID) +
                        QStringLiteral(" does not exist"));
            return;
        }
        RefreshSearchArea();
        LoadGeneralProperties();
        m_cycle->Clear(0);
        cmdApplyChanges->setEnabled(false);
        DataAccess::Instance().ShortListShown(lngShortListID);
    });
}

// Fills the general properties and the short list from the store. Filling the
// text boxes raises their change events; the cycle keeps the flag and the
// apply button as they were.
void ctlShortList::LoadGeneralProperties() {
    const auto entry = Entry("LoadGeneralProperties").Enter();
    entry.FullErrorBox([&] {
        {
            EditorCycle::Loading keep(*m_cycle);
            FillGeneralProperties();
        }
        blnGeneralLoaded = true;
        m_cycle->Clear(0);
    });
}

void ctlShortList::FillGeneralProperties() {
    const std::unique_ptr<Recordset> rs = ReadShortList(lngShortListID);
    if (!rs)
        return;
    if (rs->RecordCount() == 0) {
        SystemError(QStringLiteral("ShortList: ") + QString::number(lngShortListID) +
                    QStringLiteral(" does not exist"));
        return;
    }
    txtDescription->setText(Decoded(VB::Text(rs->Fields(QStringLiteral("ShortListDescription")))));
    lblMainCaption->setText(txtDescription->text() + QStringLiteral(" Short List"));
    txtNotes->setPlainText(Decoded(VB::Text(rs->Fields(QStringLiteral("ShortListNotes")))));
    lblCreatedBy->setText(VB::Text(rs->Fields(QStringLiteral("ShortListCreatedBy"))));
    const QVariant varCreated = rs->Fields(QStringLiteral("ShortListDateCreated"));
    lblDateCreated->setText(varCreated.isNull()
                                ? QString()
                                : VB::Format(varCreated.toDateTime(), QStringLiteral("Long Date")));
    const QString strContent = VB::Text(rs->Fields(QStringLiteral("ShortListContent")));
    tvwShortList->Clear();
    if (!strContent.isEmpty()) {
        QString strErrorMessage;
        FillAvailableTreeview(QString(), strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
        const qint32 lngCount = modQVLTControls::GetInstances(strContent, QStringLiteral(",")) + 1;
        RedrawLock lockAvailable(tvwAvailable);
        RedrawLock lockShortList(tvwShortList);
        for (qint32 i = 1; i <= lngCount; ++i) {
            const QString strID =
                modQVLTControls::GetInstance(strContent, QStringLiteral(","), i).trimmed();
            if (!VB::IsNumeric(strID))
                continue;
            qint16 intTypeID = 0;
            QString strTypeError;
            DataAccess::Instance().GetServiceItemTypeID(VB::CLng(strID), strTypeError, intTypeID);
            // An item that no longer exists finds no node and is dropped.
            MoveSIToShortList(QStringLiteral("Type;") + QString::number(intTypeID) +
                              QStringLiteral(";;SI;") + strID);
        }
        RemoveEmptyTypeAndRootNodes();
        SetUpMoveSIButtons();
        SortTreeview(tvwAvailable);
        SortTreeview(tvwShortList);
        for (VBTreeWidget* tree : {tvwAvailable, tvwShortList})
            if (tree->KeyExists(QStringLiteral("Root")))
                tree->Nodes(QStringLiteral("Root")).setExpanded(true);
    }
    SetUpCountsOfSIs();
}

qint16 ctlShortList::DoChecks(QString& strErrorMessage) {
    const auto entry = Entry("DoChecks").Enter();
    qint16 intResult = 0;
    strErrorMessage.clear();
    auto refuse = [](const QString& strMessage) {
        Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("Invalid Property"));
    };
    entry.ErrorReturn(strErrorMessage, [&] {
        if (txtDescription->text().isEmpty()) {
            refuse(QStringLiteral("You must enter a description for this Short-List"));
            txtDescription->setFocus();
            intResult = 3;
            return;
        }
        if (lngShortListID == 0) {
            // The description stands between apostrophes; one inside it is doubled.
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetShortListsWhere(
                QStringLiteral("ShortListDescription = '") +
                    QString(txtDescription->text())
                        .replace(QLatin1Char('\''), QLatin1String("''")) +
                    QStringLiteral("'"),
                strErrorMessage, rs);
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(strErrorMessage);
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            if (rs && rs->RecordCount() > 0) {
                refuse(QStringLiteral("The description that you have entered for this Short-List "
                                      "is not unique. Please enter a different one"));
                txtDescription->selectAll();
                txtDescription->setFocus();
                intResult = 3;
                return;
            }
        }
        intResult = 1;
    });
    return intResult;
}

void ctlShortList::CleanControl(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("CleanControl")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Spelt()
            .Enter();
    entry.ErrorBox([&] { m_cycle->CleanControl(blnChangingToOtherControl); });
}

void ctlShortList::SaveChanges(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("SaveChanges")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Spelt()
            .Enter();
    entry.ErrorBox([&] {
        if (blnGeneralDirty()) {
            QString strErrorMessage;
            const qint16 intResult = DoChecks(strErrorMessage);
            auto report = [&] {
                const QString strText =
                    QStringLiteral("QVLTCONTROLS:ctlShortList:SaveChanges ") + strErrorMessage;
                TraceLog::Instance().WriteErrorLine(strText);
                Platform::Current().MsgBox(strText);
            };
            if (!strErrorMessage.isEmpty())
                return report();
            // A refused save leaves everything as it was, the apply button enabled.
            if (intResult != 1)
                return;
            DataAccess::Instance().SaveShortList(lngShortListID, txtDescription->text(),
                                                 lblCreatedBy->text(), txtNotes->toPlainText(),
                                                 GetSelectedSIs(), strErrorMessage);
            if (!strErrorMessage.isEmpty())
                report();
            m_cycle->Clear(0);
        }
        m_cycle->FinishSave(blnChangingToOtherControl);
    });
}

void ctlShortList::txtDescription_Change() {
    m_cycle->Changed(0);
}

void ctlShortList::txtNotes_Change() {
    m_cycle->Changed(0);
}

void ctlShortList::cmdApplyChanges_Click() {
    const auto entry = Entry("cmdApplyChanges_Click").Enter();
    entry.Guarded([&] { SaveChanges(false); });
}
