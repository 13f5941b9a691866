#include "ServiceItemsPage.h"

#include "EventPanel.h"
#include "foundations/ErrorReport.h"
#include "foundations/SSTab.h"
#include "galleries/ctlServiceItemGallery.h"
#include "serviceitem/ctlServiceItem.h"

#include <QAction>
#include <QLineEdit>
#include <QTimer>

ServiceItemsPage::ServiceItemsPage(QWidget* parent)
    : HostPage(QStringLiteral("ServiceItems"), parent),
      ctlServiceItemGallery1(new ctlServiceItemGallery(this)) {
    ctlServiceItemGallery1->setObjectName(QStringLiteral("ctlServiceItemGallery1"));
    SetGallery(ctlServiceItemGallery1);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIClicked, this,
            [this](const QString& id, const QString& text, const QString& where,
                   const QString& words, const QString& type) {
                ErrorReport::Guard(
                    [&] { ctlServiceItemGallery1_SIClicked(id, text, where, words, type); });
            });
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIDblClicked, this, [this](qint32 id) {
        ErrorReport::Guard([&] { ctlServiceItemGallery1_SIDblClicked(id); });
    });
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::ToolBarButtonClicked, this,
            [this](const QString& key, qint32 id) {
                ErrorReport::Guard([&] { ctlServiceItemGallery1_ToolBarButtonClicked(key, id); });
            });
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::NewServiceItemAdded, this,
            [this](qint32 id) {
                ErrorReport::Guard([&] { ctlServiceItemGallery1_NewServiceItemAdded(id); });
            });
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::ShortListApplied, this,
            [this](const QString& items, const QString& words, const QString&) {
                ErrorReport::Guard([&] { ctlServiceItemGallery1_ShortListApplied(items, words); });
            });
    // The gallery leaves its Properties button to the host: it shows the
    // selected item in the editor.
    if (auto* btnProperties =
            ctlServiceItemGallery1->findChild<QAction*>(QStringLiteral("btnProperties")))
        connect(btnProperties, &QAction::triggered, this,
                [this] { ErrorReport::Guard([this] { btnProperties_Click(); }); });
}

void ServiceItemsPage::btnProperties_Click() {
    if (m_selected != 0)
        ShowItem(m_selected);
}

ctlServiceItem* ServiceItemsPage::ServiceItemEditor() const {
    return qobject_cast<ctlServiceItem*>(Editor()->Current());
}

void ServiceItemsPage::ApplyShortList(qint32 lngShortListID) {
    Activate();
    ctlServiceItemGallery1->ApplyShortList(lngShortListID);
}

// The right side tells which short list is in force and how many items it holds.
void ServiceItemsPage::ctlServiceItemGallery1_ShortListApplied(
    const QString& SIItemsInList, const QString& FilterInPlainEnglish) {
    m_selected = 0;
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    const qint32 lngCount =
        static_cast<qint32>(SIItemsInList.split(QLatin1Char(','), Qt::SkipEmptyParts).size());
    panel->Show(FilterInPlainEnglish,
                {{QStringLiteral("Service items"), QString::number(lngCount)}});
}

void ServiceItemsPage::Load() {
    ctlServiceItemGallery1->ShowServiceItems();
}

// The item goes into the editor beside the gallery. An editor already in
// place keeps its place: showing the next item first offers to save the
// changes of the one before.
void ServiceItemsPage::ShowItem(qint32 lngServiceItemID) {
    const QString strItems = QString::number(lngServiceItemID);
    if (ctlServiceItem* open = ServiceItemEditor(); open && open->Items() == strItems)
        return;
    auto* editor = Editor()->Ensure<ctlServiceItem>([this] {
        auto* made = new ctlServiceItem;
        made->setObjectName(QStringLiteral("ctlServiceItem1"));
        connect(made, &ctlServiceItem::SIUpdated, this,
                [this](qint32 id) { ErrorReport::Guard([&] { ctlServiceItem1_SIUpdated(id); }); });
        return made;
    });
    if (!editor)
        return;
    // The caption is built from the item itself, decoded.
    editor->setDescription(QString());
    editor->setItems(strItems);
    editor->ShowProperties();
}

// A new item opens on its first tab, ready for its description.
void ServiceItemsPage::ctlServiceItemGallery1_NewServiceItemAdded(qint32 ServiceItemID) {
    if (ServiceItemID == 0)
        return;
    m_selected = ServiceItemID;
    ShowItem(ServiceItemID);
    if (ctlServiceItem* editor = ServiceItemEditor()) {
        editor->SSTab1->setTab(ctlServiceItem::TabGeneral);
        editor->txtDescription->setFocus();
    }
}

// A saved item's description, source or type may have changed: the gallery is
// filled again once the event that saved is over (the save may run inside a
// click of the gallery itself), and the item selected stays selected.
void ServiceItemsPage::ctlServiceItem1_SIUpdated(qint32 lngServiceItemID) {
    Q_UNUSED(lngServiceItemID);
    QTimer::singleShot(0, this, [this] { ErrorReport::Guard([this] { RefreshGallery(); }); });
}

void ServiceItemsPage::RefreshGallery() {
    const qint32 lngSelected = m_selected;
    ctlServiceItemGallery1->ShowServiceItems();
    if (lngSelected != 0) {
        QString strErrorMessage;
        ctlServiceItemGallery1->SelectServiceItem(lngSelected, strErrorMessage);
    }
}

void ServiceItemsPage::ctlServiceItemGallery1_SIClicked(const QString& strID,
                                                        const QString& strDescription,
                                                        const QString& strWhereClauseInEffect,
                                                        const QString& strFilterInPlainEnglish,
                                                        const QString& strType) {
    if (strType == QLatin1String("SI")) {
        m_selected = strID.toInt();
        ShowItem(m_selected);
        return;
    }
    m_selected = 0;
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    EventPanel::Rows rows{{QStringLiteral("Group"), strID}};
    if (!strFilterInPlainEnglish.isEmpty())
        rows.append({QStringLiteral("Filter"), strFilterInPlainEnglish});
    if (!strWhereClauseInEffect.isEmpty())
        rows.append({QStringLiteral("Where"), strWhereClauseInEffect});
    panel->Show(strDescription, rows);
}

void ServiceItemsPage::ctlServiceItemGallery1_SIDblClicked(qint32 SIId) {
    // The tree hands over the item's id; the list its type, which names no item.
    if (SIId == m_selected && SIId != 0)
        ShowItem(SIId);
}

void ServiceItemsPage::ctlServiceItemGallery1_ToolBarButtonClicked(const QString& strButtonKey,
                                                                   qint32 lngSelectedServiceItem) {
    if (strButtonKey == QLatin1String("btnRun") && lngSelectedServiceItem != 0)
        emit RunServiceItemRequested(lngSelectedServiceItem);
}
