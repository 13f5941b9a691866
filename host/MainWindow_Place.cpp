#include "MainWindow.h"

#include "Settings.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

// The size the window opens at when it has no remembered place: room for a
// gallery and an editor side by side, and no more than the screen holds.
constexpr QSize PreferredSize(1000, 700);

QString Section() {
    return QStringLiteral("Window");
}

// "x,y,width,height" as written by GeometryText; an empty rectangle when the
// text is not one.
QRect GeometryFromText(const QString& strText) {
    const QStringList parts = strText.split(QLatin1Char(','));
    if (parts.size() != 4)
        return QRect();
    QList<int> numbers;
    for (const QString& part : parts) {
        bool ok = false;
        numbers << part.trimmed().toInt(&ok);
        if (!ok)
            return QRect();
    }
    return QRect(numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3));
}

QString GeometryText(const QRect& rect) {
    return QStringLiteral("%1,%2,%3,%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

// The rectangle moved and shrunk into the area, so that all of it shows.
QRect FittedInto(QRect rect, const QRect& area) {
    rect.setWidth(qMin(rect.width(), area.width()));
    rect.setHeight(qMin(rect.height(), area.height()));
    if (rect.right() > area.right())
        rect.moveRight(area.right());
    if (rect.bottom() > area.bottom())
        rect.moveBottom(area.bottom());
    if (rect.left() < area.left())
        rect.moveLeft(area.left());
    if (rect.top() < area.top())
        rect.moveTop(area.top());
    return rect;
}

} // namespace

QRect MainWindow::OpeningGeometry() const {
    // The window's frame (title bar, borders) lies outside its geometry.
    const QMargins frame(8, 31, 8, 8);
    const QRect remembered =
        GeometryFromText(Settings::GetPrivateProfileString(Section(), GeometryKey()));
    if (remembered.isValid())
        for (QScreen* screen : QGuiApplication::screens())
            if (screen->availableGeometry().contains(remembered.center()))
                return FittedInto(remembered, screen->availableGeometry() - frame);
    QScreen* console = QGuiApplication::primaryScreen();
    if (!console)
        return QRect(QPoint(0, 0), PreferredSize);
    const QRect area = console->availableGeometry() - frame;
    QRect rect(QPoint(0, 0), PreferredSize.boundedTo(area.size()));
    rect.moveCenter(area.center());
    return rect;
}

void MainWindow::SaveGeometry() const {
    if (isMinimized() || isFullScreen())
        return;
    const QRect rect = isMaximized() ? normalGeometry() : geometry();
    Settings::WritePrivateProfileString(Section(), GeometryKey(), GeometryText(rect));
}
