// The engine's transaction: commit, rollback, a BeginTrans never ended, the close of the
// program, and a process killed in the middle of a save.

#include "DataAccess.h"
#include "TestDatabase.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

namespace {

// The helper side of killedInTheMiddleOfASaveLeavesAConsistentFile: runs in a child process
// started from this same executable; opens the file, saves in a loop inside transactions and
// leaves a marker file when three saves are done and the fourth is under way. It never ends by
// itself.
int RunSavingHelper(const QString& path) {
    QString error;
    DataAccess& da = DataAccess::Instance();
    da.OpenDatabase(path, error);
    if (!error.isEmpty())
        return 2;
    for (int round = 0;; ++round) {
        da.BeginTrans();
        qint32 service = 0;
        da.AddService(error, service);
        for (int row = 0; row < 200; ++row)
            da.AddServiceContentItem(service, 1, true, QString(), error);
        if (round == 3) { // three saves done, the fourth under way: tell the test
            QFile marker(path + ".saving");
            marker.open(QIODevice::WriteOnly);
        }
        da.CommitTrans();
    }
}

qint32 CountIn(const QString& path, const QString& sql) {
    qint32 value = -1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "check");
        db.setDatabaseName(path);
        if (db.open()) {
            QSqlQuery q(db);
            if (q.exec(sql) && q.next())
                value = q.value(0).toInt();
        }
        db.close();
    }
    QSqlDatabase::removeDatabase("check");
    return value;
}

QString IntegrityOf(const QString& path) {
    QString result;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "integrity");
        db.setDatabaseName(path);
        if (db.open()) {
            QSqlQuery q(db);
            if (q.exec("PRAGMA integrity_check") && q.next())
                result = q.value(0).toString();
        }
        db.close();
    }
    QSqlDatabase::removeDatabase("integrity");
    return result;
}

} // namespace

class tst_Transactions : public QObject {
    Q_OBJECT

private:
    DataAccess& da() { return DataAccess::Instance(); }

private slots:
    void commitKeepsTheWrites() {
        TestDatabase db;
        da().BeginTrans();
        QVERIFY(da().InTransaction());
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Kept");
        da().CommitTrans();
        QVERIFY(!da().InTransaction());
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {item}), 1);
    }

    void rollbackUndoesEveryWriteSinceBeginTrans() {
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Before");
        QString error;
        da().BeginTrans();
        da().SaveServiceItemGeneral(1, item, "Changed", "", "", "", "", "", "", error);
        da().DeleteServiceItemPoints(item, error);
        da().AddServiceItemResource(item, "Book", error);
        QVERIFY(error.isEmpty());
        da().Rollback();
        QCOMPARE(
            db.Scalar("SELECT ServiceItemDescription FROM ServiceItems WHERE ServiceItemID = ?",
                      {item})
                .toString(),
            QString("Before"));
        QCOMPARE(db.Count("ServiceItemResources"), 0);
    }

    void pointsSaveWithoutPointsRollsBackTheClearing() {
        // The points editor's path: BeginTrans, delete the points, clear the flag, roll back.
        TestDatabase db;
        const qint32 item = db.AddServiceItem(TestDatabase::PointsOnly, "Outline");
        QVERIFY(db.AddPoints(item, {{"P1", "", "One", ""}}));
        QString error;
        da().BeginTrans();
        da().DeleteServiceItemPoints(item, error);
        da().ClearRunAsPointsList(item, error);
        da().Rollback();
        QCOMPARE(db.Count("ServiceItemPoints"), 1);
        bool points = false;
        da().GetServiceItemShowAsPoints(item, error, points);
        QVERIFY(points);
    }

    void unendedBeginTransIsCommittedByTheNextBeginTrans() {
        TestDatabase db;
        da().BeginTrans();
        const qint32 left = db.AddServiceItem(TestDatabase::Prayer, "Left pending");
        // The editor leaves without ending; the next save begins again and rolls back its own.
        da().BeginTrans();
        const qint32 later = db.AddServiceItem(TestDatabase::Prayer, "Rolled back");
        da().Rollback();
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {left}), 1);
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {later}), 0);
    }

    void unendedBeginTransIsCommittedByTheNextCommitTrans() {
        TestDatabase db;
        da().BeginTrans();
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Pending");
        QString error;
        da().AddServiceResource(db.AddService("S"), "Projector", error);
        da().CommitTrans();
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {item}), 1);
        QCOMPARE(db.Count("ServiceResources"), 1);
    }

    void unendedBeginTransIsCommittedAtAnOrderlyClose() {
        TestDatabase db;
        da().BeginTrans();
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Pending at close");
        da().CloseDatabase();
        QVERIFY(!da().InTransaction());
        QCOMPARE(
            CountIn(db.Path(),
                    QStringLiteral("SELECT count(*) FROM ServiceItems WHERE ServiceItemID = %1")
                        .arg(item)),
            1);
    }

    void commitAndRollbackWithoutBeginTransDoNothing() {
        TestDatabase db;
        da().CommitTrans();
        da().Rollback();
        const qint32 item = db.AddServiceItem(TestDatabase::Prayer, "Plain write");
        da().Rollback();
        QCOMPARE(db.Count("ServiceItems", "ServiceItemID = ?", {item}), 1);
    }

    void failedStepOfAnOperationLeavesNothingHalfDone() {
        TestDatabase db;
        const qint32 song = db.AddSong("S", {{"V1", "a"}});
        QVERIFY(db.Exec("CREATE TRIGGER refuse BEFORE DELETE ON ServiceItems BEGIN SELECT "
                        "RAISE(ABORT, 'refused'); END"));
        db.Exec("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = 1",
                {QString::number(song)});
        QString error;
        da().DeleteServiceItem(song, error);
        QVERIFY(!error.isEmpty());
        QCOMPARE(db.Scalar("SELECT ServiceItemMusic FROM ServiceItems WHERE ServiceItemID = 1")
                     .toString(),
                 QString::number(song));
    }

    void killedInTheMiddleOfASaveLeavesAConsistentFile() {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Corvantis.pdb";
        {
            TestDatabase seed; // only to learn that creation works in this environment
            QVERIFY(seed.IsValid());
        }
        QProcess helper;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CORVANTIS_SAVING_HELPER", path);
        helper.setProcessEnvironment(environment);
        helper.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        helper.start(QCoreApplication::applicationFilePath(), {});
        QVERIFY(helper.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            QFile::exists(path + ".saving") || helper.state() == QProcess::NotRunning, 30000);
        QCOMPARE(helper.state(), QProcess::Running);
        helper.kill();
        QVERIFY(helper.waitForFinished());
        QCOMPARE(IntegrityOf(path), QString("ok"));
        // Every service holds all its rows or is not there: no half-saved transaction.
        const qint32 services = CountIn(path, "SELECT count(*) FROM Services");
        const qint32 rows = CountIn(path, "SELECT count(*) FROM ServiceContents");
        QVERIFY(services >= 3);
        QCOMPARE(rows, services * 200);
        // And the program opens it again as usual.
        QString error;
        da().OpenDatabase(path, error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        std::unique_ptr<Recordset> rs;
        da().GetAllServices("", 4, error, rs);
        QCOMPARE(rs->RecordCount(), services);
        da().CloseDatabase();
    }
};

int main(int argc, char** argv) {
    const QString helperPath = qEnvironmentVariable("CORVANTIS_SAVING_HELPER");
    if (!helperPath.isEmpty()) {
        QCoreApplication app(argc, argv);
        return RunSavingHelper(helperPath);
    }
    QCoreApplication app(argc, argv);
    tst_Transactions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Transactions.moc"
