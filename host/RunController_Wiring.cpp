#include "RunController.h"

#include "RunEngine.h"
#include "foundations/ErrorReport.h"
#include "run/ctlRun.h"

#include <QCheckBox>
#include <QPushButton>

// Every event of the console is answered under the guard of the event
// boundary, so that a failure is reported and the run goes on.
void RunController::Connect() {
    if (!m_console)
        return;
    auto guarded = [this](auto member) {
        return
            [this, member](auto... args) { ErrorReport::Guard([&] { (this->*member)(args...); }); };
    };
    connect(m_console, &ctlRun::ShowNextClicked, this,
            guarded(&RunController::ctlRun1_ShowNextClicked));
    connect(m_console, &ctlRun::ShowPreviousClicked, this,
            guarded(&RunController::ctlRun1_ShowPreviousClicked));
    connect(m_console, &ctlRun::ShowServiceSI, this,
            guarded(&RunController::ctlRun1_ShowServiceSI));
    connect(m_console, &ctlRun::ShowVerse, this, guarded(&RunController::ctlRun1_ShowVerse));
    connect(m_console, &ctlRun::ShowPropVerse, this,
            guarded(&RunController::ctlRun1_ShowPropVerse));
    connect(m_console, &ctlRun::ShowSI, this, guarded(&RunController::ctlRun1_ShowSI));
    connect(m_console, &ctlRun::EndRun, this, guarded(&RunController::ctlRun1_EndRun));
    connect(m_console, &ctlRun::TurnOnProjector, this,
            guarded(&RunController::ctlRun1_TurnOnProjector));
    connect(m_console, &ctlRun::TurnOffProjector, this,
            guarded(&RunController::ctlRun1_TurnOffProjector));
    connect(m_console, &ctlRun::IncreaseSize, this, guarded(&RunController::ctlRun1_IncreaseSize));
    connect(m_console, &ctlRun::DecreaseSize, this, guarded(&RunController::ctlRun1_DecreaseSize));
}

// Esc (or closing the projector window) outside a prop first blacks the
// projector out; only from black does it go on to End and its question, so
// that one stray key never ends the run in front of the congregation.
void RunController::OperatorAction(OperatorKeys::Action action) {
    using OperatorKeys::Action;
    if (action == Action::End && !m_engine.IsPropRunning() && !m_engine.IsBlackedOut())
        action = Action::BlackOut;
    if (!m_console) {
        switch (action) {
        case Action::Forward:
            ctlRun1_ShowNextClicked();
            break;
        case Action::Back:
            ctlRun1_ShowPreviousClicked();
            break;
        case Action::BlackOut:
            m_engine.IsBlackedOut() ? ctlRun1_TurnOnProjector() : ctlRun1_TurnOffProjector();
            break;
        case Action::End:
            ctlRun1_EndRun();
            break;
        case Action::None:
            break;
        }
        return;
    }
    switch (action) {
    case Action::Forward:
        m_console->cmdForward->click();
        break;
    case Action::Back:
        m_console->cmdBack->click();
        break;
    case Action::BlackOut:
        m_console->chkProjectorOn->click();
        break;
    case Action::End:
        m_console->cmdEnd->click();
        break;
    case Action::None:
        break;
    }
}
