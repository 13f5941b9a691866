#pragma once

#include "foundations/DirtyFlag.h"

#include <QAbstractButton>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

class QWidget;

// The edit-and-save cycle an editor control owns: a dirty flag per tab, the
// change signals of its input widgets raising them, the apply button that a
// change enables (MakeControlDirty), the question asked when the user leaves
// with changes (CleanControl), the event of focus leaving the control and all
// its children (LostFocus, the editor's UserControl_LostFocus) and the
// editor's update event after a save (Updated).
//
//   m_cycle = new EditorCycle(this, "The contents of this Short-List has changed, do you "
//                                   "want to save the changes");
//   m_cycle->SetApplyButton(cmdApplyChanges);
//   m_cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
//   m_cycle->Watch(txtDescription, tabGeneral);
//   connect(m_cycle, &EditorCycle::LostFocus, this, &ctlX::UserControl_LostFocus);
//
// Filling a tab by code raises the widgets' change signals as the user's typing
// would; a loader notes the flags and the apply button before it fills and
// puts them back after, with a Loading guard:
//
//   { EditorCycle::Loading loading(*m_cycle); txtDescription->setText(...); }
//
// The cycle is a child of its control; EditorCycle::Of(control) finds it.
class EditorCycle : public QObject {
    Q_OBJECT
public:
    EditorCycle(QWidget* control, const QString& strPrompt, qint32 intTabs = 1);

    // The cycle of a control, or nullptr.
    static EditorCycle* Of(const QWidget* control);

    QWidget* Control() const { return m_control; }
    QString Prompt() const { return m_strPrompt; }

    // ---- Dirty flags, one per tab (from 0; a tab beyond the count is added) ----
    qint32 TabCount() const { return static_cast<qint32>(m_flags.size()); }
    bool IsDirty(qint32 intTab = 0) const;
    bool IsAnyDirty() const;
    void SetDirty(qint32 intTab = 0, bool blnDirty = true);
    void Clear(qint32 intTab = 0) { SetDirty(intTab, false); }
    void ClearAll();
    DirtyFlag& Flag(qint32 intTab = 0);

    // ---- The apply (save) button ----
    void SetApplyButton(QAbstractButton* cmdApply);
    QAbstractButton* ApplyButton() const { return m_cmdApply; }
    // Enables the apply button.
    void MakeControlDirty();

    // ---- Watching input widgets ----
    // Connects the widget's change signal to the tab: QLineEdit and QTextEdit
    // (text changed), QComboBox (selection or edited text), QCheckBox and
    // QRadioButton (toggled), QSpinBox and QDoubleSpinBox (value), QDateEdit
    // and the other date and time editors (value), QTableWidget (a cell), and
    // any other widget through the change signal of its user property. False
    // when the widget has no change signal that the cycle knows.
    bool Watch(QWidget* widget, qint32 intTab = 0);
    // Connects a change signal named by its name ("Changed", "ItemAdded"); its
    // arguments are not read. False when the sender has no such signal.
    bool WatchSignal(QObject* sender, const char* signalName, qint32 intTab = 0);
    // Watches every input widget among the children of container (a tab's page).
    qint32 WatchChildren(QWidget* container, qint32 intTab = 0);

    // ---- Loading: the flags and the apply button kept while code fills widgets ----
    class Loading {
    public:
        explicit Loading(EditorCycle& cycle);
        ~Loading();
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;

    private:
        EditorCycle& m_cycle;
        QList<bool> m_flags;
        bool m_blnApplyEnabled = false;
    };
    bool IsLoading() const { return m_intLoading > 0; }

    // ---- Saving ----
    // The editor's SaveChanges(blnChangingToOtherControl).
    void SetSaveChanges(std::function<void(bool)> saveChanges);
    // With any flag set, asks the control's question under "Save Changes?", Yes
    // and No; any answer but No runs SaveChanges. No leaves the flags set, so the
    // question comes again. Returns the answer, 0 when nothing was asked.
    qint32 CleanControl(bool blnChangingToOtherControl);
    // CleanControl(true), then true whatever the user answered.
    bool CanUnload();
    // The guard of the update event (the editor's bln...ChangedNotify).
    void SetNotify(bool blnNotify) { m_blnNotify = blnNotify; }
    bool Notify() const { return m_blnNotify; }
    // The end of a save: raises Updated when the guard is set (and clears it),
    // then disables the apply button.
    void FinishSave(bool blnChangingToOtherControl);

signals:
    // A watched widget of the tab changed (also while loading).
    void TabChanged(qint32 intTab);
    // The focus went from the control or one of its children to another widget
    // of the same window. The focus going to another window (a message box, a
    // dialog) or a window losing activation is not counted, nor is a move while
    // the save question is being asked.
    void LostFocus();
    // The update event of the editor after a save, raised behind the guard.
    void Updated(bool blnChangingToOtherControl);

public slots:
    // A change of an input widget of the tab: sets its flag and enables the
    // apply button.
    void Changed(qint32 intTab = 0);

private:
    bool Contains(const QWidget* widget) const;
    void focusChanged(QWidget* old, QWidget* now);
    QObject* TabReceiver(qint32 intTab);

    QPointer<QWidget> m_control;
    QString m_strPrompt;
    QList<DirtyFlag> m_flags;
    QList<QObject*> m_receivers;
    QPointer<QAbstractButton> m_cmdApply;
    std::function<void(bool)> m_saveChanges;
    qint32 m_intLoading = 0;
    bool m_blnAsking = false;
    bool m_blnNotify = false;
};
