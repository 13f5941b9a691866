#include "RunSession.h"

#include "OperatorKeys.h"
#include "ProjectorWindow.h"
#include "RunController.h"
#include "foundations/ErrorReport.h"
#include "run/ctlRun.h"

#include <QLabel>

RunSession::RunSession(QWidget* consoleParent, QObject* parent) : QObject(parent) {
    CreateParts(consoleParent);
}

RunSession::~RunSession() {
    if (m_projector)
        delete m_projector;
    if (m_console)
        m_console->deleteLater();
}

ProjectorWindow* RunSession::Projector() const {
    return m_projector.data();
}

ctlRun* RunSession::Console() const {
    return m_console.data();
}

RunLook RunSession::ReadLook() {
    QString strErrorMessage;
    return RunLook::FromOptionsWhenChanged(strErrorMessage);
}

void RunSession::CreateParts(QWidget* consoleParent) {
    m_engine.SetLookSource(&RunSession::ReadLook);
    // LibreOffice works beside the run: the run starts at once.
    m_engine.SetPreparesSlidesAhead(true);
    m_projector = new ProjectorWindow(m_engine);
    if (consoleParent) {
        m_console = new ctlRun(consoleParent);
        m_console->setObjectName(QStringLiteral("ctlRun1"));
        m_keys = new OperatorKeyFilter(m_console, this);
    }
    m_controller = new RunController(m_engine, m_console, this);
    connect(m_projector, &ProjectorWindow::ActionPressed, m_controller,
            &RunController::OperatorAction);
    if (m_keys)
        connect(m_keys, &OperatorKeyFilter::ActionPressed, m_controller,
                &RunController::OperatorAction);
    connect(m_controller, &RunController::RunEndRequested, this, [this] { End(); });
    // The console's mirror is grabbed again once the projector has painted
    // each change, so that it never shows the picture before. A press on the
    // console grabs the mirror itself once its event has been handled, and the
    // projector usually paints while that press pumps messages: so the grab
    // for the projector waits until the press is over, and is not made when
    // the console has grabbed since the projector painted.
    if (m_console) {
        connect(m_projector, &ProjectorWindow::PicturePainted, this, [this] {
            if (m_console)
                m_mirrorAtPaint = m_console->imgMirror->pixmap().cacheKey();
        });
        connect(
            m_projector, &ProjectorWindow::PictureShown, this,
            [this] {
                if (!m_console || m_console->imgMirror->pixmap().cacheKey() != m_mirrorAtPaint)
                    return;
                ErrorReport::Guard([this] { m_console->RefreshScreenMirror(); });
            },
            Qt::QueuedConnection);
    }
    connect(&m_engine, &RunEngine::RunEnded, this,
            [this] { ErrorReport::Guard([this] { Engine_RunEnded(); }); });
}

bool RunSession::Begin() {
    m_projector->Place();
    return true;
}

bool RunSession::StartService(qint32 lngServiceID, QString& strErrorMessage) {
    m_engine.SetLook(ReadLook());
    if (!m_engine.LoadService(lngServiceID, strErrorMessage))
        return false;
    if (m_engine.ItemCount() == 0) {
        strErrorMessage = QStringLiteral("This service has nothing to show at run time.");
        return false;
    }
    Begin();
    if (m_console)
        m_console->setRunningService(lngServiceID);
    m_controller->RunStarted();
    return true;
}

bool RunSession::StartServiceItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    m_engine.SetLook(ReadLook());
    if (!m_engine.LoadItem(lngServiceItemID, strErrorMessage))
        return false;
    Begin();
    if (m_console)
        m_console->ShowSIAsRunning(lngServiceItemID, false);
    m_controller->RunStarted();
    return true;
}

bool RunSession::CanUnload() {
    if (m_ended || !m_console)
        return true;
    return m_controller->ConfirmEnd();
}

void RunSession::End() {
    if (m_ended)
        return;
    m_engine.EndRun();
    if (!m_ended) // a run that never started
        Engine_RunEnded();
}

void RunSession::Engine_RunEnded() {
    if (m_ended)
        return;
    m_ended = true;
    if (m_projector)
        m_projector->CloseProjector();
    emit Ended();
}
