#pragma once

#include <QString>
#include <QStringList>

// The trace file of a suite (named by CORVANTIS_TRACE, set per suite by the
// build): its lines, and the lines written since a mark.
//
//   TraceFile trace;                    // marks the end of the file as it is now
//   gallery.ShowServiceItems();
//   QVERIFY(trace.HasLineStartingWith("QVLTCONTROLS:ctlServiceItemGallery:ShowServiceItems @ "));
class TraceFile {
public:
    TraceFile();

    // Every line of the file.
    static QStringList AllLines();
    // The file's path.
    static QString Path();
    // Empties the file.
    static void Clear();

    // The lines written since this object was made (or since Mark()).
    QStringList NewLines() const;
    void Mark();
    bool HasLineStartingWith(const QString& strStart) const;
    bool HasLineContaining(const QString& strPart) const;
    // The error lines ("ERROR: ") written since the mark, without the marker.
    QStringList NewErrorLines() const;

private:
    qsizetype m_intLinesBefore = 0;
};
