#include "DataAccess.h"

#include "DataAccessCore.h"

// Running one service item on its own. The projector and the console belong to the application,
// which installs the runner when its window opens; the data library checks the item first.

using P = DataAccessPrivate;

namespace {
DataAccess::ServiceItemRunner& Runner() {
    static DataAccess::ServiceItemRunner runner;
    return runner;
}
} // namespace

void DataAccess::SetServiceItemRunner(ServiceItemRunner runner) {
    Runner() = std::move(runner);
}

void DataAccess::RunServiceItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    strErrorMessage.clear();
    bool blnExists = false;
    ServiceItemExists(lngServiceItemID, strErrorMessage, blnExists);
    if (!strErrorMessage.isEmpty())
        return;
    if (!blnExists || lngServiceItemID == 1) {
        P::Fail(strErrorMessage, "RunServiceItem",
                QStringLiteral("Service Item %1 does not exist, so it cannot be run.")
                    .arg(lngServiceItemID));
        return;
    }
    if (!Runner()) {
        P::Fail(strErrorMessage, "RunServiceItem",
                QStringLiteral("A service item can only be run from the Corvantis window."));
        return;
    }
    QString strError;
    if (!Runner()(lngServiceItemID, strError))
        P::Fail(strErrorMessage, "RunServiceItem",
                strError.isEmpty() ? QStringLiteral("The run could not start.") : strError);
}
