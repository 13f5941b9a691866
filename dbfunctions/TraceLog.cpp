#include "TraceLog.h"

#include "ChangeStamps.h"
#include "Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

TraceLog& TraceLog::Instance() {
    static TraceLog* instance = new TraceLog; // never released: used until the very end
    return *instance;
}

void TraceLog::WriteErrorLine(const QString& line) {
    Append(QStringLiteral("ERROR: ") + line);
}

void TraceLog::WriteTraceLine(const QString& line) {
    Append(line);
}

QString TraceLog::FilePath() const {
    const QString fromEnvironment = qEnvironmentVariable("CORVANTIS_TRACE");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    return Settings::DataFolder() + QStringLiteral("/Corvantis.trace");
}

namespace {

// Opens the file for appending without ever waiting: a pipe that nobody reads refuses at once
// (and the line is lost) instead of holding the program. -1 when it cannot be opened.
int OpenForAppend(const QString& path) {
    return ::open(QFile::encodeName(path).constData(),
                  O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0644);
}

// The size of an open regular file; -1 for anything else (a pipe, a device).
qint64 RegularFileSize(int fd) {
    struct stat info;
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))
        return -1;
    return info.st_size;
}

void WriteAll(int fd, const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n <= 0)
            return; // a full pipe or disc: the line is lost
        done += n;
    }
}

} // namespace

// Renames a full file to path.1; false when it cannot (a read-only folder, say).
bool TraceLog::Rotate(const QString& path) {
    const QString rotated = path + QStringLiteral(".1");
    QFile::remove(rotated);
    return QFile::rename(path, rotated);
}

// Appends one line; rotates the file first when it has reached the size cap. When a full file
// cannot be rotated, one line says so and nothing more is written to it until it can be, so
// that the log never grows past its cap. Every failure is swallowed: the log must never disturb
// the program it records.
void TraceLog::Append(const QString& text) {
    try {
        QMutexLocker lock(&m_mutex);
        const QString path = FilePath();
        int fd = OpenFile(path);
        if (fd < 0)
            return;
        const qint64 size = RegularFileSize(fd);
        QByteArray bytes = text.toUtf8();
        bytes.append('\n');
        if (size >= m_maximumSize) {
            Release(fd);
            CloseKept();
            if (!Rotate(path)) {
                NoteFull(path);
                return;
            }
            fd = OpenFile(path);
            if (fd < 0)
                return;
        }
        m_fullNoted.clear();
        WriteAll(fd, bytes);
        Release(fd);
    } catch (...) {
    }
}

int TraceLog::OpenFile(const QString& path) {
    // While the operator's action is answered, the file looked at for its first line takes the
    // rest of its lines; another file under the path is found at the next action's first line.
    const quint64 hold = StampHoldNow();
    if (m_keptFd >= 0 && hold != 0 && hold == m_keptInHold && path == m_keptPath)
        return m_keptFd;
    const QByteArray name = QFile::encodeName(path);
    struct stat info;
    const bool exists = ::stat(name.constData(), &info) == 0;
    if (m_keptFd >= 0) {
        if (exists && path == m_keptPath && quint64(info.st_dev) == m_keptDevice &&
            quint64(info.st_ino) == m_keptInode) {
            m_keptInHold = hold;
            return m_keptFd;
        }
        CloseKept();
    }
    if (!exists)
        QDir().mkpath(QFileInfo(path).absolutePath());
    const int fd = OpenForAppend(path);
    if (fd < 0 || ::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))
        return fd;
    m_keptFd = fd;
    m_keptPath = path;
    m_keptDevice = quint64(info.st_dev);
    m_keptInode = quint64(info.st_ino);
    m_keptInHold = hold;
    return fd;
}

void TraceLog::Release(int fd) {
    if (fd >= 0 && fd != m_keptFd)
        ::close(fd);
}

void TraceLog::CloseKept() {
    if (m_keptFd >= 0)
        ::close(m_keptFd);
    m_keptFd = -1;
    m_keptPath.clear();
}

// Says once, in the file itself, that a full file could not be rotated.
void TraceLog::NoteFull(const QString& path) {
    if (m_fullNoted == path)
        return;
    m_fullNoted = path;
    const int fd = OpenForAppend(path);
    if (fd < 0)
        return;
    WriteAll(fd, QStringLiteral("ERROR: QVLTDBFUNCTIONS:TraceLog: the trace file has reached its "
                                "limit of %1 bytes and cannot be renamed to %2.1; no more lines "
                                "are written to it.\n")
                     .arg(m_maximumSize)
                     .arg(path)
                     .toUtf8());
    ::close(fd);
}
