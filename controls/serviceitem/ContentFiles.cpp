#include "serviceitem/ContentFiles.h"

#include <QObject>
#include <QStringList>

namespace ContentFiles {

namespace {
class EventHook : public QObject {
public:
    EventHook(QObject* target, std::function<bool(QEvent*)> f, QObject* owner)
        : QObject(owner), m_f(std::move(f)) {
        target->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override { return m_f(event); }

private:
    std::function<bool(QEvent*)> m_f;
};

bool EndsWithAny(const QString& strName, const QStringList& extensions) {
    for (const QString& strExtension : extensions)
        if (strName.endsWith(strExtension, Qt::CaseInsensitive))
            return true;
    return false;
}

// Proportional size in whole twips, as the picture box takes it.
qint32 InProportion(qint32 lngSide, qint32 lngTo, qint32 lngFrom) {
    return lngFrom == 0 ? 0 : static_cast<qint32>(qint64(lngSide) * lngTo / lngFrom);
}
} // namespace

Shown ShownAs(const QString& strName) {
    if (EndsWithAny(strName, {".bmp", ".jpg", ".gif", ".png", ".jpeg"}))
        return Shown::Picture;
    if (EndsWithAny(strName, {".wav", ".mp3", ".mid"}))
        return Shown::Music;
    return Shown::Document;
}

Opened OpenedAs(const QString& strName) {
    if (EndsWithAny(strName, {".txt", ".doc", ".rtf", ".docx", ".odt"}))
        return Opened::RichText;
    if (EndsWithAny(strName, {".ppt", ".pptx", ".odp"}))
        return Opened::Presentation;
    return Opened::Nothing;
}

Dropped DroppedAs(const QString& strName) {
    if (EndsWithAny(strName, {".RTF", ".DOC", ".TXT", ".DOCX", ".ODT"}))
        return Dropped::Document;
    if (EndsWithAny(strName, {".JPG", ".BMP", ".TIF", ".DIB", ".PNG", ".JPEG"}))
        return Dropped::Picture;
    return Dropped::Refused;
}

BrowseDialog BrowseDialogFor(qint32 lngTypeID) {
    const QString strSelect = QStringLiteral("Select a file");
    switch (lngTypeID) {
    case 4:
    case 5:
        return {QStringLiteral("Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"),
                QStringLiteral("Select a picture file")};
    case 10:
        return {QStringLiteral("Music Files (*.mp3;*.wav;*.mid)|*.mp3;*.wav;*.mid"),
                QStringLiteral("Select a music file")};
    case 0:
        return {
            QStringLiteral("Files (*.txt;*.rtf;*.bmp;*.jpg;*.gif)|*.txt;*.rtf;*.bmp;*.jpg;*.gif"),
            strSelect};
    case 12:
        return {QStringLiteral("PowerPoint Presentations (*.ppt)|*.ppt"), strSelect};
    default:
        return {QStringLiteral("MS Word, PowerPoint & Text Files (*.doc;*.ppt;*.txt;*.rtf)|"
                               "*.doc;*.ppt;*.txt;*.rtf"),
                strSelect};
    }
}

QString DescriptionFromFileName(const QString& strName) {
    const QString strStem = strName.left(qMax<qsizetype>(0, strName.size() - 4));
    return strName.size() > 53 ? strStem.left(53) : strStem;
}

QString DescriptionFromContent(const QString& strContent) {
    // A rich text box ends its lines with a line feed alone; the line, without
    // it, is the description.
    const qsizetype lngBreak = strContent.left(50).indexOf(QLatin1Char('\n'));
    return lngBreak >= 0 ? strContent.left(lngBreak).trimmed() : strContent.left(25);
}

QSize FitPicture(const QSize& szPicture, const QSize& szTab) {
    const qint32 w = szPicture.width();
    const qint32 h = szPicture.height();
    const qint32 W = szTab.width();
    const qint32 H = szTab.height();
    if (W > w && H - 2000 > h)
        return szPicture;
    if (w <= h) {
        qint32 lngHeight = H - 1000;
        qint32 lngWidth = InProportion(w, lngHeight, h);
        if (W < lngWidth) {
            lngWidth = W - 400;
            lngHeight = InProportion(h, W - 40, w);
        }
        return QSize(lngWidth, lngHeight);
    }
    qint32 lngWidth = W - 240;
    qint32 lngHeight = InProportion(h, lngWidth, w);
    if (H < lngHeight) {
        lngHeight = H - 400;
        lngWidth = InProportion(w, lngHeight, h);
    }
    return QSize(lngWidth, lngHeight);
}

QString DoubleClickInvitation() {
    return QStringLiteral("Please double click this box to open the file that is named below. "
                          "This operation may take a few moments");
}

QString BrowseInvitation() {
    return QStringLiteral("Please click the browse button to select a file that will be your "
                          "responsive reading Service Item");
}

// The advice stands on a line of its own (the box makes the carriage return
// and line feed one line break).
QString OpenErrorText(const QString& strErrorMessage) {
    return QStringLiteral("There was an error opening this file. The error description is: ") +
           strErrorMessage + QStringLiteral("\r\n To try again please dible click this box");
}

QString MissingFileText(const QString& strKind, const QString& strPath) {
    return QStringLiteral("The %1 %2 cannot be found. It may have been moved or deleted.")
        .arg(strKind, strPath);
}

QString CannotOpenText(const QString& strName) {
    return QStringLiteral("%1 cannot be opened here. Corvantis opens text files and documents "
                          "(.txt, .rtf, .doc, .docx, .odt) and presentations (.ppt, .pptx, "
                          ".odp).")
        .arg(strName);
}

void OnEvent(QObject* target, std::function<bool(QEvent*)> f, QObject* owner) {
    new EventHook(target, std::move(f), owner ? owner : target);
}

} // namespace ContentFiles
