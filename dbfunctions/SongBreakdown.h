#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// The breakdown of a song into its parts (verses, chorus, bridge) and the
// order in which they are sung, as the breakdown wizard proposes it, lets the
// user change it, and stores it in Verses and SongSequence.
//
// The proposal from the typed words:
//  - the words are cut into parts at blank lines;
//  - a first line that only names the part ("Chorus", "Refrain:", "[Verse 2]",
//    "Bridge", "3.") is taken off, and a first line that starts with such a
//    name and a colon ("Chorus: Praise him") loses the name;
//  - a part named Chorus or Refrain, or a part whose words stand more than once,
//    is a chorus; a part is kept once however often it was typed;
//  - the order is the parts as typed when the chorus was written out each time;
//    else each verse followed by the chorus (verse, chorus, verse, chorus ...);
//    without a chorus, the parts in their order.
namespace SongBreakdown {

struct Part {
    QString Name; // "Verse 1", "Chorus", "Bridge"
    QString Text; // the words, lines separated by "\n"
    bool IsChorus = false;
    bool operator==(const Part& other) const = default;
};

struct Breakdown {
    QList<Part> Parts;
    QList<int> Order; // indexes into Parts, in the order sung
    bool operator==(const Breakdown& other) const = default;
};

// The words cut at blank lines, each part's lines trimmed at their ends.
QStringList SplitAtBlankLines(const QString& strWords);
Breakdown Propose(const QString& strWords);

// Verses numbered "Verse 1", "Verse 2" ... and choruses "Chorus", "Chorus 2" ...
// in the order of the parts; a part with another name ("Bridge") keeps it.
void NumberParts(Breakdown& breakdown);
// Each verse followed by the chorus before the next verse (the first chorus of
// the parts); parts before the first verse are sung first.
QList<int> DefaultOrder(const QList<Part>& parts);

// Editing, as the wizard does it. Each answers false and changes nothing when
// the indexes don't fit.
// Joins a part and the next into one (a blank line between their words). The
// joined part is sung where the first stood; the places of the second are
// dropped (or taken, when the first was not sung), and a part that would then
// be sung twice in a row there is sung once.
bool MergeWithNext(Breakdown& breakdown, int intPart);
// Cuts a part before its line intLine (0-based; 1 .. lines - 1): the second
// half becomes a new part after it, of the same kind, sung right after it.
bool SplitPart(Breakdown& breakdown, int intPart, int intLine);

// Writes the parts and the order of a song in one step: its former breakdown
// is replaced, or nothing is changed when a write fails (strErrorMessage).
// A breakdown without parts or without an order is refused.
void Write(qint32 lngServiceItemID, const Breakdown& breakdown, QString& strErrorMessage);

// The user interface of the wizard: shows the proposal under the song's title,
// lets the user change it, and answers true when the user finished (the
// breakdown then holds the result) or false on Cancel. The controls library
// installs its dialog here.
using Wizard = std::function<bool(const QString& strTitle, Breakdown& breakdown)>;
void SetWizard(Wizard wizard);
bool HasWizard();

// The wizard of a song: proposes the breakdown of its words, asks the user and
// writes what was finished. intResult is 1 only when a breakdown was written.
void Run(qint32 lngServiceItemID, QString& strErrorMessage, qint16& intResult);

} // namespace SongBreakdown
