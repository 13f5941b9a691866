// The line that nearly every function writes on entry: project word, class,
// member, " @ ", the platform's short date, ", ", the time with seconds, and
// each argument as name, " = ", value, ", ".
#include "TraceLog.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {
QStringList traceLines() {
    QFile file(qEnvironmentVariable("CORVANTIS_TRACE"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// The date and time part, "29/10/03, 19:05:12" in the platform's short date.
const QString stamp = QStringLiteral("(?<date>[^,]+), (?<time>\\d\\d:\\d\\d:\\d\\d)");

// The stamp's date is today's (or yesterday's when the test ran over midnight).
bool isShortDateOfToday(const QString& strDate) {
    const QDate today = QDate::currentDate();
    return strDate == VB::ShortDate(today) || strDate == VB::ShortDate(today.addDays(-1));
}
} // namespace

class tst_TraceLine : public QObject {
    Q_OBJECT
private slots:
    void lineWithoutArgumentsEndsWithTheTime();
    void traceLineOfMemberWithTwoArgumentsEndsInCommaBlank();
    void dateIsShortDateAndTimeHasSeconds();
    void stampFollowsTheClockFromSecondToSecond();
    void argumentsTakeTheirDefaultText();
    void prefixSpeltOtherwiseIsKept();
    void writeHandsTheLineToTheTraceLog();
    void errorLinesAreMarked();
};

void tst_TraceLine::lineWithoutArgumentsEndsWithTheTime() {
    const QString line = TraceLine(QStringLiteral("ctlRun"), QStringLiteral("AtEndOfSI")).Text();
    const QRegularExpression form(QStringLiteral("^QVLTCONTROLS:ctlRun:AtEndOfSI @ ") + stamp +
                                  QStringLiteral("$"));
    QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
}

void tst_TraceLine::traceLineOfMemberWithTwoArgumentsEndsInCommaBlank() {
    const QString line = TraceLine(QStringLiteral("ctlRun"), QStringLiteral("ShowSIAsRunning"))
                             .Arg(QStringLiteral("lngSIID"), 5)
                             .Arg(QStringLiteral("blnIsPartOfActiveService"), true)
                             .Text();
    const QRegularExpression form(
        QStringLiteral("^QVLTCONTROLS:ctlRun:ShowSIAsRunning @ ") + stamp +
        QStringLiteral(": lngSIID = 5, blnIsPartOfActiveService = True, $"));
    QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
    QVERIFY(line.endsWith(QStringLiteral(", ")));
}

void tst_TraceLine::dateIsShortDateAndTimeHasSeconds() {
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral(" @ ") + stamp + QStringLiteral("$"))
            .match(TraceLine(QStringLiteral("ctlRun"), QStringLiteral("AtEndOfSI")).Text());
    QVERIFY(m.hasMatch());
    QVERIFY2(isShortDateOfToday(m.captured(QStringLiteral("date"))),
             qPrintable(m.captured(QStringLiteral("date"))));
    const QTime time =
        QTime::fromString(m.captured(QStringLiteral("time")), QStringLiteral("HH:mm:ss"));
    QVERIFY(time.isValid());
    QVERIFY(qAbs(time.secsTo(QTime::currentTime())) < 5 ||
            qAbs(time.secsTo(QTime::currentTime())) > 86000);
    QCOMPARE(TraceLine::Stamp().count(QLatin1Char(',')), 1);
}

// The stamp moves on with the clock: once its second has passed, the next
// stamp is a later time, in the same form.
void tst_TraceLine::stampFollowsTheClockFromSecondToSecond() {
    const QString first = TraceLine::Stamp();
    QTRY_VERIFY_WITH_TIMEOUT(TraceLine::Stamp() != first, 5000);
    const QString next = TraceLine::Stamp();
    const QRegularExpression form(QStringLiteral("^") + stamp + QStringLiteral("$"));
    const QRegularExpressionMatch before = form.match(first);
    const QRegularExpressionMatch after = form.match(next);
    QVERIFY(before.hasMatch() && after.hasMatch());
    const QTime from = QTime::fromString(before.captured(QStringLiteral("time")), "HH:mm:ss");
    const QTime to = QTime::fromString(after.captured(QStringLiteral("time")), "HH:mm:ss");
    QVERIFY2(from.secsTo(to) > 0 || from.secsTo(to) < -86000, qPrintable(first + " / " + next));
}

void tst_TraceLine::argumentsTakeTheirDefaultText() {
    const QDateTime when(QDate(2003, 10, 29), QTime(19, 5, 12));
    const QString line = TraceLine(QStringLiteral("ctlService"), QStringLiteral("Test"))
                             .Arg(QStringLiteral("strName"), QStringLiteral("Amazing Grace"))
                             .Arg(QStringLiteral("blnFlag"), false)
                             .Arg(QStringLiteral("dblValue"), 2.5)
                             .Arg(QStringLiteral("varNull"), QVariant())
                             .Arg(QStringLiteral("dtWhen"), when)
                             .Text();
    QVERIFY2(line.endsWith(QStringLiteral(": strName = Amazing Grace, blnFlag = False, dblValue = "
                                          "2.5, varNull = , dtWhen = ") +
                           VB::CStr(when) + QStringLiteral(", ")),
             qPrintable(line));
}

void tst_TraceLine::prefixSpeltOtherwiseIsKept() {
    const QString line =
        TraceLine::WithPrefix(QStringLiteral("QVLTCONTROLS:ctlRun:'RefreshScreenMirror")).Text();
    QVERIFY2(line.startsWith(QStringLiteral("QVLTCONTROLS:ctlRun:'RefreshScreenMirror @ ")),
             qPrintable(line));
}

void tst_TraceLine::writeHandsTheLineToTheTraceLog() {
    TraceLine(QStringLiteral("ctlTemplate"), QStringLiteral("SHowProperties"))
        .Arg(QStringLiteral("Mode"), 1)
        .Write();
    const QStringList lines = traceLines();
    QVERIFY(!lines.isEmpty());
    const QRegularExpression form(QStringLiteral("^QVLTCONTROLS:ctlTemplate:SHowProperties @ ") +
                                  stamp + QStringLiteral(": Mode = 1, $"));
    QVERIFY2(form.match(lines.last()).hasMatch(), qPrintable(lines.last()));
}

void tst_TraceLine::errorLinesAreMarked() {
    TraceLog::Instance().WriteErrorLine(QStringLiteral("RunningService: no such service"));
    QCOMPARE(traceLines().last(), QStringLiteral("ERROR: RunningService: no such service"));
}

QTEST_GUILESS_MAIN(tst_TraceLine)
#include "tst_TraceLine.moc"
