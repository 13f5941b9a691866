#include "SlideCutter.h"

#include <QHash>
#include <QSet>

namespace {

struct Outline {
    QList<SlidePoint> points; // in list order, with their depth
    QList<QList<int>> groups; // per top point: its index, then its sub-points
};

Outline outlineOf(const QList<RunItem::Point>& rows) {
    Outline outline;
    QHash<QString, int> depthOf;
    for (const RunItem::Point& row : rows) {
        const int depth = row.parentKey.isEmpty() ? 0 : depthOf.value(row.parentKey, -1) + 1;
        depthOf.insert(row.key, depth);
        const int index = static_cast<int>(outline.points.size());
        outline.points << SlidePoint{row.text, depth};
        if (depth == 0 || outline.groups.isEmpty())
            outline.groups << QList<int>{index};
        else
            outline.groups.last() << index;
    }
    return outline;
}

QList<SlidePoint> visible(const Outline& outline, const QSet<int>& shown) {
    QList<SlidePoint> points;
    for (int i = 0; i < outline.points.size(); ++i)
        if (shown.contains(i))
            points << outline.points[i];
    return points;
}

// The sets of visible points, one per step of the run.
QList<QSet<int>> steps(const Outline& outline, int mode, bool revealSubs) {
    QList<QSet<int>> result;
    QSet<int> shown;
    if (mode == 6) { // all points at start
        for (const QList<int>& group : outline.groups)
            for (int i = 0; i < group.size(); ++i)
                if (i == 0 || !revealSubs)
                    shown.insert(group[i]);
        result << shown;
    }
    for (const QList<int>& group : outline.groups) {
        if (mode == 4) // one point at a time
            shown.clear();
        if (mode != 6) {
            shown.insert(group.first());
            if (!revealSubs)
                for (int index : group)
                    shown.insert(index);
            result << shown;
        }
        if (revealSubs)
            for (int i = 1; i < group.size(); ++i) {
                shown.insert(group[i]);
                result << shown;
            }
    }
    return result;
}

} // namespace

QList<Slide> SlideCutter::CutPoints(const RunItem& item) const {
    // An item that names no points mode of its own runs as the options say,
    // both the mode and whether sub-points come one by one.
    int mode = item.textViewMode;
    bool blnSubPointsOneByOne = item.revealSubPointsOneByOne;
    if (mode < 4 || mode > 6) {
        mode = m_look.pointDisplayMode;
        blnSubPointsOneByOne = m_look.revealSubPointsOneByOne;
    }
    const Outline outline = outlineOf(item.points);
    QList<Slide> slides;
    for (const QSet<int>& shown : steps(outline, mode, blnSubPointsOneByOne)) {
        Slide slide = Base(item);
        slide.kind = Slide::Kind::Points;
        slide.points = visible(outline, shown);
        slides << slide;
    }
    Number(slides, Slide::PartPoint);
    return slides;
}
