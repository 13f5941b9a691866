// The duration as seconds, minutes and texts, both ways.
#include "serviceitems/QVTimeSelector.h"

#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"
#include "foundations/modQVLTControls.h"

namespace {
const QString cls = QStringLiteral("QVTimeSelector");

QString source(const char* pszMember) {
    return ErrorReport::FullSource(cls, QString::fromLatin1(pszMember));
}
} // namespace

qint32 QVTimeSelector::TimeInSeconds() const {
    TraceLine(cls, QStringLiteral("TimeInSeconds")).Write();
    qint32 lngResult = 0;
    ErrorReport::TryFullErrorBox(source("TimeInSeconds"), [&] {
        lngResult =
            VB::CLng(BoxValue(txtHours) * 3600 + BoxValue(txtMinutes) * 60 + BoxValue(txtSeconds));
    });
    return lngResult;
}

// Whole minutes start above one minute and whole hours above sixty minutes:
// 1 to 60 seconds show as nothing, 3600 as sixty minutes.
void QVTimeSelector::setTimeInSeconds(qint32 New_TimeInSeconds) {
    TraceLine(cls, QStringLiteral("TimeInSeconds"))
        .Arg(QStringLiteral("New_TimeInSeconds"), New_TimeInSeconds)
        .Write();
    ErrorReport::TryFullErrorBox(source("TimeInSeconds"), [&] {
        qint32 lngHours = 0;
        qint32 lngMinutes = 0;
        qint32 lngSeconds = 0;
        if (New_TimeInSeconds > 60) {
            lngMinutes = New_TimeInSeconds / 60;
            lngSeconds = New_TimeInSeconds % 60;
        }
        if (lngMinutes > 60) {
            lngHours = lngMinutes / 60;
            lngMinutes = lngMinutes % 60;
        }
        ShowInBox(txtHours, lngHours);
        m_Hours = lngHours;
        ShowInBox(txtMinutes, lngMinutes);
        m_Minutes = lngMinutes;
        ShowInBox(txtSeconds, lngSeconds);
        m_Seconds = lngSeconds;
        lngTimeInSeconds = New_TimeInSeconds;
        MarkChanged("TimeInSeconds");
        MarkChanged("Hours");
        MarkChanged("Minutes");
        MarkChanged("Seconds");
    });
}

// Rounds the seconds to the nearest minute; a rest of 31 seconds or more also
// adds a second to the seconds box.
qint32 QVTimeSelector::TimeInMinutes() const {
    TraceLine(cls, QStringLiteral("TimeInMinutes")).Write();
    qint32 lngResult = 0;
    ErrorReport::TryFullErrorBox(source("TimeInMinutes"), [&] {
        const double dblSeconds = BoxValue(txtSeconds);
        const qint32 lngFromSeconds = VB::CLng(dblSeconds / 60);
        const qint32 lngRest = VB::CLng(dblSeconds) % 60;
        if (lngRest >= 31)
            AddToBox(txtSeconds, 1);
        lngResult = VB::CLng(BoxValue(txtMinutes) + BoxValue(txtHours) * 60 + lngFromSeconds);
    });
    return lngResult;
}

// Clears the three units; the value itself is only remembered.
void QVTimeSelector::setTimeInMinutes(qint32 New_TimeInMinutes) {
    TraceLine(cls, QStringLiteral("TimeInMinutes"))
        .Arg(QStringLiteral("New_TimeInMinutes"), New_TimeInMinutes)
        .Write();
    ErrorReport::TryFullErrorBox(source("TimeInMinutes"), [&] {
        ShowInBox(txtHours, 0);
        ShowInBox(txtMinutes, 0);
        ShowInBox(txtSeconds, 0);
        m_Hours = 0;
        m_Minutes = 0;
        m_Seconds = 0;
        lngTimeInMinutes = New_TimeInMinutes;
        MarkChanged("TimeInMinutes");
        MarkChanged("Hours");
        MarkChanged("Minutes");
        MarkChanged("Seconds");
    });
}

// The words of TimeInSeconds. The short form counts whole minutes above 60
// seconds and makes exactly 60 minutes an hour; the long form counts whole
// minutes from 61 seconds and hours from 61 minutes, so 3600 reads as
// "60 minutes ".
QString QVTimeSelector::TimeText(bool blnLong) const {
    const qint32 lngTime = TimeInSeconds();
    qint32 lngSeconds = lngTime;
    qint32 lngMinutes = 0;
    qint32 lngHours = 0;
    if (blnLong ? lngTime >= 61 : lngTime > 60) {
        lngMinutes = lngTime / 60;
        lngSeconds = lngTime % 60;
    }
    if (lngMinutes >= 61) {
        lngHours = lngMinutes / 60;
        lngMinutes = lngMinutes % 60;
    } else if (!blnLong && lngMinutes == 60) {
        lngHours = 1;
        lngMinutes = 0;
    }
    QString strTime;
    auto words = [&strTime](qint32 lngCount, const char* pszOne, const char* pszMany) {
        if (lngCount == 1)
            strTime += QString::fromLatin1(pszOne);
        else if (lngCount > 1)
            strTime += VB::CStr(lngCount) + QString::fromLatin1(pszMany);
    };
    if (blnLong) {
        words(lngHours, "1 hour ", " hours ");
        words(lngMinutes, "1 minute ", " minutes ");
        words(lngSeconds, "1 second ", " seconds ");
        return strTime;
    }
    words(lngHours, "1 hr ", " hrs ");
    words(lngMinutes, "1 min ", " mins ");
    words(lngSeconds, "1 sec ", " secs ");
    return modQVLTControls::TrimData(strTime, QStringLiteral(" "));
}

QString QVTimeSelector::ShortTime() const {
    TraceLine(cls, QStringLiteral("ShortTime")).Write();
    QString strResult;
    ErrorReport::TryFullErrorBox(source("ShortTime"), [&] { strResult = TimeText(false); });
    return strResult;
}

QString QVTimeSelector::LongTime() const {
    TraceLine(cls, QStringLiteral("LongTime")).Write();
    QString strResult;
    ErrorReport::TryFullErrorBox(source("LongTime"), [&] { strResult = TimeText(true); });
    return strResult;
}

void QVTimeSelector::setShortTime(const QString& New_ShortTime) {
    TraceLine(cls, QStringLiteral("ShortTime"))
        .Arg(QStringLiteral("New_ShortTime"), New_ShortTime)
        .Write();
    ErrorReport::TryFullErrorBox(source("ShortTime"), [&] {
        setHours(0);
        setMinutes(0);
        setSeconds(0);
        if (New_ShortTime.isEmpty())
            return;
        ParseShortTime(New_ShortTime, [this](char chUnit, qint32 lngValue) {
            if (chUnit == 'h')
                setHours(lngValue);
            else if (chUnit == 'm')
                setMinutes(lngValue);
            else
                setSeconds(lngValue);
        });
    });
}

qint32 QVTimeSelector::ConvertTimeToSeconds(const QString& strShortTime) const {
    TraceLine(cls, QStringLiteral("ConvertTimeToSeconds"))
        .Arg(QStringLiteral("strShortTime"), strShortTime)
        .Write();
    qint32 lngResult = 0;
    ErrorReport::TryFullErrorBox(source("ConvertTimeToSeconds"), [&] {
        qint32 lngHours = 0;
        qint32 lngMinutes = 0;
        qint32 lngSeconds = 0;
        ParseShortTime(strShortTime, [&](char chUnit, qint32 lngValue) {
            (chUnit == 'h' ? lngHours : chUnit == 'm' ? lngMinutes : lngSeconds) = lngValue;
        });
        lngResult = VB::CLng(static_cast<double>(lngHours) * 3600 +
                             static_cast<double>(lngMinutes) * 60 + lngSeconds);
    });
    return lngResult;
}

// Six tests in a fixed order, each on what the ones before left over: "hrs"
// with the number before it, a lone "hr" as one hour, then "mins" and "min",
// then "secs" and "sec" alike. The number is what stands before the word, less
// the blank between them.
void QVTimeSelector::ParseShortTime(
    const QString& strShortTime, const std::function<void(char chUnit, qint32 lngValue)>& fnSet) {
    QString strLeft = strShortTime;
    auto plural = [&strLeft, &fnSet](const char* pszWord, qint32 lngSkip, char chUnit) {
        const qint32 p = VB::InStr(strLeft, QString::fromLatin1(pszWord));
        if (p == 0)
            return;
        const QString strNumber = VB::Left(strLeft, p - 2);
        strLeft = VB::Mid(strLeft, p + lngSkip + 1);
        fnSet(chUnit, VB::CLng(strNumber));
    };
    auto single = [&strLeft, &fnSet](const char* pszWord, qint32 lngSkip, char chUnit) {
        const qint32 p = VB::InStr(strLeft, QString::fromLatin1(pszWord));
        if (p == 0)
            return;
        strLeft = VB::Mid(strLeft, p + lngSkip + 1);
        fnSet(chUnit, 1);
    };
    plural("hrs", 2, 'h');
    single("hr", 1, 'h');
    plural("mins", 4, 'm');
    single("min", 2, 'm');
    plural("secs", 2, 's');
    single("sec", 2, 's');
}

qint32 QVTimeSelector::GetNumberPart(const QString& strData) {
    auto isDigit = [&strData](qint32 i) {
        return strData.at(i) >= QLatin1Char('0') && strData.at(i) <= QLatin1Char('9');
    };
    qint32 lngStart = 0;
    while (lngStart < strData.size() && !isDigit(lngStart))
        ++lngStart;
    qint32 lngEnd = lngStart;
    while (lngEnd < strData.size() && isDigit(lngEnd))
        ++lngEnd;
    if (lngEnd == lngStart)
        return 0;
    const qint32 lngNumber = VB::CLng(strData.mid(lngStart, lngEnd - lngStart));
    const bool blnNegative = lngStart > 0 && strData.at(lngStart - 1) == QLatin1Char('-');
    return blnNegative ? -lngNumber : lngNumber;
}
