#include "Stored.h"

#include "settings/StoreAndFileServices.h"

namespace testsupport {

QString stored(const QString& key, const QString& item, const QString& fallback)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), key, item,
                                                       fallback);
}

} // namespace testsupport
