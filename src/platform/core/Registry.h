#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>

struct sqlite3;

namespace platform {

// Root keys, as the 32-bit handles callers pass around.
constexpr uint32_t HKEY_CURRENT_USER = 0x80000001u;
constexpr uint32_t HKEY_LOCAL_MACHINE = 0x80000002u;

constexpr int REG_SZ = 1;
constexpr int REG_EXPAND_SZ = 2;
constexpr int REG_BINARY = 3;
constexpr int REG_DWORD = 4;

struct RegistryValue {
    int type = REG_SZ;
    QByteArray data; // text as UTF-8 without terminator; a DWORD as 4 bytes, little-endian
};

// The per-user settings store: a tree of keys holding named values, backed by one
// SQLite database per user under the XDG config home. Key paths ("A\B\C") and value
// names compare without regard to case (Unicode case folding). One connection is
// kept for the life of the process. Reading a store that doesn't exist creates
// nothing; the database appears with the first write.
class Registry {
public:
    static Registry& instance();

    // The database file of HKEY_CURRENT_USER.
    static QString databasePath();

    // The value, or nothing if the key or value is absent or the store can't be read.
    // The two cases look alike to the caller of a read; failedReads() tells them apart.
    std::optional<RegistryValue> queryValue(uint32_t root, const QString& keyPath, const QString& name);

    // The names of the values that a key of HKEY_CURRENT_USER holds, in no order.
    QStringList valueNames(uint32_t root, const QString& keyPath);

    // Whether the key exists.
    bool keyExists(uint32_t root, const QString& keyPath);

    // How many reads of HKEY_CURRENT_USER have failed since the program started: the
    // store is there but answered with an error (it couldn't be opened, a page
    // couldn't be read, it is damaged) rather than with "absent". A caller that must
    // not take a failed read for an absent value compares this before and after.
    uint64_t failedReads() const;

    // Creates the key and every missing key above it, then sets the value, in one
    // small transaction. Throws platform::Error when the store can't be written
    // (HKEY_LOCAL_MACHINE is read-only).
    void setValue(uint32_t root, const QString& keyPath, const QString& name, const RegistryValue& value);

    // While a ReadTogether lives, the reads of HKEY_CURRENT_USER share one read
    // transaction: they see one state of the store, and the store's locks are taken
    // once instead of at every read. Another program still reads and writes the
    // store meanwhile. A write ends the shared transaction before its own, so every
    // write stays its own transaction; the reads after it start a new one.
    class ReadTogether {
    public:
        ReadTogether();
        ~ReadTogether();
        ReadTogether(const ReadTogether&) = delete;
        ReadTogether& operator=(const ReadTogether&) = delete;
    };

    // Closes the connection, so that the next call opens the database anew, with
    // the database path of the environment at that time. For tests.
    void reopen();

    ~Registry();

private:
    Registry();
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace platform
