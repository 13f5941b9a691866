// Tab 2, " Run Mode Details": how a run looks on the projector by default.
// This file holds the tab's layout and loading, font and colours of the text,
// how points are revealed, which details of an item are shown, and whether
// music starts by itself; the background picture and the transitions have
// files of their own. The projection is the host's, which reads these fields.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
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
// The font dialog: screen fonts, help, effects (the colour of the text), only
// fonts that exist, only scalable ones.
constexpr qint32 kFontDialogFlags = 196869;
// The colours of a run when the stored ones are not colours: white on black.
constexpr qint32 kDefaultForeColor = 0xFFFFFF;
constexpr qint32 kDefaultBackColor = 0;

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

} // namespace

// ---------------------------------------------------------------- widgets

QWidget* ctlOptions::CreateRunModeTab() {
    auto* page = new QWidget;
    for (const DetailBox& box : kDetailBoxes)
        this->*box.Box =
            Named(new QCheckBox(QString::fromUtf8(box.Caption)), QString::fromLatin1(box.Name));
    QGroupBox* fraText = CreateRunModeTextFrame();
    QGroupBox* fraPicture = CreateBackgroundFrame();
    QGroupBox* fraTransitions = CreateTransitionsFrame();

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

// The text: a sample on the background colour, and the two buttons.
QGroupBox* ctlOptions::CreateRunModeTextFrame() {
    auto* fraText = Named(new QGroupBox(QStringLiteral("Text on the projector")),
                          QStringLiteral("fraRunModeText"));
    lblBackGround2 = Named(new QLabel, QStringLiteral("lblBackGround2"));
    lblBackGround2->setAutoFillBackground(true);
    lblBackGround2->setFrameShape(QFrame::Box);
    lblRunModeSample = Named(new QLabel(QStringLiteral("Sample Text"), lblBackGround2),
                             QStringLiteral("lblRunModeSample"));
    lblRunModeSample->setAutoFillBackground(true);
    lblRunModeSample->setAlignment(Qt::AlignCenter);
    auto* sampleLayout = new QVBoxLayout(lblBackGround2);
    sampleLayout->addWidget(lblRunModeSample, 0, Qt::AlignCenter);
    FitSamplePanel();
    cmdChangeFont =
        Named(new QPushButton(QStringLiteral("&Change Font")), QStringLiteral("cmdChangeFont"));
    cmdChangeBackgroundColor = Named(new QPushButton(QStringLiteral("Change &Background Color")),
                                     QStringLiteral("cmdChangeBackgroundColor"));
    auto* textGrid = new QGridLayout(fraText);
    textGrid->addWidget(lblBackGround2, 0, 0, 1, 3);
    textGrid->addWidget(cmdChangeFont, 1, 0);
    textGrid->addWidget(cmdChangeBackgroundColor, 1, 1);
    textGrid->setColumnStretch(2, 1);

    return fraText;
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
        FillTransitionLists();
        if (!FillBackgroundList())
            return;
        ShowStoredBackground(*rs);
        ShowStoredTransition(*rs);
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
    FitSamplePanel();
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

// The panel keeps its designed size and grows with the sample, so that a
// large font is seen whole (the tab scrolls) rather than cut off.
void ctlOptions::FitSamplePanel() {
    constexpr int intMargin = 24;
    const QSize text = lblRunModeSample->sizeHint();
    lblBackGround2->setMinimumSize(std::max(Twips::ToPixels(6000), text.width() + intMargin),
                                   std::max(Twips::ToPixels(1800), text.height() + intMargin));
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
        FitSamplePanel();
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
