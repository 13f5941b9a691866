#pragma once

#include "serviceitems/FlatList.h"

#include <QString>
#include <QWidget>

class QLabel;
class RKLvwBannerFilter;
class VBTreeWidget;

// A read-only list of services: a caption, the words of the filter in effect,
// a banner filter and the list lvwServices (Name, Type, Theme, Created By, Date
// Created, Date Last Delivered). The host sets Description, Items ("All", an
// id, or ids joined with commas), FilterInPlainEnglish and WhereClauseInEffect
// (the rows of "All"), then calls ShowProperties. Entry keys are "Service;" and
// the id, which the entry's Tag holds too. A click on a column header sorts by
// it, ascending and descending in turn. It raises no events.
class ctlServices : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ items WRITE setItems)
    Q_PROPERTY(QString FilterInPlainEnglish READ filterInPlainEnglish WRITE setFilterInPlainEnglish)
    Q_PROPERTY(QString WhereClauseInEffect READ whereClauseInEffect WRITE setWhereClauseInEffect)
    Q_PROPERTY(QString ViewMode READ viewMode WRITE setViewMode)

public:
    explicit ctlServices(QWidget* parent = nullptr);
    ~ctlServices() override;

    // Always True: the list holds nothing that could be lost.
    bool CanUnload();
    // "ServicesControl"; the caption set is shown by ShowProperties.
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

    // ---- Child widgets (objectName() is the member's name) ----
    QLabel* lblMainCaption = nullptr;
    QLabel* lblFilterDetails = nullptr;
    RKLvwBannerFilter* TTLvwBannerFilter1 = nullptr;
    VBTreeWidget* lvwServices = nullptr;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QString items() const { return m_list.strItems; }
    QString filterInPlainEnglish() const { return m_list.strFilterInPlainEnglish; }
    QString whereClauseInEffect() const { return m_list.strWhereClauseInEffect; }
    QString viewMode() const { return m_list.strViewMode; }

    FlatList m_list;
};
