// How a slide is drawn: the run font and colours of the options, background
// and item pictures, and words that always fit.
#include "DataAccess.h"
#include "RunLook.h"
#include "Screenshot.h"
#include "SlideRenderer.h"
#include "TestDatabase.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

class tst_SlideRenderer : public QObject {
    Q_OBJECT

private:
    static Slide words(const QStringList& lines) {
        Slide slide;
        slide.kind = Slide::Kind::Text;
        slide.lines = lines;
        return slide;
    }
    static QString writePicture(const QTemporaryDir& dir, const QString& name, const QSize& size,
                                const QColor& color) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const QString path = dir.filePath(name);
        return image.save(path) ? path : QString();
    }

private slots:
    void shortWordsKeepTheRunFont() {
        SlideRenderer renderer;
        const Slide slide = words({QStringLiteral("Amazing grace")});
        QCOMPARE(renderer.FittedPixelSize(slide, QSize(1024, 768)), renderer.BodyPixelSize(768));
        QVERIFY(Screenshot::IsNotBlank(renderer.Render(slide, QSize(1024, 768))));
    }

    void wordsThatDoNotFitGetASmallerFontAndAreNeverCut() {
        SlideRenderer renderer;
        QStringList lines;
        for (int i = 1; i <= 40; ++i)
            lines << QStringLiteral("This is line %1 of a reading that goes on and on").arg(i);
        const Slide slide = words(lines);
        const QSize size(1024, 768);
        const int fitted = renderer.FittedPixelSize(slide, size);
        QVERIFY(fitted < renderer.BodyPixelSize(768));
        QVERIFY(fitted >= 1);
        QFont font(renderer.Look().fontName);
        font.setPixelSize(fitted);
        font.setBold(renderer.Look().fontBold);
        const QRect needed = QFontMetrics(font).boundingRect(
            QRect(0, 0, size.width() * 9 / 10, 1 << 20), Qt::AlignCenter | Qt::TextWordWrap,
            lines.join(QLatin1Char('\n')));
        QVERIFY(needed.height() < size.height());
        // The last line is drawn: the bottom half of the picture holds words too.
        const QImage image = renderer.Render(slide, size);
        QVERIFY(Screenshot::IsNotBlank(
            image.copy(0, size.height() * 3 / 4, size.width(), size.height() / 4 - 40)));
    }

    void aLongWordShrinksTooRatherThanBeingCut() {
        SlideRenderer renderer;
        const Slide slide = words({QString(60, QLatin1Char('W'))});
        QVERIFY(renderer.FittedPixelSize(slide, QSize(640, 480)) < renderer.BodyPixelSize(480));
    }

    void largerStepsGiveALargerFont() {
        SlideRenderer renderer;
        const int normal = renderer.BodyPixelSize(768);
        renderer.SetSizeStep(2);
        QVERIFY(renderer.BodyPixelSize(768) > normal);
        QVERIFY(qAbs(renderer.BodyPixelSize(384) * 2 - renderer.BodyPixelSize(768)) <= 2);
    }

    void coloursComeFromTheLook() {
        SlideRenderer renderer;
        RunLook look;
        look.backColor = QColor(10, 20, 30);
        look.foreColor = QColor(250, 240, 0);
        renderer.SetLook(look);
        Slide blank;
        const QImage empty = renderer.Render(blank, QSize(200, 150));
        QCOMPARE(QColor(empty.pixel(100, 75)), look.backColor);
        QVERIFY(!Screenshot::IsNotBlank(empty));
        const QImage text = renderer.Render(words({QStringLiteral("IIIII")}), QSize(400, 300));
        bool foreFound = false;
        for (int y = 0; y < text.height() && !foreFound; ++y)
            for (int x = 0; x < text.width() && !foreFound; ++x)
                foreFound = QColor(text.pixel(x, y)) == look.foreColor;
        QVERIFY(foreFound);
    }

    void aSlideDrawnOverAnOlderPictureLooksAsIfDrawnAfresh() {
        SlideRenderer renderer;
        RunLook look;
        look.backColor = QColor(10, 20, 30, 120); // lets the picture beneath through
        renderer.SetLook(look);
        const Slide verse = words({QStringLiteral("Amazing grace")});
        const QImage fresh = renderer.Render(verse, QSize(400, 300));
        QImage reused = renderer.Render(words({QStringLiteral("How sweet the sound")}),
                                        QSize(400, 300), false, 0);
        const uchar* memory = reused.constBits();
        renderer.RenderInto(reused, verse, QSize(400, 300));
        QCOMPARE(reused.constBits(), memory); // drawn over, no new picture
        QCOMPARE(reused, fresh);
        renderer.RenderInto(reused, verse, QSize(200, 150));
        QCOMPARE(reused, renderer.Render(verse, QSize(200, 150)));
    }

    void backgroundPictureFillsTheSlide() {
        QTemporaryDir dir;
        SlideRenderer renderer;
        Slide blank;
        blank.backgrounds << writePicture(dir, QStringLiteral("red.png"), QSize(40, 30), Qt::red);
        const QImage image = renderer.Render(blank, QSize(400, 300));
        QCOMPARE(QColor(image.pixel(2, 2)), QColor(Qt::red));
        QCOMPARE(QColor(image.pixel(397, 297)), QColor(Qt::red));
    }

    void backgroundsChangeInTurn() {
        QTemporaryDir dir;
        SlideRenderer renderer;
        Slide blank;
        blank.backgrounds << writePicture(dir, QStringLiteral("red.png"), QSize(4, 3), Qt::red)
                          << writePicture(dir, QStringLiteral("blue.png"), QSize(4, 3), Qt::blue);
        QCOMPARE(QColor(renderer.Render(blank, QSize(40, 30), false, 1).pixel(5, 5)),
                 QColor(Qt::blue));
        QCOMPARE(QColor(renderer.Render(blank, QSize(40, 30), false, 2).pixel(5, 5)),
                 QColor(Qt::red));
    }

    void pictureIsScaledToFit() {
        QTemporaryDir dir;
        SlideRenderer renderer;
        Slide picture;
        picture.kind = Slide::Kind::Picture;
        picture.picturePath =
            writePicture(dir, QStringLiteral("wide.png"), QSize(100, 50), QColor(0, 200, 0));
        const QImage image = renderer.Render(picture, QSize(400, 400));
        QCOMPARE(QColor(image.pixel(200, 200)), QColor(0, 200, 0));
        QCOMPARE(QColor(image.pixel(5, 105)), QColor(0, 200, 0));
        QCOMPARE(QColor(image.pixel(200, 20)), renderer.Look().backColor);
        QCOMPARE(QColor(image.pixel(200, 380)), renderer.Look().backColor);
    }

    void pictureShownAgainIsDrawnTheSameAsTheFirstTime() {
        QTemporaryDir dir;
        QImage gradient(160, 90, QImage::Format_RGB32);
        for (int y = 0; y < gradient.height(); ++y)
            for (int x = 0; x < gradient.width(); ++x)
                gradient.setPixel(x, y, qRgb(x, y * 2, 255 - x));
        const QString path = dir.filePath(QStringLiteral("gradient.png"));
        QVERIFY(gradient.save(path));
        Slide picture;
        picture.kind = Slide::Kind::Picture;
        picture.picturePath = path;
        SlideRenderer renderer;
        const QImage first = renderer.Render(picture, QSize(400, 300));
        QCOMPARE(renderer.Render(picture, QSize(400, 300)), first);
        // A renderer that never drew it draws the same.
        QCOMPARE(SlideRenderer().Render(picture, QSize(400, 300)), first);
    }

    void picturesKeptForOneSizeAreScaledAgainForAnother() {
        QTemporaryDir dir;
        SlideRenderer renderer;
        Slide picture;
        picture.kind = Slide::Kind::Picture;
        picture.picturePath =
            writePicture(dir, QStringLiteral("wide.png"), QSize(100, 50), QColor(0, 200, 0));
        Slide background;
        background.backgrounds << picture.picturePath;
        renderer.Render(picture, QSize(400, 400));
        renderer.Render(background, QSize(400, 400));
        // Now twice as wide as high: the picture fills the whole slide.
        const QImage wide = renderer.Render(picture, QSize(400, 200));
        QCOMPARE(QColor(wide.pixel(200, 5)), QColor(0, 200, 0));
        QCOMPARE(QColor(wide.pixel(200, 195)), QColor(0, 200, 0));
        // The same file as a background is scaled to cover, not to fit.
        const QImage covered = renderer.Render(background, QSize(400, 400));
        QCOMPARE(QColor(covered.pixel(2, 2)), QColor(0, 200, 0));
        QCOMPARE(QColor(covered.pixel(397, 397)), QColor(0, 200, 0));
    }

    void missingPictureIsSaidInWords() {
        SlideRenderer renderer;
        Slide picture;
        picture.kind = Slide::Kind::Picture;
        picture.picturePath = QStringLiteral("/nowhere/moved.jpg");
        QVERIFY(Screenshot::IsNotBlank(renderer.Render(picture, QSize(400, 300))));
    }

    void blackedOutIsAllBlack() {
        SlideRenderer renderer;
        const QImage image =
            renderer.Render(words({QStringLiteral("Amazing grace")}), QSize(200, 150), true);
        QVERIFY(!Screenshot::IsNotBlank(image));
        QCOMPARE(QColor(image.pixel(0, 0)), QColor(Qt::black));
    }

    void titleAndFooterAreDrawn() {
        SlideRenderer renderer;
        Slide slide;
        slide.kind = Slide::Kind::Text;
        QVERIFY(!Screenshot::IsNotBlank(renderer.Render(slide, QSize(400, 300))));
        slide.footer = QStringLiteral("Public domain");
        const QImage footer = renderer.Render(slide, QSize(400, 300));
        QVERIFY(Screenshot::IsNotBlank(footer.copy(0, 200, 400, 100)));
        QVERIFY(!Screenshot::IsNotBlank(footer.copy(0, 0, 400, 100)));
        slide.footer.clear();
        slide.title = QStringLiteral("Psalm 23");
        const QImage title = renderer.Render(slide, QSize(400, 300));
        QVERIFY(Screenshot::IsNotBlank(title.copy(0, 0, 400, 100)));
    }

    void lookIsReadFromTheOptionsRow() {
        TestDatabase db;
        const QString picture = db.WriteContentFile(QStringLiteral("dawn.png"));
        const qint32 pictureItem = db.AddServiceItem(TestDatabase::Picture, QStringLiteral("Dawn"));
        QVERIFY(db.Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemFilename = 'dawn.png' "
                                       "WHERE ServiceItemID = ?"),
                        {pictureItem}));
        QVERIFY(db.Exec(
            QStringLiteral(
                "UPDATE Options SET RunModeFontName = 'DejaVu Serif', RunModeFontSize = 20, "
                "RunModeFontBold = 0, RunModeFontItalic = 1, RunModeFontColor = 255, "
                "RunModeBackColor = 16711680, ShowSourceAtRunTime = 1, "
                "ShowCopyrightDetailsAtRunTime = 0, ShowLocationDetailsAtRunTime = 1, "
                "ShowDescriptionDetailsAtRunTime = 0, PointDisplayMode = 6, "
                "ShowSubPointsOneByOne = 1, DefaultBackgroundImage = ?"),
            {pictureItem}));
        QString err;
        const RunLook look = RunLook::FromOptions(err);
        QCOMPARE(err, QString());
        QCOMPARE(look.fontName, QStringLiteral("DejaVu Serif"));
        QCOMPARE(look.fontSize, 20.0);
        QVERIFY(!look.fontBold);
        QVERIFY(look.fontItalic);
        QCOMPARE(look.foreColor, QColor(255, 0, 0));
        QCOMPARE(look.backColor, QColor(0, 0, 255));
        QVERIFY(look.showSource);
        QVERIFY(!look.showCopyright);
        QVERIFY(look.showLocation);
        QVERIFY(!look.showDescription);
        QCOMPARE(look.pointDisplayMode, qint16(6));
        QVERIFY(look.revealSubPointsOneByOne);
        QCOMPARE(QFileInfo(look.backgroundPicture).canonicalFilePath(),
                 QFileInfo(picture).canonicalFilePath());
    }

    void backgroundPictureMayBeAPath() {
        TestDatabase db;
        QVERIFY(db.Exec(
            QStringLiteral("UPDATE Options SET DefaultBackgroundImage = '/pictures/sky.jpg'")));
        QString err;
        QCOMPARE(RunLook::FromOptions(err).backgroundPicture, QStringLiteral("/pictures/sky.jpg"));
        QVERIFY(db.Exec(QStringLiteral("UPDATE Options SET DefaultBackgroundImage = 0")));
        QVERIFY(RunLook::FromOptions(err).backgroundPicture.isEmpty());
    }

    void sameColourForWordsAndBackgroundFallsBackToReadableColours() {
        TestDatabase db;
        QVERIFY(db.Exec(
            QStringLiteral("UPDATE Options SET RunModeFontColor = 0, RunModeBackColor = 0")));
        QString err;
        const RunLook look = RunLook::FromOptions(err);
        QVERIFY(look.foreColor != look.backColor);
    }

    void coloursAreStoredBlueGreenRed() {
        QCOMPARE(RunLook::FromBgr(0x0000FF), QColor(255, 0, 0));
        QCOMPARE(RunLook::FromBgr(0xFF0000), QColor(0, 0, 255));
        QCOMPARE(RunLook::ToBgr(QColor(1, 2, 3)), 0x030201);
    }
};

QTEST_MAIN(tst_SlideRenderer)
#include "tst_SlideRenderer.moc"
