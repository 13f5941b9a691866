// The service editor on a large database: opening a service of 60 rows on the
// Content tab, and saving its rows, against the same number of bare inserts in
// one transaction. Every figure is the best of the runs (default 7), in
// milliseconds. Run by hand on a Release build (see bench/README.md).
#include "DataAccess.h"
#include "LargeDatabase.h"
#include "ScriptedPlatform.h"
#include "services/ctlService.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <limits>

namespace {
constexpr int kRows = 60;

double Best(int intRuns, const std::function<double()>& run) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i)
        best = std::min(best, run());
    return best;
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

    ctlService* shown = nullptr;
    const double open = Best(intRuns, [&] {
        delete shown;
        shown = new ctlService;
        shown->SSTab1->setCurrentIndex(1);
        shown->show();
        QElapsedTimer timer;
        timer.start();
        shown->setItems(QString::number(service));
        shown->ShowProperties();
        QApplication::processEvents();
        return timer.nsecsElapsed() / 1e6;
    });
    const double save = Best(intRuns, [&] {
        shown->cmdAddBlank->click(); // the contents change: the save writes every row
        QElapsedTimer timer;
        timer.start();
        shown->cmdApplyChanges->click();
        return timer.nsecsElapsed() / 1e6;
    });
    const double bare = Best(intRuns, [&] {
        QElapsedTimer timer;
        timer.start();
        QSqlDatabase db = da.Database();
        db.transaction();
        QSqlQuery query(db);
        query.prepare("INSERT INTO ServiceContents (ServiceID, Position, ServiceItemID, "
                      "ShowAtRunTime, Length) VALUES (?, ?, ?, 1, '0')");
        for (int i = 0; i < kRows; ++i) {
            query.addBindValue(service);
            query.addBindValue(i + 1);
            query.addBindValue(2 + i * 97);
            query.exec();
        }
        db.rollback();
        return timer.nsecsElapsed() / 1e6;
    });
    delete shown;
    QTextStream(stdout) << "rows " << kRows << "  open " << open << " ms  save " << save
                        << " ms  bare inserts " << bare << " ms  save/bare " << save / bare << "\n";
    return 0;
}
