#pragma once

class QWidget;

// What the program asks of the desktop beyond the toolkit's own window calls.
// On an X server these go to the server and the window manager directly; on any
// other platform (offscreen, Wayland) they do nothing and say so.
namespace platform::desktop {

// A key held down sends the program one press and one release, however long it
// is held: the server then marks repeats as repeated presses without releases
// in between (XKB's detectable auto-repeat). Without it a repeat can arrive as a
// release and a new press that the toolkit can't always tell from real ones, and
// every control that acts on a release would act again. Asked once per process;
// true when the server agreed.
bool reportHeldKeysOnce();

// Keeps a top-level window off the task bar (_NET_WM_STATE_SKIP_TASKBAR), also
// while it is full screen. Call it while the window is shown.
void keepOffTaskbar(QWidget* window);

// Takes the icon off a top-level window, which otherwise shows the program's.
void removeWindowIcon(QWidget* window);

} // namespace platform::desktop
