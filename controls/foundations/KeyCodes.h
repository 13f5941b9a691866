#pragma once

#include <QKeyEvent>
#include <QtGlobal>

#include "foundations/VBConstants.h"

// Key codes as the controls' key handlers receive them (KeyDown/KeyUp's
// KeyCode and Shift): the platform's virtual key numbers, so that a handler
// tests 13 for Enter, 187 for the "=" / "+" key and 189 for the "-" / "_" key,
// whatever the keyboard layout prints on the key cap.
namespace KeyCodes {

constexpr qint16 vbKeyBack = 8;
constexpr qint16 vbKeyTab = 9;
constexpr qint16 vbKeyReturn = 13;
constexpr qint16 vbKeyShift = 16;
constexpr qint16 vbKeyControl = 17;
constexpr qint16 vbKeyMenu = 18;
constexpr qint16 vbKeyEscape = 27;
constexpr qint16 vbKeySpace = 32;
constexpr qint16 vbKeyPageUp = 33;
constexpr qint16 vbKeyPageDown = 34;
constexpr qint16 vbKeyEnd = 35;
constexpr qint16 vbKeyHome = 36;
constexpr qint16 vbKeyLeft = 37;
constexpr qint16 vbKeyUp = 38;
constexpr qint16 vbKeyRight = 39;
constexpr qint16 vbKeyDown = 40;
constexpr qint16 vbKeyInsert = 45;
constexpr qint16 vbKeyDelete = 46;
constexpr qint16 vbKeyF1 = 112;
// The punctuation keys of the main block.
constexpr qint16 vbKeySemicolon = 186; // ; :
constexpr qint16 vbKeyEquals = 187;    // = +
constexpr qint16 vbKeyComma = 188;     // , <
constexpr qint16 vbKeyMinus = 189;     // - _
constexpr qint16 vbKeyPeriod = 190;    // . >
constexpr qint16 vbKeySlash = 191;     // / ?
constexpr qint16 vbKeyBackQuote = 192; // ` ~
constexpr qint16 vbKeyOpenBracket = 219;
constexpr qint16 vbKeyBackslash = 220;
constexpr qint16 vbKeyCloseBracket = 221;
constexpr qint16 vbKeyQuote = 222;

// The key code of a Qt key; 0 for a key without one. Keys of the numeric
// keypad have codes of their own (96..111), as on the platform.
inline qint16 FromQtKey(int intKey, bool blnKeypad = false) {
    if (blnKeypad) {
        if (intKey >= Qt::Key_0 && intKey <= Qt::Key_9)
            return static_cast<qint16>(96 + (intKey - Qt::Key_0));
        switch (intKey) {
        case Qt::Key_Asterisk:
            return 106;
        case Qt::Key_Plus:
            return 107;
        case Qt::Key_Minus:
            return 109;
        case Qt::Key_Period:
            return 110;
        case Qt::Key_Slash:
            return 111;
        case Qt::Key_Enter:
            return vbKeyReturn;
        default:
            break;
        }
    }
    if (intKey >= Qt::Key_A && intKey <= Qt::Key_Z)
        return static_cast<qint16>(65 + (intKey - Qt::Key_A));
    if (intKey >= Qt::Key_0 && intKey <= Qt::Key_9)
        return static_cast<qint16>(48 + (intKey - Qt::Key_0));
    if (intKey >= Qt::Key_F1 && intKey <= Qt::Key_F24)
        return static_cast<qint16>(vbKeyF1 + (intKey - Qt::Key_F1));
    switch (intKey) {
    case Qt::Key_Backspace:
        return vbKeyBack;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return vbKeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return vbKeyReturn;
    case Qt::Key_Shift:
        return vbKeyShift;
    case Qt::Key_Control:
        return vbKeyControl;
    case Qt::Key_Alt:
        return vbKeyMenu;
    case Qt::Key_Escape:
        return vbKeyEscape;
    case Qt::Key_Space:
        return vbKeySpace;
    case Qt::Key_PageUp:
        return vbKeyPageUp;
    case Qt::Key_PageDown:
        return vbKeyPageDown;
    case Qt::Key_End:
        return vbKeyEnd;
    case Qt::Key_Home:
        return vbKeyHome;
    case Qt::Key_Left:
        return vbKeyLeft;
    case Qt::Key_Up:
        return vbKeyUp;
    case Qt::Key_Right:
        return vbKeyRight;
    case Qt::Key_Down:
        return vbKeyDown;
    case Qt::Key_Insert:
        return vbKeyInsert;
    case Qt::Key_Delete:
        return vbKeyDelete;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon:
        return vbKeySemicolon;
    case Qt::Key_Equal:
    case Qt::Key_Plus:
        return vbKeyEquals;
    case Qt::Key_Comma:
    case Qt::Key_Less:
        return vbKeyComma;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
        return vbKeyMinus;
    case Qt::Key_Period:
    case Qt::Key_Greater:
        return vbKeyPeriod;
    case Qt::Key_Slash:
    case Qt::Key_Question:
        return vbKeySlash;
    case Qt::Key_QuoteLeft:
    case Qt::Key_AsciiTilde:
        return vbKeyBackQuote;
    case Qt::Key_BracketLeft:
    case Qt::Key_BraceLeft:
        return vbKeyOpenBracket;
    case Qt::Key_Backslash:
    case Qt::Key_Bar:
        return vbKeyBackslash;
    case Qt::Key_BracketRight:
    case Qt::Key_BraceRight:
        return vbKeyCloseBracket;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl:
        return vbKeyQuote;
    default:
        return 0;
    }
}

// The Shift argument: vbShiftMask, vbCtrlMask and vbAltMask added together.
inline qint16 ShiftState(Qt::KeyboardModifiers modifiers) {
    qint16 intShift = 0;
    if (modifiers & Qt::ShiftModifier)
        intShift |= vbShiftMask;
    if (modifiers & Qt::ControlModifier)
        intShift |= vbCtrlMask;
    if (modifiers & Qt::AltModifier)
        intShift |= vbAltMask;
    return intShift;
}

inline qint16 FromEvent(const QKeyEvent& event) {
    return FromQtKey(event.key(), event.modifiers().testFlag(Qt::KeypadModifier));
}

} // namespace KeyCodes
