#include "album/frmPopup.h"

#include "album/frmMain.h"
#include "picinfo/frmProps.h"
#include "platform/FolderTree.h"
#include "platform/ListView.h"
#include "settings/clsLibrary.h"
#include "viewer/frmPPrevPhoto.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

frmPopup::frmPopup() : Form(QStringLiteral("frmPopup"))
{
    createMenus();
}

void frmPopup::createMenus()
{
    const platform::ImageList& images = Forms::get<frmMain>().IMGLST;
    MNUFOUNDTOP = menuBar()->addMenu(QStringLiteral("&Found Files Popup"));
    MNUFOUNDPREVIEW = MNUFOUNDTOP->addAction(images.image("PREVIEW"), QStringLiteral("Pre&view..."));
    MNUFOUNDTOP->addSeparator();
    MNUFOUNDADD = MNUFOUNDTOP->addAction(images.image("ADD"), QStringLiteral("&Add"));
    MNUFOUNDADDALL = MNUFOUNDTOP->addAction(images.image("ADD ALL"), QStringLiteral("A&dd All"));
    MNUFOUNDTOP->addSeparator();
    MNUFOUNDPROPS = MNUFOUNDTOP->addAction(QStringLiteral("&Properties..."));

    MNUSELECTEDTOP = menuBar()->addMenu(QStringLiteral("&Selected Files Popup"));
    MNUSELECTEDPREVIEW = MNUSELECTEDTOP->addAction(images.image("PREVIEW"), QStringLiteral("Pre&view..."));
    MNUSELECTEDTOP->addSeparator();
    MNUSELECTEDCLEAR = MNUSELECTEDTOP->addAction(images.image("REMOVE"), QStringLiteral("&Remove"));
    MNUSELECTEDCLEARALL =
        MNUSELECTEDTOP->addAction(images.image("REMOVE ALL"), QStringLiteral("Re&move All"));
    MNUSELECTEDTOP->addSeparator();
    MNUSELECTEDPROPS = MNUSELECTEDTOP->addAction(QStringLiteral("&Properties..."));

    // Preview is each menu's main item, the one a double click and Enter perform.
    for (auto [menu, main] :
         {std::pair{MNUFOUNDTOP, MNUFOUNDPREVIEW}, {MNUSELECTEDTOP, MNUSELECTEDPREVIEW}}) {
        menu->setDefaultAction(main);
        QFont bold = main->font();
        bold.setBold(true);
        main->setFont(bold);
    }

    connect(MNUFOUNDPREVIEW, &QAction::triggered, this, &frmPopup::PREVIEWFOUND);
    connect(MNUFOUNDADD, &QAction::triggered, this, [] { Forms::get<frmMain>().ADD(); });
    connect(MNUFOUNDADDALL, &QAction::triggered, this, [] { Forms::get<frmMain>().ADDALL(); });
    connect(MNUFOUNDPROPS, &QAction::triggered, this, &frmPopup::MNUFOUNDPROPS_Click);
    connect(MNUSELECTEDPREVIEW, &QAction::triggered, this, &frmPopup::PREVIEWSELECTED);
    connect(MNUSELECTEDCLEAR, &QAction::triggered, this, [] {
        frmMain& main = Forms::get<frmMain>();
        main.CLEAR();
        main.SELECTCHK();
    });
    connect(MNUSELECTEDCLEARALL, &QAction::triggered, this, [] { Forms::get<frmMain>().CLEARALL(); });
    connect(MNUSELECTEDPROPS, &QAction::triggered, this, &frmPopup::MNUSELECTEDPROPS_Click);
}

// A list without a current item has nothing to preview or show.
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

void frmPopup::MNUFOUNDPROPS_Click()
{
    frmMain& main = Forms::get<frmMain>();
    const platform::ListView::ListItem current = main.LVWFOUND->SelectedItem();
    if (current.isNull())
        return;
    showProperties(clsLibrary::instance().FILENAMELENCHK(main.FTVBROWSE->selectedfolder()) + current.Text());
}

void frmPopup::MNUSELECTEDPROPS_Click()
{
    const platform::ListView::ListItem current = Forms::get<frmMain>().LSTSELECTED->SelectedItem();
    if (!current.isNull())
        showProperties(current.Text());
}

void frmPopup::showProperties(const QString& path)
{
    clsLibrary::instance().GETPROPERTIES(frmProps::load, path, &Forms::get<frmMain>(),
                                         QStringLiteral("PICTURE"));
}
