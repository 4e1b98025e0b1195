#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <dirent.h>
#include <memory>

namespace platform {

// The hidden file list: the names of the regular files of one folder that match a
// pattern, sorted by name. Never shown; the found list is filled from it.
//
// Setting the folder or the pattern opens the folder at once (and fails there as
// it always did) but reads it only when the list is first asked for, with the
// pattern in force then: a change of folder, which sets the folder and then the
// pattern, reads and sorts a big folder once instead of twice.
class FileListBox {
public:
    FileListBox();
    ~FileListBox();
    FileListBox(const FileListBox&) = delete;
    FileListBox& operator=(const FileListBox&) = delete;

    // The folder; always without a trailing separator, except for the root "/".
    // Setting a folder that can't be listed throws Error(PathNotFound) and keeps
    // the old folder and its list.
    QString Path() const { return path_; }
    void setPath(const QString& path);

    // Patterns separated by ';', such as "*.bmp;*.jpg;*.gif", matched against the
    // bare name without regard to case. Setting it lists the folder anew.
    QString Pattern() const { return pattern_; }
    void setPattern(const QString& pattern);

    // At most 32,767 names are kept, the count being 16-bit.
    int16_t ListCount() const;
    // The bare file name of entry i, from 0; out of range throws SubscriptOutOfRange.
    QString List(int i) const;

    // Lists the folder again; throws as setPath does.
    void Refresh();

private:
    struct DirCloser {
        void operator()(DIR* dir) const { closedir(dir); }
    };
    using Folder = std::unique_ptr<DIR, DirCloser>;

    static Folder open(const QString& folder);
    // Reads the folder opened last, if it hasn't been read yet.
    void read() const;

    QString path_;
    QString pattern_ = QStringLiteral("*.*");
    mutable QStringList names_;
    mutable Folder unread_; // opened, not read yet
};

} // namespace platform
