#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "ZipArchive.h"

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
    const Zip::Entry* Find(const QString& strName) const;

    bool m_flat = false;
    QByteArray m_flatXml;
    QList<Zip::Entry> m_entries;
};
