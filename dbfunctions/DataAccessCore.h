#pragma once

// Shared machinery of the DataAccess operations (not part of the public interface): running
// statements with bound values, turning result rows into Recordsets, error texts, the write
// guard, and the descriptions of the tables for the Jet WHERE translation.

#include "DataAccess.h"
#include "JetWhere.h"

#include <QSqlQuery>

#include <functional>

class DataAccessPrivate {
public:
    // "QVLTDBFUNCTIONS:DataAccess:<operation>: " + detail into strErrorMessage and the trace.
    static void Fail(QString& strErrorMessage, const char* operation, const QString& detail);
    // The connection the operations run on: its name, and how to open the configured database
    // when it is not open. DataAccess attaches both once, when it is made; the operations then
    // reach their connection through here alone.
    static void AttachConnection(const QString& connectionName,
                                 std::function<bool(QString&)> openConfigured);
    // The open connection; opens the configured database first when none is open.
    static bool Ready(QString& strErrorMessage, const char* operation);
    static QSqlDatabase Db();

    // Runs one statement. False (and the error text) on failure.
    static bool Exec(const QString& sql, const QVariantList& params, QString& strErrorMessage,
                     const char* operation, QSqlQuery* query = nullptr);
    // Runs a query and reads all its rows into a Recordset. A column named "Table.Name"
    // (an alias in the SQL) keeps its table prefix for Fields().
    static bool Select(const QString& sql, const QVariantList& params, QString& strErrorMessage,
                       const char* operation, std::unique_ptr<Recordset>& rs);
    // The whole numbers of the first column of every row, read straight from the statement;
    // rowsScanned gets the rows the engine stepped over in full scans of a table. False (with
    // nothing read) when the statement fails.
    static bool ReadIds(const QString& sql, const QVariantList& params, QList<qint64>& ids,
                        qint64& rowsScanned);
    // The first column of the first row; a null QVariant when there is no row.
    static QVariant Scalar(const QString& sql, const QVariantList& params, QString& strErrorMessage,
                           const char* operation);

    // A query over some tables filtered by a Jet clause: sqlBefore + " WHERE " + translated
    // clause + sqlAfter. The tables are named as the clause may name them, with the aliases of
    // the SQL. narrow, when given, may add to the translated condition a test that every row
    // of the condition passes too, for speed (it must not change the rows).
    struct Source {
        QString table;
        QString alias;
    };
    static bool SelectWhere(const QString& sqlBefore, const QList<Source>& sources,
                            const QString& strWhereClause, const QString& sqlAfter,
                            QString& strErrorMessage, const char* operation,
                            std::unique_ptr<Recordset>& rs,
                            void (*narrow)(JetWhere::Result&) = nullptr);
    static JetWhere WhereFor(const QList<Source>& sources);

    // Column metadata read from the open file.
    static void LoadSchemaInfo();
    static JetWhere::Kind KindOf(const QString& column);
    static QStringList ColumnsOf(const QString& table);

    // "alias."Col" AS "Table.Col", ..." for a select list that keeps the table prefixes.
    static QString Columns(const QString& alias, const QString& table, const QStringList& names);
    // The id of the row the last INSERT made.
    static qint32 LastInsertId();
    // Remembered values of the open database (table StoreState).
    static void SetState(const QString& key, const QVariant& value, QString& strErrorMessage,
                         const char* operation);
    static QVariant State(const QString& key);
    // The next Position of a list: 1 + the largest of table.Position where column = id.
    static qint32 NextPosition(const QString& table, const QString& column, qint32 id,
                               QString& strErrorMessage, const char* operation);
    // Empty text becomes Null, as the optional text fields store it.
    static QVariant EmptyToNull(const QString& text) {
        return text.isEmpty() ? QVariant() : QVariant(text);
    }

    // "@@" stands for an apostrophe in stored texts.
    static QString ToDisplay(const QString& text) {
        return QString(text).replace(QLatin1String("@@"), QLatin1String("'"));
    }
    static QString ToStored(const QString& text) {
        return QString(text).replace(QLatin1Char('\''), QLatin1String("@@"));
    }
    // Answers "<operation> is not available yet ..." for the operations of a later release.
    static void NotAvailable(QString& strErrorMessage, const char* operation, const QString& what);

    // The stored text forms.
    static QString Now();
    static QVariant TextOrNull(const QString& text) { return text.isNull() ? QVariant() : text; }
};

// Guard of a multi-step write: a SAVEPOINT that joins an open engine transaction or stands on
// its own. Rolled back unless Commit() is called.
class WriteScope {
public:
    WriteScope(QString& strErrorMessage, const char* operation);
    ~WriteScope();
    bool Ok() const { return m_ok; }
    bool Commit();

private:
    QString& m_error;
    const char* m_operation;
    QString m_name;
    bool m_ok = false;
    bool m_done = false;
};
