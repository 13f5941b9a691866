#include "RunEngine.h"

#include "DataAccess.h"
#include "ServiceRows.h"
#include "SlideCutter.h"

RunEngine::RunEngine(QObject* parent) : QObject(parent) {
    m_endSlide = EndSlide();
}

void RunEngine::Reset() {
    m_running = false;
    m_serviceId = 0;
    m_tracks.clear();
    m_item = 0;
    m_atEnd = false;
    m_prop.reset();
    m_blackedOut = false;
}

void RunEngine::SetLook(const RunLook& look) {
    m_renderer.SetLook(look);
    Recut();
}

// A look that has not changed cuts nothing again: the usual case costs one
// read of the options row.
void RunEngine::RefreshLook() {
    if (!m_lookSource || !m_running)
        return;
    const RunLook look = m_lookSource();
    if (!(look == m_renderer.Look()))
        SetLook(look);
}

void RunEngine::SetScreenSize(const QSize& size) {
    if (!size.isValid() || size == m_screenSize)
        return;
    m_screenSize = size;
    Recut();
}

// Cuts the track's item into slides, keeping its place as near as the new cut
// allows.
void RunEngine::CutTrack(Track& track) const {
    const SlideCutter cutter(m_renderer.Look(), [this](const QStringList& lines, int first) {
        return m_renderer.LinesThatFit(lines, first, m_screenSize);
    });
    if (track.picturesHidden) {
        RunItem item = track.item;
        item.backgrounds.clear();
        track.slides = cutter.Cut(item);
    } else {
        track.slides = cutter.Cut(track.item);
    }
    track.part = qBound(0, track.part, static_cast<int>(track.slides.size()) - 1);
}

RunEngine::Track RunEngine::MakeTrack(const RunItem& item) const {
    Track track;
    track.item = item;
    CutTrack(track);
    return track;
}

// Cuts every item again (after a change of font, size or screen).
void RunEngine::Recut() {
    for (Track& track : m_tracks)
        CutTrack(track);
    if (m_prop)
        CutTrack(*m_prop);
    m_endSlide = EndSlide();
}

bool RunEngine::AddItem(qint32 lngServiceItemID) {
    RunItem item;
    QString err;
    // A row whose item is gone still holds its place: an empty slide, without
    // the failure's words on the projector.
    const bool loaded = RunItem::Load(lngServiceItemID, item, err, SlideSource());
    QueueSlides(item);
    m_tracks << MakeTrack(item);
    return loaded;
}

bool RunEngine::LoadService(qint32 lngServiceID, QString& strErrorMessage) {
    Reset();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceContents(QStringLiteral("ServiceID =%1").arg(lngServiceID), 4,
                                              strErrorMessage, rs);
    if (!strErrorMessage.isEmpty())
        return false;
    m_serviceId = lngServiceID;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        if (ServiceRows::ShownAtRunTime(*rs))
            AddItem(rs->Fields(QStringLiteral("ServiceItemID")).toInt());
    m_running = true;
    m_atEnd = m_tracks.isEmpty();
    emit SlideChanged();
    return true;
}

bool RunEngine::LoadItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    Reset();
    RunItem item;
    if (!RunItem::Load(lngServiceItemID, item, strErrorMessage, SlideSource()))
        return false;
    QueueSlides(item);
    m_tracks << MakeTrack(item);
    m_running = true;
    emit SlideChanged();
    return true;
}

qint32 RunEngine::ItemServiceItemID(int index) const {
    return index >= 0 && index < m_tracks.size() ? m_tracks.at(index).item.serviceItemId : 0;
}

const QList<Slide>& RunEngine::ItemSlides(int index) const {
    static const QList<Slide> none;
    return index >= 0 && index < m_tracks.size() ? m_tracks.at(index).slides : none;
}

RunEngine::Track* RunEngine::ActiveTrack() {
    if (m_prop)
        return &*m_prop;
    return m_item < m_tracks.size() ? &m_tracks[m_item] : nullptr;
}

const RunEngine::Track* RunEngine::ActiveTrack() const {
    return const_cast<RunEngine*>(this)->ActiveTrack();
}

int RunEngine::CurrentPart() const {
    const Track* track = ActiveTrack();
    return track ? track->part : 0;
}

int RunEngine::PartCount() const {
    const Track* track = ActiveTrack();
    return track ? static_cast<int>(track->slides.size()) : 0;
}

bool RunEngine::AtEndOfItem() const {
    return !m_atEnd && CurrentPart() >= PartCount() - 1;
}

Slide RunEngine::EndSlide() const {
    Slide slide;
    slide.kind = Slide::Kind::End;
    if (!m_renderer.Look().backgroundPicture.isEmpty())
        slide.backgrounds << m_renderer.Look().backgroundPicture;
    return slide;
}

const Slide& RunEngine::CurrentSlide() const {
    const Track* track = ActiveTrack();
    if ((m_atEnd && !m_prop) || !track || track->part >= track->slides.size())
        return m_endSlide;
    return track->slides.at(track->part);
}

RunEngine::SlideId RunEngine::CurrentSlideId() const {
    SlideId id;
    id.propServiceItemId = PropServiceItemID();
    id.atEnd = m_atEnd && !m_prop;
    if (!id.atEnd) {
        id.item = m_item;
        id.part = CurrentPart();
    }
    return id;
}

const Slide* RunEngine::NextSlide() const {
    if (!m_running)
        return nullptr;
    if (const Track* track = ActiveTrack(); track && (m_prop || !m_atEnd)) {
        if (track->part + 1 < track->slides.size())
            return &track->slides.at(track->part + 1);
        if (m_prop)
            return nullptr;
    }
    if (m_atEnd)
        return nullptr;
    if (m_item + 1 < m_tracks.size()) {
        const QList<Slide>& slides = m_tracks.at(m_item + 1).slides;
        return slides.isEmpty() ? &m_endSlide : &slides.first();
    }
    return IsServiceRun() ? &m_endSlide : nullptr;
}
