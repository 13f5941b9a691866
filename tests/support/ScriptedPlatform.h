#pragma once

#include "ServiceItemPick.h"
#include "SongBreakdown.h"
#include "foundations/MediaSound.h"
#include "foundations/Platform.h"
#include "foundations/ShortListPicker.h"

#include <QFont>
#include <QHash>
#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

// The Platform of a test: it records every call and answers from what the test
// queued, so that no real box or dialog ever opens.
//
// The constructor installs it (Platform::Current() is this object), the
// destructor restores the previous one. Create one per test function, as a
// local or a member created in init():
//
//   ScriptedPlatform platform;
//   platform.QueueAnswer(vbNo);                 // the answer to the next box
//   editor.CanUnload();
//   QCOMPARE(platform.BoxCount(), 1);
//   QCOMPARE(platform.LastBox().Title, QString("Save Changes?"));
//   QCOMPARE(platform.LastBox().Buttons, vbYesNo | vbQuestion);
//
// Strictness, so that a test cannot pass by accident:
// - a message box for which no answer is queued FAILS THE TEST (QTest::qFail)
//   and is answered with its safest button (Cancel, else No, else OK); a test
//   that does not care may opt in to SetDefaultAnswer;
// - answers still queued when the object is destroyed fail the test (the box
//   that was expected never came), unless the test has failed already;
// - an open, save, font or colour dialog with nothing queued fails the test
//   and is answered as Cancel.
//
// Everything else has a harmless scripted default: ShellExecute answers 42
// (done) and starts nothing, OpenWith and SendKeys are only recorded,
// DoEvents pumps pending events (and runs the hook, if set), FileExists looks
// at the real file system unless SetFileExists overrides a path,
// monitors, metrics and the desktop grab are the real (offscreen) ones until
// scripted, and media players are silent: what they ask of their sound is
// recorded in SoundCalls().
class ScriptedPlatform : public Platform {
public:
    ScriptedPlatform();
    ~ScriptedPlatform() override;

    // ---- Message boxes ------------------------------------------------------
    struct Box {
        QString Prompt;
        qint32 Buttons = 0; // the style passed (buttons + icon + default button)
        QString Title;      // as passed: empty means the application's title
        qint32 Answer = 0;  // what the box answered
        // The window the box would have opened over (DialogParent).
        QPointer<QWidget> Parent;
    };
    // Answers the next message box (vbOK, vbYes, vbNo, vbCancel, ...), in order.
    void QueueAnswer(qint32 lngAnswer);
    // Answers every box that nothing was queued for, without failing; 0 turns
    // the strict default back on.
    void SetDefaultAnswer(qint32 lngAnswer);
    qint32 PendingAnswers() const { return static_cast<qint32>(m_answers.size()); }
    const QList<Box>& Boxes() const { return m_boxes; }
    qint32 BoxCount() const { return static_cast<qint32>(m_boxes.size()); }
    // The last box shown; a default Box when there was none.
    Box LastBox() const;

    // ---- File, font and colour dialogs ----------------------------------------
    struct Dialog {
        QString Kind; // "Open", "Save", "Font", "Color"
        QString Filter;
        QString Title;
        QString InitDir;
        QString FileName;
        bool CancelError = true;
    };
    // The file the next open (save) dialog returns; an empty text is Cancel.
    void QueueOpenFile(const QString& strFile);
    void QueueSaveFile(const QString& strFile);
    // The next font / colour dialog: a value, or std::nullopt for Cancel.
    void QueueFont(const std::optional<QFont>& font);
    void QueueColor(const std::optional<qint32>& lngBgrColor);
    const QList<Dialog>& Dialogs() const { return m_dialogs; }

    // ---- Shell, keys, pumping, files ----------------------------------------
    struct ShellCall {
        QString Verb, File, Params, Directory;
        qint32 ShowCmd = 0;
        qint32 Result = 0;
    };
    // What every following ShellExecute answers (42 = done, 31 = no program).
    void SetShellResult(qint32 lngResult) { m_shellResult = lngResult; }
    const QList<ShellCall>& ShellCalls() const { return m_shellCalls; }
    const QStringList& OpenWithFiles() const { return m_openWith; }
    const QStringList& SentKeys() const { return m_sentKeys; }
    qint32 DoEventsCount() const { return m_doEvents; }
    // Runs inside every DoEvents, after the pending events (to play a click
    // that arrives while a function pumps messages).
    void SetDoEventsHook(std::function<void()> hook) { m_doEventsHook = std::move(hook); }
    void SetFileExists(const QString& strPath, bool blnExists);

    // ---- Monitors, metrics, desktop ---------------------------------------------
    // The monitors, primary first; work areas default to the monitors.
    void SetMonitors(const QList<QRect>& rects, const QList<QRect>& workRects = {});
    // Overrides one GetSystemMetrics index. Without it, 0/1, 76..79 and 80
    // follow the scripted monitors.
    void SetMetric(qint32 nIndex, qint32 lngValue);
    // The picture of the whole virtual desktop; its top-left pixel is the
    // desktop's top-left corner. GrabDesktop cuts the asked area out of it.
    void SetDesktop(const QPixmap& pixDesktop);
    const QList<QRect>& Grabs() const { return m_grabs; }
    // The handles of the scripted monitors, in the order of SetMonitors
    // (without it 1, 2, ...).
    void SetMonitorHandles(const QList<qint32>& handles) { m_monitorHandles = handles; }
    // Every monitor look-up raises this run-time error (0: none).
    void SetMonitorLookupError(qint32 lngNumber) { m_monitorLookupError = lngNumber; }
    // GetMonitorInfo answers false, as for a monitor that went away.
    void SetMonitorInfoFails(bool blnFails) { m_monitorInfoFails = blnFails; }
    void SetTwipsPerPixel(qint32 lngX, qint32 lngY) { m_twipsPerPixel = QPoint(lngX, lngY); }
    struct MonitorLookup {
        QRect Rect;                      // the area asked (for a window: none)
        const QWidget* Window = nullptr; // the window asked
        qint32 Flags = 0;
        qint32 Result = 0;
    };
    const QList<MonitorLookup>& MonitorLookups() const { return m_monitorLookups; }
    struct MonitorInfoCall {
        qint32 Handle = 0;
        qint32 Size = 0; // cbSize of the structure passed
        bool Result = false;
    };
    const QList<MonitorInfoCall>& MonitorInfoCalls() const { return m_monitorInfoCalls; }

    // ---- Sound of media players ------------------------------------------------
    // What every media player asked of its sound, in order: "Load " + the file,
    // "Play", "Stop". Nothing is played.
    QStringList SoundCalls() const { return *m_soundCalls; }
    // The sound made last, or nullptr; a test plays a file to its end with
    // emit platform.LastSound()->Finished().
    MediaSound* LastSound() const;

    // ---- Short-list picker ------------------------------------------------------
    // The id the next short-list picker answers (0 is Cancel). A picker with
    // nothing queued fails the test and answers 0.
    void QueueShortListChoice(qint32 lngShortListID) { m_shortListChoices.append(lngShortListID); }
    // The short-lists each picker offered, in order.
    const QList<QList<ShortListChoice>>& ShortListOffers() const { return m_shortListOffers; }

    // ---- Service item picker ----------------------------------------------------
    // The id the next service item picker answers (0 is Cancel). A picker with
    // nothing queued fails the test and answers 0.
    void QueueServiceItemChoice(qint32 lngServiceItemID) {
        m_serviceItemChoices.append(lngServiceItemID);
    }
    struct ServiceItemOffer {
        QString TypeName;
        QList<ServiceItemPick::Choice> Choices;
    };
    // What each picker offered, in order.
    const QList<ServiceItemOffer>& ServiceItemOffers() const { return m_serviceItemOffers; }

    // ---- Song breakdown wizard ------------------------------------------------
    // What the next wizard does with the breakdown proposed: changes it (or
    // not) and answers true for Finish, false for Cancel. A wizard with nothing
    // queued fails the test and is cancelled.
    using SongBreakdownAnswer = std::function<bool(SongBreakdown::Breakdown&)>;
    void QueueSongBreakdown(SongBreakdownAnswer answer) {
        m_songBreakdowns.append(std::move(answer));
    }
    struct SongBreakdownOffer {
        QString Title;
        SongBreakdown::Breakdown Proposal;
    };
    const QList<SongBreakdownOffer>& SongBreakdownOffers() const { return m_songBreakdownOffers; }

    // ---- Printed sheets ----------------------------------------------------------
    // Every sheet shown in the print preview: its title and the bytes of its PDF
    // file (read when it is shown, as the file is removed afterwards). Nothing is
    // printed or saved.
    struct Sheet {
        QString Title;
        QByteArray Pdf;
    };
    const QList<Sheet>& Sheets() const { return m_sheets; }

    // Forgets the records (not the queues).
    void ClearRecords();

    // Platform
    qint32 MsgBox(const QString& strPrompt, qint32 intButtons = vbOKOnly,
                  const QString& strTitle = QString()) override;
    QString ShowOpen(const QString& strFilter, const QString& strTitle = QString(),
                     const QString& strInitDir = QString(), bool blnCancelError = true) override;
    QString ShowSave(const QString& strFilter, const QString& strTitle = QString(),
                     const QString& strInitDir = QString(), const QString& strFileName = QString(),
                     bool blnCancelError = true) override;
    QFont ShowFont(const QFont& fntInitial, bool blnCancelError = true) override;
    qint32 ShowColor(qint32 lngInitial, bool blnCancelError = true) override;
    void DoEvents() override;
    bool FileExists(const QString& strPath) override;
    qint32 ShellExecute(const QString& sVerb, const QString& sFile, const QString& sParams,
                        const QString& sDirectory, qint32 nShowCmd) override;
    void OpenWith(const QString& sFile) override;
    void SendKeys(const QString& strKeys) override;
    QList<QRect> MonitorRects() override;
    QList<QRect> MonitorWorkRects() override;
    qint32 GetSystemMetrics(qint32 nIndex) override;
    QPixmap GrabDesktop(const QRect& rcArea) override;
    qint32 MonitorFromRect(const QRect& rcRect, qint32 dwFlags) override;
    qint32 MonitorFromWindow(const QWidget* hWnd, qint32 dwFlags) override;
    bool GetMonitorInfo(qint32 hMonitor, MonitorInfo& lpmi) override;
    qint32 TwipsPerPixelX() override;
    qint32 TwipsPerPixelY() override;
    std::unique_ptr<MediaSound> CreateMediaSound() override;
    qint32 SelectShortList(const QList<ShortListChoice>& choices) override;
    bool RunSongBreakdownWizard(const QString& strTitle,
                                SongBreakdown::Breakdown& breakdown) override;
    qint32 PickServiceItem(const QString& strTypeName,
                           const QList<ServiceItemPick::Choice>& choices) override;
    void ShowPrintPreview(const QString& strPdfFile, const QString& strTitle) override;

private:
    void fail(const QString& strWhy);
    QString fileDialog(QList<std::optional<QString>>& queue, Dialog dialog);

    QList<qint32> m_answers;
    qint32 m_defaultAnswer = 0;
    QList<Box> m_boxes;
    QList<std::optional<QString>> m_openFiles;
    QList<std::optional<QString>> m_saveFiles;
    QList<std::optional<QFont>> m_fonts;
    QList<std::optional<qint32>> m_colors;
    QList<Dialog> m_dialogs;
    qint32 m_shellResult = 42;
    QList<ShellCall> m_shellCalls;
    QStringList m_openWith;
    QStringList m_sentKeys;
    qint32 m_doEvents = 0;
    std::function<void()> m_doEventsHook;
    QHash<QString, bool> m_files;
    std::optional<QList<QRect>> m_monitors;
    QList<QRect> m_workRects;
    QHash<qint32, qint32> m_metrics;
    QPixmap m_desktop;
    QList<QRect> m_grabs;
    QList<qint32> m_monitorHandles;
    qint32 m_monitorLookupError = 0;
    bool m_monitorInfoFails = false;
    bool m_inWindowLookup = false;
    std::optional<QPoint> m_twipsPerPixel;
    QList<MonitorLookup> m_monitorLookups;
    QList<MonitorInfoCall> m_monitorInfoCalls;
    // Shared with the sounds made, which may outlive this platform.
    std::shared_ptr<QStringList> m_soundCalls = std::make_shared<QStringList>();
    QPointer<MediaSound> m_lastSound;
    QList<qint32> m_shortListChoices;
    QList<QList<ShortListChoice>> m_shortListOffers;
    QList<qint32> m_serviceItemChoices;
    QList<ServiceItemOffer> m_serviceItemOffers;
    QList<SongBreakdownAnswer> m_songBreakdowns;
    QList<SongBreakdownOffer> m_songBreakdownOffers;
    QList<Sheet> m_sheets;
    Platform* m_previous = nullptr;
};
