// Building the print preview: menus, the tool strip with its two lists, the work
// area with the page image and its scroll bars, the status bar, and the wiring of
// the controls' events to the form's handlers.
#include "printing/frmPPrev.h"

#include "platform/core/Error.h"
#include "platform/widgets/ComboBox.h"
#include "platform/widgets/ControlEvents.h"
#include "platform/widgets/ImageControl.h"
#include "platform/widgets/Menus.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/ICOMNU.h"
#include "presentation/PresentationServices.h"
#include "presentation/StatusDescriptions.h"
#include "presentation/TXTSEP.h"
#include "printing/clsPrinting.h"
#include "resources/Icons.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>

#include <algorithm>

using platform::twips;

namespace {

const QString Document = QStringLiteral("document");

} // namespace

void frmPPrev::createMenus()
{
    using platform::addCheckItem;
    using platform::addNamedItem;
    using platform::addNamedMenu;
    MNUFILETOP = addNamedMenu(menuBar(), QStringLiteral("&File"), "MNUFILETOP");
    MNUFILEPRINT = addNamedItem(MNUFILETOP, QStringLiteral("&Print..."), "MNUFILEPRINT");
    MNUFILEPRINT->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    MNUFILETOP->addSeparator();
    MNUFILEEXIT = addNamedItem(MNUFILETOP, QStringLiteral("&Close"), "MNUFILEEXIT");

    MNUVIEWTOP = addNamedMenu(menuBar(), QStringLiteral("&View"), "MNUVIEWTOP");
    MNUVIEWTOOLBAR = addCheckItem(MNUVIEWTOP, QStringLiteral("&Standard Toolbar"), "MNUVIEWTOOLBAR", true);
    MNUVIEWSTATUSBAR = addCheckItem(MNUVIEWTOP, QStringLiteral("S&tatus Bar"), "MNUVIEWSTATUSBAR", true);
    MNUVIEWTOP->addSeparator();
    MNUVIEWZOOM = addNamedMenu(MNUVIEWTOP, QStringLiteral("&Zoom"), "MNUVIEWZOOM");
    MNUZOOM200 = addCheckItem(MNUVIEWZOOM, QStringLiteral("200 %"), "MNUZOOM200", false);
    MNUZOOM150 = addCheckItem(MNUVIEWZOOM, QStringLiteral("150 %"), "MNUZOOM150", false);
    MNUZOOM100 = addCheckItem(MNUVIEWZOOM, QStringLiteral("100 %"), "MNUZOOM100", false);
    MNUZOOM75 = addCheckItem(MNUVIEWZOOM, QStringLiteral("75 %"), "MNUZOOM75", false);
    MNUZOOM50 = addCheckItem(MNUVIEWZOOM, QStringLiteral("50 %"), "MNUZOOM50", false);
    MNUZOOM25 = addCheckItem(MNUVIEWZOOM, QStringLiteral("25 %"), "MNUZOOM25", false);
    MNUZOOMPW = addCheckItem(MNUVIEWZOOM, QStringLiteral("&Page Width"), "MNUZOOMPW", false);
    MNUZOOMWP = addCheckItem(MNUVIEWZOOM, QStringLiteral("&Whole Page"), "MNUZOOMWP", false);

    MNUGOTOTOP = addNamedMenu(menuBar(), QStringLiteral("&Go To"), "MNUGOTOTOP");
    MNUVIEWFIRST = addNamedItem(MNUGOTOTOP, QStringLiteral("&First Page"), "MNUVIEWFIRST");
    MNUVIEWPREVIOUS = addNamedItem(MNUGOTOTOP, QStringLiteral("&Previous Page"), "MNUVIEWPREVIOUS");
    MNUVIEWNEXT = addNamedItem(MNUGOTOTOP, QStringLiteral("&Next Page"), "MNUVIEWNEXT");
    MNUVIEWLAST = addNamedItem(MNUGOTOTOP, QStringLiteral("&Last Page"), "MNUVIEWLAST");

    MNUHELPTOP = addNamedMenu(menuBar(), QStringLiteral("&Help"), "MNUHELPTOP");
    MNUHELPABOUT = addNamedItem(MNUHELPTOP, QStringLiteral("&About"), "MNUHELPABOUT");
}

// The tool strip: the toolbar with a gap in which the page list stands, then the
// zoom list with its caption. The toolkit's buttons and lists are taller than the
// designed 345 twips, so the strip is as tall as they need and lays them out in a
// row; the bar's rules frame it above and below as in the main window.
void frmPPrev::createToolStrip()
{
    PICTBAR = new QWidget(clientArea());
    PICTBAR->setObjectName(QStringLiteral("PICTBAR"));
    FRAMTBAR = new QWidget(PICTBAR);
    auto* row = new QHBoxLayout(FRAMTBAR);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(platform::Screen::pixelsX(60));

    TBARMAIN = new platform::Toolbar(&IMGLST, FRAMTBAR);
    TBARMAIN->addButton(QStringLiteral("PRINT"), QStringLiteral("&Print"), QStringLiteral("Print"),
                        QStringLiteral("PRINT"));
    TBARMAIN->addSeparator();
    struct Button {
        const char* key;
        const char* description;
        const char* tip;
    };
    for (const Button& button :
         {Button{"FIRST PAGE", "&First Page", "First Page"},
          Button{"PREVIOUS PAGE", "&Previous Page", "Previous Page"},
          Button{"NEXT PAGE", "&Next Page", "Next Page"}, Button{"LAST PAGE", "&Last Page", "Last Page"}}) {
        const QString key = QString::fromLatin1(button.key);
        TBARMAIN->addButton(key, QString::fromLatin1(button.description), QString::fromLatin1(button.tip),
                            key);
    }
    TBARMAIN->addSeparator();
    // The gap for the page list: 1075 twips, the list 960 wide in its middle.
    auto* gap = new QWidget(TBARMAIN);
    CBOPGNO = new platform::ComboBox(gap);
    CBOPGNO->setObjectName(QStringLiteral("CBOPGNO"));
    const float listHeight = platform::Screen::twipsY(CBOPGNO->sizeHint().height());
    twips(CBOPGNO).Move(57, 0, 960, listHeight);
    gap->setFixedSize(platform::Screen::pixelsX(1075), CBOPGNO->height());
    TBARMAIN->addWidget(gap);
    TBARMAIN->addSeparator();
    TBARMAIN->addButton(QStringLiteral("ZOOM OUT"), QStringLiteral("&Zoom Out"), QStringLiteral("Zoom Out"),
                        QStringLiteral("ZOOM OUT"));
    TBARMAIN->addButton(QStringLiteral("ZOOM IN"), QStringLiteral("&Zoom In"), QStringLiteral("Zoom In"),
                        QStringLiteral("ZOOM IN"));
    TBARMAIN->addSeparator();
    row->addWidget(TBARMAIN);

    LBLZOOM = new QLabel(QStringLiteral("Zoom"), FRAMTBAR);
    LBLZOOM->setObjectName(QStringLiteral("LBLZOOM"));
    row->addWidget(LBLZOOM);
    CBOPGZOOM = new platform::ComboBox(FRAMTBAR);
    CBOPGZOOM->setObjectName(QStringLiteral("CBOPGZOOM"));
    // 1335 twips, or what the toolkit's list needs to show "Whole Page" whole.
    CBOPGZOOM->setMinimumContentsLength(int(QStringLiteral("Whole Page").size()));
    CBOPGZOOM->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    twips(CBOPGZOOM).setWidth(1335);
    CBOPGZOOM->setFixedWidth(std::max(CBOPGZOOM->width(), CBOPGZOOM->sizeHint().width()));
    row->addWidget(CBOPGZOOM);
    row->addStretch(1);

    const float stripHeight = std::max(345.0f, platform::Screen::twipsY(row->sizeHint().height()));
    twips(FRAMTBAR).Move(0, 45, 7515, stripHeight);
    TXTSEP1 = new zuv::TXTSEP(QString(), PICTBAR);
    twips(TXTSEP1).Move(-495, -105, 245745, 225);
    TXTSEP2 = new zuv::TXTSEP(QString(), PICTBAR);
    twips(TXTSEP2).Move(-240, 45 + stripHeight - 90, 245745, 225);
    FRAMTBAR->raise();
    twips(PICTBAR).setHeight(45 + stripHeight + 90);
}

// The work area: a sunken box in the button shadow's colour with the page image,
// the two scroll bars and the corner piece between them. All of them are placed
// inside the border, so the arithmetic's allowance of 60 twips is the border.
void frmPPrev::createWorkArea()
{
    PICWINDOW = new QFrame(clientArea());
    PICWINDOW->setObjectName(QStringLiteral("PICWINDOW"));
    PICWINDOW->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    PICWINDOW->setLineWidth(platform::Screen::pixelsX(30));
    PICWINDOW->setFocusPolicy(Qt::StrongFocus);
    workArea_ = new QWidget(PICWINDOW);
    workArea_->setAutoFillBackground(true);
    workArea_->setBackgroundRole(QPalette::Dark);
    auto* inside = new QHBoxLayout(PICWINDOW);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(workArea_);

    IMGPREVIEW = new platform::ImageControl(workArea_);
    IMGPREVIEW->setObjectName(QStringLiteral("IMGPREVIEW"));
    IMGPREVIEW->setCursor(resources::magnifierCursor());

    const float extent = platform::Screen::twipsX(style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    SCRHBAR = new QScrollBar(Qt::Horizontal, workArea_);
    SCRVBAR = new QScrollBar(Qt::Vertical, workArea_);
    SCRHBAR->setObjectName(QStringLiteral("SCRHBAR"));
    SCRVBAR->setObjectName(QStringLiteral("SCRVBAR"));
    SCRHBAR->setRange(0, 3000);
    SCRVBAR->setRange(0, 10000);
    for (QScrollBar* bar : {SCRHBAR, SCRVBAR}) {
        bar->setSingleStep(1000);
        bar->setPageStep(3000);
        // The keys of the work area scroll; the bars take no focus from it.
        bar->setFocusPolicy(Qt::NoFocus);
    }
    twips(SCRHBAR).setHeight(extent);
    twips(SCRVBAR).setWidth(extent);
    PICFILL = new QWidget(workArea_);
    PICFILL->setObjectName(QStringLiteral("PICFILL"));
    PICFILL->setAutoFillBackground(true);
    PICFILL->setBackgroundRole(QPalette::Button);
    twips(PICFILL).setWidth(extent);
    twips(PICFILL).setHeight(extent);

    // The designed place of the work area below the tool strip.
    twips(PICWINDOW).Move(0, twips(PICTBAR).Height(), 7515, 5000);
}

// Panel 1 describes commands; the others show the paper and the page. The bar is
// as tall as a scroll bar and 45 twips, the room that the layout leaves for it.
void frmPPrev::createStatusBar()
{
    SBMAIN = new platform::StatusBar({1150, 2000, 60, 900, 500, 300, 500}, clientArea());
    SBMAIN->setObjectName(QStringLiteral("SBMAIN"));
    twips(SBMAIN).setHeight(twips(SCRHBAR).Height() + 45);
    SBMAIN->setPanelText(2, QStringLiteral("Paper Size:"));
    SBMAIN->setPanelText(5, QStringLiteral("Page No:"));
    SBMAIN->setPanelText(7, QStringLiteral("of"));
}

void frmPPrev::connectEvents()
{
    connect(MNUFILEPRINT, &QAction::triggered, this, platform::guarded([this] { MNUFILEPRINT_Click(); }));
    connect(MNUFILEEXIT, &QAction::triggered, this, platform::guarded([this] { MNUFILEEXIT_Click(); }));
    connect(MNUVIEWTOOLBAR, &QAction::triggered, this, platform::guarded([this] { MNUVIEWTOOLBAR_Click(); }));
    connect(MNUVIEWSTATUSBAR, &QAction::triggered, this,
            platform::guarded([this] { MNUVIEWSTATUSBAR_Click(); }));
    connect(MNUHELPABOUT, &QAction::triggered, this, platform::guarded([this] { MNUHELPABOUT_Click(); }));
    connect(MNUVIEWFIRST, &QAction::triggered, this,
            platform::guarded([] { clsPrinting::instance().PAGESTART(); }));
    connect(MNUVIEWPREVIOUS, &QAction::triggered, this,
            platform::guarded([] { clsPrinting::instance().PAGEPREVIOUS(); }));
    connect(MNUVIEWNEXT, &QAction::triggered, this,
            platform::guarded([] { clsPrinting::instance().PAGENEXT(); }));
    connect(MNUVIEWLAST, &QAction::triggered, this,
            platform::guarded([] { clsPrinting::instance().PAGEEND(); }));
    // Each zoom item shows its step in the zoom list, whose Click applies it.
    const QList<QAction*> items = zoomItems();
    for (qsizetype i = 0; i < items.size(); ++i) {
        const QString step = zoomSteps().at(i);
        connect(items.at(i), &QAction::triggered, this,
                platform::guarded([this, step] { CBOPGZOOM->setText(step); }));
    }
    connect(TBARMAIN, &platform::Toolbar::ButtonClick, this,
            platform::guarded(this, &frmPPrev::TBARMAIN_ButtonClick));

    CBOPGNO->onClick([this] { CBOPGNO_Click(); });
    CBOPGZOOM->onClick([] { clsPrinting::instance().ZOOMSEL(); });
    connect(SCRHBAR, &QScrollBar::valueChanged, this, platform::guarded([this] { SCRHBAR_Change(); }));
    connect(SCRVBAR, &QScrollBar::valueChanged, this, platform::guarded([this] { SCRVBAR_Change(); }));

    auto* window = new platform::ControlEvents(PICWINDOW);
    connect(window, &platform::ControlEvents::KeyUp, this, platform::guarded(this, &frmPPrev::PREVIEWKEYS));
    auto* image = new platform::ControlEvents(IMGPREVIEW);
    connect(image, &platform::ControlEvents::MouseUp, this,
            platform::guarded(this, &frmPPrev::IMGPREVIEW_MouseUp));
}

// The descriptions of the menu items go to the status bar of the window that
// shows them, this one while it is open; those of the toolbar's buttons stay
// until TMR1 sees the pointer leave the bar.
void frmPPrev::createMenuTracking()
{
    ICOMNU = new zuv::ICOMNU(this);
    zuv::describeMenus(ICOMNU, this, &Forms::mainForm, Document);
    TMR1 = zuv::describeToolbar(TBARMAIN, this, Document);
}
