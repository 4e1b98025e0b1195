#pragma once

#include <QList>
#include <QString>

#include <initializer_list>
#include <utility>

class QAction;

namespace platform {

class Toolbar;

// The commands that a window offers both as a toolbar button and as a menu item,
// each button's key paired with its item. The two switch on and off together,
// and a click of the button performs the item, so neither can lag behind the
// other.
class ToolbarCommands {
public:
    ToolbarCommands() = default;
    ToolbarCommands(Toolbar* bar, std::initializer_list<std::pair<const char*, QAction*>> pairs);

    // The menu item of the button KEY; null for a button that has none.
    QAction* menuItem(const QString& key) const;

    // Switches the button KEY and its menu item on or off. A key that the bar
    // doesn't hold leaves the item to change alone.
    void setEnabled(const QString& key, bool enabled) const;

    // Performs the menu item of the button KEY, as a click on the item would (a
    // disabled item does nothing); false when the button has no item.
    bool trigger(const QString& key) const;

private:
    Toolbar* bar_ = nullptr;
    QList<std::pair<QString, QAction*>> pairs_;
};

} // namespace platform
