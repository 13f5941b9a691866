#include "serviceitem/ctlServiceItem.h"

#include "foundations/ListManager.h"
#include "foundations/PointList.h"
#include "foundations/SSTab.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/MediaPlayer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

// The children of the service item editor: the caption frame, the five tabs
// and every widget on them, with their captions and their layout.

namespace {
template <class W> W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QGroupBox* Frame(const QString& strCaption, const char* name, QWidget* parent) {
    return Named(new QGroupBox(strCaption, parent), name);
}

QRadioButton* Option(const QString& strCaption, const char* name, QWidget* parent) {
    return Named(new QRadioButton(strCaption, parent), name);
}

QLineEdit* ShortBox(const char* name, QWidget* parent, const QString& strText = QString()) {
    auto* box = Named(new QLineEdit(strText, parent), name);
    box->setMaximumWidth(Twips::ToPixels(800));
    return box;
}

QTreeWidget* ListView(const char* name, const QString& strHeader, QWidget* parent) {
    auto* lvw = Named(new QTreeWidget(parent), name);
    lvw->setRootIsDecorated(false);
    lvw->setHeaderLabels({strHeader});
    return lvw;
}

// Layout numbers of the editor, in twips.
constexpr qint32 kMargin = 120;
constexpr qint32 kItemLimit = 50;
constexpr qint32 kDescriptionLimit = 60;
constexpr qint32 kMusicPromptLimit = 250;
constexpr qint32 kPointTextLimit = 200;
} // namespace

void ctlServiceItem::CreateWidgets() {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    SSScroll1 = Named(new QScrollArea(this), "SSScroll1");
    SSScroll1->setWidgetResizable(true);
    outer->addWidget(SSScroll1);
    auto* surface = new QWidget;
    SSScroll1->setWidget(surface);
    auto* layout = new QVBoxLayout(surface);
    layout->setContentsMargins(0, 0, Twips::ToPixels(40), Twips::ToPixels(280));

    imlServiceItems = new VBImageList(QStringLiteral("imlServiceItems"), this);
    StandardIcons::FillServiceItemImages(*imlServiceItems);

    fraMainCaption = Frame(QString(), "fraMainCaption", surface);
    auto* captionLayout = new QHBoxLayout(fraMainCaption);
    lblMainCaption = Named(new QLabel(fraMainCaption), "lblMainCaption");
    QFont font = lblMainCaption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    lblMainCaption->setFont(font);
    cmdSave = Named(new QPushButton(QStringLiteral("&Save"), fraMainCaption), "cmdSave");
    cmdSave->setEnabled(false);
    captionLayout->addWidget(lblMainCaption, 1);
    captionLayout->addWidget(cmdSave);
    layout->addWidget(fraMainCaption);

    SSTab1 = Named(new SSTab(surface), "SSTab1");
    SSTab1->addTab(CreateGeneralTab(), QStringLiteral("General Details"));
    SSTab1->addTab(CreateContentTab(), QStringLiteral("Content"));
    SSTab1->addTab(CreateRunDetailsTab(), QStringLiteral(" Run Mode Details"));
    SSTab1->addTab(CreatePropBagTab(), QStringLiteral("Prop Bag"));
    SSTab1->addTab(CreatePointsTab(), QStringLiteral("Points List"));
    layout->addWidget(SSTab1, 1);

    setMinimumSize(Twips::ToPixels(9000), Twips::ToPixels(7000));
    resize(Twips::ToPixels(12000), Twips::ToPixels(9000));
}

QWidget* ctlServiceItem::CreateGeneralTab() {
    auto* tab = new QWidget;
    auto* layout = new QGridLayout(tab);
    layout->setContentsMargins(Twips::ToPixels(kMargin), Twips::ToPixels(kMargin),
                               Twips::ToPixels(kMargin), Twips::ToPixels(kMargin));

    fraGeneralProps = Frame(QString(), "fraGeneralProps", tab);
    auto* props = new QGridLayout(fraGeneralProps);
    imgcboServiceItemTypes = Named(new QComboBox(fraGeneralProps), "imgcboServiceItemTypes");
    Image1 = Named(new QLabel(fraGeneralProps), "Image1");
    Image1->setFixedSize(Twips::ToPixels(360), Twips::ToPixels(360));
    txtDescription = Named(new QLineEdit(fraGeneralProps), "txtDescription");
    txtDescription->setMaxLength(kDescriptionLimit);
    txtServiceItemSource = Named(new QLineEdit(fraGeneralProps), "txtServiceItemSource");
    txtLocation = Named(new QLineEdit(fraGeneralProps), "txtLocation");
    txtCopyright = Named(new QLineEdit(fraGeneralProps), "txtCopyright");
    lblCaptionSongKey =
        Named(new QLabel(QStringLiteral("Song Key:"), fraGeneralProps), "lblCaptionSongKey");
    txtSongKey = Named(new QLineEdit(fraGeneralProps), "txtSongKey");
    lblCaptionMelody =
        Named(new QLabel(QStringLiteral("Melody:"), fraGeneralProps), "lblCaptionMelody");
    txtMelody = Named(new QLineEdit(fraGeneralProps), "txtMelody");
    lblProvider = Named(new QLabel(fraGeneralProps), "lblProvider");
    lblServiceItemDateAdded = Named(new QLabel(fraGeneralProps), "lblServiceItemDateAdded");

    auto caption = [&](const QString& strText) { return new QLabel(strText, fraGeneralProps); };
    auto* typeRow = new QHBoxLayout;
    typeRow->addWidget(imgcboServiceItemTypes, 1);
    typeRow->addWidget(Image1);
    props->addWidget(caption(QStringLiteral("Service item Type:")), 0, 0);
    props->addLayout(typeRow, 0, 1, 1, 3);
    props->addWidget(caption(QStringLiteral("Description:")), 1, 0);
    props->addWidget(txtDescription, 1, 1, 1, 3);
    props->addWidget(caption(QStringLiteral("Source:")), 2, 0);
    props->addWidget(txtServiceItemSource, 2, 1, 1, 3);
    props->addWidget(caption(QStringLiteral("Location:")), 3, 0);
    props->addWidget(txtLocation, 3, 1, 1, 3);
    props->addWidget(caption(QStringLiteral("Copyright Details:")), 4, 0);
    props->addWidget(txtCopyright, 4, 1, 1, 3);
    props->addWidget(lblCaptionSongKey, 5, 0);
    props->addWidget(txtSongKey, 5, 1);
    props->addWidget(lblCaptionMelody, 5, 2);
    props->addWidget(txtMelody, 5, 3);
    props->addWidget(caption(QStringLiteral("Provider:")), 6, 0);
    props->addWidget(lblProvider, 6, 1);
    props->addWidget(caption(QStringLiteral("Date Added:")), 6, 2);
    props->addWidget(lblServiceItemDateAdded, 6, 3);

    fraNotes = Frame(QStringLiteral("Notes"), "fraNotes", tab);
    auto* notes = new QVBoxLayout(fraNotes);
    txtNotes = Named(new QTextEdit(fraNotes), "txtNotes");
    txtNotes->setAcceptRichText(false);
    notes->addWidget(txtNotes);

    lmgKeywords = Named(new ListManager(tab), "lmgKeywords");
    lmgKeywords->setCaption(QStringLiteral("Keywords"));
    lmgKeywords->setMaxItemLength(kItemLimit);
    lmgResources = Named(new ListManager(tab), "lmgResources");
    lmgResources->setCaption(QStringLiteral("Resources Needed to run this Service Item"));
    lmgResources->setMaxItemLength(kItemLimit);

    layout->addWidget(fraGeneralProps, 0, 0);
    layout->addWidget(fraNotes, 1, 0);
    layout->addWidget(lmgKeywords, 0, 1);
    layout->addWidget(lmgResources, 1, 1);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    return tab;
}

QWidget* ctlServiceItem::CreateContentTab() {
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);
    SSTab2 = Named(new SSTab(tab), "SSTab2");
    layout->addWidget(SSTab2);

    auto* fileTab = new QWidget;
    auto* file = new QVBoxLayout(fileTab);
    txtFileContent = Named(new QTextEdit(fileTab), "txtFileContent");
    txtFileContent->setReadOnly(true);
    imgContent = Named(new QLabel(fileTab), "imgContent");
    imgContent->setEnabled(false);
    imgContent->hide();
    fraListenToMusic = Frame(QString(), "fraListenToMusic", fileTab);
    auto* music = new QVBoxLayout(fraListenToMusic);
    MediaPlayer1 = Named(new MediaPlayer(fraListenToMusic), "MediaPlayer1");
    music->addWidget(MediaPlayer1);
    fraListenToMusic->hide();
    fraOpeningFile = Frame(QString(), "fraOpeningFile", fileTab);
    auto* opening = new QVBoxLayout(fraOpeningFile);
    opening->addWidget(new QLabel(QStringLiteral("Opening File. Please wait..."), fraOpeningFile));
    fraOpeningFile->hide();
    auto* fileRow = new QHBoxLayout;
    txtFilename = Named(new QLineEdit(fileTab), "txtFilename");
    txtFilename->setReadOnly(true);
    cmdBrowse = Named(new QPushButton(QStringLiteral("..."), fileTab), "cmdBrowse");
    fileRow->addWidget(txtFilename, 1);
    fileRow->addWidget(cmdBrowse);
    CommonDialog1 = Named(new QFileDialog(fileTab), "CommonDialog1");
    CommonDialog1->hide();
    file->addWidget(txtFileContent, 1);
    file->addWidget(imgContent, 1, Qt::AlignHCenter);
    file->addWidget(fraListenToMusic);
    file->addWidget(fraOpeningFile);
    file->addLayout(fileRow);
    // A picture keeps the size it was fitted to, with the file's name right
    // under it; the space left over stays below.
    file->addStretch();
    SSTab2->addTab(fileTab, QStringLiteral("Use a file as content"));

    auto* handTab = new QWidget;
    auto* hand = new QVBoxLayout(handTab);
    txtContent = Named(new QTextEdit(handTab), "txtContent");
    txtContent->setAcceptRichText(false);
    hand->addWidget(txtContent);
    SSTab2->addTab(handTab, QStringLiteral("Type in content by hand"));
    return tab;
}

QWidget* ctlServiceItem::CreateRunDetailsTab() {
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);

    fraDisplay = Frame(QStringLiteral("Service Item Display - How do you want this service item "
                                      "to be displayed at run time?"),
                       "fraDisplay", tab);
    auto* display = new QVBoxLayout(fraDisplay);
    chkShowAsPointsList = Named(new QCheckBox(QStringLiteral("When running this Service Item, "
                                                             "display only the points in the "
                                                             "points list"),
                                              fraDisplay),
                                "chkShowAsPointsList");
    display->addWidget(chkShowAsPointsList);

    fraAsPointsList = Frame(QString(), "fraAsPointsList", fraDisplay);
    auto* asPoints = new QVBoxLayout(fraAsPointsList);
    optOnePointAtATime = Option(QStringLiteral("Only show one point at a time"),
                                "optOnePointAtATime", fraAsPointsList);
    optAllPointsByRevealing =
        Option(QStringLiteral("Show all points by revealing them one at a time"),
               "optAllPointsByRevealing", fraAsPointsList);
    optAllPointsAtOnce =
        Option(QStringLiteral("Show all points at start"), "optAllPointsAtOnce", fraAsPointsList);
    fraSubPoints = Frame(QStringLiteral("Sub-points"), "fraSubPoints", fraAsPointsList);
    auto* sub = new QVBoxLayout(fraSubPoints);
    chkShowSubPointsOneByOne =
        Named(new QCheckBox(QStringLiteral("Show sub-points one by one"), fraSubPoints),
              "chkShowSubPointsOneByOne");
    sub->addWidget(chkShowSubPointsOneByOne);
    asPoints->addWidget(optOnePointAtATime);
    asPoints->addWidget(optAllPointsByRevealing);
    asPoints->addWidget(optAllPointsAtOnce);
    asPoints->addWidget(fraSubPoints);
    display->addWidget(fraAsPointsList);
    fraAsPointsList->hide();

    fraNotAsPointsList = Frame(QString(), "fraNotAsPointsList", fraDisplay);
    auto* notPoints = new QGridLayout(fraNotAsPointsList);
    optShowEntireSI =
        Option(QStringLiteral("Show entire Service Item at the one time (scroll bars may appear)"),
               "optShowEntireSI", fraNotAsPointsList);
    optShowSILineByLine =
        Option(QStringLiteral("Show lines"), "optShowSILineByLine", fraNotAsPointsList);
    txtNumLinesToShowPerTime =
        ShortBox("txtNumLinesToShowPerTime", fraNotAsPointsList, QStringLiteral("2"));
    optShowAsMuchAsWillFit = Option(QStringLiteral("Show one screenfull at a time"),
                                    "optShowAsMuchAsWillFit", fraNotAsPointsList);
    optVerseByVerse =
        Option(QStringLiteral("Show one verse at a time"), "optVerseByVerse", fraNotAsPointsList);
    cmdRunBreakDownWizard = Named(
        new QPushButton(QStringLiteral("&Run the Song/Hymn breakdown wizard"), fraNotAsPointsList),
        "cmdRunBreakDownWizard");
    fraChecking = Frame(QString(), "fraChecking", fraNotAsPointsList);
    auto* checking = new QVBoxLayout(fraChecking);
    checking->addWidget(new QLabel(
        QStringLiteral("Checking to see if the selected view mode is appropriate. Please Wait."),
        fraChecking));
    fraChecking->hide();
    notPoints->addWidget(optShowEntireSI, 0, 0, 1, 3);
    notPoints->addWidget(optShowSILineByLine, 1, 0);
    notPoints->addWidget(txtNumLinesToShowPerTime, 1, 1);
    notPoints->addWidget(new QLabel(QStringLiteral("at a time"), fraNotAsPointsList), 1, 2);
    notPoints->addWidget(optShowAsMuchAsWillFit, 2, 0, 1, 3);
    notPoints->addWidget(optVerseByVerse, 3, 0, 1, 2);
    notPoints->addWidget(cmdRunBreakDownWizard, 3, 2);
    notPoints->addWidget(fraChecking, 4, 0, 1, 3);
    display->addWidget(fraNotAsPointsList);
    layout->addWidget(fraDisplay);

    fraImages = Frame(QString(), "fraImages", tab);
    auto* images = new QGridLayout(fraImages);
    optShowImagesWhileRunning =
        Option(QStringLiteral("Show image(s) while Service Item is running"),
               "optShowImagesWhileRunning", fraImages);
    optHideImagesWhileRunning =
        Option(QStringLiteral("Do NOT display image(s) while the Service item is running"),
               "optHideImagesWhileRunning", fraImages);
    lvwUsedImages = ListView("lvwUsedImages", QStringLiteral("Selected Images"), fraImages);
    imgPreview = Named(new QLabel(fraImages), "imgPreview");
    imgPreview->setFixedSize(Twips::ToPixels(1600), Twips::ToPixels(1200));
    cmdNewImage = Named(new QPushButton(QStringLiteral("&New"), fraImages), "cmdNewImage");
    cmdDeleteImages =
        Named(new QPushButton(QStringLiteral("&Delete"), fraImages), "cmdDeleteImages");
    txtChangeImageEveryXSeconds =
        ShortBox("txtChangeImageEveryXSeconds", fraImages, QStringLiteral("20"));
    auto* every = new QHBoxLayout;
    every->addWidget(new QLabel(QStringLiteral("Change images every"), fraImages));
    every->addWidget(txtChangeImageEveryXSeconds);
    every->addWidget(new QLabel(QStringLiteral("seconds"), fraImages));
    every->addStretch();
    images->addWidget(optShowImagesWhileRunning, 0, 0, 1, 3);
    images->addWidget(optHideImagesWhileRunning, 1, 0, 1, 3);
    images->addWidget(lvwUsedImages, 2, 0, 2, 1);
    images->addWidget(imgPreview, 2, 1, 2, 1);
    images->addWidget(cmdNewImage, 2, 2);
    images->addWidget(cmdDeleteImages, 3, 2);
    images->addLayout(every, 4, 0, 1, 3);
    layout->addWidget(fraImages);

    fraImageDisplay = Frame(QStringLiteral("Image display details"), "fraImageDisplay", tab);
    auto* imageDisplay = new QGridLayout(fraImageDisplay);
    optShowUntilClick =
        Option(QStringLiteral("I will indicate when the image/diagram should be hidden"),
               "optShowUntilClick", fraImageDisplay);
    optImageDisplayTime = Option(QStringLiteral("Display the image/diagram for:"),
                                 "optImageDisplayTime", fraImageDisplay);
    txtImageDisplayMinutes = ShortBox("txtImageDisplayMinutes", fraImageDisplay);
    txtImageDisplaySeconds = ShortBox("txtImageDisplaySeconds", fraImageDisplay);
    imageDisplay->addWidget(optShowUntilClick, 0, 0, 1, 5);
    imageDisplay->addWidget(optImageDisplayTime, 1, 0);
    imageDisplay->addWidget(txtImageDisplayMinutes, 1, 1);
    imageDisplay->addWidget(new QLabel(QStringLiteral("minutes and"), fraImageDisplay), 1, 2);
    imageDisplay->addWidget(txtImageDisplaySeconds, 1, 3);
    imageDisplay->addWidget(new QLabel(QStringLiteral("seconds"), fraImageDisplay), 1, 4);
    layout->addWidget(fraImageDisplay);

    fraMusic = Frame(QStringLiteral("Music"), "fraMusic", tab);
    auto* music = new QGridLayout(fraMusic);
    txtMusicFile = Named(new QLineEdit(fraMusic), "txtMusicFile");
    txtMusicFile->setReadOnly(true);
    cmdBrowseMusicFile =
        Named(new QPushButton(QStringLiteral("&Browse For A Music File"), fraMusic),
              "cmdBrowseMusicFile");
    cmdSelectMusicSI =
        Named(new QPushButton(QStringLiteral("&Select a Music Service Item"), fraMusic),
              "cmdSelectMusicSI");
    txtMusicPrompt = Named(new QLineEdit(fraMusic), "txtMusicPrompt");
    txtMusicPrompt->setMaxLength(kMusicPromptLimit);
    txtMusicPrompt->setPlaceholderText(
        QStringLiteral("Words for the operator when the item starts, e.g. \"Put in the CD\""));
    music->addWidget(txtMusicFile, 0, 0, 1, 2);
    music->addWidget(cmdBrowseMusicFile, 1, 0);
    music->addWidget(cmdSelectMusicSI, 1, 1);
    music->addWidget(txtMusicPrompt, 2, 0, 1, 2);
    layout->addWidget(fraMusic);

    chkHideDetails = Named(new QCheckBox(QStringLiteral("Hide Service item Details when running "
                                                        "(e.g. description, location, source etc)"),
                                         tab),
                           "chkHideDetails");
    layout->addWidget(chkHideDetails);
    layout->addStretch();
    return tab;
}

QWidget* ctlServiceItem::CreatePropBagTab() {
    auto* tab = new QWidget;
    auto* layout = new QHBoxLayout(tab);
    ctlServiceItemGallery1 = Named(new ctlServiceItemGallery(tab), "ctlServiceItemGallery1");
    ctlServiceItemGallery1->setRunSIOnDblClick(false);
    cmdMoveOneRight = Named(new QPushButton(QStringLiteral(">"), tab), "cmdMoveOneRight");
    cmdMoveOneLeft = Named(new QPushButton(QStringLiteral("<"), tab), "cmdMoveOneLeft");
    cmdMoveAllLeft = Named(new QPushButton(QStringLiteral("<<"), tab), "cmdMoveAllLeft");
    for (QPushButton* cmd : {cmdMoveOneRight, cmdMoveOneLeft, cmdMoveAllLeft}) {
        cmd->setEnabled(false);
        cmd->setFixedWidth(Twips::ToPixels(600));
    }
    cmdMoveOneRight->setToolTip(QStringLiteral("Put the selected Service Item in the Prop Bag"));
    cmdMoveOneLeft->setToolTip(
        QStringLiteral("Take the selected Service Item out of the Prop Bag"));
    cmdMoveAllLeft->setToolTip(QStringLiteral("Empty the Prop Bag"));
    auto* buttons = new QVBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdMoveOneRight);
    buttons->addWidget(cmdMoveOneLeft);
    buttons->addWidget(cmdMoveAllLeft);
    buttons->addStretch();
    auto* right = new QVBoxLayout;
    lblSelectedItems = Named(new QLabel(QStringLiteral("Selected Items"), tab), "lblSelectedItems");
    lvwPropBag = ListView("lvwPropBag", QStringLiteral("Service Item"), tab);
    lvwPropBag->setHeaderHidden(true);
    right->addWidget(lblSelectedItems);
    right->addWidget(lvwPropBag, 1);
    // The gallery and the prop bag share the width equally.
    layout->addWidget(ctlServiceItemGallery1, 1);
    layout->addLayout(buttons);
    layout->addLayout(right, 1);
    return tab;
}

QWidget* ctlServiceItem::CreatePointsTab() {
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);
    PointList1 = Named(new PointList(tab), "PointList1");
    PointList1->setmaxlengthofpointtext(kPointTextLimit);
    layout->addWidget(PointList1);
    return tab;
}
