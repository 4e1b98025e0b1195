// Picture loading on arbitrary bytes, with the decoders' memory limit in force:
// LoadPicture as the preview calls it and LoadPicturePart as the show's prefetch
// calls it. The two must fail on the same files and give the same pixels where
// they both give some, and no picture may be bigger than the limit. A single
// allocation beyond the limit is caught by libFuzzer's -malloc_limit_mb, which
// fuzz/run.sh sets just above it.
#include "MemoryFile.h"

#include "platform/core/Error.h"
#include "platform/core/Picture.h"

#include <functional>
#include <string_view>

namespace {

MemoryFile* file = nullptr;

// The part of the picture that the show keeps: a rectangle picked by the input's
// bytes, so that every run asks for another one, sometimes past the edges.
QRect partFor(QSize size, size_t hash)
{
    const int w = size.width();
    const int h = size.height();
    const int left = int(hash % 7) * w / 6 - w / 12;
    const int top = int((hash / 7) % 7) * h / 6 - h / 12;
    const int width = int((hash / 49) % 5 + 1) * w / 4;
    const int height = int((hash / 245) % 5 + 1) * h / 4;
    return QRect(left, top, width, height);
}

// An indexed picture may hold indexes past its colour table: the conversion to
// the screen's format gives those one fixed colour, but comparing two indexed
// pictures would read past their tables. A table of every index holds them.
QImage withEveryIndex(QImage image)
{
    if (image.format() == QImage::Format_Mono || image.format() == QImage::Format_MonoLSB ||
        image.format() == QImage::Format_Indexed8)
        image.setColorCount(1 << image.depth());
    return image;
}

struct Outcome {
    bool loaded = false;
    int error = 0;
};

template <typename Load> Outcome attempt(Load&& load)
{
    Outcome outcome;
    try {
        load();
        outcome.loaded = true;
    } catch (const platform::Error& error) {
        outcome.error = error.number();
    }
    return outcome;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    file = startFileTarget(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    file->fill(data, size);

    QImage whole;
    const Outcome full = attempt([&] { whole = platform::LoadPicture(file->path()); });
    FUZZ_CHECK(full.loaded || full.error == platform::err::InvalidPicture, "error %d", full.error);
    if (full.loaded) {
        FUZZ_CHECK(!whole.isNull(), "a loaded picture without pixels");
        FUZZ_CHECK(whole.sizeInBytes() <= qsizetype(platform::PictureAllocationLimitMiB) << 20,
                   "a picture of %lld bytes", static_cast<long long>(whole.sizeInBytes()));
    }

    const size_t hash =
        std::hash<std::string_view>()(std::string_view(reinterpret_cast<const char*>(data), size));
    QRect asked;
    platform::PicturePart part;
    const Outcome partial = attempt([&] {
        part = platform::LoadPicturePart(file->path(), [&](QSize natural) {
            asked = partFor(natural, hash);
            return asked;
        });
    });
    FUZZ_CHECK(partial.loaded == full.loaded && partial.error == full.error,
               "a whole load %s (%d) but a partial load %s (%d)", full.loaded ? "succeeds" : "fails",
               full.error, partial.loaded ? "succeeds" : "fails", partial.error);
    if (!full.loaded)
        return 0;
    FUZZ_CHECK(part.size == whole.size(), "natural size %dx%d, whole picture %dx%d", part.size.width(),
               part.size.height(), whole.width(), whole.height());
    FUZZ_CHECK(part.part == (asked & whole.rect()), "kept another part than asked");
    if (part.part.isEmpty()) {
        FUZZ_CHECK(part.image.isNull(), "pixels for an empty part");
    } else {
        FUZZ_CHECK(part.image.size() == part.part.size(), "the part's pixels don't fill it");
        const QImage expected = withEveryIndex(whole.copy(part.part));
        FUZZ_CHECK(withEveryIndex(std::move(part.image)).convertToFormat(expected.format()) == expected,
                   "the part's pixels differ from the whole picture's (%dx%d at %d,%d of %dx%d)",
                   part.part.width(), part.part.height(), part.part.x(), part.part.y(), whole.width(),
                   whole.height());
    }
    return 0;
}
