#include "DataAccess.h"

#include "TraceLog.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

// The schema of Corvantis.pdb and its upgrades.
//
// A new file gets schema.sql (the current schema with its seed rows) and user_version
// CurrentSchemaVersion(). An older file is first copied to "<file>.v<N>.bak" and then upgraded
// one step per version, all steps in one transaction: either the file reaches the current
// version with every row kept, or it stays as it was. A file written by a newer version is
// left untouched and not opened.
//
// Version history:
//   1  the tables of the first release
//   2  StoreState (what the program remembers per database, e.g. the last shown short list)
//   3  ServiceItemWords, the words of each item for the quick filter, kept by triggers

bool CreateOrUpgradeSchema(QSqlDatabase& db, const QString& path, QString& error);
// DataAccess_ItemWords.cpp
QStringList ItemWordsSchema();

namespace {

constexpr int kCurrentVersion = 3;

bool Run(QSqlDatabase& db, const QString& sql, QString& error) {
    QSqlQuery q(db);
    if (q.exec(sql))
        return true;
    error = q.lastError().text() + QStringLiteral(" in: ") + sql.left(120);
    return false;
}

int UserVersion(QSqlDatabase& db) {
    QSqlQuery q(db);
    q.exec(QStringLiteral("PRAGMA user_version"));
    return q.next() ? q.value(0).toInt() : 0;
}

bool HasTables(QSqlDatabase& db) {
    QSqlQuery q(db);
    q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table'"));
    return q.next() && q.value(0).toInt() > 0;
}

QStringList SchemaStatements() {
    QFile file(QStringLiteral(":/dbfunctions/schema.sql"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList statements;
    for (const QString& part : QString::fromUtf8(file.readAll()).split(QStringLiteral("\n--;"))) {
        QStringList lines;
        for (const QString& line : part.split('\n'))
            if (!line.trimmed().startsWith(QStringLiteral("--")))
                lines << line;
        const QString statement = lines.join('\n').trimmed();
        if (!statement.isEmpty())
            statements << statement;
    }
    return statements;
}

bool CreateSchema(QSqlDatabase& db, QString& error) {
    QStringList statements = SchemaStatements();
    if (statements.isEmpty()) {
        error = QStringLiteral("The schema of the database is missing from the program.");
        return false;
    }
    statements << ItemWordsSchema();
    if (!Run(db, QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    for (const QString& statement : statements) {
        if (!Run(db, statement, error)) {
            Run(db, QStringLiteral("ROLLBACK"), error);
            return false;
        }
    }
    return Run(db, QStringLiteral("PRAGMA user_version = %1").arg(kCurrentVersion), error) &&
           Run(db, QStringLiteral("COMMIT"), error);
}

// One step per version: the statements that take a file from version N to N + 1.
QStringList UpgradeStep(int fromVersion) {
    switch (fromVersion) {
    case 1:
        return {QStringLiteral("CREATE TABLE IF NOT EXISTS StoreState ("
                               "StateKey TEXT PRIMARY KEY, StateValue)")};
    case 2:
        return ItemWordsSchema();
    default:
        return {};
    }
}

bool Upgrade(QSqlDatabase& db, const QString& path, int version, QString& error) {
    const QString backup = path + QStringLiteral(".v%1.bak").arg(version);
    QFile::remove(backup);
    QSqlQuery copy(db);
    copy.prepare(QStringLiteral("VACUUM INTO ?"));
    copy.addBindValue(backup);
    if (!copy.exec()) {
        error = QStringLiteral("No backup could be made before the upgrade: ") +
                copy.lastError().text();
        return false;
    }
    if (!Run(db, QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    for (int step = version; step < kCurrentVersion; ++step) {
        for (const QString& statement : UpgradeStep(step)) {
            if (!Run(db, statement, error)) {
                QString ignored;
                Run(db, QStringLiteral("ROLLBACK"), ignored);
                return false;
            }
        }
    }
    if (!Run(db, QStringLiteral("PRAGMA user_version = %1").arg(kCurrentVersion), error) ||
        !Run(db, QStringLiteral("COMMIT"), error))
        return false;
    TraceLog::Instance().WriteTraceLine(
        QStringLiteral("QVLTDBFUNCTIONS:DataAccess:OpenDatabase: %1 upgraded from version %2 to "
                       "%3, backup %4")
            .arg(path)
            .arg(version)
            .arg(kCurrentVersion)
            .arg(backup));
    return true;
}

} // namespace

int DataAccess::CurrentSchemaVersion() {
    return kCurrentVersion;
}

bool CreateOrUpgradeSchema(QSqlDatabase& db, const QString& path, QString& error) {
    const int version = UserVersion(db);
    if (version == 0 && !HasTables(db))
        return CreateSchema(db, error);
    if (version > kCurrentVersion) {
        error = QStringLiteral("The file was written by a newer version of Corvantis (schema "
                               "version %1; this version knows %2) and was left untouched.")
                    .arg(version)
                    .arg(kCurrentVersion);
        return false;
    }
    if (version == 0) {
        error = QStringLiteral("The file is not a Corvantis database.");
        return false;
    }
    if (version < kCurrentVersion)
        return Upgrade(db, path, version, error);
    return true;
}
