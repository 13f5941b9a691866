#include "OptionsPage.h"

#include "options/ctlOptions.h"

OptionsPage::OptionsPage(QWidget* parent) : HostPage(QStringLiteral("Options"), parent) {}

ctlOptions* OptionsPage::Options() const {
    return qobject_cast<ctlOptions*>(Editor()->Current());
}

void OptionsPage::Load() {
    Editor()->Ensure<ctlOptions>(
        [this] {
            auto* control = new ctlOptions;
            connect(control, &ctlOptions::AboutCorvantis, this, &OptionsPage::AboutCorvantis);
            connect(control, &ctlOptions::SampleModeValueChanged, this,
                    &OptionsPage::SampleModeValueChanged);
            return control;
        },
        [this] { return !Options() || Options()->CanUnload(); });
}
