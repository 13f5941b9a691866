// A failure that no handler caught reaches the event boundary: the user sees
// VB's run-time error box and the application goes on.
#include "ScriptedPlatform.h"
#include "foundations/GuardedApplication.h"
#include "foundations/VBError.h"

#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {
// A widget whose mouse handler fails, as an event handler without an error
// handler of its own would.
class FailingWidget : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override {
        ++presses;
        throw VBError(VBErr::TypeMismatch);
    }
};
} // namespace

class tst_GuardedApplication : public QObject {
    Q_OBJECT
private slots:
    void theApplicationIsGuarded();
    void failureInEventHandlerShowsRunTimeErrorBox();
    void failureInSlotOfAClickShowsRunTimeErrorBox();
    void failureInQueuedCallShowsBoxAndLoopGoesOn();
};

void tst_GuardedApplication::theApplicationIsGuarded() {
    QVERIFY(qobject_cast<GuardedApplication*>(QCoreApplication::instance()));
}

void tst_GuardedApplication::failureInEventHandlerShowsRunTimeErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    FailingWidget widget;
    widget.resize(50, 50);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTest::mouseClick(&widget, Qt::LeftButton);
    QCOMPARE(widget.presses, 1);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Run-time error '13':\n\nType mismatch"));
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Corvantis"));
    // The widget still works: the next click arrives as well.
    platform.QueueAnswer(vbOK);
    QTest::mouseClick(&widget, Qt::LeftButton);
    QCOMPARE(widget.presses, 2);
}

void tst_GuardedApplication::failureInSlotOfAClickShowsRunTimeErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    QPushButton cmdForward(QStringLiteral("Forward"));
    QObject::connect(&cmdForward, &QPushButton::clicked,
                     [] { throw VBError(VBErr::ElementNotFound); });
    cmdForward.show();
    QVERIFY(QTest::qWaitForWindowExposed(&cmdForward));
    QTest::mouseClick(&cmdForward, Qt::LeftButton);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt,
             QStringLiteral("Run-time error '35601':\n\nElement not found"));
}

void tst_GuardedApplication::failureInQueuedCallShowsBoxAndLoopGoesOn() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    bool laterRan = false;
    QTimer::singleShot(0, this, [] { throw VBError(VBErr::Overflow); });
    QTimer::singleShot(0, this, [&] { laterRan = true; });
    QTRY_VERIFY(laterRan);
    QCOMPARE(platform.BoxCount(), 1);
    QCOMPARE(platform.LastBox().Prompt, QStringLiteral("Run-time error '6':\n\nOverflow"));
}

int main(int argc, char** argv) {
    GuardedApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    tst_GuardedApplication test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GuardedApplication.moc"
