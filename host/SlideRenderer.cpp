#include "SlideRenderer.h"

#include <QFileInfo>
#include <QPainter>
#include <QtMath>

namespace {
constexpr double ReferenceHeight = 768.0;
constexpr double StepFactor = 1.12;
} // namespace

int SlideRenderer::BodyPixelSize(int intHeight) const {
    const double points = m_look.fontSize > 0 ? m_look.fontSize : 36.0;
    const double pixels = points * 96.0 / 72.0 * intHeight / ReferenceHeight;
    return qMax(4, qRound(pixels * qPow(StepFactor, m_sizeStep)));
}

QFont SlideRenderer::Font(int intPixelSize, bool blnBold) const {
    QFont font(m_look.fontName);
    font.setPixelSize(qMax(1, intPixelSize));
    font.setBold(blnBold);
    font.setItalic(m_look.fontItalic);
    return font;
}

SlideRenderer::Areas SlideRenderer::Layout(const QRect& rect, const Slide& slide) const {
    const int margin = qMax(4, rect.width() / 25);
    QRect inner = rect.adjusted(margin, margin, -margin, -margin);
    Areas areas;
    const int detailHeight = qMax(8, BodyPixelSize(rect.height()) * 2 / 3);
    if (!slide.title.isEmpty()) {
        areas.title = QRect(inner.left(), inner.top(), inner.width(), detailHeight * 3 / 2);
        inner.setTop(areas.title.bottom() + margin / 2);
    }
    if (!slide.footer.isEmpty()) {
        areas.footer =
            QRect(inner.left(), inner.bottom() - detailHeight, inner.width(), detailHeight);
        inner.setBottom(areas.footer.top() - margin / 2);
    }
    areas.body = inner;
    return areas;
}

QImage SlideRenderer::Picture(const QString& strPath) {
    if (strPath.isEmpty())
        return QImage();
    auto it = m_pictures.constFind(strPath);
    if (it != m_pictures.constEnd())
        return *it;
    if (m_pictures.size() > 16)
        m_pictures.clear();
    QImage image(strPath);
    m_pictures.insert(strPath, image);
    return image;
}

QImage SlideRenderer::ScaledPicture(const QString& strPath, const QSize& size,
                                    Qt::AspectRatioMode mode) {
    constexpr qsizetype Kept = 6;
    for (qsizetype i = 0; i < m_scaled.size(); ++i) {
        const Scaled& kept = m_scaled.at(i);
        if (kept.size == size && kept.mode == mode && kept.path == strPath) {
            const QImage image = kept.image;
            if (i > 0)
                m_scaled.move(i, 0);
            return image;
        }
    }
    const QImage image = Picture(strPath);
    if (image.isNull())
        return image;
    m_scaled.prepend({strPath, size, mode, image.scaled(size, mode, Qt::SmoothTransformation)});
    if (m_scaled.size() > Kept)
        m_scaled.removeLast();
    return m_scaled.first().image;
}

void SlideRenderer::PaintBackground(QPainter& painter, const QRect& rect, const Slide& slide,
                                    int index) {
    painter.fillRect(rect, m_look.backColor);
    if (slide.backgrounds.isEmpty())
        return;
    const QImage scaled = ScaledPicture(slide.backgrounds.at(index % slide.backgrounds.size()),
                                        rect.size(), Qt::KeepAspectRatioByExpanding);
    if (scaled.isNull())
        return;
    const QRect source((scaled.width() - rect.width()) / 2, (scaled.height() - rect.height()) / 2,
                       rect.width(), rect.height());
    painter.drawImage(rect, scaled, source);
    // A veil of the background colour keeps the words readable on any picture.
    if (slide.kind == Slide::Kind::Text || slide.kind == Slide::Kind::Points) {
        QColor veil = m_look.backColor;
        veil.setAlpha(110);
        painter.fillRect(rect, veil);
    }
}

void SlideRenderer::PaintPicture(QPainter& painter, const QRect& rect, const Slide& slide) {
    const QImage scaled = ScaledPicture(slide.picturePath, rect.size(), Qt::KeepAspectRatio);
    if (scaled.isNull()) {
        const QString name = QFileInfo(slide.picturePath).fileName();
        DrawText(painter, rect, Qt::AlignCenter | Qt::TextWordWrap,
                 name.isEmpty() ? QStringLiteral("(no picture)")
                                : QStringLiteral("Picture not found: ") + name);
        return;
    }
    painter.drawImage(rect.left() + (rect.width() - scaled.width()) / 2,
                      rect.top() + (rect.height() - scaled.height()) / 2, scaled);
}

void SlideRenderer::Paint(QPainter& painter, const QRect& rect, const Slide& slide,
                          bool blnBlackedOut, int intBackgroundIndex) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    if (blnBlackedOut) {
        painter.fillRect(rect, Qt::black);
        painter.restore();
        return;
    }
    PaintBackground(painter, rect, slide, intBackgroundIndex);
    const Areas areas = Layout(rect, slide);
    switch (slide.kind) {
    case Slide::Kind::Text:
        PaintWords(painter, areas.body, slide, BodyPixelSize(rect.height()));
        break;
    case Slide::Kind::Points:
        PaintPoints(painter, areas.body, slide, BodyPixelSize(rect.height()));
        break;
    case Slide::Kind::Picture:
        PaintPicture(painter, slide.footer.isEmpty() ? rect : areas.body.united(areas.title),
                     slide);
        break;
    case Slide::Kind::PdfPage:
        PaintPdfPage(painter, rect, slide);
        break;
    case Slide::Kind::Blank:
    case Slide::Kind::End:
        break;
    }
    PaintDetails(painter, areas, slide);
    painter.restore();
}

void SlideRenderer::PaintOver(QPainter& painter, const QRect& rect, const Slide& slide,
                              bool blnBlackedOut, int intBackgroundIndex) {
    // Paint covers the whole rectangle with the background colour (or black)
    // first; only a colour that lets something through needs black under it.
    if (m_look.backColor.alpha() < 255)
        painter.fillRect(rect, Qt::black);
    Paint(painter, rect, slide, blnBlackedOut, intBackgroundIndex);
}

QImage SlideRenderer::Render(const Slide& slide, const QSize& size, bool blnBlackedOut,
                             int intBackgroundIndex) {
    QImage image;
    RenderInto(image, slide, size, blnBlackedOut, intBackgroundIndex);
    return image;
}

void SlideRenderer::RenderInto(QImage& image, const Slide& slide, const QSize& size,
                               bool blnBlackedOut, int intBackgroundIndex) {
    if (image.size() != size || image.format() != QImage::Format_RGB32)
        image = QImage(size, QImage::Format_RGB32);
    QPainter painter(&image);
    PaintOver(painter, image.rect(), slide, blnBlackedOut, intBackgroundIndex);
}
