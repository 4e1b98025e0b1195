#pragma once

#include <QString>

// The application object: where the program lives and what it is called.
namespace platform::App {

QString Path();        // the folder of the executable, without a trailing separator
QString Title();       // "Vistarro"
QString CompanyName(); // "ZUV Software Development"
QString Version();     // "major.minor.patch"

// Sets up the process before the first window: a write beyond the file size limit
// of the shell (ulimit -f) fails like a write to a full disk, rather than ending
// the program with SIGXFSZ in the middle of saving a setting.
void prepareProcess();

// Call before the QApplication is made. The program places its own windows
// (every window comes back where it was left, dialogs open centred, the show
// covers the screen), which a native Wayland client can't do. So in a Wayland
// session that also offers an X display (XWayland), and when the person hasn't
// chosen a platform in QT_QPA_PLATFORM, the toolkit is told to use X11.
void chooseDisplayPlatform();

// Call once the QApplication is made: takes back what chooseDisplayPlatform set,
// so that programs started from here (the browser) choose their own platform.
void restoreDisplayEnvironment();

} // namespace platform::App
