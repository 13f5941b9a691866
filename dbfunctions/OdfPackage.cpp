#include "OdfPackage.h"

#include <QFile>
#include <QSaveFile>
#include <QtEndian>

#include <zlib.h>

// The zip format as far as OpenDocument packages need it: the central directory names every
// entry with its place, method (0 stored, 8 deflated), checksum and sizes. Entries are read
// through the central directory, so that packages whose local headers leave the sizes to a
// trailing descriptor read as well. Replaced parts are written stored, everything else is copied
// as it was compressed.

namespace {
constexpr quint32 kLocalSignature = 0x04034b50;
constexpr quint32 kCentralSignature = 0x02014b50;
constexpr quint32 kEndSignature = 0x06054b50;
constexpr int kEndSize = 22;
constexpr int kCentralSize = 46;
constexpr int kLocalSize = 30;
constexpr quint16 kUtf8Names = 0x0800;
// No template's XML comes near this; a larger size is a damaged or hostile file.
constexpr quint32 kLargestPart = 256u * 1024u * 1024u;

quint16 U16(const QByteArray& data, qsizetype at) {
    return qFromLittleEndian<quint16>(data.constData() + at);
}
quint32 U32(const QByteArray& data, qsizetype at) {
    return qFromLittleEndian<quint32>(data.constData() + at);
}
void Put16(QByteArray& out, quint16 value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}
void Put32(QByteArray& out, quint32 value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}
quint32 Crc(const QByteArray& data) {
    return static_cast<quint32>(crc32(crc32(0L, Z_NULL, 0),
                                      reinterpret_cast<const Bytef*>(data.constData()),
                                      static_cast<uInt>(data.size())));
}
bool LooksLikeXml(const QByteArray& data) {
    const QByteArray head = data.left(512).trimmed();
    return head.startsWith("<?xml") || head.startsWith("<office:document");
}
} // namespace

bool OdfPackage::Read(const QString& strPath, QString& strError) {
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)) {
        strError = QStringLiteral("The template file %1 cannot be read: %2")
                       .arg(strPath, file.errorString());
        return false;
    }
    const QByteArray data = file.readAll();
    m_entries.clear();
    m_flat = false;
    if (data.startsWith("PK\x03\x04")) {
        if (ReadZip(data, strError))
            return true;
        strError = QStringLiteral("The template file %1 is a damaged OpenDocument package: %2")
                       .arg(strPath, strError);
        return false;
    }
    if (LooksLikeXml(data)) {
        m_flat = true;
        m_flatXml = data;
        return true;
    }
    strError = QStringLiteral("The template file %1 is not an OpenDocument template (neither a "
                              "zip package nor an XML document).")
                   .arg(strPath);
    return false;
}

// One entry of the central directory at "at", with its stored bytes; "next" is where the
// following entry starts.
bool OdfPackage::ReadEntry(const QByteArray& file, qsizetype at, Entry& entry, qsizetype& next,
                           QString& strError) {
    if (at + kCentralSize > file.size() || U32(file, at) != kCentralSignature) {
        strError = QStringLiteral("its zip directory is damaged");
        return false;
    }
    entry.method = U16(file, at + 10);
    entry.modTime = U16(file, at + 12);
    entry.modDate = U16(file, at + 14);
    entry.crc = U32(file, at + 16);
    const quint32 compressed = U32(file, at + 20);
    entry.uncompressedSize = U32(file, at + 24);
    const quint16 nameLength = U16(file, at + 28);
    next = at + kCentralSize + nameLength + U16(file, at + 30) + U16(file, at + 32);
    entry.name = QString::fromUtf8(file.mid(at + kCentralSize, nameLength));
    const qsizetype local = U32(file, at + 42);
    if (local + kLocalSize > file.size() || U32(file, local) != kLocalSignature) {
        strError = QStringLiteral("the entry %1 is damaged").arg(entry.name);
        return false;
    }
    const qsizetype dataAt = local + kLocalSize + U16(file, local + 26) + U16(file, local + 28);
    if (dataAt + compressed > file.size()) {
        strError = QStringLiteral("the entry %1 is cut short").arg(entry.name);
        return false;
    }
    if (entry.method != 0 && entry.method != 8) {
        strError = QStringLiteral("the entry %1 is compressed in a way that is not supported")
                       .arg(entry.name);
        return false;
    }
    entry.raw = file.mid(dataAt, compressed);
    return true;
}

bool OdfPackage::ReadZip(const QByteArray& file, QString& strError) {
    qsizetype end = file.size() - kEndSize;
    while (end >= 0 && U32(file, end) != kEndSignature)
        --end;
    if (end < 0) {
        strError = QStringLiteral("no zip directory");
        return false;
    }
    const quint16 count = U16(file, end + 10);
    qsizetype at = U32(file, end + 16);
    for (quint16 i = 0; i < count; ++i) {
        Entry entry;
        if (!ReadEntry(file, at, entry, at, strError))
            return false;
        m_entries.append(entry);
    }
    for (Entry& entry : m_entries) {
        if (entry.name != QLatin1String("content.xml") && entry.name != QLatin1String("styles.xml"))
            continue;
        if (!Inflate(entry, entry.plain)) {
            strError = QStringLiteral("the entry %1 cannot be unpacked").arg(entry.name);
            return false;
        }
    }
    if (!Find(QStringLiteral("content.xml"))) {
        strError = QStringLiteral("it holds no content.xml");
        return false;
    }
    return true;
}

bool OdfPackage::Inflate(const Entry& entry, QByteArray& plain) {
    if (entry.uncompressedSize > kLargestPart)
        return false;
    if (entry.method == 0) {
        plain = entry.raw;
        return Crc(plain) == entry.crc;
    }
    plain.resize(entry.uncompressedSize);
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return false;
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(entry.raw.constData()));
    stream.avail_in = static_cast<uInt>(entry.raw.size());
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = static_cast<uInt>(plain.size());
    const int result = inflate(&stream, Z_FINISH);
    const bool ok = result == Z_STREAM_END && stream.total_out == entry.uncompressedSize;
    inflateEnd(&stream);
    return ok && Crc(plain) == entry.crc;
}

const OdfPackage::Entry* OdfPackage::Find(const QString& strName) const {
    for (const Entry& entry : m_entries)
        if (entry.name == strName)
            return &entry;
    return nullptr;
}

QStringList OdfPackage::XmlParts() const {
    if (m_flat)
        return {QString()};
    QStringList parts;
    for (const char* name : {"content.xml", "styles.xml"})
        if (Find(QString::fromLatin1(name)))
            parts << QString::fromLatin1(name);
    return parts;
}

QByteArray OdfPackage::Part(const QString& strName) const {
    if (m_flat)
        return strName.isEmpty() ? m_flatXml : QByteArray();
    const Entry* entry = Find(strName);
    return entry ? entry->plain : QByteArray();
}

void OdfPackage::SetPart(const QString& strName, const QByteArray& data) {
    if (m_flat) {
        if (strName.isEmpty())
            m_flatXml = data;
        return;
    }
    for (Entry& entry : m_entries) {
        if (entry.name == strName) {
            entry.plain = data;
            entry.replaced = true;
            return;
        }
    }
}

bool OdfPackage::Write(const QString& strPath, QString& strError) const {
    QByteArray out;
    if (m_flat) {
        out = m_flatXml;
    } else {
        QByteArray directory;
        for (const Entry& entry : m_entries) {
            const QByteArray data = entry.replaced ? entry.plain : entry.raw;
            const quint16 method = entry.replaced ? 0 : entry.method;
            const quint32 crc = entry.replaced ? Crc(entry.plain) : entry.crc;
            const quint32 size = entry.replaced ? entry.plain.size() : entry.uncompressedSize;
            const QByteArray name = entry.name.toUtf8();
            const quint32 offset = out.size();
            auto common = [&](QByteArray& header) {
                Put16(header, 20);
                Put16(header, kUtf8Names);
                Put16(header, method);
                Put16(header, entry.modTime);
                Put16(header, entry.modDate);
                Put32(header, crc);
                Put32(header, data.size());
                Put32(header, size);
                Put16(header, name.size());
                Put16(header, 0);
            };
            Put32(out, kLocalSignature);
            common(out);
            out += name;
            out += data;
            Put32(directory, kCentralSignature);
            Put16(directory, 20);
            common(directory);
            Put16(directory, 0); // comment
            Put16(directory, 0); // disk
            Put16(directory, 0); // internal attributes
            Put32(directory, 0); // external attributes
            Put32(directory, offset);
            directory += name;
        }
        const quint32 directoryAt = out.size();
        out += directory;
        Put32(out, kEndSignature);
        Put16(out, 0);
        Put16(out, 0);
        Put16(out, m_entries.size());
        Put16(out, m_entries.size());
        Put32(out, directory.size());
        Put32(out, directoryAt);
        Put16(out, 0);
    }
    QSaveFile file(strPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(out) != out.size() || !file.commit()) {
        strError = QStringLiteral("The document %1 cannot be written: %2")
                       .arg(strPath, file.errorString());
        return false;
    }
    return true;
}
