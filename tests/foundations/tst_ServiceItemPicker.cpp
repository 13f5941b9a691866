// Picking a service item of a type: what the data library offers and answers,
// scripted through the platform, and the filtering of the real dialog.
#include "DataAccess.h"
#include "ScriptedPlatform.h"
#include "ServiceItemPick.h"
#include "TestDatabase.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/ServiceItemPicker.h"
#include "foundations/VBTreeWidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {
QList<ServiceItemPick::Choice> Hymns() {
    return {{11, "Abide with me", "Lyte"},
            {12, "Amazing Grace", "Newton"},
            {13, "Be Thou my Vision", "Irish"},
            {14, "It Is Well", "Spafford"}};
}
} // namespace

class tst_ServiceItemPicker : public QObject {
    Q_OBJECT

    qint32 pick(qint16 intType, QString& error) {
        qint32 id = -1;
        DataAccess::Instance().PickServiceItem(intType, error, id);
        return id;
    }
    static QStringList shownRows(const ServiceItemPickerDialog& dialog) {
        QStringList rows;
        auto* list = dialog.findChild<VBTreeWidget*>("lvwServiceItems");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            if (!list->topLevelItem(i)->isHidden())
                rows << list->topLevelItem(i)->text(0);
        return rows;
    }
    static void type(ServiceItemPickerDialog& dialog, const QString& strText) {
        auto* filter = dialog.findChild<RKLvwBannerFilter*>("fltServiceItems");
        filter->setFilterText(strText);
        QTRY_COMPARE(filter->FilterText(), strText);
    }

private slots:
    // ---- The data library's pick ------------------------------------------------------
    void onlyItemsOfTheAskedTypeAreOfferedByDescription() {
        TestDatabase db;
        const qint32 organ = db.AddServiceItem(TestDatabase::Music, "Organ prelude");
        const qint32 choir = db.AddServiceItem(TestDatabase::Music, "Choir's anthem");
        db.AddServiceItem(TestDatabase::Prayer, "Opening prayer");
        ScriptedPlatform platform;
        platform.QueueServiceItemChoice(organ);
        QString error;
        QCOMPARE(pick(10, error), organ);
        QVERIFY(error.isEmpty());
        QCOMPARE(platform.ServiceItemOffers().size(), 1);
        const auto offer = platform.ServiceItemOffers().first();
        QCOMPARE(offer.TypeName, QString("Music"));
        QCOMPARE(offer.Choices.size(), 2);
        QCOMPARE(offer.Choices.at(0).ServiceItemID, choir);
        QCOMPARE(offer.Choices.at(0).Description, QString("Choir's anthem"));
        QCOMPARE(offer.Choices.at(1).ServiceItemID, organ);
    }

    void cancelAnswersNone() {
        TestDatabase db;
        db.AddServiceItem(TestDatabase::Music, "Organ prelude");
        ScriptedPlatform platform;
        platform.QueueServiceItemChoice(0);
        QString error;
        QCOMPARE(pick(10, error), 0);
        QVERIFY(error.isEmpty());
    }

    void anItemThatWasNotOfferedIsNotAnswered() {
        TestDatabase db;
        db.AddServiceItem(TestDatabase::Music, "Organ prelude");
        const qint32 prayer = db.AddServiceItem(TestDatabase::Prayer, "Opening prayer");
        ScriptedPlatform platform;
        platform.QueueServiceItemChoice(prayer);
        QString error;
        QCOMPARE(pick(10, error), 0);
    }

    void aTypeWithoutItemsStillAsksWithAnEmptyList() {
        TestDatabase db;
        ScriptedPlatform platform;
        platform.QueueServiceItemChoice(0);
        QString error;
        QCOMPARE(pick(10, error), 0);
        QCOMPARE(platform.ServiceItemOffers().first().Choices.size(), 0);
    }

    void withoutAPickerInstalledTheLibrarySaysSo() {
        TestDatabase db;
        ServiceItemPick::SetPicker(nullptr);
        QString error;
        const qint32 id = pick(10, error);
        ServiceItemPick::SetPicker(
            [](const QString& strTypeName, const QList<ServiceItemPick::Choice>& choices) {
                return Platform::Current().PickServiceItem(strTypeName, choices);
            });
        QCOMPARE(id, 0);
        QVERIFY2(error.contains("not available"), qPrintable(error));
    }

    void theControlsLibraryInstallsItsPicker() { QVERIFY(ServiceItemPick::HasPicker()); }

    // ---- The dialog ------------------------------------------------------------------
    void theDialogListsTheItemsWithTheFirstSelected() {
        ServiceItemPickerDialog dialog("Song or Hymn", Hymns());
        QCOMPARE(shownRows(dialog).size(), 4);
        QCOMPARE(dialog.ChosenServiceItemID(), 11);
        QVERIFY(dialog.findChild<QPushButton*>("cmdOK")->isEnabled());
        QCOMPARE(dialog.windowTitle(), QString("Select a Song or Hymn Service Item"));
    }

    void typingNarrowsTheListAndSelectsTheFirstShown() {
        ServiceItemPickerDialog dialog("Song or Hymn", Hymns());
        type(dialog, "grace");
        QCOMPARE(shownRows(dialog), QStringList{"Amazing Grace"});
        QCOMPARE(dialog.ChosenServiceItemID(), 12);
        type(dialog, "WELL");
        QCOMPARE(shownRows(dialog), QStringList{"It Is Well"});
        QCOMPARE(dialog.ChosenServiceItemID(), 14);
    }

    void theSourceIsSearchedToo() {
        ServiceItemPickerDialog dialog("Song or Hymn", Hymns());
        type(dialog, "newton");
        QCOMPARE(shownRows(dialog), QStringList{"Amazing Grace"});
    }

    void nothingMatchingDisablesOk() {
        ServiceItemPickerDialog dialog("Song or Hymn", Hymns());
        type(dialog, "zzz");
        QVERIFY(shownRows(dialog).isEmpty());
        QCOMPARE(dialog.ChosenServiceItemID(), 0);
        QVERIFY(!dialog.findChild<QPushButton*>("cmdOK")->isEnabled());
    }

    void okAcceptsAndCancelRejects() {
        ServiceItemPickerDialog dialog("Music", Hymns());
        QSignalSpy accepted(&dialog, &QDialog::accepted);
        QSignalSpy rejected(&dialog, &QDialog::rejected);
        dialog.findChild<QPushButton*>("cmdOK")->click();
        QCOMPARE(accepted.count(), 1);
        dialog.findChild<QPushButton*>("cmdCancel")->click();
        QCOMPARE(rejected.count(), 1);
    }

    void aDoubleClickChoosesTheRow() {
        ServiceItemPickerDialog dialog("Music", Hymns());
        QSignalSpy accepted(&dialog, &QDialog::accepted);
        auto* list = dialog.findChild<VBTreeWidget*>("lvwServiceItems");
        emit list->itemDoubleClicked(list->topLevelItem(2), 0);
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog.ChosenServiceItemID(), 13);
    }

    void anEmptyListSaysThereIsNothingToChoose() {
        ServiceItemPickerDialog dialog("Music", {});
        QCOMPARE(dialog.findChild<QLabel*>("lblPrompt")->text(),
                 QString("There are no Music Service Items to choose from."));
        QVERIFY(!dialog.findChild<QPushButton*>("cmdOK")->isEnabled());
    }
};

QTEST_MAIN(tst_ServiceItemPicker)
#include "tst_ServiceItemPicker.moc"
