// The run console: its widgets, initialise, resize and the frame members.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "DataAccess.h"
#include "foundations/ControlFrame.h"
#include "foundations/ErrorReport.h"
#include "foundations/KeyCodes.h"
#include "foundations/SSRibbon.h"
#include "foundations/SSTab.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/MediaPlayer.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace {

// The scroll area of SSScroll1: below this size the surface scrolls.
constexpr qint32 ScrollAreaWidth = 8805;
constexpr qint32 ScrollAreaHeight = 7935;

void Place(QWidget* w, qint32 lngLeft, qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    w->setGeometry(Twips::ToPixels(lngLeft, lngTop, lngWidth, lngHeight));
}

qint32 TwipsWidth(const QWidget* w) {
    return Twips::FromPixels(w->width());
}
qint32 TwipsHeight(const QWidget* w) {
    return Twips::FromPixels(w->height());
}

void SetTwipsWidth(QWidget* w, qint32 lngWidth) {
    w->resize(Twips::ToPixels(lngWidth), w->height());
}

void SetTwipsHeight(QWidget* w, qint32 lngHeight) {
    w->resize(w->width(), Twips::ToPixels(std::max(lngHeight, 0)));
}

// The top of w in the coordinates of its container (a frame or tab set),
// whatever pages lie between them.
qint32 TwipsTopIn(const QWidget* w, const QWidget* container) {
    return Twips::FromPixels(w->mapTo(container, QPoint(0, 0)).y());
}

// Keeps lngGap twips between the bottom of w and the bottom of its container.
void KeepGapToBottom(QWidget* w, const QWidget* container, qint32 lngGap) {
    SetTwipsHeight(w, TwipsHeight(container) - TwipsTopIn(w, container) - lngGap);
}

template <class T> T* Named(T* w, const QString& strName) {
    w->setObjectName(strName);
    return w;
}

// A named widget at its place (twips).
template <class T>
T* Placed(T* w, const QString& strName, qint32 lngLeft, qint32 lngTop, qint32 lngWidth,
          qint32 lngHeight) {
    Place(Named(w, strName), lngLeft, lngTop, lngWidth, lngHeight);
    return w;
}

// A list view at its place (twips).
VBTreeWidget* NewListView(QWidget* parent, const QString& strName, qint32 lngLeft, qint32 lngTop,
                          qint32 lngWidth, qint32 lngHeight) {
    auto* lvw = Placed(new VBTreeWidget(parent), strName, lngLeft, lngTop, lngWidth, lngHeight);
    lvw->SetListView();
    return lvw;
}

// A part list of a song: verse and chorus pictures, hidden until a song shows.
VBTreeWidget* NewPartList(QWidget* parent, const QString& strName, VBImageList* iml, qint32 lngLeft,
                          qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    VBTreeWidget* lvw = NewListView(parent, strName, lngLeft, lngTop, lngWidth, lngHeight);
    lvw->setImageList(iml);
    lvw->hide();
    return lvw;
}

// One of the three size and properties buttons beside the mirror.
SSRibbon* NewRibbon(QWidget* parent, const QString& strName, const QString& strCaption,
                    const QString& strToolTip, qint32 lngLeft) {
    auto* cmd = Placed(new SSRibbon(strCaption, parent), strName, lngLeft, 2880, 480, 375);
    cmd->setToolTip(strToolTip);
    return cmd;
}

} // namespace

ctlRun::ctlRun(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlRun"));
    CreateWidgets();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlRun::~ctlRun() {
    RunMember("UserControl_Terminate").Enter();
}

QString ctlRun::Description() const {
    return ControlDescriptions::ctlRun;
}

// ---------------------------------------------------------------- widgets

void ctlRun::CreateWidgets() {
    imlServiceItems = new VBImageList(QStringLiteral("imlServiceItems"), this);
    StandardIcons::FillServiceItemImages(*imlServiceItems);
    imlVerseChorus = new VBImageList(QStringLiteral("imlVerseChorus"), this);
    StandardIcons::FillVerseChorusImages(*imlVerseChorus);

    SSScroll1 = Named(new QScrollArea(this), QStringLiteral("SSScroll1"));
    SSScroll1->setWidgetResizable(false);
    SSScroll1->setFrameShape(QFrame::NoFrame);
    auto* surface = new QWidget;
    surface->resize(Twips::ToPixels(ScrollAreaWidth), Twips::ToPixels(ScrollAreaHeight));
    SSScroll1->setWidget(surface);

    fraMainCaption = Placed(new QGroupBox(surface), QStringLiteral("fraMainCaption"), 0, 0,
                            ScrollAreaWidth, 615);
    lblMainCaption =
        Placed(new QLabel(fraMainCaption), QStringLiteral("lblMainCaption"), 120, 210, 8565, 330);
    QFont fntCaption = lblMainCaption->font();
    fntCaption.setBold(true);
    fntCaption.setPointSizeF(fntCaption.pointSizeF() * 1.2);
    lblMainCaption->setFont(fntCaption);

    SSTab1 = Placed(new SSTab(surface), QStringLiteral("SSTab1"), 0, 660, ScrollAreaWidth, 7275);
    auto* page = new QWidget;
    SSTab1->addTab(page, QStringLiteral("Run"));

    fraOverview = Placed(new QGroupBox(QStringLiteral("Service"), page),
                         QStringLiteral("fraOverview"), 120, 120, 4080, 6600);
    tvwRun = Placed(new VBTreeWidget(fraOverview), QStringLiteral("tvwRun"), 120, 300, 3840, 6200);
    tvwRun->setImageList(imlServiceItems);
    // Every row is one line with a picture (a Blank's row has room for one): all rows take the
    // height of the first, so that making the running item bold or plain again at each change
    // of item doesn't measure its row anew.
    tvwRun->setUniformRowHeights(true);

    fraMain = Placed(new QGroupBox(QStringLiteral("Showing Now"), page), QStringLiteral("fraMain"),
                     4320, 120, 4365, 4560);
    CreateMainFrame();
    CreateExtras();
}

// The frame "Showing Now": labels and part list, the prop details over the
// part list, the mirror, the player, the buttons.
void ctlRun::CreateMainFrame() {
    lblSIType = Placed(new QLabel(fraMain), QStringLiteral("lblSIType"), 120, 270, 4125, 255);
    QFont fntType = lblSIType->font();
    fntType.setBold(true);
    lblSIType->setFont(fntType);
    lblSIDescription =
        Placed(new QLabel(fraMain), QStringLiteral("lblSIDescription"), 120, 540, 4125, 255);
    lvwSIContent =
        NewPartList(fraMain, QStringLiteral("lvwSIContent"), imlVerseChorus, 120, 840, 4125, 1410);

    fraPropDetails =
        Placed(new QGroupBox(fraMain), QStringLiteral("fraPropDetails"), 120, 840, 4125, 1410);
    lblPropType =
        Placed(new QLabel(fraPropDetails), QStringLiteral("lblPropType"), 120, 210, 1380, 255);
    lblPropType->setFont(fntType);
    lblPropDescription = Placed(new QLabel(fraPropDetails), QStringLiteral("lblPropDescription"),
                                1560, 210, 2445, 255);
    lvwPropSIContent = NewPartList(fraPropDetails, QStringLiteral("lvwPropSIContent"),
                                   imlVerseChorus, 120, 495, 3885, 840);
    fraPropDetails->hide();

    imgMirror = Placed(new QLabel(fraMain), QStringLiteral("imgMirror"), 120, 2340, 2040, 1530);
    imgMirror->setScaledContents(true);
    imgMirror->setFrameShape(QFrame::Box);
    MediaPlayer2 =
        Placed(new MediaPlayer(fraMain), QStringLiteral("MediaPlayer2"), 2280, 2340, 1965, 480);
    MediaPlayer2->hide();

    cmdMakeSmaller = NewRibbon(fraMain, QStringLiteral("cmdMakeSmaller"), QStringLiteral("-"),
                               QStringLiteral("Smaller text on the projector"), 2280);
    cmdMagnify = NewRibbon(fraMain, QStringLiteral("cmdMagnify"), QStringLiteral("+"),
                           QStringLiteral("Larger text on the projector"), 2820);
    cmdShowProperties = NewRibbon(fraMain, QStringLiteral("cmdShowProperties"), QStringLiteral("?"),
                                  QStringLiteral("Properties of the service item"), 3360);
    cmdRefresh = Placed(new QPushButton(QStringLiteral("&Refresh"), fraMain),
                        QStringLiteral("cmdRefresh"), 2280, 3330, 1965, 375);
    chkProjectorOn = Placed(new QCheckBox(QStringLiteral("Projector On"), fraMain),
                            QStringLiteral("chkProjectorOn"), 2280, 3750, 1965, 255);

    cmdBack = Placed(new QPushButton(QStringLiteral("<< &Back"), fraMain),
                     QStringLiteral("cmdBack"), 120, 4050, 1335, 375);
    cmdForward = Placed(new QPushButton(QStringLiteral("&Forward >>"), fraMain),
                        QStringLiteral("cmdForward"), 1515, 4050, 1335, 375);
    cmdEnd = Placed(new QPushButton(QStringLiteral("&End"), fraMain), QStringLiteral("cmdEnd"),
                    2910, 4050, 1335, 375);
}

// The tab set below "Showing Now": the prop bag and the whole gallery.
void ctlRun::CreateExtras() {
    QWidget* page = SSTab1->widget(0);
    ssTabExtras = Placed(new SSTab(page), QStringLiteral("ssTabExtras"), 4320, 4800, 4365, 2000);
    auto* propPage = new QWidget;
    auto* galleryPage = new QWidget;
    ssTabExtras->addTab(propPage, QStringLiteral("Prop Bag"));
    ssTabExtras->addTab(galleryPage, QStringLiteral("&Other Service Items"));

    lvwProps = NewListView(propPage, QStringLiteral("lvwProps"), 60, 60, 4185, 1500);
    lvwProps->setImageList(imlServiceItems);
    lvwProps->AddColumnHeader(QString(), QString(), 4125);
    lvwProps->setHeaderHidden(true);

    ctlServiceItemGallery1 = Placed(new ctlServiceItemGallery(galleryPage),
                                    QStringLiteral("ctlServiceItemGallery1"), 60, 60, 4185, 1500);
}

void ctlRun::ConnectWidgets() {
    connect(cmdForward, &QPushButton::clicked, this, &ctlRun::cmdForward_Click);
    connect(cmdBack, &QPushButton::clicked, this, &ctlRun::cmdBack_Click);
    connect(cmdEnd, &QPushButton::clicked, this, &ctlRun::cmdEnd_Click);
    connect(cmdRefresh, &QPushButton::clicked, this, &ctlRun::cmdRefresh_Click);
    connect(tvwRun, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* Node, int) { tvwRun_NodeClick(Node); });
    connect(chkProjectorOn, &QCheckBox::toggled, this, &ctlRun::chkProjectorOn_Click);
    connect(cmdShowProperties, &SSRibbon::Click, this, &ctlRun::cmdShowProperties_Click);
    connect(cmdMagnify, &SSRibbon::Click, this, &ctlRun::cmdMagnify_Click);
    connect(cmdMakeSmaller, &SSRibbon::Click, this, &ctlRun::cmdMakeSmaller_Click);
    connect(SSTab1, &SSTab::Click, this, &ctlRun::SSTab1_Click);
    connect(lvwSIContent, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* Item, int) { lvwSIContent_ItemClick(Item); });
    connect(lvwPropSIContent, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* Item, int) { lvwPropSIContent_ItemClick(Item); });
    connect(lvwProps, &QTreeWidget::itemDoubleClicked, this, [this] { lvwProps_DblClick(); });
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIDblClicked, this,
            &ctlRun::ctlServiceItemGallery1_SIDblClicked);
}

// ---------------------------------------------------------------- initialise

void ctlRun::UserControl_Initialize() {
    // The prefix names ctlOptions: the handler came from there.
    RunMember("UserControl_Initialize")
        .WithPrefix(
            QStringLiteral("QVLTCONTROLS:ctlOptions:UserControl_Initialize : Error number is "))
        .Enter()
        .ErrorBox([&] {
            SSTab1->setTabCaption(0, QString());
            QString strErrorMessage;
            LoadGeneralTab(strErrorMessage);
            FindProjectorRect();
        });
}

// Fetches the options record and lets it go: nothing here keeps a value.
void ctlRun::LoadGeneralTab(QString& strErrorMessage) {
    RunMember("LoadGeneralTab")
        .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlOptions:LoadGeneralTab: Error number is "))
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetOptions(strErrorMessage, rs);
        });
}

void ctlRun::SSTab1_Click(qint16 PreviousTab) {
    RunMember("SSTab1_Click").Arg(QStringLiteral("PreviousTab"), PreviousTab).Enter().Guarded([&] {
        if (SSTab1->Tab() == 0 && !m_blnGeneralTabLoaded) {
            QString strErrorMessage;
            LoadGeneralTab(strErrorMessage);
        }
    });
}

// ---------------------------------------------------------------- resize

void ctlRun::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

// Units are twips. The scroll surface fills the control; the caption and the
// tab set widen with it beyond the designed width, and the tab set, the two
// frames on it and their lists reach down to the bottom.
void ctlRun::UserControl_Resize() {
    RunMember("UserControl_Resize")
        .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlOptions:UserControl_Resize : Error number is "))
        .Enter()
        .ErrorBox([&] {
            SSScroll1->setGeometry(rect());
            const qint32 lngScrollWidth = TwipsWidth(SSScroll1);
            const qint32 lngScrollHeight = TwipsHeight(SSScroll1);
            const bool blnBar = lngScrollWidth < ScrollAreaWidth;
            const bool blnScrollsDown = lngScrollHeight < ScrollAreaHeight;
            SSScroll1->widget()->resize(
                Twips::ToPixels(std::max(lngScrollWidth, ScrollAreaWidth)),
                Twips::ToPixels(std::max(lngScrollHeight, ScrollAreaHeight)));

            const qint32 lngWidth = std::max(lngScrollWidth, ScrollAreaWidth);
            SetTwipsWidth(fraMainCaption, lngWidth);
            SetTwipsWidth(SSTab1, lngWidth);

            const qint32 lngTop = Twips::FromPixels(SSTab1->y());
            if (!blnScrollsDown)
                SetTwipsHeight(SSTab1, lngScrollHeight - lngTop - (blnBar ? 400 : 0));
            else
                SetTwipsHeight(SSTab1, ScrollAreaHeight - lngTop - (blnBar ? 500 : 200));

            KeepGapToBottom(fraOverview, SSTab1, 200);
            KeepGapToBottom(ssTabExtras, SSTab1, 200);
            KeepGapToBottom(tvwRun, fraOverview, 100);
            KeepGapToBottom(lvwProps, ssTabExtras, 100);
            KeepGapToBottom(ctlServiceItemGallery1, ssTabExtras, 100);
        });
}

// ---------------------------------------------------------------- show, keys

void ctlRun::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_blnShown)
        return;
    m_blnShown = true;
    ErrorReport::Guard([&] { UserControl_Show(); });
}

// Key releases anywhere in the console that its children leave alone come
// here, as the control's KeyUp.
void ctlRun::keyReleaseEvent(QKeyEvent* event) {
    const qint16 KeyCode = KeyCodes::FromEvent(*event);
    const qint16 Shift = KeyCodes::ShiftState(event->modifiers());
    ErrorReport::Guard([&] { UserControl_KeyUp(KeyCode, Shift); });
    event->accept();
}
