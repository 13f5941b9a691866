#pragma once

#include "OperatorKeys.h"
#include "RunEngine.h"

#include <QObject>

#include <optional>

class ctlRun;
class QTimer;

// Answers the console's events. The console decides nothing: each press of
// the operator comes here as an event; the controller moves the engine (and
// so the projector) and then tells the console what shows now:
//
//   moved to another part of the same item  SIPartChanged(part from 1, type)
//   showing the last part of the item       AtEndOfSI
//   moved to another item                   ShowServiceSIAsRunning(index, 0, 0)
//   a prop was started (ShowSI)             nothing: the console did its part
//   the prop has ended                      PropRunEnded
//   TurnOnProjector / TurnOffProjector      ProjectorTurnedOn / ProjectorTurnedOff
//   EndRun                                  ends the prop, or the run
//   IncreaseSize / DecreaseSize             JustIncreasedSize / JustDecreasedSize
//
// Items are numbered for the console as its tree does: 1 is the first shown
// item. Without a console the controller drives the engine alone.
class RunController : public QObject {
    Q_OBJECT
public:
    RunController(RunEngine& engine, ctlRun* console, QObject* parent = nullptr);

    ctlRun* Console() const { return m_console; }

    // After a load: the console has put the first item up by itself; the
    // controller turns the projector on and says whether that item is
    // already at its end.
    void RunStarted();

    // An operator key from the console or the projector window. With a
    // console the matching button is pressed, so that it follows every step.
    // Esc outside a prop blacks the projector out first; from black it asks
    // to end.
    void OperatorAction(OperatorKeys::Action action);

    // Asks before the run ends: the console's question (CanUnload), or the
    // host's own where there is no console. On Yes the run ends (through the
    // console's End, which comes back here). True when it ended.
    bool ConfirmEnd();

    // ---- The console's events (ctlRun1 is the console) ---------------------------
    void ctlRun1_ShowNextClicked();
    void ctlRun1_ShowPreviousClicked();
    void ctlRun1_ShowServiceSI(qint16 intIndex);
    void ctlRun1_ShowVerse(qint16 intVerseIndex);
    void ctlRun1_ShowPropVerse(qint16 intVerseIndex);
    void ctlRun1_ShowSI(qint32 lngSIID);
    void ctlRun1_EndRun();
    void ctlRun1_TurnOnProjector();
    void ctlRun1_TurnOffProjector();
    void ctlRun1_IncreaseSize();
    void ctlRun1_DecreaseSize();

    // A picture with a display time goes on by itself when its time is up,
    // as if Forward had been pressed.
    void tmrAutoAdvance_Timer();
    QTimer* tmrAutoAdvance;
    // An item whose pictures have a display time shows them for that long
    // each time it comes up; then they are hidden (RunController_Pictures.cpp).
    void tmrPictures_Timer();
    QTimer* tmrPictures;

signals:
    // The run is over: the operator confirmed the end.
    void RunEndRequested();

private:
    void Connect();
    void Engine_SlideChanged();
    void Step(RunEngine::Step step);
    void TellPart();
    void TellItem();
    void TellEndOfItem();
    void PropEnded();
    bool LeaveProp();
    void SetProjectorOn(bool blnOn);
    void TimeItemPictures();

    RunEngine& m_engine;
    ctlRun* m_console;
    bool m_inProjectorCall = false;
    bool m_confirmingEnd = false;
    std::optional<RunEngine::SlideId> m_timedSlide; // the slide the auto-advance timer runs for
    int m_picturesItem = -1;                        // the item whose pictures' display time runs
};
