#include "MainWindow.h"

#include "DataAccess.h"
#include "HelpWindow.h"
#include "HostPage.h"
#include "ProjectorWindow.h"
#include "RunPreview.h"
#include "RunSession.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "run/ctlRun.h"

#include <QDockWidget>
#include <QLabel>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

RunSession* MainWindow::Session() const {
    return m_session.data();
}

bool MainWindow::IsRunning() const {
    return !m_session.isNull();
}

bool MainWindow::RunService(qint32 lngServiceID) {
    return lngServiceID != 0 && StartSession([lngServiceID](RunSession& session, QString& err) {
               return session.StartService(lngServiceID, err);
           });
}

bool MainWindow::RunServiceItem(qint32 lngServiceItemID) {
    return lngServiceItemID != 0 &&
           StartSession([lngServiceItemID](RunSession& session, QString& err) {
               return session.StartServiceItem(lngServiceItemID, err);
           });
}

// The page in view is asked first; the console then takes its place until the
// run ends.
bool MainWindow::StartSession(const std::function<bool(RunSession&, QString&)>& start) {
    if (IsRunning())
        return false;
    HostPage* current = CurrentPage();
    if (current && !current->CanUnload())
        return false;
    auto* session = new RunSession(stkPages, this);
    QString err;
    if (!start(*session, err)) {
        delete session;
        ShowRunFailure(err);
        return false;
    }
    m_session = session;
    m_pageBeforeRun = stkPages->currentWidget();
    stkPages->addWidget(session->Console());
    stkPages->setCurrentWidget(session->Console());
    connect(session, &RunSession::Ended, this,
            [this] { ErrorReport::Guard([this] { Session_Ended(); }); });
    ShowRunPreview(*session);
    ShowSlidesStatus(*session);
    // The console's "?" opens the guide at running a service.
    connect(session->Console(), &ctlRun::ShowPropButtonClicked, this,
            [this] { ErrorReport::Guard([this] { ShowHelp(HelpWindow::RunningPage()); }); });
    if (!session->Projector()->Placement().fullScreen) {
        // One screen: the congregation's window goes where it covers none of
        // the console's buttons, until the operator puts it somewhere else.
        if (!ProjectorWindow::HasRememberedPlace() && screen())
            session->Projector()->setGeometry(
                ProjectorPlacement::OutOfTheWay(screen()->availableGeometry()));
        statusBar()->showMessage(QStringLiteral(
            "No second screen was found: the slides show in a window of their own."));
    }
    UpdateRunActions();
    return true;
}

void MainWindow::EndRun() {
    if (m_session)
        m_session->End();
}

void MainWindow::Session_Ended() {
    RunSession* session = m_session;
    m_session = nullptr;
    if (session) {
        if (session->Console())
            stkPages->removeWidget(session->Console());
        session->deleteLater();
    }
    if (dckRunPreview) {
        removeDockWidget(dckRunPreview);
        dckRunPreview->deleteLater();
        dckRunPreview = nullptr;
        ctlRunPreview = nullptr;
    }
    statusBar()->clearMessage();
    if (lblSlidesStatus)
        lblSlidesStatus->hide();
    if (m_pageBeforeRun)
        stkPages->setCurrentWidget(m_pageBeforeRun);
    m_pageBeforeRun = nullptr;
    UpdateRunActions();
}

void MainWindow::ShowRunPreview(RunSession& session) {
    dckRunPreview = new QDockWidget(QStringLiteral("Projector"), this);
    dckRunPreview->setObjectName(QStringLiteral("dckRunPreview"));
    dckRunPreview->setFeatures(QDockWidget::NoDockWidgetFeatures);
    ctlRunPreview = new RunPreview(session.Engine(), dckRunPreview);
    dckRunPreview->setWidget(ctlRunPreview);
    addDockWidget(Qt::RightDockWidgetArea, dckRunPreview);
    // The projector's size is known once it is placed.
    connect(session.Projector(), &ProjectorWindow::PictureShown, ctlRunPreview,
            &RunPreview::Refresh);
}

// The status line tells the operator of presentations whose slides are still
// being made, and of those that cannot be shown, in a place of its own beside
// the other messages of a run.
void MainWindow::ShowSlidesStatus(RunSession& session) {
    if (!lblSlidesStatus) {
        lblSlidesStatus = new QLabel(this);
        lblSlidesStatus->setObjectName(QStringLiteral("lblSlidesStatus"));
        statusBar()->addPermanentWidget(lblSlidesStatus);
    }
    const RunEngine* engine = &session.Engine();
    auto show = [this, engine] {
        ErrorReport::Guard([&] {
            lblSlidesStatus->setText(engine->SlidesStatus());
            lblSlidesStatus->setVisible(!lblSlidesStatus->text().isEmpty());
        });
    };
    connect(engine, &RunEngine::SlidesStatusChanged, lblSlidesStatus, show);
    connect(engine, &RunEngine::SlideChanged, lblSlidesStatus, show);
    show();
}

void MainWindow::ShowRunFailure(const QString& strErrorMessage) {
    Platform::Current().MsgBox(QStringLiteral("The run could not start: ") + strErrorMessage,
                               vbExclamation);
}
