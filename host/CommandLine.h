#pragma once

#include <QString>
#include <QStringList>

// What the command line asks of Corvantis:
//   --sample           start on the sample database, whatever the settings say
//   --screenshot DIR   draw the main window and the projector picture of the
//                      first parts of a sample service into PNG files in DIR,
//                      without a display, and quit
struct CommandLine {
    bool sample = false;
    QString screenshotDir;
    bool help = false;
    QString error; // an argument that was not understood

    bool IsScreenshot() const { return !screenshotDir.isEmpty(); }

    static CommandLine Parse(const QStringList& arguments);
    // Reads the raw arguments, before any QApplication exists.
    static CommandLine Parse(int argc, char* argv[]);
    static QString Usage();
};
