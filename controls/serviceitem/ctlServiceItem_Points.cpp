#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/PointList.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

#include <QPushButton>
#include <QRadioButton>

// The Points List tab and the song breakdown. The outline is stored whole, in
// its own transaction, at every change the user makes in it; the breakdown
// wizard cuts a song into its parts so that it can run verse by verse.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

constexpr qint32 PointTextTooLong = 513;
} // namespace

void ctlServiceItem::LoadPoints() {
    const auto entry = Entry("LoadPoints").Enter();
    entry.FullErrorBox([&] {
        const bool blnSaveEnabled = cmdSave->isEnabled();
        PointList1->Clear();
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetPoints(QStringLiteral("ServiceItemID = ") +
                                             QString::number(lngServiceItemID),
                                         4, strErrorMessage, rs);
        // An item without points counts as not loaded, so the next visit asks again.
        if (!rs || rs->RecordCount() == 0)
            return;
        // A point whose notes are Null takes the notes of the point before it.
        QVariant varNotes;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const QVariant varRowNotes = rs->Fields(QStringLiteral("PointNotes"));
            if (!varRowNotes.isNull())
                varNotes = varRowNotes;
            PointList1->AddPoint(VB::Text(rs->Fields(QStringLiteral("PointKey"))),
                                 VB::Text(rs->Fields(QStringLiteral("ParentPointKey"))),
                                 VB::Text(rs->Fields(QStringLiteral("PointText"))), QVariant(),
                                 varNotes);
        }
        PointList1->Redraw();
        blnPointsLoaded = true;
        cmdSave->setEnabled(blnSaveEnabled);
    });
}

// Writes the whole outline again. An empty outline leaves the stored points as
// they were (the transaction is rolled back), and only makes the run details
// be read again on the next visit.
void ctlServiceItem::SavePoints() {
    const auto entry = Entry("SavePoints").Enter();
    DataAccess& da = DataAccess::Instance();
    bool blnOpen = false;
    const bool blnDone = entry.FullErrorBox([&] {
        QString strSelectedKey;
        const PointList::Point selected = PointList1->SelectedPoint();
        if (!selected.IsNothing())
            strSelectedKey = selected.Key();
        da.BeginTrans();
        blnOpen = true;
        QString strErrorMessage;
        da.DeleteServiceItemPoints(lngServiceItemID, strErrorMessage);
        const qint32 lngCount = PointList1->Points().Count();
        if (lngCount == 0) {
            da.ClearRunAsPointsList(lngServiceItemID, strErrorMessage);
            blnRunDetailsLoaded = false;
            return;
        }
        PointList::Point point = PointList1->NextPoint(true);
        for (qint32 i = 1; i <= lngCount - 1; ++i) {
            const PointList::Point parent = point.Parent();
            const QString strParentKey = parent.IsNothing() ? QString() : parent.Key();
            da.SavePoint(lngServiceItemID, point.Text(), 0, point.Key(), strParentKey,
                         VB::Text(point.Notes()), strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(QStringLiteral("SavePoints:") + strErrorMessage);
                return;
            }
            point = PointList1->NextPoint(false);
        }
        PointList1->Redraw(strSelectedKey);
        da.CommitTrans();
        blnOpen = false;
    });
    Q_UNUSED(blnDone);
    if (blnOpen && da.InTransaction())
        da.Rollback();
}

void ctlServiceItem::PointList1_PointChanged() {
    const auto entry = Entry("PointList1_PointChanged").Enter();
    entry.Guarded([&] { SavePoints(); });
}

// A renamed point is stored like any change; a text over the limit is refused
// and the outline shows what is stored.
void ctlServiceItem::PointList1_PointRenamed() {
    Entry("PointList1_PointRenamed").Enter();
    try {
        const PointList::Point point = PointList1->SelectedPoint();
        if (!point.IsNothing() && PointList1->maxlengthofpointtext() > 0 &&
            point.Text().size() > PointList1->maxlengthofpointtext())
            throw VBError(PointTextTooLong, QStringLiteral("Point text is too long"));
        SavePoints();
    } catch (...) {
        const VBError e = ErrorReport::Current(std::current_exception());
        if (e.Number == PointTextTooLong) {
            Platform::Current().MsgBox(QStringLiteral("Point text is too long"), vbOKOnly,
                                       QStringLiteral("Invalid Entry"));
            LoadPoints();
        } else {
            Platform::Current().MsgBox(QString::number(e.Number) + QStringLiteral(" ") +
                                       e.Description);
        }
    }
}

// ---------------------------------------------------------------- The song breakdown

bool ctlServiceItem::ItemHasVerses() {
    bool blnHasVerses = false;
    QString strErrorMessage;
    DataAccess::Instance().ServiceItemHasVerses(VB::CLng(m_strItems), strErrorMessage,
                                                blnHasVerses);
    return blnHasVerses;
}

void ctlServiceItem::cmdRunBreakDownWizard_Click() {
    const auto entry = Entry("cmdRunBreakDownWizard_Click").Enter();
    entry.Guarded([&] {
        if (ItemHasVerses()) {
            const qint32 intAnswer = Platform::Current().MsgBox(
                QStringLiteral("This song/hymn has already been broken down into its parts. Are "
                               "you sure you want to break it down again?"),
                vbYesNoCancel | vbQuestion, QStringLiteral("Break song/hymn down again"));
            if (intAnswer != vbYes)
                return;
        }
        QString strErrorMessage;
        qint16 intResult = 0;
        DataAccess::Instance().RunSongBreakdownWizard(VB::CLng(m_strItems), strErrorMessage,
                                                      intResult);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
        if (intResult == 1) {
            optVerseByVerse->setChecked(true);
            SaveRunDetails();
        }
    });
}

// The one option stored at once: a song not yet broken down is broken down
// first, with no question.
void ctlServiceItem::optVerseByVerse_Click() {
    const auto entry = Entry("optVerseByVerse_Click").Enter();
    entry.Guarded([&] {
        if (optVerseByVerse->isChecked() && !ItemHasVerses())
            RunBreakdownWizard();
        SaveRunDetails();
    });
}

void ctlServiceItem::RunBreakdownWizard() {
    QString strErrorMessage;
    qint16 intResult = 0;
    DataAccess::Instance().RunSongBreakdownWizard(VB::CLng(m_strItems), strErrorMessage, intResult);
    if (!strErrorMessage.isEmpty())
        Platform::Current().MsgBox(strErrorMessage);
}
