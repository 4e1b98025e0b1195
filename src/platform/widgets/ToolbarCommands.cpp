#include "platform/widgets/ToolbarCommands.h"

#include "platform/core/Error.h"
#include "platform/widgets/Toolbar.h"

#include <QAction>

namespace platform {

ToolbarCommands::ToolbarCommands(Toolbar* bar, std::initializer_list<std::pair<const char*, QAction*>> pairs)
    : bar_(bar)
{
    for (const auto& [key, item] : pairs)
        pairs_.append({QString::fromLatin1(key), item});
}

QAction* ToolbarCommands::menuItem(const QString& key) const
{
    for (const auto& [paired, item] : pairs_) {
        if (paired == key)
            return item;
    }
    return nullptr;
}

void ToolbarCommands::setEnabled(const QString& key, bool enabled) const
{
    resumeNext([&] { bar_->Buttons(key)->setEnabled(enabled); });
    if (QAction* item = menuItem(key))
        item->setEnabled(enabled);
}

bool ToolbarCommands::trigger(const QString& key) const
{
    QAction* item = menuItem(key);
    if (item)
        item->trigger();
    return item != nullptr;
}

} // namespace platform
