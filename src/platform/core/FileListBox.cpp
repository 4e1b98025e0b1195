#include "platform/core/FileListBox.h"

#include "platform/core/Error.h"
#include "platform/core/FileNames.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <memory>
#include <numeric>
#include <sys/stat.h>
#include <vector>

namespace platform {

namespace {

constexpr qsizetype MaxNames = 32767;

QString withoutTrailingSeparator(const QString& path)
{
    QString result = path;
    while (result.size() > 1 && result.endsWith(QLatin1Char('/')))
        result.chop(1);
    return result;
}

// The patterns as bytes, so that they match the bytes of a name whatever its
// encoding. "*.*" keeps its meaning from Windows: every file, also one without a
// dot. No pattern at all lists every file too.
std::vector<QByteArray> splitPatterns(const QString& pattern)
{
    std::vector<QByteArray> patterns;
    for (const QString& part : pattern.split(QLatin1Char(';'))) {
        const QString trimmed = part.trimmed();
        if (trimmed.isEmpty())
            continue;
        patterns.push_back(trimmed == QLatin1String("*.*") ? QByteArray("*") : encodeFileName(trimmed));
    }
    if (patterns.empty())
        patterns.push_back(QByteArray("*"));
    return patterns;
}

bool matchesAny(const std::vector<QByteArray>& patterns, const char* name)
{
    return std::any_of(patterns.begin(), patterns.end(), [name](const QByteArray& pattern) {
        return fnmatch(pattern.constData(), name, FNM_CASEFOLD) == 0;
    });
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

// Sorts as a file manager does: case-insensitive, digits by their numeric value
// ("img2" before "img10"), in the user's language. Names that collate equal keep
// a fixed order by their bytes.
QStringList sortedNames(std::vector<QByteArray>& raw)
{
    // Qt's collator compares plain code points in the "C" locale, ignoring case and
    // numeric mode; the neutral order of English (the root order) keeps both.
    QLocale locale;
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);

    QStringList names;
    names.reserve(qsizetype(raw.size()));
    std::vector<QCollatorSortKey> keys;
    keys.reserve(raw.size());
    for (const QByteArray& bytes : raw) {
        names.append(decodeFileName(bytes));
        keys.push_back(collator.sortKey(names.back()));
    }

    std::vector<qsizetype> order(raw.size());
    std::iota(order.begin(), order.end(), qsizetype(0));
    std::sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        const int byKey = keys[size_t(a)].compare(keys[size_t(b)]);
        if (byKey != 0)
            return byKey < 0;
        return raw[size_t(a)] < raw[size_t(b)];
    });

    QStringList sorted;
    const qsizetype kept = std::min(qsizetype(order.size()), MaxNames);
    sorted.reserve(kept);
    for (qsizetype i = 0; i < kept; ++i)
        sorted.append(names.at(order[size_t(i)]));
    return sorted;
}

// The sorted names of the regular, not hidden files of an open folder that match
// `pattern`.
QStringList listFolder(DIR* dir, const QString& pattern)
{
    const std::vector<QByteArray> patterns = splitPatterns(pattern);
    std::vector<QByteArray> raw;
    while (const dirent* entry = readdir(dir)) {
        // A leading dot hides a file on this desktop; it also covers "." and "..".
        if (entry->d_name[0] == '.')
            continue;
        if (!matchesAny(patterns, entry->d_name))
            continue;
        if (!isRegularFile(dir, entry))
            continue;
        raw.emplace_back(entry->d_name);
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
