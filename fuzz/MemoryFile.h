#pragma once

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

// A regular file in memory that holds the fuzzer's bytes, reached by a path as
// the program reaches a picture: the code under test opens, stats and reads it
// exactly as it would a file in a folder, without a disk in the way.
class MemoryFile {
public:
    MemoryFile()
    {
        fd_ = memfd_create("fuzz-input", MFD_CLOEXEC);
        if (fd_ < 0) {
            std::perror("memfd_create");
            std::abort();
        }
        path_ = QStringLiteral("/proc/self/fd/%1").arg(fd_);
    }
    ~MemoryFile() { ::close(fd_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    // Replaces the content with these bytes.
    void fill(const uint8_t* data, size_t size)
    {
        if (::ftruncate(fd_, 0) != 0 || ::pwrite(fd_, data, size, 0) != ssize_t(size)) {
            std::perror("memory file");
            std::abort();
        }
    }

    const QString& path() const { return path_; }

private:
    int fd_ = -1;
    QString path_;
};

// The set-up of a target that reads files: an application object, so that Qt
// finds its image plugins, and the memory file that takes each input.
inline MemoryFile* startFileTarget(int* argc, char*** argv)
{
    new QCoreApplication(*argc, *argv);
    return new MemoryFile;
}

// Stops the run with a message when a property of the code under test fails.
#define FUZZ_CHECK(condition, ...)                                                                           \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "check failed: %s: ", #condition);                                          \
            std::fprintf(stderr, __VA_ARGS__);                                                               \
            std::fputc('\n', stderr);                                                                        \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)
