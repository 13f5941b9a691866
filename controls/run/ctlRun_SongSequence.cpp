// The song sequence: the part list of a song, the mark on the part showing,
// and the operator's jumps to a part.
//
// Two numberings meet here and neither may change: the host names a part by
// its 1-based row (SIPartChanged), the console names it by row minus 1
// (ShowVerse, ShowPropVerse).
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QGroupBox>
#include <QPushButton>

namespace {
// A part of a song, in SIPartChanged's PartType.
constexpr qint16 SongPartType = 2;
} // namespace

// Builds the part list of song lngSIID: lvwPropSIContent for a prop,
// lvwSIContent otherwise. The first row is bold; the list's own default
// selection stands.
void ctlRun::SetupSong(qint32 lngSIID, bool blnIsPartOfActiveService) {
    RunMember("SetupSong")
        .Arg(QStringLiteral("lngSIID"), lngSIID)
        .Arg(QStringLiteral("blnIsPartOfActiveService"), blnIsPartOfActiveService)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            QString strErrorMessage;
            const std::shared_ptr<const Recordset> rs = m_itemRows.Row(lngSIID, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                TraceLog::Instance().WriteErrorLine(QStringLiteral("ctlRun:SetupSong: ") +
                                                    strErrorMessage);
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            if (!rs)
                throw VBError(VBErr::ObjectNotSet);
            if (rs->RecordCount() == 0) {
                // The message has one blank before the colon, the trace line two.
                Platform::Current().MsgBox(
                    QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong : No ServiceItem ") +
                    VB::CStr(lngSIID));
                TraceLog::Instance().WriteErrorLine(
                    QStringLiteral("QVLTCONTROLS:ctlRun:SetupSong  : No ServiceItem ") +
                    VB::CStr(lngSIID));
                return;
            }
            FillSongList(IsPropRun(blnIsPartOfActiveService) ? lvwPropSIContent : lvwSIContent,
                         lngSIID);
        });
}

// Columns "Name" and "First Line" (the width of lvwSIContent less 1100, for
// either list), then one row per step of the sequence.
void ctlRun::FillSongList(VBTreeWidget* lvw, qint32 lngSIID) {
    lvw->Clear();
    lvw->ClearColumnHeaders();
    lvw->AddColumnHeader(QString(), QStringLiteral("Name"), 1000);
    lvw->AddColumnHeader(QString(), QStringLiteral("First Line"),
                         Twips::FromPixels(lvwSIContent->width()) - 1100);

    // The parts are kept with the item's row; the first line's error text is not read, a
    // failure leaves the cell empty.
    const std::shared_ptr<const KeptItemRows::SongParts> parts = m_itemRows.Sequence(lngSIID);
    if (!parts)
        throw VBError(VBErr::ObjectNotSet);
    if (parts->isEmpty())
        return;
    for (const KeptItemRows::SongPart& part : *parts) {
        VBNode item = lvw->AddItem(QString(), part.strName, QVariant(),
                                   part.blnIsChorus ? QStringLiteral("imgChorus")
                                                    : QStringLiteral("imgVerse"));
        item.setSubItems(1, part.strFirstLine);
        item.setTag(part.varVerseID);
    }
    VBNode first = lvw->ListItems(1);
    first.setBold(true);
    first.setSubItemBold(1, true);
    lvw->viewport()->update();
}

// Bold on Item and its first sub-item, cleared on every other row.
void ctlRun::MarkPart(VBTreeWidget* lvw, const VBNode& Item) {
    for (qint32 i = 1; i <= lvw->topLevelItemCount(); ++i) {
        VBNode row = lvw->ListItems(i);
        row.setBold(false);
        row.setSubItemBold(1, false);
    }
    VBNode marked = Item;
    marked.setBold(true);
    marked.setSubItemBold(1, true);
}

// No handler: a part beyond the rows reaches the host, and the tool tip stays
// as it was.
void ctlRun::SIPartChanged(qint32 lngPartID, qint16 PartType) {
    RunMember("SIPartChanged")
        .Arg(QStringLiteral("lngPartID"), lngPartID)
        .Arg(QStringLiteral("PartType"), PartType)
        .Enter();
    if (PartType == SongPartType) {
        VBTreeWidget* lvw = fraPropDetails->isHidden() ? lvwSIContent : lvwPropSIContent;
        VBNode item = lvw->ListItems(lngPartID);
        lvw->setSelectedItem(item);
        MarkPart(lvw, item);
        item.EnsureVisible();
        lvw->viewport()->update();
        if (lvw == lvwSIContent)
            lvw->show();
    }
    cmdForward->setToolTip(QStringLiteral("Move Forward >>"));
}

// The host has moved the projector to the part when the event returns.
void ctlRun::lvwSIContent_ItemClick(QTreeWidgetItem* Item) {
    RunMember("lvwSIContent_ItemClick").Enter().Guarded([&] {
        const VBNode item(Item);
        emit ShowVerse(VB::CInt(item.Index() - 1));
        MarkPart(lvwSIContent, item);
        lvwSIContent->viewport()->update();
        RefreshScreenMirror();
    });
}

// As lvwSIContent_ItemClick for a part of the prop; the mirror is left alone.
void ctlRun::lvwPropSIContent_ItemClick(QTreeWidgetItem* Item) {
    RunMember("lvwPropSIContent_ItemClick").Enter().Guarded([&] {
        const VBNode item(Item);
        emit ShowPropVerse(VB::CInt(item.Index() - 1));
        MarkPart(lvwPropSIContent, item);
        lvwPropSIContent->viewport()->update();
    });
}
