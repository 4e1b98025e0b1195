#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>
#include <sys/types.h>

namespace platform {

// Loads the picture behind a path in text form (see FileNames.h), upright as its
// EXIF orientation says, so that its size is the size a person sees. Only regular
// files are read; the decoder may allocate at most PictureAllocationLimitMiB.
// Throws Error: FileNotFound when nothing is there, InvalidPicture for anything
// that can't be decoded (a folder, a pipe, no read permission, empty, corrupt or
// too big a file). A file cut short inside its picture data gives what is there.
QImage LoadPicture(const QString& path);

constexpr int PictureAllocationLimitMiB = 256;

// Which file a path leads to and when it last changed: enough to tell that a
// picture decoded earlier still shows what the file holds.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    qint64 modifiedNs = 0;
    qint64 changedNs = 0;

    bool operator==(const FileStamp&) const = default;
};

// The stamp of the file behind a path (links followed), or none when it can't be
// looked at.
std::optional<FileStamp> fileStampOf(const QString& path);

// Part of a picture as LoadPicture would give it: the pixels of `part`, a
// rectangle in the coordinates of the upright picture of natural size `size`.
struct PicturePart {
    QImage image;
    QRect part;
    QSize size;
    FileStamp stamp; // of the file that was read
};

// Loads a picture as LoadPicture does and keeps only the part of it that `keep`
// picks from the natural size; `keep` must be callable on any thread. It fails
// exactly when LoadPicture fails, and the pixels kept are the very pixels that
// LoadPicture gives at the same places. A JPEG is decoded only around the part
// kept, though its file is read to the end, so that damage anywhere in it is still
// found (see JpegRegion.h); other formats are decoded whole and then cut.
PicturePart LoadPicturePart(const QString& path, const std::function<QRect(QSize)>& keep);

} // namespace platform
