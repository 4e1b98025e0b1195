#pragma once

#include <QString>

#include <functional>

// The desktop's shell services: opening an address in the user's browser, moving a
// file to the trash, and moving or renaming a file. Paths are in the program's
// text form of file names (see FileNames.h), so names that aren't valid UTF-8 work.
namespace platform::Shell {

// Opens an address (or a local file) with the user's preferred application.
// Returns whether the desktop accepted it.
bool openUrl(const QString& url);

// Tests: every openUrl goes to `opener` instead of the desktop. An empty function
// restores the desktop.
void setUrlOpenerForTests(std::function<bool(const QString&)> opener);

// Moves a file or folder to the freedesktop trash, where it stays recoverable.
// Returns false, leaving the file where it was, when that isn't possible.
bool moveToTrash(const QString& path);

// Moves or renames `from` to `to`; when `to` is an existing folder, into that folder
// under the same name. Never overwrites: an existing destination makes it fail.
// Across file systems a regular file is copied and the original removed. Returns
// false, leaving both places as they were, when it fails.
bool moveFile(const QString& from, const QString& to);

} // namespace platform::Shell
