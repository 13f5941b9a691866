// ctlServiceItems: what sets it apart from the other flat lists, its
// construction, properties and the resize rule.

#include "serviceitems/ctlServiceItems.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/ControlFrame.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>

namespace {
const QString kClass = QStringLiteral("ctlServiceItems");

// A stored description shows its apostrophes.
QVariant Decoded(const QVariant& varText) {
    if (varText.isNull() || !varText.toString().contains(QLatin1String("@@")))
        return varText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(varText.toString(), strErrorMessage, strResult);
    return strResult;
}

FlatListEntry EntryOf(const Recordset& rs) {
    return {VB::Text(rs.Fields(QStringLiteral("ServiceItemTypeName"))),
            VB::CLng(rs.Fields(QStringLiteral("ServiceItemTypes.ServiceItemTypeID"))),
            {Decoded(rs.Fields(QStringLiteral("ServiceItemDescription"))),
             rs.Fields(QStringLiteral("ServiceItemSource")),
             rs.Fields(QStringLiteral("ServiceItemProvider")),
             rs.Fields(QStringLiteral("ServiceItemDateCreated"))}};
}

FlatListKind Kind() {
    FlatListKind kind;
    kind.strClass = kClass;
    kind.strDescription = ControlDescriptions::ctlServiceItems;
    kind.strListName = QStringLiteral("lvwServiceItems");
    kind.columns = {QStringLiteral("Type"), QStringLiteral("Description"), QStringLiteral("Source"),
                    QStringLiteral("Provider"), QStringLiteral("Date Added")};
    kind.query = &DataAccess::GetServiceItemsJoined;
    kind.strOneRowWhere = QStringLiteral("ServiceItems.ServiceItemID  = ");
    kind.strKeyPrefix = QStringLiteral("SI;");
    kind.strIdField = QStringLiteral("ServiceItems.ServiceItemID");
    kind.strErrorWords = QStringLiteral("Error: ServiceItem = ");
    kind.blnSkipBlank = true;
    kind.blnSortable = true;
    kind.entryOf = &EntryOf;
    return kind;
}
} // namespace

ctlServiceItems::ctlServiceItems(QWidget* parent) : QWidget(parent), m_list(this, Kind()) {
    lblMainCaption = m_list.lblMainCaption;
    lblFilterDetails = m_list.lblFilterDetails;
    TTLvwBannerFilter1 = m_list.TTLvwBannerFilter1;
    lvwServiceItems = m_list.lvw;
    StandardIcons::FillServiceItemImages(*m_list.imlIcons);
    buildMenu();
    connectHandlers();
}

ctlServiceItems::~ctlServiceItems() = default;

void ctlServiceItems::buildMenu() {
    mnuRightCLick = new QMenu(this);
    mnuRightCLick->setObjectName(QStringLiteral("mnuRightCLick"));
    const auto action = [this](const QString& strName, const QString& strCaption) {
        QAction* a = mnuRightCLick->addAction(strCaption);
        a->setObjectName(strName);
        return a;
    };
    mnuRightCLickNew =
        action(QStringLiteral("mnuRightCLickNew"), QStringLiteral("&New Service Item"));
    mnuSIRun = action(QStringLiteral("mnuSIRun"), QStringLiteral("&Run"));
    mnuSIDelete = action(QStringLiteral("mnuSIDelete"), QStringLiteral("&Delete"));
    mnuSIPrint = action(QStringLiteral("mnuSIPrint"), QStringLiteral("&Print"));
    mnuSISep1 = mnuRightCLick->addSeparator();
    mnuSISep1->setObjectName(QStringLiteral("mnuSISep1"));
    mnuSIExport = action(QStringLiteral("mnuSIExport"), QStringLiteral("&Export"));
}

void ctlServiceItems::connectHandlers() {
    // Handlers without a handler of their own report at the event boundary.
    const auto guarded = [this](void (ctlServiceItems::*handler)()) {
        return [this, handler] { ErrorReport::Guard([&] { (this->*handler)(); }); };
    };
    connect(mnuRightCLickNew, &QAction::triggered, this,
            guarded(&ctlServiceItems::mnuRightCLickNew_Click));
    connect(mnuSIRun, &QAction::triggered, this, guarded(&ctlServiceItems::mnuSIRun_Click));
    connect(mnuSIDelete, &QAction::triggered, this, guarded(&ctlServiceItems::mnuSIDelete_Click));
    connect(mnuSIPrint, &QAction::triggered, this, guarded(&ctlServiceItems::mnuSIPrint_Click));
    connect(mnuSIExport, &QAction::triggered, this, guarded(&ctlServiceItems::mnuSIExport_Click));
    connect(lvwServiceItems, &QTreeWidget::itemDoubleClicked, this,
            guarded(&ctlServiceItems::lvwServiceItems_DblClick));
    connect(lvwServiceItems->header(), &QHeaderView::sectionClicked, this,
            &ctlServiceItems::lvwServiceItems_ColumnClick);
    lvwServiceItems->viewport()->installEventFilter(this);
}

bool ctlServiceItems::CanUnload() {
    const auto entry = MemberEntry(kClass, QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlServiceItems::Description() const {
    return m_list.Kind().strDescription;
}

void ctlServiceItems::setDescription(const QString& strDescription) {
    m_list.strDescription = strDescription;
}

void ctlServiceItems::setItems(const QString& strItems) {
    m_list.strItems = strItems;
}

void ctlServiceItems::setFilterInPlainEnglish(const QString& strFilter) {
    m_list.strFilterInPlainEnglish = strFilter;
}

void ctlServiceItems::setWhereClauseInEffect(const QString& strWhereClause) {
    m_list.strWhereClauseInEffect = strWhereClause;
}

void ctlServiceItems::setViewMode(const QString& strViewMode) {
    m_list.strViewMode = strViewMode;
}

void ctlServiceItems::ShowProperties() {
    m_list.ShowProperties();
}

void ctlServiceItems::ReleaseListViewFilter() {
    const auto entry = MemberEntry(kClass, QStringLiteral("ReleaseListViewFilter")).Enter();
    entry.FullErrorBox([&] { m_list.ReleaseListViewFilter(); });
}

void ctlServiceItems::Clear() {
    const auto entry = MemberEntry(kClass, QStringLiteral("Clear")).Enter();
}

void ctlServiceItems::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { m_list.Resize(); });
}

void ctlServiceItems::lvwServiceItems_ColumnClick(int intColumn) {
    ErrorReport::Guard([&] { m_list.ColumnClick(intColumn); });
}

bool ctlServiceItems::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvwServiceItems->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const qint16 intButton = mouse->button() == Qt::RightButton  ? vbRightButton
                                 : mouse->button() == Qt::LeftButton ? vbLeftButton
                                                                     : qint16(4);
        const qint16 intShift =
            static_cast<qint16>((mouse->modifiers() & Qt::ShiftModifier ? 1 : 0) |
                                (mouse->modifiers() & Qt::ControlModifier ? 2 : 0) |
                                (mouse->modifiers() & Qt::AltModifier ? 4 : 0));
        lvwServiceItems_MouseUp(intButton, intShift, mouse->position().toPoint());
    }
    return QWidget::eventFilter(watched, event);
}
