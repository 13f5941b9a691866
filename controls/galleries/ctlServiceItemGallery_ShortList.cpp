// ctlServiceItemGallery: showing a short list in place of the normal rows.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/ShortListPicker.h"
#include "foundations/TraceLine.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QApplication>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QRadioButton>

#include <optional>

using namespace modQVLTControls;

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");
} // namespace

// The picker's answer goes straight to ApplyShortList: 0 (nothing chosen)
// switches the short list off. Neither error text is looked at, so a failure
// shows nothing here.
void ctlServiceItemGallery::cmdGetShortList_Click() {
    Entry(QStringLiteral("cmdGetShortList_Click")).Enter().Guarded([&] {
        QString strErrorMessage;
        const qint32 lngChosen = ShortListPicker::Instance().SelectShortList(strErrorMessage);
        ApplyShortList(lngChosen, strErrorMessage);
    });
}

void ctlServiceItemGallery::ApplyShortList(qint32 lngShortListID) {
    QString strErrorMessage;
    ApplyShortList(lngShortListID, strErrorMessage);
}

void ctlServiceItemGallery::ApplyShortList(qint32 lngShortListID, QString& strErrorMessage) {
    Entry(QStringLiteral("ApplyShortList"))
        .Arg(QStringLiteral("lngShortListID"), lngShortListID)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            this->lngShortListID = lngShortListID;
            const VBNode selected = tvwServiceItems->SelectedItem();
            const QString strRememberedKey = selected ? selected.Key() : QString();
            tvwServiceItems->Clear();

            if (lngShortListID == 0) {
                lblShortListDescription->clear();
                lblShortListCreatedBy->clear();
                lblShortListCreatedDate->clear();
                ShowServiceItems();
                SetFilterStateInactive();
                return;
            }

            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetShortLists(QStringLiteral("ShortListID = ") +
                                                     QString::number(lngShortListID),
                                                 strErrorMessage, rs);
            if (!rs || rs->RecordCount() == 0) {
                strErrorMessage =
                    QStringLiteral(
                        "QVLTCONTROLS:ctlServiceItemGallery:ApplyShortList : ShortList ") +
                    QString::number(lngShortListID) + QStringLiteral(" not found");
                TraceLog::Instance().WriteErrorLine(strErrorMessage);
                return;
            }
            // A Null leaves the former value standing.
            const QVariant varDescription = rs->Fields(QStringLiteral("ShortListDescription"));
            const QVariant varCreated = rs->Fields(QStringLiteral("ShortListDateCreated"));
            const QVariant varCreatedBy = rs->Fields(QStringLiteral("ShortListCreatedBy"));
            if (!varDescription.isNull())
                lblShortListDescription->setText(VB::CStr(varDescription));
            if (!varCreated.isNull())
                lblShortListCreatedDate->setText(VB::CStr(varCreated));
            if (!varCreatedBy.isNull())
                lblShortListCreatedBy->setText(VB::CStr(varCreatedBy));
            const QString strDescription = VB::Text(varDescription);
            const QString strContent = VB::Text(rs->Fields(QStringLiteral("ShortListContent")));
            rs.reset();

            m_core->ShowEmptyView(optShowAsList->isChecked());

            DataAccess::Instance().GetServiceItemsJoined(QString(), 4, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(
                    QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:ApplyShortList : ") +
                    strErrorMessage);
                return;
            }
            if (!rs)
                throw VBError(VBErr::ObjectNotSet);
            if (rs->RecordCount() == 0)
                return;
            rs->MoveLast();
            VB::CInt(rs->RecordCount());
            rs->MoveFirst();

            ApplyShortListRows(*rs, strContent);

            emit ShortListApplied(strContent, strDescription + QStringLiteral(" Short-List"),
                                  QStringLiteral("ShortList;") + QString::number(lngShortListID));
            rs.reset();

            if (!tvwServiceItems->isHidden() && !strRememberedKey.isEmpty() &&
                tvwServiceItems->KeyExists(strRememberedKey)) {
                GalleryCore::SelectAndClick(
                    tvwServiceItems->Nodes(strRememberedKey),
                    [&](QTreeWidgetItem* i) { tvwServiceItems_NodeClick(i); });
            }
            m_core->SetFilterStateActive(QStringLiteral("(Short-List)"));
        });
}

namespace {
// Where each item's first row lies in the recordset, found in one pass, so that a list of
// hundreds of items does not walk the whole library once per item.
QHash<qint32, qint32> FirstRowOfEachItem(Recordset& rs) {
    QHash<qint32, qint32> firstRowOf;
    firstRowOf.reserve(rs.RecordCount());
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("ServiceItems.ServiceItemID")));
        if (!firstRowOf.contains(lngID))
            firstRowOf.insert(lngID, rs.AbsolutePosition());
    }
    return firstRowOf;
}
} // namespace

// The items of the short list in the order of its content, one row per item (the
// first of its rows). A list of one item adds nothing.
void ctlServiceItemGallery::ApplyShortListRows(Recordset& rs, const QString& strContent) {
    const qint32 lngCount = GetInstances(strContent, QStringLiteral(",")) + 1;
    const bool blnTree = !tvwServiceItems->isHidden();
    if (lngCount <= 1)
        return;
    const QString strGroupBy = cboGroupByProperty->currentText();
    const GalleryGroup group = Table().Group(strGroupBy);
    // As in a load, the nodes are made and sorted under the root while it stands outside the
    // view, which takes the whole tree back in one step.
    std::optional<VBTreeWidget::DetachedBuild> build;
    if (blnTree) {
        m_core->AddRoot();
        build.emplace(tvwServiceItems);
    }
    const QHash<qint32, qint32> firstRowOf = FirstRowOfEachItem(rs);
    for (qint32 i = 1; i <= lngCount; ++i) {
        const qint32 lngID = VB::CLng(GetInstance(strContent, QStringLiteral(","), i));
        // An id without a row has no current record: the read fails.
        const auto row = firstRowOf.constFind(lngID);
        if (row == firstRowOf.constEnd())
            throw VBError(3021, QStringLiteral("No current record."));
        rs.SetAbsolutePosition(*row);
        if (!blnTree) {
            if (!lvwServiceItems->KeyExists(m_core->ListKey(lngID)))
                AddListItem(rs, lngID);
            continue;
        }
        const QVariant varValue = rs.Fields(group.strValueField);
        const QString strGroupValue = GalleryCore::GroupValue(varValue);
        const QString strGroupKey = strGroupBy + QStringLiteral(";") + strGroupValue;
        // The short list shows a group's text as it is stored.
        m_core->EnsureGroup(strGroupKey, strGroupBy, varValue,
                            [&] { return VB::Text(rs.Fields(group.strTextField)); });
        const QString strItemKey = m_core->ItemKey(strGroupKey, lngID);
        if (!tvwServiceItems->KeyExists(strItemKey)) {
            VBNode item = tvwServiceItems->Add(strGroupKey, tvwChild, strItemKey, ItemText(rs));
            SetNodeImage(item,
                         VB::CLng(rs.Fields(QStringLiteral("ServiceItems.ServiceItemTypeID"))));
            item.setTag(strGroupValue);
        }
    }
    if (blnTree) {
        SortTreeview();
        build.reset();
        m_core->ExpandAfterLoad();
    }
}
