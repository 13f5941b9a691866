#include "foundations/VBToolBar.h"

#include "foundations/VBError.h"

#include <QAction>

VBToolBar::VBToolBar(QWidget* parent) : QToolBar(parent) {
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setMovable(false);
    setFloatable(false);
}

QAction* VBToolBar::AddButton(const QString& strKey, const QString& strText, const QIcon& icon,
                              bool blnCheckable) {
    if (!strKey.isEmpty() && ButtonExists(strKey))
        throw VBError(VBErr::KeyNotUnique);
    auto* button = new QAction(icon, strText, this);
    button->setObjectName(strKey);
    button->setCheckable(blnCheckable);
    addAction(button);
    connect(button, &QAction::triggered, this, [this, button] { emit ButtonClick(button); });
    m_buttons.append(button);
    return button;
}

QAction* VBToolBar::AddSeparator() {
    QAction* separator = addSeparator();
    m_buttons.append(separator);
    return separator;
}

QAction* VBToolBar::Buttons(const QString& strKey) const {
    for (QAction* button : m_buttons)
        if (!strKey.isEmpty() && button->objectName() == strKey)
            return button;
    throw VBError(VBErr::ElementNotFound);
}

QAction* VBToolBar::Buttons(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > ButtonCount())
        throw VBError(VBErr::IndexOutOfBounds);
    return m_buttons.at(lngIndex - 1);
}

bool VBToolBar::ButtonExists(const QString& strKey) const {
    for (QAction* button : m_buttons)
        if (button->objectName() == strKey)
            return true;
    return false;
}
