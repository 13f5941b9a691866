#pragma once

#include <QColor>
#include <QString>

class Recordset;

// How a run looks on the projector, read from the options row: font and
// colours of the text, the default background picture, which item details may
// be shown, and the default way of showing points.
struct RunLook {
    QString fontName = QStringLiteral("DejaVu Sans");
    bool fontBold = true;
    bool fontItalic = false;
    double fontSize = 36.0; // points on a 1024 x 768 projector
    QColor foreColor = Qt::white;
    QColor backColor = QColor(0, 0, 96);
    QString backgroundPicture; // full path, empty for none

    bool showDescription = true;
    bool showSource = false;
    bool showCopyright = false;
    bool showLocation = false;

    qint16 pointDisplayMode = 4; // 4, 5 or 6
    bool revealSubPointsOneByOne = false;

    // The change from one slide to the next: the kind (a cut, 38, changes the
    // picture at once) and its length in milliseconds. Transitions are used
    // only when the settings file switches them on.
    bool useTransitions = false;
    qint32 transitionType = 38;
    qint32 transitionDuration = 600;
    // Whether the change from one slide to the next is animated.
    bool Animates() const { return useTransitions && transitionType != 38; }

    friend bool operator==(const RunLook&, const RunLook&) = default;

    // Reads the options row of the open database and UseTransitions of the
    // settings file; a field that is Null keeps the default above.
    // strErrorMessage carries the data library's text.
    static RunLook FromOptions(QString& strErrorMessage);
    // The same, but read again only when the open database or the settings file has changed
    // since the last read (or another file is open): a run asks before every slide, and a
    // change in Options still shows at the next one. A read that failed is not kept.
    static RunLook FromOptionsWhenChanged(QString& strErrorMessage);

    static void ReadTransition(const Recordset& rs, RunLook& look);

    // A colour stored as the long &HBBGGRR.
    static QColor FromBgr(qint32 lngColor);
    static qint32 ToBgr(const QColor& color);
};
