// The default background picture of the run-mode tab: a picture item of the
// list, or a file chosen by browsing, with its preview. DefaultBackgroundImage
// holds the item's id (0 for none) or the file's path.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "options/OptionsHelpers.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
// The longest path the background field takes.
constexpr qint32 kLongestPath = 255;

} // namespace

// The default background picture: a list of picture items, a file chosen by
// browsing, and a preview.
QGroupBox* ctlOptions::CreateBackgroundFrame() {
    auto* fraPicture = Named(new QGroupBox(QStringLiteral("Default background picture")),
                             QStringLiteral("fraBackgroundPicture"));
    cboBackgroundImages = Named(new QComboBox, QStringLiteral("cboBackgroundImages"));
    // A drop-down with a text of its own (the name of a chosen file), which
    // cannot be typed in.
    cboBackgroundImages->setEditable(true);
    cboBackgroundImages->setInsertPolicy(QComboBox::NoInsert);
    cboBackgroundImages->lineEdit()->setReadOnly(true);
    cboBackgroundImages->lineEdit()->installEventFilter(this);
    cmdBrowseBackgroundPicture = Named(new QPushButton(QStringLiteral("Browse for a picture file")),
                                       QStringLiteral("cmdBrowseBackgroundPicture"));
    imgBackgroundPreview = Named(new QLabel, QStringLiteral("imgBackgroundPreview"));
    imgBackgroundPreview->setFixedSize(Twips::ToPixels(2400), Twips::ToPixels(1800));
    imgBackgroundPreview->setFrameShape(QFrame::Box);
    imgBackgroundPreview->setAlignment(Qt::AlignCenter);
    auto* pictureGrid = new QGridLayout(fraPicture);
    pictureGrid->addWidget(cboBackgroundImages, 0, 0);
    pictureGrid->addWidget(cmdBrowseBackgroundPicture, 1, 0);
    pictureGrid->setRowStretch(2, 1);
    pictureGrid->addWidget(imgBackgroundPreview, 0, 1, 3, 1);
    pictureGrid->setColumnStretch(0, 1);

    return fraPicture;
}

// The picture items; false (and the library's text shown) when they cannot be
// listed, which ends the loading of the tab.
bool ctlOptions::FillBackgroundList() {
    QString strErrorMessage;
    QList<DataAccess::ListEntry> pictures;
    DataAccess::Instance().FillBackgroundImageCombo(pictures, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(QStringLiteral("QVLTCONTROLS:ctlOptions:LoadRunModeDetailsTab") +
                                   strErrorMessage);
        return false;
    }
    FillCombo(cboBackgroundImages, pictures);
    return true;
}

// DefaultBackgroundImage: Null chooses "(None)", a number the picture item of
// that id, a text is the path of a file, shown by its name.
void ctlOptions::ShowStoredBackground(const Recordset& rs) {
    const QVariant varBackground = rs.Fields(QStringLiteral("DefaultBackgroundImage"));
    if (varBackground.isNull()) {
        cboBackgroundImages->setCurrentIndex(0);
    } else if (VB::IsNumeric(varBackground)) {
        // Choosing the entry stores it again and loads its preview.
        const int index = FindItemData(cboBackgroundImages, VB::CLng(varBackground));
        if (index >= 0)
            cboBackgroundImages->setCurrentIndex(index);
    } else {
        cboBackgroundImages->setProperty("Tag", varBackground.toString());
        cboBackgroundImages->setEditText(FileNameOf(varBackground.toString()));
        LoadPreviewImage();
    }
}

void ctlOptions::ClearBackgroundPreview() {
    imgBackgroundPreview->clear();
}

// The preview of the picture that Tag of cboBackgroundImages names: the id of
// a picture item, or the path of a file. The entry "(None)" (id 0) shows none.
void ctlOptions::LoadPreviewImage() {
    const auto entry = MemberEntry(kClass, QStringLiteral("LoadPreviewImage")).Enter();
    entry.FullErrorBox([&] {
        const QVariant varTag = cboBackgroundImages->property("Tag");
        const QString strTag = varTag.toString();
        if (strTag.isEmpty()) {
            ClearBackgroundPreview();
            return;
        }
        QString strPath = strTag;
        if (VB::IsNumeric(varTag) && cboBackgroundImages->currentIndex() >= 0) {
            const qint32 lngID = VB::CLng(cboBackgroundImages->currentData());
            if (lngID == 0) {
                ClearBackgroundPreview();
                return;
            }
            QString strErrorMessage;
            DataAccess::Instance().GetServiceItemFileName(lngID, strErrorMessage, strPath);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(
                    QStringLiteral("QVLTCONTROLS:ctlOptions:LoadPreviewImage") + strErrorMessage);
                ClearBackgroundPreview();
                return;
            }
        }
        if (!Platform::Current().FileExists(strPath)) {
            ClearBackgroundPreview();
            Platform::Current().MsgBox(QStringLiteral("The picture file you want to view has been "
                                                      "moved from its original position"),
                                       vbOKOnly, QStringLiteral("File not found"));
            return;
        }
        const QPixmap picture(Platform::LocalPath(strPath));
        if (picture.isNull())
            throw VBError(481, QStringLiteral("Invalid picture"));
        imgBackgroundPreview->setPixmap(picture.scaled(imgBackgroundPreview->contentsRect().size(),
                                                       Qt::KeepAspectRatio,
                                                       Qt::SmoothTransformation));
    });
}

void ctlOptions::cboBackgroundImages_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboBackgroundImages_Click")).Enter();
    entry.Guarded([&] {
        if (cboBackgroundImages->currentIndex() < 0)
            return;
        const QVariant varID = cboBackgroundImages->currentData();
        StoreOption(QStringLiteral("DefaultBackgroundImage"), varID);
        cboBackgroundImages->setProperty("Tag", varID.toString());
        LoadPreviewImage();
    });
}

void ctlOptions::cboBackgroundImages_KeyPress(qint16& KeyAscii) {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboBackgroundImages_KeyPress"))
                           .Arg(QStringLiteral("KeyAscii"), KeyAscii)
                           .Enter();
    KeyAscii = 0;
}

void ctlOptions::cmdBrowseBackgroundPicture_Click() {
    const auto entry =
        MemberEntry(kClass, QStringLiteral("cmdBrowseBackgroundPicture_Click"))
            .WithPrefix(QStringLiteral("cmdBrowsebackgroundPicture: Error number is "))
            .Enter();
    ErrorBoxQuietOnCancel(entry, [&] {
        const QString strPath = Platform::Current().ShowOpen(
            PictureFilter,
            QStringLiteral("Select a picture to be the background picture for when you run a "
                           "Service or Service Item"),
            QString(), true);
        if (strPath.size() > kLongestPath) {
            Platform::Current().MsgBox(
                QStringLiteral("the path and filename are longer than 255 characters, either "
                               "rename the file to a shorter name or move it to a folder that "
                               "has a shorter path"),
                vbOKOnly, QStringLiteral("Invalid filename"));
            cboBackgroundImages->setProperty("Tag", QString());
            cboBackgroundImages->setCurrentIndex(-1);
            cboBackgroundImages->setEditText(QString());
            ClearBackgroundPreview();
            return;
        }
        cboBackgroundImages->setProperty("Tag", strPath);
        cboBackgroundImages->setCurrentIndex(-1);
        cboBackgroundImages->setEditText(FileNameOf(strPath));
        LoadPreviewImage();
        StoreOption(QStringLiteral("DefaultBackgroundImage"), strPath);
    });
}
