#pragma once

#include <QString>
#include <exception>

// A run-time failure, carried as a C++ exception with the numbers and texts that
// the controls report to the user (5 "Invalid procedure call or argument",
// 13 "Type mismatch", 35601 "Element not found", ...). Functions that have an
// error handler catch it at their boundary and report it in one of the forms of
// ErrorReport.h; nothing lets it cross the Qt event loop.
class VBError : public std::exception {
public:
    explicit VBError(qint32 lngNumber, const QString& strDescription = QString());

    qint32 Number;
    QString Description;

    const char* what() const noexcept override;

    // The standard text of a run-time error number, empty for an unknown one.
    static QString StandardDescription(qint32 lngNumber);

private:
    QByteArray m_what;
};

// The error numbers the controls and the widget set raise.
namespace VBErr {
constexpr qint32 InvalidProcedureCall = 5;
constexpr qint32 Overflow = 6;
constexpr qint32 SubscriptOutOfRange = 9;
constexpr qint32 TypeMismatch = 13;
constexpr qint32 InternalError = 51;
constexpr qint32 ObjectNotSet = 91;
constexpr qint32 InvalidUseOfNull = 94;
constexpr qint32 KeyAlreadyInCollection = 457;
constexpr qint32 CancelSelected = 32755;
constexpr qint32 IndexOutOfBounds = 35600;
constexpr qint32 ElementNotFound = 35601;
constexpr qint32 KeyNotUnique = 35602;
constexpr qint32 InvalidKey = 35603;
} // namespace VBErr
