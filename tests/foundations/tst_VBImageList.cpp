// Image lists: pictures numbered from 1 in the order added, each with an
// optional key.
#include "foundations/StandardIcons.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"

#include <QTest>

namespace {
template <class F> qint32 errorOf(F&& f) {
    try {
        f();
    } catch (const VBError& e) {
        return e.Number;
    }
    return 0;
}
} // namespace

class tst_VBImageList : public QObject {
    Q_OBJECT
private slots:
    void picturesAreNumberedAndKeyed();
    void duplicateKeyRaises35602();
    void missingKeyRaises35601AndBadIndex35600();
    void clearEmptiesTheList();
    void indexZeroIsNoPicture();
    void everyIconOfOnePictureIsTheSameIcon();
};

void tst_VBImageList::everyIconOfOnePictureIsTheSameIcon() {
    VBImageList iml(QStringLiteral("ImageList1"));
    iml.Add(QStringLiteral("imgVerse"), StandardIcons::Verse());
    iml.Add(QString(), StandardIcons::Chorus());
    QCOMPARE(iml.Icon(1).cacheKey(), iml.Icon(QStringLiteral("imgVerse")).cacheKey());
    QCOMPARE(iml.Icon(QVariant(2)).cacheKey(), iml.Icon(2).cacheKey());
    QVERIFY(iml.Icon(1).cacheKey() != iml.Icon(2).cacheKey());
    QCOMPARE(errorOf([&] { iml.Icon(QStringLiteral("imgChorus")); }), VBErr::ElementNotFound);
    QCOMPARE(errorOf([&] { iml.Icon(3); }), VBErr::IndexOutOfBounds);
}

void tst_VBImageList::picturesAreNumberedAndKeyed() {
    VBImageList iml(QStringLiteral("ImageList1"));
    QCOMPARE(iml.objectName(), QStringLiteral("ImageList1"));
    QCOMPARE(iml.Add(QStringLiteral("imgFolderClosed"), StandardIcons::FolderClosed()), 1);
    QCOMPARE(iml.Add(QString(), StandardIcons::ServiceTemplate()), 2);
    QCOMPARE(iml.Count(), 2);
    QCOMPARE(iml.ListImage(1).toImage(), StandardIcons::FolderClosed().toImage());
    QCOMPARE(iml.ListImage(QStringLiteral("imgFolderClosed")).toImage(),
             StandardIcons::FolderClosed().toImage());
    QCOMPARE(iml.ListImage(QVariant(2)).toImage(), StandardIcons::ServiceTemplate().toImage());
    QVERIFY(iml.HasKey(QStringLiteral("imgFolderClosed")));
    QCOMPARE(iml.Key(2), QString());
    QVERIFY(!iml.Icon(1).isNull());
}

void tst_VBImageList::duplicateKeyRaises35602() {
    VBImageList iml(QStringLiteral("ImageList1"));
    iml.Add(QStringLiteral("imgVerse"), StandardIcons::Verse());
    QCOMPARE(errorOf([&] { iml.Add(QStringLiteral("imgVerse"), StandardIcons::Chorus()); }),
             VBErr::KeyNotUnique);
    QCOMPARE(iml.Count(), 1);
}

void tst_VBImageList::missingKeyRaises35601AndBadIndex35600() {
    VBImageList iml(QStringLiteral("ImageList1"));
    iml.Add(QStringLiteral("imgVerse"), StandardIcons::Verse());
    QCOMPARE(errorOf([&] { iml.ListImage(QStringLiteral("imgChorus")); }), VBErr::ElementNotFound);
    QCOMPARE(errorOf([&] { iml.ListImage(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { iml.ListImage(2); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { iml.Key(5); }), VBErr::IndexOutOfBounds);
}

void tst_VBImageList::clearEmptiesTheList() {
    VBImageList iml(QStringLiteral("ImageList1"));
    StandardIcons::FillVerseChorusImages(iml);
    iml.Clear();
    QCOMPARE(iml.Count(), 0);
    QVERIFY(!iml.HasKey(QStringLiteral("imgVerse")));
}

void tst_VBImageList::indexZeroIsNoPicture() {
    VBImageList iml(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(iml);
    QVERIFY(iml.Icon(0).isNull());
    QVERIFY(iml.Icon(QVariant::fromValue<qint16>(0)).isNull());
    QVERIFY(VBImageList::IsNoPicture(0));
    QVERIFY(!VBImageList::IsNoPicture(QStringLiteral("0")));
    QVERIFY(!VBImageList::IsNoPicture(QVariant()));
    QVERIFY(!iml.Icon(1).isNull());
    // The list itself has no picture 0, and a number beyond it is still wrong.
    QCOMPARE(errorOf([&] { iml.ListImage(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { iml.Icon(iml.Count() + 1); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { iml.Icon(-1); }), VBErr::IndexOutOfBounds);
}

QTEST_MAIN(tst_VBImageList)
#include "tst_VBImageList.moc"
