#include "OperatorKeys.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace OperatorKeys {

Action ActionFor(int intKey) {
    switch (intKey) {
    case Qt::Key_Space:
    case Qt::Key_Right:
    case Qt::Key_PageDown:
        return Action::Forward;
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        return Action::Back;
    case Qt::Key_B:
        return Action::BlackOut;
    case Qt::Key_Escape:
        return Action::End;
    default:
        return Action::None;
    }
}

Action ActionFor(const QKeyEvent& event) {
    const Qt::KeyboardModifiers mods = event.modifiers() & ~Qt::KeypadModifier;
    if (mods != Qt::NoModifier)
        return Action::None;
    return ActionFor(event.key());
}

} // namespace OperatorKeys

OperatorKeyFilter::OperatorKeyFilter(QWidget* scope, QObject* parent)
    : QObject(parent), m_scope(scope) {
    qApp->installEventFilter(this);
}

OperatorKeyFilter::~OperatorKeyFilter() {
    qApp->removeEventFilter(this);
}

namespace {

bool TakesTyping(QObject* watched) {
    if (qobject_cast<QLineEdit*>(watched) || qobject_cast<QTextEdit*>(watched) ||
        qobject_cast<QPlainTextEdit*>(watched) || qobject_cast<QAbstractSpinBox*>(watched))
        return true;
    const auto* combo = qobject_cast<QComboBox*>(watched);
    return combo && combo->isEditable();
}

} // namespace

bool OperatorKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !m_scope)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || (widget != m_scope && !m_scope->isAncestorOf(widget)))
        return false;
    // Typing into a text box stays typing, also a key that the box passes on
    // to its parents.
    if (TakesTyping(watched) || TakesTyping(QApplication::focusWidget()))
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const OperatorKeys::Action action = OperatorKeys::ActionFor(*key);
    if (action == OperatorKeys::Action::None)
        return false;
    emit ActionPressed(action);
    return true;
}
