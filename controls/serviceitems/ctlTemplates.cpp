// ctlTemplates: what sets it apart from the other flat lists, its construction,
// properties and the resize rule.

#include "serviceitems/ctlTemplates.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/ControlFrame.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

namespace {
const QString kClass = QStringLiteral("ctlTemplates");

FlatListEntry EntryOf(const Recordset& rs) {
    const bool blnService = VB::CBool(rs.Fields(QStringLiteral("IsServiceTemplate")));
    // A template without a description is named by who made it and when.
    QVariant varDescription = rs.Fields(QStringLiteral("TemplateDescription"));
    if (varDescription.isNull())
        varDescription = VB::Text(rs.Fields(QStringLiteral("TemplateAuthor"))) +
                         QStringLiteral(" on ") +
                         VB::Format(rs.Fields(QStringLiteral("TemplateDateCreated")).toDateTime(),
                                    QStringLiteral("Medium Date"));
    return {blnService ? QStringLiteral("Service") : QStringLiteral("Service Item"),
            blnService ? QStringLiteral("imgServiceTemplate")
                       : QStringLiteral("imgServiceItemTemplate"),
            {varDescription, rs.Fields(QStringLiteral("TemplateOccasion")),
             VB::CBool(rs.Fields(QStringLiteral("IsInBuilt"))) ? QStringLiteral("In Built")
                                                               : QStringLiteral("User Created"),
             rs.Fields(QStringLiteral("TemplateAuthor")),
             rs.Fields(QStringLiteral("TemplateDateCreated"))}};
}

FlatListKind Kind() {
    FlatListKind kind;
    kind.strClass = kClass;
    kind.strDescription = ControlDescriptions::ctlTemplates;
    kind.strListName = QStringLiteral("lvwTemplates");
    kind.columns = {QStringLiteral("Type"),       QStringLiteral("Description"),
                    QStringLiteral("Occasion"),   QStringLiteral("Source"),
                    QStringLiteral("Created By"), QStringLiteral("Date Created")};
    kind.query = &DataAccess::GetTemplates;
    kind.strOneRowWhere = QStringLiteral("TemplateID  = ");
    kind.strKeyPrefix = QStringLiteral("Template;");
    kind.strIdField = QStringLiteral("TemplateID");
    kind.strErrorWords = QStringLiteral("Error: Template = ");
    kind.entryOf = &EntryOf;
    return kind;
}
} // namespace

ctlTemplates::ctlTemplates(QWidget* parent) : QWidget(parent), m_list(this, Kind()) {
    lblMainCaption = m_list.lblMainCaption;
    lblFilterDetails = m_list.lblFilterDetails;
    TTLvwBannerFilter1 = m_list.TTLvwBannerFilter1;
    lvwTemplates = m_list.lvw;
    m_list.imlIcons->Add(QStringLiteral("imgServiceTemplate"), StandardIcons::ServiceTemplate());
    m_list.imlIcons->Add(QStringLiteral("imgServiceItemTemplate"),
                         StandardIcons::ServiceItemTemplate());
}

ctlTemplates::~ctlTemplates() = default;

bool ctlTemplates::CanUnload() {
    const auto entry = MemberEntry(kClass, QStringLiteral("CanUnload")).Enter();
    return true;
}

QString ctlTemplates::Description() const {
    return m_list.Kind().strDescription;
}

void ctlTemplates::setDescription(const QString& strDescription) {
    m_list.strDescription = strDescription;
}

void ctlTemplates::setItems(const QString& strItems) {
    m_list.strItems = strItems;
}

void ctlTemplates::setFilterInPlainEnglish(const QString& strFilter) {
    m_list.strFilterInPlainEnglish = strFilter;
}

void ctlTemplates::setWhereClauseInEffect(const QString& strWhereClause) {
    m_list.strWhereClauseInEffect = strWhereClause;
}

void ctlTemplates::setViewMode(const QString& strViewMode) {
    m_list.strViewMode = strViewMode;
}

void ctlTemplates::ShowProperties() {
    m_list.ShowProperties();
}

void ctlTemplates::ReleaseListViewFilter() {
    const auto entry = MemberEntry(kClass, QStringLiteral("ReleaseListViewFilter")).Enter();
    entry.FullErrorBox([&] { m_list.ReleaseListViewFilter(); });
}

void ctlTemplates::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ErrorReport::Guard([&] { m_list.Resize(); });
}
