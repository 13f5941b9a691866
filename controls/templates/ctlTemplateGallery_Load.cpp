// ctlTemplateGallery: ShowTemplates, LoadTemplates, the groups and the filter.

#include "templates/ctlTemplateGallery.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryCore.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>

namespace {
// A group's value and its text; a Null value makes the group "No " + GroupBy.
struct GroupOf {
    QVariant varValue;
    QString strText;
};

GroupOf Flag(const QVariant& varField, const char* valueTrue, const char* textTrue,
             const char* valueFalse, const char* textFalse) {
    if (varField.isNull())
        return {};
    const bool bln = varField.toBool();
    return {QString::fromLatin1(bln ? valueTrue : valueFalse),
            QString::fromLatin1(bln ? textTrue : textFalse)};
}

// The group of a row: Type and Source have words of their own, the dates give
// the year or the month's full name and the year, the rest their text.
GroupOf GroupOfRow(const Recordset& rs, const GalleryGroup& group) {
    const QVariant varField = rs.Fields(group.strValueField);
    if (group.strCaption == QLatin1String("Type"))
        return Flag(varField, "ServiceTemplate", "Service Template", "ServiceItemTemplate",
                    "Service Item Template");
    if (group.strCaption == QLatin1String("Source"))
        return Flag(varField, "InBuilt", "In Built", "UserTemplate", "User Template");
    if (varField.isNull())
        return {};
    const bool blnYear = group.strCaption == QLatin1String("Year Created");
    if (blnYear || group.strCaption == QLatin1String("Month & Year Created")) {
        const QDate dtm = varField.toDate();
        if (!dtm.isValid())
            return {};
        const QString strYear = QString::number(dtm.year());
        const QString strText = blnYear ? strYear
                                        : QLocale(QLocale::English).monthName(dtm.month()) +
                                              QStringLiteral(" ") + strYear;
        return {strText, strText};
    }
    const QString strText = VB::CStr(varField);
    return {strText, strText};
}
} // namespace

// ---------------------------------------------------------------- ShowTemplates

void ctlTemplateGallery::ShowTemplates(const QString& strNodeKeyToSelect) {
    QString strErrorMessage;
    ShowTemplates(strNodeKeyToSelect, strErrorMessage);
}

void ctlTemplateGallery::ShowTemplates(const QString& strNodeKeyToSelect,
                                       QString& strErrorMessage) {
    Entry(QStringLiteral("ShowTemplates"))
        .Arg(QStringLiteral("strNodeKeyToSelect"), strNodeKeyToSelect)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetTemplates(strWhereClauseInEffect, 4, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            if (!rs)
                throw VBError(VBErr::ObjectNotSet);
            m_core->ShowEmptyView(optShowAsList->isChecked());
            if (m_core->TreeShown())
                LoadTree(*rs);
            else
                LoadList(*rs);
            if (m_core->TreeShown() && !strNodeKeyToSelect.isEmpty() &&
                tvwTemplates->KeyExists(strNodeKeyToSelect))
                GalleryCore::SelectAndClick(tvwTemplates->Nodes(strNodeKeyToSelect),
                                            [&](QTreeWidgetItem* i) { tvwTemplates_NodeClick(i); });
        });
}

// Type and Source in their own words; the others show their field.
void ctlTemplateGallery::LoadList(Recordset& rs) {
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("TemplateID")));
        const QString strKey = m_core->ListKey(lngID);
        if (lvwTemplates->KeyExists(strKey))
            continue;
        const bool blnService = rs.Fields(QStringLiteral("IsServiceTemplate")).toBool();
        VBNode item = lvwTemplates->AddItem(
            strKey, blnService ? QStringLiteral("Service") : QStringLiteral("Service Item"),
            ItemImage(rs));
        item.setSubItems(1, ItemText(rs));
        item.setSubItems(2, Decoded(rs.Fields(QStringLiteral("TemplateOccasion"))));
        item.setSubItems(3, rs.Fields(QStringLiteral("IsInBuilt")).toBool()
                                ? QStringLiteral("In Built")
                                : QStringLiteral("User Created"));
        item.setSubItems(4, VB::Text(rs.Fields(QStringLiteral("TemplateAuthor"))));
        item.setSubItems(5, VB::Text(rs.Fields(QStringLiteral("TemplateDateCreated"))));
        item.setTag(lngID);
    }
}

void ctlTemplateGallery::LoadTree(Recordset& rs) {
    const QString strGroupBy = cboGroupByProperty->currentText();
    const GalleryGroup group = Table().Group(strGroupBy);
    m_core->AddRoot();
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("TemplateID")));
        const GroupOf of = GroupOfRow(rs, group);
        const QString strGroupKey = GalleryCore::GroupKey(strGroupBy, of.varValue);
        m_core->EnsureGroup(strGroupKey, strGroupBy, of.varValue, [&] { return of.strText; });
        const QString strItemKey = m_core->ItemKey(strGroupKey, lngID);
        if (tvwTemplates->KeyExists(strItemKey))
            continue;
        VBNode item = tvwTemplates->Add(strGroupKey, tvwChild, strItemKey, ItemText(rs));
        item.setImage(ItemImage(rs));
        item.setTag(GalleryCore::GroupValue(of.varValue));
    }
    SortTreeview();
    m_core->ExpandAfterLoad();
}

// The description; without one, the author, " on " and the date.
QString ctlTemplateGallery::ItemText(const Recordset& rs) const {
    const QVariant varDescription = rs.Fields(QStringLiteral("TemplateDescription"));
    if (!varDescription.isNull())
        return Decoded(varDescription);
    const QVariant varDate = rs.Fields(QStringLiteral("TemplateDateCreated"));
    return VB::Text(rs.Fields(QStringLiteral("TemplateAuthor"))) + QStringLiteral(" on ") +
           (varDate.isNull() ? QString()
                             : VB::Format(varDate.toDateTime(), QStringLiteral("Medium Date")));
}

QVariant ctlTemplateGallery::ItemImage(const Recordset& rs) {
    constexpr qint16 kServiceTemplate = 3;     // imgServiceTemplate
    constexpr qint16 kServiceItemTemplate = 4; // imgServiceItemTemplate
    return rs.Fields(QStringLiteral("IsServiceTemplate")).toBool() ? kServiceTemplate
                                                                   : kServiceItemTemplate;
}

// Only a text holding "@@" is decoded; Null gives an empty text.
QString ctlTemplateGallery::Decoded(const QVariant& varText) {
    const QString strText = VB::Text(varText);
    if (VB::InStr(strText, QStringLiteral("@@")) == 0)
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

// ---------------------------------------------------------------- LoadTemplates

void ctlTemplateGallery::LoadTemplates() {
    Entry(QStringLiteral("LoadTemplates")).Enter().FullErrorBox([&] {
        QString strErrorMessage;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetTemplates(QString(), 4, strErrorMessage, rs);
        if (!rs)
            throw VBError(VBErr::ObjectNotSet);
        lvwTemplates->Clear();
        LoadList(*rs);
    });
}

void ctlTemplateGallery::SortTreeview() {
    m_core->SortTreeview();
}

void ctlTemplateGallery::tvwTemplates_Expand(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node && GalleryCore::IsFolderImage(VBNode(Node).Image()))
            VBNode(Node).setImage(QStringLiteral("imgFolderOpen"));
    });
}

void ctlTemplateGallery::tvwTemplates_Collapse(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node && GalleryCore::IsFolderImage(VBNode(Node).Image()))
            VBNode(Node).setImage(QStringLiteral("imgFolderClosed"));
    });
}

// ---------------------------------------------------------------- View switches

void ctlTemplateGallery::optShowAsTree_Click() {
    Entry(QStringLiteral("optShowAsTree_Click")).Enter().Guarded([&] {
        if (blnLoaded)
            ShowTemplates();
    });
}

void ctlTemplateGallery::optShowAsList_Click() {
    Entry(QStringLiteral("optShowAsList_Click")).Enter().Guarded([&] {
        if (blnLoaded)
            ShowTemplates();
    });
}

void ctlTemplateGallery::cboGroupByProperty_Click() {
    m_core->cboGroupByProperty_Click(blnLoaded, [&] { ShowTemplates(); });
}

// ---------------------------------------------------------------- The filter

QString ctlTemplateGallery::GetFilterAsWhereClause() {
    return m_core->GetFilterAsWhereClause(strFilterInPlainEnglish, strWhereClauseInEffect);
}

void ctlTemplateGallery::txtCriterion_Change() {
    ErrorReport::Guard([&] { m_core->RestartTimer(); });
}

void ctlTemplateGallery::Timer1_Timer() {
    m_core->Timer1_Timer(blnLoaded, [&] { CheckIfShouldApplyFilter(); });
}

void ctlTemplateGallery::cboProperty_Click() {
    m_core->cboProperty_Click([&] { CheckIfShouldApplyFilter(); });
}

void ctlTemplateGallery::cboOperator_Click() {
    m_core->cboOperator_Click([&] { CheckIfShouldApplyFilter(); });
}

// All three inputs make the filter active; anything else makes it inactive.
// Either way the view loads again and the host hears of the whole.
void ctlTemplateGallery::CheckIfShouldApplyFilter() {
    Entry(QStringLiteral("CheckIfShouldApplyFilter")).Spelt().Enter().ErrorBox([&] {
        if (!blnLoaded)
            return;
        if (!txtCriterion->text().isEmpty() && !cboProperty->currentText().isEmpty() &&
            !cboOperator->currentText().isEmpty()) {
            m_core->SetFilterStateActive(QStringLiteral("(FILTER ACTIVE)"));
            GetFilterAsWhereClause();
        } else {
            m_core->SetFilterStateInactive(strFilterInPlainEnglish, strWhereClauseInEffect);
        }
        ShowTemplates();
        emit TemplateClicked(QStringLiteral("All"), QStringLiteral("All Templates"),
                             strWhereClauseInEffect, strFilterInPlainEnglish,
                             QStringLiteral("TemplatesGroup"));
    });
}
