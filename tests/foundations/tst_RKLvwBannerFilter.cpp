// The filter bar over a list view: binding, narrowing as the user types, per
// column, the count in words, refresh after a refill, rows added later, the
// release, a list that goes away, and its keys.
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBTreeWidget.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {
struct Gallery {
    QWidget window;
    VBTreeWidget* list = nullptr;
    RKLvwBannerFilter* filter = nullptr;

    Gallery() {
        filter = new RKLvwBannerFilter(&window);
        list = new VBTreeWidget(&window);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(filter);
        layout->addWidget(list);
        list->SetListView();
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        list->AddColumnHeader("Description", "Description");
        list->AddColumnHeader("Created", "Created Date");
        list->AddColumnHeader("By", "Created By");
        add(1, "Advent hymns", "01/12/2025", "Mary");
        add(2, "Easter songs", "01/04/2025", "John");
        add(3, "Children's songs", "03/05/2025", "mary ann");
        add(4, "Prayers of Lent", "01/03/2025", "Peter");
    }
    void add(qint32 id, const QString& text, const QString& date, const QString& by) {
        VBNode item = list->AddItem(QStringLiteral("ShortList;%1").arg(id), text);
        item.setSubItems(1, date);
        item.setSubItems(2, by);
    }
    QLineEdit* text() { return filter->findChild<QLineEdit*>(QStringLiteral("txtFilter")); }
    QComboBox* column() { return filter->findChild<QComboBox*>(QStringLiteral("cboColumn")); }
    QLabel* count() { return filter->findChild<QLabel*>(QStringLiteral("lblCount")); }
    QStringList shown() const {
        QStringList texts;
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            if (!list->topLevelItem(i)->isHidden())
                texts << list->topLevelItem(i)->text(0);
        }
        return texts;
    }
};
} // namespace

class tst_RKLvwBannerFilter : public QObject {
    Q_OBJECT
private slots:
    void childWidgetsCarryTheirNames();
    void boundListShowsEveryRowAndItsColumns();
    void typingNarrowsTheRowsWithoutRegardToCase();
    void columnChosenLimitsTheMatch();
    void countTellsShownRowsInTheItemWords();
    void filterAppliedGivesShownAndTotal();
    void hiddenSelectedRowIsDeselected();
    void refreshFiltersARefilledList();
    void rowsAddedUnderAFilterAreFilteredOnTheirWay();
    void releaseShowsEveryRowAndStopsFiltering();
    void bindingAnotherListReleasesTheFirst();
    void listDeletedReleasesTheBar();
    void escapeEmptiesTheFilterAndClearButtonToo();
    void downMovesToTheFirstRowShown();
};

void tst_RKLvwBannerFilter::childWidgetsCarryTheirNames() {
    Gallery g;
    QVERIFY(g.text());
    QVERIFY(g.column());
    QVERIFY(g.count());
    QVERIFY(g.filter->findChild<QPushButton*>(QStringLiteral("cmdClear")));
    QVERIFY(g.filter->ListView() == nullptr);
}

void tst_RKLvwBannerFilter::boundListShowsEveryRowAndItsColumns() {
    Gallery g;
    g.filter->setListView(g.list);
    QCOMPARE(g.filter->ListView(), g.list);
    QCOMPARE(g.shown().size(), 4);
    QStringList columns;
    for (int i = 0; i < g.column()->count(); ++i)
        columns << g.column()->itemText(i);
    QCOMPARE(columns, QStringList({"All Columns", "Description", "Created Date", "Created By"}));
}

void tst_RKLvwBannerFilter::typingNarrowsTheRowsWithoutRegardToCase() {
    Gallery g;
    g.filter->setListView(g.list);
    QTest::keyClicks(g.text(), QStringLiteral("SON"));
    QCOMPARE(g.shown(), QStringList({"Easter songs", "Children's songs"}));
    QTest::keyClicks(g.text(), QStringLiteral("gs o"));
    QCOMPARE(g.shown(), QStringList());
    QTest::keyClick(g.text(), Qt::Key_Backspace);
    QTest::keyClick(g.text(), Qt::Key_Backspace);
    QCOMPARE(g.shown(), QStringList({"Easter songs", "Children's songs"}));
    // A name in another column is found with "All Columns".
    g.text()->setText(QStringLiteral("peter"));
    QCOMPARE(g.shown(), QStringList({"Prayers of Lent"}));
}

void tst_RKLvwBannerFilter::columnChosenLimitsTheMatch() {
    Gallery g;
    g.filter->setListView(g.list);
    g.text()->setText(QStringLiteral("mary"));
    QCOMPARE(g.shown(), QStringList({"Advent hymns", "Children's songs"}));
    g.filter->setFilterColumn(1);
    QCOMPARE(g.shown(), QStringList());
    g.filter->setFilterColumn(3);
    QCOMPARE(g.shown(), QStringList({"Advent hymns", "Children's songs"}));
    g.text()->setText(QStringLiteral("01/"));
    g.filter->setFilterColumn(2);
    QCOMPARE(g.shown(), QStringList({"Advent hymns", "Easter songs", "Prayers of Lent"}));
    QCOMPARE(g.filter->FilterColumn(), 2);
}

void tst_RKLvwBannerFilter::countTellsShownRowsInTheItemWords() {
    Gallery g;
    QVERIFY(g.count()->text().isEmpty());
    g.filter->setItemDescription(QStringLiteral("short-lists"));
    g.filter->setListView(g.list);
    QCOMPARE(g.count()->text(), QStringLiteral("Showing 4 of 4 short-lists"));
    g.filter->setFilterText(QStringLiteral("lent"));
    QCOMPARE(g.count()->text(), QStringLiteral("Showing 1 of 4 short-lists"));
    QCOMPARE(g.filter->ShownCount(), 1);
    QCOMPARE(g.filter->TotalCount(), 4);
    QVERIFY(g.filter->setProperty("ItemDescription", QStringLiteral("service items")));
    QCOMPARE(g.count()->text(), QStringLiteral("Showing 1 of 4 service items"));
}

void tst_RKLvwBannerFilter::filterAppliedGivesShownAndTotal() {
    Gallery g;
    g.filter->setListView(g.list);
    QSignalSpy applied(g.filter, &RKLvwBannerFilter::FilterApplied);
    QTest::keyClicks(g.text(), QStringLiteral("e"));
    QCOMPARE(applied.count(), 1);
    QCOMPARE(applied.last().at(0).toInt(), 4);
    QTest::keyClicks(g.text(), QStringLiteral("a"));
    QCOMPARE(applied.last().at(0).toInt(), 1);
    QCOMPARE(applied.last().at(1).toInt(), 4);
}

void tst_RKLvwBannerFilter::hiddenSelectedRowIsDeselected() {
    Gallery g;
    g.filter->setListView(g.list);
    g.list->topLevelItem(0)->setSelected(true);
    g.list->topLevelItem(1)->setSelected(true);
    g.filter->setFilterText(QStringLiteral("easter"));
    QVERIFY(!g.list->topLevelItem(0)->isSelected());
    QVERIFY(g.list->topLevelItem(1)->isSelected());
    QCOMPARE(g.list->selectedItems().size(), 1);
}

void tst_RKLvwBannerFilter::refreshFiltersARefilledList() {
    Gallery g;
    g.filter->setListView(g.list);
    g.filter->setFilterText(QStringLiteral("songs"));
    g.list->Clear();
    g.add(7, "Harvest songs", "01/09/2025", "Ruth");
    g.add(8, "Harvest prayers", "01/09/2025", "Ruth");
    g.filter->Refresh();
    QCOMPARE(g.shown(), QStringList({"Harvest songs"}));
    QCOMPARE(g.filter->TotalCount(), 2);
}

void tst_RKLvwBannerFilter::rowsAddedUnderAFilterAreFilteredOnTheirWay() {
    Gallery g;
    g.filter->setListView(g.list);
    g.filter->setFilterText(QStringLiteral("songs"));
    g.add(9, "Wedding prayers", "01/06/2025", "Anna");
    g.add(10, "Wedding songs", "01/06/2025", "Anna");
    QTRY_COMPARE(g.shown(), QStringList({"Easter songs", "Children's songs", "Wedding songs"}));
    QTRY_COMPARE(g.filter->TotalCount(), 6);
}

void tst_RKLvwBannerFilter::releaseShowsEveryRowAndStopsFiltering() {
    Gallery g;
    g.filter->setListView(g.list);
    g.filter->setFilterText(QStringLiteral("lent"));
    QCOMPARE(g.shown().size(), 1);
    g.filter->ReleaseListView();
    QVERIFY(g.filter->ListView() == nullptr);
    QCOMPARE(g.shown().size(), 4);
    g.filter->setFilterText(QStringLiteral("advent"));
    g.add(11, "Lent readings", "01/03/2025", "Paul");
    QCoreApplication::processEvents();
    QCOMPARE(g.shown().size(), 5);
    QCOMPARE(g.column()->count(), 1);
}

void tst_RKLvwBannerFilter::bindingAnotherListReleasesTheFirst() {
    Gallery g;
    VBTreeWidget other;
    other.SetListView();
    other.AddColumnHeader("Name", "Name");
    other.AddItem("a", "Advent");
    other.AddItem("b", "Baptism");
    g.filter->setListView(g.list);
    g.filter->setFilterText(QStringLiteral("advent"));
    QCOMPARE(g.shown().size(), 1);
    g.filter->setListView(&other);
    QCOMPARE(g.shown().size(), 4);
    QVERIFY(!other.topLevelItem(0)->isHidden());
    QVERIFY(other.topLevelItem(1)->isHidden());
    QCOMPARE(g.column()->count(), 2);
}

void tst_RKLvwBannerFilter::listDeletedReleasesTheBar() {
    RKLvwBannerFilter filter;
    auto* list = new VBTreeWidget;
    list->SetListView();
    list->AddColumnHeader("Name", "Name");
    list->AddItem("a", "Advent");
    filter.setListView(list);
    filter.setFilterText(QStringLiteral("x"));
    delete list;
    QVERIFY(filter.ListView() == nullptr);
    filter.setFilterText(QStringLiteral("xy"));
    filter.Refresh();
    QCoreApplication::processEvents();
    QCOMPARE(filter.TotalCount(), 0);
}

void tst_RKLvwBannerFilter::escapeEmptiesTheFilterAndClearButtonToo() {
    Gallery g;
    g.filter->setListView(g.list);
    QTest::keyClicks(g.text(), QStringLiteral("lent"));
    QTest::keyClick(g.text(), Qt::Key_Escape);
    QVERIFY(g.text()->text().isEmpty());
    QCOMPARE(g.shown().size(), 4);
    QTest::keyClicks(g.text(), QStringLiteral("lent"));
    g.filter->findChild<QPushButton*>(QStringLiteral("cmdClear"))->click();
    QCOMPARE(g.filter->FilterText(), QString());
    QCOMPARE(g.shown().size(), 4);
}

void tst_RKLvwBannerFilter::downMovesToTheFirstRowShown() {
    Gallery g;
    g.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g.window));
    g.filter->setListView(g.list);
    g.text()->setFocus();
    QTest::keyClicks(g.text(), QStringLiteral("songs"));
    QTest::keyClick(g.text(), Qt::Key_Down);
    QCOMPARE(g.list->currentItem()->text(0), QStringLiteral("Easter songs"));
    QTRY_VERIFY(g.list->hasFocus());
}

QTEST_MAIN(tst_RKLvwBannerFilter)
#include "tst_RKLvwBannerFilter.moc"
