#pragma once

#include "platform/core/FileListBox.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/ToolbarCommands.h"

#include <cstdint>
#include <optional>

class QAction;
class QLabel;
class QMenu;

namespace platform {
class FolderTree;
class ListView;
class StatusBar;
class Toolbar;
} // namespace platform
class QTimer;

namespace zuv {
class ICOMNU;
class TXTSEP;
class VBAR;
} // namespace zuv

// The main window: the folder tree, the pictures found in the current folder, and
// the album. Every change of the album is written to the settings store at once,
// so the store holds the album at every moment and nothing is saved at closing.
//
//  +-------------------------------------------------------------+
//  | menu bar                                                    |
//  | PICMAIN: TBARMAIN                                           |
//  | PICHEADER: LBLDESC "Vistarro - (folder)"                    |
//  | PICBOX:  PICTREE          | PICFND: LVWFOUND                |
//  |          FTVBROWSE        |---------------------------------|
//  |                           | PICSELCT: LSTSELECTED           |
//  | SBMAIN: descriptions | n pictures found | n pictures selected |
//  +-------------------------------------------------------------+
class frmMain : public Form {
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override;

    void Form_Load() override;
    void Form_Unload() override;

    // Album operations, reached from the commands.
    void ADD();
    void ADDALL();
    void CLEAR();
    void CLEARALL();
    void FOUNDLSTCHK();
    void SELECTCHK();

    void SETTITLE(const QString& FileName = QString());
    // The path of the found list's current item, in the folder chosen in the tree;
    // none without a current item.
    std::optional<QString> currentFoundPath() const;
    // Gives the menus their images.
    void ICONMENUS();

    const platform::ImageList* imageList() const override { return &IMGLST; }

    // The one filter of the found list.
    static QString picturePattern() { return QStringLiteral("*.bmp;*.jpg;*.gif"); }
    // The most items the album and the found list hold (their counters are 16-bit).
    static constexpr int32_t MaxListItems = 32767;

    // Controls.
    platform::ImageList IMGLST;
    platform::FileListBox FLBFOUND;
    platform::FolderTree* FTVBROWSE = nullptr;
    platform::ListView* LVWFOUND = nullptr;
    platform::ListView* LSTSELECTED = nullptr;
    platform::Toolbar* TBARMAIN = nullptr;
    platform::StatusBar* SBMAIN = nullptr;
    zuv::ICOMNU* ICOMNU = nullptr;
    QTimer* TMR1 = nullptr;
    QWidget* PICMAIN = nullptr;
    QWidget* PICHEADER = nullptr;
    QWidget* PICBOX = nullptr;
    QWidget* PICTREE = nullptr;
    QWidget* PICFND = nullptr;
    QWidget* PICSELCT = nullptr;
    QLabel* LBLDESC = nullptr;
    QWidget* PICBAR1 = nullptr;
    QWidget* PICBAR2 = nullptr;
    zuv::VBAR* VBAR1 = nullptr;
    zuv::VBAR* VBAR2 = nullptr;
    zuv::VBAR* VBAR3 = nullptr;
    zuv::TXTSEP* TXTSEP1 = nullptr;
    zuv::TXTSEP* TXTSEP2 = nullptr;

    QMenu* MNUFILETOP = nullptr;
    QAction* MNUFILERUN = nullptr;
    QAction* MNUFILEEXIT = nullptr;
    QMenu* MNUEDITTOP = nullptr;
    QAction* MNUEDITADD = nullptr;
    QAction* MNUEDITADDALL = nullptr;
    QAction* MNUEDITREMOVE = nullptr;
    QAction* MNUEDITREMOVEALL = nullptr;
    QMenu* MNUVIEWTOP = nullptr;
    QAction* MNUVIEWSTANDARDBAR = nullptr;
    QAction* MNUVIEWSTATUSBAR = nullptr;
    QMenu* MNUHELPTOP = nullptr;
    QAction* MNUHELPWEBSITE = nullptr;
    QAction* MNUHELPABOUT = nullptr;

private:
    // Building the window (frmMain_controls.cpp).
    void createMenus();
    void createBands();
    void createPanes();
    void connectEvents();

    // Menu and toolbar descriptions (frmMain_menus.cpp).
    void createMenuTracking();
    // The toolbar's buttons and the menu items of the same commands.
    platform::ToolbarCommands commands_;

    // The layout of the panes, in twips (frmMain_layout.cpp).
    void stackBands();
    void Form_Resize() override;
    void PICBAR1MOVE();
    void PICBAR2MOVE();
    void PICBAR1_MouseMove(int Button, int Shift, float X, float Y);
    void PICBAR2_MouseMove(int Button, int Shift, float X, float Y);
    bool eventFilter(QObject* watched, QEvent* event) override;

    // The album (frmMain_album.cpp).
    void ADDFILE(int16_t Index);
    void COUNTSHOW();
    void loadAlbum();
    int32_t nextFreeSlot() const;
    void appendToAlbumList(const QString& path, int32_t slot);
    // Lists stored pictures (slot, path) after the items there, as
    // appendToAlbumList would one by one.
    void appendStoredToAlbumList(const QList<std::pair<int32_t, QString>>& pictures);
    // Writes a picture into its slot of the stored album and makes that slot "Items".
    void storeInAlbum(int32_t slot, const QString& path);
    // Whether the list holds the whole stored album; reads it again if a read of it
    // failed before, and stores the pictures added in the window meanwhile.
    bool albumReadable();

    // Folder browsing (frmMain_browse.cpp).
    void FTVBROWSE_FolderChanged(const QString& path);

    // Commands (frmMain_commands.cpp).
    void KEYCHECK(int KeyCode, int Shift);
    void TBARMAIN_ButtonClick(const QString& key);
    void MNUEDITADD_Click();
    void MNUEDITADDALL_Click();
    void MNUEDITREMOVE_Click();
    void MNUEDITREMOVEALL_Click();
    void MNUFILERUN_Click();
    void MNUFILEEXIT_Click();
    void MNUVIEWSTANDARDBAR_Click();
    void MNUVIEWSTATUSBAR_Click();
    void MNUHELPWEBSITE_Click();
    void writeViewSettings();
    void LVWFOUND_LostFocus();
    void LVWFOUND_KeyDown(int KeyCode, int Shift);
    void LSTSELECTED_KeyDown(int KeyCode, int Shift);
    void LVWFOUND_KeyUp(int KeyCode, int Shift);
    void LSTSELECTED_KeyUp(int KeyCode, int Shift);
    void LVWFOUND_MouseUp(int Button, int Shift, float X, float Y);
    void LSTSELECTED_MouseUp(int Button, int Shift, float X, float Y);
    void MNUHELPABOUT_Click();
    // Raises a context menu at a place in twips of the client area.
    void PopupMenu(QMenu* menu, float X, float Y);
    void LSTSELECTED_LostFocus();

    // Album state.
    int16_t NEXTINDEX = 1;
    int32_t STOREDITEMS = 0;
    int32_t SLOTNO = 0;
    // A read of the stored album failed: the list may lack some of its pictures.
    bool albumUnread = false;
    // The stored folder couldn't be read at start: the start's change of folder
    // then leaves the stored one as it is instead of writing the default over it.
    bool keepStoredFolder = false;
    QString ADDPATH;
    QString ADDEXT;
    QString SLOTPATH;
    int16_t NAMELEN = 0;
    int16_t DOTPOS = 0;
};
