// The commands of the main window and the rules that switch them on and off. The
// toolbar button and the menu item of one command always change together.
#include "album/frmMain.h"

#include "about/frmAbout.h"
#include "album/MainSettings.h"
#include "album/frmPopup.h"
#include "config.h"

#include "library/clsLibrary.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/Keys.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "viewer/frmScreen.h"

#include <QAction>
#include <QMenu>

using platform::resumeNext;
using platform::twips;

// Insert adds (also with Shift or Alt, not with Ctrl alone); Ctrl+Delete removes.
// The enablement of the menu item ties each key to the list that has the focus.
void frmMain::KEYCHECK(int KeyCode, int Shift)
{
    if (Shift != platform::vbCtrlMask && KeyCode == platform::vbKeyInsert) {
        if (MNUEDITADD->isEnabled())
            MNUEDITADD_Click();
    }
    if (Shift == platform::vbCtrlMask && KeyCode == platform::vbKeyDelete) {
        if (MNUEDITREMOVE->isEnabled())
            MNUEDITREMOVE_Click();
    }
}

void frmMain::TBARMAIN_ButtonClick(const QString& key)
{
    commands_.trigger(key);
}

void frmMain::MNUEDITADD_Click()
{
    ADD();
}

void frmMain::MNUEDITADDALL_Click()
{
    ADDALL();
}

void frmMain::MNUEDITREMOVE_Click()
{
    CLEAR();
    SELECTCHK();
}

void frmMain::MNUEDITREMOVEALL_Click()
{
    CLEARALL();
}

// The hourglass shows until the show's first picture is up. The show may end while
// it loads (a key during its first step), and then there is nothing to show.
void frmMain::MNUFILERUN_Click()
{
    platform::Screen::setMousePointer(11);
    setMousePointer(11);
    Forms::get<frmScreen>();
    if (Forms::isLoaded<frmScreen>())
        Forms::get<frmScreen>().Show();
}

void frmMain::MNUFILEEXIT_Click()
{
    Forms::unload<frmMain>();
}

// The toggles are checkable items: the menu has flipped the check mark already.
void frmMain::MNUVIEWSTANDARDBAR_Click()
{
    PICMAIN->setVisible(MNUVIEWSTANDARDBAR->isChecked());
    writeViewSettings();
    Form_Resize();
}

void frmMain::MNUVIEWSTATUSBAR_Click()
{
    SBMAIN->setVisible(MNUVIEWSTATUSBAR->isChecked());
    writeViewSettings();
    Form_Resize();
}

// A change of either bar stores both, the toolbar's first.
void frmMain::writeViewSettings()
{
    album::ToolbarShown.write(platform::boolText(MNUVIEWSTANDARDBAR->isChecked()));
    album::StatusBarShown.write(platform::boolText(!SBMAIN->isHidden()));
}

void frmMain::MNUHELPWEBSITE_Click()
{
    clsLibrary::instance().INTERNETACCESS(QString::number(winId()), QString(),
                                          QStringLiteral(VISTARRO_WEB_ADDRESS));
}

void frmMain::LVWFOUND_LostFocus()
{
    commands_.setEnabled(QStringLiteral("ADD"), false);
    commands_.setEnabled(QStringLiteral("ADD ALL"), false);
}

void frmMain::LSTSELECTED_LostFocus()
{
    commands_.setEnabled(QStringLiteral("REMOVE ALL"), false);
    commands_.setEnabled(QStringLiteral("REMOVE"), false);
}

// Enter previews the current item of a list that isn't empty; the list keeps the
// focus afterwards.
void frmMain::LVWFOUND_KeyDown(int KeyCode, int)
{
    if (LVWFOUND->ListItems().Count() == 0)
        return;
    if (KeyCode == platform::vbKeyReturn)
        resumeNext([&] { Forms::get<frmPopup>().PREVIEWFOUND(); });
    resumeNext([&] { LVWFOUND->setFocus(); });
}

void frmMain::LSTSELECTED_KeyDown(int KeyCode, int)
{
    if (LSTSELECTED->ListItems().Count() == 0)
        return;
    if (KeyCode == platform::vbKeyReturn)
        resumeNext([&] { Forms::get<frmPopup>().PREVIEWSELECTED(); });
    resumeNext([&] { LSTSELECTED->setFocus(); });
}

// The context menu key raises a list's menu at the list's own place, taken as a
// place in the window; the right button raises it where the pointer is.
void frmMain::LVWFOUND_KeyUp(int KeyCode, int Shift)
{
    if (LVWFOUND->ListItems().Count() == 0)
        return;
    if (KeyCode == platform::vbKeyApps)
        PopupMenu(Forms::get<frmPopup>().MNUFOUNDTOP, twips(LVWFOUND).Left() + 200, twips(LVWFOUND).Top());
    KEYCHECK(KeyCode, Shift);
}

void frmMain::LSTSELECTED_KeyUp(int KeyCode, int Shift)
{
    if (LSTSELECTED->ListItems().Count() == 0)
        return;
    if (KeyCode == platform::vbKeyApps)
        PopupMenu(Forms::get<frmPopup>().MNUSELECTEDTOP, twips(LSTSELECTED).Left() + 200,
                  twips(LSTSELECTED).Top());
    KEYCHECK(KeyCode, Shift);
}

void frmMain::LVWFOUND_MouseUp(int Button, int, float X, float Y)
{
    if (LVWFOUND->ListItems().Count() != 0 && Button == 2)
        PopupMenu(Forms::get<frmPopup>().MNUFOUNDTOP, twips(PICFND).Left() + X,
                  twips(PICFND).Top() + Y + 1200);
}

void frmMain::LSTSELECTED_MouseUp(int Button, int, float X, float Y)
{
    if (LSTSELECTED->ListItems().Count() != 0 && Button == 2)
        PopupMenu(Forms::get<frmPopup>().MNUSELECTEDTOP, twips(PICSELCT).Left() + X,
                  twips(PICSELCT).Top() + Y + 1200);
}

void frmMain::PopupMenu(QMenu* menu, float X, float Y)
{
    const QPoint at(platform::Screen::pixelsX(X), platform::Screen::pixelsY(Y));
    menu->popup(clientArea()->mapToGlobal(at));
}

void frmMain::MNUHELPABOUT_Click()
{
    Forms::get<frmAbout>().Show(1, this);
}
