// Keyed trees and lists as the controls use them: keys, tags, creation-order
// indexes, the walk between relatives, Bold, Sorted, list items with
// sub-items and keyed column headers, and VB's error numbers.
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBImageList.h"
#include "foundations/VBTreeWidget.h"

#include <QHeaderView>
#include <QTest>

#include <algorithm>

namespace {
template <class F> qint32 errorOf(F&& f) {
    try {
        f();
    } catch (const VBError& e) {
        return e.Number;
    }
    return 0;
}

QStringList texts(const VBNode& first) {
    QStringList list;
    for (VBNode n = first; n; n = n.Next())
        list << n.Text();
    return list;
}

// Root
//   Type;Hymn          (group)
//     Type;Hymn;;SI;7  (item)
//     Type;Hymn;;SI;3
//   Type;Prayer
void fillGallery(VBTreeWidget& tvw) {
    tvw.Add(QVariant(), tvwLast, QStringLiteral("Root"), QStringLiteral("All Items"));
    tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("Type;Hymn"), QStringLiteral("Hymn"));
    tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;7"),
            QStringLiteral("Amazing Grace"));
    tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;3"),
            QStringLiteral("Be Thou My Vision"));
    tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("Type;Prayer"),
            QStringLiteral("Prayer"));
}
} // namespace

class tst_VBTreeWidget : public QObject {
    Q_OBJECT
private slots:
    void nodeCarriesKeyTagAndTextInColumnZero();
    void indexIsCreationOrderNotPosition();
    void duplicateKeyRaises35602();
    void numericKeyRaises35603();
    void missingKeyRaises35601AndBadIndex35600();
    void addToMissingRelativeRaises35601();
    void nothingRaises91();
    void walkNextParentFirstAndLastSibling();
    void walkEndsInNothing();
    void relationshipsPlaceTheNewNode();
    void boldIsTheFontOfColumnZero();
    void selectedItemFollowsSelection();
    void ensureVisibleExpandsTheParents();
    void sortedTreeOrdersTopLevelWithoutCase();
    void sortedNodeOrdersChildrenAndKeepsExpandedState();
    void sortOrdersTextsOfEveryAlphabetAsComparisonWithoutCaseDoes();
    void removeForgetsKeysOfNodeAndChildren();
    void clearForgetsEverything();
    void nodesAddedAfterClearCarryNothingOfTheNodesBefore();
    void aClearedTreeWithAHiddenNodeShowsNoneOfItsNodesHiddenAgain();
    void nodesBuiltOutsideTheViewComeInWithKeysOrderAndPictures();
    void aFailureDuringABuildOutsideTheViewStillPutsTheTreeBack();
    void nodesRemovedDuringABuildOutsideTheViewAreForgotten();
    void imagesComeFromTheImageList();
    void missingImageKeyRaises35601();
    void expandedImageShowsWhileExpanded();
    void listViewHasNoRootDecorationAndKeyedColumnHeaders();
    void listViewDuplicateColumnKeyRaises35602AndMissing35601();
    void listItemsWithSubItemsAndRows();
    void listItemOutOfRangeRaises35600();
};

void tst_VBTreeWidget::nodeCarriesKeyTagAndTextInColumnZero() {
    VBTreeWidget tvw;
    VBNode node = tvw.Add(QVariant(), tvwLast, QStringLiteral("SI;5"), QStringLiteral("Psalm 23"));
    node.setTag(QStringLiteral("17"));
    QCOMPARE(node.Key(), QStringLiteral("SI;5"));
    QCOMPARE(node.Text(), QStringLiteral("Psalm 23"));
    QCOMPARE(node.Tag().toString(), QStringLiteral("17"));
    QCOMPARE(node.Item()->data(0, Qt::UserRole).toString(), QStringLiteral("SI;5"));
    QCOMPARE(node.Item()->data(0, Qt::UserRole + 1).toString(), QStringLiteral("17"));
    QCOMPARE(node.Item()->text(0), QStringLiteral("Psalm 23"));
    node.setText(QStringLiteral("Psalm 23 (sung)"));
    QCOMPARE(tvw.Nodes(QStringLiteral("SI;5")).Text(), QStringLiteral("Psalm 23 (sung)"));
    QVERIFY(tvw.KeyExists(QStringLiteral("SI;5")));
}

void tst_VBTreeWidget::indexIsCreationOrderNotPosition() {
    VBTreeWidget tvw;
    tvw.Add(QVariant(), tvwLast, QStringLiteral("B"), QStringLiteral("B"));
    tvw.Add(QVariant(), tvwFirst, QStringLiteral("A"), QStringLiteral("A"));
    tvw.Add(QStringLiteral("B"), tvwChild, QStringLiteral("B1"), QStringLiteral("B1"));
    QCOMPARE(tvw.Nodes(QStringLiteral("B")).Index(), 1);
    QCOMPARE(tvw.Nodes(QStringLiteral("A")).Index(), 2);
    QCOMPARE(tvw.Nodes(QStringLiteral("B1")).Index(), 3);
    QCOMPARE(tvw.Nodes(2).Key(), QStringLiteral("A"));
    QCOMPARE(tvw.Nodes(QVariant(3)).Key(), QStringLiteral("B1"));
    QCOMPARE(tvw.Count(), 3);
    // The top of the tree is A although it was made second.
    QCOMPARE(VBNode(tvw.topLevelItem(0)).Key(), QStringLiteral("A"));
}

void tst_VBTreeWidget::duplicateKeyRaises35602() {
    VBTreeWidget tvw;
    tvw.Add(QVariant(), tvwLast, QStringLiteral("SI;1"), QStringLiteral("Blank"));
    try {
        tvw.Add(QVariant(), tvwLast, QStringLiteral("SI;1"), QStringLiteral("Again"));
        QFAIL("no failure");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 35602);
        QCOMPARE(e.Description, QStringLiteral("Key is not unique in collection"));
    }
    QCOMPARE(tvw.Count(), 1);
    QCOMPARE(tvw.topLevelItemCount(), 1);
}

void tst_VBTreeWidget::numericKeyRaises35603() {
    VBTreeWidget tvw;
    QCOMPARE(
        errorOf([&] { tvw.Add(QVariant(), tvwLast, QStringLiteral("7"), QStringLiteral("x")); }),
        VBErr::InvalidKey);
    QCOMPARE(tvw.Count(), 0);
}

void tst_VBTreeWidget::missingKeyRaises35601AndBadIndex35600() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    QCOMPARE(errorOf([&] { tvw.Nodes(QStringLiteral("Type;Music")); }), VBErr::ElementNotFound);
    QCOMPARE(errorOf([&] { tvw.Nodes(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { tvw.Nodes(6); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { tvw.Remove(QStringLiteral("nope")); }), VBErr::ElementNotFound);
}

void tst_VBTreeWidget::addToMissingRelativeRaises35601() {
    VBTreeWidget tvw;
    QCOMPARE(errorOf([&] {
                 tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("A"),
                         QStringLiteral("A"));
             }),
             VBErr::ElementNotFound);
    QCOMPARE(tvw.Count(), 0);
    QCOMPARE(tvw.topLevelItemCount(), 0);
}

void tst_VBTreeWidget::nothingRaises91() {
    VBNode nothing;
    QVERIFY(nothing.IsNothing());
    QVERIFY(!nothing);
    QCOMPARE(errorOf([&] { nothing.Key(); }), VBErr::ObjectNotSet);
    QCOMPARE(errorOf([&] { nothing.Text(); }), VBErr::ObjectNotSet);
    QCOMPARE(errorOf([&] { nothing.setBold(true); }), VBErr::ObjectNotSet);
    QCOMPARE(errorOf([&] { nothing.Next(); }), VBErr::ObjectNotSet);
    QCOMPARE(errorOf([&] { nothing.Index(); }), VBErr::ObjectNotSet);
    QCOMPARE(VBError(91).Description,
             QStringLiteral("Object variable or With block variable not set"));
}

void tst_VBTreeWidget::walkNextParentFirstAndLastSibling() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    VBNode second = tvw.Nodes(QStringLiteral("Type;Hymn;;SI;3"));
    QCOMPARE(second.Parent().Key(), QStringLiteral("Type;Hymn"));
    QCOMPARE(second.FirstSibling().Key(), QStringLiteral("Type;Hymn;;SI;7"));
    QCOMPARE(second.LastSibling().Key(), QStringLiteral("Type;Hymn;;SI;3"));
    QCOMPARE(second.Previous().Key(), QStringLiteral("Type;Hymn;;SI;7"));
    QCOMPARE(second.Root().Key(), QStringLiteral("Root"));
    VBNode hymn = tvw.Nodes(QStringLiteral("Type;Hymn"));
    QCOMPARE(hymn.Children(), 2);
    QCOMPARE(hymn.Child().Key(), QStringLiteral("Type;Hymn;;SI;7"));
    QCOMPARE(hymn.Next().Key(), QStringLiteral("Type;Prayer"));
    QCOMPARE(texts(hymn.Child()), (QStringList{"Amazing Grace", "Be Thou My Vision"}));
}

void tst_VBTreeWidget::walkEndsInNothing() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Prayer")).Next().IsNothing());
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Prayer")).Child().IsNothing());
    QVERIFY(tvw.Nodes(QStringLiteral("Root")).Parent().IsNothing());
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Hymn")).Previous().IsNothing());
    QCOMPARE(tvw.Nodes(QStringLiteral("Type;Prayer")).Children(), 0);
}

void tst_VBTreeWidget::relationshipsPlaceTheNewNode() {
    VBTreeWidget tvw;
    tvw.Add(QVariant(), tvwLast, QStringLiteral("M"), QStringLiteral("M"));
    tvw.Add(QStringLiteral("M"), tvwNext, QStringLiteral("N"), QStringLiteral("N"));
    tvw.Add(QStringLiteral("M"), tvwPrevious, QStringLiteral("L"), QStringLiteral("L"));
    tvw.Add(QStringLiteral("N"), tvwFirst, QStringLiteral("A"), QStringLiteral("A"));
    tvw.Add(QStringLiteral("A"), tvwLast, QStringLiteral("Z"), QStringLiteral("Z"));
    tvw.Add(QStringLiteral("M"), tvwChild, QStringLiteral("M1"), QStringLiteral("M1"));
    QCOMPARE(texts(VBNode(tvw.topLevelItem(0))), (QStringList{"A", "L", "M", "N", "Z"}));
    QCOMPARE(tvw.Nodes(QStringLiteral("M1")).Parent().Key(), QStringLiteral("M"));
}

void tst_VBTreeWidget::boldIsTheFontOfColumnZero() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    VBNode node = tvw.Nodes(QStringLiteral("Type;Hymn;;SI;7"));
    QVERIFY(!node.Bold());
    node.setBold(true);
    QVERIFY(node.Bold());
    QVERIFY(node.Item()->font(0).bold());
    node.setBold(false);
    QVERIFY(!node.Item()->font(0).bold());
}

void tst_VBTreeWidget::selectedItemFollowsSelection() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    QVERIFY(tvw.SelectedItem().IsNothing());
    tvw.Nodes(QStringLiteral("Type;Prayer")).setSelected(true);
    QCOMPARE(tvw.SelectedItem().Key(), QStringLiteral("Type;Prayer"));
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Prayer")).Selected());
    tvw.setSelectedItem(tvw.Nodes(QStringLiteral("Type;Hymn;;SI;3")));
    QCOMPARE(tvw.SelectedItem().Key(), QStringLiteral("Type;Hymn;;SI;3"));
    QVERIFY(!tvw.Nodes(QStringLiteral("Type;Prayer")).Selected());
}

void tst_VBTreeWidget::ensureVisibleExpandsTheParents() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    tvw.Nodes(QStringLiteral("Type;Hymn;;SI;3")).EnsureVisible();
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Hymn")).Expanded());
    QVERIFY(tvw.Nodes(QStringLiteral("Root")).Expanded());
    QVERIFY(!tvw.Nodes(QStringLiteral("Type;Prayer")).Expanded());
}

void tst_VBTreeWidget::sortedTreeOrdersTopLevelWithoutCase() {
    VBTreeWidget tvw;
    tvw.Add(QVariant(), tvwLast, QStringLiteral("k1"), QStringLiteral("psalm"));
    tvw.Add(QVariant(), tvwLast, QStringLiteral("k2"), QStringLiteral("Amen"));
    tvw.Add(QVariant(), tvwLast, QStringLiteral("k3"), QStringLiteral("Hymn"));
    tvw.setSorted(true);
    QCOMPARE(texts(VBNode(tvw.topLevelItem(0))), (QStringList{"Amen", "Hymn", "psalm"}));
    // Keys and creation order survive the sort.
    QCOMPARE(tvw.Nodes(QStringLiteral("k1")).Index(), 1);
    QCOMPARE(tvw.Nodes(3).Text(), QStringLiteral("Hymn"));
}

void tst_VBTreeWidget::sortedNodeOrdersChildrenAndKeepsExpandedState() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;9"),
            QStringLiteral("abide with me"));
    tvw.Add(QStringLiteral("Type;Hymn;;SI;9"), tvwChild, QStringLiteral("V1"),
            QStringLiteral("Verse 1"));
    tvw.Nodes(QStringLiteral("Type;Hymn;;SI;9")).setExpanded(true);
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Hymn;;SI;9")).Expanded());
    tvw.Nodes(QStringLiteral("Type;Hymn")).setSorted(true);
    QCOMPARE(texts(tvw.Nodes(QStringLiteral("Type;Hymn")).Child()),
             (QStringList{"abide with me", "Amazing Grace", "Be Thou My Vision"}));
    QVERIFY(tvw.Nodes(QStringLiteral("Type;Hymn;;SI;9")).Expanded());
    QCOMPARE(tvw.Nodes(QStringLiteral("V1")).Parent().Key(), QStringLiteral("Type;Hymn;;SI;9"));
}

void tst_VBTreeWidget::sortOrdersTextsOfEveryAlphabetAsComparisonWithoutCaseDoes() {
    // Texts that agree in their first places and part at ASCII, at letters of other alphabets,
    // at a letter whose lower case is ASCII (the Kelvin sign), at a character beyond 0xFFFF,
    // or by their length; equal texts keep the order they were added in.
    const QStringList lstTexts = {
        QStringLiteral("Psalm 23"),    QStringLiteral("psalm 3"), QStringLiteral("PSALM 23"),
        QStringLiteral("Psalm"),       QStringLiteral("psalm_"),  QStringLiteral("Psalm["),
        QStringLiteral("Ärger"),       QStringLiteral("ärger"),   QStringLiteral("Arger"),
        QStringLiteral("Zebra"),       QStringLiteral("éclair"),  QStringLiteral("Eclair"),
        QStringLiteral("\u212Aelvin"), QStringLiteral("kelvin"),  QStringLiteral("Kelvin"),
        QStringLiteral("Λόγος"),       QStringLiteral("λόγος"),   QStringLiteral("Ωμέγα"),
        QStringLiteral("𝄞 clef"),      QStringLiteral("\uFFFD"),  QStringLiteral(""),
        QStringLiteral("Σ end"),       QStringLiteral("ς end"),   QStringLiteral("a"),
        QStringLiteral("A"),           QStringLiteral("@home"),   QStringLiteral("`tick")};
    VBTreeWidget tvw;
    tvw.Add(QVariant(), tvwLast, QStringLiteral("Root"), QStringLiteral("Root"));
    for (qsizetype i = 0; i < lstTexts.size(); ++i)
        tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("k%1").arg(i), lstTexts.at(i));
    tvw.Nodes(QStringLiteral("Root")).setSorted(true);
    QStringList lstExpected = lstTexts;
    std::stable_sort(
        lstExpected.begin(), lstExpected.end(),
        [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    QCOMPARE(texts(tvw.Nodes(QStringLiteral("Root")).Child()), lstExpected);
}

void tst_VBTreeWidget::removeForgetsKeysOfNodeAndChildren() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    tvw.Remove(QStringLiteral("Type;Hymn"));
    QCOMPARE(tvw.Count(), 2);
    QVERIFY(!tvw.KeyExists(QStringLiteral("Type;Hymn;;SI;7")));
    QCOMPARE(errorOf([&] { tvw.Nodes(QStringLiteral("Type;Hymn;;SI;3")); }),
             VBErr::ElementNotFound);
    QCOMPARE(tvw.Nodes(QStringLiteral("Type;Prayer")).Index(), 2);
    // The key may be used again.
    tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("Type;Hymn"), QStringLiteral("Hymn"));
    QCOMPARE(tvw.Nodes(QStringLiteral("Type;Hymn")).Index(), 3);
}

void tst_VBTreeWidget::clearForgetsEverything() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    tvw.Clear();
    QCOMPARE(tvw.Count(), 0);
    QCOMPARE(tvw.topLevelItemCount(), 0);
    tvw.Add(QVariant(), tvwLast, QStringLiteral("Root"), QStringLiteral("All Items"));
    QCOMPARE(tvw.Nodes(QStringLiteral("Root")).Index(), 1);
}

void tst_VBTreeWidget::imagesComeFromTheImageList() {
    VBImageList imlServiceItems(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(imlServiceItems);
    VBTreeWidget tvw;
    tvw.setImageList(&imlServiceItems);
    VBNode folder = tvw.Add(QVariant(), tvwLast, QStringLiteral("Type;Hymn"),
                            QStringLiteral("Hymn"), QStringLiteral("imgFolderClosed"));
    VBNode song = tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("SI;7"),
                          QStringLiteral("Amazing Grace"), 17);
    QCOMPARE(folder.Image().toString(), QStringLiteral("imgFolderClosed"));
    QCOMPARE(song.Image().toInt(), 17);
    QVERIFY(!song.Item()->icon(0).isNull());
    QCOMPARE(song.Item()->icon(0).pixmap(16, 16).toImage(),
             StandardIcons::ServiceItemType(17).toImage());
    song.setImage(10);
    QCOMPARE(song.Item()->icon(0).pixmap(16, 16).toImage(),
             StandardIcons::ServiceItemType(10).toImage());
}

void tst_VBTreeWidget::missingImageKeyRaises35601() {
    VBImageList imlServiceItems(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(imlServiceItems);
    VBTreeWidget tvw;
    tvw.setImageList(&imlServiceItems);
    QCOMPARE(errorOf([&] {
                 tvw.Add(QVariant(), tvwLast, QStringLiteral("A"), QStringLiteral("A"),
                         QStringLiteral("imgNoSuchPicture"));
             }),
             VBErr::ElementNotFound);
    QCOMPARE(errorOf([&] {
                 tvw.Add(QVariant(), tvwLast, QStringLiteral("B"), QStringLiteral("B"), 99);
             }),
             VBErr::IndexOutOfBounds);
    QCOMPARE(tvw.Count(), 0);
}

void tst_VBTreeWidget::expandedImageShowsWhileExpanded() {
    VBImageList imlServiceItems(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(imlServiceItems);
    VBTreeWidget tvw;
    tvw.setImageList(&imlServiceItems);
    VBNode folder = tvw.Add(QVariant(), tvwLast, QStringLiteral("Type;Hymn"),
                            QStringLiteral("Hymn"), QStringLiteral("imgFolderClosed"));
    tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("SI;7"), QStringLiteral("x"));
    folder.setExpandedImage(QStringLiteral("imgFolderOpen"));
    folder.setExpanded(true);
    QCOMPARE(folder.Item()->icon(0).pixmap(16, 16).toImage(),
             StandardIcons::FolderOpen().toImage());
    folder.setExpanded(false);
    QCOMPARE(folder.Item()->icon(0).pixmap(16, 16).toImage(),
             StandardIcons::FolderClosed().toImage());
}

void tst_VBTreeWidget::listViewHasNoRootDecorationAndKeyedColumnHeaders() {
    VBTreeWidget lvw;
    lvw.SetListView();
    QVERIFY(lvw.IsListView());
    QVERIFY(!lvw.rootIsDecorated());
    QVERIFY(!lvw.isHeaderHidden());
    QCOMPARE(
        lvw.AddColumnHeader(QStringLiteral("Description"), QStringLiteral("Description"), 3000), 1);
    QCOMPARE(lvw.AddColumnHeader(QStringLiteral("Type"), QStringLiteral("Type"), 1500), 2);
    QCOMPARE(lvw.AddColumnHeader(QStringLiteral("LastUsed"), QStringLiteral("Last Used")), 3);
    QCOMPARE(lvw.columnCount(), 3);
    QCOMPARE(lvw.headerItem()->text(2), QStringLiteral("Last Used"));
    QCOMPARE(lvw.ColumnHeaderIndex(QStringLiteral("Type")), 2);
    QCOMPARE(lvw.columnWidth(0), Twips::ToPixels(3000));
    QCOMPARE(lvw.columnWidth(1), Twips::ToPixels(1500));
    lvw.ClearColumnHeaders();
    QCOMPARE(lvw.columnCount(), 1);
    QCOMPARE(errorOf([&] { lvw.ColumnHeaderIndex(QStringLiteral("Type")); }),
             VBErr::ElementNotFound);
}

void tst_VBTreeWidget::listViewDuplicateColumnKeyRaises35602AndMissing35601() {
    VBTreeWidget lvw;
    lvw.SetListView();
    lvw.AddColumnHeader(QStringLiteral("Description"), QStringLiteral("Description"));
    QCOMPARE(errorOf([&] {
                 lvw.AddColumnHeader(QStringLiteral("Description"), QStringLiteral("Again"));
             }),
             VBErr::KeyNotUnique);
    QCOMPARE(errorOf([&] { lvw.ColumnHeaderIndex(QStringLiteral("Created")); }),
             VBErr::ElementNotFound);
    QCOMPARE(lvw.columnCount(), 1);
}

void tst_VBTreeWidget::listItemsWithSubItemsAndRows() {
    VBImageList imlServiceItems(QStringLiteral("imlServiceItems"));
    StandardIcons::FillServiceItemImages(imlServiceItems);
    VBTreeWidget lvw;
    lvw.SetListView();
    lvw.setImageList(&imlServiceItems);
    lvw.AddColumnHeader(QStringLiteral("Description"), QStringLiteral("Description"));
    lvw.AddColumnHeader(QStringLiteral("Type"), QStringLiteral("Type"));
    lvw.AddColumnHeader(QStringLiteral("Created"), QStringLiteral("Created"));
    VBNode first =
        lvw.AddItem(QStringLiteral("SI;7"), QStringLiteral("Amazing Grace"), QVariant(), 17);
    first.setSubItems(1, QStringLiteral("Hymn"));
    first.setSubItems(2, QStringLiteral("21/11/26"));
    first.setSubItemBold(1, true);
    VBNode second = lvw.AddItem(QStringLiteral("SI;4"), QStringLiteral("Psalm 23"));
    QCOMPARE(first.SubItems(1), QStringLiteral("Hymn"));
    QCOMPARE(first.Item()->text(2), QStringLiteral("21/11/26"));
    QVERIFY(first.SubItemBold(1));
    QVERIFY(!first.Bold());
    QCOMPARE(first.Index(), 1);
    QCOMPARE(second.Index(), 2);
    QCOMPARE(lvw.ListItems(2).Key(), QStringLiteral("SI;4"));
    QCOMPARE(lvw.ListItems(QStringLiteral("SI;7")).Text(), QStringLiteral("Amazing Grace"));
    QVERIFY(!first.Item()->icon(0).isNull());
    QCOMPARE(errorOf([&] { first.SubItems(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { lvw.AddItem(QStringLiteral("SI;7"), QStringLiteral("dup")); }),
             VBErr::KeyNotUnique);
}

void tst_VBTreeWidget::listItemOutOfRangeRaises35600() {
    VBTreeWidget lvw;
    lvw.SetListView();
    lvw.AddItem(QStringLiteral("SI;1"), QStringLiteral("Blank"));
    QCOMPARE(errorOf([&] { lvw.ListItems(0); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { lvw.ListItems(2); }), VBErr::IndexOutOfBounds);
    QCOMPARE(errorOf([&] { lvw.ListItems(QStringLiteral("SI;2")); }), VBErr::ElementNotFound);
}

void tst_VBTreeWidget::nodesAddedAfterClearCarryNothingOfTheNodesBefore() {
    VBImageList images(QStringLiteral("imlTest"));
    images.Add(QStringLiteral("imgVerse"), StandardIcons::Verse());
    VBTreeWidget tvw;
    tvw.setImageList(&images);
    tvw.show();
    fillGallery(tvw);
    VBNode hymn = tvw.Nodes(QStringLiteral("Type;Hymn"));
    hymn.setExpanded(true);
    hymn.setBold(true);
    hymn.setTag(QStringLiteral("Type"));
    hymn.setToolTipText(QStringLiteral("Songs"));
    hymn.setImage(QStringLiteral("imgVerse"));
    hymn.setExpandedImage(QStringLiteral("imgVerse"));
    tvw.Nodes(QStringLiteral("Type;Hymn;;SI;7")).setSubItems(1, QStringLiteral("Newton"));
    tvw.Nodes(QStringLiteral("Type;Hymn;;SI;3")).setSelected(true);
    tvw.Clear();
    QCOMPARE(tvw.Count(), 0);
    QCOMPARE(tvw.topLevelItemCount(), 0);
    QVERIFY(tvw.SelectedItem().IsNothing());
    for (int i = 1; i <= 6; ++i) {
        VBNode node = tvw.Add(QVariant(), tvwLast, QStringLiteral("N%1").arg(i),
                              QStringLiteral("Node %1").arg(i));
        QCOMPARE(node.Index(), i);
        QCOMPARE(node.Text(), QStringLiteral("Node %1").arg(i));
        QVERIFY(!node.Tag().isValid());
        QVERIFY(!node.Bold());
        QVERIFY(!node.Selected());
        QVERIFY(!node.Expanded());
        QCOMPARE(node.Children(), 0);
        QCOMPARE(node.ToolTipText(), QString());
        QVERIFY(!node.Image().isValid());
        QVERIFY(!node.ExpandedImage().isValid());
        QVERIFY(node.Item()->icon(0).isNull());
        QCOMPARE(node.Item()->text(1), QString());
        QVERIFY(!node.Item()->isHidden());
        QCOMPARE(node.Item()->flags(), QTreeWidgetItem().flags());
    }
    QCOMPARE(texts(VBNode(tvw.topLevelItem(0))),
             QStringList({"Node 1", "Node 2", "Node 3", "Node 4", "Node 5", "Node 6"}));
    QVERIFY(!tvw.KeyExists(QStringLiteral("Root")));
}

void tst_VBTreeWidget::aClearedTreeWithAHiddenNodeShowsNoneOfItsNodesHiddenAgain() {
    VBTreeWidget lvw;
    lvw.SetListView();
    for (int i = 1; i <= 4; ++i)
        lvw.AddItem(QStringLiteral("SI;%1").arg(i), QStringLiteral("Item %1").arg(i));
    lvw.ListItems(2).Item()->setHidden(true);
    lvw.Clear();
    for (int i = 1; i <= 4; ++i)
        QVERIFY(!lvw.AddItem(QStringLiteral("SI;%1").arg(i), QStringLiteral("Again %1").arg(i))
                     .Item()
                     ->isHidden());
}

void tst_VBTreeWidget::nodesBuiltOutsideTheViewComeInWithKeysOrderAndPictures() {
    VBImageList images(QStringLiteral("imlTest"));
    images.Add(QStringLiteral("imgVerse"), StandardIcons::Verse());
    VBTreeWidget tvw;
    tvw.setImageList(&images);
    tvw.Add(QVariant(), tvwLast, QStringLiteral("Root"), QStringLiteral("All Items"));
    QTreeWidgetItem* root = tvw.topLevelItem(0);
    {
        const VBTreeWidget::DetachedBuild build(&tvw);
        QCOMPARE(tvw.topLevelItemCount(), 0);
        tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("Type;Hymn"),
                QStringLiteral("Hymn"));
        VBNode b = tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;2"),
                           QStringLiteral("be thou my vision"));
        b.setImage(QStringLiteral("imgVerse"));
        tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;1"),
                QStringLiteral("Amazing Grace"), QStringLiteral("imgVerse"));
        QCOMPARE(b.Index(), 3);
        QVERIFY(!b.Item()->icon(0).isNull());
        tvw.Nodes(QStringLiteral("Type;Hymn")).setSorted(true);
        QCOMPARE(tvw.Nodes(QStringLiteral("Type;Hymn")).Child().Text(),
                 QStringLiteral("Amazing Grace"));
        QCOMPARE(errorOf([&] {
                     tvw.Add(QStringLiteral("Root"), tvwChild, QStringLiteral("Type;Hymn"));
                 }),
                 VBErr::KeyNotUnique);
    }
    QCOMPARE(tvw.topLevelItemCount(), 1);
    QCOMPARE(tvw.topLevelItem(0), root);
    QCOMPARE(tvw.Count(), 4);
    VBNode hymn = tvw.Nodes(QStringLiteral("Type;Hymn"));
    QCOMPARE(hymn.Parent().Key(), QStringLiteral("Root"));
    QCOMPARE(texts(hymn.Child()), QStringList({"Amazing Grace", "be thou my vision"}));
    QCOMPARE(hymn.Child().Item()->treeWidget(), &tvw);
    hymn.setExpanded(true);
    QVERIFY(hymn.Expanded());
    tvw.Remove(QStringLiteral("Type;Hymn"));
    QVERIFY(!tvw.KeyExists(QStringLiteral("Type;Hymn;;SI;1")));
}

void tst_VBTreeWidget::aFailureDuringABuildOutsideTheViewStillPutsTheTreeBack() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    QCOMPARE(errorOf([&] {
                 const VBTreeWidget::DetachedBuild build(&tvw);
                 tvw.Add(QStringLiteral("Type;Hymn"), tvwChild, QStringLiteral("Type;Hymn;;SI;9"),
                         QStringLiteral("Abide with me"));
                 tvw.Add(QStringLiteral("Nowhere"), tvwChild, QStringLiteral("X"));
             }),
             VBErr::ElementNotFound);
    QCOMPARE(tvw.topLevelItemCount(), 1);
    QCOMPARE(tvw.Nodes(QStringLiteral("Type;Hymn;;SI;9")).Item()->treeWidget(), &tvw);
    QCOMPARE(tvw.Count(), 6);
}

void tst_VBTreeWidget::nodesRemovedDuringABuildOutsideTheViewAreForgotten() {
    VBTreeWidget tvw;
    fillGallery(tvw);
    tvw.Add(QVariant(), tvwLast, QStringLiteral("Other"), QStringLiteral("Other"));
    {
        const VBTreeWidget::DetachedBuild build(&tvw);
        tvw.Remove(QStringLiteral("Type;Hymn"));
        tvw.Remove(QStringLiteral("Root"));
        QVERIFY(!tvw.KeyExists(QStringLiteral("Type;Hymn;;SI;7")));
        QVERIFY(!tvw.KeyExists(QStringLiteral("Type;Prayer")));
    }
    QCOMPARE(tvw.topLevelItemCount(), 1);
    QCOMPARE(tvw.Count(), 1);
    QCOMPARE(VBNode(tvw.topLevelItem(0)).Key(), QStringLiteral("Other"));
}

QTEST_MAIN(tst_VBTreeWidget)
#include "tst_VBTreeWidget.moc"
