#include "ServiceItemsPage.h"

#include "EventPanel.h"
#include "Summaries.h"
#include "foundations/ErrorReport.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QAction>

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
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::ShortListApplied, this,
            [this](const QString& items, const QString& words, const QString&) {
                ErrorReport::Guard([&] { ctlServiceItemGallery1_ShortListApplied(items, words); });
            });
    // The gallery leaves its Properties button to the host: it shows the
    // selected item's details on the right.
    if (auto* btnProperties =
            ctlServiceItemGallery1->findChild<QAction*>(QStringLiteral("btnProperties")))
        connect(btnProperties, &QAction::triggered, this,
                [this] { ErrorReport::Guard([this] { btnProperties_Click(); }); });
}

void ServiceItemsPage::btnProperties_Click() {
    if (m_selected != 0)
        ShowItem(m_selected, ctlServiceItemGallery1->SelectedItemText());
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

void ServiceItemsPage::ShowItem(qint32 lngServiceItemID, const QString& strDescription) {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (panel)
        panel->Show(strDescription, Summaries::ServiceItemRows(lngServiceItemID));
}

void ServiceItemsPage::ctlServiceItemGallery1_SIClicked(const QString& strID,
                                                        const QString& strDescription,
                                                        const QString& strWhereClauseInEffect,
                                                        const QString& strFilterInPlainEnglish,
                                                        const QString& strType) {
    if (strType == QLatin1String("SI")) {
        m_selected = strID.toInt();
        ShowItem(m_selected, strDescription);
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
        ShowItem(SIId, ctlServiceItemGallery1->SelectedItemText());
}

void ServiceItemsPage::ctlServiceItemGallery1_ToolBarButtonClicked(const QString& strButtonKey,
                                                                   qint32 lngSelectedServiceItem) {
    if (strButtonKey == QLatin1String("btnRun") && lngSelectedServiceItem != 0)
        emit RunServiceItemRequested(lngSelectedServiceItem);
}
