#pragma once

#include "TemplateFill.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

// The inside of TemplateFill: the field vocabulary, the values of one sheet, and the filling of
// one XML part of a template.
namespace TemplateSheet {

using Values = QHash<QString, QString>;

struct Sheet {
    Values fields;      // one value per field name for the whole sheet
    QList<Values> rows; // the row fields of each row of a service, in order
    QString logoFile;   // the church's logo, empty when there is none
    bool hasRows = false;
};

struct Field {
    const char* name;
    const char* meaning;
};
struct Group {
    const char* title;
    QList<Field> fields;
};
// Church, service, service rows, service item: every field a template may hold.
const QList<Group>& Vocabulary();
// The group of the fields of a service's rows.
const Group& RowFields();
bool IsRowField(const QString& strName);

// The church's fields and logo from the options.
bool ReadChurch(Sheet& sheet, QString& strError);
// The church, then the service with its rows or the service item.
bool Read(TemplateFill::Subject subject, qint32 lngID, Sheet& sheet, QString& strError);

// Fills one XML part. With blnDeclarationsOnly only the declared values of the fields are set
// and the logo placed: the document keeps its fields (a template being prepared for the user).
bool FillXml(QByteArray& xml, const Sheet& sheet, bool blnDeclarationsOnly, QString& strError);

} // namespace TemplateSheet
