#pragma once

#include <QString>

// The settings file Corvantis.ini, read and written as the Windows profile functions do:
// sections and keys are found without regard to letter case, values come back verbatim
// (surrounding blanks trimmed, nothing else interpreted), a missing file, section or key gives
// the default. Every call reads the file again, so a change by another part of the program (or
// by hand) is seen at once; a write replaces the file atomically and keeps every other line,
// comments included.
//
// The file lies in the folder named by the environment variable CORVANTIS_INI_DIR, else in the
// user's configuration folder (~/.config/Corvantis/).
class Settings {
public:
    static QString GetPrivateProfileString(const QString& section, const QString& key,
                                           const QString& defaultValue = QString());
    // The value as a whole number; the default when missing or not a number.
    static qint32 GetPrivateProfileInt(const QString& section, const QString& key,
                                       qint32 defaultValue = 0);
    // Adds or replaces the key (the section is created when missing). False when the file
    // cannot be written.
    static bool WritePrivateProfileString(const QString& section, const QString& key,
                                          const QString& value);
    // Removes a key; true also when it was not there.
    static bool DeletePrivateProfileKey(const QString& section, const QString& key);

    // Full name of Corvantis.ini and its folder.
    static QString IniPath();
    static QString IniFolder();

    // The data folder: Paths/Data of the settings file, else the user's data folder
    // (~/.local/share/Corvantis). Without a trailing separator.
    static QString DataFolder();
};
