// Export and import of 1,000 songs: the songs (five parts, sung in seven steps, two keywords
// each) exported into one archive, that archive imported into an empty database, and imported
// again into the same database, where every song is already there. Every figure is the best of
// the runs (default 3), in milliseconds. Run by hand on a Release build (see bench/README.md).
#include "DataAccess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <limits>

namespace {

constexpr int kSongs = 1000;

double Best(int intRuns, const std::function<double()>& run) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < intRuns; ++i)
        best = std::min(best, run());
    return best;
}

double Time(const std::function<void()>& step) {
    QElapsedTimer timer;
    timer.start();
    step();
    return timer.nsecsElapsed() / 1e6;
}

bool Fail(const QString& strWhat, const QString& strError) {
    QTextStream(stderr) << strWhat << ": " << strError << "\n";
    return false;
}

// The songs, written in one transaction; their ids joined with ",".
bool MakeSongs(QString& strIDs) {
    DataAccess& da = DataAccess::Instance();
    QString error;
    QStringList ids;
    da.BeginTrans();
    for (int n = 1; n <= kSongs; ++n) {
        qint32 id = 0;
        da.AddServiceItem(QStringLiteral("Song %1").arg(n), QStringLiteral("Writer %1").arg(n % 50),
                          QString(), 17, error, false, id);
        if (!error.isEmpty())
            return Fail(QStringLiteral("AddServiceItem"), error);
        QList<qint32> verses;
        for (int part = 1; part <= 5; ++part) {
            qint32 verse = 0;
            const bool chorus = part == 5;
            da.AddVerse(id,
                        chorus ? QStringLiteral("Chorus") : QStringLiteral("Verse %1").arg(part),
                        QStringLiteral("Line one of part %1 of song %2\nLine two\nLine three\nLine "
                                       "four")
                            .arg(part)
                            .arg(n),
                        chorus, error, verse);
            verses << verse;
        }
        for (int index : {0, 4, 1, 4, 2, 4, 3})
            da.AddSongSequenceEntry(id, verses.at(index), error);
        for (const QString& keyword :
             {QStringLiteral("Theme %1").arg(n % 40), QStringLiteral("Season %1").arg(n % 7)}) {
            qint32 keywordId = 0;
            da.AddKeyword(keyword, error, keywordId);
            da.AddServiceItemKeyword(id, keywordId, error);
        }
        if (!error.isEmpty())
            return Fail(QStringLiteral("songs"), error);
        ids << QString::number(id);
    }
    da.CommitTrans();
    strIDs = ids.join(QLatin1Char(','));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv); // the sheets and texts need fonts, not windows
    const int intRuns = argc > 1 ? QString::fromLatin1(argv[1]).toInt() : 3;
    QTemporaryDir dir;
    DataAccess& da = DataAccess::Instance();
    QString error;
    da.OpenDatabase(dir.filePath(QStringLiteral("source/Corvantis.pdb")), error);
    QString strIDs;
    if (!error.isEmpty() || !MakeSongs(strIDs)) {
        Fail(QStringLiteral("source database"), error);
        return 1;
    }
    const QString archive = dir.filePath(QStringLiteral("songs.cvx"));
    const double exported = Best(intRuns, [&] {
        return Time(
            [&] { da.ExportServiceItemsToFile(strIDs, QStringLiteral("Songs"), archive, error); });
    });
    if (!error.isEmpty()) {
        Fail(QStringLiteral("export"), error);
        return 1;
    }
    int round = 0;
    double again = std::numeric_limits<double>::max();
    const double imported = Best(intRuns, [&] {
        da.OpenDatabase(dir.filePath(QStringLiteral("target%1/Corvantis.pdb").arg(++round)), error);
        const double first = Time([&] { da.ImportFile(archive, error); });
        again = std::min(again, Time([&] { da.ImportFile(archive, error); }));
        return first;
    });
    if (!error.isEmpty() || DataAccess::LastImport().AlreadyThere.size() != kSongs) {
        Fail(QStringLiteral("import"), error);
        return 1;
    }
    QTextStream(stdout) << "songs " << kSongs << ", archive " << QFileInfo(archive).size() / 1024
                        << " KB, best of " << intRuns << " runs (ms)\n"
                        << "export           " << qRound(exported) << "\n"
                        << "import (empty)   " << qRound(imported) << "\n"
                        << "import (again)   " << qRound(again) << "\n";
    return 0;
}
