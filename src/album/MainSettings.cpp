#include "album/MainSettings.h"

#include "settings/clsLibrary.h"

namespace album {

QString preferencesKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPREFERENCES\\Items");
}

QString viewKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\me\\View");
}

} // namespace album
