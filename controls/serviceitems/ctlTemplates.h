#pragma once

#include "serviceitems/FlatList.h"

#include <QString>
#include <QWidget>

class QLabel;
class RKLvwBannerFilter;
class VBTreeWidget;

// A read-only list of templates: a caption, the words of the filter in effect,
// a banner filter and the list lvwTemplates (Type, Description, Occasion,
// Source, Created By, Date Created). The host sets Description, Items ("All",
// an id, or ids joined with commas), FilterInPlainEnglish and
// WhereClauseInEffect (the rows of "All"), then calls ShowProperties. Entry
// keys are "Template;" and the id. The list is not sorted by its headers and
// raises no events.
class ctlTemplates : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ items WRITE setItems)
    Q_PROPERTY(QString FilterInPlainEnglish READ filterInPlainEnglish WRITE setFilterInPlainEnglish)
    Q_PROPERTY(QString WhereClauseInEffect READ whereClauseInEffect WRITE setWhereClauseInEffect)
    Q_PROPERTY(QString ViewMode READ viewMode WRITE setViewMode)

public:
    explicit ctlTemplates(QWidget* parent = nullptr);
    ~ctlTemplates() override;

    // Always True: the list holds nothing that could be lost.
    bool CanUnload();
    // "TemplatesControl"; the caption set is shown by ShowProperties.
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
    VBTreeWidget* lvwTemplates = nullptr;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QString items() const { return m_list.strItems; }
    QString filterInPlainEnglish() const { return m_list.strFilterInPlainEnglish; }
    QString whereClauseInEffect() const { return m_list.strWhereClauseInEffect; }
    QString viewMode() const { return m_list.strViewMode; }

    FlatList m_list;
};
