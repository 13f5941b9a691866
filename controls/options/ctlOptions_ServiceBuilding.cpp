// Tab 1, " Service Building": per service item type the defaults that a new
// row of a service takes, in a grid edited through a Yes/No combo that floats
// over the current cell.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "options/OptionsHelpers.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
const QString kYes = QStringLiteral("Yes");
const QString kNo = QStringLiteral("No");

// Columns of fgServiceItemTypes: header, width in twips, the type's field.
struct GridColumn {
    QString Header;
    qint32 Width;
    QString Field;
};
const GridColumn kColumns[] = {
    {QStringLiteral("Type"), 1900, QStringLiteral("ServiceItemTypeName")},
    {QStringLiteral("Show at Run Time"), 1650, QStringLiteral("ByDefaultShowAtRuntime")},
    {QStringLiteral("By default include Service Items of this type on service sheets"), 1800,
     QStringLiteral("ByDefaultIncludeTitleOnServiceSheet")},
    {QStringLiteral(
         "By default include the content of Service Items of this type on service sheets"),
     1800, QStringLiteral("ByDefaultIncludeContentOnServiceSheet")},
    {QString(), 0, QStringLiteral("ServiceItemTypeID")},
};
constexpr int kColumnCount = 5;
constexpr int kTypeIdColumn = 4;
constexpr qint32 kHeaderRowHeight = 800;
constexpr qint32 kRowHeight = 315;

QTableWidgetItem* NewCell(const QString& strText, Qt::Alignment alignment) {
    auto* cell = new QTableWidgetItem(strText);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    cell->setTextAlignment(alignment);
    return cell;
}

} // namespace

QWidget* ctlOptions::CreateServiceBuildingTab() {
    imgSITypes = new VBImageList(QStringLiteral("imgSITypes"), this);
    StandardIcons::FillServiceItemImages(*imgSITypes);

    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    auto* lblExplain =
        Named(new QLabel(QStringLiteral("What a new row of a service takes from the type of its "
                                        "Service Item. Click a Yes or No to change it.")),
              QStringLiteral("lblServiceBuilding"));
    lblExplain->setWordWrap(true);
    column->addWidget(lblExplain);
    fgServiceItemTypes = Named(new QTableWidget(page), QStringLiteral("fgServiceItemTypes"));
    // Row 0 is the grid's own header row, as in a flex grid: the data rows are
    // numbered from 1.
    fgServiceItemTypes->horizontalHeader()->hide();
    fgServiceItemTypes->verticalHeader()->hide();
    fgServiceItemTypes->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fgServiceItemTypes->setSelectionMode(QAbstractItemView::SingleSelection);
    fgServiceItemTypes->setSelectionBehavior(QAbstractItemView::SelectItems);
    fgServiceItemTypes->setWordWrap(true);
    fgServiceItemTypes->setTextElideMode(Qt::ElideNone);
    column->addWidget(fgServiceItemTypes, 1);

    // Not in the layout: it floats over the current cell.
    cboCombo = Named(new QComboBox(page), QStringLiteral("cboCombo"));
    cboCombo->addItems({kYes, kNo});
    cboCombo->setCurrentIndex(-1);
    cboCombo->hide();
    return page;
}

void ctlOptions::ConnectServiceBuildingTab() {
    connect(fgServiceItemTypes, &QTableWidget::currentCellChanged, this,
            &ctlOptions::fgServiceItemTypes_RowColChange);
    connect(cboCombo, &QComboBox::currentIndexChanged, this, &ctlOptions::cboCombo_Click);
}

void ctlOptions::LoadServiceBuildingTab() {
    const auto entry = MemberEntry(kClass, QStringLiteral("LoadServiceBuildingTab")).Enter();
    entry.FullErrorBox([&] {
        QTableWidget* fg = fgServiceItemTypes;
        fg->clear();
        fg->setColumnCount(kColumnCount);
        fg->setRowCount(1);
        fg->setRowHeight(0, Twips::ToPixels(kHeaderRowHeight));
        for (int col = 0; col < kColumnCount; ++col) {
            fg->setColumnWidth(col, Twips::ToPixels(kColumns[col].Width));
            auto* header = NewCell(kColumns[col].Header, Qt::AlignCenter);
            // A little smaller than the cells, so that the long headers fit
            // their narrow columns in the header row's height.
            QFont bold = fg->font();
            bold.setBold(true);
            bold.setPointSizeF(bold.pointSizeF() * 0.85);
            header->setFont(bold);
            header->setToolTip(kColumns[col].Header);
            header->setFlags(Qt::ItemIsEnabled);
            header->setBackground(fg->palette().button());
            fg->setItem(0, col, header);
        }
        fg->setColumnHidden(kTypeIdColumn, true);

        QString strErrorMessage;
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetServiceItemTypeDefaults(QString(), 4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty())
            throw VBError(VBErr::InternalError, strErrorMessage);
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const int row = fg->rowCount();
            fg->setRowCount(row + 1);
            fg->setRowHeight(row, Twips::ToPixels(kRowHeight));
            const qint32 lngTypeID = rs->Fields(QStringLiteral("ServiceItemTypeID")).toInt();
            // The cell picture stands before the name, where blanks made room for
            // it in a grid that draws pictures over the text.
            auto* name =
                NewCell(rs->Fields(kColumns[0].Field).toString(), Qt::AlignLeft | Qt::AlignVCenter);
            name->setIcon(lngTypeID >= 1 && lngTypeID <= imgSITypes->Count()
                              ? imgSITypes->Icon(lngTypeID)
                              : QIcon(StandardIcons::ServiceItemType(lngTypeID)));
            name->setToolTip(name->text());
            fg->setItem(row, 0, name);
            for (int col = 1; col <= 3; ++col)
                fg->setItem(row, col,
                            NewCell(StoredFlag(rs->Fields(kColumns[col].Field)) ? kYes : kNo,
                                    Qt::AlignCenter));
            fg->setItem(row, kTypeIdColumn, NewCell(QString::number(lngTypeID), Qt::AlignCenter));
        }
        fg->setCurrentCell(-1, -1);
        m_blnServiceBuildingTabLoaded = true;
    });
}

void ctlOptions::fgServiceItemTypes_RowColChange() {
    if (!m_blnServiceBuildingTabLoaded)
        return;
    const auto entry =
        MemberEntry(kClass, QStringLiteral("fgServiceItemTypes_RowColChange")).Enter();
    entry.Guarded([&] {
        QTableWidget* fg = fgServiceItemTypes;
        const int row = fg->currentRow();
        const int col = fg->currentColumn();
        if (col < 1 || col > 3 || row < 1 || !fg->item(row, col)) {
            cboCombo->hide();
            return;
        }
        const QRect cell = fg->visualItemRect(fg->item(row, col));
        const QPoint topLeft = fg->viewport()->mapTo(cboCombo->parentWidget(), cell.topLeft());
        cboCombo->setGeometry(topLeft.x(), topLeft.y(), cell.width(),
                              std::max(cell.height(), cboCombo->sizeHint().height()));
        cboCombo->show();
        cboCombo->raise();
        cboCombo->setFocus();
        cboCombo->setCurrentIndex(fg->item(row, col)->text() == kYes ? 0 : 1);
    });
}

void ctlOptions::cboCombo_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboCombo_Click")).Enter();
    entry.Guarded([&] {
        QTableWidget* fg = fgServiceItemTypes;
        const int row = fg->currentRow();
        const int col = fg->currentColumn();
        if (cboCombo->currentIndex() < 0 || row < 1 || !fg->item(row, col))
            return;
        fg->item(row, col)->setText(cboCombo->currentText());
        if (col < 1 || col > 3)
            return;
        QString strErrorMessage;
        DataAccess::Instance().SaveServiceItemTypeDefault(
            fg->item(row, kTypeIdColumn)->text().toInt(), kColumns[col].Field,
            cboCombo->currentText() == kYes, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            ReportStoreFailure(QStringLiteral("Option not saved"), strErrorMessage);
    });
}
