#pragma once

#include <QtCore/qnamespace.h>

class QTreeWidget;
class VBImageList;
class ctlServiceItemGallery;

// The moves of a prop bag tab, shared by the service and service item editors:
// service items stand either in the embedded gallery (left) or in the bag's
// list (right), never in both. A bag entry keeps the gallery's key (Qt::UserRole)
// and picture index (ImageRole), so that it goes back where it came from.
namespace PropBagMoves {
constexpr int ImageRole = Qt::UserRole + 2;

// Moves the gallery's selected item into the bag and hides it in the gallery.
void MoveRight(ctlServiceItemGallery& gallery, QTreeWidget& bag, const VBImageList& images);

// Gives the bag's current entry back to the gallery; false when none is current.
bool MoveLeft(QTreeWidget& bag, ctlServiceItemGallery& gallery);

// A refilled gallery shows every item again: those in the bag are hidden anew,
// named by id alone, since a filtered view may not hold them at all.
void HideBagged(const QTreeWidget& bag, ctlServiceItemGallery& gallery);
} // namespace PropBagMoves
