#pragma once

#include <QList>
#include <QRect>

// Where the projector window goes: full screen on the second monitor when
// there is one, else a normal window on the first, so that an operator with
// one screen still sees the run.
struct ProjectorPlacement {
    bool fullScreen = false;
    QRect geometry;
    int monitor = 0; // index into the monitor list

    // monitors: the rectangles of the screens, the primary first.
    static ProjectorPlacement For(const QList<QRect>& monitors);
};
