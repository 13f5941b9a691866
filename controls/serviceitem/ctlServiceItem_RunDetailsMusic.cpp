#include "serviceitem/ctlServiceItem.h"
#include "serviceitem/ctlServiceItem_RunDetails.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

#include <QLineEdit>

// The Run Mode Details tab, the music that starts with the item: a music file
// or a music service item. txtMusicFile shows its name; its Tag holds what is
// stored (the file's path, or the music item's id as text).

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

constexpr qint16 kMusicType = 10;
constexpr qint32 kCancelSelected = 32755;
} // namespace

void ctlServiceItem::SetMusic(const QString& strTag, const QString& strText) {
    const bool blnChanged =
        txtMusicFile->property("Tag").toString() != strTag || txtMusicFile->text() != strText;
    txtMusicFile->setProperty("Tag", strTag);
    txtMusicFile->setText(strText);
    if (blnChanged)
        Changed(TabRunDetails);
}

// Cancel in the dialog leaves the music as it was; a file that is not there
// or is no music is refused with a word of why.
void ctlServiceItem::cmdBrowseMusicFile_Click() {
    const auto entry = Entry("cmdBrowseMusicFile_Click").Enter();
    entry.FullErrorBox([&] {
        Platform& platform = Platform::Current();
        QString strFile;
        try {
            strFile =
                platform.ShowOpen(QStringLiteral("Files (*.mp3;*.wav;*.mid)|*.mp3;*.wav;*.mid"),
                                  QStringLiteral("Select a music file"));
        } catch (const VBError& error) {
            if (error.Number == kCancelSelected)
                return;
            throw;
        }
        if (strFile.isEmpty())
            return;
        if (!platform.FileExists(Platform::LocalPath(strFile))) {
            platform.MsgBox(QStringLiteral("The music file \"%1\" cannot be found. It may have "
                                           "been moved or deleted; please choose it again.")
                                .arg(strFile),
                            vbExclamation, QStringLiteral("File not found"));
            return;
        }
        if (!RunDetails::IsMusicFile(strFile)) {
            platform.MsgBox(QStringLiteral("\"%1\" is not a music file. Please choose a .mp3, "
                                           ".wav or .mid file.")
                                .arg(RunDetails::BareFileName(strFile)),
                            vbExclamation, QStringLiteral("Not a music file"));
            return;
        }
        SetMusic(strFile, RunDetails::BareFileName(strFile));
    });
}

// A music item chosen in the picker; Cancel there clears the music.
void ctlServiceItem::cmdSelectMusicSI_Click() {
    const auto entry = Entry("cmdSelectMusicSI_Click").Enter();
    entry.Guarded([&] {
        DataAccess& da = DataAccess::Instance();
        QString strErrorMessage;
        qint32 lngID = 0;
        da.PickServiceItem(kMusicType, strErrorMessage, lngID);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (lngID == 0) {
            SetMusic(QString(), QString());
            return;
        }
        std::unique_ptr<Recordset> rs;
        da.GetServiceItems(QStringLiteral("ServiceItemID = ") + QString::number(lngID), 4,
                           strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0) {
            TraceLog::Instance().WriteTraceLine(QStringLiteral("cmdSelectMusicSI_Click: SI ") +
                                                QString::number(lngID) +
                                                QStringLiteral(" not found"));
            return;
        }
        rs->MoveFirst();
        SetMusic(QString::number(lngID),
                 Decoded(VB::Text(rs->Fields(QStringLiteral("ServiceItemDescription")))));
    });
}
