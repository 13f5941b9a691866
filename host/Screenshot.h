#pragma once

#include <QString>
#include <QStringList>

class QImage;
class QTemporaryDir;
class QTextStream;
struct StartUp;

// The --screenshot mode: draws, without a display, the main window on each of
// its pages and the projector picture (with the console beside it) of the
// first parts of a sample service, into PNG files, so that anyone can check
// what Corvantis draws. Returns the program's exit code.
namespace Screenshot {

// How many steps of the service are drawn.
constexpr int Steps = 8;

int Take(const QString& strFolder, const StartUp& startUp, QTextStream& log);
// Chooses the offscreen display with two screens, the console's (1280 x 800)
// and the projector's (1024 x 768) right of it, so that the pictures show the
// run as a church with a projector sees it, the console's mirror included.
// Writes the screen file into dir; must run before the application is made.
void SelectTwoScreens(const QTemporaryDir& dir);
// The service that the screenshots run: the first one with rows to show.
qint32 SampleServiceID();
// True when the picture holds more than one colour.
bool IsNotBlank(const QImage& image);

} // namespace Screenshot
