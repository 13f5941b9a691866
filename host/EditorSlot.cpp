#include "EditorSlot.h"

#include "foundations/Unloadable.h"

#include <QVBoxLayout>

EditorSlot::EditorSlot(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

bool EditorSlot::CanUnload() {
    if (!m_current || !m_canUnload)
        return true;
    return m_canUnload();
}

bool EditorSlot::Replace(QWidget* widget, CanUnloadFunction canUnload) {
    if (widget == m_current)
        return true;
    if (!CanUnload()) {
        delete widget;
        return false;
    }
    if (m_current) {
        m_current->hide();
        m_current->deleteLater();
    }
    m_current = widget;
    m_canUnload = std::move(canUnload);
    if (!m_canUnload)
        if (auto* unloadable = dynamic_cast<Unloadable*>(widget))
            m_canUnload = [unloadable] { return unloadable->CanUnload(); };
    if (widget) {
        layout()->addWidget(widget);
        widget->show();
    }
    return true;
}
