// The layout of the control and its two small widgets, the box and the spin
// button pair.
#include "serviceitems/QVTimeSelector.h"

#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"
#include "foundations/Twips.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolButton>

namespace {
const QString cls = QStringLiteral("QVTimeSelector");

// Layout numbers, in twips.
constexpr qint32 ControlHeight = 430;   // the control's fixed height
constexpr qint32 MinimumBoxWidth = 100; // no box is narrower
constexpr qint32 SpinWidth = 240;       // width of a spin button pair
constexpr qint32 CaptionGap = 45;       // between a box and its caption
constexpr qint32 UnitGap = 120;         // between a caption and the next unit

qint16 vbButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

qint16 vbShift(Qt::KeyboardModifiers modifiers) {
    return static_cast<qint16>((modifiers & Qt::ShiftModifier ? 1 : 0) |
                               (modifiers & Qt::ControlModifier ? 2 : 0) |
                               (modifiers & Qt::AltModifier ? 4 : 0));
}
} // namespace

// Fixed height; the shown units from left to right, each as spin buttons, box
// and caption; the control ends at the last caption.
void QVTimeSelector::UserControl_Resize() {
    TraceLine(cls, QStringLiteral("UserControl_Resize")).Write();
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(cls, QStringLiteral("UserControl_Resize")), [this] {
            const int intHeight = Twips::ToPixels(ControlHeight);
            const int intMinimumBox = Twips::ToPixels(MinimumBoxWidth);
            Unit* const units[] = {&m_unitHours, &m_unitMinutes, &m_unitSeconds};
            for (Unit* unit : units) {
                if (unit->txt->width() < intMinimumBox)
                    unit->txt->resize(intMinimumBox, unit->txt->height());
                unit->ud->setVisible(true);
                unit->txt->setVisible(true);
                unit->lblCaption->setVisible(true);
            }
            for (Unit* unit : units) {
                if (UnitShown(*unit))
                    continue;
                unit->ud->setVisible(false);
                unit->txt->setVisible(false);
                unit->lblCaption->setVisible(false);
            }

            const int intBoxHeight = qMin(txtHours->sizeHint().height(), intHeight);
            const int intTop = (intHeight - intBoxHeight) / 2;
            int x = 0;
            bool blnFirst = true;
            for (Unit* unit : units) {
                if (!UnitShown(*unit))
                    continue;
                if (!blnFirst)
                    x += Twips::ToPixels(UnitGap);
                blnFirst = false;
                unit->ud->setGeometry(x, intTop, Twips::ToPixels(SpinWidth), intBoxHeight);
                x += unit->ud->width();
                unit->txt->setGeometry(x, intTop, unit->txt->width(), intBoxHeight);
                x += unit->txt->width() + Twips::ToPixels(CaptionGap);
                unit->lblCaption->resize(unit->lblCaption->sizeHint());
                unit->lblCaption->move(x, (intHeight - unit->lblCaption->height()) / 2);
                x += unit->lblCaption->width();
            }

            const QSize sizeNew(x, intHeight);
            if (sizeNew != m_sizeArranged) {
                m_sizeArranged = sizeNew;
                updateGeometry();
            }
            if (size() != sizeNew) {
                const QScopedValueRollback<bool> arranging(m_blnArranging, true);
                resize(sizeNew);
            }
            emit Resized();
        });
}

void QVTimeSelector::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_blnArranging)
        return;
    UserControl_Resize();
}

QSize QVTimeSelector::sizeHint() const {
    return m_sizeArranged;
}

QSize QVTimeSelector::minimumSizeHint() const {
    return m_sizeArranged;
}

// ---- QVTimeSelectorUpDown -------------------------------------------------------

QVTimeSelectorUpDown::QVTimeSelectorUpDown(QWidget* parent)
    : QWidget(parent), m_up(new QToolButton(this)), m_down(new QToolButton(this)) {
    m_up->setObjectName(QStringLiteral("Up"));
    m_down->setObjectName(QStringLiteral("Down"));
    m_up->setArrowType(Qt::UpArrow);
    m_down->setArrowType(Qt::DownArrow);
    for (QToolButton* button : {m_up, m_down}) {
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
    }
    connect(m_up, &QToolButton::clicked, this, &QVTimeSelectorUpDown::UpClick);
    connect(m_down, &QToolButton::clicked, this, &QVTimeSelectorUpDown::DownClick);
}

void QVTimeSelectorUpDown::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int intUpper = height() / 2;
    m_up->setGeometry(0, 0, width(), intUpper);
    m_down->setGeometry(0, intUpper, width(), height() - intUpper);
}

// ---- QVTimeSelectorBox ----------------------------------------------------------

QVTimeSelectorBox::QVTimeSelectorBox(QWidget* parent) : QLineEdit(parent) {}

// The line edit's size hint is seventeen "x" wide plus its frame and inner
// margins; one more pixel leaves room for the cursor.
int QVTimeSelectorBox::ChromeWidth() const {
    return sizeHint().width() - 17 * fontMetrics().horizontalAdvance(QLatin1Char('x')) + 1;
}

void QVTimeSelectorBox::keyPressEvent(QKeyEvent* event) {
    const bool blnEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString strText = event->text();
    if (blnEnter)
        emit KeyPress(13);
    else if (strText.size() == 1)
        emit KeyPress(static_cast<qint16>(strText.at(0).unicode()));
    QLineEdit::keyPressEvent(event);
    if (blnEnter)
        event->accept();
}

void QVTimeSelectorBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    const QPointF ptPos = event->position();
    emit MouseUp(vbButton(event->button()), vbShift(event->modifiers()),
                 static_cast<float>(ptPos.x() * Twips::PerPixel),
                 static_cast<float>(ptPos.y() * Twips::PerPixel));
}
