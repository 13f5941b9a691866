#include "serviceitem/ctlServiceItem.h"

#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/Twips.h"
#include "serviceitem/ContentFiles.h"

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPixmap>
#include <QTextEdit>
#include <QUrl>

// Files dropped on the Content tab, on the hand-typed text or on the file's
// name: one document or picture is taken as the item's file, more than one is
// refused, and a kind the editor cannot show is refused with advice. Text
// dragged onto the typed text is typed text as ever.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

// The files of a drag, as paths of this machine (none for dragged text).
QStringList DraggedFiles(const QMimeData* data) {
    QStringList files;
    if (data && data->hasUrls())
        for (const QUrl& url : data->urls())
            if (url.isLocalFile())
                files.append(url.toLocalFile());
    return files;
}

// Drops of files onto target go to onDrop; every other drag is target's own.
void AcceptFileDrops(QWidget* target, std::function<void(const QStringList&)> onDrop) {
    target->setAcceptDrops(true);
    ContentFiles::OnEvent(target, [onDrop](QEvent* event) {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* drag = static_cast<QDragMoveEvent*>(event);
            if (DraggedFiles(drag->mimeData()).isEmpty())
                return false;
            drag->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            const QStringList files = DraggedFiles(drop->mimeData());
            if (files.isEmpty())
                return false;
            drop->acceptProposedAction();
            onDrop(files);
            return true;
        }
        default:
            return false;
        }
    });
}

// The size of a picture file in twips (empty when it cannot be read).
QSize NaturalSize(const QString& strPath) {
    const QSize szPixels = QPixmap(Platform::LocalPath(strPath)).size();
    return QSize(Twips::FromPixels(szPixels.width()), Twips::FromPixels(szPixels.height()));
}
} // namespace

void ctlServiceItem::ConnectContentDrops() {
    AcceptFileDrops(txtContent->viewport(),
                    [this](const QStringList& Files) { txtContent_OLEDragDrop(Files); });
    AcceptFileDrops(txtFilename,
                    [this](const QStringList& Files) { txtFilename_OLEDragDrop(Files); });
}

// One dropped document or picture becomes the item's file; answers the path
// when it was a picture, so that the caller shows it.
QString ctlServiceItem::TakeDroppedFile(const QStringList& Files) {
    if (Files.isEmpty())
        return QString();
    if (Files.size() > 1) {
        Platform::Current().MsgBox(QStringLiteral("You can only drag one file onto this text box"),
                                   vbOKOnly, QStringLiteral("Invalid Operation"));
        return QString();
    }
    const QString strFile = Files.constFirst();
    switch (ContentFiles::DroppedAs(strFile)) {
    case ContentFiles::Dropped::Document:
        NameContentFile(strFile);
        return QString();
    case ContentFiles::Dropped::Picture:
        NameContentFile(strFile);
        return strFile;
    case ContentFiles::Dropped::Refused:
        break;
    }
    Platform::Current().MsgBox(
        QStringLiteral("Corvantis cannot deal with this type of file. If it is a text file, try "
                       "opening it and copying the text you want to use into the Content text "
                       "box"),
        vbOKOnly, QStringLiteral("Unrecognised File Format"));
    return QString();
}

// The picture is loaded into imgContent as it stands: at the size that
// txtFilename_Change fitted it to, else at its own.
void ctlServiceItem::txtContent_OLEDragDrop(const QStringList& Files) {
    const auto entry = Entry("txtContent_OLEDragDrop").Enter();
    entry.Guarded([&] {
        const QString strPicture = TakeDroppedFile(Files);
        if (strPicture.isEmpty())
            return;
        const QSize szShown = imgContent->pixmap().size();
        imgContent->setProperty(ContentFiles::FittedPictureProperty, QString());
        SetContentPicture(strPicture, szShown.isEmpty()
                                          ? NaturalSize(strPicture)
                                          : QSize(Twips::FromPixels(szShown.width()),
                                                  Twips::FromPixels(szShown.height())));
    });
}

// A picture dropped on the name shows only when it is large: taller than 6255
// or wider than the editor's tabs less 200, and then at that height and width.
// A smaller one stays hidden, as it always has.
void ctlServiceItem::txtFilename_OLEDragDrop(const QStringList& Files) {
    const auto entry = Entry("txtFilename_OLEDragDrop").Enter();
    entry.Guarded([&] {
        const QString strPicture = TakeDroppedFile(Files);
        if (strPicture.isEmpty())
            return;
        const QSize szNatural = NaturalSize(strPicture);
        imgContent->setProperty(ContentFiles::FittedPictureProperty, QString());
        SetContentPicture(strPicture, szNatural);
        imgContent->hide();
        const qint32 lngWidest = Twips::FromPixels(SSTab1->width()) - 200;
        if (szNatural.height() > 6255 || szNatural.width() > lngWidest) {
            SetContentPicture(strPicture, QSize(lngWidest, 6255));
            imgContent->show();
        }
    });
}
