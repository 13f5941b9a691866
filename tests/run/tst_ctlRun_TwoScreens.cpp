// The run console on a real Qt desktop of two screens: the offscreen platform
// with A (1024 by 768) at the origin and B (1920 by 1080) to its right. No
// scripted platform: monitors and the desktop grab are Qt's own.
#include "TestDatabase.h"
#include "TwoScreens.h"

#include "run/ctlRun.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// Stands in for the host's projector window (host/ProjectorWindow.h): a
// top-level window titled "CorvantisRunForm" that paints the picture the
// congregation sees, here two coloured halves.
class ProjectorWindow : public QWidget {
    Q_OBJECT
public:
    ProjectorWindow() {
        setWindowTitle(QStringLiteral("CorvantisRunForm"));
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    void SetColors(const QColor& left, const QColor& right) {
        m_left = left;
        m_right = right;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, width() / 2, height()), m_left);
        painter.fillRect(QRect(width() / 2, 0, width() - width() / 2, height()), m_right);
    }

private:
    QColor m_left = Qt::darkGreen;
    QColor m_right = Qt::magenta;
};

class tst_ctlRun_TwoScreens : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void projectorRectIsTheSecondScreen();
    void mirrorShowsWhatTheWindowOnTheSecondScreenPaints();
    void mirrorStaysOldUntilItIsRefreshed();
    void projectorWindowOnTheSecondScreenIsFound();

private:
    QColor MirrorPixel(int x, int y) const {
        return console->imgMirror->pixmap().toImage().pixelColor(x, y);
    }
    void ShowProjector();

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ctlRun> console;
    std::unique_ptr<ProjectorWindow> projector;
};

void tst_ctlRun_TwoScreens::initTestCase() {
    QCOMPARE(QGuiApplication::screens().size(), 2);
    QCOMPARE(QGuiApplication::primaryScreen()->geometry(), QRect(0, 0, 1024, 768));
}

void tst_ctlRun_TwoScreens::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY2(db->IsValid(), qPrintable(db->LastError()));
    console = std::make_unique<ctlRun>();
    console->setGeometry(50, 50, 900, 650);
    console->show();
    QVERIFY(QTest::qWaitForWindowExposed(console.get()));
}

void tst_ctlRun_TwoScreens::cleanup() {
    projector.reset();
    console.reset();
    db.reset();
}

// Full screen on B, as the host puts it.
void tst_ctlRun_TwoScreens::ShowProjector() {
    projector = std::make_unique<ProjectorWindow>();
    projector->setGeometry(QGuiApplication::screens().at(1)->geometry());
    projector->show();
    QVERIFY(QTest::qWaitForWindowExposed(projector.get()));
    QCOMPARE(projector->screen(), QGuiApplication::screens().at(1));
}

void tst_ctlRun_TwoScreens::projectorRectIsTheSecondScreen() {
    QCOMPARE(console->ProjectorRect(), QRect(1025, 0, 1920, 1080));
}

void tst_ctlRun_TwoScreens::mirrorShowsWhatTheWindowOnTheSecondScreenPaints() {
    ShowProjector();

    console->RefreshScreenMirror();

    const QPixmap mirror = console->imgMirror->pixmap();
    QCOMPARE(mirror.size(), QSize(1920, 1080));
    // The grab starts one pixel inside B, so the halves meet at 959.
    QCOMPARE(MirrorPixel(10, 10), QColor(Qt::darkGreen));
    QCOMPARE(MirrorPixel(958, 1079), QColor(Qt::darkGreen));
    QCOMPARE(MirrorPixel(959, 500), QColor(Qt::magenta));
    QCOMPARE(MirrorPixel(1918, 10), QColor(Qt::magenta));
}

void tst_ctlRun_TwoScreens::mirrorStaysOldUntilItIsRefreshed() {
    ShowProjector();
    console->RefreshScreenMirror();
    QCOMPARE(MirrorPixel(10, 10), QColor(Qt::darkGreen));

    projector->SetColors(Qt::yellow, Qt::cyan);
    QTRY_COMPARE(QGuiApplication::screens()
                     .at(1)
                     ->grabWindow(0, 1024 + 10, 10, 1, 1)
                     .toImage()
                     .pixelColor(0, 0),
                 QColor(Qt::yellow));
    QCOMPARE(MirrorPixel(10, 10), QColor(Qt::darkGreen));

    console->cmdRefresh->click();

    QCOMPARE(MirrorPixel(10, 10), QColor(Qt::yellow));
    QCOMPARE(MirrorPixel(1500, 10), QColor(Qt::cyan));
}

void tst_ctlRun_TwoScreens::projectorWindowOnTheSecondScreenIsFound() {
    ShowProjector();
    QWidget* hWnd = nullptr;
    QCOMPARE(console->GetProjectorWindowHandle(hWnd), projector.get());
}

CORVANTIS_TWO_SCREEN_TEST_MAIN(tst_ctlRun_TwoScreens)

#include "tst_ctlRun_TwoScreens.moc"
