// The music of an item, played on MediaPlayer2.
#include "run/ctlRun.h"

#include "DataAccess.h"
#include "foundations/TraceLine.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

qint16 ctlRun::PlayMusic(qint32 lngSIID, QString& strErrorMessage) {
    TraceLine("ctlRun", "PlayMusic")
        .Arg(QStringLiteral("lngSIID"), lngSIID)
        .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
        .Write();
    return PlayMusicOfItem(lngSIID, strErrorMessage);
}

qint16 ctlRun::PlayMusic(qint32 lngSIID) {
    QString strErrorMessage;
    return PlayMusic(lngSIID, strErrorMessage);
}

// Loading the item's music into the player. MediaPlayer2 is not a player
// yet, so nothing is loaded; the answer is 0, as for music that was loaded,
// and the item goes on to its captions.
qint16 ctlRun::PlayMusicOfItem(qint32 lngSIID, QString& strErrorMessage) {
    Q_UNUSED(lngSIID);
    Q_UNUSED(strErrorMessage);
    return 0;
}

// Stops what MediaPlayer2 plays; with no player there is nothing to stop.
void ctlRun::StopMusic() {}

// The AutoPlayMusic option. No handler.
bool ctlRun::ShouldAutoPlayMusic() {
    TraceLine("ctlRun", "ShouldAutoPlayMusic").Write();
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetOptions(strErrorMessage, rs);
    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    const QVariant varAutoPlay = rs->Fields(QStringLiteral("AutoPlayMusic"));
    return !varAutoPlay.isNull() && VB::CBool(varAutoPlay);
}
