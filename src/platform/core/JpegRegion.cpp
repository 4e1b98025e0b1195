#include "platform/core/JpegRegion.h"

#include "platform/core/Error.h"
#include "platform/core/MappedImage.h"

#include <QByteArray>
#include <QColorSpace>

#include <cerrno>
#include <csetjmp>
#include <cstdio> // before jpeglib.h, which uses FILE
#include <cstring>
#include <unistd.h>

#include <jerror.h>
#include <jpeglib.h>

namespace platform {

namespace {

// The file is read in blocks this large: the library's quick Huffman decoder runs
// only while some kilobytes of data are in hand, which the 4 KiB of stdio or of
// the toolkit's reader seldom leave it.
constexpr size_t BlockSize = size_t(64) << 10;

// Past the file's end the library reads an end-of-image marker, as from the
// toolkit's reader, so a file cut inside its data shows what is there.
const JOCTET endOfImage[2] = {0xFF, JPEG_EOI};

// The first code of a marker the format knows (SOF0); lower codes are damage.
constexpr int FirstMarkerCode = 0xC0;

// Whether the picture data goes on behind a marker: behind a restart, and behind
// a code that is no marker of the format (the library skips those at a restart).
// Any other marker ends the data.
bool dataGoesOnAfter(int code)
{
    return code < FirstMarkerCode || (code >= JPEG_RST0 && code < JPEG_RST0 + 8);
}

// A fatal error of the library calls error_exit, which must not return: it
// jumps back to the step under way (Decoder::run). Warnings (damaged data, a cut
// file) are dropped, as the toolkit only logs them.
struct ErrorExit {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
};

void leaveStep(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<ErrorExit*>(info->err)->jump, 1);
}

void dropMessage(j_common_ptr) {}

// The file's bytes, read with pread from a descriptor of a regular file (not
// mapped: a file cut short while mapped would end the process with SIGBUS).
//
// Below the region the source may hand over markers only (skipToMarkers). A whole
// decode fails there only on markers: the Huffman decoder takes damaged data for
// grey and never reads past a marker, and a restart takes the next marker as the
// file has it. So the markers alone, in order, bring the library to the same
// verdict, and from the first marker that ends the data on, the file is handed
// over as it is.
struct FileSource {
    jpeg_source_mgr manager; // first: the library's pointer is cast to this
    int fd;
    JOCTET* block;     // BlockSize bytes from the library's pool
    off_t blockStart;  // the file offset of block[0]
    size_t blockBytes; // how many of the file's bytes the block holds
    off_t next;        // the file offset of the first byte not handed over
    bool atEnd;        // handing over the end-of-image marker
    bool markersOnly;
};

FileSource& sourceOf(j_decompress_ptr info)
{
    return *reinterpret_cast<FileSource*>(info->src);
}

void handOver(FileSource& source, const JOCTET* bytes, size_t count)
{
    source.manager.next_input_byte = bytes;
    source.manager.bytes_in_buffer = count;
    source.atEnd = false;
}

boolean handOverEnd(FileSource& source)
{
    handOver(source, endOfImage, sizeof endOfImage);
    source.atEnd = true;
    return TRUE;
}

// Loads the block from a file offset; false at the file's end. A read error ends
// the file there, as it ends the toolkit's reading.
bool loadBlock(FileSource& source, off_t at)
{
    ssize_t got;
    do
        got = ::pread(source.fd, source.block, BlockSize, at);
    while (got < 0 && errno == EINTR);
    source.blockStart = at;
    source.blockBytes = got > 0 ? size_t(got) : 0;
    return source.blockBytes > 0;
}

// The byte at a file offset, or -1 past the end.
int byteAt(FileSource& source, off_t at)
{
    if (at < source.blockStart || at >= source.blockStart + off_t(source.blockBytes))
        if (!loadBlock(source, at))
            return -1;
    return source.block[at - source.blockStart];
}

// Hands over the next marker at or after `next`, without the picture data before
// it: 0xFF and the code, the padding 0xFF before it left out. 0xFF 0x00 is data.
boolean handOverNextMarker(FileSource& source)
{
    off_t at = source.next;
    for (;;) {
        if (byteAt(source, at) < 0)
            return handOverEnd(source);
        const JOCTET* from = source.block + (at - source.blockStart);
        const size_t left = source.blockBytes - size_t(at - source.blockStart);
        const auto* ff = static_cast<const JOCTET*>(std::memchr(from, 0xFF, left));
        if (!ff) {
            at = source.blockStart + off_t(source.blockBytes);
            continue;
        }
        off_t codeAt = source.blockStart + (ff - source.block) + 1;
        int code;
        while ((code = byteAt(source, codeAt)) == 0xFF)
            ++codeAt;
        if (code < 0)
            return handOverEnd(source);
        if (code == 0) {
            at = codeAt + 1;
            continue;
        }
        if (codeAt - 1 < source.blockStart)
            loadBlock(source, codeAt - 1); // the 0xFF and the code in one block
        const JOCTET* marker = source.block + (codeAt - 1 - source.blockStart);
        if (dataGoesOnAfter(code)) {
            source.next = codeAt + 1;
            handOver(source, marker, 2);
        } else {
            source.markersOnly = false;
            source.next = source.blockStart + off_t(source.blockBytes);
            handOver(source, marker, size_t(source.next - (codeAt - 1)));
        }
        return TRUE;
    }
}

void startSource(j_decompress_ptr) {}

boolean fillSource(j_decompress_ptr info)
{
    FileSource& source = sourceOf(info);
    if (source.markersOnly)
        return handOverNextMarker(source);
    if (!loadBlock(source, source.next))
        return handOverEnd(source);
    source.next += off_t(source.blockBytes);
    handOver(source, source.block, source.blockBytes);
    return TRUE;
}

// Skips the rest of a marker the library doesn't keep.
void skipSource(j_decompress_ptr info, long count)
{
    FileSource& source = sourceOf(info);
    if (count <= 0)
        return;
    const size_t inHand = source.manager.bytes_in_buffer;
    if (size_t(count) <= inHand) {
        source.manager.next_input_byte += count;
        source.manager.bytes_in_buffer -= size_t(count);
        return;
    }
    if (!source.atEnd)
        source.next += off_t(size_t(count) - inHand);
    handOver(source, source.block, 0);
}

void endSource(j_decompress_ptr) {}

// From here on only markers: the bytes in hand go back to the file. When the
// library already met a marker that ends the data, the file stays as it is.
void skipToMarkers(j_decompress_ptr info)
{
    FileSource& source = sourceOf(info);
    if (source.atEnd || (info->unread_marker != 0 && !dataGoesOnAfter(info->unread_marker)))
        return;
    source.next -= off_t(source.manager.bytes_in_buffer);
    handOver(source, source.block, 0);
    source.markersOnly = true;
}

// The library's state for one decode, made and destroyed outside the steps that
// may jump.
struct Decoder {
    jpeg_decompress_struct info{};
    ErrorExit error{};
    FileSource source{};
    JSAMPARRAY row = nullptr; // one decoded row, from the library's pool

    explicit Decoder(int fd)
    {
        info.err = jpeg_std_error(&error.manager);
        error.manager.error_exit = leaveStep;
        error.manager.output_message = dropMessage;
        source.fd = fd;
        source.manager.init_source = startSource;
        source.manager.fill_input_buffer = fillSource;
        source.manager.skip_input_data = skipSource;
        source.manager.resync_to_restart = jpeg_resync_to_restart;
        source.manager.term_source = endSource;
    }
    ~Decoder() { jpeg_destroy_decompress(&info); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // Runs a step of library calls; false when the library failed in it. A step
    // holds no object with a destructor, which the jump would skip.
    template <typename Step> bool run(const Step& step)
    {
        if (setjmp(error.jump))
            return false;
        step();
        return true;
    }

    [[noreturn]] void fail() const
    {
        throw Error(error.manager.msg_code == JERR_OUT_OF_MEMORY ? err::OutOfMemory : err::InvalidPicture);
    }
};

// The colour space of the embedded profile, found as the toolkit finds it.
void takeColourSpace(const jpeg_decompress_struct& info, QImage* image)
{
    QByteArray profile;
    for (jpeg_saved_marker_ptr marker = info.marker_list; marker; marker = marker->next)
        if (marker->marker == JPEG_APP0 + 2 && marker->data_length > 128 + 4 + 14 &&
            std::memcmp(marker->data, "ICC_PROFILE", 12) == 0)
            profile.append(reinterpret_cast<const char*>(marker->data) + 14, marker->data_length - 14);
    if (!profile.isEmpty())
        image->setColorSpace(QColorSpace::fromIccProfile(profile));
}

// How the decoded pixels become the picture's, as the toolkit makes them: colour
// as RGB32, CMYK (Adobe's, inverted) multiplied by its black, grey as it is.
enum class Pixels { Grey, Colour, Cmyk };

void putRow(Pixels pixels, const JSAMPLE* from, uchar* to, int width)
{
    switch (pixels) {
    case Pixels::Grey: std::memcpy(to, from, size_t(width)); break;
    case Pixels::Colour: std::memcpy(to, from, size_t(width) * 4); break;
    case Pixels::Cmyk: {
        auto* out = reinterpret_cast<QRgb*>(to);
        for (int x = 0; x < width; ++x, from += 4) {
            const int k = from[3];
            out[x] = qRgb(k * from[0] / 255, k * from[1] / 255, k * from[2] / 255);
        }
        break;
    }
    }
}

} // namespace

std::optional<QImage> decodeJpegRegion(int fd, const QRect& region)
{
    Decoder decoder(fd);
    jpeg_decompress_struct& info = decoder.info;
    if (!decoder.run([&] {
            jpeg_create_decompress(&info);
            decoder.source.block = static_cast<JOCTET*>(
                (*info.mem->alloc_large)(reinterpret_cast<j_common_ptr>(&info), JPOOL_PERMANENT, BlockSize));
            info.src = &decoder.source.manager;
            jpeg_save_markers(&info, JPEG_APP0 + 2, 0xFFFF);
            jpeg_read_header(&info, TRUE);
        }))
        decoder.fail();

    // The library's defaults are the toolkit's: the accurate transform, smooth
    // upsampling, and RGB, CMYK or grey out.
    Pixels pixels;
    if (info.num_components == 1) {
        pixels = Pixels::Grey;
    } else if (info.num_components == 3 && info.out_color_space == JCS_RGB) {
        pixels = Pixels::Colour;
        info.out_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRA : JCS_EXT_ARGB;
    } else if (info.num_components == 4 && info.out_color_space == JCS_CMYK) {
        pixels = Pixels::Cmyk;
    } else {
        return std::nullopt;
    }
    if (!QRect(0, 0, int(info.image_width), int(info.image_height)).contains(region))
        return std::nullopt;

    QImage image =
        mappedImage(region.size(), pixels == Pixels::Grey ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
    if (image.isNull())
        throw Error(err::OutOfMemory);
    takeColourSpace(info, &image);

    // The decode starts this far left of and above the region: the library starts
    // a cut at whole blocks, and the first blocks of a cut are not yet as a whole
    // decode makes them (the smoothing of a progressive picture takes in two blocks
    // to each side, the upsampling of colour one sample).
    const int marginX = 3 * 8 * info.max_h_samp_factor;
    const int marginY = 3 * 8 * info.max_v_samp_factor;
    JDIMENSION left = JDIMENSION(std::max(0, region.left() - marginX));
    JDIMENSION width = JDIMENSION(std::min(int(info.image_width), region.right() + 1 + marginX)) - left;
    const JDIMENSION top = JDIMENSION(std::max(0, region.top() - marginY));
    if (!decoder.run([&] {
            jpeg_start_decompress(&info);
            jpeg_crop_scanline(&info, &left, &width);
            decoder.row = (*info.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&info), JPOOL_IMAGE,
                                                    width * JDIMENSION(info.output_components), 1);
            jpeg_skip_scanlines(&info, top);
        }))
        decoder.fail();

    uchar* const bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    const int skipped = (region.left() - int(left)) * info.output_components;
    if (!decoder.run([&] {
            while (int(info.output_scanline) <= region.bottom()) {
                const int y = int(info.output_scanline);
                if (jpeg_read_scanlines(&info, decoder.row, 1) != 1)
                    ERREXIT(&info, JERR_TOO_LITTLE_DATA);
                if (y >= region.top())
                    putRow(pixels, decoder.row[0] + skipped, bits + (y - region.top()) * stride,
                           region.width());
            }
        }))
        decoder.fail();

    // The rest of the file, for the verdict: its last row is read rather than
    // skipped, since skipping to the end would stop the library reading.
    if (!decoder.run([&] {
            skipToMarkers(&info);
            if (info.output_scanline + 1 < info.output_height)
                jpeg_skip_scanlines(&info, info.output_height - 1 - info.output_scanline);
            if (info.output_scanline < info.output_height)
                jpeg_read_scanlines(&info, decoder.row, 1);
            jpeg_finish_decompress(&info);
        }))
        decoder.fail();
    return image;
}

} // namespace platform
