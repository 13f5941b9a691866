#pragma once

#include "foundations/VBTreeWidget.h"

#include <QList>
#include <QString>
#include <QVariant>

class QFileDialog;
class QWidget;

// The shared module of the controls: string, path and tree helpers and the
// shell helpers. Paths are written with "\" as the separator, as the controls
// build them (AddSlash appends "\"; GetFileName cuts at the last "\").
namespace modQVLTControls {

// ---- Strings and paths ------------------------------------------------------

// The Instance-th field (from 1) of Data split at Separator. Instance 0 gives
// the text "Cannot return an instance of zero", an Instance beyond the last
// field the text "Instance Too Large": ordinary return values, not errors.
// Empty fields come back as empty texts (";;SI;7", ";", 4 gives "7").
// A negative Instance raises 5; an empty Separator counts as one that does not
// occur (Instance 1 gives all of Data).
QString GetInstance(const QString& Data, const QString& Separator, qint32 Instance);

// The number of occurrences of SubString in Data; the scan steps one
// character at a time, so overlapping occurrences each count ("aaa", "aa" -> 2).
// An empty SubString gives 0.
qint32 GetInstances(const QString& Data, const QString& SubString);

// What lies between the first strLeftMarker and the first strRightMarker,
// each searched from the start, case-sensitive. No tolerance: when the right
// marker comes first or a marker is missing, the length computed is negative
// (or the text returned is not what lies between), and a negative length shows
// the full error box with the source
// "QVLTCONTROLS: modQVLTControls: GetWhatComesBetween: " and gives "".
QString GetWhatComesBetween(const QString& strData, const QString& strLeftMarker,
                            const QString& strRightMarker);

// Removes leading, then trailing repetitions of strTrim from strString. Works
// on the argument itself and returns it. An empty strTrim leaves the text as
// it is.
QString TrimData(QString& strString, const QString& strTrim);

// The part after the last "\"; the whole text if there is none; "" if the path
// ends in "\".
QString GetFileName(const QString& strPath);

// The part after the last "."; the whole text if there is none. A dot in a
// folder name counts: "C:\My.Folder\readme" gives "Folder\readme".
QString GetFileExtension(const QString& strPath);

// Appends "\" unless the path already ends in one, to the argument itself and
// to the result. An empty path becomes "\".
QString AddSlash(QString& strPath);

// ---- Trees and lists ---------------------------------------------------------

// Redrawing of the widget off and on. Nothing raises 91.
void LockTreeview(QWidget* tree);
void UnLockTreeview(QWidget* tree);

// Locks the tree. With a non-zero level, walks the top-level nodes (from the
// first sibling of the root of the first node) and calls
// ExpandSubNodes(node, ExpandLevel - 1) for each; with level 0 marks every node
// that has children as expanded. Unlocks the tree. A tree without nodes is left
// as it is. A failure shows the error box
// "QVLTCONTROLS:modQVLTControls:ExpandAllNodesByLevel: Error number is ..."
// (the tree is unlocked again after the box).
void ExpandAllNodesByLevel(VBTreeWidget* tree, qint16 ExpandLevel);

// If the level is above 0 and the node has children, expands it; if the level
// is above 1, recurses over each child with level - 1. Nothing raises 91.
void ExpandSubNodes(const VBNode& node, qint16 ExpandLevel);

// True when the tree has a node of that key (or index). 35600, 35601 and 35603
// mean False without a message; any other failure (91 for no tree) shows the
// full error box and gives False.
bool NodeAlreadyExists(const QVariant& Key, VBTreeWidget* tree);

// The same for a list item; only 35601 is the quiet False.
bool ListviewItemAlreadyExists(const QVariant& Key, VBTreeWidget* list);

// ---- Platform helpers ----------------------------------------------------------

// Asks the shell (Platform::ShellExecute) to perform sTopic on sFile. When the
// shell answers 31 (no program associated) or 49, lets the user pick a program
// (Platform::OpenWith). Returns the shell's answer.
qint32 RunShellExecute(const QString& sTopic, const QString& sFile, const QString& sParams,
                       const QString& sDirectory, qint32 nShowCmd);

// Whether the new style of open dialog is offered. Always True here: the file
// dialogs of this platform all offer the newer dialog with previews.
bool Is2KShell();

// The hook of the picture picker: makes the dialog Qt's own (a native dialog
// offers no such switch) and turns its file list to large thumbnails (icon
// mode, each picture's own image as its icon), so that a picture picker opens
// in thumbnail view. Call it before the dialog is shown. Platform::ShowOpen
// does so when its filter names only pictures. Returns 0.
qint32 DialogHookProc(QFileDialog* dialog);

// Returns its argument; the place where a function's address is stored in a
// dialog's structure.
template <class T> T ReturnProcAddress(T address) {
    return address;
}

// True for an array with no elements; a Variant that holds no list counts as
// empty.
template <class T> bool IsArrayEmpty(const QList<T>& arr) {
    return arr.isEmpty();
}
bool IsArrayEmpty(const QVariant& arr);

} // namespace modQVLTControls
