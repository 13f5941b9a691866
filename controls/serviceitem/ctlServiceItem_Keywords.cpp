#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"

#include <QPushButton>

// Keywords and resources of the General Details tab. A keyword chosen that the
// system does not know yet is added to the system's keywords after the user
// agrees; any text may be a resource.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}
} // namespace

void ctlServiceItem::lmgKeywords_BeforeItemAdd(bool& Cancel, QVariant& ItemDataToBeAdded,
                                               const QString& ListToBeAdded) {
    const auto entry = Entry("lmgKeywords_BeforeItemAdd")
                           .Arg(QStringLiteral("ListToBeAdded"), ListToBeAdded)
                           .Enter();
    entry.Guarded([&] {
        QString strErrorMessage;
        if (lmgKeywords->ItemIsAvailable(ListToBeAdded, 0, strErrorMessage))
            return;
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        const qint32 intAnswer = Platform::Current().MsgBox(
            QStringLiteral("This is a new keyword. Do you want to add it to the list of availble "
                           "keywords on your system?"),
            vbYesNoCancel | vbQuestion, QStringLiteral("Add New Keyword?"));
        if (intAnswer != vbYes) {
            Cancel = true;
            return;
        }
        // The store keeps an apostrophe as its marker.
        QString strKeyword = ListToBeAdded;
        if (strKeyword.contains(QLatin1Char('\'')))
            DataAccess::Instance().DecodeStoredText(ListToBeAdded, strErrorMessage, strKeyword);
        qint32 lngKeywordID = 0;
        DataAccess::Instance().AddKeyword(strKeyword, strErrorMessage, lngKeywordID);
        if (!strErrorMessage.isEmpty()) {
            Cancel = true;
            return;
        }
        ItemDataToBeAdded = lngKeywordID;
    });
}

// An entry added, removed or renamed in the keywords or the resources.
void ctlServiceItem::ListManager_Changed(ListManager* lmg) {
    Changed(TabGeneral);
    lmg->setTag(QStringLiteral("Dirty"));
}
