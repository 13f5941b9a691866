#include "DataAccess.h"

#include "DataAccessCore.h"
#include "ExchangeFile.h"
#include "TraceLog.h"
#include "ZipArchive.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

// Export of service items and services into one archive (docs/exchange-format.md): songs as
// OpenLyrics files, other items and services as JSON, their files beside them, and a manifest.

using P = DataAccessPrivate;
using namespace ExchangeFile;

namespace {

// What an export was handed, written before it starts, so that the ids and the description a
// control chose can be read back from the trace.
void TraceExportArguments(const char* operation, const QVariant& varIDs,
                          const QString& strDescription) {
    TraceLog::Instance().WriteTraceLine(
        QStringLiteral("QVLTDBFUNCTIONS:DataAccess:%1: varIDs = %2, strDescription = %3, ")
            .arg(QLatin1String(operation), varIDs.toString(), strDescription));
}

bool IncludeProps() {
    QString ignored;
    const QVariant value = P::Scalar(QStringLiteral("SELECT IncludePropsOnImpExp FROM Options"), {},
                                     ignored, "Export");
    return value.isNull() || value.toInt() != 0;
}

// "3,5;7" as ids; false with the part that is no id.
bool ParseIds(const QString& strIDs, QList<qint32>& ids, QString& strBad) {
    for (const QString& part :
         strIDs.split(QRegularExpression(QStringLiteral("[,;]")), Qt::SkipEmptyParts)) {
        bool ok = false;
        const qint32 id = part.trimmed().toInt(&ok);
        if (!ok || id <= 0) {
            strBad = part.trimmed();
            return false;
        }
        if (!ids.contains(id))
            ids << id;
    }
    return true;
}

// The archive being put together: items by id in the order they were added.
class Package {
public:
    explicit Package(bool blnIncludeProps) : m_includeProps(blnIncludeProps) {}

    bool AddItem(qint32 lngID, bool blnAsProp, QString& strError) {
        if (lngID == 1)
            return true;
        if (m_index.contains(lngID)) {
            if (!blnAsProp)
                m_items[m_index.value(lngID)].OnlyAsProp = false;
            return true;
        }
        Exchange::Item item;
        if (!Exchange::ReadItem(lngID, item, strError))
            return false;
        item.OnlyAsProp = blnAsProp;
        m_index.insert(lngID, int(m_items.size()));
        m_items.append(item);
        // What it links to travels with it.
        for (qint32 image : item.Images)
            if (!AddItem(image, blnAsProp, strError))
                return false;
        bool numeric = false;
        const qint32 music =
            item.Fields.value(QStringLiteral("ServiceItemMusic")).toString().toInt(&numeric);
        if (numeric && !AddItem(music, blnAsProp, strError))
            return false;
        if (m_includeProps)
            for (qint32 prop : item.Props)
                if (!AddItem(prop, true, strError))
                    return false;
        return true;
    }

    bool AddService(qint32 lngID, QString& strError) {
        Exchange::Service service;
        if (!Exchange::ReadService(lngID, service, strError))
            return false;
        for (const Exchange::Row& row : service.Rows)
            if (!AddItem(row.ItemId, false, strError))
                return false;
        if (m_includeProps) {
            for (qint32 prop : service.Props)
                if (!AddItem(prop, true, strError))
                    return false;
        } else {
            service.Props.clear();
        }
        m_services.append(service);
        return true;
    }

    bool Write(QIODevice* device, const QString& strDescription, QString& strError);

private:
    QString FileEntry(Exchange::Item& item, const QString& strStored, const QString& strFolder);
    QJsonObject ItemEntry(Exchange::Item& item);

    bool m_includeProps;
    QList<Exchange::Item> m_items;
    QHash<qint32, int> m_index;
    QList<Exchange::Service> m_services;
    QList<std::pair<QString, QByteArray>> m_entries;
};

// A file of the item, when it is on this machine, as an entry "files/<id>/<name>".
QString Package::FileEntry(Exchange::Item& item, const QString& strStored,
                           const QString& strFolder) {
    const QString path = Exchange::LocalFile(strStored);
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return QString();
    const QString entry =
        QStringLiteral("files/%1/%2%3").arg(item.Id).arg(strFolder, QFileInfo(path).fileName());
    m_entries.append({entry, file.readAll()});
    return entry;
}

QString Slug(const QString& strTitle) {
    QString slug = strTitle;
    slug.replace(QRegularExpression(QStringLiteral("[^\\w\\- ]")), QString());
    return slug.simplified().left(40);
}

// The entry of the manifest for one item, with its files; a song gets its OpenLyrics file.
QJsonObject Package::ItemEntry(Exchange::Item& item) {
    item.ContentFile = FileEntry(
        item, item.Fields.value(QStringLiteral("ServiceItemFilename")).toString(), QString());
    const QString music = item.Fields.value(QStringLiteral("ServiceItemMusic")).toString();
    bool numeric = false;
    music.toInt(&numeric);
    if (!numeric)
        item.MusicFile = FileEntry(item, music, QStringLiteral("music/"));
    const QString stem =
        QStringLiteral("%1 %2").arg(item.Id, 4, 10, QLatin1Char('0')).arg(Slug(item.Title()));
    if (item.TypeId() != kSongType) {
        const QString name = QStringLiteral("items/%1.json").arg(stem.trimmed());
        m_entries.append({name, QJsonDocument(Exchange::ToJson(item)).toJson()});
        return {{QStringLiteral("item"), name}};
    }
    QMap<QString, QString> partNames;
    const OpenLyrics::Song song = SongOf(item, partNames);
    const QString name = QStringLiteral("songs/%1.xml").arg(stem.trimmed());
    m_entries.append({name, OpenLyrics::Write(song)});
    const bool hasParts = !item.Parts.isEmpty();
    item.Parts.clear();
    item.Order.clear();
    QJsonObject corvantis = Exchange::ToJson(item);
    QJsonObject names;
    for (auto it = partNames.cbegin(); it != partNames.cend(); ++it)
        names.insert(it.key(), it.value());
    corvantis.insert(QStringLiteral("partNames"), names);
    corvantis.insert(QStringLiteral("hasParts"), hasParts);
    return {{QStringLiteral("lyrics"), name}, {QStringLiteral("corvantis"), corvantis}};
}

bool Package::Write(QIODevice* device, const QString& strDescription, QString& strError) {
    QJsonArray items;
    for (Exchange::Item& item : m_items)
        items.append(ItemEntry(item));
    QJsonArray services;
    for (const Exchange::Service& service : std::as_const(m_services)) {
        const QString name = QStringLiteral("services/%1 %2.json")
                                 .arg(service.Id, 4, 10, QLatin1Char('0'))
                                 .arg(Slug(service.Title()))
                                 .trimmed();
        m_entries.append({name, QJsonDocument(Exchange::ToJson(service)).toJson()});
        services.append(name);
    }
    const QJsonObject manifest{
        {QStringLiteral("format"), QLatin1String(kFormat)},
        {QStringLiteral("version"), kVersion},
        {QStringLiteral("description"), strDescription},
        {QStringLiteral("exported"), QDateTime::currentDateTime().toString(Qt::ISODate)},
        {QStringLiteral("items"), items},
        {QStringLiteral("services"), services}};
    Zip::Writer zip(device);
    bool ok = zip.Add(QLatin1String(kManifest), QJsonDocument(manifest).toJson());
    for (const auto& [name, data] : std::as_const(m_entries))
        ok = ok && zip.Add(name, data);
    ok = ok && zip.Finish();
    if (!ok)
        strError = zip.Error();
    return ok;
}

void Export(const char* operation, bool blnServices, const QString& strIDs,
            const QString& strDescription, const QString& strFile, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!P::Ready(strErrorMessage, operation))
        return;
    QList<qint32> ids;
    QString strBad;
    if (!ParseIds(strIDs, ids, strBad)) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("\"%1\" is not the number of a %2.")
                    .arg(strBad,
                         blnServices ? QStringLiteral("service") : QStringLiteral("service item")));
        return;
    }
    if (ids.isEmpty() || (!blnServices && ids == QList<qint32>{1})) {
        P::Fail(strErrorMessage, operation, QStringLiteral("Nothing was chosen to export."));
        return;
    }
    Package package(IncludeProps());
    QString strError;
    for (qint32 id : ids)
        if (!(blnServices ? package.AddService(id, strError)
                          : package.AddItem(id, false, strError))) {
            P::Fail(strErrorMessage, operation, strError);
            return;
        }
    QSaveFile file(strFile);
    if (!file.open(QIODevice::WriteOnly) || !package.Write(&file, strDescription, strError) ||
        !file.commit()) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("The export cannot be written to %1: %2. Choose a folder in which "
                               "you may save files.")
                    .arg(QDir::toNativeSeparators(strFile),
                         strError.isEmpty() ? file.errorString() : strError));
    }
}

// Asks for the file, exports, and tells the user where it went.
void ExportAsked(const char* operation, bool blnServices, const QVariant& varIDs,
                 const QString& strDescription, QString& strErrorMessage) {
    strErrorMessage.clear();
    TraceExportArguments(operation, varIDs, strDescription);
    const DataAccess::ExchangeDialogs& dialogs = Dialogs();
    if (!dialogs.ChooseFileToSave) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("Exporting needs the Corvantis window to ask where to save."));
        return;
    }
    QString strName = Slug(strDescription);
    if (strName.isEmpty())
        strName = blnServices ? QStringLiteral("Services") : QStringLiteral("Service Items");
    const QString strFile = dialogs.ChooseFileToSave(
        ExportFilter(),
        blnServices ? QStringLiteral("Export Services") : QStringLiteral("Export Service Items"),
        strName + QStringLiteral(".cvx"));
    if (strFile.isEmpty())
        return; // cancelled
    Export(operation, blnServices, varIDs.toString(), strDescription, strFile, strErrorMessage);
    if (strErrorMessage.isEmpty() && dialogs.Tell)
        dialogs.Tell(QStringLiteral("\"%1\" was exported to %2.")
                         .arg(strDescription, QDir::toNativeSeparators(strFile)),
                     QStringLiteral("Export"));
}

} // namespace

void DataAccess::ExportServices(const QVariant& varIDs, const QString& strDescription,
                                QString& strErrorMessage) {
    ExportAsked("ExportServices", true, varIDs, strDescription, strErrorMessage);
}

void DataAccess::ExportServiceItems(const QVariant& varIDs, const QString& strDescription,
                                    QString& strErrorMessage) {
    ExportAsked("ExportServiceItems", false, varIDs, strDescription, strErrorMessage);
}

void DataAccess::ExportServicesToFile(const QString& strIDs, const QString& strDescription,
                                      const QString& strFile, QString& strErrorMessage) {
    Export("ExportServices", true, strIDs, strDescription, strFile, strErrorMessage);
}

void DataAccess::ExportServiceItemsToFile(const QString& strIDs, const QString& strDescription,
                                          const QString& strFile, QString& strErrorMessage) {
    Export("ExportServiceItems", false, strIDs, strDescription, strFile, strErrorMessage);
}
