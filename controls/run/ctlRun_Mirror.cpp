// The mirror of the projector picture, and where the projector is.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "foundations/Platform.h"
#include "run/clsMonitors.h"

#include <QApplication>
#include <QLabel>

#include <memory>

namespace {
// The projector window of the host: its title starts with this word, and its
// class is the host's ProjectorWindow (host/ProjectorWindow.h).
const QString ProjectorWindowTitle = QStringLiteral("CorvantisRunForm");
const QString ProjectorWindowClass = QStringLiteral("ProjectorWindow");
} // namespace

// No handler. The member's name in the trace line carries a stray apostrophe,
// as it always has. While the event of a Forward or Back press runs, the grab
// is left to the press, which grabs once the event has returned.
void ctlRun::RefreshScreenMirror() {
    RunMember("'RefreshScreenMirror").Enter();
    if (m_intPressEvents > 0) {
        m_blnMirrorAskedInPress = true;
        return;
    }
    GrabMirror();
}

void ctlRun::GrabMirror() {
    m_blnMirrorAskedInPress = false;
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

// The host's projector window: the first top-level window whose title starts
// with "CorvantisRunForm" and whose class is the host's ProjectorWindow. The
// class test compares the class name that Qt's meta-object system reports
// (metaObject()->className(), up to 255 characters, as a window class name is
// read), not objectName(): a window is recognised by what it is, as the
// platform's class test did, and a subclass of ProjectorWindow carries a name
// of its own and is not taken. Top-level windows are walked in the order
// QApplication::topLevelWidgets gives them, hidden ones included. Nothing in
// the console calls this today: the title and the class are the contract with
// the host. Failure: the full error box, and the answer nullptr.
QWidget* ctlRun::GetProjectorWindowHandle(QWidget*& hWnd) {
    const auto entry = RunMember("GetProjectorWindowHandle").Enter();
    hWnd = nullptr;
    entry.FullErrorBox([&] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (!window->isWindow())
                continue;
            const QString strTitle = window->windowTitle().left(255);
            if (strTitle.left(16) != ProjectorWindowTitle)
                continue;
            const QString strClass =
                QString::fromLatin1(window->metaObject()->className()).left(255);
            if (strClass == ProjectorWindowClass) {
                hWnd = window;
                return;
            }
        }
    });
    return hWnd;
}
