#pragma once

#include <QApplication>

// The application object of the host. Every event is delivered under
// ErrorReport::Guard: a failure that no handler caught shows VB's run-time
// error box ("Run-time error '13':", a blank line, the description, title
// "Corvantis") and the application goes on; no exception crosses the event
// loop.
class GuardedApplication : public QApplication {
    Q_OBJECT
public:
    GuardedApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
