#pragma once

#include <QString>
#include <QVariant>

class QDate;

// How the host itself writes values for people: dates with a four-digit year
// in the order of the user's locale, truth values as Yes and No. The controls
// keep their own documented texts.
namespace HostText {

// A date, or a date and time (its date only), as "23/11/2026" in the user's
// locale's order; empty for Null or an invalid date.
QString Date(const QDate& dtmDate);
// A stored value: a date comes out as Date(), other values as their text.
QString Value(const QVariant& varValue);
QString YesNo(bool blnValue);

} // namespace HostText
