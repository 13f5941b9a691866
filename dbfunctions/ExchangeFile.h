#pragma once

// Shared by the export, the import and the printed sheets of the data library (not part of
// its public interface): what they ask of the user, and the names inside an export file.

#include "DataAccess.h"
#include "Exchange.h"
#include "OpenLyrics.h"

namespace ExchangeFile {

// The dialogs the controls installed (DataAccess::SetExchangeDialogs).
const DataAccess::ExchangeDialogs& Dialogs();

constexpr const char* kManifest = "manifest.json";
constexpr const char* kFormat = "Corvantis export";
constexpr int kVersion = 1;
// The type of a song or hymn, which travels as OpenLyrics.
constexpr qint32 kSongType = 17;
// Longest title an import takes: longer ones are not a song's title but a damaged file.
constexpr int kMaxTitle = 255;
// Largest song file (OpenLyrics or text) and largest export file an import reads.
constexpr qint64 kMaxSongFile = 2 * 1024 * 1024;
constexpr qint64 kMaxArchive = 512 * 1024 * 1024;

QString ExportFilter();
QString ImportFilter();

// A song as OpenLyrics, and the names of its parts (OpenLyrics name -> ours).
OpenLyrics::Song SongOf(const Exchange::Item& item, QMap<QString, QString>& partNames);
// A song read from OpenLyrics as an item of type Hymn (partNames may rename the parts).
Exchange::Item ItemOf(const OpenLyrics::Song& song, const QMap<QString, QString>& partNames = {});

} // namespace ExchangeFile
