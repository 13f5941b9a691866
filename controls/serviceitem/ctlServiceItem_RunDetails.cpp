#include "serviceitem/ctlServiceItem_RunDetails.h"
#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/PointList.h"
#include "foundations/VBRuntime.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

// The Run Mode Details tab: how the item runs (its text stepped through, or
// its points), its background pictures, how long a picture shows, its music.
// The tab is filled per type from the stored item and every field it shows is
// stored again by the save, so that an edit of another tab loses nothing.
//
// The tab's handlers live beside this file by concern: the text modes, the
// check that a text runs line by line and the time boxes
// (ctlServiceItem_RunDetailsModes.cpp), the background pictures
// (ctlServiceItem_RunDetailsImages.cpp) and the music
// (ctlServiceItem_RunDetailsMusic.cpp).

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

const char* const kTag = "Tag";

bool IsPicture(qint32 lngTypeID) {
    return lngTypeID == 4 || lngTypeID == 5;
}

// A number typed in a box, rounded, 0 when it is none; kept within what the
// store's fields hold.
qint16 BoxValue(const QLineEdit* box) {
    const double dblValue = RunDetails::BoxNumber(box);
    return static_cast<qint16>(qRound(qBound(-32768.0, dblValue, 32767.0)));
}
} // namespace

using RunDetails::BareFileName;
using RunDetails::ClearOption;

namespace RunDetails {
double BoxNumber(const QLineEdit* box) {
    return VB::IsNumeric(box->text()) ? box->text().toDouble() : 0;
}

double DisplaySeconds(const QLineEdit* minutes, const QLineEdit* seconds) {
    return BoxNumber(minutes) * 60 + BoxNumber(seconds);
}
} // namespace RunDetails

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
        if (blnPicture) {
            ClearOption(optHideImagesWhileRunning);
            PlaceHideDetails(fraMusic);
        } else {
            SelectImagesOption(false);
            PlaceHideDetails(fraImages);
        }

        lvwUsedImages->clear();
        std::unique_ptr<Recordset> rsImages;
        da.GetServiceItemImages(lngServiceItemID, strErrorMessage, rsImages);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        imgPreview->clear();
        if (rsImages && rsImages->RecordCount() > 0) {
            SelectImagesOption(true);
            txtChangeImageEveryXSeconds->setText(VB::Text(field("ChangeImageEveryXSeconds")));
        } else {
            SelectImagesOption(false);
            txtChangeImageEveryXSeconds->setText(QStringLiteral("0"));
        }
        rsImages.reset();
        chkShowAsPointsList->setEnabled(true);
        if (t == 11) {
            chkShowAsPointsList->hide();
            chkShowAsPointsList->setChecked(true);
        }
        chkHideDetails->setChecked(field("HideSIDetails").toBool());

        if (blnPicture) {
            // A picture has music of its own too: the box shows that, never
            // the music of the item shown before.
            ShowStoredMusic(field("ServiceItemMusic"));
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
            EnableTimeBoxes();
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
            ShowStoredMusic(field("ServiceItemMusic"));
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
                txtNumLinesToShowPerTime->setEnabled(optShowSILineByLine->isChecked());
            }
            EnableTimeBoxes();
        }
        rs.reset();
        m_cycle->Clear(TabRunDetails);
        cmdSave->setEnabled(blnSaveEnabled);
        blnRunDetailsLoaded = true;
    });
}

// The stored music: a music item by its description, a file by its name; the
// Tag holds the field. Without music the text is emptied but the music of the
// item shown before stays in the Tag, and the prompt is not read: both are
// kept as the control always did.
void ctlServiceItem::ShowStoredMusic(const QVariant& varMusic) {
    if (varMusic.isNull()) {
        txtMusicFile->clear();
        txtMusicPrompt->setProperty(kTag, QString());
        return;
    }
    const QString strMusic = varMusic.toString();
    if (VB::IsNumeric(strMusic)) {
        QString strErrorMessage;
        QString strDescription;
        DataAccess::Instance().GetServiceItemDescription(VB::CLng(strMusic), strErrorMessage,
                                                         strDescription);
        txtMusicFile->setText(Decoded(strDescription));
    } else {
        txtMusicFile->setText(BareFileName(strMusic));
    }
    txtMusicFile->setProperty(kTag, strMusic);
}

// With points, the check box of running as points stands above both frames;
// without, the frame of the text modes moves up in its place.
void ctlServiceItem::PlacePointsFrames(bool blnHasPoints) {
    chkShowAsPointsList->setVisible(blnHasPoints);
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
            intSecondsToRun = static_cast<qint16>(qRound(qBound(
                0.0, RunDetails::DisplaySeconds(txtImageDisplayMinutes, txtImageDisplaySeconds),
                double(RunDetails::kMostDisplaySeconds))));
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
