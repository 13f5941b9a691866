#include "TraceFile.h"

#include <QFile>

TraceFile::TraceFile() {
    Mark();
}

QString TraceFile::Path() {
    return qEnvironmentVariable("CORVANTIS_TRACE");
}

QStringList TraceFile::AllLines() {
    QFile file(Path());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void TraceFile::Clear() {
    QFile file(Path());
    if (file.exists())
        file.resize(0);
}

void TraceFile::Mark() {
    m_intLinesBefore = AllLines().size();
}

QStringList TraceFile::NewLines() const {
    const QStringList all = AllLines();
    // The file may have been emptied or rotated since the mark.
    if (all.size() < m_intLinesBefore)
        return all;
    return all.mid(m_intLinesBefore);
}

bool TraceFile::HasLineStartingWith(const QString& strStart) const {
    for (const QString& line : NewLines())
        if (line.startsWith(strStart))
            return true;
    return false;
}

bool TraceFile::HasLineContaining(const QString& strPart) const {
    for (const QString& line : NewLines())
        if (line.contains(strPart))
            return true;
    return false;
}

QStringList TraceFile::NewErrorLines() const {
    QStringList lines;
    const QString marker = QStringLiteral("ERROR: ");
    for (const QString& line : NewLines())
        if (line.startsWith(marker))
            lines << line.mid(marker.size());
    return lines;
}
