#pragma once

#include <QString>

#include <functional>

class Form;
class QTimer;
namespace platform {
class Toolbar;
}

// What a window wires up so that its status line describes the command under the
// pointer, in its menus and on its toolbar.
namespace zuv {

class ICOMNU;

// As the pointer moves through the items of MENUS, the icon menu of FORM, each
// item is described in the status line of the window that STATUSFORM gives at
// that moment (the form itself, or the main window), worded for FILETYPE. A
// separator, a title of the menu bar, the pointer off the items and the menus
// closing clear the line; a window command is described by its own text.
void describeMenus(ICOMNU* menus, Form* form, std::function<Form*()> statusForm, const QString& fileType);

// As the pointer moves over BAR, the button under it is described in FORM's
// status line, worded for FILETYPE. The returned timer, FORM's, runs while the
// pointer is on the bar and, once it has left, clears the line and stops.
QTimer* describeToolbar(platform::Toolbar* bar, Form* form, const QString& fileType);

} // namespace zuv
