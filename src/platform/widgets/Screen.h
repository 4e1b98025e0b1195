#pragma once

class QWidget;

// The screen as the forms see it: twips per pixel, the whole screen's size in
// twips, and the application-wide pointer.
namespace platform::Screen {

float TwipsPerPixelX();
float TwipsPerPixelY();

// Twips to whole pixels across (X) and down (Y), the nearest pixel; and whole
// pixels back to twips. Every layout step converts through these, so a size set
// in twips lands on the same pixel wherever it is placed.
int pixelsX(float twips);
int pixelsY(float twips);
float twipsX(int pixels);
float twipsY(int pixels);
float Width(); // the primary screen, in twips
float Height();

// 0 restores the normal pointer, 11 shows the hourglass over every window.
int MousePointer();
void setMousePointer(int code);

// Pointer codes of the forms' MousePointer: 0 default, 7 north-south sizing,
// 9 east-west sizing, 11 hourglass, 99 custom (blank).
void applyPointer(QWidget* widget, int code);

} // namespace platform::Screen
