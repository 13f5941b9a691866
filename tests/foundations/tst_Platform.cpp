// The Qt implementation of the Platform: VB's message boxes, the file, font
// and colour dialogs, message pumping, files, the shell, key strokes to the
// host, and monitors, metrics and the desktop grab on two screens.
#include "foundations/Platform.h"
#include "foundations/VBError.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

namespace {

// A frameless window of one colour at a place on the desktop, for the grab tests.
void ShowColouredWindow(QWidget& window, const QColor& colour, const QRect& geometry) {
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setAutoFillBackground(true);
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, colour);
    window.setPalette(palette);
    window.setGeometry(geometry);
    window.show();
}
// Runs act on the next modal dialog of type W as soon as it is open; the
// dialog's own event loop runs the poll.
template <class W> void whenModal(std::function<void(W*)> act) {
    auto* timer = new QTimer;
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (auto* dialog = qobject_cast<W*>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            act(dialog);
        }
    });
    timer->start();
}

// What a message box showed, and a click on one of its buttons.
struct BoxSeen {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;
};

qint32 showBox(qint32 intButtons, const QString& strTitle, QMessageBox::StandardButton click,
               BoxSeen& seen) {
    whenModal<QMessageBox>([&seen, click](QMessageBox* box) {
        seen.buttons = box->standardButtons();
        seen.defaultButton = box->standardButton(box->defaultButton());
        seen.icon = box->icon();
        seen.title = box->windowTitle();
        seen.text = box->text();
        box->button(click)->click();
    });
    return Platform::Current().MsgBox(QStringLiteral("Do you want to save?"), intButtons, strTitle);
}

// A text box that notes the keys it receives.
class KeyRecorder : public QLineEdit {
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        keys << event->key();
        QLineEdit::keyPressEvent(event);
    }
};

class TestPlatform : public Platform {};
} // namespace

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(QMessageBox::StandardButtons)

class tst_Platform : public QObject {
    Q_OBJECT
private slots:
    void currentIsTheQtPlatformUntilOneIsInstalled();
    void destroyedPlatformUninstallsItself();
    void msgBoxShowsVbButtonSetsAndAnswersVbCodes_data();
    void msgBoxShowsVbButtonSetsAndAnswersVbCodes();
    void msgBoxTitleDefaultsToCorvantis();
    void showOpenTakesVbFilterAndReturnsChosenFile();
    void showOpenOffersTheNewerFormatsOfTheFamiliesItWasGiven();
    void showOpenCancelRaises32755();
    void showOpenCancelWithoutCancelErrorGivesEmpty();
    void pictureFilterOpensThumbnailView();
    void showSaveStartsAtFileNameAndCancelRaises32755();
    void showColorAnswersBgrLong();
    void showFontAnswersChosenFontAndCancelRaises32755();
    void doEventsRunsPendingEvents();
    void fileExistsForFilesOnly();
    void localPathTurnsBackslashes();
    void shellExecuteOfMissingFileOrUnknownVerb();
    void sendKeysF1ReachesTheFocusWidget();
    void monitorsPrimaryFirst();
    void systemMetricsOfTwoMonitors();
    void grabDesktopPicturesWhatIsOnTheScreens();
    void grabWithinOneScreenPicturesThatScreensArea();
    void grabReachingPastTheDesktopIsBlackBeyondItsEdge();
    void grabOverTwoScreensIsBlackWhereNoScreenLies();

private:
    QTemporaryDir m_dir;
};

void tst_Platform::currentIsTheQtPlatformUntilOneIsInstalled() {
    QCOMPARE(Platform::Installed(), nullptr);
    Platform& qt = Platform::Current();
    TestPlatform mine;
    Platform::Install(&mine);
    QCOMPARE(&Platform::Current(), &mine);
    QCOMPARE(Platform::Installed(), &mine);
    Platform::Install(nullptr);
    QCOMPARE(&Platform::Current(), &qt);
    QCOMPARE(Platform::Installed(), nullptr);
}

void tst_Platform::destroyedPlatformUninstallsItself() {
    Platform& qt = Platform::Current();
    {
        TestPlatform mine;
        Platform::Install(&mine);
    }
    QCOMPARE(&Platform::Current(), &qt);
}

void tst_Platform::msgBoxShowsVbButtonSetsAndAnswersVbCodes_data() {
    QTest::addColumn<qint32>("style");
    QTest::addColumn<QMessageBox::StandardButtons>("buttons");
    QTest::addColumn<QMessageBox::StandardButton>("defaultButton");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QMessageBox::StandardButton>("click");
    QTest::addColumn<qint32>("answer");
    using MB = QMessageBox;
    QTest::newRow("OK only, exclamation")
        << 48 << MB::StandardButtons(MB::Ok) << MB::Ok << int(MB::Warning) << MB::Ok << vbOK;
    QTest::newRow("OK/Cancel, Cancel")
        << 1 << (MB::Ok | MB::Cancel) << MB::Ok << int(MB::NoIcon) << MB::Cancel << vbCancel;
    QTest::newRow("Yes/No/Cancel, question, default 2 (291)")
        << 291 << (MB::Yes | MB::No | MB::Cancel) << MB::No << int(MB::Question) << MB::Yes
        << vbYes;
    QTest::newRow("Yes/No, No") << (vbYesNo | vbInformation) << (MB::Yes | MB::No) << MB::Yes
                                << int(MB::Information) << MB::No << vbNo;
    QTest::newRow("Yes/No/Cancel, default 3")
        << (vbYesNoCancel | vbDefaultButton3 | vbCritical) << (MB::Yes | MB::No | MB::Cancel)
        << MB::Cancel << int(MB::Critical) << MB::Cancel << vbCancel;
    QTest::newRow("Abort/Retry/Ignore")
        << vbAbortRetryIgnore << (MB::Abort | MB::Retry | MB::Ignore) << MB::Abort
        << int(MB::NoIcon) << MB::Retry << vbRetry;
}

void tst_Platform::msgBoxShowsVbButtonSetsAndAnswersVbCodes() {
    QFETCH(qint32, style);
    QFETCH(QMessageBox::StandardButtons, buttons);
    QFETCH(QMessageBox::StandardButton, defaultButton);
    QFETCH(int, icon);
    QFETCH(QMessageBox::StandardButton, click);
    QFETCH(qint32, answer);
    BoxSeen seen;
    QCOMPARE(showBox(style, QStringLiteral("Save Changes?"), click, seen), answer);
    QCOMPARE(seen.buttons, buttons);
    QCOMPARE(seen.defaultButton, defaultButton);
    QCOMPARE(int(seen.icon), icon);
    QCOMPARE(seen.title, QStringLiteral("Save Changes?"));
    QCOMPARE(seen.text, QStringLiteral("Do you want to save?"));
}

void tst_Platform::msgBoxTitleDefaultsToCorvantis() {
    BoxSeen seen;
    QCOMPARE(showBox(vbOKOnly, QString(), QMessageBox::Ok, seen), vbOK);
    QCOMPARE(seen.title, QStringLiteral("Corvantis"));
}

void tst_Platform::showOpenTakesVbFilterAndReturnsChosenFile() {
    const QString file = m_dir.filePath(QStringLiteral("Grace.txt"));
    QFile f(file);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    QStringList filters;
    QString title;
    whenModal<QFileDialog>([&](QFileDialog* dialog) {
        filters = dialog->nameFilters();
        title = dialog->windowTitle();
        dialog->selectFile(file);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    const QString chosen =
        Platform::Current().ShowOpen(QStringLiteral("Hymn Files|*.txt;*.hym|All Files|*.*"),
                                     QStringLiteral("Choose a file"), m_dir.path());
    QCOMPARE(chosen, file);
    QCOMPARE(filters, (QStringList{QStringLiteral("Hymn Files (*.txt *.hym)"),
                                   QStringLiteral("All Files (*.*)"),
                                   QStringLiteral("Newer formats (*.docx *.odt)")}));
    QCOMPARE(title, QStringLiteral("Choose a file"));
}

// A .pptx or a .png is read as well as the .ppt and .jpg of the long-standing
// filters: the desktop dialog lists them in an entry of their own after the
// caller's, and a filter of other files (music) is left as it was given.
void tst_Platform::showOpenOffersTheNewerFormatsOfTheFamiliesItWasGiven() {
    QList<QStringList> seen;
    const auto look = [&] {
        whenModal<QFileDialog>([&](QFileDialog* dialog) {
            seen << dialog->nameFilters();
            dialog->reject();
        });
    };
    look();
    Platform::Current().ShowOpen(QStringLiteral("PowerPoint Presentations (*.ppt)|*.ppt"),
                                 QString(), m_dir.path(), false);
    look();
    Platform::Current().ShowOpen(QStringLiteral("Picture Files|*.bmp;*.jpg;*.png"), QString(),
                                 m_dir.path(), false);
    look();
    Platform::Current().ShowOpen(QStringLiteral("Music Files|*.mp3;*.wav;*.mid"), QString(),
                                 m_dir.path(), false);
    QCOMPARE(seen.size(), 3);
    QCOMPARE(seen.at(0), (QStringList{QStringLiteral("PowerPoint Presentations (*.ppt)"),
                                      QStringLiteral("Newer formats (*.pptx *.odp)")}));
    QCOMPARE(seen.at(1), (QStringList{QStringLiteral("Picture Files (*.bmp *.jpg *.png)"),
                                      QStringLiteral("Newer formats (*.jpeg)")}));
    QCOMPARE(seen.at(2), (QStringList{QStringLiteral("Music Files (*.mp3 *.wav *.mid)")}));
}

void tst_Platform::showOpenCancelRaises32755() {
    whenModal<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    try {
        Platform::Current().ShowOpen(QStringLiteral("All|*.*"));
        QFAIL("Cancel did not raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 32755);
        QCOMPARE(e.Description, QStringLiteral("Cancel was selected."));
    }
}

void tst_Platform::showOpenCancelWithoutCancelErrorGivesEmpty() {
    whenModal<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    QCOMPARE(Platform::Current().ShowOpen(QStringLiteral("All|*.*"), QString(), QString(), false),
             QString());
}

void tst_Platform::pictureFilterOpensThumbnailView() {
    QListView::ViewMode mode = QListView::ListMode;
    bool found = false;
    whenModal<QFileDialog>([&](QFileDialog* dialog) {
        if (auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"))) {
            found = true;
            mode = list->viewMode();
        }
        dialog->reject();
    });
    Platform::Current().ShowOpen(QStringLiteral("Pictures|*.bmp;*.jpg;*.gif|All|*.*"), QString(),
                                 m_dir.path(), false);
    QVERIFY(found);
    QCOMPARE(mode, QListView::IconMode);
}

void tst_Platform::showSaveStartsAtFileNameAndCancelRaises32755() {
    QStringList selected;
    whenModal<QFileDialog>([&](QFileDialog* dialog) {
        selected = dialog->selectedFiles();
        dialog->reject();
    });
    try {
        Platform::Current().ShowSave(QStringLiteral("Rich Text|*.rtf"), QStringLiteral("Save as"),
                                     m_dir.path(), QStringLiteral("Service.rtf"));
        QFAIL("Cancel did not raise");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, 32755);
    }
    QCOMPARE(selected, QStringList{m_dir.filePath(QStringLiteral("Service.rtf"))});
}

void tst_Platform::showColorAnswersBgrLong() {
    QColor initial;
    whenModal<QColorDialog>([&](QColorDialog* dialog) {
        initial = dialog->currentColor();
        dialog->setCurrentColor(QColor(0x12, 0x34, 0x56));
        dialog->accept();
    });
    QCOMPARE(Platform::Current().ShowColor(0x0000FF), 0x563412);
    QCOMPARE(initial, QColor(Qt::red));
    whenModal<QColorDialog>([](QColorDialog* dialog) { dialog->reject(); });
    QCOMPARE(Platform::Current().ShowColor(0x00FF00, false), 0x00FF00);
}

void tst_Platform::showFontAnswersChosenFontAndCancelRaises32755() {
    QFont chosen(QStringLiteral("Serif"), 24);
    whenModal<QFontDialog>([&](QFontDialog* dialog) {
        dialog->setCurrentFont(chosen);
        dialog->accept();
    });
    QCOMPARE(Platform::Current().ShowFont(QFont(QStringLiteral("Sans"), 10)).pointSize(), 24);
    whenModal<QFontDialog>([](QFontDialog* dialog) { dialog->reject(); });
    QVERIFY_THROWS_EXCEPTION(VBError, Platform::Current().ShowFont(QFont()));
}

void tst_Platform::doEventsRunsPendingEvents() {
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&] { ran = true; }, Qt::QueuedConnection);
    QVERIFY(!ran);
    Platform::Current().DoEvents();
    QVERIFY(ran);
}

void tst_Platform::fileExistsForFilesOnly() {
    const QString file = m_dir.filePath(QStringLiteral("exists.txt"));
    QFile f(file);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    QVERIFY(Platform::Current().FileExists(file));
    QVERIFY(!Platform::Current().FileExists(m_dir.path()));
    QVERIFY(!Platform::Current().FileExists(m_dir.filePath(QStringLiteral("missing.txt"))));
    QVERIFY(!Platform::Current().FileExists(QString()));
    QString backslashed = file;
    backslashed.replace(QLatin1Char('/'), QLatin1Char('\\'));
    QVERIFY(Platform::Current().FileExists(backslashed));
}

void tst_Platform::localPathTurnsBackslashes() {
    QCOMPARE(Platform::LocalPath(QStringLiteral("\\tmp\\a.txt")), QStringLiteral("/tmp/a.txt"));
    QCOMPARE(Platform::LocalPath(QStringLiteral("/tmp/a.txt")), QStringLiteral("/tmp/a.txt"));
    QCOMPARE(Platform::LocalPath(QString()), QString());
}

void tst_Platform::shellExecuteOfMissingFileOrUnknownVerb() {
    const QString missing = m_dir.filePath(QStringLiteral("nothing-here.doc"));
    QCOMPARE(Platform::Current().ShellExecute(QStringLiteral("open"), missing, QString(), QString(),
                                              SW_SHOWNORMAL),
             2);
    QCOMPARE(Platform::Current().ShellExecute(QStringLiteral("frobnicate"), missing, QString(),
                                              QString(), SW_SHOWNORMAL),
             31);
}

void tst_Platform::sendKeysF1ReachesTheFocusWidget() {
    KeyRecorder host;
    host.show();
    host.activateWindow();
    host.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    QTRY_COMPARE(QApplication::focusWidget(), &host);
    Platform::Current().SendKeys(QStringLiteral("{F1}"));
    QTRY_COMPARE(host.keys, QList<int>{Qt::Key_F1});
}

void tst_Platform::monitorsPrimaryFirst() {
    const QList<QRect> rects = Platform::Current().MonitorRects();
    QCOMPARE(rects, (QList<QRect>{QRect(0, 0, 1024, 768), QRect(1024, 0, 1920, 1080)}));
    QCOMPARE(Platform::Current().MonitorWorkRects().size(), 2);
    QCOMPARE(Platform::Current().MonitorFromPoint(QPoint(10, 10)), 0);
    QCOMPARE(Platform::Current().MonitorFromPoint(QPoint(2000, 1000)), 1);
    QCOMPARE(Platform::Current().MonitorFromPoint(QPoint(500, 900)), -1);
}

void tst_Platform::systemMetricsOfTwoMonitors() {
    Platform& p = Platform::Current();
    QCOMPARE(p.GetSystemMetrics(0), 1024);
    QCOMPARE(p.GetSystemMetrics(1), 768);
    QCOMPARE(p.GetSystemMetrics(76), 0);
    QCOMPARE(p.GetSystemMetrics(77), 0);
    QCOMPARE(p.GetSystemMetrics(78), 2944);
    QCOMPARE(p.GetSystemMetrics(79), 1080);
    QCOMPARE(p.GetSystemMetrics(80), 2);
}

void tst_Platform::grabDesktopPicturesWhatIsOnTheScreens() {
    QWidget red;
    ShowColouredWindow(red, Qt::red, QRect(1100, 100, 200, 100));
    QVERIFY(QTest::qWaitForWindowExposed(&red));
    QCOMPARE(red.screen()->geometry(), QRect(1024, 0, 1920, 1080));
    const QRect area(1000, 50, 400, 200);
    QImage picture;
    QTRY_VERIFY((picture = Platform::Current().GrabDesktop(area).toImage(),
                 QColor(picture.pixel(200, 100)) == QColor(Qt::red)));
    QCOMPARE(picture.size(), QSize(400, 200));
    // Outside the window the desktop is not red.
    QVERIFY(QColor(picture.pixel(20, 20)) != QColor(Qt::red));
}

void tst_Platform::grabWithinOneScreenPicturesThatScreensArea() {
    QWidget blue;
    ShowColouredWindow(blue, Qt::blue, QRect(1300, 300, 100, 60));
    QVERIFY(QTest::qWaitForWindowExposed(&blue));
    // Wholly on the second screen, as the console grabs the projector's.
    const QRect area(1250, 250, 300, 200);
    QImage picture;
    QTRY_VERIFY((picture = Platform::Current().GrabDesktop(area).toImage(),
                 QColor(picture.pixel(80, 80)) == QColor(Qt::blue)));
    QCOMPARE(picture.size(), QSize(300, 200));
    QCOMPARE(QColor(picture.pixel(50, 50)), QColor(Qt::blue));
    QCOMPARE(QColor(picture.pixel(149, 109)), QColor(Qt::blue));
    QVERIFY(QColor(picture.pixel(150, 110)) != QColor(Qt::blue));
    QVERIFY(QColor(picture.pixel(49, 49)) != QColor(Qt::blue));
}

void tst_Platform::grabReachingPastTheDesktopIsBlackBeyondItsEdge() {
    QWidget green;
    ShowColouredWindow(green, Qt::green, QRect(2850, 150, 94, 50));
    QVERIFY(QTest::qWaitForWindowExposed(&green));
    // The second screen ends at x 2943; the area goes 156 columns beyond it, as
    // the console's mirror reaches one column past a projector on the right.
    const QRect area(2800, 100, 300, 200);
    QImage picture;
    QTRY_VERIFY((picture = Platform::Current().GrabDesktop(area).toImage(),
                 QColor(picture.pixel(60, 60)) == QColor(Qt::green)));
    QCOMPARE(picture.size(), QSize(300, 200));
    QCOMPARE(QColor(picture.pixel(143, 99)), QColor(Qt::green));
    QCOMPARE(QColor(picture.pixel(144, 60)), QColor(Qt::black));
    QCOMPARE(QColor(picture.pixel(299, 199)), QColor(Qt::black));
    QVERIFY(QColor(picture.pixel(49, 49)) != QColor(Qt::green));
}

void tst_Platform::grabOverTwoScreensIsBlackWhereNoScreenLies() {
    // A window on the first screen that hangs below it, where the taller second screen
    // goes on beside nothing.
    QWidget yellow;
    ShowColouredWindow(yellow, Qt::yellow, QRect(950, 720, 40, 100));
    QVERIFY(QTest::qWaitForWindowExposed(&yellow));
    QCOMPARE(yellow.geometry(), QRect(950, 720, 40, 100));
    QWidget blue;
    ShowColouredWindow(blue, Qt::blue, QRect(1050, 780, 60, 60));
    QVERIFY(QTest::qWaitForWindowExposed(&blue));
    const QRect area(900, 700, 300, 200);
    QImage picture;
    QTRY_VERIFY((picture = Platform::Current().GrabDesktop(area).toImage(),
                 QColor(picture.pixel(60, 40)) == QColor(Qt::yellow) &&
                     QColor(picture.pixel(170, 100)) == QColor(Qt::blue)));
    QCOMPARE(picture.size(), QSize(300, 200));
    QCOMPARE(QColor(picture.pixel(60, 67)), QColor(Qt::yellow));
    // Below the first screen: black, the window's part there included.
    QCOMPARE(QColor(picture.pixel(60, 68)), QColor(Qt::black));
    QCOMPARE(QColor(picture.pixel(60, 110)), QColor(Qt::black));
    QCOMPARE(QColor(picture.pixel(0, 199)), QColor(Qt::black));
    QCOMPARE(QColor(picture.pixel(123, 199)), QColor(Qt::black));
    // The second screen goes on below the first's edge: its window there shows.
    QCOMPARE(QColor(picture.pixel(150, 80)), QColor(Qt::blue));
    QCOMPARE(QColor(picture.pixel(209, 139)), QColor(Qt::blue));
}

int main(int argc, char** argv) {
    // Two monitors side by side, the primary on the left.
    QTemporaryDir config;
    const QString screens = config.filePath(QStringLiteral("screens.json"));
    QFile file(screens);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write(
        R"({"screens":[{"name":"A","x":0,"y":0,"width":1024,"height":768,"logicalDpi":96,"dpr":1},
{"name":"B","x":1024,"y":0,"width":1920,"height":1080,"logicalDpi":96,"dpr":1}]})");
    file.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screens).toUtf8());
    QApplication app(argc, argv);
    tst_Platform test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Platform.moc"
