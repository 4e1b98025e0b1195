// The icon menu of the main window and the descriptions in panel 1 of the status
// bar: of the menu item under the pointer, and of the toolbar button under it,
// which goes once a timer sees the pointer leave the bar.
#include "album/frmMain.h"

#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "presentation/ICOMNU.h"
#include "presentation/StatusDescriptions.h"

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
    zuv::describeMenus(
        ICOMNU, this, [this]() -> Form* { return this; }, Album);
    TMR1 = zuv::describeToolbar(TBARMAIN, this, Album);
}
