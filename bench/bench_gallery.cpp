// Benchmark of the service item gallery: loading the tree (grouped by Type, every
// item shown) and one key stroke in the quick filter, on generated databases of
// 1,000, 5,000 and 10,000 service items, each beside the time of the same SQL
// query run alone on the same file.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery [runs]
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery --loop bare|library|load ITEMS COUNT
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery --loop quickbare|quicklibrary N COUNT [T]
//
// Every figure is the best of the runs (default 7) in milliseconds: on a shared
// machine the other work only ever adds time. See bench/README.md for the figures
// of the last run and what they mean. --loop repeats one step COUNT times on one
// database of ITEMS items and prints nothing else, for a profiler.

#include "DataAccess.h"
#include "LargeDatabase.h"
#include "Recordset.h"
#include "foundations/VBStatusBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <numeric>

#include <time.h>

namespace {

// ---------------------------------------------------------------- The bare query

// The statement the data library runs for the gallery, written out: the same join,
// the same order, the condition through the engine's own Like function.
QString BareSql(const QString& strQuickText) {
    QString sql =
        "SELECT si.*, t.ServiceItemTypeName, t.ServiceItemTypeID, k.KeywordID, k.KeywordText, "
        "p.PointKey, p.PointText FROM ServiceItems si "
        "LEFT JOIN ServiceItemTypes t ON t.ServiceItemTypeID = si.ServiceItemTypeID "
        "LEFT JOIN ServiceItemKeywords sik ON sik.ServiceItemID = si.ServiceItemID "
        "LEFT JOIN KeyWords k ON k.KeywordID = sik.KeywordID "
        "LEFT JOIN ServiceItemPoints p ON p.ServiceItemID = si.ServiceItemID";
    if (!strQuickText.isEmpty()) {
        QStringList parts;
        for (const char* field :
             {"t.ServiceItemTypeName", "si.ServiceItemDescription", "si.ServiceItemContent",
              "si.ServiceItemNotes", "si.ServiceItemSource", "si.ServiceItemProvider",
              "si.ServiceItemMelody", "k.KeywordText", "si.ServiceItemOriginalLocation",
              "p.PointText"})
            parts << QString("jet_like(%1, ?)").arg(field);
        sql += " WHERE " + parts.join(" OR ");
    }
    sql += " ORDER BY si.ServiceItemDateCreated DESC, si.ServiceItemID DESC, k.KeywordText "
           "COLLATE JETTEXT, p.Position";
    return sql;
}

// Runs the statement and reads every value of every row; returns the row count.
qint32 RunBare(const QString& strQuickText) {
    QSqlQuery q(DataAccess::Instance().Database());
    q.setForwardOnly(true);
    q.prepare(BareSql(strQuickText));
    if (!strQuickText.isEmpty())
        for (int i = 0; i < 10; ++i)
            q.bindValue(i, "*" + strQuickText + "*");
    if (!q.exec()) {
        std::fprintf(stderr, "bare query failed: %s\n", qPrintable(q.lastError().text()));
        return -1;
    }
    qint32 rows = 0;
    const int columns = q.record().count();
    while (q.next()) {
        for (int c = 0; c < columns; ++c)
            (void)q.value(c);
        ++rows;
    }
    return rows;
}

QString QuickClause(const QString& T) {
    QStringList parts;
    for (const char* field :
         {"ServiceItemTypes.ServiceItemTypeName", "ServiceItems.ServiceItemDescription",
          "ServiceItems.ServiceItemContent", "ServiceItems.ServiceItemNotes",
          "ServiceItems.ServiceItemSource", "ServiceItems.ServiceItemProvider",
          "ServiceItems.ServiceItemMelody", "KeyWords.KeywordText",
          "ServiceItems.ServiceItemOriginalLocation", "ServiceItemPoints.PointText"})
        parts << QString("%1 Like '*%2*'").arg(field, T);
    return parts.join(" Or ");
}

qint32 CountNodes(QTreeWidget* tree) {
    qint32 n = 0;
    std::function<void(QTreeWidgetItem*)> count = [&](QTreeWidgetItem* item) {
        ++n;
        for (int c = 0; c < item->childCount(); ++c)
            count(item->child(c));
    };
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        count(tree->topLevelItem(i));
    return n;
}

double Best(const QList<double>& values) {
    return values.isEmpty() ? 0.0 : *std::min_element(values.begin(), values.end());
}

double TimeMs(const std::function<void()>& f) {
    QElapsedTimer t;
    t.start();
    f();
    return static_cast<double>(t.nsecsElapsed()) / 1e6;
}

// Shows the gallery (tree, grouped by Type) with the show-all switch on.
void ShowWithShowAllOn(ctlServiceItemGallery& gallery) {
    gallery.resize(500, 700);
    gallery.show();
    (void)QTest::qWaitForWindowExposed(&gallery);
    // Show-all on: the switch in panel 2 reads "Show All" after its first click.
    QLabel* panel2 = gallery.StatusBar1->Panels(2);
    QTest::mouseClick(panel2, Qt::LeftButton);
    QTest::mouseClick(panel2, Qt::LeftButton);
    if (!panel2->text().startsWith("Show Last"))
        std::fprintf(stderr, "show-all is not on\n");
    QApplication::processEvents();
}

struct Figures {
    qint32 items = 0, rows = 0, quickRows = 0, nodes = 0, quickNodes = 0;
    double bare = 0, library = 0, load = 0, quickBare = 0, quickLibrary = 0, quickKey = 0;
};

Figures Measure(qint32 lngItems, int runs) {
    Figures fig;
    fig.items = lngItems;
    QTemporaryDir dir;
    LargeDatabase::Options options;
    options.serviceItems = lngItems;
    QString strErrorMessage;
    if (!LargeDatabase::Generate(dir.path() + "/Corvantis.pdb", options, strErrorMessage)) {
        std::fprintf(stderr, "could not generate the database: %s\n", qPrintable(strErrorMessage));
        return fig;
    }
    const QString T = "a";
    QList<double> bare, library, load, quickBare, quickLibrary, quickKey;
    for (int r = 0; r < runs; ++r) {
        bare << TimeMs([&] { fig.rows = RunBare(QString()); });
        quickBare << TimeMs([&] { fig.quickRows = RunBare(T); });
        library << TimeMs([&] {
            QString msg;
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServiceItemsJoined(QString(), 4, msg, rs);
        });
        quickLibrary << TimeMs([&] {
            QString msg;
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServiceItemsJoined(QuickClause(T), 4, msg, rs);
        });

        ctlServiceItemGallery gallery;
        ShowWithShowAllOn(gallery);

        load << TimeMs([&] {
            gallery.ShowServiceItems();
            QApplication::processEvents(); // the painting the load ends with
        });
        fig.nodes = CountNodes(gallery.tvwServiceItems);
        quickKey << TimeMs([&] {
            QTest::keyClick(gallery.txtQuickFilter, T.at(0).toLatin1());
            QApplication::processEvents();
        });
        fig.quickNodes = CountNodes(gallery.tvwServiceItems);
    }
    fig.bare = Best(bare);
    fig.library = Best(library);
    fig.load = Best(load);
    fig.quickBare = Best(quickBare);
    fig.quickLibrary = Best(quickLibrary);
    fig.quickKey = Best(quickKey);
    DataAccess::Instance().CloseDatabase();
    return fig;
}

// The processor time of the calling thread, in milliseconds: other work on a shared machine
// adds to the wall-clock time of a step but hardly to this.
double ThreadCpuMs() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Repeats one step on one database, for a profiler: "bare", "library" or "load", or the
// quick filter's condition on the bare statement or through the library ("quickbare",
// "quicklibrary"; the quick text is the fifth argument, "a" by default).
int Loop(const QString& strWhat, qint32 lngItems, int count, const QString& strQuickText) {
    QTemporaryDir dir;
    LargeDatabase::Options options;
    options.serviceItems = lngItems;
    QString strErrorMessage;
    if (!LargeDatabase::Generate(dir.path() + "/Corvantis.pdb", options, strErrorMessage)) {
        std::fprintf(stderr, "could not generate the database: %s\n", qPrintable(strErrorMessage));
        return 1;
    }
    ctlServiceItemGallery gallery;
    ShowWithShowAllOn(gallery);
    QList<double> times, cpu;
    for (int i = 0; i < count; ++i) {
        const double cpuBefore = ThreadCpuMs();
        times << TimeMs([&] {
            if (strWhat == "bare") {
                RunBare(QString());
            } else if (strWhat == "quickbare") {
                RunBare(strQuickText);
            } else if (strWhat == "quicklibrary") {
                QString msg;
                std::unique_ptr<Recordset> rs;
                DataAccess::Instance().GetServiceItemsJoined(QuickClause(strQuickText), 4, msg, rs);
            } else if (strWhat == "library") {
                QString msg;
                std::unique_ptr<Recordset> rs;
                DataAccess::Instance().GetServiceItemsJoined(QString(), 4, msg, rs);
            } else {
                gallery.ShowServiceItems();
                QApplication::processEvents();
            }
        });
        cpu << ThreadCpuMs() - cpuBefore;
    }
    std::printf("%s x %d: best %.1f ms, mean %.1f ms, best processor time %.1f ms\n",
                qPrintable(strWhat), count, Best(times),
                std::accumulate(times.begin(), times.end(), 0.0) / std::max(1, count), Best(cpu));
    DataAccess::Instance().CloseDatabase();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    // Settings, data and trace in a folder of their own.
    QTemporaryDir home;
    qputenv("CORVANTIS_INI_DIR", home.path().toUtf8());
    qputenv("CORVANTIS_TRACE", (home.path() + "/Corvantis.trace").toUtf8());
    QApplication app(argc, argv);
    if (argc > 4 && QString(argv[1]) == "--loop")
        return Loop(argv[2], atoi(argv[3]), atoi(argv[4]), argc > 5 ? argv[5] : "a");
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 7;

    std::printf("Service item gallery, best of %d runs, milliseconds\n\n", runs);
    std::printf("%6s %6s | %8s %8s %8s %8s %6s | %8s %8s %8s %8s %6s\n", "items", "rows",
                "bare SQL", "library", "load", "gallery", "ratio", "bare SQL", "library", "key 'a'",
                "gallery", "ratio");
    for (qint32 n : {1000, 5000, 10000}) {
        const Figures f = Measure(n, runs);
        std::printf("%6d %6d | %8.1f %8.1f %8.1f %8.1f %6.2f | %8.1f %8.1f %8.1f %8.1f %6.2f\n",
                    f.items, f.rows, f.bare, f.library, f.load, f.load - f.library,
                    f.bare > 0 ? f.load / f.bare : 0.0, f.quickBare, f.quickLibrary, f.quickKey,
                    f.quickKey - f.quickLibrary, f.quickBare > 0 ? f.quickKey / f.quickBare : 0.0);
        std::fflush(stdout);
    }
    return 0;
}
