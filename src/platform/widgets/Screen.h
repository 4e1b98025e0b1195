#pragma once

class QWidget;

// The screen as the forms see it: twips per pixel, the whole screen's size in
// twips, and the application-wide pointer.
namespace platform::Screen {

float TwipsPerPixelX();
float TwipsPerPixelY();
float Width(); // the primary screen, in twips
float Height();

// 0 restores the normal pointer, 11 shows the hourglass over every window.
int MousePointer();
void setMousePointer(int code);

// Pointer codes of the forms' MousePointer: 0 default, 7 north-south sizing,
// 9 east-west sizing, 11 hourglass, 99 custom (blank).
void applyPointer(QWidget* widget, int code);

} // namespace platform::Screen
