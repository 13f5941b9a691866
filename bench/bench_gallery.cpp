// Benchmark of the service item gallery: loading the tree (grouped by Type, every
// item shown) and one key stroke in the quick filter, on generated databases of
// 1,000, 5,000 and 10,000 service items, each beside the time of the same SQL
// query run alone on the same file.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery [runs]
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery --loop bare|library|load ITEMS COUNT
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery --loop quickbare|quicklibrary N COUNT [T]
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery --generate FILE ITEMS
//
// BENCH_NARROW_TEXT in the environment replaces the quick text whose last key is timed as the
// narrowing key ("Source 9" by default). --generate writes the generated database of ITEMS
// items to FILE, to look at its statements with the sqlite3 shell.
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

// The statement the data library runs for the gallery, written out: the same join, the same
// order, the condition through the engine's own Like function. For the quick filter's condition
// the data library first scans the items' words and hands the statement the matching ids as one
// JSON array: with few of them (under a quarter of the items) the engine reads those items by
// their ids, with many it walks the items in date order and looks each id up (the unary plus).
QString BareSql(const QString& strQuickText, bool blnFew) {
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
        sql += QString(" WHERE (%1si.ServiceItemID IN (SELECT value FROM json_each(?))) AND (")
                   .arg(blnFew ? "" : "+") +
               parts.join(" OR ") + ")";
    }
    sql += " ORDER BY si.ServiceItemDateCreated DESC, si.ServiceItemID DESC, k.KeywordText "
           "COLLATE JETTEXT, p.Position";
    return sql;
}

qint32 ScanWords(const QString& strQuickText, QStringList* ids = nullptr);

// The items of the database, counted once when it is made.
qint32 g_items = 0;

// Runs the statement (for a quick text: the scan of the words first) and reads every value of
// every row; returns the row count.
qint32 RunBare(const QString& strQuickText) {
    QStringList ids;
    if (!strQuickText.isEmpty())
        ScanWords(strQuickText, &ids);
    const bool blnFew = ids.size() * 4 < g_items;
    QSqlQuery q(DataAccess::Instance().Database());
    q.setForwardOnly(true);
    q.prepare(BareSql(strQuickText, blnFew));
    if (!strQuickText.isEmpty()) {
        q.bindValue(0, "[" + ids.join(',') + "]");
        for (int i = 1; i < 11; ++i)
            q.bindValue(i, "*" + strQuickText + "*");
    }
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

// What scanning the words costs: the items whose words hold the text, ids read (and kept in ids
// when given); returns their count.
qint32 ScanWords(const QString& strQuickText, QStringList* ids) {
    QSqlQuery q(DataAccess::Instance().Database());
    q.setForwardOnly(true);
    q.prepare("SELECT ServiceItemID FROM ServiceItemWords WHERE Words IS NULL OR "
              "jet_like(Words, ?)");
    q.bindValue(0, "*" + strQuickText + "*");
    if (!q.exec()) {
        std::fprintf(stderr, "scan of the words failed: %s\n", qPrintable(q.lastError().text()));
        return -1;
    }
    qint32 items = 0;
    while (q.next()) {
        const QVariant id = q.value(0);
        if (ids)
            *ids << id.toString();
        ++items;
    }
    return items;
}

qint32 ItemsInDatabase() {
    QSqlQuery q(DataAccess::Instance().Database());
    return q.exec("SELECT count(*) FROM ServiceItems") && q.next() ? q.value(0).toInt() : 0;
}

QString QuickClause(const QString& T);

// The words of the items of a new database are made by the first quick filter, as in use; until
// then every item counts as matching. The figures are those of the words made.
void MakeWords() {
    QString msg;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItemsJoined(QuickClause("zq"), 4, msg, rs);
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

// The processor time of the calling thread, in milliseconds: other work on a shared machine
// adds to the wall-clock time of a step but hardly to this.
double ThreadCpuMs() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// With BENCH_CPU=1 in the environment every figure is the processor time of the thread
// instead of the time on the clock: on a machine busy with other work it is the nearer to what
// a quiet machine's clock would show.
bool g_cpuTime = false;

double TimeMs(const std::function<void()>& f) {
    if (g_cpuTime) {
        const double before = ThreadCpuMs();
        f();
        return ThreadCpuMs() - before;
    }
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
    // The narrowing key: its items left, the scan of the words, the bare statement, the
    // library call and the key itself; and the scan of the words for "a".
    qint32 narrowItems = 0, narrowShown = 0;
    double narrowScan = 0, narrowBare = 0, narrowLibrary = 0, narrowKey = 0, quickScan = 0;
};

// The quick text whose last key the narrowing figures time: the text before it is typed
// first (untimed), then its last character. "Source 9" leaves the items of 8 of the 97
// sources of the generated database.
QString g_narrowText = QStringLiteral("Source 9");

// The service items (not folders) shown in the tree.
qint32 CountItems(QTreeWidget* tree) {
    qint32 n = 0;
    std::function<void(QTreeWidgetItem*, int)> count = [&](QTreeWidgetItem* item, int depth) {
        if (depth == 2)
            ++n;
        for (int c = 0; c < item->childCount(); ++c)
            count(item->child(c), depth + 1);
    };
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        count(tree->topLevelItem(i), 0);
    return n;
}

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
    g_items = ItemsInDatabase();
    MakeWords();
    const QString T = "a";
    const QString N = g_narrowText;
    QList<double> bare, library, load, quickBare, quickLibrary, quickKey;
    QList<double> narrowScan, narrowBare, narrowLibrary, narrowKey, quickScan;
    for (int r = 0; r < runs; ++r) {
        quickScan << TimeMs([&] { ScanWords(T); });
        narrowScan << TimeMs([&] { fig.narrowItems = ScanWords(N); });
        narrowBare << TimeMs([&] { RunBare(N); });
        narrowLibrary << TimeMs([&] {
            QString msg;
            std::unique_ptr<Recordset> rs;
            DataAccess::Instance().GetServiceItemsJoined(QuickClause(N), 4, msg, rs);
        });
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
        gallery.txtQuickFilter->setText(N.chopped(1));
        QApplication::processEvents();
        narrowKey << TimeMs([&] {
            QTest::keyClick(gallery.txtQuickFilter, N.back().toLatin1());
            QApplication::processEvents();
        });
        fig.narrowShown = CountItems(gallery.tvwServiceItems);
    }
    fig.narrowScan = Best(narrowScan);
    fig.narrowBare = Best(narrowBare);
    fig.narrowLibrary = Best(narrowLibrary);
    fig.narrowKey = Best(narrowKey);
    fig.quickScan = Best(quickScan);
    fig.bare = Best(bare);
    fig.library = Best(library);
    fig.load = Best(load);
    fig.quickBare = Best(quickBare);
    fig.quickLibrary = Best(quickLibrary);
    fig.quickKey = Best(quickKey);
    DataAccess::Instance().CloseDatabase();
    return fig;
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
    g_items = ItemsInDatabase();
    MakeWords();
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
            } else if (strWhat == "narrowkey") {
                // The text before the last key is typed outside the timing but inside the
                // profile; compare with "load" to tell the two apart.
                gallery.txtQuickFilter->setText(strQuickText.chopped(1));
                QApplication::processEvents();
                QTest::keyClick(gallery.txtQuickFilter, strQuickText.back().toLatin1());
                QApplication::processEvents();
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
    g_cpuTime = qgetenv("BENCH_CPU") == "1";
    if (const QByteArray text = qgetenv("BENCH_NARROW_TEXT"); !text.isEmpty())
        g_narrowText = QString::fromUtf8(text);
    if (argc > 3 && QString(argv[1]) == "--generate") {
        LargeDatabase::Options options;
        options.serviceItems = atoi(argv[3]);
        QString strErrorMessage;
        const bool ok = LargeDatabase::Generate(argv[2], options, strErrorMessage);
        DataAccess::Instance().CloseDatabase();
        if (!ok)
            std::fprintf(stderr, "%s\n", qPrintable(strErrorMessage));
        return ok ? 0 : 1;
    }
    if (argc > 4 && QString(argv[1]) == "--loop")
        return Loop(argv[2], atoi(argv[3]), atoi(argv[4]), argc > 5 ? argv[5] : "a");
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 7;

    std::printf("Service item gallery, best of %d runs, milliseconds (%s)\n\n", runs,
                g_cpuTime ? "processor time of the thread" : "clock");
    std::printf("%6s %6s | %8s %8s %8s %8s %6s | %8s %8s %8s %8s %6s\n", "items", "rows",
                "bare SQL", "library", "load", "gallery", "ratio", "bare SQL", "library", "key 'a'",
                "gallery", "ratio");
    QList<Figures> all;
    for (qint32 n : {1000, 5000, 10000}) {
        const Figures f = Measure(n, runs);
        all << f;
        std::printf("%6d %6d | %8.1f %8.1f %8.1f %8.1f %6.2f | %8.1f %8.1f %8.1f %8.1f %6.2f\n",
                    f.items, f.rows, f.bare, f.library, f.load, f.load - f.library,
                    f.bare > 0 ? f.load / f.bare : 0.0, f.quickBare, f.quickLibrary, f.quickKey,
                    f.quickKey - f.quickLibrary, f.quickBare > 0 ? f.quickKey / f.quickBare : 0.0);
        std::fflush(stdout);
    }
    std::printf("\nThe last key of '%s' (the text before it typed untimed), and the scan of the "
                "items' words\n\n",
                qPrintable(g_narrowText));
    std::printf("%6s %12s | %8s %8s %8s %8s %6s | %10s\n", "items", "items left", "words",
                "bare SQL", "library", "key", "ratio", "words 'a'");
    for (const Figures& f : all)
        std::printf("%6d %6d %4.1f%% | %8.1f %8.1f %8.1f %8.1f %6.2f | %10.1f\n", f.items,
                    f.narrowShown, 100.0 * f.narrowShown / std::max(1, f.items), f.narrowScan,
                    f.narrowBare, f.narrowLibrary, f.narrowKey,
                    f.narrowBare > 0 ? f.narrowKey / f.narrowBare : 0.0, f.quickScan);
    return 0;
}
