// A whole run of a Sunday service through the console, driven by a host that
// answers the console as a host must: forward from the first item to the
// last, back to the first, then jumps to items and parts, a prop, and the end.
#include "RunConsoleFixture.h"
#include "RunTestHost.h"

#include "galleries/ctlServiceItemGallery.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

// What the console must show for one item of the service.
struct Shown {
    QString Type;
    QString Description;
    qint32 Parts = 0; // song parts; 0 for an item shown in one step
    QString Key;      // the node's key: the row's position, hidden rows counted
    qint32 ID = 0;
};

const QString Finish = QStringLiteral("&Finish this Service Item");
const QString MoveForward = QStringLiteral("Move Forward >>");

} // namespace

class tst_ctlRun_WholeRun : public QObject, protected RunConsoleFixture<> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void runsTheServiceForwardToTheEndAndBackToTheStart();
    void jumpsToItemsAndPartsRunsAPropAndEnds();

private:
    bool BuildService();
    // The host loads the service; the console shows its first item.
    bool Load();
    // Whether the console shows what it must with the host at item intItem,
    // part lngPart.
    bool CheckShowing(qint16 intItem, qint32 lngPart);
    QStringList ItemLines(const QString& strHandler, qint16 intItem) const;
    QStringList PartLines(const QString& strHandler, qint32 lngPart, bool blnLast) const;
    // One press of Forward or Back; whether the run is then where it must be.
    bool Press(QPushButton* cmd, qint16 intItem, qint32 lngPart);

    std::unique_ptr<RunTestHost> host;
    qint32 service = 0;
    QList<Shown> items; // 1-based through At()
    const Shown& At(qint16 intItem) const { return items.at(intItem - 1); }
};

void tst_ctlRun_WholeRun::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
    host = std::make_unique<RunTestHost>(console.get());
    QVERIFY(BuildService());
    QVERIFY(ShowConsole());
}

void tst_ctlRun_WholeRun::cleanup() {
    host.reset();
    StopConsole();
}

// Songs with sequences, a notice, a prayer, a creed whose name holds the
// stored apostrophe marker, a picture, shown and hidden Blank rows and a
// hidden notice, as in the sample services.
bool tst_ctlRun_WholeRun::BuildService() {
    return Holds([&] {
        const qint32 welcome =
            db->AddServiceItem(TestDatabase::Announcement, QStringLiteral("Welcome and Notices"));
        const qint32 holy = db->AddSong(
            QStringLiteral("Holy, Holy, Holy"),
            {{QStringLiteral("Verse 1"), QStringLiteral("Holy, holy, holy! Lord God Almighty!")},
             {QStringLiteral("Verse 2"),
              QStringLiteral("Holy, holy, holy! All the saints adore thee")},
             {QStringLiteral("Verse 3"),
              QStringLiteral("Holy, holy, holy! Though the darkness hide")}});
        const qint32 collect =
            db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
        const qint32 creed =
            db->AddServiceItem(TestDatabase::Creed, QStringLiteral("The Apostles@@ Creed"));
        const qint32 grace = db->AddSong(
            QStringLiteral("Amazing Grace"),
            {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace, how sweet the sound")},
             {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers, toils and snares")},
             {QStringLiteral("Chorus"), QStringLiteral("My chains are gone"), true}},
            {0, 2, 1, 2});
        const qint32 offering =
            db->AddServiceItem(TestDatabase::Announcement, QStringLiteral("Offering"));
        const qint32 cross = db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Cross"));
        const qint32 blessing =
            db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("The Blessing"));
        QVERIFY(welcome && holy && collect && creed && grace && offering && cross && blessing);
        service =
            db->AddService(QStringLiteral("Sunday Morning Worship"), {{welcome},
                                                                      TestDatabase::Blank(),
                                                                      {holy},
                                                                      {collect},
                                                                      {creed},
                                                                      {grace},
                                                                      TestDatabase::Blank(false),
                                                                      {offering, false},
                                                                      {cross},
                                                                      {blessing},
                                                                      TestDatabase::Blank()});
        QVERIFY(service > 0);
        items = {{"Announcement", "Welcome and Notices", 0, "1SIID", welcome},
                 {"Blank", "", 0, "2SIID", 1},
                 {"Hymn", "Holy, Holy, Holy", 3, "3SIID", holy},
                 {"Prayer", "Collect for Purity", 0, "4SIID", collect},
                 {"Creed", "The Apostles' Creed", 0, "5SIID", creed},
                 {"Hymn", "Amazing Grace", 4, "6SIID", grace},
                 {"Picture", "Cross", 0, "9SIID", cross},
                 {"Prayer", "The Blessing", 0, "10SIID", blessing},
                 {"Blank", "", 0, "11SIID", 1}};
    });
}

bool tst_ctlRun_WholeRun::Load() {
    return Holds([&] {
        TraceTail trace;
        QVERIFY2(host->LoadService(service), qPrintable(host->LastError()));
        QCOMPARE(host->ItemCount(), qint16(9));
        QCOMPARE(
            trace.StepLines(),
            QStringList(
                {RunLine("RunningService", QString("lngServiceID = %1, ").arg(service)),
                 RunLine("ShowSIAsRunning",
                         QString("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(At(1).ID)),
                 RunLine("AddServicePropBagItems", QString("lngService = %1, ").arg(service)),
                 RunLine("AtEndOfSI"), MirrorLine}));
        QVERIFY(CheckShowing(1, 0));
    });
}

bool tst_ctlRun_WholeRun::CheckShowing(qint16 intItem, qint32 lngPart) {
    return Holds([&] {
        const Shown& item = At(intItem);
        QCOMPARE(host->CurrentItem(), intItem);
        QCOMPARE(host->CurrentPart(), lngPart);

        QCOMPARE(console->lblMainCaption->text(),
                 QStringLiteral("Running Service - Sunday Morning Worship"));
        QCOMPARE(console->lblSIType->text(), item.Type);
        QCOMPARE(console->lblSIDescription->text(), item.Description);
        QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
        QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
        QVERIFY(console->fraPropDetails->isHidden());

        QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({intItem + 1}));
        const VBNode node = console->tvwRun->SelectedItem();
        QCOMPARE(node.Index(), intItem + 1);
        QCOMPARE(node.Key(), item.Key);
        QCOMPARE(node.Tag().toInt(), item.ID);

        if (item.Parts > 0) {
            QVERIFY(console->lvwSIContent->isVisible());
            QCOMPARE(console->lvwSIContent->topLevelItemCount(), item.Parts);
            QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({lngPart}));
            QCOMPARE(BoldSubItemRows(console->lvwSIContent), QList<qint32>({lngPart}));
        } else {
            QVERIFY(!console->lvwSIContent->isVisible());
        }
        const bool blnAtEnd = lngPart >= item.Parts;
        QCOMPARE(console->cmdForward->toolTip(), blnAtEnd ? Finish : MoveForward);
        QVERIFY(console->cmdForward->isEnabled());
        QVERIFY(console->cmdBack->isEnabled());
    });
}

// The lines of a press that brings another item up.
QStringList tst_ctlRun_WholeRun::ItemLines(const QString& strHandler, qint16 intItem) const {
    const Shown& item = At(intItem);
    QStringList lines = {
        RunLine(strHandler),
        RunLine("ShowServiceSIAsRunning",
                QString("intServiceSI = %1, lngNewPartID = 0, NewPartType = 0, ").arg(intItem)),
        RunLine("ShowSIAsRunning",
                QString("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(item.ID))};
    if (item.Parts > 0)
        lines << RunLine("SetupSong",
                         QString("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(item.ID));
    if (item.Parts <= 1)
        lines << RunLine("AtEndOfSI") << MirrorLine;
    lines << MirrorLine;
    return lines;
}

// The lines of a press that moves to another part of the same song.
QStringList tst_ctlRun_WholeRun::PartLines(const QString& strHandler, qint32 lngPart,
                                           bool blnLast) const {
    QStringList lines = {
        RunLine(strHandler),
        RunLine("SIPartChanged", QString("lngPartID = %1, PartType = 2, ").arg(lngPart))};
    if (blnLast)
        lines << RunLine("AtEndOfSI") << MirrorLine;
    lines << MirrorLine;
    return lines;
}

// One press of Forward or Back, checked against where the run must be then.
bool tst_ctlRun_WholeRun::Press(QPushButton* cmd, qint16 intItem, qint32 lngPart) {
    return Holds([&] {
        const QString handler = cmd == console->cmdForward ? QStringLiteral("cmdForward_Click")
                                                           : QStringLiteral("cmdBack_Click");
        const qint16 intWasItem = host->CurrentItem();
        const qint32 lngWasPart = host->CurrentPart();
        TraceTail trace;
        cmd->click();

        QStringList expected;
        if (intItem != intWasItem)
            expected = ItemLines(handler, intItem);
        else if (lngPart != lngWasPart)
            expected = PartLines(handler, lngPart, lngPart == At(intItem).Parts);
        else
            expected = {RunLine(handler), MirrorLine};
        QCOMPARE(trace.StepLines(), expected);
        QVERIFY(CheckShowing(intItem, lngPart));
    });
}

void tst_ctlRun_WholeRun::runsTheServiceForwardToTheEndAndBackToTheStart() {
    QVERIFY(Load());
    QCOMPARE(console->tvwRun->Count(), 10);
    QCOMPARE(console->tvwRun->Nodes(1).Text(), QStringLiteral("Sunday Morning Worship"));

    QCOMPARE(host->Events(), QStringList());
    const QList<QPair<qint16, qint32>> forward = {{2, 0}, {3, 1}, {3, 2}, {3, 3}, {4, 0},
                                                  {5, 0}, {6, 1}, {6, 2}, {6, 3}, {6, 4},
                                                  {7, 0}, {8, 0}, {9, 0}};
    for (const auto& [intItem, lngPart] : forward) {
        QVERIFY2(Press(console->cmdForward, intItem, lngPart),
                 qPrintable(QString("Forward to item %1, part %2").arg(intItem).arg(lngPart)));
    }
    // Past the last item the console has no state; the host decides.
    QVERIFY(Press(console->cmdForward, 9, 0));
    QVERIFY(host->IsPastEndOfService());

    const QList<QPair<qint16, qint32>> back = {{8, 0}, {7, 0}, {6, 1}, {5, 0},
                                               {4, 0}, {3, 1}, {2, 0}, {1, 0}};
    for (const auto& [intItem, lngPart] : back) {
        QVERIFY2(Press(console->cmdBack, intItem, lngPart),
                 qPrintable(QString("Back to item %1, part %2").arg(intItem).arg(lngPart)));
    }
    QVERIFY(Press(console->cmdBack, 1, 0));

    QCOMPARE(host->Events().count(QStringLiteral("ShowNextClicked")), 14);
    QCOMPARE(host->Events().count(QStringLiteral("ShowPreviousClicked")), 9);
    QCOMPARE(host->Events().size(), 23);
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_WholeRun::jumpsToItemsAndPartsRunsAPropAndEnds() {
    QVERIFY(Load());

    // A click on the node of "Amazing Grace": item 6.
    TraceTail trace;
    QTreeWidgetItem* node = console->tvwRun->Nodes(QStringLiteral("6SIID")).Item();
    QTest::mouseClick(console->tvwRun->viewport(), Qt::LeftButton, {},
                      console->tvwRun->visualItemRect(node).center());
    QCOMPARE(host->Events(), QStringList({"ShowServiceSI(6)"}));
    QCOMPARE(trace.StepLines(), ItemLines(QStringLiteral("tvwRun_NodeClick"), 6));
    QVERIFY(CheckShowing(6, 1));

    // A click on its last part: ShowVerse carries the row minus 1.
    trace.Mark();
    QTreeWidgetItem* last = console->lvwSIContent->ListItems(4).Item();
    console->lvwSIContent->scrollToItem(last);
    QTest::mouseClick(console->lvwSIContent->viewport(), Qt::LeftButton, {},
                      console->lvwSIContent->visualItemRect(last).center());
    QCOMPARE(host->Events().last(), QStringLiteral("ShowVerse(3)"));
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine("lvwSIContent_ItemClick"),
                          RunLine("SIPartChanged", "lngPartID = 4, PartType = 2, "),
                          RunLine("AtEndOfSI"), MirrorLine, MirrorLine}));
    QVERIFY(CheckShowing(6, 4));

    // Forward from the last part goes on to the picture.
    QVERIFY(Press(console->cmdForward, 7, 0));

    // A click on the root: the host has nothing to show, the root goes bold.
    trace.Mark();
    QTreeWidgetItem* root = console->tvwRun->Nodes(1).Item();
    QTest::mouseClick(console->tvwRun->viewport(), Qt::LeftButton, {},
                      console->tvwRun->visualItemRect(root).center());
    QCOMPARE(host->Events().last(), QStringLiteral("ShowServiceSI(0)"));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({1}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Cross"));
    QCOMPARE(trace.StepLines(), QStringList({RunLine("tvwRun_NodeClick"), MirrorLine}));

    // A prop from the gallery: "Holy, Holy, Holy" outside the running order.
    const qint32 holy = At(3).ID;
    trace.Mark();
    emit console->ctlServiceItemGallery1->SIDblClicked(holy);
    QCOMPARE(host->Events().last(), QStringLiteral("ShowSI(%1)").arg(holy));
    QCOMPARE(host->RunningProp(), holy);
    QCOMPARE(trace.StepLines(),
             QStringList(
                 {RunLine("ctlServiceItemGallery1_SIDblClicked", QString("SIId = %1, ").arg(holy)),
                  RunLine("ShowSIAsRunning",
                          QString("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(holy)),
                  RunLine("SetupSong",
                          QString("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(holy)),
                  MirrorLine}));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Cross"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Holy, Holy, Holy"));
    QVERIFY(console->fraPropDetails->isVisible());
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 3);
    QCOMPARE(BoldIndexes(console->lvwPropSIContent), QList<qint32>({1}));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    QCOMPARE(console->fraMain->title(),
             QStringLiteral("This service item is NOT part of the active service"));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({1}));
    QCOMPARE(console->cmdForward->toolTip(), MoveForward);

    // Forward steps the prop's parts in its own list.
    trace.Mark();
    console->cmdForward->click();
    QCOMPARE(host->PropPart(), 2);
    QCOMPARE(trace.StepLines(), PartLines(QStringLiteral("cmdForward_Click"), 2, false));
    QCOMPARE(BoldIndexes(console->lvwPropSIContent), QList<qint32>({2}));

    // End ends the prop; the type label keeps the prop's type.
    trace.Mark();
    console->cmdEnd->click();
    QCOMPARE(host->Events().last(), QStringLiteral("EndRun"));
    QCOMPARE(host->RunningProp(), 0);
    QVERIFY(!host->IsEnded());
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine("cmdEnd_Click"), RunLine("PropRunEnded"), MirrorLine}));
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));

    // The host brings the item back; leaving the console ends the run.
    console->ShowServiceSIAsRunning(host->CurrentItem(), 0, 0);
    console->AtEndOfSI();
    QVERIFY(CheckShowing(7, 0));
    platform->QueueAnswer(vbYes);
    QVERIFY(console->CanUnload());
    QVERIFY(host->IsEnded());
}

QTEST_MAIN(tst_ctlRun_WholeRun)
#include "tst_ctlRun_WholeRun.moc"
