#include "OperatorKeys.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
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

bool OperatorKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    // Typing into a text box stays typing.
    if (qobject_cast<QLineEdit*>(watched) || qobject_cast<QTextEdit*>(watched))
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const OperatorKeys::Action action = OperatorKeys::ActionFor(*key);
    if (action == OperatorKeys::Action::None)
        return false;
    emit ActionPressed(action);
    return true;
}
