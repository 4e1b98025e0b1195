#pragma once

#include <QImage>
#include <QRect>

#include <optional>

namespace platform {

// Decodes the rectangle `region` of the stored (not turned) picture of the JPEG
// file open as `fd`, which it reads from the start with pread. The pixels are
// those that the toolkit's whole decode gives at the same places, in the same
// format (RGB32 for colour and CMYK, Grayscale8 for grey) and colour space.
//
// Only the region and a margin around it are turned into pixels. The rows above
// it are read through, as they must be; below it only the file's markers are
// read, as far as its end, since a whole decode fails only on those there, so the
// decode fails on exactly the files that a whole decode fails on.
//
// Throws Error: OutOfMemory when the library or the picture finds no memory,
// InvalidPicture when the library refuses the file. Returns nothing for a JPEG
// it doesn't decode (neither one, three nor four components).
std::optional<QImage> decodeJpegRegion(int fd, const QRect& region);

} // namespace platform
