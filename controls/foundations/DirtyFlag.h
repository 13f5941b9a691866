#pragma once

#include "foundations/VBConstants.h"

#include <QString>
#include <functional>

// The dirty flag of an editor and its save cycle. An input widget's change
// event sets the flag; filling widgets from the store must not, so a loader
// keeps the flag as it was:
//
//   { DirtyFlag::Keep keep(m_dirty); fillWidgets(); }   // restored on leaving
class DirtyFlag {
public:
    bool IsSet() const { return m_blnDirty; }
    void Set() { m_blnDirty = true; }
    void Clear() { m_blnDirty = false; }

    class Keep {
    public:
        explicit Keep(DirtyFlag& flag) : m_flag(flag), m_blnWas(flag.IsSet()) {}
        ~Keep() { m_flag.m_blnDirty = m_blnWas; }
        Keep(const Keep&) = delete;
        Keep& operator=(const Keep&) = delete;

    private:
        DirtyFlag& m_flag;
        bool m_blnWas;
    };

private:
    bool m_blnDirty = false;
};

namespace SaveCycle {
// CleanControl's question: when the flag is set, asks strPrompt under the title
// "Save Changes?" with Yes and No; any answer but No runs save, No leaves the
// flag set so the question comes again next time. Returns the answer, or 0 when
// nothing was asked.
qint32 CleanControl(const DirtyFlag& flag, const QString& strPrompt,
                    const std::function<void()>& save, qint32 intButtons = vbYesNo | vbQuestion);
// The same for an editor whose flags are read together (blnDirty: any is set).
qint32 CleanControl(bool blnDirty, const QString& strPrompt, const std::function<void()>& save,
                    qint32 intButtons = vbYesNo | vbQuestion);
} // namespace SaveCycle
