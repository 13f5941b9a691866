#pragma once

#include "HostPage.h"

class ctlOptions;

// The system options, filling the page (there is no gallery): the options
// control, whose changes are stored the moment they are made. Its events are
// passed on for the main window.
class OptionsPage : public HostPage {
    Q_OBJECT
public:
    explicit OptionsPage(QWidget* parent = nullptr);

    // The control, once the page has been shown.
    ctlOptions* Options() const;

signals:
    void AboutCorvantis();
    // The sample mode or the data path changed: both need a restart.
    void SampleModeValueChanged();

protected:
    void Load() override;
};
