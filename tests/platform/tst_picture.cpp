// LoadPicture against what a folder can really hold: pictures under odd names and
// files that aren't pictures at all. None of them may hang or take the process down.
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/Picture.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum class Kind { File, Folder, Pipe, Missing };

QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

// A JPEG as a camera held on its side writes it: the pixels as the sensor saw them
// and an EXIF orientation of 6 ("turn 90 degrees clockwise to view").
QByteArray turnedOnItsSide(const QByteArray& jpeg)
{
    const QByteArray exif = QByteArray::fromHex("ffe10022"                 // APP1, 34 bytes
                                                "457869660000"             // "Exif\0\0"
                                                "4d4d002a00000008"         // big-endian TIFF, IFD at 8
                                                "0001"                     // one entry:
                                                "011200030000000100060000" // Orientation = 6
                                                "00000000");               // no further IFD
    return jpeg.left(2) + exif + jpeg.mid(2);
}

QImage gradient(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x ^ y) & 0xFF));
    return image;
}

// A bitmap header that claims 30000 by 30000 pixels at 24 bits (2.7 GB), and no pixels.
const QByteArray hugeBitmapHeader =
    QByteArray::fromHex("424d36000000000000003600000028000000" // file, info header
                        "30750000307500000100180000000000"     // 30000 x 30000
                        "0000000000000000000000000000000000000000");

// Writes through the name's own bytes, as the program opens them.
void writeFile(const QString& path, const QByteArray& bytes)
{
    const int fd = ::open(platform::encodeFileName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY(fd >= 0);
    QCOMPARE(::write(fd, bytes.constData(), bytes.size()), bytes.size());
    ::close(fd);
}

} // namespace

class tst_picture : public QObject {
    Q_OBJECT

private slots:
    void rejects_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("error");
        const QByteArray jpeg = encoded(gradient(640, 480), "jpg");
        QTest::newRow("empty file") << Kind::File << QByteArray() << platform::err::InvalidPicture;
        QTest::newRow("garbage") << Kind::File << QByteArray(5000, '\x5a') << platform::err::InvalidPicture;
        QTest::newRow("jpeg cut in its header")
            << Kind::File << jpeg.left(120) << platform::err::InvalidPicture;
        QTest::newRow("over the allocation limit")
            << Kind::File << hugeBitmapHeader << platform::err::InvalidPicture;
        // The MNG plugin reads these bytes "successfully" into no picture at all.
        QTest::newRow("damaged MNG")
            << Kind::File
            << QByteArray::fromHex(
                   "8a4d4e470d0a1a0a000000000000280000001800000010000000010001009ababdaf40000000"
                   "c40e00c40c0a100e0d0e1211680000ffffff00000000ec44")
            << platform::err::InvalidPicture;
        // 28 bytes: a file header and the old 12-byte header of an 8-bit 3583 x 89
        // picture whose pixels would start far past the end. The decoder takes the
        // rows it can't read for whatever memory held.
        QTest::newRow("old-style bitmap header and no pixels")
            << Kind::File << QByteArray::fromHex("424db605040a00000001ffffb701ffffffffff0d5900010001000800")
            << platform::err::InvalidPicture;
        QTest::newRow("folder") << Kind::Folder << QByteArray() << platform::err::InvalidPicture;
        QTest::newRow("named pipe") << Kind::Pipe << QByteArray() << platform::err::InvalidPicture;
        QTest::newRow("missing") << Kind::Missing << QByteArray() << platform::err::FileNotFound;
    }

    void rejects()
    {
        QFETCH(Kind, kind);
        QFETCH(QByteArray, content);
        QFETCH(int, error);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("picture.jpg"));
        switch (kind) {
        case Kind::File: writeFile(path, content); break;
        case Kind::Folder: QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("picture.jpg"))); break;
        case Kind::Pipe: QCOMPARE(::mkfifo(platform::encodeFileName(path).constData(), 0644), 0); break;
        case Kind::Missing: break;
        }
        try {
            platform::LoadPicture(path);
            QFAIL("loaded");
        } catch (const platform::Error& e) {
            QCOMPARE(e.number(), error);
        }
    }

    void loads_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QSize>("size");
        const QImage wide = gradient(40, 20);
        // As other viewers do, a picture cut short in its data shows what is there.
        const QByteArray photo = encoded(gradient(640, 480), "jpg");
        QTest::newRow("jpeg cut in its data")
            << QStringLiteral("a.jpg") << photo.left(photo.size() / 2) << QSize(640, 480);
        QTest::newRow("name that isn't UTF-8")
            << QString(QChar(0xF7FF)) + QStringLiteral("\u00e9.jpg") << encoded(wide, "jpg") << QSize(40, 20);
        QTest::newRow("png named .jpg") << QStringLiteral("a.jpg") << encoded(wide, "png") << QSize(40, 20);
        // The natural size is the size of the upright picture.
        QTest::newRow("camera turned on its side")
            << QStringLiteral("a.jpg") << turnedOnItsSide(encoded(wide, "jpg")) << QSize(20, 40);
    }

    void loads()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QSize, size);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        writeFile(path, content);
        const QSize loaded = platform::LoadPicture(path).size();
        // Qt can't remove a name that isn't UTF-8.
        ::unlink(platform::encodeFileName(path).constData());
        QCOMPARE(loaded, size);
    }

    // Run-length data that stops after four pixels: the decoder sets those and
    // nothing else, so every other pixel must come out as colour 0, not as
    // whatever the memory held before (memory freed just before, full of 0x77).
    void runLengthBitmapWithGaps()
    {
        QByteArray bmp = QByteArray::fromHex("424d"
                                             "00000000"
                                             "00000000"
                                             "3e000000" // file header, data at 62
                                             "28000000"
                                             "40000000"
                                             "30000000" // 40-byte header, 64 x 48
                                             "0100"
                                             "0800"
                                             "01000000" // 8 bits, RLE8
                                             "00000000"
                                             "00000000"
                                             "00000000"
                                             "02000000"
                                             "00000000"
                                             "00000000"
                                             "0000ff00" // colours: black, red
                                             "0401"
                                             "0001"); // four of colour 1, end
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("gaps.bmp"));
        writeFile(path, bmp);
        for (int round = 0; round < 3; ++round) {
            {
                QByteArray(64 * 48, '\x77').detach();
            }
            const QImage image = platform::LoadPicture(path);
            QCOMPARE(image.size(), QSize(64, 48));
            int red = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) {
                    const QRgb pixel = image.pixel(x, y);
                    red += pixel == qRgb(255, 0, 0);
                    QVERIFY2(pixel == qRgb(255, 0, 0) || pixel == qRgb(0, 0, 0),
                             qPrintable(QString::number(pixel, 16)));
                }
            QCOMPARE(red, 4);
        }

        // Cut inside a run, after its count: the decoder would take the run's
        // colour from a byte it never read, so each decode gave other pixels.
        // Behind the file's end it reads zeros: four pixels of colour 0.
        bmp.chop(3);
        writeFile(path, bmp);
        const QImage cut = platform::LoadPicture(path);
        QCOMPARE(cut.size(), QSize(64, 48));
        QCOMPARE(cut.format(), QImage::Format_Indexed8);
        for (int y = 0; y < cut.height(); ++y)
            for (int x = 0; x < cut.width(); ++x)
                QVERIFY2(cut.constScanLine(y)[x] == 0,
                         qPrintable(
                             QStringLiteral("index %1 at %2,%3").arg(cut.constScanLine(y)[x]).arg(x).arg(y)));
    }
};

QTEST_GUILESS_MAIN(tst_picture)
#include "tst_picture.moc"
