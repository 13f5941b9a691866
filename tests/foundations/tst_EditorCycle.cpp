// The editors' edit-and-save cycle: a dirty flag per tab raised by the input
// widgets' change signals, kept while code fills a tab, the apply button, the
// save question and its answers, the lost-focus event and the update event.
#include "ScriptedPlatform.h"
#include "foundations/EditorCycle.h"
#include "foundations/Unloadable.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {
// An editor with two tabs: a name on the general tab, notes on the second.
class ctlTwoTabEditor : public QWidget, public Unloadable {
    Q_OBJECT
public:
    explicit ctlTwoTabEditor(QWidget* parent = nullptr) : QWidget(parent) {
        auto* layout = new QVBoxLayout(this);
        txtName = new QLineEdit(this);
        txtNotes = new QTextEdit(this);
        cmdApplyChanges = new QPushButton(QStringLiteral("Apply"), this);
        cmdApplyChanges->setEnabled(false);
        layout->addWidget(txtName);
        layout->addWidget(txtNotes);
        layout->addWidget(cmdApplyChanges);
        cycle = new EditorCycle(this, QStringLiteral("The contents of this thing has changed"), 2);
        cycle->SetApplyButton(cmdApplyChanges);
        cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
        cycle->Watch(txtName, 0);
        cycle->Watch(txtNotes, 1);
    }

    void ShowProperties(const QString& strName, const QString& strNotes) {
        EditorCycle::Loading loading(*cycle);
        txtName->setText(strName);
        txtNotes->setPlainText(strNotes);
    }
    bool CanUnload() override { return cycle->CanUnload(); }

    void SaveChanges(bool blnChangingToOtherControl) {
        saves.append(blnChangingToOtherControl);
        storedName = txtName->text();
        cycle->ClearAll();
        cycle->FinishSave(blnChangingToOtherControl);
    }

    QLineEdit* txtName = nullptr;
    QTextEdit* txtNotes = nullptr;
    QPushButton* cmdApplyChanges = nullptr;
    EditorCycle* cycle = nullptr;
    QList<bool> saves;
    QString storedName;
};

// A widget whose change is a signal of its own, with arguments.
class ctlColourWell : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    void Pick(qint32 lngColour) { emit ColourPicked(lngColour, QStringLiteral("user")); }
signals:
    void ColourPicked(qint32 lngColour, const QString& strWho);
};
} // namespace

class tst_EditorCycle : public QObject {
    Q_OBJECT
private slots:
    void aChangeRaisesOnlyTheFlagOfItsTab();
    void everyKindOfInputWidgetRaisesTheFlag();
    void aNamedChangeSignalRaisesTheFlag();
    void aWidgetWithoutChangeSignalIsRefused();
    void watchingAPageWatchesItsInputWidgetsOnly();
    void makeControlDirtyEnablesTheApplyButton();
    void fillingByCodeKeepsACleanEditorClean();
    void fillingByCodeKeepsADirtyEditorDirty();
    void cleanControlAsksNothingWhenNoFlagIsSet();
    void cleanControlAsksTheControlsQuestion();
    void answeringNoLeavesTheFlagsSoTheQuestionComesAgain();
    void answeringYesRunsSaveChangesWithTheArgument();
    void canUnloadReturnsTrueAlsoWhenTheUserAnswersNo();
    void canUnloadSavesWhenTheUserAnswersYes();
    void theUpdateEventIsRaisedOnlyBehindItsGuard();
    void theCycleIsFoundOnItsControl();
    void focusLeavingTheControlRaisesLostFocus();
    void focusMovingInsideTheControlIsNotLeavingIt();
    void focusLostWhileTheQuestionIsAskedIsNotCounted();
    void focusGoingToAnotherWindowIsNotLeaving();
    void focusGoingToTheControlsOwnPopupIsNotLeaving();
};

void tst_EditorCycle::aChangeRaisesOnlyTheFlagOfItsTab() {
    ctlTwoTabEditor editor;
    editor.txtNotes->setPlainText(QStringLiteral("Bring the banner"));
    QVERIFY(!editor.cycle->IsDirty(0));
    QVERIFY(editor.cycle->IsDirty(1));
    QVERIFY(editor.cycle->IsAnyDirty());
    editor.cycle->Clear(1);
    editor.txtName->setText(QStringLiteral("Harvest"));
    QVERIFY(editor.cycle->IsDirty(0));
    QVERIFY(!editor.cycle->IsDirty(1));
}

void tst_EditorCycle::everyKindOfInputWidgetRaisesTheFlag() {
    QWidget page;
    EditorCycle cycle(&page, QStringLiteral("Save?"));
    auto* txt = new QLineEdit(&page);
    auto* rtf = new QTextEdit(&page);
    auto* cbo = new QComboBox(&page);
    cbo->addItems({QStringLiteral("a"), QStringLiteral("b")});
    auto* cboEdit = new QComboBox(&page);
    cboEdit->setEditable(true);
    auto* chk = new QCheckBox(&page);
    auto* opt = new QRadioButton(&page);
    auto* spin = new QSpinBox(&page);
    auto* dtp = new QDateEdit(QDate(2026, 1, 1), &page);
    auto* fg = new QTableWidget(2, 2, &page);
    const QList<std::pair<QWidget*, std::function<void()>>> cases = {
        {txt, [&] { txt->setText(QStringLiteral("x")); }},
        {rtf, [&] { rtf->setPlainText(QStringLiteral("x")); }},
        {cbo, [&] { cbo->setCurrentIndex(1); }},
        {cboEdit, [&] { cboEdit->setEditText(QStringLiteral("typed")); }},
        {chk, [&] { chk->setChecked(true); }},
        {opt, [&] { opt->setChecked(true); }},
        {spin, [&] { spin->setValue(5); }},
        {dtp, [&] { dtp->setDate(QDate(2026, 2, 2)); }},
        {fg, [&] { fg->setItem(1, 1, new QTableWidgetItem(QStringLiteral("x"))); }},
    };
    for (const auto& [widget, change] : cases) {
        QVERIFY2(cycle.Watch(widget, 0), widget->metaObject()->className());
        cycle.ClearAll();
        change();
        QVERIFY2(cycle.IsDirty(0), widget->metaObject()->className());
    }
}

void tst_EditorCycle::aNamedChangeSignalRaisesTheFlag() {
    QWidget page;
    EditorCycle cycle(&page, QStringLiteral("Save?"), 3);
    ctlColourWell well(&page);
    QVERIFY(cycle.WatchSignal(&well, "ColourPicked", 2));
    QVERIFY(!cycle.WatchSignal(&well, "NoSuchSignal", 2));
    well.Pick(255);
    QVERIFY(cycle.IsDirty(2));
    QVERIFY(!cycle.IsDirty(0));

    // A widget outside the known kinds is watched through its user property.
    QSlider slider(&page);
    cycle.ClearAll();
    QVERIFY(cycle.Watch(&slider, 1));
    slider.setValue(10);
    QVERIFY(cycle.IsDirty(1));
}

void tst_EditorCycle::aWidgetWithoutChangeSignalIsRefused() {
    QWidget page;
    EditorCycle cycle(&page, QStringLiteral("Save?"));
    QPushButton cmd(&page);
    QVERIFY(!cycle.Watch(&cmd, 0));
    QLabel lbl(&page);
    QVERIFY(!cycle.Watch(&lbl, 0));
    QVERIFY(!cycle.Watch(nullptr, 0));
}

void tst_EditorCycle::watchingAPageWatchesItsInputWidgetsOnly() {
    QWidget control;
    EditorCycle cycle(&control, QStringLiteral("Save?"), 2);
    QWidget page(&control);
    auto* txt = new QLineEdit(&page);
    auto* cbo = new QComboBox(&page);
    cbo->setEditable(true);
    auto* cmd = new QPushButton(&page);
    QCOMPARE(cycle.WatchChildren(&page, 1), 2);
    cmd->click();
    QVERIFY(!cycle.IsAnyDirty());
    cbo->setEditText(QStringLiteral("x"));
    QVERIFY(cycle.IsDirty(1));
    cycle.ClearAll();
    txt->setText(QStringLiteral("y"));
    QVERIFY(cycle.IsDirty(1));
}

void tst_EditorCycle::makeControlDirtyEnablesTheApplyButton() {
    ctlTwoTabEditor editor;
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    editor.cycle->MakeControlDirty();
    QVERIFY(editor.cmdApplyChanges->isEnabled());

    ctlTwoTabEditor typed;
    typed.txtName->setText(QStringLiteral("x"));
    QVERIFY(typed.cmdApplyChanges->isEnabled());
}

void tst_EditorCycle::fillingByCodeKeepsACleanEditorClean() {
    ctlTwoTabEditor editor;
    QSignalSpy changes(editor.cycle, &EditorCycle::TabChanged);
    editor.ShowProperties(QStringLiteral("Advent"), QStringLiteral("Candles"));
    QVERIFY(changes.count() >= 2); // the widgets did raise their change signals
    QVERIFY(!editor.cycle->IsAnyDirty());
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    QVERIFY(!editor.cycle->IsLoading());
}

void tst_EditorCycle::fillingByCodeKeepsADirtyEditorDirty() {
    ctlTwoTabEditor editor;
    editor.txtNotes->setPlainText(QStringLiteral("typed by the user"));
    editor.ShowProperties(QStringLiteral("Advent"), QStringLiteral("Candles"));
    QVERIFY(!editor.cycle->IsDirty(0));
    QVERIFY(editor.cycle->IsDirty(1));
    QVERIFY(editor.cmdApplyChanges->isEnabled());
}

void tst_EditorCycle::cleanControlAsksNothingWhenNoFlagIsSet() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    QCOMPARE(editor.cycle->CleanControl(true), 0);
    QCOMPARE(platform.BoxCount(), 0);
    QVERIFY(editor.saves.isEmpty());
}

void tst_EditorCycle::cleanControlAsksTheControlsQuestion() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    editor.txtNotes->setPlainText(QStringLiteral("x"));
    platform.QueueAnswer(vbNo);
    QCOMPARE(editor.cycle->CleanControl(false), vbNo);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("The contents of this thing has changed"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Save Changes?"));
    QCOMPARE(platform.LastBox().Buttons, vbYesNo);
}

void tst_EditorCycle::answeringNoLeavesTheFlagsSoTheQuestionComesAgain() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    editor.txtName->setText(QStringLiteral("Lent"));
    platform.QueueAnswer(vbNo);
    editor.cycle->CleanControl(true);
    QVERIFY(editor.saves.isEmpty());
    QVERIFY(editor.cycle->IsDirty(0));
    QVERIFY(editor.cmdApplyChanges->isEnabled());
    platform.QueueAnswer(vbNo);
    editor.cycle->CleanControl(true);
    QCOMPARE(platform.BoxCount(), 2);
}

void tst_EditorCycle::answeringYesRunsSaveChangesWithTheArgument() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    editor.txtName->setText(QStringLiteral("Lent"));
    platform.QueueAnswer(vbYes);
    QCOMPARE(editor.cycle->CleanControl(false), vbYes);
    QCOMPARE(editor.saves, QList<bool>{false});
    QCOMPARE(editor.storedName, QStringLiteral("Lent"));
    QVERIFY(!editor.cycle->IsAnyDirty());
    QVERIFY(!editor.cmdApplyChanges->isEnabled());
    QCOMPARE(editor.cycle->CleanControl(false), 0); // nothing left to ask about
}

void tst_EditorCycle::canUnloadReturnsTrueAlsoWhenTheUserAnswersNo() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    editor.txtName->setText(QStringLiteral("Pentecost"));
    platform.QueueAnswer(vbNo);
    Unloadable& asked = editor;
    QVERIFY(asked.CanUnload());
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(editor.saves.isEmpty());
    QVERIFY(editor.cycle->IsDirty(0));
}

void tst_EditorCycle::canUnloadSavesWhenTheUserAnswersYes() {
    ScriptedPlatform platform;
    ctlTwoTabEditor editor;
    editor.txtName->setText(QStringLiteral("Pentecost"));
    platform.QueueAnswer(vbYes);
    QVERIFY(editor.CanUnload());
    QCOMPARE(editor.saves, QList<bool>{true});
    QCOMPARE(editor.storedName, QStringLiteral("Pentecost"));
}

void tst_EditorCycle::theUpdateEventIsRaisedOnlyBehindItsGuard() {
    ctlTwoTabEditor editor;
    QSignalSpy updated(editor.cycle, &EditorCycle::Updated);
    editor.txtName->setText(QStringLiteral("a"));
    editor.SaveChanges(false);
    QCOMPARE(updated.count(), 0);
    QVERIFY(!editor.cmdApplyChanges->isEnabled());

    editor.cycle->SetNotify(true);
    editor.txtName->setText(QStringLiteral("b"));
    editor.SaveChanges(true);
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0).toBool(), true);
    QVERIFY(!editor.cycle->Notify()); // the guard is spent by the event
    editor.SaveChanges(false);
    QCOMPARE(updated.count(), 1);
}

void tst_EditorCycle::theCycleIsFoundOnItsControl() {
    ctlTwoTabEditor editor;
    QCOMPARE(EditorCycle::Of(&editor), editor.cycle);
    QWidget other;
    QCOMPARE(EditorCycle::Of(&other), nullptr);
    QCOMPARE(EditorCycle::Of(nullptr), nullptr);
}

namespace {
// A window holding the editor and one widget outside it.
struct FocusWindow {
    QWidget window;
    ctlTwoTabEditor* editor = new ctlTwoTabEditor(&window);
    QLineEdit* outside = new QLineEdit(&window);
    FocusWindow() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(editor);
        layout->addWidget(outside);
        window.show();
        window.activateWindow();
    }
};
} // namespace

void tst_EditorCycle::focusLeavingTheControlRaisesLostFocus() {
    FocusWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    QSignalSpy lost(w.editor->cycle, &EditorCycle::LostFocus);
    w.editor->txtName->setFocus();
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    QCOMPARE(lost.count(), 0);
    w.outside->setFocus();
    QTRY_VERIFY(w.outside->hasFocus());
    QCOMPARE(lost.count(), 1);
}

void tst_EditorCycle::focusMovingInsideTheControlIsNotLeavingIt() {
    FocusWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    QSignalSpy lost(w.editor->cycle, &EditorCycle::LostFocus);
    w.editor->txtName->setFocus();
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    w.editor->txtNotes->setFocus();
    QTRY_VERIFY(w.editor->txtNotes->hasFocus());
    w.outside->setFocus();
    QTRY_VERIFY(w.outside->hasFocus());
    w.editor->txtName->setFocus(); // coming back is not leaving
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    QCOMPARE(lost.count(), 1);
}

namespace {
// A platform whose message box takes the focus to another widget, as a real
// box does when it opens.
class FocusTakingPlatform : public ScriptedPlatform {
public:
    QWidget* target = nullptr;
    bool blnTookFocus = false;
    qint32 MsgBox(const QString& strPrompt, qint32 intButtons, const QString& strTitle) override {
        target->setFocus();
        blnTookFocus = target->hasFocus();
        return ScriptedPlatform::MsgBox(strPrompt, intButtons, strTitle);
    }
};
} // namespace

void tst_EditorCycle::focusLostWhileTheQuestionIsAskedIsNotCounted() {
    FocusTakingPlatform platform;
    FocusWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    QSignalSpy lost(w.editor->cycle, &EditorCycle::LostFocus);
    w.editor->txtName->setFocus();
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    w.editor->txtName->setText(QStringLiteral("x"));
    platform.target = w.outside;
    platform.QueueAnswer(vbNo);
    w.editor->cycle->CleanControl(true);
    QVERIFY(platform.blnTookFocus);
    QCOMPARE(lost.count(), 0);
}

void tst_EditorCycle::focusGoingToAnotherWindowIsNotLeaving() {
    FocusWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    QSignalSpy lost(w.editor->cycle, &EditorCycle::LostFocus);
    w.editor->txtName->setFocus();
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    QWidget box; // a message box or dialog of its own
    auto* button = new QPushButton(QStringLiteral("OK"), &box);
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    button->setFocus();
    QTRY_VERIFY(button->hasFocus());
    QCOMPARE(lost.count(), 0);
}

void tst_EditorCycle::focusGoingToTheControlsOwnPopupIsNotLeaving() {
    FocusWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    QSignalSpy lost(w.editor->cycle, &EditorCycle::LostFocus);
    w.editor->txtName->setFocus();
    QTRY_VERIFY(w.editor->txtName->hasFocus());
    // A window that belongs to the control, as a calendar popup does.
    auto* popup = new QWidget(w.editor, Qt::Window);
    auto* field = new QLineEdit(popup);
    popup->show();
    popup->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(popup));
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
    QCOMPARE(lost.count(), 0);
}

QTEST_MAIN(tst_EditorCycle)
#include "tst_EditorCycle.moc"
