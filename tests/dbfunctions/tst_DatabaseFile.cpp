// The database file: creation on first open, upgrades that keep a user's rows, files of a newer
// version left alone, and opening the configured or the sample database.

#include "DataAccess.h"
#include "SampleDatabase.h"
#include "Settings.h"
#include "TestDatabase.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Runs statements on a file without DataAccess (to make old or foreign files).
bool RunOn(const QString& path, const QStringList& statements) {
    bool ok = true;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "raw");
        db.setDatabaseName(path);
        ok = db.open();
        QSqlQuery q(db);
        for (const QString& statement : statements)
            ok = ok && q.exec(statement);
        db.close();
    }
    QSqlDatabase::removeDatabase("raw");
    return ok;
}

} // namespace

class tst_DatabaseFile : public QObject {
    Q_OBJECT

private:
    DataAccess& da() { return DataAccess::Instance(); }

private slots:
    void cleanup() { da().CloseDatabase(); }

    void openCreatesAMissingFileWithSchemaAndSeedRows() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/sub/Corvantis.pdb";
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(QFile::exists(path));
        QCOMPARE(da().DatabasePath(), path);
        std::unique_ptr<Recordset> rs;
        da().GetServiceItemTypes(error, rs);
        QVERIFY(rs->RecordCount() > 10);
        QCOMPARE(da().Database().exec("PRAGMA user_version").next(), true);
    }

    void reopeningKeepsTheRows() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Corvantis.pdb";
        QString error;
        da().OpenDatabase(path, error);
        qint32 id = 0;
        da().AddService(error, id);
        da().CloseDatabase();
        da().OpenDatabase(path, error);
        QVERIFY(error.isEmpty());
        std::unique_ptr<Recordset> rs;
        da().GetAllServices("", 4, error, rs);
        QCOMPARE(rs->RecordCount(), 1);
    }

    void olderFileIsUpgradedWithItsRowsKept() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Corvantis.pdb";
        QString error;
        da().OpenDatabase(path, error);
        qint32 item = 0;
        da().AddServiceItem("Kept through the upgrade", "", "", 1, error, true, item);
        da().CloseDatabase();
        // Make it a file of version 1, which had no StoreState table.
        QVERIFY(RunOn(path, {"DROP TABLE StoreState", "PRAGMA user_version = 1"}));
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(da().Database().exec("PRAGMA user_version").next(), true);
        QSqlQuery version = da().Database().exec("PRAGMA user_version");
        QVERIFY(version.next());
        QCOMPARE(version.value(0).toInt(), DataAccess::CurrentSchemaVersion());
        QString description;
        da().GetServiceItemDescription(item, error, description);
        QCOMPARE(description, QString("Kept through the upgrade"));
        da().ShortListShown(5); // needs the table of version 2
        QSqlQuery state = da().Database().exec("SELECT count(*) FROM StoreState");
        QVERIFY(state.next());
        QCOMPARE(state.value(0).toInt(), 1);
        QVERIFY(QFile::exists(path + ".v1.bak"));
    }

    void fileOfANewerVersionIsLeftUntouched() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Corvantis.pdb";
        QString error;
        da().OpenDatabase(path, error);
        da().CloseDatabase();
        // A file in the rollback journal mode, as another program may leave it.
        QVERIFY(RunOn(path, {"PRAGMA journal_mode = DELETE", "PRAGMA user_version = 99"}));
        const QByteArray before = [&] {
            QFile f(path);
            f.open(QIODevice::ReadOnly);
            return f.readAll();
        }();
        da().OpenDatabase(path, error);
        QVERIFY(error.contains("newer version"));
        QVERIFY(!da().IsOpen());
        QFile after(path);
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), before);
    }

    void fileThatIsNoCorvantisDatabaseIsRefused() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Other.pdb";
        QVERIFY(RunOn(path, {"CREATE TABLE Something (x)"}));
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY(error.contains("not a Corvantis database"));
    }

    void firstOperationOpensTheConfiguredDatabase() {
        QVERIFY(Settings::WritePrivateProfileString("Options", "IsSampleMode", "False"));
        QTemporaryDir dir;
        QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", dir.path()));
        da().CloseDatabase();
        QString error;
        bool exists = false;
        da().ServiceItemExists(1, error, exists);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(exists);
        QCOMPARE(da().DatabasePath(), dir.path() + "/Corvantis.pdb");
        QString folder;
        da().GetDataFolder(folder);
        QCOMPARE(folder, dir.path() + "/");
        Settings::DeletePrivateProfileKey("Paths", "Data");
    }

    void sampleModeOpensTheSampleDatabase() {
        QVERIFY(Settings::WritePrivateProfileString("Options", "IsSampleMode", "True"));
        QVERIFY(DataAccess::IsSampleMode());
        QString error;
        da().OpenConfiguredDatabase(error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(da().DatabasePath(), DataAccess::SampleDatabasePath());
        QString content;
        da().GetContentFolder(content);
        QVERIFY(QFile::exists(content + "/Old Hundredth.wav"));
        Settings::WritePrivateProfileString("Options", "IsSampleMode", "False");
    }
};

QTEST_GUILESS_MAIN(tst_DatabaseFile)
#include "tst_DatabaseFile.moc"
