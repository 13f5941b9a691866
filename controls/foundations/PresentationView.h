#pragma once

#include "foundations/PdfSlides.h"

#include <QWidget>

class OfficeConverter;
class QLabel;
class QPushButton;

// Shows the slides of a presentation inside a control: the presentation is
// converted once to PDF by LibreOffice Impress (PresentationCache.h) and its
// pages are drawn in lblSlide, as large as fits. lblSlideCount tells
// "Slide 3 of 12"; cmdFirstSlide, cmdPreviousSlide, cmdNextSlide and
// cmdLastSlide page through (so do Home, PageUp or Left, PageDown or Right or
// Space, and End). lblStatus says what is going on instead of a slide: the
// conversion running, or why nothing can be shown.
//
// ShowPowerPointFile keeps the words the users know from the editor:
//  - without LibreOffice (and no converted PDF kept), the box "Could not
//    instantiate PowerPoint." with the stop icon, and no error text, so that
//    the caller leaves its own text as it was;
//  - a presentation that LibreOffice cannot open (damaged, empty, over the
//    time limit), the box "Could not open the presentation." with the stop
//    icon; the reason shows in lblStatus and goes to the trace;
//  - a file that does not exist or is not a presentation: an error text.
// A conversion waits for LibreOffice while the window goes on painting;
// StopConversion ends it (the editor does so when it shows another item or
// loses the focus).
class PresentationView : public QWidget {
    Q_OBJECT
public:
    explicit PresentationView(QWidget* parent = nullptr);
    ~PresentationView() override;

    // True when the slides show.
    bool ShowPowerPointFile(const QString& strPowerPointFile, QString& strErrorMessage);
    // Shows the pages of a PDF (already converted).
    bool ShowPdf(const QString& strPdf, QString& strErrorMessage);
    // Stops a conversion that is running; the view then says it was stopped.
    void StopConversion();
    bool IsConverting() const;
    // Empties the view.
    void Clear();

    // 0 when nothing shows.
    int SlideCount() const { return m_slides.Count(); }
    // The slide showing, from 1; 0 when nothing shows.
    int CurrentSlide() const { return m_slides.IsOpen() ? m_intSlide + 1 : 0; }
    // Shows slide intSlide (from 1), kept within the slides there are.
    void ShowSlide(int intSlide);
    QString StatusText() const;
    // The PDF showing, empty when none.
    QString PdfFile() const { return m_slides.FileName(); }

    // The texts of the boxes.
    static QString NoOfficeSuiteText() {
        return QStringLiteral("Could not instantiate PowerPoint.");
    }
    static QString CannotOpenText() { return QStringLiteral("Could not open the presentation."); }

signals:
    // Another slide shows (from 1).
    void SlideChanged(int intSlide);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void cmdFirstSlide_Click();
    void cmdPreviousSlide_Click();
    void cmdNextSlide_Click();
    void cmdLastSlide_Click();

private:
    void ShowStatus(const QString& strText);
    void PaintSlide();
    void SetUpButtons();
    QPushButton* MakeButton(const char* name, const QString& strCaption, const QString& strTip);

    QLabel* lblSlide = nullptr;
    QLabel* lblStatus = nullptr;
    QLabel* lblSlideCount = nullptr;
    QPushButton* cmdFirstSlide = nullptr;
    QPushButton* cmdPreviousSlide = nullptr;
    QPushButton* cmdNextSlide = nullptr;
    QPushButton* cmdLastSlide = nullptr;
    OfficeConverter* m_converter = nullptr;
    PdfSlides m_slides;
    int m_intSlide = 0;
    bool m_blnStopped = false; // the conversion was stopped by StopConversion
};
