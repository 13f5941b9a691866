// The unit setters and the folding of hidden units into shown ones.
#include "serviceitems/QVTimeSelector.h"

#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"

namespace {
const QString cls = QStringLiteral("QVTimeSelector");

QString source(const char* pszMember) {
    return ErrorReport::FullSource(cls, QString::fromLatin1(pszMember));
}
} // namespace

void QVTimeSelector::setUserCanChange(qint32 New_UserCanChange) {
    TraceLine(cls, QStringLiteral("UserCanChange"))
        .Arg(QStringLiteral("New_UserCanChange"), New_UserCanChange)
        .Write();
    ErrorReport::TryFullErrorBox(source("UserCanChange"), [&] {
        m_UserCanChange = New_UserCanChange;
        MarkChanged("UserCanChange");
        ControlsRearranged();
        UserControl_Resize();
    });
}

void QVTimeSelector::setHours(qint32 New_Hours) {
    TraceLine(cls, QStringLiteral("Hours")).Arg(QStringLiteral("New_Hours"), New_Hours).Write();
    ErrorReport::TryFullErrorBox(source("Hours"), [&] {
        m_Hours = New_Hours;
        ShowInBox(txtHours, New_Hours);
        MarkChanged("Hours");
        if (m_UserCanChange >= 3 && m_UserCanChange <= 5)
            ControlsRearranged();
    });
}

void QVTimeSelector::setMinutes(qint32 New_Minutes) {
    TraceLine(cls, QStringLiteral("Minutes"))
        .Arg(QStringLiteral("New_Minutes"), New_Minutes)
        .Write();
    ErrorReport::TryFullErrorBox(source("Minutes"), [&] {
        switch (m_UserCanChange) {
        case 2: // hours only: half an hour or more counts as an hour
            if (New_Minutes > 60)
                AddToBox(txtHours, New_Minutes / 60.0);
            else if (New_Minutes >= 31)
                AddToBox(txtHours, 1);
            m_Hours = BoxRounded(txtHours);
            MarkChanged("Hours");
            break;
        case 4: // seconds only
            AddToBox(txtSeconds, New_Minutes * 60.0);
            m_Seconds = BoxRounded(txtSeconds);
            MarkChanged("Seconds");
            break;
        default:
            m_Minutes = New_Minutes;
            ShowInBox(txtMinutes, New_Minutes);
            MarkChanged("Minutes");
        }
    });
}

void QVTimeSelector::setSeconds(qint32 New_Seconds) {
    TraceLine(cls, QStringLiteral("Seconds"))
        .Arg(QStringLiteral("New_Seconds"), New_Seconds)
        .Write();
    ErrorReport::TryFullErrorBox(source("Seconds"), [&] {
        switch (m_UserCanChange) {
        case 2: // hours only
            if (New_Seconds > 3600)
                AddToBox(txtHours, New_Seconds / 3600.0);
            else if (New_Seconds >= 1801)
                AddToBox(txtHours, 1);
            m_Hours = BoxRounded(txtHours);
            MarkChanged("Hours");
            break;
        case 1:
        case 5: // minutes shown, seconds not
            if (New_Seconds > 60)
                AddToBox(txtMinutes, New_Seconds / 60.0);
            else if (New_Seconds >= 31)
                AddToBox(txtMinutes, 1);
            // The rounded minutes land in the kept Hours; the kept Minutes
            // follows from the minutes box's own change. The kept Hours stays
            // so until the hours box next changes.
            m_Hours = BoxRounded(txtMinutes);
            MarkChanged("Minutes");
            break;
        default:
            m_Seconds = New_Seconds;
            ShowInBox(txtSeconds, New_Seconds);
            MarkChanged("Seconds");
        }
    });
}

void QVTimeSelector::ControlsRearranged() {
    TraceLine(cls, QStringLiteral("ControlsRearranged")).Write();
    ErrorReport::TryFullErrorBox(source("ControlsRearranged"),
                                 [this] { ControlsRearrangedForMode(); });
}

// Adds a seconds value that is not shown to the minutes box: more than a
// minute as a (fractional) number of minutes, more than half a minute as one.
void QVTimeSelector::FoldSecondsIntoMinutes(double dblSeconds) {
    if (dblSeconds > 60) {
        AddToBox(txtMinutes, dblSeconds / 60);
        MarkChanged("Minutes");
    } else if (dblSeconds > 30) {
        AddToBox(txtMinutes, 1);
        MarkChanged("Minutes");
    }
}

// Each change goes through the boxes, whose change handlers set the kept
// values.
void QVTimeSelector::ControlsRearrangedForMode() {
    auto clear = [this](QLineEdit* txt, const char* pszProperty) {
        ShowInBox(txt, 0);
        MarkChanged(pszProperty);
    };
    switch (m_UserCanChange) {
    case 1: { // hours and minutes
        const double dblSeconds = BoxValue(txtSeconds);
        if (dblSeconds > 3600) {
            AddToBox(txtHours, dblSeconds / 3600);
            MarkChanged("Hours");
            const qint32 lngRest = VB::CLng(dblSeconds) % 3600;
            if (lngRest >= 61) {
                AddToBox(txtMinutes, lngRest / 60.0);
                MarkChanged("Minutes");
            } else if (lngRest >= 31) {
                AddToBox(txtMinutes, 1);
                MarkChanged("Minutes");
            }
        } else {
            FoldSecondsIntoMinutes(dblSeconds);
        }
        if (dblSeconds > 0)
            clear(txtSeconds, "Seconds");
        break;
    }
    case 2: { // hours only
        const double dblMinutes = BoxValue(txtMinutes);
        if (dblMinutes > 60) {
            AddToBox(txtHours, dblMinutes / 60);
            MarkChanged("Hours");
        } else if (dblMinutes > 30) {
            AddToBox(txtHours, 1);
            MarkChanged("Hours");
        }
        if (dblMinutes > 0)
            clear(txtMinutes, "Minutes");
        const double dblSeconds = BoxValue(txtSeconds);
        if (dblSeconds > 3600) {
            AddToBox(txtHours, dblSeconds / 3600);
            MarkChanged("Hours");
        } else if (dblSeconds > 1800) {
            AddToBox(txtHours, 1);
            MarkChanged("Hours");
        }
        clear(txtSeconds, "Seconds");
        break;
    }
    case 3: { // minutes and seconds
        const double dblHours = BoxValue(txtHours);
        if (dblHours > 0) {
            AddToBox(txtMinutes, dblHours * 60);
            MarkChanged("Minutes");
            clear(txtHours, "Hours");
        }
        break;
    }
    case 4: { // seconds only
        const double dblHours = BoxValue(txtHours);
        if (dblHours != 0) {
            AddToBox(txtSeconds, dblHours * 3600);
            MarkChanged("Seconds");
            clear(txtHours, "Hours");
        }
        const double dblMinutes = BoxValue(txtMinutes);
        if (dblMinutes != 0) {
            AddToBox(txtSeconds, dblMinutes * 60);
            MarkChanged("Seconds");
            clear(txtMinutes, "Minutes");
        }
        break;
    }
    case 5: { // minutes only
        const double dblHours = BoxValue(txtHours);
        if (dblHours > 0) {
            AddToBox(txtMinutes, dblHours * 60);
            MarkChanged("Minutes");
            clear(txtHours, "Hours");
        }
        FoldSecondsIntoMinutes(BoxValue(txtSeconds));
        clear(txtSeconds, "Seconds");
        break;
    }
    default: // all units shown: nothing to fold
        break;
    }
}

bool QVTimeSelector::UnitShown(const Unit& unit) const {
    switch (m_UserCanChange) {
    case 1:
        return unit.txt != txtSeconds;
    case 2:
        return unit.txt == txtHours;
    case 3:
        return unit.txt != txtHours;
    case 4:
        return unit.txt == txtSeconds;
    case 5:
        return unit.txt == txtMinutes;
    default:
        return true;
    }
}
