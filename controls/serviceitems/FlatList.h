#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class DataAccess;
class QLabel;
class QWidget;
class RKLvwBannerFilter;
class Recordset;
class VBImageList;
class VBTreeWidget;

// What one row of a flat list becomes: the entry's text, its small picture (a
// number or a key of the image list) and its sub-items 1, 2, ... (a Null
// sub-item is left empty).
struct FlatListEntry {
    QString strText;
    QVariant varSmallIcon;
    QVariantList subItems;
};

// What tells one flat list from the others: its names, its columns, where its
// rows come from and how a row becomes an entry.
struct FlatListKind {
    using Query = void (DataAccess::*)(const QString&, qint16, QString&,
                                       std::unique_ptr<Recordset>&);

    QString strClass;          // the control's class, for trace lines and failures
    QString strDescription;    // what the Description getter answers
    QString strListName;       // the list view's name
    QStringList columns;       // the column headers
    Query query = nullptr;     // the DataAccess member that reads the rows
    QString strOneRowWhere;    // where clause of one row, before its id
    QString strKeyPrefix;      // key of an entry, before its id
    QString strIdField;        // the id field of a row
    QString strErrorWords;     // box words of an id that is not a number
    bool blnSkipBlank = false; // the Blank item (1) is never listed
    bool blnSortable = false;  // a click on a column header sorts
    bool blnTagIsId = false;   // the entry's Tag holds its id
    FlatListEntry (*entryOf)(const Recordset& rs) = nullptr;
};

// The body shared by the three read-only lists of service items, services and
// templates: a caption, the words of the filter in effect, a banner filter and
// a list view filled from the database. Each list control owns one and gives
// it its kind; the core builds the child widgets on the control (named as the
// control documents them), keeps the state the host sets, and fills the list.
//
// The host hands in Items: "All" (the rows of WhereClauseInEffect), one id, or
// ids joined with commas (one query per id; an id already listed is skipped).
class FlatList {
public:
    FlatList(QWidget* owner, const FlatListKind& kind);
    ~FlatList();
    FlatList(const FlatList&) = delete;
    FlatList& operator=(const FlatList&) = delete;

    const FlatListKind& Kind() const { return m_kind; }

    // State set by the host, each kept as text.
    QString strItems;
    QString strDescription;
    QString strFilterInPlainEnglish;
    QString strWhereClauseInEffect;
    QString strViewMode;
    // The order of the next column sort flips on each click.
    bool blnSortDescending = false;

    // Child widgets, owned by the control.
    QLabel* lblMainCaption = nullptr;
    QLabel* lblFilterDetails = nullptr;
    RKLvwBannerFilter* TTLvwBannerFilter1 = nullptr;
    VBTreeWidget* lvw = nullptr;
    VBImageList* imlIcons = nullptr;

    void ShowProperties();
    void AddItemToListview(qint32 lngID);
    void ShowAllServiceItems(const QString& strWhereClause, QString& strErrorMessage);
    void ColumnClick(int intColumn);
    void ReleaseListViewFilter();
    void Resize();
    // The ids of the selected entries, joined with commas.
    QString SelectedIDs() const;
    // The id of an entry's key: what follows its first ";".
    static qint32 IDOfKey(const QString& strKey);

private:
    void addEntry(const Recordset& rs, const QString& strKey);
    void showBadID(const QString& strPart, bool blnTrace);
    void trace(const QString& strMember, const QString& strArg = QString(),
               const QVariant& varValue = QVariant()) const;

    QWidget* m_owner;
    FlatListKind m_kind;
};
