#pragma once

#include <QMutex>
#include <QString>

// The trace log of Corvantis: one text file to which every layer appends lines.
//
// The file is named by the environment variable CORVANTIS_TRACE; without it, it is
// Corvantis.trace in the data folder (Settings::DataFolder()). A trace line is written as it
// is; an error line gets "ERROR: " in front. When the file grows beyond MaximumSize() it is
// renamed to the same name plus ".1" (replacing an older one) and a new file is started, so the
// log never takes more than about twice that size; when the full file cannot be renamed, one
// line says so and the file takes no more lines until it can be. The file is opened without
// waiting, so a pipe that nobody reads loses the line instead of holding the program. Writing
// never throws and never shows anything: a log that cannot be written loses the line, nothing
// else.
class TraceLog {
public:
    static TraceLog& Instance();

    void WriteErrorLine(const QString& line);
    void WriteTraceLine(const QString& line);

    // The file the lines go to (the environment is read again at every write).
    QString FilePath() const;
    // Size in bytes at which the file is rotated.
    qint64 MaximumSize() const { return m_maximumSize; }
    void SetMaximumSize(qint64 bytes) { m_maximumSize = bytes; }

private:
    TraceLog() = default;
    void Append(const QString& text);
    static bool Rotate(const QString& path);
    void NoteFull(const QString& path);

    QMutex m_mutex;
    qint64 m_maximumSize = 5 * 1024 * 1024;
    QString m_fullNoted; // the full file whose refusal has been noted
};
