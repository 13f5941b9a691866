#pragma once

#include <QIcon>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QVariant>

// An image list: pictures numbered from 1 in the order added, each with an
// optional key. ListImage by a missing key raises 35601, by an index out of
// range 35600.
//
// Image index 0 is no picture: a node or list item that names it (a service
// item of type 0, "none", or one whose type could not be looked up) shows
// without a picture, and Icon(0) gives the null icon instead of raising. The
// list itself still has no picture 0: ListImage(0) raises 35600.
class VBImageList : public QObject {
    Q_OBJECT
public:
    explicit VBImageList(const QString& strName, QObject* parent = nullptr);

    // Adds a picture and returns its 1-based index. A key already in the list
    // raises 35602.
    qint32 Add(const QString& strKey, const QPixmap& picture);
    qint32 Count() const { return static_cast<qint32>(m_images.size()); }
    void Clear();

    QPixmap ListImage(qint32 lngIndex) const;
    QPixmap ListImage(const QString& strKey) const;
    // A key text or a 1-based index; a number in a text counts as a key.
    QPixmap ListImage(const QVariant& varKeyOrIndex) const;
    // The picture as an icon; the null icon for index 0. Every call for one picture gives
    // the same icon, shared, so that thousands of nodes showing it cost one icon.
    QIcon Icon(const QVariant& varKeyOrIndex) const;
    // True for the index 0 (a number, not a key text).
    static bool IsNoPicture(const QVariant& varKeyOrIndex);
    bool HasKey(const QString& strKey) const;
    QString Key(qint32 lngIndex) const;

private:
    struct Entry {
        QString key;
        QPixmap picture;
        QIcon icon;
    };
    const Entry& Find(const QVariant& varKeyOrIndex) const;
    const Entry& Find(const QString& strKey) const;
    const Entry& Find(qint32 lngIndex) const;
    QList<Entry> m_images;
};
