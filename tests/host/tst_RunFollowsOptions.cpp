// A running service follows the options: a change of the run font, colours
// or background picture in the options row shows on the projector at the
// next slide, without starting the run again.
#include "ProjectorWindow.h"
#include "RunLook.h"
#include "RunSession.h"
#include "ScriptedPlatform.h"
#include "SlideRenderer.h"
#include "TestDatabase.h"

#include <QtTest>

#include <memory>

class tst_RunFollowsOptions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void changedFontAndBackgroundShowAtTheNextSlide();
    void unchangedOptionsKeepTheSlides();
    void detailsSwitchedOnInOptionsShowAtTheNextSlide();

private:
    QImage Frame() const;
    QImage Expected(const Slide& slide) const;
    void Start();

    QString m_savedIni;
    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<ScriptedPlatform> platform;
    std::unique_ptr<RunSession> session;
    qint32 m_service = 0;
};

namespace {

bool Same(const QImage& a, const QImage& b) {
    return a.size() == b.size() &&
           a.convertToFormat(QImage::Format_RGB32) == b.convertToFormat(QImage::Format_RGB32);
}

} // namespace

void tst_RunFollowsOptions::init() {
    db = std::make_unique<TestDatabase>();
    QVERIFY(db->IsValid());
    m_savedIni = qEnvironmentVariable("CORVANTIS_INI_DIR");
    qputenv("CORVANTIS_INI_DIR", db->Folder().toUtf8());
    platform = std::make_unique<ScriptedPlatform>();
    const qint32 collect = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect"),
                                              QStringLiteral("Almighty God, to whom all hearts"));
    const qint32 blessing = db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Blessing"),
                                               QStringLiteral("The grace of our Lord"));
    QVERIFY(collect > 0 && blessing > 0);
    QVERIFY(db->Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemSource = 'Book of Prayer' "
                                    "WHERE ServiceItemID = ?"),
                     {blessing}));
    m_service = db->AddService(QStringLiteral("Morning"), {{collect}, {blessing}});
    QVERIFY(m_service > 0);
}

void tst_RunFollowsOptions::cleanup() {
    session.reset();
    platform.reset();
    db.reset();
    qputenv("CORVANTIS_INI_DIR", m_savedIni.toUtf8());
}

void tst_RunFollowsOptions::Start() {
    session = std::make_unique<RunSession>(nullptr);
    QString err;
    QVERIFY2(session->StartService(m_service, err), qPrintable(err));
    QVERIFY(QTest::qWaitForWindowExposed(session->Projector()));
}

QImage tst_RunFollowsOptions::Frame() const {
    return session->Projector()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The slide drawn alone with the look that the options row holds now.
QImage tst_RunFollowsOptions::Expected(const Slide& slide) const {
    QString err;
    SlideRenderer renderer;
    renderer.SetLook(RunLook::FromOptions(err));
    return renderer.Render(slide, session->Projector()->size());
}

void tst_RunFollowsOptions::changedFontAndBackgroundShowAtTheNextSlide() {
    Start();
    RunEngine& engine = session->Engine();
    const RunLook before = engine.Look();
    QVERIFY(Same(Frame(), Expected(engine.CurrentSlide())));

    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(QColor(0, 160, 0));
    const QString path = db->ContentFolder() + QStringLiteral("/Meadow.png");
    QVERIFY(picture.save(path));
    QVERIFY(
        db->Exec(QStringLiteral("UPDATE Options SET RunModeFontName = 'DejaVu Serif', "
                                "RunModeFontSize = 48, RunModeFontColor = ?, "
                                "RunModeBackColor = ?, DefaultBackgroundImage = ?"),
                 {RunLook::ToBgr(QColor(255, 255, 0)), RunLook::ToBgr(QColor(128, 0, 0)), path}));
    // The slide that shows keeps its look until the operator moves on.
    QCOMPARE(engine.Look().fontName, before.fontName);

    QTest::keyClick(session->Projector(), Qt::Key_Right);
    QCOMPARE(engine.CurrentItem(), 1);
    QCOMPARE(engine.Look().fontName, QStringLiteral("DejaVu Serif"));
    QCOMPARE(engine.Look().backgroundPicture, path);
    QVERIFY(engine.CurrentSlide().backgrounds.contains(path));
    const QImage frame = Frame();
    QVERIFY(Same(frame, Expected(engine.CurrentSlide())));
    SlideRenderer old;
    old.SetLook(before);
    QVERIFY(!Same(frame, old.Render(engine.CurrentSlide(), frame.size())));
    // The corner is the green picture under a veil of the new dark red.
    const QColor corner = frame.pixelColor(1, 1);
    QVERIFY(corner.green() > 40 && corner.red() > 40 && corner.blue() < 10);
}

void tst_RunFollowsOptions::unchangedOptionsKeepTheSlides() {
    Start();
    RunEngine& engine = session->Engine();
    const RunLook before = engine.Look();
    QTest::keyClick(session->Projector(), Qt::Key_Right);
    QCOMPARE(engine.CurrentItem(), 1);
    QVERIFY(engine.Look() == before);
    QVERIFY(Same(Frame(), Expected(engine.CurrentSlide())));
}

void tst_RunFollowsOptions::detailsSwitchedOnInOptionsShowAtTheNextSlide() {
    QVERIFY(db->Exec(QStringLiteral("UPDATE Options SET ShowSourceAtRunTime = 0")));
    Start();
    RunEngine& engine = session->Engine();
    QVERIFY(!engine.Look().showSource);
    QVERIFY(db->Exec(QStringLiteral("UPDATE Options SET ShowSourceAtRunTime = 1")));
    QTest::keyClick(session->Projector(), Qt::Key_Right);
    QCOMPARE(engine.CurrentItem(), 1);
    QVERIFY(engine.Look().showSource);
    QVERIFY(engine.CurrentSlide().footer.contains(QStringLiteral("Book of Prayer")));
    QVERIFY(Same(Frame(), Expected(engine.CurrentSlide())));
}

QTEST_MAIN(tst_RunFollowsOptions)
#include "tst_RunFollowsOptions.moc"
