#pragma once

#include "ServiceItemPick.h"

#include "foundations/ListPickerDialog.h"
#include <QList>
#include <QString>

// The dialog with which the data library asks for one service item of a type
// (DataAccess::PickServiceItem, for instance the music item of another item):
// the items in lvwServiceItems ("Description", "Source"), narrowed by the quick
// filter fltServiceItems as the user types, cmdOK and cmdCancel. A double
// click or Enter chooses the selected item; while the filter hides the
// selected one, the first shown is selected, so that typing part of a name and
// pressing Enter chooses it. Escape cancels. With no item of the type,
// lblPrompt says so and OK stays disabled.
//
// The Qt platform shows it (Platform::PickServiceItem); the controls library
// installs that as the data library's picker when it is linked.
class ServiceItemPickerDialog : public ListPickerDialog {
    Q_OBJECT
public:
    ServiceItemPickerDialog(const QString& strTypeName,
                            const QList<ServiceItemPick::Choice>& choices,
                            QWidget* parent = nullptr);

    // The item selected (and shown), 0 for none.
    qint32 ChosenServiceItemID() const { return ChosenID(); }
};
