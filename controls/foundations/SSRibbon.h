#pragma once

#include <QPushButton>

// The latched ribbon button: a checkable push button whose Value is its
// checked state. A click by the user, and every write of Value that changes
// it, raises Click(Value) with the new value; so a handler that sets Value back
// to False runs once more with Value False.
class SSRibbon : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(bool Value READ Value WRITE setValue)
public:
    explicit SSRibbon(QWidget* parent = nullptr);
    explicit SSRibbon(const QString& strCaption, QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    // Changes the state and runs Click (emits clicked(), then Click(Value)).
    // Writing the value it already has does nothing.
    void setValue(bool blnValue);

signals:
    void Click(bool Value);
};
