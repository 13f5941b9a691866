// The mirror of the projector picture, and where the projector is.
#include "run/ctlRun.h"

#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "run/clsMonitors.h"

#include <QLabel>

#include <memory>

// No handler. The trace prefix carries a stray apostrophe, as it always has.
void ctlRun::RefreshScreenMirror() {
    TraceLine::WithPrefix(QStringLiteral("QVLTCONTROLS:ctlRun:'RefreshScreenMirror")).Write();
    imgMirror->setPixmap(GetOLEScreenSnapshot());
}

// The projector monitor's area of the desktop, from its left edge and the
// desktop's top (the top of ProjectorRect is not used). A rectangle of zeros
// gives an empty picture.
QPixmap ctlRun::GetOLEScreenSnapshot() {
    if (m_ProjectorRect.width() <= 0 || m_ProjectorRect.height() <= 0)
        return QPixmap();
    return Platform::Current().GrabDesktop(
        QRect(m_ProjectorRect.x(), 0, m_ProjectorRect.width(), m_ProjectorRect.height()));
}

// The projector is the monitor in second place of clsMonitors' order (rows
// from the top, left to right): its left edge + 1, top 0, its size. With one
// monitor the rectangle stays all zeros and the mirror shows nothing.
void ctlRun::FindProjectorRect() {
    m_ProjectorRect = QRect(0, 0, 0, 0);
    const auto objMonitors = std::make_unique<clsMonitors>();
    clsMonitors::MonitorCollection& colMonitors = objMonitors->Monitors();
    if (colMonitors.Count() < 2)
        return;
    const clsMonitor& objProjector = colMonitors.Item(2);
    m_ProjectorRect =
        QRect(objProjector.Left() + 1, 0, objProjector.Width(), objProjector.Height());
}
