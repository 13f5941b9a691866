// ctlServices: what sets it apart from the other flat lists, its construction,
// properties and the resize rule.

#include "serviceitems/ctlServices.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/ControlFrame.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QHeaderView>

namespace {
const QString kClass = QStringLiteral("ctlServices");

FlatListEntry EntryOf(const Recordset& rs) {
    return {VB::Text(rs.Fields(QStringLiteral("ServiceName"))),
            QStringLiteral("imgService"),
            {rs.Fields(QStringLiteral("ServiceType")), rs.Fields(QStringLiteral("ServiceTheme")),
             rs.Fields(QStringLiteral("ServiceProvider")),
             rs.Fields(QStringLiteral("ServiceDateCreated")),
             rs.Fields(QStringLiteral("ServiceDateLastDelivered"))}};
}

FlatListKind Kind() {
    FlatListKind kind;
    kind.strClass = kClass;
    kind.strDescription = ControlDescriptions::ctlServices;
    kind.strListName = QStringLiteral("lvwServices");
    kind.columns = {QStringLiteral("Name"),         QStringLiteral("Type"),
                    QStringLiteral("Theme"),        QStringLiteral("Created By"),
                    QStringLiteral("Date Created"), QStringLiteral("Date Last Delivered")};
    kind.query = &DataAccess::GetServices;
    kind.strOneRowWhere = QStringLiteral("Services.ServiceID  = ");
    kind.strKeyPrefix = QStringLiteral("Service;");
    kind.strIdField = QStringLiteral("Services.ServiceID");
    kind.strErrorWords = QStringLiteral("Error: Service = ");
    kind.blnSortable = true;
    kind.blnTagIsId = true;
    kind.entryOf = &EntryOf;
    return kind;
}
} // namespace

ctlServices::ctlServices(QWidget* parent) : QWidget(parent), m_list(this, Kind()) {
    lblMainCaption = m_list.lblMainCaption;
    lblFilterDetails = m_list.lblFilterDetails;
    TTLvwBannerFilter1 = m_list.TTLvwBannerFilter1;
    lvwServices = m_list.lvw;
    connect(lvwServices->header(), &QHeaderView::sectionClicked, this,
            [this](int intColumn) { ErrorReport::Guard([&] { m_list.ColumnClick(intColumn); }); });
    // No picture of a service of its own: the service template's stands for it.
    m_list.imlIcons->Add(QStringLiteral("imgService"), StandardIcons::ServiceTemplate());
}

ctlServices::~ctlServices() = default;

bool ctlServices::CanUnload() {
    const auto entry = MemberEntry(kClass, QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlServices::Description() const {
    return m_list.Kind().strDescription;
}

void ctlServices::setDescription(const QString& strDescription) {
    m_list.strDescription = strDescription;
}

void ctlServices::setItems(const QString& strItems) {
    m_list.strItems = strItems;
}

void ctlServices::setFilterInPlainEnglish(const QString& strFilter) {
    m_list.strFilterInPlainEnglish = strFilter;
}

void ctlServices::setWhereClauseInEffect(const QString& strWhereClause) {
    m_list.strWhereClauseInEffect = strWhereClause;
}

void ctlServices::setViewMode(const QString& strViewMode) {
    m_list.strViewMode = strViewMode;
}

void ctlServices::ShowProperties() {
    m_list.ShowProperties();
}

void ctlServices::ReleaseListViewFilter() {
    const auto entry = MemberEntry(kClass, QStringLiteral("ReleaseListViewFilter")).Enter();
    entry.FullErrorBox([&] { m_list.ReleaseListViewFilter(); });
}

void ctlServices::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { m_list.Resize(); });
}
