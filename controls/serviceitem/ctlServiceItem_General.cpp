#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

// The General Details tab: the types and keywords read once per control, the
// item's texts, resources and keywords, and the rule of which type an item may
// change to.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

void SystemError(const QString& strMessage) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("System Error"));
}

// Each combo entry carries its key ("ServiceItemType;" and the id) and its
// image number, which is the id.
constexpr int KeyRole = Qt::UserRole;
constexpr int ImageRole = Qt::UserRole + 1;
const QString kTypeKeyPrefix = QStringLiteral("ServiceItemType;");

bool IsPicture(qint32 lngTypeID) {
    return lngTypeID == 4 || lngTypeID == 5;
}

QString Text(const Recordset& rs, const char* field) {
    return VB::Text(rs.Fields(QString::fromLatin1(field)));
}
} // namespace

void ctlServiceItem::UserControl_Initialize() {
    const auto entry = Entry("UserControl_Initialize").Enter();
    entry.FullErrorBox([&] {
        if (!blnTypesLoaded)
            LoadTypes();
        if (blnTypesLoaded && !blnKeywordsLoaded)
            LoadAvailableKeywords();
    });
}

void ctlServiceItem::LoadTypes() {
    imgcboServiceItemTypes->clear();
    std::unique_ptr<Recordset> rs;
    QString strErrorMessage;
    DataAccess::Instance().GetServiceItemTypes(strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return;
    }
    if (!rs || rs->RecordCount() == 0) {
        Platform::Current().MsgBox(QStringLiteral("No Service Item Types in Database"));
        return;
    }
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const qint32 lngTypeID = VB::CLng(rs->Fields(QStringLiteral("ServiceItemTypeID")));
        imgcboServiceItemTypes->addItem(imlServiceItems->Icon(lngTypeID),
                                        Text(*rs, "ServiceItemTypeName"));
        const int i = imgcboServiceItemTypes->count() - 1;
        imgcboServiceItemTypes->setItemData(i, kTypeKeyPrefix + QString::number(lngTypeID),
                                            KeyRole);
        imgcboServiceItemTypes->setItemData(i, lngTypeID, ImageRole);
    }
    imgcboServiceItemTypes->setCurrentIndex(-1);
    blnTypesLoaded = true;
}

void ctlServiceItem::LoadAvailableKeywords() {
    lmgKeywords->ClearAvailableItems();
    std::unique_ptr<Recordset> rs;
    QString strErrorMessage;
    DataAccess::Instance().GetKeywords(4, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        SystemError(strErrorMessage);
        return;
    }
    if (rs && rs->RecordCount() > 0)
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            lmgKeywords->AddAvailableItem(Decoded(Text(*rs, "KeywordText")), 0,
                                          rs->Fields(QStringLiteral("KeywordID")));
    blnKeywordsLoaded = true;
}

qint32 ctlServiceItem::SelectedTypeImage() const {
    const int i = imgcboServiceItemTypes->currentIndex();
    return i < 0 ? 0 : imgcboServiceItemTypes->itemData(i, ImageRole).toInt();
}

void ctlServiceItem::ChooseServiceItemType(qint32 lngTypeID) {
    for (int i = 0; i < imgcboServiceItemTypes->count(); ++i)
        if (imgcboServiceItemTypes->itemData(i, ImageRole).toInt() == lngTypeID) {
            imgcboServiceItemTypes->setCurrentIndex(i);
            emit imgcboServiceItemTypes->activated(i);
            return;
        }
}

// ---------------------------------------------------------------- The type rule

void ctlServiceItem::imgcboServiceItemTypes_Click() {
    const auto entry = Entry("imgcboServiceItemTypes_Click").Enter();
    entry.Guarded([&] {
        const qint32 lngImage = SelectedTypeImage();
        Image1->setPixmap(lngImage > 0 ? imlServiceItems->ListImage(lngImage) : QPixmap());
        const int i = imgcboServiceItemTypes->currentIndex();
        const qint32 lngNewTypeID = i < 0 ? 0
                                          : VB::CLng(imgcboServiceItemTypes->itemData(i, KeyRole)
                                                         .toString()
                                                         .mid(kTypeKeyPrefix.size()));
        auto refuse = [&](const QString& strMessage) {
            Platform::Current().MsgBox(strMessage, vbOKOnly,
                                       QStringLiteral("Invalid Type Selected"));
            RestoreServiceItemType();
        };
        const QString strCannotChange =
            QStringLiteral("You cannot change this Service item to this type");
        if (lngNewTypeID != lngServiceItemTypeID) {
            if (lngServiceItemTypeID == 10 || lngNewTypeID == 10)
                return refuse(QStringLiteral("You cannot change to this Service Item type"));
            if (IsPicture(lngServiceItemTypeID) != IsPicture(lngNewTypeID))
                return refuse(strCannotChange);
            if ((lngServiceItemTypeID == 17 && lngNewTypeID == 11) ||
                (lngServiceItemTypeID == 11 && lngNewTypeID == 17))
                return refuse(strCannotChange);
            // Accepted: the run details and the prop bag depend on the type.
            blnRunDetailsLoaded = false;
            blnPropBagLoaded = false;
            if (IsPicture(lngNewTypeID)) {
                SSTab2->setTabEnabled(1, false);
                imgContent->setEnabled(true);
                txtFileContent->hide();
            } else if (lngNewTypeID == 11) {
                // A points list has no run details of its own; the content tab
                // stays until the item is shown again.
                if (SSTab1->Tab() == TabRunDetails)
                    SSTab1->setTab(TabGeneral);
                SSTab1->setTabEnabled(TabRunDetails, false);
            } else {
                SSTab2->setTabEnabled(1, true);
                imgContent->setEnabled(true);
                txtFileContent->hide();
            }
        }
        // Choosing the type in force again counts as a change too.
        Changed(TabGeneral);
        lngServiceItemTypeID = lngNewTypeID;
        m_cycle->SetNotify(true);
    });
}

// Puts the combo back on the type in force. With no entry of that type the
// selection stays where the user put it.
void ctlServiceItem::RestoreServiceItemType() {
    for (int i = 0; i < imgcboServiceItemTypes->count(); ++i)
        if (imgcboServiceItemTypes->itemData(i, ImageRole).toInt() == lngServiceItemTypeID) {
            imgcboServiceItemTypes->setCurrentIndex(i);
            break;
        }
    const qint32 lngImage = SelectedTypeImage();
    Image1->setPixmap(lngImage > 0 ? imlServiceItems->ListImage(lngImage) : QPixmap());
}

void ctlServiceItem::SetupServiceItemTypeCombo() {
    const auto entry = Entry("SetupServiceItemTypeCombo").Enter();
    entry.FullErrorBox([&] {
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetServiceItemsJoined(WhereThisItem(), 4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0) {
            SystemError(QStringLiteral("Service Item: ") + QString::number(lngServiceItemID) +
                        QStringLiteral(" does not exist"));
            return;
        }
        rs->MoveFirst();
        const int i = imgcboServiceItemTypes->findText(Text(*rs, "ServiceItemTypeName"));
        if (i >= 0)
            imgcboServiceItemTypes->setCurrentIndex(i);
        else if (lngServiceItemTypeID == 0)
            // An item without a type shows no type, rather than the type of
            // the item shown before.
            imgcboServiceItemTypes->setCurrentIndex(-1);
        imgcboServiceItemTypes_Click();
    });
}

// ---------------------------------------------------------------- Loading the tab

void ctlServiceItem::LoadGeneralTab() {
    const auto entry = Entry("LoadGeneralTab").Enter();
    entry.FullErrorBox([&] {
        const bool blnSaveEnabled = cmdSave->isEnabled();
        bool blnFilled = false;
        {
            EditorCycle::Loading loading(*m_cycle);
            blnFilled = FillGeneralTab();
        }
        if (!blnFilled)
            return;
        blnGeneralLoaded = true;
        m_cycle->Clear(TabGeneral);
        cmdSave->setEnabled(blnSaveEnabled);
    });
}

void ctlServiceItem::ShowSongFields(bool blnShow) {
    for (QWidget* w : std::initializer_list<QWidget*>{txtMelody, lblCaptionMelody, txtSongKey,
                                                      lblCaptionSongKey})
        w->setVisible(blnShow);
}

bool ctlServiceItem::FillGeneralTab() {
    const QString strPrefix = QStringLiteral("QVLTCONTROLS:ctlServiceItem:LoadGeneralTab: ");
    DataAccess& da = DataAccess::Instance();
    std::unique_ptr<Recordset> rs;
    QString strErrorMessage;
    da.GetServiceItemsJoined(WhereThisItem(), 4, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty())
        Platform::Current().MsgBox(strPrefix + strErrorMessage);
    if (!rs || rs->RecordCount() == 0) {
        SystemError(QStringLiteral("Service Item: ") + QString::number(lngServiceItemID) +
                    QStringLiteral(" does not exist"));
        return false;
    }
    rs->MoveFirst();
    const qint32 lngStoredType =
        VB::CLng(rs->Fields(QStringLiteral("ServiceItems.ServiceItemTypeID")));
    ShowSongFields(lngStoredType == 17 || lngStoredType == 10);
    txtDescription->setText(Decoded(Text(*rs, "ServiceItemDescription")));
    txtNotes->setPlainText(Text(*rs, "ServiceItemNotes"));
    lblProvider->setText(Text(*rs, "ServiceItemProvider"));
    txtSongKey->setText(Text(*rs, "ServiceItemSongKey"));
    txtMelody->setText(Text(*rs, "ServiceItemMelody"));
    txtCopyright->setText(Text(*rs, "ServiceItemCopyrightDetails"));
    txtLocation->setText(Text(*rs, "ServiceItemOriginalLocation"));

    lmgResources->ClearChosenItems();
    std::unique_ptr<Recordset> rsResources;
    const QString strWhere = QStringLiteral("ServiceItemID = ") + QString::number(lngServiceItemID);
    da.GetServiceItemResources(strWhere, 4, strErrorMessage, rsResources);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strPrefix + strErrorMessage);
        return false;
    }
    if (rsResources && rsResources->RecordCount() > 0)
        for (rsResources->MoveFirst(); !rsResources->Eof(); rsResources->MoveNext())
            lmgResources->AddChosenItem(
                Decoded(Text(*rsResources, "ServiceItemResourceName")), 0, false,
                rsResources->Fields(QStringLiteral("ServiceItemResourceID")));

    txtServiceItemSource->setText(Text(*rs, "ServiceItemSource"));
    const QVariant varCreated = rs->Fields(QStringLiteral("ServiceItemDateCreated"));
    lblServiceItemDateAdded->setText(
        varCreated.isNull() ? QString()
                            : VB::Format(varCreated.toDateTime(), QStringLiteral("Long Date")));
    rs.reset();

    lmgKeywords->ClearChosenItems();
    std::unique_ptr<Recordset> rsKeywords;
    da.GetServiceItemKeywords(strWhere, 4, strErrorMessage, rsKeywords);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return false;
    }
    if (rsKeywords && rsKeywords->RecordCount() > 0)
        for (rsKeywords->MoveFirst(); !rsKeywords->Eof(); rsKeywords->MoveNext())
            lmgKeywords->AddChosenItem(
                Decoded(Text(*rsKeywords, "Keywordtext")), 0, false,
                rsKeywords->Fields(QStringLiteral("ServiceItemKeywords.KeywordID")));
    return true;
}

// ---------------------------------------------------------------- Edits of the tab

void ctlServiceItem::txtDescription_Change() {
    Changed(TabGeneral);
    m_cycle->SetNotify(true);
}

void ctlServiceItem::txtServiceItemSource_Change() {
    Changed(TabGeneral);
    m_cycle->SetNotify(true);
}

void ctlServiceItem::GeneralText_Change() {
    Changed(TabGeneral);
}
