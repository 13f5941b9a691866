#include "RunController.h"

#include "RunEngine.h"

#include <QTimer>

// The display time of an item's own pictures runs from the moment the item
// comes up; a prop or another item shown meanwhile does not stop it, and the
// item shows its pictures again when it comes up the next time.
void RunController::TimeItemPictures() {
    const int item =
        m_engine.IsRunning() && !m_engine.AtEndOfService() ? m_engine.CurrentItem() : -1;
    if (item == m_picturesItem)
        return;
    if (m_picturesItem >= 0)
        m_engine.SetItemPicturesHidden(m_picturesItem, false);
    m_picturesItem = item;
    tmrPictures->stop();
    const int intSeconds = m_engine.ItemPictureSeconds(item);
    if (intSeconds > 0)
        tmrPictures->start(intSeconds * 1000);
}

void RunController::tmrPictures_Timer() {
    tmrPictures->stop();
    if (m_picturesItem >= 0 && m_picturesItem == m_engine.CurrentItem())
        m_engine.SetItemPicturesHidden(m_picturesItem, true);
}
