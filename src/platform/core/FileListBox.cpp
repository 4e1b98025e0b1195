#include "platform/core/FileListBox.h"

#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/NameOrder.h"
#include "platform/core/NamePatterns.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace platform {

namespace {

constexpr size_t MaxNames = 32767;

QString withoutTrailingSeparator(const QString& path)
{
    QString result = path;
    while (result.size() > 1 && result.endsWith(QLatin1Char('/')))
        result.chop(1);
    return result;
}

bool isRegularFile(DIR* dir, const dirent* entry)
{
    if (entry->d_type == DT_REG)
        return true;
    if (entry->d_type != DT_UNKNOWN && entry->d_type != DT_LNK)
        return false;
    struct stat st;
    return fstatat(dirfd(dir), entry->d_name, &st, 0) == 0 && S_ISREG(st.st_mode);
}

// The bytes of the names a listing keeps, one after another and each ended by a
// NUL: thousands of names cost two growing buffers, not an allocation each.
class RawNames {
public:
    void add(const char* name)
    {
        starts_.push_back(bytes_.size());
        bytes_.append(name, std::strlen(name) + 1);
    }
    size_t size() const { return starts_.size(); }
    const char* at(size_t i) const { return bytes_.data() + starts_[i]; }

private:
    std::string bytes_;
    std::vector<size_t> starts_;
};

// The names in the order a file manager lists them, at most MaxNames of them.
QStringList sortedNames(const RawNames& raw)
{
    std::vector<QString> names;
    names.reserve(raw.size());
    std::vector<const char*> bytes;
    bytes.reserve(raw.size());
    for (size_t i = 0; i < raw.size(); ++i) {
        bytes.push_back(raw.at(i));
        names.push_back(decodeFileName(bytes.back()));
    }
    const std::vector<size_t> order = fileManagerOrder(names, bytes);
    QStringList sorted;
    const size_t kept = std::min(order.size(), MaxNames);
    sorted.reserve(qsizetype(kept));
    for (size_t i = 0; i < kept; ++i)
        sorted.append(std::move(names[order[i]]));
    return sorted;
}

// The sorted names of the regular, not hidden files of an open folder that match
// `pattern`.
QStringList listFolder(DIR* dir, const QString& pattern)
{
    const NamePatterns patterns(pattern);
    RawNames raw;
    while (const dirent* entry = readdir(dir)) {
        // A leading dot hides a file on this desktop; it also covers "." and "..".
        if (entry->d_name[0] == '.')
            continue;
        if (!patterns.matches(entry->d_name))
            continue;
        if (!isRegularFile(dir, entry))
            continue;
        raw.add(entry->d_name);
    }
    return sortedNames(raw);
}

} // namespace

FileListBox::FileListBox() = default;
FileListBox::~FileListBox() = default;

// Throws PathNotFound when the folder can't be opened.
FileListBox::Folder FileListBox::open(const QString& folder)
{
    Folder dir(opendir(encodeFileName(folder).constData()));
    if (!dir)
        throw Error(err::PathNotFound);
    return dir;
}

void FileListBox::read() const
{
    if (!unread_)
        return;
    names_ = listFolder(unread_.get(), pattern_);
    unread_.reset();
}

void FileListBox::setPath(const QString& path)
{
    const QString folder = withoutTrailingSeparator(path);
    unread_ = open(folder);
    path_ = folder;
    names_.clear();
}

void FileListBox::setPattern(const QString& pattern)
{
    if (!path_.isEmpty())
        unread_ = open(path_);
    pattern_ = pattern;
    names_.clear();
}

int16_t FileListBox::ListCount() const
{
    read();
    return static_cast<int16_t>(names_.size());
}

QString FileListBox::List(int i) const
{
    read();
    if (i < 0 || i >= names_.size())
        throw Error(err::SubscriptOutOfRange);
    return names_.at(i);
}

void FileListBox::Refresh()
{
    if (path_.isEmpty()) {
        names_.clear();
        return;
    }
    unread_ = open(path_);
    names_.clear();
}

} // namespace platform
