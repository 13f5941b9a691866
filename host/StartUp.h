#pragma once

#include "CommandLine.h"

#include <QString>

// Everything that happens before the main window opens: the settings file
// Corvantis.ini is read, the support address of failure reports is set, and
// the database is opened - the sample database in sample mode. On a first
// start (no settings file yet) Corvantis goes into sample mode, so that a
// newcomer sees a church's services and service items at once.
struct StartUp {
    bool firstStart = false;
    bool sampleMode = false;
    bool fellBackToSample = false; // the configured database could not be opened
    QString databasePath;
    QString startupTab;   // Options/StartupTab
    QString errorMessage; // why no database could be opened

    bool DatabaseOpen() const { return errorMessage.isEmpty(); }
    QString WindowTitle() const;

    static StartUp Run(const CommandLine& line);

    static QString SupportAddressKey() { return QStringLiteral("SupportAddress"); }
};
