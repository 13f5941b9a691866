#pragma once

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

// Translation of a Jet SQL condition (the WHERE texts the controls build) into an SQLite
// condition with bound parameters.
//
// The clause is read by a tokenizer and a recursive-descent parser; the result is generated from
// the parse, never by pasting text of the clause into SQL: every value becomes a "?" parameter,
// every field becomes the column it resolves to in the query's own tables. Anything outside the
// language is refused with an error text, and then nothing runs.
//
// The language:
//   condition  := or
//   or         := and { OR and }
//   and        := not { AND not }
//   not        := NOT not | '(' condition ')' | predicate
//   predicate  := operand compare operand            compare: = <> < > <= >=
//              |  operand [NOT] LIKE operand          wildcards * ? # and [list], any case
//              |  operand IS [NOT] NULL
//              |  operand [NOT] IN '(' operand {',' operand} ')'
//              |  operand [NOT] BETWEEN operand AND operand
//              |  boolean-field
//   operand    := field | number | 'text' | "text" | #date# | True | False | Null | -number
//   field      := Name | Table.Name  (any letter case; [Name] in brackets allowed)
// At least one side of a comparison must be a field (so "'a' = 'a'" is refused).
//
// Values: texts compare without regard to case (as Jet does), True and False are 1 and 0 (the
// stored form of booleans), a #date# literal is read in the ISO form (2026-11-21), Medium Date
// (21-Nov-26, 21-Nov-2026), the platform's short date form, and Jet's m/d/yyyy; two-digit years
// fall in 1930..2029. A date literal without a time compares with the day of a stored date
// (so "DateCreated = #21-Nov-26#" finds every row of that day); one with a time compares exactly.
//
// Hostile text: a text in quotes must not hold a NUL character or half of a surrogate pair (it
// could not be bound as it is written); a Like pattern with a range that runs backwards is
// refused; every error text quotes at most the first 40 characters of what the user wrote.
// Translation takes time in proportion to the clause's length; long chains of OR and AND are
// grouped, parentheses of the clause add none, and Not Not cancels out, so that the engine's
// parser and expression stay shallow.
//
// The generated SQL calls the SQL function jet_like(value, pattern) and the collation JETTEXT,
// which DataAccess registers on its connection (JetWhere::RegisterFunctions).
class JetWhere {
public:
    enum class Kind { Text, Number, Boolean, Date };

    struct Table {
        QString name;                 // as clauses write it: "ServiceItems"
        QString alias;                // as the query's SQL names it: "si"
        QHash<QString, Kind> columns; // column name (documented spelling) -> kind
    };

    struct Result {
        QString sql;         // empty when the clause was empty
        QVariantList params; // the bound values, in order
        QString error;       // non-empty: the clause was refused
        // When the whole condition is one "field Like 'pattern'" or a chain of them joined by
        // Or, every link with the same pattern (the quick filter's form): the fields as their
        // SQL, in order, and the pattern. Empty for every other condition. A caller may then
        // narrow the rows by a cheaper test that every match also passes.
        QStringList likeChainFields;
        QString likeChainPattern;
        bool ok() const { return error.isEmpty(); }
    };

    // Limits that keep every clause cheap and the program safe, whatever a user types or
    // pastes: a clause beyond them is refused with an error text saying which.
    static constexpr qsizetype kMaxDepth = 100;       // nested "(" and Not
    static constexpr qsizetype kMaxConditions = 1000; // comparisons, Like, In, ... in all
    static constexpr qsizetype kMaxValues = 30000;    // values, each a bound parameter
    static constexpr qsizetype kMaxDateLength = 64;   // characters between # and #

    explicit JetWhere(QList<Table> tables) : m_tables(std::move(tables)) {}

    Result Translate(const QString& clause) const;

    // Reads a date literal's text (without the #); an invalid date when unreadable or longer
    // than kMaxDateLength.
    // blnHasTime tells whether the text held a time of day.
    static QDateTime ParseDate(const QString& text, bool* blnHasTime = nullptr);
    // The regular expression for a Jet Like pattern (case-insensitive, whole text). jet_like
    // itself matches with JetLikePattern (JetLike.h), which answers as this expression does.
    static QString LikePatternToRegex(const QString& pattern);
    // Registers jet_like and JETTEXT on an open SQLite connection handle (sqlite3*).
    static bool RegisterFunctions(void* sqliteHandle);

    // Used by the parser.
    struct ColumnRef {
        QString sql;
        Kind kind = Kind::Text;
    };
    bool Resolve(const QString& table, const QString& column, ColumnRef& ref, QString& error) const;

private:
    QList<Table> m_tables;
};
