// The song sequence of the run console: the part lists, the mark on the part
// showing, and the jumps to a part.
#include "RunConsoleFixture.h"
#include "RunTestHost.h"

#include "DataAccess.h"
#include "foundations/VBError.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QtTest>

#include <dlfcn.h>

namespace {

// Makes the database refuse to read one column or table, through SQLite's
// authorizer, so that a test can see a read of the data library fail. The
// first lngAllowed reads pass.
class RefusedRead {
public:
    RefusedRead(const char* table, const char* column, int lngAllowed = 0)
        : m_table(table), m_column(column), m_allowed(lngAllowed) {
        void* lib = dlopen("libsqlite3.so.0", RTLD_NOW | RTLD_NOLOAD);
        if (lib)
            m_set = reinterpret_cast<SetAuthorizer>(dlsym(lib, "sqlite3_set_authorizer"));
        const QVariant handle = DataAccess::Instance().Database().driver()->handle();
        if (m_set && handle.isValid() && qstrcmp(handle.typeName(), "sqlite3*") == 0)
            m_db = *static_cast<void* const*>(handle.constData());
        if (m_db)
            m_set(m_db, &RefusedRead::Authorize, this);
    }
    ~RefusedRead() {
        if (m_db)
            m_set(m_db, nullptr, nullptr);
    }
    bool IsActive() const { return m_db != nullptr; }

private:
    using Authorizer = int (*)(void*, int, const char*, const char*, const char*, const char*);
    using SetAuthorizer = int (*)(void*, Authorizer, void*);
    static constexpr int SqliteOk = 0;
    static constexpr int SqliteDeny = 1;
    static constexpr int SqliteRead = 20;

    static int Authorize(void* self, int action, const char* table, const char* column, const char*,
                         const char*) {
        auto* me = static_cast<RefusedRead*>(self);
        if (action != SqliteRead || qstrcmp(table, me->m_table) != 0)
            return SqliteOk;
        if (me->m_column && qstrcmp(column, me->m_column) != 0)
            return SqliteOk;
        return me->m_allowed-- > 0 ? SqliteOk : SqliteDeny;
    }

    const char* m_table;
    const char* m_column;
    int m_allowed;
    SetAuthorizer m_set = nullptr;
    void* m_db = nullptr;
};

} // namespace

class tst_ctlRun_SongSequence : public QObject, protected RunConsoleFixture<> {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void songWithAnEmptySequenceShowsOnlyTheHeadersAndTheListStillShows();
    void columnsAreNameAndFirstLineWithTheirWidths();
    void propListTakesItsFirstLineWidthFromTheMainList();
    void rowsFollowTheSequenceWithFirstLinesAndTags();
    void chorusRowShowsTheChorusIcon();
    void firstRowIsBoldOnTheRowAndItsFirstSubItem();
    void setupSongTracesItsArguments();
    void setupSongOfAMissingItemShowsTheMessageAndWritesTheLineWithTwoBlanks();
    void setupSongFailureShowsTheErrorBoxWithItsPrefix();
    void failingFirstLineLeavesAnEmptyCellWithoutAMessage();

    void songShownAgainUnchangedShowsItsPartsWithoutReadingThemAgain();
    void partChangedByAnotherConnectionShowsWhenTheSongIsShownAgain();
    void partAddedAndOrderChangedByAnotherConnectionShowWhenTheSongIsShownAgain();
    void partChangedByThisProgramShowsWhenTheSongIsShownAgain();
    void itemGivenPartsByAnotherConnectionShowsItsListWhenShownAgain();

    void siPartChangedThreeBoldsTheThirdRowAndAClickOnItCarriesTwo();
    void siPartChangedSelectsTheRowAndShowsTheList();
    void siPartChangedOfAnotherTypeMovesNoRowAndResetsTheToolTip();
    void partChangeWhileAPropShowsMovesThePropListAndTheMainListKeepsItsOwn();
    void siPartChangedBeyondTheRowsReachesTheHostAndKeepsTheToolTip();
    void clickOnAPartRaisesShowVerseBoldsItAndRefreshesTheMirror();
    void clickOnAPropPartRaisesShowPropVerseWithoutTheMirror();

private:
    void ClickRow(VBTreeWidget* lvw, qint32 lngRow);
    QStringList Column(qint32 lngColumn) const;

    qint32 song = 0;
    qint32 prayer = 0;
    QList<qint32> verses;
};

void tst_ctlRun_SongSequence::init() {
    QVERIFY2(StartConsole(), qPrintable(StartError()));
    song = db->AddSong(
        QStringLiteral("Amazing Grace"),
        {{QStringLiteral("Verse 1"),
          QStringLiteral("\nAmazing grace, how sweet the sound\nthat saved")},
         {QStringLiteral("Verse 2"), QStringLiteral("Through many dangers, toils and snares")},
         {QStringLiteral("Chorus"), QStringLiteral("My chains are gone\nI've been set free"),
          true}},
        {0, 2, 1, 2});
    QVERIFY2(song > 0, qPrintable(db->LastError()));
    verses = db->VerseIds(song);
    prayer = AddCollectForPurity();
}

void tst_ctlRun_SongSequence::cleanup() {
    StopConsole();
}

void tst_ctlRun_SongSequence::ClickRow(VBTreeWidget* lvw, qint32 lngRow) {
    QTreeWidgetItem* item = lvw->ListItems(lngRow).Item();
    lvw->scrollToItem(item);
    QTest::mouseClick(lvw->viewport(), Qt::LeftButton, {}, lvw->visualItemRect(item).center());
}

// The texts of one column of the main part list, top to bottom.
QStringList tst_ctlRun_SongSequence::Column(qint32 lngColumn) const {
    QStringList texts;
    const VBTreeWidget* lvw = console->lvwSIContent;
    for (qint32 i = 1; i <= lvw->topLevelItemCount(); ++i)
        texts << (lngColumn == 0 ? lvw->ListItems(i).Text() : lvw->ListItems(i).SubItems(1));
    return texts;
}

// ---------------------------------------------------------------- the list

void tst_ctlRun_SongSequence::songWithAnEmptySequenceShowsOnlyTheHeadersAndTheListStillShows() {
    QVERIFY(db->Exec(QStringLiteral("DELETE FROM SongSequence WHERE ServiceItemID = ?"), {song}));
    QVERIFY(LoadService({{prayer}, {song}}));
    console->ShowServiceSIAsRunning(2, 0, 0);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 0);
    QCOMPARE(console->lvwSIContent->columnCount(), 2);
    QCOMPARE(console->lvwSIContent->headerItem()->text(0), QStringLiteral("Name"));
    QCOMPARE(console->lvwSIContent->headerItem()->text(1), QStringLiteral("First Line"));
    QCOMPARE(platform->BoxCount(), 0);
}

void tst_ctlRun_SongSequence::columnsAreNameAndFirstLineWithTheirWidths() {
    QVERIFY(LoadService({{song}}));
    const VBTreeWidget* lvw = console->lvwSIContent;
    QCOMPARE(lvw->columnCount(), 2);
    QVERIFY(!lvw->isHeaderHidden());
    QCOMPARE(lvw->columnWidth(0), Twips::ToPixels(1000));
    QCOMPARE(lvw->columnWidth(1), Twips::ToPixels(TwipsOf(lvw->width()) - 1100));
}

void tst_ctlRun_SongSequence::propListTakesItsFirstLineWidthFromTheMainList() {
    QVERIFY(LoadService({{prayer}}));
    QVERIFY(console->lvwPropSIContent->width() != console->lvwSIContent->width());
    console->ShowSIAsRunning(song, false);
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 4);
    QCOMPARE(console->lvwPropSIContent->columnWidth(0), Twips::ToPixels(1000));
    QCOMPARE(console->lvwPropSIContent->columnWidth(1),
             Twips::ToPixels(TwipsOf(console->lvwSIContent->width()) - 1100));
}

void tst_ctlRun_SongSequence::rowsFollowTheSequenceWithFirstLinesAndTags() {
    QVERIFY(LoadService({{song}}));
    const VBTreeWidget* lvw = console->lvwSIContent;
    QCOMPARE(lvw->topLevelItemCount(), 4);
    QStringList names, firstLines;
    QList<qint32> tags;
    for (qint32 i = 1; i <= 4; ++i) {
        names << lvw->ListItems(i).Text();
        firstLines << lvw->ListItems(i).SubItems(1);
        tags << lvw->ListItems(i).Tag().toInt();
    }
    QCOMPARE(names, QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QCOMPARE(firstLines,
             QStringList({"Amazing grace, how sweet the sound", "My chains are gone",
                          "Through many dangers, toils and snares", "My chains are gone"}));
    QCOMPARE(tags, QList<qint32>({verses[0], verses[2], verses[1], verses[2]}));
}

void tst_ctlRun_SongSequence::chorusRowShowsTheChorusIcon() {
    QVERIFY(LoadService({{song}}));
    const VBTreeWidget* lvw = console->lvwSIContent;
    QCOMPARE(lvw->ListItems(2).Image().toString(), QStringLiteral("imgChorus"));
    QCOMPARE(lvw->ListItems(1).Image().toString(), QStringLiteral("imgVerse"));
    QCOMPARE(lvw->ListItems(3).Image().toString(), QStringLiteral("imgVerse"));
    QVERIFY(!lvw->ListItems(2).Item()->icon(0).isNull());
    QVERIFY(lvw->ListItems(2).Item()->icon(0).pixmap(16, 16).toImage() !=
            lvw->ListItems(1).Item()->icon(0).pixmap(16, 16).toImage());
}

void tst_ctlRun_SongSequence::firstRowIsBoldOnTheRowAndItsFirstSubItem() {
    QVERIFY(LoadService({{song}}));
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({1}));
    QCOMPARE(BoldSubItemRows(console->lvwSIContent), QList<qint32>({1}));
}

void tst_ctlRun_SongSequence::setupSongTracesItsArguments() {
    QVERIFY(LoadService({{prayer}, {song}}));
    TraceTail trace;
    console->ShowServiceSIAsRunning(2, 0, 0);
    QVERIFY(trace.ConsoleLines().contains(
        RunLine(QStringLiteral("SetupSong"),
                QStringLiteral("lngSIID = %1, blnIsPartOfActiveService = True, ").arg(song))));
}

void tst_ctlRun_SongSequence::
    setupSongOfAMissingItemShowsTheMessageAndWritesTheLineWithTwoBlanks() {
    QVERIFY(LoadService({{song}}));
    platform->QueueAnswer(vbOK);
    TraceTail trace;

    console->SetupSong(9999, true);

    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt,
             QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : No ServiceItem 9999"));
    QCOMPARE(platform->LastBox().Buttons, vbOKOnly);
    QVERIFY(platform->LastBox().Title.isEmpty());
    QVERIFY(trace.Lines().contains(
        QStringLiteral("ERROR: QVLTCONTROLS:ctlRun:SetupSong  : No ServiceItem 9999")));
    // The list was not touched.
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 4);
}

void tst_ctlRun_SongSequence::setupSongFailureShowsTheErrorBoxWithItsPrefix() {
    QVERIFY(LoadService({{prayer}}));
    platform->QueueAnswer(vbOK);
    TraceTail trace;
    {
        RefusedRead refused("SongSequence", nullptr);
        if (!refused.IsActive())
            QSKIP("The SQLite library of the database driver cannot be reached from the test, "
                  "so no read can be made to fail.");
        console->SetupSong(song, true);
    }
    const QString text = QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : Error number is 91, "
                                        "Object variable or With block variable not set");
    QCOMPARE(platform->BoxCount(), 1);
    QCOMPARE(platform->LastBox().Prompt, text);
    QCOMPARE(platform->LastBox().Buttons, vbExclamation);
    QCOMPARE(platform->LastBox().Title, QStringLiteral("Error"));
    QVERIFY(trace.Lines().contains(QStringLiteral("ERROR: ") + text));
    // The list was cleared and has its columns: it stays as far as it came.
    QCOMPARE(console->lvwSIContent->topLevelItemCount(), 0);
    QCOMPARE(console->lvwSIContent->columnCount(), 2);
}

void tst_ctlRun_SongSequence::failingFirstLineLeavesAnEmptyCellWithoutAMessage() {
    QVERIFY(LoadService({{prayer}}));
    TraceTail trace;
    {
        // The sequence itself reads the words once; every first line after it fails.
        RefusedRead refused("Verses", "VerseText", 1);
        if (!refused.IsActive())
            QSKIP("The SQLite library of the database driver cannot be reached from the test, "
                  "so no read can be made to fail.");
        console->SetupSong(song, true);
    }
    const VBTreeWidget* lvw = console->lvwSIContent;
    QCOMPARE(lvw->topLevelItemCount(), 4);
    QCOMPARE(lvw->ListItems(1).Text(), QStringLiteral("Verse 1"));
    for (qint32 i = 1; i <= 4; ++i)
        QVERIFY(lvw->ListItems(i).SubItems(1).isEmpty());
    QCOMPARE(platform->BoxCount(), 0);
    // The data library said why; the console says nothing.
    QVERIFY(!trace.Lines().filter(QStringLiteral("GetVerseFirstLine")).isEmpty());
    QVERIFY(trace.ConsoleLines()
                .filter(QRegularExpression(QStringLiteral("^ERROR: QVLTCONTROLS")))
                .isEmpty());
}

// ---------------------------------------------------------------- shown again

void tst_ctlRun_SongSequence::songShownAgainUnchangedShowsItsPartsWithoutReadingThemAgain() {
    QVERIFY(LoadService({{song}}));
    QCOMPARE(Column(0), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    {
        RefusedRead refused("SongSequence", nullptr);
        if (!refused.IsActive())
            QSKIP("The SQLite library of the database driver cannot be reached from the test, "
                  "so no read can be made to fail.");
        console->ShowServiceSIAsRunning(1, 0, 0);
    }
    QCOMPARE(platform->BoxCount(), 0);
    QCOMPARE(Column(0), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QCOMPARE(Column(1),
             QStringList({"Amazing grace, how sweet the sound", "My chains are gone",
                          "Through many dangers, toils and snares", "My chains are gone"}));
    QVERIFY(!console->lvwSIContent->isHidden());
}

void tst_ctlRun_SongSequence::partChangedByAnotherConnectionShowsWhenTheSongIsShownAgain() {
    QVERIFY(LoadService({{song}}));
    QCOMPARE(Column(1).first(), QStringLiteral("Amazing grace, how sweet the sound"));
    QVERIFY(db->ExecElsewhere(
        QStringLiteral("UPDATE Verses SET VerseName = ?, VerseText = ? WHERE VerseID = ?"),
        {QStringLiteral("Stanza 1"), QStringLiteral("Amazing love\nhow can it be"), verses[0]}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(Column(0), QStringList({"Stanza 1", "Chorus", "Verse 2", "Chorus"}));
    QCOMPARE(Column(1).first(), QStringLiteral("Amazing love"));
}

void tst_ctlRun_SongSequence::
    partAddedAndOrderChangedByAnotherConnectionShowWhenTheSongIsShownAgain() {
    QVERIFY(LoadService({{song}}));
    QCOMPARE(Column(0), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QVERIFY(db->ExecElsewhere(
        QStringLiteral("UPDATE SongSequence SET Position = 10 - Position WHERE ServiceItemID = ?"),
        {song}));
    QVERIFY(db->ExecElsewhere(
        QStringLiteral("INSERT INTO Verses (ServiceItemID, VerseName, VerseText, "
                       "IsChorus) VALUES (?, ?, ?, 0)"),
        {song, QStringLiteral("Verse 3"), QStringLiteral("When we've been there")}));
    QVERIFY(db->ExecElsewhere(
        QStringLiteral("INSERT INTO SongSequence (ServiceItemID, Position, VerseID) "
                       "SELECT ?, 99, max(VerseID) FROM Verses"),
        {song}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(Column(0), QStringList({"Chorus", "Verse 2", "Chorus", "Verse 1", "Verse 3"}));
    QCOMPARE(Column(1).last(), QStringLiteral("When we've been there"));
}

void tst_ctlRun_SongSequence::partChangedByThisProgramShowsWhenTheSongIsShownAgain() {
    QVERIFY(LoadService({{song}}));
    QVERIFY(
        db->Exec(QStringLiteral("UPDATE Verses SET VerseName = ?, VerseText = ? WHERE VerseID = ?"),
                 {QStringLiteral("Refrain"), QStringLiteral("O happy day"), verses[2]}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QCOMPARE(Column(0), QStringList({"Verse 1", "Refrain", "Verse 2", "Refrain"}));
    QCOMPARE(Column(1)[1], QStringLiteral("O happy day"));
}

void tst_ctlRun_SongSequence::itemGivenPartsByAnotherConnectionShowsItsListWhenShownAgain() {
    QVERIFY(LoadService({{prayer}}));
    QVERIFY(console->lvwSIContent->isHidden());
    QVERIFY(
        db->ExecElsewhere(QStringLiteral("INSERT INTO Verses (ServiceItemID, VerseName, VerseText, "
                                         "IsChorus) VALUES (?, ?, ?, 0)"),
                          {prayer, QStringLiteral("Collect"), QStringLiteral("Almighty God")}));
    QVERIFY(db->ExecElsewhere(
        QStringLiteral("INSERT INTO SongSequence (ServiceItemID, Position, VerseID) "
                       "SELECT ?, 0, max(VerseID) FROM Verses"),
        {prayer}));

    console->ShowServiceSIAsRunning(1, 0, 0);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(Column(0), QStringList({"Collect"}));
    QCOMPARE(Column(1), QStringList({"Almighty God"}));
}

// ---------------------------------------------------------------- marking

void tst_ctlRun_SongSequence::siPartChangedThreeBoldsTheThirdRowAndAClickOnItCarriesTwo() {
    QVERIFY(LoadService({{song}}));
    QVERIFY(ShowConsole());
    TraceTail trace;

    console->SIPartChanged(3, 2);

    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({3}));
    QCOMPARE(BoldSubItemRows(console->lvwSIContent), QList<qint32>({3}));
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("SIPartChanged"),
                                  QStringLiteral("lngPartID = 3, PartType = 2, "))}));

    QSignalSpy verse(console.get(), &ctlRun::ShowVerse);
    console->SIPartChanged(1, 2);
    ClickRow(console->lvwSIContent, 3);
    QCOMPARE(verse.count(), 1);
    QCOMPARE(verse.first().first().value<qint16>(), qint16(2));
}

void tst_ctlRun_SongSequence::siPartChangedSelectsTheRowAndShowsTheList() {
    QVERIFY(LoadService({{song}, {prayer}}));
    console->ShowServiceSIAsRunning(2, 0, 0);
    QVERIFY(console->lvwSIContent->isHidden());

    console->SIPartChanged(2, 2);

    QVERIFY(!console->lvwSIContent->isHidden());
    QCOMPARE(console->lvwSIContent->SelectedItem().Index(), 2);
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("Move Forward >>"));
}

void tst_ctlRun_SongSequence::siPartChangedOfAnotherTypeMovesNoRowAndResetsTheToolTip() {
    QVERIFY(LoadService({{song}}));
    console->SIPartChanged(2, 2);
    console->AtEndOfSI();

    console->SIPartChanged(1, 1);

    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->lvwSIContent->SelectedItem().Index(), 2);
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("Move Forward >>"));
}

void tst_ctlRun_SongSequence::partChangeWhileAPropShowsMovesThePropListAndTheMainListKeepsItsOwn() {
    const qint32 other = db->AddSong(QStringLiteral("Be Thou My Vision"),
                                     {{QStringLiteral("Verse 1"), QStringLiteral("Be thou")},
                                      {QStringLiteral("Verse 2"), QStringLiteral("Be thou my")},
                                      {QStringLiteral("Verse 3"), QStringLiteral("Riches")}});
    QVERIFY(LoadService({{song}}));
    console->SIPartChanged(2, 2);
    console->ShowSIAsRunning(other, false);
    QCOMPARE(console->lvwPropSIContent->topLevelItemCount(), 3);

    console->SIPartChanged(3, 2);

    QCOMPARE(BoldIndexes(console->lvwPropSIContent), QList<qint32>({3}));
    QCOMPARE(console->lvwPropSIContent->SelectedItem().Index(), 3);
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({2}));
    QCOMPARE(console->lvwSIContent->SelectedItem().Index(), 2);
}

void tst_ctlRun_SongSequence::siPartChangedBeyondTheRowsReachesTheHostAndKeepsTheToolTip() {
    QVERIFY(LoadService({{song}}));
    console->AtEndOfSI();
    try {
        console->SIPartChanged(9, 2);
        QFAIL("a part beyond the rows should fail");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, VBErr::IndexOutOfBounds);
    }
    QCOMPARE(console->cmdForward->toolTip(), QStringLiteral("&Finish this Service Item"));
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({1}));
}

void tst_ctlRun_SongSequence::clickOnAPartRaisesShowVerseBoldsItAndRefreshesTheMirror() {
    QVERIFY(LoadService({{song}}));
    QVERIFY(ShowConsole());
    QSignalSpy verse(console.get(), &ctlRun::ShowVerse);
    QSignalSpy propVerse(console.get(), &ctlRun::ShowPropVerse);
    TraceTail trace;

    ClickRow(console->lvwSIContent, 4);

    QCOMPARE(verse.count(), 1);
    QCOMPARE(verse.first().first().value<qint16>(), qint16(3));
    QCOMPARE(propVerse.count(), 0);
    QCOMPARE(BoldIndexes(console->lvwSIContent), QList<qint32>({4}));
    QCOMPARE(BoldSubItemRows(console->lvwSIContent), QList<qint32>({4}));
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("lvwSIContent_ItemClick")), MirrorLine}));
}

void tst_ctlRun_SongSequence::clickOnAPropPartRaisesShowPropVerseWithoutTheMirror() {
    QVERIFY(LoadService({{prayer}}));
    QVERIFY(ShowConsole());
    console->ShowSIAsRunning(song, false);
    QSignalSpy verse(console.get(), &ctlRun::ShowVerse);
    QSignalSpy propVerse(console.get(), &ctlRun::ShowPropVerse);
    TraceTail trace;

    ClickRow(console->lvwPropSIContent, 2);

    QCOMPARE(propVerse.count(), 1);
    QCOMPARE(propVerse.first().first().value<qint16>(), qint16(1));
    QCOMPARE(verse.count(), 0);
    QCOMPARE(BoldIndexes(console->lvwPropSIContent), QList<qint32>({2}));
    QCOMPARE(BoldSubItemRows(console->lvwPropSIContent), QList<qint32>({2}));
    QCOMPARE(trace.StepLines(),
             QStringList({RunLine(QStringLiteral("lvwPropSIContent_ItemClick"))}));
}

QTEST_MAIN(tst_ctlRun_SongSequence)
#include "tst_ctlRun_SongSequence.moc"
