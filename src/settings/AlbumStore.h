#pragma once

#include <QString>

#include <cstdint>

// The album as the settings store keeps it, for the main window that edits it and
// the show that plays it. "Items" under ...\fPICTURES\Items is the number of slots
// in use; the values "1".."Items" under ...\fPICTURES\Selection hold one path each,
// or a blank where a picture was removed.
//
// Each read and each write is one call of the settings store (REGSTRREAD or
// REGSTRWRITE of the current user): nothing is cached, every write is its own small
// transaction, and a read that fails counts in Registry::failedReads() as any other.
class AlbumStore {
public:
    static QString countKey();             // ...\fPICTURES\Items
    static QString countName();            // "Items"
    static QString slotsKey();             // ...\fPICTURES\Selection
    static QString slotName(int32_t slot); // "1", "2", ...

    // The count as stored, "0" when there is none.
    static QString count();
    // The path in a slot, `absent` when the slot has no value.
    static QString slot(int32_t slot, const QString& absent = QString());
    static bool setCount(int32_t count);
    // A blank path blanks the slot: the value stays, empty.
    static bool setSlot(int32_t slot, const QString& path);

    // The highest slot the store holds a value for, 0 for none. Slots above it read
    // as absent, so a loop over the album can stop there: a count edited by hand to
    // a huge number then costs nothing.
    static int32_t highestSlot();
};
