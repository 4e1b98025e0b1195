#include "TempStore.h"

#include "platform/core/Registry.h"

TempStore::TempStore()
    : previous_(qgetenv("XDG_CONFIG_HOME")), hadPrevious_(qEnvironmentVariableIsSet("XDG_CONFIG_HOME"))
{
    qputenv("XDG_CONFIG_HOME", dir_.path().toUtf8());
    platform::Registry::instance().reopen();
}

TempStore::~TempStore()
{
    platform::Registry::instance().reopen();
    if (hadPrevious_)
        qputenv("XDG_CONFIG_HOME", previous_);
    else
        qunsetenv("XDG_CONFIG_HOME");
}

QString TempStore::databasePath() const
{
    return platform::Registry::databasePath();
}
