// The settings store operations. Each call opens the key, does its
// one read or write and is done: nothing is cached and no write is deferred, so a
// value written is there for the very next read from any part of the program.

#include "settings/StoreAndFileServices.h"

#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/core/Registry.h"

#include <optional>

using platform::Registry;
using platform::RegistryValue;

namespace {

// The longest text a read gives back; anything longer reads as the default.
constexpr qsizetype MaxReadCharacters = 254;

// The root handle from its signed decimal text, nothing if the text isn't a number.
std::optional<uint32_t> rootOf(const QString& key)
{
    bool ok = false;
    const int32_t handle = key.toInt(&ok);
    if (!ok)
        return std::nullopt;
    return static_cast<uint32_t>(handle);
}

// Characters as the user sees them: a character outside the Basic Multilingual
// Plane counts once, not as its two UTF-16 units.
qsizetype characterCount(const QString& text)
{
    qsizetype count = 0;
    for (const QChar c : text)
        if (!c.isLowSurrogate())
            ++count;
    return count;
}

bool writeValue(const QString& KEY, const QString& SUBKEY, const QString& ITEM, const RegistryValue& value)
{
    const std::optional<uint32_t> root = rootOf(KEY);
    if (!root)
        return false;
    try {
        Registry::instance().setValue(*root, SUBKEY, ITEM, value);
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

StoreAndFileServices& StoreAndFileServices::instance()
{
    static StoreAndFileServices services;
    return services;
}

QString StoreAndFileServices::currentUserKey()
{
    return QString::number(static_cast<int32_t>(platform::HKEY_CURRENT_USER));
}

QString StoreAndFileServices::localMachineKey()
{
    return QString::number(static_cast<int32_t>(platform::HKEY_LOCAL_MACHINE));
}

QString StoreAndFileServices::programKey()
{
    return companyKey() + QLatin1Char('\\') + platform::App::Title();
}

QString StoreAndFileServices::companyKey()
{
    return QStringLiteral("SOFTWARE\\") + platform::App::CompanyName();
}

QString StoreAndFileServices::REGSTRREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                                         const QString& SDEFAULT)
{
    try {
        const std::optional<uint32_t> root = rootOf(KEY);
        if (!root)
            return SDEFAULT;
        // A key or value that isn't there reads as the default.
        const std::optional<RegistryValue> value = Registry::instance().queryValue(*root, SUBKEY, ITEM);
        if (!value || (value->type != platform::REG_SZ && value->type != platform::REG_EXPAND_SZ))
            return SDEFAULT;
        const QString text = QString::fromUtf8(value->data);
        // Too long for the read buffer: the default, not a cut text.
        if (characterCount(text) > MaxReadCharacters)
            return SDEFAULT;
        return text;
    } catch (...) {
        return QString();
    }
}

bool StoreAndFileServices::REGSTRWRITE(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                                       const QString& DATA)
{
    // A blank DATA stores a value that exists and is blank.
    return writeValue(KEY, SUBKEY, ITEM, RegistryValue{platform::REG_SZ, DATA.toUtf8()});
}

QString StoreAndFileServices::REGDWORDREAD(int32_t hKey, const QString& STRPATH, const QString& VALNAME,
                                           int32_t SDATAVAL)
{
    const auto number = static_cast<uint32_t>(SDATAVAL);
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<char>((number >> (8 * i)) & 0xffu);
    platform::resumeNext([&] {
        Registry::instance().setValue(static_cast<uint32_t>(hKey), STRPATH, VALNAME,
                                      RegistryValue{platform::REG_DWORD, bytes});
    });
    return QString();
}

bool StoreAndFileServices::REGBINARYREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                                         const QByteArray& DATA)
{
    return writeValue(KEY, SUBKEY, ITEM, RegistryValue{platform::REG_BINARY, DATA});
}

void StoreAndFileServices::REGBINARYWRITE()
{
    const QByteArray buttons("\x64\x00\x00\x00\x65", 5);
    // The company name is part of this literal, not taken from the application.
    REGBINARYREAD(currentUserKey(),
                  QStringLiteral("SOFTWARE\\ZUV Software Development\\") + platform::App::Title() +
                      QStringLiteral("\\frmMain\\Toolbar\\") + QStringLiteral("Standard"),
                  QStringLiteral("Buttons"), buttons);
}
