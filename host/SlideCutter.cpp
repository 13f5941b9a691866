#include "SlideCutter.h"

SlideCutter::SlideCutter(const RunLook& look, FitFunction fit)
    : m_look(look), m_fit(std::move(fit)) {}

QList<Slide> SlideCutter::Cut(const RunItem& item) const {
    if (item.IsBlank()) {
        Slide blank = Base(item);
        blank.kind = Slide::Kind::Blank;
        blank.title.clear();
        blank.footer.clear();
        return {blank};
    }
    if (item.IsPicture()) {
        Slide picture = Base(item);
        picture.kind = Slide::Kind::Picture;
        picture.picturePath = item.filePath;
        picture.title.clear();
        picture.secondsToShow = qMax(0, item.secondsToRun);
        return {picture};
    }
    if (item.slideCount > 0)
        return CutPresentation(item);
    if (!item.parts.isEmpty())
        return CutSong(item);
    if (item.RunsAsPoints())
        return CutPoints(item);
    return CutText(item);
}

// What every slide of the item shares: its details as the options and the
// item allow, and its background pictures.
Slide SlideCutter::Base(const RunItem& item) const {
    Slide slide;
    slide.serviceItemId = item.serviceItemId;
    if (!item.hideDetails) {
        if (m_look.showDescription)
            slide.title = item.description;
        QStringList details;
        if (m_look.showSource && !item.source.isEmpty())
            details << item.source;
        if (m_look.showCopyright && !item.copyright.isEmpty())
            details << item.copyright;
        if (m_look.showLocation && !item.location.isEmpty())
            details << item.location;
        slide.footer = details.join(QStringLiteral(" - "));
    }
    slide.backgrounds = item.backgrounds;
    if (slide.backgrounds.isEmpty() && !m_look.backgroundPicture.isEmpty())
        slide.backgrounds << m_look.backgroundPicture;
    slide.changeBackgroundEverySeconds = item.changeImageEveryXSeconds;
    return slide;
}

void SlideCutter::Number(QList<Slide>& slides, int partType) {
    for (int i = 0; i < slides.size(); ++i) {
        slides[i].partIndex = i;
        slides[i].partCount = static_cast<int>(slides.size());
        slides[i].partType = partType;
    }
}
