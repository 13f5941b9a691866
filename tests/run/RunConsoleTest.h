#pragma once

// Shared pieces of the run console's suites: the trace lines a step wrote,
// and small finders for the console's widgets.

#include "TraceFile.h"
#include "foundations/Twips.h"
#include "foundations/VBTreeWidget.h"

#include <QRegularExpression>
#include <QStringList>

// The lines the trace file gained since the mark (see TraceFile), each with
// its date and time replaced by "*", so that a test compares whole lines:
//   "QVLTCONTROLS:ctlRun:SIPartChanged @ *: lngPartID = 2, PartType = 2, "
class TraceTail : public TraceFile {
public:
    QStringList Lines() const {
        QStringList lines;
        for (const QString& line : NewLines())
            lines << Normalized(line);
        return lines;
    }

    // The console's own lines and the error lines, without the lines of the
    // widgets it holds (the gallery) or of the data library.
    QStringList ConsoleLines() const {
        QStringList lines;
        for (const QString& line : Lines())
            if (line.startsWith(QLatin1String("QVLTCONTROLS:ctlRun:")) ||
                line.startsWith(QLatin1String("ERROR: ")))
                lines << line;
        return lines;
    }

    // The console's lines without those of resizing and of the key handler,
    // which come and go with the window system.
    QStringList StepLines() const {
        QStringList lines;
        for (const QString& line : ConsoleLines())
            if (!line.contains(QLatin1String(":UserControl_Resize @")))
                lines << line;
        return lines;
    }

    // The error lines of the console; the data library writes lines of its own.
    QStringList ConsoleErrorLines() const {
        return Lines().filter(QRegularExpression(QStringLiteral("^ERROR: (?!QVLTDBFUNCTIONS:)")));
    }

    static QString Normalized(QString line) {
        static const QRegularExpression stamp(QStringLiteral(" @ [^,]*, \\d{1,2}:\\d{2}:\\d{2}"));
        line.replace(stamp, QStringLiteral(" @ *"));
        return line;
    }
};

// The trace line of a member of ctlRun, as TraceTail gives it back.
inline QString RunLine(const QString& strMember, const QString& strArgs = QString()) {
    QString line = QStringLiteral("QVLTCONTROLS:ctlRun:") + strMember + QStringLiteral(" @ *");
    if (!strArgs.isEmpty())
        line += QStringLiteral(": ") + strArgs;
    return line;
}

inline const QString MirrorLine = QStringLiteral("QVLTCONTROLS:ctlRun:'RefreshScreenMirror @ *");

// The 1-based indexes of the bold nodes or rows of a tree or list.
inline QList<qint32> BoldIndexes(const VBTreeWidget* tree) {
    QList<qint32> bold;
    for (qint32 i = 1; i <= tree->Count(); ++i)
        if (tree->Nodes(i).Bold())
            bold << tree->Nodes(i).Index();
    return bold;
}

// The rows of a list whose first sub-item is bold.
inline QList<qint32> BoldSubItemRows(const VBTreeWidget* lvw) {
    QList<qint32> bold;
    for (qint32 i = 1; i <= lvw->topLevelItemCount(); ++i)
        if (lvw->ListItems(i).SubItemBold(1))
            bold << i;
    return bold;
}

inline qint32 TwipsOf(int intPixels) {
    return Twips::FromPixels(intPixels);
}

// Two lengths in twips that a widget can only show to the nearest pixel.
inline bool WithinAPixel(qint32 lngTwips, qint32 lngExpected) {
    return qAbs(lngTwips - lngExpected) < Twips::PerPixel;
}
