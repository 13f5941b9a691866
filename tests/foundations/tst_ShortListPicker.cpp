// The short-list picker: the saved short-lists offered through the platform,
// the id chosen or 0, no short-lists, a store that fails, and its dialog with
// the filter box, the keys, OK and Cancel.
#include "../support/ScriptedPlatform.h"
#include "../support/TestDatabase.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/ShortListPicker.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

namespace {
QStringList descriptionsOf(const QList<ShortListChoice>& choices) {
    QStringList texts;
    for (const ShortListChoice& choice : choices)
        texts << choice.Description;
    return texts;
}

QList<ShortListChoice> threeChoices() {
    const QDateTime date(QDate(2025, 12, 1), QTime(10, 0));
    return {{4, QStringLiteral("Advent hymns"), QStringLiteral("Mary"), date},
            {9, QStringLiteral("Children's songs"), QStringLiteral("John"), date},
            {7, QStringLiteral("Easter songs"), QStringLiteral("Ruth"), QDateTime()}};
}

struct Picker {
    ShortListPickerDialog dialog{threeChoices()};
    QTreeWidget* list() { return dialog.findChild<QTreeWidget*>(QStringLiteral("lvwShortLists")); }
    QLineEdit* filter() { return dialog.findChild<QLineEdit*>(QStringLiteral("txtFilter")); }
    QPushButton* button(const char* name) {
        return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    void select(int row) { list()->setCurrentItem(list()->topLevelItem(row)); }
};
} // namespace

class tst_ShortListPicker : public QObject {
    Q_OBJECT
private slots:
    void offersTheSavedShortListsByDescriptionAndReturnsTheChosenId();
    void cancelReturnsZero();
    void anIdNotOfferedReturnsZero();
    void noSavedShortListSaysSoAndReturnsZero();
    void storeFailureGivesTheErrorTextAndNoPicker();
    void storedApostropheIsShownDecoded();
    void pickerIsOneInstance();
    void dialogListsTheShortListsWithTheirColumns();
    void dialogStartsOnTheFirstShortList();
    void typingNarrowsTheListAndSelectsTheFirstShown();
    void filterThatHidesEverythingDisablesOK();
    void okAcceptsWithTheSelectedId();
    void cancelButtonAndEscapeReject();
    void doubleClickChoosesTheShortList();
};

void tst_ShortListPicker::offersTheSavedShortListsByDescriptionAndReturnsTheChosenId() {
    TestDatabase db;
    QVERIFY(db.IsValid());
    ScriptedPlatform platform;
    const qint32 easter = db.AddShortList(QStringLiteral("Easter songs"), {1});
    const qint32 advent = db.AddShortList(QStringLiteral("Advent hymns"), {1}, "Mary");
    QVERIFY(easter > 0);
    QVERIFY(advent > 0);
    platform.QueueShortListChoice(easter);
    QString strErrorMessage = QStringLiteral("old");
    QCOMPARE(ShortListPicker::Instance().SelectShortList(strErrorMessage), easter);
    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(platform.ShortListOffers().size(), 1);
    const QList<ShortListChoice> offered = platform.ShortListOffers().first();
    QVERIFY(descriptionsOf(offered).indexOf("Advent hymns") <
            descriptionsOf(offered).indexOf("Easter songs"));
    for (const ShortListChoice& choice : offered) {
        if (choice.ShortListID == advent) {
            QCOMPARE(choice.Description, QStringLiteral("Advent hymns"));
            QCOMPARE(choice.CreatedBy, QStringLiteral("Mary"));
            QVERIFY(choice.DateCreated.isValid());
        }
    }
}

void tst_ShortListPicker::cancelReturnsZero() {
    TestDatabase db;
    ScriptedPlatform platform;
    QVERIFY(db.AddShortList(QStringLiteral("Easter songs"), {1}) > 0);
    platform.QueueShortListChoice(0);
    QString strErrorMessage;
    QCOMPARE(ShortListPicker::Instance().SelectShortList(strErrorMessage), 0);
    QVERIFY(strErrorMessage.isEmpty());
}

void tst_ShortListPicker::anIdNotOfferedReturnsZero() {
    TestDatabase db;
    ScriptedPlatform platform;
    const qint32 easter = db.AddShortList(QStringLiteral("Easter songs"), {1});
    platform.QueueShortListChoice(easter + 100);
    QString strErrorMessage;
    QCOMPARE(ShortListPicker::Instance().SelectShortList(strErrorMessage), 0);
}

void tst_ShortListPicker::noSavedShortListSaysSoAndReturnsZero() {
    TestDatabase db;
    ScriptedPlatform platform;
    QVERIFY(db.Exec(QStringLiteral("DELETE FROM ShortLists")));
    platform.QueueAnswer(vbOK);
    QString strErrorMessage;
    QCOMPARE(ShortListPicker::Instance().SelectShortList(strErrorMessage), 0);
    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Select a Short-List"));
    QVERIFY(platform.LastBox().Prompt.startsWith(
        QStringLiteral("No Short-Lists have been saved yet.")));
    QVERIFY(platform.ShortListOffers().isEmpty());
}

void tst_ShortListPicker::storeFailureGivesTheErrorTextAndNoPicker() {
    TestDatabase db;
    ScriptedPlatform platform;
    QVERIFY(db.Exec(QStringLiteral("DROP TABLE ShortLists")));
    QString strErrorMessage;
    QCOMPARE(ShortListPicker::Instance().SelectShortList(strErrorMessage), 0);
    QVERIFY(!strErrorMessage.isEmpty());
    QCOMPARE(platform.BoxCount(), 0);
    QVERIFY(platform.ShortListOffers().isEmpty());
}

void tst_ShortListPicker::storedApostropheIsShownDecoded() {
    TestDatabase db;
    ScriptedPlatform platform;
    QVERIFY(db.Exec(QStringLiteral("DELETE FROM ShortLists")));
    QVERIFY(db.Exec(QStringLiteral("INSERT INTO ShortLists (ShortListDescription, "
                                   "ShortListDateCreated, ShortListContent) VALUES "
                                   "('Children@@s songs', '2025-05-03 10:00:00', '1')")));
    QString strErrorMessage;
    const QList<ShortListChoice> choices = ShortListPicker::ReadShortLists(strErrorMessage);
    QVERIFY(strErrorMessage.isEmpty());
    QCOMPARE(descriptionsOf(choices), QStringList({"Children's songs"}));
    QCOMPARE(choices.first().DateCreated.date(), QDate(2025, 5, 3));
}

void tst_ShortListPicker::pickerIsOneInstance() {
    QCOMPARE(&ShortListPicker::Instance(), &ShortListPicker::Instance());
}

void tst_ShortListPicker::dialogListsTheShortListsWithTheirColumns() {
    Picker p;
    QCOMPARE(p.dialog.windowTitle(), QStringLiteral("Select a Short-List"));
    QVERIFY(p.dialog.findChild<RKLvwBannerFilter*>(QStringLiteral("fltShortLists")));
    QCOMPARE(p.list()->topLevelItemCount(), 3);
    QCOMPARE(p.list()->headerItem()->text(0), QStringLiteral("Description"));
    QCOMPARE(p.list()->headerItem()->text(1), QStringLiteral("Created Date"));
    QCOMPARE(p.list()->headerItem()->text(2), QStringLiteral("Created By"));
    QCOMPARE(p.list()->topLevelItem(1)->text(0), QStringLiteral("Children's songs"));
    QCOMPARE(p.list()->topLevelItem(1)->text(2), QStringLiteral("John"));
    QCOMPARE(p.list()->topLevelItem(0)->text(1),
             QLocale().toString(QDate(2025, 12, 1), QLocale::ShortFormat));
    QVERIFY(p.list()->topLevelItem(2)->text(1).isEmpty());
    QVERIFY(p.button("cmdOK"));
    QVERIFY(p.button("cmdCancel"));
}

void tst_ShortListPicker::dialogStartsOnTheFirstShortList() {
    Picker p;
    QCOMPARE(p.dialog.ChosenShortListID(), 4);
    QVERIFY(p.button("cmdOK")->isEnabled());
}

void tst_ShortListPicker::typingNarrowsTheListAndSelectsTheFirstShown() {
    Picker p;
    QTest::keyClicks(p.filter(), QStringLiteral("songs"));
    QVERIFY(p.list()->topLevelItem(0)->isHidden());
    QCOMPARE(p.dialog.ChosenShortListID(), 9);
    QTest::keyClicks(p.filter(), QStringLiteral(" "));
    QTest::keyClick(p.filter(), Qt::Key_Backspace);
    p.select(2);
    QCOMPARE(p.dialog.ChosenShortListID(), 7);
    // A selection still shown stays.
    QTest::keyClick(p.filter(), Qt::Key_Backspace);
    QCOMPARE(p.dialog.ChosenShortListID(), 7);
}

void tst_ShortListPicker::filterThatHidesEverythingDisablesOK() {
    Picker p;
    QTest::keyClicks(p.filter(), QStringLiteral("harvest"));
    QCOMPARE(p.dialog.ChosenShortListID(), 0);
    QVERIFY(!p.button("cmdOK")->isEnabled());
    p.filter()->clear();
    QVERIFY(p.button("cmdOK")->isEnabled());
}

void tst_ShortListPicker::okAcceptsWithTheSelectedId() {
    Picker p;
    p.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&p.dialog));
    QSignalSpy accepted(&p.dialog, &QDialog::accepted);
    p.filter()->setFocus();
    QTest::keyClicks(p.filter(), QStringLiteral("easter"));
    QTest::keyClick(p.filter(), Qt::Key_Return);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(p.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(p.dialog.ChosenShortListID(), 7);
}

void tst_ShortListPicker::cancelButtonAndEscapeReject() {
    Picker p;
    p.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&p.dialog));
    QSignalSpy rejected(&p.dialog, &QDialog::rejected);
    p.button("cmdCancel")->click();
    QCOMPARE(rejected.count(), 1);
    p.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&p.dialog));
    p.list()->setFocus();
    QTest::keyClick(p.list(), Qt::Key_Escape);
    QCOMPARE(rejected.count(), 2);
    QCOMPARE(p.dialog.result(), int(QDialog::Rejected));
}

void tst_ShortListPicker::doubleClickChoosesTheShortList() {
    Picker p;
    p.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&p.dialog));
    QSignalSpy accepted(&p.dialog, &QDialog::accepted);
    QTreeWidgetItem* children = p.list()->topLevelItem(1);
    const QPoint centre = p.list()->visualItemRect(children).center();
    // A double click is a press and release and a second press, as a mouse gives it.
    QTest::mouseClick(p.list()->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(p.list()->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(p.dialog.ChosenShortListID(), 9);
}

QTEST_MAIN(tst_ShortListPicker)
#include "tst_ShortListPicker.moc"
