#pragma once

#include <QTreeWidget>

#include <functional>
#include <memory>

class Recordset;

// A flat list of the rows of a recordset, one column per field, the row's id
// in Qt::UserRole of column 0. Stands in for a gallery that is not there.
class RecordList : public QTreeWidget {
    Q_OBJECT
public:
    struct Column {
        QString field;
        QString caption;
    };
    using Loader = std::function<void(QString& strErrorMessage, std::unique_ptr<Recordset>& rs)>;

    RecordList(const QString& strIdField, const QList<Column>& columns, Loader loader,
               QWidget* parent = nullptr);

    // Reads the rows again; the error text of the data library, if any.
    QString Reload();
    qint32 SelectedId() const;
    QString SelectedText() const;
    bool SelectId(qint32 lngID);

signals:
    void RowClicked(qint32 lngID, const QString& strText);
    void RowDoubleClicked(qint32 lngID);

private:
    QString m_idField;
    QList<Column> m_columns;
    Loader m_loader;
};
