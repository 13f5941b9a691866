#include "SlideCutter.h"

#include <QRegularExpression>

QStringList SlideCutter::SplitLines(const QString& text) {
    QString normal = text;
    normal.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    normal.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines = normal.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.trimmed();
    while (!lines.isEmpty() && lines.first().isEmpty())
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QList<QStringList> SlideCutter::SplitParagraphs(const QStringList& lines) {
    QList<QStringList> paragraphs;
    QStringList current;
    for (const QString& line : lines) {
        if (line.isEmpty()) {
            if (!current.isEmpty())
                paragraphs << current;
            current.clear();
        } else {
            current << line;
        }
    }
    if (!current.isEmpty())
        paragraphs << current;
    return paragraphs;
}

QList<Slide> SlideCutter::CutSong(const RunItem& item) const {
    QList<Slide> slides;
    for (const RunItem::Part& part : item.parts) {
        Slide slide = Base(item);
        slide.kind = Slide::Kind::Text;
        slide.partName = part.name;
        slide.lines = SplitLines(part.text);
        slides << slide;
    }
    Number(slides, Slide::PartSong);
    return slides;
}

QList<QStringList> SlideCutter::Pages(const RunItem& item, const QStringList& lines) const {
    QList<QStringList> pages;
    switch (item.textViewMode) {
    case 1: { // a number of lines at a time; blank lines don't count
        QStringList filled;
        for (const QString& line : lines)
            if (!line.isEmpty())
                filled << line;
        const int n = qMax<int>(1, item.linesAtATime);
        for (int i = 0; i < filled.size(); i += n)
            pages << filled.mid(i, n);
        break;
    }
    case 2: // a screenful at a time
        for (int first = 0; first < lines.size();) {
            const int count = m_fit ? qMax(1, m_fit(lines, first)) : lines.size();
            QStringList page = SplitLines(lines.mid(first, count).join(QLatin1Char('\n')));
            if (!page.isEmpty())
                pages << page;
            first += count;
        }
        break;
    case 3: // verse by verse: the paragraphs of the text
        pages = SplitParagraphs(lines);
        break;
    default: // the entire item
        pages << lines;
        break;
    }
    if (pages.isEmpty())
        pages << QStringList();
    return pages;
}

QList<Slide> SlideCutter::CutText(const RunItem& item) const {
    QList<Slide> slides;
    for (const QStringList& page : Pages(item, SplitLines(item.text))) {
        Slide slide = Base(item);
        slide.kind = Slide::Kind::Text;
        slide.lines = page;
        slides << slide;
    }
    Number(slides, Slide::PartText);
    return slides;
}
