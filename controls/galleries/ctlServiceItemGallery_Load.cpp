// ctlServiceItemGallery: ShowServiceItems, the tree and list loads, sorting,
// folder pictures and the show-all switch of the status bar.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBStatusBar.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <optional>

using namespace modQVLTControls;

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");

// Whether the image list holds a picture of the type: the one whose number is the type id.
bool HasPicture(const VBImageList& iml, qint32 lngTypeID) {
    return lngTypeID >= 1 && lngTypeID <= iml.Count() - 2;
}

// Adds 1 to a 16-bit counter, overflowing as the runtime does.
void Increment(qint16& intCounter) {
    intCounter = VB::CInt(static_cast<qint32>(intCounter) + 1);
}
} // namespace

// ---------------------------------------------------------------- ShowServiceItems

void ctlServiceItemGallery::ShowServiceItems(const QString& strNodeKeyToSelect) {
    QString strErrorMessage;
    ShowServiceItems(strNodeKeyToSelect, strErrorMessage);
}

void ctlServiceItemGallery::ShowServiceItems(const QString& strNodeKeyToSelect,
                                             QString& strErrorMessage) {
    const auto entry = Entry(QStringLiteral("ShowServiceItems"))
                           .Arg(QStringLiteral("strNodeKeyToSelect"), strNodeKeyToSelect)
                           .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
                           .Enter();
    // The tree is drawn again on every way out, a failure in the middle of the load too.
    RedrawLock lock(tvwServiceItems);
    entry.ErrorReturn(strErrorMessage,
                      [&] { ShowServiceItemsUnlocked(strNodeKeyToSelect, strErrorMessage); });
}

void ctlServiceItemGallery::ShowServiceItemsUnlocked(const QString& strNodeKeyToSelect,
                                                     QString& strErrorMessage) {
    const QString strLogPrefix =
        QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems : ");
    // A short list in effect takes the place of every other road.
    if (lngShortListID != 0) {
        ApplyShortList(lngShortListID, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            TraceLog::Instance().WriteErrorLine(strLogPrefix + strErrorMessage);
        return;
    }

    QString strWhere;
    bool blnFilterInEffect = false;
    bool blnNoFilter = false;
    bool blnQuickRoad = false;
    if (!txtQuickFilter->text().isEmpty()) {
        strWhere = QuickFilterClause();
        blnFilterInEffect = true;
        blnQuickRoad = true;
    } else if (!txtCriterion->text().isEmpty()) {
        if (cboProperty->currentText().isEmpty() || cboOperator->currentText().isEmpty()) {
            tvwServiceItems->Clear();
            return;
        }
        strWhere = GetFilterAsWhereClause();
        blnFilterInEffect = true;
    } else {
        blnNoFilter = true;
    }

    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItemsJoined(strWhere, 4, strErrorMessage, rs);
    // The quick road reads on regardless: a clause that fails leaves the view empty.
    if (!blnQuickRoad && !strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(strLogPrefix + strErrorMessage);
        return;
    }

    m_core->ShowEmptyView(optShowAsList->isChecked());

    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    if (rs->RecordCount() == 0) {
        rs.reset();
        return;
    }
    rs->MoveLast();
    const qint16 intRecordCount = VB::CInt(rs->RecordCount());
    Q_UNUSED(intRecordCount);
    rs->MoveFirst();

    qint16 intAdded = 0;
    QString strIDs;
    bool blnNaturalEnd = false;
    if (tvwServiceItems->isHidden())
        LoadList(*rs, intAdded, strIDs);
    else
        blnNaturalEnd = LoadTree(*rs, intAdded, strIDs);

    rs.reset();
    TrimData(strIDs, QStringLiteral(","));

    if (m_core->PanelOpen()) {
        if (blnNoFilter)
            emit SIListFilterChanged(QStringLiteral("All"), QString(), QString());
        else
            emit SIListFilterChanged(strIDs, strFilterInPlainEnglish, strWhereClauseInEffect);
    }

    if (!tvwServiceItems->isHidden() && !strNodeKeyToSelect.isEmpty() &&
        tvwServiceItems->KeyExists(strNodeKeyToSelect)) {
        GalleryCore::SelectAndClick(tvwServiceItems->Nodes(strNodeKeyToSelect),
                                    [&](QTreeWidgetItem* i) { tvwServiceItems_NodeClick(i); });
    }

    if (blnNaturalEnd) {
        const QString strCount = QString::number(intAdded);
        SetStatusPanel(1, blnFilterInEffect ? strCount + QStringLiteral(" Service Items displayed")
                                            : QStringLiteral("All ") + strCount +
                                                  QStringLiteral(" Service Items displayed"));
    }
}

// ---------------------------------------------------------------- List load

void ctlServiceItemGallery::LoadList(Recordset& rs, qint16& intAdded, QString& strIDs) {
    while (!rs.Eof()) {
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("ServiceItems.ServiceItemID")));
        if (lngID != 1 && !lvwServiceItems->KeyExists(m_core->ListKey(lngID))) {
            AddListItem(rs, lngID);
            Increment(intAdded);
            // The list never sets a group value: the id list is a run of commas.
            strIDs += QStringLiteral(",");
        }
        rs.MoveNext();
    }
    SortListAgain();
}

void ctlServiceItemGallery::AddListItem(const Recordset& rs, qint32 lngID) {
    const QVariant varType = rs.Fields(QStringLiteral("ServiceItems.ServiceItemTypeID"));
    const qint32 lngType = VB::CLng(varType);
    VBNode item = lvwServiceItems->AddItem(
        m_core->ListKey(lngID), VB::Text(rs.Fields(QStringLiteral("ServiceItemTypeName"))));
    SetNodeImage(item, lngType);
    const QVariant varDescription = rs.Fields(QStringLiteral("ServiceItemDescription"));
    if (!varDescription.isNull())
        item.setSubItems(1, Decoded(VB::CStr(varDescription)));
    const QStringList lstFields = {QStringLiteral("ServiceItemSource"),
                                   QStringLiteral("ServiceItemProvider"),
                                   QStringLiteral("ServiceItemDateCreated")};
    for (qint32 i = 0; i < lstFields.size(); ++i) {
        const QVariant varValue = rs.Fields(lstFields.at(i));
        if (!varValue.isNull())
            item.setSubItems(i + 2, VB::CStr(varValue));
    }
    item.setTag(lngType);
}

// ---------------------------------------------------------------- Tree load

bool ctlServiceItemGallery::LoadTree(Recordset& rs, qint16& intAdded, QString& strIDs) {
    const QString strGroupBy = cboGroupByProperty->currentText();
    const GalleryGroup group = Table().Group(strGroupBy);
    const QString& strValueField = group.strValueField;
    const QString& strTextField = group.strTextField;

    m_core->AddRoot();
    // The nodes are made and sorted under the root while it stands outside the view, which
    // then takes the whole tree in one step.
    std::optional<VBTreeWidget::DetachedBuild> build(std::in_place, tvwServiceItems);
    // Rows of one item follow each other (one per keyword and point). Except under
    // Keyword grouping they all give the same item key, which the first row has made.
    const bool blnGroupIsItemField = strGroupBy != QLatin1String("Keyword");
    const bool blnGroupIsType = strGroupBy == QLatin1String("Type");
    qint32 lngPreviousID = 0;
    bool blnNaturalEnd = false;
    while (!rs.Eof()) {
        blnNaturalEnd = true;
        const qint32 lngID = VB::CLng(rs.Fields(QStringLiteral("ServiceItems.ServiceItemID")));
        const bool blnSameItem = blnGroupIsItemField && lngID == lngPreviousID;
        lngPreviousID = lngID;
        if (lngID != 1 && !blnSameItem) {
            const QVariant varValue = rs.Fields(strValueField);
            const QString strGroupValue = GalleryCore::GroupValue(varValue);
            const QString strGroupKey = strGroupBy + QStringLiteral(";") + strGroupValue;
            m_core->EnsureGroup(strGroupKey, strGroupBy, varValue,
                                [&] { return Decoded(VB::Text(rs.Fields(strTextField))); });
            const QString strItemKey = m_core->ItemKey(strGroupKey, lngID);
            if (!tvwServiceItems->KeyExists(strItemKey)) {
                const QString strText = ItemText(rs);
                if (!blnShowAll && intAdded >= lngMaxSIsToShow) {
                    SetStatusPanel(1, QStringLiteral("Last ") + QString::number(intAdded) +
                                          QStringLiteral(" Service Items displayed"));
                    SetStatusPanel(2, QStringLiteral("Show All"));
                    blnNaturalEnd = false;
                    break;
                }
                const qint32 lngTypeID = VB::CLng(
                    blnGroupIsType ? varValue
                                   : rs.Fields(QStringLiteral("ServiceItems.ServiceItemTypeID")));
                // A type with a picture of its own gets it as the node is made.
                const bool blnPicture = HasPicture(*imlServiceItems, lngTypeID);
                VBNode item = tvwServiceItems->Add(strGroupKey, tvwChild, strItemKey, strText,
                                                   blnPicture ? QVariant(lngTypeID) : QVariant());
                if (!blnPicture)
                    SetNodeImage(item, lngTypeID);
                Increment(intAdded);
                item.setTag(strGroupValue);
                strIDs += QStringLiteral(",") + QString::number(lngID);
            }
        }
        rs.MoveNext();
    }
    SortTreeview();
    build.reset();
    m_core->ExpandAfterLoad();
    return blnNaturalEnd;
}

QString ctlServiceItemGallery::ItemText(const Recordset& rs) const {
    const QVariant varDescription = rs.Fields(QStringLiteral("ServiceItemDescription"));
    if (!varDescription.isNull())
        return Decoded(VB::CStr(varDescription));
    const QVariant varContent = rs.Fields(QStringLiteral("ServiceItemContent"));
    if (!varContent.isNull()) {
        const QString strContent = VB::CStr(varContent);
        return VB::Len(strContent) > 15 ? VB::Left(strContent, 15) : strContent;
    }
    return VB::Text(rs.Fields(QStringLiteral("ServiceItemTypeName"))) + QStringLiteral(" from ") +
           VB::Text(rs.Fields(QStringLiteral("ServiceItemSource")));
}

// The display form of a stored text: only a text holding "@@" is decoded.
QString ctlServiceItemGallery::Decoded(const QString& strText) const {
    if (VB::InStr(strText, QStringLiteral("@@")) == 0)
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

// The picture of a service item is the one whose number is its type id. A type
// without a picture of its own keeps the number and shows none.
void ctlServiceItemGallery::SetNodeImage(VBNode& node, qint32 lngTypeID) {
    if (HasPicture(*imlServiceItems, lngTypeID))
        node.setImage(lngTypeID);
    else
        node.Item()->setData(0, VBRole::Image, lngTypeID);
}

// ---------------------------------------------------------------- Sorting

void ctlServiceItemGallery::SortTreeview() {
    m_core->SortTreeview();
}

void ctlServiceItemGallery::lvwServiceItems_ColumnClick(int intColumn) {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("lvwServiceItems_ColumnClick"))
            .Arg(QStringLiteral("ColumnHeader"), intColumn + 1)
            .Enter();
        // Sorted stays on with the key of the column; the order is never reversed.
        m_blnListSorted = true;
        m_intListSortKey = intColumn;
        SortListAgain();
    });
}

void ctlServiceItemGallery::SortListAgain() {
    if (m_blnListSorted)
        lvwServiceItems->sortItems(m_intListSortKey, Qt::AscendingOrder);
}

// ---------------------------------------------------------------- Folder pictures

void ctlServiceItemGallery::tvwServiceItems_Expand(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node)
            VBNode(Node).setImage(QStringLiteral("imgFolderOpen"));
    });
}

void ctlServiceItemGallery::tvwServiceItems_Collapse(QTreeWidgetItem* Node) {
    ErrorReport::Guard([&] {
        if (Node)
            VBNode(Node).setImage(QStringLiteral("imgFolderClosed"));
    });
}

// ---------------------------------------------------------------- Status bar

void ctlServiceItemGallery::StatusBar1_PanelClick(qint32 intPanel) {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("StatusBar1_PanelClick"))
            .Arg(QStringLiteral("Panel"), intPanel)
            .Enter();
        if (intPanel != 2)
            return;
        if (StatusPanelText(2) == QLatin1String("Show All")) {
            blnShowAll = true;
            SetStatusPanel(2, QStringLiteral("Show Last ") + QString::number(lngMaxSIsToShow) +
                                  QStringLiteral(" only"));
        } else {
            SetStatusPanel(2, QStringLiteral("Show All"));
            blnShowAll = false;
        }
        const VBNode node = tvwServiceItems->SelectedItem();
        ShowServiceItems(node ? node.Key() : QString());
    });
}
