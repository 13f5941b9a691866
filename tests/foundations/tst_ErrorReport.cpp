// The three ways a function reports a failure, with their exact texts, and the
// guard at the event boundary.
#include "ScriptedPlatform.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBRuntime.h"

#include <QFile>
#include <QTest>
#include <stdexcept>

namespace {
QStringList traceLines() {
    QFile file(qEnvironmentVariable("CORVANTIS_TRACE"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void typeMismatch() {
    VB::CLng(QStringLiteral("abc"));
}
} // namespace

class tst_ErrorReport : public QObject {
    Q_OBJECT
private slots:
    void init();
    void prefixNamesClassAndMember();
    void errorReturnFillsMessageAndTracesIt();
    void errorReturnLeavesMessageAloneOnSuccess();
    void errorReturnKeepsAPrefixSpeltOtherwise();
    void errorBoxShowsExclamationOkTitledErrorAndTraces();
    void fullErrorBoxTextHasErlSourceAndSupportAddress();
    void fullErrorBoxIsPlainWithDefaultTitleAndTracesNothing();
    void supportAddressIsConfigurable();
    void guardShowsRunTimeErrorBox();
    void guardTurnsOtherExceptionsIntoInternalError();
    void guardLetsSuccessPass();

private:
    QString m_address;
};

void tst_ErrorReport::init() {
    if (m_address.isEmpty())
        m_address = ErrorReport::SupportAddress();
    ErrorReport::SetSupportAddress(m_address);
}

void tst_ErrorReport::prefixNamesClassAndMember() {
    QCOMPARE(
        ErrorReport::Prefix(QStringLiteral("ctlRun"), QStringLiteral("AddServicePropBagItems")),
        QStringLiteral("QVLTCONTROLS:ctlRun:AddServicePropBagItems: Error number is "));
    QCOMPARE(ErrorReport::FullSource(QStringLiteral("ctlRun"), QStringLiteral("PlayMusic")),
             QStringLiteral("QVLTCONTROLS: ctlRun: PlayMusic: "));
}

void tst_ErrorReport::errorReturnFillsMessageAndTracesIt() {
    QString strErrorMessage;
    const bool ok = ErrorReport::TryErrorReturn(
        ErrorReport::Prefix(QStringLiteral("ctlRun"), QStringLiteral("AddServicePropBagItems")),
        strErrorMessage, typeMismatch);
    QVERIFY(!ok);
    const QString expected = QStringLiteral(
        "QVLTCONTROLS:ctlRun:AddServicePropBagItems: Error number is 13, Type mismatch");
    QCOMPARE(strErrorMessage, expected);
    QCOMPARE(traceLines().last(), QStringLiteral("ERROR: ") + expected);
}

void tst_ErrorReport::errorReturnLeavesMessageAloneOnSuccess() {
    QString strErrorMessage;
    QVERIFY(
        ErrorReport::TryErrorReturn(QStringLiteral("x: Error number is "), strErrorMessage, [] {}));
    QVERIFY(strErrorMessage.isEmpty());
}

void tst_ErrorReport::errorReturnKeepsAPrefixSpeltOtherwise() {
    QString strErrorMessage;
    ErrorReport::TryErrorReturn(QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : Error number is "),
                                strErrorMessage, [] { throw VBError(VBErr::ElementNotFound); });
    QCOMPARE(
        strErrorMessage,
        QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : Error number is 35601, Element not found"));
}

void tst_ErrorReport::errorBoxShowsExclamationOkTitledErrorAndTraces() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    const bool ok = ErrorReport::TryErrorBox(
        ErrorReport::Prefix(QStringLiteral("ctlRun"), QStringLiteral("cmdForward_Click")),
        typeMismatch);
    QVERIFY(!ok);
    const QString expected =
        QStringLiteral("QVLTCONTROLS:ctlRun:cmdForward_Click: Error number is 13, Type mismatch");
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, expected);
    QCOMPARE(platform.LastBox().Buttons, 48);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Error"));
    QCOMPARE(traceLines().last(), QStringLiteral("ERROR: ") + expected);
}

void tst_ErrorReport::fullErrorBoxTextHasErlSourceAndSupportAddress() {
    ErrorReport::SetSupportAddress(QStringLiteral("help@example.org"));
    QCOMPARE(ErrorReport::FullErrorText(
                 ErrorReport::FullSource(QStringLiteral("ctlRun"), QStringLiteral("PlayMusic")),
                 VBError(VBErr::TypeMismatch), 120),
             QStringLiteral("Error number is 13, Type mismatch, ERL-120, Source=QVLTCONTROLS: "
                            "ctlRun: PlayMusic:  Please send the error details to "
                            "help@example.org"));
}

void tst_ErrorReport::fullErrorBoxIsPlainWithDefaultTitleAndTracesNothing() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    const qsizetype linesBefore = traceLines().size();
    QVERIFY(!ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(QStringLiteral("ctlRun"), QStringLiteral("PlayMusic")),
        typeMismatch));
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(
        platform.LastBox().Prompt,
        QStringLiteral("Error number is 13, Type mismatch, ERL-0, Source=QVLTCONTROLS: ctlRun: "
                       "PlayMusic:  Please send the error details to ") +
            ErrorReport::SupportAddress());
    QCOMPARE(platform.LastBox().Buttons, 0);
    QCOMPARE(platform.LastBox().Title, QString());
    QCOMPARE(traceLines().size(), linesBefore);
}

void tst_ErrorReport::supportAddressIsConfigurable() {
    QVERIFY(!ErrorReport::SupportAddress().isEmpty());
    ErrorReport::SetSupportAddress(QStringLiteral("office@stmarys.example"));
    QCOMPARE(ErrorReport::SupportAddress(), QStringLiteral("office@stmarys.example"));
    QVERIFY(
        ErrorReport::FullErrorText(QStringLiteral("S "), VBError(5))
            .endsWith(QStringLiteral("Please send the error details to office@stmarys.example")));
}

void tst_ErrorReport::guardShowsRunTimeErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ErrorReport::Guard(typeMismatch);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Run-time error '13':\n\nType mismatch"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Corvantis"));
    QCOMPARE(platform.LastBox().Buttons & 0x7, vbOKOnly);
}

void tst_ErrorReport::guardTurnsOtherExceptionsIntoInternalError() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ErrorReport::Guard([] { throw std::runtime_error("disk on fire"); });
    QVERIFY2(platform.LastBox().Prompt.startsWith(
                 QStringLiteral("Run-time error '51':\n\nInternal error")),
             qPrintable(platform.LastBox().Prompt));
    QVERIFY(platform.LastBox().Prompt.contains(QStringLiteral("disk on fire")));
}

void tst_ErrorReport::guardLetsSuccessPass() {
    ScriptedPlatform platform;
    bool ran = false;
    ErrorReport::Guard([&] { ran = true; });
    QVERIFY(ran);
    QCOMPARE(platform.BoxCount(), 0);
}

QTEST_MAIN(tst_ErrorReport)
#include "tst_ErrorReport.moc"
