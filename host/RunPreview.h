#pragma once

#include <QWidget>

class QLabel;
class RunEngine;

// Beside the console while a run goes on: the picture the congregation sees
// now and the slide that Forward brings next, drawn by the run engine's own
// renderer at the projector's proportions, so that the operator sees both even
// with one screen and whatever the mirror's grab of the desktop shows.
class RunPreview : public QWidget {
    Q_OBJECT
public:
    explicit RunPreview(RunEngine& engine, QWidget* parent = nullptr);

    // Draws both pictures again from the engine.
    void Refresh();

    QLabel* lblShowing;
    QLabel* imgShowing;
    QLabel* lblNext;
    QLabel* imgNext;

private:
    QSize PictureSize() const;

    RunEngine& m_engine;
};
