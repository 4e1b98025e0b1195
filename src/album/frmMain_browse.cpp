// Folder browsing: the folder picked in the tree fills the found list, names the
// heading and is remembered for the next start. Only names are read.
#include "album/frmMain.h"

#include "album/MainSettings.h"
#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"

#include <charconv>

using platform::resumeNext;

namespace {

// The key of the found list's row i: "M" and the number.
QString foundKey(int16_t i)
{
    char key[8] = {'M'};
    const char* end = std::to_chars(key + 1, key + sizeof key, i).ptr;
    return QString::fromLatin1(key, end - key);
}

} // namespace

void frmMain::FTVBROWSE_FolderChanged(const QString& path)
{
    // A folder that can't be listed leaves the list of the folder still held.
    resumeNext([&] { FLBFOUND.setPath(path); });
    resumeNext([&] { LVWFOUND->ListItems().Clear(); });
    resumeNext([&] { FLBFOUND.setPattern(picturePattern()); });
    // The rows go into the list in one insertion.
    resumeNext([&] {
        const int16_t count = FLBFOUND.ListCount();
        QList<platform::ListView::NewItem> found;
        found.reserve(count);
        const QString icon = QStringLiteral("FILE");
        for (int16_t i = 1; i <= count; ++i) {
            found.append({foundKey(i), FLBFOUND.List(i - 1), icon});
            if (i == MaxListItems)
                break;
        }
        LVWFOUND->ListItems().AddAll(found);
    });
    SETTITLE(path);
    COUNTSHOW();
    if (keepStoredFolder)
        return;
    resumeNext([&] { album::FilesLocation.write(clsLibrary::instance().FILENAMELENCHK(path)); });
}

std::optional<QString> frmMain::currentFoundPath() const
{
    const platform::ListView::ListItem current = LVWFOUND->SelectedItem();
    if (current.isNull())
        return std::nullopt;
    return clsLibrary::instance().FILENAMELENCHK(FTVBROWSE->selectedfolder()) + current.Text();
}
