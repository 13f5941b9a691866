#include "Settings.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

namespace {

// The file as lines, kept verbatim so that a write changes only the line it must.
QStringList ReadLines() {
    QFile file(Settings::IniPath());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

bool WriteLines(const QStringList& lines) {
    QDir().mkpath(Settings::IniFolder());
    QSaveFile file(Settings::IniPath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    for (const QString& line : lines) {
        file.write(line.toUtf8());
        file.write("\n");
    }
    return file.commit();
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
    const QStringList lines = ReadLines();
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
    QStringList lines = ReadLines();
    const Location where = Find(lines, section, key);
    const QString entry = key + QLatin1Char('=') + value;
    if (where.keyLine >= 0) {
        QString oldKey, oldValue;
        SplitEntry(lines[where.keyLine], oldKey, oldValue);
        lines[where.keyLine] = oldKey + QLatin1Char('=') + value;
    } else if (where.sectionLine >= 0) {
        lines.insert(where.sectionEnd, entry);
    } else {
        if (!lines.isEmpty() && !lines.last().trimmed().isEmpty())
            lines.append(QString());
        lines.append(QLatin1Char('[') + section + QLatin1Char(']'));
        lines.append(entry);
    }
    return WriteLines(lines);
}

bool Settings::DeletePrivateProfileKey(const QString& section, const QString& key) {
    QStringList lines = ReadLines();
    const Location where = Find(lines, section, key);
    if (where.keyLine < 0)
        return true;
    lines.removeAt(where.keyLine);
    return WriteLines(lines);
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
    QString folder = GetPrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"));
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                 QStringLiteral("/Corvantis");
    folder = QDir::fromNativeSeparators(folder);
    // The key may name the database file itself rather than its folder.
    if (folder.endsWith(QStringLiteral(".pdb"), Qt::CaseInsensitive))
        folder = folder.left(folder.lastIndexOf(QLatin1Char('/')));
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    return folder;
}
