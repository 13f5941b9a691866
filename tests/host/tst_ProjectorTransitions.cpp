// The change from one slide to the next on the projector window: each
// transition of the options drawn at its start, middle and end, a cut and
// switched-off transitions changing at once, a Forward during a running
// transition finishing it and going on, and a transition starting from the
// slide as it was shown when the look or the size of the words changed since.
#include "DataAccess.h"
#include "ProjectorWindow.h"
#include "RunEngine.h"
#include "RunLook.h"
#include "ScriptedPlatform.h"
#include "Settings.h"
#include "TestDatabase.h"

#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QVariantAnimation>
#include <QtTest>

#include <memory>

class tst_ProjectorTransitions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void transitionShowsOldSlideAtStartBothInTheMiddleNewAtEnd_data();
    void transitionShowsOldSlideAtStartBothInTheMiddleNewAtEnd();
    void transitionLastsTheDurationOfItsSpeed_data();
    void transitionLastsTheDurationOfItsSpeed();
    void cutChangesTheSlideAtOnce();
    void switchedOffTransitionsChangeTheSlideAtOnce();
    void unknownTransitionKindIsACut();
    void useTransitionsIsReadWithoutRegardToCase();
    void forwardDuringATransitionFinishesItAndGoesOn();
    void pictureShownComesOnlyAfterTheTransitionHasEnded();
    void blackOutComesAtOnceEvenWithTransitions();
    void transitionAfterAChangeOfLookStartsFromTheSlideAsItWasShown();
    void transitionsSwitchedOnBetweenSlidesStartFromTheSlideShown();
    void largerWordsComeInFromTheSlideWithTheSmallerOnes();
    void pictureShownFindsTheNewSlideOnTheScreen();

private:
    void SetTransition(qint32 lngType, qint32 lngSpeed, const QString& strUse = "True");
    QImage Frame() const;
    void ShowWindow();

    QString m_savedIni;
    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<RunEngine> engine;
    std::unique_ptr<ProjectorWindow> window;
};

namespace {

// Largest difference of one colour channel between two pictures of one size.
int MaxDifference(const QImage& a, const QImage& b) {
    int worst = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            worst = qMax(worst, qAbs(qRed(p) - qRed(q)));
            worst = qMax(worst, qAbs(qGreen(p) - qGreen(q)));
            worst = qMax(worst, qAbs(qBlue(p) - qBlue(q)));
        }
    return worst;
}

// Half of each channel of a and b: the middle of a fade.
QImage Blend(const QImage& a, const QImage& b) {
    QImage out(a.size(), QImage::Format_RGB32);
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            out.setPixel(x, y,
                         qRgb((qRed(p) + qRed(q)) / 2, (qGreen(p) + qGreen(q)) / 2,
                              (qBlue(p) + qBlue(q)) / 2));
        }
    return out;
}

QImage Black(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

// The middle frame of a push or a wipe, put together from halves of the two
// pictures.
QImage Halves(const QImage& first, const QRect& firstFrom, const QImage& second,
              const QRect& secondFrom, bool blnSideBySide) {
    QImage out(first.size(), QImage::Format_RGB32);
    QPainter painter(&out);
    painter.drawImage(QPoint(0, 0), first, firstFrom);
    painter.drawImage(blnSideBySide ? QPoint(first.width() / 2, 0) : QPoint(0, first.height() / 2),
                      second, secondFrom);
    return out;
}

QImage ExpectedMiddle(qint32 lngType, const QImage& from, const QImage& to) {
    const int w = from.width(), h = from.height();
    const QRect left(0, 0, w / 2, h), right(w / 2, 0, w / 2, h);
    const QRect top(0, 0, w, h / 2), bottom(0, h / 2, w, h / 2);
    switch (lngType) {
    case DataAccess::transFade:
        return Blend(from, to);
    case DataAccess::transDissolveThroughBlack:
        return Black(from.size());
    case DataAccess::transSlideLeft:
        return Halves(from, right, to, left, true);
    case DataAccess::transSlideRight:
        return Halves(to, right, from, left, true);
    case DataAccess::transSlideUp:
        return Halves(from, bottom, to, top, false);
    case DataAccess::transSlideDown:
        return Halves(to, bottom, from, top, false);
    case DataAccess::transWipe:
        return Halves(to, left, from, right, true);
    }
    return QImage();
}

} // namespace

void tst_ProjectorTransitions::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    m_savedIni = qEnvironmentVariable("CORVANTIS_INI_DIR");
    qputenv("CORVANTIS_INI_DIR", db->Folder().toUtf8());
    platform = std::make_unique<ScriptedPlatform>();
    const qint32 collect = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                              QStringLiteral("Almighty God, to whom all hearts"));
    const qint32 psalm = db->AddServiceItem(TestDatabase::Reading, QStringLiteral("Psalm 23"),
                                            QStringLiteral("The Lord is my shepherd"));
    const qint32 blessing = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Blessing"),
                                               QStringLiteral("The grace of our Lord"));
    QVERIFY(collect > 0 && psalm > 0 && blessing > 0);
    const qint32 service =
        db->AddService(QStringLiteral("Morning"), {{collect}, {psalm}, {blessing}});
    QVERIFY(service > 0);
    engine = std::make_unique<RunEngine>();
    QString err;
    QVERIFY2(engine->LoadService(service, err), qPrintable(err));
    window = std::make_unique<ProjectorWindow>(*engine);
}

void tst_ProjectorTransitions::cleanup() {
    window.reset();
    engine.reset();
    platform.reset();
    db.reset();
    qputenv("CORVANTIS_INI_DIR", m_savedIni.toUtf8());
}

void tst_ProjectorTransitions::SetTransition(qint32 lngType, qint32 lngSpeed,
                                             const QString& strUse) {
    QVERIFY(Settings::WritePrivateProfileString(QStringLiteral("Options"),
                                                QStringLiteral("UseTransitions"), strUse));
    QVERIFY(
        db->Exec(QStringLiteral("UPDATE Options SET RunModeTransType = ?, RunModeTransSpeed = ?"),
                 {lngType, lngSpeed}));
    QString err;
    engine->SetLook(RunLook::FromOptions(err));
    QVERIFY2(err.isEmpty(), qPrintable(err));
}

QImage tst_ProjectorTransitions::Frame() const {
    return window->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void tst_ProjectorTransitions::ShowWindow() {
    QSignalSpy shown(window.get(), &ProjectorWindow::PictureShown);
    window->resize(320, 240);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QTRY_COMPARE(engine->ScreenSize(), QSize(320, 240));
    QTRY_VERIFY(!shown.isEmpty()); // the first slide is on the window
}

void tst_ProjectorTransitions::transitionShowsOldSlideAtStartBothInTheMiddleNewAtEnd_data() {
    QTest::addColumn<qint32>("type");
    QTest::newRow("fade") << qint32(DataAccess::transFade);
    QTest::newRow("dissolve through black") << qint32(DataAccess::transDissolveThroughBlack);
    QTest::newRow("slide left") << qint32(DataAccess::transSlideLeft);
    QTest::newRow("slide right") << qint32(DataAccess::transSlideRight);
    QTest::newRow("slide up") << qint32(DataAccess::transSlideUp);
    QTest::newRow("slide down") << qint32(DataAccess::transSlideDown);
    QTest::newRow("wipe") << qint32(DataAccess::transWipe);
}

void tst_ProjectorTransitions::transitionShowsOldSlideAtStartBothInTheMiddleNewAtEnd() {
    QFETCH(qint32, type);
    SetTransition(type, DataAccess::speedSlow);
    ShowWindow();
    const QImage from = window->Picture();
    QCOMPARE(MaxDifference(Frame(), from), 0);
    engine->Next();
    const QImage to = window->Picture();
    QVERIFY(MaxDifference(from, to) > 100); // the two slides really differ
    QVERIFY(window->IsInTransition());
    QVariantAnimation* animation = window->Transition();
    animation->pause();

    animation->setCurrentTime(0);
    QCOMPARE(MaxDifference(Frame(), from), 0);

    animation->setCurrentTime(animation->duration() / 2);
    const QImage middle = Frame();
    QVERIFY(MaxDifference(middle, from) > 50);
    QVERIFY(MaxDifference(middle, to) > 50);
    QVERIFY(MaxDifference(middle, ExpectedMiddle(type, from, to)) <= 3);

    animation->setCurrentTime(animation->duration());
    QVERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), to), 0);
}

void tst_ProjectorTransitions::transitionLastsTheDurationOfItsSpeed_data() {
    QTest::addColumn<qint32>("speed");
    QTest::addColumn<int>("duration");
    QTest::newRow("slow") << qint32(DataAccess::speedSlow) << 1000;
    QTest::newRow("medium") << qint32(DataAccess::speedMedium) << 600;
    QTest::newRow("fast") << qint32(DataAccess::speedFast) << 300;
}

void tst_ProjectorTransitions::transitionLastsTheDurationOfItsSpeed() {
    QFETCH(qint32, speed);
    QFETCH(int, duration);
    SetTransition(DataAccess::transWipe, speed);
    ShowWindow();
    engine->Next();
    QVERIFY(window->IsInTransition());
    QCOMPARE(window->Transition()->duration(), duration);
    QTRY_VERIFY(!window->IsInTransition());
}

void tst_ProjectorTransitions::cutChangesTheSlideAtOnce() {
    SetTransition(DataAccess::transCut, DataAccess::speedSlow);
    ShowWindow();
    engine->Next();
    QVERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), window->Picture()), 0);
}

void tst_ProjectorTransitions::switchedOffTransitionsChangeTheSlideAtOnce() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow, QStringLiteral("False"));
    ShowWindow();
    engine->Next();
    QVERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), window->Picture()), 0);
}

void tst_ProjectorTransitions::unknownTransitionKindIsACut() {
    SetTransition(99, DataAccess::speedSlow);
    QCOMPARE(engine->Look().transitionType, qint32(DataAccess::transCut));
    ShowWindow();
    engine->Next();
    QVERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), window->Picture()), 0);
}

void tst_ProjectorTransitions::useTransitionsIsReadWithoutRegardToCase() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow, QStringLiteral("tRUE"));
    QVERIFY(engine->Look().useTransitions);
    SetTransition(DataAccess::transFade, DataAccess::speedSlow, QStringLiteral("1"));
    QVERIFY(!engine->Look().useTransitions);
}

void tst_ProjectorTransitions::forwardDuringATransitionFinishesItAndGoesOn() {
    SetTransition(DataAccess::transSlideLeft, DataAccess::speedSlow);
    ShowWindow();
    engine->Next();
    const QImage second = window->Picture();
    window->Transition()->pause();
    window->Transition()->setCurrentTime(400);
    QVERIFY(window->IsInTransition());

    engine->Next(); // the operator presses Forward again before the slide is in
    QCOMPARE(engine->CurrentItem(), 2);
    QVERIFY(window->IsInTransition());
    QCOMPARE(window->Transition()->currentTime(), 0);
    // The new transition starts from the second slide whole: no jump back.
    QCOMPARE(MaxDifference(Frame(), second), 0);
    const QImage third = window->Picture();
    QTRY_VERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), third), 0);
}

void tst_ProjectorTransitions::pictureShownComesOnlyAfterTheTransitionHasEnded() {
    SetTransition(DataAccess::transFade, DataAccess::speedFast);
    ShowWindow();
    QSignalSpy shown(window.get(), &ProjectorWindow::PictureShown);
    engine->Next();
    window->Transition()->pause();
    window->Transition()->setCurrentTime(150);
    window->repaint();
    QCoreApplication::processEvents();
    QCOMPARE(shown.count(), 0);
    window->Transition()->resume();
    QTRY_COMPARE(shown.count(), 1);
    QVERIFY(!window->IsInTransition());
}

void tst_ProjectorTransitions::blackOutComesAtOnceEvenWithTransitions() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow);
    ShowWindow();
    engine->SetBlackedOut(true);
    QVERIFY(!window->IsInTransition());
    QCOMPARE(MaxDifference(Frame(), Black(window->size())), 0);
}

void tst_ProjectorTransitions::transitionAfterAChangeOfLookStartsFromTheSlideAsItWasShown() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow);
    ShowWindow();
    const QImage shown = Frame();
    RunLook look = engine->Look();
    look.backColor = QColor(20, 90, 40);
    engine->SetLook(look); // as the run does when the options changed before a press
    engine->Next();
    QVERIFY(window->IsInTransition());
    window->Transition()->pause();
    window->Transition()->setCurrentTime(0);
    QCOMPARE(MaxDifference(Frame(), shown), 0);
    window->Transition()->setCurrentTime(window->Transition()->duration());
    const QImage after = Frame();
    QCOMPARE(MaxDifference(after, window->Picture()), 0);
    QCOMPARE(after.pixelColor(0, 0), QColor(20, 90, 40));
}

void tst_ProjectorTransitions::transitionsSwitchedOnBetweenSlidesStartFromTheSlideShown() {
    SetTransition(DataAccess::transWipe, DataAccess::speedSlow, QStringLiteral("False"));
    ShowWindow();
    const QImage shown = Frame();
    SetTransition(DataAccess::transWipe, DataAccess::speedSlow);
    engine->Next();
    QVERIFY(window->IsInTransition());
    window->Transition()->pause();
    window->Transition()->setCurrentTime(0);
    QCOMPARE(MaxDifference(Frame(), shown), 0);
}

void tst_ProjectorTransitions::largerWordsComeInFromTheSlideWithTheSmallerOnes() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow);
    ShowWindow();
    const QImage smaller = Frame();
    engine->IncreaseSize();
    const QImage larger = window->Picture();
    QVERIFY(MaxDifference(smaller, larger) > 100);
    QVERIFY(window->IsInTransition());
    window->Transition()->pause();
    window->Transition()->setCurrentTime(0);
    QCOMPARE(MaxDifference(Frame(), smaller), 0);
    window->Transition()->setCurrentTime(window->Transition()->duration());
    QCOMPARE(MaxDifference(Frame(), larger), 0);
}

void tst_ProjectorTransitions::pictureShownFindsTheNewSlideOnTheScreen() {
    SetTransition(DataAccess::transFade, DataAccess::speedSlow, QStringLiteral("False"));
    ShowWindow();
    const QImage before = window->Picture();
    QImage onScreen;
    connect(window.get(), &ProjectorWindow::PictureShown, window.get(), [this, &onScreen] {
        const QRect area = window->geometry();
        onScreen = window->screen()
                       ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                       .toImage()
                       .convertToFormat(QImage::Format_RGB32);
    });
    engine->Next();
    QTRY_VERIFY(!onScreen.isNull());
    QVERIFY(MaxDifference(window->Picture(), before) > 100);
    QCOMPARE(MaxDifference(onScreen, window->Picture()), 0);
}

QTEST_MAIN(tst_ProjectorTransitions)
#include "tst_ProjectorTransitions.moc"
