#pragma once

// What the suites of the three flat lists share: the rows of a list as text,
// and a click on a column header.

#include "foundations/VBTreeWidget.h"

#include <QHeaderView>
#include <QStringList>

namespace FlatListTest {

// The keys of the list's entries in the order shown.
inline QStringList Keys(const VBTreeWidget* list) {
    QStringList keys;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        keys << list->topLevelItem(i)->data(0, VBRole::Key).toString();
    return keys;
}

// The texts of one column in the order shown.
inline QStringList Column(const VBTreeWidget* list, int intColumn) {
    QStringList texts;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        texts << list->topLevelItem(i)->text(intColumn);
    return texts;
}

// A click on the header of a column (0-based), as the header reports it.
inline void ClickHeader(VBTreeWidget* list, int intColumn) {
    emit list->header()->sectionClicked(intColumn);
}

} // namespace FlatListTest
