#include "DataAccess.h"

#include "DataAccessCore.h"
#include "ExchangeFile.h"
#include "ServiceSheets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

// Printing: each sheet is written as a PDF file into the folder of temporary files and shown in
// the preview the controls installed, from which the user prints it or saves it. The file is
// removed when the preview closes.

using P = DataAccessPrivate;

namespace {

// The folder of temporary files; empty when TMPDIR names none that exists.
QString SheetFolder() {
    const QString strFolder = QDir::tempPath();
    return !strFolder.isEmpty() && QFileInfo(strFolder).isDir() ? strFolder : QString();
}

QString SheetPattern() {
    return SheetFolder() + QStringLiteral("/Corvantis-sheet-XXXXXX.pdf");
}

void Print(ServiceSheets::Kind kind, qint32 lngID, const char* operation,
           QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!P::Ready(strErrorMessage, operation))
        return;
    const DataAccess::ExchangeDialogs& dialogs = ExchangeFile::Dialogs();
    if (!dialogs.ShowSheet) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("Printing needs the Corvantis window to show the sheet."));
        return;
    }
    if (SheetFolder().isEmpty()) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("There is no folder for temporary files in which the sheet can be "
                               "written (TMPDIR names %1).")
                    .arg(qEnvironmentVariable("TMPDIR")));
        return;
    }
    QTemporaryFile file(SheetPattern());
    if (!file.open()) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("The sheet cannot be written into the folder %1: %2")
                    .arg(QDir::toNativeSeparators(QDir::tempPath()), file.errorString()));
        return;
    }
    file.close();
    QString strError;
    bool made = false;
    if (const auto& maker = ServiceSheets::InstalledTemplateSheetMaker())
        made = maker(kind, lngID, file.fileName(), strError);
    if (!made && strError.isEmpty())
        made = ServiceSheets::Write(kind, lngID, file.fileName(), strError);
    if (made && QFileInfo(file.fileName()).size() == 0) {
        strError = QStringLiteral("The sheet could not be written into %1.")
                       .arg(QDir::toNativeSeparators(file.fileName()));
        made = false;
    }
    if (!made) {
        P::Fail(strErrorMessage, operation, strError);
        return;
    }
    dialogs.ShowSheet(file.fileName(), ServiceSheets::Title(kind, lngID));
}

} // namespace

void DataAccess::IsWordInstalled(const QString&, const QString&, bool& blnInstalled) {
    QTemporaryFile probe(SheetPattern());
    blnInstalled = !SheetFolder().isEmpty() && probe.open();
}

void DataAccess::PrintService(qint32 lngServiceID, QString& strErrorMessage) {
    Print(ServiceSheets::Kind::Service, lngServiceID, "PrintService", strErrorMessage);
}

void DataAccess::PrintServiceItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    Print(ServiceSheets::Kind::ServiceItem, lngServiceItemID, "PrintServiceItem", strErrorMessage);
}

void DataAccess::PrintServiceShortCuts(qint32 lngServiceID, QString& strErrorMessage) {
    Print(ServiceSheets::Kind::ShortCuts, lngServiceID, "PrintServiceShortCuts", strErrorMessage);
}
