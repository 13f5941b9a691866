#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What the run engine needs to know of one service item, read from the
// database when the item comes up in a run.
struct RunItem {
    struct Part { // one step of a song, in sung order
        QString name;
        QString text;
        bool isChorus = false;
    };
    struct Point {
        QString key;
        QString parentKey;
        QString text;
    };

    qint32 serviceItemId = 0;
    qint16 typeId = 0;
    QString description;
    QString source;
    QString copyright;
    QString location;
    bool hideDetails = false;
    qint16 textViewMode = 0;
    qint16 linesAtATime = 2;
    bool runAsPointsList = false;
    bool revealSubPointsOneByOne = false;
    qint32 secondsToRun = 0;
    qint32 changeImageEveryXSeconds = 0;
    QString text;               // the content as text
    QList<Part> parts;          // the song sequence, when the item is broken down
    QList<Point> points;        // the points list
    QString filePath;           // picture, music or presentation file
    QStringList backgrounds;    // the item's own background pictures
    QString slidesPdf;          // a presentation's slides, converted to PDF
    int slideCount = 0;         // pages of slidesPdf
    bool slidesPending = false; // a presentation whose slides are being prepared

    bool IsBlank() const { return serviceItemId == 1; }
    bool IsPicture() const { return typeId == 4 || typeId == 5; }
    bool IsPresentation() const { return typeId == 12; }
    bool RunsAsPoints() const { return (runAsPointsList || typeId == 11) && !points.isEmpty(); }

    // How a presentation's slides are found: converted now when none are kept
    // (waiting for LibreOffice), or taken only when kept, the item then waiting
    // for them with slidesPending set.
    enum class Slides { ConvertNow, KeptOnly };

    // Reads the item; false with strErrorMessage when it cannot be read.
    static bool Load(qint32 lngServiceItemID, RunItem& item, QString& strErrorMessage,
                     Slides slides = Slides::ConvertNow);
    // Takes the slides of a presentation from its PDF, or, with an error text
    // or a PDF that cannot be read, keeps none and traces why (the item then
    // runs as an empty slide). False when it has none.
    bool TakeSlides(const QString& strPdf, const QString& strErrorMessage);
};
