// ctlServiceItems: the double click and the commands of the right-click menu.

#include "serviceitems/ctlServiceItems.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QMenu>

namespace {
const QString kClass = QStringLiteral("ctlServiceItems");
} // namespace

qint32 ctlServiceItems::selectedID() const {
    const VBNode item = lvwServiceItems->SelectedItem();
    return item ? FlatList::IDOfKey(item.Key()) : 0;
}

// The menu opens without waiting, so that nothing blocks while it is up.
void ctlServiceItems::PopupMenu(QMenu* mnu) {
    mnu->popup(QCursor::pos());
}

void ctlServiceItems::lvwServiceItems_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt) {
    Q_UNUSED(ptAt);
    const auto entry = MemberEntry(kClass, QStringLiteral("lvwServiceItems_MouseUp"))
                           .Arg(QStringLiteral("Button"), Button)
                           .Arg(QStringLiteral("Shift"), Shift)
                           .Enter();
    entry.FullErrorBox([&] {
        if (Button == vbRightButton)
            PopupMenu(mnuRightCLick);
    });
}

void ctlServiceItems::lvwServiceItems_DblClick() {
    const auto entry = MemberEntry(kClass, QStringLiteral("lvwServiceItems_DblClick")).Enter();
    entry.FullErrorBox([&] {
        const qint32 lngID = selectedID();
        if (lngID == 0)
            return;
        QString strErrorMessage;
        DataAccess::Instance().RunServiceItem(lngID, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(QStringLiteral("lvwServiceItems_DblClick:") +
                                       strErrorMessage);
        else
            emit DblClick(lngID);
    });
}

// A new item with empty fields; the list's owner selects it on the event.
void ctlServiceItems::mnuRightCLickNew_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("mnuRightCLickNew_Click")).Enter();
    entry.FullErrorBox([&] {
        QString strErrorMessage;
        qint32 lngNewID = 0;
        DataAccess::Instance().AddServiceItem(QString(), QString(), QString(), 0, strErrorMessage,
                                              true, lngNewID);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(
                QStringLiteral("QVLTCONTROLS:ctlServiceItems:lvwServiceItems_MouseUp: ") +
                strErrorMessage);
        emit ServiceItemsListChanged(lngNewID);
    });
}

void ctlServiceItems::mnuSIOpen_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("mnuSIOpen_Click")).Enter();
}

void ctlServiceItems::mnuSIRun_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("mnuSIRun_Click")).Enter();
    entry.FullErrorBox([&] {
        const qint32 lngID = selectedID();
        if (lngID == 0)
            return;
        QString strErrorMessage;
        DataAccess::Instance().RunServiceItem(lngID, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(QStringLiteral("mnuSIRun_Click:") + strErrorMessage);
    });
}

// Deletes the selected items after asking, then names the entry to select: the
// one now at the place of the deleted entry. The list refuses that place when
// nothing was deleted (No, Cancel), when it held one entry, or when the deleted
// entry was its last; the failure is left to the event boundary, so no event
// is raised then.
void ctlServiceItems::mnuSIDelete_Click() {
    MemberEntry(kClass, QStringLiteral("mnuSIDelete_Click")).Enter();
    const QString strIDs = m_list.SelectedIDs();
    if (strIDs.isEmpty())
        return;
    const QStringList ids = strIDs.split(QLatin1Char(','));
    const bool blnOne = ids.size() == 1;
    const QString strPrompt =
        blnOne ? QStringLiteral("Are you sure you want to delete this Service Item from your "
                                "system? This command cannot be undone.")
               : QStringLiteral("Are you sure you want to delete these Service Items from your "
                                "system? This command cannot be undone.");
    qint32 lngNotedIndex = 0;
    if (Platform::Current().MsgBox(strPrompt, vbYesNoCancel | vbDefaultButton2,
                                   QStringLiteral("Confirm Delete")) == vbYes) {
        const VBNode selected = lvwServiceItems->SelectedItem();
        if (lvwServiceItems->topLevelItemCount() >= 2 && selected)
            lngNotedIndex = selected.Index();
        for (qsizetype i = ids.size() - 1; i >= 0; --i) {
            QString strErrorMessage;
            DataAccess::Instance().DeleteServiceItem(VB::CLng(ids.at(i)), strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
        }
        if (blnOne) {
            delete lvwServiceItems->ListItems(selected.Index()).Item();
        } else {
            for (qint32 i = lvwServiceItems->topLevelItemCount(); i >= 1; --i) {
                const VBNode item = lvwServiceItems->ListItems(i);
                if (item.Selected())
                    delete item.Item();
            }
        }
    }
    const VBNode noted = lvwServiceItems->ListItems(lngNotedIndex);
    emit ServiceItemsListChanged(FlatList::IDOfKey(noted.Key()));
}

void ctlServiceItems::mnuSIExport_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("mnuSIExport_Click")).Enter();
    entry.FullErrorBox([&] {
        const VBNode selected = lvwServiceItems->SelectedItem();
        if (!selected)
            return;
        const QString strIDs = m_list.SelectedIDs();
        const QString strDescription = strIDs.contains(QLatin1Char(','))
                                           ? QStringLiteral("Selection of Service Items")
                                           : selected.SubItems(1);
        QString strErrorMessage;
        DataAccess::Instance().ExportServiceItems(strIDs, strDescription, strErrorMessage);
        // The user asked for the export: a refusal is told, not swallowed.
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
    });
}

void ctlServiceItems::mnuSIPrint_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("mnuSIPrint_Click")).Enter();
    entry.FullErrorBox([&] {
        bool blnInstalled = false;
        DataAccess::Instance().IsWordInstalled(QString(), QString(), blnInstalled);
        if (!blnInstalled) {
            Platform::Current().MsgBox(
                QStringLiteral("Microsoft Word 97 or later cannot be found on this computer. To "
                               "avail of the reporting features of Corvantis you must install it"),
                vbOKOnly, QStringLiteral("Microsoft Word NOT installed"));
            return;
        }
        const qint32 lngID = selectedID();
        if (lngID == 0)
            return;
        QString strErrorMessage;
        DataAccess::Instance().PrintServiceItem(lngID, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(
                QStringLiteral("QVLTCONTROLS:ctlServiceItems:mnuSIPrint_Click  : ") +
                strErrorMessage);
    });
}
