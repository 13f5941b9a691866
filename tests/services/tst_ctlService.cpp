// The service editor's frame: its three tabs filled on first view, the general
// tab and its caption, the prop bag, the checks and the save of all tabs in one
// transaction, and the question asked when the user leaves.
#include "ScriptedPlatform.h"
#include "ServiceFixture.h"
#include "TraceFile.h"
#include "foundations/ListManager.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

using namespace ServiceFixture;

class tst_ctlService : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theThreeTabsStandInOrder();
    void thePropBagTabIsMadeWhenFirstShownAndFilledThen();
    void theContentTabIsMadeWhenFirstShownAndShowsTheRowsStoredThen();
    void aServiceStoredWithoutOpeningTheContentTabKeepsItsRows();
    void rowsAskedForBeforeTheContentTabIsShownMakeItsGrid();
    void aContentTabMadeOnScreenShowsItsRowsBeforeItsGallery();
    void aServiceStoredWithoutOpeningThePropBagKeepsItsProps();
    void showPropertiesFillsTheGeneralTabClean();
    void aServiceShownAgainShowsWhatWasChangedElsewhereMeanwhile();
    void itemsThatAreNoNumberAreRefusedWithoutLoading();
    void aServiceThatNoLongerExistsSaysSo();
    void aServiceWithoutNameIsCaptionedByItsDecodedThemeAndDate();
    void aDescriptionSetByTheHostWinsOverTheBuiltCaption();
    void descriptionAnswersTheControlsWord();
    void aNullDateLastDeliveredLeavesTheLabelEmptyAndItsToolTipUntouched();
    void aDeliveredDateShowsLongWithTheRawValueAsToolTip();
    void theTypesComboKeepsWhatItFoundWhenFirstFilled();
    void typingRaisesTheFlagAndEnablesApply();
    void applyStoresTheGeneralTabAndTheResources();
    void withNeitherNameNorThemeTheContentsAreStoredAndLeavingAsksAgain();
    void aMissingTypeIsRefused();
    void canUnloadAnswersTrueAlsoWhenTheUserSaysNo();
    void canUnloadSavesOnYes();
    void leavingTheControlOffersTheSave();
    void aSaveRaisesNoUpdateEvent();
    void aFailingSaveLeavesTheStoredServiceWholeAsBefore();
    void aServiceDeletedWhileOpenIsNotWrittenAgain();
    void everyStoredSaveTellsTheHost();
    void anAnswerNoIsRememberedUntilTheNextChange();
    void theContentTabIsFilledOnFirstView();
    void thePropBagShowsTheStoredPropsAndHidesThemFromTheGallery();
    void aDeletedPropIsDroppedOnLoadAndFromTheStoreAtTheNextSave();
    void propBagMovesRaiseTheFlagAndAreStoredInOrder();
    void aSecondServiceShownOnThePropBagTabKeepsTheFirstListUntilEntered();
    void propsStayOutOfTheGalleryWhenItsViewIsRebuilt();
    void aNameOfManyCharactersIsStoredWhole();

private:
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    Library m_lib;
};

void tst_ctlService::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ctlService::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ctlService::theThreeTabsStandInOrder() {
    ctlService ctl;
    QCOMPARE(ctl.SSTab1->count(), 3);
    QCOMPARE(ctl.SSTab1->tabText(0), QString("General Details"));
    QCOMPARE(ctl.SSTab1->tabText(1), QString("Content"));
    QCOMPARE(ctl.SSTab1->tabText(2), QString("Prop Bag"));
    QCOMPARE(ctl.cmdApplyChanges->text(), QString("&Apply Changes"));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    ctl.SSTab1->setCurrentIndex(2);
    QCOMPARE(ctl.lblCaptionSelectedItems->text(), QString("Selected Items"));
}

void tst_ctlService::showPropertiesFillsTheGeneralTabClean() {
    QVERIFY(m_db->Exec("UPDATE Services SET ServiceTheme = 'Grace', ServiceProvider = 'Anna', "
                       "ServiceNotes = 'Bring candles' WHERE ServiceID = ?",
                       {m_lib.service}));
    QString error;
    DataAccess::Instance().AddServiceResource(m_lib.service, "Candles", error);
    QVERIFY(error.isEmpty());
    ctlService ctl;
    Show(ctl, m_lib.service);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Sunday Morning"));
    QCOMPARE(ctl.txtServiceName->text(), QString("Sunday Morning"));
    QCOMPARE(ctl.cboTypes->currentText(), QString("Morning Worship"));
    QCOMPARE(ctl.cboTheme->currentText(), QString("Grace"));
    QCOMPARE(ctl.lblProvider->text(), QString("Anna"));
    QCOMPARE(ctl.txtNotes->toPlainText(), QString("Bring candles"));
    QCOMPARE(ctl.lmgResources->ChosenCount(), 1);
    QCOMPARE(ctl.lmgResources->ChosenItemText(1), QString("Candles"));
    QVERIFY(!ctl.lblServiceDateCreated->text().isEmpty());
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QCOMPARE(ctl.CanUnload(), true);
    QCOMPARE(m_platform->BoxCount(), 0); // nothing to save: no question
}

void tst_ctlService::aServiceShownAgainShowsWhatWasChangedElsewhereMeanwhile() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QCOMPARE(ctl.txtNotes->toPlainText(), QString());
    QVERIFY(
        m_db->Exec("UPDATE Services SET ServiceName = 'Evensong', ServiceNotes = 'Choir at six' "
                   "WHERE ServiceID = ?",
                   {m_lib.service}));
    ctl.setDescription(QString());
    Show(ctl, m_lib.service);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Evensong"));
    QCOMPARE(ctl.txtServiceName->text(), QString("Evensong"));
    QCOMPARE(ctl.txtNotes->toPlainText(), QString("Choir at six"));
}

void tst_ctlService::itemsThatAreNoNumberAreRefusedWithoutLoading() {
    ctlService ctl;
    TraceFile trace;
    m_platform->QueueAnswer(vbOK);
    ctl.setItems("next Sunday");
    ctl.ShowProperties();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Cannot display Service: next Sunday"));
    QCOMPARE(m_platform->LastBox().Title, QString("System Error"));
    QVERIFY(ctl.lblMainCaption->text().isEmpty());
    QVERIFY(!trace.HasLineContaining("LoadGeneralTab"));
    QCOMPARE(ctl.ServiceID(), 0);
}

void tst_ctlService::aServiceThatNoLongerExistsSaysSo() {
    ctlService ctl;
    m_platform->QueueAnswer(vbOK);
    Show(ctl, 4711);
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt, QString("Service Item: 4711 does not exist"));
    QCOMPARE(m_platform->LastBox().Title, QString("System Error"));
    QVERIFY(ctl.txtServiceName->text().isEmpty());
}

void tst_ctlService::aServiceWithoutNameIsCaptionedByItsDecodedThemeAndDate() {
    QVERIFY(m_db->Exec("UPDATE Services SET ServiceName = NULL, ServiceTheme = 'God@@s grace', "
                       "ServiceDateCreated = '2026-11-22 10:30:00' WHERE ServiceID = ?",
                       {m_lib.service}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    const QString caption = ctl.lblMainCaption->text();
    QVERIFY2(caption.startsWith("God's grace ,"), qPrintable(caption));
    QCOMPARE(caption, "God's grace ," + VB::CStr(QDateTime(QDate(2026, 11, 22), QTime(10, 30))));
    QCOMPARE(ctl.txtServiceName->text(), QString());
}

void tst_ctlService::aDescriptionSetByTheHostWinsOverTheBuiltCaption() {
    ctlService ctl;
    ctl.setDescription("Harvest Festival");
    Show(ctl, m_lib.service);
    QCOMPARE(ctl.lblMainCaption->text(), QString("Harvest Festival"));
}

void tst_ctlService::descriptionAnswersTheControlsWord() {
    ctlService ctl;
    ctl.setDescription("Harvest Festival");
    QCOMPARE(ctl.Description(), QString("ServiceControl"));
    QCOMPARE(ctl.property("Description").toString(), QString("ServiceControl"));
}

void tst_ctlService::aNullDateLastDeliveredLeavesTheLabelEmptyAndItsToolTipUntouched() {
    ctlService ctl;
    ctl.lblDateLastDelivered->setToolTip("as before");
    Show(ctl, m_lib.service);
    QCOMPARE(ctl.lblDateLastDelivered->text(), QString());
    QCOMPARE(ctl.lblDateLastDelivered->toolTip(), QString("as before"));
}

void tst_ctlService::aDeliveredDateShowsLongWithTheRawValueAsToolTip() {
    QVERIFY(m_db->Exec("UPDATE Services SET ServiceDateLastDelivered = '2026-11-01 10:00:00' "
                       "WHERE ServiceID = ?",
                       {m_lib.service}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    QVERIFY2(ctl.lblDateLastDelivered->text().contains("November"),
             qPrintable(ctl.lblDateLastDelivered->text()));
    QCOMPARE(ctl.lblDateLastDelivered->toolTip(),
             VB::CStr(QDateTime(QDate(2026, 11, 1), QTime(10, 0))));
}

void tst_ctlService::theTypesComboKeepsWhatItFoundWhenFirstFilled() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QCOMPARE(ctl.cboTypes->count(), 1);
    const qint32 other = m_db->AddService("Evening", {}, "Taize");
    QVERIFY(other > 0);
    Show(ctl, other);
    QCOMPARE(ctl.cboTypes->currentText(), QString("Taize"));
    QCOMPARE(ctl.cboTypes->findText("Taize"), -1); // typed elsewhere: not in the list
    ctlService fresh;
    Show(fresh, other);
    QVERIFY(fresh.cboTypes->findText("Taize") >= 0);
}

void tst_ctlService::typingRaisesTheFlagAndEnablesApply() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    ctl.txtServiceName->setText("Advent Sunday");
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService::applyStoresTheGeneralTabAndTheResources() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Advent Sunday");
    ctl.cboTheme->setEditText("Waiting");
    ctl.txtNotes->setPlainText("Light the first candle");
    QVERIFY(ctl.lmgResources->AddChosenItem("Advent wreath", 0, true));
    QCOMPARE(ctl.lmgResources->Tag(), QString("Dirty"));
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QCOMPARE(ctl.lmgResources->Tag(), QString());
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Advent Sunday"));
    QCOMPARE(m_db->Scalar("SELECT ServiceTheme FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Waiting"));
    QCOMPARE(m_db->Scalar("SELECT ServiceNotes FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Light the first candle"));
    QCOMPARE(m_db->Count("ServiceResources", "ServiceID = ? AND ResourceName = 'Advent wreath'",
                         {m_lib.service}),
             1);
    QCOMPARE(ctl.CanUnload(), true);
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlService::withNeitherNameNorThemeTheContentsAreStoredAndLeavingAsksAgain() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Show(ctl, m_lib.service);
    ctl.SSTab1->setCurrentIndex(1);
    ctl.txtServiceName->clear();
    ctl.cmdAddBlank->click();
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("You must enter either a name or theme for this service so that it can be "
                     "identified in the future"));
    QCOMPARE(m_platform->LastBox().Title, QString("Incomplete Entry"));
    QTRY_VERIFY(ctl.txtServiceName->hasFocus());
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {m_lib.service}), 4);
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Sunday Morning"));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    m_platform->QueueAnswer(vbNo);
    QCOMPARE(ctl.CanUnload(), true);
    QCOMPARE(m_platform->BoxCount(), 2);
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("The contents of this service has changed, do you want to save the changes"));
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
}

void tst_ctlService::aMissingTypeIsRefused() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.cboTypes->setEditText(QString());
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->LastBox().Prompt, QString("You must enter a type for this service"));
    QCOMPARE(m_platform->LastBox().Title, QString("Incomplete Entry"));
    QCOMPARE(m_db->Scalar("SELECT ServiceType FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Morning Worship"));
}

void tst_ctlService::canUnloadAnswersTrueAlsoWhenTheUserSaysNo() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Not kept");
    m_platform->QueueAnswer(vbNo);
    QCOMPARE(ctl.CanUnload(), true);
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNo);
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Sunday Morning"));
    // No keeps the flag: the question comes again.
    m_platform->QueueAnswer(vbNo);
    ctl.CanUnload();
    QCOMPARE(m_platform->BoxCount(), 2);
}

void tst_ctlService::canUnloadSavesOnYes() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Kept");
    m_platform->QueueAnswer(vbYes);
    QCOMPARE(ctl.CanUnload(), true);
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Kept"));
}

void tst_ctlService::leavingTheControlOffersTheSave() {
    QWidget window;
    auto* ctl = new ctlService(&window);
    auto* elsewhere = new QLineEdit(&window);
    elsewhere->move(0, ctl->height() + 10);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    Show(*ctl, m_lib.service);
    ctl->txtServiceName->setFocus();
    QTRY_VERIFY(ctl->txtServiceName->hasFocus());
    ctl->txtServiceName->setText("Left behind");
    m_platform->QueueAnswer(vbYes);
    elsewhere->setFocus();
    QTRY_COMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Left behind"));
}

void tst_ctlService::aSaveRaisesNoUpdateEvent() {
    ctlService ctl;
    int events = 0;
    connect(&ctl, &ctlService::ServiceUpdated, this, [&](qint32&) { ++events; });
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Quiet");
    ctl.cmdApplyChanges->click();
    QVERIFY(!ctl.cmdApplyChanges->isEnabled()); // the save ran
    QCOMPARE(events, 0);
}

void tst_ctlService::aFailingSaveLeavesTheStoredServiceWholeAsBefore() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Half stored?");
    ctl.SSTab1->setCurrentIndex(1);
    ctl.cmdAddBlank->click();
    ctl.SSTab1->setCurrentIndex(2);
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.notices);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    // The prop bag's table goes away: the last step of the save fails.
    QVERIFY(m_db->Exec("DROP TABLE ServicePropBag"));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Sunday Morning"));
    QCOMPARE(StoredRows(*m_db, m_lib.service), QStringList({QString("%1:1").arg(m_lib.grace), "1:1",
                                                            QString("%1:0").arg(m_lib.francis)}));
    // Nothing was stored, so everything still awaits saving.
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    m_platform->QueueAnswer(vbNo);
    ctl.CanUnload();
    QCOMPARE(m_platform->BoxCount(), 2);
}

void tst_ctlService::theContentTabIsFilledOnFirstView() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    // Nothing of the tab is made, so nothing of it is loaded, before it is viewed.
    QVERIFY(!ctl.fgItemsInService);
    ctl.SSTab1->setCurrentIndex(1);
    QCOMPARE(Column(ctl, ctlService::colSIID),
             QStringList({QString::number(m_lib.grace), "1", QString::number(m_lib.francis)}));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
}

namespace {
// A prop bag tab not shown yet has no list, and so shows no props.
QStringList PropTexts(const ctlService& ctl) {
    QStringList texts;
    if (!ctl.lvwPropBag)
        return texts;
    for (int i = 0; i < ctl.lvwPropBag->topLevelItemCount(); ++i)
        texts << ctl.lvwPropBag->topLevelItem(i)->text(0);
    return texts;
}
bool GalleryShows(ctlServiceItemGallery* gallery, qint32 id) {
    const QString end = QString(";;SI;%1").arg(id);
    for (QTreeWidget* tree : gallery->findChildren<QTreeWidget*>())
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            if ((*it)->data(0, Qt::UserRole).toString().endsWith(end))
                return true;
    return false;
}
QStringList StoredProps(TestDatabase& db, qint32 service) {
    QStringList ids;
    const qint32 count = db.Count("ServicePropBag", "ServiceID = ?", {service});
    for (qint32 i = 0; i < count; ++i)
        ids << db.Scalar(QString("SELECT PropServiceItemID FROM ServicePropBag WHERE ServiceID = ? "
                                 "ORDER BY Position, ServicePropBagID LIMIT 1 OFFSET %1")
                             .arg(i),
                         {service})
                   .toString();
    return ids;
}
} // namespace

void tst_ctlService::thePropBagShowsTheStoredPropsAndHidesThemFromTheGallery() {
    QVERIFY(m_db->AddServicePropBag(m_lib.service, {m_lib.notices, m_lib.grace}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    QCOMPARE(PropTexts(ctl), QStringList());
    ctl.SSTab1->setCurrentIndex(2);
    QCOMPARE(PropTexts(ctl), QStringList({"Notices", "Amazing Grace"}));
    QVERIFY(!GalleryShows(ctl.ctlSIPropBag, m_lib.notices));
    QVERIFY(!GalleryShows(ctl.ctlSIPropBag, m_lib.grace));
    QVERIFY(GalleryShows(ctl.ctlSIPropBag, m_lib.francis));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!ctl.cmdMoveOneRight->isEnabled());
    QVERIFY(ctl.cmdMoveOneLeft->isEnabled());
    QVERIFY(ctl.cmdMoveAllLeft->isEnabled());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlService::aDeletedPropIsDroppedOnLoadAndFromTheStoreAtTheNextSave() {
    QVERIFY(m_db->AddServicePropBag(m_lib.service, {m_lib.notices, m_lib.grace}));
    // The item goes while the bag still names it.
    QVERIFY(m_db->Exec("PRAGMA foreign_keys = OFF"));
    QVERIFY(m_db->Exec("DELETE FROM ServiceItems WHERE ServiceItemID = ?", {m_lib.grace}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.SSTab1->setCurrentIndex(2);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(PropTexts(ctl), QStringList({"Notices"}));
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.francis);
    ctl.cmdMoveOneRight->click();
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredProps(*m_db, m_lib.service),
             QStringList({QString::number(m_lib.notices), QString::number(m_lib.francis)}));
}

void tst_ctlService::propBagMovesRaiseTheFlagAndAreStoredInOrder() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.SSTab1->setCurrentIndex(2);
    QVERIFY(!ctl.cmdMoveAllLeft->isEnabled());
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.francis);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!GalleryShows(ctl.ctlSIPropBag, m_lib.francis));
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.grace);
    ctl.cmdMoveOneRight->click();
    QCOMPARE(PropTexts(ctl), QStringList({"Prayer of St Francis", "Amazing Grace"}));
    // The first prop goes back to the gallery.
    ctl.lvwPropBag->setCurrentItem(ctl.lvwPropBag->topLevelItem(0));
    ctl.cmdMoveOneLeft->click();
    QCOMPARE(PropTexts(ctl), QStringList({"Amazing Grace"}));
    QVERIFY(GalleryShows(ctl.ctlSIPropBag, m_lib.francis));
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.notices);
    ctl.cmdMoveOneRight->click();
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredProps(*m_db, m_lib.service),
             QStringList({QString::number(m_lib.grace), QString::number(m_lib.notices)}));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    ctl.cmdMoveAllLeft->click();
    QCOMPARE(PropTexts(ctl), QStringList());
    QVERIFY(GalleryShows(ctl.ctlSIPropBag, m_lib.grace));
    QVERIFY(!ctl.cmdMoveAllLeft->isEnabled());
}

void tst_ctlService::aSecondServiceShownOnThePropBagTabKeepsTheFirstListUntilEntered() {
    QVERIFY(m_db->AddServicePropBag(m_lib.service, {m_lib.notices}));
    const qint32 other = m_db->AddService("Evening", {{m_lib.francis}});
    QVERIFY(m_db->AddServicePropBag(other, {m_lib.grace}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.SSTab1->setCurrentIndex(2);
    QCOMPARE(PropTexts(ctl), QStringList({"Notices"}));
    Show(ctl, other);
    QCOMPARE(PropTexts(ctl), QStringList({"Notices"}));
    ctl.SSTab1->setCurrentIndex(0);
    ctl.SSTab1->setCurrentIndex(2);
    QCOMPARE(PropTexts(ctl), QStringList({"Amazing Grace"}));
}

void tst_ctlService::propsStayOutOfTheGalleryWhenItsViewIsRebuilt() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.SSTab1->setCurrentIndex(2);
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.francis);
    ctl.cmdMoveOneRight->click();
    QVERIFY(!GalleryShows(ctl.ctlSIPropBag, m_lib.francis));
    // Clearing the quick filter rebuilds the gallery's rows.
    auto* quick = ctl.ctlSIPropBag->findChild<QLineEdit*>("txtQuickFilter");
    QVERIFY(quick);
    quick->setText("a");
    quick->clear();
    QVERIFY(GalleryShows(ctl.ctlSIPropBag, m_lib.grace));
    QVERIFY(!GalleryShows(ctl.ctlSIPropBag, m_lib.francis));
    QCOMPARE(PropTexts(ctl), QStringList({"Prayer of St Francis"}));
}

void tst_ctlService::aNameOfManyCharactersIsStoredWhole() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    const QString name = QString("Sunday ").repeated(50);
    ctl.txtServiceName->setText(name);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             name);
}

void tst_ctlService::aServiceDeletedWhileOpenIsNotWrittenAgain() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Still here?");
    ctl.SSTab1->setCurrentIndex(1);
    ctl.cmdAddBlank->click();
    QString error;
    DataAccess::Instance().DeleteService(m_lib.service, error);
    QVERIFY(error.isEmpty());
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QVERIFY2(m_platform->LastBox().Prompt.contains(
                 QString("Service %1 does not exist.").arg(m_lib.service)),
             qPrintable(m_platform->LastBox().Prompt));
    QCOMPARE(m_db->Count("Services", "ServiceID = ?", {m_lib.service}), 0);
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {m_lib.service}), 0);
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService::everyStoredSaveTellsTheHost() {
    ctlService ctl;
    QSignalSpy stored(&ctl, &ctlService::ServiceStored);
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Evening");
    ctl.cmdApplyChanges->click();
    QCOMPARE(stored.count(), 1);
    QCOMPARE(stored.at(0).at(0).toInt(), m_lib.service);
    ctl.txtServiceName->setText("Evening Prayer");
    m_platform->QueueAnswer(vbYes);
    ctl.CanUnload();
    QCOMPARE(stored.count(), 2);
    // A save that fails stores nothing and says nothing to the host.
    ctl.txtServiceName->setText("Never");
    QVERIFY(m_db->Exec("CREATE TRIGGER refuse BEFORE UPDATE ON Services "
                       "BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END"));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(stored.count(), 2);
}

void tst_ctlService::anAnswerNoIsRememberedUntilTheNextChange() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.ChangesDeclined());
    ctl.txtServiceName->setText("Maybe");
    m_platform->QueueAnswer(vbNo);
    QVERIFY(ctl.CanUnload());
    QVERIFY(ctl.ChangesDeclined());
    ctl.txtServiceName->setText("Maybe not");
    QVERIFY(!ctl.ChangesDeclined());
    m_platform->QueueAnswer(vbYes);
    ctl.CanUnload();
    QVERIFY(!ctl.ChangesDeclined());
    QCOMPARE(m_db->Scalar("SELECT ServiceName FROM Services WHERE ServiceID = ?", {m_lib.service})
                 .toString(),
             QString("Maybe not"));
}

void tst_ctlService::thePropBagTabIsMadeWhenFirstShownAndFilledThen() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.ctlSIPropBag);
    QVERIFY(!ctl.findChild<QTreeWidget*>("lvwPropBag"));
    ctl.SSTab1->setCurrentIndex(2);
    QVERIFY(ctl.ctlSIPropBag);
    QCOMPARE(ctl.SSTab1->widget(2)->findChild<QTreeWidget*>("lvwPropBag"), ctl.lvwPropBag);
    QVERIFY(GalleryShows(ctl.ctlSIPropBag, m_lib.notices));
    ctl.ctlSIPropBag->SelectServiceItem(m_lib.notices);
    QVERIFY(ctl.cmdMoveOneRight->isEnabled());
    ctl.cmdMoveOneRight->click();
    QCOMPARE(ctl.lvwPropBag->topLevelItemCount(), 1);
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService::aServiceStoredWithoutOpeningThePropBagKeepsItsProps() {
    QVERIFY(m_db->Exec("INSERT INTO ServicePropBag (ServiceID, Position, PropServiceItemID) "
                       "VALUES (?, 1, ?)",
                       {m_lib.service, m_lib.grace}));
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Renamed");
    ctl.cmdApplyChanges->click();
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!ctl.ctlSIPropBag);
    QCOMPARE(StoredProps(*m_db, m_lib.service), QStringList({QString::number(m_lib.grace)}));
}

void tst_ctlService::theContentTabIsMadeWhenFirstShownAndShowsTheRowsStoredThen() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.ctlServiceItemGallery1);
    QVERIFY(!ctl.findChild<QTableWidget*>("fgItemsInService"));
    // A row stored elsewhere after the service was shown is there when the tab opens.
    QString error;
    DataAccess::Instance().AddServiceContentItems(m_lib.service, {{m_lib.notices, true, {}}},
                                                  error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    ctl.SSTab1->setCurrentIndex(1);
    QCOMPARE(ctl.SSTab1->widget(1)->findChild<QTableWidget*>("fgItemsInService"),
             ctl.fgItemsInService);
    QCOMPARE(Column(ctl, ctlService::colSIID),
             QStringList({QString::number(m_lib.grace), "1", QString::number(m_lib.francis),
                          QString::number(m_lib.notices)}));
    QVERIFY(GalleryShows(ctl.ctlServiceItemGallery1, m_lib.notices));
    ctl.cmdAddBlank->click();
    QCOMPARE(Column(ctl, ctlService::colSIID).size(), 5);
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService::aServiceStoredWithoutOpeningTheContentTabKeepsItsRows() {
    const QStringList before = StoredRows(*m_db, m_lib.service);
    QCOMPARE(before.size(), 3);
    ctlService ctl;
    Show(ctl, m_lib.service);
    ctl.txtServiceName->setText("Renamed");
    ctl.cmdApplyChanges->click();
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(!ctl.fgItemsInService);
    QCOMPARE(StoredRows(*m_db, m_lib.service), before);
    QVERIFY(ctl.CanUnload());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlService::rowsAskedForBeforeTheContentTabIsShownMakeItsGrid() {
    ctlService ctl;
    Show(ctl, m_lib.service);
    bool blnShow = true;
    QString error;
    ctl.AddServiceItemToServiceGrid(m_lib.notices, blnShow, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY(ctl.fgItemsInService);
    QVERIFY(Column(ctl, ctlService::colSIID).contains(QString::number(m_lib.notices)));
    ctlService other;
    Show(other, m_lib.service);
    other.SortOutNumbering();
    QVERIFY(other.fgItemsInService);
}

void tst_ctlService::aContentTabMadeOnScreenShowsItsRowsBeforeItsGallery() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.fgItemsInService);
    ctl.SSTab1->setCurrentIndex(1);
    QVERIFY(ctl.fgItemsInService->isVisible());
    QVERIFY(ctl.ctlServiceItemGallery1->isVisible());
    QVERIFY(!ctl.cboYesNo->isVisible());
    QCOMPARE(Column(ctl, ctlService::colSIID).size(), 3);
    QVERIFY(!ctl.ItemGalleryLoaded());
    QTRY_VERIFY(ctl.ItemGalleryLoaded());
    QVERIFY(GalleryShows(ctl.ctlServiceItemGallery1, m_lib.notices));
    // The tab's layout gives the grid its room as on a tab made at once.
    QTRY_VERIFY(ctl.fgItemsInService->width() > ctl.SSTab1->width() / 4);
}

QTEST_MAIN(tst_ctlService)
#include "tst_ctlService.moc"
