#pragma once

#include <QPixmap>
#include <QString>

class VBImageList;

// The small (16 x 16) pictures shipped with the controls, as resources under
// ":/icons/": one per service item type (0 none, 4 and 5 pictures, 10 music,
// 11 points list, 12 slides, 16 responsive reading, 17 song, a text page for
// the other text types), the open and closed folders, verse and chorus, and
// the two kinds of template.
namespace StandardIcons {

// The highest type id with a picture of its own; higher ids get a text page.
constexpr qint32 LastTypeID = 17;

QPixmap ServiceItemType(qint32 lngTypeID);
QPixmap FolderOpen();
QPixmap FolderClosed();
QPixmap Verse();
QPixmap Chorus();
QPixmap ServiceTemplate();
QPixmap ServiceItemTemplate();

// Fills an image list of service items: pictures 1 to 19 without keys, the
// picture of number n being that of type id n, so that the image index of a
// type equals its id (type 0, none, has no picture); then picture 20 with the
// key "imgFolderClosed" and 21 with "imgFolderOpen". Clears the list first.
void FillServiceItemImages(VBImageList& iml);
// Adds "imgVerse" and "imgChorus".
void FillVerseChorusImages(VBImageList& iml);

} // namespace StandardIcons
