// LoadPicturePart of a JPEG against LoadPicture of the same file: wherever the
// part lies and however the file is coded, it gives the whole picture's pixels
// there, and it fails on exactly the files that LoadPicture fails on.
#include "platform/core/Error.h"
#include "platform/core/Picture.h"

#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio> // before jpeglib.h, which uses FILE
#include <cstdlib>
#include <jpeglib.h>

namespace {

constexpr QSize Size(517, 391); // no multiple of the blocks, wider than a cut's margins

// How a test picture is coded: its components (1 grey, 3 colour, 4 CMYK), the
// colour space stored, the sampling of the first component, and the options.
struct Coding {
    int components = 3;
    J_COLOR_SPACE stored = JCS_YCbCr;
    int h = 2, v = 2;
    bool progressive = false;
    bool arithmetic = false;
    int restartRows = 0;
    int orientation = 0; // EXIF, 1 to 8; 0 for none
};

// Noise over a gradient, so that a pixel taken from the wrong place shows.
QByteArray samples(const Coding& coding, QSize size)
{
    QRandomGenerator random(7);
    QByteArray bytes(qsizetype(size.width()) * size.height() * coding.components, Qt::Uninitialized);
    auto* out = reinterpret_cast<uchar*>(bytes.data());
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            for (int c = 0; c < coding.components; ++c)
                *out++ = uchar((x * 255 / size.width() + y * (c + 1) + int(random.bounded(48u))) & 0xFF);
    return bytes;
}

// An EXIF block holding nothing but an orientation.
QByteArray exifWith(int orientation)
{
    return QByteArray::fromHex("457869660000"              // "Exif\0\0"
                               "4d4d002a00000008"          // big-endian TIFF, IFD at 8
                               "0001011200030000000100") + // one entry, Orientation
           char(orientation) +
           QByteArray::fromHex("000000000000");
}

QByteArray encode(const Coding& coding, QSize size)
{
    const QByteArray pixels = samples(coding, size);
    jpeg_compress_struct info;
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* data = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &data, &length);
    info.image_width = JDIMENSION(size.width());
    info.image_height = JDIMENSION(size.height());
    info.input_components = coding.components;
    info.in_color_space = coding.components == 1   ? JCS_GRAYSCALE
                          : coding.components == 3 ? JCS_RGB
                                                   : JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_colorspace(&info, coding.stored);
    jpeg_set_quality(&info, 90, TRUE);
    info.comp_info[0].h_samp_factor = coding.h;
    info.comp_info[0].v_samp_factor = coding.v;
    info.arith_code = coding.arithmetic;
    info.restart_in_rows = coding.restartRows;
    if (coding.progressive)
        jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    if (coding.orientation) {
        const QByteArray exif = exifWith(coding.orientation);
        jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.constData()),
                          unsigned(exif.size()));
    }
    const int rowBytes = size.width() * coding.components;
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = reinterpret_cast<JSAMPROW>(const_cast<char*>(pixels.constData())) +
                       qsizetype(info.next_scanline) * rowBytes;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const QByteArray jpeg(reinterpret_cast<const char*>(data), qsizetype(length));
    std::free(data);
    return jpeg;
}

// Where a file's (last) scan data lies: from behind its header to the end marker.
qsizetype dataStart(const QByteArray& jpeg)
{
    const qsizetype sos = jpeg.lastIndexOf(QByteArray::fromHex("ffda"));
    return sos + 2 + (uchar(jpeg[sos + 2]) << 8 | uchar(jpeg[sos + 3]));
}

// `bytes` put into the scan data at a share of its length, not inside a 0xFF 0x00.
QByteArray insertedInData(QByteArray jpeg, double share, const QByteArray& bytes)
{
    const qsizetype start = dataStart(jpeg);
    qsizetype at = start + qsizetype(double(jpeg.size() - 2 - start) * share);
    while (uchar(jpeg[at - 1]) == 0xFF)
        ++at;
    return jpeg.insert(at, bytes);
}

// Without the first restart marker that comes after a share of the data.
QByteArray withoutRestartAfter(QByteArray jpeg, double share)
{
    const qsizetype start = dataStart(jpeg);
    for (qsizetype at = start + qsizetype(double(jpeg.size() - start) * share); at + 1 < jpeg.size(); ++at)
        if (uchar(jpeg[at]) == 0xFF && (uchar(jpeg[at + 1]) & 0xF8) == 0xD0)
            return jpeg.remove(at, 2);
    return jpeg;
}

// Parts of the upright picture at odd places, on every edge, and the whole.
QList<QRect> partsOf(QSize size)
{
    const int w = size.width();
    const int h = size.height();
    return {QRect(141, 97, 67, 53),    QRect(0, 120, 31, 40),      QRect(w - 45, 33, 45, 29),
            QRect(77, 0, 90, 17),      QRect(201, h - 23, 70, 23), QRect(w / 2 + 3, h / 2 + 5, 1, 1),
            QRect(w - 9, h - 7, 9, 7), QRect(QPoint(), size)};
}

struct Outcome {
    int error = 0; // 0 when loaded
    QImage image;
};

template <typename Load> Outcome attempt(Load&& load)
{
    Outcome outcome;
    try {
        outcome.image = load();
    } catch (const platform::Error& e) {
        outcome.error = e.number();
    }
    return outcome;
}

} // namespace

class tst_picture_part : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;

private slots:
    void partIsThatPartOfTheWhole_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::addColumn<bool>("loads");
        const QByteArray plain = encode({}, Size);
        QTest::newRow("4:2:0") << plain << true;
        QTest::newRow("4:2:2") << encode({.h = 2, .v = 1}, Size) << true;
        QTest::newRow("4:4:0") << encode({.h = 1, .v = 2}, Size) << true;
        QTest::newRow("4:4:4") << encode({.h = 1, .v = 1}, Size) << true;
        QTest::newRow("progressive") << encode({.progressive = true}, Size) << true;
        QTest::newRow("arithmetic") << encode({.arithmetic = true}, Size) << true;
        QTest::newRow("restarts") << encode({.restartRows = 1}, Size) << true;
        QTest::newRow("grey") << encode({.components = 1, .stored = JCS_GRAYSCALE, .h = 1, .v = 1}, Size)
                              << true;
        QTest::newRow("grey progressive")
            << encode({.components = 1, .stored = JCS_GRAYSCALE, .h = 1, .v = 1, .progressive = true}, Size)
            << true;
        QTest::newRow("CMYK") << encode({.components = 4, .stored = JCS_CMYK}, Size) << true;
        QTest::newRow("YCCK") << encode({.components = 4, .stored = JCS_YCCK}, Size) << true;
        for (int orientation = 1; orientation <= 8; ++orientation)
            QTest::addRow("orientation %d", orientation)
                << encode({.orientation = orientation}, orientation >= 5 ? Size.transposed() : Size) << true;

        // A cut file shows what is there, the rest grey; a cut progressive file is
        // smoothed, which takes in the blocks around each one.
        QTest::newRow("cut in its data") << plain.left(plain.size() * 3 / 5) << true;
        const QByteArray progressive = encode({.progressive = true}, Size);
        for (const int third : {1, 2})
            QTest::addRow("progressive cut at %d/3", third)
                << progressive.left(progressive.size() * third / 3) << true;

        // Damage below most parts: a whole decode fails on some markers there and
        // goes on past others, and so must the part.
        QTest::newRow("reserved marker for the end")
            << plain.chopped(2) + QByteArray::fromHex("ffc8") << false;
        // Behind the data, a marker's contents are read as they are.
        QTest::newRow("comment, then a reserved marker")
            << plain.chopped(2) + QByteArray::fromHex("fffe00064142ffd8ffc8") << false;
        QTest::newRow("comment holding a start of image")
            << plain.chopped(2) + QByteArray::fromHex("fffe00064142ffd8ffd9") << true;
        QTest::newRow("start of image in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ffd8")) << false;
        QTest::newRow("no marker code in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ff05")) << false;
        const QByteArray restarts = encode({.restartRows = 1}, Size);
        QTest::newRow("no marker code between restarts")
            << insertedInData(restarts, 0.8, QByteArray::fromHex("ff05")) << true;
        QTest::newRow("restart missing") << withoutRestartAfter(restarts, 0.7) << true;
        QTest::newRow("table in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ffc40003ff")) << false;
    }

    void partIsThatPartOfTheWhole()
    {
        QFETCH(QByteArray, jpeg);
        QFETCH(bool, loads);
        const QString path = dir_.filePath(QStringLiteral("picture.jpg"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(jpeg) == jpeg.size());
        file.close();

        const Outcome whole = attempt([&] { return platform::LoadPicture(path); });
        QCOMPARE(whole.error == 0, loads);
        const QSize size = whole.error ? Size : whole.image.size();
        for (const QRect& wanted : partsOf(size)) {
            platform::PicturePart part;
            const Outcome cut = attempt([&] {
                part = platform::LoadPicturePart(path, [&](QSize) { return wanted; });
                return part.image;
            });
            QCOMPARE(cut.error, whole.error);
            if (whole.error)
                continue;
            QCOMPARE(part.size, size);
            QCOMPARE(part.part, wanted);
            QVERIFY2(cut.image == whole.image.copy(wanted), qPrintable(QStringLiteral("%1x%2 at %3,%4")
                                                                           .arg(wanted.width())
                                                                           .arg(wanted.height())
                                                                           .arg(wanted.x())
                                                                           .arg(wanted.y())));
        }
    }
};

QTEST_GUILESS_MAIN(tst_picture_part)
#include "tst_picture_part.moc"
