#pragma once

#include <QString>

// Texts that stay the same for as long as a store has not changed, so that a reader may keep
// what it read until its stamp changes.

// The open database: changes with every row this program writes, every commit of another
// connection and every other file opened; empty when none is open.
QString DatabaseChangeStamp();

// While one lives, DatabaseChangeStamp reads the commits of other connections once and gives
// every caller that reading until the last one ends; rows this program writes and another file
// opened still change the stamp at once. For one action of the operator whose steps each ask
// (the look of the next slide, the rows of the item shown): a commit of another program made
// meanwhile shows at the next action.
class DatabaseStampHeld {
public:
    DatabaseStampHeld();
    ~DatabaseStampHeld();
    DatabaseStampHeld(const DatabaseStampHeld&) = delete;
    DatabaseStampHeld& operator=(const DatabaseStampHeld&) = delete;
};

// Corvantis.ini: its name, the writes this program made to it, its size and time of change.
QString SettingsChangeStamp();
