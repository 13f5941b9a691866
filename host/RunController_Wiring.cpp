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
    connect(m_console, &ctlRun::ShowNextClicked, this, guarded(&RunController::ShowNextClicked));
    connect(m_console, &ctlRun::ShowPreviousClicked, this,
            guarded(&RunController::ShowPreviousClicked));
    connect(m_console, &ctlRun::ShowServiceSI, this, guarded(&RunController::ShowServiceSI));
    connect(m_console, &ctlRun::ShowVerse, this, guarded(&RunController::ShowVerse));
    connect(m_console, &ctlRun::ShowPropVerse, this, guarded(&RunController::ShowPropVerse));
    connect(m_console, &ctlRun::ShowSI, this, guarded(&RunController::ShowSI));
    connect(m_console, &ctlRun::EndRun, this, guarded(&RunController::EndRun));
    connect(m_console, &ctlRun::TurnOnProjector, this, guarded(&RunController::TurnOnProjector));
    connect(m_console, &ctlRun::TurnOffProjector, this, guarded(&RunController::TurnOffProjector));
    connect(m_console, &ctlRun::IncreaseSize, this, guarded(&RunController::IncreaseSize));
    connect(m_console, &ctlRun::DecreaseSize, this, guarded(&RunController::DecreaseSize));
}

void RunController::OperatorAction(OperatorKeys::Action action) {
    using OperatorKeys::Action;
    if (!m_console) {
        switch (action) {
        case Action::Forward:
            ShowNextClicked();
            break;
        case Action::Back:
            ShowPreviousClicked();
            break;
        case Action::BlackOut:
            m_engine.IsBlackedOut() ? TurnOnProjector() : TurnOffProjector();
            break;
        case Action::End:
            EndRun();
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
