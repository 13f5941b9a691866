#include "DataAccessCore.h"

#include "TraceLog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHash>
#include <QSqlError>
#include <QSqlRecord>
#include <QSqlResult>

#include <sqlite3.h>

#include <cstring>
#include <limits>
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

// The value of column i of the statement's current row, made as Qt's SQLite driver makes it.
QVariant SqliteValue(sqlite3_stmt* stmt, int i, int type, QSql::NumericalPrecisionPolicy policy) {
    switch (type) {
    case SQLITE_BLOB: {
        const auto* data = static_cast<const char*>(sqlite3_column_blob(stmt, i));
        return QByteArray(data, sqlite3_column_bytes(stmt, i));
    }
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(stmt, i)));
    case SQLITE_FLOAT:
        switch (policy) {
        case QSql::LowPrecisionInt32:
            return QVariant(sqlite3_column_int(stmt, i));
        case QSql::LowPrecisionInt64:
            return QVariant(static_cast<qlonglong>(sqlite3_column_int64(stmt, i)));
        default:
            return QVariant(sqlite3_column_double(stmt, i));
        }
    case SQLITE_NULL:
        return QVariant(QMetaType::fromType<QString>());
    default: {
        // Read as the UTF-8 that the file holds: asking SQLite for UTF-16 would make it convert
        // into a buffer of its own first, which QString then copies.
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
        return QString::fromUtf8(text, sqlite3_column_bytes(stmt, i));
    }
    }
}

// The SQLite statement behind a query of Qt's SQLite driver; null for another driver.
sqlite3_stmt* StatementOf(const QSqlQuery& q) {
    const QVariant handle = q.result() ? q.result()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0)
        return nullptr;
    return *static_cast<sqlite3_stmt* const*>(handle.constData());
}

// The text of a failed step, as the driver words it: SQLite's message, then "Unable to fetch
// row". A generic error gives its own message only after the statement is reset.
QString FetchError(sqlite3_stmt* stmt, int rc) {
    if (rc == SQLITE_ERROR || rc == SQLITE_CONSTRAINT)
        sqlite3_reset(stmt);
    const auto* message = static_cast<const QChar*>(sqlite3_errmsg16(sqlite3_db_handle(stmt)));
    QString text = QString(message);
    sqlite3_reset(stmt);
    const QString what = QCoreApplication::translate("QSQLiteResult", "Unable to fetch row");
    return text.isEmpty() ? what : text + u' ' + what;
}

// Builds the Recordset of a query: the columns with their table prefixes, and the values row
// after row in one list (one allocation for all, not one per row). Null becomes a plain null
// QVariant, booleans bool; a date column gets its conversion, made when a value is first read.
class RowReader {
public:
    explicit RowReader(const QSqlRecord& record) : m_count(record.count()) {
        m_columns.reserve(m_count);
        for (int i = 0; i < m_count; ++i) {
            const QString name = record.fieldName(i);
            const qsizetype dot = name.lastIndexOf('.');
            Recordset::Column column{dot >= 0 ? name.left(dot) : QString(), name.mid(dot + 1)};
            const JetWhere::Kind kind = DataAccessPrivate::KindOf(column.name);
            if (kind == JetWhere::Kind::Date) {
                auto reader = std::make_shared<DateReader>();
                column.convert = [reader](const QVariant& raw) { return (*reader)(raw); };
            }
            m_booleans << (kind == JetWhere::Kind::Boolean);
            m_columns << std::move(column);
        }
    }

    void TakeRow(const QSqlQuery& q) {
        for (int i = 0; i < m_count; ++i)
            Take(i, q.value(i));
    }

    // The rows after the current one of the statement. False, with the driver's words for it,
    // if a row cannot be fetched.
    bool TakeRemainingRows(sqlite3_stmt* stmt, QSql::NumericalPrecisionPolicy policy,
                           QString& error) {
        m_lastTexts.fill({-1, 0}, m_count);
        int rc = SQLITE_ROW;
        while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
            for (int i = 0; i < m_count; ++i) {
                const int type = sqlite3_column_type(stmt, i);
                if (type != SQLITE_TEXT || !TakeText(stmt, i))
                    Take(i, SqliteValue(stmt, i, type, policy));
            }
        }
        if (rc == SQLITE_DONE)
            return true;
        error = FetchError(stmt, rc);
        return false;
    }

    std::unique_ptr<Recordset> Result() {
        return std::make_unique<Recordset>(std::move(m_columns), std::move(m_values),
                                           std::move(m_texts));
    }

private:
    // The text of column i (a value of type SQLITE_TEXT) goes to the store of texts, to be made
    // into a QString only when it is read. A text that is the same as the column's in the row
    // before (the rows of one item in a joined query repeat all its fields) takes the bytes
    // stored for that row. False for a text in a column of booleans: Take makes that.
    bool TakeText(sqlite3_stmt* stmt, int i) {
        if (m_booleans.at(i))
            return false;
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
        const int length = sqlite3_column_bytes(stmt, i);
        Recordset::StoredText& last = m_lastTexts[i];
        if (last.offset < 0 || last.length != length ||
            std::memcmp(m_texts.constData() + last.offset, text, static_cast<size_t>(length)) !=
                0) {
            if (m_texts.size() > std::numeric_limits<qint32>::max() - length)
                return false; // a store beyond 2 GB: the text is made at once instead
            last = {static_cast<qint32>(m_texts.size()), length};
            m_texts.append(text, length);
        }
        m_values.append(QVariant::fromValue(last));
        return true;
    }

    void Take(int i, QVariant value) {
        if (value.isNull())
            m_values.emplace_back();
        else if (m_booleans.at(i))
            m_values.emplace_back(value.toLongLong() != 0);
        else
            m_values.append(std::move(value));
    }

    int m_count;
    QList<Recordset::StoredText> m_lastTexts; // offset -1: none yet
    QByteArray m_texts;
    QList<Recordset::Column> m_columns;
    QList<bool> m_booleans;
    QVariantList m_values;
};

int g_savepointCounter = 0;

} // namespace

void DataAccessPrivate::Fail(QString& strErrorMessage, const char* operation,
                             const QString& detail) {
    strErrorMessage = QStringLiteral("QVLTDBFUNCTIONS:DataAccess:") + QLatin1String(operation) +
                      QStringLiteral(": ") + detail;
    TraceLog::Instance().WriteErrorLine(strErrorMessage);
}

namespace {
struct Connection {
    QString name;
    std::function<bool(QString&)> openConfigured;
};

Connection& TheConnection() {
    static Connection connection;
    return connection;
}
} // namespace

void DataAccessPrivate::AttachConnection(const QString& connectionName,
                                         std::function<bool(QString&)> openConfigured) {
    TheConnection() = Connection{connectionName, std::move(openConfigured)};
}

QSqlDatabase DataAccessPrivate::Db() {
    const QString& name = TheConnection().name;
    if (name.isEmpty() || !QSqlDatabase::contains(name))
        return QSqlDatabase();
    return QSqlDatabase::database(name, false);
}

bool DataAccessPrivate::Ready(QString& strErrorMessage, const char* operation) {
    if (Db().isOpen())
        return true;
    QString error = QStringLiteral("No database is open.");
    const Connection& connection = TheConnection();
    if (connection.openConfigured && connection.openConfigured(error))
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
    RowReader rows(q.record());
    // QSqlQuery has fetched the first row when it ran the statement. The rows after it are read
    // from SQLite's statement directly, without the two copies of each value that the driver's
    // row cache makes; another driver is read through QSqlQuery to the end.
    if (q.next()) {
        rows.TakeRow(q);
        if (sqlite3_stmt* stmt = StatementOf(q)) {
            QString error;
            if (!rows.TakeRemainingRows(stmt, q.numericalPrecisionPolicy(), error)) {
                Fail(strErrorMessage, operation, error);
                return false;
            }
        } else {
            while (q.next())
                rows.TakeRow(q);
        }
    }
    if (q.lastError().isValid()) {
        Fail(strErrorMessage, operation, q.lastError().text());
        return false;
    }
    rs = rows.Result();
    return true;
}

bool DataAccessPrivate::ReadIds(const QString& sql, const QVariantList& params, QList<qint64>& ids,
                                qint64& rowsScanned) {
    ids.clear();
    rowsScanned = 0;
    QString error;
    QSqlQuery q;
    if (!Exec(sql, params, error, "ReadIds", &q))
        return false;
    sqlite3_stmt* stmt = StatementOf(q);
    // The first row is fetched through the query; the others, as in Select, from the statement.
    bool more = q.next();
    if (more)
        ids.append(q.value(0).toLongLong());
    int rc = SQLITE_DONE;
    if (stmt) {
        while (more && (rc = sqlite3_step(stmt)) == SQLITE_ROW)
            ids.append(sqlite3_column_int64(stmt, 0));
        rowsScanned = sqlite3_stmt_status(stmt, SQLITE_STMTSTATUS_FULLSCAN_STEP, 0);
    } else {
        while (more && (more = q.next()))
            ids.append(q.value(0).toLongLong());
    }
    if (rc != SQLITE_DONE)
        error = FetchError(stmt, rc);
    else if (q.lastError().isValid())
        error = q.lastError().text();
    if (error.isEmpty())
        return true;
    QString message;
    Fail(message, "ReadIds", error);
    ids.clear();
    return false;
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
                                    std::unique_ptr<Recordset>& rs,
                                    void (*narrow)(JetWhere::Result&)) {
    rs.reset();
    if (!Ready(strErrorMessage, operation))
        return false;
    JetWhere::Result where = WhereFor(sources).Translate(strWhereClause);
    if (narrow)
        narrow(where);
    if (!where.ok()) {
        Fail(strErrorMessage, operation,
             QStringLiteral("The filter cannot be used: ") + where.error + '.');
        return false;
    }
    QString sql = sqlBefore;
    if (!where.sql.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.sql;
    sql += ' ' + sqlAfter;
    if (Select(sql, where.params, strErrorMessage, operation, rs))
        return true;
    // The engine's own limits of depth, in its words, told as what they mean for the filter.
    if (strErrorMessage.contains(QLatin1String("parser stack overflow")) ||
        strErrorMessage.contains(QLatin1String("Expression tree is too large")))
        Fail(strErrorMessage, operation,
             QStringLiteral("The filter cannot be used: its conditions are nested too deeply "
                            "(take away some of the parentheses, Not or Or)."));
    return false;
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
    // A value that is already stored is not written again: showing the service
    // that was shown last, as every start does, costs no commit and no flush.
    Exec(QStringLiteral("INSERT INTO StoreState (StateKey, StateValue) VALUES (?, ?) "
                        "ON CONFLICT (StateKey) DO UPDATE SET StateValue = excluded.StateValue "
                        "WHERE StateValue IS NOT excluded.StateValue"),
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
