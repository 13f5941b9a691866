#include <QApplication>
#include <QLabel>

// Corvantis starts here; the main window grows as the controls land.
int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvantis"));
    QLabel window(QStringLiteral("Corvantis"));
    window.setWindowTitle(QStringLiteral("Corvantis"));
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
