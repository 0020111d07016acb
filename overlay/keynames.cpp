#include "overlay/keynames.h"

namespace Helpers::NQt::Utils {

namespace {

struct KeyName {
    Qt::Key key;
    const char* name;
};

// Keys with names of their own; digits, letters and function keys are handled below.
constexpr KeyName keyNames[] = {
    {Qt::Key_Space, "[SPACEBAR]"},
    {Qt::Key_Escape, "[ESC]"},
    {Qt::Key_Tab, "[TAB]"},
    {Qt::Key_Backspace, "[BACK]"},
    {Qt::Key_Enter, "[ENTER]"},
    {Qt::Key_Insert, "[INS]"},
    // Delete has this name, and Clear has none.
    {Qt::Key_Delete, "[CLEAR]"},
    {Qt::Key_Pause, "[PAUSE]"},
    {Qt::Key_Print, "[PRINT]"},
    {Qt::Key_Home, "[HOME]"},
    {Qt::Key_End, "[END]"},
    {Qt::Key_Left, "[LEFT_ARROW]"},
    {Qt::Key_Up, "[UP_ARROW]"},
    {Qt::Key_Right, "[RIGHT_ARROW]"},
    {Qt::Key_Down, "[DOWN_ARROW]"},
    {Qt::Key_PageUp, "[PAGE_UP]"},
    {Qt::Key_PageDown, "[PAGE_DOWN]"},
    {Qt::Key_Shift, "[SHIFT]"},
    // Keycaps of a keyboard that has both: its Command key arrives as Control, its Ctrl key as
    // Meta.
    {Qt::Key_Control, "[COMMAND]"},
    {Qt::Key_Meta, "[CTRL]"},
    {Qt::Key_Alt, "[ALT]"},
    {Qt::Key_CapsLock, "[CAPS_LOCK]"},
    {Qt::Key_NumLock, "[NUM_LOCK]"},
    {Qt::Key_Select, "[SELECT]"},
    {Qt::Key_Execute, "[EXECUTE]"},
};

bool isBetween(Qt::Key key, Qt::Key first, Qt::Key last)
{
    return key >= first && key <= last;
}

}

QString convertKeyCode(Qt::Key key)
{
    // The codes of digits and upper-case letters are those of their characters.
    if (isBetween(key, Qt::Key_0, Qt::Key_9) || isBetween(key, Qt::Key_A, Qt::Key_Z))
        return QChar(static_cast<char16_t>(key));
    if (isBetween(key, Qt::Key_F1, Qt::Key_F12))
        return QStringLiteral("[F%1]").arg(key - Qt::Key_F1 + 1);
    for (const KeyName& row : keyNames) {
        if (row.key == key)
            return QString::fromLatin1(row.name);
    }
    return {};
}

}
