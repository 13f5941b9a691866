#pragma once

#include <QSize>
#include <QString>

#include <functional>

// The files that a service item's Content tab takes, and what it does with
// each: the rules of the editor in one place, apart from its widgets.
//
// A file's kind is asked three times, and the three answers differ on purpose,
// because users have long relied on each of them:
//  - choosing a file: the filter of the open dialog follows the item's type;
//  - what a named file shows (txtFilename_Change): ".bmp", ".jpg" and ".gif" a
//    picture, ".wav", ".mp3" and ".mid" the music player, anything else the
//    invitation to open it by a double click;
//  - what a dropped file may be: ".rtf", ".doc" and ".txt" a document, ".jpg",
//    ".bmp", ".tif" and ".dib" a picture, anything else is refused; so a
//    presentation, a ".gif" or a piece of music cannot be dropped, and a
//    dropped ".tif" or ".dib" then shows as a document;
//  - what a double click opens: ".txt", ".doc" and ".rtf" into the text box,
//    ".ppt" as slides, anything else nothing.
// Each list also takes the newer formats of the same family that LibreOffice
// reads today: ".docx" and ".odt" beside ".doc", ".pptx" and ".odp" beside
// ".ppt", ".png" and ".jpeg" beside ".jpg". A kind is found from the end of
// the name, without regard to case.
namespace ContentFiles {

// What a file named in txtFilename shows.
enum class Shown { Picture, Music, Document };
Shown ShownAs(const QString& strName);

// What a double click on txtFileContent opens.
enum class Opened { Nothing, RichText, Presentation };
Opened OpenedAs(const QString& strName);

// What a file dropped on the tab becomes.
enum class Dropped { Refused, Document, Picture };
Dropped DroppedAs(const QString& strName);

// The open dialog of cmdBrowse_Click for an item of a type: its filter and
// its title (the desktop's dialog lists the newer formats of the filter's
// families after it).
struct BrowseDialog {
    QString Filter;
    QString Title;
};
BrowseDialog BrowseDialogFor(qint32 lngTypeID);

// The description that a file's name gives an item without one: the name
// without its last four characters (the extension of the older formats), cut
// to 53 characters when the whole name is longer than that.
QString DescriptionFromFileName(const QString& strName);

// The description that typed content gives an item without one: its first
// line when a line ends within the first 50 characters, else its first 25
// characters.
QString DescriptionFromContent(const QString& strContent);

// The size, in twips, of a picture of natural size szPicture shown on a tab of
// size szTab (both in twips). A picture that fits with room to spare keeps its
// size; a tall one takes the tab's height less 1000 (or, when then too wide,
// the tab's width less 400), a wide one the tab's width less 240 (or, when then
// too tall, the tab's height less 400), its proportions kept. The too-wide
// tall picture takes its height in proportion to the width less 40, not less
// 400: users' layouts were made with that height.
QSize FitPicture(const QSize& szPicture, const QSize& szTab);

// The property of imgContent that names the picture fitted to the tab (empty
// when the picture shown keeps a size of its own, as a dropped one does).
constexpr const char* FittedPictureProperty = "FittedPicture";

// The texts that the tab shows in place of a file.
QString DoubleClickInvitation();
QString BrowseInvitation();
QString OpenErrorText(const QString& strErrorMessage);
QString MissingFileText(const QString& strKind, const QString& strPath);
QString CannotOpenText(const QString& strName);

} // namespace ContentFiles

class QEvent;
class QObject;

namespace ContentFiles {
// Lets f see the events of target before target does, for as long as owner
// (by default target itself) lives; f answers true for an event it has dealt
// with.
void OnEvent(QObject* target, std::function<bool(QEvent*)> f, QObject* owner = nullptr);
} // namespace ContentFiles
