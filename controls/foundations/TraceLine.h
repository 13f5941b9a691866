#pragma once

#include <QString>
#include <QVariant>

// The line that nearly every function writes on entry:
//   QVLTCONTROLS:ctlRun:ShowSIAsRunning @ 29/10/03, 19:05:12: lngSIID = 5, blnX = True,
// the project word, class, member, " @ ", the platform's short date, ", ", the
// time with seconds, then ": " and each argument as name, " = ", value, ", ".
//
//   TraceLine("ctlRun", "ShowSIAsRunning").Arg("lngSIID", lngSIID).Write();
//
// A function whose prefix is spelt otherwise names it whole:
//   TraceLine::WithPrefix("QVLTCONTROLS:ctlRun:'RefreshScreenMirror").Write();
class TraceLine {
public:
    TraceLine(const QString& strClass, const QString& strMember);
    static TraceLine WithPrefix(const QString& strPrefix);

    // Values are written in their default text (True/False, numbers, dates);
    // Null is written as an empty text.
    TraceLine& Arg(const QString& strName, const QVariant& varValue);

    // The line as it stands now, with the current date and time.
    QString Text() const;
    // Hands the line to TraceLog::WriteTraceLine.
    void Write() const;

    // "29/10/03, 19:05:12": the date and time part of a trace line.
    static QString Stamp();

private:
    explicit TraceLine(const QString& strPrefix);
    QString m_strPrefix;
    QString m_strArgs;
};
