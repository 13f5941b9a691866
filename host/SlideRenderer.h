#pragma once

#include "RunLook.h"
#include "Slide.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QRect>
#include <QSize>

#include <memory>

class PdfSlides;

class QPainter;

// Draws a slide the way the projector shows it: the background colour and
// picture of the options (or of the item), the item's details, and its words
// in the run font. Words that don't fit get a smaller font: a slide is never
// cut off. Sizes are those of a 1024 x 768 projector, scaled to the picture.
class SlideRenderer {
public:
    SlideRenderer() = default;

    void SetLook(const RunLook& look) { m_look = look; }
    const RunLook& Look() const { return m_look; }
    // Steps of the operator's size buttons; each step is about 12 % larger.
    void SetSizeStep(int intStep) { m_sizeStep = intStep; }
    int SizeStep() const { return m_sizeStep; }

    void Paint(QPainter& painter, const QRect& rect, const Slide& slide, bool blnBlackedOut = false,
               int intBackgroundIndex = 0);
    // Paint over whatever the painter's device held: a background colour that
    // lets something through shows black beneath it, as on a fresh picture.
    void PaintOver(QPainter& painter, const QRect& rect, const Slide& slide,
                   bool blnBlackedOut = false, int intBackgroundIndex = 0);
    QImage Render(const Slide& slide, const QSize& size, bool blnBlackedOut = false,
                  int intBackgroundIndex = 0);
    // Render into image, drawing over the picture it holds when that has the
    // size already (no new memory for it), else into a new one.
    void RenderInto(QImage& image, const Slide& slide, const QSize& size,
                    bool blnBlackedOut = false, int intBackgroundIndex = 0);

    // One frame of the change from picture from to picture to (both of
    // rect's size): progress runs from 0 (only from shows) to 1 (only to
    // shows). An unknown kind or a cut shows to.
    static void PaintTransition(QPainter& painter, const QRect& rect, const QImage& from,
                                const QImage& to, qint32 lngType, qreal progress);

    // The pixel size of the body text at this picture height, before fitting.
    int BodyPixelSize(int intHeight) const;
    // The pixel size that the body text of this slide gets after fitting
    // (0 for slides without words).
    int FittedPixelSize(const Slide& slide, const QSize& size) const;
    // How many lines, from lines[first] on, fit into the body of a slide of
    // this size at the unshrunk font (at least 1).
    int LinesThatFit(const QStringList& lines, int first, const QSize& size) const;

private:
    struct Areas {
        QRect title, body, footer;
    };
    Areas Layout(const QRect& rect, const Slide& slide) const;
    QFont Font(int intPixelSize, bool blnBold) const;
    QImage Picture(const QString& strPath);
    // The picture at strPath scaled smoothly to size: made once and kept, since
    // the same pictures come back slide after slide (a background under every
    // verse, a picture shown again) and scaling costs more than the painting.
    QImage ScaledPicture(const QString& strPath, const QSize& size, Qt::AspectRatioMode mode);
    void PaintBackground(QPainter& painter, const QRect& rect, const Slide& slide, int index);
    void PaintPicture(QPainter& painter, const QRect& rect, const Slide& slide);
    void PaintPdfPage(QPainter& painter, const QRect& rect, const Slide& slide);
    void PaintDetails(QPainter& painter, const Areas& areas, const Slide& slide) const;
    void PaintWords(QPainter& painter, const QRect& body, const Slide& slide, int intBase) const;
    void PaintPoints(QPainter& painter, const QRect& body, const Slide& slide, int intBase) const;
    void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text) const;
    int FitText(const QString& text, const QRect& area, int flags, int intStart,
                bool blnBold) const;
    int FitPoints(const QList<SlidePoint>& points, const QRect& area, int intStart) const;

    RunLook m_look;
    int m_sizeStep = 0;
    QHash<QString, QImage> m_pictures;
    struct Scaled {
        QString path;
        QSize size;
        Qt::AspectRatioMode mode;
        QImage image;
    };
    QList<Scaled> m_scaled;              // the last few, the newest first
    std::shared_ptr<PdfSlides> m_slides; // the presentation whose pages were drawn last
};
