// The mirror of the projector picture, and where the projector is.
#include "run/ctlRun.h"

#include "foundations/Platform.h"
#include "foundations/TraceLine.h"

#include <QLabel>

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

// The projector is the second monitor of the machine. The monitors are not
// looked up yet, so the console knows one monitor only and the rectangle
// stays all zeros: the mirror shows nothing.
void ctlRun::FindProjectorRect() {
    m_ProjectorRect = QRect(0, 0, 0, 0);
}
