// The prologue every member shares: the trace line on entry, the failure
// prefix in its usual and its odd spellings, the three report forms run
// through it, and the redraw lock that is lifted on every way out.
#include "ScriptedPlatform.h"
#include "TraceFile.h"
#include "VBErrorCheck.h"
#include "foundations/MemberEntry.h"
#include "foundations/VBError.h"

#include <QTest>
#include <QTreeWidget>

class tst_MemberEntry : public QObject {
    Q_OBJECT
private slots:
    void enterWritesTheTraceLineWithItsArguments();
    void nothingIsTracedBeforeEnter();
    void prefixIsClassMemberAndErrorNumber();
    void speltPrefixHasABlankBeforeTheColon();
    void copiedPrefixIsKeptAsWritten();
    void errorReturnFillsTheMessageAndTheErrorLine();
    void errorReturnLeavesTheMessageEmptyOnSuccess();
    void errorBoxShowsTheTextUnderTheTitleError();
    void fullErrorBoxNamesTheSourceAndTracesNothing();
    void guardedShowsTheRuntimeErrorBox();
    void redrawLockIsLiftedWhenAFailureLeavesTheBlock();
    void redrawLockReleasedEarlyIsNotLiftedTwice();
    void vbErrorCheckAnswersZeroWithoutAFailure();
};

void tst_MemberEntry::enterWritesTheTraceLineWithItsArguments() {
    TraceFile trace;
    MemberEntry(QStringLiteral("ctlRun"), QStringLiteral("ShowSIAsRunning"))
        .Arg(QStringLiteral("lngSIID"), 5)
        .Arg(QStringLiteral("blnIsPartOfActiveService"), true)
        .Enter();
    const QStringList lines = trace.NewLines();
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines.first().startsWith(QStringLiteral("QVLTCONTROLS:ctlRun:ShowSIAsRunning @ ")),
             qPrintable(lines.first()));
    QVERIFY(
        lines.first().endsWith(QStringLiteral(": lngSIID = 5, blnIsPartOfActiveService = True, ")));
}

void tst_MemberEntry::nothingIsTracedBeforeEnter() {
    TraceFile trace;
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("AtEndOfSI"));
    QVERIFY(trace.NewLines().isEmpty());
    QCOMPARE(entry.Member(), QStringLiteral("AtEndOfSI"));
}

void tst_MemberEntry::prefixIsClassMemberAndErrorNumber() {
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("AddServicePropBagItems"));
    QCOMPARE(entry.Prefix(),
             QStringLiteral("QVLTCONTROLS:ctlRun:AddServicePropBagItems: Error number is "));
    QCOMPARE(entry.FullSource(), QStringLiteral("QVLTCONTROLS: ctlRun: AddServicePropBagItems: "));
}

void tst_MemberEntry::speltPrefixHasABlankBeforeTheColon() {
    const auto entry = MemberEntry(QStringLiteral("ctlRun"), QStringLiteral("SetupSong")).Spelt();
    QCOMPARE(entry.Prefix(), QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : Error number is "));
}

void tst_MemberEntry::copiedPrefixIsKeptAsWritten() {
    const auto entry =
        MemberEntry(QStringLiteral("ctlRun"), QStringLiteral("LoadGeneralTab"))
            .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlOptions:LoadGeneralTab: Error number is "));
    QCOMPARE(entry.Prefix(),
             QStringLiteral("QVLTCONTROLS:ctlOptions:LoadGeneralTab: Error number is "));
}

void tst_MemberEntry::errorReturnFillsTheMessageAndTheErrorLine() {
    TraceFile trace;
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("RunningService"));
    QString strErrorMessage;
    const bool ok = entry.ErrorReturn(strErrorMessage, [] { throw VBError(VBErr::TypeMismatch); });
    QVERIFY(!ok);
    QCOMPARE(
        strErrorMessage,
        QStringLiteral("QVLTCONTROLS:ctlRun:RunningService: Error number is 13, Type mismatch"));
    QCOMPARE(trace.NewErrorLines(), QStringList{strErrorMessage});
}

void tst_MemberEntry::errorReturnLeavesTheMessageEmptyOnSuccess() {
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("RunningService"));
    QString strErrorMessage;
    int intRuns = 0;
    QVERIFY(entry.ErrorReturn(strErrorMessage, [&] { ++intRuns; }));
    QCOMPARE(intRuns, 1);
    QVERIFY(strErrorMessage.isEmpty());
}

void tst_MemberEntry::errorBoxShowsTheTextUnderTheTitleError() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    const MemberEntry entry(QStringLiteral("ctlServiceItemGallery"),
                            QStringLiteral("mnuSIOpen_Click"));
    QVERIFY(!entry.ErrorBox([] { throw VBError(VBErr::IndexOutOfBounds); }));
    QCOMPARE(platform.Boxes().size(), 1);
    QCOMPARE(platform.Boxes().first().Prompt,
             QStringLiteral("QVLTCONTROLS:ctlServiceItemGallery:mnuSIOpen_Click: Error number is "
                            "35600, Index out of bounds"));
    QCOMPARE(platform.Boxes().first().Title, QStringLiteral("Error"));
    QCOMPARE(platform.Boxes().first().Buttons, qint32(vbExclamation | vbOKOnly));
}

void tst_MemberEntry::fullErrorBoxNamesTheSourceAndTracesNothing() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    TraceFile trace;
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("PlayMusic"));
    QVERIFY(!entry.FullErrorBox([] { throw VBError(VBErr::SubscriptOutOfRange); }, 7));
    QCOMPARE(platform.Boxes().size(), 1);
    QVERIFY(platform.Boxes().first().Prompt.startsWith(
        QStringLiteral("Error number is 9, Subscript out of range, ERL-7, Source=QVLTCONTROLS: "
                       "ctlRun: PlayMusic:  Please send the error details to ")));
    QVERIFY(trace.NewErrorLines().isEmpty());
}

void tst_MemberEntry::guardedShowsTheRuntimeErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    const MemberEntry entry(QStringLiteral("ctlRun"), QStringLiteral("cmdForward_Click"));
    entry.Guarded([] { throw VBError(VBErr::TypeMismatch); });
    QCOMPARE(platform.Boxes().size(), 1);
    QCOMPARE(platform.Boxes().first().Prompt,
             QStringLiteral("Run-time error '13':\n\nType mismatch"));
}

void tst_MemberEntry::redrawLockIsLiftedWhenAFailureLeavesTheBlock() {
    QTreeWidget tree;
    QCOMPARE(VBErrorNumberOf([&] {
                 RedrawLock lock(&tree);
                 QVERIFY(!tree.updatesEnabled());
                 throw VBError(VBErr::ElementNotFound);
             }),
             35601);
    QVERIFY(tree.updatesEnabled());
}

void tst_MemberEntry::redrawLockReleasedEarlyIsNotLiftedTwice() {
    QTreeWidget tree;
    {
        RedrawLock lock(&tree);
        lock.Release();
        QVERIFY(tree.updatesEnabled());
        tree.setUpdatesEnabled(false); // locked again by someone else
    }
    QVERIFY(!tree.updatesEnabled());
}

void tst_MemberEntry::vbErrorCheckAnswersZeroWithoutAFailure() {
    QString strDescription = QStringLiteral("untouched");
    QCOMPARE(VBErrorNumberOf([] {}, &strDescription), 0);
    QCOMPARE(strDescription, QStringLiteral("untouched"));
}

QTEST_MAIN(tst_MemberEntry)
#include "tst_MemberEntry.moc"
