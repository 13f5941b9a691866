#include "foundations/ServiceItemPicker.h"

#include "foundations/Platform.h"
#include "foundations/VBTreeWidget.h"

#include <QLabel>

// The Qt platform asks with the picker's dialog, over the window that boxes
// open over.
qint32 Platform::PickServiceItem(const QString& strTypeName,
                                 const QList<ServiceItemPick::Choice>& choices) {
    ServiceItemPickerDialog dialog(strTypeName, choices, DialogParent());
    return dialog.exec() == QDialog::Accepted ? dialog.ChosenServiceItemID() : 0;
}

// The data library's picker is this library's platform: installed when the
// controls library is part of the program (Platform's table of members names
// PickServiceItem, which brings this file along).
namespace {
[[maybe_unused]] const bool g_blnPickerInstalled = [] {
    ServiceItemPick::SetPicker(
        [](const QString& strTypeName, const QList<ServiceItemPick::Choice>& choices) {
            return Platform::Current().PickServiceItem(strTypeName, choices);
        });
    return true;
}();
} // namespace

ServiceItemPickerDialog::ServiceItemPickerDialog(const QString& strTypeName,
                                                 const QList<ServiceItemPick::Choice>& choices,
                                                 QWidget* parent)
    : ListPickerDialog(QStringLiteral("fltServiceItems"), QStringLiteral("lvwServiceItems"),
                       tr("Service Items"), parent) {
    const QString strKind = strTypeName.isEmpty() ? tr("Service Item") : strTypeName;
    setWindowTitle(tr("Select a %1 Service Item").arg(strKind));
    Prompt()->setText(choices.isEmpty()
                          ? tr("There are no %1 Service Items to choose from.").arg(strKind)
                          : tr("Choose the %1 Service Item:").arg(strKind));
    VBTreeWidget* lvwServiceItems = List();
    lvwServiceItems->AddColumnHeader(QStringLiteral("Description"), tr("Description"), 4200);
    lvwServiceItems->AddColumnHeader(QStringLiteral("Source"), tr("Source"), 2700);
    for (const ServiceItemPick::Choice& choice : choices) {
        VBNode item = lvwServiceItems->AddItem(QStringLiteral("SI;%1").arg(choice.ServiceItemID),
                                               choice.Description);
        item.setTag(choice.ServiceItemID);
        item.setSubItems(1, choice.Source);
    }
    Finish(560, 400);
}
