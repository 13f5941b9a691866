#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// A list editor of two lists: the entries that may be chosen (the available
// list, on the left) and the entries chosen (on the right). The user moves an
// available entry across with cmdAdd, a double click or Enter, takes a chosen
// entry out with cmdRemove or Delete, renames a chosen entry in place (double
// click or F2), and types a new entry into txtNewItem (Enter or cmdNew).
//
// Every entry has a text, a flag and item data (the id of its row). An entry
// that is chosen is hidden from the available list, so that each text stands
// in one list only; taking it out of the chosen list shows it there again.
// Texts are compared without regard to case: "Easter" and "easter" are one
// entry.
//
// Events, raised for what the user does and for AddChosenItem with
// blnRaiseEvents:
//   BeforeItemAdd(Cancel, ItemDataToBeAdded, ListToBeAdded): before an entry
//     enters the chosen list; ListToBeAdded is its text. The handler may set
//     Cancel to refuse it and may give it its item data (the id of a row it
//     has just stored). Connect it directly only: both arguments are
//     references into the widget.
//   ItemAdded(ItemData, List), ItemDeleted(ItemData, List),
//   ItemUpdated(ItemData, List): after an entry entered, left or was renamed
//     in the chosen list; List is the entry's (new) text.
//
// Tag is a free text that the widget never touches; editors keep their own
// dirty mark in it ("Dirty").
class ListManager : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(qint32 MaxItemLength READ MaxItemLength WRITE setMaxItemLength)

public:
    explicit ListManager(QWidget* parent = nullptr);

    QString Tag() const { return m_strTag; }
    void setTag(const QString& strTag) { m_strTag = strTag; }
    QString Caption() const;
    void setCaption(const QString& strCaption);
    // The longest text the user may type for an entry; 0 for no limit.
    qint32 MaxItemLength() const { return m_lngMaxItemLength; }
    void setMaxItemLength(qint32 lngLength) { m_lngMaxItemLength = lngLength; }

    void ClearAvailableItems();
    void AddAvailableItem(const QString& strText, qint16 intFlag = 0,
                          const QVariant& varItemData = QVariant());
    void ClearChosenItems();
    // Adds to the chosen list. With blnRaiseEvents the add goes through
    // BeforeItemAdd and raises ItemAdded, as when the user adds. A text that
    // is chosen already is not added twice. Answers whether it was added.
    bool AddChosenItem(const QString& strText, qint16 intFlag = 0, bool blnRaiseEvents = false,
                       const QVariant& varItemData = QVariant());
    // True when an entry of that text and flag stands in the available list
    // (chosen or not). strErrorMessage is emptied; the look-up cannot fail.
    bool ItemIsAvailable(const QString& strText, qint16 intFlag, QString& strErrorMessage) const;

    qint32 AvailableCount() const;
    qint32 ChosenCount() const;
    // The chosen entries, counted from 1; another index raises 9.
    QVariant ChosenItemData(qint32 intIndex) const;
    QString ChosenItemText(qint32 intIndex) const;
    // Takes the chosen entry at a 1-based index out, raising ItemDeleted.
    void RemoveChosenItem(qint32 intIndex);

signals:
    void BeforeItemAdd(bool& Cancel, QVariant& ItemDataToBeAdded, const QString& ListToBeAdded);
    void ItemAdded(const QVariant& ItemData, const QString& List);
    void ItemDeleted(const QVariant& ItemData, const QString& List);
    void ItemUpdated(const QVariant& ItemData, const QString& List);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdNew_Click();
    void lstAvailable_DblClick(QListWidgetItem* item);
    void lstChosen_ItemChanged(QListWidgetItem* item);
    void SetUpButtons();

private:
    QListWidgetItem* findIn(const QListWidget* list, const QString& strText) const;
    QListWidgetItem* chosenAt(qint32 intIndex) const;
    bool addChosen(const QString& strText, qint16 intFlag, QVariant varItemData,
                   bool blnRaiseEvents);
    void removeChosen(QListWidgetItem* item);
    void showInAvailable(const QString& strText, bool blnShow);
    bool tooLong(const QString& strText) const;

    QLabel* lblCaption = nullptr;
    QListWidget* lstAvailable = nullptr;
    QListWidget* lstChosen = nullptr;
    QLineEdit* txtNewItem = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdNew = nullptr;

    QString m_strTag;
    qint32 m_lngMaxItemLength = 0;
    bool m_blnFilling = false;
};
