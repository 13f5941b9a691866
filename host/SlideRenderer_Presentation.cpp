#include "SlideRenderer.h"

#include "foundations/PdfSlides.h"

#include <QPainter>

// A page of a presentation fills the screen as far as its proportions allow, on black.
void SlideRenderer::PaintPdfPage(QPainter& painter, const QRect& rect, const Slide& slide) {
    painter.fillRect(rect, Qt::black);
    if (!m_slides)
        m_slides = std::make_shared<PdfSlides>();
    QString err;
    if (!m_slides->Open(slide.slidesPdf, err))
        return;
    const QImage page = m_slides->Render(slide.slidePage, rect.size());
    if (page.isNull())
        return;
    painter.drawImage(rect.left() + (rect.width() - page.width()) / 2,
                      rect.top() + (rect.height() - page.height()) / 2, page);
}
