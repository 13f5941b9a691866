#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/PointList.h"
#include "foundations/VBRuntime.h"
#include "foundations/modQVLTControls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

// The Run Mode Details tab: how the item runs (its text stepped through, or
// its points), its background pictures, its music. The tab is filled per
// type from the stored item and every field it shows is stored again by the
// save, so that an edit of another tab loses nothing.
//
// What comes with the run details of the content sources: choosing pictures
// (cmdNewImage_Click, GetOpenName, cmdDeleteImages_Click, the preview of
// lvwUsedImages), choosing music (cmdBrowseMusicFile_Click,
// cmdSelectMusicSI_Click), the check that a text can run line by line
// (optShowSILineByLine_Click with fraChecking), the tests of the time boxes,
// and the enabling that follows the image options.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

const char* const kTag = "Tag";

bool IsPicture(qint32 lngTypeID) {
    return lngTypeID == 4 || lngTypeID == 5;
}

// A number typed in a box, 0 when it is none.
qint16 BoxValue(const QLineEdit* box) {
    return VB::IsNumeric(box->text()) ? static_cast<qint16>(qRound(box->text().toDouble())) : 0;
}
} // namespace

void ctlServiceItem::LoadRunDetails() {
    if (blnRunDetailsLoaded)
        return;
    const auto entry = Entry("LoadRunDetails").Enter();
    entry.FullErrorBox([&] {
        const bool blnSaveEnabled = cmdSave->isEnabled();
        DataAccess& da = DataAccess::Instance();
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        da.GetServiceItems(QStringLiteral("ServiceItemID = ") + QString::number(lngServiceItemID),
                           4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0)
            return;
        rs->MoveFirst();
        auto field = [&](const char* name) { return rs->Fields(QString::fromLatin1(name)); };
        const qint32 t = VB::CLng(field("ServiceItemTypeID"));
        const bool blnPicture = IsPicture(t);
        fraDisplay->setVisible(!blnPicture);
        fraImages->setVisible(!blnPicture);
        fraImageDisplay->setVisible(!blnPicture);
        fraMusic->setVisible(true);
        optShowImagesWhileRunning->setVisible(!blnPicture);
        optHideImagesWhileRunning->setVisible(!blnPicture);
        optHideImagesWhileRunning->setChecked(!blnPicture);

        lvwUsedImages->clear();
        imgPreview->clear();
        SetupRunTimeImages(true);
        if (lvwUsedImages->topLevelItemCount() > 0) {
            optShowImagesWhileRunning->setChecked(true);
            txtChangeImageEveryXSeconds->setText(VB::Text(field("ChangeImageEveryXSeconds")));
        } else {
            optHideImagesWhileRunning->setChecked(true);
            txtChangeImageEveryXSeconds->setText(QStringLiteral("0"));
        }
        chkShowAsPointsList->setEnabled(true);
        if (t == 11) {
            chkShowAsPointsList->hide();
            chkShowAsPointsList->setChecked(true);
        }
        chkHideDetails->setChecked(field("HideSIDetails").toBool());

        if (blnPicture) {
            const qint32 lngSeconds = VB::CLng(field("SecondsToRun"));
            if (lngSeconds == 0) {
                txtImageDisplayMinutes->setText(QStringLiteral("0"));
                txtImageDisplaySeconds->setText(QStringLiteral("0"));
                optShowUntilClick->setChecked(true);
            } else {
                optImageDisplayTime->setChecked(true);
                txtImageDisplayMinutes->setText(
                    QString::number(lngSeconds > 60 ? lngSeconds / 60 : 0));
                txtImageDisplaySeconds->setText(
                    QString::number(lngSeconds > 60 ? lngSeconds % 60 : lngSeconds));
            }
        } else if (t == 10) {
            fraMusic->hide();
            chkShowAsPointsList->hide();
            fraAsPointsList->hide();
            fraDisplay->hide();
        } else {
            if (!blnPointsLoaded) {
                LoadPoints();
                Platform::Current().DoEvents();
            }
            PlacePointsFrames(t == 11 || PointList1->Points().Count() > 0);
            if (t == 11)
                chkShowAsPointsList->hide();
            optVerseByVerse->setVisible(t == 17);
            cmdRunBreakDownWizard->setVisible(t == 17);
            const QVariant varMusic = field("ServiceItemMusic");
            if (!varMusic.isNull()) {
                const QString strMusic = varMusic.toString();
                if (VB::IsNumeric(strMusic)) {
                    QString strDescription;
                    da.GetServiceItemDescription(VB::CLng(strMusic), strErrorMessage,
                                                 strDescription);
                    txtMusicFile->setText(strDescription);
                } else {
                    txtMusicFile->setText(modQVLTControls::GetFileName(strMusic));
                }
                txtMusicFile->setProperty(kTag, strMusic);
            } else {
                // The music of the item shown before stays in the Tag, and the
                // prompt is not read: both are kept as the control always did.
                txtMusicFile->clear();
                txtMusicPrompt->setProperty(kTag, QString());
            }
            fraDisplay->show();
            fraImageDisplay->show();
            fraMusic->show();
            const qint32 lngMode = VB::CLng(field("TextViewMode"));
            if (field("RunAsPointsList").toBool() || t == 11) {
                fraAsPointsList->show();
                fraNotAsPointsList->hide();
                chkShowAsPointsList->setChecked(true);
                chkShowAsPointsList->setVisible(t != 11 && chkShowAsPointsList->isVisible());
                if (lngMode == 6)
                    optAllPointsAtOnce->setChecked(true);
                else if (lngMode == 5)
                    optAllPointsByRevealing->setChecked(true);
                else if (lngMode == 4)
                    optOnePointAtATime->setChecked(true);
                chkShowSubPointsOneByOne->setChecked(field("RevealSubPointsOneByOne").toBool());
            } else {
                chkShowAsPointsList->setChecked(false);
                fraAsPointsList->hide();
                fraNotAsPointsList->show();
                txtNumLinesToShowPerTime->setText(VB::Text(field("LinesAtATime")));
                switch (lngMode) {
                case 0:
                    optShowEntireSI->setChecked(true);
                    break;
                case 1:
                    optShowSILineByLine->setChecked(true);
                    break;
                case 2:
                    optVerseByVerse->hide();
                    optShowAsMuchAsWillFit->setChecked(true);
                    break;
                case 3:
                    optVerseByVerse->show();
                    optShowAsMuchAsWillFit->hide();
                    optVerseByVerse->setChecked(true);
                    break;
                default:
                    break;
                }
            }
        }
        rs.reset();
        m_cycle->Clear(TabRunDetails);
        cmdSave->setEnabled(blnSaveEnabled);
        blnRunDetailsLoaded = true;
    });
}

// With points, the check box of running as points stands above both frames;
// without, the frame of the text modes moves up in its place.
void ctlServiceItem::PlacePointsFrames(bool blnHasPoints) {
    chkShowAsPointsList->setVisible(blnHasPoints);
}

void ctlServiceItem::SetupRunTimeImages(bool blnLoadImagesFromDatabase) {
    const auto entry =
        Entry("SetupRunTimeImages")
            .Arg(QStringLiteral("blnLoadImagesFromDatabase"), blnLoadImagesFromDatabase)
            .Enter();
    entry.FullErrorBox([&] {
        const bool blnWasDirty = RunDetailsDirty();
        DataAccess& da = DataAccess::Instance();
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        da.GetServiceItemImages(lngServiceItemID, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        lvwUsedImages->clear();
        if (rs && rs->RecordCount() > 0)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                const qint32 lngID = VB::CLng(rs->Fields(QStringLiteral("ImageServiceItemID")));
                QString strDescription;
                da.GetServiceItemDescription(lngID, strErrorMessage, strDescription);
                auto* item = new QTreeWidgetItem(lvwUsedImages, {strDescription});
                item->setData(0, Qt::UserRole, QStringLiteral("SI;") + QString::number(lngID));
                item->setData(0, Qt::UserRole + 1, lngID);
            }
        m_cycle->SetDirty(TabRunDetails, blnWasDirty);
        if (!blnWasDirty)
            cmdSave->setEnabled(false);
    });
}

void ctlServiceItem::SaveRunDetails() {
    const auto entry = Entry("SaveRunDetails").Enter();
    entry.FullErrorBox([&] {
        bool blnRunAsPointsList = false;
        bool blnRevealSubPoints = false;
        qint16 intTextViewMode = 0;
        qint16 intLinesAtATime = 0;
        if (chkShowAsPointsList->isChecked()) {
            blnRunAsPointsList = true;
            blnRevealSubPoints = chkShowSubPointsOneByOne->isChecked();
            if (optOnePointAtATime->isChecked())
                intTextViewMode = 4;
            else if (optAllPointsAtOnce->isChecked())
                intTextViewMode = 6;
            else if (optAllPointsByRevealing->isChecked())
                intTextViewMode = 5;
        } else if (optShowSILineByLine->isChecked()) {
            intTextViewMode = 1;
            intLinesAtATime = BoxValue(txtNumLinesToShowPerTime);
        } else if (optShowAsMuchAsWillFit->isChecked()) {
            intTextViewMode = 2;
        } else if (optVerseByVerse->isChecked()) {
            intTextViewMode = 3;
        }
        qint16 intSecondsToRun = 0;
        if (fraImageDisplay->isVisibleTo(this) && !optShowUntilClick->isChecked())
            intSecondsToRun = static_cast<qint16>(BoxValue(txtImageDisplayMinutes) * 60 +
                                                  BoxValue(txtImageDisplaySeconds));
        DataAccess& da = DataAccess::Instance();
        QString strErrorMessage;
        da.SaveServiceItemRunDetails(lngServiceItemID, blnRunAsPointsList, 0, intTextViewMode,
                                     intSecondsToRun, BoxValue(txtChangeImageEveryXSeconds),
                                     intLinesAtATime, txtMusicFile->property(kTag).toString(),
                                     txtMusicPrompt->text(), blnRevealSubPoints, strErrorMessage,
                                     chkHideDetails->isChecked());
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
        da.DeleteServiceItemImages(lngServiceItemID, strErrorMessage);
        for (int i = 0; i < lvwUsedImages->topLevelItemCount(); ++i)
            da.AddServiceItemImage(
                lngServiceItemID, lvwUsedImages->topLevelItem(i)->data(0, Qt::UserRole + 1).toInt(),
                strErrorMessage);
    });
}

void ctlServiceItem::RunDetail_Change() {
    Changed(TabRunDetails);
}

void ctlServiceItem::chkShowAsPointsList_Click() {
    const auto entry = Entry("chkShowAsPointsList_Click").Enter();
    entry.Guarded([&] {
        const bool blnTicked = chkShowAsPointsList->isChecked();
        fraAsPointsList->setVisible(blnTicked);
        fraNotAsPointsList->setVisible(!blnTicked);
        if (blnTicked) {
            bool blnRevealSubPoints = false;
            qint16 intPointsMode = 4;
            QString strErrorMessage;
            DataAccess::Instance().GetDefaultPointsDisplay(blnRevealSubPoints, strErrorMessage,
                                                           intPointsMode);
            if (intPointsMode == 6)
                optAllPointsAtOnce->setChecked(true);
            else if (intPointsMode == 5)
                optAllPointsByRevealing->setChecked(true);
            else
                optOnePointAtATime->setChecked(true);
            chkShowSubPointsOneByOne->setChecked(blnRevealSubPoints);
        }
        Changed(TabRunDetails);
    });
}
