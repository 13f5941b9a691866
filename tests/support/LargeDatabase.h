#pragma once

#include <QString>

// Makes large Corvantis databases for the benchmarks: many service items with keywords and
// points, services with contents, short lists. The contents are generated deterministically
// (same options, same rows) and the whole file is written in one transaction, so 10,000 items
// take a few seconds.
//
//   LargeDatabase::Options options;          // 10,000 items by default
//   QString error;
//   LargeDatabase::Generate(dir + "/Corvantis.pdb", options, error);   // leaves it open
//
// The defaults keep the rows of GetServiceItemsJoined (one per item x keyword x point) well
// under 32,767, the limit of the galleries' counters: JoinedRows() tells how many there are.
class LargeDatabase {
public:
    struct Options {
        int serviceItems = 10000;
        int keywords = 300;         // distinct keywords
        int secondKeywordEvery = 5; // every 5th item gets a second keyword
        int pointsItemEvery = 20;   // every 20th item is a points list ...
        int pointsPerItem = 3;      // ... with this many points
        int services = 200;
        int rowsPerService = 15;
        int shortLists = 20;
        unsigned seed = 1;
    };

    // Creates (replacing) the file at strPath and leaves it open in DataAccess.
    static bool Generate(const QString& strPath, const Options& options, QString& strErrorMessage);
    // Rows that GetServiceItemsJoined with an empty clause returns on the open database.
    static int JoinedRows();
};
