#include "serviceitem/ctlServiceItem.h"
#include "serviceitem/ctlServiceItem_RunDetails.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/modQVLTControls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

// The Run Mode Details tab, the item's background pictures: each entry of
// lvwUsedImages stands for a picture item (its Tag the id), shown in
// imgPreview when clicked. New pictures are chosen with GetOpenName and become
// picture items of their own at once; the list itself is stored with the
// tab. Hiding the pictures while the item runs empties the list.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

constexpr qint32 kPictureIcon = 5;

QString ImageKey(qint32 lngImageID) {
    return QStringLiteral("SI;") + QString::number(lngImageID);
}

QTreeWidgetItem* FindImage(QTreeWidget* list, qint32 lngImageID) {
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->data(0, Qt::UserRole).toString() == ImageKey(lngImageID))
            return list->topLevelItem(i);
    return nullptr;
}

// A path with "/" for "\", in capitals, so that a chosen file can be compared
// with the start folder whichever separator either holds.
QString Comparable(const QString& strPath) {
    return QString(strPath).replace(QLatin1Char('\\'), QLatin1Char('/')).toUpper();
}
} // namespace

// Selects one of the two options of the pictures and runs its click, as a
// selection made by the user does.
void ctlServiceItem::SelectImagesOption(bool blnShow) {
    QRadioButton* option = blnShow ? optShowImagesWhileRunning : optHideImagesWhileRunning;
    option->setChecked(true);
    if (blnShow)
        optShowImagesWhileRunning_Click();
    else
        optHideImagesWhileRunning_Click();
}

void ctlServiceItem::EnableImageWidgets(bool blnEnable) {
    for (QWidget* widget : std::initializer_list<QWidget*>{
             cmdNewImage, cmdDeleteImages, lvwUsedImages, txtChangeImageEveryXSeconds})
        widget->setEnabled(blnEnable);
}

void ctlServiceItem::optShowImagesWhileRunning_Click() {
    const auto entry = Entry("optShowImagesWhileRunning_Click").Enter();
    entry.Guarded([&] {
        if (!optShowImagesWhileRunning->isChecked()) {
            cmdNewImage->setEnabled(false);
            lvwUsedImages->setEnabled(false);
            return;
        }
        EnableImageWidgets(true);
        SetupRunTimeImages(true);
        if (lvwUsedImages->topLevelItemCount() == 0)
            cmdNewImage->click();
        else
            ClickFirstImage();
    });
}

void ctlServiceItem::optHideImagesWhileRunning_Click() {
    const auto entry = Entry("optHideImagesWhileRunning_Click").Enter();
    entry.Guarded([&] {
        if (optShowImagesWhileRunning->isChecked()) {
            EnableImageWidgets(true);
        } else {
            EnableImageWidgets(false);
            imgPreview->clear();
        }
        if (lvwUsedImages->topLevelItemCount() > 0)
            Changed(TabRunDetails);
        lvwUsedImages->clear();
    });
}

// Adds the stored pictures that the list does not hold yet; leaves the dirty
// flag and cmdSave as they were.
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
        if (rs && rs->RecordCount() > 0) {
            optShowImagesWhileRunning->setChecked(true);
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                const qint32 lngID = VB::CLng(rs->Fields(QStringLiteral("ImageServiceItemID")));
                QString strDescription;
                da.GetServiceItemDescription(lngID, strErrorMessage, strDescription);
                AddImageEntry(lngID, Decoded(strDescription));
            }
        }
        m_cycle->SetDirty(TabRunDetails, blnWasDirty);
        if (!blnWasDirty)
            cmdSave->setEnabled(false);
    });
}

void ctlServiceItem::AddImageEntry(qint32 lngImageID, const QString& strDescription) {
    if (FindImage(lvwUsedImages, lngImageID))
        return;
    auto* item = new QTreeWidgetItem(lvwUsedImages, {strDescription});
    item->setData(0, Qt::UserRole, ImageKey(lngImageID));
    item->setData(0, Qt::UserRole + 1, lngImageID);
    item->setIcon(0, imlServiceItems->Icon(kPictureIcon));
}

void ctlServiceItem::ClickFirstImage() {
    if (lvwUsedImages->topLevelItemCount() == 0) {
        imgPreview->clear();
        return;
    }
    QTreeWidgetItem* first = lvwUsedImages->topLevelItem(0);
    lvwUsedImages->setCurrentItem(first);
    lvwUsedImages_ItemClick(first);
}

void ctlServiceItem::lvwUsedImages_ItemClick(QTreeWidgetItem* Item) {
    const auto entry = Entry("lvwUsedImages_ItemClick").Enter();
    entry.Guarded([&] {
        if (!Item)
            return;
        const QVariant varTag = Item->data(0, Qt::UserRole + 1);
        if (!VB::IsNumeric(varTag))
            return;
        QString strErrorMessage;
        QString strFile;
        DataAccess::Instance().GetServiceItemFileName(VB::CLng(varTag), strErrorMessage, strFile);
        // A picture that cannot be read (moved, damaged) previews as nothing.
        const QPixmap picture(Platform::LocalPath(strFile));
        if (picture.isNull())
            imgPreview->clear();
        else
            imgPreview->setPixmap(
                picture.scaled(imgPreview->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    });
}

// The open-file dialog of the pictures, with its thumbnails; an empty answer
// is Cancel.
QString ctlServiceItem::GetOpenName(const QString& strStart) {
    Entry("GetOpenName").Arg(QStringLiteral("strStart"), strStart).Enter();
    return Platform::Current().ShowOpen(
        QStringLiteral("Picture Files|*.bmp;*.jpg;.gif;.jpeg"),
        QStringLiteral("Select a picture to be the default background picture when an event is "
                       "displayed"),
        strStart, false);
}

// A chosen file that is not there, or is no picture, is refused with a word
// of why; nothing is stored for it.
bool ctlServiceItem::AcceptPictureFile(const QString& strFile) {
    Platform& platform = Platform::Current();
    const QString strName = RunDetails::BareFileName(strFile);
    if (!platform.FileExists(Platform::LocalPath(strFile))) {
        platform.MsgBox(QStringLiteral("The picture \"%1\" cannot be found. It may have been "
                                       "moved or deleted; please choose it again.")
                            .arg(strFile),
                        vbExclamation, QStringLiteral("Picture not found"));
        return false;
    }
    if (!RunDetails::IsPictureFile(strFile)) {
        platform.MsgBox(QStringLiteral("\"%1\" is not a picture. Please choose a picture file "
                                       "(.bmp, .jpg, .jpeg, .gif, .png, .tif).")
                            .arg(strName),
                        vbExclamation, QStringLiteral("Not a picture"));
        return false;
    }
    return true;
}

// A picture lying in the content folder itself is kept by its name there; any
// other (a sub-folder included, whose name alone would not find it) by its
// full path.
void ctlServiceItem::cmdNewImage_Click() {
    const auto entry = Entry("cmdNewImage_Click").Enter();
    entry.Guarded([&] {
        DataAccess& da = DataAccess::Instance();
        QString strFolder;
        da.GetContentFolder(strFolder);
        const QString strStart = modQVLTControls::AddSlash(strFolder);
        const QString strFile = GetOpenName(strStart);
        if (strFile.isEmpty() || !AcceptPictureFile(strFile))
            return;
        qint32 lngID = 0;
        const QString strFolderKey = Comparable(strStart);
        const QString strFileKey = Comparable(strFile);
        if (strFileKey.startsWith(strFolderKey) &&
            !strFileKey.mid(strFolderKey.size()).contains(QLatin1Char('/')))
            da.AddImageServiceItemInFolder(RunDetails::BareFileName(strFile), lngID);
        else
            da.AddImageServiceItem(strFile, lngID);
        if (lngID == 0) {
            Platform::Current().MsgBox(
                QStringLiteral("The picture \"%1\" could not be added to Corvantis.")
                    .arg(RunDetails::BareFileName(strFile)),
                vbExclamation);
            return;
        }
        QString strErrorMessage;
        QString strDescription;
        da.GetServiceItemDescription(lngID, strErrorMessage, strDescription);
        if (!strErrorMessage.isEmpty()) {
            TraceLog::Instance().WriteErrorLine(
                QStringLiteral("ctlServiceItem: cmdNewImage_Click: ") + strErrorMessage);
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        AddImageEntry(lngID, Decoded(strDescription));
        Changed(TabRunDetails);
        ClickFirstImage();
    });
}

void ctlServiceItem::cmdDeleteImages_Click() {
    const auto entry = Entry("cmdDeleteImages_Click").Enter();
    entry.Guarded([&] {
        QTreeWidgetItem* selected = lvwUsedImages->currentItem();
        if (!selected || !selected->isSelected())
            return;
        const qint32 lngAnswer = Platform::Current().MsgBox(
            QStringLiteral("Are you sure you want to remove this image as a background image "
                           "for this Service item?"),
            vbYesNoCancel | vbDefaultButton2);
        if (lngAnswer != vbYes)
            return;
        delete selected;
        Changed(TabRunDetails);
        ClickFirstImage();
    });
}
