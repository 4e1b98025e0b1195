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

} // namespace platform::App
