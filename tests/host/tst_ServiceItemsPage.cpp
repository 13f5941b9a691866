// The Service Items page: the service item editor beside the gallery, on the
// item selected or made new; a saved item's row refreshed in the gallery; the
// question asked before another item, a group or another page takes the
// editor's place; and a newcomer's song from New to the run.

#include "DataAccess.h"
#include "EditorSlot.h"
#include "EventPanel.h"
#include "ScriptedPlatform.h"
#include "ServiceItemsPage.h"
#include "TestDatabase.h"
#include "foundations/SSTab.h"
#include "foundations/VBConstants.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "serviceitem/ctlServiceItem.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include <memory>

class tst_ServiceItemsPage : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void selectingAnItemShowsItInTheEditorBesideTheGallery();
    void selectingAnotherItemOffersToSaveTheChangesFirst();
    void aGroupTakesTheEditorsPlaceAfterAskingIt();
    void leavingThePageAsksTheEditor();
    void aSaveRefreshesTheItemsRowInTheGallery();
    void newInTheGalleryOpensTheEditorOnTheNewItem();
    void aNewcomersSongIsWrittenBrokenDownSavedFoundAndRun();

private:
    std::unique_ptr<ServiceItemsPage> Page() {
        auto page = std::make_unique<ServiceItemsPage>();
        page->resize(1400, 800);
        page->show();
        page->Activate();
        return page;
    }
    // The texts of the item nodes of the gallery's tree.
    static QStringList ShownItems(ctlServiceItemGallery* gallery) {
        QStringList texts;
        VBTreeWidget* tree = gallery->tvwServiceItems;
        for (qint32 i = 1; i <= tree->Count(); ++i)
            if (tree->Nodes(i).Key().contains(QStringLiteral(";;SI;")))
                texts << tree->Nodes(i).Text();
        texts.sort();
        return texts;
    }

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    qint32 m_prayer = 0, m_creed = 0;
};

void tst_ServiceItemsPage::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
    m_platform = std::make_unique<ScriptedPlatform>();
    m_prayer = m_db->AddServiceItem(TestDatabase::Prayer, "Collect for Purity", "Almighty God");
    m_creed = m_db->AddServiceItem(TestDatabase::Creed, "Nicene Creed", "We believe");
    QVERIFY(m_prayer > 0 && m_creed > 0);
}

void tst_ServiceItemsPage::cleanup() {
    m_platform.reset();
    m_db.reset();
}

void tst_ServiceItemsPage::selectingAnItemShowsItInTheEditorBesideTheGallery() {
    auto page = Page();
    page->ctlServiceItemGallery1->SelectServiceItem(m_prayer);
    ctlServiceItem* editor = page->ServiceItemEditor();
    QVERIFY(editor);
    QCOMPARE(editor->Items(), QString::number(m_prayer));
    QCOMPARE(editor->txtDescription->text(), QString("Collect for Purity"));
    QCOMPARE(editor->lblMainCaption->text(), QString("Collect for Purity"));
    QVERIFY(editor->isVisible());
    page->ctlServiceItemGallery1->SelectServiceItem(m_creed);
    QCOMPARE(page->ServiceItemEditor(), editor);
    QCOMPARE(editor->txtDescription->text(), QString("Nicene Creed"));
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ServiceItemsPage::selectingAnotherItemOffersToSaveTheChangesFirst() {
    auto page = Page();
    page->ctlServiceItemGallery1->SelectServiceItem(m_prayer);
    ctlServiceItem* editor = page->ServiceItemEditor();
    editor->txtDescription->setText("Collect for Purity of Heart");
    m_platform->QueueAnswer(vbYes);
    page->ctlServiceItemGallery1->SelectServiceItem(m_creed);
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QCOMPARE(m_db->Scalar("SELECT ServiceItemDescription FROM ServiceItems WHERE ServiceItemID "
                          "= ?",
                          {m_prayer})
                 .toString(),
             QString("Collect for Purity of Heart"));
    QCOMPARE(editor->txtDescription->text(), QString("Nicene Creed"));
    QTRY_VERIFY(ShownItems(page->ctlServiceItemGallery1).contains("Collect for Purity of Heart"));
    QCOMPARE(page->SelectedServiceItemID(), m_creed);
}

void tst_ServiceItemsPage::aGroupTakesTheEditorsPlaceAfterAskingIt() {
    auto page = Page();
    page->ctlServiceItemGallery1->SelectServiceItem(m_prayer);
    page->ServiceItemEditor()->txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbNo);
    emit page->ctlServiceItemGallery1->SIClicked(QStringLiteral("Type;1"), QStringLiteral("Prayer"),
                                                 QString(), QString(), QStringLiteral("SIGroup"));
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QVERIFY(!page->ServiceItemEditor());
    QVERIFY(qobject_cast<EventPanel*>(page->Editor()->Current()));
}

void tst_ServiceItemsPage::leavingThePageAsksTheEditor() {
    auto page = Page();
    page->ctlServiceItemGallery1->SelectServiceItem(m_prayer);
    page->ServiceItemEditor()->txtLocation->setText("Chapel");
    m_platform->QueueAnswer(vbYes);
    QVERIFY(page->CanUnload());
    QCOMPARE(m_platform->LastBox().Title, QString("Save Changes?"));
    QCOMPARE(m_db->Scalar("SELECT ServiceItemOriginalLocation FROM ServiceItems WHERE "
                          "ServiceItemID = ?",
                          {m_prayer})
                 .toString(),
             QString("Chapel"));
}

void tst_ServiceItemsPage::aSaveRefreshesTheItemsRowInTheGallery() {
    auto page = Page();
    page->ctlServiceItemGallery1->SelectServiceItem(m_prayer);
    ctlServiceItem* editor = page->ServiceItemEditor();
    editor->txtDescription->setText("Prayer of Preparation");
    editor->cmdSave->click();
    QTRY_VERIFY(ShownItems(page->ctlServiceItemGallery1).contains("Prayer of Preparation"));
    QCOMPARE(page->ctlServiceItemGallery1->SelectedItemText(), QString("Prayer of Preparation"));
    QCOMPARE(page->ServiceItemEditor(), editor);
    QCOMPARE(editor->Items(), QString::number(m_prayer));
}

void tst_ServiceItemsPage::newInTheGalleryOpensTheEditorOnTheNewItem() {
    auto page = Page();
    const qint32 lngBefore = m_db->Count("ServiceItems");
    page->ctlServiceItemGallery1->NewServiceItem(TestDatabase::Song);
    QCOMPARE(m_db->Count("ServiceItems"), lngBefore + 1);
    ctlServiceItem* editor = page->ServiceItemEditor();
    QVERIFY(editor);
    QCOMPARE(editor->ServiceItemTypeID(), qint32(TestDatabase::Song));
    QCOMPARE(editor->SSTab1->Tab(), qint16(ctlServiceItem::TabGeneral));
    QCOMPARE(editor->Items(), QString::number(page->SelectedServiceItemID()));
}

void tst_ServiceItemsPage::aNewcomersSongIsWrittenBrokenDownSavedFoundAndRun() {
    auto page = Page();
    page->ctlServiceItemGallery1->NewServiceItem(TestDatabase::Song);
    ctlServiceItem* editor = page->ServiceItemEditor();
    QVERIFY(editor);
    const qint32 song = editor->ServiceItemID();
    editor->txtDescription->setText("Come Down O Love Divine");
    editor->txtServiceItemSource->setText("Bianco da Siena");
    editor->SSTab1->setTab(ctlServiceItem::TabContent);
    editor->SSTab2->setTab(1);
    editor->txtContent->setPlainText("Come down, O Love divine\nseek thou this soul of mine\n\n"
                                     "Chorus:\nO let it freely burn\n\n"
                                     "Let holy charity\nmine outward vesture be\n\n"
                                     "And so the yearning strong\nwith which the soul will long");
    editor->cmdSave->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    editor->SSTab1->setTab(ctlServiceItem::TabRunDetails);
    m_platform->QueueSongBreakdown([](SongBreakdown::Breakdown& b) { return !b.Parts.isEmpty(); });
    editor->cmdRunBreakDownWizard->click();
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ?", {song}), 4);
    QCOMPARE(m_db->Count("Verses", "ServiceItemID = ? AND IsChorus = 1", {song}), 1);
    QCOMPARE(m_db->Count("SongSequence", "ServiceItemID = ?", {song}), 6);
    QCOMPARE(m_db->Scalar("SELECT TextViewMode FROM ServiceItems WHERE ServiceItemID = ?", {song})
                 .toInt(),
             3);

    // The quick filter finds it.
    QTRY_VERIFY(ShownItems(page->ctlServiceItemGallery1).contains("Come Down O Love Divine"));
    auto* txtQuickFilter = page->ctlServiceItemGallery1->findChild<QLineEdit*>("txtQuickFilter");
    QVERIFY(txtQuickFilter);
    QTest::keyClicks(txtQuickFilter, "Love Divine");
    QTRY_COMPARE(ShownItems(page->ctlServiceItemGallery1),
                 QStringList({"Come Down O Love Divine"}));

    // And the run button hands it to the run.
    QSignalSpy run(page.get(), &HostPage::RunServiceItemRequested);
    page->ctlServiceItemGallery1->SelectServiceItem(song);
    emit page->ctlServiceItemGallery1->ToolBarButtonClicked(QStringLiteral("btnRun"), song);
    QCOMPARE(run.count(), 1);
    QCOMPARE(run.first().first().toInt(), song);
}

QTEST_MAIN(tst_ServiceItemsPage)
#include "tst_ServiceItemsPage.moc"
