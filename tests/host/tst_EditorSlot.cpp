// The right side of a page asks the editor in place whether it may go before
// it is replaced: through the function it was given, else through the editor's
// own CanUnload.
#include "EditorSlot.h"
#include "ScriptedPlatform.h"
#include "foundations/EditorCycle.h"
#include "foundations/Unloadable.h"

#include <QLineEdit>
#include <QPointer>
#include <QTest>

namespace {
// An editor that answers for itself through its save cycle.
class ctlSmallEditor : public QWidget, public Unloadable {
    Q_OBJECT
public:
    ctlSmallEditor() {
        txtName = new QLineEdit(this);
        cycle = new EditorCycle(this, QStringLiteral("Save the small editor?"));
        cycle->SetSaveChanges([this](bool) {
            ++saves;
            cycle->ClearAll();
        });
        cycle->Watch(txtName);
    }
    bool CanUnload() override {
        ++asked;
        return cycle->CanUnload();
    }
    QLineEdit* txtName = nullptr;
    EditorCycle* cycle = nullptr;
    int asked = 0;
    int saves = 0;
};

// A control that refuses to go.
class ctlStubborn : public QWidget, public Unloadable {
    Q_OBJECT
public:
    bool CanUnload() override { return false; }
};
} // namespace

class tst_EditorSlot : public QObject {
    Q_OBJECT
private slots:
    void anUnloadableEditorIsAskedBeforeItIsReplaced();
    void theEditorsAnswerNoStillLetsItGo();
    void aRefusalKeepsTheEditorInPlace();
    void aFunctionGivenToReplaceIsAskedInstead();
    void aPlainWidgetGoesWithoutAsking();
};

void tst_EditorSlot::anUnloadableEditorIsAskedBeforeItIsReplaced() {
    ScriptedPlatform platform;
    EditorSlot slot;
    auto* editor = new ctlSmallEditor;
    QVERIFY(slot.Replace(editor));
    editor->txtName->setText(QStringLiteral("changed"));
    platform.QueueAnswer(vbYes);
    QVERIFY(slot.Replace(new QWidget));
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Save the small editor?"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Save Changes?"));
}

void tst_EditorSlot::theEditorsAnswerNoStillLetsItGo() {
    ScriptedPlatform platform;
    EditorSlot slot;
    auto* editor = new ctlSmallEditor;
    QVERIFY(slot.Replace(editor));
    editor->txtName->setText(QStringLiteral("changed"));
    platform.QueueAnswer(vbNo);
    QVERIFY(slot.CanUnload());
    QCOMPARE(editor->asked, 1);
    QCOMPARE(editor->saves, 0);
    auto* next = new QWidget;
    platform.QueueAnswer(vbNo);
    QVERIFY(slot.Replace(next));
    QCOMPARE(slot.Current(), next);
}

void tst_EditorSlot::aRefusalKeepsTheEditorInPlace() {
    EditorSlot slot;
    auto* stubborn = new ctlStubborn;
    QVERIFY(slot.Replace(stubborn));
    QPointer<QWidget> next = new QWidget;
    QVERIFY(!slot.Replace(next));
    QCOMPARE(slot.Current(), stubborn);
    QVERIFY(next.isNull()); // the refused widget is deleted
}

void tst_EditorSlot::aFunctionGivenToReplaceIsAskedInstead() {
    EditorSlot slot;
    int calls = 0;
    QVERIFY(slot.Replace(new ctlStubborn, [&] {
        ++calls;
        return true;
    }));
    QVERIFY(slot.Replace(new QWidget));
    QCOMPARE(calls, 1);
}

void tst_EditorSlot::aPlainWidgetGoesWithoutAsking() {
    ScriptedPlatform platform;
    EditorSlot slot;
    QVERIFY(slot.Replace(new QWidget));
    QVERIFY(slot.CanUnload());
    QVERIFY(slot.Replace(new QWidget));
    QCOMPARE(platform.BoxCount(), 0);
}

QTEST_MAIN(tst_EditorSlot)
#include "tst_EditorSlot.moc"
