// ctlTemplateGallery: what is selected, clicks, the right-button menus, the
// toolbar, new (with its word processor rule), open, delete and select.

#include "templates/ctlTemplateGallery.h"

#include "DataAccess.h"
#include "foundations/ErrorReport.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/GalleryCore.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

namespace {
const QString kPrefix = QStringLiteral("QVLTCONTROLS:ctlTemplateGallery:");

QString Btn(const char* key) {
    return QString::fromLatin1(key);
}

} // namespace

// ---------------------------------------------------------------- Selection members

QString ctlTemplateGallery::SelectedItemKey() {
    return GalleryCore::SelectedNodeValue<QString>(
        Entry(QStringLiteral("SelectedItemKey")).Spelt().Enter(), tvwTemplates,
        [](const VBNode& node) { return node.Key(); });
}

// A folder's picture is a key, not a number: that is reported as a type mismatch.
qint16 ctlTemplateGallery::SelectedItemImage() {
    return GalleryCore::SelectedNodeValue<qint16>(
        Entry(QStringLiteral("SelectedItemImage")).Spelt().Enter(), tvwTemplates,
        [](const VBNode& node) { return VB::CInt(node.Image()); });
}

QString ctlTemplateGallery::SelectedItemText() {
    return GalleryCore::SelectedNodeValue<QString>(
        Entry(QStringLiteral("SelectedItemText")).Spelt().Enter(), tvwTemplates,
        [](const VBNode& node) { return node.Text(); });
}

qint32 ctlTemplateGallery::SelectedTemplateId() const {
    const VBNode node = m_core->ShownSelection();
    if (!node)
        return 0;
    const QString strKey = node.Key();
    if (m_core->TreeShown())
        return m_core->IsItemKey(strKey) ? VB::CLng(m_core->ItemId(strKey)) : 0;
    return m_core->IsListKey(strKey) ? VB::CLng(node.Tag()) : 0;
}

// ---------------------------------------------------------------- Clicks

void ctlTemplateGallery::tvwTemplates_NodeClick(QTreeWidgetItem* Node) {
    const VBNode node(Node);
    Entry(QStringLiteral("tvwTemplates_NodeClick"))
        .Arg(QStringLiteral("Node"), node ? node.Key() : QString())
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (node)
                NodeClick(node);
        });
}

void ctlTemplateGallery::NodeClick(const VBNode& Node) {
    m_core->SetButtons({Btn("btnOpen"), Btn("btnDelete")}, m_core->IsItemKey(Node.Key()));
    const GalleryCore::ClickWords words = m_core->NodeClickWords(Node);
    emit TemplateClicked(words.strID, words.strDescription, strWhereClauseInEffect,
                         strFilterInPlainEnglish, words.strType);
}

// The test word is the service gallery's, so a template's key never passes it,
// and this toolbar has no btnProperties: open and delete end disabled and the
// lookup of the missing button ends the click in its error box, before the
// event.
void ctlTemplateGallery::lvwTemplates_ItemClick(QTreeWidgetItem* Item) {
    const VBNode item(Item);
    Entry(QStringLiteral("lvwTemplates_ItemClick"))
        .Arg(QStringLiteral("Item"), item ? item.Key() : QString())
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            const bool blnEnabled = item && item.Key().contains(QStringLiteral("Service;"));
            for (const char* key : {"btnOpen", "btnDelete", "btnProperties"})
                Toolbar2->Buttons(Btn(key))->setEnabled(blnEnabled);
            emit TemplateClicked(VB::CStr(item.Tag()), item.SubItems(1), strWhereClauseInEffect,
                                 strFilterInPlainEnglish, QStringLiteral("Template"));
        });
}

// ---------------------------------------------------------------- Opening

void ctlTemplateGallery::OpenTemplate(qint32 lngTemplateID, const QString& strPrefix,
                                      bool blnDoubleClick) {
    QString strErrorMessage;
    QVariant varUnused;
    DataAccess::Instance().OpenTemplate(lngTemplateID, false, QString(), QString(), true,
                                        strErrorMessage, varUnused);
    GalleryCore::ReportFailure(strPrefix, strErrorMessage);
    if (blnDoubleClick)
        emit TemplateDblClicked(lngTemplateID);
}

void ctlTemplateGallery::tvwTemplates_DblClick() {
    Entry(QStringLiteral("tvwTemplates_DblClick")).Enter().Guarded([&] {
        const VBNode node = tvwTemplates->SelectedItem();
        if (node && m_core->IsItemKey(node.Key()))
            OpenTemplate(VB::CLng(m_core->ItemId(node.Key())),
                         kPrefix + QStringLiteral("tvwTemplates_DblClick:"), true);
    });
}

void ctlTemplateGallery::lvwTemplates_DblClick() {
    Entry(QStringLiteral("lvwTemplates_DblClick")).Enter().Guarded([&] {
        const VBNode item = lvwTemplates->SelectedItem();
        if (item && m_core->IsListKey(item.Key()))
            OpenTemplate(VB::CLng(item.Tag()), kPrefix + QStringLiteral("lvwTemplates_DblClick:"),
                         true);
    });
}

// The menu opens what the double click of the shown view would, with its words.
void ctlTemplateGallery::mnuTemplateOpen_Click() {
    Entry(QStringLiteral("mnuTemplateOpen_Click")).Spelt().Enter().ErrorBox([&] {
        if (const qint32 lngID = SelectedTemplateId())
            OpenTemplate(lngID,
                         kPrefix + (m_core->TreeShown() ? QStringLiteral("tvwTemplates_DblClick:")
                                                        : QStringLiteral("lvwTemplates_DblClick:")),
                         false);
    });
}

// Stands empty but for its trace line.
void ctlTemplateGallery::mnuSIOpen_Click() {
    Entry(QStringLiteral("mnuSIOpen_Click")).Enter();
}

// ---------------------------------------------------------------- Right button

// A node under the pointer is selected; a template gets the template menu,
// anything else the menu of new and find, with this gallery's words.
void ctlTemplateGallery::tvwTemplates_MouseDown(qint16 Button, const QPoint& ptAt) {
    Entry(QStringLiteral("tvwTemplates_MouseDown"))
        .Arg(QStringLiteral("Button"), Button)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (Button != vbRightButton)
                return;
            const VBNode hit(tvwTemplates->itemAt(ptAt));
            if (!hit)
                return;
            tvwTemplates->setSelectedItem(hit);
            if (m_core->IsItemKey(hit.Key())) {
                mnuRightClick->popup(QCursor::pos());
                return;
            }
            mnuRightClickTypeNew->setText(QStringLiteral("&New Template"));
            mnuRightClickTypeFind->setText(QStringLiteral("&Find a Template"));
            mnuRightClickType->popup(QCursor::pos());
        });
}

void ctlTemplateGallery::lvwTemplates_MouseUp(qint16 Button, const QPoint& ptAt) {
    Entry(QStringLiteral("lvwTemplates_MouseUp"))
        .Arg(QStringLiteral("Button"), Button)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            const VBNode hit(lvwTemplates->itemAt(ptAt));
            if (Button == vbRightButton && hit && hit.Key().contains(QStringLiteral("Template;")))
                mnuRightClick->popup(QCursor::pos());
        });
}

// ---------------------------------------------------------------- New

// The menus create straight away: no word processor test, no reload, no event.
void ctlTemplateGallery::NewFromMenu(const char* member) {
    Entry(QString::fromLatin1(member)).Spelt().Enter().ErrorBox([&] {
        QString strErrorMessage;
        qint32 lngNewID = 0;
        DataAccess::Instance().NewTemplate(true, strErrorMessage, lngNewID);
    });
}

void ctlTemplateGallery::mnuRightCLickNew_Click() {
    NewFromMenu("mnuRightCLickNew_Click");
}

void ctlTemplateGallery::mnuRightClickTypeNew_Click() {
    NewFromMenu("mnuRightClickTypeNew_Click");
}

// A new template is refused while the word processor runs: the new document
// would open in the user's running session, where they may not see it.
void ctlTemplateGallery::NewFromToolbar() {
    DataAccess& da = DataAccess::Instance();
    bool blnRunning = false;
    da.IsWordRunning(blnRunning);
    if (blnRunning) {
        Platform::Current().MsgBox(
            QStringLiteral("Microsoft Word is running on your computer. You cannot create a new "
                           "template until you close it. If you cannot see that Microsoft Word "
                           "is running then you need to restart your computer"),
            vbOKOnly, QStringLiteral("Word is running"));
        return;
    }
    QString strErrorMessage;
    qint32 lngNewID = 0;
    da.NewTemplate(true, strErrorMessage, lngNewID);
    if (!strErrorMessage.isEmpty()) {
        GalleryCore::ReportFailure(QStringLiteral("ctlTemplateGallery:Toolbar2_ButtonClick:"),
                                   strErrorMessage);
        return;
    }
    ShowTemplates();
    SelectTemplate(lngNewID);
    emit NewTemplateAdded(lngNewID);
}

// ---------------------------------------------------------------- Toolbar

void ctlTemplateGallery::Toolbar2_ButtonClick(QAction* Button) {
    const QString strKey = Button ? Button->objectName() : QString();
    Entry(QStringLiteral("Toolbar2_ButtonClick"))
        .Arg(QStringLiteral("Button"), strKey)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (strKey == QLatin1String("btnNew")) {
                NewFromToolbar();
            } else if (strKey == QLatin1String("btnOpen")) {
                if (const qint32 lngID = SelectedTemplateId())
                    OpenTemplate(lngID, kPrefix + QStringLiteral("Toolbar2_ButtonClick:"), false);
            } else if (strKey == QLatin1String("btnDelete")) {
                if (const qint32 lngID = SelectedTemplateId())
                    DeleteATemplate(lngID);
            } else if (strKey == QLatin1String("btnHelp")) {
                Platform::Current().SendKeys(QStringLiteral("{F1}"));
            }
        });
}

void ctlTemplateGallery::mnuTemplateDelete_Click() {
    Entry(QStringLiteral("mnuTemplateDelete_Click")).Spelt().Enter().ErrorBox([&] {
        if (const qint32 lngID = SelectedTemplateId())
            DeleteATemplate(lngID);
    });
}

// ---------------------------------------------------------------- Delete

void ctlTemplateGallery::DeleteATemplate(qint32 lngTemplateID) {
    QString strErrorMessage;
    DeleteATemplate(lngTemplateID, strErrorMessage);
}

// Afterwards the tree lands on the deleted node's neighbour (GalleryCore's
// rule); the last template gone, it lands on "Root", with open and delete
// disabled.
void ctlTemplateGallery::DeleteATemplate(qint32 lngTemplateID, QString& strErrorMessage) {
    Entry(QStringLiteral("DeleteATemplate"))
        .Arg(QStringLiteral("lngTemplateID"), lngTemplateID)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (!GalleryCore::ConfirmDelete(
                    QStringLiteral("Are you sure you want to delete this Template from your "
                                   "system? This command cannot be undone.")))
                return;
            DataAccess::Instance().DeleteTemplate(lngTemplateID, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            const VBNode node =
                m_core->TreeShown() ? m_core->FindItemNode(lngTemplateID) : VBNode();
            if (node) {
                ShowTemplates(GalleryCore::LandingKey(node));
                return;
            }
            RefreshView(m_core->NeighbourPosition());
        });
}

void ctlTemplateGallery::RefreshView(qint16 intIndexOfPreviouslySelectedItem) {
    Entry(QStringLiteral("RefreshView"))
        .Arg(QStringLiteral("intIndexOfPreviouslySelectedItem"), intIndexOfPreviouslySelectedItem)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            ShowTemplates();
            VBTreeWidget* view = m_core->ShownView();
            const qint32 lngCount = view->Count();
            if (intIndexOfPreviouslySelectedItem < 1 || lngCount == 0)
                return;
            const qint32 lngIndex = qMin<qint32>(intIndexOfPreviouslySelectedItem, lngCount);
            if (m_core->TreeShown())
                GalleryCore::SelectAndClick(tvwTemplates->Nodes(lngIndex),
                                            [&](QTreeWidgetItem* i) { tvwTemplates_NodeClick(i); });
            else
                lvwTemplates->ListItems(lngIndex).setSelected(true);
        });
}

// ---------------------------------------------------------------- Select, hide, add

void ctlTemplateGallery::SelectTemplate(qint32 lngTemplate) {
    QString strErrorMessage;
    SelectTemplate(lngTemplate, strErrorMessage);
}

// A template that the view does not show (filtered out) is left unselected.
void ctlTemplateGallery::SelectTemplate(qint32 lngTemplate, QString& strErrorMessage) {
    Entry(QStringLiteral("SelectTemplate"))
        .Arg(QStringLiteral("lngTemplate"), lngTemplate)
        .Enter()
        .ErrorReturn(strErrorMessage, [&] {
            if (m_core->TreeShown()) {
                if (const VBNode node = m_core->FindItemNode(lngTemplate))
                    GalleryCore::SelectAndClick(
                        node, [&](QTreeWidgetItem* i) { tvwTemplates_NodeClick(i); });
                return;
            }
            const QString strKey = m_core->ListKey(lngTemplate);
            if (lvwTemplates->KeyExists(strKey)) {
                VBNode item = lvwTemplates->ListItems(strKey);
                item.setSelected(true);
                item.EnsureVisible();
            }
        });
    if (!strErrorMessage.isEmpty())
        Platform::Current().MsgBox(QStringLiteral("Cannot select template  because ") +
                                   strErrorMessage);
}

void ctlTemplateGallery::HideTemplate(const QVariant& WhichTemplate) {
    Entry(QStringLiteral("HideTemplate"))
        .Arg(QStringLiteral("WhichTemplate"), WhichTemplate)
        .Spelt()
        .Enter()
        .ErrorBox([&] { tvwTemplates->Remove(WhichTemplate); });
}

void ctlTemplateGallery::AddService(const QString& strParentKey, const QString& strKey,
                                    const QString& strText, const QVariant& intImageID) {
    Entry(QStringLiteral("AddService"))
        .Arg(QStringLiteral("strKey"), strKey)
        .Spelt()
        .Enter()
        .ErrorBox([&] { tvwTemplates->Add(strParentKey, tvwChild, strKey, strText, intImageID); });
}
