#include "SlideRenderer.h"

#include <QFontMetrics>
#include <QPainter>

namespace {
constexpr int BodyFlags = Qt::AlignCenter | Qt::TextWordWrap;
constexpr int PointFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

int indentOf(const SlidePoint& point, int px) {
    return point.depth * px * 3 / 2;
}

QString bulletOf(const SlidePoint& point) {
    return point.depth == 0 ? QStringLiteral("\u2022 ") : QStringLiteral("\u2013 ");
}
} // namespace

// The largest pixel size from intStart down at which the text fits the area,
// wrapped at word boundaries; a word wider than the area shrinks the font too.
int SlideRenderer::FitText(const QString& text, const QRect& area, int flags, int intStart,
                           bool blnBold) const {
    int px = intStart;
    while (px > 1) {
        const QFontMetrics fm(Font(px, blnBold));
        const QRect needed = fm.boundingRect(QRect(0, 0, area.width(), 1 << 20), flags, text);
        if (needed.height() <= area.height() && needed.width() <= area.width())
            break;
        px = qMin(px - 1, px * 92 / 100);
    }
    return qMax(1, px);
}

int SlideRenderer::FitPoints(const QList<SlidePoint>& points, const QRect& area,
                             int intStart) const {
    int px = intStart;
    while (px > 1) {
        const QFontMetrics fm(Font(px, m_look.fontBold));
        int height = 0;
        bool fits = true;
        for (const SlidePoint& point : points) {
            const int width = area.width() - indentOf(point, px);
            const QString text = bulletOf(point) + point.text;
            const QRect needed =
                fm.boundingRect(QRect(0, 0, qMax(1, width), 1 << 20), PointFlags, text);
            fits = fits && needed.width() <= width;
            height += needed.height() + px / 3;
        }
        if (fits && height <= area.height())
            break;
        px = qMin(px - 1, px * 92 / 100);
    }
    return qMax(1, px);
}

void SlideRenderer::DrawText(QPainter& painter, const QRect& rect, int flags,
                             const QString& text) const {
    const int offset = qMax(1, painter.font().pixelSize() / 24);
    QColor shadow = m_look.backColor.darker(250);
    shadow.setAlpha(160);
    painter.setPen(shadow);
    painter.drawText(rect.translated(offset, offset), flags, text);
    painter.setPen(m_look.foreColor);
    painter.drawText(rect, flags, text);
}

void SlideRenderer::PaintWords(QPainter& painter, const QRect& body, const Slide& slide,
                               int intBase) const {
    const QString text = slide.lines.join(QLatin1Char('\n'));
    if (text.isEmpty())
        return;
    const int px = FitText(text, body, BodyFlags, intBase, m_look.fontBold);
    painter.setFont(Font(px, m_look.fontBold));
    DrawText(painter, body, BodyFlags, text);
}

void SlideRenderer::PaintPoints(QPainter& painter, const QRect& body, const Slide& slide,
                                int intBase) const {
    if (slide.points.isEmpty())
        return;
    const int px = FitPoints(slide.points, body, intBase);
    const QFont font = Font(px, m_look.fontBold);
    painter.setFont(font);
    const QFontMetrics fm(font);
    int y = body.top();
    for (const SlidePoint& point : slide.points) {
        const int indent = indentOf(point, px);
        const QString text = bulletOf(point) + point.text;
        const QRect box(body.left() + indent, y, body.width() - indent, body.bottom() - y + 1);
        const QRect needed =
            fm.boundingRect(QRect(0, 0, qMax(1, box.width()), 1 << 20), PointFlags, text);
        DrawText(painter, box, PointFlags, text);
        y += needed.height() + px / 3;
    }
}

void SlideRenderer::PaintDetails(QPainter& painter, const Areas& areas, const Slide& slide) const {
    if (!slide.title.isEmpty()) {
        const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
        const int px = FitText(slide.title, areas.title, flags, areas.title.height() * 2 / 3, true);
        painter.setFont(Font(px, true));
        DrawText(painter, areas.title, flags, slide.title);
    }
    if (!slide.footer.isEmpty()) {
        const int flags = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;
        const int px =
            FitText(slide.footer, areas.footer, flags, areas.footer.height() * 2 / 3, false);
        painter.setFont(Font(px, false));
        DrawText(painter, areas.footer, flags, slide.footer);
    }
}

int SlideRenderer::FittedPixelSize(const Slide& slide, const QSize& size) const {
    const Areas areas = Layout(QRect(QPoint(0, 0), size), slide);
    const int start = BodyPixelSize(size.height());
    if (slide.kind == Slide::Kind::Text && !slide.lines.isEmpty())
        return FitText(slide.lines.join(QLatin1Char('\n')), areas.body, BodyFlags, start,
                       m_look.fontBold);
    if (slide.kind == Slide::Kind::Points && !slide.points.isEmpty())
        return FitPoints(slide.points, areas.body, start);
    return 0;
}

int SlideRenderer::LinesThatFit(const QStringList& lines, int first, const QSize& size) const {
    Slide probe;
    probe.kind = Slide::Kind::Text;
    probe.title = QStringLiteral("x"); // leave room for the item's details
    probe.footer = QStringLiteral("x");
    const Areas areas = Layout(QRect(QPoint(0, 0), size), probe);
    const QFontMetrics fm(Font(BodyPixelSize(size.height()), m_look.fontBold));
    int count = 0;
    int height = 0;
    for (int i = first; i < lines.size(); ++i) {
        const QString line = lines.at(i).isEmpty() ? QStringLiteral(" ") : lines.at(i);
        height +=
            fm.boundingRect(QRect(0, 0, areas.body.width(), 1 << 20), BodyFlags, line).height();
        if (height > areas.body.height() && count > 0)
            break;
        ++count;
    }
    return qMax(1, count);
}
