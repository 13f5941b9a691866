// Loading a service into the run console, and showing an item as running.
#include "RunConsoleFixture.h"
#include "RunTestHost.h"
#include "VBErrorCheck.h"

#include "foundations/SSTab.h"
#include "foundations/VBError.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

class tst_ctlRun_Load : public QObject, protected RunConsoleFixture<> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Loading.
    void serviceWithNoRowsShowsRootAloneAndStillFillsThePropBag();
    void firstRowHiddenGivesFirstNodeKeyTwoAndIndexOne();
    void nodeKeysCountHiddenRowsAndTagsHoldTheItemIds();
    void rootIsKeyedRootWithTheServiceDescriptionAndTheOpenFolder();
    void blankRowHasNoPictureAndOtherRowsTheirTypePicture();
    void blankRowIsAsTallAsTheRowsWithAPictureBoldOrPlain();
    void storedApostropheMarkerIsDecodedInTheNodeText();
    void loadShowsTheFirstItemBoldAndSelectedWithoutAnEvent();
    void readingRunningServiceRightAfterWritingItYieldsZero();
    void runningServiceIsAPropertyTheHostCanWriteByName();
    void unknownServiceWritesTheErrorLineAndLeavesTheTreeEmpty();
    void everyRowHiddenFailureReachesTheHost();
    void propBagColumnTakesTheListWidthLessSixty();
    void loadingAnotherServiceReplacesTheNodes();

    // Rows whose look-ups fail.
    void rowWhoseItemIsGoneShowsAnEmptyTextAndTheRowsAfterItStillGetNodes();
    void itemOfTypeNoneShowsWithoutAPictureAndTheLoadGoesOn();
    void firstItemOfTypeNoneIsShownAsRunning();
    void propOfTypeNoneIsListedWithoutAPicture();
    void songOfTypeNoneStillShowsItsPartList();

    // Showing an item of the service.
    void showServiceSIAsRunningThreeBoldsNodeFourWithoutPartHandling();
    void showServiceSIAsRunningWithAPartOnAnItemWithoutListCallsSIPartChanged();
    void showServiceSIAsRunningWithAPartOnASongLeavesItsHighlight();
    void showServiceSIAsRunningBeyondTheNodesReachesTheHost();
    void writingRunningServiceServiceItemShowsThatItemWithoutPartHandling();
    void showingAnItemResetsTheForwardToolTipAndLeavesTheMirror();

    // ShowSIAsRunning.
    void unknownIdKeepsLabelsHidesListsAndLeavesCaptions();
    void unknownIdDuringAPropKeepsThePropCaptions();
    void blankItemShowsBlankLabelsWithoutTypeLookupAndExaminesItsMusic();
    void blankPropGoesToThePropLabels();
    void propOfANormalItemShowsPropTypeAndKeepsTheRunningDescription();
    void propRunShowsPropDetailsAndEndPropCaptions();
    void propRunLeavesTheMainPartListAndTheBoldNode();
    void nullDescriptionAfterOneWithDescriptionKeepsTheOldLabel();
    void descriptionIsDecodedWithoutTestForTheMarker();
    void pictureItemShowsNoPartListAndPlaysItsMusic();
    void musicItemPlaysItsMusicOnce();
    void textItemWithoutMusicPlaysNothing();
    void songWithMusicBuildsItsPartsAndPlaysItsMusic();
    void textItemShowsNoPartList();
    void songShowsItsPartListInTheMainList();
    void singleItemRunHidesTheTreeAndNamesTheItemInTheCaption();
    void singleItemWithNullDescriptionCaptionEndsAfterTheColon();
    void serviceRunPutsTheExtrasBesideTheTree();
    void showSIAsRunningTracesItsArguments();

    // An item shown again after a change.
    void itemChangedAfterItWasShownShowsItsNewLabelsWhenShownAgain();
    void itemChangedThroughAnotherConnectionShowsWhenShownAgain();
    void typeRenamedAfterItWasShownShowsItsNewName();
    void itemDeletedAfterItWasShownIsUnknownWhenShownAgain();
    void itemChangedByAnotherConnectionBetweenPressesShowsAtTheNextPress();

private:
    qint32 AddAmazingGrace();
    qint32 AddPrayer();
};

void tst_ctlRun_Load::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
}

void tst_ctlRun_Load::cleanup() {
    StopConsole();
}

qint32 tst_ctlRun_Load::AddAmazingGrace() {
    return db->AddSong(QStringLiteral("Amazing Grace"),
                       {{QStringLiteral("Verse 1"),
                         QStringLiteral("Amazing grace, how sweet the sound\nthat saved a wretch")},
                        {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers\ntoils")},
                        {QStringLiteral("Chorus"), QStringLiteral("Praise him\npraise him"), true}},
                       {0, 2, 1, 2});
}

qint32 tst_ctlRun_Load::AddPrayer() {
    return db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Prayer of St Francis"),
                              QStringLiteral("Make me a channel of your peace"));
}

// ---------------------------------------------------------------- loading

void tst_ctlRun_Load::serviceWithNoRowsShowsRootAloneAndStillFillsThePropBag() {
    const qint32 service = db->AddService(QStringLiteral("Quiet Evening"));
    QVERIFY(service > 0);
    TraceTail trace;
    console->setRunningService(service);

    QCOMPARE(console->tvwRun->Count(), 1);
    QCOMPARE(console->tvwRun->Nodes(1).Key(), QStringLiteral("Root"));
    QVERIFY(console->lblSIType->text().isEmpty());
    QVERIFY(console->lblSIDescription->text().isEmpty());
    QVERIFY(!console->tvwRun->SelectedItem());
    QVERIFY(!trace.ConsoleLines().join('\n').contains(QStringLiteral("ShowSIAsRunning")));
    QVERIFY(
        trace.ConsoleLines().contains(RunLine(QStringLiteral("AddServicePropBagItems"),
                                              QStringLiteral("lngService = %1, ").arg(service))));
    QCOMPARE(console->lblMainCaption->text(), QStringLiteral("Running Service - Quiet Evening"));
}

void tst_ctlRun_Load::firstRowHiddenGivesFirstNodeKeyTwoAndIndexOne() {
    const qint32 prayer = AddPrayer();
    const qint32 song = AddAmazingGrace();
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{song, false}, {prayer}});
    console->setRunningService(service);

    QCOMPARE(console->tvwRun->Count(), 2);
    const VBNode first = console->tvwRun->Nodes(2);
    QCOMPARE(first.Key(), QStringLiteral("2SIID"));
    QCOMPARE(first.Index() - 1, 1); // item index 1
    QCOMPARE(first.Tag().toInt(), prayer);
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
}

void tst_ctlRun_Load::nodeKeysCountHiddenRowsAndTagsHoldTheItemIds() {
    const qint32 prayer = AddPrayer();
    const qint32 song = AddAmazingGrace();
    const qint32 service = db->AddService(
        QStringLiteral("Morning"),
        {{song}, TestDatabase::Blank(false), {prayer}, {song, false}, TestDatabase::Blank()});
    console->setRunningService(service);

    QStringList keys;
    QList<qint32> tags;
    for (qint32 i = 2; i <= console->tvwRun->Count(); ++i) {
        keys << console->tvwRun->Nodes(i).Key();
        tags << console->tvwRun->Nodes(i).Tag().toInt();
        QCOMPARE(console->tvwRun->Nodes(i).Parent().Key(), QStringLiteral("Root"));
    }
    QCOMPARE(keys, QStringList({"1SIID", "3SIID", "5SIID"}));
    QCOMPARE(tags, QList<qint32>({song, prayer, 1}));
}

void tst_ctlRun_Load::rootIsKeyedRootWithTheServiceDescriptionAndTheOpenFolder() {
    const qint32 service = db->AddService(QStringLiteral("Harvest Thanksgiving"), {{AddPrayer()}});
    console->setRunningService(service);

    const VBNode root = console->tvwRun->Nodes(QStringLiteral("Root"));
    QCOMPARE(root.Index(), 1);
    QCOMPARE(root.Text(), QStringLiteral("Harvest Thanksgiving"));
    QCOMPARE(root.Image().toString(), QStringLiteral("imgFolderOpen"));
    QVERIFY(root.Expanded());
    QVERIFY(!root.Item()->icon(0).isNull());
}

void tst_ctlRun_Load::blankRowHasNoPictureAndOtherRowsTheirTypePicture() {
    const qint32 prayer = AddPrayer();
    const qint32 service =
        db->AddService(QStringLiteral("Morning"), {TestDatabase::Blank(), {prayer}});
    console->setRunningService(service);

    const VBNode blank = console->tvwRun->Nodes(QStringLiteral("1SIID"));
    QCOMPARE(blank.Text(), QStringLiteral("Blank"));
    QVERIFY(!blank.Image().isValid() || blank.Image().isNull());
    QVERIFY(blank.Item()->icon(0).isNull());
    const VBNode item = console->tvwRun->Nodes(QStringLiteral("2SIID"));
    QCOMPARE(item.Image().toInt(), static_cast<int>(TestDatabase::Prayer));
    QVERIFY(!item.Item()->icon(0).isNull());
}

void tst_ctlRun_Load::blankRowIsAsTallAsTheRowsWithAPictureBoldOrPlain() {
    const qint32 service = db->AddService(
        QStringLiteral("Morning"), {{AddPrayer()}, TestDatabase::Blank(), {AddAmazingGrace()}});
    console->setRunningService(service);
    console->ShowServiceSIAsRunning(3, 0, 0); // the song, made bold

    const VBTreeWidget* tree = console->tvwRun;
    const int height = tree->visualItemRect(tree->Nodes(QStringLiteral("1SIID")).Item()).height();
    QVERIFY(height > 0);
    QVERIFY(tree->Nodes(QStringLiteral("3SIID")).Bold());
    for (const char* key : {"2SIID", "3SIID"})
        QCOMPARE(tree->visualItemRect(tree->Nodes(QString::fromLatin1(key)).Item()).height(),
                 height);
}

void tst_ctlRun_Load::storedApostropheMarkerIsDecodedInTheNodeText() {
    const qint32 hymn = db->AddServiceItem(TestDatabase::Song,
                                           QStringLiteral("All Hail the Power of Jesus@@ Name"));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{hymn}});
    console->setRunningService(service);

    QCOMPARE(console->tvwRun->Nodes(2).Text(), QStringLiteral("All Hail the Power of Jesus' Name"));
    QCOMPARE(console->lblSIDescription->text(),
             QStringLiteral("All Hail the Power of Jesus' Name"));
}

void tst_ctlRun_Load::loadShowsTheFirstItemBoldAndSelectedWithoutAnEvent() {
    const qint32 song = AddAmazingGrace();
    const qint32 service = db->AddService(QStringLiteral("Morning"),
                                          {TestDatabase::Blank(false), {song}, {AddPrayer()}});
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    const QMetaObject* meta = console->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            spies.push_back(std::make_unique<QSignalSpy>(console.get(), meta->method(i)));
    QVERIFY(spies.size() >= 16);
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(console->tvwRun->SelectedItem().Index(), 2);
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));
    QVERIFY(!console->lvwSIContent->isHidden());
    for (const auto& spy : spies)
        QCOMPARE(spy->count(), 0);
    const QStringList lines = trace.ConsoleLines();
    QCOMPARE(lines.value(0), RunLine(QStringLiteral("RunningService"),
                                     QStringLiteral("lngServiceID = %1, ").arg(service)));
    QVERIFY(lines.contains(
        RunLine(QStringLiteral("ShowSIAsRunning"),
                QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(song))));
    QVERIFY(!lines.contains(MirrorLine));
}

void tst_ctlRun_Load::readingRunningServiceRightAfterWritingItYieldsZero() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{AddPrayer()}});
    console->setRunningService(service);
    QCOMPARE(console->RunningService(), 0);
    QCOMPARE(console->property("RunningService").toInt(), 0);
    // The id is stored all the same: an item shown outside the order is a prop.
    console->ShowSIAsRunning(AddAmazingGrace(), false);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
}

void tst_ctlRun_Load::runningServiceIsAPropertyTheHostCanWriteByName() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{AddPrayer()}});
    QVERIFY(console->setProperty("RunningService", service));
    QCOMPARE(console->tvwRun->Count(), 2);
    QVERIFY(console->setProperty("RunningServiceServiceItem", 1));
    QCOMPARE(console->property("RunningServiceServiceItem").toInt(), 0);
}

void tst_ctlRun_Load::unknownServiceWritesTheErrorLineAndLeavesTheTreeEmpty() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{AddPrayer()}});
    console->setRunningService(service);
    QCOMPARE(console->tvwRun->Count(), 2);
    TraceTail trace;

    console->setRunningService(9999);

    QCOMPARE(console->tvwRun->Count(), 0);
    // The data library writes its own line; the console's names the load.
    const QStringList errors =
        trace.Lines().filter(QRegularExpression(QStringLiteral("^ERROR: RunningService")));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(QStringLiteral("ERROR: RunningService: ")),
             qPrintable(errors.first()));
    QVERIFY(errors.first().contains(QStringLiteral("9999")));
    // The caption stays as far as the load got: the earlier service's.
    QCOMPARE(console->lblMainCaption->text(), QStringLiteral("Running Service - Morning"));
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_Load::everyRowHiddenFailureReachesTheHost() {
    const qint32 service = db->AddService(QStringLiteral("Morning"),
                                          {{AddPrayer(), false}, TestDatabase::Blank(false)});
    try {
        console->setRunningService(service);
        QFAIL("the load of a service without shown rows should fail");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, VBErr::IndexOutOfBounds);
    }
    QCOMPARE(console->tvwRun->Count(), 1);
    QVERIFY(console->lblSIType->text().isEmpty());
}

void tst_ctlRun_Load::propBagColumnTakesTheListWidthLessSixty() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{AddPrayer()}});
    console->setRunningService(service);
    QCOMPARE(console->lvwProps->columnWidth(0),
             Twips::ToPixels(TwipsOf(console->lvwProps->width()) - 60));
    QCOMPARE(console->lvwProps->topLevelItemCount(), 0);
}

void tst_ctlRun_Load::loadingAnotherServiceReplacesTheNodes() {
    const qint32 prayer = AddPrayer();
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("First"), {{prayer}, {song}}));
    console->setRunningService(db->AddService(QStringLiteral("Second"), {{song}}));
    QCOMPARE(console->tvwRun->Count(), 2);
    QCOMPARE(console->tvwRun->Nodes(1).Text(), QStringLiteral("Second"));
    QCOMPARE(console->tvwRun->Nodes(2).Tag().toInt(), song);
}

// ---------------------------------------------------------------- failed look-ups

void tst_ctlRun_Load::rowWhoseItemIsGoneShowsAnEmptyTextAndTheRowsAfterItStillGetNodes() {
    const qint32 gone = AddPrayer();
    const qint32 song = AddAmazingGrace();
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{gone}, {song}});
    QVERIFY(db->AddServicePropBag(service, {song}));
    QVERIFY2(DeleteItemKeepingItsRows(gone), qPrintable(db->LastError()));
    QCOMPARE(
        db->Count(QStringLiteral("ServiceContents"), QStringLiteral("ServiceID = ?"), {service}),
        2);

    QCOMPARE(VBErrorNumberOf([&] { console->setRunningService(service); }), 0);

    QCOMPARE(console->tvwRun->Count(), 3);
    const VBNode missing = console->tvwRun->Nodes(QStringLiteral("1SIID"));
    QCOMPARE(missing.Text(), QString());
    QCOMPARE(missing.Tag().toInt(), gone);
    QVERIFY(missing.Item()->icon(0).isNull());
    QCOMPARE(console->tvwRun->Nodes(QStringLiteral("2SIID")).Tag().toInt(), song);
    QCOMPARE(console->tvwRun->SelectedItem().Index(), 2);
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(console->lvwProps->topLevelItemCount(), 1);
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_Load::itemOfTypeNoneShowsWithoutAPictureAndTheLoadGoesOn() {
    const qint32 untyped =
        db->AddServiceItem(TestDatabase::NoType, QStringLiteral("Notice without a type"));
    const qint32 prayer = AddPrayer();
    QVERIFY(untyped > 0);
    const qint32 service =
        db->AddService(QStringLiteral("Morning"), {{prayer}, {untyped}, {prayer}});
    QVERIFY(db->AddServicePropBag(service, {prayer}));
    TraceTail trace;

    QCOMPARE(VBErrorNumberOf([&] { console->setRunningService(service); }), 0);

    QCOMPARE(console->tvwRun->Count(), 4);
    const VBNode node = console->tvwRun->Nodes(QStringLiteral("2SIID"));
    QCOMPARE(node.Text(), QStringLiteral("Notice without a type"));
    QCOMPARE(node.Image().toInt(), 0);
    QVERIFY(node.Item()->icon(0).isNull());
    QCOMPARE(console->tvwRun->Nodes(QStringLiteral("3SIID")).Tag().toInt(), prayer);
    QVERIFY(!console->tvwRun->Nodes(QStringLiteral("3SIID")).Item()->icon(0).isNull());
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    QCOMPARE(console->lvwProps->topLevelItemCount(), 1);
    QCOMPARE(trace.NewErrorLines(), QStringList());
}

void tst_ctlRun_Load::firstItemOfTypeNoneIsShownAsRunning() {
    const qint32 untyped =
        db->AddServiceItem(TestDatabase::NoType, QStringLiteral("Notice without a type"));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{untyped}, {AddPrayer()}});

    QCOMPARE(VBErrorNumberOf([&] { console->setRunningService(service); }), 0);

    QCOMPARE(console->tvwRun->SelectedItem().Index(), 2);
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({2}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Notice without a type"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
}

void tst_ctlRun_Load::propOfTypeNoneIsListedWithoutAPicture() {
    const qint32 untyped =
        db->AddServiceItem(TestDatabase::NoType, QStringLiteral("Notice without a type"));
    const qint32 prayer = AddPrayer();
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{prayer}});
    QVERIFY(db->AddServicePropBag(service, {untyped, prayer}));
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(console->lvwProps->topLevelItemCount(), 2);
    const VBNode prop = console->lvwProps->ListItems(1);
    QCOMPARE(prop.Text(), QStringLiteral("Notice without a type"));
    QCOMPARE(prop.Tag().toInt(), untyped);
    QVERIFY(prop.Item()->icon(0).isNull());
    QCOMPARE(console->lvwProps->ListItems(2).Tag().toInt(), prayer);
    QCOMPARE(trace.NewErrorLines(), QStringList());
}

void tst_ctlRun_Load::songOfTypeNoneStillShowsItsPartList() {
    const qint32 song = AddAmazingGrace();
    QVERIFY(db->Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemTypeID = 0 WHERE ServiceItemID = ?"),
        {song}));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{song}});

    QCOMPARE(VBErrorNumberOf([&] { console->setRunningService(service); }), 0);

    QVERIFY(console->tvwRun->Nodes(QStringLiteral("1SIID")).Item()->icon(0).isNull());
    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
    QCOMPARE(console->lvwSIContent->ListItems(1).Text(), QStringLiteral("Verse 1"));
    QVERIFY(!console->lvwSIContent->ListItems(1).Item()->icon(0).isNull());
    QCOMPARE(platform->BoxCount(), 0);
}

// ---------------------------------------------------------------- showing

void tst_ctlRun_Load::showServiceSIAsRunningThreeBoldsNodeFourWithoutPartHandling() {
    const qint32 prayer = AddPrayer();
    const qint32 song = AddAmazingGrace();
    const qint32 reading = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"));
    console->setRunningService(
        db->AddService(QStringLiteral("Morning"), {{prayer}, {song}, {reading}, {song}}));
    TraceTail trace;

    console->ShowServiceSIAsRunning(3, 0, 0);

    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({4}));
    QCOMPARE(console->tvwRun->SelectedItem().Index(), 4);
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Psalm 23"));
    const QStringList lines = trace.ConsoleLines();
    QCOMPARE(lines.value(0),
             RunLine(QStringLiteral("ShowServiceSIAsRunning"),
                     QStringLiteral("intServiceSI = 3, lngNewPartID = 0, NewPartType = 0, ")));
    QVERIFY(!lines.join('\n').contains(QStringLiteral("SIPartChanged")));
    QVERIFY(!lines.contains(MirrorLine));
}

void tst_ctlRun_Load::showServiceSIAsRunningWithAPartOnAnItemWithoutListCallsSIPartChanged() {
    const qint32 prayer = AddPrayer();
    console->setRunningService(
        db->AddService(QStringLiteral("Morning"), {{AddAmazingGrace()}, {prayer}}));
    console->AtEndOfSI();
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 2, 1);

    QVERIFY(console->lvwSIContent->isHidden());
    QVERIFY(trace.ConsoleLines().contains(
        RunLine(QStringLiteral("SIPartChanged"), QStringLiteral("lngPartID = 2, PartType = 1, "))));
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("Move Forward >>"));
}

void tst_ctlRun_Load::showServiceSIAsRunningWithAPartOnASongLeavesItsHighlight() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}, {song}}));
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 3, 2);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({1}));
    QVERIFY(!trace.ConsoleLines().join('\n').contains(QStringLiteral("SIPartChanged")));
}

void tst_ctlRun_Load::showServiceSIAsRunningBeyondTheNodesReachesTheHost() {
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}}));
    try {
        console->ShowServiceSIAsRunning(5, 0, 0);
        QFAIL("an index beyond the nodes should fail");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, VBErr::IndexOutOfBounds);
    }
    // As far as it came: the marks were cleared, the item stays selected.
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>());
    QCOMPARE(console->tvwRun->SelectedItem().Index(), 2);
}

void tst_ctlRun_Load::writingRunningServiceServiceItemShowsThatItemWithoutPartHandling() {
    const qint32 prayer = AddPrayer();
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{song}, {prayer}}));
    TraceTail trace;

    console->setRunningServiceServiceItem(2);

    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({3}));
    QCOMPARE(console->tvwRun->SelectedItem().Tag().toInt(), prayer);
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
    QVERIFY(console->lvwSIContent->isHidden());
    QCOMPARE(trace.ConsoleLines().value(0), RunLine(QStringLiteral("RunningServiceServiceItem"),
                                                    QStringLiteral("intServiceSI = 2, ")));
    QVERIFY(!trace.ConsoleLines().join('\n').contains(QStringLiteral("SIPartChanged")));
}

void tst_ctlRun_Load::showingAnItemResetsTheForwardToolTipAndLeavesTheMirror() {
    console->setRunningService(
        db->AddService(QStringLiteral("Morning"), {{AddPrayer()}, {AddAmazingGrace()}}));
    console->AtEndOfSI();
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    TraceTail trace;
    console->ShowServiceSIAsRunning(2, 0, 0);
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("Move Forward >>"));
    QCOMPARE(console->cmdForward->text(), QStringLiteral("&Forward >>"));
    QVERIFY(!trace.ConsoleLines().contains(MirrorLine));
}

// ---------------------------------------------------------------- ShowSIAsRunning

void tst_ctlRun_Load::unknownIdKeepsLabelsHidesListsAndLeavesCaptions() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{song}}));
    console->AtEndOfSI();
    QVERIFY(!console->lvwSIContent->isHidden());
    TraceTail trace;

    console->ShowSIAsRunning(9999, true);

    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));
    QVERIFY(console->lvwSIContent->isHidden());
    QVERIFY(console->MediaPlayer2->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    QCOMPARE(platform->BoxCount(), 0);
    QVERIFY(trace.Lines().filter(QRegularExpression("^ERROR: ")).isEmpty());
}

void tst_ctlRun_Load::unknownIdDuringAPropKeepsThePropCaptions() {
    const qint32 prayer = AddPrayer();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddAmazingGrace()}}));
    console->ShowSIAsRunning(prayer, false);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));

    console->ShowSIAsRunning(9999, true);

    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    QCOMPARE(console->fraMain->title(),
             QStringLiteral("This service item is NOT part of the active service"));
    QVERIFY(!console->fraPropDetails->isHidden());
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Prayer of St Francis"));
}

void tst_ctlRun_Load::blankItemShowsBlankLabelsWithoutTypeLookupAndExaminesItsMusic() {
    const QString organ = db->WriteContentFile(QStringLiteral("organ.mp3"));
    QVERIFY(db->Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = 1"),
        {organ}));
    const qint32 prayer = AddPrayer();
    console->setRunningService(
        db->AddService(QStringLiteral("Morning"), {{prayer}, TestDatabase::Blank()}));
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 0, 0);

    // Type 0 is called "None": "Blank" shows that no type was looked up.
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Blank"));
    QVERIFY(console->lblSIDescription->text().isEmpty());
    QVERIFY(trace.ConsoleLines().contains(
        RunLine(QStringLiteral("PlayMusic"), QStringLiteral("lngSIID = 1, strErrorMessage = , "))));
    QVERIFY(platform->SoundCalls().contains(QStringLiteral("Load ") + organ));
    QVERIFY(!console->MediaPlayer2->isHidden());
}

void tst_ctlRun_Load::blankPropGoesToThePropLabels() {
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}}));
    console->ShowSIAsRunning(1, false);

    QCOMPARE(console->lblPropType->text(), QStringLiteral("Blank"));
    QVERIFY(console->lblPropDescription->text().isEmpty());
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
}

void tst_ctlRun_Load::propOfANormalItemShowsPropTypeAndKeepsTheRunningDescription() {
    const qint32 reading = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddAmazingGrace()}}));

    console->ShowSIAsRunning(reading, false);

    QCOMPARE(console->lblSIType->text(), QStringLiteral("Reading"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Psalm 23"));
    QVERIFY(console->lblPropType->text().isEmpty());
}

void tst_ctlRun_Load::propRunShowsPropDetailsAndEndPropCaptions() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}}));
    QVERIFY(console->fraPropDetails->isHidden());

    console->ShowSIAsRunning(song, false);

    QVERIFY(!console->fraPropDetails->isHidden());
    QVERIFY(!console->lvwPropSIContent->isHidden());
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 4);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    QCOMPARE(console->fraMain->title(),
             QStringLiteral("This service item is NOT part of the active service"));
    QVERIFY(!console->tvwRun->isHidden());
    QCOMPARE(console->ssTabExtras->x(), Twips::ToPixels(4320));

    // Back to an item of the service: the prop details go.
    console->ShowServiceSIAsRunning(1, 0, 0);
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
}

void tst_ctlRun_Load::propRunLeavesTheMainPartListAndTheBoldNode() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{song}, {AddPrayer()}}));
    console->SIPartChanged(2, 2);

    console->ShowSIAsRunning(AddPrayer(), false);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({2}));
}

void tst_ctlRun_Load::nullDescriptionAfterOneWithDescriptionKeepsTheOldLabel() {
    const qint32 prayer = AddPrayer();
    const qint32 nameless = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("x"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = NULL "
                                    "WHERE ServiceItemID = ?"),
                     {nameless}));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prayer}, {nameless}}));

    console->ShowServiceSIAsRunning(2, 0, 0);

    QCOMPARE(console->lblSIType->text(), QStringLiteral("Reading"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
}

void tst_ctlRun_Load::descriptionIsDecodedWithoutTestForTheMarker() {
    const qint32 item =
        db->AddServiceItem(TestDatabase::Reading, QStringLiteral("The Lord@@s Prayer"));
    console->ShowSIAsRunning(item, false);
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("The Lord's Prayer"));
    QCOMPARE(console->lblMainCaption->text(),
             QStringLiteral("Running Service item: The Lord's Prayer"));
}

void tst_ctlRun_Load::pictureItemShowsNoPartListAndPlaysItsMusic() {
    const qint32 song = AddAmazingGrace();
    const qint32 picture = db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Cross"));
    const QString calm = db->WriteContentFile(QStringLiteral("calm.mp3"));
    QVERIFY(db->Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?"),
        {calm, picture}));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{song}, {picture}}));
    QVERIFY(!console->lvwSIContent->isHidden());
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 0, 0);

    QVERIFY(console->lvwSIContent->isHidden());
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Picture"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Cross"));
    const QStringList lines = trace.ConsoleLines();
    QCOMPARE(
        lines.filter(QStringLiteral(":PlayMusic @")),
        QStringList({RunLine(QStringLiteral("PlayMusic"),
                             QStringLiteral("lngSIID = %1, strErrorMessage = , ").arg(picture))}));
    QVERIFY(lines.filter(QStringLiteral(":SetupSong @")).isEmpty());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->MediaPlayer2->FileName(), calm);
    QVERIFY(!console->MediaPlayer2->isHidden());
}

void tst_ctlRun_Load::musicItemPlaysItsMusicOnce() {
    const qint32 music = db->AddServiceItem(TestDatabase::Music, QStringLiteral("Prelude"));
    const QString prelude = db->WriteContentFile(QStringLiteral("prelude.mp3"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemFilename = ?, "
                                    "ServiceItemMusic = ? WHERE ServiceItemID = ?"),
                     {prelude, prelude, music}));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}, {music}}));
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 0, 0);

    QCOMPARE(trace.ConsoleLines().filter(QStringLiteral(":PlayMusic @")).size(), 1);
    QCOMPARE(platform->SoundCalls().filter(QStringLiteral("Load ")),
             QStringList({QStringLiteral("Load ") + prelude}));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Music"));
    QVERIFY(console->lvwSIContent->isHidden());
}

void tst_ctlRun_Load::textItemWithoutMusicPlaysNothing() {
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}}));
    TraceTail trace;
    console->ShowServiceSIAsRunning(1, 0, 0);
    QVERIFY(trace.ConsoleLines().filter(QStringLiteral(":PlayMusic @")).isEmpty());
}

void tst_ctlRun_Load::songWithMusicBuildsItsPartsAndPlaysItsMusic() {
    const qint32 song = AddAmazingGrace();
    const QString grace = db->WriteContentFile(QStringLiteral("grace.mid"));
    QVERIFY(db->Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?"),
        {grace, song}));
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}, {song}}));
    TraceTail trace;

    console->ShowServiceSIAsRunning(2, 0, 0);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
    const QStringList lines = trace.ConsoleLines();
    const qsizetype setup = lines.indexOf(
        RunLine(QStringLiteral("SetupSong"),
                QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(song)));
    const qsizetype music =
        lines.indexOf(RunLine(QStringLiteral("PlayMusic"),
                              QStringLiteral("lngSIID = %1, strErrorMessage = , ").arg(song)));
    QVERIFY(setup >= 0);
    QVERIFY(music > setup);
    QCOMPARE(lines.filter(QStringLiteral(":PlayMusic @")).size(), 1);
    QCOMPARE(console->MediaPlayer2->FileName(), grace);
}

void tst_ctlRun_Load::textItemShowsNoPartList() {
    console->setRunningService(
        db->AddService(QStringLiteral("Morning"), {{AddAmazingGrace()}, {AddPrayer()}}));
    console->ShowServiceSIAsRunning(2, 0, 0);
    QVERIFY(console->lvwSIContent->isHidden());
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
}

void tst_ctlRun_Load::songShowsItsPartListInTheMainList() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}, {song}}));
    console->ShowServiceSIAsRunning(2, 0, 0);
    QVERIFY(!console->lvwSIContent->isHidden());
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 0);
}

void tst_ctlRun_Load::singleItemRunHidesTheTreeAndNamesTheItemInTheCaption() {
    const qint32 prayer = AddPrayer();
    console->ShowSIAsRunning(prayer, false);

    QVERIFY(console->tvwRun->isHidden());
    QCOMPARE(console->ssTabExtras->x(), console->tvwRun->x());
    QCOMPARE(console->lblMainCaption->text(),
             QStringLiteral("Running Service item: Prayer of St Francis"));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    // Not a prop: no service is loaded.
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QVERIFY(console->fraPropDetails->isHidden());
}

void tst_ctlRun_Load::singleItemWithNullDescriptionCaptionEndsAfterTheColon() {
    const qint32 nameless = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("x"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = NULL "
                                    "WHERE ServiceItemID = ?"),
                     {nameless}));
    console->ShowSIAsRunning(nameless, false);
    QCOMPARE(console->lblMainCaption->text(), QStringLiteral("Running Service item: "));
    QVERIFY(console->lblSIDescription->text().isEmpty());
}

void tst_ctlRun_Load::serviceRunPutsTheExtrasBesideTheTree() {
    console->ShowSIAsRunning(AddPrayer(), false);
    QCOMPARE(console->ssTabExtras->x(), console->tvwRun->x());
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{AddPrayer()}}));
    QVERIFY(!console->tvwRun->isHidden());
    QCOMPARE(console->ssTabExtras->x(), Twips::ToPixels(4320));
}

void tst_ctlRun_Load::showSIAsRunningTracesItsArguments() {
    const qint32 prayer = AddPrayer();
    TraceTail trace;
    console->ShowSIAsRunning(prayer, false);
    QCOMPARE(trace.ConsoleLines(),
             QStringList({RunLine(
                 QStringLiteral("ShowSIAsRunning"),
                 QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(prayer))}));
}

// ---------------------------------------------------------------- shown again after a change

void tst_ctlRun_Load::itemChangedAfterItWasShownShowsItsNewLabelsWhenShownAgain() {
    const qint32 prayer = AddPrayer();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prayer}}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = ?, "
                                    "ServiceItemTypeID = ? WHERE ServiceItemID = ?"),
                     {QStringLiteral("Prayer of Columba"), TestDatabase::Reading, prayer}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(console->lblSIType->text(), QStringLiteral("Reading"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of Columba"));
}

void tst_ctlRun_Load::itemChangedThroughAnotherConnectionShowsWhenShownAgain() {
    const qint32 prayer = AddPrayer();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prayer}}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    QVERIFY2(db->ExecElsewhere(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = ? "
                                              "WHERE ServiceItemID = ?"),
                               {QStringLiteral("Prayer of Columba"), prayer}),
             qPrintable(db->LastError()));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of Columba"));
}

void tst_ctlRun_Load::typeRenamedAfterItWasShownShowsItsNewName() {
    const qint32 prayer = AddPrayer();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{prayer}}));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Prayer"));
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItemTypes SET ServiceItemTypeName = ? "
                                    "WHERE ServiceItemTypeID = ?"),
                     {QStringLiteral("Intercession"), TestDatabase::Prayer}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(console->lblSIType->text(), QStringLiteral("Intercession"));
}

// Labels and captions stay, the lists go, as for an id that never existed.
void tst_ctlRun_Load::itemDeletedAfterItWasShownIsUnknownWhenShownAgain() {
    const qint32 song = AddAmazingGrace();
    console->setRunningService(db->AddService(QStringLiteral("Morning"), {{song}}));
    console->AtEndOfSI();
    QVERIFY(!console->lvwSIContent->isHidden());
    QVERIFY(db->Exec(QStringLiteral("DELETE FROM ServiceItems WHERE ServiceItemID = ?"), {song}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));
    QVERIFY(console->lvwSIContent->isHidden());
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    QCOMPARE(platform->BoxCount(), 0);
}

// A press reads the database's stamp once for all its steps; the next press reads it again.
void tst_ctlRun_Load::itemChangedByAnotherConnectionBetweenPressesShowsAtTheNextPress() {
    const qint32 prayer = AddPrayer();
    const qint32 collect =
        db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
    RunTestHost host(console.get());
    QVERIFY2(host.LoadService(
                 db->AddService(QStringLiteral("Morning"), {{prayer}, {collect}, {prayer}})),
             qPrintable(host.LastError()));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of St Francis"));
    console->cmdForward->click();
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    QVERIFY2(db->ExecElsewhere(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = ? "
                                              "WHERE ServiceItemID = ?"),
                               {QStringLiteral("Prayer of Columba"), prayer}),
             qPrintable(db->LastError()));

    console->cmdForward->click();

    QCOMPARE(host.CurrentItem(), qint16(3));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Prayer of Columba"));
}

QTEST_MAIN(tst_ctlRun_Load)
#include "tst_ctlRun_Load.moc"
