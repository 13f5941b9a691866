// The breakdown of a song's words into parts and sung order: the cut at blank
// lines, the names of parts, the chorus found by its name or by repeats, the
// default order, merge and split, the split of every hymn of the sample
// database, and the wizard's run writing Verses and SongSequence (or nothing).
#include "../support/TestDatabase.h"
#include "DataAccess.h"
#include "Recordset.h"
#include "SampleContent.h"
#include "SongBreakdown.h"

#include <QTest>

using namespace SongBreakdown;

namespace {
QStringList namesOf(const Breakdown& b) {
    QStringList names;
    for (const Part& part : b.Parts)
        names << part.Name;
    return names;
}

QStringList sung(const Breakdown& b) {
    QStringList names;
    for (int index : b.Order)
        names << b.Parts.at(index).Name;
    return names;
}

// The stored breakdown of a song: "name:first words" in sung order.
QStringList storedSequence(qint32 lngServiceItemID) {
    QString error;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetSongSequence(lngServiceItemID, error, rs);
    QStringList names;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        names << rs->Fields("VerseName").toString() + (rs->Fields("IsChorus").toBool() ? "*" : "");
    return names;
}

// A hymn as a volunteer types it: verses apart by blank lines, the chorus
// once after the first verse under its name.
QString typedOnce(const SampleContent::Hymn& hymn) {
    QStringList parts;
    for (int i = 0; i < hymn.verses.size(); ++i) {
        parts << hymn.verses.at(i);
        if (i == 0 && !hymn.chorus.isEmpty())
            parts << "Chorus:\n" + hymn.chorus;
    }
    return parts.join("\n\n");
}

// The same with the chorus written out after every verse, unnamed.
QString typedInFull(const SampleContent::Hymn& hymn) {
    QStringList parts;
    for (const QString& verse : hymn.verses) {
        parts << verse;
        if (!hymn.chorus.isEmpty())
            parts << hymn.chorus;
    }
    return parts.join("\n\n");
}

QStringList expectedOrder(const SampleContent::Hymn& hymn) {
    QStringList order;
    for (int i = 1; i <= hymn.verses.size(); ++i) {
        order << QString("Verse %1").arg(i);
        if (!hymn.chorus.isEmpty())
            order << "Chorus";
    }
    return order;
}
} // namespace

class tst_SongBreakdown : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { SetWizard({}); }

    void wordsAreCutAtBlankLines();
    void namesOfPartsAreTakenOffTheirFirstLine();
    void partNamedChorusOrRefrainIsTheChorus();
    void partTypedTwiceIsTheChorusKeptOnceAndSungAsTyped();
    void chorusAskedForAgainByItsNameIsSungThere();
    void chorusTypedOnceIsSungAfterEveryVerse();
    void chorusTypedFirstIsSungFirstToo();
    void songWithoutChorusIsSungInItsOrder();
    void bridgeKeepsItsName();
    void emptyWordsGiveNoParts();
    void everySampleHymnTypedWithItsChorusOnce();
    void everySampleHymnTypedWithItsChorusInFull();
    void mergeJoinsAPartWithTheNextAndItsPlacesInTheOrder();
    void splitCutsAPartBeforeALineAndSingsBothHalves();
    void mergeAndSplitRefuseIndexesThatDontFit();
    void writeReplacesTheFormerBreakdown();
    void writeRefusesAnEmptyBreakdownAndAnOrderOutOfRange();
    void runWithoutAWizardSaysItIsNotAvailable();
    void runFinishedWritesVersesAndSequenceAndAnswers1();
    void runCancelledChangesNothing();
    void runOfAnItemWithoutWordsSaysSo();
    void runOfASongBrokenDownBeforeProposesItsPartsAgain();
};

void tst_SongBreakdown::wordsAreCutAtBlankLines() {
    QCOMPARE(SplitAtBlankLines("One\r\nTwo  \r\n\r\n  \r\nThree\n\n\n\nFour\nFive\n\n"),
             QStringList({"One\nTwo", "Three", "Four\nFive"}));
    QCOMPARE(SplitAtBlankLines("\n\n  \n"), QStringList());
}

void tst_SongBreakdown::namesOfPartsAreTakenOffTheirFirstLine() {
    const Breakdown b = Propose("[Verse 1]\nFirst words\n\n2.\nSecond words\n\nVerse 3:\nThird "
                                "words\n\nREFRAIN: Praise him\nPraise him");
    QCOMPARE(b.Parts.size(), 4);
    QCOMPARE(b.Parts.at(0).Text, QString("First words"));
    QCOMPARE(b.Parts.at(1).Text, QString("Second words"));
    QCOMPARE(b.Parts.at(2).Text, QString("Third words"));
    QCOMPARE(b.Parts.at(3).Text, QString("Praise him\nPraise him"));
    QVERIFY(b.Parts.at(3).IsChorus);
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Verse 2", "Verse 3", "Chorus"}));
}

void tst_SongBreakdown::partNamedChorusOrRefrainIsTheChorus() {
    QVERIFY(Propose("Words\n\nChorus\nSing").Parts.at(1).IsChorus);
    QVERIFY(Propose("Words\n\n(Refrain)\nSing").Parts.at(1).IsChorus);
    QVERIFY(!Propose("Words\n\nOther\nSing").Parts.at(1).IsChorus);
}

void tst_SongBreakdown::partTypedTwiceIsTheChorusKeptOnceAndSungAsTyped() {
    const Breakdown b = Propose("A one\n\nRepeat me\n\nA two\n\nrepeat  ME!\n\nA three");
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Verse 3"}));
    QCOMPARE(sung(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus", "Verse 3"}));
}

void tst_SongBreakdown::chorusAskedForAgainByItsNameIsSungThere() {
    const Breakdown b = Propose("A one\n\nChorus:\nSing it\n\nA two\n\n(Chorus)\n\nA three\n\n"
                                "Chorus");
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Verse 3"}));
    QCOMPARE(sung(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus", "Verse 3", "Chorus"}));
}

void tst_SongBreakdown::chorusTypedOnceIsSungAfterEveryVerse() {
    const Breakdown b = Propose("A one\n\nChorus\nSing it\n\nA two\n\nA three");
    QCOMPARE(sung(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus", "Verse 3", "Chorus"}));
}

void tst_SongBreakdown::chorusTypedFirstIsSungFirstToo() {
    const Breakdown b = Propose("Refrain:\nSing it\n\nA one\n\nA two");
    QCOMPARE(sung(b), QStringList({"Chorus", "Verse 1", "Chorus", "Verse 2", "Chorus"}));
}

void tst_SongBreakdown::songWithoutChorusIsSungInItsOrder() {
    const Breakdown b = Propose("A one\n\nA two\n\nA three");
    QCOMPARE(sung(b), QStringList({"Verse 1", "Verse 2", "Verse 3"}));
}

void tst_SongBreakdown::bridgeKeepsItsName() {
    const Breakdown b = Propose("A one\n\nChorus\nSing\n\nBridge\nHigher\n\nA two");
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Chorus", "Bridge", "Verse 2"}));
    QVERIFY(!b.Parts.at(2).IsChorus);
}

void tst_SongBreakdown::emptyWordsGiveNoParts() {
    QVERIFY(Propose("").Parts.isEmpty());
    QVERIFY(Propose("\n \n").Order.isEmpty());
    QVERIFY(Propose("Chorus\n\n[Verse 2]").Parts.isEmpty());
}

void tst_SongBreakdown::everySampleHymnTypedWithItsChorusOnce() {
    int withChorus = 0;
    for (const SampleContent::Hymn& hymn : SampleContent::Hymns()) {
        const Breakdown b = Propose(typedOnce(hymn));
        const qsizetype parts = hymn.verses.size() + (hymn.chorus.isEmpty() ? 0 : 1);
        QVERIFY2(b.Parts.size() == parts, qPrintable(hymn.title));
        QVERIFY2(sung(b) == expectedOrder(hymn), qPrintable(hymn.title));
        for (int i = 0; i < b.Parts.size(); ++i) {
            const Part& part = b.Parts.at(i);
            QVERIFY2(part.IsChorus == (i == 1 && !hymn.chorus.isEmpty()), qPrintable(hymn.title));
            if (part.IsChorus)
                QCOMPARE(part.Text, hymn.chorus);
        }
        withChorus += hymn.chorus.isEmpty() ? 0 : 1;
    }
    QVERIFY(withChorus >= 2);
}

void tst_SongBreakdown::everySampleHymnTypedWithItsChorusInFull() {
    for (const SampleContent::Hymn& hymn : SampleContent::Hymns()) {
        const Breakdown b = Propose(typedInFull(hymn));
        QVERIFY2(b.Parts.size() == hymn.verses.size() + (hymn.chorus.isEmpty() ? 0 : 1),
                 qPrintable(hymn.title));
        QVERIFY2(sung(b) == expectedOrder(hymn), qPrintable(hymn.title));
        for (int i = 0; i < hymn.verses.size(); ++i)
            QVERIFY2(b.Parts.at(i < 1 || hymn.chorus.isEmpty() ? i : i + 1).Text ==
                         hymn.verses.at(i),
                     qPrintable(hymn.title));
    }
}

void tst_SongBreakdown::mergeJoinsAPartWithTheNextAndItsPlacesInTheOrder() {
    Breakdown b = Propose("A one\n\nA one more\n\nChorus\nSing\n\nA two");
    QCOMPARE(sung(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus", "Verse 3", "Chorus"}));
    QVERIFY(MergeWithNext(b, 0));
    QCOMPARE(b.Parts.at(0).Text, QString("A one\n\nA one more"));
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Chorus", "Verse 2"}));
    QCOMPARE(sung(b), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
}

void tst_SongBreakdown::splitCutsAPartBeforeALineAndSingsBothHalves() {
    Breakdown b = Propose("Line a\nLine b\nLine c\n\nChorus\nSing");
    QVERIFY(SplitPart(b, 0, 2));
    QCOMPARE(b.Parts.at(0).Text, QString("Line a\nLine b"));
    QCOMPARE(b.Parts.at(1).Text, QString("Line c"));
    QCOMPARE(namesOf(b), QStringList({"Verse 1", "Verse 2", "Chorus"}));
    QCOMPARE(sung(b), QStringList({"Verse 1", "Verse 2", "Chorus"}));
}

void tst_SongBreakdown::mergeAndSplitRefuseIndexesThatDontFit() {
    Breakdown b = Propose("Line a\nLine b\n\nLine c");
    const Breakdown before = b;
    QVERIFY(!MergeWithNext(b, 1));
    QVERIFY(!MergeWithNext(b, -1));
    QVERIFY(!SplitPart(b, 0, 0));
    QVERIFY(!SplitPart(b, 0, 2));
    QVERIFY(!SplitPart(b, 1, 1));
    QVERIFY(!SplitPart(b, 5, 1));
    QVERIFY(b == before);
}

void tst_SongBreakdown::writeReplacesTheFormerBreakdown() {
    TestDatabase db;
    const qint32 song = db.AddSong("Old", {{"Verse 1", "Old words"}});
    QVERIFY(song > 0);
    QString error;
    Write(song, Propose("New one\n\nChorus\nSing\n\nNew two"), error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(storedSequence(song), QStringList({"Verse 1", "Chorus*", "Verse 2", "Chorus*"}));
    QCOMPARE(db.Count("Verses", "ServiceItemID = ?", {song}), 3);
    QCOMPARE(db.Count("Verses", "VerseText = 'Old words'"), 0);
}

void tst_SongBreakdown::writeRefusesAnEmptyBreakdownAndAnOrderOutOfRange() {
    TestDatabase db;
    const qint32 song = db.AddSong("Kept", {{"Verse 1", "Kept words"}});
    QString error;
    Write(song, Breakdown{}, error);
    QVERIFY(!error.isEmpty());
    Breakdown wrong = Propose("One\n\nTwo");
    wrong.Order << 7;
    Write(song, wrong, error);
    QVERIFY(error.contains("does not exist"));
    QCOMPARE(storedSequence(song), QStringList({"Verse 1"}));
}

void tst_SongBreakdown::runWithoutAWizardSaysItIsNotAvailable() {
    TestDatabase db;
    SetWizard({});
    QString error;
    qint16 result = -1;
    DataAccess::Instance().RunSongBreakdownWizard(1, error, result);
    QCOMPARE(result, qint16(0));
    QVERIFY(error.contains("not available"));
}

void tst_SongBreakdown::runFinishedWritesVersesAndSequenceAndAnswers1() {
    TestDatabase db;
    const qint32 song = db.AddServiceItem(TestDatabase::Song, "Shine It@@s Bright",
                                          "Shine on\n\nChorus\nBright\n\nShine more");
    QVERIFY(song > 0);
    QString title;
    SetWizard([&](const QString& strTitle, Breakdown& b) {
        title = strTitle;
        b.Parts[2].Name = "Last verse";
        return true;
    });
    QString error;
    qint16 result = 0;
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(result, qint16(1));
    QCOMPARE(title, QString("Shine It's Bright"));
    QCOMPARE(storedSequence(song), QStringList({"Verse 1", "Chorus*", "Last verse", "Chorus*"}));
    bool has = false;
    DataAccess::Instance().ServiceItemHasVerses(song, error, has);
    QVERIFY(has);
}

void tst_SongBreakdown::runCancelledChangesNothing() {
    TestDatabase db;
    const qint32 song = db.AddSong("Kept", {{"Verse 1", "Kept words"}, {"Verse 2", "More"}});
    int asked = 0;
    SetWizard([&](const QString&, Breakdown& b) {
        ++asked;
        b.Order.clear();
        return false;
    });
    QString error;
    qint16 result = -1;
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QCOMPARE(asked, 1);
    QCOMPARE(result, qint16(0));
    QVERIFY(error.isEmpty());
    QCOMPARE(storedSequence(song), QStringList({"Verse 1", "Verse 2"}));
}

void tst_SongBreakdown::runOfAnItemWithoutWordsSaysSo() {
    TestDatabase db;
    const qint32 song = db.AddServiceItem(TestDatabase::Song, "Untitled");
    int asked = 0;
    SetWizard([&](const QString&, Breakdown&) { return ++asked > 0; });
    QString error;
    qint16 result = -1;
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QCOMPARE(asked, 0);
    QCOMPARE(result, qint16(0));
    QVERIFY(error.contains("has no words to break down"));
}

void tst_SongBreakdown::runOfASongBrokenDownBeforeProposesItsPartsAgain() {
    TestDatabase db;
    const qint32 song =
        db.AddSong("Again", {{"Verse 1", "First"}, {"Chorus", "Sing", true}, {"Verse 2", "Second"}},
                   {0, 1, 2, 1});
    Breakdown offered;
    SetWizard([&](const QString&, Breakdown& b) {
        offered = b;
        return true;
    });
    QString error;
    qint16 result = 0;
    DataAccess::Instance().RunSongBreakdownWizard(song, error, result);
    QCOMPARE(result, qint16(1));
    QCOMPARE(sung(offered), QStringList({"Verse 1", "Chorus", "Verse 2", "Chorus"}));
    QCOMPARE(storedSequence(song), QStringList({"Verse 1", "Chorus*", "Verse 2", "Chorus*"}));
}

QTEST_MAIN(tst_SongBreakdown)
#include "tst_SongBreakdown.moc"
