#include "RunEngine.h"

#include "DataAccess.h"
#include "TraceLog.h"

namespace {
constexpr int SmallestStep = -6;
constexpr int LargestStep = 8;
} // namespace

void RunEngine::SetBlackedOut(bool blnBlackedOut) {
    if (m_blackedOut == blnBlackedOut)
        return;
    m_blackedOut = blnBlackedOut;
    emit SlideChanged();
}

void RunEngine::IncreaseSize() {
    m_renderer.SetSizeStep(qMin(LargestStep, m_renderer.SizeStep() + 1));
    Recut();
    emit SlideChanged();
}

void RunEngine::DecreaseSize() {
    m_renderer.SetSizeStep(qMax(SmallestStep, m_renderer.SizeStep() - 1));
    Recut();
    emit SlideChanged();
}

// The failure to record the delivery is written to the trace by EndRun.
void RunEngine::EndRun() {
    QString err;
    EndRun(err);
}

void RunEngine::EndRun(QString& strErrorMessage) {
    if (!m_running)
        return;
    const qint32 serviceId = m_serviceId;
    m_running = false;
    m_prop.reset();
    StopPreparingSlides();
    if (serviceId != 0 && m_recordsDelivery &&
        !MarkServiceDelivered(serviceId, QDate::currentDate(), strErrorMessage))
        TraceLog::Instance().WriteErrorLine(
            QStringLiteral("Corvantis:RunEngine:EndRun: the date the service was delivered could "
                           "not be recorded: ") +
            strErrorMessage);
    emit RunEnded();
}

bool RunEngine::MarkServiceDelivered(qint32 lngServiceID, const QDate& dtmDate,
                                     QString& strErrorMessage) {
    DataAccess& da = DataAccess::Instance();
    std::unique_ptr<Recordset> rs;
    da.GetServices(QStringLiteral("ServiceID = %1").arg(lngServiceID), 4, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty())
        return false;
    if (!rs || rs->RecordCount() == 0) {
        strErrorMessage =
            QStringLiteral("Service %1 does not exist in the database").arg(lngServiceID);
        return false;
    }
    rs->MoveFirst();
    auto text = [&](const char* name) { return rs->Fields(QLatin1String(name)).toString(); };
    da.SaveServiceDetails(lngServiceID, text("ServiceName"), text("ServiceType"),
                          text("ServiceTheme"), text("ServiceProvider"), text("ServiceNotes"),
                          QDateTime(dtmDate, QTime(0, 0)), 0, strErrorMessage);
    return strErrorMessage.isEmpty();
}
