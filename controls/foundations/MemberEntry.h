#pragma once

#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"

#include <QString>
#include <QVariant>
#include <utility>

class QWidget;

// The prologue of a member: its trace line on entry and the prefix of its
// failure report, both made from one class and member name.
//
//   void ctlRun::AddServicePropBagItems(qint32 lngService, QString& strErrorMessage) {
//       const auto entry = MemberEntry(u"ctlRun", u"AddServicePropBagItems")
//                              .Arg(u"lngService", lngService)
//                              .Enter();
//       entry.ErrorReturn(strErrorMessage, [&] { ... });
//   }
//
// Enter() writes the trace line; it is written before the handler is in place,
// so a failure of the tracer itself is not caught by the member. A member
// whose prefix is spelt otherwise names it with Spelt() (the blank before the
// colon of "SetupSong : Error number is ") or WithPrefix() (another class's
// name copied into the handler).
class MemberEntry {
public:
    MemberEntry(const QString& strClass, const QString& strMember);

    // Adds an argument to the trace line: name, " = ", value, ", ".
    MemberEntry& Arg(const QString& strName, const QVariant& varValue) &;
    MemberEntry&& Arg(const QString& strName, const QVariant& varValue) &&;

    // The failure prefix with a blank before the colon:
    // "QVLTCONTROLS:cls:member : Error number is ".
    MemberEntry& Spelt() &;
    MemberEntry&& Spelt() &&;
    // The failure prefix spelt out whole.
    MemberEntry& WithPrefix(const QString& strErrorPrefix) &;
    MemberEntry&& WithPrefix(const QString& strErrorPrefix) &&;

    // Writes the trace line and gives the entry back for the handler.
    MemberEntry& Enter() &;
    MemberEntry&& Enter() &&;

    // "QVLTCONTROLS:cls:member: Error number is " (or as spelt).
    const QString& Prefix() const { return m_strPrefix; }
    // "QVLTCONTROLS: cls: member: ", the source of a full error box.
    QString FullSource() const { return ErrorReport::FullSource(m_strClass, m_strMember); }
    const QString& Class() const { return m_strClass; }
    const QString& Member() const { return m_strMember; }
    const TraceLine& Trace() const { return m_trace; }

    // Runs f under the member's handler; false when a failure was reported.
    template <class F> bool ErrorReturn(QString& strErrorMessage, F&& f) const {
        return ErrorReport::TryErrorReturn(m_strPrefix, strErrorMessage, std::forward<F>(f));
    }
    template <class F> bool ErrorBox(F&& f) const {
        return ErrorReport::TryErrorBox(m_strPrefix, std::forward<F>(f));
    }
    template <class F> bool FullErrorBox(F&& f, qint32 lngErl = 0) const {
        return ErrorReport::TryFullErrorBox(FullSource(), std::forward<F>(f), lngErl);
    }
    // A handler without a handler of its own: the run-time error box at the
    // event boundary.
    template <class F> void Guarded(F&& f) const { ErrorReport::Guard(std::forward<F>(f)); }

private:
    QString m_strClass;
    QString m_strMember;
    QString m_strPrefix;
    TraceLine m_trace;
};

// Switches a tree's or list's redrawing off for the life of the guard and on
// again on every way out (LockTreeview / UnLockTreeview).
class RedrawLock {
public:
    explicit RedrawLock(QWidget* tree);
    ~RedrawLock();
    // Switches redrawing on before the guard ends (only once).
    void Release();
    RedrawLock(const RedrawLock&) = delete;
    RedrawLock& operator=(const RedrawLock&) = delete;

private:
    QWidget* m_tree;
};
