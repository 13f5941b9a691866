#include "SlideCutter.h"

// Each page of the slides is one part, stepped through with Forward and Back like the parts
// of a song. The slides fill the screen: no details over them.
QList<Slide> SlideCutter::CutPresentation(const RunItem& item) const {
    QList<Slide> slides;
    for (int page = 0; page < item.slideCount; ++page) {
        Slide slide = Base(item);
        slide.kind = Slide::Kind::PdfPage;
        slide.title.clear();
        slide.footer.clear();
        slide.slidesPdf = item.slidesPdf;
        slide.slidePage = page;
        slides << slide;
    }
    Number(slides, Slide::PartText);
    return slides;
}
