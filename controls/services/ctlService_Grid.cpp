#include "services/ctlService.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"
#include "serviceitems/QVTimeSelector.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

// The Content tab's grid fgItemsInService: one row per use of a service item
// in the service, in running order. Row 0 is the header; an empty service keeps
// one empty row, row 1, because the grid's last row cannot go. A row holds an
// item exactly when its column 1 (the type) is not empty. Columns:
//   0 the row number, 1 six blanks and the type's name behind its picture,
//   2 the description, 3 "Show at run time" (Yes/No, edited with cboYesNo),
//   4 "Show as Points List", 5 the length (width 0), 6 the type id (width 0),
//   7 the service item id (width 0).
// Everything a save needs stands in the cells; the save deletes the service's
// rows and writes them again, top to bottom.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlService"), QString::fromLatin1(member));
}

constexpr qint32 kHeaderHeight = 500;
constexpr qint32 kRowHeight = 260;
constexpr qint32 kColumnWidths[ctlService::colCount] = {300, 1580, 4200, 900, 900, 0, 0, 0};
const QString kSixBlanks = QStringLiteral("      ");

QString Decoded(const QString& strText) {
    if (!strText.contains(QLatin1String("@@")))
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}
} // namespace

// ---- Cells ----

QString ctlService::Cell(qint32 lngRow, qint32 lngCol) const {
    const QTableWidgetItem* item = fgItemsInService->item(lngRow, lngCol);
    return item ? item->text() : QString();
}

void ctlService::SetCell(qint32 lngRow, qint32 lngCol, const QString& strText) {
    QTableWidgetItem* item = fgItemsInService->item(lngRow, lngCol);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        fgItemsInService->setItem(lngRow, lngCol, item);
    }
    item->setText(strText);
}

bool ctlService::RowHoldsItem(qint32 lngRow) const {
    return !Cell(lngRow, colType).isEmpty();
}

void ctlService::ClearRow(qint32 lngRow) {
    for (qint32 c = 0; c < colCount; ++c)
        SetCell(lngRow, c, QString());
    fgItemsInService->setCurrentCell(lngRow, colType);
    SetCellPicture(lngRow, 0);
}

void ctlService::SetCellPicture(qint32 lngRow, qint16 intTypeID) {
    if (!fgItemsInService->item(lngRow, colType))
        SetCell(lngRow, colType, QString());
    fgItemsInService->item(lngRow, colType)
        ->setIcon(intTypeID > 0 ? imgSITypes->Icon(static_cast<int>(intTypeID)) : QIcon());
}

void ctlService::InsertRow(qint32 lngIndex, const QString& strTabbedCells) {
    fgItemsInService->insertRow(lngIndex);
    const QStringList cells = strTabbedCells.split(QLatin1Char('\t'));
    for (qint32 c = 0; c < colCount && c < cells.size(); ++c)
        SetCell(lngIndex, c, cells.at(c));
    fgItemsInService->setRowHeight(lngIndex, Twips::ToPixels(kRowHeight));
}

// Makes the row current at column 1 and selects it to the last column.
void ctlService::SelectRow(qint32 lngRow) {
    fgItemsInService->setCurrentCell(lngRow, colType, QItemSelectionModel::ClearAndSelect);
    fgItemsInService->setRangeSelected(
        QTableWidgetSelectionRange(lngRow, colType, lngRow, colCount - 1), true);
}

// The far end of the selection from the current row (the current row itself
// when nothing more is selected).
static qint32 RowSel(const QTableWidget* fg) {
    const qint32 lngRow = fg->currentRow();
    for (const QTableWidgetSelectionRange& range : fg->selectedRanges())
        if (range.topRow() <= lngRow && lngRow <= range.bottomRow())
            return range.topRow() == lngRow ? range.bottomRow() : range.topRow();
    return lngRow;
}

// ---- Loading ----

void ctlService::LoadContent() {
    const auto entry =
        Entry("LoadContent")
            .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlService:LoadContent: Error number is "))
            .Enter();
    entry.ErrorBox([&] {
        EnsureContentTab();
        const bool blnApply = cmdApplyChanges->isEnabled();
        ShowItemGallery();
        QString strErrorMessage;
        AddSIsThatArePartOfService(strErrorMessage);
        m_cycle->Clear(1);
        cmdApplyChanges->setEnabled(blnApply);
        blnContentLoaded = true;
        ShowTotalLength();
    });
}

// The item gallery reads every service item, which on a large database takes
// far longer than the rows of one service. A grid on screen therefore shows
// the service first: the gallery loads right after the grid's first paint
// (eventFilter), and fills in beside it. A grid not on screen loads it at once.
void ctlService::ShowItemGallery() {
    if (fgItemsInService->isVisible()) {
        m_blnItemGalleryPending = true;
        m_blnItemGalleryLoaded = false;
        fgItemsInService->viewport()->update();
        return;
    }
    LoadItemGallery();
}

void ctlService::LoadItemGallery() {
    m_blnItemGalleryPending = false;
    ctlServiceItemGallery1->ShowServiceItems();
    m_blnItemGalleryLoaded = true;
}

void ctlService::AddSIsThatArePartOfService(QString& strErrorMessage) {
    const auto entry =
        Entry("AddSIsThatArePartOfService")
            .WithPrefix(QStringLiteral("AddSIsThatArePartOfService: Error number is "))
            .Enter();
    entry.ErrorBox([&] {
        EnsureContentTab();
        blnGridIdle = false;
        QTableWidget* fg = fgItemsInService;
        if (fg->rowCount() < 2)
            fg->setRowCount(2);
        for (qint32 c = 0; c < colCount; ++c)
            fg->setColumnWidth(c, Twips::ToPixels(kColumnWidths[c]));
        fg->setRowHeight(0, Twips::ToPixels(kHeaderHeight));
        for (qint32 r = 1; r < fg->rowCount(); ++r)
            fg->setRowHeight(r, Twips::ToPixels(kRowHeight));
        fg->setWordWrap(true);
        const QStringList headers = {QString(),
                                     QStringLiteral(" Type"),
                                     QStringLiteral("Description"),
                                     QStringLiteral("Show at run time"),
                                     QStringLiteral("Show as Points List"),
                                     QStringLiteral("Length"),
                                     QString(),
                                     QString()};
        for (qint32 c = 0; c < colCount; ++c) {
            SetCell(0, c, headers.at(c));
            fg->item(0, c)->setFlags(Qt::ItemIsEnabled);
            QFont font = fg->item(0, c)->font();
            font.setBold(true);
            fg->item(0, c)->setFont(font);
        }
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetServiceContents(
            QStringLiteral("ServiceID = ") + QString::number(lngServiceID), 4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            TraceLog::Instance().WriteErrorLine(strErrorMessage);
            return;
        }
        // Empties what stands below row 2 by taking row 3 away. On a grid of
        // exactly 3 rows there is no row 3: a grid that held two or more items
        // cannot be filled a second time by the same instance.
        while (fg->rowCount() > 2) {
            if (fg->rowCount() <= 3)
                throw VBError(30009, QStringLiteral("Invalid Row value"));
            fg->removeRow(3);
        }
        ClearRow(1);
        if (rs->RecordCount() == 0) {
            cmdDeleteSI->setEnabled(false);
            blnGridIdle = true;
            return;
        }
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            bool blnShow = VB::CBool(rs->Fields(QStringLiteral("ShowAtRunTime")));
            AddServiceItemToServiceGrid(VB::CLng(rs->Fields(QStringLiteral("ServiceItemID"))),
                                        blnShow, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(QStringLiteral("AddSIsThatArePartOfService: ") +
                                                    strErrorMessage);
                return;
            }
        }
        SortOutNumbering();
        cmdDeleteSI->setEnabled(false);
        blnGridIdle = true;
    });
}

void ctlService::AddServiceItemToServiceGrid(qint32 lngSIID, bool& blnShowAtRunTime,
                                             QString& strErrorMessage) {
    const auto entry = Entry("AddServiceItemToServiceGrid")
                           .Arg(QStringLiteral("lngSIID"), lngSIID)
                           .Arg(QStringLiteral("blnShowAtRunTime"), blnShowAtRunTime)
                           .Spelt()
                           .Enter();
    entry.ErrorBox([&] {
        EnsureContentTab();
        blnGridIdle = false;
        const bool blnBlank = lngSIID == 1;
        DataAccess& da = DataAccess::Instance();
        const QString strPrefix =
            QStringLiteral("QVLTCONTROLS:ctlService:AddServiceItemToServiceGrid : ");
        std::unique_ptr<Recordset> rs;
        da.GetServiceItems(QStringLiteral("ServiceItemID = ") + QString::number(lngSIID), 4,
                           strErrorMessage, rs);
        if (strErrorMessage.isEmpty() && rs->RecordCount() == 0)
            strErrorMessage =
                strPrefix + QStringLiteral("No record found for SI ") + QString::number(lngSIID);
        else if (!strErrorMessage.isEmpty())
            strErrorMessage = strPrefix + strErrorMessage;
        if (!strErrorMessage.isEmpty()) {
            TraceLog::Instance().WriteErrorLine(strErrorMessage);
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        const qint16 intTypeID = VB::CInt(rs->Fields(QStringLiteral("ServiceItemTypeID")));
        QString strDescription;
        da.GetServiceItemDescription(lngSIID, strErrorMessage, strDescription);
        strDescription = Decoded(strDescription);
        if (!strErrorMessage.isEmpty()) {
            TraceLog::Instance().WriteErrorLine(QStringLiteral("AddServiceItemToGrid:") +
                                                strErrorMessage);
            return;
        }
        QString strType;
        if (blnBlank) {
            strType = kSixBlanks + QStringLiteral("Blank");
            blnShowAtRunTime = true; // a planned gap always shows
        } else {
            QString strTypeName;
            da.GetServiceItemTypeName(intTypeID, strErrorMessage, strTypeName);
            strType = kSixBlanks + strTypeName;
        }
        const QString strShow = blnShowAtRunTime ? QStringLiteral("Yes") : QStringLiteral("No");
        QString strPoints = QStringLiteral("No");
        if (!blnBlank) {
            bool blnPoints = false;
            strErrorMessage.clear();
            da.GetServiceItemShowAsPoints(lngSIID, strErrorMessage, blnPoints);
            if (blnPoints && !strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            strErrorMessage.clear();
            strPoints = blnPoints ? QStringLiteral("Yes") : QStringLiteral("No");
        }
        const QStringList cells = {QStringLiteral("1"),
                                   strType,
                                   strDescription,
                                   strShow,
                                   strPoints,
                                   QStringLiteral("0"),
                                   QString::number(intTypeID),
                                   QString::number(lngSIID)};
        QTableWidget* fg = fgItemsInService;
        if (!RowHoldsItem(1) && fg->rowCount() == 2) {
            // The new item takes the empty row of an empty service.
            SelectRow(1);
            for (qint32 c = colType; c < colCount; ++c)
                SetCell(1, c, cells.at(c));
            SetCellPicture(1, blnBlank ? 0 : intTypeID);
        } else {
            const qint32 lngRow = qMax(fg->currentRow(), 0);
            InsertRow(lngRow + 1, cells.join(QLatin1Char('\t')));
            if (QTableWidgetItem* item = fg->item(lngRow, colDescription))
                item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            fg->setCurrentCell(lngRow + 1, colType, QItemSelectionModel::ClearAndSelect);
            SetCellPicture(lngRow + 1, blnBlank ? 0 : intTypeID);
        }
        SortOutNumbering();
        blnGridIdle = true;
    });
}

// ---- Numbering ----

void ctlService::RedoNumbering() {
    const auto entry = Entry("RedoNumbering").Enter();
    entry.FullErrorBox([&] {
        EnsureContentTab();
        if (fgItemsInService->currentRow() >= 0)
            fgItemsInService->setCurrentCell(fgItemsInService->currentRow(), colNumber);
        SortOutNumbering();
    });
}

// The number of a row is its position: Blank rows and hidden rows count.
void ctlService::SortOutNumbering() {
    const auto entry = Entry("SortOutNumbering").Enter();
    entry.FullErrorBox([&] {
        EnsureContentTab();
        for (qint32 r = 1; r < fgItemsInService->rowCount(); ++r)
            SetCell(r, colNumber, RowHoldsItem(r) ? QString::number(r) : QString());
        ShowTotalLength();
    });
}

void ctlService::SetUpAddingToServiceButtons() {
    const auto entry = Entry("SetUpAddingToServiceButtons").Enter();
    entry.FullErrorBox([] {});
}

// ---- Adding ----

void ctlService::MakeControlDirty() {
    const auto entry = Entry("MakeControlDirty").Enter();
    entry.FullErrorBox([&] { m_cycle->Changed(1); });
}

void ctlService::HideCellEditors() {
    if (!fgItemsInService)
        return;
    // The grid takes the focus back from an editor before it hides, so that
    // the focus does not travel on by tab order, which would move the cell.
    const QWidget* focus = QApplication::focusWidget();
    if (focus && (cboYesNo->isAncestorOf(focus) || QVTimeSelector1->isAncestorOf(focus) ||
                  focus == cboYesNo))
        fgItemsInService->setFocus(Qt::OtherFocusReason);
    cboYesNo->hide();
    QVTimeSelector1->hide();
}

void ctlService::cmdAddBlank_Click() {
    const auto entry = Entry("cmdAddBlank_Click").Enter();
    entry.Guarded([&] {
        bool blnShow = true;
        QString strErrorMessage;
        AddServiceItemToServiceGrid(1, blnShow, strErrorMessage);
        if (!strErrorMessage.isEmpty()) {
            const QString strText = QStringLiteral("cmdAddBlank_Click: ") + strErrorMessage;
            Platform::Current().MsgBox(strText);
            TraceLog::Instance().WriteErrorLine(strText);
            return;
        }
        HideCellEditors();
        MakeControlDirty();
    });
}

// Every item of a multiple selection takes the run-time default of the type
// of the gallery's selected item.
void ctlService::cmdMoveOneSIToService_Click() {
    const auto entry = Entry("cmdMoveOneSIToService_Click").Enter();
    entry.Guarded([&] {
        const qint16 intImage = ctlServiceItemGallery1->SelectedItemImage();
        if (intImage == 19 || intImage == 18) {
            cmdMoveOneSIToService->setEnabled(false);
            return;
        }
        const QStringList ids = ctlServiceItemGallery1->SelectedServiceItems().split(
            QLatin1Char(','), Qt::SkipEmptyParts);
        DataAccess& da = DataAccess::Instance();
        for (const QString& strID : ids) {
            QString strErrorMessage;
            bool blnShow = true;
            da.GetDefaultShowAtRunTime(intImage, strErrorMessage, blnShow);
            if (strErrorMessage.isEmpty())
                AddServiceItemToServiceGrid(VB::CLng(strID.trimmed()), blnShow, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                TraceLog::Instance().WriteErrorLine(strErrorMessage);
                return;
            }
        }
        HideCellEditors();
        MakeControlDirty();
    });
}

void ctlService::ctlServiceItemGallery1_SIClicked(const QString&, const QString&, const QString&,
                                                  const QString&, const QString& strType) {
    cmdMoveOneSIToService->setEnabled(strType == QLatin1String("SI"));
}

void ctlService::ctlServiceItemGallery1_SIDblClicked() {
    cmdMoveOneSIToService_Click();
}

// ---- Moving and removing rows ----

void ctlService::MoveRow(qint32 lngBy) {
    HideCellEditors();
    QTableWidget* fg = fgItemsInService;
    const qint32 lngRow = fg->currentRow();
    const qint32 lngTo = lngRow + lngBy;
    if (lngRow < 1 || lngTo < 1 || lngTo >= fg->rowCount())
        throw VBError(30009, QStringLiteral("Invalid Row value"));
    for (qint32 c = 0; c < colCount; ++c) {
        QTableWidgetItem* a = fg->takeItem(lngRow, c);
        QTableWidgetItem* b = fg->takeItem(lngTo, c);
        fg->setItem(lngRow, c, b);
        fg->setItem(lngTo, c, a);
    }
    RedoNumbering();
    fg->setCurrentCell(lngTo, colNumber, QItemSelectionModel::ClearAndSelect);
    fg->setRangeSelected(QTableWidgetSelectionRange(lngTo, colNumber, lngTo, colCount - 1), true);
    MakeControlDirty();
}

void ctlService::cmdMoveServiceSIDown_Click() {
    const auto entry = Entry("cmdMoveServiceSIDown_Click").Enter();
    entry.Guarded([&] { MoveRow(1); });
}

void ctlService::cmdMoveServiceSIUp_Click() {
    const auto entry = Entry("cmdMoveServiceSIUp_Click").Enter();
    entry.Guarded([&] { MoveRow(-1); });
}

void ctlService::cmdDeleteSI_Click() {
    const auto entry = Entry("cmdDeleteSI_Click").Enter();
    entry.Guarded([&] {
        HideCellEditors();
        QTableWidget* fg = fgItemsInService;
        const qint32 lngRow = fg->currentRow();
        const qint32 lngRowSel = RowSel(fg);
        const QString strType = Cell(lngRow, colType).trimmed();
        const QString strDescription = Cell(lngRow, colDescription).trimmed();
        const QString strPrompt = lngRow != lngRowSel
                                      ? QStringLiteral("Are you sure you want to remove the "
                                                       "selected Service Items from your service")
                                      : QStringLiteral("Are you sure you want to remove the ") +
                                            strType + QStringLiteral(" '") + strDescription +
                                            QStringLiteral("' from your service");
        const qint32 lngAnswer =
            Platform::Current().MsgBox(strPrompt, vbYesNoCancel | vbQuestion | vbDefaultButton2,
                                       QStringLiteral("Confirm Removal"));
        if (lngAnswer != vbYes)
            return;
        const qint32 lngFrom = qMin(lngRow, lngRowSel);
        const qint32 lngTo = qMax(lngRow, lngRowSel);
        for (qint32 r = lngTo; r >= lngFrom; --r) {
            if (fg->rowCount() > 2) {
                fg->removeRow(r);
                RedoNumbering();
            } else if (fg->rowCount() == 2) {
                // The last item: its row stays, empty.
                ClearRow(1);
            }
        }
        MakeControlDirty();
        cmdMoveServiceSIUp->setEnabled(false);
        cmdMoveServiceSIDown->setEnabled(false);
        ShowTotalLength();
    });
}

// ---- Cell rules ----

void ctlService::fgItemsInService_EnterCell() {
    QTableWidget* fg = fgItemsInService;
    const qint32 lngRow = fg->currentRow();
    if (lngRow < 0)
        return;
    if (!RowHoldsItem(lngRow)) {
        cmdDeleteSI->setEnabled(false);
        return;
    }
    // A click anywhere but in the run-time column selects the row.
    if (blnGridIdle && fg->currentColumn() != colShowAtRunTime) {
        if (fg->currentColumn() != colType)
            fg->setCurrentCell(lngRow, colType);
        fg->setRangeSelected(QTableWidgetSelectionRange(lngRow, colType, lngRow, colCount - 1),
                             true);
    }
    cmdDeleteSI->setEnabled(true);
    if (lngRow != RowSel(fg)) {
        cmdMoveServiceSIUp->setEnabled(false);
        cmdMoveServiceSIDown->setEnabled(false);
        return;
    }
    cmdMoveServiceSIDown->setEnabled(fg->rowCount() > lngRow + 1);
    cmdMoveServiceSIUp->setEnabled(lngRow > 1);
}

void ctlService::fgItemsInService_SelChange() {
    QTableWidget* fg = fgItemsInService;
    const qint32 lngRow = fg->currentRow();
    if (lngRow >= 0 && lngRow == RowSel(fg) && RowHoldsItem(lngRow)) {
        cmdMoveServiceSIDown->setEnabled(fg->rowCount() > lngRow + 1);
        cmdMoveServiceSIUp->setEnabled(lngRow > 1);
        return;
    }
    cmdMoveServiceSIUp->setEnabled(false);
    cmdMoveServiceSIDown->setEnabled(false);
}

void ctlService::fgItemsInService_RowColChange() {
    if (!blnContentLoaded)
        return;
    QTableWidget* fg = fgItemsInService;
    const qint32 lngRow = fg->currentRow();
    const qint32 lngCol = fg->currentColumn();
    if (lngCol == colShowAtRunTime) {
        QVTimeSelector1->hide();
        const QString strCell = Cell(lngRow, lngCol);
        if (strCell.isEmpty() || lngRow == 0)
            return cboYesNo->hide();
        const QRect rcCell = fg->visualItemRect(fg->item(lngRow, lngCol));
        const QPoint ptAt = fg->viewport()->mapTo(fg, rcCell.topLeft());
        cboYesNo->setGeometry(ptAt.x(), ptAt.y(), rcCell.width(), cboYesNo->sizeHint().height());
        cboYesNo->show();
        cboYesNo->setFocus();
        // Choosing the entry by code is a click too: the contents turn dirty.
        if (strCell == QLatin1String("Yes") || strCell == QLatin1String("No")) {
            cboYesNo->setCurrentIndex(strCell == QLatin1String("Yes") ? 0 : 1);
            cboYesNo_Click();
        } else {
            cboYesNo->setCurrentIndex(-1);
        }
    } else if (lngCol == colLength) {
        cboYesNo->hide();
        if (!RowHoldsItem(lngRow) || lngRow == 0)
            return QVTimeSelector1->hide();
        PlaceTimeSelector();
        QVTimeSelector1->show();
        QVTimeSelector1->setFocus();
        QVTimeSelector1->setShortTime(Cell(lngRow, lngCol));
    } else {
        HideCellEditors();
    }
}

// The selector's right edge meets the length cell's right edge.
void ctlService::PlaceTimeSelector() {
    QTableWidget* fg = fgItemsInService;
    const qint32 lngRow = qMax(fg->currentRow(), 1);
    const QPoint ptTop(fg->columnViewportPosition(colLength), fg->rowViewportPosition(lngRow));
    const QPoint ptAt = fg->viewport()->mapTo(fg, ptTop);
    const QSize size = QVTimeSelector1->sizeHint();
    QVTimeSelector1->setGeometry(ptAt.x() - size.width() + fg->columnWidth(colLength), ptAt.y(),
                                 size.width(), size.height());
}

void ctlService::fgItemsInService_LeaveCell() {
    HideCellEditors();
}

void ctlService::fgItemsInService_Scroll() {
    cboYesNo->hide();
}

void ctlService::cboYesNo_Click() {
    QTableWidget* fg = fgItemsInService;
    if (fg->currentRow() < 1)
        return;
    SetCell(fg->currentRow(), fg->currentColumn(), cboYesNo->currentText());
    MakeControlDirty();
}

void ctlService::QVTimeSelector1_Changed() {
    QTableWidget* fg = fgItemsInService;
    if (fg->currentRow() < 1)
        return;
    SetCell(fg->currentRow(), fg->currentColumn(), QVTimeSelector1->ShortTime());
    MakeControlDirty();
    ShowTotalLength();
}

void ctlService::QVTimeSelector1_EnterButtonPressed() {
    QVTimeSelector1->hide();
}

void ctlService::QVTimeSelector1_Resized() {
    if (QVTimeSelector1->isVisible())
        PlaceTimeSelector();
}

// The length of the whole service, from the lengths of its rows.
void ctlService::ShowTotalLength() {
    qint32 lngSeconds = 0;
    for (qint32 r = 1; r < fgItemsInService->rowCount(); ++r)
        if (RowHoldsItem(r)) {
            const QString strLength = Cell(r, colLength);
            if (!strLength.isEmpty() && strLength != QLatin1String("0"))
                lngSeconds += QVTimeSelector1->ConvertTimeToSeconds(strLength);
        }
    lblTotalLength->setText(QStringLiteral("Total length: %1:%2:%3")
                                .arg(lngSeconds / 3600)
                                .arg((lngSeconds / 60) % 60, 2, 10, QLatin1Char('0'))
                                .arg(lngSeconds % 60, 2, 10, QLatin1Char('0')));
}

// ---- Saving ----

// The rows go to the data library in one batch, top to bottom; the placeholder
// row of an empty service holds no item and is left out.
bool ctlService::SaveContents() {
    // A Content tab never made has no rows changed: the stored rows stay.
    if (!fgItemsInService)
        return true;
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    da.DeleteServiceContents(lngServiceID, strErrorMessage);
    QList<DataAccess::ServiceContentRow> rows;
    rows.reserve(fgItemsInService->rowCount());
    for (qint32 r = 1; r < fgItemsInService->rowCount(); ++r)
        if (RowHoldsItem(r))
            rows.append({VB::CLng(Cell(r, colSIID)),
                         Cell(r, colShowAtRunTime) == QLatin1String("Yes"), Cell(r, colLength)});
    da.AddServiceContentItems(lngServiceID, rows, strErrorMessage);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return false;
    }
    m_cycle->Clear(1);
    return true;
}
