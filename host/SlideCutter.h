#pragma once

#include "RunItem.h"
#include "RunLook.h"
#include "Slide.h"

#include <functional>

// Cuts one service item into the slides of a run:
//  - the Blank item is one empty slide; a picture one slide with its picture;
//  - an item broken down into parts (a song) one slide per part, in the order
//    in which the parts are sung;
//  - a points list by its view mode: one point at a time (4), revealed one by
//    one (5) or all at start (6), sub-points one by one when the item says so;
//  - a presentation one slide per page of its slides, full screen;
//  - any other text by its view mode: entire (0), a number of lines at a time
//    (1), a screenful at a time (2) or paragraph by paragraph (3).
class SlideCutter {
public:
    // How many lines, from lines[first] on, fit on one screen with the current
    // font (used by the screenful mode); always at least 1.
    using FitFunction = std::function<int(const QStringList& lines, int first)>;

    SlideCutter(const RunLook& look, FitFunction fit);

    QList<Slide> Cut(const RunItem& item) const;

    static QStringList SplitLines(const QString& text);
    static QList<QStringList> SplitParagraphs(const QStringList& lines);

private:
    Slide Base(const RunItem& item) const;
    QList<Slide> CutSong(const RunItem& item) const;
    QList<Slide> CutText(const RunItem& item) const;
    QList<Slide> CutPoints(const RunItem& item) const;
    QList<Slide> CutPresentation(const RunItem& item) const;
    QList<QStringList> Pages(const RunItem& item, const QStringList& lines) const;
    static void Number(QList<Slide>& slides, int partType);

    RunLook m_look;
    FitFunction m_fit;
};
