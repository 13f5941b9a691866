#include "shortlists/ctlShortList.h"

#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "foundations/VBTreeWidget.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QTextEdit>
#include <QVBoxLayout>

// The frame of the short-list editor: its children, their layout and the
// members every control offers its host.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlShortList"), QString::fromLatin1(member));
}

template <class W> W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// Layout numbers of the editor, in twips.
constexpr qint32 kMargin = 120;
constexpr qint32 kCaptionHeight = 400;
constexpr qint32 kGenPropsHeight = 1700;
constexpr qint32 kMoveButtonWidth = 600;
constexpr qint32 kMoveButtonHeight = 480;
} // namespace

ctlShortList::ctlShortList(QWidget* parent) : QWidget(parent) {
    CreateWidgets();
    m_cycle = new EditorCycle(
        this, QStringLiteral(
                  "The contents of this Short-List has changed, do you want to save the changes"));
    m_cycle->SetApplyButton(cmdApplyChanges);
    m_cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
    connect(m_cycle, &EditorCycle::LostFocus, this, &ctlShortList::UserControl_LostFocus);
    connect(m_cycle, &EditorCycle::Updated, this,
            [this](bool) { emit ShortListUpdated(lngShortListID); });

    // UserControl_Initialize: every service item on the left, one criteria row,
    // and the counts beside the trees (which open a tree of 20 items or fewer).
    const auto entry = Entry("UserControl_Initialize").Enter();
    entry.Guarded([&] {
        QScopedValueRollback<bool> loading(blnLoading, true);
        QString strErrorMessage;
        FillAvailableTreeview(QString(), strErrorMessage);
        if (strErrorMessage.isEmpty())
            AddNewCriteria();
        else
            Platform::Current().MsgBox(
                QStringLiteral("QVLTCONTROLS:ctlShortList:UserControl_Initialize: ") +
                strErrorMessage);
        SetUpMoveSIButtons();
        SetUpCountsOfSIs();
    });
}

ctlShortList::~ctlShortList() {
    Entry("UserControl_Terminate").Enter();
}

void ctlShortList::CreateWidgets() {
    lblMainCaption = Named(new QLabel(this), "lblMainCaption");
    QFont font = lblMainCaption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    lblMainCaption->setFont(font);

    // General properties.
    fraGenProps = Named(new QGroupBox(QStringLiteral("General"), this), "fraGenProps");
    auto* genLayout = new QGridLayout(fraGenProps);
    txtDescription = Named(new QLineEdit(fraGenProps), "txtDescription");
    txtNotes = Named(new QTextEdit(fraGenProps), "txtNotes");
    txtNotes->setAcceptRichText(false);
    lblCreatedBy = Named(new QLabel(fraGenProps), "lblCreatedBy");
    lblDateCreated = Named(new QLabel(fraGenProps), "lblDateCreated");
    cmdApplyChanges =
        Named(new QPushButton(QStringLiteral("&Apply Changes"), fraGenProps), "cmdApplyChanges");
    cmdApplyChanges->setEnabled(false);
    genLayout->addWidget(new QLabel(QStringLiteral("Description:"), fraGenProps), 0, 0);
    genLayout->addWidget(txtDescription, 0, 1, 1, 3);
    genLayout->addWidget(new QLabel(QStringLiteral("Notes"), fraGenProps), 1, 0, Qt::AlignTop);
    genLayout->addWidget(txtNotes, 1, 1, 1, 3);
    genLayout->addWidget(new QLabel(QStringLiteral("Created By:"), fraGenProps), 2, 0);
    genLayout->addWidget(lblCreatedBy, 2, 1);
    genLayout->addWidget(new QLabel(QStringLiteral("Created:"), fraGenProps), 2, 2);
    genLayout->addWidget(lblDateCreated, 2, 3);
    genLayout->addWidget(cmdApplyChanges, 3, 3, Qt::AlignRight);
    genLayout->setContentsMargins(Twips::ToPixels(kMargin), Twips::ToPixels(kMargin),
                                  Twips::ToPixels(400), Twips::ToPixels(kMargin));

    // Available service items and the criteria.
    fraAvailable = Named(
        new QGroupBox(QStringLiteral("Available Service items - Show Service Items where"), this),
        "fraAvailable");
    auto* availLayout = new QVBoxLayout(fraAvailable);
    SSScrollCriteria = Named(new QScrollArea(fraAvailable), "SSScrollCriteria");
    SSScrollCriteria->setWidget(new QWidget);
    SSScrollCriteria->setWidgetResizable(false);
    SSScrollCriteria->setMinimumHeight(Twips::ToPixels(2100));
    availLayout->addWidget(SSScrollCriteria);
    auto* joinLayout = new QHBoxLayout;
    optAnd = Named(new QRadioButton(QStringLiteral("and"), fraAvailable), "optAnd");
    optOr = Named(new QRadioButton(QStringLiteral("or"), fraAvailable), "optOr");
    cmdApplyCriteria =
        Named(new QPushButton(QStringLiteral("A&pply Criteria to tree"), fraAvailable),
              "cmdApplyCriteria");
    cmdNewCriteria =
        Named(new QPushButton(QStringLiteral("&New Criteria"), fraAvailable), "cmdNewCriteria");
    joinLayout->addWidget(optAnd);
    joinLayout->addWidget(optOr);
    joinLayout->addStretch();
    joinLayout->addWidget(cmdNewCriteria);
    joinLayout->addWidget(cmdApplyCriteria);
    availLayout->addLayout(joinLayout);
    imlServiceItems = new VBImageList(QStringLiteral("imlServiceItems"), this);
    StandardIcons::FillServiceItemImages(*imlServiceItems);
    tvwAvailable = Named(new VBTreeWidget(fraAvailable), "tvwAvailable");
    tvwAvailable->setImageList(imlServiceItems);
    tvwAvailable->setHeaderHidden(true);
    availLayout->addWidget(tvwAvailable, 1);
    auto* availCount = new QHBoxLayout;
    lblNumberAvailableSIs =
        Named(new QLabel(QStringLiteral("0"), fraAvailable), "lblNumberAvailableSIs");
    availCount->addWidget(
        new QLabel(QStringLiteral("Number of Service Items in List:"), fraAvailable));
    availCount->addWidget(lblNumberAvailableSIs);
    availCount->addStretch();
    availLayout->addLayout(availCount);

    // The moves.
    cmdMoveOneRight = Named(new QPushButton(QStringLiteral(">"), this), "cmdMoveOneRight");
    cmdMoveAllRight = Named(new QPushButton(QStringLiteral(">>"), this), "cmdMoveAllRight");
    cmdMoveOneLeft = Named(new QPushButton(QStringLiteral("<"), this), "cmdMoveOneLeft");
    cmdMoveAllLeft = Named(new QPushButton(QStringLiteral("<<"), this), "cmdMoveAllLeft");
    cmdMoveOneRight->setToolTip(
        QStringLiteral("Move the selected Service Items to the Short-List"));
    cmdMoveAllRight->setToolTip(QStringLiteral("Move all Service Items to the Short-List"));
    cmdMoveOneLeft->setToolTip(
        QStringLiteral("Take the selected Service Items off the Short-List"));
    cmdMoveAllLeft->setToolTip(QStringLiteral("Take all Service Items off the Short-List"));

    // The short list.
    fraShortList = Named(new QGroupBox(QStringLiteral("Service Items in this Short-List"), this),
                         "fraShortList");
    auto* listLayout = new QVBoxLayout(fraShortList);
    tvwShortList = Named(new VBTreeWidget(fraShortList), "tvwShortList");
    tvwShortList->setImageList(imlServiceItems);
    tvwShortList->setHeaderHidden(true);
    listLayout->addWidget(tvwShortList, 1);
    auto* listCount = new QHBoxLayout;
    lblSIsInShortList = Named(new QLabel(QStringLiteral("0"), fraShortList), "lblSIsInShortList");
    listCount->addWidget(
        new QLabel(QStringLiteral("Number of Service Items in List:"), fraShortList));
    listCount->addWidget(lblSIsInShortList);
    listCount->addStretch();
    listLayout->addLayout(listCount);

    connect(optAnd, &QRadioButton::clicked, this, &ctlShortList::optAnd_Click);
    connect(optOr, &QRadioButton::clicked, this, &ctlShortList::optOr_Click);
    connect(cmdApplyCriteria, &QPushButton::clicked, this, &ctlShortList::cmdApplyCriteria_Click);
    connect(cmdNewCriteria, &QPushButton::clicked, this, &ctlShortList::cmdNewCriteria_Click);
    connect(cmdMoveOneRight, &QPushButton::clicked, this, &ctlShortList::cmdMoveOneRight_Click);
    connect(cmdMoveAllRight, &QPushButton::clicked, this, &ctlShortList::cmdMoveAllRight_Click);
    connect(cmdMoveOneLeft, &QPushButton::clicked, this, &ctlShortList::cmdMoveOneLeft_Click);
    connect(cmdMoveAllLeft, &QPushButton::clicked, this, &ctlShortList::cmdMoveAllLeft_Click);
    connect(tvwAvailable, &QTreeWidget::itemDoubleClicked, this,
            &ctlShortList::tvwAvailable_DblClick);
    connect(tvwShortList, &QTreeWidget::itemDoubleClicked, this,
            &ctlShortList::tvwShortList_DblClick);
    connect(tvwAvailable, &QTreeWidget::itemClicked, this, &ctlShortList::tvwAvailable_NodeClick);
    connect(tvwShortList, &QTreeWidget::itemClicked, this, &ctlShortList::tvwShortList_NodeClick);
    connect(tvwAvailable, &QTreeWidget::itemSelectionChanged, this,
            &ctlShortList::SetUpMoveSIButtons);
    connect(tvwShortList, &QTreeWidget::itemSelectionChanged, this,
            &ctlShortList::SetUpMoveSIButtons);
    connect(txtDescription, &QLineEdit::textChanged, this, &ctlShortList::txtDescription_Change);
    connect(txtNotes, &QTextEdit::textChanged, this, &ctlShortList::txtNotes_Change);
    connect(cmdApplyChanges, &QPushButton::clicked, this, &ctlShortList::cmdApplyChanges_Click);

    setMinimumSize(Twips::ToPixels(9000), Twips::ToPixels(7000));
    resize(Twips::ToPixels(12000), Twips::ToPixels(9000));
}

// ---- Layout ---------------------------------------------------------------------

void ctlShortList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

// fraAvailable is three fifths of fraGenProps' width less 240; the four move
// buttons stand 240 right of it, one below the other; fraShortList begins 120
// right of them and ends with fraGenProps.
void ctlShortList::UserControl_Resize() {
    const qint32 lngWidth = Twips::FromPixels(width()) - 2 * kMargin;
    const qint32 lngHeight = Twips::FromPixels(height());
    lblMainCaption->setGeometry(Twips::ToPixels(kMargin, 0, lngWidth, kCaptionHeight));
    fraGenProps->setGeometry(Twips::ToPixels(kMargin, kCaptionHeight, lngWidth, kGenPropsHeight));
    const qint32 lngTop = kCaptionHeight + kGenPropsHeight + kMargin;
    const qint32 lngLowerHeight = qMax<qint32>(lngHeight - lngTop - kMargin, 1500);
    const qint32 lngAvailableWidth = lngWidth * 3 / 5 - 240;
    fraAvailable->setGeometry(Twips::ToPixels(kMargin, lngTop, lngAvailableWidth, lngLowerHeight));
    const qint32 lngButtonsLeft = kMargin + lngAvailableWidth + 240;
    qint32 lngButtonTop = lngTop + lngLowerHeight / 3;
    for (QPushButton* cmd : {cmdMoveOneRight, cmdMoveAllRight, cmdMoveOneLeft, cmdMoveAllLeft}) {
        cmd->setGeometry(
            Twips::ToPixels(lngButtonsLeft, lngButtonTop, kMoveButtonWidth, kMoveButtonHeight));
        lngButtonTop += kMoveButtonHeight + kMargin;
    }
    const qint32 lngListLeft = lngButtonsLeft + kMoveButtonWidth + 120;
    fraShortList->setGeometry(Twips::ToPixels(
        lngListLeft, lngTop, qMax<qint32>(kMargin + lngWidth - lngListLeft, 600), lngLowerHeight));
}

// ---- The frame --------------------------------------------------------------------

QString ctlShortList::Description() const {
    return ControlDescriptions::ctlShortList;
}

bool ctlShortList::CanUnload() {
    const auto entry = Entry("CanUnload").Enter();
    CleanControl(true);
    return true;
}

void ctlShortList::UserControl_LostFocus() {
    const auto entry = Entry("UserControl_LostFocus").Enter();
    CleanControl(true);
}

bool ctlShortList::blnGeneralDirty() const {
    return m_cycle->IsDirty(0);
}

const ctlShortList::CriteriaRow& ctlShortList::row(qint16 Index) const {
    static const CriteriaRow none;
    return Index >= 0 && Index < m_rows.size() ? m_rows[Index] : none;
}
