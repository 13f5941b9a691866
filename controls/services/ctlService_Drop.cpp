#include "services/ctlService.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Twips.h"
#include "foundations/VBRuntime.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTableWidget>
#include <QTimer>

// Dragging service items from a gallery into the contents grid. The text of
// the drag is the whole key of the gallery's node; the item id follows
// ";;SI;". While the pointer moves, the row under it becomes current, so that
// the drop lands below it. The grid's viewport filter also notes the grid's
// first paint, after which the item gallery beside it loads (LoadContent).

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlService"), QString::fromLatin1(member));
}
} // namespace

bool ctlService::eventFilter(QObject* watched, QEvent* event) {
    if (fgItemsInService && watched == fgItemsInService->viewport()) {
        switch (event->type()) {
        case QEvent::DragEnter: {
            auto* drag = static_cast<QDragEnterEvent*>(event);
            if (drag->mimeData()->hasText())
                drag->acceptProposedAction();
            return true;
        }
        case QEvent::DragMove: {
            auto* drag = static_cast<QDragMoveEvent*>(event);
            if (drag->mimeData()->hasText())
                drag->acceptProposedAction();
            ContentDragOver(drag->position().toPoint());
            return true;
        }
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            const QString strText = drop->mimeData()->text();
            drop->acceptProposedAction();
            // A failure of the drop has no handler of its own: it is reported
            // at the event's boundary as a run-time error.
            ErrorReport::Guard([&] { ContentDrop(strText); });
            return true;
        }
        case QEvent::Paint:
            // Once the grid is on the screen, the item gallery beside it loads.
            if (m_blnItemGalleryPending) {
                m_blnItemGalleryPending = false;
                QTimer::singleShot(0, this,
                                   [this] { ErrorReport::Guard([this] { LoadItemGallery(); }); });
            }
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

std::pair<qint32, qint32> ctlService::GetRowCol(QTableWidget* fg, qint32 X, qint32 Y) {
    const auto entry =
        Entry("GetRowCol").Arg(QStringLiteral("X"), X).Arg(QStringLiteral("Y"), Y).Enter();
    const qint32 lngX = Twips::ToPixels(X);
    const qint32 lngY = Twips::ToPixels(Y);
    const qint32 lngTopRow = qMax(fg->rowAt(0), 0);
    qint32 lngRow = fg->rowCount();
    for (qint32 r = lngTopRow + 1; r < fg->rowCount(); ++r)
        if (fg->rowViewportPosition(r) > lngY) {
            lngRow = r - 1;
            break;
        }
    if (lngRow >= fg->rowCount() || fg->isRowHidden(lngRow))
        return {-1, -1};
    qint32 lngCol = fg->columnCount();
    for (qint32 c = 1; c < fg->columnCount(); ++c)
        if (fg->columnViewportPosition(c) > lngX) {
            lngCol = c - 1;
            break;
        }
    if (lngCol < fg->columnCount() && !fg->isColumnHidden(lngCol))
        return {lngRow, lngCol};
    return {-1, -1};
}

void ctlService::ContentDragOver(const QPoint& ptPixels) {
    const auto entry = Entry("fgItemsInService_OLEDragOver")
                           .WithPrefix(QStringLiteral("fgItemsInService_OLEDragOver:  "))
                           .Enter();
    entry.ErrorBox([&] {
        const auto [lngRow, lngCol] = GetRowCol(fgItemsInService, Twips::FromPixels(ptPixels.x()),
                                                Twips::FromPixels(ptPixels.y()));
        Q_UNUSED(lngCol);
        if (lngRow >= 1 && lngRow != m_lngLastDragRow) {
            fgItemsInService->setCurrentCell(lngRow, colNumber,
                                             QItemSelectionModel::ClearAndSelect);
            fgItemsInService->setRangeSelected(
                QTableWidgetSelectionRange(lngRow, colNumber, lngRow, colCount - 1), true);
            m_lngLastDragRow = lngRow;
        }
    });
}

void ctlService::ContentDrop(const QString& strText) {
    Entry("fgItemsInService_OLEDragDrop").Enter();
    if (strText.isEmpty())
        return;
    // The id is what follows ";;SI;". Without it the rest of the text is taken
    // as the number, and its conversion fails.
    const qint32 lngAt = VB::InStr(strText, QStringLiteral(";;SI;"));
    const qint32 lngSIID = VB::CLng(VB::Right(strText, VB::Len(strText) - lngAt - 4));
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    qint16 intTypeID = 0;
    da.GetServiceItemTypeID(lngSIID, strErrorMessage, intTypeID);
    bool blnShow = true;
    da.GetDefaultShowAtRunTime(intTypeID, strErrorMessage, blnShow);
    strErrorMessage.clear();
    AddServiceItemToServiceGrid(lngSIID, blnShow, strErrorMessage);
    const qint32 lngRow = fgItemsInService->currentRow();
    if (lngRow >= 0) {
        fgItemsInService->setCurrentCell(lngRow, colNumber, QItemSelectionModel::ClearAndSelect);
        fgItemsInService->setRangeSelected(
            QTableWidgetSelectionRange(lngRow, colNumber, lngRow, colCount - 1), true);
    }
    MakeControlDirty();
}
