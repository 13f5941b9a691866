#include "foundations/EditorCycle.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QTableWidget>
#include <QTextEdit>
#include <algorithm>

// The receiver of one tab's change signals: a slot without arguments, so that a
// signal of any signature can be connected to it by name.
class EditorCycleTab : public QObject {
    Q_OBJECT
public:
    EditorCycleTab(EditorCycle* cycle, qint32 intTab) : QObject(cycle), m_intTab(intTab) {}

public slots:
    void Fire() { static_cast<EditorCycle*>(parent())->Changed(m_intTab); }

private:
    qint32 m_intTab;
};

EditorCycle::EditorCycle(QWidget* control, const QString& strPrompt, qint32 intTabs)
    : QObject(control), m_control(control), m_strPrompt(strPrompt) {
    setObjectName(QStringLiteral("EditorCycle"));
    for (qint32 i = 0; i < qMax(1, intTabs); ++i)
        m_flags.append(DirtyFlag());
    connect(qApp, &QApplication::focusChanged, this, &EditorCycle::focusChanged);
}

EditorCycle* EditorCycle::Of(const QWidget* control) {
    return control ? control->findChild<EditorCycle*>(QString(), Qt::FindDirectChildrenOnly)
                   : nullptr;
}

// ---- Dirty flags ----------------------------------------------------------------

DirtyFlag& EditorCycle::Flag(qint32 intTab) {
    while (m_flags.size() <= intTab)
        m_flags.append(DirtyFlag());
    return m_flags[qMax(0, intTab)];
}

bool EditorCycle::IsDirty(qint32 intTab) const {
    return intTab >= 0 && intTab < m_flags.size() && m_flags[intTab].IsSet();
}

bool EditorCycle::IsAnyDirty() const {
    return std::any_of(m_flags.cbegin(), m_flags.cend(),
                       [](const DirtyFlag& f) { return f.IsSet(); });
}

void EditorCycle::SetDirty(qint32 intTab, bool blnDirty) {
    DirtyFlag& flag = Flag(intTab);
    blnDirty ? flag.Set() : flag.Clear();
}

void EditorCycle::ClearAll() {
    for (DirtyFlag& flag : m_flags)
        flag.Clear();
}

// ---- The apply button and changes ---------------------------------------------------

void EditorCycle::SetApplyButton(QAbstractButton* cmdApply) {
    m_cmdApply = cmdApply;
}

void EditorCycle::MakeControlDirty() {
    if (m_cmdApply)
        m_cmdApply->setEnabled(true);
}

void EditorCycle::Changed(qint32 intTab) {
    SetDirty(intTab);
    MakeControlDirty();
    emit TabChanged(intTab);
}

QObject* EditorCycle::TabReceiver(qint32 intTab) {
    while (m_receivers.size() <= intTab)
        m_receivers.append(new EditorCycleTab(this, static_cast<qint32>(m_receivers.size())));
    Flag(intTab);
    return m_receivers[intTab];
}

bool EditorCycle::WatchSignal(QObject* sender, const char* signalName, qint32 intTab) {
    if (!sender || !signalName)
        return false;
    const QMetaObject* meta = sender->metaObject();
    const QByteArray name(signalName);
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod signal = meta->method(i);
        if (signal.methodType() != QMetaMethod::Signal || signal.name() != name)
            continue;
        QObject* receiver = TabReceiver(intTab);
        const QMetaMethod fire =
            receiver->metaObject()->method(receiver->metaObject()->indexOfSlot("Fire()"));
        return static_cast<bool>(connect(sender, signal, receiver, fire));
    }
    return false;
}

bool EditorCycle::Watch(QWidget* widget, qint32 intTab) {
    if (!widget)
        return false;
    auto fire = [this, intTab] { Changed(intTab); };
    if (auto* w = qobject_cast<QLineEdit*>(widget))
        return static_cast<bool>(connect(w, &QLineEdit::textChanged, this, fire));
    if (auto* w = qobject_cast<QTextEdit*>(widget))
        return static_cast<bool>(connect(w, &QTextEdit::textChanged, this, fire));
    if (auto* w = qobject_cast<QPlainTextEdit*>(widget))
        return static_cast<bool>(connect(w, &QPlainTextEdit::textChanged, this, fire));
    if (auto* w = qobject_cast<QComboBox*>(widget)) {
        connect(w, &QComboBox::currentIndexChanged, this, fire);
        if (w->isEditable())
            connect(w, &QComboBox::editTextChanged, this, fire);
        return true;
    }
    if (auto* w = qobject_cast<QAbstractButton*>(widget)) // a push button changes nothing
        return w->isCheckable() &&
               static_cast<bool>(connect(w, &QAbstractButton::toggled, this, fire));
    if (auto* w = qobject_cast<QSpinBox*>(widget))
        return static_cast<bool>(connect(w, &QSpinBox::valueChanged, this, fire));
    if (auto* w = qobject_cast<QDoubleSpinBox*>(widget))
        return static_cast<bool>(connect(w, &QDoubleSpinBox::valueChanged, this, fire));
    if (auto* w = qobject_cast<QDateTimeEdit*>(widget))
        return static_cast<bool>(connect(w, &QDateTimeEdit::dateTimeChanged, this, fire));
    if (auto* w = qobject_cast<QTableWidget*>(widget))
        return static_cast<bool>(connect(w, &QTableWidget::cellChanged, this, fire));
    const QMetaProperty user = widget->metaObject()->userProperty();
    if (user.isValid() && user.hasNotifySignal())
        return WatchSignal(widget, user.notifySignal().name().constData(), intTab);
    return false;
}

qint32 EditorCycle::WatchChildren(QWidget* container, qint32 intTab) {
    qint32 intWatched = 0;
    if (!container)
        return intWatched;
    for (QWidget* child : container->findChildren<QWidget*>()) {
        // The line edit inside a combo box or a spin box belongs to its owner.
        if (qobject_cast<QComboBox*>(child->parentWidget()) ||
            qobject_cast<QAbstractSpinBox*>(child->parentWidget()))
            continue;
        const bool blnInput =
            qobject_cast<QLineEdit*>(child) || qobject_cast<QTextEdit*>(child) ||
            qobject_cast<QPlainTextEdit*>(child) || qobject_cast<QComboBox*>(child) ||
            qobject_cast<QAbstractSpinBox*>(child) || qobject_cast<QTableWidget*>(child) ||
            (qobject_cast<QAbstractButton*>(child) && child->property("checkable").toBool());
        if (blnInput && Watch(child, intTab))
            ++intWatched;
    }
    return intWatched;
}

// ---- Loading ------------------------------------------------------------------------

EditorCycle::Loading::Loading(EditorCycle& cycle) : m_cycle(cycle) {
    for (const DirtyFlag& flag : cycle.m_flags)
        m_flags.append(flag.IsSet());
    m_blnApplyEnabled = cycle.m_cmdApply && cycle.m_cmdApply->isEnabled();
    ++cycle.m_intLoading;
}

EditorCycle::Loading::~Loading() {
    --m_cycle.m_intLoading;
    for (qint32 i = 0; i < m_cycle.m_flags.size(); ++i)
        m_cycle.SetDirty(i, i < m_flags.size() && m_flags[i]);
    if (m_cycle.m_cmdApply)
        m_cycle.m_cmdApply->setEnabled(m_blnApplyEnabled);
}

// ---- Saving -------------------------------------------------------------------------

void EditorCycle::SetSaveChanges(std::function<void(bool)> saveChanges) {
    m_saveChanges = std::move(saveChanges);
}

qint32 EditorCycle::CleanControl(bool blnChangingToOtherControl) {
    // The box takes the focus; that move is not the user leaving the control.
    QScopedValueRollback<bool> asking(m_blnAsking, true);
    return SaveCycle::CleanControl(
        IsAnyDirty(), m_strPrompt,
        [&] {
            if (m_saveChanges)
                m_saveChanges(blnChangingToOtherControl);
        },
        vbYesNo);
}

bool EditorCycle::CanUnload() {
    CleanControl(true);
    return true;
}

void EditorCycle::FinishSave(bool blnChangingToOtherControl) {
    if (m_blnNotify) {
        m_blnNotify = false;
        emit Updated(blnChangingToOtherControl);
    }
    if (m_cmdApply)
        m_cmdApply->setEnabled(false);
}

// ---- Focus --------------------------------------------------------------------------

// The control's own popups (a combo's list, a date picker's calendar) are
// windows of their own but children of the control all the same.
bool EditorCycle::Contains(const QWidget* widget) const {
    for (const QWidget* w = widget; w && m_control; w = w->parentWidget())
        if (w == m_control)
            return true;
    return false;
}

// Leaving is the focus going to another widget of the control's window. A
// message box, a dialog or another window taking the focus is not leaving: the
// focus comes back when it closes.
void EditorCycle::focusChanged(QWidget* old, QWidget* now) {
    if (m_blnAsking || !now || !m_control || !Contains(old) || Contains(now))
        return;
    if (now->window() != m_control->window())
        return;
    emit LostFocus();
}

#include "EditorCycle.moc"
