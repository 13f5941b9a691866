#include "foundations/VBRuntime.h"

#include "foundations/VBError.h"

#include <QLocale>
#include <cmath>
#include <limits>
#include <optional>

namespace {

bool isBlank(QChar c) {
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') ||
           c == QLatin1Char('\r');
}

bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isHexDigit(QChar c) {
    const QChar u = c.toUpper();
    return isDigit(c) || (u >= QLatin1Char('A') && u <= QLatin1Char('F'));
}

// The value of a radix literal "&H1F", "&O17" or "&17" (octal). Up to four
// digits make an Integer, so "&HFFFF" is -1 as in the runtime; more make a Long.
std::optional<double> parseRadix(const QString& s) {
    if (s.size() < 2 || s.at(0) != QLatin1Char('&'))
        return std::nullopt;
    int base = 8;
    qsizetype pos = 1;
    const QChar kind = s.at(1).toUpper();
    if (kind == QLatin1Char('H')) {
        base = 16;
        pos = 2;
    } else if (kind == QLatin1Char('O')) {
        pos = 2;
    }
    const QString digits = s.mid(pos);
    if (digits.isEmpty())
        return std::nullopt;
    bool ok = false;
    const qulonglong value = digits.toULongLong(&ok, base);
    if (!ok || value > 0xFFFFFFFFULL)
        return std::nullopt;
    if (value <= 0xFFFF && digits.size() <= (base == 16 ? 4 : 6))
        return static_cast<double>(static_cast<qint16>(static_cast<quint16>(value)));
    return static_cast<double>(static_cast<qint32>(static_cast<quint32>(value)));
}

// A text that reads wholly as a number: blanks around, a sign, digits with
// thousands commas, a decimal point, an exponent (E or D), or a radix literal.
std::optional<double> parseNumber(const QString& strText) {
    QString s = strText;
    while (!s.isEmpty() && isBlank(s.front()))
        s.remove(0, 1);
    while (!s.isEmpty() && isBlank(s.back()))
        s.chop(1);
    if (s.isEmpty())
        return std::nullopt;
    if (s.front() == QLatin1Char('&'))
        return parseRadix(s);

    QString plain;
    qsizetype i = 0;
    if (s.at(i) == QLatin1Char('+') || s.at(i) == QLatin1Char('-'))
        plain += s.at(i++);
    int digits = 0;
    while (i < s.size() && (isDigit(s.at(i)) || s.at(i) == QLatin1Char(','))) {
        if (s.at(i) != QLatin1Char(',')) {
            plain += s.at(i);
            ++digits;
        }
        ++i;
    }
    if (i < s.size() && s.at(i) == QLatin1Char('.')) {
        plain += s.at(i++);
        while (i < s.size() && isDigit(s.at(i))) {
            plain += s.at(i++);
            ++digits;
        }
    }
    if (digits == 0)
        return std::nullopt;
    if (i < s.size() &&
        (s.at(i).toUpper() == QLatin1Char('E') || s.at(i).toUpper() == QLatin1Char('D'))) {
        plain += QLatin1Char('e');
        ++i;
        if (i < s.size() && (s.at(i) == QLatin1Char('+') || s.at(i) == QLatin1Char('-')))
            plain += s.at(i++);
        int expDigits = 0;
        while (i < s.size() && isDigit(s.at(i))) {
            plain += s.at(i++);
            ++expDigits;
        }
        if (expDigits == 0)
            return std::nullopt;
    }
    if (i != s.size())
        return std::nullopt;
    bool ok = false;
    const double value = QLocale::c().toDouble(plain, &ok);
    if (!ok) {
        // Out of the range of a Double: the text is numeric but cannot be held.
        throw VBError(VBErr::Overflow);
    }
    return value;
}

bool isNull(const QVariant& v) {
    return !v.isValid() || v.isNull();
}

// The serial number of a date: days since 30 December 1899, the time as the
// fraction of a day.
double dateSerial(const QDateTime& dt) {
    static const QDate zero(1899, 12, 30);
    const double days = static_cast<double>(zero.daysTo(dt.date()));
    const double fraction = dt.time().msecsSinceStartOfDay() / 86400000.0;
    return days >= 0 ? days + fraction : days - fraction;
}

// Any value as a Double, following the runtime's coercions; raises 94 for Null
// and 13 for what cannot be a number.
double toDouble(const QVariant& v) {
    if (isNull(v))
        throw VBError(VBErr::InvalidUseOfNull);
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? -1.0 : 0.0;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return v.toDouble();
    case QMetaType::QDateTime:
        return dateSerial(v.toDateTime());
    case QMetaType::QDate:
        return dateSerial(QDateTime(v.toDate(), QTime(0, 0)));
    case QMetaType::QTime:
        return dateSerial(QDateTime(QDate(1899, 12, 30), v.toTime()));
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QChar: {
        const std::optional<double> value = parseNumber(v.toString());
        if (!value)
            throw VBError(VBErr::TypeMismatch);
        return *value;
    }
    default:
        throw VBError(VBErr::TypeMismatch);
    }
}

// Rounds half to even and checks the range of the target type.
qint64 roundChecked(double value, double lowest, double highest) {
    if (!std::isfinite(value))
        throw VBError(VBErr::Overflow);
    const double rounded = std::nearbyint(value);
    if (rounded < lowest || rounded > highest)
        throw VBError(VBErr::Overflow);
    return static_cast<qint64>(rounded);
}

// A Double in the runtime's general form: up to 15 significant digits, no
// trailing zeros, "1E+16" and "1E-05" for very large and very small values.
QString numberText(double value, int precision) {
    if (value == 0.0)
        return QStringLiteral("0");
    QString text = QString::number(value, 'g', precision);
    const qsizetype e = text.indexOf(QLatin1Char('e'));
    if (e < 0)
        return text;
    QString mantissa = text.left(e);
    QString exponent = text.mid(e + 1);
    QChar sign = QLatin1Char('+');
    if (exponent.startsWith(QLatin1Char('-')) || exponent.startsWith(QLatin1Char('+'))) {
        sign = exponent.front();
        exponent.remove(0, 1);
    }
    while (exponent.size() > 2 && exponent.front() == QLatin1Char('0'))
        exponent.remove(0, 1);
    if (exponent.size() < 2)
        exponent.prepend(QLatin1Char('0'));
    return mantissa + QLatin1Char('E') + sign + exponent;
}

QString dateTimeText(const QDateTime& dt) {
    if (!dt.isValid())
        return QString();
    const bool noDate = dt.date() == QDate(1899, 12, 30);
    const bool noTime = dt.time() == QTime(0, 0);
    if (noDate && !noTime)
        return VB::LongTime(dt.time());
    if (noTime)
        return VB::ShortDate(dt.date());
    return VB::ShortDate(dt.date()) + QLatin1Char(' ') + VB::LongTime(dt.time());
}

void checkStart(qint32 lngStart) {
    if (lngStart < 1)
        throw VBError(VBErr::InvalidProcedureCall);
}

void checkLength(qint32 lngLength) {
    if (lngLength < 0)
        throw VBError(VBErr::InvalidProcedureCall);
}

} // namespace

namespace VB {

bool IsNumeric(const QVariant& varValue) {
    if (isNull(varValue))
        return false;
    switch (varValue.typeId()) {
    case QMetaType::QDateTime:
    case QMetaType::QDate:
    case QMetaType::QTime:
        return false;
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QChar:
        try {
            return parseNumber(varValue.toString()).has_value();
        } catch (const VBError&) {
            return true; // numeric, only too large for a Double
        }
    default:
        try {
            toDouble(varValue);
            return true;
        } catch (const VBError&) {
            return false;
        }
    }
}

qint32 CLng(const QVariant& varValue) {
    return static_cast<qint32>(roundChecked(toDouble(varValue), std::numeric_limits<qint32>::min(),
                                            std::numeric_limits<qint32>::max()));
}

qint16 CInt(const QVariant& varValue) {
    return static_cast<qint16>(roundChecked(toDouble(varValue), std::numeric_limits<qint16>::min(),
                                            std::numeric_limits<qint16>::max()));
}

double CDbl(const QVariant& varValue) {
    return toDouble(varValue);
}

bool CBool(const QVariant& varValue) {
    if (isNull(varValue))
        throw VBError(VBErr::InvalidUseOfNull);
    if (varValue.typeId() == QMetaType::Bool)
        return varValue.toBool();
    if (varValue.typeId() == QMetaType::QString) {
        const QString s = Trim(varValue.toString());
        if (s.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
            return true;
        if (s.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return toDouble(varValue) != 0.0;
}

double Val(const QString& strText) {
    // Blanks, tabs and line feeds are skipped wherever they stand.
    QString s;
    s.reserve(strText.size());
    for (QChar c : strText)
        if (!isBlank(c))
            s += c;

    if (s.startsWith(QLatin1Char('&'))) {
        qsizetype end = 1;
        const bool hex = s.size() > 1 && s.at(1).toUpper() == QLatin1Char('H');
        const bool oct = s.size() > 1 && s.at(1).toUpper() == QLatin1Char('O');
        if (hex || oct)
            end = 2;
        while (end < s.size() &&
               (hex ? isHexDigit(s.at(end))
                    : (s.at(end) >= QLatin1Char('0') && s.at(end) <= QLatin1Char('7'))))
            ++end;
        const std::optional<double> value = parseRadix(s.left(end));
        return value.value_or(0.0);
    }

    QString plain;
    qsizetype i = 0;
    if (i < s.size() && (s.at(i) == QLatin1Char('+') || s.at(i) == QLatin1Char('-')))
        plain += s.at(i++);
    int digits = 0;
    while (i < s.size() && isDigit(s.at(i))) {
        plain += s.at(i++);
        ++digits;
    }
    if (i < s.size() && s.at(i) == QLatin1Char('.')) {
        plain += s.at(i++);
        while (i < s.size() && isDigit(s.at(i))) {
            plain += s.at(i++);
            ++digits;
        }
    }
    if (digits == 0)
        return 0.0;
    if (i < s.size() &&
        (s.at(i).toUpper() == QLatin1Char('E') || s.at(i).toUpper() == QLatin1Char('D'))) {
        QString exponent = QStringLiteral("e");
        qsizetype j = i + 1;
        if (j < s.size() && (s.at(j) == QLatin1Char('+') || s.at(j) == QLatin1Char('-')))
            exponent += s.at(j++);
        qsizetype expDigits = 0;
        while (j < s.size() && isDigit(s.at(j))) {
            exponent += s.at(j++);
            ++expDigits;
        }
        if (expDigits > 0)
            plain += exponent;
    }
    bool ok = false;
    const double value = QLocale::c().toDouble(plain, &ok);
    if (!ok)
        throw VBError(VBErr::Overflow);
    return value;
}

QString CStr(const QVariant& varValue) {
    if (isNull(varValue))
        throw VBError(VBErr::InvalidUseOfNull);
    switch (varValue.typeId()) {
    case QMetaType::Bool:
        return varValue.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double:
        return numberText(varValue.toDouble(), 15);
    case QMetaType::Float:
        return numberText(static_cast<double>(varValue.toFloat()), 7);
    case QMetaType::QDateTime:
        return dateTimeText(varValue.toDateTime());
    case QMetaType::QDate:
        return varValue.toDate().isValid() ? ShortDate(varValue.toDate()) : QString();
    case QMetaType::QTime:
        return varValue.toTime().isValid() ? LongTime(varValue.toTime()) : QString();
    default:
        if (varValue.canConvert<QString>())
            return varValue.toString();
        throw VBError(VBErr::TypeMismatch);
    }
}

QString Text(const QVariant& varValue) {
    if (isNull(varValue))
        return QString();
    return CStr(varValue);
}

QString ShortDate(const QDate& dtDate) {
    const QLocale locale = QLocale::system();
    // A machine without a locale of its own (C, POSIX) gets day/month/year
    // with two-digit years rather than Qt's "d MMM yyyy".
    if (locale.language() == QLocale::C)
        return dtDate.toString(QStringLiteral("dd/MM/yy"));
    return locale.toString(dtDate, QLocale::ShortFormat);
}

QString LongTime(const QTime& tmTime) {
    return tmTime.toString(QStringLiteral("HH:mm:ss"));
}

QString Format(const QDateTime& dtValue, const QString& strFormat) {
    const QString name = strFormat.trimmed();
    if (name.compare(QLatin1String("Long Date"), Qt::CaseInsensitive) == 0)
        return QLocale::system().toString(dtValue.date(), QLocale::LongFormat);
    if (name.compare(QLatin1String("Medium Date"), Qt::CaseInsensitive) == 0)
        return QLocale(QLocale::English, QLocale::UnitedStates)
            .toString(dtValue.date(), QStringLiteral("dd-MMM-yy"));
    if (name.compare(QLatin1String("Short Date"), Qt::CaseInsensitive) == 0)
        return ShortDate(dtValue.date());
    if (name.compare(QLatin1String("Long Time"), Qt::CaseInsensitive) == 0)
        return LongTime(dtValue.time());
    if (name.compare(QLatin1String("Short Time"), Qt::CaseInsensitive) == 0)
        return dtValue.time().toString(QStringLiteral("HH:mm"));
    if (name.compare(QLatin1String("General Date"), Qt::CaseInsensitive) == 0 || name.isEmpty())
        return dateTimeText(dtValue);
    return QLocale::system().toString(dtValue, strFormat);
}

qint32 InStr(const QString& strText, const QString& strFind) {
    return InStr(1, strText, strFind);
}

qint32 InStr(qint32 lngStart, const QString& strText, const QString& strFind) {
    checkStart(lngStart);
    if (lngStart > Len(strText) + 1)
        return 0;
    if (strFind.isEmpty())
        return lngStart;
    const qsizetype pos = strText.indexOf(strFind, lngStart - 1, Qt::CaseSensitive);
    return pos < 0 ? 0 : static_cast<qint32>(pos + 1);
}

qint32 InStrRev(const QString& strText, const QString& strFind) {
    if (strFind.isEmpty())
        return Len(strText);
    const qsizetype pos = strText.lastIndexOf(strFind, -1, Qt::CaseSensitive);
    return pos < 0 ? 0 : static_cast<qint32>(pos + 1);
}

QString Left(const QString& strText, qint32 lngLength) {
    checkLength(lngLength);
    return strText.left(lngLength);
}

QString Right(const QString& strText, qint32 lngLength) {
    checkLength(lngLength);
    return strText.right(lngLength);
}

QString Mid(const QString& strText, qint32 lngStart) {
    checkStart(lngStart);
    return strText.mid(lngStart - 1);
}

QString Mid(const QString& strText, qint32 lngStart, qint32 lngLength) {
    checkStart(lngStart);
    checkLength(lngLength);
    if (lngStart > Len(strText))
        return QString();
    return strText.mid(lngStart - 1, lngLength);
}

QString LTrim(const QString& strText) {
    qsizetype i = 0;
    while (i < strText.size() && strText.at(i) == QLatin1Char(' '))
        ++i;
    return strText.mid(i);
}

QString RTrim(const QString& strText) {
    qsizetype n = strText.size();
    while (n > 0 && strText.at(n - 1) == QLatin1Char(' '))
        --n;
    return strText.left(n);
}

QString Trim(const QString& strText) {
    return LTrim(RTrim(strText));
}

qint32 Len(const QString& strText) {
    return static_cast<qint32>(strText.size());
}

QString UCase(const QString& strText) {
    return strText.toUpper();
}

QString LCase(const QString& strText) {
    return strText.toLower();
}

} // namespace VB
