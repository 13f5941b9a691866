#include "foundations/VBStatusBar.h"

#include "foundations/Twips.h"
#include "foundations/VBError.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

VBStatusBar::VBStatusBar(QWidget* parent) : QWidget(parent), m_layout(new QHBoxLayout(this)) {
    m_layout->setContentsMargins(2, 1, 2, 1);
    m_layout->setSpacing(2);
}

QLabel* VBStatusBar::AddPanel(const QString& strText, qint32 lngWidthTwips) {
    auto* panel = new QLabel(strText, this);
    panel->setObjectName(QStringLiteral("Panel%1").arg(m_panels.size() + 1));
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    panel->installEventFilter(this);
    if (lngWidthTwips > 0) {
        panel->setFixedWidth(Twips::ToPixels(lngWidthTwips));
        m_layout->addWidget(panel);
    } else {
        m_layout->addWidget(panel, 1);
    }
    m_panels.append(panel);
    return panel;
}

QLabel* VBStatusBar::Panels(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > PanelCount())
        throw VBError(VBErr::IndexOutOfBounds);
    return m_panels.at(lngIndex - 1);
}

bool VBStatusBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        auto* panel = qobject_cast<QLabel*>(watched);
        const qsizetype index = m_panels.indexOf(panel);
        if (index >= 0 && panel->rect().contains(mouse->position().toPoint())) {
            emit PanelClick(static_cast<qint32>(index + 1));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
