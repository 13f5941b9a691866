#include "serviceitem/ctlServiceItem.h"
#include "serviceitem/ctlServiceItem_RunDetails.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "run/MediaPlayer.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QTreeWidget>

// The checks of an item and its save: every changed tab in one transaction,
// and the question asked when the user moves away with changes.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

void Refuse(const QString& strMessage, const QString& strTitle) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, strTitle);
}

// A write whose failure the save does not look for on its own ends the save
// through its handler, which rolls the whole transaction back.
void Must(const QString& strErrorMessage) {
    if (!strErrorMessage.isEmpty())
        throw VBError(VBErr::InternalError, strErrorMessage);
}

bool NumberIsZero(const QLineEdit* box) {
    return VB::IsNumeric(box->text()) && box->text().toDouble() == 0;
}
} // namespace

qint16 ctlServiceItem::DoChecks(QString& strErrorMessage) {
    const auto entry = Entry("DoChecks").Enter();
    qint16 intResult = 0;
    strErrorMessage.clear();
    const QString strTitle = QStringLiteral("Invalid Property");
    const QString strPrefix = QStringLiteral("QVLTCONTROLS:ctlServiceItem:DoChecks: ");
    entry.ErrorReturn(strErrorMessage, [&] {
        const qint32 lngType = SelectedTypeImage();
        if (lngType == 0) {
            Refuse(QStringLiteral("You must select a Service item Type for this Service Item"),
                   strTitle);
            imgcboServiceItemTypes->setFocus();
            intResult = 3;
            return;
        }
        if (txtDescription->text().isEmpty() && txtServiceItemSource->text().isEmpty()) {
            Refuse(QStringLiteral("You must enter either a description or a source for this "
                                  "Service Item"),
                   strTitle);
            txtDescription->setFocus();
            intResult = 3;
            return;
        }
        DataAccess& da = DataAccess::Instance();
        const QString strOthers =
            QStringLiteral("ServiceItems.ServiceItemID <> ") + QString::number(lngServiceItemID);
        const QString strSameType =
            QStringLiteral("' AND ServiceItems.ServiceItemTypeID = ") + QString::number(lngType);
        std::unique_ptr<Recordset> rs;
        auto failed = [&] {
            if (strErrorMessage.isEmpty())
                return false;
            strErrorMessage = strPrefix + strErrorMessage;
            TraceLog::Instance().WriteErrorLine(strErrorMessage);
            intResult = 2;
            return true;
        };
        if (!txtDescription->text().isEmpty()) {
            // The store holds an apostrophe as its marker.
            QString strStored;
            da.DecodeStoredText(txtDescription->text(), strErrorMessage, strStored);
            if (failed())
                return;
            da.GetServiceItemsJoined(strOthers + QStringLiteral(" AND ServiceItemDescription = '") +
                                         strStored + strSameType,
                                     4, strErrorMessage, rs);
            if (failed())
                return;
            // A duplicate description is pointed out; the save goes on.
            if (rs && rs->RecordCount() > 0) {
                Refuse(QStringLiteral("There is already a different Service Item with this "
                                      "description in your Corvantis system. Please enter a "
                                      "different description"),
                       strTitle);
                txtDescription->setFocus();
            }
            intResult = 1;
            return;
        }
        da.GetServiceItemsJoined(strOthers + QStringLiteral(" AND ServiceItemSource = '") +
                                     txtServiceItemSource->text() + strSameType,
                                 4, strErrorMessage, rs);
        if (failed())
            return;
        if (rs && rs->RecordCount() > 0) {
            Refuse(QStringLiteral("There is already a different Service Item with this source and "
                                  "no description in your Corvantis system. Please enter a "
                                  "different source or enter a description"),
                   strTitle);
            txtServiceItemSource->setFocus();
            intResult = 3;
            return;
        }
        intResult = 1;
    });
    return intResult;
}

qint16 ctlServiceItem::DoRunDetailsCheck(QString& strErrorMessage) {
    const auto entry = Entry("DoRunDetailsCheck").Enter();
    qint16 intResult = 0;
    strErrorMessage.clear();
    const QString strTitle = QStringLiteral("Invalid Entry");
    entry.ErrorReturn(strErrorMessage, [&] {
        if (optImageDisplayTime->isChecked() && NumberIsZero(txtImageDisplayMinutes) &&
            NumberIsZero(txtImageDisplaySeconds)) {
            Refuse(QStringLiteral("You cannot display a service item for zero seconds"), strTitle);
            SSTab1->setTab(TabRunDetails);
            txtImageDisplaySeconds->setFocus();
            intResult = 3;
            return;
        }
        if (optImageDisplayTime->isChecked() &&
            RunDetails::DisplaySeconds(txtImageDisplayMinutes, txtImageDisplaySeconds) >
                RunDetails::kMostDisplaySeconds) {
            Refuse(QStringLiteral("A service item can be displayed for at most 546 minutes"),
                   strTitle);
            SSTab1->setTab(TabRunDetails);
            txtImageDisplayMinutes->setFocus();
            intResult = 3;
            return;
        }
        const QString strLines = txtNumLinesToShowPerTime->text();
        if (optShowSILineByLine->isChecked() &&
            (strLines == QLatin1String("0") || strLines.isEmpty() || !VB::IsNumeric(strLines))) {
            Refuse(QStringLiteral("Please enter a valid number of lines to show at a time. This "
                                  "number must be greatertha nor equal to 1"),
                   strTitle);
            SSTab1->setTab(TabRunDetails);
            txtNumLinesToShowPerTime->selectAll();
            txtNumLinesToShowPerTime->setFocus();
            intResult = 3;
            return;
        }
        intResult = 1;
    });
    return intResult;
}

// Stores every changed tab in one transaction. A refused check or a failed
// write of the item's row ends the save with what was written still pending
// (the next transaction or the close commits it, so the item's row is never
// left half written); a failure of any other write rolls all of it back.
void ctlServiceItem::SaveChanges(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("SaveChanges")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Spelt()
            .Enter();
    DataAccess& da = DataAccess::Instance();
    const QString strPrefix = QStringLiteral("QVLTCONTROLS:ctlServiceItem:SaveChanges ");
    const bool blnDone = entry.ErrorBox([&] {
        da.BeginTrans();
        if (GeneralDirty() && !SaveGeneral(strPrefix))
            return;
        if (ContentDirty() && !SaveContent(strPrefix))
            return;
        if (PropBagDirty() && !SavePropBag())
            return;
        if (RunDetailsDirty()) {
            QString strErrorMessage;
            const qint16 intResult = DoRunDetailsCheck(strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strPrefix + strErrorMessage);
                return;
            }
            if (intResult == 3)
                return;
            if (intResult == 1) {
                SaveRunDetails();
                m_cycle->Clear(TabRunDetails);
            }
        }
        da.CommitTrans();
        m_cycle->FinishSave(blnChangingToOtherControl);
    });
    if (!blnDone)
        da.Rollback();
}

// The General Details tab: false when the save ends here.
bool ctlServiceItem::SaveGeneral(const QString& strPrefix) {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    const qint16 intResult = DoChecks(strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strPrefix + strErrorMessage);
        return false;
    }
    if (intResult == 3)
        return false;
    if (intResult != 1)
        return true;
    da.SaveServiceItemGeneral(SelectedTypeImage(), lngServiceItemID, txtDescription->text(),
                              txtServiceItemSource->text(), txtNotes->toPlainText(),
                              txtSongKey->text(), txtCopyright->text(), txtLocation->text(),
                              txtMelody->text(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(strPrefix + strErrorMessage);
        Platform::Current().MsgBox(strPrefix + strErrorMessage);
        return false;
    }
    if (lmgKeywords->Tag() == QLatin1String("Dirty")) {
        da.DeleteServiceItemKeywords(lngServiceItemID, strErrorMessage);
        Must(strErrorMessage);
        for (qint32 i = 1; i <= lmgKeywords->ChosenCount(); ++i) {
            da.AddServiceItemKeyword(lngServiceItemID, VB::CLng(lmgKeywords->ChosenItemData(i)),
                                     strErrorMessage);
            Must(strErrorMessage);
        }
        lmgKeywords->setTag(QString());
    }
    if (lmgResources->Tag() == QLatin1String("Dirty")) {
        da.DeleteServiceItemResources(lngServiceItemID, strErrorMessage);
        Must(strErrorMessage);
        for (qint32 i = 1; i <= lmgResources->ChosenCount(); ++i) {
            da.AddServiceItemResource(lngServiceItemID, lmgResources->ChosenItemText(i),
                                      strErrorMessage);
            Must(strErrorMessage);
        }
        lmgResources->setTag(QString());
    }
    m_cycle->Clear(TabGeneral);
    return true;
}

bool ctlServiceItem::SaveContent(const QString& strPrefix) {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    da.SaveServiceItemContent(lngServiceItemID, SelectedTypeImage(), txtContent->toPlainText(),
                              txtFilename->property("Tag").toString(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(strPrefix + strErrorMessage);
        Platform::Current().MsgBox(strPrefix + strErrorMessage);
        return false;
    }
    if (blnContentTextChanged && ItemHasVerses()) {
        const qint32 intAnswer = Platform::Current().MsgBox(
            QStringLiteral("The content of this song/hymn has changed. Would you like to run the "
                           "Song Breakdown Wizard again so the changes will appear when you next "
                           "run this service item verse by verse?"),
            vbYesNoCancel | vbQuestion, QStringLiteral("Run Song Breakdown Wizard Again"));
        if (intAnswer == vbYes) {
            RunBreakdownWizard();
            blnContentLoaded = false;
            LoadContent();
        }
    }
    blnContentTextChanged = false;
    m_cycle->Clear(TabContent);
    return true;
}

bool ctlServiceItem::SavePropBag() {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    da.DeleteServiceItemPropBag(lngServiceItemID, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return false;
    }
    for (int i = 0; i < lvwPropBag->topLevelItemCount(); ++i) {
        const QString strKey = lvwPropBag->topLevelItem(i)->data(0, Qt::UserRole).toString();
        const qsizetype lngAt = strKey.indexOf(QLatin1String("SI;"));
        da.AddServiceItemPropBagItem(lngServiceItemID, VB::CLng(strKey.mid(lngAt + 3)),
                                     strErrorMessage);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return false;
        }
    }
    m_cycle->Clear(TabPropBag);
    return true;
}

void ctlServiceItem::CleanControl(bool blnChangingToOtherControl) {
    const auto entry =
        Entry("CleanControl")
            .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
            .Enter();
    entry.ErrorBox([&] { m_cycle->CleanControl(blnChangingToOtherControl); });
}
