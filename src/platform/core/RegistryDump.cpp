#include "platform/core/RegistryDump.h"

#include "platform/core/Registry.h"
#include "platform/core/RegistryFormat.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

using namespace registryformat;

struct Value {
    QString folded;
    QString name;
    int type = REG_SZ;
    QByteArray data;
};

struct Key {
    QStringList sortKey; // the folded components
    QString path;
    std::vector<Value> values;
};

// Control characters as \xNN; within quotes " and \ are escaped as well.
QString escaped(const QString& text, bool quoted)
{
    QString out;
    for (const QChar c : text) {
        if (quoted && (c == QLatin1Char('"') || c == QLatin1Char('\\')))
            out += QLatin1Char('\\') + QString(c);
        else if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            out += QStringLiteral("\\x%1").arg(uint(c.unicode()), 2, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return quoted ? QStringLiteral("\"") + out + QStringLiteral("\"") : out;
}

QString hexBytes(const QByteArray& data)
{
    return QString::fromLatin1(data.toHex(','));
}

QString formatData(const Value& value)
{
    switch (value.type) {
    case REG_SZ: return QStringLiteral("REG_SZ:") + escaped(QString::fromUtf8(value.data), true);
    case REG_EXPAND_SZ:
        return QStringLiteral("REG_EXPAND_SZ:") + escaped(QString::fromUtf8(value.data), true);
    case REG_BINARY: return QStringLiteral("REG_BINARY:") + hexBytes(value.data);
    case REG_DWORD:
        if (value.data.size() == 4) {
            uint32_t number = 0;
            for (int i = 3; i >= 0; --i)
                number = (number << 8) | static_cast<uint8_t>(value.data[i]);
            return QStringLiteral("dword:%1 (%2)").arg(number, 8, 16, QLatin1Char('0')).arg(number);
        }
        return QStringLiteral("REG_DWORD(%1 bytes):").arg(value.data.size()) + hexBytes(value.data);
    default: return QStringLiteral("type %1:").arg(value.type) + hexBytes(value.data);
    }
}

// A read-only statement over the whole of one table.
class Rows {
public:
    Rows(sqlite3* db, const char* sql) { rc_ = sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr); }
    ~Rows() { sqlite3_finalize(stmt_); }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    bool next()
    {
        if (rc_ != SQLITE_OK && rc_ != SQLITE_ROW)
            return false;
        rc_ = sqlite3_step(stmt_);
        return rc_ == SQLITE_ROW;
    }
    // Whether preparing or stepping reported an error.
    bool failed() const { return rc_ != SQLITE_OK && rc_ != SQLITE_ROW && rc_ != SQLITE_DONE; }

    QString text(int column) const
    {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column)),
                                 sqlite3_column_bytes(stmt_, column));
    }
    int number(int column) const { return sqlite3_column_int(stmt_, column); }
    QByteArray bytes(int column) const
    {
        const void* data = sqlite3_column_blob(stmt_, column);
        return QByteArray(static_cast<const char*>(data), data ? sqlite3_column_bytes(stmt_, column) : 0);
    }

private:
    sqlite3_stmt* stmt_ = nullptr;
    int rc_;
};

// The path below HKEY_CURRENT_USER, accepting the root's name in front.
QString pathBelowRoot(const QString& keyPath)
{
    QStringList parts = keyComponents(keyPath);
    if (!parts.isEmpty() && (fold(parts.first()) == QLatin1String("hkey_current_user") ||
                             fold(parts.first()) == QLatin1String("hkcu")))
        parts.removeFirst();
    return parts.join(QLatin1Char('\\'));
}

bool isAtOrBelow(const QString& folded, const QString& prefix)
{
    return prefix.isEmpty() || folded == prefix || folded.startsWith(prefix + QLatin1Char('\\'));
}

StoreDump failure(StoreDump::Status status, const QString& error)
{
    StoreDump dump;
    dump.status = status;
    dump.error = error;
    return dump;
}

} // namespace

StoreDump dumpStore(const QString& databaseFile, const QString& keyPath)
{
    if (!QFileInfo::exists(databaseFile))
        return failure(StoreDump::Missing,
                       QStringLiteral("There is no settings store at %1").arg(databaseFile));

    sqlite3* db = nullptr;
    int rc = sqlite3_open_v2(QFile::encodeName(databaseFile).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    if (rc == SQLITE_OK)
        sqlite3_busy_timeout(db, 5000);
    if (rc == SQLITE_OK &&
        sqlite3_exec(db, "SELECT 1 FROM sqlite_schema", nullptr, nullptr, nullptr) != SQLITE_OK &&
        mayReadImmutable(databaseFile)) {
        // A store in a folder that can't be written may only be readable as it
        // stands on disk.
        sqlite3_close_v2(db);
        db = nullptr;
        rc = sqlite3_open_v2(immutableUri(databaseFile).constData(), &db,
                             SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    }
    // One read transaction, so that the keys and values are of one moment even
    // while the program writes.
    if (rc == SQLITE_OK)
        rc = sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);

    const QString prefix = fold(pathBelowRoot(keyPath));
    bool hasTables = false;
    QMap<QString, Key> keys; // by folded path
    bool readFailed = rc != SQLITE_OK;
    if (!readFailed) {
        Rows tables(db, "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name IN ('reg_key', "
                        "'reg_value')");
        hasTables = tables.next() && tables.number(0) == 2;
        readFailed = !hasTables && tables.failed();
    }
    if (hasTables) {
        Rows keyRows(db, "SELECT folded, path FROM reg_key");
        while (keyRows.next()) {
            const QString folded = keyRows.text(0);
            if (isAtOrBelow(folded, prefix))
                keys[folded] = Key{keyComponents(folded), keyRows.text(1), {}};
        }
        Rows valueRows(db, "SELECT key, folded, name, type, data FROM reg_value");
        while (valueRows.next()) {
            const QString key = valueRows.text(0);
            if (!isAtOrBelow(key, prefix))
                continue;
            Key& entry = keys[key];
            if (entry.sortKey.isEmpty() && !key.isEmpty()) {
                entry.sortKey = keyComponents(key);
                entry.path = key;
            }
            entry.values.push_back(
                Value{valueRows.text(1), valueRows.text(2), valueRows.number(3), valueRows.bytes(4)});
        }
        readFailed = keyRows.failed() || valueRows.failed();
    }
    if (readFailed) {
        const QString error =
            QStringLiteral("Cannot read the settings store %1: %2")
                .arg(databaseFile, QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(rc)));
        sqlite3_close_v2(db);
        return failure(StoreDump::Unreadable, error);
    }
    sqlite3_close_v2(db);

    if (!prefix.isEmpty() && !keys.contains(prefix))
        return failure(StoreDump::KeyNotFound, QStringLiteral("There is no key HKEY_CURRENT_USER\\%1 in the "
                                                              "settings store")
                                                   .arg(pathBelowRoot(keyPath)));

    // Component by component, so that a key's subkeys follow it directly.
    std::vector<Key> sorted(keys.begin(), keys.end());
    std::sort(sorted.begin(), sorted.end(), [](const Key& a, const Key& b) {
        return std::lexicographical_compare(a.sortKey.begin(), a.sortKey.end(), b.sortKey.begin(),
                                            b.sortKey.end());
    });

    StoreDump dump;
    for (Key& key : sorted) {
        if (!dump.text.isEmpty())
            dump.text += QLatin1Char('\n');
        dump.text += QStringLiteral("[HKEY_CURRENT_USER");
        if (!key.path.isEmpty())
            dump.text += QLatin1Char('\\') + escaped(key.path, false);
        dump.text += QStringLiteral("]\n");
        std::sort(key.values.begin(), key.values.end(),
                  [](const Value& a, const Value& b) { return a.folded < b.folded; });
        for (const Value& value : key.values) {
            dump.text += value.name.isEmpty() ? QStringLiteral("@") : escaped(value.name, true);
            dump.text += QLatin1Char('=') + formatData(value) + QLatin1Char('\n');
        }
    }
    return dump;
}

} // namespace platform
