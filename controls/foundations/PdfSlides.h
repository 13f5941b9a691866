#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include <memory>

class QPdfDocument;

// The pages of a PDF as pictures: the slides of a presentation that LibreOffice
// converted (PresentationCache.h), shown in the editor's presentation view and
// on the projector. Open reads the file once; Render draws a page as large as
// fits into an area, its proportions kept. The pictures rendered last are kept,
// so that stepping back and forth through a few slides draws each once.
class PdfSlides {
public:
    PdfSlides();
    ~PdfSlides();
    PdfSlides(const PdfSlides&) = delete;
    PdfSlides& operator=(const PdfSlides&) = delete;

    // Opens the PDF (nothing to do when it is open already). False, with
    // strErrorMessage, for a file that cannot be read or has no pages.
    bool Open(const QString& strPdf, QString& strErrorMessage);
    void Close();
    bool IsOpen() const { return m_count > 0; }
    QString FileName() const { return m_file; }
    // The number of pages (0 when none is open).
    int Count() const { return m_count; }
    // Page intPage (0-based) fitted into szArea; a null picture for a page
    // that does not exist.
    QImage Render(int intPage, const QSize& szArea);
    // The size that Render gives a page in szArea.
    QSize FittedSize(int intPage, const QSize& szArea) const;

private:
    std::unique_ptr<QPdfDocument> m_document;
    QString m_file;
    int m_count = 0;
    QHash<QString, QImage> m_rendered;
    QList<QString> m_renderedOrder;
};
