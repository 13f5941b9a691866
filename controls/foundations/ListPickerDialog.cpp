#include "foundations/ListPickerDialog.h"

#include "foundations/RKLvwBannerFilter.h"
#include "foundations/VBTreeWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ListPickerDialog::ListPickerDialog(const QString& strFilterName, const QString& strListName,
                                   const QString& strItemDescription, QWidget* parent)
    : QDialog(parent) {
    lblPrompt = new QLabel(this);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    m_filter = new RKLvwBannerFilter(this);
    m_filter->setObjectName(strFilterName);
    m_filter->setItemDescription(strItemDescription);
    m_list = new VBTreeWidget(this);
    m_list->setObjectName(strListName);
    m_list->SetListView();
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
}

void ListPickerDialog::Finish(int intWidth, int intHeight) {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblPrompt);
    layout->addWidget(m_filter);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    resize(intWidth, intHeight);

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &ListPickerDialog::List_DblClick);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &ListPickerDialog::SetUpButtons);
    connect(m_filter, &RKLvwBannerFilter::FilterApplied, this,
            &ListPickerDialog::Filter_FilterApplied);
    m_filter->setListView(m_list);
    if (m_list->topLevelItemCount() > 0)
        m_list->setCurrentItem(m_list->topLevelItem(0));
    SetUpButtons();
    m_filter->setFocus();
}

qint32 ListPickerDialog::ChosenID() const {
    for (const QTreeWidgetItem* item : m_list->selectedItems())
        if (!item->isHidden())
            return item->data(0, VBRole::Tag).toInt();
    return 0;
}

void ListPickerDialog::List_DblClick(QTreeWidgetItem* item) {
    m_list->setCurrentItem(item);
    accept();
}

void ListPickerDialog::Filter_FilterApplied() {
    if (ChosenID() == 0) {
        for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = m_list->topLevelItem(i);
            if (!item->isHidden()) {
                m_list->setCurrentItem(item);
                break;
            }
        }
    }
    SetUpButtons();
}

void ListPickerDialog::SetUpButtons() {
    cmdOK->setEnabled(ChosenID() != 0);
}
