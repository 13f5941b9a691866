#include "RunTestHost.h"

#include "DataAccess.h"
#include "run/ctlRun.h"

namespace {
// A part of a song, in SIPartChanged's PartType.
constexpr qint16 SongPartType = 2;
} // namespace

RunTestHost::RunTestHost(ctlRun* console, QObject* parent) : QObject(parent), m_console(console) {
    connect(console, &ctlRun::ShowNextClicked, this, &RunTestHost::ShowNextClicked);
    connect(console, &ctlRun::ShowPreviousClicked, this, &RunTestHost::ShowPreviousClicked);
    connect(console, &ctlRun::ShowServiceSI, this, &RunTestHost::ShowServiceSI);
    connect(console, &ctlRun::ShowVerse, this, &RunTestHost::ShowVerse);
    connect(console, &ctlRun::ShowPropVerse, this, &RunTestHost::ShowPropVerse);
    connect(console, &ctlRun::ShowSI, this, &RunTestHost::ShowSI);
    connect(console, &ctlRun::EndRun, this, &RunTestHost::EndRun);
    connect(console, &ctlRun::TurnOnProjector, this, &RunTestHost::TurnOnProjector);
    connect(console, &ctlRun::TurnOffProjector, this, &RunTestHost::TurnOffProjector);
    connect(console, &ctlRun::IncreaseSize, this, &RunTestHost::IncreaseSize);
    connect(console, &ctlRun::DecreaseSize, this, &RunTestHost::DecreaseSize);
    connect(console, &ctlRun::ShowPropButtonClicked, this,
            [this] { m_events << QStringLiteral("ShowPropButtonClicked"); });
}

qint32 RunTestHost::SongParts(qint32 lngSIID, QString& strErrorMessage) {
    DataAccess& da = DataAccess::Instance();
    bool blnHasVerses = false;
    da.ServiceItemHasVerses(lngSIID, strErrorMessage, blnHasVerses);
    if (!strErrorMessage.isEmpty() || !blnHasVerses)
        return 0;
    std::unique_ptr<Recordset> rs;
    da.GetSongSequence(lngSIID, strErrorMessage, rs);
    return rs ? rs->RecordCount() : 0;
}

bool RunTestHost::LoadService(qint32 lngServiceID) {
    DataAccess& da = DataAccess::Instance();
    m_items.clear();
    m_strLastError.clear();
    std::unique_ptr<Recordset> rs;
    da.GetServiceContents(QStringLiteral("ServiceID = %1").arg(lngServiceID), 4, m_strLastError,
                          rs);
    if (!m_strLastError.isEmpty())
        return false;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        if (!rs->Fields(QStringLiteral("ShowAtRunTime")).toBool())
            continue;
        Item item;
        item.ServiceItemID = rs->Fields(QStringLiteral("ServiceItemID")).toInt();
        item.Parts = SongParts(item.ServiceItemID, m_strLastError);
        if (!m_strLastError.isEmpty())
            return false;
        m_items << item;
    }
    m_intItem = m_items.isEmpty() ? 0 : 1;
    m_lngPart = m_items.isEmpty() || m_items.first().Parts == 0 ? 0 : 1;
    m_blnPastEnd = false;
    m_blnEnded = false;
    m_console->setRunningService(lngServiceID);
    // The console has put the first item up by itself.
    if (!m_items.isEmpty() && IsAtEndOfItem())
        m_console->AtEndOfSI();
    return true;
}

void RunTestHost::RunItem(qint32 lngSIID) {
    m_items = {Item{lngSIID, SongParts(lngSIID, m_strLastError)}};
    m_intItem = 1;
    m_lngPart = m_items.first().Parts == 0 ? 0 : 1;
    m_console->ShowSIAsRunning(lngSIID, false);
}

qint32 RunTestHost::ItemID(qint16 intItem) const {
    return intItem >= 1 && intItem <= m_items.size() ? m_items.at(intItem - 1).ServiceItemID : 0;
}

qint32 RunTestHost::PartCount(qint16 intItem) const {
    return intItem >= 1 && intItem <= m_items.size() ? m_items.at(intItem - 1).Parts : 0;
}

bool RunTestHost::IsAtEndOfItem() const {
    return m_lngPart >= PartCount(m_intItem);
}

// ---------------------------------------------------------------- moving

void RunTestHost::MoveToItem(qint16 intItem) {
    m_intItem = intItem;
    m_lngPart = PartCount(intItem) == 0 ? 0 : 1;
    m_console->ShowServiceSIAsRunning(intItem, 0, 0);
    if (IsAtEndOfItem())
        m_console->AtEndOfSI();
}

void RunTestHost::MoveToPart(qint32 lngPart) {
    m_lngPart = lngPart;
    m_console->SIPartChanged(lngPart, SongPartType);
    if (IsAtEndOfItem())
        m_console->AtEndOfSI();
}

void RunTestHost::MoveToPropPart(qint32 lngPart) {
    m_lngPropPart = lngPart;
    m_console->SIPartChanged(lngPart, SongPartType);
    if (m_lngPropPart >= m_lngPropParts)
        m_console->AtEndOfSI();
}

// ---------------------------------------------------------------- events

void RunTestHost::ShowNextClicked() {
    m_events << QStringLiteral("ShowNextClicked");
    if (m_lngProp != 0) {
        if (m_lngPropPart < m_lngPropParts)
            MoveToPropPart(m_lngPropPart + 1);
        return;
    }
    if (m_lngPart < PartCount(m_intItem))
        MoveToPart(m_lngPart + 1);
    else if (m_intItem < ItemCount())
        MoveToItem(static_cast<qint16>(m_intItem + 1));
    else
        m_blnPastEnd = true;
}

void RunTestHost::ShowPreviousClicked() {
    m_events << QStringLiteral("ShowPreviousClicked");
    if (m_lngProp != 0) {
        if (m_lngPropPart > 1)
            MoveToPropPart(m_lngPropPart - 1);
        return;
    }
    m_blnPastEnd = false;
    if (m_lngPart > 1)
        MoveToPart(m_lngPart - 1);
    else if (m_intItem > 1)
        MoveToItem(static_cast<qint16>(m_intItem - 1));
}

void RunTestHost::ShowServiceSI(qint16 intIndex) {
    m_events << QStringLiteral("ShowServiceSI(%1)").arg(intIndex);
    if (intIndex >= 1 && intIndex <= ItemCount()) {
        m_blnPastEnd = false;
        MoveToItem(intIndex);
    }
}

void RunTestHost::ShowVerse(qint16 intVerseIndex) {
    m_events << QStringLiteral("ShowVerse(%1)").arg(intVerseIndex);
    MoveToPart(intVerseIndex + 1);
}

void RunTestHost::ShowPropVerse(qint16 intVerseIndex) {
    m_events << QStringLiteral("ShowPropVerse(%1)").arg(intVerseIndex);
    MoveToPropPart(intVerseIndex + 1);
}

void RunTestHost::ShowSI(qint32 lngSIID) {
    m_events << QStringLiteral("ShowSI(%1)").arg(lngSIID);
    QString strErrorMessage;
    m_lngProp = lngSIID;
    m_lngPropParts = SongParts(lngSIID, strErrorMessage);
    m_lngPropPart = m_lngPropParts == 0 ? 0 : 1;
}

void RunTestHost::EndRun() {
    m_events << QStringLiteral("EndRun");
    if (m_lngProp != 0) {
        m_lngProp = 0;
        m_lngPropParts = 0;
        m_lngPropPart = 0;
        m_console->PropRunEnded();
        return;
    }
    m_blnEnded = true;
}

void RunTestHost::TurnOnProjector() {
    m_events << QStringLiteral("TurnOnProjector");
    m_blnProjectorOn = true;
    m_console->ProjectorTurnedOn();
}

void RunTestHost::TurnOffProjector() {
    m_events << QStringLiteral("TurnOffProjector");
    m_blnProjectorOn = false;
    m_console->ProjectorTurnedOff();
}

void RunTestHost::IncreaseSize() {
    m_events << QStringLiteral("IncreaseSize");
    ++m_lngSizeSteps;
    m_console->JustIncreasedSize();
}

void RunTestHost::DecreaseSize() {
    m_events << QStringLiteral("DecreaseSize");
    --m_lngSizeSteps;
    m_console->JustDecreasedSize();
}
