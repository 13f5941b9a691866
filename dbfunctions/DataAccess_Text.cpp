#include "DataAccess.h"

#include "DataAccessCore.h"

// Conversions of text: the stored form of apostrophes, and telling lines from prose.

using P = DataAccessPrivate;

void DataAccess::DecodeStoredText(const QString& strText, QString& strErrorMessage,
                                  QString& strResult) {
    strErrorMessage.clear();
    // One operation for both directions: a stored text (holding "@@") becomes its display
    // form; a display text (holding apostrophes) becomes its stored form.
    if (strText.contains(QLatin1String("@@")))
        strResult = P::ToDisplay(strText);
    else
        strResult = P::ToStored(strText);
}

void DataAccess::TextIsLineStructured(const QString& strText, QString& strErrorMessage,
                                      bool& blnResult) {
    strErrorMessage.clear();
    blnResult = false;
    qsizetype lines = 0;
    qsizetype characters = 0;
    for (const QString& raw : QString(strText).replace(QLatin1String("\r\n"), "\n").split('\n')) {
        const QString line = raw.trimmed();
        if (line.isEmpty())
            continue;
        if (line.size() > 80)
            return;
        ++lines;
        characters += line.size();
    }
    blnResult = lines >= 2 && characters <= 60 * lines;
}
