#include "album/frmPopup.h"

#include "album/frmMain.h"
#include "picinfo/frmProps.h"
#include "platform/core/Error.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "presentation/ICOMNU.h"
#include "settings/clsLibrary.h"
#include "viewer/frmPPrevPhoto.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

frmPopup::frmPopup() : Form(QStringLiteral("frmPopup"))
{
    createMenus();
    ICOMNU = new zuv::ICOMNU(this);
    // The popup menus describe their items in the main window's status bar.
    const auto describe = [this](int32_t number, int32_t, bool separator) {
        clsLibrary::instance().STATUSTEXTDESC(this, Forms::mainForm(), number, separator,
                                              QStringLiteral("album"));
    };
    const auto clear = [this] { clsLibrary::instance().STATUSTEXTDESC(this, Forms::mainForm(), 0, false); };
    connect(ICOMNU, &zuv::ICOMNU::ItemReport, this, describe);
    connect(ICOMNU, &zuv::ICOMNU::ItemReportPlain, this, describe);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetB, this, clear);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetC, this, clear);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetD, this, clear);
}

void frmPopup::Form_Load()
{
    ICONMENUSPOPUP();
}

// The menus take their images from the main window's image list; Preview, the
// action of a double click and of Enter, is each menu's default item.
void frmPopup::ICONMENUSPOPUP()
{
    clsLibrary& lib = clsLibrary::instance();
    frmMain& main = Forms::get<frmMain>();
    ICOMNU->Attach(this);
    ICOMNU->setImageList([&main](int32_t index) { return main.IMGLST.image(index + 1); });
    for (const auto& [item, image] : {std::pair{"MNUSELECTEDCLEAR", "REMOVE"},
                                      {"MNUSELECTEDCLEARALL", "REMOVE ALL"},
                                      {"MNUSELECTEDPREVIEW", "PREVIEW"},
                                      {"MNUFOUNDADD", "ADD"},
                                      {"MNUFOUNDADDALL", "ADD ALL"},
                                      {"MNUFOUNDPREVIEW", "PREVIEW"}})
        lib.ICOMNUSETUP(this, &main, QString::fromLatin1(item), QString::fromLatin1(image));
    platform::resumeNext([&] { ICOMNU->setItemDefault(QStringLiteral("MNUFOUNDPREVIEW"), true); });
    platform::resumeNext([&] { ICOMNU->setItemDefault(QStringLiteral("MNUSELECTEDPREVIEW"), true); });
}

void frmPopup::createMenus()
{
    MNUFOUNDTOP = menuBar()->addMenu(QStringLiteral("&Found Files Popup"));
    MNUFOUNDPREVIEW = MNUFOUNDTOP->addAction(QStringLiteral("Pre&view..."));
    MNUFOUNDTOP->addSeparator()->setObjectName(QStringLiteral("MNUFOUNDSEP1"));
    MNUFOUNDADD = MNUFOUNDTOP->addAction(QStringLiteral("&Add"));
    MNUFOUNDADDALL = MNUFOUNDTOP->addAction(QStringLiteral("A&dd All"));
    MNUFOUNDTOP->addSeparator()->setObjectName(QStringLiteral("MNUFOUNDsep2"));
    MNUFOUNDPROPS = MNUFOUNDTOP->addAction(QStringLiteral("&Properties..."));

    MNUSELECTEDTOP = menuBar()->addMenu(QStringLiteral("&Selected Files Popup"));
    MNUSELECTEDPREVIEW = MNUSELECTEDTOP->addAction(QStringLiteral("Pre&view..."));
    MNUSELECTEDTOP->addSeparator()->setObjectName(QStringLiteral("MNUSELECTEDSEP1"));
    MNUSELECTEDCLEAR = MNUSELECTEDTOP->addAction(QStringLiteral("&Remove"));
    MNUSELECTEDCLEARALL = MNUSELECTEDTOP->addAction(QStringLiteral("Re&move All"));
    MNUSELECTEDTOP->addSeparator()->setObjectName(QStringLiteral("MNUSELECTEDSEP2"));
    MNUSELECTEDPROPS = MNUSELECTEDTOP->addAction(QStringLiteral("&Properties..."));

    // The icon menu names the items by their controls' names.
    MNUFOUNDTOP->setObjectName(QStringLiteral("MNUFOUNDTOP"));
    MNUSELECTEDTOP->setObjectName(QStringLiteral("MNUSELECTEDTOP"));
    for (auto [action, name] : {std::pair{MNUFOUNDPREVIEW, "MNUFOUNDPREVIEW"},
                                {MNUFOUNDADD, "MNUFOUNDADD"},
                                {MNUFOUNDADDALL, "MNUFOUNDADDALL"},
                                {MNUFOUNDPROPS, "MNUFOUNDPROPS"},
                                {MNUSELECTEDPREVIEW, "MNUSELECTEDPREVIEW"},
                                {MNUSELECTEDCLEAR, "MNUSELECTEDCLEAR"},
                                {MNUSELECTEDCLEARALL, "MNUSELECTEDCLEARALL"},
                                {MNUSELECTEDPROPS, "MNUSELECTEDPROPS"}})
        action->setObjectName(QString::fromLatin1(name));

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
