// The template gallery: keys and groups, the filter, the word processor rule of
// a new template, open, delete and the clicks.
#include "DataAccess.h"
#include "FakeWriter.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "templates/ctlTemplateGallery.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

class tst_ctlTemplateGallery : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theListsHoldTheDocumentedWords();
    void templatesStandUnderTheirTypeWithTheirKeys();
    void aNullDescriptionAndOccasionStandUnderNoOccasionAsAuthorOnDate();
    void groupedBySourceTheUserOnesAreUserTemplateWhileTheListSaysUserCreated();
    void monthAndYearGroupsByTheMonthsFullName();
    void filterOnDateCreatedContainsComparesTheDateAsText();
    void clearingTheCriterionTurnsTheFilterOffAndTellsTheHost();
    void clickingATemplateEnablesOpenAndDeleteAndTellsTheHost();
    void clickingTheRootDisablesOpenAndDelete();
    void aListClickAlwaysDisablesOpenAndDeleteAndReportsTheMissingButton();
    void wordRunningStopsTheToolbarsNewButTheMenusNewStillCreates();
    void toolbarNewCreatesSelectsAndAnnouncesTheTemplate();
    void toolbarNewWithoutWriterSaysSoAndCreatesNothing();
    void doubleClickOpensTheDocumentInWriter();
    void aMissingDocumentIsReportedAfterTheHandlersName();
    void deleteAsksAndNoKeepsTheTemplate();
    void deletingTheLastTemplateLeavesTheRootAndDisablesOpenAndDelete();
    void deleteLandsOnTheNeighbour();
    void helpSendsF1();

private:
    void Group(ctlTemplateGallery& gallery, const QString& strCaption);
    QStringList TemplateKeys(const ctlTemplateGallery& gallery) const;
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    std::unique_ptr<FakeWriter> m_writer;
    qint32 m_lngSheet = 0; // in-built service template, Easter, 2025
    qint32 m_lngSong = 0;  // user's service item template, no occasion, 2026
};

void tst_ctlTemplateGallery::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
    m_writer = std::make_unique<FakeWriter>();
    QVERIFY(m_writer->IsValid());
    m_lngSheet = m_db->AddTemplate(QStringLiteral("Service Sheet"), true, QStringLiteral("Easter"));
    m_lngSong = m_db->AddTemplate(QStringLiteral("Song Sheet"), false);
    QVERIFY(m_lngSheet > 0 && m_lngSong > 0);
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET IsInBuilt = 1, TemplateDateCreated = "
                                      "'2025-12-24 09:00:00' WHERE TemplateID = ?"),
                       {m_lngSheet}));
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET TemplateDateCreated = "
                                      "'2026-03-05 10:15:00' WHERE TemplateID = ?"),
                       {m_lngSong}));
}

void tst_ctlTemplateGallery::cleanup() {
    m_writer.reset();
    m_platform.reset();
    m_db.reset();
}

void tst_ctlTemplateGallery::Group(ctlTemplateGallery& gallery, const QString& strCaption) {
    gallery.cboGroupByProperty->setCurrentText(strCaption);
    gallery.ShowTemplates();
}

QStringList tst_ctlTemplateGallery::TemplateKeys(const ctlTemplateGallery& gallery) const {
    QStringList lst;
    for (qint32 i = 1; i <= gallery.tvwTemplates->Count(); ++i) {
        const QString strKey = gallery.tvwTemplates->Nodes(i).Key();
        if (strKey.contains(QStringLiteral(";;Template;")))
            lst << strKey;
    }
    lst.sort();
    return lst;
}

void tst_ctlTemplateGallery::theListsHoldTheDocumentedWords() {
    ctlTemplateGallery gallery;
    QStringList lst;
    for (qint32 i = 0; i < gallery.cboProperty->count(); ++i)
        lst << gallery.cboProperty->itemText(i);
    QCOMPARE(lst, QStringList({"Description", "Occasion", "Date Created", "Created By"}));
    lst.clear();
    for (qint32 i = 0; i < gallery.cboGroupByProperty->count(); ++i)
        lst << gallery.cboGroupByProperty->itemText(i);
    QCOMPARE(lst, QStringList({"Type", "Occasion", "Created By", "Year Created",
                               "Month & Year Created", "Source"}));
    QCOMPARE(gallery.fraFilter->title(), QStringLiteral("Filter Services Where:"));
    QCOMPARE(gallery.Description(), QStringLiteral("TemplateGalleryControl"));
    QCOMPARE(gallery.Toolbar2->Buttons(QStringLiteral("btnNew"))->toolTip(),
             QStringLiteral("Create a New Service Item"));
    QVERIFY(!gallery.Toolbar2->ButtonExists(QStringLiteral("btnProperties")));
}

void tst_ctlTemplateGallery::templatesStandUnderTheirTypeWithTheirKeys() {
    ctlTemplateGallery gallery;
    Group(gallery, QStringLiteral("Type"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Root")).Text(),
             QStringLiteral("Templates"));
    const QString strSheet = QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(m_lngSheet);
    QVERIFY(gallery.tvwTemplates->KeyExists(strSheet));
    QCOMPARE(gallery.tvwTemplates->Nodes(strSheet).Text(), QStringLiteral("Service Sheet"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Type;ServiceTemplate")).Text(),
             QStringLiteral("Service Template"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Type;ServiceItemTemplate")).Text(),
             QStringLiteral("Service Item Template"));
    gallery.optShowAsList->setChecked(true);
    QVERIFY(gallery.lvwTemplates->KeyExists(QStringLiteral("Template;%1").arg(m_lngSong)));
    const VBNode item =
        gallery.lvwTemplates->ListItems(QStringLiteral("Template;%1").arg(m_lngSong));
    QCOMPARE(item.Text(), QStringLiteral("Service Item"));
    QCOMPARE(item.SubItems(1), QStringLiteral("Song Sheet"));
    QCOMPARE(item.SubItems(4), QStringLiteral("Tester"));
}

void tst_ctlTemplateGallery::aNullDescriptionAndOccasionStandUnderNoOccasionAsAuthorOnDate() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET TemplateDescription = NULL, "
                                      "TemplateOccasion = NULL WHERE TemplateID = ?"),
                       {m_lngSong}));
    ctlTemplateGallery gallery;
    Group(gallery, QStringLiteral("Occasion"));
    QVERIFY(gallery.tvwTemplates->KeyExists(QStringLiteral("Occasion;0")));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Occasion;0")).Text(),
             QStringLiteral("No Occasion"));
    const VBNode node =
        gallery.tvwTemplates->Nodes(QStringLiteral("Occasion;0;;Template;%1").arg(m_lngSong));
    QCOMPARE(node.Text(),
             QStringLiteral("Tester on ") + VB::Format(QDateTime(QDate(2026, 3, 5), QTime(10, 15)),
                                                       QStringLiteral("Medium Date")));
    QVERIFY(gallery.tvwTemplates->KeyExists(
        QStringLiteral("Occasion;Easter;;Template;%1").arg(m_lngSheet)));
}

void tst_ctlTemplateGallery::
    groupedBySourceTheUserOnesAreUserTemplateWhileTheListSaysUserCreated() {
    ctlTemplateGallery gallery;
    Group(gallery, QStringLiteral("Source"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Source;InBuilt")).Text(),
             QStringLiteral("In Built"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Source;UserTemplate")).Text(),
             QStringLiteral("User Template"));
    QVERIFY(gallery.tvwTemplates->KeyExists(
        QStringLiteral("Source;InBuilt;;Template;%1").arg(m_lngSheet)));
    QVERIFY(gallery.tvwTemplates->KeyExists(
        QStringLiteral("Source;UserTemplate;;Template;%1").arg(m_lngSong)));
    gallery.optShowAsList->setChecked(true);
    QCOMPARE(
        gallery.lvwTemplates->ListItems(QStringLiteral("Template;%1").arg(m_lngSong)).SubItems(3),
        QStringLiteral("User Created"));
    QCOMPARE(
        gallery.lvwTemplates->ListItems(QStringLiteral("Template;%1").arg(m_lngSheet)).SubItems(3),
        QStringLiteral("In Built"));
}

void tst_ctlTemplateGallery::monthAndYearGroupsByTheMonthsFullName() {
    ctlTemplateGallery gallery;
    Group(gallery, QStringLiteral("Month & Year Created"));
    QCOMPARE(gallery.tvwTemplates->Nodes(QStringLiteral("Month & Year Created;March 2026")).Text(),
             QStringLiteral("March 2026"));
    Group(gallery, QStringLiteral("Year Created"));
    QVERIFY(gallery.tvwTemplates->KeyExists(
        QStringLiteral("Year Created;2025;;Template;%1").arg(m_lngSheet)));
}

void tst_ctlTemplateGallery::filterOnDateCreatedContainsComparesTheDateAsText() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateClicked);
    gallery.cboProperty->setCurrentText(QStringLiteral("Date Created"));
    gallery.cboOperator->setCurrentText(QStringLiteral("Contains"));
    gallery.txtCriterion->setText(QStringLiteral("2025"));
    QTRY_VERIFY(gallery.lblFilterState->text() == QStringLiteral("(FILTER ACTIVE)"));
    QTRY_COMPARE(TemplateKeys(gallery).size(), 1);
    QVERIFY(
        TemplateKeys(gallery).first().endsWith(QStringLiteral(";;Template;%1").arg(m_lngSheet)));
    QVERIFY(spy.count() > 0);
    const QList<QVariant> args = spy.last();
    QCOMPARE(args.at(0).toString(), QStringLiteral("All"));
    QCOMPARE(args.at(1).toString(), QStringLiteral("All Templates"));
    QCOMPARE(args.at(2).toString(), QStringLiteral("TemplateDateCreated LIKE '*2025*'"));
    QCOMPARE(args.at(3).toString(), QStringLiteral("Date Created contains the text '2025'"));
    QCOMPARE(args.at(4).toString(), QStringLiteral("TemplatesGroup"));
}

void tst_ctlTemplateGallery::clearingTheCriterionTurnsTheFilterOffAndTellsTheHost() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    gallery.cboProperty->setCurrentText(QStringLiteral("Description"));
    gallery.cboOperator->setCurrentText(QStringLiteral("Starts with"));
    gallery.txtCriterion->setText(QStringLiteral("Song"));
    QTRY_COMPARE(TemplateKeys(gallery).size(), 1);
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateClicked);
    gallery.txtCriterion->clear();
    QTRY_COMPARE(TemplateKeys(gallery).size(), 2);
    QCOMPARE(gallery.lblFilterState->text(), QStringLiteral("(Filter is inactive)"));
    QTRY_VERIFY(spy.count() > 0);
    QCOMPARE(spy.last().at(3).toString(), QStringLiteral("No Filter"));
    QCOMPARE(spy.last().at(2).toString(), QString());
}

void tst_ctlTemplateGallery::clickingATemplateEnablesOpenAndDeleteAndTellsTheHost() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateClicked);
    const VBNode node = gallery.tvwTemplates->Nodes(
        QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(m_lngSheet));
    emit gallery.tvwTemplates->itemClicked(node.Item(), 0);
    QVERIFY(gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->isEnabled());
    QVERIFY(gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->isEnabled());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toString(), QString::number(m_lngSheet));
    QCOMPARE(spy.last().at(1).toString(), QStringLiteral("Service Sheet"));
    QCOMPARE(spy.last().at(4).toString(), QStringLiteral("Template"));
}

void tst_ctlTemplateGallery::clickingTheRootDisablesOpenAndDelete() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateClicked);
    emit gallery.tvwTemplates->itemClicked(
        gallery.tvwTemplates->Nodes(QStringLiteral("Root")).Item(), 0);
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->isEnabled());
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->isEnabled());
    QCOMPARE(spy.last().at(0).toString(), QStringLiteral("All"));
    QCOMPARE(spy.last().at(1).toString(), QStringLiteral("All Templates"));
    QCOMPARE(spy.last().at(4).toString(), QStringLiteral("TemplatesGroup"));
}

void tst_ctlTemplateGallery::aListClickAlwaysDisablesOpenAndDeleteAndReportsTheMissingButton() {
    ctlTemplateGallery gallery;
    gallery.optShowAsList->setChecked(true);
    gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->setEnabled(true);
    gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->setEnabled(true);
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateClicked);
    m_platform->QueueAnswer(vbOK);
    const VBNode item =
        gallery.lvwTemplates->ListItems(QStringLiteral("Template;%1").arg(m_lngSong));
    emit gallery.lvwTemplates->itemClicked(item.Item(), 0);
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->isEnabled());
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->isEnabled());
    QCOMPARE(spy.count(), 0);
    QVERIFY(m_platform->LastBox().Prompt.startsWith(QStringLiteral(
        "QVLTCONTROLS:ctlTemplateGallery:lvwTemplates_ItemClick : Error number is 35601")));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("Error"));
}

void tst_ctlTemplateGallery::wordRunningStopsTheToolbarsNewButTheMenusNewStillCreates() {
    RunningWriter running;
    QVERIFY(running.IsRunning());
    bool blnRunning = false;
    QTRY_VERIFY((DataAccess::Instance().IsWordRunning(blnRunning), blnRunning));
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::NewTemplateAdded);
    m_platform->QueueAnswer(vbOK);
    gallery.Toolbar2->Buttons(QStringLiteral("btnNew"))->trigger();
    QCOMPARE(m_platform->LastBox().Prompt,
             QStringLiteral("Microsoft Word is running on your computer. You cannot create a new "
                            "template until you close it. If you cannot see that Microsoft Word "
                            "is running then you need to restart your computer"));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("Word is running"));
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 2);
    QCOMPARE(spy.count(), 0);

    gallery.mnuRightCLickNew->trigger();
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 3);
    gallery.mnuRightClickTypeNew->trigger();
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 4);
    // The menus neither reload nor announce.
    QCOMPARE(TemplateKeys(gallery).size(), 2);
    QCOMPARE(spy.count(), 0);
}

void tst_ctlTemplateGallery::toolbarNewCreatesSelectsAndAnnouncesTheTemplate() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::NewTemplateAdded);
    gallery.Toolbar2->Buttons(QStringLiteral("btnNew"))->trigger();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(spy.count(), 1);
    const qint32 lngNew = spy.last().at(0).toInt();
    QVERIFY(lngNew > m_lngSong);
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 3);
    QCOMPARE(TemplateKeys(gallery).size(), 3);
    QVERIFY(gallery.SelectedItemKey().endsWith(QStringLiteral(";;Template;%1").arg(lngNew)));
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    QCOMPARE(m_platform->ShellCalls().first().File, m_writer->Program());
    const QString strFile =
        m_db->Scalar(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE TemplateID = ?"),
                     {lngNew})
            .toString();
    QVERIFY(QFile::exists(strFile));
    QVERIFY(m_platform->ShellCalls().first().Params.contains(strFile));
}

void tst_ctlTemplateGallery::toolbarNewWithoutWriterSaysSoAndCreatesNothing() {
    m_writer.reset();
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray("/nonexistent"));
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    m_platform->QueueAnswer(vbOK);
    gallery.Toolbar2->Buttons(QStringLiteral("btnNew"))->trigger();
    qputenv("PATH", oldPath);
    QVERIFY(m_platform->LastBox().Prompt.startsWith(
        QStringLiteral("ctlTemplateGallery:Toolbar2_ButtonClick:")));
    QVERIFY(m_platform->LastBox().Prompt.contains(QStringLiteral("LibreOffice Writer")));
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 2);
}

void tst_ctlTemplateGallery::doubleClickOpensTheDocumentInWriter() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    QSignalSpy spy(&gallery, &ctlTemplateGallery::TemplateDblClicked);
    const VBNode node = gallery.tvwTemplates->Nodes(
        QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(m_lngSheet));
    gallery.tvwTemplates->setSelectedItem(node);
    emit gallery.tvwTemplates->itemDoubleClicked(node.Item(), 0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toInt(), m_lngSheet);
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    // A template without a document gets the starting document.
    const QString strFile =
        m_db->Scalar(QStringLiteral("SELECT TemplateFilename FROM Templates WHERE TemplateID = ?"),
                     {m_lngSheet})
            .toString();
    QVERIFY(QFile::exists(strFile));
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlTemplateGallery::aMissingDocumentIsReportedAfterTheHandlersName() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET TemplateFilename = ? WHERE "
                                      "TemplateID = ?"),
                       {m_db->Folder() + QStringLiteral("/gone.fott"), m_lngSheet}));
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    const VBNode node = gallery.tvwTemplates->Nodes(
        QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(m_lngSheet));
    gallery.tvwTemplates->setSelectedItem(node);
    m_platform->QueueAnswer(vbOK);
    gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->trigger();
    QVERIFY(m_platform->LastBox().Prompt.startsWith(
        QStringLiteral("QVLTCONTROLS:ctlTemplateGallery:Toolbar2_ButtonClick:")));
    QVERIFY(m_platform->LastBox().Prompt.contains(QStringLiteral("gone.fott")));
    QCOMPARE(m_platform->ShellCalls().size(), 0);
}

void tst_ctlTemplateGallery::deleteAsksAndNoKeepsTheTemplate() {
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    m_platform->QueueAnswer(vbNo);
    gallery.DeleteATemplate(m_lngSong);
    QCOMPARE(m_platform->LastBox().Prompt,
             QStringLiteral("Are you sure you want to delete this Template from your system? "
                            "This command cannot be undone."));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("Confirm Delete"));
    QCOMPARE(m_platform->LastBox().Buttons, vbYesNoCancel | vbQuestion | vbDefaultButton2);
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 2);
}

void tst_ctlTemplateGallery::deletingTheLastTemplateLeavesTheRootAndDisablesOpenAndDelete() {
    QVERIFY(m_db->Exec(QStringLiteral("DELETE FROM Templates WHERE TemplateID = ?"), {m_lngSheet}));
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    const VBNode node = gallery.tvwTemplates->Nodes(
        QStringLiteral("Type;ServiceItemTemplate;;Template;%1").arg(m_lngSong));
    emit gallery.tvwTemplates->itemClicked(node.Item(), 0);
    gallery.tvwTemplates->setSelectedItem(node);
    QVERIFY(gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->isEnabled());
    m_platform->QueueAnswer(vbYes);
    gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->trigger();
    QCOMPARE(m_db->Count(QStringLiteral("Templates")), 0);
    QCOMPARE(gallery.tvwTemplates->Count(), 1);
    QCOMPARE(gallery.SelectedItemKey(), QStringLiteral("Root"));
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnOpen"))->isEnabled());
    QVERIFY(!gallery.Toolbar2->Buttons(QStringLiteral("btnDelete"))->isEnabled());
}

void tst_ctlTemplateGallery::deleteLandsOnTheNeighbour() {
    const qint32 lngThird = m_db->AddTemplate(QStringLiteral("Another Sheet"), true);
    QVERIFY(lngThird > 0);
    ctlTemplateGallery gallery;
    gallery.ShowTemplates();
    const QString strThird = QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(lngThird);
    gallery.tvwTemplates->setSelectedItem(gallery.tvwTemplates->Nodes(strThird));
    m_platform->QueueAnswer(vbYes);
    gallery.mnuTemplateDelete->trigger();
    QVERIFY(!gallery.tvwTemplates->KeyExists(strThird));
    QCOMPARE(gallery.SelectedItemKey(),
             QStringLiteral("Type;ServiceTemplate;;Template;%1").arg(m_lngSheet));
}

void tst_ctlTemplateGallery::helpSendsF1() {
    ctlTemplateGallery gallery;
    gallery.Toolbar2->Buttons(QStringLiteral("btnHelp"))->trigger();
    QCOMPARE(m_platform->SentKeys(), QStringList({QStringLiteral("{F1}")}));
}

QTEST_MAIN(tst_ctlTemplateGallery)
#include "tst_ctlTemplateGallery.moc"
