#pragma once

#include <QList>
#include <QString>

#include <functional>

// Picking one service item of a type (DataAccess::PickServiceItem): the data library reads the
// items the user can choose from; the user interface that asks is installed by the controls
// library (its dialog, shown through its Platform), since this library shows nothing itself.
namespace ServiceItemPick {

// One service item as the picker offers it.
struct Choice {
    qint32 ServiceItemID = 0;
    QString Description; // decoded: apostrophes, not "@@"
    QString Source;
    bool operator==(const Choice& other) const = default;
};

// The service items of a type, in the order of their descriptions; an empty list with
// strErrorMessage when the store failed.
QList<Choice> Candidates(qint16 intTypeID, QString& strErrorMessage);

// Asks the user: the name of the type ("Music") and the items offered; answers the id chosen,
// 0 for Cancel.
using Picker = std::function<qint32(const QString& strTypeName, const QList<Choice>& choices)>;
void SetPicker(Picker picker);
bool HasPicker();

// The whole pick: reads the candidates, asks, and answers an id that was offered or 0.
qint32 Run(qint16 intTypeID, QString& strErrorMessage);

} // namespace ServiceItemPick
