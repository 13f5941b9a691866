#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

// The conversion and string rules that the controls rely on, in one place, so
// that "the conversion fails" means the same everywhere. Positions are 1-based;
// failures raise VBError with the runtime's numbers (5, 6, 13, 94).
namespace VB {

// True for numbers, booleans and texts that read as a number (blanks around,
// a sign, thousands commas, a decimal point, an exponent, &H/&O prefixes).
// False for Null, empty texts, dates and anything else.
bool IsNumeric(const QVariant& varValue);

// Conversions with rounding half to even (2.5 -> 2, 3.5 -> 4). A value that is
// not numeric raises 13 "Type mismatch", Null raises 94, a value outside the
// range raises 6 "Overflow". True converts to -1.
qint32 CLng(const QVariant& varValue);
qint16 CInt(const QVariant& varValue);
double CDbl(const QVariant& varValue);
bool CBool(const QVariant& varValue);

// The number at the start of a text: blanks are skipped, reading stops at the
// first character that cannot belong to a number; "" and "abc" give 0.
double Val(const QString& strText);

// The default text of a value: True/False, numbers without trailing zeros,
// dates in the platform's short date (and the time with seconds when the time
// is not midnight). Null raises 94.
QString CStr(const QVariant& varValue);
// As CStr, but Null gives an empty text (the text of Null in a concatenation).
QString Text(const QVariant& varValue);

// The platform's short date ("21/11/26" style; dd/MM/yy on a machine whose
// locale is C) and the time with seconds.
QString ShortDate(const QDate& dtDate);
QString LongTime(const QTime& tmTime);

// Named formats: "Long Date", "Medium Date" (21-Nov-26), "Short Date",
// "Long Time", "Short Time" (17:05); any other text is a Qt date format.
QString Format(const QDateTime& dtValue, const QString& strFormat);

// 1-based position of strFind in strText from lngStart, 0 when absent.
// lngStart below 1 raises 5. An empty strFind gives lngStart.
qint32 InStr(const QString& strText, const QString& strFind);
qint32 InStr(qint32 lngStart, const QString& strText, const QString& strFind);
qint32 InStrRev(const QString& strText, const QString& strFind);

// A negative length or a start below 1 raises 5 "Invalid procedure call or
// argument". Lengths past the end are cut at the end.
QString Left(const QString& strText, qint32 lngLength);
QString Right(const QString& strText, qint32 lngLength);
QString Mid(const QString& strText, qint32 lngStart);
QString Mid(const QString& strText, qint32 lngStart, qint32 lngLength);

// Removes blanks (spaces only, as the runtime does) from both ends, the left or
// the right.
QString Trim(const QString& strText);
QString LTrim(const QString& strText);
QString RTrim(const QString& strText);

qint32 Len(const QString& strText);
QString UCase(const QString& strText);
QString LCase(const QString& strText);

} // namespace VB
