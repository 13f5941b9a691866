#pragma once

#include "OperatorKeys.h"
#include "ProjectorPlacement.h"

#include <QTimer>
#include <QWidget>

class RunEngine;

// The window that the congregation sees, titled "CorvantisRunForm" (the
// console finds it by that title). It draws the engine's current slide, goes
// full screen on the second monitor or opens as a normal window when there is
// only one, and places itself again whenever a screen comes or goes.
class ProjectorWindow : public QWidget {
    Q_OBJECT
public:
    static QString Title() { return QStringLiteral("CorvantisRunForm"); }

    explicit ProjectorWindow(RunEngine& engine, QWidget* parent = nullptr);
    ~ProjectorWindow() override;

    // Places the window by the monitors that the platform reports, and shows it.
    void Place();
    const ProjectorPlacement& Placement() const { return m_placement; }
    // With one screen: the place the window had when the last run ended, when
    // it still lies on a screen, else rcDefault.
    static QRect RememberedPlace(const QRect& rcDefault);
    static bool HasRememberedPlace();
    static QString PlaceKey() { return QStringLiteral("Projector"); }
    // Closes the window for good (the end of a run), remembering its place
    // when it is a window on the operator's one screen.
    void CloseProjector();
    // The picture as it shows now, at the window's size.
    QImage Picture() const;

signals:
    // An operator key pressed on the projector window; closing the window by
    // hand asks for the end as Esc does.
    void ActionPressed(OperatorKeys::Action action);
    // A changed picture (another slide, black, back, another size) has been
    // painted: what a grab of the screen now finds is the new picture.
    void PictureShown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Engine_SlideChanged();
    void tmrBackground_Timeout();
    void PlaceLater();
    void RememberPlace() const;
    QScreen* ScreenAt(const QRect& rect) const;

    RunEngine& m_engine;
    ProjectorPlacement m_placement;
    QTimer* tmrBackground;
    int m_backgroundIndex = 0;
    bool m_closing = false;
    bool m_pictureChanged = true; // painted since the last PictureShown?
};
