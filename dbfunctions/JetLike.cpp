#include "JetLike.h"

#include <QChar>
#include <QVarLengthArray>

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

namespace {

inline char32_t Fold(char32_t c) {
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
    return QChar::toCaseFolded(c);
}

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

// A value of ASCII bytes, read where it lies.
struct AsciiValue {
    const char* bytes;
    qsizetype length;
    qsizetype size() const { return length; }
    char32_t operator[](qsizetype i) const { return static_cast<unsigned char>(bytes[i]); }
};

using Ucs4 = QVarLengthArray<char32_t, 256>;

// The code points of UTF-8 bytes; a byte that starts no valid sequence reads as U+FFFD.
void DecodeUtf8(const unsigned char* s, qsizetype length, Ucs4& out) {
    out.reserve(length);
    qsizetype i = 0;
    while (i < length) {
        const unsigned char b = s[i];
        int extra = b < 0x80             ? 0
                    : (b & 0xE0) == 0xC0 ? 1
                    : (b & 0xF0) == 0xE0 ? 2
                    : (b & 0xF8) == 0xF0 ? 3
                                         : -1;
        char32_t c = extra == 0 ? b : extra == 1 ? (b & 0x1F) : extra == 2 ? (b & 0x0F) : (b & 7);
        bool valid = extra >= 0 && i + extra < length;
        for (int k = 1; valid && k <= extra; ++k) {
            valid = (s[i + k] & 0xC0) == 0x80;
            c = (c << 6) | (s[i + k] & 0x3F);
        }
        if (!valid) {
            out.append(0xFFFD);
            ++i;
            continue;
        }
        out.append(c);
        i += extra + 1;
    }
}

bool IsAscii(const char* bytes, qsizetype length) {
    unsigned char all = 0;
    for (qsizetype i = 0; i < length; ++i)
        all |= static_cast<unsigned char>(bytes[i]);
    return all < 0x80;
}

} // namespace

bool JetLikePattern::Compile(QStringView pattern, QString* error) {
    *this = JetLikePattern();
    const QList<uint> cps = pattern.toUcs4();
    const qsizetype n = cps.size();
    qsizetype pieceStart = 0;
    qsizetype nextClose = -1; // the next "]" at or after the current place; n when none is left
    const auto closePieceAt = [&] {
        const qsizetype count = m_elements.size() - pieceStart;
        if (count > 0 || !m_hasStar)
            m_pieces.append(Piece{pieceStart, count});
        pieceStart = m_elements.size();
    };
    for (qsizetype i = 0; i < n; ++i) {
        const char32_t c = cps[i];
        if (c == '*') {
            if (!m_hasStar) {
                m_hasStar = true;
                m_startsWithStar = i == 0;
            }
            closePieceAt();
            continue;
        }
        if (c == '[') {
            if (nextClose <= i) {
                nextClose = i + 1;
                while (nextClose < n && cps[nextClose] != ']')
                    ++nextClose;
            }
            if (nextClose < n && nextClose > i + 1) {
                if (!ReadClass(cps.constData() + i + 1, nextClose - i - 1, error))
                    return false;
                i = nextClose;
                continue;
            }
        }
        if (c == '?')
            m_elements.append(Element{Type::AnyOne, 0});
        else if (c == '#')
            m_elements.append(Element{Type::Digit, 0});
        else
            m_elements.append(Element{Type::Char, Fold(c)});
    }
    m_endsWithStar = n > 0 && cps[n - 1] == '*';
    if (m_hasStar)
        closePieceAt();
    else
        m_pieces.append(Piece{0, m_elements.size()});
    return true;
}

bool JetLikePattern::ReadClass(const uint* cps, qsizetype count, QString* error) {
    CharClass cls;
    qsizetype i = 0;
    if (count > 1 && cps[0] == '!') {
        cls.negated = true;
        i = 1;
    }
    while (i < count) {
        const char32_t low = cps[i];
        if (i + 2 < count && cps[i + 1] == '-') {
            const char32_t high = cps[i + 2];
            if (high < low) {
                if (error)
                    *error = QStringLiteral("the range [%1-%2] runs backwards")
                                 .arg(QString::fromUcs4(&low, 1), QString::fromUcs4(&high, 1));
                return false;
            }
            cls.ranges.append(Range{low, high});
            i += 3;
        } else {
            cls.ranges.append(Range{low, low});
            ++i;
        }
    }
    m_elements.append(Element{Type::Class, static_cast<char32_t>(m_classes.size())});
    m_classes.append(cls);
    return true;
}

bool JetLikePattern::ClassMatches(const CharClass& cls, char32_t c) const {
    const char32_t forms[4] = {c, Fold(c), QChar::toLower(c), QChar::toUpper(c)};
    bool found = false;
    for (const Range& range : cls.ranges) {
        for (char32_t form : forms)
            found = found || (form >= range.low && form <= range.high);
        if (found)
            break;
    }
    return found != cls.negated;
}

bool JetLikePattern::ElementMatches(const Element& e, char32_t c) const {
    switch (e.type) {
    case Type::Char:
        return Fold(c) == e.ch;
    case Type::AnyOne:
        return true;
    case Type::Digit:
        return IsDigit(c);
    case Type::Class:
        return ClassMatches(m_classes[e.ch], c);
    }
    return false;
}

template <typename Value>
bool JetLikePattern::PieceAt(const Value& value, qsizetype at, const Piece& p) const {
    for (qsizetype k = 0; k < p.count; ++k)
        if (!ElementMatches(m_elements[p.from + k], value[at + k]))
            return false;
    return true;
}

// FindPiece in ASCII bytes for a piece whose first element is a plain character: the places
// where that character stands, in either case, are found by the C library's memchr (which
// reads many bytes at a time), not by a look at every byte.
template <typename Value>
qsizetype JetLikePattern::FindAsciiPiece(const Value& value, qsizetype from, qsizetype to,
                                         const Piece& p, char32_t head) const {
    // An ASCII byte folds to an ASCII byte: a head beyond them is found nowhere.
    if (head >= 0x80)
        return -1;
    const char lower = static_cast<char>(head);
    const bool letter = lower >= 'a' && lower <= 'z';
    const char upper = letter ? static_cast<char>(lower - ('a' - 'A')) : lower;
    const char* bytes = value.bytes;
    const qsizetype lastStart = to - p.count; // the last place the piece can start
    constexpr qsizetype kNone = std::numeric_limits<qsizetype>::max();
    const auto next = [&](char c, qsizetype at) {
        const void* hit = std::memchr(bytes + at, c, static_cast<size_t>(lastStart - at + 1));
        return hit ? static_cast<const char*>(hit) - bytes : kNone;
    };
    qsizetype atLower = -1, atUpper = letter ? -1 : kNone;
    for (qsizetype at = from; at <= lastStart; ++at) {
        if (atLower < at)
            atLower = next(lower, at);
        if (atUpper < at)
            atUpper = next(upper, at);
        at = std::min(atLower, atUpper);
        if (at == kNone)
            return -1;
        if (PieceAt(value, at, p))
            return at;
    }
    return -1;
}

// The leftmost place in [from, to) where the piece lies wholly; -1 when there is none.
template <typename Value>
qsizetype JetLikePattern::FindPiece(const Value& value, qsizetype from, qsizetype to,
                                    const Piece& p) const {
    if (p.count == 0)
        return from <= to ? from : -1;
    // Most pieces start with a plain character: the places where it is not are passed over
    // without a look at the rest of the piece.
    const Element& head = m_elements[p.from];
    const bool plainHead = head.type == Type::Char;
    if constexpr (std::is_same_v<Value, AsciiValue>) {
        if (plainHead)
            return FindAsciiPiece(value, from, to, p, head.ch);
    }
    for (qsizetype at = from; at + p.count <= to; ++at) {
        if (plainHead && Fold(value[at]) != head.ch)
            continue;
        if (PieceAt(value, at, p))
            return at;
    }
    return -1;
}

template <typename Value> bool JetLikePattern::MatchValue(const Value& value) const {
    const qsizetype n = value.size();
    if (!m_hasStar) {
        const Piece& only = m_pieces.front();
        return n == only.count && PieceAt(value, 0, only);
    }
    qsizetype lo = 0, hi = n, first = 0, last = m_pieces.size();
    if (!m_startsWithStar) {
        const Piece& p = m_pieces.front();
        if (p.count > n || !PieceAt(value, 0, p))
            return false;
        lo = p.count;
        first = 1;
    }
    if (!m_endsWithStar) {
        const Piece& p = m_pieces.back();
        if (p.count > hi - lo || !PieceAt(value, n - p.count, p))
            return false;
        hi = n - p.count;
        --last;
    }
    for (qsizetype i = first; i < last; ++i) {
        const qsizetype at = FindPiece(value, lo, hi, m_pieces[i]);
        if (at < 0)
            return false;
        lo = at + m_pieces[i].count;
    }
    return true;
}

bool JetLikePattern::MatchesUtf8(const char* bytes, qsizetype length) const {
    if (IsAscii(bytes, length))
        return MatchValue(AsciiValue{bytes, length});
    Ucs4 cps;
    DecodeUtf8(reinterpret_cast<const unsigned char*>(bytes), length, cps);
    return MatchValue(cps);
}

bool JetLikePattern::Matches(QStringView text) const {
    const QList<uint> cps = text.toUcs4();
    Ucs4 value;
    value.reserve(cps.size());
    for (uint c : cps)
        value.append(c);
    return MatchValue(value);
}
