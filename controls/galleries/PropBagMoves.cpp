#include "galleries/PropBagMoves.h"

#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QTreeWidget>

namespace {
QString KeyOf(const QTreeWidgetItem* item) {
    return item->data(0, Qt::UserRole).toString();
}
} // namespace

void PropBagMoves::MoveRight(ctlServiceItemGallery& gallery, QTreeWidget& bag,
                             const VBImageList& images) {
    const QString strKey = gallery.SelectedItemKey();
    const QString strText = gallery.SelectedItemText();
    const qint16 intImage = gallery.SelectedItemImage();
    auto* item = new QTreeWidgetItem(&bag, {strText});
    item->setData(0, Qt::UserRole, strKey);
    item->setData(0, ImageRole, intImage);
    item->setIcon(0, images.Icon(static_cast<qint32>(intImage)));
    gallery.HideServiceItem(strKey);
}

bool PropBagMoves::MoveLeft(QTreeWidget& bag, ctlServiceItemGallery& gallery) {
    QTreeWidgetItem* item = bag.currentItem();
    if (!item)
        return false;
    const QString strKey = KeyOf(item);
    const qsizetype lngAt = strKey.indexOf(QLatin1String(";;"));
    const QString strParentKey = lngAt < 0 ? QString() : strKey.left(lngAt);
    gallery.AddServiceItem(strParentKey, strKey, item->text(0),
                           static_cast<qint16>(item->data(0, ImageRole).toInt()));
    delete item;
    return true;
}

void PropBagMoves::HideBagged(const QTreeWidget& bag, ctlServiceItemGallery& gallery) {
    for (int i = 0; i < bag.topLevelItemCount(); ++i) {
        const QString strKey = KeyOf(bag.topLevelItem(i));
        const qsizetype lngAt = strKey.indexOf(QLatin1String(";;SI;"));
        if (lngAt >= 0)
            gallery.HideServiceItem(QString(), VB::CLng(strKey.mid(lngAt + 5)));
    }
}
