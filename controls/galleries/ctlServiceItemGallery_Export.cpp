// ctlServiceItemGallery: handing the selection to the export and the print
// wizard of the data library.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

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
    Entry(QStringLiteral("ExportSelection")).Enter().FullErrorBox([&] {
        QString strIDs;
        QString strDescription;
        const VBNode selected = lvwServiceItems->SelectedItem();
        if (!m_core->ExportSelection(strIDs, strDescription,
                                     selected ? selected.SubItems(1) : QString()))
            return;
        QString strErrorMessage;
        DataAccess::Instance().ExportServiceItems(strIDs, strDescription, strErrorMessage);
        GalleryCore::ReportFailure(
            QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:ExportSelection : "),
            strErrorMessage);
    });
}

void ctlServiceItemGallery::PrintSelection() {
    Entry(QStringLiteral("PrintSelection"))
        .WithPrefix(QStringLiteral("PrintSelection: Error number is "))
        .Enter()
        .ErrorBox([&] {
            bool blnInstalled = false;
            DataAccess::Instance().IsWordInstalled(QString(), QString(), blnInstalled);
            if (!blnInstalled) {
                Platform::Current().MsgBox(
                    QStringLiteral(
                        "Microsoft Word 97 or later cannot be found on this computer. To "
                        "avail of the reporting features of Corvantis you must install it"),
                    vbOKOnly, QStringLiteral("Microsoft Word NOT installed"));
                return;
            }
            if (!m_core->ShownSelection())
                return;
            const qint32 lngID = VB::CLng(SelectedIdOfShownView());
            QString strErrorMessage;
            DataAccess::Instance().PrintServiceItem(lngID, strErrorMessage);
            GalleryCore::ReportFailure(
                QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:PrintSelection : "),
                strErrorMessage);
        });
}
