#pragma once

#include <QRect>
#include <QString>

#include <cstdint>

class Form;
class QToolBar;

// The services of the presentation layer: the message catalogue, the command
// descriptions in a window's status line, icon menus and the pointer test of a
// toolbar. They keep no state; one instance, reached through
// PresentationServices::instance().
class PresentationServices {
public:
    static PresentationServices& instance();
    PresentationServices(const PresentationServices&) = delete;
    PresentationServices& operator=(const PresentationServices&) = delete;

    // --- Message catalogue ----------------------------------------------------
    // The modal messages of the shared services, addressed by number; statements and
    // questions have number spaces of their own. FILE1 to FILE3 fill the row's text
    // (FILE4 is taken and no row uses it). A number with no row shows an empty box
    // with one OK button and the program's title. Rows 13, 15 and 24 of the
    // statements sound the warning first.
    void MESSAGEBOX(int16_t MSGNO, const QString& FILE1 = QString(), const QString& FILE2 = QString(),
                    const QString& FILE3 = QString(), const QString& FILE4 = QString());
    // Returns the pressed button's code: 6 Yes, 7 No, 2 Cancel, 1 OK (a row-less number).
    int32_t MESSAGEBOXFCN(int16_t MSGNO, const QString& FILE1 = QString(), const QString& FILE2 = QString(),
                          const QString& FILE3 = QString(), const QString& FILE4 = QString());
    // True when no file of that name exists, or the user says Yes to overwriting it.
    bool OVERWRITECHK(const QString& FILENAME);

    // --- Command descriptions -------------------------------------------------
    // A form's status line is panel 1 of its status bar (the platform::StatusBar
    // among its own controls), and its menus are those of the zuv::ICOMNU among its
    // children; a form without either shows or reads nothing.
    //
    // Writes STATUSTEXT with a closing full stop to the status line (an empty text
    // clears it) and sets SBFORM's pointer to MOUSEPOINTERVAL (0 default, 11 hourglass).
    void STATUSBARCAPTION(Form* SBFORM, const QString& STATUSTEXT = QString(), int16_t MOUSEPOINTERVAL = 0);
    // Describes item MENUNUMBER, as ICOMNU's ItemReport or ItemReportPlain raise it,
    // in STATUSFORM's status line, or in the print preview's while it is visible. The
    // item is read from CURRENTFORM's menus when that form describes its own menus
    // (Form::describesOwnMenus), else from STATUSFORM's. Number 0, a separator, and a caption that no row
    // knows clear the line; a window command's number shows that command's text.
    void STATUSTEXTDESC(Form* CURRENTFORM, Form* STATUSFORM, int32_t MENUNUMBER, bool SEPARATOR,
                        const QString& FILETYPE = QString());
    // Describes the toolbar button strictly around X (twips from the toolbar's left
    // edge, as its MouseMove reports it) by the caption in its Description, in form's
    // status line. Over no button the line stays as it was.
    void GETTBARDESCRIPTIONS(Form* form, float X, QToolBar* toolbar, const QString& FILETYPE);

    // --- Icon menus and pointer tracking ----------------------------------------
    // Gives menu item MENUITEM of ICOMNUFORM's icon menu the image ICON of
    // IMGLSTFORM's image list, or no image when ICON is empty. An unknown key or
    // item leaves the item as it was.
    void ICOMNUSETUP(Form* ICOMNUFORM, Form* IMGLSTFORM, const QString& MENUITEM,
                     const QString& ICON = QString());
    // Adds an item to FORMNAME's icon menu at run time and gives it its image.
    void MENUCREATE(Form* FORMNAME, const QString& CAPTION, const QString& MENUITEM, int32_t ITEM,
                    int32_t ParentItemNumber, const QString& ICON, bool CHECKED, bool Enabled);
    // 1 when the pointer is outside the rectangle, in pixels from the form's outer
    // top left corner, all four edges inside it; else 0.
    int16_t MOUSEMOVE(Form* FORMNAME, int16_t CONTROLLEFT, int16_t CONTROLRIGHT, int16_t CONTROLTOP,
                      int16_t CONTROLBOTTOM);
    int16_t MOUSEMOVEMDI(Form* FORMNAME, int16_t CONTROLLEFT, int16_t CONTROLRIGHT, int16_t CONTROLTOP,
                         int16_t CONTROLBOTTOM);
    // The same for a rectangle that the caller measures (a toolbar where it stands).
    int16_t MOUSEMOVE(Form* FORMNAME, const QRect& CONTROL);

private:
    PresentationServices() = default;
};
