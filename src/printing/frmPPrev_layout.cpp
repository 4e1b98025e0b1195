// The layout of the print preview window, in twips. The tool strip keeps to the
// top and the status bar to the bottom, as the toolkit keeps aligned bars; the
// work area, its scroll bars and the corner between them follow the arithmetic
// below, and the zoom step is applied again to the new size. A statement that
// the toolkit refuses (a negative size in a tiny window) is skipped.
#include "printing/frmPPrev.h"

#include "platform/core/Error.h"
#include "platform/widgets/ImageControl.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Twips.h"
#include "printing/clsPrinting.h"

#include <QFrame>
#include <QScrollBar>

using platform::resumeNext;
using platform::twips;

namespace {

// The inset of the page image from the work area's edge.
constexpr float Inset = 45;
// The work area's own border, on both sides together.
constexpr float Border = 60;

} // namespace

// The toolkit's part: the bars across the client area, one at the top and one at
// the bottom.
void frmPPrev::stackBars()
{
    const float width = ScaleWidth();
    resumeNext([&] {
        twips(PICTBAR).Move(0, 0, width, twips(PICTBAR).Height());
        twips(FRAMTBAR).setWidth(width);
    });
    resumeNext([&] {
        twips(SBMAIN).Move(0, ScaleHeight() - twips(SBMAIN).Height(), width, twips(SBMAIN).Height());
    });
}

void frmPPrev::Form_Resize()
{
    stackBars();
    auto window = twips(PICWINDOW);
    resumeNext([&] { window.setTop(PICTBAR->isHidden() ? 0 : twips(PICTBAR).Height()); });
    resumeNext([&] {
        if (ScaleWidth() - window.Left() - window.Left() > 0)
            window.setWidth(ScaleWidth() - window.Left() - window.Left());
    });
    // The scroll bar's height and 45 twips stand for the status bar here.
    resumeNext([&] {
        if (SBMAIN->isHidden()) {
            window.setHeight(ScaleHeight() - window.Top() - window.Left());
            return;
        }
        const float height = ScaleHeight() - window.Top() - twips(SCRHBAR).Height() - Inset - window.Left();
        if (height > 0)
            window.setHeight(height);
    });
    // The Click of the zoom list: the step applies to the new size. (A preview
    // that is being unloaded has no zoom to apply.)
    if (Forms::isLoaded<frmPPrev>() && &Forms::get<frmPPrev>() == this)
        resumeNext([&] { clsPrinting::instance().ZOOMSEL(); });
    auto vertical = twips(SCRVBAR);
    auto horizontal = twips(SCRHBAR);
    resumeNext([&] { vertical.setTop(0); });
    resumeNext([&] { vertical.setHeight(window.Height() - Border - vertical.Width()); });
    resumeNext([&] { vertical.setLeft(window.Width() - vertical.Width() - Border); });
    resumeNext([&] { horizontal.setTop(window.Height() - horizontal.Height() - Border); });
    resumeNext([&] {
        if (window.Width() - Border - horizontal.Height() > 0)
            horizontal.setWidth(window.Width() - Border - horizontal.Height());
    });
    resumeNext([&] { horizontal.setLeft(0); });
    resumeNext([&] { twips(PICFILL).setLeft(horizontal.Width()); });
    resumeNext([&] { twips(PICFILL).setTop(vertical.Height()); });
}

// The scroll bars move the page image: at the value 0 it stands at the inset.
void frmPPrev::SCRHBAR_Change()
{
    twips(IMGPREVIEW).setLeft(Inset - float(SCRHBAR->value()));
}

void frmPPrev::SCRVBAR_Change()
{
    twips(IMGPREVIEW).setTop(Inset - float(SCRVBAR->value()));
}
