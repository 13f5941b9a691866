#include "shortlists/ShortListCriterion.h"

#include "foundations/VBRuntime.h"

namespace {
struct FieldEntry {
    const char* caption;
    qint16 kind;
};

// The fields as the list shows them, with their kinds.
constexpr FieldEntry kFields[] = {
    {"Content", ShortListCriterion::Text},
    {"Copyright", ShortListCriterion::Text},
    {"Date Created", ShortListCriterion::Date},
    {"Description", ShortListCriterion::Text},
    {"FileName", ShortListCriterion::Text},
    {"Is part of a service", ShortListCriterion::Boolean},
    {"Keywords", ShortListCriterion::Text},
    {"Last Delivered in a service", ShortListCriterion::Date},
    {"Notes", ShortListCriterion::Text},
    {"Original Location", ShortListCriterion::Text},
    {"Provider", ShortListCriterion::Text},
    {"Resources", ShortListCriterion::Text},
    {"Run as points list", ShortListCriterion::Boolean},
    {"Seconds to run", ShortListCriterion::Number},
    {"Song Key", ShortListCriterion::Text},
    {"Melody", ShortListCriterion::Text},
    {"Source", ShortListCriterion::Text},
    {"Type", ShortListCriterion::Text},
};

// The columns by caption. "Filename" is not the caption the list shows, and
// "Resources" has no column: such a row has no column in its condition.
const QList<std::pair<QString, QString>>& Columns() {
    static const QList<std::pair<QString, QString>> columns = {
        {"Content", "ServiceItemContent"},
        {"Copyright", "ServiceItemCopyrightDetails"},
        {"Date Created", "ServiceItemDateCreated"},
        {"Description", "ServiceItemDescription"},
        {"Filename", "ServiceItemFilename"},
        {"Keywords", "KeywordText"},
        {"Last Delivered in a service", "Services.ServiceDateLastDelivered"},
        {"Notes", "ServiceItemNotes"},
        {"Original Location", "ServiceItemOriginalLocation"},
        {"Provider", "ServiceItemProvider"},
        {"Run as points list", "RunAsPointsList"},
        {"Seconds to run", "SecondsToRun"},
        {"Song Key", "ServiceItemSongKey"},
        {"Melody", "ServiceItemMelody"},
        {"Source", "ServiceItemSource"},
        {"Type", "ServiceItemTypeName"},
    };
    return columns;
}

bool IsBetween(const QString& strOperator) {
    return strOperator == QLatin1String("is between") ||
           strOperator == QLatin1String("is not between");
}
} // namespace

const QStringList& ShortListCriterion::FieldCaptions() {
    static const QStringList captions = [] {
        QStringList list;
        for (const FieldEntry& f : kFields)
            list.append(QString::fromLatin1(f.caption));
        return list;
    }();
    return captions;
}

qint16 ShortListCriterion::FieldKindOf(qint32 intIndex) {
    return intIndex >= 0 && intIndex < static_cast<qint32>(std::size(kFields))
               ? kFields[intIndex].kind
               : qint16(-1);
}

QStringList ShortListCriterion::Operators(qint16 intKind) {
    switch (intKind) {
    case Text:
        return {"contains",  "does not contain", "does not equal",
                "ends with", "equals",           "starts with"};
    case Number:
        return {"does not equal",  "equals",       "is between",
                "is greater than", "is less than", "is not between"};
    case Date:
        return {"does not equal", "equals",         "is after", "is before",
                "is between",     "is not between", "is empty"};
    case Boolean:
        return {"equals"};
    default:
        return {};
    }
}

QString ShortListCriterion::FieldName(const QString& strFieldNameInCombo) {
    for (const auto& [caption, column] : Columns())
        if (caption == strFieldNameInCombo)
            return column;
    return QString();
}

QString ShortListCriterion::EditorTag(qint16 intKind, const QString& strOperator) {
    switch (intKind) {
    case Date:
        return IsBetween(strOperator) ? QStringLiteral("2Dates") : QStringLiteral("1Date");
    case Number:
        return IsBetween(strOperator) ? QStringLiteral("2Texts") : QStringLiteral("1Text");
    case Boolean:
        return QStringLiteral("1Combo");
    default:
        return QStringLiteral("1Text");
    }
}

QString ShortListCriterion::Quoted(const QString& strText) const {
    return QString(strText).replace(QLatin1Char('\''), QLatin1String("''"));
}

QString ShortListCriterion::WhereClause() const {
    if (Field == QLatin1String("Is part of a service"))
        return TrueFalse == QLatin1String("False")
                   ? QStringLiteral("ServiceItemsInUse.ServiceItemID Is Null")
                   : QStringLiteral("ServiceItemsInUse.ServiceItemID Is NOT Null");
    const QString F = FieldName(Field);
    const QString& O = Operator;
    switch (Kind) {
    case Date: {
        const QString D1 = VB::Format(Date1, QStringLiteral("Medium Date"));
        const QString D2 = VB::Format(Date2, QStringLiteral("Medium Date"));
        if (O == QLatin1String("is between"))
            return F + " > #" + D1 + "# AND " + F + " < #" + D2 + "#";
        if (O == QLatin1String("is not between"))
            return F + " < #" + D1 + "# AND " + F + " > #" + D2 + "#";
        if (O == QLatin1String("equals"))
            return F + " = #" + D1 + "#";
        if (O == QLatin1String("does not equal"))
            return F + " <> #" + D1 + "#";
        if (O == QLatin1String("is after"))
            return F + " > #" + D1 + "#";
        if (O == QLatin1String("is before"))
            return F + " < #" + D1 + "#";
        if (O == QLatin1String("is empty"))
            return F + " Is Null";
        return QString();
    }
    case Number:
        if (O == QLatin1String("is between"))
            return F + " > " + Text1 + " AND " + F + " < " + Text2;
        if (O == QLatin1String("is not between"))
            return F + " < " + Text1 + " AND " + F + " > " + Text2;
        if (O == QLatin1String("equals"))
            return F + " = " + Text1;
        if (O == QLatin1String("does not equal"))
            return F + " <> " + Text1;
        if (O == QLatin1String("is greater than"))
            return F + " > " + Text1;
        if (O == QLatin1String("is less than"))
            return F + " < " + Text1;
        return QString();
    case Boolean:
        return F + " = " + (TrueFalse == QLatin1String("True") ? "True" : "False");
    case Text: {
        const QString T1 = Quoted(Text1);
        if (O == QLatin1String("equals"))
            return F + " = '" + T1 + "'";
        if (O == QLatin1String("does not equal"))
            return F + " <> '" + T1 + "'";
        if (O == QLatin1String("contains"))
            return F + " Like '*" + T1 + "*'";
        if (O == QLatin1String("does not contain"))
            return F + " Not Like '*" + T1 + "*'";
        if (O == QLatin1String("ends with"))
            return F + " Like '*" + T1 + "'";
        if (O == QLatin1String("starts with"))
            return F + " Like '" + T1 + "*'";
        return QString();
    }
    default:
        return QString();
    }
}

QString ShortListCriterion::PlainEnglish() const {
    if (Field == QLatin1String("Is part of a service"))
        return Field + " equals " + (TrueFalse == QLatin1String("False") ? "False" : "True");
    if (Kind == Boolean)
        return Field + " equals " + (TrueFalse == QLatin1String("True") ? "True" : "False");
    const QString strStart = Field + " " + Operator;
    switch (Kind) {
    case Date: {
        if (Operator == QLatin1String("is empty"))
            return strStart;
        const QString D1 = VB::Format(Date1, QStringLiteral("Medium Date"));
        if (IsBetween(Operator))
            return strStart + " " + D1 + " and " + VB::Format(Date2, QStringLiteral("Medium Date"));
        return strStart + " " + D1;
    }
    case Number:
        if (IsBetween(Operator))
            return strStart + " " + Text1 + " and " + Text2;
        return strStart + " " + Text1;
    default:
        return strStart + " '" + Text1 + "'";
    }
}
