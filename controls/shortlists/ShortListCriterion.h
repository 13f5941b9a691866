#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

// One sentence of the short-list query language, field, operator, value, and
// the two texts made of it: its Jet WHERE condition and its words for people.
//
// Field kinds, as the field combo keeps them in its item data: 0 Boolean,
// 1 Number, 2 Date, 3 Text.
//
//   ShortListCriterion c{"Type", 3, "equals"};
//   c.Text1 = "Hymn";
//   c.WhereClause();   // ServiceItemTypeName = 'Hymn'
//   c.PlainEnglish();  // Type equals 'Hymn'
struct ShortListCriterion {
    enum FieldKind : qint16 { Boolean = 0, Number = 1, Date = 2, Text = 3 };

    QString Field; // the caption of the field combo
    qint16 Kind = Text;
    QString Operator;  // the caption of the operator combo
    QString Text1;     // txtCriterion1
    QString Text2;     // txtCriterion2
    QDateTime Date1;   // dtpCriterion1
    QDateTime Date2;   // dtpCriterion2
    QString TrueFalse; // the text of cboCriterion

    // The fields in the order of the list; a new row starts on index 3.
    static const QStringList& FieldCaptions();
    static qint16 FieldKindOf(qint32 intIndex);
    static constexpr qint32 DefaultFieldIndex = 3;
    // The operators of a kind in the order of the list; empty for another kind.
    static QStringList Operators(qint16 intKind);
    // The column of a field caption (exact, case-sensitive), empty when none.
    // "Filename" is tested where the list says "FileName", and "Resources" has
    // no column: both give the empty text, so that their condition starts with
    // its operator and the store refuses it.
    static QString FieldName(const QString& strFieldNameInCombo);
    // The editor a kind and operator use: "2Dates", "1Date", "2Texts", "1Text",
    // "1Combo".
    static QString EditorTag(qint16 intKind, const QString& strOperator);

    // The condition in the store's Jet dialect: dates as "Medium Date" between
    // #, texts between apostrophes with "*" as the wildcard of Like. An
    // apostrophe inside a text is doubled, as Jet reads it, so that O'Brien is
    // looked for instead of breaking the condition.
    QString WhereClause() const;
    // The sentence as the user reads it: "Type equals 'Hymn'",
    // "Seconds to run is between 10 and 60".
    QString PlainEnglish() const;

private:
    QString Quoted(const QString& strText) const;
};
