#pragma once

#include <QString>

class QAction;
class QMenu;
class QMenuBar;

// Building a form's menus. Every menu and item is named after its control, since
// the icon menu and the status bar's descriptions find the items by those names.
namespace platform {

// A menu under the menu bar, or a submenu under MENU, named NAME.
QMenu* addNamedMenu(QMenuBar* bar, const QString& caption, const char* name);
QMenu* addNamedMenu(QMenu* menu, const QString& caption, const char* name);

// An item at the end of MENU, named NAME.
QAction* addNamedItem(QMenu* menu, const QString& caption, const char* name);

// A checkable item, checked or not to begin with.
QAction* addCheckItem(QMenu* menu, const QString& caption, const char* name, bool checked);

} // namespace platform
