#pragma once

#include <QPixmap>
#include <QStyle>

// The 16 x 16 pictures of the galleries' toolbar buttons, drawn by the program
// itself: a new page, run, a bin, a pencil, information, a printer, a list,
// reload, export and import arrows, help, an open folder, and the chevrons of a
// bar's button for the buttons it has no room for. Drawing them costs
// far less than reading and decoding the style's picture files, which every
// gallery's toolbar used to do as the main window opened. A kind that is not
// drawn here comes from the style. Each picture is made once and kept.
namespace ToolbarPictures {

QPixmap For(QStyle* style, QStyle::StandardPixmap picture);

} // namespace ToolbarPictures
