// vistarro-info: what Vistarro's properties dialog reads from picture headers.
//
//   vistarro-info FILE...
//
// prints one tab-separated line per file: the path, the type ("GIF", "JPEG", "PNG",
// "BMP", or nothing for a file of unknown type), the width, the height, the depth in
// bits and the depth in words. A file that can't be read, or whose header holds a
// value too large for the reader, gives the path, "error" and the error's text.
// Exit status: 0 when every file was read, 1 otherwise, 2 for a usage error.

#include "platform/core/FileNames.h"
#include "platform/core/ImageHeader.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <cstring>

namespace {

void write(FILE* stream, const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
}

int usage(FILE* stream, int status)
{
    write(stream, "Usage: vistarro-info [--] FILE...\n"
                  "Prints the type, width, height and colour depth that each picture's header gives,\n"
                  "one tab-separated line per file.\n");
    return status;
}

// The line of one file. The path is printed as the bytes it was given, so a name that
// isn't valid UTF-8 comes out as it went in.
bool describe(const QByteArray& path)
{
    const platform::HeaderReading reading = platform::readImageFile(platform::decodeFileName(path));
    QStringList fields;
    if (reading.failure) {
        fields << QStringLiteral("error") << reading.failure->text;
    } else {
        const platform::ImageHeader& header = reading.header;
        fields << platform::imageTypeText(header.type) << QString::number(header.width)
               << QString::number(header.height) << QString::number(header.depth)
               << platform::colorDepthWords(QString::number(header.depth));
    }
    write(stdout, path + '\t' + fields.join(QLatin1Char('\t')).toUtf8() + '\n');
    return !reading.failure;
}

} // namespace

int main(int argc, char** argv)
{
    int first = 1;
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0))
        return usage(stdout, 0);
    if (argc > 1 && std::strcmp(argv[1], "--") == 0)
        ++first;
    if (first >= argc)
        return usage(stderr, 2);

    bool allRead = true;
    for (int i = first; i < argc; ++i)
        allRead = describe(QByteArray(argv[i])) && allRead;
    return allRead ? 0 : 1;
}
