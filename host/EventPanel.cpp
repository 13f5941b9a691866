#include "EventPanel.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

EventPanel::EventPanel(QWidget* parent)
    : QWidget(parent), lblCaption(new QLabel(this)), lvwDetails(new QTreeWidget(this)) {
    setObjectName(QStringLiteral("EventPanel"));
    lblCaption->setObjectName(QStringLiteral("lblCaption"));
    lvwDetails->setObjectName(QStringLiteral("lvwDetails"));
    QFont bold = lblCaption->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    lblCaption->setFont(bold);
    lblCaption->setWordWrap(true);
    lvwDetails->setRootIsDecorated(false);
    lvwDetails->setColumnCount(2);
    lvwDetails->setHeaderLabels({QStringLiteral("Detail"), QStringLiteral("Value")});
    lvwDetails->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    lvwDetails->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblCaption);
    layout->addWidget(lvwDetails, 1);
}

void EventPanel::Show(const QString& strCaption, const Rows& rows) {
    lblCaption->setText(strCaption);
    lvwDetails->clear();
    for (const auto& row : rows)
        new QTreeWidgetItem(lvwDetails, {row.first, row.second});
}

QString EventPanel::Caption() const {
    return lblCaption->text();
}

QString EventPanel::Value(const QString& strName) const {
    for (int i = 0; i < lvwDetails->topLevelItemCount(); ++i)
        if (lvwDetails->topLevelItem(i)->text(0) == strName)
            return lvwDetails->topLevelItem(i)->text(1);
    return QString();
}
