#pragma once

#include <QString>

namespace platform {

// The content of a settings store as readable text, for looking at what the
// program remembers.
struct StoreDump {
    enum Status {
        Ok,          // text holds the keys (it is empty for an empty store)
        Missing,     // there is no store file
        KeyNotFound, // the store has no such key
        Unreadable,  // the file can't be opened or isn't a settings store
    };
    Status status = Ok;
    QString text;
    QString error; // what went wrong, for any status but Ok
};

// Every key at or below keyPath (all keys when it is blank) of the store in
// databaseFile, with its values, sorted by key path and then by value name
// without regard to case:
//
//   [HKEY_CURRENT_USER\SOFTWARE\ZUV Software Development\Vistarro\fPICTURES\Items]
//   "Items"=REG_SZ:"2"
//
// Text is quoted with " and \ escaped and control characters as \xNN; bytes are
// REG_BINARY:64,00,65; a number is dword:0000002a (42); the unnamed value is @.
// A blank line separates keys. The file is opened read-only, so this works while
// the program is running and writing.
StoreDump dumpStore(const QString& databaseFile, const QString& keyPath = QString());

} // namespace platform
