#include "platform/core/Picture.h"

#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/JpegRegion.h"
#include "platform/core/MappedImage.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <malloc.h>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

using Turn = QImageIOHandler::Transformations;

qint64 nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

FileStamp stampOf(const struct stat& st)
{
    return FileStamp{st.st_dev, st.st_ino, st.st_size, nanoseconds(st.st_mtim), nanoseconds(st.st_ctim)};
}

// Opens the file's own bytes, so that a name that isn't UTF-8 opens too. The open
// doesn't wait for a writer (a named pipe would block a plain read-only open),
// and anything but a regular file is turned away before a byte is read.
int openRegularFile(const QString& path, struct stat* st)
{
    const int fd = ::open(encodeFileName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        throw Error(errno == ENOENT || errno == ENOTDIR ? err::FileNotFound : err::InvalidPicture);
    if (::fstat(fd, st) != 0 || !S_ISREG(st->st_mode)) {
        ::close(fd);
        throw Error(err::InvalidPicture);
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

// The settings of the whole process for pictures, made once, so that a decode on
// a worker thread never reads one while another thread writes it: the decoders'
// allocation limit, and pictures in memory of their own. The C library's
// allocator would raise its threshold for mapping to the largest block freed so
// far, and from then on keep freed pictures for later use: the show, which lets
// a picture go at every step, would hold a picture or two more than it uses.
void limitAllocations()
{
    static std::once_flag once;
    std::call_once(once, [] {
        QImageReader::setAllocationLimit(PictureAllocationLimitMiB);
#ifdef __GLIBC__
        mallopt(M_MMAP_THRESHOLD, MappedBlockBytes);
#endif
    });
}

// Whether a whole picture of this stored size and format passes the decoder's
// allocation limit, counted as the decoder counts it: whole lines of 32-bit
// words, and at least 32 bits a pixel (a grey or indexed picture of a quarter of
// the limit is refused too).
bool withinAllocationLimit(QSize size, QImage::Format format)
{
    const int formatDepth = QImage::toPixelFormat(format).bitsPerPixel();
    if (formatDepth <= 0)
        return false;
    const int depth = std::max(formatDepth, 32);
    const qint64 bytesPerLine = ((qint64(size.width()) * depth + 31) >> 5) << 2;
    return bytesPerLine * size.height() <= qint64(PictureAllocationLimitMiB) << 20;
}

// The toolkit's picture code doesn't clean up after an allocation that fails in
// it: a lock it held stays locked, and the next picture waits for it for ever.
// So a picture is decoded only while the process has room for the whole picture
// and some to spare, found by asking for that much memory first (an address
// space limit refuses it); otherwise it fails as out of memory, before the
// toolkit is called.
constexpr size_t RoomToSpare = size_t(32) << 20;

void ensureRoomFor(QSize size)
{
    const size_t pixels = size.isValid() ? size_t(size.width()) * size_t(size.height()) : 0;
    const size_t bytes = std::min(pixels * 4, size_t(PictureAllocationLimitMiB) << 20);
    void* probe = std::malloc(bytes + RoomToSpare);
    if (!probe)
        throw Error(err::OutOfMemory);
    std::free(probe);
}

// What the toolkit's BMP decoder reads from a BMP header, read by its rules:
// header sizes 40, 64, 108 and 124 have 32-bit fields and a compression; any
// other size is taken for the old header with signed 16-bit sizes.
//
// The decoder fills the pixels it reads into a picture that it doesn't clear
// first: rows after the end of a cut file, and pixels that run-length data skips
// or never reaches, keep what the memory held, so the program's own bytes would
// show as pixels, differently every time.
struct BmpHeader {
    enum Compression : quint32 { Rgb = 0, RunLength8 = 1, RunLength4 = 2, BitFields = 3 };
    qint64 dataOffset = 0; // where the pixels start, at the earliest
    qint64 width = 0;
    qint64 height = 0;
    quint32 bits = 0;
    quint32 compression = Rgb;

    static std::optional<BmpHeader> read(int fd)
    {
        // The file header and the old 12-byte header take 26 bytes; the newer
        // headers' compression field ends at byte 34.
        uchar head[34] = {};
        const ssize_t got = ::pread(fd, head, sizeof head, 0);
        if (got < 26)
            return std::nullopt; // too short for any header: the decoder refuses it
        const auto u16 = [&](int at) { return quint32(head[at]) | quint32(head[at + 1]) << 8; };
        const auto u32 = [&](int at) { return u16(at) | u16(at + 2) << 16; };
        BmpHeader h;
        const quint32 headerSize = u32(14);
        h.dataOffset = std::max<qint64>(u32(10), 14 + qint64(headerSize));
        if (headerSize == 40 || headerSize == 64 || headerSize == 108 || headerSize == 124) {
            if (got < ssize_t(sizeof head))
                return std::nullopt; // the header is cut: the decoder refuses it
            h.width = qint32(u32(18));
            h.height = qAbs(qint64(qint32(u32(22))));
            h.bits = u16(28);
            h.compression = u32(30);
        } else {
            h.width = qint16(u16(18));
            h.height = qAbs(qint16(u16(20)));
            h.bits = u16(24);
        }
        return h;
    }

    // Uncompressed pixels that the file ends before: such a file is refused,
    // like a cut PNG or GIF.
    bool cutShort(qint64 fileSize) const
    {
        if ((compression != Rgb && compression != BitFields) || width <= 0)
            return false;
        const qint64 rowBytes = (width * bits + 31) / 32 * 4;
        const qint64 room = fileSize - dataOffset;
        // Divided rather than multiplied: the header's numbers may be anything.
        return room < 0 || (rowBytes > 0 && height > room / rowBytes);
    }

    // Run-length data can't be measured without decoding it, so it is decoded
    // into a picture of the decoder's own size and format cleared beforehand,
    // which the decoder then fills instead of one of its own.
    bool runLength() const { return compression == RunLength8 || compression == RunLength4; }
};

// An open picture file with its reader, set up as every load reads pictures. The
// format comes from the content, never from the name: a picture under another
// format's extension loads all the same.
struct PictureFile {
    QFile file;
    QImageReader reader;
    FileStamp stamp;
    // A run-length bitmap's bytes with zeros behind them (see padRunLength).
    QBuffer padded;

    explicit PictureFile(const QString& path)
    {
        struct stat st;
        const int fd = openRegularFile(path, &st);
        if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
            ::close(fd);
            throw Error(err::InvalidPicture);
        }
        stamp = stampOf(st);
        limitAllocations();
        ensureRoomFor(QSize());
        reader.setDevice(&file);
        reader.setAutoTransform(true);
    }

    // The decoder reads a run that the file ends in the middle of into a byte it
    // never set, so two decodes of such a file differ. Behind the file's own bytes
    // it finds zeros instead: each pair of them ends a row, so the decoder stops
    // at the picture's last row as a whole file would have it stop, the same way
    // every time. A file too big to hold beside its picture is decoded as it is.
    void padRunLength(qint64 rows)
    {
        const qint64 size = file.size();
        // The rows are bounded already: the picture passed the allocation limit.
        if (size > qint64(PictureAllocationLimitMiB) << 20)
            return;
        QByteArray bytes(size + 2 * rows + 16, '\0');
        if (::pread(file.handle(), bytes.data(), size_t(size), 0) != size)
            return;
        padded.setData(bytes);
        if (!padded.open(QIODevice::ReadOnly))
            return;
        reader.setDevice(&padded);
        reader.setAutoTransform(true);
    }

    QImage read()
    {
        ensureRoomFor(reader.size());
        QImage image;
        if (reader.format() == "bmp") {
            if (const auto bmp = BmpHeader::read(file.handle())) {
                if (bmp->cutShort(stamp.size))
                    throw Error(err::InvalidPicture);
                const QSize size(int(bmp->width), int(bmp->height));
                if (bmp->runLength() && !size.isEmpty() &&
                    withinAllocationLimit(size, QImage::Format_Indexed8)) {
                    image = QImage(size, QImage::Format_Indexed8);
                    // The decoder would make one of its own, uncleared.
                    if (image.isNull())
                        throw Error(err::OutOfMemory);
                    image.fill(0);
                    padRunLength(bmp->height);
                }
            }
        }
        // A decoder may report success and give no picture (the MNG plugin does
        // for some damaged files): that is no picture either.
        if (!reader.read(&image) || image.isNull())
            throw Error(err::InvalidPicture);
        return image;
    }
};

// The orientation maps a stored picture to the upright one by mirroring, then
// flipping, then turning a quarter clockwise, in that order. This maps a pixel
// rectangle of the upright picture back to the stored one; `stored` is the size
// before the turn.
QRect toStored(const QRect& rect, QSize stored, Turn turn)
{
    QRect r = rect;
    if (turn & QImageIOHandler::TransformationRotate90)
        r = QRect(r.top(), stored.height() - 1 - r.right(), r.height(), r.width());
    if (turn & QImageIOHandler::TransformationFlip)
        r.moveTop(stored.height() - 1 - r.bottom());
    if (turn & QImageIOHandler::TransformationMirror)
        r.moveLeft(stored.width() - 1 - r.right());
    return r;
}

QSize uprightSize(QSize stored, Turn turn)
{
    return turn & QImageIOHandler::TransformationRotate90 ? stored.transposed() : stored;
}

// Turns a decoded part of a stored picture upright, as the toolkit turns the
// whole picture: a turn moves pixels without changing them, so the part turned is
// the turned picture's part.
QImage turnedUpright(QImage image, Turn turn)
{
    if (turn & QImageIOHandler::TransformationMirror)
        image = std::move(image).mirrored(true, false);
    if (turn & QImageIOHandler::TransformationFlip)
        image = std::move(image).mirrored(false, true);
    if (turn & QImageIOHandler::TransformationRotate90)
        image = image.transformed(QTransform().rotate(90));
    return image;
}

} // namespace

QImage LoadPicture(const QString& path)
{
    PictureFile picture(path);
    return picture.read();
}

std::optional<FileStamp> fileStampOf(const QString& path)
{
    struct stat st;
    if (::stat(encodeFileName(path).constData(), &st) != 0)
        return std::nullopt;
    return stampOf(st);
}

PicturePart LoadPicturePart(const QString& path, const std::function<QRect(QSize)>& keep)
{
    PictureFile picture(path);
    QImageReader& reader = picture.reader;
    PicturePart result;
    result.stamp = picture.stamp;

    QImage image;
    QRect held; // the rectangle of the upright picture that `image` holds
    const QSize stored = reader.size();
    // A picture too big for the limit goes the whole way and fails there.
    if (reader.format() == "jpeg" && !stored.isEmpty() &&
        withinAllocationLimit(stored, reader.imageFormat())) {
        const Turn turn = reader.transformation();
        result.size = uprightSize(stored, turn);
        result.part = keep(result.size) & QRect(QPoint(), result.size);
        // Even nothing to keep reads the file through, for its verdict.
        held = result.part.isEmpty() ? QRect(0, 0, 1, 1) : result.part;
        std::optional<QImage> region = decodeJpegRegion(picture.file.handle(), toStored(held, stored, turn));
        if (region)
            image = turnedUpright(std::move(*region), turn);
        else
            held = QRect(); // a JPEG the region decoder leaves to the toolkit
    }
    if (held.isNull()) {
        image = picture.read();
        result.size = image.size();
        result.part = keep(result.size) & image.rect();
        held = image.rect();
    }
    if (result.part.isEmpty())
        result.image = QImage();
    else if (result.part == held)
        result.image = std::move(image);
    else
        result.image = image.copy(result.part.translated(-held.topLeft()));
    // A copy or turn that found no memory is a null image, which would show as
    // nothing.
    if (result.image.isNull() && !result.part.isEmpty())
        throw Error(err::OutOfMemory);
    return result;
}

} // namespace platform
