#pragma once

// Small widget helpers shared by the tabs of ctlOptions.

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/VBError.h"

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QSignalBlocker>
#include <QString>
#include <QVariant>

namespace OptionsHelpers {

template <class T> T* Named(T* w, const QString& strName) {
    w->setObjectName(strName);
    return w;
}

// Replaces a combo's entries without raising its change handler, and leaves it
// with no entry chosen, as a list that was just filled is.
inline void FillCombo(QComboBox* cbo, const QList<DataAccess::ListEntry>& entries) {
    const QSignalBlocker quiet(cbo);
    cbo->clear();
    for (const DataAccess::ListEntry& entry : entries)
        cbo->addItem(entry.Text, entry.ItemData);
    cbo->setCurrentIndex(-1);
}

// The first entry whose item data equals the value (compared as text, so that a
// number stored as text matches), or -1.
inline int FindItemData(const QComboBox* cbo, const QVariant& varValue) {
    if (varValue.isNull() || !varValue.isValid())
        return -1;
    const QString wanted = varValue.toString().trimmed();
    for (int i = 0; i < cbo->count(); ++i)
        if (cbo->itemData(i).toString() == wanted)
            return i;
    return -1;
}

// A check box's Value: 1 checked, 0 not.
inline qint32 CheckValue(const QCheckBox* chk) {
    return chk->isChecked() ? 1 : 0;
}

// A stored Boolean (True, or a number other than 0); Null reads as False.
inline bool StoredFlag(const QVariant& varValue) {
    if (varValue.isNull() || !varValue.isValid())
        return false;
    if (varValue.typeId() == QMetaType::QString)
        return varValue.toString().compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0 ||
               varValue.toString().toInt() != 0;
    return varValue.toBool();
}

// Colours are stored as BGR longs (&HBBGGRR); a valid one lies in 0..&HFFFFFF.
inline bool IsValidBgr(const QVariant& varValue) {
    bool ok = false;
    const qint64 value = varValue.toLongLong(&ok);
    return ok && !varValue.isNull() && value >= 0 && value <= 0xFFFFFF;
}
inline QColor ColorFromBgr(qint32 lngColor) {
    return QColor(lngColor & 0xFF, (lngColor >> 8) & 0xFF, (lngColor >> 16) & 0xFF);
}
inline qint32 BgrFromColor(const QColor& color) {
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}

// The file name of a path. Paths of this machine use "/", which the module's
// GetFileName does not see as a separator, so both count here.
inline QString FileNameOf(const QString& strPath) {
    const qsizetype slash =
        qMax(strPath.lastIndexOf(QLatin1Char('/')), strPath.lastIndexOf(QLatin1Char('\\')));
    return strPath.mid(slash + 1);
}

// The filter of the picture dialogs.
inline const QString PictureFilter =
    QStringLiteral("Picture Files (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif");

// Runs a dialog with cancel as an error: false when the user cancelled (32755);
// other failures pass on.
template <class F> bool RunUnlessCancelled(F&& f) {
    try {
        std::forward<F>(f)();
        return true;
    } catch (const VBError& e) {
        if (e.Number == VBErr::CancelSelected)
            return false;
        throw;
    }
}

// Runs a handler that opens a dialog with cancel as an error: a cancel (32755)
// ends it quietly, any other failure shows the member's error box.
template <class F> void ErrorBoxQuietOnCancel(const MemberEntry& entry, F&& f) {
    try {
        std::forward<F>(f)();
    } catch (const VBError& e) {
        if (e.Number != VBErr::CancelSelected)
            ErrorReport::ErrorBox(entry.Prefix(), e);
    } catch (...) {
        ErrorReport::ErrorBox(entry.Prefix(), ErrorReport::Current(std::current_exception()));
    }
}

} // namespace OptionsHelpers
