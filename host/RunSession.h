#pragma once

#include "RunEngine.h"

#include <QObject>
#include <QPointer>

class OperatorKeyFilter;
class ProjectorWindow;
class RunController;
class ctlRun;

// One run from start to end: the engine, the projector window, the console
// (a ctlRun placed by the main window) and the controller between them.
class RunSession : public QObject {
    Q_OBJECT
public:
    // consoleParent: where the console goes; nullptr runs without a console
    // (the screenshot mode and tests of the engine).
    explicit RunSession(QWidget* consoleParent, QObject* parent = nullptr);
    ~RunSession() override;

    bool StartService(qint32 lngServiceID, QString& strErrorMessage);
    bool StartServiceItem(qint32 lngServiceItemID, QString& strErrorMessage);

    RunEngine& Engine() { return m_engine; }
    ProjectorWindow* Projector() const;
    ctlRun* Console() const;
    RunController* Controller() const { return m_controller; }

    // The console's question before the run is left; True when it may end.
    bool CanUnload();
    // Ends the run at once (closes the projector, records the delivery).
    void End();

signals:
    void Ended();

private:
    // The look of the options row and the settings file; a failure to read
    // them keeps the built-in look.
    static RunLook ReadLook();
    void CreateParts(QWidget* consoleParent);
    bool Begin();
    void Engine_RunEnded();

    RunEngine m_engine;
    QPointer<ProjectorWindow> m_projector;
    QPointer<ctlRun> m_console;
    RunController* m_controller = nullptr;
    OperatorKeyFilter* m_keys = nullptr;
    bool m_ended = false;
    // The console's mirror picture when the projector last painted a change.
    qint64 m_mirrorAtPaint = -1;
};
