#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// LibreOffice as a test wants it, put on the PATH for the life of the object
// (the PATH before is restored at its end):
//
//   FakeOffice office(FakeOffice::Converts, pdfBytes); // a soffice that "converts"
//   ... convert something ...
//   QCOMPARE(office.Runs(), 1);
//
// The fake soffice is a shell script in a folder of its own, named first on the
// PATH. Each run appends its arguments (one line, tab-separated) to a log, then:
//  - Converts: writes the given bytes as the converted file (out folder, the
//    source's name, the extension of --convert-to);
//  - ConvertsNothing: ends without writing anything, as LibreOffice does with a
//    damaged file;
//  - Hangs: starts a child that sleeps for a minute, writes the child's process
//    id to HangingPidFile() and waits for it (IsAlive tells whether it still runs).
// Without: a PATH that names no LibreOffice at all.
class FakeOffice {
public:
    enum Behaviour { Converts, ConvertsNothing, Hangs, Without };

    explicit FakeOffice(Behaviour behaviour, const QByteArray& output = QByteArray());
    ~FakeOffice();
    FakeOffice(const FakeOffice&) = delete;
    FakeOffice& operator=(const FakeOffice&) = delete;

    // How often the fake ran, and the arguments of each run.
    int Runs() const;
    QStringList Arguments(int intRun) const;
    QString HangingPidFile() const;
    // Whether the process still runs (a zombie does not).
    static bool IsAlive(const QString& strPid);

private:
    QTemporaryDir m_folder;
    QByteArray m_oldPath;
};

// Test documents.
namespace TestDocuments {
// A PDF of intPages pages, each saying "Slide n" in large letters.
QByteArray SlidesPdf(int intPages);
// An RTF document: a bold heading "Bold heading" and a paragraph with an italic word and
// the letters "Café Zürich".
QByteArray Rtf();
// A flat OpenDocument presentation (.fodp) of intSlides slides saying "Slide number n".
QByteArray FlatPresentation(int intSlides);
// Writes bytes to a file; false when it cannot.
bool Write(const QString& strPath, const QByteArray& bytes);
// Writes bytes to strName (which may name subfolders) in folder; the file's path, or an empty
// text when it cannot be written.
QString WriteIn(const QTemporaryDir& folder, const QString& strName, const QByteArray& bytes);
} // namespace TestDocuments
