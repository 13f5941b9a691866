#include "foundations/RKLvwBannerFilter.h"

#include "foundations/ErrorReport.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

namespace {
bool rowMatches(const QTreeWidgetItem* item, const QString& strText, int intColumn,
                int intColumns) {
    if (intColumn > 0)
        return item->text(intColumn - 1).contains(strText, Qt::CaseInsensitive);
    for (int c = 0; c < intColumns; ++c) {
        if (item->text(c).contains(strText, Qt::CaseInsensitive))
            return true;
    }
    return false;
}
} // namespace

RKLvwBannerFilter::RKLvwBannerFilter(QWidget* parent) : QWidget(parent) {
    auto* lblFilter = new QLabel(tr("&Filter:"), this);
    lblFilter->setObjectName(QStringLiteral("lblFilter"));
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName(QStringLiteral("txtFilter"));
    txtFilter->setPlaceholderText(tr("Type to narrow the list"));
    lblFilter->setBuddy(txtFilter);
    cboColumn = new QComboBox(this);
    cboColumn->setObjectName(QStringLiteral("cboColumn"));
    cboColumn->setToolTip(tr("The column to look in"));
    cmdClear = new QPushButton(tr("Clear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdClear->setToolTip(tr("Show every row again (Escape)"));
    lblCount = new QLabel(this);
    lblCount->setObjectName(QStringLiteral("lblCount"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(lblFilter);
    row->addWidget(txtFilter, 1);
    row->addWidget(cboColumn);
    row->addWidget(cmdClear);
    row->addWidget(lblCount);

    connect(txtFilter, &QLineEdit::textChanged, this, &RKLvwBannerFilter::txtFilter_Change);
    connect(cboColumn, &QComboBox::activated, this, &RKLvwBannerFilter::cboColumn_Click);
    connect(cmdClear, &QPushButton::clicked, this, &RKLvwBannerFilter::cmdClear_Click);
    txtFilter->installEventFilter(this);
    fillColumns();
    updateCount();
}

RKLvwBannerFilter::~RKLvwBannerFilter() {
    for (const auto& connection : std::as_const(m_connections))
        disconnect(connection);
}

// ---- Binding ---------------------------------------------------------------------------------

void RKLvwBannerFilter::setListView(QTreeWidget* list) {
    if (list == m_list)
        return;
    for (const auto& connection : std::as_const(m_connections))
        disconnect(connection);
    m_connections.clear();
    showAll();
    m_list = list;
    if (m_list) {
        QAbstractItemModel* model = m_list->model();
        m_connections << connect(m_list, &QObject::destroyed, this, [this] {
            m_connections.clear();
            m_list = nullptr;
            fillColumns();
            updateCount();
        });
        m_connections << connect(model, &QAbstractItemModel::rowsInserted, this,
                                 &RKLvwBannerFilter::scheduleRefresh);
        m_connections << connect(model, &QAbstractItemModel::dataChanged, this,
                                 &RKLvwBannerFilter::scheduleRefresh);
        m_connections << connect(model, &QAbstractItemModel::rowsRemoved, this,
                                 &RKLvwBannerFilter::scheduleRefresh);
        m_connections << connect(model, &QAbstractItemModel::modelReset, this,
                                 &RKLvwBannerFilter::scheduleRefresh);
    }
    Refresh();
}

// Rows that arrive or change while a filter is in force are filtered once the
// owner has finished filling them, not one at a time.
void RKLvwBannerFilter::scheduleRefresh() {
    if (m_blnRefreshPending)
        return;
    m_blnRefreshPending = true;
    QTimer::singleShot(0, this, [this] {
        m_blnRefreshPending = false;
        ErrorReport::Guard([&] { applyFilter(); });
    });
}

void RKLvwBannerFilter::Refresh() {
    fillColumns();
    applyFilter();
}

void RKLvwBannerFilter::fillColumns() {
    const int intKept = cboColumn->currentIndex();
    cboColumn->clear();
    cboColumn->addItem(tr("All Columns"));
    if (m_list) {
        const QTreeWidgetItem* header = m_list->headerItem();
        for (int c = 0; c < m_list->columnCount(); ++c)
            cboColumn->addItem(header ? header->text(c) : QString());
    }
    cboColumn->setCurrentIndex(intKept >= 0 && intKept < cboColumn->count() ? intKept : 0);
}

// ---- Filtering --------------------------------------------------------------------------------

QString RKLvwBannerFilter::FilterText() const {
    return txtFilter->text();
}

void RKLvwBannerFilter::setFilterText(const QString& strText) {
    txtFilter->setText(strText);
}

qint32 RKLvwBannerFilter::FilterColumn() const {
    return cboColumn->currentIndex();
}

void RKLvwBannerFilter::setFilterColumn(qint32 intColumn) {
    if (intColumn < 0 || intColumn >= cboColumn->count())
        intColumn = 0;
    cboColumn->setCurrentIndex(intColumn);
    applyFilter();
}

void RKLvwBannerFilter::setItemDescription(const QString& strDescription) {
    m_strItemDescription = strDescription;
    updateCount();
}

void RKLvwBannerFilter::applyFilter() {
    m_lngShown = 0;
    m_lngTotal = 0;
    if (m_list) {
        const QString strText = txtFilter->text().trimmed();
        const int intColumn = cboColumn->currentIndex();
        const int intColumns = m_list->columnCount();
        for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = m_list->topLevelItem(i);
            const bool blnShow =
                strText.isEmpty() || rowMatches(item, strText, intColumn, intColumns);
            if (item->isHidden() == blnShow)
                item->setHidden(!blnShow);
            if (!blnShow && item->isSelected())
                item->setSelected(false);
            m_lngShown += blnShow ? 1 : 0;
        }
        m_lngTotal = m_list->topLevelItemCount();
    }
    updateCount();
    emit FilterApplied(m_lngShown, m_lngTotal);
}

void RKLvwBannerFilter::showAll() {
    if (!m_list)
        return;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
        m_list->topLevelItem(i)->setHidden(false);
}

void RKLvwBannerFilter::updateCount() {
    if (!m_list) {
        lblCount->clear();
        return;
    }
    lblCount->setText(
        tr("Showing %1 of %2 %3").arg(m_lngShown).arg(m_lngTotal).arg(m_strItemDescription));
}

// ---- What the user does ----------------------------------------------------------------------

void RKLvwBannerFilter::txtFilter_Change() {
    ErrorReport::Guard([&] { applyFilter(); });
}

void RKLvwBannerFilter::cboColumn_Click() {
    ErrorReport::Guard([&] { applyFilter(); });
}

void RKLvwBannerFilter::cmdClear_Click() {
    txtFilter->clear();
    txtFilter->setFocus();
}

bool RKLvwBannerFilter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtFilter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape && !txtFilter->text().isEmpty()) {
            txtFilter->clear();
            return true;
        }
        if (key == Qt::Key_Down && m_list) {
            for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
                QTreeWidgetItem* item = m_list->topLevelItem(i);
                if (!item->isHidden()) {
                    m_list->setCurrentItem(item);
                    break;
                }
            }
            m_list->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
