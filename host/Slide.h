#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One picture on the projector: what the run engine decided to show and what
// the slide renderer draws. A slide knows which part of its item it is, so
// that the console can be told which part is showing.
struct SlidePoint {
    QString text;
    int depth = 0; // 0 a point, 1 a sub-point, 2 a sub-sub-point...
};

struct Slide {
    enum class Kind {
        Text,    // lines of text (a song part, a page of a text)
        Points,  // the points of a points list revealed so far
        Picture, // a picture scaled to fit
        Blank,   // the Blank item: background only
        End,     // past the last item of a service: background only
        PdfPage, // one page of a presentation's slides, full screen
    };

    // The part types the console is told with each part change: 2 is a part
    // of a song (the console moves its part list); the others only reset the
    // console's "at the end" state.
    enum PartType { PartNone = 0, PartText = 1, PartSong = 2, PartPoint = 3 };

    Kind kind = Kind::Blank;
    qint32 serviceItemId = 0;
    QString title;            // the item's description, when the options allow it
    QString footer;           // source, copyright and location, when allowed
    QString partName;         // "Verse 1", "Chorus" for a song part
    QStringList lines;        // Kind::Text
    QList<SlidePoint> points; // Kind::Points
    QString picturePath;      // Kind::Picture
    QStringList backgrounds;  // background pictures, shown in turn
    int changeBackgroundEverySeconds = 0;
    int secondsToShow = 0; // a picture shown for a time, then the run goes on; 0 until a press
    int partIndex = 0;     // 0-based part of the item
    int partCount = 1;
    int partType = PartNone;

    // Kind::PdfPage: the PDF of the presentation's slides, and the page (from 0).
    QString slidesPdf;
    int slidePage = 0;

    bool IsLastPart() const { return partIndex >= partCount - 1; }
    // The words of the slide as one text (tests and the trace).
    QString Words() const;
};
