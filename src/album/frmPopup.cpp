#include "album/frmPopup.h"

#include "album/frmMain.h"
#include "platform/FolderTree.h"
#include "platform/ListView.h"
#include "settings/clsLibrary.h"
#include "viewer/frmPPrevPhoto.h"

frmPopup::frmPopup() : Form(QStringLiteral("frmPopup")) {}

// A list without a current item has nothing to preview.
void frmPopup::PREVIEWFOUND()
{
    frmMain& main = Forms::get<frmMain>();
    const platform::ListView::ListItem current = main.LVWFOUND->SelectedItem();
    if (current.isNull())
        return;
    preview(clsLibrary::instance().FILENAMELENCHK(main.FTVBROWSE->selectedfolder()) + current.Text());
}

void frmPopup::PREVIEWSELECTED()
{
    const platform::ListView::ListItem current = Forms::get<frmMain>().LSTSELECTED->SelectedItem();
    if (current.isNull())
        return;
    preview(current.Text());
}

// Loading the picture loads the preview first; the preview then shows modally
// over the main window and this returns once it is closed.
void frmPopup::preview(const QString& path)
{
    Forms::get<frmPPrevPhoto>().loadPicture(path);
    if (Forms::isLoaded<frmPPrevPhoto>())
        Forms::get<frmPPrevPhoto>().Show(1, &Forms::get<frmMain>());
}
