#pragma once

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QString>

#include <array>
#include <cstdint>

class Form;
class QWidget;

namespace platform {
class Canvas;
class PictureBox;
class PictureSurface;
} // namespace platform

// The shared service class of the maker's programs: the settings store, file and
// path services, and (in their own folders) the other services. One instance,
// reached through clsLibrary::instance(). Operations that belong to another
// subsystem are defined in that subsystem's folder.
class clsLibrary {
public:
    static clsLibrary& instance();

    // --- Settings store -------------------------------------------------------
    // KEY is the root handle as signed decimal text ("-2147483647" is
    // HKEY_CURRENT_USER). A value longer than 254 characters, absent, or of a type
    // other than text reads as SDEFAULT.
    QString REGSTRREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                       const QString& SDEFAULT = QString());
    bool REGSTRWRITE(const QString& KEY, const QString& SUBKEY, const QString& ITEM, const QString& DATA);
    // Despite their names these two write: a 32-bit number and a byte array.
    QString REGDWORDREAD(int32_t hKey, const QString& STRPATH, const QString& VALNAME, int32_t SDATAVAL);
    bool REGBINARYREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                       const QByteArray& DATA);
    // Stores the fixed toolbar record 100, 0, 0, 0, 101.
    void REGBINARYWRITE();

    // The root handles as the text that the store operations take.
    static QString currentUserKey();  // "-2147483647"
    static QString localMachineKey(); // "-2147483646"
    // "SOFTWARE\<company>\<title>", the base of the program's own keys.
    static QString programKey();
    // "SOFTWARE\<company>", the base of the keys shared by the maker's programs.
    static QString companyKey();

    // --- File and path services ----------------------------------------------
    QString FILECHK(const QString& FILENAME);
    bool FILEEXISTS(const QString& PATHSTR);
    // Creates a missing folder (one level) and answers whether it existed before.
    bool FOLDEREXIST(const QString& PATHSTR);
    QString FILENAMELENCHK(const QString& FILENAME);
    QString GETFOLDERPATH(const QString& FILEPATH);
    QString GETWINDOWSDIR();
    QString GETDESKTOPDIR();
    QString FILESLOCATION();
    // Moves the file to the desktop's trash after the user confirms.
    void FILEDELETE(const QString& CURRENTFILENAME);
    void FILEMOVE(const QString& FILELOCATION, const QString& FILEDESTINATION);
    void FILERENAME(const QString& CURRENTFILENAME, const QString& NEWFILENAME);
    void FOLDERBROWSE(Form* CURRENTFORM, const QString& CURRENTFLDRLOCATION, Form* FORMNAME);
    void INTERNETACCESS(const QString& HWND, const QString& LINKTYPESTR, const QString& ADDRESS);

    // What FOLDERBROWSE hands to the form it shows.
    Form* browseCallingForm() const { return browseForm_; }
    QString browseFolderLocation() const { return browseLocation_; }

    // --- Window placement -----------------------------------------------------
    // A form's place, size and window state, kept in twips under
    // "SOFTWARE\<company>\<PROGRAMFLDR>\<form name>\Window" of the current user.
    // FORMLOAD runs as the form loads and keeps a restored window on the screen;
    // FORMSAVE runs as it unloads. With RESIZE false only the position is kept.
    void FORMLOAD(const QString& PROGRAMFLDR, Form* FORMNAME, bool RESIZE);
    void FORMSAVE(const QString& PROGRAMFLDR, Form* FORMNAME, bool RESIZE);
    // Put a dialog's buttons 165 twips from the top of their container, the right
    // one 135 twips in from the form's right inner edge and the two 135 apart.
    void RESIZEBTNCLOSE(Form* form, QWidget* BTNCLOSE);
    void RESIZEBTNSOKCANCEL(Form* form, QWidget* BTNOK, QWidget* BTNCANCEL);

    // --- Text and number helpers ----------------------------------------------
    // Numbers are written with '.' as the decimal mark and halves rounded away from
    // zero on the digits as written. A text that isn't a number stays as it is.
    QString TEXTJUSTIFY(const QString& STR);         // "0.0"; a number beyond a double: ""
    QString TEXTJUSTIFYCURRENCY(const QString& STR); // "0.00"; a number beyond a double: ""
    QString CURRENCYFMT(const QString& NUMBER);      // "0.00"; "" stays ""; beyond a double: unchanged
    // True when no character of STR equals CHAR (with case).
    bool CHARCHECK(const QString& STR, const QString& CHAR);
    // Shows Rows rows in the combo box's drop-down list; with Register the combo box
    // is also kept by a helper for the life of the program. hWnd isn't needed here.
    void COMBOINIT(const QString& hWnd, const QString& Rows, class QComboBox* Combo, bool Register);
    QString GETAPPNUMBER(); // "major.minor" of the application
    // At most 32 characters and "...", without accelerator markers ("&").
    QString GETCAPTION(const QString& sCaption);
    // The registered owner of the machine, and the current user's organisation.
    QString GETCOMPANYNAME();
    QString GETCOMPANYREG();
    // A colour as "#RRGGBB".
    QString GETHEXVAL(int32_t COLOR);
    // 16-bit signed hexadecimal to decimal text, "0" when it can't be read.
    QString HEX2STR(const QString& INHEX);
    // "http://" in front of an address without "http://", "https://" or "ftp://".
    QString HTMLFORMATCHECK(const QString& STR);
    // The number at piece PIECENO (from 1) of a delimited text: a piece that isn't
    // a number throws a type mismatch, except the last one, which reads leniently.
    // More than 32767 characters overflow.
    double PIECE(const QString& STR, const QString& SEPARATOR, int16_t PIECENO);
    // Printer pixels to inches. The printer's twips per pixel are arguments until
    // there is a printer object to ask.
    double SHOWUNITS(int32_t Value, bool AlongX, float PrinterTwipsPerPixelX, float PrinterTwipsPerPixelY);
    // The text before the first TOKEN, or "" (more than 32767 characters overflow).
    QString TOKENLEFT(const QString& Source, const QString& TOKEN);
    // The key filter of an amount field: the key code the field is to receive, 0 to
    // swallow it. Digits, backspace, and one full stop pass.
    int16_t TXTCURRENCYLOCK(class QLineEdit* TXTBOX, int16_t KEYASCIIVAL);
    // Words between blanks; a word divided by a hyphen at a line end counts once.
    int32_t WORDCOUNT(const QString& TEXT);
    // Screen pixels and twips, rounded to the even neighbour on halves.
    std::pair<int32_t, int32_t> PIXELSTOTWIPS(int32_t x, int32_t y);
    std::pair<int32_t, int32_t> TWIPSTOPIXELS(int32_t x, int32_t y);

    // --- Picture information --------------------------------------------------
    // The image record of the header reader: set IMAGEFILE, call GETIMAGEFILEINFO,
    // read the others. IMAGETYPE is 0 unknown, 1 GIF, 2 JPEG, 3 PNG, 4 BMP.
    QString IMAGEFILE;
    int32_t IMAGEWIDTH = 0;
    int32_t IMAGEHEIGHT = 0;
    int32_t IMAGEDEPTH = 0; // bits per pixel
    int32_t IMAGETYPE = 0;
    // Fills the record from the file's header bytes; a failure shows a message box
    // and leaves the fields as they stood at that point.
    void GETIMAGEFILEINFO();
    // The words for a depth given as decimal text: 1, 4, 8 and 24 bits have some,
    // any other depth the empty text.
    QString GETCOLORDEPTH(const QString& Depth);
    // Opens the properties dialog that FORMNAME loads, modally over MODALFORM, for the file at FILEPATH,
    // and returns once it is closed. FILETYPE "PICTURE" adds the Picture tab; the document arguments are
    // for a caller that shows a text document's properties.
    void GETPROPERTIES(Form& (*FORMNAME)(), const QString& FILEPATH, Form* MODALFORM, const QString& FILETYPE,
                       const QString& TXTRTFSRC = QString(), const QString& TXTRTFSELSRC = QString(),
                       QWidget* RTFBOXSRC = nullptr);

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
    // item is read from CURRENTFORM's menus when that is "frmPopup" or "frmPPrev",
    // else from STATUSFORM's. Number 0, a separator, and a caption that no row knows
    // clear the line; a window command's number shows that command's text.
    void STATUSTEXTDESC(Form* CURRENTFORM, Form* STATUSFORM, int32_t MENUNUMBER, bool SEPARATOR,
                        const QString& FILETYPE = QString());
    // Describes the toolbar button strictly around X (twips from the toolbar's left
    // edge, as its MouseMove reports it) by the caption in its Description, in form's
    // status line. Over no button the line stays as it was.
    void GETTBARDESCRIPTIONS(Form* form, float X, class QToolBar* toolbar, const QString& FILETYPE);

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
    // The print dialog that opens next is centred on the screen; HOOKFRMUNLOAD
    // withdraws a request that no dialog has taken yet.
    void HOOKFRMLOAD();
    void HOOKFRMUNLOAD();

    // --- Headers and footers ----------------------------------------------------
    // Draw a page's header and footer, before its body, as the page setup keeps
    // them (date, time, title; two fields and the page number PGNO; two rules).
    // Margins are twips from the sheet's edges. PAGEHEADERFOOTERINFO draws on the
    // current printer, PAGEHEADERFOOTERINFOPREVIEW on the preview's page surface,
    // with the few positions that differ between the two.
    void PAGEHEADERFOOTERINFO(const QString& PGNO, int16_t Left, int16_t Top, int16_t Bottom, int16_t Right);
    void PAGEHEADERFOOTERINFOPREVIEW(platform::PictureSurface* INCONTROL, const QString& PGNO, int16_t Left,
                                     int16_t Top, int16_t Bottom, int16_t Right);

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

    // --- Bitmap builders ------------------------------------------------------
    // Raw pixel rows in memory into a bitmap, and the bitmap into a picture box. A
    // caller fills the colour table of an indexed format first, then builds, then
    // draws. The rows stand as in bitmap files: each padded to a multiple of 4 bytes,
    // the first row the bottom one, or the top one with ORIENTATION true. 1, 4 and 8
    // bits per pixel index the format's colour table (the first pixel in the high
    // bits of a byte); 16 bits are little-endian 5-5-5 (blue in the low bits); the
    // "24" format has four bytes a pixel: blue, green, red, unused. An array shorter
    // than the rows demand, or a size that can't be built, leaves BITMAPHANDLE null.
    void CREATEBMP1(const QByteArray& BYTEARRAY, int32_t BMPWIDTH, int32_t BMPHEIGHT, bool ORIENTATION);
    void CREATEBMP4(const QByteArray& BITMAPARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP8(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP16(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP24(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    // Colour tables, kept from call to call (black until filled). The arrays hold
    // three bytes a colour: red, green, blue. One that has too few colours writes
    // the entries it has and throws "Subscript out of range".
    void INITCOLORTBL1(); // black, white
    void INITCOLORTBL4(const QByteArray& BYTEARRAY);
    void INITCOLORTBL8(const QByteArray& BYTEARRAY);
    // The bitmap last built, null while none was.
    QImage BITMAPHANDLE() const { return bitmapHandle_; }
    // Clears PICOBJECT and draws the PICWIDTH by PICHEIGHT pixels at the top left of
    // the last bitmap into it, stretched to the drawing size. SCALEVAL 1 first sizes
    // the box to the bitmap. A box with a border is drawn at its outer size and grows
    // by its border, so that the former outer size becomes the inner one; a box
    // without one is drawn at its size.
    void DRAWBITMAP(int32_t PICWIDTH, int32_t PICHEIGHT, platform::PictureBox* PICOBJECT, uint8_t SCALEVAL);

    // --- Page setup ---
    // Open the page setup modally, on its Page tab or on its Header/Footer tab, with
    // the hourglass in the main window's status line until the dialog has loaded.
    // They return once the dialog is closed.
    void PAGESETUPPAGESHOW();
    void PAGESETUPHEADFOOTSHOW();

private:
    clsLibrary() = default;
    void drawHeaderFooter(platform::Canvas& device, bool preview, const QString& PGNO, int16_t Left,
                          int16_t Top, int16_t Bottom, int16_t Right);
    Form* browseForm_ = nullptr;
    QString browseLocation_;
    // The colour tables of the indexed formats and the bitmap last built.
    std::array<QRgb, 2> colorTable1_{};
    std::array<QRgb, 16> colorTable4_{};
    std::array<QRgb, 256> colorTable8_{};
    QImage bitmapHandle_;
};
