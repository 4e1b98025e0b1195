#pragma once

#include <Qt>

// Key codes and shift states as the forms' key events report them: the
// virtual-key numbers (13 Enter, 45 Insert, 46 Delete, 93 context menu, 112-123
// F1-F12, letters and digits as their upper-case characters) and the shift bit
// set 1 Shift, 2 Ctrl, 4 Alt.
namespace platform {

constexpr int vbKeyReturn = 13;
constexpr int vbKeyPageUp = 33;
constexpr int vbKeyPageDown = 34;
constexpr int vbKeyEnd = 35;
constexpr int vbKeyHome = 36;
constexpr int vbKeyLeft = 37;
constexpr int vbKeyUp = 38;
constexpr int vbKeyRight = 39;
constexpr int vbKeyDown = 40;
constexpr int vbKeyInsert = 45;
constexpr int vbKeyDelete = 46;
constexpr int vbKeyApps = 93;
constexpr int vbShiftMask = 1;
constexpr int vbCtrlMask = 2;
constexpr int vbAltMask = 4;

int keyCodeOf(int qtKey);
int shiftOf(Qt::KeyboardModifiers modifiers);

} // namespace platform
