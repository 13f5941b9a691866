#include "foundations/ServiceItemPicker.h"

#include "foundations/Platform.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBTreeWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

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
    : QDialog(parent) {
    const QString strKind = strTypeName.isEmpty() ? tr("Service Item") : strTypeName;
    setWindowTitle(tr("Select a %1 Service Item").arg(strKind));
    lblPrompt = new QLabel(choices.isEmpty()
                               ? tr("There are no %1 Service Items to choose from.").arg(strKind)
                               : tr("Choose the %1 Service Item:").arg(strKind),
                           this);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    fltServiceItems = new RKLvwBannerFilter(this);
    fltServiceItems->setObjectName(QStringLiteral("fltServiceItems"));
    fltServiceItems->setItemDescription(tr("Service Items"));
    lvwServiceItems = new VBTreeWidget(this);
    lvwServiceItems->setObjectName(QStringLiteral("lvwServiceItems"));
    lvwServiceItems->SetListView();
    lvwServiceItems->AddColumnHeader(QStringLiteral("Description"), tr("Description"), 4200);
    lvwServiceItems->AddColumnHeader(QStringLiteral("Source"), tr("Source"), 2700);
    lvwServiceItems->setSelectionMode(QAbstractItemView::SingleSelection);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    for (const ServiceItemPick::Choice& choice : choices) {
        VBNode item = lvwServiceItems->AddItem(QStringLiteral("SI;%1").arg(choice.ServiceItemID),
                                               choice.Description);
        item.setTag(choice.ServiceItemID);
        item.setSubItems(1, choice.Source);
    }

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblPrompt);
    layout->addWidget(fltServiceItems);
    layout->addWidget(lvwServiceItems, 1);
    layout->addLayout(buttons);
    resize(560, 400);

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lvwServiceItems, &QTreeWidget::itemDoubleClicked, this,
            &ServiceItemPickerDialog::lvwServiceItems_DblClick);
    connect(lvwServiceItems, &QTreeWidget::itemSelectionChanged, this,
            &ServiceItemPickerDialog::SetUpButtons);
    connect(fltServiceItems, &RKLvwBannerFilter::FilterApplied, this,
            &ServiceItemPickerDialog::fltServiceItems_FilterApplied);
    fltServiceItems->setListView(lvwServiceItems);
    if (lvwServiceItems->topLevelItemCount() > 0)
        lvwServiceItems->setCurrentItem(lvwServiceItems->topLevelItem(0));
    SetUpButtons();
    fltServiceItems->setFocus();
}

qint32 ServiceItemPickerDialog::ChosenServiceItemID() const {
    for (const QTreeWidgetItem* item : lvwServiceItems->selectedItems())
        if (!item->isHidden())
            return item->data(0, VBRole::Tag).toInt();
    return 0;
}

void ServiceItemPickerDialog::lvwServiceItems_DblClick(QTreeWidgetItem* item) {
    lvwServiceItems->setCurrentItem(item);
    accept();
}

void ServiceItemPickerDialog::fltServiceItems_FilterApplied() {
    if (ChosenServiceItemID() == 0) {
        for (int i = 0; i < lvwServiceItems->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = lvwServiceItems->topLevelItem(i);
            if (!item->isHidden()) {
                lvwServiceItems->setCurrentItem(item);
                break;
            }
        }
    }
    SetUpButtons();
}

void ServiceItemPickerDialog::SetUpButtons() {
    cmdOK->setEnabled(ChosenServiceItemID() != 0);
}
