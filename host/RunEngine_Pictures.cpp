#include "RunEngine.h"

// An item's own background pictures with a display time: they show for that
// long, then the item's slides go on over the usual background.

int RunEngine::ItemPictureSeconds(int index) const {
    if (index < 0 || index >= m_tracks.size())
        return 0;
    const RunItem& item = m_tracks.at(index).item;
    return item.IsPicture() || item.backgrounds.isEmpty() ? 0 : qMax(0, item.secondsToRun);
}

bool RunEngine::ItemPicturesHidden(int index) const {
    return index >= 0 && index < m_tracks.size() && m_tracks.at(index).picturesHidden;
}

void RunEngine::SetItemPicturesHidden(int index, bool blnHidden) {
    if (index < 0 || index >= m_tracks.size() || m_tracks.at(index).picturesHidden == blnHidden)
        return;
    Track& track = m_tracks[index];
    track.picturesHidden = blnHidden;
    CutTrack(track);
    if (m_running && index == m_item && !m_prop && !m_atEnd)
        emit SlideChanged();
}
