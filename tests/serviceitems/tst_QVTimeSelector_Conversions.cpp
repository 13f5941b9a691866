// The duration control's conversions, as tables: seconds to boxes, boxes to
// short and long texts, texts back to seconds, and the minutes both ways.

#include "tst_QVTimeSelector_Fixture.h"

#include "ScriptedPlatform.h"
#include "foundations/VBConstants.h"
#include "serviceitems/QVTimeSelector.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace TimeSelectorTest;

class tst_QVTimeSelector_Conversions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void timeInSecondsShowsWholeUnitsFromAboveOneMinute_data();
    void timeInSecondsShowsWholeUnitsFromAboveOneMinute();
    void timeInSecondsSetterMarksAllFourProperties();
    void timeInSecondsReadsAllBoxesShownOrNot();

    void timeTextsOfTheBoxes_data();
    void timeTextsOfTheBoxes();
    void shortTimeOfNoTimeIsEmptyAndTraced();

    void timeInMinutesRoundsSecondsAndMayAddOneToSecondsBox_data();
    void timeInMinutesRoundsSecondsAndMayAddOneToSecondsBox();
    void timeInMinutesReadAgainKeepsAddingToSecondsBox();
    void timeInMinutesSetterClearsEveryBoxAndShowsNothingOfTheValue();

    void shortTimeSetterReadsTheSixWordsInOrder_data();
    void shortTimeSetterReadsTheSixWordsInOrder();
    void shortTimeSetterGoesThroughTheUnitSettersOfTheMode_data();
    void shortTimeSetterGoesThroughTheUnitSettersOfTheMode();
    void shortTimeSetterWithoutNumberBeforeHrsShowsErrorBox();

    void convertTimeToSecondsReadsTheSixWordsInOrder_data();
    void convertTimeToSecondsReadsTheSixWordsInOrder();
    void convertTimeToSecondsChangesNothingOnScreen();
    void convertTimeToSecondsWithoutNumberShowsErrorBoxAndGivesZero();

private:
    std::unique_ptr<ScriptedPlatform> m_platform;
};

void tst_QVTimeSelector_Conversions::init() {
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_QVTimeSelector_Conversions::cleanup() {
    m_platform.reset();
}

void tst_QVTimeSelector_Conversions::timeInSecondsShowsWholeUnitsFromAboveOneMinute_data() {
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("hours");
    QTest::addColumn<QString>("minutes");
    QTest::addColumn<QString>("seconds");
    QTest::addColumn<int>("readBack");
    QTest::newRow("0") << 0 << "0"
                       << "0"
                       << "0" << 0;
    QTest::newRow("1") << 1 << "0"
                       << "0"
                       << "0" << 0;
    QTest::newRow("45") << 45 << "0"
                        << "0"
                        << "0" << 0;
    QTest::newRow("60") << 60 << "0"
                        << "0"
                        << "0" << 0;
    QTest::newRow("61") << 61 << "0"
                        << "1"
                        << "1" << 61;
    QTest::newRow("90") << 90 << "0"
                        << "1"
                        << "30" << 90;
    QTest::newRow("3599") << 3599 << "0"
                          << "59"
                          << "59" << 3599;
    QTest::newRow("3600 is sixty minutes") << 3600 << "0"
                                           << "60"
                                           << "0" << 3600;
    QTest::newRow("3601") << 3601 << "0"
                          << "60"
                          << "1" << 3601;
    QTest::newRow("3659") << 3659 << "0"
                          << "60"
                          << "59" << 3659;
    QTest::newRow("3660") << 3660 << "1"
                          << "1"
                          << "0" << 3660;
    QTest::newRow("3661") << 3661 << "1"
                          << "1"
                          << "1" << 3661;
    QTest::newRow("7322") << 7322 << "2"
                          << "2"
                          << "2" << 7322;
    QTest::newRow("negative") << -5 << "0"
                              << "0"
                              << "0" << 0;
}

void tst_QVTimeSelector_Conversions::timeInSecondsShowsWholeUnitsFromAboveOneMinute() {
    QFETCH(int, value);
    Host host;
    host.ts->setHours(9); // something to overwrite
    host.ts->setTimeInSeconds(value);
    QTEST(host.Text("txtHours"), "hours");
    QTEST(host.Text("txtMinutes"), "minutes");
    QTEST(host.Text("txtSeconds"), "seconds");
    QCOMPARE(host.ts->Hours(), host.Text("txtHours").toInt());
    QCOMPARE(host.ts->Minutes(), host.Text("txtMinutes").toInt());
    QCOMPARE(host.ts->Seconds(), host.Text("txtSeconds").toInt());
    QTEST(host.ts->TimeInSeconds(), "readBack");
}

void tst_QVTimeSelector_Conversions::timeInSecondsSetterMarksAllFourProperties() {
    Host host;
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setTimeInSeconds(75);
    QStringList names;
    for (const QList<QVariant>& args : changed)
        names << args.at(0).toString();
    QCOMPARE(names, QStringList({QStringLiteral("TimeInSeconds"), QStringLiteral("Hours"),
                                 QStringLiteral("Minutes"), QStringLiteral("Seconds")}));
}

void tst_QVTimeSelector_Conversions::timeInSecondsReadsAllBoxesShownOrNot() {
    Host host;
    host.ts->setUserCanChange(1);
    host.ts->ReadProperties({{QStringLiteral("Hours"), 1},
                             {QStringLiteral("Minutes"), 2},
                             {QStringLiteral("Seconds"), 3},
                             {QStringLiteral("UserCanChange"), 2}});
    QVERIFY(host.Box("txtSeconds")->isHidden());
    QCOMPARE(host.ts->TimeInSeconds(), 3600 + 120 + 3);
}

// Seconds are set in mode 0, where they stay as they are, so the boxes hold
// exactly that many seconds.
void tst_QVTimeSelector_Conversions::timeTextsOfTheBoxes_data() {
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("shortTime");
    QTest::addColumn<QString>("longTime");
    QTest::addColumn<int>("shortTimeInSeconds");
    QTest::newRow("0") << 0 << ""
                       << "" << 0;
    QTest::newRow("1") << 1 << "1 sec"
                       << "1 second " << 1;
    QTest::newRow("2") << 2 << "2 secs"
                       << "2 seconds " << 2;
    QTest::newRow("59") << 59 << "59 secs"
                        << "59 seconds " << 59;
    QTest::newRow("60 stays seconds") << 60 << "60 secs"
                                      << "60 seconds " << 60;
    QTest::newRow("61") << 61 << "1 min 1 sec"
                        << "1 minute 1 second " << 61;
    QTest::newRow("90") << 90 << "1 min 30 secs"
                        << "1 minute 30 seconds " << 90;
    QTest::newRow("120") << 120 << "2 mins"
                         << "2 minutes " << 120;
    QTest::newRow("3599") << 3599 << "59 mins 59 secs"
                          << "59 minutes 59 seconds " << 3599;
    QTest::newRow("3600 short an hour, long sixty minutes") << 3600 << "1 hr"
                                                            << "60 minutes " << 3600;
    QTest::newRow("3601") << 3601 << "1 hr 1 sec"
                          << "60 minutes 1 second " << 3601;
    QTest::newRow("3659") << 3659 << "1 hr 59 secs"
                          << "60 minutes 59 seconds " << 3659;
    QTest::newRow("3660") << 3660 << "1 hr 1 min"
                          << "1 hour 1 minute " << 3660;
    QTest::newRow("3661") << 3661 << "1 hr 1 min 1 sec"
                          << "1 hour 1 minute 1 second " << 3661;
    QTest::newRow("7200") << 7200 << "2 hrs"
                          << "2 hours " << 7200;
    QTest::newRow("7322") << 7322 << "2 hrs 2 mins 2 secs"
                          << "2 hours 2 minutes 2 seconds " << 7322;
    QTest::newRow("negative says nothing") << -30 << ""
                                           << "" << 0;
}

void tst_QVTimeSelector_Conversions::timeTextsOfTheBoxes() {
    QFETCH(int, seconds);
    QFETCH(QString, shortTime);
    Host host;
    host.ts->setSeconds(seconds);
    QCOMPARE(host.ts->TimeInSeconds(), seconds);
    QCOMPARE(host.ts->ShortTime(), shortTime);
    QTEST(host.ts->LongTime(), "longTime");
    QTEST(host.ts->ConvertTimeToSeconds(shortTime), "shortTimeInSeconds");
    // Reading the texts changes nothing.
    QCOMPARE(host.Text("txtSeconds"), QString::number(seconds));
}

void tst_QVTimeSelector_Conversions::shortTimeOfNoTimeIsEmptyAndTraced() {
    Host host;
    TraceReader trace;
    QCOMPARE(host.ts->ShortTime(), QString());
    QCOMPARE(host.ts->LongTime(), QString());
    QCOMPARE(trace.Members(),
             QStringList({QStringLiteral("ShortTime"), QStringLiteral("TimeInSeconds"),
                          QStringLiteral("LongTime"), QStringLiteral("TimeInSeconds")}));
}

void tst_QVTimeSelector_Conversions::timeInMinutesRoundsSecondsAndMayAddOneToSecondsBox_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("timeInMinutes");
    QTest::addColumn<QString>("secondsAfter");
    QTest::newRow("0") << 0 << 0 << 0 << 0 << "0";
    QTest::newRow("29 secs") << 0 << 0 << 29 << 0 << "29";
    QTest::newRow("30 secs half to even") << 0 << 0 << 30 << 0 << "30";
    QTest::newRow("31 secs adds a second") << 0 << 0 << 31 << 1 << "32";
    QTest::newRow("45 secs adds a second") << 0 << 0 << 45 << 1 << "46";
    QTest::newRow("59 secs adds a second") << 0 << 0 << 59 << 1 << "60";
    QTest::newRow("60 secs") << 0 << 0 << 60 << 1 << "60";
    QTest::newRow("61 secs") << 0 << 0 << 61 << 1 << "61";
    QTest::newRow("90 secs half to even") << 0 << 0 << 90 << 2 << "90";
    QTest::newRow("150 secs half to even") << 0 << 0 << 150 << 2 << "150";
    QTest::newRow("1 hr 2 mins 45 secs") << 1 << 2 << 45 << 63 << "46";
    QTest::newRow("75 mins no carry") << 0 << 75 << 0 << 75 << "0";
}

void tst_QVTimeSelector_Conversions::timeInMinutesRoundsSecondsAndMayAddOneToSecondsBox() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(int, seconds);
    QFETCH(QString, secondsAfter);
    Host host;
    host.ts->setHours(hours);
    host.ts->setMinutes(minutes);
    host.ts->setSeconds(seconds);
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    QTEST(host.ts->TimeInMinutes(), "timeInMinutes");
    QCOMPARE(host.Text("txtSeconds"), secondsAfter);
    QCOMPARE(host.ts->Seconds(), secondsAfter.toInt());
    QCOMPARE(changed.count(), secondsAfter == QString::number(seconds) ? 0 : 1);
}

void tst_QVTimeSelector_Conversions::timeInMinutesReadAgainKeepsAddingToSecondsBox() {
    Host host;
    host.ts->setMinutes(2);
    host.ts->setSeconds(57);
    QCOMPARE(host.ts->TimeInMinutes(), 3);
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("58"));
    QCOMPARE(host.ts->TimeInMinutes(), 3);
    QCOMPARE(host.ts->TimeInMinutes(), 3);
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("60"));
    // 60 modulo 60 is 0: the box stays now.
    QCOMPARE(host.ts->TimeInMinutes(), 3);
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("60"));
    QCOMPARE(host.ts->TimeInSeconds(), 180);
}

void tst_QVTimeSelector_Conversions::timeInMinutesSetterClearsEveryBoxAndShowsNothingOfTheValue() {
    Host host;
    host.ts->setHours(1);
    host.ts->setMinutes(2);
    host.ts->setSeconds(3);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setTimeInMinutes(90);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("0"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("0"));
    QCOMPARE(host.ts->Hours(), 0);
    QCOMPARE(host.ts->Minutes(), 0);
    QCOMPARE(host.ts->Seconds(), 0);
    QCOMPARE(host.ts->TimeInMinutes(), 0);
    QStringList names;
    for (const QList<QVariant>& args : changed)
        names << args.at(0).toString();
    QCOMPARE(names, QStringList({QStringLiteral("TimeInMinutes"), QStringLiteral("Hours"),
                                 QStringLiteral("Minutes"), QStringLiteral("Seconds")}));
}

void tst_QVTimeSelector_Conversions::shortTimeSetterReadsTheSixWordsInOrder_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("seconds");
    QTest::newRow("empty clears") << "" << 0 << 0 << 0;
    QTest::newRow("2 hrs 5 mins") << "2 hrs 5 mins" << 2 << 5 << 0;
    QTest::newRow("1 hr 1 min 1 sec") << "1 hr 1 min 1 sec" << 1 << 1 << 1;
    QTest::newRow("2 hrs 2 mins 2 secs") << "2 hrs 2 mins 2 secs" << 2 << 2 << 2;
    QTest::newRow("59 mins 59 secs") << "59 mins 59 secs" << 0 << 59 << 59;
    QTest::newRow("45 secs") << "45 secs" << 0 << 0 << 45;
    QTest::newRow("90 mins no carry") << "90 mins" << 0 << 90 << 0;
    QTest::newRow("a lone hr is one hour") << "3 hr" << 1 << 0 << 0;
    QTest::newRow("a lone sec is one second") << "9 sec" << 0 << 0 << 1;
    QTest::newRow("12 hrs") << "12 hrs" << 12 << 0 << 0;
    QTest::newRow("fraction rounded half to even") << "2.5 hrs" << 2 << 0 << 0;
    QTest::newRow("no words") << "soon" << 0 << 0 << 0;
}

void tst_QVTimeSelector_Conversions::shortTimeSetterReadsTheSixWordsInOrder() {
    QFETCH(QString, text);
    Host host;
    host.ts->setHours(7);
    host.ts->setMinutes(8);
    host.ts->setSeconds(9);
    host.ts->setShortTime(text);
    QTEST(host.ts->Hours(), "hours");
    QTEST(host.ts->Minutes(), "minutes");
    QTEST(host.ts->Seconds(), "seconds");
    QCOMPARE(host.Text("txtHours"), QString::number(host.ts->Hours()));
    QCOMPARE(host.Text("txtMinutes"), QString::number(host.ts->Minutes()));
    QCOMPARE(host.Text("txtSeconds"), QString::number(host.ts->Seconds()));
}

void tst_QVTimeSelector_Conversions::shortTimeSetterGoesThroughTheUnitSettersOfTheMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("boxHours");
    QTest::addColumn<double>("boxMinutes");
    QTest::addColumn<double>("boxSeconds");
    QTest::addColumn<int>("timeInSeconds");
    QTest::newRow("2 half an hour and more adds an hour")
        << 2 << "2 hrs 45 mins" << 3.0 << 0.0 << 0.0 << 10800;
    QTest::newRow("2 under half an hour is dropped")
        << 2 << "2 hrs 30 mins" << 2.0 << 0.0 << 0.0 << 7200;
    QTest::newRow("3 hours fold into minutes") << 3 << "1 hr 5 mins" << 0.0 << 5.0 << 0.0 << 300;
    QTest::newRow("4 hours fold into seconds") << 4 << "2 hrs" << 0.0 << 0.0 << 7200.0 << 7200;
    QTest::newRow("4 seconds replace the folded minutes")
        << 4 << "1 min 5 secs" << 0.0 << 0.0 << 5.0 << 5;
    QTest::newRow("5 seconds fold into minutes")
        << 5 << "3 mins 40 secs" << 0.0 << 4.0 << 0.0 << 240;
}

// The setter sets Hours, Minutes and Seconds, each as its own setter does in
// the mode (the mode 3 hour is folded into the minutes, and the minutes then
// replace it).
void tst_QVTimeSelector_Conversions::shortTimeSetterGoesThroughTheUnitSettersOfTheMode() {
    QFETCH(int, mode);
    QFETCH(QString, text);
    Host host;
    host.ts->setUserCanChange(mode);
    host.ts->setShortTime(text);
    QTEST(host.Value("txtHours"), "boxHours");
    QTEST(host.Value("txtMinutes"), "boxMinutes");
    QTEST(host.Value("txtSeconds"), "boxSeconds");
    QTEST(host.ts->TimeInSeconds(), "timeInSeconds");
}

void tst_QVTimeSelector_Conversions::shortTimeSetterWithoutNumberBeforeHrsShowsErrorBox() {
    Host host;
    host.ts->setMinutes(4);
    m_platform->QueueAnswer(vbOK);
    host.ts->setShortTime(QStringLiteral("hrs"));
    QCOMPARE(m_platform->BoxCount(), 1);
    const QString prompt = m_platform->LastBox().Prompt;
    QVERIFY2(prompt.startsWith(QStringLiteral(
                 "Error number is 5, Invalid procedure call or argument, ERL-0, "
                 "Source=QVLTCONTROLS: QVTimeSelector: ShortTime:  Please send the error")),
             qPrintable(prompt));
    // The units were cleared before the text was read.
    QCOMPARE(host.ts->Minutes(), 0);
}

void tst_QVTimeSelector_Conversions::convertTimeToSecondsReadsTheSixWordsInOrder_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("seconds");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("2 hrs 5 mins") << "2 hrs 5 mins" << 7500;
    QTest::newRow("1 hr") << "1 hr" << 3600;
    QTest::newRow("1 hr 30 mins") << "1 hr 30 mins" << 5400;
    QTest::newRow("1 hr 1 min 1 sec") << "1 hr 1 min 1 sec" << 3661;
    QTest::newRow("3 hrs") << "3 hrs" << 10800;
    QTest::newRow("60 secs") << "60 secs" << 60;
    QTest::newRow("61 mins") << "61 mins" << 3660;
    QTest::newRow("a lone hr is one hour") << "2 hr" << 3600;
    QTest::newRow("a lone min is one minute") << "5 min" << 60;
    QTest::newRow("long words: minutes read as a lone min") << "60 minutes " << 60;
    QTest::newRow("fraction rounded half to even") << "0.5 mins" << 0;
    QTest::newRow("no words") << "later" << 0;
}

void tst_QVTimeSelector_Conversions::convertTimeToSecondsReadsTheSixWordsInOrder() {
    QFETCH(QString, text);
    Host host;
    QTEST(host.ts->ConvertTimeToSeconds(text), "seconds");
}

void tst_QVTimeSelector_Conversions::convertTimeToSecondsChangesNothingOnScreen() {
    Host host;
    host.ts->setHours(1);
    host.ts->setMinutes(2);
    host.ts->setSeconds(3);
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    QSignalSpy marked(host.ts, &QVTimeSelector::PropertyChanged);
    TraceReader trace;
    QCOMPARE(host.ts->ConvertTimeToSeconds(QStringLiteral("2 hrs 5 mins")), 7500);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("1"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("2"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("3"));
    QCOMPARE(host.ts->Hours(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(marked.count(), 0);
    QCOMPARE(trace.Members(), QStringList(QStringLiteral("ConvertTimeToSeconds")));
    QVERIFY(trace.LinesOf(QStringLiteral("ConvertTimeToSeconds"))
                .value(0)
                .endsWith(QStringLiteral(": strShortTime = 2 hrs 5 mins, ")));
}

void tst_QVTimeSelector_Conversions::convertTimeToSecondsWithoutNumberShowsErrorBoxAndGivesZero() {
    Host host;
    m_platform->QueueAnswer(vbOK);
    m_platform->QueueAnswer(vbOK);
    QCOMPARE(host.ts->ConvertTimeToSeconds(QStringLiteral("hrs")), 0);
    QCOMPARE(host.ts->ConvertTimeToSeconds(QStringLiteral("x mins")), 0);
    QCOMPARE(m_platform->BoxCount(), 2);
    const QString source = QStringLiteral("Source=QVLTCONTROLS: QVTimeSelector: "
                                          "ConvertTimeToSeconds: ");
    QVERIFY(m_platform->Boxes().at(0).Prompt.startsWith(
        QStringLiteral("Error number is 5, Invalid procedure call or argument, ERL-0, ") + source));
    QVERIFY(m_platform->Boxes().at(1).Prompt.startsWith(
        QStringLiteral("Error number is 13, Type mismatch, ERL-0, ") + source));
}

QTEST_MAIN(tst_QVTimeSelector_Conversions)
#include "tst_QVTimeSelector_Conversions.moc"
