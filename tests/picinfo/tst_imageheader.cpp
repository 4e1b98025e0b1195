// The header reader on files built byte by byte for each of its rules, on the odd
// files a folder can hold, and on pictures written by Qt's own image writers.

#include "Bytes.h"
#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/ImageHeader.h"
#include "platform/widgets/MsgBox.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fstream>
#include <initializer_list>
#include <sys/stat.h>
#include <unistd.h>

namespace err = platform::err;
using platform::JpegScanLimit;

namespace {

QByteArray be16(int value)
{
    return bytes({value >> 8, value & 0xFF});
}

QByteArray be32(uint32_t value)
{
    return be16(int(value >> 16)) + be16(int(value & 0xFFFF));
}

QByteArray le16(int value)
{
    return bytes({value & 0xFF, value >> 8});
}

QByteArray le32(uint32_t value)
{
    return le16(int(value & 0xFFFF)) + le16(int(value >> 16));
}

QByteArray zeros(qsizetype count)
{
    return QByteArray(count, '\0');
}

// The signature and an IHDR chunk (its CRC left zero: the reader doesn't look).
QByteArray png(int colourType, int bitDepth, uint32_t width, uint32_t height)
{
    return QByteArray("\x89PNG\r\n\x1a\n") + be32(13) + "IHDR" + be32(width) + be32(height) + char(bitDepth) +
           char(colourType) + zeros(3) + zeros(4);
}

QByteArray gif(int width, int height, int flags)
{
    return QByteArray("GIF89a") + le16(width) + le16(height) + char(flags) + zeros(2);
}

// A file header and a bitmap info header.
QByteArray bmp(uint32_t width, uint32_t height, int bitCount)
{
    return QByteArray("BM") + le32(0) + le32(0) + le32(54) + le32(40) + le32(width) + le32(height) + le16(1) +
           le16(bitCount) + zeros(24);
}

QByteArray segment(int marker, const QByteArray& payload)
{
    return bytes({0xFF, marker}) + be16(int(payload.size()) + 2) + payload;
}

QByteArray frame(int marker, int width, int height, int components)
{
    QByteArray payload = QByteArray(1, '\x08') + be16(height) + be16(width) + char(components);
    for (int c = 1; c <= components; ++c)
        payload += bytes({c, 0x11, 0});
    return segment(marker, payload);
}

const QByteArray StartOfImage("\xFF\xD8", 2);
const QByteArray App0 = segment(0xE0, QByteArray("JFIF\0\x01\x01\0\0\x01\0\x01\0\0", 14));

QByteArray jpeg(const QByteArray& segments)
{
    return StartOfImage + segments + "\xFF\xD9";
}

// A metadata segment of the greatest length a 16-bit reader allows.
QByteArray largestSegment()
{
    return QByteArray("\xFF\xE1\x7F\xFF") + QByteArray(0x7FFF - 2, 'x');
}

bool writeFile(const QByteArray& path, const QByteArray& content)
{
    std::ofstream out(path.constData(), std::ios::binary);
    out.write(content.constData(), std::streamsize(content.size()));
    return bool(out);
}

} // namespace

class tst_ImageHeader : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void headers_data();
    void headers();
    void files_data();
    void files();
    void qtWriters_data();
    void qtWriters();
    void failureShowsMessage();
    void commandLine();

private:
    QTemporaryDir dir_;
    QByteArray path(const char* name) const { return platform::encodeFileName(dir_.path()) + '/' + name; }
};

void tst_ImageHeader::initTestCase()
{
    QVERIFY(dir_.isValid());
}

void tst_ImageHeader::headers_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("depth");
    QTest::addColumn<QString>("depthText");
    QTest::addColumn<int>("failure"); // the error number, 0 for none

    const QString none;
    const QString mono = "2 colors (1 bit)";
    const QString colors256 = "256 colors (8 bit)";
    const QString million = "16 million colors (24 bit)";

    QTest::newRow("empty file") << QByteArray() << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("text") << QByteArray("Hello, album\n") << 0 << 0 << 0 << 0 << none << 0;

    // PNG: the depth from colour type and bit depth, the size from the lower two bytes.
    QTest::newRow("png grey 16") << png(0, 16, 40, 30) << 3 << 40 << 30 << 16 << none << 0;
    QTest::newRow("png rgb 8") << png(2, 8, 640, 480) << 3 << 640 << 480 << 24 << million << 0;
    QTest::newRow("png palette 4") << png(3, 4, 7, 9) << 3 << 7 << 9 << 8 << colors256 << 0;
    QTest::newRow("png rgba") << png(6, 8, 7, 9) << 3 << 7 << 9 << 32 << none << 0;
    QTest::newRow("png upper bytes unread")
        << png(2, 8, 0x00010140, 0x12340100) << 3 << 320 << 256 << 24 << million << 0;
    QTest::newRow("png bad colour type") << png(5, 8, 7, 9) << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("png bad type, jpeg inside")
        << png(5, 8, 7, 9) + jpeg(frame(0xC0, 50, 60, 3)) << 2 << 50 << 60 << 24 << million << 0;
    QTest::newRow("png signature cut")
        << QByteArray("\x89PX") + png(2, 8, 7, 9).mid(3) << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("png too wide") << png(2, 8, 0x8000, 10) << 3 << 0 << 0 << 24 << million << err::Overflow;
    QTest::newRow("png widest") << png(2, 8, 0x7FFF, 1) << 3 << 32767 << 1 << 24 << million << 0;

    // GIF: behind the end of the file the buffer is zero.
    QTest::newRow("gif three bytes") << QByteArray("GIF") << 1 << 0 << 0 << 1 << mono << 0;
    QTest::newRow("gif 256") << gif(320, 200, 0xF7) << 1 << 320 << 200 << 8 << colors256 << 0;
    QTest::newRow("gif too wide") << gif(0x8000, 2, 0xF7) << 1 << 0 << 0 << 0 << none << err::Overflow;

    // BMP: the lower bytes of width, height and bit count.
    QTest::newRow("bmp two bytes") << QByteArray("BM") << 4 << 0 << 0 << 0 << none << 0;
    QTest::newRow("bmp 24") << bmp(640, 480, 24) << 4 << 640 << 480 << 24 << million << 0;
    QTest::newRow("bmp upper bytes unread")
        << bmp(0x00010280, 480, 24) << 4 << 640 << 480 << 24 << million << 0;
    QTest::newRow("bmp top-down") << bmp(640, uint32_t(-480), 24) << 4 << 640 << 0 << 0 << none
                                  << err::Overflow;
    QTest::newRow("bmp too wide") << bmp(40000, 480, 24) << 4 << 0 << 0 << 0 << none << err::Overflow;

    // JPEG: the start-of-image search and the marker walk.
    QTest::newRow("jpeg") << jpeg(App0 + frame(0xC0, 720, 477, 3)) << 2 << 720 << 477 << 24 << million << 0;
    QTest::newRow("jpeg grey") << jpeg(frame(0xC2, 16, 9, 1)) << 2 << 16 << 9 << 8 << colors256 << 0;
    QTest::newRow("jpeg cmyk") << jpeg(frame(0xC1, 16, 9, 4)) << 2 << 16 << 9 << 32 << none << 0;
    QTest::newRow("jpeg after junk") << QByteArray("junk\xFF\xD8junk") + jpeg(frame(0xC0, 5, 6, 3)) << 2 << 5
                                     << 6 << 24 << million << 0;
    QTest::newRow("jpeg fill bytes") << StartOfImage + "\xFF\xFF\xFF" + frame(0xC0, 5, 6, 3).mid(1) << 2 << 5
                                     << 6 << 24 << million << 0;
    QTest::newRow("soi only") << QByteArray("\xFF\xD8") << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("segment past a short end")
        << StartOfImage + QByteArray("\xFF\xE0\x7F\x00", 4) << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("segment of 32768")
        << StartOfImage + QByteArray("\xFF\xE1\x80\x00", 4) + frame(0xC0, 5, 6, 3) << 0 << 0 << 0 << 0 << none
        << err::Overflow;
    QTest::newRow("frame too wide") << jpeg(frame(0xC0, 0x8000, 6, 3)) << 2 << 0 << 6 << 0 << none
                                    << err::Overflow;
    QTest::newRow("frame behind the scan limit")
        << jpeg(largestSegment() + largestSegment() + frame(0xC0, 5, 6, 3)) << 0 << 0 << 0 << 0 << none << 0;
    QTest::newRow("frame before the scan limit")
        << jpeg(largestSegment() + App0 + frame(0xC0, 5, 6, 3)) << 2 << 5 << 6 << 24 << million << 0;
    // The frame marker at the last place the walk reaches: its fields lie behind
    // the limit and are still read from the buffer.
    QTest::newRow("frame at the last place")
        << zeros(JpegScanLimit - 3) + "\xFF\xD8\xFF\xC0" + QByteArray("\x00\x11\x08\x01\x02\x03\x04\x03", 8)
        << 2 << 772 << 258 << 24 << million << 0;
    QTest::newRow("mark at the scan limit")
        << zeros(JpegScanLimit - 2) + "\xFF\xD8\xFF\xC0" + QByteArray("\x00\x11\x08\x01\x02\x03\x04\x03", 8)
        << 0 << 0 << 0 << 0 << none << 0;

    // Each code from 0xC0 to 0xCF in front of a true frame: a start-of-frame code is
    // read at once; 0xC4, 0xC8 and 0xCC are skipped by their length.
    for (int code = 0xC0; code <= 0xCF; ++code) {
        const bool isFrame = code != 0xC4 && code != 0xC8 && code != 0xCC;
        QTest::addRow("marker %X", code)
            << jpeg(frame(code, 34, 17, 1) + frame(0xC0, 200, 100, 3)) << 2 << (isFrame ? 34 : 200)
            << (isFrame ? 17 : 100) << (isFrame ? 8 : 24) << (isFrame ? colors256 : million) << 0;
    }
}

void tst_ImageHeader::headers()
{
    QFETCH(QByteArray, content);
    QFETCH(int, type);
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, depth);
    QFETCH(QString, depthText);
    QFETCH(int, failure);

    const QByteArray file = path("picture.bin");
    QVERIFY(writeFile(file, content));
    const platform::HeaderReading reading = platform::readImageFile(platform::decodeFileName(file));
    QCOMPARE(reading.failure ? reading.failure->number : 0, failure);
    if (reading.failure)
        QCOMPARE(reading.failure->text, platform::Error::textOf(failure));
    QCOMPARE(reading.header.type, type);
    QCOMPARE(reading.header.width, width);
    QCOMPARE(reading.header.height, height);
    QCOMPARE(reading.header.depth, depth);
    QCOMPARE(clsLibrary::instance().GETCOLORDEPTH(QString::number(depth)), depthText);
    const QStringList typeTexts{"", "GIF", "JPEG", "PNG", "BMP"};
    QCOMPARE(platform::imageTypeText(type), typeTexts.at(type));
}

void tst_ImageHeader::files_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("failure");
    QTest::newRow("missing") << "missing" << 0 << err::FileNotFound;
    QTest::newRow("empty name") << "empty name" << 0 << err::FileNotFound;
    QTest::newRow("folder") << "folder" << 0 << err::PathFileAccess;
    QTest::newRow("named pipe") << "named pipe" << 0 << err::PathFileAccess;
    QTest::newRow("below a file") << "below a file" << 0 << err::PathNotFound;
    QTest::newRow("unreadable") << "unreadable" << 0 << err::PermissionDenied;
    QTest::newRow("link to a gif") << "link" << 1 << 0;
    QTest::newRow("name not utf-8") << "not utf-8" << 1 << 0;
}

void tst_ImageHeader::files()
{
    QFETCH(QString, kind);
    QFETCH(int, type);
    QFETCH(int, failure);

    const QByteArray gifFile = path("plain.gif");
    QVERIFY(writeFile(gifFile, gif(3, 4, 0)));
    QByteArray name;
    if (kind == "missing") {
        name = path("missing.jpg");
    } else if (kind == "folder") {
        name = path("folder.jpg");
        QVERIFY(::mkdir(name.constData(), 0755) == 0 || errno == EEXIST);
    } else if (kind == "named pipe") {
        // Opening a pipe for reading would wait for a writer: it must be refused.
        name = path("pipe.jpg");
        QVERIFY(::mkfifo(name.constData(), 0644) == 0 || errno == EEXIST);
    } else if (kind == "below a file") {
        name = gifFile + "/inner.gif";
    } else if (kind == "unreadable") {
        name = path("locked.gif");
        QVERIFY(writeFile(name, gif(3, 4, 0)));
        QCOMPARE(::chmod(name.constData(), 0), 0);
        if (::access(name.constData(), R_OK) == 0)
            QSKIP("this user reads files without read permission");
    } else if (kind == "link") {
        name = path("link.gif");
        ::unlink(name.constData());
        QCOMPARE(::symlink(gifFile.constData(), name.constData()), 0);
    } else if (kind == "not utf-8") {
        name = path("f\xF6to.gif");
        QVERIFY(writeFile(name, gif(3, 4, 0)));
    }

    const platform::HeaderReading reading = platform::readImageFile(platform::decodeFileName(name));
    if (kind == "not utf-8")
        ::unlink(name.constData()); // QTemporaryDir can't remove a name it can't decode
    QCOMPARE(reading.failure ? reading.failure->number : 0, failure);
    QCOMPARE(reading.header.type, type);
    QCOMPARE(reading.header.width, type ? 3 : 0);
}

void tst_ImageHeader::qtWriters_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("imageFormat");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("depth");
    QTest::newRow("png rgb") << QByteArray("png") << int(QImage::Format_RGB32) << 3 << 24;
    QTest::newRow("png palette") << QByteArray("png") << int(QImage::Format_Indexed8) << 3 << 8;
    QTest::newRow("jpeg") << QByteArray("jpeg") << int(QImage::Format_RGB32) << 2 << 24;
    QTest::newRow("bmp") << QByteArray("bmp") << int(QImage::Format_RGB32) << 4 << 24;
    QTest::newRow("gif") << QByteArray("gif") << int(QImage::Format_Indexed8) << 1 << 8;
}

void tst_ImageHeader::qtWriters()
{
    QFETCH(QByteArray, format);
    QFETCH(int, imageFormat);
    QFETCH(int, type);
    QFETCH(int, depth);
    if (!QImageWriter::supportedImageFormats().contains(format))
        QSKIP("Qt has no writer for this format here");

    QImage image(1201, 799, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb((x * 7) & 0xFF, (y * 3) & 0xFF, ((x ^ y) * 5) & 0xFF));
    }
    image = image.convertToFormat(QImage::Format(imageFormat));
    // A comment written before the frame, as cameras and editors write metadata.
    image.setText("Description", QString(20000, 'c'));
    const QString file = dir_.path() + "/written." + format;
    QVERIFY(image.save(file, format.constData()));

    const platform::HeaderReading reading = platform::readImageFile(file);
    QVERIFY(!reading.failure);
    QCOMPARE(reading.header.type, type);
    QCOMPARE(reading.header.width, 1201);
    QCOMPARE(reading.header.height, 799);
    QCOMPARE(reading.header.depth, depth);
}

void tst_ImageHeader::failureShowsMessage()
{
    clsLibrary& lib = clsLibrary::instance();
    const QByteArray wide = path("wide.bmp");
    const QByteArray small = path("small.gif");
    QVERIFY(writeFile(wide, bmp(40000, 480, 24)));
    QVERIFY(writeFile(small, gif(3, 4, 0x81)));
    const int asked = platform::MsgBox::askedCount();

    platform::MsgBox::setNextAnswer(QMessageBox::Ok);
    lib.IMAGEFILE = platform::decodeFileName(wide);
    lib.GETIMAGEFILEINFO();
    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
    QCOMPARE(platform::MsgBox::lastText(), QStringLiteral(" Error occurs : Overflow"));
    // What was found before the failure stays for the caller to show.
    QCOMPARE(lib.IMAGETYPE, 4);
    QCOMPARE(lib.IMAGEWIDTH, 0);

    // The next reading starts afresh and tells nothing.
    lib.IMAGEFILE = platform::decodeFileName(small);
    lib.GETIMAGEFILEINFO();
    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
    QCOMPARE(lib.IMAGETYPE, 1);
    QCOMPARE(lib.IMAGEWIDTH, 3);
    QCOMPARE(lib.IMAGEDEPTH, 2);
}

void tst_ImageHeader::commandLine()
{
    // The test programs are built in tests/, the companions in tools/.
    const QString program = QCoreApplication::applicationDirPath() + "/../tools/vistarro-info";
    if (!QFileInfo(program).isExecutable())
        QSKIP("vistarro-info isn't built");
    const QByteArray small = path("small.gif");
    QVERIFY(writeFile(small, gif(3, 4, 0x80)));
    const QString missing = dir_.path() + "/gone.jpg";

    QProcess run;
    run.start(program, {QString::fromUtf8(small), missing});
    QVERIFY(run.waitForFinished());
    QCOMPARE(run.exitCode(), 1);
    QCOMPARE(run.readAllStandardOutput(),
             small + "\tGIF\t3\t4\t1\t2 colors (1 bit)\n" + missing.toUtf8() + "\terror\tFile not found\n");

    run.start(program, QStringList());
    QVERIFY(run.waitForFinished());
    QCOMPARE(run.exitCode(), 2);
}

QTEST_MAIN(tst_ImageHeader)
#include "tst_imageheader.moc"
