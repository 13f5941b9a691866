#include "ShortListsPage.h"

#include "DataAccess.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBTreeWidget.h"
#include "shortlists/ctlShortList.h"
#include "shortlists/ctlShortListGallery.h"

#include <QPushButton>

ShortListsPage::ShortListsPage(QWidget* parent)
    : HostPage(QStringLiteral("ShortLists"), parent),
      ctlShortListGallery1(new ctlShortListGallery(this)) {
    ctlShortListGallery1->setObjectName(QStringLiteral("ctlShortListGallery1"));
    SetGallery(ctlShortListGallery1);
    connect(ctlShortListGallery1, &ctlShortListGallery::ShortListClicked, this,
            [this](const QString& id, const QString& text) {
                ErrorReport::Guard([&] { ctlShortListGallery1_ShortListClicked(id, text); });
            });
}

// The banner filter lets go of the list before the list goes.
ShortListsPage::~ShortListsPage() {
    ctlShortListGallery1->ReleaseListViewFilter();
}

// The list shown last opens again, in the gallery and in the editor; before any
// was shown, the first list of the gallery opens.
void ShortListsPage::Load() {
    QString strErrorMessage;
    qint32 lngLastShown = 0;
    DataAccess::Instance().GetLastShownShortList(lngLastShown);
    ctlShortListGallery1->ShowShortLists(lngLastShown, strErrorMessage);
    VBTreeWidget* list = ctlShortListGallery1->lvwShortLists;
    if (lngLastShown == 0 && list->topLevelItemCount() > 0)
        lngLastShown = list->topLevelItem(0)->data(0, Qt::UserRole + 1).toInt();
    if (lngLastShown != 0 && strErrorMessage.isEmpty())
        ctlShortListGallery1->SelectShortList(lngLastShown, strErrorMessage);
}

ctlShortList* ShortListsPage::ShortListEditor() const {
    return qobject_cast<ctlShortList*>(Editor()->Current());
}

// A list clicked (also the one New just made) opens in the editor, once the
// list open before agreed to go; an empty id (the last list was deleted)
// leaves the editor empty.
void ShortListsPage::ctlShortListGallery1_ShortListClicked(const QString& strID,
                                                           const QString& strDescription) {
    Q_UNUSED(strDescription);
    if (strID.isEmpty()) {
        Editor()->Replace(new QWidget);
        return;
    }
    if (ctlShortList* open = ShortListEditor()) {
        if (open->Items() == strID)
            return;
        if (!open->CanUnload())
            return;
    }
    auto* editor = Editor()->Ensure<ctlShortList>([this] {
        auto* made = new ctlShortList;
        made->setObjectName(QStringLiteral("ctlShortList1"));
        // After the editor's own save: the gallery shows the saved description.
        connect(made->cmdApplyChanges, &QPushButton::clicked, this, [this, made] {
            ErrorReport::Guard([&] { cmdApplyChanges_Click(made->Items().toInt()); });
        });
        return made;
    });
    if (!editor)
        return;
    editor->setItems(strID);
    editor->ShowProperties();
}

// A saved list shows its new description in the gallery, still selected.
void ShortListsPage::cmdApplyChanges_Click(qint32 lngShortListID) {
    QString strErrorMessage;
    ctlShortListGallery1->ShowShortLists(lngShortListID, strErrorMessage);
}
