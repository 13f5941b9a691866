#pragma once

#include "foundations/VBError.h"

#include <QString>
#include <exception>
#include <utility>

// The three ways a function with an error handler reports a failure, and the
// guard at the event boundary.
//
// Error return: strErrorMessage = prefix + number + ", " + description, and the
//   same text to TraceLog::WriteErrorLine.
// Error box:    a message box (exclamation, OK, title "Error") with that text,
//   then the text to TraceLog::WriteErrorLine.
// Full error box: "Error number is N, description, ERL-line, Source=" + source +
//   " Please send the error details to " + the support address, in a plain box
//   with the application's title; nothing is traced.
//
// The prefix is the whole text before the number, as each function spells it:
// usually Prefix("ctlRun", "AddServicePropBagItems") =
// "QVLTCONTROLS:ctlRun:AddServicePropBagItems: Error number is ".
namespace ErrorReport {

QString Prefix(const QString& strClass, const QString& strMember);
// "QVLTCONTROLS: ctlRun: PlayMusic: ", the source of a full error box.
QString FullSource(const QString& strClass, const QString& strMember);

QString ErrorText(const QString& strPrefix, const VBError& e);
void ErrorReturn(const QString& strPrefix, const VBError& e, QString& strErrorMessage);
void ErrorBox(const QString& strPrefix, const VBError& e);
QString FullErrorText(const QString& strSource, const VBError& e, qint32 lngErl = 0);
void FullErrorBox(const QString& strSource, const VBError& e, qint32 lngErl = 0);
// The box of a failure that no handler caught: "Run-time error '13':", a blank
// line and the description, title "Corvantis".
void RuntimeErrorBox(const VBError& e);

// The support address named by the full error box; set by the host from its
// configuration.
void SetSupportAddress(const QString& strAddress);
QString SupportAddress();

// Inside a catch block: the failure being handled as a VBError (other
// exceptions become 51 "Internal error" with their text).
VBError Current(std::exception_ptr p);

// Runs f under a handler that reports in the given form. Returns false when a
// failure was reported.
template <class F> bool TryErrorReturn(const QString& strPrefix, QString& strErrorMessage, F&& f) {
    try {
        std::forward<F>(f)();
        return true;
    } catch (...) {
        ErrorReturn(strPrefix, Current(std::current_exception()), strErrorMessage);
        return false;
    }
}

template <class F> bool TryErrorBox(const QString& strPrefix, F&& f) {
    try {
        std::forward<F>(f)();
        return true;
    } catch (...) {
        ErrorBox(strPrefix, Current(std::current_exception()));
        return false;
    }
}

template <class F> bool TryFullErrorBox(const QString& strSource, F&& f, qint32 lngErl = 0) {
    try {
        std::forward<F>(f)();
        return true;
    } catch (...) {
        FullErrorBox(strSource, Current(std::current_exception()), lngErl);
        return false;
    }
}

// The event boundary: every slot and event handler without a handler of its
// own runs under this guard, so that a failure shows the run-time error box and
// never crosses the Qt event loop.
template <class F> void Guard(F&& f) {
    try {
        std::forward<F>(f)();
    } catch (...) {
        RuntimeErrorBox(Current(std::current_exception()));
    }
}

} // namespace ErrorReport
