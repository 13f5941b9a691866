// ctlTemplateGallery: its table, the child widgets, initialisation and layout.

#include "templates/ctlTemplateGallery.h"

#include "foundations/ControlFrame.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryCore.h"
#include "templates/TemplateDocuments.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTimer>

namespace {
const QString kClass = QStringLiteral("ctlTemplateGallery");

// Layout numbers, in twips.
constexpr qint32 kMinHeight = 4100;
constexpr qint32 kToolbarHeight = 390;
constexpr qint32 kViewsTopClosed = 740;
constexpr qint32 kViewsTopOpen = 3200;

QRect Rect(qint32 lngLeft, qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    return Twips::ToPixels(lngLeft, lngTop, qMax(lngWidth, 0), qMax(lngHeight, 0));
}

QAction* MenuItem(QMenu* menu, const char* name, const char* caption) {
    QAction* a = menu->addAction(QString::fromLatin1(caption));
    a->setObjectName(QString::fromLatin1(name));
    return a;
}
} // namespace

// The filter's routine also knows "Source" (its field cut short to "IsInBuil")
// and "Type"; the list does not offer them, so they are never reached. The
// frame's caption is the service gallery's.
const GalleryTable& ctlTemplateGallery::Table() {
    const QString strDate = QStringLiteral("TemplateDateCreated");
    static const GalleryTable table{
        kClass,
        QStringLiteral(";;Template;"),
        QStringLiteral("Template;"),
        QStringLiteral("Templates"),
        QStringLiteral("All Templates"),
        QStringLiteral("Templates for "),
        QStringLiteral("All Templates at "),
        QStringLiteral("Selection of Templates"),
        QStringLiteral("Template"),
        QStringLiteral("TemplatesGroup"),
        QStringLiteral("Filter Services Where:"),
        {{QStringLiteral("Type"), QStringLiteral("IsServiceTemplate"),
          QStringLiteral("IsServiceTemplate")},
         {QStringLiteral("Occasion"), QStringLiteral("TemplateOccasion"),
          QStringLiteral("TemplateOccasion")},
         {QStringLiteral("Created By"), QStringLiteral("TemplateAuthor"),
          QStringLiteral("TemplateAuthor")},
         {QStringLiteral("Year Created"), strDate, strDate},
         {QStringLiteral("Month & Year Created"), strDate, strDate},
         {QStringLiteral("Source"), QStringLiteral("IsInBuilt"), QStringLiteral("IsInBuilt")}},
        {QStringLiteral("Description"), QStringLiteral("Occasion"), QStringLiteral("Date Created"),
         QStringLiteral("Created By")},
        {{QStringLiteral("Description"), QStringLiteral("TemplateDescription")},
         {QStringLiteral("Source"), QStringLiteral("IsInBuil")},
         {QStringLiteral("Occasion"), QStringLiteral("TemplateOccasion")},
         {QStringLiteral("Date Created"), strDate},
         {QStringLiteral("Created By"), QStringLiteral("TemplateAuthor")},
         {QStringLiteral("Type"), QStringLiteral("IsServiceTemplate")}}};
    return table;
}

MemberEntry ctlTemplateGallery::Entry(const QString& strMember) {
    return MemberEntry(kClass, strMember);
}

ctlTemplateGallery::ctlTemplateGallery(QWidget* parent)
    : QWidget(parent), m_core(std::make_unique<GalleryCore>(Table(), this)) {
    TemplateDocuments::RouteThroughPlatform();
    CreateWidgets();
    CreateToolbar();
    CreateMenus();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlTemplateGallery::~ctlTemplateGallery() {
    Timer1->stop();
}

void ctlTemplateGallery::CreateWidgets() {
    setMinimumHeight(Twips::ToPixels(kMinHeight));
    ImageList1 = new VBImageList(QStringLiteral("ImageList1"), this);
    ImageList1->Add(QStringLiteral("imgFolderClosed"), StandardIcons::FolderClosed());
    ImageList1->Add(QStringLiteral("imgFolderOpen"), StandardIcons::FolderOpen());
    ImageList1->Add(QStringLiteral("imgServiceTemplate"), StandardIcons::ServiceTemplate());
    ImageList1->Add(QStringLiteral("imgServiceItemTemplate"), StandardIcons::ServiceItemTemplate());

    m_core->CreatePanelFor(*this);

    tvwTemplates = new VBTreeWidget(this);
    tvwTemplates->setObjectName(QStringLiteral("tvwTemplates"));
    tvwTemplates->setImageList(ImageList1);
    lvwTemplates = new VBTreeWidget(this);
    lvwTemplates->setObjectName(QStringLiteral("lvwTemplates"));
    lvwTemplates->SetListView();
    lvwTemplates->setImageList(ImageList1);
    for (const char* caption :
         {"Type", "Description", "Occasion", "Source", "Created By", "Created On"})
        lvwTemplates->AddColumnHeader(QString(), QString::fromLatin1(caption), 1600);
    lvwTemplates->hide();
    m_core->SetViews(tvwTemplates, lvwTemplates);
}

// The tool tips keep the words of the service item gallery.
void ctlTemplateGallery::CreateToolbar() {
    m_core->CreateToolbar(
        this, imlToolBar, Toolbar2,
        {{"btnNew", "Create a New Service Item", "imgNew", QStyle::SP_FileIcon},
         {"btnOpen", "Open Selected Service Item", "imgOpen", QStyle::SP_DialogOpenButton},
         {"btnDelete", "Delete Selected Service Item", "imgDelete", QStyle::SP_TrashIcon},
         {"btnHelp", "Get Help", "imgHelp", QStyle::SP_DialogHelpButton}});
}

// mnuRightClickType's captions are the service gallery's until they show.
void ctlTemplateGallery::CreateMenus() {
    mnuRightClick = new QMenu(this);
    mnuRightClick->setObjectName(QStringLiteral("mnuRightClick"));
    mnuRightCLickNew = MenuItem(mnuRightClick, "mnuRightCLickNew", "&New Template");
    mnuTemplateOpen = MenuItem(mnuRightClick, "mnuTemplateOpen", "&Open");
    mnuTemplateDelete = MenuItem(mnuRightClick, "mnuTemplateDelete", "&Delete");
    mnuRightClickType = new QMenu(this);
    mnuRightClickType->setObjectName(QStringLiteral("mnuRightClickType"));
    mnuRightClickTypeNew = MenuItem(mnuRightClickType, "mnuRightClickTypeNew", "&New Service");
    // Nothing stands behind Find.
    mnuRightClickTypeFind = MenuItem(mnuRightClickType, "mnuRightClickTypeFind", "&Find a Service");
}

void ctlTemplateGallery::ConnectWidgets() {
    using G = ctlTemplateGallery;
    m_core->ConnectPanel(this, &G::optShowAsTree_Click, &G::optShowAsList_Click,
                         &G::cboGroupByProperty_Click, &G::cboProperty_Click, &G::cboOperator_Click,
                         &G::cmdShowHideFilter_Click, &G::txtCriterion_Change, &G::Timer1_Timer);
    connect(Toolbar2, &VBToolBar::ButtonClick, this, &G::Toolbar2_ButtonClick);
    connect(tvwTemplates, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { tvwTemplates_NodeClick(item); });
    connect(tvwTemplates, &QTreeWidget::itemDoubleClicked, this, &G::tvwTemplates_DblClick);
    connect(tvwTemplates, &QTreeWidget::itemExpanded, this, &G::tvwTemplates_Expand);
    connect(tvwTemplates, &QTreeWidget::itemCollapsed, this, &G::tvwTemplates_Collapse);
    connect(lvwTemplates, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lvwTemplates_ItemClick(item); });
    connect(lvwTemplates, &QTreeWidget::itemDoubleClicked, this, &G::lvwTemplates_DblClick);
    connect(mnuRightCLickNew, &QAction::triggered, this, &G::mnuRightCLickNew_Click);
    connect(mnuRightClickTypeNew, &QAction::triggered, this, &G::mnuRightClickTypeNew_Click);
    connect(mnuTemplateOpen, &QAction::triggered, this, &G::mnuTemplateOpen_Click);
    connect(mnuTemplateDelete, &QAction::triggered, this, &G::mnuTemplateDelete_Click);
    tvwTemplates->viewport()->installEventFilter(this);
    lvwTemplates->viewport()->installEventFilter(this);
}

bool ctlTemplateGallery::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == tvwTemplates->viewport() && type == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            tvwTemplates_MouseDown(GalleryCore::ButtonOf(mouse), mouse->position().toPoint());
            return true;
        }
    }
    if (watched == lvwTemplates->viewport() && type == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            lvwTemplates_MouseUp(GalleryCore::ButtonOf(mouse), mouse->position().toPoint());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ctlTemplateGallery::UserControl_Initialize() {
    Entry(QStringLiteral("UserControl_Initialize")).Spelt().Enter().ErrorBox([&] {
        cboGroupByProperty->setCurrentIndex(0);
        UserControl_Resize();
        blnLoaded = true;
    });
}

bool ctlTemplateGallery::CanUnload() {
    Entry(QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlTemplateGallery::Description() const {
    return QString(ControlDescriptions::ctlTemplateGallery);
}

// ---------------------------------------------------------------- Layout

void ctlTemplateGallery::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { UserControl_Resize(); });
}

void ctlTemplateGallery::PlaceViews(qint32 lngTopTwips) {
    m_lngViewsTop = lngTopTwips;
    const qint32 H = Twips::FromPixels(height());
    const QRect rc = Rect(0, lngTopTwips, Twips::FromPixels(width()), H - lngTopTwips - 100);
    tvwTemplates->setGeometry(rc);
    lvwTemplates->setGeometry(rc);
    tvwTemplates->raise();
    lvwTemplates->raise();
}

// The panel lies under the views' top; closed, the views cover it.
void ctlTemplateGallery::UserControl_Resize() {
    const qint32 W = Twips::FromPixels(width());
    if (W <= 0 || height() == 0)
        return;
    const qint32 lngInner = qMax(W - 220, 0);
    Toolbar2->setGeometry(Rect(0, 0, lngInner, kToolbarHeight));
    cmdShowHideFilter->setGeometry(Rect(60, 420, 2400, 240));
    lblFilterState->setGeometry(Rect(2560, 450, W - 2560, 210));
    fraShowAs->setGeometry(Rect(0, 800, lngInner, 660));
    optShowAsTree->setGeometry(Rect(120, 240, 2000, 255));
    optShowAsList->setGeometry(Rect(120, 420, 2000, 200));
    cboGroupByProperty->setGeometry(Rect(2200, 210, lngInner - 2440, 300));
    const qint32 lngHalf = lngInner / 2 - 240;
    fraFilter->setGeometry(Rect(0, 1600, lngInner, 1140));
    cboProperty->setGeometry(Rect(120, 260, lngHalf, 300));
    cboOperator->setGeometry(Rect(lngHalf + 360, 260, lngHalf, 300));
    txtCriterion->setGeometry(Rect(120, 680, lngInner - 360, 300));
    PlaceViews(m_lngViewsTop);
}

void ctlTemplateGallery::cmdShowHideFilter_Click() {
    Entry(QStringLiteral("cmdShowHideFilter_Click")).Spelt().Enter().ErrorBox([&] {
        const bool blnOpen = !m_core->PanelOpen();
        PlaceViews(blnOpen ? kViewsTopOpen : kViewsTopClosed);
        m_core->SetPanelOpen(blnOpen);
        m_core->ShownView()->setFocus();
    });
}
