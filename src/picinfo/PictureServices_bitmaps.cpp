// Bitmaps built from raw pixel bytes that a caller holds, such as a
// decoder's output, and drawn into a picture box.

#include "picinfo/PictureServices.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/PictureBox.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/Twips.h"
#include "settings/StoreAndFileServices.h"

#include <QPainter>

#include <algorithm>
#include <limits>

namespace {

// The part of a bitmap information header that a build reads: every build also
// writes the header's size (40), one plane and zeros for compression, image size,
// resolution and colour counts, which leave nothing to choose here.
struct BitmapHeader {
    qint64 biWidth;
    qint64 biHeight; // negative: the first row of the data is the top row
    int biBitCount;
};

BitmapHeader headerOf(int32_t width, int32_t height, bool orientation, int bitCount)
{
    return {width, orientation ? -qint64(height) : qint64(height), bitCount};
}

// 5 bits of a 16-bit pixel to 8, the top bits repeated below so that 31 is 255.
int expand5(unsigned value)
{
    value &= 0x1F;
    return int((value << 3) | (value >> 2));
}

QRgb pixelAt(const uchar* row, qint64 x, int bitCount, const QRgb* colours)
{
    switch (bitCount) {
    case 1: return colours[(row[x / 8] >> (7 - x % 8)) & 1];
    case 4: return colours[x % 2 == 0 ? row[x / 2] >> 4 : row[x / 2] & 0x0F];
    case 8: return colours[row[x]];
    case 16: {
        const unsigned value = row[2 * x] | unsigned(row[2 * x + 1]) << 8;
        return qRgb(expand5(value >> 10), expand5(value >> 5), expand5(value));
    }
    default: return qRgb(row[4 * x + 2], row[4 * x + 1], row[4 * x]);
    }
}

// The bitmap that the header describes over the bytes, or a null image when the
// size is empty or the bytes are fewer than its rows demand; nothing is read
// beyond the bytes given.
QImage build(const QByteArray& bytes, const BitmapHeader& header, const QRgb* colours = nullptr)
{
    const qint64 width = header.biWidth;
    const qint64 rows = qAbs(header.biHeight);
    if (width <= 0 || rows == 0 || rows > std::numeric_limits<int>::max())
        return {};
    const qint64 stride = (width * header.biBitCount + 31) / 32 * 4;
    if (stride > bytes.size() || rows > bytes.size() / stride)
        return {};

    QImage image(int(width), int(rows), QImage::Format_RGB32);
    if (image.isNull())
        return {};
    const bool topDown = header.biHeight < 0;
    const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
    for (qint64 r = 0; r < rows; ++r) {
        const uchar* row = data + r * stride;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(int(topDown ? r : rows - 1 - r)));
        for (qint64 x = 0; x < width; ++x)
            line[x] = 0xFF000000u | pixelAt(row, x, header.biBitCount, colours);
    }
    return image;
}

// A colour table from records of three bytes in the order red, green, blue. The
// bytes are first copied into a working list of records, as many as the array's
// highest index divided by 3 (halves to even) plus one, zero where the array ends
// within them. A table with more entries than there are records gets the entries
// that have one and then "Subscript out of range"; the rest stays as it was.
template <size_t N> void fillColorTable(std::array<QRgb, N>& table, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        throw platform::Error(platform::err::SubscriptOutOfRange);
    const auto records = qsizetype(platform::bankersRound(double(bytes.size() - 1) / 3)) + 1;
    QByteArray working(records * 3, '\0');
    std::copy(bytes.begin(), bytes.end(), working.begin());
    const auto* record = reinterpret_cast<const uchar*>(working.constData());
    for (size_t i = 0; i < N; ++i) {
        if (qsizetype(i) >= records)
            throw platform::Error(platform::err::SubscriptOutOfRange);
        table[i] = qRgb(record[3 * i], record[3 * i + 1], record[3 * i + 2]);
    }
}

} // namespace

void PictureServices::CREATEBMP1(const QByteArray& BYTEARRAY, int32_t BMPWIDTH, int32_t BMPHEIGHT,
                                 bool ORIENTATION)
{
    bitmapHandle_ = build(BYTEARRAY, headerOf(BMPWIDTH, BMPHEIGHT, ORIENTATION, 1), colorTable1_.data());
}

void PictureServices::CREATEBMP4(const QByteArray& BITMAPARRAY, int32_t PICWIDTH, int32_t PICHEIGHT,
                                 bool ORIENTATION)
{
    bitmapHandle_ = build(BITMAPARRAY, headerOf(PICWIDTH, PICHEIGHT, ORIENTATION, 4), colorTable4_.data());
}

void PictureServices::CREATEBMP8(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT,
                                 bool ORIENTATION)
{
    bitmapHandle_ = build(BYTEARRAY, headerOf(PICWIDTH, PICHEIGHT, ORIENTATION, 8), colorTable8_.data());
}

void PictureServices::CREATEBMP16(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT,
                                  bool ORIENTATION)
{
    bitmapHandle_ = build(BYTEARRAY, headerOf(PICWIDTH, PICHEIGHT, ORIENTATION, 16));
}

void PictureServices::CREATEBMP24(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT,
                                  bool ORIENTATION)
{
    // Four bytes a pixel. The bytes go through a copy of 32-bit elements, as many
    // as the array's highest index divided by 4 (halves to even) plus one, and the
    // copy moves as many bytes as that highest index: the array's last byte is left
    // out and reads as 0. An empty array has nothing to copy and builds nothing.
    const qsizetype highest = BYTEARRAY.size() - 1;
    if (highest < 0) {
        bitmapHandle_ = QImage();
        return;
    }
    const auto elements = qsizetype(platform::bankersRound(double(highest) / 4)) + 1;
    QByteArray copy(elements * 4, '\0');
    std::copy_n(BYTEARRAY.constData(), highest, copy.data());
    bitmapHandle_ = build(copy, headerOf(PICWIDTH, PICHEIGHT, ORIENTATION, 32));
}

void PictureServices::INITCOLORTBL1()
{
    colorTable1_ = {qRgb(0, 0, 0), qRgb(255, 255, 255)};
}

void PictureServices::INITCOLORTBL4(const QByteArray& BYTEARRAY)
{
    fillColorTable(colorTable4_, BYTEARRAY);
}

void PictureServices::INITCOLORTBL8(const QByteArray& BYTEARRAY)
{
    fillColorTable(colorTable8_, BYTEARRAY);
}

void PictureServices::DRAWBITMAP(int32_t PICWIDTH, int32_t PICHEIGHT, platform::PictureBox* PICOBJECT,
                                 uint8_t SCALEVAL)
{
    if (!PICOBJECT)
        return;
    PICOBJECT->setPicture(QImage());
    platform::Twips box(PICOBJECT);
    if (SCALEVAL == 1) {
        const auto [width, height] = StoreAndFileServices::instance().PIXELSTOTWIPS(PICWIDTH, PICHEIGHT);
        box.setHeight(float(height));
        box.setWidth(float(width));
    }

    // A box with a border is drawn at its outer size and grows by its border, so
    // that its former outer size becomes its inner size; one without is drawn at
    // its size.
    const QSize inner = PICOBJECT->contentsRect().size();
    QSize drawing = inner;
    if (PICOBJECT->height() != inner.height()) {
        drawing = PICOBJECT->size();
        const float innerHeight = platform::Screen::twipsY(inner.height());
        const float innerWidth = platform::Screen::twipsX(inner.width());
        box.setHeight(box.Height() - innerHeight + box.Height());
        box.setWidth(box.Width() - innerWidth + box.Width());
    }

    if (bitmapHandle_.isNull() || drawing.isEmpty() || PICWIDTH <= 0 || PICHEIGHT <= 0)
        return;
    // The PICWIDTH by PICHEIGHT pixels at the bitmap's top left stretched to the
    // drawing size, pixel for pixel without smoothing; a part of that rectangle
    // beyond the bitmap draws nothing.
    const QRect source = QRect(0, 0, PICWIDTH, PICHEIGHT) & bitmapHandle_.rect();
    const double scaleX = double(drawing.width()) / PICWIDTH;
    const double scaleY = double(drawing.height()) / PICHEIGHT;
    const qreal ratio = PICOBJECT->devicePixelRatioF();
    QImage canvas(drawing * ratio, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.drawImage(QRectF(0, 0, source.width() * scaleX, source.height() * scaleY), bitmapHandle_, source);
    painter.end();
    PICOBJECT->setPicture(canvas);
}
