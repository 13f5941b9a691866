// ctlShortListGallery: its table, the child widgets, initialisation, the input
// events and the resize rule.

#include "shortlists/ctlShortListGallery.h"

#include "foundations/ControlFrame.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryCore.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QStyle>

namespace {
const QString kClass = QStringLiteral("ctlShortListGallery");

// Layout numbers, in twips.
constexpr qint32 kToolbarHeight = 390;
constexpr qint32 kFilterHeight = 420;

QAction* MenuItem(QMenu* menu, const QString& strName, const QString& strCaption) {
    QAction* a = menu->addAction(strCaption);
    a->setObjectName(strName);
    return a;
}
} // namespace

// Only the list's key mark and the class's name are used: the gallery has no
// tree, no groups and no main filter.
const GalleryTable& ctlShortListGallery::Table() {
    static const GalleryTable table{kClass,
                                    QStringLiteral(";;ShortList;"),
                                    QStringLiteral("ShortList;"),
                                    QStringLiteral("Short Lists"),
                                    QStringLiteral("All Short Lists"),
                                    QString(),
                                    QString(),
                                    QString(),
                                    QStringLiteral("ShortList"),
                                    QString(),
                                    QString(),
                                    {},
                                    {},
                                    {}};
    return table;
}

MemberEntry ctlShortListGallery::Entry(const QString& strMember) {
    return MemberEntry(kClass, strMember);
}

// ---------------------------------------------------------------- Construction

ctlShortListGallery::ctlShortListGallery(QWidget* parent)
    : QWidget(parent), m_core(std::make_unique<GalleryCore>(Table(), this)) {
    CreateWidgets();
    CreateToolbar();
    CreateMenus();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlShortListGallery::~ctlShortListGallery() {
    Entry(QStringLiteral("UserControl_Terminate")).Enter().FullErrorBox([&] {
        TTLvwBannerFilter1->ReleaseListView();
    });
}

void ctlShortListGallery::CreateWidgets() {
    imlShortLists = new VBImageList(QStringLiteral("imlShortLists"), this);
    imlShortLists->Add(QStringLiteral("imgShortList"), StandardIcons::ServiceItemTemplate());

    lvwShortLists = new VBTreeWidget(this);
    lvwShortLists->setObjectName(QStringLiteral("lvwShortLists"));
    lvwShortLists->SetListView();
    lvwShortLists->setImageList(imlShortLists);
    lvwShortLists->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvwShortLists->AddColumnHeader(QString(), QStringLiteral("Description"), 3200);
    lvwShortLists->AddColumnHeader(QString(), QStringLiteral("Created Date"), 1800);
    lvwShortLists->AddColumnHeader(QString(), QStringLiteral("Created By"), 1800);
    lvwShortLists->header()->setSectionsClickable(true);

    TTLvwBannerFilter1 = new RKLvwBannerFilter(this);
    TTLvwBannerFilter1->setObjectName(QStringLiteral("TTLvwBannerFilter1"));
    TTLvwBannerFilter1->setItemDescription(QStringLiteral("short lists"));
    // Both views of the core are the one list.
    m_core->SetViews(lvwShortLists, lvwShortLists);
}

void ctlShortListGallery::CreateToolbar() {
    m_core->CreateToolbar(
        this, imlToolBar, Toolbar2,
        {{"btnNew", "Create a New Shortlist", "imgNew", QStyle::SP_FileIcon},
         {"btnDelete", "Delete Selected Shortlist", "imgDelete", QStyle::SP_TrashIcon},
         {"btnHelp", "Get Help", "imgHelp", QStyle::SP_DialogHelpButton}});
    // Nothing is selected yet, so there is nothing to delete.
    m_core->SetButtons({QStringLiteral("btnDelete")}, false);
}

// The entries have no handlers: they show and do nothing.
void ctlShortListGallery::CreateMenus() {
    mnuRightClick = new QMenu(this);
    mnuRightClick->setObjectName(QStringLiteral("mnuRightClick"));
    mnuRightCLickNew = MenuItem(mnuRightClick, QStringLiteral("mnuRightCLickNew"),
                                QStringLiteral("&New Short-List"));
    mnuSIOpen = MenuItem(mnuRightClick, QStringLiteral("mnuSIOpen"), QStringLiteral("&Open"));
    mnuSIDelete = MenuItem(mnuRightClick, QStringLiteral("mnuSIDelete"), QStringLiteral("&Delete"));
    mnuSIPrint = MenuItem(mnuRightClick, QStringLiteral("mnuSIPrint"), QStringLiteral("&Print"));
}

void ctlShortListGallery::ConnectWidgets() {
    connect(Toolbar2, &VBToolBar::ButtonClick, this, &ctlShortListGallery::Toolbar2_ButtonClick);
    connect(lvwShortLists, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lvwShortLists_ItemClick(item); });
    connect(lvwShortLists->header(), &QHeaderView::sectionClicked, this,
            &ctlShortListGallery::lvwShortLists_ColumnClick);
    lvwShortLists->viewport()->installEventFilter(this);
}

bool ctlShortListGallery::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvwShortLists->viewport()) {
        // The right button leaves the list's selection as it is.
        if (event->type() == QEvent::MouseButtonPress &&
            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            return true;
        if (event->type() == QEvent::MouseButtonRelease) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            lvwShortLists_MouseUp(GalleryCore::ButtonOf(mouse), GalleryCore::ShiftOf(mouse),
                                  mouse->position().toPoint());
            return mouse->button() == Qt::RightButton;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// The menu comes up only over an item; it is popped up, not run modally, since
// none of its entries does anything.
void ctlShortListGallery::lvwShortLists_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt) {
    Entry(QStringLiteral("lvwShortLists_MouseUp"))
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Enter()
        .FullErrorBox([&] {
            if (Button == vbRightButton && lvwShortLists->itemAt(ptAt))
                mnuRightClick->popup(lvwShortLists->viewport()->mapToGlobal(ptAt));
        });
}

// ---------------------------------------------------------------- Initialise

void ctlShortListGallery::UserControl_Initialize() {
    Entry(QStringLiteral("UserControl_Initialize")).Enter().FullErrorBox([&] {
        TTLvwBannerFilter1->setListView(lvwShortLists);
        UserControl_Resize();
    });
}

bool ctlShortListGallery::CanUnload() {
    Entry(QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlShortListGallery::Description() const {
    return QString(ControlDescriptions::ctlShortListGallery);
}

void ctlShortListGallery::ReleaseListViewFilter() {
    Entry(QStringLiteral("ReleaseListViewFilter")).Enter().FullErrorBox([&] {
        TTLvwBannerFilter1->ReleaseListView();
    });
}

// ---------------------------------------------------------------- Layout

void ctlShortListGallery::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { UserControl_Resize(); });
}

// The toolbar on top, the banner filter under it, the list filling the rest.
void ctlShortListGallery::UserControl_Resize() {
    const qint32 W = Twips::FromPixels(width());
    const qint32 H = Twips::FromPixels(height());
    Toolbar2->setGeometry(Twips::ToPixels(0, 0, W, kToolbarHeight));
    TTLvwBannerFilter1->setGeometry(Twips::ToPixels(0, kToolbarHeight, W, kFilterHeight));
    const qint32 lngTop = kToolbarHeight + kFilterHeight;
    lvwShortLists->setGeometry(Twips::ToPixels(0, lngTop, W, qMax(H - lngTop, 0)));
}
