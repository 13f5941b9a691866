// The service item gallery's short list as a filter mode: picked with
// cmdGetShortList, applied by the host, kept through every reload until it is
// switched off, and ranked above the quick and the main filter.

#include "tst_ctlServiceItemGallery_Fixture.h"

#include <QGroupBox>

#include <algorithm>

class tst_ctlServiceItemGallery_ShortListModes : public QObject {
    Q_OBJECT

private slots:
    void getShortListAppliesThePickedList();
    void getShortListWithNothingPickedSwitchesTheListOff();
    void theShortListStaysThroughReloadsAndViewChanges();
    void theShortListStaysThroughARefresh();
    void aShortListTakesPriorityOverTheQuickFilter();
    void aShortListTakesPriorityOverTheMainFilter();
    void switchingOffBringsBackAStandingQuickFilter();
    void quickFilterOptionWithYesLeavesTheShortListForTheMainFilter();
    void quickFilterOptionWithNoKeepsTheShortList();
    void choosingTheShortListOptionAloneAppliesNothing();
    void aHostAppliedListLeavesTheOptionsAndPanelAsTheyAre();
    void typingAQuickFilterUnderAShortListReloadsTheListAndSaysActive();

private:
    // Three items; the short list holds the first two.
    struct Three {
        qint32 a = 0, b = 0, c = 0, list = 0;
    };
    static Three Seed(GalleryFixture& f) {
        Three t;
        t.a = f.Item(TestDatabase::Prayer, "Collect for Advent", "Stir up");
        t.b = f.Item(TestDatabase::Reading, "Psalm 23", "The Lord is my shepherd");
        t.c = f.Item(TestDatabase::Reading, "Psalm 24", "The earth is the Lord's");
        t.list = f.db.AddShortList("Advent", {t.a, t.b}, "Ann");
        return t;
    }
    static QList<qint32> ShownIds(GalleryFixture& f) {
        QList<qint32> ids;
        VBTreeWidget* view = f.Tree()->isHidden() ? f.List() : f.Tree();
        for (const QString& key : GalleryFixture::Keys(view)) {
            const qint32 at = key.lastIndexOf(';');
            if (key.contains(";;SI;") || key.startsWith("SI;"))
                ids << key.mid(at + 1).toInt();
        }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    static QList<qint32> Ids(std::initializer_list<qint32> ids) {
        QList<qint32> list(ids);
        std::sort(list.begin(), list.end());
        return list;
    }
    static bool PanelOpen(GalleryFixture& f) {
        return f.gallery->cmdShowHideFilter->text() == "&Hide Display Properties";
    }
    [[nodiscard]] static bool SetMainFilter(GalleryFixture& f, const QString& property,
                                            const QString& op, const QString& criterion) {
        if (!PanelOpen(f))
            f.gallery->cmdShowHideFilter->click();
        f.gallery->cboProperty->setCurrentText(property);
        f.gallery->cboOperator->setCurrentText(op);
        QSignalSpy fired(f.gallery->Timer1, &QTimer::timeout);
        f.gallery->txtCriterion->setText(criterion);
        return f.gallery->Timer1->isActive() && fired.wait(5000);
    }
};

void tst_ctlServiceItemGallery_ShortListModes::getShortListAppliesThePickedList() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ShowServiceItems();
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    f.platform.QueueShortListChoice(t.list);
    f.gallery->cmdGetShortList->click();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
    QCOMPARE(f.gallery->lblShortListDescription->text(), QString("Advent"));
    QCOMPARE(applied.count(), 1);
    QCOMPARE(Args(applied.at(0)).at(1), QString("Advent Short-List"));
    QCOMPARE(Args(applied.at(0)).at(2), QString("ShortList;%1").arg(t.list));
}

void tst_ctlServiceItemGallery_ShortListModes::getShortListWithNothingPickedSwitchesTheListOff() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ApplyShortList(t.list);
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    f.platform.QueueShortListChoice(0);
    f.gallery->cmdGetShortList->click();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b, t.c}));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Filter is inactive)"));
    QVERIFY(f.gallery->lblShortListDescription->text().isEmpty());
    QVERIFY(f.gallery->lblShortListCreatedBy->text().isEmpty());
    QVERIFY(f.gallery->lblShortListCreatedDate->text().isEmpty());
    // Reloading now shows every item: the list is off for good.
    f.gallery->ShowServiceItems();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b, t.c}));
}

void tst_ctlServiceItemGallery_ShortListModes::theShortListStaysThroughReloadsAndViewChanges() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ApplyShortList(t.list);
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    f.gallery->ShowServiceItems();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    f.gallery->cboGroupByProperty->setCurrentText("Keyword");
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    f.gallery->optShowAsList->setChecked(true);
    QVERIFY(f.Tree()->isHidden());
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    // Every reload asks for the list again and says so.
    QVERIFY(applied.count() >= 3);
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
}

void tst_ctlServiceItemGallery_ShortListModes::theShortListStaysThroughARefresh() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ApplyShortList(t.list);
    f.gallery->RefreshView();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
}

void tst_ctlServiceItemGallery_ShortListModes::aShortListTakesPriorityOverTheQuickFilter() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->txtQuickFilter->setText("Psalm");
    QCOMPARE(ShownIds(f), Ids({t.b, t.c}));
    f.gallery->ApplyShortList(t.list);
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(Short-List)"));
}

void tst_ctlServiceItemGallery_ShortListModes::aShortListTakesPriorityOverTheMainFilter() {
    GalleryFixture f;
    const Three t = Seed(f);
    QVERIFY(SetMainFilter(f, "Description", "Contains", "24"));
    QCOMPARE(ShownIds(f), Ids({t.c}));
    f.gallery->ApplyShortList(t.list);
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    // The criterion's second of quiet reloads the short list, not the clause.
    QVERIFY(SetMainFilter(f, "Description", "Contains", "23"));
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
}

void tst_ctlServiceItemGallery_ShortListModes::switchingOffBringsBackAStandingQuickFilter() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->txtQuickFilter->setText("Psalm");
    f.gallery->ApplyShortList(t.list);
    f.gallery->ApplyShortList(0);
    QCOMPARE(ShownIds(f), Ids({t.b, t.c}));
}

void tst_ctlServiceItemGallery_ShortListModes::
    quickFilterOptionWithYesLeavesTheShortListForTheMainFilter() {
    GalleryFixture f;
    const Three t = Seed(f);
    QVERIFY(SetMainFilter(f, "Description", "Contains", "Psalm"));
    f.gallery->optShortList->setChecked(true);
    f.platform.QueueShortListChoice(t.list);
    f.gallery->cmdGetShortList->click();
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    f.platform.QueueAnswer(vbYes);
    f.gallery->optQuickFilter->setChecked(true);
    QCOMPARE(f.platform.LastBox().Title, QString("Turn off Short-List?"));
    QCOMPARE(f.platform.LastBox().Buttons, vbYesNoCancel | vbQuestion | vbDefaultButton2);
    QCOMPARE(ShownIds(f), Ids({t.b, t.c}));
    QVERIFY(f.gallery->lblShortListDescription->text().isEmpty());
    QVERIFY(f.gallery->fraSelectShortList->isHidden());
}

void tst_ctlServiceItemGallery_ShortListModes::quickFilterOptionWithNoKeepsTheShortList() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->cmdShowHideFilter->click();
    f.gallery->optShortList->setChecked(true);
    f.platform.QueueShortListChoice(t.list);
    f.gallery->cmdGetShortList->click();
    f.platform.QueueAnswer(vbNo);
    f.gallery->optQuickFilter->setChecked(true);
    QVERIFY(f.gallery->optShortList->isChecked());
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    QCOMPARE(f.gallery->lblShortListDescription->text(), QString("Advent"));
}

void tst_ctlServiceItemGallery_ShortListModes::choosingTheShortListOptionAloneAppliesNothing() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ShowServiceItems();
    QSignalSpy applied(f.gallery.get(), &ctlServiceItemGallery::ShortListApplied);
    f.gallery->cmdShowHideFilter->click();
    f.gallery->optShortList->setChecked(true);
    QVERIFY(!f.gallery->fraSelectShortList->isHidden());
    QCOMPARE(applied.count(), 0);
    QCOMPARE(ShownIds(f), Ids({t.a, t.b, t.c}));
}

void tst_ctlServiceItemGallery_ShortListModes::aHostAppliedListLeavesTheOptionsAndPanelAsTheyAre() {
    GalleryFixture f;
    const Three t = Seed(f);
    QVERIFY(!PanelOpen(f));
    f.gallery->ApplyShortList(t.list);
    QVERIFY(!f.gallery->optShortList->isChecked());
    QVERIFY(!PanelOpen(f));
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
}

void tst_ctlServiceItemGallery_ShortListModes::
    typingAQuickFilterUnderAShortListReloadsTheListAndSaysActive() {
    GalleryFixture f;
    const Three t = Seed(f);
    f.gallery->ApplyShortList(t.list);
    QSignalSpy changed(f.gallery.get(), &ctlServiceItemGallery::SIListFilterChanged);
    f.gallery->txtQuickFilter->setText("24");
    QCOMPARE(ShownIds(f), Ids({t.a, t.b}));
    QCOMPARE(f.gallery->lblFilterState->text(), QString("(FILTER ACTIVE)"));
    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(tst_ctlServiceItemGallery_ShortListModes)
#include "tst_ctlServiceItemGallery_ShortListModes.moc"
