// The rows of a service written in one batch: the same rows that one call per
// row stores, in their order after the rows already there; all of them or,
// when one fails, none.
#include "DataAccess.h"
#include "TestDatabase.h"

#include <QtTest>

class tst_ServiceContentRows : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theBatchStoresWhatOneCallPerRowStores();
    void rowsFollowTheRowsAlreadyStored();
    void anEmptyBatchStoresNothingAndSaysNothing();
    void aRowThatFailsLeavesNoneOfTheBatch();
    void aServiceThatNoLongerExistsGetsNoRows();
    void aFailedBatchInsideATransactionLeavesTheTransactionUsable();

private:
    QStringList Stored(qint32 service) const {
        QStringList rows;
        const qint32 count = m_db->Count("ServiceContents", "ServiceID = ?", {service});
        for (qint32 i = 0; i < count; ++i)
            rows << m_db->Scalar(QStringLiteral("SELECT Position || ':' || ServiceItemID || ':' || "
                                                "ShowAtRunTime || ':' || ifnull(Length, 'NULL') "
                                                "FROM ServiceContents WHERE ServiceID = ? ORDER "
                                                "BY Position LIMIT 1 OFFSET %1")
                                     .arg(i),
                                 {service})
                        .toString();
        return rows;
    }

    std::unique_ptr<TestDatabase> m_db;
    qint32 m_song = 0, m_prayer = 0;
};

void tst_ServiceContentRows::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_song = m_db->AddServiceItem(TestDatabase::Song, "Amazing Grace");
    m_prayer = m_db->AddServiceItem(TestDatabase::Prayer, "Collect");
    QVERIFY(m_song > 0 && m_prayer > 0);
}

void tst_ServiceContentRows::cleanup() {
    m_db.reset();
}

void tst_ServiceContentRows::theBatchStoresWhatOneCallPerRowStores() {
    DataAccess& da = DataAccess::Instance();
    const qint32 single = m_db->AddService("One by one");
    const qint32 batch = m_db->AddService("In one batch");
    const QList<DataAccess::ServiceContentRow> rows = {{m_song, true, "5 mins"},
                                                       {1, true, QString()},
                                                       {m_prayer, false, "0"},
                                                       {m_song, true, "0"}};
    QString error;
    for (const auto& row : rows) {
        da.AddServiceContentItem(single, row.lngServiceItemID, row.blnShowAtRunTime, row.strLength,
                                 error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }
    da.AddServiceContentItems(batch, rows, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(Stored(batch), Stored(single));
    QCOMPARE(Stored(batch),
             QStringList({QString("1:%1:1:5 mins").arg(m_song), "2:1:1:NULL",
                          QString("3:%1:0:0").arg(m_prayer), QString("4:%1:1:0").arg(m_song)}));
}

void tst_ServiceContentRows::rowsFollowTheRowsAlreadyStored() {
    const qint32 service = m_db->AddService("Partly planned", {{m_song}});
    QString error;
    DataAccess::Instance().AddServiceContentItems(service, {{m_prayer, true, "0"}}, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(Stored(service).size(), 2);
    QVERIFY(Stored(service).at(1).startsWith(QString("2:%1:").arg(m_prayer)));
}

void tst_ServiceContentRows::anEmptyBatchStoresNothingAndSaysNothing() {
    const qint32 service = m_db->AddService("Empty");
    QString error = "left over";
    DataAccess::Instance().AddServiceContentItems(service, {}, error);
    QVERIFY(error.isEmpty());
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {service}), 0);
}

void tst_ServiceContentRows::aRowThatFailsLeavesNoneOfTheBatch() {
    const qint32 service = m_db->AddService("Broken", {{m_song}});
    QString error;
    // The third row names an item that does not exist.
    DataAccess::Instance().AddServiceContentItems(
        service, {{m_prayer, true, "0"}, {1, true, "0"}, {987654, true, "0"}, {m_song, true, "0"}},
        error);
    QVERIFY(!error.isEmpty());
    QVERIFY2(error.contains("AddServiceContentItems"), qPrintable(error));
    QVERIFY2(error.contains("987654"), qPrintable(error));
    QCOMPARE(Stored(service), QStringList({QString("1:%1:1:NULL").arg(m_song)}));
}

void tst_ServiceContentRows::aServiceThatNoLongerExistsGetsNoRows() {
    const qint32 service = m_db->AddService("Gone");
    QString error;
    DataAccess::Instance().DeleteService(service, error);
    QVERIFY(error.isEmpty());
    DataAccess::Instance().AddServiceContentItems(service, {{m_song, true, "0"}}, error);
    QVERIFY2(error.contains(QString("Service %1 does not exist.").arg(service)), qPrintable(error));
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {service}), 0);
}

void tst_ServiceContentRows::aFailedBatchInsideATransactionLeavesTheTransactionUsable() {
    DataAccess& da = DataAccess::Instance();
    const qint32 service = m_db->AddService("In a save");
    QString error;
    da.BeginTrans();
    da.AddServiceContentItems(service, {{m_song, true, "0"}, {987654, true, "0"}}, error);
    QVERIFY(!error.isEmpty());
    da.AddServiceContentItems(service, {{m_prayer, false, "0"}}, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    da.CommitTrans();
    QCOMPARE(Stored(service), QStringList({QString("1:%1:0:0").arg(m_prayer)}));
}

QTEST_MAIN(tst_ServiceContentRows)
#include "tst_ServiceContentRows.moc"
