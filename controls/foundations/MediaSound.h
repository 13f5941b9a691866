#pragma once

#include <QObject>
#include <QString>

class QAudioOutput;
class QMediaPlayer;

// The sound of a media player: a file is loaded, played and stopped. A player widget asks
// Platform::CreateMediaSound for one; the Qt platform's plays through Qt Multimedia, a test's
// records what was asked and stays silent.
class MediaSound : public QObject {
    Q_OBJECT
public:
    explicit MediaSound(QObject* parent = nullptr) : QObject(parent) {}
    ~MediaSound() override;

    // A path as the controls write it (Platform::LocalPath applies). Loading
    // stops what played before.
    virtual void Load(const QString& strFile) = 0;
    virtual void Play() = 0;
    virtual void Stop() = 0;

signals:
    // The file played to its end.
    void Finished();
    // The file cannot be played (missing, unknown format, no decoder): why.
    void Failed(const QString& strError);
};

// The sound of the Qt platform: QMediaPlayer with a QAudioOutput.
class QtMediaSound : public MediaSound {
    Q_OBJECT
public:
    explicit QtMediaSound(QObject* parent = nullptr);
    ~QtMediaSound() override;

    void Load(const QString& strFile) override;
    void Play() override;
    void Stop() override;

private:
    QAudioOutput* m_output;
    QMediaPlayer* m_player;
};
