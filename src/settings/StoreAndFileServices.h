#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <utility>

class Form;
class QComboBox;
class QLineEdit;
class QWidget;

// The services of the settings layer: the settings store, files and paths, the
// placement of windows, and text and number helpers. One instance, reached through
// StoreAndFileServices::instance(), which keeps what FOLDERBROWSE hands on.
class StoreAndFileServices {
public:
    static StoreAndFileServices& instance();
    StoreAndFileServices(const StoreAndFileServices&) = delete;
    StoreAndFileServices& operator=(const StoreAndFileServices&) = delete;

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
    void COMBOINIT(const QString& hWnd, const QString& Rows, QComboBox* Combo, bool Register);
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
    int16_t TXTCURRENCYLOCK(QLineEdit* TXTBOX, int16_t KEYASCIIVAL);
    // Words between blanks; a word divided by a hyphen at a line end counts once.
    int32_t WORDCOUNT(const QString& TEXT);
    // Screen pixels and twips, rounded to the even neighbour on halves.
    std::pair<int32_t, int32_t> PIXELSTOTWIPS(int32_t x, int32_t y);
    std::pair<int32_t, int32_t> TWIPSTOPIXELS(int32_t x, int32_t y);

private:
    StoreAndFileServices() = default;
    Form* browseForm_ = nullptr;
    QString browseLocation_;
};
