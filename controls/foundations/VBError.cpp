#include "foundations/VBError.h"

VBError::VBError(qint32 lngNumber, const QString& strDescription)
    : Number(lngNumber),
      Description(strDescription.isEmpty() ? StandardDescription(lngNumber) : strDescription),
      m_what((QString::number(lngNumber) + ", " + Description).toUtf8()) {}

const char* VBError::what() const noexcept {
    return m_what.constData();
}

QString VBError::StandardDescription(qint32 lngNumber) {
    switch (lngNumber) {
    case 5:
        return QStringLiteral("Invalid procedure call or argument");
    case 6:
        return QStringLiteral("Overflow");
    case 9:
        return QStringLiteral("Subscript out of range");
    case 11:
        return QStringLiteral("Division by zero");
    case 13:
        return QStringLiteral("Type mismatch");
    case 51:
        return QStringLiteral("Internal error");
    case 53:
        return QStringLiteral("File not found");
    case 91:
        return QStringLiteral("Object variable or With block variable not set");
    case 94:
        return QStringLiteral("Invalid use of Null");
    case 457:
        return QStringLiteral("This key is already associated with an element of this "
                              "collection");
    case 32755:
        return QStringLiteral("Cancel was selected.");
    case 35600:
        return QStringLiteral("Index out of bounds");
    case 35601:
        return QStringLiteral("Element not found");
    case 35602:
        return QStringLiteral("Key is not unique in collection");
    case 35603:
        return QStringLiteral("Invalid key");
    default:
        return QString();
    }
}
