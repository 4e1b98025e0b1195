#include "FaultyStore.h"

#include <QList>
#include <QString>

#include <sqlite3.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <unistd.h>

namespace faultystore {

namespace {

enum Class { Read, Write, Sync, Classes };

struct Fault {
    bool armed = false;
    Class kind = Read;
    long nth = 0;
    bool onward = false;
    int error = EIO;
    QByteArray whilePath;
};

Fault fault;
std::array<std::atomic<long>, Classes> calls{};
std::atomic<long> failures{0};
sqlite3_vfs* lower = nullptr;
sqlite3_vfs layer;

// A file of this layer: the lower layer's file follows it in the same block.
struct File {
    sqlite3_file base;
    bool watched;
    sqlite3_file* lower() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File* fileOf(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file);
}

sqlite3_file* lowerOf(sqlite3_file* file)
{
    return fileOf(file)->lower();
}

// Counts a call and tells whether it is to fail.
bool fails(sqlite3_file* file, Class kind)
{
    if (!fileOf(file)->watched)
        return false;
    const long n = ++calls[kind];
    if (!fault.armed || kind != fault.kind || n < fault.nth || (!fault.onward && n != fault.nth))
        return false;
    if (!fault.whilePath.isEmpty() && access(fault.whilePath.constData(), F_OK) != 0)
        return false;
    ++failures;
    // SQLite takes the system's error number from errno, as after a failed call.
    errno = fault.error;
    return true;
}

int xClose(sqlite3_file* file)
{
    return lowerOf(file)->pMethods->xClose(lowerOf(file));
}
int xRead(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset)
{
    if (fails(file, Read))
        return SQLITE_IOERR_READ;
    return lowerOf(file)->pMethods->xRead(lowerOf(file), buffer, amount, offset);
}
int xWrite(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset)
{
    if (fails(file, Write))
        return fault.error == ENOSPC ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    return lowerOf(file)->pMethods->xWrite(lowerOf(file), buffer, amount, offset);
}
int xTruncate(sqlite3_file* file, sqlite3_int64 size)
{
    return lowerOf(file)->pMethods->xTruncate(lowerOf(file), size);
}
int xSync(sqlite3_file* file, int flags)
{
    if (fails(file, Sync))
        return SQLITE_IOERR_FSYNC;
    return lowerOf(file)->pMethods->xSync(lowerOf(file), flags);
}
int xFileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return lowerOf(file)->pMethods->xFileSize(lowerOf(file), size);
}
int xLock(sqlite3_file* file, int level)
{
    return lowerOf(file)->pMethods->xLock(lowerOf(file), level);
}
int xUnlock(sqlite3_file* file, int level)
{
    return lowerOf(file)->pMethods->xUnlock(lowerOf(file), level);
}
int xCheckReservedLock(sqlite3_file* file, int* out)
{
    return lowerOf(file)->pMethods->xCheckReservedLock(lowerOf(file), out);
}
int xFileControl(sqlite3_file* file, int op, void* arg)
{
    return lowerOf(file)->pMethods->xFileControl(lowerOf(file), op, arg);
}
int xSectorSize(sqlite3_file* file)
{
    return lowerOf(file)->pMethods->xSectorSize(lowerOf(file));
}
int xDeviceCharacteristics(sqlite3_file* file)
{
    return lowerOf(file)->pMethods->xDeviceCharacteristics(lowerOf(file));
}
int xShmMap(sqlite3_file* file, int region, int size, int extend, void volatile** out)
{
    return lowerOf(file)->pMethods->xShmMap(lowerOf(file), region, size, extend, out);
}
int xShmLock(sqlite3_file* file, int offset, int n, int flags)
{
    return lowerOf(file)->pMethods->xShmLock(lowerOf(file), offset, n, flags);
}
void xShmBarrier(sqlite3_file* file)
{
    lowerOf(file)->pMethods->xShmBarrier(lowerOf(file));
}
int xShmUnmap(sqlite3_file* file, int deleteFlag)
{
    return lowerOf(file)->pMethods->xShmUnmap(lowerOf(file), deleteFlag);
}
int xFetch(sqlite3_file* file, sqlite3_int64 offset, int amount, void** out)
{
    return lowerOf(file)->pMethods->xFetch(lowerOf(file), offset, amount, out);
}
int xUnfetch(sqlite3_file* file, sqlite3_int64 offset, void* page)
{
    return lowerOf(file)->pMethods->xUnfetch(lowerOf(file), offset, page);
}

const sqlite3_io_methods methods = {
    3,
    xClose,
    xRead,
    xWrite,
    xTruncate,
    xSync,
    xFileSize,
    xLock,
    xUnlock,
    xCheckReservedLock,
    xFileControl,
    xSectorSize,
    xDeviceCharacteristics,
    xShmMap,
    xShmLock,
    xShmBarrier,
    xShmUnmap,
    xFetch,
    xUnfetch,
};

int xOpen(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags)
{
    File* own = fileOf(file);
    own->base.pMethods = nullptr;
    // The store's own files; temporary files of a statement are left alone.
    own->watched = (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    const int rc = lower->xOpen(lower, name, own->lower(), flags, outFlags);
    if (own->lower()->pMethods)
        own->base.pMethods = &methods;
    return rc;
}

bool parse(const QByteArray& text)
{
    if (text == "count")
        return true;
    const QList<QByteArray> parts = text.split(':');
    if (parts.size() != 3)
        return false;
    const QList<QByteArray> kinds{"read", "write", "sync"};
    const qsizetype kind = kinds.indexOf(parts[0]);
    QByteArray nth = parts[1];
    fault.onward = nth.endsWith('+');
    if (fault.onward)
        nth.chop(1);
    bool isNumber = false;
    fault.nth = nth.toLong(&isNumber);
    if (kind < 0 || !isNumber || fault.nth < 1 || (parts[2] != "EIO" && parts[2] != "ENOSPC"))
        return false;
    fault.kind = Class(kind);
    fault.error = parts[2] == "EIO" ? EIO : ENOSPC;
    fault.armed = true;
    return true;
}

} // namespace

bool installFromEnvironment()
{
    if (!qEnvironmentVariableIsSet("VISTARRO_STORE_FAULT"))
        return true;
    if (!parse(qgetenv("VISTARRO_STORE_FAULT")))
        return false;
    fault.whilePath = qgetenv("VISTARRO_STORE_FAULT_WHILE");
    sqlite3_initialize();
    lower = sqlite3_vfs_find(nullptr);
    if (!lower)
        return false;
    layer = *lower;
    layer.zName = "vistarro-faulty";
    layer.pNext = nullptr;
    layer.szOsFile = int(sizeof(File)) + lower->szOsFile;
    layer.xOpen = xOpen;
    return sqlite3_vfs_register(&layer, 1) == SQLITE_OK;
}

QByteArray counts()
{
    return "read=" + QByteArray::number(calls[Read]) + " write=" + QByteArray::number(calls[Write]) +
           " sync=" + QByteArray::number(calls[Sync]) + " failed=" + QByteArray::number(failures);
}

} // namespace faultystore
