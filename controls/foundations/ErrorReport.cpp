#include "foundations/ErrorReport.h"

#include "TraceLog.h"
#include "foundations/Platform.h"

namespace {
QString& supportAddress() {
    static QString address = QStringLiteral("support@corvantis.org");
    return address;
}
} // namespace

namespace ErrorReport {

QString Prefix(const QString& strClass, const QString& strMember) {
    return QStringLiteral("QVLTCONTROLS:") + strClass + QLatin1Char(':') + strMember +
           QStringLiteral(": Error number is ");
}

QString FullSource(const QString& strClass, const QString& strMember) {
    return QStringLiteral("QVLTCONTROLS: ") + strClass + QStringLiteral(": ") + strMember +
           QStringLiteral(": ");
}

QString ErrorText(const QString& strPrefix, const VBError& e) {
    return strPrefix + QString::number(e.Number) + QStringLiteral(", ") + e.Description;
}

void ErrorReturn(const QString& strPrefix, const VBError& e, QString& strErrorMessage) {
    strErrorMessage = ErrorText(strPrefix, e);
    TraceLog::Instance().WriteErrorLine(strErrorMessage);
}

void ErrorBox(const QString& strPrefix, const VBError& e) {
    const QString text = ErrorText(strPrefix, e);
    Platform::Current().MsgBox(text, vbExclamation | vbOKOnly, QStringLiteral("Error"));
    TraceLog::Instance().WriteErrorLine(text);
}

QString FullErrorText(const QString& strSource, const VBError& e, qint32 lngErl) {
    return QStringLiteral("Error number is ") + QString::number(e.Number) + QStringLiteral(", ") +
           e.Description + QStringLiteral(", ERL-") + QString::number(lngErl) +
           QStringLiteral(", Source=") + strSource +
           QStringLiteral(" Please send the error details to ") + SupportAddress();
}

void FullErrorBox(const QString& strSource, const VBError& e, qint32 lngErl) {
    Platform::Current().MsgBox(FullErrorText(strSource, e, lngErl), vbOKOnly, QString());
}

void RuntimeErrorBox(const VBError& e) {
    Platform::Current().MsgBox(QStringLiteral("Run-time error '") + QString::number(e.Number) +
                                   QStringLiteral("':\n\n") + e.Description,
                               vbOKOnly | vbCritical, QStringLiteral("Corvantis"));
}

void SetSupportAddress(const QString& strAddress) {
    supportAddress() = strAddress;
}

QString SupportAddress() {
    return supportAddress();
}

VBError Current(std::exception_ptr p) {
    try {
        std::rethrow_exception(p);
    } catch (const VBError& e) {
        return e;
    } catch (const std::exception& e) {
        return VBError(VBErr::InternalError, VBError::StandardDescription(VBErr::InternalError) +
                                                 QStringLiteral(": ") +
                                                 QString::fromLocal8Bit(e.what()));
    } catch (...) {
        return VBError(VBErr::InternalError);
    }
}

} // namespace ErrorReport
