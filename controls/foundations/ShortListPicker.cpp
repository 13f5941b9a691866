#include "foundations/ShortListPicker.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/Platform.h"
#include "foundations/VBTreeWidget.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>

#include <algorithm>

namespace {
QString decoded(const QVariant& varText) {
    const QString strText = varText.toString();
    if (!strText.contains(QStringLiteral("@@")))
        return strText;
    QString strError;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strError, strResult);
    return strError.isEmpty() ? strResult : strText;
}
} // namespace

// ---- The picker ----------------------------------------------------------------------------

ShortListPicker& ShortListPicker::Instance() {
    static ShortListPicker picker;
    return picker;
}

QList<ShortListChoice> ShortListPicker::ReadShortLists(QString& strErrorMessage) {
    strErrorMessage.clear();
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetShortListsWhere(QString(), strErrorMessage, rs);
    QList<ShortListChoice> choices;
    if (!strErrorMessage.isEmpty() || !rs)
        return choices;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        ShortListChoice choice;
        choice.ShortListID = rs->Fields(QStringLiteral("ShortListID")).toInt();
        choice.Description = decoded(rs->Fields(QStringLiteral("ShortListDescription")));
        choice.CreatedBy = rs->Fields(QStringLiteral("ShortListCreatedBy")).toString();
        choice.DateCreated = rs->Fields(QStringLiteral("ShortListDateCreated")).toDateTime();
        choices.append(choice);
    }
    std::stable_sort(choices.begin(), choices.end(), [](const auto& a, const auto& b) {
        return a.Description.compare(b.Description, Qt::CaseInsensitive) < 0;
    });
    return choices;
}

qint32 ShortListPicker::SelectShortList(QString& strErrorMessage) {
    const QList<ShortListChoice> choices = ReadShortLists(strErrorMessage);
    if (!strErrorMessage.isEmpty())
        return 0;
    if (choices.isEmpty()) {
        Platform::Current().MsgBox(
            QObject::tr("No Short-Lists have been saved yet. Make one on the Short-Lists page "
                        "first."),
            vbOKOnly | vbInformation, QObject::tr("Select a Short-List"));
        return 0;
    }
    const qint32 lngChosen = Platform::Current().SelectShortList(choices);
    // Only an id that was offered comes back.
    for (const ShortListChoice& choice : choices) {
        if (choice.ShortListID == lngChosen)
            return lngChosen;
    }
    return 0;
}

// The Qt platform asks with the picker's dialog, over the active window.
qint32 Platform::SelectShortList(const QList<ShortListChoice>& choices) {
    ShortListPickerDialog dialog(choices, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? dialog.ChosenShortListID() : 0;
}

// ---- The dialog -------------------------------------------------------------------------------

ShortListPickerDialog::ShortListPickerDialog(const QList<ShortListChoice>& choices, QWidget* parent)
    : ListPickerDialog(QStringLiteral("fltShortLists"), QStringLiteral("lvwShortLists"),
                       tr("Short-Lists"), parent) {
    setWindowTitle(tr("Select a Short-List"));
    Prompt()->setText(tr("Choose the Short-List to show:"));
    VBTreeWidget* lvwShortLists = List();
    lvwShortLists->AddColumnHeader(QStringLiteral("Description"), tr("Description"), 3600);
    lvwShortLists->AddColumnHeader(QStringLiteral("Created"), tr("Created Date"), 1500);
    lvwShortLists->AddColumnHeader(QStringLiteral("By"), tr("Created By"), 1800);
    for (const ShortListChoice& choice : choices) {
        VBNode item = lvwShortLists->AddItem(QStringLiteral("ShortList;%1").arg(choice.ShortListID),
                                             choice.Description);
        item.setTag(choice.ShortListID);
        if (choice.DateCreated.isValid())
            item.setSubItems(1,
                             QLocale().toString(choice.DateCreated.date(), QLocale::ShortFormat));
        item.setSubItems(2, choice.CreatedBy);
    }
    Finish(560, 360);
}
