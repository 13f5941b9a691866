#include "StartUp.h"

#include "DataAccess.h"
#include "Settings.h"
#include "foundations/ErrorReport.h"
#include "foundations/TraceLine.h"

#include <QFileInfo>

namespace {

const QString Options = QStringLiteral("Options");

void readSupportAddress() {
    const QString address =
        Settings::GetPrivateProfileString(Options, StartUp::SupportAddressKey()).trimmed();
    if (!address.isEmpty())
        ErrorReport::SetSupportAddress(address);
}

void openDatabase(StartUp& result) {
    DataAccess& da = DataAccess::Instance();
    QString err;
    if (result.sampleMode) {
        da.OpenSampleDatabase(err);
    } else {
        da.OpenConfiguredDatabase(err);
        if (!err.isEmpty()) {
            TraceLine::WithPrefix(QStringLiteral("Corvantis:StartUp:OpenDatabase"))
                .Arg(QStringLiteral("strErrorMessage"), err)
                .Write();
            result.fellBackToSample = true;
            result.sampleMode = true;
            result.errorMessage = err;
            err.clear();
            da.OpenSampleDatabase(err);
            if (err.isEmpty())
                result.errorMessage.clear();
        }
    }
    if (!err.isEmpty())
        result.errorMessage = err;
    result.databasePath = da.DatabasePath();
}

} // namespace

StartUp StartUp::Run(const CommandLine& line) {
    StartUp result;
    result.firstStart = !QFileInfo::exists(Settings::IniPath());
    if (result.firstStart)
        Settings::WritePrivateProfileString(Options, QStringLiteral("IsSampleMode"),
                                            QStringLiteral("True"));
    readSupportAddress();
    result.sampleMode = line.sample || line.IsScreenshot() || DataAccess::IsSampleMode();
    result.startupTab = Settings::GetPrivateProfileString(Options, QStringLiteral("StartupTab"));
    TraceLine::WithPrefix(QStringLiteral("Corvantis:StartUp:Run"))
        .Arg(QStringLiteral("blnFirstStart"), result.firstStart)
        .Arg(QStringLiteral("blnSampleMode"), result.sampleMode)
        .Write();
    openDatabase(result);
    return result;
}

QString StartUp::WindowTitle() const {
    if (!sampleMode)
        return QStringLiteral("Corvantis");
    return QStringLiteral("Corvantis - Sample Mode (the services and service items of a sample "
                          "church)");
}
