// The service item gallery showing a short list in place of its normal rows.

#include "tst_ctlServiceItemGallery_Fixture.h"

#include <QRegularExpression>

class tst_ctlServiceItemGallery_ShortList : public QObject {
    Q_OBJECT

private slots:
    void shortListShowsItsItemsUnderTheirGroups();
    void shortListOfOneItemShowsEmptyViewButIsApplied();
    void emptyContentBehavesLikeOneItem();
    void blankItemInShortListIsShown();
    void sameIdTwiceGivesOneEntry();
    void listViewShowsContentOrder();
    void labelsKeepFormerValueOverNull();
    void selectedNodeIsSelectedAgainWhenInShortList();
    void unknownShortListLeavesMessageAndEmptyTree();
    void idWithoutRowEndsThroughErrorLine();
};

void tst_ctlServiceItemGallery_ShortList::shortListShowsItsItemsUnderTheirGroups() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 24") > 0);
    const qint32 list = f.db.AddShortList("Sunday", {b, a}, "Ann");
    f.gallery->ApplyShortList(list);
    QCOMPARE(f.ItemKeys().size(), 2);
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(a)));
    QVERIFY(f.Tree()->KeyExists(QString("Type;2;;SI;%1").arg(b)));
    QCOMPARE(f.gallery->lblShortListDescription->text(), QString("Sunday"));
    QCOMPARE(f.gallery->lblShortListCreatedBy->text(), QString("Ann"));
    QVERIFY(!f.gallery->lblShortListCreatedDate->text().isEmpty());
}

void tst_ctlServiceItemGallery_ShortList::shortListOfOneItemShowsEmptyViewButIsApplied() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 list = f.db.AddShortList("One", {a});
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    f.gallery->ApplyShortList(list);
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
    QCOMPARE(applied.count(), 1);
    QCOMPARE(Args(applied.at(0)), QStringList({QString::number(a), "One Short-List",
                                               QString("ShortList;%1").arg(list)}));
}

void tst_ctlServiceItemGallery_ShortList::emptyContentBehavesLikeOneItem() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Collect") > 0);
    const qint32 list = f.db.AddShortList("Nothing", {});
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    f.gallery->ApplyShortList(list);
    QCOMPARE(f.Tree()->Count(), 0);
    QCOMPARE(applied.count(), 1);
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
}

void tst_ctlServiceItemGallery_ShortList::blankItemInShortListIsShown() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 list = f.db.AddShortList("With blank", {1, a});
    f.gallery->ApplyShortList(list);
    QCOMPARE(f.ItemKeys().filter(QRegularExpression(";;SI;1$")).size(), 1);
}

void tst_ctlServiceItemGallery_ShortList::sameIdTwiceGivesOneEntry() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Prayer, "Grace");
    const qint32 list = f.db.AddShortList("Twice", {a, b, a});
    f.gallery->ApplyShortList(list);
    QCOMPARE(f.ItemKeys().size(), 2);
    f.gallery->optShowAsList->setChecked(true); // reloads the short list in the list
    QCOMPARE(f.List()->topLevelItemCount(), 2);
}

void tst_ctlServiceItemGallery_ShortList::listViewShowsContentOrder() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm");
    const qint32 c = f.Item(TestDatabase::Prayer, "Grace");
    f.gallery->optShowAsList->setChecked(true);
    const qint32 list = f.db.AddShortList("Order", {a, c, b});
    f.gallery->ApplyShortList(list);
    QStringList keys;
    for (int i = 0; i < f.List()->topLevelItemCount(); ++i)
        keys << VBNode(f.List()->topLevelItem(i)).Key();
    QCOMPARE(keys, QStringList({QString("SI;%1").arg(a), QString("SI;%1").arg(c),
                                QString("SI;%1").arg(b)}));
}

void tst_ctlServiceItemGallery_ShortList::labelsKeepFormerValueOverNull() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Prayer, "Grace");
    const qint32 first = f.db.AddShortList("First", {a, b});
    const qint32 second = f.db.AddShortList("Second", {b, a});
    QVERIFY(f.db.Exec("UPDATE ShortLists SET ShortListDescription = NULL WHERE ShortListID = ?",
                      {second}));
    f.gallery->ApplyShortList(first);
    f.gallery->ApplyShortList(second);
    QCOMPARE(f.gallery->lblShortListDescription->text(), QString("First"));
}

void tst_ctlServiceItemGallery_ShortList::selectedNodeIsSelectedAgainWhenInShortList() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Prayer, "Grace");
    const QString key = QString("Type;1;;SI;%1").arg(a);
    f.gallery->ShowServiceItems(key);
    QSignalSpy clicked(f.gallery.get(), &ctlServiceItemGallery::SIClicked);
    f.gallery->ApplyShortList(f.db.AddShortList("Both", {a, b}));
    QCOMPARE(f.Tree()->SelectedItem().Key(), key);
    QCOMPARE(clicked.count(), 1);
}

void tst_ctlServiceItemGallery_ShortList::unknownShortListLeavesMessageAndEmptyTree() {
    GalleryFixture f;
    QVERIFY(f.Item(TestDatabase::Prayer, "Collect") > 0);
    f.gallery->ShowServiceItems();
    QString strErrorMessage;
    f.gallery->ApplyShortList(999, strErrorMessage);
    QCOMPARE(
        strErrorMessage,
        QString("QVLTCONTROLS:ctlServiceItemGallery:ApplyShortList : ShortList 999 not found"));
    QCOMPARE(f.Tree()->Count(), 0);
    // The id stays in effect: every reload tries it again and logs the message.
    f.gallery->ShowServiceItems();
    QCOMPARE(f.Tree()->Count(), 0);
    QVERIFY(f.Trace().contains("ERROR: QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems : "
                               "QVLTCONTROLS:ctlServiceItemGallery:ApplyShortList : ShortList 999 "
                               "not found"));
}

void tst_ctlServiceItemGallery_ShortList::idWithoutRowEndsThroughErrorLine() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 list = f.db.AddShortList("Gone", {a, a + 50});
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    QString strErrorMessage;
    f.gallery->ApplyShortList(list, strErrorMessage);
    QVERIFY(strErrorMessage.startsWith(
        "QVLTCONTROLS:ctlServiceItemGallery:ApplyShortList: Error number is "));
    QCOMPARE(applied.count(), 0);
    // Rows added before the failure stay.
    QVERIFY(f.Tree()->KeyExists(QString("Type;1;;SI;%1").arg(a)));
    QCOMPARE(f.platform.BoxCount(), 0);
}

QTEST_MAIN(tst_ctlServiceItemGallery_ShortList)
#include "tst_ctlServiceItemGallery_ShortList.moc"
