#include "TraceLog.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#include <sqlite3.h>

// What opening a database file checks before the program uses it, and how a refused open is
// told to a person: a damaged file is found at once (not when a query first reaches the broken
// page), and what a refused open left beside the file is removed again.

bool CheckDatabaseIntact(QSqlDatabase& db, QString& error);
QString PhraseOpenRefusal(const QString& path, const QString& error);
QStringList CompanionFilesPresent(const QString& path);
void RemoveCompanionFilesCreated(const QString& path, const QStringList& presentBefore);

namespace {

// The check stops after this long on a very large file; what it has read by then is checked.
constexpr qint64 kCheckMilliseconds = 3000;

int StopWhenLate(void* timer) {
    return static_cast<QElapsedTimer*>(timer)->hasExpired(kCheckMilliseconds) ? 1 : 0;
}

sqlite3* HandleOf(QSqlDatabase& db) {
    const QVariant handle = db.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}

// The newest backup beside the file ("<file>.v1.bak" and the like); empty when there is none.
QString NewestBackup(const QString& path) {
    const QFileInfo file(path);
    const QFileInfoList found = file.dir().entryInfoList(
        {file.fileName() + QStringLiteral("*.bak")}, QDir::Files, QDir::Time);
    return found.isEmpty() ? QString() : found.first().absoluteFilePath();
}

bool Mentions(const QString& error, std::initializer_list<const char*> words) {
    for (const char* word : words)
        if (error.contains(QLatin1String(word), Qt::CaseInsensitive))
            return true;
    return false;
}

const char* const kCompanionSuffixes[] = {"-wal", "-shm", "-journal"};

} // namespace

// PRAGMA quick_check, cut short after kCheckMilliseconds (a very large file is then taken as
// it is, and the trace says so). False with SQLite's own words for a damaged file.
bool CheckDatabaseIntact(QSqlDatabase& db, QString& error) {
    sqlite3* handle = HandleOf(db);
    QElapsedTimer timer;
    timer.start();
    if (handle)
        sqlite3_progress_handler(handle, 1000, StopWhenLate, &timer);
    QSqlQuery check(db);
    const bool ran = check.exec(QStringLiteral("PRAGMA quick_check"));
    QStringList problems;
    while (ran && check.next())
        if (check.value(0).toString() != QLatin1String("ok"))
            problems << check.value(0).toString();
    const bool interrupted = !ran && handle && sqlite3_errcode(handle) == SQLITE_INTERRUPT;
    check.finish();
    if (handle)
        sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    if (interrupted) {
        TraceLog::Instance().WriteTraceLine(
            QStringLiteral("QVLTDBFUNCTIONS:DataAccess:OpenDatabase: the quick check of %1 was "
                           "stopped after %2 ms; the file is large")
                .arg(db.databaseName())
                .arg(kCheckMilliseconds));
        return true;
    }
    if (!ran) {
        error = check.lastError().text();
        return false;
    }
    if (problems.isEmpty())
        return true;
    error = QStringLiteral("database disk image is malformed: ") + problems.first();
    return false;
}

QString PhraseOpenRefusal(const QString& path, const QString& error) {
    if (Mentions(error, {"malformed", "not a database", "corrupt"})) {
        const QString backup = NewestBackup(path);
        return QStringLiteral("The file is damaged and was not opened, so that nothing more is "
                              "lost (%1). ")
                   .arg(error) +
               (backup.isEmpty() ? QStringLiteral("Restore it from your latest backup copy.")
                                 : QStringLiteral("Restore it from the backup %1.").arg(backup));
    }
    if (Mentions(error, {"locked", "busy"}))
        return QStringLiteral("The file is in use by another program. Close that program (or "
                              "wait until it has finished) and open the file again.");
    if (Mentions(error, {"readonly", "read-only", "read only"}))
        return QStringLiteral("The file is read-only, and Corvantis must write to it. Make the "
                              "file and its folder writable, or copy the file to a folder of "
                              "your own.");
    if (Mentions(error, {"disk is full", "disk full", "no space"}))
        return QStringLiteral("The disc is full. Make room on it and open the file again.");
    if (Mentions(error, {"unable to open", "cannot open"}))
        return QStringLiteral("The file cannot be opened: its folder is missing, or may not be "
                              "read or written.");
    return error;
}

QStringList CompanionFilesPresent(const QString& path) {
    QStringList present;
    for (const char* suffix : kCompanionSuffixes)
        if (QFileInfo::exists(path + QLatin1String(suffix)))
            present << path + QLatin1String(suffix);
    return present;
}

// Removes the files SQLite made beside the database during an open that was then refused;
// files that were there before stay (another program may be using them).
void RemoveCompanionFilesCreated(const QString& path, const QStringList& presentBefore) {
    for (const QString& file : CompanionFilesPresent(path))
        if (!presentBefore.contains(file))
            QFile::remove(file);
}
