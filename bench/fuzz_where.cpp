// Random-mutation fuzzing of the WHERE-text translator (JetWhere) and of the SQL it writes.
//
//   build/bench/fuzz_where [SECONDS] [SEED]       (default 60 s, seed from the clock)
//   scripts/fuzz-where.sh [SECONDS] [SEED]        builds it and runs it
//
// Starting from the clause forms the controls write (the quick filter, short-list criteria,
// gallery and service conditions), each round mutates a clause (characters and tokens put in,
// taken out or replaced, pieces repeated up to a megabyte, halves of clauses spliced), has it
// translated and, when the translator accepts it, runs the SQL with its bound values on an
// in-memory database of the same columns, with the Like function and collation registered.
//
// It reports, and exits with 1 for:
//   - a crash (the clause is printed from the signal handler),
//   - an accepted clause whose SQL the engine cannot prepare (other than its depth limits,
//     which the data library words for the user),
//   - a round that takes longer than a second.
// The same seed gives the same rounds.

#include "JetWhere.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStringList>

#include <sqlite3.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

const QStringList& Corpus() {
    static const QStringList clauses = {
        "ServiceItemTypes.ServiceItemTypeName Like '*a*' Or ServiceItems.ServiceItemDescription "
        "Like '*a*' Or KeyWords.KeywordText Like '*a*' Or ServiceItemPoints.PointText Like '*a*'",
        "ServiceItems.ServiceItemTypeID = 17",
        "ServiceItems.ServiceItemTypeID In (1, 2, 17) AND ServiceItemDescription Like 'A*'",
        "(ServiceItemDescription Like '*grace*') AND (ServiceItemsInUse Is Not Null)",
        "NOT (ServiceItemDescription = 'x''y') OR DateCreated >= #21-Nov-26#",
        "DateCreated Between #2026-01-01# And #2026-12-31 23:59:59#",
        "ServiceName Like 'Morning*' AND ServiceDate > #11/21/2026#",
        "[ServiceItems].[ServiceItemID] <> -5 AND SecondsToRun <= 90.5",
        "ServiceItemDescription Like '[!a-c]?#*[*]' OR ServiceItemNotes Is Null",
        "RunAsPointsList AND NOT IsDeleted",
        "ServiceItemDescription Not Like \"*\"\"quoted\"\"*\"",
        "KeywordText In ('grace', 'praise', 'prayer') AND ServiceItemID Not In (1)",
    };
    return clauses;
}

const QStringList& Pieces() {
    static const QStringList pieces = {"(",
                                       ")",
                                       "NOT ",
                                       " AND ",
                                       " OR ",
                                       "'",
                                       "\"",
                                       "#",
                                       "[",
                                       "]",
                                       "*",
                                       "?",
                                       "!",
                                       "-",
                                       ",",
                                       ".",
                                       " Like ",
                                       " In (",
                                       " Between ",
                                       " Is Null",
                                       "=",
                                       "<>",
                                       "<=",
                                       ">",
                                       "''",
                                       "ServiceItemDescription",
                                       "ServiceItems.",
                                       "DateCreated",
                                       "True",
                                       "Null",
                                       "1e308",
                                       "99999999999999999999",
                                       "#31-Feb-26#",
                                       "SELECT",
                                       ";",
                                       "--",
                                       "/*",
                                       "\\",
                                       "%",
                                       "_",
                                       QString(QChar(0)),
                                       QString(QChar(0xD800)),
                                       QString(QChar(0xFFFF)),
                                       "😀",
                                       "Σ",
                                       "é",
                                       "\t",
                                       "\n",
                                       " "};
    return pieces;
}

QString Mutate(QString clause, QRandomGenerator& random) {
    const int steps = 1 + random.bounded(8);
    for (int s = 0; s < steps; ++s) {
        const qsizetype at = clause.isEmpty() ? 0 : random.bounded(int(clause.size() + 1));
        switch (random.bounded(7)) {
        case 0:
            clause.insert(at, Pieces()[random.bounded(int(Pieces().size()))]);
            break;
        case 1:
            clause.remove(at, 1 + random.bounded(8));
            break;
        case 2:
            if (at < clause.size())
                clause[at] = QChar(char16_t(random.bounded(0x20, 0x7F)));
            break;
        case 3: { // a piece repeated, up to a megabyte
            const QString piece = Pieces()[random.bounded(int(Pieces().size()))];
            const int times = 1 << random.bounded(18);
            if (piece.size() * times <= 1024 * 1024)
                clause.insert(at, piece.repeated(times));
            break;
        }
        case 4: { // a stretch of the clause repeated
            const qsizetype length = qMin<qsizetype>(clause.size() - at, 1 + random.bounded(40));
            if (length > 0)
                clause.insert(at, clause.mid(at, length).repeated(1 + random.bounded(2000)));
            break;
        }
        case 5: { // spliced with another clause of the corpus
            const QString other = Corpus()[random.bounded(int(Corpus().size()))];
            clause = clause.left(at) + other.mid(random.bounded(int(other.size())));
            break;
        }
        default:
            clause.insert(at, QChar(char16_t(random.bounded(0x10000))));
        }
        if (clause.size() > 2 * 1024 * 1024)
            clause.truncate(2 * 1024 * 1024);
    }
    return clause;
}

// The clause of the round, for the crash handler.
QByteArray g_current;

void OnCrash(int signal) {
    const char header[] = "\nfuzz_where: crashed on the clause (UTF-8, first 4000 bytes):\n";
    (void)!write(2, header, sizeof header - 1);
    (void)!write(2, g_current.constData(), size_t(qMin<qsizetype>(g_current.size(), 4000)));
    (void)!write(2, "\n", 1);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

JetWhere Where() {
    using K = JetWhere::Kind;
    return JetWhere({{"ServiceItems",
                      "si",
                      {{"ServiceItemID", K::Number},
                       {"ServiceItemTypeID", K::Number},
                       {"ServiceItemDescription", K::Text},
                       {"ServiceItemNotes", K::Text},
                       {"ServiceItemsInUse", K::Number},
                       {"SecondsToRun", K::Number},
                       {"RunAsPointsList", K::Boolean},
                       {"IsDeleted", K::Boolean},
                       {"DateCreated", K::Date}}},
                     {"KeyWords", "kw", {{"KeywordText", K::Text}}}});
}

sqlite3* OpenEngine() {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    JetWhere::RegisterFunctions(db);
    sqlite3_exec(db,
                 "CREATE TABLE ServiceItems (ServiceItemID INTEGER, ServiceItemTypeID INTEGER, "
                 "ServiceItemDescription TEXT, ServiceItemNotes TEXT, ServiceItemsInUse INTEGER, "
                 "SecondsToRun REAL, RunAsPointsList BOOLEAN, IsDeleted BOOLEAN, DateCreated "
                 "DATETIME);"
                 "CREATE TABLE KeyWords (ServiceItemID INTEGER, KeywordText TEXT);"
                 "INSERT INTO ServiceItems VALUES (1, 17, 'Amazing Grace', NULL, 2, 90, 0, 0, "
                 "'2026-11-21 10:00:00'), (2, 1, 'ÉGLISE', 'x', NULL, 30.5, 1, 0, "
                 "'2026-01-01 00:00:00'), (3, 2, NULL, NULL, NULL, NULL, NULL, 1, NULL);"
                 "INSERT INTO KeyWords VALUES (1, 'grace'), (2, 'prayer');",
                 nullptr, nullptr, nullptr);
    return db;
}

void Bind(sqlite3_stmt* stmt, const QVariantList& params) {
    for (int i = 0; i < params.size(); ++i) {
        const QVariant& value = params[i];
        if (value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int) {
            sqlite3_bind_int64(stmt, i + 1, value.toLongLong());
        } else if (value.typeId() == QMetaType::Double) {
            sqlite3_bind_double(stmt, i + 1, value.toDouble());
        } else {
            const QByteArray text = value.toString().toUtf8();
            sqlite3_bind_text(stmt, i + 1, text.constData(), int(text.size()), SQLITE_TRANSIENT);
        }
    }
}

// Runs the translated clause; an empty text when the engine read it, else its complaint.
QString RunOnEngine(sqlite3* db, const JetWhere::Result& where) {
    const QByteArray sql = ("SELECT count(*) FROM ServiceItems si LEFT JOIN KeyWords kw ON "
                            "kw.ServiceItemID = si.ServiceItemID WHERE " +
                            where.sql)
                               .toUtf8();
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &stmt, nullptr) != SQLITE_OK) {
        const QString error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        const bool depth = error.contains("parser stack overflow") ||
                           error.contains("Expression tree is too large");
        return depth ? QString() : error;
    }
    Bind(stmt, where.params);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
    }
    sqlite3_finalize(stmt);
    return QString();
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? QString(argv[1]).toInt() : 60;
    const quint32 seed =
        argc > 2 ? QString(argv[2]).toUInt() : quint32(QDateTime::currentMSecsSinceEpoch());
    std::signal(SIGSEGV, OnCrash);
    std::signal(SIGABRT, OnCrash);
    std::signal(SIGBUS, OnCrash);
    std::printf("fuzz_where: seed %u, %d s\n", seed, seconds);
    QRandomGenerator random(seed);
    const JetWhere where = Where();
    sqlite3* db = OpenEngine();
    QElapsedTimer total;
    total.start();
    qint64 rounds = 0, accepted = 0, findings = 0, slowest = 0;
    while (total.elapsed() < seconds * 1000LL) {
        const QString clause = Mutate(Corpus()[random.bounded(int(Corpus().size()))], random);
        g_current = clause.toUtf8();
        QElapsedTimer round;
        round.start();
        const JetWhere::Result result = where.Translate(clause);
        QString problem;
        if (result.ok() && !result.sql.isEmpty()) {
            ++accepted;
            problem = RunOnEngine(db, result);
        }
        const qint64 took = round.elapsed();
        slowest = qMax(slowest, took);
        if (took > 1000)
            problem = QStringLiteral("took %1 ms").arg(took);
        if (!problem.isEmpty()) {
            ++findings;
            std::printf("FINDING (round %lld): %s\n  clause (first 300 characters): %s\n", rounds,
                        qPrintable(problem), qPrintable(clause.left(300)));
        }
        ++rounds;
    }
    sqlite3_close(db);
    std::printf("fuzz_where: %lld rounds, %lld accepted, %lld findings, slowest round %lld ms\n",
                rounds, accepted, findings, slowest);
    return findings == 0 ? 0 : 1;
}
