#include "platform/widgets/Keys.h"

namespace platform {

int keyCodeOf(int qtKey)
{
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9))
        return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
        return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return vbKeyReturn;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return vbKeyPageUp;
    case Qt::Key_PageDown: return vbKeyPageDown;
    case Qt::Key_End: return vbKeyEnd;
    case Qt::Key_Home: return vbKeyHome;
    case Qt::Key_Left: return vbKeyLeft;
    case Qt::Key_Up: return vbKeyUp;
    case Qt::Key_Right: return vbKeyRight;
    case Qt::Key_Down: return vbKeyDown;
    case Qt::Key_Insert: return vbKeyInsert;
    case Qt::Key_Delete: return vbKeyDelete;
    case Qt::Key_Menu: return vbKeyApps;
    default: return 0;
    }
}

int shiftOf(Qt::KeyboardModifiers modifiers)
{
    int shift = 0;
    if (modifiers & Qt::ShiftModifier)
        shift |= vbShiftMask;
    if (modifiers & Qt::ControlModifier)
        shift |= vbCtrlMask;
    if (modifiers & Qt::AltModifier)
        shift |= vbAltMask;
    return shift;
}

} // namespace platform
