#pragma once

#include <QList>
#include <QString>
#include <QStringView>

// A Jet Like pattern, read once and matched against many values without a regular expression.
//
//   *      any run of characters (also none)
//   ?      exactly one character
//   #      exactly one digit 0-9
//   [abc]  one of the characters listed; [a-z] a range; [!abc] [!a-z] any other one character.
//          "[*]" is how Jet writes a literal wildcard. A "[" without a later "]", and "[]", stand
//          for themselves.
// Everything else stands for itself. Letters match without regard to case in every alphabet
// (Unicode case folding, as QString::compare without case does). A character is a Unicode code
// point; patterns and values may have any length.
//
// Matching takes time linear in the value for the usual patterns ("*word*", "word*"), and at
// most the value's length times the pattern's for any other: a pattern is split at its stars
// into pieces of fixed length, and each piece is found at its leftmost place after the one
// before it, which is all a pattern of stars needs.
class JetLikePattern {
public:
    // Reads a pattern. False, with the reason in error, for a pattern that cannot be matched
    // (a range that runs backwards, as "[z-a]").
    bool Compile(QStringView pattern, QString* error = nullptr);

    // Whether the whole value matches. The value as SQLite hands it over: UTF-8 bytes, not
    // necessarily ending in a NUL; a value of ASCII bytes is matched byte by byte.
    bool MatchesUtf8(const char* bytes, qsizetype length) const;
    bool Matches(QStringView text) const;

private:
    enum class Type : quint8 { Char, AnyOne, Digit, Class };
    struct Element {
        Type type = Type::Char;
        char32_t ch = 0; // Char: the case-folded character; Class: the index into m_classes
    };
    struct Range {
        char32_t low, high;
    };
    struct CharClass {
        bool negated = false;
        QList<Range> ranges; // a single character is a range of one
    };
    struct Piece {
        qsizetype from = 0, count = 0; // the piece's elements in m_elements
    };

    template <typename Value> bool MatchValue(const Value& value) const;
    template <typename Value> bool PieceAt(const Value& value, qsizetype at, const Piece& p) const;
    template <typename Value>
    qsizetype FindPiece(const Value& value, qsizetype from, qsizetype to, const Piece& p) const;
    template <typename Value>
    qsizetype FindAsciiPiece(const Value& value, qsizetype from, qsizetype to, const Piece& p,
                             char32_t head) const;
    bool ElementMatches(const Element& e, char32_t c) const;
    bool ClassMatches(const CharClass& cls, char32_t c) const;
    bool ReadClass(const uint* cps, qsizetype count, QString* error);

    QList<Element> m_elements;
    QList<CharClass> m_classes;
    QList<Piece> m_pieces;         // the pieces between the stars, in order
    bool m_startsWithStar = false; // the first piece need not start the value
    bool m_endsWithStar = false;   // the last piece need not end it
    bool m_hasStar = false;
};
