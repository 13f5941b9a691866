#include "HostText.h"

#include "foundations/VBRuntime.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

namespace HostText {

QString Date(const QDate& dtmDate) {
    if (!dtmDate.isValid())
        return QString();
    // The locale's short format, but never a two-digit year.
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QRegularExpression(QStringLiteral("y+")), QStringLiteral("yyyy"));
    return QLocale().toString(dtmDate, format);
}

QString Value(const QVariant& varValue) {
    switch (varValue.typeId()) {
    case QMetaType::QDateTime:
        return Date(varValue.toDateTime().date());
    case QMetaType::QDate:
        return Date(varValue.toDate());
    case QMetaType::Bool:
        return YesNo(varValue.toBool());
    default:
        return VB::Text(varValue);
    }
}

QString YesNo(bool blnValue) {
    return blnValue ? QStringLiteral("Yes") : QStringLiteral("No");
}

} // namespace HostText
