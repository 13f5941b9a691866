#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class MediaSound;
class QLabel;
class QPushButton;

// The media player of the run console (MediaPlayer2): it loads a file, plays
// it, stops it, and shows and hides like any widget. The operator has its own
// two buttons, cmdPlay and cmdStop, and the name of the file loaded in
// lblFileName.
//
// Loading plays nothing: FileName = path, then Play(), or the operator's
// cmdPlay. The sound itself comes from Platform::CreateMediaSound, asked when
// the first file is loaded, so that a player that never loads a file never
// touches the machine's audio.
//
// Buttons: cmdPlay is enabled while a file is loaded and does not play,
// cmdStop while it plays. A file that plays to its end, or cannot be played,
// leaves the player stopped; the reason why it could not play is the tool tip
// of lblFileName.
class MediaPlayer : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString FileName READ FileName WRITE setFileName)

public:
    explicit MediaPlayer(QWidget* parent = nullptr);
    ~MediaPlayer() override;

    QString FileName() const { return m_strFileName; }
    // Loads strFileName and stops what played before; an empty name unloads.
    void setFileName(const QString& strFileName);
    // Plays the file loaded; does nothing without one.
    void Play();
    // Stops the file loaded; does nothing before the first file.
    void Stop();
    bool IsPlaying() const { return m_blnPlaying; }

    // ---- Child widgets (objectName() is the member's name) ----
    QPushButton* cmdPlay = nullptr;
    QPushButton* cmdStop = nullptr;
    QLabel* lblFileName = nullptr;

signals:
    // The player started (true) or stopped (false) playing.
    void PlayStateChanged(bool blnPlaying);

private slots:
    void cmdPlay_Click();
    void cmdStop_Click();

private:
    MediaSound& Sound();
    void SetPlaying(bool blnPlaying);
    void Sound_Failed(const QString& strError);
    void UpdateButtons();

    std::unique_ptr<MediaSound> m_sound;
    QString m_strFileName;
    bool m_blnPlaying = false;
};
