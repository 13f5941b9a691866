#pragma once

#include "OperatorKeys.h"
#include "ProjectorPlacement.h"
#include "RunLook.h"
#include "Slide.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <optional>

class QVariantAnimation;
class RunEngine;

// The window that the congregation sees, titled "CorvantisRunForm" (the
// console finds it by that title). It draws the engine's current slide, goes
// full screen on the second monitor or opens as a normal window when there is
// only one, and places itself again whenever a screen comes or goes. With
// transitions switched on in the options, a new slide comes in by the chosen
// transition, painted between the pictures of the old and the new slide.
// Without a transition the slide is painted straight onto the window.
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
    // The picture of the current slide, at the window's size (at the end of a
    // running transition).
    QImage Picture() const;
    // The animation of the change to the current slide: running while a
    // transition shows, its value the progress from 0 to 1.
    QVariantAnimation* Transition() const { return aniTransition; }
    bool IsInTransition() const { return !m_from.isNull(); }
    // Ends a running transition at once: the new slide shows whole.
    void FinishTransition();

signals:
    // An operator key pressed on the projector window; closing the window by
    // hand asks for the end as Esc does.
    void ActionPressed(OperatorKeys::Action action);
    // A changed picture (another slide, black, back, another size) has been
    // painted: what a grab of the screen now finds is the new picture.
    void PictureShown();
    // A changed picture has just been painted; PictureShown follows once the
    // paint has reached the screen.
    void PicturePainted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Engine_SlideChanged();
    void tmrBackground_Timeout();
    void aniTransition_Finished();
    void StartTransition(const QImage& from);
    QImage OutgoingPicture();
    void KeepSpares();
    void PaintSlide();
    void TellPainted();
    void PlaceLater();
    void RememberPlace() const;
    QScreen* ScreenAt(const QRect& rect) const;

    RunEngine& m_engine;
    ProjectorPlacement m_placement;
    QTimer* tmrBackground;
    QVariantAnimation* aniTransition;
    // What the window last showed whole, and how it was drawn: a transition
    // starts from its picture, made only when a transition needs it.
    struct Shown {
        Slide slide;
        RunLook look;
        int sizeStep = 0;
        bool blackedOut = false;
        int backgroundIndex = 0;
        QSize size;
    };
    std::optional<Shown> m_shown;
    QImage m_picture; // the new slide, while a transition runs
    QImage m_from;    // the slide before, while a transition runs
    // The two pictures of the last transition, drawn over by the next one: a
    // new picture of the whole window takes fresh memory from the system each
    // time, which shows in the time to the first frame.
    QImage m_spares[2];
    qint32 m_transitionType = 38;
    bool m_shownBlack = false;
    int m_backgroundIndex = 0;
    bool m_closing = false;
    bool m_pictureChanged = true; // painted since the last PictureShown?
};
