#include "OptionsPage.h"

#include "DataAccess.h"
#include "EventPanel.h"
#include "HostText.h"
#include "RunLook.h"
#include "Settings.h"

namespace {
QString yesNo(bool value) {
    return HostText::YesNo(value);
}

// A "True"/"False" setting as Yes or No; empty when it is not set.
QString setting(const QString& strKey) {
    const QString value = Settings::GetPrivateProfileString(QStringLiteral("Options"), strKey);
    if (value.isEmpty())
        return value;
    return yesNo(value.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0);
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
    rows.append({QStringLiteral("Owner"),
                 Settings::GetPrivateProfileString(options, QStringLiteral("Owner"))});
    rows.append({QStringLiteral("Start-up page"),
                 Settings::GetPrivateProfileString(options, QStringLiteral("StartupTab"))});
    rows.append({QStringLiteral("Sample mode"), setting(QStringLiteral("IsSampleMode"))});
    rows.append({QStringLiteral("Show Tips at start-up"), setting(QStringLiteral("ShowTips"))});
    rows.append({QStringLiteral("Use Transitions"), setting(QStringLiteral("UseTransitions"))});
    rows.append(
        {QStringLiteral("Data folder"),
         Settings::GetPrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"))});
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
