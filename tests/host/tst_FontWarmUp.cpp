// The fonts' configuration loaded on a thread of its own while the program starts.
#include "FontWarmUp.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QtTest>

class tst_FontWarmUp : public QObject {
    Q_OBJECT

private slots:
    void init() {
        if (!FontWarmUp::Available())
            QSKIP("built without the font configuration library: nothing is loaded ahead");
    }

    void theConfigurationIsLoadedWhenWaitedFor() {
        FontWarmUp fonts;
        QVERIFY(!fonts.Loaded());
        fonts.Wait();
        QVERIFY(fonts.Loaded());
    }

    void waitingAgainReturnsAtOnceAndKeepsTheAnswer() {
        FontWarmUp fonts;
        fonts.Wait();
        fonts.Wait();
        QVERIFY(fonts.Loaded());
    }

    void aWarmUpNotWaitedForFinishesWhenItEnds() {
        { FontWarmUp fonts; } // ends with its thread joined, not left running
        FontWarmUp after;
        after.Wait();
        QVERIFY(after.Loaded());
    }

    void textIsMeasuredAfterTheWarmUp() {
        FontWarmUp fonts;
        fonts.Wait();
        QVERIFY(!QFontDatabase::families().isEmpty());
        QVERIFY(QFontMetrics(QFont()).horizontalAdvance(QStringLiteral("Amazing grace")) > 0);
    }
};

QTEST_MAIN(tst_FontWarmUp)
#include "tst_FontWarmUp.moc"
