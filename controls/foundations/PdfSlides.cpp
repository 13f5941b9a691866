#include "foundations/PdfSlides.h"

#include <QFileInfo>
#include <QPainter>
#include <QPdfDocument>

namespace {
// Enough for the slide shown, the one before and the one after, at two sizes.
constexpr int kKeptPictures = 8;
} // namespace

PdfSlides::PdfSlides() = default;
PdfSlides::~PdfSlides() = default;

bool PdfSlides::Open(const QString& strPdf, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (IsOpen() && strPdf == m_file)
        return true;
    Close();
    if (!QFileInfo(strPdf).isFile()) {
        strErrorMessage = QStringLiteral("The slides %1 cannot be found.").arg(strPdf);
        return false;
    }
    auto document = std::make_unique<QPdfDocument>();
    const QPdfDocument::Error error = document->load(strPdf);
    if (error != QPdfDocument::Error::None || document->pageCount() <= 0) {
        strErrorMessage =
            QStringLiteral("The slides of %1 cannot be read.").arg(QFileInfo(strPdf).fileName());
        return false;
    }
    m_document = std::move(document);
    m_file = strPdf;
    m_count = m_document->pageCount();
    return true;
}

void PdfSlides::Close() {
    m_document.reset();
    m_file.clear();
    m_count = 0;
    m_rendered.clear();
    m_renderedOrder.clear();
}

QSize PdfSlides::FittedSize(int intPage, const QSize& szArea) const {
    if (!m_document || intPage < 0 || intPage >= m_count || szArea.isEmpty())
        return QSize();
    const QSizeF page = m_document->pagePointSize(intPage);
    if (page.isEmpty())
        return szArea;
    return page.scaled(QSizeF(szArea), Qt::KeepAspectRatio).toSize().expandedTo(QSize(1, 1));
}

QImage PdfSlides::Render(int intPage, const QSize& szArea) {
    const QSize size = FittedSize(intPage, szArea);
    if (size.isEmpty())
        return QImage();
    const QString strKey =
        QStringLiteral("%1:%2x%3").arg(intPage).arg(size.width()).arg(size.height());
    const auto kept = m_rendered.constFind(strKey);
    if (kept != m_rendered.constEnd())
        return *kept;
    // A page is paper: what the PDF leaves transparent is white.
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.drawImage(0, 0, m_document->render(intPage, size));
    }
    m_rendered.insert(strKey, picture);
    m_renderedOrder.append(strKey);
    while (m_renderedOrder.size() > kKeptPictures)
        m_rendered.remove(m_renderedOrder.takeFirst());
    return picture;
}
