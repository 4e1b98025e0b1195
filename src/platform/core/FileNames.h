#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// File names on Linux are bytes, and not every name is valid UTF-8. The text form
// used everywhere in the program (lists, store, captions) decodes valid UTF-8 and
// maps each byte that is not part of a valid sequence to the private-use character
// U+F700 + byte, so that every name converts back to the very same bytes.
// A name that already holds a character of that range has the bytes of that
// character escaped the same way, which keeps the mapping reversible.
namespace platform {

QString decodeFileName(QByteArrayView bytes);
QByteArray encodeFileName(const QString& text);

// Whether the regular file or folder behind a path in text form exists.
bool fileExists(const QString& path);   // a regular file (symlinks followed)
bool folderExists(const QString& path); // a directory (symlinks followed)

} // namespace platform
