#include "shortlists/ctlShortList.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QLabel>
#include <QPushButton>

#include <optional>

// The two trees: tvwAvailable filled from the criteria, tvwShortList the
// selection; the moves between them, which keep the type nodes of both right,
// and the counts and buttons that follow each action.
//
// Keys are the same in both trees: "Root", "Type;" and the type id for a
// type, "Type;" type id ";;SI;" item id for a service item. That the key of an
// item carries its type is what lets a move take the key along.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlShortList"), QString::fromLatin1(member));
}

const QString kRoot = QStringLiteral("Root");
const QString kSI = QStringLiteral(";;SI;");

bool IsItemKey(const QString& strKey) {
    return strKey.contains(kSI);
}
} // namespace

bool ctlShortList::IsGroup(const QVariant& varImage) {
    const QString strImage = varImage.toString();
    return strImage == QLatin1String("imgFolderOpen") ||
           strImage == QLatin1String("imgFolderClosed");
}

QString ctlShortList::Decoded(const QString& strText) const {
    if (!strText.contains(QLatin1String("@@")))
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strErrorMessage.isEmpty() ? strResult : strText;
}

// ---- Filling ------------------------------------------------------------------------

// Service items that pass the clause, under their types, Blank left out. The
// candidates' query gives an item once per keyword and use; the repeats fold
// into the node made first. The caller reports an error text, once.
void ctlShortList::FillAvailableTreeview(const QString& strWhereClause, QString& strErrorMessage) {
    const auto entry = Entry("FillAvailableTreeview")
                           .Arg(QStringLiteral("strWhereClause"), strWhereClause)
                           .Enter();
    tvwAvailable->Clear();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetShortListCandidates(strWhereClause, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty() || !rs)
        return;
    if (rs->RecordCount() == 0)
        return;
    entry.ErrorReturn(strErrorMessage, [&] {
        RedrawLock lock(tvwAvailable);
        tvwAvailable->Add(QVariant(), tvwLast, kRoot, QStringLiteral("Service Items"),
                          QStringLiteral("imgFolderOpen"));
        // The nodes are made and sorted under the Root while it stands outside the view, which
        // takes the finished tree back in one step instead of hearing of every node and move.
        std::optional<VBTreeWidget::DetachedBuild> build(std::in_place, tvwAvailable);
        QString strIDs;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const qint32 lngID = VB::CLng(rs->Fields(QStringLiteral("ServiceItems.ServiceItemID")));
            if (lngID == 1)
                continue;
            const QVariant varType = rs->Fields(QStringLiteral("ServiceItemTypeID"));
            const QString strTypeKey = QStringLiteral("Type;") + VB::CStr(varType);
            if (!tvwAvailable->KeyExists(strTypeKey) && !varType.isNull()) {
                VBNode type = tvwAvailable->Add(
                    kRoot, tvwChild, strTypeKey,
                    Decoded(VB::Text(rs->Fields(QStringLiteral("ServiceItemTypeName")))),
                    QStringLiteral("imgFolderClosed"));
                type.setTag(QStringLiteral("Type"));
            }
            const QString strKey = strTypeKey + kSI + QString::number(lngID);
            if (tvwAvailable->KeyExists(strKey))
                continue;
            QString strText;
            const QVariant varDescription = rs->Fields(QStringLiteral("ServiceItemDescription"));
            const QVariant varContent = rs->Fields(QStringLiteral("ServiceItemContent"));
            if (!varDescription.isNull())
                strText = Decoded(VB::CStr(varDescription));
            else if (!varContent.isNull())
                strText = VB::CStr(varContent).left(15);
            else
                strText = VB::Text(rs->Fields(QStringLiteral("ServiceItemTypeName"))) +
                          QStringLiteral(" from ") +
                          VB::Text(rs->Fields(QStringLiteral("ServiceItemSource")));
            VBNode item =
                tvwAvailable->Add(strTypeKey, tvwChild, strKey, strText, VB::CLng(varType));
            item.setTag(VB::CLng(varType));
            strIDs += QStringLiteral(",") + QString::number(lngID);
        }
        SortTreeview(tvwAvailable);
        build.reset();
        lock.Release();
        modQVLTControls::ExpandAllNodesByLevel(tvwAvailable, tvwAvailable->Count() < 20 ? 0 : 2);
    });
}

std::unique_ptr<Recordset>
ctlShortList::ApplyWhereClauseToAvailableTreeview(const QString& strWhereClause,
                                                  QString& strErrorMessage) {
    const auto entry = Entry("ApplyWhereClauseToAvailableTreeview")
                           .Arg(QStringLiteral("strWhereClause"), strWhereClause)
                           .Enter();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetShortListCandidates(strWhereClause, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(strErrorMessage);
        Platform::Current().MsgBox(strErrorMessage);
    }
    return rs;
}

// Every level of the tree in text order.
void ctlShortList::SortTreeview(VBTreeWidget* tree) {
    RedrawLock lock(tree);
    tree->setSorted(true);
    for (qint32 i = 1; i <= tree->Count(); ++i)
        tree->Nodes(i).setSorted(true);
}

// ---- Moving one node ------------------------------------------------------------------

// Copies the item and, when missing, its type node (and the Root) into the
// target tree, then removes the item from the source. The type node it may
// leave empty is cleaned up once per action by RemoveEmptyTypeAndRootNodes.
void ctlShortList::MoveNode(VBTreeWidget* from, VBTreeWidget* to, const QString& strNodeKey,
                            const QString& strTrace) {
    if (to->KeyExists(strNodeKey))
        return;
    if (!from->KeyExists(strNodeKey)) {
        TraceLog::Instance().WriteTraceLine(strTrace + QStringLiteral(": node ") + strNodeKey +
                                            QStringLiteral(" does not exists"));
        return;
    }
    if (!to->KeyExists(kRoot))
        to->Add(QVariant(), tvwLast, kRoot, QStringLiteral("Service Items"),
                QStringLiteral("imgFolderOpen"));
    const VBNode node = from->Nodes(strNodeKey);
    const VBNode parent = node.Parent();
    QString strParentKey = kRoot;
    if (parent) {
        strParentKey = parent.Key();
        if (!to->KeyExists(strParentKey)) {
            const VBNode grandParent = parent.Parent();
            VBNode copy = to->Add(grandParent ? grandParent.Key() : kRoot, tvwChild, strParentKey,
                                  parent.Text(), parent.Image());
            copy.setTag(parent.Tag());
        }
    }
    VBNode copy = to->Add(strParentKey, tvwChild, strNodeKey, node.Text(), node.Image());
    copy.setTag(node.Tag());
    from->Remove(strNodeKey);
}

void ctlShortList::MoveSIToShortList(const QString& strNodeKey) {
    const auto entry =
        Entry("MoveSIToShortList").Arg(QStringLiteral("strNodeKey"), strNodeKey).Enter();
    MoveNode(tvwAvailable, tvwShortList, strNodeKey, QStringLiteral("MoveSIToShortList"));
}

void ctlShortList::MoveSIToAvailableTreeview(const QString& strNodeKey) {
    const auto entry =
        Entry("MoveSIToAvailableTreeview").Arg(QStringLiteral("strNodeKey"), strNodeKey).Enter();
    MoveNode(tvwShortList, tvwAvailable, strNodeKey, QStringLiteral("MoveSIToAvailableTreeview"));
}

// ---- Clean-up, buttons, counts ----------------------------------------------------------

// From the last node to the first, a type or Root without children goes; a
// Root emptied by the removal of its last type is reached after it and goes
// too.
void ctlShortList::RemoveEmptyTypeAndRootNodes() {
    const auto entry = Entry("RemoveEmptyTypeAndRootNodes").Enter();
    for (VBTreeWidget* tree : {tvwAvailable, tvwShortList}) {
        for (qint32 i = tree->Count(); i >= 1; --i) {
            const VBNode node = tree->Nodes(i);
            if (IsGroup(node.Image()) && node.Children() == 0)
                tree->Remove(i);
        }
    }
}

// After a refill, an item already in the short list leaves tvwAvailable.
void ctlShortList::RemoveShortListNodesFromTree() {
    const auto entry = Entry("RemoveShortListNodesFromTree").Enter();
    RedrawLock lockAvailable(tvwAvailable);
    RedrawLock lockShortList(tvwShortList);
    for (qint32 i = 1; i <= tvwShortList->Count(); ++i) {
        const QString strKey = tvwShortList->Nodes(i).Key();
        if (strKey.contains(QLatin1String("SI;")) && tvwAvailable->KeyExists(strKey))
            tvwAvailable->Remove(strKey);
    }
}

void ctlShortList::SetUpMoveSIButtons() {
    cmdMoveAllRight->setEnabled(tvwAvailable->Count() > 0);
    cmdMoveAllLeft->setEnabled(tvwShortList->Count() > 0);
    cmdMoveOneLeft->setEnabled(!tvwShortList->SelectedItem().IsNothing());
    cmdMoveOneRight->setEnabled(!tvwAvailable->SelectedItem().IsNothing());
}

qint32 ctlShortList::CountSIs(VBTreeWidget* tree) {
    qint32 lngCount = 0;
    for (qint32 i = 1; i <= tree->Count(); ++i)
        if (IsItemKey(tree->Nodes(i).Key()))
            ++lngCount;
    return lngCount;
}

// The counts beside the trees; a tree of 20 items or fewer is shown open.
void ctlShortList::SetUpCountsOfSIs() {
    const auto entry = Entry("SetUpCountsOfSIs").Enter();
    const std::pair<VBTreeWidget*, QLabel*> sides[] = {{tvwAvailable, lblNumberAvailableSIs},
                                                       {tvwShortList, lblSIsInShortList}};
    for (const auto& [tree, label] : sides) {
        const qint32 lngCount = CountSIs(tree);
        label->setText(QString::number(lngCount));
        if (lngCount < 21)
            tree->expandAll();
    }
}

// The ids of the short list in tree order (by type, then by text), "," between.
QString ctlShortList::GetSelectedSIs() {
    const auto entry = Entry("GetSelectedSIs").Enter();
    QString strIDs;
    // The order of the tree as shown: walk it from the top.
    std::function<void(QTreeWidgetItem*)> walk = [&](QTreeWidgetItem* item) {
        const QString strKey = VBNode(item).Key();
        const qsizetype intAt = strKey.indexOf(kSI);
        if (intAt >= 0)
            strIDs += QStringLiteral(",") + strKey.mid(intAt + kSI.size());
        for (int i = 0; i < item->childCount(); ++i)
            walk(item->child(i));
    };
    for (int i = 0; i < tvwShortList->topLevelItemCount(); ++i)
        walk(tvwShortList->topLevelItem(i));
    modQVLTControls::TrimData(strIDs, QStringLiteral(","));
    return strIDs;
}

// ---- Move commands ------------------------------------------------------------------

void ctlShortList::AfterMove(VBTreeWidget* target) {
    RemoveEmptyTypeAndRootNodes();
    SetUpMoveSIButtons();
    SortTreeview(target);
    if (target->KeyExists(kRoot))
        target->Nodes(kRoot).setExpanded(true);
}

// The selected node of a tree moves: the Root moves everything, a type all its
// items, an item itself.
void ctlShortList::MoveSelected(VBTreeWidget* from, QPushButton* cmdMoveAll,
                                void (ctlShortList::*move)(const QString&)) {
    const VBNode selected = from->SelectedItem();
    if (selected.IsNothing())
        return;
    if (selected.Key() == kRoot) {
        cmdMoveAll->click();
        return;
    }
    VBTreeWidget* target = from == tvwAvailable ? tvwShortList : tvwAvailable;
    {
        RedrawLock lockFrom(from);
        RedrawLock lockTo(target);
        if (IsGroup(selected.Image())) {
            // Each move takes the first child away; one that cannot move ends it.
            for (qint32 lngLeft = selected.Children(); lngLeft > 0;) {
                (this->*move)(selected.Child().Key());
                const qint32 lngNow = selected.Children();
                if (lngNow >= lngLeft)
                    break;
                lngLeft = lngNow;
            }
        } else {
            (this->*move)(selected.Key());
        }
        AfterMove(target);
    }
    SetUpCountsOfSIs();
    m_cycle->Changed(0);
}

void ctlShortList::MoveAll(VBTreeWidget* from, void (ctlShortList::*move)(const QString&)) {
    VBTreeWidget* target = from == tvwAvailable ? tvwShortList : tvwAvailable;
    {
        RedrawLock lockFrom(from);
        RedrawLock lockTo(target);
        for (qint32 i = from->Count(); i >= 1; --i) {
            if (i > from->Count())
                continue;
            const QString strKey = from->Nodes(i).Key();
            if (IsItemKey(strKey))
                (this->*move)(strKey);
        }
        AfterMove(target);
    }
    SetUpCountsOfSIs();
    m_cycle->Changed(0);
}

void ctlShortList::cmdMoveOneRight_Click() {
    const auto entry = Entry("cmdMoveOneRight_Click").Enter();
    entry.Guarded(
        [&] { MoveSelected(tvwAvailable, cmdMoveAllRight, &ctlShortList::MoveSIToShortList); });
}

void ctlShortList::cmdMoveOneLeft_Click() {
    const auto entry = Entry("cmdMoveOneLeft_Click").Enter();
    entry.Guarded([&] {
        MoveSelected(tvwShortList, cmdMoveAllLeft, &ctlShortList::MoveSIToAvailableTreeview);
    });
}

void ctlShortList::cmdMoveAllRight_Click() {
    const auto entry = Entry("cmdMoveAllRight_Click").Enter();
    entry.Guarded([&] { MoveAll(tvwAvailable, &ctlShortList::MoveSIToShortList); });
}

void ctlShortList::cmdMoveAllLeft_Click() {
    const auto entry = Entry("cmdMoveAllLeft_Click").Enter();
    entry.Guarded([&] { MoveAll(tvwShortList, &ctlShortList::MoveSIToAvailableTreeview); });
}

void ctlShortList::tvwAvailable_DblClick() {
    const VBNode selected = tvwAvailable->SelectedItem();
    if (selected && IsItemKey(selected.Key()))
        cmdMoveOneRight->click();
}

void ctlShortList::tvwShortList_DblClick() {
    const VBNode selected = tvwShortList->SelectedItem();
    if (selected && IsItemKey(selected.Key()))
        cmdMoveOneLeft->click();
}

void ctlShortList::tvwAvailable_NodeClick() {
    SetUpMoveSIButtons();
}

void ctlShortList::tvwShortList_NodeClick() {
    SetUpMoveSIButtons();
}
