#include "foundations/VBImageList.h"

#include "foundations/VBError.h"

VBImageList::VBImageList(const QString& strName, QObject* parent) : QObject(parent) {
    setObjectName(strName);
}

qint32 VBImageList::Add(const QString& strKey, const QPixmap& picture) {
    if (!strKey.isEmpty() && HasKey(strKey))
        throw VBError(VBErr::KeyNotUnique);
    m_images.append({strKey, picture, QIcon(picture)});
    return Count();
}

void VBImageList::Clear() {
    m_images.clear();
}

const VBImageList::Entry& VBImageList::Find(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > Count())
        throw VBError(VBErr::IndexOutOfBounds);
    return m_images.at(lngIndex - 1);
}

const VBImageList::Entry& VBImageList::Find(const QString& strKey) const {
    for (const Entry& e : m_images)
        if (!e.key.isEmpty() && e.key == strKey)
            return e;
    throw VBError(VBErr::ElementNotFound);
}

const VBImageList::Entry& VBImageList::Find(const QVariant& varKeyOrIndex) const {
    if (varKeyOrIndex.typeId() == QMetaType::QString)
        return Find(varKeyOrIndex.toString());
    bool ok = false;
    const qint32 index = varKeyOrIndex.toInt(&ok);
    if (!ok)
        throw VBError(VBErr::TypeMismatch);
    return Find(index);
}

QPixmap VBImageList::ListImage(qint32 lngIndex) const {
    return Find(lngIndex).picture;
}

QPixmap VBImageList::ListImage(const QString& strKey) const {
    return Find(strKey).picture;
}

QPixmap VBImageList::ListImage(const QVariant& varKeyOrIndex) const {
    return Find(varKeyOrIndex).picture;
}

QIcon VBImageList::Icon(const QVariant& varKeyOrIndex) const {
    if (IsNoPicture(varKeyOrIndex))
        return QIcon();
    return Find(varKeyOrIndex).icon;
}

bool VBImageList::IsNoPicture(const QVariant& varKeyOrIndex) {
    if (!varKeyOrIndex.isValid() || varKeyOrIndex.typeId() == QMetaType::QString)
        return false;
    bool ok = false;
    return varKeyOrIndex.toInt(&ok) == 0 && ok;
}

bool VBImageList::HasKey(const QString& strKey) const {
    for (const Entry& e : m_images)
        if (!e.key.isEmpty() && e.key == strKey)
            return true;
    return false;
}

QString VBImageList::Key(qint32 lngIndex) const {
    if (lngIndex < 1 || lngIndex > Count())
        throw VBError(VBErr::IndexOutOfBounds);
    return m_images.at(lngIndex - 1).key;
}
