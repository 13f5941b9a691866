#include "DataAccess.h"

#include "DataAccessCore.h"
#include "OfficeConversion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QStringDecoder>
#include <QTextDocument>
#include <QTextEdit>
#include <QUrl>

#include <optional>

// Loading a file into a rich text box: a text file is read here; a document (.rtf, .doc,
// .docx, .odt) is converted to HTML by LibreOffice Writer and the box shows that HTML, with
// the document's paragraphs, headings, bold, italic, underline, fonts, lists and tables as
// far as a rich text box can show them. The box changes only when the whole file was read.

using P = DataAccessPrivate;

namespace {
constexpr const char* kOperation = "LoadFileIntoRichText";

// Windows-1252, the 8-bit code page of older Windows text files, from 0x80 to 0x9F; the
// other bytes are the Latin-1 letters of the same number. The five bytes the code page leaves
// unused keep their own number.
constexpr char16_t kWindows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString FromWindows1252(const QByteArray& bytes) {
    QString strText;
    strText.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        strText +=
            QChar(byte >= 0x80 && byte <= 0x9F ? kWindows1252High[byte - 0x80] : char16_t(byte));
    }
    return strText;
}

// UTF-8 (with or without its mark) or UTF-16/32 with their marks; bytes that are not valid
// UTF-8 are read as Windows-1252.
QString DecodeText(const QByteArray& bytes) {
    const std::optional<QStringConverter::Encoding> marked =
        QStringConverter::encodingForData(bytes);
    if (marked && *marked != QStringConverter::Utf8) {
        QStringDecoder decoder(*marked);
        return decoder.decode(bytes);
    }
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString strText = utf8.decode(bytes);
    return utf8.hasError() ? FromWindows1252(bytes) : strText;
}

bool IsDocument(const QString& strExtension) {
    static const QStringList documents = {QStringLiteral("rtf"), QStringLiteral("doc"),
                                          QStringLiteral("docx"), QStringLiteral("odt")};
    return documents.contains(strExtension);
}

bool ReadAll(const QString& strFile, QByteArray& bytes, QString& strErrorMessage) {
    QFile file(strFile);
    if (!file.open(QIODevice::ReadOnly)) {
        P::Fail(strErrorMessage, kOperation,
                QStringLiteral("The file %1 cannot be read: %2").arg(strFile, file.errorString()));
        return false;
    }
    bytes = file.readAll();
    return true;
}

// The pictures that LibreOffice wrote beside the HTML, put into the document now, so that the
// box still shows them once the work folder is gone.
void AddPictures(QTextDocument& document, const QString& strFolder) {
    const QDir folder(strFolder);
    for (const QString& strName : folder.entryList(QDir::Files)) {
        if (strName.endsWith(QStringLiteral(".html"), Qt::CaseInsensitive))
            continue;
        const QImage picture(folder.filePath(strName));
        if (!picture.isNull())
            document.addResource(QTextDocument::ImageResource, QUrl(strName), picture);
    }
}

bool LoadDocument(const QString& strFile, QTextEdit* objRichText, QString& strErrorMessage) {
    OfficeConverter converter;
    QString strHtmlFile;
    QString strWhy;
    if (!converter.Convert(strFile, QStringLiteral("html"), strHtmlFile, strWhy)) {
        P::Fail(strErrorMessage, kOperation, strWhy);
        return false;
    }
    QByteArray bytes;
    if (!ReadAll(strHtmlFile, bytes, strErrorMessage))
        return false;
    QTextDocument* document = objRichText->document();
    const QString strFolder = QFileInfo(strHtmlFile).absolutePath();
    document->setBaseUrl(QUrl::fromLocalFile(strFolder + QLatin1Char('/')));
    objRichText->setHtml(QString::fromUtf8(bytes));
    AddPictures(*document, strFolder);
    document->setBaseUrl(QUrl());
    return true;
}
} // namespace

void DataAccess::LoadFileIntoRichText(const QString& strFile, QTextEdit* objRichText,
                                      QString& strErrorMessage, QVariant&) {
    LoadFileIntoRichText(strFile, objRichText, strErrorMessage);
}

void DataAccess::LoadFileIntoRichText(const QString& strFile, QTextEdit* objRichText,
                                      QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!objRichText) {
        P::Fail(strErrorMessage, kOperation, QStringLiteral("There is no text box to fill."));
        return;
    }
    const QFileInfo info(strFile);
    if (strFile.isEmpty() || !info.isFile()) {
        P::Fail(strErrorMessage, kOperation,
                QStringLiteral("The file %1 cannot be found. It may have been moved or deleted.")
                    .arg(strFile));
        return;
    }
    const QString strExtension = info.suffix().toLower();
    if (strExtension == QStringLiteral("txt")) {
        QByteArray bytes;
        if (ReadAll(strFile, bytes, strErrorMessage))
            objRichText->setPlainText(DecodeText(bytes));
        return;
    }
    if (!IsDocument(strExtension)) {
        P::Fail(strErrorMessage, kOperation,
                QStringLiteral("%1 cannot be loaded into the text box: only text files (.txt) "
                               "and documents (.rtf, .doc, .docx, .odt) can be.")
                    .arg(info.fileName()));
        return;
    }
    LoadDocument(strFile, objRichText, strErrorMessage);
}
