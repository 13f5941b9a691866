#include "ProjectorPlacement.h"

ProjectorPlacement ProjectorPlacement::For(const QList<QRect>& monitors) {
    ProjectorPlacement placement;
    if (monitors.size() >= 2) {
        placement.fullScreen = true;
        placement.monitor = 1;
        placement.geometry = monitors.at(1);
        return placement;
    }
    const QRect screen = monitors.isEmpty() ? QRect(0, 0, 1024, 768) : monitors.first();
    // A 4:3 window of about half the screen, in its middle.
    int width = qMax(320, screen.width() / 2);
    int height = width * 3 / 4;
    if (height > screen.height() * 2 / 3) {
        height = qMax(240, screen.height() * 2 / 3);
        width = height * 4 / 3;
    }
    placement.geometry = QRect(0, 0, width, height);
    placement.geometry.moveCenter(screen.center());
    return placement;
}

QRect ProjectorPlacement::OutOfTheWay(const QRect& rcArea) {
    const int width = qMax(240, rcArea.width() / 4);
    QRect rect(0, 0, width, width * 3 / 4);
    rect.moveBottomRight(rcArea.bottomRight());
    return rect;
}
