// The prop bag of the run console: filling lvwProps from the service, putting
// a prop up from the bag or from the gallery, and ending it.
#include "RunConsoleFixture.h"
#include "RunTestHost.h"

#include "foundations/SSTab.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class tst_ctlRun_PropBag : public QObject, protected RunConsoleFixture<> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Filling the bag.
    void propRowsShowDescriptionTypePictureAndIdInTheirOrder();
    void propRowWhoseItemWasDeletedShowsNoRowAndNoMessage();
    void emptyPropBagLeavesThePropListEmptyAndTheRunGoesOn();
    void propDescriptionWithTheStoredMarkerIsDecoded();
    void loadingAnotherServiceReplacesTheProps();
    void propBagThatCannotBeReadLeavesTheListAndWritesTheRunningServiceLine();
    void propsThatCannotBeCheckedAreLeftOutAndTheTextReachesTheRunningServiceLine();
    void propWhoseTypeCannotBeReadEndsTheFillWithTheLookUpsText();

    // Starting a prop.
    void doubleClickOnAPropRaisesShowSIBeforeTheConsoleShowsIt();
    void doubleClickInThePropsWithNoSelectedRowDoesNothing();
    void galleryDoubleClickRaisesShowSIBeforeTheConsoleShowsIt();
    void galleryListDoubleClickStartsWhatTheGallerySends();

    // Ending it.
    void propRunEndedHidesTheDetailsRestoresTheCaptionsAndPumpsTwice();
    void propRunEndedLeavesTheMainRunAndThePropsMusicAlone();
    void propIsPutUpAndEndedInTheMiddleOfARun();

private:
    // A double click of the mouse on a row, as the operator gives it: a click,
    // then the second press that makes it a double click.
    static void DoubleClick(QTreeWidget* view, QTreeWidgetItem* row);
    qint32 AddHymn();
    qint32 hymn = 0;
    qint32 psalm = 0;
    qint32 collect = 0;
    qint32 cross = 0;
};

void tst_ctlRun_PropBag::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
    hymn = AddHymn();
    psalm = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"));
    collect = AddCollectForPurity();
    cross = db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Cross"));
    QVERIFY(hymn && psalm && collect && cross);
}

void tst_ctlRun_PropBag::cleanup() {
    StopConsole();
}

void tst_ctlRun_PropBag::DoubleClick(QTreeWidget* view, QTreeWidgetItem* row) {
    const QPoint at = view->visualItemRect(row).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
}

qint32 tst_ctlRun_PropBag::AddHymn() {
    return db->AddSong(QStringLiteral("Be Thou My Vision"),
                       {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")},
                        {QStringLiteral("Verse 2"), QStringLiteral("Be thou my wisdom")},
                        {QStringLiteral("Verse 3"), QStringLiteral("High King of heaven")}});
}

// ---------------------------------------------------------------- filling

void tst_ctlRun_PropBag::propRowsShowDescriptionTypePictureAndIdInTheirOrder() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(service, {psalm, cross, hymn}));

    console->setRunningService(service);

    VBTreeWidget* lvw = console->lvwProps;
    QCOMPARE(lvw->topLevelItemCount(), 3);
    QCOMPARE(lvw->ListItems(1).Text(), QStringLiteral("Psalm 23"));
    QCOMPARE(lvw->ListItems(2).Text(), QStringLiteral("Cross"));
    QCOMPARE(lvw->ListItems(3).Text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(lvw->ListItems(1).Tag().toInt(), psalm);
    QCOMPARE(lvw->ListItems(2).Tag().toInt(), cross);
    QCOMPARE(lvw->ListItems(3).Tag().toInt(), hymn);
    QCOMPARE(lvw->ListItems(1).Image().toInt(), static_cast<int>(TestDatabase::Reading));
    QCOMPARE(lvw->ListItems(2).Image().toInt(), static_cast<int>(TestDatabase::Picture));
    QCOMPARE(lvw->ListItems(3).Image().toInt(), static_cast<int>(TestDatabase::Song));
    QVERIFY(!lvw->ListItems(1).Item()->icon(0).isNull());
    QVERIFY(!lvw->isHidden());
}

void tst_ctlRun_PropBag::propRowWhoseItemWasDeletedShowsNoRowAndNoMessage() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(service, {psalm, cross, hymn}));
    QVERIFY(DeleteItemKeepingItsRows(cross));
    QCOMPARE(
        db->Count(QStringLiteral("ServicePropBag"), QStringLiteral("ServiceID = ?"), {service}), 3);
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(console->lvwProps->topLevelItemCount(), 2);
    QCOMPARE(console->lvwProps->ListItems(1).Tag().toInt(), psalm);
    QCOMPARE(console->lvwProps->ListItems(2).Tag().toInt(), hymn);
    QCOMPARE(platform->BoxCount(), 0);
    QVERIFY(trace.ConsoleErrorLines().isEmpty());
}

void tst_ctlRun_PropBag::emptyPropBagLeavesThePropListEmptyAndTheRunGoesOn() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}, {hymn}});
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(console->lvwProps->topLevelItemCount(), 0);
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    QCOMPARE(console->lvwProps->columnWidth(0),
             Twips::ToPixels(TwipsOf(console->lvwProps->width()) - 60));
    QVERIFY(trace.ConsoleErrorLines().isEmpty());
    QSignalSpy next(console.get(), &ctlRun::ShowNextClicked);
    console->cmdForward->click();
    QCOMPARE(next.count(), 1);
}

void tst_ctlRun_PropBag::propDescriptionWithTheStoredMarkerIsDecoded() {
    const qint32 creed =
        db->AddServiceItem(TestDatabase::Creed, QStringLiteral("The Apostles@@ Creed"));
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(service, {creed}));
    console->setRunningService(service);
    QCOMPARE(console->lvwProps->ListItems(1).Text(), QStringLiteral("The Apostles' Creed"));
}

void tst_ctlRun_PropBag::loadingAnotherServiceReplacesTheProps() {
    const qint32 morning = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(morning, {psalm, cross}));
    const qint32 evening = db->AddService(QStringLiteral("Evening"), {{collect}});
    QVERIFY(db->AddServicePropBag(evening, {hymn}));
    const qint32 quiet = db->AddService(QStringLiteral("Quiet"), {{collect}});

    console->setRunningService(morning);
    QCOMPARE(console->lvwProps->topLevelItemCount(), 2);
    console->setRunningService(evening);
    QCOMPARE(console->lvwProps->topLevelItemCount(), 1);
    QCOMPARE(console->lvwProps->ListItems(1).Tag().toInt(), hymn);
    console->setRunningService(quiet);
    QCOMPARE(console->lvwProps->topLevelItemCount(), 0);
}

// The bag is cleared only after it was read: a read that fails leaves what
// the list held, and the text goes to the error line of the caller.
void tst_ctlRun_PropBag::propBagThatCannotBeReadLeavesTheListAndWritesTheRunningServiceLine() {
    const qint32 morning = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(morning, {psalm}));
    const qint32 evening = db->AddService(QStringLiteral("Evening"), {{hymn}});
    console->setRunningService(morning);
    QVERIFY(db->Exec(QStringLiteral("DROP TABLE ServicePropBag")));
    TraceTail trace;

    console->setRunningService(evening);

    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(console->lvwProps->topLevelItemCount(), 1);
    QCOMPARE(console->lvwProps->ListItems(1).Tag().toInt(), psalm);
    const QStringList errors = trace.ConsoleErrorLines();
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(QStringLiteral("ERROR: RunningService: ")) &&
                 errors.first().size() > QStringLiteral("ERROR: RunningService: ").size(),
             qPrintable(errors.first()));
    QCOMPARE(platform->BoxCount(), 0);
}

// A prop whose existence cannot be checked counts as gone; the text of the
// last check is the caller's.
void tst_ctlRun_PropBag::
    propsThatCannotBeCheckedAreLeftOutAndTheTextReachesTheRunningServiceLine() {
    const qint32 service = db->AddService(QStringLiteral("Empty"));
    QVERIFY(db->AddServicePropBag(service, {psalm, hymn}));
    QVERIFY(db->Exec(QStringLiteral("ALTER TABLE ServiceItems RENAME TO ServiceItemsMoved")));
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(console->lvwProps->topLevelItemCount(), 0);
    const QStringList errors = trace.ConsoleErrorLines();
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(QStringLiteral("ERROR: RunningService: ")),
             qPrintable(errors.first()));
    QVERIFY(!errors.first().contains(QStringLiteral("AddServicePropBagItems")));
    QCOMPARE(platform->BoxCount(), 0);
}

// Without its type the row shows no picture; the look-up's text ends the fill,
// goes to the error line and comes back to RunningService, which writes it too.
void tst_ctlRun_PropBag::propWhoseTypeCannotBeReadEndsTheFillWithTheLookUpsText() {
    const qint32 service = db->AddService(QStringLiteral("Empty"));
    QVERIFY(db->AddServicePropBag(service, {psalm, hymn}));
    QVERIFY(db->Exec(QStringLiteral("ALTER TABLE ServiceItemTypes RENAME TO TypesMoved")));
    TraceTail trace;

    console->setRunningService(service);

    QCOMPARE(console->lvwProps->topLevelItemCount(), 1);
    // The description's look-up fails as well: the row shows an empty text.
    QCOMPARE(console->lvwProps->ListItems(1).Text(), QString());
    QVERIFY(console->lvwProps->ListItems(1).Item()->icon(0).isNull());
    const QStringList errors = trace.ConsoleErrorLines();
    QCOMPARE(errors.size(), 2);
    const QString strPrefix = QStringLiteral("ERROR: QVLTCONTROLS:ctlRun:AddServicePropBagItems: ");
    QVERIFY2(errors.at(0).startsWith(
                 strPrefix + QStringLiteral("QVLTDBFUNCTIONS:DataAccess:GetServiceItemTypeID")),
             qPrintable(errors.at(0)));
    QCOMPARE(errors.at(1),
             QStringLiteral("ERROR: RunningService: ") + errors.at(0).mid(strPrefix.size()));
    QCOMPARE(platform->BoxCount(), 0);
}

// ---------------------------------------------------------------- starting

void tst_ctlRun_PropBag::doubleClickOnAPropRaisesShowSIBeforeTheConsoleShowsIt() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}, {cross}});
    QVERIFY(db->AddServicePropBag(service, {psalm, hymn}));
    console->setRunningService(service);
    QVERIFY(ShowConsole());
    QStringList seenAtEvent;
    connect(console.get(), &ctlRun::ShowSI, this, [&](qint32 lngSIID) {
        seenAtEvent << QString::number(lngSIID) << console->cmdEnd->text()
                    << console->lblPropDescription->text();
    });
    TraceTail trace;
    QTreeWidgetItem* row = console->lvwProps->ListItems(2).Item();

    DoubleClick(console->lvwProps, row);

    QCOMPARE(seenAtEvent, QStringList({QString::number(hymn), QStringLiteral("&End"), QString()}));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 3);
    QVERIFY(console->fraPropDetails->isVisible());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    QCOMPARE(
        trace.StepLines(),
        QStringList(
            {RunLine(QStringLiteral("lvwProps_DblClick")),
             RunLine(QStringLiteral("ShowSIAsRunning"),
                     QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(hymn)),
             RunLine(
                 QStringLiteral("SetupSong"),
                 QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(hymn))}));
}

void tst_ctlRun_PropBag::doubleClickInThePropsWithNoSelectedRowDoesNothing() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    QVERIFY(db->AddServicePropBag(service, {psalm, hymn}));
    console->setRunningService(service);
    console->lvwProps->clearSelection();
    console->lvwProps->setCurrentItem(nullptr);
    QVERIFY(!console->lvwProps->SelectedItem());
    QSignalSpy showSI(console.get(), &ctlRun::ShowSI);
    TraceTail trace;

    QVERIFY(QMetaObject::invokeMethod(console.get(), "lvwProps_DblClick"));

    QCOMPARE(showSI.count(), 0);
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("lvwProps_DblClick"))}));
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Collect for Purity"));
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_PropBag::galleryDoubleClickRaisesShowSIBeforeTheConsoleShowsIt() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}, {cross}});
    console->setRunningService(service);
    QVERIFY(ShowConsole());
    console->ssTabExtras->setCurrentIndex(1);
    ctlServiceItemGallery* gallery = console->ctlServiceItemGallery1;
    const QString key = QStringLiteral("Type;%1;;SI;%2").arg(TestDatabase::Reading).arg(psalm);
    QTRY_VERIFY(gallery->tvwServiceItems->KeyExists(key));
    VBNode node = gallery->tvwServiceItems->Nodes(key);
    node.EnsureVisible();
    gallery->tvwServiceItems->setSelectedItem(node);
    QStringList seenAtEvent;
    connect(console.get(), &ctlRun::ShowSI, this, [&](qint32 lngSIID) {
        seenAtEvent << QString::number(lngSIID) << console->fraMain->title()
                    << console->lblSIType->text();
    });
    TraceTail trace;

    DoubleClick(gallery->tvwServiceItems, node.Item());

    QCOMPARE(seenAtEvent, QStringList({QString::number(psalm), QStringLiteral("Showing Now"),
                                       QStringLiteral("Prayer")}));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Reading"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Psalm 23"));
    QCOMPARE(console->fraMain->title(),
             QStringLiteral("This service item is NOT part of the active service"));
    QCOMPARE(
        trace.StepLines(),
        QStringList(
            {RunLine(QStringLiteral("ctlServiceItemGallery1_SIDblClicked"),
                     QStringLiteral("SIId = %1, ").arg(psalm)),
             RunLine(QStringLiteral("ShowSIAsRunning"),
                     QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = False, ").arg(psalm)),
             MirrorLine}));
}

// The console starts whatever id the gallery's event names: from the list,
// without running the item itself, that is the item's type id.
void tst_ctlRun_PropBag::galleryListDoubleClickStartsWhatTheGallerySends() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    console->setRunningService(service);
    QSignalSpy showSI(console.get(), &ctlRun::ShowSI);
    emit console->ctlServiceItemGallery1->SIDblClicked(cross);
    QCOMPARE(showSI.count(), 1);
    QCOMPARE(showSI.first().first().toInt(), cross);
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Picture"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Cross"));
}

// ---------------------------------------------------------------- ending

void tst_ctlRun_PropBag::propRunEndedHidesTheDetailsRestoresTheCaptionsAndPumpsTwice() {
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}});
    console->setRunningService(service);
    console->ShowSIAsRunning(hymn, false);
    QVERIFY(!console->fraPropDetails->isHidden());
    const qint32 pumps = platform->DoEventsCount();
    TraceTail trace;

    console->PropRunEnded();

    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(platform->DoEventsCount() - pumps, 2);
    QCOMPARE(trace.StepLines(), QStringList({RunLine(QStringLiteral("PropRunEnded"))}));
    // Nothing else is restored.
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblPropDescription->text(), QStringLiteral("Be Thou My Vision"));
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 3);
}

void tst_ctlRun_PropBag::propRunEndedLeavesTheMainRunAndThePropsMusicAlone() {
    const QString organ = db->WriteContentFile(QStringLiteral("organ.wav"));
    QVERIFY(db->Exec(
        QStringLiteral("UPDATE ServiceItems SET ServiceItemMusic = ? WHERE ServiceItemID = ?"),
        {organ, psalm}));
    const qint32 song =
        db->AddSong(QStringLiteral("Amazing Grace"),
                    {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace")},
                     {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers")}});
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}, {song}});
    console->setRunningService(service);
    console->ShowServiceSIAsRunning(2, 0, 0);
    console->SIPartChanged(2, 2);
    console->ShowSIAsRunning(psalm, false);
    QCOMPARE(console->MediaPlayer2->FileName(), organ);
    platform->ClearRecords();

    console->PropRunEnded();

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(BoldIndexes(console->tvwRun), QList<qint32>({3}));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));
    QVERIFY(!console->MediaPlayer2->isHidden());
    QCOMPARE(console->MediaPlayer2->FileName(), organ);
    QVERIFY(platform->SoundCalls().isEmpty());
    QVERIFY(platform->Grabs().isEmpty());
}

// A whole prop in the middle of a run: the host runs it on the projector, the
// operator steps its parts and ends it, and the run goes on where it was.
void tst_ctlRun_PropBag::propIsPutUpAndEndedInTheMiddleOfARun() {
    RunTestHost host(console.get());
    const qint32 song =
        db->AddSong(QStringLiteral("Amazing Grace"),
                    {{QStringLiteral("Verse 1"), QStringLiteral("Amazing grace")},
                     {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers")}});
    const qint32 service = db->AddService(QStringLiteral("Morning"), {{collect}, {song}, {cross}});
    QVERIFY(db->AddServicePropBag(service, {psalm, hymn}));
    QVERIFY2(host.LoadService(service), qPrintable(host.LastError()));
    QVERIFY(ShowConsole());
    console->cmdForward->click(); // to the song
    console->cmdForward->click(); // its second verse
    QCOMPARE(host.CurrentItem(), qint16(2));
    QCOMPARE(host.CurrentPart(), 2);
    host.ClearEvents();

    QTreeWidgetItem* row = console->lvwProps->ListItems(2).Item();
    DoubleClick(console->lvwProps, row);
    QCOMPARE(host.RunningProp(), hymn);
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End Prop"));
    console->cmdForward->click();
    QCOMPARE(host.PropPart(), 2);
    QCOMPARE(BoldIndexes(console->lvwPropSIContent), QList<qint32>({2}));
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));

    console->cmdEnd->click();

    QCOMPARE(host.Events(),
             QStringList({QStringLiteral("ShowSI(%1)").arg(hymn), QStringLiteral("ShowNextClicked"),
                          QStringLiteral("EndRun")}));
    QCOMPARE(host.RunningProp(), 0);
    QVERIFY(!host.IsEnded());
    QVERIFY(console->fraPropDetails->isHidden());
    QCOMPARE(console->cmdEnd->text(), QStringLiteral("&End"));
    QCOMPARE(console->fraMain->title(), QStringLiteral("Showing Now"));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Hymn"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Amazing Grace"));

    // The run goes on from the song's second verse, its last.
    console->cmdForward->click();
    QCOMPARE(host.CurrentItem(), qint16(3));
    QCOMPARE(console->lblSIType->text(), QStringLiteral("Picture"));
    QCOMPARE(console->lblSIDescription->text(), QStringLiteral("Cross"));
}

QTEST_MAIN(tst_ctlRun_PropBag)
#include "tst_ctlRun_PropBag.moc"
