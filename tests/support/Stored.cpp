#include "Stored.h"

#include "settings/clsLibrary.h"

namespace testsupport {

QString stored(const QString& key, const QString& item, const QString& fallback)
{
    return clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), key, item, fallback);
}

} // namespace testsupport
