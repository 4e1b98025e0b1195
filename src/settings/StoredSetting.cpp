#include "settings/StoredSetting.h"

#include "settings/clsLibrary.h"

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
    return clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), key(), QString::fromLatin1(name),
                                             absent);
}

bool StoredSetting::write(const QString& data) const
{
    return clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key(),
                                              QString::fromLatin1(writtenName ? writtenName : name), data);
}
