// Folder browsing: the folder picked in the tree fills the found list, names the
// heading and is remembered for the next start. Only names are read.
#include "album/frmMain.h"

#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"

using platform::resumeNext;

void frmMain::FTVBROWSE_FolderChanged(const QString& path)
{
    // A folder that can't be listed leaves the list of the folder still held.
    resumeNext([&] { FLBFOUND.setPath(path); });
    resumeNext([&] { LVWFOUND->ListItems().Clear(); });
    resumeNext([&] { FLBFOUND.setPattern(picturePattern()); });
    // The rows go into the list in one insertion.
    resumeNext([&] {
        QList<platform::ListView::NewItem> found;
        found.reserve(FLBFOUND.ListCount());
        for (int16_t i = 1; i <= FLBFOUND.ListCount(); ++i) {
            found.append(
                {QStringLiteral("M") + QString::number(i), FLBFOUND.List(i - 1), QStringLiteral("FILE")});
            if (i == MaxListItems)
                break;
        }
        LVWFOUND->ListItems().AddAll(found);
    });
    SETTITLE(path);
    COUNTSHOW();
    if (keepStoredFolder)
        return;
    resumeNext([&] {
        writeSetting(preferencesKey(), QStringLiteral("Files Location"),
                     clsLibrary::instance().FILENAMELENCHK(path));
    });
}

std::optional<QString> frmMain::currentFoundPath() const
{
    const platform::ListView::ListItem current = LVWFOUND->SelectedItem();
    if (current.isNull())
        return std::nullopt;
    return clsLibrary::instance().FILENAMELENCHK(FTVBROWSE->selectedfolder()) + current.Text();
}
