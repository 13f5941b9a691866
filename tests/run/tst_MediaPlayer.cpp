// The run console's media player: a file, the operator's two buttons, and the
// sound behind them. Most tests hear ScriptedPlatform's silent sound; the last
// two play real files through Qt Multimedia.
#include "ScriptedPlatform.h"

#include "foundations/MediaSound.h"
#include "run/MediaPlayer.h"

#include <QDataStream>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

// A WAV file of lngMilliseconds of silence: 8 kHz, 8-bit mono PCM.
bool WriteSilence(const QString& strPath, qint32 lngMilliseconds) {
    QFile file(strPath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const quint32 samples = 8000u * static_cast<quint32>(lngMilliseconds) / 1000u;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + samples);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(8000) << quint32(8000) << quint16(1)
        << quint16(8);
    out.writeRawData("data", 4);
    out << samples;
    const QByteArray silence(static_cast<qsizetype>(samples), char(0x80));
    out.writeRawData(silence.constData(), static_cast<int>(silence.size()));
    return out.status() == QDataStream::Ok;
}

} // namespace

class tst_MediaPlayer : public QObject {
    Q_OBJECT

private slots:
    void nothingIsAskedOfTheSoundBeforeAFileIsLoaded();
    void loadingAFileAsksTheSoundToLoadItAndPlaysNothing();
    void fileNameIsAPropertyAHostCanWriteByName();
    void playAndStopAskTheSoundAndSwitchTheButtons();
    void operatorPlaysAndStopsOnTheTwoButtons();
    void fileThatPlaysToItsEndLeavesThePlayerStopped();
    void fileThatCannotBePlayedSaysWhyInTheToolTip();
    void loadingAnotherFileStopsThePlayer();
    void oneSoundServesEveryFileOfAPlayer();
    void storedPathWithBackslashesShowsItsFileName();
    void realSoundPlaysAWaveFileToItsEnd();
    void realSoundSaysWhyAFileCannotBePlayed();
};

void tst_MediaPlayer::nothingIsAskedOfTheSoundBeforeAFileIsLoaded() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.Play();
    player.Stop();
    QVERIFY(platform.SoundCalls().isEmpty());
    QCOMPARE(platform.LastSound(), nullptr);
    QVERIFY(!player.IsPlaying());
    QVERIFY(!player.cmdPlay->isEnabled());
    QVERIFY(!player.cmdStop->isEnabled());
    QVERIFY(player.lblFileName->text().isEmpty());
}

void tst_MediaPlayer::loadingAFileAsksTheSoundToLoadItAndPlaysNothing() {
    ScriptedPlatform platform;
    MediaPlayer player;
    QSignalSpy state(&player, &MediaPlayer::PlayStateChanged);

    player.setFileName(QStringLiteral("/music/organ.wav"));

    QCOMPARE(platform.SoundCalls(), QStringList({QStringLiteral("Load /music/organ.wav")}));
    QCOMPARE(player.FileName(), QStringLiteral("/music/organ.wav"));
    QVERIFY(!player.IsPlaying());
    QCOMPARE(state.count(), 0);
    QVERIFY(player.cmdPlay->isEnabled());
    QVERIFY(!player.cmdStop->isEnabled());
    QCOMPARE(player.lblFileName->text(), QStringLiteral("organ.wav"));
    QCOMPARE(player.lblFileName->toolTip(), QStringLiteral("/music/organ.wav"));
}

void tst_MediaPlayer::fileNameIsAPropertyAHostCanWriteByName() {
    ScriptedPlatform platform;
    MediaPlayer player;
    QVERIFY(player.setProperty("FileName", QStringLiteral("/music/hymn.mp3")));
    QCOMPARE(player.property("FileName").toString(), QStringLiteral("/music/hymn.mp3"));
    QCOMPARE(platform.SoundCalls(), QStringList({QStringLiteral("Load /music/hymn.mp3")}));
}

void tst_MediaPlayer::playAndStopAskTheSoundAndSwitchTheButtons() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("/music/organ.wav"));
    QSignalSpy state(&player, &MediaPlayer::PlayStateChanged);

    player.Play();
    QVERIFY(player.IsPlaying());
    QVERIFY(!player.cmdPlay->isEnabled());
    QVERIFY(player.cmdStop->isEnabled());
    player.Stop();
    QVERIFY(!player.IsPlaying());
    QVERIFY(player.cmdPlay->isEnabled());
    QVERIFY(!player.cmdStop->isEnabled());

    QCOMPARE(platform.SoundCalls(), QStringList({QStringLiteral("Load /music/organ.wav"),
                                                 QStringLiteral("Play"), QStringLiteral("Stop")}));
    QCOMPARE(state.count(), 2);
    QCOMPARE(state.at(0).first().toBool(), true);
    QCOMPARE(state.at(1).first().toBool(), false);
}

void tst_MediaPlayer::operatorPlaysAndStopsOnTheTwoButtons() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.show();
    QVERIFY(QTest::qWaitForWindowExposed(&player));
    player.setFileName(QStringLiteral("/music/organ.wav"));
    platform.ClearRecords();

    QTest::mouseClick(player.cmdPlay, Qt::LeftButton);
    QVERIFY(player.IsPlaying());
    QTest::mouseClick(player.cmdPlay, Qt::LeftButton); // disabled while it plays
    QTest::mouseClick(player.cmdStop, Qt::LeftButton);
    QVERIFY(!player.IsPlaying());

    QCOMPARE(platform.SoundCalls(), QStringList({QStringLiteral("Play"), QStringLiteral("Stop")}));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_MediaPlayer::fileThatPlaysToItsEndLeavesThePlayerStopped() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("/music/organ.wav"));
    player.Play();
    QSignalSpy state(&player, &MediaPlayer::PlayStateChanged);

    emit platform.LastSound()->Finished();

    QVERIFY(!player.IsPlaying());
    QVERIFY(player.cmdPlay->isEnabled());
    QVERIFY(!player.cmdStop->isEnabled());
    QCOMPARE(state.count(), 1);
    QCOMPARE(player.FileName(), QStringLiteral("/music/organ.wav"));
}

void tst_MediaPlayer::fileThatCannotBePlayedSaysWhyInTheToolTip() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("/music/organ.wav"));
    player.Play();

    emit platform.LastSound()->Failed(QStringLiteral("No decoder for this file"));

    QVERIFY(!player.IsPlaying());
    QCOMPARE(player.lblFileName->toolTip(),
             QStringLiteral("/music/organ.wav\nNo decoder for this file"));
    QVERIFY(player.cmdPlay->isEnabled());
}

void tst_MediaPlayer::loadingAnotherFileStopsThePlayer() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("/music/organ.wav"));
    player.Play();
    player.setFileName(QStringLiteral("/music/hymn.mp3"));
    QVERIFY(!player.IsPlaying());
    QVERIFY(player.cmdPlay->isEnabled());
    QCOMPARE(player.lblFileName->text(), QStringLiteral("hymn.mp3"));
    QCOMPARE(platform.SoundCalls().last(), QStringLiteral("Load /music/hymn.mp3"));
}

void tst_MediaPlayer::oneSoundServesEveryFileOfAPlayer() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("/music/organ.wav"));
    MediaSound* first = platform.LastSound();
    player.setFileName(QStringLiteral("/music/hymn.mp3"));
    QCOMPARE(platform.LastSound(), first);
    MediaPlayer other;
    other.setFileName(QStringLiteral("/music/hymn.mp3"));
    QVERIFY(platform.LastSound() != first);
}

void tst_MediaPlayer::storedPathWithBackslashesShowsItsFileName() {
    ScriptedPlatform platform;
    MediaPlayer player;
    player.setFileName(QStringLiteral("C:\\Music\\Organ Prelude.mp3"));
    QCOMPARE(player.lblFileName->text(), QStringLiteral("Organ Prelude.mp3"));
    QCOMPARE(player.FileName(), QStringLiteral("C:\\Music\\Organ Prelude.mp3"));
}

// Qt Multimedia's own sound: a short file plays and ends by itself.
void tst_MediaPlayer::realSoundPlaysAWaveFileToItsEnd() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString strFile = dir.filePath(QStringLiteral("silence.wav"));
    QVERIFY(WriteSilence(strFile, 300));
    MediaPlayer player;
    QSignalSpy state(&player, &MediaPlayer::PlayStateChanged);

    player.setFileName(strFile);
    player.Play();

    QVERIFY(player.IsPlaying());
    QTRY_VERIFY_WITH_TIMEOUT(!player.IsPlaying(), 20000);
    QCOMPARE(player.lblFileName->toolTip(), strFile);
    QCOMPARE(state.count(), 2);
}

void tst_MediaPlayer::realSoundSaysWhyAFileCannotBePlayed() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString strFile = dir.filePath(QStringLiteral("notes.mp3"));
    QFile file(strFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("These are not sounds but words.");
    file.close();
    MediaPlayer player;

    player.setFileName(strFile);
    player.Play();

    QTRY_VERIFY_WITH_TIMEOUT(!player.IsPlaying(), 20000);
    QVERIFY(player.lblFileName->toolTip().startsWith(strFile + QStringLiteral("\n")));
    QVERIFY(player.lblFileName->toolTip().size() > strFile.size() + 1);
}

QTEST_MAIN(tst_MediaPlayer)
#include "tst_MediaPlayer.moc"
