#include "RunEngine.h"

#include "PresentationQueue.h"

// The slides of the run's presentations, prepared in the background: the run
// starts at once, a presentation not converted before waits on an empty slide,
// and its slides come up as soon as LibreOffice has made them, while the
// operator goes on with the service.

void RunEngine::SetPreparesSlidesAhead(bool blnAhead) {
    if (!blnAhead) {
        delete m_presentations;
        m_presentations = nullptr;
        return;
    }
    if (m_presentations)
        return;
    m_presentations = new PresentationQueue(this);
    connect(m_presentations, &PresentationQueue::Prepared, this,
            &RunEngine::Presentations_Prepared);
}

RunItem::Slides RunEngine::SlideSource() const {
    return m_presentations ? RunItem::Slides::KeptOnly : RunItem::Slides::ConvertNow;
}

void RunEngine::QueueSlides(const RunItem& item) {
    if (!m_presentations || !item.slidesPending)
        return;
    m_presentations->Add(item.filePath);
    emit SlidesStatusChanged(SlidesStatus());
}

int RunEngine::SlidesBeingPrepared() const {
    return m_presentations ? m_presentations->PendingCount() : 0;
}

QString RunEngine::SlidesStatus() const {
    const int intPending = SlidesBeingPrepared();
    if (intPending == 0)
        return m_slidesFailure;
    const Track* track = ActiveTrack();
    if (track && track->item.slidesPending && !(m_atEnd && !m_prop))
        return QStringLiteral("Preparing the slides of \"%1\"; they show as soon as they are "
                              "ready.")
            .arg(track->item.description);
    return intPending == 1
               ? QStringLiteral("Preparing the slides of a presentation in the background.")
               : QStringLiteral("Preparing the slides of %1 presentations in the background.")
                     .arg(intPending);
}

void RunEngine::StopPreparingSlides() {
    if (!m_presentations)
        return;
    m_presentations->Clear();
    m_slidesFailure.clear();
    emit SlidesStatusChanged(QString());
}

// Every track that waits for this presentation takes its slides; the
// projector is told when the picture showing, or the one Forward brings,
// has changed.
void RunEngine::Presentations_Prepared(const QString& strFile, const QString& strPdf,
                                       const QString& strErrorMessage) {
    const SlideId before = CurrentSlideId();
    bool blnShowingChanged = false;
    QString strFailed;
    auto take = [&](Track& track, bool blnNearShowing) {
        if (!track.item.slidesPending || track.item.filePath != strFile)
            return;
        if (!track.item.TakeSlides(strPdf, strErrorMessage))
            strFailed = track.item.description;
        CutTrack(track);
        blnShowingChanged = blnShowingChanged || blnNearShowing;
    };
    for (int i = 0; i < m_tracks.size(); ++i)
        take(m_tracks[i], i == m_item || i == m_item + 1);
    if (m_prop)
        take(*m_prop, true);
    if (!strFailed.isEmpty())
        m_slidesFailure =
            QStringLiteral("The slides of \"%1\" cannot be shown: %2")
                .arg(strFailed, strErrorMessage.isEmpty()
                                    ? QStringLiteral("the converted slides cannot be read.")
                                    : strErrorMessage);
    emit SlidesStatusChanged(SlidesStatus());
    if (m_running && (blnShowingChanged || !(before == CurrentSlideId())))
        emit SlideChanged();
}
