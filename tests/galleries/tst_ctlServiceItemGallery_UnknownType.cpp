// Service items of type 0 ("none", what the data library stores when no type
// is given) in the gallery: they show, without a picture, and the load goes on.

#include "tst_ctlServiceItemGallery_Fixture.h"

class tst_ctlServiceItemGallery_UnknownType : public QObject {
    Q_OBJECT

private slots:
    void treeShowsAnItemOfTypeNoneWithoutAPicture();
    void listShowsAnItemOfTypeNoneWithoutAPicture();
};

void tst_ctlServiceItemGallery_UnknownType::treeShowsAnItemOfTypeNoneWithoutAPicture() {
    GalleryFixture f;
    const qint32 untyped = f.Item(TestDatabase::NoType, "Notice without a type");
    const qint32 prayer = f.Item(TestDatabase::Prayer, "Collect");
    QVERIFY(untyped > 0 && prayer > 0);
    QString strErrorMessage;

    f.gallery->ShowServiceItems(QString(), strErrorMessage);

    QCOMPARE(strErrorMessage, QString());
    const QString key = QStringLiteral("Type;0;;SI;%1").arg(untyped);
    QVERIFY2(f.ItemKeys().contains(key), qPrintable(f.ItemKeys().join(' ')));
    const VBNode node = f.Tree()->Nodes(key);
    QCOMPARE(node.Text(), QStringLiteral("Notice without a type"));
    QCOMPARE(node.Image().toInt(), 0);
    QVERIFY(node.Item()->icon(0).isNull());
    const VBNode other = f.Tree()->Nodes(QStringLiteral("Type;1;;SI;%1").arg(prayer));
    QVERIFY(!other.Item()->icon(0).isNull());
    QCOMPARE(f.platform.BoxCount(), 0);
}

void tst_ctlServiceItemGallery_UnknownType::listShowsAnItemOfTypeNoneWithoutAPicture() {
    GalleryFixture f;
    const qint32 untyped = f.Item(TestDatabase::NoType, "Notice without a type");
    const qint32 prayer = f.Item(TestDatabase::Prayer, "Collect");
    QVERIFY(untyped > 0 && prayer > 0);

    f.gallery->optShowAsList->setChecked(true);

    QCOMPARE(f.List()->topLevelItemCount(), 2);
    const VBNode item = f.List()->ListItems(QStringLiteral("SI;%1").arg(untyped));
    QCOMPARE(item.SubItems(1), QStringLiteral("Notice without a type"));
    QCOMPARE(item.Tag().toInt(), 0);
    QVERIFY(item.Item()->icon(0).isNull());
    QVERIFY(!f.List()->ListItems(QStringLiteral("SI;%1").arg(prayer)).Item()->icon(0).isNull());
    QCOMPARE(f.platform.BoxCount(), 0);
}

QTEST_MAIN(tst_ctlServiceItemGallery_UnknownType)
#include "tst_ctlServiceItemGallery_UnknownType.moc"
