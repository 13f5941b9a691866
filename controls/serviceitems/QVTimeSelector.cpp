#include "serviceitems/QVTimeSelector.h"

#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"
#include "foundations/VBRuntime.h"

#include <QLabel>

namespace {
const QString cls = QStringLiteral("QVTimeSelector");
}

QVTimeSelector::QVTimeSelector(QWidget* parent) : QWidget(parent) {
    TraceLine(cls, QStringLiteral("UserControl_Initialize")).Write();

    auto makeUnit = [this](const QString& strUnit, const QString& strCaption, qint32* pKept,
                           QVTimeSelectorUpDown*& ud, QVTimeSelectorBox*& txt,
                           QLabel*& lblCaption) {
        ud = new QVTimeSelectorUpDown(this);
        ud->setObjectName(QStringLiteral("ud") + strUnit);
        txt = new QVTimeSelectorBox(this);
        txt->setObjectName(QStringLiteral("txt") + strUnit);
        lblCaption = new QLabel(strCaption, this);
        lblCaption->setObjectName(QStringLiteral("lblCaption") + strUnit);
        return Unit{ud, txt, lblCaption, pKept};
    };
    m_unitHours = makeUnit(QStringLiteral("Hours"), QStringLiteral("hours"), &m_Hours, udHours,
                           txtHours, lblCaptionHours);
    m_unitMinutes = makeUnit(QStringLiteral("Minutes"), QStringLiteral("minutes"), &m_Minutes,
                             udMinutes, txtMinutes, lblCaptionMinutes);
    m_unitSeconds = makeUnit(QStringLiteral("Seconds"), QStringLiteral("seconds"), &m_Seconds,
                             udSeconds, txtSeconds, lblCaptionSeconds);

    // The measuring label: never shown, it takes a box's text to tell how wide
    // the box must be. Its margins are the box's own frame and inner margins,
    // so that a box sized by it shows its whole text.
    lblReSize = new QLabel(this);
    lblReSize->setObjectName(QStringLiteral("lblReSize"));
    lblReSize->setFont(txtHours->font());
    const int intChrome = txtHours->ChromeWidth();
    lblReSize->setContentsMargins(intChrome / 2, 0, intChrome - intChrome / 2, 0);
    lblReSize->hide();

    connect(txtHours, &QLineEdit::textChanged, this, &QVTimeSelector::txtHours_Change);
    connect(txtMinutes, &QLineEdit::textChanged, this, &QVTimeSelector::txtMinutes_Change);
    connect(txtSeconds, &QLineEdit::textChanged, this, &QVTimeSelector::txtSeconds_Change);
    connect(txtHours, &QVTimeSelectorBox::KeyPress, this, &QVTimeSelector::txtHours_KeyPress);
    connect(txtMinutes, &QVTimeSelectorBox::KeyPress, this, &QVTimeSelector::txtMinutes_KeyPress);
    connect(txtSeconds, &QVTimeSelectorBox::KeyPress, this, &QVTimeSelector::txtSeconds_KeyPress);
    connect(txtHours, &QVTimeSelectorBox::MouseUp, this, &QVTimeSelector::txtHours_MouseUp);
    connect(txtMinutes, &QVTimeSelectorBox::MouseUp, this, &QVTimeSelector::txtMinutes_MouseUp);
    connect(txtSeconds, &QVTimeSelectorBox::MouseUp, this, &QVTimeSelector::txtSeconds_MouseUp);
    connect(udHours, &QVTimeSelectorUpDown::UpClick, this, &QVTimeSelector::udHours_UpClick);
    connect(udHours, &QVTimeSelectorUpDown::DownClick, this, &QVTimeSelector::udHours_DownClick);
    connect(udMinutes, &QVTimeSelectorUpDown::UpClick, this, &QVTimeSelector::udMinutes_UpClick);
    connect(udMinutes, &QVTimeSelectorUpDown::DownClick, this,
            &QVTimeSelector::udMinutes_DownClick);
    connect(udSeconds, &QVTimeSelectorUpDown::UpClick, this, &QVTimeSelector::udSeconds_UpClick);
    connect(udSeconds, &QVTimeSelectorUpDown::DownClick, this,
            &QVTimeSelector::udSeconds_DownClick);

    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    // Every box starts at 0; each fill passes through the box's change
    // handler, which sizes the box.
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(cls, QStringLiteral("UserControl_Initialize")), [this] {
            ShowInBox(txtHours, 0);
            ShowInBox(txtMinutes, 0);
            ShowInBox(txtSeconds, 0);
        });
    UserControl_Resize();
}

QVTimeSelector::~QVTimeSelector() {
    TraceLine(cls, QStringLiteral("UserControl_Terminate")).Write();
}

QString QVTimeSelector::Description() const {
    return QStringLiteral("TimeSelectorControl");
}

void QVTimeSelector::ReadProperties(const QVariantMap& PropBag) {
    TraceLine(cls, QStringLiteral("UserControl_ReadProperties")).Write();
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(cls, QStringLiteral("UserControl_ReadProperties")), [&] {
            auto read = [&PropBag](const char* pszName) {
                return VB::CLng(PropBag.value(QString::fromLatin1(pszName), 0));
            };
            m_Hours = read("Hours");
            m_Minutes = read("Minutes");
            m_Seconds = read("Seconds");
            m_UserCanChange = read("UserCanChange");
            ShowInBox(txtHours, m_Hours);
            ShowInBox(txtMinutes, m_Minutes);
            ShowInBox(txtSeconds, m_Seconds);
            UserControl_Resize();
        });
}

QVariantMap QVTimeSelector::WriteProperties() const {
    TraceLine(cls, QStringLiteral("UserControl_WriteProperties")).Write();
    return QVariantMap{{QStringLiteral("Hours"), m_Hours},
                       {QStringLiteral("Minutes"), m_Minutes},
                       {QStringLiteral("Seconds"), m_Seconds},
                       {QStringLiteral("UserCanChange"), m_UserCanChange}};
}

void QVTimeSelector::MarkChanged(const char* pszPropertyName) {
    emit PropertyChanged(QString::fromLatin1(pszPropertyName));
}

double QVTimeSelector::BoxValue(const QLineEdit* txt) {
    return VB::CDbl(txt->text());
}

qint32 QVTimeSelector::BoxRounded(const QLineEdit* txt) {
    return VB::CLng(txt->text());
}

void QVTimeSelector::AddToBox(QLineEdit* txt, double dblAmount) {
    txt->setText(VB::CStr(BoxValue(txt) + dblAmount));
}

void QVTimeSelector::ShowInBox(QLineEdit* txt, qint32 lngValue) {
    txt->setText(VB::CStr(lngValue));
}
