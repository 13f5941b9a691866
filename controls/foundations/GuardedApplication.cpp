#include "foundations/GuardedApplication.h"

#include "foundations/ErrorReport.h"

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    bool blnHandled = false;
    ErrorReport::Guard([&] { blnHandled = QApplication::notify(receiver, event); });
    return blnHandled;
}
