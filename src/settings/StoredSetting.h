#pragma once

#include <QString>

// One stored setting of a form: the key it is kept under (of the current user), the
// name of its value, and what the form takes when the store has no such value.
// Each folder lists its forms' settings in a table of these (album/MainSettings.h,
// printing/PageSettings.h), so that every key, name and default is written down
// once, and the forms read and write them only through it.
//
// A read is one REGSTRREAD and a write one REGSTRWRITE, at the moment of the call.
struct StoredSetting {
    QString (*key)();
    const char* name;
    // The default, or nullptr for a null text.
    const char* fallback = nullptr;
    // A default known only at run time, in place of `fallback`; asked before the read.
    QString (*fallbackOf)() = nullptr;
    // The name a write gives the value, where it differs (in case only: the store
    // finds the value under either) from the one read.
    const char* writtenName = nullptr;

    // What the form takes when the value is absent.
    QString defaultValue() const;
    QString read() const;
    bool write(const QString& data) const;
};
