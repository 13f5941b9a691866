// The list editor of two lists: the operations by code, the four events with
// their arguments, the user's adds, removals, new entries and renames, by
// mouse and by keyboard, and the free Tag.
#include "../support/ScriptedPlatform.h"
#include "../support/VBErrorCheck.h"
#include "foundations/ListManager.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {
struct Lists {
    ListManager manager;
    QListWidget* available = nullptr;
    QListWidget* chosen = nullptr;
    QLineEdit* newItem = nullptr;

    Lists() {
        available = manager.findChild<QListWidget*>(QStringLiteral("lstAvailable"));
        chosen = manager.findChild<QListWidget*>(QStringLiteral("lstChosen"));
        newItem = manager.findChild<QLineEdit*>(QStringLiteral("txtNewItem"));
        manager.AddAvailableItem(QStringLiteral("Christmas"), 0, 11);
        manager.AddAvailableItem(QStringLiteral("Easter"), 0, 12);
        manager.AddAvailableItem(QStringLiteral("Harvest"), 0, 13);
    }
    QPushButton* button(const char* name) {
        return manager.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    QListWidgetItem* availableEntry(const QString& text) {
        const auto found = available->findItems(text, Qt::MatchExactly);
        return found.isEmpty() ? nullptr : found.first();
    }
    QStringList visibleAvailable() const {
        QStringList texts;
        for (int i = 0; i < available->count(); ++i) {
            if (!available->item(i)->isHidden())
                texts << available->item(i)->text();
        }
        return texts;
    }
    QStringList chosenTexts() const {
        QStringList texts;
        for (qint32 i = 1; i <= manager.ChosenCount(); ++i)
            texts << manager.ChosenItemText(i);
        return texts;
    }
};

// BeforeItemAdd carries references, which a QSignalSpy cannot copy: count it
// with a direct handler.
void countBeforeItemAdd(ListManager& manager, int& count) {
    QObject::connect(
        &manager, &ListManager::BeforeItemAdd, &manager,
        [&count](bool&, QVariant&, const QString&) { ++count; }, Qt::DirectConnection);
}
} // namespace

class tst_ListManager : public QObject {
    Q_OBJECT
private slots:
    void childWidgetsCarryTheirNames();
    void availableItemsAreListedAndCleared();
    void chosenItemsByCodeAreCountedFromOneWithTheirData();
    void chosenIndexOutOfRangeRaises9();
    void addChosenByCodeRaisesNoEventUnlessAsked();
    void addChosenWithEventsRaisesBeforeItemAddThenItemAdded();
    void beforeItemAddCancelRefusesTheEntry();
    void beforeItemAddHandlerGivesTheItemData();
    void chosenTextIsNotAddedTwiceWhateverItsCase();
    void chosenEntryIsHiddenFromAvailableAndShownAgainWhenRemoved();
    void clearChosenShowsEveryAvailableEntryAgain();
    void itemIsAvailableMatchesTextWithoutCaseAndFlag();
    void addButtonChoosesTheSelectedAvailableEntry();
    void doubleClickOnAvailableEntryChoosesIt();
    void enterOnAvailableEntryChoosesItAndMovesOn();
    void removeButtonRaisesItemDeleted();
    void deleteKeyOnChosenEntryRemovesIt();
    void removeChosenItemByIndexRaisesItemDeleted();
    void newEntryTypedIsAddedThroughBeforeItemAdd();
    void newEntryMatchingAnAvailableOneTakesItsData();
    void newEntryRefusedStaysInTheBox();
    void emptyNewEntryAddsNothing();
    void newEntryOverTheLimitIsRefusedWithAMessage();
    void renamingAChosenEntryRaisesItemUpdated();
    void renamingToEmptyOrADuplicatePutsTheTextBack();
    void buttonsFollowTheSelection();
    void tagIsAFreeTextTheWidgetNeverTouches();
    void failureInAHandlerIsReportedNotPassedOn();
};

void tst_ListManager::childWidgetsCarryTheirNames() {
    Lists l;
    QVERIFY(l.available);
    QVERIFY(l.chosen);
    QVERIFY(l.newItem);
    QVERIFY(l.button("cmdAdd"));
    QVERIFY(l.button("cmdRemove"));
    QVERIFY(l.button("cmdNew"));
    l.manager.setCaption(QStringLiteral("Keywords"));
    QCOMPARE(l.manager.Caption(), QStringLiteral("Keywords"));
    QVERIFY(l.manager.setProperty("Caption", QStringLiteral("Resources")));
    QCOMPARE(l.manager.Caption(), QStringLiteral("Resources"));
}

void tst_ListManager::availableItemsAreListedAndCleared() {
    Lists l;
    QCOMPARE(l.manager.AvailableCount(), 3);
    QCOMPARE(l.visibleAvailable(), QStringList({"Christmas", "Easter", "Harvest"}));
    l.manager.ClearAvailableItems();
    QCOMPARE(l.manager.AvailableCount(), 0);
}

void tst_ListManager::chosenItemsByCodeAreCountedFromOneWithTheirData() {
    Lists l;
    QVERIFY(l.manager.AddChosenItem(QStringLiteral("Projector"), 0, false, 5));
    QVERIFY(l.manager.AddChosenItem(QStringLiteral("Candles"), 0, false, 7));
    QCOMPARE(l.manager.ChosenCount(), 2);
    QCOMPARE(l.manager.ChosenItemText(1), QStringLiteral("Projector"));
    QCOMPARE(l.manager.ChosenItemData(1), QVariant(5));
    QCOMPARE(l.manager.ChosenItemText(2), QStringLiteral("Candles"));
    QCOMPARE(l.manager.ChosenItemData(2), QVariant(7));
    l.manager.ClearChosenItems();
    QCOMPARE(l.manager.ChosenCount(), 0);
}

void tst_ListManager::chosenIndexOutOfRangeRaises9() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QCOMPARE(VBErrorNumberOf([&] { l.manager.ChosenItemText(0); }), 9);
    QCOMPARE(VBErrorNumberOf([&] { l.manager.ChosenItemData(2); }), 9);
    QCOMPARE(VBErrorNumberOf([&] { l.manager.RemoveChosenItem(2); }), 9);
}

void tst_ListManager::addChosenByCodeRaisesNoEventUnlessAsked() {
    Lists l;
    int before = 0;
    countBeforeItemAdd(l.manager, before);
    QSignalSpy added(&l.manager, &ListManager::ItemAdded);
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QCOMPARE(before, 0);
    QCOMPARE(added.count(), 0);
}

void tst_ListManager::addChosenWithEventsRaisesBeforeItemAddThenItemAdded() {
    Lists l;
    QStringList order;
    QString seenText;
    QVariant seenData;
    connect(
        &l.manager, &ListManager::BeforeItemAdd, this,
        [&](bool& Cancel, QVariant& ItemDataToBeAdded, const QString& ListToBeAdded) {
            order << "BeforeItemAdd";
            QCOMPARE(Cancel, false);
            seenData = ItemDataToBeAdded;
            seenText = ListToBeAdded;
        },
        Qt::DirectConnection);
    QVariant addedData;
    QString addedText;
    connect(&l.manager, &ListManager::ItemAdded, this,
            [&](const QVariant& ItemData, const QString& List) {
                order << "ItemAdded";
                addedData = ItemData;
                addedText = List;
            });
    QVERIFY(l.manager.AddChosenItem(QStringLiteral("Easter"), 0, true, 12));
    QCOMPARE(order, QStringList({"BeforeItemAdd", "ItemAdded"}));
    QCOMPARE(seenText, QStringLiteral("Easter"));
    QCOMPARE(seenData, QVariant(12));
    QCOMPARE(addedText, QStringLiteral("Easter"));
    QCOMPARE(addedData, QVariant(12));
}

void tst_ListManager::beforeItemAddCancelRefusesTheEntry() {
    Lists l;
    connect(
        &l.manager, &ListManager::BeforeItemAdd, this,
        [](bool& Cancel, QVariant&, const QString&) { Cancel = true; }, Qt::DirectConnection);
    QSignalSpy added(&l.manager, &ListManager::ItemAdded);
    QVERIFY(!l.manager.AddChosenItem(QStringLiteral("Easter"), 0, true, 12));
    QCOMPARE(l.manager.ChosenCount(), 0);
    QCOMPARE(added.count(), 0);
    QVERIFY(l.visibleAvailable().contains("Easter"));
}

void tst_ListManager::beforeItemAddHandlerGivesTheItemData() {
    Lists l;
    connect(
        &l.manager, &ListManager::BeforeItemAdd, this,
        [](bool&, QVariant& ItemDataToBeAdded, const QString&) { ItemDataToBeAdded = 99; },
        Qt::DirectConnection);
    QSignalSpy added(&l.manager, &ListManager::ItemAdded);
    l.newItem->setText(QStringLiteral("Pentecost"));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QCOMPARE(l.manager.ChosenItemData(1), QVariant(99));
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0), QVariant(99));
    QCOMPARE(added.at(0).at(1).toString(), QStringLiteral("Pentecost"));
}

void tst_ListManager::chosenTextIsNotAddedTwiceWhateverItsCase() {
    Lists l;
    QSignalSpy added(&l.manager, &ListManager::ItemAdded);
    QVERIFY(l.manager.AddChosenItem(QStringLiteral("Easter"), 0, true, 12));
    QVERIFY(!l.manager.AddChosenItem(QStringLiteral("EASTER"), 0, true, 12));
    QCOMPARE(l.manager.ChosenCount(), 1);
    QCOMPARE(added.count(), 1);
}

void tst_ListManager::chosenEntryIsHiddenFromAvailableAndShownAgainWhenRemoved() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("easter"), 0, false, 12);
    QCOMPARE(l.visibleAvailable(), QStringList({"Christmas", "Harvest"}));
    l.manager.RemoveChosenItem(1);
    QCOMPARE(l.visibleAvailable(), QStringList({"Christmas", "Easter", "Harvest"}));
    // An available entry added after the choice stays hidden too.
    l.manager.AddChosenItem(QStringLiteral("Advent"), 0, false, 14);
    l.manager.AddAvailableItem(QStringLiteral("Advent"), 0, 14);
    QVERIFY(!l.visibleAvailable().contains("Advent"));
}

void tst_ListManager::clearChosenShowsEveryAvailableEntryAgain() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    l.manager.AddChosenItem(QStringLiteral("Harvest"), 0, false, 13);
    QSignalSpy deleted(&l.manager, &ListManager::ItemDeleted);
    l.manager.ClearChosenItems();
    QCOMPARE(l.visibleAvailable().size(), 3);
    QCOMPARE(deleted.count(), 0);
}

void tst_ListManager::itemIsAvailableMatchesTextWithoutCaseAndFlag() {
    Lists l;
    QString strErrorMessage = QStringLiteral("old");
    QVERIFY(l.manager.ItemIsAvailable(QStringLiteral("christmas"), 0, strErrorMessage));
    QVERIFY(strErrorMessage.isEmpty());
    QVERIFY(!l.manager.ItemIsAvailable(QStringLiteral("Christmas"), 1, strErrorMessage));
    QVERIFY(!l.manager.ItemIsAvailable(QStringLiteral("Lent"), 0, strErrorMessage));
    // A chosen entry still stands in the available list.
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QVERIFY(l.manager.ItemIsAvailable(QStringLiteral("Easter"), 0, strErrorMessage));
}

void tst_ListManager::addButtonChoosesTheSelectedAvailableEntry() {
    Lists l;
    QSignalSpy added(&l.manager, &ListManager::ItemAdded);
    l.available->setCurrentItem(l.availableEntry("Harvest"));
    l.button("cmdAdd")->click();
    QCOMPARE(l.chosenTexts(), QStringList({"Harvest"}));
    QCOMPARE(l.manager.ChosenItemData(1), QVariant(13));
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(1).toString(), QStringLiteral("Harvest"));
}

void tst_ListManager::doubleClickOnAvailableEntryChoosesIt() {
    Lists l;
    l.manager.show();
    QVERIFY(QTest::qWaitForWindowExposed(&l.manager));
    QListWidgetItem* easter = l.availableEntry("Easter");
    const QPoint centre = l.available->visualItemRect(easter).center();
    // A double click is a press and release and a second press, as a mouse gives it.
    QTest::mouseClick(l.available->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(l.available->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(l.chosenTexts(), QStringList({"Easter"}));
}

void tst_ListManager::enterOnAvailableEntryChoosesItAndMovesOn() {
    Lists l;
    l.available->setCurrentItem(l.availableEntry("Christmas"));
    QTest::keyClick(l.available, Qt::Key_Return);
    QTest::keyClick(l.available, Qt::Key_Return);
    QCOMPARE(l.chosenTexts(), QStringList({"Christmas", "Easter"}));
    QCOMPARE(l.visibleAvailable(), QStringList({"Harvest"}));
}

void tst_ListManager::removeButtonRaisesItemDeleted() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QSignalSpy deleted(&l.manager, &ListManager::ItemDeleted);
    l.chosen->setCurrentRow(0);
    l.button("cmdRemove")->click();
    QCOMPARE(l.manager.ChosenCount(), 0);
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(deleted.at(0).at(0), QVariant(12));
    QCOMPARE(deleted.at(0).at(1).toString(), QStringLiteral("Easter"));
}

void tst_ListManager::deleteKeyOnChosenEntryRemovesIt() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    l.manager.AddChosenItem(QStringLiteral("Harvest"), 0, false, 13);
    QSignalSpy deleted(&l.manager, &ListManager::ItemDeleted);
    l.chosen->setCurrentRow(1);
    QTest::keyClick(l.chosen, Qt::Key_Delete);
    QCOMPARE(l.chosenTexts(), QStringList({"Easter"}));
    l.chosen->setCurrentRow(0);
    QTest::keyClick(l.chosen, Qt::Key_Backspace);
    QCOMPARE(l.manager.ChosenCount(), 0);
    QCOMPARE(deleted.count(), 2);
}

void tst_ListManager::removeChosenItemByIndexRaisesItemDeleted() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    l.manager.AddChosenItem(QStringLiteral("Harvest"), 0, false, 13);
    QSignalSpy deleted(&l.manager, &ListManager::ItemDeleted);
    l.manager.RemoveChosenItem(2);
    QCOMPARE(l.chosenTexts(), QStringList({"Easter"}));
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(deleted.at(0).at(0), QVariant(13));
}

void tst_ListManager::newEntryTypedIsAddedThroughBeforeItemAdd() {
    Lists l;
    QString seenText;
    QVariant seenData = QStringLiteral("not called");
    connect(
        &l.manager, &ListManager::BeforeItemAdd, this,
        [&](bool&, QVariant& ItemDataToBeAdded, const QString& ListToBeAdded) {
            seenText = ListToBeAdded;
            seenData = ItemDataToBeAdded;
        },
        Qt::DirectConnection);
    QTest::keyClicks(l.newItem, QStringLiteral("  Lent  "));
    l.button("cmdNew")->click();
    QCOMPARE(seenText, QStringLiteral("Lent"));
    QVERIFY(seenData.isNull());
    QCOMPARE(l.chosenTexts(), QStringList({"Lent"}));
    QVERIFY(l.newItem->text().isEmpty());
}

void tst_ListManager::newEntryMatchingAnAvailableOneTakesItsData() {
    Lists l;
    QTest::keyClicks(l.newItem, QStringLiteral("harvest"));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QCOMPARE(l.manager.ChosenItemData(1), QVariant(13));
    QVERIFY(!l.visibleAvailable().contains("Harvest"));
}

void tst_ListManager::newEntryRefusedStaysInTheBox() {
    Lists l;
    connect(
        &l.manager, &ListManager::BeforeItemAdd, this,
        [](bool& Cancel, QVariant&, const QString&) { Cancel = true; }, Qt::DirectConnection);
    QTest::keyClicks(l.newItem, QStringLiteral("Lent"));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QCOMPARE(l.manager.ChosenCount(), 0);
    QCOMPARE(l.newItem->text(), QStringLiteral("Lent"));
}

void tst_ListManager::emptyNewEntryAddsNothing() {
    Lists l;
    int before = 0;
    countBeforeItemAdd(l.manager, before);
    QTest::keyClicks(l.newItem, QStringLiteral("   "));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QVERIFY(!l.button("cmdNew")->isEnabled());
    QCOMPARE(before, 0);
    QCOMPARE(l.manager.ChosenCount(), 0);
}

void tst_ListManager::newEntryOverTheLimitIsRefusedWithAMessage() {
    ScriptedPlatform platform;
    Lists l;
    l.manager.setMaxItemLength(50);
    int before = 0;
    countBeforeItemAdd(l.manager, before);
    platform.QueueAnswer(vbOK);
    l.newItem->setText(QString(51, QLatin1Char('k')));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("An entry can be at most 50 characters long."));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Entry Too Long"));
    QCOMPARE(before, 0);
    QCOMPARE(l.manager.ChosenCount(), 0);
    // Fifty characters are accepted.
    l.newItem->setText(QString(50, QLatin1Char('k')));
    QTest::keyClick(l.newItem, Qt::Key_Return);
    QCOMPARE(l.manager.ChosenCount(), 1);
}

void tst_ListManager::renamingAChosenEntryRaisesItemUpdated() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QSignalSpy updated(&l.manager, &ListManager::ItemUpdated);
    l.chosen->item(0)->setText(QStringLiteral("Easter Day"));
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0), QVariant(12));
    QCOMPARE(updated.at(0).at(1).toString(), QStringLiteral("Easter Day"));
    QCOMPARE(l.manager.ChosenItemText(1), QStringLiteral("Easter Day"));
    // The former text is free again in the available list.
    QVERIFY(l.visibleAvailable().contains("Easter"));
}

void tst_ListManager::renamingToEmptyOrADuplicatePutsTheTextBack() {
    Lists l;
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    l.manager.AddChosenItem(QStringLiteral("Harvest"), 0, false, 13);
    QSignalSpy updated(&l.manager, &ListManager::ItemUpdated);
    l.chosen->item(0)->setText(QStringLiteral("  "));
    QCOMPARE(l.manager.ChosenItemText(1), QStringLiteral("Easter"));
    l.chosen->item(0)->setText(QStringLiteral("harvest"));
    QCOMPARE(l.manager.ChosenItemText(1), QStringLiteral("Easter"));
    QCOMPARE(updated.count(), 0);
}

void tst_ListManager::buttonsFollowTheSelection() {
    Lists l;
    QVERIFY(!l.button("cmdAdd")->isEnabled());
    QVERIFY(!l.button("cmdRemove")->isEnabled());
    QVERIFY(!l.button("cmdNew")->isEnabled());
    l.available->setCurrentRow(0);
    QVERIFY(l.button("cmdAdd")->isEnabled());
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, false, 12);
    QVERIFY(l.button("cmdRemove")->isEnabled());
    l.newItem->setText(QStringLiteral("Lent"));
    QVERIFY(l.button("cmdNew")->isEnabled());
}

void tst_ListManager::tagIsAFreeTextTheWidgetNeverTouches() {
    Lists l;
    connect(&l.manager, &ListManager::ItemAdded, this,
            [&] { l.manager.setTag(QStringLiteral("Dirty")); });
    QCOMPARE(l.manager.Tag(), QString());
    l.manager.AddChosenItem(QStringLiteral("Easter"), 0, true, 12);
    QCOMPARE(l.manager.Tag(), QStringLiteral("Dirty"));
    l.manager.ClearChosenItems();
    l.manager.ClearAvailableItems();
    QCOMPARE(l.manager.Tag(), QStringLiteral("Dirty"));
    QVERIFY(l.manager.setProperty("Tag", QString()));
    QCOMPARE(l.manager.Tag(), QString());
}

void tst_ListManager::failureInAHandlerIsReportedNotPassedOn() {
    ScriptedPlatform platform;
    Lists l;
    connect(&l.manager, &ListManager::ItemAdded, this, [] { throw VBError(13); });
    platform.QueueAnswer(vbOK);
    l.available->setCurrentRow(0);
    l.button("cmdAdd")->click();
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(platform.LastBox().Prompt.startsWith(QStringLiteral("Run-time error '13':")));
}

QTEST_MAIN(tst_ListManager)
#include "tst_ListManager.moc"
