#pragma once

#include "foundations/VBConstants.h"

#include <QFont>
#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>

class MediaSound;
class QWidget;
struct ShortListChoice;
namespace ServiceItemPick {
struct Choice;
}
namespace SongBreakdown {
struct Breakdown;
}

// Flags of the monitor look-ups: what to answer for an area that lies on no
// monitor.
constexpr qint32 MONITOR_DEFAULTTONULL = 0;    // 0, no monitor
constexpr qint32 MONITOR_DEFAULTTOPRIMARY = 1; // the primary monitor
constexpr qint32 MONITOR_DEFAULTTONEAREST = 2; // the monitor nearest to it

// What the platform tells of one monitor. cbSize is set by the caller: 40 asks
// for the rectangles and the flags, 72 for the device name as well; any other
// size is refused. The rectangles are in virtual-desktop pixels; the right and
// bottom edges of the platform's rectangles lie one past the last pixel, so
// they are x() + width() and y() + height() of these QRects.
struct MonitorInfo {
    static constexpr qint32 SizeOfMonitorInfo = 40;
    static constexpr qint32 SizeOfMonitorInfoEx = 72;
    static constexpr qint32 MONITORINFOF_PRIMARY = 1;

    qint32 cbSize = SizeOfMonitorInfo;
    QRect rcMonitor; // the monitor
    QRect rcWork;    // the work area: the monitor less task bars
    qint32 dwFlags = 0;
    QString szDevice; // the screen's name, for a structure of size 72 only
};

// Everything that a person or the machine provides goes through this class:
// message boxes and questions, file, font and colour dialogs, message pumping,
// the shell, key strokes to the host, file existence, monitors and metrics, the
// desktop grab and the sound of media players. Each virtual member has the Qt
// behaviour as its default, so that a test installs a subclass that scripts
// only what it needs.
class Platform {
public:
    virtual ~Platform();

    // The platform in force; Install(nullptr) restores the Qt one. Install does
    // not take ownership.
    static Platform& Current();
    static void Install(Platform* pPlatform);
    // The platform put in place by Install, or nullptr when the Qt one is in force.
    static Platform* Installed();

    // The window that boxes and dialogs open over: the owner the application
    // named (its main window, so that no box ever opens on a projector), else
    // the active window. nullptr restores the active window.
    static void SetDialogOwner(QWidget* pOwner);
    virtual QWidget* DialogParent();

    // A path as the controls write it (with "\") as this machine names it: the
    // path itself when it exists or holds no "\", else with "\" turned into "/".
    static QString LocalPath(const QString& strPath);

    // A message box with the button set, icon and default button of intButtons.
    // Returns vbOK, vbCancel, vbYes, vbNo, ... An empty title means "Corvantis".
    virtual qint32 MsgBox(const QString& strPrompt, qint32 intButtons = vbOKOnly,
                          const QString& strTitle = QString());

    // Open and save dialogs. strFilter is a "Text|*.a;*.b|All|*.*" list. When the
    // user cancels and blnCancelError is set, raises VBError 32755 "Cancel was
    // selected."; otherwise returns an empty text.
    virtual QString ShowOpen(const QString& strFilter, const QString& strTitle = QString(),
                             const QString& strInitDir = QString(), bool blnCancelError = true);
    virtual QString ShowSave(const QString& strFilter, const QString& strTitle = QString(),
                             const QString& strInitDir = QString(),
                             const QString& strFileName = QString(), bool blnCancelError = true);
    // Font and colour dialogs; the colour is a BGR long (&HBBGGRR). Cancel as above,
    // returning the font or colour passed in when blnCancelError is off.
    virtual QFont ShowFont(const QFont& fntInitial, bool blnCancelError = true);
    virtual qint32 ShowColor(qint32 lngInitial, bool blnCancelError = true);
    // The font dialog with the common dialog's flags (the sum of cdlCF... values). When they
    // include cdlCFEffects the user also picks the colour of the text, passed in and returned
    // in lngColor (BGR); Qt's font dialog has no colour, so the default shows ShowFont and then
    // ShowColor. A cancel in either raises 32755 when blnCancelError is set, with lngColor
    // unchanged.
    static constexpr qint32 cdlCFEffects = 0x100;
    virtual QFont ShowFontAndColor(const QFont& fntInitial, qint32& lngColor, qint32 lngFlags,
                                   bool blnCancelError = true);

    // Pumps pending messages (DoEvents).
    virtual void DoEvents();

    virtual bool FileExists(const QString& strPath);

    // Performs sVerb on sFile with the system's program. Returns a value above 32
    // on success, 31 when no program is associated with the file.
    virtual qint32 ShellExecute(const QString& sVerb, const QString& sFile, const QString& sParams,
                                const QString& sDirectory, qint32 nShowCmd);
    // Lets the user choose a program for a file that has none associated.
    virtual void OpenWith(const QString& sFile);

    // Sends a key stroke such as "{F1}" to the host's active window.
    virtual void SendKeys(const QString& strKeys);

    // Monitors: the rectangles of the screens in the virtual desktop, the
    // primary first. A point outside every monitor gives -1.
    virtual QList<QRect> MonitorRects();
    virtual QList<QRect> MonitorWorkRects();
    virtual qint32 MonitorFromPoint(const QPoint& ptPoint);
    // GetSystemMetrics with the indices of the desktop (0 SM_CXSCREEN,
    // 1 SM_CYSCREEN, 76..79 the virtual desktop, 80 SM_CMONITORS, ...).
    virtual qint32 GetSystemMetrics(qint32 nIndex);
    // A still picture of the desktop, in virtual-desktop coordinates.
    virtual QPixmap GrabDesktop(const QRect& rcArea);

    // Monitor handles: a number other than 0 for each monitor, 0 for none. The
    // Qt platform numbers the monitors of MonitorRects() from 1, so the primary
    // is 1. MonitorFromRect answers the monitor that holds the largest part of
    // rcRect, and for an area on no monitor what dwFlags asks
    // (MONITOR_DEFAULTTONULL, ...). MonitorFromWindow does the same for the
    // window's rectangle on the desktop. GetMonitorInfo fills lpmi and answers
    // true, or false for an unknown handle or a wrong cbSize.
    virtual qint32 MonitorFromRect(const QRect& rcRect, qint32 dwFlags);
    virtual qint32 MonitorFromWindow(const QWidget* hWnd, qint32 dwFlags);
    virtual bool GetMonitorInfo(qint32 hMonitor, MonitorInfo& lpmi);
    // The twips per pixel of the screen, across and down (Twips::PerPixel on
    // every display this system knows).
    virtual qint32 TwipsPerPixelX();
    virtual qint32 TwipsPerPixelY();

    // The sound behind a media player widget (foundations/MediaSound.h): Qt
    // Multimedia on the Qt platform. Each player asks once, when it first loads
    // a file.
    virtual std::unique_ptr<MediaSound> CreateMediaSound();

    // Lets the user choose one of the saved short-lists (ShortListPicker.h);
    // returns its ShortListID, 0 for Cancel. The Qt platform shows
    // ShortListPickerDialog.
    virtual qint32 SelectShortList(const QList<ShortListChoice>& choices);

    // Lets the user choose one service item of a type (ServiceItemPicker.h);
    // returns its ServiceItemID, 0 for Cancel. The Qt platform shows
    // ServiceItemPickerDialog.
    virtual qint32 PickServiceItem(const QString& strTypeName,
                                   const QList<ServiceItemPick::Choice>& choices);

    // The song breakdown wizard (SongBreakdownWizard.h) over the breakdown
    // proposed for a song; true when the user finished, the breakdown then
    // holding what the user made of it; false for Cancel.
    virtual bool RunSongBreakdownWizard(const QString& strTitle,
                                        SongBreakdown::Breakdown& breakdown);

    // Shows a printed sheet (a PDF file) in a preview from which the user
    // prints it or saves a copy (SheetPreview.h). The file is the caller's: it
    // may be removed once this returns. The Qt platform shows SheetPreviewDialog.
    virtual void ShowPrintPreview(const QString& strPdfFile, const QString& strTitle);

    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
};
