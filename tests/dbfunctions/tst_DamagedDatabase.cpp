// Opening a database file that is damaged, read-only or in use: it is refused at once, in words
// a volunteer can act on, the file stays as it was and nothing is left beside it.

#include "DataAccess.h"
#include "WithoutRootPowers.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

DataAccess& da() {
    return DataAccess::Instance();
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QStringList FilesBeside(const QString& path) {
    QStringList found;
    for (const char* suffix : {"-wal", "-shm", "-journal"})
        if (QFile::exists(path + suffix))
            found << path + suffix;
    return found;
}

} // namespace

class tst_DamagedDatabase : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    // A database of some pages, closed, in the given journal mode. Answers the first page of
    // the table ServiceItems and the page size.
    QString makeDatabase(const QString& name, const QString& journalMode,
                         qint64* rootPage = nullptr, qint64* pageSize = nullptr) {
        const QString path = m_dir.path() + '/' + name;
        QString error;
        da().OpenDatabase(path, error);
        if (!error.isEmpty())
            return QString();
        QSqlQuery q(da().Database());
        for (int i = 0; i < 300; ++i)
            q.exec(QStringLiteral("INSERT INTO ServiceItems (ServiceItemTypeID, "
                                  "ServiceItemDescription) VALUES (1, '%1')")
                       .arg(QString(200, QChar('a' + i % 26))));
        q.exec("SELECT rootpage FROM sqlite_master WHERE name = 'ServiceItems'");
        if (rootPage && q.next())
            *rootPage = q.value(0).toLongLong();
        q.exec("PRAGMA page_size");
        if (pageSize && q.next())
            *pageSize = q.value(0).toLongLong();
        q.exec("PRAGMA journal_mode = " + journalMode);
        q.finish();
        da().CloseDatabase();
        return path;
    }

private slots:
    void cleanup() { da().CloseDatabase(); }

    void zeroedPageIsRefusedOnOpenNamingTheBackup() {
        qint64 root = 0, pageSize = 0;
        const QString path = makeDatabase("zeroed.pdb", "WAL", &root, &pageSize);
        QVERIFY(!path.isEmpty());
        QVERIFY(root > 1 && pageSize > 0);
        QByteArray bytes = ReadAll(path);
        QVERIFY(bytes.size() >= root * pageSize);
        bytes.replace((root - 1) * pageSize, pageSize, QByteArray(pageSize, '\0'));
        QVERIFY(WriteAll(path, bytes));
        QVERIFY(WriteAll(path + ".v1.bak", "a backup"));

        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.contains("The file is damaged and was not opened"), qPrintable(error));
        QVERIFY2(error.contains("Restore it from the backup " + path + ".v1.bak."),
                 qPrintable(error));
        QVERIFY(!da().IsOpen());
        QCOMPARE(ReadAll(path), bytes);
        QCOMPARE(FilesBeside(path), QStringList());
    }

    void fileThatIsNoDatabaseIsRefusedAsDamaged() {
        const QString path = m_dir.path() + "/letter.pdb";
        const QByteArray bytes = QByteArray("Dear friends, ").repeated(500);
        QVERIFY(WriteAll(path, bytes));
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.contains("The file is damaged"), qPrintable(error));
        QVERIFY2(error.contains("Restore it from your latest backup copy."), qPrintable(error));
        QVERIFY(!da().IsOpen());
        QCOMPARE(ReadAll(path), bytes);
        QCOMPARE(FilesBeside(path), QStringList());
    }

    void readOnlyFileIsRefusedInPlainWords() {
        const QString path = makeDatabase("readonly.pdb", "DELETE");
        QVERIFY(!path.isEmpty());
        const QByteArray before = ReadAll(path);
        QVERIFY(
            QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        QString error;
        {
            WithoutRootPowers asAnyUser;
            da().OpenDatabase(path, error);
        }
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY2(error.contains("The file is read-only, and Corvantis must write to it."),
                 qPrintable(error));
        QVERIFY2(!error.contains(" in: "), qPrintable(error));
        QVERIFY(!da().IsOpen());
        QCOMPARE(ReadAll(path), before);
        QCOMPARE(FilesBeside(path), QStringList());
    }

    void fileInUseByAnotherProgramIsRefusedInPlainWords() {
        const QString path = makeDatabase("locked.pdb", "DELETE");
        QVERIFY(!path.isEmpty());
        QString error;
        {
            QSqlDatabase other = QSqlDatabase::addDatabase("QSQLITE", "other program");
            other.setDatabaseName(path);
            QVERIFY(other.open());
            QSqlQuery q(other);
            QVERIFY(q.exec("BEGIN EXCLUSIVE"));
            QVERIFY(q.exec("UPDATE ServiceItems SET ServiceItemNotes = 'x'"));
            da().OpenDatabase(path, error); // waits out the busy timeout, then refuses
            QVERIFY(q.exec("ROLLBACK"));
            other.close();
        }
        QSqlDatabase::removeDatabase("other program");
        QVERIFY2(error.contains("The file is in use by another program."), qPrintable(error));
        QVERIFY(!da().IsOpen());
    }

    void soundFileStillOpens() {
        const QString path = makeDatabase("sound.pdb", "WAL");
        QVERIFY(!path.isEmpty());
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(da().IsOpen());
    }
};

QTEST_GUILESS_MAIN(tst_DamagedDatabase)
#include "tst_DamagedDatabase.moc"
