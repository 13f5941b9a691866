#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class OfficeConverter;

// Turns the presentations of a run into the PDFs of their slides in the
// background, one after the other (LibreOffice converts one file at a time
// with Corvantis' profile folder), so that neither the console nor the
// projector ever waits for LibreOffice. A presentation whose PDF is kept from
// before is reported at once, from the event loop.
class PresentationQueue : public QObject {
    Q_OBJECT
public:
    explicit PresentationQueue(QObject* parent = nullptr);
    ~PresentationQueue() override;

    // Queues a presentation, unless it is waiting or being converted already.
    void Add(const QString& strFile);
    bool IsPending(const QString& strFile) const;
    // Presentations waiting or being converted.
    int PendingCount() const;
    // Stops the conversion running and forgets the rest (the run ended).
    void Clear();

signals:
    // The PDF of a presentation, or the reason why there is none.
    void Prepared(const QString& strFile, const QString& strPdf, const QString& strErrorMessage);

private:
    void StartNext();
    void Converter_Finished(bool blnDone, const QString& strOutputFile,
                            const QString& strErrorMessage);

    OfficeConverter* m_converter;
    QStringList m_waiting;
    QString m_converting;
    bool m_startQueued = false;
};
