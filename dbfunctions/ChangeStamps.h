#pragma once

#include <QString>

// Texts that stay the same for as long as a store has not changed, so that a reader may keep
// what it read until its stamp changes.

// The open database: changes with every row this program writes, every commit of another
// connection and every other file opened; empty when none is open.
QString DatabaseChangeStamp();

// Corvantis.ini: its name, the writes this program made to it, its size and time of change.
QString SettingsChangeStamp();
