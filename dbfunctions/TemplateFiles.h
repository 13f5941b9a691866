#pragma once

#include <QByteArray>
#include <QString>

// Where template documents live. User templates are files in the folder "Templates" of the data
// folder, stored by their full name. The shipped templates (the service sheet and the song sheet
// of the in-built rows) are stored by their bare file name; the program carries them and copies
// one into the templates folder the first time it is needed, with the church's name, address
// and logo from the options put in, so that Writer shows the sheet as the church will see it.
namespace TemplateFiles {

QString Folder();
// Writer's program on the PATH: soffice, else libreoffice; empty when neither is there.
QString WriterProgram();
// What the user is told when Writer is not there.
QString WriterMissing();
// True when strStored is the bare name of a template the program ships.
bool IsShipped(const QString& strStored);
// The shipped document itself.
QByteArray Shipped(const QString& strName);
// The full file name of a stored TemplateFilename; a shipped one is copied into Folder() when
// it is not there. An empty text (with strError set) when that copy fails.
QString Resolve(const QString& strStored, QString& strError);
// The document of template lngTemplateID: empty with strError when the template does not
// exist, has no document, or its document is gone.
QString OfTemplate(qint32 lngTemplateID, QString& strError);
// Writes a copy of the shipped strName with the church filled in to strTarget.
bool WritePersonalCopy(const QString& strName, const QString& strTarget, QString& strError);

} // namespace TemplateFiles
