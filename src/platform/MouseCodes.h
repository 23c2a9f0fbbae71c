#pragma once

#include <QtCore/Qt>

namespace OrrinQuiver {

// Mouse buttons and modifier keys as the control's mouse, key and drag events
// report them: Button is a bit set of the buttons, Shift a bit set of the
// modifier keys.
inline constexpr int LeftButtonBit = 1;
inline constexpr int RightButtonBit = 2;
inline constexpr int MiddleButtonBit = 4;
inline constexpr int ShiftBit = 1;
inline constexpr int ControlBit = 2;
inline constexpr int AltBit = 4;

// The Button bit set of `buttons`; other buttons (back, forward...) add nothing.
int buttonCode(Qt::MouseButtons buttons);

// The Shift bit set of `modifiers`; other modifiers (Meta, keypad) add nothing.
int shiftCode(Qt::KeyboardModifiers modifiers);

} // namespace OrrinQuiver
