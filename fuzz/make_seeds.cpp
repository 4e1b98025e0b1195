// Writes the seed corpora of the fuzz targets into a folder:
//   picture/  small pictures in every format the decoders read (GIF by hand,
//             since Qt writes none), a JPEG of each EXIF orientation, and copies
//             cut short and damaged in the middle;
//   header/   the same files;
//   store/    byte strings that the store target reads as scripts.
//
//   make_seeds FOLDER
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QRandomGenerator>

#include <cstdio>
#include <vector>

namespace {

QString folder;

void save(const QString& corpus, const QString& name, const QByteArray& bytes)
{
    QFile file(folder + QLatin1Char('/') + corpus + QLatin1Char('/') + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "make_seeds: can't write %s\n", qPrintable(file.fileName()));
        std::exit(1);
    }
}

// A picture worth decoding: a gradient with a few shapes, not one flat colour.
QImage sample(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(x * 255 / size.width(), y * 255 / size.height(), (x ^ y) * 16, 200));
    QPainter painter(&image);
    painter.setBrush(Qt::darkBlue);
    painter.drawEllipse(QRect(QPoint(), size / 2));
    painter.end();
    return image.convertToFormat(format);
}

QByteArray encode(const QImage& image, const char* format, int quality = -1,
                  QImageIOHandler::Transformations turn = QImageIOHandler::TransformationNone,
                  bool progressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.setTransformation(turn);
    writer.setProgressiveScanWrite(progressive);
    if (!writer.write(image)) {
        std::fprintf(stderr, "make_seeds: can't write %s: %s\n", format, qPrintable(writer.errorString()));
        std::exit(1);
    }
    return bytes;
}

// LZW codes packed least significant bit first, as GIF wants them.
class CodeWriter {
public:
    void put(int code, int bits)
    {
        for (int i = 0; i < bits; ++i) {
            current_ |= ((code >> i) & 1) << filled_;
            if (++filled_ == 8)
                flush();
        }
    }
    QByteArray finish()
    {
        if (filled_ > 0)
            flush();
        return bytes_;
    }

private:
    void flush()
    {
        bytes_.append(char(current_));
        current_ = 0;
        filled_ = 0;
    }
    QByteArray bytes_;
    int current_ = 0;
    int filled_ = 0;
};

// A GIF of four colours whose image data is a clear code before every second
// pixel, so that the codes stay three bits wide: valid, if not small.
QByteArray gif(int width, int height, int frames)
{
    QByteArray out("GIF89a");
    const auto word = [&](int value) {
        out.append(char(value & 0xff));
        out.append(char(value >> 8));
    };
    word(width);
    word(height);
    out.append("\x81\x00\x00", 3); // a global table of 4 colours
    out.append("\x00\x00\x00\xff\x00\x00\x00\xff\x00\xff\xff\xff", 12);
    for (int frame = 0; frame < frames; ++frame) {
        out.append("\x21\xf9\x04\x04\x0a\x00\x00\x00", 8); // 1/10 s per frame
        out.append(',');
        word(0);
        word(0);
        word(width);
        word(height);
        out.append('\0');
        out.append('\x02'); // minimum code size
        CodeWriter codes;
        const int clear = 4;
        const int end = 5;
        for (int i = 0; i < width * height; ++i) {
            if (i % 2 == 0)
                codes.put(clear, 3);
            codes.put((i + frame + i / width) % 4, 3);
        }
        codes.put(end, 3);
        const QByteArray data = codes.finish();
        for (qsizetype at = 0; at < data.size(); at += 255) {
            const QByteArray block = data.mid(at, 255);
            out.append(char(block.size()));
            out.append(block);
        }
        out.append('\0');
    }
    out.append(';');
    return out;
}

void savePicture(const QString& name, const QByteArray& bytes)
{
    for (const char* corpus : {"picture", "header"}) {
        save(QString::fromLatin1(corpus), name, bytes);
        save(QString::fromLatin1(corpus), name + QStringLiteral(".cut"), bytes.left(bytes.size() / 2));
        QByteArray damaged = bytes;
        for (qsizetype i = damaged.size() / 2; i < damaged.size() / 2 + 8 && i < damaged.size(); ++i)
            damaged[i] = char(damaged[i] ^ 0x5a);
        save(QString::fromLatin1(corpus), name + QStringLiteral(".damaged"), damaged);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds FOLDER\n");
        return 2;
    }
    folder = QString::fromLocal8Bit(argv[1]);
    for (const char* corpus : {"picture", "header", "store"})
        QDir().mkpath(folder + QLatin1Char('/') + QString::fromLatin1(corpus));

    const QSize size(24, 16);
    savePicture("rgb.bmp", encode(sample(size, QImage::Format_RGB888), "bmp"));
    savePicture("indexed.bmp", encode(sample(size, QImage::Format_Indexed8), "bmp"));
    savePicture("mono.bmp", encode(sample(size, QImage::Format_Mono), "bmp"));
    savePicture("rgb.png", encode(sample(size, QImage::Format_RGB888), "png"));
    savePicture("alpha.png", encode(sample(size, QImage::Format_ARGB32), "png"));
    savePicture("gray.png", encode(sample(size, QImage::Format_Grayscale8), "png"));
    savePicture("indexed.png", encode(sample(size, QImage::Format_Indexed8), "png"));
    savePicture("baseline.jpg", encode(sample(size, QImage::Format_RGB32), "jpeg", 75));
    savePicture("progressive.jpg", encode(sample(size, QImage::Format_RGB32), "jpeg", 50, {}, true));
    savePicture("gray.jpg", encode(sample(size, QImage::Format_Grayscale8), "jpeg", 90));
    // Wide enough that the show's region decoder cuts columns and skips rows.
    const QSize large(200, 136);
    savePicture("large.jpg", encode(sample(large, QImage::Format_RGB32), "jpeg", 50));
    savePicture("large-progressive.jpg", encode(sample(large, QImage::Format_RGB32), "jpeg", 50, {}, true));
    savePicture("large-gray.jpg", encode(sample(large, QImage::Format_Grayscale8), "jpeg", 50));
    // Every EXIF orientation, on a picture wider than high so that a wrong turn shows.
    for (int turn = 1; turn <= 7; ++turn)
        savePicture(QStringLiteral("turned%1.jpg").arg(turn),
                    encode(sample(QSize(20, 9), QImage::Format_RGB32), "jpeg", 80,
                           QImageIOHandler::Transformations(turn)));
    savePicture("still.gif", gif(9, 7, 1));
    savePicture("animated.gif", gif(6, 5, 2));
    // Other formats that the installed plugins decode whatever the name says.
    for (const char* format : {"tiff", "webp", "ico", "ppm", "pgm", "xpm", "xbm"})
        savePicture(
            QStringLiteral("other.%1").arg(QLatin1String(format)),
            encode(sample(size, format == QByteArray("xbm") ? QImage::Format_Mono : QImage::Format_RGB32),
                   format));

    // The header reader looks at the first 64 KiB only: a JPEG whose frame lies
    // just inside that, and one whose mark lies just outside the search.
    for (const qsizetype at : {qsizetype(65500), qsizetype(65523)}) {
        QByteArray far(at, '\0');
        far.append("\xff\xd8\xff\xc0\x00\x11\x08\x01\x00\x02\x00\x03", 12);
        far.append(QByteArray(64, '\x11'));
        save(QStringLiteral("header"), QStringLiteral("far%1.jpg").arg(at), far);
    }

    // Store scripts: random bytes of a few lengths, the same every build.
    QRandomGenerator random(20240101);
    for (int length : {8, 32, 128, 512, 2048}) {
        QByteArray bytes(length, '\0');
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        save(QStringLiteral("store"), QStringLiteral("random%1").arg(length), bytes);
    }
    return 0;
}
