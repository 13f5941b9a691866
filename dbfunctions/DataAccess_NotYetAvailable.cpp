#include "DataAccess.h"

#include "DataAccessCore.h"
#include "TraceLog.h"

// Operations that open dialogs or drive other programs (word processor, printing, import and
// export). They come with a later release; until then each answers a clear error text and
// changes nothing.

using P = DataAccessPrivate;

void DataAccess::ImportFile(const QString&, QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "ImportFile", QStringLiteral("Import"));
}

namespace {
// What an export was handed, written before it answers, so that the ids and
// the description a control chose can be read back from the trace.
void TraceExportArguments(const char* operation, const QVariant& varIDs,
                          const QString& strDescription) {
    TraceLog::Instance().WriteTraceLine(
        QStringLiteral("QVLTDBFUNCTIONS:DataAccess:%1: varIDs = %2, strDescription = %3, ")
            .arg(QLatin1String(operation), varIDs.toString(), strDescription));
}
} // namespace

void DataAccess::ExportServices(const QVariant& varIDs, const QString& strDescription,
                                QString& strErrorMessage) {
    TraceExportArguments("ExportServices", varIDs, strDescription);
    P::NotAvailable(strErrorMessage, "ExportServices", QStringLiteral("Export of services"));
}

void DataAccess::ExportServiceItems(const QVariant& varIDs, const QString& strDescription,
                                    QString& strErrorMessage) {
    TraceExportArguments("ExportServiceItems", varIDs, strDescription);
    P::NotAvailable(strErrorMessage, "ExportServiceItems",
                    QStringLiteral("Export of service items"));
}

void DataAccess::LoadFileIntoRichText(const QString& strFile, QTextEdit* objRichText,
                                      QString& strErrorMessage, QVariant&) {
    LoadFileIntoRichText(strFile, objRichText, strErrorMessage);
}

void DataAccess::LoadFileIntoRichText(const QString&, QTextEdit*, QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "LoadFileIntoRichText",
                    QStringLiteral("Loading a document into the text box"));
}

void DataAccess::PrintService(qint32, QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "PrintService", QStringLiteral("The print wizard"));
}

void DataAccess::PrintServiceItem(qint32, QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "PrintServiceItem", QStringLiteral("The print wizard"));
}

void DataAccess::PrintServiceShortCuts(qint32, QString& strErrorMessage) {
    P::NotAvailable(strErrorMessage, "PrintServiceShortCuts",
                    QStringLiteral("Printing the short-cut sheet"));
}
