// ctlTemplate: the children, their layout and the members every control offers
// its host.

#include "templates/ctlTemplate.h"

#include "foundations/EditorCycle.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Twips.h"
#include "templates/TemplateDocuments.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlTemplate"), QString::fromLatin1(member));
}

template <class W> W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// Layout numbers, in twips: the margin between the tab and the container's
// edge, and the size below which the container scrolls.
constexpr qint32 kMargin = 240;
constexpr qint32 kMinWidth = 7000;
constexpr qint32 kMinHeight = 6000;
} // namespace

ctlTemplate::ctlTemplate(QWidget* parent) : QWidget(parent) {
    TemplateDocuments::RouteThroughPlatform();
    CreateWidgets();
    m_cycle = new EditorCycle(this, QStringLiteral("The contents of this Template have changed, "
                                                   "do you want to save the changes"));
    m_cycle->SetApplyButton(cmdApplyChanges);
    m_cycle->SetSaveChanges([this](bool blnChanging) { SaveChanges(blnChanging); });
    connect(m_cycle, &EditorCycle::LostFocus, this, &ctlTemplate::UserControl_LostFocus);
    // The payload is 0 when the user is changing to another control, else the
    // number in Items.
    connect(m_cycle, &EditorCycle::Updated, this, [this](bool blnChanging) {
        emit TemplateUpdated(blnChanging ? 0 : m_strItems.toInt());
    });
    Entry("UserControl_Initialize").Enter();
}

ctlTemplate::~ctlTemplate() {
    Entry("UserControl_Terminate").Enter();
}

void ctlTemplate::CreateWidgets() {
    SSScroll1 = Named(new QScrollArea(this), "SSScroll1");
    SSScroll1->setWidgetResizable(true);
    SSScroll1->setFrameShape(QFrame::NoFrame);
    auto* surface = new QWidget;
    surface->setMinimumSize(Twips::ToPixels(kMinWidth), Twips::ToPixels(kMinHeight));
    SSScroll1->setWidget(surface);
    auto* outer = new QVBoxLayout(surface);
    const qint32 m = Twips::ToPixels(kMargin);
    outer->setContentsMargins(m, m / 2, m, m);

    lblMainCaption = Named(new QLabel(surface), "lblMainCaption");
    QFont font = lblMainCaption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    lblMainCaption->setFont(font);
    outer->addWidget(lblMainCaption);

    SSTab1 = Named(new QTabWidget(surface), "SSTab1");
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("tabGeneral"));
    SSTab1->addTab(page, QStringLiteral("General Details"));
    outer->addWidget(SSTab1, 1);

    auto* grid = new QGridLayout(page);
    txtTemplateDescription = Named(new QLineEdit(page), "txtTemplateDescription");
    cboOccasion = Named(new QComboBox(page), "cboOccasion");
    cboOccasion->setEditable(true);
    cboOccasion->setInsertPolicy(QComboBox::NoInsert);
    fraNotes = Named(new QGroupBox(QStringLiteral("Notes"), page), "fraNotes");
    txtNotes = Named(new QTextEdit(fraNotes), "txtNotes");
    txtNotes->setAcceptRichText(false);
    (new QVBoxLayout(fraNotes))->addWidget(txtNotes);
    lblSource = Named(new QLabel(page), "lblSource");
    lblType = Named(new QLabel(page), "lblType");
    lblAuthor = Named(new QLabel(page), "lblAuthor");
    lblTemplateDateCreated = Named(new QLabel(page), "lblTemplateDateCreated");
    cmdOpenTemplate =
        Named(new QPushButton(QStringLiteral("&Open Template"), page), "cmdOpenTemplate");

    qint32 row = 0;
    auto caption = [&](const char* text, QWidget* widget) {
        grid->addWidget(new QLabel(QString::fromLatin1(text), page), row, 0);
        grid->addWidget(widget, row++, 1, 1, 2);
    };
    caption("Description:", txtTemplateDescription);
    caption("Occasion:", cboOccasion);
    caption("Source:", lblSource);
    caption("Type:", lblType);
    caption("Created By:", lblAuthor);
    caption("Date Created:", lblTemplateDateCreated);
    grid->addWidget(fraNotes, row++, 0, 1, 3);
    grid->setRowStretch(row - 1, 1);
    grid->addWidget(cmdOpenTemplate, row, 2, Qt::AlignRight);

    cmdApplyChanges =
        Named(new QPushButton(QStringLiteral("&Apply Changes"), surface), "cmdApplyChanges");
    cmdApplyChanges->setEnabled(false);
    outer->addWidget(cmdApplyChanges, 0, Qt::AlignRight);

    connect(cmdOpenTemplate, &QPushButton::clicked, this, &ctlTemplate::cmdOpenTemplate_Click);
    connect(cmdApplyChanges, &QPushButton::clicked, this, &ctlTemplate::cmdApplyChanges_Click);
    connect(SSTab1, &QTabWidget::tabBarClicked, this, &ctlTemplate::SSTab1_Click);
    connect(txtTemplateDescription, &QLineEdit::textChanged, this,
            &ctlTemplate::txtTemplateDescription_Change);
    connect(txtNotes, &QTextEdit::textChanged, this, &ctlTemplate::txtNotes_Change);
    connect(cboOccasion, &QComboBox::editTextChanged, this, &ctlTemplate::cboOccasion_Change);
    connect(cboOccasion, &QComboBox::activated, this, &ctlTemplate::cboOccasion_Click);
    resize(Twips::ToPixels(kMinWidth + 2 * kMargin), Twips::ToPixels(kMinHeight));
}

// ---- Layout ---------------------------------------------------------------------

void ctlTemplate::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

// The scroll surface fills the control; below the minimum size it scrolls.
void ctlTemplate::UserControl_Resize() {
    Entry("UserControl_Resize").Spelt().ErrorBox([&] { SSScroll1->setGeometry(rect()); });
}

// ---- The frame ------------------------------------------------------------------

QString ctlTemplate::Description() const {
    return ControlDescriptions::ctlTemplate;
}

bool ctlTemplate::CanUnload() {
    Entry("CanUnload").Enter();
    CleanControl(true);
    return true;
}

void ctlTemplate::UserControl_LostFocus() {
    Entry("UserControl_LostFocus").Enter();
    CleanControl(true);
}

bool ctlTemplate::IsGeneralDirty() const {
    return m_cycle->IsDirty(0);
}

// ---- The dirty rule -------------------------------------------------------------

void ctlTemplate::MakeControlDirty() {
    Entry("MakeControlDirty").Enter().FullErrorBox([&] { m_cycle->Changed(0); });
}

void ctlTemplate::txtTemplateDescription_Change() {
    ErrorReport::Guard([&] { m_cycle->Changed(0); });
}

void ctlTemplate::txtNotes_Change() {
    ErrorReport::Guard([&] { m_cycle->Changed(0); });
}

void ctlTemplate::cboOccasion_Change() {
    ErrorReport::Guard([&] { m_cycle->Changed(0); });
}

void ctlTemplate::cboOccasion_Click() {
    ErrorReport::Guard([&] { m_cycle->Changed(0); });
}
