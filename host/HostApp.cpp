#include "HostApp.h"

#include "CommandLine.h"
#include "FontWarmUp.h"
#include "HostStyle.h"
#include "MainWindow.h"
#include "Screenshot.h"
#include "StartUp.h"
#include "foundations/GuardedApplication.h"
#include "foundations/Platform.h"

#include <QTemporaryDir>
#include <QTextStream>

#ifndef CORVANTIS_VERSION
#define CORVANTIS_VERSION "0.1.0"
#endif

int CorvantisMain(int argc, char* argv[]) {
    const CommandLine line = CommandLine::Parse(argc, argv);
    // Screenshots are drawn without a display, on a console's screen and a
    // projector's.
    QTemporaryDir screens;
    if (line.IsScreenshot() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        Screenshot::SelectTwoScreens(screens);
    // The fonts' configuration loads while the application object is made and the database
    // opens; started after the last change to the environment, which the loading reads.
    FontWarmUp fonts;
    GuardedApplication app(argc, argv);
    QApplication::setStyle(new HostStyle);
    QApplication::setApplicationName(QStringLiteral("Corvantis"));
    QApplication::setApplicationVersion(QStringLiteral(CORVANTIS_VERSION));
    QTextStream err(stderr);
    if (!line.error.isEmpty() || line.help) {
        err << line.error << (line.error.isEmpty() ? "" : "\n") << CommandLine::Usage();
        return line.help ? 0 : 2;
    }
    const StartUp startUp = StartUp::Run(line);
    fonts.Wait(); // every step from here on measures or draws text
    if (line.IsScreenshot())
        return Screenshot::Take(line.screenshotDir, startUp, err);
    if (!startUp.DatabaseOpen())
        Platform::Current().MsgBox(QStringLiteral("Corvantis could not open its database:\n") +
                                       startUp.errorMessage,
                                   vbExclamation);
    MainWindow window(startUp);
    window.show();
    return QApplication::exec();
}
