#include "foundations/PresentationView.h"

#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "foundations/Platform.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

PresentationView::PresentationView(QWidget* parent)
    : QWidget(parent), m_converter(new OfficeConverter(this)) {
    lblSlide = new QLabel(this);
    lblSlide->setObjectName(QStringLiteral("lblSlide"));
    lblSlide->setAlignment(Qt::AlignCenter);
    lblSlide->setMinimumSize(1, 1);
    lblSlide->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    lblSlide->installEventFilter(this);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    lblStatus->setAlignment(Qt::AlignCenter);
    lblStatus->setWordWrap(true);
    lblStatus->hide();
    lblSlideCount = new QLabel(this);
    lblSlideCount->setObjectName(QStringLiteral("lblSlideCount"));
    cmdFirstSlide = MakeButton("cmdFirstSlide", QStringLiteral("|<"), tr("First slide"));
    cmdPreviousSlide = MakeButton("cmdPreviousSlide", QStringLiteral("<"), tr("Previous slide"));
    cmdNextSlide = MakeButton("cmdNextSlide", QStringLiteral(">"), tr("Next slide"));
    cmdLastSlide = MakeButton("cmdLastSlide", QStringLiteral(">|"), tr("Last slide"));
    connect(cmdFirstSlide, &QPushButton::clicked, this, &PresentationView::cmdFirstSlide_Click);
    connect(cmdPreviousSlide, &QPushButton::clicked, this,
            &PresentationView::cmdPreviousSlide_Click);
    connect(cmdNextSlide, &QPushButton::clicked, this, &PresentationView::cmdNextSlide_Click);
    connect(cmdLastSlide, &QPushButton::clicked, this, &PresentationView::cmdLastSlide_Click);

    auto* bar = new QHBoxLayout;
    bar->addWidget(cmdFirstSlide);
    bar->addWidget(cmdPreviousSlide);
    bar->addStretch();
    bar->addWidget(lblSlideCount);
    bar->addStretch();
    bar->addWidget(cmdNextSlide);
    bar->addWidget(cmdLastSlide);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lblSlide, 1);
    layout->addWidget(lblStatus, 1);
    layout->addLayout(bar);
    setFocusPolicy(Qt::StrongFocus);
    SetUpButtons();
}

PresentationView::~PresentationView() = default;

QPushButton* PresentationView::MakeButton(const char* name, const QString& strCaption,
                                          const QString& strTip) {
    auto* button = new QPushButton(strCaption, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(strTip);
    button->setAutoDefault(false);
    return button;
}

bool PresentationView::IsConverting() const {
    return m_converter->IsRunning();
}

void PresentationView::StopConversion() {
    if (!m_converter->IsRunning())
        return;
    m_blnStopped = true;
    m_converter->Stop();
}

QString PresentationView::StatusText() const {
    return lblStatus->isHidden() ? QString() : lblStatus->text();
}

void PresentationView::Clear() {
    StopConversion();
    m_slides.Close();
    m_intSlide = 0;
    lblSlide->clear();
    lblStatus->clear();
    lblStatus->hide();
    lblSlide->show();
    SetUpButtons();
}

void PresentationView::ShowStatus(const QString& strText) {
    lblSlide->clear();
    lblSlide->hide();
    lblStatus->setText(strText);
    lblStatus->show();
    SetUpButtons();
}

bool PresentationView::ShowPowerPointFile(const QString& strPowerPointFile,
                                          QString& strErrorMessage) {
    strErrorMessage.clear();
    Clear();
    if (!PresentationCache::IsPresentation(strPowerPointFile)) {
        strErrorMessage = PresentationCache::NotAPresentationMessage(strPowerPointFile);
        return false;
    }
    QString strPdf = PresentationCache::FindPdf(strPowerPointFile);
    if (strPdf.isEmpty()) {
        if (PresentationCache::PdfPathFor(strPowerPointFile).isEmpty()) {
            strErrorMessage = QStringLiteral("The file %1 cannot be found. It may have been "
                                             "moved or deleted.")
                                  .arg(strPowerPointFile);
            return false;
        }
        if (OfficeConverter::OfficeProgram().isEmpty()) {
            ShowStatus(OfficeConverter::MissingOfficeMessage());
            Platform::Current().MsgBox(NoOfficeSuiteText(), vbCritical);
            return false;
        }
        ShowStatus(tr("Opening the presentation. Please wait..."));
        m_blnStopped = false;
        QString strWhy;
        QString strConverted;
        if (PresentationCache::StartConversion(*m_converter, strPowerPointFile, strWhy))
            m_converter->Wait(strConverted, strWhy);
        if (!strConverted.isEmpty())
            strPdf = PresentationCache::Store(strPowerPointFile, strConverted, strWhy);
        if (strPdf.isEmpty()) {
            ShowStatus(strWhy);
            // Stopped on purpose (another item, the editor closing): nothing to tell.
            if (!m_blnStopped)
                Platform::Current().MsgBox(CannotOpenText(), vbCritical);
            return false;
        }
    }
    QString strWhy;
    if (!ShowPdf(strPdf, strWhy)) {
        ShowStatus(strWhy);
        Platform::Current().MsgBox(CannotOpenText(), vbCritical);
        return false;
    }
    return true;
}

bool PresentationView::ShowPdf(const QString& strPdf, QString& strErrorMessage) {
    if (!m_slides.Open(strPdf, strErrorMessage)) {
        ShowStatus(strErrorMessage);
        return false;
    }
    lblStatus->hide();
    lblSlide->show();
    m_intSlide = 0;
    PaintSlide();
    emit SlideChanged(1);
    return true;
}

void PresentationView::ShowSlide(int intSlide) {
    if (!m_slides.IsOpen())
        return;
    const int intIndex = qBound(0, intSlide - 1, m_slides.Count() - 1);
    if (intIndex == m_intSlide)
        return;
    m_intSlide = intIndex;
    PaintSlide();
    emit SlideChanged(m_intSlide + 1);
}

void PresentationView::PaintSlide() {
    if (m_slides.IsOpen() && !lblSlide->isHidden()) {
        QSize area = lblSlide->size();
        if (area.width() < 16 || area.height() < 16)
            area = size(); // not laid out yet
        const QImage picture = m_slides.Render(m_intSlide, area);
        lblSlide->setPixmap(QPixmap::fromImage(picture));
    }
    SetUpButtons();
}

void PresentationView::SetUpButtons() {
    const bool blnOpen = m_slides.IsOpen();
    const int intLast = m_slides.Count() - 1;
    cmdFirstSlide->setEnabled(blnOpen && m_intSlide > 0);
    cmdPreviousSlide->setEnabled(blnOpen && m_intSlide > 0);
    cmdNextSlide->setEnabled(blnOpen && m_intSlide < intLast);
    cmdLastSlide->setEnabled(blnOpen && m_intSlide < intLast);
    lblSlideCount->setText(blnOpen ? tr("Slide %1 of %2").arg(m_intSlide + 1).arg(m_slides.Count())
                                   : QString());
}

void PresentationView::cmdFirstSlide_Click() {
    ShowSlide(1);
}

void PresentationView::cmdPreviousSlide_Click() {
    ShowSlide(CurrentSlide() - 1);
}

void PresentationView::cmdNextSlide_Click() {
    ShowSlide(CurrentSlide() + 1);
}

void PresentationView::cmdLastSlide_Click() {
    ShowSlide(SlideCount());
}

void PresentationView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PaintSlide();
}

// The slide is drawn again at the size its label gets.
bool PresentationView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblSlide && event->type() == QEvent::Resize)
        PaintSlide();
    return QWidget::eventFilter(watched, event);
}

void PresentationView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Home:
        cmdFirstSlide_Click();
        break;
    case Qt::Key_PageUp:
    case Qt::Key_Left:
        cmdPreviousSlide_Click();
        break;
    case Qt::Key_PageDown:
    case Qt::Key_Right:
    case Qt::Key_Space:
        cmdNextSlide_Click();
        break;
    case Qt::Key_End:
        cmdLastSlide_Click();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}
