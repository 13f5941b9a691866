#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QKeyEvent;

// The operator's keys, on the console and on the projector window alike:
// Space, Right and PageDown go forward; Left and PageUp go back; B blacks the
// projector out (and back on); Esc ends the prop or the run.
namespace OperatorKeys {

enum class Action { None, Forward, Back, BlackOut, End };

Action ActionFor(int intKey);
Action ActionFor(const QKeyEvent& event);

} // namespace OperatorKeys

// Catches the operator's keys pressed anywhere inside a widget (the console)
// and hands them on as an action, wherever the focus is in it: on a button, in
// a tree, in a widget made after the run began. It watches the whole
// application, so that no child can take the keys first; keys typed into a
// text box stay typing, and keys for other windows (a message box) pass.
class OperatorKeyFilter : public QObject {
    Q_OBJECT
public:
    // Watches the application's key presses for scope while it lives.
    explicit OperatorKeyFilter(QWidget* scope, QObject* parent = nullptr);
    ~OperatorKeyFilter() override;

signals:
    void ActionPressed(OperatorKeys::Action action);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_scope;
};
