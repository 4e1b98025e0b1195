// The icon menu of the main window and the descriptions in panel 1 of the status
// bar: of the menu item under the pointer, and of the toolbar button under it,
// which goes once a timer sees the pointer leave the bar.
#include "album/frmMain.h"

#include "platform/widgets/ControlEvents.h"
#include "platform/widgets/Toolbar.h"
#include "presentation/ICOMNU.h"
#include "settings/clsLibrary.h"

#include <QTimer>

namespace {
const QString Album = QStringLiteral("album");
}

void frmMain::ICONMENUS()
{
    clsLibrary& lib = clsLibrary::instance();
    ICOMNU->Attach(this, true);
    ICOMNU->setImageList([this](int32_t index) { return IMGLST.image(index + 1); });
    for (const auto& [item, image] : {std::pair{"MNUFILERUN", "RUN"},
                                      {"MNUEDITADD", "ADD"},
                                      {"MNUEDITADDALL", "ADD ALL"},
                                      {"MNUEDITREMOVE", "REMOVE"},
                                      {"MNUEDITREMOVEALL", "REMOVE ALL"},
                                      {"MNUHELPWEBSITE", "ZUV ONLINE"},
                                      {"MNUHELPABOUT", "ABOUT"}})
        lib.ICOMNUSETUP(this, this, QString::fromLatin1(item), QString::fromLatin1(image));
}

void frmMain::createMenuTracking()
{
    ICOMNU = new zuv::ICOMNU(this);
    const auto describe = [this](int32_t number, int32_t, bool separator) {
        clsLibrary::instance().STATUSTEXTDESC(this, this, number, separator, Album);
    };
    const auto clear = [this] { clsLibrary::instance().STATUSTEXTDESC(this, this, 0, false); };
    connect(ICOMNU, &zuv::ICOMNU::ItemReport, this, describe);
    connect(ICOMNU, &zuv::ICOMNU::ItemReportPlain, this, describe);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetA, this, clear);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetB, this, clear);
    connect(ICOMNU, &zuv::ICOMNU::StatusResetC, this, clear);

    TMR1 = new QTimer(this);
    TMR1->setInterval(1);
    connect(TMR1, &QTimer::timeout, this, &frmMain::TMR1_Timer);
    TBARMAIN->setMouseTracking(true);
    auto* bar = new platform::ControlEvents(TBARMAIN);
    connect(bar, &platform::ControlEvents::MouseMove, this, &frmMain::TBARMAIN_MouseMove);
}

void frmMain::TBARMAIN_MouseMove(int, int, float X, float)
{
    TMR1->start();
    clsLibrary::instance().GETTBARDESCRIPTIONS(this, X, TBARMAIN, Album);
}

// The bar's rectangle is where the bar stands, not a fixed one: the toolkit's
// bar is wider and taller than the designed one, and the window manager's frame
// moves it down.
void frmMain::TMR1_Timer()
{
    if (clsLibrary::instance().MOUSEMOVE(this, TBARMAIN->rectInWindowFrame()) == 1) {
        clsLibrary::instance().STATUSBARCAPTION(this);
        TMR1->stop();
    }
}
