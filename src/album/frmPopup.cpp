#include "album/frmPopup.h"

#include "album/frmMain.h"
#include "library/clsLibrary.h"
#include "picinfo/frmProps.h"
#include "platform/core/Error.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Menus.h"
#include "presentation/ICOMNU.h"
#include "presentation/StatusDescriptions.h"
#include "viewer/frmPPrevPhoto.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

frmPopup::frmPopup() : Form(QStringLiteral("frmPopup"))
{
    setDescribesOwnMenus(true);
    createMenus();
    ICOMNU = new zuv::ICOMNU(this);
    // The popup menus describe their items in the main window's status bar.
    zuv::describeMenus(ICOMNU, this, &Forms::mainForm, QStringLiteral("album"));
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
    using platform::addNamedItem;
    using platform::addNamedMenu;
    MNUFOUNDTOP = addNamedMenu(menuBar(), QStringLiteral("&Found Files Popup"), "MNUFOUNDTOP");
    MNUFOUNDPREVIEW = addNamedItem(MNUFOUNDTOP, QStringLiteral("Pre&view..."), "MNUFOUNDPREVIEW");
    MNUFOUNDTOP->addSeparator()->setObjectName(QStringLiteral("MNUFOUNDSEP1"));
    MNUFOUNDADD = addNamedItem(MNUFOUNDTOP, QStringLiteral("&Add"), "MNUFOUNDADD");
    MNUFOUNDADDALL = addNamedItem(MNUFOUNDTOP, QStringLiteral("A&dd All"), "MNUFOUNDADDALL");
    MNUFOUNDTOP->addSeparator()->setObjectName(QStringLiteral("MNUFOUNDsep2"));
    MNUFOUNDPROPS = addNamedItem(MNUFOUNDTOP, QStringLiteral("&Properties..."), "MNUFOUNDPROPS");

    MNUSELECTEDTOP = addNamedMenu(menuBar(), QStringLiteral("&Selected Files Popup"), "MNUSELECTEDTOP");
    MNUSELECTEDPREVIEW = addNamedItem(MNUSELECTEDTOP, QStringLiteral("Pre&view..."), "MNUSELECTEDPREVIEW");
    MNUSELECTEDTOP->addSeparator()->setObjectName(QStringLiteral("MNUSELECTEDSEP1"));
    MNUSELECTEDCLEAR = addNamedItem(MNUSELECTEDTOP, QStringLiteral("&Remove"), "MNUSELECTEDCLEAR");
    MNUSELECTEDCLEARALL = addNamedItem(MNUSELECTEDTOP, QStringLiteral("Re&move All"), "MNUSELECTEDCLEARALL");
    MNUSELECTEDTOP->addSeparator()->setObjectName(QStringLiteral("MNUSELECTEDSEP2"));
    MNUSELECTEDPROPS = addNamedItem(MNUSELECTEDTOP, QStringLiteral("&Properties..."), "MNUSELECTEDPROPS");

    connect(MNUFOUNDPREVIEW, &QAction::triggered, this, platform::guarded(this, &frmPopup::PREVIEWFOUND));
    connect(MNUFOUNDADD, &QAction::triggered, this, platform::guarded([] { Forms::get<frmMain>().ADD(); }));
    connect(MNUFOUNDADDALL, &QAction::triggered, this,
            platform::guarded([] { Forms::get<frmMain>().ADDALL(); }));
    connect(MNUFOUNDPROPS, &QAction::triggered, this,
            platform::guarded(this, &frmPopup::MNUFOUNDPROPS_Click));
    connect(MNUSELECTEDPREVIEW, &QAction::triggered, this,
            platform::guarded(this, &frmPopup::PREVIEWSELECTED));
    connect(MNUSELECTEDCLEAR, &QAction::triggered, this, platform::guarded([] {
                frmMain& main = Forms::get<frmMain>();
                main.CLEAR();
                main.SELECTCHK();
            }));
    connect(MNUSELECTEDCLEARALL, &QAction::triggered, this,
            platform::guarded([] { Forms::get<frmMain>().CLEARALL(); }));
    connect(MNUSELECTEDPROPS, &QAction::triggered, this,
            platform::guarded(this, &frmPopup::MNUSELECTEDPROPS_Click));
}

// A list without a current item has nothing to preview or show.
void frmPopup::PREVIEWFOUND()
{
    if (const std::optional<QString> path = Forms::get<frmMain>().currentFoundPath())
        preview(*path);
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
    if (const std::optional<QString> path = Forms::get<frmMain>().currentFoundPath())
        showProperties(*path);
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
