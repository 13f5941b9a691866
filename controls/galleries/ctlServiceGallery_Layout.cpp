// ctlServiceGallery: its table, the child widgets, initialisation and the resize
// rule.

#include "galleries/ctlServiceGallery.h"

#include "foundations/ControlFrame.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryCore.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTimer>

namespace {
const QString kClass = QStringLiteral("ctlServiceGallery");

// Layout numbers, in twips.
constexpr qint32 kMinHeight = 4100;
constexpr qint32 kMinWidth = 480;
constexpr qint32 kToolbarHeight = 390;

QRect Rect(qint32 lngLeft, qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    return Twips::ToPixels(lngLeft, lngTop, lngWidth, qMax(lngHeight, 0));
}

QAction* MenuItem(QMenu* menu, const QString& strName, const QString& strCaption) {
    QAction* a = menu->addAction(strCaption);
    a->setObjectName(strName);
    return a;
}
} // namespace

const GalleryTable& ctlServiceGallery::Table() {
    const QString strDate = QStringLiteral("ServiceDateCreated");
    static const GalleryTable table{
        kClass,
        QStringLiteral(";;Service;"),
        QStringLiteral("Service;"),
        QStringLiteral("Services"),
        QStringLiteral("All Services"),
        QStringLiteral("Services for "),
        QStringLiteral("All Services at "),
        QStringLiteral("Selection of Services"),
        QStringLiteral("Service"),
        QStringLiteral("ServiceGroup"),
        QStringLiteral("Filter Services Where:"),
        // "Created By" groups by the provider, while the filter of that name reads
        // ServiceCreatedBy: two different fields, kept apart on purpose.
        {{QStringLiteral("Type"), QStringLiteral("ServiceType"), QStringLiteral("ServiceType")},
         {QStringLiteral("Theme"), QStringLiteral("ServiceTheme"), QStringLiteral("ServiceTheme")},
         {QStringLiteral("Created By"), QStringLiteral("ServiceProvider"),
          QStringLiteral("ServiceProvider")},
         {QStringLiteral("Year Created"), strDate, strDate},
         {QStringLiteral("Month & Year Created"), strDate, strDate}},
        {QStringLiteral("Name"), QStringLiteral("Type"), QStringLiteral("Theme"),
         QStringLiteral("Created By")},
        {{QStringLiteral("Name"), QStringLiteral("ServiceName")},
         {QStringLiteral("Type"), QStringLiteral("ServiceType")},
         {QStringLiteral("Theme"), QStringLiteral("ServiceTheme")},
         {QStringLiteral("Date Created"), QStringLiteral("ServiceDateCreated")},
         {QStringLiteral("Date Last Delivered"), QStringLiteral("ServiceDateLastDelivered")},
         {QStringLiteral("Created By"), QStringLiteral("ServiceCreatedBy")}}};
    return table;
}

MemberEntry ctlServiceGallery::Entry(const QString& strMember) {
    return MemberEntry(kClass, strMember);
}

// ---------------------------------------------------------------- Construction

ctlServiceGallery::ctlServiceGallery(QWidget* parent)
    : QWidget(parent), m_core(std::make_unique<GalleryCore>(Table(), this)) {
    CreateWidgets();
    CreateToolbar();
    CreateMenus();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlServiceGallery::~ctlServiceGallery() {
    Timer1->stop();
}

void ctlServiceGallery::CreateWidgets() {
    setMinimumSize(Twips::ToPixels(kMinWidth), Twips::ToPixels(kMinHeight));
    ImageList1 = new VBImageList(QStringLiteral("ImageList1"), this);
    ImageList1->Add(QStringLiteral("imgFolderClosed"), StandardIcons::FolderClosed());
    ImageList1->Add(QStringLiteral("imgFolderOpen"), StandardIcons::FolderOpen());
    ImageList1->Add(QStringLiteral("imgService"), StandardIcons::ServiceTemplate());

    m_core->CreatePanelFor(*this);

    tvwServices = new VBTreeWidget(this);
    tvwServices->setObjectName(QStringLiteral("tvwServices"));
    tvwServices->setImageList(ImageList1);
    lvwServices = new VBTreeWidget(this);
    lvwServices->setObjectName(QStringLiteral("lvwServices"));
    lvwServices->SetListView();
    lvwServices->setImageList(ImageList1);
    lvwServices->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const QString& strCaption :
         {QStringLiteral("Name"), QStringLiteral("Type"), QStringLiteral("Theme"),
          QStringLiteral("Date Created"), QStringLiteral("Date last delivered"),
          QStringLiteral("Provider")})
        lvwServices->AddColumnHeader(QString(), strCaption, 2540);
    lvwServices->hide();
    m_core->SetViews(tvwServices, lvwServices);
}

void ctlServiceGallery::CreateToolbar() {
    // The tool tips keep the words of the service item gallery.
    m_core->CreateToolbar(
        this, imlToolBar, Toolbar2,
        {{"btnNew", "Create a New Service Item", "imgNew", QStyle::SP_FileIcon},
         {"btnOpen", "Open Selected Service Item", "imgRun", QStyle::SP_MediaPlay},
         {"btnDelete", "Delete Selected Service Item", "imgDelete", QStyle::SP_TrashIcon},
         {"btnProperties", "View Properties of Selected Service Item", "imgProperties",
          QStyle::SP_FileDialogInfoView},
         {"btnPrint", "Run Print Wizard for Selected Service Item", "imgPrint",
          QStyle::SP_DialogSaveButton},
         {"btnPrintShortCuts", "Print Short-cuts for this Service", "imgPrintShortCuts",
          QStyle::SP_FileDialogListView},
         {"btnExport", "Export Selected Service Item", "imgExport", QStyle::SP_ArrowUp},
         {"btnImport", "Import a Service Item", "imgImport", QStyle::SP_ArrowDown},
         {"btnHelp", "Get Help", "imgHelp", QStyle::SP_DialogHelpButton}});
}

void ctlServiceGallery::CreateMenus() {
    mnuRightClick = new QMenu(this);
    mnuRightClick->setObjectName(QStringLiteral("mnuRightClick"));
    mnuRightCLickNew =
        MenuItem(mnuRightClick, QStringLiteral("mnuRightCLickNew"), QStringLiteral("&New Service"));
    mnuServiceRun =
        MenuItem(mnuRightClick, QStringLiteral("mnuServiceRun"), QStringLiteral("&Run"));
    mnuServiceDelete =
        MenuItem(mnuRightClick, QStringLiteral("mnuServiceDelete"), QStringLiteral("&Delete"));
    mnuServicePrint =
        MenuItem(mnuRightClick, QStringLiteral("mnuServicePrint"), QStringLiteral("&Print"));
    mnuSISep1 = mnuRightClick->addSeparator();
    mnuSISep1->setObjectName(QStringLiteral("mnuSISep1"));
    mnuSICopy =
        MenuItem(mnuRightClick, QStringLiteral("mnuSICopy"), QStringLiteral("&Create copy"));
    mnuSIExport = MenuItem(mnuRightClick, QStringLiteral("mnuSIExport"), QStringLiteral("&Export"));

    mnuRightClickType = new QMenu(this);
    mnuRightClickType->setObjectName(QStringLiteral("mnuRightClickType"));
    mnuRightClickTypeNew = MenuItem(mnuRightClickType, QStringLiteral("mnuRightClickTypeNew"),
                                    QStringLiteral("&New Service"));
    mnuRightClickTypeFind = MenuItem(mnuRightClickType, QStringLiteral("mnuRightClickTypeFind"),
                                     QStringLiteral("&Find a Service"));
    mnuRightClickExport = MenuItem(mnuRightClickType, QStringLiteral("mnuRightClickExport"),
                                   QStringLiteral("&Export Selection"));
    // mnuServiceRun, mnuSICopy and mnuRightClickTypeFind have no action.
}

void ctlServiceGallery::ConnectWidgets() {
    using G = ctlServiceGallery;
    m_core->ConnectPanel(this, &G::optShowAsTree_Click, &G::optShowAsList_Click,
                         &G::cboGroupByProperty_Click, &G::cboProperty_Click, &G::cboOperator_Click,
                         &G::cmdShowHideFilter_Click, &G::txtCriterion_Change, &G::Timer1_Timer);
    connect(Toolbar2, &VBToolBar::ButtonClick, this, &ctlServiceGallery::Toolbar2_ButtonClick);
    connect(tvwServices, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { tvwServices_NodeClick(item); });
    connect(tvwServices, &QTreeWidget::itemDoubleClicked, this,
            &ctlServiceGallery::tvwServices_DblClick);
    connect(tvwServices, &QTreeWidget::itemExpanded, this, &ctlServiceGallery::tvwServices_Expand);
    connect(tvwServices, &QTreeWidget::itemCollapsed, this,
            &ctlServiceGallery::tvwServices_Collapse);
    connect(lvwServices, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lvwServices_ItemClick(item); });
    connect(lvwServices, &QTreeWidget::itemDoubleClicked, this,
            &ctlServiceGallery::lvwServices_DblClick);
    connect(mnuRightCLickNew, &QAction::triggered, this,
            &ctlServiceGallery::mnuRightCLickNew_Click);
    connect(mnuServiceDelete, &QAction::triggered, this,
            &ctlServiceGallery::mnuServiceDelete_Click);
    connect(mnuServicePrint, &QAction::triggered, this, &ctlServiceGallery::mnuServicePrint_Click);
    connect(mnuSIExport, &QAction::triggered, this, &ctlServiceGallery::mnuSIExport_Click);
    connect(mnuRightClickTypeNew, &QAction::triggered, this,
            &ctlServiceGallery::mnuRightClickTypeNew_Click);
    connect(mnuRightClickExport, &QAction::triggered, this,
            &ctlServiceGallery::mnuRightClickExport_Click);
    txtCriterion->installEventFilter(this);
    tvwServices->viewport()->installEventFilter(this);
    lvwServices->viewport()->installEventFilter(this);
}

bool ctlServiceGallery::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == txtCriterion && type == QEvent::KeyRelease) {
        auto* key = static_cast<QKeyEvent*>(event);
        qint16 KeyCode = GalleryCore::KeyCodeOf(key);
        ErrorReport::Guard([&] { txtCriterion_KeyUp(KeyCode, GalleryCore::ShiftOf(key)); });
        return false;
    }
    if (watched == tvwServices->viewport() && type == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::RightButton)
            return false;
        tvwServices_MouseDown(GalleryCore::ButtonOf(mouse), GalleryCore::ShiftOf(mouse),
                              mouse->position().toPoint());
        return true;
    }
    if (watched == lvwServices->viewport()) {
        // The right button leaves the list's selection as it is.
        if (type == QEvent::MouseButtonPress &&
            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            return true;
        if (type == QEvent::MouseButtonRelease) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            lvwServices_MouseUp(GalleryCore::ButtonOf(mouse), GalleryCore::ShiftOf(mouse),
                                mouse->position().toPoint());
            return mouse->button() == Qt::RightButton;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// ---------------------------------------------------------------- Initialise

// No settings file is read: the gallery has no stored properties.
void ctlServiceGallery::UserControl_Initialize() {
    Entry(QStringLiteral("UserControl_Initialize")).Spelt().Enter().ErrorBox([&] {
        cboGroupByProperty->setCurrentIndex(0);
        UserControl_Resize();
        blnLoaded = true;
    });
}

bool ctlServiceGallery::CanUnload() {
    Entry(QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlServiceGallery::Description() const {
    return QString(ControlDescriptions::ctlServiceGallery);
}

void ctlServiceGallery::ReleaseListViewFilter() {
    Entry(QStringLiteral("ReleaseListViewFilter")).Enter().FullErrorBox([] {});
}

// ---------------------------------------------------------------- Layout

void ctlServiceGallery::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { UserControl_Resize(); });
}

void ctlServiceGallery::PlaceViews(qint32 lngTopTwips, qint32 lngHeightTwips) {
    m_lngViewsTop = lngTopTwips;
    const QRect rc = Rect(0, lngTopTwips, Twips::FromPixels(width()), lngHeightTwips);
    tvwServices->setGeometry(rc);
    lvwServices->setGeometry(rc);
    tvwServices->raise();
    lvwServices->raise();
}

// The panel's widgets lie at fixed places under the views' top; with the panel
// closed the views cover them. The views keep their top when the control resizes.
void ctlServiceGallery::UserControl_Resize() {
    const qint32 W = Twips::FromPixels(width());
    const qint32 H = Twips::FromPixels(height());
    if (W < kMinWidth || H == 0)
        return;
    if (H < kMinHeight) {
        resize(width(), Twips::ToPixels(kMinHeight));
        return;
    }
    const qint32 lngToolbarWidth = W - 220;
    Toolbar2->setGeometry(Rect(0, 0, lngToolbarWidth, kToolbarHeight));
    cmdShowHideFilter->setGeometry(Rect(60, 420, 2400, 240));
    lblFilterState->setGeometry(Rect(2560, 450, W - 2560, 210));
    fraShowAs->setGeometry(Rect(0, 800, lngToolbarWidth, 660));
    optShowAsTree->setGeometry(Rect(120, 240, 2000, 255));
    optShowAsList->setGeometry(Rect(120, 420, 2000, 200));
    cboGroupByProperty->setGeometry(Rect(2200, 210, lngToolbarWidth - 240 - 2200, 300));
    const qint32 lngHalf = lngToolbarWidth / 2 - 240;
    fraFilter->setGeometry(Rect(0, 1600, lngToolbarWidth, 1140));
    cboProperty->setGeometry(Rect(120, 260, lngHalf, 300));
    cboOperator->setGeometry(Rect(120 + lngHalf + 240, 260, lngHalf, 300));
    txtCriterion->setGeometry(Rect(120, 680, lngToolbarWidth - 240 - 120, 300));
    PlaceViews(m_lngViewsTop, H - m_lngViewsTop - 100);
}
