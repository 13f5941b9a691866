#include "foundations/TraceLine.h"

#include "TraceLog.h"
#include "foundations/VBRuntime.h"

#include <QDateTime>

TraceLine::TraceLine(const QString& strPrefix) : m_strPrefix(strPrefix) {}

TraceLine::TraceLine(const QString& strClass, const QString& strMember)
    : m_strPrefix(QStringLiteral("QVLTCONTROLS:") + strClass + QLatin1Char(':') + strMember) {}

TraceLine TraceLine::WithPrefix(const QString& strPrefix) {
    return TraceLine(strPrefix);
}

TraceLine& TraceLine::Arg(const QString& strName, const QVariant& varValue) {
    m_strArgs += strName + QStringLiteral(" = ") + VB::Text(varValue) + QStringLiteral(", ");
    return *this;
}

QString TraceLine::Stamp() {
    const QDateTime now = QDateTime::currentDateTime();
    return VB::ShortDate(now.date()) + QStringLiteral(", ") + VB::LongTime(now.time());
}

QString TraceLine::Text() const {
    QString line = m_strPrefix + QStringLiteral(" @ ") + Stamp();
    if (!m_strArgs.isEmpty())
        line += QStringLiteral(": ") + m_strArgs;
    return line;
}

void TraceLine::Write() const {
    TraceLog::Instance().WriteTraceLine(Text());
}
