#include "ServiceItemPick.h"

#include "DataAccess.h"
#include "DataAccessCore.h"

#include <algorithm>

using P = DataAccessPrivate;

namespace ServiceItemPick {

namespace {
Picker& installedPicker() {
    static Picker picker;
    return picker;
}

QString Decoded(const QVariant& varText) {
    const QString strText = varText.toString();
    if (!strText.contains(QStringLiteral("@@")))
        return strText;
    QString strError;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strError, strResult);
    return strError.isEmpty() ? strResult : strText;
}
} // namespace

QList<Choice> Candidates(qint16 intTypeID, QString& strErrorMessage) {
    strErrorMessage.clear();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItems(QStringLiteral("ServiceItemTypeID = %1").arg(intTypeID),
                                           4, strErrorMessage, rs);
    QList<Choice> choices;
    if (!strErrorMessage.isEmpty() || !rs)
        return choices;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        Choice choice;
        choice.ServiceItemID = rs->Fields(QStringLiteral("ServiceItemID")).toInt();
        choice.Description = Decoded(rs->Fields(QStringLiteral("ServiceItemDescription")));
        choice.Source = Decoded(rs->Fields(QStringLiteral("ServiceItemSource")));
        choices.append(choice);
    }
    std::stable_sort(choices.begin(), choices.end(), [](const Choice& a, const Choice& b) {
        return a.Description.compare(b.Description, Qt::CaseInsensitive) < 0;
    });
    return choices;
}

void SetPicker(Picker picker) {
    installedPicker() = std::move(picker);
}

bool HasPicker() {
    return static_cast<bool>(installedPicker());
}

qint32 Run(qint16 intTypeID, QString& strErrorMessage) {
    strErrorMessage.clear();
    if (!HasPicker()) {
        P::NotAvailable(strErrorMessage, "PickServiceItem",
                        QStringLiteral("Picking a service item from a list"));
        return 0;
    }
    const QList<Choice> choices = Candidates(intTypeID, strErrorMessage);
    if (!strErrorMessage.isEmpty())
        return 0;
    QString strTypeName;
    QString strIgnored;
    DataAccess::Instance().GetServiceItemTypeName(intTypeID, strIgnored, strTypeName);
    const qint32 lngChosen = installedPicker()(strTypeName, choices);
    // Only an id that was offered comes back.
    for (const Choice& choice : choices)
        if (choice.ServiceItemID == lngChosen)
            return lngChosen;
    return 0;
}

} // namespace ServiceItemPick

void DataAccess::PickServiceItem(qint16 intTypeID, QString& strErrorMessage,
                                 qint32& lngServiceItemID) {
    lngServiceItemID = ServiceItemPick::Run(intTypeID, strErrorMessage);
}
