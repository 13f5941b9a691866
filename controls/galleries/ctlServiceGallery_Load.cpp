// ctlServiceGallery: ShowServices, LoadServices, sorting, the view switches and
// the main filter.

#include "galleries/ctlServiceGallery.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"
#include "galleries/GalleryCore.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

using namespace modQVLTControls;

namespace {
constexpr qint16 kServicePicture = 3; // imgService
} // namespace

// ---------------------------------------------------------------- ShowServices

void ctlServiceGallery::ShowServices(const QString& strNodeKeyToSelect) {
    QString strErrorMessage;
    ShowServices(strNodeKeyToSelect, strErrorMessage);
}

void ctlServiceGallery::ShowServices(const QString& strNodeKeyToSelect, QString& strErrorMessage) {
    Entry(QStringLiteral("ShowServices"))
        .Arg(QStringLiteral("strNodeKeyToSelect"), strNodeKeyToSelect)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            std::unique_ptr<Recordset> rs;
            bool blnNoFilter = false;
            if (!ReadRows(rs, blnNoFilter, strErrorMessage))
                return;
            m_core->ShowEmptyView(optShowAsList->isChecked());
            if (!rs)
                throw VBError(VBErr::ObjectNotSet);
            QString strIDs;
            if (m_core->TreeShown())
                LoadTree(*rs, strIDs);
            else
                LoadList(*rs, strIDs);
            rs.reset();
            TrimData(strIDs, QStringLiteral(","));
            if (m_core->PanelOpen()) {
                if (blnNoFilter)
                    emit ServiceListFilterChanged(QStringLiteral("All"), QString(), QString());
                else
                    emit ServiceListFilterChanged(strIDs, strFilterInPlainEnglish,
                                                  strWhereClauseInEffect);
            }
            if (m_core->TreeShown() && !strNodeKeyToSelect.isEmpty() &&
                tvwServices->KeyExists(strNodeKeyToSelect))
                SelectNode(tvwServices->Nodes(strNodeKeyToSelect));
        });
}

// The rows under the main filter. A criterion without both combos clears the
// tree and loads nothing; a message of the data library is shown, and the view
// stays as it was.
bool ctlServiceGallery::ReadRows(std::unique_ptr<Recordset>& rs, bool& blnNoFilter,
                                 QString& strErrorMessage) {
    QString strWhere;
    if (txtCriterion->text().isEmpty()) {
        blnNoFilter = true;
    } else if (!cboProperty->currentText().isEmpty() && !cboOperator->currentText().isEmpty()) {
        strWhere = GetFilterAsWhereClause();
    } else {
        tvwServices->Clear();
        return false;
    }
    DataAccess::Instance().GetServices(strWhere, 4, strErrorMessage, rs);
    if (strErrorMessage.isEmpty())
        return true;
    Platform::Current().MsgBox(strErrorMessage);
    return false;
}

// Every row is an item; the id list is a run of commas, as in the item gallery.
void ctlServiceGallery::LoadList(Recordset& rs, QString& strIDs) {
    static const QStringList lstFields = {
        QStringLiteral("ServiceType"), QStringLiteral("ServiceTheme"),
        QStringLiteral("ServiceDateCreated"), QStringLiteral("ServiceDateLastDelivered"),
        QStringLiteral("ServiceProvider")};
    for (; !rs.Eof(); rs.MoveNext()) {
        const QVariant varID = rs.Fields(QStringLiteral("Services.ServiceID"));
        VBNode item = lvwServices->AddItem(m_core->ListKey(VB::CLng(varID)),
                                           Decoded(rs.Fields(QStringLiteral("ServiceName"))),
                                           QVariant(), kServicePicture);
        for (qint32 i = 0; i < lstFields.size(); ++i) {
            const QVariant varValue = rs.Fields(lstFields.at(i));
            if (!varValue.isNull())
                item.setSubItems(i + 1, VB::CStr(varValue));
        }
        item.setTag(varID);
        strIDs += QStringLiteral(",");
    }
}

void ctlServiceGallery::LoadTree(Recordset& rs, QString& strIDs) {
    const QString strGroupBy = cboGroupByProperty->currentText();
    m_core->AddRoot();
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("Services.ServiceID")));
        const QVariant varValue = GroupValueOf(rs, strGroupBy);
        const QString strGroupValue = GalleryCore::GroupValue(varValue);
        const QString strGroupKey = strGroupBy + QStringLiteral(";") + strGroupValue;
        m_core->EnsureGroup(strGroupKey, strGroupBy, varValue, [&] { return strGroupValue; });
        const QString strItemKey = m_core->ItemKey(strGroupKey, lngID);
        if (tvwServices->KeyExists(strItemKey))
            continue;
        VBNode item = tvwServices->Add(strGroupKey, tvwChild, strItemKey, ItemText(rs));
        item.setImage(kServicePicture);
        item.setTag(strGroupValue);
        strIDs += QStringLiteral(",") + QString::number(lngID);
    }
    SortTreeview();
    m_core->ExpandAfterLoad();
}

// The value of a row's group, which is also the group's text: the field's text,
// the year of the creation date, or its month's full name and the year. Null
// when the field is Null (or holds no date).
QVariant ctlServiceGallery::GroupValueOf(const Recordset& rs, const QString& strGroupBy) const {
    const QVariant varField = rs.Fields(Table().Group(strGroupBy).strValueField);
    if (varField.isNull())
        return varField;
    const bool blnYear = strGroupBy == QLatin1String("Year Created");
    if (!blnYear && strGroupBy != QLatin1String("Month & Year Created"))
        return Decoded(varField);
    const QDate dtm = varField.toDate();
    if (!dtm.isValid())
        return QVariant();
    const QString strYear = QString::number(dtm.year());
    if (blnYear)
        return strYear;
    return QLocale(QLocale::English).monthName(dtm.month()) + QStringLiteral(" ") + strYear;
}

// The name; a service without one shows its theme and " Service".
QString ctlServiceGallery::ItemText(const Recordset& rs) const {
    const QVariant varName = rs.Fields(QStringLiteral("ServiceName"));
    if (!varName.isNull())
        return Decoded(varName);
    return VB::Text(rs.Fields(QStringLiteral("ServiceTheme"))) + QStringLiteral(" Service");
}

// The display form of a stored text: only a text holding "@@" is decoded. Null
// gives an empty text.
QString ctlServiceGallery::Decoded(const QVariant& varText) {
    const QString strText = VB::Text(varText);
    if (VB::InStr(strText, QStringLiteral("@@")) == 0)
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

// ---------------------------------------------------------------- LoadServices

// The list alone, every service. Its columns do not follow the list's headers
// (date created first, then last delivered, name, theme, provider); hosts that
// call it know so.
void ctlServiceGallery::LoadServices() {
    Entry(QStringLiteral("LoadServices")).Enter().FullErrorBox([&] {
        QString strErrorMessage;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetAllServices(QString(), 4, strErrorMessage, rs);
        if (!rs)
            throw VBError(VBErr::ObjectNotSet);
        lvwServices->Clear();
        static const QStringList lstFields = {
            QStringLiteral("ServiceDateLastDelivered"), QStringLiteral("ServiceName"),
            QStringLiteral("ServiceTheme"), QStringLiteral("ServiceProvider")};
        for (; !rs->Eof(); rs->MoveNext()) {
            const QVariant varID = rs->Fields(QStringLiteral("ServiceID"));
            VBNode item =
                lvwServices->AddItem(m_core->ListKey(VB::CLng(varID)),
                                     VB::Text(rs->Fields(QStringLiteral("ServiceDateCreated"))),
                                     QVariant(), QStringLiteral("imgService"));
            for (qint32 i = 0; i < lstFields.size(); ++i) {
                const QVariant varValue = rs->Fields(lstFields.at(i));
                if (!varValue.isNull())
                    item.setSubItems(i + 1, VB::CStr(varValue));
            }
            item.setTag(varID);
        }
    });
}

// ---------------------------------------------------------------- Sorting, pictures

void ctlServiceGallery::SortTreeview() {
    m_core->SortTreeview();
}

void ctlServiceGallery::tvwServices_Expand(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node)
            VBNode(Node).setImage(QStringLiteral("imgFolderOpen"));
    });
}

void ctlServiceGallery::tvwServices_Collapse(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node)
            VBNode(Node).setImage(QStringLiteral("imgFolderClosed"));
    });
}

// ---------------------------------------------------------------- View switches

void ctlServiceGallery::optShowAsTree_Click() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("optShowAsTree_Click")).Enter();
        if (blnLoaded)
            ShowServices();
    });
}

void ctlServiceGallery::optShowAsList_Click() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("optShowAsList_Click")).Enter();
        if (blnLoaded)
            ShowServices();
    });
}

void ctlServiceGallery::cboGroupByProperty_Click() {
    m_core->cboGroupByProperty_Click(blnLoaded, [&] { ShowServices(); });
}

// ---------------------------------------------------------------- Main filter

QString ctlServiceGallery::GetFilterAsWhereClause() {
    return m_core->GetFilterAsWhereClause(strFilterInPlainEnglish, strWhereClauseInEffect);
}

void ctlServiceGallery::txtCriterion_Change() {
    ErrorReport::Guard([&] { m_core->RestartTimer(); });
}

// The apostrophe key takes back what it just typed: it would break the clause.
void ctlServiceGallery::txtCriterion_KeyUp(qint16& KeyCode, qint16 Shift) {
    Q_UNUSED(Shift);
    m_core->TakeBackApostrophe(KeyCode);
}

void ctlServiceGallery::Timer1_Timer() {
    m_core->Timer1_Timer(blnLoaded, [&] { CheckIfShouldApplyFilter(); });
}

void ctlServiceGallery::cboProperty_Click() {
    m_core->cboProperty_Click([&] { CheckIfShouldApplyFilter(); });
}

void ctlServiceGallery::cboOperator_Click() {
    m_core->cboOperator_Click([&] { CheckIfShouldApplyFilter(); });
}

// Its event keeps the item gallery's words ("All Service Items", "SIGroup").
void ctlServiceGallery::CheckIfShouldApplyFilter() {
    Entry(QStringLiteral("CheckIfShouldApplyFilter")).Spelt().Enter().ErrorBox([&] {
        if (!blnLoaded)
            return;
        strLastClickedKey.clear();
        if (!m_core->CheckFilter(strFilterInPlainEnglish, strWhereClauseInEffect,
                                 [&] { ShowServices(); }))
            return;
        emit ServiceClicked(QStringLiteral("All"), QStringLiteral("All Service Items"),
                            strWhereClauseInEffect, strFilterInPlainEnglish,
                            QStringLiteral("SIGroup"));
    });
}

// The caption of the button is the state of the panel. Afterwards the visible
// view has the focus.
void ctlServiceGallery::cmdShowHideFilter_Click() {
    Entry(QStringLiteral("cmdShowHideFilter_Click")).Spelt().Enter().ErrorBox([&] {
        const qint32 H = Twips::FromPixels(height());
        if (m_core->PanelOpen()) {
            PlaceViews(740, H - 840);
            m_core->SetPanelOpen(false);
        } else {
            PlaceViews(3200, H - 3300);
            m_core->SetPanelOpen(true);
        }
        m_core->ShownView()->setFocus();
    });
}
