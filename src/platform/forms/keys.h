#pragma once
// The language's key codes, button and shift masks, as the windows' KeyDown and Mouse handlers read them.
#include <qnamespace.h>

class QKeyEvent;

namespace forms {

constexpr int vbKeyReturn = 13, vbKeyEscape = 27;

int keyCode(const QKeyEvent& event);              // 13 Enter, 27 Esc, 65-90 letters, ...; 0 if none
int shiftMask(Qt::KeyboardModifiers modifiers);   // 1 Shift, 2 Ctrl, 4 Alt
int buttonMask(Qt::MouseButtons buttons);         // 1 left, 2 right, 4 middle

}  // namespace forms
