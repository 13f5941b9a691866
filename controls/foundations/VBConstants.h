#pragma once

#include <QtGlobal>

// Message box styles and answers, with the values the controls pass and test.
constexpr qint32 vbOKOnly = 0;
constexpr qint32 vbOKCancel = 1;
constexpr qint32 vbAbortRetryIgnore = 2;
constexpr qint32 vbYesNoCancel = 3;
constexpr qint32 vbYesNo = 4;
constexpr qint32 vbRetryCancel = 5;
constexpr qint32 vbCritical = 16;
constexpr qint32 vbQuestion = 32;
constexpr qint32 vbExclamation = 48;
constexpr qint32 vbInformation = 64;
constexpr qint32 vbDefaultButton1 = 0;
constexpr qint32 vbDefaultButton2 = 256;
constexpr qint32 vbDefaultButton3 = 512;

constexpr qint32 vbOK = 1;
constexpr qint32 vbCancel = 2;
constexpr qint32 vbAbort = 3;
constexpr qint32 vbRetry = 4;
constexpr qint32 vbIgnore = 5;
constexpr qint32 vbYes = 6;
constexpr qint32 vbNo = 7;

// Shift states of key events.
constexpr qint16 vbShiftMask = 1;
constexpr qint16 vbCtrlMask = 2;
constexpr qint16 vbAltMask = 4;

// Mouse buttons.
constexpr qint16 vbLeftButton = 1;
constexpr qint16 vbRightButton = 2;

// Show commands of the shell.
constexpr qint32 SW_SHOWNORMAL = 1;
