#include "foundations/MediaSound.h"

#include "foundations/Platform.h"

#include <QAudioOutput>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QUrl>

MediaSound::~MediaSound() = default;

QtMediaSound::QtMediaSound(QObject* parent)
    : MediaSound(parent), m_output(new QAudioOutput(this)), m_player(new QMediaPlayer(this)) {
    m_player->setAudioOutput(m_output);
    connect(m_player, &QMediaPlayer::mediaStatusChanged, this,
            [this](QMediaPlayer::MediaStatus status) {
                if (status == QMediaPlayer::EndOfMedia)
                    emit Finished();
            });
    connect(m_player, &QMediaPlayer::errorOccurred, this,
            [this](QMediaPlayer::Error error, const QString& strError) {
                if (error != QMediaPlayer::NoError)
                    emit Failed(strError);
            });
}

QtMediaSound::~QtMediaSound() {
    m_player->stop();
}

void QtMediaSound::Load(const QString& strFile) {
    m_player->stop();
    const QString strLocal = Platform::LocalPath(strFile);
    m_player->setSource(
        strLocal.isEmpty() ? QUrl() : QUrl::fromLocalFile(QFileInfo(strLocal).absoluteFilePath()));
}

void QtMediaSound::Play() {
    m_player->play();
}

void QtMediaSound::Stop() {
    m_player->stop();
}
