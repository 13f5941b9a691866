// ctlServiceItemGallery: handing the selection to the export and the print
// wizard of the data library.

#include "galleries/ctlServiceItemGallery.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QComboBox>
#include <QDateTime>

using namespace modQVLTControls;

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");
} // namespace

// Tree: the root exports every item node shown, an item itself, a group its
// children. List: the selected items.
void ctlServiceItemGallery::ExportSelection() {
    TraceLine(kClass, QStringLiteral("ExportSelection")).Write();
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(kClass, QStringLiteral("ExportSelection")), [&] {
            QString strIDs;
            QString strDescription;
            if (!tvwServiceItems->isHidden()) {
                const VBNode node = tvwServiceItems->SelectedItem();
                if (!node)
                    return;
                if (node.Key() == QLatin1String("Root")) {
                    for (qint32 i = 1; i <= tvwServiceItems->Count(); ++i) {
                        const VBNode each = tvwServiceItems->Nodes(i);
                        if (!IsFolderImage(each.Image()))
                            strIDs += QStringLiteral(",") +
                                      GetInstance(each.Key(), QStringLiteral(";"), 5);
                    }
                    strDescription =
                        QStringLiteral("All Service Items at ") +
                        VB::Format(QDateTime::currentDateTime(), QStringLiteral("Medium Date"));
                } else if (!IsFolderImage(node.Image())) {
                    strIDs = GetInstance(node.Key(), QStringLiteral(";"), 5);
                    strDescription = node.Text();
                } else if (node.Children() > 0) {
                    VBNode child = node.Child();
                    const VBNode last = child.LastSibling();
                    strIDs = GetInstance(child.Key(), QStringLiteral(";"), 5);
                    while (!(child == last)) {
                        child = child.Next();
                        strIDs +=
                            QStringLiteral(",") + GetInstance(child.Key(), QStringLiteral(";"), 5);
                    }
                    strDescription =
                        QStringLiteral("Service Items for ") +
                        cboGroupByProperty->itemText(cboGroupByProperty->currentIndex()) +
                        QStringLiteral(" ") + node.Text();
                } else {
                    return;
                }
            } else {
                const VBNode selected = lvwServiceItems->SelectedItem();
                if (!selected)
                    return;
                for (qint32 i = 1; i <= lvwServiceItems->topLevelItemCount(); ++i) {
                    const VBNode item = lvwServiceItems->ListItems(i);
                    if (item.Selected())
                        strIDs +=
                            QStringLiteral(",") + GetInstance(item.Key(), QStringLiteral(";"), 2);
                }
                TrimData(strIDs, QStringLiteral(","));
                strDescription = VB::InStr(strIDs, QStringLiteral(",")) == 0
                                     ? selected.SubItems(1)
                                     : QStringLiteral("Selection of Service Items");
            }
            TrimData(strIDs, QStringLiteral(","));
            QString strErrorMessage;
            DataAccess::Instance().ExportServiceItems(strIDs, strDescription, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                const QString strText =
                    QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:ExportSelection : ") +
                    strErrorMessage;
                Platform::Current().MsgBox(strText);
                TraceLog::Instance().WriteErrorLine(strText);
            }
        });
}

void ctlServiceItemGallery::PrintSelection() {
    TraceLine(kClass, QStringLiteral("PrintSelection")).Write();
    ErrorReport::TryErrorBox(QStringLiteral("PrintSelection: Error number is "), [&] {
        bool blnInstalled = false;
        DataAccess::Instance().IsWordInstalled(QString(), QString(), blnInstalled);
        if (!blnInstalled) {
            Platform::Current().MsgBox(
                QStringLiteral("Microsoft Word 97 or later cannot be found on this computer. To "
                               "avail of the reporting features of Corvantis you must install it"),
                vbOKOnly, QStringLiteral("Microsoft Word NOT installed"));
            return;
        }
        qint32 lngID = 0;
        bool blnSelected = false;
        if (!tvwServiceItems->isHidden()) {
            const VBNode node = tvwServiceItems->SelectedItem();
            if (node) {
                blnSelected = true;
                lngID = VB::CLng(GetInstance(node.Key(), QStringLiteral(";"), 5));
            }
        } else {
            const VBNode item = lvwServiceItems->SelectedItem();
            if (item) {
                blnSelected = true;
                lngID = VB::CLng(GetInstance(item.Key(), QStringLiteral(";"), 2));
            }
        }
        if (!blnSelected)
            return;
        QString strErrorMessage;
        DataAccess::Instance().PrintServiceItem(lngID, strErrorMessage);
        if (!strErrorMessage.isEmpty()) {
            const QString strText =
                QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:PrintSelection : ") +
                strErrorMessage;
            Platform::Current().MsgBox(strText);
            TraceLog::Instance().WriteErrorLine(strText);
        }
    });
}
