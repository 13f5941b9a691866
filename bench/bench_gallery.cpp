// Benchmark of the service item gallery: loading the tree (grouped by Type, every
// item shown) and one key stroke in the quick filter, on generated databases of
// 1,000, 5,000 and 10,000 service items, each beside the time of the same SQL
// query run alone on the same file.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_gallery [runs]
//
// Every figure is the median of the runs (default 7) in milliseconds. See
// bench/README.md for the figures of the last run and what they mean.

#include "DataAccess.h"
#include "Recordset.h"
#include "TestDatabase.h"
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

namespace {

// ---------------------------------------------------------------- Generated data

const QStringList kWords = {"grace",  "light",   "shepherd", "glory", "peace", "hope",
                            "praise", "mercy",   "kingdom",  "joy",   "faith", "love",
                            "spirit", "morning", "evening",  "cross", "river", "harvest"};

bool Exec(QSqlQuery& q, const QVariantList& values) {
    for (int i = 0; i < values.size(); ++i)
        q.bindValue(i, values.at(i));
    if (!q.exec()) {
        std::fprintf(stderr, "insert failed: %s\n", qPrintable(q.lastError().text()));
        return false;
    }
    return true;
}

// Items of every type with descriptions, contents, sources, providers; about a third
// with one keyword and a third with two; points lists with three points each.
bool Generate(qint32 lngItems) {
    QSqlDatabase db = DataAccess::Instance().Database();
    db.transaction();
    QSqlQuery item(db);
    item.prepare("INSERT INTO ServiceItems (ServiceItemTypeID, ServiceItemDescription, "
                 "ServiceItemContent, ServiceItemSource, ServiceItemProvider, ServiceItemNotes, "
                 "ServiceItemDateCreated) VALUES (?, ?, ?, ?, ?, ?, ?)");
    QSqlQuery keyword(db);
    keyword.prepare("INSERT INTO KeyWords (KeywordText) VALUES (?)");
    QSqlQuery link(db);
    link.prepare("INSERT INTO ServiceItemKeywords (ServiceItemID, KeywordID) VALUES (?, ?)");
    QSqlQuery point(db);
    point.prepare("INSERT INTO ServiceItemPoints (ServiceItemID, Position, PointKey, "
                  "ParentPointKey, PointText) VALUES (?, ?, ?, '', ?)");

    QList<qint64> keywordIds;
    for (int k = 0; k < 40; ++k) {
        if (!Exec(keyword, {QString("%1 %2").arg(kWords.at(k % kWords.size())).arg(k)}))
            return false;
        keywordIds << keyword.lastInsertId().toLongLong();
    }
    const QDateTime start(QDate(2020, 1, 1), QTime(9, 0));
    for (qint32 i = 0; i < lngItems; ++i) {
        const qint32 type = 1 + i % 17;
        const QString word = kWords.at(i % kWords.size());
        const QVariant source = i % 7 == 0 ? QVariant(QMetaType::fromType<QString>())
                                           : QVariant(QString("Source %1").arg(i % 40));
        const QVariant provider = i % 5 == 0 ? QVariant(QMetaType::fromType<QString>())
                                             : QVariant(QString("Provider %1").arg(i % 10));
        if (!Exec(item,
                  {type,
                   QString("%1 of %2 no. %3").arg(word, kWords.at((i / 3) % kWords.size())).arg(i),
                   QString("The words of %1, verse after verse, line after line.").arg(word),
                   source, provider, QString("Notes %1").arg(i),
                   start.addSecs(60LL * i).toString("yyyy-MM-dd HH:mm:ss")}))
            return false;
        const qint64 id = item.lastInsertId().toLongLong();
        for (int k = 0; k < i % 3; ++k)
            if (!Exec(link, {id, keywordIds.at((i + 7 * k) % keywordIds.size())}))
                return false;
        if (type == 11)
            for (int p = 1; p <= 3; ++p)
                if (!Exec(point, {id, p, QString("P%1").arg(p),
                                  QString("Point %1 of %2").arg(p).arg(word)}))
                    return false;
    }
    return db.commit();
}

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

double Median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values.at(values.size() / 2);
}

double TimeMs(const std::function<void()>& f) {
    QElapsedTimer t;
    t.start();
    f();
    return static_cast<double>(t.nsecsElapsed()) / 1e6;
}

struct Figures {
    qint32 items = 0, rows = 0, quickRows = 0, nodes = 0, quickNodes = 0;
    double bare = 0, library = 0, load = 0, quickBare = 0, quickLibrary = 0, quickKey = 0;
};

Figures Measure(qint32 lngItems, int runs) {
    Figures fig;
    fig.items = lngItems;
    TestDatabase db;
    if (!db.IsValid() || !Generate(lngItems)) {
        std::fprintf(stderr, "could not generate the database\n");
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
    fig.bare = Median(bare);
    fig.library = Median(library);
    fig.load = Median(load);
    fig.quickBare = Median(quickBare);
    fig.quickLibrary = Median(quickLibrary);
    fig.quickKey = Median(quickKey);
    return fig;
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
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 7;

    std::printf("Service item gallery, median of %d runs, milliseconds\n\n", runs);
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
