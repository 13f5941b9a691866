#pragma once

#include <QString>
#include <QtGlobal>

// Texts that stay the same for as long as a store has not changed, so that a reader may keep
// what it read until its stamp changes.

// The open database: changes with every row this program writes, every commit of another
// connection and every other file opened; empty when none is open.
QString DatabaseChangeStamp();

// While one lives, DatabaseChangeStamp reads the commits of other connections once and gives
// every caller that reading until the last one ends; rows this program writes and another file
// opened still change the stamp at once. For one action of the operator whose steps each ask
// (the look of the next slide, the rows of the item shown): a commit of another program made
// meanwhile shows at the next action. The settings file and the trace file are looked at once
// in the same way (StampHoldNow): a change another program makes to them meanwhile shows at
// the next action, a change this program makes at once.
class DatabaseStampHeld {
public:
    DatabaseStampHeld();
    ~DatabaseStampHeld();
    DatabaseStampHeld(const DatabaseStampHeld&) = delete;
    DatabaseStampHeld& operator=(const DatabaseStampHeld&) = delete;
};

// The number of the DatabaseStampHeld now living (the outermost one), 0 when none: a reader
// that looked at a file while hold N lives may take what it saw as still true until N ends.
quint64 StampHoldNow();

// Corvantis.ini: its name, the writes this program made to it, its size and time of change.
QString SettingsChangeStamp();
