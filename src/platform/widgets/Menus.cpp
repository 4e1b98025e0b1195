#include "platform/widgets/Menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace platform {

QMenu* addNamedMenu(QMenuBar* bar, const QString& caption, const char* name)
{
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

QMenu* addNamedMenu(QMenu* menu, const QString& caption, const char* name)
{
    QMenu* submenu = menu->addMenu(caption);
    submenu->setObjectName(QString::fromLatin1(name));
    return submenu;
}

QAction* addNamedItem(QMenu* menu, const QString& caption, const char* name)
{
    QAction* item = menu->addAction(caption);
    item->setObjectName(QString::fromLatin1(name));
    return item;
}

QAction* addCheckItem(QMenu* menu, const QString& caption, const char* name, bool checked)
{
    QAction* item = addNamedItem(menu, caption, name);
    item->setCheckable(true);
    item->setChecked(checked);
    return item;
}

} // namespace platform
