#include "settings/AlbumStore.h"

#include "platform/core/Conversions.h"
#include "platform/core/Registry.h"
#include "settings/clsLibrary.h"

QString AlbumStore::countKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Items");
}

QString AlbumStore::countName()
{
    return QStringLiteral("Items");
}

QString AlbumStore::slotsKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection");
}

QString AlbumStore::slotName(int32_t slot)
{
    return platform::numberText(slot);
}

QString AlbumStore::count()
{
    return clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), countKey(), countName(),
                                             QStringLiteral("0"));
}

QString AlbumStore::slot(int32_t slot, const QString& absent)
{
    return clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), slotsKey(), slotName(slot),
                                             absent);
}

bool AlbumStore::setCount(int32_t count)
{
    return clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), countKey(), countName(),
                                              platform::numberText(count));
}

bool AlbumStore::setSlot(int32_t slot, const QString& path)
{
    return clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), slotsKey(), slotName(slot), path);
}

int32_t AlbumStore::highestSlot()
{
    int32_t highest = 0;
    for (const QString& name :
         platform::Registry::instance().valueNames(platform::HKEY_CURRENT_USER, slotsKey())) {
        bool isNumber = false;
        const int32_t slot = name.toInt(&isNumber);
        if (isNumber && slot > highest)
            highest = slot;
    }
    return highest;
}
