#include "services/ctlService.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/ListManager.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/StandardIcons.h"
#include "foundations/Twips.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "galleries/ctlServiceItemGallery.h"
#include "serviceitems/QVTimeSelector.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

// The frame of the service editor: its children and their layout, the
// members every control offers its host, and the loading of one service.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlService"), QString::fromLatin1(member));
}

template <class W> W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QPushButton* Button(const QString& strCaption, const char* name, QWidget* parent,
                    const QString& strToolTip = QString()) {
    auto* cmd = Named(new QPushButton(strCaption, parent), name);
    if (!strToolTip.isEmpty())
        cmd->setToolTip(strToolTip);
    return cmd;
}

void SystemError(const QString& strMessage) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("System Error"));
}

QString Decoded(const QString& strText) {
    if (!strText.contains(QLatin1String("@@")))
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

// Layout numbers of the editor, in twips.
constexpr qint32 kMargin = 120;
constexpr qint32 kTabMargin = 200;
} // namespace

ctlService::ctlService(QWidget* parent) : QWidget(parent) {
    const auto entry = Entry("UserControl_Initialize").Enter();
    CreateWidgets();
    m_cycle = new EditorCycle(
        this,
        QStringLiteral("The contents of this service has changed, do you want to save the changes"),
        3);
    m_cycle->SetApplyButton(cmdApplyChanges);
    m_cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
    connect(m_cycle, &EditorCycle::LostFocus, this, &ctlService::UserControl_LostFocus);
    connect(m_cycle, &EditorCycle::TabChanged, this, [this] { m_blnChangesDeclined = false; });
    connect(m_cycle, &EditorCycle::Updated, this, [this](bool blnChanging) {
        qint32 lngID = blnChanging ? 0 : VB::CLng(m_strItems);
        emit ServiceUpdated(lngID);
    });
    m_cycle->Watch(txtServiceName, 0);
    m_cycle->Watch(txtNotes, 0);
    m_cycle->Watch(cboTheme, 0);
    m_cycle->Watch(cboTypes, 0);
    ConnectWidgets();
}

ctlService::~ctlService() {
    Entry("UserControl_Terminate").Enter();
}

void ctlService::CreateWidgets() {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    SSScroll1 = Named(new QScrollArea(this), "SSScroll1");
    SSScroll1->setWidgetResizable(true);
    outer->addWidget(SSScroll1);
    auto* surface = new QWidget;
    auto* layout = new QVBoxLayout(surface);
    const int margin = Twips::ToPixels(kMargin);
    layout->setContentsMargins(margin, margin, margin, Twips::ToPixels(kTabMargin));

    fraMainCaption = Named(new QGroupBox(surface), "fraMainCaption");
    auto* captionLayout = new QHBoxLayout(fraMainCaption);
    lblMainCaption = Named(new QLabel(fraMainCaption), "lblMainCaption");
    QFont font = lblMainCaption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    lblMainCaption->setFont(font);
    cmdApplyChanges = Button(QStringLiteral("&Apply Changes"), "cmdApplyChanges", fraMainCaption);
    cmdApplyChanges->setEnabled(false);
    captionLayout->addWidget(lblMainCaption, 1);
    captionLayout->addWidget(cmdApplyChanges);
    layout->addWidget(fraMainCaption);

    SSTab1 = Named(new QTabWidget(surface), "SSTab1");
    SSTab1->addTab(CreateGeneralTab(), QStringLiteral("General Details"));
    // The Content and Prop Bag tabs are filled with their galleries, grid and
    // lists when first shown or first needed: the editor opens on its General
    // Details, many visits to a service never look further, and a gallery is
    // the costliest part of the editor to make.
    SSTab1->addTab(new QWidget, QStringLiteral("Content"));
    SSTab1->addTab(new QWidget, QStringLiteral("Prop Bag"));
    layout->addWidget(SSTab1, 1);
    SSScroll1->setWidget(surface);

    setMinimumSize(Twips::ToPixels(9000), Twips::ToPixels(6000));
    resize(Twips::ToPixels(13000), Twips::ToPixels(9000));
}

QWidget* ctlService::CreateGeneralTab() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    txtServiceName = Named(new QLineEdit(page), "txtServiceName");
    cboTheme = Named(new QComboBox(page), "cboTheme");
    cboTheme->setEditable(true);
    cboTheme->setInsertPolicy(QComboBox::NoInsert);
    cboTypes = Named(new QComboBox(page), "cboTypes");
    cboTypes->setEditable(true);
    cboTypes->setInsertPolicy(QComboBox::NoInsert);
    lblProvider = Named(new QLabel(page), "lblProvider");
    lblServiceDateCreated = Named(new QLabel(page), "lblServiceDateCreated");
    lblDateLastDelivered = Named(new QLabel(page), "lblDateLastDelivered");
    int row = 0;
    auto addRow = [&](const QString& strCaption, QWidget* field) {
        grid->addWidget(new QLabel(strCaption, page), row, 0);
        grid->addWidget(field, row++, 1);
    };
    addRow(QStringLiteral("Name:"), txtServiceName);
    addRow(QStringLiteral("Theme:"), cboTheme);
    addRow(QStringLiteral("Type:"), cboTypes);
    addRow(QStringLiteral("Created By:"), lblProvider);
    addRow(QStringLiteral("Date Created:"), lblServiceDateCreated);
    addRow(QStringLiteral("Date Last Delivered:"), lblDateLastDelivered);
    lmgResources = Named(new ListManager(page), "lmgResources");
    lmgResources->setCaption(QStringLiteral("Resources"));
    grid->addWidget(lmgResources, 0, 2, row, 1);
    fraNotes = Named(new QGroupBox(QStringLiteral("Notes"), page), "fraNotes");
    auto* notesLayout = new QVBoxLayout(fraNotes);
    txtNotes = Named(new QTextEdit(fraNotes), "txtNotes");
    txtNotes->setAcceptRichText(false);
    notesLayout->addWidget(txtNotes);
    grid->addWidget(fraNotes, row, 0, 1, 3);
    grid->setRowStretch(row, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    return page;
}

void ctlService::EnsureTypeImages() {
    if (imgSITypes)
        return;
    imgSITypes = new VBImageList(QStringLiteral("imgSITypes"), this);
    StandardIcons::FillServiceItemImages(*imgSITypes);
}

void ctlService::EnsurePropBagTab() {
    if (ctlSIPropBag)
        return;
    EnsureTypeImages();
    CreatePropBagTab(SSTab1->widget(2));
    ShowMadeChildren(SSTab1->widget(2));
    ConnectPropBag();
}

void ctlService::EnsureContentTab() {
    if (fgItemsInService)
        return;
    EnsureTypeImages();
    CreateContentTab(SSTab1->widget(1));
    ShowMadeChildren(SSTab1->widget(1));
    ConnectContent();
}

// Children made on a page that is already on screen stay hidden until they
// are shown; the layout would show them only from the event loop, after the
// code that fills the tab has asked whether the grid is on screen.
void ctlService::ShowMadeChildren(QWidget* page) {
    if (!page->isVisible())
        return;
    for (QWidget* child : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!child->testAttribute(Qt::WA_WState_ExplicitShowHide))
            child->show();
}

void ctlService::CreatePropBagTab(QWidget* page) {
    auto* layout = new QHBoxLayout(page);
    ctlSIPropBag = Named(new ctlServiceItemGallery(page), "ctlSIPropBag");
    layout->addWidget(ctlSIPropBag, 1);
    auto* buttons = new QVBoxLayout;
    cmdMoveOneRight = Button(QStringLiteral(">"), "cmdMoveOneRight", page,
                             QStringLiteral("Put the selected service item in the prop bag"));
    cmdMoveOneLeft = Button(QStringLiteral("<"), "cmdMoveOneLeft", page,
                            QStringLiteral("Take the selected prop out of the prop bag"));
    cmdMoveAllLeft =
        Button(QStringLiteral("<<"), "cmdMoveAllLeft", page, QStringLiteral("Empty the prop bag"));
    buttons->addStretch();
    buttons->addWidget(cmdMoveOneRight);
    buttons->addWidget(cmdMoveOneLeft);
    buttons->addWidget(cmdMoveAllLeft);
    buttons->addStretch();
    layout->addLayout(buttons);
    auto* right = new QVBoxLayout;
    lblCaptionSelectedItems =
        Named(new QLabel(QStringLiteral("Selected Items"), page), "lblCaptionSelectedItems");
    lvwPropBag = Named(new QTreeWidget(page), "lvwPropBag");
    lvwPropBag->setRootIsDecorated(false);
    lvwPropBag->setHeaderHidden(true);
    right->addWidget(lblCaptionSelectedItems);
    right->addWidget(lvwPropBag, 1);
    layout->addLayout(right);
}

void ctlService::CreateContentTab(QWidget* page) {
    auto* layout = new QHBoxLayout(page);
    ctlServiceItemGallery1 = Named(new ctlServiceItemGallery(page), "ctlServiceItemGallery1");
    layout->addWidget(ctlServiceItemGallery1, 1);
    auto* addButtons = new QVBoxLayout;
    cmdMoveOneSIToService = Button(QStringLiteral(">"), "cmdMoveOneSIToService", page,
                                   QStringLiteral("Add the selected service item to the service"));
    cmdMoveOneSIToService->setEnabled(false);
    cmdAddBlank = Button(QStringLiteral("Blank"), "cmdAddBlank", page,
                         QStringLiteral("Add a Blank to the Service"));
    addButtons->addStretch();
    addButtons->addWidget(cmdMoveOneSIToService);
    addButtons->addWidget(cmdAddBlank);
    addButtons->addStretch();
    layout->addLayout(addButtons);

    fraServiceContents =
        Named(new QGroupBox(QStringLiteral("Service Contents"), page), "fraServiceContents");
    auto* contents = new QGridLayout(fraServiceContents);
    fgItemsInService = Named(new QTableWidget(2, colCount, fraServiceContents), "fgItemsInService");
    fgItemsInService->verticalHeader()->hide();
    fgItemsInService->horizontalHeader()->hide();
    fgItemsInService->setSelectionBehavior(QAbstractItemView::SelectItems);
    fgItemsInService->setSelectionMode(QAbstractItemView::ContiguousSelection);
    fgItemsInService->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fgItemsInService->setAcceptDrops(true);
    fgItemsInService->viewport()->setAcceptDrops(true);
    fgItemsInService->viewport()->installEventFilter(this);
    cmdMoveServiceSIUp = Button(QStringLiteral("Up"), "cmdMoveServiceSIUp", fraServiceContents,
                                QStringLiteral("Move the service item up"));
    cmdMoveServiceSIDown = Button(QStringLiteral("Down"), "cmdMoveServiceSIDown",
                                  fraServiceContents, QStringLiteral("Move the service item down"));
    cmdDeleteSI = Button(QStringLiteral("Remove"), "cmdDeleteSI", fraServiceContents,
                         QStringLiteral("Remove the selected rows from the service"));
    for (QPushButton* cmd : {cmdMoveServiceSIUp, cmdMoveServiceSIDown, cmdDeleteSI})
        cmd->setEnabled(false);
    lblTotalLength = Named(new QLabel(fraServiceContents), "lblTotalLength");
    contents->addWidget(fgItemsInService, 0, 0, 5, 1);
    contents->addWidget(cmdMoveServiceSIUp, 1, 1);
    contents->addWidget(cmdMoveServiceSIDown, 2, 1);
    contents->addWidget(cmdDeleteSI, 3, 1);
    contents->addWidget(lblTotalLength, 5, 0, 1, 2);
    contents->setRowStretch(0, 1);
    contents->setRowStretch(4, 1);
    layout->addWidget(fraServiceContents, 2);

    // The in-cell editors float over the grid.
    cboYesNo = Named(new QComboBox(fgItemsInService), "cboYesNo");
    cboYesNo->addItems({QStringLiteral("Yes"), QStringLiteral("No")});
    cboYesNo->setCurrentIndex(-1);
    cboYesNo->hide();
    QVTimeSelector1 = Named(new QVTimeSelector(fgItemsInService), "QVTimeSelector1");
    QVTimeSelector1->hide();
}

void ctlService::ConnectWidgets() {
    // A tab is made before its click loads it.
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int intIndex) {
        if (intIndex == 1)
            EnsureContentTab();
        else if (intIndex == 2)
            EnsurePropBagTab();
    });
    connect(SSTab1, &QTabWidget::currentChanged, this, &ctlService::SSTab1_Click);
    connect(cmdApplyChanges, &QPushButton::clicked, this, &ctlService::cmdApplyChanges_Click);
    connect(lmgResources, &ListManager::ItemAdded, this, &ctlService::lmgResources_ItemChanged);
    connect(lmgResources, &ListManager::ItemDeleted, this, &ctlService::lmgResources_ItemChanged);
    connect(lmgResources, &ListManager::ItemUpdated, this, &ctlService::lmgResources_ItemChanged);
}

void ctlService::ConnectContent() {
    connect(cmdAddBlank, &QPushButton::clicked, this, &ctlService::cmdAddBlank_Click);
    connect(cmdMoveOneSIToService, &QPushButton::clicked, this,
            &ctlService::cmdMoveOneSIToService_Click);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIClicked, this,
            &ctlService::ctlServiceItemGallery1_SIClicked);
    connect(ctlServiceItemGallery1, &ctlServiceItemGallery::SIDblClicked, this,
            &ctlService::ctlServiceItemGallery1_SIDblClicked);
    connect(cmdMoveServiceSIUp, &QPushButton::clicked, this, &ctlService::cmdMoveServiceSIUp_Click);
    connect(cmdMoveServiceSIDown, &QPushButton::clicked, this,
            &ctlService::cmdMoveServiceSIDown_Click);
    connect(cmdDeleteSI, &QPushButton::clicked, this, &ctlService::cmdDeleteSI_Click);
    connect(fgItemsInService, &QTableWidget::currentCellChanged, this,
            [this](int, int, int intPrevRow, int intPrevCol) {
                if (intPrevRow >= 0 || intPrevCol >= 0)
                    fgItemsInService_LeaveCell();
                fgItemsInService_EnterCell();
                fgItemsInService_RowColChange();
            });
    connect(fgItemsInService, &QTableWidget::itemSelectionChanged, this,
            &ctlService::fgItemsInService_SelChange);
    connect(fgItemsInService->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &ctlService::fgItemsInService_Scroll);
    connect(cboYesNo, &QComboBox::activated, this, &ctlService::cboYesNo_Click);
    connect(QVTimeSelector1, &QVTimeSelector::Changed, this, &ctlService::QVTimeSelector1_Changed);
    connect(QVTimeSelector1, &QVTimeSelector::EnterButtonPressed, this,
            &ctlService::QVTimeSelector1_EnterButtonPressed);
    connect(QVTimeSelector1, &QVTimeSelector::Resized, this, &ctlService::QVTimeSelector1_Resized);
}

void ctlService::ConnectPropBag() {
    connect(cmdMoveOneRight, &QPushButton::clicked, this, &ctlService::cmdMoveOneRight_Click);
    connect(cmdMoveOneLeft, &QPushButton::clicked, this, &ctlService::cmdMoveOneLeft_Click);
    connect(cmdMoveAllLeft, &QPushButton::clicked, this, &ctlService::cmdMoveAllLeft_Click);
    connect(lvwPropBag, &QTreeWidget::itemClicked, this, &ctlService::lvwPropBag_Click);
    connect(lvwPropBag, &QTreeWidget::itemDoubleClicked, this, &ctlService::lvwPropBag_DblClick);
    connect(ctlSIPropBag, &ctlServiceItemGallery::SIDblClicked, this,
            &ctlService::ctlSIPropBag_SIDblClicked);
    connect(ctlSIPropBag, &ctlServiceItemGallery::SIClicked, this,
            &ctlService::ctlSIPropBag_SIClicked);
    connect(ctlSIPropBag, &ctlServiceItemGallery::SIListFilterChanged, this,
            &ctlService::ctlSIPropBag_SIListFilterChanged);
}

bool ctlService::CanUnload() {
    Entry("CanUnload").Enter();
    CleanControl(true);
    return true;
}

QString ctlService::Description() const {
    return ControlDescriptions::ctlService;
}

void ctlService::ShowProperties(::ViewMode Mode) {
    const auto entry =
        Entry("ShowProperties")
            .Arg(QStringLiteral("Mode"), static_cast<qint32>(Mode))
            .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlService:SHowProperties: Error number is "))
            .Enter();
    entry.ErrorBox([&] {
        blnShowingProperties = true;
        CleanControl(false);
        blnGeneralLoaded = false;
        blnPropBagLoaded = false;
        blnContentLoaded = false;
        if (!VB::IsNumeric(m_strItems)) {
            SystemError(QStringLiteral("Cannot display Service: ") + m_strItems);
            return;
        }
        lngServiceID = VB::CLng(m_strItems);
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetServices(QStringLiteral("Services.ServiceID = ") +
                                               QString::number(lngServiceID),
                                           4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0) {
            SystemError(QStringLiteral("Service Item: ") + m_strItems +
                        QStringLiteral(" does not exist"));
            return;
        }
        if (m_strDescription.isEmpty()) {
            const QVariant varName = rs->Fields(QStringLiteral("ServiceName"));
            if (varName.isNull())
                m_strDescription = Decoded(VB::Text(rs->Fields(QStringLiteral("ServiceTheme")))) +
                                   QStringLiteral(" ,") +
                                   VB::CStr(rs->Fields(QStringLiteral("ServiceDateCreated")));
            else
                m_strDescription = Decoded(VB::Text(varName));
        }
        lblMainCaption->setText(m_strDescription);
        // The prop bag tab is compared against 3, a tab that does not exist:
        // a service shown while that tab is up fills it only when the user
        // enters it again.
        switch (SSTab1->currentIndex()) {
        case 0:
            LoadGeneralTab(rs.get());
            break;
        case 1:
            LoadContent();
            break;
        case 3:
            LoadPropBagTab();
            break;
        default:
            break;
        }
        m_cycle->ClearAll();
        cmdApplyChanges->setEnabled(false);
        DataAccess::Instance().ServiceShown(lngServiceID);
        blnShowingProperties = false;
        setUpdatesEnabled(true);
        SSScroll1->update();
    });
}

void ctlService::SSTab1_Click(int PreviousTab) {
    const auto entry =
        Entry("SSTab1_Click").Arg(QStringLiteral("PreviousTab"), PreviousTab).Enter();
    entry.Guarded([&] {
        switch (SSTab1->currentIndex()) {
        case 1:
            if (!blnContentLoaded)
                LoadContent();
            fgItemsInService->setUpdatesEnabled(true);
            break;
        case 0:
            if (!blnGeneralLoaded)
                LoadGeneralTab();
            update();
            break;
        case 2:
            if (!blnPropBagLoaded)
                LoadPropBagTab();
            break;
        default:
            break;
        }
    });
}

void ctlService::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

void ctlService::UserControl_Resize() {
    const auto entry = Entry("UserControl_Resize").Spelt().Enter();
    entry.ErrorBox([&] {
        // The scroll area gives scroll bars below the minimum size; the tabs'
        // layouts keep their margins of 200 twips to the tab's bottom.
        if (QVTimeSelector1 && QVTimeSelector1->isVisible())
            PlaceTimeSelector();
    });
}

void ctlService::UserControl_LostFocus() {
    const auto entry = Entry("UserControl_LostFocus").Enter();
    entry.Guarded([&] { CleanControl(true); });
}
