#pragma once

#include "HostPage.h"

// The system options, filling the page (there is no gallery). Until the
// options control takes its place it shows the settings in force: those of
// Corvantis.ini and how a run looks.
class OptionsPage : public HostPage {
    Q_OBJECT
public:
    explicit OptionsPage(QWidget* parent = nullptr);

signals:
    void AboutCorvantis();

protected:
    void Load() override;
};
