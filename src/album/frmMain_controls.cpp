// Building the main window: menus, the bands stacked from the top, the panes and
// the wiring of the controls' events to the form's handlers.
#include "album/frmMain.h"

#include "album/frmPopup.h"

#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/widgets/ControlEvents.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/Fonts.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Menus.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/TXTSEP.h"
#include "presentation/VBAR.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMenuBar>

namespace {

using platform::twips;

// A sunken panel behind a pane.
QWidget* makePanel(QWidget* parent)
{
    auto* panel = new QFrame(parent);
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setFrameShadow(QFrame::Sunken);
    return panel;
}

// A thin bar that follows the mouse, with its sizing pointer (7 north-south,
// 9 east-west).
QWidget* makeSplitter(QWidget* parent, int pointer)
{
    auto* bar = new QWidget(parent);
    platform::Screen::applyPointer(bar, pointer);
    return bar;
}

} // namespace

void frmMain::createMenus()
{
    using platform::addCheckItem;
    using platform::addNamedItem;
    using platform::addNamedMenu;
    MNUFILETOP = addNamedMenu(menuBar(), QStringLiteral("&File"), "MNUFILETOP");
    MNUFILERUN = addNamedItem(MNUFILETOP, QStringLiteral("&Run Viewer"), "MNUFILERUN");
    MNUFILERUN->setShortcut(QKeySequence(Qt::Key_F12));
    // Run is on only once the album holds a picture.
    MNUFILERUN->setEnabled(false);
    MNUFILETOP->addSeparator();
    MNUFILEEXIT = addNamedItem(MNUFILETOP, QStringLiteral("E&xit"), "MNUFILEEXIT");

    MNUEDITTOP = addNamedMenu(menuBar(), QStringLiteral("&Edit"), "MNUEDITTOP");
    MNUEDITADD = addNamedItem(MNUEDITTOP, QStringLiteral("&Add"), "MNUEDITADD");
    MNUEDITADDALL = addNamedItem(MNUEDITTOP, QStringLiteral("A&dd All"), "MNUEDITADDALL");
    MNUEDITTOP->addSeparator();
    MNUEDITREMOVE = addNamedItem(MNUEDITTOP, QStringLiteral("&Remove"), "MNUEDITREMOVE");
    MNUEDITREMOVEALL = addNamedItem(MNUEDITTOP, QStringLiteral("Re&move All"), "MNUEDITREMOVEALL");

    MNUVIEWTOP = addNamedMenu(menuBar(), QStringLiteral("&View"), "MNUVIEWTOP");
    MNUVIEWSTANDARDBAR =
        addCheckItem(MNUVIEWTOP, QStringLiteral("&Standard Toolbar"), "MNUVIEWSTANDARDBAR", true);
    MNUVIEWSTATUSBAR = addCheckItem(MNUVIEWTOP, QStringLiteral("S&tatus Bar"), "MNUVIEWSTATUSBAR", true);

    MNUHELPTOP = addNamedMenu(menuBar(), QStringLiteral("&Help"), "MNUHELPTOP");
    MNUHELPWEBSITE = addNamedItem(MNUHELPTOP, QStringLiteral("&ZUV Online"), "MNUHELPWEBSITE");
    MNUHELPTOP->addSeparator();
    MNUHELPABOUT = addNamedItem(MNUHELPTOP, QStringLiteral("&About"), "MNUHELPABOUT");
}

void frmMain::createBands()
{
    QWidget* client = clientArea();
    // The window's controls take its font; the menus keep the desktop's.
    client->setFont(platform::designFont(QStringLiteral("Tahoma"), 8.25));
    PICMAIN = new QWidget(client);
    twips(PICMAIN).setHeight(465);
    TBARMAIN = new platform::Toolbar(&IMGLST, PICMAIN);
    TBARMAIN->addButton(QStringLiteral("ADD"), QStringLiteral("&Add"), QStringLiteral("Add [Ins]"),
                        QStringLiteral("ADD"));
    TBARMAIN->addButton(QStringLiteral("ADD ALL"), QStringLiteral("A&dd All"), QStringLiteral("Add All"),
                        QStringLiteral("ADD ALL"));
    TBARMAIN->addSeparator();
    TBARMAIN->addButton(QStringLiteral("REMOVE"), QStringLiteral("&Remove"),
                        QStringLiteral("Remove [Ctrl+Del]"), QStringLiteral("REMOVE"));
    TBARMAIN->addButton(QStringLiteral("REMOVE ALL"), QStringLiteral("Re&move All"),
                        QStringLiteral("Remove All"), QStringLiteral("REMOVE ALL"));
    TBARMAIN->addSeparator();
    TBARMAIN
        ->addButton(QStringLiteral("RUN"), QStringLiteral("&Run Viewer"), QStringLiteral("Run Viewer [F12]"),
                    QStringLiteral("RUN"))
        ->setEnabled(false);
    twips(TBARMAIN).Move(0, 45, 2400, 330);
    // Two rules wider than any screen frame the toolbar, so they never need sizing.
    TXTSEP1 = new zuv::TXTSEP(QString(), PICMAIN);
    twips(TXTSEP1).Move(-495, -105, 245745, 225);
    TXTSEP2 = new zuv::TXTSEP(QString(), PICMAIN);
    twips(TXTSEP2).Move(-240, 285, 245745, 225);
    TBARMAIN->raise();

    PICHEADER = new QWidget(client);
    twips(PICHEADER).setHeight(465);
    PICHEADER->setAutoFillBackground(true);
    PICHEADER->setBackgroundRole(QPalette::Dark);
    LBLDESC = new QLabel(platform::App::Title(), PICHEADER);
    LBLDESC->setTextFormat(Qt::PlainText);
    LBLDESC->setForegroundRole(QPalette::Light);
    LBLDESC->setFont(platform::designFont(QStringLiteral("Tahoma"), 11.25));
    twips(LBLDESC).setLeft(120);
    twips(LBLDESC).setTop(90);
    LBLDESC->adjustSize();

    PICBOX = new QWidget(client);

    // Panel 1 takes the room the two counts leave.
    SBMAIN = new platform::StatusBar({2000, 2000}, client);
    twips(SBMAIN).setHeight(300);
}

void frmMain::createPanes()
{
    // The panels behind the panes come first, so that they stay below.
    PICTREE = makePanel(PICBOX);
    PICFND = makePanel(PICBOX);
    PICSELCT = makePanel(PICBOX);
    VBAR1 = new zuv::VBAR(QStringLiteral(" Folders"), PICBOX);
    VBAR2 = new zuv::VBAR(QStringLiteral(" Pictures Found"), PICBOX);
    VBAR3 = new zuv::VBAR(QStringLiteral(" Pictures Selected"), PICBOX);
    FTVBROWSE = new platform::FolderTree(PICBOX);
    LVWFOUND = new platform::ListView(QStringLiteral("Images Found"), PICBOX);
    LVWFOUND->setSmallIcons(&IMGLST);
    LSTSELECTED = new platform::ListView(QStringLiteral("Images Selected"), PICBOX);
    LSTSELECTED->setSmallIcons(&IMGLST);
    LSTSELECTED->setSelectionMode(QAbstractItemView::SingleSelection);
    PICBAR2 = makeSplitter(PICBOX, 9);
    PICBAR1 = makeSplitter(PICBOX, 7);

    // The design geometry; the layout replaces most of it at once.
    twips(PICTREE).Move(0, 60, 3330, 4725);
    twips(VBAR1).Move(15, 75, 3300, 270);
    twips(FTVBROWSE).Move(15, 345, 3225, 4350);
    twips(PICBAR2).Move(3330, 0, 50, 4755);
    twips(PICFND).Move(3405, 60, 3615, 1755);
    twips(VBAR2).Move(3420, 75, 3300, 270);
    twips(LVWFOUND).Move(3435, 345, 3450, 1350);
    twips(PICBAR1).Move(3465, 2295, 4845, 50);
    twips(PICSELCT).Move(3525, 2505, 3330, 1290);
    twips(VBAR3).Move(3555, 2535, 3255, 270);
    twips(LSTSELECTED).Move(3690, 2805, 3000, 840);

    setTabOrder(FTVBROWSE, LVWFOUND);
    setTabOrder(LVWFOUND, LSTSELECTED);
}

void frmMain::connectEvents()
{
    connect(MNUEDITADD, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUEDITADD_Click));
    connect(MNUEDITADDALL, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUEDITADDALL_Click));
    connect(MNUEDITREMOVE, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUEDITREMOVE_Click));
    connect(MNUEDITREMOVEALL, &QAction::triggered, this,
            platform::guarded(this, &frmMain::MNUEDITREMOVEALL_Click));
    connect(MNUFILERUN, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUFILERUN_Click));
    connect(MNUFILEEXIT, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUFILEEXIT_Click));
    connect(MNUVIEWSTANDARDBAR, &QAction::triggered, this,
            platform::guarded(this, &frmMain::MNUVIEWSTANDARDBAR_Click));
    connect(MNUVIEWSTATUSBAR, &QAction::triggered, this,
            platform::guarded(this, &frmMain::MNUVIEWSTATUSBAR_Click));
    connect(MNUHELPWEBSITE, &QAction::triggered, this,
            platform::guarded(this, &frmMain::MNUHELPWEBSITE_Click));
    connect(MNUHELPABOUT, &QAction::triggered, this, platform::guarded(this, &frmMain::MNUHELPABOUT_Click));
    connect(TBARMAIN, &platform::Toolbar::ButtonClick, this,
            platform::guarded(this, &frmMain::TBARMAIN_ButtonClick));
    connect(FTVBROWSE, &platform::FolderTree::folderChanged, this,
            platform::guarded(this, &frmMain::FTVBROWSE_FolderChanged));

    PICMAIN->installEventFilter(this);
    SBMAIN->installEventFilter(this);

    // The picture boxes take the focus when they are clicked, as the lists and
    // the tree do, so that a click beside the lists takes their commands away.
    // The toolbar's band takes it only beside the toolbar: a click on a button
    // leaves the focus where it was.
    for (QWidget* box : {PICBAR1, PICBAR2, PICBOX, PICFND, PICHEADER, PICSELCT, PICTREE})
        box->setFocusPolicy(Qt::ClickFocus);

    // The add and remove keys work wherever the focus rests but in an empty list.
    for (QWidget* control : {static_cast<QWidget*>(FTVBROWSE), PICBAR1, PICBAR2, PICBOX, PICFND, PICHEADER,
                             PICMAIN, PICSELCT, PICTREE}) {
        auto* events = new platform::ControlEvents(control);
        connect(events, &platform::ControlEvents::KeyUp, this, platform::guarded(this, &frmMain::KEYCHECK));
    }
    auto* bar1 = new platform::ControlEvents(PICBAR1);
    connect(bar1, &platform::ControlEvents::MouseMove, this,
            platform::guarded(this, &frmMain::PICBAR1_MouseMove));
    connect(bar1, &platform::ControlEvents::MouseUp, this, platform::guarded(this, &frmMain::PICBAR1MOVE));
    auto* bar2 = new platform::ControlEvents(PICBAR2);
    connect(bar2, &platform::ControlEvents::MouseMove, this,
            platform::guarded(this, &frmMain::PICBAR2_MouseMove));
    connect(bar2, &platform::ControlEvents::MouseUp, this, platform::guarded(this, &frmMain::PICBAR2MOVE));

    auto* found = new platform::ControlEvents(LVWFOUND);
    connect(found, &platform::ControlEvents::GotFocus, this, platform::guarded(this, &frmMain::FOUNDLSTCHK));
    connect(found, &platform::ControlEvents::LostFocus, this,
            platform::guarded(this, &frmMain::LVWFOUND_LostFocus));
    connect(found, &platform::ControlEvents::KeyUp, this, platform::guarded(this, &frmMain::LVWFOUND_KeyUp));
    connect(found, &platform::ControlEvents::MouseUp, this,
            platform::guarded(this, &frmMain::LVWFOUND_MouseUp));

    connect(found, &platform::ControlEvents::KeyDown, this,
            platform::guarded(this, &frmMain::LVWFOUND_KeyDown));
    connect(found, &platform::ControlEvents::DblClick, this, platform::guarded([this] {
                if (LVWFOUND->ListItems().Count() != 0)
                    Forms::get<frmPopup>().PREVIEWFOUND();
            }));

    auto* selected = new platform::ControlEvents(LSTSELECTED);
    connect(selected, &platform::ControlEvents::GotFocus, this, platform::guarded(this, &frmMain::SELECTCHK));
    connect(selected, &platform::ControlEvents::LostFocus, this,
            platform::guarded(this, &frmMain::LSTSELECTED_LostFocus));
    connect(selected, &platform::ControlEvents::KeyUp, this,
            platform::guarded(this, &frmMain::LSTSELECTED_KeyUp));
    connect(selected, &platform::ControlEvents::MouseUp, this,
            platform::guarded(this, &frmMain::LSTSELECTED_MouseUp));
    connect(selected, &platform::ControlEvents::KeyDown, this,
            platform::guarded(this, &frmMain::LSTSELECTED_KeyDown));
    connect(selected, &platform::ControlEvents::DblClick, this, platform::guarded([this] {
                if (LSTSELECTED->ListItems().Count() != 0)
                    Forms::get<frmPopup>().PREVIEWSELECTED();
            }));
}
