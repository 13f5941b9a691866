#include "JetWhere.h"

#include <QCache>
#include <QDateTime>
#include <QLocale>
#include <QMutex>
#include <QRegularExpression>

#include <sqlite3.h>

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

void JetLike(sqlite3_context* context, int argc, sqlite3_value** argv) {
    if (argc != 2 || sqlite3_value_type(argv[0]) == SQLITE_NULL ||
        sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const auto* valueText = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const auto* patternText = reinterpret_cast<const char*>(sqlite3_value_text(argv[1]));
    const QString pattern = QString::fromUtf8(patternText);
    static QMutex mutex;
    static QCache<QString, QRegularExpression> cache(200);
    QMutexLocker lock(&mutex);
    QRegularExpression* expression = cache.object(pattern);
    if (!expression) {
        expression = new QRegularExpression(JetWhere::LikePatternToRegex(pattern),
                                            QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::DotMatchesEverythingOption);
        cache.insert(pattern, expression);
    }
    const bool matches = expression->match(QString::fromUtf8(valueText)).hasMatch();
    sqlite3_result_int(context, matches ? 1 : 0);
}

int JetTextCompare(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const QString left = QString::fromUtf8(static_cast<const char*>(a), lengthA);
    const QString right = QString::fromUtf8(static_cast<const char*>(b), lengthB);
    return QString::compare(left, right, Qt::CaseInsensitive);
}

} // namespace

QDateTime JetWhere::ParseDate(const QString& text, bool* blnHasTime) {
    const QString trimmed = text.simplified();
    if (blnHasTime)
        *blnHasTime = false;
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
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == '*') {
            regex += QStringLiteral(".*");
        } else if (c == '?') {
            regex += '.';
        } else if (c == '#') {
            regex += QStringLiteral("\\d");
        } else if (c == '[' && pattern.indexOf(']', i + 1) > i + 1) {
            const qsizetype close = pattern.indexOf(']', i + 1);
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
