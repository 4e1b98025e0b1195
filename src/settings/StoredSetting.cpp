#include "settings/StoredSetting.h"

#include "settings/StoreAndFileServices.h"

QString StoredSetting::defaultValue() const
{
    if (fallbackOf)
        return fallbackOf();
    return fallback ? QString::fromLatin1(fallback) : QString();
}

QString StoredSetting::read() const
{
    // The default first: one known only at run time may read the store itself.
    const QString absent = defaultValue();
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), key(),
                                                       QString::fromLatin1(name), absent);
}

bool StoredSetting::write(const QString& data) const
{
    return StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), key(),
                                                        QString::fromLatin1(writtenName ? writtenName : name),
                                                        data);
}
