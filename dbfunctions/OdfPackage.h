#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// An OpenDocument file as the template code reads and writes it: either the zipped package
// (.ott, .odt) or the single flat XML file (.fott, .fodt). Only the XML parts that a sheet fills
// are opened: content.xml and styles.xml of a package, the whole file of a flat document. Every
// other entry of a package (pictures, settings, the manifest) is written back byte for byte.
class OdfPackage {
public:
    // Reads strPath. False with strError set when the file cannot be read or is neither a zip
    // package nor an XML document.
    bool Read(const QString& strPath, QString& strError);
    bool IsFlat() const { return m_flat; }
    // The names of the XML parts a sheet fills: "" (the whole file) for a flat document,
    // else those of "content.xml" and "styles.xml" that the package holds.
    QStringList XmlParts() const;
    QByteArray Part(const QString& strName) const;
    void SetPart(const QString& strName, const QByteArray& data);
    // Writes the document to strPath (a package again as a package). False with strError set.
    bool Write(const QString& strPath, QString& strError) const;

private:
    struct Entry {
        QString name;
        quint16 method = 0;
        quint16 modTime = 0;
        quint16 modDate = 0;
        quint32 crc = 0;
        quint32 uncompressedSize = 0;
        QByteArray raw;   // the stored bytes as they stand in the file
        QByteArray plain; // set for an XML part that was opened or replaced
        bool replaced = false;
    };
    bool ReadZip(const QByteArray& file, QString& strError);
    static bool ReadEntry(const QByteArray& file, qsizetype at, Entry& entry, qsizetype& next,
                          QString& strError);
    static bool Inflate(const Entry& entry, QByteArray& plain);
    const Entry* Find(const QString& strName) const;

    bool m_flat = false;
    QByteArray m_flatXml;
    QList<Entry> m_entries;
};
