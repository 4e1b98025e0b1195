#pragma once

#include "platform/print/PictureSurface.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/ToolbarCommands.h"

#include <QStringList>

class QAction;
class QFrame;
class QLabel;
class QMenu;
class QScrollBar;
class QTimer;

namespace platform {
class ComboBox;
class CommonDialog;
class ImageControl;
class RichTextBox;
class StatusBar;
class Toolbar;
} // namespace platform

namespace zuv {
class ICOMNU;
class TXTSEP;
} // namespace zuv

// The print preview window. It shows a rich text document page by page as it will
// be printed and lets the user page, zoom and print; clsPrinting::PRINTPREVIEW
// opens it modally. It is also the home of the hidden controls that the print
// engine works with, so it is loaded, without being shown, whenever a document is
// counted or printed: RTF2 holds the document to page, RTF3 the range being
// printed, PICSTDPAGE the page surface, CMD1 the print dialog of jobs started here.
//
// A page is drawn once into PICSTDPAGE at screen resolution; IMGPREVIEW stretches
// a copy of that bitmap, so zooming only resizes IMGPREVIEW.
//
//  +--------------------------------------------------------------------+
//  | menu bar: File  View (Zoom)  Go To  Help                           |
//  | PICTBAR: FRAMTBAR: TBARMAIN [print | |< < > >| | CBOPGNO | - +]     |
//  |                    LBLZOOM CBOPGZOOM                               |
//  | PICWINDOW:    +-----------+                                   |^|  |
//  |               | IMGPREVIEW|                           SCRVBAR | |  |
//  |               +-----------+                                   |v|  |
//  |          <SCRHBAR>                                        PICFILL  |
//  | SBMAIN: text | Paper Size: | 8.50 x 11.00 inches | | Page No: | 1 | of | 3 |
//  +--------------------------------------------------------------------+
class frmPPrev : public Form {
    Q_OBJECT
public:
    frmPPrev();
    ~frmPPrev() override;

    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;

    // Gives the menus their images.
    void ICONMENUS();
    // The keys of the work area: Home, PgUp, PgDn and End page as the Go To menu
    // does while its items are on; the arrow keys scroll by 1000 twips, and a step
    // beyond either end of a scroll bar is refused, so the page stays where it is.
    void PREVIEWKEYS(int KeyCode, int Shift);

    const platform::ImageList* imageList() const override { return &IMGLST; }

    // The zoom steps in the order of the list and of the Zoom menu.
    static const QStringList& zoomSteps();
    // "SOFTWARE\<company>\GLOBAL\frmPPrev\Items": the preview's settings.
    static QString settingsKey();

    // Controls.
    platform::ImageList IMGLST;
    QWidget* PICTBAR = nullptr;
    QWidget* FRAMTBAR = nullptr;
    platform::Toolbar* TBARMAIN = nullptr;
    platform::ComboBox* CBOPGNO = nullptr;
    platform::ComboBox* CBOPGZOOM = nullptr;
    QLabel* LBLZOOM = nullptr;
    zuv::TXTSEP* TXTSEP1 = nullptr;
    zuv::TXTSEP* TXTSEP2 = nullptr;
    QFrame* PICWINDOW = nullptr;
    platform::ImageControl* IMGPREVIEW = nullptr;
    QScrollBar* SCRHBAR = nullptr;
    QScrollBar* SCRVBAR = nullptr;
    QWidget* PICFILL = nullptr;
    platform::StatusBar* SBMAIN = nullptr;
    platform::PictureSurface PICSTDPAGE;
    platform::RichTextBox* RTF2 = nullptr;
    platform::RichTextBox* RTF3 = nullptr;
    platform::CommonDialog* CMD1 = nullptr;
    QTimer* TMR1 = nullptr;
    // The page buttons and the Go To items of the same commands.
    platform::ToolbarCommands commands;
    zuv::ICOMNU* ICOMNU = nullptr;

    QMenu* MNUFILETOP = nullptr;
    QAction* MNUFILEPRINT = nullptr;
    QAction* MNUFILEEXIT = nullptr;
    QMenu* MNUVIEWTOP = nullptr;
    QAction* MNUVIEWTOOLBAR = nullptr;
    QAction* MNUVIEWSTATUSBAR = nullptr;
    QMenu* MNUVIEWZOOM = nullptr;
    QAction* MNUZOOM200 = nullptr;
    QAction* MNUZOOM150 = nullptr;
    QAction* MNUZOOM100 = nullptr;
    QAction* MNUZOOM75 = nullptr;
    QAction* MNUZOOM50 = nullptr;
    QAction* MNUZOOM25 = nullptr;
    QAction* MNUZOOMPW = nullptr;
    QAction* MNUZOOMWP = nullptr;
    QMenu* MNUGOTOTOP = nullptr;
    QAction* MNUVIEWFIRST = nullptr;
    QAction* MNUVIEWPREVIOUS = nullptr;
    QAction* MNUVIEWNEXT = nullptr;
    QAction* MNUVIEWLAST = nullptr;
    QMenu* MNUHELPTOP = nullptr;
    QAction* MNUHELPABOUT = nullptr;

    // The Zoom menu's items in the order of zoomSteps().
    QList<QAction*> zoomItems() const;

private:
    static QString readSetting(const QString& item, const QString& defaultValue);
    static void writeSetting(const QString& item, const QString& data);

    // Building the window (frmPPrev_controls.cpp).
    void createMenus();
    void createToolStrip();
    void createWorkArea();
    void createStatusBar();
    void connectEvents();
    void createMenuTracking();

    // Commands.
    void TBARMAIN_ButtonClick(const QString& key);
    void MNUFILEPRINT_Click();
    void MNUFILEEXIT_Click();
    void MNUVIEWTOOLBAR_Click();
    void MNUVIEWSTATUSBAR_Click();
    void MNUHELPABOUT_Click();
    void CBOPGNO_Click();
    void IMGPREVIEW_MouseUp(int Button, int Shift, float X, float Y);

    // The layout (frmPPrev_layout.cpp).
    void stackBars();
    void SCRHBAR_Change();
    void SCRVBAR_Change();

    // PICWINDOW's inside, within its sunken border: the parent of the image,
    // the scroll bars and the corner between them.
    QWidget* workArea_ = nullptr;
};
