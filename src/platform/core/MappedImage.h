#pragma once

#include <QImage>
#include <QSize>

namespace platform {

// A picture whose pixels lie in memory mapped for them alone and unmapped with
// its last copy, so that a picture let go is memory given back. The mapping starts
// on a huge page's boundary and asks for huge pages: the kernel then makes a
// screen's picture in four faults of 2 MiB rather than 2,000 of 4 KiB, a few
// milliseconds of a first picture. A smaller picture comes from the allocator as
// any other. A null image when there is no memory for it.
QImage mappedImage(QSize size, QImage::Format format);

// Blocks this large or larger are mapped for themselves: pictures here, and by the
// C library's allocator, which Picture.cpp tells so.
constexpr int MappedBlockBytes = 1 << 20;

} // namespace platform
