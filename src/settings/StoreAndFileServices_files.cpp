// The file and path services.

#include "settings/StoreAndFileServices.h"

#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/Shell.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/MsgBox.h"

#include <QDir>
#include <QStandardPaths>

#include <cerrno>
#include <sys/stat.h>

using platform::resumeNext;

namespace {

const QChar Separator = QLatin1Char('/');

QString bareName(const QString& path)
{
    QString trimmed = path;
    while (trimmed.size() > 1 && trimmed.endsWith(Separator))
        trimmed.chop(1);
    return trimmed.mid(trimmed.lastIndexOf(Separator) + 1);
}

} // namespace

QString StoreAndFileServices::FILECHK(const QString& FILENAME)
{
    return FILENAME.isEmpty() ? QStringLiteral("Untitled") : FILENAME;
}

bool StoreAndFileServices::FILEEXISTS(const QString& PATHSTR)
{
    return platform::fileExists(PATHSTR);
}

bool StoreAndFileServices::FOLDEREXIST(const QString& PATHSTR)
{
    if (platform::folderExists(PATHSTR))
        return true;
    // One level only; mkdir(2) on the name's own bytes, so that any name works.
    if (::mkdir(platform::encodeFileName(PATHSTR).constData(), 0777) != 0) {
        const bool parentMissing = errno == ENOENT || errno == ENOTDIR;
        throw platform::Error(parentMissing ? platform::err::PathNotFound : platform::err::PathFileAccess);
    }
    return false;
}

QString StoreAndFileServices::FILENAMELENCHK(const QString& FILENAME)
{
    // A folder path closes with the separator. Windows spared names of up to three
    // characters for its drive forms ("C:"); here any other name gets one.
    if (FILENAME.isEmpty() || FILENAME.endsWith(Separator))
        return FILENAME;
    return FILENAME + Separator;
}

QString StoreAndFileServices::GETFOLDERPATH(const QString& FILEPATH)
{
    const qsizetype at = FILEPATH.lastIndexOf(Separator);
    return at <= 0 ? QString() : FILEPATH.left(at);
}

QString StoreAndFileServices::GETWINDOWSDIR()
{
    // The Windows system folder has no counterpart that a user keeps files in; the
    // home folder is where this desktop's user folders live.
    return QDir::homePath();
}

QString StoreAndFileServices::GETDESKTOPDIR()
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (!desktop.isEmpty() && platform::folderExists(desktop))
        return FILENAMELENCHK(desktop);
    return platform::App::Path();
}

QString StoreAndFileServices::FILESLOCATION()
{
    const QString fallback = FILENAMELENCHK(platform::App::Path());
    const QString stored =
        FILENAMELENCHK(REGSTRREAD(currentUserKey(), programKey() + QStringLiteral("\\frmPrefs\\Items"),
                                  QStringLiteral("Files Location"), fallback));
    if (platform::folderExists(stored))
        return stored;
    // The fallback is written under the shared key, which is not the key read above.
    const QString location = FILENAMELENCHK(platform::App::Path());
    REGSTRWRITE(currentUserKey(), companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items"),
                QStringLiteral("Files Location"), location);
    return location;
}

void StoreAndFileServices::FILEDELETE(const QString& CURRENTFILENAME)
{
    // The trash keeps the file recoverable; as with the Recycle Bin the user confirms
    // first. A file that isn't there or can't be moved is left without a word.
    struct stat st;
    if (CURRENTFILENAME.isEmpty() || ::lstat(platform::encodeFileName(CURRENTFILENAME).constData(), &st) != 0)
        return;
    const QString question =
        QStringLiteral("Are you sure you want to move '%1' to the Trash?").arg(bareName(CURRENTFILENAME));
    const auto answer = platform::MsgBox::ask(nullptr, QMessageBox::Question, QStringLiteral("Delete File"),
                                              question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    if (answer == QMessageBox::Yes)
        platform::Shell::moveToTrash(CURRENTFILENAME);
}

void StoreAndFileServices::FILEMOVE(const QString& FILELOCATION, const QString& FILEDESTINATION)
{
    platform::Shell::moveFile(FILELOCATION, FILEDESTINATION);
}

void StoreAndFileServices::FILERENAME(const QString& CURRENTFILENAME, const QString& NEWFILENAME)
{
    if (CURRENTFILENAME.isEmpty() || NEWFILENAME.isEmpty())
        return;
    // A bare new name stays in the file's folder.
    QString target = NEWFILENAME;
    if (!NEWFILENAME.contains(Separator)) {
        const qsizetype at = CURRENTFILENAME.lastIndexOf(Separator);
        if (at >= 0)
            target = CURRENTFILENAME.left(at + 1) + NEWFILENAME;
    }
    // A rename never moves the file into a folder of the new name.
    if (platform::folderExists(target))
        return;
    platform::Shell::moveFile(CURRENTFILENAME, target);
}

void StoreAndFileServices::FOLDERBROWSE(Form* CURRENTFORM, const QString& CURRENTFLDRLOCATION, Form* FORMNAME)
{
    resumeNext([&] { browseForm_ = CURRENTFORM; });
    resumeNext([&] { browseLocation_ = CURRENTFLDRLOCATION; });
    resumeNext([&] {
        if (FORMNAME)
            FORMNAME->Show(1, CURRENTFORM);
    });
}

void StoreAndFileServices::INTERNETACCESS(const QString& HWND, const QString& LINKTYPESTR,
                                          const QString& ADDRESS)
{
    // The window handle only gave the error boxes of Windows an owner.
    Q_UNUSED(HWND);
    if (ADDRESS.isEmpty())
        return;
    platform::Shell::openUrl(LINKTYPESTR + ADDRESS);
}
