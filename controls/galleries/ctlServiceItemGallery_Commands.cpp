// ctlServiceItemGallery: the toolbar and menu commands, deleting, refreshing,
// selecting by id, new items, and nodes added or hidden by the parent.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBConstants.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QAction>
#include <QComboBox>
#include <QDate>
#include <QLineEdit>

using namespace modQVLTControls;

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");

// A text that reads as a date in one of the usual short forms.
bool LooksLikeDate(const QString& strText) {
    static const QStringList lstFormats = {
        QStringLiteral("d/M/yyyy"),   QStringLiteral("d/M/yy"),   QStringLiteral("yyyy-MM-dd"),
        QStringLiteral("d-MMM-yyyy"), QStringLiteral("d-MMM-yy"), QStringLiteral("d MMMM yyyy")};
    for (const QString& strFormat : lstFormats)
        if (QDate::fromString(strText.trimmed(), strFormat).isValid())
            return true;
    return false;
}
} // namespace

// ---------------------------------------------------------------- Menus

// The type of a new item from the selection: a Type group or an item under one
// gives its type; anything else type 0.
void ctlServiceItemGallery::mnuRightCLickNew_Click() {
    Entry(QStringLiteral("mnuRightCLickNew_Click")).Spelt().Enter().ErrorBox([&] {
        NewFromSelection(true);
    });
}

void ctlServiceItemGallery::NewFromSelection(bool blnListWithoutItemGivesNone) {
    if (!tvwServiceItems->isHidden()) {
        const VBNode node = tvwServiceItems->SelectedItem();
        const QString K = node ? node.Key() : QString();
        if (VB::Left(K, 5) == QLatin1String("Type;") && m_core->IsItemKey(K))
            NewServiceItem(VB::CInt(GetInstance(K, QStringLiteral(";"), 2)));
        else if (VB::Left(K, 5) == QLatin1String("Type;"))
            NewServiceItem(VB::CInt(VB::Mid(K, 6)));
        else
            NewServiceItem(0);
        return;
    }
    const VBNode item = lvwServiceItems->SelectedItem();
    if (item && m_core->IsListKey(item.Key()))
        NewServiceItem(VB::CInt(item.Tag()));
    else if (blnListWithoutItemGivesNone)
        NewServiceItem(0);
}

void ctlServiceItemGallery::mnuRightClickTypeNew_Click() {
    Entry(QStringLiteral("mnuRightClickTypeNew_Click")).Spelt().Enter().ErrorBox([&] {
        const VBNode node = tvwServiceItems->SelectedItem();
        if (!node)
            return;
        const QString K = node.Key();
        if (VB::Left(K, 5) == QLatin1String("Type;"))
            NewServiceItem(VB::CInt(VB::Mid(K, 6)));
        else
            NewServiceItem(0);
    });
}

void ctlServiceItemGallery::mnuSIOpen_Click() {
    ErrorReport::Guard([&] {
        Entry(QStringLiteral("mnuSIOpen_Click")).Enter();
        // In the tree only an item node runs; a group has no id.
        const VBNode node = m_core->ShownSelection();
        if (m_core->TreeShown() && node && !m_core->IsItemKey(node.Key()))
            return;
        const QString strID = SelectedIdOfShownView();
        if (strID.isEmpty())
            return;
        QString strErrorMessage;
        DataAccess::Instance().RunServiceItem(VB::CLng(strID), strErrorMessage);
        GalleryCore::ReportFailure(QStringLiteral("mnuSIOpen_Click: "), strErrorMessage);
    });
}

void ctlServiceItemGallery::mnuSIDelete_Click() {
    Entry(QStringLiteral("mnuSIDelete_Click")).Spelt().Enter().ErrorBox([&] { DeleteSelection(); });
}

void ctlServiceItemGallery::mnuSIPrint_Click() {
    ErrorReport::Guard([&] { PrintSelection(); });
}

void ctlServiceItemGallery::mnuSIExport_Click() {
    ErrorReport::Guard([&] { ExportSelection(); });
}

// ---------------------------------------------------------------- Toolbar

void ctlServiceItemGallery::Toolbar2_ButtonClick(QAction* Button) {
    const QString strKey = Button ? Button->objectName() : QString();
    Entry(QStringLiteral("Toolbar2_ButtonClick"))
        .Arg(QStringLiteral("Button"), strKey)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (strKey == QLatin1String("btnNew")) {
                NewFromSelection(false);
            } else if (strKey == QLatin1String("btnHelp")) {
                Platform::Current().SendKeys(QStringLiteral("{F1}"));
            } else if (strKey == QLatin1String("btnRun")) {
                // The list has no run from here; the run itself is the host's.
                if (m_core->TreeShown()) {
                    const VBNode node = tvwServiceItems->SelectedItem();
                    if (node && m_core->IsItemKey(node.Key()))
                        emit ToolBarButtonClicked(QStringLiteral("btnRun"),
                                                  VB::CLng(SelectedIdOfShownView()));
                }
            } else if (strKey == QLatin1String("btnEdit")) {
                EditSelection();
            } else if (strKey == QLatin1String("btnRefresh")) {
                RefreshView(0);
            } else if (strKey == QLatin1String("btnDelete")) {
                DeleteSelection();
            } else if (strKey == QLatin1String("btnExport")) {
                ExportSelection();
            } else if (strKey == QLatin1String("btnPrint")) {
                PrintSelection();
            } else if (strKey == QLatin1String("btnImport")) {
                ImportServiceItem();
            }
        });
}

// Opens the item's file with the system's program; music files are refused.
void ctlServiceItemGallery::EditSelection() {
    qint32 lngID = 0;
    const VBNode node = m_core->ShownSelection();
    if (node && (!m_core->TreeShown() || m_core->IsItemKey(node.Key())))
        lngID = VB::CLng(SelectedIdOfShownView());
    QString strFileName;
    if (lngID != 0) {
        QString strErrorMessage;
        DataAccess::Instance().GetServiceItemFileName(lngID, strErrorMessage, strFileName);
        if (!strErrorMessage.isEmpty()) {
            GalleryCore::ReportFailure(
                QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:Toolbar2_ButtonClick ; "),
                strErrorMessage);
            return;
        }
    }
    if (strFileName.isEmpty()) {
        Platform::Current().MsgBox(
            QStringLiteral("The content of this Service Item is not a file. Try clicking on the "
                           "'Content' tab of the Service Item and try to edit the content there"),
            vbOKOnly, QStringLiteral("This Service Item is not a file"));
        return;
    }
    const QString strExtension = VB::UCase(GetFileExtension(strFileName));
    if (strExtension == QLatin1String("MP3") || strExtension == QLatin1String("WAV") ||
        strExtension == QLatin1String("MID")) {
        Platform::Current().MsgBox(QStringLiteral("You cannot edit music files"), vbOKOnly,
                                   QStringLiteral("Invalid Selection"));
        return;
    }
    RunShellExecute(QStringLiteral("Open"), strFileName, QString(), QString(), 3);
}

void ctlServiceItemGallery::ImportServiceItem() {
    const QString strPrefix =
        QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:Toolbar2_ButtonClick: ");
    auto report = [&](const QString& strMessage) {
        GalleryCore::ReportFailure(strPrefix, strMessage);
    };
    QString strErrorMessage;
    DataAccess::Instance().ImportFile(QString(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        report(strErrorMessage);
        return;
    }
    ShowServiceItems(QString(), strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        report(strErrorMessage);
        return;
    }
    qint32 lngNewID = 0;
    DataAccess::Instance().GetNewestServiceItemID(strErrorMessage, lngNewID);
    if (!strErrorMessage.isEmpty()) {
        report(strErrorMessage);
        return;
    }
    SelectServiceItem(lngNewID);
}

// ---------------------------------------------------------------- Delete

void ctlServiceItemGallery::DeleteSelection() {
    if (!tvwServiceItems->isHidden()) {
        const VBNode node = tvwServiceItems->SelectedItem();
        if (!node)
            return;
        const QString strLandOn = GalleryCore::LandingKey(node);
        // A group has no id: the conversion fails (btnDelete is disabled there).
        DeleteServiceItem(VB::CLng(SelectedIdOfShownView()));
        ShowServiceItems(strLandOn);
        return;
    }
    const QString strIDs = m_core->SelectedListIds(QStringLiteral(";"));
    if (strIDs.isEmpty())
        return;
    if (VB::IsNumeric(strIDs)) {
        DeleteServiceItem(VB::CLng(SelectedIdOfShownView()));
    } else {
        DeleteServiceItems(strIDs);
    }
}

void ctlServiceItemGallery::DeleteServiceItem(qint32 lngServiceItemID) {
    QString strErrorMessage;
    DeleteServiceItem(lngServiceItemID, strErrorMessage);
}

void ctlServiceItemGallery::DeleteServiceItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteServiceItem"))
        .Arg(QStringLiteral("lngServiceItemID"), lngServiceItemID)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Spelt()
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (!GalleryCore::ConfirmDelete(QStringLiteral(
                    "Are you sure you want to delete this Service Item from your system? "
                    "This command cannot be undone.")))
                return;
            // RefreshView does not read the position.
            const qint16 intPosition = m_core->NeighbourPosition();
            DataAccess::Instance().DeleteServiceItem(lngServiceItemID, strErrorMessage);
            if (!strErrorMessage.isEmpty())
                Platform::Current().MsgBox(strErrorMessage);
            else
                RefreshView(intPosition);
        });
}

void ctlServiceItemGallery::DeleteServiceItems(const QString& strSIs) {
    QString strErrorMessage;
    DeleteServiceItems(strSIs, strErrorMessage);
}

void ctlServiceItemGallery::DeleteServiceItems(const QString& strSIs, QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteServiceItems"))
        .Arg(QStringLiteral("strSIs"), strSIs)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Spelt()
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (!GalleryCore::ConfirmDelete(QStringLiteral(
                    "Are you sure you want to delete these Service Items from your system? "
                    "This command cannot be undone.")))
                return;
            // Every id is tried; the message of the last failure is what is reported.
            const qint32 lngCount = GetInstances(strSIs, QStringLiteral(";")) + 1;
            for (qint32 i = 1; i <= lngCount; ++i) {
                QString strMessage;
                DataAccess::Instance().DeleteServiceItem(
                    VB::CLng(GetInstance(strSIs, QStringLiteral(";"), i)), strMessage);
                if (!strMessage.isEmpty())
                    strErrorMessage = strMessage;
            }
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                TraceLog::Instance().WriteErrorLine(QStringLiteral("DeleteServiceItems:") +
                                                    strErrorMessage);
            } else {
                RefreshView();
            }
        });
}

// ---------------------------------------------------------------- Refresh and select

void ctlServiceItemGallery::RefreshView(qint16 intIndexOfPreviouslySelectedItem) {
    Entry(QStringLiteral("RefreshView"))
        .Arg(QStringLiteral("intIndexOfPreviouslySelectedItem"), intIndexOfPreviouslySelectedItem)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (!tvwServiceItems->isHidden()) {
                const VBNode node = tvwServiceItems->SelectedItem();
                const QString strKey = node ? node.Key() : QString();
                RedrawLock lock(tvwServiceItems);
                ShowServiceItems(strKey);
                if (!strKey.isEmpty() && tvwServiceItems->KeyExists(strKey)) {
                    tvwServiceItems->viewport()->update();
                    GalleryCore::Reselect(tvwServiceItems->Nodes(strKey), [&](QTreeWidgetItem* i) {
                        tvwServiceItems_NodeClick(i);
                    });
                }
            } else if (!lvwServiceItems->isHidden()) {
                const VBNode item = lvwServiceItems->SelectedItem();
                const QString strKey = item ? item.Key() : QString();
                ShowServiceItems(strKey);
                if (!lvwServiceItems->isHidden() && !strKey.isEmpty() &&
                    lvwServiceItems->KeyExists(strKey)) {
                    GalleryCore::Reselect(lvwServiceItems->Nodes(strKey), [&](QTreeWidgetItem* i) {
                        lvwServiceItems_ItemClick(i);
                    });
                }
            }
        });
}

void ctlServiceItemGallery::SelectServiceItem(qint32 lngServiceItem) {
    QString strErrorMessage;
    SelectServiceItem(lngServiceItem, strErrorMessage);
}

// Finds the first node of the item in the tree. List keys hold no ";;SI;", so in
// the list nothing is found.
void ctlServiceItemGallery::SelectServiceItem(qint32 lngServiceItem, QString& strErrorMessage) {
    Entry(QStringLiteral("SelectServiceItem"))
        .Arg(QStringLiteral("lngServiceItem"), lngServiceItem)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            const VBNode node = m_core->FindItemNode(lngServiceItem);
            if (!node)
                return;
            if (m_core->TreeShown())
                GalleryCore::SelectAndClick(
                    node, [&](QTreeWidgetItem* i) { tvwServiceItems_NodeClick(i); });
            else
                GalleryCore::SelectAndClick(
                    node, [&](QTreeWidgetItem* i) { lvwServiceItems_ItemClick(i); });
        });
}

// ---------------------------------------------------------------- New item

void ctlServiceItemGallery::NewServiceItem(qint32 SIType) {
    Entry(QStringLiteral("NewServiceItem"))
        .Arg(QStringLiteral("SIType"), SIType)
        .Enter()
        .ErrorBox([&] {
            QString strErrorMessage;
            qint32 lngNewID = 0;
            DataAccess::Instance().AddServiceItem(QString(), QString(), QString(), SIType,
                                                  strErrorMessage, true, lngNewID);
            GalleryCore::ReportFailure(
                QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:NewServiceItem: "),
                strErrorMessage);
            ShowServiceItems();
            SelectServiceItem(lngNewID);
            emit NewServiceItemAdded(lngNewID);
        });
}

// ---------------------------------------------------------------- Nodes of the parent

void ctlServiceItemGallery::HideServiceItem(const QString& strWhichItem, qint32 lngSIID) {
    QVariant varWhichItem(strWhichItem);
    HideServiceItem(varWhichItem, lngSIID);
}

// Removes one node (only the first, when the item stands under several keywords)
// and its group when that is left empty. The database is not touched.
void ctlServiceItemGallery::HideServiceItem(QVariant& WhichItem, qint32 lngSIID) {
    Entry(QStringLiteral("HideServiceItem"))
        .Arg(QStringLiteral("WhichItem"), WhichItem)
        .Arg(QStringLiteral("lngSIID"), lngSIID)
        .Enter()
        .ErrorBox([&] {
            if (tvwServiceItems->isHidden())
                return;
            if (lngSIID != 0) {
                const QString strEnd = Table().strItemMark + QString::number(lngSIID);
                bool blnFound = false;
                for (qint32 i = 1; i <= tvwServiceItems->Count(); ++i) {
                    const QString strKey = tvwServiceItems->Nodes(i).Key();
                    if (strKey.endsWith(strEnd)) {
                        WhichItem = strKey;
                        blnFound = true;
                        break;
                    }
                }
                if (!blnFound && VB::Text(WhichItem).isEmpty())
                    return;
            }
            const QString strKey = VB::Text(WhichItem);
            const QString strParentKey = tvwServiceItems->Nodes(strKey).Parent().Key();
            tvwServiceItems->Remove(strKey);
            if (tvwServiceItems->Nodes(strParentKey).Children() == 0)
                tvwServiceItems->Remove(strParentKey);
        });
}

// Adds a node of the parent's making; a missing group node is made from the row
// of its group value. The database is not touched.
void ctlServiceItemGallery::AddServiceItem(const QString& strParentKey, const QString& strKey,
                                           const QString& strText, qint16 intImageID) {
    Entry(QStringLiteral("AddServiceItem"))
        .Arg(QStringLiteral("strParentKey"), strParentKey)
        .Arg(QStringLiteral("strKey"), strKey)
        .Arg(QStringLiteral("strText"), strText)
        .Arg(QStringLiteral("intImageID"), intImageID)
        .Enter()
        .ErrorBox([&] {
            if (tvwServiceItems->isHidden())
                return;
            if (!tvwServiceItems->KeyExists(strParentKey)) {
                const QString strGroupBy = cboGroupByProperty->currentText();
                const GalleryGroup group = Table().Group(strGroupBy);
                const QString& strValueField = group.strValueField;
                const QString& strTextField = group.strTextField;
                QString strValue =
                    GetWhatComesBetween(strKey, QStringLiteral(";"), QStringLiteral(";;"));
                if (LooksLikeDate(strValue))
                    strValue = QStringLiteral("#") + strValue + QStringLiteral("#");
                else if (!VB::IsNumeric(strValue))
                    strValue = QStringLiteral("'") + strValue + QStringLiteral("'");
                QString strErrorMessage;
                std::unique_ptr<Recordset> rs;
                DataAccess::Instance().GetServiceItemsJoined(
                    strValueField + QStringLiteral(" = ") + strValue, 4, strErrorMessage, rs);
                if (!rs)
                    throw VBError(VBErr::ObjectNotSet);
                VBNode node = tvwServiceItems->Add(QStringLiteral("Root"), tvwChild, strParentKey,
                                                   VB::Text(rs->Fields(strTextField)),
                                                   QStringLiteral("imgFolderClosed"));
                node.setTag(strGroupBy);
                SortChildrenOf(QStringLiteral("Root"));
            }
            VBNode node = tvwServiceItems->Add(strParentKey, tvwChild, strKey, strText);
            SetNodeImage(node, intImageID);
            // The levels were sorted by the load and stay sorted.
            SortChildrenOf(strParentKey);
        });
}

void ctlServiceItemGallery::SortChildrenOf(const QString& strKey) {
    if (tvwServiceItems->KeyExists(strKey))
        tvwServiceItems->Nodes(strKey).setSorted(true);
}

// ---------------------------------------------------------------- Shared routines

QString ctlServiceItemGallery::SelectedIdOfShownView() const {
    const VBNode node = m_core->ShownSelection();
    return node ? m_core->IdOf(m_core->ShownView(), node.Key()) : QString();
}
