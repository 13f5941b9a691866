#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/PointList.h"
#include "foundations/SSTab.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/MediaPlayer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>

// The frame of the service item editor: the members every control offers its
// host, showing one item, the tab changes and the wiring of the children.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

void SystemError(const QString& strMessage) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("System Error"));
}
} // namespace

ctlServiceItem::ctlServiceItem(QWidget* parent) : QWidget(parent) {
    CreateWidgets();
    m_cycle = new EditorCycle(this,
                              QStringLiteral("The contents of this service item has changed, do "
                                             "you want to save the changes"),
                              4);
    m_cycle->SetApplyButton(cmdSave);
    m_cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
    connect(m_cycle, &EditorCycle::LostFocus, this, &ctlServiceItem::UserControl_LostFocus);
    connect(m_cycle, &EditorCycle::Updated, this, [this](bool blnChangingToOtherControl) {
        emit SIUpdated(blnChangingToOtherControl ? 0 : VB::CLng(m_strItems));
    });
    ConnectWidgets();
    UserControl_Initialize();
}

ctlServiceItem::~ctlServiceItem() {
    Entry("UserControl_Terminate").Enter();
}

void ctlServiceItem::ConnectWidgets() {
    connect(cmdSave, &QPushButton::clicked, this, &ctlServiceItem::cmdSave_Click);
    // Only the user's choice is a click: selecting an entry by code raises none.
    connect(imgcboServiceItemTypes, &QComboBox::activated, this,
            &ctlServiceItem::imgcboServiceItemTypes_Click);
    connect(SSTab1, &SSTab::Click, this, &ctlServiceItem::SSTab1_Click);
    connect(SSTab2, &SSTab::Click, this, &ctlServiceItem::SSTab2_Click);

    connect(txtDescription, &QLineEdit::textChanged, this, &ctlServiceItem::txtDescription_Change);
    connect(txtServiceItemSource, &QLineEdit::textChanged, this,
            &ctlServiceItem::txtServiceItemSource_Change);
    for (QLineEdit* box : {txtCopyright, txtLocation, txtMelody, txtSongKey})
        connect(box, &QLineEdit::textChanged, this, &ctlServiceItem::GeneralText_Change);
    connect(txtNotes, &QTextEdit::textChanged, this, &ctlServiceItem::GeneralText_Change);
    for (QWidget* box : std::initializer_list<QWidget*>{
             txtDescription, txtServiceItemSource, txtCopyright, txtLocation, txtMelody, txtSongKey,
             txtNotes, txtChangeImageEveryXSeconds, txtImageDisplayMinutes, txtImageDisplaySeconds})
        box->installEventFilter(this);

    connect(lmgKeywords, &ListManager::BeforeItemAdd, this,
            &ctlServiceItem::lmgKeywords_BeforeItemAdd, Qt::DirectConnection);
    for (ListManager* lmg : {lmgKeywords, lmgResources}) {
        auto changed = [this, lmg] { ListManager_Changed(lmg); };
        connect(lmg, &ListManager::ItemAdded, this, changed);
        connect(lmg, &ListManager::ItemDeleted, this, changed);
        connect(lmg, &ListManager::ItemUpdated, this, changed);
    }

    connect(txtContent, &QTextEdit::textChanged, this, &ctlServiceItem::txtContent_Change);
    connect(txtFilename, &QLineEdit::textChanged, this, &ctlServiceItem::txtFilename_Change);
    ConnectContentSources();

    for (QAbstractButton* option : std::initializer_list<QAbstractButton*>{
             chkHideDetails, chkShowSubPointsOneByOne, optShowEntireSI, optShowAsMuchAsWillFit,
             optOnePointAtATime, optAllPointsByRevealing, optAllPointsAtOnce, optShowUntilClick,
             optImageDisplayTime})
        connect(option, &QAbstractButton::clicked, this, &ctlServiceItem::RunDetail_Change);
    for (QLineEdit* box :
         {txtNumLinesToShowPerTime, txtChangeImageEveryXSeconds, txtMusicFile, txtMusicPrompt})
        connect(box, &QLineEdit::textEdited, this, &ctlServiceItem::RunDetail_Change);
    ConnectRunDetails();
    connect(chkShowAsPointsList, &QCheckBox::clicked, this,
            &ctlServiceItem::chkShowAsPointsList_Click);
    connect(optVerseByVerse, &QRadioButton::clicked, this, &ctlServiceItem::optVerseByVerse_Click);
    connect(cmdRunBreakDownWizard, &QPushButton::clicked, this,
            &ctlServiceItem::cmdRunBreakDownWizard_Click);

    connect(cmdMoveOneRight, &QPushButton::clicked, this, &ctlServiceItem::cmdMoveOneRight_Click);
    connect(cmdMoveOneLeft, &QPushButton::clicked, this, &ctlServiceItem::cmdMoveOneLeft_Click);
    connect(cmdMoveAllLeft, &QPushButton::clicked, this, &ctlServiceItem::cmdMoveAllLeft_Click);
    connect(lvwPropBag, &QTreeWidget::itemClicked, this, &ctlServiceItem::lvwPropBag_Click);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIClicked, this,
            &ctlServiceItem::ctlServiceItemGallery1_SIClicked);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIDblClicked, this,
            &ctlServiceItem::ctlServiceItemGallery1_SIDblClicked);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIListFilterChanged, this,
            &ctlServiceItem::ctlServiceItemGallery1_SIListFilterChanged);

    for (auto signal :
         {&PointList::PointAdded, &PointList::PointNotesChanged, &PointList::PointReOrdered})
        connect(PointList1, signal, this, &ctlServiceItem::PointList1_PointChanged);
    connect(PointList1, &PointList::PointDeleted, this, &ctlServiceItem::PointList1_PointChanged);
    connect(PointList1, &PointList::PointRenamed, this, &ctlServiceItem::PointList1_PointRenamed);
}

// ---------------------------------------------------------------- Members of the frame

QString ctlServiceItem::Description() const {
    return QStringLiteral("ServiceItemControl");
}

bool ctlServiceItem::GeneralDirty() const {
    return m_cycle->IsDirty(TabGeneral);
}
bool ctlServiceItem::ContentDirty() const {
    return m_cycle->IsDirty(TabContent);
}
bool ctlServiceItem::RunDetailsDirty() const {
    return m_cycle->IsDirty(TabRunDetails);
}
bool ctlServiceItem::PropBagDirty() const {
    return m_cycle->IsDirty(TabPropBag);
}
bool ctlServiceItem::ServiceItemChangedNotify() const {
    return m_cycle->Notify();
}

void ctlServiceItem::Changed(qint16 intTab) {
    m_cycle->Changed(intTab);
}

QString ctlServiceItem::Decoded(const QString& strText) {
    if (!strText.contains(QLatin1String("@@")))
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

QString ctlServiceItem::WhereThisItem() const {
    return QStringLiteral("ServiceItems.ServiceItemID = ") + QString::number(lngServiceItemID);
}

// ---------------------------------------------------------------- Showing one item

void ctlServiceItem::ShowProperties(::ViewMode Mode) {
    const auto entry = Entry("ShowProperties")
                           .Arg(QStringLiteral("Mode"), static_cast<qint32>(Mode))
                           .WithPrefix(QStringLiteral(
                               "QVLTCONTROLS:ctlServiceItem:SHowProperties: Error number is "))
                           .Enter();
    entry.ErrorBox([&] {
        blnShowingProperties = true;
        ClosePowerPoint();
        MediaPlayer1->Stop();
        CleanControl(false);
        blnGeneralLoaded = blnContentLoaded = blnRunDetailsLoaded = blnPropBagLoaded =
            blnPointsLoaded = false;
        // A key that is no number leaves the previous item's texts in place,
        // and the control still counts as showing.
        if (!VB::IsNumeric(m_strItems)) {
            SystemError(QStringLiteral("Cannot display Service Item: ") + m_strItems);
            return;
        }
        lngServiceItemID = VB::CLng(m_strItems);
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetServiceItemsJoined(WhereThisItem(), 4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(QStringLiteral("ctlServiceItem: ShowProperties: ") +
                                       strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0) {
            SystemError(QStringLiteral("Service Item: ") + QString::number(lngServiceItemID) +
                        QStringLiteral(" does not exist"));
            return;
        }
        rs->MoveFirst();
        if (m_strDescription.isEmpty()) {
            const QVariant varDescription = rs->Fields(QStringLiteral("ServiceItemDescription"));
            const QVariant varContent = rs->Fields(QStringLiteral("ServiceItemContent"));
            if (!varDescription.isNull())
                m_strDescription = Decoded(varDescription.toString());
            else if (varContent.isNull())
                m_strDescription = VB::Text(rs->Fields(QStringLiteral("ServiceItemTypeName"))) +
                                   QStringLiteral(" from ") +
                                   VB::Text(rs->Fields(QStringLiteral("ServiceItemSource")));
            else
                m_strDescription = varContent.toString().left(15);
        }
        lblMainCaption->setText(m_strDescription);
        lngServiceItemTypeID =
            VB::CLng(rs->Fields(QStringLiteral("ServiceItems.ServiceItemTypeID")));
        rs.reset();
        SetTabsForType(lngServiceItemTypeID);
        SetupServiceItemTypeCombo();
        LoadTab(SSTab1->Tab());
        cmdSave->setEnabled(false);
        DataAccess::Instance().ServiceItemShown(lngServiceItemID);
        blnShowingProperties = false;
        UserControl_Resize();
    });
}

// The tabs in use for the type shown: a song has no prop bag, a points list
// no content, a presentation no points. The current tab moves to the first
// before its own is withdrawn. The run details are in use for every type
// shown: only a change of type to a points list withdraws them, until the
// item is shown again.
void ctlServiceItem::SetTabsForType(qint32 lngTypeID) {
    auto withdraw = [&](qint16 intTab) {
        if (SSTab1->Tab() == intTab)
            SSTab1->setTab(TabGeneral);
        SSTab1->setTabEnabled(intTab, false);
    };
    auto use = [&](std::initializer_list<qint16> tabs) {
        for (qint16 intTab : tabs)
            SSTab1->setTabEnabled(intTab, true);
    };
    use({TabRunDetails});
    switch (lngTypeID) {
    case 17:
        withdraw(TabPropBag);
        use({TabContent, TabPoints});
        break;
    case 11:
        withdraw(TabContent);
        use({TabPropBag, TabPoints});
        break;
    case 12:
        withdraw(TabPoints);
        use({TabPropBag, TabContent});
        break;
    default:
        use({TabPropBag, TabContent, TabPoints});
        break;
    }
}

void ctlServiceItem::LoadTab(qint16 intTab) {
    switch (intTab) {
    case TabGeneral:
        LoadGeneralTab();
        break;
    case TabContent:
        LoadContent();
        break;
    case TabRunDetails:
        LoadRunDetails();
        break;
    case TabPropBag:
        LoadPropBagTab();
        break;
    case TabPoints:
        LoadPoints();
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------- Tab changes

void ctlServiceItem::SSTab1_Click(qint16 PreviousTab) {
    const auto entry =
        Entry("SSTab1_Click").Arg(QStringLiteral("PreviousTab"), PreviousTab).Enter();
    entry.Guarded([&] {
        switch (SSTab1->Tab()) {
        case TabGeneral:
            if (!blnGeneralLoaded)
                LoadGeneralTab();
            break;
        case TabContent:
            if (!blnContentLoaded)
                LoadContent();
            break;
        case TabRunDetails:
            if (!blnPointsLoaded) {
                LoadPoints();
                Platform::Current().DoEvents();
            }
            if (!blnRunDetailsLoaded)
                LoadRunDetails();
            // A points list always runs as one: its check box stays hidden.
            PlacePointsFrames(PointList1->Points().Count() > 0 && lngServiceItemTypeID != 11);
            break;
        case TabPropBag:
            if (!blnPropBagLoaded)
                LoadPropBagTab();
            break;
        case TabPoints:
            LoadPoints();
            break;
        default:
            break;
        }
    });
}

void ctlServiceItem::SSTab2_Click(qint16 PreviousTab) {
    Entry("SSTab2_Click").Arg(QStringLiteral("PreviousTab"), PreviousTab).Enter();
}

// ---------------------------------------------------------------- Layout and focus

void ctlServiceItem::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

// The layouts of the frame and the tabs keep the documented arrangement: the
// tabs fill the control under the caption, the gallery and the prop bag share
// the width of their tab, the notes take the height left on the first tab.
void ctlServiceItem::UserControl_Resize() {
    Entry("UserControl_Resize").Enter();
}

bool ctlServiceItem::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // After the click that gave the focus has placed the cursor.
        if (auto* box = qobject_cast<QLineEdit*>(watched))
            QTimer::singleShot(0, box, &QLineEdit::selectAll);
        else if (auto* text = qobject_cast<QTextEdit*>(watched))
            QTimer::singleShot(0, text, &QTextEdit::selectAll);
    }
    return QWidget::eventFilter(watched, event);
}

void ctlServiceItem::UserControl_LostFocus() {
    const auto entry = Entry("UserControl_LostFocus").Enter();
    entry.Guarded([&] {
        MediaPlayer1->Stop();
        ClosePowerPoint();
        CleanControl(true);
    });
}

bool ctlServiceItem::CanUnload() {
    const auto entry = Entry("CanUnload").Enter();
    entry.ErrorBox([&] { CleanControl(true); });
    return true;
}

void ctlServiceItem::cmdSave_Click() {
    const auto entry = Entry("cmdSave_Click").Enter();
    entry.Guarded([&] { SaveChanges(false); });
}
