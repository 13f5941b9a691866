// The frames of the changes from one slide to the next that the projector
// window animates: fades, pushes and a wipe between two finished pictures.
#include "SlideRenderer.h"

#include "DataAccess.h"

#include <QPainter>

#include <cmath>

namespace {

// The new picture pushes the old one out: both move by the same offset.
void PaintPush(QPainter& painter, const QRect& rect, const QImage& from, const QImage& to,
               const QPoint& direction, qreal progress) {
    const int dx = static_cast<int>(std::lround(direction.x() * rect.width() * progress));
    const int dy = static_cast<int>(std::lround(direction.y() * rect.height() * progress));
    const QPoint enter(direction.x() * rect.width(), direction.y() * rect.height());
    painter.drawImage(rect.topLeft() - QPoint(dx, dy), from);
    painter.drawImage(rect.topLeft() + enter - QPoint(dx, dy), to);
}

void PaintFade(QPainter& painter, const QRect& rect, const QImage& from, const QImage& to,
               qreal progress) {
    painter.drawImage(rect.topLeft(), from);
    painter.setOpacity(progress);
    painter.drawImage(rect.topLeft(), to);
}

// The first half darkens the old picture to black, the second brings the new
// one up out of black.
void PaintThroughBlack(QPainter& painter, const QRect& rect, const QImage& from, const QImage& to,
                       qreal progress) {
    painter.fillRect(rect, Qt::black);
    if (progress < 0.5) {
        painter.setOpacity(1.0 - 2.0 * progress);
        painter.drawImage(rect.topLeft(), from);
    } else {
        painter.setOpacity(2.0 * progress - 1.0);
        painter.drawImage(rect.topLeft(), to);
    }
}

void PaintWipe(QPainter& painter, const QRect& rect, const QImage& from, const QImage& to,
               qreal progress) {
    const int width = static_cast<int>(std::lround(rect.width() * progress));
    painter.drawImage(rect.topLeft(), from);
    painter.drawImage(QRect(rect.topLeft(), QSize(width, rect.height())), to,
                      QRect(0, 0, width, rect.height()));
}

} // namespace

void SlideRenderer::PaintTransition(QPainter& painter, const QRect& rect, const QImage& from,
                                    const QImage& to, qint32 lngType, qreal progress) {
    progress = qBound(0.0, progress, 1.0);
    painter.save();
    painter.setClipRect(rect);
    if (progress >= 1.0 || from.isNull())
        lngType = DataAccess::transCut;
    switch (lngType) {
    case DataAccess::transFade:
        PaintFade(painter, rect, from, to, progress);
        break;
    case DataAccess::transDissolveThroughBlack:
        PaintThroughBlack(painter, rect, from, to, progress);
        break;
    case DataAccess::transSlideLeft:
        PaintPush(painter, rect, from, to, QPoint(1, 0), progress);
        break;
    case DataAccess::transSlideRight:
        PaintPush(painter, rect, from, to, QPoint(-1, 0), progress);
        break;
    case DataAccess::transSlideUp:
        PaintPush(painter, rect, from, to, QPoint(0, 1), progress);
        break;
    case DataAccess::transSlideDown:
        PaintPush(painter, rect, from, to, QPoint(0, -1), progress);
        break;
    case DataAccess::transWipe:
        PaintWipe(painter, rect, from, to, progress);
        break;
    default:
        painter.drawImage(rect.topLeft(), to);
        break;
    }
    painter.restore();
}
