#include "RunEngine.h"

// Forward and Back are one walk over the tracks: within the active track
// first, then to the item beside it, then (in a service run) onto the end
// slide and back from it. A prop walks its own parts only and stays on its
// last part until the operator ends it.
RunEngine::Step RunEngine::Move(int direction) {
    if (!m_running)
        return Step::Nothing;
    RefreshLook();
    if (m_atEnd && !m_prop) {
        if (direction > 0 || m_tracks.isEmpty())
            return Step::Nothing;
        m_atEnd = false;
        const int last = static_cast<int>(m_tracks.size()) - 1;
        return MoveToItem(last, static_cast<int>(m_tracks.at(last).slides.size()) - 1);
    }
    Track* track = ActiveTrack();
    const int part = track ? track->part + direction : 0;
    if (track && part >= 0 && part < track->slides.size()) {
        track->part = part;
        emit SlideChanged();
        return Step::Part;
    }
    if (m_prop)
        return Step::Nothing;
    // Back from the first part goes to the start of the item before.
    const int item = m_item + direction;
    if (item >= 0 && item < m_tracks.size())
        return MoveToItem(item, 0);
    if (direction < 0 || !IsServiceRun())
        return Step::Nothing;
    m_atEnd = true;
    emit SlideChanged();
    return Step::ServiceEnded;
}

RunEngine::Step RunEngine::MoveToItem(int index, int part) {
    m_item = index;
    m_tracks[index].part = qMax(0, part);
    emit SlideChanged();
    return Step::Item;
}

RunEngine::Step RunEngine::Next() {
    return Move(+1);
}

RunEngine::Step RunEngine::Previous() {
    return Move(-1);
}

bool RunEngine::JumpToItem(int index) {
    if (!m_running || index < 0 || index >= m_tracks.size())
        return false;
    RefreshLook();
    m_atEnd = false;
    MoveToItem(index, 0);
    return true;
}

bool RunEngine::JumpToPart(int part) {
    RefreshLook();
    if (!m_running || part < 0 || part >= PartCount() || (m_atEnd && !m_prop))
        return false;
    ActiveTrack()->part = part;
    emit SlideChanged();
    return true;
}

bool RunEngine::StartProp(qint32 lngServiceItemID, QString& strErrorMessage) {
    if (!m_running)
        return false;
    RunItem prop;
    if (!RunItem::Load(lngServiceItemID, prop, strErrorMessage, SlideSource()))
        return false;
    QueueSlides(prop);
    RefreshLook();
    m_prop = MakeTrack(prop);
    emit SlideChanged();
    return true;
}

void RunEngine::EndProp() {
    if (!m_prop)
        return;
    m_prop.reset();
    RefreshLook();
    emit SlideChanged();
}
