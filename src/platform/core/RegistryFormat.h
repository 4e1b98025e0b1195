#pragma once

// The layout of the settings database, shared by the store and its dump.
//
//   reg_key   (folded TEXT PRIMARY KEY, path TEXT)
//       One row per key. `path` is the key path as first written, `folded` its
//       Unicode case-folded copy, which is what lookups compare. The root itself
//       (the empty path) has no row.
//   reg_value (key TEXT, folded TEXT, name TEXT, type INTEGER, data BLOB)
//       One row per value, keyed by (key, folded): the folded key path and the
//       folded value name. `name` is the name as first written.
//
// PRAGMA user_version holds the format version.

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

namespace platform::registryformat {

constexpr int Version = 1;

constexpr const char* Schema = "CREATE TABLE IF NOT EXISTS reg_key ("
                               " folded TEXT NOT NULL PRIMARY KEY,"
                               " path TEXT NOT NULL"
                               ") WITHOUT ROWID;"
                               "CREATE TABLE IF NOT EXISTS reg_value ("
                               " key TEXT NOT NULL,"
                               " folded TEXT NOT NULL,"
                               " name TEXT NOT NULL,"
                               " type INTEGER NOT NULL,"
                               " data BLOB NOT NULL,"
                               " PRIMARY KEY (key, folded)"
                               ") WITHOUT ROWID;";

// "\SOFTWARE\\A\" becomes "SOFTWARE\A": one backslash between components, none
// leading or trailing, empty components dropped.
inline QStringList keyComponents(const QString& path)
{
    return path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
}

inline QString normaliseKeyPath(const QString& path)
{
    return keyComponents(path).join(QLatin1Char('\\'));
}

// Key paths and value names compare as their Unicode case-folded forms; SQLite's
// own NOCASE folds ASCII letters only.
inline QString fold(const QString& text)
{
    return text.toCaseFolded();
}

// The address that opens a store file as it stands on disk, read-only, with no
// shared-memory file and no log: SQLite's "immutable" URI. A store in
// write-ahead-log mode can't be read otherwise in a folder where its
// shared-memory file can't be made (a read-only folder). Only what reached the
// database file is read; a log that a killed program left behind is not.
inline QByteArray immutableUri(const QString& path)
{
    return "file:" + QFile::encodeName(path).toPercentEncoding("/") + "?immutable=1";
}

// Whether the store may be read through immutableUri: only where this process
// can't write beside the store file, since there nobody of this user can be
// writing the store (a write needs the log beside it) while it is read.
inline bool mayReadImmutable(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    return faccessat(AT_FDCWD, folder.constData(), W_OK, AT_EACCESS) != 0;
}

} // namespace platform::registryformat
