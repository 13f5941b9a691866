#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The texts of the sample database (see SampleDatabase.h). All of them are in the public domain.
namespace SampleContent {

struct Hymn {
    QString title;
    QString author; // source: words by
    QString tune;   // melody
    QString key;
    QString keywords; // separated by ","
    QStringList verses;
    QString chorus; // sung after every verse when not empty
};

struct TextItem {
    int type;      // service item type id
    QString title; // stored form ("@@" for an apostrophe)
    QString source;
    QString content;
    QString keywords;
    QString copyright;
};

QList<Hymn> Hymns();
QList<TextItem> TextItems();

} // namespace SampleContent
