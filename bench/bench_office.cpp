// Documents and presentations through LibreOffice: converting a presentation of
// 30 slides the first time, showing it again from the kept PDF (to the first
// slide on screen), and loading a document of 50 pages into a rich text box.
// Figures in milliseconds; run by hand on a Release build (see bench/README.md).
#include "DataAccess.h"
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/PresentationView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <limits>

namespace {
constexpr int kSlides = 30;
constexpr int kPages = 50;

double Best(int intRuns, const std::function<double()>& run) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i)
        best = std::min(best, run());
    return best;
}

double Milliseconds(const QElapsedTimer& timer) {
    return timer.nsecsElapsed() / 1e6;
}

// About fifty pages of A4: 50 x 40 lines of a reading, a heading on each page.
QByteArray LongRtf() {
    QByteArray rtf = "{\\rtf1\\ansi\\deff0 {\\fonttbl {\\f0 Times New Roman;}}\\fs24 ";
    for (int page = 1; page <= kPages; ++page) {
        rtf += "{\\b Chapter " + QByteArray::number(page) + "}\\par ";
        for (int line = 0; line < 40; ++line)
            rtf += "In the beginning was the Word, and the Word was with God, and the Word "
                   "was God. {\\i He was with God in the beginning.}\\par ";
        rtf += "\\page ";
    }
    return rtf + "}";
}

// Converts a file made by the benchmark into another format (not timed).
QString Make(const QString& strSource, const QString& strFormat, const QString& strTarget) {
    OfficeConverter converter;
    QString output, error;
    if (!converter.Convert(strSource, strFormat, output, error)) {
        QTextStream(stderr) << error << "\n";
        return QString();
    }
    QFile::remove(strTarget);
    return QFile::copy(output, strTarget) ? strTarget : QString();
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int intRuns = argc > 1 ? QString(argv[1]).toInt() : 7;
    QTextStream out(stdout);
    if (OfficeConverter::OfficeProgram().isEmpty()) {
        QTextStream(stderr) << OfficeConverter::MissingOfficeMessage() << "\n";
        return 1;
    }
    TestDatabase db;
    ScriptedPlatform platform;
    platform.SetDefaultAnswer(vbOK);
    QTemporaryDir dir;

    // Warms LibreOffice's profile up, so that the first conversion is not also its first start.
    TestDocuments::Write(dir.filePath("slides.fodp"), TestDocuments::FlatPresentation(kSlides));
    const QString strTalk =
        Make(dir.filePath("slides.fodp"), "pptx", dir.filePath("Thirty slides.pptx"));
    TestDocuments::Write(dir.filePath("long.rtf"), LongRtf());
    const QString strDocx =
        Make(dir.filePath("long.rtf"), "docx", dir.filePath("Fifty pages.docx"));
    if (strTalk.isEmpty() || strDocx.isEmpty())
        return 1;

    QElapsedTimer timer;
    timer.start();
    QString error;
    const QString strPdf = PresentationCache::PdfFor(strTalk, error);
    const double convert = Milliseconds(timer);
    if (strPdf.isEmpty()) {
        QTextStream(stderr) << error << "\n";
        return 1;
    }

    const double shown = Best(intRuns, [&] {
        PresentationView view;
        view.resize(800, 640);
        view.show();
        QApplication::processEvents();
        QElapsedTimer shownTimer;
        shownTimer.start();
        QString why;
        view.ShowPowerPointFile(strTalk, why);
        const bool blnFirst = !view.findChild<QLabel*>("lblSlide")->pixmap().isNull();
        const double ms = Milliseconds(shownTimer);
        return blnFirst && view.SlideCount() == kSlides ? ms : -1.0;
    });

    const double loaded = Best(std::min(intRuns, 3), [&] {
        QTextEdit box;
        QElapsedTimer loadTimer;
        loadTimer.start();
        QString why;
        DataAccess::Instance().LoadFileIntoRichText(strDocx, &box, why);
        const double ms = Milliseconds(loadTimer);
        return why.isEmpty() ? ms : -1.0;
    });

    // The part of the load that is LibreOffice's: the conversion to HTML alone.
    const double converted = Best(std::min(intRuns, 3), [&] {
        OfficeConverter converter;
        QElapsedTimer convertTimer;
        convertTimer.start();
        QString output, why;
        const bool blnDone = converter.Convert(strDocx, "html", output, why);
        const double ms = Milliseconds(convertTimer);
        return blnDone ? ms : -1.0;
    });

    out << "presentation of " << kSlides
        << " slides, first conversion to PDF: " << QString::number(convert, 'f', 0) << " ms\n";
    out << "the same shown again from the kept PDF, to its first slide: "
        << QString::number(shown, 'f', 1) << " ms\n";
    out << "document of " << kPages
        << " pages (.docx) loaded into the text box: " << QString::number(loaded, 'f', 0)
        << " ms\n";
    out << "  of which LibreOffice's conversion to HTML: " << QString::number(converted, 'f', 0)
        << " ms\n";
    return shown < 0 || loaded < 0 ? 1 : 0;
}
