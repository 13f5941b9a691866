#include "DataAccess.h"

#include "ChangeStamps.h"

#include "DataAccessCore.h"
#include "Settings.h"
#include "TraceLog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>

#include <sqlite3.h>

#include <atomic>

// Opening and closing the database file, the folders, and the engine's transaction.
// The schema and its upgrades are in DataAccess_Schema.cpp.

bool CreateOrUpgradeSchema(QSqlDatabase& db, const QString& path, QString& error);
// DataAccess_OpenChecks.cpp
bool CheckDatabaseIntact(QSqlDatabase& db, QString& error);
QString PhraseOpenRefusal(const QString& path, const QString& error);
QStringList CompanionFilesPresent(const QString& path);
void RemoveCompanionFilesCreated(const QString& path, const QStringList& presentBefore);

namespace {
const QString kConnection = QStringLiteral("corvantis_dataaccess");
// Files opened so far in this process: part of DatabaseChangeStamp, as a file opened again starts
// its counts afresh.
qint64 g_filesOpened = 0;

// PRAGMA data_version, prepared once for the open connection and finalized before that
// connection closes: it is read before every slide and at every change of item, and preparing
// it anew each time cost more than reading it.
struct DataVersionStatement {
    sqlite3* connection = nullptr;
    sqlite3_stmt* statement = nullptr;
};
DataVersionStatement g_dataVersion;

void FinalizeDataVersion() {
    if (g_dataVersion.statement)
        sqlite3_finalize(g_dataVersion.statement);
    g_dataVersion = {};
}

// The connection's data_version (it changes when another connection has committed); -1 when it
// cannot be read.
qint64 ReadDataVersion(sqlite3* connection) {
    if (g_dataVersion.connection != connection) {
        FinalizeDataVersion();
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(connection, "PRAGMA data_version", -1, SQLITE_PREPARE_PERSISTENT,
                               &statement, nullptr) != SQLITE_OK) {
            sqlite3_finalize(statement);
            return -1;
        }
        g_dataVersion = {connection, statement};
    }
    const qint64 version = sqlite3_step(g_dataVersion.statement) == SQLITE_ROW
                               ? sqlite3_column_int64(g_dataVersion.statement, 0)
                               : -1;
    sqlite3_reset(g_dataVersion.statement);
    return version;
}

// The holds of DatabaseStampHeld now living, and the reading of data_version they share.
int g_stampHolds = 0;
quint64 g_holdsMade = 0;
std::atomic<quint64> g_holdNow{0}; // read by trace lines of any thread
sqlite3* g_heldConnection = nullptr;
qint64 g_heldDataVersion = -1;

qint64 DataVersionHeldOrRead(sqlite3* connection) {
    if (g_stampHolds > 0 && g_heldConnection == connection)
        return g_heldDataVersion;
    const qint64 version = ReadDataVersion(connection);
    if (g_stampHolds > 0 && version >= 0) {
        g_heldConnection = connection;
        g_heldDataVersion = version;
    }
    return version;
}

void CloseAtExit() {
    DataAccess::Instance().CloseDatabase();
}
} // namespace

DataAccess& DataAccess::Instance() {
    static DataAccess* instance = [] {
        auto* created = new DataAccess; // never released; closed in order at program end
        qAddPostRoutine(CloseAtExit);
        return created;
    }();
    return *instance;
}

DataAccess::DataAccess() : m_connectionName(kConnection) {
    DataAccessPrivate::AttachConnection(m_connectionName,
                                        [this](QString& error) { return EnsureOpen(error); });
}

DataAccess::~DataAccess() = default;

QSqlDatabase DataAccess::Database() {
    if (!QSqlDatabase::contains(m_connectionName))
        return QSqlDatabase();
    return QSqlDatabase::database(m_connectionName, false);
}

bool DataAccess::IsOpen() const {
    return QSqlDatabase::contains(m_connectionName) &&
           QSqlDatabase::database(m_connectionName, false).isOpen();
}

QString DataAccess::DefaultDatabasePath() {
    return Settings::DataFolder() + QStringLiteral("/Corvantis.pdb");
}

QString DataAccess::SampleDatabasePath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Corvantis/Sample/Corvantis.pdb");
}

bool DataAccess::IsSampleMode() {
    return Settings::GetPrivateProfileString(QStringLiteral("Options"),
                                             QStringLiteral("IsSampleMode"))
               .compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0;
}

namespace {

bool RegisterFunctions(QSqlDatabase& db, QString& error) {
    const QVariant handle = db.driver()->handle();
    if (handle.isValid() && JetWhere::RegisterFunctions(*static_cast<void* const*>(handle.data())))
        return true;
    error = QStringLiteral("The filter functions could not be registered.");
    return false;
}

bool ConfigureConnection(QSqlDatabase& db, QString& error) {
    QSqlQuery q(db);
    // The page cache holds up to 32 MB (the engine's default is 2 MB): a library of ten
    // thousand items is read from memory on every key of a gallery's filter instead of from
    // the file again.
    for (const char* pragma :
         {"PRAGMA foreign_keys = ON", "PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL",
          "PRAGMA busy_timeout = 5000", "PRAGMA cache_size = -32768"}) {
        if (!q.exec(QLatin1String(pragma))) {
            error = q.lastError().text();
            return false;
        }
    }
    return true;
}

} // namespace

void DataAccess::OpenDatabase(const QString& strPath, QString& strErrorMessage) {
    strErrorMessage.clear();
    CloseDatabase();
    const QString path = QDir::cleanPath(QDir::fromNativeSeparators(strPath));
    if (path.isEmpty()) {
        DataAccessPrivate::Fail(strErrorMessage, "OpenDatabase", QStringLiteral("No file named."));
        return;
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QStringList companionsBefore = CompanionFilesPresent(path);
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
        db.setDatabaseName(path);
        // The file is checked, and its version read, before any setting touches it, so that a
        // damaged file or one this program must not open stays exactly as it was.
        if (!db.open())
            error = db.lastError().text();
        else if (RegisterFunctions(db, error) && CheckDatabaseIntact(db, error) &&
                 CreateOrUpgradeSchema(db, path, error))
            ConfigureConnection(db, error);
    }
    if (!error.isEmpty()) {
        CloseDatabase();
        RemoveCompanionFilesCreated(path, companionsBefore);
        DataAccessPrivate::Fail(
            strErrorMessage, "OpenDatabase",
            QStringLiteral("Cannot open %1: %2").arg(path, PhraseOpenRefusal(path, error)));
        return;
    }
    m_databasePath = path;
    ++g_filesOpened;
    DataAccessPrivate::LoadSchemaInfo();
    const QString configured =
        Settings::GetPrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Content"));
    m_contentFolder = configured.isEmpty()
                          ? QFileInfo(path).absolutePath() + QStringLiteral("/Content")
                          : QDir::cleanPath(QDir::fromNativeSeparators(configured));
}

void DataAccess::OpenConfiguredDatabase(QString& strErrorMessage) {
    if (IsSampleMode())
        OpenSampleDatabase(strErrorMessage);
    else
        OpenDatabase(DefaultDatabasePath(), strErrorMessage);
}

void DataAccess::CloseDatabase() {
    FinalizeDataVersion();
    g_heldConnection = nullptr;
    if (QSqlDatabase::contains(m_connectionName)) {
        {
            QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
            if (db.isOpen()) {
                if (m_inTransaction)
                    db.exec(QStringLiteral("COMMIT"));
                if (!m_databasePath.isEmpty())
                    db.exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
                db.close();
            }
        }
        QSqlDatabase::removeDatabase(m_connectionName);
    }
    m_inTransaction = false;
    m_databasePath.clear();
}

bool DataAccess::EnsureOpen(QString& strErrorMessage) {
    if (IsOpen())
        return true;
    QString error;
    OpenConfiguredDatabase(error);
    if (!error.isEmpty()) {
        strErrorMessage = error;
        return false;
    }
    return true;
}

// ---- Transactions ---------------------------------------------------------------------------

void DataAccess::BeginTrans() {
    QString error;
    if (!DataAccessPrivate::Ready(error, "BeginTrans"))
        return;
    if (m_inTransaction) {
        // A transaction that was never ended: keep its work rather than lose it.
        TraceLog::Instance().WriteTraceLine(
            QStringLiteral("QVLTDBFUNCTIONS:DataAccess:BeginTrans: an open transaction was "
                           "committed before a new one began"));
        CommitTrans();
    }
    if (DataAccessPrivate::Exec(QStringLiteral("BEGIN IMMEDIATE"), {}, error, "BeginTrans"))
        m_inTransaction = true;
}

void DataAccess::CommitTrans() {
    if (!m_inTransaction)
        return;
    QString error;
    if (DataAccessPrivate::Exec(QStringLiteral("COMMIT"), {}, error, "CommitTrans"))
        m_inTransaction = false;
}

void DataAccess::Rollback() {
    if (!m_inTransaction)
        return;
    QString error;
    DataAccessPrivate::Exec(QStringLiteral("ROLLBACK"), {}, error, "Rollback");
    m_inTransaction = false;
}

// ---- Folders ---------------------------------------------------------------------------

void DataAccess::GetContentFolder(QString& strFolder) {
    QString ignored;
    EnsureOpen(ignored);
    strFolder = m_contentFolder;
    while (strFolder.size() > 1 && strFolder.endsWith('/'))
        strFolder.chop(1);
}

void DataAccess::GetDataFolder(QString& strFolder) {
    QString ignored;
    EnsureOpen(ignored);
    strFolder = m_databasePath.isEmpty() ? Settings::DataFolder()
                                         : QFileInfo(m_databasePath).absolutePath();
    if (!strFolder.endsWith('/'))
        strFolder += '/';
}

void DataAccess::GetFolderOfPath(const QString& strPath, QString& strFolder) {
    const qsizetype slash = qMax(strPath.lastIndexOf('/'), strPath.lastIndexOf('\\'));
    strFolder = slash < 0 ? QString() : strPath.left(slash + 1);
}

QString DatabaseChangeStamp() {
    DataAccess& da = DataAccess::Instance();
    if (!da.IsOpen())
        return QString();
    QSqlDatabase db = da.Database();
    const QVariant handle = db.driver()->handle();
    auto* connection = handle.isValid() ? *static_cast<sqlite3* const*>(handle.data()) : nullptr;
    if (!connection)
        return QString();
    // data_version changes when another connection has committed; total_changes counts the
    // rows written on this one.
    const qint64 other = DataVersionHeldOrRead(connection);
    return QStringLiteral("%1|%2|%3|%4")
        .arg(da.DatabasePath())
        .arg(g_filesOpened)
        .arg(sqlite3_total_changes64(connection))
        .arg(other);
}

DatabaseStampHeld::DatabaseStampHeld() {
    if (g_stampHolds++ == 0)
        g_holdNow = ++g_holdsMade;
}

DatabaseStampHeld::~DatabaseStampHeld() {
    if (--g_stampHolds == 0) {
        g_heldConnection = nullptr;
        g_holdNow = 0;
    }
}

quint64 StampHoldNow() {
    return g_holdNow.load(std::memory_order_relaxed);
}
