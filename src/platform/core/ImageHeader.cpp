#include "platform/core/ImageHeader.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"

#include <QByteArray>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

// The working buffer of one reading: the file's first bytes, zeros behind its end.
// Every index the rules below compute stays below JpegScanLimit + 9, well inside.
class HeaderBuffer {
public:
    explicit HeaderBuffer(QByteArrayView head) : bytes_(size_t(HeaderBytes), 0)
    {
        const qsizetype count = std::min(head.size(), HeaderBytes);
        if (count > 0)
            std::memcpy(bytes_.data(), head.data(), size_t(count));
    }

    int operator[](qsizetype index) const
    {
        Q_ASSERT(index >= 0 && index < HeaderBytes);
        return bytes_[size_t(index)];
    }

private:
    std::vector<uint8_t> bytes_;
};

// A two-byte value, high byte times 256 plus low byte, in 16-bit signed arithmetic:
// a high byte of 0x80 or more exceeds 32767, which is an overflow. So a picture of
// 32768 pixels or more, a negative (top-down) BMP height and a JPEG segment of 32768
// bytes or more all end the reading with a failure.
int32_t word(int high, int low)
{
    if (high >= 0x80)
        throw platform::Error(err::Overflow);
    return high * 256 + low;
}

// PNG: the first three bytes of the signature, then the IHDR chunk. The size is taken
// from the lower two bytes of its 32-bit big-endian width and height.
void readPng(const HeaderBuffer& b, ImageHeader& h)
{
    if (b[0] != 0x89 || b[1] != 'P' || b[2] != 'N')
        return;
    h.type = PngImage;
    const int bitDepth = b[24];
    switch (b[25]) { // colour type
    case 0: h.depth = bitDepth; break;
    case 2: h.depth = bitDepth * 3; break;
    case 3: h.depth = 8; break; // a palette: 8 whatever the sample size
    case 4: h.depth = bitDepth * 2; break;
    case 6: h.depth = bitDepth * 4; break;
    default: h.type = UnknownImage; return;
    }
    h.width = word(b[18], b[19]);
    h.height = word(b[22], b[23]);
}

// GIF: the logical screen descriptor, little-endian, and the size field of the global
// colour table.
void readGif(const HeaderBuffer& b, ImageHeader& h)
{
    if (b[0] != 'G' || b[1] != 'I' || b[2] != 'F')
        return;
    h.type = GifImage;
    h.width = word(b[7], b[6]);
    h.height = word(b[9], b[8]);
    h.depth = (b[10] & 7) + 1;
}

// BMP: the lower bytes of the little-endian width, height and bit count of a bitmap
// info header. Other header forms aren't told apart.
void readBmp(const HeaderBuffer& b, ImageHeader& h)
{
    if (b[0] != 'B' || b[1] != 'M')
        return;
    h.type = BmpImage;
    h.width = word(b[19], b[18]);
    h.height = word(b[23], b[22]);
    h.depth = b[28];
}

// The start-of-frame markers: 0xC0 to 0xCF except 0xC4 (Huffman tables), 0xC8
// (reserved) and 0xCC (arithmetic coding conditioning).
bool isStartOfFrame(int code)
{
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

// JPEG: the start-of-image mark FF D8 FF anywhere below JpegScanLimit, then a walk
// over the markers behind it to the first start-of-frame.
void readJpeg(const HeaderBuffer& b, ImageHeader& h)
{
    qsizetype i = 0;
    while (!(b[i] == 0xFF && b[i + 1] == 0xD8 && b[i + 2] == 0xFF) && i < JpegScanLimit)
        ++i;
    qsizetype p = i + 2;
    if (p >= JpegScanLimit)
        return; // no mark, or one too close to the limit: unknown type
    for (;;) {
        // Fill bytes and data bytes are stepped over up to an 0xFF followed by a code.
        while (!(b[p] == 0xFF && b[p + 1] != 0xFF)) {
            if (++p >= JpegScanLimit)
                return;
        }
        const qsizetype m = p + 1; // the marker code
        if (isStartOfFrame(b[m])) {
            h.type = JpegImage;
            h.height = word(b[m + 4], b[m + 5]);
            h.width = word(b[m + 6], b[m + 7]);
            h.depth = b[m + 8] * 8; // components times 8
            return;
        }
        // Every other marker is taken to carry a big-endian length. Adding it to the
        // code's place lands on the segment's last byte, just before the next marker,
        // and always moves forward, so the walk ends.
        p = m + word(b[m + 1], b[m + 2]);
        if (p >= JpegScanLimit)
            return;
    }
}

HeaderReading failedWith(int number)
{
    HeaderReading reading;
    reading.failure = ReadFailure{number, platform::Error::textOf(number)};
    return reading;
}

// The runtime's error for a file that can't be opened.
int openErrorNumber(int error)
{
    switch (error) {
    case ENOENT: return err::FileNotFound;
    case ENOTDIR: return err::PathNotFound; // a folder of the path is a file
    case EACCES:
    case EPERM: return err::PermissionDenied;
    default: return err::PathFileAccess;
    }
}

} // namespace

HeaderReading readImageHeader(QByteArrayView head)
{
    const HeaderBuffer buffer(head);
    HeaderReading reading;
    ImageHeader& header = reading.header;
    try {
        // The three signatures differ in the first byte, so at most one holds. A PNG
        // of an unknown colour type falls back to unknown and goes on to the JPEG
        // search like any other file.
        readPng(buffer, header);
        readGif(buffer, header);
        readBmp(buffer, header);
        if (header.type == UnknownImage)
            readJpeg(buffer, header);
    } catch (const platform::Error& error) {
        reading.failure = ReadFailure{error.number(), error.description()};
    }
    return reading;
}

HeaderReading readImageFile(const QString& path)
{
    const QByteArray name = platform::encodeFileName(path);
    if (name.isEmpty() || name.contains('\0'))
        return failedWith(err::FileNotFound);

    // Only a regular file has a header to read. A folder is refused with the answer
    // the runtime gives to opening a folder as a file, "Path/File access error"; a
    // pipe, socket or device named like a picture gets the same answer, since reading
    // one could wait forever or have effects. The check comes before opening, and the
    // open doesn't wait (O_NONBLOCK) in case the name changed in between.
    struct stat status;
    if (::stat(name.constData(), &status) != 0)
        return failedWith(openErrorNumber(errno));
    if (!S_ISREG(status.st_mode))
        return failedWith(err::PathFileAccess);
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return failedWith(openErrorNumber(errno));

    QByteArray head(HeaderBytes, Qt::Uninitialized);
    qsizetype filled = 0;
    bool readable = ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
    while (readable && filled < HeaderBytes) {
        const ssize_t count = ::read(fd, head.data() + filled, size_t(HeaderBytes - filled));
        if (count > 0)
            filled += count;
        else if (count == 0)
            break;
        else if (errno != EINTR)
            readable = false;
    }
    ::close(fd);
    if (!readable)
        return failedWith(err::PathFileAccess);
    return readImageHeader(QByteArrayView(head.constData(), filled));
}

QString imageTypeText(int32_t type)
{
    switch (type) {
    case UnknownImage: return QString();
    case GifImage: return QStringLiteral("GIF");
    case JpegImage: return QStringLiteral("JPEG");
    case PngImage: return QStringLiteral("PNG");
    default: return QStringLiteral("BMP");
    }
}

QString colorDepthWords(const QString& depth)
{
    double bits = 0.0;
    try {
        bits = toDouble(depth);
    } catch (const Error&) {
        return QString();
    }
    if (bits == 1.0)
        return QStringLiteral("2 colors (1 bit)");
    if (bits == 4.0)
        return QStringLiteral("16 colors (4 bit)");
    if (bits == 8.0)
        return QStringLiteral("256 colors (8 bit)");
    if (bits == 24.0)
        return QStringLiteral("16 million colors (24 bit)");
    return QString();
}

} // namespace platform
