#include "OdfPackage.h"

#include <QBuffer>
#include <QFile>
#include <QSaveFile>

// A package is read and written with the program's own zip reader and writer (ZipArchive.h),
// which check every offset, size and checksum and refuse names that climb out of their folder.
// The "mimetype" entry is written first and stored, as OpenDocument readers expect.

namespace {
// No template comes near this; a larger package is a damaged or hostile file.
constexpr qint64 kLargestPackage = qint64(256) * 1024 * 1024;

bool LooksLikeXml(const QByteArray& data) {
    const QByteArray head = data.left(512).trimmed();
    return head.startsWith("<?xml") || head.startsWith("<office:document");
}

const QString kMimetype = QStringLiteral("mimetype");
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
    if (Zip::LooksLikeArchive(data)) {
        Zip::Limits limits;
        limits.MaxUnpackedBytes = kLargestPackage;
        QString strZipError;
        if (Zip::Read(data, m_entries, strZipError, limits))
            return true;
        m_entries.clear();
        strError = QStringLiteral("The template file %1 is a damaged OpenDocument package: %2")
                       .arg(strPath, strZipError);
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

const Zip::Entry* OdfPackage::Find(const QString& strName) const {
    for (const Zip::Entry& entry : m_entries)
        if (entry.Name == strName)
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
    const Zip::Entry* entry = Find(strName);
    return entry ? entry->Data : QByteArray();
}

void OdfPackage::SetPart(const QString& strName, const QByteArray& data) {
    if (m_flat) {
        if (strName.isEmpty())
            m_flatXml = data;
        return;
    }
    for (Zip::Entry& entry : m_entries) {
        if (entry.Name == strName) {
            entry.Data = data;
            return;
        }
    }
}

bool OdfPackage::Write(const QString& strPath, QString& strError) const {
    QByteArray out;
    if (m_flat) {
        out = m_flatXml;
    } else {
        QBuffer buffer(&out);
        buffer.open(QIODevice::WriteOnly);
        Zip::Writer writer(&buffer);
        bool blnWritten = true;
        if (const Zip::Entry* mimetype = Find(kMimetype))
            blnWritten = writer.Add(mimetype->Name, mimetype->Data, false);
        // The XML parts a sheet fills are stored as they are, the others packed.
        const QStringList filled = XmlParts();
        for (const Zip::Entry& entry : m_entries)
            if (blnWritten && entry.Name != kMimetype)
                blnWritten = writer.Add(entry.Name, entry.Data, !filled.contains(entry.Name));
        if (!blnWritten || !writer.Finish()) {
            strError =
                QStringLiteral("The document %1 cannot be made: %2").arg(strPath, writer.Error());
            return false;
        }
    }
    QSaveFile file(strPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(out) != out.size() || !file.commit()) {
        strError = QStringLiteral("The document %1 cannot be written: %2")
                       .arg(strPath, file.errorString());
        return false;
    }
    return true;
}
