#pragma once

#include <QString>

#include <functional>

// The printed sheets of Corvantis, each written as a PDF file by Qt (QTextDocument onto a
// QPdfWriter, A4):
//  - the service sheet: the church's name, address and logo from the options, the service's
//    name, theme and date, then its rows in order, each with its item's title and, as the
//    options' defaults of the item's type say, its words (a song's parts in the order sung, a
//    points list's points, else the text); types whose default leaves them off the sheet
//    (pictures, by default) are left off;
//  - the sheet of one service item: its title, details and all its words;
//  - the operator's short-cut sheet: the keys of the console and the projector, and the run
//    order of the service as the console shows it, with each song's parts and the props.
namespace ServiceSheets {

enum class Kind { Service, ServiceItem, ShortCuts };

// Writes the sheet of an id into strPdfFile; false with strError (a sentence for the user).
bool Write(Kind kind, qint32 lngID, const QString& strPdfFile, QString& strError);
// The title of the sheet (also the title of its preview).
QString Title(Kind kind, qint32 lngID);

// A sheet made from a template instead: when a maker is installed and answers true for a
// sheet, its file is shown in place of the built-in sheet. Template filling installs it.
using TemplateSheetMaker =
    std::function<bool(Kind kind, qint32 lngID, const QString& strPdfFile, QString& strError)>;
void SetTemplateSheetMaker(TemplateSheetMaker maker);
const TemplateSheetMaker& InstalledTemplateSheetMaker();

} // namespace ServiceSheets
