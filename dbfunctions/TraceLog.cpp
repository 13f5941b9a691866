#include "TraceLog.h"

#include "Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

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

// Appends one line; rotates the file first when it has reached the size cap. Every failure is
// swallowed: the log must never disturb the program it records.
void TraceLog::Append(const QString& text) {
    try {
        QMutexLocker lock(&m_mutex);
        const QString path = FilePath();
        const QFileInfo info(path);
        if (info.exists() && info.size() >= m_maximumSize) {
            const QString rotated = path + QStringLiteral(".1");
            QFile::remove(rotated);
            QFile::rename(path, rotated);
        }
        QDir().mkpath(info.absolutePath());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
            return;
        QByteArray bytes = text.toUtf8();
        bytes.append('\n');
        file.write(bytes);
    } catch (...) {
    }
}
