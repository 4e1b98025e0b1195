#pragma once

#include <QString>

// The application object: where the program lives and what it is called.
namespace platform::App {

QString Path();        // the folder of the executable, without a trailing separator
QString Title();       // "Vistarro"
QString CompanyName(); // "ZUV Software Development"
QString Version();     // "major.minor.patch"

} // namespace platform::App
