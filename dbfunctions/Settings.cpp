#include "Settings.h"

#include "ChangeStamps.h"

#include "TraceLog.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QStringList>

#include <optional>

#include <sys/stat.h>

namespace {

// Writes made by this program, for SettingsChangeStamp.
quint64 g_writes = 0;

// The file as it lies on disc: each line's bytes and its ending kept apart, so that a write
// puts back byte for byte every line it does not change (another encoding than UTF-8, CRLF
// endings, a byte-order mark, a last line without an ending). The texts are the lines as read
// for finding sections and keys: UTF-8, or Latin-1 for a line that is not valid UTF-8.
struct IniFile {
    QByteArray bom;
    QList<QByteArray> bytes;   // each line without its ending
    QList<QByteArray> endings; // "\n", "\r\n", or empty for a last line without one
    QStringList lines;

    QByteArray NewEnding() const {
        for (const QByteArray& ending : endings)
            if (!ending.isEmpty())
                return ending;
        return QByteArrayLiteral("\n");
    }
    void Set(qsizetype i, const QString& text) {
        lines[i] = text;
        bytes[i] = text.toUtf8();
    }
    void Insert(qsizetype i, const QString& text) {
        if (i > 0 && endings[i - 1].isEmpty())
            endings[i - 1] = NewEnding();
        lines.insert(i, text);
        bytes.insert(i, text.toUtf8());
        endings.insert(i, NewEnding());
    }
    void RemoveAt(qsizetype i) {
        lines.removeAt(i);
        bytes.removeAt(i);
        endings.removeAt(i);
    }
};

QString DecodeLine(const QByteArray& line) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(line);
    return utf8.hasError() ? QString::fromLatin1(line) : text;
}

void SplitLines(const QByteArray& content, IniFile& ini) {
    qsizetype from = 0;
    if (content.startsWith("\xEF\xBB\xBF")) {
        ini.bom = content.left(3);
        from = 3;
    }
    while (from < content.size()) {
        qsizetype end = content.indexOf('\n', from);
        const bool ended = end >= 0;
        if (!ended)
            end = content.size();
        const bool crlf = end > from && content[end - 1] == '\r';
        const QByteArray line = content.mid(from, end - from - (crlf ? 1 : 0));
        ini.bytes << line;
        ini.endings << (!ended ? QByteArray() : crlf ? QByteArrayLiteral("\r\n") : "\n");
        ini.lines << DecodeLine(line);
        from = end + 1;
    }
}

// Reads the file. A missing file is an empty one; a file that exists but cannot be read gives
// false and the reason, so that no write replaces what could not be read.
bool ReadIni(IniFile& ini, QString* error = nullptr) {
    QFile file(Settings::IniPath());
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        if (error)
            *error = file.errorString();
        return false;
    }
    SplitLines(content, ini);
    return true;
}

bool WriteIni(const IniFile& ini) {
    QDir().mkpath(Settings::IniFolder());
    QSaveFile file(Settings::IniPath());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(ini.bom);
    for (qsizetype i = 0; i < ini.bytes.size(); ++i) {
        file.write(ini.bytes[i]);
        file.write(ini.endings[i]);
    }
    return file.commit();
}

// Reads the file for a write; false (and an error line in the trace) when it cannot be read.
bool ReadForWrite(IniFile& ini, const char* operation) {
    QString error;
    if (ReadIni(ini, &error))
        return true;
    TraceLog::Instance().WriteErrorLine(
        QStringLiteral("QVLTDBFUNCTIONS:Settings:%1: %2 cannot be read (%3); nothing was written, "
                       "so that none of its settings is lost.")
            .arg(QLatin1String(operation), Settings::IniPath(), error));
    return false;
}

// "[Name]" gives Name; anything else a null string.
QString SectionName(const QString& line) {
    const QString trimmed = line.trimmed();
    if (trimmed.startsWith(QLatin1Char('[')) && trimmed.endsWith(QLatin1Char(']')))
        return trimmed.mid(1, trimmed.size() - 2).trimmed();
    return QString();
}

bool IsComment(const QString& line) {
    const QString trimmed = line.trimmed();
    return trimmed.isEmpty() || trimmed.startsWith(QLatin1Char(';'));
}

// Splits "key = value"; false for a line without "=".
bool SplitEntry(const QString& line, QString& key, QString& value) {
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0 || IsComment(line))
        return false;
    key = line.left(equals).trimmed();
    value = line.mid(equals + 1).trimmed();
    return true;
}

struct Location {
    qsizetype sectionLine = -1; // the "[Section]" line
    qsizetype sectionEnd = -1;  // the line after the section's last entry
    qsizetype keyLine = -1;
};

Location Find(const QStringList& lines, const QString& section, const QString& key) {
    Location where;
    bool inSection = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString name = SectionName(lines[i]);
        if (!name.isNull()) {
            if (inSection)
                return where;
            inSection = name.compare(section, Qt::CaseInsensitive) == 0;
            if (inSection) {
                where.sectionLine = i;
                where.sectionEnd = i + 1;
            }
            continue;
        }
        QString entryKey, value;
        if (inSection && SplitEntry(lines[i], entryKey, value)) {
            where.sectionEnd = i + 1;
            if (where.keyLine < 0 && entryKey.compare(key, Qt::CaseInsensitive) == 0)
                where.keyLine = i;
        }
    }
    return where;
}

} // namespace

QString Settings::GetPrivateProfileString(const QString& section, const QString& key,
                                          const QString& defaultValue) {
    IniFile ini;
    ReadIni(ini);
    const QStringList& lines = ini.lines;
    const Location where = Find(lines, section, key);
    if (where.keyLine < 0)
        return defaultValue;
    QString entryKey, value;
    SplitEntry(lines[where.keyLine], entryKey, value);
    return value;
}

qint32 Settings::GetPrivateProfileInt(const QString& section, const QString& key,
                                      qint32 defaultValue) {
    bool ok = false;
    const qint32 value = GetPrivateProfileString(section, key).toInt(&ok);
    return ok ? value : defaultValue;
}

bool Settings::WritePrivateProfileString(const QString& section, const QString& key,
                                         const QString& value) {
    IniFile ini;
    if (!ReadForWrite(ini, "WritePrivateProfileString"))
        return false;
    const Location where = Find(ini.lines, section, key);
    const QString entry = key + QLatin1Char('=') + value;
    if (where.keyLine >= 0) {
        QString oldKey, oldValue;
        SplitEntry(ini.lines[where.keyLine], oldKey, oldValue);
        ini.Set(where.keyLine, oldKey + QLatin1Char('=') + value);
    } else if (where.sectionLine >= 0) {
        ini.Insert(where.sectionEnd, entry);
    } else {
        if (!ini.lines.isEmpty() && !ini.lines.last().trimmed().isEmpty())
            ini.Insert(ini.lines.size(), QString());
        ini.Insert(ini.lines.size(), QLatin1Char('[') + section + QLatin1Char(']'));
        ini.Insert(ini.lines.size(), entry);
    }
    ++g_writes;
    return WriteIni(ini);
}

bool Settings::DeletePrivateProfileKey(const QString& section, const QString& key) {
    IniFile ini;
    if (!ReadForWrite(ini, "DeletePrivateProfileKey"))
        return false;
    const Location where = Find(ini.lines, section, key);
    if (where.keyLine < 0)
        return true;
    ini.RemoveAt(where.keyLine);
    ++g_writes;
    return WriteIni(ini);
}

namespace {

// The settings file as the system sees it, with the writes this program made to it: while none
// of it differs the file holds what it held. Every write of this program replaces the file (a
// new inode); a file rewritten in place by hand has another size or time of change.
struct IniFileState {
    QString path;
    quint64 writes = 0;
    bool exists = false;
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = -1;
    qint64 changedNs = 0;

    bool operator==(const IniFileState&) const = default;
};

// One stat of the file: what a trace line pays to know the data folder still holds.
IniFileState LookAtIniFile() {
    IniFileState state;
    state.path = Settings::IniPath();
    state.writes = g_writes;
    struct stat info;
    if (::stat(QFile::encodeName(state.path).constData(), &info) == 0) {
        state.exists = true;
        state.device = info.st_dev;
        state.inode = info.st_ino;
        state.size = info.st_size;
        state.changedNs = qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
    }
    return state;
}

// The file as it is now; while the operator's action is answered (StampHoldNow) it is looked at
// once, and again only after a write of this program.
IniFileState IniFileStateNow() {
    static QMutex lock;
    static IniFileState seen;
    static quint64 seenInHold = 0;
    const quint64 hold = StampHoldNow();
    const QMutexLocker locker(&lock);
    if (hold == 0 || hold != seenInHold || seen.writes != g_writes) {
        seen = LookAtIniFile();
        seenInHold = hold;
    }
    return seen;
}

} // namespace

QString SettingsChangeStamp() {
    // The look asks at every slide: the text is made again only when the file has changed.
    static QMutex lock;
    static std::optional<IniFileState> madeFor;
    static QString stamp;
    IniFileState state = IniFileStateNow();
    const QMutexLocker locker(&lock);
    if (!madeFor || state != *madeFor) {
        stamp = QStringLiteral("%1|%2|%3|%4|%5|%6")
                    .arg(state.path)
                    .arg(state.writes)
                    .arg(state.size)
                    .arg(state.changedNs)
                    .arg(state.device)
                    .arg(state.inode);
        madeFor = std::move(state);
    }
    return stamp;
}

QString Settings::IniFolder() {
    const QString fromEnvironment = qEnvironmentVariable("CORVANTIS_INI_DIR");
    if (!fromEnvironment.isEmpty())
        return QDir::cleanPath(fromEnvironment);
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Corvantis");
}

QString Settings::IniPath() {
    return IniFolder() + QStringLiteral("/Corvantis.ini");
}

QString Settings::DataFolder() {
    // Every trace line asks for it: the file is read again only when it has changed (or the
    // user's folders are others; while the operator's action is answered they are taken as
    // they were at its first line).
    static QMutex keptLock;
    static std::optional<IniFileState> keptState;
    static QString keptDataHome, keptFolder;
    static quint64 keptInHold = 0;
    const quint64 hold = StampHoldNow();
    const QMutexLocker lock(&keptLock);
    IniFileState state = IniFileStateNow();
    if (keptState && state == *keptState && hold != 0 && hold == keptInHold)
        return keptFolder;
    QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (keptState && state == *keptState && dataHome == keptDataHome) {
        keptInHold = hold;
        return keptFolder;
    }
    QString folder = GetPrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"));
    if (folder.isEmpty())
        folder = dataHome + QStringLiteral("/Corvantis");
    folder = QDir::fromNativeSeparators(folder);
    // The key may name the database file itself rather than its folder.
    if (folder.endsWith(QStringLiteral(".pdb"), Qt::CaseInsensitive))
        folder = folder.left(folder.lastIndexOf(QLatin1Char('/')));
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    keptState = std::move(state);
    keptDataHome = std::move(dataHome);
    keptFolder = folder;
    keptInHold = hold;
    return folder;
}
