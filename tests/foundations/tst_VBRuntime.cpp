// The conversion and string rules the controls share: what "the conversion
// fails" and the 1-based string positions mean everywhere.
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

#include <QLocale>
#include <QTest>

namespace {
// Runs f and answers the run-time error number it raised, 0 when none.
template <class F> qint32 errorOf(F&& f) {
    try {
        f();
    } catch (const VBError& e) {
        return e.Number;
    }
    return 0;
}
} // namespace

class tst_VBRuntime : public QObject {
    Q_OBJECT
private slots:
    void isNumeric_data();
    void isNumeric();
    void clngRoundsHalfToEven_data();
    void clngRoundsHalfToEven();
    void cintRoundsHalfToEven_data();
    void cintRoundsHalfToEven();
    void conversionOfTextThatIsNoNumberIsTypeMismatch_data();
    void conversionOfTextThatIsNoNumberIsTypeMismatch();
    void conversionOutOfRangeIsOverflow_data();
    void conversionOutOfRangeIsOverflow();
    void conversionOfNullIsInvalidUseOfNull();
    void cboolOfTextsAndNumbers();
    void val_data();
    void val();
    void cstrOfValues_data();
    void cstrOfValues();
    void cstrOfDatesUsesShortDateAndTimeWithSeconds();
    void cstrOfNullRaises94ButTextGivesEmpty();
    void mediumDateIsDayMonthAbbreviationYear();
    void longAndShortDateFormats();
    void inStrFindsOneBasedPositions_data();
    void inStrFindsOneBasedPositions();
    void inStrRev();
    void stringFunctionsRaise5OnNegativeLengthOrStartBelowOne_data();
    void stringFunctionsRaise5OnNegativeLengthOrStartBelowOne();
    void leftMidRight_data();
    void leftMidRight();
    void trimRemovesSpacesOnly_data();
    void trimRemovesSpacesOnly();
};

void tst_VBRuntime::isNumeric_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");
    QTest::newRow("integer") << QVariant(42) << true;
    QTest::newRow("double") << QVariant(2.5) << true;
    QTest::newRow("boolean") << QVariant(true) << true;
    QTest::newRow("digits text") << QVariant(QStringLiteral("123")) << true;
    QTest::newRow("blanks around") << QVariant(QStringLiteral("  12  ")) << true;
    QTest::newRow("signed decimal") << QVariant(QStringLiteral("-3.25")) << true;
    QTest::newRow("leading point") << QVariant(QStringLiteral(".5")) << true;
    QTest::newRow("thousands commas") << QVariant(QStringLiteral("1,000")) << true;
    QTest::newRow("exponent") << QVariant(QStringLiteral("1E3")) << true;
    QTest::newRow("hex literal") << QVariant(QStringLiteral("&H1F")) << true;
    QTest::newRow("empty text") << QVariant(QString()) << false;
    QTest::newRow("blank text") << QVariant(QStringLiteral("   ")) << false;
    QTest::newRow("letters") << QVariant(QStringLiteral("abc")) << false;
    QTest::newRow("number then letters") << QVariant(QStringLiteral("12abc")) << false;
    QTest::newRow("two points") << QVariant(QStringLiteral("1.2.3")) << false;
    QTest::newRow("sign only") << QVariant(QStringLiteral("-")) << false;
    QTest::newRow("null") << QVariant() << false;
    QTest::newRow("date") << QVariant(QDateTime(QDate(2003, 10, 29), QTime(19, 5))) << false;
}

void tst_VBRuntime::isNumeric() {
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
    QCOMPARE(VB::IsNumeric(value), expected);
}

void tst_VBRuntime::clngRoundsHalfToEven_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<qint32>("expected");
    QTest::newRow("0.5") << QVariant(0.5) << 0;
    QTest::newRow("1.5") << QVariant(1.5) << 2;
    QTest::newRow("2.5") << QVariant(2.5) << 2;
    QTest::newRow("3.5") << QVariant(3.5) << 4;
    QTest::newRow("-2.5") << QVariant(-2.5) << -2;
    QTest::newRow("-3.5") << QVariant(-3.5) << -4;
    QTest::newRow("2.6") << QVariant(2.6) << 3;
    QTest::newRow("text 2.5") << QVariant(QStringLiteral("2.5")) << 2;
    QTest::newRow("text with blanks") << QVariant(QStringLiteral(" 17 ")) << 17;
    QTest::newRow("text with commas") << QVariant(QStringLiteral("1,234")) << 1234;
    QTest::newRow("True") << QVariant(true) << -1;
    QTest::newRow("False") << QVariant(false) << 0;
    QTest::newRow("largest") << QVariant(2147483647.0) << 2147483647;
    QTest::newRow("smallest") << QVariant(-2147483648.0) << static_cast<qint32>(-2147483647 - 1);
}

void tst_VBRuntime::clngRoundsHalfToEven() {
    QFETCH(QVariant, value);
    QFETCH(qint32, expected);
    QCOMPARE(VB::CLng(value), expected);
}

void tst_VBRuntime::cintRoundsHalfToEven_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<qint16>("expected");
    QTest::newRow("0.5") << QVariant(0.5) << qint16(0);
    QTest::newRow("1.5") << QVariant(1.5) << qint16(2);
    QTest::newRow("2.5") << QVariant(2.5) << qint16(2);
    QTest::newRow("-1.5") << QVariant(-1.5) << qint16(-2);
    QTest::newRow("32767") << QVariant(32767) << qint16(32767);
    QTest::newRow("-32768") << QVariant(-32768) << qint16(-32768);
    QTest::newRow("text 4.5") << QVariant(QStringLiteral("4.5")) << qint16(4);
}

void tst_VBRuntime::cintRoundsHalfToEven() {
    QFETCH(QVariant, value);
    QFETCH(qint16, expected);
    QCOMPARE(VB::CInt(value), expected);
}

void tst_VBRuntime::conversionOfTextThatIsNoNumberIsTypeMismatch_data() {
    QTest::addColumn<QVariant>("value");
    QTest::newRow("empty") << QVariant(QString());
    QTest::newRow("letters") << QVariant(QStringLiteral("abc"));
    QTest::newRow("number then letters") << QVariant(QStringLiteral("12abc"));
    QTest::newRow("blank") << QVariant(QStringLiteral(" "));
}

void tst_VBRuntime::conversionOfTextThatIsNoNumberIsTypeMismatch() {
    QFETCH(QVariant, value);
    QCOMPARE(errorOf([&] { VB::CLng(value); }), VBErr::TypeMismatch);
    QCOMPARE(errorOf([&] { VB::CInt(value); }), VBErr::TypeMismatch);
    QCOMPARE(errorOf([&] { VB::CDbl(value); }), VBErr::TypeMismatch);
    QCOMPARE(errorOf([&] { VB::CBool(value); }), VBErr::TypeMismatch);
}

void tst_VBRuntime::conversionOutOfRangeIsOverflow_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("longOverflows");
    QTest::newRow("32768") << QVariant(32768) << false;
    QTest::newRow("-32769") << QVariant(-32769) << false;
    QTest::newRow("32767.5 rounds up") << QVariant(32767.5) << false;
    QTest::newRow("2147483648") << QVariant(2147483648.0) << true;
    QTest::newRow("2147483647.5 rounds up") << QVariant(2147483647.5) << true;
    QTest::newRow("text 1e10") << QVariant(QStringLiteral("1e10")) << true;
}

void tst_VBRuntime::conversionOutOfRangeIsOverflow() {
    QFETCH(QVariant, value);
    QFETCH(bool, longOverflows);
    QCOMPARE(errorOf([&] { VB::CInt(value); }), VBErr::Overflow);
    QCOMPARE(errorOf([&] { VB::CLng(value); }), longOverflows ? VBErr::Overflow : 0);
}

void tst_VBRuntime::conversionOfNullIsInvalidUseOfNull() {
    QCOMPARE(errorOf([] { VB::CLng(QVariant()); }), VBErr::InvalidUseOfNull);
    QCOMPARE(errorOf([] { VB::CInt(QVariant()); }), VBErr::InvalidUseOfNull);
    QCOMPARE(errorOf([] { VB::CDbl(QVariant()); }), VBErr::InvalidUseOfNull);
    QCOMPARE(errorOf([] { VB::CBool(QVariant()); }), VBErr::InvalidUseOfNull);
    QCOMPARE(errorOf([] { VB::CStr(QVariant()); }), VBErr::InvalidUseOfNull);
}

void tst_VBRuntime::cboolOfTextsAndNumbers() {
    QCOMPARE(VB::CBool(QStringLiteral("True")), true);
    QCOMPARE(VB::CBool(QStringLiteral("false")), false);
    QCOMPARE(VB::CBool(QStringLiteral("0")), false);
    QCOMPARE(VB::CBool(QStringLiteral("-1")), true);
    QCOMPARE(VB::CBool(2), true);
    QCOMPARE(VB::CBool(0.0), false);
}

void tst_VBRuntime::val_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("letters") << QStringLiteral("abc") << 0.0;
    QTest::newRow("integer") << QStringLiteral("42") << 42.0;
    QTest::newRow("stops at letters") << QStringLiteral("12abc") << 12.0;
    QTest::newRow("blanks skipped everywhere") << QStringLiteral(" 1 2 3") << 123.0;
    QTest::newRow("address") << QStringLiteral("  1615 198th Street N.E.") << 1615198.0;
    QTest::newRow("decimal") << QStringLiteral("2.45") << 2.45;
    QTest::newRow("second point stops") << QStringLiteral("1.2.3") << 1.2;
    QTest::newRow("negative") << QStringLiteral("-7.5 minutes") << -7.5;
    QTest::newRow("comma stops") << QStringLiteral("1,000") << 1.0;
    QTest::newRow("exponent") << QStringLiteral("1.5E2") << 150.0;
    QTest::newRow("hex") << QStringLiteral("&HFF") << 255.0;
    QTest::newRow("octal") << QStringLiteral("&O17") << 15.0;
    QTest::newRow("time text") << QStringLiteral("3:45") << 3.0;
}

void tst_VBRuntime::val() {
    QFETCH(QString, text);
    QFETCH(double, expected);
    QCOMPARE(VB::Val(text), expected);
}

void tst_VBRuntime::cstrOfValues_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("True") << QVariant(true) << QStringLiteral("True");
    QTest::newRow("False") << QVariant(false) << QStringLiteral("False");
    QTest::newRow("integer") << QVariant(5) << QStringLiteral("5");
    QTest::newRow("negative") << QVariant(-12) << QStringLiteral("-12");
    QTest::newRow("double without trailing zeros") << QVariant(2.5) << QStringLiteral("2.5");
    QTest::newRow("whole double") << QVariant(3.0) << QStringLiteral("3");
    QTest::newRow("zero") << QVariant(0.0) << QStringLiteral("0");
    QTest::newRow("small") << QVariant(0.0001) << QStringLiteral("0.0001");
    QTest::newRow("very small") << QVariant(0.00001) << QStringLiteral("1E-05");
    QTest::newRow("fifteen digits")
        << QVariant(123456789012345.0) << QStringLiteral("123456789012345");
    QTest::newRow("very large") << QVariant(1e16) << QStringLiteral("1E+16");
    QTest::newRow("text") << QVariant(QStringLiteral("Amazing Grace"))
                          << QStringLiteral("Amazing Grace");
}

void tst_VBRuntime::cstrOfValues() {
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    QCOMPARE(VB::CStr(value), expected);
}

void tst_VBRuntime::cstrOfDatesUsesShortDateAndTimeWithSeconds() {
    const QDate date(2003, 10, 29);
    const QString shortDate = QLocale::system().language() == QLocale::C
                                  ? QStringLiteral("29/10/03")
                                  : QLocale::system().toString(date, QLocale::ShortFormat);
    QCOMPARE(VB::ShortDate(date), shortDate);
    QCOMPARE(VB::LongTime(QTime(19, 5, 12)), QStringLiteral("19:05:12"));
    QCOMPARE(VB::CStr(QDateTime(date, QTime(19, 5, 12))), shortDate + QStringLiteral(" 19:05:12"));
    // Midnight is no time: the date alone.
    QCOMPARE(VB::CStr(QDateTime(date, QTime(0, 0))), shortDate);
    // The zero day is no date: the time alone.
    QCOMPARE(VB::CStr(QDateTime(QDate(1899, 12, 30), QTime(8, 30))), QStringLiteral("08:30:00"));
    QCOMPARE(VB::CStr(date), shortDate);
}

void tst_VBRuntime::cstrOfNullRaises94ButTextGivesEmpty() {
    QCOMPARE(errorOf([] { VB::CStr(QVariant()); }), VBErr::InvalidUseOfNull);
    QCOMPARE(VB::Text(QVariant()), QString());
    QCOMPARE(VB::Text(true), QStringLiteral("True"));
    QCOMPARE(VB::Text(7), QStringLiteral("7"));
}

void tst_VBRuntime::mediumDateIsDayMonthAbbreviationYear() {
    QCOMPARE(
        VB::Format(QDateTime(QDate(2026, 11, 21), QTime(17, 5)), QStringLiteral("Medium Date")),
        QStringLiteral("21-Nov-26"));
    QCOMPARE(VB::Format(QDateTime(QDate(2003, 3, 5), QTime()), QStringLiteral("Medium Date")),
             QStringLiteral("05-Mar-03"));
}

void tst_VBRuntime::longAndShortDateFormats() {
    const QDateTime value(QDate(2003, 10, 29), QTime(19, 5, 12));
    QCOMPARE(VB::Format(value, QStringLiteral("Long Date")),
             QLocale::system().toString(value.date(), QLocale::LongFormat));
    QCOMPARE(VB::Format(value, QStringLiteral("Short Date")), VB::ShortDate(value.date()));
    QCOMPARE(VB::Format(value, QStringLiteral("Long Time")), QStringLiteral("19:05:12"));
    QCOMPARE(VB::Format(value, QStringLiteral("Short Time")), QStringLiteral("19:05"));
    QCOMPARE(VB::Format(value, QStringLiteral("yyyy")), QStringLiteral("2003"));
}

void tst_VBRuntime::inStrFindsOneBasedPositions_data() {
    QTest::addColumn<qint32>("start");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<qint32>("expected");
    QTest::newRow("first") << 1 << QStringLiteral("abcabc") << QStringLiteral("b") << 2;
    QTest::newRow("from start") << 3 << QStringLiteral("abcabc") << QStringLiteral("b") << 5;
    QTest::newRow("absent") << 1 << QStringLiteral("abc") << QStringLiteral("x") << 0;
    QTest::newRow("case-sensitive") << 1 << QStringLiteral("abc") << QStringLiteral("B") << 0;
    QTest::newRow("empty find gives start") << 2 << QStringLiteral("abc") << QString() << 2;
    QTest::newRow("start past the end") << 9 << QStringLiteral("abc") << QStringLiteral("a") << 0;
    QTest::newRow("empty text") << 1 << QString() << QStringLiteral("a") << 0;
}

void tst_VBRuntime::inStrFindsOneBasedPositions() {
    QFETCH(qint32, start);
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(qint32, expected);
    QCOMPARE(VB::InStr(start, text, find), expected);
    if (start == 1)
        QCOMPARE(VB::InStr(text, find), expected);
}

void tst_VBRuntime::inStrRev() {
    QCOMPARE(VB::InStrRev(QStringLiteral("C:\\a\\b.txt"), QStringLiteral("\\")), 5);
    QCOMPARE(VB::InStrRev(QStringLiteral("abc"), QStringLiteral("x")), 0);
}

void tst_VBRuntime::stringFunctionsRaise5OnNegativeLengthOrStartBelowOne_data() {
    QTest::addColumn<int>("call");
    QTest::newRow("Left -1") << 0;
    QTest::newRow("Right -1") << 1;
    QTest::newRow("Mid start 0") << 2;
    QTest::newRow("Mid length -1") << 3;
    QTest::newRow("Mid start 0 no length") << 4;
    QTest::newRow("InStr start 0") << 5;
}

void tst_VBRuntime::stringFunctionsRaise5OnNegativeLengthOrStartBelowOne() {
    QFETCH(int, call);
    const QString text = QStringLiteral("abc");
    const qint32 number = errorOf([&] {
        switch (call) {
        case 0:
            VB::Left(text, -1);
            break;
        case 1:
            VB::Right(text, -1);
            break;
        case 2:
            VB::Mid(text, 0, 1);
            break;
        case 3:
            VB::Mid(text, 1, -1);
            break;
        case 4:
            VB::Mid(text, 0);
            break;
        default:
            VB::InStr(0, text, QStringLiteral("a"));
            break;
        }
    });
    QCOMPARE(number, VBErr::InvalidProcedureCall);
    QCOMPARE(VBError(number).Description, QStringLiteral("Invalid procedure call or argument"));
}

void tst_VBRuntime::leftMidRight_data() {
    QTest::addColumn<QString>("function");
    QTest::addColumn<qint32>("a");
    QTest::addColumn<qint32>("b");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Left 2") << "Left" << 2 << 0 << "ab";
    QTest::newRow("Left 0") << "Left" << 0 << 0 << "";
    QTest::newRow("Left past end") << "Left" << 10 << 0 << "abcde";
    QTest::newRow("Right 2") << "Right" << 2 << 0 << "de";
    QTest::newRow("Right past end") << "Right" << 10 << 0 << "abcde";
    QTest::newRow("Mid 2,3") << "Mid" << 2 << 3 << "bcd";
    QTest::newRow("Mid past end") << "Mid" << 4 << 10 << "de";
    QTest::newRow("Mid start past end") << "Mid" << 9 << 2 << "";
    QTest::newRow("Mid length 0") << "Mid" << 2 << 0 << "";
    QTest::newRow("Mid to end") << "MidToEnd" << 3 << 0 << "cde";
}

void tst_VBRuntime::leftMidRight() {
    QFETCH(QString, function);
    QFETCH(qint32, a);
    QFETCH(qint32, b);
    QFETCH(QString, expected);
    const QString text = QStringLiteral("abcde");
    QString result;
    if (function == QLatin1String("Left"))
        result = VB::Left(text, a);
    else if (function == QLatin1String("Right"))
        result = VB::Right(text, a);
    else if (function == QLatin1String("Mid"))
        result = VB::Mid(text, a, b);
    else
        result = VB::Mid(text, a);
    QCOMPARE(result, expected);
}

void tst_VBRuntime::trimRemovesSpacesOnly_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trim");
    QTest::addColumn<QString>("ltrim");
    QTest::addColumn<QString>("rtrim");
    QTest::newRow("both sides") << "  ab c  "
                                << "ab c"
                                << "ab c  "
                                << "  ab c";
    QTest::newRow("tabs stay") << "\tab\t"
                               << "\tab\t"
                               << "\tab\t"
                               << "\tab\t";
    QTest::newRow("all blanks") << "   "
                                << ""
                                << ""
                                << "";
    QTest::newRow("empty") << ""
                           << ""
                           << ""
                           << "";
}

void tst_VBRuntime::trimRemovesSpacesOnly() {
    QFETCH(QString, text);
    QFETCH(QString, trim);
    QFETCH(QString, ltrim);
    QFETCH(QString, rtrim);
    QCOMPARE(VB::Trim(text), trim);
    QCOMPARE(VB::LTrim(text), ltrim);
    QCOMPARE(VB::RTrim(text), rtrim);
}

QTEST_GUILESS_MAIN(tst_VBRuntime)
#include "tst_VBRuntime.moc"
