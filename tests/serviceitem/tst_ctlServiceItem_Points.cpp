// The service item editor's Points List tab and the song breakdown: points
// loaded on each visit, stored whole at each change in their own
// transaction, and a song broken down into its parts.
#include "ServiceItemFixture.h"
#include "foundations/PointList.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QTreeWidget>

using namespace ServiceItemFixture;

class tst_ctlServiceItem_Points : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void thePointsTabShowsTheStoredOutline();
    void aPointWithoutNotesTakesTheNotesOfThePointBefore();
    void goingToThePointsTabReloadsEachTime();
    void theRunDetailsTabLoadsThePointsOnlyWhileNoLoadSucceeded();
    void anItemWithoutPointsIsAskedAgainAtEachRunDetailsVisit();
    void eachChangeOfTheOutlineIsStoredAtOnce();
    void subPointsAreStoredUnderTheirParent();
    void deletingTheLastPointLeavesTheStoreAsItWasAndReloadsRunDetails();
    void aRenameOverTheLimitSaysThePointTextIsTooLong();
    void aRenameIsStored();
    void verseByVerseOnASongNotBrokenDownOpensTheWizard();
    void verseByVerseOnASongBrokenDownAsksNothingAndStoresTheMode();
    void theWizardButtonAsksBeforeBreakingDownAgain();
    void aCancelledWizardChangesNothing();
    void theVerseOptionAndWizardButtonShowForSongsOnly();
    void aPointsListRunsAsPointsWithNoChoiceShown();

private:
    QTreeWidget* Outline(ctlServiceItem& ctl) {
        return ctl.PointList1->findChild<QTreeWidget*>("tvwPoints");
    }
    QStringList StoredPoints(qint32 lngID) {
        QStringList points;
        const qint32 count = m_db->Count("ServiceItemPoints", "ServiceItemID = ?", {lngID});
        for (qint32 i = 0; i < count; ++i)
            points << m_db->Scalar(QStringLiteral("SELECT PointKey || '<' || "
                                                  "COALESCE(ParentPointKey, '') || ':' || "
                                                  "PointText FROM ServiceItemPoints WHERE "
                                                  "ServiceItemID = ? ORDER BY Position, "
                                                  "ServiceItemPointID LIMIT 1 OFFSET %1")
                                       .arg(i),
                                   {lngID})
                          .toString();
        return points;
    }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    Library m_lib;
};

void tst_ctlServiceItem_Points::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_lib = Library();
    QVERIFY2(m_lib.Seed(*m_db), qPrintable(m_db->LastError()));
    QVERIFY(m_db->AddPoints(m_lib.points, {{"P1", "", "Grace is free", "Eph 2"},
                                           {"P2", "P1", "Not by works", ""},
                                           {"P3", "", "Grace changes us", "Titus 2"}}));
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_ctlServiceItem_Points::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ctlServiceItem_Points::thePointsTabShowsTheStoredOutline() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QVERIFY(ctl.PointsLoaded());
    QCOMPARE(ctl.PointList1->Points().Count(), 4);
    QCOMPARE(ctl.PointList1->PointByKey("P2").Parent().Key(), QString("P1"));
    QCOMPARE(ctl.PointList1->PointByKey("P3").Text(), QString("Grace changes us"));
    QCOMPARE(ctl.PointList1->maxlengthofpointtext(), 200);
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlServiceItem_Points::aPointWithoutNotesTakesTheNotesOfThePointBefore() {
    QVERIFY(m_db->Exec("UPDATE ServiceItemPoints SET PointNotes = NULL WHERE PointKey = 'P2'"));
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QCOMPARE(ctl.PointList1->PointByKey("P2").Notes().toString(), QString("Eph 2"));
}

void tst_ctlServiceItem_Points::goingToThePointsTabReloadsEachTime() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QCOMPARE(ctl.PointList1->Points().Count(), 4);
    QVERIFY(m_db->AddPoints(m_lib.points, {{"P4", "", "Grace for all", ""}}));
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QCOMPARE(ctl.PointList1->Points().Count(), 5);
}

void tst_ctlServiceItem_Points::theRunDetailsTabLoadsThePointsOnlyWhileNoLoadSucceeded() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(ctl.PointsLoaded());
    QCOMPARE(ctl.PointList1->Points().Count(), 4);
    QVERIFY(m_db->AddPoints(m_lib.points, {{"P4", "", "Grace for all", ""}}));
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QCOMPARE(ctl.PointList1->Points().Count(), 4);
}

void tst_ctlServiceItem_Points::anItemWithoutPointsIsAskedAgainAtEachRunDetailsVisit() {
    ctlServiceItem ctl;
    ctl.show();
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(!ctl.PointsLoaded());
    QVERIFY(!ctl.chkShowAsPointsList->isVisible());
    QVERIFY(m_db->AddPoints(m_lib.prayer, {{"P1", "", "Peace", ""}}));
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(ctl.PointsLoaded());
    QVERIFY(ctl.chkShowAsPointsList->isVisible());
}

void tst_ctlServiceItem_Points::eachChangeOfTheOutlineIsStoredAtOnce() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    Outline(ctl)->setCurrentItem(Outline(ctl)->topLevelItem(1));
    ctl.PointList1->findChild<QPushButton*>("cmdAdd")->click();
    QCOMPARE(m_db->Count("ServiceItemPoints", "ServiceItemID = ?", {m_lib.points}), 4);
    QVERIFY(!ctl.cmdSave->isEnabled());
    QVERIFY(!DataAccess::Instance().InTransaction());
    ctl.PointList1->findChild<QPushButton*>("cmdMoveUp")->click();
    const QStringList stored = StoredPoints(m_lib.points);
    QCOMPARE(stored.size(), 4);
    QVERIFY2(stored.at(2).endsWith(":New Point"), qPrintable(stored.join('|')));
    QVERIFY2(stored.at(3).endsWith(":Grace changes us"), qPrintable(stored.join('|')));
}

void tst_ctlServiceItem_Points::subPointsAreStoredUnderTheirParent() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    ctl.PointList1->Redraw("P3");
    ctl.PointList1->findChild<QPushButton*>("cmdAddSubPoint")->click();
    const QStringList stored = StoredPoints(m_lib.points);
    QCOMPARE(stored.size(), 4);
    QVERIFY2(stored.at(3).contains("<P3:"), qPrintable(stored.join('|')));
    QCOMPARE(stored.at(1), QString("P2<P1:Not by works"));
}

void tst_ctlServiceItem_Points::deletingTheLastPointLeavesTheStoreAsItWasAndReloadsRunDetails() {
    QVERIFY(m_db->AddPoints(m_lib.prayer, {{"P1", "", "Peace", ""}}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET RunAsPointsList = 1, TextViewMode = 4 WHERE "
                       "ServiceItemID = ?",
                       {m_lib.prayer}));
    ctlServiceItem ctl;
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(ctl.RunDetailsLoaded());
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    Outline(ctl)->setCurrentItem(Outline(ctl)->topLevelItem(0));
    ctl.PointList1->findChild<QPushButton*>("cmdDelete")->click();
    QCOMPARE(ctl.PointList1->Points().Count(), 0);
    QCOMPARE(m_db->Count("ServiceItemPoints", "ServiceItemID = ?", {m_lib.prayer}), 1);
    QVERIFY(Field(*m_db, m_lib.prayer, "RunAsPointsList").toBool());
    QVERIFY(!ctl.RunDetailsLoaded());
    QVERIFY(!DataAccess::Instance().InTransaction());
}

void tst_ctlServiceItem_Points::aRenameOverTheLimitSaysThePointTextIsTooLong() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QTreeWidgetItem* item = Outline(ctl)->topLevelItem(0);
    Outline(ctl)->setCurrentItem(item);
    m_platform->QueueAnswer(vbOK);
    item->setText(0, QString(201, QLatin1Char('g')));
    QCOMPARE(m_platform->LastBox().Prompt, QString("Point text is too long"));
    QCOMPARE(m_platform->LastBox().Title, QString("Invalid Entry"));
    QCOMPARE(ctl.PointList1->PointByKey("P1").Text(), QString("Grace is free"));
    QCOMPARE(
        m_db->Scalar("SELECT PointText FROM ServiceItemPoints WHERE PointKey = 'P1'").toString(),
        QString("Grace is free"));
}

void tst_ctlServiceItem_Points::aRenameIsStored() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabPoints);
    QTreeWidgetItem* item = Outline(ctl)->topLevelItem(0);
    Outline(ctl)->setCurrentItem(item);
    item->setText(0, QString(200, QLatin1Char('g')));
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(
        m_db->Scalar("SELECT PointText FROM ServiceItemPoints WHERE PointKey = 'P1'").toString(),
        QString(200, QLatin1Char('g')));
}

void tst_ctlServiceItem_Points::verseByVerseOnASongNotBrokenDownOpensTheWizard() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown&) { return true; });
    ctl.optVerseByVerse->click();
    QCOMPARE(m_platform->SongBreakdownOffers().size(), 1);
    QCOMPARE(m_platform->SongBreakdownOffers().first().Proposal.Parts.size(), 2);
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {m_lib.song}), 2);
    QCOMPARE(Field(*m_db, m_lib.song, "TextViewMode").toInt(), 3);
    // Stored at once, with no flag raised.
    QVERIFY(!ctl.RunDetailsDirty());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlServiceItem_Points::verseByVerseOnASongBrokenDownAsksNothingAndStoresTheMode() {
    const qint32 song = m_db->AddSong(
        "Be Thou My Vision", {{"Verse 1", "Be thou my vision"}, {"Verse 2", "Be thou my wisdom"}});
    QVERIFY(song > 0);
    ctlServiceItem ctl;
    Show(ctl, song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    ctl.optVerseByVerse->click();
    QCOMPARE(m_platform->SongBreakdownOffers().size(), 0);
    QCOMPARE(Field(*m_db, song, "TextViewMode").toInt(), 3);
}

void tst_ctlServiceItem_Points::theWizardButtonAsksBeforeBreakingDownAgain() {
    const qint32 song = m_db->AddSong(
        "Be Thou My Vision", {{"Verse 1", "Be thou my vision"}, {"Verse 2", "Be thou my wisdom"}});
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET ServiceItemContent = ? WHERE ServiceItemID = ?",
                       {"Be thou my vision\n\nBe thou my wisdom\n\nHigh King of heaven", song}));
    ctlServiceItem ctl;
    Show(ctl, song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    m_platform->QueueAnswer(vbNo);
    ctl.cmdRunBreakDownWizard->click();
    QCOMPARE(m_platform->LastBox().Title, QString("Break song/hymn down again"));
    QCOMPARE(m_platform->SongBreakdownOffers().size(), 0);
    m_platform->QueueAnswer(vbYes);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown&) { return true; });
    ctl.cmdRunBreakDownWizard->click();
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {song}), 3);
    QVERIFY(ctl.optVerseByVerse->isChecked());
    QCOMPARE(Field(*m_db, song, "TextViewMode").toInt(), 3);
}

void tst_ctlServiceItem_Points::aCancelledWizardChangesNothing() {
    ctlServiceItem ctl;
    Show(ctl, m_lib.song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown&) { return false; });
    ctl.cmdRunBreakDownWizard->click();
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {m_lib.song}), 0);
    QCOMPARE(Field(*m_db, m_lib.song, "TextViewMode").toInt(), 0);
}

void tst_ctlServiceItem_Points::theVerseOptionAndWizardButtonShowForSongsOnly() {
    ctlServiceItem ctl;
    ctl.show();
    Show(ctl, m_lib.song);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(ctl.optVerseByVerse->isVisible());
    QVERIFY(ctl.cmdRunBreakDownWizard->isVisible());
    m_platform->SetDefaultAnswer(vbNo);
    Show(ctl, m_lib.prayer);
    QVERIFY(!ctl.optVerseByVerse->isVisible());
    QVERIFY(!ctl.cmdRunBreakDownWizard->isVisible());
}

void tst_ctlServiceItem_Points::aPointsListRunsAsPointsWithNoChoiceShown() {
    ctlServiceItem ctl;
    ctl.show();
    Show(ctl, m_lib.points);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(!ctl.chkShowAsPointsList->isVisible());
    QVERIFY(ctl.chkShowAsPointsList->isChecked());
    QVERIFY(ctl.fraAsPointsList->isVisible());
    QVERIFY(!ctl.fraNotAsPointsList->isVisible());
    // A text item with points offers the choice.
    QVERIFY(m_db->AddPoints(m_lib.prayer, {{"P1", "", "Peace", ""}}));
    QVERIFY(m_db->Exec("UPDATE ServiceItems SET RunAsPointsList = 0 WHERE ServiceItemID = ?",
                       {m_lib.prayer}));
    m_platform->SetDefaultAnswer(vbNo);
    Show(ctl, m_lib.prayer);
    ctl.SSTab1->setTab(ctlServiceItem::TabGeneral);
    ctl.SSTab1->setTab(ctlServiceItem::TabRunDetails);
    QVERIFY(ctl.chkShowAsPointsList->isVisible());
    QVERIFY(!ctl.chkShowAsPointsList->isChecked());
}

QTEST_MAIN(tst_ctlServiceItem_Points)
#include "tst_ctlServiceItem_Points.moc"
