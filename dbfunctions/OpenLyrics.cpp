#include "OpenLyrics.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace OpenLyrics {

namespace {

const QString kNamespace = QStringLiteral("http://openlyrics.info/namespace/2009/song");

struct Kind {
    const char* letter;
    const char* word;
};
// The kinds of part both sides know, by OpenLyrics letter and Corvantis word.
constexpr Kind kKinds[] = {{"v", "Verse"}, {"c", "Chorus"}, {"b", "Bridge"}, {"p", "Pre-Chorus"},
                           {"i", "Intro"}, {"e", "Ending"}, {"o", "Other"}};

void WriteList(QXmlStreamWriter& xml, const char* group, const char* each,
               const QStringList& values) {
    if (values.isEmpty())
        return;
    xml.writeStartElement(QLatin1String(group));
    for (const QString& value : values)
        xml.writeTextElement(QLatin1String(each), value);
    xml.writeEndElement();
}

void WriteLines(QXmlStreamWriter& xml, const QString& strText) {
    xml.writeStartElement(QStringLiteral("lines"));
    const QStringList lines = strText.split(QLatin1Char('\n'));
    for (qsizetype n = 0; n < lines.size(); ++n) {
        if (n > 0)
            xml.writeEmptyElement(QStringLiteral("br"));
        xml.writeCharacters(lines.at(n));
    }
    xml.writeEndElement();
}

// The words of a lines element: <br/> ends a line, chords give their text (if
// any), comments are dropped; white space inside the XML is not a line break.
QString ReadLines(QXmlStreamReader& xml) {
    QStringList lines{QString()};
    int depth = 1;
    while (depth > 0 && !xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (xml.name() == QLatin1String("br"))
                lines.append(QString());
            else if (xml.name() == QLatin1String("comment"))
                xml.skipCurrentElement();
            else
                ++depth;
            break;
        case QXmlStreamReader::EndElement:
            if (xml.name() != QLatin1String("br"))
                --depth;
            break;
        case QXmlStreamReader::Characters:
            lines.last() += xml.text();
            break;
        default:
            break;
        }
    }
    for (QString& line : lines)
        line = line.simplified();
    while (!lines.isEmpty() && lines.first().isEmpty())
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines.join(QLatin1Char('\n'));
}

Verse ReadVerse(QXmlStreamReader& xml) {
    Verse verse;
    verse.Name = xml.attributes().value(QStringLiteral("name")).toString().trimmed();
    verse.Lang = xml.attributes().value(QStringLiteral("lang")).toString();
    QStringList groups;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("lines"))
            groups << ReadLines(xml);
        else
            xml.skipCurrentElement();
    }
    groups.removeAll(QString());
    verse.Text = groups.join(QLatin1Char('\n'));
    return verse;
}

struct Title {
    QString Text;
    QString Lang;
};

void ReadProperties(QXmlStreamReader& xml, Song& song, QList<Title>& titles) {
    while (xml.readNextStartElement()) {
        const auto name = xml.name();
        if (name == QLatin1String("titles")) {
            while (xml.readNextStartElement()) {
                if (xml.name() == QLatin1String("title")) {
                    const QString lang = xml.attributes().value(QStringLiteral("lang")).toString();
                    titles.append({xml.readElementText().simplified(), lang});
                } else {
                    xml.skipCurrentElement();
                }
            }
        } else if (name == QLatin1String("authors") || name == QLatin1String("themes")) {
            QStringList& list = name == QLatin1String("authors") ? song.Authors : song.Themes;
            while (xml.readNextStartElement()) {
                const QString text =
                    xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
                if (!text.isEmpty() && !list.contains(text))
                    list << text;
            }
        } else if (name == QLatin1String("copyright")) {
            song.Copyright = xml.readElementText().simplified();
        } else if (name == QLatin1String("key")) {
            song.Key = xml.readElementText().simplified();
        } else if (name == QLatin1String("verseOrder")) {
            song.VerseOrder =
                xml.readElementText().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        } else {
            xml.skipCurrentElement();
        }
    }
}

// The verses of the song's first language, the title in it, and the order
// without names that no verse has.
void KeepOneLanguage(Song& song, const QList<Title>& titles) {
    QString lang = titles.isEmpty() ? QString() : titles.first().Lang;
    if (lang.isEmpty() && !song.Verses.isEmpty())
        lang = song.Verses.first().Lang;
    song.Title = titles.isEmpty() ? QString() : titles.first().Text;
    if (!lang.isEmpty()) {
        for (const Title& title : titles)
            if (title.Lang == lang) {
                song.Title = title.Text;
                break;
            }
        QList<Verse> kept;
        for (const Verse& verse : song.Verses)
            if (verse.Lang.isEmpty() || verse.Lang == lang)
                kept << verse;
        if (!kept.isEmpty())
            song.Verses = kept;
    }
    QStringList order;
    for (const QString& name : song.VerseOrder)
        for (const Verse& verse : song.Verses)
            if (verse.Name == name) {
                order << name;
                break;
            }
    song.VerseOrder = order;
}

} // namespace

QByteArray Write(const Song& song) {
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("song"));
    xml.writeDefaultNamespace(kNamespace);
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("0.9"));
    xml.writeAttribute(QStringLiteral("createdIn"), QStringLiteral("Corvantis"));
    xml.writeAttribute(QStringLiteral("modifiedIn"), QStringLiteral("Corvantis"));
    xml.writeAttribute(QStringLiteral("modifiedDate"),
                       QDateTime::currentDateTime().toString(Qt::ISODate));
    xml.writeStartElement(QStringLiteral("properties"));
    WriteList(xml, "titles", "title", {song.Title});
    WriteList(xml, "authors", "author", song.Authors);
    if (!song.Copyright.isEmpty())
        xml.writeTextElement(QStringLiteral("copyright"), song.Copyright);
    if (!song.Key.isEmpty())
        xml.writeTextElement(QStringLiteral("key"), song.Key);
    if (!song.VerseOrder.isEmpty())
        xml.writeTextElement(QStringLiteral("verseOrder"), song.VerseOrder.join(QLatin1Char(' ')));
    WriteList(xml, "themes", "theme", song.Themes);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("lyrics"));
    for (const Verse& verse : song.Verses) {
        xml.writeStartElement(QStringLiteral("verse"));
        xml.writeAttribute(QStringLiteral("name"), verse.Name);
        if (!verse.Lang.isEmpty())
            xml.writeAttribute(QStringLiteral("lang"), verse.Lang);
        WriteLines(xml, verse.Text);
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndDocument();
    return out;
}

bool LooksLikeSong(const QByteArray& bytes) {
    QXmlStreamReader xml(bytes.left(4096));
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            return xml.name() == QLatin1String("song");
    }
    return false;
}

bool Read(const QByteArray& bytes, Song& song, QString& strError) {
    song = Song();
    QXmlStreamReader xml(bytes);
    QList<Title> titles;
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("song")) {
        strError = xml.hasError() ? QString()
                                  : QStringLiteral("The file is not an OpenLyrics "
                                                   "song: its first element is not "
                                                   "<song>.");
    } else {
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("properties")) {
                ReadProperties(xml, song, titles);
            } else if (xml.name() == QLatin1String("lyrics")) {
                while (xml.readNextStartElement()) {
                    if (xml.name() == QLatin1String("verse"))
                        song.Verses << ReadVerse(xml);
                    else
                        xml.skipCurrentElement();
                }
            } else {
                xml.skipCurrentElement();
            }
        }
    }
    if (xml.hasError()) {
        strError = QStringLiteral("The song is not well-formed XML (line %1: %2).")
                       .arg(xml.lineNumber())
                       .arg(xml.errorString());
        return false;
    }
    if (!strError.isEmpty())
        return false;
    KeepOneLanguage(song, titles);
    if (song.Title.isEmpty()) {
        strError = QStringLiteral("The OpenLyrics song has no title.");
        return false;
    }
    if (song.Verses.isEmpty()) {
        strError = QStringLiteral("The OpenLyrics song \"%1\" has no words.").arg(song.Title);
        return false;
    }
    return true;
}

QString NameFor(const QString& strPartName, bool blnIsChorus) {
    static const QRegularExpression pattern(QStringLiteral("^([A-Za-z-]+)(?: (\\d+[a-z]?))?$"));
    const QRegularExpressionMatch match = pattern.match(strPartName.trimmed());
    if (!match.hasMatch())
        return QString();
    for (const Kind& kind : kKinds) {
        if (match.captured(1).compare(QLatin1String(kind.word), Qt::CaseInsensitive) != 0)
            continue;
        if (QLatin1String(kind.letter) == QLatin1String("c") && !blnIsChorus)
            return QString();
        if (QLatin1String(kind.letter) != QLatin1String("c") && blnIsChorus)
            return QString();
        if (QLatin1String(kind.letter) == QLatin1String("o"))
            return QString();
        return QLatin1String(kind.letter) + match.captured(2);
    }
    return QString();
}

QString PartNameOf(const QString& strVerseName) {
    static const QRegularExpression pattern(QStringLiteral("^([a-z])(\\d*[a-z]?)$"));
    const QRegularExpressionMatch match = pattern.match(strVerseName.trimmed());
    if (!match.hasMatch())
        return strVerseName.trimmed().isEmpty() ? QStringLiteral("Other") : strVerseName.trimmed();
    for (const Kind& kind : kKinds)
        if (match.captured(1) == QLatin1String(kind.letter))
            return match.captured(2).isEmpty()
                       ? QString::fromLatin1(kind.word)
                       : QStringLiteral("%1 %2").arg(QLatin1String(kind.word), match.captured(2));
    return strVerseName.trimmed();
}

bool IsChorusName(const QString& strVerseName) {
    return strVerseName.trimmed().startsWith(QLatin1Char('c'));
}

} // namespace OpenLyrics
