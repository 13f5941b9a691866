#include "foundations/SongBreakdownWizard.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

using SongBreakdown::Part;

namespace {
QPushButton* makeButton(const QString& strName, const QString& strCaption, QWidget* parent) {
    auto* button = new QPushButton(strCaption, parent);
    button->setObjectName(strName);
    button->setAutoDefault(false);
    return button;
}

QString firstLine(const QString& strText) {
    return strText.section(QLatin1Char('\n'), 0, 0);
}
} // namespace

// The Qt platform asks with the wizard's dialog, over the active window.
bool Platform::RunSongBreakdownWizard(const QString& strTitle,
                                      SongBreakdown::Breakdown& breakdown) {
    SongBreakdownWizard wizard(strTitle, breakdown, QApplication::activeWindow());
    if (wizard.exec() != QDialog::Accepted)
        return false;
    breakdown = wizard.Breakdown();
    return true;
}

// The data library's wizard is this library's platform: installed when the
// controls library is part of the program (Platform's table of members names
// RunSongBreakdownWizard, which brings this file along).
namespace {
[[maybe_unused]] const bool g_blnWizardInstalled = [] {
    SongBreakdown::SetWizard([](const QString& strTitle, SongBreakdown::Breakdown& breakdown) {
        return Platform::Current().RunSongBreakdownWizard(strTitle, breakdown);
    });
    return true;
}();
} // namespace

SongBreakdownWizard::SongBreakdownWizard(const QString& strTitle,
                                         const SongBreakdown::Breakdown& proposal, QWidget* parent)
    : QDialog(parent), m_breakdown(proposal) {
    setWindowTitle(tr("Song Breakdown: %1").arg(strTitle));
    lblIntro = new QLabel(tr("These are the parts of the song and the order in which they are "
                             "sung. Change them if they are not right, then press Finish."),
                          this);
    lblIntro->setObjectName(QStringLiteral("lblIntro"));
    lblIntro->setWordWrap(true);
    lvwParts = new QTreeWidget(this);
    lvwParts->setObjectName(QStringLiteral("lvwParts"));
    lvwParts->setRootIsDecorated(false);
    lvwParts->setHeaderLabels({tr("Part"), tr("Kind"), tr("First Line")});
    txtPartName = new QLineEdit(this);
    txtPartName->setObjectName(QStringLiteral("txtPartName"));
    chkIsChorus = new QCheckBox(tr("&Chorus (sung after the verses)"), this);
    chkIsChorus->setObjectName(QStringLiteral("chkIsChorus"));
    txtPartWords = new QTextEdit(this);
    txtPartWords->setObjectName(QStringLiteral("txtPartWords"));
    txtPartWords->setReadOnly(true);
    txtPartWords->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    cmdMerge = makeButton(QStringLiteral("cmdMerge"), tr("&Merge with Next"), this);
    cmdSplit = makeButton(QStringLiteral("cmdSplit"), tr("S&plit at Cursor"), this);
    lstOrder = new QListWidget(this);
    lstOrder->setObjectName(QStringLiteral("lstOrder"));
    cmdAddToOrder = makeButton(QStringLiteral("cmdAddToOrder"), tr("Add to &Order"), this);
    cmdRemoveFromOrder = makeButton(QStringLiteral("cmdRemoveFromOrder"), tr("&Remove"), this);
    cmdOrderUp = makeButton(QStringLiteral("cmdOrderUp"), tr("&Up"), this);
    cmdOrderDown = makeButton(QStringLiteral("cmdOrderDown"), tr("&Down"), this);
    cmdDefaultOrder =
        makeButton(QStringLiteral("cmdDefaultOrder"), tr("&Verse, Chorus, Verse ..."), this);
    cmdFinish = makeButton(QStringLiteral("cmdFinish"), tr("&Finish"), this);
    cmdCancel = makeButton(QStringLiteral("cmdCancel"), tr("Cancel"), this);

    auto* partButtons = new QHBoxLayout;
    partButtons->addWidget(new QLabel(tr("Name:"), this));
    partButtons->addWidget(txtPartName);
    partButtons->addWidget(chkIsChorus);
    auto* editButtons = new QHBoxLayout;
    editButtons->addWidget(cmdMerge);
    editButtons->addWidget(cmdSplit);
    editButtons->addWidget(cmdAddToOrder);
    editButtons->addStretch();
    auto* orderButtons = new QVBoxLayout;
    for (QPushButton* button : {cmdRemoveFromOrder, cmdOrderUp, cmdOrderDown, cmdDefaultOrder})
        orderButtons->addWidget(button);
    orderButtons->addStretch();
    auto* endButtons = new QHBoxLayout;
    endButtons->addStretch();
    endButtons->addWidget(cmdFinish);
    endButtons->addWidget(cmdCancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(lblIntro, 0, 0, 1, 3);
    grid->addWidget(new QLabel(tr("Parts:"), this), 1, 0);
    grid->addWidget(new QLabel(tr("Sung in this order:"), this), 1, 1);
    grid->addWidget(lvwParts, 2, 0);
    grid->addWidget(lstOrder, 2, 1);
    grid->addLayout(orderButtons, 2, 2);
    grid->addLayout(partButtons, 3, 0);
    grid->addWidget(txtPartWords, 4, 0);
    grid->addLayout(editButtons, 5, 0);
    grid->addLayout(endButtons, 6, 0, 1, 3);
    resize(760, 520);

    connect(lvwParts, &QTreeWidget::itemSelectionChanged, this,
            &SongBreakdownWizard::lvwParts_SelectionChanged);
    connect(txtPartName, &QLineEdit::editingFinished, this,
            &SongBreakdownWizard::txtPartName_Change);
    connect(chkIsChorus, &QCheckBox::clicked, this, &SongBreakdownWizard::chkIsChorus_Click);
    connect(cmdMerge, &QPushButton::clicked, this, &SongBreakdownWizard::cmdMerge_Click);
    connect(cmdSplit, &QPushButton::clicked, this, &SongBreakdownWizard::cmdSplit_Click);
    connect(cmdAddToOrder, &QPushButton::clicked, this, &SongBreakdownWizard::cmdAddToOrder_Click);
    connect(cmdRemoveFromOrder, &QPushButton::clicked, this,
            &SongBreakdownWizard::cmdRemoveFromOrder_Click);
    connect(cmdOrderUp, &QPushButton::clicked, this, &SongBreakdownWizard::cmdOrderUp_Click);
    connect(cmdOrderDown, &QPushButton::clicked, this, &SongBreakdownWizard::cmdOrderDown_Click);
    connect(cmdDefaultOrder, &QPushButton::clicked, this,
            &SongBreakdownWizard::cmdDefaultOrder_Click);
    connect(lstOrder, &QListWidget::currentRowChanged, this, &SongBreakdownWizard::SetUpButtons);
    connect(cmdFinish, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    lvwParts->installEventFilter(this);
    lstOrder->installEventFilter(this);
    showParts(0);
    showOrder(-1);
}

// ---- Showing ---------------------------------------------------------------------------------

int SongBreakdownWizard::SelectedPart() const {
    QTreeWidgetItem* item = lvwParts->currentItem();
    return item ? lvwParts->indexOfTopLevelItem(item) : -1;
}

void SongBreakdownWizard::SelectPart(int intPart) {
    if (QTreeWidgetItem* item = lvwParts->topLevelItem(intPart))
        lvwParts->setCurrentItem(item);
}

void SongBreakdownWizard::showParts(int intSelect) {
    m_blnShowing = true;
    lvwParts->clear();
    for (const Part& part : std::as_const(m_breakdown.Parts))
        lvwParts->addTopLevelItem(new QTreeWidgetItem(
            {part.Name, part.IsChorus ? tr("Chorus") : tr("Verse"), firstLine(part.Text)}));
    m_blnShowing = false;
    SelectPart(qBound(0, intSelect, static_cast<int>(m_breakdown.Parts.size()) - 1));
    lvwParts_SelectionChanged();
}

void SongBreakdownWizard::showOrder(int intSelect) {
    lstOrder->clear();
    for (int index : std::as_const(m_breakdown.Order))
        lstOrder->addItem(m_breakdown.Parts.value(index).Name);
    if (intSelect >= 0 && intSelect < lstOrder->count())
        lstOrder->setCurrentRow(intSelect);
    SetUpButtons();
}

void SongBreakdownWizard::lvwParts_SelectionChanged() {
    if (m_blnShowing)
        return;
    const int part = SelectedPart();
    const QSignalBlocker nameBlocker(txtPartName);
    if (part < 0) {
        txtPartName->clear();
        chkIsChorus->setChecked(false);
        txtPartWords->clear();
    } else {
        const Part& shown = m_breakdown.Parts.at(part);
        txtPartName->setText(shown.Name);
        chkIsChorus->setChecked(shown.IsChorus);
        txtPartWords->setPlainText(shown.Text);
    }
    SetUpButtons();
}

// ---- Editing the parts ---------------------------------------------------------------------

// A name left empty, or not changed, keeps the part's name.
void SongBreakdownWizard::txtPartName_Change() {
    ErrorReport::Guard([&] {
        const int part = SelectedPart();
        const QString strName = txtPartName->text().trimmed();
        if (part < 0 || strName.isEmpty() || strName == m_breakdown.Parts.at(part).Name) {
            lvwParts_SelectionChanged();
            return;
        }
        m_breakdown.Parts[part].Name = strName;
        showParts(part);
        showOrder(lstOrder->currentRow());
    });
}

void SongBreakdownWizard::chkIsChorus_Click() {
    ErrorReport::Guard([&] {
        const int part = SelectedPart();
        if (part < 0)
            return;
        m_breakdown.Parts[part].IsChorus = chkIsChorus->isChecked();
        SongBreakdown::NumberParts(m_breakdown);
        showParts(part);
        showOrder(lstOrder->currentRow());
    });
}

void SongBreakdownWizard::cmdMerge_Click() {
    ErrorReport::Guard([&] {
        const int part = SelectedPart();
        if (SongBreakdown::MergeWithNext(m_breakdown, part)) {
            showParts(part);
            showOrder(-1);
        }
    });
}

void SongBreakdownWizard::cmdSplit_Click() {
    ErrorReport::Guard([&] {
        const int part = SelectedPart();
        const int line = txtPartWords->textCursor().block().blockNumber();
        if (SongBreakdown::SplitPart(m_breakdown, part, line)) {
            showParts(part + 1);
            showOrder(-1);
        }
    });
}

// ---- Editing the order -------------------------------------------------------------------

// The selected part is sung after the selected entry of the order, or last.
void SongBreakdownWizard::cmdAddToOrder_Click() {
    ErrorReport::Guard([&] {
        const int part = SelectedPart();
        if (part < 0)
            return;
        const int row = lstOrder->currentRow();
        const int at = row < 0 ? static_cast<int>(m_breakdown.Order.size()) : row + 1;
        m_breakdown.Order.insert(at, part);
        showOrder(at);
    });
}

void SongBreakdownWizard::cmdRemoveFromOrder_Click() {
    ErrorReport::Guard([&] {
        const int row = lstOrder->currentRow();
        if (row < 0)
            return;
        m_breakdown.Order.removeAt(row);
        showOrder(qMin(row, static_cast<int>(m_breakdown.Order.size()) - 1));
    });
}

void SongBreakdownWizard::moveOrderEntry(int intBy) {
    const int row = lstOrder->currentRow();
    const int to = row + intBy;
    if (row < 0 || to < 0 || to >= m_breakdown.Order.size())
        return;
    m_breakdown.Order.move(row, to);
    showOrder(to);
}

void SongBreakdownWizard::cmdOrderUp_Click() {
    ErrorReport::Guard([&] { moveOrderEntry(-1); });
}

void SongBreakdownWizard::cmdOrderDown_Click() {
    ErrorReport::Guard([&] { moveOrderEntry(1); });
}

void SongBreakdownWizard::cmdDefaultOrder_Click() {
    ErrorReport::Guard([&] {
        m_breakdown.Order = SongBreakdown::DefaultOrder(m_breakdown.Parts);
        showOrder(-1);
    });
}

void SongBreakdownWizard::SetUpButtons() {
    const int part = SelectedPart();
    const int row = lstOrder->currentRow();
    const auto parts = static_cast<int>(m_breakdown.Parts.size());
    txtPartName->setEnabled(part >= 0);
    chkIsChorus->setEnabled(part >= 0);
    cmdMerge->setEnabled(part >= 0 && part + 1 < parts);
    cmdSplit->setEnabled(part >= 0 && m_breakdown.Parts.at(part).Text.count(QLatin1Char('\n')) > 0);
    cmdAddToOrder->setEnabled(part >= 0);
    cmdRemoveFromOrder->setEnabled(row >= 0);
    cmdOrderUp->setEnabled(row > 0);
    cmdOrderDown->setEnabled(row >= 0 && row + 1 < lstOrder->count());
    cmdFinish->setEnabled(parts > 0 && !m_breakdown.Order.isEmpty());
}

bool SongBreakdownWizard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool blnCtrl = key->modifiers().testFlag(Qt::ControlModifier);
    if (watched == lvwParts && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
                                key->key() == Qt::Key_Insert)) {
        cmdAddToOrder_Click();
        return true;
    }
    if (watched == lstOrder && key->key() == Qt::Key_Delete) {
        cmdRemoveFromOrder_Click();
        return true;
    }
    if (watched == lstOrder && blnCtrl && key->key() == Qt::Key_Up) {
        cmdOrderUp_Click();
        return true;
    }
    if (watched == lstOrder && blnCtrl && key->key() == Qt::Key_Down) {
        cmdOrderDown_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
