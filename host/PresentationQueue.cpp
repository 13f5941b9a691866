#include "PresentationQueue.h"

#include "OfficeConversion.h"
#include "PresentationCache.h"
#include "foundations/ErrorReport.h"

#include <QTimer>

PresentationQueue::PresentationQueue(QObject* parent)
    : QObject(parent), m_converter(new OfficeConverter(this)) {
    connect(m_converter, &OfficeConverter::Finished, this,
            [this](bool blnDone, const QString& strOutput, const QString& strError) {
                ErrorReport::Guard([&] { Converter_Finished(blnDone, strOutput, strError); });
            });
}

PresentationQueue::~PresentationQueue() {
    m_waiting.clear();
    m_converter->disconnect(this);
    m_converter->Stop();
}

void PresentationQueue::Add(const QString& strFile) {
    if (strFile.isEmpty() || IsPending(strFile))
        return;
    m_waiting << strFile;
    // Started from the event loop, so that the run is up before the first
    // answer comes, even one that is kept from before.
    if (!m_startQueued && m_converting.isEmpty()) {
        m_startQueued = true;
        QTimer::singleShot(0, this, [this] {
            m_startQueued = false;
            ErrorReport::Guard([this] { StartNext(); });
        });
    }
}

bool PresentationQueue::IsPending(const QString& strFile) const {
    return m_converting == strFile || m_waiting.contains(strFile);
}

int PresentationQueue::PendingCount() const {
    return static_cast<int>(m_waiting.size()) + (m_converting.isEmpty() ? 0 : 1);
}

void PresentationQueue::Clear() {
    m_waiting.clear();
    m_converting.clear();
    m_converter->Stop();
}

void PresentationQueue::StartNext() {
    while (m_converting.isEmpty() && !m_waiting.isEmpty()) {
        const QString strFile = m_waiting.takeFirst();
        const QString strKept = PresentationCache::FindPdf(strFile);
        if (!strKept.isEmpty()) {
            emit Prepared(strFile, strKept, QString());
            continue;
        }
        QString strErrorMessage;
        m_converting = strFile;
        if (!PresentationCache::StartConversion(*m_converter, strFile, strErrorMessage)) {
            m_converting.clear();
            emit Prepared(strFile, QString(), strErrorMessage);
        }
    }
}

void PresentationQueue::Converter_Finished(bool blnDone, const QString& strOutputFile,
                                           const QString& strErrorMessage) {
    const QString strFile = m_converting;
    m_converting.clear();
    if (strFile.isEmpty())
        return; // stopped by Clear
    QString strError = strErrorMessage;
    QString strPdf;
    if (blnDone)
        strPdf = PresentationCache::Store(strFile, strOutputFile, strError);
    emit Prepared(strFile, strPdf, strError);
    StartNext();
}
