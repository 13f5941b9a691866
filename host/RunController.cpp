#include "RunController.h"

#include "RunEngine.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "run/ctlRun.h"

#include <QScopeGuard>
#include <QTimer>

RunController::RunController(RunEngine& engine, ctlRun* console, QObject* parent)
    : QObject(parent), tmrAutoAdvance(new QTimer(this)), tmrPictures(new QTimer(this)),
      m_engine(engine), m_console(console) {
    tmrAutoAdvance->setObjectName(QStringLiteral("tmrAutoAdvance"));
    tmrAutoAdvance->setSingleShot(true);
    connect(tmrAutoAdvance, &QTimer::timeout, this,
            [this] { ErrorReport::Guard([this] { tmrAutoAdvance_Timer(); }); });
    tmrPictures->setObjectName(QStringLiteral("tmrPictures"));
    tmrPictures->setSingleShot(true);
    connect(tmrPictures, &QTimer::timeout, this,
            [this] { ErrorReport::Guard([this] { tmrPictures_Timer(); }); });
    connect(&m_engine, &RunEngine::SlideChanged, this,
            [this] { ErrorReport::Guard([this] { Engine_SlideChanged(); }); });
    Connect();
}

void RunController::Engine_SlideChanged() {
    TimeItemPictures();
    const RunEngine::SlideId showing = m_engine.CurrentSlideId();
    if (showing == m_timedSlide && tmrAutoAdvance->isActive())
        return; // the same picture (blacked out, resized): its time runs on
    m_timedSlide.reset();
    tmrAutoAdvance->stop();
    const Slide& slide = m_engine.CurrentSlide();
    if (m_engine.IsRunning() && slide.kind == Slide::Kind::Picture && slide.secondsToShow > 0) {
        m_timedSlide = showing;
        tmrAutoAdvance->start(slide.secondsToShow * 1000);
    }
}

void RunController::tmrAutoAdvance_Timer() {
    tmrAutoAdvance->stop();
    const bool stillShowing = m_timedSlide == m_engine.CurrentSlideId();
    m_timedSlide.reset();
    if (stillShowing && m_engine.IsRunning())
        OperatorAction(OperatorKeys::Action::Forward);
}

void RunController::RunStarted() {
    // The projector is on: the console's check box says so.
    ctlRun1_TurnOnProjector();
    if (m_engine.AtEndOfItem())
        TellEndOfItem();
}

void RunController::TellEndOfItem() {
    if (m_console)
        m_console->AtEndOfSI();
}

// Another part of the same item (or prop) shows.
void RunController::TellPart() {
    if (m_console) {
        const Slide& slide = m_engine.CurrentSlide();
        m_console->SIPartChanged(m_engine.CurrentPart() + 1, static_cast<qint16>(slide.partType));
    }
    if (m_engine.AtEndOfItem())
        TellEndOfItem();
}

// Another item of the service shows, at the part the engine put up.
void RunController::TellItem() {
    if (m_console) {
        m_console->ShowServiceSIAsRunning(static_cast<qint16>(m_engine.CurrentItem() + 1), 0, 0);
        if (m_engine.CurrentPart() > 0)
            m_console->SIPartChanged(m_engine.CurrentPart() + 1,
                                     static_cast<qint16>(m_engine.CurrentSlide().partType));
    }
    if (m_engine.AtEndOfItem())
        TellEndOfItem();
}

void RunController::PropEnded() {
    if (!m_console)
        return;
    m_console->PropRunEnded();
    // The main item's labels come back, as they were before the prop.
    if (m_engine.IsServiceRun() && !m_engine.AtEndOfService())
        TellItem();
}

// Tells the console what a step of Forward or Back put up.
void RunController::Step(RunEngine::Step step) {
    switch (step) {
    case RunEngine::Step::Part:
        TellPart();
        break;
    case RunEngine::Step::Item:
        TellItem();
        break;
    case RunEngine::Step::ServiceEnded:
    case RunEngine::Step::Nothing:
        break;
    }
}

void RunController::ctlRun1_ShowNextClicked() {
    Step(m_engine.Next());
}

void RunController::ctlRun1_ShowPreviousClicked() {
    Step(m_engine.Previous());
}

// A click on an item of the service, also while a prop runs, goes back into
// the service at that item. The root (0) names no item.
void RunController::ctlRun1_ShowServiceSI(qint16 intIndex) {
    if (intIndex < 1 || intIndex > m_engine.ItemCount())
        return;
    LeaveProp();
    if (m_engine.JumpToItem(intIndex - 1))
        TellItem();
}

// A part of the service's item, also while a prop runs (which then ends).
void RunController::ctlRun1_ShowVerse(qint16 intVerseIndex) {
    const bool leftProp = LeaveProp();
    if (!m_engine.JumpToPart(intVerseIndex))
        return;
    if (leftProp)
        TellItem();
    else
        TellPart();
}

bool RunController::LeaveProp() {
    if (!m_engine.IsPropRunning())
        return false;
    m_engine.EndProp();
    if (m_console)
        m_console->PropRunEnded();
    return true;
}

void RunController::ctlRun1_ShowPropVerse(qint16 intVerseIndex) {
    if (!m_engine.IsPropRunning())
        return;
    if (m_engine.JumpToPart(intVerseIndex))
        TellPart();
}

void RunController::ctlRun1_ShowSI(qint32 lngSIID) {
    QString err;
    const bool shown = m_engine.IsServiceRun() ? m_engine.StartProp(lngSIID, err)
                                               : m_engine.LoadItem(lngSIID, err);
    if (!shown) {
        TraceLine::WithPrefix(QStringLiteral("Corvantis:RunController:ctlRun1_ShowSI"))
            .Arg(QStringLiteral("lngSIID"), lngSIID)
            .Arg(QStringLiteral("strErrorMessage"), err)
            .Write();
        return;
    }
    // The console shows the item only once this event has returned, which
    // resets its end-of-item state; so an item that is at its end at once is
    // told so just after.
    QTimer::singleShot(0, this, [this, lngSIID] {
        const qint32 showing =
            m_engine.IsPropRunning() ? m_engine.PropServiceItemID() : m_engine.ItemServiceItemID(0);
        if (showing == lngSIID && m_engine.AtEndOfItem())
            TellEndOfItem();
    });
}

// End during a prop ends the prop. Outside a prop the run ends only once the
// operator has said so: the console's question clicks End again on Yes, and
// that second End, inside the question, ends the run.
void RunController::ctlRun1_EndRun() {
    if (m_engine.IsPropRunning()) {
        m_engine.EndProp();
        PropEnded();
        return;
    }
    if (m_confirmingEnd)
        emit RunEndRequested();
    else
        ConfirmEnd();
}

bool RunController::ConfirmEnd() {
    if (m_confirmingEnd)
        return false;
    m_confirmingEnd = true;
    const auto done = qScopeGuard([this] { m_confirmingEnd = false; });
    bool ended = false;
    if (m_console) {
        ended = m_console->CanUnload();
    } else if (Platform::Current().MsgBox(QStringLiteral("Do you want to stop running this item?"),
                                          vbYesNo | vbQuestion | vbDefaultButton2) == vbYes) {
        emit RunEndRequested();
        ended = true;
    }
    return ended;
}

void RunController::ctlRun1_TurnOnProjector() {
    SetProjectorOn(true);
}

void RunController::ctlRun1_TurnOffProjector() {
    SetProjectorOn(false);
}

// Blacks the screen out or back in and tells the console. The console's own
// check box raises the event again when it is set: that echo is not answered.
void RunController::SetProjectorOn(bool blnOn) {
    m_engine.SetBlackedOut(!blnOn);
    if (!m_console || m_inProjectorCall)
        return;
    m_inProjectorCall = true;
    if (blnOn)
        m_console->ProjectorTurnedOn();
    else
        m_console->ProjectorTurnedOff();
    m_inProjectorCall = false;
}

void RunController::ctlRun1_IncreaseSize() {
    m_engine.IncreaseSize();
    if (m_console)
        m_console->JustIncreasedSize();
}

void RunController::ctlRun1_DecreaseSize() {
    m_engine.DecreaseSize();
    if (m_console)
        m_console->JustDecreasedSize();
}
