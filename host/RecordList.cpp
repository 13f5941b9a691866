#include "RecordList.h"

#include "DataAccess.h"
#include "HostText.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBRuntime.h"

#include <QHeaderView>

RecordList::RecordList(const QString& strIdField, const QList<Column>& columns, Loader loader,
                       QWidget* parent)
    : QTreeWidget(parent), m_idField(strIdField), m_columns(columns), m_loader(std::move(loader)) {
    setRootIsDecorated(false);
    setColumnCount(static_cast<int>(columns.size()));
    QStringList captions;
    for (const Column& column : columns)
        captions << column.caption;
    setHeaderLabels(captions);
    setSortingEnabled(false);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        ErrorReport::Guard(
            [&] { emit RowClicked(item->data(0, Qt::UserRole).toInt(), item->text(0)); });
    });
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        ErrorReport::Guard([&] { emit RowDoubleClicked(item->data(0, Qt::UserRole).toInt()); });
    });
}

QString RecordList::Reload() {
    clear();
    QString err;
    std::unique_ptr<Recordset> rs;
    m_loader(err, rs);
    if (!err.isEmpty() || !rs)
        return err;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        QStringList texts;
        for (const Column& column : m_columns) {
            const QVariant value = rs->Fields(column.field);
            QString text = HostText::Value(value);
            if (text.contains(QStringLiteral("@@"))) {
                QString decodeErr, decoded;
                DataAccess::Instance().DecodeStoredText(text, decodeErr, decoded);
                text = decoded;
            }
            texts << text;
        }
        auto* item = new QTreeWidgetItem(this, texts);
        item->setData(0, Qt::UserRole, rs->Fields(m_idField).toInt());
    }
    header()->resizeSections(QHeaderView::ResizeToContents);
    return QString();
}

qint32 RecordList::SelectedId() const {
    const QTreeWidgetItem* item = currentItem();
    return item ? item->data(0, Qt::UserRole).toInt() : 0;
}

QString RecordList::SelectedText() const {
    const QTreeWidgetItem* item = currentItem();
    return item ? item->text(0) : QString();
}

bool RecordList::SelectId(qint32 lngID) {
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->data(0, Qt::UserRole).toInt() == lngID) {
            setCurrentItem(topLevelItem(i));
            return true;
        }
    return false;
}
