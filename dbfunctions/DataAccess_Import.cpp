#include "DataAccess.h"

#include "DataAccessCore.h"
#include "ExchangeFile.h"
#include "SongBreakdown.h"
#include "ZipArchive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringDecoder>

// Import of the files docs/exchange-format.md describes: our export archives, OpenLyrics songs
// and the plain text of songs. All of a file comes in, or nothing: one transaction, and the files
// unpacked into the content folder are removed again when it does not go through.

using P = DataAccessPrivate;
using namespace ExchangeFile;

namespace {

const char* const kOperation = "ImportFile";

DataAccess::ImportReport& Report() {
    static DataAccess::ImportReport report;
    return report;
}

// What a file brings.
struct Contents {
    QList<Exchange::Item> Items;
    QList<Exchange::Service> Services;
    QHash<QString, QByteArray> Files;
};

QString Shortened(const QString& strText) {
    return strText.size() > 60 ? strText.left(57) + QStringLiteral("...") : strText;
}

bool CheckTitles(const Contents& contents, QString& strError) {
    for (const Exchange::Item& item : contents.Items)
        if (item.Title().size() > kMaxTitle) {
            strError = QStringLiteral("The service item \"%1\" has a title of %2 characters; a "
                                      "title may have at most %3.")
                           .arg(Shortened(item.Title()))
                           .arg(item.Title().size())
                           .arg(kMaxTitle);
            return false;
        }
    return true;
}

bool ReadJson(const QHash<QString, QByteArray>& files, const QString& strName, QJsonObject& object,
              QString& strError) {
    if (!files.contains(strName)) {
        strError = QStringLiteral("The export names %1, which it does not hold.").arg(strName);
        return false;
    }
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(files.value(strName), &parse);
    if (!document.isObject()) {
        strError =
            QStringLiteral("%1 of the export is damaged (%2).").arg(strName, parse.errorString());
        return false;
    }
    object = document.object();
    return true;
}

// A song of the archive: its OpenLyrics file, with what only Corvantis keeps laid over it.
bool ReadSong(const QJsonObject& entry, const QHash<QString, QByteArray>& files,
              Exchange::Item& item, QString& strError) {
    const QString name = entry.value(QStringLiteral("lyrics")).toString();
    OpenLyrics::Song song;
    QString why;
    if (!files.contains(name) || !OpenLyrics::Read(files.value(name), song, why)) {
        strError = QStringLiteral("The song %1 of the export cannot be read. %2").arg(name, why);
        return false;
    }
    const QJsonObject corvantis = entry.value(QStringLiteral("corvantis")).toObject();
    QMap<QString, QString> partNames;
    const QJsonObject names = corvantis.value(QStringLiteral("partNames")).toObject();
    for (auto it = names.begin(); it != names.end(); ++it)
        partNames.insert(it.key(), it.value().toString());
    Exchange::Item fromLyrics = ItemOf(song, partNames);
    if (corvantis.isEmpty()) {
        item = fromLyrics;
        return true;
    }
    if (!Exchange::FromJson(corvantis, item, strError))
        return false;
    if (corvantis.value(QStringLiteral("hasParts")).toBool(true)) {
        item.Parts = fromLyrics.Parts;
        item.Order = fromLyrics.Order;
    }
    return true;
}

bool ReadArchive(const QByteArray& bytes, Contents& contents, QString& strError) {
    QList<Zip::Entry> entries;
    if (!Zip::Read(bytes, entries, strError))
        return false;
    for (Zip::Entry& entry : entries)
        contents.Files.insert(entry.Name, std::move(entry.Data));
    QJsonObject manifest;
    if (!contents.Files.contains(QLatin1String(kManifest)) ||
        !ReadJson(contents.Files, QLatin1String(kManifest), manifest, strError) ||
        manifest.value(QStringLiteral("format")).toString() != QLatin1String(kFormat)) {
        strError = QStringLiteral("The archive is not a Corvantis export: it has no Corvantis "
                                  "manifest.");
        return false;
    }
    if (manifest.value(QStringLiteral("version")).toInt() > kVersion) {
        strError = QStringLiteral("The export was made by a newer Corvantis (format %1). Update "
                                  "Corvantis to import it.")
                       .arg(manifest.value(QStringLiteral("version")).toInt());
        return false;
    }
    for (const QJsonValue& value : manifest.value(QStringLiteral("items")).toArray()) {
        const QJsonObject entry = value.toObject();
        Exchange::Item item;
        QJsonObject object;
        if (entry.contains(QStringLiteral("lyrics"))) {
            if (!ReadSong(entry, contents.Files, item, strError))
                return false;
        } else if (!ReadJson(contents.Files, entry.value(QStringLiteral("item")).toString(), object,
                             strError) ||
                   !Exchange::FromJson(object, item, strError)) {
            return false;
        }
        contents.Items.append(item);
    }
    for (const QJsonValue& value : manifest.value(QStringLiteral("services")).toArray()) {
        QJsonObject object;
        Exchange::Service service;
        if (!ReadJson(contents.Files, value.toString(), object, strError) ||
            !Exchange::FromJson(object, service, strError))
            return false;
        contents.Services.append(service);
    }
    return true;
}

// Text as UTF-8 (with or without its byte order mark), else as Latin-1, the form older editors
// on Windows save; false for bytes that are no text (control characters other than tabs, line
// and page breaks: a picture, a document).
bool DecodeText(const QByteArray& bytes, QString& strText) {
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != '\f')
            return false;
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    strText = decoder.decode(bytes);
    if (decoder.hasError())
        strText = QString::fromLatin1(bytes);
    if (strText.startsWith(QChar(0xFEFF)))
        strText.remove(0, 1);
    return true;
}

// A song typed as text: its title on the first line, its parts separated by blank lines.
bool ReadPlainText(const QString& strText, Contents& contents, QString& strError) {
    QString text = strText;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const qsizetype end = text.indexOf(QLatin1Char('\n'));
    const QString title = (end < 0 ? text : text.left(end)).trimmed();
    const QString words = end < 0 ? QString() : text.mid(end + 1).trimmed();
    if (title.isEmpty() || words.isEmpty()) {
        strError = QStringLiteral("The text file holds no song: its first line is the title and "
                                  "the words follow, their parts separated by blank lines.");
        return false;
    }
    SongBreakdown::Breakdown breakdown = SongBreakdown::Propose(words);
    SongBreakdown::NumberParts(breakdown);
    OpenLyrics::Song song;
    song.Title = title;
    QMap<QString, QString> names;
    for (int n = 0; n < breakdown.Parts.size(); ++n) {
        const QString name = QStringLiteral("p%1").arg(n);
        names.insert(name, breakdown.Parts.at(n).Name);
        song.Verses.append({name, breakdown.Parts.at(n).Text, QString()});
    }
    for (int index : breakdown.Order)
        song.VerseOrder << QStringLiteral("p%1").arg(index);
    Exchange::Item item = ItemOf(song, names);
    for (int n = 0; n < item.Parts.size(); ++n)
        item.Parts[n].IsChorus = breakdown.Parts.at(n).IsChorus;
    item.Fields.insert(QStringLiteral("ServiceItemContent"), words);
    contents.Items.append(item);
    return true;
}

const QString kNotOurs =
    QStringLiteral("%1 is not a file Corvantis can import. Corvantis imports its own export files "
                   "(.cvx), OpenLyrics songs (.xml) and the words of a song as text (.txt).");

// Reads the file into what it brings; false with a sentence for the user.
bool ReadFile(const QString& strFile, Contents& contents, QString& strError) {
    const QFileInfo info(strFile);
    QFile file(strFile);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        strError = QStringLiteral("The file %1 cannot be opened: %2")
                       .arg(QDir::toNativeSeparators(strFile), file.errorString());
        return false;
    }
    const QByteArray head = file.peek(4096);
    const bool archive = Zip::LooksLikeArchive(head);
    const qint64 limit = archive ? kMaxArchive : kMaxSongFile;
    if (info.size() > limit) {
        strError = QStringLiteral("%1 is too large to import (%2 MB); %3 of up to %4 MB are "
                                  "imported.")
                       .arg(info.fileName())
                       .arg(double(info.size()) / (1024 * 1024), 0, 'f', 1)
                       .arg(archive ? QStringLiteral("exports") : QStringLiteral("songs"))
                       .arg(limit / (1024 * 1024));
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (archive)
        return ReadArchive(bytes, contents, strError);
    if (OpenLyrics::LooksLikeSong(bytes)) {
        OpenLyrics::Song song;
        if (!OpenLyrics::Read(bytes, song, strError))
            return false;
        contents.Items.append(ItemOf(song));
        return true;
    }
    QString text;
    if (!DecodeText(bytes, text) || text.trimmed().startsWith(QLatin1Char('<'))) {
        strError = kNotOurs.arg(info.fileName());
        return false;
    }
    return ReadPlainText(text, contents, strError);
}

bool IncludeProps() {
    QString ignored;
    const QVariant value = P::Scalar(QStringLiteral("SELECT IncludePropsOnImpExp FROM Options"), {},
                                     ignored, kOperation);
    return value.isNull() || value.toInt() != 0;
}

// Writes what the file brings, all or nothing.
bool WriteContents(const Contents& contents, DataAccess::ImportReport& report, QString& strError) {
    Exchange::Writer writer(IncludeProps());
    writer.SetFiles(&contents.Files);
    WriteScope scope(strError, kOperation);
    if (!scope.Ok() || !writer.AddItems(contents.Items, strError) ||
        !writer.AddServices(contents.Services, strError) || !scope.Commit()) {
        writer.Discard();
        return false;
    }
    report.ItemsAdded = writer.ItemsAdded();
    report.ServicesAdded = writer.ServicesAdded();
    report.AlreadyThere = writer.AlreadyThere();
    report.ServicesAlreadyThere = writer.ServicesAlreadyThere();
    return true;
}

QString Counted(qint32 n, const char* one, const char* many) {
    return n == 1 ? QStringLiteral("1 %1").arg(QLatin1String(one))
                  : QStringLiteral("%1 %2").arg(n).arg(QLatin1String(many));
}

QString ReportText(const DataAccess::ImportReport& report) {
    QString text = QStringLiteral("Imported from %1: %2")
                       .arg(QFileInfo(report.File).fileName(),
                            Counted(report.ItemsAdded, "service item", "service items"));
    if (report.ServicesAdded > 0 || !report.ServicesAlreadyThere.isEmpty())
        text += QStringLiteral(" and ") + Counted(report.ServicesAdded, "service", "services");
    text += QLatin1Char('.');
    QStringList there;
    for (const QString& title : report.AlreadyThere + report.ServicesAlreadyThere)
        there << QStringLiteral("\"%1\"").arg(Shortened(title));
    if (!there.isEmpty())
        text += QStringLiteral("\n\nAlready there, so not imported again: ") +
                there.join(QStringLiteral(", ")) + QLatin1Char('.');
    return text;
}

} // namespace

void DataAccess::ImportFile(const QString& strParam, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!P::Ready(strErrorMessage, kOperation))
        return;
    const ExchangeDialogs& dialogs = Dialogs();
    QString strFile = strParam;
    if (strFile.isEmpty()) {
        if (!dialogs.ChooseFileToOpen) {
            P::Fail(strErrorMessage, kOperation,
                    QStringLiteral("Importing needs the Corvantis window to ask for the file."));
            return;
        }
        strFile = dialogs.ChooseFileToOpen(ImportFilter(), QStringLiteral("Import"));
        if (strFile.isEmpty())
            return; // cancelled
    }
    Contents contents;
    QString strError;
    ImportReport report;
    report.File = strFile;
    if (!ReadFile(strFile, contents, strError) || !CheckTitles(contents, strError) ||
        !WriteContents(contents, report, strError)) {
        if (strError.startsWith(QLatin1String("QVLTDBFUNCTIONS:")))
            strErrorMessage = strError; // the store said it already
        else
            P::Fail(strErrorMessage, kOperation,
                    strError + QStringLiteral(" Nothing was imported."));
        return;
    }
    Report() = report;
    if (strParam.isEmpty() && dialogs.Tell)
        dialogs.Tell(ReportText(report), QStringLiteral("Import"));
}

DataAccess::ImportReport DataAccess::LastImport() {
    return Report();
}
