#pragma once

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <optional>

// The picture header reader: the type, the size in pixels and the colour depth of a
// PNG, GIF, BMP or JPEG file, read from the file's first bytes by our own byte rules,
// without decoding the picture and without an image library. The type comes from the
// bytes, never from the file name.
//
// These functions show nothing; PictureServices::GETIMAGEFILEINFO puts their result into
// the shared image record and reports a failure in a message box.
namespace platform {

// The values of IMAGETYPE.
enum ImageType : int32_t {
    UnknownImage = 0,
    GifImage = 1,
    JpegImage = 2,
    PngImage = 3,
    BmpImage = 4,
};

// Only this many bytes at the start of a file count; behind a shorter file the reader
// sees zeros.
constexpr qsizetype HeaderBytes = 65536;
// The JPEG search and the marker walk stop at this index.
constexpr qsizetype JpegScanLimit = 65525;

struct ImageHeader {
    int32_t type = UnknownImage;
    int32_t width = 0;
    int32_t height = 0;
    int32_t depth = 0; // bits per pixel, as far as the format gives them
};

// Why a reading failed: the runtime's error number and its description.
struct ReadFailure {
    int number = 0;
    QString text;
};

// The outcome of one reading. After a failure the header holds what had been found
// before it (a BMP too wide for 16 bits stays of type BMP with size and depth 0).
struct HeaderReading {
    ImageHeader header;
    std::optional<ReadFailure> failure;
};

// Reads the header from the first bytes of a file; bytes past HeaderBytes are
// ignored. The only failure is an overflow: a two-byte value above 32767.
HeaderReading readImageHeader(QByteArrayView head);

// Reads the first HeaderBytes of the file at `path` (text form of the name) and then
// its header. A file that can't be opened or read is a failure with the header all 0.
HeaderReading readImageFile(const QString& path);

// The type as the properties dialog names it: "GIF", "JPEG", "PNG", "BMP" for any
// other known type, and the empty text for an unknown one.
QString imageTypeText(int32_t type);

// The words the properties dialog gives a colour depth written as text: only 1, 4, 8
// and 24 bits have words; any other depth, and a text that isn't a number, has none.
QString colorDepthWords(const QString& depth);

} // namespace platform
