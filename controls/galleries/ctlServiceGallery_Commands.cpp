// ctlServiceGallery: what is selected, clicks, the right-button menus, the
// toolbar, new, delete, refresh, select, export, print and import.

#include "galleries/ctlServiceGallery.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"
#include "galleries/GalleryCore.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

using namespace modQVLTControls;

namespace {
const QString kPrefix = QStringLiteral("QVLTCONTROLS:ctlServiceGallery:");

QString Btn(const char* key) {
    return QString::fromLatin1(key);
}

} // namespace

// ---------------------------------------------------------------- Selection members

QString ctlServiceGallery::SelectedItemKey() {
    return GalleryCore::SelectedNodeValue<QString>(
        Entry(QStringLiteral("SelectedItemKey")).Spelt().Enter(), tvwServices,
        [](const VBNode& node) { return node.Key(); });
}

// A folder's picture is a key, not a number: that is reported as a type mismatch.
qint16 ctlServiceGallery::SelectedItemImage() {
    return GalleryCore::SelectedNodeValue<qint16>(
        Entry(QStringLiteral("SelectedItemImage")).Spelt().Enter(), tvwServices,
        [](const VBNode& node) { return VB::CInt(node.Image()); });
}

QString ctlServiceGallery::SelectedItemText() {
    return GalleryCore::SelectedNodeValue<QString>(
        Entry(QStringLiteral("SelectedItemText")).Spelt().Enter(), tvwServices,
        [](const VBNode& node) { return node.Text(); });
}

// The id of the selected tree node (its fifth key field); empty for none.
QString ctlServiceGallery::SelectedTreeId() const {
    const VBNode node = tvwServices->SelectedItem();
    return node ? GalleryCore::IdOfKey(tvwServices, node.Key()) : QString();
}

// ---------------------------------------------------------------- Clicks

void ctlServiceGallery::tvwServices_NodeClick(QTreeWidgetItem* Node) {
    const VBNode node(Node);
    Entry(QStringLiteral("tvwServices_NodeClick"))
        .Arg(QStringLiteral("Node"), node ? node.Key() : QString())
        .Enter()
        .ErrorBox([&] { NodeClick(node); });
}

// A click on the node clicked last is silent.
void ctlServiceGallery::NodeClick(const VBNode& Node) {
    const QString K = Node.Key();
    if (K == strLastClickedKey)
        return;
    m_core->SetButtons({Btn("btnOpen"), Btn("btnDelete"), Btn("btnProperties"), Btn("btnPrint"),
                        Btn("btnPrintShortCuts")},
                       m_core->IsItemKey(K));
    const GalleryCore::ClickWords words = m_core->NodeClickWords(Node);
    emit ServiceClicked(words.strID, words.strDescription, strWhereClauseInEffect,
                        strFilterInPlainEnglish, words.strType);
    strLastClickedKey = K;
}

void ctlServiceGallery::lvwServices_ItemClick(QTreeWidgetItem* Item) {
    const VBNode item(Item);
    Entry(QStringLiteral("lvwServices_ItemClick"))
        .Arg(QStringLiteral("Item"), item ? item.Key() : QString())
        .Spelt()
        .Enter()
        .ErrorBox([&] { ItemClick(item); });
}

// The description is sub-item 1, which in this list is the type, not the name.
void ctlServiceGallery::ItemClick(const VBNode& Item) {
    if (m_core->SelectedListCount() < 2) {
        const QString strKey = Item.Key();
        m_core->SetButtons({Btn("btnOpen"), Btn("btnDelete"), Btn("btnProperties"), Btn("btnPrint"),
                            Btn("btnPrintShortCuts"), Btn("btnExport")},
                           m_core->IsListKey(strKey));
        emit ServiceClicked(VB::Mid(strKey, 9), Item.SubItems(1), strWhereClauseInEffect,
                            strFilterInPlainEnglish, QStringLiteral("Service"));
        return;
    }
    m_core->SetButtons(
        {Btn("btnOpen"), Btn("btnProperties"), Btn("btnPrint"), Btn("btnPrintShortCuts")}, false);
    m_core->SetButtons({Btn("btnDelete"), Btn("btnExport")}, true);
}

// Nothing is run here: the host hears the id.
void ctlServiceGallery::tvwServices_DblClick() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("tvwServices_DblClick")).Enter();
        const VBNode node = tvwServices->SelectedItem();
        if (node && m_core->IsItemKey(node.Key()))
            emit ServiceDblClicked(VB::CLng(SelectedTreeId()));
    });
}

void ctlServiceGallery::lvwServices_DblClick() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("lvwServices_DblClick")).Enter();
        if (const VBNode item = lvwServices->SelectedItem())
            emit ServiceDblClicked(VB::CLng(item.Tag()));
    });
}

// Selects a tree node, brings it into sight and runs the click for it.
void ctlServiceGallery::SelectNode(VBNode node) {
    GalleryCore::SelectAndClick(node, [&](QTreeWidgetItem* i) { tvwServices_NodeClick(i); });
}

// ---------------------------------------------------------------- Right button

void ctlServiceGallery::PopupMenu(QMenu* mnu) {
    mnu->exec(QCursor::pos());
}

// The node under the mouse is selected while its menu is up, then the node
// selected before is selected again. Anywhere but on a service, also over empty
// space, the menu of new and find comes up.
void ctlServiceGallery::tvwServices_MouseDown(qint16 Button, qint16 Shift, const QPoint& ptAt) {
    Entry(QStringLiteral("tvwServices_MouseDown"))
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (Button != vbRightButton)
                return;
            const VBNode before = tvwServices->SelectedItem();
            const QString strBeforeKey = before ? before.Key() : QString();
            const VBNode hit(tvwServices->itemAt(ptAt));
            if (hit)
                tvwServices->setSelectedItem(hit);
            if (hit && m_core->IsItemKey(hit.Key())) {
                PopupMenu(mnuRightClick);
            } else {
                mnuRightClickTypeNew->setText(QStringLiteral("&New Service"));
                mnuRightClickTypeFind->setText(QStringLiteral("&Find a Service"));
                PopupMenu(mnuRightClickType);
            }
            if (strBeforeKey.isEmpty())
                tvwServices->setSelectedItem(VBNode());
            else if (tvwServices->KeyExists(strBeforeKey))
                tvwServices->setSelectedItem(tvwServices->Nodes(strBeforeKey));
        });
}

void ctlServiceGallery::lvwServices_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt) {
    Entry(QStringLiteral("lvwServices_MouseUp"))
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (Button != vbRightButton)
                return;
            const VBNode hit(lvwServices->itemAt(ptAt));
            if (hit && m_core->IsListKey(hit.Key()))
                PopupMenu(mnuRightClick);
        });
}

// ---------------------------------------------------------------- Menus

void ctlServiceGallery::mnuRightCLickNew_Click() {
    Entry(QStringLiteral("mnuRightCLickNew_Click")).Spelt().Enter().ErrorBox([&] {
        QString strErrorMessage;
        NewService(strErrorMessage);
        GalleryCore::ReportFailure(kPrefix + QStringLiteral("mnuRightCLickNew_Click: "),
                                   strErrorMessage);
    });
}

void ctlServiceGallery::mnuRightClickTypeNew_Click() {
    Entry(QStringLiteral("mnuRightClickTypeNew_Click")).Spelt().Enter().ErrorBox([&] {
        QString strErrorMessage;
        NewService(strErrorMessage);
        GalleryCore::ReportFailure(kPrefix + QStringLiteral("mnuRightClickTypeNew_Click: "),
                                   strErrorMessage);
    });
}

void ctlServiceGallery::mnuServiceDelete_Click() {
    Entry(QStringLiteral("mnuServiceDelete_Click")).Spelt().Enter().ErrorBox([&] {
        DeleteFromMenu();
    });
}

void ctlServiceGallery::mnuServicePrint_Click() {
    ErrorReport::Guard([&] { PrintSelection(); });
}

void ctlServiceGallery::mnuSIExport_Click() {
    ErrorReport::Guard([&] { ExportSelection(); });
}

void ctlServiceGallery::mnuRightClickExport_Click() {
    ErrorReport::Guard([&] { ExportSelection(); });
}

// ---------------------------------------------------------------- Toolbar

void ctlServiceGallery::Toolbar2_ButtonClick(QAction* Button) {
    const QString strKey = Button ? Button->objectName() : QString();
    Entry(QStringLiteral("Toolbar2_ButtonClick"))
        .Arg(QStringLiteral("Button"), strKey)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (strKey == QLatin1String("btnNew")) {
                NewService();
            } else if (strKey == QLatin1String("btnHelp")) {
                Platform::Current().SendKeys(QStringLiteral("{F1}"));
            } else if (strKey == QLatin1String("btnPrintShortCuts")) {
                PrintShortCuts();
            } else if (strKey == QLatin1String("btnDelete")) {
                DeleteFromToolbar();
            } else if (strKey == QLatin1String("btnExport")) {
                ExportSelection();
            } else if (strKey == QLatin1String("btnPrint")) {
                PrintSelection();
            } else if (strKey == QLatin1String("btnOpen")) {
                // Only the tree is asked, also in list view.
                const VBNode node = tvwServices->SelectedItem();
                if (node && m_core->IsItemKey(node.Key()))
                    emit ToolBarButtonClicked(QStringLiteral("btnOpen"),
                                              VB::CLng(SelectedTreeId()));
            } else if (strKey == QLatin1String("btnImport")) {
                ImportServices();
            }
            // btnProperties has no action.
        });
}

// The list asks for its item at index 0, which does not exist: the command ends
// in the toolbar's error box.
void ctlServiceGallery::PrintShortCuts() {
    QString strErrorMessage;
    if (m_core->TreeShown()) {
        if (!tvwServices->SelectedItem())
            return;
        DataAccess::Instance().PrintServiceShortCuts(VB::CLng(SelectedTreeId()), strErrorMessage);
    } else {
        if (!lvwServices->SelectedItem())
            return;
        const VBNode item = lvwServices->ListItems(0);
        DataAccess::Instance().PrintServiceShortCuts(VB::CLng(VB::Mid(item.Key(), 9)),
                                                     strErrorMessage);
    }
    GalleryCore::ReportFailure(kPrefix + QStringLiteral("Toolbar2_ButtonClick: "), strErrorMessage);
}

void ctlServiceGallery::ImportServices() {
    QString strErrorMessage;
    DataAccess::Instance().ImportFile(QString(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(strErrorMessage);
        return;
    }
    const VBNode selected = m_core->ShownSelection();
    const QString strKey = selected ? selected.Key() : QString();
    strLastClickedKey.clear();
    ShowServices(strKey, strErrorMessage);
    GalleryCore::ReportFailure(kPrefix + QStringLiteral("Toolbar2_ButtonClick: "), strErrorMessage);
}

// ---------------------------------------------------------------- Delete

// The toolbar is harsher than the menu: a single service of the list goes
// without a question and stays in the list until the next load.
void ctlServiceGallery::DeleteFromToolbar() {
    if (m_core->TreeShown()) {
        const VBNode node = tvwServices->SelectedItem();
        if (!node)
            return;
        const VBNode previous = node.Previous();
        const VBNode parent = node.Parent();
        const QString strLandOn = previous ? previous.Key() : (parent ? parent.Key() : QString());
        DeleteAService(VB::CLng(SelectedTreeId()));
        ShowServices(strLandOn);
        return;
    }
    const QString strIDs = m_core->SelectedListIds(QStringLiteral(";"));
    if (strIDs.isEmpty())
        return;
    if (VB::IsNumeric(strIDs)) {
        QString strErrorMessage;
        DataAccess::Instance().DeleteService(VB::CLng(strIDs), strErrorMessage);
        GalleryCore::ReportFailure(kPrefix + QStringLiteral("Toolbar2_ButtonClick: "),
                                   strErrorMessage);
    } else {
        DeleteGroupOfServices(strIDs);
    }
}

void ctlServiceGallery::DeleteFromMenu() {
    if (m_core->TreeShown()) {
        if (tvwServices->SelectedItem())
            DeleteAService(VB::CLng(SelectedTreeId()));
        return;
    }
    const QString strIDs = m_core->SelectedListIds(QStringLiteral(";"));
    if (strIDs.isEmpty())
        return;
    if (VB::IsNumeric(strIDs))
        DeleteAService(VB::CLng(strIDs));
    else
        DeleteGroupOfServices(strIDs);
}

void ctlServiceGallery::DeleteAService(qint32 lngServiceID) {
    QString strErrorMessage;
    DeleteAService(lngServiceID, strErrorMessage);
}

void ctlServiceGallery::DeleteAService(qint32 lngServiceID, QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteAService"))
        .Arg(QStringLiteral("lngServiceID"), lngServiceID)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Spelt()
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (!GalleryCore::ConfirmDelete(
                    QStringLiteral("Are you sure you want to delete this Service from your "
                                   "system? This command cannot be undone.")))
                return;
            const qint16 intPosition = m_core->NeighbourPosition();
            DataAccess::Instance().DeleteService(lngServiceID, strErrorMessage);
            if (!strErrorMessage.isEmpty())
                Platform::Current().MsgBox(strErrorMessage);
            else
                RefreshView(intPosition);
        });
}

void ctlServiceGallery::DeleteGroupOfServices(const QString& strServices) {
    QString strErrorMessage;
    DeleteGroupOfServices(strServices, strErrorMessage);
}

// Every id is tried; the message of the last failure is what is reported.
void ctlServiceGallery::DeleteGroupOfServices(const QString& strServices,
                                              QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteGroupOfServices"))
        .Arg(QStringLiteral("strServices"), strServices)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Spelt()
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (!GalleryCore::ConfirmDelete(
                    QStringLiteral("Are you sure you want to delete these Services from your "
                                   "system? This command cannot be undone.")))
                return;
            const qint32 lngCount = GetInstances(strServices, QStringLiteral(";")) + 1;
            for (qint32 i = 1; i <= lngCount; ++i) {
                QString strMessage;
                DataAccess::Instance().DeleteService(
                    VB::CLng(GetInstance(strServices, QStringLiteral(";"), i)), strMessage);
                if (!strMessage.isEmpty())
                    strErrorMessage = strMessage;
            }
            if (strErrorMessage.isEmpty()) {
                RefreshView();
                return;
            }
            Platform::Current().MsgBox(QStringLiteral(" DeleteGroupOfServices: ") +
                                       strErrorMessage);
            TraceLog::Instance().WriteErrorLine(QStringLiteral("DeleteGroupOfServices:") +
                                                strErrorMessage);
        });
}

// ---------------------------------------------------------------- Refresh, select, new

// The caller names by position what is selected again: a tree that shifted
// selects a neighbour. Position 0 reloads and selects nothing.
void ctlServiceGallery::RefreshView(qint16 intIndexOfPreviouslySelectedItem) {
    Entry(QStringLiteral("RefreshView"))
        .Arg(QStringLiteral("intIndexOfPreviouslySelectedItem"), intIndexOfPreviouslySelectedItem)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            const qint32 intIndex = intIndexOfPreviouslySelectedItem;
            RedrawLock lock(tvwServices);
            const bool blnInTree = intIndex >= 1 && intIndex <= tvwServices->Count();
            ShowServices(blnInTree ? tvwServices->Nodes(intIndex).Key() : QString());
            if (intIndex == 0)
                return;
            if (!m_core->TreeShown()) {
                if (intIndex > lvwServices->topLevelItemCount())
                    return;
                GalleryCore::Reselect(lvwServices->ListItems(intIndex),
                                      [&](QTreeWidgetItem* i) { lvwServices_ItemClick(i); });
            } else if (intIndex <= tvwServices->Count()) {
                GalleryCore::Reselect(tvwServices->Nodes(intIndex),
                                      [&](QTreeWidgetItem* i) { tvwServices_NodeClick(i); });
            }
        });
}

void ctlServiceGallery::SelectService(qint32 lngService) {
    QString strErrorMessage;
    SelectService(lngService, strErrorMessage);
}

// Finds the node of the service in the tree and clicks it, heard even when it
// was clicked last. The list's keys hold no item mark: there nothing is selected.
void ctlServiceGallery::SelectService(qint32 lngService, QString& strErrorMessage) {
    Entry(QStringLiteral("SelectService"))
        .Arg(QStringLiteral("lngService"), lngService)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            strLastClickedKey.clear();
            const VBNode node = m_core->FindItemNode(lngService);
            if (node && m_core->TreeShown())
                SelectNode(node);
        });
}

void ctlServiceGallery::NewService() {
    QString strErrorMessage;
    NewService(strErrorMessage);
}

void ctlServiceGallery::NewService(QString& strErrorMessage) {
    Entry(QStringLiteral("NewService"))
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            qint32 lngNewID = 0;
            DataAccess::Instance().AddService(strErrorMessage, lngNewID);
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(kPrefix + QStringLiteral("NewService: ") +
                                                    strErrorMessage);
                Platform::Current().MsgBox(
                    kPrefix + QStringLiteral("NewService: Error number is ") + strErrorMessage);
            }
            QString strMessage;
            ShowServices(QString(), strMessage);
            SelectService(lngNewID, strMessage);
            if (!strMessage.isEmpty())
                Platform::Current().MsgBox(strMessage);
            emit NewServiceAdded(lngNewID);
        });
}

// ---------------------------------------------------------------- Nodes of the parent

void ctlServiceGallery::HideService(const QVariant& WhichService) {
    Entry(QStringLiteral("HideService"))
        .Arg(QStringLiteral("WhichService"), WhichService)
        .Enter()
        .FullErrorBox([&] { tvwServices->Remove(WhichService); });
}

void ctlServiceGallery::AddService(const QString& strParentKey, const QString& strKey,
                                   const QString& strText, qint16 intImageID) {
    Entry(QStringLiteral("AddService"))
        .Arg(QStringLiteral("strParentKey"), strParentKey)
        .Arg(QStringLiteral("strKey"), strKey)
        .Arg(QStringLiteral("strText"), strText)
        .Arg(QStringLiteral("intImageID"), intImageID)
        .Enter()
        .FullErrorBox(
            [&] { tvwServices->Add(strParentKey, tvwChild, strKey, strText, intImageID); });
}

// ---------------------------------------------------------------- Export, print

void ctlServiceGallery::ExportSelection() {
    Entry(QStringLiteral("ExportSelection")).Enter().FullErrorBox([&] {
        QString strIDs;
        QString strDescription;
        const VBNode selected = lvwServices->SelectedItem();
        if (!m_core->ExportSelection(strIDs, strDescription,
                                     selected ? selected.Text() : QString()))
            return;
        QString strErrorMessage;
        DataAccess::Instance().ExportServices(strIDs, strDescription, strErrorMessage);
        GalleryCore::ReportFailure(kPrefix + QStringLiteral("ExportSelection: "), strErrorMessage);
    });
}

// In list view the hidden tree is asked, and the second field of its key taken:
// the print is of what the tree last had selected, or nothing.
qint32 ctlServiceGallery::PrintSelectionId(bool& blnSelected) const {
    const VBNode node = tvwServices->SelectedItem();
    blnSelected = static_cast<bool>(node);
    if (!node)
        return 0;
    return VB::CLng(GetInstance(node.Key(), QStringLiteral(";"), m_core->TreeShown() ? 5 : 2));
}

void ctlServiceGallery::PrintSelection() {
    Entry(QStringLiteral("PrintSelection")).Enter().FullErrorBox([&] {
        bool blnInstalled = false;
        DataAccess::Instance().IsWordInstalled(QString(), QString(), blnInstalled);
        if (!blnInstalled) {
            Platform::Current().MsgBox(
                QStringLiteral("Microsoft Word 97 or later cannot be found on this computer. To "
                               "avail of the reporting features of Corvantis you must install it"),
                vbOKOnly, QStringLiteral("Microsoft Word NOT installed"));
            return;
        }
        bool blnSelected = false;
        const qint32 lngID = PrintSelectionId(blnSelected);
        if (!blnSelected)
            return;
        QString strErrorMessage;
        DataAccess::Instance().PrintService(lngID, strErrorMessage);
        if (strErrorMessage.isEmpty())
            return;
        Platform::Current().MsgBox(strErrorMessage);
        TraceLog::Instance().WriteErrorLine(QStringLiteral("ctlServiceGallery: PrintSelection:") +
                                            strErrorMessage);
    });
}
