// The pictures of the galleries' toolbar buttons, drawn by the program.
#include "galleries/ToolbarPictures.h"

#include <QApplication>
#include <QImage>
#include <QSet>
#include <QtTest>

class tst_ToolbarPictures : public QObject {
    Q_OBJECT

private:
    static QList<QStyle::StandardPixmap> Drawn() {
        return {QStyle::SP_FileIcon,
                QStyle::SP_MediaPlay,
                QStyle::SP_TrashIcon,
                QStyle::SP_FileDialogDetailedView,
                QStyle::SP_FileDialogInfoView,
                QStyle::SP_DialogHelpButton,
                QStyle::SP_DialogSaveButton,
                QStyle::SP_FileDialogListView,
                QStyle::SP_BrowserReload,
                QStyle::SP_ArrowUp,
                QStyle::SP_ArrowDown,
                QStyle::SP_DialogOpenButton,
                QStyle::SP_ToolBarHorizontalExtensionButton,
                QStyle::SP_ToolBarVerticalExtensionButton};
    }

private slots:
    void everyButtonKindHasASixteenPixelPictureOfItsOwn() {
        QSet<QByteArray> pictures;
        for (QStyle::StandardPixmap kind : Drawn()) {
            const QPixmap picture = ToolbarPictures::For(qApp->style(), kind);
            QCOMPARE(picture.size(), QSize(16, 16));
            const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
            int drawn = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    drawn += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
            QVERIFY2(drawn > 20, qPrintable(QString::number(kind)));
            pictures.insert(
                QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        }
        QCOMPARE(pictures.size(), Drawn().size());
    }

    void theInformationAndHelpDiscsCarryAWhiteMark() {
        for (QStyle::StandardPixmap kind :
             {QStyle::SP_FileDialogInfoView, QStyle::SP_DialogHelpButton}) {
            const QImage image = ToolbarPictures::For(qApp->style(), kind)
                                     .toImage()
                                     .convertToFormat(QImage::Format_ARGB32);
            int white = 0;
            for (int y = 3; y < 13; ++y)
                white += qGray(image.pixel(8, y)) > 200 ? 1 : 0;
            QVERIFY2(white >= 4, qPrintable(QString::number(kind)));
            QCOMPARE(image.pixelColor(3, 8).blue() > 150, true); // the disc around it is blue
        }
    }

    void aKindNotDrawnComesFromTheStyle() {
        const QPixmap picture = ToolbarPictures::For(qApp->style(), QStyle::SP_DirHomeIcon);
        QCOMPARE(picture.toImage(),
                 qApp->style()->standardIcon(QStyle::SP_DirHomeIcon).pixmap(16, 16).toImage());
    }

    void aPictureAskedForAgainIsTheOneKept() {
        const QPixmap first = ToolbarPictures::For(qApp->style(), QStyle::SP_TrashIcon);
        QCOMPARE(ToolbarPictures::For(qApp->style(), QStyle::SP_TrashIcon).cacheKey(),
                 first.cacheKey());
    }
};

QTEST_MAIN(tst_ToolbarPictures)
#include "tst_ToolbarPictures.moc"
