#include "OptionsPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "RunLook.h"
#include "Settings.h"

namespace {
QString yesNo(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}
} // namespace

OptionsPage::OptionsPage(QWidget* parent) : HostPage(QStringLiteral("Options"), parent) {}

void OptionsPage::Load() {
    auto* panel = Editor()->Ensure<EventPanel>([] { return new EventPanel; });
    if (!panel)
        return;
    const QString options = QStringLiteral("Options");
    EventPanel::Rows rows;
    rows.append({QStringLiteral("Settings file"), Settings::IniPath()});
    for (const char* key : {"Owner", "StartupTab", "IsSampleMode", "ShowTips", "UseTransitions"})
        rows.append({QString::fromLatin1(key),
                     Settings::GetPrivateProfileString(options, QLatin1String(key))});
    rows.append({QStringLiteral("Data"), Settings::GetPrivateProfileString(
                                             QStringLiteral("Paths"), QStringLiteral("Data"))});
    rows.append({QStringLiteral("Database"), DataAccess::Instance().DatabasePath()});
    QString err;
    const RunLook look = RunLook::FromOptions(err);
    rows.append({QStringLiteral("Run font"),
                 QStringLiteral("%1, %2 pt").arg(look.fontName).arg(look.fontSize)});
    rows.append({QStringLiteral("Run colours"),
                 QStringLiteral("%1 on %2").arg(look.foreColor.name(), look.backColor.name())});
    rows.append({QStringLiteral("Background picture"), look.backgroundPicture});
    rows.append({QStringLiteral("Show description"), yesNo(look.showDescription)});
    rows.append({QStringLiteral("Show source"), yesNo(look.showSource)});
    rows.append({QStringLiteral("Show copyright"), yesNo(look.showCopyright)});
    rows.append({QStringLiteral("Show location"), yesNo(look.showLocation)});
    panel->Show(QStringLiteral("Options"), rows);
}
