#pragma once

#include "HostPage.h"

class ctlServiceItem;
class ctlServiceItemGallery;

// The service items of the church: the service item gallery on the left and,
// on the right, the service item editor on the item selected (a new item too)
// or what the gallery's other events tell. The editor offers to save before
// another item, a group or another page takes its place; a saved item's row is
// refreshed in the gallery. The gallery's run button runs the item by itself.
class ServiceItemsPage : public HostPage {
    Q_OBJECT
public:
    explicit ServiceItemsPage(QWidget* parent = nullptr);

    // The item whose node was clicked last (0 when a group or nothing).
    qint32 SelectedServiceItemID() const { return m_selected; }
    // Shows only the items of a short list in the gallery, through every reload,
    // until 0 switches it off (or the gallery's own short-list choice does).
    void ApplyShortList(qint32 lngShortListID);

    // The editor on the right, or nullptr while something else stands there.
    ctlServiceItem* ServiceItemEditor() const;

    ctlServiceItemGallery* ctlServiceItemGallery1;

protected:
    void Load() override;

private:
    void ctlServiceItemGallery1_SIClicked(const QString& strID, const QString& strDescription,
                                          const QString& strWhereClauseInEffect,
                                          const QString& strFilterInPlainEnglish,
                                          const QString& strType);
    void ctlServiceItemGallery1_SIDblClicked(qint32 SIId);
    void btnProperties_Click();
    void ctlServiceItemGallery1_ShortListApplied(const QString& SIItemsInList,
                                                 const QString& FilterInPlainEnglish);
    void ctlServiceItemGallery1_ToolBarButtonClicked(const QString& strButtonKey,
                                                     qint32 lngSelectedServiceItem);
    void ctlServiceItemGallery1_NewServiceItemAdded(qint32 ServiceItemID);
    void ctlServiceItem1_SIUpdated(qint32 lngServiceItemID);
    void RefreshGallery();
    void ShowItem(qint32 lngServiceItemID);

    qint32 m_selected = 0;
};
