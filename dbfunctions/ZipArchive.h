#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QIODevice;

// A small reader and writer of zip archives (the PKWARE format that every
// operating system opens), on zlib's deflate. Enough for Corvantis' export
// files: entries stored or deflated, names in UTF-8, no encryption, no
// archives of 4 GB or more.
//
// The reader trusts nothing in the file: every offset and size is checked
// against the file, each entry's checksum is checked, and limits on the
// number of entries and on the unpacked size keep a small hostile file from
// filling the memory. A name that could point outside the folder it is
// unpacked into ("../x", "/etc/x", "C:x", "a\..\..\x") fails the whole read.
namespace Zip {

struct Entry {
    QString Name; // with "/" between folders
    QByteArray Data;
};

struct Limits {
    qint64 MaxEntries = 100000;
    qint64 MaxUnpackedBytes = qint64(1) << 30; // all entries together
};

// Writes an archive to a device opened for writing. Add the entries in
// order, then Finish. Each answers false and sets Error() on a failure.
class Writer {
public:
    explicit Writer(QIODevice* pDevice);
    bool Add(const QString& strName, const QByteArray& data, bool blnCompress = true);
    bool Finish();
    QString Error() const { return m_error; }

private:
    struct Written {
        QByteArray name;
        quint32 crc = 0;
        quint32 packedSize = 0;
        quint32 size = 0;
        quint16 method = 0;
        quint32 offset = 0;
    };
    bool Put(const QByteArray& bytes);

    QIODevice* m_device;
    QList<Written> m_written;
    qint64 m_offset = 0;
    QString m_error;
};

// True when the bytes begin as a zip archive does.
bool LooksLikeArchive(const QByteArray& bytes);

// True when a name is a plain relative path that stays inside its folder.
bool IsSafeName(const QString& strName);

// Reads every entry of an archive held in memory. False with strError (a
// sentence for the user) when the bytes are not a whole, sound archive.
bool Read(const QByteArray& archive, QList<Entry>& entries, QString& strError,
          const Limits& limits = Limits());

} // namespace Zip
