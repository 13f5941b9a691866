#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class ctlRun;

// A host for the run console, as small as the protocol allows: it answers
// each event of ctlRun with the calls a host owes the console, and keeps the
// only run state there is (which item and part show).
//
//   after loading a service       writes RunningService (once, first)
//   ShowNextClicked               the next part of a song (SIPartChanged(part, 2),
//                                 AtEndOfSI when that is the last part); at the end of
//                                 an item the next item (ShowServiceSIAsRunning(i, 0, 0));
//                                 at the end of the service nothing
//   ShowPreviousClicked           the part before, else the item before (at its first part)
//   ShowServiceSI(i)              jumps to item i (0, the root, does nothing)
//   ShowVerse(i), ShowPropVerse(i) jumps to part i + 1 of the item (of the prop)
//   ShowSI(id)                    a prop runs: its parts are stepped by Forward and Back
//   EndRun                        ends the prop (PropRunEnded) or else the run
//   TurnOn/OffProjector           ProjectorTurnedOn / ProjectorTurnedOff
//   Increase/DecreaseSize         JustIncreasedSize / JustDecreasedSize
//
// An item whose part shows is at its end when that part is its last one; an
// item without a song sequence has one step and is at its end at once, so the
// host calls AtEndOfSI as soon as it shows.
//
// Items are numbered as the console numbers them: 1 is the first shown row.
// Parts from 1; 0 for an item without parts.
//
//   RunTestHost host(&console);
//   QVERIFY(host.LoadService(serviceId));
//   console.cmdForward->click();
//   QCOMPARE(host.CurrentPart(), 2);
class RunTestHost : public QObject {
    Q_OBJECT
public:
    explicit RunTestHost(ctlRun* console, QObject* parent = nullptr);

    // Reads the shown rows of the service and their song sequences, then
    // writes RunningService. False, with LastError(), when a read failed.
    bool LoadService(qint32 lngServiceID);
    // Runs one service item by itself (no service loaded).
    void RunItem(qint32 lngSIID);
    QString LastError() const { return m_strLastError; }

    qint16 ItemCount() const { return static_cast<qint16>(m_items.size()); }
    qint16 CurrentItem() const { return m_intItem; }
    qint32 CurrentPart() const { return m_lngPart; }
    // The id and the number of song parts of item intItem (1-based).
    qint32 ItemID(qint16 intItem) const;
    qint32 PartCount(qint16 intItem) const;
    bool IsAtEndOfItem() const;
    // Forward was pressed on the last step of the last item.
    bool IsPastEndOfService() const { return m_blnPastEnd; }

    qint32 RunningProp() const { return m_lngProp; }
    qint32 PropPart() const { return m_lngPropPart; }
    bool IsEnded() const { return m_blnEnded; }
    bool IsProjectorOn() const { return m_blnProjectorOn; }
    // Size steps asked for: +1 per IncreaseSize, -1 per DecreaseSize.
    qint32 SizeSteps() const { return m_lngSizeSteps; }

    // Every event heard, in order: "ShowNextClicked", "ShowServiceSI(3)", ...
    const QStringList& Events() const { return m_events; }
    void ClearEvents() { m_events.clear(); }

    // The song parts of a service item (0 without a song sequence).
    static qint32 SongParts(qint32 lngSIID, QString& strErrorMessage);

private:
    void ShowNextClicked();
    void ShowPreviousClicked();
    void ShowServiceSI(qint16 intIndex);
    void ShowVerse(qint16 intVerseIndex);
    void ShowPropVerse(qint16 intVerseIndex);
    void ShowSI(qint32 lngSIID);
    void EndRun();
    void TurnOnProjector();
    void TurnOffProjector();
    void IncreaseSize();
    void DecreaseSize();

    void MoveToItem(qint16 intItem);
    void MoveToPart(qint32 lngPart);
    void MoveToPropPart(qint32 lngPart);

    struct Item {
        qint32 ServiceItemID = 0;
        qint32 Parts = 0;
    };

    QPointer<ctlRun> m_console;
    QList<Item> m_items;
    qint16 m_intItem = 0;
    qint32 m_lngPart = 0;
    bool m_blnPastEnd = false;
    qint32 m_lngProp = 0;
    qint32 m_lngPropParts = 0;
    qint32 m_lngPropPart = 0;
    bool m_blnEnded = false;
    bool m_blnProjectorOn = false;
    qint32 m_lngSizeSteps = 0;
    QStringList m_events;
    QString m_strLastError;
};
