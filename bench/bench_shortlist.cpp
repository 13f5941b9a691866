// Short lists on a large database: a criteria set of three rows applied in the
// short-list editor, from the click on cmdApplyCriteria to the filled tree of
// candidates, and a saved short list of the items found applied in the service
// item gallery, from ApplyShortList to the filled tree. Each beside the same
// statements run bare on SQLite: every statement that the step ran, caught
// with SQLite's own trace (with its bound values written in), run again on the
// same connection and every value of every row read.
//
//   QT_QPA_PLATFORM=offscreen build/bench/bench_shortlist [runs]     # default 7 runs
//   QT_QPA_PLATFORM=offscreen build/bench/bench_shortlist --loop COUNT  # for a profiler
//   BENCH_CPU=1 ... bench_shortlist [runs]     # processor time of the thread instead of clock
//
// Every figure is the best of the runs in milliseconds: on a shared machine the
// other work only ever adds time. See bench/README.md.
#include "DataAccess.h"
#include "LargeDatabase.h"
#include "Recordset.h"
#include "ScriptedPlatform.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "shortlists/ctlShortList.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTextStream>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>

#include <time.h>

namespace {

double Best(int intRuns, const std::function<double()>& run) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i)
        best = std::min(best, run());
    return best;
}

// With BENCH_CPU=1 in the environment every figure is the processor time of the thread instead
// of the time on the clock: on a machine busy with other work it is the nearer to what a quiet
// machine's clock would show (all the work is on this one thread).
bool g_cpuTime = false;

double ThreadCpuMs() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double Time(const std::function<void()>& step) {
    if (g_cpuTime) {
        const double before = ThreadCpuMs();
        step();
        return ThreadCpuMs() - before;
    }
    QElapsedTimer timer;
    timer.start();
    step();
    return timer.nsecsElapsed() / 1e6;
}

sqlite3* Handle() {
    const QVariant handle = DataAccess::Instance().Database().driver()->handle();
    return *static_cast<sqlite3* const*>(handle.data());
}

// The statements that SQLite runs while the step runs, with their values.
QStringList CatchStatements(const std::function<void()>& step) {
    static QStringList caught;
    caught.clear();
    auto trace = [](unsigned, void*, void* p, void*) -> int {
        auto* stmt = static_cast<sqlite3_stmt*>(p);
        if (char* sql = sqlite3_expanded_sql(stmt)) {
            const QString text = QString::fromUtf8(sql);
            if (text.trimmed().startsWith(QLatin1String("SELECT"), Qt::CaseInsensitive))
                caught << text;
            sqlite3_free(sql);
        }
        return 0;
    };
    sqlite3_trace_v2(Handle(), SQLITE_TRACE_STMT, trace, nullptr);
    step();
    sqlite3_trace_v2(Handle(), 0, nullptr, nullptr);
    return caught;
}

// Runs the statements alone and reads every value of every row; the rows in all.
qint64 RunBare(const QStringList& statements) {
    qint64 rows = 0;
    for (const QString& sql : statements) {
        QSqlQuery q(DataAccess::Instance().Database());
        q.setForwardOnly(true);
        if (!q.exec(sql)) {
            std::fprintf(stderr, "bare statement failed: %s\n", qPrintable(q.lastError().text()));
            return -1;
        }
        const int columns = q.record().count();
        while (q.next()) {
            for (int c = 0; c < columns; ++c)
                (void)q.value(c);
            ++rows;
        }
    }
    return rows;
}

void SetRow(ctlShortList& ctl, qint16 Index, const QString& strField, const QString& strOperator,
            const QString& strText) {
    ctl.cboFields(Index)->setCurrentIndex(ctl.cboFields(Index)->findText(strField));
    ctl.cboOperator(Index)->setCurrentIndex(ctl.cboOperator(Index)->findText(strOperator));
    if (ctl.txtCriterion1(Index)->isVisibleTo(&ctl))
        ctl.txtCriterion1(Index)->setText(strText);
    else
        ctl.cboCriterion(Index)->setCurrentIndex(ctl.cboCriterion(Index)->findText(strText));
}

qint32 ItemNodes(VBTreeWidget* tree) {
    qint32 n = 0;
    for (qint32 i = 1; i <= tree->Count(); ++i)
        n += tree->Nodes(i).Key().contains(QLatin1String(";;SI;"));
    return n;
}

QString Scalar(const QString& sql) {
    QSqlQuery q(DataAccess::Instance().Database());
    return q.exec(sql) && q.next() ? q.value(0).toString() : QString();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    g_cpuTime = qgetenv("BENCH_CPU") == "1";
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

    // Songs with a keyword holding an "a", in no service: the planner's
    // "songs for Advent not yet sung", on generated words.
    const QString strSongs = Scalar("SELECT ServiceItemTypeName FROM ServiceItemTypes "
                                    "WHERE ServiceItemTypeID = 17");
    qint32 lngList = 0;
    da.NewShortListRecord(error, lngList);
    ctlShortList editor;
    editor.resize(1200, 800);
    editor.show();
    editor.setItems(QString::number(lngList));
    editor.ShowProperties();
    editor.optAnd->click();
    while (editor.CriteriaCount() < 3)
        editor.cmdAndOr(static_cast<qint16>(editor.CriteriaCount() - 1))->click();
    SetRow(editor, 0, "Type", "equals", strSongs);
    SetRow(editor, 1, "Keywords", "contains", "a");
    SetRow(editor, 2, "Is part of a service", "equals", "False");
    QApplication::processEvents();

    auto apply = [&] {
        editor.cmdApplyCriteria->click();
        QApplication::processEvents();
    };
    // --loop COUNT: the click (the tree painted after each) and the data
    // library's call alone, COUNT times each, for a profiler; prints the best
    // of each.
    if (argc > 2 && QString(argv[1]) == QLatin1String("--loop")) {
        double click = 1e9, call = 1e9;
        for (int i = QString(argv[2]).toInt(); i > 0; --i) {
            click = std::min(click, Time([&] { editor.cmdApplyCriteria->click(); }));
            QApplication::processEvents();
            call =
                std::min(call, Time([&] {
                             std::unique_ptr<Recordset> rs;
                             QString strError;
                             da.GetShortListCandidates(editor.WhereClauseInEffect(), strError, rs);
                         }));
        }
        std::fprintf(stderr, "click %.2f ms, call %.2f ms\n", click, call);
        return 0;
    }
    const QStringList criteriaSql = CatchStatements(apply);
    const qint32 found = ItemNodes(editor.tvwAvailable);
    const double criteria = Best(intRuns, [&] { return Time(apply); });
    const double criteriaClick =
        Best(intRuns, [&] { return Time([&] { editor.cmdApplyCriteria->click(); }); });
    const QString strClause = editor.WhereClauseInEffect();
    const double criteriaLibrary = Best(intRuns, [&] {
        return Time([&] {
            std::unique_ptr<Recordset> rs;
            QString strError;
            da.GetShortListCandidates(strClause, strError, rs);
        });
    });
    qint64 criteriaRows = 0;
    const double criteriaBare =
        Best(intRuns, [&] { return Time([&] { criteriaRows = RunBare(criteriaSql); }); });

    // The items found, saved as a short list and applied in the item gallery.
    QStringList ids;
    for (qint32 i = 1; i <= editor.tvwAvailable->Count(); ++i) {
        const QString key = editor.tvwAvailable->Nodes(i).Key();
        if (key.contains(QLatin1String(";;SI;")))
            ids << key.mid(key.indexOf(QLatin1String(";;SI;")) + 5);
    }
    da.SaveShortList(lngList, "Bench list", "bench", QString(), ids.join(QLatin1Char(',')), error);
    if (!error.isEmpty()) {
        QTextStream(stderr) << error << "\n";
        return 1;
    }
    ctlServiceItemGallery gallery;
    gallery.resize(600, 800);
    gallery.show();
    gallery.ShowServiceItems();
    QApplication::processEvents();
    auto applyList = [&] {
        gallery.ApplyShortList(lngList);
        QApplication::processEvents();
    };
    const QStringList listSql = CatchStatements(applyList);
    const qint32 shown = ItemNodes(gallery.tvwServiceItems);
    const double list = Best(intRuns, [&] { return Time(applyList); });
    qint64 listRows = 0;
    const double listBare =
        Best(intRuns, [&] { return Time([&] { listRows = RunBare(listSql); }); });

    QTextStream out(stdout);
    out << "criteria: " << editor.WhereClauseInEffect() << "\n";
    out << "best of " << intRuns << " runs, milliseconds ("
        << (g_cpuTime ? "processor time of the thread" : "clock") << ")\n";
    out << "step                       items   stmts    rows     step     bare   ratio\n";
    out << QString("apply criteria (editor)   %1  %2  %3  %4  %5  %6\n")
               .arg(found, 6)
               .arg(criteriaSql.size(), 6)
               .arg(criteriaRows, 6)
               .arg(criteria, 7, 'f', 1)
               .arg(criteriaBare, 7, 'f', 1)
               .arg(criteria / criteriaBare, 6, 'f', 2);
    out << QString("  the click alone, before the painting  %1  %2\n")
               .arg(criteriaClick, 7, 'f', 1)
               .arg(criteriaClick / criteriaBare, 14, 'f', 2);
    out << QString("  the data library's call alone         %1  %2\n")
               .arg(criteriaLibrary, 7, 'f', 1)
               .arg(criteriaLibrary / criteriaBare, 14, 'f', 2);
    out << QString("apply short list (gallery)%1  %2  %3  %4  %5  %6\n")
               .arg(shown, 6)
               .arg(listSql.size(), 6)
               .arg(listRows, 6)
               .arg(list, 7, 'f', 1)
               .arg(listBare, 7, 'f', 1)
               .arg(list / listBare, 6, 'f', 2);
    return 0;
}
