#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QProcess;
class QTemporaryDir;
class QTimer;

// Converts one document or presentation with LibreOffice, headless, as a child process:
//
//   soffice -env:UserInstallation=file://<profile> --headless --convert-to <format>
//           --outdir <work folder> <file>
//
// LibreOffice is found as soffice, else libreoffice, on the PATH. Each conversion runs with
// the private profile folder of Corvantis (ProfileFolder), so that an office the user has open
// is neither disturbed nor waited for, and in a process group of its own, so that stopping it
// ends LibreOffice's helper processes too. The file is handed over under a plain ASCII name
// (linked, else copied, into the work folder), so that spaces and letters of any alphabet in
// the user's folders and file names never reach LibreOffice's command line.
//
// A conversion is stopped when its time limit is over, or by Stop (a new item shown in the
// editor, the editor closing); either way it answers a clear error text and leaves nothing
// behind. The converted file lives in the converter's work folder until the next Start or
// the converter's end: a caller that keeps it moves it away (TakeOutput).
class OfficeConverter : public QObject {
    Q_OBJECT
public:
    explicit OfficeConverter(QObject* parent = nullptr);
    ~OfficeConverter() override;

    // The program that converts: soffice or libreoffice on the PATH, empty when neither is
    // installed.
    static QString OfficeProgram();
    // What to tell the user when OfficeProgram is empty: which packages to install.
    static QString MissingOfficeMessage();
    // The private profile folder of the conversions: OfficeProfile in the data folder.
    static QString ProfileFolder();

    // The time limit of a new converter, in milliseconds (default 120000). Tests shorten it.
    static qint32 DefaultTimeLimit();
    static void SetDefaultTimeLimit(qint32 lngMilliseconds);

    // Told of every LibreOffice process started (program and arguments), before it starts:
    // the way tests count the conversions that ran. nullptr removes it.
    using StartObserver = std::function<void(const QString& strProgram, const QStringList& args)>;
    static void SetStartObserver(StartObserver observer);

    void SetTimeLimit(qint32 lngMilliseconds) { m_timeLimit = lngMilliseconds; }
    qint32 TimeLimit() const { return m_timeLimit; }

    // Starts converting strFile to strFormat ("pdf", "html", "docx", or LibreOffice's
    // "ext:Filter" form). False, with strErrorMessage, when it cannot start: no LibreOffice, a
    // file that does not exist or is empty, no work folder. Finished comes once it is over.
    bool Start(const QString& strFile, const QString& strFormat, QString& strErrorMessage);
    // Waits for the conversion started last. The application's events go on meanwhile
    // (painting, timers, a Stop), the user's input does not. True with the converted file.
    bool Wait(QString& strOutputFile, QString& strErrorMessage);
    // Start and Wait in one.
    bool Convert(const QString& strFile, const QString& strFormat, QString& strOutputFile,
                 QString& strErrorMessage);
    // Stops a running conversion: LibreOffice is ended, Finished reports it stopped.
    void Stop();
    bool IsRunning() const;
    // True when the last conversion was ended because its time limit was over.
    bool StoppedAtTimeLimit() const { return m_stopReason == QStringLiteral("time"); }
    // The folder of the last conversion's output (empty before any).
    QString WorkFolder() const;

signals:
    // blnDone: the converted file is strOutputFile; else strErrorMessage says why not.
    void Finished(bool blnDone, const QString& strOutputFile, const QString& strErrorMessage);

private:
    void Process_Finished();
    void tmrLimit_Timeout();
    void EndProcess();
    void Report(bool blnDone, const QString& strOutput, const QString& strError);
    bool PrepareWork(const QString& strFile, QString& strSource, QString& strErrorMessage);
    QStringList Arguments(const QString& strSource, const QString& strFormat) const;

    qint32 m_timeLimit;
    QProcess* m_process = nullptr;
    QTimer* tmrLimit = nullptr;
    std::unique_ptr<QTemporaryDir> m_work;
    QString m_file;       // the file being converted, as the user named it
    QString m_outputFile; // where LibreOffice writes the result
    QString m_stopReason; // set when the conversion is ended from here
    bool m_running = false;
    bool m_lastDone = false;
    QString m_lastOutput;
    QString m_lastError;
};
