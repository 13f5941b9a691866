// The frame every control shares with its host: Description words, ViewMode,
// and the editors' dirty flag and save cycle (CleanControl, SaveChanges,
// CanUnload), shown on a small editor built the way the controls are.
#include "ScriptedPlatform.h"
#include "foundations/ControlFrame.h"
#include "foundations/DirtyFlag.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {
// An editor with one text box: changes raise the dirty flag, CanUnload offers
// the save, SaveChanges stores the text and raises ItemUpdated.
class ctlTestEditor : public QWidget {
    Q_OBJECT
    Q_PROPERTY(ViewMode ViewMode READ GetViewMode WRITE setViewMode)
    Q_PROPERTY(QString Description READ Description)
public:
    explicit ctlTestEditor(QWidget* parent = nullptr) : QWidget(parent) {
        auto* layout = new QVBoxLayout(this);
        txtName = new QLineEdit(this);
        txtName->setObjectName(QStringLiteral("txtName"));
        cmdApplyChanges = new QPushButton(QStringLiteral("Apply"), this);
        cmdApplyChanges->setObjectName(QStringLiteral("cmdApplyChanges"));
        cmdApplyChanges->setEnabled(false);
        layout->addWidget(txtName);
        layout->addWidget(cmdApplyChanges);
        connect(txtName, &QLineEdit::textChanged, this, &ctlTestEditor::txtName_Change);
        connect(cmdApplyChanges, &QPushButton::clicked, this,
                &ctlTestEditor::cmdApplyChanges_Click);
    }

    QString Description() const { return QStringLiteral("TestControl"); }
    ::ViewMode GetViewMode() const { return m_mode; }
    void setViewMode(::ViewMode mode) { m_mode = mode; }

    void ShowProperties(const QString& strStored) {
        DirtyFlag::Keep keep(m_dirty);
        txtName->setText(strStored);
    }
    bool CanUnload() {
        CleanControl(true);
        return true;
    }
    bool IsDirty() const { return m_dirty.IsSet(); }

    QLineEdit* txtName = nullptr;
    QPushButton* cmdApplyChanges = nullptr;
    QString stored;

signals:
    void ItemUpdated();

private:
    void CleanControl(bool blnChangingToOtherControl) {
        SaveCycle::CleanControl(m_dirty, QStringLiteral("Do you want to save your changes?"),
                                [&] { SaveChanges(blnChangingToOtherControl); });
    }
    void SaveChanges(bool) {
        if (!m_dirty.IsSet())
            return;
        stored = txtName->text();
        m_dirty.Clear();
        cmdApplyChanges->setEnabled(false);
        emit ItemUpdated();
    }
    void MakeControlDirty() { cmdApplyChanges->setEnabled(true); }
    void txtName_Change() {
        m_dirty.Set();
        MakeControlDirty();
    }
    void cmdApplyChanges_Click() { SaveChanges(false); }

    DirtyFlag m_dirty;
    ::ViewMode m_mode = vmEdit;
};
} // namespace

class tst_ControlFrame : public QObject {
    Q_OBJECT
private slots:
    void canUnloadReturnsTrueAlsoWhenUserAnswersNo();
    void answeringNoAsksAgainNextTime();
    void answeringYesSavesClearsFlagAndRaisesUpdate();
    void cleanControlAsksNothingWhenClean();
    void loadingWidgetsKeepsTheDirtyFlag();
    void applyChangesSavesWithoutAsking();
    void viewModeValuesAndProperty();
    void descriptionWordsOfTheControls();
};

void tst_ControlFrame::canUnloadReturnsTrueAlsoWhenUserAnswersNo() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    editor.ShowProperties(QStringLiteral("Amazing Grace"));
    editor.txtName->setText(QStringLiteral("Amazing Grace (new tune)"));
    QVERIFY(editor.IsDirty());
    platform.QueueAnswer(vbNo);
    QSignalSpy updated(&editor, SIGNAL(ItemUpdated()));
    QVERIFY(editor.CanUnload());
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Do you want to save your changes?"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Save Changes?"));
    QCOMPARE(platform.LastBox().Buttons & 0x7, vbYesNo);
    QCOMPARE(updated.count(), 0);
    QVERIFY(editor.stored.isEmpty());
    QVERIFY(editor.IsDirty());
}

void tst_ControlFrame::answeringNoAsksAgainNextTime() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    editor.txtName->setText(QStringLiteral("changed"));
    platform.QueueAnswer(vbNo);
    platform.QueueAnswer(vbNo);
    QVERIFY(editor.CanUnload());
    QVERIFY(editor.CanUnload());
    QCOMPARE(platform.BoxCount(), 2);
}

void tst_ControlFrame::answeringYesSavesClearsFlagAndRaisesUpdate() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    editor.txtName->setText(QStringLiteral("How Great Thou Art"));
    QVERIFY(editor.cmdApplyChanges->isEnabled());
    QSignalSpy updated(&editor, SIGNAL(ItemUpdated()));
    platform.QueueAnswer(vbYes);
    QVERIFY(editor.CanUnload());
    QCOMPARE(editor.stored, QStringLiteral("How Great Thou Art"));
    QVERIFY(!editor.IsDirty());
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    QCOMPARE(updated.count(), 1);
    // Clean now: leaving again asks nothing.
    QVERIFY(editor.CanUnload());
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ControlFrame::cleanControlAsksNothingWhenClean() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    QVERIFY(editor.CanUnload());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ControlFrame::loadingWidgetsKeepsTheDirtyFlag() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    editor.ShowProperties(QStringLiteral("Be Thou My Vision"));
    QVERIFY(!editor.IsDirty());
    QCOMPARE(editor.txtName->text(), QStringLiteral("Be Thou My Vision"));
    QVERIFY(editor.CanUnload());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ControlFrame::applyChangesSavesWithoutAsking() {
    ScriptedPlatform platform;
    ctlTestEditor editor;
    editor.txtName->setText(QStringLiteral("Abide With Me"));
    editor.cmdApplyChanges->click();
    QCOMPARE(editor.stored, QStringLiteral("Abide With Me"));
    QVERIFY(!editor.IsDirty());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_ControlFrame::viewModeValuesAndProperty() {
    QCOMPARE(static_cast<int>(vmEdit), 0);
    QCOMPARE(static_cast<int>(vmRead), 1);
    ctlTestEditor editor;
    QVERIFY(editor.setProperty("ViewMode", 1));
    QCOMPARE(editor.GetViewMode(), vmRead);
    QCOMPARE(editor.property("Description").toString(), QStringLiteral("TestControl"));
}

void tst_ControlFrame::descriptionWordsOfTheControls() {
    using namespace ControlDescriptions;
    QCOMPARE(QString(ctlOptions), QStringLiteral("OptionsControl"));
    QCOMPARE(QString(ctlRun), QStringLiteral("RunControl"));
    QCOMPARE(QString(ctlService), QStringLiteral("ServiceControl"));
    QCOMPARE(QString(ctlServiceGallery), QStringLiteral("ServiceGalleryControl"));
    QCOMPARE(QString(ctlServiceItem), QStringLiteral("ServiceItemControl"));
    QCOMPARE(QString(ctlServiceItemGallery), QStringLiteral("ServiceItemGalleryControl"));
    QCOMPARE(QString(ctlServiceItems), QStringLiteral("ServiceitemsControl"));
    QCOMPARE(QString(ctlServices), QStringLiteral("ServicesControl"));
    QCOMPARE(QString(ctlShortList), QStringLiteral("ShortListControl"));
    QCOMPARE(QString(ctlShortListGallery), QStringLiteral("ShortListGalleryControl"));
    QCOMPARE(QString(ctlTemplate), QStringLiteral("TemplateControl"));
    QCOMPARE(QString(ctlTemplateGallery), QStringLiteral("TemplateGalleryControl"));
    QCOMPARE(QString(ctlTemplates), QStringLiteral("TemplatesControl"));
}

QTEST_MAIN(tst_ControlFrame)
#include "tst_ControlFrame.moc"
