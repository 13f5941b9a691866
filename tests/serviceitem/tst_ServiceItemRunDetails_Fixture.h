#pragma once

// What the suites of the Run Mode Details tab share: pictures written for a
// test, picture items made of them, and the tab opened on an item.

#include "ServiceItemFixture.h"

#include <QDir>
#include <QImage>

namespace RunDetailsFixture {

// Writes a small picture of one colour; returns its full name (empty when it
// cannot be written).
inline QString WritePicture(const QString& strPath, Qt::GlobalColor color = Qt::darkBlue) {
    QDir().mkpath(QFileInfo(strPath).absolutePath());
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(color);
    return image.save(strPath, "PNG") ? strPath : QString();
}

// A picture item for the file (found or made by the data library).
inline qint32 PictureItem(const QString& strPath) {
    qint32 lngID = 0;
    DataAccess::Instance().AddImageServiceItem(strPath, lngID);
    return lngID;
}

// Makes the pictures background pictures of the item, in order.
inline bool AttachPictures(qint32 lngServiceItemID, const QList<qint32>& pictures) {
    QString strErrorMessage;
    for (qint32 lngPicture : pictures) {
        DataAccess::Instance().AddServiceItemImage(lngServiceItemID, lngPicture, strErrorMessage);
        if (!strErrorMessage.isEmpty())
            return false;
    }
    return true;
}

// Shows the item and opens the Run Mode Details tab.
inline void OpenRunDetails(ctlServiceItem& ctl, qint32 lngServiceItemID) {
    ServiceItemFixture::Show(ctl, lngServiceItemID);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
}

// The picture items the item's background pictures stand for, in order.
inline QList<qint32> StoredPictures(TestDatabase& db, qint32 lngServiceItemID) {
    QList<qint32> ids;
    const qint32 count = db.Count("ServiceItemImages", "ServiceItemID = ?", {lngServiceItemID});
    for (qint32 i = 0; i < count; ++i)
        ids << db.Scalar("SELECT ImageServiceItemID FROM ServiceItemImages WHERE ServiceItemID = ? "
                         "ORDER BY Position LIMIT 1 OFFSET ?",
                         {lngServiceItemID, i})
                   .toInt();
    return ids;
}

} // namespace RunDetailsFixture
