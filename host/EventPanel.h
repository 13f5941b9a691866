#pragma once

#include <QList>
#include <QPair>
#include <QWidget>

class QLabel;
class QTreeWidget;

// A plain read-only view of what a gallery's event told the host (which
// service or service item was clicked, under which filter), with a few
// details from the database; it stands where the matching editor goes.
class EventPanel : public QWidget {
    Q_OBJECT
public:
    using Rows = QList<QPair<QString, QString>>;

    explicit EventPanel(QWidget* parent = nullptr);

    void Show(const QString& strCaption, const Rows& rows);
    QString Caption() const;
    // The value of the first row named strName; empty when there is none.
    QString Value(const QString& strName) const;

    QLabel* lblCaption;
    QTreeWidget* lvwDetails;
};
