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

// The text changes once a second, and making it (the local time, the date and time in the
// platform's forms) costs more than the rest of a line: it is made again only when the second
// has changed.
QString TraceLine::Stamp() {
    thread_local qint64 keptSecond = -1;
    thread_local QString kept;
    const qint64 msecs = QDateTime::currentMSecsSinceEpoch();
    const qint64 second = msecs / 1000;
    if (second != keptSecond || kept.isEmpty()) {
        const QDateTime now = QDateTime::fromMSecsSinceEpoch(msecs);
        kept = VB::ShortDate(now.date()) + QStringLiteral(", ") + VB::LongTime(now.time());
        keptSecond = second;
    }
    return kept;
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
