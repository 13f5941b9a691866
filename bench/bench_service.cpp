// The service editor on a large database: opening a service of 60 rows on the
// Content tab (up to the painted grid, and the item gallery that loads after
// it), and saving its rows, against the same rows deleted and inserted again
// bare in one committed transaction. Every figure is the best of the runs
// (default 7), in milliseconds. Run by hand (see bench/README.md).
#include "DataAccess.h"
#include "LargeDatabase.h"
#include "ScriptedPlatform.h"
#include "services/ctlService.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <limits>

namespace {
constexpr int kRows = 60;

double Best(int intRuns, const std::function<double()>& run) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i)
        best = std::min(best, run());
    return best;
}

double Elapsed(const QElapsedTimer& timer) {
    return timer.nsecsElapsed() / 1e6;
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int intRuns = argc > 1 ? QString(argv[1]).toInt() : 7;
    QTemporaryDir dir;
    QString error;
    if (!LargeDatabase::Generate(dir.path() + "/Corvantis.pdb", LargeDatabase::Options(), error)) {
        QTextStream(stderr) << error << "\n";
        return 1;
    }
    ScriptedPlatform platform;
    platform.SetDefaultAnswer(vbOK);
    DataAccess& da = DataAccess::Instance();
    qint32 service = 0;
    da.AddService(error, service);
    for (int i = 0; i < kRows; ++i)
        da.AddServiceContentItem(service, 2 + i * 97, true, "0", error);

    // Open: from ShowProperties to the grid painted with the service's rows.
    // The item gallery beside it loads after that paint: its figure is the time
    // from the paint to the loaded gallery.
    ctlService* shown = nullptr;
    double gallery = std::numeric_limits<double>::max();
    const double open = Best(intRuns, [&] {
        delete shown;
        shown = new ctlService;
        shown->SSTab1->setCurrentIndex(1);
        shown->show();
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        shown->setItems(QString::number(service));
        shown->ShowProperties();
        shown->fgItemsInService->viewport()->repaint();
        const double painted = Elapsed(timer);
        QElapsedTimer loading;
        loading.start();
        while (!shown->ItemGalleryLoaded())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        gallery = std::min(gallery, Elapsed(loading));
        return painted;
    });

    // Save: each run first adds one Blank, so that the contents are dirty and
    // the save deletes the service's rows and writes them all again, committed.
    // Bare: right after it, the rows that save stored, deleted and inserted
    // again by one prepared statement in one committed transaction. The two
    // alternate, so that both meet the same state of the disk and the machine.
    QList<QVariantList> stored;
    auto saveOnce = [&] {
        shown->cmdAddBlank->click();
        QElapsedTimer timer;
        timer.start();
        shown->cmdApplyChanges->click();
        return Elapsed(timer);
    };
    auto bareOnce = [&] {
        stored.clear();
        QSqlQuery read(da.Database());
        read.exec(QString("SELECT ServiceItemID, ShowAtRunTime, Length FROM ServiceContents "
                          "WHERE ServiceID = %1 ORDER BY Position")
                      .arg(service));
        while (read.next())
            stored.append({read.value(0), read.value(1), read.value(2)});
        read.finish();
        QElapsedTimer timer;
        timer.start();
        QSqlDatabase db = da.Database();
        db.transaction();
        QSqlQuery query(db);
        query.exec(QString("DELETE FROM ServiceContents WHERE ServiceID = %1").arg(service));
        query.prepare("INSERT INTO ServiceContents (ServiceID, Position, ServiceItemID, "
                      "ShowAtRunTime, Length) VALUES (?, ?, ?, ?, ?)");
        for (int i = 0; i < stored.size(); ++i) {
            query.bindValue(0, service);
            query.bindValue(1, i + 1);
            query.bindValue(2, stored[i][0]);
            query.bindValue(3, stored[i][1]);
            query.bindValue(4, stored[i][2]);
            query.exec();
        }
        query.finish();
        db.commit();
        return Elapsed(timer);
    };
    double save = std::numeric_limits<double>::max();
    double bare = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i) {
        save = std::min(save, saveOnce());
        bare = std::min(bare, bareOnce());
    }
    delete shown;
    QTextStream(stdout) << "rows " << kRows << " (saved " << stored.size() << ")  open " << open
                        << " ms  item gallery after it " << gallery << " ms  save " << save
                        << " ms  bare " << bare << " ms  save/bare " << save / bare << "\n";
    return 0;
}
