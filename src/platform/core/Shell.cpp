#include "platform/core/Shell.h"

#include "platform/core/FileNames.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::Shell {

namespace {

std::function<bool(const QString&)>& testOpener()
{
    static std::function<bool(const QString&)> opener;
    return opener;
}

// The escapes of bytes that aren't valid UTF-8 (see FileNames.h).
bool hasEscapedBytes(const QString& path)
{
    return std::any_of(path.begin(), path.end(),
                       [](QChar c) { return c.unicode() >= 0xF780 && c.unicode() <= 0xF7FF; });
}

QByteArray withoutTrailingSeparators(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QByteArray baseName(const QByteArray& path)
{
    const QByteArray trimmed = withoutTrailingSeparators(path);
    return trimmed.mid(trimmed.lastIndexOf('/') + 1);
}

// rename(2) that fails with EEXIST instead of replacing an existing destination.
// Returns 0 or the error number.
int renameNoReplace(const QByteArray& from, const QByteArray& to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // A file system without the flag: check first, accepting the small race.
    struct stat st;
    if (lstat(to.constData(), &st) == 0)
        return EEXIST;
    return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

bool writeAll(int fd, const char* data, size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        size -= size_t(written);
    }
    return true;
}

bool copyContents(int in, int out)
{
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t got = ::read(in, buffer, sizeof buffer);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (got == 0)
            return true;
        if (!writeAll(out, buffer, size_t(got)))
            return false;
    }
}

// The move of a regular file to another file system: copy with its mode and times,
// flush the copy to disk, then remove the original. Any failure removes the copy.
bool copyThenRemove(const QByteArray& from, const QByteArray& to)
{
    const int in = ::open(from.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (in < 0)
        return false;
    struct stat st;
    if (fstat(in, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(in);
        return false;
    }
    const int out = ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, st.st_mode & 07777);
    if (out < 0) {
        ::close(in);
        return false;
    }
    const struct timespec times[2] = {st.st_atim, st.st_mtim};
    bool ok = copyContents(in, out);
    ok = ok && fchmod(out, st.st_mode & 07777) == 0;
    ok = ok && futimens(out, times) == 0;
    ok = ok && fsync(out) == 0;
    ok = ::close(out) == 0 && ok;
    ::close(in);
    if (ok && ::unlink(from.constData()) == 0)
        return true;
    ::unlink(to.constData());
    return false;
}

QByteArray absolutePath(const QByteArray& path)
{
    if (path.startsWith('/'))
        return path;
    char cwd[PATH_MAX];
    if (!getcwd(cwd, sizeof cwd))
        return QByteArray();
    return QByteArray(cwd) + '/' + path;
}

// Moves a file whose name isn't valid UTF-8 into the home trash, following the
// freedesktop trash layout directly: Qt's own trash would store a mangled name.
// The info file keeps the original bytes percent-encoded, so a file manager
// restores the exact name. A file on another file system than the home trash is
// left where it is (false): copying it away would not be what the user asked.
bool trashRawName(const QByteArray& path)
{
    const QByteArray source = withoutTrailingSeparators(absolutePath(path));
    struct stat st;
    if (source.isEmpty() || lstat(source.constData(), &st) != 0)
        return false;

    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir().mkpath(dataHome))
        return false;
    // The trash is private to its user.
    const QByteArray trash = encodeFileName(dataHome) + "/Trash";
    for (const QByteArray& folder : {trash, trash + "/files", trash + "/info"}) {
        if (::mkdir(folder.constData(), 0700) != 0 && errno != EEXIST)
            return false;
    }

    const QByteArray info = "[Trash Info]\nPath=" + source.toPercentEncoding("/") + "\nDeletionDate=" +
                            QDateTime::currentDateTime().toString(Qt::ISODate).left(19).toLatin1() + '\n';
    const QByteArray name = baseName(source);
    for (int attempt = 1; attempt < 10000; ++attempt) {
        const QByteArray entry = attempt == 1 ? name : name + '.' + QByteArray::number(attempt);
        const QByteArray infoPath = trash + "/info/" + entry + ".trashinfo";
        // Creating the info file exclusively reserves the name in the trash.
        const int fd = ::open(infoPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd < 0) {
            if (errno == EEXIST)
                continue;
            return false;
        }
        const bool written = writeAll(fd, info.constData(), size_t(info.size()));
        if (::close(fd) != 0 || !written) {
            ::unlink(infoPath.constData());
            return false;
        }
        const int result = renameNoReplace(source, trash + "/files/" + entry);
        if (result == 0)
            return true;
        ::unlink(infoPath.constData());
        if (result != EEXIST)
            return false;
    }
    return false;
}

} // namespace

bool openUrl(const QString& url)
{
    if (testOpener())
        return testOpener()(url);
    return QDesktopServices::openUrl(QUrl::fromUserInput(url));
}

void setUrlOpenerForTests(std::function<bool(const QString&)> opener)
{
    testOpener() = std::move(opener);
}

bool moveToTrash(const QString& path)
{
    if (path.isEmpty())
        return false;
    if (hasEscapedBytes(path))
        return trashRawName(encodeFileName(path));
    // Qt creates the trash folder but not a missing data home above it, which a
    // fresh account may lack.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    return QFile::moveToTrash(path);
}

bool moveFile(const QString& from, const QString& to)
{
    const QByteArray source = encodeFileName(from);
    QByteArray target = encodeFileName(to);
    struct stat st;
    if (source.isEmpty() || target.isEmpty() || lstat(source.constData(), &st) != 0)
        return false;
    struct stat destination;
    if (stat(target.constData(), &destination) == 0 && S_ISDIR(destination.st_mode)) {
        target = withoutTrailingSeparators(target);
        if (!target.endsWith('/'))
            target += '/';
        target += baseName(source);
    }
    const int result = renameNoReplace(source, target);
    if (result == 0)
        return true;
    if (result == EXDEV)
        return copyThenRemove(source, target);
    return false;
}

} // namespace platform::Shell
