// GalleryCore: the working parts shared by the galleries.

#include "galleries/GalleryCore.h"
#include "galleries/ToolbarPictures.h"

#include "TraceLog.h"
#include "foundations/KeyCodes.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/modQVLTControls.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTimer>

using namespace modQVLTControls;

namespace {
const QString kHidePanelCaption = QStringLiteral("&Hide Display Properties");
const QString kShowPanelCaption = QStringLiteral("&Show Display Properties");
const QColor kActiveColour(192, 0, 0); // VB colour 192: red
const QString kRoot = QStringLiteral("Root");
const QString kSep = QStringLiteral(";");

template <class W> W* Named(W* widget, const QString& strName) {
    widget->setObjectName(strName);
    return widget;
}
} // namespace

GalleryCore::GalleryCore(const GalleryTable& table, QWidget* owner)
    : m_table(table), m_owner(owner) {}

// ---------------------------------------------------------------- Panel

void GalleryCore::CreatePanel() {
    cmdShowHideFilter =
        Named(new QPushButton(kShowPanelCaption, m_owner), QStringLiteral("cmdShowHideFilter"));
    lblFilterState = Named(new QLabel(QStringLiteral("(Filter is Inactive)"), m_owner),
                           QStringLiteral("lblFilterState"));

    fraShowAs =
        Named(new QGroupBox(QStringLiteral("Show As"), m_owner), QStringLiteral("fraShowAs"));
    optShowAsTree = Named(new QRadioButton(QStringLiteral("A Tree Grouped By"), fraShowAs),
                          QStringLiteral("optShowAsTree"));
    optShowAsList = Named(new QRadioButton(QStringLiteral("A List"), fraShowAs),
                          QStringLiteral("optShowAsList"));
    optShowAsTree->setChecked(true);
    cboGroupByProperty = Named(new QComboBox(fraShowAs), QStringLiteral("cboGroupByProperty"));
    cboGroupByProperty->addItems(m_table.GroupCaptions());

    fraFilter =
        Named(new QGroupBox(m_table.strFilterCaption, m_owner), QStringLiteral("fraFilter"));
    Timer1 = Named(new QTimer(fraFilter), QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    Timer1->setSingleShot(true);
    cboProperty = Named(new QComboBox(fraFilter), QStringLiteral("cboProperty"));
    cboProperty->addItems(m_table.lstFilterOffered);
    cboProperty->setCurrentIndex(-1);
    cboOperator = Named(new QComboBox(fraFilter), QStringLiteral("cboOperator"));
    cboOperator->addItems({QStringLiteral("Contains"), QStringLiteral("Starts with"),
                           QStringLiteral("Ends with"), QStringLiteral("Does not contain")});
    cboOperator->setCurrentIndex(-1);
    txtCriterion = Named(new QLineEdit(fraFilter), QStringLiteral("txtCriterion"));
}

// The caption of the button is the state of the panel.
bool GalleryCore::PanelOpen() const {
    return cmdShowHideFilter->text() == kHidePanelCaption;
}

// ---------------------------------------------------------------- Shared handlers

void GalleryCore::Timer1_Timer(bool blnLoaded,
                               const std::function<void()>& CheckIfShouldApplyFilter) {
    MemberEntry(m_table.strClass, QStringLiteral("Timer1_Timer")).Spelt().Enter().ErrorBox([&] {
        if (blnLoaded)
            CheckIfShouldApplyFilter();
        Timer1->stop();
    });
}

void GalleryCore::cboProperty_Click(const std::function<void()>& CheckIfShouldApplyFilter) {
    MemberEntry(m_table.strClass, QStringLiteral("cboProperty_Click"))
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            PropertyChosen();
            CheckIfShouldApplyFilter();
        });
}

void GalleryCore::cboOperator_Click(const std::function<void()>& CheckIfShouldApplyFilter) {
    MemberEntry(m_table.strClass, QStringLiteral("cboOperator_Click"))
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            OperatorChosen();
            CheckIfShouldApplyFilter();
        });
}

void GalleryCore::cboGroupByProperty_Click(bool blnLoaded, const std::function<void()>& load) {
    MemberEntry(m_table.strClass, QStringLiteral("cboGroupByProperty_Click"))
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (blnLoaded)
                load();
        });
}

// Sets the filter's words and clause as a side effect.
QString GalleryCore::GetFilterAsWhereClause(QString& strFilterInPlainEnglish,
                                            QString& strWhereClauseInEffect) {
    const auto entry =
        MemberEntry(m_table.strClass, QStringLiteral("GetFilterAsWhereClause")).Spelt().Enter();
    QString strResult;
    entry.ErrorBox([&] {
        strResult = WhereClause(strFilterInPlainEnglish);
        strWhereClauseInEffect = strResult;
    });
    return strResult;
}

void GalleryCore::SortTreeview() {
    MemberEntry(m_table.strClass, QStringLiteral("SortTreeview")).Spelt().Enter().ErrorBox([&] {
        SortLevels();
    });
}

void GalleryCore::SetPanelOpen(bool blnOpen) {
    cmdShowHideFilter->setText(blnOpen ? kHidePanelCaption : kShowPanelCaption);
}

// ---------------------------------------------------------------- Views and keys

void GalleryCore::ShowEmptyView(bool blnList) {
    VBTreeWidget* shown = blnList ? m_list : m_tree;
    VBTreeWidget* hidden = blnList ? m_tree : m_list;
    shown->show();
    hidden->hide();
    shown->Clear();
}

bool GalleryCore::IsItemKey(const QString& strKey) const {
    return VB::InStr(strKey, m_table.strItemMark) > 0;
}

bool GalleryCore::IsListKey(const QString& strKey) const {
    return VB::Left(strKey, VB::Len(m_table.strListMark)) == m_table.strListMark;
}

QString GalleryCore::IdOfKey(const VBTreeWidget* view, const QString& strKey) {
    return GetInstance(strKey, kSep, view->IsListView() ? 2 : 5);
}

QString GalleryCore::ItemId(const QString& strKey) const {
    const qint32 lngAt = VB::InStr(strKey, m_table.strItemMark);
    return lngAt > 0 ? VB::Mid(strKey, lngAt + VB::Len(m_table.strItemMark)) : QString();
}

QString GalleryCore::ItemKey(const QString& strGroupKey, qint32 lngID) const {
    return strGroupKey + m_table.strItemMark + QString::number(lngID);
}

QString GalleryCore::ListKey(qint32 lngID) const {
    return m_table.strListMark + QString::number(lngID);
}

QString GalleryCore::ChildIds(const VBNode& group) {
    VBNode child = group.Child();
    const VBNode last = child.LastSibling();
    QString strIDs = GetInstance(child.Key(), kSep, 5);
    while (!(child == last)) {
        child = child.Next();
        strIDs += QStringLiteral(",") + GetInstance(child.Key(), kSep, 5);
    }
    return strIDs;
}

QString GalleryCore::SelectedListIds(const QString& strSeparator) const {
    QString strIDs;
    for (qint32 i = 1; i <= m_list->topLevelItemCount(); ++i) {
        const VBNode item = m_list->ListItems(i);
        if (item.Selected())
            strIDs += strSeparator + GetInstance(item.Key(), kSep, 2);
    }
    TrimData(strIDs, strSeparator);
    return strIDs;
}

qint32 GalleryCore::SelectedListCount() const {
    return static_cast<qint32>(m_list->selectedItems().size());
}

// ---------------------------------------------------------------- Group-by load

void GalleryCore::AddRoot() {
    m_tree->Add(QVariant(), tvwLast, kRoot, m_table.strRootText, QStringLiteral("imgFolderOpen"));
}

QString GalleryCore::GroupValue(const QVariant& varValue) {
    return varValue.isNull() ? QStringLiteral("0") : VB::CStr(varValue);
}

void GalleryCore::AddGroup(const QString& strGroupKey, const QString& strGroupBy,
                           const QString& strText) {
    VBNode group =
        m_tree->Add(kRoot, tvwChild, strGroupKey, strText, QStringLiteral("imgFolderClosed"));
    group.setTag(strGroupBy);
}

void GalleryCore::SortLevels() {
    // Inside a load the tree is locked already and stays so until the load ends.
    RedrawLock lock(m_tree->updatesEnabled() ? m_tree : nullptr);
    for (qint32 i = 1; i <= m_tree->Count(); ++i) {
        VBNode node = m_tree->Nodes(i);
        if (node.Children() > 1)
            node.setSorted(true);
    }
}

void GalleryCore::ExpandAfterLoad() {
    const bool blnWasLocked = !m_tree->updatesEnabled();
    ExpandAllNodesByLevel(m_tree, m_tree->Count() < 20 ? 0 : 2);
    // The expansion draws again; a load keeps the tree locked to its end.
    if (blnWasLocked)
        LockTreeview(m_tree);
}

bool GalleryCore::IsFolderImage(const QVariant& varImage) {
    const QString strImage =
        varImage.typeId() == QMetaType::QString ? varImage.toString() : QString();
    return strImage == QLatin1String("imgFolderClosed") ||
           strImage == QLatin1String("imgFolderOpen");
}

// ---------------------------------------------------------------- Filter

QString GalleryCore::WhereClause(QString& strWords) const {
    const QString P = cboProperty->currentText();
    const QString C = txtCriterion->text();
    const QString F = m_table.FilterField(P);
    const QString O = cboOperator->currentText();
    const QString Q = QStringLiteral("'");
    if (O == QLatin1String("Contains")) {
        strWords = P + QStringLiteral(" contains the text '") + C + Q;
        return F + QStringLiteral(" LIKE '*") + C + QStringLiteral("*'");
    }
    if (O == QLatin1String("Does not contain")) {
        strWords = P + QStringLiteral(" does not contain the text '") + C + Q;
        return F + QStringLiteral(" NOT LIKE '*") + C + QStringLiteral("*'");
    }
    if (O == QLatin1String("Starts with")) {
        strWords = P + QStringLiteral(" starts with the text '") + C + Q;
        return F + QStringLiteral(" LIKE '") + C + QStringLiteral("*'");
    }
    if (O == QLatin1String("Ends with")) {
        strWords = P + QStringLiteral(" ends with the text '") + C + Q;
        return F + QStringLiteral(" LIKE '*") + C + Q;
    }
    return QString();
}

void GalleryCore::SetFilterStateInactive(QString& strFilterInPlainEnglish,
                                         QString& strWhereClauseInEffect) {
    lblFilterState->setText(QStringLiteral("(Filter is inactive)"));
    QPalette pal = lblFilterState->palette();
    pal.setColor(QPalette::WindowText, QApplication::palette().color(QPalette::ButtonText));
    lblFilterState->setPalette(pal);
    strFilterInPlainEnglish = QStringLiteral("No Filter");
    strWhereClauseInEffect = QString();
}

void GalleryCore::SetFilterStateActive(const QString& strCaption) {
    lblFilterState->setText(strCaption);
    QPalette pal = lblFilterState->palette();
    pal.setColor(QPalette::WindowText, kActiveColour);
    lblFilterState->setPalette(pal);
}

void GalleryCore::PropertyChosen() {
    if (cboOperator->currentText().isEmpty()) {
        cboOperator->setCurrentIndex(0);
    } else {
        txtCriterion->selectAll();
    }
    txtCriterion->setFocus();
}

void GalleryCore::OperatorChosen() {
    if (cboProperty->currentText().isEmpty())
        return;
    txtCriterion->selectAll();
    txtCriterion->setFocus();
}

bool GalleryCore::CheckFilter(QString& strFilterInPlainEnglish, QString& strWhereClauseInEffect,
                              const std::function<void()>& load) {
    if (txtCriterion->text().isEmpty()) {
        SetFilterStateInactive(strFilterInPlainEnglish, strWhereClauseInEffect);
        load();
        return true;
    }
    if (!cboProperty->currentText().isEmpty() && !cboOperator->currentText().isEmpty()) {
        SetFilterStateActive(QStringLiteral("(FILTER ACTIVE)"));
        load();
        return true;
    }
    SetFilterStateInactive(strFilterInPlainEnglish, strWhereClauseInEffect);
    m_tree->Clear();
    return false;
}

void GalleryCore::TakeBackApostrophe(qint16 KeyCode) {
    if (KeyCode != kApostropheKeyCode)
        return;
    const QString strText = txtCriterion->text();
    if (!strText.isEmpty())
        txtCriterion->setText(VB::Left(strText, VB::Len(strText) - 1));
    txtCriterion->setCursorPosition(static_cast<int>(txtCriterion->text().size()));
}

void GalleryCore::RestartTimer() {
    Timer1->stop();
    Timer1->start();
}

// ---------------------------------------------------------------- Clicks

GalleryCore::ClickWords GalleryCore::NodeClickWords(const VBNode& Node) const {
    const QString K = Node.Key();
    if (IsItemKey(K))
        return {ItemId(K), Node.Text(), m_table.strItemType};
    if (K == kRoot)
        return {QStringLiteral("All"), m_table.strAllText, m_table.strGroupType};
    return {ChildIds(Node),
            m_table.strGroupWords + VB::Text(Node.Tag()) + QStringLiteral(": ") + Node.Text(),
            m_table.strGroupType};
}

void GalleryCore::SetButtons(const QStringList& lstKeys, bool blnEnabled) const {
    for (const QString& strKey : lstKeys)
        if (m_toolbar->ButtonExists(strKey))
            m_toolbar->Buttons(strKey)->setEnabled(blnEnabled);
}

// ---------------------------------------------------------------- Delete, export

QString GalleryCore::LandingKey(const VBNode& node) {
    if (const VBNode previous = node.Previous())
        return previous.Key();
    if (const VBNode next = node.Next())
        return next.Key();
    const VBNode parent = node.Parent();
    if (parent && parent.Key() != kRoot) {
        if (const VBNode nextGroup = parent.Next())
            return nextGroup.Key();
        if (const VBNode previousGroup = parent.Previous())
            return previousGroup.Key();
    }
    return kRoot;
}

qint16 GalleryCore::NeighbourPosition() const {
    if (TreeShown()) {
        const VBNode node = m_tree->SelectedItem();
        if (!node)
            return 0;
        if (const VBNode previous = node.Previous())
            return static_cast<qint16>(previous.Index());
        if (const VBNode next = node.Next())
            return static_cast<qint16>(next.Index());
        if (const VBNode parent = node.Parent())
            return static_cast<qint16>(parent.Index());
        return 0;
    }
    const VBNode item = m_list->SelectedItem();
    if (item && m_list->topLevelItemCount() >= 2)
        return static_cast<qint16>(item.Index());
    return 0;
}

bool GalleryCore::ExportSelection(QString& strIDs, QString& strDescription,
                                  const QString& strSingleListText) const {
    if (!TreeShown()) {
        if (!m_list->SelectedItem())
            return false;
        strIDs = SelectedListIds(QStringLiteral(","));
        strDescription = VB::InStr(strIDs, QStringLiteral(",")) == 0 ? strSingleListText
                                                                     : m_table.strSelectionText;
        return true;
    }
    const VBNode node = m_tree->SelectedItem();
    if (!node)
        return false;
    if (node.Key() == kRoot) {
        for (qint32 i = 1; i <= m_tree->Count(); ++i) {
            const VBNode each = m_tree->Nodes(i);
            if (!IsFolderImage(each.Image()))
                strIDs += QStringLiteral(",") + GetInstance(each.Key(), kSep, 5);
        }
        TrimData(strIDs, QStringLiteral(","));
        strDescription = m_table.strAllAtWords +
                         VB::Format(QDateTime::currentDateTime(), QStringLiteral("Medium Date"));
    } else if (!IsFolderImage(node.Image())) {
        strIDs = GetInstance(node.Key(), kSep, 5);
        strDescription = node.Text();
    } else if (node.Children() > 0) {
        strIDs = ChildIds(node);
        strDescription = m_table.strGroupWords +
                         cboGroupByProperty->itemText(cboGroupByProperty->currentIndex()) +
                         QStringLiteral(" ") + node.Text();
    } else {
        return false;
    }
    return true;
}

// ---------------------------------------------------------------- Input events

qint16 GalleryCore::KeyCodeOf(const QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteLeft:
        return kApostropheKeyCode;
    default:
        return KeyCodes::FromEvent(*event);
    }
}

qint16 GalleryCore::ShiftOf(const QInputEvent* event) {
    return KeyCodes::ShiftState(event->modifiers());
}

qint16 GalleryCore::ButtonOf(const QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        return vbRightButton;
    if (event->button() == Qt::LeftButton)
        return vbLeftButton;
    return 4;
}

VBNode GalleryCore::FindItemNode(qint32 lngID) const {
    const QString strWanted = m_table.strItemMark + QString::number(lngID) + QStringLiteral(",");
    const VBTreeWidget* view = ShownView();
    for (qint32 i = 1; i <= view->Count(); ++i) {
        const VBNode node = view->Nodes(i);
        if (VB::InStr(node.Key() + QStringLiteral(","), strWanted) > 0)
            return node;
    }
    return VBNode();
}

bool GalleryCore::ConfirmDelete(const QString& strPrompt) {
    return Platform::Current().MsgBox(strPrompt, vbYesNoCancel | vbQuestion | vbDefaultButton2,
                                      QStringLiteral("Confirm Delete")) == vbYes;
}

void GalleryCore::Report(const QString& strText) {
    TraceLog::Instance().WriteErrorLine(strText);
    Platform::Current().MsgBox(strText);
}

void GalleryCore::CreateToolbar(QWidget* owner, VBImageList*& imlToolBar, VBToolBar*& Toolbar2,
                                std::initializer_list<ToolbarButtonSpec> buttons) {
    imlToolBar = new VBImageList(QStringLiteral("imlToolBar"), owner);
    Toolbar2 = new VBToolBar(owner);
    Toolbar2->setObjectName(QStringLiteral("Toolbar2"));
    // The buttons carry pictures and tool tips; their texts would not fit the bar's height.
    Toolbar2->setToolButtonStyle(Qt::ToolButtonIconOnly);
    for (const ToolbarButtonSpec& b : buttons) {
        const QString strImage = QString::fromLatin1(b.image);
        const QString strTip = QString::fromLatin1(b.tip);
        imlToolBar->Add(strImage, ToolbarPictures::For(owner->style(), b.picture));
        QAction* button = Toolbar2->AddButton(QString::fromLatin1(b.key), strTip,
                                              QIcon(imlToolBar->ListImage(strImage)));
        button->setToolTip(strTip);
    }
    SetToolbar(Toolbar2);
}
