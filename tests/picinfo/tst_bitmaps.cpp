// The bitmap builders against pixels worked out by hand from the bytes: bit and
// byte orders, row padding and order, the colour tables, the refusal of arrays
// that are too short, and DRAWBITMAP's sizing and stretching.

#include "Bytes.h"
#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/widgets/PictureBox.h"

#include <QTest>

#include <algorithm>
#include <memory>

namespace {

clsLibrary& library()
{
    return clsLibrary::instance();
}

// The colour i of the test palettes: red, green and blue differ, so a table that
// swapped them would show.
QRgb paletteColour(int i)
{
    return qRgb(i, 255 - i, (i * 7) & 0xFF);
}

QByteArray paletteBytes(int colours)
{
    QByteArray result;
    for (int i = 0; i < colours; ++i)
        result += bytes({qRed(paletteColour(i)), qGreen(paletteColour(i)), qBlue(paletteColour(i))});
    return result;
}

void build(int format, const QByteArray& data, int width, int height, bool topDown)
{
    switch (format) {
    case 1: library().CREATEBMP1(data, width, height, topDown); break;
    case 4: library().CREATEBMP4(data, width, height, topDown); break;
    case 8: library().CREATEBMP8(data, width, height, topDown); break;
    case 16: library().CREATEBMP16(data, width, height, topDown); break;
    default: library().CREATEBMP24(data, width, height, topDown); break;
    }
}

// The pixels of an image, top row first.
QList<QRgb> pixelsOf(const QImage& image)
{
    QList<QRgb> pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            pixels << image.pixel(x, y);
    return pixels;
}

const QRgb Black = qRgb(0, 0, 0);
const QRgb White = qRgb(255, 255, 255);

// A 4 by 2 bitmap of eight colours, built top row first from four-byte pixels.
void buildEightColours()
{
    QByteArray data;
    for (int i = 0; i < 8; ++i)
        data += bytes({i * 30, i * 20, i * 10, 0});
    library().CREATEBMP24(data, 4, 2, true);
}

} // namespace

class tst_bitmaps : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void builders_data();
    void builders();
    void tablesWithTooFewColours_data();
    void tablesWithTooFewColours();
    void drawBitmap_data();
    void drawBitmap();
};

void tst_bitmaps::initTestCase()
{
    library().INITCOLORTBL1();
    library().INITCOLORTBL4(paletteBytes(16));
    library().INITCOLORTBL8(paletteBytes(256));
}

void tst_bitmaps::builders_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("topDown");
    QTest::addColumn<QList<QRgb>>("pixels");

    // The first pixel is the byte's highest bit; the first row is the bottom one
    // unless ORIENTATION says top.
    const QByteArray mono = bytes({0b10100000, 0, 0, 0, 0b01000000, 0, 0, 0});
    QTest::newRow("1 bottom up") << 1 << mono << 3 << 2 << false
                                 << QList<QRgb>{Black, White, Black, White, Black, White};
    // 33 pixels fill more than one 32-bit unit: the row takes 8 bytes.
    QList<QRgb> wide(33, Black);
    wide[0] = wide[32] = White;
    QTest::newRow("1 row of 8 bytes")
        << 1 << bytes({0x80, 0, 0, 0, 0x80, 0, 0, 0}) << 33 << 1 << true << wide;

    // The high half of a byte first.
    QTest::newRow("4") << 4 << bytes({0x1F, 0xA0, 0, 0, 0x23, 0x40, 0, 0}) << 3 << 2 << false
                       << QList<QRgb>{paletteColour(2), paletteColour(3),  paletteColour(4),
                                      paletteColour(1), paletteColour(15), paletteColour(10)};
    // Rows of three bytes are padded to four.
    QTest::newRow("8") << 8 << bytes({5, 6, 200, 99, 8, 255, 0, 99}) << 3 << 2 << true
                       << QList<QRgb>{paletteColour(5), paletteColour(6),   paletteColour(200),
                                      paletteColour(8), paletteColour(255), paletteColour(0)};

    // Little-endian 5-5-5 with blue in the low bits, each part widened to 8 bits.
    QTest::newRow("16") << 16 << bytes({0x00, 0x7C, 0x1F, 0x06, 0xE0, 0x03, 0xFF, 0xFF}) << 2 << 2 << true
                        << QList<QRgb>{qRgb(255, 0, 0), qRgb(8, 132, 255), qRgb(0, 255, 0), White};

    // Blue, green, red, unused.
    QTest::newRow("24") << 24 << bytes({1, 2, 3, 99, 4, 5, 6, 99, 7, 8, 9, 99, 10, 11, 12, 99}) << 2 << 2
                        << false
                        << QList<QRgb>{qRgb(9, 8, 7), qRgb(12, 11, 10), qRgb(3, 2, 1), qRgb(6, 5, 4)};
    // The copy leaves out the array's last byte: here the second pixel's red.
    QTest::newRow("24 without last unused byte")
        << 24 << bytes({1, 2, 3, 99, 4, 5, 6}) << 2 << 1 << true << QList<QRgb>{qRgb(3, 2, 1), qRgb(0, 5, 4)};

    // Arrays one byte shorter than the padded rows demand build nothing. The copy
    // of a "24" array holds whole elements, so that one must lack more than a pixel.
    const QList<QRgb> none;
    QTest::newRow("1 short") << 1 << QByteArray(7, 1) << 33 << 1 << true << none;
    QTest::newRow("8 short, height negated") << 8 << QByteArray(7, 1) << 4 << -2 << true << none;
    QTest::newRow("24 short") << 24 << QByteArray(11, 1) << 2 << 2 << true << none;
    QTest::newRow("24 empty") << 24 << QByteArray() << 1 << 1 << true << none;
    QTest::newRow("taller than any array") << 8 << QByteArray(16, 1) << 1 << int(0x80000000) << true << none;
}

void tst_bitmaps::builders()
{
    QFETCH(int, format);
    QFETCH(QByteArray, data);
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, topDown);
    QFETCH(QList<QRgb>, pixels);

    buildEightColours();
    // The bytes fill an allocation of their own size exactly, so that the
    // sanitizer build reports any read past them.
    const std::unique_ptr<char[]> storage(new char[size_t(data.size())]);
    std::copy(data.begin(), data.end(), storage.get());
    build(format, QByteArray::fromRawData(storage.get(), data.size()), width, height, topDown);

    const QImage bitmap = library().BITMAPHANDLE();
    QCOMPARE(bitmap.isNull(), pixels.isEmpty());
    QCOMPARE(pixelsOf(bitmap), pixels);
    if (!pixels.isEmpty())
        QCOMPARE(bitmap.size(), QSize(width, height));
}

void tst_bitmaps::tablesWithTooFewColours_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<int>("written");

    // The working records number the highest index divided by 3, rounded, plus one:
    // a table one colour short still gets its last entry (black) from the extra record.
    QTest::newRow("15 colours") << 45 << false << 16;
    QTest::newRow("14 colours") << 42 << true << 15;
    QTest::newRow("14 colours and a part") << 44 << true << 15;
}

// The 16-entry table; the 256-entry one is filled by the same rule.
void tst_bitmaps::tablesWithTooFewColours()
{
    QFETCH(int, size);
    QFETCH(bool, fails);
    QFETCH(int, written);

    const QRgb Old = qRgb(1, 2, 3);
    library().INITCOLORTBL4(bytes({1, 2, 3}).repeated(16));
    const QByteArray given = paletteBytes(16).left(size);
    int thrown = 0;
    try {
        library().INITCOLORTBL4(given);
    } catch (const platform::Error& error) {
        thrown = error.number();
    }
    QCOMPARE(thrown, fails ? platform::err::SubscriptOutOfRange : 0);

    library().CREATEBMP4(bytes({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}), 16, 1, true);
    const QList<QRgb> shown = pixelsOf(library().BITMAPHANDLE());
    // A colour that the array ends within is 0 where its bytes are missing.
    const QByteArray padded = given + QByteArray(48, '\0');
    for (int i = 0; i < 16; ++i) {
        const auto part = [&](int k) { return uchar(padded[3 * i + k]); };
        const QRgb expected = i >= written ? Old : qRgb(part(0), part(1), part(2));
        QVERIFY2(shown[i] == expected, qPrintable(QStringLiteral("entry %1").arg(i)));
    }
    initTestCase();
}

void tst_bitmaps::drawBitmap_data()
{
    QTest::addColumn<bool>("border");
    QTest::addColumn<int>("scale");
    QTest::addColumn<QSize>("boxBefore");
    QTest::addColumn<QSize>("part");
    QTest::addColumn<bool>("noBitmap");
    QTest::addColumn<QSize>("boxAfter");
    QTest::addColumn<QSize>("drawn");

    // The bitmap is 4 by 2. The border is one pixel wide.
    QTest::newRow("sized, border") << true << 1 << QSize(50, 40) << QSize(4, 2) << false << QSize(6, 4)
                                   << QSize(4, 2);
    // Unsized: stretched to the box, which with a border grows by it all the same.
    QTest::newRow("stretched, border")
        << true << 0 << QSize(8, 4) << QSize(4, 2) << false << QSize(10, 6) << QSize(8, 4);
    QTest::newRow("part stretched") << false << 0 << QSize(8, 2) << QSize(2, 1) << false << QSize(8, 2)
                                    << QSize(8, 2);
    // A part larger than the bitmap: the rest draws nothing.
    QTest::newRow("part beyond the bitmap")
        << false << 1 << QSize(1, 1) << QSize(8, 4) << false << QSize(8, 4) << QSize(4, 2);
    QTest::newRow("no bitmap, sized")
        << true << 1 << QSize(50, 40) << QSize(4, 2) << true << QSize(6, 4) << QSize();
}

void tst_bitmaps::drawBitmap()
{
    QFETCH(bool, border);
    QFETCH(int, scale);
    QFETCH(QSize, boxBefore);
    QFETCH(QSize, part);
    QFETCH(bool, noBitmap);
    QFETCH(QSize, boxAfter);
    QFETCH(QSize, drawn);

    QWidget window;
    platform::PictureBox box(&window);
    if (!border)
        box.setFrameShape(QFrame::NoFrame);
    box.resize(boxBefore);
    box.setMessage(QStringLiteral("before"));

    buildEightColours();
    const QImage bitmap = library().BITMAPHANDLE();
    if (noBitmap)
        library().CREATEBMP8(QByteArray(), 1, 1, true);
    library().DRAWBITMAP(part.width(), part.height(), &box, uint8_t(scale));

    QCOMPARE(box.size(), boxAfter);
    QVERIFY(box.message().isEmpty());
    const QImage picture = box.Picture();
    if (noBitmap) {
        QVERIFY(picture.isNull());
        return;
    }
    // The drawing fills the inner area; pixel for pixel, without smoothing.
    QCOMPARE(box.contentsRect().size(), picture.size());
    const int factorX = picture.width() / part.width();
    const int factorY = picture.height() / part.height();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool inside = x < drawn.width() && y < drawn.height();
            const QRgb expected = inside ? bitmap.pixel(x / factorX, y / factorY) : 0;
            QVERIFY2(picture.pixel(x, y) == expected,
                     qPrintable(QStringLiteral("pixel %1, %2").arg(x).arg(y)));
        }
    }
}

QTEST_MAIN(tst_bitmaps)
#include "tst_bitmaps.moc"
