#include "ExchangeFile.h"

#include "DataAccessCore.h"
#include "SongBreakdown.h"

using P = DataAccessPrivate;

namespace ExchangeFile {

namespace {
DataAccess::ExchangeDialogs& Installed() {
    static DataAccess::ExchangeDialogs dialogs;
    return dialogs;
}

// The parts of a song that was never broken down: proposed from its words.
void ProposeParts(Exchange::Item& item) {
    SongBreakdown::Breakdown breakdown =
        SongBreakdown::Propose(item.Fields.value(QStringLiteral("ServiceItemContent")).toString());
    SongBreakdown::NumberParts(breakdown);
    for (const SongBreakdown::Part& part : breakdown.Parts)
        item.Parts.append({part.Name, part.Text, part.IsChorus});
    item.Order = breakdown.Order;
}
} // namespace

const DataAccess::ExchangeDialogs& Dialogs() {
    return Installed();
}

QString ExportFilter() {
    return QStringLiteral("Corvantis export files (*.cvx)|*.cvx");
}

QString ImportFilter() {
    return QStringLiteral("Files Corvantis can import (*.cvx;*.xml;*.txt)|*.cvx;*.xml;*.txt|"
                          "Corvantis export files (*.cvx)|*.cvx|OpenLyrics songs (*.xml)|*.xml|"
                          "Text files (*.txt)|*.txt|All files (*.*)|*.*");
}

OpenLyrics::Song SongOf(const Exchange::Item& source, QMap<QString, QString>& partNames) {
    Exchange::Item item = source;
    if (item.Parts.isEmpty())
        ProposeParts(item);
    OpenLyrics::Song song;
    song.Title = item.Title();
    for (const QString& author :
         P::ToDisplay(item.Fields.value(QStringLiteral("ServiceItemSource")).toString())
             .split(QLatin1Char(';'), Qt::SkipEmptyParts))
        if (!author.trimmed().isEmpty())
            song.Authors << author.trimmed();
    song.Copyright = item.Fields.value(QStringLiteral("ServiceItemCopyrightDetails")).toString();
    song.Key = item.Fields.value(QStringLiteral("ServiceItemSongKey")).toString();
    for (const QString& keyword : item.Keywords)
        song.Themes << P::ToDisplay(keyword);
    QStringList names;
    int others = 0;
    for (const Exchange::Part& part : item.Parts) {
        QString name = OpenLyrics::NameFor(part.Name, part.IsChorus);
        if (name.isEmpty() || names.contains(name)) {
            const QString letter = part.IsChorus ? QStringLiteral("c") : QStringLiteral("o");
            do
                name = letter + QString::number(++others);
            while (names.contains(name));
        }
        names << name;
        partNames.insert(name, part.Name);
        song.Verses.append({name, part.Text, QString()});
    }
    for (int index : item.Order)
        song.VerseOrder << names.value(index);
    return song;
}

Exchange::Item ItemOf(const OpenLyrics::Song& song, const QMap<QString, QString>& partNames) {
    Exchange::Item item;
    QStringList words;
    QHash<QString, int> index;
    for (const OpenLyrics::Verse& verse : song.Verses) {
        if (index.contains(verse.Name))
            continue; // a second verse of one name (another language) is not a part of its own
        index.insert(verse.Name, int(item.Parts.size()));
        item.Parts.append({partNames.value(verse.Name, OpenLyrics::PartNameOf(verse.Name)),
                           verse.Text, OpenLyrics::IsChorusName(verse.Name)});
        words << verse.Text;
    }
    for (const QString& name : song.VerseOrder)
        item.Order << index.value(name);
    if (item.Order.isEmpty())
        for (int n = 0; n < item.Parts.size(); ++n)
            item.Order << n;
    for (const QString& theme : song.Themes)
        item.Keywords << P::ToStored(theme);
    const auto text = [](const QString& value) { return P::EmptyToNull(value); };
    item.Fields = {
        {QStringLiteral("ServiceItemTypeID"), kSongType},
        {QStringLiteral("ServiceItemDescription"), P::ToStored(song.Title)},
        {QStringLiteral("ServiceItemSource"), text(song.Authors.join(QStringLiteral("; ")))},
        {QStringLiteral("ServiceItemCopyrightDetails"), text(song.Copyright)},
        {QStringLiteral("ServiceItemSongKey"), text(song.Key)},
        {QStringLiteral("ServiceItemContent"), words.join(QStringLiteral("\n\n"))},
        {QStringLiteral("ServiceItemDateCreated"), P::Now()},
        {QStringLiteral("TextViewMode"), 3}};
    return item;
}

} // namespace ExchangeFile

void DataAccess::SetExchangeDialogs(ExchangeDialogs dialogs) {
    ExchangeFile::Installed() = std::move(dialogs);
}
