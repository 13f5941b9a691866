#include "foundations/StandardIcons.h"

#include "foundations/VBImageList.h"

namespace {
QPixmap resource(const QString& strName) {
    return QPixmap(QStringLiteral(":/icons/") + strName + QStringLiteral(".png"));
}

// A text type without a picture of its own (ids above the last known one).
constexpr qint32 GenericTextType = 15;
// Pictures 1 to 19 of a service item image list are the types.
constexpr qint32 TypePictures = 19;
} // namespace

namespace StandardIcons {

QPixmap ServiceItemType(qint32 lngTypeID) {
    const qint32 id = (lngTypeID < 0 || lngTypeID > LastTypeID) ? GenericTextType : lngTypeID;
    return resource(QStringLiteral("type%1").arg(id, 2, 10, QLatin1Char('0')));
}

QPixmap FolderOpen() {
    return resource(QStringLiteral("imgFolderOpen"));
}

QPixmap FolderClosed() {
    return resource(QStringLiteral("imgFolderClosed"));
}

QPixmap Verse() {
    return resource(QStringLiteral("imgVerse"));
}

QPixmap Chorus() {
    return resource(QStringLiteral("imgChorus"));
}

QPixmap ServiceTemplate() {
    return resource(QStringLiteral("imgServiceTemplate"));
}

QPixmap ServiceItemTemplate() {
    return resource(QStringLiteral("imgServiceItemTemplate"));
}

void FillServiceItemImages(VBImageList& iml) {
    iml.Clear();
    for (qint32 id = 1; id <= TypePictures; ++id)
        iml.Add(QString(), ServiceItemType(id));
    iml.Add(QStringLiteral("imgFolderClosed"), FolderClosed());
    iml.Add(QStringLiteral("imgFolderOpen"), FolderOpen());
}

void FillVerseChorusImages(VBImageList& iml) {
    iml.Add(QStringLiteral("imgVerse"), Verse());
    iml.Add(QStringLiteral("imgChorus"), Chorus());
}

} // namespace StandardIcons
