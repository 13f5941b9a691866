#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

// The right side of a page: holds one editor or list at a time. Before the
// one in place is replaced it is asked whether it may go (its CanUnload),
// which is where an editor offers to save. A widget that implements
// Unloadable is asked through it unless Replace names another function.
class EditorSlot : public QWidget {
    Q_OBJECT
public:
    using CanUnloadFunction = std::function<bool()>;

    explicit EditorSlot(QWidget* parent = nullptr);

    // Puts widget in place (the slot takes it over) once the one in place
    // agreed to go; false, and widget deleted, when it did not. Without
    // canUnload, an Unloadable widget answers for itself.
    bool Replace(QWidget* widget, CanUnloadFunction canUnload = {});
    // Asks the widget in place; true when the slot is empty.
    bool CanUnload();
    QWidget* Current() const { return m_current; }

    // Replaces only when the widget in place is not already of type T; the
    // one in place (or the new one) comes back.
    template <class T, class Make> T* Ensure(Make&& make, CanUnloadFunction canUnload = {}) {
        if (auto* existing = qobject_cast<T*>(m_current.data()))
            return existing;
        T* widget = make();
        return Replace(widget, std::move(canUnload)) ? widget : nullptr;
    }

private:
    QPointer<QWidget> m_current;
    CanUnloadFunction m_canUnload;
};
