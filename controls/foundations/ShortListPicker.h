#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include "foundations/ListPickerDialog.h"

// One saved short-list as the picker offers it.
struct ShortListChoice {
    qint32 ShortListID = 0;
    QString Description;
    QString CreatedBy;
    QDateTime DateCreated; // invalid when not stored
};

// Asks the user for one of the saved short-lists. SelectShortList reads the
// short-lists from the store and lets the user choose through
// Platform::SelectShortList, which shows ShortListPickerDialog; it returns the
// chosen ShortListID, or 0 when the user cancelled, when no short-list is
// saved (after saying so) or when the store failed (strErrorMessage then says
// why). One instance serves the application, made on first use.
class ShortListPicker {
public:
    static ShortListPicker& Instance();

    qint32 SelectShortList(QString& strErrorMessage);

    // The saved short-lists in the order of their descriptions; an empty list
    // with strErrorMessage set when the store failed.
    static QList<ShortListChoice> ReadShortLists(QString& strErrorMessage);

private:
    ShortListPicker() = default;
};

// The dialog of the picker: the short-lists in lvwShortLists ("Description",
// "Created Date", "Created By"), narrowed by fltShortLists as the user types,
// cmdOK and cmdCancel. A double click or Enter chooses the selected
// short-list; while a filter hides the selected one, the first shown is
// selected, so that typing part of a name and pressing Enter chooses it.
// Escape cancels.
class ShortListPickerDialog : public ListPickerDialog {
    Q_OBJECT
public:
    explicit ShortListPickerDialog(const QList<ShortListChoice>& choices,
                                   QWidget* parent = nullptr);

    // The short-list selected (and shown), 0 for none.
    qint32 ChosenShortListID() const { return ChosenID(); }
};
