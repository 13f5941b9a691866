#include "Screenshot.h"

#include "DataAccess.h"
#include "MainWindow.h"
#include "ProjectorWindow.h"
#include "RunController.h"
#include "RunSession.h"
#include "ServiceRows.h"
#include "StartUp.h"
#include "run/ctlRun.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr QSize ProjectorSize(1024, 768);

bool save(const QImage& image, const QDir& dir, const QString& name, QTextStream& log) {
    const QString path = dir.filePath(name);
    const bool saved = image.save(path, "PNG");
    log << (saved ? "wrote " : "could not write ") << path << "\n";
    return saved;
}

QImage grab(QWidget& widget) {
    QApplication::processEvents();
    return widget.grab().toImage();
}

// Lets the projector paint what changed and the console refresh its mirror.
void waitForProjector(ProjectorWindow& projector) {
    bool shown = false;
    const QMetaObject::Connection connection =
        QObject::connect(&projector, &ProjectorWindow::PictureShown, [&shown] { shown = true; });
    for (int round = 0; round < 20 && !shown; ++round)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    QObject::disconnect(connection);
}

bool pages(MainWindow& window, const QDir& dir, QTextStream& log) {
    bool ok = true;
    for (const QString& name :
         {QStringLiteral("Services"), QStringLiteral("ServiceItems"), QStringLiteral("Templates"),
          QStringLiteral("ShortLists"), QStringLiteral("Options")}) {
        window.ShowPage(name);
        ok = save(grab(window), dir, QStringLiteral("main-%1.png").arg(name.toLower()), log) && ok;
    }
    window.ShowPage(QStringLiteral("Services"));
    return ok;
}

bool run(MainWindow& window, qint32 serviceId, const QDir& dir, QTextStream& log) {
    if (!window.RunService(serviceId)) {
        log << "the sample service " << serviceId << " could not be run\n";
        return false;
    }
    RunSession* session = window.Session();
    session->Engine().SetRecordsDelivery(false); // a picture is no delivery
    if (!session->Projector()->Placement().fullScreen)
        session->Projector()->resize(ProjectorSize);
    waitForProjector(*session->Projector());
    bool ok = true;
    for (int step = 1; step <= Screenshot::Steps && !session->Engine().AtEndOfService(); ++step) {
        const QString number = QStringLiteral("%1").arg(step, 2, 10, QLatin1Char('0'));
        ok = save(session->Projector()->Picture(), dir,
                  QStringLiteral("projector-%1.png").arg(number), log) &&
             ok;
        ok = save(grab(window), dir, QStringLiteral("console-%1.png").arg(number), log) && ok;
        session->Controller()->OperatorAction(OperatorKeys::Action::Forward);
        waitForProjector(*session->Projector());
    }
    window.EndRun();
    return ok;
}

} // namespace

namespace Screenshot {

bool IsNotBlank(const QImage& image) {
    if (image.isNull())
        return false;
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            if (image.pixel(x, y) != first)
                return true;
    return false;
}

qint32 SampleServiceID() {
    DataAccess& da = DataAccess::Instance();
    QString err;
    std::unique_ptr<Recordset> services;
    da.GetServices(QString(), 4, err, services);
    if (!err.isEmpty() || !services)
        return 0;
    for (services->MoveFirst(); !services->Eof(); services->MoveNext()) {
        const qint32 id = services->Fields(QStringLiteral("ServiceID")).toInt();
        std::unique_ptr<Recordset> rows;
        da.GetServiceContents(QStringLiteral("ServiceID = %1").arg(id), 4, err, rows);
        int shown = 0;
        for (rows->MoveFirst(); err.isEmpty() && !rows->Eof(); rows->MoveNext())
            shown += ServiceRows::ShownAtRunTime(*rows) ? 1 : 0;
        if (shown > 1)
            return id;
    }
    return 0;
}

void SelectTwoScreens(const QTemporaryDir& dir) {
    const QString file = dir.filePath(QStringLiteral("screens.json"));
    QFile json(file);
    if (!dir.isValid() || !json.open(QIODevice::WriteOnly))
        return; // one offscreen screen: the pictures are drawn all the same
    json.write(
        R"({"screens":[)"
        R"({"name":"Console","x":0,"y":0,"width":1280,"height":800,"logicalDpi":96,"dpr":1},)"
        R"({"name":"Projector","x":1280,"y":0,"width":1024,"height":768,"logicalDpi":96,)"
        R"("dpr":1}]})");
    json.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toLocal8Bit());
}

int Take(const QString& strFolder, const StartUp& startUp, QTextStream& log) {
    if (!startUp.DatabaseOpen()) {
        log << "no database: " << startUp.errorMessage << "\n";
        return 1;
    }
    QDir dir;
    if (!dir.mkpath(strFolder) || !dir.cd(strFolder)) {
        log << "cannot write into " << strFolder << "\n";
        return 1;
    }
    MainWindow window(startUp);
    window.resize(1280, 800);
    window.show();
    bool ok = pages(window, dir, log);
    const qint32 serviceId = SampleServiceID();
    if (serviceId == 0) {
        log << "the database holds no service to run\n";
        return 1;
    }
    ok = run(window, serviceId, dir, log) && ok;
    return ok ? 0 : 1;
}

} // namespace Screenshot
