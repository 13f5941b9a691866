// What the user does in the boxes and with the spin buttons.
#include "serviceitems/QVTimeSelector.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/Twips.h"
#include "foundations/VBRuntime.h"

#include <QKeyEvent>
#include <QLabel>

namespace {
const QString cls = QStringLiteral("QVTimeSelector");

// A box is as wide as the measuring label's text plus this margin (twips).
constexpr qint32 BoxTextMargin = 100;

QString source(const char* pszMember) {
    return ErrorReport::FullSource(cls, QString::fromLatin1(pszMember));
}

TraceLine trace(const char* pszMember) {
    return TraceLine(cls, QString::fromLatin1(pszMember));
}
} // namespace

// An empty box becomes "0", selected, so that typing replaces it. A numeric
// text is kept rounded and sizes the box; anything else is put back to the
// kept value. There is no upper limit and no carry into the next unit.
void QVTimeSelector::BoxChange(Unit& unit, const char* pszMember) {
    trace(pszMember).Write();
    ErrorReport::TryFullErrorBox(source(pszMember), [&] {
        const QString strText = unit.txt->text();
        if (strText.isEmpty()) {
            unit.txt->setText(QStringLiteral("0"));
            unit.txt->setSelection(0, 1);
            return;
        }
        if (!VB::IsNumeric(strText)) {
            ShowInBox(unit.txt, *unit.kept);
            return;
        }
        *unit.kept = VB::CLng(strText);
        lblReSize->setText(strText);
        lblReSize->resize(lblReSize->sizeHint());
        unit.txt->resize(Twips::ToPixels(Twips::FromPixels(lblReSize->width()) + BoxTextMargin),
                         unit.txt->height());
        UserControl_Resize();
        emit Changed();
    });
}

void QVTimeSelector::txtHours_Change() {
    BoxChange(m_unitHours, "txtHours_Change");
}
void QVTimeSelector::txtMinutes_Change() {
    BoxChange(m_unitMinutes, "txtMinutes_Change");
}
void QVTimeSelector::txtSeconds_Change() {
    BoxChange(m_unitSeconds, "txtSeconds_Change");
}

void QVTimeSelector::BoxKeyPress(const char* pszMember, qint16 KeyAscii) {
    trace(pszMember).Arg(QStringLiteral("KeyAscii"), KeyAscii).Write();
    ErrorReport::TryFullErrorBox(source(pszMember), [&] {
        if (KeyAscii == 13)
            emit EnterButtonPressed();
    });
}

void QVTimeSelector::txtHours_KeyPress(qint16 KeyAscii) {
    BoxKeyPress("txtHours_KeyPress", KeyAscii);
}
void QVTimeSelector::txtMinutes_KeyPress(qint16 KeyAscii) {
    BoxKeyPress("txtMinutes_KeyPress", KeyAscii);
}
void QVTimeSelector::txtSeconds_KeyPress(qint16 KeyAscii) {
    BoxKeyPress("txtSeconds_KeyPress", KeyAscii);
}

// A click in a box selects its whole text.
void QVTimeSelector::BoxMouseUp(Unit& unit, const char* pszMember, qint16 Button, qint16 Shift,
                                float X, float Y) {
    trace(pszMember)
        .Arg(QStringLiteral("Button"), Button)
        .Arg(QStringLiteral("Shift"), Shift)
        .Arg(QStringLiteral("X"), X)
        .Arg(QStringLiteral("Y"), Y)
        .Write();
    unit.txt->selectAll();
}

void QVTimeSelector::txtHours_MouseUp(qint16 Button, qint16 Shift, float X, float Y) {
    BoxMouseUp(m_unitHours, "txtHours_MouseUp", Button, Shift, X, Y);
}
void QVTimeSelector::txtMinutes_MouseUp(qint16 Button, qint16 Shift, float X, float Y) {
    BoxMouseUp(m_unitMinutes, "txtMinutes_MouseUp", Button, Shift, X, Y);
}
void QVTimeSelector::txtSeconds_MouseUp(qint16 Button, qint16 Shift, float X, float Y) {
    BoxMouseUp(m_unitSeconds, "txtSeconds_MouseUp", Button, Shift, X, Y);
}

// The spin buttons step the box by one, never below 0 going down, and never
// carry into the next unit.
void QVTimeSelector::SpinUp(Unit& unit, const char* pszMember) {
    trace(pszMember).Write();
    ErrorReport::TryFullErrorBox(source(pszMember), [&] { AddToBox(unit.txt, 1); });
}

void QVTimeSelector::SpinDown(Unit& unit, const char* pszMember) {
    trace(pszMember).Write();
    ErrorReport::TryFullErrorBox(source(pszMember), [&] {
        if (BoxValue(unit.txt) > 0)
            AddToBox(unit.txt, -1);
    });
}

void QVTimeSelector::udHours_UpClick() {
    SpinUp(m_unitHours, "udHours_UpClick");
}
void QVTimeSelector::udHours_DownClick() {
    SpinDown(m_unitHours, "udHours_DownClick");
}
void QVTimeSelector::udMinutes_UpClick() {
    SpinUp(m_unitMinutes, "udMinutes_UpClick");
}
void QVTimeSelector::udMinutes_DownClick() {
    SpinDown(m_unitMinutes, "udMinutes_DownClick");
}
void QVTimeSelector::udSeconds_UpClick() {
    SpinUp(m_unitSeconds, "udSeconds_UpClick");
}
void QVTimeSelector::udSeconds_DownClick() {
    SpinDown(m_unitSeconds, "udSeconds_DownClick");
}

// Keys that reach the control itself (none of its boxes took them).
void QVTimeSelector::keyPressEvent(QKeyEvent* event) {
    const bool blnEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString strText = event->text();
    if (blnEnter)
        UserControl_KeyPress(13);
    else if (strText.size() == 1)
        UserControl_KeyPress(static_cast<qint16>(strText.at(0).unicode()));
    if (blnEnter)
        event->accept();
    else
        QWidget::keyPressEvent(event);
}

// Enter shows its key code in a box: a diagnostic that stays in the control.
void QVTimeSelector::UserControl_KeyPress(qint16 KeyAscii) {
    TraceLine(cls, QStringLiteral("UserControl_KeyPress"))
        .Arg(QStringLiteral("KeyAscii"), KeyAscii)
        .Write();
    ErrorReport::TryFullErrorBox(source("UserControl_KeyPress"), [&] {
        if (KeyAscii == 13)
            Platform::Current().MsgBox(VB::CStr(KeyAscii));
    });
}
