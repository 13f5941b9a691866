// The generator of large databases for the benchmarks.

#include "DataAccess.h"
#include "LargeDatabase.h"

#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

class tst_LargeDatabase : public QObject {
    Q_OBJECT

    qint32 count(const QString& sql) {
        QSqlQuery q = DataAccess::Instance().Database().exec(sql);
        return q.next() ? q.value(0).toInt() : -1;
    }

private slots:
    void cleanup() { DataAccess::Instance().CloseDatabase(); }

    void generatesTheAskedRowsUnderTheCounterLimit() {
        QTemporaryDir dir;
        LargeDatabase::Options options;
        options.serviceItems = 2000;
        options.services = 20;
        QString error;
        QVERIFY2(LargeDatabase::Generate(dir.path() + "/Corvantis.pdb", options, error),
                 qPrintable(error));
        QCOMPARE(count("SELECT count(*) FROM ServiceItems"), 2001);
        QCOMPARE(count("SELECT count(*) FROM Services"), 20);
        QCOMPARE(count("SELECT count(*) FROM ServiceContents"), 20 * 15);
        QCOMPARE(count("SELECT count(*) FROM ServiceItemPoints"), 100 * 3);
        const int joined = LargeDatabase::JoinedRows();
        QVERIFY(joined > 2000);
        QVERIFY(joined < 32767 / 5);
        QSqlQuery check = DataAccess::Instance().Database().exec("PRAGMA foreign_key_check");
        QVERIFY(!check.next());
    }

    void sameOptionsGiveTheSameRows() {
        QTemporaryDir dir;
        LargeDatabase::Options options;
        options.serviceItems = 200;
        options.services = 5;
        QString error;
        QVERIFY(LargeDatabase::Generate(dir.path() + "/a.pdb", options, error));
        const qint32 first = count("SELECT sum(length(ServiceItemDescription)) FROM ServiceItems");
        QVERIFY(LargeDatabase::Generate(dir.path() + "/b.pdb", options, error));
        QCOMPARE(count("SELECT sum(length(ServiceItemDescription)) FROM ServiceItems"), first);
    }
};

QTEST_GUILESS_MAIN(tst_LargeDatabase)
#include "tst_LargeDatabase.moc"
