#pragma once

#include "serviceitems/FlatList.h"

#include <QString>
#include <QVariant>
#include <QWidget>

class QAction;
class QLabel;
class QMenu;
class RKLvwBannerFilter;
class VBTreeWidget;

// A read-only list of service items: a caption, the words of the filter in
// effect, a banner filter and the list lvwServiceItems (Type, Description,
// Source, Provider, Date Added). The host sets Description, Items ("All", an
// id, or ids joined with commas), FilterInPlainEnglish and WhereClauseInEffect
// (the rows of "All"), then calls ShowProperties. The Blank item is never
// listed. Entry keys are "SI;" and the item's id.
//
// A click on a column header sorts by it, ascending and descending in turn. A
// double click runs the item; the right button offers New, Run, Delete, Print
// and Export. The host calls ReleaseListViewFilter before it drops the control.
class ctlServiceItems : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ items WRITE setItems)
    Q_PROPERTY(QString FilterInPlainEnglish READ filterInPlainEnglish WRITE setFilterInPlainEnglish)
    Q_PROPERTY(QString WhereClauseInEffect READ whereClauseInEffect WRITE setWhereClauseInEffect)
    Q_PROPERTY(QString ViewMode READ viewMode WRITE setViewMode)

public:
    explicit ctlServiceItems(QWidget* parent = nullptr);
    ~ctlServiceItems() override;

    // Always True: the list holds nothing that could be lost.
    bool CanUnload();
    // "ServiceitemsControl"; the caption set is shown by ShowProperties.
    QString Description() const;
    void setDescription(const QString& strDescription);
    void setItems(const QString& strItems);
    void setFilterInPlainEnglish(const QString& strFilter);
    void setWhereClauseInEffect(const QString& strWhereClause);
    // Kept, not used.
    void setViewMode(const QString& strViewMode);

    // Shows the caption and the filter words and fills the list from Items.
    void ShowProperties();
    // Lets the banner filter go of the list view.
    void ReleaseListViewFilter();
    // Only writes its trace line.
    void Clear();

    // ---- Child widgets (objectName() is the member's name) ----
    QLabel* lblMainCaption = nullptr;
    QLabel* lblFilterDetails = nullptr;
    RKLvwBannerFilter* TTLvwBannerFilter1 = nullptr;
    VBTreeWidget* lvwServiceItems = nullptr;
    QMenu* mnuRightCLick = nullptr;
    QAction* mnuRightCLickNew = nullptr;
    QAction* mnuSIRun = nullptr;
    QAction* mnuSIDelete = nullptr;
    QAction* mnuSIPrint = nullptr;
    QAction* mnuSISep1 = nullptr;
    QAction* mnuSIExport = nullptr;

signals:
    // A double click on an entry whose item could be run: the item's id.
    void DblClick(qint32 lngItem);
    // Declared for the host; never raised.
    void RightClick(const QVariant& WhichItem);
    // The list changed (an item was added or deleted): the id to select.
    void ServiceItemsListChanged(qint32 lngItemToSelect);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void lvwServiceItems_ColumnClick(int intColumn);
    void lvwServiceItems_DblClick();
    void lvwServiceItems_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt);
    void mnuRightCLickNew_Click();
    void mnuSIOpen_Click();
    void mnuSIRun_Click();
    void mnuSIDelete_Click();
    void mnuSIPrint_Click();
    void mnuSIExport_Click();

private:
    QString items() const { return m_list.strItems; }
    QString filterInPlainEnglish() const { return m_list.strFilterInPlainEnglish; }
    QString whereClauseInEffect() const { return m_list.strWhereClauseInEffect; }
    QString viewMode() const { return m_list.strViewMode; }
    void buildMenu();
    void connectHandlers();
    void PopupMenu(QMenu* mnu);
    // The id of the selected entry, or 0 when none is selected.
    qint32 selectedID() const;

    FlatList m_list;
};
