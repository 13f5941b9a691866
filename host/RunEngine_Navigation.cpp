#include "RunEngine.h"

RunEngine::Step RunEngine::Next() {
    if (!m_running)
        return Step::Nothing;
    if (m_propRunning) {
        // A prop stays on its last part until the operator ends it.
        if (m_propPart + 1 >= m_propSlides.size())
            return Step::Nothing;
        ++m_propPart;
        emit SlideChanged();
        return Step::Part;
    }
    if (m_atEnd)
        return Step::Nothing;
    if (m_part + 1 < ItemSlides(m_item).size()) {
        ++m_part;
        emit SlideChanged();
        return Step::Part;
    }
    if (m_item + 1 < m_items.size()) {
        ++m_item;
        m_part = 0;
        emit SlideChanged();
        return Step::Item;
    }
    if (!IsServiceRun())
        return Step::Nothing;
    m_atEnd = true;
    emit SlideChanged();
    return Step::ServiceEnded;
}

RunEngine::Step RunEngine::Previous() {
    if (!m_running)
        return Step::Nothing;
    if (m_propRunning) {
        if (m_propPart == 0)
            return Step::Nothing;
        --m_propPart;
        emit SlideChanged();
        return Step::Part;
    }
    if (m_atEnd) {
        if (m_items.isEmpty())
            return Step::Nothing;
        m_atEnd = false;
        m_item = static_cast<int>(m_items.size()) - 1;
        m_part = static_cast<int>(ItemSlides(m_item).size()) - 1;
        emit SlideChanged();
        return Step::Item;
    }
    if (m_part > 0) {
        --m_part;
        emit SlideChanged();
        return Step::Part;
    }
    // Back from the first part goes to the start of the item before.
    if (m_item == 0)
        return Step::Nothing;
    --m_item;
    m_part = 0;
    emit SlideChanged();
    return Step::Item;
}

bool RunEngine::JumpToItem(int index) {
    if (!m_running || index < 0 || index >= m_items.size())
        return false;
    m_item = index;
    m_part = 0;
    m_atEnd = false;
    emit SlideChanged();
    return true;
}

bool RunEngine::JumpToPart(int part) {
    if (!m_running || part < 0 || part >= PartCount() || (m_atEnd && !m_propRunning))
        return false;
    if (m_propRunning)
        m_propPart = part;
    else
        m_part = part;
    emit SlideChanged();
    return true;
}

bool RunEngine::StartProp(qint32 lngServiceItemID, QString& strErrorMessage) {
    if (!m_running)
        return false;
    RunItem prop;
    if (!RunItem::Load(lngServiceItemID, prop, strErrorMessage))
        return false;
    m_prop = prop;
    m_propSlides = CutItem(m_prop);
    m_propPart = 0;
    m_propRunning = true;
    emit SlideChanged();
    return true;
}

void RunEngine::EndProp() {
    if (!m_propRunning)
        return;
    m_propRunning = false;
    m_prop = RunItem();
    m_propSlides.clear();
    m_propPart = 0;
    emit SlideChanged();
}
