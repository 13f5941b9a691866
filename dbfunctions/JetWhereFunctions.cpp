#include "JetWhere.h"

#include "JetLike.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include <sqlite3.h>

#include <memory>

// The parts of the Jet language that need more than SQLite offers: date literals in the forms
// the controls write, Like patterns with Jet's wildcards, and text that compares without regard
// to case in every alphabet (SQLite's own LIKE and NOCASE fold ASCII letters only).

namespace {

// Jet reads a two-digit year into 1930..2029.
QDate WindowYear(QDate date, bool twoDigitYear) {
    if (!date.isValid() || !twoDigitYear)
        return date;
    const int year = date.year() % 100;
    return QDate(year < 30 ? 2000 + year : 1900 + year, date.month(), date.day());
}

QDate ParseDay(const QString& text) {
    struct Form {
        QString format;
        bool twoDigitYear;
    };
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    const QString shortForm = QLocale::system().dateFormat(QLocale::ShortFormat);
    const QList<Form> forms = {
        {QStringLiteral("yyyy-MM-dd"), false},  {QStringLiteral("d-MMM-yy"), true},
        {QStringLiteral("d-MMM-yyyy"), false},  {QStringLiteral("d MMM yyyy"), false},
        {QStringLiteral("d MMMM yyyy"), false}, {shortForm, !shortForm.contains("yyyy")},
        {QStringLiteral("M/d/yyyy"), false},    {QStringLiteral("M/d/yy"), true},
        {QStringLiteral("d/M/yyyy"), false},    {QStringLiteral("d.M.yyyy"), false},
    };
    for (const Form& form : forms) {
        QDate date = english.toDate(text, form.format);
        if (!date.isValid())
            date = QLocale::system().toDate(text, form.format);
        if (date.isValid())
            return WindowYear(date, form.twoDigitYear);
    }
    return QDate();
}

QTime ParseTime(const QString& text) {
    for (const char* format :
         {"H:mm:ss", "H:mm", "h:mm:ss AP", "h:mm AP", "h:mm:ss ap", "h:mm ap"}) {
        const QTime time = QTime::fromString(text, QLatin1String(format));
        if (time.isValid())
            return time;
    }
    return QTime();
}

void DeletePattern(void* pattern) {
    delete static_cast<JetLikePattern*>(pattern);
}

// jet_like(value, pattern): 1 when the value matches, 0 when not, Null when either is Null. The
// pattern is read once per statement and kept with it (SQLite's auxiliary data of a constant
// argument, which a bound value is); the value is matched on its UTF-8 bytes as they lie.
void JetLike(sqlite3_context* context, int argc, sqlite3_value** argv) {
    if (argc != 2 || sqlite3_value_type(argv[0]) == SQLITE_NULL ||
        sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    auto* pattern = static_cast<JetLikePattern*>(sqlite3_get_auxdata(context, 1));
    JetLikePattern unkept; // used when SQLite cannot keep the pattern with the statement
    if (!pattern) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(argv[1]));
        const QString patternText = QString::fromUtf8(text, sqlite3_value_bytes(argv[1]));
        auto compiled = std::make_unique<JetLikePattern>();
        QString error;
        if (!compiled->Compile(patternText, &error)) {
            const QByteArray message = ("The Like pattern cannot be used: " + error).toUtf8();
            sqlite3_result_error(context, message.constData(), int(message.size()));
            return;
        }
        unkept = *compiled;
        sqlite3_set_auxdata(context, 1, compiled.release(), DeletePattern);
        pattern = static_cast<JetLikePattern*>(sqlite3_get_auxdata(context, 1));
        if (!pattern)
            pattern = &unkept;
    }
    const auto* value = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const int length = sqlite3_value_bytes(argv[0]);
    sqlite3_result_int(context, pattern->MatchesUtf8(value, length) ? 1 : 0);
}

int JetTextCompare(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const QString left = QString::fromUtf8(static_cast<const char*>(a), lengthA);
    const QString right = QString::fromUtf8(static_cast<const char*>(b), lengthB);
    return QString::compare(left, right, Qt::CaseInsensitive);
}

} // namespace

QDateTime JetWhere::ParseDate(const QString& text, bool* blnHasTime) {
    if (blnHasTime)
        *blnHasTime = false;
    if (text.size() > kMaxDateLength)
        return QDateTime();
    const QString trimmed = text.simplified();
    QDate day = ParseDay(trimmed);
    if (day.isValid())
        return QDateTime(day, QTime(0, 0));
    // A day followed by a time: split at the first blank that leaves a readable day.
    for (qsizetype blank = trimmed.indexOf(' '); blank > 0;
         blank = trimmed.indexOf(' ', blank + 1)) {
        day = ParseDay(trimmed.left(blank));
        const QTime time = ParseTime(trimmed.mid(blank + 1));
        if (day.isValid() && time.isValid()) {
            if (blnHasTime)
                *blnHasTime = true;
            return QDateTime(day, time);
        }
    }
    return QDateTime();
}

// * any run of characters, ? one character, # one digit, [abc] [a-z] [!abc] a class; "[*]"
// is how Jet writes a literal wildcard. Everything else stands for itself.
QString JetWhere::LikePatternToRegex(const QString& pattern) {
    QString regex = QStringLiteral("\\A");
    qsizetype nextClose = -1; // the next "]" after the current place, found once for each
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == '[' && nextClose <= i) {
            nextClose = pattern.indexOf(']', i + 1);
            if (nextClose < 0)
                nextClose = pattern.size();
        }
        if (c == '*') {
            regex += QStringLiteral(".*");
        } else if (c == '?') {
            regex += '.';
        } else if (c == '#') {
            regex += QStringLiteral("\\d");
        } else if (c == '[' && nextClose < pattern.size() && nextClose > i + 1) {
            const qsizetype close = nextClose;
            QString inside = pattern.mid(i + 1, close - i - 1);
            QString cls = QStringLiteral("[");
            if (inside.startsWith('!')) {
                cls += '^';
                inside.remove(0, 1);
            }
            for (const QChar member : inside)
                cls +=
                    (member == '-') ? QString(member) : QRegularExpression::escape(QString(member));
            regex += cls + ']';
            i = close;
        } else if (c.isHighSurrogate() && i + 1 < pattern.size() &&
                   pattern[i + 1].isLowSurrogate()) {
            regex += QRegularExpression::escape(pattern.mid(i, 2)); // one character, two units
            ++i;
        } else {
            regex += QRegularExpression::escape(QString(c));
        }
    }
    return regex + QStringLiteral("\\z");
}

bool JetWhere::RegisterFunctions(void* sqliteHandle) {
    auto* db = static_cast<sqlite3*>(sqliteHandle);
    if (!db)
        return false;
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    if (sqlite3_create_function(db, "jet_like", 2, flags, nullptr, JetLike, nullptr, nullptr) !=
        SQLITE_OK)
        return false;
    return sqlite3_create_collation(db, "JETTEXT", SQLITE_UTF8, nullptr, JetTextCompare) ==
           SQLITE_OK;
}
