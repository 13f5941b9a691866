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
//
// A regular file is kept open between lines, and each line goes to the system at once (one
// write, no buffer of our own), so a crash loses nothing. Before each line the path is looked up
// again: another path, or another file under the same path (removed, renamed, rotated by
// someone else), is opened anew. Anything else (a pipe, a device) is opened for each line.
// While the operator's action is answered (DatabaseStampHeld) the file under the path is looked
// at for the first line only; the path itself is still followed at every line.
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
    // The file under path, open for appending: the kept one while it is still the file under
    // that path, else a new one, kept when it is a regular file. -1 when it cannot be opened.
    int OpenFile(const QString& path);
    // Closes a descriptor that OpenFile did not keep.
    void Release(int fd);
    void CloseKept();

    QMutex m_mutex;
    qint64 m_maximumSize = 5 * 1024 * 1024;
    QString m_fullNoted; // the full file whose refusal has been noted
    int m_keptFd = -1;   // the regular file kept open between lines, or -1
    QString m_keptPath;  // the path it was opened under
    quint64 m_keptDevice = 0;
    quint64 m_keptInode = 0;
    quint64 m_keptInHold = 0; // the hold (StampHoldNow) in which the kept file was looked at
};
