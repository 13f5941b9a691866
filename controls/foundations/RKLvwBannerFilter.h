#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

// A filter bar over a list view: as the user types into txtFilter, the rows
// of the list whose text does not hold what was typed are hidden. cboColumn
// chooses the column looked at ("All Columns", or one column by its header);
// the match ignores case. lblCount tells how many rows are shown, in the
// words of ItemDescription ("Showing 3 of 10 service items").
//
// The bar is bound to its list through ListView: setListView(list) binds it,
// setListView(nullptr) (or ReleaseListView) lets go and shows every row
// again. A list that is deleted releases the bar by itself. Refresh applies
// the filter again to the rows the list holds now, after its owner filled it
// again; rows added while a filter is in force are filtered as soon as
// control returns to the event loop.
//
// A selected row that the filter hides is deselected, so that a command on
// "the selected rows" never acts on a row the user cannot see.
//
// Keys: Escape in txtFilter empties it; Down moves into the list, to the first
// row shown.
class RKLvwBannerFilter : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString ItemDescription READ ItemDescription WRITE setItemDescription)
    Q_PROPERTY(QString FilterText READ FilterText WRITE setFilterText)

public:
    explicit RKLvwBannerFilter(QWidget* parent = nullptr);
    ~RKLvwBannerFilter() override;

    QTreeWidget* ListView() const { return m_list; }
    void setListView(QTreeWidget* list);
    void ReleaseListView() { setListView(nullptr); }

    QString ItemDescription() const { return m_strItemDescription; }
    void setItemDescription(const QString& strDescription);
    QString FilterText() const;
    void setFilterText(const QString& strText);
    // The column filtered: 0 for all columns, else the 1-based column.
    qint32 FilterColumn() const;
    void setFilterColumn(qint32 intColumn);

    // Reads the column headers again and filters the rows anew.
    void Refresh();
    qint32 ShownCount() const { return m_lngShown; }
    qint32 TotalCount() const { return m_lngTotal; }

signals:
    // The rows were filtered: how many are shown of how many.
    void FilterApplied(qint32 lngShown, qint32 lngTotal);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void txtFilter_Change();
    void cboColumn_Click();
    void cmdClear_Click();

private:
    void fillColumns();
    void applyFilter();
    void showAll();
    void scheduleRefresh();
    void updateCount();

    QComboBox* cboColumn = nullptr;
    QLineEdit* txtFilter = nullptr;
    QPushButton* cmdClear = nullptr;
    QLabel* lblCount = nullptr;

    QPointer<QTreeWidget> m_list;
    QList<QMetaObject::Connection> m_connections;
    QString m_strItemDescription = QStringLiteral("items");
    qint32 m_lngShown = 0;
    qint32 m_lngTotal = 0;
    bool m_blnRefreshPending = false;
};
