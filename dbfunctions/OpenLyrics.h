#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// Songs in the OpenLyrics XML format, version 0.9 (namespace
// http://openlyrics.info/namespace/2009/song), the format in which the free
// worship programs exchange songs.
//
// What Corvantis writes and reads of it:
//  - properties: titles/title, authors/author, copyright, key, verseOrder,
//    themes/theme;
//  - lyrics: verse elements with a name ("v1", "c", "c2", "b", "p", "i", "e",
//    "o1", also with a letter behind: "v1a") and an optional lang; their
//    lines elements, with <br/> between lines. Chords (<chord name="G"/>, or
//    wrapping the syllable they stand over) and comments in the lines are
//    dropped: Corvantis projects the words.
//
// A song in several languages keeps the verses of its first language: the
// language of its first title, else of its first verse.
namespace OpenLyrics {

struct Verse {
    QString Name; // the OpenLyrics name: "v1", "c"
    QString Text; // lines separated by "\n"
    QString Lang;
};

struct Song {
    QString Title;
    QStringList Authors;
    QString Copyright;
    QString Key;
    QStringList Themes;
    QList<Verse> Verses;    // in the order of the file
    QStringList VerseOrder; // names, in the order sung; empty: the verses in order
};

QByteArray Write(const Song& song);
// False with strError (a sentence for the user) for text that is not an
// OpenLyrics song.
bool Read(const QByteArray& xml, Song& song, QString& strError);
// True when the bytes look like an OpenLyrics song (an XML document whose
// root is a song element), without reading all of it.
bool LooksLikeSong(const QByteArray& bytes);

// Corvantis' part names and OpenLyrics' verse names: "Verse 2" is "v2",
// "Chorus" "c", "Chorus 2" "c2", "Bridge" "b", "Pre-Chorus" "p", "Intro" "i",
// "Ending" "e"; another name answers empty (the caller numbers it "o1", ...).
QString NameFor(const QString& strPartName, bool blnIsChorus);
// And back: "v1" is "Verse 1", "c" "Chorus", "o" "Other", "v1a" "Verse 1a".
QString PartNameOf(const QString& strVerseName);
bool IsChorusName(const QString& strVerseName);

} // namespace OpenLyrics
