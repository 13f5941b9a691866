// Tab 1 of the options control, " Service Building": the grid of service item
// types with their defaults, and the Yes/No combo that floats over a cell.
#include "OptionsTestFixture.h"

#include <QComboBox>
#include <QTableWidget>

using namespace OptionsTest;

namespace {

// The grid row of a type (rows from 1), or -1.
int RowOfType(const QTableWidget* fg, qint32 lngTypeID) {
    for (int row = 1; row < fg->rowCount(); ++row)
        if (fg->item(row, 4) && fg->item(row, 4)->text().toInt() == lngTypeID)
            return row;
    return -1;
}

} // namespace

class tst_ctlOptions_ServiceBuilding : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void gridHasAHeaderRowAndOneRowPerTypeWithItsDefaults();
    void columnsHaveTheirHeadersAndWidthsAndTheIdColumnIsHidden();
    void clickInAYesNoCellFloatsTheComboOverItWithTheCellsValue();
    void clickInColumnZeroHidesTheCombo();
    void changingACellToNoStoresFalseForThatTypeOnly();
    void eachYesNoColumnStoresItsOwnField();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void tst_ctlOptions_ServiceBuilding::init() {
    RemoveSettingsFile();
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
}

void tst_ctlOptions_ServiceBuilding::cleanup() {
    m_db.reset();
    RemoveSettingsFile();
}

void tst_ctlOptions_ServiceBuilding::gridHasAHeaderRowAndOneRowPerTypeWithItsDefaults() {
    QVERIFY(m_db->Exec(QStringLiteral(
        "UPDATE ServiceItemTypes SET ByDefaultShowAtRuntime = 0, "
        "ByDefaultIncludeTitleOnServiceSheet = 1, ByDefaultIncludeContentOnServiceSheet = 0 "
        "WHERE ServiceItemTypeID = 17")));
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    const qint32 types =
        m_db->Count(QStringLiteral("ServiceItemTypes"), QStringLiteral("ServiceItemTypeID <> 0"));
    QCOMPARE(fg->rowCount(), types + 1);
    QCOMPARE(fg->rowHeight(0), Twips::ToPixels(800));
    QCOMPARE(fg->rowHeight(1), Twips::ToPixels(315));
    const int song = RowOfType(fg, 17);
    QVERIFY(song >= 1);
    QCOMPARE(fg->item(song, 0)->text(),
             m_db->Scalar(QStringLiteral("SELECT ServiceItemTypeName FROM ServiceItemTypes WHERE "
                                         "ServiceItemTypeID = 17"))
                 .toString());
    QVERIFY(!fg->item(song, 0)->icon().isNull());
    QCOMPARE(fg->item(song, 1)->text(), QStringLiteral("No"));
    QCOMPARE(fg->item(song, 2)->text(), QStringLiteral("Yes"));
    QCOMPARE(fg->item(song, 3)->text(), QStringLiteral("No"));
    QVERIFY(!options.cboCombo->isVisible());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_ServiceBuilding::columnsHaveTheirHeadersAndWidthsAndTheIdColumnIsHidden() {
    ScriptedPlatform platform;
    ctlOptions options;
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    QCOMPARE(fg->columnCount(), 5);
    QCOMPARE(fg->item(0, 0)->text(), QStringLiteral("Type"));
    QCOMPARE(fg->item(0, 1)->text(), QStringLiteral("Show at Run Time"));
    QCOMPARE(fg->item(0, 2)->text(),
             QStringLiteral("By default include Service Items of this type on service sheets"));
    QCOMPARE(fg->item(0, 3)->text(),
             QStringLiteral("By default include the content of Service Items of this type on "
                            "service sheets"));
    QCOMPARE(fg->columnWidth(0), Twips::ToPixels(1900));
    QCOMPARE(fg->columnWidth(1), Twips::ToPixels(1650));
    QCOMPARE(fg->columnWidth(2), Twips::ToPixels(1800));
    QCOMPARE(fg->columnWidth(3), Twips::ToPixels(1800));
    QVERIFY(fg->isColumnHidden(4));
}

void tst_ctlOptions_ServiceBuilding::clickInAYesNoCellFloatsTheComboOverItWithTheCellsValue() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE ServiceItemTypes SET ByDefaultShowAtRuntime = 0 "
                                      "WHERE ServiceItemTypeID = 4")));
    ScriptedPlatform platform;
    ctlOptions options;
    options.resize(900, 600);
    options.show();
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    const int row = RowOfType(fg, 4);
    fg->setCurrentCell(row, 1);
    QVERIFY(options.cboCombo->isVisible());
    QCOMPARE(options.cboCombo->currentText(), QStringLiteral("No"));
    const QRect cell = fg->visualItemRect(fg->item(row, 1));
    const QPoint expected = fg->viewport()->mapTo(options.cboCombo->parentWidget(), cell.topLeft());
    QCOMPARE(options.cboCombo->pos(), expected);
    QCOMPARE(options.cboCombo->width(), cell.width());
    // Showing the cell's own value stored nothing new.
    QCOMPARE(m_db->Scalar(QStringLiteral("SELECT ByDefaultShowAtRuntime FROM ServiceItemTypes "
                                         "WHERE ServiceItemTypeID = 4"))
                 .toInt(),
             0);
    fg->setCurrentCell(row, 2);
    QCOMPARE(options.cboCombo->currentText(), fg->item(row, 2)->text());
    // The header row is no data cell.
    fg->setCurrentCell(0, 2);
    QVERIFY(!options.cboCombo->isVisible());
}

void tst_ctlOptions_ServiceBuilding::clickInColumnZeroHidesTheCombo() {
    ScriptedPlatform platform;
    ctlOptions options;
    options.resize(900, 600);
    options.show();
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    fg->setCurrentCell(2, 3);
    QVERIFY(options.cboCombo->isVisible());
    const QRect name = fg->visualItemRect(fg->item(3, 0));
    QTest::mouseClick(fg->viewport(), Qt::LeftButton, {}, name.center());
    QCOMPARE(fg->currentColumn(), 0);
    QVERIFY(!options.cboCombo->isVisible());
}

void tst_ctlOptions_ServiceBuilding::changingACellToNoStoresFalseForThatTypeOnly() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE ServiceItemTypes SET ByDefaultShowAtRuntime = 1")));
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    const int row = RowOfType(fg, 1);
    fg->setCurrentCell(row, 1);
    QCOMPARE(options.cboCombo->currentText(), QStringLiteral("Yes"));
    options.cboCombo->setCurrentIndex(options.cboCombo->findText(QStringLiteral("No")));
    QCOMPARE(fg->item(row, 1)->text(), QStringLiteral("No"));
    QCOMPARE(m_db->Scalar(QStringLiteral("SELECT ByDefaultShowAtRuntime FROM ServiceItemTypes "
                                         "WHERE ServiceItemTypeID = 1"))
                 .toInt(),
             0);
    QCOMPARE(m_db->Count(QStringLiteral("ServiceItemTypes"),
                         QStringLiteral("ByDefaultShowAtRuntime = 0")),
             1);
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ctlOptions_ServiceBuilding::eachYesNoColumnStoresItsOwnField() {
    QVERIFY(m_db->Exec(QStringLiteral(
        "UPDATE ServiceItemTypes SET ByDefaultShowAtRuntime = 1, "
        "ByDefaultIncludeTitleOnServiceSheet = 1, ByDefaultIncludeContentOnServiceSheet = 1")));
    ScriptedPlatform platform;
    ctlOptions options;
    options.show();
    ShowTab(options, 1);
    QTableWidget* fg = options.fgServiceItemTypes;
    const int row = RowOfType(fg, 10);
    const QStringList fields = {QStringLiteral("ByDefaultShowAtRuntime"),
                                QStringLiteral("ByDefaultIncludeTitleOnServiceSheet"),
                                QStringLiteral("ByDefaultIncludeContentOnServiceSheet")};
    for (int col = 1; col <= 3; ++col) {
        fg->setCurrentCell(row, col);
        options.cboCombo->setCurrentIndex(1);
        for (int other = 1; other <= 3; ++other)
            QCOMPARE(m_db->Scalar(QStringLiteral("SELECT %1 FROM ServiceItemTypes WHERE "
                                                 "ServiceItemTypeID = 10")
                                      .arg(fields.at(other - 1)))
                         .toInt(),
                     other <= col ? 0 : 1);
    }
    // Back to Yes.
    options.cboCombo->setCurrentIndex(0);
    QCOMPARE(fg->item(row, 3)->text(), QStringLiteral("Yes"));
    QCOMPARE(m_db->Scalar(QStringLiteral("SELECT ByDefaultIncludeContentOnServiceSheet FROM "
                                         "ServiceItemTypes WHERE ServiceItemTypeID = 10"))
                 .toInt(),
             1);
}

QTEST_MAIN(tst_ctlOptions_ServiceBuilding)
#include "tst_ctlOptions_ServiceBuilding.moc"
