// The scripted Platform of the tests: it records every call, answers from its
// queues, and fails a test that meets a box or dialog it did not script.
#include "ScriptedPlatform.h"
#include "foundations/VBError.h"

#include <QPainter>
#include <QTest>

class tst_ScriptedPlatform : public QObject {
    Q_OBJECT
private slots:
    void installsItselfAndRestoresThePreviousOne();
    void answersBoxesInOrderAndRecordsThem();
    void unexpectedMessageBoxFailsTheTest();
    void unusedAnswerFailsTheTest();
    void defaultAnswerIsAnOptIn();
    void fileDialogsAnswerFromQueuesAndCancelRaises32755();
    void unexpectedFileDialogFailsTheTest();
    void fontAndColorDialogs();
    void shellKeysAndPumpingAreRecorded();
    void monitorsMetricsAndDesktopAreScripted();
    void fileExistsCanBeScripted();
};

void tst_ScriptedPlatform::installsItselfAndRestoresThePreviousOne() {
    QCOMPARE(Platform::Installed(), nullptr);
    {
        ScriptedPlatform outer;
        QCOMPARE(&Platform::Current(), &outer);
        {
            ScriptedPlatform inner;
            QCOMPARE(&Platform::Current(), &inner);
        }
        QCOMPARE(&Platform::Current(), &outer);
    }
    QCOMPARE(Platform::Installed(), nullptr);
}

void tst_ScriptedPlatform::answersBoxesInOrderAndRecordsThem() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbYes);
    platform.QueueAnswer(vbCancel);
    QCOMPARE(Platform::Current().MsgBox(QStringLiteral("Save?"),
                                        vbYesNoCancel | vbQuestion | vbDefaultButton2,
                                        QStringLiteral("Save Changes?")),
             vbYes);
    QCOMPARE(Platform::Current().MsgBox(QStringLiteral("Again?"), vbOKCancel), vbCancel);
    QCOMPARE(platform.BoxCount(), 2);
    QCOMPARE(platform.Boxes().at(0).Prompt, QStringLiteral("Save?"));
    QCOMPARE(platform.Boxes().at(0).Buttons, 291);
    QCOMPARE(platform.Boxes().at(0).Title, QStringLiteral("Save Changes?"));
    QCOMPARE(platform.Boxes().at(0).Answer, vbYes);
    QCOMPARE(platform.LastBox().Title, QString());
    QCOMPARE(platform.PendingAnswers(), 0);
}

void tst_ScriptedPlatform::unexpectedMessageBoxFailsTheTest() {
    ScriptedPlatform platform;
    QEXPECT_FAIL("", "a box nobody scripted must fail the test", Continue);
    const qint32 answer = Platform::Current().MsgBox(QStringLiteral("Surprise"), vbYesNoCancel);
    // The safest button answers it.
    QCOMPARE(answer, vbCancel);
    QCOMPARE(platform.BoxCount(), 1);
}

void tst_ScriptedPlatform::unusedAnswerFailsTheTest() {
    QEXPECT_FAIL("", "an answer queued for a box that never came must fail the test", Continue);
    {
        ScriptedPlatform platform;
        platform.QueueAnswer(vbYes);
    }
    QVERIFY(true);
}

void tst_ScriptedPlatform::defaultAnswerIsAnOptIn() {
    ScriptedPlatform platform;
    platform.SetDefaultAnswer(vbOK);
    QCOMPARE(Platform::Current().MsgBox(QStringLiteral("Any")), vbOK);
    QCOMPARE(Platform::Current().MsgBox(QStringLiteral("Other")), vbOK);
    QCOMPARE(platform.BoxCount(), 2);
}

void tst_ScriptedPlatform::fileDialogsAnswerFromQueuesAndCancelRaises32755() {
    ScriptedPlatform platform;
    platform.QueueOpenFile(QStringLiteral("/tmp/song.txt"));
    platform.QueueOpenFile(QString());
    platform.QueueSaveFile(QString());
    platform.QueueSaveFile(QStringLiteral("/tmp/out.rtf"));
    QCOMPARE(Platform::Current().ShowOpen(QStringLiteral("Text|*.txt"), QStringLiteral("Pick")),
             QStringLiteral("/tmp/song.txt"));
    try {
        Platform::Current().ShowOpen(QStringLiteral("Text|*.txt"));
        QFAIL("Cancel did not raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 32755);
        QCOMPARE(e.Description, QStringLiteral("Cancel was selected."));
    }
    QCOMPARE(Platform::Current().ShowSave(QStringLiteral("Rich|*.rtf"), QString(), QString(),
                                          QString(), false),
             QString());
    QCOMPARE(Platform::Current().ShowSave(QStringLiteral("Rich|*.rtf"), QStringLiteral("Save"),
                                          QStringLiteral("/tmp"), QStringLiteral("out.rtf")),
             QStringLiteral("/tmp/out.rtf"));
    QCOMPARE(platform.Dialogs().size(), 4);
    QCOMPARE(platform.Dialogs().at(0).Kind, QStringLiteral("Open"));
    QCOMPARE(platform.Dialogs().at(0).Filter, QStringLiteral("Text|*.txt"));
    QCOMPARE(platform.Dialogs().at(0).Title, QStringLiteral("Pick"));
    QCOMPARE(platform.Dialogs().at(3).FileName, QStringLiteral("out.rtf"));
}

void tst_ScriptedPlatform::unexpectedFileDialogFailsTheTest() {
    ScriptedPlatform platform;
    QEXPECT_FAIL("", "a dialog nobody scripted must fail the test", Continue);
    QCOMPARE(Platform::Current().ShowOpen(QStringLiteral("All|*.*"), QString(), QString(), false),
             QString());
}

void tst_ScriptedPlatform::fontAndColorDialogs() {
    ScriptedPlatform platform;
    QFont font(QStringLiteral("Serif"), 20);
    platform.QueueFont(font);
    platform.QueueColor(0x0000FF);
    platform.QueueColor(std::nullopt);
    QCOMPARE(Platform::Current().ShowFont(QFont()).pointSize(), 20);
    QCOMPARE(Platform::Current().ShowColor(0), 0x0000FF);
    QCOMPARE(Platform::Current().ShowColor(0x123456, false), 0x123456);
}

void tst_ScriptedPlatform::shellKeysAndPumpingAreRecorded() {
    ScriptedPlatform platform;
    int hookRuns = 0;
    platform.SetDoEventsHook([&] { ++hookRuns; });
    platform.SetShellResult(31);
    QCOMPARE(Platform::Current().ShellExecute(QStringLiteral("open"), QStringLiteral("a.doc"),
                                              QString(), QString(), 1),
             31);
    Platform::Current().OpenWith(QStringLiteral("a.doc"));
    Platform::Current().SendKeys(QStringLiteral("{F1}"));
    Platform::Current().DoEvents();
    Platform::Current().DoEvents();
    QCOMPARE(platform.ShellCalls().size(), 1);
    QCOMPARE(platform.ShellCalls().first().Result, 31);
    QCOMPARE(platform.OpenWithFiles(), QStringList{QStringLiteral("a.doc")});
    QCOMPARE(platform.SentKeys(), QStringList{QStringLiteral("{F1}")});
    QCOMPARE(platform.DoEventsCount(), 2);
    QCOMPARE(hookRuns, 2);
    platform.ClearRecords();
    QCOMPARE(platform.DoEventsCount(), 0);
    QVERIFY(platform.ShellCalls().isEmpty());
}

void tst_ScriptedPlatform::monitorsMetricsAndDesktopAreScripted() {
    ScriptedPlatform platform;
    platform.SetMonitors({QRect(0, 0, 1024, 768), QRect(1024, 0, 1920, 1080)});
    Platform& p = Platform::Current();
    QCOMPARE(p.MonitorRects().size(), 2);
    QCOMPARE(p.MonitorFromPoint(QPoint(1500, 10)), 1);
    QCOMPARE(p.MonitorFromPoint(QPoint(-5, 10)), -1);
    QCOMPARE(p.GetSystemMetrics(0), 1024);
    QCOMPARE(p.GetSystemMetrics(1), 768);
    QCOMPARE(p.GetSystemMetrics(78), 2944);
    QCOMPARE(p.GetSystemMetrics(79), 1080);
    QCOMPARE(p.GetSystemMetrics(80), 2);
    platform.SetMetric(80, 3);
    QCOMPARE(p.GetSystemMetrics(80), 3);

    QPixmap desktop(2944, 1080);
    desktop.fill(Qt::blue);
    {
        QPainter painter(&desktop);
        painter.fillRect(QRect(1024, 0, 1920, 1080), Qt::red);
    }
    platform.SetDesktop(desktop);
    const QImage grabbed = p.GrabDesktop(QRect(1024, 0, 100, 50)).toImage();
    QCOMPARE(grabbed.size(), QSize(100, 50));
    QCOMPARE(QColor(grabbed.pixel(10, 10)), QColor(Qt::red));
    QCOMPARE(platform.Grabs(), QList<QRect>{QRect(1024, 0, 100, 50)});
}

void tst_ScriptedPlatform::fileExistsCanBeScripted() {
    ScriptedPlatform platform;
    QVERIFY(!Platform::Current().FileExists(QStringLiteral("C:\\Songs\\Grace.txt")));
    platform.SetFileExists(QStringLiteral("C:\\Songs\\Grace.txt"), true);
    QVERIFY(Platform::Current().FileExists(QStringLiteral("C:\\Songs\\Grace.txt")));
}

QTEST_MAIN(tst_ScriptedPlatform)
#include "tst_ScriptedPlatform.moc"
