#pragma once

#include <QObject>

class QKeyEvent;

// The operator's keys, on the console and on the projector window alike:
// Space, Right and PageDown go forward; Left and PageUp go back; B blacks the
// projector out (and back on); Esc ends the prop or the run.
namespace OperatorKeys {

enum class Action { None, Forward, Back, BlackOut, End };

Action ActionFor(int intKey);
Action ActionFor(const QKeyEvent& event);

} // namespace OperatorKeys

// Catches the operator's keys on a widget and its children (the console) and
// hands them on as an action.
class OperatorKeyFilter : public QObject {
    Q_OBJECT
public:
    explicit OperatorKeyFilter(QObject* parent = nullptr) : QObject(parent) {}

signals:
    void ActionPressed(OperatorKeys::Action action);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
