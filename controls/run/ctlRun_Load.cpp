// Loading a service to run: the tree of shown items and the first item.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QLabel>

// No handler: a failure (every row hidden, so that there is no node 2) reaches
// the host. A DataAccess error text is written to the trace log and ends the
// load where it stands; the id stays stored.
void ctlRun::setRunningService(qint32 lngServiceID) {
    RunMember("RunningService").Arg(QStringLiteral("lngServiceID"), lngServiceID).Enter();
    // First, so that ShowSIAsRunning below sees a service run.
    m_lngRunningServiceID = lngServiceID;
    tvwRun->Clear();

    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    QString strDescription;
    da.GetServiceDescription(lngServiceID, strErrorMessage, strDescription);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(QStringLiteral("RunningService: ") + strErrorMessage);
        return;
    }
    lblMainCaption->setText(QStringLiteral("Running Service - ") + strDescription);
    tvwRun->Add(QVariant(), tvwLast, QStringLiteral("Root"), strDescription,
                QStringLiteral("imgFolderOpen"));

    std::unique_ptr<Recordset> rs;
    // No blank behind the equals sign: the store reads it either way.
    da.GetServiceContents(QStringLiteral("ServiceID =") + VB::CStr(lngServiceID), 4,
                          strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(QStringLiteral("RunningService: ") + strErrorMessage);
        return;
    }

    if (HasRows(rs.get())) {
        // The key counts every row, shown or hidden, from 1.
        for (qint32 lngPosition = 1; !rs->Eof(); ++lngPosition, rs->MoveNext()) {
            const QVariant varShow = rs->Fields(QStringLiteral("ShowAtRunTime"));
            if (varShow.isNull() || !VB::CBool(varShow))
                continue;
            AddRunNode(lngPosition, VB::CLng(rs->Fields(QStringLiteral("ServiceItemID"))));
            // The per-row look-ups report into texts of their own, so this
            // text is still empty here; the test stays as the guard it was.
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(
                    QStringLiteral("RunningService:populating services tree: ") + strErrorMessage);
                return;
            }
        }
        // The first shown item is node 2. No event: the host knows what it
        // has just loaded and puts it on the projector itself.
        tvwRun->Nodes(1).setExpanded(true);
        tvwRun->setSelectedItem(tvwRun->Nodes(2));
        ShowSelectedNodeAsRunning();
    }
    rs.reset();

    AddServicePropBagItems(lngServiceID, strErrorMessage);
    if (strErrorMessage.isEmpty())
        lvwProps->setColumnWidth(0, Twips::ToPixels(Twips::FromPixels(lvwProps->width()) - 60));
    else
        TraceLog::Instance().WriteErrorLine(QStringLiteral("RunningService: ") + strErrorMessage);
}

// One node under the root: key position + "SIID", Tag the item's id, text its
// description, picture its type; the Blank item has no picture. The look-ups
// report into a text that nobody reads: a failing row shows an empty text.
void ctlRun::AddRunNode(qint32 lngPosition, qint32 lngServiceItemID) {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    const QString strText = ItemDescription(lngServiceItemID, strErrorMessage);
    const QString strKey = VB::CStr(lngPosition) + QStringLiteral("SIID");
    VBNode node;
    if (lngServiceItemID == 1) {
        node = tvwRun->Add(QStringLiteral("Root"), tvwChild, strKey, strText);
    } else {
        qint16 intTypeID = 0;
        da.GetServiceItemTypeID(lngServiceItemID, strErrorMessage, intTypeID);
        node = tvwRun->Add(QStringLiteral("Root"), tvwChild, strKey, strText, intTypeID);
    }
    node.setTag(lngServiceItemID);
}

QString ctlRun::ItemDescription(qint32 lngSIID, QString& strErrorMessage) {
    DataAccess& da = DataAccess::Instance();
    QString strText;
    da.GetServiceItemDescription(lngSIID, strErrorMessage, strText);
    if (VB::InStr(strText, QStringLiteral("@@")) > 0) {
        const QString strStored = strText;
        da.DecodeStoredText(strStored, strErrorMessage, strText);
    }
    return strText;
}

std::unique_ptr<Recordset> ctlRun::ServiceItemRow(qint32 lngSIID, QString& strErrorMessage) {
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItems(QStringLiteral("ServiceItemID = ") + VB::CStr(lngSIID),
                                           4, strErrorMessage, rs);
    return rs;
}

bool ctlRun::HasRows(Recordset* rs) {
    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    if (rs->RecordCount() == 0)
        return false;
    rs->MoveLast();
    rs->MoveFirst();
    return true;
}

// Only the nodes that are bold are changed: setting a node's font makes a new
// font and compares it with the old, for every node at every change of item.
void ctlRun::ClearBoldNodes() {
    for (qint32 i = 1; i <= tvwRun->Count(); ++i) {
        VBNode node = tvwRun->Nodes(i);
        if (node.Bold())
            node.setBold(false);
    }
}

// Write of RunningServiceServiceItem: the item at that index becomes current,
// without part handling.
void ctlRun::setRunningServiceServiceItem(qint16 intServiceSI) {
    RunMember("RunningServiceServiceItem")
        .Arg(QStringLiteral("intServiceSI"), intServiceSI)
        .Enter();
    tvwRun->setSelectedItem(tvwRun->Nodes(static_cast<qint32>(intServiceSI) + 1));
    ShowSelectedNodeAsRunning();
}

void ctlRun::ShowSelectedNodeAsRunning() {
    ShowSIAsRunning(VB::CLng(tvwRun->SelectedItem().Tag()), true);
    ClearBoldNodes();
    tvwRun->SelectedItem().setBold(true);
}
