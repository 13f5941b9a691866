#include "foundations/ShortListPicker.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/Platform.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBTreeWidget.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
QString decoded(const QVariant& varText) {
    const QString strText = varText.toString();
    if (!strText.contains(QStringLiteral("@@")))
        return strText;
    QString strError;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strError, strResult);
    return strError.isEmpty() ? strResult : strText;
}
} // namespace

// ---- The picker ----------------------------------------------------------------------------

ShortListPicker& ShortListPicker::Instance() {
    static ShortListPicker picker;
    return picker;
}

QList<ShortListChoice> ShortListPicker::ReadShortLists(QString& strErrorMessage) {
    strErrorMessage.clear();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetShortListsWhere(QString(), strErrorMessage, rs);
    QList<ShortListChoice> choices;
    if (!strErrorMessage.isEmpty() || !rs)
        return choices;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        ShortListChoice choice;
        choice.ShortListID = rs->Fields(QStringLiteral("ShortListID")).toInt();
        choice.Description = decoded(rs->Fields(QStringLiteral("ShortListDescription")));
        choice.CreatedBy = rs->Fields(QStringLiteral("ShortListCreatedBy")).toString();
        choice.DateCreated = rs->Fields(QStringLiteral("ShortListDateCreated")).toDateTime();
        choices.append(choice);
    }
    std::stable_sort(choices.begin(), choices.end(), [](const auto& a, const auto& b) {
        return a.Description.compare(b.Description, Qt::CaseInsensitive) < 0;
    });
    return choices;
}

qint32 ShortListPicker::SelectShortList(QString& strErrorMessage) {
    const QList<ShortListChoice> choices = ReadShortLists(strErrorMessage);
    if (!strErrorMessage.isEmpty())
        return 0;
    if (choices.isEmpty()) {
        Platform::Current().MsgBox(
            QObject::tr("No Short-Lists have been saved yet. Make one on the Short-Lists page "
                        "first."),
            vbOKOnly | vbInformation, QObject::tr("Select a Short-List"));
        return 0;
    }
    const qint32 lngChosen = Platform::Current().SelectShortList(choices);
    // Only an id that was offered comes back.
    for (const ShortListChoice& choice : choices) {
        if (choice.ShortListID == lngChosen)
            return lngChosen;
    }
    return 0;
}

// The Qt platform asks with the picker's dialog, over the active window.
qint32 Platform::SelectShortList(const QList<ShortListChoice>& choices) {
    ShortListPickerDialog dialog(choices, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? dialog.ChosenShortListID() : 0;
}

// ---- The dialog -------------------------------------------------------------------------------

ShortListPickerDialog::ShortListPickerDialog(const QList<ShortListChoice>& choices, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(tr("Select a Short-List"));
    lblPrompt = new QLabel(tr("Choose the Short-List to show:"), this);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    fltShortLists = new RKLvwBannerFilter(this);
    fltShortLists->setObjectName(QStringLiteral("fltShortLists"));
    fltShortLists->setItemDescription(tr("Short-Lists"));
    lvwShortLists = new VBTreeWidget(this);
    lvwShortLists->setObjectName(QStringLiteral("lvwShortLists"));
    lvwShortLists->SetListView();
    lvwShortLists->AddColumnHeader(QStringLiteral("Description"), tr("Description"), 3600);
    lvwShortLists->AddColumnHeader(QStringLiteral("Created"), tr("Created Date"), 1500);
    lvwShortLists->AddColumnHeader(QStringLiteral("By"), tr("Created By"), 1800);
    lvwShortLists->setSelectionMode(QAbstractItemView::SingleSelection);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    for (const ShortListChoice& choice : choices) {
        VBNode item = lvwShortLists->AddItem(QStringLiteral("ShortList;%1").arg(choice.ShortListID),
                                             choice.Description);
        item.setTag(choice.ShortListID);
        if (choice.DateCreated.isValid())
            item.setSubItems(1,
                             QLocale().toString(choice.DateCreated.date(), QLocale::ShortFormat));
        item.setSubItems(2, choice.CreatedBy);
    }

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblPrompt);
    layout->addWidget(fltShortLists);
    layout->addWidget(lvwShortLists, 1);
    layout->addLayout(buttons);
    resize(560, 360);

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lvwShortLists, &QTreeWidget::itemDoubleClicked, this,
            &ShortListPickerDialog::lvwShortLists_DblClick);
    connect(lvwShortLists, &QTreeWidget::itemSelectionChanged, this,
            &ShortListPickerDialog::SetUpButtons);
    connect(fltShortLists, &RKLvwBannerFilter::FilterApplied, this,
            &ShortListPickerDialog::fltShortLists_FilterApplied);
    fltShortLists->setListView(lvwShortLists);
    if (lvwShortLists->topLevelItemCount() > 0)
        lvwShortLists->setCurrentItem(lvwShortLists->topLevelItem(0));
    SetUpButtons();
    fltShortLists->setFocus();
}

qint32 ShortListPickerDialog::ChosenShortListID() const {
    for (const QTreeWidgetItem* item : lvwShortLists->selectedItems()) {
        if (!item->isHidden())
            return item->data(0, VBRole::Tag).toInt();
    }
    return 0;
}

void ShortListPickerDialog::lvwShortLists_DblClick(QTreeWidgetItem* item) {
    lvwShortLists->setCurrentItem(item);
    accept();
}

void ShortListPickerDialog::fltShortLists_FilterApplied() {
    if (ChosenShortListID() == 0) {
        for (int i = 0; i < lvwShortLists->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = lvwShortLists->topLevelItem(i);
            if (!item->isHidden()) {
                lvwShortLists->setCurrentItem(item);
                break;
            }
        }
    }
    SetUpButtons();
}

void ShortListPickerDialog::SetUpButtons() {
    cmdOK->setEnabled(ChosenShortListID() != 0);
}
