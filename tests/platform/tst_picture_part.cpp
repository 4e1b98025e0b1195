// LoadPicturePart of a JPEG against LoadPicture of the same file: wherever the
// part lies and however the file is coded, it gives the whole picture's pixels
// there, and it fails on exactly the files that LoadPicture fails on.
#include "platform/core/Error.h"
#include "platform/core/Picture.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio> // before jpeglib.h, which uses FILE
#include <cstdlib>
#include <jpeglib.h>

namespace {

constexpr QSize Size(613, 457); // no multiple of the blocks; whole, large enough to be mapped

// How a test picture is coded: 1, 3 or 4 components, the colour space stored, the
// sampling of the first component, and options.
struct Coding {
    int components = 3;
    J_COLOR_SPACE stored = JCS_YCbCr;
    int h = 2, v = 2;
    bool progressive = false;
    bool arithmetic = false;
    int restartRows = 0;
    int orientation = 0; // EXIF, 1 to 8; 0 for none
};

// Noise over a gradient, so that a pixel from the wrong place shows.
QByteArray encode(const Coding& coding, QSize size = Size)
{
    QRandomGenerator random(7);
    QByteArray pixels(qsizetype(size.width()) * size.height() * coding.components, Qt::Uninitialized);
    for (qsizetype i = 0; i < pixels.size(); ++i)
        pixels[i] =
            char(i / coding.components % size.width() * 255 / size.width() + int(random.bounded(48u)));

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
    info.comp_info[0].h_samp_factor = coding.h;
    info.comp_info[0].v_samp_factor = coding.v;
    info.arith_code = coding.arithmetic;
    info.restart_in_rows = coding.restartRows;
    if (coding.progressive)
        jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    if (coding.orientation) {
        const QByteArray exif = QByteArray::fromHex("457869660000"
                                                    "4d4d002a00000008"        // Exif, TIFF, IFD at 8
                                                    "00010112000300000001") + // Orientation
                                char(0) +
                                char(coding.orientation) + QByteArray(6, '\0');
        jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.data()),
                          unsigned(exif.size()));
    }
    while (info.next_scanline < info.image_height) {
        auto row = reinterpret_cast<JSAMPROW>(pixels.data()) +
                   qsizetype(info.next_scanline) * size.width() * coding.components;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const QByteArray jpeg(reinterpret_cast<const char*>(data), qsizetype(length));
    std::free(data);
    return jpeg;
}

// `bytes` put into the (last) scan's data at a share of its length.
QByteArray insertedInData(QByteArray jpeg, double share, const QByteArray& bytes)
{
    const qsizetype sos = jpeg.lastIndexOf(QByteArray::fromHex("ffda"));
    const qsizetype start = sos + 2 + (uchar(jpeg[sos + 2]) << 8 | uchar(jpeg[sos + 3]));
    qsizetype at = start + qsizetype(double(jpeg.size() - start) * share);
    while (uchar(jpeg[at - 1]) == 0xFF) // not inside a 0xFF 0x00
        ++at;
    return jpeg.insert(at, bytes);
}

template <typename Load> int failureOf(Load&& load)
{
    try {
        load();
        return 0;
    } catch (const platform::Error& e) {
        return e.number();
    }
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
        const QByteArray plain = encode({});
        QTest::newRow("4:2:0") << plain << true;
        QTest::newRow("4:2:2") << encode({.h = 2, .v = 1}) << true;
        QTest::newRow("4:4:0") << encode({.h = 1, .v = 2}) << true;
        QTest::newRow("4:4:4") << encode({.h = 1, .v = 1}) << true;
        QTest::newRow("arithmetic") << encode({.arithmetic = true}) << true;
        QTest::newRow("grey") << encode({.components = 1, .stored = JCS_GRAYSCALE, .h = 1, .v = 1}) << true;
        QTest::newRow("grey progressive")
            << encode({.components = 1, .stored = JCS_GRAYSCALE, .h = 1, .v = 1, .progressive = true})
            << true;
        QTest::newRow("CMYK") << encode({.components = 4, .stored = JCS_CMYK}) << true;
        QTest::newRow("YCCK") << encode({.components = 4, .stored = JCS_YCCK}) << true;
        for (int turn = 2; turn <= 8; ++turn)
            QTest::addRow("orientation %d", turn)
                << encode({.orientation = turn}, turn >= 5 ? Size.transposed() : Size) << true;
        // A cut file shows what is there, the rest grey; a cut progressive one is
        // smoothed, which takes in the blocks around each block.
        QTest::newRow("cut") << plain.left(plain.size() * 3 / 5) << true;
        const QByteArray progressive = encode({.progressive = true});
        QTest::newRow("progressive") << progressive << true;
        QTest::newRow("progressive cut early") << progressive.left(progressive.size() / 3) << true;
        QTest::newRow("progressive cut late") << progressive.left(progressive.size() * 2 / 3) << true;

        // Damage below most parts: a whole decode fails on some markers there and
        // reads on past others, and so must the part.
        QTest::newRow("reserved marker for the end")
            << plain.chopped(2) + QByteArray::fromHex("ffc8") << false;
        QTest::newRow("comment, then a reserved marker") // a marker's contents are read as they are
            << plain.chopped(2) + QByteArray::fromHex("fffe00064142ffd8ffc8") << false;
        QTest::newRow("comment holding a start of image")
            << plain.chopped(2) + QByteArray::fromHex("fffe00064142ffd8ffd9") << true;
        QTest::newRow("start of image in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ffd8")) << false;
        QTest::newRow("bad table in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ffc40003ff")) << false;
        QTest::newRow("no marker code in the data")
            << insertedInData(plain, 0.8, QByteArray::fromHex("ff05")) << false;
        // A restart looks for the next marker, skipping codes that are none.
        const QByteArray restarts = encode({.restartRows = 1});
        QTest::newRow("restarts") << restarts << true;
        QTest::newRow("no marker code between restarts")
            << insertedInData(restarts, 0.8, QByteArray::fromHex("ff05")) << true;
        const qsizetype restart = restarts.indexOf(QByteArray::fromHex("ffd5"), restarts.size() * 7 / 10);
        QTest::newRow("restart missing") << QByteArray(restarts).remove(restart, 2) << true;
    }

    void partIsThatPartOfTheWhole()
    {
        QFETCH(QByteArray, jpeg);
        QFETCH(bool, loads);
        const QString path = dir_.filePath(QStringLiteral("picture.jpg"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(jpeg) == jpeg.size());
        file.close();

        QImage whole;
        const int failure = failureOf([&] { whole = platform::LoadPicture(path); });
        QCOMPARE(failure == 0, loads);
        const int w = Size.width();
        const int h = Size.height();
        // Odd places, every edge, a single pixel and the whole picture.
        for (const QRect& wanted :
             {QRect(141, 97, 67, 53), QRect(0, 120, 31, 40), QRect(w - 45, 33, 45, 29), QRect(77, 0, 90, 17),
              QRect(201, h - 23, 70, 23), QRect(w / 2 + 3, h / 2, 1, 1), QRect(QPoint(), Size)}) {
            platform::PicturePart part;
            QCOMPARE(
                failureOf([&] { part = platform::LoadPicturePart(path, [&](QSize) { return wanted; }); }),
                failure);
            if (failure)
                continue;
            QCOMPARE(part.size, Size);
            QCOMPARE(part.part, wanted);
            QVERIFY2(part.image == whole.copy(wanted), qPrintable(QStringLiteral("%1x%2 at %3,%4")
                                                                      .arg(wanted.width())
                                                                      .arg(wanted.height())
                                                                      .arg(wanted.x())
                                                                      .arg(wanted.y())));
        }
    }

    // The decoder's limit counts every picture at 32 bits a pixel at least, so a
    // grey one of 11565 x 15393 (170 MiB of grey, 679 MiB counted) is refused,
    // whole and in part alike.
    void greyOverTheLimitIsRefusedInPart()
    {
        QByteArray jpeg = encode({.components = 1, .stored = JCS_GRAYSCALE, .h = 1, .v = 1});
        const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
        QVERIFY(frame > 0);
        jpeg.replace(frame + 5, 4, QByteArray::fromHex("3c212d2d")); // height, width
        const QString path = dir_.filePath(QStringLiteral("huge.jpg"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(jpeg) == jpeg.size());
        file.close();
        QCOMPARE(failureOf([&] { platform::LoadPicture(path); }), platform::err::InvalidPicture);
        QCOMPARE(
            failureOf([&] { platform::LoadPicturePart(path, [](QSize) { return QRect(0, 0, 64, 64); }); }),
            platform::err::InvalidPicture);
    }
};

QTEST_GUILESS_MAIN(tst_picture_part)
#include "tst_picture_part.moc"
