#include "SlideCutter.h"

#include <QtTest>

// How one service item becomes the slides of a run, for each kind of item
// and each view mode.
class tst_SlideCutter : public QObject {
    Q_OBJECT

private:
    static RunItem textItem(qint16 mode, const QString& text, qint16 lines = 2) {
        RunItem item;
        item.serviceItemId = 20;
        item.typeId = 1;
        item.description = QStringLiteral("A prayer");
        item.textViewMode = mode;
        item.linesAtATime = lines;
        item.text = text;
        return item;
    }
    static RunItem pointsItem(qint16 mode, bool revealSubs) {
        RunItem item;
        item.serviceItemId = 30;
        item.typeId = 6;
        item.runAsPointsList = true;
        item.textViewMode = mode;
        item.revealSubPointsOneByOne = revealSubs;
        item.points = {{QStringLiteral("P1"), QString(), QStringLiteral("One")},
                       {QStringLiteral("P1a"), QStringLiteral("P1"), QStringLiteral("One a")},
                       {QStringLiteral("P1b"), QStringLiteral("P1"), QStringLiteral("One b")},
                       {QStringLiteral("P2"), QString(), QStringLiteral("Two")}};
        return item;
    }
    static QStringList words(const QList<Slide>& slides) {
        QStringList result;
        for (const Slide& slide : slides)
            result << slide.Words();
        return result;
    }
    static QString pointTexts(const Slide& slide) {
        QStringList texts;
        for (const SlidePoint& point : slide.points)
            texts << QString::number(point.depth) + point.text;
        return texts.join(QLatin1Char('|'));
    }

private slots:
    void blankItemIsOneEmptySlide() {
        RunItem blank;
        blank.serviceItemId = 1;
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(blank);
        QCOMPARE(slides.size(), 1);
        QCOMPARE(slides.first().kind, Slide::Kind::Blank);
        QVERIFY(slides.first().title.isEmpty());
        QVERIFY(slides.first().lines.isEmpty());
    }

    void pictureIsOneSlideWithItsFile() {
        RunItem picture;
        picture.serviceItemId = 7;
        picture.typeId = 4;
        picture.filePath = QStringLiteral("/pictures/cross.png");
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(picture);
        QCOMPARE(slides.size(), 1);
        QCOMPARE(slides.first().kind, Slide::Kind::Picture);
        QCOMPARE(slides.first().picturePath, QStringLiteral("/pictures/cross.png"));
    }

    void songRunsPartByPartInSungOrder() {
        RunItem song;
        song.serviceItemId = 9;
        song.typeId = 17;
        song.parts = {{QStringLiteral("Verse 1"), QStringLiteral("First verse"), false},
                      {QStringLiteral("Chorus"), QStringLiteral("Sing it\nagain"), true},
                      {QStringLiteral("Verse 2"), QStringLiteral("Second verse"), false},
                      {QStringLiteral("Chorus"), QStringLiteral("Sing it\nagain"), true}};
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(song);
        QCOMPARE(words(slides),
                 QStringList({QStringLiteral("First verse"), QStringLiteral("Sing it\nagain"),
                              QStringLiteral("Second verse"), QStringLiteral("Sing it\nagain")}));
        QCOMPARE(slides.at(1).partName, QStringLiteral("Chorus"));
        for (int i = 0; i < slides.size(); ++i) {
            QCOMPARE(slides.at(i).partIndex, i);
            QCOMPARE(slides.at(i).partCount, 4);
            QCOMPARE(slides.at(i).partType, int(Slide::PartSong));
        }
        QVERIFY(slides.last().IsLastPart());
    }

    void entireTextIsOneSlide() {
        const QList<Slide> slides =
            SlideCutter(RunLook(), {}).Cut(textItem(0, QStringLiteral("a\nb\n\nc\n")));
        QCOMPARE(words(slides), QStringList{QStringLiteral("a\nb\n\nc")});
        QCOMPARE(slides.first().partType, int(Slide::PartText));
    }

    void linesAtATimeCountsOnlyFilledLines() {
        const QList<Slide> slides =
            SlideCutter(RunLook(), {}).Cut(textItem(1, QStringLiteral("a\nb\n\nc\nd\ne"), 2));
        QCOMPARE(words(slides), QStringList({QStringLiteral("a\nb"), QStringLiteral("c\nd"),
                                             QStringLiteral("e")}));
    }

    void zeroLinesAtATimeShowsOneLineEach() {
        const QList<Slide> slides =
            SlideCutter(RunLook(), {}).Cut(textItem(1, QStringLiteral("a\nb"), 0));
        QCOMPARE(words(slides), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    }

    void screenfulTakesWhatFits() {
        // A screen that holds three lines.
        const SlideCutter cutter(RunLook(), [](const QStringList& lines, int first) {
            return qMin(3, static_cast<int>(lines.size()) - first);
        });
        const QList<Slide> slides = cutter.Cut(textItem(2, QStringLiteral("1\n2\n3\n4\n5\n6\n7")));
        QCOMPARE(words(slides), QStringList({QStringLiteral("1\n2\n3"), QStringLiteral("4\n5\n6"),
                                             QStringLiteral("7")}));
    }

    void verseByVerseFollowsParagraphs() {
        const QList<Slide> slides =
            SlideCutter(RunLook(), {})
                .Cut(textItem(
                    3, QStringLiteral("Our Father\nin heaven\n\n\nhallowed be\n\nyour name")));
        QCOMPARE(words(slides),
                 QStringList({QStringLiteral("Our Father\nin heaven"),
                              QStringLiteral("hallowed be"), QStringLiteral("your name")}));
    }

    void emptyTextStillGivesOneSlide() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(textItem(3, QString()));
        QCOMPARE(slides.size(), 1);
        QCOMPARE(slides.first().kind, Slide::Kind::Text);
        QCOMPARE(slides.first().title, QStringLiteral("A prayer"));
    }

    void onePointAtATimeWithSubPointsTogether() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(4, false));
        QCOMPARE(slides.size(), 2);
        QCOMPARE(pointTexts(slides.at(0)), QStringLiteral("0One|1One a|1One b"));
        QCOMPARE(pointTexts(slides.at(1)), QStringLiteral("0Two"));
        QCOMPARE(slides.at(0).partType, int(Slide::PartPoint));
    }

    void onePointAtATimeRevealingSubPoints() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(4, true));
        QStringList shown;
        for (const Slide& slide : slides)
            shown << pointTexts(slide);
        QCOMPARE(shown,
                 QStringList({QStringLiteral("0One"), QStringLiteral("0One|1One a"),
                              QStringLiteral("0One|1One a|1One b"), QStringLiteral("0Two")}));
    }

    void revealedPointsStayOnScreen() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(5, false));
        QCOMPARE(slides.size(), 2);
        QCOMPARE(pointTexts(slides.at(0)), QStringLiteral("0One|1One a|1One b"));
        QCOMPARE(pointTexts(slides.at(1)), QStringLiteral("0One|1One a|1One b|0Two"));
    }

    void revealedPointsWithSubPointsOneByOne() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(5, true));
        QStringList shown;
        for (const Slide& slide : slides)
            shown << pointTexts(slide);
        QCOMPARE(shown, QStringList({QStringLiteral("0One"), QStringLiteral("0One|1One a"),
                                     QStringLiteral("0One|1One a|1One b"),
                                     QStringLiteral("0One|1One a|1One b|0Two")}));
    }

    void allPointsAtStartIsOneSlide() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(6, false));
        QCOMPARE(slides.size(), 1);
        QCOMPARE(pointTexts(slides.first()), QStringLiteral("0One|1One a|1One b|0Two"));
    }

    void allPointsAtStartThenSubPointsOneByOne() {
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(pointsItem(6, true));
        QStringList shown;
        for (const Slide& slide : slides)
            shown << pointTexts(slide);
        QCOMPARE(shown,
                 QStringList({QStringLiteral("0One|0Two"), QStringLiteral("0One|1One a|0Two"),
                              QStringLiteral("0One|1One a|1One b|0Two")}));
    }

    void pointsModeOutsidePointsTakesTheOptionsDefault() {
        RunLook look;
        look.pointDisplayMode = 6;
        const QList<Slide> slides = SlideCutter(look, {}).Cut(pointsItem(0, false));
        QCOMPARE(slides.size(), 1);
        QCOMPARE(slides.first().points.size(), 4);
    }

    void pointsModeOutsidePointsTakesTheOptionsSubPointsOneByOne() {
        RunLook look;
        look.pointDisplayMode = 4;
        look.revealSubPointsOneByOne = true;
        const QList<Slide> slides = SlideCutter(look, {}).Cut(pointsItem(0, false));
        QStringList shown;
        for (const Slide& slide : slides)
            shown << pointTexts(slide);
        QCOMPARE(shown,
                 QStringList({QStringLiteral("0One"), QStringLiteral("0One|1One a"),
                              QStringLiteral("0One|1One a|1One b"), QStringLiteral("0Two")}));
    }

    void itemsOwnPointsModeKeepsItsOwnSubPointsSetting() {
        RunLook look;
        look.revealSubPointsOneByOne = true;
        const QList<Slide> slides = SlideCutter(look, {}).Cut(pointsItem(4, false));
        QCOMPARE(slides.size(), 2);
        QCOMPARE(pointTexts(slides.at(0)), QStringLiteral("0One|1One a|1One b"));
    }

    void pointsListWithoutPointsRunsAsText() {
        RunItem item = pointsItem(4, false);
        item.points.clear();
        item.text = QStringLiteral("Plain words");
        const QList<Slide> slides = SlideCutter(RunLook(), {}).Cut(item);
        QCOMPARE(slides.first().kind, Slide::Kind::Text);
        QCOMPARE(slides.first().Words(), QStringLiteral("Plain words"));
    }

    void detailsFollowTheOptions() {
        RunItem item = textItem(0, QStringLiteral("Words"));
        item.source = QStringLiteral("Book of Prayer");
        item.copyright = QStringLiteral("Public domain");
        item.location = QStringLiteral("Page 4");
        RunLook look;
        look.showDescription = true;
        look.showSource = true;
        look.showCopyright = false;
        look.showLocation = true;
        Slide slide = SlideCutter(look, {}).Cut(item).first();
        QCOMPARE(slide.title, QStringLiteral("A prayer"));
        QCOMPARE(slide.footer, QStringLiteral("Book of Prayer - Page 4"));
        look.showDescription = false;
        slide = SlideCutter(look, {}).Cut(item).first();
        QVERIFY(slide.title.isEmpty());
    }

    void hiddenDetailsShowNoneOfThem() {
        RunItem item = textItem(0, QStringLiteral("Words"));
        item.source = QStringLiteral("Book of Prayer");
        item.hideDetails = true;
        RunLook look;
        look.showSource = true;
        const Slide slide = SlideCutter(look, {}).Cut(item).first();
        QVERIFY(slide.title.isEmpty());
        QVERIFY(slide.footer.isEmpty());
    }

    void itemBackgroundsComeBeforeTheDefault() {
        RunLook look;
        look.backgroundPicture = QStringLiteral("/default.png");
        RunItem item = textItem(0, QStringLiteral("Words"));
        QCOMPARE(SlideCutter(look, {}).Cut(item).first().backgrounds,
                 QStringList{QStringLiteral("/default.png")});
        item.backgrounds = {QStringLiteral("/a.png"), QStringLiteral("/b.png")};
        item.changeImageEveryXSeconds = 20;
        const Slide slide = SlideCutter(look, {}).Cut(item).first();
        QCOMPARE(slide.backgrounds, item.backgrounds);
        QCOMPARE(slide.changeBackgroundEverySeconds, 20);
    }
};

QTEST_GUILESS_MAIN(tst_SlideCutter)
#include "tst_SlideCutter.moc"
