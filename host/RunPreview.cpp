#include "RunPreview.h"

#include "RunEngine.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int PictureWidth = 240;

QLabel* NewLabel(QWidget* parent, const QString& name, const QString& text = QString()) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

} // namespace

RunPreview::RunPreview(RunEngine& engine, QWidget* parent) : QWidget(parent), m_engine(engine) {
    setObjectName(QStringLiteral("RunPreview"));
    lblShowing = NewLabel(this, QStringLiteral("lblShowing"), QStringLiteral("Showing now"));
    imgShowing = NewLabel(this, QStringLiteral("imgShowing"));
    lblNext = NewLabel(this, QStringLiteral("lblNext"), QStringLiteral("Next"));
    imgNext = NewLabel(this, QStringLiteral("imgNext"));
    for (QLabel* picture : {imgShowing, imgNext}) {
        picture->setFrameShape(QFrame::Box);
        picture->setFixedSize(PictureSize() + QSize(2, 2));
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblShowing);
    layout->addWidget(imgShowing);
    layout->addSpacing(12);
    layout->addWidget(lblNext);
    layout->addWidget(imgNext);
    layout->addStretch(1);
    connect(&m_engine, &RunEngine::SlideChanged, this, &RunPreview::Refresh);
    Refresh();
}

// The projector's proportions at the preview's width.
QSize RunPreview::PictureSize() const {
    const QSize screen = m_engine.ScreenSize().isValid() ? m_engine.ScreenSize() : QSize(4, 3);
    return QSize(PictureWidth, PictureWidth * screen.height() / qMax(1, screen.width()));
}

void RunPreview::Refresh() {
    for (QLabel* picture : {imgShowing, imgNext})
        picture->setFixedSize(PictureSize() + QSize(2, 2));
    // Drawn at the projector's own size and scaled down, so that the lines
    // break as they do on the projector.
    const QSize full = m_engine.ScreenSize();
    auto draw = [&](const Slide& slide, bool blnBlackedOut) {
        return QPixmap::fromImage(
            m_engine.Renderer()
                .Render(slide, full, blnBlackedOut)
                .scaled(PictureSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    };
    imgShowing->setPixmap(draw(m_engine.CurrentSlide(), m_engine.IsBlackedOut()));
    lblShowing->setText(m_engine.IsBlackedOut() ? QStringLiteral("Showing now: black")
                                                : QStringLiteral("Showing now"));
    if (const Slide* next = m_engine.NextSlide()) {
        imgNext->setPixmap(draw(*next, false));
        lblNext->setText(next->kind == Slide::Kind::End ? QStringLiteral("Next: the end")
                                                        : QStringLiteral("Next"));
    } else {
        imgNext->setPixmap(QPixmap());
        lblNext->setText(m_engine.IsPropRunning() ? QStringLiteral("Next: nothing until End Prop")
                                                  : QStringLiteral("Next: nothing"));
    }
}
