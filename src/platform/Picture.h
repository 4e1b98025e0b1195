#pragma once

#include <QImage>
#include <QString>

namespace platform {

// Loads the picture behind a path in text form (see FileNames.h), upright as its
// EXIF orientation says, so that its size is the size a person sees. Only regular
// files are read; the decoder may allocate at most PictureAllocationLimitMiB.
// Throws Error: FileNotFound when nothing is there, InvalidPicture for anything
// that can't be decoded (a folder, a pipe, no read permission, empty, corrupt or
// too big a file). A file cut short inside its picture data gives what is there.
QImage LoadPicture(const QString& path);

constexpr int PictureAllocationLimitMiB = 256;

} // namespace platform
