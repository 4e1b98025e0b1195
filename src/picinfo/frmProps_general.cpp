// The properties dialog's General tab: what the file system says of the file, found
// through the bytes of its name so that names that aren't UTF-8 work too.
#include "picinfo/frmProps.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "settings/StoreAndFileServices.h"

#include <QCheckBox>
#include <QDir>
#include <QFileIconProvider>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeDatabase>

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QChar Separator = QLatin1Char('/');

// As much of a file as the type recognition looks at.
constexpr qsizetype TypeSniffBytes = 16384;

// A directory's entry: its name as the directory spells it, and what stat says of
// what it names (links followed).
struct Entry {
    QString name;
    struct stat facts;
};

std::optional<Entry> statEntry(const QString& folder, const QString& name)
{
    Entry entry{name, {}};
    if (::stat(platform::encodeFileName(folder + name).constData(), &entry.facts) != 0)
        return std::nullopt;
    return entry;
}

// The entry of `folder` (which ends in the separator) that `name` means: the one
// spelt exactly so, else one spelt so regardless of case. Of several of those the
// first in the order of their bytes is taken, so that the answer doesn't depend on
// the order in which the directory lists them.
std::optional<Entry> findEntry(const QString& folder, const QString& name)
{
    if (name.isEmpty())
        return std::nullopt;
    if (std::optional<Entry> exact = statEntry(folder, name))
        return exact;
    DIR* dir = ::opendir(platform::encodeFileName(folder).constData());
    if (!dir)
        return std::nullopt;
    std::optional<QByteArray> best;
    while (const dirent* item = ::readdir(dir)) {
        const QByteArray bytes(item->d_name);
        if (platform::decodeFileName(bytes).compare(name, Qt::CaseInsensitive) == 0 &&
            (!best || bytes < *best))
            best = bytes;
    }
    ::closedir(dir);
    return best ? statEntry(folder, platform::decodeFileName(*best)) : std::nullopt;
}

// A path made absolute against the working folder, with "." and ".." resolved by
// the text alone. The empty path stays empty.
QString absolutePath(const QString& path)
{
    if (path.isEmpty() || path.startsWith(Separator))
        return QDir::cleanPath(path);
    char* cwd = ::getcwd(nullptr, 0);
    if (!cwd)
        return QString();
    const QString base = platform::decodeFileName(QByteArray(cwd));
    std::free(cwd);
    return QDir::cleanPath(base + Separator + path);
}

// The start of a regular file, for telling its type by its content.
QByteArray headOf(const QString& path)
{
    QByteArray head(TypeSniffBytes, '\0');
    const int fd = ::open(platform::encodeFileName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return QByteArray();
    const ssize_t got = ::read(fd, head.data(), static_cast<size_t>(head.size()));
    ::close(fd);
    head.truncate(got < 0 ? 0 : got);
    return head;
}

QMimeType typeOf(const QString& path, const Entry& entry)
{
    const QMimeDatabase types;
    if (S_ISDIR(entry.facts.st_mode))
        return types.mimeTypeForName(QStringLiteral("inode/directory"));
    if (S_ISREG(entry.facts.st_mode))
        return types.mimeTypeForFileNameAndData(entry.name, headOf(path));
    return types.mimeTypeForFile(entry.name, QMimeDatabase::MatchExtension);
}

// The icon of the type from the desktop's icon theme, else the toolkit's own.
QIcon iconOf(const QMimeType& type, bool isFolder)
{
    QIcon icon = QIcon::fromTheme(type.iconName());
    if (icon.isNull())
        icon = QIcon::fromTheme(type.genericIconName());
    if (icon.isNull())
        icon = QFileIconProvider().icon(isFolder ? QAbstractFileIconProvider::Folder
                                                 : QAbstractFileIconProvider::File);
    return icon;
}

// Read-only: the user may not write it; hidden: a dot name. Linux keeps no archive
// bit, so that one stays clear.
uint32_t attributesOf(const QString& path, const Entry& entry)
{
    uint32_t attributes = 0;
    if (::access(platform::encodeFileName(path).constData(), W_OK) != 0)
        attributes |= frmProps::AttrReadOnly;
    if (entry.name.startsWith(QLatin1Char('.')))
        attributes |= frmProps::AttrHidden;
    if (S_ISDIR(entry.facts.st_mode))
        attributes |= frmProps::AttrDirectory;
    return attributes;
}

// The first letter of each word upper case, the others lower case.
QString properCase(const QString& text)
{
    QString result = text.toLower();
    bool wordStart = true;
    for (QChar& c : result) {
        if (wordStart)
            c = c.toUpper();
        wordStart = c.isSpace();
    }
    return result;
}

// The folder as the Location box shows it: without its final separator, except
// for the root. A folder that was never found has no text to cut and fails.
QString locationText(const QString& folder)
{
    if (folder.isEmpty())
        throw platform::Error(platform::err::InvalidCall);
    const QString location = folder.left(folder.size() - 1);
    return location.isEmpty() ? QString(Separator) : location;
}

} // namespace

bool frmProps::ATTRREADONLY() const
{
    return (FILEATTR & AttrReadOnly) != 0;
}

QString frmProps::TRIMNULL(const QString& TEXTSTR)
{
    const qsizetype nul = TEXTSTR.indexOf(QChar(u'\0'));
    return nul < 0 ? TEXTSTR.trimmed() : TEXTSTR.left(nul);
}

QString frmProps::PROPERCASEPATH(const QString& PATHIN)
{
    if (PATHIN == Separator)
        return PATHIN;
    QString path = PATHIN;
    if (path.endsWith(Separator))
        path.chop(1);
    // The part before the first separator is taken as it is: empty for an absolute
    // path, whose folders are then confirmed from the root down.
    const qsizetype slash = path.lastIndexOf(Separator);
    if (slash < 0)
        return path;
    const QString before = path.left(slash);
    QString parent;
    if (!before.isEmpty()) {
        parent = PROPERCASEPATH(before);
        if (parent.isEmpty())
            return QString();
    }
    parent += Separator;
    const std::optional<Entry> folder = findEntry(parent, path.mid(slash + 1));
    if (!folder || !S_ISDIR(folder->facts.st_mode))
        return QString();
    return parent + folder->name;
}

QString frmProps::FORMATSIZE(int64_t size)
{
    const QLocale locale = QLocale::system();
    const QString bytes = locale.toString(static_cast<qlonglong>(size));
    if (size < 1024)
        return bytes + QStringLiteral(" Bytes");

    // Three significant digits or so: the unit and the decimals by the whole number
    // of kilobytes.
    struct Step {
        int64_t kilobytesBelow;
        int divisions; // by 1024
        int decimals;
        const char* unit;
    };
    static constexpr Step Steps[] = {
        {10, 1, 2, "KB"},     {100, 1, 1, "KB"},     {1000, 1, 0, "KB"},      {10000, 2, 2, "MB"},
        {100000, 2, 1, "MB"}, {1000000, 2, 0, "MB"}, {INT64_MAX, 3, 2, "GB"},
    };
    const int64_t kilobytes = size / 1024;
    const Step* step = Steps;
    while (kilobytes >= step->kilobytesBelow)
        ++step;
    double value = static_cast<double>(size);
    for (int i = 0; i < step->divisions; ++i)
        value /= 1024;
    // The value in the user's decimal mark without grouping, rounded half up.
    QLocale fixed = locale;
    fixed.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return fixed.toString(value, 'f', step->decimals) + QLatin1String(step->unit) + QStringLiteral(" (") +
           bytes + QStringLiteral(" Bytes)");
}

void frmProps::UPDATEINFO(const QString& FNSTR)
{
    // The first statement that fails ends the routine and the boxes behind it keep
    // their text: a file that is gone has no folder, and stops at the Location box.
    try {
        const QString fullPath = absolutePath(FNSTR);
        if (!fullPath.isEmpty()) {
            FILEFULLPATH = fullPath;
            READFILEINFO();
        }
        TXTFILENAME->setText(FILEDISPNAME);
        TXTTYPE->setText(properCase(FILETYPENAME));
        TXTLOCATION->setText(locationText(FILEFOLDER));
        TXTSIZE->setText(FORMATSIZE(FILESIZE));
        const QLocale locale = QLocale::system();
        TXTMODIFIED->setText(locale.toString(FILEWRITETIME.date(), QLocale::LongFormat) + QLatin1Char(' ') +
                             platform::longTimeText(locale, FILEWRITETIME.time()));
        CHKATTR[0]->setChecked((FILEATTR & AttrReadOnly) != 0);
        CHKATTR[2]->setChecked((FILEATTR & AttrArchive) != 0);
        CHKATTR[1]->setChecked((FILEATTR & AttrHidden) != 0);
        PICICON->clear();
        if (!FILEICON.isNull())
            PICICON->setPixmap(FILEICON.pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
    } catch (const platform::Error&) {
    }
}

// The facts of the file at FILEFULLPATH. A file that isn't found leaves every field
// as it was. The folder is confirmed before the file is looked for: on a
// case-sensitive file system a folder spelt otherwise holds nothing.
void frmProps::READFILEINFO()
{
    const qsizetype slash = FILEFULLPATH.lastIndexOf(Separator);
    if (slash < 0)
        return;
    const QString folder = PROPERCASEPATH(FILEFULLPATH.left(slash + 1));
    if (folder.isEmpty())
        return;
    const QString folderPath = StoreAndFileServices::instance().FILENAMELENCHK(folder);
    const std::optional<Entry> found = findEntry(folderPath, FILEFULLPATH.mid(slash + 1));
    if (!found)
        return;

    // The whole size: a picture of 2 GB or more shows its true size.
    FILESIZE = found->facts.st_size;
    FILEATTR = attributesOf(folderPath + found->name, *found);
    FILEWRITETIME = QDateTime::fromSecsSinceEpoch(found->facts.st_mtim.tv_sec);
    FILEFOUNDNAME = found->name;
    FILEFOLDER = folderPath;
    FILEFULLPATH = FILEFOLDER + FILEFOUNDNAME;
    const qsizetype dot = FILEFOUNDNAME.lastIndexOf(QLatin1Char('.'));
    const QString extension = dot < 0 ? QString() : FILEFOUNDNAME.mid(dot + 1);

    // The desktop's notion of the file: the name it shows, the type's description
    // from the MIME database, and the type's icon. A type the database doesn't know
    // has no description and is named by its extension.
    const QMimeType type = typeOf(FILEFULLPATH, *found);
    FILEDISPNAME = FILEFOUNDNAME;
    FILETYPENAME = TRIMNULL(type.isDefault() ? QString() : type.comment());
    FILEICON = iconOf(type, S_ISDIR(found->facts.st_mode));
    if (FILETYPENAME.isEmpty())
        FILETYPENAME = (extension.toUpper() + QStringLiteral(" file")).trimmed();
}
