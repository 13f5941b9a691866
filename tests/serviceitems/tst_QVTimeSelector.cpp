// The duration control as a user and its host see it: the boxes, the spin
// buttons, the modes and their folding, the layout, the stored properties.

#include "tst_QVTimeSelector_Fixture.h"

#include "ScriptedPlatform.h"
#include "foundations/Twips.h"
#include "foundations/VBConstants.h"
#include "serviceitems/QVTimeSelector.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace TimeSelectorTest;

class tst_QVTimeSelector : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void descriptionIsTimeSelectorControl();
    void propertiesWorkByName();
    void startsInModeZeroWithEveryBoxAtZero();

    // The spelled-out cases of the control.
    void timeInSecondsOf3661ShowsOneEachAndShortTimeOneHrOneMinOneSec();
    void timeInSecondsOf45ShowsZeroInEveryBox();
    void ninetySecondsFoldedIntoHoursMinutesModeReadOnePointFiveKeptAsTwo();
    void ninetySecondsSetInHoursMinutesModeReadOnePointFiveKeptAsTwo();
    void fortyFiveSecondsInMinutesModeAddOneMinuteAndClearSeconds();
    void shortTimeTwoHrsFiveMinsGivesTwoAndFive();
    void clearingABoxLeavesZeroSelected();
    void spinDownAtZeroStaysZero();
    void spinUpAtFiftyNineGivesSixtyWithoutCarry();

    // Modes and folding.
    void eachModeShowsItsUnits_data();
    void eachModeShowsItsUnits();
    void changingModeFoldsHiddenUnits_data();
    void changingModeFoldsHiddenUnits();
    void settingUserCanChangeMarksFoldsThenArranges();

    // The unit setters.
    void settingHoursInEachMode_data();
    void settingHoursInEachMode();
    void settingMinutesInEachMode_data();
    void settingMinutesInEachMode();
    void settingSecondsInEachMode_data();
    void settingSecondsInEachMode();
    void secondsSetInMinuteModesLeaveRoundedMinutesInKeptHoursUntilHoursBoxChanges();

    // The boxes.
    void typedNumberIsKeptRoundedHalfToEven_data();
    void typedNumberIsKeptRoundedHalfToEven();
    void typedNonNumericTextGoesBackToKeptValue();
    void typedNumberSizesBoxByMeasuringLabelAndRaisesChanged();
    void typedMinutesAboveSixtyStayWithoutCarry();
    void typedNumberTooLargeForKeptValueShowsErrorBox();
    void typingAfterClearingReplacesTheSelectedZero();
    void enterInABoxRaisesEnterButtonPressed();
    void enterOnTheControlItselfShowsItsKeyCode();
    void mouseUpInABoxSelectsAllItsText();

    // The spin buttons.
    void spinButtonsStepEachUnitByOne();
    void spinUpOnAFractionKeepsItRoundedHalfToEven();

    // Layout.
    void layoutHasFixedHeightOf430TwipsInEveryMode();
    void layoutPlacesShownUnitsLeftToRightAndEndsAtLastCaption();
    void boxesAreNeverNarrowerThan100Twips();
    void hostResizingTheControlGetsArrangedSizeBackAndResized();

    // Stored properties.
    void writePropertiesHandsOverTheFourKeptValues();
    void readPropertiesSetsKeptValuesFillsBoxesAndArranges();
    void readPropertiesTakesMissingValuesAsZero();

    // Tracing and helpers.
    void settersTraceTheirArguments();
    void getNumberPartFindsFirstRunOfDigits();

private:
    std::unique_ptr<ScriptedPlatform> m_platform;
};

void tst_QVTimeSelector::init() {
    m_platform = std::make_unique<ScriptedPlatform>();
}

void tst_QVTimeSelector::cleanup() {
    m_platform.reset();
}

void tst_QVTimeSelector::descriptionIsTimeSelectorControl() {
    Host host;
    QCOMPARE(host.ts->Description(), QStringLiteral("TimeSelectorControl"));
    QCOMPARE(host.ts->property("Description").toString(), QStringLiteral("TimeSelectorControl"));
}

void tst_QVTimeSelector::propertiesWorkByName() {
    Host host;
    QVERIFY(host.ts->setProperty("UserCanChange", 3));
    QVERIFY(host.ts->setProperty("TimeInSeconds", 3661));
    QCOMPARE(host.Text("txtHours"), QStringLiteral("1"));
    QCOMPARE(host.ts->property("Minutes").toInt(), 1);
    QCOMPARE(host.ts->property("TimeInSeconds").toInt(), 3661);
    QCOMPARE(host.ts->property("ShortTime").toString(), QStringLiteral("1 hr 1 min 1 sec"));
    QCOMPARE(host.ts->property("LongTime").toString(), QStringLiteral("1 hour 1 minute 1 second "));
    QVERIFY(host.ts->setProperty("ShortTime", QStringLiteral("5 mins")));
    QCOMPARE(host.ts->property("Minutes").toInt(), 5);
    QVERIFY(host.ts->setProperty("Hours", 2)); // mode 3 folds the hours into minutes
    QCOMPARE(host.ts->property("Minutes").toInt(), 125);
    QCOMPARE(host.ts->property("UserCanChange").toInt(), 3);
}

void tst_QVTimeSelector::startsInModeZeroWithEveryBoxAtZero() {
    Host host;
    QVERIFY(host.Exposed());
    QCOMPARE(host.ts->UserCanChange(), 0);
    for (const char* box : {"txtHours", "txtMinutes", "txtSeconds"}) {
        QCOMPARE(host.Text(box), QStringLiteral("0"));
        QVERIFY(host.Box(box)->isVisible());
    }
    QCOMPARE(host.ts->Hours(), 0);
    QCOMPARE(host.ts->Minutes(), 0);
    QCOMPARE(host.ts->Seconds(), 0);
    QCOMPARE(host.Label("lblCaptionHours")->text(), QStringLiteral("hours"));
    QCOMPARE(host.Label("lblCaptionMinutes")->text(), QStringLiteral("minutes"));
    QCOMPARE(host.Label("lblCaptionSeconds")->text(), QStringLiteral("seconds"));
    QVERIFY(host.Label("lblReSize")->isHidden());
    QVERIFY(host.Spin("udHours") && host.Spin("udMinutes") && host.Spin("udSeconds"));
}

void tst_QVTimeSelector::timeInSecondsOf3661ShowsOneEachAndShortTimeOneHrOneMinOneSec() {
    Host host;
    host.ts->setTimeInSeconds(3661);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("1"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("1"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("1"));
    QCOMPARE(host.ts->ShortTime(), QStringLiteral("1 hr 1 min 1 sec"));
}

void tst_QVTimeSelector::timeInSecondsOf45ShowsZeroInEveryBox() {
    Host host;
    host.ts->setTimeInSeconds(125);
    host.ts->setTimeInSeconds(45);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("0"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("0"));
    QCOMPARE(host.ts->Seconds(), 0);
    QCOMPARE(host.ts->TimeInSeconds(), 0);
}

void tst_QVTimeSelector::ninetySecondsFoldedIntoHoursMinutesModeReadOnePointFiveKeptAsTwo() {
    Host host;
    QVERIFY(host.Exposed());
    TypeInto(host.Box("txtSeconds"), QStringLiteral("90"));
    QCOMPARE(host.ts->Seconds(), 90);
    host.ts->setUserCanChange(1);
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("1.5"));
    QCOMPARE(host.ts->Minutes(), 2);
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("0"));
    QCOMPARE(host.ts->Seconds(), 0);
    QVERIFY(host.Box("txtSeconds")->isHidden());
}

void tst_QVTimeSelector::ninetySecondsSetInHoursMinutesModeReadOnePointFiveKeptAsTwo() {
    Host host;
    host.ts->setUserCanChange(1);
    host.ts->setSeconds(90);
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("1.5"));
    QCOMPARE(host.ts->Minutes(), 2);
    QCOMPARE(host.ts->TimeInSeconds(), 90);
}

void tst_QVTimeSelector::fortyFiveSecondsInMinutesModeAddOneMinuteAndClearSeconds() {
    Host host;
    host.ts->setMinutes(3);
    host.ts->setSeconds(45);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setUserCanChange(5);
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("4"));
    QCOMPARE(host.ts->Minutes(), 4);
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("0"));
    QCOMPARE(host.ts->Seconds(), 0);
    QStringList names;
    for (const QList<QVariant>& args : changed)
        names << args.at(0).toString();
    QVERIFY(names.contains(QStringLiteral("Minutes")));
    QVERIFY(names.contains(QStringLiteral("Seconds")));
}

void tst_QVTimeSelector::shortTimeTwoHrsFiveMinsGivesTwoAndFive() {
    Host host;
    host.ts->setSeconds(30);
    host.ts->setShortTime(QStringLiteral("2 hrs 5 mins"));
    QCOMPARE(host.ts->Hours(), 2);
    QCOMPARE(host.ts->Minutes(), 5);
    QCOMPARE(host.ts->Seconds(), 0);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("2"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("5"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("0"));
}

void tst_QVTimeSelector::clearingABoxLeavesZeroSelected() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setHours(7);
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    TraceReader trace;
    ClearBox(host.Box("txtHours"));
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
    QCOMPARE(host.Box("txtHours")->selectedText(), QStringLiteral("0"));
    QCOMPARE(host.ts->Hours(), 0);
    QVERIFY(changed.count() >= 1);
    // Once for the empty box, once more for the "0" put into it.
    QCOMPARE(trace.LinesOf(QStringLiteral("txtHours_Change")).size(), 2);
}

void tst_QVTimeSelector::spinDownAtZeroStaysZero() {
    Host host;
    QVERIFY(host.Exposed());
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    TraceReader trace;
    ClickSpin(host.Spin("udMinutes"), "Down");
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("0"));
    QCOMPARE(host.ts->Minutes(), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(trace.LinesOf(QStringLiteral("udMinutes_DownClick")).size(), 1);
}

void tst_QVTimeSelector::spinUpAtFiftyNineGivesSixtyWithoutCarry() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setHours(1);
    host.ts->setMinutes(59);
    host.ts->setSeconds(59);
    ClickSpin(host.Spin("udMinutes"), "Up");
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("60"));
    QCOMPARE(host.ts->Minutes(), 60);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("1"));
    ClickSpin(host.Spin("udSeconds"), "Up");
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("60"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("60"));
    QCOMPARE(host.ts->TimeInSeconds(), 3600 + 3600 + 60);
}

void tst_QVTimeSelector::eachModeShowsItsUnits_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("hours");
    QTest::addColumn<bool>("minutes");
    QTest::addColumn<bool>("seconds");
    QTest::newRow("0 all") << 0 << true << true << true;
    QTest::newRow("1 hours minutes") << 1 << true << true << false;
    QTest::newRow("2 hours") << 2 << true << false << false;
    QTest::newRow("3 minutes seconds") << 3 << false << true << true;
    QTest::newRow("4 seconds") << 4 << false << false << true;
    QTest::newRow("5 minutes") << 5 << false << true << false;
    QTest::newRow("unknown 7 shows all") << 7 << true << true << true;
}

void tst_QVTimeSelector::eachModeShowsItsUnits() {
    QFETCH(int, mode);
    QFETCH(bool, hours);
    QFETCH(bool, minutes);
    QFETCH(bool, seconds);
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setUserCanChange(2); // a mode that hides something first
    host.ts->setUserCanChange(mode);
    QCOMPARE(host.ts->UserCanChange(), mode);
    const struct {
        const char *ud, *txt, *lbl;
        bool shown;
    } units[] = {{"udHours", "txtHours", "lblCaptionHours", hours},
                 {"udMinutes", "txtMinutes", "lblCaptionMinutes", minutes},
                 {"udSeconds", "txtSeconds", "lblCaptionSeconds", seconds}};
    for (const auto& unit : units) {
        QCOMPARE(host.Spin(unit.ud)->isVisible(), unit.shown);
        QCOMPARE(host.Box(unit.txt)->isVisible(), unit.shown);
        QCOMPARE(host.Label(unit.lbl)->isVisible(), unit.shown);
    }
    QVERIFY(host.Label("lblReSize")->isHidden());
}

// Starting values are set in mode 0, where the setters only keep and show;
// then the mode changes and folds what it hides into what it shows.
void tst_QVTimeSelector::changingModeFoldsHiddenUnits_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<double>("boxHours");
    QTest::addColumn<double>("boxMinutes");
    QTest::addColumn<double>("boxSeconds");
    QTest::addColumn<int>("keptHours");
    QTest::addColumn<int>("keptMinutes");
    QTest::addColumn<int>("keptSeconds");

    QTest::newRow("0 folds nothing") << 0 << 1 << 2 << 3 << 1.0 << 2.0 << 3.0 << 1 << 2 << 3;
    QTest::newRow("unknown mode folds nothing")
        << 9 << 1 << 2 << 3 << 1.0 << 2.0 << 3.0 << 1 << 2 << 3;

    // Mode 1: seconds into minutes (and hours beyond an hour).
    QTest::newRow("1 secs 30") << 1 << 0 << 0 << 30 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0;
    QTest::newRow("1 secs 31") << 1 << 0 << 0 << 31 << 0.0 << 1.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("1 secs 60") << 1 << 0 << 0 << 60 << 0.0 << 1.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("1 secs 61") << 1 << 0 << 0 << 61 << 0.0 << 61 / 60.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("1 secs 90") << 1 << 0 << 0 << 90 << 0.0 << 1.5 << 0.0 << 0 << 2 << 0;
    QTest::newRow("1 mins 10 secs 45") << 1 << 0 << 10 << 45 << 0.0 << 11.0 << 0.0 << 0 << 11 << 0;
    QTest::newRow("1 secs 3599") << 1 << 0 << 0 << 3599 << 0.0 << 3599 / 60.0 << 0.0 << 0 << 60
                                 << 0;
    QTest::newRow("1 secs 3600") << 1 << 0 << 0 << 3600 << 0.0 << 60.0 << 0.0 << 0 << 60 << 0;
    QTest::newRow("1 secs 3601") << 1 << 0 << 0 << 3601 << 3601 / 3600.0 << 0.0 << 0.0 << 1 << 0
                                 << 0;
    QTest::newRow("1 secs 3631 rest 31")
        << 1 << 0 << 0 << 3631 << 3631 / 3600.0 << 1.0 << 0.0 << 1 << 1 << 0;
    QTest::newRow("1 secs 5400 rest 1800")
        << 1 << 0 << 0 << 5400 << 1.5 << 30.0 << 0.0 << 2 << 30 << 0;

    // Mode 2: minutes and seconds into hours, half an hour or more as one.
    QTest::newRow("2 mins 30") << 2 << 0 << 30 << 0 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0;
    QTest::newRow("2 mins 31") << 2 << 0 << 31 << 0 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0;
    QTest::newRow("2 mins 60") << 2 << 0 << 60 << 0 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0;
    QTest::newRow("2 mins 61") << 2 << 0 << 61 << 0 << 61 / 60.0 << 0.0 << 0.0 << 1 << 0 << 0;
    QTest::newRow("2 hrs 2 mins 150 half even")
        << 2 << 2 << 150 << 0 << 4.5 << 0.0 << 0.0 << 4 << 0 << 0;
    QTest::newRow("2 secs 1800") << 2 << 0 << 0 << 1800 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0;
    QTest::newRow("2 secs 1801") << 2 << 0 << 0 << 1801 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0;
    QTest::newRow("2 secs 3600") << 2 << 0 << 0 << 3600 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0;
    QTest::newRow("2 secs 3601") << 2 << 0 << 0 << 3601 << 3601 / 3600.0 << 0.0 << 0.0 << 1 << 0
                                 << 0;
    QTest::newRow("2 mins 45 secs 2000")
        << 2 << 1 << 45 << 2000 << 3.0 << 0.0 << 0.0 << 3 << 0 << 0;

    // Mode 3: hours into minutes.
    QTest::newRow("3 hrs 2") << 3 << 2 << 5 << 7 << 0.0 << 125.0 << 7.0 << 0 << 125 << 7;
    QTest::newRow("3 no hours") << 3 << 0 << 5 << 7 << 0.0 << 5.0 << 7.0 << 0 << 5 << 7;

    // Mode 4: hours and minutes into seconds.
    QTest::newRow("4 hrs 1 mins 2 secs 3")
        << 4 << 1 << 2 << 3 << 0.0 << 0.0 << 3723.0 << 0 << 0 << 3723;

    // Mode 5: hours and seconds into minutes.
    QTest::newRow("5 secs 30") << 5 << 0 << 0 << 30 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0;
    QTest::newRow("5 secs 31") << 5 << 0 << 0 << 31 << 0.0 << 1.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("5 secs 60") << 5 << 0 << 0 << 60 << 0.0 << 1.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("5 secs 61") << 5 << 0 << 0 << 61 << 0.0 << 61 / 60.0 << 0.0 << 0 << 1 << 0;
    QTest::newRow("5 hrs 1 mins 2 secs 45")
        << 5 << 1 << 2 << 45 << 0.0 << 63.0 << 0.0 << 0 << 63 << 0;
}

void tst_QVTimeSelector::changingModeFoldsHiddenUnits() {
    QFETCH(int, mode);
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(int, seconds);
    Host host;
    host.ts->setHours(hours);
    host.ts->setMinutes(minutes);
    host.ts->setSeconds(seconds);
    host.ts->setUserCanChange(mode);
    QTEST(host.Value("txtHours"), "boxHours");
    QTEST(host.Value("txtMinutes"), "boxMinutes");
    QTEST(host.Value("txtSeconds"), "boxSeconds");
    QTEST(host.ts->Hours(), "keptHours");
    QTEST(host.ts->Minutes(), "keptMinutes");
    QTEST(host.ts->Seconds(), "keptSeconds");
}

void tst_QVTimeSelector::settingUserCanChangeMarksFoldsThenArranges() {
    Host host;
    host.ts->setSeconds(45);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    QSignalSpy resized(host.ts, &QVTimeSelector::Resized);
    TraceReader trace;
    host.ts->setUserCanChange(4);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("UserCanChange"));
    QVERIFY(resized.count() >= 1);
    const QStringList members = trace.Members();
    QCOMPARE(members.value(0), QStringLiteral("UserCanChange"));
    QCOMPARE(members.value(1), QStringLiteral("ControlsRearranged"));
    QCOMPARE(members.value(2), QStringLiteral("UserControl_Resize"));
    QCOMPARE(trace.LinesOf(QStringLiteral("UserCanChange"))
                 .value(0)
                 .endsWith(QStringLiteral(": New_UserCanChange = 4, ")),
             true);
}

void tst_QVTimeSelector::settingHoursInEachMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("boxHours");
    QTest::addColumn<double>("boxMinutes");
    QTest::addColumn<double>("boxSeconds");
    QTest::addColumn<int>("keptHours");
    // The control holds 5 minutes and 7 seconds; Hours is set to 2.
    QTest::newRow("0 keeps") << 0 << 2.0 << 5.0 << 7.0 << 2;
    QTest::newRow("1 keeps") << 1 << 2.0 << 5.0 << 0.0 << 2;
    QTest::newRow("2 keeps") << 2 << 2.0 << 0.0 << 0.0 << 2;
    QTest::newRow("3 folds into minutes") << 3 << 0.0 << 125.0 << 7.0 << 0;
    QTest::newRow("4 folds into seconds") << 4 << 0.0 << 0.0 << 7507.0 << 0;
    QTest::newRow("5 folds into minutes") << 5 << 0.0 << 125.0 << 0.0 << 0;
}

void tst_QVTimeSelector::settingHoursInEachMode() {
    QFETCH(int, mode);
    Host host;
    host.ts->setMinutes(5);
    host.ts->setSeconds(7);
    host.ts->setUserCanChange(mode);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setHours(2);
    QCOMPARE(changed.value(0).value(0).toString(), QStringLiteral("Hours"));
    QTEST(host.Value("txtHours"), "boxHours");
    QTEST(host.Value("txtMinutes"), "boxMinutes");
    QTEST(host.Value("txtSeconds"), "boxSeconds");
    QTEST(host.ts->Hours(), "keptHours");
}

void tst_QVTimeSelector::settingMinutesInEachMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("boxHours");
    QTest::addColumn<double>("boxMinutes");
    QTest::addColumn<double>("boxSeconds");
    QTest::addColumn<int>("keptHours");
    QTest::addColumn<int>("keptMinutes");
    QTest::addColumn<int>("keptSeconds");
    QTest::addColumn<QString>("marked");
    // The control starts empty, or with 5 seconds in mode 4.
    QTest::newRow("2 mins 30") << 2 << 30 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0 << "Hours";
    QTest::newRow("2 mins 31") << 2 << 31 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0 << "Hours";
    QTest::newRow("2 mins 60") << 2 << 60 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0 << "Hours";
    QTest::newRow("2 mins 61") << 2 << 61 << 61 / 60.0 << 0.0 << 0.0 << 1 << 0 << 0 << "Hours";
    QTest::newRow("2 mins 90") << 2 << 90 << 1.5 << 0.0 << 0.0 << 2 << 0 << 0 << "Hours";
    QTest::newRow("4 mins 2") << 4 << 2 << 0.0 << 0.0 << 125.0 << 0 << 0 << 125 << "Seconds";
    QTest::newRow("0 mins 75") << 0 << 75 << 0.0 << 75.0 << 0.0 << 0 << 75 << 0 << "Minutes";
    QTest::newRow("1 mins 75") << 1 << 75 << 0.0 << 75.0 << 0.0 << 0 << 75 << 0 << "Minutes";
    QTest::newRow("3 mins 75") << 3 << 75 << 0.0 << 75.0 << 0.0 << 0 << 75 << 0 << "Minutes";
    QTest::newRow("5 mins 75") << 5 << 75 << 0.0 << 75.0 << 0.0 << 0 << 75 << 0 << "Minutes";
}

void tst_QVTimeSelector::settingMinutesInEachMode() {
    QFETCH(int, mode);
    QFETCH(int, value);
    QFETCH(QString, marked);
    Host host;
    host.ts->setUserCanChange(mode);
    if (mode == 4)
        host.ts->setSeconds(5);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setMinutes(value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), marked);
    QTEST(host.Value("txtHours"), "boxHours");
    QTEST(host.Value("txtMinutes"), "boxMinutes");
    QTEST(host.Value("txtSeconds"), "boxSeconds");
    QTEST(host.ts->Hours(), "keptHours");
    QTEST(host.ts->Minutes(), "keptMinutes");
    QTEST(host.ts->Seconds(), "keptSeconds");
}

void tst_QVTimeSelector::settingSecondsInEachMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("boxHours");
    QTest::addColumn<double>("boxMinutes");
    QTest::addColumn<double>("boxSeconds");
    QTest::addColumn<int>("keptHours");
    QTest::addColumn<int>("keptMinutes");
    QTest::addColumn<int>("keptSeconds");
    QTest::addColumn<QString>("marked");
    QTest::newRow("2 secs 1800") << 2 << 1800 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0 << "Hours";
    QTest::newRow("2 secs 1801") << 2 << 1801 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0 << "Hours";
    QTest::newRow("2 secs 3600") << 2 << 3600 << 1.0 << 0.0 << 0.0 << 1 << 0 << 0 << "Hours";
    QTest::newRow("2 secs 3601") << 2 << 3601 << 3601 / 3600.0 << 0.0 << 0.0 << 1 << 0 << 0
                                 << "Hours";
    QTest::newRow("2 secs 5400") << 2 << 5400 << 1.5 << 0.0 << 0.0 << 2 << 0 << 0 << "Hours";
    // Modes 1 and 5: the rounded minutes box is what the kept Hours holds.
    QTest::newRow("1 secs 30") << 1 << 30 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0 << "Minutes";
    QTest::newRow("1 secs 31") << 1 << 31 << 0.0 << 1.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("1 secs 60") << 1 << 60 << 0.0 << 1.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("1 secs 61") << 1 << 61 << 0.0 << 61 / 60.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("1 secs 90") << 1 << 90 << 0.0 << 1.5 << 0.0 << 2 << 2 << 0 << "Minutes";
    QTest::newRow("5 secs 30") << 5 << 30 << 0.0 << 0.0 << 0.0 << 0 << 0 << 0 << "Minutes";
    QTest::newRow("5 secs 31") << 5 << 31 << 0.0 << 1.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("5 secs 60") << 5 << 60 << 0.0 << 1.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("5 secs 61") << 5 << 61 << 0.0 << 61 / 60.0 << 0.0 << 1 << 1 << 0 << "Minutes";
    QTest::newRow("0 secs 75") << 0 << 75 << 0.0 << 0.0 << 75.0 << 0 << 0 << 75 << "Seconds";
    QTest::newRow("3 secs 75") << 3 << 75 << 0.0 << 0.0 << 75.0 << 0 << 0 << 75 << "Seconds";
    QTest::newRow("4 secs 75") << 4 << 75 << 0.0 << 0.0 << 75.0 << 0 << 0 << 75 << "Seconds";
}

void tst_QVTimeSelector::settingSecondsInEachMode() {
    QFETCH(int, mode);
    QFETCH(int, value);
    QFETCH(QString, marked);
    Host host;
    host.ts->setUserCanChange(mode);
    QSignalSpy changed(host.ts, &QVTimeSelector::PropertyChanged);
    host.ts->setSeconds(value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), marked);
    QTEST(host.Value("txtHours"), "boxHours");
    QTEST(host.Value("txtMinutes"), "boxMinutes");
    QTEST(host.Value("txtSeconds"), "boxSeconds");
    QTEST(host.ts->Hours(), "keptHours");
    QTEST(host.ts->Minutes(), "keptMinutes");
    QTEST(host.ts->Seconds(), "keptSeconds");
}

void tst_QVTimeSelector::
    secondsSetInMinuteModesLeaveRoundedMinutesInKeptHoursUntilHoursBoxChanges() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setUserCanChange(1);
    host.ts->setHours(3);
    host.ts->setSeconds(90);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("3"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("1.5"));
    QCOMPARE(host.ts->Minutes(), 2);
    QCOMPARE(host.ts->Hours(), 2);
    // The boxes still tell the true time.
    QCOMPARE(host.ts->TimeInSeconds(), 3 * 3600 + 90);
    // The next change of the hours box puts the kept Hours right.
    ClickSpin(host.Spin("udHours"), "Up");
    QCOMPARE(host.Text("txtHours"), QStringLiteral("4"));
    QCOMPARE(host.ts->Hours(), 4);
}

void tst_QVTimeSelector::typedNumberIsKeptRoundedHalfToEven_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("kept");
    QTest::addColumn<int>("timeInSeconds");
    QTest::newRow("0.5") << "0.5" << 0 << 0;
    QTest::newRow("1.5") << "1.5" << 2 << 2;
    QTest::newRow("2.5") << "2.5" << 2 << 2;
    QTest::newRow("3.5") << "3.5" << 4 << 4;
    QTest::newRow("2.51") << "2.51" << 3 << 3;
    QTest::newRow("45") << "45" << 45 << 45;
}

void tst_QVTimeSelector::typedNumberIsKeptRoundedHalfToEven() {
    QFETCH(QString, typed);
    Host host;
    QVERIFY(host.Exposed());
    TypeInto(host.Box("txtSeconds"), typed);
    QCOMPARE(host.Text("txtSeconds"), typed);
    QTEST(host.ts->Seconds(), "kept");
    QTEST(host.ts->TimeInSeconds(), "timeInSeconds");
}

void tst_QVTimeSelector::typedNonNumericTextGoesBackToKeptValue() {
    Host host;
    QVERIFY(host.Exposed());
    TypeInto(host.Box("txtMinutes"), QStringLiteral("25"));
    QCOMPARE(host.ts->Minutes(), 25);
    QTest::keyClicks(host.Box("txtMinutes"), QStringLiteral("x"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("25"));
    QCOMPARE(host.ts->Minutes(), 25);
    // A box that holds a fraction goes back to the rounded kept value.
    host.ts->setUserCanChange(1);
    host.ts->setSeconds(90);
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("26.5"));
    QCOMPARE(host.ts->Minutes(), 26);
    host.Box("txtMinutes")->end(false);
    QTest::keyClicks(host.Box("txtMinutes"), QStringLiteral("m"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("26"));
}

void tst_QVTimeSelector::typedNumberSizesBoxByMeasuringLabelAndRaisesChanged() {
    Host host;
    QVERIFY(host.Exposed());
    QLineEdit* txt = host.Box("txtHours");
    const int intNarrow = txt->width();
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    QSignalSpy resized(host.ts, &QVTimeSelector::Resized);
    TypeInto(txt, QStringLiteral("123456"));
    QCOMPARE(changed.count(), 6);
    QVERIFY(resized.count() >= 6);
    QLabel* lblReSize = host.Label("lblReSize");
    QCOMPARE(lblReSize->text(), QStringLiteral("123456"));
    QVERIFY(lblReSize->isHidden());
    QCOMPARE(txt->width(), lblReSize->width() + Twips::ToPixels(100));
    QVERIFY(txt->width() > intNarrow);
    // The caption moved along with the wider box.
    QVERIFY(host.Label("lblCaptionHours")->x() >= txt->x() + txt->width());
    QCOMPARE(host.ts->Hours(), 123456);
}

void tst_QVTimeSelector::typedMinutesAboveSixtyStayWithoutCarry() {
    Host host;
    QVERIFY(host.Exposed());
    TypeInto(host.Box("txtMinutes"), QStringLiteral("75"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("75"));
    QCOMPARE(host.ts->Minutes(), 75);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
    QCOMPARE(host.ts->TimeInSeconds(), 4500);
}

void tst_QVTimeSelector::typedNumberTooLargeForKeptValueShowsErrorBox() {
    Host host;
    QVERIFY(host.Exposed());
    m_platform->QueueAnswer(vbOK);
    TypeInto(host.Box("txtHours"), QStringLiteral("9999999999"));
    QCOMPARE(m_platform->BoxCount(), 1);
    const ScriptedPlatform::Box box = m_platform->LastBox();
    QVERIFY2(box.Prompt.startsWith(QStringLiteral("Error number is 6, Overflow, ERL-0, "
                                                  "Source=QVLTCONTROLS: QVTimeSelector: "
                                                  "txtHours_Change: ")),
             qPrintable(box.Prompt));
    QCOMPARE(box.Buttons, vbOKOnly);
    QCOMPARE(host.ts->Hours(), 999999999);
}

void tst_QVTimeSelector::typingAfterClearingReplacesTheSelectedZero() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setSeconds(40);
    ClearBox(host.Box("txtSeconds"));
    QTest::keyClicks(host.Box("txtSeconds"), QStringLiteral("7"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("7"));
    QCOMPARE(host.ts->Seconds(), 7);
}

void tst_QVTimeSelector::enterInABoxRaisesEnterButtonPressed() {
    Host host;
    QVERIFY(host.Exposed());
    QSignalSpy enter(host.ts, &QVTimeSelector::EnterButtonPressed);
    TraceReader trace;
    QTest::keyClick(host.Box("txtMinutes"), Qt::Key_Return);
    QCOMPARE(enter.count(), 1);
    QTest::keyClick(host.Box("txtSeconds"), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(enter.count(), 2);
    QTest::keyClick(host.Box("txtHours"), Qt::Key_5);
    QCOMPARE(enter.count(), 2);
    // The key stays in the box: no diagnostic box from the control itself.
    QCOMPARE(m_platform->BoxCount(), 0);
    QVERIFY(trace.LinesOf(QStringLiteral("txtMinutes_KeyPress"))
                .value(0)
                .endsWith(QStringLiteral(": KeyAscii = 13, ")));
}

void tst_QVTimeSelector::enterOnTheControlItselfShowsItsKeyCode() {
    Host host;
    QVERIFY(host.Exposed());
    QSignalSpy enter(host.ts, &QVTimeSelector::EnterButtonPressed);
    m_platform->QueueAnswer(vbOK);
    QTest::keyClick(host.ts, Qt::Key_Return);
    QCOMPARE(m_platform->BoxCount(), 1);
    QCOMPARE(m_platform->LastBox().Prompt, QStringLiteral("13"));
    QCOMPARE(enter.count(), 0);
    // Other keys show nothing.
    QTest::keyClick(host.ts, Qt::Key_A);
    QCOMPARE(m_platform->BoxCount(), 1);
}

void tst_QVTimeSelector::mouseUpInABoxSelectsAllItsText() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setMinutes(1234);
    QLineEdit* txt = host.Box("txtMinutes");
    txt->deselect();
    TraceReader trace;
    QTest::mouseClick(txt, Qt::LeftButton, Qt::NoModifier, QPoint(txt->width() - 4, 5));
    QCOMPARE(txt->selectedText(), QStringLiteral("1234"));
    const QString line = trace.LinesOf(QStringLiteral("txtMinutes_MouseUp")).value(0);
    QVERIFY2(line.contains(QStringLiteral(": Button = 1, Shift = 0, X = ")), qPrintable(line));
}

void tst_QVTimeSelector::spinButtonsStepEachUnitByOne() {
    Host host;
    QVERIFY(host.Exposed());
    QSignalSpy changed(host.ts, &QVTimeSelector::Changed);
    ClickSpin(host.Spin("udHours"), "Up");
    ClickSpin(host.Spin("udHours"), "Up");
    ClickSpin(host.Spin("udHours"), "Down");
    ClickSpin(host.Spin("udSeconds"), "Up");
    QCOMPARE(host.Text("txtHours"), QStringLiteral("1"));
    QCOMPARE(host.ts->Hours(), 1);
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("0"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("1"));
    QCOMPARE(host.ts->Seconds(), 1);
    QCOMPARE(changed.count(), 4);
    ClickSpin(host.Spin("udHours"), "Down");
    ClickSpin(host.Spin("udHours"), "Down");
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
}

void tst_QVTimeSelector::spinUpOnAFractionKeepsItRoundedHalfToEven() {
    Host host;
    QVERIFY(host.Exposed());
    host.ts->setUserCanChange(1);
    host.ts->setSeconds(90); // minutes box 1.5
    ClickSpin(host.Spin("udMinutes"), "Up");
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("2.5"));
    QCOMPARE(host.ts->Minutes(), 2);
    ClickSpin(host.Spin("udMinutes"), "Up");
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("3.5"));
    QCOMPARE(host.ts->Minutes(), 4);
    ClickSpin(host.Spin("udMinutes"), "Down");
    ClickSpin(host.Spin("udMinutes"), "Down");
    ClickSpin(host.Spin("udMinutes"), "Down");
    ClickSpin(host.Spin("udMinutes"), "Down");
    // 0.5 is above 0, so Down still steps; then it stops.
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("-0.5"));
    QCOMPARE(host.ts->Minutes(), 0);
    ClickSpin(host.Spin("udMinutes"), "Down");
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("-0.5"));
}

void tst_QVTimeSelector::layoutHasFixedHeightOf430TwipsInEveryMode() {
    Host host;
    QVERIFY(host.Exposed());
    for (int mode = 0; mode <= 5; ++mode) {
        host.ts->setUserCanChange(mode);
        QCOMPARE(host.ts->height(), Twips::ToPixels(430));
        QCOMPARE(host.ts->sizeHint().height(), Twips::ToPixels(430));
    }
}

void tst_QVTimeSelector::layoutPlacesShownUnitsLeftToRightAndEndsAtLastCaption() {
    Host host;
    QVERIFY(host.Exposed());
    const struct {
        int mode;
        QList<QByteArray> units;
    } cases[] = {{0, {"Hours", "Minutes", "Seconds"}}, {1, {"Hours", "Minutes"}}, {2, {"Hours"}},
                 {3, {"Minutes", "Seconds"}},          {4, {"Seconds"}},          {5, {"Minutes"}}};
    for (const auto& c : cases) {
        host.ts->setUserCanChange(c.mode);
        int x = -1;
        QWidget* last = nullptr;
        for (const QByteArray& unit : c.units) {
            QWidget* ud = host.Spin(("ud" + unit).constData());
            QWidget* txt = host.Box(("txt" + unit).constData());
            QWidget* lbl = host.Label(("lblCaption" + unit).constData());
            QVERIFY(ud->x() > x);
            QVERIFY(txt->x() >= ud->x() + ud->width());
            QVERIFY(lbl->x() >= txt->x() + txt->width());
            x = lbl->x() + lbl->width() - 1;
            last = lbl;
        }
        QCOMPARE(host.ts->width(), last->x() + last->width());
        QCOMPARE(host.ts->sizeHint().width(), host.ts->width());
    }
}

void tst_QVTimeSelector::boxesAreNeverNarrowerThan100Twips() {
    Host host;
    QVERIFY(host.Exposed());
    host.Box("txtSeconds")->resize(1, host.Box("txtSeconds")->height());
    host.ts->resize(50, 50); // the host asks for a new layout
    QVERIFY(host.Box("txtSeconds")->width() >= Twips::ToPixels(100));
    for (const char* box : {"txtHours", "txtMinutes"})
        QVERIFY(host.Box(box)->width() >= Twips::ToPixels(100));
}

void tst_QVTimeSelector::hostResizingTheControlGetsArrangedSizeBackAndResized() {
    Host host;
    QVERIFY(host.Exposed());
    const QSize sizeArranged = host.ts->size();
    QSignalSpy resized(host.ts, &QVTimeSelector::Resized);
    TraceReader trace;
    host.ts->resize(600, 200);
    QCOMPARE(host.ts->size(), sizeArranged);
    QCOMPARE(resized.count(), 1);
    QCOMPARE(trace.LinesOf(QStringLiteral("UserControl_Resize")).size(), 1);
}

void tst_QVTimeSelector::writePropertiesHandsOverTheFourKeptValues() {
    Host host;
    host.ts->setHours(1);
    host.ts->setMinutes(2);
    host.ts->setSeconds(3);
    host.ts->setUserCanChange(3); // folds the hour into 62 minutes
    const QVariantMap bag = host.ts->WriteProperties();
    QCOMPARE(bag.size(), 4);
    QCOMPARE(bag.value(QStringLiteral("Hours")).toInt(), 0);
    QCOMPARE(bag.value(QStringLiteral("Minutes")).toInt(), 62);
    QCOMPARE(bag.value(QStringLiteral("Seconds")).toInt(), 3);
    QCOMPARE(bag.value(QStringLiteral("UserCanChange")).toInt(), 3);
}

void tst_QVTimeSelector::readPropertiesSetsKeptValuesFillsBoxesAndArranges() {
    Host host;
    QVERIFY(host.Exposed());
    QSignalSpy resized(host.ts, &QVTimeSelector::Resized);
    TraceReader trace;
    host.ts->ReadProperties({{QStringLiteral("Hours"), 4},
                             {QStringLiteral("Minutes"), 45},
                             {QStringLiteral("Seconds"), 50},
                             {QStringLiteral("UserCanChange"), 2}});
    QCOMPARE(host.ts->UserCanChange(), 2);
    QCOMPARE(host.ts->Hours(), 4);
    // Reading folds nothing: the hidden units keep their values.
    QCOMPARE(host.ts->Minutes(), 45);
    QCOMPARE(host.ts->Seconds(), 50);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("4"));
    QCOMPARE(host.Text("txtMinutes"), QStringLiteral("45"));
    QCOMPARE(host.Text("txtSeconds"), QStringLiteral("50"));
    QVERIFY(host.Box("txtHours")->isVisible());
    QVERIFY(host.Box("txtMinutes")->isHidden());
    QVERIFY(host.Box("txtSeconds")->isHidden());
    QVERIFY(resized.count() >= 1);
    QVERIFY(!trace.Members().contains(QStringLiteral("ControlsRearranged")));
    QCOMPARE(trace.Members().value(0), QStringLiteral("UserControl_ReadProperties"));
    QCOMPARE(trace.Members().last(), QStringLiteral("UserControl_Resize"));
}

void tst_QVTimeSelector::readPropertiesTakesMissingValuesAsZero() {
    Host host;
    host.ts->setHours(3);
    host.ts->setUserCanChange(1);
    host.ts->ReadProperties({{QStringLiteral("Minutes"), 9}});
    QCOMPARE(host.ts->UserCanChange(), 0);
    QCOMPARE(host.ts->Hours(), 0);
    QCOMPARE(host.ts->Minutes(), 9);
    QCOMPARE(host.ts->Seconds(), 0);
    QCOMPARE(host.Text("txtHours"), QStringLiteral("0"));
    QVERIFY(!host.Box("txtSeconds")->isHidden());
}

void tst_QVTimeSelector::settersTraceTheirArguments() {
    Host host;
    TraceReader trace;
    host.ts->setHours(5);
    host.ts->setMinutes(6);
    host.ts->setSeconds(7);
    host.ts->setTimeInSeconds(3661);
    host.ts->setTimeInMinutes(90);
    host.ts->setShortTime(QStringLiteral("1 min"));
    const struct {
        const char *member, *tail;
    } expected[] = {{"Hours", ": New_Hours = 5, "},
                    {"Minutes", ": New_Minutes = 6, "},
                    {"Seconds", ": New_Seconds = 7, "},
                    {"TimeInSeconds", ": New_TimeInSeconds = 3661, "},
                    {"TimeInMinutes", ": New_TimeInMinutes = 90, "},
                    {"ShortTime", ": New_ShortTime = 1 min, "}};
    for (const auto& e : expected) {
        const QStringList lines = trace.LinesOf(QString::fromLatin1(e.member));
        QVERIFY2(!lines.isEmpty(), e.member);
        QVERIFY2(lines.first().endsWith(QString::fromLatin1(e.tail)), qPrintable(lines.first()));
    }
    // Plain reads of the kept values write nothing.
    TraceReader quiet;
    QCOMPARE(host.ts->Hours() + host.ts->Minutes() + host.ts->Seconds(), 1);
    QCOMPARE(quiet.Lines().size(), 0);
}

void tst_QVTimeSelector::getNumberPartFindsFirstRunOfDigits() {
    QCOMPARE(QVTimeSelector::GetNumberPart(QStringLiteral("12 mins")), 12);
    QCOMPARE(QVTimeSelector::GetNumberPart(QStringLiteral("a7b8")), 7);
    QCOMPARE(QVTimeSelector::GetNumberPart(QStringLiteral("less -15 secs")), -15);
    QCOMPARE(QVTimeSelector::GetNumberPart(QStringLiteral("- 15")), 15);
    QCOMPARE(QVTimeSelector::GetNumberPart(QStringLiteral("none")), 0);
    QCOMPARE(QVTimeSelector::GetNumberPart(QString()), 0);
}

QTEST_MAIN(tst_QVTimeSelector)
#include "tst_QVTimeSelector.moc"
