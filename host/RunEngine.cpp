#include "RunEngine.h"

#include "DataAccess.h"
#include "SlideCutter.h"

RunEngine::RunEngine(QObject* parent) : QObject(parent) {
    m_endSlide = EndSlide();
}

void RunEngine::Reset() {
    m_running = false;
    m_serviceId = 0;
    m_items.clear();
    m_slides.clear();
    m_item = 0;
    m_part = 0;
    m_atEnd = false;
    m_prop = RunItem();
    m_propSlides.clear();
    m_propPart = 0;
    m_propRunning = false;
    m_blackedOut = false;
}

void RunEngine::SetLook(const RunLook& look) {
    m_renderer.SetLook(look);
    Recut();
}

void RunEngine::SetScreenSize(const QSize& size) {
    if (!size.isValid() || size == m_screenSize)
        return;
    m_screenSize = size;
    Recut();
}

QList<Slide> RunEngine::CutItem(const RunItem& item) const {
    const SlideCutter cutter(m_renderer.Look(), [this](const QStringList& lines, int first) {
        return m_renderer.LinesThatFit(lines, first, m_screenSize);
    });
    return cutter.Cut(item);
}

// Cuts every item again (after a change of font, size or screen), keeping
// the place as near as the new cut allows.
void RunEngine::Recut() {
    m_slides.clear();
    for (const RunItem& item : m_items)
        m_slides << CutItem(item);
    if (!m_slides.isEmpty())
        m_part = qBound(0, m_part, static_cast<int>(m_slides.value(m_item).size()) - 1);
    if (m_propRunning) {
        m_propSlides = CutItem(m_prop);
        m_propPart = qBound(0, m_propPart, static_cast<int>(m_propSlides.size()) - 1);
    }
    m_endSlide = EndSlide();
}

bool RunEngine::AddItem(qint32 lngServiceItemID) {
    RunItem item;
    QString err;
    // A row whose item is gone still holds its place: an empty slide, without
    // the failure's words on the projector.
    const bool loaded = RunItem::Load(lngServiceItemID, item, err);
    m_items << item;
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
        if (rs->Fields(QStringLiteral("ShowAtRunTime")).toBool())
            AddItem(rs->Fields(QStringLiteral("ServiceItemID")).toInt());
    Recut();
    m_running = true;
    m_atEnd = m_items.isEmpty();
    emit SlideChanged();
    return true;
}

bool RunEngine::LoadItem(qint32 lngServiceItemID, QString& strErrorMessage) {
    Reset();
    RunItem item;
    if (!RunItem::Load(lngServiceItemID, item, strErrorMessage))
        return false;
    m_items << item;
    Recut();
    m_running = true;
    emit SlideChanged();
    return true;
}

qint32 RunEngine::ItemServiceItemID(int index) const {
    return index >= 0 && index < m_items.size() ? m_items.at(index).serviceItemId : 0;
}

const QList<Slide>& RunEngine::ItemSlides(int index) const {
    static const QList<Slide> none;
    return index >= 0 && index < m_slides.size() ? m_slides.at(index) : none;
}

int RunEngine::CurrentPart() const {
    return m_propRunning ? m_propPart : m_part;
}

int RunEngine::PartCount() const {
    return static_cast<int>(m_propRunning ? m_propSlides.size() : ItemSlides(m_item).size());
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
    if (m_propRunning && m_propPart < m_propSlides.size())
        return m_propSlides.at(m_propPart);
    if (m_atEnd || m_item >= m_slides.size() || m_part >= m_slides.at(m_item).size())
        return m_endSlide;
    return m_slides.at(m_item).at(m_part);
}
