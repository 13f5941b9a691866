// The Content tab's grid: rows added from the gallery by button, double click
// and drag, Blank rows, numbering, the run-time setting, moves, removal and the
// save that writes the rows again top to bottom.
#include "ScriptedPlatform.h"
#include "ServiceFixture.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "serviceitems/QVTimeSelector.h"

#include <QComboBox>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using namespace ServiceFixture;

class tst_ctlService_Grid : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void aLoadShowsTheRowsNumberedWithTheirColumns();
    void anEmptyServiceKeepsOneEmptyRowAndStoresNone();
    void deletingTheOnlyItemLeavesItsRowEmptyAndTheNextAddFillsIt();
    void removingRowsTwoToFourAsksOnceInThePluralAndRenumbers();
    void answeringNoToTheRemovalKeepsEveryRow();
    void removingABlankNamesItInTheQuestion();
    void downOnTheNextToLastRowMakesItTheLast();
    void upMovesTheRowAndRenumbers();
    void anAddWithTheCurrentRowInTheMiddleStandsBelowIt();
    void twoBlanksInARowAreStoredWithKeyOneAndShown();
    void aBlankSetToNoReadsYesAfterASaveAndALoad();
    void theSameItemAddedTwiceKeepsItsOwnRunTimeSettingPerRow();
    void theGallerysButtonFollowsItsClicksAndAddsTheSelection();
    void aDoubleClickInTheGalleryAddsTheItem();
    void aMultipleSelectionTakesTheDefaultOfTheSelectedItemsType();
    void aDropOfAnItemKeyAddsItBelowTheHoveredRow();
    void aDragHoveringOnlyOverTheLastRowLeavesTheCurrentRow();
    void aDroppedTextWithoutTheItemMarkFailsAsARunTimeError();
    void aGridOfTwoItemsFilledASecondTimeStopsWithTheMessage();
    void anItemDeletedSinceTheSaveStopsTheLoadAtItsRow();
    void deleteIsDisabledAfterALoadUntilARowIsEntered();
    void theSaveWritesTheRowsAgainTopToBottom();
    void theTotalLengthFollowsTheRowsLengths();
    void fiveHundredRowsAreStoredAndReadBack();
    void aDroppedKeyOfAnItemThatIsGoneSaysSoAndAddsNothing();
    void aRowThatCannotBeStoredLeavesTheStoredRowsWholeAsBefore();
    void onScreenTheRowsShowFirstAndTheItemGalleryFillsInAfter();
    void offScreenTheItemGalleryLoadsWithTheRows();
    void aServiceShownAgainOnScreenLoadsTheItemGalleryAgainAfterThePaint();

private:
    // An editor showing the service on its Content tab.
    void Open(ctlService& ctl, qint32 service);
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    Library m_lib;
};

void tst_ctlService_Grid::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ctlService_Grid::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ctlService_Grid::Open(ctlService& ctl, qint32 service) {
    ctl.SSTab1->setCurrentIndex(1);
    Show(ctl, service);
}

namespace {
QString Id(qint32 id) {
    return QString::number(id);
}
void Enter(ctlService& ctl, int row, int col = 1) {
    ctl.fgItemsInService->setCurrentCell(row, col);
}
QStringList Ids(const ctlService& ctl) {
    return Column(ctl, ctlService::colSIID);
}
} // namespace

void tst_ctlService_Grid::aLoadShowsTheRowsNumberedWithTheirColumns() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2", "3"}));
    QCOMPARE(Column(ctl, 1), QStringList({"      Hymn", "      Blank", "      Prayer"}));
    QCOMPARE(Column(ctl, 2), QStringList({"Amazing Grace", "Blank", "Prayer of St Francis"}));
    QCOMPARE(Column(ctl, 3), QStringList({"Yes", "Yes", "No"}));
    QCOMPARE(Column(ctl, 5), QStringList({"0", "0", "0"}));
    QCOMPARE(Column(ctl, 6), QStringList({"17", Column(ctl, 6).at(1), "1"}));
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), "1", Id(m_lib.francis)}));
    QCOMPARE(ctl.fgItemsInService->item(0, 3)->text(), QString("Show at run time"));
    QCOMPARE(ctl.fgItemsInService->item(0, 4)->text(), QString("Show as Points List"));
    QCOMPARE(ctl.fgItemsInService->item(0, 1)->text(), QString(" Type"));
    QVERIFY(!ctl.fgItemsInService->item(1, 1)->icon().isNull());
    QVERIFY(ctl.fgItemsInService->item(2, 1)->icon().isNull()); // a Blank has no picture
    QCOMPARE(ctl.fgItemsInService->columnWidth(5), 0);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    QVERIFY(ctl.GridIdle());
}

void tst_ctlService_Grid::anEmptyServiceKeepsOneEmptyRowAndStoresNone() {
    const qint32 empty = m_db->AddService("Empty");
    ctlService ctl;
    Open(ctl, empty);
    QCOMPARE(ctl.fgItemsInService->rowCount(), 2);
    QCOMPARE(Ids(ctl), QStringList({""}));
    ctl.cmdAddBlank->click();
    QCOMPARE(ctl.fgItemsInService->rowCount(), 2);
    Enter(ctl, 1, 2);
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteSI->click();
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {empty}), 0);
}

void tst_ctlService_Grid::deletingTheOnlyItemLeavesItsRowEmptyAndTheNextAddFillsIt() {
    const qint32 one = m_db->AddService("One", {{m_lib.grace}});
    ctlService ctl;
    Open(ctl, one);
    Enter(ctl, 1, 2);
    QVERIFY(ctl.cmdDeleteSI->isEnabled());
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteSI->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Are you sure you want to remove the Hymn 'Amazing Grace' from your service"));
    QCOMPARE(m_platform->LastBox().Title, QString("Confirm Removal"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbQuestion | vbDefaultButton2);
    QCOMPARE(ctl.fgItemsInService->rowCount(), 2);
    for (int c = 0; c < ctlService::colCount; ++c)
        QCOMPARE(Column(ctl, c), QStringList({""}));
    Enter(ctl, 1, 2);
    QVERIFY(!ctl.cmdDeleteSI->isEnabled());
    ctl.cmdAddBlank->click();
    QCOMPARE(ctl.fgItemsInService->rowCount(), 2);
    QCOMPARE(Ids(ctl), QStringList({"1"}));
    QCOMPARE(Column(ctl, 0), QStringList({"1"}));
}

void tst_ctlService_Grid::removingRowsTwoToFourAsksOnceInThePluralAndRenumbers() {
    const qint32 five = m_db->AddService(
        "Five",
        {{m_lib.grace}, {m_lib.francis}, {m_lib.notices}, TestDatabase::Blank(), {m_lib.grace}});
    ctlService ctl;
    Open(ctl, five);
    Enter(ctl, 2);
    ctl.fgItemsInService->setRangeSelected(QTableWidgetSelectionRange(2, 1, 4, 7), true);
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteSI->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(
        m_platform->LastBox().Prompt,
        QString("Are you sure you want to remove the selected Service Items from your service"));
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.grace)}));
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2"}));
    QVERIFY(!ctl.cmdMoveServiceSIUp->isEnabled());
    QVERIFY(!ctl.cmdMoveServiceSIDown->isEnabled());
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::answeringNoToTheRemovalKeepsEveryRow() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 2);
    m_platform->QueueAnswer(vbCancel);
    ctl.cmdDeleteSI->click();
    QCOMPARE(Ids(ctl).size(), 3);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::removingABlankNamesItInTheQuestion() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 2, 2);
    m_platform->QueueAnswer(vbYes);
    ctl.cmdDeleteSI->click();
    QCOMPARE(m_platform->LastBox().Prompt,
             QString("Are you sure you want to remove the Blank 'Blank' from your service"));
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.francis)}));
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2"}));
}

void tst_ctlService_Grid::downOnTheNextToLastRowMakesItTheLast() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 2);
    QVERIFY(ctl.cmdMoveServiceSIDown->isEnabled());
    ctl.cmdMoveServiceSIDown->click();
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.francis), "1"}));
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2", "3"}));
    QCOMPARE(ctl.fgItemsInService->currentRow(), 3);
    Enter(ctl, 3, 2);
    QVERIFY(!ctl.cmdMoveServiceSIDown->isEnabled());
    QVERIFY(ctl.cmdMoveServiceSIUp->isEnabled());
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::upMovesTheRowAndRenumbers() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 1);
    QVERIFY(!ctl.cmdMoveServiceSIUp->isEnabled());
    Enter(ctl, 3);
    ctl.cmdMoveServiceSIUp->click();
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.francis), "1"}));
    QCOMPARE(Column(ctl, 3), QStringList({"Yes", "No", "Yes"}));
}

void tst_ctlService_Grid::anAddWithTheCurrentRowInTheMiddleStandsBelowIt() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 1);
    ctl.cmdAddBlank->click();
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), "1", "1", Id(m_lib.francis)}));
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2", "3", "4"}));
    QCOMPARE(ctl.fgItemsInService->currentRow(), 2);
}

void tst_ctlService_Grid::twoBlanksInARowAreStoredWithKeyOneAndShown() {
    const qint32 empty = m_db->AddService("Gaps");
    ctlService ctl;
    Open(ctl, empty);
    ctl.cmdAddBlank->click();
    ctl.cmdAddBlank->click();
    QCOMPARE(Column(ctl, 3), QStringList({"Yes", "Yes"}));
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredRows(*m_db, empty), QStringList({"1:1", "1:1"}));
}

void tst_ctlService_Grid::aBlankSetToNoReadsYesAfterASaveAndALoad() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    Enter(ctl, 2, 3);
    QVERIFY(ctl.cboYesNo->isVisible());
    QCOMPARE(ctl.cboYesNo->currentText(), QString("Yes"));
    // Entering the cell alone makes the contents dirty.
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    ctl.cboYesNo->setCurrentIndex(1);
    emit ctl.cboYesNo->activated(1);
    QCOMPARE(Column(ctl, 3).at(1), QString("No"));
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredRows(*m_db, m_lib.service).at(1), QString("1:0"));
    ctlService again;
    Open(again, m_lib.service);
    QCOMPARE(Column(again, 3), QStringList({"Yes", "Yes", "No"}));
}

void tst_ctlService_Grid::theSameItemAddedTwiceKeepsItsOwnRunTimeSettingPerRow() {
    const qint32 empty = m_db->AddService("Twice");
    ctlService ctl;
    Open(ctl, empty);
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices);
    ctl.cmdMoveOneSIToService->click();
    ctl.cmdMoveOneSIToService->click();
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.notices), Id(m_lib.notices)}));
    Enter(ctl, 1, 3);
    ctl.cboYesNo->setCurrentIndex(0);
    emit ctl.cboYesNo->activated(0);
    Enter(ctl, 2, 3);
    ctl.cboYesNo->setCurrentIndex(1);
    emit ctl.cboYesNo->activated(1);
    QCOMPARE(Column(ctl, 3), QStringList({"Yes", "No"}));
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredRows(*m_db, empty),
             QStringList({Id(m_lib.notices) + ":1", Id(m_lib.notices) + ":0"}));
}

void tst_ctlService_Grid::theGallerysButtonFollowsItsClicksAndAddsTheSelection() {
    const qint32 empty = m_db->AddService("Button");
    ctlService ctl;
    Open(ctl, empty);
    QVERIFY(!ctl.cmdMoveOneSIToService->isEnabled());
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.grace);
    QVERIFY(ctl.cmdMoveOneSIToService->isEnabled());
    QCOMPARE(ctl.cmdMoveOneSIToService->toolTip(),
             QString("Add the selected service item to the service"));
    QCOMPARE(ctl.cmdAddBlank->toolTip(), QString("Add a Blank to the Service"));
    ctl.cmdMoveOneSIToService->click();
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace)}));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::aDoubleClickInTheGalleryAddsTheItem() {
    const qint32 empty = m_db->AddService("Double");
    ctlService ctl;
    Open(ctl, empty);
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.francis);
    emit ctl.ctlServiceItemGallery1->SIDblClicked(m_lib.francis);
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.francis)}));
}

void tst_ctlService_Grid::aMultipleSelectionTakesTheDefaultOfTheSelectedItemsType() {
    const qint32 empty = m_db->AddService("Several");
    ctlService ctl;
    Open(ctl, empty);
    ctlServiceItemGallery* gallery = ctl.ctlServiceItemGallery1;
    gallery->optShowAsList->click();
    QVERIFY(!gallery->lvwServiceItems->isHidden());
    // The hymn would show at run time by default, the notices would not; the
    // selected (current) item is the notices, so both rows take "No".
    QTreeWidgetItem* hymn = nullptr;
    QTreeWidgetItem* notices = nullptr;
    for (QTreeWidgetItemIterator it(gallery->lvwServiceItems); *it; ++it) {
        const QString key = (*it)->data(0, Qt::UserRole).toString();
        if (key == "SI;" + Id(m_lib.grace))
            hymn = *it;
        if (key == "SI;" + Id(m_lib.notices))
            notices = *it;
    }
    QVERIFY(hymn && notices);
    gallery->lvwServiceItems->setCurrentItem(notices);
    hymn->setSelected(true);
    notices->setSelected(true);
    ctl.cmdMoveOneSIToService->setEnabled(true);
    ctl.cmdMoveOneSIToService->click();
    QCOMPARE(Column(ctl, ctlService::colSIID).size(), 2);
    QCOMPARE(Column(ctl, 3), QStringList({"No", "No"}));
}

namespace {
// A drag enters the grid's viewport (the application sends its moves and the
// drop to the widget that accepted the entry), then moves over a point.
void DragEnter(ctlService& ctl, const QPoint& at, QMimeData& data) {
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ctl.fgItemsInService->viewport(), &enter);
}
void DragOver(ctlService& ctl, const QPoint& at, QMimeData& data) {
    DragEnter(ctl, at, data);
    QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ctl.fgItemsInService->viewport(), &move);
}
void Drop(ctlService& ctl, const QPoint& at, QMimeData& data) {
    DragEnter(ctl, at, data);
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ctl.fgItemsInService->viewport(), &drop);
}
QPoint InRow(ctlService& ctl, int row) {
    QTableWidget* fg = ctl.fgItemsInService;
    return QPoint(fg->columnViewportPosition(2) + 5, fg->rowViewportPosition(row) + 2);
}
} // namespace

void tst_ctlService_Grid::aDropOfAnItemKeyAddsItBelowTheHoveredRow() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    QMimeData data;
    data.setText(QString("Type;14;;SI;%1").arg(m_lib.notices));
    DragOver(ctl, InRow(ctl, 1), data);
    QCOMPARE(ctl.fgItemsInService->currentRow(), 1);
    Drop(ctl, InRow(ctl, 1), data);
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.notices), "1", Id(m_lib.francis)}));
    QCOMPARE(Column(ctl, 0), QStringList({"1", "2", "3", "4"}));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::aDragHoveringOnlyOverTheLastRowLeavesTheCurrentRow() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    Enter(ctl, 1);
    QMimeData data;
    data.setText(QString("Type;14;;SI;%1").arg(m_lib.notices));
    DragOver(ctl, InRow(ctl, 3), data);
    QCOMPARE(ctl.fgItemsInService->currentRow(), 1);
    Drop(ctl, InRow(ctl, 3), data);
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), Id(m_lib.notices), "1", Id(m_lib.francis)}));
}

void tst_ctlService_Grid::aDroppedTextWithoutTheItemMarkFailsAsARunTimeError() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    QMimeData data;
    data.setText("some words from elsewhere");
    m_platform->QueueAnswer(vbOK);
    Drop(ctl, InRow(ctl, 1), data);
    QCOMPARE(m_platform->BoxCount(), 1);
    QVERIFY2(m_platform->LastBox().Prompt.startsWith("Run-time error '13':"),
             qPrintable(m_platform->LastBox().Prompt));
    QCOMPARE(Ids(ctl).size(), 3);
}

void tst_ctlService_Grid::aGridOfTwoItemsFilledASecondTimeStopsWithTheMessage() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    m_platform->QueueAnswer(vbOK);
    QString error;
    ctl.AddSIsThatArePartOfService(error);
    QCOMPARE(m_platform->BoxCount(), 1);
    QVERIFY2(
        m_platform->LastBox().Prompt.startsWith("AddSIsThatArePartOfService: Error number is "),
        qPrintable(m_platform->LastBox().Prompt));
}

void tst_ctlService_Grid::anItemDeletedSinceTheSaveStopsTheLoadAtItsRow() {
    QVERIFY(m_db->Exec("PRAGMA foreign_keys = OFF"));
    QVERIFY(m_db->Exec("DELETE FROM ServiceItems WHERE ServiceItemID = ?", {m_lib.grace}));
    ctlService ctl;
    m_platform->QueueAnswer(vbOK);
    Open(ctl, m_lib.service);
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(
        m_platform->LastBox().Prompt,
        QString("QVLTCONTROLS:ctlService:AddServiceItemToServiceGrid : No record found for SI ") +
            Id(m_lib.grace));
    QCOMPARE(Ids(ctl), QStringList({""}));
    QVERIFY(!ctl.GridIdle());
}

void tst_ctlService_Grid::deleteIsDisabledAfterALoadUntilARowIsEntered() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    QVERIFY(!ctl.cmdDeleteSI->isEnabled());
    Enter(ctl, 2, 2);
    QVERIFY(ctl.cmdDeleteSI->isEnabled());
    QCOMPARE(ctl.fgItemsInService->currentColumn(), 1); // the click selects the row
}

void tst_ctlService_Grid::theSaveWritesTheRowsAgainTopToBottom() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 3);
    ctl.cmdMoveServiceSIUp->click();
    ctl.cmdMoveServiceSIUp->click();
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredRows(*m_db, m_lib.service),
             QStringList({Id(m_lib.francis) + ":0", Id(m_lib.grace) + ":1", "1:1"}));
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
}

void tst_ctlService_Grid::theTotalLengthFollowsTheRowsLengths() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    QCOMPARE(ctl.lblTotalLength->text(), QString("Total length: 0:00:00"));
    // The length column is hidden and the cell rule sends a click to the
    // type column; after an add that failed, that rule is off and the cell
    // can be entered.
    QMimeData data;
    data.setText(";;SI;99999");
    m_platform->QueueAnswer(vbOK);
    Drop(ctl, InRow(ctl, 1), data);
    QVERIFY(!ctl.GridIdle());
    Enter(ctl, 1, ctlService::colLength);
    QVERIFY(ctl.QVTimeSelector1->isVisible());
    ctl.QVTimeSelector1->setHours(0);
    ctl.QVTimeSelector1->setMinutes(5);
    ctl.QVTimeSelector1->setSeconds(0);
    emit ctl.QVTimeSelector1->Changed();
    Enter(ctl, 2, ctlService::colDescription);
    Enter(ctl, 2, ctlService::colLength);
    QCOMPARE(ctl.fgItemsInService->currentColumn(), int(ctlService::colLength));
    ctl.QVTimeSelector1->setHours(1);
    ctl.QVTimeSelector1->setMinutes(2);
    ctl.QVTimeSelector1->setSeconds(0);
    emit ctl.QVTimeSelector1->Changed();
    QCOMPARE(Column(ctl, ctlService::colLength), QStringList({"5 mins", "1 hr 2 mins", "0"}));
    QCOMPARE(ctl.lblTotalLength->text(), QString("Total length: 1:07:00"));
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_db->Scalar("SELECT Length FROM ServiceContents WHERE ServiceID = ? "
                          "ORDER BY Position LIMIT 1",
                          {m_lib.service})
                 .toString(),
             ctl.fgItemsInService->item(1, ctlService::colLength)->text());
}

void tst_ctlService_Grid::fiveHundredRowsAreStoredAndReadBack() {
    QList<TestDatabase::Row> rows;
    for (int i = 0; i < 500; ++i)
        rows << TestDatabase::Row(i % 2 ? m_lib.grace : 1, i % 3 != 0);
    const qint32 big = m_db->AddService("Big", rows);
    ctlService ctl;
    Open(ctl, big);
    QCOMPARE(Ids(ctl).size(), 500);
    QCOMPARE(Column(ctl, 0).last(), QString("500"));
    Enter(ctl, 500);
    ctl.cmdAddBlank->click();
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_db->Count("ServiceContents", "ServiceID = ?", {big}), 501);
}

void tst_ctlService_Grid::aDroppedKeyOfAnItemThatIsGoneSaysSoAndAddsNothing() {
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    QMimeData data;
    data.setText("Type;14;;SI;99999");
    m_platform->QueueAnswer(vbOK);
    Drop(ctl, InRow(ctl, 1), data);
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(
        m_platform->LastBox().Prompt,
        QString(
            "QVLTCONTROLS:ctlService:AddServiceItemToServiceGrid : No record found for SI 99999"));
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), "1", Id(m_lib.francis)}));
}

void tst_ctlService_Grid::aRowThatCannotBeStoredLeavesTheStoredRowsWholeAsBefore() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    Enter(ctl, 3);
    ctl.cmdMoveServiceSIUp->click();
    ctl.cmdAddBlank->click();
    // The store refuses the prayer's row, as a failing disk would in the middle.
    QVERIFY(m_db->Exec(QString("CREATE TRIGGER refuse BEFORE INSERT ON ServiceContents "
                               "WHEN NEW.ServiceItemID = %1 "
                               "BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END")
                           .arg(m_lib.francis)));
    m_platform->QueueAnswer(vbOK);
    ctl.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 1);
    QVERIFY2(m_platform->LastBox().Prompt.contains("disk I/O error"),
             qPrintable(m_platform->LastBox().Prompt));
    QCOMPARE(StoredRows(*m_db, m_lib.service),
             QStringList({Id(m_lib.grace) + ":1", "1:1", Id(m_lib.francis) + ":0"}));
    QVERIFY(ctl.cmdApplyChanges->isEnabled());
    // Once the store takes it again, the whole new order is stored.
    QVERIFY(m_db->Exec("DROP TRIGGER refuse"));
    ctl.cmdApplyChanges->click();
    QCOMPARE(StoredRows(*m_db, m_lib.service),
             QStringList({Id(m_lib.grace) + ":1", Id(m_lib.francis) + ":0", "1:1", "1:1"}));
}

namespace {
QStringList GalleryItems(ctlServiceItemGallery* gallery) {
    QStringList keys;
    VBTreeWidget* tree = gallery->tvwServiceItems;
    for (qint32 i = 1; i <= tree->Count(); ++i)
        if (tree->Nodes(i).Key().contains(";;SI;"))
            keys << tree->Nodes(i).Key();
    keys.sort();
    return keys;
}
} // namespace

void tst_ctlService_Grid::onScreenTheRowsShowFirstAndTheItemGalleryFillsInAfter() {
    ctlServiceItemGallery alone;
    alone.ShowServiceItems();
    const QStringList expected = GalleryItems(&alone);
    QVERIFY(expected.size() >= 3);
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, m_lib.service);
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), "1", Id(m_lib.francis)}));
    QVERIFY(!ctl.ItemGalleryLoaded());
    QVERIFY(GalleryItems(ctl.ctlServiceItemGallery1).isEmpty());
    QTRY_VERIFY(ctl.ItemGalleryLoaded());
    QCOMPARE(GalleryItems(ctl.ctlServiceItemGallery1), expected);
    QVERIFY(!ctl.cmdApplyChanges->isEnabled());
    ctl.ctlServiceItemGallery1->SelectServiceItem(m_lib.notices);
    ctl.cmdMoveOneSIToService->click();
    QCOMPARE(Ids(ctl).size(), 4);
}

void tst_ctlService_Grid::offScreenTheItemGalleryLoadsWithTheRows() {
    ctlService ctl;
    Open(ctl, m_lib.service);
    QVERIFY(ctl.ItemGalleryLoaded());
    const QStringList keys = GalleryItems(ctl.ctlServiceItemGallery1);
    QVERIFY(std::any_of(keys.begin(), keys.end(), [&](const QString& key) {
        return key.endsWith(QString(";;SI;%1").arg(m_lib.notices));
    }));
}

void tst_ctlService_Grid::aServiceShownAgainOnScreenLoadsTheItemGalleryAgainAfterThePaint() {
    const qint32 empty = m_db->AddService("Empty");
    ctlService ctl;
    ctl.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ctl));
    Open(ctl, empty);
    QTRY_VERIFY(ctl.ItemGalleryLoaded());
    Show(ctl, m_lib.service);
    QVERIFY(!ctl.ItemGalleryLoaded());
    QCOMPARE(Ids(ctl), QStringList({Id(m_lib.grace), "1", Id(m_lib.francis)}));
    QTRY_VERIFY(ctl.ItemGalleryLoaded());
}

QTEST_MAIN(tst_ctlService_Grid)
#include "tst_ctlService_Grid.moc"
