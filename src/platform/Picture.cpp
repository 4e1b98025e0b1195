#include "platform/Picture.h"

#include "platform/Error.h"
#include "platform/FileNames.h"

#include <QFile>
#include <QImageReader>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// Opens the file's own bytes, so that a name that isn't UTF-8 opens too. The open
// doesn't wait for a writer (a named pipe would block a plain read-only open),
// and anything but a regular file is turned away before a byte is read.
int openRegularFile(const QString& path)
{
    const int fd = ::open(encodeFileName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        throw Error(errno == ENOENT || errno == ENOTDIR ? err::FileNotFound : err::InvalidPicture);
    struct stat st;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        throw Error(err::InvalidPicture);
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

} // namespace

QImage LoadPicture(const QString& path)
{
    const int fd = openRegularFile(path);
    QFile file;
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        throw Error(err::InvalidPicture);
    }
    // The format comes from the content, never from the name: a picture under
    // another format's extension loads all the same.
    QImageReader reader(&file);
    reader.setAllocationLimit(PictureAllocationLimitMiB);
    reader.setAutoTransform(true);
    QImage image;
    if (!reader.read(&image))
        throw Error(err::InvalidPicture);
    return image;
}

} // namespace platform
