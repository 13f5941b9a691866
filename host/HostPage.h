#pragma once

#include "EditorSlot.h"

#include <QWidget>

class QSplitter;

// A page of the main window: a gallery on the left and, on the right, the
// editor or list that the gallery's events call for. A page that is left, or
// whose editor is replaced, first asks the editor whether it may go.
class HostPage : public QWidget {
    Q_OBJECT
public:
    HostPage(const QString& strName, QWidget* parent = nullptr);

    QString Name() const { return objectName(); }
    EditorSlot* Editor() const { return m_editor; }
    QWidget* Gallery() const { return m_gallery; }
    bool CanUnload() { return m_editor->CanUnload(); }
    // Called each time the page comes up; the first call loads it.
    void Activate();

signals:
    void RunServiceRequested(qint32 lngServiceID);
    void RunServiceItemRequested(qint32 lngServiceItemID);

protected:
    void SetGallery(QWidget* gallery);
    virtual void Load() {}

private:
    QSplitter* m_splitter;
    QWidget* m_gallery = nullptr;
    EditorSlot* m_editor;
    bool m_loaded = false;
};
