// Tab 2, " Run Mode Details": how a run looks on the projector by default.
// Font and colours of the text, the default background picture, transitions
// (switched on in Corvantis.ini), how points are revealed, which details of an
// item are shown, and whether music starts by itself. The projection is the
// host's, which reads these fields.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "options/OptionsHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
const QString kOptions = QStringLiteral("Options");
const QString kUseTransitions = QStringLiteral("UseTransitions");
// The font dialog: screen fonts, help, effects (the colour of the text), only
// fonts that exist, only scalable ones.
constexpr qint32 kFontDialogFlags = 196869;
// The colours of a run when the stored ones are not colours: white on black.
constexpr qint32 kDefaultForeColor = 0xFFFFFF;
constexpr qint32 kDefaultBackColor = 0;
// The longest path the background field takes.
constexpr qint32 kLongestPath = 255;

// The check boxes of details and music, with their fields.
struct DetailBox {
    QCheckBox* ctlOptions::*Box;
    const char* Name;
    const char* Caption;
    const char* Field;
};
const DetailBox kDetailBoxes[] = {
    {&ctlOptions::chkShowDescription, "chkShowDescription",
     "Show Description details while running a Service item", "ShowDescriptionDetailsAtRunTime"},
    {&ctlOptions::chkShowOrigLocation, "chkShowOrigLocation",
     "Show Location details while running a Service item", "ShowLocationDetailsAtRunTime"},
    {&ctlOptions::chkShowCopyright, "chkShowCopyright",
     "Show Copyright details while running a Service item", "ShowCopyrightDetailsAtRunTime"},
    {&ctlOptions::chkShowSource, "chkShowSource",
     "Show Source details while running a Service item", "ShowSourceAtRunTime"},
    {&ctlOptions::chkPlayMusicAutomatically, "chkPlayMusicAutomatically",
     "Play music file automatically if it is available", "AutoPlayMusic"},
    {&ctlOptions::chkSubPointsOneByOne, "chkSubPointsOneByOne", "Reveal sub-points one by one",
     "ShowSubPointsOneByOne"},
};

QLabel* NewCaption(const QString& strText, QWidget* buddy) {
    auto* lbl = new QLabel(strText);
    lbl->setBuddy(buddy);
    return lbl;
}

} // namespace

// ---------------------------------------------------------------- widgets

QWidget* ctlOptions::CreateRunModeTab() {
    auto* page = new QWidget;
    for (const DetailBox& box : kDetailBoxes)
        this->*box.Box =
            Named(new QCheckBox(QString::fromUtf8(box.Caption)), QString::fromLatin1(box.Name));

    // The text: a sample on the background colour, and the two buttons.
    auto* fraText = Named(new QGroupBox(QStringLiteral("Text on the projector")),
                          QStringLiteral("fraRunModeText"));
    lblBackGround2 = Named(new QLabel, QStringLiteral("lblBackGround2"));
    lblBackGround2->setAutoFillBackground(true);
    lblBackGround2->setMinimumSize(Twips::ToPixels(6000), Twips::ToPixels(1800));
    lblBackGround2->setFrameShape(QFrame::Box);
    lblRunModeSample = Named(new QLabel(QStringLiteral("Sample Text"), lblBackGround2),
                             QStringLiteral("lblRunModeSample"));
    lblRunModeSample->setAutoFillBackground(true);
    lblRunModeSample->setAlignment(Qt::AlignCenter);
    // Large sizes break the sample into two lines rather than cut it off.
    lblRunModeSample->setWordWrap(true);
    auto* sampleLayout = new QVBoxLayout(lblBackGround2);
    sampleLayout->addWidget(lblRunModeSample, 0, Qt::AlignCenter);
    cmdChangeFont =
        Named(new QPushButton(QStringLiteral("&Change Font")), QStringLiteral("cmdChangeFont"));
    cmdChangeBackgroundColor = Named(new QPushButton(QStringLiteral("Change &Background Color")),
                                     QStringLiteral("cmdChangeBackgroundColor"));
    auto* textGrid = new QGridLayout(fraText);
    textGrid->addWidget(lblBackGround2, 0, 0, 3, 1);
    textGrid->addWidget(cmdChangeFont, 0, 1);
    textGrid->addWidget(cmdChangeBackgroundColor, 1, 1);
    textGrid->setColumnStretch(0, 1);

    // The default background picture.
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

    // Transitions between slides.
    auto* fraTransitions =
        Named(new QGroupBox(QStringLiteral("Transitions")), QStringLiteral("fraTransitions"));
    chkUseTransitions = Named(new QCheckBox(QStringLiteral("Use Transitions")),
                              QStringLiteral("chkUseTransitions"));
    cboTransition = Named(new QComboBox, QStringLiteral("cboTransition"));
    cboTransitionSpeed = Named(new QComboBox, QStringLiteral("cboTransitionSpeed"));
    auto* transitionGrid = new QGridLayout(fraTransitions);
    transitionGrid->addWidget(chkUseTransitions, 0, 0, 1, 2);
    transitionGrid->addWidget(NewCaption(QStringLiteral("&Transition:"), cboTransition), 1, 0);
    transitionGrid->addWidget(cboTransition, 1, 1);
    transitionGrid->addWidget(NewCaption(QStringLiteral("&Speed:"), cboTransitionSpeed), 2, 0);
    transitionGrid->addWidget(cboTransitionSpeed, 2, 1);
    transitionGrid->setColumnStretch(1, 1);

    // Points lists.
    auto* fraPoints =
        Named(new QGroupBox(QStringLiteral("Points lists")), QStringLiteral("fraPoints"));
    cboDisplayPointsMode = Named(new QComboBox, QStringLiteral("cboDisplayPointsMode"));
    cboDisplayPointsMode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    FillCombo(cboDisplayPointsMode,
              {{QStringLiteral("Only show one point at a time"), 4},
               {QStringLiteral("Show all points by revealing them one at a time"), 5},
               {QStringLiteral("Show all points at start"), 6}});
    auto* pointsBox = new QVBoxLayout(fraPoints);
    pointsBox->addWidget(cboDisplayPointsMode);
    pointsBox->addWidget(chkSubPointsOneByOne);

    // What shows beside an item while it runs.
    auto* fraDetails = Named(new QGroupBox(QStringLiteral("While a Service item runs")),
                             QStringLiteral("fraRunDetails"));
    auto* detailsBox = new QVBoxLayout(fraDetails);
    for (QCheckBox* chk : {chkShowDescription, chkShowOrigLocation, chkShowCopyright, chkShowSource,
                           chkPlayMusicAutomatically})
        detailsBox->addWidget(chk);

    auto* grid = new QGridLayout(page);
    grid->addWidget(fraText, 0, 0, 1, 2);
    grid->addWidget(fraPicture, 1, 0);
    grid->addWidget(fraTransitions, 1, 1);
    grid->addWidget(fraPoints, 2, 0);
    grid->addWidget(fraDetails, 2, 1);
    grid->setRowStretch(3, 1);
    return page;
}

void ctlOptions::ConnectRunModeTab() {
    connect(cmdChangeFont, &QPushButton::clicked, this, &ctlOptions::cmdChangeFont_Click);
    connect(cmdChangeBackgroundColor, &QPushButton::clicked, this,
            &ctlOptions::cmdChangeBackgroundColor_Click);
    connect(cboBackgroundImages, &QComboBox::currentIndexChanged, this,
            &ctlOptions::cboBackgroundImages_Click);
    connect(cmdBrowseBackgroundPicture, &QPushButton::clicked, this,
            &ctlOptions::cmdBrowseBackgroundPicture_Click);
    connect(chkUseTransitions, &QCheckBox::toggled, this, &ctlOptions::chkUseTransitions_Click);
    connect(cboTransition, &QComboBox::currentIndexChanged, this, &ctlOptions::cboTransition_Click);
    connect(cboTransitionSpeed, &QComboBox::currentIndexChanged, this,
            &ctlOptions::cboTransitionSpeed_Click);
    connect(cboDisplayPointsMode, &QComboBox::currentIndexChanged, this,
            &ctlOptions::cboDisplayPointsMode_Click);
    for (const DetailBox& box : kDetailBoxes) {
        QCheckBox* chk = this->*box.Box;
        const QString strField = QString::fromLatin1(box.Field);
        connect(chk, &QCheckBox::toggled, this,
                [this, chk, strField] { chkRunModeOption_Click(chk, strField); });
    }
}

// ---------------------------------------------------------------- loading

void ctlOptions::LoadRunModeDetailsTab() {
    const auto entry = MemberEntry(kClass, QStringLiteral("LoadRunModeDetailsTab")).Enter();
    entry.FullErrorBox([&] {
        std::unique_ptr<Recordset> rs = FetchOptions();
        ApplyRunModeLook(*rs);
        for (const DetailBox& box : kDetailBoxes)
            if (this->*box.Box != chkSubPointsOneByOne)
                (this->*box.Box)
                    ->setChecked(StoredFlag(rs->Fields(QString::fromLatin1(box.Field))));

        QString strErrorMessage;
        QList<DataAccess::ListEntry> transitions, speeds;
        DataAccess::Instance().FillTransitionCombos(transitions, speeds, strErrorMessage);
        FillCombo(cboTransition, transitions);
        FillCombo(cboTransitionSpeed, speeds);

        const bool blnUse = ReadSetting(kOptions, kUseTransitions, QString(), 10)
                                .compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0;
        chkUseTransitions->setChecked(blnUse);
        cboTransition->setEnabled(blnUse);
        cboTransitionSpeed->setEnabled(blnUse);

        QList<DataAccess::ListEntry> pictures;
        DataAccess::Instance().FillBackgroundImageCombo(pictures, strErrorMessage);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(
                QStringLiteral("QVLTCONTROLS:ctlOptions:LoadRunModeDetailsTab") + strErrorMessage);
            return;
        }
        FillCombo(cboBackgroundImages, pictures);

        const QVariant varBackground = rs->Fields(QStringLiteral("DefaultBackgroundImage"));
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

        const QVariant varType = rs->Fields(QStringLiteral("RunModeTransType"));
        if (VB::IsNumeric(varType) && VB::CLng(varType) == DataAccess::transCut) {
            cboTransitionSpeed->setEnabled(false);
            cboTransitionSpeed->setCurrentIndex(-1);
            cboTransition->setCurrentIndex(FindItemData(cboTransition, varType));
        } else {
            cboTransition->setCurrentIndex(FindItemData(cboTransition, varType));
            cboTransitionSpeed->setCurrentIndex(
                FindItemData(cboTransitionSpeed, rs->Fields(QStringLiteral("RunModeTransSpeed"))));
        }

        cboDisplayPointsMode->setCurrentIndex(
            FindItemData(cboDisplayPointsMode, rs->Fields(QStringLiteral("PointDisplayMode"))));
        chkSubPointsOneByOne->setChecked(
            StoredFlag(rs->Fields(QStringLiteral("ShowSubPointsOneByOne"))));
        m_blnRunModeTabLoaded = true;
    });
}

// Font and colours of the sample from the record. A font that is not installed
// shows in the font that takes its place, and colours that are no colours
// (-1, Null) show as white on black; the user is told of either.
void ctlOptions::ApplyRunModeLook(const Recordset& rs) {
    QFont fnt = lblRunModeSample->font();
    const QString strName = rs.Fields(QStringLiteral("RunModeFontName")).toString().trimmed();
    if (!strName.isEmpty())
        fnt.setFamily(strName);
    fnt.setBold(StoredFlag(rs.Fields(QStringLiteral("RunModeFontBold"))));
    fnt.setItalic(StoredFlag(rs.Fields(QStringLiteral("RunModeFontItalic"))));
    const double dblSize = rs.Fields(QStringLiteral("RunModeFontSize")).toDouble();
    if (dblSize > 0)
        fnt.setPointSizeF(dblSize);
    lblRunModeSample->setFont(fnt);
    if (!strName.isEmpty() && !QFontDatabase::hasFamily(strName))
        Platform::Current().MsgBox(
            QStringLiteral("The font \"%1\" chosen for running services is not installed on "
                           "this computer. Another font takes its place until you choose one "
                           "with Change Font.")
                .arg(strName),
            vbOKOnly | vbExclamation, QStringLiteral("Font not installed"));

    const QVariant varFore = rs.Fields(QStringLiteral("RunModeFontColor"));
    const QVariant varBack = rs.Fields(QStringLiteral("RunModeBackColor"));
    const bool blnValid = IsValidBgr(varFore) && IsValidBgr(varBack);
    SetSampleColours(IsValidBgr(varFore) ? varFore.toInt() : kDefaultForeColor,
                     IsValidBgr(varBack) ? varBack.toInt() : kDefaultBackColor);
    if (!blnValid)
        Platform::Current().MsgBox(
            QStringLiteral("The colours stored for running services are not valid colours. The "
                           "sample shows the standard colours until you choose others."),
            vbOKOnly | vbExclamation, QStringLiteral("Colour not valid"));
}

void ctlOptions::SetSampleColours(qint32 lngForeColor, qint32 lngBackColor) {
    QPalette sample = lblRunModeSample->palette();
    sample.setColor(QPalette::WindowText, ColorFromBgr(lngForeColor));
    sample.setColor(QPalette::Window, ColorFromBgr(lngBackColor));
    lblRunModeSample->setPalette(sample);
    QPalette back = lblBackGround2->palette();
    back.setColor(QPalette::Window, ColorFromBgr(lngBackColor));
    lblBackGround2->setPalette(back);
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

// ---------------------------------------------------------------- changes

void ctlOptions::cmdChangeFont_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cmdChangeFont_Click")).Enter();
    entry.Guarded([&] {
        qint32 lngColor = BgrFromColor(lblRunModeSample->palette().color(QPalette::WindowText));
        QFont fnt;
        if (!RunUnlessCancelled([&] {
                fnt = Platform::Current().ShowFontAndColor(lblRunModeSample->font(), lngColor,
                                                           kFontDialogFlags, true);
            }))
            return;
        if (!IsValidBgr(lngColor)) {
            Platform::Current().MsgBox(QStringLiteral("The colour chosen is not a valid colour, "
                                                      "so the font has not been changed."),
                                       vbOKOnly | vbExclamation,
                                       QStringLiteral("Colour not valid"));
            return;
        }
        lblRunModeSample->setFont(fnt);
        SetSampleColours(lngColor,
                         BgrFromColor(lblRunModeSample->palette().color(QPalette::Window)));
        StoreOptions({{QStringLiteral("RunModeFontName"), fnt.family()},
                      {QStringLiteral("RunModeFontBold"), fnt.bold()},
                      {QStringLiteral("RunModeFontItalic"), fnt.italic()},
                      {QStringLiteral("RunModeFontSize"), static_cast<float>(fnt.pointSizeF())},
                      {QStringLiteral("RunModeFontColor"), lngColor}});
    });
}

void ctlOptions::cmdChangeBackgroundColor_Click() {
    const auto entry =
        MemberEntry(kClass, QStringLiteral("cmdChangeBackgroundColor_Click")).Enter();
    entry.Guarded([&] {
        qint32 lngColor = 0;
        if (!RunUnlessCancelled([&] {
                lngColor = Platform::Current().ShowColor(
                    BgrFromColor(lblRunModeSample->palette().color(QPalette::Window)), true);
            }))
            return;
        if (!IsValidBgr(lngColor)) {
            Platform::Current().MsgBox(
                QStringLiteral("The colour chosen is not a valid colour, so the background "
                               "colour has not been changed."),
                vbOKOnly | vbExclamation, QStringLiteral("Colour not valid"));
            return;
        }
        SetSampleColours(BgrFromColor(lblRunModeSample->palette().color(QPalette::WindowText)),
                         lngColor);
        StoreOption(QStringLiteral("RunModeBackColor"), lngColor);
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

void ctlOptions::chkUseTransitions_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("chkUseTransitions_Click")).Enter();
    entry.Guarded([&] {
        const bool blnOn = CheckValue(chkUseTransitions) != 0;
        WriteSetting(kOptions, kUseTransitions,
                     blnOn ? QStringLiteral("True") : QStringLiteral("False"));
        cboTransition->setEnabled(blnOn);
        cboTransitionSpeed->setEnabled(blnOn);
    });
}

void ctlOptions::cboTransition_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboTransition_Click")).Enter();
    entry.Guarded([&] {
        if (cboTransition->currentIndex() < 0)
            return;
        if (ReadSetting(kOptions, kUseTransitions, QString(), 30)
                .compare(QStringLiteral("True"), Qt::CaseInsensitive) != 0) {
            cboTransition->setEnabled(false);
            cboTransitionSpeed->setEnabled(false);
            chkUseTransitions->setChecked(false);
            return;
        }
        const QVariant varType = cboTransition->currentData();
        if (VB::CLng(varType) == DataAccess::transCut) {
            // A cut has no speed: the field holds an empty text (it takes no Null).
            cboTransitionSpeed->setEnabled(false);
            cboTransitionSpeed->setCurrentIndex(-1);
            StoreOptions({{QStringLiteral("RunModeTransType"), varType},
                          {QStringLiteral("RunModeTransSpeed"), QStringLiteral("")}});
            return;
        }
        StoreOption(QStringLiteral("RunModeTransType"), varType);
        if (!cboTransitionSpeed->isEnabled()) {
            cboTransitionSpeed->setEnabled(true);
            {
                const QSignalBlocker quiet(cboTransitionSpeed);
                cboTransitionSpeed->setCurrentIndex(0);
            }
            cboTransitionSpeed_Click();
        }
    });
}

void ctlOptions::cboTransitionSpeed_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboTransitionSpeed_Click")).Enter();
    entry.Guarded([&] {
        if (cboTransitionSpeed->currentIndex() >= 0)
            StoreOption(QStringLiteral("RunModeTransSpeed"), cboTransitionSpeed->currentData());
    });
}

void ctlOptions::cboDisplayPointsMode_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboDisplayPointsMode_Click")).Enter();
    entry.Guarded([&] {
        if (cboDisplayPointsMode->currentIndex() >= 0)
            StoreOption(QStringLiteral("PointDisplayMode"), cboDisplayPointsMode->currentData());
    });
}

void ctlOptions::chkRunModeOption_Click(QCheckBox* chk, const QString& strField) {
    const auto entry = MemberEntry(kClass, chk->objectName() + QStringLiteral("_Click")).Enter();
    entry.Guarded([&] { StoreOption(strField, CheckValue(chk) == 1); });
}
