#pragma once

#include <QString>

// Producing a sheet from a document template: the template's user fields (Writer's
// Insert > Field > More Fields > Variables) are filled with the values of a service or a
// service item, and the filled document is turned into PDF by LibreOffice Writer, headless.
//
// A service sheet repeats the table row (or, outside a table, the paragraph) that holds a row
// field (RowTitle, ...) once for each row of the service. A field whose name Corvantis does not
// know is left as it stands. A picture frame named "ChurchLogo" shows the church's logo from
// the options, and is taken out when there is none. Every function returns an empty text on
// success and the reason otherwise; none of them changes anything stored.
//
//   const QString strError = TemplateFill::TemplateToPdf(lngTemplateID,
//                                TemplateFill::Subject::Service, lngServiceID, strPdf);
namespace TemplateFill {

enum class Subject { Service, ServiceItem };

// Writer gets this long to convert one sheet before it is stopped.
constexpr qint32 kDefaultTimeLimitSeconds = 60;

// The template lngTemplateID (its document found as OpenTemplate finds it, a shipped one
// copied to the data folder when needed) filled for the service or service item lngID,
// written as PDF to strPdfFile.
QString TemplateToPdf(qint32 lngTemplateID, Subject subject, qint32 lngID,
                      const QString& strPdfFile,
                      qint32 intTimeLimitSeconds = kDefaultTimeLimitSeconds);

// The same for a template document given by its file name (.ott, .fott, .odt or .fodt).
QString FileToPdf(const QString& strTemplateFile, Subject subject, qint32 lngID,
                  const QString& strPdfFile, qint32 intTimeLimitSeconds = kDefaultTimeLimitSeconds);

// Only the filling: the filled OpenDocument text is written to strDocumentFile, whose
// extension should be .odt for a zipped template and .fodt for a flat one.
QString FillFile(const QString& strTemplateFile, Subject subject, qint32 lngID,
                 const QString& strDocumentFile);

// The extension FillFile's output needs for this template: "odt" or "fodt".
QString FilledExtension(const QString& strTemplateFile, QString& strError);

// Converts an OpenDocument file to PDF with Writer headless, in a profile folder of Corvantis's
// own so that a Writer the user has open is not disturbed. Writer is stopped, with all it
// started, when it takes longer than the limit.
QString ConvertToPdf(const QString& strDocumentFile, const QString& strPdfFile,
                     qint32 intTimeLimitSeconds = kDefaultTimeLimitSeconds);

// The available fields as text, one group after the other: "Name: what it holds" per line.
QString FieldList();

} // namespace TemplateFill
