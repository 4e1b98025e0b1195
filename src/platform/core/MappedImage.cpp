#include "platform/core/MappedImage.h"

#include <cstdint>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr size_t HugePageBytes = size_t(2) << 20;

// What the picture's last copy unmaps.
struct Mapping {
    void* pixels;
    size_t bytes;
};

void unmap(void* info)
{
    auto* mapping = static_cast<Mapping*>(info);
    ::munmap(mapping->pixels, mapping->bytes);
    delete mapping;
}

// `bytes` of memory starting on a huge page's boundary, or null.
void* mapAligned(size_t bytes)
{
    const size_t reserved = bytes + HugePageBytes;
    void* found = ::mmap(nullptr, reserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (found == MAP_FAILED)
        return nullptr;
    const auto from = reinterpret_cast<uintptr_t>(found);
    const uintptr_t start = (from + HugePageBytes - 1) & ~(HugePageBytes - 1);
    if (start > from)
        ::munmap(found, start - from);
    if (from + reserved > start + bytes)
        ::munmap(reinterpret_cast<void*>(start + bytes), from + reserved - (start + bytes));
    ::madvise(reinterpret_cast<void*>(start), bytes, MADV_HUGEPAGE);
    return reinterpret_cast<void*>(start);
}

} // namespace

QImage mappedImage(QSize size, QImage::Format format)
{
    const qsizetype bytesPerLine =
        (qsizetype(size.width()) * QImage::toPixelFormat(format).bitsPerPixel() + 31) / 32 * 4;
    // Whole pages, so that the mapping ends on a page's boundary.
    const size_t page = size_t(::sysconf(_SC_PAGESIZE));
    const size_t bytes = (size_t(bytesPerLine) * size_t(size.height()) + page - 1) / page * page;
    if (bytes < size_t(MappedBlockBytes))
        return QImage(size, format);
    void* pixels = mapAligned(bytes);
    if (!pixels)
        return QImage();
    auto* mapping = new (std::nothrow) Mapping{pixels, bytes};
    if (!mapping) {
        ::munmap(pixels, bytes);
        return QImage();
    }
    try {
        QImage image(static_cast<uchar*>(pixels), size.width(), size.height(), bytesPerLine, format, unmap,
                     mapping);
        if (image.isNull())
            unmap(mapping);
        return image;
    } catch (const std::bad_alloc&) {
        unmap(mapping);
        return QImage();
    }
}

} // namespace platform
