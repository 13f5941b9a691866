// The run console's media player: a file, two buttons, and a sound from the
// platform.
#include "run/MediaPlayer.h"

#include "foundations/ErrorReport.h"
#include "foundations/MediaSound.h"
#include "foundations/Platform.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

MediaPlayer::MediaPlayer(QWidget* parent) : QWidget(parent) {
    cmdPlay = new QPushButton(this);
    cmdPlay->setObjectName(QStringLiteral("cmdPlay"));
    cmdPlay->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    cmdPlay->setToolTip(QStringLiteral("Play"));
    cmdPlay->setAccessibleName(QStringLiteral("Play"));
    cmdStop = new QPushButton(this);
    cmdStop->setObjectName(QStringLiteral("cmdStop"));
    cmdStop->setIcon(style()->standardIcon(QStyle::SP_MediaStop));
    cmdStop->setToolTip(QStringLiteral("Stop"));
    cmdStop->setAccessibleName(QStringLiteral("Stop"));
    lblFileName = new QLabel(this);
    lblFileName->setObjectName(QStringLiteral("lblFileName"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(cmdPlay);
    layout->addWidget(cmdStop);
    layout->addWidget(lblFileName, 1);

    connect(cmdPlay, &QPushButton::clicked, this, &MediaPlayer::cmdPlay_Click);
    connect(cmdStop, &QPushButton::clicked, this, &MediaPlayer::cmdStop_Click);
    UpdateButtons();
}

MediaPlayer::~MediaPlayer() = default;

MediaSound& MediaPlayer::Sound() {
    if (!m_sound) {
        m_sound = Platform::Current().CreateMediaSound();
        connect(m_sound.get(), &MediaSound::Finished, this, [this] { SetPlaying(false); });
        connect(m_sound.get(), &MediaSound::Failed, this, &MediaPlayer::Sound_Failed);
    }
    return *m_sound;
}

void MediaPlayer::setFileName(const QString& strFileName) {
    m_strFileName = strFileName;
    Sound().Load(strFileName);
    // The label shows the name; the tool tip the whole path.
    lblFileName->setText(QFileInfo(Platform::LocalPath(strFileName)).fileName());
    lblFileName->setToolTip(strFileName);
    SetPlaying(false);
}

void MediaPlayer::Play() {
    if (m_strFileName.isEmpty())
        return;
    Sound().Play();
    SetPlaying(true);
}

void MediaPlayer::Stop() {
    if (!m_sound)
        return;
    m_sound->Stop();
    SetPlaying(false);
}

void MediaPlayer::cmdPlay_Click() {
    ErrorReport::Guard([&] { Play(); });
}

void MediaPlayer::cmdStop_Click() {
    ErrorReport::Guard([&] { Stop(); });
}

void MediaPlayer::Sound_Failed(const QString& strError) {
    lblFileName->setToolTip(m_strFileName + QStringLiteral("\n") + strError);
    SetPlaying(false);
}

void MediaPlayer::SetPlaying(bool blnPlaying) {
    const bool blnChanged = blnPlaying != m_blnPlaying;
    m_blnPlaying = blnPlaying;
    UpdateButtons();
    if (blnChanged)
        emit PlayStateChanged(blnPlaying);
}

void MediaPlayer::UpdateButtons() {
    cmdPlay->setEnabled(!m_strFileName.isEmpty() && !m_blnPlaying);
    cmdStop->setEnabled(m_blnPlaying);
}
