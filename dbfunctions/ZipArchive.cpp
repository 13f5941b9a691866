#include "ZipArchive.h"

#include <QDateTime>
#include <QIODevice>
#include <QtEndian>

#include <zlib.h>

namespace Zip {

namespace {

constexpr quint32 kLocalHeader = 0x04034b50;
constexpr quint32 kCentralHeader = 0x02014b50;
constexpr quint32 kEndOfDirectory = 0x06054b50;
constexpr quint16 kStored = 0;
constexpr quint16 kDeflated = 8;
constexpr quint16 kUtf8Names = 1 << 11;
constexpr quint16 kEncrypted = 1;
constexpr quint16 kVersion = 20;
constexpr int kEndSize = 22;
constexpr int kLocalSize = 30;
constexpr int kCentralSize = 46;

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

quint16 Get16(const QByteArray& in, qint64 at) {
    return qFromLittleEndian<quint16>(in.constData() + at);
}

quint32 Get32(const QByteArray& in, qint64 at) {
    return qFromLittleEndian<quint32>(in.constData() + at);
}

// The time of writing in MS-DOS form, as the format keeps it.
void DosNow(quint16& time, quint16& date) {
    const QDateTime now = QDateTime::currentDateTime();
    time =
        quint16((now.time().hour() << 11) | (now.time().minute() << 5) | (now.time().second() / 2));
    date = quint16(((qMax(now.date().year(), 1980) - 1980) << 9) | (now.date().month() << 5) |
                   now.date().day());
}

quint32 Crc(const QByteArray& data) {
    return quint32(crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(data.constData()),
                         uInt(data.size())));
}

// Raw deflate (no zlib header), as zip stores it.
bool Deflate(const QByteArray& data, QByteArray& packed) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        return false;
    packed.resize(qsizetype(deflateBound(&stream, uLong(data.size()))));
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.constData()));
    stream.avail_in = uInt(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = uInt(packed.size());
    const int result = deflate(&stream, Z_FINISH);
    packed.resize(qsizetype(stream.total_out));
    deflateEnd(&stream);
    return result == Z_STREAM_END;
}

bool Inflate(const char* packed, qint64 packedSize, qint64 size, QByteArray& data) {
    data.resize(qsizetype(size));
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return false;
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed));
    stream.avail_in = uInt(packedSize);
    stream.next_out = reinterpret_cast<Bytef*>(data.data());
    stream.avail_out = uInt(size);
    const int result = inflate(&stream, Z_FINISH);
    const bool whole = result == Z_STREAM_END && qint64(stream.total_out) == size;
    inflateEnd(&stream);
    return whole;
}

const QString kBroken = QStringLiteral("The archive is damaged or incomplete (%1).");

} // namespace

Writer::Writer(QIODevice* pDevice) : m_device(pDevice) {}

bool Writer::Put(const QByteArray& bytes) {
    if (m_device->write(bytes) != bytes.size()) {
        m_error = m_device->errorString();
        return false;
    }
    m_offset += bytes.size();
    return true;
}

bool Writer::Add(const QString& strName, const QByteArray& data, bool blnCompress) {
    if (m_offset + data.size() > qint64(0xFFFFFFF0)) {
        m_error = QStringLiteral("The export would be larger than 4 GB.");
        return false;
    }
    Written entry;
    entry.name = strName.toUtf8();
    entry.crc = Crc(data);
    entry.size = quint32(data.size());
    entry.offset = quint32(m_offset);
    QByteArray packed;
    if (blnCompress && !data.isEmpty() && Deflate(data, packed) && packed.size() < data.size())
        entry.method = kDeflated;
    else
        packed = data, entry.method = kStored;
    entry.packedSize = quint32(packed.size());
    quint16 time = 0, date = 0;
    DosNow(time, date);
    QByteArray header;
    Put32(header, kLocalHeader);
    Put16(header, kVersion);
    Put16(header, kUtf8Names);
    Put16(header, entry.method);
    Put16(header, time);
    Put16(header, date);
    Put32(header, entry.crc);
    Put32(header, entry.packedSize);
    Put32(header, entry.size);
    Put16(header, quint16(entry.name.size()));
    Put16(header, 0);
    header.append(entry.name);
    if (!Put(header) || !Put(packed))
        return false;
    m_written.append(entry);
    return true;
}

bool Writer::Finish() {
    const qint64 start = m_offset;
    quint16 time = 0, date = 0;
    DosNow(time, date);
    QByteArray directory;
    for (const Written& entry : m_written) {
        Put32(directory, kCentralHeader);
        Put16(directory, kVersion); // made by
        Put16(directory, kVersion); // needed
        Put16(directory, kUtf8Names);
        Put16(directory, entry.method);
        Put16(directory, time);
        Put16(directory, date);
        Put32(directory, entry.crc);
        Put32(directory, entry.packedSize);
        Put32(directory, entry.size);
        Put16(directory, quint16(entry.name.size()));
        Put16(directory, 0); // extra
        Put16(directory, 0); // comment
        Put16(directory, 0); // disk
        Put16(directory, 0); // internal attributes
        Put32(directory, 0); // external attributes
        Put32(directory, entry.offset);
        directory.append(entry.name);
    }
    QByteArray end;
    Put32(end, kEndOfDirectory);
    Put16(end, 0);
    Put16(end, 0);
    Put16(end, quint16(m_written.size()));
    Put16(end, quint16(m_written.size()));
    Put32(end, quint32(directory.size()));
    Put32(end, quint32(start));
    Put16(end, 0);
    if (m_written.size() > 0xFFFF) {
        m_error = QStringLiteral("The export would hold more than 65535 files.");
        return false;
    }
    return Put(directory) && Put(end);
}

bool LooksLikeArchive(const QByteArray& bytes) {
    return bytes.size() >= 4 &&
           (Get32(bytes, 0) == kLocalHeader || Get32(bytes, 0) == kEndOfDirectory);
}

bool IsSafeName(const QString& strName) {
    if (strName.isEmpty() || strName.startsWith(QLatin1Char('/')) ||
        strName.startsWith(QLatin1Char('\\')) || strName.contains(QLatin1Char(':')) ||
        strName.contains(QChar(0)))
        return false;
    const QStringList parts =
        QString(strName).replace(QLatin1Char('\\'), QLatin1Char('/')).split(QLatin1Char('/'));
    for (const QString& part : parts)
        if (part == QLatin1String(".."))
            return false;
    return true;
}

namespace {

qint64 FindEnd(const QByteArray& archive) {
    const qint64 lowest = qMax<qint64>(0, archive.size() - kEndSize - 0xFFFF);
    for (qint64 at = archive.size() - kEndSize; at >= lowest; --at)
        if (Get32(archive, at) == kEndOfDirectory)
            return at;
    return -1;
}

// One entry of the central directory at offset at; false with strError.
bool ReadEntry(const QByteArray& archive, qint64& at, qint64& unpacked, Entry& entry,
               QString& strError, const Limits& limits) {
    const qint64 size = archive.size();
    if (at + kCentralSize > size || Get32(archive, at) != kCentralHeader) {
        strError = kBroken.arg(QStringLiteral("its list of files is cut short"));
        return false;
    }
    const quint16 flags = Get16(archive, at + 8);
    const quint16 method = Get16(archive, at + 10);
    const quint32 crc = Get32(archive, at + 16);
    const qint64 packedSize = Get32(archive, at + 20);
    const qint64 fileSize = Get32(archive, at + 24);
    const qint64 nameLength = Get16(archive, at + 28);
    const qint64 skip = nameLength + Get16(archive, at + 30) + Get16(archive, at + 32);
    const qint64 local = Get32(archive, at + 42);
    if (at + kCentralSize + skip > size) {
        strError = kBroken.arg(QStringLiteral("a file name is cut short"));
        return false;
    }
    const QByteArray rawName = archive.mid(at + kCentralSize, nameLength);
    entry.Name = (flags & kUtf8Names) ? QString::fromUtf8(rawName) : QString::fromLatin1(rawName);
    at += kCentralSize + skip;
    if (!IsSafeName(entry.Name)) {
        strError = QStringLiteral("The archive holds a file named \"%1\", which would be written "
                                  "outside the folder it is unpacked into. Such an archive is "
                                  "refused.")
                       .arg(entry.Name);
        return false;
    }
    if (flags & kEncrypted) {
        strError = QStringLiteral("The archive is protected by a password (%1).").arg(entry.Name);
        return false;
    }
    if (method != kStored && method != kDeflated) {
        strError = QStringLiteral("The archive packs %1 in a way Corvantis cannot unpack.")
                       .arg(entry.Name);
        return false;
    }
    unpacked += fileSize;
    if (unpacked > limits.MaxUnpackedBytes) {
        strError = QStringLiteral("The archive would unpack to more than %1 MB.")
                       .arg(limits.MaxUnpackedBytes >> 20);
        return false;
    }
    if (local + kLocalSize > size || Get32(archive, local) != kLocalHeader) {
        strError = kBroken.arg(entry.Name);
        return false;
    }
    const qint64 data =
        local + kLocalSize + Get16(archive, local + 26) + Get16(archive, local + 28);
    if (data + packedSize > size) {
        strError = kBroken.arg(entry.Name);
        return false;
    }
    if (entry.Name.endsWith(QLatin1Char('/')))
        return true; // a folder
    if (method == kStored) {
        if (packedSize != fileSize) {
            strError = kBroken.arg(entry.Name);
            return false;
        }
        entry.Data = archive.mid(data, fileSize);
    } else if (!Inflate(archive.constData() + data, packedSize, fileSize, entry.Data)) {
        strError = kBroken.arg(entry.Name);
        return false;
    }
    if (Crc(entry.Data) != crc) {
        strError = kBroken.arg(entry.Name + QStringLiteral(": its checksum is wrong"));
        return false;
    }
    return true;
}

} // namespace

bool Read(const QByteArray& archive, QList<Entry>& entries, QString& strError,
          const Limits& limits) {
    entries.clear();
    if (archive.size() < kEndSize || !LooksLikeArchive(archive)) {
        strError = kBroken.arg(QStringLiteral("it is not a zip archive"));
        return false;
    }
    const qint64 end = FindEnd(archive);
    if (end < 0) {
        strError = kBroken.arg(QStringLiteral("its end is missing"));
        return false;
    }
    const qint64 count = Get16(archive, end + 10);
    qint64 at = Get32(archive, end + 16);
    if (count > limits.MaxEntries) {
        strError = QStringLiteral("The archive holds too many files (%1).").arg(count);
        return false;
    }
    qint64 unpacked = 0;
    for (qint64 n = 0; n < count; ++n) {
        Entry entry;
        if (!ReadEntry(archive, at, unpacked, entry, strError, limits)) {
            entries.clear();
            return false;
        }
        if (!entry.Name.endsWith(QLatin1Char('/')))
            entries.append(std::move(entry));
    }
    return true;
}

} // namespace Zip
