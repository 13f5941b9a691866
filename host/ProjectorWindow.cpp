#include "ProjectorWindow.h"

#include "RunEngine.h"
#include "Settings.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVariantAnimation>
#include <QWindow>

#include <utility>

ProjectorWindow::ProjectorWindow(RunEngine& engine, QWidget* parent)
    : QWidget(parent, Qt::Window), m_engine(engine), tmrBackground(new QTimer(this)),
      aniTransition(new QVariantAnimation(this)) {
    setObjectName(Title());
    setWindowTitle(Title());
    setAttribute(Qt::WA_OpaquePaintEvent);
    // The keyboard stays with the console: the projector window neither takes
    // the focus when it comes up nor when it is clicked.
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    tmrBackground->setObjectName(QStringLiteral("tmrBackground"));
    connect(tmrBackground, &QTimer::timeout, this,
            [this] { ErrorReport::Guard([this] { tmrBackground_Timeout(); }); });
    aniTransition->setObjectName(QStringLiteral("aniTransition"));
    aniTransition->setStartValue(0.0);
    aniTransition->setEndValue(1.0);
    connect(aniTransition, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(aniTransition, &QVariantAnimation::finished, this,
            [this] { ErrorReport::Guard([this] { aniTransition_Finished(); }); });
    connect(&m_engine, &RunEngine::SlideChanged, this,
            [this] { ErrorReport::Guard([this] { Engine_SlideChanged(); }); });
    // A screen that comes or goes is handled once Qt has finished moving
    // windows off it.
    connect(qApp, &QGuiApplication::screenAdded, this, &ProjectorWindow::PlaceLater);
    connect(qApp, &QGuiApplication::screenRemoved, this, &ProjectorWindow::PlaceLater);
    Engine_SlideChanged();
}

ProjectorWindow::~ProjectorWindow() = default;

void ProjectorWindow::PlaceLater() {
    QTimer::singleShot(0, this, [this] { ErrorReport::Guard([this] { Place(); }); });
}

QScreen* ProjectorWindow::ScreenAt(const QRect& rect) const {
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (QScreen* screen : screens)
        if (screen->geometry() == rect)
            return screen;
    for (QScreen* screen : screens)
        if (screen->geometry().contains(rect.center()))
            return screen;
    return QGuiApplication::primaryScreen();
}

void ProjectorWindow::Place() {
    if (m_closing)
        return;
    m_placement = ProjectorPlacement::For(Platform::Current().MonitorRects());
    if (!m_placement.fullScreen)
        m_placement.geometry = RememberedPlace(m_placement.geometry);
    setWindowState(windowState() & ~Qt::WindowFullScreen);
    if (!windowHandle())
        create();
    if (QScreen* screen = ScreenAt(m_placement.geometry))
        windowHandle()->setScreen(screen);
    setGeometry(m_placement.geometry);
    if (m_placement.fullScreen) {
        setCursor(Qt::BlankCursor); // no pointer in front of the congregation
        // Full screen without showFullScreen(), which would ask for the focus.
        setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowFullScreen);
        show();
    } else {
        unsetCursor();
        showNormal();
    }
    m_engine.SetScreenSize(size());
}

// With one screen the operator moves and sizes the window where it does not
// cover the console; the next run opens it there again.
QRect ProjectorWindow::RememberedPlace(const QRect& rcDefault) {
    const QStringList parts =
        Settings::GetPrivateProfileString(QStringLiteral("Window"), PlaceKey()).split(',');
    if (parts.size() != 4)
        return rcDefault;
    QList<int> n;
    for (const QString& part : parts)
        n << part.trimmed().toInt();
    const QRect rect(n.at(0), n.at(1), n.at(2), n.at(3));
    for (QScreen* screen : QGuiApplication::screens())
        if (rect.width() >= 160 && rect.height() >= 120 &&
            screen->availableGeometry().contains(rect))
            return rect;
    return rcDefault;
}

bool ProjectorWindow::HasRememberedPlace() {
    const QRect none(-1, -1, 1, 1);
    return RememberedPlace(none) != none;
}

void ProjectorWindow::RememberPlace() const {
    if (m_placement.fullScreen || !isVisible() || isFullScreen() || isMinimized())
        return;
    const QRect rect = geometry();
    Settings::WritePrivateProfileString(QStringLiteral("Window"), PlaceKey(),
                                        QStringLiteral("%1,%2,%3,%4")
                                            .arg(rect.x())
                                            .arg(rect.y())
                                            .arg(rect.width())
                                            .arg(rect.height()));
}

void ProjectorWindow::CloseProjector() {
    RememberPlace();
    m_closing = true;
    tmrBackground->stop();
    aniTransition->stop();
    close();
}

QImage ProjectorWindow::Picture() const {
    return m_engine.Renderer().Render(m_engine.CurrentSlide(), size(), m_engine.IsBlackedOut(),
                                      m_backgroundIndex);
}

// A change that comes while a transition runs finishes that one at once and
// starts from its new slide: every key press moves the slides on.
void ProjectorWindow::Engine_SlideChanged() {
    // Black on and off comes at once: the operator wants it now.
    const bool black = m_engine.IsBlackedOut();
    const bool animates = m_engine.Look().Animates() && isVisible() && black == m_shownBlack;
    const QImage shown = animates ? OutgoingPicture() : QImage();
    FinishTransition();
    const Slide& slide = m_engine.CurrentSlide();
    m_backgroundIndex = 0;
    if (slide.backgrounds.size() > 1 && slide.changeBackgroundEverySeconds > 0)
        tmrBackground->start(slide.changeBackgroundEverySeconds * 1000);
    else
        tmrBackground->stop();
    m_picture = QImage();
    if (!shown.isNull())
        StartTransition(shown);
    m_shownBlack = black;
    m_pictureChanged = true;
    update();
}

// The picture a transition starts from: the new slide of a transition still
// running, else the slide last shown whole, drawn again as it was shown (the
// look or the size of the words may have changed since).
QImage ProjectorWindow::OutgoingPicture() {
    if (IsInTransition())
        return m_picture.size() == size() ? m_picture : QImage();
    if (!m_shown || m_shown->size != size())
        return QImage();
    SlideRenderer renderer = m_engine.Renderer(); // with the pictures it keeps scaled
    renderer.SetLook(m_shown->look);
    renderer.SetSizeStep(m_shown->sizeStep);
    QImage picture = std::exchange(m_spares[1], QImage());
    renderer.RenderInto(picture, m_shown->slide, size(), m_shown->blackedOut,
                        m_shown->backgroundIndex);
    return picture;
}

void ProjectorWindow::StartTransition(const QImage& from) {
    const RunLook& look = m_engine.Look();
    m_from = from;
    m_picture = std::exchange(m_spares[0], QImage());
    m_engine.Renderer().RenderInto(m_picture, m_engine.CurrentSlide(), size(),
                                   m_engine.IsBlackedOut(), m_backgroundIndex);
    m_transitionType = look.transitionType;
    aniTransition->setDuration(qMax(1, look.transitionDuration));
    aniTransition->start();
}

void ProjectorWindow::FinishTransition() {
    if (m_from.isNull())
        return;
    KeepSpares();
    aniTransition->stop();
    update();
}

// The last frame is the new slide whole; the console's mirror is told once
// that has been painted.
void ProjectorWindow::aniTransition_Finished() {
    KeepSpares();
    update();
}

void ProjectorWindow::KeepSpares() {
    m_spares[0] = std::exchange(m_from, QImage());
    m_spares[1] = std::exchange(m_picture, QImage());
}

void ProjectorWindow::tmrBackground_Timeout() {
    ++m_backgroundIndex;
    update();
}

void ProjectorWindow::paintEvent(QPaintEvent*) {
    ErrorReport::Guard([this] {
        if (!IsInTransition()) {
            PaintSlide();
            return;
        }
        if (m_picture.size() != size())
            m_picture = Picture();
        QPainter painter(this);
        SlideRenderer::PaintTransition(painter, rect(), m_from, m_picture, m_transitionType,
                                       aniTransition->currentValue().toReal());
    });
    if (m_pictureChanged && !IsInTransition())
        TellPainted();
}

// The slide is painted straight onto the window, without a picture of its own
// copied there; what was painted is noted, for a transition to start from.
void ProjectorWindow::PaintSlide() {
    QPainter painter(this);
    SlideRenderer& renderer = m_engine.Renderer();
    const Slide& slide = m_engine.CurrentSlide();
    const bool black = m_engine.IsBlackedOut();
    renderer.PaintOver(painter, rect(), slide, black, m_backgroundIndex);
    m_shown = Shown{slide, renderer.Look(), renderer.SizeStep(), black, m_backgroundIndex, size()};
}

void ProjectorWindow::TellPainted() {
    m_pictureChanged = false;
    emit PicturePainted();
    // Told once the painted picture has reached the screen, after this event.
    QTimer::singleShot(0, this, [this] {
        if (!m_closing)
            emit PictureShown();
    });
}

void ProjectorWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FinishTransition();
    m_pictureChanged = true;
    ErrorReport::Guard([this] { m_engine.SetScreenSize(size()); });
}

void ProjectorWindow::keyPressEvent(QKeyEvent* event) {
    const OperatorKeys::Action action = OperatorKeys::ActionFor(*event);
    if (action == OperatorKeys::Action::None) {
        QWidget::keyPressEvent(event);
        return;
    }
    emit ActionPressed(action);
}

void ProjectorWindow::closeEvent(QCloseEvent* event) {
    if (m_closing) {
        event->accept();
        return;
    }
    event->ignore();
    emit ActionPressed(OperatorKeys::Action::End);
}
