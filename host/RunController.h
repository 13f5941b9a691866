#pragma once

#include "OperatorKeys.h"

#include <QObject>

class ctlRun;
class QTimer;
class RunEngine;

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
    void OperatorAction(OperatorKeys::Action action);

    // ---- The console's events ------------------------------------------------
    void ShowNextClicked();
    void ShowPreviousClicked();
    void ShowServiceSI(qint16 intIndex);
    void ShowVerse(qint16 intVerseIndex);
    void ShowPropVerse(qint16 intVerseIndex);
    void ShowSI(qint32 lngSIID);
    void EndRun();
    void TurnOnProjector();
    void TurnOffProjector();
    void IncreaseSize();
    void DecreaseSize();

    // A picture with a display time goes on by itself when its time is up,
    // as if Forward had been pressed.
    void tmrAutoAdvance_Timer();
    QTimer* tmrAutoAdvance;

signals:
    // The run is over (the console's End outside a prop, or Esc).
    void RunEndRequested();

private:
    void Connect();
    void Engine_SlideChanged();
    QString SlidePlace() const;
    void TellPart();
    void TellItem();
    void TellEndOfItem();
    void PropEnded();
    bool LeaveProp();
    void SetProjectorOn(bool blnOn);

    RunEngine& m_engine;
    ctlRun* m_console;
    bool m_inProjectorCall = false;
    QString m_timedSlide; // which slide the auto-advance timer runs for
};
