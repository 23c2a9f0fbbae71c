#include "platform/MouseCodes.h"

namespace OrrinQuiver {

int buttonCode(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? LeftButtonBit : 0) | (buttons & Qt::RightButton ? RightButtonBit : 0)
        | (buttons & Qt::MiddleButton ? MiddleButtonBit : 0);
}

int shiftCode(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? ShiftBit : 0) | (modifiers & Qt::ControlModifier ? ControlBit : 0)
        | (modifiers & Qt::AltModifier ? AltBit : 0);
}

} // namespace OrrinQuiver
