#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

class GalleryCore;
struct GalleryTable;
class MemberEntry;
class QAction;
class QMenu;
class QTreeWidgetItem;
class RKLvwBannerFilter;
class VBImageList;
class VBNode;
class VBToolBar;
class VBTreeWidget;

// The short-list gallery: every saved short list in one flat list with the
// columns "Description", "Created Date" and "Created By". It has no tree and no
// display-properties panel; its rows are narrowed by the banner filter bound to
// the list. The list works through a GalleryCore of its own table (keys, the
// selection, the delete question and failure boxes).
//
// Item keys are "ShortList;" + ShortListID; the Tag holds the id.
//
// A click on a list raises ShortListClicked(id, description); btnNew creates a
// list record first, selects it and raises NewShortList(id), so that the editor
// always opens a list that has a record. After a delete the list is reloaded and
// the item now standing at the deleted one's place is clicked and selected;
// when none stands there nothing is, and an empty list says so with an empty
// ShortListClicked. The context menu's entries show and do nothing.
class ctlShortListGallery : public QWidget {
    Q_OBJECT
    friend class tst_ctlShortListGallery;
    Q_PROPERTY(QString Description READ Description STORED false)
    Q_PROPERTY(QString SelectedShortLists READ SelectedShortLists STORED false)
    Q_PROPERTY(QString SelectedItemKey READ SelectedItemKey STORED false)
    Q_PROPERTY(QString SelectedItemText READ SelectedItemText STORED false)

public:
    explicit ctlShortListGallery(QWidget* parent = nullptr);
    ~ctlShortListGallery() override;

    // "ShortListGalleryControl".
    QString Description() const;
    bool CanUnload();
    void NewShortList();
    // The ids of the selected lists, joined with ",".
    QString SelectedShortLists() const;
    QString SelectedItemKey() const;
    QString SelectedItemText() const;
    // Fills the list from the store and selects the list lngShortListToSelect.
    // A message of the store is shown in a box and left in strErrorMessage.
    void ShowShortLists(qint32 lngShortListToSelect, QString& strErrorMessage);
    // Unbinds the banner filter; the host asks for it before the list goes.
    void ReleaseListViewFilter();
    // Selects the list and clicks it (ShortListClicked), without scrolling to it.
    void SelectShortList(qint32 lngShortList, QString& strErrorMessage);
    // Asks, deletes the record and lands on the item now at the deleted one's place.
    void DeleteShortList(qint32 lngShortListID, QString& strErrorMessage);
    void RefreshView(qint16 intIndexOfPreviouslySelectedItem, QString& strErrorMessage);
    // Removes an item (a key or a 1-based index) from the list, not from the store.
    void HideShortList(const QVariant& WhichItem);
    // Adds an item to the list only.
    void AddShortList(const QString& strKey, const QString& strText);

    static const GalleryTable& Table();

    // ---- Child widgets (objectName() is the member's name) ----
    VBTreeWidget* lvwShortLists = nullptr;
    RKLvwBannerFilter* TTLvwBannerFilter1 = nullptr;
    VBToolBar* Toolbar2 = nullptr;
    VBImageList* imlShortLists = nullptr;
    VBImageList* imlToolBar = nullptr;
    QMenu* mnuRightClick = nullptr;
    QAction* mnuRightCLickNew = nullptr;
    QAction* mnuSIOpen = nullptr;
    QAction* mnuSIDelete = nullptr;
    QAction* mnuSIPrint = nullptr;

signals:
    void ShortListClicked(const QString& strID, const QString& strDescription);
    // Declared for the host; the gallery has no double click of its own.
    void ShortListDblClicked(qint32 ShortListID);
    void NewShortList(qint32 lngShortListID);
    // Declared for the host; the banner filter keeps its filtering to itself.
    void ShortListListFilterChanged(const QString& ShortListItemsInList,
                                    const QString& FilterInPlainEnglish,
                                    const QString& WhereClauseInEffect);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void lvwShortLists_ColumnClick(int intColumn);
    void lvwShortLists_ItemClick(QTreeWidgetItem* Item);
    void Toolbar2_ButtonClick(QAction* Button);

private:
    // Construction and layout (_Layout.cpp).
    void UserControl_Initialize();
    void UserControl_Resize();
    void CreateWidgets();
    void CreateToolbar();
    void CreateMenus();
    void ConnectWidgets();
    void lvwShortLists_MouseUp(qint16 Button, qint16 Shift, const QPoint& ptAt);

    // Loading and commands (_Commands.cpp).
    void ItemClick(const VBNode& Item);
    void DeleteSelected();
    static void ShowStoreMessage(const QString& strErrorMessage);
    static MemberEntry Entry(const QString& strMember);

    std::unique_ptr<GalleryCore> m_core;
    // The column the list is kept sorted by once a header was clicked; -1 none.
    qint32 m_intSortKey = -1;
};
