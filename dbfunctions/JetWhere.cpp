#include "JetWhere.h"

#include "JetLike.h"

#include <QStringList>

// Tokenizer and parser of the Jet condition language (see JetWhere.h). The parser produces the
// SQLite text directly: each rule returns the SQL of its part and appends values to the
// parameter list, so no text of the clause ever reaches the SQL.

namespace {

// A user's text as an error message quotes it: at most kShownLength characters.
QString Shown(const QString& text) {
    constexpr qsizetype kShownLength = 40;
    if (text.size() <= kShownLength)
        return text;
    return text.left(kShownLength) + QStringLiteral("...");
}

// The SQL of conditions joined by OR or AND. The engine reads a flat chain without growing its
// parser's stack but counts each link as one level of its expression (at most 1,000), so a long
// chain is cut into groups of kGroup, and the groups joined the same way: its depth then grows
// with the logarithm of its length.
QString JoinGrouped(const QStringList& parts, const QString& op) {
    constexpr qsizetype kGroup = 100;
    if (parts.size() == 1)
        return parts.first();
    if (parts.size() <= kGroup)
        return QLatin1Char('(') + parts.join(op) + QLatin1Char(')');
    QStringList groups;
    for (qsizetype from = 0; from < parts.size(); from += kGroup)
        groups << JoinGrouped(parts.mid(from, kGroup), op);
    return JoinGrouped(groups, op);
}

// "(NOT x)", or x itself where it is "(NOT x)" already: the conditions all answer 1, 0 or Null,
// for which Not Not changes nothing, and the engine's parser has room for few levels.
QString Negate(const QString& sql) {
    static const QString prefix = QStringLiteral("(NOT ");
    if (sql.startsWith(prefix))
        return sql.mid(prefix.size(), sql.size() - prefix.size() - 1);
    return prefix + sql + QLatin1Char(')');
}

enum class Tok { End, Name, Number, Text, Date, Op, LParen, RParen, Comma, Dot };

struct Token {
    Tok type = Tok::End;
    QString text; // name, operator, or the value of a literal
    qsizetype at = 0;
};

const QStringList& ForbiddenWords() {
    static const QStringList words = {
        "select", "union",  "from",   "where",   "exists",    "insert",    "update",
        "delete", "drop",   "create", "alter",   "attach",    "detach",    "pragma",
        "into",   "values", "exec",   "execute", "join",      "having",    "group",
        "order",  "limit",  "vacuum", "replace", "transform", "parameters"};
    return words;
}

class Tokenizer {
public:
    explicit Tokenizer(const QString& text) : m_text(text) {}

    bool Run(QList<Token>& tokens, QString& error) {
        while (true) {
            SkipBlanks();
            if (m_pos >= m_text.size())
                break;
            Token token;
            token.at = m_pos;
            if (!Next(token, error))
                return false;
            tokens << token;
        }
        tokens << Token{Tok::End, QString(), m_pos};
        return true;
    }

private:
    void SkipBlanks() {
        while (m_pos < m_text.size() && m_text[m_pos].isSpace())
            ++m_pos;
    }

    bool Next(Token& token, QString& error) {
        const QChar c = m_text[m_pos];
        if (c == '\'' || c == '"')
            return Quoted(token, c, error);
        if (c == '#')
            return DateLiteral(token, error);
        if (c == '[')
            return Bracketed(token, error);
        if (c.isDigit() || (c == '.' && PeekDigit(1)))
            return NumberLiteral(token);
        if (c.isLetter() || c == '_')
            return Word(token);
        return Punctuation(token, error);
    }

    bool PeekDigit(qsizetype offset) const {
        return m_pos + offset < m_text.size() && m_text[m_pos + offset].isDigit();
    }

    bool Quoted(Token& token, QChar quote, QString& error) {
        QString value;
        qsizetype i = m_pos + 1;
        while (i < m_text.size()) {
            if (m_text[i] == quote) {
                if (i + 1 < m_text.size() && m_text[i + 1] == quote) { // doubled quote
                    value += quote;
                    i += 2;
                    continue;
                }
                if (!Storable(value)) {
                    error = QStringLiteral("a text in quotes holds a character that a filter "
                                           "cannot use, such as a NUL character or half of a "
                                           "surrogate pair (at position %1)")
                                .arg(m_pos + 1);
                    return false;
                }
                token = Token{Tok::Text, value, m_pos};
                m_pos = i + 1;
                return true;
            }
            value += m_text[i++];
        }
        error =
            QStringLiteral("a text in quotes has no closing quote (at position %1)").arg(m_pos + 1);
        return false;
    }

    // Whether a text can be bound and compared as it stands: no NUL (which ends a text in the
    // engine's functions) and no lone surrogate (which has no UTF-8 form).
    static bool Storable(const QString& text) {
        return !text.contains(QChar(0)) && QStringView(text).isValidUtf16();
    }

    bool DateLiteral(Token& token, QString& error) {
        const qsizetype close = m_text.indexOf('#', m_pos + 1);
        if (close < 0) {
            error = QStringLiteral("a date in # has no closing # (at position %1)").arg(m_pos + 1);
            return false;
        }
        if (close - m_pos - 1 > JetWhere::kMaxDateLength) {
            error = QStringLiteral("a date in # is longer than %1 characters (at position %2)")
                        .arg(JetWhere::kMaxDateLength)
                        .arg(m_pos + 1);
            return false;
        }
        token = Token{Tok::Date, m_text.mid(m_pos + 1, close - m_pos - 1).trimmed(), m_pos};
        m_pos = close + 1;
        return true;
    }

    bool Bracketed(Token& token, QString& error) {
        const qsizetype close = m_text.indexOf(']', m_pos + 1);
        if (close < 0) {
            error = QStringLiteral("a [name] has no closing bracket");
            return false;
        }
        token = Token{Tok::Name, m_text.mid(m_pos + 1, close - m_pos - 1).trimmed(), m_pos};
        m_pos = close + 1;
        return true;
    }

    bool NumberLiteral(Token& token) {
        qsizetype i = m_pos;
        while (i < m_text.size() && (m_text[i].isDigit() || m_text[i] == '.'))
            ++i;
        token = Token{Tok::Number, m_text.mid(m_pos, i - m_pos), m_pos};
        m_pos = i;
        return true;
    }

    bool Word(Token& token) {
        qsizetype i = m_pos;
        while (i < m_text.size() && (m_text[i].isLetterOrNumber() || m_text[i] == '_'))
            ++i;
        token = Token{Tok::Name, m_text.mid(m_pos, i - m_pos), m_pos};
        m_pos = i;
        return true;
    }

    bool Punctuation(Token& token, QString& error) {
        static const QStringList twoChar = {"<>", "<=", ">="};
        const QString two = m_text.mid(m_pos, 2);
        if (twoChar.contains(two)) {
            token = Token{Tok::Op, two, m_pos};
            m_pos += 2;
            return true;
        }
        const QChar c = m_text[m_pos];
        const Tok single = c == '('                                         ? Tok::LParen
                           : c == ')'                                       ? Tok::RParen
                           : c == ','                                       ? Tok::Comma
                           : c == '.'                                       ? Tok::Dot
                           : (c == '=' || c == '<' || c == '>' || c == '-') ? Tok::Op
                                                                            : Tok::End;
        if (single == Tok::End) {
            error = c == ';' ? QStringLiteral("a second statement is not allowed")
                             : QStringLiteral("the character '%1' is not allowed here").arg(c);
            return false;
        }
        token = Token{single, QString(c), m_pos};
        ++m_pos;
        return true;
    }

    const QString& m_text;
    qsizetype m_pos = 0;
};

// An operand as the parser sees it: a field, or a literal value.
struct Operand {
    bool isField = false;
    JetWhere::ColumnRef column;
    enum class Lit { None, Number, Text, Date, Boolean, Null } lit = Lit::None;
    QVariant value;
    bool dateHasTime = false;
};

class Parser {
public:
    Parser(const JetWhere& where, const QList<Token>& tokens, QVariantList& params)
        : m_where(where), m_tokens(tokens), m_params(params) {}

    bool Parse(QString& sql, QString& error) {
        if (!Condition(sql))
            return Failed(error);
        if (Peek().type != Tok::End) {
            m_error = QStringLiteral("unexpected '%1' (at position %2)")
                          .arg(Shown(Describe(Peek())))
                          .arg(Peek().at + 1);
            return Failed(error);
        }
        return true;
    }

    // The fields and the pattern of a condition that is nothing but "field Like 'p'" joined by
    // Or, all with one pattern; false for any other condition.
    bool LikeChain(QStringList& fields, QString& pattern) const {
        if (m_notPlainOrChain || m_likes.isEmpty() || m_likes.size() != m_conditions)
            return false;
        for (const auto& like : m_likes)
            if (like.second != m_likes.first().second)
                return false;
        for (const auto& like : m_likes)
            fields << like.first;
        pattern = m_likes.first().second;
        return true;
    }

private:
    bool Failed(QString& error) {
        error = m_error;
        return false;
    }
    const Token& Peek(qsizetype ahead = 0) const {
        return m_tokens[qMin(m_index + ahead, m_tokens.size() - 1)];
    }
    const Token& Take() { return m_tokens[qMin(m_index++, m_tokens.size() - 1)]; }
    bool IsWord(const Token& t, const char* word) const {
        return t.type == Tok::Name && t.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }
    bool TakeWord(const char* word) {
        if (!IsWord(Peek(), word))
            return false;
        ++m_index;
        return true;
    }
    static QString Describe(const Token& t) {
        return t.type == Tok::End ? QStringLiteral("end of the filter") : t.text;
    }
    bool Fail(const QString& text) {
        if (m_error.isEmpty())
            m_error = text;
        return false;
    }

    bool Condition(QString& sql) { return Or(sql); }

    // A chain of conditions joined by one word; each part is read by next. The parts are
    // collected and joined once, so that a long chain costs time in proportion to its length.
    template <typename Next> bool Chain(QString& sql, const char* word, Next next) {
        QStringList parts(QString{});
        if (!(this->*next)(parts.back()))
            return false;
        while (TakeWord(word)) {
            parts.append(QString());
            if (!(this->*next)(parts.back()))
                return false;
        }
        if (parts.size() > 1 && QLatin1String(word) != QLatin1String("or"))
            m_notPlainOrChain = true;
        const QString op = QLatin1Char(' ') + QString::fromLatin1(word).toUpper() + ' ';
        sql = JoinGrouped(parts, op);
        return true;
    }

    bool Or(QString& sql) { return Chain(sql, "or", &Parser::And); }
    bool And(QString& sql) { return Chain(sql, "and", &Parser::Not); }

    // Counts one level of nesting (a "(" or a Not) for as long as it lives; the parser refuses
    // a clause deeper than JetWhere::kMaxDepth, long before the thread's stack could run out.
    class Level {
    public:
        explicit Level(qsizetype& depth) : m_depth(++depth) {}
        ~Level() { --m_depth; }
        bool TooDeep() const { return m_depth > JetWhere::kMaxDepth; }

    private:
        qsizetype& m_depth;
    };

    bool Not(QString& sql) {
        const bool negated = IsWord(Peek(), "not");
        if (!negated && Peek().type != Tok::LParen)
            return Predicate(sql);
        m_notPlainOrChain = true;
        const Level level(m_depth);
        if (level.TooDeep())
            return Fail(QStringLiteral("the filter nests parentheses and Not more than %1 deep")
                            .arg(JetWhere::kMaxDepth));
        Take();
        QString inner;
        if (negated) {
            if (!Not(inner))
                return false;
            sql = Negate(inner);
            return true;
        }
        // Every condition's SQL stands in its own parentheses already, so a "(" of the clause
        // adds none: the engine's parser sees no depth for it.
        if (!Condition(sql))
            return false;
        if (Take().type != Tok::RParen)
            return Fail(QStringLiteral("a '(' has no matching ')'"));
        return true;
    }

    bool Predicate(QString& sql) {
        if (++m_conditions > JetWhere::kMaxConditions)
            return Fail(QStringLiteral("the filter holds more than %1 conditions")
                            .arg(JetWhere::kMaxConditions));
        const Token& first = Peek();
        if (first.type == Tok::Op && first.text != "-")
            return Fail(QStringLiteral("there is no field before '%1'").arg(first.text));
        if (first.type == Tok::End)
            return Fail(QStringLiteral("the filter ends where a condition should follow"));
        Operand left;
        if (!ReadOperand(left))
            return false;
        const Token& next = Peek();
        if (next.type == Tok::Op)
            return Comparison(left, Take().text, sql);
        const bool negated =
            IsWord(next, "not") &&
            (IsWord(Peek(1), "like") || IsWord(Peek(1), "in") || IsWord(Peek(1), "between"));
        if (negated)
            Take();
        if (TakeWord("like"))
            return Like(left, negated, sql);
        if (TakeWord("in"))
            return In(left, negated, sql);
        if (TakeWord("between"))
            return Between(left, negated, sql);
        if (TakeWord("is"))
            return IsNull(left, sql);
        if (left.isField && left.column.kind == JetWhere::Kind::Boolean) {
            sql = QStringLiteral("(%1 <> 0)").arg(left.column.sql);
            return true;
        }
        return Fail(QStringLiteral("a comparison is missing after '%1'")
                        .arg(Shown(m_tokens[m_index - 1].text)));
    }

    bool ReadOperand(Operand& operand) {
        const Token t = Take();
        switch (t.type) {
        case Tok::Number:
            return NumberOperand(t.text, false, operand);
        case Tok::Op:
            if (t.text == "-" && Peek().type == Tok::Number)
                return NumberOperand(Take().text, true, operand);
            return Fail(QStringLiteral("unexpected '%1'").arg(Shown(t.text)));
        case Tok::Text:
            operand.lit = Operand::Lit::Text;
            operand.value = t.text;
            return true;
        case Tok::Date:
            return DateOperand(t.text, operand);
        case Tok::Name:
            return NameOperand(t, operand);
        default:
            return Fail(QStringLiteral("a field or a value is missing before '%1'")
                            .arg(Shown(Describe(t))));
        }
    }

    bool NumberOperand(const QString& text, bool negative, Operand& operand) {
        bool ok = false;
        const double value = text.toDouble(&ok);
        if (!ok)
            return Fail(QStringLiteral("'%1' is not a number").arg(Shown(text)));
        operand.lit = Operand::Lit::Number;
        if (!text.contains('.') && qAbs(value) < 9.0e15)
            operand.value = static_cast<qint64>(negative ? -value : value);
        else
            operand.value = negative ? -value : value;
        return true;
    }

    bool DateOperand(const QString& text, Operand& operand) {
        bool hasTime = false;
        const QDateTime when = JetWhere::ParseDate(text, &hasTime);
        if (!when.isValid())
            return Fail(QStringLiteral("'#%1#' is not a date").arg(Shown(text)));
        operand.lit = Operand::Lit::Date;
        operand.dateHasTime = hasTime;
        operand.value = hasTime ? when.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                                : when.date().toString(QStringLiteral("yyyy-MM-dd"));
        return true;
    }

    bool NameOperand(const Token& t, Operand& operand) {
        const QString word = t.text.toLower();
        if (word == "true" || word == "false") {
            operand.lit = Operand::Lit::Boolean;
            operand.value = word == "true" ? 1 : 0;
            return true;
        }
        if (word == "null") {
            operand.lit = Operand::Lit::Null;
            return true;
        }
        if (ForbiddenWords().contains(word))
            return Fail(QStringLiteral("'%1' is not allowed in a filter (only a condition is)")
                            .arg(Shown(t.text)));
        static const QStringList keywords = {"and", "or", "not", "like", "is", "in", "between"};
        if (keywords.contains(word))
            return Fail(QStringLiteral("a field is missing before '%1'").arg(Shown(t.text)));
        QString table, column = t.text;
        if (Peek().type == Tok::Dot) {
            Take();
            const Token name = Take();
            if (name.type != Tok::Name)
                return Fail(QStringLiteral("a field name should follow '%1.'").arg(Shown(t.text)));
            table = t.text;
            column = name.text;
        }
        if (Peek().type == Tok::LParen)
            return Fail(QStringLiteral("functions such as '%1(' are not allowed in a filter")
                            .arg(Shown(column)));
        operand.isField = true;
        return m_where.Resolve(table, column, operand.column, m_error);
    }

    // The SQL of an operand; values become parameters.
    QString Sql(const Operand& operand) {
        if (operand.isField)
            return operand.column.sql;
        if (operand.lit == Operand::Lit::Null)
            return QStringLiteral("NULL");
        m_params << operand.value;
        return QStringLiteral("?");
    }

    bool Comparison(const Operand& left, const QString& op, QString& sql) {
        if (op == "-")
            return Fail(QStringLiteral("'-' is not an operator"));
        Operand right;
        if (Peek().type == Tok::Op && Peek().text != "-")
            return Fail(QStringLiteral("'%1' cannot follow '%2'").arg(Shown(Peek().text), op));
        if (!ReadOperand(right))
            return false;
        if (!left.isField && !right.isField)
            return Fail(QStringLiteral("a comparison must name a field"));
        sql = CompareSql(left, op, right);
        return true;
    }

    // A day-only date literal compares with the day part of a stored date.
    static bool IsDayComparison(const Operand& a, const Operand& b) {
        return a.isField && a.column.kind == JetWhere::Kind::Date && b.lit == Operand::Lit::Date &&
               !b.dateHasTime;
    }

    QString Side(const Operand& operand, const Operand& other) {
        const QString text = Sql(operand);
        if (IsDayComparison(operand, other))
            return QStringLiteral("substr(%1, 1, 10)").arg(text);
        return text;
    }

    static bool IsText(const Operand& o) {
        return (o.isField && o.column.kind == JetWhere::Kind::Text) || o.lit == Operand::Lit::Text;
    }

    QString CompareSql(const Operand& left, const QString& op, const Operand& right) {
        const QString a = Side(left, right);
        const QString b = Side(right, left);
        const QString collate =
            IsText(left) && IsText(right) ? QStringLiteral(" COLLATE JETTEXT") : QString();
        return QStringLiteral("(%1 %2 %3%4)").arg(a, op, b, collate);
    }

    bool Like(const Operand& left, bool negated, QString& sql) {
        Operand pattern;
        if (!ReadOperand(pattern))
            return false;
        if (!left.isField)
            return Fail(QStringLiteral("Like needs a field on its left"));
        if (pattern.lit != Operand::Lit::Text)
            return Fail(QStringLiteral("Like needs a text in quotes on its right"));
        QString reason;
        if (!JetLikePattern().Compile(pattern.value.toString(), &reason))
            return Fail(QStringLiteral("the Like pattern '%1' cannot be used: %2")
                            .arg(Shown(pattern.value.toString()), reason));
        sql = QStringLiteral("(%1jet_like(%2, %3))")
                  .arg(negated ? QStringLiteral("NOT ") : QString(), Sql(left), Sql(pattern));
        if (!negated)
            m_likes.append({left.column.sql, pattern.value.toString()});
        return true;
    }

    bool IsNull(const Operand& left, QString& sql) {
        const bool negated = TakeWord("not");
        if (!TakeWord("null"))
            return Fail(QStringLiteral("Is must be followed by Null or Not Null"));
        if (!left.isField)
            return Fail(QStringLiteral("Is Null needs a field on its left"));
        sql = QStringLiteral("(%1 IS %2NULL)")
                  .arg(left.column.sql, negated ? QStringLiteral("NOT ") : QString());
        return true;
    }

    bool In(const Operand& left, bool negated, QString& sql) {
        if (!left.isField)
            return Fail(QStringLiteral("In needs a field on its left"));
        if (Take().type != Tok::LParen)
            return Fail(QStringLiteral("In must be followed by a list in parentheses"));
        QStringList items;
        do {
            Operand item;
            if (!ReadOperand(item))
                return false;
            if (item.isField)
                return Fail(QStringLiteral("the list of In holds values only"));
            items << Side(item, left);
            if (m_params.size() > JetWhere::kMaxValues)
                return Fail(QStringLiteral("the filter holds more than %1 values")
                                .arg(JetWhere::kMaxValues));
        } while (Peek().type == Tok::Comma && Take().type == Tok::Comma);
        if (Take().type != Tok::RParen)
            return Fail(QStringLiteral("the list of In has no closing ')'"));
        const QString field = left.column.sql;
        const QString collate = IsText(left) ? QStringLiteral(" COLLATE JETTEXT") : QString();
        sql = QStringLiteral("(%1%2 %3IN (%4))")
                  .arg(field, collate, negated ? QStringLiteral("NOT ") : QString(),
                       items.join(QStringLiteral(", ")));
        return true;
    }

    bool Between(const Operand& left, bool negated, QString& sql) {
        Operand low, high;
        if (!ReadOperand(low))
            return false;
        if (!TakeWord("and"))
            return Fail(QStringLiteral("Between must read Between value And value"));
        if (!ReadOperand(high))
            return false;
        if (!left.isField)
            return Fail(QStringLiteral("Between needs a field on its left"));
        const QString lower = CompareSql(left, QStringLiteral(">="), low);
        const QString upper = CompareSql(left, QStringLiteral("<="), high);
        sql = QStringLiteral("(%1(%2 AND %3))")
                  .arg(negated ? QStringLiteral("NOT ") : QString(), lower, upper);
        return true;
    }

    const JetWhere& m_where;
    const QList<Token>& m_tokens;
    QVariantList& m_params;
    qsizetype m_index = 0;
    qsizetype m_depth = 0;
    qsizetype m_conditions = 0;
    QString m_error;
    QList<std::pair<QString, QString>> m_likes; // field SQL and pattern of each plain Like
    bool m_notPlainOrChain = false;             // an And, a Not or a parenthesis was read
};

} // namespace

JetWhere::Result JetWhere::Translate(const QString& clause) const {
    Result result;
    if (clause.trimmed().isEmpty())
        return result;
    QList<Token> tokens;
    Tokenizer tokenizer(clause);
    if (!tokenizer.Run(tokens, result.error))
        return result;
    Parser parser(*this, tokens, result.params);
    if (parser.Parse(result.sql, result.error) && result.params.size() > kMaxValues)
        result.error = QStringLiteral("the filter holds more than %1 values").arg(kMaxValues);
    if (result.ok())
        parser.LikeChain(result.likeChainFields, result.likeChainPattern);
    if (!result.ok()) {
        result.sql.clear();
        result.params.clear();
    }
    return result;
}

bool JetWhere::Resolve(const QString& table, const QString& column, ColumnRef& ref,
                       QString& error) const {
    for (const Table& candidate : m_tables) {
        if (!table.isEmpty() && candidate.name.compare(table, Qt::CaseInsensitive) != 0)
            continue;
        for (auto it = candidate.columns.cbegin(); it != candidate.columns.cend(); ++it) {
            if (it.key().compare(column, Qt::CaseInsensitive) != 0)
                continue;
            ref.sql = candidate.alias + QStringLiteral(".\"") + it.key() + '"';
            ref.kind = it.value();
            return true;
        }
    }
    const QString shown = table.isEmpty() ? column : table + '.' + column;
    error = QStringLiteral("unknown field '%1'").arg(Shown(shown));
    return false;
}
