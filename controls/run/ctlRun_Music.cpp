// The music of an item, played on MediaPlayer2.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"
#include "run/MediaPlayer.h"

namespace {
constexpr qint16 MusicType = 10;

// The answers of PlayMusic.
constexpr qint16 MusicLoaded = 0;
constexpr qint16 MusicOfAnotherItem = 1;
constexpr qint16 MusicNotFound = 2;
constexpr qint16 MusicMoved = 3;

// Error 28, as the runtime reports a recursion that does not end.
constexpr qint32 OutOfStackSpace = 28;

const QString& ErrorLinePrefix() {
    static const QString prefix = QStringLiteral("QVLTCONTROLS:ctlRun:PlayMusic: ");
    return prefix;
}

// Holds an item on the chain of music look-ups while its music is looked up.
class MusicChainLink {
public:
    MusicChainLink(QList<qint32>& lstChain, qint32 lngSIID) : m_lstChain(lstChain) {
        m_lstChain.append(lngSIID);
    }
    ~MusicChainLink() { m_lstChain.removeLast(); }
    MusicChainLink(const MusicChainLink&) = delete;
    MusicChainLink& operator=(const MusicChainLink&) = delete;

private:
    QList<qint32>& m_lstChain;
};

const QString& MovedLine() {
    static const QString line =
        ErrorLinePrefix() +
        QStringLiteral(
            "The music file you want to listen to has been moved from its original position");
    return line;
}
} // namespace

qint16 ctlRun::PlayMusic(qint32 lngSIID, QString& strErrorMessage) {
    const auto entry = RunMember("PlayMusic")
                           .Arg(QStringLiteral("lngSIID"), lngSIID)
                           .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
                           .Enter();
    qint16 intResult = 0;
    entry.FullErrorBox([&] {
        // A link that leads back to an item on the way would never end.
        if (m_lstMusicChain.contains(lngSIID))
            throw VBError(OutOfStackSpace, QStringLiteral("Out of stack space"));
        const MusicChainLink link(m_lstMusicChain, lngSIID);
        intResult = PlayMusicOfItem(lngSIID, strErrorMessage);
    });
    return intResult;
}

qint16 ctlRun::PlayMusic(qint32 lngSIID) {
    QString strErrorMessage;
    return PlayMusic(lngSIID, strErrorMessage);
}

// The prompt comes before anything is loaded, so that the operator can cue
// the music; a music item plays its own file, any other item what its
// ServiceItemMusic names.
qint16 ctlRun::PlayMusicOfItem(qint32 lngSIID, QString& strErrorMessage) {
    const std::unique_ptr<Recordset> rs = ServiceItemRow(lngSIID, strErrorMessage);
    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    if (rs->RecordCount() == 0) {
        strErrorMessage = QStringLiteral("QVLTCONTROLS:ctlRun:PlayMusic Service item ") +
                          VB::CStr(lngSIID) + QStringLiteral(" not found");
        TraceLog::Instance().WriteErrorLine(ErrorLinePrefix() + QStringLiteral("Service item ") +
                                            VB::CStr(lngSIID) + QStringLiteral(" not found"));
        return MusicNotFound;
    }
    const QVariant varPrompt = rs->Fields(QStringLiteral("StartMusicPrompt"));
    if (!varPrompt.isNull() && !VB::Text(varPrompt).isEmpty())
        Platform::Current().MsgBox(VB::Text(varPrompt), vbInformation, QStringLiteral("Prompt"));
    if (VB::CInt(rs->Fields(QStringLiteral("ServiceItemTypeID"))) == MusicType)
        return PlayMusicOfMusicItem(lngSIID, strErrorMessage);
    return PlayMusicOfLink(lngSIID, rs->Fields(QStringLiteral("ServiceItemMusic")),
                           strErrorMessage);
}

// A music item whose file has moved answers 0, so that the item goes on to
// its captions; its stored music link is cleared.
qint16 ctlRun::PlayMusicOfMusicItem(qint32 lngSIID, QString& strErrorMessage) {
    DataAccess& da = DataAccess::Instance();
    QString strPath;
    da.GetServiceItemFileName(lngSIID, strErrorMessage, strPath);
    if (!strErrorMessage.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(ErrorLinePrefix() + strErrorMessage);
        return MusicNotFound;
    }
    if (strPath.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(MovedLine());
        return MusicMoved;
    }
    if (Platform::Current().FileExists(strPath)) {
        LoadMusic(strPath);
        return MusicLoaded;
    }
    TellMusicFileMoved();
    da.ClearServiceItemMusic(lngSIID, strErrorMessage);
    if (!strErrorMessage.isEmpty())
        TraceLog::Instance().WriteErrorLine(ErrorLinePrefix() + strErrorMessage);
    return MusicLoaded;
}

// ServiceItemMusic holds the id of a music item, or a file path. A linked
// file that has moved answers 3, so that the item leaves before its
// captions; the link is cleared, so that the next run does not ask again.
qint16 ctlRun::PlayMusicOfLink(qint32 lngSIID, const QVariant& varMusic, QString& strErrorMessage) {
    if (VB::IsNumeric(varMusic)) {
        // The other item's answer and text are its own.
        QString strOwnErrorMessage;
        PlayMusic(VB::CLng(varMusic), strOwnErrorMessage);
        return MusicOfAnotherItem;
    }
    const QString strPath = VB::Text(varMusic);
    if (Platform::Current().FileExists(strPath)) {
        LoadMusic(strPath);
        return MusicLoaded;
    }
    TellMusicFileMoved();
    DataAccess::Instance().ClearServiceItemMusic(lngSIID, strErrorMessage);
    return MusicMoved;
}

void ctlRun::TellMusicFileMoved() {
    Platform::Current().MsgBox(
        QStringLiteral("The music file associated with this Service Item has been moved from "
                       "its original position and cannot be played"),
        vbOKOnly, QStringLiteral("File not found"));
    TraceLog::Instance().WriteErrorLine(MovedLine());
}

// The operator starts the music on the player's own controls unless the
// AutoPlayMusic option plays it at once.
void ctlRun::LoadMusic(const QString& strPath) {
    MediaPlayer2->setFileName(strPath);
    MediaPlayer2->show();
    if (ShouldAutoPlayMusic())
        MediaPlayer2->Play();
}

void ctlRun::StopMusic() {
    MediaPlayer2->Stop();
}

bool ctlRun::ShouldAutoPlayMusic() {
    RunMember("ShouldAutoPlayMusic").Enter();
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetOptions(strErrorMessage, rs);
    if (!rs)
        throw VBError(VBErr::ObjectNotSet);
    const QVariant varAutoPlay = rs->Fields(QStringLiteral("AutoPlayMusic"));
    return !varAutoPlay.isNull() && VB::CBool(varAutoPlay);
}
