#include "SongBreakdown.h"

#include "DataAccess.h"
#include "DataAccessCore.h"

#include <QHash>
#include <QRegularExpression>

using P = DataAccessPrivate;

namespace SongBreakdown {

namespace {

enum class Kind { None, Verse, Chorus, Bridge };

struct TypedPart {
    Kind kind = Kind::None;
    QString text; // empty: a line that only asks for the chorus again
};

Kind kindOf(const QString& strName) {
    const QString name = strName.toLower();
    if (name == QLatin1String("chorus") || name == QLatin1String("refrain"))
        return Kind::Chorus;
    if (name == QLatin1String("bridge"))
        return Kind::Bridge;
    return Kind::Verse;
}

// Takes the name of a part off its first line: a line that is only a name
// ("Chorus", "[Verse 2]", "Refrain:", "3."), or a name and a colon before the
// first words ("Chorus: Praise him").
TypedPart readPart(const QString& strPart) {
    static const QRegularExpression nameOnly(
        QStringLiteral(R"(^[\[(]?\s*(chorus|refrain|verse|bridge)\s*\d*\s*[\])]?\s*[:.]?$)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression numberOnly(QStringLiteral(R"(^\d+\s*[.):]?$)"));
    static const QRegularExpression namePrefix(
        QStringLiteral(R"(^(chorus|refrain|verse|bridge)\s*\d*\s*:\s*(\S.*)$)"),
        QRegularExpression::CaseInsensitiveOption);
    QStringList lines = strPart.split(QLatin1Char('\n'));
    TypedPart part;
    const QString first = lines.first();
    if (const auto m = nameOnly.match(first); m.hasMatch()) {
        part.kind = kindOf(m.captured(1));
        lines.removeFirst();
    } else if (numberOnly.match(first).hasMatch()) {
        part.kind = Kind::Verse;
        lines.removeFirst();
    } else if (const auto p = namePrefix.match(first); p.hasMatch()) {
        part.kind = kindOf(p.captured(1));
        lines.first() = p.captured(2);
    }
    part.text = lines.join(QLatin1Char('\n')).trimmed();
    return part;
}

// The words of a part as compared for repeats: letters and digits only,
// without regard to case.
QString compared(const QString& strText) {
    QString key;
    for (const QChar c : strText) {
        if (c.isLetterOrNumber())
            key.append(c.toCaseFolded());
    }
    return key;
}

bool isAutoName(const QString& strName) {
    static const QRegularExpression autoName(QStringLiteral(R"(^(Verse|Chorus)( \d+)?$)"));
    return strName.isEmpty() || autoName.match(strName).hasMatch();
}

Wizard& installedWizard() {
    static Wizard wizard;
    return wizard;
}

} // namespace

QStringList SplitAtBlankLines(const QString& strWords) {
    QString words = strWords;
    words.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), '\n');
    QStringList parts;
    QStringList current;
    const QStringList lines = words.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty()) {
            if (!current.isEmpty())
                parts << current.join(QLatin1Char('\n'));
            current.clear();
        } else {
            current << trimmed;
        }
    }
    if (!current.isEmpty())
        parts << current.join(QLatin1Char('\n'));
    return parts;
}

Breakdown Propose(const QString& strWords) {
    Breakdown breakdown;
    QList<int> typed; // the parts as typed; -1 asks for the chorus again
    QHash<QString, int> byWords;
    QList<int> timesTyped;
    for (const QString& text : SplitAtBlankLines(strWords)) {
        const TypedPart part = readPart(text);
        if (part.text.isEmpty()) {
            if (part.kind == Kind::Chorus)
                typed << -1;
            continue;
        }
        const QString key = compared(part.text);
        int index = byWords.value(key, -1);
        if (index < 0) {
            index = static_cast<int>(breakdown.Parts.size());
            byWords.insert(key, index);
            breakdown.Parts << Part{
                part.kind == Kind::Bridge ? QStringLiteral("Bridge") : QString(), part.text, false};
            timesTyped << 0;
        }
        breakdown.Parts[index].IsChorus =
            breakdown.Parts[index].IsChorus || part.kind == Kind::Chorus;
        ++timesTyped[index];
        typed << index;
    }
    int firstChorus = -1;
    for (int i = 0; i < breakdown.Parts.size(); ++i) {
        Part& part = breakdown.Parts[i];
        part.IsChorus = part.IsChorus || timesTyped.at(i) > 1;
        if (part.IsChorus && firstChorus < 0)
            firstChorus = i;
    }
    bool blnRepeatsTyped = false;
    for (int& index : typed) {
        if (index < 0)
            index = firstChorus;
        blnRepeatsTyped = blnRepeatsTyped || (index >= 0 && timesTyped.at(index) > 1) ||
                          (index >= 0 && typed.count(index) > 1);
    }
    typed.removeAll(-1);
    NumberParts(breakdown);
    breakdown.Order = blnRepeatsTyped ? typed : DefaultOrder(breakdown.Parts);
    return breakdown;
}

void NumberParts(Breakdown& breakdown) {
    int verses = 0;
    int choruses = 0;
    for (Part& part : breakdown.Parts) {
        if (!isAutoName(part.Name))
            continue;
        if (part.IsChorus)
            part.Name = ++choruses == 1 ? QStringLiteral("Chorus")
                                        : QStringLiteral("Chorus %1").arg(choruses);
        else
            part.Name = QStringLiteral("Verse %1").arg(++verses);
    }
}

QList<int> DefaultOrder(const QList<Part>& parts) {
    int chorus = -1;
    for (int i = 0; i < parts.size() && chorus < 0; ++i) {
        if (parts.at(i).IsChorus)
            chorus = i;
    }
    QList<int> order;
    bool blnVerseSeen = false;
    for (int i = 0; i < parts.size(); ++i) {
        if (parts.at(i).IsChorus) {
            // The chorus comes by itself after each verse; typed before the
            // first verse, it is sung first too. Another chorus stands where it was typed.
            if (i != chorus || !blnVerseSeen)
                order << i;
            continue;
        }
        blnVerseSeen = true;
        order << i;
        if (chorus >= 0)
            order << chorus;
    }
    return order;
}

bool MergeWithNext(Breakdown& breakdown, int intPart) {
    if (intPart < 0 || intPart + 1 >= breakdown.Parts.size())
        return false;
    Part& part = breakdown.Parts[intPart];
    const Part next = breakdown.Parts.takeAt(intPart + 1);
    part.Text += QStringLiteral("\n\n") + next.Text;
    part.IsChorus = part.IsChorus || next.IsChorus;
    // Where the first half is sung, the second half's places go; a part that
    // then stands twice in a row where the second half stood is sung once.
    const bool blnFirstSung = breakdown.Order.contains(intPart);
    QList<int> order;
    bool blnDropped = false;
    for (int index : std::as_const(breakdown.Order)) {
        if (index == intPart + 1 && blnFirstSung) {
            blnDropped = true;
            continue;
        }
        const int moved = index > intPart ? index - 1 : index;
        if (!(blnDropped && !order.isEmpty() && order.last() == moved))
            order << moved;
        blnDropped = false;
    }
    breakdown.Order = order;
    NumberParts(breakdown);
    return true;
}

bool SplitPart(Breakdown& breakdown, int intPart, int intLine) {
    if (intPart < 0 || intPart >= breakdown.Parts.size())
        return false;
    Part& part = breakdown.Parts[intPart];
    const QStringList lines = part.Text.split(QLatin1Char('\n'));
    if (intLine < 1 || intLine >= lines.size())
        return false;
    Part second{QString(), lines.mid(intLine).join(QLatin1Char('\n')).trimmed(), part.IsChorus};
    if (!isAutoName(part.Name))
        second.Name = part.Name;
    part.Text = lines.first(intLine).join(QLatin1Char('\n')).trimmed();
    breakdown.Parts.insert(intPart + 1, second);
    QList<int> order;
    for (int index : std::as_const(breakdown.Order)) {
        order << (index > intPart ? index + 1 : index);
        if (index == intPart)
            order << intPart + 1;
    }
    breakdown.Order = order;
    NumberParts(breakdown);
    return true;
}

void Write(qint32 lngServiceItemID, const Breakdown& breakdown, QString& strErrorMessage) {
    strErrorMessage.clear();
    const char* operation = "RunSongBreakdownWizard";
    if (breakdown.Parts.isEmpty() || breakdown.Order.isEmpty()) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("A song needs at least one part, sung at least once."));
        return;
    }
    for (int index : breakdown.Order) {
        if (index < 0 || index >= breakdown.Parts.size()) {
            P::Fail(strErrorMessage, operation,
                    QStringLiteral("The sung order names part %1, which does not exist.")
                        .arg(index + 1));
            return;
        }
    }
    DataAccess& da = DataAccess::Instance();
    WriteScope scope(strErrorMessage, operation);
    if (!scope.Ok())
        return;
    da.DeleteSongBreakdown(lngServiceItemID, strErrorMessage);
    QList<qint32> verseIds;
    for (const Part& part : breakdown.Parts) {
        if (!strErrorMessage.isEmpty())
            return;
        qint32 lngVerseID = 0;
        da.AddVerse(lngServiceItemID, part.Name, part.Text, part.IsChorus, strErrorMessage,
                    lngVerseID);
        verseIds << lngVerseID;
    }
    for (int index : breakdown.Order) {
        if (!strErrorMessage.isEmpty())
            return;
        da.AddSongSequenceEntry(lngServiceItemID, verseIds.at(index), strErrorMessage);
    }
    if (strErrorMessage.isEmpty())
        scope.Commit();
}

void SetWizard(Wizard wizard) {
    installedWizard() = std::move(wizard);
}

bool HasWizard() {
    return static_cast<bool>(installedWizard());
}

void Run(qint32 lngServiceItemID, QString& strErrorMessage, qint16& intResult) {
    intResult = 0;
    strErrorMessage.clear();
    const char* operation = "RunSongBreakdownWizard";
    if (!HasWizard()) {
        P::NotAvailable(strErrorMessage, operation, QStringLiteral("The song breakdown wizard"));
        return;
    }
    DataAccess& da = DataAccess::Instance();
    QString strWords;
    da.GetServiceItemText(lngServiceItemID, strErrorMessage, strWords);
    if (!strErrorMessage.isEmpty())
        return;
    Breakdown breakdown = Propose(strWords);
    if (breakdown.Parts.isEmpty()) {
        P::Fail(strErrorMessage, operation,
                QStringLiteral("Service Item %1 has no words to break down. Type in the words "
                               "of the song first.")
                    .arg(lngServiceItemID));
        return;
    }
    QString strTitle;
    QString strIgnored;
    da.GetServiceItemDescription(lngServiceItemID, strIgnored, strTitle);
    if (!installedWizard()(P::ToDisplay(strTitle), breakdown))
        return;
    Write(lngServiceItemID, breakdown, strErrorMessage);
    if (strErrorMessage.isEmpty())
        intResult = 1;
}

} // namespace SongBreakdown
