#pragma once

#include <QString>

class OfficeConverter;

// Presentations (.ppt, .pptx, .pps, .ppsx, .odp) are shown from a PDF that LibreOffice
// Impress makes of them once. The PDF is kept in the folder "Presentations" of the data
// folder under a name made of the presentation's full path, size and time of its last change,
// so that showing it again costs nothing, and a presentation that was changed since is
// converted anew (its old PDF is then removed).
namespace PresentationCache {

// Whether the file's extension is one of a presentation.
bool IsPresentation(const QString& strFile);
// The text that refuses a file that is not a presentation.
QString NotAPresentationMessage(const QString& strFile);
// The folder of the PDFs.
QString CacheFolder();
// Where the PDF of this presentation, as it is now, is kept; empty when the file does not exist.
QString PdfPathFor(const QString& strFile);
// The kept PDF of the presentation as it is now; empty when there is none yet.
QString FindPdf(const QString& strFile);

// Starts making the PDF with converter (its Finished tells when it is over; then Store).
// False, with strErrorMessage, when the file cannot be converted at all.
bool StartConversion(OfficeConverter& converter, const QString& strFile, QString& strErrorMessage);
// Keeps the PDF that a conversion made as the presentation's PDF; returns where it now is,
// empty with strErrorMessage when it cannot be kept.
QString Store(const QString& strFile, const QString& strConvertedPdf, QString& strErrorMessage);

// The PDF of a presentation: the kept one, else converted now (waiting, within the
// converter's time limit) and kept. Empty with strErrorMessage on failure.
QString PdfFor(const QString& strFile, QString& strErrorMessage);

} // namespace PresentationCache
