#pragma once

#include <QString>
#include <QTemporaryDir>

// A settings store of its own for one test: points XDG_CONFIG_HOME at a fresh
// temporary folder and makes the store reopen there. The previous environment
// comes back when it goes out of scope.
class TempStore {
public:
    TempStore();
    ~TempStore();
    TempStore(const TempStore&) = delete;
    TempStore& operator=(const TempStore&) = delete;

    QString configHome() const { return dir_.path(); }
    // The database file, which exists only once something was written.
    QString databasePath() const;

private:
    QTemporaryDir dir_;
    QByteArray previous_;
    bool hadPrevious_;
};
