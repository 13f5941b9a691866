// Showing a service item as the one running: labels, part list, captions.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/SSTab.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "run/MediaPlayer.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {
// Left of ssTabExtras while tvwRun shows beside it.
constexpr qint32 ExtrasLeftBesideTree = 4320;

bool IsPictureType(qint16 intType) {
    return intType == 4 || intType == 5;
}
constexpr qint16 MusicType = 10;
} // namespace

// A prop runs when an item outside the running order is shown while a
// service is loaded.
bool ctlRun::IsPropRun(bool blnIsPartOfActiveService) const {
    return !blnIsPartOfActiveService && m_lngRunningServiceID != 0;
}

// No handler: an index beyond the nodes reaches the host.
void ctlRun::ShowServiceSIAsRunning(qint16 intServiceSI, qint32 lngNewPartID, qint16 NewPartType) {
    RunMember("ShowServiceSIAsRunning")
        .Arg(QStringLiteral("intServiceSI"), intServiceSI)
        .Arg(QStringLiteral("lngNewPartID"), lngNewPartID)
        .Arg(QStringLiteral("NewPartType"), NewPartType)
        .Enter();
    ClearBoldNodes();
    VBNode node = tvwRun->Nodes(static_cast<qint32>(intServiceSI) + 1);
    node.setBold(true);
    tvwRun->setSelectedItem(node);
    ShowSIAsRunning(VB::CLng(node.Tag()), true);
    if (lngNewPartID == 0)
        return;

    // A visible part list keeps its highlight where it is: the selected row is
    // compared with the part and the answer is not used. A list that has just
    // been built starts at its first row.
    VBTreeWidget* lvwShowing = nullptr;
    if (!fraPropDetails->isHidden())
        lvwShowing = lvwPropSIContent;
    else if (!lvwSIContent->isHidden())
        lvwShowing = lvwSIContent;
    if (lvwShowing) {
        const VBNode selected = lvwShowing->SelectedItem();
        const bool blnAtPart = selected && selected.Index() == lngNewPartID;
        Q_UNUSED(blnAtPart);
        return;
    }
    SIPartChanged(lngNewPartID, NewPartType);
}

// No handler: a failure inside reaches the caller, with the widgets as far as
// they came. The texts formed for an unknown item and for music that failed
// are shown nowhere.
void ctlRun::ShowSIAsRunning(qint32 lngSIID, bool blnIsPartOfActiveService) {
    RunMember("ShowSIAsRunning")
        .Arg(QStringLiteral("lngSIID"), lngSIID)
        .Arg(QStringLiteral("blnIsPartOfActiveService"), blnIsPartOfActiveService)
        .Enter();
    const bool blnIsPropRun = IsPropRun(blnIsPartOfActiveService);
    // A prop leaves the main part list and any playing music alone.
    if (!blnIsPropRun) {
        lvwSIContent->hide();
        StopMusic();
        MediaPlayer2->hide();
    }

    QString strErrorMessage;
    std::shared_ptr<const Recordset> rs = m_itemRows.Row(lngSIID, strErrorMessage);
    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    if (rs->RecordCount() == 0) {
        const QString strNotFound = QStringLiteral("ServiceItem ") + VB::CStr(lngSIID) +
                                    QStringLiteral(" does not exist in the database");
        Q_UNUSED(strNotFound);
        return;
    }
    const qint16 intType = VB::CInt(rs->Fields(QStringLiteral("ServiceItemTypeID")));

    QString strDescription;
    ShowSILabels(*rs, lngSIID, intType, blnIsPropRun, strDescription);
    ShowSIFrame(blnIsPartOfActiveService, strDescription);
    if (!ShowSIContent(*rs, lngSIID, intType, blnIsPartOfActiveService))
        return;
    // Leaving here keeps the captions as they were.
    if (!ShowSIMusic(*rs, lngSIID, intType))
        return;
    rs.reset();
    ShowSICaptions(blnIsPropRun);
    // Ends the state of being at the end of an item.
    cmdForward->setToolTip(QStringLiteral("Move Forward >>"));
}

// The type goes to lblSIType in a prop run too (only the Blank item goes to
// lblPropType); the description to the label of the run. A Null description
// leaves that label as it was and strDescription empty.
void ctlRun::ShowSILabels(const Recordset& rs, qint32 lngSIID, qint16 intType, bool blnIsPropRun,
                          QString& strDescription) {
    if (lngSIID == 1) {
        (blnIsPropRun ? lblPropType : lblSIType)->setText(QStringLiteral("Blank"));
        (blnIsPropRun ? lblPropDescription : lblSIDescription)->clear();
        return;
    }
    QString strErrorMessage;
    lblSIType->setText(m_itemRows.TypeName(intType, strErrorMessage));
    const QVariant varDescription = rs.Fields(QStringLiteral("ServiceItemDescription"));
    if (varDescription.isNull())
        return;
    DataAccess::Instance().DecodeStoredText(VB::Text(varDescription), strErrorMessage,
                                            strDescription);
    (blnIsPropRun ? lblPropDescription : lblSIDescription)->setText(strDescription);
}

// The tree shows for a service run; one item by itself takes its place.
void ctlRun::ShowSIFrame(bool blnIsPartOfActiveService, const QString& strDescription) {
    if (blnIsPartOfActiveService || m_lngRunningServiceID != 0) {
        tvwRun->show();
        ssTabExtras->move(Twips::ToPixels(ExtrasLeftBesideTree), ssTabExtras->y());
    } else {
        tvwRun->hide();
        ssTabExtras->move(tvwRun->x(), ssTabExtras->y());
        lblMainCaption->setText(QStringLiteral("Running Service item: ") + strDescription);
    }
}

// Pictures show no part list; a music item plays; any other item shows its
// song sequence when it has one. Returns false where the item leaves early.
bool ctlRun::ShowSIContent(const Recordset& rs, qint32 lngSIID, qint16 intType,
                           bool blnIsPartOfActiveService) {
    if (IsPictureType(intType))
        return true;
    if (intType == MusicType) {
        QString strMusicError;
        PlayMusic(lngSIID, strMusicError);
        return strMusicError.isEmpty();
    }
    QString strErrorMessage;
    const bool blnHasVerses = m_itemRows.HasVerses(lngSIID, strErrorMessage);
    // The answer is tested before the error text: an error with the answer
    // False goes by, and the item is shown as text.
    if (!blnHasVerses) {
        // The view mode and the sub-point option are read; nothing in the
        // console depends on them.
        const QVariant varTextViewMode = rs.Fields(QStringLiteral("TextViewMode"));
        const qint32 lngMode = VB::IsNumeric(varTextViewMode) ? VB::CLng(varTextViewMode) : 0;
        if (lngMode == 4 || lngMode == 5 || lngMode == 6) {
            const QVariant varReveal = rs.Fields(QStringLiteral("RevealSubPointsOneByOne"));
            Q_UNUSED(varReveal);
        }
        return true;
    }
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(
            QStringLiteral("QVLTDBFUNCTIONS:frmRun:RunServiceItem:") + strErrorMessage);
        return false;
    }
    SetupSong(lngSIID, blnIsPartOfActiveService);
    if (IsPropRun(blnIsPartOfActiveService)) {
        fraPropDetails->show();
        lvwPropSIContent->show();
    } else {
        fraPropDetails->hide();
        lvwSIContent->show();
    }
    return true;
}

// The item's own music link; a music item has played already. Returns false
// where the item leaves early.
bool ctlRun::ShowSIMusic(const Recordset& rs, qint32 lngSIID, qint16 intType) {
    if (intType == MusicType)
        return true;
    const QVariant varMusic = rs.Fields(QStringLiteral("ServiceItemMusic"));
    if (varMusic.isNull() || VB::Text(varMusic).isEmpty())
        return true;
    QString strMusicError;
    const qint16 intResult = PlayMusic(lngSIID, strMusicError);
    if (!strMusicError.isEmpty())
        return false;
    if (intResult == 2) {
        const QString strFailed =
            QStringLiteral("ShowSIAsRunning: Failed to play music for Service item ") +
            VB::CStr(lngSIID);
        Q_UNUSED(strFailed);
        return false;
    }
    return intResult != 3;
}

void ctlRun::ShowSICaptions(bool blnIsPropRun) {
    if (blnIsPropRun) {
        fraPropDetails->show();
        cmdEnd->setText(QStringLiteral("&End Prop"));
        fraMain->setTitle(QStringLiteral("This service item is NOT part of the active service"));
    } else {
        fraPropDetails->hide();
        cmdEnd->setText(QStringLiteral("&End"));
        fraMain->setTitle(QStringLiteral("Showing Now"));
    }
}
