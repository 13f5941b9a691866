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
    // With one screen and a console on it: a small 4:3 window (a quarter of
    // the area's width) in the bottom right corner of the area, where the
    // console keeps no buttons.
    static QRect OutOfTheWay(const QRect& rcArea);
};
