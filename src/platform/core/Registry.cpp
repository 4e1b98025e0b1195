#include "platform/core/Registry.h"

#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/core/RegistryFormat.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform {

namespace {

using namespace registryformat;

// How long a write waits for another program that holds the store.
constexpr int BusyTimeoutMs = 5000;

// The one key of HKEY_LOCAL_MACHINE that has a value, case-folded.
const QString MachineKey = QStringLiteral("software\\microsoft\\windows\\currentversion");
const QString OwnerValue = QStringLiteral("registeredowner");

// The runtime's error number for a failed SQLite call: a write-protected file or
// folder is "Permission denied", a full disk "Disk full", anything else (a file
// that isn't a database, a store that stays locked) "Path/File access error".
int errorNumberOf(int rc, int systemErrno)
{
    switch (rc & 0xff) {
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH: return err::PermissionDenied;
    case SQLITE_FULL: return err::DiskFull;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
        if (systemErrno == EACCES || systemErrno == EPERM || systemErrno == EROFS)
            return err::PermissionDenied;
        if (systemErrno == ENOSPC || systemErrno == EDQUOT)
            return err::DiskFull;
        return err::PathFileAccess;
    default: return err::PathFileAccess;
    }
}

Error sqliteError(sqlite3* db, int rc, const QString& what)
{
    const char* message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    const int systemErrno = db ? sqlite3_system_errno(db) : 0;
    return Error(errorNumberOf(rc, systemErrno), what + QStringLiteral(": ") + QString::fromUtf8(message));
}

// The statements of a connection, prepared once and kept until it closes: the
// store's statements are small, and preparing one costs more than running it.
// A statement is found by the address of its text, which is always a literal.
class StatementCache {
public:
    StatementCache() = default;
    ~StatementCache() { clear(); }
    StatementCache(const StatementCache&) = delete;
    StatementCache& operator=(const StatementCache&) = delete;

    // The prepared statement, or nullptr with the reason in *rc. A statement that
    // fails to prepare (a store without tables yet) is tried again next time.
    sqlite3_stmt* get(sqlite3* db, const char* sql, int* rc)
    {
        for (const auto& [text, stmt] : entries_) {
            if (text == sql) {
                *rc = SQLITE_OK;
                return stmt;
            }
        }
        sqlite3_stmt* stmt = nullptr;
        *rc = sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
        if (*rc == SQLITE_OK && stmt)
            entries_.emplace_back(sql, stmt);
        return stmt;
    }

    // Must run before the connection closes, or it stays open.
    void clear()
    {
        for (const auto& entry : entries_)
            sqlite3_finalize(entry.second);
        entries_.clear();
    }

private:
    std::vector<std::pair<const char*, sqlite3_stmt*>> entries_;
};

// One use of a kept statement. It is reset when the use ends, so that no read
// holds on to its snapshot of the store.
class Statement {
public:
    Statement(StatementCache& cache, sqlite3* db, const char* sql) : db_(db)
    {
        stmt_ = cache.get(db, sql, &rc_);
    }
    ~Statement()
    {
        if (stmt_)
            reset();
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    bool prepared() const { return rc_ == SQLITE_OK && stmt_ != nullptr; }
    int result() const { return rc_; }

    void bind(int index, const QString& text)
    {
        const QByteArray utf8 = text.toUtf8();
        keep(sqlite3_bind_text(stmt_, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT));
    }
    // constData() is never null, so an empty array binds a zero-length blob, not NULL.
    void bind(int index, const QByteArray& bytes)
    {
        keep(sqlite3_bind_blob(stmt_, index, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT));
    }
    void bind(int index, int number) { keep(sqlite3_bind_int(stmt_, index, number)); }

    int step()
    {
        if (rc_ != SQLITE_OK)
            return rc_;
        return sqlite3_step(stmt_);
    }
    void reset()
    {
        sqlite3_reset(stmt_);
        sqlite3_clear_bindings(stmt_);
    }

    // Runs a statement that returns no rows; throws what SQLite reports.
    void run(const QString& what)
    {
        const int rc = step();
        if (rc != SQLITE_DONE)
            throw sqliteError(db_, rc, what);
        reset();
    }

    int columnInt(int column) const { return sqlite3_column_int(stmt_, column); }
    QByteArray columnBytes(int column) const
    {
        const int size = sqlite3_column_bytes(stmt_, column);
        const void* data = sqlite3_column_blob(stmt_, column);
        return size > 0 && data ? QByteArray(static_cast<const char*>(data), size) : QByteArray("");
    }

private:
    void keep(int rc)
    {
        if (rc_ == SQLITE_OK)
            rc_ = rc;
    }

    sqlite3* db_;
    sqlite3_stmt* stmt_ = nullptr;
    int rc_;
};

// Where each key along a normalised key path ends, the key itself last. Case
// folding neither makes nor removes a separator, so a path and its folded form
// name the same keys, each ending at its own place.
QList<qsizetype> keyEnds(const QString& path)
{
    QList<qsizetype> ends;
    for (qsizetype i = 0; i < path.size(); ++i)
        if (path.at(i) == QLatin1Char('\\'))
            ends << i;
    if (!path.isEmpty())
        ends << path.size();
    return ends;
}

void execute(sqlite3* db, const char* sql, const QString& what)
{
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK)
        throw sqliteError(db, rc, what);
}

// The user's full name from the account database, or the login name when the
// account has none.
QString registeredOwner()
{
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    int rc;
    while ((rc = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found)) == ERANGE &&
           buffer.size() < (1u << 20))
        buffer.resize(buffer.size() * 2);
    QString owner;
    if (rc == 0 && found) {
        if (entry.pw_gecos)
            owner = QString::fromLocal8Bit(entry.pw_gecos).section(QLatin1Char(','), 0, 0).trimmed();
        if (owner.isEmpty() && entry.pw_name)
            owner = QString::fromLocal8Bit(entry.pw_name);
    }
    if (owner.isEmpty())
        owner = qEnvironmentVariable("LOGNAME", qEnvironmentVariable("USER"));
    return owner;
}

// Why the store couldn't be opened, for the error a write throws.
struct OpenFailure {
    int rc = SQLITE_OK;
    int systemErrno = 0;
    QString message;
};

// Opens a connection and reads the schema, which rejects a file that isn't a
// database before anything could be written to it. nullptr on failure.
sqlite3* openConnection(const QByteArray& name, int flags, OpenFailure* failure)
{
    sqlite3* db = nullptr;
    int rc = sqlite3_open_v2(name.constData(), &db, flags, nullptr);
    if (rc == SQLITE_OK) {
        sqlite3_extended_result_codes(db, 1);
        sqlite3_busy_timeout(db, BusyTimeoutMs);
        rc = sqlite3_exec(db, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
    }
    if (rc == SQLITE_OK)
        return db;
    failure->rc = rc;
    failure->systemErrno = db ? sqlite3_system_errno(db) : 0;
    failure->message = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(rc));
    sqlite3_close_v2(db);
    return nullptr;
}

} // namespace

// A key path in the two forms the store uses: as written (normalised) and case
// folded, with where each key along it ends in either.
struct KeyPath {
    QString given;
    QString path;
    QString folded;
    QList<qsizetype> pathEnds;
    QList<qsizetype> foldedEnds;
};

struct Registry::Impl {
    sqlite3* db = nullptr;
    StatementCache statements;
    bool writable = false;
    bool schemaReady = false;
    // A store is checked for damage before this connection first writes to it. A
    // damaged one is read as far as it can be and never written, so that nothing
    // that could still be saved from it is overwritten.
    bool checked = false;
    bool damaged = false;
    uint64_t failedReads = 0;
    // How many ReadTogether objects live, and whether their read transaction is
    // open on this connection.
    int readersTogether = 0;
    bool readTransaction = false;
    // The key paths used last, ready folded: adding a folder writes the album's
    // count and then a slot for each of its pictures, and folding the paths anew
    // each time would cost about as much as the look-up itself.
    std::array<KeyPath, 4> recentKeys;
    size_t nextKey = 0;

    const KeyPath& key(const QString& keyPath)
    {
        for (const KeyPath& known : recentKeys)
            if (!known.given.isNull() && known.given == keyPath)
                return known;
        KeyPath& made = recentKeys[nextKey];
        nextKey = (nextKey + 1) % recentKeys.size();
        made.given = keyPath.isNull() ? QStringLiteral("") : keyPath;
        made.path = normaliseKeyPath(keyPath);
        made.folded = fold(made.path);
        made.pathEnds = keyEnds(made.path);
        made.foldedEnds = keyEnds(made.folded);
        return made;
    }

    ~Impl() { close(); }

    // Closing the last connection checkpoints the write-ahead log into the
    // database file and removes it.
    void close()
    {
        statements.clear();
        sqlite3_close_v2(db);
        db = nullptr;
        readTransaction = false;
        writable = false;
        schemaReady = false;
        checked = false;
        damaged = false;
    }

    // Takes note of a result that says the file is damaged.
    void noteResult(int rc)
    {
        const int primary = rc & 0xff;
        if ((primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB) && !damaged)
            markDamaged(QString::fromUtf8(sqlite3_errstr(rc)));
    }

    // Takes note of how a read ended: a row or the end of the rows is an answer, and
    // so is a statement that can't be prepared because the store has no tables yet
    // (a plain SQLITE_ERROR, "no such table"). Anything else is a read that failed.
    void noteRead(const Statement& statement, int rc)
    {
        if (rc == SQLITE_ROW || rc == SQLITE_DONE)
            return;
        noteResult(rc);
        if (!statement.prepared() && rc == SQLITE_ERROR)
            return;
        ++failedReads;
    }

    void markDamaged(const QString& why)
    {
        damaged = true;
        qWarning("The settings store %s is damaged (%s): it is read as far as it can be and not written.",
                 qPrintable(databasePath()), qPrintable(why));
    }

    // PRAGMA quick_check walks every page of the store: a damaged page, a lost
    // page or a broken link between them shows.
    void checkForDamage()
    {
        checked = true;
        Statement check(statements, db, "PRAGMA quick_check(1)");
        const int rc = check.step();
        if (rc != SQLITE_ROW) {
            noteResult(rc);
            if (damaged)
                return;
            checked = false;
            throw sqliteError(db, rc, QStringLiteral("Cannot check the settings store"));
        }
        const QString verdict = QString::fromUtf8(check.columnBytes(0));
        if (verdict == QLatin1String("ok"))
            return;
        // A page that couldn't be read for want of the disk or of memory says
        // nothing about the file: it is checked again before the next write, and
        // this one, unchecked, doesn't happen.
        static const QRegularExpression failedPage(QStringLiteral("error code=(\\d+)"));
        const QRegularExpressionMatch failure = failedPage.match(verdict);
        if (failure.hasMatch()) {
            const int primary = failure.captured(1).toInt() & 0xff;
            if (primary != SQLITE_CORRUPT && primary != SQLITE_NOTADB) {
                checked = false;
                throw Error(errorNumberOf(failure.captured(1).toInt(), 0),
                            QStringLiteral("The settings store %1 can't be checked: %2")
                                .arg(databasePath(), verdict));
            }
        }
        markDamaged(verdict);
    }

    // Opens the store read-write, creating the file only if `create`; an
    // existing store that can't be written is opened read-only.
    bool open(const QString& path, bool create, OpenFailure* failure)
    {
        const QByteArray name = QFile::encodeName(path);
        const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
        db = openConnection(name, flags, failure);
        writable = db && !sqlite3_db_readonly(db, "main");
        // Only a store this program may not write is opened read-only: one that
        // failed to read for another reason (an I/O error) is tried again by the
        // next call, which may then write it.
        const bool mayNotWrite = (failure->rc & 0xff) == SQLITE_CANTOPEN ||
                                 errorNumberOf(failure->rc, failure->systemErrno) == err::PermissionDenied;
        if (!db && !create && mayNotWrite) {
            OpenFailure ignored;
            db = openConnection(name, SQLITE_OPEN_READONLY, &ignored);
            if (!db && mayReadImmutable(path))
                db = openConnection(immutableUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, &ignored);
        }
        if (!db)
            return false;
        // In write-ahead-log mode NORMAL syncs at checkpoints only; a killed
        // program still loses nothing it committed.
        sqlite3_exec(db, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
        return true;
    }

    // The connection for a read; nullptr when there is no store or it can't be read.
    // Within a ReadTogether the first read opens the transaction the others share.
    sqlite3* reader()
    {
        if (!db) {
            const QString path = databasePath();
            if (path.isEmpty() || !QFileInfo::exists(path))
                return nullptr;
            OpenFailure failure;
            if (!open(path, false, &failure))
                ++failedReads;
        }
        // A read that fails may end the transaction (SQLite rolls it back): the
        // next read opens another.
        if (db && readersTogether > 0 && sqlite3_get_autocommit(db))
            readTransaction = sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK;
        return db;
    }

    // Ends the read transaction of a ReadTogether, if one is open.
    void endReadTransaction()
    {
        if (!readTransaction)
            return;
        readTransaction = false;
        if (db && !sqlite3_get_autocommit(db) &&
            sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    }

    // The connection for a write, creating the folder and the file if need be.
    sqlite3* writer()
    {
        if (!db) {
            const QString path = databasePath();
            if (path.isEmpty())
                throw Error(err::PathNotFound,
                            QStringLiteral("There is no configuration folder for the settings"));
            const bool exists = QFileInfo::exists(path);
            const QString folder = QFileInfo(path).absolutePath();
            if (!exists && !QDir().mkpath(folder))
                throw Error(err::PathFileAccess, QStringLiteral("Cannot create the folder %1").arg(folder));
            OpenFailure failure;
            if (!open(path, !exists, &failure))
                throw Error(
                    errorNumberOf(failure.rc, failure.systemErrno),
                    QStringLiteral("Cannot open the settings store %1: %2").arg(path, failure.message));
        }
        if (!writable)
            throw Error(err::PermissionDenied,
                        QStringLiteral("The settings store %1 is read-only").arg(databasePath()));
        if (!checked)
            checkForDamage();
        if (damaged)
            throw Error(
                err::PathFileAccess,
                QStringLiteral("The settings store %1 is damaged and is left as it is").arg(databasePath()));
        if (!schemaReady) {
            // Reads leave the file as it is; the first write of a connection
            // switches it to the write-ahead log, which lets another running
            // program read while this one writes. The mode stays with the file.
            formatVersion();
            // A new store gets small pages: a write rewrites whole pages into the
            // log, and a value is small. A store that holds data keeps its size.
            sqlite3_exec(db, "PRAGMA page_size=1024", nullptr, nullptr, nullptr);
            sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
        }
        return db;
    }

    // The format of the store, refusing one newer than this program's.
    int formatVersion()
    {
        Statement version(statements, db, "PRAGMA user_version");
        if (version.step() != SQLITE_ROW)
            throw sqliteError(db, version.result(), QStringLiteral("Cannot read the settings store"));
        const int found = version.columnInt(0);
        if (found > Version)
            throw Error(err::PathFileAccess,
                        QStringLiteral("The settings store %1 has format %2, newer than this "
                                       "program's %3")
                            .arg(databasePath())
                            .arg(found)
                            .arg(Version));
        return found;
    }

    // Creates the tables of a new store, inside the write's transaction.
    void ensureSchema()
    {
        if (schemaReady)
            return;
        const int found = formatVersion();
        execute(db, Schema, QStringLiteral("Cannot create the settings store"));
        if (found < Version)
            execute(db, QStringLiteral("PRAGMA user_version=%1").arg(Version).toUtf8().constData(),
                    QStringLiteral("Cannot create the settings store"));
    }
};

Registry::Registry() : impl_(std::make_unique<Impl>()) {}

Registry::~Registry() = default;

Registry& Registry::instance()
{
    static Registry registry;
    return registry;
}

QString Registry::databasePath()
{
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (config.isEmpty())
        return QString();
    return config + QLatin1Char('/') + App::CompanyName() + QStringLiteral("/settings.sqlite");
}

std::optional<RegistryValue> Registry::queryValue(uint32_t root, const QString& keyPath, const QString& name)
{
    const QString key = impl_->key(keyPath).folded;
    if (root == HKEY_LOCAL_MACHINE) {
        if (key == MachineKey && fold(name) == OwnerValue)
            return RegistryValue{REG_SZ, registeredOwner().toUtf8()};
        return std::nullopt;
    }
    if (root != HKEY_CURRENT_USER)
        return std::nullopt;
    sqlite3* db = impl_->reader();
    if (!db)
        return std::nullopt;
    // A store without tables yet fails to prepare: the value is absent.
    Statement query(impl_->statements, db, "SELECT type, data FROM reg_value WHERE key = ?1 AND folded = ?2");
    query.bind(1, key);
    query.bind(2, fold(name));
    const int rc = query.step();
    if (rc != SQLITE_ROW) {
        impl_->noteRead(query, rc);
        return std::nullopt;
    }
    return RegistryValue{query.columnInt(0), query.columnBytes(1)};
}

QStringList Registry::valueNames(uint32_t root, const QString& keyPath)
{
    QStringList names;
    const QString key = impl_->key(keyPath).folded;
    sqlite3* db = root == HKEY_CURRENT_USER ? impl_->reader() : nullptr;
    if (!db)
        return names;
    Statement query(impl_->statements, db, "SELECT name FROM reg_value WHERE key = ?1");
    query.bind(1, key);
    int rc;
    while ((rc = query.step()) == SQLITE_ROW)
        names << QString::fromUtf8(query.columnBytes(0));
    impl_->noteRead(query, rc);
    return names;
}

bool Registry::keyExists(uint32_t root, const QString& keyPath)
{
    const QString key = impl_->key(keyPath).folded;
    if (root == HKEY_LOCAL_MACHINE)
        return key.isEmpty() || key == MachineKey || MachineKey.startsWith(key + QLatin1Char('\\'));
    if (root != HKEY_CURRENT_USER)
        return false;
    if (key.isEmpty())
        return true;
    sqlite3* db = impl_->reader();
    if (!db)
        return false;
    Statement query(impl_->statements, db, "SELECT 1 FROM reg_key WHERE folded = ?1");
    query.bind(1, key);
    const int rc = query.step();
    impl_->noteRead(query, rc);
    return rc == SQLITE_ROW;
}

uint64_t Registry::failedReads() const
{
    return impl_->failedReads;
}

void Registry::setValue(uint32_t root, const QString& keyPath, const QString& name,
                        const RegistryValue& value)
{
    if (root == HKEY_LOCAL_MACHINE)
        throw Error(err::PermissionDenied, QStringLiteral("HKEY_LOCAL_MACHINE is read-only"));
    if (root != HKEY_CURRENT_USER)
        throw Error(err::PathFileAccess, QStringLiteral("Unknown root key %1").arg(root, 0, 16));

    // A write is a transaction of its own, never part of the reads' one.
    impl_->endReadTransaction();
    sqlite3* db = impl_->writer();
    const QString what = QStringLiteral("Cannot write the settings store");
    // IMMEDIATE takes the write lock at once, so a second program waits here
    // (up to the busy timeout) rather than failing halfway through.
    Statement(impl_->statements, db, "BEGIN IMMEDIATE").run(what);
    try {
        impl_->ensureSchema();

        // The key and every missing key above it, from the key itself upwards. A
        // key is only ever stored together with all the keys above it, so the
        // first one found stored ends the climb. A key keeps the spelling it was
        // created with.
        const KeyPath key = impl_->key(keyPath);
        Statement addKey(impl_->statements, db,
                         "INSERT OR IGNORE INTO reg_key (folded, path) VALUES (?1, ?2)");
        for (qsizetype i = std::min(key.pathEnds.size(), key.foldedEnds.size()) - 1; i >= 0; --i) {
            addKey.bind(1, key.folded.left(key.foldedEnds[i]));
            addKey.bind(2, key.path.left(key.pathEnds[i]));
            addKey.run(what);
            if (sqlite3_changes(db) == 0)
                break;
        }

        // Like the registry, an existing value keeps the spelling of the name it
        // was first written with; type and data are replaced.
        Statement set(impl_->statements, db,
                      "INSERT INTO reg_value (key, folded, name, type, data) VALUES (?1, ?2, ?3, ?4, ?5)"
                      " ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data");
        set.bind(1, key.folded);
        set.bind(2, fold(name));
        set.bind(3, name);
        set.bind(4, value.type);
        set.bind(5, value.data);
        set.run(what);

        Statement(impl_->statements, db, "COMMIT").run(what);
    } catch (...) {
        impl_->noteResult(sqlite3_extended_errcode(db));
        if (!sqlite3_get_autocommit(db))
            sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    impl_->schemaReady = true;
}

Registry::ReadTogether::ReadTogether()
{
    ++instance().impl_->readersTogether;
}

Registry::ReadTogether::~ReadTogether()
{
    Impl& impl = *instance().impl_;
    if (--impl.readersTogether == 0)
        impl.endReadTransaction();
}

void Registry::reopen()
{
    impl_->close();
}

} // namespace platform
