#include "album/MainSettings.h"

#include "library/clsLibrary.h"

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
