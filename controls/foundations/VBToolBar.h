#pragma once

#include <QIcon>
#include <QList>
#include <QToolBar>

class QAction;

// The toolbar of the controls: each button is a QAction whose objectName() is
// its key ("btnNew"). Buttons are reached by key (a missing key raises 35601)
// or by number from 1 in the order added (out of range raises 35600); adding a
// key twice raises 35602. A click on a button, or trigger() on its action,
// raises ButtonClick with the button.
class VBToolBar : public QToolBar {
    Q_OBJECT
public:
    explicit VBToolBar(QWidget* parent = nullptr);

    // Adds a button at the right end. A checkable button latches.
    QAction* AddButton(const QString& strKey, const QString& strText = QString(),
                       const QIcon& icon = QIcon(), bool blnCheckable = false);
    QAction* AddSeparator();
    QAction* Buttons(const QString& strKey) const;
    QAction* Buttons(qint32 lngIndex) const;
    qint32 ButtonCount() const { return static_cast<qint32>(m_buttons.size()); }
    bool ButtonExists(const QString& strKey) const;

signals:
    void ButtonClick(QAction* Button);

private:
    QList<QAction*> m_buttons;
};
