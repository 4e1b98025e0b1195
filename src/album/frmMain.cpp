#include "album/frmMain.h"

#include "about/frmAbout.h"
#include "album/MainSettings.h"
#include "album/frmPopup.h"
#include "printing/frmPPrev.h"
#include "viewer/frmPPrevPhoto.h"

#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/Registry.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "resources/Icons.h"
#include "viewer/frmScreen.h"

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScopeGuard>

using platform::resumeNext;
using platform::twips;

frmMain::frmMain() : Form(QStringLiteral("frmMain"))
{
    setWindowTitle(platform::App::Title());
    Forms::setMainForm(this);
    IMGLST = resources::mainImages();
    createMenus();
    createBands();
    commands_ = platform::ToolbarCommands(TBARMAIN, {{"ADD", MNUEDITADD},
                                                     {"ADD ALL", MNUEDITADDALL},
                                                     {"REMOVE", MNUEDITREMOVE},
                                                     {"REMOVE ALL", MNUEDITREMOVEALL},
                                                     {"RUN", MNUFILERUN}});
    createPanes();
    connectEvents();
    createMenuTracking();
    // The design place of the window, with an inner area of 9675 by 6375 twips.
    using platform::Screen::pixelsX;
    using platform::Screen::pixelsY;
    move(pixelsX(915), pixelsY(945));
    resize(pixelsX(9675), pixelsY(6375) + menuBar()->sizeHint().height());
}

frmMain::~frmMain() = default;

// Each step stands by itself: a step that fails is skipped and the next one runs.
void frmMain::Form_Load()
{
    resumeNext([&] {
        MNUEDITADD->setText(QStringLiteral("&Add\tIns"));
        MNUEDITREMOVE->setText(QStringLiteral("&Remove\tCtrl+Del"));
        MNUFILEEXIT->setText(QStringLiteral("E&xit\tAlt+F4"));
    });
    resumeNext([&] { ICONMENUS(); });
    resumeNext([&] {
        platform::Screen::setMousePointer(11);
        setMousePointer(11);
    });
    resumeNext([&] {
        const uint64_t failuresBefore = platform::Registry::instance().failedReads();
        const QString folder = clsLibrary::instance().FILENAMELENCHK(album::FilesLocation.read());
        keepStoredFolder = platform::Registry::instance().failedReads() != failuresBefore;
        const auto settled = qScopeGuard([this] { keepStoredFolder = false; });
        FTVBROWSE->setSelectedfolder(folder);
    });
    // A change of folder above has set the pattern and listed the folder with it
    // already; setting it again would list a big folder a second time.
    if (FLBFOUND.Pattern() != picturePattern())
        resumeNext([&] { FLBFOUND.setPattern(picturePattern()); });
    loadAlbum();
    resumeNext([&] { clsLibrary::instance().FORMLOAD(platform::App::Title(), this, true); });
    resumeNext([&] { twips(PICBAR2).setLeft(platform::toFloat(album::SplitterLeft.read())); });
    resumeNext([&] { twips(PICBAR1).setTop(platform::toFloat(album::SplitterTop.read())); });
    PICBAR1MOVE();
    PICBAR2MOVE();
    resumeNext([&] {
        const bool shown = platform::toBool(album::ToolbarShown.read());
        MNUVIEWSTANDARDBAR->setChecked(shown);
        PICMAIN->setVisible(shown);
    });
    resumeNext([&] {
        const bool shown = platform::toBool(album::StatusBarShown.read());
        SBMAIN->setVisible(shown);
        MNUVIEWSTATUSBAR->setChecked(shown);
    });
    commands_.setEnabled(QStringLiteral("REMOVE ALL"), false);
    commands_.setEnabled(QStringLiteral("REMOVE"), false);
    commands_.setEnabled(QStringLiteral("ADD"), false);
    commands_.setEnabled(QStringLiteral("ADD ALL"), false);
    setMousePointer(0);
    platform::Screen::setMousePointer(0);
}

// Nothing of the album is written here: it is all in the store already.
void frmMain::Form_Unload()
{
    resumeNext([&] { clsLibrary::instance().FORMSAVE(platform::App::Title(), this, true); });
    resumeNext([&] { album::SplitterLeft.write(platform::floatText(twips(PICBAR2).Left())); });
    resumeNext([&] { album::SplitterTop.write(platform::floatText(twips(PICBAR1).Top())); });
    Forms::unload<frmPPrevPhoto>();
    Forms::unload<frmPPrev>();
    Forms::unload<frmAbout>();
    Forms::unload<frmPopup>();
    Forms::unload<frmScreen>();
    QCoreApplication::quit();
}

void frmMain::SETTITLE(const QString& FileName)
{
    const QString title = platform::App::Title();
    LBLDESC->setText(FileName.isEmpty() ? title + QStringLiteral(" - (Untitled)")
                                        : title + QStringLiteral(" - (") + FileName + QStringLiteral(")"));
    // The heading sizes itself to its text.
    LBLDESC->adjustSize();
}
