// The outline of points: loading by code, the walk and its count, the user's
// add, delete, indent, outdent, moves, renames and notes, each with its
// event, by buttons and by keys.
#include "../support/ScriptedPlatform.h"
#include "../support/VBErrorCheck.h"
#include "foundations/PointList.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>

namespace {
struct Outline {
    PointList list;
    QTreeWidget* tree = nullptr;
    QTextEdit* notes = nullptr;

    Outline() {
        tree = list.findChild<QTreeWidget*>(QStringLiteral("tvwPoints"));
        notes = list.findChild<QTextEdit*>(QStringLiteral("txtNotes"));
    }
    // Sin, Grace (with sub-points Given, Received), Faith.
    void loadSermon() {
        list.AddPoint("A", "", "Sin", {}, "We all fall short");
        list.AddPoint("B", "", "Grace");
        list.AddPoint("B1", "B", "Given", {}, "Freely");
        list.AddPoint("B2", "B", "Received");
        list.AddPoint("C", "", "Faith");
        list.Redraw();
    }
    void click(const char* name) {
        list.findChild<QPushButton*>(QString::fromLatin1(name))->click();
    }
    bool enabled(const char* name) {
        return list.findChild<QPushButton*>(QString::fromLatin1(name))->isEnabled();
    }
    void select(const QString& key) { list.Redraw(key); }
    // The walk as "key<parent" texts, in list order.
    QStringList walk() {
        QStringList seen;
        for (auto p = list.NextPoint(true); p; p = list.NextPoint(false))
            seen << p.Key() + "<" + (p.Parent() ? p.Parent().Key() : QString());
        return seen;
    }
    QStringList texts() {
        QStringList seen;
        for (auto p = list.NextPoint(true); p; p = list.NextPoint(false))
            seen << p.Text();
        return seen;
    }
};
} // namespace

class tst_PointList : public QObject {
    Q_OBJECT
private slots:
    void childWidgetsCarryTheirNames();
    void loadedPointsWalkInListOrderWithTheirParents();
    void countIsThePointsAndTheRootAndZeroWhenEmpty();
    void pointFieldsKeyTextNotesParent();
    void nothingRaises91();
    void loadingRaisesNoEvent();
    void duplicateKeyRaises35602AndUnknownParentPutsThePointAtTheTop();
    void redrawSelectsTheKeyGiven();
    void clearEmptiesTheOutline();
    void addPutsANewPointAfterTheSelectedOne();
    void addWithNothingSelectedPutsItAtTheEnd();
    void addSubPointPutsItLastUnderTheSelectedOne();
    void newKeysAreUnique();
    void deleteRaisesPointDeletedWithWhetherItWasASubPoint();
    void deletingAPointWithSubPointsAsksFirst();
    void deletingTheLastPointLeavesCountZero();
    void indentMakesThePointASubPointOfTheOneAbove();
    void indentOfTheFirstSiblingDoesNothing();
    void outdentMakesThePointFollowItsParent();
    void moveUpAndDownSwapSiblingsWithTheirSubPoints();
    void movesAtTheEndsDoNothing();
    void renameInPlaceRaisesPointRenamed();
    void renameToEmptyPutsTheTextBack();
    void renameByCodeOverTheLimitRaises513();
    void inPlaceEditorIsLimitedToTheLongestText();
    void notesEditedAreStoredWhenTheSelectionMoves();
    void notesUnchangedRaiseNothing();
    void keyboardAddsDeletesIndentsAndMoves();
    void buttonsFollowTheSelection();
};

void tst_PointList::childWidgetsCarryTheirNames() {
    Outline o;
    QVERIFY(o.tree);
    QVERIFY(o.notes);
    for (const char* name : {"cmdAdd", "cmdAddSubPoint", "cmdDelete", "cmdIndent", "cmdOutdent",
                             "cmdMoveUp", "cmdMoveDown"})
        QVERIFY2(o.list.findChild<QPushButton*>(QString::fromLatin1(name)), name);
    QCOMPARE(o.list.maxlengthofpointtext(), 200);
    QVERIFY(o.list.setProperty("maxlengthofpointtext", 120));
    QCOMPARE(o.list.maxlengthofpointtext(), 120);
}

void tst_PointList::loadedPointsWalkInListOrderWithTheirParents() {
    Outline o;
    o.loadSermon();
    QCOMPARE(o.walk(), QStringList({"A<", "B<", "B1<B", "B2<B", "C<"}));
    QCOMPARE(o.texts(), QStringList({"Sin", "Grace", "Given", "Received", "Faith"}));
    // After the last point the walk gives Nothing, and goes on giving it.
    QVERIFY(o.list.NextPoint(false).IsNothing());
    QVERIFY(o.list.NextPoint(false).IsNothing());
}

void tst_PointList::countIsThePointsAndTheRootAndZeroWhenEmpty() {
    Outline o;
    QCOMPARE(o.list.Points().Count(), 0);
    o.list.AddPoint("A", "", "Sin");
    QCOMPARE(o.list.Points().Count(), 2);
    o.list.AddPoint("A1", "A", "Pride");
    QCOMPARE(o.list.Points().Count(), 3);
    // Count less 1 steps of the walk visit every point.
    qint32 visited = 0;
    auto p = o.list.NextPoint(true);
    for (qint32 i = 1; i <= o.list.Points().Count() - 1; ++i, p = o.list.NextPoint(false)) {
        QVERIFY(p);
        ++visited;
    }
    QCOMPARE(visited, 2);
    QVERIFY(p.IsNothing());
}

void tst_PointList::pointFieldsKeyTextNotesParent() {
    Outline o;
    o.loadSermon();
    const auto given = o.list.PointByKey("B1");
    QCOMPARE(given.Key(), QStringLiteral("B1"));
    QCOMPARE(given.Text(), QStringLiteral("Given"));
    QCOMPARE(given.Notes().toString(), QStringLiteral("Freely"));
    QCOMPARE(given.Parent().Key(), QStringLiteral("B"));
    QVERIFY(given.Parent().Parent().IsNothing());
    QVERIFY(o.list.PointByKey("B2").Notes().isNull());
}

void tst_PointList::nothingRaises91() {
    Outline o;
    QVERIFY(o.list.SelectedPoint().IsNothing());
    QCOMPARE(VBErrorNumberOf([&] { o.list.SelectedPoint().Key(); }), 91);
    QCOMPARE(VBErrorNumberOf([&] { o.list.NextPoint(true).Text(); }), 91);
}

void tst_PointList::loadingRaisesNoEvent() {
    Outline o;
    QSignalSpy added(&o.list, &PointList::PointAdded);
    QSignalSpy renamed(&o.list, &PointList::PointRenamed);
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    QSignalSpy notes(&o.list, &PointList::PointNotesChanged);
    o.loadSermon();
    o.select("B1");
    o.list.Clear();
    QCOMPARE(added.count() + renamed.count() + reordered.count() + notes.count(), 0);
}

void tst_PointList::duplicateKeyRaises35602AndUnknownParentPutsThePointAtTheTop() {
    Outline o;
    o.loadSermon();
    QCOMPARE(VBErrorNumberOf([&] { o.list.AddPoint("A", "", "Again"); }), 35602);
    o.list.AddPoint("X", "missing", "Orphan");
    QVERIFY(o.list.PointByKey("X").Parent().IsNothing());
    QCOMPARE(o.walk().last(), QStringLiteral("X<"));
    // An empty key is given one.
    o.list.AddPoint("", "", "Keyless");
    QVERIFY(!o.texts().isEmpty());
    QCOMPARE(o.texts().last(), QStringLiteral("Keyless"));
    QCOMPARE(o.list.Points().Count(), 8);
}

void tst_PointList::redrawSelectsTheKeyGiven() {
    Outline o;
    o.loadSermon();
    QVERIFY(o.list.SelectedPoint().IsNothing());
    o.list.Redraw("B2");
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("B2"));
    QVERIFY(o.tree->topLevelItem(1)->isExpanded());
    o.list.Redraw("nothing such");
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("B2"));
}

void tst_PointList::clearEmptiesTheOutline() {
    Outline o;
    o.loadSermon();
    o.select("A");
    o.list.Clear();
    QCOMPARE(o.list.Points().Count(), 0);
    QVERIFY(o.list.SelectedPoint().IsNothing());
    QVERIFY(o.notes->toPlainText().isEmpty());
    o.list.AddPoint("A", "", "Sin again");
    QCOMPARE(o.list.Points().Count(), 2);
}

void tst_PointList::addPutsANewPointAfterTheSelectedOne() {
    Outline o;
    o.loadSermon();
    QSignalSpy added(&o.list, &PointList::PointAdded);
    o.select("B1");
    o.click("cmdAdd");
    QCOMPARE(added.count(), 1);
    const auto fresh = o.list.SelectedPoint();
    QCOMPARE(fresh.Text(), QStringLiteral("New Point"));
    QCOMPARE(fresh.Parent().Key(), QStringLiteral("B"));
    QCOMPARE(o.texts(), QStringList({"Sin", "Grace", "Given", "New Point", "Received", "Faith"}));
}

void tst_PointList::addWithNothingSelectedPutsItAtTheEnd() {
    Outline o;
    QSignalSpy added(&o.list, &PointList::PointAdded);
    o.click("cmdAdd");
    QCOMPARE(o.list.Points().Count(), 2);
    o.loadSermon();
    o.tree->setCurrentItem(nullptr);
    o.click("cmdAdd");
    QCOMPARE(o.texts().last(), QStringLiteral("New Point"));
    QVERIFY(o.list.SelectedPoint().Parent().IsNothing());
    QCOMPARE(added.count(), 2);
}

void tst_PointList::addSubPointPutsItLastUnderTheSelectedOne() {
    Outline o;
    o.loadSermon();
    QSignalSpy added(&o.list, &PointList::PointAdded);
    o.select("B");
    o.click("cmdAddSubPoint");
    QCOMPARE(added.count(), 1);
    QCOMPARE(o.list.SelectedPoint().Parent().Key(), QStringLiteral("B"));
    QCOMPARE(o.texts(), QStringList({"Sin", "Grace", "Given", "Received", "New Point", "Faith"}));
}

void tst_PointList::newKeysAreUnique() {
    Outline o;
    o.list.AddPoint("P1", "", "Loaded with the key a new point would have");
    o.select("P1");
    o.click("cmdAdd");
    o.click("cmdAdd");
    QStringList keys;
    for (auto p = o.list.NextPoint(true); p; p = o.list.NextPoint(false))
        keys << p.Key();
    QCOMPARE(keys.size(), 3);
    keys.removeDuplicates();
    QCOMPARE(keys.size(), 3);
}

void tst_PointList::deleteRaisesPointDeletedWithWhetherItWasASubPoint() {
    Outline o;
    o.loadSermon();
    QSignalSpy deleted(&o.list, &PointList::PointDeleted);
    o.select("B1");
    o.click("cmdDelete");
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(deleted.at(0).at(0).toBool(), true);
    // The next sibling takes the selection.
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("B2"));
    o.select("C");
    o.click("cmdDelete");
    QCOMPARE(deleted.count(), 2);
    QCOMPARE(deleted.at(1).at(0).toBool(), false);
    // The last of its level: the one before takes the selection.
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("B"));
    QCOMPARE(o.texts(), QStringList({"Sin", "Grace", "Received"}));
}

void tst_PointList::deletingAPointWithSubPointsAsksFirst() {
    ScriptedPlatform platform;
    Outline o;
    o.loadSermon();
    QSignalSpy deleted(&o.list, &PointList::PointDeleted);
    o.select("B");
    platform.QueueAnswer(vbNo);
    o.click("cmdDelete");
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Delete this point and its sub-points?"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Delete Point"));
    QCOMPARE(platform.LastBox().Buttons, vbYesNo | vbQuestion | vbDefaultButton2);
    QCOMPARE(deleted.count(), 0);
    QCOMPARE(o.list.Points().Count(), 6);
    platform.QueueAnswer(vbYes);
    o.click("cmdDelete");
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(o.texts(), QStringList({"Sin", "Faith"}));
    QVERIFY(o.list.PointByKey("B1").IsNothing());
}

void tst_PointList::deletingTheLastPointLeavesCountZero() {
    Outline o;
    o.list.AddPoint("A", "", "Only");
    QSignalSpy deleted(&o.list, &PointList::PointDeleted);
    QList<qint32> countsSeen;
    connect(&o.list, &PointList::PointDeleted, this,
            [&] { countsSeen << o.list.Points().Count(); });
    o.select("A");
    o.click("cmdDelete");
    QCOMPARE(countsSeen, QList<qint32>({0}));
    QVERIFY(o.list.SelectedPoint().IsNothing());
}

void tst_PointList::indentMakesThePointASubPointOfTheOneAbove() {
    Outline o;
    o.loadSermon();
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("C");
    o.click("cmdIndent");
    QCOMPARE(reordered.count(), 1);
    QCOMPARE(o.walk(), QStringList({"A<", "B<", "B1<B", "B2<B", "C<B"}));
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("C"));
    // A point indented takes its sub-points along.
    o.select("B");
    o.click("cmdIndent");
    QCOMPARE(o.walk(), QStringList({"A<", "B<A", "B1<B", "B2<B", "C<B"}));
}

void tst_PointList::indentOfTheFirstSiblingDoesNothing() {
    Outline o;
    o.loadSermon();
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("B1");
    QVERIFY(!o.enabled("cmdIndent"));
    o.click("cmdIndent");
    QTest::keyClick(o.tree, Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(reordered.count(), 0);
    QCOMPARE(o.walk(), QStringList({"A<", "B<", "B1<B", "B2<B", "C<"}));
}

void tst_PointList::outdentMakesThePointFollowItsParent() {
    Outline o;
    o.loadSermon();
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("B1");
    o.click("cmdOutdent");
    QCOMPARE(reordered.count(), 1);
    QCOMPARE(o.walk(), QStringList({"A<", "B<", "B2<B", "B1<", "C<"}));
    // A point at the top cannot go further out.
    o.click("cmdOutdent");
    QCOMPARE(reordered.count(), 1);
}

void tst_PointList::moveUpAndDownSwapSiblingsWithTheirSubPoints() {
    Outline o;
    o.loadSermon();
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("B");
    o.click("cmdMoveUp");
    QCOMPARE(o.walk(), QStringList({"B<", "B1<B", "B2<B", "A<", "C<"}));
    o.click("cmdMoveDown");
    o.click("cmdMoveDown");
    QCOMPARE(o.walk(), QStringList({"A<", "C<", "B<", "B1<B", "B2<B"}));
    QCOMPARE(reordered.count(), 3);
    QCOMPARE(o.list.SelectedPoint().Key(), QStringLiteral("B"));
    QVERIFY(o.tree->topLevelItem(2)->isExpanded());
}

void tst_PointList::movesAtTheEndsDoNothing() {
    Outline o;
    o.loadSermon();
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("A");
    QVERIFY(!o.enabled("cmdMoveUp"));
    o.click("cmdMoveUp");
    o.select("B2");
    QVERIFY(!o.enabled("cmdMoveDown"));
    o.click("cmdMoveDown");
    QCOMPARE(reordered.count(), 0);
}

void tst_PointList::renameInPlaceRaisesPointRenamed() {
    Outline o;
    o.loadSermon();
    o.list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&o.list));
    QSignalSpy renamed(&o.list, &PointList::PointRenamed);
    o.select("A");
    QTest::keyClick(o.tree, Qt::Key_F2);
    auto* editor = o.tree->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("Sin and its wages"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(renamed.count(), 1);
    QCOMPARE(o.list.PointByKey("A").Text(), QStringLiteral("Sin and its wages"));
}

void tst_PointList::renameToEmptyPutsTheTextBack() {
    Outline o;
    o.loadSermon();
    QSignalSpy renamed(&o.list, &PointList::PointRenamed);
    o.tree->topLevelItem(0)->setText(0, QStringLiteral("   "));
    QCOMPARE(o.list.PointByKey("A").Text(), QStringLiteral("Sin"));
    QCOMPARE(renamed.count(), 0);
}

void tst_PointList::renameByCodeOverTheLimitRaises513() {
    Outline o;
    o.loadSermon();
    QSignalSpy renamed(&o.list, &PointList::PointRenamed);
    QString description;
    QCOMPARE(VBErrorNumberOf([&] { o.list.RenamePoint("A", QString(201, QLatin1Char('x'))); },
                             &description),
             513);
    QCOMPARE(description, QStringLiteral("Point text is too long"));
    QCOMPARE(o.list.PointByKey("A").Text(), QStringLiteral("Sin"));
    QCOMPARE(renamed.count(), 0);
    o.list.RenamePoint("A", QString(200, QLatin1Char('x')));
    QCOMPARE(renamed.count(), 1);
    QCOMPARE(VBErrorNumberOf([&] { o.list.RenamePoint("Z", "x"); }), 35601);
}

void tst_PointList::inPlaceEditorIsLimitedToTheLongestText() {
    Outline o;
    o.loadSermon();
    o.list.setmaxlengthofpointtext(10);
    o.list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&o.list));
    o.select("A");
    QTest::keyClick(o.tree, Qt::Key_F2);
    auto* editor = o.tree->findChild<QLineEdit*>();
    QVERIFY(editor);
    QCOMPARE(editor->maxLength(), 10);
}

void tst_PointList::notesEditedAreStoredWhenTheSelectionMoves() {
    Outline o;
    o.loadSermon();
    QSignalSpy notes(&o.list, &PointList::PointNotesChanged);
    o.select("A");
    QCOMPARE(o.notes->toPlainText(), QStringLiteral("We all fall short"));
    o.notes->setPlainText(QStringLiteral("Romans 3:23"));
    QCOMPARE(notes.count(), 0);
    o.select("B1");
    QCOMPARE(notes.count(), 1);
    QCOMPARE(o.list.PointByKey("A").Notes().toString(), QStringLiteral("Romans 3:23"));
    QCOMPARE(o.notes->toPlainText(), QStringLiteral("Freely"));
}

void tst_PointList::notesUnchangedRaiseNothing() {
    Outline o;
    o.loadSermon();
    QSignalSpy notes(&o.list, &PointList::PointNotesChanged);
    o.select("A");
    o.select("B");
    o.select("B2");
    o.select("C");
    QCOMPARE(notes.count(), 0);
}

void tst_PointList::keyboardAddsDeletesIndentsAndMoves() {
    ScriptedPlatform platform;
    Outline o;
    o.loadSermon();
    QSignalSpy added(&o.list, &PointList::PointAdded);
    QSignalSpy deleted(&o.list, &PointList::PointDeleted);
    QSignalSpy reordered(&o.list, &PointList::PointReOrdered);
    o.select("C");
    QTest::keyClick(o.tree, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(o.texts(), QStringList({"Sin", "Faith", "Grace", "Given", "Received"}));
    QTest::keyClick(o.tree, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(o.tree, Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(o.list.PointByKey("C").Parent().Key(), QStringLiteral("B"));
    QTest::keyClick(o.tree, Qt::Key_Left, Qt::ControlModifier);
    QVERIFY(o.list.PointByKey("C").Parent().IsNothing());
    QCOMPARE(reordered.count(), 4);
    QTest::keyClick(o.tree, Qt::Key_Insert);
    QTest::keyClick(o.tree, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(added.count(), 2);
    QCOMPARE(o.list.SelectedPoint().Parent().Text(), QStringLiteral("New Point"));
    QTest::keyClick(o.tree, Qt::Key_Delete);
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(o.list.Points().Count(), 7);
}

void tst_PointList::buttonsFollowTheSelection() {
    Outline o;
    QVERIFY(o.enabled("cmdAdd"));
    QVERIFY(!o.enabled("cmdAddSubPoint"));
    QVERIFY(!o.enabled("cmdDelete"));
    QVERIFY(!o.notes->isEnabled());
    o.loadSermon();
    o.select("B2");
    QVERIFY(o.enabled("cmdDelete"));
    QVERIFY(o.enabled("cmdIndent"));
    QVERIFY(o.enabled("cmdOutdent"));
    QVERIFY(o.enabled("cmdMoveUp"));
    QVERIFY(!o.enabled("cmdMoveDown"));
    QVERIFY(o.notes->isEnabled());
}

QTEST_MAIN(tst_PointList)
#include "tst_PointList.moc"
