#include "DataAccessCore.h"

#include "TraceLog.h"

#include <QDateTime>
#include <QHash>
#include <QSqlError>
#include <QSqlRecord>

#include <memory>

namespace {

QHash<QString, JetWhere::Kind>& Kinds() {
    static QHash<QString, JetWhere::Kind> kinds;
    return kinds;
}

QHash<QString, QStringList>& TableColumns() {
    static QHash<QString, QStringList> columns;
    return columns;
}

JetWhere::Kind KindOfDeclared(const QString& declared) {
    const QString type = declared.toUpper();
    if (type.contains("BOOL"))
        return JetWhere::Kind::Boolean;
    if (type.contains("DATE"))
        return JetWhere::Kind::Date;
    if (type.contains("INT") || type.contains("REAL") || type.contains("NUM"))
        return JetWhere::Kind::Number;
    return JetWhere::Kind::Text;
}

// The digits of text[from, from + count) as a number; false if any of them is no digit.
bool ReadDigits(QStringView text, qsizetype from, qsizetype count, int& value) {
    value = 0;
    for (qsizetype i = from; i < from + count; ++i) {
        const char16_t c = text[i].unicode();
        if (c < u'0' || c > u'9')
            return false;
        value = value * 10 + (c - u'0');
    }
    return true;
}

// The stored form of a date, "YYYY-MM-DD HH:MM:SS", read by hand into a local time. Parsing
// with a format string is slow, and each local-time conversion makes the C library look at
// the time zone file again, so the value is built once. False for a text of another form, a
// day or time that does not exist, or a local time that a summer-time change moves: those take
// the general road, so that every value comes out as it always did.
bool ParseStoredDate(QStringView text, QDateTime& when) {
    if (text.size() != 19 || text[4] != u'-' || text[7] != u'-' || text[10] != u' ' ||
        text[13] != u':' || text[16] != u':')
        return false;
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (!ReadDigits(text, 0, 4, year) || !ReadDigits(text, 5, 2, month) ||
        !ReadDigits(text, 8, 2, day) || !ReadDigits(text, 11, 2, hour) ||
        !ReadDigits(text, 14, 2, minute) || !ReadDigits(text, 17, 2, second))
        return false;
    const QDate date(year, month, day);
    const QTime time(hour, minute, second);
    if (!date.isValid() || !time.isValid())
        return false;
    when = QDateTime(date, time, Qt::LocalTime);
    return when.isValid() && when.date() == date && when.time() == time;
}

QVariant ConvertDate(const QVariant& raw) {
    const QString text = raw.toString();
    QDateTime when;
    if (ParseStoredDate(text, when))
        return when;
    when = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (!when.isValid())
        when = QDateTime::fromString(text, Qt::ISODate);
    return when.isValid() ? QVariant(when) : raw;
}

// Converts the dates of one column when the Recordset first hands them out. It remembers the
// last text and its value: the rows of one item in a joined query repeat it.
class DateReader {
public:
    QVariant operator()(const QVariant& raw) {
        if (raw.isNull())
            return QVariant();
        if (raw.typeId() != QMetaType::QString)
            return ConvertDate(raw);
        const QString text = raw.toString();
        if (!m_hasLast || text != m_lastText) {
            m_lastValue = ConvertDate(raw);
            m_lastText = text;
            m_hasLast = true;
        }
        return m_lastValue;
    }

private:
    QString m_lastText;
    QVariant m_lastValue;
    bool m_hasLast = false;
};

int g_savepointCounter = 0;

} // namespace

void DataAccessPrivate::Fail(QString& strErrorMessage, const char* operation,
                             const QString& detail) {
    strErrorMessage = QStringLiteral("QVLTDBFUNCTIONS:DataAccess:") + QLatin1String(operation) +
                      QStringLiteral(": ") + detail;
    TraceLog::Instance().WriteErrorLine(strErrorMessage);
}

QSqlDatabase DataAccessPrivate::Db() {
    return DataAccess::Instance().Database();
}

bool DataAccessPrivate::Ready(QString& strErrorMessage, const char* operation) {
    QString error;
    if (DataAccess::Instance().EnsureOpen(error))
        return true;
    Fail(strErrorMessage, operation, error);
    return false;
}

bool DataAccessPrivate::Exec(const QString& sql, const QVariantList& params,
                             QString& strErrorMessage, const char* operation, QSqlQuery* query) {
    if (!Ready(strErrorMessage, operation))
        return false;
    QSqlQuery local(Db());
    QSqlQuery& q = query ? *query : local;
    if (query)
        q = QSqlQuery(Db());
    q.setForwardOnly(true);
    if (!q.prepare(sql)) {
        Fail(strErrorMessage, operation, q.lastError().text());
        return false;
    }
    for (const QVariant& value : params)
        q.addBindValue(value);
    if (!q.exec()) {
        Fail(strErrorMessage, operation, q.lastError().text());
        return false;
    }
    return true;
}

bool DataAccessPrivate::Select(const QString& sql, const QVariantList& params,
                               QString& strErrorMessage, const char* operation,
                               std::unique_ptr<Recordset>& rs) {
    rs.reset();
    QSqlQuery q;
    if (!Exec(sql, params, strErrorMessage, operation, &q))
        return false;
    const QSqlRecord record = q.record();
    const int count = record.count();
    QList<Recordset::Column> columns;
    columns.reserve(count);
    QList<bool> booleans;
    for (int i = 0; i < count; ++i) {
        const QString name = record.fieldName(i);
        const qsizetype dot = name.lastIndexOf('.');
        Recordset::Column column{dot >= 0 ? name.left(dot) : QString(), name.mid(dot + 1)};
        const JetWhere::Kind kind = KindOf(column.name);
        if (kind == JetWhere::Kind::Date) {
            auto reader = std::make_shared<DateReader>();
            column.convert = [reader](const QVariant& raw) { return (*reader)(raw); };
        }
        booleans << (kind == JetWhere::Kind::Boolean);
        columns << std::move(column);
    }
    // Null becomes a plain null QVariant, booleans bool; dates are left to the Recordset.
    // The rows one after the other in one list: one allocation for all, not one per row.
    QVariantList values;
    while (q.next()) {
        for (int i = 0; i < count; ++i) {
            QVariant value = q.value(i);
            if (value.isNull())
                values.emplace_back();
            else if (booleans.at(i))
                values.emplace_back(value.toLongLong() != 0);
            else
                values.append(std::move(value));
        }
    }
    if (q.lastError().isValid()) {
        Fail(strErrorMessage, operation, q.lastError().text());
        return false;
    }
    rs = std::make_unique<Recordset>(std::move(columns), std::move(values));
    return true;
}

QVariant DataAccessPrivate::Scalar(const QString& sql, const QVariantList& params,
                                   QString& strErrorMessage, const char* operation) {
    QSqlQuery q;
    if (!Exec(sql, params, strErrorMessage, operation, &q) || !q.next())
        return QVariant();
    return q.value(0).isNull() ? QVariant() : q.value(0);
}

JetWhere DataAccessPrivate::WhereFor(const QList<Source>& sources) {
    QList<JetWhere::Table> tables;
    for (const Source& source : sources) {
        JetWhere::Table table{source.table, source.alias, {}};
        for (const QString& column : ColumnsOf(source.table))
            table.columns.insert(column, KindOf(column));
        tables << table;
    }
    return JetWhere(tables);
}

bool DataAccessPrivate::SelectWhere(const QString& sqlBefore, const QList<Source>& sources,
                                    const QString& strWhereClause, const QString& sqlAfter,
                                    QString& strErrorMessage, const char* operation,
                                    std::unique_ptr<Recordset>& rs) {
    rs.reset();
    if (!Ready(strErrorMessage, operation))
        return false;
    const JetWhere::Result where = WhereFor(sources).Translate(strWhereClause);
    if (!where.ok()) {
        Fail(strErrorMessage, operation,
             QStringLiteral("The filter cannot be used: ") + where.error + '.');
        return false;
    }
    QString sql = sqlBefore;
    if (!where.sql.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.sql;
    sql += ' ' + sqlAfter;
    return Select(sql, where.params, strErrorMessage, operation, rs);
}

void DataAccessPrivate::LoadSchemaInfo() {
    Kinds().clear();
    TableColumns().clear();
    QSqlQuery tables(Db());
    tables.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type IN ('table','view')"));
    QStringList names;
    while (tables.next())
        names << tables.value(0).toString();
    for (const QString& table : names) {
        QSqlQuery info(Db());
        info.exec(QStringLiteral("PRAGMA table_info(\"%1\")").arg(table));
        while (info.next()) {
            const QString column = info.value(1).toString();
            TableColumns()[table.toLower()] << column;
            const QString declared = info.value(2).toString();
            if (!declared.isEmpty())
                Kinds().insert(column.toLower(), KindOfDeclared(declared));
        }
    }
}

JetWhere::Kind DataAccessPrivate::KindOf(const QString& column) {
    return Kinds().value(column.toLower(), JetWhere::Kind::Text);
}

QStringList DataAccessPrivate::ColumnsOf(const QString& table) {
    return TableColumns().value(table.toLower());
}

QString DataAccessPrivate::Now() {
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

WriteScope::WriteScope(QString& strErrorMessage, const char* operation)
    : m_error(strErrorMessage), m_operation(operation),
      m_name(QStringLiteral("write_%1").arg(++g_savepointCounter)) {
    m_ok = DataAccessPrivate::Exec(QStringLiteral("SAVEPOINT ") + m_name, {}, m_error, operation);
}

WriteScope::~WriteScope() {
    if (!m_ok || m_done)
        return;
    QString ignored;
    DataAccessPrivate::Exec(QStringLiteral("ROLLBACK TO ") + m_name, {}, ignored, m_operation);
    DataAccessPrivate::Exec(QStringLiteral("RELEASE ") + m_name, {}, ignored, m_operation);
}

bool WriteScope::Commit() {
    if (!m_ok)
        return false;
    m_done = true;
    return DataAccessPrivate::Exec(QStringLiteral("RELEASE ") + m_name, {}, m_error, m_operation);
}

QString DataAccessPrivate::Columns(const QString& alias, const QString& table,
                                   const QStringList& names) {
    QStringList parts;
    for (const QString& name : names)
        parts << QStringLiteral("%1.\"%2\" AS \"%3.%2\"").arg(alias, name, table);
    return parts.join(QStringLiteral(", "));
}

qint32 DataAccessPrivate::LastInsertId() {
    QSqlQuery q(Db());
    q.exec(QStringLiteral("SELECT last_insert_rowid()"));
    return q.next() ? q.value(0).toInt() : 0;
}

void DataAccessPrivate::SetState(const QString& key, const QVariant& value,
                                 QString& strErrorMessage, const char* operation) {
    Exec(QStringLiteral("INSERT OR REPLACE INTO StoreState (StateKey, StateValue) VALUES (?, ?)"),
         {key, value}, strErrorMessage, operation);
}

QVariant DataAccessPrivate::State(const QString& key) {
    QString ignored;
    return Scalar(QStringLiteral("SELECT StateValue FROM StoreState WHERE StateKey = ?"), {key},
                  ignored, "State");
}

qint32 DataAccessPrivate::NextPosition(const QString& table, const QString& column, qint32 id,
                                       QString& strErrorMessage, const char* operation) {
    const QVariant last =
        Scalar(QStringLiteral("SELECT max(Position) FROM %1 WHERE %2 = ?").arg(table, column), {id},
               strErrorMessage, operation);
    return last.isNull() ? 1 : last.toInt() + 1;
}

void DataAccessPrivate::NotAvailable(QString& strErrorMessage, const char* operation,
                                     const QString& what) {
    Fail(strErrorMessage, operation,
         QStringLiteral("%1 is not available yet in this version of Corvantis.").arg(what));
}
