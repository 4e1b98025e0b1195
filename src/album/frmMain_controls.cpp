// Building the main window: menus, the bands stacked from the top, the panes and
// the wiring of the controls' events to the form's handlers.
#include "album/frmMain.h"

#include "platform/App.h"
#include "platform/ControlEvents.h"
#include "platform/FolderTree.h"
#include "platform/ListView.h"
#include "platform/Screen.h"
#include "platform/StatusBar.h"
#include "platform/Toolbar.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

int pixelsHigh(float twips)
{
    return qRound(twips / platform::Screen::TwipsPerPixelY());
}

// A pane: a title strip above its control.
QWidget* makePane(QWidget* parent, QLabel*& title, const QString& caption, QWidget* control)
{
    auto* pane = new QWidget(parent);
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    title = new QLabel(caption, pane);
    title->setFixedHeight(pixelsHigh(270));
    title->setAutoFillBackground(true);
    title->setBackgroundRole(QPalette::Dark);
    title->setForegroundRole(QPalette::BrightText);
    layout->addWidget(title);
    control->setParent(pane);
    layout->addWidget(control, 1);
    return pane;
}

} // namespace

void frmMain::createMenus()
{
    MNUFILETOP = menuBar()->addMenu(QStringLiteral("&File"));
    MNUFILERUN = MNUFILETOP->addAction(QStringLiteral("&Run Viewer"));
    MNUFILERUN->setShortcut(QKeySequence(Qt::Key_F12));
    MNUFILERUN->setIcon(IMGLST.image(QStringLiteral("RUN")));
    // Run is on only once the album holds a picture.
    MNUFILERUN->setEnabled(false);
    MNUFILETOP->addSeparator();
    MNUFILEEXIT = MNUFILETOP->addAction(QStringLiteral("E&xit"));

    MNUEDITTOP = menuBar()->addMenu(QStringLiteral("&Edit"));
    MNUEDITADD = MNUEDITTOP->addAction(QStringLiteral("&Add"));
    MNUEDITADDALL = MNUEDITTOP->addAction(QStringLiteral("A&dd All"));
    MNUEDITTOP->addSeparator();
    MNUEDITREMOVE = MNUEDITTOP->addAction(QStringLiteral("&Remove"));
    MNUEDITREMOVEALL = MNUEDITTOP->addAction(QStringLiteral("Re&move All"));

    MNUVIEWTOP = menuBar()->addMenu(QStringLiteral("&View"));
    MNUVIEWSTANDARDBAR = MNUVIEWTOP->addAction(QStringLiteral("&Standard Toolbar"));
    MNUVIEWSTANDARDBAR->setCheckable(true);
    MNUVIEWSTANDARDBAR->setChecked(true);
    MNUVIEWSTATUSBAR = MNUVIEWTOP->addAction(QStringLiteral("S&tatus Bar"));
    MNUVIEWSTATUSBAR->setCheckable(true);
    MNUVIEWSTATUSBAR->setChecked(true);

    MNUHELPTOP = menuBar()->addMenu(QStringLiteral("&Help"));
    MNUHELPWEBSITE = MNUHELPTOP->addAction(QStringLiteral("&ZUV Online"));
    MNUHELPTOP->addSeparator();
    MNUHELPABOUT = MNUHELPTOP->addAction(QStringLiteral("&About"));
    // The about box comes with its own window; until then the item is off.
    MNUHELPABOUT->setEnabled(false);
}

void frmMain::createBands()
{
    auto* client = clientArea();
    auto* bands = new QVBoxLayout(client);
    bands->setContentsMargins(0, 0, 0, 0);
    bands->setSpacing(0);

    PICMAIN = new QWidget(client);
    PICMAIN->setFixedHeight(pixelsHigh(465));
    auto* toolbarRow = new QVBoxLayout(PICMAIN);
    toolbarRow->setContentsMargins(0, 0, 0, 0);
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
    toolbarRow->addWidget(TBARMAIN);
    bands->addWidget(PICMAIN);

    PICHEADER = new QWidget(client);
    PICHEADER->setFixedHeight(pixelsHigh(465));
    PICHEADER->setAutoFillBackground(true);
    PICHEADER->setBackgroundRole(QPalette::Dark);
    LBLDESC = new QLabel(platform::App::Title(), PICHEADER);
    LBLDESC->setTextFormat(Qt::PlainText);
    LBLDESC->setForegroundRole(QPalette::Light);
    QFont heading = LBLDESC->font();
    heading.setPointSizeF(11.25);
    LBLDESC->setFont(heading);
    auto* headerRow = new QVBoxLayout(PICHEADER);
    headerRow->setContentsMargins(qRound(120 / platform::Screen::TwipsPerPixelX()), 0, 0, 0);
    headerRow->addWidget(LBLDESC);
    bands->addWidget(PICHEADER);

    PICBOX = new QWidget(client);
    bands->addWidget(PICBOX, 1);

    // Panel 1 takes the room the two counts leave.
    SBMAIN = new platform::StatusBar({2000, 2000}, client);
    SBMAIN->setFixedHeight(pixelsHigh(300));
    bands->addWidget(SBMAIN);
}

void frmMain::createPanes()
{
    FTVBROWSE = new platform::FolderTree;
    LVWFOUND = new platform::ListView(QStringLiteral("Images Found"));
    LVWFOUND->setSmallIcons(&IMGLST);
    LSTSELECTED = new platform::ListView(QStringLiteral("Images Selected"));
    LSTSELECTED->setSmallIcons(&IMGLST);
    LSTSELECTED->setSelectionMode(QAbstractItemView::SingleSelection);

    auto* sides = new QSplitter(Qt::Horizontal, PICBOX);
    PICTREE = makePane(sides, VBAR1, QStringLiteral(" Folders"), FTVBROWSE);
    auto* lists = new QSplitter(Qt::Vertical, sides);
    PICFND = makePane(lists, VBAR2, QStringLiteral(" Pictures Found"), LVWFOUND);
    PICSELCT = makePane(lists, VBAR3, QStringLiteral(" Pictures Selected"), LSTSELECTED);
    sides->addWidget(PICTREE);
    sides->addWidget(lists);
    lists->addWidget(PICFND);
    lists->addWidget(PICSELCT);
    sides->setSizes({3330, 6345});
    lists->setSizes({2295, 2000});
    auto* box = new QVBoxLayout(PICBOX);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(sides);

    setTabOrder(FTVBROWSE, LVWFOUND);
    setTabOrder(LVWFOUND, LSTSELECTED);
}

void frmMain::connectEvents()
{
    connect(MNUEDITADD, &QAction::triggered, this, &frmMain::MNUEDITADD_Click);
    connect(MNUEDITADDALL, &QAction::triggered, this, &frmMain::MNUEDITADDALL_Click);
    connect(MNUEDITREMOVE, &QAction::triggered, this, &frmMain::MNUEDITREMOVE_Click);
    connect(MNUEDITREMOVEALL, &QAction::triggered, this, &frmMain::MNUEDITREMOVEALL_Click);
    connect(MNUFILERUN, &QAction::triggered, this, &frmMain::MNUFILERUN_Click);
    connect(MNUFILEEXIT, &QAction::triggered, this, &frmMain::MNUFILEEXIT_Click);
    connect(MNUVIEWSTANDARDBAR, &QAction::triggered, this, &frmMain::MNUVIEWSTANDARDBAR_Click);
    connect(MNUVIEWSTATUSBAR, &QAction::triggered, this, &frmMain::MNUVIEWSTATUSBAR_Click);
    connect(MNUHELPWEBSITE, &QAction::triggered, this, &frmMain::MNUHELPWEBSITE_Click);
    connect(TBARMAIN, &platform::Toolbar::ButtonClick, this, &frmMain::TBARMAIN_ButtonClick);
    connect(FTVBROWSE, &platform::FolderTree::folderChanged, this, &frmMain::FTVBROWSE_FolderChanged);

    auto* tree = new platform::ControlEvents(FTVBROWSE);
    connect(tree, &platform::ControlEvents::KeyUp, this, &frmMain::KEYCHECK);

    auto* found = new platform::ControlEvents(LVWFOUND);
    connect(found, &platform::ControlEvents::GotFocus, this, &frmMain::FOUNDLSTCHK);
    connect(found, &platform::ControlEvents::LostFocus, this, &frmMain::LVWFOUND_LostFocus);
    connect(found, &platform::ControlEvents::KeyUp, this, [this](int keyCode, int shift) {
        if (LVWFOUND->ListItems().Count() != 0)
            KEYCHECK(keyCode, shift);
    });

    auto* selected = new platform::ControlEvents(LSTSELECTED);
    connect(selected, &platform::ControlEvents::GotFocus, this, &frmMain::SELECTCHK);
    connect(selected, &platform::ControlEvents::LostFocus, this, &frmMain::LSTSELECTED_LostFocus);
    connect(selected, &platform::ControlEvents::KeyUp, this, [this](int keyCode, int shift) {
        if (LSTSELECTED->ListItems().Count() != 0)
            KEYCHECK(keyCode, shift);
    });
}
