// The run engine with rows whose item cannot be looked up and items of type 0
// ("none"): the run goes on, and nothing but the item's own words reaches the
// projector.
#include "RunEngine.h"
#include "TestDatabase.h"

#include <QtTest>

class tst_RunEngine_UnknownType : public QObject {
    Q_OBJECT

private:
    // Deletes an item behind the application's back, leaving the rows that name it.
    static bool removeItem(TestDatabase& db, qint32 id) {
        return db.Exec(QStringLiteral("PRAGMA foreign_keys = OFF")) &&
               db.Exec(QStringLiteral("DELETE FROM ServiceItems WHERE ServiceItemID = ?"), {id});
    }

private slots:
    void rowWhoseItemIsGoneHoldsItsPlaceAsAnEmptySlide() {
        TestDatabase db;
        QVERIFY(db.IsValid());
        const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                                QStringLiteral("Almighty God"));
        const qint32 gone = db.AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"),
                                              QStringLiteral("The Lord is my shepherd"));
        const qint32 notice = db.AddServiceItem(TestDatabase::Announcement,
                                                QStringLiteral("Notices"), QStringLiteral("Tea"));
        const qint32 service =
            db.AddService(QStringLiteral("Morning"), {{prayer}, {gone}, {notice}});
        QVERIFY(service > 0);
        QVERIFY2(removeItem(db, gone), qPrintable(db.LastError()));

        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QCOMPARE(err, QString());
        QCOMPARE(engine.ItemCount(), 3);
        QCOMPARE(engine.ItemServiceItemID(1), gone);
        QCOMPARE(engine.ItemSlides(1).size(), 1);
        const Slide& empty = engine.ItemSlides(1).first();
        QCOMPARE(empty.kind, Slide::Kind::Text);
        QCOMPARE(empty.title, QString());
        QCOMPARE(empty.Words(), QString());

        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(engine.CurrentItem(), 1);
        QCOMPARE(engine.Next(), RunEngine::Step::Item);
        QCOMPARE(engine.CurrentItem(), 2);
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Tea"));
    }

    void itemOfTypeNoneRunsAsTextInAService() {
        TestDatabase db;
        QVERIFY(db.IsValid());
        const qint32 untyped = db.AddServiceItem(TestDatabase::NoType, QStringLiteral("Welcome"),
                                                 QStringLiteral("Good morning"));
        QVERIFY(untyped > 0);
        const qint32 service = db.AddService(QStringLiteral("Morning"), {{untyped}});

        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadService(service, err));
        QCOMPARE(engine.ItemCount(), 1);
        QCOMPARE(engine.CurrentSlide().kind, Slide::Kind::Text);
        QCOMPARE(engine.CurrentSlide().title, QStringLiteral("Welcome"));
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Good morning"));
        QCOMPARE(engine.Next(), RunEngine::Step::ServiceEnded);
    }

    void itemOfTypeNoneRunsByItself() {
        TestDatabase db;
        QVERIFY(db.IsValid());
        const qint32 untyped = db.AddServiceItem(TestDatabase::NoType, QStringLiteral("Welcome"),
                                                 QStringLiteral("Good morning"));
        RunEngine engine;
        QString err;
        QVERIFY(engine.LoadItem(untyped, err));
        QCOMPARE(err, QString());
        QCOMPARE(engine.CurrentSlide().Words(), QStringLiteral("Good morning"));
    }
};

QTEST_MAIN(tst_RunEngine_UnknownType)
#include "tst_RunEngine_UnknownType.moc"
