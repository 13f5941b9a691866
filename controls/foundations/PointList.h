#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

class QLabel;
class QPushButton;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

// An outline of points and sub-points, each with notes, as a sermon or a talk
// is planned: tvwPoints holds the outline, txtNotes the notes of the selected
// point. The user adds a point (cmdAdd, Insert), a sub-point (cmdAddSubPoint,
// Shift+Insert), deletes (cmdDelete, Delete), indents and outdents
// (cmdIndent, cmdOutdent, Ctrl+Right, Ctrl+Left), moves a point among its
// siblings (cmdMoveUp, cmdMoveDown, Ctrl+Up, Ctrl+Down) and renames it in
// place (F2 or a double click). A point moves with all its sub-points.
//
// Each change raises one event at once, so that the owner can store the
// outline: PointAdded, PointDeleted(blnPointIsChildOfSelectedPoint) (True when
// the point deleted was a sub-point of another), PointNotesChanged (when the
// notes of a point were edited and the user leaves them), PointRenamed,
// PointReOrdered. Loading by code (Clear, AddPoint) raises none.
//
// Keys are opaque texts made by the widget ("P1", "P2", ...) or given to
// AddPoint; the shape of the outline lives in each point's parent.
class PointList : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint32 maxlengthofpointtext READ maxlengthofpointtext WRITE setmaxlengthofpointtext)

public:
    // One point, or Nothing (IsNothing()); reading a field of Nothing raises
    // 91. A point stays valid while it stands in the outline.
    class Point {
    public:
        Point() = default;
        explicit Point(QTreeWidgetItem* item) : m_item(item) {}
        bool IsNothing() const { return m_item == nullptr; }
        explicit operator bool() const { return m_item != nullptr; }
        QString Key() const;
        QString Text() const;
        QVariant Notes() const;
        Point Parent() const;

    private:
        QTreeWidgetItem* checked() const;
        QTreeWidgetItem* m_item = nullptr;
    };

    // The points as a collection. Count counts the outline's own root with
    // its points, so an outline of n points counts n + 1, and an empty one 0:
    // the walk of NextPoint gives Count less 1 points.
    class PointCollection {
    public:
        explicit PointCollection(const PointList& list) : m_list(list) {}
        qint32 Count() const;

    private:
        const PointList& m_list;
    };

    explicit PointList(QWidget* parent = nullptr);

    qint32 maxlengthofpointtext() const { return m_lngMaxLength; }
    void setmaxlengthofpointtext(qint32 lngLength);

    // Empties the outline.
    void Clear();
    // Adds a point as the last child of ParentPointKey (empty: at the top).
    // A parent that does not stand in the outline puts the point at the top,
    // so that no stored point is lost. An empty key gets a new one; a key that
    // stands already raises 35602.
    void AddPoint(const QString& PointKey, const QString& ParentPointKey, const QString& PointText,
                  const QVariant& varReserved = QVariant(),
                  const QVariant& PointNotes = QVariant());
    // Opens the whole outline and selects the point of the key, if given.
    void Redraw(const QString& strKeyToSelect = QString());
    Point SelectedPoint() const;
    PointCollection Points() const { return PointCollection(*this); }
    // The walk in list order (each point before its sub-points): True starts
    // at the first point; False gives the next. Nothing after the last.
    Point NextPoint(bool blnFirst);
    // The point of a key, or Nothing.
    Point PointByKey(const QString& strKey) const;
    // Renames a point by code, raising PointRenamed. A text longer than
    // maxlengthofpointtext raises 513 "Point text is too long" and leaves the
    // point as it was; an unknown key raises 35601.
    void RenamePoint(const QString& strKey, const QString& strText);

signals:
    void PointAdded();
    void PointDeleted(bool blnPointIsChildOfSelectedPoint);
    void PointNotesChanged();
    void PointRenamed();
    void PointReOrdered();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void cmdAdd_Click();
    void cmdAddSubPoint_Click();
    void cmdDelete_Click();
    void cmdIndent_Click();
    void cmdOutdent_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    void tvwPoints_ItemChanged(QTreeWidgetItem* item, int column);
    void tvwPoints_CurrentItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);

private:
    friend class PointCollection;
    QTreeWidgetItem* newPoint(const QString& strKey, const QString& strText,
                              const QVariant& varNotes);
    QString newKey();
    void addByUser(QTreeWidgetItem* parent, int intRow);
    void collect(QTreeWidgetItem* item, QList<QTreeWidgetItem*>& into) const;
    QList<QTreeWidgetItem*> inListOrder() const;
    void forget(QTreeWidgetItem* item);
    // Takes a point out of its place and puts it back under parent at row,
    // keeping its sub-points, its selection and its open state.
    void moveTo(QTreeWidgetItem* item, QTreeWidgetItem* parent, int intRow);
    void commitNotes(QTreeWidgetItem* item);
    void SetUpButtons();

    QTreeWidget* tvwPoints = nullptr;
    QLabel* lblNotes = nullptr;
    QTextEdit* txtNotes = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdAddSubPoint = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdIndent = nullptr;
    QPushButton* cmdOutdent = nullptr;
    QPushButton* cmdMoveUp = nullptr;
    QPushButton* cmdMoveDown = nullptr;

    QHash<QString, QTreeWidgetItem*> m_keys;
    QList<QTreeWidgetItem*> m_walk;
    qsizetype m_walkPos = 0;
    qint32 m_lngMaxLength = 200;
    qint32 m_lngLastKey = 0;
    QTreeWidgetItem* m_notesOf = nullptr;
    int m_filling = 0;
};
