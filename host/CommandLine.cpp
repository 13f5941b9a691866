#include "CommandLine.h"

CommandLine CommandLine::Parse(const QStringList& arguments) {
    CommandLine line;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& arg = arguments.at(i);
        if (arg == QLatin1String("--sample")) {
            line.sample = true;
        } else if (arg == QLatin1String("--screenshot")) {
            if (i + 1 >= arguments.size() || arguments.at(i + 1).startsWith(QLatin1String("--"))) {
                line.error = QStringLiteral("--screenshot needs the folder to write into");
                return line;
            }
            line.screenshotDir = arguments.at(++i);
        } else if (arg.startsWith(QLatin1String("--screenshot="))) {
            line.screenshotDir = arg.mid(13);
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            line.help = true;
        } else if (arg.startsWith(QLatin1Char('-'))) {
            // Qt's own options (-platform, -style ...) are handled by Qt.
            continue;
        }
    }
    return line;
}

CommandLine CommandLine::Parse(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return Parse(arguments);
}

QString CommandLine::Usage() {
    return QStringLiteral("Usage: corvantis [--sample] [--screenshot DIR]\n"
                          "  --sample           start on the sample database\n"
                          "  --screenshot DIR   write PNG pictures of the main window and of the\n"
                          "                     projector running a sample service into DIR\n");
}
