// The song breakdown wizard's dialog: the proposal shown, renaming, the chorus
// mark, merge, split, the sung order by buttons and keys, Finish and Cancel;
// and the data library's wizard reaching the platform.
#include "../support/ScriptedPlatform.h"
#include "../support/TestDatabase.h"
#include "DataAccess.h"
#include "foundations/SongBreakdownWizard.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTreeWidget>

namespace {
const char* const Words = "Morning has come\nLight on the hill\n\nChorus:\nSing, sing\n\n"
                          "Evening has come\nStars on the hill";

struct Wizard {
    SongBreakdownWizard dialog{"Morning Song", SongBreakdown::Propose(Words)};

    template <class T> T* child(const char* name) {
        return dialog.findChild<T*>(QString::fromLatin1(name));
    }
    QPushButton* button(const char* name) { return child<QPushButton>(name); }
    QTreeWidget* parts() { return child<QTreeWidget>("lvwParts"); }
    QListWidget* order() { return child<QListWidget>("lstOrder"); }
    QStringList partNames() {
        QStringList names;
        for (int i = 0; i < parts()->topLevelItemCount(); ++i)
            names << parts()->topLevelItem(i)->text(0);
        return names;
    }
    QStringList orderShown() {
        QStringList names;
        for (int i = 0; i < order()->count(); ++i)
            names << order()->item(i)->text();
        return names;
    }
};
} // namespace

class tst_SongBreakdownWizard : public QObject {
    Q_OBJECT
private slots:
    void showsTheProposedPartsAndOrder();
    void selectedPartShowsItsNameKindAndWords();
    void renamingAPartRenamesItInTheOrder();
    void emptyNameKeepsThePartsName();
    void chorusMarkMakesAVerseAChorus();
    void mergeJoinsThePartWithTheNext();
    void splitCutsThePartAtTheCursorLine();
    void addToOrderSingsTheSelectedPartAfterTheSelectedEntry();
    void removeAndMoveEntriesOfTheOrder();
    void keysEditTheOrder();
    void defaultOrderGoesBackToVerseChorus();
    void finishNeedsAnOrder();
    void finishAcceptsAndCancelRejects();
    void dataLibraryWizardAsksThePlatform();
};

void tst_SongBreakdownWizard::showsTheProposedPartsAndOrder() {
    Wizard w;
    QCOMPARE(w.dialog.windowTitle(), QStringLiteral("Song Breakdown: Morning Song"));
    QCOMPARE(w.partNames(), QStringList({"Verse 1", "Chorus", "Verse 2"}));
    QCOMPARE(w.parts()->topLevelItem(1)->text(1), QStringLiteral("Chorus"));
    QCOMPARE(w.parts()->topLevelItem(2)->text(2), QStringLiteral("Evening has come"));
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QVERIFY(w.button("cmdFinish")->isEnabled());
}

void tst_SongBreakdownWizard::selectedPartShowsItsNameKindAndWords() {
    Wizard w;
    QCOMPARE(w.dialog.SelectedPart(), 0);
    w.dialog.SelectPart(1);
    QCOMPARE(w.child<QLineEdit>("txtPartName")->text(), QStringLiteral("Chorus"));
    QVERIFY(w.child<QCheckBox>("chkIsChorus")->isChecked());
    QCOMPARE(w.child<QTextEdit>("txtPartWords")->toPlainText(), QStringLiteral("Sing, sing"));
    QVERIFY(!w.button("cmdSplit")->isEnabled());
    w.dialog.SelectPart(2);
    QVERIFY(!w.child<QCheckBox>("chkIsChorus")->isChecked());
    QVERIFY(!w.button("cmdMerge")->isEnabled());
    QVERIFY(w.button("cmdSplit")->isEnabled());
}

void tst_SongBreakdownWizard::renamingAPartRenamesItInTheOrder() {
    Wizard w;
    w.dialog.SelectPart(1);
    auto* name = w.child<QLineEdit>("txtPartName");
    name->setText(QStringLiteral("Refrain"));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(w.dialog.Breakdown().Parts.at(1).Name, QStringLiteral("Refrain"));
    QCOMPARE(w.partNames(), QStringList({"Verse 1", "Refrain", "Verse 2"}));
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Refrain", "Verse 2", "Refrain"}));
    QCOMPARE(w.dialog.SelectedPart(), 1);
}

void tst_SongBreakdownWizard::emptyNameKeepsThePartsName() {
    Wizard w;
    auto* name = w.child<QLineEdit>("txtPartName");
    name->setText(QStringLiteral("  "));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(w.dialog.Breakdown().Parts.at(0).Name, QStringLiteral("Verse 1"));
    QCOMPARE(name->text(), QStringLiteral("Verse 1"));
}

void tst_SongBreakdownWizard::chorusMarkMakesAVerseAChorus() {
    Wizard w;
    w.dialog.SelectPart(2);
    w.child<QCheckBox>("chkIsChorus")->click();
    QVERIFY(w.dialog.Breakdown().Parts.at(2).IsChorus);
    QCOMPARE(w.partNames(), QStringList({"Verse 1", "Chorus", "Chorus 2"}));
    QCOMPARE(w.parts()->topLevelItem(2)->text(1), QStringLiteral("Chorus"));
}

void tst_SongBreakdownWizard::mergeJoinsThePartWithTheNext() {
    Wizard w;
    w.dialog.SelectPart(0);
    w.button("cmdMerge")->click();
    QCOMPARE(w.dialog.Breakdown().Parts.size(), 2);
    QCOMPARE(w.dialog.Breakdown().Parts.at(0).Text,
             QStringLiteral("Morning has come\nLight on the hill\n\nSing, sing"));
    QCOMPARE(w.partNames(), QStringList({"Chorus", "Verse 1"}));
    QCOMPARE(w.orderShown(), QStringList({"Chorus", "Verse 1"}));
}

void tst_SongBreakdownWizard::splitCutsThePartAtTheCursorLine() {
    Wizard w;
    w.dialog.SelectPart(2);
    auto* words = w.child<QTextEdit>("txtPartWords");
    QTextCursor cursor(words->document()->findBlockByNumber(1));
    words->setTextCursor(cursor);
    w.button("cmdSplit")->click();
    QCOMPARE(w.partNames(), QStringList({"Verse 1", "Chorus", "Verse 2", "Verse 3"}));
    QCOMPARE(w.dialog.Breakdown().Parts.at(3).Text, QStringLiteral("Stars on the hill"));
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2", "Verse 3", "Chorus"}));
    QCOMPARE(w.dialog.SelectedPart(), 3);
}

void tst_SongBreakdownWizard::addToOrderSingsTheSelectedPartAfterTheSelectedEntry() {
    Wizard w;
    w.dialog.SelectPart(0);
    w.order()->setCurrentRow(0);
    w.button("cmdAddToOrder")->click();
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QCOMPARE(w.order()->currentRow(), 1);
    w.order()->setCurrentRow(-1);
    w.dialog.SelectPart(2);
    w.button("cmdAddToOrder")->click();
    QCOMPARE(w.orderShown().last(), QStringLiteral("Verse 2"));
    QCOMPARE(w.dialog.Breakdown().Order.last(), 2);
}

void tst_SongBreakdownWizard::removeAndMoveEntriesOfTheOrder() {
    Wizard w;
    w.order()->setCurrentRow(1);
    w.button("cmdRemoveFromOrder")->click();
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Verse 2", "Chorus"}));
    QCOMPARE(w.order()->currentRow(), 1);
    w.button("cmdOrderUp")->click();
    QCOMPARE(w.orderShown(), QStringList({"Verse 2", "Verse 1", "Chorus"}));
    QVERIFY(!w.button("cmdOrderUp")->isEnabled());
    w.button("cmdOrderDown")->click();
    w.button("cmdOrderDown")->click();
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2"}));
    QVERIFY(!w.button("cmdOrderDown")->isEnabled());
    QCOMPARE(w.dialog.Breakdown().Order, QList<int>({0, 1, 2}));
}

void tst_SongBreakdownWizard::keysEditTheOrder() {
    Wizard w;
    w.order()->setCurrentRow(3);
    QTest::keyClick(w.order(), Qt::Key_Delete);
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2"}));
    w.order()->setCurrentRow(2);
    QTest::keyClick(w.order(), Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Verse 2", "Chorus"}));
    QTest::keyClick(w.order(), Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2"}));
    w.dialog.SelectPart(1);
    QTest::keyClick(w.parts(), Qt::Key_Return);
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
}

void tst_SongBreakdownWizard::defaultOrderGoesBackToVerseChorus() {
    Wizard w;
    while (w.order()->count() > 0) {
        w.order()->setCurrentRow(0);
        w.button("cmdRemoveFromOrder")->click();
    }
    w.button("cmdDefaultOrder")->click();
    QCOMPARE(w.orderShown(), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
}

void tst_SongBreakdownWizard::finishNeedsAnOrder() {
    Wizard w;
    while (w.order()->count() > 0) {
        w.order()->setCurrentRow(0);
        w.button("cmdRemoveFromOrder")->click();
    }
    QVERIFY(!w.button("cmdFinish")->isEnabled());
    QVERIFY(!w.button("cmdRemoveFromOrder")->isEnabled());
}

void tst_SongBreakdownWizard::finishAcceptsAndCancelRejects() {
    Wizard w;
    QSignalSpy accepted(&w.dialog, &QDialog::accepted);
    QSignalSpy rejected(&w.dialog, &QDialog::rejected);
    w.button("cmdFinish")->click();
    QCOMPARE(accepted.count(), 1);
    w.button("cmdCancel")->click();
    QCOMPARE(rejected.count(), 1);
}

void tst_SongBreakdownWizard::dataLibraryWizardAsksThePlatform() {
    TestDatabase db;
    ScriptedPlatform platform;
    const qint32 song = db.AddServiceItem(TestDatabase::Song, "Morning Song", Words);
    QVERIFY(song > 0);
    platform.QueueSongBreakdown([](SongBreakdown::Breakdown& b) {
        b.Order.removeLast();
        return true;
    });
    QString error;
    qint16 result = 0;
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(result, qint16(1));
    QCOMPARE(platform.SongBreakdownOffers().size(), 1);
    QCOMPARE(platform.SongBreakdownOffers().first().Title, QStringLiteral("Morning Song"));
    QCOMPARE(platform.SongBreakdownOffers().first().Proposal.Order, QList<int>({0, 1, 2, 1}));
    QCOMPARE(db.Count("SongSequence", "ServiceItemID = ?", {song}), 3);
    QCOMPARE(db.Count("Verses", "ServiceItemID = ?", {song}), 3);
    // Cancel leaves the stored breakdown alone.
    platform.QueueSongBreakdown([](SongBreakdown::Breakdown&) { return false; });
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QCOMPARE(result, qint16(0));
    QCOMPARE(db.Count("SongSequence", "ServiceItemID = ?", {song}), 3);
}

QTEST_MAIN(tst_SongBreakdownWizard)
#include "tst_SongBreakdownWizard.moc"
