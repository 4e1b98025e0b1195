// The layout of the main window. Nothing is docked by a layout manager: the bands
// stack from the top as the toolkit would stack aligned panels, and the panes in
// PICBOX are placed by explicit arithmetic in twips. The splitter positions,
// PICBAR2.Left and PICBAR1.Top, are the only layout state; the routines read them,
// correct them and work out the rest. Each statement that the toolkit refuses
// (such as a negative size in a tiny window) is skipped and the next one runs.
#include "album/frmMain.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/VBAR.h"

#include <QAction>
#include <QEvent>
#include <QMouseEvent>

using platform::resumeNext;
using platform::twips;

namespace {

// The layout works with 16-bit whole numbers of twips.
int16_t whole(float twipsValue)
{
    return platform::toInt16(static_cast<double>(twipsValue));
}

} // namespace

// The toolkit's part: the visible bands stack from the top, each across the
// client area; the status bar keeps to the bottom. PICBOX's height is the code's.
void frmMain::stackBands()
{
    const float width = ScaleWidth();
    float top = 0;
    for (QWidget* band : {PICMAIN, PICHEADER}) {
        if (band->isHidden())
            continue;
        twips(band).setLeft(0);
        twips(band).setTop(top);
        twips(band).setWidth(width);
        top += twips(band).Height();
    }
    twips(PICBOX).setLeft(0);
    twips(PICBOX).setTop(top);
    twips(PICBOX).setWidth(width);
    twips(SBMAIN).setLeft(0);
    twips(SBMAIN).setTop(ScaleHeight() - twips(SBMAIN).Height());
    twips(SBMAIN).setWidth(width);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PICMAIN && event->type() == QEvent::MouseButtonPress &&
        !TBARMAIN->geometry().contains(static_cast<QMouseEvent*>(event)->position().toPoint()))
        PICMAIN->setFocus(Qt::MouseFocusReason);
    if ((watched == PICMAIN || watched == SBMAIN) &&
        (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        stackBands();
    return Form::eventFilter(watched, event);
}

void frmMain::Form_Resize()
{
    // The bands follow the client area first, as the toolkit stacks them.
    stackBands();
    int16_t h = 0;
    resumeNext([&] { h = whole(ScaleHeight()); });
    resumeNext([&] { h = whole(h - twips(PICBOX).Top()); });
    if (MNUVIEWSTATUSBAR->isChecked())
        resumeNext([&] { h = whole(h - twips(SBMAIN).Height()); });
    resumeNext([&] { twips(PICBOX).setHeight(h); });
    resumeNext(
        [&] { twips(PICBAR1).setWidth(ScaleWidth() - twips(LSTSELECTED).Left() - twips(FTVBROWSE).Left()); });
    resumeNext([&] { twips(LSTSELECTED).setHeight(twips(PICBOX).Height() - twips(LSTSELECTED).Top() - 30); });
    resumeNext([&] { twips(LVWFOUND).setWidth(twips(LSTSELECTED).Width()); });
    if (twips(LSTSELECTED).Width() - 360 > 0)
        LSTSELECTED->setColumnWidth(twips(LSTSELECTED).Width() - 360);
    if (twips(LSTSELECTED).Width() - 360 > 0)
        LVWFOUND->setColumnWidth(twips(LSTSELECTED).Width() - 360);
    const float treeHeight = ScaleHeight() - twips(FTVBROWSE).Top() - twips(SBMAIN).Height() - 75;
    if (treeHeight > 0)
        resumeNext([&] { twips(FTVBROWSE).setHeight(treeHeight); });
    resumeNext([&] { twips(PICBAR2).setHeight(twips(FTVBROWSE).Height()); });
    resumeNext([&] { twips(PICTREE).setHeight(twips(PICBOX).Height() - 60); });
    resumeNext([&] { twips(FTVBROWSE).setHeight(twips(PICTREE).Height() - twips(FTVBROWSE).Top() + 45); });
    PICBAR2MOVE();
    PICBAR1MOVE();
}

// The horizontal splitter between the two lists.
void frmMain::PICBAR1MOVE()
{
    int16_t y = 0;
    resumeNext([&] { y = whole(twips(PICBAR1).Top()); });
    if (y < 1000) {
        y = 1000;
        resumeNext([&] { twips(PICBAR1).setTop(y); });
    }
    // The lower limit comes second and so wins in a low window.
    const float lowest = ScaleHeight() - twips(SBMAIN).Height() - 1000;
    if (lowest < y) {
        resumeNext([&] { y = whole(lowest); });
        resumeNext([&] { twips(PICBAR1).setTop(y); });
    }
    const float foundTop = twips(LVWFOUND).Top();
    if (y - foundTop - 5 > 0) {
        resumeNext([&] { twips(LVWFOUND).setHeight(y - foundTop - 5 - 15); });
        resumeNext([&] { twips(PICFND).setHeight(y - foundTop - 5 + 285); });
    }
    resumeNext([&] { twips(LSTSELECTED).setTop(y + twips(PICBAR1).Height() + 300 - 15); });
    resumeNext([&] { twips(LSTSELECTED).setHeight(twips(PICBOX).Height() - twips(LSTSELECTED).Top() - 15); });
    resumeNext([&] { twips(PICSELCT).setTop(y + twips(PICBAR1).Height()); });
    resumeNext([&] { twips(VBAR3).setTop(twips(PICSELCT).Top() + 15); });
    resumeNext([&] { twips(PICSELCT).setHeight(twips(PICBOX).Height() - twips(PICSELCT).Top()); });
}

// The vertical splitter between the tree and the lists.
void frmMain::PICBAR2MOVE()
{
    int16_t x = 0;
    resumeNext([&] { x = whole(twips(PICBAR2).Left()); });
    if (x < 1000) {
        x = 1000;
        resumeNext([&] { twips(PICBAR2).setLeft(x); });
    }
    const float rightmost = ScaleWidth() - 1000;
    if (rightmost < x) {
        resumeNext([&] { x = whole(rightmost); });
        resumeNext([&] { twips(PICBAR2).setLeft(x); });
    }
    resumeNext([&] { twips(FTVBROWSE).setWidth(x - 45); });
    resumeNext([&] { twips(PICTREE).setWidth(x - 15); });
    resumeNext([&] { twips(VBAR1).setWidth(x - 45); });
    resumeNext([&] { twips(LVWFOUND).setLeft(x + 50 + 15); });
    resumeNext([&] { twips(PICFND).setLeft(x + 50); });
    resumeNext([&] { twips(VBAR2).setLeft(x + 50 + 11); });
    resumeNext([&] { twips(LSTSELECTED).setLeft(x + 50 + 15); });
    resumeNext([&] { twips(PICSELCT).setLeft(x + 50); });
    resumeNext([&] { twips(VBAR3).setLeft(x + 50 + 11); });
    resumeNext([&] { twips(PICBAR1).setLeft(x + 50); });
    const auto listWidth = [&] { return ScaleWidth() - twips(LSTSELECTED).Left() - twips(FTVBROWSE).Left(); };
    resumeNext([&] { twips(LVWFOUND).setWidth(listWidth()); });
    resumeNext([&] { twips(LSTSELECTED).setWidth(listWidth()); });
    resumeNext([&] { twips(VBAR3).setWidth(twips(LSTSELECTED).Width()); });
    resumeNext([&] { twips(PICSELCT).setWidth(twips(LSTSELECTED).Width() + 30); });
    resumeNext([&] { twips(VBAR2).setWidth(twips(LSTSELECTED).Width()); });
    resumeNext([&] { twips(PICFND).setWidth(twips(LSTSELECTED).Width() + 30); });
    resumeNext([&] { twips(PICBAR1).setWidth(ScaleWidth() - twips(LSTSELECTED).Left()); });
    resumeNext([&] { LSTSELECTED->setColumnWidth(twips(LSTSELECTED).Width() - 360); });
    resumeNext([&] { LVWFOUND->setColumnWidth(twips(LSTSELECTED).Width() - 360); });
}

// The panes follow a splitter live while the left button is down.
void frmMain::PICBAR1_MouseMove(int Button, int, float, float Y)
{
    if (Button != 1)
        return;
    resumeNext([&] { twips(PICBAR1).setTop(twips(PICBAR1).Top() + Y); });
    PICBAR1MOVE();
}

void frmMain::PICBAR2_MouseMove(int Button, int, float X, float)
{
    if (Button != 1)
        return;
    resumeNext([&] { twips(PICBAR2).setLeft(twips(PICBAR2).Left() + X); });
    PICBAR2MOVE();
}
