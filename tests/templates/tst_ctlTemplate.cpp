// The template editor: showing a template, its caption rules, the save through
// the editor cycle, the in-built label and the one open per display.
#include "DataAccess.h"
#include "FakeWriter.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "templates/ctlTemplate.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>

class tst_ctlTemplate : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void theControlHasTheSingleGeneralDetailsTab();
    void itemsThatAreNoNumberShowTheMessageWithoutReadingTheStore();
    void aMissingTemplateIsReportedAsATemplateItem();
    void aNullDescriptionMakesTheCaptionAuthorCommaAndDate();
    void aGivenDescriptionIsTheCaption();
    void theWidgetsShowTheFieldsAndLoadClean();
    void anInBuiltTemplateIsEditedAndSavedLikeAnyOther();
    void openTemplateCanBePressedOnceUntilShownAgain();
    void aFailedOpenIsShownAfterTheHandlersName();
    void doubleAtSignsInTheDescriptionPassThroughTheTextConversion();
    void anApostropheIsStoredInItsStoredForm();
    void anEmptyDescriptionIsSaved();
    void typingRaisesTheFlagAndEnablesApply();
    void canUnloadAsksAndNoKeepsTheChanges();
    void canUnloadSavesOnYes();
    void noUpdateEventFollowsASave();
    void clickingTheTabDiscardsEditsButKeepsTheButton();
    void openingAnInBuiltTemplateOpensItsCopyInTheDataFolder();

private:
    QVariant Field(qint32 id, const char* field) const;
    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<ScriptedPlatform> m_platform;
    qint32 m_lngTemplate = 0;
};

void tst_ctlTemplate::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
    m_platform = std::make_unique<ScriptedPlatform>();
    m_lngTemplate =
        m_db->AddTemplate(QStringLiteral("Order of Service"), true, QStringLiteral("Easter"));
    QVERIFY(m_lngTemplate > 0);
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET TemplateNotes = 'Two columns', "
                                      "TemplateDateCreated = '2026-03-05 10:15:00' "
                                      "WHERE TemplateID = ?"),
                       {m_lngTemplate}));
}

void tst_ctlTemplate::cleanup() {
    m_platform.reset();
    m_db.reset();
}

QVariant tst_ctlTemplate::Field(qint32 id, const char* field) const {
    return m_db->Scalar(
        QStringLiteral("SELECT %1 FROM Templates WHERE TemplateID = ?").arg(QLatin1String(field)),
        {id});
}

void tst_ctlTemplate::theControlHasTheSingleGeneralDetailsTab() {
    ctlTemplate editor;
    QCOMPARE(editor.SSTab1->count(), 1);
    QCOMPARE(editor.SSTab1->tabText(0), QStringLiteral("General Details"));
    QCOMPARE(editor.Description(), QStringLiteral("TemplateControl"));
    QCOMPARE(editor.cmdOpenTemplate->text(), QStringLiteral("&Open Template"));
    QCOMPARE(editor.cmdApplyChanges->text(), QStringLiteral("&Apply Changes"));
}

void tst_ctlTemplate::itemsThatAreNoNumberShowTheMessageWithoutReadingTheStore() {
    ctlTemplate editor;
    editor.setItems(QStringLiteral("abc"));
    m_platform->QueueAnswer(vbOK);
    editor.ShowProperties();
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt, QStringLiteral("Cannot display Template: abc"));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("System Error"));
    // Nothing was read or marked as shown.
    QCOMPARE(m_db->Count(QStringLiteral("StoreState"), QStringLiteral("StateKey = ?"),
                         {QStringLiteral("LastShownTemplateID")}),
             0);
    QVERIFY(editor.txtTemplateDescription->text().isEmpty());
    QVERIFY(editor.lblMainCaption->text().isEmpty());
}

void tst_ctlTemplate::aMissingTemplateIsReportedAsATemplateItem() {
    ctlTemplate editor;
    editor.setItems(QStringLiteral("999"));
    m_platform->QueueAnswer(vbOK);
    editor.ShowProperties();
    QCOMPARE(m_platform->LastBox().Prompt, QStringLiteral("Template Item: 999 does not exist"));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("System Error"));
}

void tst_ctlTemplate::aNullDescriptionMakesTheCaptionAuthorCommaAndDate() {
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Templates SET TemplateDescription = NULL WHERE TemplateID = ?"),
        {m_lngTemplate}));
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    const QString strDate = VB::Text(QVariant(QDateTime(QDate(2026, 3, 5), QTime(10, 15))));
    QCOMPARE(editor.lblMainCaption->text(), QStringLiteral("Tester ,") + strDate);
    QVERIFY(editor.lblMainCaption->text().startsWith(QStringLiteral("Tester ,")));
    QVERIFY(editor.txtTemplateDescription->text().isEmpty());
}

void tst_ctlTemplate::aGivenDescriptionIsTheCaption() {
    ctlTemplate editor;
    editor.setDescription(QStringLiteral("Chosen in the gallery"));
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QCOMPARE(editor.lblMainCaption->text(), QStringLiteral("Chosen in the gallery"));
}

void tst_ctlTemplate::theWidgetsShowTheFieldsAndLoadClean() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QCOMPARE(editor.lblMainCaption->text(), QStringLiteral("Order of Service"));
    QCOMPARE(editor.txtTemplateDescription->text(), QStringLiteral("Order of Service"));
    QCOMPARE(editor.cboOccasion->currentText(), QStringLiteral("Easter"));
    QCOMPARE(editor.txtNotes->toPlainText(), QStringLiteral("Two columns"));
    QCOMPARE(editor.lblSource->text(), QStringLiteral("User Created"));
    QCOMPARE(editor.lblType->text(), QStringLiteral("Service Template"));
    QCOMPARE(editor.lblAuthor->text(), QStringLiteral("Tester"));
    QCOMPARE(
        editor.lblTemplateDateCreated->text(),
        VB::Format(QDateTime(QDate(2026, 3, 5), QTime(10, 15)), QStringLiteral("Medium Date")));
    QVERIFY(!editor.IsGeneralDirty());
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    QCOMPARE(m_platform->BoxCount(), 0);
}

void tst_ctlTemplate::anInBuiltTemplateIsEditedAndSavedLikeAnyOther() {
    QVERIFY(m_db->Exec(QStringLiteral("UPDATE Templates SET IsInBuilt = 1, IsServiceTemplate = 0 "
                                      "WHERE TemplateID = ?"),
                       {m_lngTemplate}));
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QCOMPARE(editor.lblSource->text(), QStringLiteral("In Built"));
    QCOMPARE(editor.lblType->text(), QStringLiteral("Service Item Template"));
    QVERIFY(editor.txtTemplateDescription->isEnabled());
    editor.txtTemplateDescription->setText(QStringLiteral("Song Sheet"));
    editor.txtNotes->setPlainText(QStringLiteral("Large print"));
    QVERIFY(editor.cmdApplyChanges->isEnabled());
    editor.cmdApplyChanges->click();
    QCOMPARE(Field(m_lngTemplate, "TemplateDescription").toString(), QStringLiteral("Song Sheet"));
    QCOMPARE(Field(m_lngTemplate, "TemplateNotes").toString(), QStringLiteral("Large print"));
    QCOMPARE(Field(m_lngTemplate, "IsInBuilt").toInt(), 1);
    QCOMPARE(Field(m_lngTemplate, "IsServiceTemplate").toInt(), 0);
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    QVERIFY(!editor.IsGeneralDirty());
}

void tst_ctlTemplate::openTemplateCanBePressedOnceUntilShownAgain() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QVERIFY(editor.cmdOpenTemplate->isEnabled());
    m_platform->SetDefaultAnswer(vbOK); // whatever the word processor answers
    editor.cmdOpenTemplate->click();
    QVERIFY(!editor.cmdOpenTemplate->isEnabled());
    const qint32 lngBoxes = m_platform->BoxCount();
    const qint32 lngShells = static_cast<qint32>(m_platform->ShellCalls().size());
    editor.cmdOpenTemplate->click(); // a disabled button does not press
    QCOMPARE(m_platform->BoxCount(), lngBoxes);
    QCOMPARE(static_cast<qint32>(m_platform->ShellCalls().size()), lngShells);
    editor.ShowProperties();
    QVERIFY(editor.cmdOpenTemplate->isEnabled());
}

void tst_ctlTemplate::aFailedOpenIsShownAfterTheHandlersName() {
    ctlTemplate editor;
    editor.setItems(QStringLiteral("999"));
    m_platform->QueueAnswer(vbOK); // "Template Item: 999 does not exist"
    editor.ShowProperties();
    m_platform->QueueAnswer(vbOK);
    editor.cmdOpenTemplate->click();
    QVERIFY(m_platform->LastBox().Prompt.startsWith(QStringLiteral("cmdOpenTemplate_Click:")));
    QVERIFY(m_platform->LastBox().Prompt.size() > QStringLiteral("cmdOpenTemplate_Click:").size());
}

void tst_ctlTemplate::doubleAtSignsInTheDescriptionPassThroughTheTextConversion() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    const QString strTyped = QStringLiteral("St Peter@@s Day");
    editor.txtTemplateDescription->setText(strTyped);
    editor.cmdApplyChanges->click();
    QString strErr, strExpected;
    DataAccess::Instance().DecodeStoredText(strTyped, strErr, strExpected);
    QCOMPARE(Field(m_lngTemplate, "TemplateDescription").toString(), strExpected);
    QVERIFY(!strExpected.contains(QStringLiteral("@@")));
}

void tst_ctlTemplate::anApostropheIsStoredInItsStoredForm() {
    QVERIFY(m_db->Exec(
        QStringLiteral("UPDATE Templates SET TemplateDescription = ? WHERE TemplateID = ?"),
        {QStringLiteral("Harvest@@s Sheet"), m_lngTemplate}));
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QCOMPARE(editor.txtTemplateDescription->text(), QStringLiteral("Harvest's Sheet"));
    QCOMPARE(editor.lblMainCaption->text(), QStringLiteral("Harvest's Sheet"));
    editor.MakeControlDirty();
    editor.cmdApplyChanges->click();
    QCOMPARE(Field(m_lngTemplate, "TemplateDescription").toString(),
             QStringLiteral("Harvest@@s Sheet"));
}

void tst_ctlTemplate::anEmptyDescriptionIsSaved() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    editor.txtTemplateDescription->clear();
    editor.cmdApplyChanges->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(Field(m_lngTemplate, "TemplateDescription").isNull());
}

void tst_ctlTemplate::typingRaisesTheFlagAndEnablesApply() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    QTest::keyClicks(editor.txtNotes, QStringLiteral("x"));
    QVERIFY(editor.IsGeneralDirty());
    QVERIFY(editor.cmdApplyChanges->isEnabled());
}

void tst_ctlTemplate::canUnloadAsksAndNoKeepsTheChanges() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    editor.cboOccasion->setEditText(QStringLiteral("Harvest"));
    m_platform->QueueAnswer(vbNo);
    QVERIFY(editor.CanUnload());
    QCOMPARE(m_platform->LastBox().Prompt,
             QStringLiteral("The contents of this Template have changed, do you want to save "
                            "the changes"));
    QCOMPARE(m_platform->LastBox().Title, QStringLiteral("Save Changes?"));
    QCOMPARE(Field(m_lngTemplate, "TemplateOccasion").toString(), QStringLiteral("Easter"));
    QVERIFY(editor.IsGeneralDirty());
}

void tst_ctlTemplate::canUnloadSavesOnYes() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    editor.cboOccasion->setEditText(QStringLiteral("Harvest"));
    m_platform->QueueAnswer(vbYes);
    QVERIFY(editor.CanUnload());
    QCOMPARE(Field(m_lngTemplate, "TemplateOccasion").toString(), QStringLiteral("Harvest"));
    QVERIFY(!editor.IsGeneralDirty());
}

void tst_ctlTemplate::noUpdateEventFollowsASave() {
    ctlTemplate editor;
    QSignalSpy spy(&editor, &ctlTemplate::TemplateUpdated);
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    editor.txtTemplateDescription->setText(QStringLiteral("New words"));
    editor.cmdApplyChanges->click();
    QCOMPARE(Field(m_lngTemplate, "TemplateDescription").toString(), QStringLiteral("New words"));
    QCOMPARE(spy.count(), 0);
}

void tst_ctlTemplate::clickingTheTabDiscardsEditsButKeepsTheButton() {
    ctlTemplate editor;
    editor.setItems(QString::number(m_lngTemplate));
    editor.ShowProperties();
    editor.txtTemplateDescription->setText(QStringLiteral("Unsaved"));
    QVERIFY(editor.cmdApplyChanges->isEnabled());
    emit editor.SSTab1->tabBarClicked(0);
    QCOMPARE(editor.txtTemplateDescription->text(), QStringLiteral("Order of Service"));
    QVERIFY(!editor.IsGeneralDirty());
    QVERIFY(editor.cmdApplyChanges->isEnabled());
}

void tst_ctlTemplate::openingAnInBuiltTemplateOpensItsCopyInTheDataFolder() {
    TestDatabase db(TestDatabase::WithInBuiltTemplates);
    FakeWriter writer;
    QVERIFY(writer.IsValid());
    const qint32 lngID = db.Scalar(QStringLiteral("SELECT TemplateID FROM Templates WHERE "
                                                  "TemplateFilename = 'ServiceSheet.fodt'"))
                             .toInt();
    ctlTemplate editor;
    editor.setItems(QString::number(lngID));
    editor.ShowProperties();
    QCOMPARE(editor.lblSource->text(), QStringLiteral("In Built"));
    editor.cmdOpenTemplate->click();
    QCOMPARE(m_platform->BoxCount(), 0);
    QCOMPARE(m_platform->ShellCalls().size(), 1);
    QCOMPARE(m_platform->ShellCalls().first().Params,
             QStringLiteral("\"%1/Templates/ServiceSheet.fodt\"").arg(db.Folder()));
}

QTEST_MAIN(tst_ctlTemplate)
#include "tst_ctlTemplate.moc"
