#pragma once

#include <QString>

// The sample database: what a newcomer sees first, and what sample mode opens.
//
// Build() makes a complete Corvantis.pdb at strPath with real content a church has: public
// domain hymns with their verses, choruses and sung sequence (keys, tunes, authors), prayers,
// Bible readings from the World English Bible (public domain), a sermon outline as a points
// list, pictures and a short music file made by code (in the folder "Content" beside the file),
// five services with their rows, Blank rows, hidden rows, prop bags and resources, two short
// lists, and template rows. The file is built under a temporary name and renamed when complete,
// so a half-built sample is never opened. It takes about a second.
//
// Build() leaves the sample open in DataAccess. DataAccess::OpenSampleDatabase() builds it at
// DataAccess::SampleDatabasePath() when it does not exist yet.
class SampleDatabase {
public:
    static bool Build(const QString& strPath, QString& strErrorMessage);
};
