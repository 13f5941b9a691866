// ctlServiceItemGallery: construction of the child widgets, initialisation,
// termination, the stored properties and the resize rule.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

#include "Settings.h"
#include "foundations/ControlFrame.h"
#include "foundations/ErrorReport.h"
#include "foundations/StandardIcons.h"
#include "foundations/TraceLine.h"
#include "foundations/Twips.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBStatusBar.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QStyle>
#include <QTimer>

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");

// Layout numbers, in twips.
constexpr qint32 kMinHeight = 3200;
constexpr qint32 kMinWidth = 2100;
constexpr qint32 kToolbarHeight = 390;
constexpr qint32 kViewsTopPanelOpen = 3320;
constexpr qint32 kViewsTopPanelClosed = 960;
constexpr qint32 kViewsBottomGap = 220;
constexpr qint32 kStatusBarHeight = 300;

QRect Rect(qint32 lngLeft, qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    return Twips::ToPixels(lngLeft, lngTop, lngWidth, lngHeight);
}

template <class W> W* Named(W* widget, const QString& strName) {
    widget->setObjectName(strName);
    return widget;
}
} // namespace

// The tree of the gallery: a drag source of the selected item's key as text.
class ctlServiceItemGalleryTree : public VBTreeWidget {
public:
    ctlServiceItemGalleryTree(ctlServiceItemGallery* owner, QWidget* parent)
        : VBTreeWidget(parent), m_owner(owner) {
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
        setDefaultDropAction(Qt::CopyAction);
    }

protected:
    void startDrag(Qt::DropActions supportedActions) override {
        Q_UNUSED(supportedActions);
        ErrorReport::Guard([&] { m_owner->tvwServiceItems_OLEStartDrag(); });
    }
    // What a drop target asks for: the key of the selected item node again.
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override {
        Q_UNUSED(items);
        return m_owner->DragData();
    }
    QStringList mimeTypes() const override { return {QStringLiteral("text/plain")}; }

private:
    ctlServiceItemGallery* m_owner;
};

// ---------------------------------------------------------------- Construction

ctlServiceItemGallery::ctlServiceItemGallery(QWidget* parent)
    : QWidget(parent), m_core(std::make_unique<GalleryCore>(Table(), this)) {
    CreateWidgets();
    CreateToolbar();
    CreateMenus();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlServiceItemGallery::~ctlServiceItemGallery() {
    UserControl_Terminate();
}

MemberEntry ctlServiceItemGallery::Entry(const QString& strMember) {
    return MemberEntry(kClass, strMember);
}

void ctlServiceItemGallery::CreateWidgets() {
    setMinimumSize(Twips::ToPixels(kMinWidth), Twips::ToPixels(kMinHeight));

    imlServiceItems = new VBImageList(QStringLiteral("imlServiceItems"), this);
    StandardIcons::FillServiceItemImages(*imlServiceItems);

    m_core->CreatePanelFor(*this);
    Label1 = Named(new QLabel(QStringLiteral("Quick Filter:"), this), QStringLiteral("Label1"));
    Label2 = Named(new QLabel(QStringLiteral("Not available when using main filter"), this),
                   QStringLiteral("Label2"));
    txtQuickFilter = Named(new QLineEdit(this), QStringLiteral("txtQuickFilter"));

    optQuickFilter = Named(new QRadioButton(QStringLiteral("Use Quick Filter"), this),
                           QStringLiteral("optQuickFilter"));
    optShortList = Named(new QRadioButton(QStringLiteral("Use a Short-List"), this),
                         QStringLiteral("optShortList"));
    optQuickFilter->setChecked(true);
    // The two filter options are a group of their own, apart from the view options.
    auto* grpFilterMode = new QButtonGroup(this);
    grpFilterMode->addButton(optQuickFilter);
    grpFilterMode->addButton(optShortList);

    fraSelectShortList = Named(new QGroupBox(QStringLiteral("ShortList"), this),
                               QStringLiteral("fraSelectShortList"));
    cmdGetShortList =
        Named(new QPushButton(QStringLiteral("Select a Short-List"), fraSelectShortList),
              QStringLiteral("cmdGetShortList"));
    auto label = [&](const QString& strName, const QString& strCaption) {
        return Named(new QLabel(strCaption, fraSelectShortList), strName);
    };
    lblCaptionShortListDescription =
        label(QStringLiteral("lblCaptionShortListDescription"), QStringLiteral("Description:"));
    lblShortListDescription = label(QStringLiteral("lblShortListDescription"), QString());
    lblCaptionShortListCreatedBy =
        label(QStringLiteral("lblCaptionShortListCreatedBy"), QStringLiteral("Created By:"));
    lblShortListCreatedBy = label(QStringLiteral("lblShortListCreatedBy"), QString());
    lblCaptionShortListCreatedDate =
        label(QStringLiteral("lblCaptionShortListCreatedDate"), QStringLiteral("Created On:"));
    lblShortListCreatedDate = label(QStringLiteral("lblShortListCreatedDate"), QString());
    fraSelectShortList->hide();

    tvwServiceItems =
        Named(new ctlServiceItemGalleryTree(this, this), QStringLiteral("tvwServiceItems"));
    tvwServiceItems->setImageList(imlServiceItems);
    lvwServiceItems = Named(new VBTreeWidget(this), QStringLiteral("lvwServiceItems"));
    lvwServiceItems->SetListView();
    lvwServiceItems->setImageList(imlServiceItems);
    lvwServiceItems->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvwServiceItems->AddColumnHeader(QString(), QStringLiteral("Type"), 1940);
    for (const QString& strCaption : {QStringLiteral("Description"), QStringLiteral("Source"),
                                      QStringLiteral("Provider"), QStringLiteral("Date Added")})
        lvwServiceItems->AddColumnHeader(QString(), strCaption, 2540);
    lvwServiceItems->header()->setSectionsClickable(true);
    lvwServiceItems->hide();
    m_core->SetViews(tvwServiceItems, lvwServiceItems);

    StatusBar1 = Named(new VBStatusBar(this), QStringLiteral("StatusBar1"));
    StatusBar1->AddPanel(QString(), 0);
    StatusBar1->AddPanel(QString(), 2200);
}

void ctlServiceItemGallery::CreateToolbar() {
    m_core->CreateToolbar(
        this, imlToolBar, Toolbar2,
        {{"btnNew", "Create a New Service Item", "imgNew", QStyle::SP_FileIcon},
         {"btnRun", "Run Selected Service Item", "imgRun", QStyle::SP_MediaPlay},
         {"btnDelete", "Delete Selected Service Item", "imgDelete", QStyle::SP_TrashIcon},
         {"btnEdit", "Edit selected Service Item", "imgEdit", QStyle::SP_FileDialogDetailedView},
         {"btnProperties", "View Properties of Selected Service Item", "imgProperties",
          QStyle::SP_FileDialogInfoView},
         {"btnPrint", "Run Print Wizard for Selected Service Item", "imgPrint",
          QStyle::SP_DialogSaveButton},
         {"btnRefresh", "Refresh list", "imgRefresh", QStyle::SP_BrowserReload},
         {"btnExport", "Export Selected Service Item", "imgExport", QStyle::SP_ArrowUp},
         {"btnImport", "Import a Service Item", "imgImport", QStyle::SP_ArrowDown},
         {"btnHelp", "Get Help", "imgHelp", QStyle::SP_DialogHelpButton}});
}

QAction* ctlServiceItemGallery::ToolbarButton(const QString& strKey) const {
    return Toolbar2->ButtonExists(strKey) ? Toolbar2->Buttons(strKey) : nullptr;
}

void ctlServiceItemGallery::SetStatusPanel(qint32 intPanel, const QString& strText) {
    StatusBar1->Panels(intPanel)->setText(strText);
}

QString ctlServiceItemGallery::StatusPanelText(qint32 intPanel) const {
    return StatusBar1->Panels(intPanel)->text();
}

void ctlServiceItemGallery::CreateMenus() {
    mnuRightCLick = Named(new QMenu(this), QStringLiteral("mnuRightCLick"));
    auto action = [](QMenu* menu, const QString& strName, const QString& strCaption) {
        QAction* a = menu->addAction(strCaption);
        a->setObjectName(strName);
        return a;
    };
    mnuRightCLickNew = action(mnuRightCLick, QStringLiteral("mnuRightCLickNew"),
                              QStringLiteral("&New Service Item"));
    mnuSIOpen = action(mnuRightCLick, QStringLiteral("mnuSIOpen"), QStringLiteral("&Run"));
    mnuSIDelete = action(mnuRightCLick, QStringLiteral("mnuSIDelete"), QStringLiteral("&Delete"));
    mnuSIPrint = action(mnuRightCLick, QStringLiteral("mnuSIPrint"), QStringLiteral("&Print"));
    mnuSISep1 = mnuRightCLick->addSeparator();
    mnuSISep1->setObjectName(QStringLiteral("mnuSISep1"));
    mnuSIExport = action(mnuRightCLick, QStringLiteral("mnuSIExport"), QStringLiteral("&Export"));

    mnuRightClickType = Named(new QMenu(this), QStringLiteral("mnuRightClickType"));
    mnuRightClickTypeNew = action(mnuRightClickType, QStringLiteral("mnuRightClickTypeNew"),
                                  QStringLiteral("&New Service Item"));
}

void ctlServiceItemGallery::ConnectWidgets() {
    using G = ctlServiceItemGallery;
    m_core->ConnectPanel(this, &G::optShowAsTree_Click, &G::optShowAsList_Click,
                         &G::cboGroupByProperty_Click, &G::cboProperty_Click, &G::cboOperator_Click,
                         &G::cmdShowHideFilter_Click, &G::txtCriterion_Change, &G::Timer1_Timer);
    connect(optQuickFilter, &QRadioButton::toggled, this, [this](bool blnOn) {
        if (blnOn)
            optQuickFilter_Click();
    });
    connect(optShortList, &QRadioButton::toggled, this, [this](bool blnOn) {
        if (blnOn)
            optShortList_Click();
    });
    connect(cmdGetShortList, &QPushButton::clicked, this,
            &ctlServiceItemGallery::cmdGetShortList_Click);
    connect(txtQuickFilter, &QLineEdit::textChanged, this,
            &ctlServiceItemGallery::txtQuickFilter_Change);
    connect(StatusBar1, &VBStatusBar::PanelClick, this,
            &ctlServiceItemGallery::StatusBar1_PanelClick);
    connect(Toolbar2, &VBToolBar::ButtonClick, this, &ctlServiceItemGallery::Toolbar2_ButtonClick);

    connect(tvwServiceItems, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { tvwServiceItems_NodeClick(item); });
    connect(tvwServiceItems, &QTreeWidget::itemDoubleClicked, this,
            &ctlServiceItemGallery::tvwServiceItems_DblClick);
    connect(tvwServiceItems, &QTreeWidget::itemExpanded, this,
            &ctlServiceItemGallery::tvwServiceItems_Expand);
    connect(tvwServiceItems, &QTreeWidget::itemCollapsed, this,
            &ctlServiceItemGallery::tvwServiceItems_Collapse);
    connect(lvwServiceItems, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lvwServiceItems_ItemClick(item); });
    connect(lvwServiceItems, &QTreeWidget::itemDoubleClicked, this,
            &ctlServiceItemGallery::lvwServiceItems_DblClick);
    connect(lvwServiceItems->header(), &QHeaderView::sectionClicked, this,
            &ctlServiceItemGallery::lvwServiceItems_ColumnClick);

    connect(mnuRightCLickNew, &QAction::triggered, this,
            &ctlServiceItemGallery::mnuRightCLickNew_Click);
    connect(mnuSIOpen, &QAction::triggered, this, &ctlServiceItemGallery::mnuSIOpen_Click);
    connect(mnuSIDelete, &QAction::triggered, this, &ctlServiceItemGallery::mnuSIDelete_Click);
    connect(mnuSIPrint, &QAction::triggered, this, &ctlServiceItemGallery::mnuSIPrint_Click);
    connect(mnuSIExport, &QAction::triggered, this, &ctlServiceItemGallery::mnuSIExport_Click);
    connect(mnuRightClickTypeNew, &QAction::triggered, this,
            &ctlServiceItemGallery::mnuRightClickTypeNew_Click);

    txtQuickFilter->installEventFilter(this);
    txtCriterion->installEventFilter(this);
    tvwServiceItems->installEventFilter(this);
    tvwServiceItems->viewport()->installEventFilter(this);
    lvwServiceItems->viewport()->installEventFilter(this);
}

// ---------------------------------------------------------------- Events of the children

namespace {
qint16 KeyCodeOf(const QKeyEvent* event) {
    return GalleryCore::KeyCodeOf(event);
}
qint16 ShiftOf(const QInputEvent* event) {
    return GalleryCore::ShiftOf(event);
}
qint16 ButtonOf(const QMouseEvent* event) {
    return GalleryCore::ButtonOf(event);
}
} // namespace

bool ctlServiceItemGallery::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == txtQuickFilter) {
        if (type == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            qint16 KeyAscii =
                key->key() == Qt::Key_Escape
                    ? qint16(27)
                    : (key->text().size() == 1 ? qint16(key->text().at(0).unicode()) : qint16(-1));
            if (KeyAscii < 0)
                return false;
            ErrorReport::Guard([&] { txtQuickFilter_KeyPress(KeyAscii); });
            return KeyAscii == 0;
        }
        if (type == QEvent::FocusIn)
            txtQuickFilter_GotFocus();
        return false;
    }
    if (watched == txtCriterion && type == QEvent::KeyRelease) {
        auto* key = static_cast<QKeyEvent*>(event);
        qint16 KeyCode = KeyCodeOf(key);
        ErrorReport::Guard([&] { txtCriterion_KeyUp(KeyCode, ShiftOf(key)); });
        return false;
    }
    if (watched == tvwServiceItems) {
        // Every key is swallowed on its way down; only the key up acts.
        if (type == QEvent::KeyPress || type == QEvent::ShortcutOverride)
            return true;
        if (type == QEvent::KeyRelease) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (!key->isAutoRepeat()) {
                qint16 KeyCode = KeyCodeOf(key);
                ErrorReport::Guard([&] { tvwServiceItems_KeyUp(KeyCode, ShiftOf(key)); });
            }
            return true;
        }
        return false;
    }
    if (watched == tvwServiceItems->viewport() && type == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::RightButton)
            return false;
        ErrorReport::Guard([&] {
            tvwServiceItems_MouseDown(ButtonOf(mouse), ShiftOf(mouse), mouse->position().toPoint());
        });
        return true;
    }
    if (watched == lvwServiceItems->viewport()) {
        // The right button leaves the list's selection as it is.
        if (type == QEvent::MouseButtonPress &&
            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            return true;
        if (type == QEvent::MouseButtonRelease) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            lvwServiceItems_MouseUp(ButtonOf(mouse), ShiftOf(mouse), mouse->position().toPoint());
            return mouse->button() == Qt::RightButton;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// ---------------------------------------------------------------- Initialise, terminate

void ctlServiceItemGallery::UserControl_Initialize() {
    Entry(QStringLiteral("UserControl_Initialize")).Spelt().Enter().ErrorBox([&] {
        const QString strMax = VB::Left(
            Settings::GetPrivateProfileString(
                QStringLiteral("Options"), QStringLiteral("MaxSIsToShow"), QStringLiteral("100")),
            255);
        lngMaxSIsToShow = VB::CLng(VB::Val(strMax));
        cboGroupByProperty->setCurrentIndex(0);
        m_blnRunSIOnDblClick = true;
        m_blnShowToolbar = true;
        UserControl_Resize();
        blnLoaded = true;
    });
}

void ctlServiceItemGallery::UserControl_Terminate() {
    Entry(QStringLiteral("UserControl_Terminate")).Spelt().Enter().ErrorBox([&] {
        Timer1->stop();
    });
}

bool ctlServiceItemGallery::CanUnload() {
    Entry(QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlServiceItemGallery::Description() const {
    return QString(ControlDescriptions::ctlServiceItemGallery);
}

void ctlServiceItemGallery::ReleaseListViewFilter() {
    Entry(QStringLiteral("ReleaseListViewFilter")).Enter();
}

// ---------------------------------------------------------------- Stored properties

void ctlServiceItemGallery::setRunSIOnDblClick(bool blnValue) {
    m_blnRunSIOnDblClick = blnValue;
}

void ctlServiceItemGallery::setShowToolbar(bool blnValue) {
    m_blnShowToolbar = blnValue;
    UserControl_Resize();
}

// ---------------------------------------------------------------- View switches

void ctlServiceItemGallery::optShowAsTree_Click() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("optShowAsTree_Click")).Enter();
        if (blnLoaded)
            ShowServiceItems();
    });
}

void ctlServiceItemGallery::optShowAsList_Click() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("optShowAsList_Click")).Enter();
        if (blnLoaded)
            ShowServiceItems();
    });
}

void ctlServiceItemGallery::cboGroupByProperty_Click() {
    m_core->cboGroupByProperty_Click(blnLoaded, [&] { ShowServiceItems(); });
}

// ---------------------------------------------------------------- Layout

qint32 ctlServiceItemGallery::WidthTwips() const {
    return Twips::FromPixels(width());
}

qint32 ctlServiceItemGallery::HeightTwips() const {
    return Twips::FromPixels(height());
}

void ctlServiceItemGallery::PlaceViews(qint32 lngTopTwips, qint32 lngHeightTwips) {
    const QRect rc = Rect(0, lngTopTwips, WidthTwips(), qMax(lngHeightTwips, 0));
    tvwServiceItems->setGeometry(rc);
    lvwServiceItems->setGeometry(rc);
    tvwServiceItems->raise();
    lvwServiceItems->raise();
}

void ctlServiceItemGallery::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { UserControl_Resize(); });
}

void ctlServiceItemGallery::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_blnShown = true;
}

// The panel's widgets lie at fixed places under the views' top; with the panel
// closed the views simply cover them (and the toolbar when ShowToolbar is False).
void ctlServiceItemGallery::UserControl_Resize() {
    const qint32 W = WidthTwips();
    const qint32 H = HeightTwips();
    if (W == 0 || H == 0)
        return;
    if (H < kMinHeight || W < kMinWidth) {
        resize(Twips::ToPixels(qMax(W, kMinWidth)), Twips::ToPixels(qMax(H, kMinHeight)));
        return;
    }
    const qint32 lngToolbarWidth = W - 40;
    Toolbar2->setGeometry(Rect(0, 0, lngToolbarWidth, kToolbarHeight));

    cmdShowHideFilter->setGeometry(Rect(60, 420, 2400, 240));
    lblFilterState->setGeometry(Rect(2560, 450, qMax(W - 2560, 0), 210));
    Label1->setGeometry(Rect(60, 705, 1000, 240));
    txtQuickFilter->setGeometry(Rect(1080, 690, qMax(W - 1080, 0), 260));
    Label2->setGeometry(txtQuickFilter->geometry());
    Label2->lower();

    fraShowAs->setGeometry(Rect(0, 1000, lngToolbarWidth, 660));
    optShowAsTree->setGeometry(Rect(120, 240, 2000, 255));
    optShowAsList->setGeometry(Rect(120, 420, 2000, 200));
    cboGroupByProperty->setGeometry(Rect(2200, 210, qMax(lngToolbarWidth - 240 - 2200, 0), 300));

    optQuickFilter->setGeometry(Rect(120, 1700, 2200, 255));
    optShortList->setGeometry(Rect(2400, 1700, 2200, 255));

    const qint32 lngHalf = lngToolbarWidth / 2 - 240;
    fraFilter->setGeometry(Rect(0, 2000, lngToolbarWidth, 1140));
    cboProperty->setGeometry(Rect(120, 260, qMax(lngHalf, 0), 300));
    cboOperator->setGeometry(Rect(120 + lngHalf + 240, 260, qMax(lngHalf, 0), 300));
    txtCriterion->setGeometry(Rect(120, 680, qMax(lngToolbarWidth - 240 - 120, 0), 300));

    fraSelectShortList->setGeometry(fraFilter->geometry());
    cmdGetShortList->setGeometry(Rect(lngToolbarWidth - 2000 - 80, 240, 2000, 300));
    const QList<QPair<QLabel*, QLabel*>> lstLabels = {
        {lblCaptionShortListDescription, lblShortListDescription},
        {lblCaptionShortListCreatedBy, lblShortListCreatedBy},
        {lblCaptionShortListCreatedDate, lblShortListCreatedDate}};
    qint32 lngTop = 600;
    for (const auto& pair : lstLabels) {
        pair.first->setGeometry(Rect(120, lngTop, 1100, 200));
        pair.second->setGeometry(Rect(1260, lngTop, qMax(lngToolbarWidth - 1400, 0), 200));
        lngTop += 160;
    }

    qint32 lngViewsTop = kViewsTopPanelClosed;
    if (m_core->PanelOpen())
        lngViewsTop = kViewsTopPanelOpen;
    else if (!m_blnShowToolbar)
        lngViewsTop = 0;
    PlaceViews(lngViewsTop, H - lngViewsTop - kViewsBottomGap);
    StatusBar1->setGeometry(Rect(0, H - kStatusBarHeight, W, kStatusBarHeight));
    StatusBar1->raise();
}
