#pragma once

#include "RunItem.h"
#include "RunLook.h"
#include "Slide.h"
#include "SlideRenderer.h"

#include <QDate>
#include <QObject>
#include <QSize>

#include <functional>
#include <optional>

class PresentationQueue;

// The model of a run: which rows of a service are shown, how each item is cut
// into slides, which slide is on the projector now, and a prop that is put up
// in the middle. The projector window draws CurrentSlide(); the run controller
// moves the engine on the console's events and tells the console what shows.
//
// Items are numbered from 0 in the order of the shown rows (rows whose
// ShowAtRunTime is False are left out); parts from 0 within an item.
//
// Each item is one track: the item read from the database, its slides and the
// part showing. A prop running is one more track beside them.
class RunEngine : public QObject {
    Q_OBJECT
public:
    struct Track {
        RunItem item;
        QList<Slide> slides;
        int part = 0;
        bool picturesHidden = false; // its own pictures' display time is over
    };

    // Which slide shows: the prop's (propServiceItemId not 0) or the item's
    // part, or the end slide of a service.
    struct SlideId {
        qint32 propServiceItemId = 0;
        int item = 0;
        int part = 0;
        bool atEnd = false;
        friend bool operator==(const SlideId&, const SlideId&) = default;
    };

    // What a step did.
    enum class Step {
        Nothing,      // nothing to go to: the slide stays
        Part,         // another part of the same item (or prop)
        Item,         // another item of the service
        ServiceEnded, // past the last item: the end slide shows
    };

    explicit RunEngine(QObject* parent = nullptr);

    // ---- Loading -------------------------------------------------------------
    // Loads the shown rows of a service and puts its first item up.
    bool LoadService(qint32 lngServiceID, QString& strErrorMessage);
    // Loads one service item to run by itself.
    bool LoadItem(qint32 lngServiceItemID, QString& strErrorMessage);
    void SetLook(const RunLook& look);
    // Where the look is read again before each change of slide, so that a
    // change in the options shows at the next slide of a running service.
    void SetLookSource(std::function<RunLook()> source) { m_lookSource = std::move(source); }
    const RunLook& Look() const { return m_renderer.Look(); }
    // The size of the projector picture, which decides what a screenful is.
    void SetScreenSize(const QSize& size);
    QSize ScreenSize() const { return m_screenSize; }
    SlideRenderer& Renderer() { return m_renderer; }

    // ---- State ---------------------------------------------------------------
    bool IsRunning() const { return m_running; }
    qint32 ServiceID() const { return m_serviceId; }
    bool IsServiceRun() const { return m_serviceId != 0; }
    int ItemCount() const { return static_cast<int>(m_tracks.size()); }
    int CurrentItem() const { return m_item; }
    qint32 ItemServiceItemID(int index) const;
    const QList<Slide>& ItemSlides(int index) const;
    // The part showing: of the prop while one runs, else of the current item.
    int CurrentPart() const;
    int PartCount() const;
    bool AtEndOfItem() const;
    bool AtEndOfService() const { return m_atEnd; }
    const Slide& CurrentSlide() const;
    SlideId CurrentSlideId() const;
    // The slide that Forward brings, or nullptr when Forward brings none.
    const Slide* NextSlide() const;

    // ---- Navigation ----------------------------------------------------------
    // Forward: the next part, else the first part of the next item, else (in a
    // service run) the end slide. A prop stays on its last part.
    Step Next();
    // Back: the part before, else the first part of the item before; from the
    // end slide the last part of the last item.
    Step Previous();
    bool JumpToItem(int index);
    // A part of the prop while one runs, else of the current item.
    bool JumpToPart(int part);

    // ---- Props ---------------------------------------------------------------
    bool StartProp(qint32 lngServiceItemID, QString& strErrorMessage);
    bool IsPropRunning() const { return m_prop.has_value(); }
    qint32 PropServiceItemID() const { return m_prop ? m_prop->item.serviceItemId : 0; }
    void EndProp();

    // ---- Projector -----------------------------------------------------------
    void SetBlackedOut(bool blnBlackedOut);
    bool IsBlackedOut() const { return m_blackedOut; }
    void IncreaseSize();
    void DecreaseSize();
    int SizeStep() const { return m_renderer.SizeStep(); }

    // ---- Ending --------------------------------------------------------------
    // Ends the run; a service run records today as the service's
    // ServiceDateLastDelivered. strErrorMessage carries a failure to record it.
    void EndRun(QString& strErrorMessage);
    void EndRun();
    // Whether the end of a service run is recorded (off for the screenshots).
    void SetRecordsDelivery(bool blnRecords) { m_recordsDelivery = blnRecords; }
    // Writes dtmDate as ServiceDateLastDelivered of a service, keeping its
    // other details.
    static bool MarkServiceDelivered(qint32 lngServiceID, const QDate& dtmDate,
                                     QString& strErrorMessage);

    // ---- An item's own pictures -------------------------------------------------
    // How long the item's own background pictures show each time it comes up
    // (its display time), 0 when they show all the while or it has none.
    int ItemPictureSeconds(int index) const;
    // Hides the item's own pictures (its slides then show the usual
    // background) or shows them again.
    void SetItemPicturesHidden(int index, bool blnHidden);
    bool ItemPicturesHidden(int index) const;

    // ---- Presentations ---------------------------------------------------------
    // Whether the slides of the run's presentations are prepared in the
    // background from the start of the run (the application's runs), instead
    // of being converted while each item loads. A presentation whose slides
    // are not there yet shows an empty slide until they are.
    void SetPreparesSlidesAhead(bool blnAhead);
    // The presentations whose slides are still being prepared.
    int SlidesBeingPrepared() const;
    // What the operator is told of it (the status line); empty when nothing is
    // being prepared and nothing failed.
    QString SlidesStatus() const;
    // Stops preparing slides (the run ended).
    void StopPreparingSlides();

signals:
    void SlideChanged();
    void RunEnded();
    void SlidesStatusChanged(const QString& strStatus);

private:
    void Reset();
    void RefreshLook();
    void Recut();
    void CutTrack(Track& track) const;
    Track MakeTrack(const RunItem& item) const;
    bool AddItem(qint32 lngServiceItemID);
    Slide EndSlide() const;
    // The track whose part the operator moves: the prop's while one runs.
    Track* ActiveTrack();
    const Track* ActiveTrack() const;
    // One step of Next (+1) or Previous (-1).
    Step Move(int direction);
    Step MoveToItem(int index, int part);
    // Presentations (RunEngine_Presentations.cpp)
    RunItem::Slides SlideSource() const;
    void QueueSlides(const RunItem& item);
    void Presentations_Prepared(const QString& strFile, const QString& strPdf,
                                const QString& strErrorMessage);

    SlideRenderer m_renderer;
    std::function<RunLook()> m_lookSource;
    QSize m_screenSize{1024, 768};
    bool m_running = false;
    qint32 m_serviceId = 0;
    QList<Track> m_tracks;
    int m_item = 0;
    bool m_atEnd = false;
    Slide m_endSlide;
    std::optional<Track> m_prop;
    bool m_blackedOut = false;
    bool m_recordsDelivery = true;
    PresentationQueue* m_presentations = nullptr;
    QString m_slidesFailure;
};
