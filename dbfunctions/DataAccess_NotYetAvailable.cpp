#include "DataAccess.h"

#include "DataAccessCore.h"
#include "TraceLog.h"

// Operations that open dialogs or drive other programs (word processor). They come with a
// later release; until then each answers a clear error text and changes nothing.

using P = DataAccessPrivate;

void DataAccess::AddBrowserButtonsToWord(QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "AddBrowserButtonsToWord",
                    QStringLiteral("Adding the browser buttons to the word processor"));
}
