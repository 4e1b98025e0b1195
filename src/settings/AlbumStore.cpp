#include "settings/AlbumStore.h"

#include "platform/core/Conversions.h"
#include "platform/core/Registry.h"
#include "settings/StoreAndFileServices.h"

QString AlbumStore::countKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\fPICTURES\\Items");
}

QString AlbumStore::countName()
{
    return QStringLiteral("Items");
}

QString AlbumStore::slotsKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\fPICTURES\\Selection");
}

QString AlbumStore::slotName(int32_t slot)
{
    return platform::numberText(slot);
}

QString AlbumStore::count()
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), countKey(),
                                                       countName(), QStringLiteral("0"));
}

QString AlbumStore::slot(int32_t slot, const QString& absent)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), slotsKey(),
                                                       slotName(slot), absent);
}

bool AlbumStore::setCount(int32_t count)
{
    return StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), countKey(),
                                                        countName(), platform::numberText(count));
}

bool AlbumStore::setSlot(int32_t slot, const QString& path)
{
    return StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), slotsKey(),
                                                        slotName(slot), path);
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
